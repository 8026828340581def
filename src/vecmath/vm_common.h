// Common frame of the vector math kernels: the control-word handling that
// every kernel shares, the SIMD primitives the kernels are written against,
// and the block drivers that run a kernel over a vector with its tail and
// its rare lanes.
#pragma once

// The intrinsics headers of g++ 12 read _mm512_undefined_* values.
#pragma GCC diagnostic ignored "-Wuninitialized"

#include "vrx_base.h"

#include <immintrin.h>
#include <string.h>

// Error hooks of the rare-case routines: empty, no record survives.
VRX_OWN(void, own_vrxs_dError, (const char* name, int code, const double* a1, const double* a2, double* r));
VRX_OWN(void, own_vrxs_sError, (const char* name, int code, const float* a1, const float* a2, float* r));
VRX_OWN(void, own_vrxs_zError, (const char* name, int code, const double* a1, const double* a2, double* r));
VRX_OWN(void, own_vrxs_cError, (const char* name, int code, const float* a1, const float* a2, float* r));

// Reduction of a large finite argument by pi/2 with the long table of 2/pi:
// x = q*pi/2 + (rh + rl), |rh + rl| <= pi/4 (slightly above at most), q mod 4.
VRX_OWN(int, ownsReducePio2Large, (double x, double* rh, double* rl));

