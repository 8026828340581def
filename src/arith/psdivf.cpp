// Floating-point division: src2 / src1, element / val, val / element, real
// and complex. A zero vector divisor is replaced by one for the vector
// arithmetic, so no division by zero is ever executed, and its lane is then
// patched: infinity with the dividend's sign, and the pattern 0x7FBFFFFF
// (0x7FF7FFFFFFFFFFFF) for a zero or NaN dividend. Such a divisor makes the
// call return the warning; a zero constant divisor is an error.
#include "arith_simd.h"

#include <cstring>

using namespace n0;
using namespace n0::ar;

namespace {

template <class T> struct DivBits;
template <> struct DivBits<float> {
    static __m512 zeroDivValue(__m512 b) {
        const __m512i sign = _mm512_and_si512(_mm512_castps_si512(b), _mm512_set1_epi32(int(0x80000000u)));
        __m512 inf = _mm512_castsi512_ps(_mm512_or_si512(sign, _mm512_set1_epi32(0x7F800000)));
        __mmask16 nanLane = _mm512_cmp_ps_mask(b, b, _CMP_UNORD_Q) | _mm512_cmp_ps_mask(b, _mm512_setzero_ps(), _CMP_EQ_OQ);
        return _mm512_mask_blend_ps(nanLane, inf, _mm512_castsi512_ps(_mm512_set1_epi32(0x7FBFFFFF)));
    }
};
template <> struct DivBits<double> {
    static __m512d zeroDivValue(__m512d b) {
        const __m512i sign = _mm512_and_si512(_mm512_castpd_si512(b), _mm512_set1_epi64(int64_t(0x8000000000000000ull)));
        __m512d inf = _mm512_castsi512_pd(_mm512_or_si512(sign, _mm512_set1_epi64(0x7FF0000000000000ll)));
        __mmask8 nanLane = _mm512_cmp_pd_mask(b, b, _CMP_UNORD_Q) | _mm512_cmp_pd_mask(b, _mm512_setzero_pd(), _CMP_EQ_OQ);
        return _mm512_mask_blend_pd(nanLane, inf, _mm512_castsi512_pd(_mm512_set1_epi64(0x7FF7FFFFFFFFFFFFll)));
    }
};

template <class T> VRX_INLINE auto cmpZero(typename Vf<T>::R a) {
    if constexpr (sizeof(T) == 4) return _mm512_cmp_ps_mask(a, _mm512_setzero_ps(), _CMP_EQ_OQ);
    else return _mm512_cmp_pd_mask(a, _mm512_setzero_pd(), _CMP_EQ_OQ);
}
template <class T> VRX_INLINE typename Vf<T>::R blend(typename Vf<T>::M m, typename Vf<T>::R a, typename Vf<T>::R b) {
    if constexpr (sizeof(T) == 4) return _mm512_mask_blend_ps(m, a, b);
    else return _mm512_mask_blend_pd(m, a, b);
}
template <class T> VRX_INLINE typename Vf<T>::R fmsubadd1(typename Vf<T>::R p1, typename Vf<T>::R p2) {
    // even lanes p1 + p2, odd lanes p1 - p2, one rounding each
    if constexpr (sizeof(T) == 4) return _mm512_fmsubadd_ps(_mm512_set1_ps(1.0f), p1, p2);
    else return _mm512_fmsubadd_pd(_mm512_set1_pd(1.0), p1, p2);
}

// b / a lane by lane; zero divisors noted in z.
template <class T>
VRX_INLINE typename Vf<T>::R divLanes(typename Vf<T>::R a, typename Vf<T>::R b, unsigned& z) {
    using V = Vf<T>;
    auto m = cmpZero<T>(a);
    auto q = V::div(b, blend<T>(m, a, V::set1(T(1))));
    if (m) {
        z |= 1;
        q = blend<T>(m, q, DivBits<T>::zeroDivValue(b));
    }
    return q;
}

// (a + ib) / (c + id) with y = (a, b) the dividend and x = (c, d) the
// divisor: ((ac + bd) + i(bc - ad)) / (c c + d d). A divisor with both
// parts zero divides each component by zero as the real form does.
template <class T>
VRX_INLINE typename Vf<T>::R cdivLanes(typename Vf<T>::R x, typename Vf<T>::R y, unsigned& z) {
    using V = Vf<T>;
    auto sq = V::mul(x, x);
    auto den = V::add(sq, V::swapPair(sq));
    auto num = fmsubadd1<T>(V::mul(y, V::dupRe(x)), V::mul(V::swapPair(y), V::dupIm(x)));
    auto m = cmpZero<T>(x) & cmpZero<T>(V::swapPair(x));
    auto q = V::div(num, blend<T>(m, den, V::set1(T(1))));
    if (m) {
        z |= 1;
        q = blend<T>(m, q, DivBits<T>::zeroDivValue(y));
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
    const auto x = Vf<T>::set2(val.re, val.im);
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
    const __m512 v = _mm512_set1_ps(val);
    map1(pSrc, pDst, static_cast<size_t>(len), [&z, v](auto x) { return divLanes<float>(x, v, z); }, 1.0f);
    return z ? vrxWarnDivByZero : vrxOk;
}
VrxStatus N0(vrxsDivCRev_32f_I)(Vrx32f val, Vrx32f* pSrcDst, int len) { return N0(vrxsDivCRev_32f)(pSrcDst, val, pSrcDst, len); }
