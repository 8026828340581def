// Conversions from integer sources, between float precisions, and the
// integer scale-factor forms. Exact widenings are plain element loops that
// the compiler widens to full vectors; conversions that round do so in the
// caller's rounding mode, except where a scale factor brings its own rule.
#include "conv_simd.h"
#include "vrx_scale.h"

using namespace n0;
using namespace n0::conv;

namespace {

template <class S, class D>
void widen(const S* __restrict s, D* __restrict d, int len) {
    for (int i = 0; i < len; ++i) d[i] = static_cast<D>(s[i]);
}

template <class S, class D>
void widenScaled(const S* __restrict s, D* __restrict d, int len, D mul) {
    for (int i = 0; i < len; ++i) d[i] = static_cast<D>(s[i]) * mul;
}

// 64-bit integers to double in the caller's rounding mode: the high half
// times 2^32 and the unsigned low half are exact, and their sum is rounded
// once. The 64-to-32-bit lane narrowing has no name in the SIMD layer: the
// kernel keeps the raw instructions.
void cvt64s64f(const Vrx64s* s, Vrx64f* d, int len) {
    const __m512d two32 = _mm512_set1_pd(4294967296.0);
    const __m512i lo32 = _mm512_set1_epi64(0xFFFFFFFFll);
    auto one = [&](int i, __mmask8 k) {
        __m512i v = _mm512_maskz_loadu_epi64(k, s + i);
        __m512d hi = _mm512_cvtepi32_pd(_mm512_cvtepi64_epi32(_mm512_srai_epi64(v, 32)));
        __m512d lo = _mm512_cvtepu32_pd(_mm512_cvtepi64_epi32(_mm512_and_si512(v, lo32)));
        _mm512_mask_storeu_pd(d + i, k, _mm512_add_pd(_mm512_mul_pd(hi, two32), lo));
    };
    int i = 0;
    for (; i + 8 <= len; i += 8) one(i, 0xFF);
    if (i < len) one(i, simd::tail<double>(len - i));
}

// Each double limited to the largest float magnitude (NaN passes), then
// narrowed in the caller's mode. The limit is applied after narrowing, with
// the same results: an infinite single (from an infinite or too large
// double) is replaced by the largest finite value of its sign, in one
// fix-up instruction (table: -inf to -max, +inf to +max, all else kept).
// The narrowing join and the fix-up have no name in the SIMD layer: raw
// instructions.
VRX_INLINE __m512 finiteOnly(__m512 f) {
    return _mm512_fixupimm_ps(f, f, _mm512_set1_epi32(0x00EF0000), 0);
}

void cvt64f32f(const Vrx64f* s, Vrx32f* d, int len) {
    auto cvt2 = [](const Vrx64f* p) {
        __m256 a = _mm512_cvtpd_ps(_mm512_loadu_pd(p)), b = _mm512_cvtpd_ps(_mm512_loadu_pd(p + 8));
        return finiteOnly(_mm512_castpd_ps(_mm512_insertf64x4(_mm512_castpd256_pd512(_mm256_castps_pd(a)), _mm256_castps_pd(b), 1)));
    };
    int i = 0;
    for (; i + 32 <= len; i += 32) {
        __m512 a = cvt2(s + i), b = cvt2(s + i + 16);
        _mm512_storeu_ps(d + i, a);
        _mm512_storeu_ps(d + i + 16, b);
    }
    for (; i + 16 <= len; i += 16) _mm512_storeu_ps(d + i, cvt2(s + i));
    for (; i < len; i += 8) {
        const __mmask8 k = simd::tail<double>(len - i < 8 ? len - i : 8);
        _mm512_mask_storeu_ps(d + i, k, finiteOnly(_mm512_castps256_ps512(_mm512_cvtpd_ps(_mm512_maskz_loadu_pd(k, s + i)))));
    }
}

void pack32s16s(const Vrx32s* s, Vrx16s* d, int len) {
    using I = simd::V<int32_t>;
    int i = 0;
    for (; i + 16 <= len; i += 16) simd::narrowSat16s(d + i, I::kAll, I::load(s + i));
    if (i < len) {
        const auto k = simd::tail<int32_t>(len - i);
        simd::narrowSat16s(d + i, k, I::loadm(k, s + i));
    }
}

// The integer scale rule at sf > 0: round to nearest, ties to even.
template <class D, class S>
void shrEvenSat(const S* __restrict s, D* __restrict d, int len, int sf) {
    for (int i = 0; i < len; ++i) d[i] = saturate<D>(roundShiftEven<int64_t>(s[i], sf));
}
// sf < 0: multiply, then saturate.
template <class D, class S>
void shlSat(const S* __restrict s, D* __restrict d, int len, int sh) {
    for (int i = 0; i < len; ++i) d[i] = saturate<D>(static_cast<int64_t>(s[i]) * (int64_t(1) << sh));
}

// x * 2^-sf rounded in the given mode, for |x| * 2 below the range of W.
template <int M, class W>
VRX_INLINE W shrRound(W x, int sf) {
    if constexpr (M == kNear) return roundShiftEven<W>(x, sf);
    else if constexpr (M == kZero) return (x + ((x >> (8 * sizeof(W) - 1)) & ((W(1) << sf) - 1))) >> sf;
    else {
        W h = W(1) << (sf - 1);
        return x >= 0 ? (x + h) >> sf : -((-x + h) >> sf);
    }
}

template <int M>
void cvt16s8sDown(const Vrx16s* __restrict s, Vrx8s* __restrict d, int len, int sf) {
    for (int i = 0; i < len; ++i) d[i] = saturate<Vrx8s>(shrRound<M, int32_t>(s[i], sf));
}

template <int M>
void cvt64s32sDown(const Vrx64s* __restrict s, Vrx32s* __restrict d, int len, int sf) {
    for (int i = 0; i < len; ++i) d[i] = saturate<Vrx32s>(shrRound<M, __int128>(s[i], sf));
}

// 2^-sf as a float by repeated halving (doubling for a negative sf); past
// the end of the format the value stays where it lands, zero or infinity.
// The count is taken in unsigned arithmetic, so sf = INT_MIN is 2^31 steps
// like any other large count.
float pow2ByHalving(int sf) {
    const unsigned mag = sf < 0 ? 0u - static_cast<unsigned>(sf) : static_cast<unsigned>(sf);
    const unsigned n = mag > 400u ? 400u : mag;  // the value is fixed long before this
    float m = 1.0f;
    if (sf > 0) for (unsigned k = 0; k < n; ++k) m *= 0.5f;
    else for (unsigned k = 0; k < n; ++k) m *= 2.0f;
    return m;
}

// 2^-sf as a double for sf in [-1023, 1022] (normal powers of two).
double pow2Exact(int sf) {
    return bitsToDouble(static_cast<uint64_t>(1023 - sf) << 52);
}

// 2^-sf as a double within [2^-1022, 2^992].
double pow2Double(int sf) {
    if (sf > 1022) sf = 1022;
    if (sf < -992) sf = -992;
    return bitsToDouble(static_cast<uint64_t>(0x3FF00000u - (static_cast<uint32_t>(sf) << 20)) << 32);
}

// 16-bit integers times 2^-sf, rounded once in the caller's mode. Inside
// [-1023, 1022] the multiplier is a normal double and one product rounds.
// Beyond, a first product that is exact (x * 2^-1022 stays normal for any
// nonzero 16-bit x; x * 2^1023 is exact for |x| = 1 and already overflows
// otherwise, as the full product would) is followed by a second one that
// rounds. From sf 2044 on every nonzero product lies strictly between zero
// and the least subnormal, where it rounds alike whatever sf.
void widenScaledOnce(const Vrx16s* __restrict s, Vrx64f* __restrict d, int len, int sf) {
    if (sf >= -1023 && sf <= 1022) {
        widenScaled(s, d, len, pow2Exact(sf));
        return;
    }
    const double first = sf > 0 ? pow2Exact(1022) : pow2Exact(-1023);
    const double second = sf > 0 ? pow2Exact(sf > 2044 ? 1022 : sf - 1022) : 2.0;
    for (int i = 0; i < len; ++i) d[i] = static_cast<double>(s[i]) * first * second;
}

}  // namespace

