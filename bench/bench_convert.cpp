// Conversion, limiting and logic kernels against VOLK's kernels for the
// same job, against a plain scalar loop compiled for this processor, and
// against memcpy of the same bytes (the bandwidth ceiling out of cache).
// Sizes: 1 Ki elements (in cache) and 4 Mi elements (out of cache).
// Bytes processed count reads plus writes.
#include <benchmark/benchmark.h>
#include <math.h>
#include <stdint.h>
#include <stdlib.h>
#include <string.h>

#include "vrxs.h"
#ifdef VRX_HAVE_VOLK
#include <volk/volk.h>
#endif

namespace {

template <class T>
T* alloc(size_t n) {
    T* p = static_cast<T*>(aligned_alloc(64, (n * sizeof(T) + 63) & ~size_t(63)));
    memset(p, 0, n * sizeof(T));
    return p;
}

template <class S>
void fill(S* p, size_t n) {
    for (size_t i = 0; i < n; ++i) p[i] = static_cast<S>(static_cast<int>((i * 2654435761u) % 60000) - 30000) / static_cast<S>(sizeof(S) >= 4 ? 3 : 1);
}

// One benchmark body: f(src, dst, n) over fresh buffers.
template <class S, class D, class F>
void run(benchmark::State& st, F f, size_t extraBytes = 0) {
    const size_t n = static_cast<size_t>(st.range(0));
    S* s = alloc<S>(n);
    D* d = alloc<D>(n);
    fill(s, n);
    for (auto _ : st) {
        f(s, d, static_cast<int>(n));
        benchmark::DoNotOptimize(d);
        benchmark::ClobberMemory();
    }
    st.SetBytesProcessed(static_cast<int64_t>(st.iterations()) * static_cast<int64_t>(n * (sizeof(S) + sizeof(D) + extraBytes)));
    free(s);
    free(d);
}

#define SIZES ->Arg(1024)->Arg(4 << 20)

// ---------------------------------------------------------------- ceiling
// memcpy moving the same traffic as a conversion of B bytes an element
// (source plus destination): half read, half written.
template <size_t B>
void BM_memcpy(benchmark::State& st) {
    const size_t n = static_cast<size_t>(st.range(0));
    const size_t half = n * B / 2;
    char* s = alloc<char>(half);
    char* d = alloc<char>(half);
    memset(s, 1, half);
    for (auto _ : st) {
        memcpy(d, s, half);
        benchmark::DoNotOptimize(d);
        benchmark::ClobberMemory();
    }
    st.SetBytesProcessed(static_cast<int64_t>(st.iterations()) * static_cast<int64_t>(2 * half));
    free(s); free(d);
}
BENCHMARK(BM_memcpy<3>) SIZES;
BENCHMARK(BM_memcpy<5>) SIZES;
BENCHMARK(BM_memcpy<6>) SIZES;
BENCHMARK(BM_memcpy<8>) SIZES;
BENCHMARK(BM_memcpy<12>) SIZES;

// ------------------------------------------------------------- 32f -> 16s
void BM_vrx_32f16s(benchmark::State& st) {
    run<float, int16_t>(st, [](const float* s, int16_t* d, int n) { vrxsConvert_32f16s_Sfs(s, d, n, vrxRndNear, 0); });
}
void BM_scalar_32f16s(benchmark::State& st) {
    run<float, int16_t>(st, [](const float* s, int16_t* d, int n) {
        for (int i = 0; i < n; ++i) { float r = s[i]; r = r > 32767.f ? 32767.f : (r < -32768.f ? -32768.f : r); d[i] = (int16_t)lrintf(r); }
    });
}
BENCHMARK(BM_vrx_32f16s) SIZES;
BENCHMARK(BM_scalar_32f16s) SIZES;
#ifdef VRX_HAVE_VOLK
void BM_volk_32f16s(benchmark::State& st) {
    run<float, int16_t>(st, [](const float* s, int16_t* d, int n) { volk_32f_s32f_convert_16i(d, s, 1.0f, n); });
}
BENCHMARK(BM_volk_32f16s) SIZES;
#endif

// ------------------------------------------------------------- 16s -> 32f
void BM_vrx_16s32f(benchmark::State& st) {
    run<int16_t, float>(st, [](const int16_t* s, float* d, int n) { vrxsConvert_16s32f(s, d, n); });
}
void BM_scalar_16s32f(benchmark::State& st) {
    run<int16_t, float>(st, [](const int16_t* s, float* d, int n) { for (int i = 0; i < n; ++i) d[i] = s[i]; });
}
BENCHMARK(BM_vrx_16s32f) SIZES;
BENCHMARK(BM_scalar_16s32f) SIZES;
#ifdef VRX_HAVE_VOLK
void BM_volk_16s32f(benchmark::State& st) {
    run<int16_t, float>(st, [](const int16_t* s, float* d, int n) { volk_16i_s32f_convert_32f(d, s, 1.0f, n); });
}
BENCHMARK(BM_volk_16s32f) SIZES;
#endif

// ------------------------------------------------------------- 32f -> 32s
void BM_vrx_32f32s(benchmark::State& st) {
    run<float, int32_t>(st, [](const float* s, int32_t* d, int n) { vrxsConvert_32f32s_Sfs(s, d, n, vrxRndNear, 0); });
}
void BM_scalar_32f32s(benchmark::State& st) {
    run<float, int32_t>(st, [](const float* s, int32_t* d, int n) {
        for (int i = 0; i < n; ++i) { float r = s[i]; r = r >= 2147483648.f ? 2147483520.f : r; d[i] = (int32_t)lrintf(r); }
    });
}
BENCHMARK(BM_vrx_32f32s) SIZES;
BENCHMARK(BM_scalar_32f32s) SIZES;
#ifdef VRX_HAVE_VOLK
void BM_volk_32f32s(benchmark::State& st) {
    run<float, int32_t>(st, [](const float* s, int32_t* d, int n) { volk_32f_s32f_convert_32i(d, s, 1.0f, n); });
}
BENCHMARK(BM_volk_32f32s) SIZES;
#endif

// ------------------------------------------------------------- 32s -> 32f
void BM_vrx_32s32f(benchmark::State& st) {
    run<int32_t, float>(st, [](const int32_t* s, float* d, int n) { vrxsConvert_32s32f(s, d, n); });
}
void BM_scalar_32s32f(benchmark::State& st) {
    run<int32_t, float>(st, [](const int32_t* s, float* d, int n) { for (int i = 0; i < n; ++i) d[i] = (float)s[i]; });
}
BENCHMARK(BM_vrx_32s32f) SIZES;
BENCHMARK(BM_scalar_32s32f) SIZES;
#ifdef VRX_HAVE_VOLK
void BM_volk_32s32f(benchmark::State& st) {
    run<int32_t, float>(st, [](const int32_t* s, float* d, int n) { volk_32i_s32f_convert_32f(d, s, 1.0f, n); });
}
BENCHMARK(BM_volk_32s32f) SIZES;
#endif

// -------------------------------------------------------------- 32f -> 8s
void BM_vrx_32f8s(benchmark::State& st) {
    run<float, int8_t>(st, [](const float* s, int8_t* d, int n) { vrxsConvert_32f8s_Sfs(s, d, n, vrxRndNear, 8); });
}
void BM_scalar_32f8s(benchmark::State& st) {
    run<float, int8_t>(st, [](const float* s, int8_t* d, int n) {
        for (int i = 0; i < n; ++i) { float r = s[i] * (1.0f / 256); r = r > 127.f ? 127.f : (r < -128.f ? -128.f : r); d[i] = (int8_t)lrintf(r); }
    });
}
BENCHMARK(BM_vrx_32f8s) SIZES;
BENCHMARK(BM_scalar_32f8s) SIZES;
#ifdef VRX_HAVE_VOLK
void BM_volk_32f8s(benchmark::State& st) {
    run<float, int8_t>(st, [](const float* s, int8_t* d, int n) { volk_32f_s32f_convert_8i(d, s, 1.0f / 256, n); });
}
BENCHMARK(BM_volk_32f8s) SIZES;
#endif

// -------------------------------------------------------------- 8s -> 16s
void BM_vrx_8s16s(benchmark::State& st) {
    run<int8_t, int16_t>(st, [](const int8_t* s, int16_t* d, int n) { vrxsConvert_8s16s(s, d, n); });
}
void BM_scalar_8s16s(benchmark::State& st) {
    run<int8_t, int16_t>(st, [](const int8_t* s, int16_t* d, int n) { for (int i = 0; i < n; ++i) d[i] = s[i]; });
}
BENCHMARK(BM_vrx_8s16s) SIZES;
BENCHMARK(BM_scalar_8s16s) SIZES;
#ifdef VRX_HAVE_VOLK
void BM_volk_8s16s(benchmark::State& st) {
    run<int8_t, int16_t>(st, [](const int8_t* s, int16_t* d, int n) { volk_8i_convert_16i(d, s, n); });
}
BENCHMARK(BM_volk_8s16s) SIZES;
#endif

// ----------------------------------------------------- 32f <-> 64f
void BM_vrx_32f64f(benchmark::State& st) {
    run<float, double>(st, [](const float* s, double* d, int n) { vrxsConvert_32f64f(s, d, n); });
}
void BM_vrx_64f32f(benchmark::State& st) {
    run<double, float>(st, [](const double* s, float* d, int n) { vrxsConvert_64f32f(s, d, n); });
}
void BM_scalar_64f32f(benchmark::State& st) {
    run<double, float>(st, [](const double* s, float* d, int n) {
        for (int i = 0; i < n; ++i) { double x = s[i]; x = x > 3.4028234663852886e+38 ? 3.4028234663852886e+38 : (x < -3.4028234663852886e+38 ? -3.4028234663852886e+38 : x); d[i] = (float)x; }
    });
}
BENCHMARK(BM_vrx_32f64f) SIZES;
BENCHMARK(BM_vrx_64f32f) SIZES;
BENCHMARK(BM_scalar_64f32f) SIZES;
#ifdef VRX_HAVE_VOLK
void BM_volk_32f64f(benchmark::State& st) {
    run<float, double>(st, [](const float* s, double* d, int n) { volk_32f_convert_64f(d, s, n); });
}
void BM_volk_64f32f(benchmark::State& st) {
    run<double, float>(st, [](const double* s, float* d, int n) { volk_64f_convert_32f(d, s, n); });
}
BENCHMARK(BM_volk_32f64f) SIZES;
BENCHMARK(BM_volk_64f32f) SIZES;
#endif

// ---------------------------------------------- half floats, 24-bit samples
void BM_vrx_32f16f(benchmark::State& st) {
    run<float, uint16_t>(st, [](const float* s, uint16_t* d, int n) { vrxsConvert_32f16f(s, d, n, vrxRndNear); });
}
void BM_vrx_16f32f(benchmark::State& st) {
    run<uint16_t, float>(st, [](const uint16_t* s, float* d, int n) { vrxsConvert_16f32f(s, d, n); });
}
BENCHMARK(BM_vrx_32f16f) SIZES;
BENCHMARK(BM_vrx_16f32f) SIZES;

// ------------------------------------------------- limiting (threshold)
void BM_vrx_thresholdLT_32f(benchmark::State& st) {
    run<float, float>(st, [](const float* s, float* d, int n) { vrxsThreshold_LT_32f(s, d, n, 100.0f); });
}
void BM_scalar_thresholdLT_32f(benchmark::State& st) {
    run<float, float>(st, [](const float* s, float* d, int n) { for (int i = 0; i < n; ++i) d[i] = s[i] < 100.0f ? 100.0f : s[i]; });
}
BENCHMARK(BM_vrx_thresholdLT_32f) SIZES;
BENCHMARK(BM_scalar_thresholdLT_32f) SIZES;
#ifdef VRX_HAVE_VOLK
// VOLK limits against a second vector holding the level
void BM_volk_max_32f(benchmark::State& st) {
    const size_t n = static_cast<size_t>(st.range(0));
    float* lv = alloc<float>(n);
    for (size_t i = 0; i < n; ++i) lv[i] = 100.0f;
    run<float, float>(st, [lv](const float* s, float* d, int m) { volk_32f_x2_max_32f(d, s, lv, m); });
    free(lv);
}
BENCHMARK(BM_volk_max_32f) SIZES;
#endif

// --------------------------------------------------------------- logic
void BM_vrx_and_32u(benchmark::State& st) {
    const size_t n = static_cast<size_t>(st.range(0));
    uint32_t* b = alloc<uint32_t>(n);
    run<uint32_t, uint32_t>(st, [b](const uint32_t* s, uint32_t* d, int m) { vrxsAnd_32u(s, b, d, m); }, 4);
    free(b);
}
BENCHMARK(BM_vrx_and_32u) SIZES;
#ifdef VRX_HAVE_VOLK
void BM_volk_and_32u(benchmark::State& st) {
    const size_t n = static_cast<size_t>(st.range(0));
    int32_t* b = alloc<int32_t>(n);
    run<int32_t, int32_t>(st, [b](const int32_t* s, int32_t* d, int m) { volk_32i_x2_and_32i(d, s, b, m); }, 4);
    free(b);
}
BENCHMARK(BM_volk_and_32u) SIZES;
#endif

}  // namespace

BENCHMARK_MAIN();
