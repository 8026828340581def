// The AVX-512F target of the SIMD layer: one register type per lane type
// and the operations every kernel is written against. A second target
// (AVX2, say) is another header of this shape selected in simd.h; kernels
// name only V<T>, its members and the free helpers of simd.h.
//
// Semantics pinned here, for every target:
// - min(a, b) and max(a, b) return b when either lane is NaN (the x86 rule:
//   the second operand passes through on unordered compares).
// - fma(a, b, c) = a*b + c, fms(a, b, c) = a*b - c, fnma(a, b, c) = c - a*b,
//   each rounded once. Nothing else is fused: the build forbids contraction.
// - Masked loads without a fill read 0 in the lanes outside the mask and
//   never touch the memory behind them; masked stores write only the lanes
//   of the mask.
// - Compares return a lane mask M; "ordered, quiet" compares are false on
//   NaN, ne() is true on NaN.
#pragma once

#include "vrx_base.h"

// The intrinsics headers of g++ 12 read _mm512_undefined_* values.
#pragma GCC diagnostic ignored "-Wuninitialized"

#include <immintrin.h>

namespace n0::simd {

inline constexpr const char* kTarget = "avx512f";
inline constexpr size_t kBytes = 64;   // one register

template <class T> struct V;

// ------------------------------------------------------------------ float
template <> struct V<float> {
    using T = float;
    using R = __m512;
    using M = __mmask16;
    static constexpr int N = 16;
    static constexpr M kAll = 0xFFFF;
    static VRX_INLINE R load(const T* p) { return _mm512_loadu_ps(p); }
    static VRX_INLINE R loada(const T* p) { return _mm512_load_ps(p); }
    static VRX_INLINE R loadm(M m, const T* p) { return _mm512_maskz_loadu_ps(m, p); }
    static VRX_INLINE R loadm(M m, const T* p, T fill) { return _mm512_mask_loadu_ps(_mm512_set1_ps(fill), m, p); }
    static VRX_INLINE void store(T* p, R v) { _mm512_storeu_ps(p, v); }
    static VRX_INLINE void storea(T* p, R v) { _mm512_store_ps(p, v); }
    static VRX_INLINE void storem(T* p, M m, R v) { _mm512_mask_storeu_ps(p, m, v); }
    // p must be 64-byte aligned; follow a run of these with streamFence()
    static VRX_INLINE void stream(T* p, R v) { _mm512_stream_ps(p, v); }
    static VRX_INLINE R set1(T v) { return _mm512_set1_ps(v); }
    static VRX_INLINE R zero() { return _mm512_setzero_ps(); }
    static VRX_INLINE R add(R a, R b) { return _mm512_add_ps(a, b); }
    static VRX_INLINE R sub(R a, R b) { return _mm512_sub_ps(a, b); }
    static VRX_INLINE R mul(R a, R b) { return _mm512_mul_ps(a, b); }
    static VRX_INLINE R div(R a, R b) { return _mm512_div_ps(a, b); }
    static VRX_INLINE R sqrt(R a) { return _mm512_sqrt_ps(a); }
    // approximate 1/a, relative error below 2^-14
    static VRX_INLINE R rcp14(R a) { return _mm512_rcp14_ps(a); }
    // approximate 1/sqrt(a), relative error below 2^-14
    static VRX_INLINE R rsqrt14(R a) { return _mm512_rsqrt14_ps(a); }
    static VRX_INLINE R fma(R a, R b, R c) { return _mm512_fmadd_ps(a, b, c); }
    static VRX_INLINE R fms(R a, R b, R c) { return _mm512_fmsub_ps(a, b, c); }
    static VRX_INLINE R fnma(R a, R b, R c) { return _mm512_fnmadd_ps(a, b, c); }
    static VRX_INLINE R min(R a, R b) { return _mm512_min_ps(a, b); }
    static VRX_INLINE R max(R a, R b) { return _mm512_max_ps(a, b); }
    static VRX_INLINE R abs(R a) { return _mm512_castsi512_ps(_mm512_and_si512(_mm512_castps_si512(a), _mm512_set1_epi32(0x7FFFFFFF))); }
    static VRX_INLINE R neg(R a) { return _mm512_castsi512_ps(_mm512_xor_si512(_mm512_castps_si512(a), _mm512_set1_epi32(static_cast<int>(0x80000000u)))); }
    static VRX_INLINE R andb(R a, R b) { return _mm512_castsi512_ps(_mm512_and_si512(_mm512_castps_si512(a), _mm512_castps_si512(b))); }
    static VRX_INLINE R orb(R a, R b) { return _mm512_castsi512_ps(_mm512_or_si512(_mm512_castps_si512(a), _mm512_castps_si512(b))); }
    static VRX_INLINE R xorb(R a, R b) { return _mm512_castsi512_ps(_mm512_xor_si512(_mm512_castps_si512(a), _mm512_castps_si512(b))); }
    static VRX_INLINE M lt(R a, R b) { return _mm512_cmp_ps_mask(a, b, _CMP_LT_OQ); }
    static VRX_INLINE M le(R a, R b) { return _mm512_cmp_ps_mask(a, b, _CMP_LE_OQ); }
    static VRX_INLINE M gt(R a, R b) { return _mm512_cmp_ps_mask(a, b, _CMP_GT_OQ); }
    static VRX_INLINE M ge(R a, R b) { return _mm512_cmp_ps_mask(a, b, _CMP_GE_OQ); }
    static VRX_INLINE M eq(R a, R b) { return _mm512_cmp_ps_mask(a, b, _CMP_EQ_OQ); }
    static VRX_INLINE M ne(R a, R b) { return _mm512_cmp_ps_mask(a, b, _CMP_NEQ_UQ); }
    static VRX_INLINE M unord(R a, R b) { return _mm512_cmp_ps_mask(a, b, _CMP_UNORD_Q); }
    // the complements of lt, le, gt: true on NaN
    static VRX_INLINE M nlt(R a, R b) { return _mm512_cmp_ps_mask(a, b, _CMP_NLT_UQ); }
    static VRX_INLINE M nle(R a, R b) { return _mm512_cmp_ps_mask(a, b, _CMP_NLE_UQ); }
    static VRX_INLINE M ngt(R a, R b) { return _mm512_cmp_ps_mask(a, b, _CMP_NGT_UQ); }
    // lanes of m take b, the others a
    static VRX_INLINE R blend(M m, R a, R b) { return _mm512_mask_blend_ps(m, a, b); }
    static VRX_INLINE T first(R a) { return _mm512_cvtss_f32(a); }
    // sum of the lanes in a fixed tree: halves folded 256, 128, 64, 32 bits
    static VRX_INLINE T reduceAdd(R a) {
        __m256 h = _mm256_add_ps(_mm512_castps512_ps256(a), _mm256_castpd_ps(_mm512_extractf64x4_pd(_mm512_castps_pd(a), 1)));
        __m128 q = _mm_add_ps(_mm256_castps256_ps128(h), _mm256_extractf128_ps(h, 1));
        q = _mm_add_ps(q, _mm_movehl_ps(q, q));
        q = _mm_add_ss(q, _mm_movehdup_ps(q));
        return _mm_cvtss_f32(q);
    }
    // interleaved complex pairs (re, im) in adjacent lanes
    static VRX_INLINE R set2(T re, T im) { return _mm512_setr4_ps(re, im, re, im); }
    static VRX_INLINE R dupRe(R a) { return _mm512_moveldup_ps(a); }
    static VRX_INLINE R dupIm(R a) { return _mm512_movehdup_ps(a); }
    static VRX_INLINE R swapPair(R a) { return _mm512_permute_ps(a, 0xB1); }
    // even lanes a*b - c, odd lanes a*b + c, one rounding each
    static VRX_INLINE R fmaddsub(R a, R b, R c) { return _mm512_fmaddsub_ps(a, b, c); }
    // lane i takes lane idx[i] of the pair (a, b), lanes 0..N-1 from a and N..2N-1 from b
    static VRX_INLINE R permute2(R a, __m512i idx, R b) { return _mm512_permutex2var_ps(a, idx, b); }
    // a to the nearest integer, ties to even, whatever the caller's mode
    static VRX_INLINE R rint(R a) { return _mm512_roundscale_ps(a, _MM_FROUND_TO_NEAREST_INT | _MM_FROUND_NO_EXC); }
    // a * 2^floor(n), one rounding (to infinity or into the subnormals)
    static VRX_INLINE R scalef(R a, R n) { return _mm512_scalef_ps(a, n); }
    // fma rounded to nearest, ties to even, whatever the caller's mode
    static VRX_INLINE R fmaNearest(R a, R b, R c) { return _mm512_fmadd_round_ps(a, b, c, _MM_FROUND_TO_NEAREST_INT | _MM_FROUND_NO_EXC); }
    // lanes of m: a+b or a*b+c (one rounding); the other lanes keep src or c
    static VRX_INLINE R addm(R src, M m, R a, R b) { return _mm512_mask_add_ps(src, m, a, b); }
    static VRX_INLINE R fmam(M m, R a, R b, R c) { return _mm512_mask3_fmadd_ps(a, b, c, m); }
    // sums of the even lanes and of the odd lanes (real and imaginary parts), fixed tree
    static VRX_INLINE void reduceAdd2(R a, T* even, T* odd) {
        __m256 h = _mm256_add_ps(_mm512_castps512_ps256(a), _mm256_castpd_ps(_mm512_extractf64x4_pd(_mm512_castps_pd(a), 1)));
        __m128 q = _mm_add_ps(_mm256_castps256_ps128(h), _mm256_extractf128_ps(h, 1));
        q = _mm_add_ps(q, _mm_movehl_ps(q, q));
        *even = _mm_cvtss_f32(q);
        *odd = _mm_cvtss_f32(_mm_movehdup_ps(q));
    }
    // even lanes a*b + c, odd lanes a*b - c, one rounding each
    static VRX_INLINE R fmsubadd(R a, R b, R c) { return _mm512_fmsubadd_ps(a, b, c); }
    // lanes 0..7 each repeated into two adjacent lanes (a real onto a pair)
    static VRX_INLINE R dupLowPairs(R a) {
        return _mm512_permutexvar_ps(_mm512_setr_epi32(0, 0, 1, 1, 2, 2, 3, 3, 4, 4, 5, 5, 6, 6, 7, 7), a);
    }    // lanes K..15 of lo followed by lanes 0..K-1 of hi: the register that
    // starts K elements into the pair lo, hi (K = 0 gives lo)
    template <int K> static VRX_INLINE R alignr(R hi, R lo) {
        return _mm512_castsi512_ps(_mm512_alignr_epi32(_mm512_castps_si512(hi), _mm512_castps_si512(lo), K));
    }
    // the four values p[0..3] repeated over the register (one 128-bit broadcast load)
    static VRX_INLINE R repeat4(const T* p) { return _mm512_broadcast_f32x4(_mm_loadu_ps(p)); }
};

// ----------------------------------------------------------------- double
template <> struct V<double> {
    using T = double;
    using R = __m512d;
    using M = __mmask8;
    static constexpr int N = 8;
    static constexpr M kAll = 0xFF;
    static VRX_INLINE R load(const T* p) { return _mm512_loadu_pd(p); }
    static VRX_INLINE R loada(const T* p) { return _mm512_load_pd(p); }
    static VRX_INLINE R loadm(M m, const T* p) { return _mm512_maskz_loadu_pd(m, p); }
    static VRX_INLINE R loadm(M m, const T* p, T fill) { return _mm512_mask_loadu_pd(_mm512_set1_pd(fill), m, p); }
    static VRX_INLINE void store(T* p, R v) { _mm512_storeu_pd(p, v); }
    static VRX_INLINE void storea(T* p, R v) { _mm512_store_pd(p, v); }
    static VRX_INLINE void storem(T* p, M m, R v) { _mm512_mask_storeu_pd(p, m, v); }
    static VRX_INLINE void stream(T* p, R v) { _mm512_stream_pd(p, v); }
    static VRX_INLINE R set1(T v) { return _mm512_set1_pd(v); }
    static VRX_INLINE R zero() { return _mm512_setzero_pd(); }
    static VRX_INLINE R add(R a, R b) { return _mm512_add_pd(a, b); }
    static VRX_INLINE R sub(R a, R b) { return _mm512_sub_pd(a, b); }
    static VRX_INLINE R mul(R a, R b) { return _mm512_mul_pd(a, b); }
    static VRX_INLINE R div(R a, R b) { return _mm512_div_pd(a, b); }
    static VRX_INLINE R sqrt(R a) { return _mm512_sqrt_pd(a); }
    static VRX_INLINE R rcp14(R a) { return _mm512_rcp14_pd(a); }
    static VRX_INLINE R rsqrt14(R a) { return _mm512_rsqrt14_pd(a); }
    static VRX_INLINE R fma(R a, R b, R c) { return _mm512_fmadd_pd(a, b, c); }
    static VRX_INLINE R fms(R a, R b, R c) { return _mm512_fmsub_pd(a, b, c); }
    static VRX_INLINE R fnma(R a, R b, R c) { return _mm512_fnmadd_pd(a, b, c); }
    static VRX_INLINE R min(R a, R b) { return _mm512_min_pd(a, b); }
    static VRX_INLINE R max(R a, R b) { return _mm512_max_pd(a, b); }
    static VRX_INLINE R abs(R a) { return _mm512_castsi512_pd(_mm512_and_si512(_mm512_castpd_si512(a), _mm512_set1_epi64(0x7FFFFFFFFFFFFFFFll))); }
    static VRX_INLINE R neg(R a) { return _mm512_castsi512_pd(_mm512_xor_si512(_mm512_castpd_si512(a), _mm512_set1_epi64(static_cast<long long>(0x8000000000000000ull)))); }
    static VRX_INLINE R andb(R a, R b) { return _mm512_castsi512_pd(_mm512_and_si512(_mm512_castpd_si512(a), _mm512_castpd_si512(b))); }
    static VRX_INLINE R orb(R a, R b) { return _mm512_castsi512_pd(_mm512_or_si512(_mm512_castpd_si512(a), _mm512_castpd_si512(b))); }
    static VRX_INLINE R xorb(R a, R b) { return _mm512_castsi512_pd(_mm512_xor_si512(_mm512_castpd_si512(a), _mm512_castpd_si512(b))); }
    static VRX_INLINE M lt(R a, R b) { return _mm512_cmp_pd_mask(a, b, _CMP_LT_OQ); }
    static VRX_INLINE M le(R a, R b) { return _mm512_cmp_pd_mask(a, b, _CMP_LE_OQ); }
    static VRX_INLINE M gt(R a, R b) { return _mm512_cmp_pd_mask(a, b, _CMP_GT_OQ); }
    static VRX_INLINE M ge(R a, R b) { return _mm512_cmp_pd_mask(a, b, _CMP_GE_OQ); }
    static VRX_INLINE M eq(R a, R b) { return _mm512_cmp_pd_mask(a, b, _CMP_EQ_OQ); }
    static VRX_INLINE M ne(R a, R b) { return _mm512_cmp_pd_mask(a, b, _CMP_NEQ_UQ); }
    static VRX_INLINE M unord(R a, R b) { return _mm512_cmp_pd_mask(a, b, _CMP_UNORD_Q); }
    // the complements of lt, le, gt: true on NaN
    static VRX_INLINE M nlt(R a, R b) { return _mm512_cmp_pd_mask(a, b, _CMP_NLT_UQ); }
    static VRX_INLINE M nle(R a, R b) { return _mm512_cmp_pd_mask(a, b, _CMP_NLE_UQ); }
    static VRX_INLINE M ngt(R a, R b) { return _mm512_cmp_pd_mask(a, b, _CMP_NGT_UQ); }
    static VRX_INLINE R blend(M m, R a, R b) { return _mm512_mask_blend_pd(m, a, b); }
    static VRX_INLINE T first(R a) { return _mm512_cvtsd_f64(a); }
    static VRX_INLINE T reduceAdd(R a) {
        __m256d h = _mm256_add_pd(_mm512_castpd512_pd256(a), _mm512_extractf64x4_pd(a, 1));
        __m128d q = _mm_add_pd(_mm256_castpd256_pd128(h), _mm256_extractf128_pd(h, 1));
        q = _mm_add_sd(q, _mm_unpackhi_pd(q, q));
        return _mm_cvtsd_f64(q);
    }
    static VRX_INLINE R set2(T re, T im) { return _mm512_setr4_pd(re, im, re, im); }
    static VRX_INLINE R dupRe(R a) { return _mm512_movedup_pd(a); }
    static VRX_INLINE R dupIm(R a) { return _mm512_permute_pd(a, 0xFF); }
    static VRX_INLINE R swapPair(R a) { return _mm512_permute_pd(a, 0x55); }
    static VRX_INLINE R fmaddsub(R a, R b, R c) { return _mm512_fmaddsub_pd(a, b, c); }
    static VRX_INLINE R permute2(R a, __m512i idx, R b) { return _mm512_permutex2var_pd(a, idx, b); }
    static VRX_INLINE R rint(R a) { return _mm512_roundscale_pd(a, _MM_FROUND_TO_NEAREST_INT | _MM_FROUND_NO_EXC); }
    // a rounded toward minus infinity, whatever the caller's mode
    static VRX_INLINE R floor(R a) { return _mm512_roundscale_pd(a, _MM_FROUND_TO_NEG_INF | _MM_FROUND_NO_EXC); }
    static VRX_INLINE R scalef(R a, R n) { return _mm512_scalef_pd(a, n); }
    // |a| = mant(a) * 2^expo(a) with mant(a) in [1, 2), exact (subnormals too)
    static VRX_INLINE R mant(R a) { return _mm512_getmant_pd(a, _MM_MANT_NORM_1_2, _MM_MANT_SIGN_zero); }
    static VRX_INLINE R expo(R a) { return _mm512_getexp_pd(a); }
    static VRX_INLINE R addm(R src, M m, R a, R b) { return _mm512_mask_add_pd(src, m, a, b); }
    static VRX_INLINE R fmam(M m, R a, R b, R c) { return _mm512_mask3_fmadd_pd(a, b, c, m); }
    static VRX_INLINE void reduceAdd2(R a, T* even, T* odd) {
        __m256d h = _mm256_add_pd(_mm512_castpd512_pd256(a), _mm512_extractf64x4_pd(a, 1));
        __m128d q = _mm_add_pd(_mm256_castpd256_pd128(h), _mm256_extractf128_pd(h, 1));
        *even = _mm_cvtsd_f64(q);
        *odd = _mm_cvtsd_f64(_mm_unpackhi_pd(q, q));
    }
    static VRX_INLINE R fmsubadd(R a, R b, R c) { return _mm512_fmsubadd_pd(a, b, c); }    // lanes K..7 of lo followed by lanes 0..K-1 of hi (K = 0 gives lo)
    template <int K> static VRX_INLINE R alignr(R hi, R lo) {
        return _mm512_castsi512_pd(_mm512_alignr_epi64(_mm512_castpd_si512(hi), _mm512_castpd_si512(lo), K));
    }
    // the four values p[0..3] repeated over the register (one 256-bit broadcast load)
    static VRX_INLINE R repeat4(const T* p) { return _mm512_broadcast_f64x4(_mm256_loadu_pd(p)); }
};

// ------------------------------------------------------ 32- and 64-bit integers
// One body per lane width; the signedness picks min/max, compares and the
// right shift. Lanes of 8 and 16 bits have no register type of their own:
// see widen/narrow in simd.h.
template <class T, int W> struct VInt;

template <class T> struct VInt<T, 4> {
    using R = __m512i;
    using M = __mmask16;
    static constexpr int N = 16;
    static constexpr M kAll = 0xFFFF;
    static constexpr bool kSigned = T(-1) < T(0);
    static VRX_INLINE R load(const T* p) { return _mm512_loadu_si512(p); }
    static VRX_INLINE R loadm(M m, const T* p) { return _mm512_maskz_loadu_epi32(m, p); }
    static VRX_INLINE R loadm(M m, const T* p, T fill) { return _mm512_mask_loadu_epi32(_mm512_set1_epi32(static_cast<int>(fill)), m, p); }
    static VRX_INLINE void store(T* p, R v) { _mm512_storeu_si512(p, v); }
    static VRX_INLINE void storem(T* p, M m, R v) { _mm512_mask_storeu_epi32(p, m, v); }
    static VRX_INLINE void stream(T* p, R v) { _mm512_stream_si512(reinterpret_cast<__m512i*>(p), v); }
    static VRX_INLINE R set1(T v) { return _mm512_set1_epi32(static_cast<int>(v)); }
    static VRX_INLINE R zero() { return _mm512_setzero_si512(); }
    static VRX_INLINE R add(R a, R b) { return _mm512_add_epi32(a, b); }
    static VRX_INLINE R sub(R a, R b) { return _mm512_sub_epi32(a, b); }
    static VRX_INLINE R mullo(R a, R b) { return _mm512_mullo_epi32(a, b); }
    static VRX_INLINE R min(R a, R b) { if constexpr (kSigned) return _mm512_min_epi32(a, b); else return _mm512_min_epu32(a, b); }
    static VRX_INLINE R max(R a, R b) { if constexpr (kSigned) return _mm512_max_epi32(a, b); else return _mm512_max_epu32(a, b); }
    static VRX_INLINE R abs(R a) { return _mm512_abs_epi32(a); }
    static VRX_INLINE R andb(R a, R b) { return _mm512_and_si512(a, b); }
    static VRX_INLINE R orb(R a, R b) { return _mm512_or_si512(a, b); }
    static VRX_INLINE R xorb(R a, R b) { return _mm512_xor_si512(a, b); }
    static VRX_INLINE R andnot(R a, R b) { return _mm512_andnot_si512(a, b); }  // ~a & b
    template <int S> static VRX_INLINE R shl(R a) { return _mm512_slli_epi32(a, S); }
    // arithmetic for signed lanes, logical for unsigned
    template <int S> static VRX_INLINE R shr(R a) { if constexpr (kSigned) return _mm512_srai_epi32(a, S); else return _mm512_srli_epi32(a, S); }
    static VRX_INLINE R shlv(R a, R s) { return _mm512_sllv_epi32(a, s); }
    static VRX_INLINE R shrv(R a, R s) { if constexpr (kSigned) return _mm512_srav_epi32(a, s); else return _mm512_srlv_epi32(a, s); }
    static VRX_INLINE M lt(R a, R b) { if constexpr (kSigned) return _mm512_cmplt_epi32_mask(a, b); else return _mm512_cmplt_epu32_mask(a, b); }
    static VRX_INLINE M le(R a, R b) { if constexpr (kSigned) return _mm512_cmple_epi32_mask(a, b); else return _mm512_cmple_epu32_mask(a, b); }
    static VRX_INLINE M gt(R a, R b) { return lt(b, a); }
    static VRX_INLINE M ge(R a, R b) { return le(b, a); }
    static VRX_INLINE M eq(R a, R b) { return _mm512_cmpeq_epi32_mask(a, b); }
    static VRX_INLINE M ne(R a, R b) { return _mm512_cmpneq_epi32_mask(a, b); }
    // lanes where a & b is not zero
    static VRX_INLINE M test(R a, R b) { return _mm512_test_epi32_mask(a, b); }
    static VRX_INLINE R blend(M m, R a, R b) { return _mm512_mask_blend_epi32(m, a, b); }
    static VRX_INLINE T first(R a) { return static_cast<T>(_mm_cvtsi128_si32(_mm512_castsi512_si128(a))); }
    // lanes moved up by K places, 0 shifted in: (0, .., 0, a0, .., a[15-K])
    template <int K> static VRX_INLINE R shiftUp(R a) { return _mm512_alignr_epi32(a, _mm512_setzero_si512(), 16 - K); }
    // lane 15 in every lane
    static VRX_INLINE R broadcastLast(R a) { return _mm512_permutexvar_epi32(_mm512_set1_epi32(15), a); }
    // the lanes of m packed together and stored from p on (popcount(m) elements
    // written); packed in the register, then a masked store: the memory form
    // of the compress instruction is microcoded on some processors
    static VRX_INLINE void compress(T* p, M m, R v) {
        _mm512_mask_storeu_epi32(p, static_cast<M>(_bzhi_u32(0xFFFFu, static_cast<unsigned>(__builtin_popcount(m)))), _mm512_maskz_compress_epi32(m, v));
    }
    // lane i of the result is lane idx[i] of v
    static VRX_INLINE R permute(R idx, R v) { return _mm512_permutexvar_epi32(idx, v); }
};

template <class T> struct VInt<T, 8> {
    using R = __m512i;
    using M = __mmask8;
    static constexpr int N = 8;
    static constexpr M kAll = 0xFF;
    static constexpr bool kSigned = T(-1) < T(0);
    static VRX_INLINE R load(const T* p) { return _mm512_loadu_si512(p); }
    static VRX_INLINE R loadm(M m, const T* p) { return _mm512_maskz_loadu_epi64(m, p); }
    static VRX_INLINE R loadm(M m, const T* p, T fill) { return _mm512_mask_loadu_epi64(_mm512_set1_epi64(static_cast<long long>(fill)), m, p); }
    static VRX_INLINE void store(T* p, R v) { _mm512_storeu_si512(p, v); }
    static VRX_INLINE void storem(T* p, M m, R v) { _mm512_mask_storeu_epi64(p, m, v); }
    static VRX_INLINE void stream(T* p, R v) { _mm512_stream_si512(reinterpret_cast<__m512i*>(p), v); }
    static VRX_INLINE R set1(T v) { return _mm512_set1_epi64(static_cast<long long>(v)); }
    static VRX_INLINE R zero() { return _mm512_setzero_si512(); }
    static VRX_INLINE R add(R a, R b) { return _mm512_add_epi64(a, b); }
    static VRX_INLINE R sub(R a, R b) { return _mm512_sub_epi64(a, b); }
    // low 32 bits of each lane times the low 32 bits: the full 64-bit product
    static VRX_INLINE R mul32(R a, R b) { if constexpr (kSigned) return _mm512_mul_epi32(a, b); else return _mm512_mul_epu32(a, b); }
    static VRX_INLINE R min(R a, R b) { if constexpr (kSigned) return _mm512_min_epi64(a, b); else return _mm512_min_epu64(a, b); }
    static VRX_INLINE R max(R a, R b) { if constexpr (kSigned) return _mm512_max_epi64(a, b); else return _mm512_max_epu64(a, b); }
    static VRX_INLINE R abs(R a) { return _mm512_abs_epi64(a); }
    static VRX_INLINE R andb(R a, R b) { return _mm512_and_si512(a, b); }
    static VRX_INLINE R orb(R a, R b) { return _mm512_or_si512(a, b); }
    static VRX_INLINE R xorb(R a, R b) { return _mm512_xor_si512(a, b); }
    static VRX_INLINE R andnot(R a, R b) { return _mm512_andnot_si512(a, b); }
    template <int S> static VRX_INLINE R shl(R a) { return _mm512_slli_epi64(a, S); }
    template <int S> static VRX_INLINE R shr(R a) { if constexpr (kSigned) return _mm512_srai_epi64(a, S); else return _mm512_srli_epi64(a, S); }
    static VRX_INLINE R shlv(R a, R s) { return _mm512_sllv_epi64(a, s); }
    static VRX_INLINE R shrv(R a, R s) { if constexpr (kSigned) return _mm512_srav_epi64(a, s); else return _mm512_srlv_epi64(a, s); }
    static VRX_INLINE M lt(R a, R b) { if constexpr (kSigned) return _mm512_cmplt_epi64_mask(a, b); else return _mm512_cmplt_epu64_mask(a, b); }
    static VRX_INLINE M le(R a, R b) { if constexpr (kSigned) return _mm512_cmple_epi64_mask(a, b); else return _mm512_cmple_epu64_mask(a, b); }
    static VRX_INLINE M gt(R a, R b) { return lt(b, a); }
    static VRX_INLINE M ge(R a, R b) { return le(b, a); }
    static VRX_INLINE M eq(R a, R b) { return _mm512_cmpeq_epi64_mask(a, b); }
    static VRX_INLINE M ne(R a, R b) { return _mm512_cmpneq_epi64_mask(a, b); }
    // lanes where a & b is not zero
    static VRX_INLINE M test(R a, R b) { return _mm512_test_epi64_mask(a, b); }
    static VRX_INLINE R blend(M m, R a, R b) { return _mm512_mask_blend_epi64(m, a, b); }
    static VRX_INLINE T first(R a) { return static_cast<T>(_mm_cvtsi128_si64(_mm512_castsi512_si128(a))); }
    // lanes 2k and 2k+1 exchanged
    static VRX_INLINE R swapPair(R a) { return _mm512_shuffle_epi32(a, _MM_PERM_BADC); }
    static VRX_INLINE void compress(T* p, M m, R v) {
        _mm512_mask_storeu_epi64(p, static_cast<M>(_bzhi_u32(0xFFu, static_cast<unsigned>(__builtin_popcount(m)))), _mm512_maskz_compress_epi64(m, v));
    }
    static VRX_INLINE R permute(R idx, R v) { return _mm512_permutexvar_epi64(idx, v); }
};

template <> struct V<int32_t> : VInt<int32_t, 4> { using T = int32_t; };
template <> struct V<uint32_t> : VInt<uint32_t, 4> { using T = uint32_t; };
template <> struct V<int64_t> : VInt<int64_t, 8> { using T = int64_t; };
template <> struct V<uint64_t> : VInt<uint64_t, 8> { using T = uint64_t; };

// ------------------------------------------------------------ conversions
// Lane-exact moves between the register types; rounding conversions take
// the caller's MXCSR mode unless named otherwise.
VRX_INLINE __m512i bitsOf(__m512 a) { return _mm512_castps_si512(a); }
VRX_INLINE __m512i bitsOf(__m512d a) { return _mm512_castpd_si512(a); }
VRX_INLINE __m512 floatsOf(__m512i a) { return _mm512_castsi512_ps(a); }
VRX_INLINE __m512d doublesOf(__m512i a) { return _mm512_castsi512_pd(a); }
// 32-bit integer lanes to floats, rounded in the caller's mode (exact
// below 2^24 in magnitude).
VRX_INLINE __m512 intToFloat(__m512i a) { return _mm512_cvtepi32_ps(a); }
// Floats to 32-bit integer lanes, rounded in the caller's mode; a NaN or
// out-of-range lane gives 0x80000000.
VRX_INLINE __m512i floatToInt(__m512 a) { return _mm512_cvtps_epi32(a); }
VRX_INLINE __m512i floatToIntTrunc(__m512 a) { return _mm512_cvttps_epi32(a); }
// Doubles to 32-bit integers in the 8 lanes of a half register, rounded in
// the caller's mode or truncated; a NaN or out-of-range lane gives
// 0x80000000.
VRX_INLINE __m256i doubleToInt(__m512d a) { return _mm512_cvtpd_epi32(a); }
VRX_INLINE __m256i doubleToIntTrunc(__m512d a) { return _mm512_cvttpd_epi32(a); }
// The low and high 8 floats of a register as doubles (exact).
VRX_INLINE __m512d lowToDouble(__m512 a) { return _mm512_cvtps_pd(_mm512_castps512_ps256(a)); }
VRX_INLINE __m512d highToDouble(__m512 a) {
    return _mm512_cvtps_pd(_mm256_castpd_ps(_mm512_extractf64x4_pd(_mm512_castps_pd(a), 1)));
}
// The 8 elements at p as doubles (exact).
VRX_INLINE __m512d loadToDouble(const float* p) { return _mm512_cvtps_pd(_mm256_loadu_ps(p)); }
VRX_INLINE __m512d loadToDouble(const int32_t* p) { return _mm512_cvtepi32_pd(_mm256_loadu_si256(reinterpret_cast<const __m256i*>(p))); }
// Two registers of doubles rounded to nearest (ties to even) into one of
// floats, whatever the caller's mode: lo fills lanes 0..7, hi lanes 8..15.
VRX_INLINE __m512 joinToFloat(__m512d lo, __m512d hi) {
    __m256 a = _mm512_cvt_roundpd_ps(lo, _MM_FROUND_TO_NEAREST_INT | _MM_FROUND_NO_EXC);
    __m256 b = _mm512_cvt_roundpd_ps(hi, _MM_FROUND_TO_NEAREST_INT | _MM_FROUND_NO_EXC);
    return _mm512_castpd_ps(_mm512_insertf64x4(_mm512_castpd256_pd512(_mm256_castps_pd(a)), _mm256_castps_pd(b), 1));
}

// One register of doubles rounded to nearest into floats 0..7; lanes 8..15
// are unspecified.
VRX_INLINE __m512 lowToFloat(__m512d a) {
    return _mm512_castps256_ps512(_mm512_cvt_roundpd_ps(a, _MM_FROUND_TO_NEAREST_INT | _MM_FROUND_NO_EXC));
}
// Two registers of doubles converted in the caller's MXCSR rounding mode
// into one register: lo fills lanes 0..7, hi lanes 8..15. Out-of-range
// lanes of the integer form give 0x80000000, as the scalar conversion.
VRX_INLINE __m512 joinToFloatCur(__m512d lo, __m512d hi) {
    return _mm512_castpd_ps(_mm512_insertf64x4(_mm512_castpd256_pd512(_mm256_castps_pd(_mm512_cvtpd_ps(lo))),
                                               _mm256_castps_pd(_mm512_cvtpd_ps(hi)), 1));
}
VRX_INLINE __m512i joinToInt32Cur(__m512d lo, __m512d hi) {
    return _mm512_inserti64x4(_mm512_castsi256_si512(_mm512_cvtpd_epi32(lo)), _mm512_cvtpd_epi32(hi), 1);
}

// --------------------------------------------------- 8- and 16-bit lanes
// The build has no AVX-512BW: 8- and 16-bit data are widened into the
// 32-bit lanes of a zmm register (16 elements a register), computed there,
// and narrowed with saturating stores. Kernels that only move or compare
// such data may use 256-bit AVX2 registers directly, 16 or 32 elements a
// register; each such place says so.
VRX_INLINE __m512i widen16s(const int16_t* p) { return _mm512_cvtepi16_epi32(_mm256_loadu_si256(reinterpret_cast<const __m256i*>(p))); }
VRX_INLINE __m512i widen16u(const uint16_t* p) { return _mm512_cvtepu16_epi32(_mm256_loadu_si256(reinterpret_cast<const __m256i*>(p))); }
VRX_INLINE __m512i widen8s(const int8_t* p) { return _mm512_cvtepi8_epi32(_mm_loadu_si128(reinterpret_cast<const __m128i*>(p))); }
VRX_INLINE __m512i widen8u(const uint8_t* p) { return _mm512_cvtepu8_epi32(_mm_loadu_si128(reinterpret_cast<const __m128i*>(p))); }
// 32-bit lanes stored with signed or unsigned saturation (the unsigned
// forms clamp negative lanes to 0 first); only the lanes of m are written.
VRX_INLINE void narrowSat16s(int16_t* p, __mmask16 m, __m512i v) { _mm512_mask_cvtsepi32_storeu_epi16(p, m, v); }
VRX_INLINE void narrowSat16u(uint16_t* p, __mmask16 m, __m512i v) {
    _mm512_mask_cvtusepi32_storeu_epi16(p, m, _mm512_max_epi32(v, _mm512_setzero_si512()));
}
VRX_INLINE void narrowSat8s(int8_t* p, __mmask16 m, __m512i v) { _mm512_mask_cvtsepi32_storeu_epi8(p, m, v); }
VRX_INLINE void narrowSat8u(uint8_t* p, __mmask16 m, __m512i v) {
    _mm512_mask_cvtusepi32_storeu_epi8(p, m, _mm512_max_epi32(v, _mm512_setzero_si512()));
}

// Table reads for searches: the 32-bit word at 16-bit element idx of p in
// each lane of m (p[idx] low, p[idx + 1] high; other lanes 0). The word
// reads p[idx + 1], so callers keep idx + 1 inside the table, or ask for
// idx - 1 and take the high half.
VRX_INLINE __m512i gatherPair16(const uint16_t* p, __m512i idx, __mmask16 m) {
    return _mm512_mask_i32gather_epi32(_mm512_setzero_si512(), m, idx, p, 2);
}

// Compare-and-select on 8- and 16-bit lanes with AVX2, 32 bytes a register
// (32 of uint8_t, 16 of int16_t or uint16_t): for kernels that only compare
// or select such data. No masks: tails run element by element.
template <class T> struct VNarrow;
template <class T> struct VNarrowBase {
    using R = __m256i;
    static constexpr int N = static_cast<int>(32 / sizeof(T));
    static VRX_INLINE R load(const T* p) { return _mm256_loadu_si256(reinterpret_cast<const __m256i*>(p)); }
    static VRX_INLINE void store(T* p, R v) { _mm256_storeu_si256(reinterpret_cast<__m256i*>(p), v); }
    static VRX_INLINE R orb(R a, R b) { return _mm256_or_si256(a, b); }
};
template <> struct VNarrow<uint8_t> : VNarrowBase<uint8_t> {
    using T = uint8_t;
    static VRX_INLINE R set1(T v) { return _mm256_set1_epi8(static_cast<char>(v)); }
    static VRX_INLINE R min(R a, R b) { return _mm256_min_epu8(a, b); }
    static VRX_INLINE R max(R a, R b) { return _mm256_max_epu8(a, b); }
};
template <> struct VNarrow<uint16_t> : VNarrowBase<uint16_t> {
    using T = uint16_t;
    static VRX_INLINE R set1(T v) { return _mm256_set1_epi16(static_cast<short>(v)); }
    static VRX_INLINE R min(R a, R b) { return _mm256_min_epu16(a, b); }
    static VRX_INLINE R max(R a, R b) { return _mm256_max_epu16(a, b); }
};
template <> struct VNarrow<int16_t> : VNarrowBase<int16_t> {
    using T = int16_t;
    static VRX_INLINE R set1(T v) { return _mm256_set1_epi16(v); }
    static VRX_INLINE R min(R a, R b) { return _mm256_min_epi16(a, b); }
    static VRX_INLINE R max(R a, R b) { return _mm256_max_epi16(a, b); }
    // |a|, with -32768 staying -32768
    static VRX_INLINE R abs(R a) { return _mm256_abs_epi16(a); }
};
// ------------------------------------------------------------- reductions
// Loads for the statistics kernels. A "part" load reads only the first n
// values at p (n below a register's worth) and gives 0 in the other lanes.
// The first n <= 16 16-bit values widened to 32-bit lanes.
VRX_INLINE __m512i widen16sPart(const int16_t* p, size_t n) {
    if (n >= 16) return widen16s(p);
    alignas(32) int16_t b[16] = {};
    __builtin_memcpy(b, p, n * sizeof(int16_t));
    return widen16s(b);
}
// Eight floats (the first n of them) as doubles, exact.
VRX_INLINE __m512d floatsToDouble(const float* p, size_t n) {
    if (n >= 8) return _mm512_cvtps_pd(_mm256_loadu_ps(p));
    return _mm512_cvtps_pd(_mm512_castps512_ps256(_mm512_maskz_loadu_ps(static_cast<__mmask16>(_bzhi_u32(0xFFu, static_cast<unsigned>(n))), p)));
}
// Eight 32-bit lanes sign-extended to 64 bits.
VRX_INLINE __m512i widen8x32sTo64(__m256i a) { return _mm512_cvtepi32_epi64(a); }
// Sixteen 16-bit values at p: the largest magnitude of each pair of lanes
// folded into acc as unsigned 16-bit values (AVX2), so -32768 counts 32768;
// with b, the magnitude of a - b (up to 65535) as max - min.
VRX_INLINE __m256i maxMagnitude16s(__m256i acc, const int16_t* p) {
    return _mm256_max_epu16(acc, _mm256_abs_epi16(_mm256_loadu_si256(reinterpret_cast<const __m256i*>(p))));
}
VRX_INLINE __m256i maxMagnitudeDiff16s(__m256i acc, const int16_t* a, const int16_t* b) {
    const __m256i x = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(a));
    const __m256i y = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(b));
    return _mm256_max_epu16(acc, _mm256_sub_epi16(_mm256_max_epi16(x, y), _mm256_min_epi16(x, y)));
}
// The largest of the unsigned 16-bit lanes of a and b.
VRX_INLINE uint32_t maxLane16u(__m256i a, __m256i b) {
    a = _mm256_max_epu16(a, b);
    __m128i m = _mm_max_epu16(_mm256_castsi256_si128(a), _mm256_extracti128_si256(a, 1));
    // minpos on the complement finds the largest
    m = _mm_minpos_epu16(_mm_xor_si128(m, _mm_set1_epi16(-1)));
    return 0xFFFFu - static_cast<uint32_t>(_mm_cvtsi128_si32(m) & 0xFFFF);
}
VRX_INLINE __m256i zero256i() { return _mm256_setzero_si256(); }
// Eight 16-bit values widened to 64-bit lanes (the first n of them).
VRX_INLINE __m512i widen16sTo64(const int16_t* p) { return _mm512_cvtepi16_epi64(_mm_loadu_si128(reinterpret_cast<const __m128i*>(p))); }
VRX_INLINE __m512i widen16sTo64Part(const int16_t* p, size_t n) {
    if (n >= 8) return widen16sTo64(p);
    alignas(16) int16_t b[8] = {};
    __builtin_memcpy(b, p, n * sizeof(int16_t));
    return widen16sTo64(b);
}
// Eight 32-bit values widened to 64-bit lanes, signed; the first n of them.
VRX_INLINE __m512i widen32sTo64Part(const int32_t* p, size_t n) {
    return _mm512_cvtepi32_epi64(_mm512_castsi512_si256(_mm512_maskz_loadu_epi32(static_cast<__mmask16>(_bzhi_u32(0xFFu, static_cast<unsigned>(n))), p)));
}
// The low and high eight 32-bit lanes of a register as 64-bit lanes,
// zero-extended (u) or sign-extended (s).
VRX_INLINE __m512i lowTo64u(__m512i a) { return _mm512_cvtepu32_epi64(_mm512_castsi512_si256(a)); }
VRX_INLINE __m512i highTo64u(__m512i a) { return _mm512_cvtepu32_epi64(_mm512_extracti64x4_epi64(a, 1)); }
VRX_INLINE __m512i lowTo64s(__m512i a) { return _mm512_cvtepi32_epi64(_mm512_castsi512_si256(a)); }
VRX_INLINE __m512i highTo64s(__m512i a) { return _mm512_cvtepi32_epi64(_mm512_extracti64x4_epi64(a, 1)); }
// The low and high eight 32-bit lanes of a register as doubles (exact).
VRX_INLINE __m512d lowInt32ToDouble(__m512i a) { return _mm512_cvtepi32_pd(_mm512_castsi512_si256(a)); }
VRX_INLINE __m512d highInt32ToDouble(__m512i a) { return _mm512_cvtepi32_pd(_mm512_extracti64x4_epi64(a, 1)); }
// 16 products of 16-bit values at a and b summed in adjacent pairs, minus 1,
// as eight 64-bit lanes (AVX2 multiply-add). Exact for every input: the one
// pair sum that leaves 32 bits, 2 * (-32768)^2 = 2^31, is 2^31 - 1 after the
// bias; the caller adds the count of pairs back.
VRX_INLINE __m512i pairDotLess1_16s(const int16_t* a, const int16_t* b) {
    __m256i p = _mm256_madd_epi16(_mm256_loadu_si256(reinterpret_cast<const __m256i*>(a)),
                                  _mm256_loadu_si256(reinterpret_cast<const __m256i*>(b)));
    return _mm512_cvtepi32_epi64(_mm256_sub_epi32(p, _mm256_set1_epi32(1)));
}
// Eight floats (the first n of them) each repeated in two adjacent lanes:
// a real operand beside an interleaved complex one.
VRX_INLINE __m512 spreadPairs(const float* p, size_t n) {
    const __m512i idx = _mm512_setr_epi32(0, 0, 1, 1, 2, 2, 3, 3, 4, 4, 5, 5, 6, 6, 7, 7);
    return _mm512_permutexvar_ps(idx, _mm512_maskz_loadu_ps(static_cast<__mmask16>(_bzhi_u32(0xFFu, static_cast<unsigned>(n))), p));
}
VRX_INLINE __m512d spreadPairs(const double* p, size_t n) {
    const __m512i idx = _mm512_setr_epi64(0, 0, 1, 1, 2, 2, 3, 3);
    return _mm512_permutexvar_pd(idx, _mm512_maskz_loadu_pd(static_cast<__mmask8>(_bzhi_u32(0xFu, static_cast<unsigned>(n))), p));
}
// The first n <= 4 16-bit values at p, each repeated in two adjacent 64-bit
// lanes: a real 16-bit operand beside an interleaved complex one.
VRX_INLINE __m512i spreadPairs16sTo64(const int16_t* p, size_t n) {
    alignas(16) int16_t b[8] = {};
    __builtin_memcpy(b, p, (n < 4 ? n : 4) * sizeof(int16_t));
    const __m512i idx = _mm512_setr_epi64(0, 0, 1, 1, 2, 2, 3, 3);
    return _mm512_permutexvar_epi64(idx, _mm512_cvtepi16_epi64(_mm_load_si128(reinterpret_cast<const __m128i*>(b))));
}
// Four-lane double totals of the blocked single-precision sums: the two
// eight-lane halves of s are added in single precision, the low and high
// four lanes of that are widened and added, and the result is added to d.
using Total4 = __m256d;
VRX_INLINE Total4 total4(double d0, double d1 = 0.0) { return _mm256_setr_pd(d0, d1, 0.0, 0.0); }
VRX_INLINE Total4 foldToTotal4(__m512 s, Total4 d) {
    __m256 h = _mm256_add_ps(_mm512_castps512_ps256(s), _mm256_castpd_ps(_mm512_extractf64x4_pd(_mm512_castps_pd(s), 1)));
    __m256d w = _mm256_add_pd(_mm256_cvtps_pd(_mm256_castps256_ps128(h)), _mm256_cvtps_pd(_mm256_extractf128_ps(h, 1)));
    return _mm256_add_pd(d, w);
}
VRX_INLINE void storeTotal4(double* p, Total4 d) { _mm256_storeu_pd(p, d); }
// 32-bit lanes stored as their low 16 or 8 bits (no saturation); only the
// lanes of m are written.
VRX_INLINE void narrowLow16(int16_t* p, __mmask16 m, __m512i v) { _mm512_mask_cvtepi32_storeu_epi16(p, m, v); }
VRX_INLINE void narrowLow8(uint8_t* p, __mmask16 m, __m512i v) { _mm512_mask_cvtepi32_storeu_epi8(p, m, v); }

