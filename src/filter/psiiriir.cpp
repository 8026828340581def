// Zero-phase IIR filtering: an AR filter of order N run forward and then
// backward over the signal extended at both ends by E = min(3N, len-1)
// samples of odd reflection, each pass starting from the steady-state line
// of a unit step scaled by its first sample; the ends are dropped.
//
// Memory: the state holds the normalised taps, the steady-state line (made
// at Init in long double), the running line, the look-ahead table of the
// IIR engine's block scheme, both extensions (E values each) and two blocks
// of kBlock work elements. No pass needs len-sized scratch: the forward pass
// of the signal goes into the destination, the forward pass of the right
// extension stays in the state, and the backward pass then runs over the
// destination in place, block by block from its end (each block copied
// reversed into the work block, filtered there and copied back reversed).
// The passes are the IIR engine's: its x pass and look-ahead y pass for
// blocks longer than 4N (orders up to kMaxBlockOrder), its per-sample
// recursion otherwise.
#include "psiir_own.h"
#include "psiirx87.h"

using namespace n0;
using namespace n0::iir;

namespace {

struct IIState {
    int32_t idCtx;
    int32_t order;
    void* taps;   // b[0..N], a[1..N], divided by a[0]
    void* zi;     // the steady-state line of a unit step, N values
    void* line;   // the running line, N+1 values, the last 0
    void* ahead;  // Ahead8 of the arithmetic type, null above kMaxBlockOrder
    void* padL;   // left extension, E <= 3N values
    void* padR;   // right extension, then its forward output
    void* workE;  // kBlock: x pass output
    void* workY;  // kBlock: a block in the arithmetic type
};

template <class A>
struct IIPieces {
    IIState* st;
    A* taps;
    A* zi;
    A* line;
    Ahead8<A>* ahead;
    A* padL;
    A* padR;
    A* workE;
    A* workY;
};

template <class A>
constexpr IIPieces<A> iiLayout(Carver& c, int n) {
    IIPieces<A> p{};
    p.st = c.take<IIState>(1);
    p.taps = c.take<A>(2 * int64_t(n) + 1);
    p.zi = c.take<A>(n);
    p.line = c.take<A>(int64_t(n) + 1);
    p.ahead = n <= kMaxBlockOrder ? c.take<Ahead8<A>>(1) : nullptr;
    p.padL = c.take<A>(3 * int64_t(n));
    p.padR = c.take<A>(3 * int64_t(n));
    p.workE = c.take<A>(kBlock);
    p.workY = c.take<A>(kBlock);
    return p;
}

// The bytes of the state of order n, or -1 beyond the int range.
template <class A>
int64_t iiSize(int n) {
    Carver c;
    iiLayout<A>(c, n);
    const int64_t s = c.size() + Carver::kSlack;
    return s > 0x7FFFFFFF ? -1 : s;
}

template <class A>
VrxStatus iiStateSize(int order, int* pSize) {
    if (!pSize) return vrxErrNullPtr;
    if (order < 1) return vrxErrIirOrder;
    const int64_t s = iiSize<A>(order);
    if (s < 0) return vrxErrIirOrder;
    *pSize = static_cast<int>(s);
    return vrxOk;
}

// Init: the taps divided by a[0] in long double and rounded once; the
// steady-state line of a unit step, zi[i] = sum over j > i of
// (b[j] - a[j] H), H = sum b / sum a, from the long double taps.
template <class A, class T, class St>
VrxStatus iiInit(ObjId id, St** ppState, const T* pTaps, int order, Vrx8u* pBuf) {
    if (anyNull(ppState, pTaps, pBuf)) return vrxErrNullPtr;
    if (order < 1 || iiSize<A>(order) < 0) return vrxErrIirOrder;
    const int n = order;
    if (pTaps[n + 1] == T(0)) return vrxErrDivByZero;
    Carver c(pBuf);
    const IIPieces<A> p = iiLayout<A>(c, n);
    {
        X87Scope x87;
        const long double a0 = pTaps[n + 1];
        long double sb = 0, sa = 0;
        for (int i = 0; i <= n; ++i) {
            sb += pTaps[i] / a0;
            sa += pTaps[n + 1 + i] / a0;
        }
        const long double h = sb / sa;
        long double acc = 0;
        for (int i = n; i >= 1; --i) {
            const long double bi = pTaps[i] / a0, ai = pTaps[n + 1 + i] / a0;
            acc += bi - ai * h;
            p.zi[i - 1] = static_cast<A>(acc);
        }
        for (int i = 0; i <= n; ++i) p.taps[i] = static_cast<A>(pTaps[i] / a0);
        for (int i = 1; i <= n; ++i) p.taps[n + i] = static_cast<A>(pTaps[n + 1 + i] / a0);
    }
    for (int i = 0; i <= n; ++i) p.line[i] = A(0);
    if (p.ahead) ahead8(p.taps + n + 1, n, p.ahead);
    IIState* s = p.st;
    s->order = n;
    s->taps = p.taps;
    s->zi = p.zi;
    s->line = p.line;
    s->ahead = p.ahead;
    s->padL = p.padL;
    s->padR = p.padR;
    s->workE = p.workE;
    s->workY = p.workY;
    s->idCtx = idWord(id);
    *ppState = reinterpret_cast<St*>(s);
    return vrxOk;
}

// One pass engine over a state's taps and line.
template <class A>
struct Pass {
    const A* taps;
    A* line;
    const Ahead8<A>* ahead;
    A* e;
    A* w;
    int n;

