// Square root, complex magnitude and power kernels.
#include "vm_kernels.h"

#include <math.h>

#include "vm_abs.h"
#include "vm_exp.h"
#include "vm_log.h"

using namespace n0::vm;

namespace {

struct SqrtD {
    static VRX_INLINE D8 vec(D8 x, __mmask8& rare) {
        rare = 0;
        return _mm512_sqrt_pd(x);
    }
    static double rare(double x) { return x; }
};

VrxStatus runAbs(const Vrx64fc* src, Vrx64f* dst, int len) {
    if (len < 1) return vrxErrBadLength;
    if (!src || !dst) return vrxErrNullPtr;
    KernelFrame frame;
    const double* s = reinterpret_cast<const double*>(src);
    const I16 ie = _mm512_set_epi64(14, 12, 10, 8, 6, 4, 2, 0), io = _mm512_set_epi64(15, 13, 11, 9, 7, 5, 3, 1);
    for (int i = 0; i < len; i += 8) {
        int k = len - i >= 8 ? 8 : len - i;
        __mmask8 m = tailMask8(k);
        __mmask8 m0 = k >= 4 ? 0xFF : tailMask8(2 * k), m1 = k > 4 ? tailMask8(2 * (k - 4)) : 0;
        if (k == 8) m = 0xFF;
        D8 a = _mm512_maskz_loadu_pd(m0, s + 2 * i), b = _mm512_maskz_loadu_pd(m1, s + 2 * i + 8);
        D8 re = _mm512_permutex2var_pd(a, ie, b), im = _mm512_permutex2var_pd(a, io, b);
        __mmask8 rare;
        D8 r = absVec(re, im, rare);
        rare &= m;
        if (VRX_UNLIKELY(rare)) {
            alignas(64) double tr[8], ti[8], tv[8];
            _mm512_store_pd(tr, re);
            _mm512_store_pd(ti, im);
            _mm512_store_pd(tv, r);
            for (unsigned b2 = rare; b2; b2 &= b2 - 1) {
                int j = __builtin_ctz(b2);
                tv[j] = absRare(tr[j], ti[j]);
            }
            r = _mm512_load_pd(tv);
        }
        _mm512_mask_storeu_pd(dst + i, m, r);
    }
    return vrxOk;
}

// _vqmdPowHATab: for m in [sqrt(1/2), sqrt(2)] and c = rint(32 m) / 32,
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
    D8 m = _mm512_getmant_pd(x, _MM_MANT_NORM_1_2, _MM_MANT_SIGN_zero);
    D8 k = _mm512_getexp_pd(x);
    __mmask8 big = _mm512_cmp_pd_mask(m, set1(1.4142135623730951), _CMP_GT_OQ);
    m = _mm512_mask_mul_pd(m, big, m, set1(0.5));
    k = _mm512_mask_add_pd(k, big, k, set1(1.0));
    // m in [sqrt(1/2), sqrt(2)]: index rint(32 m) - 23 in 0..22
    I16 idx = asInt(add(rint(mul(m, set1(32.0))), set1(6755399441055744.0 - 23.0)));
    __mmask8 upper = _mm512_test_epi64_mask(idx, _mm512_set1_epi64(16));
    auto look = [&](const double* t) {
        D8 a = _mm512_permutex2var_pd(_mm512_load_pd(t), idx, _mm512_load_pd(t + 8));
        D8 b = _mm512_permutex2var_pd(_mm512_load_pd(t + 16), idx, _mm512_load_pd(t + 24));
        return _mm512_mask_blend_pd(upper, a, b);
    };
    D8 invc = look(kPowInvC), lch = look(kPowLogCHi), lcl = look(kPowLogCLo);
    // r = m/c - 1 = m*invc - 1 exactly as rh + rl; |r| < 1/46
    D8 p = mul(m, invc);
    D8 pl = fms(m, invc, p);
    D8 rh, rl;
    fastTwoSum(sub(p, set1(1.0)), pl, rh, rl);
    // log(1+r) = r - r^2/2 + r^3 Q(r), Taylor to degree 13
    D8 q = fma(rh, set1(1.0 / 13), set1(-1.0 / 12));
    q = fma(rh, q, set1(1.0 / 11));
    q = fma(rh, q, set1(-1.0 / 10));
    q = fma(rh, q, set1(1.0 / 9));
    q = fma(rh, q, set1(-1.0 / 8));
    q = fma(rh, q, set1(1.0 / 7));
    q = fma(rh, q, set1(-1.0 / 6));
    q = fma(rh, q, set1(1.0 / 5));
    q = fma(rh, q, set1(-1.0 / 4));
    q = fma(rh, q, set1(1.0 / 3));
    D8 hr = mul(set1(-0.5), rh);
    D8 h2 = mul(hr, rh);
    D8 h2l = fms(hr, rh, h2);  // exact
    D8 s, e1, e2, e3;
    twoSum(mul(k, set1(kLn2Hi)), lch, s, e1);
    twoSum(s, rh, s, e2);
    twoSum(s, h2, s, e3);
    D8 lo = fma(k, set1(kLn2Lo), lcl);
    lo = add(lo, add(e1, add(e2, e3)));
    lo = add(lo, fnma(rh, rl, add(rl, h2l)));
    lo = fma(mul(rh, mul(rh, rh)), q, lo);
    D8 lh, ll;
    fastTwoSum(s, lo, lh, ll);
    // y = e log x as yh + yl
    D8 yh = mul(e, lh);
    D8 yl = fma(e, ll, fms(e, lh, yh));
    rare |= notBelow(dabs(yh), 708.0);
    yh = _mm512_mask_mov_pd(yh, rare, _mm512_setzero_pd());
    yl = _mm512_mask_mov_pd(yl, rare, _mm512_setzero_pd());
    // y = (16 M + j) ln2/16 + r, the first step exact
    D8 n = rint(mul(yh, set1(16.0 * kLog2e)));
    D8 r = fnma(n, set1(kLn2Hi / 16), yh);
    r = add(fnma(n, set1(kLn2Lo / 16), r), yl);
    I16 j = asInt(add(n, set1(6755399441055744.0)));
    D8 M = _mm512_roundscale_pd(mul(n, set1(0.0625)), _MM_FROUND_TO_NEG_INF | _MM_FROUND_NO_EXC);
    D8 th = _mm512_permutex2var_pd(_mm512_load_pd(kExp2TabHi), j, _mm512_load_pd(kExp2TabHi + 8));
    D8 tl = _mm512_permutex2var_pd(_mm512_load_pd(kExp2TabLo), j, _mm512_load_pd(kExp2TabLo + 8));
    // exp(r) - 1, Taylor to degree 9
    D8 c = fma(r, set1(1.0 / 362880), set1(1.0 / 40320));
    c = fma(r, c, set1(1.0 / 5040));
    c = fma(r, c, set1(1.0 / 720));
    c = fma(r, c, set1(1.0 / 120));
    c = fma(r, c, set1(1.0 / 24));
    c = fma(r, c, set1(1.0 / 6));
    c = fma(r, c, set1(0.5));
    D8 pe = fma(mul(r, r), c, r);
    return scale2(add(th, fma(th, pe, tl)), M);
}

