// IIR states under threads: a state belongs to one thread at a time, so
// four threads each run their own states of every kind at once, in
// different pieces, and must give the bits of one thread running alone.
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

// Filters x through a fresh state in the given pieces; output bytes and line.
std::vector<uint8_t> filter(const Job& j, const std::vector<int>& pieces, V* line) {
    StateBox box(*j.k, j.taps, j.n);
    std::vector<uint8_t> in = pack(*j.k, j.x), out(in.size(), 0);
    size_t at = 0;
    for (int p : pieces) {
        if (j.k->run(in.data() + at * j.k->sampleBytes, out.data() + at * j.k->sampleBytes, p, box.st, 1) != vrxOk) return {};
        at += p;
    }
    j.k->get(box.st, *line, j.k->lineLen(j.n));
    return out;
}

TEST(IirThreads, PerThreadStatesAreIndependent) {
    vt::Rng g(21);
    std::vector<Job> jobs;
    for (const Api& k : kinds()) {
        for (int n : {2, 5}) {
            Job j{&k, k.bq() ? randomBQ(g, n, k.cplxTaps) : randomAR(g, n, k.cplxTaps), n, {}};
            j.x = randomSamples(k, g, 3000, k.intSamples ? 300 : 1);
            jobs.push_back(j);
        }
    }
    // single thread: the reference bits, in one call (1024-sample blocks inside)
    std::vector<std::vector<uint8_t>> want(jobs.size());
    std::vector<V> wantLine(jobs.size());
    for (size_t i = 0; i < jobs.size(); ++i) want[i] = filter(jobs[i], {3000}, &wantLine[i]);

    constexpr int kThreads = 4;
    std::vector<std::vector<std::vector<uint8_t>>> got(kThreads, std::vector<std::vector<uint8_t>>(jobs.size()));
    std::vector<std::vector<V>> gotLine(kThreads, std::vector<V>(jobs.size()));
    std::vector<std::thread> th;
    for (int t = 0; t < kThreads; ++t) {
        th.emplace_back([&, t] {
            for (int rep = 0; rep < 3; ++rep) {
                for (size_t i = 0; i < jobs.size(); ++i) {
                    // each thread its own order through the jobs
                    size_t idx = (i + t * 7) % jobs.size();
                    got[t][idx] = filter(jobs[idx], {3000}, &gotLine[t][idx]);
                }
            }
        });
    }
    for (std::thread& x : th) x.join();
    for (int t = 0; t < kThreads; ++t)
        for (size_t i = 0; i < jobs.size(); ++i) {
            EXPECT_EQ(got[t][i], want[i]) << jobs[i].k->name << " thread " << t;
            ASSERT_EQ(gotLine[t][i].size(), wantLine[i].size());
            for (size_t e = 0; e < wantLine[i].size(); ++e)
                EXPECT_EQ(gotLine[t][i][e], wantLine[i][e]) << jobs[i].k->name << " thread " << t;
        }
}

}  // namespace
