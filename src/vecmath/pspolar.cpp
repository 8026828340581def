// Magnitude, Phase, CartToPolar and PolarToCart. Phase runs the atan2
// tiers (single A21, double A50), the double magnitude of interleaved data
// the Abs A50 tier, and PolarToCart the SinCos tiers (single A21, double
// A50), over blocks on the stack where the layouts differ.
#include "vm_abs.h"
#include "vm_int.h"
#include "vm_map.h"
#include "vrx_fpu.h"
#include "vrx_tiers.h"

using namespace n0::vm;
using n0::checkArgs;

namespace {

constexpr int kBlock = 256;

// |z| of single-precision pairs in double: exact squares, one rounding
// of the sum and of the root, then the final rounding.
VrxStatus magn32fc(const Vrx32fc* src, Vrx32f* dst, int len) {
    const float* s = &src->re;
    const I16 even = _mm512_set_epi64(14, 12, 10, 8, 6, 4, 2, 0);
    for (int i = 0; i < len; i += 8) {
        int k = len - i >= 8 ? 8 : len - i;
        __mmask16 m = k == 8 ? 0xFFFF : tailMask16(2 * k);
        F16 v = _mm512_maskz_loadu_ps(m, s + 2 * i);
        D8 lo = loHalf(v), hi = hiHalf(v);
        lo = mul(lo, lo);
        hi = mul(hi, hi);
        lo = add(lo, swapPairs(lo));
        hi = add(hi, swapPairs(hi));
        D8 r = _mm512_sqrt_pd(_mm512_permutex2var_pd(lo, even, hi));
        __m256 f = _mm512_cvt_roundpd_ps(r, _MM_FROUND_TO_NEAREST_INT | _MM_FROUND_NO_EXC);
        _mm512_mask_storeu_ps(dst + i, tailMask16(k), _mm512_castps256_ps512(f));
    }
    return vrxOk;
}

template <class T>
VRX_INLINE void splitBlock(const T* s, T* re, T* im, int n) {
    for (int j = 0; j < n; ++j) {
        re[j] = s[2 * j];
        im[j] = s[2 * j + 1];
    }
}

VrxStatus phase32fc(const Vrx32fc* s, Vrx32f* d, int len) {
    alignas(64) float re[kBlock], im[kBlock];
    for (int i = 0; i < len; i += kBlock) {
        int n = len - i < kBlock ? len - i : kBlock;
        splitBlock(&s[i].re, re, im, n);
        N0(vrxsAtan2_32f_A21)(im, re, d + i, n);
    }
    return vrxOk;
}

VrxStatus phase64fc(const Vrx64fc* s, Vrx64f* d, int len) {
    alignas(64) double re[kBlock], im[kBlock];
    for (int i = 0; i < len; i += kBlock) {
        int n = len - i < kBlock ? len - i : kBlock;
        splitBlock(&s[i].re, re, im, n);
        N0(vrxsAtan2_64f_A50)(im, re, d + i, n);
    }
    return vrxOk;
}

VRX_INLINE void magn64(const double* re, const double* im, double* d, int len) {
    for (int i = 0; i < len; i += 8) {
        __mmask8 m = len - i >= 8 ? 0xFF : tailMask8(len - i);
        D8 a = _mm512_maskz_loadu_pd(m, re + i), b = _mm512_maskz_loadu_pd(m, im + i);
        __mmask8 rare;
        D8 r = absVec(a, b, rare);
        rare &= m;
        if (VRX_UNLIKELY(rare)) {
            alignas(64) double ta[8], tb[8], tr[8];
            _mm512_store_pd(ta, a);
            _mm512_store_pd(tb, b);
            _mm512_store_pd(tr, r);
            for (unsigned k = rare; k; k &= k - 1) {
                int j = __builtin_ctz(k);
                tr[j] = absRare(ta[j], tb[j]);
            }
            r = _mm512_load_pd(tr);
        }
        _mm512_mask_storeu_pd(d + i, m, r);
    }
}

// magnitude and phase to (re, im) through the sine-cosine tier
template <class T, class Out, class SinCos>
VRX_INLINE void polarBlocks(const T* mag, const T* ph, int len, SinCos sincos, Out out) {
    alignas(64) T sn[kBlock], cs[kBlock];
    for (int i = 0; i < len; i += kBlock) {
        int n = len - i < kBlock ? len - i : kBlock;
        sincos(ph + i, sn, cs, n);
        for (int j = 0; j < n; ++j) {
            T m = mag[i + j];
            out(i + j, m * cs[j], m * sn[j]);
        }
    }
}

}  // namespace

