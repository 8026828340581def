// Floating-point division: src2 / src1, element / val, val / element, real
// and complex. A zero vector divisor is replaced by one for the vector
// arithmetic, so no division by zero is ever executed, and its lane is then
// patched: infinity with the dividend's sign, and the pattern 0x7FBFFFFF
// (0x7FF7FFFFFFFFFFFF) for a zero or NaN dividend. Such a divisor makes the
// call return the warning; a zero constant divisor is an error.
#include "vrx_map.h"

#include <cstring>

using namespace n0;
using namespace n0::map;

namespace {

// The value of a zero divisor: infinity with the dividend's sign, the
// quiet pattern for a zero or NaN dividend.
template <class T> struct DivBits;
template <> struct DivBits<float> {
    using U = uint32_t;
    static constexpr U kSign = 0x80000000u, kInf = 0x7F800000u, kNaN = 0x7FBFFFFFu;
    static VRX_INLINE simd::V<float>::R bits(U u) { return simd::floatsOf(simd::V<U>::set1(u)); }
};
template <> struct DivBits<double> {
    using U = uint64_t;
    static constexpr U kSign = 0x8000000000000000ull, kInf = 0x7FF0000000000000ull, kNaN = 0x7FF7FFFFFFFFFFFFull;
    static VRX_INLINE simd::V<double>::R bits(U u) { return simd::doublesOf(simd::V<U>::set1(u)); }
};

template <class T>
VRX_INLINE typename simd::V<T>::R zeroDivValue(typename simd::V<T>::R b) {
    using V = simd::V<T>;
    using B = DivBits<T>;
    auto inf = V::orb(V::andb(b, B::bits(B::kSign)), B::bits(B::kInf));
    auto nanLane = V::unord(b, b) | V::eq(b, V::zero());
    return V::blend(nanLane, inf, B::bits(B::kNaN));
}

template <class T> VRX_INLINE auto cmpZero(typename simd::V<T>::R a) { return simd::V<T>::eq(a, simd::V<T>::zero()); }

// b / a lane by lane; zero divisors noted in z.
template <class T>
VRX_INLINE typename simd::V<T>::R divLanes(typename simd::V<T>::R a, typename simd::V<T>::R b, unsigned& z) {
    using V = simd::V<T>;
    auto m = cmpZero<T>(a);
    auto q = V::div(b, V::blend(m, a, V::set1(T(1))));
    if (m) {
        z |= 1;
        q = V::blend(m, q, zeroDivValue<T>(b));
    }
    return q;
}

// (a + ib) / (c + id) with y = (a, b) the dividend and x = (c, d) the
// divisor: ((ac + bd) + i(bc - ad)) / (c c + d d). A divisor with both
// parts zero divides each component by zero as the real form does.
template <class T>
VRX_INLINE typename simd::V<T>::R cdivLanes(typename simd::V<T>::R x, typename simd::V<T>::R y, unsigned& z) {
    using V = simd::V<T>;
    auto sq = V::mul(x, x);
    auto den = V::add(sq, V::swapPair(sq));
    // 1 * p1 + p2 in even lanes, 1 * p1 - p2 in odd ones, one rounding each
    auto num = V::fmsubadd(V::set1(T(1)), V::mul(y, V::dupRe(x)), V::mul(V::swapPair(y), V::dupIm(x)));
    auto m = cmpZero<T>(x) & cmpZero<T>(V::swapPair(x));
    auto q = V::div(num, V::blend(m, den, V::set1(T(1))));
    if (m) {
        z |= 1;
        q = V::blend(m, q, zeroDivValue<T>(y));
    }
    return q;
}

template <class T>
VrxStatus divReal(const T* a, const T* b, T* d, int len) {
    if (VrxStatus st = checkArgs(len, a, b, d)) return st;
    unsigned z = 0;
    map2(a, b, d, static_cast<size_t>(len), [&z](auto x, auto y) { return divLanes<T>(x, y, z); }, T(1));
    return z ? vrxWarnDivByZero : vrxOk;
}

template <class T, class C>
VrxStatus divCplx(const C* a, const C* b, C* d, int len) {
    if (VrxStatus st = checkArgs(len, a, b, d)) return st;
    unsigned z = 0;
    map2(reinterpret_cast<const T*>(a), reinterpret_cast<const T*>(b), reinterpret_cast<T*>(d), 2 * static_cast<size_t>(len),
         [&z](auto x, auto y) { return cdivLanes<T>(x, y, z); }, T(1));
    return z ? vrxWarnDivByZero : vrxOk;
}

template <class T, class C>
VrxStatus divCCplx(const C* s, C val, C* d, int len) {
    if (VrxStatus st = checkArgs(len, s, d)) return st;
    if (val.re == 0 && val.im == 0) return vrxErrDivByZero;
    unsigned z = 0;
    const auto x = simd::V<T>::set2(val.re, val.im);
    map1(reinterpret_cast<const T*>(s), reinterpret_cast<T*>(d), 2 * static_cast<size_t>(len),
         [&z, x](auto y) { return cdivLanes<T>(x, y, z); });
    return vrxOk;
}

}  // namespace

