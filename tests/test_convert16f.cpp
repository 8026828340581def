// Half floats: every binary16 pattern in both directions, both rounding
// modes, on the hardware path and on the software path forced through the
// feature mask; the two must give the same bits, and both must match a
// reference conversion written here in double precision.
#include <math.h>

#include <optional>

#include "vrx_test.h"
#include "vrx_testhooks.h"

namespace {

// Forces the software path for its lifetime and restores the mask after.
struct SoftwarePath {
    uint64_t old;
    SoftwarePath() : old(vrxSetFeatureMask(~VRX_CPU_F16C)) {}
    ~SoftwarePath() { vrxSetFeatureMask(old); }
};

// run(dst) on the hardware path, then on the software path: both must
// write ref(i) at every i, compared as bits.
template <class D, class Run, class Ref>
void expectBothPaths(size_t n, Run run, Ref ref, int mode) {
    std::vector<D> hw(n), sw(n);
    run(hw);
    {
        SoftwarePath soft;
        run(sw);
    }
    for (size_t i = 0; i < n; ++i) {
        ASSERT_EQ(vt::bitsOf(hw[i]), vt::bitsOf(sw[i])) << "software path, i " << i << " mode " << mode;
        ASSERT_EQ(vt::bitsOf(hw[i]), vt::bitsOf(ref(i))) << "i " << i << " mode " << mode;
    }
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

// q rounded to an integer: nearest-even or toward zero.
double roundMode(double q, bool near) { return near ? nearbyint(q) : trunc(q); }

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

// The reference of 16f16s: the exact value times 2^-sf, NaN to the lower
// bound, rounded and saturated.
int16_t refHalfToShort(uint16_t h, bool near, int sf) {
    float f = bitsF(refHalfToFloat(h));
    if (isnan(f)) return INT16_MIN;
    double v = ldexp(static_cast<double>(f), -sf);
    if (v >= 32767.0) return INT16_MAX;
    if (v <= -32768.0) return INT16_MIN;
    return static_cast<int16_t>(roundMode(v, near));
}

std::vector<uint16_t> allHalves() {
    std::vector<uint16_t> v(65536);
    for (int i = 0; i < 65536; ++i) v[i] = static_cast<uint16_t>(i);
    return v;
}

std::vector<Vrx16s> allShorts() {
    std::vector<Vrx16s> v(65536);
    for (int i = 0; i < 65536; ++i) v[i] = static_cast<Vrx16s>(i - 32768);
    return v;
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

TEST(Convert16f, HalfToFloatEveryPattern) {
    const auto h = allHalves();
    expectBothPaths<float>(h.size(), [&](auto& d) { chunked(h, d, vrxsConvert_16f32f); },
                           [](size_t i) { return bitsF(refHalfToFloat(uint16_t(i))); }, 0);
}

// Both modes on the grid; every mode other than 1 and 2 rounds toward zero
// (random values, in pieces of every tail length).
TEST(Convert16f, FloatToHalfEveryMode) {
    const auto grid = floatGrid();
    vt::Rng rng(7);
    std::vector<float> x(3000);
    for (auto& f : x) f = static_cast<float>((rng.uniform() - 0.5) * ldexp(1.0, static_cast<int>(rng.range(-30, 18))));
    for (auto [mode, src] : {std::pair{1, &grid}, {0, &grid}, {3, &x}, {-1, &x}, {100, &x}}) {
        auto conv = [mode = mode](const Vrx32f* s, Vrx16f* o, int n) { return vrxsConvert_32f16f(s, o, n, mode); };
        expectBothPaths<Vrx16f>(src->size(),
            [&, src = src](auto& d) {
                if (src == &grid) ASSERT_EQ(vrxOk, conv(grid.data(), d.data(), int(grid.size())));  // one call: the grid is large
                else chunked(*src, d, conv);
            },
            [&, mode = mode, src = src](size_t i) { return refFloatToHalf((*src)[i], mode == vrxRndNear); }, mode);
    }
}

TEST(Convert16f, ShortToHalfEveryValue) {
    const auto s = allShorts();
    for (int mode : {1, 0, 5})
        expectBothPaths<Vrx16f>(s.size(),
            [&](auto& d) { chunked(s, d, [mode](const Vrx16s* a, Vrx16f* o, int n) { return vrxsConvert_16s16f(a, o, n, mode); }); },
            [&](size_t i) { return refFloatToHalf(static_cast<float>(s[i]), mode == vrxRndNear); }, mode);
}

TEST(Convert16f, HalfToShortEveryPatternScaled) {
    const auto h = allHalves();
    for (int mode : {1, 0})
        for (int sf = -20; sf <= 40; ++sf)
            expectBothPaths<Vrx16s>(h.size(),
                [&](auto& d) { chunked(h, d, [=](const Vrx16f* s, Vrx16s* o, int n) { return vrxsConvert_16f16s_Sfs(s, o, n, mode, sf); }); },
                [&](size_t i) { return refHalfToShort(uint16_t(i), mode == vrxRndNear, sf); }, mode * 1000 + sf);
}

// Both paths give the same bits under every caller rounding mode, with
// flush-to-zero and denormals-are-zero clear and set, in both rounding
// modes of the conversions: half to float of every half, back to half of
// every such float (a signaling NaN and values beyond the half range too),
// short to half and half to short. Every call gives the caller's control
// word back and leaves no invalid flag.
TEST(Convert16f, PathsAgreeUnderEveryControlWord) {
    const auto h = allHalves();
    const auto s = allShorts();
    std::vector<float> f(65536);
    ASSERT_EQ(vrxsConvert_16f32f(h.data(), f.data(), 65536), vrxOk);
    for (float x : {-65520.0f, 1e-9f, 3.0e-5f, 1e10f}) f.push_back(x);
    f.push_back(bitsF(0x7F800001));  // a signaling NaN
    for (int mode : {1, 0}) {
        std::vector<uint8_t> first;
        for (unsigned rc : {vt::kRoundNear, vt::kRoundDown, vt::kRoundUp, vt::kRoundZero})
            for (unsigned extra : {0u, vt::kFtz, vt::kFtz | vt::kDaz})
                for (int path = 0; path < 2; ++path) {
                    // the four results one after the other, as bytes
                    std::vector<uint8_t> all(65536 * 4 + f.size() * 2 + 65536 * 4);
                    auto* f2 = reinterpret_cast<float*>(all.data());
                    auto* h2 = reinterpret_cast<Vrx16f*>(f2 + 65536);
                    Vrx16f* h3 = h2 + f.size();
                    auto* s2 = reinterpret_cast<Vrx16s*>(h3 + 65536);
                    std::optional<SoftwarePath> soft;
                    if (path) soft.emplace();
                    vt::MxcsrScope scope;
                    const unsigned w = 0x1F80 | rc | extra;
                    _mm_setcsr(w);
                    for (VrxStatus st : {vrxsConvert_16f32f(h.data(), f2, 65536), vrxsConvert_32f16f(f.data(), h2, int(f.size()), mode),
                                         vrxsConvert_16s16f(s.data(), h3, 65536, mode), vrxsConvert_16f16s_Sfs(h.data(), s2, 65536, mode, -10)})
                        EXPECT_EQ(st, vrxOk);
                    EXPECT_EQ(_mm_getcsr() & ~0x3Eu, w) << "rc " << rc << " path " << path;
                    if (first.empty()) first = all;
                    ASSERT_TRUE(all == first) << "mode " << mode << " rc " << rc << " csr " << extra << " path " << path;
                }
    }
}

// Rounding 2 is refused, after the pointer and length checks, writing nothing.
TEST(Convert16f, FinancialModeRejectedAfterPointerAndLength) {
    float x[4] = {1, 2, 3, 4};
    Vrx16f h[4] = {0xAAAA, 0xAAAA, 0xAAAA, 0xAAAA};
    Vrx16s s[4] = {1, 2, 3, 4};
    for (int path = 0; path < 2; ++path) {
        std::optional<SoftwarePath> soft;
        if (path) soft.emplace();
        EXPECT_EQ(vrxsConvert_32f16f(x, h, 4, vrxRndFinancial), vrxErrRounding);
        EXPECT_EQ(vrxsConvert_16s16f(s, h, 4, vrxRndFinancial), vrxErrRounding);
        EXPECT_EQ(vrxsConvert_16f16s_Sfs(h, s, 4, vrxRndFinancial, 0), vrxErrRounding);
        EXPECT_EQ(vrxsConvert_32f16f(nullptr, h, 4, vrxRndFinancial), vrxErrNullPtr);
        EXPECT_EQ(vrxsConvert_32f16f(x, h, 0, vrxRndFinancial), vrxErrBadLength);
    }
    for (int i = 0; i < 4; ++i) EXPECT_EQ(h[i], 0xAAAA);
    EXPECT_EQ(s[0], 1);
}

}  // namespace
