// Conversions: float to integer over a grid of ties, bounds and non-finite
// values in the three rounding modes; every 8-bit and 16-bit input of the
// integer paths over scale factors -20..40; 24-bit samples; the control
// word after each call under every caller rounding mode.
#include <fenv.h>
#include <float.h>
#include <math.h>

#include <functional>
#include <limits>
#include <type_traits>

#include "vrx_test.h"

namespace {

template <class S, class D> D* dstOf(VrxStatus (*)(const S*, D*, int, int, int)) { return nullptr; }

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

template <class D>
D satRef(double r) {
    if (isnan(r)) return std::numeric_limits<D>::min();
    if (r >= static_cast<double>(std::numeric_limits<D>::max())) return std::numeric_limits<D>::max();
    if (r <= static_cast<double>(std::numeric_limits<D>::min())) return std::numeric_limits<D>::min();
    return static_cast<D>(r);
}

float mulOf(int sf) { return bitsF(0x3F800000u - (static_cast<uint32_t>(sf) << 23)); }

// Float to integer: scale by the power of two, NaN to the lower bound,
// round, saturate.
template <class D>
D refF2I(float x, int mode, int sf) {
    float v = sf ? x * mulOf(sf) : x;
    if (isnan(v)) return std::numeric_limits<D>::min();
    return satRef<D>(roundRef(v, mode));
}
template <class D>
D refD2I(double x, int mode, int sf) {
    double v = sf ? x * static_cast<double>(mulOf(sf)) : x;
    if (isnan(v)) return std::numeric_limits<D>::min();
    double r = roundRef(v, mode);
    if constexpr (sizeof(D) == 8) {
        if (r >= 9223372036854775808.0) return INT64_MAX;
        if (r < -9223372036854775808.0) return INT64_MIN;
        return static_cast<D>(r);
    } else {
        return satRef<D>(r);
    }
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
                const D want = sizeof(S) == 4 ? refF2I<D>(static_cast<float>(x[i]), mode, sf) : refD2I<D>(x[i], mode, sf);
                ASSERT_EQ(d[i], want) << name << " x=" << x[i] << " mode " << mode << " sf " << sf;
            }
        }
}

TEST(ConvertFloatToInt, GridFrom32f) {
    checkGrid(vrxsConvert_32f8s_Sfs, "32f8s");
    checkGrid(vrxsConvert_32f8u_Sfs, "32f8u");
    checkGrid(vrxsConvert_32f16s_Sfs, "32f16s");
    checkGrid(vrxsConvert_32f16u_Sfs, "32f16u");
    checkGrid(vrxsConvert_32f32s_Sfs, "32f32s");
}

