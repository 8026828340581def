// Single-precision LA kernels in sixteen float lanes: exponential,
// logarithm and atan2. Results within a few ulp (LA: at most 8).
#include <math.h>

#include "vm_common.h"
#include "vm_kernels.h"
#include "vm_log.h"

using namespace n0::vm;

namespace {

VRX_INLINE __mmask16 isNan(F16 x) { return F::unord(x, x); }

// ------------------------------------------------------------------- exp
// x = n ln2 + r, |r| <= ln2/2; exp(r) by its Taylor polynomial of degree
// 7; the scaling by 2^n rounds once, to infinity or into the subnormals.
struct ExpF {
    static VRX_INLINE F16 vec(F16 x, __mmask16& rare) {
        rare = isNan(x);
        F16 c = F::min(F::max(x, F::set1(-110.0f)), F::set1(100.0f));
        F16 n = F::rint(F::mul(c, F::set1(0x1.715476p+0f)));
        F16 r = F::fnma(n, F::set1(0x1.62e430p-1f), c);
        r = F::fnma(n, F::set1(-0x1.05c610p-29f), r);
        F16 p = F::fma(r, F::set1(1.0f / 5040.0f), F::set1(1.0f / 720.0f));
        p = F::fma(r, p, F::set1(1.0f / 120.0f));
        p = F::fma(r, p, F::set1(1.0f / 24.0f));
        p = F::fma(r, p, F::set1(1.0f / 6.0f));
        p = F::fma(r, p, F::set1(0.5f));
        p = F::fma(F::mul(r, r), p, r);
        return F::scalef(F::add(F::set1(1.0f), p), n);
    }
    static float rare(float x) { return x + x; }
};

// -------------------------------------------------------------------- ln
// x = 2^e (1 + f), 1 + f in [sqrt(1/2), sqrt(2)); log(1 + f) =
// f - f^2/2 + f^3 g(f), g a polynomial of degree 6 fitted at the
// Chebyshev nodes of the interval (relative error 2^-22).
struct LnF {
    static VRX_INLINE F16 vec(F16 x, __mmask16& rare) {
        // normal positive finite x only: bits - 2^23 below 0x7F000000
        VI bits = simd::bitsOf(x);
        rare = U32::ge(U32::sub(bits, U32::set1(0x00800000)), U32::set1(0x7F000000));
        // e = exponent of x / sqrt(1/2) rounded down; m = x / 2^e in [sqrt(1/2), sqrt(2))
        VI ei = I32::shr<23>(I32::sub(bits, I32::set1(0x3F3504F3)));
        F16 m = simd::floatsOf(I32::sub(bits, I32::shl<23>(ei)));
        F16 e = simd::intToFloat(ei);  // exact
        F16 f = F::sub(m, F::set1(1.0f));
        F16 f2 = F::mul(f, f);
        F16 f4 = F::mul(f2, f2);
        // Estrin's scheme over the seven coefficients
        F16 c01 = F::fma(f, F::set1(-0x1.0001d8p-2f), F::set1(0x1.55558cp-2f));
        F16 c23 = F::fma(f, F::set1(-0x1.540610p-3f), F::set1(0x1.9946e2p-3f));
        F16 c45 = F::fma(f, F::set1(-0x1.1f5a48p-3f), F::set1(0x1.2d22c8p-3f));
        F16 c03 = F::fma(f2, c23, c01);
        F16 c46 = F::fma(f2, F::set1(0x1.72a362p-4f), c45);
        F16 g = F::fma(f4, c46, c03);
        F16 t = F::fma(F::mul(f2, f), g, F::fnma(F::set1(0.5f), f2, f));
        return F::fma(e, F::set1(6.9313812256e-01f), F::fma(e, F::set1(9.0580006145e-06f), t));
    }
    // zeros, subnormals, negatives, infinities and NaN
    static float rare(float x) {
        if (x > 0.0f && x < __builtin_inff()) return toFloat(log(static_cast<double>(x)));
        return toFloat(logSpecial(x));
    }
};

// ----------------------------------------------------------------- atan2
// atan of min/max of the magnitudes, placed in its octant; zeros on both
// sides, infinities and NaNs take the rare path.
//
// atan(t) = t p(t^2) for t = mn/mx in [0, 1], p of degree 10 fitted at
// the Chebyshev nodes (relative error 2^-28), evaluated by Estrin's scheme.
VRX_INLINE F16 atanRatio(F16 mn, F16 mx) {
    F16 t = F::div(mn, mx);
    F16 u = F::mul(t, t);
    F16 u2 = F::mul(u, u);
    F16 u4 = F::mul(u2, u2);
    F16 c01 = F::fma(u, F::set1(-0x1.55554ep-2f), F::set1(1.0f));
    F16 c23 = F::fma(u, F::set1(-0x1.246cdcp-3f), F::set1(0x1.999748p-3f));
    F16 c45 = F::fma(u, F::set1(-0x1.67d5dap-4f), F::set1(0x1.c4a3bcp-4f));
    F16 c67 = F::fma(u, F::set1(-0x1.67dc8ep-5f), F::set1(0x1.11d442p-4f));
    F16 c89 = F::fma(u, F::set1(-0x1.ccc30ep-8f), F::set1(0x1.67058ep-6f));
    F16 c03 = F::fma(u2, c23, c01);
    F16 c47 = F::fma(u2, c67, c45);
    F16 c8a = F::fma(u2, F::set1(0x1.153ed4p-10f), c89);
    F16 c07 = F::fma(u4, c47, c03);
    return F::mul(t, F::fma(F::mul(u4, u4), c8a, c07));
}

VRX_INLINE F16 atan2F(F16 y, F16 x, __mmask16& rare) {
    F16 ax = F::abs(x), ay = F::abs(y);
    F16 mx = F::max(ax, ay), mn = F::min(ax, ay);
    rare = F::nlt(mx, F::set1(__builtin_inff())) | F::unord(mn, mx) | F::eq(mx, F::set1(0.0f));
    F16 r = atanRatio(mn, mx);
    __mmask16 steep = F::gt(ay, ax);
    r = F::blend(steep, r, F::add(F::sub(F::set1(0x1.921fb6p+0f), r), F::set1(-0x1.777a5cp-25f)));
    __mmask16 left = I32::lt(simd::bitsOf(x), I32::zero());  // the sign bit set
    r = F::blend(left, r, F::add(F::sub(F::set1(0x1.921fb6p+1f), r), F::set1(-0x1.777a5cp-24f)));
    return F::xorb(r, signOf(y));
}

// atan2 in float lanes; the rare lanes take the C library's in double,
// rounded once.
struct Atan2F {
    static VRX_INLINE F16 vec(F16 y, F16 x, __mmask16& rare) { return atan2F(y, x, rare); }
    static float rare(float y, float x) { return toFloat(atan2(static_cast<double>(y), static_cast<double>(x))); }
};

}  // namespace

extern "C" {
VrxStatus N0(own_vrxs_sExp_B3LAynn)(const Vrx32f* s, Vrx32f* d, int n) {
    return runKernel<Native, 2>(ExpF{}, {s}, {d}, n);
}
VrxStatus N0(own_vrxs_sLn_B3LAynn)(const Vrx32f* s, Vrx32f* d, int n) {
    return runKernel<Native, 2>(LnF{}, {s}, {d}, n);
}
VrxStatus N0(own_vrxs_sAtan2_B3LAynn)(const Vrx32f* y, const Vrx32f* x, Vrx32f* d,
                                                                           int n) {
    return runKernel<Native>(Atan2F{}, {y, x}, {d}, n);
}
}
