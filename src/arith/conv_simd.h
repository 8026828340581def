// SIMD primitives of the conversion family: multipliers of the scale
// factor, the float-to-integer rounding cores and the narrowing stores.
// Kernels work on 16 single or 8 double lanes; a tail is the same kernel
// with masked loads and stores, so every element takes the same path.
#pragma once

#include "vrx_fpu.h"
#include "vrx_map.h"

#include <string.h>

#include <type_traits>

namespace n0::conv {

// Rounding modes of the float-to-integer kernels.
enum Mode { kZero = 0, kNear = 1, kFin = 2 };

VRX_INLINE float bitsToFloat(uint32_t u) { float f; memcpy(&f, &u, 4); return f; }
VRX_INLINE double bitsToDouble(uint64_t u) { double f; memcpy(&f, &u, 8); return f; }

// 2^-sf as single precision built on the exponent field; the exponent wraps
// for a scale factor beyond the format.
VRX_INLINE float pow2Wrapped(int sf) {
    return bitsToFloat(0x3F800000u - (static_cast<uint32_t>(sf) << 23));
}

// Adds 0.5 with the sign of x (minus zero gets minus 0.5); under rounding
// toward zero the following truncation gives ties away from zero.
template <class T>
VRX_INLINE typename simd::V<T>::R addHalfSignedT(typename simd::V<T>::R x) {
    using V = simd::V<T>;
    return V::add(x, V::orb(V::andb(x, V::set1(T(-0.0))), V::set1(T(0.5))));
}
VRX_INLINE __m512 addHalfSigned(__m512 x) { return addHalfSignedT<float>(x); }
VRX_INLINE __m512d addHalfSigned(__m512d x) { return addHalfSignedT<double>(x); }

// Clamp above (NaN passes), round, convert to 32-bit lanes. Near uses the
// conversion instruction under the caller's guard that forces nearest.
template <int M>
VRX_INLINE __m512i roundToInt(__m512 x, __m512 hi) {
    using V = simd::V<float>;
    x = V::min(hi, x);
    if constexpr (M == kNear) return simd::floatToInt(x);
    else if constexpr (M == kZero) return simd::floatToIntTrunc(x);
    else return simd::floatToIntTrunc(addHalfSigned(x));
}
template <int M>
VRX_INLINE __m256i roundToInt(__m512d x, __m512d hi) {
    using V = simd::V<double>;
    x = V::min(hi, x);
    if constexpr (M == kNear) return simd::doubleToInt(x);
    else if constexpr (M == kZero) return simd::doubleToIntTrunc(x);
    else return simd::doubleToIntTrunc(addHalfSigned(x));
}

// Destination traits: the largest value as a float and the saturating
// narrowing store of 32-bit lanes. narrow() packs into the low part of a
// register, for joining into full stores: the layer has no name for such
// a register-to-register narrowing, so it keeps the raw instruction.
template <class D> struct Dst;
template <> struct Dst<Vrx8s> {
    static constexpr float hi = 127.0f;
    static VRX_INLINE void store(Vrx8s* p, __mmask16 k, __m512i v) { simd::narrowSat8s(p, k, v); }
    static VRX_INLINE __m128i narrow(__m512i v) { return _mm512_cvtsepi32_epi8(v); }
};
template <> struct Dst<Vrx8u> {
    static constexpr float hi = 255.0f;
    static VRX_INLINE void store(Vrx8u* p, __mmask16 k, __m512i v) { simd::narrowSat8u(p, k, v); }
    static VRX_INLINE __m128i narrow(__m512i v) { return _mm512_cvtusepi32_epi8(_mm512_max_epi32(v, _mm512_setzero_si512())); }
};
template <> struct Dst<Vrx16s> {
    static constexpr float hi = 32767.0f;
    static VRX_INLINE void store(Vrx16s* p, __mmask16 k, __m512i v) { simd::narrowSat16s(p, k, v); }
    static VRX_INLINE __m256i narrow(__m512i v) { return _mm512_cvtsepi32_epi16(v); }
};
template <> struct Dst<Vrx16u> {
    static constexpr float hi = 65535.0f;
    static VRX_INLINE void store(Vrx16u* p, __mmask16 k, __m512i v) { simd::narrowSat16u(p, k, v); }
    static VRX_INLINE __m256i narrow(__m512i v) { return _mm512_cvtusepi32_epi16(_mm512_max_epi32(v, _mm512_setzero_si512())); }
};
template <> struct Dst<Vrx32s> {
    // 2147483647 is not a float: the clamp value is 2^31, whose conversion
    // is fixed up to the upper bound by the kernel.
    static constexpr float hi = 2147483648.0f;
    static VRX_INLINE void store(Vrx32s* p, __mmask16 k, __m512i v) { simd::V<int32_t>::storem(p, k, v); }
};

// Widening driver: op(p) turns the elements at p into one register of
// destination lanes (16 of 32 bits or 8 of 64), through the shared driver
// with its streaming policy. op reads a whole register's worth of source,
// so the tail goes through a zeroed local copy of the source.
template <class S, class D, class Op>
VRX_INLINE void widenMap(const S* s, D* d, int len, Op op) {
    constexpr size_t N = simd::V<D>::N;
    const size_t n = static_cast<size_t>(len);
    map::run<map::Store::Auto>(d, n, n * (sizeof(S) + sizeof(D)),
        [&](size_t i) { return op(s + i); },
        [&](size_t i, auto) {
            alignas(64) S t[N] = {};
            memcpy(t, s + i, (n - i) * sizeof(S));
            return op(t);
        });
}

}  // namespace n0::conv
