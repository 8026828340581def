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
// the recurrence grows as 1/sin^2(theta); at theta = 0 it only adds
LD den(LD s) { return s * s > 1e-6L ? s * s : 1e-6L; }

template <class T, bool Cplx>
void checkFloat() {
    const struct { int len; double freq; } cases[] = {
        {1, 0.0},  {2, 0.25},   {3, 0.1},     {4, 0.5},      {5, 0.37}, {7, 0.9},  {8, 0.01},     {63, 0.123},
        {64, 0.77}, {100, 0.5}, {1000, 0.3}, {4095, 0.001}, {4096, 0.2}, {65536, 0.05}, {777, 0.999999}};
    const LD u = sizeof(T) == 4 ? 0x1p-24L : 0x1p-53L;
    vt::Rng r(11);
    for (const auto& cs : cases) {
        std::vector<CLD> x(cs.len);
        std::vector<T> buf(Cplx ? 2 * cs.len : cs.len);
        LD sumAbs = 0;
        for (int n = 0; n < cs.len; ++n) {
            const T re = static_cast<T>(2 * r.uniform() - 1), im = Cplx ? static_cast<T>(2 * r.uniform() - 1) : T(0);
            buf[Cplx ? 2 * n : n] = re;
            if (Cplx) buf[2 * n + 1] = im;
            x[n] = CLD(re, im);
            sumAbs += std::abs(x[n]);
        }
        T out[2] = {T(7), T(7)};
        VrxStatus st;
        if constexpr (sizeof(T) == 4) {
            const float f = static_cast<float>(cs.freq);
            st = Cplx ? vrxsGoertz_32fc(reinterpret_cast<const Vrx32fc*>(buf.data()), cs.len, reinterpret_cast<Vrx32fc*>(out), f)
                      : vrxsGoertz_32f(buf.data(), cs.len, reinterpret_cast<Vrx32fc*>(out), f);
        } else {
            st = Cplx ? vrxsGoertz_64fc(reinterpret_cast<const Vrx64fc*>(buf.data()), cs.len, reinterpret_cast<Vrx64fc*>(out), cs.freq)
                      : vrxsGoertz_64f(buf.data(), cs.len, reinterpret_cast<Vrx64fc*>(out), cs.freq);
        }
        ASSERT_EQ(st, vrxOk);
        LD c, s;
        factors(sizeof(T) == 4 ? static_cast<double>(static_cast<float>(cs.freq)) : cs.freq, sizeof(T) == 4, c, s);
        const LD tol = 4 * cs.len * u * sumAbs / den(s) + 4 * u * sumAbs;
        EXPECT_LE(std::abs(CLD(out[0], out[1]) - reference(x, c, s)), tol) << cs.len << " " << cs.freq;
    }
}

TEST(Goertzel, FloatFormsAgainstLongDouble) {
    checkFloat<float, false>();
    checkFloat<float, true>();
    checkFloat<double, false>();
    checkFloat<double, true>();
}

// e^{i theta} w1 - w2 = e^{i theta len} sum x[n] e^{-i theta n}: a tone at
// the bin frequency gives len/2 times its phase advanced by len samples;
// frequency 0 gives the plain sum.
TEST(Goertzel, PhaseRefersToTheLastSample) {
    const int len = 64;
    const double f = 5.0 / 64;
    std::vector<double> x(len);
    for (int n = 0; n < len; ++n) x[n] = cos(2 * M_PI * f * n + 0.3);
    Vrx64fc v;
    ASSERT_EQ(vrxsGoertz_64f(x.data(), len, &v, f), vrxOk);
    const std::complex<double> want = std::polar(len / 2.0, 0.3) * std::polar(1.0, 2 * M_PI * f * len);
    EXPECT_NEAR(v.re, want.real(), 1e-11);
    EXPECT_NEAR(v.im, want.imag(), 1e-11);
    std::vector<double> ones(10, 1.5);
    ASSERT_EQ(vrxsGoertz_64f(ones.data(), 10, &v, 0.0), vrxOk);
    EXPECT_EQ(v.re, 15.0);
    EXPECT_EQ(v.im, 0.0);
}

