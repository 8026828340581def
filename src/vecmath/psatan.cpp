// Arctangent kernels: the double arctangent (HA) by reduction to five
// intervals and an odd polynomial; atan2 (LA, double and single) from the
// arctangent of the smaller over the larger magnitude.
#include "vm_kernels.h"

#include <math.h>

#include "vm_common.h"

using namespace n0::vm;

namespace {

constexpr double aT[11] = {3.33333333333329318027e-01,  -1.99999999998764832476e-01, 1.42857142725034663711e-01,
                           -1.11111104054623557880e-01, 9.09088713343650656196e-02,  -7.69187620504482999495e-02,
                           6.66107313738753120669e-02,  -5.83357013379057348645e-02, 4.97687799461593236017e-02,
                           -3.65315727442169155270e-02, 1.62858201153657823623e-02};
constexpr double kAtanHi[4] = {4.63647609000806093515e-01, 7.85398163397448278999e-01, 9.82793723247329054082e-01,
                               1.57079632679489655800e+00};
constexpr double kAtanLo[4] = {2.26987774529616870924e-17, 3.06161699786838294307e-17, 1.39033110312309984516e-17,
                               6.12323399573676603587e-17};

// hi + lo + atan(t) for the reduced argument t: t + t^3 p(t^2), p split
// into its even and odd halves in w = t^4.
VRX_INLINE D8 atanTail(D8 t, D8 hi, D8 lo) {
    D8 z = D::mul(t, t);
    D8 w = D::mul(z, z);
    D8 s1 = D::mul(z, D::fma(w, D::fma(w, D::fma(w, D::fma(w, D::fma(w, D::set1(aT[10]), D::set1(aT[8])), D::set1(aT[6])), D::set1(aT[4])), D::set1(aT[2])),
                             D::set1(aT[0])));
    D8 s2 = D::mul(w, D::fma(w, D::fma(w, D::fma(w, D::fma(w, D::set1(aT[9]), D::set1(aT[7])), D::set1(aT[5])), D::set1(aT[3])), D::set1(aT[1])));
    return D::sub(hi, D::sub(D::fms(t, D::add(s1, s2), lo), t));
}

// atan(a) for a >= 0 (infinity included)
VRX_INLINE D8 atanPos(D8 a) {
    __mmask8 m0 = D::ge(a, D::set1(0.4375));
    __mmask8 m1 = D::ge(a, D::set1(0.6875));
    __mmask8 m2 = D::ge(a, D::set1(1.1875));
    __mmask8 m3 = D::ge(a, D::set1(2.4375));
    D8 num = a, den = D::set1(1.0), hi = D::zero(), lo = hi;
    num = D::blend(m0, num, D::fms(a, D::set1(2.0), D::set1(1.0)));
    den = D::blend(m0, den, D::add(D::set1(2.0), a));
    num = D::blend(m1, num, D::sub(a, D::set1(1.0)));
    den = D::blend(m1, den, D::add(a, D::set1(1.0)));
    num = D::blend(m2, num, D::sub(a, D::set1(1.5)));
    den = D::blend(m2, den, D::add(D::set1(1.0), D::mul(D::set1(1.5), a)));
    num = D::blend(m3, num, D::set1(-1.0));
    den = D::blend(m3, den, a);
    hi = D::blend(m0, hi, D::set1(kAtanHi[0]));
    lo = D::blend(m0, lo, D::set1(kAtanLo[0]));
    hi = D::blend(m1, hi, D::set1(kAtanHi[1]));
    lo = D::blend(m1, lo, D::set1(kAtanLo[1]));
    hi = D::blend(m2, hi, D::set1(kAtanHi[2]));
    lo = D::blend(m2, lo, D::set1(kAtanLo[2]));
    hi = D::blend(m3, hi, D::set1(kAtanHi[3]));
    lo = D::blend(m3, lo, D::set1(kAtanLo[3]));
    return atanTail(D::div(num, den), hi, lo);
}

struct AtanD {
    static VRX_INLINE D8 vec(D8 x, __mmask8& rare) {
        rare = D::unord(x, x);
        return D::xorb(atanPos(D::abs(x)), signOf(x));
    }
    static double rare(double x) { return x + x; }
};

// Single precision in double lanes: three intervals split at tan(pi/8)
// and tan(3pi/8), so |t| <= tan(pi/8); atan(t) = t + t^3 g(t^2), g of
// degree 5 fitted at the Chebyshev nodes of [0, tan^2(pi/8)] (relative
// error 2^-33), far below the final rounding to float.
struct AtanS {
    static VRX_INLINE D8 vec(D8 x, __mmask8& rare) {
        rare = D::unord(x, x);
        D8 a = D::abs(x);
        __mmask8 m1 = D::gt(a, D::set1(0.41421356237309503));
        __mmask8 m2 = D::gt(a, D::set1(2.4142135623730949));
        // the numerators and denominators are exact for float arguments
        D8 num = D::blend(m1, a, D::sub(a, D::set1(1.0)));
        D8 den = D::blend(m1, D::set1(1.0), D::add(a, D::set1(1.0)));
        num = D::blend(m2, num, D::set1(-1.0));
        den = D::blend(m2, den, a);
        D8 hi = D::blend(m1, D::zero(), D::set1(0.78539816339744828));
        hi = D::blend(m2, hi, D::set1(1.5707963267948966));
        D8 t = D::div(num, den);
        D8 z = D::mul(t, t);
        D8 p = D::fma(z, D::set1(0x1.9d8b2344d1c3cp-5), D::set1(-0x1.614448bd30a84p-4));
        p = D::fma(z, p, D::set1(0x1.c57bad2e925f0p-4));
        p = D::fma(z, p, D::set1(-0x1.248a173238684p-3));
        p = D::fma(z, p, D::set1(0x1.99997b13bead1p-3));
        p = D::fma(z, p, D::set1(-0x1.5555554c0aef3p-2));
        return D::xorb(D::add(hi, D::fma(D::mul(t, z), p, t)), signOf(x));
    }
    static double rare(double x) { return x + x; }
};

// atan(mn/mx) for 0 <= mn <= mx from one division; the numerators are
// exact by Sterbenz's lemma.
VRX_INLINE D8 atanRatio(D8 mn, D8 mx) {
    __mmask8 m0 = D::ge(mn, D::mul(mx, D::set1(0.4375)));
    __mmask8 m1 = D::ge(mn, D::mul(mx, D::set1(0.6875)));
    D8 num = mn, den = mx, hi = D::zero(), lo = hi;
    num = D::blend(m0, num, D::fms(mn, D::set1(2.0), mx));
    den = D::blend(m0, den, D::fma(mx, D::set1(2.0), mn));
    num = D::blend(m1, num, D::sub(mn, mx));
    den = D::blend(m1, den, D::add(mn, mx));
    hi = D::blend(m0, hi, D::set1(kAtanHi[0]));
    lo = D::blend(m0, lo, D::set1(kAtanLo[0]));
    hi = D::blend(m1, hi, D::set1(kAtanHi[1]));
    lo = D::blend(m1, lo, D::set1(kAtanLo[1]));
    return atanTail(D::div(num, den), hi, lo);
}

// atan2(y, x): the arctangent of min/max of the magnitudes, placed in its
// octant. Zeros on both sides, infinities and NaNs take the rare path.
VRX_INLINE D8 atan2Vec(D8 y, D8 x, __mmask8& rare) {
    D8 ax = D::abs(x), ay = D::abs(y);
    D8 mx = D::max(ax, ay), mn = D::min(ax, ay);
    rare = D::nlt(mx, D::set1(__builtin_inf())) | D::unord(mn, mx) | D::eq(mx, D::set1(0.0));
    D8 r = atanRatio(mn, mx);
    constexpr double kPio2Hi = 0x1.921fb54442d18p+0, kPio2Lo = 0x1.1a62633145c07p-54;
    constexpr double kPiHi = 0x1.921fb54442d18p+1, kPiLo = 0x1.1a62633145c07p-53;
    __mmask8 steep = D::gt(ay, ax);
    r = D::blend(steep, r, D::add(D::sub(D::set1(kPio2Hi), r), D::set1(kPio2Lo)));
    __mmask8 left = I64::lt(simd::bitsOf(x), I64::zero());  // the sign bit set
    r = D::blend(left, r, D::add(D::sub(D::set1(kPiHi), r), D::set1(kPiLo)));
    return D::xorb(r, signOf(y));
}

// atan2 in double lanes; the rare lanes take the C library's.
struct Atan2D {
    static VRX_INLINE D8 vec(D8 y, D8 x, __mmask8& rare) { return atan2Vec(y, x, rare); }
    static double rare(double y, double x) { return atan2(y, x); }
};

}  // namespace

