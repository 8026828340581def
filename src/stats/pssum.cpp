// Sum and Mean. Single-precision sources have two paths chosen by the hint
// (1: blocked single-precision Fast path; anything else: every value
// widened to double); 16-bit sums are exact and scaled once through a
// double; 32-bit sums are exact in 64 bits and scaled by integer rules.
#include "vrx_reduce.h"

using namespace n0;
using namespace n0::red;

namespace {

// ------------------------------------------------------------ 32f, 32fc
// Fast path: the head up to the 32-byte boundary summed in single
// precision seeds d0; the body runs in blocks (fastSum4).
double sum32fFast(const float* p, size_t n) {
    const size_t h = headTo32(p, n);
    float t = 0.0f;
    for (size_t i = 0; i < h; ++i) t += p[i];
    return total4Sum(fastSum4(p + h, n - h, simd::total4(t)));
}

double sum32fAccur(const float* p, size_t n) {
    D::R s, q;
    sumWidened<false, false>(p, n, s, q);
    return D::reduceAdd(s);
}

// The 32f total, rounded to single precision and back (so Mean divides a
// rounded sum). A source off a 4-byte boundary takes the Accurate path.
double sum32f(const float* p, size_t n, VrxAlgHint hint) {
    const bool fast = hint == vrxAlgHintFast && (addr(p) & 3) == 0;
    return static_cast<double>(static_cast<float>(fast ? sum32fFast(p, n) : sum32fAccur(p, n)));
}

// The complex Fast path: the same blocking over the 2n interleaved values.
// The head's values alternate into a real and an imaginary single total;
// after a head of odd length the body's even lanes carry imaginary parts,
// so the seeds go into the lanes of their parity, and each part is the sum
// of its two double lanes.
void sum32fcFast(const float* p, size_t cnt, double* re, double* im) {
    const size_t h = headTo32(p, cnt);
    float t[2] = {0.0f, 0.0f};
    for (size_t i = 0; i < h; ++i) t[i & 1] += p[i];
    const size_t a = h & 1;
    simd::Total4 d = simd::total4(a ? t[1] : t[0], a ? t[0] : t[1]);
    alignas(32) double l[4];
    simd::storeTotal4(l, fastSum4(p + h, cnt - h, d));
    *re = l[a] + l[a + 2];
    *im = l[1 - a] + l[3 - a];
}

// Unrounded double totals of the two parts.
void sum32fc(const Vrx32fc* src, size_t n, VrxAlgHint hint, double* re, double* im) {
    const float* p = reinterpret_cast<const float*>(src);
    if (hint == vrxAlgHintFast && (addr(p) & 3) == 0) return sum32fcFast(p, 2 * n, re, im);
    D::R s, q;
    sumWidened<false, false>(p, 2 * n, s, q);
    D::reduceAdd2(s, re, im);
}

// --------------------------------------------------------- 16s, 16sc
// The exact total S times 2^-sf, bounded above then below, converted in the
// caller's rounding mode.
int32_t scale16sSum(double S, int sf) {
    return cvtCurrent(maxLo(minHi(S * pow2Neg(sf), 2147483647.0), -2147483648.0));
}

double exact16s(const Vrx16s* p, size_t n) { return static_cast<double>(sum16sAll(p, n)); }

void exact16sc(const Vrx16sc* p, size_t n, double* re, double* im) {
    int64_t e, o;
    sum16s(reinterpret_cast<const int16_t*>(p), 2 * n, &e, &o);
    *re = static_cast<double>(e);
    *im = static_cast<double>(o);
}

// --------------------------------------------------------------- 32s
// |x| / n rounded to nearest, ties to even, by integer division.
uint64_t roundDiv(uint64_t x, uint64_t n) {
    uint64_t q = x / n, r = x % n;
    if (2 * r > n) ++q;
    else if (2 * r == n) q += q & 1;
    return q;
}

int32_t satSigned(bool neg, uint64_t v) {
    const int64_t s = neg ? -static_cast<int64_t>(v) : static_cast<int64_t>(v);
    return saturate<int32_t>(s);
}

// The mean of 32-bit values. For sf >= 0 the rounded mean q becomes
// (q + b) >> sf with b = bit sf-1 of q, added at the lowest bit: rounding
// only for sf 1, a truncation otherwise except where the low sf bits are
// all ones. The sign goes back on and the low 32 bits are stored.
int32_t mean32s(int64_t S, int n, int sf) {
    const bool neg = S < 0;
    const uint64_t mag = neg ? 0 - static_cast<uint64_t>(S) : static_cast<uint64_t>(S);
    const uint64_t un = static_cast<uint64_t>(n);
    if (sf >= 0) {
        uint64_t q = roundDiv(mag, un);
        if (sf > 40) q = 0;
        else if (sf > 0) q = (q + ((q >> (sf - 1)) & 1)) >> sf;
        return static_cast<int32_t>(static_cast<uint32_t>(neg ? 0 - q : q));
    }
    if (sf > -32) {
        const int m = -sf;
        if (S >= kI32Min && S <= kI32Max) return satSigned(neg, roundDiv(mag << m, un));
        return satSigned(neg, roundDiv(mag, un) << m);
    }
    const uint64_t q = roundDiv(mag, un);
    return q == 0 ? 0 : (neg ? kI32Min : kI32Max);
}

// sf > 0: ties to even with the shift limited to 63; sf < 0: a saturating
// shift by up to 31.
int32_t scale32sSum(int64_t S, int sf) {
    if (sf > 0) return saturate<int32_t>(roundShiftEven<int64_t>(S, sf > 63 ? 63 : sf));
    if (sf < 0) return shiftLeftSaturate<int32_t>(S, negClamp(sf, 31));
    return saturate<int32_t>(S);
}

}  // namespace

