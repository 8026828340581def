// Table search (FindNearest, FindNearestOne) and the running window sum
// (SumWindow).
#include "vrx_extrema.h"
#include "vrx_fpu.h"

using namespace n0;

namespace {

// ---------------------------------------------------------- FindNearest
// Index of the entry of the ascending table t[0..n) nearest to v: the ends
// first, then a binary descent that keeps t[b] <= v < t[b + k], then the
// nearer of t[b] and t[b + 1], the lower on a tie.
VRX_INLINE int nearestIndex(unsigned v, const Vrx16u* t, int n) {
    if (n == 1 || v <= t[0]) return 0;
    if (v >= t[n - 1]) return n - 1;
    int b = 0, k = n - 1;
    while (k > 1) {
        const int s = k;
        k >>= 1;
        if (v >= t[b + k]) {
            b += k;
            k = s - k;
        }
    }
    return v - t[b] <= t[b + 1] - v ? b : b + 1;
}

// The same search for G registers of 16 values at once: every lane runs its
// own descent (the spans differ once a lane has taken the upper half), the
// G descents interleaved so that their gathers overlap. v and the result are
// 32-bit lanes; n >= 2.
template <int G>
VRX_INLINE void nearestIndex16(const simd::V<int32_t>::R* v, simd::V<int32_t>::R* r, const Vrx16u* t, int n) {
    using I = simd::V<int32_t>;
    using U = simd::V<uint32_t>;
    const I::R one = I::set1(1), lowHalf = I::set1(0xFFFF);
    const I::R first = I::set1(t[0]), last = I::set1(t[n - 1]);
    I::M low[G], high[G], active[G];
    I::R b[G], k[G];
    unsigned any = 0;
    for (int g = 0; g < G; ++g) {
        low[g] = I::le(v[g], first);
        high[g] = static_cast<I::M>(I::ge(v[g], last) & ~low[g]);
        b[g] = I::zero();
        k[g] = I::set1(n - 1);
        active[g] = static_cast<I::M>(~(low[g] | high[g]) & (n - 1 > 1 ? I::kAll : 0));
        any |= active[g];
    }
    while (any) {
        any = 0;
        for (int g = 0; g < G; ++g) {
            const I::R h = U::shr<1>(k[g]);
            // t[b + h] is the high half of the word at b + h - 1 (b + h >= 1)
            const I::R tk = U::shr<16>(simd::gatherPair16(t, I::sub(I::add(b[g], h), one), active[g]));
            const I::M up = static_cast<I::M>(I::ge(v[g], tk) & active[g]);
            b[g] = I::blend(up, b[g], I::add(b[g], h));
            k[g] = I::blend(active[g], k[g], I::blend(up, h, I::sub(k[g], h)));
            active[g] = static_cast<I::M>(active[g] & I::gt(k[g], one));
            any |= active[g];
        }
    }
    for (int g = 0; g < G; ++g) {
        // t[b] <= v < t[b + 1]: both from one word (b + 1 <= n - 1)
        const I::R w = simd::gatherPair16(t, b[g], static_cast<I::M>(~(low[g] | high[g])));
        const I::R tb = I::andb(w, lowHalf), tb1 = U::shr<16>(w);
        const I::M lower = I::le(I::sub(v[g], tb), I::sub(tb1, v[g]));
        I::R x = I::blend(lower, I::add(b[g], one), b[g]);
        x = I::blend(high[g], x, I::set1(n - 1));
        r[g] = I::blend(low[g], x, I::zero());
    }
}

// Writes the index k and the table value t[k] of 16 lanes (those of m):
// the value is the low half of the word at k, or for the last entry the
// high half of the word at k - 1.
VRX_INLINE void storeNearest(Vrx16u* pv, int* pk, simd::V<int32_t>::M m, simd::V<int32_t>::R k, const Vrx16u* t, int n) {
    using I = simd::V<int32_t>;
    I::storem(pk, m, k);
    const I::M isLast = I::eq(k, I::set1(n - 1));
    const I::R w = simd::gatherPair16(t, I::sub(k, I::blend(isLast, I::zero(), I::set1(1))), m);
    simd::narrowSat16u(pv, m, I::blend(isLast, I::andb(w, I::set1(0xFFFF)), simd::V<uint32_t>::shr<16>(w)));
}

// ------------------------------------------------------------ SumWindow
// The running single-precision sum. While every partial sum stays within
// 2^24 in magnitude each float addition is exact, so the sums are the exact
// integer window sums: those are formed 16 at a time as a prefix sum of the
// differences x[i+w] - x[i] in 32-bit lanes. Beyond that bound the sum runs
// element by element in single precision, rounded to nearest whatever the
// caller's mode, never recomputed.
template <class T>
VRX_INLINE void sumWindowExact(const T* p, float* d, int len, int w) {
    using I = simd::V<int32_t>;
    using F = simd::V<float>;
    int32_t s = 0;
    for (int j = 0; j < w; ++j) s += p[j];
    I::R carry = I::set1(s);
    int i = 0;
    for (; i + 16 <= len; i += 16) {
        // reads x[i+w .. i+w+15], within the len + w elements of the source
        const I::R dv = I::sub(ext::Src<T>::load(p + i + w), ext::Src<T>::load(p + i));
        I::R inc = I::add(dv, I::shiftUp<1>(dv));
        inc = I::add(inc, I::shiftUp<2>(inc));
        inc = I::add(inc, I::shiftUp<4>(inc));
        inc = I::add(inc, I::shiftUp<8>(inc));
        F::store(d + i, simd::intToFloat(I::add(carry, I::sub(inc, dv))));
        carry = I::add(carry, I::broadcastLast(inc));
    }
    s = I::first(carry);
    for (; i < len; ++i) {
        d[i] = static_cast<float>(s);
        if (i + 1 < len) s += static_cast<int32_t>(p[i + w]) - static_cast<int32_t>(p[i]);
    }
}

template <class T>
VRX_INLINE void sumWindowRunning(const T* p, float* d, int len, int w) {
    RoundNearestGuard nearest;   // the sums round to nearest, ties to even
    float s = 0.0f;
    for (int j = 0; j < w; ++j) s += static_cast<float>(p[j]);
    for (int i = 0; i < len; ++i) {
        d[i] = s;
        if (i + 1 < len) s += static_cast<float>(static_cast<int32_t>(p[i + w]) - static_cast<int32_t>(p[i]));
    }
}

template <class T>
VRX_INLINE VrxStatus sumWindow(const T* pSrc, Vrx32f* pDst, int len, int winSize) {
    if (VrxStatus st = checkArgs(len, pSrc, pDst)) return st;
    if (winSize < 1) return vrxErrMaskSize;
    constexpr int64_t kMaxMagnitude = sizeof(T) == 1 ? 255 : 32768;
    if (static_cast<int64_t>(winSize) * kMaxMagnitude <= (int64_t(1) << 24)) sumWindowExact(pSrc, pDst, len, winSize);
    else sumWindowRunning(pSrc, pDst, len, winSize);
    return vrxOk;
}

}  // namespace

