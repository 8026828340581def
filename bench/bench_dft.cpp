// DFT of any length and Hilbert against FFTW 3 (plans made with
// FFTW_MEASURE, out of place, only the execute call timed): c2c single and
// double, r2c single and double (CCS), at the lengths of each path (small
// kernels, direct, prime factor, convolution, powers of two), the bare FFT
// call at the power-of-two lengths, and the analytic signal (r2c, bin edit,
// c2c backward) against the Hilbert transform.
//
//   bench_dft --benchmark_repetitions=3 --benchmark_report_aggregates_only=true
// Names: <series>/<impl>/<N>, series c32 c64 r32 r64 hilbert, impl vrx, fft
// (the bare vrxsFFTFwd call), pair (the two in turns, counter fft_over_dft)
// or fftw.
#include <benchmark/benchmark.h>

#include <algorithm>
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

// Every buffer starts on a page, so that the DFT, the bare FFT and FFTW see
// their sources, destinations and work at the same offsets modulo 4096 (with
// 64-byte alignment, where each landed depended on the sizes allocated and
// freed before it).
void* allocBytes(size_t n) { return aligned_alloc(4096, (n + 4095) & ~size_t(4095)); }

template <class T> void fillRandom(T* p, size_t n) {
    uint64_t s = 12345;
    for (size_t i = 0; i < n; ++i) {
        s = s * 6364136223846793005ull + 1442695040888963407ull;
        p[i] = static_cast<T>(static_cast<double>(s >> 11) * 0x1.0p-53 - 0.5);
    }
}

struct Mem {
    std::vector<void*> v;
    void* get(size_t n) {
        if (n == 0) return nullptr;
        v.push_back(allocBytes(n));
        memset(v.back(), 0, n);
        return v.back();
    }
    ~Mem() { for (void* p : v) free(p); }
};

template <class T, bool Real> VrxStatus dftSizes(int N, int* s, int* i, int* w) {
    if constexpr (Real) return sizeof(T) == 4 ? vrxsDFTGetSize_R_32f(N, 8, 0, s, i, w) : vrxsDFTGetSize_R_64f(N, 8, 0, s, i, w);
    else return sizeof(T) == 4 ? vrxsDFTGetSize_C_32fc(N, 8, 0, s, i, w) : vrxsDFTGetSize_C_64fc(N, 8, 0, s, i, w);
}
template <class T, bool Real> VrxStatus fftSizes(int order, int* s, int* i, int* w) {
    if constexpr (Real) return sizeof(T) == 4 ? vrxsFFTGetSize_R_32f(order, 8, 0, s, i, w) : vrxsFFTGetSize_R_64f(order, 8, 0, s, i, w);
    else return sizeof(T) == 4 ? vrxsFFTGetSize_C_32fc(order, 8, 0, s, i, w) : vrxsFFTGetSize_C_64fc(order, 8, 0, s, i, w);
}

// Source, destination, plan memory and work of one benchmark. At the powers
// of two the DFT and the bare FFT share one set, made once, so that both
// run on the same pages (the L2 cache is indexed by physical address); the
// two series still swing against each other from run to run, which the
// pair series does not.
struct Bufs {
    void *src, *dst, *spec, *init, *work;
};
Bufs makeBufs(Mem& m, size_t data, int s, int i, int w) {
    return {m.get(data), m.get(data), m.get(s), m.get(i), m.get(w)};
}
template <class T, bool Real> Bufs* sharedBufs(int N) {
    static Mem keep;  // lives as long as the process
    int s, i, w, s2, i2, w2;
    if (dftSizes<T, Real>(N, &s, &i, &w) != vrxOk || fftSizes<T, Real>(__builtin_ctz(N), &s2, &i2, &w2) != vrxOk)
        return nullptr;
    return new Bufs(makeBufs(keep, (2 * N + 2) * sizeof(T), std::max(s, s2), std::max(i, i2), std::max(w, w2)));
}

