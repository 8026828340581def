// Exponential and hyperbolic kernels. The exponential is carried as a
// double-double before the final scaling, which rounds once.
#include "vm_exp.h"
#include "vm_kernels.h"

using namespace n0::vm;

namespace {

struct ExpD {
    static VRX_INLINE D8 vec(D8 x, __mmask8& rare) {
        rare = _mm512_cmp_pd_mask(x, x, _CMP_UNORD_Q);
        D8 n, eh, el;
        expCore(clampExp(x), n, eh, el);
        return scale2(add(eh, el), n);
    }
    static double rare(double x) { return x + x; }
};

// Single precision computed in double and rounded once.
using ExpS = ExpD;

// cosh and sinh of |x| >= 1 from exp(|x|) and its reciprocal, both as
// double-doubles; sinh of |x| < 1 by its odd series.
template <bool Cosh>
struct HypK {
    static VRX_INLINE D8 vec(D8 x, __mmask8& rare) {
        rare = _mm512_cmp_pd_mask(x, x, _CMP_UNORD_Q);
        D8 ax = clampExp(dabs(x)), n, eh, el;
        expCore(ax, n, eh, el);
        D8 ih = div(set1(1.0), eh);
        D8 il = mul(ih, fnma(el, ih, fnma(eh, ih, set1(1.0))));
        D8 nm = sub(n, set1(1.0)), nn = sub(set1(-1.0), n);
        D8 a = scale2(eh, nm), al = scale2(el, nm);
        D8 b = scale2(ih, nn), bl = scale2(il, nn);
        // beyond the overflow threshold the result is infinite
        __mmask8 ovf = _mm512_cmp_pd_mask(ax, set1(710.4758600739439), _CMP_GT_OQ);
        const D8 inf = set1(__builtin_inf());
        if (Cosh) {
            D8 s, e;
            twoSum(a, b, s, e);
            return _mm512_mask_blend_pd(ovf, add(s, add(e, add(al, bl))), inf);
        }
        D8 s, e;
        twoSum(a, sub(_mm512_setzero_pd(), b), s, e);
        D8 big = _mm512_mask_blend_pd(ovf, add(s, add(e, sub(al, bl))), inf);
        // |x| < 1
        D8 z = mul(x, x);
        D8 p = fma(z, set1(1.0 / 121645100408832000.0), set1(1.0 / 355687428096000.0));
        p = fma(z, p, set1(1.0 / 1307674368000.0));
        p = fma(z, p, set1(1.0 / 6227020800.0));
        p = fma(z, p, set1(1.0 / 39916800.0));
        p = fma(z, p, set1(1.0 / 362880.0));
        p = fma(z, p, set1(1.0 / 5040.0));
        p = fma(z, p, set1(1.0 / 120.0));
        p = fma(z, p, set1(1.0 / 6.0));
        D8 small = fma(mul(x, z), p, x);
        __mmask8 isSmall = _mm512_cmp_pd_mask(dabs(x), set1(1.0), _CMP_LT_OQ);
        return _mm512_mask_blend_pd(isSmall, xorp(big, signOf(x)), small);
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
