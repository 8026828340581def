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
    static VRX_INLINE R blend(M m, R a, R b) { return _mm512_mask_blend_epi32(m, a, b); }
    static VRX_INLINE T first(R a) { return static_cast<T>(_mm_cvtsi128_si32(_mm512_castsi512_si128(a))); }
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
    static VRX_INLINE R blend(M m, R a, R b) { return _mm512_mask_blend_epi64(m, a, b); }
    static VRX_INLINE T first(R a) { return static_cast<T>(_mm_cvtsi128_si64(_mm512_castsi512_si128(a))); }
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
// The low and high 8 floats of a register as doubles (exact).
VRX_INLINE __m512d lowToDouble(__m512 a) { return _mm512_cvtps_pd(_mm512_castps512_ps256(a)); }
VRX_INLINE __m512d highToDouble(__m512 a) {
    return _mm512_cvtps_pd(_mm256_castpd_ps(_mm512_extractf64x4_pd(_mm512_castps_pd(a), 1)));
}
// Two registers of doubles rounded to nearest (ties to even) into one of
// floats, whatever the caller's mode: lo fills lanes 0..7, hi lanes 8..15.
VRX_INLINE __m512 joinToFloat(__m512d lo, __m512d hi) {
    __m256 a = _mm512_cvt_roundpd_ps(lo, _MM_FROUND_TO_NEAREST_INT | _MM_FROUND_NO_EXC);
    __m256 b = _mm512_cvt_roundpd_ps(hi, _MM_FROUND_TO_NEAREST_INT | _MM_FROUND_NO_EXC);
    return _mm512_castpd_ps(_mm512_insertf64x4(_mm512_castpd256_pd512(_mm256_castps_pd(a)), _mm256_castps_pd(b), 1));
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

// Orders earlier streaming stores before later stores.
VRX_INLINE void streamFence() { _mm_sfence(); }

}  // namespace n0::simd
