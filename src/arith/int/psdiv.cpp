// Integer division: src2 / src1 for vectors, element / val, val / element,
// with a scale factor and a rounding mode. The quotient is exact: the
// scaled dividend over the scaled divisor in a wide integer, rounded once
// (ties to even unless a mode says otherwise) and saturated once. A zero
// vector divisor gives the bound of the dividend's sign (0 for a zero
// dividend) and the warning; a zero constant is an error.
#include "arith_int.h"

using namespace n0;
using namespace n0::ar;

namespace {

using i128 = __int128;
using u128 = unsigned __int128;

// Kernel windows of the scale factor; outside them the answer is known.
struct Window {
    int lo, hi;
};
constexpr Window kWin8u{-15, 8}, kWin16u{-31, 16}, kWin16s{-30, 15}, kWinRound16s{-30, 16};
constexpr Window kWin32s{-62, 32}, kWin32s16s{-46, 15}, kWin16sc{-32, 32};

// num / den rounded in mode: 0 toward zero, 1 nearest even, 2 half away.
template <class W>
VRX_INLINE W divRound(W num, W den, int mode) {
    if (den < 0) { num = -num; den = -den; }
    const W q = num / den, r = num % den;
    if (r == 0 || mode == vrxRndZero) return q;
    const W twice = 2 * (r < 0 ? -r : r);
    const bool up = twice > den || (twice == den && (mode == vrxRndFinancial || (q & 1)));
    return up ? q + (num < 0 ? -1 : 1) : q;
}

// The scaled quotient of b over a, sf inside the window.
template <class TD, class W>
VRX_INLINE TD quotient(W b, W a, int sf, int mode) {
    if (sf >= 0) return saturate<TD>(divRound<W>(b, a << sf, mode));
    return saturate<TD>(divRound<W>(b << -sf, a, mode));
}

// Element by element over a vector divisor; returns nonzero when a divisor
// was zero.
template <class TA, class TB, class TD, class W>
unsigned divVec(const TA* a, const TB* b, TD* d, size_t n, int sf, int mode, Window win) {
    unsigned z = 0;
    if (sf > win.hi) {
        for (size_t i = 0; i < n; ++i) {
            z |= a[i] == 0;
            d[i] = a[i] == 0 ? boundBySign<TD, W>(W(b[i])) : TD(0);
        }
    } else if (sf < win.lo) {
        // the bound of the quotient's sign (of the dividend's, at a zero divisor)
        for (size_t i = 0; i < n; ++i) {
            z |= a[i] == 0;
            d[i] = boundBySign<TD, W>(a[i] < 0 ? -W(b[i]) : W(b[i]));
        }
    } else {
        for (size_t i = 0; i < n; ++i) {
            z |= a[i] == 0;
            d[i] = a[i] == 0 ? boundBySign<TD, W>(W(b[i])) : quotient<TD, W>(W(b[i]), W(a[i]), sf, mode);
        }
    }
    return z;
}

template <class TA, class TB, class TD, class W>
VrxStatus divSfs(const TA* s1, const TB* s2, TD* d, int len, int sf, int mode, Window win) {
    if (VrxStatus st = checkArgs(len, s1, s2, d)) return st;
    return divVec<TA, TB, TD, W>(s1, s2, d, static_cast<size_t>(len), sf, mode, win) ? vrxWarnDivByZero : vrxOk;
}

// Element / a nonzero constant.
template <class T, class W>
void divConst(const T* s, T val, T* d, size_t n, int sf, Window win) {
    if (sf > win.hi) {
        for (size_t i = 0; i < n; ++i) d[i] = 0;
    } else if (sf < win.lo) {
        for (size_t i = 0; i < n; ++i) d[i] = boundBySign<T, W>(W(s[i]) * W(val));
    } else {
        for (size_t i = 0; i < n; ++i) d[i] = quotient<T, W>(W(s[i]), W(val), sf, vrxRndNear);
    }
}

}  // namespace

