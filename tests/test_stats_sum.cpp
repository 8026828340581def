// Sum, Mean, StdDev and MeanStdDev: the Fast paths bit for bit against a
// scalar model of their blocking, the Accurate paths against long-double
// sums within the bound of a double accumulator, and the integer forms
// against exact references with the scale rules written out here.
#include "vrx_test.h"

#include <cmath>
#include <limits>

namespace {

using i128 = __int128;
using vt::Buffer;
using vt::Rng;
using vt::sameBits;
using vt::saturate;

// Values spread over many binades, with large values cancelling across
// lanes, so that the single-precision partial sums lose bits and a change of
// the order of additions shows in the rounded result.
void fillWide(Rng& r, float* p, size_t n) {
    for (size_t i = 0; i < n; ++i)
        p[i] = static_cast<float>((r.uniform() - 0.5) * std::ldexp(1.0, static_cast<int>(r.range(-8, 24))));
    for (size_t i = 0; i + 6 < n; i += 37) {
        p[i] = 0x1p30f;
        p[i + 1 + i % 5] = -0x1p30f;
    }
}

// ------------------------------------------------ model of the Fast paths
// After the head: blocks of 8192 values into K accumulators of eight lanes,
// value i to accumulator (i / 8) mod K, lane i mod 8; the rest in groups of
// 8K, then (K = 4) 16 values into A0 and A1, then 8, 4, 2, 1 into the low
// lanes of A0. Each block is folded (A0 + A2) + (A1 + A3), or A0 + A1, and
// lanes j and j + 4 are widened and added to total j. The squares (fused)
// run beside the values.
struct Totals { double s[4] = {0, 0, 0, 0}, q[4] = {0, 0, 0, 0}; };
template <int K>
void modelBody(const float* p, size_t m, Totals& d) {
    float S[K][8], Q[K][8];
    auto add = [&](size_t a, size_t l, float x) { S[a][l] += x; Q[a][l] = std::fmaf(x, x, Q[a][l]); };
    auto fold = [&](float (*A)[8], double* t) {
        float h[8];
        for (int l = 0; l < 8; ++l) {
            if constexpr (K == 4) h[l] = (A[0][l] + A[2][l]) + (A[1][l] + A[3][l]);
            else h[l] = A[0][l] + A[1][l];
        }
        for (int j = 0; j < 4; ++j) t[j] += double(h[j]) + double(h[j + 4]);
    };
    while (m > 0) {
        const size_t len = std::min<size_t>(m, 8192), g = len / (8 * K) * (8 * K), r = len - g;
        memset(S, 0, sizeof S);
        memset(Q, 0, sizeof Q);
        for (size_t i = 0; i < g; ++i) add((i / 8) % K, i % 8, p[i]);
        size_t i = g;
        if (K == 4 && (r & 16))
            for (size_t l = 0; l < 16; ++l) add(l / 8, l % 8, p[i++]);
        for (size_t piece = 8; piece >= 1; piece /= 2)
            if (r & piece)
                for (size_t l = 0; l < piece; ++l) add(0, l, p[i++]);
        fold(S, d.s);
        fold(Q, d.q);
        p += len;
        m -= len;
    }
}

// The head: the values before the first 32-byte boundary, summed on their own.
size_t head(const void* p, size_t n) {
    size_t h = ((32 - (reinterpret_cast<uintptr_t>(p) & 31)) & 31) / 4;
    return h < n ? h : n;
}

// The Fast sums over cnt scalars: the head summed in single (complex: per
// stream), then the body; complex streams alternate in the totals after the
// head's parity a.
Totals modelSumFast(const float* p, size_t cnt, bool cplx, size_t* a) {
    const size_t h = head(p, cnt);
    float t[2] = {0.0f, 0.0f};
    for (size_t i = 0; i < h; ++i) t[cplx ? i & 1 : 0] += p[i];
    Totals d;
    *a = cplx ? h & 1 : 0;
    d.s[*a] = t[0];
    d.s[1 - *a] = t[1];
    modelBody<4>(p + h, cnt - h, d);
    return d;
}

// The Fast deviation: the head in double, the body in two accumulators.
float modelStdDevFast(const float* p, size_t n) {
    size_t h = head(p, n);
    Totals d;
    for (size_t i = 0; i < h; ++i) { d.s[0] += p[i]; d.q[0] = std::fma(double(p[i]), double(p[i]), d.q[0]); }
    modelBody<2>(p + h, n - h, d);
    double SS = (d.s[0] + d.s[1]) + (d.s[2] + d.s[3]), QQ = (d.q[0] + d.q[1]) + (d.q[2] + d.q[3]), dn = double(n);
    double num = QQ * dn - SS * SS;
    float nf = float(num > 0 ? num : 0.0), df = float(dn * (dn - 1.0));
    return std::sqrt(nf / df);
}

TEST(SumFast, BitExactAgainstBlockingModelAtEveryHeadOffset) {
    Rng rng(1);
    for (size_t n : {1, 2, 7, 8, 9, 15, 16, 17, 31, 32, 33, 63, 100, 8192 - 33, 8192, 8192 + 33, 16384 - 33,
                     16384 + 33, 3 * 8192 + 33}) {
        for (size_t off = 0; off < 8; ++off) {
            Buffer b(2 * n * 4, off * 4);
            float* p = b.as<float>();
            Vrx32fc* pc = reinterpret_cast<Vrx32fc*>(p);
            fillWide(rng, p, 2 * n);
            float s, mean, sd;
            Vrx32fc c, cm;
            size_t a;
            const Totals r = modelSumFast(p, n, false, &a), rc = modelSumFast(p, 2 * n, true, &a);
            const double re = rc.s[a] + rc.s[a + 2], im = rc.s[1 - a] + rc.s[3 - a];
            ASSERT_EQ(vrxsSum_32f(p, int(n), &s, vrxAlgHintFast), vrxOk);
            ASSERT_EQ(vrxsSum_32fc(pc, int(n), &c, vrxAlgHintFast), vrxOk);
            ASSERT_EQ(vrxsMean_32f(p, int(n), &mean, vrxAlgHintFast), vrxOk);
            ASSERT_EQ(vrxsMean_32fc(pc, int(n), &cm, vrxAlgHintFast), vrxOk);
            EXPECT_TRUE(sameBits(s, float((r.s[0] + r.s[1]) + (r.s[2] + r.s[3])))) << "n " << n << " off " << off;
            EXPECT_TRUE(sameBits(c.re, float(re)) && sameBits(c.im, float(im))) << "n " << n << " off " << off;
            // the mean divides the rounded single total; the complex mean the unrounded one
            EXPECT_TRUE(sameBits(mean, float(double(s) / double(n))));
            EXPECT_TRUE(sameBits(cm.re, float(re / double(n))) && sameBits(cm.im, float(im / double(n))));
            if (n >= 2) {
                ASSERT_EQ(vrxsStdDev_32f(p, int(n), &sd, vrxAlgHintFast), vrxOk);
                EXPECT_TRUE(sameBits(sd, modelStdDevFast(p, n))) << "n " << n << " off " << off;
            }
            EXPECT_TRUE(b.guardsIntact());
        }
    }
}

// Long-double references. A double accumulator over n values errs by at
// most about n * 2^-53 * sum |x|; single results add half an ulp.
struct Ref { long double s = 0, q = 0, abs = 0; };
Ref refOf(const float* p, size_t n, size_t stride = 1) {
    Ref r;
    for (size_t i = 0; i < n; ++i) {
        long double x = p[i * stride];
        r.s += x; r.q += x * x; r.abs += fabsl(x);
    }
    return r;
}

TEST(SumAccurate, WithinDoubleBoundsAndHintsZeroAndTwoAgree) {
    Rng rng(2);
    for (size_t n : {1, 5, 16, 17, 1000, 8192 + 33, 100000}) {
        for (size_t byteOff : {0, 4, 2, 1}) {
            Buffer b(2 * n * 4, byteOff);
            float* p = b.as<float>();
            fillWide(rng, p, 2 * n);
            const Ref r = refOf(p, n);
            const long double tol = n * 0x1p-52L * r.abs + fabsl(r.s) * 0x1p-24L;
            float s0, s2, sf;
            ASSERT_EQ(vrxsSum_32f(p, int(n), &s0, 0), vrxOk);
            ASSERT_EQ(vrxsSum_32f(p, int(n), &s2, 2), vrxOk);
            ASSERT_EQ(vrxsSum_32f(p, int(n), &sf, vrxAlgHintFast), vrxOk);
            EXPECT_TRUE(sameBits(s0, s2));
            EXPECT_LE(fabsl(s0 - r.s), tol) << n;
            // off a 4-byte boundary the Fast hint sums in double; else within the single block bound
            EXPECT_TRUE(byteOff % 4 == 0 || sameBits(sf, s0)) << n;
            EXPECT_LE(fabsl(sf - r.s), 8192 * 0x1p-23L * r.abs + tol);
            if (n >= 2) {
                float sd0, sd2, m1, d1, m2, d2;
                ASSERT_EQ(vrxsStdDev_32f(p, int(n), &sd0, 0), vrxOk);
                ASSERT_EQ(vrxsStdDev_32f(p, int(n), &sd2, 2), vrxOk);
                ASSERT_EQ(vrxsMeanStdDev_32f(p, int(n), &m1, &d1, vrxAlgHintFast), vrxOk);
                ASSERT_EQ(vrxsMeanStdDev_32f(p, int(n), &m2, &d2, 7), vrxOk);
                EXPECT_TRUE(sameBits(sd0, sd2));
                EXPECT_TRUE(sameBits(m1, m2) && sameBits(d1, d2)) << "MeanStdDev ignores the hint";
                const long double nn = (long double)n * (n - 1), ref = sqrtl((r.q * n - r.s * r.s) / nn);
                // numerator error of Q n - S S relative to its terms, then single rounding
                const long double err = (n * 0x1p-51L * (r.q * n + r.abs * r.abs)) / nn / (2 * ref) + ref * 0x1p-21L;
                EXPECT_LE(fabsl(sd0 - ref), err) << n;
                EXPECT_LE(fabsl(d1 - ref), err);
                EXPECT_LE(fabsl(m1 - r.s / n), tol / n);
            }
            Vrx32fc c0, c2;
            ASSERT_EQ(vrxsSum_32fc(reinterpret_cast<Vrx32fc*>(p), int(n), &c0, 0), vrxOk);
            ASSERT_EQ(vrxsSum_32fc(reinterpret_cast<Vrx32fc*>(p), int(n), &c2, 2), vrxOk);
            EXPECT_TRUE(sameBits(c0, c2));
            const Ref rr = refOf(p, n, 2), ri = refOf(p + 1, n, 2);
            EXPECT_LE(fabsl(c0.re - rr.s), n * 0x1p-52L * rr.abs + fabsl(rr.s) * 0x1p-24L);
            EXPECT_LE(fabsl(c0.im - ri.s), n * 0x1p-52L * ri.abs + fabsl(ri.s) * 0x1p-24L);
        }
    }
}

TEST(SumDouble, SumsMeansAndDeviationsAgainstLongDouble) {
    Rng rng(3);
    for (size_t n : {2, 3, 9, 1001, 65537}) {
        std::vector<double> v(2 * n);
        for (auto& x : v) x = (rng.uniform() - 0.3) * std::ldexp(1.0, int(rng.range(-20, 20)));
        long double s = 0, a = 0, q = 0, sr = 0, si = 0;
        for (size_t i = 0; i < n; ++i) {
            s += v[i]; a += fabsl(v[i]); q += (long double)v[i] * v[i];
            sr += v[2 * i]; si += v[2 * i + 1];
        }
        const long double tol = n * 0x1p-51L * a, nn = (long double)n * (n - 1), ref = sqrtl((q * n - s * s) / nn);
        double r, m, sd, m2, sd2;
        Vrx64fc c, cm;
        const Vrx64fc* pc = reinterpret_cast<const Vrx64fc*>(v.data());
        ASSERT_EQ(vrxsSum_64f(v.data(), int(n), &r), vrxOk);
        ASSERT_EQ(vrxsMean_64f(v.data(), int(n), &m), vrxOk);
        ASSERT_EQ(vrxsStdDev_64f(v.data(), int(n), &sd), vrxOk);
        ASSERT_EQ(vrxsMeanStdDev_64f(v.data(), int(n), &m2, &sd2), vrxOk);
        ASSERT_EQ(vrxsSum_64fc(pc, int(n), &c), vrxOk);
        ASSERT_EQ(vrxsMean_64fc(pc, int(n), &cm), vrxOk);
        EXPECT_LE(fabsl(r - s), tol);
        EXPECT_TRUE(sameBits(m, r / double(n)));
        EXPECT_TRUE(sameBits(sd, sd2) && sameBits(m, m2));
        EXPECT_LE(fabsl(sd - ref), (n * 0x1p-50L * (q * n + a * a)) / nn / (2 * ref) + ref * 0x1p-50L);
        EXPECT_LE(fabsl(c.re - sr), tol);
        EXPECT_LE(fabsl(c.im - si), tol);
        // the complex mean multiplies by the reciprocal; the real one divides
        EXPECT_TRUE(sameBits(cm.re, c.re * (1.0 / double(n))) && sameBits(cm.im, c.im * (1.0 / double(n))));
    }
}

TEST(StdDev, NanAndConstantDataGiveZero) {
    // 0.75 * 100: every partial sum and square is exact, so Q n - S S is 0
    std::vector<float> v(100, 0.75f);
    for (VrxAlgHint h : {0, 1}) {
        float sd = -1, sdNan = -1, m, d = -1;
        v[37] = 0.75f;
        ASSERT_EQ(vrxsStdDev_32f(v.data(), 100, &sd, h), vrxOk);
        v[37] = NAN;
        ASSERT_EQ(vrxsStdDev_32f(v.data(), 100, &sdNan, h), vrxOk);
        ASSERT_EQ(vrxsMeanStdDev_32f(v.data(), 100, &m, &d, h), vrxOk);
        EXPECT_TRUE(sd == 0.0f && sdNan == 0.0f && d == 0.0f && std::isnan(m)) << h;
    }
    // three equal doubles: S and Q do not depend on the order of addition,
    // so the numerator Q n - S S is known; one that rounds negative gives 0
    double x = 0.1;
    for (; x < 10; x += 0.0137) {
        volatile double s = (x + x) + x, sq = x * x, q = (sq + sq) + sq;
        if (q * 3.0 - s * s < 0) break;
    }
    ASSERT_LT(x, 10);
    const double w[3] = {x, x, x}, u[3] = {1.0, NAN, 2.0};
    double sd = -1, sd2 = -1, sd3 = -1, m;
    ASSERT_EQ(vrxsStdDev_64f(w, 3, &sd), vrxOk);
    ASSERT_EQ(vrxsMeanStdDev_64f(w, 3, &m, &sd2), vrxOk);
    ASSERT_EQ(vrxsStdDev_64f(u, 3, &sd3), vrxOk);
    EXPECT_TRUE(sd == 0.0 && sd2 == 0.0 && sd3 == 0.0);
}

// ------------------------------------------------------ 16-bit scaling
// v rounded ties to even and bounded to 32 bits (for the sf range of these
// tables the double scaling of the exact total is exact).
int32_t ref16(long double v) {
    v = nearbyintl(v);
    return v > 2147483647.0L ? INT32_MAX : (v < -2147483648.0L ? INT32_MIN : int32_t(v));
}

TEST(Sum16s, ScaleTablesAgainstExactTotals) {
    const int64_t totals[] = {0, 1, -1, 2, 3, -3, 5, -5, 6, 7, 1 << 20, -(1 << 20) - 1, 2147483647LL, 2147483648LL,
                              -2147483648LL, -2147483649LL, 65536LL * 32767, 65537LL * -32768, 12345678901LL};
    for (int64_t t : totals) {
        // a vector with the exact total t (runs of the extremes and a fix-up);
        // its complex form has -x / 2 in the imaginary parts
        std::vector<int16_t> v;
        for (int64_t rest = t; rest != 0 || v.size() < 3; rest -= v.back())
            v.push_back(int16_t(std::clamp<int64_t>(rest, -32768, 32767)));
        const int n = int(v.size());
        std::vector<int16_t> cv(2 * v.size());
        int64_t tim = 0;
        for (size_t i = 0; i < v.size(); ++i) { cv[2 * i] = v[i]; tim += cv[2 * i + 1] = int16_t(-v[i] / 2); }
        const Vrx16sc* pc = reinterpret_cast<const Vrx16sc*>(cv.data());
        for (int sf = -70; sf <= 100; ++sf) {
            const long double sc = ldexpl(1.0L, -sf);
            int32_t r32;
            int16_t r16, m16;
            Vrx32sc c32;
            Vrx16sc c16, mc;
            ASSERT_EQ(vrxsSum_16s32s_Sfs(v.data(), n, &r32, sf), vrxOk);
            ASSERT_EQ(vrxsSum_16s_Sfs(v.data(), n, &r16, sf), vrxOk);
            ASSERT_EQ(vrxsSum_16sc32sc_Sfs(pc, n, &c32, sf), vrxOk);
            ASSERT_EQ(vrxsSum_16sc_Sfs(pc, n, &c16, sf), vrxOk);
            ASSERT_EQ(vrxsMean_16s_Sfs(v.data(), n, &m16, sf), vrxOk);
            ASSERT_EQ(vrxsMean_16sc_Sfs(pc, n, &mc, sf), vrxOk);
            EXPECT_EQ(r32, ref16(t * sc)) << t << " sf " << sf;
            EXPECT_EQ(r16, saturate<int16_t>(ref16(t * sc))) << t << " sf " << sf;
            EXPECT_TRUE(c32.re == ref16(t * sc) && c32.im == ref16(tim * sc)) << t << " sf " << sf;
            EXPECT_TRUE(c16.re == saturate<int16_t>(ref16(t * sc)) && c16.im == saturate<int16_t>(ref16(tim * sc)));
            // Mean_16s divides then scales; Mean_16sc scales then divides
            EXPECT_EQ(m16, saturate<int16_t>(ref16((double(t) / n) * double(sc)))) << t << " sf " << sf;
            EXPECT_EQ(mc.re, saturate<int16_t>(ref16((double(t) * double(sc)) / n)));
            EXPECT_EQ(mc.im, saturate<int16_t>(ref16((double(tim) * double(sc)) / n)));
        }
    }
    // 70000 elements of 32767 saturate at sf 0 and 16; the multiplier's
    // exponent field saturates: sf 1023 gives 0, sf -1024 the bound
    std::vector<int16_t> big(70000, 32767);
    int16_t r, r2;
    int32_t z, z2;
    ASSERT_EQ(vrxsSum_16s_Sfs(big.data(), 70000, &r, 0), vrxOk);
    ASSERT_EQ(vrxsSum_16s_Sfs(big.data(), 70000, &r2, 16), vrxOk);
    ASSERT_EQ(vrxsSum_16s32s_Sfs(big.data(), 70000, &z, 1023), vrxOk);
    ASSERT_EQ(vrxsSum_16s32s_Sfs(big.data(), 1, &z2, -1024), vrxOk);
    EXPECT_TRUE(r == 32767 && r2 == 32767 && z == 0 && z2 == INT32_MAX);
}

// (1 + 2) / 2 and its negation in each rounding mode; MXCSR is kept.
TEST(Sum16s, ConvertsInTheCallersRoundingModeAndKeepsIt) {
    const int16_t v3[] = {1, 2}, vm3[] = {-1, -2};
    for (auto [mode, pos, neg] : {std::tuple{vt::kRoundNear, 2, -2}, {vt::kRoundDown, 1, -2}, {vt::kRoundUp, 2, -1},
                                  {vt::kRoundZero, 1, -1}}) {
        vt::MxcsrScope scope;
        const unsigned before = (_mm_getcsr() & ~0x6000u) | mode;
        _mm_setcsr(before);
        int32_t p, q;
        ASSERT_EQ(vrxsSum_16s32s_Sfs(v3, 2, &p, 1), vrxOk);
        ASSERT_EQ(vrxsSum_16s32s_Sfs(vm3, 2, &q, 1), vrxOk);
        EXPECT_EQ(_mm_getcsr() & 0xFFC0u, before & 0xFFC0u);
        EXPECT_TRUE(p == pos && q == neg) << mode;
    }
}

// ------------------------------------------------------------ 32s sums
// |S| / n rounded ties to even.
i128 rdiv(i128 a, i128 n) {
    i128 q = a / n, r = a % n;
    return (2 * r > n || (2 * r == n && (q & 1))) ? q + 1 : q;
}
// The mean: |S| / n rounded, then for sf > 0 the deliberate (q + b) >> sf
// with b the last bit shifted out (a mean of 6 at sf 2 gives 1, of 7 gives 2);
// for sf < 0 the shift comes first when S fits in 32 bits.
int32_t refMean32s(i128 S, i128 n, int sf) {
    i128 a = S < 0 ? -S : S;
    int sg = S < 0 ? -1 : 1;
    if (sf >= 0) {
        i128 q = rdiv(a, n);
        if (sf > 0) q = sf > 100 ? 0 : (q + ((q >> (sf - 1)) & 1)) >> sf;
        return int32_t(uint32_t(uint64_t(sg * q)));
    }
    if (sf > -32) {
        bool fits = S >= INT32_MIN && S <= INT32_MAX;
        i128 v = fits ? rdiv(a << -sf, n) : rdiv(a, n) << -sf;
        return saturate<int32_t>(sg * v);
    }
    i128 q = rdiv(a, n);
    return q == 0 ? 0 : (sg > 0 ? INT32_MAX : INT32_MIN);
}

TEST(Sum32s, ScaleAndMeanTablesAgainstExactReferences) {
    Rng rng(5);
    std::vector<std::vector<int32_t>> cases = {
        {3}, {5}, {-3}, {0, 0, 0}, {1}, {-1}, {6, 6, 6, 6}, {7, 7, 7}, {1, 2, 2, 1}, {1, 1, 0, 0}, {2, 3},
        {INT32_MAX, INT32_MAX, INT32_MAX}, {INT32_MIN, INT32_MIN}, {INT32_MIN, -1}, {1 << 30, 1 << 30},
        {INT32_MIN, INT32_MIN, INT32_MIN, 5}, std::vector<int32_t>(1001)};
    for (auto& x : cases.back()) x = int32_t(rng.next());
    auto check = [](const int32_t* p, int n, i128 S, int sf) {
        int32_t s, m;
        ASSERT_EQ(vrxsSum_32s_Sfs(p, n, &s, sf), vrxOk);
        ASSERT_EQ(vrxsMean_32s_Sfs(p, n, &m, sf), vrxOk);
        EXPECT_EQ(s, vt::scaled<int32_t>(S, sf)) << int64_t(S) << " n " << n << " sf " << sf;
        EXPECT_EQ(m, refMean32s(S, n, sf)) << int64_t(S) << " n " << n << " sf " << sf;
    };
    for (auto& v : cases) {
        i128 S = 0;
        for (int32_t x : v) S += x;
        for (int sf = -70; sf <= 100; ++sf) check(v.data(), int(v.size()), S, sf);
    }
    // constant extremes over lengths at and past the lane folds: the sum stays exact
    std::vector<int32_t> big(4194240);
    for (int32_t c : {INT32_MIN, INT32_MAX}) {
        std::fill(big.begin(), big.end(), c);
        for (int n : {2097119, 2097120, 2097121, 4194240})
            for (int sf : {0, 21, 22, 23, 40}) check(big.data(), n, i128(c) * n, sf);
    }
}

// --------------------------------------------------- 16-bit deviation
TEST(StdDev16s, ExactSumsThenTheDoubleFormula) {
    Rng rng(6);
    std::vector<std::vector<int16_t>> cases = {std::vector<int16_t>(70001, -32768), {-32768, 32767}, {1, 2, 3, 4},
                                               std::vector<int16_t>(5, 7), std::vector<int16_t>(100003)};
    for (auto& x : cases.back()) x = int16_t(rng.next());
    for (auto& v : cases) {
        i128 S = 0, Q = 0;
        for (int16_t x : v) { S += x; Q += int64_t(x) * x; }
        const int n = int(v.size());
        const double s = double(S), q = double(Q), dn = n;
        const double dev = std::sqrt(std::max(q * dn - s * s, 0.0) / (dn * (dn - 1.0)));
        for (int sf : {-40, -16, -1, 0, 1, 2, 5, 16, 40}) {
            const double mul = std::ldexp(1.0, -sf);
            const int32_t rd = int32_t(std::nearbyint(std::min(dev * mul, 2147483647.0)));
            const int32_t rm = int32_t(std::nearbyint(std::clamp((s / dn) * mul, -2147483648.0, 2147483647.0)));
            int32_t d32, m32, e32;
            int16_t d16, m16, e16;
            ASSERT_EQ(vrxsStdDev_16s32s_Sfs(v.data(), n, &d32, sf), vrxOk);
            ASSERT_EQ(vrxsStdDev_16s_Sfs(v.data(), n, &d16, sf), vrxOk);
            ASSERT_EQ(vrxsMeanStdDev_16s32s_Sfs(v.data(), n, &m32, &e32, sf), vrxOk);
            ASSERT_EQ(vrxsMeanStdDev_16s_Sfs(v.data(), n, &m16, &e16, sf), vrxOk);
            EXPECT_TRUE(d32 == rd && e32 == rd && m32 == rm) << n << " sf " << sf;
            EXPECT_TRUE(d16 == saturate<int16_t>(rd) && e16 == d16 && m16 == saturate<int16_t>(rm)) << n << " sf " << sf;
        }
    }
}

// The deviations need two values: one is a bad length, like zero, and
// nothing is written.
TEST(SumStatuses, DeviationOfOneValueIsABadLength) {
    const float f[1] = {1};
    const double d[1] = {1};
    const int16_t h[1] = {1};
    float o[2] = {5, 5};
    double od[2] = {5, 5};
    int16_t oh[2] = {5, 5};
    int32_t ow[2] = {5, 5};
    for (VrxStatus st : {vrxsStdDev_32f(f, 1, o, 0), vrxsStdDev_64f(d, 1, od), vrxsStdDev_16s_Sfs(h, 1, oh, 0),
                         vrxsStdDev_16s32s_Sfs(h, 1, ow, 0), vrxsMeanStdDev_32f(f, 1, o, o + 1, 0),
                         vrxsMeanStdDev_64f(d, 1, od, od + 1), vrxsMeanStdDev_16s_Sfs(h, 1, oh, oh + 1, 0),
                         vrxsMeanStdDev_16s32s_Sfs(h, 1, ow, ow + 1, 0)})
        EXPECT_EQ(st, vrxErrBadLength);
    EXPECT_EQ(o[0] + o[1] + od[0] + od[1] + oh[0] + oh[1] + ow[0] + ow[1], 40);
}

}  // namespace
