// Polyphase resampling: fixed-ratio prototypes and outputs against SciPy
// goldens; both resamplers against long-double models computed here (the
// fixed one from its own taps, the arbitrary one from the continuous
// prototype); random pieces give the bits of one call; Get/SetFixedFilter;
// output counts; the value and identity checks with nothing written; the
// caller's x87 word and MXCSR left alone.
#include <cmath>
#include <vector>

#include "vrx_test.h"
#include "data/resample_golden.h"

namespace {

using vt::noise;

int64_t gcd64(int64_t a, int64_t b) { return b ? gcd64(b, a % b) : a; }

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
            EXPECT_LE(got, (n * U + D - 1) / D);
            EXPECT_EQ(out[size_t(got)], -7.0f) << "written past *pOutLen";
            y.insert(y.end(), out.begin(), out.begin() + got);
            at += size_t(n);
        }
        return y;
    }
};

// upfirdn(h, x, U, D)[n] in long double, with the bound of its rounding.
struct Ref {
    long double y, mag;
};
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

TEST(ResampleFixed, GoldenTapsAndOutputs) {
    const std::vector<float> x(kGoldenRsInput, kGoldenRsInput + 200);
    for (const GoldenRs& g : kGoldenRs) {
        SCOPED_TRACE(testing::Message() << g.up << "/" << g.down << " halfLen " << g.halfLen);
        Fixed f(g.up, g.down, g.halfLen, g.rollf, g.beta);
        ASSERT_EQ(f.filterLen, g.filterLen);
        const std::vector<float> h = f.taps();
        double peak = 0;
        for (int k = 0; k < g.filterLen; ++k) peak = std::fmax(peak, std::fabs(g.taps[k]));
        for (int k = 0; k < g.filterLen; ++k) ASSERT_NEAR(h[size_t(k)], g.taps[k], 2e-7 * peak) << "tap " << k;
        const int64_t c = gcd64(g.up, g.down), U = g.up / c, D = g.down / c;
        const std::vector<float> y = f.run(x, {200}, U, D);
        ASSERT_EQ(int(y.size()), g.outLen);
        for (int n = 0; n < g.outLen; ++n) {
            const Ref r = upfirdnAt(h, x, U, D, n);
            ASSERT_NEAR(y[size_t(n)], g.out[n], 2e-6 * (r.mag + 1e-3)) << "output " << n;
        }
    }
}

// rollf * halfLen is whole in every case: the prototype then ends at zero
// and the phase table interpolates it without a step at the edges.

