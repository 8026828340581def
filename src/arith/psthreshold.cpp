// Threshold family on real vectors: limiting against a level, replacement
// by a value, the magnitude forms and the inverse. The kernels are element
// loops that the compiler turns into one compare or min/max per vector; the
// float LTAbs compares bit patterns as integers, and the 16s LTAbs works on
// unsigned words.
#include "vrx_fpu.h"
#include "vrx_map.h"

#include <string.h>

#include <type_traits>

using namespace n0;

namespace {

// Shared by every form: out-of-place (s, d) or in place (s == d).
template <class T, class F>
VRX_INLINE void mapv(const T* s, T* d, int len, F f) {
    if (s == d) {
        for (int i = 0; i < len; ++i) d[i] = f(d[i]);
    } else {
        const T* __restrict ss = s;
        T* __restrict dd = d;
        for (int i = 0; i < len; ++i) dd[i] = f(ss[i]);
    }
}

// Float kernels: one compare or min/max a vector through the shared driver,
// non-temporal beyond the cache. Each op has exactly the scalar forms'
// semantics (max(level, x) is "x < level ? level : x", NaN included).
template <class T> using Vf = simd::V<T>;

// The general walk: a round computes its four registers, then stores them.
template <class T, class Op>
VRX_INLINE void mapf(const T* s, T* d, int len, Op op) {
    using V = simd::V<T>;
    const size_t n = static_cast<size_t>(len);
    map::run<map::Store::Auto>(d, n, 2 * n * sizeof(T), [&](size_t i) { return op(V::load(s + i)); },
                               [&](size_t i, typename V::M m) { return op(V::loadm(m, s + i)); });
}

template <class T>
VRX_INLINE void threshLTKernel(const T* s, T* d, int len, T level) {
    if constexpr (std::is_floating_point_v<T>) {
        const auto l = Vf<T>::set1(level);
        mapf(s, d, len, [l](auto x) { return Vf<T>::max(l, x); });
    } else {
        mapv(s, d, len, [level](T x) { return x < level ? level : x; });
    }
}
template <class T>
VRX_INLINE void threshGTKernel(const T* s, T* d, int len, T level) {
    if constexpr (std::is_floating_point_v<T>) {
        const auto l = Vf<T>::set1(level);
        mapf(s, d, len, [l](auto x) { return Vf<T>::min(l, x); });
    } else {
        mapv(s, d, len, [level](T x) { return x > level ? level : x; });
    }
}

template <class T>
VrxStatus thresh(const T* s, T* d, int len, T level, VrxCmpOp relOp) {
    if (VrxStatus st = checkArgs(len, s, d)) return st;
    if (relOp != vrxCmpLess && relOp != vrxCmpGreater) return vrxErrBadArg;
    if (relOp == vrxCmpLess) threshLTKernel(s, d, len, level);
    else threshGTKernel(s, d, len, level);
    return vrxOk;
}

template <class T>
VrxStatus threshLT(const T* s, T* d, int len, T level) {
    if (VrxStatus st = checkArgs(len, s, d)) return st;
    threshLTKernel(s, d, len, level);
    return vrxOk;
}
template <class T>
VrxStatus threshGT(const T* s, T* d, int len, T level) {
    if (VrxStatus st = checkArgs(len, s, d)) return st;
    threshGTKernel(s, d, len, level);
    return vrxOk;
}

template <class T>
VrxStatus threshLTVal(const T* s, T* d, int len, T level, T value) {
    if (VrxStatus st = checkArgs(len, s, d)) return st;
    if constexpr (std::is_floating_point_v<T>) {
        using F = Vf<T>;
        const auto l = F::set1(level), v = F::set1(value);
        mapf(s, d, len, [=](auto x) { return F::blend(F::lt(x, l), x, v); });
    } else {
        mapv(s, d, len, [level, value](T x) { return x < level ? value : x; });
    }
    return vrxOk;
}
template <class T>
VrxStatus threshGTVal(const T* s, T* d, int len, T level, T value) {
    if (VrxStatus st = checkArgs(len, s, d)) return st;
    if constexpr (std::is_floating_point_v<T>) {
        using F = Vf<T>;
        const auto l = F::set1(level), v = F::set1(value);
        mapf(s, d, len, [=](auto x) { return F::blend(F::lt(l, x), x, v); });
    } else {
        mapv(s, d, len, [level, value](T x) { return x > level ? value : x; });
    }
    return vrxOk;
}

template <class T>
VrxStatus threshLTValGTVal(const T* s, T* d, int len, T levelLT, T valueLT, T levelGT, T valueGT) {
    if (VrxStatus st = checkArgs(len, s, d)) return st;
    if (levelLT > levelGT) return vrxErrThreshOrder;
    if constexpr (std::is_floating_point_v<T>) {
        using F = Vf<T>;
        const auto l1 = F::set1(levelLT), v1 = F::set1(valueLT), l2 = F::set1(levelGT), v2 = F::set1(valueGT);
        mapf(s, d, len, [=](auto x) { return F::blend(F::lt(x, l1), F::blend(F::lt(l2, x), x, v2), v1); });
    } else {
        mapv(s, d, len, [=](T x) { return x < levelLT ? valueLT : (x > levelGT ? valueGT : x); });
    }
    return vrxOk;
}

// The magnitude of an integer, wide enough for the most negative value.
template <class T> using Wide = std::conditional_t<sizeof(T) == 2, int32_t, int64_t>;

template <class T>
VrxStatus threshLTAbsVal(const T* s, T* d, int len, T level, T value) {
    if (VrxStatus st = checkArgs(len, s, d)) return st;
    if constexpr (std::is_floating_point_v<T>) {
        using F = Vf<T>;
        const auto l = F::set1(level), v = F::set1(value);
        mapf(s, d, len, [=](auto x) { return F::blend(F::lt(F::abs(x), l), x, v); });
    } else {
        mapv(s, d, len, [level, value](T x) {
            Wide<T> a = x < 0 ? -Wide<T>(x) : Wide<T>(x);
            return a < level ? value : x;
        });
    }
    return vrxOk;
}

template <class T>
VrxStatus threshGTAbs(const T* s, T* d, int len, T level) {
    if (VrxStatus st = checkArgs(len, s, d)) return st;
    if (level < 0) return vrxErrThreshNeg;
    const T neg = static_cast<T>(-level);
    if constexpr (std::is_floating_point_v<T>) {
        using F = Vf<T>;
        const auto l = F::set1(level), n = F::set1(neg);
        mapf(s, d, len, [=](auto x) { return F::max(n, F::min(l, x)); });
    } else {
        mapv(s, d, len, [level, neg](T x) {
            T t = x > level ? level : x;
            return t < neg ? neg : t;
        });
    }
    return vrxOk;
}

// LTAbs on floats: the magnitude's bit pattern is raised to the level's and
// the sign put back, so minus zero becomes minus level and a NaN stays.
template <class T, class U>
VrxStatus threshLTAbsFloat(const T* s, T* d, int len, T level) {
    if (VrxStatus st = checkArgs(len, s, d)) return st;
    if (level < 0) return vrxErrThreshNeg;
    constexpr U signBit = U(1) << (8 * sizeof(U) - 1);
    U lb;
    memcpy(&lb, &level, sizeof lb);
    lb &= ~signBit;
    const U* us = reinterpret_cast<const U*>(s);
    U* ud = reinterpret_cast<U*>(d);
    mapv(us, ud, len, [lb](U x) {
        U a = x & ~signBit;
        return (a < lb ? lb : a) | (x & signBit);
    });
    return vrxOk;
}

VrxStatus threshLTAbs32s(const Vrx32s* s, Vrx32s* d, int len, Vrx32s level) {
    if (VrxStatus st = checkArgs(len, s, d)) return st;
    if (level < 0) return vrxErrThreshNeg;
    mapv(s, d, len, [level](Vrx32s x) {
        if (x >= 0) return x < level ? level : x;
        return x > -level ? -level : x;
    });
    return vrxOk;
}

// LTAbs on words: with L the level and M = 65536 - L, max(x, L) and then
// min(., M) as unsigned words give L for 0..L-1 and -L for -L+1..-1.
VrxStatus threshLTAbs16s(const Vrx16s* s, Vrx16s* d, int len, Vrx16s level) {
    if (level == 0) return N0(vrxsCopy_16s)(s, d, len);
    if (VrxStatus st = checkArgs(len, s, d)) return st;
    if (level < 0) return vrxErrThreshNeg;
    const uint16_t L = static_cast<uint16_t>(level), M = static_cast<uint16_t>(65536 - level);
    mapv(reinterpret_cast<const uint16_t*>(s), reinterpret_cast<uint16_t*>(d), len, [L, M](uint16_t x) {
        uint16_t t = x < L ? L : x;
        return t > M ? M : t;
    });
    return vrxOk;
}

// ------------------------------------------------------------- inversion
// 1/v with v = x whose magnitude is first raised to the level. A round of
// lanes takes the approximate reciprocal with Newton steps when v * y is
// near 1 in every lane; otherwise (zero, infinity, NaN, a result below the
// normal range) the round is divided exactly. Returns the zero-divide flag.
template <class T>
VRX_INLINE typename simd::V<T>::R raiseAbs(typename simd::V<T>::R x, typename simd::V<T>::R level) {
    using V = simd::V<T>;
    return V::orb(V::max(level, V::abs(x)), V::andb(x, V::set1(T(-0.0))));  // a NaN stays
}

VRX_INLINE simd::V<float>::R invLanes(simd::V<float>::R v) {
    using V = simd::V<float>;
    auto y = V::rcp14(v);
    auto t = V::mul(v, y);
    if ((V::gt(t, V::set1(0.5f)) & V::lt(t, V::set1(1.5f))) != V::kAll) return V::div(V::set1(1.0f), v);
    return V::mul(y, V::sub(V::set1(2.0f), t));
}
// two steps bring the 14-bit estimate to full double precision
VRX_INLINE simd::V<double>::R invLanes(simd::V<double>::R v) {
    using V = simd::V<double>;
    auto y = V::rcp14(v);
    auto t = V::mul(v, y);
    if ((V::gt(t, V::set1(0.5)) & V::lt(t, V::set1(1.5))) != V::kAll) return V::div(V::set1(1.0), v);
    const auto two = V::set1(2.0);
    y = V::mul(y, V::sub(two, t));
    return V::mul(y, V::sub(two, V::mul(v, y)));
}

// Lanes past the end read 1, whose reciprocal is on the fast path.
template <class T>
VrxStatus threshLTInv(const T* s, T* d, int len, T level) {
    if (VrxStatus st = checkArgs(len, s, d)) return st;
    if (level < 0) return vrxErrThreshNeg;
    const unsigned saved = getMxcsr();
    setMxcsr((saved | kMxcsrMasks) & ~kMxcsrZeroDiv);
    const bool zero = level == 0;
    const auto lv = simd::V<T>::set1(level);
    map::map1(s, d, static_cast<size_t>(len), [zero, lv](auto x) { return invLanes(zero ? x : raiseAbs<T>(x, lv)); }, T(1));
    const bool zeroDiv = (getMxcsr() & kMxcsrZeroDiv) != 0;
    setMxcsr(saved);
    return (zero && zeroDiv) ? vrxWarnInvZero : vrxOk;
}

}  // namespace

