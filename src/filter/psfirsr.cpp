// Single-rate FIR: taps arranged once in a caller-owned state, history in
// caller delay lines (N-1 samples, oldest first), a direct path of fused
// multiply-adds and an overlap-save FFT path with the taps' spectrum kept in
// the state. The state carries no identity word.
#include "psfirsr.h"
#include "vrx_fft_calls.h"

using namespace n0;
using namespace n0::filt;
using namespace n0::firsr;

namespace {

// ------------------------------------------------------------- the forms
// The FFT path by element type: real plans over the Perm spectrum, complex
// plans, each with flag 2 (the inverse divided by the length) and hint 0.
template <class E> struct FormCalls {
    using C = FftCalls<E>;
    using S = E;
    using Plan = typename C::Plan;
    static void sizes(int order, int* P, int* T, int* W) { C::getSize(order, vrxFftScaleInv, 0, P, T, W); }
    static void init(Plan** p, int order, Vrx8u* mem, Vrx8u* buf) { C::init(p, order, vrxFftScaleInv, 0, mem, buf); }
    static VrxStatus fwd(const S* s, S* d, const Plan* p, Vrx8u* b) {
        if constexpr (C::kCplx) return C::fwd(s, d, p, b);
        else return C::fwdPerm(s, d, p, b);
    }
    static VrxStatus inv(const S* s, S* d, const Plan* p, Vrx8u* b) {
        if constexpr (C::kCplx) return C::inv(s, d, p, b);
        else return C::invPerm(s, d, p, b);
    }
    static VrxStatus mul(const S* spec, S* d, int F) {
        if constexpr (C::kCplx) return C::mulI(spec, d, F);
        else return C::mulPermI(spec, d, F);
    }
};

// Path limits and the size of the joined region, by form.
template <class E> struct Form;
template <> struct Form<Vrx32f> : FormCalls<Vrx32f> {
    static constexpr int kSel = vrx32f, kMinTaps = 52, kMinIters = 256, kHrzFrom = 32;
    static int64_t region(int64_t N) {
        const int64_t a = roundUp64(32 * N), b = 32 * ((N + 16) & ~int64_t(7));
        return a > b ? a : b;
    }
};
template <> struct Form<Vrx64f> : FormCalls<Vrx64f> {
    static constexpr int kSel = vrx64f, kMinTaps = 34, kMinIters = 512, kHrzFrom = 9;
    static int64_t region(int64_t N) {
        const int64_t a = roundUp64(32 * N), b = roundUp64(16 * ((N + 2) & ~int64_t(1)));
        return a > b ? a : b;
    }
};
template <> struct Form<Vrx32fc> : FormCalls<Vrx32fc> {
    static constexpr int kSel = vrx32fc, kMinTaps = 18, kMinIters = 128, kHrzFrom = 0;
    static int64_t region(int64_t N) { return roundUp64(32 * N); }
};
template <> struct Form<Vrx64fc> : FormCalls<Vrx64fc> {
    static constexpr int kSel = vrx64fc, kMinTaps = 21, kMinIters = 256, kHrzFrom = 0;
    static int64_t region(int64_t N) {
        const int64_t a = roundUp64(16 * N), b = 64 * N;
        return a > b ? a : b;
    }
};

// ------------------------------------------------------------- the layout
// One description of the state and the work buffer, read by the size query
// and by Init and the run functions alike.
struct Layout {
    int64_t N, e, order, F, R, P, T, W;
    int64_t specBytes() const { return 191 + R + P + F * e + (T > W ? T : W); }
    int64_t bufBytes() const { return runBytes() + lineBytes() + kStageBytes + F * e + W; }
    int64_t runBytes() const { return roundUp64(2 * N * e); }              // the joined run of the direct block
    int64_t lineBytes() const { return roundUp64((2 * N - 2) * e); }       // history and next history
};

template <class E>
Layout layoutOf(int N) {
    Layout l{};
    l.N = N;
    l.e = sizeof(E);
    int k = 1;
    while (k < 62 && (int64_t(1) << k) <= N) ++k;  // smallest k >= 1 with 2^k > N
    l.order = k + 1;
    l.F = int64_t(1) << l.order;
    l.R = Form<E>::region(N);
    int P = 0, T = 0, W = 0;  // the query's status is not looked at
    Form<E>::sizes(static_cast<int>(l.order), &P, &T, &W);
    l.P = P; l.T = T; l.W = W;
    return l;
}

template <class E> VRX_INLINE int algOf(const Head* h) {
    if constexpr (Elem<E>::kCplx) return h->word16;
    else return h->word20;
}

// ----------------------------------------------------------------- Init
template <class E>
void arrange(const E* h, int N, Head* hd) {
    using S = typename Elem<E>::S;
    S* t = static_cast<S*>(hd->pTaps);
    if constexpr (Elem<E>::kCplx) {
        // rows of 8: re x4, then the imaginary part with the form's signs
        constexpr bool plusFirst = sizeof(S) == 8;  // 64fc: +im, -im
        for (int k = 0; k < N; ++k) {
            S* r = t + 8 * k;
            const S re = h[k].re, im = h[k].im;
            r[0] = r[1] = r[2] = r[3] = re;
            r[4] = r[6] = plusFirst ? im : -im;
            r[5] = r[7] = plusFirst ? -im : im;
        }
        hd->word16 = 0;
    } else if constexpr (sizeof(S) == 4) {
        if (N < Form<E>::kHrzFrom) {
            for (int k = 0; k < N; ++k)
                for (int c = 0; c < 8; ++c) t[8 * k + c] = h[k];
            hd->word16 = 0;
        } else {
            const int rows = (N + 16) & ~7;
            for (int64_t i = 0; i < int64_t(rows) * 8; ++i) t[i] = 0.0f;
            for (int r = 0; r < rows; ++r)
                for (int c = 0; c < 8; ++c) {
                    const int j = r - c;
                    if (j >= 0 && j < N) t[8 * r + c] = h[N - 1 - j];
                }
            hd->word16 = 1;
        }
    } else {
        if (N < Form<E>::kHrzFrom) {
            for (int k = 0; k < N; ++k)
                for (int c = 0; c < 4; ++c) t[4 * k + c] = h[k];
            hd->word16 = 0;
        } else {
            const int S2 = (N + 2) & ~1;
            for (int i = 0; i < 2 * S2; ++i) t[i] = 0.0;
            for (int j = 0; j < N; ++j) {
                t[j] = h[N - 1 - j];
                t[S2 + j + 1] = h[N - 1 - j];
            }
            hd->word16 = 1;
        }
    }
}

template <class E>
VrxStatus firInit(const E* pTaps, int N, VrxAlgType alg, void* pSpec) {
    if (N < 1) return vrxErrBadLength;
    if (anyNull(pTaps, pSpec)) return vrxErrNullPtr;
    if (alg != vrxAlgAuto && alg != vrxAlgDirect && alg != vrxAlgFFT) return vrxErrAlgType;
    using F = Form<E>;
    Head* hd = headOf(pSpec);
    hd->tapsLen = N;
    hd->pTaps = addBytes(hd, kHeadBytes);
    arrange(pTaps, N, hd);
    if (alg != vrxAlgDirect) {
        const Layout l = layoutOf<E>(N);
        hd->fftLen = static_cast<int32_t>(l.F);
        Vrx8u* mem = addBytes(static_cast<Vrx8u*>(hd->pTaps), size_t(l.R));
        Vrx8u* work = mem + l.P;
        E* spec = reinterpret_cast<E*>(work + (l.T > l.W ? l.T : l.W));
        hd->pFftSpecMem = mem;
        hd->pFftWork = work;
        hd->pTapsSpectrum = spec;
        typename F::Plan* plan = nullptr;
        F::init(&plan, static_cast<int>(l.order), mem, work);  // its status is not looked at
        hd->pFftSpec = plan;
        copyN(pTaps, spec, N);
        zeroN(spec + N, static_cast<int>(l.F - N));
        F::fwd(spec, spec, plan, work);
    }
    if constexpr (Elem<E>::kCplx) hd->word16 = alg;
    else hd->word20 = alg;
    return vrxOk;
}

// ------------------------------------------------------------ the blocks
// The direct kernel over a window run: out[i] for i < n from in[i .. i+N-1].
template <class E>
VRX_INLINE void kernel(const Head* hd, const E* in, E* out, int n) {
    using S = typename Elem<E>::S;
    const int N = hd->tapsLen;
    const S* t = static_cast<const S*>(hd->pTaps);
    if constexpr (Elem<E>::kCplx) {
        dotRunCplx<S, sizeof(S) == 8, -8>(t + 8 * int64_t(N - 1), N, reinterpret_cast<const S*>(in),
                                      reinterpret_cast<S*>(out), n);
    } else {
        constexpr int row = sizeof(S) == 4 ? 8 : 4;
        if (hd->word16) dotRunReal<S, sizeof(S) == 4 ? 8 : 1>(t, N, in, out, n);
        else dotRunReal<S, -row, false>(t + row * int64_t(N - 1), N, in, out, n);  // fewer than 32 or 9 taps
    }
}

// The long-filter passes over the joined run and src as one input: the
// windows start in run below N-1 and in src from there on. Returns the
// outputs done (whole registers), 0 when the short kernels take the call.
template <class E>
VRX_INLINE int longKernel(const Head* hd, const E* run, const E* src, E* out, int n) {
    using S = typename Elem<E>::S;
    const int N = hd->tapsLen;
    const S* t = static_cast<const S*>(hd->pTaps);
    const Input<S> in{reinterpret_cast<const S*>(run), reinterpret_cast<const S*>(src), N - 1};
    S* o = reinterpret_cast<S*>(out);
    if constexpr (Elem<E>::kCplx) return rotRun(CplxTaps<S, sizeof(S) == 8, -8>{t + 8 * int64_t(N - 1)}, N, in, o, n);
    else if (hd->word16) return rotRun(RealTaps<S, sizeof(S) == 4 ? 8 : 1>{t}, N, in, o, n);
    else return 0;
}

// Direct block: the first min(N-1, n) outputs from a joined run in run, the
// rest straight from src. Long filters take both in one set of passes when
// the outputs left past the last whole register all start in src.
template <class E>
void directBlock(const Head* hd, const E* src, int n, const E* dlyIn, E* dlyOut, E* out, E* run) {
    constexpr int lanes = simd::V<typename Elem<E>::S>::N / (Elem<E>::kCplx ? 2 : 1);
    const int L = hd->tapsLen - 1;
    const int M = L < n ? L : n;
    lineOut(src, n, L, dlyIn, dlyOut);
    if (M) {
        joinRun(dlyIn, L, src, M, run);
        if (n - lanes >= L) {
            if (const int done = longKernel(hd, run, src, out, n)) {
                kernel(hd, src + (done - L), out + done, n - done);
                return;
            }
        }
        kernel(hd, run, out, M);
    }
    if (n - M > 0) kernel(hd, src, out + M, n - M);
}

// FFT block: overlap-save with step F-N+1 in B (F elements at work), the
// transforms' work area behind B. Failures of the transforms end the block.
template <class E>
void fftBlock(const Head* hd, const E* src, int n, const E* dlyIn, E* dlyOut, E* out, Vrx8u* work) {
    using F = Form<E>;
    using S = typename F::S;
    const int N = hd->tapsLen, L = N - 1, Fl = hd->fftLen, step = Fl - N + 1;
    const auto* plan = static_cast<const typename F::Plan*>(hd->pFftSpec);
    const S* spec = static_cast<const S*>(hd->pTapsSpectrum);
    E* B = reinterpret_cast<E*>(work);
    Vrx8u* fw = work + int64_t(Fl) * int64_t(sizeof(E));
    S* b = reinterpret_cast<S*>(B);
    auto transform = [&](const E* from) -> bool {
        if (F::fwd(reinterpret_cast<const S*>(from), b, plan, fw) < 0) return false;
        if (F::mul(spec, b, Fl) < 0) return false;
        return F::inv(b, b, plan, fw) >= 0;
    };
    if (dlyIn) copyN(dlyIn, B, L);
    else zeroN(B, L);
    lineOut(src, n, L, dlyIn, dlyOut);
    const int first = n < step ? n : step;
    copyN(src, B + L, first);
    zeroN(B + L + first, Fl - L - first);
    if (!transform(B)) return;
    copyN(B + L, out, first);
    for (int o = step; o < n; o += step) {
        const int r = n - o;
        const E* win = src + (o - L);
        if (r < Fl) {
            const int c = L + r < Fl ? L + r : Fl;
            copyN(win, B, c);
            zeroN(B + c, Fl - c);
            if (!transform(B)) return;
        } else if (!transform(win)) {
            return;
        }
        copyN(B + L, out + o, r < step ? r : step);
    }
}

template <class E>
VRX_INLINE bool takesFft(const Head* hd, int numIters) {
    const int alg = algOf<E>(hd);
    if (alg == vrxAlgFFT) return true;
    return alg == vrxAlgAuto && hd->tapsLen >= Form<E>::kMinTaps && numIters >= Form<E>::kMinIters;
}

// ------------------------------------------------------------ run, floats
template <class E>
VrxStatus firRun(const E* pSrc, E* pDst, int numIters, const void* pSpec, const E* pDlySrc, E* pDlyDst, Vrx8u* pBuf) {
    if (anyNull(pSpec, pSrc, pDst, pBuf)) return vrxErrNullPtr;
    if (numIters < 1) return vrxErrBadLength;
    const Head* hd = headOf(pSpec);
    const int N = hd->tapsLen, L = N - 1;
    const bool fft = takesFft<E>(hd, numIters);
    const int64_t e = sizeof(E);
    const int64_t runB = roundUp64(2 * N * e), lineB = roundUp64((2 * int64_t(N) - 2) * e);
    E* run = reinterpret_cast<E*>(pBuf);
    E* hist = reinterpret_cast<E*>(pBuf + runB);
    E* next = hist + L;
    E* stage = reinterpret_cast<E*>(pBuf + runB + lineB);
    Vrx8u* fftWork = pBuf + runB + lineB + kStageBytes;
    auto block = [&](const E* s, int n, const E* in, E* outLine, E* out) {
        if (fft) fftBlock(hd, s, n, in, outLine, out, fftWork);
        else directBlock(hd, s, n, in, outLine, out, run);
    };
    if (pDst != pSrc && pDst != pDlySrc) {
        const E* in = pDlySrc;
        if (pDlyDst == pDlySrc) {
            // the line is read from a copy, so that writing it cannot destroy
            // it; with both null the copy is refused and the history is what
            // the work area holds
            if (pDlySrc) copyN(pDlySrc, hist, L);
            in = hist;
        }
        block(pSrc, numIters, in, pDlyDst, pDst);
        return vrxOk;
    }
    // Aliased: staged blocks, the history passed on in the work area.
    const int Bk = static_cast<int>(kStageBytes / e);
    if (pDlySrc) copyN(pDlySrc, hist, L);
    else zeroN(hist, L);
    for (int done = 0; done < numIters;) {
        const int n = numIters - done < Bk ? numIters - done : Bk;
        block(pSrc + done, n, hist, next, stage);
        copyN(next, hist, L);
        copyN(stage, pDst + done, n);
        done += n;
    }
    if (pDlyDst) copyN(next, pDlyDst, L);
    return vrxOk;
}

// ------------------------------------------------------- run, 16-bit
// On the float state, always direct: blocks of 4096 scalars converted in,
// filtered, rounded and saturated out; the two float delay areas swap roles.
template <class I, class E>
VrxStatus firRun16(const I* pSrc, I* pDst, int numIters, const void* pSpec, const I* pDlySrc, I* pDlyDst, Vrx8u* pBuf) {
    if (anyNull(pSpec, pSrc, pDst, pBuf)) return vrxErrNullPtr;
    if (numIters < 1) return vrxErrBadLength;
    const Head* hd = headOf(pSpec);
    const int N = hd->tapsLen, L = N - 1;
    const int64_t e = sizeof(E);
    const int64_t runB = roundUp64(2 * N * e), lineB = roundUp64((2 * int64_t(N) - 2) * e);
    E* run = reinterpret_cast<E*>(pBuf);
    E* d0 = reinterpret_cast<E*>(pBuf + runB);
    E* d1 = d0 + L;
    E* inB = reinterpret_cast<E*>(pBuf + runB + lineB);
    E* outB = reinterpret_cast<E*>(pBuf + runB + lineB + kStageBytes / 2);
    const int Bk = static_cast<int>(kStageBytes / 2 / e);
    if (pDlySrc) toFloat(pDlySrc, d0, L);
    else zeroN(d0, L);
    for (int done = 0; done < numIters;) {
        const int n = numIters - done < Bk ? numIters - done : Bk;
        toFloat(pSrc + done, inB, n);
        directBlock(hd, inB, n, d0, d1, outB, run);
        fromFloat(outB, pDst + done, n);
        E* t = d0; d0 = d1; d1 = t;
        done += n;
    }
    if (pDlyDst) fromFloat(d0, pDlyDst, L);
    return vrxOk;
}

// ------------------------------------------------------------ size query
VrxStatus firSize(int N, int type, int* pSpecSize, int* pBufSize) {
    if (N < 1) return vrxErrBadLength;
    Layout l;
    switch (type) {
        case vrx32f: l = layoutOf<Vrx32f>(N); break;
        case vrx32fc: l = layoutOf<Vrx32fc>(N); break;
        case vrx64f: l = layoutOf<Vrx64f>(N); break;
        case vrx64fc: l = layoutOf<Vrx64fc>(N); break;
        default: return vrxErrDataType;
    }
    if (anyNull(pSpecSize, pBufSize)) return vrxErrNullPtr;
    *pSpecSize = static_cast<int>(l.specBytes());
    *pBufSize = static_cast<int>(l.bufBytes());
    return vrxOk;
}

}  // namespace