VrxStatus N0(vrxsFindNearestOne_16u)(Vrx16u inpVal, Vrx16u* pOutVal, int* pOutIndx, const Vrx16u* pTable, int tblLen) {
    if (VrxStatus st = checkArgs(tblLen, pOutVal, pOutIndx, pTable)) return st;
    const int k = nearestIndex(inpVal, pTable, tblLen);
    *pOutVal = pTable[k];
    *pOutIndx = k;
    return vrxOk;
}

// Pointers first, then either length below 1.
VrxStatus N0(vrxsFindNearest_16u)(const Vrx16u* pVals, Vrx16u* pOutVals, int* pOutIndx, int len, const Vrx16u* pTable, int tblLen) {
    if (anyNull(pVals, pOutVals, pOutIndx, pTable)) return vrxErrNullPtr;
    if (len < 1 || tblLen < 1) return vrxErrBadLength;
    if (tblLen == 1) {
        for (int i = 0; i < len; ++i) { pOutVals[i] = pTable[0]; pOutIndx[i] = 0; }
        return vrxOk;
    }
    using I = simd::V<int32_t>;
    using S = ext::Src<Vrx16u>;
    int i = 0;
    for (; i + 64 <= len; i += 64) {
        I::R v[4], k[4];
        for (int g = 0; g < 4; ++g) v[g] = S::load(pVals + i + 16 * g);
        nearestIndex16<4>(v, k, pTable, tblLen);
        for (int g = 0; g < 4; ++g) storeNearest(pOutVals + i + 16 * g, pOutIndx + i + 16 * g, I::kAll, k[g], pTable, tblLen);
    }
    for (; i < len; i += 16) {
        const int n = len - i < 16 ? len - i : 16;
        I::R v = n == 16 ? S::load(pVals + i) : S::loadFill(pVals + i, n, 0), k;
        nearestIndex16<1>(&v, &k, pTable, tblLen);
        storeNearest(pOutVals + i, pOutIndx + i, simd::tail<int32_t>(static_cast<size_t>(n)), k, pTable, tblLen);
    }
    return vrxOk;
}

VrxStatus N0(vrxsSumWindow_8u32f)(const Vrx8u* pSrc, Vrx32f* pDst, int len, int winSize) { return sumWindow(pSrc, pDst, len, winSize); }
VrxStatus N0(vrxsSumWindow_16s32f)(const Vrx16s* pSrc, Vrx32f* pDst, int len, int winSize) { return sumWindow(pSrc, pDst, len, winSize); }