// One DFT plan and one bare FFT plan of the same length, each made in the
// memory given and run on a source and destination.
template <class T, bool Real> struct DftCall {
    static constexpr bool kFft = false;
    const void* spec = nullptr;
    Vrx8u* work = nullptr;
    VrxStatus init(int N, Vrx8u* specMem, Vrx8u* initMem, Vrx8u* workMem) {
        spec = specMem, work = workMem;
        if constexpr (Real) return sizeof(T) == 4 ? vrxsDFTInit_R_32f(N, 8, 0, specMem, initMem) : vrxsDFTInit_R_64f(N, 8, 0, specMem, initMem);
        else return sizeof(T) == 4 ? vrxsDFTInit_C_32fc(N, 8, 0, specMem, initMem) : vrxsDFTInit_C_64fc(N, 8, 0, specMem, initMem);
    }
    void operator()(const T* src, T* dst) const {
        if constexpr (Real) {
            if constexpr (sizeof(T) == 4) vrxsDFTFwd_RToCCS_32f(src, dst, static_cast<const VrxsDftPlan_R_32f*>(spec), work);
            else vrxsDFTFwd_RToCCS_64f(src, dst, static_cast<const VrxsDftPlan_R_64f*>(spec), work);
        } else {
            if constexpr (sizeof(T) == 4) vrxsDFTFwd_CToC_32fc(reinterpret_cast<const Vrx32fc*>(src), reinterpret_cast<Vrx32fc*>(dst), static_cast<const VrxsDftPlan_C_32fc*>(spec), work);
            else vrxsDFTFwd_CToC_64fc(reinterpret_cast<const Vrx64fc*>(src), reinterpret_cast<Vrx64fc*>(dst), static_cast<const VrxsDftPlan_C_64fc*>(spec), work);
        }
    }
};
template <class T, bool Real> struct FftCall {
    static constexpr bool kFft = true;
    void* plan = nullptr;
    Vrx8u* work = nullptr;
    VrxStatus init(int N, Vrx8u* specMem, Vrx8u* initMem, Vrx8u* workMem) {
        const int order = __builtin_ctz(N);
        work = workMem;
        if constexpr (Real) {
            if constexpr (sizeof(T) == 4) return vrxsFFTInit_R_32f(reinterpret_cast<VrxsFftPlan_R_32f**>(&plan), order, 8, 0, specMem, initMem);
            else return vrxsFFTInit_R_64f(reinterpret_cast<VrxsFftPlan_R_64f**>(&plan), order, 8, 0, specMem, initMem);
        } else {
            if constexpr (sizeof(T) == 4) return vrxsFFTInit_C_32fc(reinterpret_cast<VrxsFftPlan_C_32fc**>(&plan), order, 8, 0, specMem, initMem);
            else return vrxsFFTInit_C_64fc(reinterpret_cast<VrxsFftPlan_C_64fc**>(&plan), order, 8, 0, specMem, initMem);
        }
    }
    void operator()(const T* src, T* dst) const {
        if constexpr (Real) {
            if constexpr (sizeof(T) == 4) vrxsFFTFwd_RToCCS_32f(src, dst, static_cast<const VrxsFftPlan_R_32f*>(plan), work);
            else vrxsFFTFwd_RToCCS_64f(src, dst, static_cast<const VrxsFftPlan_R_64f*>(plan), work);
        } else {
            if constexpr (sizeof(T) == 4) vrxsFFTFwd_CToC_32fc(reinterpret_cast<const Vrx32fc*>(src), reinterpret_cast<Vrx32fc*>(dst), static_cast<const VrxsFftPlan_C_32fc*>(plan), work);
            else vrxsFFTFwd_CToC_64fc(reinterpret_cast<const Vrx64fc*>(src), reinterpret_cast<Vrx64fc*>(dst), static_cast<const VrxsFftPlan_C_64fc*>(plan), work);
        }
    }
};

// The DFT (vrx) or the bare FFT call (fft), alone in the buffers given or
// its own.
template <class T, bool Real, class Call> void benchOne(benchmark::State& state, int N, Bufs* sh) {
    Mem m;
    int s, i, w;
    VrxStatus st = Call::kFft ? fftSizes<T, Real>(__builtin_ctz(N), &s, &i, &w) : dftSizes<T, Real>(N, &s, &i, &w);
    if (st != vrxOk) { state.SkipWithError("GetSize"); return; }
    const Bufs b = sh ? *sh : makeBufs(m, (2 * N + 2) * sizeof(T), s, i, w);
    Call call;
    if (call.init(N, static_cast<Vrx8u*>(b.spec), static_cast<Vrx8u*>(b.init), static_cast<Vrx8u*>(b.work)) != vrxOk) {
        state.SkipWithError("Init");
        return;
    }
    T* src = static_cast<T*>(b.src);
    T* dst = static_cast<T*>(b.dst);
    fillRandom(src, 2 * N + 2);
    for (auto _ : state) {
        call(src, dst);
        benchmark::DoNotOptimize(dst);
        benchmark::ClobberMemory();
    }
}

