// Powers, roots, elementary functions and complex forms: statuses and
// check order, special values, warnings, control-register state, in-place
// forms, integer forms against exact references, sampled accuracy against
// long double.
#include <math.h>
#include <signal.h>

#include <functional>

#include "vrx_test.h"

namespace {

using vt::Rng;

using vt::bitsOf;
using vt::ulpErr;

// Runs f over x and compares the first results with want: the same bits,
// or any NaN where want is a NaN.
template <class T, class F>
void expectValues(const char* name, F f, std::vector<T> x, std::vector<T> want, VrxStatus st = vrxOk) {
    std::vector<T> y(x.size());
    ASSERT_EQ(st, f(x.data(), y.data(), (int)x.size())) << name;
    for (size_t i = 0; i < want.size(); ++i) {
        if (isnan(want[i])) EXPECT_TRUE(isnan(y[i])) << name << " " << i;
        else EXPECT_EQ(bitsOf(want[i]), bitsOf(y[i])) << name << " " << i;
    }
}

// ------------------------------------------------------------ statuses
// Normalize refuses a zero divisor (-0 too) after the pointers and length,
// writing nothing; a null real part of RealToCplx stands for zeros.
TEST(VecmathChecks, OwnChecks) {
    float f[2] = {1, 2}, g[2] = {7, 7};
    EXPECT_EQ(vrxErrDivByZero, vrxsNormalize_32f(f, g, 2, 1.f, -0.f));
    EXPECT_EQ(7.f, g[0]);
    Vrx16s a[2] = {1, 2}, b[2] = {9, 9};
    EXPECT_EQ(vrxErrDivByZero, vrxsNormalize_16s_Sfs(a, b, 2, 0, 0, 3));
    EXPECT_EQ(9, b[1]);
    Vrx32fc c[2];
    EXPECT_EQ(vrxOk, vrxsRealToCplx_32f(nullptr, f, c, 2));
    EXPECT_TRUE(c[1].re == 0.f && c[1].im == 2.f);
    EXPECT_EQ(vrxErrNullPtr, vrxsRealToCplx_32f(nullptr, nullptr, c, 2));  // but not both
}

// ------------------------------------------------------- special values
TEST(VecmathSpecial, ExpLnArctanCubrt) {
    const double inf = INFINITY, nan = NAN;
    expectValues<double>("Exp_64f", vrxsExp_64f, {0.0, -0.0, inf, -inf, nan, 1000.0, -1000.0, 1.0, -745.2},
                         {1.0, 1.0, inf, 0.0, nan, inf, 0.0, M_E, 0.0});
    expectValues<float>("Exp_32f", vrxsExp_32f, {0.f, -0.f, INFINITY, -INFINITY, NAN, 100.f, -200.f, 1.f},
                        {1.f, 1.f, INFINITY, 0.f, NAN, INFINITY, 0.f, 2.7182817f});
    expectValues<double>("Arctan_64f", vrxsArctan_64f, {0.0, -0.0, inf, -inf, nan, 1e300, -1e-300},
                         {0.0, -0.0, M_PI_2, -M_PI_2, nan, M_PI_2, -1e-300});
    expectValues<double>("Cubrt_64f", vrxsCubrt_64f, {-8.0, 27.0, 0.0, -0.0, inf, -inf, nan},
                         {-2.0, 3.0, 0.0, -0.0, inf, -inf, nan});
    double big = 709.78, e;
    ASSERT_EQ(vrxOk, vrxsExp_64f(&big, &e, 1));
    EXPECT_TRUE(isfinite(e));
}

TEST(VecmathSpecial, PhaseAndMagnitudeEdges) {
    const float pi = (float)M_PI;
    expectValues<Vrx32f>("Phase_32fc", [](const float* x, float* y, int n) { return vrxsPhase_32fc((const Vrx32fc*)x, y, n / 2); },
                         {0.f, 0.f, -1.f, 0.f, -1.f, -0.f, 0.f, -0.f, -0.f, 0.f, INFINITY, INFINITY, -INFINITY, 1.f, 1.f, NAN},
                         {0.f, pi, -pi, -0.f, pi, (float)M_PI_4, pi, NAN});
    expectValues<Vrx64f>("Magnitude_64fc", [](const double* x, double* y, int n) { return vrxsMagnitude_64fc((const Vrx64fc*)x, y, n / 2); },
                         {INFINITY, NAN, NAN, -INFINITY, 3e300, 4e300, 0.0, -0.0, NAN, 1.0},
                         {INFINITY, INFINITY, 5e300, 0.0, NAN});
    Vrx64fc tiny = {3e-310, 4e-310};
    double m;
    EXPECT_EQ(vrxOk, vrxsMagnitude_64fc(&tiny, &m, 1));
    EXPECT_NEAR(5e-310, m, 1e-323);
    Vrx32fc big[] = {{3e38f, 3e38f}};
    float mb;
    EXPECT_EQ(vrxOk, vrxsMagnitude_32fc(big, &mb, 1));
    EXPECT_EQ(INFINITY, mb);  // 4.2e38 is beyond the float range
}

// ------------------------------------------------------------- warnings
// One status for the call, every element written: a negative element's
// root is NaN; the root of -0 is -0 with no warning.
TEST(VecmathWarnings, OneStatusAndWholeVectorWritten) {
    std::vector<double> x(33), want(33);
    for (int i = 0; i < 33; ++i) x[i] = (want[i] = i + 1.0) * (i + 1.0);
    x[17] = -4.0;
    want[17] = NAN;
    expectValues<double>("Sqrt_64f", vrxsSqrt_64f, x, want, vrxWarnSqrtNegArg);
    std::vector<float> xf(20, 4.f), wf(20, 2.f);
    xf[19] = wf[19] = -0.f;
    expectValues<float>("Sqrt_32f", vrxsSqrt_32f, xf, wf);
    xf[3] = -1.f;
    wf[3] = NAN;
    expectValues<float>("Sqrt_32f", [](const float* a, float* b, int n) { memcpy(b, a, n * 4); return vrxsSqrt_32f_I(b, n); },
                        xf, wf, vrxWarnSqrtNegArg);

    // Ln: zero gives 7, negative 8, and negative wins when both occur.
    const struct { double v[3]; VrxStatus st; } lnCases[] = {
        {{1.0, 2.0, 3.0}, vrxOk},
        {{1.0, 0.0, 3.0}, vrxWarnLnZeroArg},
        {{1.0, -0.0, 3.0}, vrxWarnLnZeroArg},
        {{-1.0, 2.0, 3.0}, vrxWarnLnNegArg},
        {{0.0, -2.0, 0.0}, vrxWarnLnNegArg},
        {{NAN, 2.0, INFINITY}, vrxOk},
    };
    for (const auto& c : lnCases) {
        double o[3];
        EXPECT_EQ(c.st, vrxsLn_64f(c.v, o, 3));
        float fi[3] = {(float)c.v[0], (float)c.v[1], (float)c.v[2]}, fo[3];
        EXPECT_EQ(c.st, vrxsLn_32f(fi, fo, 3));
        for (int i = 0; i < 3; ++i) {
            if (c.v[i] == 0) { EXPECT_EQ(-INFINITY, o[i]); EXPECT_EQ(-INFINITY, fo[i]); }
            else if (c.v[i] < 0 || isnan(c.v[i])) { EXPECT_TRUE(isnan(o[i])); EXPECT_TRUE(isnan(fo[i])); }
            else { EXPECT_LE(ulpErr<double>(o[i], logl(c.v[i])), 1.0); }
        }
    }
    Vrx32s li[4] = {0, -5, 1, 2}, lo[4];
    EXPECT_EQ(vrxWarnLnNegArg, vrxsLn_32s_Sfs(li, lo, 4, -4));
    EXPECT_EQ(std::vector<Vrx32s>(lo, lo + 4), (std::vector<Vrx32s>{INT32_MIN, 0, 0, 11}));  // ln 2 * 16 = 11.09
}

// SumLn: a zero gives -inf and 7, a negative element the default NaN and 8.
TEST(VecmathWarnings, SumLnSpecialResults) {
    float f[5] = {1.f, 2.f, 3.f, 4.f, 5.f}, s;
    double d64, d[3] = {2.0, -0.0, 4.0};
    EXPECT_EQ(vrxOk, vrxsSumLn_32f(f, 5, &s));
    EXPECT_EQ((float)logl(120.0L), s);
    EXPECT_EQ(vrxOk, vrxsSumLn_32f64f(f, 5, &d64));
    EXPECT_NEAR((double)logl(120.0L), d64, 1e-15);
    Vrx16s h[3] = {1, 10, 100};
    EXPECT_EQ(vrxOk, vrxsSumLn_16s32f(h, 3, &s));
    EXPECT_EQ((float)logl(1000.0L), s);
    f[2] = 0.f;
    EXPECT_TRUE(vrxWarnLnZeroArg == vrxsSumLn_32f(f, 5, &s) && 0xFF800000u == bitsOf(s));
    f[4] = -1.f;
    EXPECT_TRUE(vrxWarnLnNegArg == vrxsSumLn_32f(f, 5, &s) && 0xFFC00000u == bitsOf(s));
    EXPECT_TRUE(vrxWarnLnZeroArg == vrxsSumLn_64f(d, 3, &d64) && 0xFFF0000000000000ull == bitsOf(d64));
    d[1] = -3.0;
    EXPECT_TRUE(vrxWarnLnNegArg == vrxsSumLn_64f(d, 3, &d64) && 0xFFF8000000000000ull == bitsOf(d64));
}

// ------------------------------------------------- control-register state
void onFpe(int) { _exit(97); }

unsigned short x87Status() {
    unsigned short sw;
    __asm__ __volatile__("fnstsw %0" : "=a"(sw)::"memory");
    return sw;
}
void raiseX87DivideByZero() {
    double one = 1.0, zero = 0.0, r;
    __asm__ __volatile__("fldl %2\n\tfldl %1\n\tfdivp\n\tfstpl %0" : "=m"(r) : "m"(one), "m"(zero) : "st", "memory");
}

// Special values under a word with every exception unmasked cause no trap
// and the word comes back as it was; the kernels that use the x87 unit
// (x87 set) leave no x87 exception flag behind, though the caller had one up.
TEST(VecmathControl, TrappingWordCausesNoTrapAndSurvives) {
    signal(SIGFPE, onFpe);
    vt::MxcsrScope scope;
    const unsigned word = vt::kRoundZero;  // every exception unmasked, no flags
    double x[9] = {1000.0, -1.0, 0.0, 1e-310, NAN, 3.0, -1000.0, INFINITY, 2.0}, y[9];
    float xf[9] = {100.f, -1.f, 0.f, 1e-40f, NAN, 3.f, -100.f, INFINITY, 2.f}, yf[9];
    Vrx64fc z[3] = {{1e300, 1e300}, {0, 0}, {NAN, 1}};
    Vrx32fc zf[3] = {{3e38f, 3e38f}, {0, 0}, {NAN, 1}};
    const struct { const char* name; bool x87; std::function<void()> run; } calls[] = {
        {"Exp_64f", true, [&] { vrxsExp_64f(x, y, 9); }}, {"Exp_32f", false, [&] { vrxsExp_32f(xf, yf, 9); }},
        {"Ln_64f", false, [&] { vrxsLn_64f(x, y, 9); }}, {"Ln_32f", true, [&] { vrxsLn_32f(xf, yf, 9); }},
        {"Arctan_64f", false, [&] { vrxsArctan_64f(x, y, 9); }}, {"Arctan_32f", true, [&] { vrxsArctan_32f(xf, yf, 9); }},
        {"Magnitude_64fc", false, [&] { vrxsMagnitude_64fc(z, y, 3); }}, {"Phase_32fc", false, [&] { vrxsPhase_32fc(zf, yf, 3); }},
        {"Phase_64fc", false, [&] { vrxsPhase_64fc(z, y, 3); }}, {"Cubrt_64f", false, [&] { vrxsCubrt_64f(x, y, 9); }},
        {"PolarToCart_64f", false, [&] { vrxsPolarToCart_64f(x, x, y, y, 9); }},
        {"PolarToCart_32f", true, [&] { vrxsPolarToCart_32f(xf, xf, yf, yf, 9); }},
    };
    for (const auto& c : calls) {
        raiseX87DivideByZero();
        ASSERT_NE(0, x87Status() & 0x04);
        _mm_setcsr(word);
        c.run();
        EXPECT_EQ(word, _mm_getcsr()) << c.name;
        if (c.x87) { EXPECT_EQ(0, x87Status() & 0x80FF) << c.name; }
        __asm__ __volatile__("fnclex");
    }
    // The sticky-flag functions restore the caller's masks and keep the
    // flags that their kernel raised.
    _mm_setcsr(word);
    EXPECT_EQ(vrxWarnSqrtNegArg, vrxsSqrt_64f(x, y, 9));
    EXPECT_EQ(word, _mm_getcsr() & ~0x3Fu);
    EXPECT_TRUE(_mm_getcsr() & 1u);
    _mm_setcsr(word);
    EXPECT_EQ(vrxOk, vrxsMagnitude_32fc(zf, yf, 3));
    EXPECT_EQ(word, _mm_getcsr() & ~0x3Fu);
    EXPECT_TRUE(_mm_getcsr() & 0x20u);  // the inexact root of 2e77
}

// Under a fully masked word the two frames differ: the families that
// compute outside the tier kernels leave the word alone, so the caller's
// flags and those of the arithmetic stay; the tier-kernel families clear
// the five low flags at the end and keep only precision.
TEST(VecmathControl, FlagsUnderMaskedWordByFrame) {
    vt::MxcsrScope scope;
    double big[3] = {1e200, -1e300, 2.0}, y[3];
    float bigf[3] = {1e30f, -3e38f, 2.f}, yf[3];
    double x[3] = {1.0, 2.0, 3.0};
    const unsigned fz = vt::kFtz | vt::kDaz;
    struct Case {
        const char* name;
        unsigned in, out;  // the word before and after the call
        std::function<void()> call;
    };
    const Case cases[] = {
        // overflow raised by the squares stays, the caller's flags too
        {"Sqr_64f", 0x1F80u, 0x1F80u | 0x08u | 0x20u, [&] { vrxsSqr_64f(big, y, 3); }},
        {"Sqr_32f", 0x1F80u, 0x1F80u | 0x08u | 0x20u, [&] { vrxsSqr_32f(bigf, yf, 3); }},
        {"Abs_64f", 0x1F80u | 0x15u, 0x1F80u | 0x15u, [&] { vrxsAbs_64f(big, y, 3); }},
        {"Normalize_64f", 0x1F80u | 0x02u, 0x1F80u | 0x02u | 0x08u | 0x20u,
         [&] { vrxsNormalize_64f(big, y, 3, 0.0, 1e-300); }},
        // the tier kernels clear the five low flags, set before or raised
        {"Exp_64f", 0x1F80u | 0x1Fu, 0x1F80u, [&] { vrxsExp_64f(x, y, 3); }},
        {"Arctan_32f", 0x1F80u | 0x11u, 0x1F80u, [&] { vrxsArctan_32f(bigf, yf, 3); }},
        {"Phase_64f", 0x1F80u | 0x04u, 0x1F80u, [&] { vrxsPhase_64f(x, big, y, 3); }},
        // FTZ and DAZ stay through the kernels' own word
        {"Exp_64f ftz", 0x1F80u | fz, 0x1F80u | fz, [&] { vrxsExp_64f(big, y, 3); }},
        {"Exp_32f ftz", 0x1F80u | fz, 0x1F80u | fz, [&] { vrxsExp_32f(bigf, yf, 3); }},
        {"Ln_32f ftz", 0x1F80u | fz, 0x1F80u | fz, [&] { vrxsLn_32f(bigf, yf, 3); }},
    };
    for (const Case& c : cases) {
        _mm_setcsr(c.in);
        c.call();
        EXPECT_EQ(c.out, _mm_getcsr() & ~(c.out & 0x20u ? 0u : 0x20u)) << c.name;
    }
}

// ------------------------------------------------- in place and tails
// Every element of a call equals that element alone, in place equals out of
// place, at every tail length and misalignment.
template <class T>
struct ElemCase {
    VrxStatus (*f)(const T*, T*, int);
    VrxStatus (*fi)(T*, int);
    double lo, hi;
};

template <class T>
void checkElementwise(Rng& rng, const ElemCase<T>& c, int len) {
    vt::Buffer a(len * sizeof(T), len % (64 / sizeof(T)) * sizeof(T)), b(len * sizeof(T), sizeof(T));
    T* x = a.as<T>();
    T* y = b.as<T>();
    for (int i = 0; i < len; ++i) x[i] = (T)(c.lo + (c.hi - c.lo) * rng.uniform());
    ASSERT_EQ(vrxOk, c.f(x, y, len));
    for (int i = 0; i < len; ++i) {
        T one;
        c.f(x + i, &one, 1);
        ASSERT_EQ(bitsOf(one), bitsOf(y[i])) << len << " " << i;
    }
    ASSERT_EQ(vrxOk, c.fi(x, len));
    ASSERT_EQ(0, memcmp(x, y, len * sizeof(T)));
    ASSERT_TRUE(a.guardsIntact() && b.guardsIntact());
}

TEST(VecmathShape, InPlaceEqualsOutOfPlaceAndElementsStandAlone) {
    Rng rng(7);
    const ElemCase<float> c32[] = {
        {vrxsExp_32f, vrxsExp_32f_I, -90, 90}, {vrxsLn_32f, vrxsLn_32f_I, 0, 1e6},
        {vrxsArctan_32f, vrxsArctan_32f_I, -50, 50}, {vrxsSqrt_32f, vrxsSqrt_32f_I, 0, 1e4},
        {vrxsSqr_32f, vrxsSqr_32f_I, -1e3, 1e3}, {vrxsAbs_32f, vrxsAbs_32f_I, -5, 5}};
    const ElemCase<double> c64[] = {
        {vrxsExp_64f, vrxsExp_64f_I, -750, 750}, {vrxsLn_64f, vrxsLn_64f_I, 0, 1e9},
        {vrxsArctan_64f, vrxsArctan_64f_I, -50, 50}, {vrxsSqrt_64f, vrxsSqrt_64f_I, 0, 1e4},
        {vrxsSqr_64f, vrxsSqr_64f_I, -1e3, 1e3}, {vrxsAbs_64f, vrxsAbs_64f_I, -5, 5}};
    for (int len = 1; len <= 70; ++len) {
        for (const auto& c : c32) checkElementwise(rng, c, len);
        for (const auto& c : c64) checkElementwise(rng, c, len);
    }
}

// --------------------------------------------------------- accuracy
template <class T, class F, class R>
double maxUlp(Rng& rng, F f, R ref, double lo, double hi, bool logScale, int n = 20000) {
    std::vector<T> x(n), y(n);
    for (auto& v : x) {
        double u = rng.uniform();
        v = (T)(logScale ? exp(log(lo) + u * (log(hi) - log(lo))) : lo + u * (hi - lo));
        if (logScale && (rng.next() & 1)) v = -v;
    }
    f(x.data(), y.data(), n);
    double m = 0;
    for (int i = 0; i < n; ++i) m = std::max(m, ulpErr<T>(y[i], ref((long double)x[i])));
    return m;
}

TEST(VecmathAccuracy, SampledAgainstLongDouble) {
    Rng rng(11);
    auto lnPos = [](long double x) { return logl(fabsl(x)); };
    struct Case { const char* name; double err, limit; };
    auto absIn = [](auto f) { return [f](auto* x, auto* y, int n) { for (int i = 0; i < n; ++i) x[i] = fabs(x[i]); return f(x, y, n); }; };
    const Case cases[] = {
        {"Exp_64f", maxUlp<double>(rng, vrxsExp_64f, [](long double x) { return expl(x); }, -745, 709.7, false), 1},
        {"Exp_32f", maxUlp<float>(rng, vrxsExp_32f, [](long double x) { return expl(x); }, -103, 88.7, false), 8},
        {"Ln_64f", maxUlp<double>(rng, absIn(vrxsLn_64f), lnPos, 1e-310, 1e300, true), 1},
        {"Ln_64f near 1", maxUlp<double>(rng, vrxsLn_64f, lnPos, 0.5, 2, false), 1},
        {"Ln_32f", maxUlp<float>(rng, absIn(vrxsLn_32f), lnPos, 1e-44, 3e38, true), 8},
        {"Arctan_64f", maxUlp<double>(rng, vrxsArctan_64f, [](long double x) { return atanl(x); }, 1e-300, 1e300, true), 1},
        {"Arctan_32f", maxUlp<float>(rng, vrxsArctan_32f, [](long double x) { return atanl(x); }, 1e-30, 1e30, true), 1},
        {"Cubrt_64f", maxUlp<double>(rng, vrxsCubrt_64f, [](long double x) { return cbrtl(x); }, 1e-310, 1e300, true), 1},
        {"Cubrt_32f", maxUlp<float>(rng, vrxsCubrt_32f, [](long double x) { return cbrtl(x); }, 1e-40, 1e38, true), 1},
        {"Sqrt_64f", maxUlp<double>(rng, absIn(vrxsSqrt_64f), [](long double x) { return sqrtl(fabsl(x)); }, 1e-310, 1e300, true), 0.5},
    };
    for (const auto& c : cases) EXPECT_LE(c.err, c.limit) << c.name;
}

// Magnitude and phase over 40 binades of radius against long double; the
// polar pair, where given, has the bits of the two.
template <class C, class T = decltype(C{}.re)>
void checkComplexForms(VrxStatus (*mag)(const C*, T*, int), VrxStatus (*ph)(const C*, T*, int), double magUlp,
                       VrxStatus (*polar)(const C*, T*, T*, int) = nullptr) {
    Rng rng(5);
    const int n = 4099;
    std::vector<C> z(n);
    std::vector<T> m(n), p(n), m2(n), p2(n);
    for (auto& v : z) {
        const double r = exp(-20 + 40 * rng.uniform()), t = -M_PI + 2 * M_PI * rng.uniform();
        v = {(T)(r * cos(t)), (T)(r * sin(t))};
    }
    ASSERT_EQ(vrxOk, mag(z.data(), m.data(), n));
    ASSERT_EQ(vrxOk, ph(z.data(), p.data(), n));
    double em = 0, ep = 0;
    for (int i = 0; i < n; ++i) {
        const long double re = z[i].re, im = z[i].im;
        em = std::max(em, ulpErr<T>(m[i], sqrtl(re * re + im * im)));
        ep = std::max(ep, ulpErr<T>(p[i], atan2l(im, re)));
    }
    EXPECT_LE(em, magUlp);
    EXPECT_LE(ep, 8.0);
    if (!polar) return;
    ASSERT_EQ(vrxOk, polar(z.data(), m2.data(), p2.data(), n));
    EXPECT_TRUE(m == m2 && p == p2);
}

TEST(VecmathAccuracy, ComplexFormsSampled) {
    checkComplexForms<Vrx32fc>(vrxsMagnitude_32fc, vrxsPhase_32fc, 1.0, vrxsCartToPolar_32fc);
    checkComplexForms<Vrx64fc>(vrxsMagnitude_64fc, vrxsPhase_64fc, 8.0, vrxsCartToPolar_64fc);
}

// PolarToCart: each part within tol units of 2^-digits of the magnitude
// from the long-double product, large phases too (single) and the special
// ones; the complex form gives the same bits, so does the call in place on
// the magnitude and the phase.
template <class T, class C>
void checkPolar(VrxStatus (*split)(const T*, const T*, T*, T*, int), VrxStatus (*cplx)(const T*, const T*, C*, int),
                double maxPhase, double tol) {
    Rng rng(21);
    const int n = 2053;
    std::vector<T> mag(n), ph(n), re(n), im(n);
    for (int i = 0; i < n; ++i) {
        mag[i] = (T)(1 + 3 * rng.uniform());
        double u = rng.uniform();
        ph[i] = (T)(i % 3 == 0 ? exp(log(1e5) + u * (log(maxPhase) - log(1e5))) : -50 + 100 * u);
    }
    ph[0] = INFINITY;
    ph[1] = NAN;
    ph[2] = -0.0;
    ASSERT_EQ(vrxOk, split(mag.data(), ph.data(), re.data(), im.data(), n));
    EXPECT_TRUE(isnan(re[0]) && isnan(im[0]) && isnan(re[1]) && isnan(im[1]));
    EXPECT_EQ(mag[2], re[2]);
    EXPECT_EQ(bitsOf(T(-0.0)), bitsOf(im[2]));
    double worst = 0;
    const long double unit = ldexpl(1.0L, -std::numeric_limits<T>::digits);
    for (int i = 3; i < n; ++i) {
        worst = std::max(worst, (double)(fabsl(re[i] - mag[i] * cosl(ph[i])) / (mag[i] * unit)));
        worst = std::max(worst, (double)(fabsl(im[i] - mag[i] * sinl(ph[i])) / (mag[i] * unit)));
    }
    EXPECT_LE(worst, tol);
    std::vector<C> c(n);
    ASSERT_EQ(vrxOk, cplx(mag.data(), ph.data(), c.data(), n));
    for (int i = 0; i < n; ++i) ASSERT_TRUE(vt::sameBits(re[i], c[i].re) && vt::sameBits(im[i], c[i].im)) << i;
    std::vector<T> a = mag, b = ph;
    ASSERT_EQ(vrxOk, split(a.data(), b.data(), a.data(), b.data(), n));
    ASSERT_EQ(0, memcmp(a.data(), re.data(), n * sizeof(T)));
    ASSERT_EQ(0, memcmp(b.data(), im.data(), n * sizeof(T)));
}

TEST(VecmathAccuracy, PolarToCart) {
    // the sine and cosine within 8 ulp, then one rounding of the product
    checkPolar<float, Vrx32fc>(vrxsPolarToCart_32f, vrxsPolarToCart_32fc, 3e38, 8.0);
    checkPolar<double, Vrx64fc>(vrxsPolarToCart_64f, vrxsPolarToCart_64fc, 1e300, 90.0);
}

// ----------------------------------------------------- integer forms
// x * 2^-sf rounded to nearest with ties to even, exactly, then saturated
template <class T>
T satRef(long double v) {
    if (v != v) return 0;
    v = nearbyintl(v);  // the default mode: ties to even
    if (v < std::numeric_limits<T>::min()) return std::numeric_limits<T>::min();
    if (v > std::numeric_limits<T>::max()) return std::numeric_limits<T>::max();
    return (T)v;
}

TEST(VecmathInteger, ScaledFormsAgainstExactReference) {
    Rng rng(3);
    const int n = 67;
    std::vector<Vrx16s> a(n), b(n), o(n), o2(n), ore(n), oim(n);
    std::vector<Vrx32s> a32(n), pos(n), o32(n), acc(n), acc0(n);
    std::vector<Vrx16sc> zc(n), oc(n);
    for (int sf : {-17, -3, -1, 0, 1, 2, 5, 15, 16, 31, 40, 70, 1000}) {
        for (int i = 0; i < n; ++i) {
            a[i] = (Vrx16s)rng.range(-32768, 32767);
            b[i] = (Vrx16s)rng.range(-300, 300);
            a32[i] = (Vrx32s)rng.range(INT32_MIN, INT32_MAX);
            pos[i] = (Vrx32s)rng.range(1, INT32_MAX);
            acc[i] = acc0[i] = (Vrx32s)rng.range(INT32_MIN, INT32_MAX);
            zc[i] = {(Vrx16s)rng.range(-32768, 32767), (Vrx16s)rng.range(-32768, 32767)};
        }
        a[0] = -32768;
        a[1] = 3 << 4;  // ties of the square at small scale factors
        const long double sc = ldexpl(1.0L, -sf);
        // the call's status, then each element against its exact value scaled, rounded and saturated
        auto check = [&]<class T>(const char* name, VrxStatus want, VrxStatus got, const std::vector<T>& out, auto exact) {
            ASSERT_EQ(want, got) << name;
            for (int i = 0; i < n; ++i) ASSERT_EQ(satRef<T>(exact(i) * sc), out[i]) << name << " sf " << sf << " at " << i;
        };
        auto pw = [&](int i) { return (long double)zc[i].re * zc[i].re + (long double)zc[i].im * zc[i].im; };
        check("Sqr_16s", vrxOk, vrxsSqr_16s_Sfs(a.data(), o.data(), n, sf), o, [&](int i) { return (long double)a[i] * a[i]; });
        o2 = a;
        ASSERT_EQ(vrxOk, vrxsSqr_16s_ISfs(o2.data(), n, sf));
        ASSERT_EQ(o, o2);
        check("Sqrt_16s", vrxWarnSqrtNegArg, vrxsSqrt_16s_Sfs(a.data(), o.data(), n, sf), o,
              [&](int i) { return a[i] < 0 ? 0.0L : sqrtl(a[i]); });
        check("PowerSpectr_16sc", vrxOk, vrxsPowerSpectr_16sc_Sfs(zc.data(), o.data(), n, sf), o, pw);
        check("Magnitude_16sc", vrxOk, vrxsMagnitude_16sc_Sfs(zc.data(), o.data(), n, sf), o, [&](int i) { return sqrtl(pw(i)); });
        ASSERT_EQ(vrxOk, vrxsSqr_16sc_Sfs(zc.data(), oc.data(), n, sf));
        for (int i = 0; i < n; ++i) ore[i] = oc[i].re, oim[i] = oc[i].im;
        check("Sqr_16sc re", vrxOk, vrxOk, ore, [&](int i) { return (long double)zc[i].re * zc[i].re - (long double)zc[i].im * zc[i].im; });
        check("Sqr_16sc im", vrxOk, vrxOk, oim, [&](int i) { return 2.0L * zc[i].re * zc[i].im; });
        check("AddProduct_32s", vrxOk, vrxsAddProduct_32s_Sfs(a32.data(), a32.data(), acc.data(), n, sf), acc,
              [&](int i) { return (long double)((__int128)acc0[i] + (__int128)a32[i] * a32[i]); });
        check("Normalize_16s", vrxOk, vrxsNormalize_16s_Sfs(a.data(), o.data(), n, 5, -7, sf), o,
              [&](int i) { return ((long double)a[i] - 5) / -7; });
        check("Ln_32s", vrxOk, vrxsLn_32s_Sfs(pos.data(), o32.data(), n, sf), o32, [&](int i) { return logl(pos[i]); });
        check("Exp_16s", vrxOk, vrxsExp_16s_Sfs(b.data(), o.data(), n, sf), o, [&](int i) { return expl(b[i]); });
        check("Cubrt_32s16s", vrxOk, vrxsCubrt_32s16s_Sfs(pos.data(), o.data(), n, sf), o, [&](int i) { return cbrtl(pos[i]); });
    }
    // exact cubes and squares meet ties exactly
    Vrx32s cubes[4] = {27, -27, 125, 1 << 30};
    Vrx16s cr[4];
    ASSERT_EQ(vrxOk, vrxsCubrt_32s16s_Sfs(cubes, cr, 4, 1));
    EXPECT_EQ(vt::vec(cr, 4), (std::vector<Vrx16s>{2, -2, 2, 512}));  // 1.5 -> 2, 2.5 -> 2
}

TEST(VecmathInteger, SaturatingAbsAndConj) {
    auto halves = [](const Vrx16sc* z, int n) { return std::vector<Vrx16s>(&z[0].re, &z[0].re + 2 * n); };
    Vrx16s a[3] = {-32768, -5, 7}, o[3];
    ASSERT_EQ(vrxOk, vrxsAbs_16s(a, o, 3));
    EXPECT_EQ(std::vector<Vrx16s>(o, o + 3), (std::vector<Vrx16s>{32767, 5, 7}));
    Vrx32s b[2] = {INT32_MIN, -1}, p[2];
    ASSERT_EQ(vrxOk, vrxsAbs_32s(b, p, 2));
    EXPECT_EQ(std::vector<Vrx32s>(p, p + 2), (std::vector<Vrx32s>{INT32_MAX, 1}));
    Vrx16sc c[3] = {{1, -32768}, {-32768, 5}, {3, 0}}, d[3];
    ASSERT_EQ(vrxOk, vrxsConj_16sc(c, d, 3));
    EXPECT_EQ(halves(d, 3), (std::vector<Vrx16s>{1, 32767, -32768, -5, 3, 0}));
    ASSERT_EQ(vrxOk, vrxsConjFlip_16sc(c, d, 3));
    EXPECT_EQ(halves(d, 3), (std::vector<Vrx16s>{3, 0, -32768, -5, 1, 32767}));
}

// ------------------------------------------------------- complex forms
// At every length to 9: split and join, the imaginary parts, the reversed
// conjugate (in place too), normalization (subtract, then divide), the
// square and its principal root.
TEST(VecmathComplex, LayoutsAndFlips) {
    for (int len = 1; len <= 9; ++len) {
        std::vector<Vrx32fc> z(len), o(len), p(len);
        std::vector<float> re(len), im(len);
        for (int i = 0; i < len; ++i) z[i] = {i + 0.5f, -i - 0.25f};
        ASSERT_EQ(vrxOk, vrxsCplxToReal_32fc(z.data(), re.data(), im.data(), len));
        ASSERT_EQ(vrxOk, vrxsRealToCplx_32f(re.data(), im.data(), o.data(), len));
        ASSERT_EQ(0, memcmp(z.data(), o.data(), len * 8));
        ASSERT_EQ(vrxOk, vrxsImag_32fc(z.data(), re.data(), len));
        ASSERT_EQ(z[len - 1].im, re[len - 1]);
        p = z;
        ASSERT_EQ(vrxOk, vrxsConjFlip_32fc(z.data(), o.data(), len));
        ASSERT_EQ(vrxOk, vrxsConjFlip_32fc(p.data(), p.data(), len));  // in place
        ASSERT_EQ(0, memcmp(o.data(), p.data(), len * 8));
        for (int i = 0; i < len; ++i) ASSERT_TRUE(z[len - 1 - i].re == o[i].re && -z[len - 1 - i].im == o[i].im) << i;
        ASSERT_EQ(vrxOk, vrxsNormalize_32fc(z.data(), o.data(), len, Vrx32fc{0.5f, 1.f}, 2.f));
        for (int i = 0; i < len; ++i) ASSERT_TRUE((z[i].re - 0.5f) / 2.f == o[i].re && (z[i].im - 1.f) / 2.f == o[i].im) << i;
        std::vector<Vrx64fc> w(len), s(len);
        for (int i = 0; i < len; ++i) w[i] = {i - 3.0, 2.0 * i};
        ASSERT_EQ(vrxOk, vrxsSqr_64fc(w.data(), s.data(), len));
        for (int i = 0; i < len; ++i) ASSERT_TRUE(s[i].re == w[i].re * w[i].re - w[i].im * w[i].im && s[i].im == 2 * w[i].re * w[i].im);
        ASSERT_EQ(vrxOk, vrxsSqrt_64fc_I(s.data(), len));
        for (int i = 0; i < len; ++i) {  // w or -w: the one with a non-negative real part
            const double sg = w[i].re < 0 || (w[i].re == 0 && w[i].im < 0) ? -1 : 1;
            ASSERT_NEAR(sg * w[i].re, s[i].re, 1e-14) << i;
            ASSERT_NEAR(sg * w[i].im, s[i].im, 1e-14) << i;
        }
    }
}

TEST(VecmathComplex, PolarInteger) {
    Vrx16s mag[4] = {1000, 1000, 32767, 0}, ph[4] = {0, 1608, 3217, 100};  // phase * 2^-10
    Vrx16sc d[4];
    ASSERT_EQ(vrxOk, vrxsPolarToCart_16sc_Sfs(mag, ph, d, 4, 0, 10));
    EXPECT_EQ(1000, d[0].re);
    EXPECT_EQ(0, d[0].im);
    EXPECT_NEAR(0, d[1].re, 2);
    EXPECT_EQ(1000, d[1].im);
    EXPECT_EQ(-32767, d[2].re);
    EXPECT_EQ(0, d[3].re);
}

// The complex product inside AddProduct is rounded term by term, with no
// fused step at any position of the vector (a vectoriser that fuses complex
// products would change the last bit of some elements).
template <class C>
void checkAddProductUnfused(VrxStatus (*fn)(const C*, const C*, C*, int)) {
    Rng rng(77);
    const int len = 67;
    auto a = vt::randElems<C>(rng, len), b = vt::randElems<C>(rng, len), d = vt::randElems<C>(rng, len), ref = d;
    for (int i = 0; i < len; ++i) {
        ref[i].re += a[i].re * b[i].re - a[i].im * b[i].im;  // the tests build without contraction
        ref[i].im += a[i].re * b[i].im + a[i].im * b[i].re;
    }
    ASSERT_EQ(fn(a.data(), b.data(), d.data(), len), vrxOk);
    for (int i = 0; i < len; ++i) ASSERT_TRUE(vt::sameBits(d[i], ref[i])) << i;
}

TEST(VecmathComplex, AddProductRoundsEveryTerm) {
    checkAddProductUnfused<Vrx32fc>(vrxsAddProduct_32fc);
    checkAddProductUnfused<Vrx64fc>(vrxsAddProduct_64fc);
}

}  // namespace
