// What the median test and its fuzz target share: the entries by element
// type, and the order of the filter written from the values.
#pragma once

#include <math.h>
#include <string.h>

#include <type_traits>

#include "vrxs.h"

namespace med {

template <class E> struct Api;
#define MEDIAN_API(E, sfx, code)                                                                     \
    template <> struct Api<E> {                                                                      \
        static constexpr VrxDataType kType = code;                                                   \
        static VrxStatus run(const E* s, E* d, int n, int m, const E* ds, E* dd, Vrx8u* b) {        \
            return vrxsFilterMedian_##sfx(s, d, n, m, ds, dd, b);                                    \
        }                                                                                            \
        static VrxStatus runI(E* sd, int n, int m, const E* ds, E* dd, Vrx8u* b) {                  \
            return vrxsFilterMedian_##sfx##_I(sd, n, m, ds, dd, b);                                  \
        }                                                                                            \
    };
MEDIAN_API(Vrx8u, 8u, vrx8u)
MEDIAN_API(Vrx16u, 16u, vrx16u)
MEDIAN_API(Vrx16s, 16s, vrx16s)
MEDIAN_API(Vrx32f, 32f, vrx32f)
MEDIAN_API(Vrx64f, 64f, vrx64f)
#undef MEDIAN_API

// NaN above everything (positive NaNs below negative ones, then by bits),
// -0 below +0; integers by value.
template <class E> bool before(E a, E b) {
    if constexpr (std::is_floating_point_v<E>) {
        const bool na = isnan(a), nb = isnan(b);
        if (na || nb) {
            if (!na || !nb) return !na;
            if (signbit(a) != signbit(b)) return !signbit(a);
            using U = std::conditional_t<sizeof(E) == 4, uint32_t, uint64_t>;
            U x, y;
            memcpy(&x, &a, sizeof x);
            memcpy(&y, &b, sizeof y);
            return x < y;
        }
        if (a == b) return signbit(a) && !signbit(b);
    }
    return a < b;
}

}  // namespace med
