// Internals of the FFT: the plan record, its kinds and limits, the size
// rules, and the engine entries shared by the complex and real transforms.
#pragma once

#include "vrx_base.h"

#include <stdint.h>
#include <string.h>

namespace n0::fft {

// The plan header. It sits on a 64-byte boundary of the caller's block; the
// tables follow it in the same block.
struct Plan {
    int32_t idWord;
    int32_t order;
    int32_t fwdNorm;
    int32_t invNorm;
    union { float f; double d; } normScale;
    int32_t algHint;
    int32_t workSize;      // bytes of work buffer, without the 64 bytes of slack
    int32_t cleared;
    int32_t reserved;
    int32_t* bitRevTab;
    void* twiddleTab;
    void* recombFwdTab;
    void* recombInvTab;
    void* stepTab[3];
};
static_assert(sizeof(Plan) == 96, "plan header must stay within the fixed slack of the size rules");

VRX_INLINE uintptr_t align64(uintptr_t a) { return (a + 63) & ~uintptr_t(63); }
template <class T> VRX_INLINE T* align64(T* p) { return reinterpret_cast<T*>(align64(reinterpret_cast<uintptr_t>(p))); }
constexpr int32_t a64(int64_t x) { return static_cast<int32_t>((x + 63) & ~int64_t(63)); }

// The low `bits` bits of x in reverse order.
VRX_INLINE uint32_t revBits(uint32_t x, int bits) {
    if (bits <= 0) return 0;
    x = ((x >> 1) & 0x55555555u) | ((x & 0x55555555u) << 1);
    x = ((x >> 2) & 0x33333333u) | ((x & 0x33333333u) << 2);
    x = ((x >> 4) & 0x0F0F0F0Fu) | ((x & 0x0F0F0F0Fu) << 4);
    x = __builtin_bswap32(x);
    return x >> (32 - bits);
}

// Per-width constants of the engine.
template <class T> struct Limits;
template <> struct Limits<float> {
    static constexpr int kRadixLast = 18;      // highest order of the radix engine alone
    static constexpr int kTileOrder = 6;       // large path: 64 x 64 tiles
    static constexpr int kMinWork = 65536;     // two tiles
    static constexpr int kChunk = 2048;        // complex elements of a cache chunk
    static constexpr int kChunkLog = 11;
    static constexpr int kLargeFirst = 19;
};
template <> struct Limits<double> {
    static constexpr int kRadixLast = 17;
    static constexpr int kTileOrder = 5;       // 32 x 32 tiles
    static constexpr int kMinWork = 32768;
    static constexpr int kChunk = 1024;
    static constexpr int kChunkLog = 10;
    static constexpr int kLargeFirst = 18;
};

// Large-path order tables: block order and buffer order by complex order.
template <class T> constexpr int blockOrder(int m) {
    return (m < Limits<T>::kLargeFirst) ? 0 : (m <= Limits<T>::kLargeFirst + 3 ? 4 : 8);
}
template <class T> constexpr int bufferOrder(int m) {
    int b = blockOrder<T>(m);
    if (b == 0) return 0;
    return (sizeof(T) == 4 ? 10 : 9) + (b == 8 ? 4 : 0);
}

// Recombination tables of real plans: one level up to a half length of
// 2^17 (single) or 2^15 (double), two levels above, with kRecombFine fine
// factors and one coarse factor per kRecombFine values of k.
constexpr int kRecombFine = 512;
template <class T> constexpr bool recombTwoLevel(int order) { return sizeof(T) == 4 ? order >= 19 : order >= 17; }

// Table builders and the engine (templates instantiated for float and
// double in the engine modules).
template <class T> struct Cx { T re, im; };

// sin(2*pi*j/R) for j = 0 .. R/4 with R = 2^tabOrder.
template <class T> struct SineTab {
    const T* tab;
    int tabOrder;
    // cos and sin of 2*pi*j/2^ord for any j (ord <= tabOrder).
    VRX_INLINE void cosSin(int64_t j, int ord, T& c, T& s) const {
        int64_t R = int64_t(1) << tabOrder;
        int64_t q = (j << (tabOrder - ord)) & (R - 1);
        int64_t Q = R >> 2;
        int quad = static_cast<int>(q / Q);
        int64_t r = q - quad * Q;
        T sv = tab[r], cv = tab[Q - r];
        switch (quad) {
            case 0: c = cv; s = sv; break;
            case 1: c = -sv; s = cv; break;
            case 2: c = -cv; s = -sv; break;
            default: c = sv; s = -cv; break;
        }
    }
};

// One pass of the radix engine: merges blocks of 2^s values by radix 2^t.
struct PassStep {
    int s, t;
};

// Builds the radix engine's bit-reversal table for order m.
void initTabBitRevNorm(int m, int32_t* tab);
// Builds the radix engine's per-pass twiddle table for order m.
template <class T> void initTabTwdL1(int m, const SineTab<T>& st, Cx<T>* dst);
// Builds the large path's tables of order m at the plan's bitRevTab,
// twiddleTab and stepTab (placed by planLayout in vrx_fft_layout.h).
template <class T> void initTabTwdLarge(const Plan* plan, int m, const SineTab<T>& st);

// Radix engine on a block of 2^m values already in bit-reversed order (the
// rows of the large path), in place at p; work holds 2^m values.
template <class T, bool Inv> void radixBlock(int m, const Cx<T>* tw, Cx<T>* p, Cx<T>* work);
// The large path for complex order m (above the radix engine's last order).
template <class T, bool Inv>
void largeRun(const Plan* plan, int m, const T* srcRe, const T* srcIm, T* dstRe, T* dstIm, bool split,
              T scale, uint8_t* work);

// Straight-line complex kernels of order m <= 6 (scale applied when nonzero).
template <class T, bool Inv> void smallComplex(int m, const Cx<T>* src, Cx<T>* dst, T scale);

// Complex transform of order m over the plan's tables. Data layouts: the
// interleaved form (re pointer only, im null) or split arrays. The scale is
// applied when scale != 0.
template <class T, bool Inv>
void complexTransform(const Plan* plan, int m, const T* srcRe, const T* srcIm, T* dstRe, T* dstIm,
                      bool split, T scale, uint8_t* work);

}  // namespace n0::fft
