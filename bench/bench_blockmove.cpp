// Block moves against glibc: vrxsCopy_8u / memcpy, vrxsMove_8u / memmove
// (by 64 bytes up and down), vrxsSet_32f and vrxsZero_8u / memset, side by
// side at the same sizes.
#include <benchmark/benchmark.h>
#include <stdlib.h>
#include <string.h>

#include "vrxs.h"

namespace {

const int64_t kSizes[] = {64, 4 << 10, 256 << 10, 16 << 20, 64 << 20};

// Runs op(a, b, n) over two buffers of n bytes (plus slack for the moves).
template <class Op>
void run(benchmark::State& st, Op op) {
    const size_t n = static_cast<size_t>(st.range(0));
    auto* a = static_cast<uint8_t*>(aligned_alloc(64, n + 4096));
    auto* b = static_cast<uint8_t*>(aligned_alloc(64, n + 4096));
    memset(a, 1, n + 4096);
    memset(b, 2, n + 4096);
    for (auto _ : st) {
        op(a, b, n);
        benchmark::ClobberMemory();
    }
    st.SetBytesProcessed(st.iterations() * st.range(0));
    free(a);
    free(b);
}

void sizes(benchmark::internal::Benchmark* b) {
    for (int64_t s : kSizes) b->Arg(s);
}

#define VRX_BENCH(name, body)                                               \
    void BM_##name(benchmark::State& st) {                                  \
        run(st, [](uint8_t* a, uint8_t* b, size_t n) { body; });           \
    }                                                                       \
    BENCHMARK(BM_##name)->Apply(sizes);

VRX_BENCH(vrxsCopy_8u, vrxsCopy_8u(a, b, static_cast<int>(n)))
VRX_BENCH(memcpy, memcpy(b, a, n))
VRX_BENCH(vrxsMove_8u_up, vrxsMove_8u(a, a + 64, static_cast<int>(n)))
VRX_BENCH(memmove_up, memmove(a + 64, a, n))
VRX_BENCH(vrxsMove_8u_down, vrxsMove_8u(a + 64, a, static_cast<int>(n)))
VRX_BENCH(memmove_down, memmove(a, a + 64, n))
VRX_BENCH(vrxsSet_32f, vrxsSet_32f(1.0f, reinterpret_cast<Vrx32f*>(b), static_cast<int>(n / 4)))
VRX_BENCH(memset, memset(b, 0x3F, n))
VRX_BENCH(vrxsZero_8u, vrxsZero_8u(b, static_cast<int>(n)))
VRX_BENCH(memset_zero, memset(b, 0, n))

}  // namespace

BENCHMARK_MAIN();
