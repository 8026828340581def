// 24-bit packed samples: three bytes a sample, least significant first.
// Reading extends the low word by the sign- or zero-extended third byte;
// writing keeps the low three bytes of a saturated 32-bit value.
#include "conv_simd.h"
#include "vrx_scale.h"

using namespace n0;
using namespace n0::conv;

namespace {

VRX_INLINE int32_t load24s(const Vrx8u* p) {
    return static_cast<int32_t>(static_cast<uint32_t>(p[0]) | (static_cast<uint32_t>(p[1]) << 8) |
                                (static_cast<uint32_t>(static_cast<int8_t>(p[2])) << 16));
}
VRX_INLINE uint32_t load24u(const Vrx8u* p) {
    return static_cast<uint32_t>(p[0]) | (static_cast<uint32_t>(p[1]) << 8) | (static_cast<uint32_t>(p[2]) << 16);
}
VRX_INLINE void store24(Vrx8u* p, uint32_t v) {
    p[0] = static_cast<Vrx8u>(v);
    p[1] = static_cast<Vrx8u>(v >> 8);
    p[2] = static_cast<Vrx8u>(v >> 16);
}

// 16 samples: 48 bytes expanded to 32-bit lanes by byte shuffles within
// each 128-bit half of two AVX2 loads; exactly the 48 bytes are read. The
// byte shuffle has no name in the SIMD layer (no 8-bit lanes without
// AVX-512BW), so this expansion keeps the raw instructions.
template <bool Signed>
VRX_INLINE __m512i expand16(const Vrx8u* p) {
    // samples 0..3 from the 16 bytes at p, 4..7 from the 16 bytes at p + 8
    // (offset 4 within them); likewise 8..15 from p + 24 and p + 32
    const __m256i shuf = Signed
        ? _mm256_setr_epi8(-1, 0, 1, 2, -1, 3, 4, 5, -1, 6, 7, 8, -1, 9, 10, 11,
                           -1, 4, 5, 6, -1, 7, 8, 9, -1, 10, 11, 12, -1, 13, 14, 15)
        : _mm256_setr_epi8(0, 1, 2, -1, 3, 4, 5, -1, 6, 7, 8, -1, 9, 10, 11, -1,
                           4, 5, 6, -1, 7, 8, 9, -1, 10, 11, 12, -1, 13, 14, 15, -1);
    __m256i a = _mm256_loadu2_m128i(reinterpret_cast<const __m128i*>(p + 8), reinterpret_cast<const __m128i*>(p));
    __m256i b = _mm256_loadu2_m128i(reinterpret_cast<const __m128i*>(p + 32), reinterpret_cast<const __m128i*>(p + 24));
    a = _mm256_shuffle_epi8(a, shuf);
    b = _mm256_shuffle_epi8(b, shuf);
    __m512i v = _mm512_inserti64x4(_mm512_castsi256_si512(a), b, 1);
    return Signed ? _mm512_srai_epi32(v, 8) : v;
}

template <bool Signed, class D>
void from24(const Vrx8u* __restrict s, D* __restrict d, int len) {
    int i = 0;
    // 48 bytes are consumed and up to 48 read a round
    for (; i + 16 <= len; i += 16) {
        auto v = expand16<Signed>(s + 3 * static_cast<size_t>(i));
        if constexpr (sizeof(D) == 4 && static_cast<D>(0.5) != 0) simd::V<float>::store(d + i, simd::intToFloat(v));
        else simd::V<D>::store(d + i, v);
    }
    for (; i < len; ++i) {
        const Vrx8u* p = s + 3 * static_cast<size_t>(i);
        if (Signed) d[i] = static_cast<D>(load24s(p)); else d[i] = static_cast<D>(load24u(p));
    }
}

template <bool Signed, class D>
VRX_INLINE VrxStatus from24F(const Vrx8u* s, D* d, int len) {
    if (VrxStatus st = checkArgs(len, s, d)) return st;
    from24<Signed>(s, d, len);
    return vrxOk;
}

// Float to 24-bit: scale, clamp below then above (NaN lands on the lower
// bound), round to nearest with ties to even.
template <bool Signed>
void f32to24(const Vrx32f* s, Vrx8u* d, int len, float mul) {
    using V = simd::V<float>;
    const auto vm = V::set1(mul);
    const auto lo = V::set1(Signed ? -8388608.0f : 0.0f);
    const auto hi = V::set1(Signed ? 8388607.0f : 16777215.0f);
    alignas(64) uint32_t t[16];
    for (int i = 0; i < len; i += 16) {
        int n = len - i < 16 ? len - i : 16;
        auto x = V::loadm(simd::tail<float>(n), s + i);
        x = V::min(V::max(V::mul(x, vm), lo), hi);
        simd::V<uint32_t>::store(t, simd::floatToInt(x));
        Vrx8u* q = d + 3 * static_cast<size_t>(i);
        for (int k = 0; k < n; ++k) store24(q + 3 * k, t[k]);
    }
}

template <bool Signed>
VrxStatus f32to24F(const Vrx32f* s, Vrx8u* d, int len, int sf) {
    if (VrxStatus st = checkArgs(len, s, d)) return st;
    if (sf > 127) sf = 127;
    if (sf < -127) sf = -127;
    const float mul = bitsToFloat(static_cast<uint32_t>(127 - sf) << 23);
    // the clamp of a NaN raises invalid: masked, and cleared when it was clear
    InvalidQuietGuard quiet;
    RoundNearestGuard rn;
    f32to24<Signed>(s, d, len, mul);
    return vrxOk;
}

// Integer to 24-bit by the integer scale rule.
template <bool Signed, class S>
VrxStatus int24(const S* s, Vrx8u* d, int len, int sf) {
    if (VrxStatus st = checkArgs(len, s, d)) return st;
    constexpr int64_t lo = Signed ? -8388608 : 0, hi = Signed ? 8388607 : 16777215;
    auto sat = [](int64_t v) { return static_cast<uint32_t>(v < lo ? lo : (v > hi ? hi : v)); };
    if (sf > 34) sf = 34;     // every result is zero from sf 33 on
    if (sf < -25) sf = -25;   // every nonzero result saturates from -24 on
    for (int i = 0; i < len; ++i) {
        int64_t x = static_cast<int64_t>(s[i]);
        int64_t r = sf > 0 ? roundShiftEven<int64_t>(x, sf) : x * (int64_t(1) << -sf);
        store24(d + 3 * static_cast<size_t>(i), sat(r));
    }
    return vrxOk;
}

}  // namespace

