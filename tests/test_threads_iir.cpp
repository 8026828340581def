// IIR states under threads: a state belongs to one thread at a time, so
// four threads each run their own states of every kind at once, each in its
// own order, and must give the bits of one thread running alone.
#include <thread>

#include "test_iir_common.h"

using namespace iirt;

namespace {

struct Job {
    const Api* k;
    V taps;
    int n;
    V x;
};
struct Result {
    std::vector<uint8_t> out;
    V line;
    bool operator==(const Result&) const = default;
};

// Filters x through a fresh state in one call (1024-sample blocks inside).
Result filter(const Job& j) {
    StateBox box(*j.k, j.taps, j.n);
    const std::vector<uint8_t> in = j.k->pack(j.x);
    Result r{std::vector<uint8_t>(in.size()), {}};
    if (j.k->run(in.data(), r.out.data(), int(j.x.size()), box.st, 1) != vrxOk) return {};
    j.k->get(box.st, r.line, j.k->lineLen(j.n));
    return r;
}

TEST(IirThreads, PerThreadStatesAreIndependent) {
    vt::Rng g(21);
    std::vector<Job> jobs;
    for (const Api& k : kinds())
        for (int n : {2, 5}) jobs.push_back(Job{&k, randomTaps(k, g, n), n, randomSamples(k, g, 3000, k.intSamples ? 300 : 1)});
    std::vector<Result> want(jobs.size());
    for (size_t i = 0; i < jobs.size(); ++i) want[i] = filter(jobs[i]);
    constexpr int kThreads = 4;
    std::vector<std::vector<Result>> got(kThreads, std::vector<Result>(jobs.size()));
    std::vector<std::thread> th;
    for (int t = 0; t < kThreads; ++t)
        th.emplace_back([&, t] {
            for (int rep = 0; rep < 3; ++rep)
                for (size_t i = 0; i < jobs.size(); ++i) {
                    const size_t idx = (i + t * 7) % jobs.size();
                    got[t][idx] = filter(jobs[idx]);
                }
        });
    for (std::thread& x : th) x.join();
    for (int t = 0; t < kThreads; ++t)
        for (size_t i = 0; i < jobs.size(); ++i) EXPECT_TRUE(got[t][i] == want[i]) << jobs[i].k->name << " thread " << t;
}

}  // namespace
