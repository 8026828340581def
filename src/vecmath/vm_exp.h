// Exponential core shared by the exponential, hyperbolic and power kernels:
// the table of 2^(j/16) and the split of ln2, and exp as a double-double.
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

// exp(x) = 2^n * (eh + el) for |x| < 2^10 by the table of 2^(j/16):
// x = (16n + j) ln2/16 + r, |r| <= ln2/32, exp(r) - 1 = p by Taylor to
// degree 8; 2^(j/16) (1 + p) as a double-double within 2^-58 or so.
VRX_INLINE void expTabCore(D8 x, D8& n, D8& eh, D8& el) {
    D8 k = rint(mul(x, set1(16.0 * kLog2e)));
    D8 r = fnma(k, set1(kLn2Hi / 16), x);  // exact
    r = fnma(k, set1(kLn2Lo / 16), r);
    I16 j = asInt(add(k, set1(6755399441055744.0)));
    n = _mm512_roundscale_pd(mul(k, set1(0.0625)), _MM_FROUND_TO_NEG_INF | _MM_FROUND_NO_EXC);
    D8 th = _mm512_permutex2var_pd(_mm512_load_pd(kExp2TabHi), j, _mm512_load_pd(kExp2TabHi + 8));
    D8 tl = _mm512_permutex2var_pd(_mm512_load_pd(kExp2TabLo), j, _mm512_load_pd(kExp2TabLo + 8));
    D8 q = fma(r, set1(1.0 / 40320.0), set1(1.0 / 5040.0));
    q = fma(r, q, set1(1.0 / 720.0));
    q = fma(r, q, set1(1.0 / 120.0));
    q = fma(r, q, set1(1.0 / 24.0));
    q = fma(r, q, set1(1.0 / 6.0));
    q = fma(r, q, set1(0.5));
    D8 p = fma(mul(r, r), q, r);
    twoSum(th, fma(th, p, tl), eh, el);
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