// ------------------------------------------------------------ Magnitude
// The single-precision interleaved form detects through the sticky flags.
VrxStatus N0(vrxsMagnitude_32fc)(const Vrx32fc* s, Vrx32f* d, int len) {
    if (VrxStatus st = checkArgs(len, s, d)) return st;
    n0::StickyFlagGuard guard;
    return magn32fc(s, d, len);
}
// Hands on the status of its tier entry.
VrxStatus N0(vrxsMagnitude_64fc)(const Vrx64fc* s, Vrx64f* d, int len) { return N0(vrxsAbs_64fc_A50)(s, d, len); }
VrxStatus N0(vrxsMagnitude_32f)(const Vrx32f* re, const Vrx32f* im, Vrx32f* d, int len) {
    if (VrxStatus st = checkArgs(len, re, im, d)) return st;
    TrapGuard trapGuard;
    mapS2viaD(re, im, d, len, [](D8 a, D8 b) { return _mm512_sqrt_pd(fma(a, a, mul(b, b))); });
    return vrxOk;
}
VrxStatus N0(vrxsMagnitude_64f)(const Vrx64f* re, const Vrx64f* im, Vrx64f* d, int len) {
    if (VrxStatus st = checkArgs(len, re, im, d)) return st;
    TrapGuard trapGuard;
    magn64(re, im, d, len);
    return vrxOk;
}
VrxStatus N0(vrxsMagnitude_16sc32f)(const Vrx16sc* s, Vrx32f* d, int len) {
    if (VrxStatus st = checkArgs(len, s, d)) return st;
    TrapGuard trapGuard;
    for (int i = 0; i < len; ++i) {
        int64_t a = s[i].re, b = s[i].im;
        d[i] = toFloat(__builtin_sqrt(static_cast<double>(a * a + b * b)));
    }
    return vrxOk;
}
VrxStatus N0(vrxsMagnitude_16sc_Sfs)(const Vrx16sc* s, Vrx16s* d, int len, int sf) {
    if (VrxStatus st = checkArgs(len, s, d)) return st;
    TrapGuard trapGuard;
    for (int i = 0; i < len; ++i) {
        int64_t a = s[i].re, b = s[i].im;
        d[i] = roundSat<Vrx16s>(scaleBy(__builtin_sqrt(static_cast<double>(a * a + b * b)), sf));
    }
    return vrxOk;
}