VrxStatus N0(vrxsDiv_32f)(const Vrx32f* pSrc1, const Vrx32f* pSrc2, Vrx32f* pDst, int len) { return divReal(pSrc1, pSrc2, pDst, len); }
VrxStatus N0(vrxsDiv_64f)(const Vrx64f* pSrc1, const Vrx64f* pSrc2, Vrx64f* pDst, int len) { return divReal(pSrc1, pSrc2, pDst, len); }
VrxStatus N0(vrxsDiv_32fc)(const Vrx32fc* pSrc1, const Vrx32fc* pSrc2, Vrx32fc* pDst, int len) { return divCplx<float>(pSrc1, pSrc2, pDst, len); }
VrxStatus N0(vrxsDiv_64fc)(const Vrx64fc* pSrc1, const Vrx64fc* pSrc2, Vrx64fc* pDst, int len) { return divCplx<double>(pSrc1, pSrc2, pDst, len); }
VrxStatus N0(vrxsDiv_32f_I)(const Vrx32f* pSrc, Vrx32f* pSrcDst, int len) { return N0(vrxsDiv_32f)(pSrc, pSrcDst, pSrcDst, len); }
VrxStatus N0(vrxsDiv_64f_I)(const Vrx64f* pSrc, Vrx64f* pSrcDst, int len) { return N0(vrxsDiv_64f)(pSrc, pSrcDst, pSrcDst, len); }
VrxStatus N0(vrxsDiv_32fc_I)(const Vrx32fc* pSrc, Vrx32fc* pSrcDst, int len) { return N0(vrxsDiv_32fc)(pSrc, pSrcDst, pSrcDst, len); }
VrxStatus N0(vrxsDiv_64fc_I)(const Vrx64fc* pSrc, Vrx64fc* pSrcDst, int len) { return N0(vrxsDiv_64fc)(pSrc, pSrcDst, pSrcDst, len); }

// Element / val is element times the reciprocal of val, rounded once.
VrxStatus N0(vrxsDivC_32f)(const Vrx32f* pSrc, Vrx32f val, Vrx32f* pDst, int len) {
    if (VrxStatus st = checkArgs(len, pSrc, pDst)) return st;
    if (val == 0.0f) return vrxErrDivByZero;
    return N0(vrxsMulC_32f)(pSrc, 1.0f / val, pDst, len);
}
VrxStatus N0(vrxsDivC_64f)(const Vrx64f* pSrc, Vrx64f val, Vrx64f* pDst, int len) {
    if (VrxStatus st = checkArgs(len, pSrc, pDst)) return st;
    if (val == 0.0) return vrxErrDivByZero;
    return N0(vrxsMulC_64f)(pSrc, 1.0 / val, pDst, len);
}
VrxStatus N0(vrxsDivC_32f_I)(Vrx32f val, Vrx32f* pSrcDst, int len) {
    if (VrxStatus st = checkArgs(len, pSrcDst)) return st;
    if (val == 0.0f) return vrxErrDivByZero;
    return N0(vrxsMulC_32f_I)(1.0f / val, pSrcDst, len);
}
VrxStatus N0(vrxsDivC_64f_I)(Vrx64f val, Vrx64f* pSrcDst, int len) {
    if (VrxStatus st = checkArgs(len, pSrcDst)) return st;
    if (val == 0.0) return vrxErrDivByZero;
    return N0(vrxsMulC_64f_I)(1.0 / val, pSrcDst, len);
}
VrxStatus N0(vrxsDivC_32fc)(const Vrx32fc* pSrc, Vrx32fc val, Vrx32fc* pDst, int len) { return divCCplx<float>(pSrc, val, pDst, len); }
VrxStatus N0(vrxsDivC_64fc)(const Vrx64fc* pSrc, Vrx64fc val, Vrx64fc* pDst, int len) { return divCCplx<double>(pSrc, val, pDst, len); }
VrxStatus N0(vrxsDivC_32fc_I)(Vrx32fc val, Vrx32fc* pSrcDst, int len) { return N0(vrxsDivC_32fc)(pSrcDst, val, pSrcDst, len); }
VrxStatus N0(vrxsDivC_64fc_I)(Vrx64fc val, Vrx64fc* pSrcDst, int len) { return N0(vrxsDivC_64fc)(pSrcDst, val, pSrcDst, len); }

// val / element; a zero element gives the values of a zero divisor.
VrxStatus N0(vrxsDivCRev_32f)(const Vrx32f* pSrc, Vrx32f val, Vrx32f* pDst, int len) {
    if (VrxStatus st = checkArgs(len, pSrc, pDst)) return st;
    unsigned z = 0;
    const auto v = simd::V<float>::set1(val);
    map1(pSrc, pDst, static_cast<size_t>(len), [&z, v](auto x) { return divLanes<float>(x, v, z); }, 1.0f);
    return z ? vrxWarnDivByZero : vrxOk;
}
VrxStatus N0(vrxsDivCRev_32f_I)(Vrx32f val, Vrx32f* pSrcDst, int len) { return N0(vrxsDivCRev_32f)(pSrcDst, val, pSrcDst, len); }