// ------------------------------------------------------------------ Sum
VrxStatus N0(vrxsSum_32f)(const Vrx32f* pSrc, int len, Vrx32f* pSum, VrxAlgHint hint) {
    if (VrxStatus st = checkArgs(len, pSrc, pSum)) return st;
    *pSum = static_cast<float>(sum32f(pSrc, len, hint));
    return vrxOk;
}
VrxStatus N0(vrxsSum_32fc)(const Vrx32fc* pSrc, int len, Vrx32fc* pSum, VrxAlgHint hint) {
    if (VrxStatus st = checkArgs(len, pSrc, pSum)) return st;
    double re, im;
    sum32fc(pSrc, len, hint, &re, &im);
    pSum->re = static_cast<float>(re);
    pSum->im = static_cast<float>(im);
    return vrxOk;
}
VrxStatus N0(vrxsSum_64f)(const Vrx64f* pSrc, int len, Vrx64f* pSum) {
    if (VrxStatus st = checkArgs(len, pSrc, pSum)) return st;
    D::R s, q;
    sumDouble<false>(pSrc, len, s, q);
    *pSum = D::reduceAdd(s);
    return vrxOk;
}
VrxStatus N0(vrxsSum_64fc)(const Vrx64fc* pSrc, int len, Vrx64fc* pSum) {
    if (VrxStatus st = checkArgs(len, pSrc, pSum)) return st;
    D::R s, q;
    sumDouble<false>(reinterpret_cast<const double*>(pSrc), 2 * size_t(len), s, q);
    double re, im;
    D::reduceAdd2(s, &re, &im);
    pSum->re = re;
    pSum->im = im;
    return vrxOk;
}
VrxStatus N0(vrxsSum_16s32s_Sfs)(const Vrx16s* pSrc, int len, Vrx32s* pSum, int scaleFactor) {
    if (VrxStatus st = checkArgs(len, pSrc, pSum)) return st;
    *pSum = scale16sSum(exact16s(pSrc, len), scaleFactor);
    return vrxOk;
}
VrxStatus N0(vrxsSum_16s_Sfs)(const Vrx16s* pSrc, int len, Vrx16s* pSum, int scaleFactor) {
    if (VrxStatus st = checkArgs(len, pSrc, pSum)) return st;
    *pSum = saturate<Vrx16s>(scale16sSum(exact16s(pSrc, len), scaleFactor));
    return vrxOk;
}
VrxStatus N0(vrxsSum_16sc32sc_Sfs)(const Vrx16sc* pSrc, int len, Vrx32sc* pSum, int scaleFactor) {
    if (VrxStatus st = checkArgs(len, pSrc, pSum)) return st;
    double re, im;
    exact16sc(pSrc, len, &re, &im);
    const int32_t r = scale16sSum(re, scaleFactor), i = scale16sSum(im, scaleFactor);
    pSum->re = r;
    pSum->im = i;
    return vrxOk;
}
VrxStatus N0(vrxsSum_16sc_Sfs)(const Vrx16sc* pSrc, int len, Vrx16sc* pSum, int scaleFactor) {
    if (VrxStatus st = checkArgs(len, pSrc, pSum)) return st;
    double re, im;
    exact16sc(pSrc, len, &re, &im);
    const int32_t r = scale16sSum(re, scaleFactor), i = scale16sSum(im, scaleFactor);
    pSum->re = saturate<Vrx16s>(r);
    pSum->im = saturate<Vrx16s>(i);
    return vrxOk;
}
VrxStatus N0(vrxsSum_32s_Sfs)(const Vrx32s* pSrc, int len, Vrx32s* pSum, int scaleFactor) {
    if (VrxStatus st = checkArgs(len, pSrc, pSum)) return st;
    *pSum = scale32sSum(sum32s(pSrc, len), scaleFactor);
    return vrxOk;
}

