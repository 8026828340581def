// Resampler states are written by every run: four threads, each with its own
// fixed-ratio and arbitrary-factor state, get the bits of one thread alone;
// the prototype read from one shared state by all threads at once is the
// same for each.
#include <thread>
#include <vector>

#include "vrx_test.h"

namespace {

constexpr int kThreads = 4;

using vt::noise;

// One thread's work: a fresh state of each kind, the input in pieces.
std::vector<float> work(const std::vector<float>& x) {
    std::vector<float> y;
    int size = 0, L = 0, got = 0;
    EXPECT_EQ(vrxsResamplePolyphaseFixedGetSize_32f(160, 147, 16, &size, &L), vrxOk);
    std::vector<uint8_t> fm(static_cast<size_t>(size));
    VrxsResamplePolyphaseFixedState_32f* fs = nullptr;
    EXPECT_EQ(vrxsResamplePolyphaseFixedInit_32f(160, 147, 16, 0.9f, 8.0f, &fs, fm.data()), vrxOk);
    EXPECT_EQ(vrxsResamplePolyphaseGetSize_32f(16, 256, &size), vrxOk);
    std::vector<uint8_t> am(static_cast<size_t>(size));
    VrxsResamplePolyphaseState_32f* as = nullptr;
    EXPECT_EQ(vrxsResamplePolyphaseInit_32f(16, 256, 0.9f, 8.0f, &as, am.data()), vrxOk);
    std::vector<float> out(8192);
    for (size_t at = 0; at < x.size(); at += 1000) {
        EXPECT_EQ(vrxsResamplePolyphaseFixed_32f(x.data() + at, 1000, out.data(), &got, fs), vrxOk);
        y.insert(y.end(), out.begin(), out.begin() + got);
        EXPECT_EQ(vrxsResamplePolyphase_32f(x.data() + at, 1000, out.data(), 0.6180339887, &got, as), vrxOk);
        y.insert(y.end(), out.begin(), out.begin() + got);
        EXPECT_EQ(vrxsResamplePolyphase_32f(x.data() + at, 1000, out.data(), 2.5, &got, as), vrxOk);
        y.insert(y.end(), out.begin(), out.begin() + got);
    }
    return y;
}

TEST(ResampleThreads, OwnStatesGiveSingleThreadBits) {
    const std::vector<float> x = noise(1, 20000);
    const std::vector<float> alone = work(x);
    std::vector<std::vector<float>> outs(kThreads);
    std::vector<std::thread> ts;
    for (int t = 0; t < kThreads; ++t) ts.emplace_back([&, t] { outs[size_t(t)] = work(x); });
    for (auto& t : ts) t.join();
    for (int t = 0; t < kThreads; ++t) EXPECT_EQ(outs[size_t(t)], alone) << "thread " << t;
}

TEST(ResampleThreads, SharedStateReadsAlike) {
    int size = 0, L = 0;
    ASSERT_EQ(vrxsResamplePolyphaseFixedGetSize_32f(3, 2, 24, &size, &L), vrxOk);
    std::vector<uint8_t> fm(static_cast<size_t>(size));
    VrxsResamplePolyphaseFixedState_32f* fs = nullptr;
    ASSERT_EQ(vrxsResamplePolyphaseFixedInit_32f(3, 2, 24, 0.9f, 8.0f, &fs, fm.data()), vrxOk);
    std::vector<float> alone(static_cast<size_t>(L));
    ASSERT_EQ(vrxsResamplePolyphaseGetFixedFilter_32f(fs, alone.data()), vrxOk);
    std::vector<std::vector<float>> outs(kThreads, std::vector<float>(size_t(L)));
    std::vector<std::thread> ts;
    for (int t = 0; t < kThreads; ++t)
        ts.emplace_back([&, t] {
            for (int rep = 0; rep < 200; ++rep)
                EXPECT_EQ(vrxsResamplePolyphaseGetFixedFilter_32f(fs, outs[size_t(t)].data()), vrxOk);
        });
    for (auto& t : ts) t.join();
    for (int t = 0; t < kThreads; ++t) EXPECT_EQ(outs[size_t(t)], alone) << "thread " << t;
}

}  // namespace
