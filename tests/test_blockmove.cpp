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

using CopyFn = VrxStatus (*)(const void*, void*, int);
using FillFn = VrxStatus (*)(const void* value, void*, int);
using ZeroFn = VrxStatus (*)(void*, int);
using InPlaceFn = VrxStatus (*)(void*, int);

template <class T, VrxStatus (*F)(const T*, T*, int)>
VrxStatus copyErased(const void* s, void* d, int n) { return F(static_cast<const T*>(s), static_cast<T*>(d), n); }
template <class T, VrxStatus (*F)(T, T*, int)>
VrxStatus fillErased(const void* v, void* d, int n) { return F(*static_cast<const T*>(v), static_cast<T*>(d), n); }
template <class T, VrxStatus (*F)(T*, int)>
VrxStatus zeroErased(void* d, int n) { return F(static_cast<T*>(d), n); }

struct CopyCase { const char* name; CopyFn fn; size_t size; };
struct FillCase { const char* name; FillFn fn; size_t size; };
struct ZeroCase { const char* name; ZeroFn fn; size_t size; };
// A flip reverses the elements; a byte swap reverses the bytes of each element.
struct FlipCase { const char* name; CopyFn fn; InPlaceFn inPlace; size_t size; bool bytes = false; };

#define COPY_CASE(F, T) {#F, copyErased<T, F>, sizeof(T)}
const CopyCase kCopies[] = {
    COPY_CASE(vrxsCopy_8u, Vrx8u),     COPY_CASE(vrxsCopy_16s, Vrx16s),   COPY_CASE(vrxsCopy_32s, Vrx32s),
    COPY_CASE(vrxsCopy_32f, Vrx32f),   COPY_CASE(vrxsCopy_16sc, Vrx16sc), COPY_CASE(vrxsCopy_64s, Vrx64s),
    COPY_CASE(vrxsCopy_64f, Vrx64f),   COPY_CASE(vrxsCopy_32sc, Vrx32sc), COPY_CASE(vrxsCopy_32fc, Vrx32fc),
    COPY_CASE(vrxsCopy_64sc, Vrx64sc), COPY_CASE(vrxsCopy_64fc, Vrx64fc),
};
const CopyCase kMoves[] = {
    COPY_CASE(vrxsMove_8u, Vrx8u),     COPY_CASE(vrxsMove_16s, Vrx16s),   COPY_CASE(vrxsMove_32s, Vrx32s),
    COPY_CASE(vrxsMove_32f, Vrx32f),   COPY_CASE(vrxsMove_16sc, Vrx16sc), COPY_CASE(vrxsMove_64s, Vrx64s),
    COPY_CASE(vrxsMove_64f, Vrx64f),   COPY_CASE(vrxsMove_32sc, Vrx32sc), COPY_CASE(vrxsMove_32fc, Vrx32fc),
    COPY_CASE(vrxsMove_64sc, Vrx64sc), COPY_CASE(vrxsMove_64fc, Vrx64fc),
};
#define FILL_CASE(F, T) {#F, fillErased<T, F>, sizeof(T)}
const FillCase kFills[] = {
    FILL_CASE(vrxsSet_8u, Vrx8u),     FILL_CASE(vrxsSet_16s, Vrx16s),   FILL_CASE(vrxsSet_32s, Vrx32s),
    FILL_CASE(vrxsSet_32f, Vrx32f),   FILL_CASE(vrxsSet_16sc, Vrx16sc), FILL_CASE(vrxsSet_64s, Vrx64s),
    FILL_CASE(vrxsSet_64f, Vrx64f),   FILL_CASE(vrxsSet_32sc, Vrx32sc), FILL_CASE(vrxsSet_32fc, Vrx32fc),
    FILL_CASE(vrxsSet_64sc, Vrx64sc), FILL_CASE(vrxsSet_64fc, Vrx64fc),
};
#define ZERO_CASE(F, T) {#F, zeroErased<T, F>, sizeof(T)}
const ZeroCase kZeros[] = {
    ZERO_CASE(vrxsZero_8u, Vrx8u),     ZERO_CASE(vrxsZero_16s, Vrx16s),   ZERO_CASE(vrxsZero_32s, Vrx32s),
    ZERO_CASE(vrxsZero_32f, Vrx32f),   ZERO_CASE(vrxsZero_16sc, Vrx16sc), ZERO_CASE(vrxsZero_64s, Vrx64s),
    ZERO_CASE(vrxsZero_64f, Vrx64f),   ZERO_CASE(vrxsZero_32sc, Vrx32sc), ZERO_CASE(vrxsZero_32fc, Vrx32fc),
    ZERO_CASE(vrxsZero_64sc, Vrx64sc), ZERO_CASE(vrxsZero_64fc, Vrx64fc),
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

// Byte counts at and around every threshold of the copy engines.
const size_t kCopyBytes[] = {1, 2, 3, 7, 8, 15, 16, 31, 32, 33, 63, 64, 65, 127, 128, 129, 255, 256, 257,
                             511, 1000, 4095, 4096, 16383, 16384, 16385, 32767, 32768, 32769, 100000,
                             2097152, 2097153, 4194304, 4194305};

// Large enough to take the non-temporal paths on this machine.
size_t beyondCacheBytes() {
    int cache = 0;
    size_t c = vrxGetMaxCacheSizeB(&cache) == 0 ? static_cast<size_t>(cache) : (32u << 20);
    return c + (c >> 1) + 160;
}

// ------------------------------------------------------------------ Copy

TEST(Copy, EveryThresholdAlignedAndMisaligned) {
    Rng rng(1);
    for (size_t bytes : kCopyBytes) {
        for (auto [so, dof] : {std::pair<size_t, size_t>{0, 0}, {1, 0}, {0, 3}, {5, 17}, {16, 48}, {32, 0}}) {
            SCOPED_TRACE(testing::Message() << bytes << " bytes, src+" << so << " dst+" << dof);
            Buffer src(bytes, so), dst(bytes, dof);
            rng.fill(src.data(), bytes);
            ASSERT_EQ(vrxsCopy_8u(src.data(), dst.data(), static_cast<int>(bytes)), vrxOk);
            ASSERT_EQ(memcmp(src.data(), dst.data(), bytes), 0);
            ASSERT_TRUE(dst.guardsIntact());
        }
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

TEST(Copy, NonTemporalPathBeyondTheCache) {
    Rng rng(3);
    const size_t bytes = beyondCacheBytes();
    for (size_t dof : {0, 9}) {
        Buffer src(bytes, 4), dst(bytes, dof);
        rng.fill(src.data(), bytes);
        ASSERT_EQ(vrxsCopy_8u(src.data(), dst.data(), static_cast<int>(bytes)), vrxOk);
        ASSERT_EQ(memcmp(src.data(), dst.data(), bytes), 0);
        ASSERT_TRUE(dst.guardsIntact());
    }
}

TEST(Copy, EveryTypeCopiesEveryShortLengthAndLeavesNeighbours) {
    Rng rng(4);
    for (const auto& c : kCopies) {
        for (int len = 1; len <= 70; ++len) {
            SCOPED_TRACE(testing::Message() << c.name << " len " << len);
            size_t bytes = len * c.size;
            Buffer src(bytes, 3), dst(bytes, 1);
            rng.fill(src.data(), bytes);
            ASSERT_EQ(c.fn(src.data(), dst.data(), len), vrxOk);
            ASSERT_EQ(memcmp(src.data(), dst.data(), bytes), 0);
            ASSERT_TRUE(dst.guardsIntact());
        }
    }
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

// ------------------------------------------------------------------ Move

TEST(Move, OverlapBothWaysAtEveryThreshold) {
    Rng rng(5);
    const size_t sizes[] = {1, 5, 31, 32, 33, 64, 127, 128, 129, 255, 256, 257, 300, 4096,
                            16383, 16384, 16385, 32767, 32768, 32769, 70000};
    for (size_t bytes : sizes) {
        for (ptrdiff_t shift : {1, -1, 3, -3, 31, -31, 32, -32, 33, 200, -200, 256, -256, 257, -257, 1000, -1000}) {
            SCOPED_TRACE(testing::Message() << bytes << " bytes, dst - src = " << shift);
            const size_t span = bytes + 2048;
            Buffer buf(span, 5);
            rng.fill(buf.data(), span);
            std::vector<uint8_t> ref(buf.data(), buf.data() + span);
            uint8_t* s = buf.data() + 1024;
            uint8_t* d = s + shift;
            memmove(ref.data() + 1024 + shift, ref.data() + 1024, bytes);
            ASSERT_EQ(vrxsMove_8u(s, d, static_cast<int>(bytes)), vrxOk);
            ASSERT_EQ(memcmp(buf.data(), ref.data(), span), 0);
            ASSERT_TRUE(buf.guardsIntact());
        }
    }
}

TEST(Move, EveryTypeMovesDisjointAndOverlapping) {
    Rng rng(6);
    for (const auto& c : kMoves) {
        for (int len : {1, 2, 17, 70, 1000}) {
            for (int shiftElems : {-3, -1, 1, 2, 50}) {
                SCOPED_TRACE(testing::Message() << c.name << " len " << len << " shift " << shiftElems);
                const size_t span = (len + 120) * c.size;
                Buffer buf(span, 2);
                rng.fill(buf.data(), span);
                std::vector<uint8_t> ref(buf.data(), buf.data() + span);
                size_t at = 60 * c.size;
                ptrdiff_t sh = shiftElems * static_cast<ptrdiff_t>(c.size);
                memmove(ref.data() + at + sh, ref.data() + at, len * c.size);
                ASSERT_EQ(c.fn(buf.data() + at, buf.data() + at + sh, len), vrxOk);
                ASSERT_EQ(memcmp(buf.data(), ref.data(), span), 0);
            }
        }
    }
}

// ------------------------------------------------------------- Set, Zero

// Every element equals the value, bytes around are untouched: lengths cross
// the 256-byte ladder and the 2 MiB engine switch, pointers are misaligned
// down to the byte (not even aligned to the element).
TEST(Set, EveryTypeEveryLengthAndAlignment) {
    Rng rng(7);
    for (const auto& c : kFills) {
        uint8_t value[16];
        rng.fill(value, sizeof value);
        std::vector<int> lens;
        for (int len = 1; len <= 70; ++len) lens.push_back(len);
        for (size_t bytes : {255u, 256u, 257u, 4096u, 2097152u, 2097153u + 15u})
            lens.push_back(static_cast<int>(bytes / c.size));
        for (int len : lens) {
            for (size_t off : {0, 1, 8, 12, 16, 37}) {
                SCOPED_TRACE(testing::Message() << c.name << " len " << len << " dst+" << off);
                Buffer dst(len * c.size, off);
                ASSERT_EQ(c.fn(value, dst.data(), len), vrxOk);
                for (int i = 0; i < len; ++i)
                    ASSERT_EQ(memcmp(dst.data() + i * c.size, value, c.size), 0) << "element " << i;
                ASSERT_TRUE(dst.guardsIntact());
            }
        }
    }
}

TEST(Set, NonTemporalPathBeyondTheCache) {
    const size_t bytes = beyondCacheBytes();
    for (const auto& c : kFills) {
        SCOPED_TRACE(c.name);
        const uint8_t value[16] = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16};
        int len = static_cast<int>(bytes / c.size);
        Buffer dst(len * c.size, c.size == 16 ? 8 : 0);
        ASSERT_EQ(c.fn(value, dst.data(), len), vrxOk);
        for (int i = 0; i < len; i += 997)
            ASSERT_EQ(memcmp(dst.data() + i * c.size, value, c.size), 0) << "element " << i;
        ASSERT_EQ(memcmp(dst.data() + (len - 1) * c.size, value, c.size), 0);
        ASSERT_TRUE(dst.guardsIntact());
    }
}

TEST(Zero, EveryTypeAcrossTheStringStoreThreshold) {
    for (const auto& c : kZeros) {
        for (size_t bytes : {1u, 31u, 32u, 255u, 256u, 1000u, 2097152u, 2097168u}) {
            int len = static_cast<int>((bytes + c.size - 1) / c.size);
            for (size_t off : {0, 3}) {
                SCOPED_TRACE(testing::Message() << c.name << " len " << len << " dst+" << off);
                Buffer dst(len * c.size, off);
                memset(dst.data(), 0xEE, len * c.size);
                ASSERT_EQ(c.fn(dst.data(), len), vrxOk);
                for (size_t i = 0; i < len * c.size; ++i) ASSERT_EQ(dst.data()[i], 0) << i;
                ASSERT_TRUE(dst.guardsIntact());
            }
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
    for (const auto& c : kBitCopies)
        for (int so = 0; so < 16; ++so)
            for (int dof = 0; dof < 16; ++dof)
                for (int len = 1; len <= 80; ++len) checkBitCopy(c, rng, so, dof, len);
}

TEST(BitCopy, LongStringsThroughTheWordLoop) {
    Rng rng(9);
    for (const auto& c : kBitCopies)
        for (int so = 0; so < 8; ++so)
            for (int dof = 0; dof < 8; ++dof)
                for (int len : {200, 255, 256, 257, 400, 448}) checkBitCopy(c, rng, so, dof, len);
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
