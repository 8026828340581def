// Complex forms: Real, Imag, RealToCplx, CplxToReal, Conj, ConjFlip,
// PowerSpectr, Normalize.
// Plain loops stay loops: no calls into the C library for fills.
#pragma GCC optimize("no-tree-loop-distribute-patterns")
#include "vm_int.h"
#include "vm_common.h"

using namespace n0::vm;
using n0::checkArgs;

namespace {

template <class C, class T>
VRX_INLINE VrxStatus part(const C* s, T* d, int len, bool im) {
    if (VrxStatus st = checkArgs(len, s, d)) return st;
    TrapGuard trapGuard;
    for (int i = 0; i < len; ++i) d[i] = im ? s[i].im : s[i].re;
    return vrxOk;
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
    if (VrxStatus st = checkArgs(len, s, re, im)) return st;
    TrapGuard trapGuard;
    for (int i = 0; i < len; ++i) {
        T a = s[i].re, b = s[i].im;
        re[i] = a;
        im[i] = b;
    }
    return vrxOk;
}

VRX_INLINE Vrx16s negSat(Vrx16s v) { return v == -32768 ? Vrx16s(32767) : Vrx16s(-v); }

// conj(pSrc[len-1-n]) to pDst[n]; in place when pSrc == pDst
template <class C, class F>
VRX_INLINE VrxStatus conjFlip(const C* s, C* d, int len, F neg) {
    if (VrxStatus st = checkArgs(len, s, d)) return st;
    TrapGuard trapGuard;
    for (int i = 0, j = len - 1; i <= j; ++i, --j) {
        C a = s[i], b = s[j];
        d[i].re = b.re;
        d[i].im = neg(b.im);
        d[j].re = a.re;
        d[j].im = neg(a.im);
    }
    return vrxOk;
}

// flips the sign of the odd (imaginary) lanes
VRX_INLINE F16 conjS(F16 v) { return F::xorb(v, F::set2(0.0f, -0.0f)); }
VRX_INLINE D8 conjD(D8 v) { return D::xorb(v, D::set2(0.0, -0.0)); }

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
    if (VrxStatus st = checkArgs(len, s, d)) return st;
    TrapGuard trapGuard;
    for (int i = 0; i < len; ++i) {
        Vrx16s re = s[i].re, im = negSat(s[i].im);
        d[i].re = re;
        d[i].im = im;
    }
    return vrxOk;
}
VrxStatus N0(vrxsConj_32fc)(const Vrx32fc* s, Vrx32fc* d, int len) {
    if (VrxStatus st = checkArgs(len, s, d)) return st;
    TrapGuard trapGuard;
    lanes<Native>(Map{[](auto v) { return conjS(v); }}, {&s->re}, {&d->re}, 2 * len);
    return vrxOk;
}
VrxStatus N0(vrxsConj_64fc)(const Vrx64fc* s, Vrx64fc* d, int len) {
    if (VrxStatus st = checkArgs(len, s, d)) return st;
    TrapGuard trapGuard;
    lanes<Native>(Map{[](auto v) { return conjD(v); }}, {&s->re}, {&d->re}, 2 * len);
    return vrxOk;
}
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
// Single precision in double: the squares are exact and the sum rounds
// once before the final rounding.
VrxStatus N0(vrxsPowerSpectr_32f)(const Vrx32f* re, const Vrx32f* im, Vrx32f* d, int len) {
    if (VrxStatus st = checkArgs(len, re, im, d)) return st;
    TrapGuard trapGuard;
    lanes<ViaDouble>(Map{[](D8 a, D8 b) { return D::fma(a, a, D::mul(b, b)); }}, {re, im}, {d}, len);
    return vrxOk;
}
VrxStatus N0(vrxsPowerSpectr_64f)(const Vrx64f* re, const Vrx64f* im, Vrx64f* d, int len) {
    if (VrxStatus st = checkArgs(len, re, im, d)) return st;
    TrapGuard trapGuard;
    lanes<Native>(Map{[](D8 a, D8 b) { return D::fma(a, a, D::mul(b, b)); }}, {re, im}, {d}, len);
    return vrxOk;
}
VrxStatus N0(vrxsPowerSpectr_32fc)(const Vrx32fc* s, Vrx32f* d, int len) {
    if (VrxStatus st = checkArgs(len, s, d)) return st;
    TrapGuard trapGuard;
    for (int i = 0; i < len; ++i) {
        double a = s[i].re, b = s[i].im;
        d[i] = toFloat(__builtin_fma(a, a, b * b));
    }
    return vrxOk;
}
VrxStatus N0(vrxsPowerSpectr_64fc)(const Vrx64fc* s, Vrx64f* d, int len) {
    if (VrxStatus st = checkArgs(len, s, d)) return st;
    TrapGuard trapGuard;
    for (int i = 0; i < len; ++i) d[i] = __builtin_fma(s[i].re, s[i].re, s[i].im * s[i].im);
    return vrxOk;
}
VrxStatus N0(vrxsPowerSpectr_16sc_Sfs)(const Vrx16sc* s, Vrx16s* d, int len, int sf) {
    if (VrxStatus st = checkArgs(len, s, d)) return st;
    TrapGuard trapGuard;
    for (int i = 0; i < len; ++i) {
        int64_t a = s[i].re, b = s[i].im;
        d[i] = scaleExact<Vrx16s>(a * a + b * b, sf);
    }
    return vrxOk;
}

