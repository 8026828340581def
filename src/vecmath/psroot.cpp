// Powers and roots: Sqr, Sqrt, Cubrt, Abs, AddProduct.
// Plain loops stay loops: no calls into the C library for fills.
#pragma GCC optimize("no-tree-loop-distribute-patterns")
#include <math.h>

#include "vm_abs.h"
#include "vm_common.h"
#include "vm_int.h"

using namespace n0::vm;
using n0::checkArgs;

namespace {

// ------------------------------------------------------------------ Sqr
// (a + ib)^2 = (a - b)(a + b) + i 2ab, per (re, im) pair of lanes
VRX_INLINE D8 sqrPairs(D8 v) {
    D8 s = D::swapPair(v);
    D8 re = D::mul(D::sub(v, s), D::add(v, s));
    D8 im = D::mul(D::add(v, v), s);
    return D::blend(0xAA, re, im);  // odd lanes: imaginary parts
}

template <class T, class W>
VrxStatus sqrInt(const T* s, T* d, int len, int sf) {
    return trapped(len, {s, d}, [&] {
        for (int i = 0; i < len; ++i) d[i] = scaleExact<T>(static_cast<int64_t>(static_cast<W>(s[i]) * s[i]), sf);
    });
}

// ------------------------------------------------------------------ roots
// principal square root of a + ib
VRX_INLINE void csqrtD(double a, double b, double* re, double* im) {
    if (__builtin_isinf(b)) {
        *re = __builtin_inf();
        *im = b;
        return;
    }
    if (a == 0.0 && b == 0.0) {
        *re = 0.0;
        *im = b;
        return;
    }
    double m = hypotAny(a, b);
    if (a >= 0.0) {
        double t = sqrt(0.5 * m + 0.5 * a);
        *re = t;
        *im = b / (t + t);
    } else {
        double t = sqrt(0.5 * m - 0.5 * a);
        *re = fabs(b) / (t + t);
        *im = __builtin_copysign(t, b);
    }
}

// cube root within one ulp; exact for exact cubes in practice
double cbrtD(double x) {
    if (x == 0.0 || !__builtin_isfinite(x)) return x + x;
    double ax = fabs(x), post = 1.0;
    if (ax < 0x1p-900) {
        ax *= 0x1p300;
        post = 0x1p-100;
    }
    uint64_t b = __builtin_bit_cast(uint64_t, ax);
    uint32_t hi = static_cast<uint32_t>(b >> 32) / 3 + 715094163u;
    double y = __builtin_bit_cast(double, static_cast<uint64_t>(hi) << 32);
    for (int k = 0; k < 4; ++k) y = y - (y * y * y - ax) / (3.0 * y * y);
    double y2 = y * y, e2 = __builtin_fma(y, y, -y2);
    double y3 = y2 * y, e3 = __builtin_fma(y2, y, -y3);
    double res = (y3 - ax) + (e3 + e2 * y);
    y = y - res / (3.0 * y2);
    return __builtin_copysign(y * post, x);
}

template <class T, class D>
VrxStatus sqrtInt(const T* s, D* d, int len, int sf) {
    return trapped(len, {s, d}, [&] {
        bool neg = false;
        for (int i = 0; i < len; ++i) {
            if (s[i] < 0) {
                neg = true;
                d[i] = 0;
            } else {
                d[i] = roundSat<D>(scaleBy(sqrt(static_cast<double>(s[i])), sf));
            }
        }
        return neg ? vrxWarnSqrtNegArg : vrxOk;
    });
}

// Float families: native lanes, complex ones (pairs of lanes) of single
// precision computed in double.
template <class T>
VRX_INLINE VrxStatus sqrF(const T* s, T* d, int len) {
    using V = simd::V<T>;
    return trapped(len, {s, d}, [&] { lanes<Native>(Map{[](typename V::R v) { return V::mul(v, v); }}, {s}, {d}, len); });
}
template <class C>
VRX_INLINE VrxStatus sqrC(const C* s, C* d, int len) {
    using W = std::conditional_t<sizeof(s->re) == 4, ViaDouble, Native>;
    return trapped(len, {s, d}, [&] { lanes<W>(Map{[](D8 v) { return sqrPairs(v); }}, {&s->re}, {&d->re}, 2 * len); });
}

// Negative elements are found by the invalid flag of the square root.
template <class T>
VRX_INLINE VrxStatus sqrtF(const T* s, T* d, int len) {
    using V = simd::V<T>;
    if (VrxStatus st = checkArgs(len, s, d)) return st;
    StickyFlagGuard guard;
    lanes<Native>(Map{[](typename V::R v) { return V::sqrt(v); }}, {s}, {d}, len);
    return (guard.flags() & n0::kMxcsrInvalid) ? vrxWarnSqrtNegArg : vrxOk;
}
template <class C>
VRX_INLINE VrxStatus sqrtC(const C* s, C* d, int len) {
    using T = decltype(s->re);
    return trapped(len, {s, d}, [&] {
        for (int i = 0; i < len; ++i) {
            double re, im;
            csqrtD(s[i].re, s[i].im, &re, &im);
            d[i].re = narrow<T>(re);
            d[i].im = narrow<T>(im);
        }
    });
}

// Table-free Newton kernels; invalid and underflow flags that they leave
// are cleared.
template <class T>
VRX_INLINE VrxStatus cubrtF(const T* s, T* d, int len) {
    return trapped(len, {s, d}, [&] {
        for (int i = 0; i < len; ++i) d[i] = narrow<T>(cbrtD(s[i]));
        n0::clearInvalidUnderflow();
    });
}

// |x| saturated: the one magnitude beyond the type's maximum is the
// negative limit's
template <class T, class W>
VRX_INLINE VrxStatus absInt(const T* s, T* d, int len) {
    return trapped(len, {s, d}, [&] {
        constexpr W top = std::numeric_limits<T>::max();
        for (int i = 0; i < len; ++i) {
            W v = s[i] < 0 ? -static_cast<W>(s[i]) : s[i];
            d[i] = static_cast<T>(v > top ? top : v);
        }
    });
}
template <class T>
VRX_INLINE VrxStatus absF(const T* s, T* d, int len) {
    using V = simd::V<T>;
    return trapped(len, {s, d}, [&] { lanes<Native>(Map{[](typename V::R v) { return V::abs(v); }}, {s}, {d}, len); });
}

// pDst + pSrc1 * pSrc2, each step rounded in T
template <class T>
VRX_INLINE VrxStatus addProductF(const T* a, const T* b, T* d, int len) {
    return trapped(len, {a, b, d}, [&] { for (int i = 0; i < len; ++i) d[i] = d[i] + a[i] * b[i]; });
}
template <class C>
VRX_INLINE VrxStatus addProductC(const C* a, const C* b, C* d, int len) {
    return trapped(len, {a, b, d}, [&] {
        for (int i = 0; i < len; ++i) {
            auto re = a[i].re * b[i].re - a[i].im * b[i].im;
            auto im = a[i].re * b[i].im + a[i].im * b[i].re;
            d[i].re = d[i].re + re;
            d[i].im = d[i].im + im;
        }
    });
}
template <class S, class D>
VRX_INLINE VrxStatus addProductInt(const S* a, const S* b, D* d, int len, int sf) {
    return trapped(len, {a, b, d}, [&] {
        for (int i = 0; i < len; ++i) d[i] = scaleExact<D>(static_cast<int64_t>(d[i]) + static_cast<int64_t>(a[i]) * b[i], sf);
    });
}

}  // namespace