namespace n0::vm {

using D8 = __m512d;
using F16 = __m512;
using I16 = __m512i;

// ---------------------------------------------------------------- frame
// Reads MXCSR; when any exception is unmasked, masks all six for the run.
// At the end the x87 exceptions are cleared; the caller's word comes back
// when it was changed, otherwise the five low status flags are cleared and
// the precision flag stays.
class KernelFrame {
public:
    KernelFrame() : old_(_mm_getcsr()) {
        changed_ = (old_ & 0x1F80u) != 0x1F80u;
        if (changed_) _mm_setcsr(old_ | 0x1F80u);
    }
    ~KernelFrame() {
        // fnclex costs several times a status read: it runs only when an
        // x87 exception flag is up
        unsigned short sw;
        __asm__ __volatile__("fnstsw %0" : "=a"(sw)::"memory");
        if (VRX_UNLIKELY(sw & 0x80FFu)) __asm__ __volatile__("fnclex" ::: "memory");
        if (changed_) {
            _mm_setcsr(old_);
        } else {
            unsigned w = _mm_getcsr();
            if (w & 0x1Fu) _mm_setcsr(w & ~0x1Fu);
        }
    }
    KernelFrame(const KernelFrame&) = delete;
    KernelFrame& operator=(const KernelFrame&) = delete;
private:
    unsigned old_;
    bool changed_;
};

// Guard of the exported families that compute outside the tier kernels:
// when any exception is unmasked, all are masked for the call and the
// caller's word comes back whole; a fully masked word is left alone, so
// the flags of the arithmetic stay as IEEE arithmetic leaves them.
class TrapGuard {
public:
    TrapGuard() : old_(_mm_getcsr()) {
        changed_ = (old_ & 0x1F80u) != 0x1F80u;
        if (changed_) _mm_setcsr(old_ | 0x1F80u);
    }
    ~TrapGuard() {
        if (changed_) _mm_setcsr(old_);
    }
    TrapGuard(const TrapGuard&) = delete;
    TrapGuard& operator=(const TrapGuard&) = delete;
private:
    unsigned old_;
    bool changed_;
};

// ------------------------------------------------------------- doubles
VRX_INLINE D8 set1(double v) { return _mm512_set1_pd(v); }
VRX_INLINE D8 fma(D8 a, D8 b, D8 c) { return _mm512_fmadd_pd(a, b, c); }
VRX_INLINE D8 fms(D8 a, D8 b, D8 c) { return _mm512_fmsub_pd(a, b, c); }    // a*b - c
VRX_INLINE D8 fnma(D8 a, D8 b, D8 c) { return _mm512_fnmadd_pd(a, b, c); }  // c - a*b
VRX_INLINE D8 add(D8 a, D8 b) { return _mm512_add_pd(a, b); }
VRX_INLINE D8 sub(D8 a, D8 b) { return _mm512_sub_pd(a, b); }
VRX_INLINE D8 mul(D8 a, D8 b) { return _mm512_mul_pd(a, b); }
VRX_INLINE D8 div(D8 a, D8 b) { return _mm512_div_pd(a, b); }
VRX_INLINE D8 dmin(D8 a, D8 b) { return _mm512_min_pd(a, b); }
VRX_INLINE D8 dmax(D8 a, D8 b) { return _mm512_max_pd(a, b); }
VRX_INLINE D8 dabs(D8 a) { return _mm512_castsi512_pd(_mm512_and_epi64(_mm512_castpd_si512(a), _mm512_set1_epi64(0x7FFFFFFFFFFFFFFFll))); }
VRX_INLINE D8 signOf(D8 a) { return _mm512_castsi512_pd(_mm512_and_epi64(_mm512_castpd_si512(a), _mm512_set1_epi64(static_cast<long long>(0x8000000000000000ull)))); }
VRX_INLINE D8 xorp(D8 a, D8 b) { return _mm512_castsi512_pd(_mm512_xor_epi64(_mm512_castpd_si512(a), _mm512_castpd_si512(b))); }
VRX_INLINE D8 orp(D8 a, D8 b) { return _mm512_castsi512_pd(_mm512_or_epi64(_mm512_castpd_si512(a), _mm512_castpd_si512(b))); }
VRX_INLINE I16 asInt(D8 a) { return _mm512_castpd_si512(a); }
VRX_INLINE D8 asDbl(I16 a) { return _mm512_castsi512_pd(a); }
// x rounded to the nearest integer, ties to even, whatever the caller's mode.
VRX_INLINE D8 rint(D8 a) { return _mm512_roundscale_pd(a, _MM_FROUND_TO_NEAREST_INT | _MM_FROUND_NO_EXC); }
// Lanes whose |x| is not at most the limit (so also NaN).
VRX_INLINE __mmask8 notBelow(D8 ax, double limit) { return _mm512_cmp_pd_mask(ax, set1(limit), _CMP_NLE_UQ); }
// Two-sum of a and b: s + e == a + b exactly.
VRX_INLINE void twoSum(D8 a, D8 b, D8& s, D8& e) {
    s = add(a, b);
    D8 bb = sub(s, a);
    e = add(sub(a, sub(s, bb)), sub(b, bb));
}
VRX_INLINE void fastTwoSum(D8 a, D8 b, D8& s, D8& e) {
    s = add(a, b);
    e = sub(b, sub(s, a));
}
VRX_INLINE double lane0(D8 v) { return _mm512_cvtsd_f64(v); }

// ---------------------------------------------------------- float <-> double halves
VRX_INLINE D8 loHalf(F16 v) { return _mm512_cvtps_pd(_mm512_castps512_ps256(v)); }
VRX_INLINE D8 hiHalf(F16 v) {
    return _mm512_cvtps_pd(_mm256_castpd_ps(_mm512_extractf64x4_pd(_mm512_castps_pd(v), 1)));
}
VRX_INLINE F16 joinHalves(D8 lo, D8 hi) {
    __m256 a = _mm512_cvt_roundpd_ps(lo, _MM_FROUND_TO_NEAREST_INT | _MM_FROUND_NO_EXC);
    __m256 b = _mm512_cvt_roundpd_ps(hi, _MM_FROUND_TO_NEAREST_INT | _MM_FROUND_NO_EXC);
    return _mm512_castpd_ps(_mm512_insertf64x4(_mm512_castpd256_pd512(_mm256_castps_pd(a)), _mm256_castps_pd(b), 1));
}
VRX_INLINE float toFloat(double d) {
    return _mm_cvtss_f32(_mm_cvt_roundsd_ss(_mm_setzero_ps(), _mm_set_sd(d), _MM_FROUND_TO_NEAREST_INT | _MM_FROUND_NO_EXC));
}

VRX_INLINE __mmask8 tailMask8(int n) { return static_cast<__mmask8>((1u << n) - 1u); }
VRX_INLINE __mmask16 tailMask16(int n) { return static_cast<__mmask16>((1u << n) - 1u); }

// --------------------------------------------------------------- drivers
// Calls f(j, x[j]) for every lane j whose bit is set in rare.
template <class F> VRX_INLINE void eachRare(D8 x, unsigned rare, F f) {
    alignas(64) double t[8];
    _mm512_store_pd(t, x);
    for (; rare; rare &= rare - 1) {
        const int j = __builtin_ctz(rare);
        f(j, t[j]);
    }
}
template <class F> VRX_INLINE void eachRare(F16 x, unsigned rare, F f) {
    alignas(64) float t[16];
    _mm512_store_ps(t, x);
    for (; rare; rare &= rare - 1) {
        const int j = __builtin_ctz(rare);
        f(j, t[j]);
    }
}

// K::vec(D8 x, __mmask8& rare) -> D8 ; K::rare(double) -> double
template <class K>
VRX_INLINE VrxStatus runD1(const double* src, double* dst, int len) {
    if (len < 1) return vrxErrBadLength;
    if (!src || !dst) return vrxErrNullPtr;
    KernelFrame frame;
    int i = 0;
    auto fixRare = [&](D8 x, __mmask8 rare, int at) {
        eachRare(x, rare, [&](int j, double v) { dst[at + j] = K::rare(v); });
    };
    for (; i + 8 <= len; i += 8) {
        D8 x = _mm512_loadu_pd(src + i);
        __mmask8 rare;
        D8 y = K::vec(x, rare);
        _mm512_storeu_pd(dst + i, y);
        if (VRX_UNLIKELY(rare)) fixRare(x, rare, i);
    }
    if (i < len) {
        __mmask8 m = tailMask8(len - i);
        D8 x = _mm512_maskz_loadu_pd(m, src + i);
        __mmask8 rare;
        D8 y = K::vec(x, rare);
        rare &= m;
        _mm512_mask_storeu_pd(dst + i, m, y);
        if (VRX_UNLIKELY(rare)) fixRare(x, rare, i);
    }
    return vrxOk;
}

// Two outputs: K::vec(D8 x, D8& a, D8& b, __mmask8& rare); K::rare(double, double*, double*)
template <class K>
VRX_INLINE VrxStatus runD12(const double* src, double* dstA, double* dstB, int len) {
    if (len < 1) return vrxErrBadLength;
    if (!src || !dstA || !dstB) return vrxErrNullPtr;
    KernelFrame frame;
    auto fixRare = [&](D8 x, __mmask8 rare, int at) {
        eachRare(x, rare, [&](int j, double v) { K::rare(v, dstA + at + j, dstB + at + j); });
    };
    int i = 0;
    for (; i + 8 <= len; i += 8) {
        D8 x = _mm512_loadu_pd(src + i), a, b;
        __mmask8 rare;
        K::vec(x, a, b, rare);
        _mm512_storeu_pd(dstA + i, a);
        _mm512_storeu_pd(dstB + i, b);
        if (VRX_UNLIKELY(rare)) fixRare(x, rare, i);
    }
    if (i < len) {
        __mmask8 m = tailMask8(len - i);
        D8 x = _mm512_maskz_loadu_pd(m, src + i), a, b;
        __mmask8 rare;
        K::vec(x, a, b, rare);
        rare &= m;
        _mm512_mask_storeu_pd(dstA + i, m, a);
        _mm512_mask_storeu_pd(dstB + i, m, b);
        if (VRX_UNLIKELY(rare)) fixRare(x, rare, i);
    }
    return vrxOk;
}

// Floats computed in double: K::vec(D8 x, __mmask8& rare) -> D8 (double
// results, rounded to float here); K::rare(double) -> double.
template <class K>
VRX_INLINE VrxStatus runS1(const float* src, float* dst, int len) {
    if (len < 1) return vrxErrBadLength;
    if (!src || !dst) return vrxErrNullPtr;
    KernelFrame frame;
    auto fixRare = [&](D8 x, __mmask8 rare, int at) {
        eachRare(x, rare, [&](int j, double v) { dst[at + j] = toFloat(K::rare(v)); });
    };
    auto block = [&](int at, __mmask16 m) {
        F16 v = _mm512_maskz_loadu_ps(m, src + at);
        D8 lo = loHalf(v), hi = hiHalf(v);
        __mmask8 r0, r1;
        D8 ylo = K::vec(lo, r0), yhi = K::vec(hi, r1);
        _mm512_mask_storeu_ps(dst + at, m, joinHalves(ylo, yhi));
        r0 &= static_cast<__mmask8>(m);
        r1 &= static_cast<__mmask8>(m >> 8);
        if (VRX_UNLIKELY(r0 | r1)) {
            fixRare(lo, r0, at);
            fixRare(hi, r1, at + 8);
        }
    };
    int i = 0;
    for (; i + 16 <= len; i += 16) block(i, 0xFFFF);
    if (i < len) block(i, tailMask16(len - i));
    return vrxOk;
}

template <class K>
VRX_INLINE VrxStatus runS12(const float* src, float* dstA, float* dstB, int len) {
    if (len < 1) return vrxErrBadLength;
    if (!src || !dstA || !dstB) return vrxErrNullPtr;
    KernelFrame frame;
    auto fixRare = [&](D8 x, __mmask8 rare, int at) {
        eachRare(x, rare, [&](int j, double v) {
            double a, b;
            K::rare(v, &a, &b);
            dstA[at + j] = toFloat(a);
            dstB[at + j] = toFloat(b);
        });
    };
    auto block = [&](int at, __mmask16 m) {
        F16 v = _mm512_maskz_loadu_ps(m, src + at);
        D8 lo = loHalf(v), hi = hiHalf(v), alo, blo, ahi, bhi;
        __mmask8 r0, r1;
        K::vec(lo, alo, blo, r0);
        K::vec(hi, ahi, bhi, r1);
        _mm512_mask_storeu_ps(dstA + at, m, joinHalves(alo, ahi));
        _mm512_mask_storeu_ps(dstB + at, m, joinHalves(blo, bhi));
        r0 &= static_cast<__mmask8>(m);
        r1 &= static_cast<__mmask8>(m >> 8);
        if (VRX_UNLIKELY(r0 | r1)) {
            fixRare(lo, r0, at);
            fixRare(hi, r1, at + 8);
        }
    };
    int i = 0;
    for (; i + 16 <= len; i += 16) block(i, 0xFFFF);
    if (i < len) block(i, tailMask16(len - i));
    return vrxOk;
}

// Single precision in 16 lanes: K::vec(F16 x, __mmask16& rare) -> F16;
// K::rare(float) -> float.
template <class K>
VRX_INLINE VrxStatus runF1(const float* src, float* dst, int len) {
    if (len < 1) return vrxErrBadLength;
    if (!src || !dst) return vrxErrNullPtr;
    KernelFrame frame;
    auto fixRare = [&](F16 x, __mmask16 rare, int at) {
        eachRare(x, rare, [&](int j, float v) { dst[at + j] = K::rare(v); });
    };
    int i = 0;
    // two independent vectors a step
    for (; i + 32 <= len; i += 32) {
        F16 x0 = _mm512_loadu_ps(src + i), x1 = _mm512_loadu_ps(src + i + 16);
        __mmask16 r0, r1;
        F16 y0 = K::vec(x0, r0), y1 = K::vec(x1, r1);
        _mm512_storeu_ps(dst + i, y0);
        _mm512_storeu_ps(dst + i + 16, y1);
        if (VRX_UNLIKELY(r0 | r1)) {
            fixRare(x0, r0, i);
            fixRare(x1, r1, i + 16);
        }
    }
    for (; i < len; i += 16) {
        __mmask16 m = len - i >= 16 ? 0xFFFF : tailMask16(len - i);
        F16 x = _mm512_maskz_loadu_ps(m, src + i);
        __mmask16 rare;
        F16 y = K::vec(x, rare);
        rare &= m;
        _mm512_mask_storeu_ps(dst + i, m, y);
        if (VRX_UNLIKELY(rare)) fixRare(x, rare, i);
    }
    return vrxOk;
}

// K::vec(F16 x, F16& a, F16& b, __mmask16& rare); K::rare(float, float*, float*)
template <class K>
VRX_INLINE VrxStatus runF12(const float* src, float* dstA, float* dstB, int len) {
    if (len < 1) return vrxErrBadLength;
    if (!src || !dstA || !dstB) return vrxErrNullPtr;
    KernelFrame frame;
    auto block = [&](int at, __mmask16 m) {
        F16 x = _mm512_maskz_loadu_ps(m, src + at), a, b;
        __mmask16 rare;
        K::vec(x, a, b, rare);
        rare &= m;
        _mm512_mask_storeu_ps(dstA + at, m, a);
        _mm512_mask_storeu_ps(dstB + at, m, b);
        if (VRX_UNLIKELY(rare)) eachRare(x, rare, [&](int j, float v) { K::rare(v, dstA + at + j, dstB + at + j); });
    };
    int i = 0;
    for (; i + 16 <= len; i += 16) block(i, 0xFFFF);
    if (i < len) block(i, tailMask16(len - i));
    return vrxOk;
}

}  // namespace n0::vm