    // L <= kBlock values from xs into ys (which may be xs), continuing the line.
    void block(const A* xs, A* ys, int L) const {
        if (ahead && 4 * n < L) {
            arBlock(taps, *ahead, line, n, xs, ys, e, L);
        } else {
            arRun<A>(taps, line, n, L, [&](int k) { return xs[k]; }, [&](int k, A y) { ys[k] = y; });
        }
    }
    // the line of a pass that starts at value v
    void start(const A* zi, A v) const {
        for (int i = 0; i < n; ++i) line[i] = zi[i] * v;
        line[n] = A(0);
    }
    // forward over len values of the arithmetic type, into ys (may be xs)
    void forward(const A* xs, A* ys, int len) const {
        for (int s = 0; s < len; s += kBlock) block(xs + s, ys + s, len - s < kBlock ? len - s : kBlock);
    }
    // forward over float samples in double: each block through w
    template <class S>
    void forwardVia(const S* xs, S* ys, int len) const {
        for (int s = 0; s < len; s += kBlock) {
            const int L = len - s < kBlock ? len - s : kBlock;
            for (int k = 0; k < L; ++k) w[k] = A(xs[s + k]);
            block(w, w, L);
            for (int k = 0; k < L; ++k) ys[s + k] = static_cast<S>(w[k]);
        }
    }
    // backward over v[0..len-1] in place, from its end: blocks reversed
    // into w, filtered there and reversed back
    template <class S>
    void backward(S* v, int len) const {
        for (int end = len; end > 0; end -= kBlock) {
            const int L = end < kBlock ? end : kBlock;
            S* b = v + end - L;
            for (int k = 0; k < L; ++k) w[k] = A(b[L - 1 - k]);
            block(w, w, L);
            for (int k = 0; k < L; ++k) b[L - 1 - k] = static_cast<S>(w[k]);
        }
    }
};

// Run: pointers -8, len < 1 -6, the word -17, len < 3N -234.
template <class A, class S, class St>
VrxStatus iiRun(ObjId id, const S* pSrc, S* pDst, int len, St* pState) {
    if (anyNull(pSrc, pDst, pState)) return vrxErrNullPtr;
    if (len < 1) return vrxErrBadLength;
    if (idAt(pState) != idWord(id)) return vrxErrBadSpec;
    IIState* st = reinterpret_cast<IIState*>(pState);
    const int n = st->order;
    if (len < 3 * int64_t(n)) return vrxErrIirIirLength;
    const int E = 3 * n < len - 1 ? 3 * n : len - 1;
    A* padL = static_cast<A*>(st->padL);
    A* padR = static_cast<A*>(st->padR);
    const A* zi = static_cast<const A*>(st->zi);
    const Pass<A> pass{static_cast<const A*>(st->taps), static_cast<A*>(st->line),
                       static_cast<const Ahead8<A>*>(st->ahead), static_cast<A*>(st->workE),
                       static_cast<A*>(st->workY), n};
    // both extensions before the source may be overwritten
    const A x0 = A(pSrc[0]), xl = A(pSrc[len - 1]);
    for (int i = 0; i < E; ++i) padL[i] = 2 * x0 - A(pSrc[E - i]);
    for (int j = 0; j < E; ++j) padR[j] = 2 * xl - A(pSrc[len - 2 - j]);
    // forward: left extension (outputs dropped), the signal, the right extension
    pass.start(zi, padL[0]);
    pass.forward(padL, padL, E);
    if constexpr (std::is_same_v<A, S>) pass.forward(pSrc, pDst, len);
    else pass.forwardVia(pSrc, pDst, len);
    pass.forward(padR, padR, E);
    // backward from the last forward output: the right extension, then the
    // signal; the left extension's backward outputs would be dropped
    pass.start(zi, padR[E - 1]);
    pass.backward(padR, E);
    pass.backward(pDst, len);
    return vrxOk;
}

}  // namespace

