// Extrema, counts and searches: the library beside VOLK's index search
// (volk_32f_index_max_32u / volk_32f_index_min_32u), plain scalar loops
// compiled for this processor, and memcpy moving the same bytes (the
// bandwidth ceiling), at 1 Ki, 64 Ki and 16 Mi elements. Bytes are the
// bytes read plus written by the operation.
#include <benchmark/benchmark.h>

#include <stdlib.h>
#include <string.h>

#include <cstdint>

#include "vrxs.h"

#ifdef VRX_HAVE_VOLK
#include <volk/volk.h>
#endif

namespace {

template <class T>
struct Buf {
    T* p;
    static size_t bytes(size_t n) { return (((n & ((size_t(1) << 40) - 1)) * sizeof(T) + 63) / 64) * 64 + 64; }
    explicit Buf(size_t n, unsigned seed = 1) : p(static_cast<T*>(aligned_alloc(64, bytes(n)))) {
        uint64_t s = 0x9E3779B97F4A7C15ull * seed;
        for (size_t i = 0; i < n; ++i) {
            s = s * 6364136223846793005ull + 1442695040888963407ull;
            const int64_t r = static_cast<int64_t>(s >> 33) % 20001 - 10000;
            p[i] = static_cast<T>(r);
        }
    }
    ~Buf() { free(p); }
};

void sizes(benchmark::internal::Benchmark* b) { b->Arg(1 << 10)->Arg(1 << 16)->Arg(1 << 24); }

void setBytes(benchmark::State& st, size_t bytes) { st.SetBytesProcessed(int64_t(st.iterations()) * int64_t(bytes)); }

// ------------------------------------------------------------ ceilings
// memcpy moving the bytes of a reduction over n elements of 4, 2 and 1
// bytes, and of an element-wise operation on three arrays of 4 and 1 bytes.
void memcpyBytes(benchmark::State& st, size_t bytes) {
    Buf<uint8_t> a(bytes / 2), d(bytes / 2);
    for (auto _ : st) { memcpy(d.p, a.p, bytes / 2); benchmark::ClobberMemory(); }
    setBytes(st, bytes);
}
void BM_memcpy_read4(benchmark::State& st) { memcpyBytes(st, st.range(0) * 4); }
void BM_memcpy_read2(benchmark::State& st) { memcpyBytes(st, st.range(0) * 2); }
void BM_memcpy_read1(benchmark::State& st) { memcpyBytes(st, st.range(0)); }
void BM_memcpy_every4(benchmark::State& st) { memcpyBytes(st, st.range(0) * 12); }
void BM_memcpy_every1(benchmark::State& st) { memcpyBytes(st, st.range(0) * 3); }
BENCHMARK(BM_memcpy_read4)->Apply(sizes);
BENCHMARK(BM_memcpy_read2)->Apply(sizes);
BENCHMARK(BM_memcpy_read1)->Apply(sizes);
BENCHMARK(BM_memcpy_every4)->Apply(sizes);
BENCHMARK(BM_memcpy_every1)->Apply(sizes);

// One source of n elements; f(p, n) returns something to keep.
template <class T, class F>
void reduce(benchmark::State& st, F f) {
    const size_t n = st.range(0);
    Buf<T> a(n);
    for (auto _ : st) benchmark::DoNotOptimize(f(a.p, n));
    setBytes(st, n * sizeof(T));
}

// -------------------------------------------------- MaxIndx / MinIndx 32f
void BM_vrx_MaxIndx_32f(benchmark::State& st) {
    reduce<float>(st, [](const float* p, size_t n) { float v; int k; vrxsMaxIndx_32f(p, int(n), &v, &k); return k; });
}
void BM_vrx_MinIndx_32f(benchmark::State& st) {
    reduce<float>(st, [](const float* p, size_t n) { float v; int k; vrxsMinIndx_32f(p, int(n), &v, &k); return k; });
}
void BM_scalar_MaxIndx_32f(benchmark::State& st) {
    reduce<float>(st, [](const float* p, size_t n) {
        size_t k = 0;
        for (size_t i = 1; i < n; ++i) if (p[i] > p[k]) k = i;
        return k;
    });
}
BENCHMARK(BM_vrx_MaxIndx_32f)->Apply(sizes);
BENCHMARK(BM_vrx_MinIndx_32f)->Apply(sizes);
#ifdef VRX_HAVE_VOLK
void BM_volk_index_max_32u(benchmark::State& st) {
    reduce<float>(st, [](const float* p, size_t n) { uint32_t k; volk_32f_index_max_32u(&k, p, uint32_t(n)); return k; });
}
void BM_volk_index_min_32u(benchmark::State& st) {
    reduce<float>(st, [](const float* p, size_t n) { uint32_t k; volk_32f_index_min_32u(&k, p, uint32_t(n)); return k; });
}
BENCHMARK(BM_volk_index_max_32u)->Apply(sizes);
BENCHMARK(BM_volk_index_min_32u)->Apply(sizes);
#endif
BENCHMARK(BM_scalar_MaxIndx_32f)->Apply(sizes);

// ------------------------------------------------------------ values
void BM_vrx_Max_32f(benchmark::State& st) {
    reduce<float>(st, [](const float* p, size_t n) { float v; vrxsMax_32f(p, int(n), &v); return v; });
}
void BM_scalar_Max_32f(benchmark::State& st) {
    reduce<float>(st, [](const float* p, size_t n) {
        float m = p[0];
        for (size_t i = 1; i < n; ++i) m = p[i] > m ? p[i] : m;
        return m;
    });
}
void BM_vrx_MinMax_16s(benchmark::State& st) {
    reduce<int16_t>(st, [](const int16_t* p, size_t n) { int16_t a, b; vrxsMinMax_16s(p, int(n), &a, &b); return a + b; });
}
void BM_scalar_MinMax_16s(benchmark::State& st) {
    reduce<int16_t>(st, [](const int16_t* p, size_t n) {
        int16_t a = p[0], b = p[0];
        for (size_t i = 1; i < n; ++i) { a = p[i] < a ? p[i] : a; b = p[i] > b ? p[i] : b; }
        return a + b;
    });
}
void BM_vrx_MinMax_8u(benchmark::State& st) {
    reduce<uint8_t>(st, [](const uint8_t* p, size_t n) { uint8_t a, b; vrxsMinMax_8u(p, int(n), &a, &b); return a + b; });
}
void BM_scalar_MinMax_8u(benchmark::State& st) {
    reduce<uint8_t>(st, [](const uint8_t* p, size_t n) {
        uint8_t a = p[0], b = p[0];
        for (size_t i = 1; i < n; ++i) { a = p[i] < a ? p[i] : a; b = p[i] > b ? p[i] : b; }
        return a + b;
    });
}
BENCHMARK(BM_vrx_Max_32f)->Apply(sizes);
BENCHMARK(BM_scalar_Max_32f)->Apply(sizes);
BENCHMARK(BM_vrx_MinMax_16s)->Apply(sizes);
BENCHMARK(BM_scalar_MinMax_16s)->Apply(sizes);
BENCHMARK(BM_vrx_MinMax_8u)->Apply(sizes);
BENCHMARK(BM_scalar_MinMax_8u)->Apply(sizes);

// ------------------------------------------------------------ positions
void BM_vrx_MaxIndx_16s(benchmark::State& st) {
    reduce<int16_t>(st, [](const int16_t* p, size_t n) { int16_t v; int k; vrxsMaxIndx_16s(p, int(n), &v, &k); return k; });
}
void BM_scalar_MaxIndx_16s(benchmark::State& st) {
    reduce<int16_t>(st, [](const int16_t* p, size_t n) {
        size_t k = 0;
        for (size_t i = 1; i < n; ++i) if (p[i] > p[k]) k = i;
        return k;
    });
}
void BM_vrx_MaxAbsIndx_32s(benchmark::State& st) {
    reduce<int32_t>(st, [](const int32_t* p, size_t n) { int32_t v; int k; vrxsMaxAbsIndx_32s(p, int(n), &v, &k); return k; });
}
void BM_scalar_MaxAbsIndx_32s(benchmark::State& st) {
    reduce<int32_t>(st, [](const int32_t* p, size_t n) {
        size_t k = 0;
        int32_t m = p[0] == INT32_MIN ? INT32_MAX : (p[0] < 0 ? -p[0] : p[0]);
        for (size_t i = 1; i < n; ++i) {
            const int32_t a = p[i] == INT32_MIN ? INT32_MAX : (p[i] < 0 ? -p[i] : p[i]);
            if (a > m) { m = a; k = i; }
        }
        return k;
    });
}
void BM_vrx_MinMaxIndx_32f(benchmark::State& st) {
    reduce<float>(st, [](const float* p, size_t n) { float a, b; int i, j; vrxsMinMaxIndx_32f(p, int(n), &a, &i, &b, &j); return i + j; });
}
void BM_scalar_MinMaxIndx_32f(benchmark::State& st) {
    reduce<float>(st, [](const float* p, size_t n) {
        size_t i = 0, j = 0;
        for (size_t k = 1; k < n; ++k) { if (p[k] < p[i]) i = k; if (p[k] > p[j]) j = k; }
        return i + j;
    });
}
BENCHMARK(BM_vrx_MaxIndx_16s)->Apply(sizes);
BENCHMARK(BM_scalar_MaxIndx_16s)->Apply(sizes);
BENCHMARK(BM_vrx_MaxAbsIndx_32s)->Apply(sizes);
BENCHMARK(BM_scalar_MaxAbsIndx_32s)->Apply(sizes);
BENCHMARK(BM_vrx_MinMaxIndx_32f)->Apply(sizes);
BENCHMARK(BM_scalar_MinMaxIndx_32f)->Apply(sizes);

// ------------------------------------------------------- element-wise
template <class T, class F>
void every(benchmark::State& st, F f) {
    const size_t n = st.range(0);
    Buf<T> a(n, 1), b(n, 2), d(n, 3);
    for (auto _ : st) { f(a.p, b.p, d.p, n); benchmark::ClobberMemory(); }
    setBytes(st, 3 * n * sizeof(T));
}
void BM_vrx_MaxEvery_32f(benchmark::State& st) {
    every<float>(st, [](const float* a, const float* b, float* d, size_t n) { vrxsMaxEvery_32f(a, b, d, int(n)); });
}
void BM_scalar_MaxEvery_32f(benchmark::State& st) {
    every<float>(st, [](const float* a, const float* b, float* d, size_t n) { for (size_t i = 0; i < n; ++i) d[i] = a[i] > b[i] ? a[i] : b[i]; });
}
void BM_vrx_MinEvery_8u(benchmark::State& st) {
    every<uint8_t>(st, [](const uint8_t* a, const uint8_t* b, uint8_t* d, size_t n) { vrxsMinEvery_8u(a, b, d, int(n)); });
}
void BM_scalar_MinEvery_8u(benchmark::State& st) {
    every<uint8_t>(st, [](const uint8_t* a, const uint8_t* b, uint8_t* d, size_t n) { for (size_t i = 0; i < n; ++i) d[i] = a[i] < b[i] ? a[i] : b[i]; });
}
BENCHMARK(BM_vrx_MaxEvery_32f)->Apply(sizes);
BENCHMARK(BM_scalar_MaxEvery_32f)->Apply(sizes);
BENCHMARK(BM_vrx_MinEvery_8u)->Apply(sizes);
BENCHMARK(BM_scalar_MinEvery_8u)->Apply(sizes);

// ------------------------------------------------------ counts, orders
void BM_vrx_CountInRange_32s(benchmark::State& st) {
    reduce<int32_t>(st, [](const int32_t* p, size_t n) { int c; vrxsCountInRange_32s(p, int(n), &c, -5000, 5000); return c; });
}
void BM_scalar_CountInRange_32s(benchmark::State& st) {
    reduce<int32_t>(st, [](const int32_t* p, size_t n) {
        int c = 0;
        for (size_t i = 0; i < n; ++i) c += p[i] > -5000 && p[i] < 5000;
        return c;
    });
}
void BM_vrx_ZeroCrossing_16s32f(benchmark::State& st) {
    reduce<int16_t>(st, [](const int16_t* p, size_t n) { float r; vrxsZeroCrossing_16s32f(p, int(n), &r, vrxZcSignBit); return r; });
}
void BM_scalar_ZeroCrossing_16s32f(benchmark::State& st) {
    reduce<int16_t>(st, [](const int16_t* p, size_t n) {
        int c = 0;
        for (size_t i = 0; i + 1 < n; ++i) c += (p[i] < 0) != (p[i + 1] < 0);
        return float(c);
    });
}
void BM_vrx_ZeroCrossing_32f(benchmark::State& st) {
    reduce<float>(st, [](const float* p, size_t n) { float r; vrxsZeroCrossing_32f(p, int(n), &r, vrxZcProduct); return r; });
}
void BM_scalar_ZeroCrossing_32f(benchmark::State& st) {
    reduce<float>(st, [](const float* p, size_t n) {
        int c = 0;
        for (size_t i = 0; i + 1 < n; ++i) c += p[i] * p[i + 1] < 0.0f;
        return float(c);
    });
}
void BM_vrx_ZeroCrossing_32f_SignDiff(benchmark::State& st) {
    reduce<float>(st, [](const float* p, size_t n) { float r; vrxsZeroCrossing_32f(p, int(n), &r, vrxZcSignDiff); return r; });
}
void BM_scalar_ZeroCrossing_32f_SignDiff(benchmark::State& st) {
    reduce<float>(st, [](const float* p, size_t n) {
        int c = 0;
        for (size_t i = 0; i + 1 < n; ++i) {
            const int a = (p[i] > 0.0f) - (p[i] < 0.0f), b = (p[i + 1] > 0.0f) - (p[i + 1] < 0.0f);
            c += a > b ? a - b : b - a;
        }
        return 0.5f * float(c);
    });
}
void BM_vrx_MaxOrder_16s(benchmark::State& st) {
    reduce<int16_t>(st, [](const int16_t* p, size_t n) { int o; vrxsMaxOrder_16s(p, int(n), &o); return o; });
}
void BM_scalar_MaxOrder_16s(benchmark::State& st) {
    reduce<int16_t>(st, [](const int16_t* p, size_t n) {
        unsigned m = 0;
        for (size_t i = 0; i < n; ++i) m |= unsigned(p[i] < 0 ? -p[i] : p[i]);
        return m ? 32 - __builtin_clz(m) : 0;
    });
}
void BM_vrx_MaxOrder_32f(benchmark::State& st) {
    reduce<float>(st, [](const float* p, size_t n) { int o; vrxsMaxOrder_32f(p, int(n), &o); return o; });
}
BENCHMARK(BM_vrx_CountInRange_32s)->Apply(sizes);
BENCHMARK(BM_scalar_CountInRange_32s)->Apply(sizes);
BENCHMARK(BM_vrx_ZeroCrossing_16s32f)->Apply(sizes);
BENCHMARK(BM_scalar_ZeroCrossing_16s32f)->Apply(sizes);
BENCHMARK(BM_vrx_ZeroCrossing_32f)->Apply(sizes);
BENCHMARK(BM_scalar_ZeroCrossing_32f)->Apply(sizes);
BENCHMARK(BM_vrx_ZeroCrossing_32f_SignDiff)->Apply(sizes);
BENCHMARK(BM_scalar_ZeroCrossing_32f_SignDiff)->Apply(sizes);
BENCHMARK(BM_vrx_MaxOrder_16s)->Apply(sizes);
BENCHMARK(BM_scalar_MaxOrder_16s)->Apply(sizes);
BENCHMARK(BM_vrx_MaxOrder_32f)->Apply(sizes);

// ------------------------------------------------ window sum, search
template <class T, class F>
void window(benchmark::State& st, F f) {
    const size_t n = st.range(0), w = 64;
    Buf<T> a(n + w);
    Buf<float> d(n);
    for (auto _ : st) { f(a.p, d.p, n, w); benchmark::ClobberMemory(); }
    setBytes(st, n * (sizeof(T) + sizeof(float)));
}
void BM_vrx_SumWindow_16s32f(benchmark::State& st) {
    window<int16_t>(st, [](const int16_t* s, float* d, size_t n, size_t w) { vrxsSumWindow_16s32f(s, d, int(n), int(w)); });
}
void BM_scalar_SumWindow_16s32f(benchmark::State& st) {
    window<int16_t>(st, [](const int16_t* s, float* d, size_t n, size_t w) {
        float sum = 0.0f;
        for (size_t j = 0; j < w; ++j) sum += float(s[j]);
        for (size_t i = 0; i < n; ++i) { d[i] = sum; sum += float(int(s[i + w]) - int(s[i])); }
    });
}
BENCHMARK(BM_vrx_SumWindow_16s32f)->Apply(sizes);
BENCHMARK(BM_scalar_SumWindow_16s32f)->Apply(sizes);

// nearest entry of a 256-entry table for each of n values
template <class F>
void nearest(benchmark::State& st, F f) {
    const size_t n = st.range(0);
    Buf<uint16_t> v(n), o(n);
    Buf<int> k(n);
    uint16_t t[256];
    for (int i = 0; i < 256; ++i) t[i] = uint16_t(i * 251);
    for (auto _ : st) { f(v.p, o.p, k.p, n, t); benchmark::ClobberMemory(); }
    setBytes(st, n * (2 + 2 + 4));
}
void BM_vrx_FindNearest_16u(benchmark::State& st) {
    nearest(st, [](const uint16_t* v, uint16_t* o, int* k, size_t n, const uint16_t* t) { vrxsFindNearest_16u(v, o, k, int(n), t, 256); });
}
void BM_scalar_FindNearest_16u(benchmark::State& st) {
    nearest(st, [](const uint16_t* v, uint16_t* o, int* k, size_t n, const uint16_t* t) {
        for (size_t i = 0; i < n; ++i) {
            int lo = 0, hi = 255;
            while (hi - lo > 1) { const int mid = (lo + hi) / 2; if (v[i] < t[mid]) hi = mid; else lo = mid; }
            const int b = v[i] - t[lo] <= t[hi] - v[i] ? lo : hi;
            o[i] = t[b]; k[i] = b;
        }
    });
}
BENCHMARK(BM_vrx_FindNearest_16u)->Apply(sizes);
BENCHMARK(BM_scalar_FindNearest_16u)->Apply(sizes);

}  // namespace

BENCHMARK_MAIN();
