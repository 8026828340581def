// DCT against FFTW 3 (REDFT10 forward, REDFT01 inverse, FFTW_MEASURE, only
// the execute call timed, out of place) at lengths that cover every path,
// and Goertzel against a plain scalar loop compiled -O3 -march=native.
//
//   bench_dct --benchmark_repetitions=3 --benchmark_report_aggregates_only=true
// Names: dct<32|64><fwd|inv>/<impl>/<N>, impl vrx or fftw;
//        goertz<32f|32fc|64f|64fc|16s|16sc>/<impl>/<len>, impl vrx or loop.
#include <benchmark/benchmark.h>
#include <stdlib.h>
#include <string.h>

#include <string>

#include "vrxs.h"
#ifdef VRX_HAVE_FFTW
#include <fftw3.h>
#endif

namespace {

const int kLengths[] = {8, 16, 35, 45, 46, 47, 100, 1000, 1024, 4096, 10007, 65536};

void* allocBytes(size_t n) { return aligned_alloc(64, (n + 63) & ~size_t(63)); }

template <class T> void fillRandom(T* p, size_t n) {
    uint64_t s = 12345;
    for (size_t i = 0; i < n; ++i) {
        s = s * 6364136223846793005ull + 1442695040888963407ull;
        p[i] = static_cast<T>(static_cast<double>(s >> 11) * 0x1.0p-53 - 0.5);
    }
}

template <class T, bool Inv>
void benchVrx(benchmark::State& state, int n) {
    int specSize, initSize, workSize;
    VrxStatus st = sizeof(T) == 4 ? vrxsDCTFwdGetSize_32f(n, 0, &specSize, &initSize, &workSize)
                                  : vrxsDCTFwdGetSize_64f(n, 0, &specSize, &initSize, &workSize);
    if (st != vrxOk) { state.SkipWithError("GetSize"); return; }
    Vrx8u* spec = static_cast<Vrx8u*>(allocBytes(specSize));
    Vrx8u* init = initSize ? static_cast<Vrx8u*>(allocBytes(initSize)) : nullptr;
    Vrx8u* work = workSize ? static_cast<Vrx8u*>(allocBytes(workSize)) : nullptr;
    T* src = static_cast<T*>(allocBytes(n * sizeof(T)));
    T* dst = static_cast<T*>(allocBytes(n * sizeof(T)));
    fillRandom(src, n);
    void* plan = nullptr;
    if constexpr (sizeof(T) == 4) {
        st = Inv ? vrxsDCTInvInit_32f(reinterpret_cast<VrxsDctPlan_Inv_32f**>(&plan), n, 0, spec, init)
                 : vrxsDCTFwdInit_32f(reinterpret_cast<VrxsDctPlan_Fwd_32f**>(&plan), n, 0, spec, init);
    } else {
        st = Inv ? vrxsDCTInvInit_64f(reinterpret_cast<VrxsDctPlan_Inv_64f**>(&plan), n, 0, spec, init)
                 : vrxsDCTFwdInit_64f(reinterpret_cast<VrxsDctPlan_Fwd_64f**>(&plan), n, 0, spec, init);
    }
    if (st != vrxOk) { state.SkipWithError("Init"); return; }
    for (auto _ : state) {
        if constexpr (sizeof(T) == 4) {
            if (Inv) vrxsDCTInv_32f(src, dst, static_cast<VrxsDctPlan_Inv_32f*>(plan), work);
            else vrxsDCTFwd_32f(src, dst, static_cast<VrxsDctPlan_Fwd_32f*>(plan), work);
        } else {
            if (Inv) vrxsDCTInv_64f(src, dst, static_cast<VrxsDctPlan_Inv_64f*>(plan), work);
            else vrxsDCTFwd_64f(src, dst, static_cast<VrxsDctPlan_Fwd_64f*>(plan), work);
        }
        benchmark::DoNotOptimize(dst);
        benchmark::ClobberMemory();
    }
    free(spec); free(init); free(work); free(src); free(dst);
}

#ifdef VRX_HAVE_FFTW
template <class T, bool Inv>
void benchFftw(benchmark::State& state, int n) {
    T* src = static_cast<T*>(allocBytes(n * sizeof(T)));
    T* dst = static_cast<T*>(allocBytes(n * sizeof(T)));
    const fftw_r2r_kind kind = Inv ? FFTW_REDFT01 : FFTW_REDFT10;
    if constexpr (sizeof(T) == 4) {
        fftwf_plan p = fftwf_plan_r2r_1d(n, src, dst, static_cast<fftwf_r2r_kind>(kind), FFTW_MEASURE);
        fillRandom(src, n);
        for (auto _ : state) {
            fftwf_execute(p);
            benchmark::DoNotOptimize(dst);
            benchmark::ClobberMemory();
        }
        fftwf_destroy_plan(p);
    } else {
        fftw_plan p = fftw_plan_r2r_1d(n, src, dst, kind, FFTW_MEASURE);
        fillRandom(src, n);
        for (auto _ : state) {
            fftw_execute(p);
            benchmark::DoNotOptimize(dst);
            benchmark::ClobberMemory();
        }
        fftw_destroy_plan(p);
    }
    free(src); free(dst);
}
#endif

// ------------------------------------------------------------ Goertzel

// The plain recurrence, as a user would write it.
template <class T, class S, bool Cplx>
__attribute__((noinline)) void goertzLoop(const S* x, int len, double f, T* re, T* im) {
    const double th = 6.283185307179586 * f;
    const T c = static_cast<T>(__builtin_cos(th)), s = static_cast<T>(__builtin_sin(th)), c2 = 2 * c;
    T a0 = 0, b0 = 0, a1 = 0, b1 = 0;
    for (int n = 0; n < len; ++n) {
        if constexpr (Cplx) {
            const T w0 = static_cast<T>(x[2 * n]) + c2 * a0 - b0;
            const T w1 = static_cast<T>(x[2 * n + 1]) + c2 * a1 - b1;
            b0 = a0; a0 = w0; b1 = a1; a1 = w1;
        } else {
            const T w = static_cast<T>(x[n]) + c2 * a0 - b0;
            b0 = a0; a0 = w;
        }
    }
    if constexpr (Cplx) {
        *re = a0 * c - a1 * s - b0;
        *im = a1 * c + a0 * s - b1;
    } else {
        *re = a0 * c - b0;
        *im = a0 * s;
    }
}

template <int Form>  // 0 32f, 1 32fc, 2 64f, 3 64fc, 4 16s, 5 16sc
void benchGoertz(benchmark::State& state, int len, bool lib) {
    const bool cplx = Form & 1;
    const size_t scalars = cplx ? 2 * size_t(len) : size_t(len);
    void* buf = allocBytes(scalars * 8);
    if (Form <= 1) fillRandom(static_cast<float*>(buf), scalars);
    else if (Form <= 3) fillRandom(static_cast<double*>(buf), scalars);
    else {
        int16_t* p = static_cast<int16_t*>(buf);
        for (size_t i = 0; i < scalars; ++i) p[i] = static_cast<int16_t>((i * 7919) % 2001 - 1000);
    }
    const float f = 0.1234f;
    for (auto _ : state) {
        if (lib) {
            Vrx32fc v32; Vrx64fc v64; Vrx16sc v16;
            switch (Form) {
                case 0: vrxsGoertz_32f(static_cast<Vrx32f*>(buf), len, &v32, f); benchmark::DoNotOptimize(v32); break;
                case 1: vrxsGoertz_32fc(static_cast<Vrx32fc*>(buf), len, &v32, f); benchmark::DoNotOptimize(v32); break;
                case 2: vrxsGoertz_64f(static_cast<Vrx64f*>(buf), len, &v64, f); benchmark::DoNotOptimize(v64); break;
                case 3: vrxsGoertz_64fc(static_cast<Vrx64fc*>(buf), len, &v64, f); benchmark::DoNotOptimize(v64); break;
                case 4: vrxsGoertz_16s_Sfs(static_cast<Vrx16s*>(buf), len, &v16, f, 8); benchmark::DoNotOptimize(v16); break;
                default: vrxsGoertz_16sc_Sfs(static_cast<Vrx16sc*>(buf), len, &v16, f, 8); benchmark::DoNotOptimize(v16); break;
            }
        } else {
            float r32, i32; double r64, i64;
            switch (Form) {
                case 0: goertzLoop<float, float, false>(static_cast<float*>(buf), len, f, &r32, &i32); benchmark::DoNotOptimize(r32); break;
                case 1: goertzLoop<float, float, true>(static_cast<float*>(buf), len, f, &r32, &i32); benchmark::DoNotOptimize(r32); break;
                case 2: goertzLoop<double, double, false>(static_cast<double*>(buf), len, f, &r64, &i64); benchmark::DoNotOptimize(r64); break;
                case 3: goertzLoop<double, double, true>(static_cast<double*>(buf), len, f, &r64, &i64); benchmark::DoNotOptimize(r64); break;
                case 4: goertzLoop<float, int16_t, false>(static_cast<int16_t*>(buf), len, f, &r32, &i32); benchmark::DoNotOptimize(r32); break;
                default: goertzLoop<float, int16_t, true>(static_cast<int16_t*>(buf), len, f, &r32, &i32); benchmark::DoNotOptimize(r32); break;
            }
        }
        benchmark::ClobberMemory();
    }
    free(buf);
}

template <int Form> void registerGoertz(const char* name) {
    for (int len : {4096, 65536}) {
        benchmark::RegisterBenchmark((std::string("goertz") + name + "/vrx/" + std::to_string(len)).c_str(),
                                     [len](benchmark::State& s) { benchGoertz<Form>(s, len, true); });
        benchmark::RegisterBenchmark((std::string("goertz") + name + "/loop/" + std::to_string(len)).c_str(),
                                     [len](benchmark::State& s) { benchGoertz<Form>(s, len, false); });
    }
}

template <class T, bool Inv> void registerDct(const char* series) {
    for (int n : kLengths) {
        benchmark::RegisterBenchmark((std::string(series) + "/vrx/" + std::to_string(n)).c_str(),
                                     [n](benchmark::State& s) { benchVrx<T, Inv>(s, n); });
#ifdef VRX_HAVE_FFTW
        benchmark::RegisterBenchmark((std::string(series) + "/fftw/" + std::to_string(n)).c_str(),
                                     [n](benchmark::State& s) { benchFftw<T, Inv>(s, n); });
#endif
    }
}

const int kRegistered = [] {
    registerDct<float, false>("dct32fwd");
    registerDct<float, true>("dct32inv");
    registerDct<double, false>("dct64fwd");
    registerDct<double, true>("dct64inv");
    registerGoertz<0>("32f");
    registerGoertz<1>("32fc");
    registerGoertz<2>("64f");
    registerGoertz<3>("64fc");
    registerGoertz<4>("16s");
    registerGoertz<5>("16sc");
    return 0;
}();

}  // namespace

BENCHMARK_MAIN();