// ------------------------------------------------------------ vector / vector
VrxStatus N0(vrxsDiv_8u_Sfs)(const Vrx8u* pSrc1, const Vrx8u* pSrc2, Vrx8u* pDst, int len, int scaleFactor) {
    return divSfs<Vrx8u, Vrx8u, Vrx8u, int64_t>(pSrc1, pSrc2, pDst, len, scaleFactor, vrxRndNear, kWin8u);
}
VrxStatus N0(vrxsDiv_16u_Sfs)(const Vrx16u* pSrc1, const Vrx16u* pSrc2, Vrx16u* pDst, int len, int scaleFactor) {
    return divSfs<Vrx16u, Vrx16u, Vrx16u, int64_t>(pSrc1, pSrc2, pDst, len, scaleFactor, vrxRndNear, kWin16u);
}
VrxStatus N0(vrxsDiv_16s_Sfs)(const Vrx16s* pSrc1, const Vrx16s* pSrc2, Vrx16s* pDst, int len, int scaleFactor) {
    return divSfs<Vrx16s, Vrx16s, Vrx16s, int64_t>(pSrc1, pSrc2, pDst, len, scaleFactor, vrxRndNear, kWin16s);
}
VrxStatus N0(vrxsDiv_32s_Sfs)(const Vrx32s* pSrc1, const Vrx32s* pSrc2, Vrx32s* pDst, int len, int scaleFactor) {
    return divSfs<Vrx32s, Vrx32s, Vrx32s, i128>(pSrc1, pSrc2, pDst, len, scaleFactor, vrxRndNear, kWin32s);
}
// a 32s divisor under a 16s dividend
VrxStatus N0(vrxsDiv_32s16s_Sfs)(const Vrx32s* pSrc1, const Vrx16s* pSrc2, Vrx16s* pDst, int len, int scaleFactor) {
    return divSfs<Vrx32s, Vrx16s, Vrx16s, int64_t>(pSrc1, pSrc2, pDst, len, scaleFactor, vrxRndNear, kWin32s16s);
}
VrxStatus N0(vrxsDiv_8u_ISfs)(const Vrx8u* pSrc, Vrx8u* pSrcDst, int len, int scaleFactor) { return N0(vrxsDiv_8u_Sfs)(pSrc, pSrcDst, pSrcDst, len, scaleFactor); }
VrxStatus N0(vrxsDiv_16u_ISfs)(const Vrx16u* pSrc, Vrx16u* pSrcDst, int len, int scaleFactor) { return N0(vrxsDiv_16u_Sfs)(pSrc, pSrcDst, pSrcDst, len, scaleFactor); }
VrxStatus N0(vrxsDiv_16s_ISfs)(const Vrx16s* pSrc, Vrx16s* pSrcDst, int len, int scaleFactor) { return N0(vrxsDiv_16s_Sfs)(pSrc, pSrcDst, pSrcDst, len, scaleFactor); }
VrxStatus N0(vrxsDiv_32s_ISfs)(const Vrx32s* pSrc, Vrx32s* pSrcDst, int len, int scaleFactor) { return N0(vrxsDiv_32s_Sfs)(pSrc, pSrcDst, pSrcDst, len, scaleFactor); }
VrxStatus N0(vrxsDiv_32s16s_ISfs)(const Vrx32s* pSrc, Vrx16s* pSrcDst, int len, int scaleFactor) { return N0(vrxsDiv_32s16s_Sfs)(pSrc, pSrcDst, pSrcDst, len, scaleFactor); }

