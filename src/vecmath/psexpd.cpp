// Exponential and hyperbolic kernels. The exponential is carried as a
// double-double before the final scaling, which rounds once.
#include "vm_exp.h"
#include "vm_kernels.h"

using namespace n0::vm;

namespace {

// Table kernel: x = (16m + j) ln2/16 + r, |r| <= ln2/32;
// exp(x) = 2^m 2^(j/16) exp(r), exp(r) - 1 by Taylor to degree 7.
struct ExpD {
    static VRX_INLINE D8 vec(D8 x, __mmask8& rare) {
        rare = _mm512_cmp_pd_mask(x, x, _CMP_UNORD_Q);
        D8 c = clampExp(x);
        D8 n = rint(mul(c, set1(16.0 * kLog2e)));
        D8 r = fnma(n, set1(kLn2Hi / 16), c);  // exact
        r = fnma(n, set1(kLn2Lo / 16), r);
        I16 j = asInt(add(n, set1(6755399441055744.0)));
        D8 m = _mm512_roundscale_pd(mul(n, set1(0.0625)), _MM_FROUND_TO_NEG_INF | _MM_FROUND_NO_EXC);
        D8 th = _mm512_permutex2var_pd(_mm512_load_pd(kExp2TabHi), j, _mm512_load_pd(kExp2TabHi + 8));
        D8 tl = _mm512_permutex2var_pd(_mm512_load_pd(kExp2TabLo), j, _mm512_load_pd(kExp2TabLo + 8));
        D8 q = fma(r, set1(1.0 / 5040.0), set1(1.0 / 720.0));
        q = fma(r, q, set1(1.0 / 120.0));
        q = fma(r, q, set1(1.0 / 24.0));
        q = fma(r, q, set1(1.0 / 6.0));
        q = fma(r, q, set1(0.5));
        D8 p = fma(mul(r, r), q, r);
        return scale2(add(th, fma(th, p, tl)), m);
    }
    static double rare(double x) { return x + x; }
};

// Single precision computed in double and rounded once.
using ExpS = ExpD;

// cosh and sinh of |x| >= 1 from exp(|x|) and its reciprocal, both as
// double-doubles; sinh of |x| < 1 by its odd series.
template <bool Cosh>
struct HypK {
    // e^|x| / 2 and e^-|x| / 2 as double-doubles, combined
    static VRX_INLINE D8 big(D8 x) {
        D8 ax = clampExp(dabs(x)), n, eh, el;
        expTabCore(ax, n, eh, el);
        D8 ih = div(set1(1.0), eh);
        D8 il = mul(ih, fnma(el, ih, fnma(eh, ih, set1(1.0))));
        D8 nm = sub(n, set1(1.0)), nn = sub(set1(-1.0), n);
        D8 a = scale2(eh, nm), al = scale2(el, nm);
        D8 b = scale2(ih, nn), bl = scale2(il, nn);
        // beyond the overflow threshold the result is infinite
        __mmask8 ovf = _mm512_cmp_pd_mask(ax, set1(710.4758600739439), _CMP_GT_OQ);
        const D8 inf = set1(__builtin_inf());
        D8 s, e;
        if (Cosh) {
            twoSum(a, b, s, e);
            return _mm512_mask_blend_pd(ovf, add(s, add(e, add(al, bl))), inf);
        }
        twoSum(a, sub(_mm512_setzero_pd(), b), s, e);
        return xorp(_mm512_mask_blend_pd(ovf, add(s, add(e, sub(al, bl))), inf), signOf(x));
    }
    // sinh of |x| < 1 by its odd series
    static VRX_INLINE D8 small(D8 x) {
        D8 z = mul(x, x);
        D8 p = fma(z, set1(1.0 / 121645100408832000.0), set1(1.0 / 355687428096000.0));
        p = fma(z, p, set1(1.0 / 1307674368000.0));
        p = fma(z, p, set1(1.0 / 6227020800.0));
        p = fma(z, p, set1(1.0 / 39916800.0));
        p = fma(z, p, set1(1.0 / 362880.0));
        p = fma(z, p, set1(1.0 / 5040.0));
        p = fma(z, p, set1(1.0 / 120.0));
        p = fma(z, p, set1(1.0 / 6.0));
        return fma(mul(x, z), p, x);
    }
    static VRX_INLINE D8 vec(D8 x, __mmask8& rare) {
        rare = _mm512_cmp_pd_mask(x, x, _CMP_UNORD_Q);
        if (Cosh) return big(x);
        __mmask8 isSmall = _mm512_cmp_pd_mask(dabs(x), set1(1.0), _CMP_LT_OQ);
        if (isSmall == 0xFF) return small(x);
        if (isSmall == 0) return big(x);
        return _mm512_mask_blend_pd(isSmall, big(x), small(x));
    }
    static double rare(double x) { return x + x; }
};

}  // namespace

extern "C" {
__attribute__((visibility("hidden"))) VrxStatus n0_own_vrxs_dExp_B3HAynn(const Vrx64f* s, Vrx64f* d, int n) {
    return runD1<ExpD>(s, d, n);
}
__attribute__((visibility("hidden"))) VrxStatus n0_own_vrxs_sExp_B3HAynn(const Vrx32f* s, Vrx32f* d, int n) {
    return runS1<ExpS>(s, d, n);
}
__attribute__((visibility("hidden"))) VrxStatus n0_own_vrxs_dCosh_B3HAynn(const Vrx64f* s, Vrx64f* d, int n) {
    return runD1<HypK<true>>(s, d, n);
}
__attribute__((visibility("hidden"))) VrxStatus n0_own_vrxs_dSinh_B3HAynn(const Vrx64f* s, Vrx64f* d, int n) {
    return runD1<HypK<false>>(s, d, n);
}
// One kernel serves every tier of these functions: it meets the HA target.
const VrxKernD1 n0_own_vrxs_dExp_B3_ttab[3] = {n0_own_vrxs_dExp_B3HAynn, n0_own_vrxs_dExp_B3HAynn,
                                               n0_own_vrxs_dExp_B3HAynn};
// Single precision: LA in float lanes, HA in double lanes; no EP tier of
// its own, so HA fills slot 2.
VrxStatus n0_own_vrxs_sExp_B3LAynn(const Vrx32f* s, Vrx32f* d, int n);
const VrxKernS1 n0_own_vrxs_sExp_B3_ttab[3] = {n0_own_vrxs_sExp_B3LAynn, n0_own_vrxs_sExp_B3HAynn,
                                               n0_own_vrxs_sExp_B3HAynn};
const VrxKernD1 n0_own_vrxs_dCosh_B3_ttab[3] = {n0_own_vrxs_dCosh_B3HAynn, n0_own_vrxs_dCosh_B3HAynn,
                                                n0_own_vrxs_dCosh_B3HAynn};
const VrxKernD1 n0_own_vrxs_dSinh_B3_ttab[3] = {n0_own_vrxs_dSinh_B3HAynn, n0_own_vrxs_dSinh_B3HAynn,
                                                n0_own_vrxs_dSinh_B3HAynn};
}
