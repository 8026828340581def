// Counts and orders: MaxOrder, CountInRange and ZeroCrossing.
#include "vrx_extrema.h"
#include "vrx_fpu.h"

#include <float.h>

using namespace n0;
using namespace n0::ext;

namespace {

// ------------------------------------------------------------- MaxOrder
// Integer forms: the OR of all magnitudes has the same top bit as their
// maximum. Lanes hold the element exactly, so -32768 gives 32768 and the
// 32-bit abs of -2^31 gives the bit pattern 2^31.
template <class T>
VRX_INLINE int orderInt(const T* p, int len) {
    using S = Src<T>;
    using W = typename S::W;
    using R = typename S::R;
    constexpr int N = S::N;
    R a0 = W::zero(), a1 = W::zero();
    int i = 0;
    for (; i + 2 * N <= len; i += 2 * N) {
        a0 = W::orb(a0, W::abs(S::load(p + i)));
        a1 = W::orb(a1, W::abs(S::load(p + i + N)));
    }
    for (; i + N <= len; i += N) a0 = W::orb(a0, W::abs(S::load(p + i)));
    if (i < len) a0 = W::orb(a0, W::abs(S::loadFill(p + i, len - i, T(0))));
    a0 = W::orb(a0, a1);
    alignas(64) int32_t t[N];
    W::store(t, a0);
    uint32_t m = 0;
    for (int j = 0; j < N; ++j) m |= static_cast<uint32_t>(t[j]);
    return m ? 32 - __builtin_clz(m) : 0;
}

template <class T>
VRX_INLINE VrxStatus maxOrderInt(const T* pSrc, int len, int* pOrder) {
    if (len < 1) return vrxErrBadLength;
    if (anyNull(pSrc, pOrder)) return vrxErrNullPtr;
    *pOrder = orderInt(pSrc, len);
    return vrxOk;
}

template <class T> struct FloatBits;
template <> struct FloatBits<float> {
    using U = uint32_t;
    static constexpr int kMant = 23, kBias = 126;
    static constexpr U kExp = 0xFF;
    static constexpr float kMax = FLT_MAX;
};
template <> struct FloatBits<double> {
    using U = uint64_t;
    static constexpr int kMant = 52, kBias = 1022;
    static constexpr U kExp = 0x7FF;
    static constexpr double kMax = DBL_MAX;
};

// Second pass: the largest finite magnitude, infinities and NaNs as 0;
// nonFinite tells whether one was met. Quiet compares raise no flag.
template <class T>
VRX_INLINE T finiteMaxAbs(const T* p, int len, bool& nonFinite) {
    using W = simd::V<T>;
    using R = typename W::R;
    using M = typename W::M;
    constexpr int N = W::N;
    const R top = W::set1(FloatBits<T>::kMax), z = W::zero();
    R acc = z;
    M bad = 0;
    for (int i = 0; i < len; i += N) {
        const M valid = i + N <= len ? static_cast<M>(W::kAll) : simd::tail<T>(static_cast<size_t>(len - i));
        R x = W::abs(W::loadm(valid, p + i));
        M fin = W::le(x, top);
        bad = static_cast<M>(bad | (valid & static_cast<M>(~fin)));
        acc = W::max(acc, W::blend(fin, z, x));
    }
    nonFinite = bad != 0;
    alignas(64) T t[N];
    W::store(t, acc);
    T r = t[0];
    for (int j = 1; j < N; ++j) r = t[j] > r ? t[j] : r;
    return r;
}

// Floating-point forms. Pass 1 is a plain vector maximum of magnitudes; the
// invalid flag it raises on a NaN (or one the caller left set), or a result
// beyond the largest finite value, sends the call through pass 2. A flag
// seen set after pass 1 is cleared before return.
template <class T>
VRX_INLINE VrxStatus maxOrderFloat(const T* pSrc, int len, int* pOrder) {
    using FB = FloatBits<T>;
    if (len < 1) return vrxErrBadLength;
    if (anyNull(pSrc, pOrder)) return vrxErrNullPtr;
    T m = foldValue<T, OpMax>(pSrc, len, XfAbs<simd::V<T>>{});
    // the flag is read only once pass 1 has produced its result
    __asm__ __volatile__("" : "+x"(m));
    const bool invalid = (getMxcsr() & kMxcsrInvalid) != 0;
    bool nonFinite = false;
    if (invalid || !(m <= FB::kMax)) m = finiteMaxAbs(pSrc, len, nonFinite);
    typename FB::U bits;
    __builtin_memcpy(&bits, &m, sizeof bits);
    const int e = static_cast<int>((bits >> FB::kMant) & FB::kExp);
    *pOrder = m == T(0) ? 0 : e - FB::kBias;
    if (invalid) setMxcsr(getMxcsr() & ~kMxcsrInvalid);
    return nonFinite ? vrxWarnNanArg : vrxOk;
}

// ---------------------------------------------------------- ZeroCrossing
// Pair counts over (x[i], x[i+1]). Compares give lane masks; the counts are
// popcounts of mask expressions.
struct ZcCounts {
    int64_t product = 0, signBit = 0, signDiff = 0;  // signDiff: sum of |s(b) - s(a)|
};

VRX_INLINE void zcMasks(ZcCounts& c, unsigned valid, unsigned prodNeg, unsigned negA, unsigned negB,
                        unsigned posA, unsigned posB, unsigned signA, unsigned signB) {
    const unsigned opposite = ((posA & negB) | (negA & posB)) & valid;
    const unsigned zeroA = ~(posA | negA), zeroB = ~(posB | negB);
    c.product += __builtin_popcount(prodNeg & valid);
    c.signBit += __builtin_popcount((signA ^ signB) & valid);
    c.signDiff += 2 * __builtin_popcount(opposite) + __builtin_popcount((zeroA ^ zeroB) & valid);
}

VRX_INLINE ZcCounts zc32f(const float* p, int pairs) {
    using F = simd::V<float>;
    using I = simd::V<int32_t>;
    ZcCounts c;
    const F::R z = F::zero();
    const I::R zi = I::zero();
    for (int i = 0; i < pairs; i += 16) {
        const unsigned valid = i + 16 <= pairs ? 0xFFFFu : simd::tail<float>(static_cast<size_t>(pairs - i));
        const F::R a = F::loadm(static_cast<F::M>(valid), p + i), b = F::loadm(static_cast<F::M>(valid), p + i + 1);
        zcMasks(c, valid, F::lt(F::mul(a, b), z), F::lt(a, z), F::lt(b, z), F::gt(a, z), F::gt(b, z),
                I::lt(simd::bitsOf(a), zi), I::lt(simd::bitsOf(b), zi));
    }
    return c;
}

VRX_INLINE ZcCounts zc16s(const int16_t* p, int pairs) {
    using I = simd::V<int32_t>;
    ZcCounts c;
    const I::R z = I::zero();
    int i = 0;
    for (; i + 16 <= pairs; i += 16) {
        const I::R a = simd::widen16s(p + i), b = simd::widen16s(p + i + 1);
        const unsigned na = I::lt(a, z), nb = I::lt(b, z), pa = I::gt(a, z), pb = I::gt(b, z);
        // the exact product is negative exactly when the signs are strictly opposite
        zcMasks(c, 0xFFFFu, (pa & nb) | (na & pb), na, nb, pa, pb, na, nb);
    }
    for (; i < pairs; ++i) {
        const int a = p[i], b = p[i + 1];
        const unsigned na = a < 0, nb = b < 0, pa = a > 0, pb = b > 0;
        zcMasks(c, 1u, (pa & nb) | (na & pb), na, nb, pa, pb, na, nb);
    }
    return c;
}

template <class T>
VRX_INLINE VrxStatus zeroCrossing(const T* pSrc, int len, Vrx32f* pValZC, int zcType) {
    if (anyNull(pSrc, pValZC)) return vrxErrNullPtr;
    if (len == 0) return vrxErrBadLength;
    if (zcType < vrxZcProduct || zcType > vrxZcSignDiff) return vrxErrRange;
    const int pairs = len > 1 ? len - 1 : 0;
    ZcCounts c;
    if constexpr (sizeof(T) == 4) c = zc32f(pSrc, pairs);
    else c = zc16s(pSrc, pairs);
    float r;
    if (zcType == vrxZcProduct) r = static_cast<float>(c.product);
    else if (zcType == vrxZcSignBit) r = static_cast<float>(c.signBit);
    else if constexpr (sizeof(T) == 4) r = 0.5f * static_cast<float>(c.signDiff);
    else r = static_cast<float>(c.signDiff >> 1);
    *pValZC = r;
    return vrxOk;
}

}  // namespace

