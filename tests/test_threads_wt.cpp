// Wavelet states belong to one thread at a time: four threads, each with its
// own forward and inverse states, run the same work at once and give the
// bits of the single-thread run. Haar has no state and shares its input.
#include "vrx_test.h"

#include <thread>

namespace {

constexpr int kThreads = 4;

struct Work {
    std::vector<float> taps0, taps1, x;
    std::vector<int16_t> x16;
    int t0, t1, o0, o1, n;
};

struct Result {
    std::vector<float> lo, hi, y, lo16, hi16;
    std::vector<int16_t> y16;
    bool ok = true;
};

Result runOnce(const Work& w, uint64_t seed) {
    Result r;
    vt::Rng rng(seed);
    int sf = 0, si = 0, sf16 = 0, si16 = 0;
    r.ok &= vrxsWTFwdGetSize(13, w.t0, w.o0, w.t1, w.o1, &sf) == vrxOk;
    r.ok &= vrxsWTInvGetSize(13, w.t0, w.o0, w.t1, w.o1, &si) == vrxOk;
    r.ok &= vrxsWTFwdGetSize(7, w.t0, w.o0, w.t1, w.o1, &sf16) == vrxOk;
    r.ok &= vrxsWTInvGetSize(7, w.t0, w.o0, w.t1, w.o1, &si16) == vrxOk;
    std::vector<uint8_t> mf(sf), mi(si), mf16(sf16), mi16(si16);
    auto* fs = reinterpret_cast<VrxsWtFwdState_32f*>(mf.data());
    auto* is = reinterpret_cast<VrxsWtInvState_32f*>(mi.data());
    auto* fs16 = reinterpret_cast<VrxsWtFwdState_16s32f*>(mf16.data());
    auto* is16 = reinterpret_cast<VrxsWtInvState_32f16s*>(mi16.data());
    r.ok &= vrxsWTFwdInit_32f(fs, w.taps0.data(), w.t0, w.o0, w.taps1.data(), w.t1, w.o1) == vrxOk;
    r.ok &= vrxsWTInvInit_32f(is, w.taps0.data(), w.t0, w.o0, w.taps1.data(), w.t1, w.o1) == vrxOk;
    r.ok &= vrxsWTFwdInit_16s32f(fs16, w.taps0.data(), w.t0, w.o0, w.taps1.data(), w.t1, w.o1) == vrxOk;
    r.ok &= vrxsWTInvInit_32f16s(is16, w.taps0.data(), w.t0, w.o0, w.taps1.data(), w.t1, w.o1) == vrxOk;
    r.lo.resize(w.n), r.hi.resize(w.n), r.y.resize(2 * w.n), r.lo16.resize(w.n), r.hi16.resize(w.n);
    r.y16.resize(2 * w.n);
    int at = 0;
    for (int p : vt::randomPieces(rng, w.n, 300)) {
        r.ok &= vrxsWTFwd_32f(w.x.data() + 2 * at, r.lo.data() + at, r.hi.data() + at, p, fs) == vrxOk;
        r.ok &= vrxsWTInv_32f(r.lo.data() + at, r.hi.data() + at, p, r.y.data() + 2 * at, is) == vrxOk;
        r.ok &= vrxsWTFwd_16s32f(w.x16.data() + 2 * at, r.lo16.data() + at, r.hi16.data() + at, p, fs16) == vrxOk;
        r.ok &= vrxsWTInv_32f16s(r.lo16.data() + at, r.hi16.data() + at, p, r.y16.data() + 2 * at, is16) == vrxOk;
        at += p;
    }
    std::vector<int16_t> hl(w.n), hh(w.n), hy(2 * w.n);
    r.ok &= vrxsWTHaarFwd_16s_Sfs(w.x16.data(), 2 * w.n, hl.data(), hh.data(), 0) == vrxOk;
    r.ok &= vrxsWTHaarInv_16s_Sfs(hl.data(), hh.data(), hy.data(), 2 * w.n, 0) == vrxOk;
    r.y16.insert(r.y16.end(), hy.begin(), hy.end());
    return r;
}

bool same(const Result& a, const Result& b) {
    auto eq = [](const auto& u, const auto& v) {
        return u.size() == v.size() && memcmp(u.data(), v.data(), u.size() * sizeof(u[0])) == 0;
    };
    return a.ok && b.ok && eq(a.lo, b.lo) && eq(a.hi, b.hi) && eq(a.y, b.y) && eq(a.lo16, b.lo16) &&
           eq(a.hi16, b.hi16) && eq(a.y16, b.y16);
}

TEST(WtThreads, OwnStatesGiveSingleThreadBits) {
    vt::Rng rng(77);
    for (int round = 0; round < 3; ++round) {
        Work w;
        w.t0 = static_cast<int>(rng.range(1, 33));
        w.t1 = static_cast<int>(rng.range(1, 33));
        w.o0 = static_cast<int>(rng.range(-1, 5));
        w.o1 = static_cast<int>(rng.range(-1, 5));
        w.n = 3000;
        for (int i = 0; i < w.t0; ++i) w.taps0.push_back(static_cast<float>(rng.uniform() - 0.5));
        for (int i = 0; i < w.t1; ++i) w.taps1.push_back(static_cast<float>(rng.uniform() - 0.5));
        for (int i = 0; i < 2 * w.n; ++i) {
            w.x.push_back(static_cast<float>(rng.uniform() * 2 - 1));
            w.x16.push_back(static_cast<int16_t>(rng.next()));
        }
        std::vector<Result> single(kThreads), multi(kThreads);
        for (int t = 0; t < kThreads; ++t) single[t] = runOnce(w, 100 + t);
        std::vector<std::thread> th;
        for (int t = 0; t < kThreads; ++t) th.emplace_back([&, t] { multi[t] = runOnce(w, 100 + t); });
        for (auto& t : th) t.join();
        for (int t = 0; t < kThreads; ++t) EXPECT_TRUE(same(single[t], multi[t])) << "thread " << t;
    }
}

}  // namespace