// ------------------------------------------------------------ exact widenings
namespace {

VRX_INLINE __m128i ld128(const void* p) { return _mm_loadu_si128(static_cast<const __m128i*>(p)); }

template <class S, class D, class Op>
VRX_INLINE VrxStatus widenV(const S* s, D* d, int len, Op op) {
    if (VrxStatus st = checkArgs(len, s, d)) return st;
    widenMap(s, d, len, op);
    return vrxOk;
}

}  // namespace

VrxStatus N0(vrxsConvert_8u32f)(const Vrx8u* s, Vrx32f* d, int len) {
    return widenV(s, d, len, [](const Vrx8u* p) { return simd::intToFloat(simd::widen8u(p)); });
}
VrxStatus N0(vrxsConvert_8s32f)(const Vrx8s* s, Vrx32f* d, int len) {
    return widenV(s, d, len, [](const Vrx8s* p) { return simd::intToFloat(simd::widen8s(p)); });
}
VrxStatus N0(vrxsConvert_16u32f)(const Vrx16u* s, Vrx32f* d, int len) {
    return widenV(s, d, len, [](const Vrx16u* p) { return simd::intToFloat(simd::widen16u(p)); });
}
VrxStatus N0(vrxsConvert_16s32f)(const Vrx16s* s, Vrx32f* d, int len) {
    return widenV(s, d, len, [](const Vrx16s* p) { return simd::intToFloat(simd::widen16s(p)); });
}
VrxStatus N0(vrxsConvert_16s32s)(const Vrx16s* s, Vrx32s* d, int len) {
    return widenV(s, d, len, [](const Vrx16s* p) { return simd::widen16s(p); });
}
// rounded in the caller's mode
VrxStatus N0(vrxsConvert_32s32f)(const Vrx32s* s, Vrx32f* d, int len) {
    return widenV(s, d, len, [](const Vrx32s* p) { return simd::intToFloat(simd::V<int32_t>::load(p)); });
}
VrxStatus N0(vrxsConvert_32s64f)(const Vrx32s* s, Vrx64f* d, int len) {
    return widenV(s, d, len, [](const Vrx32s* p) { return simd::loadToDouble(p); });
}
VrxStatus N0(vrxsConvert_32f64f)(const Vrx32f* s, Vrx64f* d, int len) {
    return widenV(s, d, len, [](const Vrx32f* p) { return simd::loadToDouble(p); });
}