// The rounding mode must be 0, 1 or 2, tested after pointers and length.
template <class T>
static VrxStatus divRoundSfs(const T* s1, const T* s2, T* d, int len, int mode, int sf, Window win) {
    if (VrxStatus st = checkArgs(len, s1, s2, d)) return st;
    if (mode != vrxRndZero && mode != vrxRndNear && mode != vrxRndFinancial) return vrxErrRounding;
    return divVec<T, T, T, int64_t>(s1, s2, d, static_cast<size_t>(len), sf, mode, win) ? vrxWarnDivByZero : vrxOk;
}
VrxStatus N0(vrxsDiv_Round_8u_Sfs)(const Vrx8u* pSrc1, const Vrx8u* pSrc2, Vrx8u* pDst, int len, VrxRounding rounding, int scaleFactor) {
    return divRoundSfs(pSrc1, pSrc2, pDst, len, rounding, scaleFactor, kWin8u);
}
VrxStatus N0(vrxsDiv_Round_16u_Sfs)(const Vrx16u* pSrc1, const Vrx16u* pSrc2, Vrx16u* pDst, int len, VrxRounding rounding, int scaleFactor) {
    return divRoundSfs(pSrc1, pSrc2, pDst, len, rounding, scaleFactor, kWin16u);
}
VrxStatus N0(vrxsDiv_Round_16s_Sfs)(const Vrx16s* pSrc1, const Vrx16s* pSrc2, Vrx16s* pDst, int len, VrxRounding rounding, int scaleFactor) {
    return divRoundSfs(pSrc1, pSrc2, pDst, len, rounding, scaleFactor, kWinRound16s);
}
VrxStatus N0(vrxsDiv_Round_8u_ISfs)(const Vrx8u* pSrc, Vrx8u* pSrcDst, int len, VrxRounding rounding, int scaleFactor) { return N0(vrxsDiv_Round_8u_Sfs)(pSrc, pSrcDst, pSrcDst, len, rounding, scaleFactor); }
VrxStatus N0(vrxsDiv_Round_16u_ISfs)(const Vrx16u* pSrc, Vrx16u* pSrcDst, int len, VrxRounding rounding, int scaleFactor) { return N0(vrxsDiv_Round_16u_Sfs)(pSrc, pSrcDst, pSrcDst, len, rounding, scaleFactor); }
VrxStatus N0(vrxsDiv_Round_16s_ISfs)(const Vrx16s* pSrc, Vrx16s* pSrcDst, int len, VrxRounding rounding, int scaleFactor) { return N0(vrxsDiv_Round_16s_Sfs)(pSrc, pSrcDst, pSrcDst, len, rounding, scaleFactor); }

// ------------------------------------------------------------- complex / complex
namespace {

// (a + ib) / (c + id) = ((ac + bd) + i(bc - ad)) / (c c + d d), each part
// rounded once. Below the window each part is the bound of its numerator's
// sign; a zero divisor gives (0, 0).
template <bool Const>
unsigned div16sc(const Vrx16sc* s1, const Vrx16sc* s2, Vrx16sc* d, size_t n, int sf) {
    unsigned z = 0;
    for (size_t j = 0; j < n; ++j) {
        const i128 c = s1[Const ? 0 : j].re, e = s1[Const ? 0 : j].im;
        const i128 a = s2[j].re, b = s2[j].im;
        const i128 den = c * c + e * e, re = a * c + b * e, im = b * c - a * e;
        Vrx16s r0 = 0, r1 = 0;
        if (den == 0) {
            z = 1;
        } else if (sf < kWin16sc.lo) {
            r0 = boundBySign<Vrx16s, i128>(re);
            r1 = boundBySign<Vrx16s, i128>(im);
        } else {
            r0 = quotient<Vrx16s, i128>(re, den, sf, vrxRndNear);
            r1 = quotient<Vrx16s, i128>(im, den, sf, vrxRndNear);
        }
        d[j].re = r0;
        d[j].im = r1;
    }
    return z;
}

}  // namespace

