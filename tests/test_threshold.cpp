// Threshold family: every real form and type against a scalar reference at
// lengths 1..70, in place and out of place; the check tables; the bit-
// pattern LTAbs on floats and the word LTAbs; the complex clip against a
// long-double reference at its stated accuracy; inversion and its warning.
#include <float.h>
#include <math.h>

#include <array>
#include <functional>

#include "vrx_test.h"

namespace {

template <class T>
std::vector<T> sample(vt::Rng& rng, int n) {
    std::vector<T> v(n);
    for (auto& x : v) {
        if constexpr (std::is_floating_point_v<T>) {
            x = static_cast<T>((rng.uniform() - 0.5) * 200.0);
            if (rng.range(0, 9) == 0) x = rng.range(0, 1) ? T(0) : -T(0);
        } else {
            x = static_cast<T>(rng.next());
            if (rng.range(0, 3) == 0) x = static_cast<T>(rng.range(-120, 120));
        }
    }
    if (n > 3) v[n / 2] = std::numeric_limits<T>::lowest();
    return v;
}

// Runs an out-of-place form and its in-place form over lengths 1..70 and
// compares both with ref element by element.
template <class T>
void checkForm(const char* name, std::function<VrxStatus(const T*, T*, int)> oop, std::function<VrxStatus(T*, int)> inp,
               std::function<T(T)> ref) {
    vt::Rng rng(42);
    for (int len = 1; len <= 70; ++len) {
        auto x = sample<T>(rng, len);
        vt::Buffer d(len * sizeof(T), (len % 3) * sizeof(T));
        for (bool inPlace : {false, true}) {
            if (inPlace) memcpy(d.data(), x.data(), len * sizeof(T));
            ASSERT_EQ(inPlace ? inp(d.as<T>(), len) : oop(x.data(), d.as<T>(), len), vrxOk) << name;
            for (int i = 0; i < len; ++i) ASSERT_TRUE(vt::sameBits(d.as<T>()[i], ref(x[i]))) << name << " in place " << inPlace << " x=" << +x[i];
        }
        ASSERT_TRUE(d.guardsIntact()) << name;
    }
}

#define FORM(NAME, T, EXTRA, REF) \
    checkForm<T>(#NAME, [&](const T* s, T* d, int n) { return vrxsThreshold_##NAME(s, d, n EXTRA); }, \
                 [&](T* d, int n) { return vrxsThreshold_##NAME##_I(d, n EXTRA); }, REF)
#define CM ,

template <class T>
void realForms(T level, T value, T levelGT, T valueGT);

#define REAL_FORMS(S, T)                                                                                                         \
    template <> void realForms<T>(T level, T value, T levelGT, T valueGT) {                                                     \
        auto lt = [=](T x) { return x < level ? level : x; };                                                                    \
        auto gt = [=](T x) { return x > level ? level : x; };                                                                    \
        FORM(LT_##S, T, CM level, lt);                                                                                            \
        FORM(GT_##S, T, CM level, gt);                                                                                            \
        FORM(LTValGTVal_##S, T, CM level CM value CM levelGT CM valueGT,                                                             \
             [=](T x) { return x < level ? value : (x > levelGT ? valueGT : x); });                                              \
        FORM(LTAbsVal_##S, T, CM level CM value, [=](T x) { return fabs(static_cast<double>(x)) < static_cast<double>(level) ? value : x; }); \
        FORM(GTAbs_##S, T, CM level, [=](T x) { T t = x > level ? level : x; T n = static_cast<T>(-level); return t < n ? n : t; }); \
    }
REAL_FORMS(16s, Vrx16s)
REAL_FORMS(32s, Vrx32s)
REAL_FORMS(32f, Vrx32f)
REAL_FORMS(64f, Vrx64f)

template <class T>
void relOpForms(T level, T value);

#define REL_OP_FORMS(S, T)                                                                     \
    template <> void relOpForms<T>(T level, T value) {                                         \
        FORM(S, T, CM level CM vrxCmpLess, [=](T x) { return x < level ? level : x; });         \
        FORM(S, T, CM level CM vrxCmpGreater, [=](T x) { return x > level ? level : x; });      \
        FORM(LTVal_##S, T, CM level CM value, [=](T x) { return x < level ? value : x; });      \
        FORM(GTVal_##S, T, CM level CM value, [=](T x) { return x > level ? value : x; });      \
    }
REL_OP_FORMS(16s, Vrx16s)
REL_OP_FORMS(32f, Vrx32f)
REL_OP_FORMS(64f, Vrx64f)

TEST(ThresholdReal, EveryFormAgainstScalar) {
    for (double lv : {0.0, 7.0, 50.0, 119.0}) {
        realForms<Vrx16s>(static_cast<Vrx16s>(lv), 9, static_cast<Vrx16s>(lv + 3), -9);
        realForms<Vrx32s>(static_cast<Vrx32s>(lv), 9, static_cast<Vrx32s>(lv), -9);
        realForms<Vrx32f>(static_cast<float>(lv + 0.25), 9.5f, static_cast<float>(lv + 10), -9.5f);
        realForms<Vrx64f>(lv + 0.125, 9.5, lv + 30, -9.5);
        relOpForms<Vrx16s>(static_cast<Vrx16s>(-lv), 3);
        relOpForms<Vrx32f>(static_cast<float>(lv - 20), 3.5f);
        relOpForms<Vrx64f>(lv - 20, 3.5);
    }
}

// LTAbs: integer forms raise the magnitude to the level with the element's
// sign (0 counts as positive); float forms work on the bit pattern.
TEST(ThresholdReal, LTAbsEveryType) {
    auto lt16 = [](Vrx16s level) {
        return [=](Vrx16s x) { return (x >= 0 && x < level) ? level : (x < 0 && x > -level) ? Vrx16s(-level) : x; };
    };
    for (Vrx16s level : {1, 5, 119, 32767}) FORM(LTAbs_16s, Vrx16s, CM level, lt16(level));
    for (Vrx32s level : {1, 5, 119, INT32_MAX}) {
        FORM(LTAbs_32s, Vrx32s, CM level, [=](Vrx32s x) {
            int64_t a = x < 0 ? -int64_t(x) : x;
            return a >= level ? x : (x < 0 ? -level : level);
        });
    }
    for (float level : {0.0f, 2.0f, 57.5f}) {
        FORM(LTAbs_32f, Vrx32f, CM level, [=](Vrx32f x) { return fabsf(x) >= level ? x : copysignf(level, x); });
    }
    for (double level : {0.0, 2.0, 57.5}) {
        FORM(LTAbs_64f, Vrx64f, CM level, [=](Vrx64f x) { return fabs(x) >= level ? x : copysign(level, x); });
    }
    std::vector<Vrx16s> all(65536), out(65536);  // every word at a few levels
    for (int i = 0; i < 65536; ++i) all[i] = static_cast<Vrx16s>(i - 32768);
    for (Vrx16s level : {1, 5, 256, 32767}) {
        ASSERT_EQ(vrxsThreshold_LTAbs_16s(all.data(), out.data(), 65536, level), vrxOk);
        for (int i = 0; i < 65536; ++i) ASSERT_EQ(out[i], lt16(level)(all[i])) << all[i] << " level " << level;
    }
}

TEST(ThresholdReal, StatedCases) {
    float f[4] = {-0.0f, 0.0f, NAN, -1.0f}, fo[4];
    ASSERT_EQ(vrxsThreshold_LTAbs_32f(f, fo, 4, 2.0f), vrxOk);
    EXPECT_EQ(fo[0], -2.0f); EXPECT_EQ(fo[1], 2.0f); EXPECT_TRUE(isnan(fo[2])); EXPECT_EQ(fo[3], -2.0f);
    float g[3] = {5.0f, -5.0f, 0.5f};
    ASSERT_EQ(vrxsThreshold_GTAbs_32f(g, fo, 3, 0.0f), vrxOk);
    for (int i = 0; i < 3; ++i) EXPECT_EQ(fo[i], 0.0f);
    ASSERT_EQ(vrxsThreshold_LTValGTVal_32f(g, fo, 3, 1.0f, -7.0f, 1.0f, 7.0f), vrxOk);
    EXPECT_EQ(fo[0], 7.0f); EXPECT_EQ(fo[1], -7.0f); EXPECT_EQ(fo[2], -7.0f);
    ASSERT_EQ(vrxsThreshold_LTAbsVal_32f(g, fo, 3, -1.0f, 99.0f), vrxOk);
    for (int i = 0; i < 3; ++i) EXPECT_EQ(fo[i], g[i]);
}

TEST(Threshold, CheckOrder) {
    float f[2] = {1, 2}, fo[2] = {7, 7};
    Vrx32fc c[2] = {{1, 1}, {2, 2}}, co[2] = {{7, 7}, {7, 7}};
    Vrx16s w[2] = {1, 2}, wo[2] = {7, 7};
    EXPECT_EQ(vrxsThreshold_32f(f, fo, 2, 1.0f, 1), vrxErrBadArg);
    EXPECT_EQ(vrxsThreshold_16s_I(w, 2, 1, 3), vrxErrBadArg);
    EXPECT_EQ(vrxsThreshold_32fc(c, co, 2, -1.0f, 1), vrxErrBadArg);
    EXPECT_EQ(vrxsThreshold_32fc(c, co, 2, -1.0f, vrxCmpLess), vrxErrThreshNeg);
    EXPECT_EQ(vrxsThreshold_GT_32fc(c, co, 2, -1.0f), vrxErrThreshNeg);
    EXPECT_EQ(vrxsThreshold_LTVal_32fc(c, co, 2, -1.0f, Vrx32fc{0, 0}), vrxErrThreshNeg);
    EXPECT_EQ(vrxsThreshold_LTAbs_32f(f, fo, 2, -1.0f), vrxErrThreshNeg);
    EXPECT_EQ(vrxsThreshold_GTAbs_32s_I(reinterpret_cast<Vrx32s*>(fo), 2, -1), vrxErrThreshNeg);
    EXPECT_EQ(vrxsThreshold_LTInv_64f_I(reinterpret_cast<double*>(co), 1, -1.0), vrxErrThreshNeg);
    EXPECT_EQ(vrxsThreshold_LTInv_32fc(nullptr, co, 2, -1.0f), vrxErrNullPtr);
    EXPECT_EQ(vrxsThreshold_LTValGTVal_16s(w, wo, 2, 3, 0, 2, 0), vrxErrThreshOrder);
    EXPECT_EQ(vrxsThreshold_LTValGTVal_16s(w, wo, 0, 3, 0, 2, 0), vrxErrBadLength);
    EXPECT_EQ(vrxsThreshold_LTAbs_16s(w, wo, -1, -5), vrxErrBadLength);
    EXPECT_EQ(vrxsThreshold_LTAbs_16s(w, wo, 2, -5), vrxErrThreshNeg);
    EXPECT_EQ(fo[0], 7.0f); EXPECT_EQ(co[0].re, 7.0f); EXPECT_EQ(wo[0], 7);
}

// ---------------------------------------------------------------- complex
// LT/GT: an element whose magnitude (squared in the element's precision) is
// below (above) the level is scaled to it, phase kept, within tol * level of
// long double; rounds of four go together: a round with none selected keeps
// its bits. In place gives the same bits.
template <class C, class R>
void checkClip(R level, double tol, VrxStatus (*fn)(const C*, C*, int, R, VrxCmpOp), VrxStatus (*fnI)(C*, int, R, VrxCmpOp)) {
    vt::Rng rng(17);
    for (int len = 1; len <= 70; ++len) {
        std::vector<C> x(len), d(len);
        for (auto& z : x) {
            const double r = rng.uniform() * 2 * level, t = rng.uniform() * 6.283185307179586;
            z = {static_cast<R>(r * cos(t)), static_cast<R>(r * sin(t))};
        }
        for (VrxCmpOp op : {vrxCmpLess, vrxCmpGreater}) {
            std::vector<C> e = x;
            ASSERT_EQ(fn(x.data(), d.data(), len, level, op), vrxOk);
            ASSERT_EQ(fnI(e.data(), len, level, op), vrxOk);
            ASSERT_EQ(memcmp(d.data(), e.data(), len * sizeof(C)), 0);
            auto sel = [&](int i, auto l) {
                using W = decltype(l);
                const W m = W(x[i].re) * x[i].re + W(x[i].im) * x[i].im;
                return op == vrxCmpLess ? m < l * l : m > l * l;
            };
            for (int i = 0; i < len; ++i) {
                bool anySel = false;
                for (int j = i & ~3; j < std::min(len, (i & ~3) + 4); ++j) anySel |= sel(j, (long double)level);
                if (!anySel) {
                    ASSERT_TRUE(vt::sameBits(d[i], x[i])) << "an element of an unselected round changed";
                    continue;
                }
                const long double f = sel(i, level) ? level / sqrtl((long double)x[i].re * x[i].re + (long double)x[i].im * x[i].im) : 1.0L;
                ASSERT_NEAR(d[i].re, x[i].re * f, tol * level) << len << " " << i;
                ASSERT_NEAR(d[i].im, x[i].im * f, tol * level) << len << " " << i;
            }
        }
    }
}

TEST(ThresholdComplex, ClipKeepsPhase) {
    checkClip<Vrx32fc, Vrx32f>(3.0f, 4e-7, vrxsThreshold_32fc, vrxsThreshold_32fc_I);
    checkClip<Vrx32fc, Vrx32f>(1e-3f, 4e-7, vrxsThreshold_32fc, vrxsThreshold_32fc_I);
    checkClip<Vrx64fc, Vrx64f>(3.0, 1e-15, vrxsThreshold_64fc, vrxsThreshold_64fc_I);
    checkClip<Vrx64fc, Vrx64f>(1e5, 1e-15, vrxsThreshold_64fc, vrxsThreshold_64fc_I);
}

// 16sc rounds the scaled parts; level 0: GT zeroes all, LT keeps all.
TEST(ThresholdComplex, Clip16scAndLevelZero) {
    Vrx16sc x[5] = {{3, 4}, {30, 40}, {-300, 400}, {0, 0}, {0, -7}}, d[5];
    auto parts = [&](int from, int to) { return vt::vec(reinterpret_cast<const Vrx16s*>(d) + 2 * from, 2 * (to - from)); };
    ASSERT_EQ(vrxsThreshold_GT_16sc(x, d, 5, 10), vrxOk);
    EXPECT_EQ(parts(0, 5), (std::vector<Vrx16s>{3, 4, 6, 8, -6, 8, 0, 0, 0, -7}));
    ASSERT_EQ(vrxsThreshold_LT_16sc(x, d, 5, 10), vrxOk);
    EXPECT_EQ(parts(0, 3), (std::vector<Vrx16s>{6, 8, 30, 40, -300, 400}));
    EXPECT_EQ(parts(4, 5), (std::vector<Vrx16s>{0, -10}));
    ASSERT_EQ(vrxsThreshold_GT_16sc(x, d, 5, 0), vrxOk);
    EXPECT_EQ(parts(0, 5), std::vector<Vrx16s>(10, 0));
    Vrx32fc c[3] = {{1, -2}, {-3, 4}, {0.5f, 0}}, co[3];
    ASSERT_EQ(vrxsThreshold_GT_32fc(c, co, 3, 0.0f), vrxOk);
    for (auto& z : co) EXPECT_TRUE(z.re == 0.0f && z.im == 0.0f);
    ASSERT_EQ(vrxsThreshold_LT_32fc(c, co, 3, 0.0f), vrxOk);
    EXPECT_EQ(memcmp(c, co, sizeof c), 0);
    Vrx64fc z[3] = {{1, -2}, {-3, 4}, {0, 0}}, zo[3];
    ASSERT_EQ(vrxsThreshold_GT_64fc(z, zo, 3, 0.0), vrxOk);
    EXPECT_EQ(zo[1].im, 0.0);
}

// LTVal/GTVal: an element whose squared magnitude, computed in W (the
// element's precision), is below (above) the squared level becomes the
// value; the in-place forms agree.
template <class C, class W, class R = decltype(C::re)>
void checkReplace(std::array<VrxStatus (*)(const C*, C*, int, R, C), 2> fn, std::array<VrxStatus (*)(C*, int, R, C), 2> fnI, R level,
                  double range) {
    vt::Rng rng(23);
    const C v{9, -9};
    for (int len = 1; len <= 40; ++len) {
        std::vector<C> x(len), d(len);
        for (auto& z : x) z = {R(rng.uniform() * 2 * range - range), R(rng.uniform() * 2 * range - range)};
        x[0] = {level, R(level / 10000)};  // just above the level, but not in float
        for (int gt = 0; gt < 2; ++gt) {
            ASSERT_EQ(fn[gt](x.data(), d.data(), len, level, v), vrxOk);
            for (int i = 0; i < len; ++i) {
                const W m = W(x[i].re) * x[i].re + W(x[i].im) * x[i].im, l = W(level) * level;
                EXPECT_EQ(memcmp(&d[i], (gt ? m > l : m < l) ? &v : &x[i], sizeof(C)), 0) << len << " " << i;
            }
            std::vector<C> io = x;
            ASSERT_EQ(fnI[gt](io.data(), len, level, v), vrxOk);
            EXPECT_EQ(memcmp(io.data(), d.data(), len * sizeof(C)), 0);
        }
    }
}

TEST(ThresholdComplex, ReplacementForms) {
    checkReplace<Vrx32fc, float>({vrxsThreshold_LTVal_32fc, vrxsThreshold_GTVal_32fc},
                                 {vrxsThreshold_LTVal_32fc_I, vrxsThreshold_GTVal_32fc_I}, 1.5f, 2);
    checkReplace<Vrx64fc, double>({vrxsThreshold_LTVal_64fc, vrxsThreshold_GTVal_64fc},
                                  {vrxsThreshold_LTVal_64fc_I, vrxsThreshold_GTVal_64fc_I}, 1.5, 2);
    checkReplace<Vrx16sc, int>({vrxsThreshold_LTVal_16sc, vrxsThreshold_GTVal_16sc},
                               {vrxsThreshold_LTVal_16sc_I, vrxsThreshold_GTVal_16sc_I}, Vrx16s(200), 300);
}

// ------------------------------------------------------------- inversion
template <class T>
void checkInv(VrxStatus (*fn)(const T*, T*, int, T), VrxStatus (*fnI)(T*, int, T), double tol) {
    vt::Rng rng(31);
    for (T level : {T(0), T(0.5), T(3)}) {
        for (int len = 1; len <= 70; ++len) {
            std::vector<T> x(len), d(len);
            for (auto& v : x) v = static_cast<T>((rng.uniform() - 0.5) * ldexp(1.0, static_cast<int>(rng.range(-8, 8))));
            vt::MxcsrScope scope;
            const unsigned w = 0x1F80;
            _mm_setcsr(w);
            ASSERT_EQ(fn(x.data(), d.data(), len, level), vrxOk);
            EXPECT_EQ(_mm_getcsr(), w);
            std::vector<T> e = x;
            ASSERT_EQ(fnI(e.data(), len, level), vrxOk);
            for (int i = 0; i < len; ++i) {
                ASSERT_EQ(memcmp(&d[i], &e[i], sizeof(T)), 0);
                long double v = fabsl(x[i]) < level ? copysignl(level, x[i]) : x[i];
                long double want = 1.0L / v;
                ASSERT_LE(fabsl((d[i] - want) / want), tol) << x[i] << " level " << level;
            }
        }
    }
}

TEST(ThresholdInv, RealAgainstLongDouble) {
    checkInv<Vrx32f>(vrxsThreshold_LTInv_32f, vrxsThreshold_LTInv_32f_I, 2.4e-7);  // two units in the last place
    checkInv<Vrx64f>(vrxsThreshold_LTInv_64f, vrxsThreshold_LTInv_64f_I, 4.5e-16);
}

TEST(ThresholdInv, ZeroWarnsOnlyAtLevelZero) {
    float x[20] = {0.0f, 4.0f, -0.0f, INFINITY, 1e-40f}, d[20];
    for (int i = 5; i < 20; ++i) x[i] = static_cast<float>(i);
    EXPECT_EQ(vrxsThreshold_LTInv_32f(x, d, 20, 0.0f), vrxWarnInvZero);
    EXPECT_EQ(vt::vec(d, 5), (std::vector<float>{INFINITY, 0.25f, -INFINITY, 0.0f, INFINITY}));
    EXPECT_EQ(vrxsThreshold_LTInv_32f(x, d, 20, 0.5f), vrxOk);
    EXPECT_TRUE(d[0] == 2.0f && d[2] == -2.0f);
    EXPECT_EQ(vrxsThreshold_LTInv_32f(x + 1, d, 1, 0.0f), vrxOk);
    double y[3] = {0.0, -2.0, 1e-320}, e[3];
    EXPECT_EQ(vrxsThreshold_LTInv_64f(y, e, 3, 0.0), vrxWarnInvZero);
    EXPECT_EQ(vt::vec(e, 3), (std::vector<double>{INFINITY, -0.5, INFINITY}));
    EXPECT_EQ(vrxsThreshold_LTInv_64f(y, e, 3, 1e-300), vrxOk);
    // complex: at level 0 a zero element warns; above, it is raised first
    Vrx32fc c[2] = {{0, 0}, {3, 4}}, co[2];
    EXPECT_EQ(vrxsThreshold_LTInv_32fc(c, co, 2, 0.0f), vrxWarnInvZero);
    EXPECT_TRUE(isinf(co[0].re));
    EXPECT_NEAR(co[1].re, 3.0f / 25, 1e-7f);
    EXPECT_NEAR(co[1].im, -4.0f / 25, 1e-7f);
    EXPECT_EQ(vrxsThreshold_LTInv_32fc(c, co, 2, 10.0f), vrxOk);
    EXPECT_NEAR(co[0].re, 0.1f, 1e-7f);
    Vrx64fc z[1] = {{0.3, -0.4}}, zo[1];
    EXPECT_EQ(vrxsThreshold_LTInv_64fc_I(z, 1, 1.0), vrxOk);
    EXPECT_NEAR(z[0].re, 0.6, 1e-15);
    EXPECT_NEAR(z[0].im, 0.8, 1e-15);
    EXPECT_EQ(vrxsThreshold_LTInv_64fc(z, zo, 1, 0.0), vrxOk);
}

// The inversion masks every exception for its run and gives the caller's
// control word back whole, under every rounding mode, also with the
// zero-divide exception unmasked (no trap).
TEST(ThresholdInv, ControlWordRestoredUnderEveryMode) {
    float x[33], xo[33];
    double y[33], yo[33];
    Vrx32fc c[33], co[33];
    for (int i = 0; i < 33; ++i) x[i] = static_cast<float>(i - 16) * 0.75f, y[i] = x[i], c[i] = {x[i], -x[i]};
    for (unsigned rc : {vt::kRoundNear, vt::kRoundDown, vt::kRoundUp, vt::kRoundZero})
        for (unsigned masks : {0x1F80u, 0x1F80u & ~0x0200u, 0x1F80u | vt::kFtz | vt::kDaz}) {
            vt::MxcsrScope scope;
            const unsigned w = masks | rc;
            _mm_setcsr(w);
            EXPECT_EQ(vrxsThreshold_LTInv_32f(x, xo, 33, 0.0f), vrxWarnInvZero);
            EXPECT_EQ(vrxsThreshold_LTInv_64f(y, yo, 33, 0.0), vrxWarnInvZero);
            EXPECT_EQ(vrxsThreshold_LTInv_32fc(c, co, 33, 0.0f), vrxWarnInvZero);
            EXPECT_EQ(_mm_getcsr(), w);
            EXPECT_EQ(vrxsThreshold_LTInv_64f_I(yo + 16, 17, 2.0), vrxOk);
            EXPECT_EQ(_mm_getcsr(), w);
        }
}

// 32 MiB or more moved: the streaming stores, at three offsets.
TEST(ThresholdReal, LargeVectorsStreamed) {
    const int n = (17 << 20) / 4 + 5;
    const std::vector<float> x = vt::noise(4, n);
    for (size_t off : {0, 4, 12}) {
        vt::Buffer d(n * sizeof(float), off);
        float* p = d.as<float>();
        ASSERT_EQ(vrxsThreshold_LT_32f(x.data(), p, n, 0.1f), vrxOk);
        ASSERT_EQ(vrxsThreshold_GTVal_32f_I(p, n, 0.5f, -1.0f), vrxOk);
        for (int i = 0; i < n; ++i) ASSERT_EQ(p[i], x[i] < 0.1f ? 0.1f : (x[i] > 0.5f ? -1.0f : x[i])) << i;
        ASSERT_TRUE(d.guardsIntact());
    }
}

}  // namespace
