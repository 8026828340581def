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

// vdsin_data: minimax coefficients on [-pi/4, pi/4]
constexpr double S1 = -1.66666666666666324348e-01, S2 = 8.33333333332248946124e-03,
                 S3 = -1.98412698298579493134e-04, S4 = 2.75573137070700676789e-06,
                 S5 = -2.50507602534068634195e-08, S6 = 1.58969099521155010221e-10;
constexpr double C1 = 4.16666666666666019037e-02, C2 = -1.38888888888741095749e-03,
                 C3 = 2.48015872894767294178e-05, C4 = -2.75573143513906633035e-07,
                 C5 = 2.08757232129817482790e-09, C6 = -1.13596475577881948265e-11;

// quadrant bits of an integer-valued double n (|n| < 2^51)
VRX_INLINE I16 quadrant(D8 n) { return asInt(add(n, set1(kShifter))); }

// HA reduction: |x| = n*pi/2 + rh + rl
VRX_INLINE void reduceHA(D8 ax, D8& n, D8& rh, D8& rl) {
    n = rint(mul(ax, set1(kTwoOverPi)));
    D8 r1 = fnma(n, set1(kPio2A), ax);  // exact
    D8 p2h = mul(n, set1(kPio2B));
    D8 p2l = fms(n, set1(kPio2B), p2h);
    D8 s, e;
    twoSum(r1, sub(_mm512_setzero_pd(), p2h), s, e);
    D8 lo = fnma(n, set1(kPio2C), sub(e, p2l));
    fastTwoSum(s, lo, rh, rl);
}

// LA reduction: one double
VRX_INLINE D8 reduceLA(D8 ax, D8& n) {
    n = rint(mul(ax, set1(kTwoOverPi)));
    D8 r = fnma(n, set1(kPio2A), ax);
    r = fnma(n, set1(kPio2B), r);
    return fnma(n, set1(kPio2C), r);
}

// sin and cos of x + y, |x| <= pi/4 (a little more), |y| tiny
VRX_INLINE void polyHA(D8 x, D8 y, D8& s, D8& c) {
    const D8 half = set1(0.5), one = set1(1.0);
    D8 z = mul(x, x);
    D8 v = mul(z, x);
    D8 r = fma(z, fma(z, fma(z, fma(z, set1(S6), set1(S5)), set1(S4)), set1(S3)), set1(S2));
    s = sub(x, sub(sub(mul(z, fnma(v, r, mul(half, y))), y), mul(v, set1(S1))));
    D8 rc = mul(z, fma(z, fma(z, fma(z, fma(z, fma(z, set1(C6), set1(C5)), set1(C4)), set1(C3)), set1(C2)), set1(C1)));
    D8 hz = mul(half, z);
    D8 w = sub(one, hz);
    c = add(w, add(sub(sub(one, w), hz), fms(z, rc, mul(x, y))));
}

VRX_INLINE void polyLA(D8 x, D8& s, D8& c) {
    const D8 half = set1(0.5), one = set1(1.0);
    D8 z = mul(x, x);
    D8 v = mul(z, x);
    D8 r = fma(z, fma(z, fma(z, fma(z, set1(S6), set1(S5)), set1(S4)), set1(S3)), set1(S2));
    s = fma(v, fma(z, r, set1(S1)), x);
    D8 rc = mul(z, fma(z, fma(z, fma(z, fma(z, fma(z, set1(C6), set1(C5)), set1(C4)), set1(C3)), set1(C2)), set1(C1)));
    D8 hz = mul(half, z);
    D8 w = sub(one, hz);
    c = add(w, add(sub(sub(one, w), hz), mul(z, rc)));
}

// Single precision targets: about 2^-29 relative before the final rounding.
VRX_INLINE void polyS(D8 x, D8& s, D8& c) {
    D8 z = mul(x, x);
    D8 v = mul(z, x);
    s = fma(v, fma(z, fma(z, fma(z, set1(S4), set1(S3)), set1(S2)), set1(S1)), x);
    c = fma(z, fma(z, fma(z, fma(z, fma(z, set1(C4), set1(C3)), set1(C2)), set1(C1)), set1(-0.5)), set1(1.0));
}

