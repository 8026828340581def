// Integer element-wise arithmetic: the dispatch on the scale factor and the
// split kernels (no scale, scale one, positive, negative, bound) that every
// Sfs operation shares. An operation is given as the exact result of element
// i in a wide type W; the kernels round once and saturate once.
#pragma once

#include "vrx_scale.h"

#include <climits>
#include <limits>

namespace n0::ar {

// Limits of one function: from zeroFrom up the result is all zeros, up to
// boundTo the result is the bound that the sign selects. kNoBound: every
// negative scale factor runs the kernel.
struct Limits {
    int zeroFrom;
    int boundTo;
};
constexpr int kNoBound = INT_MIN;

// Kernels of the split, one loop each so that none carries a shift it does
// not need. r(i) returns the exact wide result of element i.
template <class TD, class W, class F>
VRX_INLINE void kernNoScale(TD* d, size_t n, F r) {
    for (size_t i = 0; i < n; ++i) d[i] = saturate<TD>(static_cast<W>(r(i)));
}
template <class TD, class W, class F>
VRX_INLINE void kernSfOne(TD* d, size_t n, F r) {
    for (size_t i = 0; i < n; ++i) d[i] = saturate<TD>(roundShiftEven<W>(r(i), 1));
}
template <class TD, class W, class F>
VRX_INLINE void kernPosSfs(TD* d, size_t n, int sf, F r) {
    for (size_t i = 0; i < n; ++i) d[i] = saturate<TD>(roundShiftEven<W>(r(i), sf));
}
template <class TD, class W, class F>
VRX_INLINE void kernNegSfs(TD* d, size_t n, int k, F r) {
    for (size_t i = 0; i < n; ++i) d[i] = shiftLeftSaturate<TD, W>(r(i), k);
}
template <class TD, class W, class F>
VRX_INLINE void kernBound(TD* d, size_t n, F r) {
    for (size_t i = 0; i < n; ++i) d[i] = boundBySign<TD, W>(r(i));
}

// Runs the kernel that sf selects inside the limits.
template <class TD, class W, class F>
VRX_INLINE void runSplit(TD* d, size_t n, int sf, F r) {
    if (sf == 0) kernNoScale<TD, W>(d, n, r);
    else if (sf == 1) kernSfOne<TD, W>(d, n, r);
    else if (sf > 0) kernPosSfs<TD, W>(d, n, sf, r);
    else kernNegSfs<TD, W>(d, n, sf < -1024 ? 1024 : -sf, r);  // any shift past the width saturates
}

// The zero fill of each destination type goes to the library's Zero.
VRX_INLINE VrxStatus zeroFill(Vrx8u* d, int len) { return N0(vrxsZero_8u)(d, len); }
VRX_INLINE VrxStatus zeroFill(Vrx16u* d, int len) { return N0(vrxsZero_16s)(reinterpret_cast<Vrx16s*>(d), len); }
VRX_INLINE VrxStatus zeroFill(Vrx16s* d, int len) { return N0(vrxsZero_16s)(d, len); }
VRX_INLINE VrxStatus zeroFill(Vrx32s* d, int len) { return N0(vrxsZero_32s)(d, len); }
VRX_INLINE VrxStatus zeroFill(Vrx64s* d, int len) { return N0(vrxsZero_64s)(d, len); }
VRX_INLINE VrxStatus zeroFill(Vrx16sc* d, int len) { return N0(vrxsZero_16sc)(d, len); }
VRX_INLINE VrxStatus zeroFill(Vrx32sc* d, int len) { return N0(vrxsZero_32sc)(d, len); }

VRX_INLINE VrxStatus copyAll(const Vrx8u* s, Vrx8u* d, int len) { return N0(vrxsCopy_8u)(s, d, len); }
VRX_INLINE VrxStatus copyAll(const Vrx16u* s, Vrx16u* d, int len) {
    return N0(vrxsCopy_16s)(reinterpret_cast<const Vrx16s*>(s), reinterpret_cast<Vrx16s*>(d), len);
}
VRX_INLINE VrxStatus copyAll(const Vrx16s* s, Vrx16s* d, int len) { return N0(vrxsCopy_16s)(s, d, len); }
VRX_INLINE VrxStatus copyAll(const Vrx32s* s, Vrx32s* d, int len) { return N0(vrxsCopy_32s)(s, d, len); }
VRX_INLINE VrxStatus copyAll(const Vrx16sc* s, Vrx16sc* d, int len) { return N0(vrxsCopy_16sc)(s, d, len); }
VRX_INLINE VrxStatus copyAll(const Vrx32sc* s, Vrx32sc* d, int len) { return N0(vrxsCopy_32sc)(s, d, len); }

// A whole Sfs call on checked arguments: zero fill, bound or kernel.
template <class TD, class W, class F>
VRX_INLINE VrxStatus dispatchSfs(TD* d, int len, int sf, Limits lim, F r) {
    if (sf >= lim.zeroFrom) return zeroFill(d, len);
    const size_t n = static_cast<size_t>(len);
    if (sf <= lim.boundTo) kernBound<TD, W>(d, n, r);
    else runSplit<TD, W>(d, n, sf, r);
    return vrxOk;
}

// Scalar element type of a complex type, and its component count.
template <class T> struct Scalar { using type = T; static constexpr size_t k = 1; };
template <> struct Scalar<Vrx16sc> { using type = Vrx16s; static constexpr size_t k = 2; };
template <> struct Scalar<Vrx32sc> { using type = Vrx32s; static constexpr size_t k = 2; };


// The element operations.
enum class Op { Add, Sub, SubRev, Mul };

template <Op op, class W>
VRX_INLINE W apply(W a, W b) {
    if constexpr (op == Op::Add) return a + b;
    else if constexpr (op == Op::Sub) return b - a;     // second minus first
    else if constexpr (op == Op::SubRev) return a - b;  // SubC: element - val
    else return a * b;
}

// Two vectors of scalars: d = op(s1, s2).
template <Op op, class T, class TD, class W, class T2 = T>
VRX_INLINE VrxStatus vecSfs(const T* s1, const T2* s2, TD* d, int len, int sf, Limits lim) {
    if (VrxStatus st = checkArgs(len, s1, s2, d)) return st;
    return dispatchSfs<TD, W>(d, len, sf, lim, [=](size_t i) { return apply<op, W>(W(s1[i]), W(s2[i])); });
}

// A vector and a constant of K components (1 real, 2 complex): the element
// stands first, so Op::Sub gives val - element and Op::SubRev element - val.
template <Op op, size_t K, class T, class W>
VRX_INLINE void constKernel(const T* s, const T* cv, T* d, int len, int sf, bool bound) {
    const W c0 = cv[0], c1 = cv[K - 1];
    const size_t n = K * static_cast<size_t>(len);
    auto r = [=](size_t i) {
        if constexpr (K == 1) return apply<op, W>(W(s[i]), c0);
        else return apply<op, W>(W(s[i]), (i & 1) ? c1 : c0);
    };
    if (bound) kernBound<T, W>(d, n, r);
    else runSplit<T, W>(d, n, sf, r);
}


// A whole constant-form call after its own shortcuts: zero fill, bound or
// kernel, with the constant's components applied in turn.
template <Op op, class C, class W>
VRX_INLINE VrxStatus constBody(const C* s, const C& val, C* d, int len, int sf, Limits lim) {
    if (sf >= lim.zeroFrom) return zeroFill(d, len);
    using T = typename Scalar<C>::type;
    constexpr size_t K = Scalar<C>::k;
    constKernel<op, K, T, W>(reinterpret_cast<const T*>(s), reinterpret_cast<const T*>(&val),
                             reinterpret_cast<T*>(d), len, sf, sf <= lim.boundTo);
    return vrxOk;
}

template <class C> VRX_INLINE bool isZero(const C& v) {
    using T = typename Scalar<C>::type;
    const T* p = reinterpret_cast<const T*>(&v);
    return Scalar<C>::k == 1 ? p[0] == 0 : (p[0] == 0 && p[Scalar<C>::k - 1] == 0);
}

// Complex vectors add and subtract as reals at twice the length. The length is tested
// first; a length whose double does not fit an int runs in blocks.
template <class C, class T, class Fn>
VrxStatus asReal(const C* s1, const C* s2, C* d, int len, int sf, Fn real) {
    if (len < 1) return vrxErrBadLength;
    const T* a = reinterpret_cast<const T*>(s1);
    const T* b = reinterpret_cast<const T*>(s2);
    T* o = reinterpret_cast<T*>(d);
    if (len <= 0x3FFFFFFE) return real(a, b, o, 2 * len, sf);
    size_t rest = 2 * static_cast<size_t>(len), at = 0;
    while (rest > 0) {
        const int blk = rest > 0x7FFFFFFC ? 0x7FFFFFFC : static_cast<int>(rest);
        if (VrxStatus st = real(a ? a + at : a, b ? b + at : b, o ? o + at : o, blk, sf)) return st;
        at += static_cast<size_t>(blk);
        rest -= static_cast<size_t>(blk);
    }
    return vrxOk;
}


// Complex kernels: f(j, re, im) gives the exact components of element j,
// both read before either is written, so the destination may be a source.
template <class TD, class W, class F>
VRX_INLINE void cplxRun(TD* d, size_t n, int sf, bool bound, F f) {
    auto go = [&](auto scale) {
        for (size_t j = 0; j < n; ++j) {
            W re, im;
            f(j, re, im);
            d[2 * j] = scale(re);
            d[2 * j + 1] = scale(im);
        }
    };
    if (bound) go([](W r) { return boundBySign<TD, W>(r); });
    else if (sf == 0) go([](W r) { return saturate<TD>(r); });
    else if (sf > 0) go([sf](W r) { return saturate<TD>(roundShiftEven<W>(r, sf)); });
    else go([k = sf < -1024 ? 1024 : -sf](W r) { return shiftLeftSaturate<TD, W>(r, k); });
}

}  // namespace n0::ar
