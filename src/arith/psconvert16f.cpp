// Half floats (IEEE binary16). Two paths, chosen once per call by the
// processor's half-precision conversion feature: the hardware conversion
// with its immediate rounding field, or integer software kernels that give
// the same bits for both rounding modes (nearest-even and toward zero).
#include "conv_simd.h"

using namespace n0;
using namespace n0::conv;

namespace {

constexpr uint64_t kFeatureF16c = 0x4000;

// ------------------------------------------------------------ loop driver
// Runs K on 16 elements a round; the tail goes through local buffers so
// that it takes the same code.
template <class S, class D, class K>
VRX_INLINE void drive16(const S* s, D* d, int len, K k) {
    int i = 0;
    for (; i + 16 <= len; i += 16) k(s + i, d + i);
    if (i < len) {
        alignas(64) S ts[16] = {};
        alignas(64) D td[16];
        const int n = len - i;
        memcpy(ts, s + i, n * sizeof(S));
        k(ts, td);
        memcpy(d + i, td, n * sizeof(D));
    }
}

// Zero-extended halves in 32-bit lanes and back (truncating: the lanes
// hold 16-bit patterns). The truncating narrow has no name in the layer.
VRX_INLINE __m512i load16x16(const Vrx16u* p) {
    return _mm512_cvtepu16_epi32(_mm256_loadu_si256(reinterpret_cast<const __m256i*>(p)));
}
VRX_INLINE void store16x16(Vrx16u* p, __m512i v) {
    _mm256_storeu_si256(reinterpret_cast<__m256i*>(p), _mm512_cvtepi32_epi16(v));
}

// ------------------------------------------------------- software kernels
// These bit kernels still use raw instructions: they run only on processors
// without the half-precision conversion, where no test of this build
// reaches them, so they are kept instruction for instruction until such a
// check exists.
// Single to half on the bit patterns, 16 lanes.
template <bool Near>
VRX_INLINE __m512i swToHalf(__m512 x) {
    const __m512i u = _mm512_castps_si512(x);
    const __m512i a = _mm512_and_si512(u, _mm512_set1_epi32(0x7FFFFFFF));
    const __m512i sign = _mm512_and_si512(_mm512_srli_epi32(u, 16), _mm512_set1_epi32(0x8000));
    const __m512i one = _mm512_set1_epi32(1);
    // normal halves: drop 13 mantissa bits, rounding carries into the exponent
    __m512i nr = a;
    if (Near) nr = _mm512_add_epi32(a, _mm512_add_epi32(_mm512_set1_epi32(0xFFF), _mm512_and_si512(_mm512_srli_epi32(a, 13), one)));
    __m512i norm = _mm512_srli_epi32(_mm512_sub_epi32(nr, _mm512_set1_epi32(0x38000000)), 13);
    norm = _mm512_min_epu32(norm, _mm512_set1_epi32(Near ? 0x7C00 : 0x7BFF));
    // subnormal halves: the significand shifted right by 126 - exponent
    __m512i e = _mm512_srli_epi32(a, 23);
    __m512i sh = _mm512_min_epi32(_mm512_sub_epi32(_mm512_set1_epi32(126), e), _mm512_set1_epi32(25));
    __m512i mant = _mm512_or_si512(_mm512_and_si512(a, _mm512_set1_epi32(0x7FFFFF)), _mm512_set1_epi32(0x800000));
    __m512i r = _mm512_srlv_epi32(mant, sh);
    if (Near) {
        __m512i rem = _mm512_sub_epi32(mant, _mm512_sllv_epi32(r, sh));
        __m512i half = _mm512_sllv_epi32(one, _mm512_sub_epi32(sh, one));
        __mmask16 up = _mm512_cmpgt_epu32_mask(rem, half) |
                       (_mm512_cmpeq_epi32_mask(rem, half) & _mm512_test_epi32_mask(r, one));
        r = _mm512_mask_add_epi32(r, up, r, one);
    }
    __m512i res = _mm512_mask_blend_epi32(_mm512_cmplt_epu32_mask(a, _mm512_set1_epi32(0x38800000)), norm, r);
    // infinity and NaN (made quiet, payload kept from the top)
    __m512i nan = _mm512_or_si512(_mm512_set1_epi32(0x7E00), _mm512_and_si512(_mm512_srli_epi32(a, 13), _mm512_set1_epi32(0x3FF)));
    res = _mm512_mask_mov_epi32(res, _mm512_cmpeq_epi32_mask(a, _mm512_set1_epi32(0x7F800000)), _mm512_set1_epi32(0x7C00));
    res = _mm512_mask_mov_epi32(res, _mm512_cmpgt_epu32_mask(a, _mm512_set1_epi32(0x7F800000)), nan);
    return _mm512_or_si512(res, sign);
}

// Half to single, exact; 16 lanes holding zero-extended halves.
VRX_INLINE __m512 swFromHalf(__m512i h) {
    const __m512i sign = _mm512_slli_epi32(_mm512_and_si512(h, _mm512_set1_epi32(0x8000)), 16);
    const __m512i mag = _mm512_and_si512(h, _mm512_set1_epi32(0x7FFF));
    __m512i res = _mm512_add_epi32(_mm512_slli_epi32(mag, 13), _mm512_set1_epi32(0x38000000));
    // subnormal and zero: m * 2^-24 is exact
    __m512 sub = _mm512_mul_ps(_mm512_cvtepi32_ps(mag), _mm512_set1_ps(0x1.0p-24f));
    res = _mm512_mask_mov_epi32(res, _mm512_cmplt_epu32_mask(mag, _mm512_set1_epi32(0x400)), _mm512_castps_si512(sub));
    // infinity and NaN (made quiet)
    __m512i m = _mm512_and_si512(mag, _mm512_set1_epi32(0x3FF));
    __m512i special = _mm512_or_si512(_mm512_set1_epi32(0x7F800000), _mm512_slli_epi32(m, 13));
    special = _mm512_mask_or_epi32(special, _mm512_test_epi32_mask(m, m), special, _mm512_set1_epi32(0x400000));
    res = _mm512_mask_mov_epi32(res, _mm512_cmpge_epu32_mask(mag, _mm512_set1_epi32(0x7C00)), special);
    return _mm512_castsi512_ps(_mm512_or_si512(res, sign));
}

// ------------------------------------------------------ hardware kernels
// The half-precision conversion instructions (and their 256-bit halves)
// have no name in the SIMD layer: raw instructions.
template <bool Near>
VRX_INLINE __m256i hwToHalf(__m512 x) {
    return Near ? _mm512_cvtps_ph(x, _MM_FROUND_TO_NEAREST_INT) : _mm512_cvtps_ph(x, _MM_FROUND_TO_ZERO);
}

// ---------------------------------------------------------- per-type loops
template <bool Hw, bool Near>
void cnvrt32f16f(const Vrx32f* s, Vrx16f* d, int len) {
    drive16(s, d, len, [](const Vrx32f* p, Vrx16f* q) {
        auto x = simd::V<float>::load(p);
        if (Hw) _mm256_storeu_si256(reinterpret_cast<__m256i*>(q), hwToHalf<Near>(x));
        else store16x16(q, swToHalf<Near>(x));
    });
}

template <bool Hw, bool Near>
void cnvrt16s16f(const Vrx16s* s, Vrx16f* d, int len) {
    drive16(s, d, len, [](const Vrx16s* p, Vrx16f* q) {
        __m512 x = simd::intToFloat(simd::widen16s(p));
        if (Hw) _mm256_storeu_si256(reinterpret_cast<__m256i*>(q), hwToHalf<Near>(x));
        else store16x16(q, swToHalf<Near>(x));
    });
}

template <bool Hw>
void cnvrt16f32f(const Vrx16f* s, Vrx32f* d, int len) {
    drive16(s, d, len, [](const Vrx16f* p, Vrx32f* q) {
        if (Hw) _mm512_storeu_ps(q, _mm512_cvtph_ps(_mm256_loadu_si256(reinterpret_cast<const __m256i*>(p))));
        else _mm512_storeu_ps(q, swFromHalf(load16x16(p)));
    });
}

// Widen, scale, clamp above (NaN passes), round, saturating pack.
template <bool Hw, bool Near>
void cnvrt16f16s(const Vrx16f* s, Vrx16s* d, int len, float mul) {
    const auto vm = simd::V<float>::set1(mul);
    drive16(s, d, len, [vm](const Vrx16f* p, Vrx16s* q) {
        __m512 x = Hw ? _mm512_cvtph_ps(_mm256_loadu_si256(reinterpret_cast<const __m256i*>(p))) : swFromHalf(load16x16(p));
        using V = simd::V<float>;
        x = V::min(V::set1(32767.0f), V::mul(x, vm));
        simd::narrowSat16s(q, V::kAll, Near ? simd::floatToInt(x) : simd::floatToIntTrunc(x));
    });
}

VRX_INLINE bool hasF16c() { return ownGetFeature(kFeatureF16c) != 0; }

}  // namespace