VrxStatus N0(vrxsConvert_24s32s)(const Vrx8u* s, Vrx32s* d, int len) { return from24F<true>(s, d, len); }
VrxStatus N0(vrxsConvert_24u32u)(const Vrx8u* s, Vrx32u* d, int len) { return from24F<false>(s, d, len); }
VrxStatus N0(vrxsConvert_24s32f)(const Vrx8u* s, Vrx32f* d, int len) { return from24F<true>(s, d, len); }
VrxStatus N0(vrxsConvert_24u32f)(const Vrx8u* s, Vrx32f* d, int len) { return from24F<false>(s, d, len); }
VrxStatus N0(vrxsConvert_32f24s_Sfs)(const Vrx32f* s, Vrx8u* d, int len, int sf) { return f32to24F<true>(s, d, len, sf); }
VrxStatus N0(vrxsConvert_32f24u_Sfs)(const Vrx32f* s, Vrx8u* d, int len, int sf) { return f32to24F<false>(s, d, len, sf); }
VrxStatus N0(vrxsConvert_32s24s_Sfs)(const Vrx32s* s, Vrx8u* d, int len, int sf) { return int24<true>(s, d, len, sf); }
VrxStatus N0(vrxsConvert_32u24u_Sfs)(const Vrx32u* s, Vrx8u* d, int len, int sf) { return int24<false>(s, d, len, sf); }
