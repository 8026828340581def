// FIR states are read-only in runs: four threads sharing one single-rate or
// multi-rate state, each with its own work buffer and delay line, get the
// bits of a single thread.
#include <thread>
#include <vector>

#include "vrx_test.h"

namespace {

constexpr int kThreads = 4;

using vt::noise;

// Runs f(thread, out) on kThreads threads and once alone; all outputs equal.
template <class F>
void expectSameBits(size_t outLen, F f) {
    std::vector<float> alone(outLen);
    f(0, alone.data());
    std::vector<std::vector<float>> outs(kThreads, std::vector<float>(outLen));
    std::vector<std::thread> ts;
    for (int t = 0; t < kThreads; ++t) ts.emplace_back([&, t] { f(t, outs[size_t(t)].data()); });
    for (auto& t : ts) t.join();
    for (int t = 0; t < kThreads; ++t)
        EXPECT_EQ(memcmp(outs[size_t(t)].data(), alone.data(), outLen * sizeof(float)), 0) << "thread " << t;
}

TEST(FirThreads, SharedSingleRateState) {
    for (int alg : {vrxAlgDirect, vrxAlgFFT}) {
        const int N = 77, n = 20000;
        const auto h = noise(1, N), x = noise(2, n), line = noise(3, N - 1);
        int s = 0, b = 0;
        ASSERT_EQ(vrxsFIRSRGetSize(N, vrx32f, &s, &b), vrxOk);
        std::vector<uint8_t> spec(static_cast<size_t>(s));
        auto* st = reinterpret_cast<VrxsFirState_32f*>(spec.data());
        ASSERT_EQ(vrxsFIRSRInit_32f(h.data(), N, alg, st), vrxOk);
        expectSameBits(static_cast<size_t>(n), [&](int, float* out) {
            std::vector<uint8_t> buf(static_cast<size_t>(b));
            std::vector<float> dly(line);
            for (int rep = 0; rep < 3; ++rep) {  // the line carried through pieces
                dly = line;
                for (int at = 0; at < n; at += 5000)
                    ASSERT_EQ(vrxsFIRSR_32f(x.data() + at, out + at, 5000, st, dly.data(), dly.data(), buf.data()), vrxOk);
            }
        });
    }
}

TEST(FirThreads, SharedMultiRateState) {
    const int N = 48, U = 3, D = 2, iters = 6000, H = (N + U - 1) / U;
    const auto h = noise(4, N), x = noise(5, size_t(iters * D)), line = noise(6, H);
    int s = 0, b = 0;
    ASSERT_EQ(vrxsFIRMRGetSize(N, U, D, vrx32f, &s, &b), vrxOk);
    std::vector<uint8_t> spec(static_cast<size_t>(s));
    auto* st = reinterpret_cast<VrxsFirMrState*>(spec.data());
    ASSERT_EQ(vrxsFIRMRInit_32f(h.data(), N, U, 1, D, 1, st), vrxOk);
    expectSameBits(static_cast<size_t>(iters * U), [&](int, float* out) {
        std::vector<uint8_t> buf(static_cast<size_t>(b));
        for (int rep = 0; rep < 3; ++rep) {
            std::vector<float> dly(line);
            for (int at = 0; at < iters; at += 1000)
                ASSERT_EQ(vrxsFIRMR_32f(x.data() + at * D, out + at * U, 1000, st, dly.data(), dly.data(), buf.data()), vrxOk);
        }
    });
}

}  // namespace