// 16-bit forms: the float value times 2^-sf, clamped, rounded to nearest
// (ties to even) whatever the caller's rounding mode, which comes back.
TEST(Goertzel, SixteenBitScaleSaturationAndRounding) {
    const int len = 1000;
    std::vector<int16_t> x(len);
    std::vector<Vrx16sc> xc(len);
    std::vector<CLD> xr(len), xcr(len);
    LD sa = 0, sac = 0;
    vt::Rng r(3);
    for (int n = 0; n < len; ++n) {
        x[n] = static_cast<int16_t>(r.range(-32768, 32767));
        xc[n] = {static_cast<int16_t>(r.range(-32768, 32767)), static_cast<int16_t>(r.range(-32768, 32767))};
        xr[n] = x[n];
        xcr[n] = CLD(xc[n].re, xc[n].im);
        sa += fabsl(xr[n].real());
        sac += std::abs(xcr[n]);
    }
    for (unsigned mode : {vt::kRoundNear, vt::kRoundDown, vt::kRoundUp, vt::kRoundZero}) {
        for (int sf : {-100000, -40, -3, 0, 4, 10, 16, 31, 200, 100000}) {
            for (float f : {0.0f, 0.125f, 0.31f, 0.999f}) {
                Vrx16sc v{1, 1}, vc{1, 1};
                {
                    vt::MxcsrScope scope;
                    _mm_setcsr(0x1F80 | mode);
                    ASSERT_EQ(vrxsGoertz_16s_Sfs(x.data(), len, &v, f, sf), vrxOk);
                    ASSERT_EQ(vrxsGoertz_16sc_Sfs(xc.data(), len, &vc, f, sf), vrxOk);
                    EXPECT_EQ(_mm_getcsr() & ~0x3Fu, 0x1F80u | mode);
                }
                LD c, sn;
                factors(static_cast<double>(f), true, c, sn);
                // distance beyond the float bound after scaling and clamping, plus one unit
                auto dist = [&](LD val, LD sum, int16_t got) {
                    const LD e = fminl(fmaxl(ldexpl(val, -sf), -32768), 32767);
                    return fabsl(static_cast<LD>(got) - e) - (ldexpl(4 * len * 0x1p-24L * sum / den(sn) + 4 * 0x1p-24L * sum, -sf) + 1);
                };
                // the 26-bit tier may round c and s to a float beside the
                // nearest one: the closest of the neighbours is the reference
                auto step = [](LD v, int d) { return nextafterf(static_cast<float>(v), d < 0 ? -2.0f : d > 0 ? 2.0f : static_cast<float>(v)); };
                LD best = 1e30L, bestc = 1e30L;
                for (int dc = -1; dc <= 1; ++dc)
                    for (int ds = -1; ds <= 1; ++ds) {
                        const LD cc = step(c, dc), ss = step(sn, ds);
                        const CLD ref = reference(xr, cc, ss), refc = reference(xcr, cc, ss);
                        best = fminl(best, fmaxl(dist(ref.real(), sa, v.re), dist(ref.imag(), sa, v.im)));
                        bestc = fminl(bestc, fmaxl(dist(refc.real(), sac, vc.re), dist(refc.imag(), sac, vc.im)));
                    }
                EXPECT_LE(best, 0.0L) << sf << " " << f;
                EXPECT_LE(bestc, 0.0L) << sf << " " << f;
            }
        }
    }
    // saturation, and ties to even under an upward caller mode
    std::vector<int16_t> big(100, 32767);
    const int16_t three[2] = {3, 2}, seven[1] = {7};  // 5/2 = 2.5 -> 2, 7/2 = 3.5 -> 4
    Vrx16sc v;
    ASSERT_EQ(vrxsGoertz_16s_Sfs(big.data(), 100, &v, 0.0f, 0), vrxOk);
    EXPECT_EQ(v.re, 32767);
    EXPECT_EQ(v.im, 0);
    vt::MxcsrScope scope;
    _mm_setcsr(0x1F80 | vt::kRoundUp);
    ASSERT_EQ(vrxsGoertz_16s_Sfs(three, 2, &v, 0.0f, 1), vrxOk);
    EXPECT_EQ(v.re, 2);
    ASSERT_EQ(vrxsGoertz_16s_Sfs(seven, 1, &v, 0.0f, 1), vrxOk);
    EXPECT_EQ(v.re, 4);
}

// After the pointers and the length: the frequency -27 (below 0, at or
// above 1, NaN), pVal untouched; just below 1 is valid.
TEST(Goertzel, FrequencyCheckLeavesTheValue) {
    float x[4] = {1, 2, 3, 4};
    double xd[2] = {1, 2};
    int16_t xs[2] = {1, 2};
    Vrx32fc v{5, 6};
    Vrx64fc d{5, 6};
    Vrx16sc s{5, 6};
    EXPECT_EQ(vrxsGoertz_32f(x, 0, &v, 2.0f), vrxErrBadLength);
    for (float f : {1.0f, -0.1f, 7.0f, -1e-30f, NAN}) EXPECT_EQ(vrxsGoertz_32f(x, 4, &v, f), vrxErrRelFreq) << f;
    EXPECT_EQ(vrxsGoertz_64f(xd, 2, &d, 1.0), vrxErrRelFreq);
    EXPECT_EQ(vrxsGoertz_64fc(reinterpret_cast<Vrx64fc*>(xd), 1, &d, -1e-300), vrxErrRelFreq);
    EXPECT_EQ(vrxsGoertz_16s_Sfs(xs, 2, &s, 1.0f, 0), vrxErrRelFreq);
    EXPECT_EQ(vrxsGoertz_16sc_Sfs(reinterpret_cast<Vrx16sc*>(xs), 0, &s, 1.5f, 0), vrxErrBadLength);
    EXPECT_TRUE(v.re == 5 && v.im == 6 && d.re == 5 && d.im == 6 && s.re == 5 && s.im == 6);
    EXPECT_EQ(vrxsGoertz_32f(x, 4, &v, nextafterf(1.0f, 0.0f)), vrxOk);
}

}  // namespace
