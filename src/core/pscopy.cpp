// Copy: the byte engines and the typed vrxsCopy_* layer. Source and
// destination must not overlap (use vrxsMove_* for that).
// The engines only move bytes: they work on raw 256-bit AVX2 registers
// (vrx_memops.h), which the SIMD layer allows for move-only kernels; their
// stores are at most 32 bytes wide by design.
#include "vrx_cache.h"
#include "vrx_memops.h"

using namespace n0;

// Small engine. Below 256 bytes: overlapping blocks from both ends. From 256
// bytes: one unaligned 32-byte block, then 32-byte aligned stores in rounds
// of 256 bytes (128 from 16 KiB on, where the loop is bound by memory), and
// the last up to 255 bytes as blocks that end at the end.
void N0(ownsCopy_8u_E9)(const Vrx8u* s, Vrx8u* d, size_t n) {
    if (n < kLadderCeiling) {
        copySmall(s, d, n);
        return;
    }
    __m256i head = ld32(s);
    size_t k = 32 - (addr(d) & 31);
    if (n < kCopyBackwardFloor) {
        for (; k + 256 <= n; k += 256) {
            __m256i a = ld32(s + k), b = ld32(s + k + 32), c = ld32(s + k + 64), e = ld32(s + k + 96);
            __m256i f = ld32(s + k + 128), g = ld32(s + k + 160), h = ld32(s + k + 192), m = ld32(s + k + 224);
            st32a(d + k, a); st32a(d + k + 32, b); st32a(d + k + 64, c); st32a(d + k + 96, e);
            st32a(d + k + 128, f); st32a(d + k + 160, g); st32a(d + k + 192, h); st32a(d + k + 224, m);
        }
    }
    for (; k + 128 <= n; k += 128) {
        __m256i a = ld32(s + k), b = ld32(s + k + 32), c = ld32(s + k + 64), e = ld32(s + k + 96);
        st32a(d + k, a); st32a(d + k + 32, b); st32a(d + k + 64, c); st32a(d + k + 96, e);
    }
    st32(d, head);
    if (k < n) {
        // fewer than 128 bytes are left; finish with blocks ending at n
        size_t left = n - k;
        if (left > 64) { st32(d + n - 128, ld32(s + n - 128)); st32(d + n - 96, ld32(s + n - 96)); }
        if (left > 32) st32(d + n - 64, ld32(s + n - 64));
        st32(d + n - 32, ld32(s + n - 32));
    }
}

// String-instruction copy at the widest unit (8, 4, 2 or 1 bytes) at which
// source and destination can both be aligned. The direction flag is saved,
// cleared and restored.
void N0(ownsCopy_8u_repE9)(const Vrx8u* s, Vrx8u* d, size_t n) {
    unsigned rel = static_cast<unsigned>(addr(s) ^ addr(d));
    size_t unit = (rel & 7) == 0 ? 8 : (rel & 3) == 0 ? 4 : (rel & 1) == 0 ? 2 : 1;
    size_t head = (unit - (addr(d) & (unit - 1))) & (unit - 1);
    if (head > n) head = n;
    for (size_t i = 0; i < head; ++i) d[i] = s[i];
    s += head; d += head; n -= head;
    size_t count = n / unit;
    size_t tail = n - count * unit;
    const void* si = s;
    void* di = d;
    switch (unit) {
    case 8:
        __asm__ volatile("pushfq\n\tcld\n\trep movsq\n\tpopfq" : "+S"(si), "+D"(di), "+c"(count) : : "memory", "cc");
        break;
    case 4:
        __asm__ volatile("pushfq\n\tcld\n\trep movsl\n\tpopfq" : "+S"(si), "+D"(di), "+c"(count) : : "memory", "cc");
        break;
    case 2:
        __asm__ volatile("pushfq\n\tcld\n\trep movsw\n\tpopfq" : "+S"(si), "+D"(di), "+c"(count) : : "memory", "cc");
        break;
    default:
        __asm__ volatile("pushfq\n\tcld\n\trep movsb\n\tpopfq" : "+S"(si), "+D"(di), "+c"(count) : : "memory", "cc");
        break;
    }
    const Vrx8u* se = static_cast<const Vrx8u*>(si);
    Vrx8u* de = static_cast<Vrx8u*>(di);
    for (size_t i = 0; i < tail; ++i) de[i] = se[i];
}

// Non-temporal copy of a multiple of 64 bytes to a 64-byte aligned
// destination: two 32-byte unaligned loads and two streaming stores a round.
void N0(ownsCopy_8u_nt)(const Vrx8u* s, Vrx8u* d, size_t n) {
    for (size_t k = 0; k < n; k += 64) {
        __m256i a = ld32(s + k), b = ld32(s + k + 32);
        _mm256_stream_si256(reinterpret_cast<__m256i*>(d + k), a);
        _mm256_stream_si256(reinterpret_cast<__m256i*>(d + k + 32), b);
    }
}

// Backward copy of a multiple of 64 bytes whose destination ends on a
// 64-byte boundary: steps of 64 bytes, unaligned loads, aligned 32-byte
// stores (wider rounds run slower backward).
void N0(ownsCopy_8u_inv)(const Vrx8u* s, Vrx8u* d, size_t n) {
    for (size_t k = n; k >= 64; k -= 64) {
        __m256i a = ld32(s + k - 32), b = ld32(s + k - 64);
        st32a(d + k - 32, a); st32a(d + k - 64, b);
    }
}

