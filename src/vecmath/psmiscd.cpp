// Square root, complex magnitude and power kernels.
#include "vm_kernels.h"

#include <math.h>

#include "vm_abs.h"
#include "vm_exp.h"
#include "vm_log.h"

using namespace n0::vm;

namespace {

struct SqrtD {
    static constexpr bool kNoRare = true;
    static VRX_INLINE D8 vec(D8 x) {
        return D::sqrt(x);
    }
};

// |z| of interleaved (re, im) pairs: each register of 8 results reads two
// registers of pairs (masked at the tail) and splits them.
struct AbsZ {
    static VRX_INLINE D8 vec(D8 re, D8 im, __mmask8& rare) { return absVec(re, im, rare); }
    static double rare(double re, double im) { return absRare(re, im); }
};

VrxStatus runAbs(const Vrx64fc* src, Vrx64f* dst, int len) {
    if (len < 1) return vrxErrBadLength;
    if (!src || !dst) return vrxErrNullPtr;
    KernelFrame frame;
    const double* s = &src->re;
    for (int i = 0; i < len; i += 8) {
        int k = len - i >= 8 ? 8 : len - i;
        __mmask8 m = simd::tail<double>(k);
        __mmask8 m0 = k >= 4 ? 0xFF : simd::tail<double>(2 * k), m1 = k > 4 ? simd::tail<double>(2 * (k - 4)) : 0;
        D8 re, im;
        simd::deinterleave(D::loadm(m0, s + 2 * i), D::loadm(m1, s + 2 * i + 8), re, im);
        storeLanes(AbsZ{}, {re, im}, {dst}, i, m);
    }
    return vrxOk;
}

// For m in [sqrt(1/2), sqrt(2)] and c = rint(32 m) / 32,
// entry rint(32 m) - 23 holds 1/c rounded to double and -log of that
// rounded value as a double-double; the unused tail repeats the last entry.
alignas(64) const double kPowInvC[32] = {
    0x1.642c8590b2164p+0, 0x1.5555555555555p+0, 0x1.47ae147ae147bp+0, 0x1.3b13b13b13b14p+0,
    0x1.2f684bda12f68p+0, 0x1.2492492492492p+0, 0x1.1a7b9611a7b96p+0, 0x1.1111111111111p+0,
    0x1.0842108421084p+0, 0x1.0000000000000p+0, 0x1.f07c1f07c1f08p-1, 0x1.e1e1e1e1e1e1ep-1,
    0x1.d41d41d41d41dp-1, 0x1.c71c71c71c71cp-1, 0x1.bacf914c1bad0p-1, 0x1.af286bca1af28p-1,
    0x1.a41a41a41a41ap-1, 0x1.999999999999ap-1, 0x1.8f9c18f9c18fap-1, 0x1.8618618618618p-1,
    0x1.7d05f417d05f4p-1, 0x1.745d1745d1746p-1, 0x1.6c16c16c16c17p-1, 0x1.6c16c16c16c17p-1,
    0x1.6c16c16c16c17p-1, 0x1.6c16c16c16c17p-1, 0x1.6c16c16c16c17p-1, 0x1.6c16c16c16c17p-1,
    0x1.6c16c16c16c17p-1, 0x1.6c16c16c16c17p-1, 0x1.6c16c16c16c17p-1, 0x1.6c16c16c16c17p-1};
alignas(64) const double kPowLogCHi[32] = {
    -0x1.522ae0738a3d7p-2, -0x1.269621134db91p-2, -0x1.f991c6cb3b37ap-3, -0x1.a93ed3c8ad9e5p-3,
    -0x1.5bf406b543db0p-3, -0x1.1178e8227e47ap-3, -0x1.9335e5d594988p-4, -0x1.08598b59e3a06p-4,
    -0x1.0415d89e74440p-5, 0x0.0p+0, 0x1.f829b0e7832f8p-6, 0x1.f0a30c01162a8p-5,
    0x1.6f0d28ae56b4ep-4, 0x1.e27076e2af2eap-4, 0x1.29552f81ff521p-3, 0x1.5ff3070a793d6p-3,
    0x1.9525a9cf456b6p-3, 0x1.c8ff7c79a9a20p-3, 0x1.fb9186d5e3e29p-3, 0x1.1675cababa60fp-2,
    0x1.2e8e2bae11d31p-2, 0x1.4618bc21c5ec2p-2, 0x1.5d1bdbf5809cap-2, 0x1.5d1bdbf5809cap-2,
    0x1.5d1bdbf5809cap-2, 0x1.5d1bdbf5809cap-2, 0x1.5d1bdbf5809cap-2, 0x1.5d1bdbf5809cap-2,
    0x1.5d1bdbf5809cap-2, 0x1.5d1bdbf5809cap-2, 0x1.5d1bdbf5809cap-2, 0x1.5d1bdbf5809cap-2};
alignas(64) const double kPowLogCLo[32] = {
    -0x1.3840b263acb43p-56, -0x1.e0efadd9db02ap-56, -0x1.ecca0cdf30143p-58, -0x1.bcafa9de97202p-57,
    0x1.1f5b44c0df7f7p-61, 0x1.0e63a5f01c693p-58, 0x1.478a85704ccb7p-58, 0x1.dd7009902bf32p-58,
    -0x1.c05cf1d753621p-59, 0x0.0p+0, 0x1.33e3f04f1ef25p-60, 0x1.85f325c5bbacdp-59,
    -0x1.20db323097324p-59, -0x1.61578001e015ap-60, 0x1.301771c407dc0p-57, -0x1.bc60efafc6f6cp-58,
    -0x1.26fb3e2b1d1dap-57, -0x1.4f689f8434011p-57, 0x1.355519b0de535p-57, 0x1.ce63eab883727p-61,
    -0x1.1e99b72bd7bf2p-57, -0x1.7a42642661c62p-61, -0x1.7dc9c7c23801fp-56, -0x1.7dc9c7c23801fp-56,
    -0x1.7dc9c7c23801fp-56, -0x1.7dc9c7c23801fp-56, -0x1.7dc9c7c23801fp-56, -0x1.7dc9c7c23801fp-56,
    -0x1.7dc9c7c23801fp-56, -0x1.7dc9c7c23801fp-56, -0x1.7dc9c7c23801fp-56, -0x1.7dc9c7c23801fp-56};

// x^e for positive finite x whose result stays in the normal range:
// log x as a double-double, times e as a double-double, then the
// exponential with the table of 2^(j/16) and its argument's low part.
// Other lanes go to the scalar power function.
VRX_INLINE D8 powVec(D8 x, D8 e, __mmask8& rare) {
    rare = logRare(x);
    D8 m, k;
    splitMant(x, m, k);
    // m in [sqrt(1/2), sqrt(2)]: index rint(32 m) - 23 in 0..22
    VI idx = simd::bitsOf(D::add(D::rint(D::mul(m, D::set1(32.0))), D::set1(6755399441055744.0 - 23.0)));
    __mmask8 upper = I64::test(idx, I64::set1(16));
    auto look = [&](const double* t) { return D::blend(upper, lookup16(t, idx), lookup16(t + 16, idx)); };
    D8 invc = look(kPowInvC), lch = look(kPowLogCHi), lcl = look(kPowLogCLo);
    // r = m/c - 1 = m*invc - 1 exactly as rh + rl; |r| < 1/46
    D8 p = D::mul(m, invc);
    D8 pl = D::fms(m, invc, p);
    D8 rh, rl;
    fastTwoSum(D::sub(p, D::set1(1.0)), pl, rh, rl);
    // log(1+r) = r - r^2/2 + r^3 Q(r), Taylor to degree 13
    D8 q = D::fma(rh, D::set1(1.0 / 13), D::set1(-1.0 / 12));
    q = D::fma(rh, q, D::set1(1.0 / 11));
    q = D::fma(rh, q, D::set1(-1.0 / 10));
    q = D::fma(rh, q, D::set1(1.0 / 9));
    q = D::fma(rh, q, D::set1(-1.0 / 8));
    q = D::fma(rh, q, D::set1(1.0 / 7));
    q = D::fma(rh, q, D::set1(-1.0 / 6));
    q = D::fma(rh, q, D::set1(1.0 / 5));
    q = D::fma(rh, q, D::set1(-1.0 / 4));
    q = D::fma(rh, q, D::set1(1.0 / 3));
    D8 hr = D::mul(D::set1(-0.5), rh);
    D8 h2 = D::mul(hr, rh);
    D8 h2l = D::fms(hr, rh, h2);  // exact
    D8 s, e1, e2, e3;
    twoSum(D::mul(k, D::set1(kLn2Hi)), lch, s, e1);
    twoSum(s, rh, s, e2);
    twoSum(s, h2, s, e3);
    D8 lo = D::fma(k, D::set1(kLn2Lo), lcl);
    lo = D::add(lo, D::add(e1, D::add(e2, e3)));
    lo = D::add(lo, D::fnma(rh, rl, D::add(rl, h2l)));
    lo = D::fma(D::mul(rh, D::mul(rh, rh)), q, lo);
    D8 lh, ll;
    fastTwoSum(s, lo, lh, ll);
    // y = e log x as yh + yl
    D8 yh = D::mul(e, lh);
    D8 yl = D::fma(e, ll, D::fms(e, lh, yh));
    rare |= notBelow(D::abs(yh), 708.0);
    yh = D::blend(rare, yh, D::zero());
    yl = D::blend(rare, yl, D::zero());
    // y = (16 M + j) ln2/16 + r, r with the low part of y; exp(r) - 1 by
    // Taylor to degree 9
    ExpTab t = expTabReduce(yh);
    D8 r = D::add(t.r, yl);
    return D::scalef(expTabJoin(t, expm1Taylor<9>(r)), t.m);
}

// x^e for one exponent; the rare lanes take the C library's power.
struct PowK {
    double e;
    D8 ev;
    VRX_INLINE D8 vec(D8 x, __mmask8& rare) const { return powVec(x, ev, rare); }
    double rare(double x) const { return pow(x, e); }
};

VrxStatus runPowx(const Vrx64f* src, Vrx64f e, Vrx64f* dst, int len) {
    if (len < 1) return vrxErrBadLength;
    if (!src || !dst) return vrxErrNullPtr;
    KernelFrame frame;
    // an exponent of zero, infinity or NaN: every element by the scalar rules
    if (!(fabs(e) < __builtin_inf()) || e == 0.0) {
        for (int i = 0; i < len; ++i) dst[i] = pow(src[i], e);
        return vrxOk;
    }
    lanes<Native>(PowK{e, D::set1(e)}, {src}, {dst}, len);
    return vrxOk;
}

}  // namespace