VrxStatus N0(vrxsConvert_32f16f)(const Vrx32f* pSrc, Vrx16f* pDst, int len, VrxRounding rnd) {
    if (VrxStatus st = checkArgs(len, pSrc, pDst)) return st;
    if (rnd == vrxRndFinancial) return vrxErrRounding;
    const bool near = rnd == vrxRndNear;
    if (hasF16c()) {
        InvalidQuietGuard quiet;
        if (near) cnvrt32f16f<true, true>(pSrc, pDst, len); else cnvrt32f16f<true, false>(pSrc, pDst, len);
    } else {
        // flush-to-zero off and the rounding bits fixed for the kernel
        unsigned old = N0(ps_set_ssx)(near ? 0u : kMxcsrRoundZero, 0xE000);
        if (near) cnvrt32f16f<false, true>(pSrc, pDst, len); else cnvrt32f16f<false, false>(pSrc, pDst, len);
        N0(vrx_set_cw_ssx)(old);
    }
    return vrxOk;
}

VrxStatus N0(vrxsConvert_16s16f)(const Vrx16s* pSrc, Vrx16f* pDst, int len, VrxRounding rnd) {
    if (VrxStatus st = checkArgs(len, pSrc, pDst)) return st;
    if (rnd == vrxRndFinancial) return vrxErrRounding;
    const bool near = rnd == vrxRndNear;
    if (hasF16c()) {
        if (near) cnvrt16s16f<true, true>(pSrc, pDst, len); else cnvrt16s16f<true, false>(pSrc, pDst, len);
    } else {
        if (near) cnvrt16s16f<false, true>(pSrc, pDst, len); else cnvrt16s16f<false, false>(pSrc, pDst, len);
    }
    return vrxOk;
}

