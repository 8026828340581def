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

namespace n0::iir {

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

constexpr int kMaxRows = 24;       // registers of the y pass: orders up to 21
constexpr int kMaxBlockOrder = kMaxRows - 3;

// y[n..n+3] for n from n0 while four remain: rows[r] (r < N) weigh y[n-1-r],
// rows N..N+2 weigh e[n..n+2], e[n+3] enters lane 3. The terms of outputs
// two or more steps old and of e come first, the four newest last.
template <class T>
VRX_INLINE int yPass(const T* rows, int N, const T* e, T* y, int n0, int L) {
    using W = simd::V<T>;
    const typename W::M m4 = simd::tail<T>(4);
        typename W::R r[kMaxRows];
    const int nr = N + 3;
    for (int i = 0; i < nr; ++i) r[i] = W::loadm(m4, rows + 4 * i);
    const T lastRow[4] = {0, 0, 0, 1};
    const typename W::R r3 = W::loadm(m4, lastRow);
    int n = n0;
    for (; n + 4 <= L; n += 4) {
        typename W::R acc = W::mul(r3, W::set1(e[n + 3]));
        acc = W::fma(r[N + 2], W::set1(e[n + 2]), acc);
        acc = W::fma(r[N + 1], W::set1(e[n + 1]), acc);
        acc = W::fma(r[N], W::set1(e[n]), acc);
        for (int i = N - 1; i >= 4; --i) acc = W::fma(r[i], W::set1(y[n - 1 - i]), acc);
        const int near = N < 4 ? N : 4;
        if (near == 4) {
            typename W::R p = W::fma(r[3], W::set1(y[n - 4]), acc);
            typename W::R q = W::mul(r[2], W::set1(y[n - 3]));
            p = W::fma(r[1], W::set1(y[n - 2]), p);
            q = W::fma(r[0], W::set1(y[n - 1]), q);
            acc = W::add(p, q);
        } else {
            for (int i = near - 1; i >= 0; --i) acc = W::fma(r[i], W::set1(y[n - 1 - i]), acc);
        }
        W::storem(y + n, m4, acc);
    }
    return n;
}

// The tail below four: y[n] = e[n] - sum a[k]*y[n-k].
template <class T>
VRX_INLINE void yTail(const T* a, int N, const T* e, T* y, int n, int L) {
    for (; n < L; ++n) {
        T v = e[n];
        for (int k = 1; k <= N; ++k) v -= a[k - 1] * y[n - k];
        y[n] = v;
    }
}

// One block of an AR kind, 4N < L. taps b[0..N], a[1..N]; rows the
// look-ahead table; d the line (N+1, last 0).
template <class T>
void arBlock(const T* taps, const T* rows, T* d, int N, const T* xs, T* ys, T* e, int L) {
    const T* b = taps;
    const T* a = taps + N + 1;
    xPass(b, N + 1, xs, e, N, L);
    // the first N outputs draw on the line
    for (int k = 0; k < N; ++k) {
        const T x = xs[k];
        const T y = b[0] * x + d[0];
        for (int i = 0; i < N; ++i) d[i] = b[i + 1] * x - a[i] * y + d[i + 1];
        ys[k] = y;
    }
    // the line from the input tail, before the y pass may overwrite it
    for (int i = 0; i < N; ++i) {
        T v = 0;
        for (int j = 0; j <= N - 1 - i; ++j) v += b[i + 1 + j] * xs[L - 1 - j];
        d[i] = v;
    }
    const int n = yPass(rows, N, e, ys, N, L);
    yTail(a, N, e, ys, n, L);
    // and the output tail
    for (int i = 0; i < N; ++i) {
        T v = d[i];
        for (int j = 0; j <= N - 1 - i; ++j) v -= a[i + j] * ys[L - 1 - j];  // a[k] holds a_(k+1)
        d[i] = v;
    }
}

// One section of a BQ kind over a block, 2 < L: q = b0, b1, b2, a1, a2; rows
// = the section's stored rows (y[n-1], y[n-2], e[n]); d = (d0, d1).
template <class T>
void bqBlock(const T* q, const T* rows, T* d, const T* xs, T* ys, T* e, int L) {
    const T b0 = q[0], b1 = q[1], b2 = q[2], a1 = q[3], a2 = q[4];
    xPass(q, 3, xs, e, 2, L);
    const T x0 = xs[0], x1 = xs[1];
    const T xl2 = xs[L - 2], xl1 = xs[L - 1];
    const T y0 = b0 * x0 + d[0];
    const T y1 = b0 * x1 + b1 * x0 + d[1] - a1 * y0;
    ys[0] = y0;
    ys[1] = y1;
    T t[5 * 4];
    for (int i = 0; i < 12; ++i) t[i] = rows[i];
    // the rows of e[n+1] and e[n+2]: the e[n] row moved one and two lanes on
    t[12] = 0; t[13] = 1; t[14] = rows[9]; t[15] = rows[10];
    t[16] = 0; t[17] = 0; t[18] = 1; t[19] = rows[9];
    const int n = yPass(t, 2, e, ys, 2, L);
    const T a[2] = {a1, a2};
    yTail(a, 2, e, ys, n, L);
    d[0] = b2 * xl2 + b1 * xl1 - a2 * ys[L - 2] - a1 * ys[L - 1];
    d[1] = b2 * xl1 - a2 * ys[L - 1];
}

}  // namespace n0::iir
