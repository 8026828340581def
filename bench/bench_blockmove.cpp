// Block moves against glibc: vrxsCopy_8u / memcpy, vrxsMove_8u / memmove,
// vrxsSet_32f and vrxsZero_8u / memset, side by side at the same sizes.
#include <benchmark/benchmark.h>
#include <stdlib.h>
#include <string.h>

#include "vrxs.h"

namespace {

const int64_t kSizes[] = {64, 4 << 10, 256 << 10, 16 << 20, 64 << 20};

struct Buffers {
    explicit Buffers(size_t n) : n(n) {
        a = static_cast<uint8_t*>(aligned_alloc(64, n + 4096));
        b = static_cast<uint8_t*>(aligned_alloc(64, n + 4096));
        memset(a, 1, n + 4096);
        memset(b, 2, n + 4096);
    }
    ~Buffers() { free(a); free(b); }
    size_t n;
    uint8_t *a, *b;
};

void setBytes(benchmark::State& st) { st.SetBytesProcessed(st.iterations() * st.range(0)); }

void BM_vrxsCopy_8u(benchmark::State& st) {
    Buffers buf(st.range(0));
    for (auto _ : st) {
        vrxsCopy_8u(buf.a, buf.b, static_cast<int>(buf.n));
        benchmark::ClobberMemory();
    }
    setBytes(st);
}
void BM_memcpy(benchmark::State& st) {
    Buffers buf(st.range(0));
    for (auto _ : st) {
        memcpy(buf.b, buf.a, buf.n);
        benchmark::ClobberMemory();
    }
    setBytes(st);
}

// Move by 64 bytes up (copied from the end) and down (from the start).
void BM_vrxsMove_8u_up(benchmark::State& st) {
    Buffers buf(st.range(0));
    for (auto _ : st) {
        vrxsMove_8u(buf.a, buf.a + 64, static_cast<int>(buf.n));
        benchmark::ClobberMemory();
    }
    setBytes(st);
}
void BM_memmove_up(benchmark::State& st) {
    Buffers buf(st.range(0));
    for (auto _ : st) {
        memmove(buf.a + 64, buf.a, buf.n);
        benchmark::ClobberMemory();
    }
    setBytes(st);
}
void BM_vrxsMove_8u_down(benchmark::State& st) {
    Buffers buf(st.range(0));
    for (auto _ : st) {
        vrxsMove_8u(buf.a + 64, buf.a, static_cast<int>(buf.n));
        benchmark::ClobberMemory();
    }
    setBytes(st);
}
void BM_memmove_down(benchmark::State& st) {
    Buffers buf(st.range(0));
    for (auto _ : st) {
        memmove(buf.a, buf.a + 64, buf.n);
        benchmark::ClobberMemory();
    }
    setBytes(st);
}

void BM_vrxsSet_32f(benchmark::State& st) {
    Buffers buf(st.range(0));
    for (auto _ : st) {
        vrxsSet_32f(1.0f, reinterpret_cast<Vrx32f*>(buf.b), static_cast<int>(buf.n / 4));
        benchmark::ClobberMemory();
    }
    setBytes(st);
}
void BM_memset(benchmark::State& st) {
    Buffers buf(st.range(0));
    for (auto _ : st) {
        memset(buf.b, 0x3F, buf.n);
        benchmark::ClobberMemory();
    }
    setBytes(st);
}

void BM_vrxsZero_8u(benchmark::State& st) {
    Buffers buf(st.range(0));
    for (auto _ : st) {
        vrxsZero_8u(buf.b, static_cast<int>(buf.n));
        benchmark::ClobberMemory();
    }
    setBytes(st);
}
void BM_memset_zero(benchmark::State& st) {
    Buffers buf(st.range(0));
    for (auto _ : st) {
        memset(buf.b, 0, buf.n);
        benchmark::ClobberMemory();
    }
    setBytes(st);
}

void sizes(benchmark::internal::Benchmark* b) {
    for (int64_t s : kSizes) b->Arg(s);
}

}  // namespace

BENCHMARK(BM_vrxsCopy_8u)->Apply(sizes);
BENCHMARK(BM_memcpy)->Apply(sizes);
BENCHMARK(BM_vrxsMove_8u_up)->Apply(sizes);
BENCHMARK(BM_memmove_up)->Apply(sizes);
BENCHMARK(BM_vrxsMove_8u_down)->Apply(sizes);
BENCHMARK(BM_memmove_down)->Apply(sizes);
BENCHMARK(BM_vrxsSet_32f)->Apply(sizes);
BENCHMARK(BM_memset)->Apply(sizes);
BENCHMARK(BM_vrxsZero_8u)->Apply(sizes);
BENCHMARK(BM_memset_zero)->Apply(sizes);

BENCHMARK_MAIN();
