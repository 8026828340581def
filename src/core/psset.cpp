// Set and Zero: one pattern-fill engine serves every element size. Large
// fills of patterns up to 8 bytes use the string store; set fills larger
// than the largest cache use non-temporal stores.
// The fill engines store a byte pattern in raw 256-bit AVX2 registers, as
// the SIMD layer allows for move-only kernels (vrx_memops.h).
#include "vrx_cache.h"
#include "vrx_memops.h"

using namespace n0;

namespace {

// The pattern as seen from byte offset k of dst, for the blocks of an
// aligned loop that does not start at a multiple of the period.
__m256i atPhase(__m256i p, size_t k, size_t period) {
    size_t phase = k % period;
    if (VRX_LIKELY(phase == 0)) return p;
    alignas(32) Vrx8u twice[64];
    _mm256_store_si256(reinterpret_cast<__m256i*>(twice), p);
    _mm256_store_si256(reinterpret_cast<__m256i*>(twice + 32), p);
    return ld32(twice + phase);
}

// String store of an 8-byte word over whole words from 8-aligned d + k.
void storeWords(Vrx8u* d, size_t n, uint64_t word) {
    void* di = d;
    size_t count = n >> 3;
    __asm__ volatile("pushfq\n\tcld\n\trep stosq\n\tpopfq" : "+D"(di), "+c"(count) : "a"(word) : "memory", "cc");
}

}  // namespace

namespace n0 {

void fillPattern(Vrx8u* d, size_t n, __m256i p, size_t period) {
    st32(d, p);
    size_t k = 32 - (addr(d) & 31);
    const __m256i q = atPhase(p, k, period);
    if (n > kFillNtFloor && period <= 8) {
        // the string store runs faster than any loop here; it writes whole
        // words from an aligned start, the ends are written as blocks
        uint64_t word = static_cast<uint64_t>(_mm256_extract_epi64(q, 0));
        storeWords(d + k, (n - k) & ~size_t(7), word);
    } else {
        for (; k + 256 <= n; k += 256) {
            st32a(d + k, q); st32a(d + k + 32, q); st32a(d + k + 64, q); st32a(d + k + 96, q);
            st32a(d + k + 128, q); st32a(d + k + 160, q); st32a(d + k + 192, q); st32a(d + k + 224, q);
        }
        for (; k + 32 <= n; k += 32) st32a(d + k, q);
    }
    st32(d + n - 32, p);
}

void fillPatternNt(Vrx8u* d, size_t n, __m256i p, size_t period) {
    st32(d, p);
    st32(d + 32, p);
    size_t k = 64 - (addr(d) & 63);
    const __m256i q = atPhase(p, k, period);
    for (; k + 128 <= n; k += 128) {
        _mm256_stream_si256(reinterpret_cast<__m256i*>(d + k), q);
        _mm256_stream_si256(reinterpret_cast<__m256i*>(d + k + 32), q);
        _mm256_stream_si256(reinterpret_cast<__m256i*>(d + k + 64), q);
        _mm256_stream_si256(reinterpret_cast<__m256i*>(d + k + 96), q);
    }
    for (; k + 32 <= n; k += 32) st32a(d + k, q);
    st32(d + n - 32, p);
    _mm_sfence();
}

}  // namespace n0

