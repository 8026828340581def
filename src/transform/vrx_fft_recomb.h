// The layout of the recombination tables of real plans, shared by the
// builder (psfftinit.cpp) and the recombination (psfftr.cpp).
#pragma once

#include "vrx_fft.h"

namespace n0::fft {

// Double precision with one level (inverse tables, and forward tables
// of orders 8 to 10, 15 and 16): blocks of eight values of k (k = 1 +
// 8g .. 8 + 8g), the eight first factors then the eight second ones, lane
// i of a block holding k = 1 + 8g + kLaneK(i). The order is the one the
// in-lane unpacks of two registers of interleaved values leave (0, 4, 1,
// 5, 2, 6, 3, 7), so that the factors load as they are. Every other table
// stores its factors in pairs by two: first(k), first(k+1), second(k),
// second(k+1) for k = 1, 3, 5, ...
template <class T> inline constexpr bool kOneLevelPlanar = sizeof(T) == 8;
template <class T> constexpr bool recombPlanar(int order) { return kOneLevelPlanar<T> && !recombTwoLevel<T>(order); }

constexpr int kLaneK(int i) { return (i >> 1) + ((i & 1) ? 4 : 0); }
// the lane of k within its block (inverse of kLaneK)
constexpr int kSlotOf(int j) { return j < 4 ? 2 * j : 2 * (j - 4) + 1; }
constexpr bool slotsInverse() {
    for (int i = 0; i < 8; ++i)
        if (kSlotOf(kLaneK(i)) != i) return false;
    return true;
}
static_assert(slotsInverse(), "lane and slot orders of a block disagree");

// Forward tables of double precision from order 11 to 14, whose
// half-length transform leaves its result in the group form (psfftcore.cpp
// radixToGroups): blocks of eight values of k = 8g .. 8g + 7 in natural
// order, the eight first factors then the eight second ones; k = 0 has no
// factors and its slots hold those of k = N/4. From order 15 the work
// buffer and the destination together outgrow the second-level cache (on
// a family-25 processor orders 15 and 16 ran 4 to 5% slower so) and the
// transform stays in place in the destination. Order 10 takes the two
// steps of complex order 9 (vrx_fft_f64.h order9d), which outrun the
// radix engine, and the planar table.
template <class T> constexpr bool recombGroupsFwd(int order) { return sizeof(T) == 8 && order >= 11 && order <= 14; }
VRX_INLINE void groupSlots(int64_t k, int64_t q, int64_t& a, int64_t& b) {
    const int64_t j = k == q ? 0 : k;
    a = 16 * (j >> 3) + (j & 7);
    b = a + 8;
}

// Positions of the two factors of k (k >= 1) in a table of either layout.
template <bool Planar> VRX_INLINE void recombSlots(int64_t k, int64_t& a, int64_t& b) {
    if constexpr (Planar) {
        const int64_t g = (k - 1) >> 3;
        a = 16 * g + kSlotOf(static_cast<int>((k - 1) & 7));
        b = a + 8;
    } else {
        const int64_t g = (k - 1) >> 1, odd = (k - 1) & 1;
        a = 4 * g + odd;
        b = 4 * g + 2 + odd;
    }
}

// The radix engine of order m from interleaved src, its result in the
// group form in work (psfftcore.cpp; forward double precision only).
template <class T, bool Inv> void radixToGroups(const Plan* plan, int m, const Cx<T>* src, Cx<T>* work);

}  // namespace n0::fft