// Orders earlier streaming stores before later stores.
VRX_INLINE void streamFence() { _mm_sfence(); }

// Fetches the cache line of p towards the second-level cache.
VRX_INLINE void prefetchL2(const void* p) { _mm_prefetch(static_cast<const char*>(p), _MM_HINT_T1); }

// Lanes read from (gather) or written to (scatter) p + idx[i], idx in
// elements: 16 floats, or 8 doubles (any 8-byte elements) by 8 indices.
VRX_INLINE __m512 gather32(const float* p, __m512i idx) { return _mm512_i32gather_ps(idx, p, 4); }
VRX_INLINE __m512d gather64(const double* p, __m256i idx) { return _mm512_i32gather_pd(idx, p, 8); }
VRX_INLINE void scatter32(float* p, __m512i idx, __m512 v) { _mm512_i32scatter_ps(p, idx, v, 4); }
VRX_INLINE void scatter64(double* p, __m256i idx, __m512d v) { _mm512_i32scatter_pd(p, idx, v, 8); }
// Lane i of the index vector is i * step.
VRX_INLINE __m512i steps16(int step) { return _mm512_mullo_epi32(_mm512_setr_epi32(0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15), _mm512_set1_epi32(step)); }
VRX_INLINE __m256i steps8(int step) { return _mm256_mullo_epi32(_mm256_setr_epi32(0, 1, 2, 3, 4, 5, 6, 7), _mm256_set1_epi32(step)); }

