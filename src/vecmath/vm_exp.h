// Exponential core shared by the exponential, hyperbolic and power kernels:
// x = n*ln2 + r, |r| <= ln2/2, exp(r) = 1 + s as a double-double.
#pragma once

#include "vm_common.h"

namespace n0::vm {

// _vqmdExpHATab: 2^(j/16) as a double-double, j = 0..15
alignas(64) inline constexpr double kExp2TabHi[16] = {
    0x1.0000000000000p+0, 0x1.0b5586cf9890fp+0, 0x1.172b83c7d517bp+0, 0x1.2387a6e756238p+0,
    0x1.306fe0a31b715p+0, 0x1.3dea64c123422p+0, 0x1.4bfdad5362a27p+0, 0x1.5ab07dd485429p+0,
    0x1.6a09e667f3bcdp+0, 0x1.7a11473eb0187p+0, 0x1.8ace5422aa0dbp+0, 0x1.9c49182a3f090p+0,
    0x1.ae89f995ad3adp+0, 0x1.c199bdd85529cp+0, 0x1.d5818dcfba487p+0, 0x1.ea4afa2a490dap+0};
alignas(64) inline constexpr double kExp2TabLo[16] = {
    0x0.0p+0, 0x1.8a62e4adc610bp-54, -0x1.19041b9d78a76p-55, 0x1.9b07eb6c70573p-54,
    0x1.6f46ad23182e4p-55, 0x1.ada0911f09ebcp-55, 0x1.d4397afec42e2p-56, 0x1.6324c054647adp-54,
    -0x1.bdd3413b26456p-54, -0x1.41577ee04992fp-55, 0x1.6e9f156864b27p-54, 0x1.c7c46b071f2bep-56,
    0x1.7a1cd345dcc81p-54, 0x1.11065895048ddp-55, 0x1.2ed02d75b3707p-55, -0x1.e9c23179c2893p-54};

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
