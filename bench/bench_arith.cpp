// Element-wise arithmetic: the library beside VOLK, a plain scalar loop and
// memcpy of the same number of bytes moved (the bandwidth ceiling), at 1 Ki,
// 16 Ki and 4 Mi elements.
#include <benchmark/benchmark.h>

#include <stdlib.h>
#include <string.h>

#include <complex>
#include <cstdint>

#include "vrxs.h"

#ifdef VRX_HAVE_VOLK
#include <volk/volk.h>
#endif

namespace {

template <class T>
struct Buf {
    T* p;
    explicit Buf(size_t n) : p(static_cast<T*>(aligned_alloc(64, ((n * sizeof(T) + 63) / 64) * 64))) {
        for (size_t i = 0; i < n; ++i) p[i] = static_cast<T>((i % 97) * 0.25f + 1.0f);
    }
    ~Buf() { free(p); }
};

void sizes(benchmark::internal::Benchmark* b) { b->Arg(1 << 10)->Arg(1 << 14)->Arg(1 << 22); }

// bytes read and written per call
template <class T> void setBytes(benchmark::State& st, size_t n, int arrays) {
    st.SetBytesProcessed(int64_t(st.iterations()) * int64_t(n * sizeof(T)) * arrays);
}

// ---------------------------------------------------------------- memcpy
// The ceiling: a copy moving the same bytes as an operation on `arrays`
// arrays of n floats (reads plus writes), so half of them copied.
void BM_memcpy_2arrays(benchmark::State& st) {
    const size_t n = st.range(0);
    Buf<float> a(n), d(n);
    for (auto _ : st) { memcpy(d.p, a.p, n * sizeof(float)); benchmark::ClobberMemory(); }
    setBytes<float>(st, n, 2);
}
void BM_memcpy_3arrays(benchmark::State& st) {
    const size_t n = st.range(0) * 3 / 2;
    Buf<float> a(n), d(n);
    for (auto _ : st) { memcpy(d.p, a.p, n * sizeof(float)); benchmark::ClobberMemory(); }
    setBytes<float>(st, st.range(0), 3);
}
void BM_memcpy_3arrays_cplx(benchmark::State& st) {
    const size_t n = st.range(0) * 3;
    Buf<float> a(n), d(n);
    for (auto _ : st) { memcpy(d.p, a.p, n * sizeof(float)); benchmark::ClobberMemory(); }
    setBytes<float>(st, 2 * st.range(0), 3);
}
BENCHMARK(BM_memcpy_2arrays)->Apply(sizes);
BENCHMARK(BM_memcpy_3arrays)->Apply(sizes);
BENCHMARK(BM_memcpy_3arrays_cplx)->Apply(sizes);

// ------------------------------------------------------------- 32f add
void BM_vrx_Add_32f(benchmark::State& st) {
    const size_t n = st.range(0);
    Buf<float> a(n), b(n), d(n);
    for (auto _ : st) { vrxsAdd_32f(a.p, b.p, d.p, int(n)); benchmark::ClobberMemory(); }
    setBytes<float>(st, n, 3);
}
void BM_scalar_Add_32f(benchmark::State& st) {
    const size_t n = st.range(0);
    Buf<float> a(n), b(n), d(n);
    for (auto _ : st) {
        for (size_t i = 0; i < n; ++i) d.p[i] = a.p[i] + b.p[i];
        benchmark::ClobberMemory();
    }
    setBytes<float>(st, n, 3);
}
BENCHMARK(BM_vrx_Add_32f)->Apply(sizes);
BENCHMARK(BM_scalar_Add_32f)->Apply(sizes);

// -------------------------------------------------------- 32f multiply
void BM_vrx_Mul_32f(benchmark::State& st) {
    const size_t n = st.range(0);
    Buf<float> a(n), b(n), d(n);
    for (auto _ : st) { vrxsMul_32f(a.p, b.p, d.p, int(n)); benchmark::ClobberMemory(); }
    setBytes<float>(st, n, 3);
}
void BM_scalar_Mul_32f(benchmark::State& st) {
    const size_t n = st.range(0);
    Buf<float> a(n), b(n), d(n);
    for (auto _ : st) {
        for (size_t i = 0; i < n; ++i) d.p[i] = a.p[i] * b.p[i];
        benchmark::ClobberMemory();
    }
    setBytes<float>(st, n, 3);
}
BENCHMARK(BM_vrx_Mul_32f)->Apply(sizes);
BENCHMARK(BM_scalar_Mul_32f)->Apply(sizes);

// ----------------------------------------------- 32f times a constant
void BM_vrx_MulC_32f(benchmark::State& st) {
    const size_t n = st.range(0);
    Buf<float> a(n), d(n);
    for (auto _ : st) { vrxsMulC_32f(a.p, 1.7f, d.p, int(n)); benchmark::ClobberMemory(); }
    setBytes<float>(st, n, 2);
}
void BM_scalar_MulC_32f(benchmark::State& st) {
    const size_t n = st.range(0);
    Buf<float> a(n), d(n);
    for (auto _ : st) {
        for (size_t i = 0; i < n; ++i) d.p[i] = a.p[i] * 1.7f;
        benchmark::ClobberMemory();
    }
    setBytes<float>(st, n, 2);
}
BENCHMARK(BM_vrx_MulC_32f)->Apply(sizes);
BENCHMARK(BM_scalar_MulC_32f)->Apply(sizes);

// -------------------------------------------------- 32fc multiply
void BM_vrx_Mul_32fc(benchmark::State& st) {
    const size_t n = st.range(0);
    Buf<Vrx32fc> a(n), b(n), d(n);
    for (auto _ : st) { vrxsMul_32fc(a.p, b.p, d.p, int(n)); benchmark::ClobberMemory(); }
    setBytes<Vrx32fc>(st, n, 3);
}
void BM_scalar_Mul_32fc(benchmark::State& st) {
    const size_t n = st.range(0);
    Buf<Vrx32fc> a(n), b(n), d(n);
    for (auto _ : st) {
        for (size_t i = 0; i < n; ++i) {
            const Vrx32fc x = a.p[i], y = b.p[i];
            d.p[i].re = x.re * y.re - x.im * y.im;
            d.p[i].im = x.re * y.im + x.im * y.re;
        }
        benchmark::ClobberMemory();
    }
    setBytes<Vrx32fc>(st, n, 3);
}
BENCHMARK(BM_vrx_Mul_32fc)->Apply(sizes);
BENCHMARK(BM_scalar_Mul_32fc)->Apply(sizes);

#ifdef VRX_HAVE_VOLK
void BM_volk_Add_32f(benchmark::State& st) {
    const size_t n = st.range(0);
    Buf<float> a(n), b(n), d(n);
    for (auto _ : st) { volk_32f_x2_add_32f(d.p, a.p, b.p, unsigned(n)); benchmark::ClobberMemory(); }
    setBytes<float>(st, n, 3);
}
void BM_volk_Mul_32f(benchmark::State& st) {
    const size_t n = st.range(0);
    Buf<float> a(n), b(n), d(n);
    for (auto _ : st) { volk_32f_x2_multiply_32f(d.p, a.p, b.p, unsigned(n)); benchmark::ClobberMemory(); }
    setBytes<float>(st, n, 3);
}
void BM_volk_MulC_32f(benchmark::State& st) {
    const size_t n = st.range(0);
    Buf<float> a(n), d(n);
    for (auto _ : st) { volk_32f_s32f_multiply_32f(d.p, a.p, 1.7f, unsigned(n)); benchmark::ClobberMemory(); }
    setBytes<float>(st, n, 2);
}
void BM_volk_Mul_32fc(benchmark::State& st) {
    const size_t n = st.range(0);
    Buf<lv_32fc_t> a(n), b(n), d(n);
    for (auto _ : st) { volk_32fc_x2_multiply_32fc(d.p, a.p, b.p, unsigned(n)); benchmark::ClobberMemory(); }
    setBytes<lv_32fc_t>(st, n, 3);
}
BENCHMARK(BM_volk_Add_32f)->Apply(sizes);
BENCHMARK(BM_volk_Mul_32f)->Apply(sizes);
BENCHMARK(BM_volk_MulC_32f)->Apply(sizes);
BENCHMARK(BM_volk_Mul_32fc)->Apply(sizes);
#endif

// --------------------------------------------- 16-bit scaled forms
// The scalar loop: the same rule written plainly, kept scalar.
__attribute__((optimize("no-tree-vectorize"))) void scalarAdd16sSfs(const int16_t* a, const int16_t* b, int16_t* d, size_t n, int sf) {
    for (size_t i = 0; i < n; ++i) {
        int32_t r = int32_t(a[i]) + b[i];
        int32_t q = r >> sf;
        int32_t w = (r + ((1 << (sf - 1)) - 1) + (q & 1)) >> sf;
        d[i] = static_cast<int16_t>(w > 32767 ? 32767 : (w < -32768 ? -32768 : w));
    }
}
__attribute__((optimize("no-tree-vectorize"))) void scalarMul16sSfs(const int16_t* a, const int16_t* b, int16_t* d, size_t n, int sf) {
    for (size_t i = 0; i < n; ++i) {
        int32_t r = int32_t(a[i]) * b[i];
        int32_t q = r >> sf;
        int32_t w = (r + ((1 << (sf - 1)) - 1) + (q & 1)) >> sf;
        d[i] = static_cast<int16_t>(w > 32767 ? 32767 : (w < -32768 ? -32768 : w));
    }
}

template <class F>
void run16(benchmark::State& st, F f) {
    const size_t n = st.range(0);
    Buf<int16_t> a(n), b(n), d(n);
    for (size_t i = 0; i < n; ++i) { a.p[i] = int16_t(i * 7919); b.p[i] = int16_t(i * 104729 + 3); }
    for (auto _ : st) { f(a.p, b.p, d.p, n); benchmark::ClobberMemory(); }
    setBytes<int16_t>(st, n, 3);
}
void BM_vrx_Add_16s_Sfs(benchmark::State& st) { run16(st, [](auto a, auto b, auto d, size_t n) { vrxsAdd_16s_Sfs(a, b, d, int(n), 3); }); }
void BM_scalar_Add_16s_Sfs(benchmark::State& st) { run16(st, [](auto a, auto b, auto d, size_t n) { scalarAdd16sSfs(a, b, d, n, 3); }); }
void BM_vrx_Mul_16s_Sfs(benchmark::State& st) { run16(st, [](auto a, auto b, auto d, size_t n) { vrxsMul_16s_Sfs(a, b, d, int(n), 8); }); }
void BM_scalar_Mul_16s_Sfs(benchmark::State& st) { run16(st, [](auto a, auto b, auto d, size_t n) { scalarMul16sSfs(a, b, d, n, 8); }); }
BENCHMARK(BM_vrx_Add_16s_Sfs)->Apply(sizes);
BENCHMARK(BM_scalar_Add_16s_Sfs)->Apply(sizes);
BENCHMARK(BM_vrx_Mul_16s_Sfs)->Apply(sizes);
BENCHMARK(BM_scalar_Mul_16s_Sfs)->Apply(sizes);

}  // namespace

BENCHMARK_MAIN();
