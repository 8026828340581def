// Goertzel: every form against the recurrence's exact value in long double
// with c and s rounded as the form rounds them (float for the 32- and
// 16-bit forms), within 4 len u sum|x| / sin^2(theta); the phase refers to
// the last sample; the 16-bit forms scale, saturate and round to nearest
// under every caller rounding mode; the frequency check and pVal untouched.
#include <math.h>

#include <complex>
#include <vector>

#include "vrx_test.h"

namespace {

using LD = long double;
using CLD = std::complex<LD>;

// exp(i theta (len-1)) sum x[n] exp(-i theta n): the recurrence in long
// double with the rounded factors c, s.
CLD reference(const std::vector<CLD>& x, LD c, LD s) {
    CLD w1 = 0, w2 = 0;
    for (const CLD& v : x) {
        const CLD w = v + 2 * c * w1 - w2;
        w2 = w1;
        w1 = w;
    }
    return CLD(c, s) * w1 - w2;
}

// c, s correctly rounded to double, then to float for the single forms.
void factors(double f, bool single, LD& c, LD& s) {
    const LD th = static_cast<LD>(6.283185307179586 * f);
    const double cd = static_cast<double>(cosl(th)), sd = static_cast<double>(sinl(th));
    c = single ? static_cast<float>(cd) : cd;
    s = single ? static_cast<float>(sd) : sd;
}
// The error bound: the recurrence grows as 1/sin^2(theta); at theta = 0 it only adds.
LD bound(int len, LD u, LD sumAbs, LD s) { return 4 * len * u * sumAbs / (s * s > 1e-6L ? s * s : 1e-6L) + 4 * u * sumAbs; }

// The float forms of one width; the real form reads the first len of the
// complex form's reals and imaginaries as one real sequence.
template <class T, class C>
void checkFloat(VrxStatus (*real)(const T*, int, C*, T), VrxStatus (*cplx)(const C*, int, C*, T)) {
    const struct { int len; double freq; } cases[] = {
        {1, 0.0},  {2, 0.25},   {3, 0.1},     {4, 0.5},      {5, 0.37}, {7, 0.9},  {8, 0.01},     {63, 0.123},
        {64, 0.77}, {100, 0.5}, {1000, 0.3}, {4095, 0.001}, {4096, 0.2}, {65536, 0.05}, {777, 0.999999}};
    const LD u = sizeof(T) == 4 ? 0x1p-24L : 0x1p-53L;
    vt::Rng r(11);
    for (const auto& cs : cases) {
        std::vector<T> raw(2 * cs.len);
        for (T& v : raw) v = static_cast<T>(2 * r.uniform() - 1);
        std::vector<CLD> xr(raw.begin(), raw.begin() + cs.len), xc(cs.len);
        for (int n = 0; n < cs.len; ++n) xc[n] = CLD(raw[2 * n], raw[2 * n + 1]);
        const T f = static_cast<T>(cs.freq);
        C y[2] = {{7, 7}, {7, 7}};
        ASSERT_EQ(real(raw.data(), cs.len, &y[0], f), vrxOk);
        ASSERT_EQ(cplx(reinterpret_cast<const C*>(raw.data()), cs.len, &y[1], f), vrxOk);
        LD c, s;
        factors(static_cast<double>(f), sizeof(T) == 4, c, s);
        for (int k = 0; k < 2; ++k) {
            const std::vector<CLD>& x = k ? xc : xr;
            LD sumAbs = 0;
            for (const CLD& v : x) sumAbs += std::abs(v);
            EXPECT_LE(std::abs(CLD(y[k].re, y[k].im) - reference(x, c, s)), bound(cs.len, u, sumAbs, s))
                << sizeof(T) << " complex " << k << " " << cs.len << " " << cs.freq;
        }
    }
}

TEST(Goertzel, FloatFormsAgainstLongDouble) {
    checkFloat<Vrx32f, Vrx32fc>(vrxsGoertz_32f, vrxsGoertz_32fc);
    checkFloat<Vrx64f, Vrx64fc>(vrxsGoertz_64f, vrxsGoertz_64fc);
}

// How far a 16-bit result lies beyond its bound (<= 0: within): the float
// bound scaled by 2^-sf, plus one unit, from the reference scaled, clamped.
// The 26-bit tier may round c and s to a float beside the nearest one: the
// closest of the neighbours is the reference.
LD beyond(const std::vector<CLD>& x, float f, int sf, Vrx16sc got) {
    LD c, s, sum = 0, best = 1e30L;
    for (const CLD& v : x) sum += std::abs(v);
    factors(static_cast<double>(f), true, c, s);
    auto step = [](LD v, int d) { return d ? nextafterf(static_cast<float>(v), d < 0 ? -2.0f : 2.0f) : static_cast<float>(v); };
    auto dist = [&](LD val, int16_t g) {
        const LD e = fminl(fmaxl(ldexpl(val, -sf), -32768), 32767);
        return fabsl(static_cast<LD>(g) - e) - (ldexpl(bound(static_cast<int>(x.size()), 0x1p-24L, sum, s), -sf) + 1);
    };
    for (int dc = -1; dc <= 1; ++dc)
        for (int ds = -1; ds <= 1; ++ds) {
            const CLD ref = reference(x, step(c, dc), step(s, ds));
            best = fminl(best, fmaxl(dist(ref.real(), got.re), dist(ref.imag(), got.im)));
        }
    return best;
}

// 16-bit forms: the float value times 2^-sf, clamped, rounded to nearest
// (ties to even) whatever the caller's rounding mode, which comes back. The
// real form reads the complex form's samples as one real sequence.
TEST(Goertzel, SixteenBitScaleSaturationAndRounding) {
    const int len = 1100;  // the complex form over two stretches of 1024 samples, the real over three
    std::vector<int16_t> raw(2 * len);
    vt::Rng r(3);
    for (int16_t& v : raw) v = static_cast<int16_t>(r.range(-32768, 32767));
    std::vector<CLD> xr(raw.begin(), raw.end()), xc(len);
    for (int n = 0; n < len; ++n) xc[n] = CLD(raw[2 * n], raw[2 * n + 1]);
    for (unsigned mode : {vt::kRoundNear, vt::kRoundDown, vt::kRoundUp, vt::kRoundZero})
        for (int sf : {-100000, -40, -3, 0, 4, 10, 16, 31, 200, 100000})
            for (float f : {0.0f, 0.125f, 0.31f, 0.999f}) {
                Vrx16sc v{1, 1}, vc{1, 1};
                vt::MxcsrScope scope;
                _mm_setcsr(0x1F80 | mode);
                ASSERT_EQ(vrxsGoertz_16s_Sfs(raw.data(), 2 * len, &v, f, sf), vrxOk);
                ASSERT_EQ(vrxsGoertz_16sc_Sfs(reinterpret_cast<const Vrx16sc*>(raw.data()), len, &vc, f, sf), vrxOk);
                EXPECT_EQ(_mm_getcsr() & ~0x3Fu, 0x1F80u | mode);
                _mm_setcsr(0x1F80);
                EXPECT_LE(beyond(xr, f, sf, v), 0.0L) << mode << " " << sf << " " << f;
                EXPECT_LE(beyond(xc, f, sf, vc), 0.0L) << mode << " " << sf << " " << f;
            }
}

// Exact values at frequency 0 under an upward caller mode: the plain sum,
// saturation, ties to even after the scale.
TEST(Goertzel, ExactSumsSaturateAndTieToEven) {
    const struct { std::vector<int16_t> x; int sf; int16_t want; } rows[] = {
        {std::vector<int16_t>(100, 32767), 0, 32767}, {std::vector<int16_t>(100, -32768), 0, -32768},
        {{3, 2}, 1, 2}, {{7}, 1, 4}, {{-3, -2}, 1, -2}, {{100, 20}, 3, 15}};
    vt::MxcsrScope scope;
    _mm_setcsr(0x1F80 | vt::kRoundUp);
    for (const auto& row : rows) {
        Vrx16sc v{9, 9};
        ASSERT_EQ(vrxsGoertz_16s_Sfs(row.x.data(), static_cast<int>(row.x.size()), &v, 0.0f, row.sf), vrxOk);
        EXPECT_TRUE(v.re == row.want && v.im == 0) << row.want << ": " << v.re << " " << v.im;
    }
}

// After the pointers and the length: the frequency -27 (below 0, at or
// above 1, NaN), pVal untouched; just below 1 is valid.
TEST(Goertzel, FrequencyCheckLeavesTheValue) {
    const float x[4] = {1, 2, 3, 4};
    const double xd[2] = {1, 2};
    const int16_t xs[2] = {1, 2};
    Vrx32fc v{5, 6};
    Vrx64fc d{5, 6};
    Vrx16sc s{5, 6};
    for (float f : {1.0f, -0.1f, 7.0f, -1e-30f, NAN}) {
        EXPECT_EQ(vrxsGoertz_32f(x, 4, &v, f), vrxErrRelFreq) << f;
        EXPECT_EQ(vrxsGoertz_32fc(reinterpret_cast<const Vrx32fc*>(x), 2, &v, f), vrxErrRelFreq) << f;
        EXPECT_EQ(vrxsGoertz_16s_Sfs(xs, 2, &s, f, 0), vrxErrRelFreq) << f;
        EXPECT_EQ(vrxsGoertz_16sc_Sfs(reinterpret_cast<const Vrx16sc*>(xs), 1, &s, f, 0), vrxErrRelFreq) << f;
        EXPECT_EQ(vrxsGoertz_64f(xd, 2, &d, f), vrxErrRelFreq) << f;
        EXPECT_EQ(vrxsGoertz_64fc(reinterpret_cast<const Vrx64fc*>(xd), 1, &d, f == -1e-30f ? -1e-300 : f), vrxErrRelFreq) << f;
    }
    EXPECT_TRUE(v.re == 5 && v.im == 6 && d.re == 5 && d.im == 6 && s.re == 5 && s.im == 6);
    EXPECT_EQ(vrxsGoertz_32f(x, 4, &v, nextafterf(1.0f, 0.0f)), vrxOk);
}

}  // namespace
