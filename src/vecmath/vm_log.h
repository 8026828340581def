// Natural logarithm core: x = 2^e * m, m in [sqrt(1/2), sqrt(2)), and
// log(m) = log(1+f) from s = f/(2+f) with an even polynomial in s.
#pragma once

#include "vm_common.h"

namespace n0::vm {

// For positive finite x, subnormals included.
VRX_INLINE D8 logCore(D8 x) {
    constexpr double Lg1 = 6.666666666666735130e-01, Lg2 = 3.999999999940941908e-01,
                     Lg3 = 2.857142874366239149e-01, Lg4 = 2.222219843214978396e-01,
                     Lg5 = 1.818357216161805012e-01, Lg6 = 1.531383769920937332e-01,
                     Lg7 = 1.479819860511658591e-01;
    constexpr double kLn2Hi = 0x1.62e42fee00000p-1, kLn2Lo = 0x1.a39ef35793c76p-33;
    D8 m = _mm512_getmant_pd(x, _MM_MANT_NORM_1_2, _MM_MANT_SIGN_zero);
    D8 e = _mm512_getexp_pd(x);
    __mmask8 big = _mm512_cmp_pd_mask(m, set1(1.4142135623730951), _CMP_GT_OQ);
    m = _mm512_mask_mul_pd(m, big, m, set1(0.5));
    e = _mm512_mask_add_pd(e, big, e, set1(1.0));
    D8 f = sub(m, set1(1.0));
    D8 hfsq = mul(set1(0.5), mul(f, f));
    D8 s = div(f, add(set1(2.0), f));
    D8 z = mul(s, s);
    D8 w = mul(z, z);
    D8 t1 = mul(w, fma(w, fma(w, set1(Lg6), set1(Lg4)), set1(Lg2)));
    D8 t2 = mul(z, fma(w, fma(w, fma(w, set1(Lg7), set1(Lg5)), set1(Lg3)), set1(Lg1)));
    D8 R = add(t2, t1);
    return fms(e, set1(kLn2Hi), sub(sub(hfsq, fma(e, set1(kLn2Lo), mul(s, add(hfsq, R)))), f));
}

// Lanes that are not positive and finite.
VRX_INLINE __mmask8 logRare(D8 x) {
    return _mm512_cmp_pd_mask(x, set1(0.0), _CMP_NGT_UQ) | _mm512_cmp_pd_mask(x, set1(__builtin_inf()), _CMP_EQ_OQ);
}

// log of a value that is not positive and finite.
VRX_INLINE double logSpecial(double x) {
    if (x == 0.0) return -__builtin_inf();
    if (x < 0.0) return __builtin_bit_cast(double, 0xFFF8000000000000ull);
    return x + x;  // +inf, NaN
}

}  // namespace n0::vm
