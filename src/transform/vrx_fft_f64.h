// Double-precision pieces of the complex FFT engine.
//
// Interleaved double plans of the radix engine keep the positions of each
// group of eight in the lane order pairLane (0, 4, 1, 5, 2, 6, 3, 7): the
// first pass writes them so by taking its rows in that order, the factor
// table of every pass at s >= 3 holds them in the same order, and the last
// pass stores by in-lane unpacks instead of two index permutes per group.
// Every position sees the same operations as in natural order: same bits.
#pragma once

#include "vrx_fft.h"
#include "vrx_fft_simd.h"
#include "vrx_layout.h"

namespace n0::fft {

// Plans whose radix-engine factors stand in the paired lane order.
constexpr bool pairedKind(ObjId id) { return id == ObjId::FftC64fc; }
template <class T> VRX_INLINE bool pairedPlan(const Plan* p) {
    return sizeof(T) == 8 && p->idWord == idWord(ObjId::FftC64fc);
}

// The R rows of a first-pass butterfly, each group of eight rows reordered
// so that row 8g + q is the former row 8g + pairLane(q).
template <class CV, int R> VRX_INLINE void pairGroups(CV* a) {
    static_assert(R % 8 == 0, "whole groups of eight");
#pragma GCC unroll 2
    for (int g = 0; g < R / 8; ++g) {
        CV t[8];
#pragma GCC unroll 8
        for (int q = 0; q < 8; ++q) t[q] = a[8 * g + pairLane<double>(q)];
#pragma GCC unroll 8
        for (int q = 0; q < 8; ++q) a[8 * g + q] = t[q];
    }
}

}  // namespace n0::fft