// ---------------------------------------------------------------- Phase
VrxStatus N0(vrxsPhase_32fc)(const Vrx32fc* s, Vrx32f* d, int len) {
    if (VrxStatus st = checkArgs(len, s, d)) return st;
    TrapGuard trapGuard;
    return phase32fc(s, d, len);
}
VrxStatus N0(vrxsPhase_64fc)(const Vrx64fc* s, Vrx64f* d, int len) {
    if (VrxStatus st = checkArgs(len, s, d)) return st;
    TrapGuard trapGuard;
    return phase64fc(s, d, len);
}
VrxStatus N0(vrxsPhase_32f)(const Vrx32f* re, const Vrx32f* im, Vrx32f* d, int len) {
    if (VrxStatus st = checkArgs(len, re, im, d)) return st;
    TrapGuard trapGuard;
    return N0(vrxsAtan2_32f_A21)(im, re, d, len);
}
VrxStatus N0(vrxsPhase_64f)(const Vrx64f* re, const Vrx64f* im, Vrx64f* d, int len) {
    if (VrxStatus st = checkArgs(len, re, im, d)) return st;
    TrapGuard trapGuard;
    return N0(vrxsAtan2_64f_A50)(im, re, d, len);
}
VrxStatus N0(vrxsPhase_16sc32f)(const Vrx16sc* s, Vrx32f* d, int len) {
    if (VrxStatus st = checkArgs(len, s, d)) return st;
    TrapGuard trapGuard;
    alignas(64) float re[kBlock], im[kBlock];
    for (int i = 0; i < len; i += kBlock) {
        int n = len - i < kBlock ? len - i : kBlock;
        for (int j = 0; j < n; ++j) {
            re[j] = s[i + j].re;
            im[j] = s[i + j].im;
        }
        N0(vrxsAtan2_32f_A21)(im, re, d + i, n);
    }
    return vrxOk;
}
VrxStatus N0(vrxsPhase_16sc_Sfs)(const Vrx16sc* s, Vrx16s* d, int len, int sf) {
    if (VrxStatus st = checkArgs(len, s, d)) return st;
    TrapGuard trapGuard;
    alignas(64) double re[kBlock], im[kBlock];
    for (int i = 0; i < len; i += kBlock) {
        int n = len - i < kBlock ? len - i : kBlock;
        for (int j = 0; j < n; ++j) {
            re[j] = s[i + j].re;
            im[j] = s[i + j].im;
        }
        N0(vrxsAtan2_64f_A50)(im, re, re, n);
        for (int j = 0; j < n; ++j) d[i + j] = roundSat<Vrx16s>(scaleBy(re[j], sf));
    }
    return vrxOk;
}

// ----------------------------------------------------------- CartToPolar
VrxStatus N0(vrxsCartToPolar_32fc)(const Vrx32fc* s, Vrx32f* mag, Vrx32f* ph, int len) {
    if (VrxStatus st = checkArgs(len, s, mag, ph)) return st;
    TrapGuard trapGuard;
    alignas(64) float re[kBlock], im[kBlock];
    for (int i = 0; i < len; i += kBlock) {
        int n = len - i < kBlock ? len - i : kBlock;
        splitBlock(&s[i].re, re, im, n);
        N0(vrxsAtan2_32f_A21)(im, re, ph + i, n);
        mapS2viaD(re, im, mag + i, n, [](D8 a, D8 b) { return _mm512_sqrt_pd(fma(a, a, mul(b, b))); });
    }
    return vrxOk;
}
VrxStatus N0(vrxsCartToPolar_64fc)(const Vrx64fc* s, Vrx64f* mag, Vrx64f* ph, int len) {
    if (VrxStatus st = checkArgs(len, s, mag, ph)) return st;
    TrapGuard trapGuard;
    alignas(64) double re[kBlock], im[kBlock];
    for (int i = 0; i < len; i += kBlock) {
        int n = len - i < kBlock ? len - i : kBlock;
        splitBlock(&s[i].re, re, im, n);
        N0(vrxsAtan2_64f_A50)(im, re, ph + i, n);
        magn64(re, im, mag + i, n);
    }
    return vrxOk;
}
VrxStatus N0(vrxsCartToPolar_32f)(const Vrx32f* re, const Vrx32f* im, Vrx32f* mag, Vrx32f* ph, int len) {
    if (VrxStatus st = checkArgs(len, re, im, mag, ph)) return st;
    TrapGuard trapGuard;
    alignas(64) float a[kBlock], b[kBlock];
    for (int i = 0; i < len; i += kBlock) {  // blocks keep in-place calls safe
        int n = len - i < kBlock ? len - i : kBlock;
        for (int j = 0; j < n; ++j) {
            a[j] = re[i + j];
            b[j] = im[i + j];
        }
        N0(vrxsAtan2_32f_A21)(b, a, ph + i, n);
        mapS2viaD(a, b, mag + i, n, [](D8 x, D8 y) { return _mm512_sqrt_pd(fma(x, x, mul(y, y))); });
    }
    return vrxOk;
}
VrxStatus N0(vrxsCartToPolar_64f)(const Vrx64f* re, const Vrx64f* im, Vrx64f* mag, Vrx64f* ph, int len) {
    if (VrxStatus st = checkArgs(len, re, im, mag, ph)) return st;
    TrapGuard trapGuard;
    alignas(64) double a[kBlock], b[kBlock];
    for (int i = 0; i < len; i += kBlock) {
        int n = len - i < kBlock ? len - i : kBlock;
        for (int j = 0; j < n; ++j) {
            a[j] = re[i + j];
            b[j] = im[i + j];
        }
        N0(vrxsAtan2_64f_A50)(b, a, ph + i, n);
        magn64(a, b, mag + i, n);
    }
    return vrxOk;
}

