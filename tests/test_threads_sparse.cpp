// Sparse FIR and IIR states under threads: a state is written by every run,
// so it belongs to one thread; four threads each run their own states of
// every kind at once, in their own pieces, and must give the bits and the
// line of one thread running alone.
#include <thread>

#include "vrx_test.h"

namespace {

// The four kinds behind one call shape; the FIR kinds take no feedback count.
struct Kind {
    int c;  // floats per element
    VrxStatus (*size)(int n1, int n2, int o1, int o2, int* sz);
    VrxStatus (*init)(void** s, const float* taps, const int* pos, int n1, int n2, uint8_t* buf);
    VrxStatus (*run)(const float* src, float* dst, int n, void* s);
    VrxStatus (*line)(void* s, float* l);
};
#define N2_FIR
#define N2_IIR n2,
#define SPARSE_KIND(K, t, E, S, ...)                                                                       \
    Kind{int(sizeof(E) / 4), [](int n1, int n2, int o1, int o2, int* z) { return vrxs##K##SparseGetStateSize_##t(__VA_ARGS__, z); }, \
         [](void** s, const float* tp, const int* p, int n1, int n2, uint8_t* b) {                        \
             return vrxs##K##SparseInit_##t(reinterpret_cast<S**>(s), reinterpret_cast<const E*>(tp), p, n1, N2_##K nullptr, b); }, \
         [](const float* x, float* y, int n, void* s) {                                                    \
             return vrxs##K##Sparse_##t(reinterpret_cast<const E*>(x), reinterpret_cast<E*>(y), n, static_cast<S*>(s)); }, \
         [](void* s, float* l) { return vrxs##K##SparseGetDlyLine_##t(static_cast<S*>(s), reinterpret_cast<E*>(l)); }}
const Kind kKinds[] = {
    SPARSE_KIND(FIR, 32f, Vrx32f, VrxsFirSparseState_32f, n1, o1),
    SPARSE_KIND(FIR, 32fc, Vrx32fc, VrxsFirSparseState_32fc, n1, o1),
    SPARSE_KIND(IIR, 32f, Vrx32f, VrxsIirSparseState_32f, n1, n2, o1, o2),
    SPARSE_KIND(IIR, 32fc, Vrx32fc, VrxsIirSparseState_32fc, n1, n2, o1, o2),
};

struct Job {
    int kind;  // 0 FIR 32f, 1 FIR 32fc, 2 IIR 32f, 3 IIR 32fc
    std::vector<float> taps;
    std::vector<int> pos;
    int n1, n2, lineLen;
    std::vector<float> x;
};

struct Result {
    std::vector<float> y, line;
    bool operator==(const Result& o) const { return y == o.y && line == o.line; }
};

Result filter(const Job& j, const std::vector<int>& pieces) {
    const Kind& k = kKinds[j.kind];
    const int o1 = j.pos[size_t(j.n1 - 1)], o2 = j.n2 ? j.pos.back() : 0;
    int sz = 0;
    if (k.size(j.n1, j.n2, o1, o2, &sz) != vrxOk) return {};
    std::vector<uint8_t> mem(static_cast<size_t>(sz));
    void* s = nullptr;
    if (k.init(&s, j.taps.data(), j.pos.data(), j.n1, j.n2, mem.data()) != vrxOk) return {};
    Result r{std::vector<float>(j.x.size()), std::vector<float>(size_t(k.c) * j.lineLen)};
    size_t at = 0;
    for (int p : pieces) {
        if (k.run(j.x.data() + at, r.y.data() + at, p, s) != vrxOk) return {};
        at += size_t(k.c) * p;
    }
    return k.line(s, r.line.data()) == vrxOk ? r : Result{};
}

TEST(SparseThreads, PerThreadStatesAreIndependent) {
    vt::Rng g(31);
    constexpr int kLen = 6000;
    std::vector<Job> jobs;
    for (int kind = 0; kind < 4; ++kind) {
        for (int minFb : {1, 40}) {
            Job j{kind, {}, {}, 8, kind < 2 ? 0 : 3, 0, {}};
            const int c = kind & 1 ? 2 : 1;
            int p = 0;
            for (int i = 0; i < j.n1; ++i) j.pos.push_back(p += int(g.range(i ? 1 : 0, 400)));
            p = minFb;
            for (int i = 0; i < j.n2; ++i) j.pos.push_back(i ? (p += int(g.range(1, 300))) : p);
            for (int i = 0; i < c * (j.n1 + j.n2); ++i)
                j.taps.push_back(float((g.uniform() * 2 - 1) * (i < c * j.n1 ? 1.0 : 0.1)));
            j.lineLen = j.pos[size_t(j.n1 - 1)] + (j.n2 ? j.pos.back() : 0);
            for (int i = 0; i < c * kLen; ++i) j.x.push_back(float(g.uniform() * 2 - 1));
            jobs.push_back(j);
        }
    }
    std::vector<Result> want(jobs.size());
    for (size_t i = 0; i < jobs.size(); ++i) {
        want[i] = filter(jobs[i], {kLen});
        ASSERT_FALSE(want[i].y.empty()) << "job " << i;
    }
    constexpr int kThreads = 4;
    std::vector<std::vector<std::vector<int>>> pieces(kThreads);
    for (int t = 0; t < kThreads; ++t)
        for (size_t i = 0; i < jobs.size(); ++i) pieces[size_t(t)].push_back(vt::randomPieces(g, kLen, 700 * (t + 1)));
    std::vector<std::vector<Result>> got(kThreads, std::vector<Result>(jobs.size()));
    std::vector<std::thread> th;
    for (int t = 0; t < kThreads; ++t) {
        th.emplace_back([&, t] {
            for (int rep = 0; rep < 3; ++rep)
                for (size_t i = 0; i < jobs.size(); ++i) {
                    const size_t idx = (i + size_t(t) * 3) % jobs.size();
                    got[size_t(t)][idx] = filter(jobs[idx], pieces[size_t(t)][idx]);
                }
        });
    }
    for (std::thread& x : th) x.join();
    for (int t = 0; t < kThreads; ++t)
        for (size_t i = 0; i < jobs.size(); ++i) EXPECT_TRUE(got[size_t(t)][i] == want[i]) << "job " << i << " thread " << t;
}

}  // namespace
