// Statistics: sums, deviations, norms and dot products beside VOLK where it
// has the operation, plain scalar loops otherwise, and memcpy of the same
// number of bytes moved (the bandwidth ceiling), at 1 Ki, 64 Ki and 16 Mi
// elements. Bytes are the bytes read; the memcpy rows copy half as many, so
// that reads plus writes match.
#include <benchmark/benchmark.h>

#include <math.h>
#include <stdlib.h>
#include <string.h>

#include <complex>
#include <cstdint>
#include <type_traits>

#include "vrxs.h"

#ifdef VRX_HAVE_VOLK
#include <volk/volk.h>
#endif

namespace {

template <class T>
struct Buf {
    T* p;
    explicit Buf(size_t n) : p(static_cast<T*>(aligned_alloc(64, ((n * sizeof(T) + 63) / 64) * 64))) {
        if constexpr (std::is_same_v<T, double>) {
            for (size_t i = 0; i < n; ++i) p[i] = (i % 97) * 0.25 - 11.0;
        } else if constexpr (std::is_integral_v<T> || std::is_same_v<T, Vrx16sc>) {
            uint8_t* b = reinterpret_cast<uint8_t*>(p);
            for (size_t i = 0; i < n * sizeof(T); ++i) b[i] = uint8_t(i * 37 + 11);
        } else {  // float and single-precision complex
            float* f = reinterpret_cast<float*>(p);
            for (size_t i = 0; i < n * sizeof(T) / 4; ++i) f[i] = (i % 97) * 0.25f - 11.0f;
        }
    }
    ~Buf() { free(p); }
};

void sizes(benchmark::internal::Benchmark* b) { b->Arg(1 << 10)->Arg(1 << 16)->Arg(1 << 24); }

// Runs f over n elements of `bytes` bytes read per element.
template <class F>
void run(benchmark::State& st, size_t bytesPerElem, F&& f) {
    for (auto _ : st) {
        f();
        benchmark::ClobberMemory();
    }
    st.SetBytesProcessed(int64_t(st.iterations()) * int64_t(st.range(0) * bytesPerElem));
}

// --------------------------------------------------------------- memcpy
template <size_t B>
void BM_memcpy(benchmark::State& st) {
    const size_t bytes = st.range(0) * B / 2;
    Buf<uint8_t> a(bytes), d(bytes);
    run(st, B, [&] { memcpy(d.p, a.p, bytes); });
}
BENCHMARK(BM_memcpy<4>)->Apply(sizes);
BENCHMARK(BM_memcpy<8>)->Apply(sizes);
BENCHMARK(BM_memcpy<12>)->Apply(sizes);
BENCHMARK(BM_memcpy<16>)->Apply(sizes);

// ------------------------------------------------------------ Sum 32f
void BM_vrx_Sum_32f_Fast(benchmark::State& st) {
    Buf<float> a(st.range(0));
    float r;
    run(st, 4, [&] { vrxsSum_32f(a.p, int(st.range(0)), &r, vrxAlgHintFast); benchmark::DoNotOptimize(r); });
}
void BM_vrx_Sum_32f_Accurate(benchmark::State& st) {
    Buf<float> a(st.range(0));
    float r;
    run(st, 4, [&] { vrxsSum_32f(a.p, int(st.range(0)), &r, vrxAlgHintAccurate); benchmark::DoNotOptimize(r); });
}
void BM_vrx_Sum_32fc_Fast(benchmark::State& st) {
    Buf<Vrx32fc> a(st.range(0));
    Vrx32fc r;
    run(st, 8, [&] { vrxsSum_32fc(a.p, int(st.range(0)), &r, vrxAlgHintFast); benchmark::DoNotOptimize(r); });
}
void BM_vrx_Sum_32fc_Accurate(benchmark::State& st) {
    Buf<Vrx32fc> a(st.range(0));
    Vrx32fc r;
    run(st, 8, [&] { vrxsSum_32fc(a.p, int(st.range(0)), &r, vrxAlgHintAccurate); benchmark::DoNotOptimize(r); });
}
BENCHMARK(BM_vrx_Sum_32f_Fast)->Apply(sizes);
BENCHMARK(BM_vrx_Sum_32f_Accurate)->Apply(sizes);
BENCHMARK(BM_vrx_Sum_32fc_Fast)->Apply(sizes);
BENCHMARK(BM_vrx_Sum_32fc_Accurate)->Apply(sizes);

// ----------------------------------------------------------- DotProd
void BM_vrx_DotProd_32f(benchmark::State& st) {
    Buf<float> a(st.range(0)), b(st.range(0));
    float r;
    run(st, 8, [&] { vrxsDotProd_32f(a.p, b.p, int(st.range(0)), &r); benchmark::DoNotOptimize(r); });
}
void BM_vrx_DotProd_32fc(benchmark::State& st) {
    Buf<Vrx32fc> a(st.range(0)), b(st.range(0));
    Vrx32fc r;
    run(st, 16, [&] { vrxsDotProd_32fc(a.p, b.p, int(st.range(0)), &r); benchmark::DoNotOptimize(r); });
}
void BM_vrx_DotProd_32f32fc(benchmark::State& st) {
    Buf<float> a(st.range(0));
    Buf<Vrx32fc> b(st.range(0));
    Vrx32fc r;
    run(st, 12, [&] { vrxsDotProd_32f32fc(a.p, b.p, int(st.range(0)), &r); benchmark::DoNotOptimize(r); });
}
BENCHMARK(BM_vrx_DotProd_32f)->Apply(sizes);
BENCHMARK(BM_vrx_DotProd_32fc)->Apply(sizes);
BENCHMARK(BM_vrx_DotProd_32f32fc)->Apply(sizes);

// ----------------------------------------------------- deviation 32f
void BM_vrx_MeanStdDev_32f(benchmark::State& st) {
    Buf<float> a(st.range(0));
    float m, d;
    run(st, 4, [&] { vrxsMeanStdDev_32f(a.p, int(st.range(0)), &m, &d, vrxAlgHintFast); benchmark::DoNotOptimize(d); });
}
void BM_vrx_StdDev_32f_Fast(benchmark::State& st) {
    Buf<float> a(st.range(0));
    float d;
    run(st, 4, [&] { vrxsStdDev_32f(a.p, int(st.range(0)), &d, vrxAlgHintFast); benchmark::DoNotOptimize(d); });
}
void BM_vrx_StdDev_32f_Accurate(benchmark::State& st) {
    Buf<float> a(st.range(0));
    float d;
    run(st, 4, [&] { vrxsStdDev_32f(a.p, int(st.range(0)), &d, vrxAlgHintAccurate); benchmark::DoNotOptimize(d); });
}
BENCHMARK(BM_vrx_MeanStdDev_32f)->Apply(sizes);
BENCHMARK(BM_vrx_StdDev_32f_Fast)->Apply(sizes);
BENCHMARK(BM_vrx_StdDev_32f_Accurate)->Apply(sizes);

#ifdef VRX_HAVE_VOLK
void BM_volk_Sum_32f(benchmark::State& st) {
    Buf<float> a(st.range(0));
    float r;
    run(st, 4, [&] { volk_32f_accumulator_s32f(&r, a.p, unsigned(st.range(0))); benchmark::DoNotOptimize(r); });
}
void BM_volk_Sum_32fc(benchmark::State& st) {
    Buf<lv_32fc_t> a(st.range(0));
    lv_32fc_t r;
    run(st, 8, [&] { volk_32fc_accumulator_s32fc(&r, a.p, unsigned(st.range(0))); benchmark::DoNotOptimize(r); });
}
void BM_volk_DotProd_32f(benchmark::State& st) {
    Buf<float> a(st.range(0)), b(st.range(0));
    float r;
    run(st, 8, [&] { volk_32f_x2_dot_prod_32f(&r, a.p, b.p, unsigned(st.range(0))); benchmark::DoNotOptimize(r); });
}
void BM_volk_DotProd_32fc(benchmark::State& st) {
    Buf<lv_32fc_t> a(st.range(0)), b(st.range(0));
    lv_32fc_t r;
    run(st, 16, [&] { volk_32fc_x2_dot_prod_32fc(&r, a.p, b.p, unsigned(st.range(0))); benchmark::DoNotOptimize(r); });
}
void BM_volk_DotProd_32f32fc(benchmark::State& st) {
    Buf<float> a(st.range(0));
    Buf<lv_32fc_t> b(st.range(0));
    lv_32fc_t r;
    run(st, 12, [&] { volk_32fc_32f_dot_prod_32fc(&r, b.p, a.p, unsigned(st.range(0))); benchmark::DoNotOptimize(r); });
}
void BM_volk_MeanStdDev_32f(benchmark::State& st) {
    Buf<float> a(st.range(0));
    float m, d;
    run(st, 4, [&] { volk_32f_stddev_and_mean_32f_x2(&d, &m, a.p, unsigned(st.range(0))); benchmark::DoNotOptimize(d); });
}
BENCHMARK(BM_volk_Sum_32f)->Apply(sizes);
BENCHMARK(BM_volk_Sum_32fc)->Apply(sizes);
BENCHMARK(BM_volk_DotProd_32f)->Apply(sizes);
BENCHMARK(BM_volk_DotProd_32fc)->Apply(sizes);
BENCHMARK(BM_volk_DotProd_32f32fc)->Apply(sizes);
BENCHMARK(BM_volk_MeanStdDev_32f)->Apply(sizes);
#endif

// ------------------------------------------- the rest against scalar loops
// Each pair: the library call, and the loop a user would write.
#define PAIR(name, bytes, setup, vrxcall, scalarbody)                              \
    void BM_vrx_##name(benchmark::State& st) {                                    \
        const int n = int(st.range(0));                                           \
        setup;                                                                    \
        run(st, bytes, [&] { vrxcall; });                                         \
    }                                                                             \
    void BM_scalar_##name(benchmark::State& st) {                                 \
        const int n = int(st.range(0));                                           \
        setup;                                                                    \
        run(st, bytes, [&] { scalarbody; });                                      \
    }                                                                             \
    BENCHMARK(BM_vrx_##name)->Apply(sizes);                                       \
    BENCHMARK(BM_scalar_##name)->Apply(sizes);

PAIR(Sum_64f, 8, Buf<double> a(n); double r,
     vrxsSum_64f(a.p, n, &r); benchmark::DoNotOptimize(r),
     double s = 0; for (int i = 0; i < n; ++i) s += a.p[i]; benchmark::DoNotOptimize(s))
PAIR(Sum_16s32s_Sfs, 2, Buf<int16_t> a(n); int32_t r,
     vrxsSum_16s32s_Sfs(a.p, n, &r, 2); benchmark::DoNotOptimize(r),
     int64_t s = 0; for (int i = 0; i < n; ++i) s += a.p[i]; r = int32_t(nearbyint(double(s) * 0.25)); benchmark::DoNotOptimize(r))
PAIR(Sum_32s_Sfs, 4, Buf<int32_t> a(n); int32_t r,
     vrxsSum_32s_Sfs(a.p, n, &r, 2); benchmark::DoNotOptimize(r),
     int64_t s = 0; for (int i = 0; i < n; ++i) s += a.p[i]; r = int32_t(s >> 2); benchmark::DoNotOptimize(r))
PAIR(StdDev_64f, 8, Buf<double> a(n); double r,
     vrxsStdDev_64f(a.p, n, &r); benchmark::DoNotOptimize(r),
     double s = 0; double q = 0; for (int i = 0; i < n; ++i) { s += a.p[i]; q += a.p[i] * a.p[i]; }
     r = sqrt((q * n - s * s) / (double(n) * (n - 1))); benchmark::DoNotOptimize(r))
PAIR(StdDev_16s32s_Sfs, 2, Buf<int16_t> a(n); int32_t r,
     vrxsStdDev_16s32s_Sfs(a.p, n, &r, 0); benchmark::DoNotOptimize(r),
     int64_t s = 0; uint64_t q = 0; for (int i = 0; i < n; ++i) { s += a.p[i]; q += uint64_t(int32_t(a.p[i]) * a.p[i]); }
     r = int32_t(sqrt((double(q) * n - double(s) * s) / (double(n) * (n - 1)))); benchmark::DoNotOptimize(r))
PAIR(Norm_Inf_32f, 4, Buf<float> a(n); float r,
     vrxsNorm_Inf_32f(a.p, n, &r); benchmark::DoNotOptimize(r),
     float m = 0; for (int i = 0; i < n; ++i) m = fabsf(a.p[i]) > m ? fabsf(a.p[i]) : m; benchmark::DoNotOptimize(m))
PAIR(Norm_L1_32f, 4, Buf<float> a(n); float r,
     vrxsNorm_L1_32f(a.p, n, &r); benchmark::DoNotOptimize(r),
     float s = 0; for (int i = 0; i < n; ++i) s += fabsf(a.p[i]); benchmark::DoNotOptimize(s))
PAIR(Norm_L2_32f, 4, Buf<float> a(n); float r,
     vrxsNorm_L2_32f(a.p, n, &r); benchmark::DoNotOptimize(r),
     float s = 0; for (int i = 0; i < n; ++i) s += a.p[i] * a.p[i]; s = sqrtf(s); benchmark::DoNotOptimize(s))
PAIR(Norm_L2_64f, 8, Buf<double> a(n); double r,
     vrxsNorm_L2_64f(a.p, n, &r); benchmark::DoNotOptimize(r),
     double s = 0; for (int i = 0; i < n; ++i) s += a.p[i] * a.p[i]; s = sqrt(s); benchmark::DoNotOptimize(s))
PAIR(Norm_L2_32fc64f, 8, Buf<Vrx32fc> a(n); double r,
     vrxsNorm_L2_32fc64f(a.p, n, &r); benchmark::DoNotOptimize(r),
     float s = 0; for (int i = 0; i < n; ++i) s += a.p[i].re * a.p[i].re + a.p[i].im * a.p[i].im; r = sqrt(double(s)); benchmark::DoNotOptimize(r))
PAIR(Norm_L1_32fc64f, 8, Buf<Vrx32fc> a(n); double r,
     vrxsNorm_L1_32fc64f(a.p, n, &r); benchmark::DoNotOptimize(r),
     float s = 0; for (int i = 0; i < n; ++i) s += sqrtf(a.p[i].re * a.p[i].re + a.p[i].im * a.p[i].im); r = s; benchmark::DoNotOptimize(r))
PAIR(NormDiff_L2_32f, 8, Buf<float> a(n); Buf<float> b(n); float r,
     vrxsNormDiff_L2_32f(a.p, b.p, n, &r); benchmark::DoNotOptimize(r),
     float s = 0; for (int i = 0; i < n; ++i) { float d = a.p[i] - b.p[i]; s += d * d; } s = sqrtf(s); benchmark::DoNotOptimize(s))
PAIR(Norm_Inf_16s32s_Sfs, 2, Buf<int16_t> a(n); int32_t r,
     vrxsNorm_Inf_16s32s_Sfs(a.p, n, &r, 0); benchmark::DoNotOptimize(r),
     int32_t m = 0; for (int i = 0; i < n; ++i) { int32_t x = a.p[i] < 0 ? -a.p[i] : a.p[i]; m = x > m ? x : m; } benchmark::DoNotOptimize(m))
PAIR(Norm_L1_16s32s_Sfs, 2, Buf<int16_t> a(n); int32_t r,
     vrxsNorm_L1_16s32s_Sfs(a.p, n, &r, 0); benchmark::DoNotOptimize(r),
     uint64_t s = 0; for (int i = 0; i < n; ++i) s += uint32_t(a.p[i] < 0 ? -a.p[i] : a.p[i]); r = int32_t(s); benchmark::DoNotOptimize(r))
PAIR(Norm_L2Sqr_16s64s_Sfs, 2, Buf<int16_t> a(n); int64_t r,
     vrxsNorm_L2Sqr_16s64s_Sfs(a.p, n, &r, 0); benchmark::DoNotOptimize(r),
     uint64_t s = 0; for (int i = 0; i < n; ++i) s += uint32_t(int32_t(a.p[i]) * a.p[i]); r = int64_t(s); benchmark::DoNotOptimize(r))
PAIR(NormDiff_L1_16s32s_Sfs, 4, Buf<int16_t> a(n); Buf<int16_t> b(n); int32_t r,
     vrxsNormDiff_L1_16s32s_Sfs(a.p, b.p, n, &r, 0); benchmark::DoNotOptimize(r),
     uint64_t s = 0; for (int i = 0; i < n; ++i) { int d = a.p[i] - b.p[i]; s += uint32_t(d < 0 ? -d : d); } r = int32_t(s); benchmark::DoNotOptimize(r))
PAIR(DotProd_64f, 16, Buf<double> a(n); Buf<double> b(n); double r,
     vrxsDotProd_64f(a.p, b.p, n, &r); benchmark::DoNotOptimize(r),
     double s = 0; for (int i = 0; i < n; ++i) s += a.p[i] * b.p[i]; benchmark::DoNotOptimize(s))
PAIR(DotProd_32f64f, 8, Buf<float> a(n); Buf<float> b(n); double r,
     vrxsDotProd_32f64f(a.p, b.p, n, &r); benchmark::DoNotOptimize(r),
     double s = 0; for (int i = 0; i < n; ++i) s += double(a.p[i]) * b.p[i]; benchmark::DoNotOptimize(s))
PAIR(DotProd_16s64s, 4, Buf<int16_t> a(n); Buf<int16_t> b(n); int64_t r,
     vrxsDotProd_16s64s(a.p, b.p, n, &r); benchmark::DoNotOptimize(r),
     int64_t s = 0; for (int i = 0; i < n; ++i) s += int32_t(a.p[i]) * b.p[i]; benchmark::DoNotOptimize(s))
PAIR(DotProd_16sc64sc, 8, Buf<Vrx16sc> a(n); Buf<Vrx16sc> b(n); Vrx64sc r,
     vrxsDotProd_16sc64sc(a.p, b.p, n, &r); benchmark::DoNotOptimize(r),
     int64_t sr = 0; int64_t si = 0;
     for (int i = 0; i < n; ++i) { sr += int64_t(a.p[i].re) * b.p[i].re - int64_t(a.p[i].im) * b.p[i].im;
                                   si += int64_t(a.p[i].re) * b.p[i].im + int64_t(a.p[i].im) * b.p[i].re; }
     benchmark::DoNotOptimize(sr); benchmark::DoNotOptimize(si))
PAIR(DotProd_32s_Sfs, 8, Buf<int32_t> a(n); Buf<int32_t> b(n); int32_t r,
     vrxsDotProd_32s_Sfs(a.p, b.p, n, &r, 8); benchmark::DoNotOptimize(r),
     double s = 0; for (int i = 0; i < n; ++i) s += double(a.p[i]) * b.p[i]; r = int32_t(nearbyint(s / 256)); benchmark::DoNotOptimize(r))

}  // namespace

BENCHMARK_MAIN();
