// Norm, NormDiff and DotProd: the integer scale rules A to F in tables
// against exact references written here, exact 16-bit totals (including
// the -32768 corners), and the floating-point forms against long-double
// sums within the bound of each accumulator width.
#include "vrx_test.h"

#include <cmath>
#include <complex>
#include <functional>
#include <limits>

namespace {

using i128 = __int128;
using vt::Rng;

using vt::saturate;
i128 roundEven(i128 v, int k) {  // v / 2^k, ties to even
    i128 q = v >> k, rem = v - (q << k), half = i128(1) << (k - 1);
    return (rem > half || (rem == half && (q & 1))) ? q + 1 : q;
}
int shiftCount(int sf, int lim) { return sf < -lim ? lim : -sf; }

// ------------------------------------------------------ reference rules
int32_t refA(i128 m, int sf) {
    if (sf == 0) return int32_t(m);
    if (sf > 0) return sf > 31 ? 0 : int32_t(m >> sf);
    return saturate<int32_t>(m << shiftCount(sf, 31));
}
int32_t refB(i128 t, int len, int sf) {
    if (sf == 0) return int32_t(uint32_t(uint64_t(t)));  // unsaturated low bits
    if (len <= 65536) {
        if (sf > 0) return sf > 31 ? 0 : int32_t(t >> sf);
        return saturate<int32_t>(t << shiftCount(sf, 31));
    }
    if (sf > 0) return sf > 63 ? 0 : saturate<int32_t>(t >> sf);
    if (t == 0) return 0;
    if (t > INT32_MAX) return INT32_MAX;
    return saturate<int32_t>(t << shiftCount(sf, 32));
}
int64_t refC(i128 x, int sf) {
    if (sf > 0) return int64_t(x >> (sf % 64));
    if (sf == 0) return int64_t(x);
    int n = shiftCount(sf, 63);
    return (x << n) > INT64_MAX ? INT64_MAX : int64_t(x << n);
}
int32_t refD(double r, int sf) {
    if (sf != 0) {
        int k = std::abs(sf) % 32;
        long double d = ldexpl(1.0L, k);
        if (k == 31) d = -d;  // 1 << 31 read as a signed 32-bit integer
        r = double(sf > 0 ? r / d : r * d);
    }
    if (r > 2147483647.0) return INT32_MAX;
    if (r < -2147483648.0) return INT32_MIN;
    return int32_t(std::trunc(r));
}
int32_t refE(i128 v, int sf) {
    if (sf > 0) return saturate<int32_t>(roundEven(v, sf > 31 ? 31 : sf));
    return saturate<int32_t>(v << shiftCount(sf, 31));
}
int32_t refF(i128 v, int sf) {  // exact v
    int s = sf < -31 ? -31 : (sf > 93 ? 93 : sf);
    if (s > 0) return saturate<int32_t>(roundEven(v, s));
    return saturate<int32_t>(v << -s);
}

// Vectors with a chosen property, built from a few values.
std::vector<int16_t> rep(size_t n, int16_t x) { return std::vector<int16_t>(n, x); }

// ------------------------------------------------------------- norms
// Each vector a with a partner b of far-off values, so that a - b spans 17
// bits: the largest magnitude (Rule A), the sum of magnitudes (Rules B and
// C), the sum of squares (Rule C) and its double root (Rule D), each exact
// from 128-bit totals, for Norm and NormDiff at every scale factor.
TEST(NormRules, IntegerNormsAgainstExactTotalsAtEveryScale) {
    Rng rng(11);
    std::vector<std::vector<int16_t>> cases = {
        rep(65536, -32768), rep(65537, -32768), rep(1, 1), rep(3, 0), rep(65536, 32767), rep(70000, 1),
        rep(1, -32768), rep(2, 3), {5, 3}, {5, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1}, {12345, -300}, rep(3, 7),
        std::vector<int16_t>(200001)};
    for (auto& x : cases.back()) x = int16_t(rng.next());
    for (auto& a : cases) {
        const int n = int(a.size());
        std::vector<int16_t> b(a.size());
        i128 mx = 0, t = 0, q = 0, mxd = 0, td = 0, qd = 0;
        for (size_t i = 0; i < a.size(); ++i) {
            b[i] = int16_t(a[i] > 0 ? -32768 + (a[i] & 1) : 32767 - (i & 7));
            const int x = a[i], d = int(a[i]) - int(b[i]);
            mx = std::max<i128>(mx, std::abs(x)), t += std::abs(x), q += int64_t(x) * x;
            mxd = std::max<i128>(mxd, std::abs(d)), td += std::abs(d), qd += int64_t(d) * d;
        }
        const double root = std::sqrt(double(int64_t(q))), rootd = std::sqrt(double(int64_t(qd)));
        for (int sf = -70; sf <= 100; ++sf) {
            int32_t i1, i2, l1, l2, r1, r2;
            int64_t w1, w2, s1, s2;
            ASSERT_EQ(vrxsNorm_Inf_16s32s_Sfs(a.data(), n, &i1, sf), vrxOk);
            ASSERT_EQ(vrxsNormDiff_Inf_16s32s_Sfs(a.data(), b.data(), n, &i2, sf), vrxOk);
            ASSERT_EQ(vrxsNorm_L1_16s32s_Sfs(a.data(), n, &l1, sf), vrxOk);
            ASSERT_EQ(vrxsNormDiff_L1_16s32s_Sfs(a.data(), b.data(), n, &l2, sf), vrxOk);
            ASSERT_EQ(vrxsNorm_L1_16s64s_Sfs(a.data(), n, &w1, sf), vrxOk);
            ASSERT_EQ(vrxsNormDiff_L1_16s64s_Sfs(a.data(), b.data(), n, &w2, sf), vrxOk);
            ASSERT_EQ(vrxsNorm_L2Sqr_16s64s_Sfs(a.data(), n, &s1, sf), vrxOk);
            ASSERT_EQ(vrxsNormDiff_L2Sqr_16s64s_Sfs(a.data(), b.data(), n, &s2, sf), vrxOk);
            ASSERT_EQ(vrxsNorm_L2_16s32s_Sfs(a.data(), n, &r1, sf), vrxOk);
            ASSERT_EQ(vrxsNormDiff_L2_16s32s_Sfs(a.data(), b.data(), n, &r2, sf), vrxOk);
            EXPECT_TRUE(i1 == refA(mx, sf) && i2 == refA(mxd, sf)) << int64_t(mx) << " sf " << sf;
            EXPECT_TRUE(l1 == refB(t, n, sf) && l2 == refB(td, n, sf)) << int64_t(t) << " n " << n << " sf " << sf;
            EXPECT_TRUE(w1 == refC(t, sf) && w2 == refC(td, sf)) << int64_t(t) << " sf " << sf;
            EXPECT_TRUE(s1 == refC(q, sf) && s2 == refC(qd, sf)) << int64_t(q) << " sf " << sf;
            EXPECT_TRUE(r1 == refD(root, sf) && r2 == refD(rootd, sf)) << int64_t(q) << " sf " << sf;
        }
        float f[6];
        vrxsNorm_Inf_16s32f(a.data(), n, &f[0]);
        vrxsNormDiff_Inf_16s32f(a.data(), b.data(), n, &f[1]);
        vrxsNorm_L1_16s32f(a.data(), n, &f[2]);
        vrxsNormDiff_L1_16s32f(a.data(), b.data(), n, &f[3]);
        vrxsNorm_L2_16s32f(a.data(), n, &f[4]);
        vrxsNormDiff_L2_16s32f(a.data(), b.data(), n, &f[5]);
        EXPECT_EQ(vt::vec(f, 6), (std::vector<float>{float(int64_t(mx)), float(int64_t(mxd)), float(int64_t(t)),
                                                      float(int64_t(td)), float(root), float(rootd)}));
    }
    // the corners named by the rules: L1 into 32 bits (0), into 64 (1),
    // L2Sqr into 64 (2), L2 into 32 (3)
    struct { std::vector<int16_t> v; int fn, sf; int64_t want; } corners[] = {
        {rep(65536, -32768), 0, 0, INT32_MIN}, {rep(65536, -32768), 0, 32, 0},
        {rep(65537, -32768), 0, 32, 0},  // 2^31 + 2^15 >> 32
        {rep(65537, -32768), 0, 0, int32_t(0x80008000u)}, {rep(10, 0), 2, -63, 0}, {rep(1, 1), 2, -63, INT64_MAX},
        {rep(1, 1), 1, 64, 1},  // the count is taken mod 64
        {{5, 3}, 3, 0, 5}, {{5, 3}, 3, 31, 0}, {{5, 3}, 3, 32, 5}};  // root 5.83, truncated; 1 << 31 negative
    for (auto& c : corners) {
        int32_t r32 = 0;
        int64_t r64 = 0;
        const int n = int(c.v.size());
        if (c.fn == 0) vrxsNorm_L1_16s32s_Sfs(c.v.data(), n, &r32, c.sf), r64 = r32;
        if (c.fn == 1) vrxsNorm_L1_16s64s_Sfs(c.v.data(), n, &r64, c.sf);
        if (c.fn == 2) vrxsNorm_L2Sqr_16s64s_Sfs(c.v.data(), n, &r64, c.sf);
        if (c.fn == 3) vrxsNorm_L2_16s32s_Sfs(c.v.data(), n, &r32, c.sf), r64 = r32;
        EXPECT_EQ(r64, c.want) << c.fn << " n " << n << " sf " << c.sf;
    }
}

// ------------------------------------------------------- dot products
// Runs of -32768 at every length to 300 (the pair sums sit at the edge of
// 32 bits: (-32768 - 32768i)^2 = 2^31 i), then random data a quarter -32768,
// then imaginary parts at opposite extremes past a 65536-value block (the
// sums of the second operand's imaginary parts carried across it).
TEST(DotProd16s, ExactOnMinus32768RunsAndRandomData) {
    Rng rng(13);
    enum Kind { kMin, kRandom, kImagExtremes };
    std::vector<std::pair<int, Kind>> runs;
    for (int n = 1; n <= 300; ++n) runs.push_back({n, kMin});
    for (int n : {1, 7, 33, 1000, 65537}) runs.push_back({n, kRandom});
    runs.push_back({65537, kImagExtremes});
    for (auto [n, kind] : runs) {
        // imag: the value of every odd element under kImagExtremes
        auto draw = [&](int k, int16_t imag) {
            std::vector<int16_t> v(k);
            for (int i = 0; i < k; ++i)
                v[i] = kind == kImagExtremes && (i & 1) ? imag
                       : kind == kMin || !(rng.next() & 3) ? int16_t(-32768) : int16_t(rng.next());
            return v;
        };
        const auto a = draw(n, 0), b = draw(2 * n, 32767), c = draw(2 * n, -32768);
        i128 v = 0, rr = 0, ri = 0, sr = 0, si = 0;
        for (int i = 0; i < n; ++i) {
            v += int64_t(a[i]) * b[i];
            int64_t br = b[2 * i], bi = b[2 * i + 1], cr = c[2 * i], ci = c[2 * i + 1];
            rr += br * cr - bi * ci;
            ri += br * ci + bi * cr;
            sr += a[i] * cr;
            si += a[i] * ci;
        }
        const Vrx16sc *bc = reinterpret_cast<const Vrx16sc*>(b.data()), *cc = reinterpret_cast<const Vrx16sc*>(c.data());
        int64_t e;
        Vrx64sc z, w;
        ASSERT_EQ(vrxsDotProd_16s64s(a.data(), b.data(), n, &e), vrxOk);
        ASSERT_EQ(vrxsDotProd_16sc64sc(bc, cc, n, &z), vrxOk);
        ASSERT_EQ(vrxsDotProd_16s16sc64sc(a.data(), cc, n, &w), vrxOk);
        EXPECT_EQ(e, int64_t(v)) << n;
        EXPECT_TRUE(z.re == int64_t(rr) && z.im == int64_t(ri)) << n;
        EXPECT_TRUE(w.re == int64_t(sr) && w.im == int64_t(si)) << n;
        float f;
        ASSERT_EQ(vrxsDotProd_16s32f(a.data(), b.data(), n, &f), vrxOk);
        EXPECT_EQ(f, float(int64_t(v))) << n;
        // Rule E: the exact total scaled, ties to even (an odd total at sf 1 is a tie)
        for (int sf = -70; sf <= 100; ++sf) {
            int32_t o;
            ASSERT_EQ(vrxsDotProd_16s32s_Sfs(a.data(), b.data(), n, &o, sf), vrxOk);
            EXPECT_EQ(o, refE(v, sf)) << int64_t(v) << " sf " << sf;
        }
    }
}

// Rule F in every rounding mode of the caller, which is kept; the 16-bit
// operand is the 32-bit one wrapped (32768 reads as -32768).
TEST(DotProdRules, RuleFUnderEveryCallerRoundingMode) {
    struct Row { std::vector<int32_t> a, b; } rows[] = {
        {{5}, {1}}, {{7}, {1}}, {{-5}, {1}}, {{3, 4}, {1, 1}}, {{0}, {9}}, {{1}, {-1}},
        {{30000, -20000, 123}, {70000, 3, -1 << 20}}, {{1 << 15}, {1 << 16}}, {{1}, {INT32_MAX}}};
    for (auto& r : rows) {
        i128 v = 0, v16 = 0;
        std::vector<int16_t> a16(r.a.begin(), r.a.end());
        for (size_t i = 0; i < r.a.size(); ++i) { v += int64_t(r.a[i]) * r.b[i]; v16 += int64_t(a16[i]) * r.b[i]; }
        const int n = int(r.a.size());
        for (unsigned mode : {vt::kRoundNear, vt::kRoundDown, vt::kRoundUp, vt::kRoundZero}) {
            vt::MxcsrScope scope;
            const unsigned before = (_mm_getcsr() & ~0x6000u) | mode;
            _mm_setcsr(before);
            for (int sf = -70; sf <= 100; ++sf) {
                int32_t o, o16;
                ASSERT_EQ(vrxsDotProd_32s_Sfs(r.a.data(), r.b.data(), n, &o, sf), vrxOk);
                ASSERT_EQ(vrxsDotProd_16s32s32s_Sfs(a16.data(), r.b.data(), n, &o16, sf), vrxOk);
                ASSERT_EQ(_mm_getcsr() & 0xFFC0u, before & 0xFFC0u) << "mode restored";
                EXPECT_EQ(o, refF(v, sf)) << int64_t(v) << " sf " << sf << " mode " << mode;
                EXPECT_EQ(o16, refF(v16, sf)) << int64_t(v16) << " sf " << sf << " mode " << mode;
            }
        }
    }
}

// --------------------------------------------------- floating point
using LC = std::complex<long double>;

// Operands of every floating form: single and double, read as real or as
// complex vectors of half the count.
struct FloatData {
    std::vector<float> a, b;
    std::vector<double> c, d;
    FloatData(Rng& r, size_t n) : a(2 * n), b(2 * n), c(2 * n), d(2 * n) {
        auto value = [&] { return (r.uniform() - 0.45) * std::ldexp(1.0, int(r.range(-6, 6))); };
        for (size_t i = 0; i < 2 * n; ++i) { a[i] = float(value()); b[i] = float(value()); c[i] = value(); d[i] = value(); }
    }
    const void* x(bool dbl) const { return dbl ? (const void*)c.data() : a.data(); }
    const void* y(bool dbl) const { return dbl ? (const void*)d.data() : b.data(); }
};

// Element i of a real or complex vector of T.
template <class T> LC elem(const void* p, bool cplx, size_t i) {
    const T* v = static_cast<const T*>(p);
    return cplx ? LC(v[2 * i], v[2 * i + 1]) : LC(v[i], 0);
}

// A norm form: its operand type, which norm, Norm or NormDiff; the result
// widened to long double.
struct NormFn {
    const char* name;
    bool dbl, cplx;
    int norm;  // 0 Inf, 1 L1, 2 L2
    std::function<long double(const void*, const void*, int)> f;
};
#define NRM(fn, S, R, dbl, cplx, norm) \
    {#fn, dbl, cplx, norm, [](const void* a, const void*, int n) { R r; fn((const S*)a, n, &r); return (long double)r; }}
#define NDF(fn, S, R, dbl, cplx, norm) \
    {#fn, dbl, cplx, norm, [](const void* a, const void* b, int n) { R r; fn((const S*)a, (const S*)b, n, &r); return (long double)r; }}
#define NORM_ROWS(M, N)                                                                                          \
    M(vrxs##N##_Inf_32f, Vrx32f, Vrx32f, false, false, 0), M(vrxs##N##_L1_32f, Vrx32f, Vrx32f, false, false, 1),   \
    M(vrxs##N##_L2_32f, Vrx32f, Vrx32f, false, false, 2), M(vrxs##N##_Inf_64f, Vrx64f, Vrx64f, true, false, 0),    \
    M(vrxs##N##_L1_64f, Vrx64f, Vrx64f, true, false, 1), M(vrxs##N##_L2_64f, Vrx64f, Vrx64f, true, false, 2),      \
    M(vrxs##N##_Inf_32fc32f, Vrx32fc, Vrx32f, false, true, 0), M(vrxs##N##_L1_32fc64f, Vrx32fc, Vrx64f, false, true, 1), \
    M(vrxs##N##_L2_32fc64f, Vrx32fc, Vrx64f, false, true, 2), M(vrxs##N##_Inf_64fc64f, Vrx64fc, Vrx64f, true, true, 0), \
    M(vrxs##N##_L1_64fc64f, Vrx64fc, Vrx64f, true, true, 1), M(vrxs##N##_L2_64fc64f, Vrx64fc, Vrx64f, true, true, 2)
const NormFn kNormFns[] = {NORM_ROWS(NRM, Norm), NORM_ROWS(NDF, NormDiff)};

// Inf exactly: the largest |x| (complex: the largest re^2 + im^2 in the
// operand's precision, then its root). L1 and L2 against long double: n
// terms accumulated in single (also for the double results of the complex
// single forms) or double precision.
template <class T> long double normRef(const NormFn& f, const void* a, const void* b, size_t n, long double* tol) {
    T big = 0;
    long double l1 = 0, l2 = 0;
    for (size_t i = 0; i < n; ++i) {
        T re = T(elem<T>(a, f.cplx, i).real()), im = T(elem<T>(a, f.cplx, i).imag());
        if (b != a) { re = re - T(elem<T>(b, f.cplx, i).real()); im = im - T(elem<T>(b, f.cplx, i).imag()); }
        big = std::max(big, f.cplx ? re * re + im * im : std::fabs(re));
        l1 += sqrtl((long double)re * re + (long double)im * im);
        l2 += (long double)re * re + (long double)im * im;
    }
    const long double eps = f.dbl ? 0x1p-52L : 0x1p-23L;
    if (f.norm == 0) { *tol = 0; return f.cplx ? std::sqrt(big) : big; }
    if (f.norm == 1) { *tol = (n + 3) * eps * l1; return l1; }
    *tol = sqrtl(l2) * (n + 1) * eps;
    return sqrtl(l2);
}

TEST(NormFloat, InfIsExactAndSumsStayInsideTheirAccumulatorBounds) {
    Rng rng(14);
    for (size_t n : {1, 3, 16, 17, 100, 4099}) {
        const FloatData v(rng, n);
        for (const NormFn& f : kNormFns) {
            const bool diff = strstr(f.name, "Diff") != nullptr;
            const void *a = v.x(f.dbl), *b = diff ? v.y(f.dbl) : a;
            long double tol;
            const long double want = f.dbl ? normRef<double>(f, a, b, n, &tol) : normRef<float>(f, a, b, n, &tol);
            EXPECT_LE(fabsl(f.f(a, b, int(n)) - want), tol) << f.name << " n " << n;
        }
    }
}

// A dot product form: operand types (real or complex, single or double),
// the accumulation precision, the result widened.
struct DotFn {
    const char* name;
    bool dbl, xc, yc, wide;
    std::function<LC(const void*, const void*, int)> f;
};
template <class R> LC widen(const R& r) {
    if constexpr (std::is_arithmetic_v<R>) return LC(r, 0);
    else return LC(r.re, r.im);
}
#define DOT(fn, X, Y, R, dbl, xc, yc, wide) \
    {#fn, dbl, xc, yc, wide, [](const void* a, const void* b, int n) { R r; fn((const X*)a, (const Y*)b, n, &r); return widen(r); }}
const DotFn kDotFns[] = {
    DOT(vrxsDotProd_32f, Vrx32f, Vrx32f, Vrx32f, false, false, false, false),
    DOT(vrxsDotProd_32f64f, Vrx32f, Vrx32f, Vrx64f, false, false, false, true),
    DOT(vrxsDotProd_32fc, Vrx32fc, Vrx32fc, Vrx32fc, false, true, true, false),
    DOT(vrxsDotProd_32fc64fc, Vrx32fc, Vrx32fc, Vrx64fc, false, true, true, true),
    DOT(vrxsDotProd_32f32fc, Vrx32f, Vrx32fc, Vrx32fc, false, false, true, false),
    DOT(vrxsDotProd_32f32fc64fc, Vrx32f, Vrx32fc, Vrx64fc, false, false, true, true),
    DOT(vrxsDotProd_64f, Vrx64f, Vrx64f, Vrx64f, true, false, false, true),
    DOT(vrxsDotProd_64fc, Vrx64fc, Vrx64fc, Vrx64fc, true, true, true, true),
    DOT(vrxsDotProd_64f64fc, Vrx64f, Vrx64fc, Vrx64fc, true, false, true, true),
};

// Against long double, x times y with neither conjugated; each part within
// (n + 2) eps of the sum of the magnitudes of the partial products.
TEST(DotProdFloat, AgainstLongDoubleWithNoConjugation) {
    Rng rng(15);
    for (size_t n : {1, 2, 15, 16, 17, 333, 10000}) {
        const FloatData v(rng, n);
        for (const DotFn& f : kDotFns) {
            const void *x = v.x(f.dbl), *y = v.y(f.dbl);
            LC want = 0;
            long double mag = 0;
            for (size_t i = 0; i < n; ++i) {
                const LC p = f.dbl ? elem<double>(x, f.xc, i) : elem<float>(x, f.xc, i);
                const LC q = f.dbl ? elem<double>(y, f.yc, i) : elem<float>(y, f.yc, i);
                want += p * q;
                mag += fabsl(p.real() * q.real()) + fabsl(p.imag() * q.imag()) + fabsl(p.real() * q.imag()) + fabsl(p.imag() * q.real());
            }
            const LC got = f.f(x, y, int(n));
            const long double tol = (n + 2) * (f.wide ? 0x1p-52L : 0x1p-23L) * mag;
            EXPECT_LE(fabsl(got.real() - want.real()), tol) << f.name << " n " << n;
            EXPECT_LE(fabsl(got.imag() - want.imag()), tol) << f.name << " n " << n;
        }
    }
}

TEST(DotProd32fc, CombinesItsTwoTotalsOnceAtTheEnd) {
    // P.re = 2^24 + 1 rounds to 2^24 in single, Q.im = 3: re = 2^24 - 3.
    // Subtracting per element would give (2^24 - 3) + 1 = 2^24 - 2.
    const Vrx32fc a[2] = {{1.0f, 1.0f}, {1.0f, 1.0f}};
    const Vrx32fc b[2] = {{16777216.0f, 3.0f}, {1.0f, 0.0f}};
    Vrx32fc r;
    ASSERT_EQ(vrxsDotProd_32fc(a, b, 2, &r), vrxOk);
    EXPECT_EQ(r.re, 16777213.0f);
}

}  // namespace
