// Sparse FIR and IIR filters: one state layout and one engine for both.
//
// The state keeps each signal in a contiguous window, [history | new
// samples]: the last `order` samples stand right before the next block, so
// a tap at position p reads the block shifted back by p with plain vector
// loads. The window holds order + max(kBlock, order) samples; when a block
// no longer fits, the history slides to the front (at most once per order
// samples, so the move costs no more than one element per sample).
//
// Arithmetic, per output, independent of how the input is cut into calls:
//   feed-forward  acc = +0, then acc = fma(b[k], x[n - p[k]], acc), k rising;
//   feedback      acc = fma(-a[j], y[n - q[j]], acc), j rising, after the
//                 feed-forward sum (y[n] = Σ b x - Σ a y, in that order).
// All in single precision with one rounding per fused step. Complex taps add
// re*x first and then the cross term, as the dense FIR kernels do:
//   re' = fma(-im, x.im, fma(re, x.re, acc.re)), im' = fma(im, x.re, fma(re, x.im, acc.im)).
// Feedback outputs go in vector groups of min(smallest feedback position,
// samples per register): no output of a group reads another output of the
// same group. A smallest position of 1 runs one output at a time; the steps
// are the same either way.
#pragma once

#include "vrx_filter.h"
#include "vrx_layout.h"