namespace {

bool cacheExceededBy(size_t bytes) {
    int cache = 0;
    return maxCacheSize(cache) && cache > 0 && bytes > static_cast<size_t>(cache);
}

// Engines of 1, 2 and 4 bytes: beyond 2 MiB, with the pointer aligned to
// the element, non-temporal when the fill is larger than the largest cache.
__attribute__((noinline)) void setBytesLarge(Vrx8u* d, size_t bytes, __m256i p, size_t period) {
    if (bytes > kFillNtFloor && (addr(d) % period) == 0 && cacheExceededBy(bytes))
        fillPatternNt(d, bytes, p, period);
    else
        fillPattern(d, bytes, p, period);
}

// The 8-byte engine: above 262144 elements with an 8-byte aligned pointer,
// non-temporal when the count exceeds the cache size over 8.
__attribute__((noinline)) void set64Large(Vrx8u* d, size_t n, __m256i p) {
    int cache = 0;
    if (n > 0x40000 && (addr(d) & 7) == 0 && maxCacheSize(cache) && n > static_cast<size_t>(cache) / 8)
        fillPatternNt(d, n * 8, p, 8);
    else
        fillPattern(d, n * 8, p, 8);
}

// The 16-byte engine: above 65536 elements it asks the processor's cache
// descriptors itself, and streams when the vector is larger than the cache.
__attribute__((noinline)) void set128Large(Vrx8u* d, size_t n, __m256i p) {
    if (n > 0x10000) {
        unsigned cache = descriptorCacheSize();
        if (cache != kNoCacheSize && n > cache / 16) {
            fillPatternNt(d, n * 16, p, 16);
            return;
        }
    }
    fillPattern(d, n * 16, p, 16);
}

__attribute__((noinline)) void zeroLarge(Vrx8u* d, size_t n) {
    if (n > kFillNtFloor) {
        void* di = d;
        __asm__ volatile("pushfq\n\tcld\n\trep stosb\n\tpopfq" : "+D"(di), "+c"(n) : "a"(0) : "memory", "cc");
        return;
    }
    fillPattern(d, n, _mm256_setzero_si256(), 1);
}

VRX_INLINE void setBytes(Vrx8u* d, size_t bytes, __m256i p, size_t period) {
    if (VRX_LIKELY(bytes < kLadderCeiling))
        fillSmall(d, bytes, p);
    else
        setBytesLarge(d, bytes, p, period);
}

}  // namespace

void N0(ownsZero_8u)(Vrx8u* d, size_t n) {
    if (VRX_LIKELY(n < kLadderCeiling))
        fillSmall(d, n, _mm256_setzero_si256());
    else
        zeroLarge(d, n);
}

void N0(ownsSet_8u)(Vrx8u val, Vrx8u* dst, size_t n) { setBytes(dst, n, _mm256_set1_epi8(static_cast<char>(val)), 1); }
void N0(ownsSet_16u)(Vrx16u val, Vrx16u* dst, size_t n) {
    setBytes(reinterpret_cast<Vrx8u*>(dst), 2 * n, _mm256_set1_epi16(static_cast<short>(val)), 2);
}
void N0(ownsSet_32s)(Vrx32s val, Vrx32s* dst, size_t n) {
    setBytes(reinterpret_cast<Vrx8u*>(dst), 4 * n, _mm256_set1_epi32(val), 4);
}
void N0(ownsSet_64s)(Vrx64s val, Vrx64s* dst, size_t n) {
    Vrx8u* d = reinterpret_cast<Vrx8u*>(dst);
    __m256i p = _mm256_set1_epi64x(val);
    if (VRX_LIKELY(n < kLadderCeiling / 8))
        fillSmall(d, 8 * n, p);
    else
        set64Large(d, n, p);
}
void N0(ownsSet_64sc)(const Vrx64sc* val, Vrx64sc* dst, size_t n) {
    Vrx8u* d = reinterpret_cast<Vrx8u*>(dst);
    __m256i p = _mm256_broadcastsi128_si256(_mm_loadu_si128(reinterpret_cast<const __m128i*>(val)));
    if (VRX_LIKELY(n < kLadderCeiling / 16))
        fillSmall(d, 16 * n, p);
    else
        set128Large(d, n, p);
}

// ------------------------------------------------------------------ Zero

namespace {

template <class T>
VRX_INLINE VrxStatus zeroTyped(T* pDst, int len) {
    if (VrxStatus st = checkArgs(len, pDst)) return st;
    N0(ownsZero_8u)(reinterpret_cast<Vrx8u*>(pDst), static_cast<size_t>(len) * sizeof(T));
    return vrxOk;
}

}  // namespace

VrxStatus N0(vrxsZero_8u)(Vrx8u* pDst, int len) { return zeroTyped(pDst, len); }
VrxStatus N0(vrxsZero_16s)(Vrx16s* pDst, int len) { return zeroTyped(pDst, len); }
VrxStatus N0(vrxsZero_32s)(Vrx32s* pDst, int len) { return zeroTyped(pDst, len); }
VrxStatus N0(vrxsZero_32f)(Vrx32f* pDst, int len) { return zeroTyped(pDst, len); }
VrxStatus N0(vrxsZero_16sc)(Vrx16sc* pDst, int len) { return zeroTyped(pDst, len); }
VrxStatus N0(vrxsZero_64s)(Vrx64s* pDst, int len) { return zeroTyped(pDst, len); }
VrxStatus N0(vrxsZero_64f)(Vrx64f* pDst, int len) { return zeroTyped(pDst, len); }
VrxStatus N0(vrxsZero_32sc)(Vrx32sc* pDst, int len) { return zeroTyped(pDst, len); }
VrxStatus N0(vrxsZero_32fc)(Vrx32fc* pDst, int len) { return zeroTyped(pDst, len); }
VrxStatus N0(vrxsZero_64sc)(Vrx64sc* pDst, int len) { return zeroTyped(pDst, len); }
VrxStatus N0(vrxsZero_64fc)(Vrx64fc* pDst, int len) { return zeroTyped(pDst, len); }

