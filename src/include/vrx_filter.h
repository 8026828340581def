// Pieces that every FIR-like filter shares: element traits of the filter
// types, block moves by type, the delay line handed in and out by the
// caller, and the direct dot-product kernels (one body per family over its
// types).
//
// Arithmetic of the direct kernels: output i is the sum over j = 0..N-1 of
// g[j] * in[i+j], where g[j] is the tap that meets the j-th oldest sample of
// the window, accumulated from +0 by one fused multiply-add per tap in the
// element precision, j rising. Complex taps add, per tap, re*x first and
// then the cross term: re' = fma(-im, x.im, fma(re, x.re, acc.re)),
// im' = fma(im, x.re, fma(re, x.im, acc.im)). No wider accumulator.
#pragma once

#include <stddef.h>

#include "simd/simd.h"
#include "vrx_base.h"
#include "vrx_const.h"

namespace n0::filt {

// ------------------------------------------------------------- elements
template <class E> struct Elem;
template <> struct Elem<Vrx32f> { using S = float; static constexpr bool kCplx = false; };
template <> struct Elem<Vrx64f> { using S = double; static constexpr bool kCplx = false; };
template <> struct Elem<Vrx32fc> { using S = float; static constexpr bool kCplx = true; };
template <> struct Elem<Vrx64fc> { using S = double; static constexpr bool kCplx = true; };
template <> struct Elem<Vrx16s> { using S = int16_t; static constexpr bool kCplx = false; };
template <> struct Elem<Vrx16sc> { using S = int16_t; static constexpr bool kCplx = true; };

VRX_INLINE constexpr int64_t roundUp64(int64_t x) { return (x + 63) & ~int64_t(63); }

// ------------------------------------------------------------ moves by type
// Counts of zero or less do nothing (the block moves would refuse them).
VRX_INLINE void copyN(const Vrx32f* s, Vrx32f* d, int n) { if (n > 0) N0(vrxsCopy_32f)(s, d, n); }
VRX_INLINE void copyN(const Vrx64f* s, Vrx64f* d, int n) { if (n > 0) N0(vrxsCopy_64f)(s, d, n); }
VRX_INLINE void copyN(const Vrx32fc* s, Vrx32fc* d, int n) { if (n > 0) N0(vrxsCopy_32fc)(s, d, n); }
VRX_INLINE void copyN(const Vrx64fc* s, Vrx64fc* d, int n) { if (n > 0) N0(vrxsCopy_64fc)(s, d, n); }
VRX_INLINE void copyN(const Vrx16s* s, Vrx16s* d, int n) { if (n > 0) N0(vrxsCopy_16s)(s, d, n); }
VRX_INLINE void copyN(const Vrx16sc* s, Vrx16sc* d, int n) { if (n > 0) N0(vrxsCopy_16sc)(s, d, n); }
VRX_INLINE void moveN(const Vrx32f* s, Vrx32f* d, int n) { if (n > 0) N0(vrxsMove_32f)(s, d, n); }
VRX_INLINE void moveN(const Vrx64f* s, Vrx64f* d, int n) { if (n > 0) N0(vrxsMove_64f)(s, d, n); }
VRX_INLINE void moveN(const Vrx32fc* s, Vrx32fc* d, int n) { if (n > 0) N0(vrxsMove_32fc)(s, d, n); }
VRX_INLINE void moveN(const Vrx64fc* s, Vrx64fc* d, int n) { if (n > 0) N0(vrxsMove_64fc)(s, d, n); }
VRX_INLINE void moveN(const Vrx16s* s, Vrx16s* d, int n) { if (n > 0) N0(vrxsMove_16s)(s, d, n); }
VRX_INLINE void moveN(const Vrx16sc* s, Vrx16sc* d, int n) { if (n > 0) N0(vrxsMove_16sc)(s, d, n); }
VRX_INLINE void zeroN(Vrx32f* d, int n) { if (n > 0) N0(vrxsZero_32f)(d, n); }
VRX_INLINE void zeroN(Vrx64f* d, int n) { if (n > 0) N0(vrxsZero_64f)(d, n); }
VRX_INLINE void zeroN(Vrx32fc* d, int n) { if (n > 0) N0(vrxsZero_32fc)(d, n); }
VRX_INLINE void zeroN(Vrx64fc* d, int n) { if (n > 0) N0(vrxsZero_64fc)(d, n); }

// 16-bit samples to float and back (nearest, ties to even, saturated).
VRX_INLINE void toFloat(const Vrx16s* s, Vrx32f* d, int n) { if (n > 0) N0(vrxsConvert_16s32f)(s, d, n); }
VRX_INLINE void toFloat(const Vrx16sc* s, Vrx32fc* d, int n) {
    if (n > 0) N0(vrxsConvert_16s32f)(reinterpret_cast<const Vrx16s*>(s), reinterpret_cast<Vrx32f*>(d), 2 * n);
}
VRX_INLINE void fromFloat(const Vrx32f* s, Vrx16s* d, int n) {
    if (n > 0) N0(vrxsConvert_32f16s_Sfs)(s, d, n, vrxRndNear, 0);
}
VRX_INLINE void fromFloat(const Vrx32fc* s, Vrx16sc* d, int n) {
    if (n > 0) N0(vrxsConvert_32f16s_Sfs)(reinterpret_cast<const Vrx32f*>(s), reinterpret_cast<Vrx16s*>(d), 2 * n, vrxRndNear, 0);
}

// ------------------------------------------------------------ delay line
// The line going out after a run of n samples: L = N-1 samples in time
// order, oldest first. Its first keep = max(L-n, 0) elements are the newest
// of the incoming line (zeros for a null line), the rest the last samples of
// src. dlyIn and dlyOut never overlap here.
template <class E>
VRX_INLINE void lineOut(const E* src, int n, int L, const E* dlyIn, E* dlyOut) {
    if (!dlyOut || L <= 0) return;
    const int keep = L - n > 0 ? L - n : 0;
    if (keep) {
        if (dlyIn) copyN(dlyIn + (L - keep), dlyOut, keep);
        else zeroN(dlyOut, keep);
    }
    copyN(src + (n - (L - keep)), dlyOut + keep, L - keep);
}

// The joined run: L samples of history (zeros for a null line), then the
// first m samples of src.
template <class E>
VRX_INLINE void joinRun(const E* dlyIn, int L, const E* src, int m, E* run) {
    if (dlyIn) copyN(dlyIn, run, L);
    else zeroN(run, L);
    copyN(src, run + L, m);
}

// ------------------------------------------------------ long filters
// For filters of many taps the taps drive the loop instead of the outputs.
// A block is one register of L outputs. While the input position p runs,
// every block in flight takes its next tap from the one input register
// x[p .. p+L-1]: at p = L*m + t the block m-a (slot a) takes tap L*a + t.
// After a chunk of L positions the block in the last slot has all its taps
// and is stored, the others move up a slot and a new block enters slot 0.
// Each output still sums its taps j rising from +0, one fused multiply-add
// each, so the bits are those of the kernels above; per position there is
// one input load and one broadcast multiply-add per slot, where the kernels
// above load one shifted input register per tap and output register.
//
// The tap rows, by kind: real taps g[j] = taps[j * Stride]; complex rows as
// in dotRunCplx (re at [0], the signed imaginary parts at [4..7]). The
// stride is a constant, so that the slots' taps are fixed offsets.
template <class S, ptrdiff_t Stride>
struct RealTaps {
    using W = simd::V<S>;
    using R = typename W::R;
    static constexpr int L = W::N;  // outputs per register
    const S* g;
    static constexpr int kScalars = 1;  // scalars per element
    struct X { R v; };
    VRX_INLINE X at(const S* p) const { return {W::load(p)}; }
    VRX_INLINE const S* row(int j) const { return g + ptrdiff_t(j) * Stride; }
    // tap row r advanced by d taps
    VRX_INLINE static R step(R acc, const X& x, const S* r, ptrdiff_t d) { return W::fma(W::set1(r[d * Stride]), x.v, acc); }
};
template <class S, bool PlusFirst, ptrdiff_t Stride>
struct CplxTaps {
    using W = simd::V<S>;
    using R = typename W::R;
    static constexpr int L = W::N / 2;
    const S* rows;
    static constexpr int kScalars = 2;
    struct X { R v, s; };
    VRX_INLINE X at(const S* p) const {
        const R v = W::load(p);
        return {v, W::swapPair(v)};
    }
    VRX_INLINE const S* row(int j) const { return rows + ptrdiff_t(j) * Stride; }
    VRX_INLINE static R step(R acc, const X& x, const S* r, ptrdiff_t d) {
        const S* t = r + d * Stride;
        acc = W::fma(W::set1(t[0]), x.v, acc);
        if constexpr (PlusFirst) return W::fnma(W::repeat4(t + 4), x.s, acc);
        else return W::fma(W::repeat4(t + 4), x.s, acc);
    }
};

// The input of a window run in two parts: element P at a[P] below sw and at
// b[P - sw] from sw on (a joined copy of history and first samples, then
// the caller's vector, which continues it). One vector is sw = 0.
template <class S> struct Input {
    const S* a;
    const S* b;
    int sw;
    template <class K> VRX_INLINE const S* at(int P) const {
        return P < sw ? a + ptrdiff_t(K::kScalars) * P : b + ptrdiff_t(K::kScalars) * (P - sw);
    }
};

// One pass of A slots over the taps j0 .. j0+w-1 (L*(A-1) < w <= L*A) for
// the blocks 0..K-1 of out; a pass after the first carries on from the sums
// the previous one left in out. At the two ends of a pass (the first and
// last A-1 chunks) only the slots that hold a block compute.
template <int A, class K, class S>
void rotPass(const K& taps, int j0, int w, Input<S> in, S* out, int K_, bool fresh) {
    const K k = taps;  // a local copy: the stores to out cannot reach it
    using W = simd::V<S>;
    using R = typename W::R;
    constexpr int L = K::L;
    const int rr = w - L * (A - 1);  // taps of the last slot, 1..L
    R acc[A];
#pragma GCC unroll 32
    for (int a = 0; a < A; ++a) acc[a] = W::zero();
    if (!fresh) acc[0] = W::load(out);
    // chunk m: slot a holds block m-a when lo <= a <= hi (Guard false: all)
    auto chunk = [&]<bool Guard>(int m, int lo, int hi) __attribute__((always_inline)) {
        // in the last chunk only the last slot holds a block, for rr taps
        const int tEnd = Guard && lo == A - 1 ? rr : L;
        const int p0 = j0 + L * m;
        int t = 0;
        for (; t < rr; ++t) {
            const auto x = k.at(in.template at<K>(p0 + t));
            const S* r = k.row(j0 + t);
#pragma GCC unroll 32
            for (int a = 0; a < A; ++a)
                if (!Guard || (a >= lo && a <= hi)) acc[a] = K::step(acc[a], x, r, L * a);
        }
        for (; t < tEnd; ++t) {
            const auto x = k.at(in.template at<K>(p0 + t));
            const S* r = k.row(j0 + t);
#pragma GCC unroll 32
            for (int a = 0; a < A - 1; ++a)
                if (!Guard || (a >= lo && a <= hi)) acc[a] = K::step(acc[a], x, r, L * a);
        }
        if (m >= A - 1) W::store(out + W::N * (m - (A - 1)), acc[A - 1]);
#pragma GCC unroll 32
        for (int a = A - 1; a > 0; --a) acc[a] = acc[a - 1];
        acc[0] = (!fresh && m + 1 < K_) ? W::load(out + W::N * (m + 1)) : W::zero();
    };
    const int mEnd = K_ + A - 2;
    int m = 0;
    for (; m < A - 1 && m <= mEnd; ++m) chunk.template operator()<true>(m, m - K_ + 1 > 0 ? m - K_ + 1 : 0, m);
    for (; m < K_; ++m) chunk.template operator()<false>(m, 0, A - 1);
    for (; m <= mEnd; ++m) chunk.template operator()<true>(m, m - K_ + 1, A - 1);
}

// The full blocks of n outputs of an N-tap filter by passes of at most 16
// slots; returns the outputs done (0 when the short kernels do better: fewer
// than four registers of taps leave the multiply-add latency open, and the
// two ends of a pass, A-1 chunks each, must be paid for by the blocks).
template <class K, class S>
int rotRun(const K& k, int N, Input<S> x, S* out, int n) {
    constexpr int L = K::L, kMax = 16;
    const int blocks = n / L, slots = (N + L - 1) / L;
    const int passes = (slots + kMax - 1) / kMax;
    const int per = slots / passes, extra = slots % passes;
    if (N < 4 * L || 3 * blocks < 4 * (per + (extra > 0) - 1)) return 0;
    for (int s = 0, j0 = 0; s < passes; ++s) {
        const int A = per + (s < extra);
        const int w = s + 1 < passes ? L * A : N - j0;
        // A is 4..16: N >= 4L gives at least 4 slots a pass
        withConst<4, 16>(A, [&](auto a) { rotPass<decltype(a)::value>(k, j0, w, x, out, blocks, s == 0); });
        j0 += w;
    }
    return blocks * L;
}

// ------------------------------------------------------------- kernels
// Real taps: g[j] = taps[j * Stride]. Long: the long-filter passes take the
// full blocks first where they pay (off for layouts of short filters only).
template <class S, ptrdiff_t Stride, bool Long = true>
void dotRunReal(const S* taps, int N, const S* in, S* out, int n) {
    constexpr ptrdiff_t stride = Stride;
    using W = simd::V<S>;
    using R = typename W::R;
    constexpr int L = W::N;
    int i = 0;
    if constexpr (Long) i = rotRun(RealTaps<S, Stride>{taps}, N, Input<S>{in, in, 0}, out, n);
    for (; i + 8 * L <= n; i += 8 * L) {
        R a0 = W::zero(), a1 = W::zero(), a2 = W::zero(), a3 = W::zero();
        R a4 = W::zero(), a5 = W::zero(), a6 = W::zero(), a7 = W::zero();
        const S* x = in + i;
        const S* t = taps;
        for (int j = 0; j < N; ++j, ++x, t += stride) {
            const R h = W::set1(*t);
            a0 = W::fma(h, W::load(x), a0);
            a1 = W::fma(h, W::load(x + L), a1);
            a2 = W::fma(h, W::load(x + 2 * L), a2);
            a3 = W::fma(h, W::load(x + 3 * L), a3);
            a4 = W::fma(h, W::load(x + 4 * L), a4);
            a5 = W::fma(h, W::load(x + 5 * L), a5);
            a6 = W::fma(h, W::load(x + 6 * L), a6);
            a7 = W::fma(h, W::load(x + 7 * L), a7);
        }
        S* o = out + i;
        W::store(o, a0); W::store(o + L, a1); W::store(o + 2 * L, a2); W::store(o + 3 * L, a3);
        W::store(o + 4 * L, a4); W::store(o + 5 * L, a5); W::store(o + 6 * L, a6); W::store(o + 7 * L, a7);
    }
    for (; i + 2 * L <= n; i += 2 * L) {
        R a0 = W::zero(), a1 = W::zero();
        const S* x = in + i;
        const S* t = taps;
        for (int j = 0; j < N; ++j, ++x, t += stride) {
            const R h = W::set1(*t);
            a0 = W::fma(h, W::load(x), a0);
            a1 = W::fma(h, W::load(x + L), a1);
        }
        W::store(out + i, a0);
        W::store(out + i + L, a1);
    }
    for (; i < n; i += L) {
        const auto m = simd::tail<S>(static_cast<size_t>(n - i));
        R a = W::zero();
        const S* x = in + i;
        const S* t = taps;
        for (int j = 0; j < N; ++j, ++x, t += stride) a = W::fma(W::set1(*t), W::loadm(m, x), a);
        W::storem(out + i, m, a);
    }
}

// Complex taps in rows of 8 scalars: row[0] the real part, row[4..7] the
// imaginary part with signs (-im, +im, -im, +im) when PlusFirst is false and
// (+im, -im, +im, -im) when it is true; g[j] is the row at rows + j * stride.
// in and out are interleaved, n counts complex elements.
template <class S, bool PlusFirst, ptrdiff_t Stride>
void dotRunCplx(const S* rows, int N, const S* in, S* out, int n) {
    constexpr ptrdiff_t stride = Stride;
    using W = simd::V<S>;
    using R = typename W::R;
    constexpr int L = W::N;       // scalars per register
    constexpr int C = W::N / 2;   // complex elements per register
    auto step = [](R acc, R hr, R hs, R x) {
        acc = W::fma(hr, x, acc);
        if constexpr (PlusFirst) return W::fnma(hs, W::swapPair(x), acc);
        else return W::fma(hs, W::swapPair(x), acc);
    };
    int i = rotRun(CplxTaps<S, PlusFirst, Stride>{rows}, N, Input<S>{in, in, 0}, out, n);
    for (; i + 8 * C <= n; i += 8 * C) {
        R a[8];
#pragma GCC unroll 8
        for (int q = 0; q < 8; ++q) a[q] = W::zero();
        const S* x = in + 2 * i;
        const S* t = rows;
        for (int j = 0; j < N; ++j, x += 2, t += stride) {
            const R hr = W::set1(t[0]);
            const R hs = W::repeat4(t + 4);
#pragma GCC unroll 8
            for (int q = 0; q < 8; ++q) a[q] = step(a[q], hr, hs, W::load(x + q * L));
        }
#pragma GCC unroll 8
        for (int q = 0; q < 8; ++q) W::store(out + 2 * i + q * L, a[q]);
    }
    for (; i + 4 * C <= n; i += 4 * C) {
        R a0 = W::zero(), a1 = W::zero(), a2 = W::zero(), a3 = W::zero();
        const S* x = in + 2 * i;
        const S* t = rows;
        for (int j = 0; j < N; ++j, x += 2, t += stride) {
            const R hr = W::set1(t[0]);
            const R hs = W::repeat4(t + 4);
            a0 = step(a0, hr, hs, W::load(x));
            a1 = step(a1, hr, hs, W::load(x + L));
            a2 = step(a2, hr, hs, W::load(x + 2 * L));
            a3 = step(a3, hr, hs, W::load(x + 3 * L));
        }
        S* o = out + 2 * i;
        W::store(o, a0); W::store(o + L, a1); W::store(o + 2 * L, a2); W::store(o + 3 * L, a3);
    }
    for (; i < n; i += C) {
        const auto m = simd::tail<S>(static_cast<size_t>(2 * (n - i)));
        R a = W::zero();
        const S* x = in + 2 * i;
        const S* t = rows;
        for (int j = 0; j < N; ++j, x += 2, t += stride)
            a = step(a, W::set1(t[0]), W::repeat4(t + 4), W::loadm(m, x));
        W::storem(out + 2 * i, m, a);
    }
}

// One output of a real or complex dot product in the kernels' order, for
// tails and gathers: sum over j < n of g[j] * x[j * xs] (x stride in elements).
VRX_INLINE float dotOne(const float* g, const float* x, int n, ptrdiff_t xs) {
    float a = 0.0f;
    for (int j = 0; j < n; ++j) a = __builtin_fmaf(g[j], x[j * xs], a);
    return a;
}
VRX_INLINE double dotOne(const double* g, const double* x, int n, ptrdiff_t xs) {
    double a = 0.0;
    for (int j = 0; j < n; ++j) a = __builtin_fma(g[j], x[j * xs], a);
    return a;
}
template <class C>
VRX_INLINE C dotOne(const C* g, const C* x, int n, ptrdiff_t xs) {
    decltype(g->re) re = 0, im = 0;
    for (int j = 0; j < n; ++j) {
        const C h = g[j], v = x[j * xs];
        if constexpr (sizeof(re) == 4) {
            re = __builtin_fmaf(-h.im, v.im, __builtin_fmaf(h.re, v.re, re));
            im = __builtin_fmaf(h.im, v.re, __builtin_fmaf(h.re, v.im, im));
        } else {
            re = __builtin_fma(-h.im, v.im, __builtin_fma(h.re, v.re, re));
            im = __builtin_fma(h.im, v.re, __builtin_fma(h.re, v.im, im));
        }
    }
    return C{re, im};
}

}  // namespace n0::filt
