// The scale-factor rule shared by every Sfs function: the exact result,
// held in a wide type, is multiplied by 2^-sf, rounded once to nearest with
// ties to even, and saturated once to the destination type.
#pragma once

#include "vrx_base.h"

#include <limits>

namespace n0 {

// r * 2^-sf for sf > 0, rounded to nearest, ties to even:
//   q = r >> sf; w = r + (2^(sf-1) - 1) + (q & 1); result = w >> sf.
// The caller keeps sf below the width of W and r + 2^(sf-1) inside W.
template <class W>
VRX_INLINE W roundShiftEven(W r, int sf) {
    W q = r >> sf;
    W w = r + ((W(1) << (sf - 1)) - 1) + (q & 1);
    return w >> sf;
}

// Clamps a wide value to the range of T.
template <class T, class W>
VRX_INLINE T saturate(W v) {
    constexpr W lo = static_cast<W>(std::numeric_limits<T>::min());
    constexpr W hi = static_cast<W>(std::numeric_limits<T>::max());
    return static_cast<T>(v < lo ? lo : (v > hi ? hi : v));
}

}  // namespace n0