extern "C" {
VrxStatus N0(own_vrxs_dSqrt_B3HAynn)(const Vrx64f* s, Vrx64f* d, int n) {
    return runKernel<Native>(SqrtD{}, {s}, {d}, n);
}
VrxStatus N0(own_vrxs_zAbs_B3LAynn)(const Vrx64fc* s, Vrx64f* d, int n) {
    return runAbs(s, d, n);
}
VrxStatus N0(own_vrxs_dPowx_B3HAynn)(const Vrx64f* s, Vrx64f e, Vrx64f* d, int n) {
    return runPowx(s, e, d, n);
}
// The square root is correctly rounded in every slot; the magnitude's
// fused form stays within one ulp and serves all three; so does the power,
// whose rare lanes take the scalar power function.
const VrxKernD1 N0(own_vrxs_dSqrt_B3_ttab)[3] = {N0(own_vrxs_dSqrt_B3HAynn), N0(own_vrxs_dSqrt_B3HAynn),
                                                N0(own_vrxs_dSqrt_B3HAynn)};
const VrxKernZAbs N0(own_vrxs_zAbs_B3_ttab)[3] = {N0(own_vrxs_zAbs_B3LAynn), N0(own_vrxs_zAbs_B3LAynn),
                                                 N0(own_vrxs_zAbs_B3LAynn)};
const VrxKernDPow N0(own_vrxs_dPowx_B3_ttab)[3] = {N0(own_vrxs_dPowx_B3HAynn), N0(own_vrxs_dPowx_B3HAynn),
                                                  N0(own_vrxs_dPowx_B3HAynn)};
}
