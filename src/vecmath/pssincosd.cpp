// Double and single sine and cosine kernels, all tiers.
//
// HA: Cody-Waite reduction by pi/2 in three parts with fused steps, carried
// as a double-double, then polynomials of degree 13 and 14 on [-pi/4, pi/4]
// with the tail of the reduced argument folded in. LA: the same reduction
// without the tail. Single precision runs the LA reduction in double with
// shorter polynomials and rounds once at the end. EP: the short pi-based
// sine. Arguments beyond the fast range go to the rare-case routines, which
// reduce them with the long table of 2/pi.
#include "vm_common.h"
#include "vm_kernels.h"

using namespace n0::vm;

namespace {

constexpr double kTwoOverPi = 0x1.45f306dc9c883p-1;
constexpr double kPio2A = 0x1.921fb54442d18p+0;
constexpr double kPio2B = 0x1.1a62633145c07p-54;
constexpr double kPio2C = -0x1.f1976b7ed8fbcp-110;
constexpr double kShifter = 6755399441055744.0;  // 1.5 * 2^52
constexpr double kFastLimit = 0x1p30;
constexpr double kFastLimitS = 0x1p27;

// Minimax coefficients on [-pi/4, pi/4]
constexpr double S1 = -1.66666666666666324348e-01, S2 = 8.33333333332248946124e-03,
                 S3 = -1.98412698298579493134e-04, S4 = 2.75573137070700676789e-06,
                 S5 = -2.50507602534068634195e-08, S6 = 1.58969099521155010221e-10;
constexpr double C1 = 4.16666666666666019037e-02, C2 = -1.38888888888741095749e-03,
                 C3 = 2.48015872894767294178e-05, C4 = -2.75573143513906633035e-07,
                 C5 = 2.08757232129817482790e-09, C6 = -1.13596475577881948265e-11;

// quadrant bits of an integer-valued double n (|n| < 2^51)
VRX_INLINE VI quadrant(D8 n) { return intBits(n); }

// HA reduction: |x| = n*pi/2 + rh + rl
VRX_INLINE void reduceHA(D8 ax, D8& n, D8& rh, D8& rl) {
    n = D::rint(D::mul(ax, D::set1(kTwoOverPi)));
    D8 r1 = D::fnma(n, D::set1(kPio2A), ax);  // exact
    D8 p2h = D::mul(n, D::set1(kPio2B));
    D8 p2l = D::fms(n, D::set1(kPio2B), p2h);
    D8 s, e;
    twoSum(r1, D::sub(D::zero(), p2h), s, e);
    D8 lo = D::fnma(n, D::set1(kPio2C), D::sub(e, p2l));
    fastTwoSum(s, lo, rh, rl);
}

// LA reduction: one double
VRX_INLINE D8 reduceLA(D8 ax, D8& n) {
    n = D::rint(D::mul(ax, D::set1(kTwoOverPi)));
    D8 r = D::fnma(n, D::set1(kPio2A), ax);
    r = D::fnma(n, D::set1(kPio2B), r);
    return D::fnma(n, D::set1(kPio2C), r);
}

// sin and cos of x + y, |x| <= pi/4 (a little more), |y| tiny
VRX_INLINE void polyHA(D8 x, D8 y, D8& s, D8& c) {
    const D8 half = D::set1(0.5), one = D::set1(1.0);
    D8 z = D::mul(x, x);
    D8 v = D::mul(z, x);
    D8 r = D::fma(z, D::fma(z, D::fma(z, D::fma(z, D::set1(S6), D::set1(S5)), D::set1(S4)), D::set1(S3)), D::set1(S2));
    s = D::sub(x, D::sub(D::sub(D::mul(z, D::fnma(v, r, D::mul(half, y))), y), D::mul(v, D::set1(S1))));
    D8 rc = D::mul(z, D::fma(z, D::fma(z, D::fma(z, D::fma(z, D::fma(z, D::set1(C6), D::set1(C5)), D::set1(C4)), D::set1(C3)), D::set1(C2)), D::set1(C1)));
    D8 hz = D::mul(half, z);
    D8 w = D::sub(one, hz);
    c = D::add(w, D::add(D::sub(D::sub(one, w), hz), D::fms(z, rc, D::mul(x, y))));
}

VRX_INLINE void polyLA(D8 x, D8& s, D8& c) {
    const D8 half = D::set1(0.5), one = D::set1(1.0);
    D8 z = D::mul(x, x);
    D8 v = D::mul(z, x);
    D8 r = D::fma(z, D::fma(z, D::fma(z, D::fma(z, D::set1(S6), D::set1(S5)), D::set1(S4)), D::set1(S3)), D::set1(S2));
    s = D::fma(v, D::fma(z, r, D::set1(S1)), x);
    D8 rc = D::mul(z, D::fma(z, D::fma(z, D::fma(z, D::fma(z, D::fma(z, D::set1(C6), D::set1(C5)), D::set1(C4)), D::set1(C3)), D::set1(C2)), D::set1(C1)));
    D8 hz = D::mul(half, z);
    D8 w = D::sub(one, hz);
    c = D::add(w, D::add(D::sub(D::sub(one, w), hz), D::mul(z, rc)));
}

// Single precision targets: about 2^-29 relative before the final rounding.
VRX_INLINE void polyS(D8 x, D8& s, D8& c) {
    D8 z = D::mul(x, x);
    D8 v = D::mul(z, x);
    s = D::fma(v, D::fma(z, D::fma(z, D::fma(z, D::set1(S4), D::set1(S3)), D::set1(S2)), D::set1(S1)), x);
    c = D::fma(z, D::fma(z, D::fma(z, D::fma(z, D::fma(z, D::set1(C4), D::set1(C3)), D::set1(C2)), D::set1(C1)), D::set1(-0.5)), D::set1(1.0));
}

// Places s and c by quadrant. For sine the sign of the argument is applied
// by the caller.
VRX_INLINE D8 pickSin(VI q, D8 s, D8 c) {
    __mmask8 odd = I64::test(q, I64::set1(1));
    D8 v = D::blend(odd, s, c);
    VI sg = I64::shl<62>(I64::andb(q, I64::set1(2)));
    return D::xorb(v, simd::doublesOf(sg));
}
VRX_INLINE D8 pickCos(VI q, D8 s, D8 c) {
    __mmask8 odd = I64::test(q, I64::set1(1));
    D8 v = D::blend(odd, c, s);
    VI q1 = I64::add(q, I64::set1(1));
    VI sg = I64::shl<62>(I64::andb(q1, I64::set1(2)));
    return D::xorb(v, simd::doublesOf(sg));
}

// ------------------------------------------------------ rare-case routines
// The rare lanes of every tier share the reduction below.
// Non-finite: infinity gives x * 0 (NaN, code 19), NaN gives x * x.

VRX_INLINE bool nonFinite(double x, double& r) {
    if (__builtin_isinf(x)) {
        r = x * 0.0;
        N0(own_vrxs_dError)("sin", 19, &x, &x, &r);
        return true;
    }
    if (__builtin_isnan(x)) {
        r = x * x;
        return true;
    }
    return false;
}

// The rare path of a tier (1 HA, 0 LA, 3 single): non-finite
// input, then the long reduction and the tier's own polynomial on one lane.
template <int Tier>
void rareTier(double x, double* ps, double* pc) {
    double r;
    if (nonFinite(x, r)) {
        if (ps) *ps = r;
        if (pc) *pc = r;
        return;
    }
    double rh, rl;
    int q = N0(ownsReducePio2Large)(x, &rh, &rl);
    D8 s, c;
    if constexpr (Tier == 1) polyHA(D::set1(rh), D::set1(rl), s, c);
    else if constexpr (Tier == 0) polyLA(D::set1(rh), s, c);
    else polyS(D::set1(rh), s, c);
    VI qv = I64::set1(q);
    if (ps) *ps = D::first(pickSin(qv, s, c));
    if (pc) *pc = D::first(pickCos(qv, s, c));
}

// ------------------------------------------------------------- kernels
// The shared part of the tiers (0 LA, 1 HA, 3 single): reduction of |x|,
// sine and cosine of the reduced argument, the quadrant; the lanes beyond
// the fast range are returned as rare.
template <int Tier> VRX_INLINE __mmask8 core(D8 x, D8& s, D8& c, VI& q) {
    D8 ax = D::abs(x), n;
    const __mmask8 rare = notBelow(ax, Tier == 3 ? kFastLimitS : kFastLimit);
    if (Tier == 1) {
        D8 rh, rl;
        reduceHA(ax, n, rh, rl);
        polyHA(rh, rl, s, c);
    } else if (Tier == 0) {
        polyLA(reduceLA(ax, n), s, c);
    } else {
        polyS(reduceLA(ax, n), s, c);
    }
    q = quadrant(n);
    return rare;
}

// The sine (Cos false) or the cosine of one tier.
template <int Tier, bool Cos>
struct OneK {
    static VRX_INLINE D8 vec(D8 x, __mmask8& rare) {
        D8 s, c;
        VI q;
        rare = core<Tier>(x, s, c, q);
        if (Cos) return pickCos(q, s, c);
        return D::xorb(pickSin(q, s, c), signOf(x));
    }
    static double rare(double x) {
        double r;
        rareTier<Tier>(x, Cos ? nullptr : &r, Cos ? &r : nullptr);
        return r;
    }
};
template <int Tier> using SinK = OneK<Tier, false>;
template <int Tier> using CosK = OneK<Tier, true>;

template <int Tier>
struct SinCosK {
    static VRX_INLINE void vec(D8 x, D8& so, D8& co, __mmask8& rare) {
        D8 s, c;
        VI q;
        rare = core<Tier>(x, s, c, q);
        so = D::xorb(pickSin(q, s, c), signOf(x));
        co = pickCos(q, s, c);
    }
    static void rare(double x, double* s, double* c) {
        rareTier<Tier>(x, s, c);
    }
};

// ---------------------------------------------------------------- EP
constexpr double kInvPi = 0.3183098861837907;
constexpr double kPiA = 3.141592653589793, kPiB = 1.224646799147353e-16;
constexpr double kEpLimit = 16777216.0;  // 2^24

VRX_INLINE D8 epPoly(D8 r) {
    D8 t = D::mul(r, r);
    D8 p = D::add(D::set1(-0.16666658839437115),
               D::mul(t, D::add(D::set1(0.008333046645248707),
                          D::mul(t, D::add(D::set1(-0.0001980808536178708), D::mul(t, D::set1(2.602272538419318e-06)))))));
    return p;
}

// sin(x), |x| <= 2^24: n = nearest integer to |x|/pi; sin(r + n*pi) = (-1)^n sin r
VRX_INLINE D8 epSin(D8 x, __mmask8& rare) {
    D8 a = D::abs(x);
    rare = notBelow(a, kEpLimit);
    D8 m = D::fma(a, D::set1(kInvPi), D::set1(kShifter));
    D8 n = D::sub(m, D::set1(kShifter));
    D8 r = D::fnma(n, D::set1(kPiA), a);
    r = D::fnma(n, D::set1(kPiB), r);
    D8 rp = D::xorb(r, simd::doublesOf(I64::shl<63>(simd::bitsOf(m))));
    D8 t = D::mul(r, r);
    D8 res = D::add(D::mul(D::mul(epPoly(r), t), rp), rp);
    return D::xorb(res, signOf(x));
}

// cos(x) = (-1)^(k+1) sin(r), r = |x| - (k + 1/2) pi, k nearest to |x|/pi - 1/2
VRX_INLINE D8 epCos(D8 x, __mmask8& rare) {
    D8 a = D::abs(x);
    rare = notBelow(a, kEpLimit);
    D8 m = D::add(D::fma(a, D::set1(kInvPi), D::set1(-0.5)), D::set1(kShifter));
    D8 n = D::add(D::sub(m, D::set1(kShifter)), D::set1(0.5));
    D8 r = D::fnma(n, D::set1(kPiA), a);
    r = D::fnma(n, D::set1(kPiB), r);
    VI odd = I64::shl<63>(I64::xorb(simd::bitsOf(m), I64::set1(1)));
    D8 rp = D::xorb(r, simd::doublesOf(odd));
    D8 t = D::mul(r, r);
    return D::add(D::mul(D::mul(epPoly(r), t), rp), rp);
}

struct SinEP {
    static VRX_INLINE D8 vec(D8 x, __mmask8& rare) { return epSin(x, rare); }
    static double rare(double x) { return SinK<1>::rare(x); }
};
struct CosEP {
    static VRX_INLINE D8 vec(D8 x, __mmask8& rare) { return epCos(x, rare); }
    static double rare(double x) { return CosK<1>::rare(x); }
};
struct SinCosEP {
    static VRX_INLINE void vec(D8 x, D8& s, D8& c, __mmask8& rare) {
        __mmask8 r1, r2;
        s = epSin(x, r1);
        c = epCos(x, r2);
        rare = r1 | r2;
    }
    static void rare(double x, double* s, double* c) { rareTier<1>(x, s, c); }
};

// ------------------------------------------------- single precision
// Sixteen lanes of float arithmetic: the same three-part reduction with
// float parts of pi/2 for |x| <= 2^16 (carried as a float pair for HA),
// fitted polynomials of degree 7 (9 for the HA sine) and 8. Larger and non-finite arguments
// take the double rare path and round once.
namespace fs {

constexpr float kTwoOverPiF = 0x1.45f306p-1f;
constexpr float kP1 = 0x1.921fb6p+0f, kP2 = -0x1.777a5cp-25f, kP3 = -0x1.ee59dap-50f;
constexpr float kLimit = 65536.0f;

// |x| above the limit, infinity or NaN, compared as integers
VRX_INLINE __mmask16 beyondLimit(F16 ax) {
    return I32::gt(simd::bitsOf(ax), I32::set1(0x47800000));  // 2^16
}
VRX_INLINE VI signBits(F16 x) { return simd::bitsOf(signOf(x)); }

// The quadrant comes from |x| * 2/pi + 1.5*2^23 rounded to nearest by the
// fused step itself: its low bits hold k; the sine takes the sign of x
// back at the end.
// sin(r) = r + r^3 gs(r^2) and cos(r) = 1 - r^2/2 + r^4 gc(r^2),
// gs and gc fitted at the Chebyshev nodes of [0, (pi/4)^2]: gc of degree 2
// (relative error 2^-29), gs of degree 2 for LA (2^-26) and 3 for HA (2^-35).
template <bool HA>
VRX_INLINE void core(F16 x, F16& so, F16& co, __mmask16& rare, bool wantSin, bool wantCos) {
    F16 ax = F::abs(x);
    rare = beyondLimit(ax);
    F16 q = F::fmaNearest(ax, F::set1(kTwoOverPiF), F::set1(0x1.8p23f));
    F16 n = F::sub(q, F::set1(0x1.8p23f));  // exact
    F16 rh, rl;
    if (HA) {
        F16 r1 = F::fnma(n, F::set1(kP1), ax);  // exact
        F16 p2h = F::mul(n, F::set1(kP2));
        F16 p2l = F::fms(n, F::set1(kP2), p2h);
        F16 s = F::sub(r1, p2h);
        F16 bb = F::sub(s, r1);
        F16 e = F::add(F::sub(r1, F::sub(s, bb)), F::sub(F::sub(F::zero(), p2h), bb));
        F16 lo = F::fnma(n, F::set1(kP3), F::sub(e, p2l));
        rh = F::add(s, lo);
        rl = F::sub(lo, F::sub(rh, s));
    } else {
        rh = F::fnma(n, F::set1(kP1), ax);
        rh = F::fnma(n, F::set1(kP2), rh);
        rh = F::fnma(n, F::set1(kP3), rh);
    }
    F16 z = F::mul(rh, rh);
    F16 ps = HA ? F::fma(z, F::fma(z, F::fma(z, F::set1(0x1.6dbe08p-19f), F::set1(-0x1.a013a8p-13f)), F::set1(0x1.11110ep-7f)), F::set1(-0x1.555556p-3f))
                : F::fma(z, F::fma(z, F::set1(-0x1.9ac9b0p-13f), F::set1(0x1.110c28p-7f)), F::set1(-0x1.555552p-3f));
    F16 pc = F::fma(z, F::fma(z, F::set1(0x1.9bd89cp-16f), F::set1(-0x1.6c12d2p-10f)), F::set1(0x1.555554p-5f));
    F16 sn, cs;
    if (HA) {
        // sin(rh + rl) = rh + (rh^3 gs + rl); cos = w + (((1 - w) - z/2) + z^2 gc - rh rl), w = 1 - z/2
        sn = F::add(rh, F::fma(F::mul(rh, z), ps, rl));
        F16 hz = F::mul(F::set1(0.5f), z);
        F16 w = F::sub(F::set1(1.0f), hz);
        F16 tail = F::add(F::sub(F::sub(F::set1(1.0f), w), hz), F::fms(F::mul(z, z), pc, F::mul(rh, rl)));
        cs = F::add(w, tail);
    } else {
        sn = F::fma(F::mul(rh, z), ps, rh);
        cs = F::fma(z, F::fma(z, pc, F::set1(-0.5f)), F::set1(1.0f));
    }
    VI k = simd::bitsOf(q);
    __mmask16 odd = I32::test(k, I32::set1(1));
    if (wantSin) {
        F16 v = F::blend(odd, sn, cs);
        VI sg = I32::xorb(I32::shl<30>(I32::andb(k, I32::set1(2))), signBits(x));
        so = F::xorb(v, simd::floatsOf(sg));
    }
    if (wantCos) {
        F16 v = F::blend(odd, cs, sn);
        VI sg = I32::shl<30>(I32::andb(I32::add(k, I32::set1(1)), I32::set1(2)));
        co = F::xorb(v, simd::floatsOf(sg));
    }
}

// LA sine and cosine: reduction by pi, so that one odd polynomial on
// [-pi/2, pi/2] serves; the cosine is the sine shifted by a half period,
// as in the EP kernels. For the sine:
// |x|/pi + 1.5*2^23, rounded to nearest by the instruction itself, leaves k
// in the low bits, so (-1)^k is the low bit moved to the sign.
constexpr float kShifter = 0x1.8p23f;

// sin(r) = r + r^3 g(r^2), g of degree 3 fitted at the Chebyshev nodes of
// [0, (pi/2)^2] (relative error 2^-25).
VRX_INLINE F16 sinByPiPoly(F16 r) {
    F16 z = F::mul(r, r);
    F16 p = F::fma(z, F::set1(0x1.61a18ap-19f), F::set1(-0x1.9fb686p-13f));
    p = F::fma(z, p, F::set1(0x1.11104ep-7f));
    p = F::fma(z, p, F::set1(-0x1.555554p-3f));
    return F::fma(F::mul(r, z), p, r);
}

template <bool Cos>
VRX_INLINE F16 byPi(F16 x, __mmask16& rare) {
    if (!Cos) {
        F16 ax = F::abs(x);
        rare = beyondLimit(ax);
        F16 q = F::fmaNearest(ax, F::set1(0x1.45f306p-2f), F::set1(kShifter));
        F16 n = F::sub(q, F::set1(kShifter));  // exact
        F16 r = F::fnma(n, F::set1(2 * kP1), ax);  // exact
        r = F::fnma(n, F::set1(2 * kP2), r);
        r = F::fnma(n, F::set1(2 * kP3), r);
        VI sg = I32::xorb(I32::shl<31>(simd::bitsOf(q)), signBits(x));
        return F::xorb(sinByPiPoly(r), simd::floatsOf(sg));
    }
    F16 ax = F::abs(x);
    rare = F::nle(ax, F::set1(kLimit));
    F16 q = F::mul(ax, F::set1(0x1.45f306p-2f));  // |x| / pi
    q = F::sub(q, F::set1(0.5f));
    F16 k = F::rint(q);
    F16 n = F::add(k, F::set1(0.5f));
    F16 r = F::fnma(n, F::set1(2 * kP1), ax);  // exact
    r = F::fnma(n, F::set1(2 * kP2), r);
    r = F::fnma(n, F::set1(2 * kP3), r);
    F16 z = F::mul(r, r);
    F16 p = F::fma(z, F::set1(-1.0f / 39916800.0f), F::set1(1.0f / 362880.0f));
    p = F::fma(z, p, F::set1(-1.0f / 5040.0f));
    p = F::fma(z, p, F::set1(1.0f / 120.0f));
    p = F::fma(z, p, F::set1(-1.0f / 6.0f));
    F16 sn = F::fma(F::mul(r, z), p, r);
    // (-1)^(k+1)
    VI ki = I32::add(simd::floatToInt(k), I32::set1(1));  // k is integral: exact
    return F::xorb(sn, simd::floatsOf(I32::shl<31>(ki)));
}

template <bool HA>
struct SinF {
    static VRX_INLINE F16 vec(F16 x, __mmask16& rare) {
        if (!HA) return byPi<false>(x, rare);
        F16 s, c;
        core<HA>(x, s, c, rare, true, false);
        return s;
    }
    static float rare(float x) { double r; rareTier<3>(x, &r, nullptr); return toFloat(r); }
};
template <bool HA>
struct CosF {
    static VRX_INLINE F16 vec(F16 x, __mmask16& rare) {
        if (!HA) return byPi<true>(x, rare);
        F16 s, c;
        core<HA>(x, s, c, rare, false, true);
        return c;
    }
    static float rare(float x) { double r; rareTier<3>(x, nullptr, &r); return toFloat(r); }
};
template <bool HA>
struct SinCosF {
    static VRX_INLINE void vec(F16 x, F16& s, F16& c, __mmask16& rare) { core<HA>(x, s, c, rare, true, true); }
    static void rare(float x, float* s, float* c) {
        double a, b;
        rareTier<3>(x, &a, &b);
        *s = toFloat(a);
        *c = toFloat(b);
    }
};

}  // namespace fs

}  // namespace

