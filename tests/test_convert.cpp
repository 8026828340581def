// Conversions: float to integer over a grid of ties, bounds and non-finite
// values in the three rounding modes; every 8-bit and 16-bit input of the
// integer paths over scale factors -20..40; 24-bit samples; the control
// word after each call under every caller rounding mode.
#include <fenv.h>
#include <float.h>
#include <math.h>

#include <algorithm>
#include <functional>
#include <limits>

#include "vrx_test.h"

namespace {

using vt::bitsF;
using vt::chunked;
using vt::fBits;

// x rounded to an integer value: 1 nearest-even, 0 toward zero, anything
// else half away from zero. Exact for every double.
double roundRef(double x, int mode) {
    if (!isfinite(x) || fabs(x) >= 4503599627370496.0) return x;
    double t = trunc(x), f = fabs(x - t);
    if (mode == 0) return t;
    double up = t + (x < 0 ? -1 : 1);
    if (f > 0.5) return up;
    if (f < 0.5) return t;
    if (mode == 1) return fmod(t, 2.0) == 0 ? t : up;
    return up;
}

// Float to integer: scale by the power of two, round, saturate; NaN goes
// to the lower bound.
template <class D, class V>
D sat(V r) {
    if (r != r || r <= static_cast<V>(std::numeric_limits<D>::min())) return std::numeric_limits<D>::min();
    if (r >= static_cast<V>(std::numeric_limits<D>::max())) return std::numeric_limits<D>::max();
    return static_cast<D>(r);
}
float mulOf(int sf) { return bitsF(0x3F800000u - (static_cast<uint32_t>(sf) << 23)); }
template <class D, class S>
D refToInt(S x, int mode, int sf) {
    return sat<D>(roundRef(sf ? x * static_cast<S>(mulOf(sf)) : x, mode));
}

// Ties at many magnitudes, the bounds of every destination, non-finite
// values, subnormals and random values.
std::vector<double> gridValues() {
    std::vector<double> v;
    const double bases[] = {0, 1, 2, 3, 4, 5, 6, 7, 10, 100, 126, 127, 128, 129, 254, 255, 256, 1000,
                            32766, 32767, 32768, 32769, 65534, 65535, 65536, 1048575, 8388607, 8388608,
                            16777215, 16777216, 2147483520.0, 2147483647.0, 2147483648.0, 4294967296.0,
                            9007199254740992.0, 9223372036854775807.0, 1e20};
    const double offs[] = {-1, -0.75, -0.5, -0.25, 0, 0.25, 0.5, 0.75, 1, 1.5, 2.5};
    for (double b : bases)
        for (double o : offs) { v.push_back(b + o); v.push_back(-(b + o)); }
    for (int e = -12; e < 64; ++e) {
        double p = ldexp(1.0, e);
        for (double o : {0.5, 1.5, -0.5}) { v.push_back(p + o); v.push_back(-p - o); }
    }
    for (double x : {double(NAN), -double(NAN), double(INFINITY), -double(INFINITY), 0.0, -0.0, 1e-45, -1e-45, 1.1754942e-38, 1e-310, -1e-310,
                     3.4028234663852886e+38, -3.4028234663852886e+38, 1e300, -1e300, 0.49999997, 0.5000001, -0.49999997})
        v.push_back(x);
    vt::Rng rng(11);
    for (int i = 0; i < 2000; ++i) v.push_back((rng.uniform() - 0.5) * ldexp(1.0, static_cast<int>(rng.range(-4, 40))));
    return v;
}

const int kSfs[] = {0, 1, -1, 2, -3, 7, 15, -15, 20, 31};
const int kModes[] = {1, 0, 2, 7, -3};

// Every grid value in every mode at every scale factor, in pieces.
template <class S, class D>
void checkGrid(VrxStatus (*fn)(const S*, D*, int, int, int), const char* name) {
    auto g = gridValues();
    std::vector<S> x(g.begin(), g.end());
    std::vector<D> d(x.size());
    for (int mode : kModes)
        for (int sf : kSfs) {
            chunked(x, d, [&](const S* s, D* o, int n) { return fn(s, o, n, mode, sf); });
            for (size_t i = 0; i < x.size(); ++i) {
                ASSERT_EQ(d[i], refToInt<D>(x[i], mode, sf)) << name << " x=" << x[i] << " mode " << mode << " sf " << sf;
            }
        }
}

TEST(ConvertFloatToInt, Grid) {
    checkGrid(vrxsConvert_32f8s_Sfs, "32f8s");
    checkGrid(vrxsConvert_32f8u_Sfs, "32f8u");
    checkGrid(vrxsConvert_32f16s_Sfs, "32f16s");
    checkGrid(vrxsConvert_32f16u_Sfs, "32f16u");
    checkGrid(vrxsConvert_32f32s_Sfs, "32f32s");
    checkGrid(vrxsConvert_64f16s_Sfs, "64f16s");
    checkGrid(vrxsConvert_64f32s_Sfs, "64f32s");
    checkGrid(vrxsConvert_64f64s_Sfs, "64f64s");
}

TEST(ConvertFloatToInt, NarrowingTo32fClampsToLargestFinite) {
    // 64f32f: every magnitude beyond the largest float, infinity included,
    // gives the largest finite float of its sign, in every caller mode
    std::vector<double> big = {1e300, -1e300, NAN, 1.5, INFINITY, -INFINITY, 3.4028235677973366e+38,
                               3.4028234663852886e+38, -3.4028235e38, 1e-320, -0.0};
    for (int k = 0; k < 40; ++k) big.push_back(ldexp(1.0, k * 10 - 200) * (k & 1 ? -1.7 : 1.3));
    for (unsigned rc : {vt::kRoundNear, vt::kRoundDown, vt::kRoundUp, vt::kRoundZero}) {
        vt::MxcsrScope scope;
        _mm_setcsr(0x1F80 | rc);
        std::vector<float> f(big.size());
        chunked(big, f, vrxsConvert_64f32f);
        for (size_t i = 0; i < big.size(); ++i) {
            double c = std::min(3.4028234663852886e+38, std::max(-3.4028234663852886e+38, big[i]));
            volatile double vc = c;
            float want = static_cast<float>(vc);
            if (isnan(big[i])) EXPECT_TRUE(isnan(f[i]));
            else EXPECT_EQ(fBits(f[i]), fBits(want)) << big[i] << " rc " << rc;
        }
    }
}

// --------------------------------------------------------- integer inputs
// Every 8-bit and 16-bit input widened exactly.
template <class S, class D>
void checkEveryInput(VrxStatus (*fn)(const S*, D*, int)) {
    const int lo = std::numeric_limits<S>::min(), n = std::numeric_limits<S>::max() - lo + 1;
    std::vector<S> s(n);
    for (int i = 0; i < n; ++i) s[i] = static_cast<S>(lo + i);
    std::vector<D> d(n);
    chunked(s, d, fn);
    for (int i = 0; i < n; ++i) ASSERT_EQ(d[i], static_cast<D>(lo + i));
}

TEST(ConvertInt, EveryNarrowInputWidened) {
    checkEveryInput(vrxsConvert_16s32f);
    checkEveryInput(vrxsConvert_16u32f);
    checkEveryInput(vrxsConvert_16s32s);
    checkEveryInput(vrxsConvert_8u32f);
    checkEveryInput(vrxsConvert_8s32f);
    checkEveryInput(vrxsConvert_8s16s);
}

// Destinations of several MiB take the streaming-store path: same values,
// from any alignment, head and tail included.
TEST(ConvertInt, LargeVectorsSameValues) {
    const int n = (24 << 20) / 4 + 13;  // 32 MiB or more moved: streaming stores
    std::vector<Vrx16s> s(n);
    std::vector<float> fs(n);
    for (int i = 0; i < n; ++i) { s[i] = static_cast<Vrx16s>(i * 7919); fs[i] = static_cast<float>(i) * 0.37f - 1000.0f; }
    for (size_t off : {0, 36}) {
        vt::Buffer d(n * sizeof(double) + 64, off);
        ASSERT_EQ(vrxsConvert_16s32f(s.data(), d.as<float>(), n), vrxOk);
        for (int i = 0; i < n; ++i) ASSERT_EQ(d.as<float>()[i], static_cast<float>(s[i])) << i;
        ASSERT_EQ(vrxsConvert_32f64f(fs.data(), d.as<double>(), n), vrxOk);
        for (int i = 0; i < n; ++i) ASSERT_EQ(d.as<double>()[i], static_cast<double>(fs[i])) << i;
        ASSERT_TRUE(d.guardsIntact());
    }
}

// x * 2^-sf for integers, rounded in mode (1 nearest-even, 0 toward zero,
// else half away) with exact integer arithmetic.
__int128 shiftRound(__int128 x, int sf, int mode) {
    if (sf <= 0) return x * (static_cast<__int128>(1) << (-sf > 100 ? 100 : -sf));
    if (sf > 120) sf = 120;
    __int128 p = static_cast<__int128>(1) << sf;
    __int128 q = x / p, r = x % p;   // truncated
    if (mode == 0 || r == 0) return q;
    __int128 ar = r < 0 ? -r : r, twice = 2 * ar;
    bool up = twice > p || (twice == p && (mode != 1 || (q & 1)));
    return up ? q + (x < 0 ? -1 : 1) : q;
}
// A 24-bit sample of three bytes, little-endian.
int32_t read24(const Vrx8u* b, size_t i, bool sgn) {
    const int32_t v = b[3 * i] | (b[3 * i + 1] << 8) | (b[3 * i + 2] << 16);
    return sgn ? v << 8 >> 8 : v;
}

TEST(ConvertInt, Every16sInputScaled) {
    std::vector<Vrx16s> s(65536);
    for (int i = 0; i < 65536; ++i) s[i] = static_cast<Vrx16s>(i - 32768);
    std::vector<float> f(65536);
    std::vector<Vrx8s> b(65536);
    for (int sf = -20; sf <= 40; ++sf) {
        chunked(s, f, [sf](const Vrx16s* a, float* d, int n) { return vrxsConvert_16s32f_Sfs(a, d, n, sf); });
        for (int i = 0; i < 65536; ++i) ASSERT_EQ(f[i], static_cast<float>(ldexp(s[i], -sf))) << s[i] << " sf " << sf;
        for (int mode : {1, 0, 2, 9}) {
            chunked(s, b, [=](const Vrx16s* a, Vrx8s* d, int n) { return vrxsConvert_16s8s_Sfs(a, d, n, mode, sf); });
            for (int i = 0; i < 65536; ++i)
                ASSERT_EQ(b[i], sat<Vrx8s>(shiftRound(s[i], sf, mode))) << s[i] << " sf " << sf << " mode " << mode;
        }
    }
}

std::vector<int64_t> wideValues(bool is64) {
    std::vector<int64_t> v = {0, 1, -1, 2, -2, 3, 5, -5, 127, 128, -129, 32767, 32768, -32768, -32769,
                              8388607, 8388608, -8388608, -8388609, 16777215, 16777216,
                              INT32_MAX, INT32_MIN, INT32_MAX - 1, INT32_MIN + 1, 0x40000000, -0x40000000};
    if (is64) for (int64_t x : {INT64_MAX, INT64_MIN, INT64_MAX - 1, INT64_MIN + 1, int64_t(1) << 62, -(int64_t(1) << 62),
                                int64_t(1) << 40, (int64_t(1) << 40) + (int64_t(1) << 39)}) v.push_back(x);
    vt::Rng rng(5);
    for (int i = 0; i < 600; ++i) {
        int64_t x = static_cast<int64_t>(rng.next());
        int sh = static_cast<int>(rng.range(0, is64 ? 63 : 32));
        x >>= sh;
        if (!is64) x = static_cast<int32_t>(x);
        v.push_back(x);
        // exact ties at a random scale
        int k = static_cast<int>(rng.range(1, 20));
        v.push_back(((x >> k) << k) | (int64_t(1) << (k - 1)));
    }
    if (!is64) for (auto& x : v) x = static_cast<int32_t>(x);
    return v;
}

TEST(ConvertInt, WideSourcesScaled) {
    auto w = wideValues(false);
    std::vector<Vrx32s> s(w.begin(), w.end());
    std::vector<Vrx32u> u(w.begin(), w.end());
    std::vector<Vrx16s> d16(s.size());
    std::vector<Vrx8u> d24(3 * s.size()), u24(3 * s.size());
    std::vector<float> f(s.size());
    std::vector<double> g(s.size());
    const int n = static_cast<int>(s.size());
    for (int sf = -40; sf <= 70; ++sf) {
        chunked(s, d16, [sf](const Vrx32s* a, Vrx16s* d, int n) { return vrxsConvert_32s16s_Sfs(a, d, n, sf); });
        chunked(s, f, [sf](const Vrx32s* a, float* d, int n) { return vrxsConvert_32s32f_Sfs(a, d, n, sf); });
        chunked(s, g, [sf](const Vrx32s* a, double* d, int n) { return vrxsConvert_32s64f_Sfs(a, d, n, sf); });
        ASSERT_EQ(vrxsConvert_32s24s_Sfs(s.data(), d24.data(), n, sf), vrxOk);
        ASSERT_EQ(vrxsConvert_32u24u_Sfs(u.data(), u24.data(), n, sf), vrxOk);
        for (int i = 0; i < n; ++i) {
            const __int128 r = shiftRound(s[i], sf, 1);
            ASSERT_EQ(d16[i], sat<Vrx16s>(r)) << s[i] << " sf " << sf;
            ASSERT_EQ(f[i], static_cast<float>(s[i]) * ldexpf(1.0f, -sf)) << s[i] << " sf " << sf;
            ASSERT_EQ(g[i], ldexp(static_cast<double>(s[i]), -sf)) << s[i] << " sf " << sf;
            ASSERT_EQ(read24(d24.data(), i, true), std::clamp<__int128>(r, -8388608, 8388607)) << s[i] << " sf " << sf;
            ASSERT_EQ(read24(u24.data(), i, false), std::min<__int128>(16777215, shiftRound(u[i], sf, 1))) << u[i] << " sf " << sf;
        }
    }
    auto w64 = wideValues(true);
    std::vector<Vrx64s> s64(w64.begin(), w64.end());
    std::vector<Vrx32s> d32(s64.size());
    for (int sf = -40; sf <= 70; ++sf)
        for (int mode : {1, 0, 2, 4}) {
            chunked(s64, d32, [=](const Vrx64s* a, Vrx32s* d, int n) { return vrxsConvert_64s32s_Sfs(a, d, n, mode, sf); });
            for (size_t i = 0; i < s64.size(); ++i)
                ASSERT_EQ(d32[i], sat<Vrx32s>(shiftRound(s64[i], sf, mode))) << s64[i] << " sf " << sf << " mode " << mode;
        }
}

// The saturating pack; integers to floating point rounded in the caller's
// mode; every float widened exactly.
TEST(ConvertInt, SaturatingPackAndWideToFloat) {
    auto w = wideValues(true);
    std::vector<Vrx64s> s64(w.begin(), w.end());
    std::vector<Vrx32s> s(w.size());
    for (size_t i = 0; i < w.size(); ++i) s[i] = static_cast<Vrx32s>(w[i]);
    std::vector<Vrx16s> d(s.size());
    chunked(s, d, vrxsConvert_32s16s);
    for (size_t i = 0; i < s.size(); ++i) ASSERT_EQ(d[i], sat<Vrx16s>(s[i]));
    std::vector<double> g(s64.size()), g32(s.size());
    std::vector<float> f(s.size());
    for (unsigned rc : {vt::kRoundNear, vt::kRoundDown, vt::kRoundUp, vt::kRoundZero}) {
        vt::MxcsrScope scope;
        _mm_setcsr(0x1F80 | rc);
        chunked(s64, g, vrxsConvert_64s64f);
        chunked(s, f, vrxsConvert_32s32f);
        chunked(s, g32, vrxsConvert_32s64f);
        for (size_t i = 0; i < s64.size(); ++i) {
            volatile int64_t x = s64[i];
            volatile int32_t y = s[i];
            ASSERT_TRUE(g[i] == static_cast<double>(x) && f[i] == static_cast<float>(y) && g32[i] == s[i]) << s64[i] << " rc " << rc;
        }
    }
    vt::Rng rng(3);
    std::vector<float> x(500);
    for (auto& v : x) v = bitsF(static_cast<uint32_t>(rng.next()));
    std::vector<double> y(x.size());
    chunked(x, y, vrxsConvert_32f64f);
    for (size_t i = 0; i < x.size(); ++i) ASSERT_TRUE(isnan(x[i]) ? isnan(y[i]) : y[i] == x[i]) << x[i];
}

// A scale factor of any size is no error: far out, zeros or the bounds.
TEST(ConvertInt, ScaleFactorsOfAnySize) {
    const Vrx32s s[4] = {1, -1, 0, INT32_MIN};
    Vrx16s d[4];
    ASSERT_EQ(vrxsConvert_32s16s_Sfs(s, d, 4, 1000), vrxOk);
    EXPECT_EQ(vt::vec(d, 4), (std::vector<Vrx16s>{0, 0, 0, 0}));
    ASSERT_EQ(vrxsConvert_32s16s_Sfs(s, d, 4, INT32_MIN), vrxOk);
    EXPECT_EQ(vt::vec(d, 4), (std::vector<Vrx16s>{32767, -32768, 0, -32768}));
}

// The float multiplier of 16s32f comes from halving (doubling) 1.0 once a
// unit of sf: at the extreme counts it is zero or infinity, so values keep
// their sign and zero times infinity is NaN.
TEST(ConvertInt, ScaleFactorExtremesTo32f) {
    const Vrx16s s[5] = {32767, -32768, 1, -1, 0};
    struct Case { int sf; float mul; };
    const Case cases[] = {{INT_MIN, INFINITY}, {INT_MIN + 1, INFINITY}, {-150, INFINITY},
                          {INT_MAX, 0.0f}, {INT_MAX - 1, 0.0f}, {200, 0.0f}};
    for (const auto& c : cases) {
        float d[5];
        ASSERT_EQ(vrxsConvert_16s32f_Sfs(s, d, 5, c.sf), vrxOk) << c.sf;
        for (int i = 0; i < 5; ++i) {
            volatile float want = static_cast<float>(s[i]) * c.mul;
            if (isnan(want)) EXPECT_TRUE(isnan(d[i])) << c.sf << " x " << s[i];
            else EXPECT_EQ(fBits(d[i]), fBits(want)) << c.sf << " x " << s[i];
        }
    }
}

// 16s64f is x * 2^-sf rounded once in the caller's mode, for every sf (the
// ordinary ones and the extremes): the long double product is exact here,
// and its narrowing rounds once.
TEST(ConvertInt, ScaleFactorExtremesTo64f) {
    std::vector<Vrx16s> s(65536);
    for (int i = 0; i < 65536; ++i) s[i] = static_cast<Vrx16s>(i - 32768);
    std::vector<double> d(s.size());
    const int sfs[] = {0, 1, -7, 15, 40, 1022, 1023, 1040, 1073, 1074, 1075, 1080, 1089, 1090, 1100, 2043, 2044, 2045, 5000, INT_MAX,
                       -1022, -1023, -1024, -1025, -1100, -5000, INT_MIN + 1, INT_MIN};
    const struct { unsigned rc; int fe; } modes[] = {{vt::kRoundNear, FE_TONEAREST}, {vt::kRoundUp, FE_UPWARD},
                                                     {vt::kRoundDown, FE_DOWNWARD}, {vt::kRoundZero, FE_TOWARDZERO}};
    for (const auto& m : modes) {
        for (int sf : sfs) {
            {
                vt::MxcsrScope scope;
                _mm_setcsr(0x1F80 | m.rc);
                chunked(s, d, [sf](const Vrx16s* a, double* o, int n) { return vrxsConvert_16s64f_Sfs(a, o, n, sf); });
            }
            fesetround(m.fe);
            size_t bad = s.size();
            for (size_t i = 0; i < s.size() && bad == s.size(); ++i) {
                volatile long double exact = ldexpl(static_cast<long double>(s[i]), -std::clamp(sf, -20000, 20000));
                if (vt::dBits(d[i]) != vt::dBits(static_cast<double>(exact))) bad = i;
            }
            fesetround(FE_TONEAREST);
            ASSERT_EQ(bad, s.size()) << "x " << s[std::min(bad, s.size() - 1)] << " sf " << sf << " rc " << m.rc;
        }
    }
}

// ------------------------------------------------------------------ 24-bit
TEST(Convert24, ReadAndWrite) {
    vt::Rng rng(9);
    std::vector<Vrx8u> b(3 * 300);
    rng.fill(b.data(), b.size());
    b[0] = b[1] = b[2] = 0xFF;
    for (int len : {1, 5, 15, 16, 17, 31, 33, 70, 300}) {
        std::vector<Vrx32s> s(len);
        std::vector<Vrx32u> u(len);
        std::vector<float> fs(len), fu(len);
        ASSERT_EQ(vrxsConvert_24s32s(b.data(), s.data(), len), vrxOk);
        ASSERT_EQ(vrxsConvert_24u32u(b.data(), u.data(), len), vrxOk);
        ASSERT_EQ(vrxsConvert_24s32f(b.data(), fs.data(), len), vrxOk);
        ASSERT_EQ(vrxsConvert_24u32f(b.data(), fu.data(), len), vrxOk);
        for (int i = 0; i < len; ++i) {
            const int32_t sv = read24(b.data(), i, true), uv = read24(b.data(), i, false);
            ASSERT_TRUE(u[i] == Vrx32u(uv) && s[i] == sv && fu[i] == float(uv) && fs[i] == float(sv)) << len << " " << i;
        }
        EXPECT_EQ(s[0], -1);
    }
    // writing: scale, clamp to the 24-bit range (NaN to its lower end), round to nearest even
    auto g = gridValues();
    std::vector<float> x(g.begin(), g.end());
    std::vector<Vrx8u> o(3 * x.size());
    for (int sf : {0, 3, -3, 20, -127, 127, 500, -500}) {
        const float mul = bitsF(static_cast<uint32_t>(127 - std::clamp(sf, -127, 127)) << 23);
        for (bool sgn : {false, true}) {
            ASSERT_EQ((sgn ? vrxsConvert_32f24s_Sfs : vrxsConvert_32f24u_Sfs)(x.data(), o.data(), static_cast<int>(x.size()), sf), vrxOk);
            const double lo = sgn ? -8388608.0 : 0.0, hi = sgn ? 8388607.0 : 16777215.0;
            for (size_t i = 0; i < x.size(); ++i) {
                const float v = x[i] * mul;
                const double want = isnan(v) ? lo : roundRef(std::clamp<double>(v, lo, hi), 1);
                ASSERT_EQ(read24(o.data(), i, sgn), want) << x[i] << " sf " << sf << " signed " << sgn;
            }
        }
    }
}

// --------------------------------------------------------- control word
// Every conversion leaves the caller's control bits as they were, under
// each rounding mode, with flush-to-zero and denormals-are-zero on or off,
// and leaves no invalid flag. The mode-driven ones also give the bits of a
// call under nearest, run with the invalid exception unmasked, and keep an
// invalid flag that the caller had up.
TEST(ConvertControlWord, RestoredUnderEveryCallerMode) {
    const std::vector<double> g = gridValues();
    const int n = static_cast<int>(g.size());
    const std::vector<float> f(g.begin(), g.end());
    std::vector<Vrx64s> i64(n);
    std::vector<Vrx32s> i32(n);
    std::vector<Vrx16s> i16(n);
    for (int i = 0; i < n; ++i) {
        i64[i] = static_cast<Vrx64s>(g[i] * 1e6 > 9e18 ? 0 : g[i] * 1e6);
        i32[i] = static_cast<Vrx32s>(i64[i]);
        i16[i] = static_cast<Vrx16s>(i32[i]);
    }
    std::vector<uint8_t> out(16 * n), b24(3 * n, 0x5A);
    auto* o = out.data();
    struct Call {
        std::string name;
        bool modeDriven;
        std::function<VrxStatus()> run;
    };
    std::vector<Call> calls = {
        {"8u32f", false, [&] { return vrxsConvert_8u32f(b24.data(), (float*)o, n); }},
        {"8s32f", false, [&] { return vrxsConvert_8s32f((Vrx8s*)b24.data(), (float*)o, n); }},
        {"16u32f", false, [&] { return vrxsConvert_16u32f((Vrx16u*)i16.data(), (float*)o, n); }},
        {"16s32f", false, [&] { return vrxsConvert_16s32f(i16.data(), (float*)o, n); }},
        {"8s16s", false, [&] { return vrxsConvert_8s16s((Vrx8s*)b24.data(), (Vrx16s*)o, n); }},
        {"16s32s", false, [&] { return vrxsConvert_16s32s(i16.data(), (Vrx32s*)o, n); }},
        {"32s32f", false, [&] { return vrxsConvert_32s32f(i32.data(), (float*)o, n); }},
        {"32s64f", false, [&] { return vrxsConvert_32s64f(i32.data(), (double*)o, n); }},
        {"32f64f", false, [&] { return vrxsConvert_32f64f(f.data(), (double*)o, n); }},
        {"64s64f", false, [&] { return vrxsConvert_64s64f(i64.data(), (double*)o, n); }},
        {"32s16s", false, [&] { return vrxsConvert_32s16s(i32.data(), (Vrx16s*)o, n); }},
        {"64f32f", false, [&] { return vrxsConvert_64f32f(g.data(), (float*)o, n); }},
        {"24s32s", false, [&] { return vrxsConvert_24s32s(b24.data(), (Vrx32s*)o, n); }},
        {"24u32u", false, [&] { return vrxsConvert_24u32u(b24.data(), (Vrx32u*)o, n); }},
        {"24s32f", false, [&] { return vrxsConvert_24s32f(b24.data(), (float*)o, n); }},
        {"24u32f", false, [&] { return vrxsConvert_24u32f(b24.data(), (float*)o, n); }},
        {"16s32f_Sfs", false, [&] { return vrxsConvert_16s32f_Sfs(i16.data(), (float*)o, n, 300); }},
        {"32s32f_Sfs", false, [&] { return vrxsConvert_32s32f_Sfs(i32.data(), (float*)o, n, -100); }},
        {"32s64f_Sfs", false, [&] { return vrxsConvert_32s64f_Sfs(i32.data(), (double*)o, n, 2000); }},
        {"16s64f_Sfs", false, [&] { return vrxsConvert_16s64f_Sfs(i16.data(), (double*)o, n, -5); }},
        {"32s16s_Sfs", false, [&] { return vrxsConvert_32s16s_Sfs(i32.data(), (Vrx16s*)o, n, 3); }},
        {"32s24s_Sfs", false, [&] { return vrxsConvert_32s24s_Sfs(i32.data(), o, n, 1); }},
        {"32u24u_Sfs", false, [&] { return vrxsConvert_32u24u_Sfs((Vrx32u*)i32.data(), o, n, -1); }},
        {"16s8s_Sfs", false, [&] { return vrxsConvert_16s8s_Sfs(i16.data(), (Vrx8s*)o, n, 2, 3); }},
        {"64s32s_Sfs", false, [&] { return vrxsConvert_64s32s_Sfs(i64.data(), (Vrx32s*)o, n, 2, 5); }},
        {"32f24s", true, [&] { return vrxsConvert_32f24s_Sfs(f.data(), o, n, 2); }},
        {"32f24u", true, [&] { return vrxsConvert_32f24u_Sfs(f.data(), o, n, -2); }},
    };
    for (int mode : {0, 1, 2})
        for (int sf : {0, 3}) {
            const std::string at = " mode " + std::to_string(mode) + " sf " + std::to_string(sf);
            calls.push_back({"32f8s" + at, true, [=, &f] { return vrxsConvert_32f8s_Sfs(f.data(), (Vrx8s*)o, n, mode, sf); }});
            calls.push_back({"32f8u" + at, true, [=, &f] { return vrxsConvert_32f8u_Sfs(f.data(), (Vrx8u*)o, n, mode, sf); }});
            calls.push_back({"32f16s" + at, true, [=, &f] { return vrxsConvert_32f16s_Sfs(f.data(), (Vrx16s*)o, n, mode, sf); }});
            calls.push_back({"32f16u" + at, true, [=, &f] { return vrxsConvert_32f16u_Sfs(f.data(), (Vrx16u*)o, n, mode, sf); }});
            calls.push_back({"32f32s" + at, true, [=, &f] { return vrxsConvert_32f32s_Sfs(f.data(), (Vrx32s*)o, n, mode, sf); }});
            calls.push_back({"64f16s" + at, true, [=, &g] { return vrxsConvert_64f16s_Sfs(g.data(), (Vrx16s*)o, n, mode, sf); }});
            calls.push_back({"64f32s" + at, true, [=, &g] { return vrxsConvert_64f32s_Sfs(g.data(), (Vrx32s*)o, n, mode, sf); }});
            calls.push_back({"64f64s" + at, true, [=, &g] { return vrxsConvert_64f64s_Sfs(g.data(), (Vrx64s*)o, n, mode, sf); }});
        }
    for (const Call& c : calls) {
        std::vector<uint8_t> ref;
        {
            vt::MxcsrScope scope;
            _mm_setcsr(0x1F80);
            ASSERT_EQ(c.run(), vrxOk) << c.name;
            ref = out;
        }
        for (unsigned rc : {vt::kRoundNear, vt::kRoundDown, vt::kRoundUp, vt::kRoundZero})
            for (unsigned w : {0x1F80u | rc, 0x1F80u | rc | vt::kFtz | vt::kDaz, 0x1F00u | rc}) {
                if (w == (0x1F00u | rc) && !c.modeDriven) continue;
                vt::MxcsrScope scope;
                _mm_setcsr(w);
                ASSERT_EQ(c.run(), vrxOk) << c.name;
                EXPECT_EQ(_mm_getcsr() & ~0x3Fu, w) << c.name << " rc " << rc;
                EXPECT_EQ(_mm_getcsr() & 1u, 0u) << c.name << ": invalid flag left behind, rc " << rc;
                if (!c.modeDriven) continue;
                EXPECT_EQ(out, ref) << c.name << " rc " << rc;
                _mm_setcsr(w | 1u);
                c.run();
                EXPECT_EQ(_mm_getcsr() & 1u, 1u) << c.name << ": the caller's invalid flag was cleared";
            }
    }
}

}  // namespace
