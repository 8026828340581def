// Element-wise drivers of the exported float families: full vectors, then
// the tail with masked loads and stores, with the same arithmetic.
#pragma once

#include "vm_common.h"

namespace n0::vm {

// f(D8) -> D8 over doubles
template <class F>
VRX_INLINE void mapD(const double* s, double* d, int len, F f) {
    int i = 0;
    for (; i + 8 <= len; i += 8) _mm512_storeu_pd(d + i, f(_mm512_loadu_pd(s + i)));
    if (i < len) {
        __mmask8 m = tailMask8(len - i);
        _mm512_mask_storeu_pd(d + i, m, f(_mm512_maskz_loadu_pd(m, s + i)));
    }
}

// f(F16) -> F16 over floats
template <class F>
VRX_INLINE void mapS(const float* s, float* d, int len, F f) {
    int i = 0;
    for (; i + 16 <= len; i += 16) _mm512_storeu_ps(d + i, f(_mm512_loadu_ps(s + i)));
    if (i < len) {
        __mmask16 m = tailMask16(len - i);
        _mm512_mask_storeu_ps(d + i, m, f(_mm512_maskz_loadu_ps(m, s + i)));
    }
}

// f(D8) -> D8 over floats widened to double and rounded once at the end
template <class F>
VRX_INLINE void mapSviaD(const float* s, float* d, int len, F f) {
    mapS(s, d, len, [&](F16 v) { return joinHalves(f(loHalf(v)), f(hiHalf(v))); });
}

// two sources: f(D8, D8) -> D8
template <class F>
VRX_INLINE void mapD2(const double* a, const double* b, double* d, int len, F f) {
    int i = 0;
    for (; i + 8 <= len; i += 8) _mm512_storeu_pd(d + i, f(_mm512_loadu_pd(a + i), _mm512_loadu_pd(b + i)));
    if (i < len) {
        __mmask8 m = tailMask8(len - i);
        _mm512_mask_storeu_pd(d + i, m, f(_mm512_maskz_loadu_pd(m, a + i), _mm512_maskz_loadu_pd(m, b + i)));
    }
}

template <class F>
VRX_INLINE void mapS2viaD(const float* a, const float* b, float* d, int len, F f) {
    auto blk = [&](F16 x, F16 y) { return joinHalves(f(loHalf(x), loHalf(y)), f(hiHalf(x), hiHalf(y))); };
    int i = 0;
    for (; i + 16 <= len; i += 16) _mm512_storeu_ps(d + i, blk(_mm512_loadu_ps(a + i), _mm512_loadu_ps(b + i)));
    if (i < len) {
        __mmask16 m = tailMask16(len - i);
        _mm512_mask_storeu_ps(d + i, m, blk(_mm512_maskz_loadu_ps(m, a + i), _mm512_maskz_loadu_ps(m, b + i)));
    }
}

// the partner of each lane in its (re, im) pair
VRX_INLINE D8 swapPairs(D8 v) { return _mm512_permute_pd(v, 0x55); }
constexpr __mmask8 kOddLanes = 0xAA;

}  // namespace n0::vm