namespace n0::sparse {

using filt::Elem;

// Samples per block: 8 KiB of outputs, which stay in L1 with the windows'
// working part.
template <class E> inline constexpr int kBlock = 8192 / int(sizeof(E));

template <class E>
struct State {
    int32_t id;
    int32_t nff, nfb;    // tap counts (nfb 0: FIR)
    int32_t ord1, ord2;  // last positions = line lengths (inputs, outputs)
    int32_t minFb;       // smallest feedback position
    int64_t cap1, cap2;  // window lengths in samples
    int64_t at1, at2;    // where the next sample goes; history is [at - ord, at)
    E* taps;             // nff feed-forward taps, then nfb feedback taps
    int32_t* pos;        // their positions
    E* win1;             // inputs
    E* win2;             // outputs (IIR only)
};

template <class E>
VRX_INLINE int64_t windowLen(int64_t ord) {
    return ord + (ord > kBlock<E> ? ord : int64_t(kBlock<E>));
}

template <class E>
struct Pieces {
    State<E>* st;
    E* taps;
    int32_t* pos;
    E* win1;
    E* win2;
};

// The one layout, run by the size queries (measuring) and by Init.
template <class E>
VRX_INLINE Pieces<E> layout(Carver& c, int64_t nff, int64_t nfb, int64_t ord1, int64_t ord2, bool iir) {
    Pieces<E> p;
    p.st = c.take<State<E>>(1);
    p.taps = c.take<E>(nff + nfb);
    p.pos = c.take<int32_t>(nff + nfb);
    p.win1 = c.take<E>(windowLen<E>(ord1));
    p.win2 = iir ? c.take<E>(windowLen<E>(ord2)) : nullptr;
    return p;
}

// The byte size of a state, or -1 when it passes the int range.
template <class E>
VRX_INLINE int64_t stateBytes(int64_t nff, int64_t nfb, int64_t ord1, int64_t ord2, bool iir) {
    Carver c;
    layout<E>(c, nff, nfb, ord1, ord2, iir);
    const int64_t s = c.size() + Carver::kSlack;
    return s > 2147483647 ? -1 : s;
}

// Positions of one set: the first at least lo, each above the one before.
VRX_INLINE bool positionsOk(const Vrx32s* p, int n, int lo) {
    if (p[0] < lo) return false;
    for (int k = 1; k < n; ++k)
        if (p[k] <= p[k - 1]) return false;
    return true;
}

// Carves the state into pBuf, fills it and writes *ppState last. The line
// (null: zeros) is ord1 inputs then ord2 outputs, oldest first.
template <class E>
VrxStatus init(void** ppState, ObjId id, const E* taps, const Vrx32s* pos, int nff, int nfb, const E* line,
               Vrx8u* pBuf, bool iir) {
    const int ord1 = pos[nff - 1];
    const int ord2 = iir ? pos[nff + nfb - 1] : 0;
    if (stateBytes<E>(nff, nfb, ord1, ord2, iir) < 0) return vrxErrNoMemory;
    Carver c(reinterpret_cast<void*>((addr(pBuf) + 63) & ~uintptr_t(63)));
    Pieces<E> p = layout<E>(c, nff, nfb, ord1, ord2, iir);
    State<E>* s = p.st;
    s->nff = nff;
    s->nfb = nfb;
    s->ord1 = ord1;
    s->ord2 = ord2;
    s->minFb = iir ? pos[nff] : 0;
    s->cap1 = windowLen<E>(ord1);
    s->cap2 = iir ? windowLen<E>(ord2) : 0;
    s->at1 = ord1;
    s->at2 = ord2;
    s->taps = p.taps;
    s->pos = p.pos;
    s->win1 = p.win1;
    s->win2 = p.win2;
    filt::copyN(taps, p.taps, nff + nfb);
    N0(vrxsCopy_32s)(pos, p.pos, nff + nfb);
    if (line) {
        filt::copyN(line, p.win1, ord1);
        if (iir) filt::copyN(line + ord1, p.win2, ord2);
    } else {
        filt::zeroN(p.win1, ord1);
        if (iir) filt::zeroN(p.win2, ord2);
    }
    s->id = idWord(id);
    *ppState = s;
    return vrxOk;
}

template <class E>
VRX_INLINE void getLine(const State<E>* s, E* line) {
    filt::copyN(s->win1 + (s->at1 - s->ord1), line, s->ord1);
    if (s->win2) filt::copyN(s->win2 + (s->at2 - s->ord2), line + s->ord1, s->ord2);
}

// Restarts the windows at the front with the caller's line (null: zeros).
template <class E>
VRX_INLINE void setLine(State<E>* s, const E* line) {
    s->at1 = s->ord1;
    s->at2 = s->ord2;
    if (line) {
        filt::copyN(line, s->win1, s->ord1);
        if (s->win2) filt::copyN(line + s->ord1, s->win2, s->ord2);
    } else {
        filt::zeroN(s->win1, s->ord1);
        if (s->win2) filt::zeroN(s->win2, s->ord2);
    }
}

// ------------------------------------------------------------- kernels
// Feed-forward: out[i] = Σ_k taps[k] * x[i - pos[k]], i < n; x points at the
// first new sample of the window.
template <int G>
VRX_INLINE void ffGroup(const float* taps, const int32_t* pos, int nt, const float* x, float* out, int i) {
    using W = simd::V<float>;
    constexpr int L = W::N;
    W::R a[G];
    for (int g = 0; g < G; ++g) a[g] = W::zero();
    for (int k = 0; k < nt; ++k) {
        const W::R h = W::set1(taps[k]);
        const float* p = x + i - pos[k];
        for (int g = 0; g < G; ++g) a[g] = W::fma(h, W::load(p + g * L), a[g]);
    }
    for (int g = 0; g < G; ++g) W::store(out + i + g * L, a[g]);
}

inline void feedForward(const float* taps, const int32_t* pos, int nt, const float* x, float* out, int n) {
    using W = simd::V<float>;
    constexpr int L = W::N;
    int i = 0;
    for (; i + 8 * L <= n; i += 8 * L) ffGroup<8>(taps, pos, nt, x, out, i);
    for (; i + L <= n; i += L) ffGroup<1>(taps, pos, nt, x, out, i);
    if (i < n) {
        const auto m = simd::tail<float>(size_t(n - i));
        W::R a = W::zero();
        for (int k = 0; k < nt; ++k) a = W::fma(W::set1(taps[k]), W::loadm(m, x + i - pos[k]), a);
        W::storem(out + i, m, a);
    }
}

// Complex: registers of 8 (re, im) pairs.
template <int G>
VRX_INLINE void ffGroup(const Vrx32fc* taps, const int32_t* pos, int nt, const Vrx32fc* x, Vrx32fc* out, int i) {
    using W = simd::V<float>;
    constexpr int L = W::N;
    W::R a[G];
    for (int g = 0; g < G; ++g) a[g] = W::zero();
    for (int k = 0; k < nt; ++k) {
        const W::R hr = W::set1(taps[k].re);
        const W::R hs = W::set2(-taps[k].im, taps[k].im);
        const float* p = reinterpret_cast<const float*>(x + i - pos[k]);
        for (int g = 0; g < G; ++g) {
            const W::R v = W::load(p + g * L);
            a[g] = W::fma(hs, W::swapPair(v), W::fma(hr, v, a[g]));
        }
    }
    float* o = reinterpret_cast<float*>(out + i);
    for (int g = 0; g < G; ++g) W::store(o + g * L, a[g]);
}

inline void feedForward(const Vrx32fc* taps, const int32_t* pos, int nt, const Vrx32fc* x, Vrx32fc* out, int n) {
    using W = simd::V<float>;
    constexpr int C = W::N / 2;
    int i = 0;
    for (; i + 8 * C <= n; i += 8 * C) ffGroup<8>(taps, pos, nt, x, out, i);
    for (; i + C <= n; i += C) ffGroup<1>(taps, pos, nt, x, out, i);
    if (i < n) {
        const auto m = simd::tail<float>(size_t(2 * (n - i)));
        W::R a = W::zero();
        for (int k = 0; k < nt; ++k) {
            const W::R v = W::loadm(m, reinterpret_cast<const float*>(x + i - pos[k]));
            a = W::fma(W::set2(-taps[k].im, taps[k].im), W::swapPair(v), W::fma(W::set1(taps[k].re), v, a));
        }
        W::storem(reinterpret_cast<float*>(out + i), m, a);
    }
}

// Feedback in place: y[i] = fma(-a[j], y[i - q[j]], y[i]) over j, i < n, y
// holding the feed-forward sums on entry and the history before it.
VRX_INLINE void fbOne(const float* a, const int32_t* q, int nt, float* y) {
    float acc = *y;
    for (int j = 0; j < nt; ++j) acc = __builtin_fmaf(-a[j], y[-q[j]], acc);
    *y = acc;
}
VRX_INLINE void fbOne(const Vrx32fc* a, const int32_t* q, int nt, Vrx32fc* y) {
    float re = y->re, im = y->im;
    for (int j = 0; j < nt; ++j) {
        const Vrx32fc v = y[-q[j]];
        re = __builtin_fmaf(a[j].im, v.im, __builtin_fmaf(-a[j].re, v.re, re));
        im = __builtin_fmaf(-a[j].im, v.re, __builtin_fmaf(-a[j].re, v.im, im));
    }
    y->re = re;
    y->im = im;
}

template <class E>
inline void feedback(const E* a, const int32_t* q, int nt, int minPos, E* y, int n) {
    using W = simd::V<float>;
    constexpr int C = Elem<E>::kCplx ? W::N / 2 : W::N;  // samples per register
    constexpr int k = Elem<E>::kCplx ? 2 : 1;              // floats per sample
    const int grp = minPos < C ? minPos : C;               // outputs per group
    if (grp == 1) {
        for (int i = 0; i < n; ++i) fbOne(a, q, nt, y + i);
        return;
    }
    float* yf = reinterpret_cast<float*>(y);
    for (int i = 0; i < n; i += grp) {
        const auto m = simd::tail<float>(size_t(k * (n - i < grp ? n - i : grp)));
        W::R acc = W::loadm(m, yf + k * i);
        for (int j = 0; j < nt; ++j) {
            const W::R v = W::loadm(m, yf + k * (i - q[j]));
            if constexpr (Elem<E>::kCplx) {
                acc = W::fnma(W::set1(a[j].re), v, acc);
                acc = W::fma(W::set2(a[j].im, -a[j].im), W::swapPair(v), acc);
            } else {
                acc = W::fnma(W::set1(a[j]), v, acc);
            }
        }
        W::storem(yf + k * i, m, acc);
    }
}

// Makes room for b new samples at the end of a window.
template <class E>
VRX_INLINE void makeRoom(E* win, int64_t cap, int ord, int64_t& at, int b) {
    if (at + b <= cap) return;
    filt::moveN(win + (at - ord), win, ord);
    at = ord;
}

// The run: blocks of kBlock samples through the windows. pSrc may equal
// pDst: each block is copied into the window before its outputs are written.
template <class E>
void run(State<E>* s, const E* src, E* dst, int len) {
    for (int done = 0; done < len;) {
        const int b = len - done < kBlock<E> ? len - done : kBlock<E>;
        makeRoom(s->win1, s->cap1, s->ord1, s->at1, b);
        E* x = s->win1 + s->at1;
        filt::copyN(src + done, x, b);
        if (!s->win2) {
            feedForward(s->taps, s->pos, s->nff, x, dst + done, b);
        } else {
            makeRoom(s->win2, s->cap2, s->ord2, s->at2, b);
            E* y = s->win2 + s->at2;
            feedForward(s->taps, s->pos, s->nff, x, y, b);
            feedback(s->taps + s->nff, s->pos + s->nff, s->nfb, s->minFb, y, b);
            filt::copyN(y, dst + done, b);
            s->at2 += b;
        }
        s->at1 += b;
        done += b;
    }
}

// ------------------------------------------------------------- entries
// Run: pointers (source, destination, state) -8, the length -6, then the
// state's identity word -17.
template <class E>
VrxStatus runEntry(const E* src, E* dst, int len, void* st, ObjId id) {
    if (VrxStatus r = checkArgs(len, src, dst, st)) return r;
    State<E>* s;
    if (VrxStatus r = open(st, id, &s)) return r;
    run(s, src, dst, len);
    return vrxOk;
}

// Get: state and line -8, then the word -17.
template <class E>
VrxStatus getEntry(const void* st, E* line, ObjId id) {
    if (anyNull(st, line)) return vrxErrNullPtr;
    const State<E>* s;
    if (VrxStatus r = open(st, id, &s)) return r;
    getLine(s, line);
    return vrxOk;
}

// Set: state -8, then the word -17; a null line means zeros.
template <class E>
VrxStatus setEntry(void* st, const E* line, ObjId id) {
    State<E>* s;
    if (VrxStatus r = open(st, id, &s)) return r;
    setLine(s, line);
    return vrxOk;
}

}  // namespace n0::sparse
