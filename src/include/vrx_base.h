// Internal base of the n0 build: every implementation includes this first.
//
// The public header's export lines are read here as declarations of the local
// implementations n0_vrxsX (hidden, C linkage). Exported stubs jump to them;
// inside the library functions call each other through N0(vrxsX) directly.
#pragma once

#define VRXAPI(ret, name, args) __attribute__((visibility("hidden"))) ret n0_##name args;
#include "vrxs.h"
#include "vrxcore.h"

#include <stddef.h>
#include <stdint.h>

// Name of an implementation or internal routine in this build.
#define N0(name) n0_##name

// Declares an internal routine with C linkage (own*, owns*, ps_*, vrx_*).
#define VRX_OWN(ret, name, args) \
    extern "C" __attribute__((visibility("hidden"))) ret n0_##name args

#define VRX_INLINE inline __attribute__((always_inline))

// An unroll hint for a loop: VRX_UNROLL(8) before it. The instrumented
// builds (address and thread sanitizers) drop it: clang at -O1 honours the
// hints too, and fully unrolled kernels with every access checked took it
// over twenty minutes for one file. The results do not depend on it.
#define VRX_PRAGMA(x) _Pragma(#x)
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
#define VRX_UNROLL(n)
#elif defined(__has_feature)
#if __has_feature(address_sanitizer) || __has_feature(thread_sanitizer)
#define VRX_UNROLL(n)
#endif
#endif
#ifndef VRX_UNROLL
#define VRX_UNROLL(n) VRX_PRAGMA(GCC unroll n)
#endif
#define VRX_LIKELY(x) __builtin_expect(!!(x), 1)
#define VRX_UNLIKELY(x) __builtin_expect(!!(x), 0)

namespace n0 {

// The common argument check: pointers in argument order (null is -8), then
// the length below one (-6). Use as
//     if (VrxStatus st = checkArgs(len, pSrc, pDst)) return st;
template <class... P>
VRX_INLINE VrxStatus checkArgs(int len, const P*... ptrs) {
    if (((ptrs == nullptr) || ...)) return vrxErrNullPtr;
    if (len < 1) return vrxErrBadLength;
    return vrxOk;
}

template <class... P>
VRX_INLINE bool anyNull(const P*... ptrs) {
    return ((ptrs == nullptr) || ...);
}

template <class T>
VRX_INLINE T* addBytes(T* p, size_t n) {
    return reinterpret_cast<T*>(reinterpret_cast<uintptr_t>(p) + n);
}

VRX_INLINE uintptr_t addr(const void* p) { return reinterpret_cast<uintptr_t>(p); }

}  // namespace n0
