// Multiplication on floating-point vectors: real and complex products,
// constants, real by complex, the 16s sources in single precision and the
// 32f-by-constant products into 16s.
#include "arith_i16f.h"
#include "vrx_map.h"
#include "vrx_fpu.h"

#include <cstring>

using namespace n0;
using namespace n0::ar;
using namespace n0::map;

namespace {

template <class T>
void mulV(const T* a, const T* b, T* d, size_t n) {
    map2(a, b, d, n, [](auto x, auto y) { return simd::V<T>::mul(x, y); });
}

template <class T>
void mulCV(const T* a, const T* b, T* d, size_t n2) {
    map2(a, b, d, n2, [](auto x, auto y) { return simd::cmul<T>(x, y); });
}

template <class T>
VrxStatus mulReal(const T* s1, const T* s2, T* d, int len) {
    if (VrxStatus st = checkArgs(len, s1, s2, d)) return st;
    mulV(s1, s2, d, static_cast<size_t>(len));
    return vrxOk;
}

template <class T, class C>
VrxStatus mulCplx(const C* s1, const C* s2, C* d, int len) {
    if (VrxStatus st = checkArgs(len, s1, s2, d)) return st;
    mulCV(reinterpret_cast<const T*>(s1), reinterpret_cast<const T*>(s2), reinterpret_cast<T*>(d),
          2 * static_cast<size_t>(len));
    return vrxOk;
}

template <class T>
void mulCReal(const T* a, T val, T* d, size_t n) {
    const auto c = simd::V<T>::set1(val);
    map1(a, d, n, [c](auto x) { return simd::V<T>::mul(x, c); });
}

template <class T, class C>
void mulCCplx(const C* a, C val, C* d, size_t n) {
    const auto yc = simd::V<T>::set2(val.re, val.im);
    const auto ys = simd::V<T>::set2(val.im, val.re);
    map1(reinterpret_cast<const T*>(a), reinterpret_cast<T*>(d), 2 * n,
         [yc, ys](auto x) { return simd::cmulC<T>(x, yc, ys); });
}

}  // namespace

VrxStatus N0(vrxsMul_32f)(const Vrx32f* pSrc1, const Vrx32f* pSrc2, Vrx32f* pDst, int len) { return mulReal(pSrc1, pSrc2, pDst, len); }
VrxStatus N0(vrxsMul_64f)(const Vrx64f* pSrc1, const Vrx64f* pSrc2, Vrx64f* pDst, int len) { return mulReal(pSrc1, pSrc2, pDst, len); }
VrxStatus N0(vrxsMul_32fc)(const Vrx32fc* pSrc1, const Vrx32fc* pSrc2, Vrx32fc* pDst, int len) { return mulCplx<float>(pSrc1, pSrc2, pDst, len); }
VrxStatus N0(vrxsMul_64fc)(const Vrx64fc* pSrc1, const Vrx64fc* pSrc2, Vrx64fc* pDst, int len) { return mulCplx<double>(pSrc1, pSrc2, pDst, len); }
VrxStatus N0(vrxsMul_32f_I)(const Vrx32f* pSrc, Vrx32f* pSrcDst, int len) { return N0(vrxsMul_32f)(pSrc, pSrcDst, pSrcDst, len); }
VrxStatus N0(vrxsMul_64f_I)(const Vrx64f* pSrc, Vrx64f* pSrcDst, int len) { return N0(vrxsMul_64f)(pSrc, pSrcDst, pSrcDst, len); }
VrxStatus N0(vrxsMul_32fc_I)(const Vrx32fc* pSrc, Vrx32fc* pSrcDst, int len) { return N0(vrxsMul_32fc)(pSrc, pSrcDst, pSrcDst, len); }
VrxStatus N0(vrxsMul_64fc_I)(const Vrx64fc* pSrc, Vrx64fc* pSrcDst, int len) { return N0(vrxsMul_64fc)(pSrc, pSrcDst, pSrcDst, len); }

// Real constants: 1.0 copies (tested first), 0 clears even non-finite
// elements; in place 1.0 leaves the vector and 0 clears it.
VrxStatus N0(vrxsMulC_32f)(const Vrx32f* pSrc, Vrx32f val, Vrx32f* pDst, int len) {
    if (VrxStatus st = checkArgs(len, pSrc, pDst)) return st;
    if (val == 1.0f) return N0(vrxsCopy_32f)(pSrc, pDst, len);
    if (val == 0.0f) return N0(vrxsZero_32f)(pDst, len);
    mulCReal(pSrc, val, pDst, static_cast<size_t>(len));
    return vrxOk;
}
VrxStatus N0(vrxsMulC_64f)(const Vrx64f* pSrc, Vrx64f val, Vrx64f* pDst, int len) {
    if (VrxStatus st = checkArgs(len, pSrc, pDst)) return st;
    if (val == 1.0) return N0(vrxsCopy_64f)(pSrc, pDst, len);
    if (val == 0.0) return N0(vrxsZero_64f)(pDst, len);
    mulCReal(pSrc, val, pDst, static_cast<size_t>(len));
    return vrxOk;
}
VrxStatus N0(vrxsMulC_32f_I)(Vrx32f val, Vrx32f* pSrcDst, int len) {
    if (VrxStatus st = checkArgs(len, pSrcDst)) return st;
    if (val == 1.0f) return vrxOk;
    if (val == 0.0f) return N0(vrxsZero_32f)(pSrcDst, len);
    mulCReal(pSrcDst, val, pSrcDst, static_cast<size_t>(len));
    return vrxOk;
}
VrxStatus N0(vrxsMulC_64f_I)(Vrx64f val, Vrx64f* pSrcDst, int len) {
    if (VrxStatus st = checkArgs(len, pSrcDst)) return st;
    if (val == 1.0) return vrxOk;
    if (val == 0.0) return N0(vrxsZero_64f)(pSrcDst, len);
    mulCReal(pSrcDst, val, pSrcDst, static_cast<size_t>(len));
    return vrxOk;
}
VrxStatus N0(vrxsMulC_32fc)(const Vrx32fc* pSrc, Vrx32fc val, Vrx32fc* pDst, int len) {
    if (VrxStatus st = checkArgs(len, pSrc, pDst)) return st;
    mulCCplx<float>(pSrc, val, pDst, static_cast<size_t>(len));
    return vrxOk;
}
VrxStatus N0(vrxsMulC_64fc)(const Vrx64fc* pSrc, Vrx64fc val, Vrx64fc* pDst, int len) {
    if (VrxStatus st = checkArgs(len, pSrc, pDst)) return st;
    mulCCplx<double>(pSrc, val, pDst, static_cast<size_t>(len));
    return vrxOk;
}
VrxStatus N0(vrxsMulC_32fc_I)(Vrx32fc val, Vrx32fc* pSrcDst, int len) { return N0(vrxsMulC_32fc)(pSrcDst, val, pSrcDst, len); }
VrxStatus N0(vrxsMulC_64fc_I)(Vrx64fc val, Vrx64fc* pSrcDst, int len) { return N0(vrxsMulC_64fc)(pSrcDst, val, pSrcDst, len); }

