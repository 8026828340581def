// SIMD primitives of the FFT: vectors of V interleaved complex values.
// Products are formed without fused multiply-add, so every path gives the
// same bits as the scalar form of the same arithmetic.
#pragma once

#include "vrx_base.h"
#include "vrx_fft.h"
#include "vrx_fft_sintab.h"
#include "simd/simd.h"

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

// V complex values of T in one zmm register (V = 8 for float, 4 for
// double): lanes (re, im) in pairs.
template <class T, int V> struct CVec {
    using W = simd::V<T>;
    using R = typename W::R;
    static_assert(V == W::N / 2, "one register of complex values");
    R v;
    static VRX_INLINE CVec load(const Cx<T>* p) { return {W::load(reinterpret_cast<const T*>(p))}; }
    VRX_INLINE void store(Cx<T>* p) const { W::store(reinterpret_cast<T*>(p), v); }
    friend VRX_INLINE CVec operator+(CVec a, CVec b) { return {W::add(a.v, b.v)}; }
    friend VRX_INLINE CVec operator-(CVec a, CVec b) { return {W::sub(a.v, b.v)}; }
    // a + b and a - b on the multiply unit, the same bits (as GVec::addM)
    static VRX_INLINE CVec addM(CVec a, CVec b) { return {W::fma(b.v, W::set1(T(1)), a.v)}; }
    static VRX_INLINE CVec subM(CVec a, CVec b) { return {W::fnma(b.v, W::set1(T(1)), a.v)}; }
    // the sign of the real (even) or of the imaginary (odd) lanes flipped
    static VRX_INLINE R negEven(R x) { return W::xorb(x, W::set2(T(-0.0), T(0))); }
    static VRX_INLINE R negOdd(R x) { return W::xorb(x, W::set2(T(0), T(-0.0))); }
    // a*w (forward) or a*conj(w) (inverse), products rounded, then added
    template <bool Inv> static VRX_INLINE CVec mul(CVec a, CVec w) {
        return mulSplit<Inv>(a, {W::dupRe(w.v)}, {W::dupIm(w.v)});
    }
    // multiplies by -i (forward) or +i (inverse)
    template <bool Inv> static VRX_INLINE CVec rot(CVec a) {
        const R s = W::swapPair(a.v);
        if constexpr (!Inv) return {negOdd(s)};
        else return {negEven(s)};
    }
    static VRX_INLINE CVec scale(CVec a, T s) { return {W::mul(a.v, W::set1(s))}; }
    // product with factors given as duplicated real parts and imaginary parts
    template <bool Inv> static VRX_INLINE CVec mulSplit(CVec a, CVec wr, CVec wi) {
        const R p = W::mul(a.v, wr.v), q = W::mul(W::swapPair(a.v), wi.v);
        if constexpr (!Inv) return {W::add(p, negEven(q))};
        else return {W::add(p, negOdd(q))};
    }
    // product with a constant factor: the same bits as mul with bcast(w)
    template <bool Inv> static VRX_INLINE CVec mulc(CVec a, Cx<T> w) {
        return mulSplit<Inv>(a, {W::set1(w.re)}, {W::set1(w.im)});
    }
    static VRX_INLINE CVec bcast(Cx<T> w) { return {W::set2(w.re, w.im)}; }
};

