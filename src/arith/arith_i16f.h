// 16s sources widened to single precision for the mixed 16s32f forms.
#pragma once

#include "simd/simd.h"

namespace n0::ar {

// d[i] = f(float(a[i]), float(b[i])); f works on registers and on floats alike,
// so the scalar tail gives the bits of the vector body (the layer has no
// masked 16-bit load without AVX-512BW).
template <class F>
VRX_INLINE void map16s32f(const Vrx16s* a, const Vrx16s* b, Vrx32f* d, size_t n, F f) {
    size_t i = 0;
    for (; i + 16 <= n; i += 16) {
        auto x = simd::intToFloat(simd::widen16s(a + i)), y = simd::intToFloat(simd::widen16s(b + i));
        simd::V<float>::store(d + i, f(x, y));
    }
    for (; i < n; ++i) d[i] = f(static_cast<float>(a[i]), static_cast<float>(b[i]));
}

}  // namespace n0::ar