// Real src1 times complex src2: each real is duplicated onto its pair.
VrxStatus N0(vrxsMul_32f32fc)(const Vrx32f* pSrc1, const Vrx32fc* pSrc2, Vrx32fc* pDst, int len) {
    if (VrxStatus st = checkArgs(len, pSrc1, pSrc2, pDst)) return st;
    const size_t n = static_cast<size_t>(len);
    const float* b = &pSrc2->re;
    float* d = &pDst->re;
    using V = simd::V<float>;
    size_t i = 0;
    // 8 reals from a half-register load, which the layer does not name
    for (; i + 8 <= n; i += 8) V::store(d + 2 * i, V::mul(V::dupLowPairs(_mm512_castps256_ps512(_mm256_loadu_ps(pSrc1 + i))), V::load(b + 2 * i)));
    if (i < n) {
        const size_t k = n - i;
        auto r = V::dupLowPairs(V::loadm(simd::tail<float>(k), pSrc1 + i));
        const auto m2 = simd::tail<float>(2 * k);
        V::storem(d + 2 * i, m2, V::mul(r, V::loadm(m2, b + 2 * i)));
    }
    return vrxOk;
}
VrxStatus N0(vrxsMul_32f32fc_I)(const Vrx32f* pSrc, Vrx32fc* pSrcDst, int len) { return N0(vrxsMul_32f32fc)(pSrc, pSrcDst, pSrcDst, len); }

VrxStatus N0(vrxsMul_16s32f)(const Vrx16s* pSrc1, const Vrx16s* pSrc2, Vrx32f* pDst, int len) {
    if (VrxStatus st = checkArgs(len, pSrc1, pSrc2, pDst)) return st;
    map16s32f(pSrc1, pSrc2, pDst, static_cast<size_t>(len), [](auto x, auto y) { return x * y; });
    return vrxOk;
}

namespace {

// 32f by a constant into 16s. Clamped: the product is held in [-32768, 32767]
// before the conversion (a NaN product goes to 32767). Unclamped: the
// conversion alone, whose out-of-range answer saturates to -32768.
template <bool Clamp>
void mulC32f16s(const Vrx32f* a, float val, Vrx16s* d, size_t n) {
    using V = simd::V<float>;
    const auto c = V::set1(val), hi = V::set1(32767.0f), lo = V::set1(-32768.0f);
    auto kern = [&](V::R x) {
        auto p = V::mul(x, c);
        if constexpr (Clamp) p = V::max(V::min(p, hi), lo);
        return simd::floatToInt(p);
    };
    size_t i = 0;
    for (; i + 16 <= n; i += 16) simd::narrowSat16s(d + i, V::kAll, kern(V::load(a + i)));
    if (i < n) {
        const auto m = simd::tail<float>(n - i);
        simd::narrowSat16s(d + i, m, kern(V::loadm(m, a + i)));
    }
}

}  // namespace

VrxStatus N0(vrxsMulC_32f16s_Sfs)(const Vrx32f* pSrc, Vrx32f val, Vrx16s* pDst, int len, int scaleFactor) {
    if (VrxStatus st = checkArgs(len, pSrc, pDst)) return st;
    if (scaleFactor != 0) {
        // 2^-sf built in the exponent field, sf held to [-127, 126]
        int sf = scaleFactor < -127 ? -127 : (scaleFactor > 126 ? 126 : scaleFactor);
        uint32_t bits = 0x3F800000u - (static_cast<uint32_t>(sf) << 23);
        float scale;
        memcpy(&scale, &bits, sizeof scale);
        val *= scale;
    }
    RoundNearestGuard rn;
    mulC32f16s<true>(pSrc, val, pDst, static_cast<size_t>(len));
    return vrxOk;
}

VrxStatus N0(vrxsMulC_Low_32f16s)(const Vrx32f* pSrc, Vrx32f val, Vrx16s* pDst, int len) {
    if (VrxStatus st = checkArgs(len, pSrc, pDst)) return st;
    mulC32f16s<false>(pSrc, val, pDst, static_cast<size_t>(len));
    return vrxOk;
}