// --------------------------------------------------------------- exports

// relOp forms
VrxStatus N0(vrxsThreshold_16s)(const Vrx16s* pSrc, Vrx16s* pDst, int len, Vrx16s level, VrxCmpOp relOp) { return thresh<Vrx16s>(pSrc, pDst, len, level, relOp); }
VrxStatus N0(vrxsThreshold_16s_I)(Vrx16s* pSrcDst, int len, Vrx16s level, VrxCmpOp relOp) { return thresh<Vrx16s>(pSrcDst, pSrcDst, len, level, relOp); }
VrxStatus N0(vrxsThreshold_32f)(const Vrx32f* pSrc, Vrx32f* pDst, int len, Vrx32f level, VrxCmpOp relOp) { return thresh<Vrx32f>(pSrc, pDst, len, level, relOp); }
VrxStatus N0(vrxsThreshold_32f_I)(Vrx32f* pSrcDst, int len, Vrx32f level, VrxCmpOp relOp) { return thresh<Vrx32f>(pSrcDst, pSrcDst, len, level, relOp); }
VrxStatus N0(vrxsThreshold_64f)(const Vrx64f* pSrc, Vrx64f* pDst, int len, Vrx64f level, VrxCmpOp relOp) { return thresh<Vrx64f>(pSrc, pDst, len, level, relOp); }
VrxStatus N0(vrxsThreshold_64f_I)(Vrx64f* pSrcDst, int len, Vrx64f level, VrxCmpOp relOp) { return thresh<Vrx64f>(pSrcDst, pSrcDst, len, level, relOp); }