// Places s and c by quadrant. For sine the sign of the argument is applied
// by the caller.
VRX_INLINE D8 pickSin(I16 q, D8 s, D8 c) {
    __mmask8 odd = _mm512_test_epi64_mask(q, _mm512_set1_epi64(1));
    D8 v = _mm512_mask_blend_pd(odd, s, c);
    I16 sg = _mm512_slli_epi64(_mm512_and_epi64(q, _mm512_set1_epi64(2)), 62);
    return xorp(v, asDbl(sg));
}
VRX_INLINE D8 pickCos(I16 q, D8 s, D8 c) {
    __mmask8 odd = _mm512_test_epi64_mask(q, _mm512_set1_epi64(1));
    D8 v = _mm512_mask_blend_pd(odd, c, s);
    I16 q1 = _mm512_add_epi64(q, _mm512_set1_epi64(1));
    I16 sg = _mm512_slli_epi64(_mm512_and_epi64(q1, _mm512_set1_epi64(2)), 62);
    return xorp(v, asDbl(sg));
}

// ------------------------------------------------------ rare-case routines
// vdsin_cout_rare (short form and long form share the reduction below).
// Non-finite: infinity gives x * 0 (NaN, code 19), NaN gives x * x.
enum Which { kSin, kCos };

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
    if constexpr (Tier == 1) polyHA(set1(rh), set1(rl), s, c);
    else if constexpr (Tier == 0) polyLA(set1(rh), s, c);
    else polyS(set1(rh), s, c);
    I16 qv = _mm512_set1_epi64(q);
    if (ps) *ps = lane0(pickSin(qv, s, c));
    if (pc) *pc = lane0(pickCos(qv, s, c));
}

