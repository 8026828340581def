// FFT against FFTW 3 (plans made with FFTW_MEASURE, only the execute call
// timed): complex single and double, in place and out of place, and the real
// forward transform to CCS against r2c, at orders 4 to 22.
//
//   bench_fft [--benchmark_min_time=0.05] [--benchmark_repetitions=7] [--benchmark_filter=c32]
// The minimum time defaults to 0.05 s per case. Built with
// -DVRX_BENCH_FFTW_PREFIX=<prefix> it runs against the FFTW of
// scripts/anchors.sh instead of Debian's; the context names the version.
// Names: <series>/<impl>/<order>, series c32ip c32op c64ip c64op r32 r64,
// impl vrx, fftw or pair (the two in turns, counter fftw_over_vrx).
#include <benchmark/benchmark.h>
#include <stdlib.h>
#include <string.h>

#include <string>
#include <vector>

#include "bench_pair.h"
#include "vrxs.h"
#ifdef VRX_HAVE_FFTW
#include <fftw3.h>
#endif

namespace {

constexpr int kMinOrder = 4, kMaxOrder = 22;

void* allocBytes(size_t n) { return aligned_alloc(64, (n + 63) & ~size_t(63)); }

template <class T> void fillRandom(T* p, size_t n) {
    uint64_t s = 12345;
    for (size_t i = 0; i < n; ++i) {
        s = s * 6364136223846793005ull + 1442695040888963407ull;
        p[i] = static_cast<T>(static_cast<double>(s >> 11) * 0x1.0p-53 - 0.5);
    }
}

// Our side: a plan of the kind in memory of its own, and the transform.
template <class T, bool Real> struct VrxSide {
    Vrx8u *spec = nullptr, *init = nullptr, *work = nullptr;
    T *src = nullptr, *dst = nullptr, *out = nullptr;
    void* plan = nullptr;
    bool setup(int order, bool inPlace) {
        const size_t n = size_t(1) << order;
        int specSize, initSize, workSize;
        VrxStatus st;
        if constexpr (Real) st = sizeof(T) == 4 ? vrxsFFTGetSize_R_32f(order, vrxFftScaleNone, 0, &specSize, &initSize, &workSize)
                                                : vrxsFFTGetSize_R_64f(order, vrxFftScaleNone, 0, &specSize, &initSize, &workSize);
        else st = sizeof(T) == 4 ? vrxsFFTGetSize_C_32fc(order, vrxFftScaleNone, 0, &specSize, &initSize, &workSize)
                                 : vrxsFFTGetSize_C_64fc(order, vrxFftScaleNone, 0, &specSize, &initSize, &workSize);
        if (st != vrxOk) return false;
        spec = static_cast<Vrx8u*>(allocBytes(specSize));
        init = initSize ? static_cast<Vrx8u*>(allocBytes(initSize)) : nullptr;
        work = workSize ? static_cast<Vrx8u*>(allocBytes(workSize)) : nullptr;
        const size_t reals = Real ? n + 2 : 2 * n;
        src = static_cast<T*>(allocBytes(reals * sizeof(T)));
        dst = static_cast<T*>(allocBytes(reals * sizeof(T)));
        fillRandom(src, reals);
        memcpy(dst, src, reals * sizeof(T));
        out = inPlace ? src : dst;
        if constexpr (Real) {
            if constexpr (sizeof(T) == 4) st = vrxsFFTInit_R_32f(reinterpret_cast<VrxsFftPlan_R_32f**>(&plan), order, vrxFftScaleNone, 0, spec, init);
            else st = vrxsFFTInit_R_64f(reinterpret_cast<VrxsFftPlan_R_64f**>(&plan), order, vrxFftScaleNone, 0, spec, init);
        } else {
            if constexpr (sizeof(T) == 4) st = vrxsFFTInit_C_32fc(reinterpret_cast<VrxsFftPlan_C_32fc**>(&plan), order, vrxFftScaleNone, 0, spec, init);
            else st = vrxsFFTInit_C_64fc(reinterpret_cast<VrxsFftPlan_C_64fc**>(&plan), order, vrxFftScaleNone, 0, spec, init);
        }
        return st == vrxOk;
    }
    void run() const {
        if constexpr (Real) {
            if constexpr (sizeof(T) == 4) vrxsFFTFwd_RToCCS_32f(src, out, static_cast<VrxsFftPlan_R_32f*>(plan), work);
            else vrxsFFTFwd_RToCCS_64f(src, out, static_cast<VrxsFftPlan_R_64f*>(plan), work);
        } else {
            if constexpr (sizeof(T) == 4)
                vrxsFFTFwd_CToC_32fc(reinterpret_cast<Vrx32fc*>(src), reinterpret_cast<Vrx32fc*>(out), static_cast<VrxsFftPlan_C_32fc*>(plan), work);
            else
                vrxsFFTFwd_CToC_64fc(reinterpret_cast<Vrx64fc*>(src), reinterpret_cast<Vrx64fc*>(out), static_cast<VrxsFftPlan_C_64fc*>(plan), work);
        }
    }
    ~VrxSide() { free(spec); free(init); free(work); free(src); free(dst); }
};

// One transform per iteration.
template <class T, bool Real>
void benchVrx(benchmark::State& state, int order, bool inPlace) {
    VrxSide<T, Real> v;
    if (!v.setup(order, inPlace)) { state.SkipWithError("GetSize or Init"); return; }
    for (auto _ : state) {
        v.run();
        benchmark::DoNotOptimize(v.out);
        benchmark::ClobberMemory();
    }
    state.counters["ns_per_fft"] = benchmark::Counter(static_cast<double>(state.iterations()),
                                                      benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
}

#ifdef VRX_HAVE_FFTW
template <class T> struct FftwApi;
template <> struct FftwApi<float> {
    using Plan = fftwf_plan;
    using Cx = fftwf_complex;
    static Plan c2c(int n, float* s, float* d) { return fftwf_plan_dft_1d(n, reinterpret_cast<Cx*>(s), reinterpret_cast<Cx*>(d), FFTW_FORWARD, FFTW_MEASURE); }
    static Plan r2c(int n, float* s, float* d) { return fftwf_plan_dft_r2c_1d(n, s, reinterpret_cast<Cx*>(d), FFTW_MEASURE); }
    static void execute(Plan p) { fftwf_execute(p); }
    static void destroy(Plan p) { fftwf_destroy_plan(p); }
};
template <> struct FftwApi<double> {
    using Plan = fftw_plan;
    using Cx = fftw_complex;
    static Plan c2c(int n, double* s, double* d) { return fftw_plan_dft_1d(n, reinterpret_cast<Cx*>(s), reinterpret_cast<Cx*>(d), FFTW_FORWARD, FFTW_MEASURE); }
    static Plan r2c(int n, double* s, double* d) { return fftw_plan_dft_r2c_1d(n, s, reinterpret_cast<Cx*>(d), FFTW_MEASURE); }
    static void execute(Plan p) { fftw_execute(p); }
    static void destroy(Plan p) { fftw_destroy_plan(p); }
};

// FFTW's side: a plan made with FFTW_MEASURE (which overwrites its arrays),
// then the source filled.
template <class T, bool Real> struct FftwSide {
    using A = FftwApi<T>;
    T *src = nullptr, *dst = nullptr;
    typename A::Plan plan = nullptr;
    bool setup(int order, bool inPlace) {
        const int n = 1 << order;
        const size_t reals = Real ? size_t(n) + 2 : 2 * size_t(n);
        src = static_cast<T*>(allocBytes(reals * sizeof(T)));
        dst = static_cast<T*>(allocBytes(reals * sizeof(T)));
        T* out = inPlace ? src : dst;
        plan = Real ? A::r2c(n, src, out) : A::c2c(n, src, out);
        fillRandom(src, reals);
        return plan != nullptr;
    }
    void run() const { A::execute(plan); }
    ~FftwSide() {
        if (plan) A::destroy(plan);
        free(src); free(dst);
    }
};

template <class T, bool Real>
void benchFftw(benchmark::State& state, int order, bool inPlace) {
    FftwSide<T, Real> f;
    if (!f.setup(order, inPlace)) { state.SkipWithError("plan"); return; }
    for (auto _ : state) {
        f.run();
        benchmark::ClobberMemory();
    }
    state.counters["ns_per_fft"] = benchmark::Counter(static_cast<double>(state.iterations()),
                                                      benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
}

// Both in turns (bench_pair.h), blocks of about 2^16 points' worth (at
// least one call). Counters: vrx_ns and fftw_ns per call, fftw_over_vrx.
template <class T, bool Real>
void benchPair(benchmark::State& state, int order, bool inPlace) {
    VrxSide<T, Real> v;
    FftwSide<T, Real> f;
    if (!v.setup(order, inPlace) || !f.setup(order, inPlace)) { state.SkipWithError("setup"); return; }
    timePair(state, order >= 16 ? 1 : 1 << (16 - order), [&] { v.run(); }, [&] { f.run(); }, "vrx", "fftw");
}
#endif

template <class T, bool Real>
void addSeries(const char* name, bool inPlace) {
    for (int order = kMinOrder; order <= kMaxOrder; ++order) {
        std::string base = std::string(name) + "/";
        benchmark::RegisterBenchmark((base + "vrx/" + std::to_string(order)).c_str(),
                                     [order, inPlace](benchmark::State& s) { benchVrx<T, Real>(s, order, inPlace); })
            ->Unit(benchmark::kNanosecond);
#ifdef VRX_HAVE_FFTW
        benchmark::RegisterBenchmark((base + "fftw/" + std::to_string(order)).c_str(),
                                     [order, inPlace](benchmark::State& s) { benchFftw<T, Real>(s, order, inPlace); })
            ->Unit(benchmark::kNanosecond);
        benchmark::RegisterBenchmark((base + "pair/" + std::to_string(order)).c_str(),
                                     [order, inPlace](benchmark::State& s) { benchPair<T, Real>(s, order, inPlace); })
            ->Unit(benchmark::kNanosecond);
#endif
    }
}

}  // namespace

int main(int argc, char** argv) {
    // a short default minimum time: 342 cases
    std::vector<char*> args(argv, argv + argc);
    static char minTime[] = "--benchmark_min_time=0.05";
    bool hasMin = false;
    for (int i = 1; i < argc; ++i) hasMin = hasMin || strncmp(argv[i], "--benchmark_min_time", 20) == 0;
    if (!hasMin) args.insert(args.begin() + 1, minTime);
    int n = static_cast<int>(args.size());
    args.push_back(nullptr);
#ifdef VRX_HAVE_FFTW
    benchmark::AddCustomContext("fftw_version", fftwf_version);
#endif
    addSeries<float, false>("c32ip", true);
    addSeries<float, false>("c32op", false);
    addSeries<double, false>("c64ip", true);
    addSeries<double, false>("c64op", false);
    addSeries<float, true>("r32", false);
    addSeries<double, true>("r64", false);
    benchmark::Initialize(&n, args.data());
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