// The DFT and the bare FFT of a power of two in turns (bench_pair.h):
// counters dft_ns, fft_ns (per call) and fft_over_dft.
template <class T, bool Real> void benchPair(benchmark::State& state, int N) {
    Mem m;
    int s, i, w, s2, i2, w2;
    if (dftSizes<T, Real>(N, &s, &i, &w) != vrxOk || fftSizes<T, Real>(__builtin_ctz(N), &s2, &i2, &w2) != vrxOk) {
        state.SkipWithError("GetSize");
        return;
    }
    const size_t data = (2 * N + 2) * sizeof(T);
    T* src = static_cast<T*>(m.get(data));
    T* dst = static_cast<T*>(m.get(data));
    Vrx8u* work = static_cast<Vrx8u*>(m.get(std::max(w, w2)));
    DftCall<T, Real> dft;
    FftCall<T, Real> fft;
    if (dft.init(N, static_cast<Vrx8u*>(m.get(s)), static_cast<Vrx8u*>(m.get(i)), work) != vrxOk ||
        fft.init(N, static_cast<Vrx8u*>(m.get(s2)), static_cast<Vrx8u*>(m.get(i2)), work) != vrxOk) {
        state.SkipWithError("Init");
        return;
    }
    fillRandom(src, 2 * N + 2);
    timePair(state, std::max(1, 65536 / N), [&] { dft(src, dst); }, [&] { fft(src, dst); }, "dft", "fft");
}

void benchHilbert(benchmark::State& state, int N) {
    Mem m;
    int s, b;
    if (vrxsHilbertGetSize_32f32fc(N, 0, &s, &b) != vrxOk) { state.SkipWithError("GetSize"); return; }
    auto* plan = static_cast<VrxsHilbertPlan*>(m.get(s));
    Vrx8u* buf = static_cast<Vrx8u*>(m.get(b));
    if (vrxsHilbertInit_32f32fc(N, 0, plan, buf) != vrxOk) { state.SkipWithError("Init"); return; }
    float* src = static_cast<float*>(m.get(N * sizeof(float)));
    Vrx32fc* dst = static_cast<Vrx32fc*>(m.get(N * sizeof(Vrx32fc)));
    fillRandom(src, N);
    for (auto _ : state) {
        vrxsHilbert_32f32fc(src, dst, plan, buf);
        benchmark::DoNotOptimize(dst);
        benchmark::ClobberMemory();
    }
}

#ifdef VRX_HAVE_FFTW
template <class T, bool Real> void benchFftw(benchmark::State& state, int N) {
    const size_t reals = 2 * N + 2;
    T* src = static_cast<T*>(allocBytes(reals * sizeof(T)));
    T* dst = static_cast<T*>(allocBytes(reals * sizeof(T)));
    if constexpr (sizeof(T) == 4) {
        fftwf_plan p = Real ? fftwf_plan_dft_r2c_1d(N, src, reinterpret_cast<fftwf_complex*>(dst), FFTW_MEASURE)
                            : fftwf_plan_dft_1d(N, reinterpret_cast<fftwf_complex*>(src), reinterpret_cast<fftwf_complex*>(dst), FFTW_FORWARD, FFTW_MEASURE);
        fillRandom(src, reals);
        for (auto _ : state) {
            fftwf_execute(p);
            benchmark::ClobberMemory();
        }
        fftwf_destroy_plan(p);
    } else {
        fftw_plan p = Real ? fftw_plan_dft_r2c_1d(N, src, reinterpret_cast<fftw_complex*>(dst), FFTW_MEASURE)
                           : fftw_plan_dft_1d(N, reinterpret_cast<fftw_complex*>(src), reinterpret_cast<fftw_complex*>(dst), FFTW_FORWARD, FFTW_MEASURE);
        fillRandom(src, reals);
        for (auto _ : state) {
            fftw_execute(p);
            benchmark::ClobberMemory();
        }
        fftw_destroy_plan(p);
    }
    free(src);
    free(dst);
}

