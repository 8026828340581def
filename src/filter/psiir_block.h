// The block scheme of the real IIR kinds (float or double taps and
// arithmetic, real samples): a non-recursive x pass, then a y pass that
// makes four outputs per step from the look-ahead table, so that the
// numerator leaves the loop-carried chain and the recursion runs as four
// independent rows. Blocks hold at most kBlock samples; the delay line is
// rebuilt from the input and output tails of each block.
//
// Values in the arithmetic type: the input block xs (the source itself, or
// the samples converted into pWorkY) and the outputs ys (the destination,
// or pWorkY, which then goes out through the writer). In place, the input
// is read completely (x pass, input tail of the line) before the y pass
// overwrites it.
#pragma once

#include "vrx_base.h"
#include "simd/simd.h"

#include <type_traits>

namespace n0::iir {

// The arithmetic types: real, or complex as Cx.
template <class T>
struct Cx {
    T re, im;
};

template <class A> struct ScalarOf { using type = A; };
template <class T> struct ScalarOf<Cx<T>> { using type = T; };
template <class A> using Scalar = typename ScalarOf<A>::type;
template <class A> constexpr bool isCx = !std::is_same_v<A, Scalar<A>>;

// arithmetic on the tap type: real or complex, no fused operations
template <class T> VRX_INLINE Cx<T> operator+(Cx<T> a, Cx<T> b) { return {a.re + b.re, a.im + b.im}; }
template <class T> VRX_INLINE Cx<T> operator-(Cx<T> a, Cx<T> b) { return {a.re - b.re, a.im - b.im}; }
template <class T> VRX_INLINE Cx<T> operator*(Cx<T> a, Cx<T> b) {
    return {a.re * b.re - a.im * b.im, a.re * b.im + a.im * b.re};
}
template <class T> VRX_INLINE Cx<T> operator-(Cx<T> a) { return {-a.re, -a.im}; }
template <class A> constexpr A one() { if constexpr (isCx<A>) return A{1, 0}; else return A(1); }
template <class A> constexpr A zero() { if constexpr (isCx<A>) return A{0, 0}; else return A(0); }
template <class A> VRX_INLINE bool isZero(A a) {
    if constexpr (isCx<A>) return a.re == 0 && a.im == 0; else return a == 0;
}


// e[n] = sum over k of b[k]*x[n-k], n from n0 to L-1, vectors of V<T>::N
// with a masked tail.
template <class T>
VRX_INLINE void xPass(const T* b, int nb, const T* x, T* e, int n0, int L) {
    using W = simd::V<T>;
    for (int n = n0; n < L; n += W::N) {
        const int cnt = L - n < W::N ? L - n : W::N;
        const typename W::M m = simd::tail<T>(cnt);
        typename W::R acc = W::mul(W::set1(b[0]), W::loadm(m, x + n));
        for (int k = 1; k < nb; ++k) acc = W::fma(W::set1(b[k]), W::loadm(m, x + n - k), acc);
        W::storem(e + n, m, acc);
    }
}

constexpr int kMaxBlockOrder = 21;  // higher orders run per sample

// The tail: y[n] = e[n] - sum a[k]*y[n-k].
template <class A>
VRX_INLINE void yTail(const A* a, int N, const A* e, A* y, int n, int L) {
    for (; n < L; ++n) {
        A v = e[n];
        for (int k = 1; k <= N; ++k) v = v - a[k - 1] * y[n - k];
        y[n] = v;
    }
}

// The look-ahead over eight outputs, derived per call from the normalised
// a[1..N] (c[i] = -a[i]): rows[r][j] weighs y[n-1-r] in y[n+j], with
// t_j[r] = sum_{k=1..j} c[k]*t_{j-k}[r] + c[r+1+j]; g is the response of
// 1/A, g[0] = 1, which weighs e[n+i] in y[n+j] as g[j-i].
template <class T>
struct Ahead8 {
    T rows[kMaxBlockOrder][8];
    T g[8];
};
template <class T>
void ahead8(const T* a, int N, Ahead8<T>* t) {
    auto c = [&](int i) { return i >= 1 && i <= N ? -a[i - 1] : T(0); };
    for (int r = 0; r < N; ++r)
        for (int j = 0; j < 8; ++j) {
            T v = c(r + 1 + j);
            for (int k = 1; k <= j; ++k) v += c(k) * t->rows[r][j - k];
            t->rows[r][j] = v;
        }
    t->g[0] = 1;
    for (int j = 1; j < 8; ++j) {
        T v = 0;
        for (int k = 1; k <= j; ++k) v += c(k) * t->g[j - k];
        t->g[j] = v;
    }
}

// y[n..n+7] for n from n0 while eight remain, from the table above: the
// e terms and the outputs older than one step first, the newest ones (at
// most eight) over four partial sums last.
template <class T>
VRX_INLINE int yPass8(const Ahead8<T>& t, int N, const T* e, T* y, int n0, int L) {
    using W = simd::V<T>;
    const typename W::M m8 = simd::tail<T>(8);
    typename W::R E[8];
    for (int j = 0; j < 8; ++j) {
        T col[8];
        for (int i = 0; i < 8; ++i) col[i] = i >= j ? t.g[i - j] : T(0);
        E[j] = W::loadm(m8, col);
    }
    const int near = N < 8 ? N : 8;
    int n = n0;
    for (; n + 8 <= L; n += 8) {
        typename W::R s0 = W::mul(E[0], W::set1(e[n]));
        typename W::R s1 = W::mul(E[1], W::set1(e[n + 1]));
        for (int j = 2; j < 8; j += 2) {
            s0 = W::fma(E[j], W::set1(e[n + j]), s0);
            s1 = W::fma(E[j + 1], W::set1(e[n + j + 1]), s1);
        }
        for (int i = N - 1; i >= 8; --i) s0 = W::fma(W::loadm(m8, t.rows[i]), W::set1(y[n - 1 - i]), s0);
        typename W::R s2 = W::zero(), s3 = W::zero();
        for (int i = near - 1; i >= 0; --i) {
            const typename W::R term = W::loadm(m8, t.rows[i]);
            switch (i & 3) {
                case 0: s0 = W::fma(term, W::set1(y[n - 1 - i]), s0); break;
                case 1: s1 = W::fma(term, W::set1(y[n - 1 - i]), s1); break;
                case 2: s2 = W::fma(term, W::set1(y[n - 1 - i]), s2); break;
                default: s3 = W::fma(term, W::set1(y[n - 1 - i]), s3); break;
            }
        }
        W::storem(y + n, m8, W::add(W::add(s0, s1), W::add(s2, s3)));
    }
    return n;
}

template <class T>
VRX_INLINE int yPass(const Ahead8<T>& t, int N, const T* e, T* y, int n0, int L) { return yPass8(t, N, e, y, n0, L); }

// ------------------------------------------------------------ biquads
// The look-ahead of a biquad section over one register of outputs (C = 16
// float, 8 double, 8 complex float, 4 complex double), straight from the
// input: rows[r][j] weighs y[n-1-r] in y[n+j], as in Ahead8; hz holds C
// zeros, then h, the section's response (b0, b1, b2 over A), so that the
// weights of x[n+i] in y[n..n+C-1] (h[j-i], 0 for j < i) are one load at
// hz + C - i; w1, w2 weigh x[n-1], x[n-2] (b1*g[j] + b2*g[j-1] and b2*g[j],
// g the response of 1/A). With two taps every column follows
// t[j] = c1*t[j-1] + c2*t[j-2] from the third on. A is the arithmetic type,
// real or complex.
template <class A>
struct AheadBQ {
    static constexpr int C = static_cast<int>(simd::kBytes / sizeof(A));
    A rows[2][C];
    A hz[2 * C];
    A w1[C], w2[C];
};
template <class A>
void aheadBQ(const A* q, AheadBQ<A>* t) {
    constexpr int C = AheadBQ<A>::C;
    const A b0 = q[0], b1 = q[1], b2 = q[2], c1 = -q[3], c2 = -q[4];
    A g[C];
    t->rows[0][0] = c1;
    t->rows[0][1] = c2 + c1 * c1;
    t->rows[1][0] = c2;
    t->rows[1][1] = c1 * c2;
    g[0] = one<A>();
    g[1] = c1;
    for (int j = 2; j < C; ++j) {
        t->rows[0][j] = c1 * t->rows[0][j - 1] + c2 * t->rows[0][j - 2];
        t->rows[1][j] = c1 * t->rows[1][j - 1] + c2 * t->rows[1][j - 2];
        g[j] = c1 * g[j - 1] + c2 * g[j - 2];
    }
    for (int j = 0; j < C; ++j) {
        const A g1 = j >= 1 ? g[j - 1] : zero<A>(), g2 = j >= 2 ? g[j - 2] : zero<A>();
        t->hz[j] = zero<A>();
        t->hz[C + j] = b0 * g[j] + b1 * g1 + b2 * g2;
        t->w1[j] = b1 * g[j] + b2 * g1;
        t->w2[j] = b2 * g[j];
    }
}

// The y pass of a real biquad section: y[n0..L-1] straight from the input x
// (which may be y itself), xm2, xm1 being x[n0-2], x[n0-1]. The input terms
// come first; the two newest outputs, broadcast from the register just made
// rather than read back from memory, are added last, so that the
// loop-carried chain is one lane broadcast and two fused steps. The last
// register is partial, with masked lanes.
template <class T>
VRX_INLINE void yPassBQ(const AheadBQ<T>& t, const T* x, T xm2, T xm1, T* y, int n0, int L) {
    using W = simd::V<T>;
    using I = simd::V<std::conditional_t<sizeof(T) == 4, int32_t, int64_t>>;
    using R = typename W::R;
    constexpr int C = AheadBQ<T>::C;
    R E[C];
    for (int j = 0; j < C; ++j) E[j] = W::load(t.hz + C - j);
    const R r0 = W::load(t.rows[0]), r1 = W::load(t.rows[1]), w1 = W::load(t.w1), w2 = W::load(t.w2);
    const auto last = I::set1(C - 1), before = I::set1(C - 2);
    R y1 = W::set1(y[n0 - 1]), y2 = W::set1(y[n0 - 2]);
    int n = n0;
    for (; n + C <= L; n += C) {
        R s0 = W::fma(w2, W::set1(xm2), W::mul(E[0], W::set1(x[n])));
        R s1 = W::fma(w1, W::set1(xm1), W::mul(E[1], W::set1(x[n + 1])));
        for (int j = 2; j < C; j += 2) {
            s0 = W::fma(E[j], W::set1(x[n + j]), s0);
            s1 = W::fma(E[j + 1], W::set1(x[n + j + 1]), s1);
        }
        xm2 = x[n + C - 2];  // read before the store: x may be y
        xm1 = x[n + C - 1];
        const R out = W::fma(r0, y1, W::fma(r1, y2, W::add(s0, s1)));
        W::store(y + n, out);
        y1 = W::permute2(out, last, out);
        y2 = W::permute2(out, before, out);
    }
    if (n < L) {
        const int cnt = L - n;
        R s0 = W::fma(w2, W::set1(xm2), W::mul(E[0], W::set1(x[n])));
        R s1 = W::mul(w1, W::set1(xm1));
        for (int j = 1; j < cnt; ++j) s1 = W::fma(W::load(t.hz + C - j), W::set1(x[n + j]), s1);
        W::storem(y + n, simd::tail<T>(cnt), W::fma(r0, y1, W::fma(r1, y2, W::add(s0, s1))));
    }
}

// One section of a BQ kind over a block, 2 < L: q = b0, b1, b2, a1, a2;
// d = (d0, d1). In place the input tail is read before the y pass.
template <class A>
void bqBlock(const A* q, const AheadBQ<A>& ahead, A* d, const A* xs, A* ys, int L) {
    const A b0 = q[0], b1 = q[1], b2 = q[2], a1 = q[3], a2 = q[4];
    const A x0 = xs[0], x1 = xs[1];
    const A xl2 = xs[L - 2], xl1 = xs[L - 1];
    const A y0 = b0 * x0 + d[0];
    const A y1 = b0 * x1 + b1 * x0 + d[1] - a1 * y0;
    ys[0] = y0;
    ys[1] = y1;
    yPassBQ(ahead, xs, x0, x1, ys, 2, L);
    d[0] = b2 * xl2 + b1 * xl1 - a2 * ys[L - 2] - a1 * ys[L - 1];
    d[1] = b2 * xl1 - a2 * ys[L - 1];
}

// ------------------------------------------------ AR over one register
// The look-ahead of an AR kind over one register of outputs (C as in
// AheadBQ), for orders up to kMaxAheadOrder: rows[r][j] weighs y[n-1-r] in
// y[n+j]; gz holds C zeros, then g, the response of 1/A (g[0] = 1), so that
// the weights of e[n+i] in y[n..n+C-1] are one load at gz + C - i. Columns
// follow from the one before by moving the window one output on:
// rows[r][j] = rows[0][j-1]*c[r+1] + rows[r+1][j-1] (the row below N being
// 0), and g[j] = rows[0][j-1]: N*C steps in all.
// Higher orders run per sample: past about 20 the float block scheme's
// rounding (large table entries and tail corrections that cancel) grows well
// past the recursion's.
constexpr int kMaxAheadOrder = 20;

template <class A>
struct AheadAR {
    static constexpr int C = static_cast<int>(simd::kBytes / sizeof(A));
    A gz[2 * C];
    A rows[kMaxAheadOrder][C];
};
template <class A>
void aheadAR(const A* a, int N, AheadAR<A>* t) {
    constexpr int C = AheadAR<A>::C;
    for (int r = 0; r < N; ++r) t->rows[r][0] = -a[r];
    for (int j = 1; j < C; ++j) {
        const A h = t->rows[0][j - 1];
        for (int r = 0; r + 1 < N; ++r) t->rows[r][j] = h * -a[r] + t->rows[r + 1][j - 1];
        t->rows[N - 1][j] = h * -a[N - 1];
    }
    for (int j = 0; j < C; ++j) t->gz[j] = zero<A>();
    t->gz[C] = one<A>();
    for (int j = 1; j < C; ++j) t->gz[C + j] = t->rows[0][j - 1];
}

// The real y pass: y[n..n+C-1] for n from n0 while C remain. The e terms
// and the outputs two registers back and older (from memory, written long
// before) come first; the last two registers of outputs stay in registers
// and are broadcast lane by lane, the newest over up to four partial sums:
// the loop-carried chain is one lane broadcast, a few fused steps and two
// adds per register.
template <class T>
VRX_INLINE int yPass(const AheadAR<T>& t, int N, const T* e, T* y, int n0, int L) {
    using W = simd::V<T>;
    using I = simd::V<std::conditional_t<sizeof(T) == 4, int32_t, int64_t>>;
    using R = typename W::R;
    constexpr int C = AheadAR<T>::C;
    R E[C];
    for (int j = 0; j < C; ++j) E[j] = W::load(t.gz + C - j);
    // lane C-1-r of a register: y[n-1-r] of the newest register
    typename I::R lane[C];
    for (int r = 0; r < C; ++r) lane[r] = I::set1(C - 1 - r);
    const int near = N < C ? N : C, mid = N < 2 * C ? N : 2 * C;
    auto before = [&](int at) {  // y[at..at+C-1], lanes before y[0] read as 0
        if (at >= 0) return W::load(y + at);
        T v[C];
        for (int j = 0; j < C; ++j) v[j] = at + j >= 0 ? y[at + j] : T(0);
        return W::load(v);
    };
    R prev = before(n0 - C), prev2 = before(n0 - 2 * C);
    int n = n0;
    for (; n + C <= L; n += C) {
        R s0 = W::mul(E[0], W::set1(e[n]));
        R s1 = W::mul(E[1], W::set1(e[n + 1]));
        for (int j = 2; j < C; j += 2) {
            s0 = W::fma(E[j], W::set1(e[n + j]), s0);
            s1 = W::fma(E[j + 1], W::set1(e[n + j + 1]), s1);
        }
        if constexpr (kMaxAheadOrder > 2 * C)
            for (int r = N - 1; r >= 2 * C; --r) s0 = W::fma(W::load(t.rows[r]), W::set1(y[n - 1 - r]), s0);
        for (int r = mid - 1; r >= C; --r) s1 = W::fma(W::load(t.rows[r]), W::permute2(prev2, lane[r - C], prev2), s1);
        R out;
        if (near <= 3) {
            out = W::add(s0, s1);
            for (int r = near - 1; r >= 0; --r) out = W::fma(W::load(t.rows[r]), W::permute2(prev, lane[r], prev), out);
        } else {
            R s2 = W::zero(), s3 = W::zero();
            int r = near - 1;
            for (; r >= 3; r -= 4) {
                s0 = W::fma(W::load(t.rows[r]), W::permute2(prev, lane[r], prev), s0);
                s1 = W::fma(W::load(t.rows[r - 1]), W::permute2(prev, lane[r - 1], prev), s1);
                s2 = W::fma(W::load(t.rows[r - 2]), W::permute2(prev, lane[r - 2], prev), s2);
                s3 = W::fma(W::load(t.rows[r - 3]), W::permute2(prev, lane[r - 3], prev), s3);
            }
            if (r >= 2) s2 = W::fma(W::load(t.rows[2]), W::permute2(prev, lane[2], prev), s2);
            if (r >= 1) s1 = W::fma(W::load(t.rows[1]), W::permute2(prev, lane[1], prev), s1);
            if (r >= 0) s0 = W::fma(W::load(t.rows[0]), W::permute2(prev, lane[0], prev), s0);
            out = W::add(W::add(s0, s1), W::add(s2, s3));
        }
        W::store(y + n, out);
        prev2 = prev;
        prev = out;
    }
    return n;
}

// One block of an AR kind, 4N < L: taps b[0..N], a[1..N]; ahead the
// look-ahead table (Ahead8, or AheadAR of a real or complex type, whose y
// pass is found by its type); d the line (N+1, last 0).
template <class A, class Ahead>
void arBlock(const A* taps, const Ahead& ahead, A* d, int N, const A* xs, A* ys, A* e, int L) {
    const A* b = taps;
    const A* a = taps + N + 1;
    xPass(b, N + 1, xs, e, N, L);
    // the first N outputs draw on the line
    for (int k = 0; k < N; ++k) {
        const A x = xs[k];
        const A y = b[0] * x + d[0];
        for (int i = 0; i < N; ++i) d[i] = b[i + 1] * x - a[i] * y + d[i + 1];
        ys[k] = y;
    }
    // the line from the input tail, before the y pass may overwrite it
    for (int i = 0; i < N; ++i) {
        A v{};
        for (int j = 0; j <= N - 1 - i; ++j) v = v + b[i + 1 + j] * xs[L - 1 - j];
        d[i] = v;
    }
    const int n = yPass(ahead, N, e, ys, N, L);
    yTail(a, N, e, ys, n, L);
    // and the output tail
    for (int i = 0; i < N; ++i) {
        A v = d[i];
        for (int j = 0; j <= N - 1 - i; ++j) v = v - a[i + j] * ys[L - 1 - j];  // a[k] holds a_(k+1)
        d[i] = v;
    }
}

}  // namespace n0::iir
