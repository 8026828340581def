// Vector primitives of the element-wise arithmetic on floating-point data,
// and the streaming drivers that every float kernel is written against.
// Full 512-bit blocks run unrolled; the last partial block uses masked loads
// and stores, so no byte outside the vectors is touched and the tail gives
// the same bits as the body.
#pragma once

#include "vrx_base.h"

#include <immintrin.h>

namespace n0::ar {

template <class T> struct Vf;

template <> struct Vf<float> {
    using R = __m512;
    using M = __mmask16;
    static constexpr size_t N = 16;
    static VRX_INLINE R load(const float* p) { return _mm512_loadu_ps(p); }
    static VRX_INLINE R loadm(M m, const float* p) { return _mm512_maskz_loadu_ps(m, p); }
    static VRX_INLINE R loadm(M m, const float* p, float fill) { return _mm512_mask_loadu_ps(_mm512_set1_ps(fill), m, p); }
    static VRX_INLINE void store(float* p, R v) { _mm512_storeu_ps(p, v); }
    static VRX_INLINE void storem(float* p, M m, R v) { _mm512_mask_storeu_ps(p, m, v); }
    static VRX_INLINE R set1(float v) { return _mm512_set1_ps(v); }
    static VRX_INLINE R set2(float re, float im) { return _mm512_setr4_ps(re, im, re, im); }
    static VRX_INLINE R add(R a, R b) { return _mm512_add_ps(a, b); }
    static VRX_INLINE R sub(R a, R b) { return _mm512_sub_ps(a, b); }
    static VRX_INLINE R mul(R a, R b) { return _mm512_mul_ps(a, b); }
    static VRX_INLINE R div(R a, R b) { return _mm512_div_ps(a, b); }
    // complex helpers on interleaved pairs
    static VRX_INLINE R dupRe(R a) { return _mm512_moveldup_ps(a); }
    static VRX_INLINE R dupIm(R a) { return _mm512_movehdup_ps(a); }
    static VRX_INLINE R swapPair(R a) { return _mm512_permute_ps(a, 0xB1); }
    // even lanes a*b - c, odd lanes a*b + c, one rounding each
    static VRX_INLINE R fmaddsub(R a, R b, R c) { return _mm512_fmaddsub_ps(a, b, c); }
    static VRX_INLINE M tailMask(size_t n) { return static_cast<M>((1u << n) - 1u); }
};

template <> struct Vf<double> {
    using R = __m512d;
    using M = __mmask8;
    static constexpr size_t N = 8;
    static VRX_INLINE R load(const double* p) { return _mm512_loadu_pd(p); }
    static VRX_INLINE R loadm(M m, const double* p) { return _mm512_maskz_loadu_pd(m, p); }
    static VRX_INLINE R loadm(M m, const double* p, double fill) { return _mm512_mask_loadu_pd(_mm512_set1_pd(fill), m, p); }
    static VRX_INLINE void store(double* p, R v) { _mm512_storeu_pd(p, v); }
    static VRX_INLINE void storem(double* p, M m, R v) { _mm512_mask_storeu_pd(p, m, v); }
    static VRX_INLINE R set1(double v) { return _mm512_set1_pd(v); }
    static VRX_INLINE R set2(double re, double im) { return _mm512_setr4_pd(re, im, re, im); }
    static VRX_INLINE R add(R a, R b) { return _mm512_add_pd(a, b); }
    static VRX_INLINE R sub(R a, R b) { return _mm512_sub_pd(a, b); }
    static VRX_INLINE R mul(R a, R b) { return _mm512_mul_pd(a, b); }
    static VRX_INLINE R div(R a, R b) { return _mm512_div_pd(a, b); }
    static VRX_INLINE R dupRe(R a) { return _mm512_movedup_pd(a); }
    static VRX_INLINE R dupIm(R a) { return _mm512_permute_pd(a, 0xFF); }
    static VRX_INLINE R swapPair(R a) { return _mm512_permute_pd(a, 0x55); }
    static VRX_INLINE R fmaddsub(R a, R b, R c) { return _mm512_fmaddsub_pd(a, b, c); }
    static VRX_INLINE M tailMask(size_t n) { return static_cast<M>((1u << n) - 1u); }
};

// d[i] = f(a[i], b[i]) over n scalars, vector by vector. Lanes past the
// end of a partial block read fillA from a (a divisor stays nonzero there).
template <class T, class F>
VRX_INLINE void map2(const T* a, const T* b, T* d, size_t n, F f, T fillA = T(0)) {
    using V = Vf<T>;
    constexpr size_t N = V::N;
    size_t i = 0;
    for (; i + 4 * N <= n; i += 4 * N) {
        auto a0 = V::load(a + i), a1 = V::load(a + i + N), a2 = V::load(a + i + 2 * N), a3 = V::load(a + i + 3 * N);
        auto b0 = V::load(b + i), b1 = V::load(b + i + N), b2 = V::load(b + i + 2 * N), b3 = V::load(b + i + 3 * N);
        V::store(d + i, f(a0, b0));
        V::store(d + i + N, f(a1, b1));
        V::store(d + i + 2 * N, f(a2, b2));
        V::store(d + i + 3 * N, f(a3, b3));
    }
    for (; i + N <= n; i += N) V::store(d + i, f(V::load(a + i), V::load(b + i)));
    if (i < n) {
        auto m = V::tailMask(n - i);
        V::storem(d + i, m, f(V::loadm(m, a + i, fillA), V::loadm(m, b + i)));
    }
}

// d[i] = f(a[i]) over n scalars; lanes past the end read fillA.
template <class T, class F>
VRX_INLINE void map1(const T* a, T* d, size_t n, F f, T fillA = T(0)) {
    using V = Vf<T>;
    constexpr size_t N = V::N;
    size_t i = 0;
    for (; i + 4 * N <= n; i += 4 * N) {
        auto a0 = V::load(a + i), a1 = V::load(a + i + N), a2 = V::load(a + i + 2 * N), a3 = V::load(a + i + 3 * N);
        V::store(d + i, f(a0));
        V::store(d + i + N, f(a1));
        V::store(d + i + 2 * N, f(a2));
        V::store(d + i + 3 * N, f(a3));
    }
    for (; i + N <= n; i += N) V::store(d + i, f(V::load(a + i)));
    if (i < n) {
        auto m = V::tailMask(n - i);
        V::storem(d + i, m, f(V::loadm(m, a + i, fillA)));
    }
}

// Complex product of interleaved vectors x = (a, b), y = (c, d):
// re = fused(a c - round(b d)), im = fused(a d + round(b c)).
template <class T>
VRX_INLINE typename Vf<T>::R cmul(typename Vf<T>::R x, typename Vf<T>::R y) {
    using V = Vf<T>;
    auto p = V::mul(V::dupIm(x), V::swapPair(y));
    return V::fmaddsub(V::dupRe(x), y, p);
}

// The same with a constant: yc = (c, d) repeated, ys = (d, c) repeated.
template <class T>
VRX_INLINE typename Vf<T>::R cmulC(typename Vf<T>::R x, typename Vf<T>::R yc, typename Vf<T>::R ys) {
    using V = Vf<T>;
    return V::fmaddsub(V::dupRe(x), yc, V::mul(V::dupIm(x), ys));
}

}  // namespace n0::ar
