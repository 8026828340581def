// Natural logarithm core: x = 2^e * m, m in [sqrt(1/2), sqrt(2)), and
// log(m) = log(1+f) from s = f/(2+f) with an even polynomial in s.
#pragma once

#include "vm_common.h"

namespace n0::vm {

// x = 2^e * m with m in [sqrt(1/2), sqrt(2)], for positive finite x,
// subnormals included (exact).
VRX_INLINE void splitMant(D8 x, D8& m, D8& e) {
    m = D::mant(x);
    e = D::expo(x);
    __mmask8 big = D::gt(m, D::set1(1.4142135623730951));
    m = D::blend(big, m, D::mul(m, D::set1(0.5)));
    e = D::blend(big, e, D::add(e, D::set1(1.0)));
}

// For positive finite x, subnormals included.
VRX_INLINE D8 logCore(D8 x) {
    constexpr double Lg1 = 6.666666666666735130e-01, Lg2 = 3.999999999940941908e-01,
                     Lg3 = 2.857142874366239149e-01, Lg4 = 2.222219843214978396e-01,
                     Lg5 = 1.818357216161805012e-01, Lg6 = 1.531383769920937332e-01,
                     Lg7 = 1.479819860511658591e-01;
    constexpr double kLn2Hi = 0x1.62e42fee00000p-1, kLn2Lo = 0x1.a39ef35793c76p-33;
    D8 m, e;
    splitMant(x, m, e);
    D8 f = D::sub(m, D::set1(1.0));
    D8 hfsq = D::mul(D::set1(0.5), D::mul(f, f));
    D8 s = D::div(f, D::add(D::set1(2.0), f));
    D8 z = D::mul(s, s);
    D8 w = D::mul(z, z);
    D8 t1 = D::mul(w, D::fma(w, D::fma(w, D::set1(Lg6), D::set1(Lg4)), D::set1(Lg2)));
    D8 t2 = D::mul(z, D::fma(w, D::fma(w, D::fma(w, D::set1(Lg7), D::set1(Lg5)), D::set1(Lg3)), D::set1(Lg1)));
    D8 R = D::add(t2, t1);
    return D::fms(e, D::set1(kLn2Hi), D::sub(D::sub(hfsq, D::fma(e, D::set1(kLn2Lo), D::mul(s, D::add(hfsq, R)))), f));
}

// Lanes that are not positive and finite.
VRX_INLINE __mmask8 logRare(D8 x) {
    return D::ngt(x, D::set1(0.0)) | D::eq(x, D::set1(__builtin_inf()));
}

// log of a value that is not positive and finite.
VRX_INLINE double logSpecial(double x) {
    if (x == 0.0) return -__builtin_inf();
    if (x < 0.0) return __builtin_bit_cast(double, 0xFFF8000000000000ull);
    return x + x;  // +inf, NaN
}

}  // namespace n0::vm
