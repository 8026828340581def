// Auto- and cross-correlation with normalisation: the direct lag-parallel
// kernel, or FFTs (real: Pack spectra and MulPackConj; complex: conjugated
// copy and product), one transform or overlap-save over the longer vector.
#include "psconv_own.h"

using namespace n0;
using namespace n0::conv;

namespace {

// Path thresholds by form: autocorrelation on min(srcLen, dstLen),
// cross-correlation on trunc(mn D / mx).
template <class E> struct Thr;
template <> struct Thr<Vrx32f> { static constexpr int kAuto = 1200, kCross = 384, kType = vrx32f; };
template <> struct Thr<Vrx64f> { static constexpr int kAuto = 1200, kCross = 512, kType = vrx64f; };
template <> struct Thr<Vrx32fc> { static constexpr int kAuto = 128, kCross = 256, kType = vrx32fc; };
template <> struct Thr<Vrx64fc> { static constexpr int kAuto = 128, kCross = 512, kType = vrx64fc; };

template <class E>
using ScalarOf = typename Fft<E>::S;

template <class E>
VRX_INLINE const ScalarOf<E>* sc(const E* p) { return reinterpret_cast<const ScalarOf<E>*>(p); }
template <class E>
VRX_INLINE ScalarOf<E>* sc(E* p) { return reinterpret_cast<ScalarOf<E>*>(p); }

// Element n of a real or complex vector divided by v.
template <class E>
VRX_INLINE void divideAt(E* d, i64 n, ScalarOf<E> v) {
    if constexpr (Fft<E>::kCplx) {
        d[n].re = d[n].re / v;
        d[n].im = d[n].im / v;
    } else {
        d[n] = d[n] / v;
    }
}

// ------------------------------------------------------------ autocorrelation
template <class E>
VrxStatus autoFft(const E* x, int n, E* dst, int m, Vrx8u* pBuffer) {
    using X = Fft<E>;
    FftWork<E> w;
    const int order = ceilLog2(2 * i64(n));
    if (VrxStatus st = openWork(pBuffer, order, &w)) return st;
    const int F = 1 << order;
    E* a = w.arr;
    padTo(x, n, a, F);
    if constexpr (X::kCplx) {
        E* b = w.arr + F;
        if (VrxStatus st = X::fwdI(a, w.plan, w.work)) return st;
        X::conj(a, b, F);
        X::mul(b, a, a, F);
        if (VrxStatus st = X::invI(a, w.plan, w.work)) return st;
    } else {
        if (VrxStatus st = X::fwdPackI(a, w.plan, w.work)) return st;
        if (VrxStatus st = X::mulPackConjI(a, a, F)) return st;
        if (VrxStatus st = X::invPackI(a, w.plan, w.work)) return st;
    }
    X::copy(a, dst, m);
    return vrxOk;
}

VRX_INLINE bool autoUsesFft(int alg, int m, int thr) {
    return alg == vrxAlgFFT || (alg == vrxAlgAuto && m >= thr);
}

template <class E>
VrxStatus autoCorr(const E* pSrc, int srcLen, E* pDst, int dstLen, VrxAlgType algType, Vrx8u* pBuffer) {
    using X = Fft<E>;
    if (anyNull(pSrc, pDst, pBuffer)) return vrxErrNullPtr;
    if (srcLen < 1 || dstLen < 1) return vrxErrBadLength;
    const int alg = algOf(algType);
    if (alg > vrxAlgFFT) return vrxErrAlgType;
    const int m = srcLen < dstLen ? srcLen : dstLen;
    if (autoUsesFft(alg, m, Thr<E>::kAuto)) {
        if (VrxStatus st = autoFft(pSrc, srcLen, pDst, m, pBuffer)) return st;
    } else {
        directRun<ScalarOf<E>, X::kCplx, false>(sc(pSrc), srcLen, sc(pSrc), 0, srcLen, 0, sc(pDst), m);
    }
    X::zero(pDst + m, dstLen - m);
    // Normalisation of the first m outputs; the zero tail stays as it is.
    switch (normOf(algType)) {
    case 0: return vrxOk;
    case 1: X::scale(ScalarOf<E>(1) / ScalarOf<E>(srcLen), pDst, m); return vrxOk;
    case 2:
        for (int k = 0; k < m; ++k) divideAt(pDst, k, ScalarOf<E>(srcLen - k));
        return vrxOk;
    default: return vrxErrAlgType;
    }
}

// ---------------------------------------------------------- cross-correlation
// Single transform: a zero-padded to F; b behind n1-1 zeros; the product of
// b's spectrum with a's conjugated one; R[lag] stands at lag+n1-1.
template <class E>
VrxStatus crossSingle(const FftWork<E>& w, int F, const E* a, int n1, const E* b, int n2, E* out, i64 lo, int D) {
    using X = Fft<E>;
    E* pa = w.arr;
    E* pb = w.arr + F;
    padTo(a, n1, pa, F);
    if constexpr (X::kCplx) {
        if (VrxStatus st = X::fwdI(pa, w.plan, w.work)) return st;
        X::conj(pa, pb, F);  // conj(A) in the second array; the first takes b
        X::zero(pa, n1 - 1);
        padTo(b, n2, pa + n1 - 1, F - (n1 - 1));
        if (VrxStatus st = X::fwdI(pa, w.plan, w.work)) return st;
        X::mul(pb, pa, pa, F);
        if (VrxStatus st = X::invI(pa, w.plan, w.work)) return st;
    } else {
        X::zero(pb, n1 - 1);
        padTo(b, n2, pb + n1 - 1, F - (n1 - 1));
        if (VrxStatus st = X::fwdPackI(pa, w.plan, w.work)) return st;
        if (VrxStatus st = X::fwdPackI(pb, w.plan, w.work)) return st;
        if (VrxStatus st = X::mulPackConjI(pb, pa, F)) return st;  // B conj(A)
        if (VrxStatus st = X::invPackI(pa, w.plan, w.work)) return st;
    }
    X::copy(pa + (lo + n1 - 1), out, D);
    return vrxOk;
}

// Overlap-save: G[j] = sum_n conj(k[n]) x[n+j] of the kernel k (the shorter
// vector, length nk) over the signal x (length nx), for j = j0 .. j0+D-1,
// into out, in segments of F samples of x stepping by P = F-nk+1. The
// segment of x from s, zero outside x, gives G[s .. s+P-1].
template <class E>
VrxStatus crossSegments(const FftWork<E>& w, int F, const E* k, int nk, const E* x, int nx, E* out, i64 j0, int D) {
    using X = Fft<E>;
    E* kern = w.arr;
    E* seg = w.arr + F;
    // The kernel spectrum, once: real as it is (the product conjugates the
    // segment), complex conjugated into its own array.
    if constexpr (X::kCplx) {
        padTo(k, nk, seg, F);
        if (VrxStatus st = X::fwdI(seg, w.plan, w.work)) return st;
        X::conj(seg, kern, F);
    } else {
        padTo(k, nk, kern, F);
        if (VrxStatus st = X::fwdPackI(kern, w.plan, w.work)) return st;
    }
    const int P = F - nk + 1;
    for (i64 done = 0; done < D; done += P) {
        const i64 s = j0 + done;
        const int cnt = static_cast<int>(min64(P, D - done));
        // Samples of x at s .. s+F-1; zeros where the lags reach outside x.
        const i64 from = max64(s, 0), to = min64(s + F, nx);
        const bool inside = from == s && to == s + F;
        VrxStatus st;
        if (!inside) {
            const int lead = static_cast<int>(min64(from - s, F));
            const int body = static_cast<int>(max64(to - from, 0));
            X::zero(seg, lead);
            padTo(x + from, body, seg + lead, F - lead);
        }
        if constexpr (X::kCplx) {
            st = inside ? X::fwd(x + s, seg, w.plan, w.work) : X::fwdI(seg, w.plan, w.work);
            if (st) return st;
            X::mul(kern, seg, seg, F);
            if ((st = X::invI(seg, w.plan, w.work))) return st;
            X::copy(seg, out + done, cnt);
        } else {
            st = inside ? X::fwdPack(x + s, seg, w.plan, w.work) : X::fwdPackI(seg, w.plan, w.work);
            if (st) return st;
            // K conj(S): the inverse holds G[s+u] at (F-u) mod F. Reversing
            // the positions nk .. F-1 and putting G[s] in front of them makes
            // the run ascend from nk-1.
            if ((st = X::mulPackConjI(kern, seg, F))) return st;
            if ((st = X::invPackI(seg, w.plan, w.work))) return st;
            X::flip(seg + nk, F - nk);
            seg[nk - 1] = seg[0];
            X::copy(seg + nk - 1, out + done, cnt);
        }
    }
    return vrxOk;
}

template <class E>
VrxStatus crossFft(const E* a, int n1, const E* b, int n2, E* out, i64 lo, int D, const ConvPath& path,
                   Vrx8u* pBuffer) {
    using X = Fft<E>;
    FftWork<E> w;
    if (VrxStatus st = openWork(pBuffer, path.order, &w)) return st;
    const int F = 1 << path.order;
    if (path.single) return crossSingle(w, F, a, n1, b, n2, out, lo, D);
    if (n1 <= n2) return crossSegments(w, F, a, n1, b, n2, out, lo, D);  // R[lag] = G[lag]
    // a is the longer: R[lag] = conj(G[-lag]), computed over ascending -lag,
    // then reversed (and conjugated).
    if (VrxStatus st = crossSegments(w, F, b, n2, a, n1, out, -(lo + D - 1), D)) return st;
    X::flip(out, D);
    if constexpr (X::kCplx) X::conjI(out, D);
    return vrxOk;
}

template <class E>
VrxStatus crossCorr(const E* pSrc1, int src1Len, const E* pSrc2, int src2Len, E* pDst, int dstLen, int lowLag,
                    VrxAlgType algType, Vrx8u* pBuffer) {
    using X = Fft<E>;
    using S = ScalarOf<E>;
    if (anyNull(pSrc1, pSrc2, pDst, pBuffer)) return vrxErrNullPtr;
    if (src1Len < 1 || src2Len < 1 || dstLen < 1) return vrxErrBadLength;
    const int alg = algOf(algType);
    if (alg > vrxAlgFFT) return vrxErrAlgType;
    // Lags outside the overlap are zero.
    const LagRange r = lagRange(src1Len, src2Len, dstLen, lowLag);
    X::zero(pDst, static_cast<int>(r.front));
    X::zero(pDst + r.front + r.D, static_cast<int>(dstLen - r.front - r.D));
    if (r.D == 0) return vrxOk;
    E* out = pDst + r.front;
    const int D = static_cast<int>(r.D);
    const ConvPath path = corrPath(src1Len, src2Len, D, alg, Thr<E>::kCross);
    if (path.fft) {
        if (VrxStatus st = crossFft(pSrc1, src1Len, pSrc2, src2Len, out, r.lo, D, path, pBuffer)) return st;
    } else {
        directRun<S, X::kCplx, false>(sc(pSrc1), src1Len, sc(pSrc2), 0, src2Len, r.lo, sc(out), D);
    }
    const int mn = src1Len < src2Len ? src1Len : src2Len;
    switch (normOf(algType)) {
    case 0: return vrxOk;
    case 1: X::scale(S(1) / S(mn), out, D); return vrxOk;
    case 2:
        // Products per lag: rising over the growing overlap, mn in the full
        // one, falling over the shrinking one.
        for (int k = 0; k < D; ++k) {
            const i64 lag = r.lo + k;
            const i64 cnt = min64(src1Len, i64(src2Len) - lag) - max64(0, -lag);
            divideAt(out, k, S(cnt));
        }
        return vrxOk;
    default: return vrxErrAlgType;
    }
}

// --------------------------------------------------------------- size queries
VRX_INLINE bool badAlg(VrxAlgType t) { return algOf(t) > vrxAlgFFT || normOf(t) > 2; }

template <class E>
VrxStatus autoSize(int srcLen, int dstLen, int alg, int* pSize) {
    const int m = srcLen < dstLen ? srcLen : dstLen;
    if (!autoUsesFft(alg, m, Thr<E>::kAuto)) {
        *pSize = kDirectBytes;
        return vrxOk;
    }
    const int order = ceilLog2(2 * i64(srcLen));
    const i64 F = i64(1) << order;
    return fftBytes<E>(order, F * i64(sizeof(E)) * (Fft<E>::kCplx ? 2 : 1), pSize);
}

template <class E>
VrxStatus crossSize(int n1, int n2, int dstLen, int lowLag, int alg, int* pSize) {
    const LagRange r = lagRange(n1, n2, dstLen, lowLag);
    const ConvPath path = r.D ? corrPath(n1, n2, r.D, alg, Thr<E>::kCross) : ConvPath{};
    if (!path.fft) {
        *pSize = kDirectBytes;
        return vrxOk;
    }
    const i64 F = i64(1) << path.order;
    return fftBytes<E>(path.order, 2 * F * i64(sizeof(E)), pSize);
}

// The query body for the element type that dataType names; an unknown type
// zeroes the size and returns -12.
template <class F>
VRX_INLINE VrxStatus byType(int dataType, int* pSize, F f) {
    switch (dataType) {
    case vrx32f: return f(static_cast<Vrx32f*>(nullptr));
    case vrx64f: return f(static_cast<Vrx64f*>(nullptr));
    case vrx32fc: return f(static_cast<Vrx32fc*>(nullptr));
    case vrx64fc: return f(static_cast<Vrx64fc*>(nullptr));
    default: *pSize = 0; return vrxErrDataType;
    }
}

}  // namespace