// Above the window the vector is cleared first, then the divisors are
// scanned for the warning.
VrxStatus N0(vrxsDiv_16sc_Sfs)(const Vrx16sc* pSrc1, const Vrx16sc* pSrc2, Vrx16sc* pDst, int len, int scaleFactor) {
    if (VrxStatus st = checkArgs(len, pSrc1, pSrc2, pDst)) return st;
    if (scaleFactor > kWin16sc.hi) {
        N0(vrxsZero_16sc)(pDst, len);
        for (int i = 0; i < len; ++i)
            if (pSrc1[i].re == 0 && pSrc1[i].im == 0) return vrxWarnDivByZero;
        return vrxOk;
    }
    return div16sc<false>(pSrc1, pSrc2, pDst, static_cast<size_t>(len), scaleFactor) ? vrxWarnDivByZero : vrxOk;
}
VrxStatus N0(vrxsDiv_16sc_ISfs)(const Vrx16sc* pSrc, Vrx16sc* pSrcDst, int len, int scaleFactor) { return N0(vrxsDiv_16sc_Sfs)(pSrc, pSrcDst, pSrcDst, len, scaleFactor); }

VrxStatus N0(vrxsDivC_16sc_Sfs)(const Vrx16sc* pSrc, Vrx16sc val, Vrx16sc* pDst, int len, int scaleFactor) {
    if (VrxStatus st = checkArgs(len, pSrc, pDst)) return st;
    if (val.re == 0 && val.im == 0) return vrxErrDivByZero;
    if (scaleFactor > kWin16sc.hi) return N0(vrxsZero_16sc)(pDst, len);
    div16sc<true>(&val, pSrc, pDst, static_cast<size_t>(len), scaleFactor);
    return vrxOk;
}
VrxStatus N0(vrxsDivC_16sc_ISfs)(Vrx16sc val, Vrx16sc* pSrcDst, int len, int scaleFactor) { return N0(vrxsDivC_16sc_Sfs)(pSrcDst, val, pSrcDst, len, scaleFactor); }

// ---------------------------------------------------------- vector / constant
VrxStatus N0(vrxsDivC_8u_Sfs)(const Vrx8u* pSrc, Vrx8u val, Vrx8u* pDst, int len, int scaleFactor) {
    if (VrxStatus st = checkArgs(len, pSrc, pDst)) return st;
    if (val == 0) return vrxErrDivByZero;
    if (scaleFactor > kWin8u.hi) return N0(vrxsZero_8u)(pDst, len);
    divConst<Vrx8u, int64_t>(pSrc, val, pDst, static_cast<size_t>(len), scaleFactor, kWin8u);
    return vrxOk;
}
VrxStatus N0(vrxsDivC_16s_Sfs)(const Vrx16s* pSrc, Vrx16s val, Vrx16s* pDst, int len, int scaleFactor) {
    if (VrxStatus st = checkArgs(len, pSrc, pDst)) return st;
    if (val == 0) return vrxErrDivByZero;
    divConst<Vrx16s, int64_t>(pSrc, val, pDst, static_cast<size_t>(len), scaleFactor, kWin16s);
    return vrxOk;
}
// The scale factor and the constant are tested before the pointers here.
VrxStatus N0(vrxsDivC_16u_Sfs)(const Vrx16u* pSrc, Vrx16u val, Vrx16u* pDst, int len, int scaleFactor) {
    if (scaleFactor > kWin16u.hi) return N0(vrxsZero_16s)(reinterpret_cast<Vrx16s*>(pDst), len);
    if (val == 0) return vrxErrDivByZero;
    if (VrxStatus st = checkArgs(len, pSrc, pDst)) return st;
    divConst<Vrx16u, int64_t>(pSrc, val, pDst, static_cast<size_t>(len), scaleFactor, kWin16u);
    return vrxOk;
}
VrxStatus N0(vrxsDivC_8u_ISfs)(Vrx8u val, Vrx8u* pSrcDst, int len, int scaleFactor) { return N0(vrxsDivC_8u_Sfs)(pSrcDst, val, pSrcDst, len, scaleFactor); }
VrxStatus N0(vrxsDivC_16s_ISfs)(Vrx16s val, Vrx16s* pSrcDst, int len, int scaleFactor) { return N0(vrxsDivC_16s_Sfs)(pSrcDst, val, pSrcDst, len, scaleFactor); }
VrxStatus N0(vrxsDivC_16u_ISfs)(Vrx16u val, Vrx16u* pSrcDst, int len, int scaleFactor) { return N0(vrxsDivC_16u_Sfs)(pSrcDst, val, pSrcDst, len, scaleFactor); }

