// Bit-string copies. Offsets count bits within the first byte: only their
// low three bits are used, and the pointers never advance by the byte part.
// LE strings start at a byte's most significant bit, BE strings at its
// least. Destination bits outside the string keep their value.
#include "vrx_memops.h"

using namespace n0;

namespace {

enum class BitOrder { MsbFirst, LsbFirst };

template <BitOrder O>
struct BitString {
    // The count (1..8) string bits from absolute bit p, first string bit in
    // the first position of the byte order; reads only the bytes they need.
    static VRX_INLINE unsigned chunk(const Vrx8u* s, size_t p, unsigned count) {
        size_t b = p >> 3;
        unsigned sh = p & 7;
        unsigned next = (sh + count > 8) ? s[b + 1] : 0u;
        if constexpr (O == BitOrder::MsbFirst)
            return (((unsigned(s[b]) << 8) | next) >> (8 - sh)) & 0xFF;
        else
            return ((unsigned(s[b]) | (next << 8)) >> sh) & 0xFF;
    }
    // Merges the first count bits of a chunk into the byte that holds
    // absolute bit q (they stay inside that byte).
    static VRX_INLINE void put(Vrx8u* d, size_t q, unsigned c, unsigned count) {
        unsigned dq = q & 7, mask, val;
        if constexpr (O == BitOrder::MsbFirst) {
            mask = (0xFFu >> dq) & ~(0xFFu >> (dq + count));
            val = c >> dq;
        } else {
            mask = ((1u << count) - 1u) << dq;
            val = c << dq;
        }
        Vrx8u* p = d + (q >> 3);
        *p = static_cast<Vrx8u>((*p & ~mask) | (val & mask));
    }
    // 64 string bits from absolute bit p (not on a byte boundary) as eight
    // destination bytes; reads bytes p/8 to p/8+8, all inside the string.
    static VRX_INLINE uint64_t word(const Vrx8u* s, size_t p) {
        size_t b = p >> 3;
        unsigned sh = p & 7;
        uint64_t w = ldu<uint64_t>(s + b);
        if constexpr (O == BitOrder::MsbFirst) {
            w = __builtin_bswap64(w);
            w = (w << sh) | (uint64_t(s[b + 8]) >> (8 - sh));
            return __builtin_bswap64(w);
        } else {
            return (w >> sh) | (uint64_t(s[b + 8]) << (64 - sh));
        }
    }
};

template <BitOrder O>
VrxStatus copyBits(const Vrx8u* pSrc, int srcBitOffset, Vrx8u* pDst, int dstBitOffset, int len) {
    if (anyNull(pSrc, pDst)) return vrxErrNullPtr;
    if (len < 1 || srcBitOffset < 0 || dstBitOffset < 0) return vrxErrBadLength;
    using B = BitString<O>;
    size_t p = static_cast<size_t>(srcBitOffset & 7);
    size_t q = static_cast<size_t>(dstBitOffset & 7);
    size_t left = static_cast<size_t>(len);

    if (q) {  // complete the destination's first partial byte
        unsigned c = static_cast<unsigned>(left < 8 - q ? left : 8 - q);
        B::put(pDst, q, B::chunk(pSrc, p, c), c);
        p += c; q += c; left -= c;
    }
    size_t bytes = left >> 3;
    Vrx8u* d = pDst + (q >> 3);
    if ((p & 7) == 0) {
        if (bytes) N0(ownsCopy_8u)(pSrc + (p >> 3), d, bytes);
    } else {
        size_t i = 0;
        for (; i + 8 <= bytes; i += 8) stu(d + i, B::word(pSrc, p + 8 * i));
        for (; i < bytes; ++i) d[i] = static_cast<Vrx8u>(B::chunk(pSrc, p + 8 * i, 8));
    }
    p += 8 * bytes; q += 8 * bytes; left &= 7;
    if (left) B::put(pDst, q, B::chunk(pSrc, p, static_cast<unsigned>(left)), static_cast<unsigned>(left));
    return vrxOk;
}

}  // namespace

VrxStatus N0(vrxsCopyLE_1u)(const Vrx8u* pSrc, int srcBitOffset, Vrx8u* pDst, int dstBitOffset, int len) {
    return copyBits<BitOrder::MsbFirst>(pSrc, srcBitOffset, pDst, dstBitOffset, len);
}

VrxStatus N0(vrxsCopyBE_1u)(const Vrx8u* pSrc, int srcBitOffset, Vrx8u* pDst, int dstBitOffset, int len) {
    return copyBits<BitOrder::LsbFirst>(pSrc, srcBitOffset, pDst, dstBitOffset, len);
}