// LT and GT: 16s and 64f forward to the relOp form; 32s and 32f have their own
VrxStatus N0(vrxsThreshold_LT_16s)(const Vrx16s* s, Vrx16s* d, int len, Vrx16s level) { return N0(vrxsThreshold_16s)(s, d, len, level, vrxCmpLess); }
VrxStatus N0(vrxsThreshold_GT_16s)(const Vrx16s* s, Vrx16s* d, int len, Vrx16s level) { return N0(vrxsThreshold_16s)(s, d, len, level, vrxCmpGreater); }
VrxStatus N0(vrxsThreshold_LT_16s_I)(Vrx16s* d, int len, Vrx16s level) { return N0(vrxsThreshold_16s_I)(d, len, level, vrxCmpLess); }
VrxStatus N0(vrxsThreshold_GT_16s_I)(Vrx16s* d, int len, Vrx16s level) { return N0(vrxsThreshold_16s_I)(d, len, level, vrxCmpGreater); }
VrxStatus N0(vrxsThreshold_LT_64f)(const Vrx64f* s, Vrx64f* d, int len, Vrx64f level) { return N0(vrxsThreshold_64f)(s, d, len, level, vrxCmpLess); }
VrxStatus N0(vrxsThreshold_GT_64f)(const Vrx64f* s, Vrx64f* d, int len, Vrx64f level) { return N0(vrxsThreshold_64f)(s, d, len, level, vrxCmpGreater); }
VrxStatus N0(vrxsThreshold_LT_64f_I)(Vrx64f* d, int len, Vrx64f level) { return N0(vrxsThreshold_64f_I)(d, len, level, vrxCmpLess); }
VrxStatus N0(vrxsThreshold_GT_64f_I)(Vrx64f* d, int len, Vrx64f level) { return N0(vrxsThreshold_64f_I)(d, len, level, vrxCmpGreater); }
VrxStatus N0(vrxsThreshold_LT_32f)(const Vrx32f* s, Vrx32f* d, int len, Vrx32f level) { return threshLT(s, d, len, level); }
VrxStatus N0(vrxsThreshold_GT_32f)(const Vrx32f* s, Vrx32f* d, int len, Vrx32f level) { return threshGT(s, d, len, level); }
VrxStatus N0(vrxsThreshold_LT_32f_I)(Vrx32f* d, int len, Vrx32f level) { return N0(vrxsThreshold_32f_I)(d, len, level, vrxCmpLess); }
VrxStatus N0(vrxsThreshold_GT_32f_I)(Vrx32f* d, int len, Vrx32f level) { return N0(vrxsThreshold_32f_I)(d, len, level, vrxCmpGreater); }
VrxStatus N0(vrxsThreshold_LT_32s)(const Vrx32s* s, Vrx32s* d, int len, Vrx32s level) { return threshLT(s, d, len, level); }
VrxStatus N0(vrxsThreshold_GT_32s)(const Vrx32s* s, Vrx32s* d, int len, Vrx32s level) { return threshGT(s, d, len, level); }
VrxStatus N0(vrxsThreshold_LT_32s_I)(Vrx32s* d, int len, Vrx32s level) { return threshLT<Vrx32s>(d, d, len, level); }
VrxStatus N0(vrxsThreshold_GT_32s_I)(Vrx32s* d, int len, Vrx32s level) { return threshGT<Vrx32s>(d, d, len, level); }

