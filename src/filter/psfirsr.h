// Single-rate FIR: the state header and the run entry that the multi-rate
// filter reuses for its factor-1 form.
#pragma once

#include "vrx_filter.h"

namespace n0::firsr {

// The 128-byte header at the first 64-byte boundary of the caller's block.
// tapsLen comes first; the arranged taps lie right behind the header.
// Real forms: word16 is the layout (0 vertical, 1 horizontal), word20 the
// algorithm; complex forms keep the algorithm in word16.
struct Head {
    int32_t tapsLen;
    void* pTaps;
    int32_t word16;
    int32_t word20;
    void* pFftSpec;
    void* pFftSpecMem;
    void* pFftWork;
    void* pTapsSpectrum;
    int32_t fftLen;
};
static_assert(sizeof(Head) <= 128);

constexpr int kHeadBytes = 128;
constexpr int kStageBytes = 32768;

VRX_INLINE Head* headOf(const void* spec) {
    return reinterpret_cast<Head*>((addr(spec) + 63) & ~uintptr_t(63));
}

}  // namespace n0::firsr
