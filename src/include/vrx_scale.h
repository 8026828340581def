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

namespace n0 {

// r * 2^k for k >= 0, saturated to T without ever forming an overflowing
// shift: the value is compared with the largest and smallest values that
// survive the shift first. Any k is allowed.
template <class T, class W>
VRX_INLINE T shiftLeftSaturate(W r, int k) {
    constexpr W lo = static_cast<W>(std::numeric_limits<T>::min());
    constexpr W hi = static_cast<W>(std::numeric_limits<T>::max());
    constexpr int wbits = static_cast<int>(sizeof(W) * 8) - 1;
    if (r == 0) return T(0);
    if (k >= wbits) return static_cast<T>(r > 0 ? hi : lo);
    const W hiK = hi >> k;
    const W loK = -((-lo) >> k);
    if (r > hiK) return static_cast<T>(hi);
    if (r < loK) return static_cast<T>(lo);
    return static_cast<T>(r << k);
}

// The whole rule for an exact wide result: rounding by 2^-sf with ties to
// even for sf > 0, a saturating shift for sf < 0, then saturation.
template <class T, class W>
VRX_INLINE T scaleSaturate(W r, int sf) {
    if (sf > 0) return saturate<T>(roundShiftEven(r, sf));
    if (sf < 0) return shiftLeftSaturate<T>(r, -sf);
    return saturate<T>(r);
}

// The saturated answer below the lower limit: the bound that the sign of
// the unscaled result selects, zero for zero.
template <class T, class W>
VRX_INLINE T boundBySign(W r) {
    if (r > 0) return std::numeric_limits<T>::max();
    if (r < 0) return std::numeric_limits<T>::min();
    return T(0);
}

}  // namespace n0