// ------------------------------------------------------------------ Sqr
VrxStatus N0(vrxsSqr_32f)(const Vrx32f* s, Vrx32f* d, int len) { return sqrF(s, d, len); }
VrxStatus N0(vrxsSqr_64f)(const Vrx64f* s, Vrx64f* d, int len) { return sqrF(s, d, len); }
VrxStatus N0(vrxsSqr_32fc)(const Vrx32fc* s, Vrx32fc* d, int len) { return sqrC(s, d, len); }
VrxStatus N0(vrxsSqr_64fc)(const Vrx64fc* s, Vrx64fc* d, int len) { return sqrC(s, d, len); }
VrxStatus N0(vrxsSqr_32f_I)(Vrx32f* p, int len) { return N0(vrxsSqr_32f)(p, p, len); }
VrxStatus N0(vrxsSqr_64f_I)(Vrx64f* p, int len) { return N0(vrxsSqr_64f)(p, p, len); }
VrxStatus N0(vrxsSqr_32fc_I)(Vrx32fc* p, int len) { return N0(vrxsSqr_32fc)(p, p, len); }
VrxStatus N0(vrxsSqr_64fc_I)(Vrx64fc* p, int len) { return N0(vrxsSqr_64fc)(p, p, len); }
VrxStatus N0(vrxsSqr_16s_Sfs)(const Vrx16s* s, Vrx16s* d, int len, int sf) { return sqrInt<Vrx16s, int32_t>(s, d, len, sf); }
VrxStatus N0(vrxsSqr_16u_Sfs)(const Vrx16u* s, Vrx16u* d, int len, int sf) { return sqrInt<Vrx16u, int64_t>(s, d, len, sf); }
VrxStatus N0(vrxsSqr_16sc_Sfs)(const Vrx16sc* s, Vrx16sc* d, int len, int sf) {
    return trapped(len, {s, d}, [&] {
        for (int i = 0; i < len; ++i) {
            int64_t a = s[i].re, b = s[i].im;
            Vrx16s re = scaleExact<Vrx16s>(a * a - b * b, sf), im = scaleExact<Vrx16s>(2 * a * b, sf);
            d[i].re = re;
            d[i].im = im;
        }
    });
}
VrxStatus N0(vrxsSqr_16s_ISfs)(Vrx16s* p, int len, int sf) { return N0(vrxsSqr_16s_Sfs)(p, p, len, sf); }
VrxStatus N0(vrxsSqr_16u_ISfs)(Vrx16u* p, int len, int sf) { return N0(vrxsSqr_16u_Sfs)(p, p, len, sf); }
VrxStatus N0(vrxsSqr_16sc_ISfs)(Vrx16sc* p, int len, int sf) { return N0(vrxsSqr_16sc_Sfs)(p, p, len, sf); }

