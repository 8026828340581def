// Scalar rounding to an integer value that does not depend on the caller's
// rounding mode.
#pragma once

#include <immintrin.h>

#include "vrx_base.h"

namespace n0 {

// x rounded to an integer value, ties to even, whatever the caller's
// rounding mode and with no exception flag: one rounding instruction (the
// compilers' roundeven builtin is not in every compiler the tree builds with).
VRX_INLINE double roundEven(double x) {
    return _mm_cvtsd_f64(_mm_round_sd(_mm_setzero_pd(), _mm_set_sd(x), _MM_FROUND_TO_NEAREST_INT | _MM_FROUND_NO_EXC));
}

}  // namespace n0
