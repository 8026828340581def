// Subtraction on floating-point vectors: src2 - src1 for two vectors,
// element - val for SubC and val - element for SubCRev.
#include "arith_i16f.h"
#include "vrx_map.h"

using namespace n0;
using namespace n0::ar;
using namespace n0::map;

namespace {

// d = b - a
template <class T>
void subV(const T* a, const T* b, T* d, size_t n) {
    map2(a, b, d, n, [](auto x, auto y) { return simd::V<T>::sub(y, x); });
}

template <class T, bool Rev>
void subC(const T* a, typename simd::V<T>::R c, T* d, size_t n) {
    if constexpr (Rev)
        map1(a, d, n, [c](auto x) { return simd::V<T>::sub(c, x); });
    else
        map1(a, d, n, [c](auto x) { return simd::V<T>::sub(x, c); });
}

// Complex vectors (per 2) subtract as reals at twice the length: the
// length is tested first, then the real form tests the pointers.
template <class T, class C>
VrxStatus subVec(const C* s1, const C* s2, C* d, int len, size_t per) {
    if (per == 2 && len < 1) return vrxErrBadLength;
    if (VrxStatus st = checkArgs(len, s1, s2, d)) return st;
    subV(reinterpret_cast<const T*>(s1), reinterpret_cast<const T*>(s2), reinterpret_cast<T*>(d),
         per * static_cast<size_t>(len));
    return vrxOk;
}

template <class T, bool Rev, class C>
VrxStatus subConst(const C* s, typename simd::V<T>::R c, C* d, int len, size_t per) {
    if (VrxStatus st = checkArgs(len, s, d)) return st;
    subC<T, Rev>(reinterpret_cast<const T*>(s), c, reinterpret_cast<T*>(d), per * static_cast<size_t>(len));
    return vrxOk;
}

}  // namespace

VrxStatus N0(vrxsSub_32f)(const Vrx32f* pSrc1, const Vrx32f* pSrc2, Vrx32f* pDst, int len) { return subVec<float>(pSrc1, pSrc2, pDst, len, 1); }
VrxStatus N0(vrxsSub_64f)(const Vrx64f* pSrc1, const Vrx64f* pSrc2, Vrx64f* pDst, int len) { return subVec<double>(pSrc1, pSrc2, pDst, len, 1); }
VrxStatus N0(vrxsSub_32fc)(const Vrx32fc* pSrc1, const Vrx32fc* pSrc2, Vrx32fc* pDst, int len) { return subVec<float>(pSrc1, pSrc2, pDst, len, 2); }
VrxStatus N0(vrxsSub_64fc)(const Vrx64fc* pSrc1, const Vrx64fc* pSrc2, Vrx64fc* pDst, int len) { return subVec<double>(pSrc1, pSrc2, pDst, len, 2); }
VrxStatus N0(vrxsSub_32f_I)(const Vrx32f* pSrc, Vrx32f* pSrcDst, int len) { return N0(vrxsSub_32f)(pSrc, pSrcDst, pSrcDst, len); }
VrxStatus N0(vrxsSub_64f_I)(const Vrx64f* pSrc, Vrx64f* pSrcDst, int len) { return N0(vrxsSub_64f)(pSrc, pSrcDst, pSrcDst, len); }
VrxStatus N0(vrxsSub_32fc_I)(const Vrx32fc* pSrc, Vrx32fc* pSrcDst, int len) { return N0(vrxsSub_32fc)(pSrc, pSrcDst, pSrcDst, len); }
VrxStatus N0(vrxsSub_64fc_I)(const Vrx64fc* pSrc, Vrx64fc* pSrcDst, int len) { return N0(vrxsSub_64fc)(pSrc, pSrcDst, pSrcDst, len); }