// The lanes of a register in reverse order (lane i takes lane N-1-i).
VRX_INLINE __m512 reverseLanes(__m512 a) {
    return _mm512_permutexvar_ps(_mm512_setr_epi32(15, 14, 13, 12, 11, 10, 9, 8, 7, 6, 5, 4, 3, 2, 1, 0), a);
}
VRX_INLINE __m512d reverseLanes(__m512d a) {
    return _mm512_permutexvar_pd(_mm512_setr_epi64(7, 6, 5, 4, 3, 2, 1, 0), a);
}

// Table values at 32-bit indices: 16 floats, or 8 doubles at the low eight
// indices.
VRX_INLINE __m512 gatherAt(const float* base, __m512i idx) { return _mm512_i32gather_ps(idx, base, 4); }
VRX_INLINE __m512d gatherAt(const double* base, __m512i idx) {
    return _mm512_i32gather_pd(_mm512_castsi512_si256(idx), base, 8);
}
// Eight table values at the low eight 32-bit indices, as doubles.
VRX_INLINE __m512d gatherAtWide(const float* base, __m512i idx) {
    return _mm512_cvtps_pd(_mm256_i32gather_ps(base, _mm512_castsi512_si256(idx), 4));
}
VRX_INLINE __m512d gatherAtWide(const double* base, __m512i idx) { return gatherAt(base, idx); }
// The lanes 0, 1, 2, ... as 32-bit integers.
VRX_INLINE __m512i iota32() { return _mm512_setr_epi32(0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15); }

