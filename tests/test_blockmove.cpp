// Block moves against plain references: every engine threshold crossed,
// aligned and misaligned, overlap both ways for Move, the bit copies against
// a bit-by-bit model, check order and untouched output on failure.
#include <sys/mman.h>

#include "vrx_test.h"
#include "vrxcore.h"

namespace {

using vt::Buffer;
using vt::Rng;

// ------------------------------------------------- type-erased descriptors

// Every function as fn(src, dst, len): Set reads its value at src, Zero
// ignores src.
using CopyFn = VrxStatus (*)(const void*, void*, int);
using InPlaceFn = VrxStatus (*)(void*, int);

template <class T, VrxStatus (*F)(const T*, T*, int)>
VrxStatus copyErased(const void* s, void* d, int n) { return F(static_cast<const T*>(s), static_cast<T*>(d), n); }
template <class T, VrxStatus (*F)(T, T*, int)>
VrxStatus fillErased(const void* v, void* d, int n) { return F(*static_cast<const T*>(v), static_cast<T*>(d), n); }
template <class T, VrxStatus (*F)(T*, int)>
VrxStatus zeroErased(void* d, int n) { return F(static_cast<T*>(d), n); }
template <class T, VrxStatus (*F)(T*, int)>
VrxStatus zeroCall(const void*, void* d, int n) { return F(static_cast<T*>(d), n); }

enum class Kind { Copy, Move, Set, Zero };
struct Row { const char* name; Kind kind; CopyFn fn; size_t size; };
// A flip reverses the elements; a byte swap reverses the bytes of each element.
struct FlipCase { const char* name; CopyFn fn; InPlaceFn inPlace; size_t size; bool bytes = false; };

#define ROWS(T, C, M, S, Z) {#C, Kind::Copy, copyErased<T, C>, sizeof(T)}, {#M, Kind::Move, copyErased<T, M>, sizeof(T)}, \
    {#S, Kind::Set, fillErased<T, S>, sizeof(T)}, {#Z, Kind::Zero, zeroCall<T, Z>, sizeof(T)}
const Row kRows[] = {
    ROWS(Vrx8u, vrxsCopy_8u, vrxsMove_8u, vrxsSet_8u, vrxsZero_8u),
    ROWS(Vrx16s, vrxsCopy_16s, vrxsMove_16s, vrxsSet_16s, vrxsZero_16s),
    ROWS(Vrx32s, vrxsCopy_32s, vrxsMove_32s, vrxsSet_32s, vrxsZero_32s),
    ROWS(Vrx32f, vrxsCopy_32f, vrxsMove_32f, vrxsSet_32f, vrxsZero_32f),
    ROWS(Vrx16sc, vrxsCopy_16sc, vrxsMove_16sc, vrxsSet_16sc, vrxsZero_16sc),
    ROWS(Vrx64s, vrxsCopy_64s, vrxsMove_64s, vrxsSet_64s, vrxsZero_64s),
    ROWS(Vrx64f, vrxsCopy_64f, vrxsMove_64f, vrxsSet_64f, vrxsZero_64f),
    ROWS(Vrx32sc, vrxsCopy_32sc, vrxsMove_32sc, vrxsSet_32sc, vrxsZero_32sc),
    ROWS(Vrx32fc, vrxsCopy_32fc, vrxsMove_32fc, vrxsSet_32fc, vrxsZero_32fc),
    ROWS(Vrx64sc, vrxsCopy_64sc, vrxsMove_64sc, vrxsSet_64sc, vrxsZero_64sc),
    ROWS(Vrx64fc, vrxsCopy_64fc, vrxsMove_64fc, vrxsSet_64fc, vrxsZero_64fc),
};
#define FLIP_CASE(F, T) {#F, copyErased<T, F>, zeroErased<T, F##_I>, sizeof(T)}
const FlipCase kFlips[] = {
    FLIP_CASE(vrxsFlip_8u, Vrx8u),   FLIP_CASE(vrxsFlip_16u, Vrx16u),   FLIP_CASE(vrxsFlip_32f, Vrx32f),
    FLIP_CASE(vrxsFlip_64f, Vrx64f), FLIP_CASE(vrxsFlip_32fc, Vrx32fc), FLIP_CASE(vrxsFlip_64fc, Vrx64fc),
    {"SwapBytes_16u", copyErased<Vrx16u, vrxsSwapBytes_16u>, zeroErased<Vrx16u, vrxsSwapBytes_16u_I>, 2, true},
    {"SwapBytes_24u", copyErased<Vrx8u, vrxsSwapBytes_24u>, zeroErased<Vrx8u, vrxsSwapBytes_24u_I>, 3, true},
    {"SwapBytes_32u", copyErased<Vrx32u, vrxsSwapBytes_32u>, zeroErased<Vrx32u, vrxsSwapBytes_32u_I>, 4, true},
    {"SwapBytes_64u", copyErased<Vrx64u, vrxsSwapBytes_64u>, zeroErased<Vrx64u, vrxsSwapBytes_64u_I>, 8, true},
};

// Byte counts at and around every threshold of the copy engines, the
// 256-byte ladder, the string-store and 2 MiB engine switches.
const size_t kCopyBytes[] = {1, 2, 3, 7, 8, 15, 16, 31, 32, 33, 63, 64, 65, 127, 128, 129, 255, 256, 257,
                             511, 1000, 4095, 4096, 16383, 16384, 16385, 32767, 32768, 32769, 100000,
                             2097152, 2097153, 2097168, 4194304, 4194305};

// Large enough to take the non-temporal paths on this machine.
size_t beyondCacheBytes() {
    int cache = 0;
    size_t c = vrxGetMaxCacheSizeB(&cache) == 0 ? static_cast<size_t>(cache) : (32u << 20);
    return c + (c >> 1) + 160;
}

// n bytes of data in which every 4-byte word differs from its neighbours
// (random below 4 KiB, a cheap sequence above).
void fillData(Rng& rng, uint8_t* p, size_t n) {
    rng.fill(p, std::min<size_t>(n, 4096));
    for (size_t i = 4096, k = rng.next(); i < n; i += 4) {
        const uint32_t w = uint32_t((k + i) * 0x9E3779B1u);
        memcpy(p + i, &w, std::min<size_t>(4, n - i));
    }
}

// Runs row c on len elements, src at srcOff and dst at dstOff bytes from a
// 64-byte boundary (not even element-aligned): dst must hold the source (Set:
// the value repeated, Zero: zeros), the bytes around untouched.
void expectRow(const Row& c, Rng& rng, int len, size_t srcOff, size_t dstOff) {
    SCOPED_TRACE(testing::Message() << c.name << " len " << len << " src+" << srcOff << " dst+" << dstOff);
    const size_t bytes = len * c.size;
    Buffer src(bytes, srcOff), dst(bytes, dstOff);
    fillData(rng, src.data(), c.kind == Kind::Set ? c.size : bytes);
    fillData(rng, dst.data(), std::min<size_t>(bytes, 4096));
    if (c.kind == Kind::Set)
        for (size_t k = c.size; k < bytes; k *= 2) memcpy(src.data() + k, src.data(), std::min(k, bytes - k));
    if (c.kind == Kind::Zero) memset(src.data(), 0, bytes);
    ASSERT_EQ(c.fn(src.data(), dst.data(), len), vrxOk);
    ASSERT_EQ(memcmp(src.data(), dst.data(), bytes), 0);
    ASSERT_TRUE(dst.guardsIntact());
}

// ---------------------------------------------------- Copy, Move, Set, Zero

// Every length 1..70 and every engine threshold: byte rows at every byte
// count of kCopyBytes, the wider ones at the ladder and the switches; six
// alignment pairs, on the megabyte sizes two (byte rows), beyond 4 KiB one
// (wider rows).
TEST(Block, EveryFunctionEveryThresholdAlignedAndMisaligned) {
    Rng rng(1);
    for (const auto& c : kRows) {
        std::vector<int> lens;
        for (int len = 1; len <= 70; ++len) lens.push_back(len);
        for (size_t bytes : kCopyBytes)
            if (bytes / c.size > 70 && (c.size == 1 || bytes == 255 || bytes == 256 || bytes == 257 || bytes == 4096 ||
                                        bytes == 16385 || bytes == 2097152 || bytes == 2097168))
                lens.push_back(int(bytes / c.size));
        for (int len : lens)
            for (auto [so, dof] : {std::pair<size_t, size_t>{5, 17}, {0, 0}, {1, 0}, {0, 3}, {16, 48}, {32, 37}}) {
                expectRow(c, rng, len, so, dof);
                const bool big = len * c.size > (c.size == 1 ? 100000u : 4096u);
                if (big && (c.size > 1 || so == 0)) break;
            }
    }
}

// The byte copy and zero, and the fill of each element size (the engines
// go by size), element-aligned but not register-aligned.
TEST(Block, NonTemporalPathBeyondTheCache) {
    Rng rng(3);
    const size_t bytes = beyondCacheBytes();
    unsigned setSizes = 0;  // the element sizes whose fill ran
    for (const auto& c : kRows) {
        if (c.kind == Kind::Set ? (setSizes & c.size) != 0 : c.size > 1 || c.kind == Kind::Move) continue;
        if (c.kind == Kind::Set) setSizes |= c.size;
        expectRow(c, rng, int(bytes / c.size), 4, 3 * c.size);
    }
}

// Destination page offsets just above the source's take the backward path:
// gaps 0..159 bytes are backward, 160 forward.
TEST(Copy, PageOffsetGapAroundTheBackwardPath) {
    Rng rng(2);
    const size_t bytes = 40000, page = 4096, span = bytes + 2 * page;
    // one mapping, so that dst's page offset is exactly src's plus the gap
    uint8_t* map = static_cast<uint8_t*>(mmap(nullptr, 3 * span, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0));
    ASSERT_NE(map, MAP_FAILED);
    for (size_t gap : {0, 1, 32, 63, 64, 100, 159, 160, 161, 4000}) {
        for (size_t srcOff : {0, 7, 64, 100}) {
            SCOPED_TRACE(testing::Message() << "gap " << gap << " src page offset " << srcOff);
            uint8_t* s = map + srcOff;
            uint8_t* d = map + span + srcOff + gap;
            rng.fill(s, bytes);
            memset(d - 64, 0x77, bytes + 128);
            ASSERT_EQ(vrxsCopy_8u(s, d, static_cast<int>(bytes)), vrxOk);
            ASSERT_EQ(memcmp(s, d, bytes), 0);
            EXPECT_EQ(d[-1], 0x77);
            EXPECT_EQ(d[bytes], 0x77);
        }
    }
    munmap(map, 3 * span);
}

// A 2-byte copy of 0x40000000 elements is 2 GiB: it goes in pieces and
// completes. The buffers are mapped lazily; only sampled pages are touched
// before the call.
TEST(Copy, TypedCopyBeyondTwoGibibytesSplits) {
    const size_t len = 0x40000000, bytes = len * 2;
    auto* s = static_cast<Vrx16s*>(mmap(nullptr, bytes, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0));
    auto* d = static_cast<Vrx16s*>(mmap(nullptr, bytes + 4096, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0));
    ASSERT_NE(s, MAP_FAILED);
    ASSERT_NE(d, MAP_FAILED);
    const size_t probes[] = {0, 1, 0x3FFFFFEF, 0x3FFFFFF0, 0x3FFFFFF1, len / 2, len - 2, len - 1};
    for (size_t i : probes) s[i] = static_cast<Vrx16s>(i * 7 + 1);
    d[len] = 0x1234;
    ASSERT_EQ(vrxsCopy_16s(s, d, static_cast<int>(len)), vrxOk);
    for (size_t i : probes) EXPECT_EQ(d[i], static_cast<Vrx16s>(i * 7 + 1)) << i;
    EXPECT_EQ(d[len], 0x1234);
    munmap(s, bytes);
    munmap(d, bytes + 4096);
}

// Overlap both ways, by a part of a register up to beyond the block, at the
// byte rows' thresholds; the wider rows at a few lengths.
TEST(Move, OverlapBothWaysAtEveryThreshold) {
    Rng rng(5);
    for (const auto& c : kRows) {
        if (c.kind != Kind::Move) continue;
        std::vector<int> lens = {1, 2, 17, 70, 1000};
        if (c.size == 1) lens = {1, 5, 31, 32, 33, 64, 127, 128, 129, 255, 256, 257, 300, 4096, 16383, 16384, 16385, 32767, 32768, 32769, 70000};
        for (int len : lens)
            for (ptrdiff_t shift : {1, -1, 3, -3, 31, -31, 32, -32, 33, 200, -200, 256, -256, 257, -257, 1000, -1000}) {
                SCOPED_TRACE(testing::Message() << c.name << " len " << len << ", dst - src = " << shift << " elements");
                const ptrdiff_t sh = shift * ptrdiff_t(c.size);
                const size_t bytes = len * c.size, at = 1000 * c.size, span = bytes + 2 * at;
                Buffer buf(span, 5);
                rng.fill(buf.data(), span);
                std::vector<uint8_t> ref(buf.data(), buf.data() + span);
                memmove(ref.data() + at + sh, ref.data() + at, bytes);
                ASSERT_EQ(c.fn(buf.data() + at, buf.data() + at + sh, len), vrxOk);
                ASSERT_EQ(memcmp(buf.data(), ref.data(), span), 0);
                ASSERT_TRUE(buf.guardsIntact());
            }
    }
}

// ------------------------------------------------------------ bit copies

// Bit i of a string at bit offset o: LE strings count from a byte's most
// significant bit, BE strings from its least.
bool getBit(const uint8_t* p, size_t i, bool le) {
    uint8_t b = p[i >> 3];
    return le ? (b >> (7 - (i & 7))) & 1 : (b >> (i & 7)) & 1;
}
void setBit(uint8_t* p, size_t i, bool le, bool v) {
    uint8_t m = le ? static_cast<uint8_t>(0x80 >> (i & 7)) : static_cast<uint8_t>(1 << (i & 7));
    p[i >> 3] = v ? (p[i >> 3] | m) : (p[i >> 3] & ~m);
}

struct BitCopy { const char* name; VrxStatus (*fn)(const Vrx8u*, int, Vrx8u*, int, int); bool le; };
const BitCopy kBitCopies[] = {{"LE", vrxsCopyLE_1u, true}, {"BE", vrxsCopyBE_1u, false}};

void checkBitCopy(const BitCopy& c, Rng& rng, int so, int dof, int len) {
    uint8_t src[64], dst[64], ref[64];
    rng.fill(src, sizeof src);
    rng.fill(dst, sizeof dst);
    memcpy(ref, dst, sizeof ref);
    // only the low three bits of an offset count, and the pointer stays
    for (int i = 0; i < len; ++i) setBit(ref, (dof & 7) + i, c.le, getBit(src, (so & 7) + i, c.le));
    ASSERT_EQ(c.fn(src, so, dst, dof, len), vrxOk);
    ASSERT_EQ(memcmp(dst, ref, sizeof ref), 0) << c.name << " src offset " << so << " dst offset " << dof << " len " << len;
}

TEST(BitCopy, EveryOffsetPairAndLengthAgainstBitByBit) {
    Rng rng(8);
    std::vector<int> lens;
    for (int len = 1; len <= 80; ++len) lens.push_back(len);
    for (int len : {200, 255, 256, 257, 400, 448}) lens.push_back(len);  // through the word loop
    for (const auto& c : kBitCopies)
        for (int so = 0; so < 16; ++so)
            for (int dof = 0; dof < 16; ++dof)
                for (int len : lens) checkBitCopy(c, rng, so, dof, len);
}

// A negative bit offset is a bad length; nothing is written.
TEST(BitCopy, NegativeOffsetsAreBadLengths) {
    uint8_t src[4] = {1, 2, 3, 4}, dst[4] = {9, 9, 9, 9};
    for (const auto& c : kBitCopies) {
        EXPECT_EQ(c.fn(src, -1, dst, 0, 8), vrxErrBadLength);
        EXPECT_EQ(c.fn(src, 0, dst, -8, 8), vrxErrBadLength);
        EXPECT_EQ(dst[0], 9);
    }
}

// ------------------------------------------------------- Flip, SwapBytes

TEST(Flip, EveryTypeOutOfPlaceAndInPlace) {
    Rng rng(10);
    for (const auto& c : kFlips) {
        std::vector<int> lens;
        for (int len = 1; len <= 70; ++len) lens.push_back(len);
        for (int len : {127, 128, 129, 1000, 1001}) lens.push_back(len);
        for (int len : lens) {
            SCOPED_TRACE(testing::Message() << c.name << " len " << len);
            size_t bytes = len * c.size;
            Buffer src(bytes, 1), dst(bytes, 2), inPlace(bytes, 3);
            rng.fill(src.data(), bytes);
            memcpy(inPlace.data(), src.data(), bytes);
            ASSERT_EQ(c.fn(src.data(), dst.data(), len), vrxOk);
            ASSERT_EQ(c.inPlace(inPlace.data(), len), vrxOk);
            for (int i = 0; i < len; ++i)
                for (size_t b = 0; b < c.size; ++b) {
                    size_t from = c.bytes ? i * c.size + c.size - 1 - b : (len - 1 - i) * c.size + b;
                    ASSERT_EQ(dst.data()[i * c.size + b], src.data()[from]) << i;
                }
            ASSERT_EQ(memcmp(dst.data(), inPlace.data(), bytes), 0);
            ASSERT_TRUE(dst.guardsIntact());
            ASSERT_TRUE(inPlace.guardsIntact());
            // the same pointer twice is the in-place form
            ASSERT_EQ(c.fn(inPlace.data(), inPlace.data(), len), vrxOk);
            ASSERT_EQ(memcmp(inPlace.data(), src.data(), bytes), 0);
        }
    }
}

// The caller's rounding mode, flush-to-zero and denormals-are-zero come
// back as they were, whatever the path.
TEST(ControlState, CallerMxcsrSurvivesEveryEngine) {
    const unsigned modes[] = {vt::kRoundNear, vt::kRoundDown, vt::kRoundUp, vt::kRoundZero};
    const size_t bytes = beyondCacheBytes();
    Buffer a(bytes), b(bytes);
    for (unsigned mode : modes) {
        for (unsigned extra : {0u, vt::kFtz | vt::kDaz}) {
            vt::MxcsrScope scope;
            unsigned word = (_mm_getcsr() & ~0xE07Fu) | mode | extra;
            _mm_setcsr(word);
            for (int n : {100, 40000, static_cast<int>(bytes)}) {
                vrxsCopy_8u(a.data(), b.data(), n);
                vrxsMove_8u(a.data(), a.data() + 1, n - 1);
                vrxsSet_8u(1, b.data(), n);
                vrxsZero_8u(b.data(), n);
                vrxsSet_64fc(Vrx64fc{1, 2}, b.as<Vrx64fc>(), n / 16);
            }
            EXPECT_EQ(_mm_getcsr(), word);
        }
    }
}

}  // namespace
