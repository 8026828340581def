// Square root, complex magnitude and power kernels.
#include "vm_kernels.h"

#include <math.h>

#include "vm_abs.h"

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

// x^e element by element through the system power function, which is
// within one ulp.
VrxStatus runPowx(const Vrx64f* src, Vrx64f e, Vrx64f* dst, int len) {
    if (len < 1) return vrxErrBadLength;
    if (!src || !dst) return vrxErrNullPtr;
    KernelFrame frame;
    for (int i = 0; i < len; ++i) dst[i] = pow(src[i], e);
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
// fused form stays within one ulp and serves all three; so does the power.
const VrxKernD1 n0_own_vrxs_dSqrt_B3_ttab[3] = {n0_own_vrxs_dSqrt_B3HAynn, n0_own_vrxs_dSqrt_B3HAynn,
                                                n0_own_vrxs_dSqrt_B3HAynn};
const VrxKernZAbs n0_own_vrxs_zAbs_B3_ttab[3] = {n0_own_vrxs_zAbs_B3LAynn, n0_own_vrxs_zAbs_B3LAynn,
                                                 n0_own_vrxs_zAbs_B3LAynn};
const VrxKernDPow n0_own_vrxs_dPowx_B3_ttab[3] = {n0_own_vrxs_dPowx_B3HAynn, n0_own_vrxs_dPowx_B3HAynn,
                                                  n0_own_vrxs_dPowx_B3HAynn};
}
