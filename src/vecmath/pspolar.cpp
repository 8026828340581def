// Magnitude, Phase, CartToPolar and PolarToCart. Phase runs the atan2
// tiers (single A21, double A50), the double magnitude of interleaved data
// the Abs A50 tier, and PolarToCart the SinCos tiers (single A21, double
// A50), over blocks on the stack where the layouts differ.
#include "vm_abs.h"
#include "vm_common.h"
#include "vm_int.h"
#include "vrx_tiers.h"

using namespace n0::vm;
using n0::checkArgs;

namespace {

constexpr int kBlock = 256;

// |z| of single-precision pairs in double: exact squares, one rounding
// of the sum and of the root, then the final rounding.
VrxStatus magn32fc(const Vrx32fc* src, Vrx32f* dst, int len) {
    const float* s = &src->re;
    for (int i = 0; i < len; i += 8) {
        int k = len - i >= 8 ? 8 : len - i;
        __mmask16 m = k == 8 ? 0xFFFF : simd::tail<float>(2 * k);
        F16 v = F::loadm(m, s + 2 * i);
        D8 lo = simd::lowToDouble(v), hi = simd::highToDouble(v);
        lo = D::mul(lo, lo);
        hi = D::mul(hi, hi);
        lo = D::add(lo, D::swapPair(lo));
        hi = D::add(hi, D::swapPair(hi));
        D8 sq, unused;
        simd::deinterleave(lo, hi, sq, unused);
        F::storem(dst + i, simd::tail<float>(k), simd::lowToFloat(D::sqrt(sq)));
    }
    return vrxOk;
}

// The tiers behind the families: atan2 (single A21, double A50), the
// magnitude of split parts and sine-cosine (single A21, double A50).
VRX_INLINE void atan2Tier(const float* y, const float* x, float* d, int n) { N0(vrxsAtan2_32f_A21)(y, x, d, n); }
VRX_INLINE void atan2Tier(const double* y, const double* x, double* d, int n) { N0(vrxsAtan2_64f_A50)(y, x, d, n); }
VRX_INLINE void sinCosTier(const float* x, float* s, float* c, int n) { N0(vrxsSinCos_32f_A21)(x, s, c, n); }
VRX_INLINE void sinCosTier(const double* x, double* s, double* c, int n) { N0(vrxsSinCos_64f_A50)(x, s, c, n); }

// single precision in double: one fused step, one root, one rounding
VRX_INLINE void magnTier(const float* re, const float* im, float* d, int n) {
    lanes<ViaDouble>(Map{[](D8 a, D8 b) { return D::sqrt(D::fma(a, a, D::mul(b, b))); }}, {re, im}, {d}, n);
}
// double: the fused step of the Abs kernel with its rare lanes
struct MagnD {
    static VRX_INLINE D8 vec(D8 a, D8 b, __mmask8& rare) { return absVec(a, b, rare); }
    static double rare(double a, double b) { return absRare(a, b); }
};
VRX_INLINE void magnTier(const double* re, const double* im, double* d, int n) {
    lanes<Native>(MagnD{}, {re, im}, {d}, n);
}

// (re, im) through stack buffers: load(i, n, re, im) fills a block, then
// the phase (when ph is set) and the magnitude (when mag is set) of it.
template <class T, class Load>
VRX_INLINE void cartBlocks(int len, Load load, T* mag, T* ph) {
    alignas(64) T re[kBlock], im[kBlock];
    inBlocks<kBlock>(len, [&](int i, int n) {
        load(i, n, re, im);
        if (ph) atan2Tier(im, re, ph + i, n);
        if (mag) magnTier(re, im, mag + i, n);
    });
}

// loaders of a block: interleaved pairs, split parts (copied, which keeps
// in-place calls safe)
template <class C>
VRX_INLINE auto pairsOf(const C* s) {
    return [s](int i, int n, auto* re, auto* im) {
        for (int j = 0; j < n; ++j) {
            re[j] = s[i + j].re;
            im[j] = s[i + j].im;
        }
    };
}
template <class T>
VRX_INLINE auto partsOf(const T* a, const T* b) {
    return [a, b](int i, int n, T* re, T* im) {
        for (int j = 0; j < n; ++j) {
            re[j] = a[i + j];
            im[j] = b[i + j];
        }
    };
}

// magnitude and phase to (re, im) through the sine-cosine tier
template <class T, class Out>
VRX_INLINE void polarBlocks(const T* mag, const T* ph, int len, Out out) {
    alignas(64) T sn[kBlock], cs[kBlock];
    inBlocks<kBlock>(len, [&](int i, int n) {
        sinCosTier(ph + i, sn, cs, n);
        for (int j = 0; j < n; ++j) {
            T m = mag[i + j];
            out(i + j, m * cs[j], m * sn[j]);
        }
    });
}

}  // namespace

