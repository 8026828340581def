// Float to integer conversions with a rounding mode and a scale factor.
//
// Each element is scaled by 2^-sf (no multiply at sf 0), clamped above to
// the destination's largest value, rounded (nearest-even by the conversion
// instruction, truncation, or ties away from zero by adding a signed half
// under rounding toward zero) and narrowed by a saturating pack. NaN passes
// the clamp and becomes the integer-indefinite value, which the pack turns
// into the lower bound. The invalid exception is masked for the kernels and
// the flag they raise is cleared again when it was clear on entry.
#include "conv_simd.h"

using namespace n0;
using namespace n0::conv;

namespace {

// 32f to an integer of 8 or 16 bits, or to 32 bits.
template <class D, int M, bool Scale>
void cvtKernel(const Vrx32f* s, D* d, int len, float mul) {
    using V = simd::V<float>;
    using I = simd::V<int32_t>;
    const auto vm = V::set1(mul);
    const auto hi = V::set1(Dst<D>::hi);
    auto one = [&](int i, V::M k) {
        auto x = V::loadm(k, s + i);
        if (Scale) x = V::mul(x, vm);
        if constexpr (sizeof(D) == 4) {
            // 2^31 and above become the upper bound; the conversion gives
            // the indefinite value there.
            x = V::min(hi, x);
            if constexpr (M == kFin) x = addHalfSigned(x);
            auto v = (M == kNear) ? simd::floatToInt(x) : simd::floatToIntTrunc(x);
            v = I::blend(V::ge(x, hi), v, I::set1(0x7FFFFFFF));
            Dst<D>::store(d + i, k, v);
        } else {
            Dst<D>::store(d + i, k, roundToInt<M>(x, hi));
        }
    };
    int i = 0;
    // narrow destinations: the narrowed vectors are joined into full 64-byte
    // stores (raw inserts: the layer names no such join)
    if constexpr (sizeof(D) == 1) {
        auto v = [&](int j) {
            auto x = V::load(s + j);
            if (Scale) x = V::mul(x, vm);
            return Dst<D>::narrow(roundToInt<M>(x, hi));
        };
        for (; i + 64 <= len; i += 64) {
            __m512i r = _mm512_castsi128_si512(v(i));
            r = _mm512_inserti32x4(r, v(i + 16), 1);
            r = _mm512_inserti32x4(r, v(i + 32), 2);
            r = _mm512_inserti32x4(r, v(i + 48), 3);
            _mm512_storeu_si512(d + i, r);
        }
    } else if constexpr (sizeof(D) == 2) {
        auto v = [&](int j) {
            auto x = V::load(s + j);
            if (Scale) x = V::mul(x, vm);
            return Dst<D>::narrow(roundToInt<M>(x, hi));
        };
        for (; i + 32 <= len; i += 32)
            _mm512_storeu_si512(d + i, _mm512_inserti64x4(_mm512_castsi256_si512(v(i)), v(i + 16), 1));
    }
    for (; i + 32 <= len; i += 32) { one(i, 0xFFFF); one(i + 16, 0xFFFF); }
    for (; i + 16 <= len; i += 16) one(i, 0xFFFF);
    if (i < len) one(i, simd::tail<float>(len - i));
}

// 64f to 16s or 32s: 8 lanes a round.
template <class D, int M, bool Scale>
void cvtKernel(const Vrx64f* s, D* d, int len, double mul) {
    using V = simd::V<double>;
    const auto vm = V::set1(mul);
    const auto hi = V::set1(sizeof(D) == 2 ? 32767.0 : 2147483647.0);
    auto one = [&](int i, V::M k) {
        auto x = V::loadm(k, s + i);
        if (Scale) x = V::mul(x, vm);
        // 8 results in the low half of the register, stored under an 8-lane mask
        __m512i v = _mm512_castsi256_si512(roundToInt<M>(x, hi));
        if constexpr (sizeof(D) == 2) simd::narrowSat16s(d + i, k, v);
        else simd::V<int32_t>::storem(d + i, k, v);
    };
    int i = 0;
    for (; i + 16 <= len; i += 16) { one(i, 0xFF); one(i + 8, 0xFF); }
    for (; i + 8 <= len; i += 8) one(i, 0xFF);
    if (i < len) one(i, simd::tail<double>(len - i));
}

// A kernel at the scale factor: no multiply at sf 0.
template <class D, int M, class S>
VRX_INLINE void run(const S* s, D* d, int len, int sf) {
    if (sf == 0) cvtKernel<D, M, false>(s, d, len, S(1));
    else cvtKernel<D, M, true>(s, d, len, static_cast<S>(pow2Wrapped(sf)));
}

// The mode-specific kernels. Near forces round-to-nearest; the financial
// kernel runs under rounding toward zero with invalid masked (the 32f
// callers set the rounding, the 64f kernel sets it itself).
template <class S, class D>
void cnvrt(const S* s, D* d, int len, int mode, int sf) {
    InvalidQuietGuard quiet;
    if (mode == kNear) {
        RoundNearestGuard rn;
        run<D, kNear>(s, d, len, sf);
    } else {
        run<D, kZero>(s, d, len, sf);
    }
}
template <class S, class D>
void cnvrtFin(const S* s, D* d, int len, int sf) {
    InvalidQuietGuard quiet;
    if constexpr (sizeof(S) == 8) {
        TruncMaskedGuard rz;
        run<D, kFin>(s, d, len, sf);
    } else {
        run<D, kFin>(s, d, len, sf);
    }
}

// 8s, 8u and 16u: the wrapper sets rounding toward zero around the financial
// kernel. 16s and 32s: the kernel does it.
template <class D>
VrxStatus cvt32fWrapped(const Vrx32f* s, D* d, int len, int mode, int sf) {
    if (VrxStatus st = checkArgs(len, s, d)) return st;
    if (mode == vrxRndNear) cnvrt(s, d, len, kNear, sf);
    else if (mode == vrxRndZero) cnvrt(s, d, len, kZero, sf);
    else {
        unsigned old = N0(vrx_set_rc_ssx)(kMxcsrRoundZero);
        cnvrtFin(s, d, len, sf);
        if ((old & kMxcsrRound) != kMxcsrRoundZero) N0(vrx_set_cw_ssx)((getMxcsr() & ~kMxcsrRound) | (old & kMxcsrRound));
    }
    return vrxOk;
}
template <class D>
VrxStatus cvt32fOwnRc(const Vrx32f* s, D* d, int len, int mode, int sf) {
    if (VrxStatus st = checkArgs(len, s, d)) return st;
    if (mode == vrxRndNear) cnvrt(s, d, len, kNear, sf);
    else if (mode == vrxRndZero) cnvrt(s, d, len, kZero, sf);
    else {
        TruncMaskedGuard rz;
        cnvrtFin(s, d, len, sf);
    }
    return vrxOk;
}

// 64f to 64s: element by element; NaN gives the lower bound, everything else
// is scaled, rounded and saturated to 64 bits.
template <int M>
void cvt64f64s(const Vrx64f* s, Vrx64s* d, int len, int sf) {
    const double mul = static_cast<double>(pow2Wrapped(sf));
    for (int i = 0; i < len; ++i) {
        double x = s[i];
        if (N0(vrx_isnan)(x)) { d[i] = INT64_MIN; continue; }
        if (sf != 0) x *= mul;
        if (M == kFin) x = x + __builtin_copysign(0.5, x);
        if (x >= 9223372036854775808.0) { d[i] = INT64_MAX; continue; }
        if (x < -9223372036854775808.0) { d[i] = INT64_MIN; continue; }
        __m128d v = _mm_set_sd(x);
        d[i] = (M == kNear) ? _mm_cvtsd_si64(v) : _mm_cvttsd_si64(v);
    }
}

}  // namespace

