// Common ground of the vector math kernels: the register types of the SIMD
// layer under short names, the few helpers of floating-point arithmetic
// that the kernels share, written against the layer, and the drivers
// (vrx_lanes.h) and control-word scopes (vrx_fpu.h) they run under.
#pragma once

#include "simd/simd.h"
#include "vrx_base.h"
#include "vrx_fpu.h"
#include "vrx_lanes.h"

// Error hooks of the rare-case routines: empty, no record survives.
VRX_OWN(void, own_vrxs_dError, (const char* name, int code, const double* a1, const double* a2, double* r));
VRX_OWN(void, own_vrxs_sError, (const char* name, int code, const float* a1, const float* a2, float* r));
VRX_OWN(void, own_vrxs_zError, (const char* name, int code, const double* a1, const double* a2, double* r));
VRX_OWN(void, own_vrxs_cError, (const char* name, int code, const float* a1, const float* a2, float* r));

// Reduction of a large finite argument by pi/2 with the long table of 2/pi:
// x = q*pi/2 + (rh + rl), |rh + rl| <= pi/4 (slightly above at most), q mod 4.
VRX_OWN(int, ownsReducePio2Large, (double x, double* rh, double* rl));

namespace n0::vm {

namespace simd = n0::simd;
using D = simd::V<double>;
using F = simd::V<float>;
using I64 = simd::V<int64_t>;
using I32 = simd::V<int32_t>;
using U32 = simd::V<uint32_t>;
using D8 = D::R;
using F16 = F::R;
using VI = __m512i;

// The control-word scopes of the kernels (vrx_fpu.h).
using n0::KernelFrame;
using n0::StickyFlagGuard;
using n0::TrapGuard;

// The frame of the exported families: the pointers checked (null is -8),
// then the length (below one is -6), then body() with every exception
// masked (TrapGuard). Its status is the call's; vrxOk when it returns
// nothing.
template <size_t N, class Body>
VRX_INLINE VrxStatus trapped(int len, const void* const (&ptrs)[N], Body body) {
    for (const void* p : ptrs)
        if (!p) return vrxErrNullPtr;
    if (len < 1) return vrxErrBadLength;
    TrapGuard trapGuard;
    if constexpr (std::is_void_v<decltype(body())>) {
        body();
        return vrxOk;
    } else {
        return body();
    }
}

// A double result in T: rounded once to nearest for float.
template <class T>
VRX_INLINE T narrow(double v) {
    if constexpr (sizeof(T) == 4) return toFloat(v);
    else return v;
}

// The sign bit of each lane.
VRX_INLINE D8 signOf(D8 a) { return D::andb(a, D::set1(-0.0)); }
VRX_INLINE F16 signOf(F16 a) { return F::andb(a, F::set1(-0.0f)); }
// Lanes whose |x| is not at most the limit (so also NaN).
VRX_INLINE __mmask8 notBelow(D8 ax, double limit) { return D::nle(ax, D::set1(limit)); }
// The integer bits of an integer-valued double n, |n| < 2^51, in the low
// bits of its lane.
VRX_INLINE VI intBits(D8 n) { return simd::bitsOf(D::add(n, D::set1(6755399441055744.0))); }
// Entry idx of a 16-entry table (64-byte aligned) in each lane.
VRX_INLINE D8 lookup16(const double* t, VI idx) { return D::permute2(D::loada(t), idx, D::loada(t + 8)); }
// Two-sum of a and b: s + e == a + b exactly.
VRX_INLINE void twoSum(D8 a, D8 b, D8& s, D8& e) {
    s = D::add(a, b);
    D8 bb = D::sub(s, a);
    e = D::add(D::sub(a, D::sub(s, bb)), D::sub(b, bb));
}
// The same for |a| >= |b|.
VRX_INLINE void fastTwoSum(D8 a, D8 b, D8& s, D8& e) {
    s = D::add(a, b);
    e = D::sub(b, D::sub(s, a));
}

}  // namespace n0::vm