// SubC: a zero constant is a copy, and in place nothing to do.
VrxStatus N0(vrxsSubC_32f)(const Vrx32f* pSrc, Vrx32f val, Vrx32f* pDst, int len) {
    if (VrxStatus st = checkArgs(len, pSrc, pDst)) return st;
    if (val == 0.0f) return N0(vrxsCopy_32f)(pSrc, pDst, len);
    return subConst<float, false>(pSrc, simd::V<float>::set1(val), pDst, len, 1);
}
VrxStatus N0(vrxsSubC_64f)(const Vrx64f* pSrc, Vrx64f val, Vrx64f* pDst, int len) {
    if (VrxStatus st = checkArgs(len, pSrc, pDst)) return st;
    if (val == 0.0) return N0(vrxsCopy_64f)(pSrc, pDst, len);
    return subConst<double, false>(pSrc, simd::V<double>::set1(val), pDst, len, 1);
}
VrxStatus N0(vrxsSubC_32f_I)(Vrx32f val, Vrx32f* pSrcDst, int len) {
    if (VrxStatus st = checkArgs(len, pSrcDst)) return st;
    if (val == 0.0f) return vrxOk;
    return subConst<float, false>(pSrcDst, simd::V<float>::set1(val), pSrcDst, len, 1);
}
VrxStatus N0(vrxsSubC_64f_I)(Vrx64f val, Vrx64f* pSrcDst, int len) {
    if (VrxStatus st = checkArgs(len, pSrcDst)) return st;
    if (val == 0.0) return vrxOk;
    return subConst<double, false>(pSrcDst, simd::V<double>::set1(val), pSrcDst, len, 1);
}
VrxStatus N0(vrxsSubC_32fc)(const Vrx32fc* pSrc, Vrx32fc val, Vrx32fc* pDst, int len) { return subConst<float, false>(pSrc, simd::V<float>::set2(val.re, val.im), pDst, len, 2); }
VrxStatus N0(vrxsSubC_64fc)(const Vrx64fc* pSrc, Vrx64fc val, Vrx64fc* pDst, int len) { return subConst<double, false>(pSrc, simd::V<double>::set2(val.re, val.im), pDst, len, 2); }
VrxStatus N0(vrxsSubC_32fc_I)(Vrx32fc val, Vrx32fc* pSrcDst, int len) { return N0(vrxsSubC_32fc)(pSrcDst, val, pSrcDst, len); }
VrxStatus N0(vrxsSubC_64fc_I)(Vrx64fc val, Vrx64fc* pSrcDst, int len) { return N0(vrxsSubC_64fc)(pSrcDst, val, pSrcDst, len); }

// SubCRev negates, so no constant is a shortcut.
VrxStatus N0(vrxsSubCRev_32f)(const Vrx32f* pSrc, Vrx32f val, Vrx32f* pDst, int len) { return subConst<float, true>(pSrc, simd::V<float>::set1(val), pDst, len, 1); }
VrxStatus N0(vrxsSubCRev_64f)(const Vrx64f* pSrc, Vrx64f val, Vrx64f* pDst, int len) { return subConst<double, true>(pSrc, simd::V<double>::set1(val), pDst, len, 1); }
VrxStatus N0(vrxsSubCRev_32fc)(const Vrx32fc* pSrc, Vrx32fc val, Vrx32fc* pDst, int len) { return subConst<float, true>(pSrc, simd::V<float>::set2(val.re, val.im), pDst, len, 2); }
VrxStatus N0(vrxsSubCRev_64fc)(const Vrx64fc* pSrc, Vrx64fc val, Vrx64fc* pDst, int len) { return subConst<double, true>(pSrc, simd::V<double>::set2(val.re, val.im), pDst, len, 2); }
VrxStatus N0(vrxsSubCRev_32f_I)(Vrx32f val, Vrx32f* pSrcDst, int len) { return N0(vrxsSubCRev_32f)(pSrcDst, val, pSrcDst, len); }
VrxStatus N0(vrxsSubCRev_64f_I)(Vrx64f val, Vrx64f* pSrcDst, int len) { return N0(vrxsSubCRev_64f)(pSrcDst, val, pSrcDst, len); }
VrxStatus N0(vrxsSubCRev_32fc_I)(Vrx32fc val, Vrx32fc* pSrcDst, int len) { return N0(vrxsSubCRev_32fc)(pSrcDst, val, pSrcDst, len); }
VrxStatus N0(vrxsSubCRev_64fc_I)(Vrx64fc val, Vrx64fc* pSrcDst, int len) { return N0(vrxsSubCRev_64fc)(pSrcDst, val, pSrcDst, len); }

// src2 - src1 on the widened sources
VrxStatus N0(vrxsSub_16s32f)(const Vrx16s* pSrc1, const Vrx16s* pSrc2, Vrx32f* pDst, int len) {
    if (VrxStatus st = checkArgs(len, pSrc1, pSrc2, pDst)) return st;
    map16s32f(pSrc1, pSrc2, pDst, static_cast<size_t>(len), [](auto x, auto y) { return y - x; });
    return vrxOk;
}
