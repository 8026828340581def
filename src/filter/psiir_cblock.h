// The block scheme of the complex IIR kinds: as psiir_block.h, with
// registers of C2 complex values (re, im adjacent; 8 in float, 4 in double).
// A complex weight vector R times a broadcast complex z is
// z.re*R + swap(z.im*R), swap(v) = (-v.im, v.re) per pair: sums of such
// products keep the two parts in two accumulators and swap the second once,
// so that the inner loops are plain broadcast fused multiply-adds.
// The tables, the scalar parts (first outputs, delay line from the tails,
// the tail of the y pass) and the block drivers are those of the real kinds
// (psiir_block.h) in complex arithmetic; here are the vector passes.
#pragma once

#include "psiir_block.h"

namespace n0::iir {

template <class T>
struct CxV {
    using W = simd::V<T>;
    using R = typename W::R;
    using I = simd::V<std::conditional_t<sizeof(T) == 4, int32_t, int64_t>>;
    static constexpr int C2 = W::N / 2;
    static VRX_INLINE R load(const Cx<T>* p) { return W::load(reinterpret_cast<const T*>(p)); }
    static VRX_INLINE R loadm(int cnt, const Cx<T>* p) { return W::loadm(simd::tail<T>(2 * cnt), reinterpret_cast<const T*>(p)); }
    static VRX_INLINE void store(Cx<T>* p, R v) { W::store(reinterpret_cast<T*>(p), v); }
    static VRX_INLINE void storem(Cx<T>* p, int cnt, R v) { W::storem(reinterpret_cast<T*>(p), simd::tail<T>(2 * cnt), v); }
    // a + swap(b)
    static VRX_INLINE R join(R a, R b) { return W::fma(W::swapPair(b), W::set2(T(-1), T(1)), a); }
    // the parts of complex lane k in every lane
    static VRX_INLINE typename I::R reLane(int k) { return I::set1(2 * k); }
    static VRX_INLINE typename I::R imLane(int k) { return I::set1(2 * k + 1); }
};

// e[n] = sum over k of b[k]*x[n-k], n from n0 to L-1.
template <class T>
VRX_INLINE void xPass(const Cx<T>* b, int nb, const Cx<T>* x, Cx<T>* e, int n0, int L) {
    using X = CxV<T>;
    using W = typename X::W;
    for (int n = n0; n < L; n += X::C2) {
        const int cnt = L - n < X::C2 ? L - n : X::C2;
        const typename W::R v = X::loadm(cnt, x + n);
        typename W::R a = W::mul(W::set1(b[0].re), v), c = W::mul(W::set1(b[0].im), v);
        for (int k = 1; k < nb; ++k) {
            const typename W::R u = X::loadm(cnt, x + n - k);
            a = W::fma(W::set1(b[k].re), u, a);
            c = W::fma(W::set1(b[k].im), u, c);
        }
        X::storem(e + n, cnt, X::join(a, c));
    }
}

// The complex AR y pass: y[n..n+C-1] for n from n0 while C remain; as the
// real one, with the newest outputs over two pairs of accumulators.
template <class T>
VRX_INLINE int yPass(const AheadAR<Cx<T>>& t, int N, const Cx<T>* e, Cx<T>* y, int n0, int L) {
    using X = CxV<T>;
    using W = typename X::W;
    using R = typename W::R;
    constexpr int C = X::C2;
    R E[C];
    for (int j = 0; j < C; ++j) E[j] = X::load(t.gz + C - j);
    const int near = N < C ? N : C, mid = N < 2 * C ? N : 2 * C;
    auto before = [&](int at) {
        if (at >= 0) return X::load(y + at);
        Cx<T> v[C];
        for (int j = 0; j < C; ++j) v[j] = at + j >= 0 ? y[at + j] : zero<Cx<T>>();
        return X::load(v);
    };
    R prev = before(n0 - C), prev2 = before(n0 - 2 * C);
    int n = n0;
    for (; n + C <= L; n += C) {
        R a = W::mul(E[0], W::set1(e[n].re)), b = W::mul(E[0], W::set1(e[n].im));
        for (int j = 1; j < C; ++j) {
            a = W::fma(E[j], W::set1(e[n + j].re), a);
            b = W::fma(E[j], W::set1(e[n + j].im), b);
        }
        for (int r = N - 1; r >= 2 * C; --r) {
            const R row = X::load(t.rows[r]);
            a = W::fma(row, W::set1(y[n - 1 - r].re), a);
            b = W::fma(row, W::set1(y[n - 1 - r].im), b);
        }
        for (int r = mid - 1; r >= C; --r) {
            const R row = X::load(t.rows[r]);
            const int k = 2 * C - 1 - r;
            a = W::fma(row, W::permute2(prev2, X::reLane(k), prev2), a);
            b = W::fma(row, W::permute2(prev2, X::imLane(k), prev2), b);
        }
        R a1 = W::zero(), b1 = W::zero();
        for (int r = near - 1; r >= 0; --r) {
            const R row = X::load(t.rows[r]);
            const int k = C - 1 - r;
            if (r & 1) {
                a1 = W::fma(row, W::permute2(prev, X::reLane(k), prev), a1);
                b1 = W::fma(row, W::permute2(prev, X::imLane(k), prev), b1);
            } else {
                a = W::fma(row, W::permute2(prev, X::reLane(k), prev), a);
                b = W::fma(row, W::permute2(prev, X::imLane(k), prev), b);
            }
        }
        const R out = X::join(W::add(a, a1), W::add(b, b1));
        X::store(y + n, out);
        prev2 = prev;
        prev = out;
    }
    return n;
}

// The y pass of a complex biquad section, y[n0..L-1] from x (which may be
// y), xm2, xm1 = x[n0-2], x[n0-1]; the last register partial.
template <class T>
VRX_INLINE void yPassBQ(const AheadBQ<Cx<T>>& t, const Cx<T>* x, Cx<T> xm2, Cx<T> xm1, Cx<T>* y, int n0, int L) {
    using X = CxV<T>;
    using W = typename X::W;
    using R = typename W::R;
    constexpr int C = X::C2;
    R E[C];
    for (int j = 0; j < C; ++j) E[j] = X::load(t.hz + C - j);
    const R r0 = X::load(t.rows[0]), r1 = X::load(t.rows[1]), w1 = X::load(t.w1), w2 = X::load(t.w2);
    R prev = W::zero();  // y[n0-2], y[n0-1] in the top lanes
    {
        Cx<T> v[C] = {};
        v[C - 2] = y[n0 - 2];
        v[C - 1] = y[n0 - 1];
        prev = X::load(v);
    }
    const auto re1 = X::reLane(C - 1), im1 = X::imLane(C - 1), re2 = X::reLane(C - 2), im2 = X::imLane(C - 2);
    auto step = [&](int n, int cnt) {
        R a = W::fma(w2, W::set1(xm2.re), W::mul(w1, W::set1(xm1.re)));
        R b = W::fma(w2, W::set1(xm2.im), W::mul(w1, W::set1(xm1.im)));
        if (cnt == C) {
            for (int j = 0; j < C; ++j) {
                a = W::fma(E[j], W::set1(x[n + j].re), a);
                b = W::fma(E[j], W::set1(x[n + j].im), b);
            }
        } else {
            for (int j = 0; j < cnt; ++j) {
                const R col = X::load(t.hz + C - j);
                a = W::fma(col, W::set1(x[n + j].re), a);
                b = W::fma(col, W::set1(x[n + j].im), b);
            }
        }
        if (cnt >= 2) {
            xm2 = x[n + cnt - 2];  // read before the store: x may be y
            xm1 = x[n + cnt - 1];
        }
        a = W::fma(r1, W::permute2(prev, re2, prev), a);
        b = W::fma(r1, W::permute2(prev, im2, prev), b);
        a = W::fma(r0, W::permute2(prev, re1, prev), a);
        b = W::fma(r0, W::permute2(prev, im1, prev), b);
        return X::join(a, b);
    };
    int n = n0;
    for (; n + C <= L; n += C) {
        prev = step(n, C);
        X::store(y + n, prev);
    }
    if (n < L) X::storem(y + n, L - n, step(n, L - n));
}

}  // namespace n0::iir