VrxStatus N0(vrxsConvert_32f8s_Sfs)(const Vrx32f* pSrc, Vrx8s* pDst, int len, VrxRounding rnd, int sf) {
    return cvt32fWrapped(pSrc, pDst, len, rnd, sf);
}
VrxStatus N0(vrxsConvert_32f8u_Sfs)(const Vrx32f* pSrc, Vrx8u* pDst, int len, VrxRounding rnd, int sf) {
    return cvt32fWrapped(pSrc, pDst, len, rnd, sf);
}
VrxStatus N0(vrxsConvert_32f16u_Sfs)(const Vrx32f* pSrc, Vrx16u* pDst, int len, VrxRounding rnd, int sf) {
    return cvt32fWrapped(pSrc, pDst, len, rnd, sf);
}
VrxStatus N0(vrxsConvert_32f16s_Sfs)(const Vrx32f* pSrc, Vrx16s* pDst, int len, VrxRounding rnd, int sf) {
    return cvt32fOwnRc(pSrc, pDst, len, rnd, sf);
}
VrxStatus N0(vrxsConvert_32f32s_Sfs)(const Vrx32f* pSrc, Vrx32s* pDst, int len, VrxRounding rnd, int sf) {
    return cvt32fOwnRc(pSrc, pDst, len, rnd, sf);
}

// The 64f16s wrapper tests for its two ordinary modes, the 64f32s wrapper for
// the financial one; the three defined modes come out alike.
VrxStatus N0(vrxsConvert_64f16s_Sfs)(const Vrx64f* pSrc, Vrx16s* pDst, int len, VrxRounding rnd, int sf) {
    if (VrxStatus st = checkArgs(len, pSrc, pDst)) return st;
    if (rnd == vrxRndZero || rnd == vrxRndNear) cnvrt(pSrc, pDst, len, rnd, sf);
    else cnvrtFin(pSrc, pDst, len, sf);
    return vrxOk;
}
VrxStatus N0(vrxsConvert_64f32s_Sfs)(const Vrx64f* pSrc, Vrx32s* pDst, int len, VrxRounding rnd, int sf) {
    if (VrxStatus st = checkArgs(len, pSrc, pDst)) return st;
    if (rnd == vrxRndFinancial) cnvrtFin(pSrc, pDst, len, sf);
    else if (rnd == vrxRndNear) cnvrt(pSrc, pDst, len, kNear, sf);
    else if (rnd == vrxRndZero) cnvrt(pSrc, pDst, len, kZero, sf);
    else cnvrtFin(pSrc, pDst, len, sf);
    return vrxOk;
}

VrxStatus N0(vrxsConvert_64f64s_Sfs)(const Vrx64f* pSrc, Vrx64s* pDst, int len, VrxRounding rnd, int sf) {
    if (VrxStatus st = checkArgs(len, pSrc, pDst)) return st;
    InvalidQuietGuard quiet;
    if (rnd == vrxRndNear) {
        RoundNearestGuard rn;
        cvt64f64s<kNear>(pSrc, pDst, len, sf);
    } else if (rnd == vrxRndZero) {
        cvt64f64s<kZero>(pSrc, pDst, len, sf);
    } else {
        TruncMaskedGuard rz;
        cvt64f64s<kFin>(pSrc, pDst, len, sf);
    }
    return vrxOk;
}
