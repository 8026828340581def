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
#include "vrx_map.h"

namespace n0::haar {
namespace {

template <class W, class T>
VRX_INLINE void put(T* p, typename W::R v, bool nt) {
    if (nt) W::stream(p, v);
    else W::store(p, v);
}
VRX_INLINE bool at64(const void* p) { return (reinterpret_cast<uintptr_t>(p) & 63) == 0; }
template <class T>
VRX_INLINE bool elementAligned(const T* p) { return (reinterpret_cast<uintptr_t>(p) & (sizeof(T) - 1)) == 0; }

// Lane j of the result is lane j + N - m of the pair (a, b): b moved up m
// lanes behind the last m lanes of a.
template <class T>
VRX_INLINE __m512i upIndex(int m) {
    const __m512i i32 = simd::V<int32_t>::add(simd::iota32(), simd::V<int32_t>::set1(simd::V<T>::N - m));
    if constexpr (sizeof(T) == 4) return i32;
    else return simd::lowTo64u(i32);
}

// The forward loop stores every vector on a 64-byte boundary: a scalar head
// brings lo to one, and hi, m lanes past a boundary there, gets each result
// moved up m lanes and joined with the last m lanes of the one before (a
// masked store at each end). Each source pair is loaded once; folded into
// both permutes of the split the load would be read twice, which a source
// off its boundary pays with two split lines each.
template <class T>
VrxStatus fwd(const T* x, int len, T* lo, T* hi) {
    if (VrxStatus st = checkArgs(len, x, lo, hi)) return st;
    using W = simd::V<T>;
    using R = typename W::R;
    constexpr int N = W::N;
    const int pairs = len / 2;
    const R half = W::set1(T(0.5));
    auto one = [&](int i) {
        const T h = (x[2 * i + 1] - x[2 * i]) * T(0.5);
        hi[i] = h;
        lo[i] = h + x[2 * i];
    };
    auto calc = [&](int i, R& l) {  // the high values of pairs i .. i + N - 1, l the low ones
        R ev, od;
        simd::deinterleave(simd::keepInRegister(W::load(x + 2 * i)), simd::keepInRegister(W::load(x + 2 * i + N)), ev, od);
        const R h = W::mul(W::sub(od, ev), half);
        l = W::add(h, ev);
        return h;
    };
    int i = 0;
    if (pairs >= 2 * N) {
        const int a = static_cast<int>(map::headTo64(lo));
        for (; i < a; ++i) one(i);
        const bool nt = map::streamWorth(size_t(len) * 2 * sizeof(T)) && elementAligned(lo) && elementAligned(hi);
        const int m = static_cast<int>((reinterpret_cast<uintptr_t>(hi + i) & 63) / sizeof(T));
        R l;
        if (m == 0 || !elementAligned(hi)) {
            for (; i + N <= pairs; i += N) {
                const R h = calc(i, l);
                put<W>(lo + i, l, nt);
                put<W>(hi + i, h, nt && m == 0);
            }
        } else {
            const __m512i up = upIndex<T>(m);
            R prev = calc(i, l);
            put<W>(lo + i, l, nt);
            W::storem(hi + i - m, static_cast<typename W::M>(~simd::tail<T>(m)), W::permute2(prev, up, prev));
            for (i += N; i + N <= pairs; i += N) {
                const R h = calc(i, l);
                put<W>(lo + i, l, nt);
                put<W>(hi + i - m, W::permute2(prev, up, h), nt);
                prev = h;
            }
            W::storem(hi + i - m, simd::tail<T>(m), W::permute2(prev, up, prev));
        }
        if (nt) simd::streamFence();
    }
    for (; i + N <= pairs; i += N) {
        R l;
        const R h = calc(i, l);
        W::store(lo + i, l);
        W::store(hi + i, h);
    }
    for (; i < pairs; ++i) one(i);
    if (len & 1) lo[pairs] = x[len - 1];
    return vrxOk;
}

// The inverse stores on x's 64-byte boundaries after a head when they fall
// on a pair (x aligned to the element and an even count of elements up to
// the first one), and loads each vector once.
template <class T>
VrxStatus inv(const T* lo, const T* hi, T* x, int len) {
    if (VrxStatus st = checkArgs(len, lo, hi, x)) return st;
    using W = simd::V<T>;
    using R = typename W::R;
    constexpr int N = W::N;
    const int pairs = len / 2;
    auto one = [&](int i) {
        x[2 * i] = lo[i] - hi[i];
        x[2 * i + 1] = lo[i] + hi[i];
    };
    auto block = [&](int i, bool nt) {
        const R l = simd::keepInRegister(W::load(lo + i)), h = simd::keepInRegister(W::load(hi + i));
        R a, b;
        simd::interleave(W::sub(l, h), W::add(l, h), a, b);
        put<W>(x + 2 * i, a, nt);
        put<W>(x + 2 * i + N, b, nt);
    };
    int i = 0;
    const int head = static_cast<int>(map::headTo64(x));
    if (pairs >= 2 * N && elementAligned(x) && head % 2 == 0) {
        const bool nt = map::streamWorth(size_t(len) * 2 * sizeof(T));
        for (; i < head / 2; ++i) one(i);
        for (; i + N <= pairs; i += N) block(i, nt);
        if (nt) simd::streamFence();
    }
    for (; i + N <= pairs; i += N) block(i, false);
    for (; i < pairs; ++i) one(i);
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

// The same on 16 lanes of 32 bits; the narrowing store saturates. Between
// the shortcuts r 2^-e is a float exactly (17 significant bits, |r 2^15| <=
// 2^31), and the conversion rounds it to nearest, ties to even.
using F = simd::V<float>;
VRX_INLINE float pow2Neg(int e) {
    const uint32_t b = static_cast<uint32_t>(127 - e) << 23;
    float f;
    __builtin_memcpy(&f, &b, 4);
    return f;
}
struct Scale16 {
    int e;
    F::R mul;
    explicit Scale16(int f) : e(f), mul(F::set1(f > 16 || f < -15 ? 0.0f : pow2Neg(f))) {}
    VRX_INLINE I::R operator()(I::R r) const {
        if (e > 16) return I::zero();
        if (e < -15) return I::shl<16>(I::min(I::max(r, I::set1(-1)), I::set1(1)));  // the bound of the sign
        if (e == 0) return r;
        return simd::floatToIntNearestQuiet(F::mul(simd::intToFloat(r), mul));
    }
};

// Two lanes of results stored as pairs (a, b), each saturated to 16 bits:
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
    // Large calls stream when lo and hi are both on 64-byte boundaries.
    int i = 0;
    const bool nt = map::streamWorth(size_t(len) * 2 * sizeof(int16_t)) && at64(lo) && at64(hi);
    auto walk = [&](int step, auto block) {
        if (nt) {
            for (; i + step <= pairs; i += step) block(i, true);
            simd::streamFence();
        }
        for (; i + step <= pairs; i += step) block(i, false);
    };
    if (e == 1) {
        // the mean and half the difference: 16-bit lanes throughout
        walk(16, [&](int k, bool s) { simd::pairHalves16s(x + 2 * k, lo + k, hi + k, s); });
    } else if (e == 0) {
        walk(16, [&](int k, bool s) { simd::pairSumDiffSat16s(x + 2 * k, lo + k, hi + k, s); });
    } else {
        const Scale16 sc(e);
        walk(32, [&](int k, bool s) {
            I::R s0, d0, s1, d1;
            simd::pairSumDiff16s(x + 2 * k, s0, d0);
            simd::pairSumDiff16s(x + 2 * k + 32, s1, d1);
            simd::narrowSat16sJoin(lo + k, sc(s0), sc(s1), s);
            simd::narrowSat16sJoin(hi + k, sc(d0), sc(d1), s);
        });
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
    if (sf == 0) {  // plain differences and sums: 16-bit lanes throughout
        for (; i + 16 <= pairs; i += 16) simd::pairsDiffSumSat16s(lo + i, hi + i, x + 2 * i);
    } else {
        const Scale16 sc(sf);
        for (; i + 16 <= pairs; i += 16) {
            const I::R l = simd::widen16s(lo + i), h = simd::widen16s(hi + i);
            storePairs(x + 2 * i, sc(I::sub(l, h)), sc(I::add(l, h)));
        }
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