// 8s to 16s on 256-bit lanes, 16 elements a step: 8- and 16-bit lanes have
// no register type in the SIMD layer, so the kernel uses raw AVX2 registers.
// Large calls stream by the shared rule (map::streamWorth), the head being
// scalar up to a 32-byte boundary.
VrxStatus N0(vrxsConvert_8s16s)(const Vrx8s* s, Vrx16s* d, int len) {
    if (VrxStatus st = checkArgs(len, s, d)) return st;
    auto st16 = [](Vrx16s* q, __m256i v) { _mm256_storeu_si256(reinterpret_cast<__m256i*>(q), v); };
    int i = 0;
    if (map::streamWorth(static_cast<size_t>(len) * 3) && (reinterpret_cast<uintptr_t>(d) & 1) == 0) {
        // large calls: scalar head up to a 32-byte boundary, then
        // streaming stores
        for (; (reinterpret_cast<uintptr_t>(d + i) & 31) != 0; ++i) d[i] = s[i];
        for (; i + 64 <= len; i += 64) {
            __m256i a = _mm256_cvtepi8_epi16(ld128(s + i)), b = _mm256_cvtepi8_epi16(ld128(s + i + 16));
            __m256i c = _mm256_cvtepi8_epi16(ld128(s + i + 32)), e = _mm256_cvtepi8_epi16(ld128(s + i + 48));
            auto sts = [](Vrx16s* q, __m256i v) { _mm256_stream_si256(reinterpret_cast<__m256i*>(q), v); };
            sts(d + i, a); sts(d + i + 16, b); sts(d + i + 32, c); sts(d + i + 48, e);
        }
        simd::streamFence();
    }
    for (; i + 64 <= len; i += 64) {
        __m256i a = _mm256_cvtepi8_epi16(ld128(s + i)), b = _mm256_cvtepi8_epi16(ld128(s + i + 16));
        __m256i c = _mm256_cvtepi8_epi16(ld128(s + i + 32)), e = _mm256_cvtepi8_epi16(ld128(s + i + 48));
        st16(d + i, a); st16(d + i + 16, b); st16(d + i + 32, c); st16(d + i + 48, e);
    }
    for (; i + 16 <= len; i += 16) st16(d + i, _mm256_cvtepi8_epi16(ld128(s + i)));
    for (; i < len; ++i) d[i] = s[i];
    return vrxOk;
}

VrxStatus N0(vrxsConvert_64s64f)(const Vrx64s* s, Vrx64f* d, int len) {
    if (VrxStatus st = checkArgs(len, s, d)) return st;
    cvt64s64f(s, d, len);
    return vrxOk;
}

