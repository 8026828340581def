// Single-precision LA kernels in sixteen float lanes: exponential,
// logarithm and atan2. Results within a few ulp (LA: at most 8).
#include <math.h>

#include "vm_common.h"
#include "vm_kernels.h"
#include "vm_log.h"

using namespace n0::vm;

namespace {

VRX_INLINE F16 s1(float v) { return _mm512_set1_ps(v); }
VRX_INLINE F16 fmaF(F16 a, F16 b, F16 c) { return _mm512_fmadd_ps(a, b, c); }
VRX_INLINE __mmask16 isNan(F16 x) { return _mm512_cmp_ps_mask(x, x, _CMP_UNORD_Q); }

// ------------------------------------------------------------------- exp
// x = n ln2 + r, |r| <= ln2/2; exp(r) by its Taylor polynomial of degree
// 7; the scaling by 2^n rounds once, to infinity or into the subnormals.
struct ExpF {
    static VRX_INLINE F16 vec(F16 x, __mmask16& rare) {
        rare = isNan(x);
        F16 c = _mm512_min_ps(_mm512_max_ps(x, s1(-110.0f)), s1(100.0f));
        F16 n = _mm512_roundscale_ps(_mm512_mul_ps(c, s1(0x1.715476p+0f)), _MM_FROUND_TO_NEAREST_INT | _MM_FROUND_NO_EXC);
        F16 r = _mm512_fnmadd_ps(n, s1(0x1.62e430p-1f), c);
        r = _mm512_fnmadd_ps(n, s1(-0x1.05c610p-29f), r);
        F16 p = fmaF(r, s1(1.0f / 5040.0f), s1(1.0f / 720.0f));
        p = fmaF(r, p, s1(1.0f / 120.0f));
        p = fmaF(r, p, s1(1.0f / 24.0f));
        p = fmaF(r, p, s1(1.0f / 6.0f));
        p = fmaF(r, p, s1(0.5f));
        p = fmaF(_mm512_mul_ps(r, r), p, r);
        return _mm512_scalef_ps(_mm512_add_ps(s1(1.0f), p), n);
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
        __m512i bits = _mm512_castps_si512(x);
        rare = _mm512_cmpge_epu32_mask(_mm512_sub_epi32(bits, _mm512_set1_epi32(0x00800000)), _mm512_set1_epi32(0x7F000000));
        // e = exponent of x / sqrt(1/2) rounded down; m = x / 2^e in [sqrt(1/2), sqrt(2))
        __m512i ei = _mm512_srai_epi32(_mm512_sub_epi32(bits, _mm512_set1_epi32(0x3F3504F3)), 23);
        F16 m = _mm512_castsi512_ps(_mm512_sub_epi32(bits, _mm512_slli_epi32(ei, 23)));
        F16 e = _mm512_cvtepi32_ps(ei);
        F16 f = _mm512_sub_ps(m, s1(1.0f));
        F16 f2 = _mm512_mul_ps(f, f);
        F16 f4 = _mm512_mul_ps(f2, f2);
        // Estrin's scheme over the seven coefficients
        F16 c01 = fmaF(f, s1(-0x1.0001d8p-2f), s1(0x1.55558cp-2f));
        F16 c23 = fmaF(f, s1(-0x1.540610p-3f), s1(0x1.9946e2p-3f));
        F16 c45 = fmaF(f, s1(-0x1.1f5a48p-3f), s1(0x1.2d22c8p-3f));
        F16 c03 = fmaF(f2, c23, c01);
        F16 c46 = fmaF(f2, s1(0x1.72a362p-4f), c45);
        F16 g = fmaF(f4, c46, c03);
        F16 t = fmaF(_mm512_mul_ps(f2, f), g, _mm512_fnmadd_ps(s1(0.5f), f2, f));
        return fmaF(e, s1(6.9313812256e-01f), fmaF(e, s1(9.0580006145e-06f), t));
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
    F16 t = _mm512_div_ps(mn, mx);
    F16 u = _mm512_mul_ps(t, t);
    F16 u2 = _mm512_mul_ps(u, u);
    F16 u4 = _mm512_mul_ps(u2, u2);
    F16 c01 = fmaF(u, s1(-0x1.55554ep-2f), s1(1.0f));
    F16 c23 = fmaF(u, s1(-0x1.246cdcp-3f), s1(0x1.999748p-3f));
    F16 c45 = fmaF(u, s1(-0x1.67d5dap-4f), s1(0x1.c4a3bcp-4f));
    F16 c67 = fmaF(u, s1(-0x1.67dc8ep-5f), s1(0x1.11d442p-4f));
    F16 c89 = fmaF(u, s1(-0x1.ccc30ep-8f), s1(0x1.67058ep-6f));
    F16 c03 = fmaF(u2, c23, c01);
    F16 c47 = fmaF(u2, c67, c45);
    F16 c8a = fmaF(u2, s1(0x1.153ed4p-10f), c89);
    F16 c07 = fmaF(u4, c47, c03);
    return _mm512_mul_ps(t, fmaF(_mm512_mul_ps(u4, u4), c8a, c07));
}

VRX_INLINE F16 atan2F(F16 y, F16 x, __mmask16& rare) {
    F16 ax = _mm512_abs_ps(x), ay = _mm512_abs_ps(y);
    F16 mx = _mm512_max_ps(ax, ay), mn = _mm512_min_ps(ax, ay);
    rare = _mm512_cmp_ps_mask(mx, s1(__builtin_inff()), _CMP_NLT_UQ) | _mm512_cmp_ps_mask(mn, mx, _CMP_UNORD_Q) |
           _mm512_cmp_ps_mask(mx, s1(0.0f), _CMP_EQ_OQ);
    F16 r = atanRatio(mn, mx);
    __mmask16 steep = _mm512_cmp_ps_mask(ay, ax, _CMP_GT_OQ);
    r = _mm512_mask_blend_ps(steep, r, _mm512_add_ps(_mm512_sub_ps(s1(0x1.921fb6p+0f), r), s1(-0x1.777a5cp-25f)));
    __mmask16 left = _mm512_test_epi32_mask(_mm512_castps_si512(x), _mm512_set1_epi32(static_cast<int>(0x80000000u)));
    r = _mm512_mask_blend_ps(left, r, _mm512_add_ps(_mm512_sub_ps(s1(0x1.921fb6p+1f), r), s1(-0x1.777a5cp-24f)));
    return _mm512_castsi512_ps(_mm512_xor_epi32(_mm512_castps_si512(r),
                                                _mm512_and_epi32(_mm512_castps_si512(y), _mm512_set1_epi32(static_cast<int>(0x80000000u)))));
}

VrxStatus runAtan2F(const float* pY, const float* pX, float* dst, int len) {
    if (len < 1) return vrxErrBadLength;
    if (!pY || !pX || !dst) return vrxErrNullPtr;
    KernelFrame frame;
    for (int i = 0; i < len; i += 16) {
        __mmask16 m = len - i >= 16 ? 0xFFFF : tailMask16(len - i);
        F16 y = _mm512_maskz_loadu_ps(m, pY + i), x = _mm512_maskz_loadu_ps(m, pX + i);
        __mmask16 rare;
        F16 r = atan2F(y, x, rare);
        rare &= m;
        if (VRX_UNLIKELY(rare)) {
            alignas(64) float ty[16], tx[16], tr[16];
            _mm512_store_ps(ty, y);
            _mm512_store_ps(tx, x);
            _mm512_store_ps(tr, r);
            for (unsigned b = rare; b; b &= b - 1) {
                int j = __builtin_ctz(b);
                tr[j] = toFloat(atan2(static_cast<double>(ty[j]), static_cast<double>(tx[j])));
            }
            r = _mm512_load_ps(tr);
        }
        _mm512_mask_storeu_ps(dst + i, m, r);
    }
    return vrxOk;
}

}  // namespace

extern "C" {
__attribute__((visibility("hidden"))) VrxStatus n0_own_vrxs_sExp_B3LAynn(const Vrx32f* s, Vrx32f* d, int n) {
    return runF1<ExpF>(s, d, n);
}
__attribute__((visibility("hidden"))) VrxStatus n0_own_vrxs_sLn_B3LAynn(const Vrx32f* s, Vrx32f* d, int n) {
    return runF1<LnF>(s, d, n);
}
__attribute__((visibility("hidden"))) VrxStatus n0_own_vrxs_sAtan2_B3LAynn(const Vrx32f* y, const Vrx32f* x, Vrx32f* d,
                                                                           int n) {
    return runAtan2F(y, x, d, n);
}
}