// ------------------------------------------------------------- kernels
// The shared part of the tiers (0 LA, 1 HA, 3 single): reduction of |x|,
// sine and cosine of the reduced argument, the quadrant; the lanes beyond
// the fast range are returned as rare.
template <int Tier> VRX_INLINE __mmask8 core(D8 x, D8& s, D8& c, I16& q) {
    D8 ax = dabs(x), n;
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

template <int Tier>
struct SinK {
    static VRX_INLINE D8 vec(D8 x, __mmask8& rare) {
        D8 s, c;
        I16 q;
        rare = core<Tier>(x, s, c, q);
        return xorp(pickSin(q, s, c), signOf(x));
    }
    static double rare(double x) {
        double r;
        rareTier<Tier>(x, &r, nullptr);
        return r;
    }
};

template <int Tier>
struct CosK {
    static VRX_INLINE D8 vec(D8 x, __mmask8& rare) {
        D8 s, c;
        I16 q;
        rare = core<Tier>(x, s, c, q);
        return pickCos(q, s, c);
    }
    static double rare(double x) {
        double r;
        rareTier<Tier>(x, nullptr, &r);
        return r;
    }
};

template <int Tier>
struct SinCosK {
    static VRX_INLINE void vec(D8 x, D8& so, D8& co, __mmask8& rare) {
        D8 s, c;
        I16 q;
        rare = core<Tier>(x, s, c, q);
        so = xorp(pickSin(q, s, c), signOf(x));
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
    D8 t = mul(r, r);
    D8 p = add(set1(-0.16666658839437115),
               mul(t, add(set1(0.008333046645248707),
                          mul(t, add(set1(-0.0001980808536178708), mul(t, set1(2.602272538419318e-06)))))));
    return p;
}

// sin(x), |x| <= 2^24: n = nearest integer to |x|/pi; sin(r + n*pi) = (-1)^n sin r
VRX_INLINE D8 epSin(D8 x, __mmask8& rare) {
    D8 a = dabs(x);
    rare = notBelow(a, kEpLimit);
    D8 m = fma(a, set1(kInvPi), set1(kShifter));
    D8 n = sub(m, set1(kShifter));
    D8 r = fnma(n, set1(kPiA), a);
    r = fnma(n, set1(kPiB), r);
    D8 rp = xorp(r, asDbl(_mm512_slli_epi64(asInt(m), 63)));
    D8 t = mul(r, r);
    D8 res = add(mul(mul(epPoly(r), t), rp), rp);
    return xorp(res, signOf(x));
}

// cos(x) = (-1)^(k+1) sin(r), r = |x| - (k + 1/2) pi, k nearest to |x|/pi - 1/2
VRX_INLINE D8 epCos(D8 x, __mmask8& rare) {
    D8 a = dabs(x);
    rare = notBelow(a, kEpLimit);
    D8 m = add(fma(a, set1(kInvPi), set1(-0.5)), set1(kShifter));
    D8 n = add(sub(m, set1(kShifter)), set1(0.5));
    D8 r = fnma(n, set1(kPiA), a);
    r = fnma(n, set1(kPiB), r);
    I16 odd = _mm512_slli_epi64(_mm512_xor_epi64(asInt(m), _mm512_set1_epi64(1)), 63);
    D8 rp = xorp(r, asDbl(odd));
    D8 t = mul(r, r);
    return add(mul(mul(epPoly(r), t), rp), rp);
}

struct SinEP {
    static VRX_INLINE D8 vec(D8 x, __mmask8& rare) { return epSin(x, rare); }
    static double rare(double x) { double r; rareTier<1>(x, &r, nullptr); return r; }
};
struct CosEP {
    static VRX_INLINE D8 vec(D8 x, __mmask8& rare) { return epCos(x, rare); }
    static double rare(double x) { double r; rareTier<1>(x, nullptr, &r); return r; }
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

// EP kernels: 16 elements a block as two independent vectors of 8.
template <class K>
VrxStatus runEP(const double* src, double* dst, int len) {
    if (len < 1) return vrxErrBadLength;
    if (!src || !dst) return vrxErrNullPtr;
    KernelFrame frame;
    int i = 0;
    for (; i + 16 <= len; i += 16) {
        D8 x0 = _mm512_loadu_pd(src + i), x1 = _mm512_loadu_pd(src + i + 8);
        __mmask8 r0, r1;
        D8 y0 = K::vec(x0, r0), y1 = K::vec(x1, r1);
        _mm512_storeu_pd(dst + i, y0);
        _mm512_storeu_pd(dst + i + 8, y1);
        if (VRX_UNLIKELY(r0 | r1)) {
            alignas(64) double t[16];
            _mm512_store_pd(t, x0);
            _mm512_store_pd(t + 8, x1);
            unsigned m = r0 | (static_cast<unsigned>(r1) << 8);
            while (m) {
                int j = __builtin_ctz(m);
                m &= m - 1;
                dst[i + j] = K::rare(t[j]);
            }
        }
    }
    if (i < len) return runD1<K>(src + i, dst + i, len - i);
    return vrxOk;
}

// ------------------------------------------------- single precision
// Sixteen lanes of float arithmetic: the same three-part reduction with
// float parts of pi/2 for |x| <= 2^16 (carried as a float pair for HA),
// fitted polynomials of degree 7 (9 for the HA sine) and 8. Larger and non-finite arguments
// take the double rare path and round once.
namespace fs {

constexpr float kTwoOverPiF = 0x1.45f306p-1f;
constexpr float kP1 = 0x1.921fb6p+0f, kP2 = -0x1.777a5cp-25f, kP3 = -0x1.ee59dap-50f;
constexpr float kLimit = 65536.0f;

VRX_INLINE F16 s1(float v) { return _mm512_set1_ps(v); }
VRX_INLINE F16 fmaf16(F16 a, F16 b, F16 c) { return _mm512_fmadd_ps(a, b, c); }
// |x| above the limit, infinity or NaN, compared as integers
VRX_INLINE __mmask16 beyondLimit(F16 ax) {
    return _mm512_cmpgt_epi32_mask(_mm512_castps_si512(ax), _mm512_set1_epi32(0x47800000));  // 2^16
}
VRX_INLINE __m512i signBits(F16 x) { return _mm512_and_epi32(_mm512_castps_si512(x), _mm512_set1_epi32(static_cast<int>(0x80000000u))); }

// The quadrant comes from |x| * 2/pi + 1.5*2^23 rounded to nearest by the
// fused step itself: its low bits hold k; the sine takes the sign of x
// back at the end.
// sin(r) = r + r^3 gs(r^2) and cos(r) = 1 - r^2/2 + r^4 gc(r^2),
// gs and gc fitted at the Chebyshev nodes of [0, (pi/4)^2]: gc of degree 2
// (relative error 2^-29), gs of degree 2 for LA (2^-26) and 3 for HA (2^-35).
template <bool HA>
VRX_INLINE void core(F16 x, F16& so, F16& co, __mmask16& rare, bool wantSin, bool wantCos) {
    F16 ax = _mm512_abs_ps(x);
    rare = beyondLimit(ax);
    F16 q = _mm512_fmadd_round_ps(ax, s1(kTwoOverPiF), s1(0x1.8p23f), _MM_FROUND_TO_NEAREST_INT | _MM_FROUND_NO_EXC);
    F16 n = _mm512_sub_ps(q, s1(0x1.8p23f));  // exact
    F16 rh, rl;
    if (HA) {
        F16 r1 = _mm512_fnmadd_ps(n, s1(kP1), ax);  // exact
        F16 p2h = _mm512_mul_ps(n, s1(kP2));
        F16 p2l = _mm512_fmsub_ps(n, s1(kP2), p2h);
        F16 s = _mm512_sub_ps(r1, p2h);
        F16 bb = _mm512_sub_ps(s, r1);
        F16 e = _mm512_add_ps(_mm512_sub_ps(r1, _mm512_sub_ps(s, bb)), _mm512_sub_ps(_mm512_sub_ps(_mm512_setzero_ps(), p2h), bb));
        F16 lo = _mm512_fnmadd_ps(n, s1(kP3), _mm512_sub_ps(e, p2l));
        rh = _mm512_add_ps(s, lo);
        rl = _mm512_sub_ps(lo, _mm512_sub_ps(rh, s));
    } else {
        rh = _mm512_fnmadd_ps(n, s1(kP1), ax);
        rh = _mm512_fnmadd_ps(n, s1(kP2), rh);
        rh = _mm512_fnmadd_ps(n, s1(kP3), rh);
    }
    F16 z = _mm512_mul_ps(rh, rh);
    F16 ps = HA ? fmaf16(z, fmaf16(z, fmaf16(z, s1(0x1.6dbe08p-19f), s1(-0x1.a013a8p-13f)), s1(0x1.11110ep-7f)), s1(-0x1.555556p-3f))
                : fmaf16(z, fmaf16(z, s1(-0x1.9ac9b0p-13f), s1(0x1.110c28p-7f)), s1(-0x1.555552p-3f));
    F16 pc = fmaf16(z, fmaf16(z, s1(0x1.9bd89cp-16f), s1(-0x1.6c12d2p-10f)), s1(0x1.555554p-5f));
    F16 sn, cs;
    if (HA) {
        // sin(rh + rl) = rh + (rh^3 gs + rl); cos = w + (((1 - w) - z/2) + z^2 gc - rh rl), w = 1 - z/2
        sn = _mm512_add_ps(rh, fmaf16(_mm512_mul_ps(rh, z), ps, rl));
        F16 hz = _mm512_mul_ps(s1(0.5f), z);
        F16 w = _mm512_sub_ps(s1(1.0f), hz);
        F16 tail = _mm512_add_ps(_mm512_sub_ps(_mm512_sub_ps(s1(1.0f), w), hz), _mm512_fmsub_ps(_mm512_mul_ps(z, z), pc, _mm512_mul_ps(rh, rl)));
        cs = _mm512_add_ps(w, tail);
    } else {
        sn = fmaf16(_mm512_mul_ps(rh, z), ps, rh);
        cs = fmaf16(z, fmaf16(z, pc, s1(-0.5f)), s1(1.0f));
    }
    __m512i k = _mm512_castps_si512(q);
    __mmask16 odd = _mm512_test_epi32_mask(k, _mm512_set1_epi32(1));
    if (wantSin) {
        F16 v = _mm512_mask_blend_ps(odd, sn, cs);
        __m512i sg = _mm512_xor_epi32(_mm512_slli_epi32(_mm512_and_epi32(k, _mm512_set1_epi32(2)), 30), signBits(x));
        so = _mm512_castsi512_ps(_mm512_xor_epi32(_mm512_castps_si512(v), sg));
    }
    if (wantCos) {
        F16 v = _mm512_mask_blend_ps(odd, cs, sn);
        __m512i sg = _mm512_slli_epi32(_mm512_and_epi32(_mm512_add_epi32(k, _mm512_set1_epi32(1)), _mm512_set1_epi32(2)), 30);
        co = _mm512_castsi512_ps(_mm512_xor_epi32(_mm512_castps_si512(v), sg));
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
    F16 z = _mm512_mul_ps(r, r);
    F16 p = fmaf16(z, s1(0x1.61a18ap-19f), s1(-0x1.9fb686p-13f));
    p = fmaf16(z, p, s1(0x1.11104ep-7f));
    p = fmaf16(z, p, s1(-0x1.555554p-3f));
    return fmaf16(_mm512_mul_ps(r, z), p, r);
}

template <bool Cos>
VRX_INLINE F16 byPi(F16 x, __mmask16& rare) {
    if (!Cos) {
        F16 ax = _mm512_abs_ps(x);
        rare = beyondLimit(ax);
        F16 q = _mm512_fmadd_round_ps(ax, s1(0x1.45f306p-2f), s1(kShifter), _MM_FROUND_TO_NEAREST_INT | _MM_FROUND_NO_EXC);
        F16 n = _mm512_sub_ps(q, s1(kShifter));  // exact
        F16 r = _mm512_fnmadd_ps(n, s1(2 * kP1), ax);  // exact
        r = _mm512_fnmadd_ps(n, s1(2 * kP2), r);
        r = _mm512_fnmadd_ps(n, s1(2 * kP3), r);
        __m512i sg = _mm512_xor_epi32(_mm512_slli_epi32(_mm512_castps_si512(q), 31), signBits(x));
        return _mm512_castsi512_ps(_mm512_xor_epi32(_mm512_castps_si512(sinByPiPoly(r)), sg));
    }
    F16 ax = _mm512_abs_ps(x);
    rare = _mm512_cmp_ps_mask(ax, s1(kLimit), _CMP_NLE_UQ);
    F16 q = _mm512_mul_ps(ax, s1(0x1.45f306p-2f));  // |x| / pi
    q = _mm512_sub_ps(q, s1(0.5f));
    F16 k = _mm512_roundscale_ps(q, _MM_FROUND_TO_NEAREST_INT | _MM_FROUND_NO_EXC);
    F16 n = _mm512_add_ps(k, s1(0.5f));
    F16 r = _mm512_fnmadd_ps(n, s1(2 * kP1), ax);  // exact
    r = _mm512_fnmadd_ps(n, s1(2 * kP2), r);
    r = _mm512_fnmadd_ps(n, s1(2 * kP3), r);
    F16 z = _mm512_mul_ps(r, r);
    F16 p = fmaf16(z, s1(-1.0f / 39916800.0f), s1(1.0f / 362880.0f));
    p = fmaf16(z, p, s1(-1.0f / 5040.0f));
    p = fmaf16(z, p, s1(1.0f / 120.0f));
    p = fmaf16(z, p, s1(-1.0f / 6.0f));
    F16 sn = fmaf16(_mm512_mul_ps(r, z), p, r);
    // (-1)^(k+1)
    __m512i ki = _mm512_add_epi32(_mm512_cvtps_epi32(k), _mm512_set1_epi32(1));
    __m512i sg = _mm512_slli_epi32(ki, 31);
    return _mm512_castsi512_ps(_mm512_xor_epi32(_mm512_castps_si512(sn), sg));
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

// EP sine and cosine together, 16 elements a block as in the EP sine.
VrxStatus runEP2(const double* src, double* dS, double* dC, int len) {
    if (len < 1) return vrxErrBadLength;
    if (!src || !dS || !dC) return vrxErrNullPtr;
    KernelFrame frame;
    int i = 0;
    for (; i + 16 <= len; i += 16) {
        D8 x0 = _mm512_loadu_pd(src + i), x1 = _mm512_loadu_pd(src + i + 8), s0, c0, s1, c1;
        __mmask8 r0, r1;
        SinCosEP::vec(x0, s0, c0, r0);
        SinCosEP::vec(x1, s1, c1, r1);
        _mm512_storeu_pd(dS + i, s0);
        _mm512_storeu_pd(dS + i + 8, s1);
        _mm512_storeu_pd(dC + i, c0);
        _mm512_storeu_pd(dC + i + 8, c1);
        if (VRX_UNLIKELY(r0 | r1)) {
            alignas(64) double t[16];
            _mm512_store_pd(t, x0);
            _mm512_store_pd(t + 8, x1);
            for (unsigned m = r0 | (static_cast<unsigned>(r1) << 8); m; m &= m - 1) {
                int j = __builtin_ctz(m);
                SinCosEP::rare(t[j], dS + i + j, dC + i + j);
            }
        }
    }
    if (i < len) return runD12<SinCosEP>(src + i, dS + i, dC + i, len - i);
    return vrxOk;
}

}  // namespace

extern "C" {

#define VRX_KERNEL_D1(name, K) \
    __attribute__((visibility("hidden"))) VrxStatus n0_##name(const Vrx64f* s, Vrx64f* d, int n) { return runD1<K>(s, d, n); }
#define VRX_KERNEL_D12(name, K)                                                                             \
    __attribute__((visibility("hidden"))) VrxStatus n0_##name(const Vrx64f* s, Vrx64f* a, Vrx64f* b, int n) { \
        return runD12<K>(s, a, b, n);                                                                       \
    }
VRX_KERNEL_D1(own_vrxs_dSin_B3LAynn, SinK<0>)
VRX_KERNEL_D1(own_vrxs_dSin_B3HAynn, SinK<1>)
__attribute__((visibility("hidden"))) VrxStatus n0_own_vrxs_dSin_B3EPnnn(const Vrx64f* s, Vrx64f* d, int n) {
    return runEP<SinEP>(s, d, n);
}
VRX_KERNEL_D1(own_vrxs_dCos_B3LAynn, CosK<0>)
VRX_KERNEL_D1(own_vrxs_dCos_B3HAynn, CosK<1>)
__attribute__((visibility("hidden"))) VrxStatus n0_own_vrxs_dCos_B3EPnnn(const Vrx64f* s, Vrx64f* d, int n) {
    return runEP<CosEP>(s, d, n);
}
VRX_KERNEL_D12(own_vrxs_dSinCos_B3LAynn, SinCosK<0>)
VRX_KERNEL_D12(own_vrxs_dSinCos_B3HAynn, SinCosK<1>)
__attribute__((visibility("hidden"))) VrxStatus n0_own_vrxs_dSinCos_B3EPnnn(const Vrx64f* s, Vrx64f* a, Vrx64f* b,
                                                                            int n) {
    return runEP2(s, a, b, n);
}
#define VRX_KERNEL_F1(name, K) \
    __attribute__((visibility("hidden"))) VrxStatus n0_##name(const Vrx32f* s, Vrx32f* d, int n) { return runF1<K>(s, d, n); }
#define VRX_KERNEL_F12(name, K)                                                                             \
    __attribute__((visibility("hidden"))) VrxStatus n0_##name(const Vrx32f* s, Vrx32f* a, Vrx32f* b, int n) { \
        return runF12<K>(s, a, b, n);                                                                       \
    }
VRX_KERNEL_F1(own_vrxs_sSin_B3LAynn, fs::SinF<false>)
VRX_KERNEL_F1(own_vrxs_sSin_B3HAynn, fs::SinF<true>)
VRX_KERNEL_F1(own_vrxs_sCos_B3LAynn, fs::CosF<false>)
VRX_KERNEL_F1(own_vrxs_sCos_B3HAynn, fs::CosF<true>)
VRX_KERNEL_F12(own_vrxs_sSinCos_B3LAynn, fs::SinCosF<false>)
VRX_KERNEL_F12(own_vrxs_sSinCos_B3HAynn, fs::SinCosF<true>)

const VrxKernD1 n0_own_vrxs_dSin_B3_ttab[3] = {n0_own_vrxs_dSin_B3LAynn, n0_own_vrxs_dSin_B3HAynn,
                                               n0_own_vrxs_dSin_B3EPnnn};
const VrxKernD1 n0_own_vrxs_dCos_B3_ttab[3] = {n0_own_vrxs_dCos_B3LAynn, n0_own_vrxs_dCos_B3HAynn,
                                               n0_own_vrxs_dCos_B3EPnnn};
const VrxKernD12 n0_own_vrxs_dSinCos_B3_ttab[3] = {n0_own_vrxs_dSinCos_B3LAynn, n0_own_vrxs_dSinCos_B3HAynn,
                                                   n0_own_vrxs_dSinCos_B3EPnnn};
// Single precision has no EP tier of its own: the HA kernel fills slot 2.
const VrxKernS1 n0_own_vrxs_sSin_B3_ttab[3] = {n0_own_vrxs_sSin_B3LAynn, n0_own_vrxs_sSin_B3HAynn,
                                               n0_own_vrxs_sSin_B3HAynn};
const VrxKernS1 n0_own_vrxs_sCos_B3_ttab[3] = {n0_own_vrxs_sCos_B3LAynn, n0_own_vrxs_sCos_B3HAynn,
                                               n0_own_vrxs_sCos_B3HAynn};
const VrxKernS12 n0_own_vrxs_sSinCos_B3_ttab[3] = {n0_own_vrxs_sSinCos_B3LAynn, n0_own_vrxs_sSinCos_B3HAynn,
                                                   n0_own_vrxs_sSinCos_B3HAynn};
}
