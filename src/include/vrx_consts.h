// Shared floating-point constants (bit patterns) and readers for them.
#pragma once

#include "vrx_base.h"

#include <string.h>

extern "C" {
__attribute__((visibility("hidden"))) extern const uint64_t n0_vrxConstantOfNAN_64f;
__attribute__((visibility("hidden"))) extern const uint64_t n0_vrxConstantOfINF_64f;
__attribute__((visibility("hidden"))) extern const uint64_t n0_vrxConstantOfINF_NEG_64f;
__attribute__((visibility("hidden"))) extern const uint32_t n0_vrxConstantOfNAN_32f;
__attribute__((visibility("hidden"))) extern const uint32_t n0_vrxConstantOfINF_32f;
__attribute__((visibility("hidden"))) extern const uint32_t n0_vrxConstantOfINF_NEG_32f;
}

namespace n0 {
VRX_INLINE double constant64f(const uint64_t& bits) { double d; memcpy(&d, &bits, 8); return d; }
VRX_INLINE float constant32f(const uint32_t& bits) { float f; memcpy(&f, &bits, 4); return f; }
}  // namespace n0