// The sum of the lanes in every lane, by a butterfly over halves of 256,
// 128, 64 and 32 bits: the same pairs in the same order as V<T>::reduceAdd
// (each step adds a lane to its partner, commutatively), so every lane holds
// the bits that reduceAdd returns.
VRX_INLINE __m512 reduceAddAll(__m512 a) {
    a = _mm512_add_ps(a, _mm512_shuffle_f32x4(a, a, _MM_SHUFFLE(1, 0, 3, 2)));
    a = _mm512_add_ps(a, _mm512_shuffle_f32x4(a, a, _MM_SHUFFLE(2, 3, 0, 1)));
    a = _mm512_add_ps(a, _mm512_permute_ps(a, _MM_SHUFFLE(1, 0, 3, 2)));
    return _mm512_add_ps(a, _mm512_permute_ps(a, _MM_SHUFFLE(2, 3, 0, 1)));
}
VRX_INLINE __m512d reduceAddAll(__m512d a) {
    a = _mm512_add_pd(a, _mm512_shuffle_f64x2(a, a, _MM_SHUFFLE(1, 0, 3, 2)));
    a = _mm512_add_pd(a, _mm512_shuffle_f64x2(a, a, _MM_SHUFFLE(2, 3, 0, 1)));
    return _mm512_add_pd(a, _mm512_permute_pd(a, 0x55));
}