// ----------------------------------------------------------------- Mean
VrxStatus N0(vrxsMean_32f)(const Vrx32f* pSrc, int len, Vrx32f* pMean, VrxAlgHint hint) {
    if (VrxStatus st = checkArgs(len, pSrc, pMean)) return st;
    *pMean = static_cast<float>(sum32f(pSrc, len, hint) / len);
    return vrxOk;
}
VrxStatus N0(vrxsMean_32fc)(const Vrx32fc* pSrc, int len, Vrx32fc* pMean, VrxAlgHint hint) {
    if (VrxStatus st = checkArgs(len, pSrc, pMean)) return st;
    double re, im;
    sum32fc(pSrc, len, hint, &re, &im);
    pMean->re = static_cast<float>(re / len);
    pMean->im = static_cast<float>(im / len);
    return vrxOk;
}
VrxStatus N0(vrxsMean_64f)(const Vrx64f* pSrc, int len, Vrx64f* pMean) {
    if (VrxStatus st = checkArgs(len, pSrc, pMean)) return st;
    D::R s, q;
    sumDouble<false>(pSrc, len, s, q);
    *pMean = D::reduceAdd(s) / len;
    return vrxOk;
}
// Both parts times one reciprocal 1/n.
VrxStatus N0(vrxsMean_64fc)(const Vrx64fc* pSrc, int len, Vrx64fc* pMean) {
    if (VrxStatus st = checkArgs(len, pSrc, pMean)) return st;
    D::R s, q;
    sumDouble<false>(reinterpret_cast<const double*>(pSrc), 2 * size_t(len), s, q);
    double re, im;
    D::reduceAdd2(s, &re, &im);
    const double r = 1.0 / len;
    pMean->re = re * r;
    pMean->im = im * r;
    return vrxOk;
}
// Divide first, then scale; bounded below, then above.
VrxStatus N0(vrxsMean_16s_Sfs)(const Vrx16s* pSrc, int len, Vrx16s* pMean, int scaleFactor) {
    if (VrxStatus st = checkArgs(len, pSrc, pMean)) return st;
    const double v = (exact16s(pSrc, len) / len) * pow2Neg(scaleFactor);
    *pMean = static_cast<Vrx16s>(cvtCurrent(minHi(maxLo(v, -32768.0), 32767.0)));
    return vrxOk;
}
// Scale first, then divide; bounded above, then below.
VrxStatus N0(vrxsMean_16sc_Sfs)(const Vrx16sc* pSrc, int len, Vrx16sc* pMean, int scaleFactor) {
    if (VrxStatus st = checkArgs(len, pSrc, pMean)) return st;
    double re, im;
    exact16sc(pSrc, len, &re, &im);
    const double m = pow2Neg(scaleFactor);
    const int32_t r = cvtCurrent(maxLo(minHi((re * m) / len, 32767.0), -32768.0));
    const int32_t i = cvtCurrent(maxLo(minHi((im * m) / len, 32767.0), -32768.0));
    pMean->re = static_cast<Vrx16s>(r);
    pMean->im = static_cast<Vrx16s>(i);
    return vrxOk;
}
VrxStatus N0(vrxsMean_32s_Sfs)(const Vrx32s* pSrc, int len, Vrx32s* pMean, int scaleFactor) {
    if (VrxStatus st = checkArgs(len, pSrc, pMean)) return st;
    *pMean = mean32s(sum32s(pSrc, len), len, scaleFactor);
    return vrxOk;
}
