// Adaptive FIR filter (least mean squares), 32f and 64f.
//
// Per sample n, with h the taps at that moment and x the input:
//     y[n] = sum over k < N of h[k] * x[n-k]      (written to pDst)
//     e    = ref[n] - y[n]
//     me   = mu * e                                (formed once)
//     h[k] = fma(me, x[n-k], h[k])                 (one rounding per tap)
// The update is a deliberate fused multiply-add; e and me are a plain
// subtraction and a plain product.
//
// State: the taps reversed (g[j] = h[N-1-j], so that g[j] meets the j-th
// oldest sample of the window) and a line buffer of N-1 samples of history
// followed by room for a block of B inputs: the window of every sample is
// one contiguous run, oldest first, and a block's inputs are copied in
// before any of its outputs is written (so pDst may be pSrc or pRef). After
// a block the newest N-1 samples move back to the front.
//
// Dot product order (part of the result's bits): the window is cut into
// chunks of V lanes (16 floats, 8 doubles), chunk c feeding accumulator
// A[c mod 4] by one fused multiply-add per lane, chunks rising, each
// accumulator from +0; the last chunk, when partial, touches only its lanes
// below N. The accumulators in use (min(chunks, 4)) are folded as A0,
// A0+A1, (A0+A1)+A2 or (A0+A1)+(A2+A3), then the lanes in a fixed tree
// (halves of 256, 128, 64, 32 bits). Nothing wider than the element type.
#include <string.h>

#include "simd/simd.h"
#include "vrx_base.h"
#include "vrx_layout.h"

using namespace n0;

namespace {

constexpr int kMaxTaps = 1 << 26;  // keeps every size inside an int

constexpr int kBlock = 512;  // inputs per block of the line buffer

struct LmsState {
    int32_t id;
    int32_t N;         // taps
    int64_t tapsOff;   // bytes from the state to the reversed taps
    int64_t bufOff;    // bytes from the state to the line buffer (N-1+kBlock)
};

template <class T> struct Kind;
template <> struct Kind<Vrx32f> {
    using Pub = VrxsFirLmsState_32f;
    static constexpr ObjId kId = ObjId::FirLms32f;
};
template <> struct Kind<Vrx64f> {
    using Pub = VrxsFirLmsState_64f;
    static constexpr ObjId kId = ObjId::FirLms64f;
};

template <class T>
struct Pieces {
    LmsState* st;
    T* taps;
    T* buf;
};

// The one layout, read by the size query and by Init.
template <class T>
Pieces<T> layout(Carver& c, int N) {
    constexpr int64_t L = simd::V<T>::N;
    Pieces<T> p{};
    p.st = c.take<LmsState>(1);
    p.taps = c.take<T>((int64_t(N) + L - 1) / L * L);
    p.buf = c.take<T>(int64_t(N) - 1 + kBlock);
    return p;
}

template <class T> VRX_INLINE T* tapsOf(LmsState* s) { return addBytes(reinterpret_cast<T*>(s), size_t(s->tapsOff)); }
template <class T> VRX_INLINE const T* tapsOf(const LmsState* s) {
    return addBytes(reinterpret_cast<const T*>(s), size_t(s->tapsOff));
}
template <class T> VRX_INLINE T* bufOf(LmsState* s) { return addBytes(reinterpret_cast<T*>(s), size_t(s->bufOff)); }
template <class T> VRX_INLINE const T* bufOf(const LmsState* s) {
    return addBytes(reinterpret_cast<const T*>(s), size_t(s->bufOff));
}

// The history (N-1 samples, oldest first) at the front of the buffer;
// null is zeros.
template <class T>
void putLine(LmsState* s, const T* line) {
    const size_t n = size_t(s->N - 1);
    if (!n) return;
    if (line) memcpy(bufOf<T>(s), line, sizeof(T) * n);
    else memset(bufOf<T>(s), 0, sizeof(T) * n);
}

// Runs len samples in blocks: the block's inputs go behind the history,
// body(buf, ref, dst, m) filters them, the newest N-1 samples move forward.
template <class T, class F>
VRX_INLINE void inBlocks(LmsState* s, const T* src, const T* ref, T* dst, int len, F body) {
    T* buf = bufOf<T>(s);
    const int h = s->N - 1;
    for (int done = 0; done < len;) {
        const int m = len - done < kBlock ? len - done : kBlock;
        memcpy(buf + h, src + done, sizeof(T) * size_t(m));
        body(buf, ref + done, dst + done, m);
        if (h) memmove(buf, buf + m, sizeof(T) * size_t(h));
        done += m;
    }
}

// ---------------------------------------------------------------- kernels
template <class T>
struct Lms {
    using W = simd::V<T>;
    using R = typename W::R;
    static constexpr int L = W::N;