// ------------------------------------------------------------ Magnitude
// The single-precision interleaved form detects through the sticky flags.
VrxStatus N0(vrxsMagnitude_32fc)(const Vrx32fc* s, Vrx32f* d, int len) {
    if (VrxStatus st = checkArgs(len, s, d)) return st;
    StickyFlagGuard guard;
    return magn32fc(s, d, len);
}
// Hands on the status of its tier entry.
VrxStatus N0(vrxsMagnitude_64fc)(const Vrx64fc* s, Vrx64f* d, int len) { return N0(vrxsAbs_64fc_A50)(s, d, len); }
VrxStatus N0(vrxsMagnitude_32f)(const Vrx32f* re, const Vrx32f* im, Vrx32f* d, int len) {
    return trapped(len, {re, im, d}, [&] { magnTier(re, im, d, len); });
}
VrxStatus N0(vrxsMagnitude_64f)(const Vrx64f* re, const Vrx64f* im, Vrx64f* d, int len) {
    return trapped(len, {re, im, d}, [&] { magnTier(re, im, d, len); });
}
VrxStatus N0(vrxsMagnitude_16sc32f)(const Vrx16sc* s, Vrx32f* d, int len) {
    return trapped(len, {s, d}, [&] {
        for (int i = 0; i < len; ++i) {
            int64_t a = s[i].re, b = s[i].im;
            d[i] = toFloat(__builtin_sqrt(static_cast<double>(a * a + b * b)));
        }
    });
}
VrxStatus N0(vrxsMagnitude_16sc_Sfs)(const Vrx16sc* s, Vrx16s* d, int len, int sf) {
    return trapped(len, {s, d}, [&] {
        for (int i = 0; i < len; ++i) {
            int64_t a = s[i].re, b = s[i].im;
            d[i] = roundSat<Vrx16s>(scaleBy(__builtin_sqrt(static_cast<double>(a * a + b * b)), sf));
        }
    });
}

// ---------------------------------------------------------------- Phase
VrxStatus N0(vrxsPhase_32fc)(const Vrx32fc* s, Vrx32f* d, int len) {
    return trapped(len, {s, d}, [&] { cartBlocks<float>(len, pairsOf(s), nullptr, d); });
}
VrxStatus N0(vrxsPhase_64fc)(const Vrx64fc* s, Vrx64f* d, int len) {
    return trapped(len, {s, d}, [&] { cartBlocks<double>(len, pairsOf(s), nullptr, d); });
}
VrxStatus N0(vrxsPhase_32f)(const Vrx32f* re, const Vrx32f* im, Vrx32f* d, int len) {
    return trapped(len, {re, im, d}, [&] { return N0(vrxsAtan2_32f_A21)(im, re, d, len); });
}
VrxStatus N0(vrxsPhase_64f)(const Vrx64f* re, const Vrx64f* im, Vrx64f* d, int len) {
    return trapped(len, {re, im, d}, [&] { return N0(vrxsAtan2_64f_A50)(im, re, d, len); });
}
VrxStatus N0(vrxsPhase_16sc32f)(const Vrx16sc* s, Vrx32f* d, int len) {
    return trapped(len, {s, d}, [&] { cartBlocks<float>(len, pairsOf(s), nullptr, d); });
}
VrxStatus N0(vrxsPhase_16sc_Sfs)(const Vrx16sc* s, Vrx16s* d, int len, int sf) {
    return trapped(len, {s, d}, [&] {
        alignas(64) double re[kBlock], im[kBlock];
        inBlocks<kBlock>(len, [&](int i, int n) {
            pairsOf(s)(i, n, re, im);
            atan2Tier(im, re, re, n);
            for (int j = 0; j < n; ++j) d[i + j] = roundSat<Vrx16s>(scaleBy(re[j], sf));
        });
    });
}

