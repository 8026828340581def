// Exponential core shared by the exponential, hyperbolic and power kernels:
// the table of 2^(j/16) and the split of ln2, and exp as a double-double.
#pragma once

#include "vm_common.h"

namespace n0::vm {

// 2^(j/16) as a double-double, j = 0..15
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

// The reduction of the table kernels: y = (16 m + j) ln2/16 + r with
// |r| <= ln2/32, the first step exact; th + tl = 2^(j/16).
struct ExpTab {
    D8 r, m, th, tl;
};
VRX_INLINE ExpTab expTabReduce(D8 y) {
    ExpTab e;
    D8 k = D::rint(D::mul(y, D::set1(16.0 * kLog2e)));
    D8 r = D::fnma(k, D::set1(kLn2Hi / 16), y);  // exact
    e.r = D::fnma(k, D::set1(kLn2Lo / 16), r);
    VI j = intBits(k);
    e.m = D::floor(D::mul(k, D::set1(0.0625)));
    e.th = lookup16(kExp2TabHi, j);
    e.tl = lookup16(kExp2TabLo, j);
    return e;
}

// 1/k! for k = 0..9
inline constexpr double kInvFact[10] = {1.0,       1.0,        1.0 / 2.0,    1.0 / 6.0,     1.0 / 24.0,
                                        1.0 / 120.0, 1.0 / 720.0, 1.0 / 5040.0, 1.0 / 40320.0, 1.0 / 362880.0};

// exp(r) - 1 by Taylor to degree Deg (3 to 9): Horner's scheme from 1/Deg!
// down to 1/2!, then r + r^2 q.
template <int K>
VRX_INLINE D8 expHorner(D8 r, D8 q) {
    if constexpr (K < 2) return q;
    else return expHorner<K - 1>(r, D::fma(r, q, D::set1(kInvFact[K])));
}
template <int Deg>
VRX_INLINE D8 expm1Taylor(D8 r) {
    D8 q = expHorner<Deg - 2>(r, D::fma(r, D::set1(kInvFact[Deg]), D::set1(kInvFact[Deg - 1])));
    return D::fma(D::mul(r, r), q, r);
}

// 2^(j/16) (1 + p) = th + (th p + tl), rounded once.
VRX_INLINE D8 expTabJoin(const ExpTab& e, D8 p) { return D::add(e.th, D::fma(e.th, p, e.tl)); }

// exp(x) = 2^n * (eh + el) for |x| < 2^10 by the table of 2^(j/16):
// exp(r) - 1 = p by Taylor to degree 8; 2^(j/16) (1 + p) as a
// double-double within 2^-58 or so.
VRX_INLINE void expTabCore(D8 x, D8& n, D8& eh, D8& el) {
    ExpTab e = expTabReduce(x);
    n = e.m;
    D8 p = expm1Taylor<8>(e.r);
    twoSum(e.th, D::fma(e.th, p, e.tl), eh, el);
}

// x limited to [-800, 800]; NaN passes through as it is.
VRX_INLINE D8 clampExp(D8 x) {
    D8 c = D::min(D::max(x, D::set1(-800.0)), D::set1(800.0));
    return D::blend(D::unord(x, x), c, x);
}

}  // namespace n0::vm