    VRX_INLINE static T fold(R a0, R a1, R a2, R a3, int chunks) {
        R s;
        if (chunks >= 4) s = W::add(W::add(a0, a1), W::add(a2, a3));
        else if (chunks == 3) s = W::add(W::add(a0, a1), a2);
        else if (chunks == 2) s = W::add(a0, a1);
        else s = a0;
        return W::reduceAdd(s);
    }

    // One pass over the taps g: when Upd, first g = fma(me, wp, g) (the
    // update of the previous sample, window wp); then the dot product of g
    // with the window w in the documented order.
    template <bool Upd>
    static T pass(T* g, const T* wp, T me, const T* w, int N) {
        const R m = W::set1(me);
        R a0 = W::zero(), a1 = W::zero(), a2 = W::zero(), a3 = W::zero();
        auto chunk = [&](int j, R& a) __attribute__((always_inline)) {
            R h = W::load(g + j);
            if constexpr (Upd) {
                h = W::fma(m, W::load(wp + j), h);
                W::store(g + j, h);
            }
            a = W::fma(h, W::load(w + j), a);
        };
        int j = 0;
        for (; j + 4 * L <= N; j += 4 * L) {
            chunk(j, a0);
            chunk(j + L, a1);
            chunk(j + 2 * L, a2);
            chunk(j + 3 * L, a3);
        }
        // the remaining full chunks continue at accumulator 0
        if (j + L <= N) { chunk(j, a0); j += L; }
        if (j + L <= N) { chunk(j, a1); j += L; }
        if (j + L <= N) { chunk(j, a2); j += L; }
        const int full = N / L;
        if (j < N) {
            const auto k = simd::tail<T>(static_cast<size_t>(N - j));
            R h = W::loadm(k, g + j);
            if constexpr (Upd) {
                h = W::fma(m, W::loadm(k, wp + j), h);
                W::storem(g + j, k, h);
            }
            const R x = W::loadm(k, w + j);
            switch (full & 3) {
                case 0: a0 = W::fmam(k, h, x, a0); break;
                case 1: a1 = W::fmam(k, h, x, a1); break;
                case 2: a2 = W::fmam(k, h, x, a2); break;
                default: a3 = W::fmam(k, h, x, a3); break;
            }
        }
        return fold(a0, a1, a2, a3, (N + L - 1) / L);
    }

    // g = fma(me, w, g) over N taps, alone (the last sample of a call).
    static void update(T* g, const T* w, T me, int N) {
        const R m = W::set1(me);
        int j = 0;
        for (; j + L <= N; j += L) W::store(g + j, W::fma(m, W::load(w + j), W::load(g + j)));
        if (j < N) {
            const auto k = simd::tail<T>(static_cast<size_t>(N - j));
            W::storem(g + j, k, W::fma(m, W::loadm(k, w + j), W::loadm(k, g + j)));
        }
    }

    // The run over the taps in memory: per block, the first sample's dot
    // product alone, then per sample the previous update fused with the
    // dot product, then the last update.
    static void runMem(LmsState* s, const T* src, const T* ref, T* dst, int len, T mu) {
        const int N = s->N;
        T* g = tapsOf<T>(s);
        inBlocks(s, src, ref, dst, len, [&](const T* buf, const T* d, T* y, int m) {
            T me = 0;
            for (int i = 0; i < m; ++i) {
                const T out = i ? pass<true>(g, buf + i - 1, me, buf + i, N) : pass<false>(g, nullptr, T(0), buf, N);
                const T e = d[i] - out;
                y[i] = out;
                me = mu * e;
            }
            update(g, buf + m - 1, me, N);
        });
    }