TEST(ConvertFloatToInt, GridFrom64f) {
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
    for (size_t off : {0, 4, 36}) {
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
template <class D>
D satI(__int128 v) {
    if (v > std::numeric_limits<D>::max()) return std::numeric_limits<D>::max();
    if (v < std::numeric_limits<D>::min()) return std::numeric_limits<D>::min();
    return static_cast<D>(v);
}

TEST(ConvertInt, Every16sInputScaled) {
    std::vector<Vrx16s> s(65536);
    for (int i = 0; i < 65536; ++i) s[i] = static_cast<Vrx16s>(i - 32768);
    std::vector<float> f(65536);
    std::vector<double> g(65536);
    std::vector<Vrx8s> b(65536);
    for (int sf = -20; sf <= 40; ++sf) {
        chunked(s, f, [sf](const Vrx16s* a, float* d, int n) { return vrxsConvert_16s32f_Sfs(a, d, n, sf); });
        chunked(s, g, [sf](const Vrx16s* a, double* d, int n) { return vrxsConvert_16s64f_Sfs(a, d, n, sf); });
        for (int i = 0; i < 65536; ++i) {
            ASSERT_EQ(f[i], static_cast<float>(ldexp(s[i], -sf))) << s[i] << " sf " << sf;
            ASSERT_EQ(g[i], ldexp(s[i], -sf)) << s[i] << " sf " << sf;
        }
        for (int mode : {1, 0, 2, 9}) {
            chunked(s, b, [=](const Vrx16s* a, Vrx8s* d, int n) { return vrxsConvert_16s8s_Sfs(a, d, n, mode, sf); });
            for (int i = 0; i < 65536; ++i)
                ASSERT_EQ(b[i], satI<Vrx8s>(shiftRound(s[i], sf, mode))) << s[i] << " sf " << sf << " mode " << mode;
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
    std::vector<Vrx8u> d24(3 * s.size());
    std::vector<float> f(s.size());
    std::vector<double> g(s.size());
    for (int sf = -40; sf <= 70; ++sf) {
        chunked(s, d16, [sf](const Vrx32s* a, Vrx16s* d, int n) { return vrxsConvert_32s16s_Sfs(a, d, n, sf); });
        chunked(s, f, [sf](const Vrx32s* a, float* d, int n) { return vrxsConvert_32s32f_Sfs(a, d, n, sf); });
        chunked(s, g, [sf](const Vrx32s* a, double* d, int n) { return vrxsConvert_32s64f_Sfs(a, d, n, sf); });
        ASSERT_EQ(vrxsConvert_32s24s_Sfs(s.data(), d24.data(), static_cast<int>(s.size()), sf), vrxOk);
        for (size_t i = 0; i < s.size(); ++i) {
            ASSERT_EQ(d16[i], satI<Vrx16s>(shiftRound(s[i], sf, 1))) << s[i] << " sf " << sf;
            ASSERT_EQ(f[i], static_cast<float>(s[i]) * ldexpf(1.0f, -sf)) << s[i] << " sf " << sf;
            ASSERT_EQ(g[i], ldexp(static_cast<double>(s[i]), -sf)) << s[i] << " sf " << sf;
            int32_t want = static_cast<int32_t>(std::max<__int128>(-8388608, std::min<__int128>(8388607, shiftRound(s[i], sf, 1))));
            int32_t got = static_cast<int32_t>(d24[3 * i] | (d24[3 * i + 1] << 8) | (d24[3 * i + 2] << 16)) << 8 >> 8;
            ASSERT_EQ(got, want) << s[i] << " sf " << sf;
        }
        ASSERT_EQ(vrxsConvert_32u24u_Sfs(u.data(), d24.data(), static_cast<int>(u.size()), sf), vrxOk);
        for (size_t i = 0; i < u.size(); ++i) {
            uint32_t want = static_cast<uint32_t>(std::min<__int128>(16777215, shiftRound(u[i], sf, 1)));
            uint32_t got = d24[3 * i] | (d24[3 * i + 1] << 8) | (d24[3 * i + 2] << 16);
            ASSERT_EQ(got, want) << u[i] << " sf " << sf;
        }
    }
    auto w64 = wideValues(true);
    std::vector<Vrx64s> s64(w64.begin(), w64.end());
    std::vector<Vrx32s> d32(s64.size());
    for (int sf = -40; sf <= 70; ++sf)
        for (int mode : {1, 0, 2, 4}) {
            chunked(s64, d32, [=](const Vrx64s* a, Vrx32s* d, int n) { return vrxsConvert_64s32s_Sfs(a, d, n, mode, sf); });
            for (size_t i = 0; i < s64.size(); ++i)
                ASSERT_EQ(d32[i], satI<Vrx32s>(shiftRound(s64[i], sf, mode))) << s64[i] << " sf " << sf << " mode " << mode;
        }
}

TEST(ConvertInt, SaturatingPackAndWideToFloat) {
    auto w = wideValues(true);
    std::vector<Vrx32s> s(w.size());
    for (size_t i = 0; i < w.size(); ++i) s[i] = static_cast<Vrx32s>(w[i]);
    std::vector<Vrx16s> d(s.size());
    chunked(s, d, vrxsConvert_32s16s);
    for (size_t i = 0; i < s.size(); ++i) ASSERT_EQ(d[i], satI<Vrx16s>(s[i]));
    std::vector<Vrx64s> s64(w.begin(), w.end());
    std::vector<double> g(s64.size());
    std::vector<float> f(s.size());
    std::vector<double> g32(s.size());
    // rounded in the caller's mode
    for (unsigned rc : {vt::kRoundNear, vt::kRoundDown, vt::kRoundUp, vt::kRoundZero}) {
        vt::MxcsrScope scope;
        _mm_setcsr(0x1F80 | rc);
        chunked(s64, g, vrxsConvert_64s64f);
        chunked(s, f, vrxsConvert_32s32f);
        chunked(s, g32, vrxsConvert_32s64f);
        for (size_t i = 0; i < s64.size(); ++i) {
            volatile int64_t x = s64[i];
            ASSERT_EQ(g[i], static_cast<double>(x)) << s64[i] << " rc " << rc;
        }
        for (size_t i = 0; i < s.size(); ++i) {
            volatile int32_t x = s[i];
            ASSERT_EQ(f[i], static_cast<float>(x)) << s[i] << " rc " << rc;
            ASSERT_EQ(g32[i], static_cast<double>(s[i]));
        }
    }
    vt::Rng rng(3);
    std::vector<float> x(500);
    for (auto& v : x) v = bitsF(static_cast<uint32_t>(rng.next()));
    std::vector<double> y(x.size());
    chunked(x, y, vrxsConvert_32f64f);
    for (size_t i = 0; i < x.size(); ++i) {
        if (isnan(x[i])) ASSERT_TRUE(isnan(y[i]));
        else ASSERT_EQ(y[i], static_cast<double>(x[i]));
    }
}

TEST(ConvertInt, ScaleShortcuts) {
    const Vrx32s s[4] = {1, -1, 0, INT32_MIN};
    Vrx16s d[4];
    ASSERT_EQ(vrxsConvert_32s16s_Sfs(s, d, 4, -15), vrxOk);
    EXPECT_EQ(d[0], 32767); EXPECT_EQ(d[1], -32768); EXPECT_EQ(d[2], 0); EXPECT_EQ(d[3], -32768);
    ASSERT_EQ(vrxsConvert_32s16s_Sfs(s, d, 4, 1000), vrxOk);
    for (int i = 0; i < 4; ++i) EXPECT_EQ(d[i], 0);
    ASSERT_EQ(vrxsConvert_32s16s_Sfs(s, d, 4, INT32_MIN), vrxOk);
    EXPECT_EQ(d[0], 32767);
    const Vrx16s t[2] = {32767, -32768};
    Vrx8s e[2];
    ASSERT_EQ(vrxsConvert_16s8s_Sfs(t, e, 2, 2, 18), vrxOk);
    EXPECT_EQ(e[0], 0); EXPECT_EQ(e[1], 0);
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

// 16s64f is x * 2^-sf rounded once in the caller's mode, for every sf: the
// long double product is exact here, and its narrowing rounds once.
TEST(ConvertInt, ScaleFactorExtremesTo64f) {
    std::vector<Vrx16s> s(65536);
    for (int i = 0; i < 65536; ++i) s[i] = static_cast<Vrx16s>(i - 32768);
    std::vector<double> d(s.size());
    const int sfs[] = {1022, 1023, 1040, 1073, 1074, 1075, 1080, 1089, 1090, 1100, 2043, 2044, 2045, 5000, INT_MAX,
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
            int mismatches = 0;
            for (size_t i = 0; i < s.size() && mismatches < 5; ++i) {
                const int e = sf > 20000 ? 20000 : sf < -20000 ? -20000 : sf;
                volatile long double exact = ldexpl(static_cast<long double>(s[i]), -e);
                const double want = static_cast<double>(exact);
                if (vt::dBits(d[i]) != vt::dBits(want)) {
                    ++mismatches;
                    ADD_FAILURE() << "x " << s[i] << " sf " << sf << " rc " << m.rc << ": " << d[i] << " want " << want;
                }
            }
            fesetround(FE_TONEAREST);
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
            uint32_t v = b[3 * i] | (b[3 * i + 1] << 8) | (b[3 * i + 2] << 16);
            int32_t sv = v >= 0x800000 ? static_cast<int32_t>(v) - 0x1000000 : static_cast<int32_t>(v);
            ASSERT_EQ(u[i], v);
            ASSERT_EQ(s[i], sv);
            ASSERT_EQ(fu[i], static_cast<float>(v));
            ASSERT_EQ(fs[i], static_cast<float>(sv));
        }
        EXPECT_EQ(s[0], -1);
    }
    auto g = gridValues();
    std::vector<float> x(g.begin(), g.end());
    std::vector<Vrx8u> o(3 * x.size());
    for (int sf : {0, 3, -3, 20, -127, 127, 500, -500}) {
        int c = sf > 127 ? 127 : (sf < -127 ? -127 : sf);
        float mul = bitsF(static_cast<uint32_t>(127 - c) << 23);
        for (int sgn = 0; sgn < 2; ++sgn) {
            auto fn = sgn ? vrxsConvert_32f24s_Sfs : vrxsConvert_32f24u_Sfs;
            ASSERT_EQ(fn(x.data(), o.data(), static_cast<int>(x.size()), sf), vrxOk);
            for (size_t i = 0; i < x.size(); ++i) {
                float v = x[i] * mul;
                double lo = sgn ? -8388608.0 : 0.0, hi = sgn ? 8388607.0 : 16777215.0;
                double r = isnan(v) ? lo : roundRef(std::min<double>(hi, std::max<double>(lo, v)), 1);
                int64_t want = static_cast<int64_t>(r) & 0xFFFFFF;
                int64_t got = o[3 * i] | (o[3 * i + 1] << 8) | (o[3 * i + 2] << 16);
                ASSERT_EQ(got, want) << x[i] << " sf " << sf << " signed " << sgn;
            }
        }
    }
    const float edge[2] = {NAN, 1.0e10f};
    Vrx8u e[6];
    ASSERT_EQ(vrxsConvert_32f24s_Sfs(edge, e, 2, 0), vrxOk);
    EXPECT_EQ(e[0], 0x00); EXPECT_EQ(e[1], 0x00); EXPECT_EQ(e[2], 0x80);  // -8388608
    EXPECT_EQ(e[3], 0xFF); EXPECT_EQ(e[4], 0xFF); EXPECT_EQ(e[5], 0x7F);  //  8388607
}

// --------------------------------------------------------- control word
// Under every caller rounding mode, with and without flush-to-zero and
// denormals-are-zero, the mode-driven conversions give the results of a
// call under nearest; the control bits come back unchanged; no invalid
// flag is left by NaN or out-of-range input, and one set by the caller stays.
TEST(ConvertControlWord, RestoredUnderEveryCallerMode) {
    std::vector<float> x;
    for (double v : gridValues()) x.push_back(static_cast<float>(v));
    std::vector<double> xd = gridValues();
    const int n = static_cast<int>(x.size());
    using Call = std::function<void(std::vector<uint8_t>&)>;
    std::vector<std::pair<std::string, Call>> calls;
    auto add = [&](const char* name, auto fn, const auto& src, int mode, int sf) {
        calls.push_back({std::string(name) + " mode " + std::to_string(mode) + " sf " + std::to_string(sf),
                         [=, &src](std::vector<uint8_t>& o) {
                             using D = std::remove_pointer_t<decltype(dstOf(fn))>;
                             o.resize(sizeof(D) * n);
                             fn(src.data(), reinterpret_cast<D*>(o.data()), n, mode, sf);
                         }});
    };
    for (int mode : {0, 1, 2}) {
        for (int sf : {0, 3}) {
            add("32f8s", vrxsConvert_32f8s_Sfs, x, mode, sf);
            add("32f8u", vrxsConvert_32f8u_Sfs, x, mode, sf);
            add("32f16s", vrxsConvert_32f16s_Sfs, x, mode, sf);
            add("32f16u", vrxsConvert_32f16u_Sfs, x, mode, sf);
            add("32f32s", vrxsConvert_32f32s_Sfs, x, mode, sf);
            add("64f16s", vrxsConvert_64f16s_Sfs, xd, mode, sf);
            add("64f32s", vrxsConvert_64f32s_Sfs, xd, mode, sf);
            add("64f64s", vrxsConvert_64f64s_Sfs, xd, mode, sf);
        }
    }
    calls.push_back({"32f24s", [=, &x](auto& o) { o.resize(3 * n); vrxsConvert_32f24s_Sfs(x.data(), o.data(), n, 2); }});
    calls.push_back({"32f24u", [=, &x](auto& o) { o.resize(3 * n); vrxsConvert_32f24u_Sfs(x.data(), o.data(), n, -2); }});
    for (auto& [name, call] : calls) {
        std::vector<uint8_t> ref, got;
        {
            vt::MxcsrScope scope;
            _mm_setcsr(0x1F80);
            call(ref);
        }
        for (unsigned rc : {vt::kRoundNear, vt::kRoundDown, vt::kRoundUp, vt::kRoundZero}) {
            for (unsigned extra : {0u, vt::kFtz | vt::kDaz, 0x0080u ^ 0x1F80u}) {
                vt::MxcsrScope scope;
                // the last variant unmasks every exception except invalid... and
                // is replaced by all masked with the invalid mask clear
                unsigned w = extra == (0x0080u ^ 0x1F80u) ? (0x1F00u | rc) : (0x1F80u | rc | extra);
                _mm_setcsr(w);
                call(got);
                unsigned after = _mm_getcsr();
                EXPECT_EQ(after & ~0x3Fu, w) << name << " rc " << rc;
                EXPECT_EQ(after & 1u, 0u) << name << ": invalid flag left behind, rc " << rc;
                EXPECT_EQ(got, ref) << name << " rc " << rc;
                _mm_setcsr(w | 1u);
                call(got);
                EXPECT_EQ(_mm_getcsr() & 1u, 1u) << name << ": the caller's invalid flag was cleared";
            }
        }
    }
}

// Every other conversion leaves the caller's control bits as they were,
// under each rounding mode, with flush-to-zero and denormals-are-zero on
// or off, and leaves no invalid flag.
TEST(ConvertControlWord, EveryConversionLeavesControlBits) {
    std::vector<double> g = gridValues();
    const int n = static_cast<int>(g.size());
    std::vector<float> f(g.begin(), g.end());
    std::vector<Vrx64s> i64(n);
    std::vector<Vrx32s> i32(n);
    std::vector<Vrx16s> i16(n);
    for (int i = 0; i < n; ++i) { i64[i] = static_cast<Vrx64s>(g[i] * 1e6 > 9e18 ? 0 : g[i] * 1e6); i32[i] = static_cast<Vrx32s>(i64[i]); i16[i] = static_cast<Vrx16s>(i32[i]); }
    std::vector<uint8_t> out(16 * n);
    std::vector<uint8_t> b24(3 * n, 0x5A);
    std::vector<std::pair<const char*, std::function<VrxStatus()>>> calls = {
        {"8u32f", [&] { return vrxsConvert_8u32f(b24.data(), (float*)out.data(), n); }},
        {"8s32f", [&] { return vrxsConvert_8s32f((Vrx8s*)b24.data(), (float*)out.data(), n); }},
        {"16u32f", [&] { return vrxsConvert_16u32f((Vrx16u*)i16.data(), (float*)out.data(), n); }},
        {"16s32f", [&] { return vrxsConvert_16s32f(i16.data(), (float*)out.data(), n); }},
        {"8s16s", [&] { return vrxsConvert_8s16s((Vrx8s*)b24.data(), (Vrx16s*)out.data(), n); }},
        {"16s32s", [&] { return vrxsConvert_16s32s(i16.data(), (Vrx32s*)out.data(), n); }},
        {"32s32f", [&] { return vrxsConvert_32s32f(i32.data(), (float*)out.data(), n); }},
        {"32s64f", [&] { return vrxsConvert_32s64f(i32.data(), (double*)out.data(), n); }},
        {"32f64f", [&] { return vrxsConvert_32f64f(f.data(), (double*)out.data(), n); }},
        {"64s64f", [&] { return vrxsConvert_64s64f(i64.data(), (double*)out.data(), n); }},
        {"32s16s", [&] { return vrxsConvert_32s16s(i32.data(), (Vrx16s*)out.data(), n); }},
        {"64f32f", [&] { return vrxsConvert_64f32f(g.data(), (float*)out.data(), n); }},
        {"24s32s", [&] { return vrxsConvert_24s32s(b24.data(), (Vrx32s*)out.data(), n); }},
        {"24u32u", [&] { return vrxsConvert_24u32u(b24.data(), (Vrx32u*)out.data(), n); }},
        {"24s32f", [&] { return vrxsConvert_24s32f(b24.data(), (float*)out.data(), n); }},
        {"24u32f", [&] { return vrxsConvert_24u32f(b24.data(), (float*)out.data(), n); }},
        {"16s32f_Sfs", [&] { return vrxsConvert_16s32f_Sfs(i16.data(), (float*)out.data(), n, 300); }},
        {"32s32f_Sfs", [&] { return vrxsConvert_32s32f_Sfs(i32.data(), (float*)out.data(), n, -100); }},
        {"32s64f_Sfs", [&] { return vrxsConvert_32s64f_Sfs(i32.data(), (double*)out.data(), n, 2000); }},
        {"16s64f_Sfs", [&] { return vrxsConvert_16s64f_Sfs(i16.data(), (double*)out.data(), n, -5); }},
        {"32s16s_Sfs", [&] { return vrxsConvert_32s16s_Sfs(i32.data(), (Vrx16s*)out.data(), n, 3); }},
        {"32s24s_Sfs", [&] { return vrxsConvert_32s24s_Sfs(i32.data(), out.data(), n, 1); }},
        {"32u24u_Sfs", [&] { return vrxsConvert_32u24u_Sfs((Vrx32u*)i32.data(), out.data(), n, -1); }},
        {"16s8s_Sfs", [&] { return vrxsConvert_16s8s_Sfs(i16.data(), (Vrx8s*)out.data(), n, 2, 3); }},
        {"64s32s_Sfs", [&] { return vrxsConvert_64s32s_Sfs(i64.data(), (Vrx32s*)out.data(), n, 2, 5); }},
    };
    for (auto& [name, call] : calls) {
        for (unsigned rc : {vt::kRoundNear, vt::kRoundDown, vt::kRoundUp, vt::kRoundZero}) {
            for (unsigned extra : {0u, vt::kFtz | vt::kDaz}) {
                vt::MxcsrScope scope;
                const unsigned w = 0x1F80u | rc | extra;
                _mm_setcsr(w);
                ASSERT_EQ(call(), vrxOk) << name;
                const unsigned after = _mm_getcsr();
                EXPECT_EQ(after & ~0x3Fu, w) << name << " rc " << rc;
                EXPECT_EQ(after & 1u, 0u) << name << " left the invalid flag";
            }
        }
    }
}

}  // namespace