// ------------------------------------------------------------------ Sqrt
VrxStatus N0(vrxsSqrt_32f)(const Vrx32f* s, Vrx32f* d, int len) { return sqrtF(s, d, len); }
VrxStatus N0(vrxsSqrt_64f)(const Vrx64f* s, Vrx64f* d, int len) { return sqrtF(s, d, len); }
VrxStatus N0(vrxsSqrt_32fc)(const Vrx32fc* s, Vrx32fc* d, int len) { return sqrtC(s, d, len); }
VrxStatus N0(vrxsSqrt_64fc)(const Vrx64fc* s, Vrx64fc* d, int len) { return sqrtC(s, d, len); }
VrxStatus N0(vrxsSqrt_32f_I)(Vrx32f* p, int len) { return N0(vrxsSqrt_32f)(p, p, len); }
VrxStatus N0(vrxsSqrt_64f_I)(Vrx64f* p, int len) { return N0(vrxsSqrt_64f)(p, p, len); }
VrxStatus N0(vrxsSqrt_32fc_I)(Vrx32fc* p, int len) { return N0(vrxsSqrt_32fc)(p, p, len); }
VrxStatus N0(vrxsSqrt_64fc_I)(Vrx64fc* p, int len) { return N0(vrxsSqrt_64fc)(p, p, len); }
VrxStatus N0(vrxsSqrt_16s_Sfs)(const Vrx16s* s, Vrx16s* d, int len, int sf) { return sqrtInt(s, d, len, sf); }
VrxStatus N0(vrxsSqrt_16u_Sfs)(const Vrx16u* s, Vrx16u* d, int len, int sf) { return sqrtInt(s, d, len, sf); }
VrxStatus N0(vrxsSqrt_32s16s_Sfs)(const Vrx32s* s, Vrx16s* d, int len, int sf) { return sqrtInt(s, d, len, sf); }
VrxStatus N0(vrxsSqrt_16s_ISfs)(Vrx16s* p, int len, int sf) { return N0(vrxsSqrt_16s_Sfs)(p, p, len, sf); }
VrxStatus N0(vrxsSqrt_16u_ISfs)(Vrx16u* p, int len, int sf) { return N0(vrxsSqrt_16u_Sfs)(p, p, len, sf); }

