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

// ---------------------------------------------------------------- data
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

// ------------------------------------------------ model of the Fast path
// The body after the head: blocks of 8192 values into four accumulators of
// eight lanes, value i to accumulator (i / 8) mod 4, lane i mod 8; the rest
// in groups of 32, then 16 values into A0 and A1, 8, 4, 2, 1 into the low
// lanes of A0; each folded (A0 + A2) + (A1 + A3), lanes j and j + 4 widened
// and added to total j.
void modelBody(const float* p, size_t m, double d[4]) {
    float A[4][8];
    auto zero = [&] { for (auto& a : A) for (float& x : a) x = 0.0f; };
    auto fold = [&] {
        float h[8];
        for (int l = 0; l < 8; ++l) h[l] = (A[0][l] + A[2][l]) + (A[1][l] + A[3][l]);
        for (int j = 0; j < 4; ++j) d[j] += static_cast<double>(h[j]) + static_cast<double>(h[j + 4]);
    };
    for (; m >= 8192; m -= 8192, p += 8192) {
        zero();
        for (size_t i = 0; i < 8192; ++i) A[(i / 8) % 4][i % 8] += p[i];
        fold();
    }
    if (m == 0) return;
    zero();
    size_t g = m / 32 * 32;
    for (size_t i = 0; i < g; ++i) A[(i / 8) % 4][i % 8] += p[i];
    p += g;
    size_t r = m - g;
    if (r & 16) {
        for (int l = 0; l < 8; ++l) { A[0][l] += p[l]; A[1][l] += p[8 + l]; }
        p += 16;
    }
    for (size_t piece = 8; piece >= 1; piece /= 2)
        if (r & piece) {
            for (size_t l = 0; l < piece; ++l) A[0][l] += p[l];
            p += piece;
        }
    fold();
}

size_t head(const void* p, size_t n) {
    size_t h = ((32 - (reinterpret_cast<uintptr_t>(p) & 31)) & 31) / 4;
    return h < n ? h : n;
}

float modelSum32f(const float* p, size_t n) {
    size_t h = head(p, n);
    float t = 0.0f;
    for (size_t i = 0; i < h; ++i) t += p[i];
    double d[4] = {t, 0, 0, 0};
    modelBody(p + h, n - h, d);
    return static_cast<float>((d[0] + d[1]) + (d[2] + d[3]));
}

void modelSum32fc(const float* p, size_t n, double* re, double* im) {
    size_t cnt = 2 * n, h = head(p, cnt), a = h & 1;
    float t[2] = {0.0f, 0.0f};
    for (size_t i = 0; i < h; ++i) t[i & 1] += p[i];
    double d[4] = {0, 0, 0, 0};
    d[a] = t[0];
    d[1 - a] = t[1];
    modelBody(p + h, cnt - h, d);
    *re = d[a] + d[a + 2];
    *im = d[1 - a] + d[3 - a];
}