// Ratios with reductions, pure up and down sampling, one-to-one and long
// prototypes; outputs within float rounding of the long-double model of the
// library's own taps, and pieces equal to one call bit for bit.
TEST(ResampleFixed, ModelAndPieces) {
    struct Case { int up, down, halfLen; float rollf, beta; };
    const Case cases[] = {{1, 1, 3, 0.9f, 4.0f},   {3, 2, 16, 0.9f, 8.0f}, {2, 3, 16, 0.9f, 8.0f},
                          {160, 147, 16, 0.9f, 8.0f}, {7, 1, 5, 1.0f, 2.0f}, {1, 5, 9, 0.8f, 6.0f},
                          {10, 4, 1, 0.5f, 0.0f},  {8, 8, 20, 0.7f, 12.0f}, {1, 1, 40, 0.3f, 3.0f}};
    vt::Rng rng(7);
    for (const Case& c : cases) {
        SCOPED_TRACE(testing::Message() << c.up << "/" << c.down << " halfLen " << c.halfLen);
        const int64_t g = gcd64(c.up, c.down), U = c.up / g, D = c.down / g;
        const int n = 1500;
        const std::vector<float> x = noise(uint64_t(c.up * 1000 + c.down), size_t(n));
        Fixed one(c.up, c.down, c.halfLen, c.rollf, c.beta);
        const std::vector<float> h = one.taps();
        ASSERT_EQ(int(h.size()), 2 * c.halfLen * (U > D ? U : D) + 1);
        const std::vector<float> y = one.run(x, {n}, U, D);
        for (size_t k = 0; k < y.size(); ++k) {
            const Ref r = upfirdnAt(h, x, U, D, int64_t(k));
            ASSERT_NEAR(y[k], double(r.y), 1e-6 * double(r.mag) + 1e-30) << "output " << k;
        }
        for (int most : {1, 7, 40, 333}) {
            Fixed p(c.up, c.down, c.halfLen, c.rollf, c.beta);
            const std::vector<float> yp = p.run(x, randomPieces(rng, n, most), U, D);
            ASSERT_EQ(yp.size(), y.size());
            ASSERT_EQ(memcmp(yp.data(), y.data(), y.size() * sizeof(float)), 0) << "pieces up to " << most;
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
    const std::vector<float> e = {1, 0, 0, 0, 0, 0, 0};
    std::vector<float> out(7);
    int got = 0;
    ASSERT_EQ(vrxsResamplePolyphaseFixed_32f(e.data(), 1, out.data(), &got, g.st), vrxOk);
    const std::vector<float> ramp = {1, 2, 3, 4, 5};
    ASSERT_EQ(vrxsResamplePolyphaseSetFixedFilter_32f(g.st, ramp.data()), vrxOk);
    ASSERT_EQ(vrxsResamplePolyphaseFixed_32f(e.data() + 1, 6, out.data(), &got, g.st), vrxOk);
    ASSERT_EQ(got, 6);
    EXPECT_EQ(out, (std::vector<float>{2, 3, 4, 5, 0, 0, 0}));
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
    std::vector<float> run(const std::vector<float>& x, const std::vector<int>& pieces, double factor) {
        std::vector<float> y;
        size_t at = 0;
        for (int n : pieces) {
            const size_t most = size_t(std::ceil(n * factor)) + 1;
            std::vector<float> out(most + 1, -7.0f);
            int got = -1;
            EXPECT_EQ(vrxsResamplePolyphase_32f(x.data() + at, n, out.data(), factor, &got, st), vrxOk);
            EXPECT_LE(size_t(got), most);
            EXPECT_EQ(out[size_t(got)], -7.0f);
            y.insert(y.end(), out.begin(), out.begin() + got);
            at += size_t(n);
        }
        return y;
    }
};

long double besselI0(long double x) {
    long double t = 1, s = 1;
    for (int k = 1; k < 500 && t > 1e-22L * s; ++k) {
        t *= (x / 2) * (x / 2) / ((long double)k * k);
        s += t;
    }
    return s;
}

// The continuous prototype and the documented output instants.
struct ArbModel {
    int W;
    long double rollf, beta, i0b = besselI0(beta);
    long double p(long double t) const {
        if (fabsl(t) >= W) return 0;
        const long double a = rollf * t, pi = 3.141592653589793238462643383279502884L;
        const long double s = a == 0 ? 1 : sinl(pi * a) / (pi * a);
        const long double u = t / W;
        return rollf * s * besselI0(beta * sqrtl(fmaxl(0, 1 - u * u))) / i0b;
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

TEST(ResampleArbitrary, ModelAndPieces) {
    struct Case { int halfLen, nPhases; float rollf, beta; double factor; double tol; };
    const Case cases[] = {
        {8, 512, 0.875f, 6.0f, 1.5, 2e-5},       {8, 512, 0.875f, 6.0f, 0.5, 2e-5},
        {16, 256, 0.9375f, 8.0f, 3.14159265358979, 6e-5}, {4, 1024, 0.75f, 4.0f, 0.7318, 1e-5},
        {12, 256, 0.75f, 7.0f, 1.0, 4e-5},       {3, 64, 1.0f, 0.0f, 1.0 / 64, 2e-3},
        {2, 2048, 0.5f, 5.0f, 17.25, 1e-5},      {6, 256, 0.5f, 9.0f, 160.0 / 147, 3e-5},
        {4, 256, 0.75f, 4.0f, 0.2, 2e-5},        {5, 128, 0.8f, 6.0f, 0.25, 5e-5},
    };
    vt::Rng rng(3);
    for (const Case& c : cases) {
        SCOPED_TRACE(testing::Message() << "halfLen " << c.halfLen << " phases " << c.nPhases << " factor " << c.factor);
        const int n = c.factor < 0.1 ? 4000 : 700;
        const std::vector<float> x = noise(uint64_t(c.halfLen * 31 + c.nPhases), size_t(n));
        const ArbModel m{c.halfLen, c.rollf, c.beta};
        const std::vector<long double> ref = m.run(x, {{n, c.factor}});
        Arb one(c.halfLen, c.nPhases, c.rollf, c.beta);
        const std::vector<float> y = one.run(x, {n}, c.factor);
        ASSERT_EQ(y.size(), ref.size());
        for (size_t k = 0; k < y.size(); ++k) ASSERT_NEAR(y[k], double(ref[k]), c.tol) << "output " << k;
        for (int most : {1, 13, 250}) {
            Arb p(c.halfLen, c.nPhases, c.rollf, c.beta);
            const std::vector<float> yp = p.run(x, randomPieces(rng, n, most), c.factor);
            ASSERT_EQ(yp.size(), y.size());
            ASSERT_EQ(memcmp(yp.data(), y.data(), y.size() * sizeof(float)), 0) << "pieces up to " << most;
        }
    }
}

// Factors changing from call to call (across the widened-table, widened
// and plain kernels, and back to a factor seen before) against the model.
TEST(ResampleArbitrary, ChangingFactorsMatchModel) {
    const std::vector<std::pair<int, double>> calls = {{300, 0.5},  {200, 1.75}, {250, 0.5}, {400, 0.21},
                                                       {100, 0.5},  {150, 3.0},  {300, 0.3}, {300, 0.3}};
    int n = 0;
    for (const auto& c : calls) n += c.first;
    const std::vector<float> x = noise(77, size_t(n));
    const ArbModel m{8, 0.75f, 6.0f};
    const std::vector<long double> ref = m.run(x, calls);
    Arb a(8, 512, 0.75f, 6.0f);
    std::vector<float> y;
    size_t at = 0;
    for (const auto& [len, factor] : calls) {
        const std::vector<float> part = a.run(std::vector<float>(x.begin() + long(at), x.begin() + long(at) + len), {len}, factor);
        y.insert(y.end(), part.begin(), part.end());
        at += size_t(len);
    }
    ASSERT_EQ(y.size(), ref.size());
    for (size_t k = 0; k < y.size(); ++k) ASSERT_NEAR(y[k], double(ref[k]), 3e-5) << "output " << k;
}

// The instant carries over a change of factor: after n inputs at factor a,
// the next output is the first at or past n on the new grid step.
TEST(ResampleArbitrary, FactorChangeKeepsTime) {
    Arb a(4, 128, 0.9f, 5.0f);
    const std::vector<float> x = noise(5, 40);
    std::vector<float> out(200);
    int got = 0;
    ASSERT_EQ(vrxsResamplePolyphase_32f(x.data(), 10, out.data(), 3.0, &got, a.st), vrxOk);
    EXPECT_EQ(got, 30);   // instants 0, 1/3, ... up to 9 + 2/3 (step rounded up)
    ASSERT_EQ(vrxsResamplePolyphase_32f(x.data() + 10, 10, out.data(), 0.5, &got, a.st), vrxOk);
    EXPECT_EQ(got, 5);    // first instant just past 10 (three steps of 1/3 rounded up), then every 2
    ASSERT_EQ(vrxsResamplePolyphase_32f(x.data() + 20, 20, out.data(), 1.0, &got, a.st), vrxOk);
    EXPECT_EQ(got, 20);   // from just past 20 by whole samples
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
            EXPECT_EQ(size, -3);
            EXPECT_EQ(L, -3);
            EXPECT_EQ(vrxsResamplePolyphaseGetSize_32f(b.halfLen > 0 ? 1 << 20 : b.halfLen, 1 << 12, &size), vrxErrBadArg);
            EXPECT_EQ(size, -3);
        }
        VrxsResamplePolyphaseFixedState_32f* fs = nullptr;
        EXPECT_EQ(vrxsResamplePolyphaseFixedInit_32f(b.up, b.down, b.halfLen, b.rollf, b.beta, &fs, mem.data()), vrxErrBadArg);
        EXPECT_EQ(fs, nullptr);
        VrxsResamplePolyphaseState_32f* as = nullptr;
        if (!sizeBad || b.halfLen < 1) {
            EXPECT_EQ(vrxsResamplePolyphaseInit_32f(b.halfLen, 1, b.rollf, b.beta, &as, mem.data()), vrxErrBadArg);
            EXPECT_EQ(as, nullptr);
        }
        for (uint8_t v : mem) ASSERT_EQ(v, 0xA5);
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

// After the pointers and the length: the identity word (foreign, or the
// other resampler's), then the factor; nothing written on failure.
TEST(ResampleStatus, RunsInOrder) {
    Fixed f(3, 2, 4, 0.9f, 5.0f);
    Arb a(4, 32, 0.9f, 5.0f);
    const std::vector<float> x = noise(1, 16);
    std::vector<float> out(64, -1.0f);
    int got = -2;
    std::vector<uint8_t> fixedBefore = f.mem, arbBefore = a.mem;
    std::vector<uint8_t> junk(4096, 0x11);
    auto* badF = reinterpret_cast<VrxsResamplePolyphaseFixedState_32f*>(junk.data());
    auto* badA = reinterpret_cast<VrxsResamplePolyphaseState_32f*>(junk.data());
    auto* fAsA = reinterpret_cast<VrxsResamplePolyphaseState_32f*>(f.st);
    struct Row { VrxStatus want, got; };
    const Row fixedRows[] = {
        {vrxErrBadLength, vrxsResamplePolyphaseFixed_32f(x.data(), 0, out.data(), &got, badF)},
        {vrxErrBadSpec, vrxsResamplePolyphaseFixed_32f(x.data(), 16, out.data(), &got, badF)},
        {vrxErrBadSpec, vrxsResamplePolyphaseFixed_32f(x.data(), 16, out.data(), &got,
                                                       reinterpret_cast<VrxsResamplePolyphaseFixedState_32f*>(a.st))},
        {vrxErrBadSpec, vrxsResamplePolyphaseGetFixedFilter_32f(badF, out.data())},
        {vrxErrBadSpec, vrxsResamplePolyphaseSetFixedFilter_32f(badF, x.data())},
        {vrxErrBadLength, vrxsResamplePolyphase_32f(x.data(), 0, out.data(), -1.0, &got, badA)},
        {vrxErrBadSpec, vrxsResamplePolyphase_32f(x.data(), 16, out.data(), -1.0, &got, badA)},
        {vrxErrBadSpec, vrxsResamplePolyphase_32f(x.data(), 16, out.data(), 1.0, &got, fAsA)},
        {vrxErrBadArg, vrxsResamplePolyphase_32f(x.data(), 16, out.data(), 0.0, &got, a.st)},
        {vrxErrBadArg, vrxsResamplePolyphase_32f(x.data(), 16, out.data(), -1.0, &got, a.st)},
        {vrxErrBadArg, vrxsResamplePolyphase_32f(x.data(), 16, out.data(), std::nan(""), &got, a.st)},
        {vrxErrBadArg, vrxsResamplePolyphase_32f(x.data(), 16, out.data(), INFINITY, &got, a.st)},
        {vrxErrBadArg, vrxsResamplePolyphase_32f(x.data(), 16, out.data(), 1.0 / 64.5, &got, a.st)},
        {vrxErrBadArg, vrxsResamplePolyphase_32f(x.data(), 16, out.data(), 65536.5, &got, a.st)},
        {vrxErrBadArg, vrxsResamplePolyphase_32f(x.data(), 40000, out.data(), 65536.0, &got, a.st)},
    };
    int i = 0;
    for (const Row& r : fixedRows) EXPECT_EQ(r.got, r.want) << "row " << i++;
    EXPECT_EQ(got, -2);
    for (float v : out) ASSERT_EQ(v, -1.0f);
    EXPECT_EQ(f.mem, fixedBefore);
    EXPECT_EQ(a.mem, arbBefore);
    for (uint8_t v : junk) ASSERT_EQ(v, 0x11);
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
    Fixed ref(3, 2, 8, 0.9f, 5.0f);
    Arb refA(8, 64, 0.9f, 5.0f);
    const std::vector<float> x = noise(4, 200);
    const std::vector<float> yRef = refA.run(x, {200}, 1.7);
    unsigned short cw = 0, odd = 0x0A7B, after = 0;
    __asm__ volatile("fnstcw %0" : "=m"(cw));
    vt::MxcsrScope keep;
    _mm_setcsr((_mm_getcsr() & ~0x6000u) | vt::kRoundZero);
    const unsigned mx = _mm_getcsr();
    __asm__ volatile("fldcw %0" : : "m"(odd));
    Fixed f(3, 2, 8, 0.9f, 5.0f);
    Arb a(8, 64, 0.9f, 5.0f);
    __asm__ volatile("fnstcw %0" : "=m"(after));
    __asm__ volatile("fldcw %0" : : "m"(cw));
    EXPECT_EQ(after, odd);
    EXPECT_EQ(_mm_getcsr() & ~0x3Fu, mx & ~0x3Fu);
    _mm_setcsr(mx & ~0x6000u);
    EXPECT_EQ(f.taps(), ref.taps());
    EXPECT_EQ(a.run(x, {200}, 1.7), yRef);
}

}  // namespace
