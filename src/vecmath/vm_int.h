// Integer results of the exported families: the exact result scaled by
// 2^-sf, rounded once with ties to even and saturated once.
#pragma once

#include "vrx_base.h"
#include "vrx_round.h"
#include "vrx_scale.h"

#include <limits>

namespace n0::vm {

// v exact, |v| < 2^63
template <class T>
VRX_INLINE T scaleExact(int64_t v, int sf) {
    if (sf > 0) {
        if (sf > 64) return 0;
        return saturate<T, __int128>(roundShiftEven<__int128>(static_cast<__int128>(v), sf));
    }
    if (sf < 0 && v != 0) {
        if (sf <= -40) return v > 0 ? std::numeric_limits<T>::max() : std::numeric_limits<T>::min();
        return saturate<T, __int128>(static_cast<__int128>(v) << -sf);
    }
    return saturate<T, int64_t>(v);
}

// 2^-sf applied to a double by two exact factors, so that any scale
// factor works; the result only matters to integer precision.
VRX_INLINE double scaleBy(double r, int sf) {
    if (sf > 2000) sf = 2000;
    if (sf < -2000) sf = -2000;
    int a = -sf / 2, b = -sf - a;
    return r * __builtin_bit_cast(double, static_cast<uint64_t>(1023 + a) << 52) *
           __builtin_bit_cast(double, static_cast<uint64_t>(1023 + b) << 52);
}

// Rounds to nearest with ties to even and saturates; NaN gives 0.
template <class T>
VRX_INLINE T roundSat(double r) {
    if (r != r) return 0;
    r = roundEven(r);
    constexpr double lo = static_cast<double>(std::numeric_limits<T>::min());
    constexpr double hi = static_cast<double>(std::numeric_limits<T>::max());
    if (r <= lo) return std::numeric_limits<T>::min();
    if (r >= hi) return std::numeric_limits<T>::max();
    return static_cast<T>(r);
}

}  // namespace n0::vm