// Lane i: the sum of the sixteen lanes of a[i], in the fixed tree of
// V<float>::reduceAdd (halves folded 256, 128, 64, 32 bits), so that a block
// of sixteen dot products and one alone give the same bits.
VRX_INLINE __m512 reduceAdd16(const __m512* a) {
    // 512 -> 256: lanes j < 8 of pair member 0, then of member 1
    const __m512i h0 = _mm512_setr_epi32(0, 1, 2, 3, 4, 5, 6, 7, 16, 17, 18, 19, 20, 21, 22, 23);
    const __m512i h1 = _mm512_setr_epi32(8, 9, 10, 11, 12, 13, 14, 15, 24, 25, 26, 27, 28, 29, 30, 31);
    // 256 -> 128: quads 0, 2 against quads 1, 3
    const __m512i q0 = _mm512_setr_epi32(0, 1, 2, 3, 8, 9, 10, 11, 16, 17, 18, 19, 24, 25, 26, 27);
    const __m512i q1 = _mm512_setr_epi32(4, 5, 6, 7, 12, 13, 14, 15, 20, 21, 22, 23, 28, 29, 30, 31);
    // 128 -> 64 within each quad: lanes 0, 1 against lanes 2, 3
    const __m512i p0 = _mm512_setr_epi32(0, 1, 16, 17, 4, 5, 20, 21, 8, 9, 24, 25, 12, 13, 28, 29);
    const __m512i p1 = _mm512_setr_epi32(2, 3, 18, 19, 6, 7, 22, 23, 10, 11, 26, 27, 14, 15, 30, 31);
    // 64 -> 32, with the result put in output order (output 4s+r from quad r)
    const __m512i e0 = _mm512_setr_epi32(0, 4, 8, 12, 2, 6, 10, 14, 16, 20, 24, 28, 18, 22, 26, 30);
    const __m512i e1 = _mm512_setr_epi32(1, 5, 9, 13, 3, 7, 11, 15, 17, 21, 25, 29, 19, 23, 27, 31);
    __m512 b[8], c[4], d[2];
    for (int k = 0; k < 8; ++k)
        b[k] = _mm512_add_ps(_mm512_permutex2var_ps(a[2 * k], h0, a[2 * k + 1]), _mm512_permutex2var_ps(a[2 * k], h1, a[2 * k + 1]));
    for (int k = 0; k < 4; ++k)
        c[k] = _mm512_add_ps(_mm512_permutex2var_ps(b[2 * k], q0, b[2 * k + 1]), _mm512_permutex2var_ps(b[2 * k], q1, b[2 * k + 1]));
    for (int k = 0; k < 2; ++k)
        d[k] = _mm512_add_ps(_mm512_permutex2var_ps(c[2 * k], p0, c[2 * k + 1]), _mm512_permutex2var_ps(c[2 * k], p1, c[2 * k + 1]));
    return _mm512_add_ps(_mm512_permutex2var_ps(d[0], e0, d[1]), _mm512_permutex2var_ps(d[0], e1, d[1]));
}

// Lanes of a picked by idx where m is set, src elsewhere (16 floats with
// 32-bit indices, 8 doubles with 64-bit indices).
VRX_INLINE __m512 permuteMerge(__m512 src, __mmask16 m, __m512i idx, __m512 a) { return _mm512_mask_permutexvar_ps(src, m, idx, a); }
VRX_INLINE __m512d permuteMerge(__m512d src, __mmask8 m, __m512i idx, __m512d a) { return _mm512_mask_permutexvar_pd(src, m, idx, a); }

}  // namespace n0::simd

namespace n0::simd {
// Floats to 32-bit integers rounded to nearest, ties to even, whatever the
// rounding mode, raising no exception flag; NaN and values beyond the range
// give the indefinite value 0x80000000 as the plain conversion does.
VRX_INLINE __m512i floatToIntNearestQuiet(__m512 a) {
    return _mm512_cvt_roundps_epi32(a, _MM_FROUND_TO_NEAREST_INT | _MM_FROUND_NO_EXC);
}
}  // namespace n0::simd

namespace n0::simd {
// Two registers of 32-bit lanes saturated to 16 bits and stored as 32
// consecutive values from p, a's first; nt: a non-temporal store (p on a
// 64-byte boundary).
VRX_INLINE void narrowSat16sJoin(int16_t* p, __m512i a, __m512i b, bool nt) {
    const __m512i v = _mm512_inserti64x4(_mm512_castsi256_si512(_mm512_cvtsepi32_epi16(a)), _mm512_cvtsepi32_epi16(b), 1);
    if (nt) _mm512_stream_si512(reinterpret_cast<__m512i*>(p), v);
    else _mm512_storeu_si512(p, v);
}
}  // namespace n0::simd

namespace n0::simd {
// 16 pairs of 16-bit values at p: s = p[2i] + p[2i+1] and d = p[2i+1] - p[2i]
// as 32-bit lanes, exact (AVX2 multiply-adds by (1, 1) and (-1, 1)).
VRX_INLINE void pairSumDiff16s(const int16_t* p, __m512i& s, __m512i& d) {
    const __m256i a = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(p));
    const __m256i b = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(p + 16));
    const __m256i one = _mm256_set1_epi16(1), sgn = _mm256_set1_epi32(0x0001FFFF);
    s = _mm512_inserti64x4(_mm512_castsi256_si512(_mm256_madd_epi16(a, one)), _mm256_madd_epi16(b, one), 1);
    d = _mm512_inserti64x4(_mm512_castsi256_si512(_mm256_madd_epi16(a, sgn)), _mm256_madd_epi16(b, sgn), 1);
}
}  // namespace n0::simd