    // The same with C chunks of taps held in registers for the whole call
    // and the sum formed in every lane (reduceAddAll: the bits of the same
    // tree), so that e and mu*e need no broadcast.
    template <int C>
    static void runRegs(LmsState* s, const T* src, const T* ref, T* dst, int len, T mu) {
        const int N = s->N;
        T* g = tapsOf<T>(s);
        const auto k = simd::tail<T>(static_cast<size_t>(N - (C - 1) * L));
        const R vmu = W::set1(mu);
        R h[C];
        for (int c = 0; c < C - 1; ++c) h[c] = W::load(g + c * L);
        h[C - 1] = W::loadm(k, g + (C - 1) * L);
        inBlocks(s, src, ref, dst, len, [&](const T* buf, const T* d, T* y, int m) __attribute__((always_inline)) {
            for (int i = 0; i < m; ++i) {
                const T* w = buf + i;
                R x[C];
                for (int c = 0; c < C - 1; ++c) x[c] = W::load(w + c * L);
                x[C - 1] = W::loadm(k, w + (C - 1) * L);
                R a[4] = {W::zero(), W::zero(), W::zero(), W::zero()};
                for (int c = 0; c < C - 1; ++c) a[c & 3] = W::fma(h[c], x[c], a[c & 3]);
                a[(C - 1) & 3] = W::fmam(k, h[C - 1], x[C - 1], a[(C - 1) & 3]);
                R sum = a[0];
                if constexpr (C >= 4) sum = W::add(W::add(a[0], a[1]), W::add(a[2], a[3]));
                else if constexpr (C == 3) sum = W::add(W::add(a[0], a[1]), a[2]);
                else if constexpr (C == 2) sum = W::add(a[0], a[1]);
                const R yv = simd::reduceAddAll(sum);
                const R me = W::mul(vmu, W::sub(W::set1(d[i]), yv));
                y[i] = W::first(yv);
                for (int c = 0; c < C; ++c) h[c] = W::fma(me, x[c], h[c]);
            }
        });
        for (int c = 0; c < C - 1; ++c) W::store(g + c * L, h[c]);
        W::storem(g + (C - 1) * L, k, h[C - 1]);
    }

    static void run(LmsState* s, const T* src, const T* ref, T* dst, int len, T mu) {
        switch ((s->N + L - 1) / L) {
            case 1: runRegs<1>(s, src, ref, dst, len, mu); break;
            case 2: runRegs<2>(s, src, ref, dst, len, mu); break;
            case 3: runRegs<3>(s, src, ref, dst, len, mu); break;
            case 4: runRegs<4>(s, src, ref, dst, len, mu); break;
            default: runMem(s, src, ref, dst, len, mu); break;
        }
    }
};

// ------------------------------------------------------------ the entries
template <class T>
VrxStatus stateSize(int tapsLen, int* pSize) {
    if (!pSize) return vrxErrNullPtr;
    if (tapsLen < 1 || tapsLen > kMaxTaps) return vrxErrFirLen;
    Carver c;
    layout<T>(c, tapsLen);
    *pSize = static_cast<int>(c.size() + Carver::kSlack);
    return vrxOk;
}

template <class T>
VrxStatus init(typename Kind<T>::Pub** ppState, const T* pTaps, int tapsLen, const T* pDly, Vrx8u* pBuf) {
    if (anyNull(ppState, pBuf)) return vrxErrNullPtr;
    if (tapsLen < 1 || tapsLen > kMaxTaps) return vrxErrFirLen;
    Carver c(pBuf);
    const Pieces<T> p = layout<T>(c, tapsLen);
    LmsState* s = p.st;
    s->id = idWord(Kind<T>::kId);
    s->N = tapsLen;
    s->tapsOff = static_cast<int64_t>(addr(p.taps) - addr(s));
    s->bufOff = static_cast<int64_t>(addr(p.buf) - addr(s));
    constexpr int64_t L = simd::V<T>::N;
    memset(p.taps, 0, sizeof(T) * size_t((int64_t(tapsLen) + L - 1) / L * L));
    if (pTaps)
        for (int j = 0; j < tapsLen; ++j) p.taps[j] = pTaps[tapsLen - 1 - j];
    putLine(s, pDly);
    *ppState = reinterpret_cast<typename Kind<T>::Pub*>(s);
    return vrxOk;
}

template <class T>
VrxStatus runLms(const T* pSrc, const T* pRef, T* pDst, int len, T mu, typename Kind<T>::Pub* pState) {
    if (VrxStatus st = checkArgs(len, pSrc, pRef, pDst, pState)) return st;
    LmsState* s = nullptr;
    if (VrxStatus st = open(static_cast<void*>(pState), Kind<T>::kId, &s)) return st;
    Lms<T>::run(s, pSrc, pRef, pDst, len, mu);
    return vrxOk;
}

template <class T>
VrxStatus getTaps(const typename Kind<T>::Pub* pState, T* pOut) {
    if (anyNull(pState, pOut)) return vrxErrNullPtr;
    const LmsState* s = nullptr;
    if (VrxStatus st = open(static_cast<const void*>(pState), Kind<T>::kId, &s)) return st;
    const T* g = tapsOf<T>(s);
    for (int k = 0; k < s->N; ++k) pOut[k] = g[s->N - 1 - k];
    return vrxOk;
}

template <class T>
VrxStatus setTaps(typename Kind<T>::Pub* pState, const T* pIn) {
    if (anyNull(pState, pIn)) return vrxErrNullPtr;
    LmsState* s = nullptr;
    if (VrxStatus st = open(static_cast<void*>(pState), Kind<T>::kId, &s)) return st;
    T* g = tapsOf<T>(s);
    for (int k = 0; k < s->N; ++k) g[s->N - 1 - k] = pIn[k];
    return vrxOk;
}

template <class T>
VrxStatus getLine(const typename Kind<T>::Pub* pState, T* pOut) {
    if (anyNull(pState, pOut)) return vrxErrNullPtr;
    const LmsState* s = nullptr;
    if (VrxStatus st = open(static_cast<const void*>(pState), Kind<T>::kId, &s)) return st;
    if (s->N > 1) memcpy(pOut, bufOf<T>(s), sizeof(T) * size_t(s->N - 1));
    return vrxOk;
}

template <class T>
VrxStatus setLine(typename Kind<T>::Pub* pState, const T* pIn) {
    if (!pState) return vrxErrNullPtr;
    LmsState* s = nullptr;
    if (VrxStatus st = open(static_cast<void*>(pState), Kind<T>::kId, &s)) return st;
    putLine(s, pIn);
    return vrxOk;
}

}  // namespace