VrxStatus N0(vrxsAutoCorrNorm_32f)(const Vrx32f* pSrc, int srcLen, Vrx32f* pDst, int dstLen, VrxAlgType algType,
                                   Vrx8u* pBuffer) {
    return autoCorr(pSrc, srcLen, pDst, dstLen, algType, pBuffer);
}
VrxStatus N0(vrxsAutoCorrNorm_64f)(const Vrx64f* pSrc, int srcLen, Vrx64f* pDst, int dstLen, VrxAlgType algType,
                                   Vrx8u* pBuffer) {
    return autoCorr(pSrc, srcLen, pDst, dstLen, algType, pBuffer);
}
VrxStatus N0(vrxsAutoCorrNorm_32fc)(const Vrx32fc* pSrc, int srcLen, Vrx32fc* pDst, int dstLen, VrxAlgType algType,
                                    Vrx8u* pBuffer) {
    return autoCorr(pSrc, srcLen, pDst, dstLen, algType, pBuffer);
}
VrxStatus N0(vrxsAutoCorrNorm_64fc)(const Vrx64fc* pSrc, int srcLen, Vrx64fc* pDst, int dstLen, VrxAlgType algType,
                                    Vrx8u* pBuffer) {
    return autoCorr(pSrc, srcLen, pDst, dstLen, algType, pBuffer);
}

