// Exponential core shared by the exponential, hyperbolic and power kernels:
// x = n*ln2 + r, |r| <= ln2/2, exp(r) = 1 + s as a double-double.
#pragma once

#include "vm_common.h"

namespace n0::vm {

constexpr double kLog2e = 0x1.71547652b82fep+0;
constexpr double kLn2Hi = 0x1.62e42fee00000p-1;  // 32 bits: n*kLn2Hi is exact
constexpr double kLn2Lo = 0x1.a39ef35793c76p-33;

// exp(x) = 2^n * (eh + el); valid for |x| < 2^20 * ln2.
VRX_INLINE void expCore(D8 x, D8& n, D8& eh, D8& el) {
    n = rint(mul(x, set1(kLog2e)));
    D8 r1 = fnma(n, set1(kLn2Hi), x);  // exact
    D8 p = mul(n, set1(kLn2Lo));
    D8 pl = fms(n, set1(kLn2Lo), p);
    D8 rh, rl;
    twoSum(r1, sub(_mm512_setzero_pd(), p), rh, rl);
    rl = sub(rl, pl);
    // exp(r) - 1 - r = r^2 * (1/2 + r/6 + ...), Taylor to degree 13
    D8 q = fma(rh, set1(1.0 / 6227020800.0), set1(1.0 / 479001600.0));
    q = fma(rh, q, set1(1.0 / 39916800.0));
    q = fma(rh, q, set1(1.0 / 3628800.0));
    q = fma(rh, q, set1(1.0 / 362880.0));
    q = fma(rh, q, set1(1.0 / 40320.0));
    q = fma(rh, q, set1(1.0 / 5040.0));
    q = fma(rh, q, set1(1.0 / 720.0));
    q = fma(rh, q, set1(1.0 / 120.0));
    q = fma(rh, q, set1(1.0 / 24.0));
    q = fma(rh, q, set1(1.0 / 6.0));
    q = fma(rh, q, set1(0.5));
    D8 z = mul(rh, rh);
    D8 zl = fms(rh, rh, z);
    // t = r^2 q + rl (1 + r), the terms below rh
    D8 t = fma(z, q, fma(zl, q, fma(rl, rh, rl)));
    D8 sh, sl;
    twoSum(rh, t, sh, sl);
    D8 h, l;
    fastTwoSum(set1(1.0), sh, h, l);
    eh = h;
    el = add(l, sl);
}

// 2^n * (h + l), with overflow to infinity and one rounding into the
// subnormal range.
VRX_INLINE D8 scale2(D8 h, D8 n) { return _mm512_scalef_pd(h, n); }

// x limited to [-800, 800]; NaN passes through as it is.
VRX_INLINE D8 clampExp(D8 x) {
    D8 c = _mm512_min_pd(_mm512_max_pd(x, set1(-800.0)), set1(800.0));
    __mmask8 nan = _mm512_cmp_pd_mask(x, x, _CMP_UNORD_Q);
    return _mm512_mask_mov_pd(c, nan, x);
}

}  // namespace n0::vm