VrxStatus N0(vrxsFIRSRGetSize)(int tapsLen, VrxDataType tapsType, int* pSpecSize, int* pBufSize) {
    return firSize(tapsLen, tapsType, pSpecSize, pBufSize);
}

VrxStatus N0(vrxsFIRSRInit_32f)(const Vrx32f* pTaps, int tapsLen, VrxAlgType algType, VrxsFirState_32f* pSpec) { return firInit(pTaps, tapsLen, algType, pSpec); }
VrxStatus N0(vrxsFIRSRInit_32fc)(const Vrx32fc* pTaps, int tapsLen, VrxAlgType algType, VrxsFirState_32fc* pSpec) { return firInit(pTaps, tapsLen, algType, pSpec); }
VrxStatus N0(vrxsFIRSRInit_64f)(const Vrx64f* pTaps, int tapsLen, VrxAlgType algType, VrxsFirState_64f* pSpec) { return firInit(pTaps, tapsLen, algType, pSpec); }
VrxStatus N0(vrxsFIRSRInit_64fc)(const Vrx64fc* pTaps, int tapsLen, VrxAlgType algType, VrxsFirState_64fc* pSpec) { return firInit(pTaps, tapsLen, algType, pSpec); }

VrxStatus N0(vrxsFIRSR_32f)(const Vrx32f* pSrc, Vrx32f* pDst, int numIters, const VrxsFirState_32f* pSpec, const Vrx32f* pDlySrc, Vrx32f* pDlyDst, Vrx8u* pBuf) { return firRun(pSrc, pDst, numIters, pSpec, pDlySrc, pDlyDst, pBuf); }
VrxStatus N0(vrxsFIRSR_32fc)(const Vrx32fc* pSrc, Vrx32fc* pDst, int numIters, const VrxsFirState_32fc* pSpec, const Vrx32fc* pDlySrc, Vrx32fc* pDlyDst, Vrx8u* pBuf) { return firRun(pSrc, pDst, numIters, pSpec, pDlySrc, pDlyDst, pBuf); }
VrxStatus N0(vrxsFIRSR_64f)(const Vrx64f* pSrc, Vrx64f* pDst, int numIters, const VrxsFirState_64f* pSpec, const Vrx64f* pDlySrc, Vrx64f* pDlyDst, Vrx8u* pBuf) { return firRun(pSrc, pDst, numIters, pSpec, pDlySrc, pDlyDst, pBuf); }
VrxStatus N0(vrxsFIRSR_64fc)(const Vrx64fc* pSrc, Vrx64fc* pDst, int numIters, const VrxsFirState_64fc* pSpec, const Vrx64fc* pDlySrc, Vrx64fc* pDlyDst, Vrx8u* pBuf) { return firRun(pSrc, pDst, numIters, pSpec, pDlySrc, pDlyDst, pBuf); }
VrxStatus N0(vrxsFIRSR_16s)(const Vrx16s* pSrc, Vrx16s* pDst, int numIters, const VrxsFirState_32f* pSpec, const Vrx16s* pDlySrc, Vrx16s* pDlyDst, Vrx8u* pBuf) { return firRun16<Vrx16s, Vrx32f>(pSrc, pDst, numIters, pSpec, pDlySrc, pDlyDst, pBuf); }
VrxStatus N0(vrxsFIRSR_16sc)(const Vrx16sc* pSrc, Vrx16sc* pDst, int numIters, const VrxsFirState_32fc* pSpec, const Vrx16sc* pDlySrc, Vrx16sc* pDlyDst, Vrx8u* pBuf) { return firRun16<Vrx16sc, Vrx32fc>(pSrc, pDst, numIters, pSpec, pDlySrc, pDlyDst, pBuf); }