namespace n0::simd {
// Eight 16-bit values at a by eight complex pairs at b, exact: the
// products a re and a im sign-extended into 64-bit lanes and added to re
// and im.
VRX_INLINE void realCplxDot16s(const int16_t* a, const int16_t* b, __m512i& re, __m512i& im) {
    const __m256i lo = _mm256_cvtepu16_epi32(_mm_loadu_si128(reinterpret_cast<const __m128i*>(a)));
    const __m256i vb = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(b));
    re = _mm512_add_epi64(re, _mm512_cvtepi32_epi64(_mm256_madd_epi16(lo, vb)));
    im = _mm512_add_epi64(im, _mm512_cvtepi32_epi64(_mm256_madd_epi16(_mm256_slli_epi32(lo, 16), vb)));
}

// Register-resident short tables: lane i takes entry idx[i] (32-bit
// indices below 2 N; the low eight for doubles) of the register pair
// (a, b), the form of gatherAt for a table of up to 2 N values.
VRX_INLINE __m512 permuteAt(__m512 a, __m512 b, __m512i idx) { return _mm512_permutex2var_ps(a, idx, b); }
VRX_INLINE __m512d permuteAt(__m512d a, __m512d b, __m512i idx) {
    return _mm512_permutex2var_pd(a, _mm512_cvtepu32_epi64(_mm512_castsi512_si256(idx)), b);
}

}  // namespace n0::simd

namespace n0::simd {
// 32 16-bit values at p as one register of sixteen 32-bit lanes, p[2j] in
// the low half of lane j and p[2j + 1] in the high half.
VRX_INLINE __m512i loadPairs16(const int16_t* p) { return _mm512_loadu_si512(p); }

// The least lane of a register of 8- or 16-bit lanes (AVX2 and SSE4.1):
// the halves folded, 16-bit signed lanes biased into unsigned order, bytes
// paired into words, then the minimum-position instruction.
template <class T>
VRX_INLINE T narrowMinLane(__m256i v) {
    const __m128i lo = _mm256_castsi256_si128(v), hi = _mm256_extracti128_si256(v, 1);
    __m128i a;
    if constexpr (sizeof(T) == 1) {
        a = _mm_min_epu8(lo, hi);
        a = _mm_min_epu8(a, _mm_srli_epi16(a, 8));  // low byte of each word: the pair's least; high byte 0
    } else if constexpr (T(-1) < T(0)) {
        a = _mm_xor_si128(_mm_min_epi16(lo, hi), _mm_set1_epi16(static_cast<short>(0x8000)));
    } else {
        a = _mm_min_epu16(lo, hi);
    }
    unsigned r = static_cast<unsigned>(_mm_cvtsi128_si32(_mm_minpos_epu16(a))) & 0xFFFFu;
    if constexpr (sizeof(T) == 2 && T(-1) < T(0)) r ^= 0x8000u;
    return static_cast<T>(r);
}
// The greatest lane: the complement reverses the order of the lanes.
template <class T>
VRX_INLINE T narrowMaxLane(__m256i v) {
    return static_cast<T>(~static_cast<unsigned>(narrowMinLane<T>(_mm256_xor_si256(v, _mm256_set1_epi32(-1)))));
}
}  // namespace n0::simd

namespace n0::simd {
// Sixteen 16-bit values at p summed in adjacent pairs (AVX2 multiply-add
// by 1, exact) and added to the eight 32-bit lanes of acc.
VRX_INLINE __m256i addPairSums16s(__m256i acc, const int16_t* p) {
    const __m256i x = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(p));
    return _mm256_add_epi32(acc, _mm256_madd_epi16(x, _mm256_set1_epi16(1)));
}
}  // namespace n0::simd

namespace n0::simd {
// Counting compares: each 32-bit lane of acc in the mask m goes up by 1.
VRX_INLINE __m512i countLanes(__m512i acc, __mmask16 m) {
    return _mm512_mask_sub_epi32(acc, m, acc, _mm512_set1_epi32(-1));
}
}  // namespace n0::simd

namespace n0::simd {
// 256-bit registers a and b stored at p and q; nt: non-temporal stores (p
// and q on 32-byte boundaries).
VRX_INLINE void storeTwo16s(int16_t* p, __m256i a, int16_t* q, __m256i b, bool nt) {
    if (nt) {
        _mm256_stream_si256(reinterpret_cast<__m256i*>(p), a);
        _mm256_stream_si256(reinterpret_cast<__m256i*>(q), b);
    } else {
        _mm256_storeu_si256(reinterpret_cast<__m256i*>(p), a);
        _mm256_storeu_si256(reinterpret_cast<__m256i*>(q), b);
    }
}
// 16 pairs (a, b) of 16-bit values at p, split in order by two truncating
// narrows: lo = (a + b) / 2 and hi = (b - a) / 2 rounded to nearest, ties
// to even (hi saturated: 32767.5 gives 32767), each 16 values stored from
// lo and hi; nt: non-temporal stores (lo and hi on 32-byte boundaries).
// The halves come from unsigned rounding averages of the values offset by
// 2^15, taken back one where the sum is odd and the average rounded to odd.
VRX_INLINE void pairHalves16s(const int16_t* p, int16_t* lo, int16_t* hi, bool nt) {
    const __m512i w = _mm512_xor_si512(loadPairs16(p), _mm512_set1_epi32(static_cast<int>(0x80008000u)));
    const __m256i a = _mm512_cvtepi32_epi16(w), b = _mm512_cvtepi32_epi16(_mm512_srli_epi32(w, 16));
    const __m256i sgn = _mm256_set1_epi16(static_cast<int16_t>(0x8000));
    const __m256i odd = _mm256_and_si256(_mm256_xor_si256(a, b), _mm256_set1_epi16(1));
    const __m256i s = _mm256_avg_epu16(a, b);                                          // ceil((a + b) / 2) + 2^15
    const __m256i d = _mm256_avg_epu16(b, _mm256_xor_si256(a, _mm256_set1_epi16(-1)));  // floor((b - a) / 2) + 2^15
    const __m256i rs = _mm256_sub_epi16(_mm256_xor_si256(s, sgn), _mm256_and_si256(odd, s));
    const __m256i rd = _mm256_adds_epi16(_mm256_xor_si256(d, sgn), _mm256_and_si256(odd, d));
    storeTwo16s(lo, rs, hi, rd, nt);
}
// The same split with lo = a + b and hi = b - a, saturated.
VRX_INLINE void pairSumDiffSat16s(const int16_t* p, int16_t* lo, int16_t* hi, bool nt) {
    const __m512i w = loadPairs16(p);
    const __m256i a = _mm512_cvtepi32_epi16(w), b = _mm512_cvtepi32_epi16(_mm512_srli_epi32(w, 16));
    const __m256i rs = _mm256_adds_epi16(a, b), rd = _mm256_subs_epi16(b, a);
    storeTwo16s(lo, rs, hi, rd, nt);
}
}  // namespace n0::simd

namespace n0::simd {
// Sixteen floats at p each repeated in two adjacent lanes (a real operand
// beside an interleaved complex one): p[0..7] fill lo, p[8..15] hi; one
// load and two permutes.
VRX_INLINE void spreadPairs16(const float* p, __m512& lo, __m512& hi) {
    const __m512 a = _mm512_loadu_ps(p);
    lo = _mm512_permutexvar_ps(_mm512_setr_epi32(0, 0, 1, 1, 2, 2, 3, 3, 4, 4, 5, 5, 6, 6, 7, 7), a);
    hi = _mm512_permutexvar_ps(_mm512_setr_epi32(8, 8, 9, 9, 10, 10, 11, 11, 12, 12, 13, 13, 14, 14, 15, 15), a);
}
}  // namespace n0::simd

namespace n0::simd {
// v unchanged, through an empty asm: a register just loaded reaches all its
// uses as a register, where the compiler would fold the load into each of
// two permutes and read memory twice.
template <class R>
VRX_INLINE R keepInRegister(R v) {
    asm("" : "+v"(v));
    return v;
}
}  // namespace n0::simd

namespace n0::simd {
// Sixteen 16-bit values at a and b: the magnitudes of a - b (up to 65535)
// less 32768 each, summed in adjacent pairs and added to the eight 32-bit
// lanes of acc (AVX2, exact); the caller adds 32768 back for every value.
VRX_INLINE __m256i addPairMagnitudesDiff16s(__m256i acc, const int16_t* a, const int16_t* b) {
    const __m256i x = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(a));
    const __m256i y = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(b));
    const __m256i d = _mm256_sub_epi16(_mm256_max_epi16(x, y), _mm256_min_epi16(x, y));
    const __m256i t = _mm256_xor_si256(d, _mm256_set1_epi16(static_cast<short>(0x8000)));
    return _mm256_add_epi32(acc, _mm256_madd_epi16(t, _mm256_set1_epi16(1)));
}
}  // namespace n0::simd

namespace n0::simd {
// Exact sums of unsigned 32-bit lane values in two AVX2 registers without
// widening each value: h gathers the high halves (v >> 16), w the values
// themselves, wrapping. The low halves' sum is w - (h << 16) modulo 2^32,
// exact while a lane gathers at most 65536 values.
// The exact totals (h << 16) + low halves of the eight lanes, as 64-bit lanes.
VRX_INLINE __m512i foldSplit32u(__m256i h, __m256i w) {
    const __m256i lo = _mm256_sub_epi32(w, _mm256_slli_epi32(h, 16));
    return _mm512_add_epi64(_mm512_slli_epi64(_mm512_cvtepu32_epi64(h), 16), _mm512_cvtepu32_epi64(lo));
}
}  // namespace n0::simd

namespace n0::simd {
// 16 values at lo and at hi to 16 pairs from x: x[2i] = lo[i] - hi[i] and
// x[2i+1] = lo[i] + hi[i], saturated.
VRX_INLINE void pairsDiffSumSat16s(const int16_t* lo, const int16_t* hi, int16_t* x) {
    const __m256i l = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(lo)), h = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(hi));
    const __m256i d = _mm256_subs_epi16(l, h), s = _mm256_adds_epi16(l, h);
    const __m256i a = _mm256_unpacklo_epi16(d, s), b = _mm256_unpackhi_epi16(d, s);  // pairs 0-3, 8-11 and 4-7, 12-15
    storeTwo16s(x, _mm256_permute2x128_si256(a, b, 0x20), x + 16, _mm256_permute2x128_si256(a, b, 0x31), false);
}
}  // namespace n0::simd

namespace n0::simd {
// Within each 128-bit quarter, the low lanes of a and b (a0 b0 a2 b2 ...)
// and the high lanes (a1 b1 a3 b3 ...): two registers of interleaved pairs
// to their first and second members, and back.
VRX_INLINE __m512d unpackLo(__m512d a, __m512d b) { return _mm512_unpacklo_pd(a, b); }
VRX_INLINE __m512d unpackHi(__m512d a, __m512d b) { return _mm512_unpackhi_pd(a, b); }
}  // namespace n0::simd

namespace n0::simd {
// The eight floats at p, each repeated in two adjacent lanes: one 256-bit
// load and one permute (a real operand beside an interleaved complex one).
VRX_INLINE __m512 spreadPairs8(const float* p) {
    const __m512i idx = _mm512_setr_epi32(0, 0, 1, 1, 2, 2, 3, 3, 4, 4, 5, 5, 6, 6, 7, 7);
    return _mm512_permutexvar_ps(idx, _mm512_castps256_ps512(_mm256_loadu_ps(p)));
}
}  // namespace n0::simd

namespace n0::simd {
// Each 32-bit lane's right neighbour: lanes 1..15 of lo, then lane 0 of hi.
VRX_INLINE __m512i nextLanes32(__m512i lo, __m512i hi) { return _mm512_alignr_epi32(hi, lo, 1); }
}  // namespace n0::simd

