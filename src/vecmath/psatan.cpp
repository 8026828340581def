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

// atan(a) for a >= 0 (infinity included)
VRX_INLINE D8 atanPos(D8 a) {
    __mmask8 m0 = _mm512_cmp_pd_mask(a, set1(0.4375), _CMP_GE_OQ);
    __mmask8 m1 = _mm512_cmp_pd_mask(a, set1(0.6875), _CMP_GE_OQ);
    __mmask8 m2 = _mm512_cmp_pd_mask(a, set1(1.1875), _CMP_GE_OQ);
    __mmask8 m3 = _mm512_cmp_pd_mask(a, set1(2.4375), _CMP_GE_OQ);
    D8 num = a, den = set1(1.0), hi = _mm512_setzero_pd(), lo = hi;
    num = _mm512_mask_blend_pd(m0, num, fms(a, set1(2.0), set1(1.0)));
    den = _mm512_mask_blend_pd(m0, den, add(set1(2.0), a));
    num = _mm512_mask_blend_pd(m1, num, sub(a, set1(1.0)));
    den = _mm512_mask_blend_pd(m1, den, add(a, set1(1.0)));
    num = _mm512_mask_blend_pd(m2, num, sub(a, set1(1.5)));
    den = _mm512_mask_blend_pd(m2, den, add(set1(1.0), mul(set1(1.5), a)));
    num = _mm512_mask_blend_pd(m3, num, set1(-1.0));
    den = _mm512_mask_blend_pd(m3, den, a);
    hi = _mm512_mask_blend_pd(m0, hi, set1(kAtanHi[0]));
    lo = _mm512_mask_blend_pd(m0, lo, set1(kAtanLo[0]));
    hi = _mm512_mask_blend_pd(m1, hi, set1(kAtanHi[1]));
    lo = _mm512_mask_blend_pd(m1, lo, set1(kAtanLo[1]));
    hi = _mm512_mask_blend_pd(m2, hi, set1(kAtanHi[2]));
    lo = _mm512_mask_blend_pd(m2, lo, set1(kAtanLo[2]));
    hi = _mm512_mask_blend_pd(m3, hi, set1(kAtanHi[3]));
    lo = _mm512_mask_blend_pd(m3, lo, set1(kAtanLo[3]));
    D8 t = div(num, den);
    D8 z = mul(t, t);
    D8 w = mul(z, z);
    D8 s1 = mul(z, fma(w, fma(w, fma(w, fma(w, fma(w, set1(aT[10]), set1(aT[8])), set1(aT[6])), set1(aT[4])), set1(aT[2])),
                       set1(aT[0])));
    D8 s2 = mul(w, fma(w, fma(w, fma(w, fma(w, set1(aT[9]), set1(aT[7])), set1(aT[5])), set1(aT[3])), set1(aT[1])));
    return sub(hi, sub(fms(t, add(s1, s2), lo), t));
}

struct AtanD {
    static VRX_INLINE D8 vec(D8 x, __mmask8& rare) {
        rare = _mm512_cmp_pd_mask(x, x, _CMP_UNORD_Q);
        return xorp(atanPos(dabs(x)), signOf(x));
    }
    static double rare(double x) { return x + x; }
};

// Single precision in double lanes: three intervals split at tan(pi/8)
// and tan(3pi/8), so |t| <= tan(pi/8); atan(t) = t + t^3 g(t^2), g of
// degree 5 fitted at the Chebyshev nodes of [0, tan^2(pi/8)] (relative
// error 2^-33), far below the final rounding to float.
struct AtanS {
    static VRX_INLINE D8 vec(D8 x, __mmask8& rare) {
        rare = _mm512_cmp_pd_mask(x, x, _CMP_UNORD_Q);
        D8 a = dabs(x);
        __mmask8 m1 = _mm512_cmp_pd_mask(a, set1(0.41421356237309503), _CMP_GT_OQ);
        __mmask8 m2 = _mm512_cmp_pd_mask(a, set1(2.4142135623730949), _CMP_GT_OQ);
        // the numerators and denominators are exact for float arguments
        D8 num = _mm512_mask_blend_pd(m1, a, sub(a, set1(1.0)));
        D8 den = _mm512_mask_blend_pd(m1, set1(1.0), add(a, set1(1.0)));
        num = _mm512_mask_blend_pd(m2, num, set1(-1.0));
        den = _mm512_mask_blend_pd(m2, den, a);
        D8 hi = _mm512_maskz_mov_pd(m1, set1(0.78539816339744828));
        hi = _mm512_mask_blend_pd(m2, hi, set1(1.5707963267948966));
        D8 t = div(num, den);
        D8 z = mul(t, t);
        D8 p = fma(z, set1(0x1.9d8b2344d1c3cp-5), set1(-0x1.614448bd30a84p-4));
        p = fma(z, p, set1(0x1.c57bad2e925f0p-4));
        p = fma(z, p, set1(-0x1.248a173238684p-3));
        p = fma(z, p, set1(0x1.99997b13bead1p-3));
        p = fma(z, p, set1(-0x1.5555554c0aef3p-2));
        return xorp(add(hi, fma(mul(t, z), p, t)), signOf(x));
    }
    static double rare(double x) { return x + x; }
};