// ----------------------------------------------------------- CartToPolar
VrxStatus N0(vrxsCartToPolar_32fc)(const Vrx32fc* s, Vrx32f* mag, Vrx32f* ph, int len) {
    return trapped(len, {s, mag, ph}, [&] { cartBlocks<float>(len, pairsOf(s), mag, ph); });
}
VrxStatus N0(vrxsCartToPolar_64fc)(const Vrx64fc* s, Vrx64f* mag, Vrx64f* ph, int len) {
    return trapped(len, {s, mag, ph}, [&] { cartBlocks<double>(len, pairsOf(s), mag, ph); });
}
VrxStatus N0(vrxsCartToPolar_32f)(const Vrx32f* re, const Vrx32f* im, Vrx32f* mag, Vrx32f* ph, int len) {
    return trapped(len, {re, im, mag, ph}, [&] { cartBlocks<float>(len, partsOf(re, im), mag, ph); });
}
VrxStatus N0(vrxsCartToPolar_64f)(const Vrx64f* re, const Vrx64f* im, Vrx64f* mag, Vrx64f* ph, int len) {
    return trapped(len, {re, im, mag, ph}, [&] { cartBlocks<double>(len, partsOf(re, im), mag, ph); });
}

// ----------------------------------------------------------- PolarToCart
VrxStatus N0(vrxsPolarToCart_32f)(const Vrx32f* mag, const Vrx32f* ph, Vrx32f* re, Vrx32f* im, int len) {
    return trapped(len, {mag, ph, re, im}, [&] {
        polarBlocks(mag, ph, len, [&](int k, float a, float b) {
            re[k] = a;
            im[k] = b;
        });
    });
}
VrxStatus N0(vrxsPolarToCart_64f)(const Vrx64f* mag, const Vrx64f* ph, Vrx64f* re, Vrx64f* im, int len) {
    return trapped(len, {mag, ph, re, im}, [&] {
        polarBlocks(mag, ph, len, [&](int k, double a, double b) {
            re[k] = a;
            im[k] = b;
        });
    });
}
VrxStatus N0(vrxsPolarToCart_32fc)(const Vrx32f* mag, const Vrx32f* ph, Vrx32fc* d, int len) {
    return trapped(len, {mag, ph, d}, [&] {
        polarBlocks(mag, ph, len, [&](int k, float a, float b) {
            d[k].re = a;
            d[k].im = b;
        });
    });
}
VrxStatus N0(vrxsPolarToCart_64fc)(const Vrx64f* mag, const Vrx64f* ph, Vrx64fc* d, int len) {
    return trapped(len, {mag, ph, d}, [&] {
        polarBlocks(mag, ph, len, [&](int k, double a, double b) {
            d[k].re = a;
            d[k].im = b;
        });
    });
}
// phase = pSrcPhase * 2^-phaseScaleFactor through the single-precision
// tier; each part is magn * 2^-magnScaleFactor times its cosine or sine,
// rounded once and saturated.
VrxStatus N0(vrxsPolarToCart_16sc_Sfs)(const Vrx16s* mag, const Vrx16s* ph, Vrx16sc* d, int len, int magnSf, int phaseSf) {
    return trapped(len, {mag, ph, d}, [&] {
        alignas(64) float p[kBlock], sn[kBlock], cs[kBlock];
        inBlocks<kBlock>(len, [&](int i, int n) {
            for (int j = 0; j < n; ++j) p[j] = toFloat(scaleBy(ph[i + j], phaseSf));
            sinCosTier(p, sn, cs, n);
            for (int j = 0; j < n; ++j) {
                double m = mag[i + j];
                Vrx16s re = roundSat<Vrx16s>(scaleBy(m * cs[j], magnSf)), im = roundSat<Vrx16s>(scaleBy(m * sn[j], magnSf));
                d[i + j].re = re;
                d[i + j].im = im;
            }
        });
    });
}