VrxStatus N0(vrxsConvert_64f32f)(const Vrx64f* s, Vrx32f* d, int len) {
    if (VrxStatus st = checkArgs(len, s, d)) return st;
    cvt64f32f(s, d, len);
    return vrxOk;
}

VrxStatus N0(vrxsConvert_32s16s)(const Vrx32s* s, Vrx16s* d, int len) {
    if (VrxStatus st = checkArgs(len, s, d)) return st;
    pack32s16s(s, d, len);
    return vrxOk;
}

// ------------------------------------------------- integer to float with sf
VrxStatus N0(vrxsConvert_16s32f_Sfs)(const Vrx16s* s, Vrx32f* d, int len, int sf) {
    if (sf == 0) return N0(vrxsConvert_16s32f)(s, d, len);
    if (VrxStatus st = checkArgs(len, s, d)) return st;
    widenScaled(s, d, len, pow2ByHalving(sf));
    return vrxOk;
}

VrxStatus N0(vrxsConvert_32s32f_Sfs)(const Vrx32s* s, Vrx32f* d, int len, int sf) {
    if (sf == 0) return N0(vrxsConvert_32s32f)(s, d, len);
    if (VrxStatus st = checkArgs(len, s, d)) return st;
    if (sf > 126) sf = 126;
    if (sf < -96) sf = -96;
    widenScaled(s, d, len, pow2Wrapped(sf));
    return vrxOk;
}

VrxStatus N0(vrxsConvert_32s64f_Sfs)(const Vrx32s* s, Vrx64f* d, int len, int sf) {
    if (sf == 0) return N0(vrxsConvert_32s64f)(s, d, len);
    if (VrxStatus st = checkArgs(len, s, d)) return st;
    widenScaled(s, d, len, pow2Double(sf));
    return vrxOk;
}

VrxStatus N0(vrxsConvert_16s64f_Sfs)(const Vrx16s* s, Vrx64f* d, int len, int sf) {
    if (VrxStatus st = checkArgs(len, s, d)) return st;
    if (sf == 0) widen(s, d, len);
    else widenScaledOnce(s, d, len, sf);
    return vrxOk;
}

// ------------------------------------------------ integer narrowing with sf
VrxStatus N0(vrxsConvert_32s16s_Sfs)(const Vrx32s* s, Vrx16s* d, int len, int sf) {
    if (VrxStatus st = checkArgs(len, s, d)) return st;
    if (sf == 0) pack32s16s(s, d, len);
    else if (sf >= 32) return N0(vrxsZero_16s)(d, len);
    else if (sf > 0) shrEvenSat(s, d, len, sf);
    else shlSat(s, d, len, sf < -15 ? 15 : -sf);  // from -15 on only the sign counts
    return vrxOk;
}

VrxStatus N0(vrxsConvert_16s8s_Sfs)(const Vrx16s* s, Vrx8s* d, int len, VrxRounding rnd, int sf) {
    if (VrxStatus st = checkArgs(len, s, d)) return st;
    if (sf >= 18) return N0(vrxsZero_8u)(reinterpret_cast<Vrx8u*>(d), len);
    if (sf <= 0) { shlSat(s, d, len, sf < -8 ? 8 : -sf); return vrxOk; }
    if (rnd == vrxRndNear) cvt16s8sDown<kNear>(s, d, len, sf);
    else if (rnd == vrxRndZero) cvt16s8sDown<kZero>(s, d, len, sf);
    else cvt16s8sDown<kFin>(s, d, len, sf);
    return vrxOk;
}

VrxStatus N0(vrxsConvert_64s32s_Sfs)(const Vrx64s* s, Vrx32s* d, int len, VrxRounding rnd, int sf) {
    if (VrxStatus st = checkArgs(len, s, d)) return st;
    if (sf > 100) sf = 100;  // every result is already zero from sf 65 on
    if (sf <= 0) {
        int sh = sf < -32 ? 32 : -sf;
        for (int i = 0; i < len; ++i) d[i] = saturate<Vrx32s>(static_cast<__int128>(s[i]) * (static_cast<__int128>(1) << sh));
        return vrxOk;
    }
    if (rnd == vrxRndNear) cvt64s32sDown<kNear>(s, d, len, sf);
    else if (rnd == vrxRndZero) cvt64s32sDown<kZero>(s, d, len, sf);
    else cvt64s32sDown<kFin>(s, d, len, sf);
    return vrxOk;
}