VrxStatus N0(vrxsConvert_16f32f)(const Vrx16f* pSrc, Vrx32f* pDst, int len) {
    if (VrxStatus st = checkArgs(len, pSrc, pDst)) return st;
    InvalidQuietGuard quiet;
    if (hasF16c()) cnvrt16f32f<true>(pSrc, pDst, len);
    else cnvrt16f32f<false>(pSrc, pDst, len);
    return vrxOk;
}

VrxStatus N0(vrxsConvert_16f16s_Sfs)(const Vrx16f* pSrc, Vrx16s* pDst, int len, VrxRounding rnd, int sf) {
    if (VrxStatus st = checkArgs(len, pSrc, pDst)) return st;
    if (rnd == vrxRndFinancial) return vrxErrRounding;
    const bool near = rnd == vrxRndNear;
    if (sf > 127) sf = 127;
    const float mul = pow2Wrapped(sf);
    InvalidQuietGuard quiet;
    const bool hw = hasF16c();
    if (near) {
        RoundNearestGuard rn;
        if (hw) cnvrt16f16s<true, true>(pSrc, pDst, len, mul); else cnvrt16f16s<false, true>(pSrc, pDst, len, mul);
    } else {
        if (hw) cnvrt16f16s<true, false>(pSrc, pDst, len, mul); else cnvrt16f16s<false, false>(pSrc, pDst, len, mul);
    }
    return vrxOk;
}