// The Fast deviation: the head to 32 bytes in double; blocks of 8192 in two
// accumulators of eight lanes for S and for Q (fused), value i to
// accumulator (i / 8) mod 2; the rest in 16s, then 8, 4, 2, 1 into the low
// lanes of accumulator 0; folded A0 + A1, lanes j and j + 4 into total j.
float modelStdDevFast(const float* p, size_t n) {
    size_t h = head(p, n);
    double s = 0, q = 0;
    for (size_t i = 0; i < h; ++i) { s += p[i]; q = std::fma(double(p[i]), double(p[i]), q); }
    double dS[4] = {s, 0, 0, 0}, dQ[4] = {q, 0, 0, 0};
    float S[2][8], Q[2][8];
    auto zero = [&] { for (int k = 0; k < 2; ++k) for (int l = 0; l < 8; ++l) S[k][l] = Q[k][l] = 0.0f; };
    auto add = [&](int k, int l, float x) { S[k][l] += x; Q[k][l] = std::fmaf(x, x, Q[k][l]); };
    auto fold = [&] {
        for (int j = 0; j < 4; ++j) {
            dS[j] += double(S[0][j] + S[1][j]) + double(S[0][j + 4] + S[1][j + 4]);
            dQ[j] += double(Q[0][j] + Q[1][j]) + double(Q[0][j + 4] + Q[1][j + 4]);
        }
    };
    const float* b = p + h;
    size_t m = n - h;
    for (; m >= 8192; m -= 8192, b += 8192) {
        zero();
        for (size_t i = 0; i < 8192; ++i) add((i / 8) % 2, i % 8, b[i]);
        fold();
    }
    if (m) {
        zero();
        size_t g = m / 16 * 16;
        for (size_t i = 0; i < g; ++i) add((i / 8) % 2, i % 8, b[i]);
        b += g;
        for (size_t piece = 8; piece >= 1; piece /= 2)
            if ((m - g) & piece) {
                for (size_t l = 0; l < piece; ++l) add(0, int(l), b[l]);
                b += piece;
            }
        fold();
    }
    double SS = (dS[0] + dS[1]) + (dS[2] + dS[3]), QQ = (dQ[0] + dQ[1]) + (dQ[2] + dQ[3]), dn = double(n);
    double num = QQ * dn - SS * SS;
    float nf = float(num > 0 ? num : 0.0), df = float(dn * (dn - 1.0));
    return std::sqrt(nf / df);
}

const size_t kFastLengths[] = {1, 2, 7, 8, 9, 15, 16, 17, 31, 32, 33, 63, 100, 8192 - 33, 8192, 8192 + 33,
                               16384 - 33, 16384 + 33, 3 * 8192 + 33};

bool same(float a, float b) { return memcmp(&a, &b, 4) == 0; }
bool same(double a, double b) { return memcmp(&a, &b, 8) == 0; }

TEST(SumFast, BitExactAgainstBlockingModelAtEveryHeadOffset) {
    Rng rng(1);
    for (size_t n : kFastLengths) {
        for (size_t off = 0; off < 8; ++off) {
            Buffer b(2 * n * 4, off * 4);
            float* p = b.as<float>();
            fillWide(rng, p, 2 * n);
            float s;
            ASSERT_EQ(vrxsSum_32f(p, int(n), &s, vrxAlgHintFast), vrxOk);
            EXPECT_TRUE(same(s, modelSum32f(p, n))) << "n " << n << " off " << off;
            Vrx32fc c;
            double re, im;
            ASSERT_EQ(vrxsSum_32fc(reinterpret_cast<Vrx32fc*>(p), int(n), &c, vrxAlgHintFast), vrxOk);
            modelSum32fc(p, n, &re, &im);
            EXPECT_TRUE(same(c.re, float(re)) && same(c.im, float(im))) << "n " << n << " off " << off;
            // the mean divides the rounded single total; the complex mean the unrounded one
            float mean;
            ASSERT_EQ(vrxsMean_32f(p, int(n), &mean, vrxAlgHintFast), vrxOk);
            EXPECT_TRUE(same(mean, float(double(s) / double(n))));
            Vrx32fc cm;
            ASSERT_EQ(vrxsMean_32fc(reinterpret_cast<Vrx32fc*>(p), int(n), &cm, vrxAlgHintFast), vrxOk);
            EXPECT_TRUE(same(cm.re, float(re / double(n))) && same(cm.im, float(im / double(n))));
            if (n >= 2) {
                float sd;
                ASSERT_EQ(vrxsStdDev_32f(p, int(n), &sd, vrxAlgHintFast), vrxOk);
                EXPECT_TRUE(same(sd, modelStdDevFast(p, n))) << "n " << n << " off " << off;
            }
            EXPECT_TRUE(b.guardsIntact());
        }
    }
}

// Long-double references. A double accumulator over n values errs by at
// most about n * 2^-53 * sum |x|; single results add half an ulp.
struct Ref { long double s, q, abs, absq; };
Ref refOf(const float* p, size_t n, size_t stride = 1) {
    Ref r{0, 0, 0, 0};
    for (size_t i = 0; i < n; ++i) {
        long double x = p[i * stride];
        r.s += x; r.q += x * x; r.abs += fabsl(x); r.absq += x * x;
    }
    return r;
}