// Analytic signal the FFTW way: r2c, positive bins doubled, negative ones
// cleared, c2c backward (scaled by 1/N, as the Hilbert plan does).
void benchFftwHilbert(benchmark::State& state, int N) {
    float* src = static_cast<float*>(allocBytes(N * sizeof(float)));
    fftwf_complex* dst = static_cast<fftwf_complex*>(allocBytes(N * sizeof(fftwf_complex)));
    fftwf_plan f = fftwf_plan_dft_r2c_1d(N, src, dst, FFTW_MEASURE);
    fftwf_plan b = fftwf_plan_dft_1d(N, dst, dst, FFTW_BACKWARD, FFTW_MEASURE);
    fillRandom(src, N);
    const int h = N / 2, mm = N % 2 ? h : h - 1;
    const float sc = 1.0f / N;
    for (auto _ : state) {
        fftwf_execute(f);
        dst[0][0] *= sc;
        dst[0][1] *= sc;
        for (int k = 1; k <= mm; ++k) { dst[k][0] *= 2 * sc; dst[k][1] *= 2 * sc; }
        if (N % 2 == 0) { dst[h][0] *= sc; dst[h][1] *= sc; }
        memset(dst + h + 1, 0, (N - 1 - h) * sizeof(fftwf_complex));
        fftwf_execute(b);
        benchmark::ClobberMemory();
    }
    fftwf_destroy_plan(f);
    fftwf_destroy_plan(b);
    free(src);
    free(dst);
}
#endif

// The DFT of a power of two is the bare FFT call behind a few checks: the
// two are compared by their fastest repetitions too (the "min" aggregate),
// which slow phases of the machine do not reach.
double minOf(const std::vector<double>& v) { return *std::min_element(v.begin(), v.end()); }

template <class T, bool Real> void series(const char* name, std::vector<int> lengths) {
    for (int N : lengths) {
        const std::string n = std::to_string(N);
        const bool pow2 = (N & (N - 1)) == 0;
        Bufs* sh = pow2 ? sharedBufs<T, Real>(N) : nullptr;
        benchmark::RegisterBenchmark((std::string(name) + "/vrx/" + n).c_str(), [N, sh](benchmark::State& s) { benchOne<T, Real, DftCall<T, Real>>(s, N, sh); })
            ->ComputeStatistics("min", minOf);
        if (pow2)
            benchmark::RegisterBenchmark((std::string(name) + "/fft/" + n).c_str(), [N, sh](benchmark::State& s) { benchOne<T, Real, FftCall<T, Real>>(s, N, sh); })
                ->ComputeStatistics("min", minOf);
        if (pow2)
            benchmark::RegisterBenchmark((std::string(name) + "/pair/" + n).c_str(), [N](benchmark::State& s) { benchPair<T, Real>(s, N); });
#ifdef VRX_HAVE_FFTW
        benchmark::RegisterBenchmark((std::string(name) + "/fftw/" + n).c_str(), [N](benchmark::State& s) { benchFftw<T, Real>(s, N); });
#endif
    }
}

}  // namespace

int main(int argc, char** argv) {
    const std::vector<int> common = {12, 15, 60, 100, 360, 1000, 1536, 4095, 97, 10007, 65535, 1024, 65536};
    std::vector<int> single = {17, 31, 47}, dbl = {17, 53, 89};
    single.insert(single.end(), common.begin(), common.end());
    dbl.insert(dbl.end(), common.begin(), common.end());
    series<float, false>("c32", single);
    series<double, false>("c64", dbl);
    series<float, true>("r32", single);
    series<double, true>("r64", dbl);
    for (int N : {1000, 1024, 4095, 10007}) {
        const std::string n = std::to_string(N);
        benchmark::RegisterBenchmark(("hilbert/vrx/" + n).c_str(), [N](benchmark::State& s) { benchHilbert(s, N); });
#ifdef VRX_HAVE_FFTW
        benchmark::RegisterBenchmark(("hilbert/fftw/" + n).c_str(), [N](benchmark::State& s) { benchFftwHilbert(s, N); });
#endif
    }
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