// ----------------------------------------------------------- PolarToCart
VrxStatus N0(vrxsPolarToCart_32f)(const Vrx32f* mag, const Vrx32f* ph, Vrx32f* re, Vrx32f* im, int len) {
    if (VrxStatus st = checkArgs(len, mag, ph, re, im)) return st;
    TrapGuard trapGuard;
    polarBlocks(mag, ph, len, N0(vrxsSinCos_32f_A21), [&](int k, float a, float b) {
        re[k] = a;
        im[k] = b;
    });
    return vrxOk;
}
VrxStatus N0(vrxsPolarToCart_64f)(const Vrx64f* mag, const Vrx64f* ph, Vrx64f* re, Vrx64f* im, int len) {
    if (VrxStatus st = checkArgs(len, mag, ph, re, im)) return st;
    TrapGuard trapGuard;
    polarBlocks(mag, ph, len, N0(vrxsSinCos_64f_A50), [&](int k, double a, double b) {
        re[k] = a;
        im[k] = b;
    });
    return vrxOk;
}
VrxStatus N0(vrxsPolarToCart_32fc)(const Vrx32f* mag, const Vrx32f* ph, Vrx32fc* d, int len) {
    if (VrxStatus st = checkArgs(len, mag, ph, d)) return st;
    TrapGuard trapGuard;
    polarBlocks(mag, ph, len, N0(vrxsSinCos_32f_A21), [&](int k, float a, float b) {
        d[k].re = a;
        d[k].im = b;
    });
    return vrxOk;
}
VrxStatus N0(vrxsPolarToCart_64fc)(const Vrx64f* mag, const Vrx64f* ph, Vrx64fc* d, int len) {
    if (VrxStatus st = checkArgs(len, mag, ph, d)) return st;
    TrapGuard trapGuard;
    polarBlocks(mag, ph, len, N0(vrxsSinCos_64f_A50), [&](int k, double a, double b) {
        d[k].re = a;
        d[k].im = b;
    });
    return vrxOk;
}
// phase = pSrcPhase * 2^-phaseScaleFactor through the single-precision
// tier; each part is magn * 2^-magnScaleFactor times its cosine or sine,
// rounded once and saturated.
VrxStatus N0(vrxsPolarToCart_16sc_Sfs)(const Vrx16s* mag, const Vrx16s* ph, Vrx16sc* d, int len, int magnSf, int phaseSf) {
    if (VrxStatus st = checkArgs(len, mag, ph, d)) return st;
    TrapGuard trapGuard;
    alignas(64) float p[kBlock], sn[kBlock], cs[kBlock];
    for (int i = 0; i < len; i += kBlock) {
        int n = len - i < kBlock ? len - i : kBlock;
        for (int j = 0; j < n; ++j) p[j] = toFloat(scaleBy(ph[i + j], phaseSf));
        N0(vrxsSinCos_32f_A21)(p, sn, cs, n);
        for (int j = 0; j < n; ++j) {
            double m = mag[i + j];
            Vrx16s re = roundSat<Vrx16s>(scaleBy(m * cs[j], magnSf)), im = roundSat<Vrx16s>(scaleBy(m * sn[j], magnSf));
            d[i + j].re = re;
            d[i + j].im = im;
        }
    }
    return vrxOk;
}