VrxStatus N0(vrxsFIRLMSGetStateSize_32f)(int tapsLen, int* pSize) { return stateSize<Vrx32f>(tapsLen, pSize); }
VrxStatus N0(vrxsFIRLMSGetStateSize_64f)(int tapsLen, int* pSize) { return stateSize<Vrx64f>(tapsLen, pSize); }
VrxStatus N0(vrxsFIRLMSInit_32f)(VrxsFirLmsState_32f** ppState, const Vrx32f* pTaps, int tapsLen, const Vrx32f* pDlyLine, Vrx8u* pBuf) {
    return init(ppState, pTaps, tapsLen, pDlyLine, pBuf);
}
VrxStatus N0(vrxsFIRLMSInit_64f)(VrxsFirLmsState_64f** ppState, const Vrx64f* pTaps, int tapsLen, const Vrx64f* pDlyLine, Vrx8u* pBuf) {
    return init(ppState, pTaps, tapsLen, pDlyLine, pBuf);
}
VrxStatus N0(vrxsFIRLMS_32f)(const Vrx32f* pSrc, const Vrx32f* pRef, Vrx32f* pDst, int len, Vrx32f mu, VrxsFirLmsState_32f* pState) {
    return runLms(pSrc, pRef, pDst, len, mu, pState);
}
VrxStatus N0(vrxsFIRLMS_64f)(const Vrx64f* pSrc, const Vrx64f* pRef, Vrx64f* pDst, int len, Vrx64f mu, VrxsFirLmsState_64f* pState) {
    return runLms(pSrc, pRef, pDst, len, mu, pState);
}
VrxStatus N0(vrxsFIRLMSGetTaps_32f)(const VrxsFirLmsState_32f* pState, Vrx32f* pOutTaps) { return getTaps(pState, pOutTaps); }
VrxStatus N0(vrxsFIRLMSGetTaps_64f)(const VrxsFirLmsState_64f* pState, Vrx64f* pOutTaps) { return getTaps(pState, pOutTaps); }
VrxStatus N0(vrxsFIRLMSSetTaps_32f)(VrxsFirLmsState_32f* pState, const Vrx32f* pInTaps) { return setTaps(pState, pInTaps); }
VrxStatus N0(vrxsFIRLMSSetTaps_64f)(VrxsFirLmsState_64f* pState, const Vrx64f* pInTaps) { return setTaps(pState, pInTaps); }
VrxStatus N0(vrxsFIRLMSGetDlyLine_32f)(const VrxsFirLmsState_32f* pState, Vrx32f* pDlyLine) { return getLine(pState, pDlyLine); }
VrxStatus N0(vrxsFIRLMSGetDlyLine_64f)(const VrxsFirLmsState_64f* pState, Vrx64f* pDlyLine) { return getLine(pState, pDlyLine); }
VrxStatus N0(vrxsFIRLMSSetDlyLine_32f)(VrxsFirLmsState_32f* pState, const Vrx32f* pDlyLine) { return setLine(pState, pDlyLine); }
VrxStatus N0(vrxsFIRLMSSetDlyLine_64f)(VrxsFirLmsState_64f* pState, const Vrx64f* pDlyLine) { return setLine(pState, pDlyLine); }
