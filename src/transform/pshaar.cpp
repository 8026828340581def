// One-step Haar transforms without state.
//
// Floats: high = (x[2i+1] - x[2i]) * 0.5, low = high + x[2i] (not the mean
// of the pair: the bits differ); inverse x[2i] = low - high,
// x[2i+1] = low + high. An odd length carries its last sample as a low
// value with no high value.
//
// 16-bit: s = x[2i] + x[2i+1] and d = x[2i+1] - x[2i] in 32 bits, scaled by
// 2^-(sf+1) forward and by 2^-sf inverse, ties to even, saturated. Both
// sums lie in [-65536, 65535], so a factor above 16 gives 0 and one below
// -15 gives the bound of the sign: those are the two shortcuts.
#include "vrx_base.h"
#include "vrx_scale.h"
#include "simd/simd.h"

namespace n0::haar {
namespace {

template <class T>
VrxStatus fwd(const T* x, int len, T* lo, T* hi) {
    if (VrxStatus st = checkArgs(len, x, lo, hi)) return st;
    using W = simd::V<T>;
    const int pairs = len / 2;
    const typename W::R half = W::set1(T(0.5));
    int i = 0;
    for (; i + W::N <= pairs; i += W::N) {
        typename W::R ev, od;
        simd::deinterleave(W::load(x + 2 * i), W::load(x + 2 * i + W::N), ev, od);
        const typename W::R h = W::mul(W::sub(od, ev), half);
        W::store(hi + i, h);
        W::store(lo + i, W::add(h, ev));
    }
    for (; i < pairs; ++i) {
        const T h = (x[2 * i + 1] - x[2 * i]) * T(0.5);
        hi[i] = h;
        lo[i] = h + x[2 * i];
    }
    if (len & 1) lo[pairs] = x[len - 1];
    return vrxOk;
}

template <class T>
VrxStatus inv(const T* lo, const T* hi, T* x, int len) {
    if (VrxStatus st = checkArgs(len, lo, hi, x)) return st;
    using W = simd::V<T>;
    const int pairs = len / 2;
    int i = 0;
    for (; i + W::N <= pairs; i += W::N) {
        const typename W::R l = W::load(lo + i), h = W::load(hi + i);
        typename W::R a, b;
        simd::interleave(W::sub(l, h), W::add(l, h), a, b);
        W::store(x + 2 * i, a);
        W::store(x + 2 * i + W::N, b);
    }
    for (; i < pairs; ++i) {
        x[2 * i] = lo[i] - hi[i];
        x[2 * i + 1] = lo[i] + hi[i];
    }
    if (len & 1) x[len - 1] = lo[pairs];
    return vrxOk;
}

// ------------------------------------------------------------- 16-bit
using I = simd::V<int32_t>;

// The rule on one exact sum r, |r| <= 65536, for a factor e.
VRX_INLINE int16_t scale1(int32_t r, int e) {
    if (e > 16) return 0;
    if (e < -15) return boundBySign<int16_t>(r);
    return scaleSaturate<int16_t>(r, e);
}

// The same on 16 lanes; the caller saturates when narrowing.
VRX_INLINE I::R scale16(I::R r, int e) {
    if (e > 16) return I::zero();
    if (e > 0) {  // q = r >> e; (r + 2^(e-1) - 1 + (q & 1)) >> e
        const I::R sh = I::set1(e);
        const I::R q = I::shrv(r, sh);
        const I::R w = I::add(I::add(r, I::set1((1 << (e - 1)) - 1)), I::andb(q, I::set1(1)));
        return I::shrv(w, sh);
    }
    if (e == 0) return r;
    if (e >= -15) return I::shlv(r, I::set1(-e));  // |r| << 15 stays inside 32 bits
    return I::shlv(I::min(I::max(r, I::set1(-1)), I::set1(1)), I::set1(16));
}

// 16 pairs as 32-bit lanes: x[2i] in the low half, x[2i+1] in the high
// half; each half sign-extended by a shift pair.
VRX_INLINE void splitPairs(I::R v, I::R& ev, I::R& od) {
    ev = I::shr<16>(I::shl<16>(v));
    od = I::shr<16>(v);
}

// Two lanes of results saturated to 16 bits and stored as pairs (a, b):
// 32 values with one store.
VRX_INLINE void storePairs(int16_t* p, I::R a, I::R b) {
    const I::R lo = I::set1(-32768), hi = I::set1(32767);
    a = I::min(I::max(a, lo), hi);
    b = I::min(I::max(b, lo), hi);
    I::store(reinterpret_cast<int32_t*>(p), I::orb(I::andb(a, I::set1(0xFFFF)), I::shl<16>(b)));
}

VrxStatus fwd16s(const int16_t* x, int len, int16_t* lo, int16_t* hi, int sf) {
    if (VrxStatus st = checkArgs(len, x, lo, hi)) return st;
    const int e = sf > INT32_MAX - 1 ? INT32_MAX : sf + 1;
    const int pairs = len / 2;
    int i = 0;
    for (; i + 32 <= pairs; i += 32) {
        // pairs 0, 2, .. 30 in A and 1, 3, .. 31 in B, so that A's and B's
        // results stored as 32-bit pairs land in order
        __m512 a, b;
        simd::deinterleave(simd::floatsOf(I::load(reinterpret_cast<const int32_t*>(x + 2 * i))),
                           simd::floatsOf(I::load(reinterpret_cast<const int32_t*>(x + 2 * i + 32))), a, b);
        I::R ea, oa, eb, ob;
        splitPairs(simd::bitsOf(a), ea, oa);
        splitPairs(simd::bitsOf(b), eb, ob);
        storePairs(lo + i, scale16(I::add(ea, oa), e), scale16(I::add(eb, ob), e));
        storePairs(hi + i, scale16(I::sub(oa, ea), e), scale16(I::sub(ob, eb), e));
    }
    for (; i < pairs; ++i) {
        lo[i] = scale1(int32_t(x[2 * i]) + x[2 * i + 1], e);
        hi[i] = scale1(int32_t(x[2 * i + 1]) - x[2 * i], e);
    }
    if (len & 1) lo[pairs] = scale1(2 * int32_t(x[len - 1]), e);
    return vrxOk;
}

VrxStatus inv16s(const int16_t* lo, const int16_t* hi, int16_t* x, int len, int sf) {
    if (VrxStatus st = checkArgs(len, lo, hi, x)) return st;
    const int pairs = len / 2;
    int i = 0;
    for (; i + 16 <= pairs; i += 16) {
        const I::R l = simd::widen16s(lo + i), h = simd::widen16s(hi + i);
        storePairs(x + 2 * i, scale16(I::sub(l, h), sf), scale16(I::add(l, h), sf));
    }
    for (; i < pairs; ++i) {
        x[2 * i] = scale1(int32_t(lo[i]) - hi[i], sf);
        x[2 * i + 1] = scale1(int32_t(lo[i]) + hi[i], sf);
    }
    if (len & 1) x[len - 1] = scale1(lo[pairs], sf);
    return vrxOk;
}

}  // namespace
}  // namespace n0::haar

