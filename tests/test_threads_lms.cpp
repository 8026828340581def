// Adaptive FIR states under threads: a state is written by every run, so
// four threads each run their own states (both types, several tap counts)
// in different pieces at once, and must give the bits of one thread alone.
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include "vrx_test.h"

namespace {

struct Job {
    bool dbl;
    int taps;
    std::vector<double> x, d;  // converted to the job's type at the call
};

// Output bytes, then the taps and line bytes, of one state through pieces.
template <class T, class St>
std::vector<uint8_t> runJob(const Job& j, const std::vector<int>& pieces, VrxStatus (*size)(int, int*),
                            VrxStatus (*init)(St**, const T*, int, const T*, Vrx8u*),
                            VrxStatus (*run)(const T*, const T*, T*, int, T, St*),
                            VrxStatus (*taps)(const St*, T*), VrxStatus (*line)(const St*, T*)) {
    int bytes = 0;
    if (size(j.taps, &bytes) != vrxOk) return {};
    std::vector<uint8_t> mem(static_cast<size_t>(bytes));
    St* st = nullptr;
    if (init(&st, nullptr, j.taps, nullptr, mem.data()) != vrxOk) return {};
    std::vector<T> x(j.x.begin(), j.x.end()), d(j.d.begin(), j.d.end()), y(x.size());
    size_t at = 0;
    for (int p : pieces) {
        if (run(x.data() + at, d.data() + at, y.data() + at, p, T(0.5) / T(j.taps), st) != vrxOk) return {};
        at += size_t(p);
    }
    std::vector<T> h(static_cast<size_t>(j.taps)), l(size_t(j.taps));
    taps(st, h.data());
    line(st, l.data());
    y.insert(y.end(), h.begin(), h.end());
    y.insert(y.end(), l.begin(), l.end() - 1);
    std::vector<uint8_t> out(y.size() * sizeof(T));
    memcpy(out.data(), y.data(), out.size());
    return out;
}

std::vector<uint8_t> runAny(const Job& j, const std::vector<int>& pieces) {
    if (j.dbl)
        return runJob<Vrx64f, VrxsFirLmsState_64f>(j, pieces, vrxsFIRLMSGetStateSize_64f, vrxsFIRLMSInit_64f,
                                                   vrxsFIRLMS_64f, vrxsFIRLMSGetTaps_64f, vrxsFIRLMSGetDlyLine_64f);
    return runJob<Vrx32f, VrxsFirLmsState_32f>(j, pieces, vrxsFIRLMSGetStateSize_32f, vrxsFIRLMSInit_32f,
                                               vrxsFIRLMS_32f, vrxsFIRLMSGetTaps_32f, vrxsFIRLMSGetDlyLine_32f);
}

TEST(LmsThreads, PerThreadStatesAreIndependent) {
    vt::Rng g(17);
    std::vector<Job> jobs;
    for (bool dbl : {false, true})
        for (int taps : {5, 16, 48, 100}) {
            Job j{dbl, taps, {}, {}};
            for (int i = 0; i < 3000; ++i) {
                j.x.push_back(2 * g.uniform() - 1);
                j.d.push_back(2 * g.uniform() - 1);
            }
            jobs.push_back(j);
        }
    std::vector<std::vector<uint8_t>> alone;
    for (const Job& j : jobs) alone.push_back(runAny(j, {3000}));

    constexpr int kThreads = 4;
    std::vector<std::vector<std::vector<uint8_t>>> got(kThreads);
    std::vector<std::thread> pool;
    for (int t = 0; t < kThreads; ++t)
        pool.emplace_back([&, t] {
            vt::Rng r(100 + uint64_t(t));
            for (int rep = 0; rep < 3; ++rep)
                for (const Job& j : jobs) got[size_t(t)].push_back(runAny(j, vt::randomPieces(r, 3000, 400)));
        });
    for (std::thread& th : pool) th.join();
    for (int t = 0; t < kThreads; ++t)
        for (size_t i = 0; i < got[size_t(t)].size(); ++i) {
            const std::vector<uint8_t>& want = alone[i % jobs.size()];
            ASSERT_FALSE(want.empty());
            EXPECT_EQ(got[size_t(t)][i], want) << "thread " << t << " job " << i % jobs.size();
        }
}

}  // namespace
