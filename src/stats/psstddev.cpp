// StdDev and MeanStdDev: the sample deviation (divisor n - 1) from one pass
// with a sum S and a sum of squares Q, no mean subtracted first:
//     sqrt(max(Q n - S S, 0) / (n (n - 1))),
// where the max turns a NaN numerator into 0. Length must be at least 2.
#include "vrx_reduce.h"

using namespace n0;
using namespace n0::red;

namespace {

VRX_INLINE VrxStatus checkDev(int len, const void* a, const void* b, const void* c = "") {
    if (anyNull(a, b, c)) return vrxErrNullPtr;
    return len < 2 ? vrxErrBadLength : vrxOk;
}

// ------------------------------------------------------------------ 32f
// StdDev_32f: Q by fused multiply-add. Fast: the head up to the 32-byte
// boundary in double seeds d0, the body in blocked single precision
// (fastSumSq2). Accurate: the head up to the 16-byte boundary, then every
// value, in double. A source off a 4-byte boundary takes the Accurate path.
void sumSq32f(const float* p, size_t n, VrxAlgHint hint, double* S, double* Q) {
    const bool fast = hint == vrxAlgHintFast && (addr(p) & 3) == 0;
    size_t h = fast ? headTo32(p, n) : ((16 - (addr(p) & 15)) & 15) / sizeof(float);
    if (h > n) h = n;
    double s = 0.0, q = 0.0;
    for (size_t i = 0; i < h; ++i) {
        const double x = p[i];
        s += x;
        q = __builtin_fma(x, x, q);
    }
    if (fast) {
        simd::Total4 dS = simd::total4(s), dQ = simd::total4(q);
        fastSumSq2(p + h, n - h, dS, dQ);
        *S = total4Sum(dS);
        *Q = total4Sum(dQ);
        return;
    }
    D::R vs, vq;
    sumWidened<true, true>(p + h, n - h, vs, vq);
    *S = s + D::reduceAdd(vs);
    *Q = q + D::reduceAdd(vq);
}

// ------------------------------------------------------------------ 16s
// S and Q exact; then in double: the deviation times 2^-sf bounded above
// by 2^31 - 1, the mean (S / n) 2^-sf bounded on both sides; both
// converted in the caller's rounding mode.
void dev16s(const Vrx16s* p, int n, int sf, int32_t* mean, int32_t* dev) {
    int64_t S;
    uint64_t Q;
    sumSq16s(p, n, &S, &Q);
    const double s = static_cast<double>(S), q = static_cast<double>(Q), dn = n;
    const double m = pow2Neg(sf);
    double num = q * dn - s * s;
    if (num < 0.0) num = 0.0;
    *dev = cvtCurrent(minHi(__builtin_sqrt(num / (dn * (dn - 1.0))) * m, 2147483647.0));
    if (mean) *mean = cvtCurrent(maxLo(minHi((s / dn) * m, 2147483647.0), -2147483648.0));
}

// Double S and Q (squares formed and added separately).
void sumSq64f(const double* p, int n, double* S, double* Q) {
    D::R vs, vq;
    sumDouble<true>(p, n, vs, vq);
    *S = D::reduceAdd(vs);
    *Q = D::reduceAdd(vq);
}

double devDouble(double S, double Q, int n) {
    const double dn = n;
    return __builtin_sqrt(posOrZero(Q * dn - S * S) / (dn * (dn - 1.0)));
}

}  // namespace

// Numerator and denominator rounded to single, then a single-precision
// division and root.
VrxStatus N0(vrxsStdDev_32f)(const Vrx32f* pSrc, int len, Vrx32f* pStdDev, VrxAlgHint hint) {
    if (VrxStatus st = checkDev(len, pSrc, pStdDev)) return st;
    double S, Q;
    sumSq32f(pSrc, len, hint, &S, &Q);
    const double dn = len;
    const float num = static_cast<float>(posOrZero(Q * dn - S * S));
    const float den = static_cast<float>(dn * (dn - 1.0));
    *pStdDev = __builtin_sqrtf(num / den);
    return vrxOk;
}
// Whatever the hint: double, squares without fusion, rounded at the end.
VrxStatus N0(vrxsMeanStdDev_32f)(const Vrx32f* pSrc, int len, Vrx32f* pMean, Vrx32f* pStdDev, VrxAlgHint hint) {
    if (VrxStatus st = checkDev(len, pSrc, pMean, pStdDev)) return st;
    D::R vs, vq;
    sumWidened<true, false>(pSrc, len, vs, vq);
    const double S = D::reduceAdd(vs), Q = D::reduceAdd(vq);
    const float mean = static_cast<float>(S / len), dev = static_cast<float>(devDouble(S, Q, len));
    *pMean = mean;
    *pStdDev = dev;
    return vrxOk;
}
VrxStatus N0(vrxsStdDev_64f)(const Vrx64f* pSrc, int len, Vrx64f* pStdDev) {
    if (VrxStatus st = checkDev(len, pSrc, pStdDev)) return st;
    double S, Q;
    sumSq64f(pSrc, len, &S, &Q);
    *pStdDev = devDouble(S, Q, len);
    return vrxOk;
}
VrxStatus N0(vrxsMeanStdDev_64f)(const Vrx64f* pSrc, int len, Vrx64f* pMean, Vrx64f* pStdDev) {
    if (VrxStatus st = checkDev(len, pSrc, pMean, pStdDev)) return st;
    double S, Q;
    sumSq64f(pSrc, len, &S, &Q);
    const double dev = devDouble(S, Q, len);
    *pMean = S / len;
    *pStdDev = dev;
    return vrxOk;
}
VrxStatus N0(vrxsStdDev_16s32s_Sfs)(const Vrx16s* pSrc, int len, Vrx32s* pStdDev, int scaleFactor) {
    if (VrxStatus st = checkDev(len, pSrc, pStdDev)) return st;
    int32_t dev;
    dev16s(pSrc, len, scaleFactor, nullptr, &dev);
    *pStdDev = dev;
    return vrxOk;
}
// The 32-bit deviation capped at 32767.
VrxStatus N0(vrxsStdDev_16s_Sfs)(const Vrx16s* pSrc, int len, Vrx16s* pStdDev, int scaleFactor) {
    if (VrxStatus st = checkDev(len, pSrc, pStdDev)) return st;
    int32_t dev;
    dev16s(pSrc, len, scaleFactor, nullptr, &dev);
    *pStdDev = static_cast<Vrx16s>(dev > 32767 ? 32767 : dev);
    return vrxOk;
}
VrxStatus N0(vrxsMeanStdDev_16s32s_Sfs)(const Vrx16s* pSrc, int len, Vrx32s* pMean, Vrx32s* pStdDev, int scaleFactor) {
    if (VrxStatus st = checkDev(len, pSrc, pMean, pStdDev)) return st;
    int32_t mean, dev;
    dev16s(pSrc, len, scaleFactor, &mean, &dev);
    *pMean = mean;
    *pStdDev = dev;
    return vrxOk;
}
// Both 32-bit results saturated to 16 bits.
VrxStatus N0(vrxsMeanStdDev_16s_Sfs)(const Vrx16s* pSrc, int len, Vrx16s* pMean, Vrx16s* pStdDev, int scaleFactor) {
    if (VrxStatus st = checkDev(len, pSrc, pMean, pStdDev)) return st;
    int32_t mean, dev;
    dev16s(pSrc, len, scaleFactor, &mean, &dev);
    *pMean = saturate<Vrx16s>(mean);
    *pStdDev = saturate<Vrx16s>(dev);
    return vrxOk;
}