TEST(SumAccurate, WithinDoubleBoundsAndHintsZeroAndTwoAgree) {
    Rng rng(2);
    for (size_t n : {1, 5, 16, 17, 1000, 8192 + 33, 100000}) {
        for (size_t byteOff : {0, 4, 2, 1}) {
            Buffer b(2 * n * 4, byteOff);
            float* p = b.as<float>();
            std::vector<float> v(2 * n);
            fillWide(rng, v.data(), 2 * n);
            memcpy(p, v.data(), 2 * n * 4);
            Ref r = refOf(p, n);
            const long double tol = n * 0x1p-52L * r.abs;
            float s0, s2, sf;
            ASSERT_EQ(vrxsSum_32f(p, int(n), &s0, 0), vrxOk);
            ASSERT_EQ(vrxsSum_32f(p, int(n), &s2, 2), vrxOk);
            ASSERT_EQ(vrxsSum_32f(p, int(n), &sf, vrxAlgHintFast), vrxOk);
            EXPECT_TRUE(same(s0, s2));
            EXPECT_LE(fabsl(s0 - r.s), tol + fabsl(r.s) * 0x1p-24L) << n;
            if (byteOff & 3) {
                EXPECT_TRUE(same(sf, s0)) << "off a 4-byte boundary the Fast hint sums in double";
            }
            // the Fast path stays within the single-precision block bound
            EXPECT_LE(fabsl(sf - r.s), 8192 * 0x1p-23L * r.abs + tol + fabsl(r.s) * 0x1p-24L);
            float sd0, sd2;
            if (n >= 2) {
                ASSERT_EQ(vrxsStdDev_32f(p, int(n), &sd0, 0), vrxOk);
                ASSERT_EQ(vrxsStdDev_32f(p, int(n), &sd2, 2), vrxOk);
                EXPECT_TRUE(same(sd0, sd2));
                long double ref = sqrtl((r.q * n - r.s * r.s) / ((long double)n * (n - 1)));
                long double num = r.q * n;
                // numerator error of Q n - S S relative to its terms, then single rounding
                long double err = (n * 0x1p-51L * (num + r.abs * r.abs)) / ((long double)n * (n - 1)) / (2 * ref) + ref * 0x1p-21L;
                EXPECT_LE(fabsl(sd0 - ref), err) << n;
                float m1, d1, m2, d2;
                ASSERT_EQ(vrxsMeanStdDev_32f(p, int(n), &m1, &d1, vrxAlgHintFast), vrxOk);
                ASSERT_EQ(vrxsMeanStdDev_32f(p, int(n), &m2, &d2, 7), vrxOk);
                EXPECT_TRUE(same(m1, m2) && same(d1, d2)) << "MeanStdDev ignores the hint";
                EXPECT_LE(fabsl(d1 - ref), err);
                EXPECT_LE(fabsl(m1 - r.s / n), (tol / n) + fabsl(r.s / n) * 0x1p-24L);
            }
            Vrx32fc c0, c2;
            ASSERT_EQ(vrxsSum_32fc(reinterpret_cast<Vrx32fc*>(p), int(n), &c0, 0), vrxOk);
            ASSERT_EQ(vrxsSum_32fc(reinterpret_cast<Vrx32fc*>(p), int(n), &c2, 2), vrxOk);
            EXPECT_TRUE(same(c0.re, c2.re) && same(c0.im, c2.im));
            Ref rr = refOf(p, n, 2), ri = refOf(p + 1, n, 2);
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
        for (size_t i = 0; i < n; ++i) { s += v[i]; a += fabsl(v[i]); q += (long double)v[i] * v[i]; }
        for (size_t i = 0; i < n; ++i) { sr += v[2 * i]; si += v[2 * i + 1]; }
        const long double tol = n * 0x1p-51L * a;
        double r, m, sd, m2, sd2;
        ASSERT_EQ(vrxsSum_64f(v.data(), int(n), &r), vrxOk);
        EXPECT_LE(fabsl(r - s), tol);
        ASSERT_EQ(vrxsMean_64f(v.data(), int(n), &m), vrxOk);
        EXPECT_TRUE(same(m, r / double(n)));
        ASSERT_EQ(vrxsStdDev_64f(v.data(), int(n), &sd), vrxOk);
        ASSERT_EQ(vrxsMeanStdDev_64f(v.data(), int(n), &m2, &sd2), vrxOk);
        EXPECT_TRUE(same(sd, sd2) && same(m, m2));
        long double ref = sqrtl((q * n - s * s) / ((long double)n * (n - 1)));
        EXPECT_LE(fabsl(sd - ref), (n * 0x1p-50L * (q * n + a * a)) / ((long double)n * (n - 1)) / (2 * ref) + ref * 0x1p-50L);
        Vrx64fc c, cm;
        ASSERT_EQ(vrxsSum_64fc(reinterpret_cast<Vrx64fc*>(v.data()), int(n), &c), vrxOk);
        EXPECT_LE(fabsl(c.re - sr), tol);
        EXPECT_LE(fabsl(c.im - si), tol);
        // the complex mean multiplies by the reciprocal; the real one divides
        ASSERT_EQ(vrxsMean_64fc(reinterpret_cast<Vrx64fc*>(v.data()), int(n), &cm), vrxOk);
        EXPECT_TRUE(same(cm.re, c.re * (1.0 / double(n))) && same(cm.im, c.im * (1.0 / double(n))));
    }
}

TEST(StdDev, NanGivesZeroAndConstantDataGivesZero) {
    for (VrxAlgHint h : {0, 1}) {
        // 0.75 * 100: every partial sum and square is exact, so Q n - S S is 0
        std::vector<float> v(100, 0.75f);
        float sd = -1, m, d = -1;
        ASSERT_EQ(vrxsStdDev_32f(v.data(), 100, &sd, h), vrxOk);
        EXPECT_EQ(sd, 0.0f);
        v[37] = std::numeric_limits<float>::quiet_NaN();
        ASSERT_EQ(vrxsStdDev_32f(v.data(), 100, &sd, h), vrxOk);
        EXPECT_EQ(sd, 0.0f);
        ASSERT_EQ(vrxsMeanStdDev_32f(v.data(), 100, &m, &d, h), vrxOk);
        EXPECT_EQ(d, 0.0f);
        EXPECT_TRUE(std::isnan(m));
    }
    // three equal doubles: S and Q do not depend on the order of addition,
    // so the numerator Q n - S S is known; one that rounds negative gives 0
    double x = 0.1;
    for (; x < 10; x += 0.0137) {
        volatile double s = (x + x) + x, sq = x * x, q = (sq + sq) + sq;
        if (q * 3.0 - s * s < 0) break;
    }
    ASSERT_LT(x, 10);
    const double w[3] = {x, x, x};
    double sd = -1, m;
    ASSERT_EQ(vrxsStdDev_64f(w, 3, &sd), vrxOk);
    EXPECT_EQ(sd, 0.0);
    ASSERT_EQ(vrxsMeanStdDev_64f(w, 3, &m, &sd), vrxOk);
    EXPECT_EQ(sd, 0.0);
    const double u[3] = {1.0, NAN, 2.0};
    ASSERT_EQ(vrxsStdDev_64f(u, 3, &sd), vrxOk);
    EXPECT_EQ(sd, 0.0);
}

// ------------------------------------------------------ 16-bit scaling
// Exact S times 2^-sf, rounded ties to even and bounded to 32 bits (for the
// sf range of these tables the double scaling is exact).
int32_t ref16(long double v) {
    v = nearbyintl(v);
    return v > 2147483647.0L ? INT32_MAX : (v < -2147483648.0L ? INT32_MIN : int32_t(v));
}
using vt::saturate;

// Vectors with a chosen exact total: value v repeated, plus a fix-up.
std::vector<int16_t> withTotal16(int64_t total, size_t minLen) {
    std::vector<int16_t> out;
    int64_t rest = total;
    while (rest != 0 || out.size() < minLen) {
        int64_t x = rest > 32767 ? 32767 : (rest < -32768 ? -32768 : rest);
        out.push_back(int16_t(x));
        rest -= x;
    }
    return out;
}

TEST(Sum16s, ScaleTablesAgainstExactTotals) {
    const int64_t totals[] = {0, 1, -1, 2, 3, -3, 5, -5, 6, 7, 1 << 20, -(1 << 20) - 1, 2147483647LL, 2147483648LL,
                              -2147483648LL, -2147483649LL, 65536LL * 32767, 65537LL * -32768, 12345678901LL};
    for (int64_t t : totals) {
        auto v = withTotal16(t, 3);
        const int n = int(v.size());
        std::vector<int16_t> cv(2 * v.size());
        for (size_t i = 0; i < v.size(); ++i) { cv[2 * i] = v[i]; cv[2 * i + 1] = int16_t(-v[i] / 2); }
        int64_t tim = 0;
        for (size_t i = 0; i < v.size(); ++i) tim += cv[2 * i + 1];
        for (int sf = -70; sf <= 100; ++sf) {
            const long double sc = ldexpl(1.0L, -sf);
            int32_t r32;
            int16_t r16;
            ASSERT_EQ(vrxsSum_16s32s_Sfs(v.data(), n, &r32, sf), vrxOk);
            ASSERT_EQ(vrxsSum_16s_Sfs(v.data(), n, &r16, sf), vrxOk);
            EXPECT_EQ(r32, ref16(t * sc)) << t << " sf " << sf;
            EXPECT_EQ(r16, saturate<int16_t>(ref16(t * sc))) << t << " sf " << sf;
            Vrx32sc c32;
            Vrx16sc c16;
            ASSERT_EQ(vrxsSum_16sc32sc_Sfs(reinterpret_cast<Vrx16sc*>(cv.data()), n, &c32, sf), vrxOk);
            ASSERT_EQ(vrxsSum_16sc_Sfs(reinterpret_cast<Vrx16sc*>(cv.data()), n, &c16, sf), vrxOk);
            EXPECT_EQ(c32.re, ref16(t * sc));
            EXPECT_EQ(c32.im, ref16(tim * sc));
            EXPECT_EQ(c16.re, saturate<int16_t>(ref16(t * sc)));
            EXPECT_EQ(c16.im, saturate<int16_t>(ref16(tim * sc)));
            // Mean_16s divides then scales; Mean_16sc scales then divides
            int16_t m16;
            ASSERT_EQ(vrxsMean_16s_Sfs(v.data(), n, &m16, sf), vrxOk);
            EXPECT_EQ(m16, saturate<int16_t>(ref16((double(t) / n) * double(sc)))) << t << " sf " << sf;
            Vrx16sc mc;
            ASSERT_EQ(vrxsMean_16sc_Sfs(reinterpret_cast<Vrx16sc*>(cv.data()), n, &mc, sf), vrxOk);
            EXPECT_EQ(mc.re, saturate<int16_t>(ref16((double(t) * double(sc)) / n)));
            EXPECT_EQ(mc.im, saturate<int16_t>(ref16((double(tim) * double(sc)) / n)));
        }
    }
    // 70000 elements of 32767 saturate at sf 0 and sf 16 alike
    std::vector<int16_t> big(70000, 32767);
    int16_t r;
    ASSERT_EQ(vrxsSum_16s_Sfs(big.data(), 70000, &r, 0), vrxOk);
    EXPECT_EQ(r, 32767);
    ASSERT_EQ(vrxsSum_16s_Sfs(big.data(), 70000, &r, 16), vrxOk);
    EXPECT_EQ(r, 32767);
    // the multiplier's exponent field saturates: sf 1023 gives 0
    int32_t z;
    ASSERT_EQ(vrxsSum_16s32s_Sfs(big.data(), 70000, &z, 1023), vrxOk);
    EXPECT_EQ(z, 0);
    ASSERT_EQ(vrxsSum_16s32s_Sfs(big.data(), 1, &z, -1024), vrxOk);
    EXPECT_EQ(z, INT32_MAX);
}

TEST(Sum16s, ConvertsInTheCallersRoundingModeAndKeepsIt) {
    const int16_t v3[] = {1, 2}, vm3[] = {-1, -2};
    struct { unsigned mode; int32_t pos, neg; } rows[] = {
        {vt::kRoundNear, 2, -2}, {vt::kRoundDown, 1, -2}, {vt::kRoundUp, 2, -1}, {vt::kRoundZero, 1, -1}};
    for (auto& row : rows) {
        vt::MxcsrScope scope;
        const unsigned before = (_mm_getcsr() & ~0x6000u) | row.mode;
        _mm_setcsr(before);
        int32_t p, q;
        ASSERT_EQ(vrxsSum_16s32s_Sfs(v3, 2, &p, 1), vrxOk);
        ASSERT_EQ(vrxsSum_16s32s_Sfs(vm3, 2, &q, 1), vrxOk);
        EXPECT_EQ(_mm_getcsr() & 0xFFC0u, before & 0xFFC0u);
        EXPECT_EQ(p, row.pos) << row.mode;
        EXPECT_EQ(q, row.neg) << row.mode;
    }
}

// ------------------------------------------------------------ 32s sums
// |S| / n rounded ties to even.
i128 rdiv(i128 a, i128 n) {
    i128 q = a / n, r = a % n;
    return (2 * r > n || (2 * r == n && (q & 1))) ? q + 1 : q;
}
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
        {INT32_MIN, INT32_MIN, INT32_MIN, 5}};
    std::vector<int32_t> rnd(1001);
    for (auto& x : rnd) x = int32_t(rng.next());
    cases.push_back(rnd);
    for (auto& v : cases) {
        i128 S = 0;
        for (int32_t x : v) S += x;
        const int n = int(v.size());
        for (int sf = -70; sf <= 100; ++sf) {
            int32_t s, m;
            ASSERT_EQ(vrxsSum_32s_Sfs(v.data(), n, &s, sf), vrxOk);
            EXPECT_EQ(s, vt::scaled<int32_t>(S, sf)) << int64_t(S) << " sf " << sf;
            ASSERT_EQ(vrxsMean_32s_Sfs(v.data(), n, &m, sf), vrxOk);
            EXPECT_EQ(m, refMean32s(S, n, sf)) << int64_t(S) << " n " << n << " sf " << sf;
        }
    }
    // constant extremes over lengths at and past the lane folds: the sum stays exact
    std::vector<int32_t> big(4194240);
    for (int32_t c : {INT32_MIN, INT32_MAX}) {
        std::fill(big.begin(), big.end(), c);
        for (int n : {2097119, 2097120, 2097121, 4194240}) {
            const i128 S = i128(c) * n;
            for (int sf : {0, 21, 22, 23, 40}) {
                int32_t s, m;
                ASSERT_EQ(vrxsSum_32s_Sfs(big.data(), n, &s, sf), vrxOk);
                EXPECT_EQ(s, vt::scaled<int32_t>(S, sf)) << c << " n " << n << " sf " << sf;
                ASSERT_EQ(vrxsMean_32s_Sfs(big.data(), n, &m, sf), vrxOk);
                EXPECT_EQ(m, refMean32s(S, n, sf)) << c << " n " << n << " sf " << sf;
            }
        }
    }
    // the deliberate (q + b) >> sf: a mean of 6 gives 1 and one of 7 gives 2 at sf 2
    int32_t m;
    const int32_t six[] = {6}, seven[] = {7}, three[] = {3}, five[] = {5}, mthree[] = {-3};
    vrxsMean_32s_Sfs(six, 1, &m, 2);
    EXPECT_EQ(m, 1);
    vrxsMean_32s_Sfs(seven, 1, &m, 2);
    EXPECT_EQ(m, 2);
    vrxsSum_32s_Sfs(three, 1, &m, 1);
    EXPECT_EQ(m, 2);
    vrxsSum_32s_Sfs(five, 1, &m, 1);
    EXPECT_EQ(m, 2);
    vrxsSum_32s_Sfs(mthree, 1, &m, 1);
    EXPECT_EQ(m, -2);
}