VrxStatus N0(vrxsIIRIIRGetStateSize_32f)(int order, int* pSize) { return iiStateSize<float>(order, pSize); }
VrxStatus N0(vrxsIIRIIRGetStateSize64f_32f)(int order, int* pSize) { return iiStateSize<double>(order, pSize); }
VrxStatus N0(vrxsIIRIIRGetStateSize_64f)(int order, int* pSize) { return iiStateSize<double>(order, pSize); }

VrxStatus N0(vrxsIIRIIRInit_32f)(VrxsIirIirState_32f** ppState, const Vrx32f* pTaps, int order, Vrx8u* pBuf) {
    return iiInit<float>(ObjId::IirIir32f, ppState, pTaps, order, pBuf);
}
VrxStatus N0(vrxsIIRIIRInit64f_32f)(VrxsIirIirState64f_32f** ppState, const Vrx64f* pTaps, int order, Vrx8u* pBuf) {
    return iiInit<double>(ObjId::IirIir64f32f, ppState, pTaps, order, pBuf);
}
VrxStatus N0(vrxsIIRIIRInit_64f)(VrxsIirIirState_64f** ppState, const Vrx64f* pTaps, int order, Vrx8u* pBuf) {
    return iiInit<double>(ObjId::IirIir64f, ppState, pTaps, order, pBuf);
}

VrxStatus N0(vrxsIIRIIR_32f)(const Vrx32f* pSrc, Vrx32f* pDst, int len, VrxsIirIirState_32f* pState) {
    return iiRun<float>(ObjId::IirIir32f, pSrc, pDst, len, pState);
}
VrxStatus N0(vrxsIIRIIR64f_32f)(const Vrx32f* pSrc, Vrx32f* pDst, int len, VrxsIirIirState64f_32f* pState) {
    return iiRun<double>(ObjId::IirIir64f32f, pSrc, pDst, len, pState);
}
VrxStatus N0(vrxsIIRIIR_64f)(const Vrx64f* pSrc, Vrx64f* pDst, int len, VrxsIirIirState_64f* pState) {
    return iiRun<double>(ObjId::IirIir64f, pSrc, pDst, len, pState);
}
VrxStatus N0(vrxsIIRIIR_32f_I)(Vrx32f* pSrcDst, int len, VrxsIirIirState_32f* pState) {
    return iiRun<float>(ObjId::IirIir32f, pSrcDst, pSrcDst, len, pState);
}
VrxStatus N0(vrxsIIRIIR64f_32f_I)(Vrx32f* pSrcDst, int len, VrxsIirIirState64f_32f* pState) {
    return iiRun<double>(ObjId::IirIir64f32f, pSrcDst, pSrcDst, len, pState);
}
VrxStatus N0(vrxsIIRIIR_64f_I)(Vrx64f* pSrcDst, int len, VrxsIirIirState_64f* pState) {
    return iiRun<double>(ObjId::IirIir64f, pSrcDst, pSrcDst, len, pState);
}