// ------------------------------------------------------------------ Cubrt
VrxStatus N0(vrxsCubrt_32f)(const Vrx32f* s, Vrx32f* d, int len) { return cubrtF(s, d, len); }
VrxStatus N0(vrxsCubrt_64f)(const Vrx64f* s, Vrx64f* d, int len) { return cubrtF(s, d, len); }
VrxStatus N0(vrxsCubrt_32s16s_Sfs)(const Vrx32s* s, Vrx16s* d, int len, int sf) {
    return trapped(len, {s, d}, [&] {
        for (int i = 0; i < len; ++i) {
            double y = cbrtD(static_cast<double>(s[i]));
            double r = n0::roundEven(y);
            if (static_cast<int64_t>(r) * static_cast<int64_t>(r) * static_cast<int64_t>(r) == s[i]) y = r;  // exact cubes
            d[i] = roundSat<Vrx16s>(scaleBy(y, sf));
        }
        n0::clearInvalidUnderflow();
    });
}

// ------------------------------------------------------------------ Abs
VrxStatus N0(vrxsAbs_16s)(const Vrx16s* s, Vrx16s* d, int len) { return absInt<Vrx16s, int>(s, d, len); }
VrxStatus N0(vrxsAbs_32s)(const Vrx32s* s, Vrx32s* d, int len) { return absInt<Vrx32s, int64_t>(s, d, len); }
VrxStatus N0(vrxsAbs_32f)(const Vrx32f* s, Vrx32f* d, int len) { return absF(s, d, len); }
VrxStatus N0(vrxsAbs_64f)(const Vrx64f* s, Vrx64f* d, int len) { return absF(s, d, len); }
VrxStatus N0(vrxsAbs_16s_I)(Vrx16s* p, int len) { return N0(vrxsAbs_16s)(p, p, len); }
VrxStatus N0(vrxsAbs_32s_I)(Vrx32s* p, int len) { return N0(vrxsAbs_32s)(p, p, len); }
VrxStatus N0(vrxsAbs_32f_I)(Vrx32f* p, int len) { return N0(vrxsAbs_32f)(p, p, len); }
VrxStatus N0(vrxsAbs_64f_I)(Vrx64f* p, int len) { return N0(vrxsAbs_64f)(p, p, len); }

// ------------------------------------------------------------- AddProduct
VrxStatus N0(vrxsAddProduct_32f)(const Vrx32f* a, const Vrx32f* b, Vrx32f* d, int len) { return addProductF(a, b, d, len); }
VrxStatus N0(vrxsAddProduct_64f)(const Vrx64f* a, const Vrx64f* b, Vrx64f* d, int len) { return addProductF(a, b, d, len); }
VrxStatus N0(vrxsAddProduct_32fc)(const Vrx32fc* a, const Vrx32fc* b, Vrx32fc* d, int len) { return addProductC(a, b, d, len); }
VrxStatus N0(vrxsAddProduct_64fc)(const Vrx64fc* a, const Vrx64fc* b, Vrx64fc* d, int len) { return addProductC(a, b, d, len); }
VrxStatus N0(vrxsAddProduct_16s_Sfs)(const Vrx16s* a, const Vrx16s* b, Vrx16s* d, int len, int sf) {
    return addProductInt(a, b, d, len, sf);
}
VrxStatus N0(vrxsAddProduct_32s_Sfs)(const Vrx32s* a, const Vrx32s* b, Vrx32s* d, int len, int sf) {
    return addProductInt(a, b, d, len, sf);
}
VrxStatus N0(vrxsAddProduct_16s32s_Sfs)(const Vrx16s* a, const Vrx16s* b, Vrx32s* d, int len, int sf) {
    return addProductInt(a, b, d, len, sf);
}
