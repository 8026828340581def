// Shared floating-point constants: the non-finite results of the logarithm
// sums. The NaNs are quiet NaNs with the sign bit set, as stored.
#include "vrx_consts.h"

extern "C" {
const uint64_t n0_vrxConstantOfNAN_64f = 0xFFF8000000000000ull;
const uint64_t n0_vrxConstantOfINF_64f = 0x7FF0000000000000ull;
const uint64_t n0_vrxConstantOfINF_NEG_64f = 0xFFF0000000000000ull;
const uint32_t n0_vrxConstantOfNAN_32f = 0xFFC00000u;
const uint32_t n0_vrxConstantOfINF_32f = 0x7F800000u;
const uint32_t n0_vrxConstantOfINF_NEG_32f = 0xFF800000u;
}