// --------------------------------------------------- 16-bit deviation
TEST(StdDev16s, ExactSumsThenTheDoubleFormula) {
    Rng rng(6);
    std::vector<std::vector<int16_t>> cases = {std::vector<int16_t>(70001, -32768), {-32768, 32767}, {1, 2, 3, 4},
                                               std::vector<int16_t>(5, 7)};
    std::vector<int16_t> rnd(100003);
    for (auto& x : rnd) x = int16_t(rng.next());
    cases.push_back(rnd);
    for (auto& v : cases) {
        i128 S = 0, Q = 0;
        for (int16_t x : v) { S += x; Q += int64_t(x) * x; }
        const int n = int(v.size());
        const double s = double(S), q = double(Q), dn = n;
        double num = q * dn - s * s;
        if (num < 0) num = 0;
        const double dev = std::sqrt(num / (dn * (dn - 1.0)));
        for (int sf : {-40, -16, -1, 0, 1, 2, 5, 16, 40}) {
            const double mul = std::ldexp(1.0, -sf);
            const double dv = std::min(dev * mul, 2147483647.0);
            const int32_t rd = int32_t(std::nearbyint(dv));
            const double mv = std::max(std::min((s / dn) * mul, 2147483647.0), -2147483648.0);
            const int32_t rm = int32_t(std::nearbyint(mv));
            int32_t d32, m32;
            int16_t d16, m16;
            ASSERT_EQ(vrxsStdDev_16s32s_Sfs(v.data(), n, &d32, sf), vrxOk);
            EXPECT_EQ(d32, rd) << n << " sf " << sf;
            ASSERT_EQ(vrxsStdDev_16s_Sfs(v.data(), n, &d16, sf), vrxOk);
            EXPECT_EQ(d16, int16_t(std::min(rd, 32767)));
            ASSERT_EQ(vrxsMeanStdDev_16s32s_Sfs(v.data(), n, &m32, &d32, sf), vrxOk);
            EXPECT_EQ(m32, rm);
            EXPECT_EQ(d32, rd);
            ASSERT_EQ(vrxsMeanStdDev_16s_Sfs(v.data(), n, &m16, &d16, sf), vrxOk);
            EXPECT_EQ(m16, saturate<int16_t>(rm));
            EXPECT_EQ(d16, saturate<int16_t>(rd));
        }
    }
}