// ------------------------------------------------------------------- Set

namespace {

template <class T>
VRX_INLINE T bitsOf(const void* p) { T v; memcpy(&v, p, sizeof v); return v; }

// Set_T: the value as the bit pattern of an engine's element.
template <class T, class E, void (*Engine)(E, E*, size_t)>
VRX_INLINE VrxStatus setTyped(const T& val, T* pDst, int len) {
    static_assert(sizeof(T) == sizeof(E));
    if (VrxStatus st = checkArgs(len, pDst)) return st;
    Engine(bitsOf<E>(&val), reinterpret_cast<E*>(pDst), static_cast<size_t>(len));
    return vrxOk;
}

}  // namespace

VrxStatus N0(vrxsSet_8u)(Vrx8u val, Vrx8u* pDst, int len) { return setTyped<Vrx8u, Vrx8u, N0(ownsSet_8u)>(val, pDst, len); }
// The 16-bit value is written as its low 16 bits.
VrxStatus N0(vrxsSet_16s)(Vrx16s val, Vrx16s* pDst, int len) { return setTyped<Vrx16s, Vrx16u, N0(ownsSet_16u)>(val, pDst, len); }
VrxStatus N0(vrxsSet_32s)(Vrx32s val, Vrx32s* pDst, int len) { return setTyped<Vrx32s, Vrx32s, N0(ownsSet_32s)>(val, pDst, len); }
// A float passes as its bit pattern.
VrxStatus N0(vrxsSet_32f)(Vrx32f val, Vrx32f* pDst, int len) { return setTyped<Vrx32f, Vrx32s, N0(ownsSet_32s)>(val, pDst, len); }
// The pair packed in 32 bits, real part low, always to the 4-byte engine.
VrxStatus N0(vrxsSet_16sc)(Vrx16sc val, Vrx16sc* pDst, int len) { return setTyped<Vrx16sc, Vrx32s, N0(ownsSet_32s)>(val, pDst, len); }
VrxStatus N0(vrxsSet_64s)(Vrx64s val, Vrx64s* pDst, int len) { return setTyped<Vrx64s, Vrx64s, N0(ownsSet_64s)>(val, pDst, len); }
VrxStatus N0(vrxsSet_64f)(Vrx64f val, Vrx64f* pDst, int len) { return setTyped<Vrx64f, Vrx64s, N0(ownsSet_64s)>(val, pDst, len); }
// Pairs of 32-bit parts packed in 64 bits, real part low.
VrxStatus N0(vrxsSet_32sc)(Vrx32sc val, Vrx32sc* pDst, int len) { return setTyped<Vrx32sc, Vrx64s, N0(ownsSet_64s)>(val, pDst, len); }
VrxStatus N0(vrxsSet_32fc)(Vrx32fc val, Vrx32fc* pDst, int len) { return setTyped<Vrx32fc, Vrx64s, N0(ownsSet_64s)>(val, pDst, len); }

VrxStatus N0(vrxsSet_64sc)(Vrx64sc val, Vrx64sc* pDst, int len) {
    if (VrxStatus st = checkArgs(len, pDst)) return st;
    N0(ownsSet_64sc)(&val, pDst, static_cast<size_t>(len));
    return vrxOk;
}

VrxStatus N0(vrxsSet_64fc)(Vrx64fc val, Vrx64fc* pDst, int len) {
    if (VrxStatus st = checkArgs(len, pDst)) return st;
    N0(ownsSet_64sc)(reinterpret_cast<const Vrx64sc*>(&val), reinterpret_cast<Vrx64sc*>(pDst), static_cast<size_t>(len));
    return vrxOk;
}
