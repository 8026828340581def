// Ramps: the Jaehne test signal (a chirp whose frequency rises linearly from
// 0 to 0.5 over the vector) and the linear slope.
#include "psgen.h"

using namespace n0;
using namespace n0::gen;

namespace {

enum class SinTier { S21, S24, D50, D53 };

// Arguments pi n^2 / (2 len) of the elements n0..n0+cnt-1, with n^2 reduced
// modulo 4 len exactly (the sine has period 4 len in n^2).
VRX_INLINE void jaehneArgs(double* x, int n0, int cnt, int len) {
    const uint64_t mod = 4u * static_cast<uint64_t>(len);
    const double scale = kPi / (2.0 * static_cast<double>(len));
    for (int j = 0; j < cnt; ++j) {
        const uint64_t n = static_cast<uint64_t>(n0 + j);
        x[j] = static_cast<double>((n * n) % mod) * scale;
    }
}

VRX_INLINE void put(float* p, double magn, double s) { *p = static_cast<float>(magn) * static_cast<float>(s); }
VRX_INLINE void put(double* p, double magn, double s) { *p = magn * s; }
template <class T>
VRX_INLINE void put(T* p, double magn, double s) { *p = satNearEven<T>(magn * s); }

template <class T, class M>
VrxStatus jaehne(T* d, int len, M magn, SinTier tier) {
    if (d == nullptr) return vrxErrNullPtr;
    if (len < 1) return vrxErrBadLength;
    if (magn < M(0)) return vrxErrJaehneMagn;
    alignas(64) double x[kChunk], s[kChunk];
    alignas(64) float xf[kChunk], sf[kChunk];
    const double m = static_cast<double>(magn);
    for (int n0 = 0; n0 < len; n0 += kChunk) {
        const int cnt = len - n0 < kChunk ? len - n0 : kChunk;
        jaehneArgs(x, n0, cnt, len);
        if (tier == SinTier::D50 || tier == SinTier::D53) {
            if (tier == SinTier::D50) N0(vrxsSin_64f_A50)(x, s, cnt);
            else N0(vrxsSin_64f_A53)(x, s, cnt);
        } else {
            for (int j = 0; j < cnt; ++j) xf[j] = static_cast<float>(x[j]);
            if (tier == SinTier::S21) N0(vrxsSin_32f_A21)(xf, sf, cnt);
            else N0(vrxsSin_32f_A24)(xf, sf, cnt);
            for (int j = 0; j < cnt; ++j) s[j] = static_cast<double>(sf[j]);
        }
        for (int j = 0; j < cnt; ++j) put(d + n0 + j, m, s[j]);
    }
    return vrxOk;
}

VRX_INLINE void putSlope(float* p, double v) { *p = static_cast<float>(v); }
VRX_INLINE void putSlope(double* p, double v) { *p = v; }
template <class T>
VRX_INLINE void putSlope(T* p, double v) { *p = satNearEven<T>(v); }

template <class T>
VrxStatus slope(T* d, int len, double offset, double slope) {
    if (d == nullptr) return vrxErrNullPtr;
    if (len < 1) return vrxErrBadLength;
    for (int n = 0; n < len; ++n) putSlope(d + n, __builtin_fma(slope, static_cast<double>(n), offset));
    return vrxOk;
}

}  // namespace

VrxStatus N0(vrxsVectorJaehne_8u)(Vrx8u* pDst, int len, Vrx8u magn) { return jaehne(pDst, len, magn, SinTier::S21); }
VrxStatus N0(vrxsVectorJaehne_16u)(Vrx16u* pDst, int len, Vrx16u magn) { return jaehne(pDst, len, magn, SinTier::S21); }
VrxStatus N0(vrxsVectorJaehne_16s)(Vrx16s* pDst, int len, Vrx16s magn) { return jaehne(pDst, len, magn, SinTier::S21); }
VrxStatus N0(vrxsVectorJaehne_32s)(Vrx32s* pDst, int len, Vrx32s magn) { return jaehne(pDst, len, magn, SinTier::D50); }
VrxStatus N0(vrxsVectorJaehne_32f)(Vrx32f* pDst, int len, Vrx32f magn) { return jaehne(pDst, len, magn, SinTier::S24); }
// A zero magnitude is all zeros: handed to vrxsZero_64f after the checks.
VrxStatus N0(vrxsVectorJaehne_64f)(Vrx64f* pDst, int len, Vrx64f magn) {
    if (pDst != nullptr && len >= 1 && magn == 0.0) return N0(vrxsZero_64f)(pDst, len);
    return jaehne(pDst, len, magn, SinTier::D53);
}

VrxStatus N0(vrxsVectorSlope_8u)(Vrx8u* pDst, int len, Vrx64f offset, Vrx64f slope) { return ::slope(pDst, len, offset, slope); }
VrxStatus N0(vrxsVectorSlope_16u)(Vrx16u* pDst, int len, Vrx64f offset, Vrx64f slope) { return ::slope(pDst, len, offset, slope); }
VrxStatus N0(vrxsVectorSlope_16s)(Vrx16s* pDst, int len, Vrx64f offset, Vrx64f slope) { return ::slope(pDst, len, offset, slope); }
VrxStatus N0(vrxsVectorSlope_32u)(Vrx32u* pDst, int len, Vrx64f offset, Vrx64f slope) { return ::slope(pDst, len, offset, slope); }
VrxStatus N0(vrxsVectorSlope_32s)(Vrx32s* pDst, int len, Vrx64f offset, Vrx64f slope) { return ::slope(pDst, len, offset, slope); }
VrxStatus N0(vrxsVectorSlope_32f)(Vrx32f* pDst, int len, Vrx64f offset, Vrx64f slope) { return ::slope(pDst, len, offset, slope); }
VrxStatus N0(vrxsVectorSlope_64f)(Vrx64f* pDst, int len, Vrx64f offset, Vrx64f slope) { return ::slope(pDst, len, offset, slope); }