// ------------------------------------------------------------ Normalize
VrxStatus N0(vrxsNormalize_32f)(const Vrx32f* s, Vrx32f* d, int len, Vrx32f vSub, Vrx32f vDiv) {
    if (VrxStatus st = checkArgs(len, s, d)) return st;
    TrapGuard trapGuard;
    if (vDiv == 0.0f) return vrxErrDivByZero;
    const F16 sub = F::set1(vSub), dv = F::set1(vDiv);
    lanes<Native>(Map{[&](F16 v) { return F::div(F::sub(v, sub), dv); }}, {s}, {d}, len);
    return vrxOk;
}
VrxStatus N0(vrxsNormalize_64f)(const Vrx64f* s, Vrx64f* d, int len, Vrx64f vSub, Vrx64f vDiv) {
    if (VrxStatus st = checkArgs(len, s, d)) return st;
    TrapGuard trapGuard;
    if (vDiv == 0.0) return vrxErrDivByZero;
    const D8 sb = D::set1(vSub), dv = D::set1(vDiv);
    lanes<Native>(Map{[&](D8 v) { return D::div(D::sub(v, sb), dv); }}, {s}, {d}, len);
    return vrxOk;
}
VrxStatus N0(vrxsNormalize_32fc)(const Vrx32fc* s, Vrx32fc* d, int len, Vrx32fc vSub, Vrx32f vDiv) {
    if (VrxStatus st = checkArgs(len, s, d)) return st;
    TrapGuard trapGuard;
    if (vDiv == 0.0f) return vrxErrDivByZero;
    const F16 sub = F::set2(vSub.re, vSub.im), dv = F::set1(vDiv);
    lanes<Native>(Map{[&](F16 v) { return F::div(F::sub(v, sub), dv); }}, {&s->re}, {&d->re}, 2 * len);
    return vrxOk;
}
VrxStatus N0(vrxsNormalize_64fc)(const Vrx64fc* s, Vrx64fc* d, int len, Vrx64fc vSub, Vrx64f vDiv) {
    if (VrxStatus st = checkArgs(len, s, d)) return st;
    TrapGuard trapGuard;
    if (vDiv == 0.0) return vrxErrDivByZero;
    const D8 sb = D::set2(vSub.re, vSub.im), dv = D::set1(vDiv);
    lanes<Native>(Map{[&](D8 v) { return D::div(D::sub(v, sb), dv); }}, {&s->re}, {&d->re}, 2 * len);
    return vrxOk;
}
VrxStatus N0(vrxsNormalize_16s_Sfs)(const Vrx16s* s, Vrx16s* d, int len, Vrx16s vSub, int vDiv, int sf) {
    if (VrxStatus st = checkArgs(len, s, d)) return st;
    TrapGuard trapGuard;
    if (vDiv == 0) return vrxErrDivByZero;
    for (int i = 0; i < len; ++i) d[i] = normInt(s[i], vSub, vDiv, sf);
    return vrxOk;
}
VrxStatus N0(vrxsNormalize_16sc_Sfs)(const Vrx16sc* s, Vrx16sc* d, int len, Vrx16sc vSub, int vDiv, int sf) {
    if (VrxStatus st = checkArgs(len, s, d)) return st;
    TrapGuard trapGuard;
    if (vDiv == 0) return vrxErrDivByZero;
    for (int i = 0; i < len; ++i) {
        Vrx16s re = normInt(s[i].re, vSub.re, vDiv, sf), im = normInt(s[i].im, vSub.im, vDiv, sf);
        d[i].re = re;
        d[i].im = im;
    }
    return vrxOk;
}