VrxStatus N0(vrxsThreshold_LTVal_16s)(const Vrx16s* pSrc, Vrx16s* pDst, int len, Vrx16s level, Vrx16s value) { return threshLTVal<Vrx16s>(pSrc, pDst, len, level, value); }
VrxStatus N0(vrxsThreshold_LTVal_16s_I)(Vrx16s* pSrcDst, int len, Vrx16s level, Vrx16s value) { return threshLTVal<Vrx16s>(pSrcDst, pSrcDst, len, level, value); }
VrxStatus N0(vrxsThreshold_GTVal_16s)(const Vrx16s* pSrc, Vrx16s* pDst, int len, Vrx16s level, Vrx16s value) { return threshGTVal<Vrx16s>(pSrc, pDst, len, level, value); }
VrxStatus N0(vrxsThreshold_GTVal_16s_I)(Vrx16s* pSrcDst, int len, Vrx16s level, Vrx16s value) { return threshGTVal<Vrx16s>(pSrcDst, pSrcDst, len, level, value); }
VrxStatus N0(vrxsThreshold_LTVal_32f)(const Vrx32f* pSrc, Vrx32f* pDst, int len, Vrx32f level, Vrx32f value) { return threshLTVal<Vrx32f>(pSrc, pDst, len, level, value); }
VrxStatus N0(vrxsThreshold_LTVal_32f_I)(Vrx32f* pSrcDst, int len, Vrx32f level, Vrx32f value) { return threshLTVal<Vrx32f>(pSrcDst, pSrcDst, len, level, value); }
VrxStatus N0(vrxsThreshold_GTVal_32f)(const Vrx32f* pSrc, Vrx32f* pDst, int len, Vrx32f level, Vrx32f value) { return threshGTVal<Vrx32f>(pSrc, pDst, len, level, value); }
VrxStatus N0(vrxsThreshold_GTVal_32f_I)(Vrx32f* pSrcDst, int len, Vrx32f level, Vrx32f value) { return threshGTVal<Vrx32f>(pSrcDst, pSrcDst, len, level, value); }
VrxStatus N0(vrxsThreshold_LTVal_64f)(const Vrx64f* pSrc, Vrx64f* pDst, int len, Vrx64f level, Vrx64f value) { return threshLTVal<Vrx64f>(pSrc, pDst, len, level, value); }
VrxStatus N0(vrxsThreshold_LTVal_64f_I)(Vrx64f* pSrcDst, int len, Vrx64f level, Vrx64f value) { return threshLTVal<Vrx64f>(pSrcDst, pSrcDst, len, level, value); }
VrxStatus N0(vrxsThreshold_GTVal_64f)(const Vrx64f* pSrc, Vrx64f* pDst, int len, Vrx64f level, Vrx64f value) { return threshGTVal<Vrx64f>(pSrc, pDst, len, level, value); }
VrxStatus N0(vrxsThreshold_GTVal_64f_I)(Vrx64f* pSrcDst, int len, Vrx64f level, Vrx64f value) { return threshGTVal<Vrx64f>(pSrcDst, pSrcDst, len, level, value); }