// ------------------------------------------------------------ val / vector
// With val 0 the vector is cleared; a zero element still warns.
VrxStatus N0(vrxsDivCRev_16u)(const Vrx16u* pSrc, Vrx16u val, Vrx16u* pDst, int len) {
    if (VrxStatus st = checkArgs(len, pSrc, pDst)) return st;
    const size_t n = static_cast<size_t>(len);
    unsigned z = 0;
    if (val == 0) {
        for (size_t i = 0; i < n; ++i) z |= pSrc[i] == 0;
        N0(vrxsZero_16s)(reinterpret_cast<Vrx16s*>(pDst), len);
        return z ? vrxWarnDivByZero : vrxOk;
    }
    for (size_t i = 0; i < n; ++i) {
        z |= pSrc[i] == 0;
        pDst[i] = pSrc[i] == 0 ? Vrx16u(65535) : quotient<Vrx16u, int32_t>(int32_t(val), int32_t(pSrc[i]), 0, vrxRndNear);
    }
    return z ? vrxWarnDivByZero : vrxOk;
}
VrxStatus N0(vrxsDivCRev_16u_I)(Vrx16u val, Vrx16u* pSrcDst, int len) { return N0(vrxsDivCRev_16u)(pSrcDst, val, pSrcDst, len); }

// ----------------------------------------------------------------- 64s / val
namespace {

// round(e * 2^k / v) to nearest even for magnitudes e, v (v > 0), k >= 0,
// saturated at lim: a long division, one bit of the shifted dividend at a
// time once the product no longer fits 128 bits.
u128 scaledQuotient(u128 e, u128 v, int k, u128 lim) {
    u128 q, r;
    if (k <= 63) {
        const u128 num = e << k;
        q = num / v;
        r = num % v;
    } else {
        q = e / v;
        r = e % v;
        for (int i = 0; i < k; ++i) {
            q <<= 1;
            r <<= 1;
            if (r >= v) { r -= v; q |= 1; }
            if (q > lim) return lim + 1;
        }
    }
    if (2 * r > v || (2 * r == v && (q & 1))) ++q;
    return q;
}

}  // namespace

VrxStatus N0(vrxsDivC_64s_ISfs)(Vrx64s val, Vrx64s* pSrcDst, int len, int scaleFactor) {
    if (VrxStatus st = checkArgs(len, pSrcDst)) return st;
    if (val == 0) return vrxErrDivByZero;
    const size_t n = static_cast<size_t>(len);
    const int sf = scaleFactor;
    const u128 v = val < 0 ? u128(0) - u128(i128(val)) : u128(val);
    for (size_t i = 0; i < n; ++i) {
        const int64_t x = pSrcDst[i];
        if (x == 0) continue;
        const bool neg = (x < 0) != (val < 0);
        const u128 e = x < 0 ? u128(0) - u128(i128(x)) : u128(x);
        const u128 lim = neg ? (u128(1) << 63) : (u128(1) << 63) - 1;
        u128 q;
        if (sf >= 0) {
            // e < 2^64 <= v 2^64: from sf 65 on the quotient is below one half
            q = sf >= 65 ? 0 : scaledQuotient(e, v << sf, 0, lim);
        } else {
            q = scaledQuotient(e, v, sf < -200 ? 200 : -sf, lim);
        }
        if (q > lim) q = lim;
        pSrcDst[i] = neg ? static_cast<int64_t>(0 - q) : static_cast<int64_t>(q);
    }
    return vrxOk;
}
