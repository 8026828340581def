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
        rare = D::unord(x, x);
        ExpTab e = expTabReduce(clampExp(x));
        return D::scalef(expTabJoin(e, expm1Taylor<7>(e.r)), e.m);
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
        D8 ax = clampExp(D::abs(x)), n, eh, el;
        expTabCore(ax, n, eh, el);
        D8 ih = D::div(D::set1(1.0), eh);
        D8 il = D::mul(ih, D::fnma(el, ih, D::fnma(eh, ih, D::set1(1.0))));
        D8 nm = D::sub(n, D::set1(1.0)), nn = D::sub(D::set1(-1.0), n);
        D8 a = D::scalef(eh, nm), al = D::scalef(el, nm);
        D8 b = D::scalef(ih, nn), bl = D::scalef(il, nn);
        // beyond the overflow threshold the result is infinite
        __mmask8 ovf = D::gt(ax, D::set1(710.4758600739439));
        const D8 inf = D::set1(__builtin_inf());
        D8 s, e;
        if (Cosh) {
            twoSum(a, b, s, e);
            return D::blend(ovf, D::add(s, D::add(e, D::add(al, bl))), inf);
        }
        twoSum(a, D::sub(D::zero(), b), s, e);
        return D::xorb(D::blend(ovf, D::add(s, D::add(e, D::sub(al, bl))), inf), signOf(x));
    }
    // sinh of |x| < 1 by its odd series
    static VRX_INLINE D8 small(D8 x) {
        D8 z = D::mul(x, x);
        D8 p = D::fma(z, D::set1(1.0 / 121645100408832000.0), D::set1(1.0 / 355687428096000.0));
        p = D::fma(z, p, D::set1(1.0 / 1307674368000.0));
        p = D::fma(z, p, D::set1(1.0 / 6227020800.0));
        p = D::fma(z, p, D::set1(1.0 / 39916800.0));
        p = D::fma(z, p, D::set1(1.0 / 362880.0));
        p = D::fma(z, p, D::set1(1.0 / 5040.0));
        p = D::fma(z, p, D::set1(1.0 / 120.0));
        p = D::fma(z, p, D::set1(1.0 / 6.0));
        return D::fma(D::mul(x, z), p, x);
    }
    static VRX_INLINE D8 vec(D8 x, __mmask8& rare) {
        rare = D::unord(x, x);
        if (Cosh) return big(x);
        __mmask8 isSmall = D::lt(D::abs(x), D::set1(1.0));
        if (isSmall == 0xFF) return small(x);
        if (isSmall == 0) return big(x);
        return D::blend(isSmall, big(x), small(x));
    }
    static double rare(double x) { return x + x; }
};

}  // namespace

extern "C" {
VrxStatus N0(own_vrxs_dExp_B3HAynn)(const Vrx64f* s, Vrx64f* d, int n) {
    return runKernel<Native>(ExpD{}, {s}, {d}, n);
}
VrxStatus N0(own_vrxs_sExp_B3HAynn)(const Vrx32f* s, Vrx32f* d, int n) {
    return runKernel<ViaDouble>(ExpS{}, {s}, {d}, n);
}
VrxStatus N0(own_vrxs_dCosh_B3HAynn)(const Vrx64f* s, Vrx64f* d, int n) {
    return runKernel<Native>(HypK<true>{}, {s}, {d}, n);
}
VrxStatus N0(own_vrxs_dSinh_B3HAynn)(const Vrx64f* s, Vrx64f* d, int n) {
    return runKernel<Native>(HypK<false>{}, {s}, {d}, n);
}
// One kernel serves every tier of these functions: it meets the HA target.
const VrxKernD1 N0(own_vrxs_dExp_B3_ttab)[3] = {N0(own_vrxs_dExp_B3HAynn), N0(own_vrxs_dExp_B3HAynn),
                                               N0(own_vrxs_dExp_B3HAynn)};
// Single precision: LA in float lanes, HA in double lanes; no EP tier of
// its own, so HA fills slot 2.
const VrxKernS1 N0(own_vrxs_sExp_B3_ttab)[3] = {N0(own_vrxs_sExp_B3LAynn), N0(own_vrxs_sExp_B3HAynn),
                                               N0(own_vrxs_sExp_B3HAynn)};
const VrxKernD1 N0(own_vrxs_dCosh_B3_ttab)[3] = {N0(own_vrxs_dCosh_B3HAynn), N0(own_vrxs_dCosh_B3HAynn),
                                                N0(own_vrxs_dCosh_B3HAynn)};
const VrxKernD1 N0(own_vrxs_dSinh_B3_ttab)[3] = {N0(own_vrxs_dSinh_B3HAynn), N0(own_vrxs_dSinh_B3HAynn),
                                                N0(own_vrxs_dSinh_B3HAynn)};
}