VrxStatus N0(vrxsMaxOrder_16s)(const Vrx16s* pSrc, int len, int* pOrder) { return maxOrderInt(pSrc, len, pOrder); }
VrxStatus N0(vrxsMaxOrder_32s)(const Vrx32s* pSrc, int len, int* pOrder) { return maxOrderInt(pSrc, len, pOrder); }
VrxStatus N0(vrxsMaxOrder_32f)(const Vrx32f* pSrc, int len, int* pOrder) { return maxOrderFloat(pSrc, len, pOrder); }
VrxStatus N0(vrxsMaxOrder_64f)(const Vrx64f* pSrc, int len, int* pOrder) { return maxOrderFloat(pSrc, len, pOrder); }

// Exclusive bounds; the count is set to 0 once the checks have passed.
VrxStatus N0(vrxsCountInRange_32s)(const Vrx32s* pSrc, int len, int* pCount, Vrx32s lowerBound, Vrx32s upperBound) {
    if (VrxStatus st = checkArgs(len, pSrc, pCount)) return st;
    *pCount = 0;
    using I = simd::V<int32_t>;
    const I::R lo = I::set1(lowerBound), hi = I::set1(upperBound);
    int n0 = 0, n1 = 0, i = 0;
    for (; i + 32 <= len; i += 32) {
        const I::R a = I::load(pSrc + i), b = I::load(pSrc + i + 16);
        n0 += __builtin_popcount(static_cast<unsigned>(I::gt(a, lo) & I::lt(a, hi)));
        n1 += __builtin_popcount(static_cast<unsigned>(I::gt(b, lo) & I::lt(b, hi)));
    }
    for (; i < len; i += 16) {
        const I::M valid = i + 16 <= len ? I::kAll : simd::tail<int32_t>(static_cast<size_t>(len - i));
        const I::R a = I::loadm(valid, pSrc + i);
        n0 += __builtin_popcount(static_cast<unsigned>(I::gt(a, lo) & I::lt(a, hi) & valid));
    }
    *pCount = n0 + n1;
    return vrxOk;
}

VrxStatus N0(vrxsZeroCrossing_32f)(const Vrx32f* pSrc, int len, Vrx32f* pValZC, int zcType) { return zeroCrossing(pSrc, len, pValZC, zcType); }
VrxStatus N0(vrxsZeroCrossing_16s32f)(const Vrx16s* pSrc, int len, Vrx32f* pValZC, int zcType) { return zeroCrossing(pSrc, len, pValZC, zcType); }