extern "C" {
VrxStatus N0(own_vrxs_dAtan_B3HAynn)(const Vrx64f* s, Vrx64f* d, int n) {
    return runKernel<Native>(AtanD{}, {s}, {d}, n);
}
VrxStatus N0(own_vrxs_sAtan_B3HAynn)(const Vrx32f* s, Vrx32f* d, int n) {
    return runKernel<ViaDouble>(AtanS{}, {s}, {d}, n);
}
VrxStatus N0(own_vrxs_dAtan2_B3LAynn)(const Vrx64f* y, const Vrx64f* x, Vrx64f* d,
                                                                           int n) {
    return runKernel<Native>(Atan2D{}, {y, x}, {d}, n);
}
// single precision atan2 in double lanes: the HA kernel
VrxStatus N0(own_vrxs_sAtan2_B3HAynn)(const Vrx32f* y, const Vrx32f* x, Vrx32f* d,
                                                                           int n) {
    return runKernel<ViaDouble>(Atan2D{}, {y, x}, {d}, n);
}
const VrxKernD1 N0(own_vrxs_dAtan_B3_ttab)[3] = {N0(own_vrxs_dAtan_B3HAynn), N0(own_vrxs_dAtan_B3HAynn),
                                                N0(own_vrxs_dAtan_B3HAynn)};
const VrxKernS1 N0(own_vrxs_sAtan_B3_ttab)[3] = {N0(own_vrxs_sAtan_B3HAynn), N0(own_vrxs_sAtan_B3HAynn),
                                                N0(own_vrxs_sAtan_B3HAynn)};
// The double LA kernel stands in every slot; single precision has LA in
// float lanes and HA in double lanes (also slot 2).
const VrxKernD21 N0(own_vrxs_dAtan2_B3_ttab)[3] = {N0(own_vrxs_dAtan2_B3LAynn), N0(own_vrxs_dAtan2_B3LAynn),
                                                  N0(own_vrxs_dAtan2_B3LAynn)};
const VrxKernS21 N0(own_vrxs_sAtan2_B3_ttab)[3] = {N0(own_vrxs_sAtan2_B3LAynn), N0(own_vrxs_sAtan2_B3HAynn),
                                                  N0(own_vrxs_sAtan2_B3HAynn)};
}
