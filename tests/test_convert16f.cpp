// Half floats: every binary16 pattern in both directions, both rounding
// modes, on the hardware path and on the software path forced through the
// feature mask; the two must give the same bits, and both must match a
// reference conversion written here in double precision.
#include <math.h>

#include "vrx_test.h"
#include "vrx_testhooks.h"

namespace {

// Forces the software path for its lifetime and restores the mask after.
struct SoftwarePath {
    uint64_t old;
    SoftwarePath() : old(vrxSetFeatureMask(~VRX_CPU_F16C)) {}
    ~SoftwarePath() { vrxSetFeatureMask(old); }
};

// f(0) on the hardware path, then f(1) on the software path.
template <class F> void onBothPaths(F f) {
    f(0);
    SoftwarePath soft;
    f(1);
}

using vt::bitsF;
using vt::chunked;
using vt::fBits;

// binary16 to float: the exact value, NaNs made quiet with the payload kept.
uint32_t refHalfToFloat(uint16_t h) {
    uint32_t sign = (h & 0x8000u) << 16;
    int e = (h >> 10) & 0x1F, m = h & 0x3FF;
    if (e == 31) return sign | 0x7F800000u | (uint32_t(m) << 13) | (m ? 0x400000u : 0u);
    double v = e == 0 ? ldexp(m, -24) : ldexp(1024 + m, e - 25);
    return sign | fBits(static_cast<float>(v));
}

// Rounds q >= 0 to an integer: nearest-even or toward zero.
double roundMode(double q, bool near) {
    double fl = floor(q);
    if (!near) return fl;
    double diff = q - fl;
    if (diff > 0.5 || (diff == 0.5 && fmod(fl, 2.0) != 0.0)) return fl + 1;
    return fl;
}

// float to binary16 in the given mode.
uint16_t refFloatToHalf(float x, bool near) {
    uint32_t u = fBits(x);
    uint16_t sign = static_cast<uint16_t>((u >> 16) & 0x8000);
    uint32_t a = u & 0x7FFFFFFF;
    if (a > 0x7F800000) return sign | 0x7E00 | ((a >> 13) & 0x3FF);
    if (a == 0x7F800000) return sign | 0x7C00;
    double v = fabs(static_cast<double>(x));
    if (v < ldexp(1, -14)) return sign | static_cast<uint16_t>(roundMode(ldexp(v, 24), near));
    int k;
    frexp(v, &k);
    int E = k - 1;
    double r = roundMode(ldexp(v, 10 - E), near);
    if (r == 2048) { r = 1024; ++E; }
    if (E > 15) return sign | (near ? 0x7C00 : 0x7BFF);
    return sign | static_cast<uint16_t>(((E + 15) << 10) | (static_cast<int>(r) - 1024));
}

std::vector<uint16_t> allHalves() {
    std::vector<uint16_t> v(65536);
    for (int i = 0; i < 65536; ++i) v[i] = static_cast<uint16_t>(i);
    return v;
}


TEST(Convert16f, HalfToFloatEveryPattern) {
    auto h = allHalves();
    std::vector<float> hw(65536), sw(65536);
    onBothPaths([&](int soft) { chunked(h, soft ? sw : hw, vrxsConvert_16f32f); });
    for (int i = 0; i < 65536; ++i) {
        ASSERT_EQ(fBits(hw[i]), fBits(sw[i])) << std::hex << i;
        ASSERT_EQ(fBits(hw[i]), refHalfToFloat(static_cast<uint16_t>(i))) << std::hex << i;
    }
}

// Float patterns: every combination of sign, exponent and the ten mantissa
// bits that survive, with low bits at and around each rounding boundary.
std::vector<float> floatGrid() {
    static const uint32_t lows[] = {0x0, 0x1, 0x7FF, 0xFFF, 0x1000, 0x1001, 0x17FF, 0x1FFF, 0x0800};
    std::vector<float> v;
    v.reserve((1u << 19) * 9);
    for (uint32_t top = 0; top < (1u << 19); ++top)
        for (uint32_t lo : lows) v.push_back(bitsF((top << 13) | lo));
    return v;
}

TEST(Convert16f, FloatToHalfBothModesBothPaths) {
    auto x = floatGrid();
    std::vector<uint16_t> hw(x.size()), sw(x.size());
    for (int mode : {1, 0}) {
        onBothPaths([&](int soft) {
            ASSERT_EQ(vrxsConvert_32f16f(x.data(), (soft ? sw : hw).data(), static_cast<int>(x.size()), mode), vrxOk);
        });
        for (size_t i = 0; i < x.size(); ++i) {
            ASSERT_EQ(hw[i], sw[i]) << std::hex << fBits(x[i]) << " mode " << mode;
            ASSERT_EQ(hw[i], refFloatToHalf(x[i], mode == vrxRndNear)) << std::hex << fBits(x[i]) << " mode " << mode;
        }
    }
}

TEST(Convert16f, FloatToHalfTailsAndOtherModes) {
    vt::Rng rng(7);
    std::vector<float> x(3000);
    for (auto& f : x) f = static_cast<float>((rng.uniform() - 0.5) * ldexp(1.0, static_cast<int>(rng.range(-30, 18))));
    std::vector<uint16_t> a(x.size()), b(x.size());
    // every mode other than 1 and 2 rounds toward zero
    for (int mode : {0, 3, -1, 100}) {
        onBothPaths([&](int soft) {
            chunked(x, soft ? b : a, [mode](const Vrx32f* s, Vrx16f* d, int n) { return vrxsConvert_32f16f(s, d, n, mode); });
        });
        for (size_t i = 0; i < x.size(); ++i) {
            ASSERT_EQ(a[i], refFloatToHalf(x[i], false));
            ASSERT_EQ(b[i], a[i]);
        }
    }
}

TEST(Convert16f, ShortToHalfEveryValue) {
    std::vector<Vrx16s> s(65536);
    for (int i = 0; i < 65536; ++i) s[i] = static_cast<Vrx16s>(i - 32768);
    std::vector<uint16_t> hw(65536), sw(65536);
    for (int mode : {1, 0, 5}) {
        onBothPaths([&](int soft) {
            chunked(s, soft ? sw : hw, [mode](const Vrx16s* a, Vrx16f* d, int n) { return vrxsConvert_16s16f(a, d, n, mode); });
        });
        for (int i = 0; i < 65536; ++i) {
            ASSERT_EQ(hw[i], sw[i]) << s[i];
            ASSERT_EQ(hw[i], refFloatToHalf(static_cast<float>(s[i]), mode == vrxRndNear)) << s[i] << " mode " << mode;
        }
    }
}

// The reference of 16f16s: the exact value times 2^-sf, NaN to the lower
// bound, rounded and saturated.
int16_t refHalfToShort(uint16_t h, bool near, int sf) {
    float f = bitsF(refHalfToFloat(h));
    if (isnan(f)) return INT16_MIN;
    double v = ldexp(static_cast<double>(f), -sf);
    if (v >= 32767.0) return INT16_MAX;
    if (v <= -32768.0) return INT16_MIN;
    double r = v < 0 ? -roundMode(-v, near) : roundMode(v, near);
    return static_cast<int16_t>(r);
}

TEST(Convert16f, HalfToShortEveryPatternScaled) {
    auto h = allHalves();
    std::vector<Vrx16s> hw(65536), sw(65536);
    for (int mode : {1, 0}) {
        for (int sf = -20; sf <= 40; ++sf) {
            onBothPaths([&](int soft) {
                chunked(h, soft ? sw : hw, [=](const Vrx16f* s, Vrx16s* d, int n) { return vrxsConvert_16f16s_Sfs(s, d, n, mode, sf); });
            });
            for (int i = 0; i < 65536; ++i) {
                ASSERT_EQ(hw[i], sw[i]) << std::hex << i << std::dec << " sf " << sf;
                ASSERT_EQ(hw[i], refHalfToShort(static_cast<uint16_t>(i), mode == vrxRndNear, sf))
                    << std::hex << i << std::dec << " sf " << sf << " mode " << mode;
            }
        }
    }
}

// Both paths give the same bits under every caller rounding mode, with
// flush-to-zero and denormals-are-zero clear and set, in both rounding
// modes of the conversions: half to float of every half, back to half of
// every such float (a signaling NaN and values beyond the half range too),
// short to half and half to short. Every call gives the caller's control
// word back and leaves no invalid flag.
TEST(Convert16f, PathsAgreeUnderEveryControlWord) {
    auto h = allHalves();
    std::vector<float> f(65536);
    ASSERT_EQ(vrxsConvert_16f32f(h.data(), f.data(), 65536), vrxOk);
    for (float x : {-65520.0f, 1e-9f, 3.0e-5f, 1e10f, 0.0f}) f.push_back(x);
    const uint32_t signaling = 0x7F800001;  // written as bits: a float copy may quiet it
    memcpy(&f.back(), &signaling, 4);
    std::vector<Vrx16s> s(65536);
    for (int i = 0; i < 65536; ++i) s[i] = static_cast<Vrx16s>(i - 32768);
    for (int mode : {1, 0}) {
        std::vector<uint8_t> first;
        for (unsigned rc : {vt::kRoundNear, vt::kRoundDown, vt::kRoundUp, vt::kRoundZero})
            for (unsigned extra : {0u, vt::kFtz, vt::kFtz | vt::kDaz})
                for (int path = 0; path < 2; ++path) {
                    std::vector<float> f2(65536);
                    std::vector<uint16_t> h2(f.size()), h3(65536);
                    std::vector<Vrx16s> s2(65536);
                    const uint64_t old = vrxSetFeatureMask(path ? ~VRX_CPU_F16C : ~0ull);
                    vt::MxcsrScope scope;
                    const unsigned w = 0x1F80 | rc | extra;
                    auto check = [&](VrxStatus st, const char* what) {
                        EXPECT_EQ(st, vrxOk) << what;
                        EXPECT_EQ(_mm_getcsr() & ~0x3Eu, w) << what << " rc " << rc << " path " << path;
                        _mm_setcsr(w);
                    };
                    _mm_setcsr(w);
                    check(vrxsConvert_16f32f(h.data(), f2.data(), 65536), "16f32f");
                    check(vrxsConvert_32f16f(f.data(), h2.data(), static_cast<int>(f.size()), mode), "32f16f");
                    check(vrxsConvert_16s16f(s.data(), h3.data(), 65536, mode), "16s16f");
                    check(vrxsConvert_16f16s_Sfs(h.data(), s2.data(), 65536, mode, -10), "16f16s");
                    vrxSetFeatureMask(old);
                    std::vector<uint8_t> all;
                    auto add = [&](const auto& v) { all.insert(all.end(), (const uint8_t*)v.data(), (const uint8_t*)(v.data() + v.size())); };
                    add(f2), add(h2), add(h3), add(s2);
                    if (first.empty()) first = all;
                    ASSERT_TRUE(all == first) << "mode " << mode << " rc " << rc << " csr " << extra << " path " << path;
                }
    }
}

TEST(Convert16f, FinancialModeRejectedAfterPointerAndLength) {
    float x[4] = {1, 2, 3, 4};
    Vrx16f h[4] = {0xAAAA, 0xAAAA, 0xAAAA, 0xAAAA};
    Vrx16s s[4] = {1, 2, 3, 4};
    for (int path = 0; path < 2; ++path) {
        uint64_t old = vrxSetFeatureMask(path ? ~VRX_CPU_F16C : ~0ull);
        EXPECT_EQ(vrxsConvert_32f16f(x, h, 4, vrxRndFinancial), vrxErrRounding);
        EXPECT_EQ(vrxsConvert_16s16f(s, h, 4, vrxRndFinancial), vrxErrRounding);
        EXPECT_EQ(vrxsConvert_16f16s_Sfs(h, s, 4, vrxRndFinancial, 0), vrxErrRounding);
        EXPECT_EQ(vrxsConvert_32f16f(nullptr, h, 4, vrxRndFinancial), vrxErrNullPtr);
        EXPECT_EQ(vrxsConvert_32f16f(x, h, 0, vrxRndFinancial), vrxErrBadLength);
        vrxSetFeatureMask(old);
    }
    for (int i = 0; i < 4; ++i) EXPECT_EQ(h[i], 0xAAAA);
    EXPECT_EQ(s[0], 1);
}

}  // namespace