VrxStatus N0(vrxsThreshold_LTValGTVal_16s)(const Vrx16s* pSrc, Vrx16s* pDst, int len, Vrx16s levelLT, Vrx16s valueLT, Vrx16s levelGT, Vrx16s valueGT) { return threshLTValGTVal<Vrx16s>(pSrc, pDst, len, levelLT, valueLT, levelGT, valueGT); }
VrxStatus N0(vrxsThreshold_LTValGTVal_16s_I)(Vrx16s* pSrcDst, int len, Vrx16s levelLT, Vrx16s valueLT, Vrx16s levelGT, Vrx16s valueGT) { return threshLTValGTVal<Vrx16s>(pSrcDst, pSrcDst, len, levelLT, valueLT, levelGT, valueGT); }
VrxStatus N0(vrxsThreshold_LTAbsVal_16s)(const Vrx16s* pSrc, Vrx16s* pDst, int len, Vrx16s level, Vrx16s value) { return threshLTAbsVal<Vrx16s>(pSrc, pDst, len, level, value); }
VrxStatus N0(vrxsThreshold_LTAbsVal_16s_I)(Vrx16s* pSrcDst, int len, Vrx16s level, Vrx16s value) { return threshLTAbsVal<Vrx16s>(pSrcDst, pSrcDst, len, level, value); }
VrxStatus N0(vrxsThreshold_GTAbs_16s)(const Vrx16s* pSrc, Vrx16s* pDst, int len, Vrx16s level) { return threshGTAbs<Vrx16s>(pSrc, pDst, len, level); }
VrxStatus N0(vrxsThreshold_GTAbs_16s_I)(Vrx16s* pSrcDst, int len, Vrx16s level) { return threshGTAbs<Vrx16s>(pSrcDst, pSrcDst, len, level); }
VrxStatus N0(vrxsThreshold_LTValGTVal_32s)(const Vrx32s* pSrc, Vrx32s* pDst, int len, Vrx32s levelLT, Vrx32s valueLT, Vrx32s levelGT, Vrx32s valueGT) { return threshLTValGTVal<Vrx32s>(pSrc, pDst, len, levelLT, valueLT, levelGT, valueGT); }
VrxStatus N0(vrxsThreshold_LTValGTVal_32s_I)(Vrx32s* pSrcDst, int len, Vrx32s levelLT, Vrx32s valueLT, Vrx32s levelGT, Vrx32s valueGT) { return threshLTValGTVal<Vrx32s>(pSrcDst, pSrcDst, len, levelLT, valueLT, levelGT, valueGT); }
VrxStatus N0(vrxsThreshold_LTAbsVal_32s)(const Vrx32s* pSrc, Vrx32s* pDst, int len, Vrx32s level, Vrx32s value) { return threshLTAbsVal<Vrx32s>(pSrc, pDst, len, level, value); }
VrxStatus N0(vrxsThreshold_LTAbsVal_32s_I)(Vrx32s* pSrcDst, int len, Vrx32s level, Vrx32s value) { return threshLTAbsVal<Vrx32s>(pSrcDst, pSrcDst, len, level, value); }
VrxStatus N0(vrxsThreshold_GTAbs_32s)(const Vrx32s* pSrc, Vrx32s* pDst, int len, Vrx32s level) { return threshGTAbs<Vrx32s>(pSrc, pDst, len, level); }
VrxStatus N0(vrxsThreshold_GTAbs_32s_I)(Vrx32s* pSrcDst, int len, Vrx32s level) { return threshGTAbs<Vrx32s>(pSrcDst, pSrcDst, len, level); }
VrxStatus N0(vrxsThreshold_LTValGTVal_32f)(const Vrx32f* pSrc, Vrx32f* pDst, int len, Vrx32f levelLT, Vrx32f valueLT, Vrx32f levelGT, Vrx32f valueGT) { return threshLTValGTVal<Vrx32f>(pSrc, pDst, len, levelLT, valueLT, levelGT, valueGT); }
VrxStatus N0(vrxsThreshold_LTValGTVal_32f_I)(Vrx32f* pSrcDst, int len, Vrx32f levelLT, Vrx32f valueLT, Vrx32f levelGT, Vrx32f valueGT) { return threshLTValGTVal<Vrx32f>(pSrcDst, pSrcDst, len, levelLT, valueLT, levelGT, valueGT); }
VrxStatus N0(vrxsThreshold_LTAbsVal_32f)(const Vrx32f* pSrc, Vrx32f* pDst, int len, Vrx32f level, Vrx32f value) { return threshLTAbsVal<Vrx32f>(pSrc, pDst, len, level, value); }
VrxStatus N0(vrxsThreshold_LTAbsVal_32f_I)(Vrx32f* pSrcDst, int len, Vrx32f level, Vrx32f value) { return threshLTAbsVal<Vrx32f>(pSrcDst, pSrcDst, len, level, value); }
VrxStatus N0(vrxsThreshold_GTAbs_32f)(const Vrx32f* pSrc, Vrx32f* pDst, int len, Vrx32f level) { return threshGTAbs<Vrx32f>(pSrc, pDst, len, level); }
VrxStatus N0(vrxsThreshold_GTAbs_32f_I)(Vrx32f* pSrcDst, int len, Vrx32f level) { return threshGTAbs<Vrx32f>(pSrcDst, pSrcDst, len, level); }
VrxStatus N0(vrxsThreshold_LTValGTVal_64f)(const Vrx64f* pSrc, Vrx64f* pDst, int len, Vrx64f levelLT, Vrx64f valueLT, Vrx64f levelGT, Vrx64f valueGT) { return threshLTValGTVal<Vrx64f>(pSrc, pDst, len, levelLT, valueLT, levelGT, valueGT); }
VrxStatus N0(vrxsThreshold_LTValGTVal_64f_I)(Vrx64f* pSrcDst, int len, Vrx64f levelLT, Vrx64f valueLT, Vrx64f levelGT, Vrx64f valueGT) { return threshLTValGTVal<Vrx64f>(pSrcDst, pSrcDst, len, levelLT, valueLT, levelGT, valueGT); }
VrxStatus N0(vrxsThreshold_LTAbsVal_64f)(const Vrx64f* pSrc, Vrx64f* pDst, int len, Vrx64f level, Vrx64f value) { return threshLTAbsVal<Vrx64f>(pSrc, pDst, len, level, value); }
VrxStatus N0(vrxsThreshold_LTAbsVal_64f_I)(Vrx64f* pSrcDst, int len, Vrx64f level, Vrx64f value) { return threshLTAbsVal<Vrx64f>(pSrcDst, pSrcDst, len, level, value); }
VrxStatus N0(vrxsThreshold_GTAbs_64f)(const Vrx64f* pSrc, Vrx64f* pDst, int len, Vrx64f level) { return threshGTAbs<Vrx64f>(pSrc, pDst, len, level); }
VrxStatus N0(vrxsThreshold_GTAbs_64f_I)(Vrx64f* pSrcDst, int len, Vrx64f level) { return threshGTAbs<Vrx64f>(pSrcDst, pSrcDst, len, level); }

