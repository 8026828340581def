// Sparse FIR and IIR states under threads: a state is written by every run,
// so it belongs to one thread; four threads each run their own states of
// every kind at once, in their own pieces, and must give the bits and the
// line of one thread running alone.
#include <thread>

#include "vrx_test.h"

namespace {

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
    const bool cplx = j.kind & 1;
    const int c = cplx ? 2 : 1, o1 = j.pos[size_t(j.n1 - 1)], o2 = j.n2 ? j.pos.back() : 0;
    int sz = 0;
    VrxStatus st = j.kind < 2 ? (cplx ? vrxsFIRSparseGetStateSize_32fc(j.n1, o1, &sz) : vrxsFIRSparseGetStateSize_32f(j.n1, o1, &sz))
                              : (cplx ? vrxsIIRSparseGetStateSize_32fc(j.n1, j.n2, o1, o2, &sz)
                                      : vrxsIIRSparseGetStateSize_32f(j.n1, j.n2, o1, o2, &sz));
    if (st != vrxOk) return {};
    std::vector<uint8_t> mem(static_cast<size_t>(sz));
    auto cf = [](const float* p) { return reinterpret_cast<const Vrx32fc*>(p); };
    auto wf = [](float* p) { return reinterpret_cast<Vrx32fc*>(p); };
    void* s = nullptr;
    switch (j.kind) {
        case 0: st = vrxsFIRSparseInit_32f(reinterpret_cast<VrxsFirSparseState_32f**>(&s), j.taps.data(), j.pos.data(), j.n1, nullptr, mem.data()); break;
        case 1: st = vrxsFIRSparseInit_32fc(reinterpret_cast<VrxsFirSparseState_32fc**>(&s), cf(j.taps.data()), j.pos.data(), j.n1, nullptr, mem.data()); break;
        case 2: st = vrxsIIRSparseInit_32f(reinterpret_cast<VrxsIirSparseState_32f**>(&s), j.taps.data(), j.pos.data(), j.n1, j.n2, nullptr, mem.data()); break;
        default: st = vrxsIIRSparseInit_32fc(reinterpret_cast<VrxsIirSparseState_32fc**>(&s), cf(j.taps.data()), j.pos.data(), j.n1, j.n2, nullptr, mem.data()); break;
    }
    if (st != vrxOk) return {};
    Result r{std::vector<float>(j.x.size()), std::vector<float>(size_t(c) * j.lineLen)};
    size_t at = 0;
    for (int p : pieces) {
        const float* src = j.x.data() + at;
        float* dst = r.y.data() + at;
        switch (j.kind) {
            case 0: st = vrxsFIRSparse_32f(src, dst, p, static_cast<VrxsFirSparseState_32f*>(s)); break;
            case 1: st = vrxsFIRSparse_32fc(cf(src), wf(dst), p, static_cast<VrxsFirSparseState_32fc*>(s)); break;
            case 2: st = vrxsIIRSparse_32f(src, dst, p, static_cast<VrxsIirSparseState_32f*>(s)); break;
            default: st = vrxsIIRSparse_32fc(cf(src), wf(dst), p, static_cast<VrxsIirSparseState_32fc*>(s)); break;
        }
        if (st != vrxOk) return {};
        at += size_t(c) * p;
    }
    switch (j.kind) {
        case 0: st = vrxsFIRSparseGetDlyLine_32f(static_cast<VrxsFirSparseState_32f*>(s), r.line.data()); break;
        case 1: st = vrxsFIRSparseGetDlyLine_32fc(static_cast<VrxsFirSparseState_32fc*>(s), wf(r.line.data())); break;
        case 2: st = vrxsIIRSparseGetDlyLine_32f(static_cast<VrxsIirSparseState_32f*>(s), r.line.data()); break;
        default: st = vrxsIIRSparseGetDlyLine_32fc(static_cast<VrxsIirSparseState_32fc*>(s), wf(r.line.data())); break;
    }
    return st == vrxOk ? r : Result{};
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
