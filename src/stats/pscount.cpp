// Counts and orders: MaxOrder, CountInRange and ZeroCrossing.
#include "vrx_extrema.h"
#include "vrx_fpu.h"

#include <float.h>

using namespace n0;
using namespace n0::ext;

namespace {

// ------------------------------------------------------------- MaxOrder
// Integer forms: the OR of all magnitudes has the same top bit as their
// maximum. The 32-bit abs of -2^31 gives the bit pattern 2^31, as the
// 16-bit abs of -32768 gives 0x8000.
// 16-bit data on AVX2 lanes: abs(-32768) stays the bit pattern 0x8000. A
// last partial register is read again from the end; the OR of the lanes
// has the top bit of their unsigned maximum.
VRX_INLINE int order16s(const int16_t* p, int len) {
    using NW = simd::VNarrow<int16_t>;
    using R = NW::R;
    constexpr int N = NW::N;
    uint32_t m = 0;
    if (len < N) {
        for (int i = 0; i < len; ++i) m |= static_cast<uint16_t>(p[i] < 0 ? -p[i] : p[i]);
    } else {
        R a0 = NW::abs(NW::load(p)), a1 = a0, a2 = a0, a3 = a0;
        int i = N;
        for (; i + 4 * N <= len; i += 4 * N) {
            a0 = NW::orb(a0, NW::abs(NW::load(p + i)));
            a1 = NW::orb(a1, NW::abs(NW::load(p + i + N)));
            a2 = NW::orb(a2, NW::abs(NW::load(p + i + 2 * N)));
            a3 = NW::orb(a3, NW::abs(NW::load(p + i + 3 * N)));
        }
        for (; i + N <= len; i += N) a0 = NW::orb(a0, NW::abs(NW::load(p + i)));
        if (i < len) a1 = NW::orb(a1, NW::abs(NW::load(p + len - N)));
        m = simd::narrowMaxLane<uint16_t>(NW::orb(NW::orb(a0, a1), NW::orb(a2, a3)));
    }
    return m ? 32 - __builtin_clz(m) : 0;
}

template <class T>
VRX_INLINE int orderWide(const T* p, int len) {
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
VRX_INLINE int orderInt(const T* p, int len) {
    if constexpr (sizeof(T) == 2) return order16s(p, len);
    else return orderWide(p, len);
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
// Per-pair contributions in 32-bit lanes, summed over the pairs
// (x[i], x[i+1]) of one measure. Lanes past the end read 0 and so
// contribute 0 under every measure. Lane counts stay below 2^31.
using I32 = simd::V<int32_t>;
using U32 = simd::V<uint32_t>;

VRX_INLINE int64_t laneSum(I32::R a) {
    alignas(64) int32_t t[16];
    I32::store(t, a);
    int64_t s = 0;
    for (int j = 0; j < 16; ++j) s += t[j];
    return s;
}

template <class F>
VRX_INLINE int64_t pairSum32f(const float* p, int pairs, F f) {
    using Fl = simd::V<float>;
    I32::R acc0 = I32::zero(), acc1 = I32::zero();
    int i = 0;
    for (; i + 32 <= pairs; i += 32) {
        acc0 = I32::add(acc0, f(Fl::load(p + i), Fl::load(p + i + 1)));
        acc1 = I32::add(acc1, f(Fl::load(p + i + 16), Fl::load(p + i + 17)));
    }
    for (; i < pairs; i += 16) {
        const Fl::M m = i + 16 <= pairs ? Fl::kAll : simd::tail<float>(static_cast<size_t>(pairs - i));
        acc0 = I32::add(acc0, f(Fl::loadm(m, p + i), Fl::loadm(m, p + i + 1)));
    }
    return laneSum(I32::add(acc0, acc1));
}

template <class F>
VRX_INLINE int64_t pairSum16s(const int16_t* p, int pairs, F f) {
    using S = Src<int16_t>;
    I32::R acc0 = I32::zero(), acc1 = I32::zero();
    int i = 0;
    for (; i + 32 <= pairs; i += 32) {
        acc0 = I32::add(acc0, f(S::load(p + i), S::load(p + i + 1)));
        acc1 = I32::add(acc1, f(S::load(p + i + 16), S::load(p + i + 17)));
    }
    for (; i + 16 <= pairs; i += 16) acc0 = I32::add(acc0, f(S::load(p + i), S::load(p + i + 1)));
    if (i < pairs) acc0 = I32::add(acc0, f(S::loadFill(p + i, pairs - i, 0), S::loadFill(p + i + 1, pairs - i, 0)));
    return laneSum(I32::add(acc0, acc1));
}

// 1 where the top bits of a and b differ
VRX_INLINE I32::R signBitsDiffer(I32::R a, I32::R b) { return U32::shr<31>(I32::xorb(a, b)); }

VRX_INLINE int64_t zc32f(const float* p, int pairs, int type) {
    using Fl = simd::V<float>;
    const Fl::R z = Fl::zero();
    const I32::R one = I32::set1(1), none = I32::set1(-1), zi = I32::zero();
    if (type == vrxZcProduct) {
        // negative products counted from their compare masks
        int64_t c0 = 0, c1 = 0;
        int i = 0;
        for (; i + 32 <= pairs; i += 32) {
            c0 += __builtin_popcount(static_cast<unsigned>(Fl::lt(Fl::mul(Fl::load(p + i), Fl::load(p + i + 1)), z)));
            c1 += __builtin_popcount(static_cast<unsigned>(Fl::lt(Fl::mul(Fl::load(p + i + 16), Fl::load(p + i + 17)), z)));
        }
        for (; i < pairs; i += 16) {
            const Fl::M m = i + 16 <= pairs ? Fl::kAll : simd::tail<float>(static_cast<size_t>(pairs - i));
            c0 += __builtin_popcount(static_cast<unsigned>(Fl::lt(Fl::mul(Fl::loadm(m, p + i), Fl::loadm(m, p + i + 1)), z)));
        }
        return c0 + c1;
    }
    if (type == vrxZcSignBit)
        return pairSum32f(p, pairs, [&](Fl::R a, Fl::R b) { return signBitsDiffer(simd::bitsOf(a), simd::bitsOf(b)); });
    // The sign measure: s(x) in -1, 0, 1 is formed once a value, and the
    // partners' signs are the same lanes shifted down by one with the first
    // lane of the next group (a round reads x[i] .. x[i + 47], and x[pairs]
    // is the last value); the last pairs through masked loads.
    auto sgn = [&](Fl::R x) { return I32::blend(Fl::gt(x, z), I32::blend(Fl::lt(x, z), zi, none), one); };
    auto step = [](I32::R acc, I32::R sa, I32::R sb) { return I32::add(acc, I32::abs(I32::sub(sb, sa))); };
    I32::R acc0 = I32::zero(), acc1 = I32::zero();
    int i = 0;
    if (pairs >= 47) {
        I32::R cur = sgn(Fl::load(p));
        for (; i + 47 <= pairs; i += 32) {
            const I32::R n1 = sgn(Fl::load(p + i + 16)), n2 = sgn(Fl::load(p + i + 32));
            acc0 = step(acc0, cur, simd::nextLanes32(cur, n1));
            acc1 = step(acc1, n1, simd::nextLanes32(n1, n2));
            cur = n2;
        }
    }
    for (; i < pairs; i += 16) {
        const Fl::M m = i + 16 <= pairs ? Fl::kAll : simd::tail<float>(static_cast<size_t>(pairs - i));
        acc0 = step(acc0, sgn(Fl::loadm(m, p + i)), sgn(Fl::loadm(m, p + i + 1)));
    }
    return laneSum(I32::add(acc0, acc1));
}

// The sign-bit measure on 16-bit data without widening: 32 values a
// register, each 32-bit lane holding two of them. Bits 15 and 31 of x ^ x'
// (x' the values one further on) tell whether each half's pair differs in
// sign; shifted down to bits 0 and 16 they are counted in the two halves of
// the lane, which are folded before either can pass 65535. A last partial
// register is read ending at the last pair, its pairs already counted
// masked off by a window into kHalfOnes.
alignas(64) constexpr uint16_t kHalfOnes[64] = {0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0,
                                                0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0,
                                                1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1,
                                                1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1};

VRX_INLINE I32::R signDiff16s(const int16_t* p) {
    return U32::shr<15>(I32::xorb(simd::loadPairs16(p), simd::loadPairs16(p + 1)));
}

VRX_INLINE int64_t signPairs16s(const int16_t* p, int pairs) {
    if (pairs < 32) {
        int64_t c = 0;
        for (int i = 0; i < pairs; ++i) c += (p[i] < 0) != (p[i + 1] < 0);
        return c;
    }
    constexpr int kRounds = 32767;  // rounds of 64 pairs between folds
    const I32::R m = I32::set1(0x00010001), low = I32::set1(0xFFFF);
    auto fold = [&](I32::R s) { return laneSum(I32::add(I32::andb(s, low), U32::shr<16>(s))); };
    int64_t total = 0;
    int i = 0;
    while (pairs - i >= 64 * kRounds) {
        I32::R acc0 = I32::zero(), acc1 = I32::zero();
        for (int r = 0; r < kRounds; ++r, i += 64) {
            acc0 = I32::add(acc0, I32::andb(signDiff16s(p + i), m));
            acc1 = I32::add(acc1, I32::andb(signDiff16s(p + i + 32), m));
        }
        total += fold(I32::add(acc0, acc1));  // each half at most 65534
    }
    // under kRounds rounds of 64, then up to 63 pairs
    I32::R acc0 = I32::zero(), acc1 = I32::zero();
    for (; i + 64 <= pairs; i += 64) {
        acc0 = I32::add(acc0, I32::andb(signDiff16s(p + i), m));
        acc1 = I32::add(acc1, I32::andb(signDiff16s(p + i + 32), m));
    }
    if (i + 32 <= pairs) {
        acc0 = I32::add(acc0, I32::andb(signDiff16s(p + i), m));
        i += 32;
    }
    if (i < pairs) {
        const int done = 32 - (pairs - i);  // pairs of the last register counted already
        acc1 = I32::add(acc1, I32::andb(signDiff16s(p + pairs - 32), simd::loadPairs16(reinterpret_cast<const int16_t*>(kHalfOnes + 32 - done))));
    }
    return total + fold(I32::add(acc0, acc1));
}

VRX_INLINE int64_t zc16s(const int16_t* p, int pairs, int type) {
    const I32::R one = I32::set1(1), none = I32::set1(-1);
    if (type == vrxZcProduct)  // the exact product of two 16-bit values fits the lane
        return pairSum16s(p, pairs, [&](I32::R a, I32::R b) { return U32::shr<31>(I32::mullo(a, b)); });
    if (type == vrxZcSignBit) return signPairs16s(p, pairs);
    auto sgn = [&](I32::R x) { return I32::min(I32::max(x, none), one); };
    return pairSum16s(p, pairs, [&](I32::R a, I32::R b) { return I32::abs(I32::sub(sgn(b), sgn(a))); });
}

template <class T>
VRX_INLINE VrxStatus zeroCrossing(const T* pSrc, int len, Vrx32f* pValZC, int zcType) {
    if (anyNull(pSrc, pValZC)) return vrxErrNullPtr;
    if (len == 0) return vrxErrBadLength;
    if (zcType < vrxZcProduct || zcType > vrxZcSignDiff) return vrxErrRange;
    const int pairs = len > 1 ? len - 1 : 0;
    // counts above 2^24 round to nearest whatever the caller's mode
    RoundNearestGuard nearest;
    float r;
    if constexpr (sizeof(T) == 4) {
        const int64_t c = zc32f(pSrc, pairs, zcType);
        r = zcType == vrxZcSignDiff ? 0.5f * static_cast<float>(c) : static_cast<float>(c);
    } else {
        // the 16-bit sign-difference sum is halved by a shift: an integer result
        const int64_t c = zc16s(pSrc, pairs, zcType);
        r = static_cast<float>(zcType == vrxZcSignDiff ? c >> 1 : c);
    }
    *pValZC = r;
    return vrxOk;
}

}  // namespace

VrxStatus N0(vrxsMaxOrder_16s)(const Vrx16s* pSrc, int len, int* pOrder) { return maxOrderInt(pSrc, len, pOrder); }
VrxStatus N0(vrxsMaxOrder_32s)(const Vrx32s* pSrc, int len, int* pOrder) { return maxOrderInt(pSrc, len, pOrder); }
VrxStatus N0(vrxsMaxOrder_32f)(const Vrx32f* pSrc, int len, int* pOrder) { return maxOrderFloat(pSrc, len, pOrder); }
VrxStatus N0(vrxsMaxOrder_64f)(const Vrx64f* pSrc, int len, int* pOrder) { return maxOrderFloat(pSrc, len, pOrder); }

// Exclusive bounds; the count is set to 0 once the checks have passed.
// lo < x < hi is one unsigned compare: x - (lo + 1) below hi - lo - 1,
// taken modulo 2^32 (an empty range counts nothing).
VrxStatus N0(vrxsCountInRange_32s)(const Vrx32s* pSrc, int len, int* pCount, Vrx32s lowerBound, Vrx32s upperBound) {
    if (VrxStatus st = checkArgs(len, pSrc, pCount)) return st;
    *pCount = 0;
    const int64_t width = static_cast<int64_t>(upperBound) - lowerBound - 1;
    if (width <= 0) return vrxOk;
    const I32::R base = I32::set1(static_cast<int32_t>(static_cast<uint32_t>(lowerBound) + 1u));
    const U32::R w = U32::set1(static_cast<uint32_t>(width));
    auto in = [&](I32::R x) { return U32::lt(I32::sub(x, base), w); };
    // Counts in 32-bit lanes of four registers (a lane counts at most
    // len / 16 elements).
    I32::R c[4] = {I32::zero(), I32::zero(), I32::zero(), I32::zero()};
    int i = 0;
    for (; i + 64 <= len; i += 64) {
        for (int k = 0; k < 4; ++k) c[k] = simd::countLanes(c[k], in(I32::load(pSrc + i + 16 * k)));
    }
    for (; i + 16 <= len; i += 16) c[0] = simd::countLanes(c[0], in(I32::load(pSrc + i)));
    if (i < len) {
        const I32::M valid = simd::tail<int32_t>(static_cast<size_t>(len - i));
        c[1] = simd::countLanes(c[1], in(I32::loadm(valid, pSrc + i)) & valid);
    }
    alignas(64) int32_t l[16];
    I32::store(l, I32::add(I32::add(c[0], c[1]), I32::add(c[2], c[3])));
    int n = 0;
    for (int k = 0; k < 16; ++k) n += l[k];
    *pCount = n;
    return vrxOk;
}

VrxStatus N0(vrxsZeroCrossing_32f)(const Vrx32f* pSrc, int len, Vrx32f* pValZC, int zcType) { return zeroCrossing(pSrc, len, pValZC, zcType); }
VrxStatus N0(vrxsZeroCrossing_16s32f)(const Vrx16s* pSrc, int len, Vrx32f* pValZC, int zcType) { return zeroCrossing(pSrc, len, pValZC, zcType); }