VrxStatus N0(vrxsCrossCorrNorm_32f)(const Vrx32f* pSrc1, int src1Len, const Vrx32f* pSrc2, int src2Len, Vrx32f* pDst,
                                    int dstLen, int lowLag, VrxAlgType algType, Vrx8u* pBuffer) {
    return crossCorr(pSrc1, src1Len, pSrc2, src2Len, pDst, dstLen, lowLag, algType, pBuffer);
}
VrxStatus N0(vrxsCrossCorrNorm_64f)(const Vrx64f* pSrc1, int src1Len, const Vrx64f* pSrc2, int src2Len, Vrx64f* pDst,
                                    int dstLen, int lowLag, VrxAlgType algType, Vrx8u* pBuffer) {
    return crossCorr(pSrc1, src1Len, pSrc2, src2Len, pDst, dstLen, lowLag, algType, pBuffer);
}
VrxStatus N0(vrxsCrossCorrNorm_32fc)(const Vrx32fc* pSrc1, int src1Len, const Vrx32fc* pSrc2, int src2Len,
                                     Vrx32fc* pDst, int dstLen, int lowLag, VrxAlgType algType, Vrx8u* pBuffer) {
    return crossCorr(pSrc1, src1Len, pSrc2, src2Len, pDst, dstLen, lowLag, algType, pBuffer);
}
VrxStatus N0(vrxsCrossCorrNorm_64fc)(const Vrx64fc* pSrc1, int src1Len, const Vrx64fc* pSrc2, int src2Len,
                                     Vrx64fc* pDst, int dstLen, int lowLag, VrxAlgType algType, Vrx8u* pBuffer) {
    return crossCorr(pSrc1, src1Len, pSrc2, src2Len, pDst, dstLen, lowLag, algType, pBuffer);
}

// The queries take the branch of the run function; they refuse a bad
// algType byte at once, before the data type.
VrxStatus N0(vrxsAutoCorrNormGetBufferSize)(int srcLen, int dstLen, int dataType, VrxAlgType algType, int* pBufferSize) {
    if (!pBufferSize) return vrxErrNullPtr;
    if (srcLen < 1 || dstLen < 1) return vrxErrBadLength;
    if (badAlg(algType)) return vrxErrAlgType;
    return byType(dataType, pBufferSize, [&]<class E>(E*) {
        return autoSize<E>(srcLen, dstLen, algOf(algType), pBufferSize);
    });
}

VrxStatus N0(vrxsCrossCorrNormGetBufferSize)(int src1Len, int src2Len, int dstLen, int lowLag, int dataType,
                                             VrxAlgType algType, int* pBufferSize) {
    if (!pBufferSize) return vrxErrNullPtr;
    if (src1Len < 1 || src2Len < 1 || dstLen < 1) return vrxErrBadLength;
    if (badAlg(algType)) return vrxErrAlgType;
    return byType(dataType, pBufferSize, [&]<class E>(E*) {
        return crossSize<E>(src1Len, src2Len, dstLen, lowLag, algOf(algType), pBufferSize);
    });
}