namespace n0::simd {
// acc + x in 32-bit lanes (AVX2), written into acc's own register: in an
// unrolled accumulation the compiler otherwise adds into a fresh register
// and copies it back at every step, which costs issue slots.
VRX_INLINE void addInPlace32(__m256i& acc, __m256i x) { asm("vpaddd %1, %0, %0" : "+x"(acc) : "x"(x)); }
// Sixteen 16-bit values in x: their pair sums of squares (up to 2^31, read
// as unsigned) added to h as high halves and to w wrapping, in place.
VRX_INLINE void pairSquaresSplitInPlace16s(__m256i x, __m256i& h, __m256i& w) {
    const __m256i q = _mm256_madd_epi16(x, x);
    addInPlace32(h, _mm256_srli_epi32(q, 16));
    addInPlace32(w, q);
}
// Sixteen 16-bit values in x summed in adjacent pairs (multiply-add by 1)
// and added to acc in place.
VRX_INLINE void addPairSumsInPlace16s(__m256i& acc, __m256i x) { addInPlace32(acc, _mm256_madd_epi16(x, _mm256_set1_epi16(1))); }
// Eight 32-bit lanes added (AVX2).
VRX_INLINE __m256i add8x32(__m256i a, __m256i b) { return _mm256_add_epi32(a, b); }
// The first n < 16 16-bit values at p, zeros after (AVX2 register).
VRX_INLINE __m256i load16x16sPart(const int16_t* p, size_t n) {
    alignas(32) int16_t t[16] = {};
    __builtin_memcpy(t, p, n * sizeof(int16_t));
    return _mm256_load_si256(reinterpret_cast<const __m256i*>(t));
}
}  // namespace n0::simd

namespace n0::simd {
// Signed 32-bit lane values v gathered exactly without widening each: h
// takes the high halves (v >> 16, arithmetic), w the values themselves,
// wrapping, both in place; foldSplit32s gives the totals (h << 16) + low
// halves as 64-bit lanes, exact while a lane gathers at most 65536 values.
VRX_INLINE void splitAddInPlace32s(__m256i v, __m256i& h, __m256i& w) {
    addInPlace32(h, _mm256_srai_epi32(v, 16));
    addInPlace32(w, v);
}
VRX_INLINE __m512i foldSplit32s(__m256i h, __m256i w) {
    const __m256i lo = _mm256_sub_epi32(w, _mm256_slli_epi32(h, 16));
    return _mm512_add_epi64(_mm512_slli_epi64(_mm512_cvtepi32_epi64(h), 16), _mm512_cvtepu32_epi64(lo));
}
// Eight complex pairs (re, im) at a and b: the 32-bit lanes x = re re' +
// ~im im' - 1 and z = re im' + im re' - 1 (exact: the -1 keeps two
// products of -32768 in range) and t = im'; since -im = ~im + 1, the real
// part of a product is x + t + 1.
VRX_INLINE void cplxDotNotLess1x32_16s(const int16_t* a, const int16_t* b, __m256i& x, __m256i& z, __m256i& t) {
    const __m256i va = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(a));
    const __m256i vb = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(b));
    const __m256i one = _mm256_set1_epi32(1);
    const __m256i swap = _mm256_setr_epi8(2, 3, 0, 1, 6, 7, 4, 5, 10, 11, 8, 9, 14, 15, 12, 13,
                                          2, 3, 0, 1, 6, 7, 4, 5, 10, 11, 8, 9, 14, 15, 12, 13);
    const __m256i na = _mm256_xor_si256(va, _mm256_set1_epi32(static_cast<int>(0xFFFF0000u)));
    x = _mm256_sub_epi32(_mm256_madd_epi16(na, vb), one);
    z = _mm256_sub_epi32(_mm256_madd_epi16(va, _mm256_shuffle_epi8(vb, swap)), one);
    t = _mm256_madd_epi16(vb, _mm256_set1_epi32(0x00010000));
}
}  // namespace n0::simd

namespace n0::simd {
// Sixteen 16-bit values in x: their magnitudes (-32768 counts 32768)
// summed in adjacent pairs as eight 32-bit lanes (AVX2 multiply-add of
// each value by its sign, exact).
VRX_INLINE __m256i pairMagnitudes16s(__m256i x) {
    const __m256i sign = _mm256_or_si256(_mm256_srai_epi16(x, 15), _mm256_set1_epi16(1));
    return _mm256_madd_epi16(x, sign);
}
}  // namespace n0::simd

namespace n0::simd {
// 128-bit blocks: blocks 0, 1 of the result from a (blocks I0, I1), blocks
// 2, 3 from b (blocks I2, I3).
template <int I0, int I1, int I2, int I3> VRX_INLINE __m512d blocks128(__m512d a, __m512d b) {
    return _mm512_shuffle_f64x2(a, b, I0 | (I1 << 2) | (I2 << 4) | (I3 << 6));
}
// Four complex values (re, im) in pairs from split arrays, and back.
VRX_INLINE __m512d pairSplit4d(const double* re, const double* im) {
    const __m256d r = _mm256_loadu_pd(re), i = _mm256_loadu_pd(im);
    const __m512d z = _mm512_insertf64x4(_mm512_castpd256_pd512(_mm256_unpacklo_pd(r, i)), _mm256_unpackhi_pd(r, i), 1);
    return _mm512_shuffle_f64x2(z, z, 0xD8);
}
VRX_INLINE void unpairSplit4d(double* re, double* im, __m512d v) {
    const __m512d z = _mm512_shuffle_f64x2(v, v, 0xD8);
    const __m256d lo = _mm512_castpd512_pd256(z), hi = _mm512_extractf64x4_pd(z, 1);
    _mm256_storeu_pd(re, _mm256_unpacklo_pd(lo, hi));
    _mm256_storeu_pd(im, _mm256_unpackhi_pd(lo, hi));
}
// Two complex doubles (re, im, re', im') in a 256-bit register, for short
// transforms whose values do not fill 512-bit registers of four.
struct CPair {
    using R = __m256d;
    // the complex value at a in the low half, the one at b in the high half
    static VRX_INLINE R load2(const double* a, const double* b) {
        return _mm256_insertf128_pd(_mm256_castpd128_pd256(_mm_loadu_pd(a)), _mm_loadu_pd(b), 1);
    }
    static VRX_INLINE R dup(const double* a) { return _mm256_broadcast_pd(reinterpret_cast<const __m128d*>(a)); }
    static VRX_INLINE void store2(double* a, double* b, R v) {
        _mm_storeu_pd(a, _mm256_castpd256_pd128(v));
        _mm_storeu_pd(b, _mm256_extractf128_pd(v, 1));
    }
    static VRX_INLINE void storeLo(double* a, R v) { _mm_storeu_pd(a, _mm256_castpd256_pd128(v)); }
    static VRX_INLINE R set1(double v) { return _mm256_set1_pd(v); }
    static VRX_INLINE R setr(double a, double b, double c, double d) { return _mm256_setr_pd(a, b, c, d); }
    static VRX_INLINE R add(R a, R b) { return _mm256_add_pd(a, b); }
    static VRX_INLINE R sub(R a, R b) { return _mm256_sub_pd(a, b); }
    static VRX_INLINE R mul(R a, R b) { return _mm256_mul_pd(a, b); }
    static VRX_INLINE R xorb(R a, R b) { return _mm256_xor_pd(a, b); }
    static VRX_INLINE R swapRI(R a) { return _mm256_permute_pd(a, 0x5); }      // (im, re) in both halves
    static VRX_INLINE R swapRIHigh(R a) { return _mm256_permute_pd(a, 0x6); }  // in the high half only
    static VRX_INLINE R swapHalves(R a) { return _mm256_permute2f128_pd(a, a, 0x01); }
    static VRX_INLINE R lows(R a, R b) { return _mm256_permute2f128_pd(a, b, 0x20); }   // (a.lo, b.lo)
    static VRX_INLINE R highs(R a, R b) { return _mm256_permute2f128_pd(a, b, 0x31); }  // (a.hi, b.hi)
    // the same from split arrays: (ra[0], ia[0]) low, (rb[0], ib[0]) high
    static VRX_INLINE R load2(const double* ra, const double* ia, const double* rb, const double* ib) {
        return _mm256_insertf128_pd(_mm256_castpd128_pd256(_mm_loadh_pd(_mm_load_sd(ra), ia)),
                                    _mm_loadh_pd(_mm_load_sd(rb), ib), 1);
    }
    static VRX_INLINE R dup(const double* ra, const double* ia) {
        const __m128d v = _mm_loadh_pd(_mm_load_sd(ra), ia);
        return _mm256_insertf128_pd(_mm256_castpd128_pd256(v), v, 1);
    }
    static VRX_INLINE void store2(double* ra, double* ia, double* rb, double* ib, R v) {
        const __m128d lo = _mm256_castpd256_pd128(v), hi = _mm256_extractf128_pd(v, 1);
        _mm_store_sd(ra, lo);
        _mm_storeh_pd(ia, lo);
        _mm_store_sd(rb, hi);
        _mm_storeh_pd(ib, hi);
    }
    static VRX_INLINE void storeLo(double* ra, double* ia, R v) {
        _mm_store_sd(ra, _mm256_castpd256_pd128(v));
        _mm_storeh_pd(ia, _mm256_castpd256_pd128(v));
    }
};

// ------------------------------------- two-level DFT kernels in 256-bit registers
// Two complex doubles a 256-bit register with the members of V<double> the
// DFT's two-level register kernels use, for lengths whose 512-bit registers
// would run partly empty or pay full-width permutes to pair their rows.
// Loads and stores take a count c of complex values, 1 or 2 (a constant
// where they are used; the rest of a register loads as zeros).
struct V256d {
    using T = double;
    using R = __m256d;
    static constexpr int N = 4;
    static VRX_INLINE R loadc(const T* p, int c) {
        return c > 1 ? _mm256_loadu_pd(p) : _mm256_insertf128_pd(_mm256_setzero_pd(), _mm_loadu_pd(p), 0);
    }
    static VRX_INLINE void storec(T* p, int c, R v) {
        if (c > 1) _mm256_storeu_pd(p, v);
        else _mm_storeu_pd(p, _mm256_castpd256_pd128(v));
    }
    static VRX_INLINE R set1(T v) { return _mm256_set1_pd(v); }
    static VRX_INLINE R set2(T re, T im) { return _mm256_setr_pd(re, im, re, im); }
    static VRX_INLINE R add(R a, R b) { return _mm256_add_pd(a, b); }
    static VRX_INLINE R sub(R a, R b) { return _mm256_sub_pd(a, b); }
    static VRX_INLINE R mul(R a, R b) { return _mm256_mul_pd(a, b); }
    static VRX_INLINE R xorb(R a, R b) { return _mm256_xor_pd(a, b); }
    static VRX_INLINE R neg(R a) { return _mm256_xor_pd(a, _mm256_set1_pd(-0.0)); }
    static VRX_INLINE R dupRe(R a) { return _mm256_movedup_pd(a); }
    static VRX_INLINE R dupIm(R a) { return _mm256_permute_pd(a, 0xF); }
    static VRX_INLINE R swapPair(R a) { return _mm256_permute_pd(a, 0x5); }
    // (a.lo, b.lo) and (a.hi, b.hi): complex lane p of two registers paired
    static VRX_INLINE R lows(R a, R b) { return _mm256_permute2f128_pd(a, b, 0x20); }
    static VRX_INLINE R highs(R a, R b) { return _mm256_permute2f128_pd(a, b, 0x31); }
    // (a.lo, b.hi); the two complex values swapped; (p[0], p[0], p[1], p[1])
    static VRX_INLINE R blendHalves(R a, R b) { return _mm256_blend_pd(a, b, 0xC); }
    static VRX_INLINE R swapHalves(R a) { return _mm256_permute2f128_pd(a, a, 0x01); }
    static VRX_INLINE R loadDupPair(const T* p) {
        return _mm256_permute_pd(_mm256_broadcast_pd(reinterpret_cast<const __m128d*>(p)), 0xC);
    }
    // c values from split arrays as (re, im) pairs, and back
    static VRX_INLINE R loadSplit(const T* re, const T* im, int c) {
        const __m128d r = c > 1 ? _mm_loadu_pd(re) : _mm_load_sd(re), i = c > 1 ? _mm_loadu_pd(im) : _mm_load_sd(im);
        return _mm256_insertf128_pd(_mm256_castpd128_pd256(_mm_unpacklo_pd(r, i)), _mm_unpackhi_pd(r, i), 1);
    }
    static VRX_INLINE void storeSplit(T* re, T* im, int c, R v) {
        const __m128d lo = _mm256_castpd256_pd128(v), hi = _mm256_extractf128_pd(v, 1);
        const __m128d r = _mm_unpacklo_pd(lo, hi), i = _mm_unpackhi_pd(lo, hi);
        if (c > 1) {
            _mm_storeu_pd(re, r);
            _mm_storeu_pd(im, i);
        } else {
            _mm_store_sd(re, r);
            _mm_store_sd(im, i);
        }
    }
};

// ---- DFT engine: real recombination in the last pass, single-precision tiles
// Split registers to interleaved pairs in reverse lane order: lo holds the
// pairs of lanes N-1 .. N/2, hi those of lanes N/2-1 .. 0 (the indices of
// interleave, lane bits complemented; the constants fold).
VRX_INLINE void interleaveRev(__m512 re, __m512 im, __m512& lo, __m512& hi) {
    const __m512i il = _mm512_setr_epi32(0, 16, 1, 17, 2, 18, 3, 19, 4, 20, 5, 21, 6, 22, 7, 23), f = _mm512_set1_epi32(15);
    lo = _mm512_permutex2var_ps(re, _mm512_xor_si512(il, f), im);
    hi = _mm512_permutex2var_ps(re, _mm512_xor_si512(_mm512_add_epi32(il, _mm512_set1_epi32(8)), f), im);
}
VRX_INLINE void interleaveRev(__m512d re, __m512d im, __m512d& lo, __m512d& hi) {
    const __m512i il = _mm512_setr_epi64(0, 8, 1, 9, 2, 10, 3, 11), f = _mm512_set1_epi64(7);
    lo = _mm512_permutex2var_pd(re, _mm512_xor_si512(il, f), im);
    hi = _mm512_permutex2var_pd(re, _mm512_xor_si512(_mm512_add_epi64(il, _mm512_set1_epi64(4)), f), im);
}
// The float forms of unpackLo/unpackHi (32-bit elements), their 64-bit
// pairs, and 128-bit blocks as blocks128 does for double.
VRX_INLINE __m512 unpackLo(__m512 a, __m512 b) { return _mm512_unpacklo_ps(a, b); }
VRX_INLINE __m512 unpackHi(__m512 a, __m512 b) { return _mm512_unpackhi_ps(a, b); }
VRX_INLINE __m512 unpackLo64(__m512 a, __m512 b) {
    return _mm512_castpd_ps(_mm512_unpacklo_pd(_mm512_castps_pd(a), _mm512_castps_pd(b)));
}
VRX_INLINE __m512 unpackHi64(__m512 a, __m512 b) {
    return _mm512_castpd_ps(_mm512_unpackhi_pd(_mm512_castps_pd(a), _mm512_castps_pd(b)));
}
template <int I0, int I1, int I2, int I3> VRX_INLINE __m512 blocks128(__m512 a, __m512 b) {
    return _mm512_shuffle_f32x4(a, b, I0 | (I1 << 2) | (I2 << 4) | (I3 << 6));
}
// 4 x 4 transposes within each 128-bit lane: o[m] lane L element j = r[j]
// lane L element m.
VRX_INLINE void transpose4InLanes(const __m512* r, __m512* o) {
    const __m512 t0 = unpackLo(r[0], r[1]), t1 = unpackHi(r[0], r[1]);
    const __m512 t2 = unpackLo(r[2], r[3]), t3 = unpackHi(r[2], r[3]);
    o[0] = unpackLo64(t0, t2);
    o[1] = unpackHi64(t0, t2);
    o[2] = unpackLo64(t1, t3);
    o[3] = unpackHi64(t1, t3);
}
}  // namespace n0::simd