// 4 complex floats in a ymm register (the kernels of 16 and 32 points).
// Raw intrinsics: the SIMD layer names zmm registers only.
template <> struct CVec<float, 4> {
    __m256 v;
    static VRX_INLINE CVec load(const Cx<float>* p) { return {_mm256_loadu_ps(reinterpret_cast<const float*>(p))}; }
    VRX_INLINE void store(Cx<float>* p) const { _mm256_storeu_ps(reinterpret_cast<float*>(p), v); }
    friend VRX_INLINE CVec operator+(CVec a, CVec b) { return {_mm256_add_ps(a.v, b.v)}; }
    friend VRX_INLINE CVec operator-(CVec a, CVec b) { return {_mm256_sub_ps(a.v, b.v)}; }
    static VRX_INLINE CVec addM(CVec a, CVec b) { return {_mm256_fmadd_ps(b.v, _mm256_set1_ps(1.0f), a.v)}; }
    static VRX_INLINE CVec subM(CVec a, CVec b) { return {_mm256_fnmadd_ps(b.v, _mm256_set1_ps(1.0f), a.v)}; }
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

// The lane order of the in-lane shuffles: pairLoad leaves column
// pairLane(p) of its V values in lane p, and pairStore writes lane p to
// position pairLane(p).
template <class T> constexpr int pairLane(int p) {
    if constexpr (sizeof(T) == 4) return (p & 1) + 2 * (p >> 2) + ((p & 2) ? 8 : 0);
    else return (p >> 1) + ((p & 1) ? 4 : 0);
}
// V interleaved values to real and imaginary parts by in-lane shuffles, the
// lanes in the order pairLane, and back by in-lane unpacks, lane p written
// to position pairLane(p) (raw, as the transposes).
VRX_INLINE void pairLoad(const float* p, __m512& re, __m512& im) {
    const __m512 lo = simd::V<float>::load(p), hi = simd::V<float>::load(p + 16);
    re = _mm512_shuffle_ps(lo, hi, 0x88);
    im = _mm512_shuffle_ps(lo, hi, 0xDD);
}
VRX_INLINE void pairLoad(const double* p, __m512d& re, __m512d& im) {
    const __m512d lo = simd::V<double>::load(p), hi = simd::V<double>::load(p + 8);
    re = _mm512_unpacklo_pd(lo, hi);
    im = _mm512_unpackhi_pd(lo, hi);
}
VRX_INLINE void pairStore(float* p, __m512 re, __m512 im) {
    simd::V<float>::store(p, _mm512_unpacklo_ps(re, im));
    simd::V<float>::store(p + 16, _mm512_unpackhi_ps(re, im));
}
VRX_INLINE void pairStore(double* p, __m512d re, __m512d im) {
    simd::V<double>::store(p, _mm512_unpacklo_pd(re, im));
    simd::V<double>::store(p + 8, _mm512_unpackhi_pd(re, im));
}

// The group form between passes: V complex values stored as V real parts
// followed by V imaginary parts, one register each (V = 16 for float, 8
// for double), so that complex products need no shuffles.
template <class T> struct GVec {
    using W = simd::V<T>;
    using R = typename W::R;
    static constexpr int V = W::N;
    R re, im;
    static VRX_INLINE GVec load(const T* p) { return {W::load(p), W::load(p + V)}; }
    VRX_INLINE void store(T* p) const { W::store(p, re); W::store(p + V, im); }
    // writes the V values interleaved, lane q to position pairLane(q)
    VRX_INLINE void storePaired(T* p) const { pairStore(p, re, im); }
    // writes the V values interleaved again
    VRX_INLINE void storeCx(T* p) const {
        R lo, hi;
        simd::interleave(re, im, lo, hi);
        W::store(p, lo);
        W::store(p + V, hi);
    }
    static VRX_INLINE R add(R a, R b) { return W::add(a, b); }
    static VRX_INLINE R sub(R a, R b) { return W::sub(a, b); }
    // a + b and a - b on the multiply unit, as b*1 + a and -(b*1) + a: the
    // product is exact and the sum rounded once, the same bits as add and
    // sub. A butterfly does half its adds this way, so that they share the
    // multiply units (the add units bound the butterflies otherwise).
    static VRX_INLINE R addM(R a, R b) { return W::fma(b, W::set1(T(1)), a); }
    static VRX_INLINE R subM(R a, R b) { return W::fnma(b, W::set1(T(1)), a); }
    static VRX_INLINE R mulv(R a, R b) { return W::mul(a, b); }
    static VRX_INLINE R splat(T c) { return W::set1(c); }
    static VRX_INLINE void storeHalf(T* p, R v) { W::store(p, v); }
    static VRX_INLINE R loadHalf(const T* p) { return W::load(p); }
};

}  // namespace n0::fft
