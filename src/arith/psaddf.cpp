// Addition on floating-point vectors: real and complex, vector and constant
// forms, and the 16s sources summed in single precision.
#include "arith_i16f.h"
#include "vrx_map.h"

using namespace n0;
using namespace n0::ar;
using namespace n0::map;

namespace {

template <class T>
void addV(const T* a, const T* b, T* d, size_t n) {
    map2(a, b, d, n, [](auto x, auto y) { return simd::V<T>::add(x, y); });
}

// c is the constant as a register: one value, or an interleaved pair.
template <class T>
void addC(const T* a, typename simd::V<T>::R c, T* d, size_t n) {
    map1(a, d, n, [c](auto x) { return simd::V<T>::add(x, c); });
}

template <class T>
VrxStatus addReal(const T* s1, const T* s2, T* d, int len) {
    if (VrxStatus st = checkArgs(len, s1, s2, d)) return st;
    addV(s1, s2, d, static_cast<size_t>(len));
    return vrxOk;
}

// Complex vectors add as reals at twice the length: the length is tested
// first, then the real form tests the pointers.
template <class T, class C>
VrxStatus addCplx(const C* s1, const C* s2, C* d, int len) {
    if (len < 1) return vrxErrBadLength;
    if (VrxStatus st = checkArgs(len, s1, s2, d)) return st;
    addV(reinterpret_cast<const T*>(s1), reinterpret_cast<const T*>(s2), reinterpret_cast<T*>(d),
         2 * static_cast<size_t>(len));
    return vrxOk;
}

}  // namespace

VrxStatus N0(vrxsAdd_32f)(const Vrx32f* pSrc1, const Vrx32f* pSrc2, Vrx32f* pDst, int len) { return addReal(pSrc1, pSrc2, pDst, len); }
VrxStatus N0(vrxsAdd_64f)(const Vrx64f* pSrc1, const Vrx64f* pSrc2, Vrx64f* pDst, int len) { return addReal(pSrc1, pSrc2, pDst, len); }
VrxStatus N0(vrxsAdd_32fc)(const Vrx32fc* pSrc1, const Vrx32fc* pSrc2, Vrx32fc* pDst, int len) { return addCplx<float>(pSrc1, pSrc2, pDst, len); }
VrxStatus N0(vrxsAdd_64fc)(const Vrx64fc* pSrc1, const Vrx64fc* pSrc2, Vrx64fc* pDst, int len) { return addCplx<double>(pSrc1, pSrc2, pDst, len); }
VrxStatus N0(vrxsAdd_32f_I)(const Vrx32f* pSrc, Vrx32f* pSrcDst, int len) { return N0(vrxsAdd_32f)(pSrc, pSrcDst, pSrcDst, len); }
VrxStatus N0(vrxsAdd_64f_I)(const Vrx64f* pSrc, Vrx64f* pSrcDst, int len) { return N0(vrxsAdd_64f)(pSrc, pSrcDst, pSrcDst, len); }
VrxStatus N0(vrxsAdd_32fc_I)(const Vrx32fc* pSrc, Vrx32fc* pSrcDst, int len) { return N0(vrxsAdd_32fc)(pSrc, pSrcDst, pSrcDst, len); }
VrxStatus N0(vrxsAdd_64fc_I)(const Vrx64fc* pSrc, Vrx64fc* pSrcDst, int len) { return N0(vrxsAdd_64fc)(pSrc, pSrcDst, pSrcDst, len); }

// A zero constant is a copy; in place it leaves the vector as it is.
VrxStatus N0(vrxsAddC_32f)(const Vrx32f* pSrc, Vrx32f val, Vrx32f* pDst, int len) {
    if (VrxStatus st = checkArgs(len, pSrc, pDst)) return st;
    if (val == 0.0f) return N0(vrxsCopy_32f)(pSrc, pDst, len);
    addC<float>(pSrc, simd::V<float>::set1(val), pDst, static_cast<size_t>(len));
    return vrxOk;
}
VrxStatus N0(vrxsAddC_64f)(const Vrx64f* pSrc, Vrx64f val, Vrx64f* pDst, int len) {
    if (VrxStatus st = checkArgs(len, pSrc, pDst)) return st;
    if (val == 0.0) return N0(vrxsCopy_64f)(pSrc, pDst, len);
    addC<double>(pSrc, simd::V<double>::set1(val), pDst, static_cast<size_t>(len));
    return vrxOk;
}
VrxStatus N0(vrxsAddC_32f_I)(Vrx32f val, Vrx32f* pSrcDst, int len) {
    if (VrxStatus st = checkArgs(len, pSrcDst)) return st;
    if (val == 0.0f) return vrxOk;
    addC<float>(pSrcDst, simd::V<float>::set1(val), pSrcDst, static_cast<size_t>(len));
    return vrxOk;
}
VrxStatus N0(vrxsAddC_64f_I)(Vrx64f val, Vrx64f* pSrcDst, int len) {
    if (VrxStatus st = checkArgs(len, pSrcDst)) return st;
    if (val == 0.0) return vrxOk;
    addC<double>(pSrcDst, simd::V<double>::set1(val), pSrcDst, static_cast<size_t>(len));
    return vrxOk;
}
VrxStatus N0(vrxsAddC_32fc)(const Vrx32fc* pSrc, Vrx32fc val, Vrx32fc* pDst, int len) {
    if (VrxStatus st = checkArgs(len, pSrc, pDst)) return st;
    addC<float>(&pSrc->re, simd::V<float>::set2(val.re, val.im), &pDst->re, 2 * static_cast<size_t>(len));
    return vrxOk;
}
VrxStatus N0(vrxsAddC_64fc)(const Vrx64fc* pSrc, Vrx64fc val, Vrx64fc* pDst, int len) {
    if (VrxStatus st = checkArgs(len, pSrc, pDst)) return st;
    addC<double>(&pSrc->re, simd::V<double>::set2(val.re, val.im), &pDst->re, 2 * static_cast<size_t>(len));
    return vrxOk;
}
VrxStatus N0(vrxsAddC_32fc_I)(Vrx32fc val, Vrx32fc* pSrcDst, int len) { return N0(vrxsAddC_32fc)(pSrcDst, val, pSrcDst, len); }
VrxStatus N0(vrxsAddC_64fc_I)(Vrx64fc val, Vrx64fc* pSrcDst, int len) { return N0(vrxsAddC_64fc)(pSrcDst, val, pSrcDst, len); }

VrxStatus N0(vrxsAdd_16s32f)(const Vrx16s* pSrc1, const Vrx16s* pSrc2, Vrx32f* pDst, int len) {
    if (VrxStatus st = checkArgs(len, pSrc1, pSrc2, pDst)) return st;
    map16s32f(pSrc1, pSrc2, pDst, static_cast<size_t>(len), [](auto x, auto y) { return x + y; });
    return vrxOk;
}
