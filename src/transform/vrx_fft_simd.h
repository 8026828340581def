// SIMD primitives of the FFT: vectors of V interleaved complex values.
// Products are formed without fused multiply-add, so every path gives the
// same bits as the scalar form of the same arithmetic.
#pragma once

#include "vrx_base.h"
#include "vrx_fft.h"
#include "vrx_fft_sintab.h"

#include <immintrin.h>

namespace n0::fft {

// Scalar complex helpers.
template <class T> VRX_INLINE Cx<T> cadd(Cx<T> a, Cx<T> b) { return {a.re + b.re, a.im + b.im}; }
template <class T> VRX_INLINE Cx<T> csub(Cx<T> a, Cx<T> b) { return {a.re - b.re, a.im - b.im}; }
// a*w (forward) or a*conj(w) (inverse)
template <bool Inv, class T> VRX_INLINE Cx<T> cmulw(Cx<T> a, Cx<T> w) {
    if constexpr (!Inv) return {a.re * w.re - a.im * w.im, a.im * w.re + a.re * w.im};
    else return {a.re * w.re + a.im * w.im, a.im * w.re - a.re * w.im};
}
// multiplies by -i (forward) or +i (inverse)
template <bool Inv, class T> VRX_INLINE Cx<T> crot(Cx<T> a) {
    if constexpr (!Inv) return {a.im, -a.re};
    else return {-a.im, a.re};
}


// W_L^k with the forward sign from the constant sine table, k < L/2, L <= 1024.
template <class T> VRX_INLINE Cx<T> fixTwiddle(int64_t k, int64_t L) {
    const T* t;
    if constexpr (sizeof(T) == 4) t = reinterpret_cast<const T*>(fft_fix_twiddle_table_32f);
    else t = reinterpret_cast<const T*>(fft_fix_twiddle_table_64f);
    int64_t j = k * (1024 / L);
    T s = j <= 256 ? t[j] : t[512 - j];
    T c = j <= 256 ? t[256 - j] : -t[j - 256];
    return {c, -s};
}

template <class T, int V> struct CVec;

// 8 complex floats in a zmm register.
template <> struct CVec<float, 8> {
    __m512 v;
    static VRX_INLINE CVec load(const Cx<float>* p) { return {_mm512_loadu_ps(reinterpret_cast<const float*>(p))}; }
    VRX_INLINE void store(Cx<float>* p) const { _mm512_storeu_ps(reinterpret_cast<float*>(p), v); }
    friend VRX_INLINE CVec operator+(CVec a, CVec b) { return {_mm512_add_ps(a.v, b.v)}; }
    friend VRX_INLINE CVec operator-(CVec a, CVec b) { return {_mm512_sub_ps(a.v, b.v)}; }
    static VRX_INLINE __m512 negEven(__m512 x) {
        return _mm512_castsi512_ps(_mm512_xor_si512(_mm512_castps_si512(x), _mm512_set1_epi64(0x0000000080000000ll)));
    }
    static VRX_INLINE __m512 negOdd(__m512 x) {
        return _mm512_castsi512_ps(_mm512_xor_si512(_mm512_castps_si512(x), _mm512_set1_epi64(static_cast<long long>(0x8000000000000000ull))));
    }
    template <bool Inv> static VRX_INLINE CVec mul(CVec a, CVec w) {
        __m512 wr = _mm512_moveldup_ps(w.v), wi = _mm512_movehdup_ps(w.v);
        __m512 as = _mm512_permute_ps(a.v, 0xB1);
        __m512 p = _mm512_mul_ps(a.v, wr), q = _mm512_mul_ps(as, wi);
        if constexpr (!Inv) return {_mm512_add_ps(p, negEven(q))};
        else return {_mm512_add_ps(p, negOdd(q))};
    }
    template <bool Inv> static VRX_INLINE CVec rot(CVec a) {
        __m512 s = _mm512_permute_ps(a.v, 0xB1);
        if constexpr (!Inv) return {negOdd(s)};
        else return {negEven(s)};
    }
    static VRX_INLINE CVec scale(CVec a, float s) { return {_mm512_mul_ps(a.v, _mm512_set1_ps(s))}; }
    // product with factors given as duplicated real parts and imaginary parts
    template <bool Inv> static VRX_INLINE CVec mulSplit(CVec a, CVec wr, CVec wi) {
        __m512 p = _mm512_mul_ps(a.v, wr.v), q = _mm512_mul_ps(_mm512_permute_ps(a.v, 0xB1), wi.v);
        if constexpr (!Inv) return {_mm512_add_ps(p, negEven(q))};
        else return {_mm512_add_ps(p, negOdd(q))};
    }
    // product with a constant factor: the same bits as mul with bcast(w)
    template <bool Inv> static VRX_INLINE CVec mulc(CVec a, Cx<float> w) {
        __m512 p = _mm512_mul_ps(a.v, _mm512_set1_ps(w.re)), q = _mm512_mul_ps(_mm512_permute_ps(a.v, 0xB1), _mm512_set1_ps(w.im));
        if constexpr (!Inv) return {_mm512_add_ps(p, negEven(q))};
        else return {_mm512_add_ps(p, negOdd(q))};
    }
    static VRX_INLINE CVec bcast(Cx<float> w) { return {_mm512_broadcast_f32x4(_mm_setr_ps(w.re, w.im, w.re, w.im))}; }
};

// 4 complex floats in a ymm register.
template <> struct CVec<float, 4> {
    __m256 v;
    static VRX_INLINE CVec load(const Cx<float>* p) { return {_mm256_loadu_ps(reinterpret_cast<const float*>(p))}; }
    VRX_INLINE void store(Cx<float>* p) const { _mm256_storeu_ps(reinterpret_cast<float*>(p), v); }
    friend VRX_INLINE CVec operator+(CVec a, CVec b) { return {_mm256_add_ps(a.v, b.v)}; }
    friend VRX_INLINE CVec operator-(CVec a, CVec b) { return {_mm256_sub_ps(a.v, b.v)}; }
    static VRX_INLINE __m256 negAll(__m256 x) { return _mm256_xor_ps(x, _mm256_set1_ps(-0.0f)); }
    template <bool Inv> static VRX_INLINE CVec mul(CVec a, CVec w) {
        __m256 wr = _mm256_moveldup_ps(w.v), wi = _mm256_movehdup_ps(w.v);
        __m256 as = _mm256_permute_ps(a.v, 0xB1);
        __m256 p = _mm256_mul_ps(a.v, wr), q = _mm256_mul_ps(as, wi);
        if constexpr (!Inv) return {_mm256_addsub_ps(p, q)};
        else return {_mm256_addsub_ps(p, negAll(q))};
    }
    template <bool Inv> static VRX_INLINE CVec rot(CVec a) {
        __m256 s = _mm256_permute_ps(a.v, 0xB1);
        const __m256 oddSign = _mm256_castsi256_ps(_mm256_set1_epi64x(static_cast<long long>(0x8000000000000000ull)));
        const __m256 evenSign = _mm256_castsi256_ps(_mm256_set1_epi64x(0x0000000080000000ll));
        if constexpr (!Inv) return {_mm256_xor_ps(s, oddSign)};
        else return {_mm256_xor_ps(s, evenSign)};
    }
    static VRX_INLINE CVec scale(CVec a, float s) { return {_mm256_mul_ps(a.v, _mm256_set1_ps(s))}; }
    template <bool Inv> static VRX_INLINE CVec mulc(CVec a, Cx<float> w) { return mul<Inv>(a, bcast(w)); }
    template <bool Inv> static VRX_INLINE CVec mulSplit(CVec a, CVec wr, CVec wi) {
        __m256 p = _mm256_mul_ps(a.v, wr.v), q = _mm256_mul_ps(_mm256_permute_ps(a.v, 0xB1), wi.v);
        if constexpr (!Inv) return {_mm256_addsub_ps(p, q)};
        else return {_mm256_addsub_ps(p, negAll(q))};
    }
    static VRX_INLINE CVec bcast(Cx<float> w) { return {_mm256_setr_ps(w.re, w.im, w.re, w.im, w.re, w.im, w.re, w.im)}; }
};

// 4 complex doubles in a zmm register.
template <> struct CVec<double, 4> {
    __m512d v;
    static VRX_INLINE CVec load(const Cx<double>* p) { return {_mm512_loadu_pd(reinterpret_cast<const double*>(p))}; }
    VRX_INLINE void store(Cx<double>* p) const { _mm512_storeu_pd(reinterpret_cast<double*>(p), v); }
    friend VRX_INLINE CVec operator+(CVec a, CVec b) { return {_mm512_add_pd(a.v, b.v)}; }
    friend VRX_INLINE CVec operator-(CVec a, CVec b) { return {_mm512_sub_pd(a.v, b.v)}; }
    static VRX_INLINE __m512d x(__m512d a, unsigned long long pat0, unsigned long long pat1) {
        __m512i m = _mm512_set_epi64(static_cast<long long>(pat1), static_cast<long long>(pat0), static_cast<long long>(pat1), static_cast<long long>(pat0),
                                     static_cast<long long>(pat1), static_cast<long long>(pat0), static_cast<long long>(pat1), static_cast<long long>(pat0));
        return _mm512_castsi512_pd(_mm512_xor_si512(_mm512_castpd_si512(a), m));
    }
    static VRX_INLINE __m512d negEven(__m512d a) { return x(a, 0x8000000000000000ull, 0); }
    static VRX_INLINE __m512d negOdd(__m512d a) { return x(a, 0, 0x8000000000000000ull); }
    template <bool Inv> static VRX_INLINE CVec mul(CVec a, CVec w) {
        __m512d wr = _mm512_movedup_pd(w.v), wi = _mm512_permute_pd(w.v, 0xFF);
        __m512d as = _mm512_permute_pd(a.v, 0x55);
        __m512d p = _mm512_mul_pd(a.v, wr), q = _mm512_mul_pd(as, wi);
        if constexpr (!Inv) return {_mm512_add_pd(p, negEven(q))};
        else return {_mm512_add_pd(p, negOdd(q))};
    }
    template <bool Inv> static VRX_INLINE CVec rot(CVec a) {
        __m512d s = _mm512_permute_pd(a.v, 0x55);
        if constexpr (!Inv) return {negOdd(s)};
        else return {negEven(s)};
    }
    static VRX_INLINE CVec scale(CVec a, double s) { return {_mm512_mul_pd(a.v, _mm512_set1_pd(s))}; }
    template <bool Inv> static VRX_INLINE CVec mulSplit(CVec a, CVec wr, CVec wi) {
        __m512d p = _mm512_mul_pd(a.v, wr.v), q = _mm512_mul_pd(_mm512_permute_pd(a.v, 0x55), wi.v);
        if constexpr (!Inv) return {_mm512_add_pd(p, negEven(q))};
        else return {_mm512_add_pd(p, negOdd(q))};
    }
    template <bool Inv> static VRX_INLINE CVec mulc(CVec a, Cx<double> w) {
        __m512d p = _mm512_mul_pd(a.v, _mm512_set1_pd(w.re)), q = _mm512_mul_pd(_mm512_permute_pd(a.v, 0x55), _mm512_set1_pd(w.im));
        if constexpr (!Inv) return {_mm512_add_pd(p, negEven(q))};
        else return {_mm512_add_pd(p, negOdd(q))};
    }
    static VRX_INLINE CVec bcast(Cx<double> w) { return {_mm512_broadcast_f64x4(_mm256_setr_pd(w.re, w.im, w.re, w.im))}; }
};

// The group form between passes: V complex values stored as V real parts
// followed by V imaginary parts, one register each (V = 16 for float, 8
// for double), so that complex products need no shuffles.
template <class T> struct GVec;
template <> struct GVec<float> {
    static constexpr int V = 16;
    __m512 re, im;
    static VRX_INLINE GVec load(const float* p) { return {_mm512_loadu_ps(p), _mm512_loadu_ps(p + 16)}; }
    VRX_INLINE void store(float* p) const { _mm512_storeu_ps(p, re); _mm512_storeu_ps(p + 16, im); }
    // writes the V values interleaved again
    VRX_INLINE void storeCx(float* p) const {
        const __m512i lo = _mm512_setr_epi32(0, 16, 1, 17, 2, 18, 3, 19, 4, 20, 5, 21, 6, 22, 7, 23);
        const __m512i hi = _mm512_setr_epi32(8, 24, 9, 25, 10, 26, 11, 27, 12, 28, 13, 29, 14, 30, 15, 31);
        _mm512_storeu_ps(p, _mm512_permutex2var_ps(re, lo, im));
        _mm512_storeu_ps(p + 16, _mm512_permutex2var_ps(re, hi, im));
    }
    static VRX_INLINE __m512 add(__m512 a, __m512 b) { return _mm512_add_ps(a, b); }
    static VRX_INLINE __m512 sub(__m512 a, __m512 b) { return _mm512_sub_ps(a, b); }
    static VRX_INLINE __m512 mulv(__m512 a, __m512 b) { return _mm512_mul_ps(a, b); }
    static VRX_INLINE __m512 splat(float c) { return _mm512_set1_ps(c); }
    static VRX_INLINE void storeHalf(float* p, __m512 v) { _mm512_storeu_ps(p, v); }
    static VRX_INLINE __m512 loadHalf(const float* p) { return _mm512_loadu_ps(p); }
};
template <> struct GVec<double> {
    static constexpr int V = 8;
    __m512d re, im;
    static VRX_INLINE GVec load(const double* p) { return {_mm512_loadu_pd(p), _mm512_loadu_pd(p + 8)}; }
    VRX_INLINE void store(double* p) const { _mm512_storeu_pd(p, re); _mm512_storeu_pd(p + 8, im); }
    VRX_INLINE void storeCx(double* p) const {
        const __m512i lo = _mm512_setr_epi64(0, 8, 1, 9, 2, 10, 3, 11);
        const __m512i hi = _mm512_setr_epi64(4, 12, 5, 13, 6, 14, 7, 15);
        _mm512_storeu_pd(p, _mm512_permutex2var_pd(re, lo, im));
        _mm512_storeu_pd(p + 8, _mm512_permutex2var_pd(re, hi, im));
    }
    static VRX_INLINE __m512d add(__m512d a, __m512d b) { return _mm512_add_pd(a, b); }
    static VRX_INLINE __m512d sub(__m512d a, __m512d b) { return _mm512_sub_pd(a, b); }
    static VRX_INLINE __m512d mulv(__m512d a, __m512d b) { return _mm512_mul_pd(a, b); }
    static VRX_INLINE __m512d splat(double c) { return _mm512_set1_pd(c); }
    static VRX_INLINE void storeHalf(double* p, __m512d v) { _mm512_storeu_pd(p, v); }
    static VRX_INLINE __m512d loadHalf(const double* p) { return _mm512_loadu_pd(p); }
};

}  // namespace n0::fft