// atan(mn/mx) for 0 <= mn <= mx from one division; the numerators are
// exact by Sterbenz's lemma.
VRX_INLINE D8 atanRatio(D8 mn, D8 mx) {
    __mmask8 m0 = _mm512_cmp_pd_mask(mn, mul(mx, set1(0.4375)), _CMP_GE_OQ);
    __mmask8 m1 = _mm512_cmp_pd_mask(mn, mul(mx, set1(0.6875)), _CMP_GE_OQ);
    D8 num = mn, den = mx, hi = _mm512_setzero_pd(), lo = hi;
    num = _mm512_mask_blend_pd(m0, num, fms(mn, set1(2.0), mx));
    den = _mm512_mask_blend_pd(m0, den, fma(mx, set1(2.0), mn));
    num = _mm512_mask_blend_pd(m1, num, sub(mn, mx));
    den = _mm512_mask_blend_pd(m1, den, add(mn, mx));
    hi = _mm512_mask_blend_pd(m0, hi, set1(kAtanHi[0]));
    lo = _mm512_mask_blend_pd(m0, lo, set1(kAtanLo[0]));
    hi = _mm512_mask_blend_pd(m1, hi, set1(kAtanHi[1]));
    lo = _mm512_mask_blend_pd(m1, lo, set1(kAtanLo[1]));
    D8 t = div(num, den);
    D8 z = mul(t, t);
    D8 w = mul(z, z);
    D8 s1 = mul(z, fma(w, fma(w, fma(w, fma(w, fma(w, set1(aT[10]), set1(aT[8])), set1(aT[6])), set1(aT[4])), set1(aT[2])),
                       set1(aT[0])));
    D8 s2 = mul(w, fma(w, fma(w, fma(w, fma(w, set1(aT[9]), set1(aT[7])), set1(aT[5])), set1(aT[3])), set1(aT[1])));
    return sub(hi, sub(fms(t, add(s1, s2), lo), t));
}

// atan2(y, x): the arctangent of min/max of the magnitudes, placed in its
// octant. Zeros on both sides, infinities and NaNs take the rare path.
VRX_INLINE D8 atan2Vec(D8 y, D8 x, __mmask8& rare) {
    D8 ax = dabs(x), ay = dabs(y);
    D8 mx = dmax(ax, ay), mn = dmin(ax, ay);
    rare = _mm512_cmp_pd_mask(mx, set1(__builtin_inf()), _CMP_NLT_UQ) | _mm512_cmp_pd_mask(mn, mx, _CMP_UNORD_Q) |
           _mm512_cmp_pd_mask(mx, set1(0.0), _CMP_EQ_OQ);
    D8 r = atanRatio(mn, mx);
    constexpr double kPio2Hi = 0x1.921fb54442d18p+0, kPio2Lo = 0x1.1a62633145c07p-54;
    constexpr double kPiHi = 0x1.921fb54442d18p+1, kPiLo = 0x1.1a62633145c07p-53;
    __mmask8 steep = _mm512_cmp_pd_mask(ay, ax, _CMP_GT_OQ);
    r = _mm512_mask_blend_pd(steep, r, add(sub(set1(kPio2Hi), r), set1(kPio2Lo)));
    __mmask8 left = _mm512_test_epi64_mask(asInt(x), _mm512_set1_epi64(static_cast<long long>(0x8000000000000000ull)));
    r = _mm512_mask_blend_pd(left, r, add(sub(set1(kPiHi), r), set1(kPiLo)));
    return xorp(r, signOf(y));
}

template <class T>
VRX_INLINE VrxStatus runAtan2(const T* pY, const T* pX, T* dst, int len);

