// Goertzel: every form against the recurrence's exact value in long double
// with c and s rounded as the form rounds them (float for the 32- and
// 16-bit forms), within 4 len u sum|x| / sin^2(theta); the phase refers to
// the last sample; saturation and rounding of the 16-bit forms under every
// caller rounding mode; statuses and nothing written on failure.
#include <math.h>

#include <complex>
#include <vector>

#include "vrx_test.h"

namespace {

using LD = long double;
using CLD = std::complex<LD>;

// exp(i theta (len-1)) sum x[n] exp(-i theta n) with the given c, s of theta.
CLD reference(const std::vector<CLD>& x, LD c, LD s) {
    // the recurrence in long double with the rounded factors
    CLD w1 = 0, w2 = 0;
    for (const CLD& v : x) {
        const CLD w = v + 2 * c * w1 - w2;
        w2 = w1;
        w1 = w;
    }
    return CLD(c, s) * w1 - w2;
}

// c, s as the library's tiers give them: the correctly rounded values are
// within the tier's error of them, so the test computes them in long double
// and rounds to double, then to float for the 32- and 16-bit forms.
void factors(double f, bool single, LD& c, LD& s) {
    const LD th = static_cast<LD>(6.283185307179586 * f);
    double cd = static_cast<double>(cosl(th)), sd = static_cast<double>(sinl(th));
    if (single) {
        c = static_cast<float>(cd);
        s = static_cast<float>(sd);
    } else {
        c = cd;
        s = sd;
    }
}

struct Case {
    int len;
    double freq;
};
const Case kCases[] = {{1, 0.0},  {2, 0.25},   {3, 0.1},    {4, 0.5},     {5, 0.37},   {7, 0.9},
                       {8, 0.01}, {63, 0.123}, {64, 0.77},  {100, 0.5},   {1000, 0.3}, {4095, 0.001},
                       {4096, 0.2}, {65536, 0.05}, {777, 0.999999}};

template <class T> LD unitRound() { return sizeof(T) == 4 ? 0x1p-24L : 0x1p-53L; }

template <class T, bool Cplx>
void checkFloat() {
    vt::Rng r(11);
    for (const Case& cs : kCases) {
        std::vector<CLD> x(cs.len);
        std::vector<T> buf(Cplx ? 2 * cs.len : cs.len);
        LD sumAbs = 0;
        for (int n = 0; n < cs.len; ++n) {
            const T re = static_cast<T>(2 * r.uniform() - 1), im = Cplx ? static_cast<T>(2 * r.uniform() - 1) : T(0);
            if (Cplx) {
                buf[2 * n] = re;
                buf[2 * n + 1] = im;
            } else {
                buf[n] = re;
            }
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
        const double f = sizeof(T) == 4 ? static_cast<double>(static_cast<float>(cs.freq)) : cs.freq;
        LD c, s;
        factors(f, sizeof(T) == 4, c, s);
        const CLD ref = reference(x, c, s);
        LD s2 = s * s;
        // at theta = 0 the recurrence only adds: the bound uses len instead
        const LD den = s2 > 1e-6L ? s2 : 1e-6L;
        const LD tol = 4 * cs.len * unitRound<T>() * sumAbs / den + 4 * unitRound<T>() * sumAbs;
        EXPECT_LE(std::abs(CLD(out[0], out[1]) - ref), tol) << cs.len << " " << cs.freq;
    }
}

TEST(Goertzel, FloatFormsAgainstLongDouble) {
    checkFloat<float, false>();
    checkFloat<float, true>();
    checkFloat<double, false>();
    checkFloat<double, true>();
}

// The value e^{i theta} w1 - w2 is the DFT at rFreq times exp(i theta len):
// frequency 0 is the sum, imaginary part 0; a tone at the bin frequency
// gives len/2 times its phase advanced by len samples.
TEST(Goertzel, PhaseRefersToTheLastSample) {
    const int len = 64;
    std::vector<double> x(len);
    const double f = 5.0 / 64;
    for (int n = 0; n < len; ++n) x[n] = cos(2 * M_PI * f * n + 0.3);
    Vrx64fc v;
    ASSERT_EQ(vrxsGoertz_64f(x.data(), len, &v, f), vrxOk);
    // e^{i theta} w1 - w2 = e^{i theta len} sum x[n] e^{-i theta n}
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
    std::vector<int16_t> x(1000);
    std::vector<Vrx16sc> xc(1000);
    vt::Rng r(3);
    for (int n = 0; n < 1000; ++n) {
        x[n] = static_cast<int16_t>(r.range(-32768, 32767));
        xc[n] = {static_cast<int16_t>(r.range(-32768, 32767)), static_cast<int16_t>(r.range(-32768, 32767))};
    }
    for (unsigned mode : {vt::kRoundNear, vt::kRoundDown, vt::kRoundUp, vt::kRoundZero}) {
        for (int sf : {-100000, -40, -3, 0, 4, 10, 16, 31, 200, 100000}) {
            for (float f : {0.0f, 0.125f, 0.31f, 0.999f}) {
                Vrx16sc v{1, 1}, vc{1, 1};
                {
                    vt::MxcsrScope scope;
                    _mm_setcsr(0x1F80 | mode);
                    ASSERT_EQ(vrxsGoertz_16s_Sfs(x.data(), 1000, &v, f, sf), vrxOk);
                    ASSERT_EQ(vrxsGoertz_16sc_Sfs(xc.data(), 1000, &vc, f, sf), vrxOk);
                    EXPECT_EQ(_mm_getcsr() & ~0x3Fu, 0x1F80u | mode);
                }
                // expected: the long-double value with float factors, scaled and
                // clamped, within the float bound after scaling, plus one unit
                LD c, sn;
                factors(static_cast<double>(f), true, c, sn);
                std::vector<CLD> xr(x.begin(), x.end()), xcr(1000);
                LD sa = 0, sac = 0;
                for (int n = 0; n < 1000; ++n) {
                    xcr[n] = CLD(xc[n].re, xc[n].im);
                    sa += fabsl(xr[n].real());
                    sac += std::abs(xcr[n]);
                }
                // the 26-bit tier may round c and s to the float beside the
                // nearest one: the closest of the neighbours is the reference
                const LD den = sn * sn > 1e-6L ? sn * sn : 1e-6L;
                auto dist = [&](LD val, LD sum, int16_t got) {
                    LD e = ldexpl(val, -sf);
                    if (e > 32767) e = 32767;
                    if (e < -32768) e = -32768;
                    const LD tol = ldexpl(4 * 1000 * 0x1p-24L * sum / den + 4 * 0x1p-24L * sum, -sf) + 1;
                    return fabsl(static_cast<LD>(got) - e) - tol;
                };
                LD best = 1e30L, bestc = 1e30L;
                for (int dc = -1; dc <= 1; ++dc) {
                    for (int ds = -1; ds <= 1; ++ds) {
                        const LD cc = nextafterf(static_cast<float>(c), dc < 0 ? -2.0f : (dc > 0 ? 2.0f : static_cast<float>(c)));
                        const LD ss = nextafterf(static_cast<float>(sn), ds < 0 ? -2.0f : (ds > 0 ? 2.0f : static_cast<float>(sn)));
                        const CLD ref = reference(xr, cc, ss), refc = reference(xcr, cc, ss);
                        best = fminl(best, fmaxl(dist(ref.real(), sa, v.re), dist(ref.imag(), sa, v.im)));
                        bestc = fminl(bestc, fmaxl(dist(refc.real(), sac, vc.re), dist(refc.imag(), sac, vc.im)));
                    }
                }
                EXPECT_LE(best, 0.0L) << sf << " " << f;
                EXPECT_LE(bestc, 0.0L) << sf << " " << f;
            }
        }
    }
    // a large positive result saturates; ties go to even
    std::vector<int16_t> big(100, 32767);
    Vrx16sc v;
    ASSERT_EQ(vrxsGoertz_16s_Sfs(big.data(), 100, &v, 0.0f, 0), vrxOk);
    EXPECT_EQ(v.re, 32767);
    EXPECT_EQ(v.im, 0);
    const int16_t three[2] = {3, 2};  // sum 5: 5/2 = 2.5 -> 2, 5/4 = 1.25 -> 1
    ASSERT_EQ(vrxsGoertz_16s_Sfs(three, 2, &v, 0.0f, 1), vrxOk);
    EXPECT_EQ(v.re, 2);
    {
        vt::MxcsrScope scope;
        _mm_setcsr(0x1F80 | vt::kRoundUp);
        ASSERT_EQ(vrxsGoertz_16s_Sfs(three, 2, &v, 0.0f, 1), vrxOk);
        EXPECT_EQ(v.re, 2);
        const int16_t seven[1] = {7};  // 7/2 = 3.5 -> 4
        ASSERT_EQ(vrxsGoertz_16s_Sfs(seven, 1, &v, 0.0f, 1), vrxOk);
        EXPECT_EQ(v.re, 4);
    }
}

// Checks: pointers -8, length -6, then the frequency -27 (below 0, at or
// above 1, NaN); pVal untouched on failure.
TEST(Goertzel, StatusesInOrder) {
    float x[4] = {1, 2, 3, 4};
    const Vrx32fc keep{5, 6};
    Vrx32fc v = keep;
    EXPECT_EQ(vrxsGoertz_32f(nullptr, 0, &v, 2.0f), vrxErrNullPtr);
    EXPECT_EQ(vrxsGoertz_32f(x, 4, nullptr, 2.0f), vrxErrNullPtr);
    EXPECT_EQ(vrxsGoertz_32f(x, 0, &v, 2.0f), vrxErrBadLength);
    EXPECT_EQ(vrxsGoertz_32f(x, -3, &v, 0.5f), vrxErrBadLength);
    for (float f : {1.0f, -0.1f, 7.0f, -0.0f * 0 - 1e-30f, NAN}) EXPECT_EQ(vrxsGoertz_32f(x, 4, &v, f), vrxErrRelFreq) << f;
    EXPECT_EQ(v.re, keep.re);
    EXPECT_EQ(v.im, keep.im);
    EXPECT_EQ(vrxsGoertz_32f(x, 4, &v, nextafterf(1.0f, 0.0f)), vrxOk);
    Vrx64fc d{5, 6};
    double xd[2] = {1, 2};
    EXPECT_EQ(vrxsGoertz_64f(xd, 2, &d, 1.0), vrxErrRelFreq);
    EXPECT_EQ(vrxsGoertz_64fc(reinterpret_cast<Vrx64fc*>(xd), 1, &d, -1e-300), vrxErrRelFreq);
    EXPECT_EQ(d.re, 5.0);
    Vrx16sc s{5, 6};
    int16_t xs[2] = {1, 2};
    EXPECT_EQ(vrxsGoertz_16s_Sfs(xs, 2, &s, 1.0f, 0), vrxErrRelFreq);
    EXPECT_EQ(vrxsGoertz_16sc_Sfs(nullptr, 2, &s, 0.5f, 0), vrxErrNullPtr);
    EXPECT_EQ(vrxsGoertz_16sc_Sfs(reinterpret_cast<Vrx16sc*>(xs), 0, &s, 0.5f, 0), vrxErrBadLength);
    EXPECT_EQ(s.re, 5);
    EXPECT_EQ(s.im, 6);
}

}  // namespace
