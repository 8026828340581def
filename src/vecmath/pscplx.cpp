// Complex forms: Real, Imag, RealToCplx, CplxToReal, Conj, ConjFlip,
// PowerSpectr, Normalize.
// Plain loops stay loops: no calls into the C library for fills.
#pragma GCC optimize("no-tree-loop-distribute-patterns")
#include "vm_common.h"
#include "vm_int.h"

using namespace n0::vm;

namespace {

template <class C, class T>
VRX_INLINE VrxStatus part(const C* s, T* d, int len, bool im) {
    return trapped(len, {s, d}, [&] { for (int i = 0; i < len; ++i) d[i] = im ? s[i].im : s[i].re; });
}

template <class T, class C>
VRX_INLINE VrxStatus toCplx(const T* re, const T* im, C* d, int len) {
    if (!d || (!re && !im)) return vrxErrNullPtr;
    if (len < 1) return vrxErrBadLength;
    for (int i = 0; i < len; ++i) {
        T a = re ? re[i] : T(0), b = im ? im[i] : T(0);
        d[i].re = a;
        d[i].im = b;
    }
    return vrxOk;
}

template <class C, class T>
VRX_INLINE VrxStatus toReal(const C* s, T* re, T* im, int len) {
    return trapped(len, {s, re, im}, [&] {
        for (int i = 0; i < len; ++i) {
            T a = s[i].re, b = s[i].im;
            re[i] = a;
            im[i] = b;
        }
    });
}

VRX_INLINE Vrx16s negSat(Vrx16s v) { return v == -32768 ? Vrx16s(32767) : Vrx16s(-v); }

// conj(pSrc[len-1-n]) to pDst[n]; in place when pSrc == pDst
template <class C, class F>
VRX_INLINE VrxStatus conjFlip(const C* s, C* d, int len, F neg) {
    return trapped(len, {s, d}, [&] {
        for (int i = 0, j = len - 1; i <= j; ++i, --j) {
            C a = s[i], b = s[j];
            d[i].re = b.re;
            d[i].im = neg(b.im);
            d[j].re = a.re;
            d[j].im = neg(a.im);
        }
    });
}

// the sign of the odd (imaginary) lanes flipped
template <class C>
VRX_INLINE VrxStatus conjF(const C* s, C* d, int len) {
    using T = decltype(s->re);
    using V = simd::V<T>;
    return trapped(len, {s, d}, [&] {
        lanes<Native>(Map{[](typename V::R v) { return V::xorb(v, V::set2(T(0), -T(0))); }}, {&s->re}, {&d->re}, 2 * len);
    });
}

// re^2 + im^2 in double, one fused step: for single precision the squares
// are exact and the sum rounds once before the final rounding.
template <class T>
VRX_INLINE VrxStatus powerSpectrF(const T* re, const T* im, T* d, int len) {
    using W = std::conditional_t<sizeof(T) == 4, ViaDouble, Native>;
    return trapped(len, {re, im, d}, [&] {
        lanes<W>(Map{[](D8 a, D8 b) { return D::fma(a, a, D::mul(b, b)); }}, {re, im}, {d}, len);
    });
}
template <class C, class T>
VRX_INLINE VrxStatus powerSpectrC(const C* s, T* d, int len) {
    return trapped(len, {s, d}, [&] {
        for (int i = 0; i < len; ++i) {
            double a = s[i].re, b = s[i].im;
            d[i] = narrow<T>(__builtin_fma(a, a, b * b));
        }
    });
}

// (x - sub) / div over n values of T; sub holds the subtrahend of each
// lane (one value, or a (re, im) pair repeated)
template <class T>
VRX_INLINE VrxStatus normalizeF(const void* s0, void* d0, int len, const T* s, T* d, int n, typename simd::V<T>::R sub, T vDiv) {
    using V = simd::V<T>;
    return trapped(len, {s0, d0}, [&] {
        if (vDiv == T(0)) return vrxErrDivByZero;
        const typename V::R dv = V::set1(vDiv);
        lanes<Native>(Map{[&](typename V::R v) { return V::div(V::sub(v, sub), dv); }}, {s}, {d}, n);
        return vrxOk;
    });
}

// exact rounding of num / den, ties to even, den != 0
VRX_INLINE __int128 roundDivEven(__int128 num, __int128 den) {
    if (den < 0) {
        num = -num;
        den = -den;
    }
    __int128 q = num / den, r = num % den;
    if (r < 0) {
        q -= 1;
        r += den;
    }
    __int128 twice = 2 * r;
    if (twice > den || (twice == den && (q & 1))) q += 1;
    return q;
}

// (x - sub) / div scaled by 2^-sf, exactly rounded
VRX_INLINE Vrx16s normInt(int x, int sub, int div, int sf) {
    __int128 num = static_cast<__int128>(x) - sub, den = div;
    if (num == 0) return 0;
    if (sf > 0) {
        if (sf > 80) return 0;
        den <<= sf;
    } else if (sf < 0) {
        if (sf < -60) return (num > 0) == (div > 0) ? Vrx16s(32767) : Vrx16s(-32768);
        num <<= -sf;
    }
    __int128 q = roundDivEven(num, den);
    return q > 32767 ? Vrx16s(32767) : q < -32768 ? Vrx16s(-32768) : Vrx16s(q);
}

}  // namespace