template <>
VRX_INLINE VrxStatus runAtan2<double>(const double* pY, const double* pX, double* dst, int len) {
    if (len < 1) return vrxErrBadLength;
    if (!pY || !pX || !dst) return vrxErrNullPtr;
    KernelFrame frame;
    for (int i = 0; i < len; i += 8) {
        __mmask8 m = len - i >= 8 ? 0xFF : tailMask8(len - i);
        D8 y = _mm512_maskz_loadu_pd(m, pY + i), x = _mm512_maskz_loadu_pd(m, pX + i);
        __mmask8 rare;
        D8 r = atan2Vec(y, x, rare);
        rare &= m;
        if (VRX_UNLIKELY(rare)) {
            alignas(64) double ty[8], tx[8], tr[8];
            _mm512_store_pd(ty, y);
            _mm512_store_pd(tx, x);
            _mm512_store_pd(tr, r);
            for (unsigned b = rare; b; b &= b - 1) {
                int j = __builtin_ctz(b);
                tr[j] = atan2(ty[j], tx[j]);
            }
            r = _mm512_load_pd(tr);
        }
        _mm512_mask_storeu_pd(dst + i, m, r);
    }
    return vrxOk;
}

template <>
VRX_INLINE VrxStatus runAtan2<float>(const float* pY, const float* pX, float* dst, int len) {
    if (len < 1) return vrxErrBadLength;
    if (!pY || !pX || !dst) return vrxErrNullPtr;
    KernelFrame frame;
    for (int i = 0; i < len; i += 16) {
        __mmask16 m = len - i >= 16 ? 0xFFFF : tailMask16(len - i);
        F16 yv = _mm512_maskz_loadu_ps(m, pY + i), xv = _mm512_maskz_loadu_ps(m, pX + i);
        D8 res[2];
        for (int h = 0; h < 2; ++h) {
            D8 y = h ? hiHalf(yv) : loHalf(yv), x = h ? hiHalf(xv) : loHalf(xv);
            __mmask8 rare;
            D8 r = atan2Vec(y, x, rare);
            rare &= static_cast<__mmask8>(m >> (8 * h));
            if (VRX_UNLIKELY(rare)) {
                alignas(64) double ty[8], tx[8], tr[8];
                _mm512_store_pd(ty, y);
                _mm512_store_pd(tx, x);
                _mm512_store_pd(tr, r);
                for (unsigned b = rare; b; b &= b - 1) {
                    int j = __builtin_ctz(b);
                    tr[j] = atan2(ty[j], tx[j]);
                }
                r = _mm512_load_pd(tr);
            }
            res[h] = r;
        }
        _mm512_mask_storeu_ps(dst + i, m, joinHalves(res[0], res[1]));
    }
    return vrxOk;
}

}  // namespace

extern "C" {
__attribute__((visibility("hidden"))) VrxStatus n0_own_vrxs_dAtan_B3HAynn(const Vrx64f* s, Vrx64f* d, int n) {
    return runD1<AtanD>(s, d, n);
}
__attribute__((visibility("hidden"))) VrxStatus n0_own_vrxs_sAtan_B3HAynn(const Vrx32f* s, Vrx32f* d, int n) {
    return runS1<AtanS>(s, d, n);
}
__attribute__((visibility("hidden"))) VrxStatus n0_own_vrxs_dAtan2_B3LAynn(const Vrx64f* y, const Vrx64f* x, Vrx64f* d,
                                                                           int n) {
    return runAtan2<double>(y, x, d, n);
}
// single precision atan2 in double lanes: the HA kernel
__attribute__((visibility("hidden"))) VrxStatus n0_own_vrxs_sAtan2_B3HAynn(const Vrx32f* y, const Vrx32f* x, Vrx32f* d,
                                                                           int n) {
    return runAtan2<float>(y, x, d, n);
}
VrxStatus n0_own_vrxs_sAtan2_B3LAynn(const Vrx32f* y, const Vrx32f* x, Vrx32f* d, int n);
const VrxKernD1 n0_own_vrxs_dAtan_B3_ttab[3] = {n0_own_vrxs_dAtan_B3HAynn, n0_own_vrxs_dAtan_B3HAynn,
                                                n0_own_vrxs_dAtan_B3HAynn};
const VrxKernS1 n0_own_vrxs_sAtan_B3_ttab[3] = {n0_own_vrxs_sAtan_B3HAynn, n0_own_vrxs_sAtan_B3HAynn,
                                                n0_own_vrxs_sAtan_B3HAynn};
// The double LA kernel stands in every slot; single precision has LA in
// float lanes and HA in double lanes (also slot 2).
const VrxKernD21 n0_own_vrxs_dAtan2_B3_ttab[3] = {n0_own_vrxs_dAtan2_B3LAynn, n0_own_vrxs_dAtan2_B3LAynn,
                                                  n0_own_vrxs_dAtan2_B3LAynn};
const VrxKernS21 n0_own_vrxs_sAtan2_B3_ttab[3] = {n0_own_vrxs_sAtan2_B3LAynn, n0_own_vrxs_sAtan2_B3HAynn,
                                                  n0_own_vrxs_sAtan2_B3HAynn};
}
