// FIR states are read-only in runs: four threads sharing one single-rate or
// multi-rate state, each with its own work buffer and delay line carried
// through pieces, get the bits of a single thread.
#include <thread>
#include <vector>

#include "vrx_test.h"

namespace {

constexpr int kThreads = 4;

using vt::noise;

// Runs f(out) on kThreads threads and once alone; all outputs equal.
template <class F>
void expectSameBits(size_t outLen, F f) {
    std::vector<float> alone(outLen);
    f(alone.data());
    std::vector<std::vector<float>> outs(kThreads, std::vector<float>(outLen));
    std::vector<std::thread> ts;
    for (int t = 0; t < kThreads; ++t) ts.emplace_back([&, t] { f(outs[size_t(t)].data()); });
    for (auto& t : ts) t.join();
    for (int t = 0; t < kThreads; ++t)
        EXPECT_EQ(memcmp(outs[size_t(t)].data(), alone.data(), outLen * sizeof(float)), 0) << "thread " << t;
}

// U = D = 0 stands for the single-rate state of the given path.
TEST(FirThreads, SharedStates) {
    struct { int U, D, alg; } rows[] = {{0, 0, vrxAlgDirect}, {0, 0, vrxAlgFFT}, {3, 2, 0}};
    for (auto c : rows) {
        const bool sr = c.U == 0;
        const int N = sr ? 77 : 48, iters = sr ? 20000 : 6000, U = sr ? 1 : c.U, D = sr ? 1 : c.D, step = sr ? 5000 : 1000;
        const auto h = noise(1, N), x = noise(2, size_t(iters * D)), line = noise(3, sr ? N - 1 : (N + U - 1) / U);
        int s = 0, b = 0;
        ASSERT_EQ(sr ? vrxsFIRSRGetSize(N, vrx32f, &s, &b) : vrxsFIRMRGetSize(N, U, D, vrx32f, &s, &b), vrxOk);
        std::vector<uint8_t> spec(static_cast<size_t>(s));
        auto* st = reinterpret_cast<VrxsFirState_32f*>(spec.data());
        auto* mr = reinterpret_cast<VrxsFirMrState*>(spec.data());
        ASSERT_EQ(sr ? vrxsFIRSRInit_32f(h.data(), N, c.alg, st) : vrxsFIRMRInit_32f(h.data(), N, U, 1, D, 1, mr), vrxOk);
        expectSameBits(size_t(iters * U), [&](float* out) {
            std::vector<uint8_t> buf(static_cast<size_t>(b));
            for (int rep = 0; rep < 3; ++rep) {
                std::vector<float> dly(line);
                for (int at = 0; at < iters; at += step)
                    ASSERT_EQ(sr ? vrxsFIRSR_32f(x.data() + at, out + at, step, st, dly.data(), dly.data(), buf.data())
                                 : vrxsFIRMR_32f(x.data() + at * D, out + at * U, step, mr, dly.data(), dly.data(), buf.data()),
                              vrxOk);
            }
        });
    }
}

}  // namespace