// The deviations need two values: one is a bad length, like zero.
TEST(SumStatuses, DeviationOfOneValueIsABadLength) {
    const float f[1] = {1};
    const double d[1] = {1};
    const int16_t h[1] = {1};
    float o = 5, o2 = 5;
    double od = 5, od2 = 5;
    int16_t oh = 5, oh2 = 5;
    int32_t ow = 5, ow2 = 5;
    EXPECT_EQ(vrxsStdDev_32f(f, 1, &o, 0), vrxErrBadLength);
    EXPECT_EQ(vrxsStdDev_64f(d, 1, &od), vrxErrBadLength);
    EXPECT_EQ(vrxsStdDev_16s_Sfs(h, 1, &oh, 0), vrxErrBadLength);
    EXPECT_EQ(vrxsStdDev_16s32s_Sfs(h, 1, &ow, 0), vrxErrBadLength);
    EXPECT_EQ(vrxsMeanStdDev_32f(f, 1, &o, &o2, 0), vrxErrBadLength);
    EXPECT_EQ(vrxsMeanStdDev_64f(d, 1, &od, &od2), vrxErrBadLength);
    EXPECT_EQ(vrxsMeanStdDev_16s_Sfs(h, 1, &oh, &oh2, 0), vrxErrBadLength);
    EXPECT_EQ(vrxsMeanStdDev_16s32s_Sfs(h, 1, &ow, &ow2, 0), vrxErrBadLength);
    EXPECT_TRUE(o == 5 && o2 == 5 && od == 5 && od2 == 5 && oh == 5 && oh2 == 5 && ow == 5 && ow2 == 5);
}

}  // namespace