VrxStatus N0(vrxsThreshold_LTAbs_16s)(const Vrx16s* pSrc, Vrx16s* pDst, int len, Vrx16s level) { return threshLTAbs16s(pSrc, pDst, len, level); }
VrxStatus N0(vrxsThreshold_LTAbs_16s_I)(Vrx16s* pSrcDst, int len, Vrx16s level) { return threshLTAbs16s(pSrcDst, pSrcDst, len, level); }
VrxStatus N0(vrxsThreshold_LTAbs_32s)(const Vrx32s* pSrc, Vrx32s* pDst, int len, Vrx32s level) { return threshLTAbs32s(pSrc, pDst, len, level); }
VrxStatus N0(vrxsThreshold_LTAbs_32s_I)(Vrx32s* pSrcDst, int len, Vrx32s level) { return threshLTAbs32s(pSrcDst, pSrcDst, len, level); }
VrxStatus N0(vrxsThreshold_LTAbs_32f)(const Vrx32f* pSrc, Vrx32f* pDst, int len, Vrx32f level) { return threshLTAbsFloat<Vrx32f, uint32_t>(pSrc, pDst, len, level); }
VrxStatus N0(vrxsThreshold_LTAbs_32f_I)(Vrx32f* pSrcDst, int len, Vrx32f level) { return threshLTAbsFloat<Vrx32f, uint32_t>(pSrcDst, pSrcDst, len, level); }
VrxStatus N0(vrxsThreshold_LTAbs_64f)(const Vrx64f* pSrc, Vrx64f* pDst, int len, Vrx64f level) { return threshLTAbsFloat<Vrx64f, uint64_t>(pSrc, pDst, len, level); }
VrxStatus N0(vrxsThreshold_LTAbs_64f_I)(Vrx64f* pSrcDst, int len, Vrx64f level) { return threshLTAbsFloat<Vrx64f, uint64_t>(pSrcDst, pSrcDst, len, level); }
VrxStatus N0(vrxsThreshold_LTInv_32f)(const Vrx32f* pSrc, Vrx32f* pDst, int len, Vrx32f level) { return threshLTInv<Vrx32f>(pSrc, pDst, len, level); }
VrxStatus N0(vrxsThreshold_LTInv_32f_I)(Vrx32f* pSrcDst, int len, Vrx32f level) { return threshLTInv<Vrx32f>(pSrcDst, pSrcDst, len, level); }
VrxStatus N0(vrxsThreshold_LTInv_64f)(const Vrx64f* pSrc, Vrx64f* pDst, int len, Vrx64f level) { return threshLTInv<Vrx64f>(pSrc, pDst, len, level); }
VrxStatus N0(vrxsThreshold_LTInv_64f_I)(Vrx64f* pSrcDst, int len, Vrx64f level) { return threshLTInv<Vrx64f>(pSrcDst, pSrcDst, len, level); }