// Large copies: non-temporal beyond 4 MiB when the copy fills at least half
// of the largest cache; otherwise the string copy, or a backward copy when
// the destination's page offset lies just above the source's.
void N0(ownsCopy_8u)(const Vrx8u* s, Vrx8u* d, size_t n) {
    if (n < kCopySmallLimit) {
        N0(ownsCopy_8u_E9)(s, d, n);
        return;
    }
    if (n > kCopyNtFloor) {
        int cache = 0;
        if (maxCacheSize(cache) && n >= static_cast<size_t>(cache) / 2) {
            size_t head = (64 - (addr(d) & 63)) & 63;
            if (head) N0(ownsCopy_8u_E9)(s, d, head);
            size_t body = (n - head) & ~size_t(63);
            N0(ownsCopy_8u_nt)(s + head, d + head, body);
            size_t done = head + body;
            if (done < n) N0(ownsCopy_8u_E9)(s + done, d + done, n - done);
            _mm_sfence();
            return;
        }
    }
    uint32_t gap = static_cast<uint32_t>(addr(d) & 4095) - static_cast<uint32_t>(addr(s) & 4095);
    if (gap >= kPageGap) {
        N0(ownsCopy_8u_repE9)(s, d, n);
        return;
    }
    // The stores would chase the loads through the same page offsets: run
    // from the end to the beginning.
    size_t endMis = (addr(d) + n) & 63;
    if (endMis) {
        N0(ownsCopy_8u_E9)(s + n - endMis, d + n - endMis, endMis);
        n -= endMis;
    }
    size_t r = n & 63;
    N0(ownsCopy_8u_inv)(s + r, d + r, n - r);
    if (r) N0(ownsCopy_8u_E9)(s, d, r);
}

namespace {

__attribute__((noinline)) VrxStatus copyLarge(const Vrx8u* s, Vrx8u* d, size_t n) {
    if (n < kCopySmallLimit)
        N0(ownsCopy_8u_E9)(s, d, n);
    else
        N0(ownsCopy_8u)(s, d, n);
    return vrxOk;
}

}  // namespace

// Below the ladder ceiling the copy is inline, with no frame.
VrxStatus N0(vrxsCopy_8u)(const Vrx8u* pSrc, Vrx8u* pDst, int len) {
    if (VrxStatus st = checkArgs(len, pSrc, pDst)) return st;
    size_t n = static_cast<size_t>(len);
    if (VRX_LIKELY(n < kLadderCeiling)) {
        copySmall(pSrc, pDst, n);
        return vrxOk;
    }
    return copyLarge(pSrc, pDst, n);
}

namespace {

// Typed copies count bytes in 32 bits: longer vectors go in pieces of
// 0x7FFFFFE0 bytes.
template <class T>
VrxStatus copyTyped(const T* pSrc, T* pDst, int len) {
    if (VrxStatus st = checkArgs(len, pSrc, pDst)) return st;
    constexpr int kPiece = 0x7FFFFFE0;
    constexpr int kMaxLen = 0x7FFFFFFF / static_cast<int>(sizeof(T));
    const Vrx8u* s = reinterpret_cast<const Vrx8u*>(pSrc);
    Vrx8u* d = reinterpret_cast<Vrx8u*>(pDst);
    while (len > kMaxLen) {
        N0(vrxsCopy_8u)(s, d, kPiece);
        s += kPiece;
        d += kPiece;
        len -= kPiece / static_cast<int>(sizeof(T));
    }
    return N0(vrxsCopy_8u)(s, d, len * static_cast<int>(sizeof(T)));
}

}  // namespace

VrxStatus N0(vrxsCopy_16s)(const Vrx16s* pSrc, Vrx16s* pDst, int len) { return copyTyped(pSrc, pDst, len); }
VrxStatus N0(vrxsCopy_32s)(const Vrx32s* pSrc, Vrx32s* pDst, int len) { return copyTyped(pSrc, pDst, len); }
VrxStatus N0(vrxsCopy_32f)(const Vrx32f* pSrc, Vrx32f* pDst, int len) { return copyTyped(pSrc, pDst, len); }
VrxStatus N0(vrxsCopy_16sc)(const Vrx16sc* pSrc, Vrx16sc* pDst, int len) { return copyTyped(pSrc, pDst, len); }
VrxStatus N0(vrxsCopy_64s)(const Vrx64s* pSrc, Vrx64s* pDst, int len) { return copyTyped(pSrc, pDst, len); }
VrxStatus N0(vrxsCopy_64f)(const Vrx64f* pSrc, Vrx64f* pDst, int len) { return copyTyped(pSrc, pDst, len); }
VrxStatus N0(vrxsCopy_32sc)(const Vrx32sc* pSrc, Vrx32sc* pDst, int len) { return copyTyped(pSrc, pDst, len); }
VrxStatus N0(vrxsCopy_32fc)(const Vrx32fc* pSrc, Vrx32fc* pDst, int len) { return copyTyped(pSrc, pDst, len); }
VrxStatus N0(vrxsCopy_64sc)(const Vrx64sc* pSrc, Vrx64sc* pDst, int len) { return copyTyped(pSrc, pDst, len); }
VrxStatus N0(vrxsCopy_64fc)(const Vrx64fc* pSrc, Vrx64fc* pDst, int len) { return copyTyped(pSrc, pDst, len); }