using namespace n0::haar;

VrxStatus N0(vrxsWTHaarFwd_32f)(const Vrx32f* pSrc, int len, Vrx32f* pDstLow, Vrx32f* pDstHigh) { return fwd(pSrc, len, pDstLow, pDstHigh); }
VrxStatus N0(vrxsWTHaarFwd_64f)(const Vrx64f* pSrc, int len, Vrx64f* pDstLow, Vrx64f* pDstHigh) { return fwd(pSrc, len, pDstLow, pDstHigh); }
VrxStatus N0(vrxsWTHaarFwd_16s_Sfs)(const Vrx16s* pSrc, int len, Vrx16s* pDstLow, Vrx16s* pDstHigh, int scaleFactor) { return fwd16s(pSrc, len, pDstLow, pDstHigh, scaleFactor); }
VrxStatus N0(vrxsWTHaarInv_32f)(const Vrx32f* pSrcLow, const Vrx32f* pSrcHigh, Vrx32f* pDst, int len) { return inv(pSrcLow, pSrcHigh, pDst, len); }
VrxStatus N0(vrxsWTHaarInv_64f)(const Vrx64f* pSrcLow, const Vrx64f* pSrcHigh, Vrx64f* pDst, int len) { return inv(pSrcLow, pSrcHigh, pDst, len); }
VrxStatus N0(vrxsWTHaarInv_16s_Sfs)(const Vrx16s* pSrcLow, const Vrx16s* pSrcHigh, Vrx16s* pDst, int len, int scaleFactor) { return inv16s(pSrcLow, pSrcHigh, pDst, len, scaleFactor); }