// ---- gathers of 128-bit pieces (the FFT's 32-bit two-sweep transposes)
namespace n0::simd {
// 128-bit lane L of the result: the four floats at p[L] (16-byte aligned).
VRX_INLINE __m512 load4x128(const float* p0, const float* p1, const float* p2, const float* p3) {
    const __m512 a = _mm512_insertf32x4(_mm512_castps128_ps512(_mm_load_ps(p0)), _mm_load_ps(p1), 1);
    return _mm512_insertf32x4(_mm512_insertf32x4(a, _mm_load_ps(p2), 2), _mm_load_ps(p3), 3);
}
}  // namespace n0::simd

// ---- DCT chirp glue: interleaved pairs to split registers in reverse order
// (and back by interleaveRev), one permute per register; lanes doubled into
// pairs; the rounded complex product (also the DFT convolution path's).
namespace n0::simd {
// Lane i: lane 2N-2-2i of (lo, hi) (lo's lanes first), the even lanes in reverse order.
VRX_INLINE __m512 evenLanesReversed(__m512 lo, __m512 hi) {
    return _mm512_permutex2var_ps(lo, _mm512_setr_epi32(30, 28, 26, 24, 22, 20, 18, 16, 14, 12, 10, 8, 6, 4, 2, 0), hi);
}
VRX_INLINE __m512d evenLanesReversed(__m512d lo, __m512d hi) {
    return _mm512_permutex2var_pd(lo, _mm512_setr_epi64(14, 12, 10, 8, 6, 4, 2, 0), hi);
}
// Lane i: lane 2N-1-2i of (lo, hi), the odd lanes in reverse order.
VRX_INLINE __m512 oddLanesReversed(__m512 lo, __m512 hi) {
    return _mm512_permutex2var_ps(lo, _mm512_setr_epi32(31, 29, 27, 25, 23, 21, 19, 17, 15, 13, 11, 9, 7, 5, 3, 1), hi);
}
VRX_INLINE __m512d oddLanesReversed(__m512d lo, __m512d hi) {
    return _mm512_permutex2var_pd(lo, _mm512_setr_epi64(15, 13, 11, 9, 7, 5, 3, 1), hi);
}
// x*y of interleaved pairs with each part product rounded before the add:
// (x.re*y.re - x.im*y.im, x.re*y.im + x.im*y.re).
template <class T>
VRX_INLINE typename V<T>::R cmulRound(typename V<T>::R x, typename V<T>::R y) {
    using W = V<T>;
    const typename W::R p = W::mul(W::dupRe(x), y), q = W::mul(W::dupIm(x), W::swapPair(y));
    return W::addm(W::sub(p, q), static_cast<typename W::M>(0xAAAAAAAAu), p, q);
}
// Pairs (a[i], a[i]): lo holds i < N/2, hi the rest.
VRX_INLINE void dupLanes(__m512 a, __m512& lo, __m512& hi) {
    lo = _mm512_permutexvar_ps(_mm512_setr_epi32(0, 0, 1, 1, 2, 2, 3, 3, 4, 4, 5, 5, 6, 6, 7, 7), a);
    hi = _mm512_permutexvar_ps(_mm512_setr_epi32(8, 8, 9, 9, 10, 10, 11, 11, 12, 12, 13, 13, 14, 14, 15, 15), a);
}
VRX_INLINE void dupLanes(__m512d a, __m512d& lo, __m512d& hi) {
    lo = _mm512_permutexvar_pd(_mm512_setr_epi64(0, 0, 1, 1, 2, 2, 3, 3), a);
    hi = _mm512_permutexvar_pd(_mm512_setr_epi64(4, 4, 5, 5, 6, 6, 7, 7), a);
}
}  // namespace n0::simd

// ---- 256-bit half stores (the FFT's 32-bit two-sweep buffer of half rows)
namespace n0::simd {
// the low (H = 0) or high (H = 1) eight floats of a to p (32-byte aligned)
template <int H> VRX_INLINE void storeHalf8(float* p, __m512 a) {
    if constexpr (H == 0) _mm256_store_ps(p, _mm512_castps512_ps256(a));
    else _mm256_store_ps(p, _mm256_castpd_ps(_mm512_extractf64x4_pd(_mm512_castps_pd(a), 1)));
}
}  // namespace n0::simd

// ---- a complex float pair in the low half of a 128-bit register (the
// Goertzel chain of complex input: both parts in one register)
namespace n0::simd {
struct Pair32f {
    using R = __m128;
    // the two floats stored as *p into the low lanes, zero above
    static VRX_INLINE R load(const double* p) { return _mm_castpd_ps(_mm_load_sd(p)); }
    static VRX_INLINE R set(float re, float im) { return _mm_setr_ps(re, im, 0.0f, 0.0f); }
    static VRX_INLINE R set1(float v) { return _mm_set1_ps(v); }
    static VRX_INLINE R add(R a, R b) { return _mm_add_ps(a, b); }
    static VRX_INLINE R sub(R a, R b) { return _mm_sub_ps(a, b); }
    static VRX_INLINE R mul(R a, R b) { return _mm_mul_ps(a, b); }
    static VRX_INLINE float re(R a) { return _mm_cvtss_f32(a); }
    static VRX_INLINE float im(R a) { return _mm_cvtss_f32(_mm_movehdup_ps(a)); }
};
}  // namespace n0::simd

// ---- 128-bit lane stores (the FFT's 64-bit buffer of columns, orders 7 to 9)
namespace n0::simd {
// the four complex values (128-bit lanes) of v to p0 .. p3: a store of the
// low lane and three lane extracts into memory, which issue no shuffle
VRX_INLINE void storeLanes128d(double* p0, double* p1, double* p2, double* p3, __m512d v) {
    _mm_store_pd(p0, _mm512_castpd512_pd128(v));
    _mm_store_ps(reinterpret_cast<float*>(p1), _mm512_extractf32x4_ps(_mm512_castpd_ps(v), 1));
    _mm_store_ps(reinterpret_cast<float*>(p2), _mm512_extractf32x4_ps(_mm512_castpd_ps(v), 2));
    _mm_store_ps(reinterpret_cast<float*>(p3), _mm512_extractf32x4_ps(_mm512_castpd_ps(v), 3));
}
}  // namespace n0::simd

// ---- lanes picked by a table (the DFT's real kernels of 12 and 15 points)
namespace n0::simd {
// lane i of the result is lane idx[i] of a (idx: 16 entries, 64-byte aligned)
VRX_INLINE __m512 pickLanes(const int32_t* idx, __m512 a) { return _mm512_permutexvar_ps(_mm512_load_si512(idx), a); }
}  // namespace n0::simd
