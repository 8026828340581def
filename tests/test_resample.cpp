// Polyphase resampling: fixed-ratio prototypes and outputs against SciPy
// goldens; both resamplers against long-double models computed here (the
// fixed one from its own taps, the arbitrary one from the continuous
// prototype); random pieces give the bits of one call; Get/SetFixedFilter;
// output counts; the value and identity checks with nothing written; the
// caller's x87 word and MXCSR left alone.
#include <cmath>
#include <numeric>
#include <vector>

#include "vrx_test.h"
#include "data/resample_golden.h"

namespace {

using vt::noise;

int64_t gcd64(int64_t a, int64_t b) { return std::gcd(a, b); }

// ------------------------------------------------------------ fixed ratio
struct Fixed {
    std::vector<uint8_t> mem;
    VrxsResamplePolyphaseFixedState_32f* st = nullptr;
    int filterLen = 0;
    Fixed(int up, int down, int halfLen, float rollf, float beta) {
        int size = 0;
        EXPECT_EQ(vrxsResamplePolyphaseFixedGetSize_32f(up, down, halfLen, &size, &filterLen), vrxOk);
        mem.assign(size_t(size), 0);
        EXPECT_EQ(vrxsResamplePolyphaseFixedInit_32f(up, down, halfLen, rollf, beta, &st, mem.data()), vrxOk);
    }
    std::vector<float> taps() const {
        std::vector<float> h(static_cast<size_t>(filterLen));
        EXPECT_EQ(vrxsResamplePolyphaseGetFixedFilter_32f(st, h.data()), vrxOk);
        return h;
    }
    // x fed in the given pieces; the outputs joined
    std::vector<float> run(const std::vector<float>& x, const std::vector<int>& pieces, int64_t U, int64_t D) {
        std::vector<float> y;
        size_t at = 0;
        int64_t fed = 0;
        for (int n : pieces) {
            std::vector<float> out(size_t((n * U + D - 1) / D) + 1, -7.0f);
            int got = -1;
            EXPECT_EQ(vrxsResamplePolyphaseFixed_32f(x.data() + at, n, out.data(), &got, st), vrxOk);
            // all outputs whose newest input has come: ceil(fed * U / D) in all
            fed += n;
            EXPECT_EQ(int64_t(y.size()) + got, (fed * U + D - 1) / D);
            EXPECT_EQ(out[size_t(got)], -7.0f) << "written past *pOutLen";
            y.insert(y.end(), out.begin(), out.begin() + got);
            at += size_t(n);
        }
        return y;
    }
};

// upfirdn(h, x, U, D)[n] in long double, with the bound of its rounding.
struct Ref { long double y, mag; };
Ref upfirdnAt(const std::vector<float>& h, const std::vector<float>& x, int64_t U, int64_t D, int64_t n) {
    Ref r{0, 0};
    const int64_t m = n * D;
    for (int64_t k = m % U; k < int64_t(h.size()) && k <= m; k += U) {
        const int64_t i = (m - k) / U;
        if (i >= int64_t(x.size())) continue;
        r.y += (long double)h[size_t(k)] * x[size_t(i)];
        r.mag += fabsl((long double)h[size_t(k)] * x[size_t(i)]);
    }
    return r;
}

using vt::randomPieces;

// rollf * halfLen is whole in every case: the prototype then ends at zero
// and the phase table interpolates it without a step at the edges.

// Ratios with reductions, pure up and down sampling, one-to-one and long
// prototypes, and SciPy's cases (prototype and outputs of its input): the
// outputs within float rounding of the long-double model of the library's
// own taps, and pieces equal to one call bit for bit.
TEST(ResampleFixed, GoldenModelAndPieces) {
    struct Case { int up, down, halfLen; float rollf, beta; const GoldenRs* g; };
    std::vector<Case> cases = {{1, 1, 3, 0.9f, 4.0f, nullptr},   {3, 2, 16, 0.9f, 8.0f, nullptr},
                               {2, 3, 16, 0.9f, 8.0f, nullptr},  {160, 147, 16, 0.9f, 8.0f, nullptr},
                               {7, 1, 5, 1.0f, 2.0f, nullptr},   {1, 5, 9, 0.8f, 6.0f, nullptr},
                               {10, 4, 1, 0.5f, 0.0f, nullptr},  {8, 8, 20, 0.7f, 12.0f, nullptr},
                               {1, 1, 40, 0.3f, 3.0f, nullptr}};
    for (const GoldenRs& g : kGoldenRs) cases.push_back({g.up, g.down, g.halfLen, g.rollf, g.beta, &g});
    const std::vector<float> gx(kGoldenRsInput, kGoldenRsInput + 200);
    vt::Rng rng(7);
    for (const Case& c : cases) {
        SCOPED_TRACE(testing::Message() << c.up << "/" << c.down << " halfLen " << c.halfLen << (c.g ? " golden" : ""));
        const int64_t g = gcd64(c.up, c.down), U = c.up / g, D = c.down / g;
        const int n = 1500;
        const std::vector<float> x = noise(uint64_t(c.up * 1000 + c.down), size_t(n));
        Fixed one(c.up, c.down, c.halfLen, c.rollf, c.beta);
        const std::vector<float> h = one.taps();
        ASSERT_EQ(int(h.size()), 2 * c.halfLen * (U > D ? U : D) + 1);
        if (c.g) {
            ASSERT_EQ(int(h.size()), c.g->filterLen);
            double peak = 0;
            for (int k = 0; k < c.g->filterLen; ++k) peak = std::fmax(peak, std::fabs(c.g->taps[k]));
            for (int k = 0; k < c.g->filterLen; ++k) ASSERT_NEAR(h[size_t(k)], c.g->taps[k], 2e-7 * peak) << "tap " << k;
            const std::vector<float> y = Fixed(c.up, c.down, c.halfLen, c.rollf, c.beta).run(gx, {200}, U, D);
            ASSERT_EQ(int(y.size()), c.g->outLen);
            for (int k = 0; k < c.g->outLen; ++k)
                ASSERT_NEAR(y[size_t(k)], c.g->out[k], 2e-6 * (upfirdnAt(h, gx, U, D, k).mag + 1e-3)) << "output " << k;
        }
        const std::vector<float> y = one.run(x, {n}, U, D);
        for (size_t k = 0; k < y.size(); ++k) {
            const Ref r = upfirdnAt(h, x, U, D, int64_t(k));
            ASSERT_NEAR(y[k], double(r.y), 1e-6 * double(r.mag) + 1e-30) << "output " << k;
        }
        for (int most : {1, 7, 40, 333}) {
            const std::vector<float> yp = Fixed(c.up, c.down, c.halfLen, c.rollf, c.beta).run(x, randomPieces(rng, n, most), U, D);
            EXPECT_TRUE(yp.size() == y.size() && memcmp(yp.data(), y.data(), y.size() * 4) == 0) << "pieces up to " << most;
        }
    }
}

TEST(ResampleFixed, SetAndGetFilter) {
    Fixed f(3, 2, 4, 0.9f, 5.0f);
    const int L = f.filterLen;
    ASSERT_EQ(L, 25);
    // an asymmetric prototype: a transposed or reversed layout shows
    std::vector<float> h = noise(11, size_t(L));
    h[0] = 2.0f;
    ASSERT_EQ(vrxsResamplePolyphaseSetFixedFilter_32f(f.st, h.data()), vrxOk);
    EXPECT_EQ(f.taps(), h);
    const std::vector<float> x = noise(12, 300);
    const std::vector<float> y = f.run(x, {100, 200}, 3, 2);
    for (size_t k = 0; k < y.size(); ++k) {
        const Ref r = upfirdnAt(h, x, 3, 2, int64_t(k));
        ASSERT_NEAR(y[k], double(r.y), 6e-7 * double(r.mag)) << "output " << k;
    }
    // the history stays across a new filter: an impulse seen before the set
    Fixed g(1, 1, 2, 1.0f, 0.0f);   // h = delta at the centre (5 taps)
    const std::vector<float> e = {1, 0, 0, 0, 0, 0, 0}, ramp = {1, 2, 3, 4, 5};
    std::vector<float> out(7);
    int got = 0;
    ASSERT_EQ(vrxsResamplePolyphaseFixed_32f(e.data(), 1, out.data(), &got, g.st), vrxOk);
    ASSERT_EQ(vrxsResamplePolyphaseSetFixedFilter_32f(g.st, ramp.data()), vrxOk);
    ASSERT_EQ(vrxsResamplePolyphaseFixed_32f(e.data() + 1, 6, out.data(), &got, g.st), vrxOk);
    EXPECT_TRUE(got == 6 && out == (std::vector<float>{2, 3, 4, 5, 0, 0, 0}));
}

// ------------------------------------------------------------ arbitrary
struct Arb {
    std::vector<uint8_t> mem;
    VrxsResamplePolyphaseState_32f* st = nullptr;
    Arb(int halfLen, int nPhases, float rollf, float beta) {
        int size = 0;
        EXPECT_EQ(vrxsResamplePolyphaseGetSize_32f(halfLen, nPhases, &size), vrxOk);
        mem.assign(size_t(size), 0);
        EXPECT_EQ(vrxsResamplePolyphaseInit_32f(halfLen, nPhases, rollf, beta, &st, mem.data()), vrxOk);
    }
    // x fed in calls of (length, factor); the outputs joined
    std::vector<float> run(const std::vector<float>& x, const std::vector<std::pair<int, double>>& calls) {
        std::vector<float> y;
        size_t at = 0;
        for (const auto& [n, factor] : calls) {
            const size_t most = size_t(std::ceil(n * factor)) + 1;
            std::vector<float> out(most + 1, -7.0f);
            int got = -1;
            EXPECT_EQ(vrxsResamplePolyphase_32f(x.data() + at, n, out.data(), factor, &got, st), vrxOk);
            EXPECT_LE(size_t(got), most);
            EXPECT_EQ(out[size_t(got)], -7.0f) << "written past *pOutLen";
            y.insert(y.end(), out.begin(), out.begin() + got);
            at += size_t(n);
        }
        return y;
    }
};

// The continuous prototype and the documented output instants.
struct ArbModel {
    int W;
    long double rollf, beta, i0b = vt::besselI0(beta);
    long double p(long double t) const {
        if (fabsl(t) >= W) return 0;
        const long double a = 3.141592653589793238462643383279502884L * (rollf * t), u = t / W;
        return rollf * (a == 0 ? 1 : sinl(a) / a) * vt::besselI0(beta * sqrtl(fmaxl(0, 1 - u * u))) / i0b;
    }
    // outputs of x (zeros before it) fed in calls of (length, factor): each
    // output instant advances by the step of the call that writes it
    std::vector<long double> run(const std::vector<float>& x, const std::vector<std::pair<int, double>>& calls) const {
        std::vector<long double> y;
        int64_t at = 0, fed = 0;   // in 2^-32 samples; inputs so far
        for (const auto& [len, factor] : calls) {
            fed += len;
            const int64_t step = int64_t(std::ceil(4294967296.0 / factor));
            const long double phi = factor < 1 ? factor : 1, w = W / phi;
            for (; at < (fed << 32); at += step) {
                const long double t = (long double)at / 4294967296.0L;
                long double acc = 0;
                for (int64_t k = int64_t(floorl(t)); k >= 0 && k > t - 2 * w - 1; --k)
                    acc += x[size_t(k)] * phi * p(phi * (t - k - w));
                y.push_back(acc);
            }
        }
        return y;
    }
};

// One factor per case, or factors changing from call to call (across the
// widened-table, widened and plain kernels, and back to a factor seen
// before), against the model; a single factor fed in random pieces gives the
// bits of one call.
TEST(ResampleArbitrary, ModelAndPieces) {
    using Calls = std::vector<std::pair<int, double>>;
    struct Case { int halfLen, nPhases; float rollf, beta; Calls calls; double tol; };
    const Case cases[] = {
        {8, 512, 0.875f, 6.0f, {{700, 1.5}}, 2e-5},       {8, 512, 0.875f, 6.0f, {{700, 0.5}}, 2e-5},
        {16, 256, 0.9375f, 8.0f, {{700, 3.14159265358979}}, 6e-5}, {4, 1024, 0.75f, 4.0f, {{700, 0.7318}}, 1e-5},
        {12, 256, 0.75f, 7.0f, {{700, 1.0}}, 4e-5},       {3, 64, 1.0f, 0.0f, {{4000, 1.0 / 64}}, 2e-3},
        {2, 2048, 0.5f, 5.0f, {{700, 17.25}}, 1e-5},      {6, 256, 0.5f, 9.0f, {{700, 160.0 / 147}}, 3e-5},
        {4, 256, 0.75f, 4.0f, {{700, 0.2}}, 2e-5},        {5, 128, 0.8f, 6.0f, {{700, 0.25}}, 5e-5},
        {8, 512, 0.75f, 6.0f, {{300, 0.5}, {200, 1.75}, {250, 0.5}, {400, 0.21}, {100, 0.5}, {150, 3.0}, {300, 0.3},
                               {300, 0.3}}, 3e-5}};
    vt::Rng rng(3);
    for (const Case& c : cases) {
        SCOPED_TRACE(testing::Message() << "halfLen " << c.halfLen << " phases " << c.nPhases << " factor " << c.calls[0].second);
        int n = 0;
        for (const auto& call : c.calls) n += call.first;
        const std::vector<float> x = noise(uint64_t(c.halfLen * 31 + c.nPhases), size_t(n));
        const std::vector<long double> ref = ArbModel{c.halfLen, c.rollf, c.beta}.run(x, c.calls);
        const std::vector<float> y = Arb(c.halfLen, c.nPhases, c.rollf, c.beta).run(x, c.calls);
        ASSERT_EQ(y.size(), ref.size());
        for (size_t k = 0; k < y.size(); ++k) ASSERT_NEAR(y[k], double(ref[k]), c.tol) << "output " << k;
        if (c.calls.size() > 1) continue;
        for (int most : {1, 13, 250}) {
            Calls pieces;
            for (int len : randomPieces(rng, n, most)) pieces.push_back({len, c.calls[0].second});
            const std::vector<float> yp = Arb(c.halfLen, c.nPhases, c.rollf, c.beta).run(x, pieces);
            EXPECT_TRUE(yp.size() == y.size() && memcmp(yp.data(), y.data(), y.size() * 4) == 0) << "pieces up to " << most;
        }
    }
}

// The instant carries over a change of factor: after n inputs at factor a,
// the next output is the first at or past n on the new grid step.
TEST(ResampleArbitrary, FactorChangeKeepsTime) {
    Arb a(4, 128, 0.9f, 5.0f);
    const std::vector<float> x = noise(5, 40);
    std::vector<float> out(200);
    int got = 0;
    // instants 0, 1/3, ... up to 9 + 2/3 (step rounded up); then the first
    // just past 10 (three steps of 1/3 rounded up) and every 2; then from
    // just past 20 by whole samples
    for (auto [at, len, factor, want] : {std::tuple{0, 10, 3.0, 30}, {10, 10, 0.5, 5}, {20, 20, 1.0, 20}}) {
        ASSERT_EQ(vrxsResamplePolyphase_32f(x.data() + at, len, out.data(), factor, &got, a.st), vrxOk);
        EXPECT_EQ(got, want) << factor;
    }
}

// --------------------------------------------------------------- statuses
TEST(ResampleStatus, SizesAndInit) {
    int size = -3, L = -3;
    struct Bad { int up, down, halfLen; float rollf, beta; };
    const float nan = std::nanf(""), inf = INFINITY;
    const Bad bads[] = {{0, 1, 1, 1, 1},   {1, 0, 1, 1, 1},   {1, 1, 0, 1, 1},    {-2, 1, 1, 1, 1},
                        {1, 1, 1, 0, 1},   {1, 1, 1, -0.5f, 1}, {1, 1, 1, 1.0001f, 1}, {1, 1, 1, nan, 1},
                        {1, 1, 1, 1, -1},  {1, 1, 1, 1, nan}, {1, 1, 1, 1, inf},   {1, 1, 1, 1, 1000.5f},
                        {65536, 65537, 65536, 1, 1}};
    std::vector<uint8_t> mem(4096, 0xA5);
    for (const Bad& b : bads) {
        SCOPED_TRACE(testing::Message() << b.up << " " << b.down << " " << b.halfLen << " " << b.rollf << " " << b.beta);
        const bool sizeBad = b.up < 1 || b.down < 1 || b.halfLen < 1 || b.up > 1000;
        if (sizeBad) {
            EXPECT_EQ(vrxsResamplePolyphaseFixedGetSize_32f(b.up, b.down, b.halfLen, &size, &L), vrxErrBadArg);
            EXPECT_EQ(vrxsResamplePolyphaseGetSize_32f(b.halfLen > 0 ? 1 << 20 : b.halfLen, 1 << 12, &size), vrxErrBadArg);
            EXPECT_TRUE(size == -3 && L == -3);
        }
        VrxsResamplePolyphaseFixedState_32f* fs = nullptr;
        EXPECT_EQ(vrxsResamplePolyphaseFixedInit_32f(b.up, b.down, b.halfLen, b.rollf, b.beta, &fs, mem.data()), vrxErrBadArg);
        VrxsResamplePolyphaseState_32f* as = nullptr;
        EXPECT_EQ(sizeBad && b.halfLen >= 1 ? vrxErrBadArg : vrxsResamplePolyphaseInit_32f(b.halfLen, 1, b.rollf, b.beta, &as, mem.data()),
                  vrxErrBadArg);
        EXPECT_TRUE(fs == nullptr && as == nullptr && mem == std::vector<uint8_t>(4096, 0xA5)) << "written on failure";
    }
    VrxsResamplePolyphaseState_32f* as = nullptr;
    EXPECT_EQ(vrxsResamplePolyphaseInit_32f(1, 0, 1, 1, &as, mem.data()), vrxErrBadArg);
    EXPECT_EQ(vrxsResamplePolyphaseGetSize_32f(1, 0, &size), vrxErrBadArg);
    // pointers come before the values
    EXPECT_EQ(vrxsResamplePolyphaseFixedGetSize_32f(0, 0, 0, nullptr, &L), vrxErrNullPtr);
    VrxsResamplePolyphaseFixedState_32f* fs = nullptr;
    EXPECT_EQ(vrxsResamplePolyphaseFixedInit_32f(0, 0, 0, -1, -1, &fs, nullptr), vrxErrNullPtr);
    EXPECT_EQ(vrxsResamplePolyphaseInit_32f(0, 0, -1, -1, nullptr, mem.data()), vrxErrNullPtr);
    // the largest counts: sizes far past INT_MAX, no overflow on the way
    EXPECT_EQ(vrxsResamplePolyphaseGetSize_32f(2147483647, 2147483647, &size), vrxErrBadArg);
    EXPECT_EQ(vrxsResamplePolyphaseGetSize_32f(1 << 22, 1, &size), vrxErrBadArg);
    EXPECT_EQ(vrxsResamplePolyphaseFixedGetSize_32f(2147483647, 2147483646, 2147483647, &size, &L), vrxErrBadArg);
    // the reported prototype length and a size that the state fits
    EXPECT_EQ(vrxsResamplePolyphaseFixedGetSize_32f(320, 294, 16, &size, &L), vrxOk);
    EXPECT_EQ(L, 2 * 16 * 160 + 1);
}

// After the pointers and the length (the argument sweep's part): the
// identity word (foreign, or the other resampler's), then the factor;
// nothing written on failure.
TEST(ResampleStatus, RunsInOrder) {
    Fixed f(3, 2, 4, 0.9f, 5.0f);
    Arb a(4, 32, 0.9f, 5.0f);
    const std::vector<float> x = noise(1, 16);
    std::vector<float> out(64, -1.0f);
    int got = -2;
    const std::vector<uint8_t> fixedBefore = f.mem, arbBefore = a.mem;
    std::vector<uint8_t> junk(4096, 0x11);
    auto* badF = reinterpret_cast<VrxsResamplePolyphaseFixedState_32f*>(junk.data());
    auto* badA = reinterpret_cast<VrxsResamplePolyphaseState_32f*>(junk.data());
    auto* fAsA = reinterpret_cast<VrxsResamplePolyphaseState_32f*>(f.st);
    struct Row { VrxStatus want, got; };
    const Row fixedRows[] = {
        {vrxErrBadSpec, vrxsResamplePolyphaseFixed_32f(x.data(), 16, out.data(), &got, badF)},
        {vrxErrBadSpec, vrxsResamplePolyphaseFixed_32f(x.data(), 16, out.data(), &got,
                                                       reinterpret_cast<VrxsResamplePolyphaseFixedState_32f*>(a.st))},
        {vrxErrBadSpec, vrxsResamplePolyphaseGetFixedFilter_32f(badF, out.data())},
        {vrxErrBadSpec, vrxsResamplePolyphaseSetFixedFilter_32f(badF, x.data())},
        {vrxErrBadSpec, vrxsResamplePolyphase_32f(x.data(), 16, out.data(), -1.0, &got, badA)},
        {vrxErrBadSpec, vrxsResamplePolyphase_32f(x.data(), 16, out.data(), 1.0, &got, fAsA)},
        // the factor: finite, in [1/64, 65536], and len * factor + 2 within int
        {vrxErrBadArg, vrxsResamplePolyphase_32f(x.data(), 40000, out.data(), 65536.0, &got, a.st)},
    };
    for (const Row& r : fixedRows) EXPECT_EQ(r.got, r.want) << "row " << &r - fixedRows;
    for (double bad : {0.0, -1.0, double(NAN), double(INFINITY), 1.0 / 64.5, 65536.5})
        EXPECT_EQ(vrxsResamplePolyphase_32f(x.data(), 16, out.data(), bad, &got, a.st), vrxErrBadArg) << bad;
    EXPECT_TRUE(got == -2 && out == std::vector<float>(64, -1.0f)) << "written on failure";
    EXPECT_TRUE(f.mem == fixedBefore && a.mem == arbBefore && junk == std::vector<uint8_t>(4096, 0x11));
    // the extreme factors are accepted
    std::vector<float> big(16 * 65536 + 8);
    EXPECT_EQ(vrxsResamplePolyphase_32f(x.data(), 16, big.data(), 65536.0, &got, a.st), vrxOk);
    EXPECT_EQ(got, 16 * 65536);
    EXPECT_EQ(vrxsResamplePolyphase_32f(x.data(), 16, big.data(), 1.0 / 64, &got, a.st), vrxOk);
}

// Init under the caller's odd x87 word (53-bit precision, round up, zero
// divide unmasked) and MXCSR (round toward zero): both come back as they
// were, and the tables are those of the default words.
TEST(ResampleStatus, ControlWordsKept) {
    const std::vector<float> x = noise(4, 200), tRef = Fixed(3, 2, 8, 0.9f, 5.0f).taps(),
                             yRef = Arb(8, 64, 0.9f, 5.0f).run(x, {{200, 1.7}});
    const unsigned short cw = vt::x87Cw(), odd = 0x0A7B;
    vt::MxcsrScope keep;
    _mm_setcsr((_mm_getcsr() & ~0x6000u) | vt::kRoundZero);
    const unsigned mx = _mm_getcsr();
    vt::setX87Cw(odd);
    Fixed f(3, 2, 8, 0.9f, 5.0f);
    Arb a(8, 64, 0.9f, 5.0f);
    const unsigned short after = vt::x87Cw();
    vt::setX87Cw(cw);
    EXPECT_EQ(after, odd);
    EXPECT_EQ(_mm_getcsr() & ~0x3Fu, mx & ~0x3Fu);
    _mm_setcsr(mx & ~0x6000u);
    EXPECT_EQ(f.taps(), tRef);
    EXPECT_EQ(a.run(x, {{200, 1.7}}), yRef);
}

}  // namespace