VrxStatus runPowx(const Vrx64f* src, Vrx64f e, Vrx64f* dst, int len) {
    if (len < 1) return vrxErrBadLength;
    if (!src || !dst) return vrxErrNullPtr;
    KernelFrame frame;
    // an exponent of zero, infinity or NaN: every element by the scalar rules
    if (!(fabs(e) < __builtin_inf()) || e == 0.0) {
        for (int i = 0; i < len; ++i) dst[i] = pow(src[i], e);
        return vrxOk;
    }
    const D8 ev = set1(e);
    auto block = [&](int at, __mmask8 m) {
        D8 x = _mm512_maskz_loadu_pd(m, src + at);
        __mmask8 rare;
        D8 y = powVec(x, ev, rare);
        rare &= m;
        _mm512_mask_storeu_pd(dst + at, m, y);
        if (VRX_UNLIKELY(rare)) eachRare(x, rare, [&](int j, double v) { dst[at + j] = pow(v, e); });
    };
    int i = 0;
    for (; i + 8 <= len; i += 8) block(i, 0xFF);
    if (i < len) block(i, tailMask8(len - i));
    return vrxOk;
}

}  // namespace

extern "C" {
__attribute__((visibility("hidden"))) VrxStatus n0_own_vrxs_dSqrt_B3HAynn(const Vrx64f* s, Vrx64f* d, int n) {
    return runD1<SqrtD>(s, d, n);
}
__attribute__((visibility("hidden"))) VrxStatus n0_own_vrxs_zAbs_B3LAynn(const Vrx64fc* s, Vrx64f* d, int n) {
    return runAbs(s, d, n);
}
__attribute__((visibility("hidden"))) VrxStatus n0_own_vrxs_dPowx_B3HAynn(const Vrx64f* s, Vrx64f e, Vrx64f* d, int n) {
    return runPowx(s, e, d, n);
}
// The square root is correctly rounded in every slot; the magnitude's
// fused form stays within one ulp and serves all three; so does the power,
// whose rare lanes take the scalar power function.
const VrxKernD1 n0_own_vrxs_dSqrt_B3_ttab[3] = {n0_own_vrxs_dSqrt_B3HAynn, n0_own_vrxs_dSqrt_B3HAynn,
                                                n0_own_vrxs_dSqrt_B3HAynn};
const VrxKernZAbs n0_own_vrxs_zAbs_B3_ttab[3] = {n0_own_vrxs_zAbs_B3LAynn, n0_own_vrxs_zAbs_B3LAynn,
                                                 n0_own_vrxs_zAbs_B3LAynn};
const VrxKernDPow n0_own_vrxs_dPowx_B3_ttab[3] = {n0_own_vrxs_dPowx_B3HAynn, n0_own_vrxs_dPowx_B3HAynn,
                                                  n0_own_vrxs_dPowx_B3HAynn};
}
