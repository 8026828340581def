// Cache size from the processor's CPUID leaf 2 descriptors.
#include "vrx_cache.h"

#include <cpuid.h>

namespace n0 {
namespace {

// Leaf 2 answer packed as it is searched: the nonzero registers in the
// order EAX, EBX, ECX, EDX (a register with bit 31 set counts as empty);
// count is the highest offset to compare, offset 0 being the iteration count.
struct Leaf2Bytes {
    unsigned char bytes[16];
    unsigned count;
};

bool readLeaf2(Leaf2Bytes& out) {
    unsigned r[4];
    __cpuid(2, r[0], r[1], r[2], r[3]);
    if ((r[0] & 0xFF) != 1) return false;
    unsigned pos = 0;
    out.count = 0;
    for (int i = 0; i < 4; ++i) {
        unsigned v = (r[i] & 0x80000000u) ? 0u : r[i];
        if (v == 0) continue;
        for (int b = 0; b < 4; ++b) out.bytes[pos + b] = static_cast<unsigned char>(v >> (8 * b));
        pos += 4;
        out.count += (i == 0) ? 3 : 4;
    }
    return out.count != 0;
}

bool matches(const Leaf2Bytes& l2, unsigned descriptor) {
    for (unsigned off = l2.count; off >= 1; --off)
        if (l2.bytes[off] == descriptor) return true;
    return false;
}

// Compact table: descriptor, then a code whose size in bytes is its high
// nibble shifted left by its low nibble plus 18. Ordered from the largest
// cache down, so the first row found wins.
constexpr unsigned char kCompact[43][2] = {
    {0xEC, 0x35},
    {0xEB, 0x93},
    {0x4D, 0x16},
    {0xEA, 0x34}, {0x4C, 0x34},
    {0xE4, 0x15}, {0xDE, 0x15}, {0x4B, 0x15}, {0x47, 0x15},
    {0x4E, 0x33}, {0x4A, 0x33},
    {0xE3, 0x14}, {0xDD, 0x14}, {0xD8, 0x14}, {0x49, 0x14}, {0x29, 0x14}, {0x46, 0x14},
    {0x48, 0x32},
    {0xE2, 0x13}, {0xDC, 0x13}, {0xD7, 0x13}, {0xD2, 0x13}, {0x25, 0x13}, {0x7D, 0x13}, {0x85, 0x13}, {0x45, 0x13},
    {0xD6, 0x12}, {0xD1, 0x12}, {0x23, 0x12}, {0x87, 0x12}, {0x7C, 0x12}, {0x78, 0x12}, {0x84, 0x12}, {0x44, 0x12},
    {0xD0, 0x11}, {0x22, 0x11}, {0x7B, 0x11}, {0x80, 0x11}, {0x86, 0x11}, {0x3E, 0x11}, {0x7F, 0x11}, {0x83, 0x11}, {0x43, 0x11},
};

}  // namespace

unsigned compactCodeSize(unsigned char code) {
    return static_cast<unsigned>(code >> 4) << ((code & 0xF) + 18);
}

unsigned descriptorCacheSize() {
    // The descriptors are meaningful for the vendor this build targets only.
    unsigned maxLeaf, vb, vc, vd;
    __cpuid(0, maxLeaf, vb, vc, vd);
    if (vb != 0x756E6547u || vd != 0x49656E69u || vc != 0x6C65746Eu) return kNoCacheSize;
    if (maxLeaf < 2) return kNoCacheSize;
    Leaf2Bytes l2;
    if (!readLeaf2(l2)) return kNoCacheSize;
    for (const auto& row : kCompact)
        if (matches(l2, row[0])) return compactCodeSize(row[1]);
    return kNoCacheSize;
}

}  // namespace n0

unsigned N0(ownGetCacheSize)(const unsigned* table) {
    n0::Leaf2Bytes l2;
    if (!table || !n0::readLeaf2(l2)) return n0::kNoCacheSize;
    for (; table[0] != 0; table += 2)
        if (n0::matches(l2, table[0])) return table[1];
    return n0::kNoCacheSize;
}
