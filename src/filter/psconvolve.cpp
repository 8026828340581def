// Linear convolution of two whole vectors: a direct lag-parallel kernel, or
// real FFTs over Perm spectra, one transform pair or overlap-save; and the
// biased convolution that reads its second vector from behind its start.
#include "psconv_own.h"

using namespace n0;
using namespace n0::conv;

namespace {

// Single transform: signal and kernel zero-padded to F, both forward, the
// product, inverse, T outputs.
template <class T>
VrxStatus convSingle(const FftWork<T>& w, int F, const T* x, int L, const T* h, int S, T* dst, int T_) {
    using X = Fft<T>;
    T* a = w.arr;
    T* b = w.arr + F;
    padTo(x, L, a, F);
    padTo(h, S, b, F);
    if (VrxStatus st = X::fwdPermI(b, w.plan, w.work)) return st;
    if (VrxStatus st = X::fwdPermI(a, w.plan, w.work)) return st;
    if (VrxStatus st = X::mulPermI(b, a, F)) return st;
    if (VrxStatus st = X::invPermI(a, w.plan, w.work)) return st;
    X::copy(a, dst, T_);
    return vrxOk;
}

// Overlap-save with step P = F-S+1: the kernel spectrum once, then per
// segment at output offset o the samples from o-h (h = 0 first, S-1 after),
// zero-padded; a full window is transformed straight from the signal.
template <class T>
VrxStatus convSegments(const FftWork<T>& w, int F, const T* x, int L, const T* h, int S, T* dst, int T_) {
    using X = Fft<T>;
    T* kern = w.arr;
    T* seg = w.arr + F;
    padTo(h, S, kern, F);
    if (VrxStatus st = X::fwdPermI(kern, w.plan, w.work)) return st;
    const int P = F - S + 1;
    for (int o = 0; o < T_; o += P) {
        const int hd = o ? S - 1 : 0;
        const int c = static_cast<int>(min64(min64(L, i64(L) - o + hd), i64(P) + hd));
        const T* from = x + (o - hd);
        VrxStatus st;
        if (c == F) {
            st = X::fwdPerm(from, seg, w.plan, w.work);
        } else {
            padTo(from, c, seg, F);
            st = X::fwdPermI(seg, w.plan, w.work);
        }
        if (st) return st;
        if ((st = X::mulPermI(kern, seg, F))) return st;
        if ((st = X::invPermI(seg, w.plan, w.work))) return st;
        X::copy(seg + hd, dst + o, static_cast<int>(min64(i64(T_) - o, P)));
    }
    return vrxOk;
}

template <class T>
VrxStatus convolve(const T* s1, int n1, const T* s2, int n2, T* dst, VrxAlgType algType, Vrx8u* pBuffer) {
    if (anyNull(s1, s2, dst, pBuffer)) return vrxErrNullPtr;
    if (n1 < 1 || n2 < 1) return vrxErrBadLength;
    const int alg = algOf(algType);
    if (alg > vrxAlgFFT) return vrxErrAlgType;
    // The longer vector is the signal, pSrc1 on a tie.
    const T* x = s1;
    const T* h = s2;
    int L = n1, S = n2;
    if (n2 > n1) {
        x = s2, h = s1;
        L = n2, S = n1;
    }
    const i64 T_ = i64(L) + S - 1;
    const ConvPath path = convPath(n1, n2, alg);
    if (!path.fft) {
        directRun<T, false, true>(h, S, x, 0, L, -(i64(S) - 1), dst, T_);
        return vrxOk;
    }
    FftWork<T> w;
    if (VrxStatus st = openWork(pBuffer, path.order, &w)) return st;
    const int F = 1 << path.order;
    return path.single ? convSingle(w, F, x, L, h, S, dst, static_cast<int>(T_))
                       : convSegments(w, F, x, L, h, S, dst, static_cast<int>(T_));
}

}  // namespace

VrxStatus N0(vrxsConvolve_32f)(const Vrx32f* pSrc1, int src1Len, const Vrx32f* pSrc2, int src2Len, Vrx32f* pDst,
                               VrxAlgType algType, Vrx8u* pBuffer) {
    return convolve(pSrc1, src1Len, pSrc2, src2Len, pDst, algType, pBuffer);
}
VrxStatus N0(vrxsConvolve_64f)(const Vrx64f* pSrc1, int src1Len, const Vrx64f* pSrc2, int src2Len, Vrx64f* pDst,
                               VrxAlgType algType, Vrx8u* pBuffer) {
    return convolve(pSrc1, src1Len, pSrc2, src2Len, pDst, algType, pBuffer);
}

VrxStatus N0(vrxsConvolveGetBufferSize)(int src1Len, int src2Len, int dataType, VrxAlgType algType, int* pBufferSize) {
    if (!pBufferSize) return vrxErrNullPtr;
    if (src1Len < 1 || src2Len < 1) return vrxErrBadLength;
    const int alg = algOf(algType);
    if (alg > vrxAlgFFT) return vrxErrAlgType;
    if (dataType != vrx32f && dataType != vrx64f) {
        *pBufferSize = 0;
        return vrxErrDataType;
    }
    const ConvPath path = convPath(src1Len, src2Len, alg);
    if (!path.fft) {
        *pBufferSize = kDirectBytes;
        return vrxOk;
    }
    const i64 F = i64(1) << path.order;
    return dataType == vrx32f ? fftBytes<Vrx32f>(path.order, 2 * F * 4, pBufferSize)
                              : fftBytes<Vrx64f>(path.order, 2 * F * 8, pBufferSize);
}

// pSrc2 is usable on the indices -bias .. src2Len-bias-1: the direct kernel
// with that range gives every shape, the equal-length triangle included.
VrxStatus N0(vrxsConvBiased_32f)(const Vrx32f* pSrc1, int src1Len, const Vrx32f* pSrc2, int src2Len, Vrx32f* pDst,
                                 int dstLen, int bias) {
    if (anyNull(pSrc1, pSrc2, pDst)) return vrxErrNullPtr;
    if (src1Len < 1 || src2Len < 1 || dstLen < 1) return vrxErrBadLength;
    directRun<Vrx32f, false, true>(pSrc1, src1Len, pSrc2, -i64(bias), i64(src2Len) - bias, -(i64(src1Len) - 1), pDst,
                                   dstLen);
    return vrxOk;
}