// ------------------------------------------------------ Real, Imag, ...
VrxStatus N0(vrxsReal_16sc)(const Vrx16sc* s, Vrx16s* d, int len) { return part(s, d, len, false); }
VrxStatus N0(vrxsReal_32fc)(const Vrx32fc* s, Vrx32f* d, int len) { return part(s, d, len, false); }
VrxStatus N0(vrxsReal_64fc)(const Vrx64fc* s, Vrx64f* d, int len) { return part(s, d, len, false); }
VrxStatus N0(vrxsImag_16sc)(const Vrx16sc* s, Vrx16s* d, int len) { return part(s, d, len, true); }
VrxStatus N0(vrxsImag_32fc)(const Vrx32fc* s, Vrx32f* d, int len) { return part(s, d, len, true); }
VrxStatus N0(vrxsImag_64fc)(const Vrx64fc* s, Vrx64f* d, int len) { return part(s, d, len, true); }
VrxStatus N0(vrxsRealToCplx_16s)(const Vrx16s* re, const Vrx16s* im, Vrx16sc* d, int len) { return toCplx(re, im, d, len); }
VrxStatus N0(vrxsRealToCplx_32f)(const Vrx32f* re, const Vrx32f* im, Vrx32fc* d, int len) { return toCplx(re, im, d, len); }
VrxStatus N0(vrxsRealToCplx_64f)(const Vrx64f* re, const Vrx64f* im, Vrx64fc* d, int len) { return toCplx(re, im, d, len); }
VrxStatus N0(vrxsCplxToReal_16sc)(const Vrx16sc* s, Vrx16s* re, Vrx16s* im, int len) { return toReal(s, re, im, len); }
VrxStatus N0(vrxsCplxToReal_32fc)(const Vrx32fc* s, Vrx32f* re, Vrx32f* im, int len) { return toReal(s, re, im, len); }
VrxStatus N0(vrxsCplxToReal_64fc)(const Vrx64fc* s, Vrx64f* re, Vrx64f* im, int len) { return toReal(s, re, im, len); }

// ----------------------------------------------------------------- Conj
VrxStatus N0(vrxsConj_16sc)(const Vrx16sc* s, Vrx16sc* d, int len) {
    return trapped(len, {s, d}, [&] {
        for (int i = 0; i < len; ++i) {
            Vrx16s re = s[i].re, im = negSat(s[i].im);
            d[i].re = re;
            d[i].im = im;
        }
    });
}
VrxStatus N0(vrxsConj_32fc)(const Vrx32fc* s, Vrx32fc* d, int len) { return conjF(s, d, len); }
VrxStatus N0(vrxsConj_64fc)(const Vrx64fc* s, Vrx64fc* d, int len) { return conjF(s, d, len); }
VrxStatus N0(vrxsConj_16sc_I)(Vrx16sc* p, int len) { return N0(vrxsConj_16sc)(p, p, len); }
VrxStatus N0(vrxsConj_32fc_I)(Vrx32fc* p, int len) { return N0(vrxsConj_32fc)(p, p, len); }
VrxStatus N0(vrxsConj_64fc_I)(Vrx64fc* p, int len) { return N0(vrxsConj_64fc)(p, p, len); }
VrxStatus N0(vrxsConjFlip_16sc)(const Vrx16sc* s, Vrx16sc* d, int len) { return conjFlip(s, d, len, negSat); }
VrxStatus N0(vrxsConjFlip_32fc)(const Vrx32fc* s, Vrx32fc* d, int len) {
    return conjFlip(s, d, len, [](float v) { return -v; });
}
VrxStatus N0(vrxsConjFlip_64fc)(const Vrx64fc* s, Vrx64fc* d, int len) {
    return conjFlip(s, d, len, [](double v) { return -v; });
}

