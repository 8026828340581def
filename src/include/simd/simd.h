// The SIMD layer: the one vocabulary in which the library's kernels are
// written. Include this, name V<T> for the lane type T (float, double,
// int32_t, uint32_t, int64_t, uint64_t) and use its members and the free
// helpers below; the instruction-set target lives in the header included
// here, never in a kernel.
//
//   using F = simd::V<float>;
//   F::R x = F::loadm(simd::tail<float>(n), p);   // n < F::N lanes, rest 0
//   F::storem(q, simd::tail<float>(n), F::fma(x, x, F::set1(1.0f)));
//
// Raw intrinsics outside src/include/simd/ are kept only where a shuffle or
// transpose has no name here (the FFT passes), each such place commented.
#pragma once

#include "simd/avx512.h"

namespace n0::simd {

// Mask of the first n lanes of a register of T, 0 <= n <= V<T>::N.
template <class T>
VRX_INLINE typename V<T>::M tail(size_t n) {
    using M = typename V<T>::M;
    if constexpr (V<T>::N == 16) return static_cast<M>(_bzhi_u32(0xFFFFu, static_cast<unsigned>(n)));
    else return static_cast<M>(_bzhi_u32(0xFFu, static_cast<unsigned>(n)));
}

// Lanes of T in one register.
template <class T> inline constexpr int lanes = V<T>::N;

// --------------------------------------------------- interleaved complex
// Registers of (re, im) pairs of T.

// x*y for x = (a, b), y = (c, d): re = fused(a c - round(b d)),
// im = fused(a d + round(b c)).
template <class T>
VRX_INLINE typename V<T>::R cmul(typename V<T>::R x, typename V<T>::R y) {
    using W = V<T>;
    return W::fmaddsub(W::dupRe(x), y, W::mul(W::dupIm(x), W::swapPair(y)));
}

// The same with a constant y: yc = (c, d) repeated, ys = (d, c) repeated.
template <class T>
VRX_INLINE typename V<T>::R cmulC(typename V<T>::R x, typename V<T>::R yc, typename V<T>::R ys) {
    using W = V<T>;
    return W::fmaddsub(W::dupRe(x), yc, W::mul(W::dupIm(x), ys));
}

// ---------------------------------------------------------- split complex
// Two registers of interleaved pairs (lo holds pairs 0..N/2-1, hi the rest)
// to one register of real parts and one of imaginary parts, and back.
VRX_INLINE void deinterleave(__m512 lo, __m512 hi, __m512& re, __m512& im) {
    const __m512i ie = _mm512_setr_epi32(0, 2, 4, 6, 8, 10, 12, 14, 16, 18, 20, 22, 24, 26, 28, 30);
    const __m512i io = _mm512_setr_epi32(1, 3, 5, 7, 9, 11, 13, 15, 17, 19, 21, 23, 25, 27, 29, 31);
    re = _mm512_permutex2var_ps(lo, ie, hi);
    im = _mm512_permutex2var_ps(lo, io, hi);
}
VRX_INLINE void deinterleave(__m512d lo, __m512d hi, __m512d& re, __m512d& im) {
    const __m512i ie = _mm512_setr_epi64(0, 2, 4, 6, 8, 10, 12, 14);
    const __m512i io = _mm512_setr_epi64(1, 3, 5, 7, 9, 11, 13, 15);
    re = _mm512_permutex2var_pd(lo, ie, hi);
    im = _mm512_permutex2var_pd(lo, io, hi);
}
VRX_INLINE void interleave(__m512 re, __m512 im, __m512& lo, __m512& hi) {
    const __m512i il = _mm512_setr_epi32(0, 16, 1, 17, 2, 18, 3, 19, 4, 20, 5, 21, 6, 22, 7, 23);
    const __m512i ih = _mm512_setr_epi32(8, 24, 9, 25, 10, 26, 11, 27, 12, 28, 13, 29, 14, 30, 15, 31);
    lo = _mm512_permutex2var_ps(re, il, im);
    hi = _mm512_permutex2var_ps(re, ih, im);
}
VRX_INLINE void interleave(__m512d re, __m512d im, __m512d& lo, __m512d& hi) {
    const __m512i il = _mm512_setr_epi64(0, 8, 1, 9, 2, 10, 3, 11);
    const __m512i ih = _mm512_setr_epi64(4, 12, 5, 13, 6, 14, 7, 15);
    lo = _mm512_permutex2var_pd(re, il, im);
    hi = _mm512_permutex2var_pd(re, ih, im);
}

}  // namespace n0::simd
