// Move: copies that are right for overlapping vectors, by direction alone.
// A source below the destination is copied from the end, whether or not the
// two overlap; otherwise from the start.
// Raw 256-bit AVX2 registers, as in every block-move engine (vrx_memops.h).
#include "vrx_memops.h"

using namespace n0;

namespace {

// From the end. The first and last 32 bytes are loaded before anything is
// stored; rounds of 128 bytes store 32-byte aligned blocks of the destination.
void moveBackward(const Vrx8u* s, Vrx8u* d, size_t n) {
    __m256i head = ld32(s), tail = ld32(s + n - 32);
    size_t k = n - ((addr(d) + n) & 31);  // end of the aligned part
    for (; k >= 128 + 32; k -= 128) {
        __m256i a = ld32(s + k - 32), b = ld32(s + k - 64), c = ld32(s + k - 96), e = ld32(s + k - 128);
        st32a(d + k - 32, a); st32a(d + k - 64, b); st32a(d + k - 96, c); st32a(d + k - 128, e);
    }
    for (; k > 32; k -= 32) st32(d + k - 32, ld32(s + k - 32));
    st32(d + n - 32, tail);
    st32(d, head);
}

// From the start, for a source at or above the destination.
void moveForward(const Vrx8u* s, Vrx8u* d, size_t n) {
    __m256i head = ld32(s), tail = ld32(s + n - 32);
    size_t k = 32 - (addr(d) & 31);  // start of the aligned part
    for (; k + 128 + 32 <= n; k += 128) {
        __m256i a = ld32(s + k), b = ld32(s + k + 32), c = ld32(s + k + 64), e = ld32(s + k + 96);
        st32a(d + k, a); st32a(d + k + 32, b); st32a(d + k + 64, c); st32a(d + k + 96, e);
    }
    for (; k + 32 < n; k += 32) st32(d + k, ld32(s + k));
    st32(d, head);
    st32(d + n - 32, tail);
}

}  // namespace

void N0(ownsMove_8u)(const Vrx8u* s, Vrx8u* d, size_t n) {
    if (n < kLadderCeiling) {
        copySmall(s, d, n);
    } else if (s < d) {
        moveBackward(s, d, n);
    } else if (n >= kCopySmallLimit) {
        N0(ownsCopy_8u_repE9)(s, d, n);  // forward string copy: loads run ahead of stores
    } else if (n < kCopyBackwardFloor && addr(s) - addr(d) > 256) {
        N0(ownsCopy_8u_E9)(s, d, n);     // its rounds read 256 bytes ahead of what they store
    } else {
        moveForward(s, d, n);
    }
}

namespace {

__attribute__((noinline)) VrxStatus moveLarge(const Vrx8u* s, Vrx8u* d, size_t n) {
    N0(ownsMove_8u)(s, d, n);
    return vrxOk;
}

template <class T>
VRX_INLINE VrxStatus moveTyped(const T* pSrc, T* pDst, int len) {
    if (VrxStatus st = checkArgs(len, pSrc, pDst)) return st;
    const Vrx8u* s = reinterpret_cast<const Vrx8u*>(pSrc);
    Vrx8u* d = reinterpret_cast<Vrx8u*>(pDst);
    size_t n = static_cast<size_t>(len) * sizeof(T);
    if (VRX_LIKELY(n < kLadderCeiling)) {
        copySmall(s, d, n);
        return vrxOk;
    }
    return moveLarge(s, d, n);
}

}  // namespace

VrxStatus N0(vrxsMove_8u)(const Vrx8u* pSrc, Vrx8u* pDst, int len) { return moveTyped(pSrc, pDst, len); }
VrxStatus N0(vrxsMove_16s)(const Vrx16s* pSrc, Vrx16s* pDst, int len) { return moveTyped(pSrc, pDst, len); }
VrxStatus N0(vrxsMove_32s)(const Vrx32s* pSrc, Vrx32s* pDst, int len) { return moveTyped(pSrc, pDst, len); }
VrxStatus N0(vrxsMove_32f)(const Vrx32f* pSrc, Vrx32f* pDst, int len) { return moveTyped(pSrc, pDst, len); }
VrxStatus N0(vrxsMove_16sc)(const Vrx16sc* pSrc, Vrx16sc* pDst, int len) { return moveTyped(pSrc, pDst, len); }
VrxStatus N0(vrxsMove_64s)(const Vrx64s* pSrc, Vrx64s* pDst, int len) { return moveTyped(pSrc, pDst, len); }
VrxStatus N0(vrxsMove_64f)(const Vrx64f* pSrc, Vrx64f* pDst, int len) { return moveTyped(pSrc, pDst, len); }
VrxStatus N0(vrxsMove_32sc)(const Vrx32sc* pSrc, Vrx32sc* pDst, int len) { return moveTyped(pSrc, pDst, len); }
VrxStatus N0(vrxsMove_32fc)(const Vrx32fc* pSrc, Vrx32fc* pDst, int len) { return moveTyped(pSrc, pDst, len); }
VrxStatus N0(vrxsMove_64sc)(const Vrx64sc* pSrc, Vrx64sc* pDst, int len) { return moveTyped(pSrc, pDst, len); }
VrxStatus N0(vrxsMove_64fc)(const Vrx64fc* pSrc, Vrx64fc* pDst, int len) { return moveTyped(pSrc, pDst, len); }