// ---------------------------------------------------------- PowerSpectr
VrxStatus N0(vrxsPowerSpectr_32f)(const Vrx32f* re, const Vrx32f* im, Vrx32f* d, int len) { return powerSpectrF(re, im, d, len); }
VrxStatus N0(vrxsPowerSpectr_64f)(const Vrx64f* re, const Vrx64f* im, Vrx64f* d, int len) { return powerSpectrF(re, im, d, len); }
VrxStatus N0(vrxsPowerSpectr_32fc)(const Vrx32fc* s, Vrx32f* d, int len) { return powerSpectrC(s, d, len); }
VrxStatus N0(vrxsPowerSpectr_64fc)(const Vrx64fc* s, Vrx64f* d, int len) { return powerSpectrC(s, d, len); }
VrxStatus N0(vrxsPowerSpectr_16sc_Sfs)(const Vrx16sc* s, Vrx16s* d, int len, int sf) {
    return trapped(len, {s, d}, [&] {
        for (int i = 0; i < len; ++i) {
            int64_t a = s[i].re, b = s[i].im;
            d[i] = scaleExact<Vrx16s>(a * a + b * b, sf);
        }
    });
}

// ------------------------------------------------------------ Normalize
VrxStatus N0(vrxsNormalize_32f)(const Vrx32f* s, Vrx32f* d, int len, Vrx32f vSub, Vrx32f vDiv) {
    return normalizeF(s, d, len, s, d, len, F::set1(vSub), vDiv);
}
VrxStatus N0(vrxsNormalize_64f)(const Vrx64f* s, Vrx64f* d, int len, Vrx64f vSub, Vrx64f vDiv) {
    return normalizeF(s, d, len, s, d, len, D::set1(vSub), vDiv);
}
VrxStatus N0(vrxsNormalize_32fc)(const Vrx32fc* s, Vrx32fc* d, int len, Vrx32fc vSub, Vrx32f vDiv) {
    return normalizeF(s, d, len, reinterpret_cast<const Vrx32f*>(s), reinterpret_cast<Vrx32f*>(d), 2 * len, F::set2(vSub.re, vSub.im), vDiv);
}
VrxStatus N0(vrxsNormalize_64fc)(const Vrx64fc* s, Vrx64fc* d, int len, Vrx64fc vSub, Vrx64f vDiv) {
    return normalizeF(s, d, len, reinterpret_cast<const Vrx64f*>(s), reinterpret_cast<Vrx64f*>(d), 2 * len, D::set2(vSub.re, vSub.im), vDiv);
}
VrxStatus N0(vrxsNormalize_16s_Sfs)(const Vrx16s* s, Vrx16s* d, int len, Vrx16s vSub, int vDiv, int sf) {
    return trapped(len, {s, d}, [&] {
        if (vDiv == 0) return vrxErrDivByZero;
        for (int i = 0; i < len; ++i) d[i] = normInt(s[i], vSub, vDiv, sf);
        return vrxOk;
    });
}
VrxStatus N0(vrxsNormalize_16sc_Sfs)(const Vrx16sc* s, Vrx16sc* d, int len, Vrx16sc vSub, int vDiv, int sf) {
    return trapped(len, {s, d}, [&] {
        if (vDiv == 0) return vrxErrDivByZero;
        for (int i = 0; i < len; ++i) {
            Vrx16s re = normInt(s[i].re, vSub.re, vDiv, sf), im = normInt(s[i].im, vSub.im, vDiv, sf);
            d[i].re = re;
            d[i].im = im;
        }
        return vrxOk;
    });
}