// The entries: double kernels a register at a time, the EP kernels and
// the single-precision ones two registers at a time.
extern "C" {
VrxStatus N0(own_vrxs_dSin_B3LAynn)(const Vrx64f* s, Vrx64f* d, int n) { return runKernel<Native>(SinK<0>{}, {s}, {d}, n); }
VrxStatus N0(own_vrxs_dSin_B3HAynn)(const Vrx64f* s, Vrx64f* d, int n) { return runKernel<Native>(SinK<1>{}, {s}, {d}, n); }
VrxStatus N0(own_vrxs_dSin_B3EPnnn)(const Vrx64f* s, Vrx64f* d, int n) { return runKernel<Native, 2>(SinEP{}, {s}, {d}, n); }
VrxStatus N0(own_vrxs_dCos_B3LAynn)(const Vrx64f* s, Vrx64f* d, int n) { return runKernel<Native>(CosK<0>{}, {s}, {d}, n); }
VrxStatus N0(own_vrxs_dCos_B3HAynn)(const Vrx64f* s, Vrx64f* d, int n) { return runKernel<Native>(CosK<1>{}, {s}, {d}, n); }
VrxStatus N0(own_vrxs_dCos_B3EPnnn)(const Vrx64f* s, Vrx64f* d, int n) { return runKernel<Native, 2>(CosEP{}, {s}, {d}, n); }
VrxStatus N0(own_vrxs_dSinCos_B3LAynn)(const Vrx64f* s, Vrx64f* a, Vrx64f* b, int n) {
    return runKernel<Native>(SinCosK<0>{}, {s}, {a, b}, n);
}
VrxStatus N0(own_vrxs_dSinCos_B3HAynn)(const Vrx64f* s, Vrx64f* a, Vrx64f* b, int n) {
    return runKernel<Native>(SinCosK<1>{}, {s}, {a, b}, n);
}
VrxStatus N0(own_vrxs_dSinCos_B3EPnnn)(const Vrx64f* s, Vrx64f* a, Vrx64f* b, int n) {
    return runKernel<Native, 2>(SinCosEP{}, {s}, {a, b}, n);
}
VrxStatus N0(own_vrxs_sSin_B3LAynn)(const Vrx32f* s, Vrx32f* d, int n) { return runKernel<Native, 2>(fs::SinF<false>{}, {s}, {d}, n); }
VrxStatus N0(own_vrxs_sSin_B3HAynn)(const Vrx32f* s, Vrx32f* d, int n) { return runKernel<Native, 2>(fs::SinF<true>{}, {s}, {d}, n); }
VrxStatus N0(own_vrxs_sCos_B3LAynn)(const Vrx32f* s, Vrx32f* d, int n) { return runKernel<Native, 2>(fs::CosF<false>{}, {s}, {d}, n); }
VrxStatus N0(own_vrxs_sCos_B3HAynn)(const Vrx32f* s, Vrx32f* d, int n) { return runKernel<Native, 2>(fs::CosF<true>{}, {s}, {d}, n); }
VrxStatus N0(own_vrxs_sSinCos_B3LAynn)(const Vrx32f* s, Vrx32f* a, Vrx32f* b, int n) {
    return runKernel<Native>(fs::SinCosF<false>{}, {s}, {a, b}, n);
}
VrxStatus N0(own_vrxs_sSinCos_B3HAynn)(const Vrx32f* s, Vrx32f* a, Vrx32f* b, int n) {
    return runKernel<Native>(fs::SinCosF<true>{}, {s}, {a, b}, n);
}

const VrxKernD1 N0(own_vrxs_dSin_B3_ttab)[3] = {N0(own_vrxs_dSin_B3LAynn), N0(own_vrxs_dSin_B3HAynn),
                                               N0(own_vrxs_dSin_B3EPnnn)};
const VrxKernD1 N0(own_vrxs_dCos_B3_ttab)[3] = {N0(own_vrxs_dCos_B3LAynn), N0(own_vrxs_dCos_B3HAynn),
                                               N0(own_vrxs_dCos_B3EPnnn)};
const VrxKernD12 N0(own_vrxs_dSinCos_B3_ttab)[3] = {N0(own_vrxs_dSinCos_B3LAynn), N0(own_vrxs_dSinCos_B3HAynn),
                                                   N0(own_vrxs_dSinCos_B3EPnnn)};
// Single precision has no EP tier of its own: the HA kernel fills slot 2.
const VrxKernS1 N0(own_vrxs_sSin_B3_ttab)[3] = {N0(own_vrxs_sSin_B3LAynn), N0(own_vrxs_sSin_B3HAynn),
                                               N0(own_vrxs_sSin_B3HAynn)};
const VrxKernS1 N0(own_vrxs_sCos_B3_ttab)[3] = {N0(own_vrxs_sCos_B3LAynn), N0(own_vrxs_sCos_B3HAynn),
                                               N0(own_vrxs_sCos_B3HAynn)};
const VrxKernS12 N0(own_vrxs_sSinCos_B3_ttab)[3] = {N0(own_vrxs_sSinCos_B3LAynn), N0(own_vrxs_sSinCos_B3HAynn),
                                                   N0(own_vrxs_sSinCos_B3HAynn)};
}
