// Random-number states, one per thread: four threads draw from their own
// states at the same time, in chunks of varying length, and each gets the
// bits that one thread alone gets from a state with the same seed. Two of
// the threads share a seed, so a hidden shared word between states would
// show as a difference between them or from the single-thread run.
#include <atomic>
#include <cstdio>
#include <cstring>
#include <latch>
#include <thread>
#include <vector>

#include "vrx_test.h"

namespace {

constexpr int kThreads = 4;
const Vrx32u kSeeds[kThreads] = {12345u, 12345u, 0u, 0xFFFFFFFFu};  // threads 0 and 1 share one
const int kChunks[] = {1, 7, 64, 3, 1000, 17, 2, 4099, 5};           // odd lengths split Gauss pairs
constexpr int kRounds = 6;

// One kind of state: its size query, Init with a seed, and a draw into bytes.
struct Kind {
    const char* name;
    size_t elem;
    VrxStatus (*getSize)(int*);
    VrxStatus (*init)(void*, Vrx32u);
    VrxStatus (*draw)(void*, uint8_t*, int);
};

template <class S, class T, VrxStatus (*F)(T*, int, S*)>
VrxStatus drawAs(void* st, uint8_t* d, int n) { return F(reinterpret_cast<T*>(d), n, static_cast<S*>(st)); }

#define RAND_KIND(K, t, T, a, b)                                                                        \
    Kind{#K " " #t, sizeof(T), vrxsRand##K##GetSize_##t,                                                \
         [](void* s, Vrx32u seed) { return vrxsRand##K##Init_##t(static_cast<VrxsRand##K##State*>(s), a, b, seed); }, \
         drawAs<VrxsRand##K##State, T, vrxsRand##K##_##t>}
const Kind kKinds[] = {
    RAND_KIND(Uniform, 8u, Vrx8u, 10, 200),      RAND_KIND(Uniform, 16s, Vrx16s, -3000, 3000),
    RAND_KIND(Uniform, 32f, Vrx32f, -1.0f, 2.5f), RAND_KIND(Uniform, 64f, Vrx64f, 0.0, 1.0),
    RAND_KIND(Gauss, 8u, Vrx8u, 128, 30),        RAND_KIND(Gauss, 16s, Vrx16s, 0, 1000),
    RAND_KIND(Gauss, 32f, Vrx32f, 1.0f, 0.5f),   RAND_KIND(Gauss, 64f, Vrx64f, -2.0, 3.0),
};

// The whole sequence a state of this seed gives over the chunk pattern; the
// state sits at the given misalignment in its own guarded memory.
std::vector<uint8_t> sequence(const Kind& k, Vrx32u seed, size_t misalign, std::atomic<long>* calls) {
    int size = 0;
    if (k.getSize(&size) != vrxOk) return {};
    vt::Buffer state(static_cast<size_t>(size), misalign);
    if (k.init(state.data(), seed) != vrxOk) return {};
    size_t total = 0;
    for (int r = 0; r < kRounds; ++r) for (int n : kChunks) total += static_cast<size_t>(n) * k.elem;
    std::vector<uint8_t> out(total);
    size_t at = 0;
    for (int r = 0; r < kRounds; ++r) {
        for (int n : kChunks) {
            if (k.draw(state.data(), out.data() + at, n) != vrxOk) return {};
            if (calls) calls->fetch_add(1, std::memory_order_relaxed);
            at += static_cast<size_t>(n) * k.elem;
        }
    }
    if (!state.guardsIntact()) return {};
    return out;
}

TEST(ThreadsRand, OwnStatesGiveTheSingleThreadSequences) {
    std::atomic<long> calls{0};
    for (const Kind& k : kKinds) {
        SCOPED_TRACE(k.name);
        std::vector<std::vector<uint8_t>> want(kThreads), got(kThreads);
        for (int t = 0; t < kThreads; ++t) {
            want[t] = sequence(k, kSeeds[t], 0, nullptr);
            ASSERT_FALSE(want[t].empty());
        }
        // the seeds that differ give different sequences
        EXPECT_NE(want[0], want[2]);
        EXPECT_NE(want[2], want[3]);
        std::latch start(kThreads);
        std::vector<std::thread> pool;
        for (int t = 0; t < kThreads; ++t) {
            pool.emplace_back([&, t] {
                start.arrive_and_wait();
                got[t] = sequence(k, kSeeds[t], static_cast<size_t>(t) * 13, &calls);
            });
        }
        for (auto& th : pool) th.join();
        for (int t = 0; t < kThreads; ++t) EXPECT_TRUE(got[t] == want[t]) << "thread " << t;
    }
    std::printf("[ threads  ] %ld draws run by the threads\n", calls.load());
}

}  // namespace
