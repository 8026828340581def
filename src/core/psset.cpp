// Set and Zero: one pattern-fill engine serves every element size. The
// string store takes large zero fills; non-temporal stores take set fills
// larger than the largest cache.
#include "vrx_cache.h"
#include "vrx_memops.h"

using namespace n0;

namespace n0 {

void fillPattern(Vrx8u* d, size_t n, const Vrx8u* pat) {
    if (n < 32) {
        if (n >= 16) {
            st16(d, ld16(pat)); st16(d + n - 16, ld16(pat + n - 16));
        } else if (n >= 8) {
            stu(d, ldu<uint64_t>(pat)); stu(d + n - 8, ldu<uint64_t>(pat + n - 8));
        } else if (n >= 4) {
            stu(d, ldu<uint32_t>(pat)); stu(d + n - 4, ldu<uint32_t>(pat + n - 4));
        } else {
            for (size_t i = 0; i < n; ++i) d[i] = pat[i];
        }
        return;
    }
    const __m256i last = ld32(pat + ((n - 32) & 31));
    st32(d, ld32(pat));
    if (n > 64) {
        size_t k = 32 - (addr(d) & 31);
        const __m256i p = ld32(pat + (k & 31));
        for (; k + 256 <= n; k += 256) {
            st32a(d + k, p); st32a(d + k + 32, p); st32a(d + k + 64, p); st32a(d + k + 96, p);
            st32a(d + k + 128, p); st32a(d + k + 160, p); st32a(d + k + 192, p); st32a(d + k + 224, p);
        }
        for (; k + 32 <= n; k += 32) st32a(d + k, p);
    }
    st32(d + n - 32, last);
}

void fillPatternNt(Vrx8u* d, size_t n, const Vrx8u* pat) {
    // n is above 2 MiB here
    st32(d, ld32(pat));
    st32(d + 32, ld32(pat));
    size_t k = 64 - (addr(d) & 63);
    const __m256i p = ld32(pat + (k & 31));
    for (; k + 128 <= n; k += 128) {
        _mm256_stream_si256(reinterpret_cast<__m256i*>(d + k), p);
        _mm256_stream_si256(reinterpret_cast<__m256i*>(d + k + 32), p);
        _mm256_stream_si256(reinterpret_cast<__m256i*>(d + k + 64), p);
        _mm256_stream_si256(reinterpret_cast<__m256i*>(d + k + 96), p);
    }
    if (k < n) fillPattern(d + k, n - k, pat + (k & 31));
    _mm_sfence();
}

}  // namespace n0

namespace {

// A value of size T repeated from phase 0: 64 bytes for fillPattern, and
// 32 more for the tail of fillPatternNt, which starts at an inner phase.
template <class T>
struct Pattern {
    alignas(64) Vrx8u bytes[96];
    explicit Pattern(const T& v) {
        for (size_t i = 0; i < sizeof bytes; i += sizeof(T)) memcpy(bytes + i, &v, sizeof(T));
    }
};

bool cacheExceededBy(size_t bytes) {
    int cache = 0;
    return maxCacheSize(cache) && cache > 0 && bytes > static_cast<size_t>(cache);
}

// Set engines of 1, 2 and 4 bytes: beyond 2 MiB, with the pointer aligned to
// the element, non-temporal when the fill is larger than the largest cache.
template <class T>
void setEngine(T val, T* dst, size_t n) {
    const Pattern<T> pat(val);
    Vrx8u* d = reinterpret_cast<Vrx8u*>(dst);
    size_t bytes = n * sizeof(T);
    if (bytes > kFillNtFloor && (addr(d) % sizeof(T)) == 0 && cacheExceededBy(bytes))
        fillPatternNt(d, bytes, pat.bytes);
    else
        fillPattern(d, bytes, pat.bytes);
}

}  // namespace

void N0(ownsZero_8u)(Vrx8u* d, size_t n) {
    if (n > kFillNtFloor) {
        void* di = d;
        __asm__ volatile("pushfq\n\tcld\n\trep stosb\n\tpopfq" : "+D"(di), "+c"(n) : "a"(0) : "memory", "cc");
        return;
    }
    alignas(64) static constexpr Vrx8u kZeros[64] = {};
    fillPattern(d, n, kZeros);
}

void N0(ownsSet_8u)(Vrx8u val, Vrx8u* dst, size_t n) { setEngine(val, dst, n); }
void N0(ownsSet_16u)(Vrx16u val, Vrx16u* dst, size_t n) { setEngine(val, dst, n); }
void N0(ownsSet_32s)(Vrx32s val, Vrx32s* dst, size_t n) { setEngine(val, dst, n); }

// The 8-byte engine: above 262144 elements with an 8-byte aligned pointer,
// non-temporal when the count exceeds the cache size over 8.
void N0(ownsSet_64s)(Vrx64s val, Vrx64s* dst, size_t n) {
    const Pattern<Vrx64s> pat(val);
    Vrx8u* d = reinterpret_cast<Vrx8u*>(dst);
    int cache = 0;
    if (n > 0x40000 && (addr(d) & 7) == 0 && maxCacheSize(cache) && n > static_cast<size_t>(cache) / 8)
        fillPatternNt(d, n * 8, pat.bytes);
    else
        fillPattern(d, n * 8, pat.bytes);
}

// The 16-byte engine: above 65536 elements it asks the processor's cache
// descriptors itself, and streams when the vector is larger than the cache.
void N0(ownsSet_64sc)(const Vrx64sc* val, Vrx64sc* dst, size_t n) {
    const Pattern<Vrx64sc> pat(*val);
    Vrx8u* d = reinterpret_cast<Vrx8u*>(dst);
    if (n > 0x10000) {
        unsigned cache = descriptorCacheSize();
        if (cache != kNoCacheSize && n > cache / 16) {
            fillPatternNt(d, n * 16, pat.bytes);
            return;
        }
    }
    fillPattern(d, n * 16, pat.bytes);
}

// ------------------------------------------------------------------ Zero

namespace {

template <class T>
VrxStatus zeroTyped(T* pDst, int len) {
    if (VrxStatus st = checkArgs(len, pDst)) return st;
    N0(ownsZero_8u)(reinterpret_cast<Vrx8u*>(pDst), static_cast<size_t>(len) * sizeof(T));
    return vrxOk;
}

}  // namespace

#define VRX_ZERO(suffix, T) \
    VrxStatus N0(vrxsZero_##suffix)(T* pDst, int len) { return zeroTyped(pDst, len); }

VRX_ZERO(8u, Vrx8u)
VRX_ZERO(16s, Vrx16s)
VRX_ZERO(32s, Vrx32s)
VRX_ZERO(32f, Vrx32f)
VRX_ZERO(16sc, Vrx16sc)
VRX_ZERO(64s, Vrx64s)
VRX_ZERO(64f, Vrx64f)
VRX_ZERO(32sc, Vrx32sc)
VRX_ZERO(32fc, Vrx32fc)
VRX_ZERO(64sc, Vrx64sc)
VRX_ZERO(64fc, Vrx64fc)

// ------------------------------------------------------------------- Set

namespace {

template <class T>
VRX_INLINE T bitsOf(const void* p) { T v; memcpy(&v, p, sizeof v); return v; }

}  // namespace

VrxStatus N0(vrxsSet_8u)(Vrx8u val, Vrx8u* pDst, int len) {
    if (VrxStatus st = checkArgs(len, pDst)) return st;
    N0(ownsSet_8u)(val, pDst, static_cast<size_t>(len));
    return vrxOk;
}

VrxStatus N0(vrxsSet_16s)(Vrx16s val, Vrx16s* pDst, int len) {
    if (VrxStatus st = checkArgs(len, pDst)) return st;
    N0(ownsSet_16u)(static_cast<Vrx16u>(val), reinterpret_cast<Vrx16u*>(pDst), static_cast<size_t>(len));
    return vrxOk;
}

VrxStatus N0(vrxsSet_32s)(Vrx32s val, Vrx32s* pDst, int len) {
    if (VrxStatus st = checkArgs(len, pDst)) return st;
    N0(ownsSet_32s)(val, pDst, static_cast<size_t>(len));
    return vrxOk;
}

VrxStatus N0(vrxsSet_32f)(Vrx32f val, Vrx32f* pDst, int len) {
    if (VrxStatus st = checkArgs(len, pDst)) return st;
    N0(ownsSet_32s)(bitsOf<Vrx32s>(&val), reinterpret_cast<Vrx32s*>(pDst), static_cast<size_t>(len));
    return vrxOk;
}

// The pair packed in 32 bits, real part low, always to the 4-byte engine.
VrxStatus N0(vrxsSet_16sc)(Vrx16sc val, Vrx16sc* pDst, int len) {
    if (VrxStatus st = checkArgs(len, pDst)) return st;
    N0(ownsSet_32s)(bitsOf<Vrx32s>(&val), reinterpret_cast<Vrx32s*>(pDst), static_cast<size_t>(len));
    return vrxOk;
}

VrxStatus N0(vrxsSet_64s)(Vrx64s val, Vrx64s* pDst, int len) {
    if (VrxStatus st = checkArgs(len, pDst)) return st;
    N0(ownsSet_64s)(val, pDst, static_cast<size_t>(len));
    return vrxOk;
}

VrxStatus N0(vrxsSet_64f)(Vrx64f val, Vrx64f* pDst, int len) {
    if (VrxStatus st = checkArgs(len, pDst)) return st;
    N0(ownsSet_64s)(bitsOf<Vrx64s>(&val), reinterpret_cast<Vrx64s*>(pDst), static_cast<size_t>(len));
    return vrxOk;
}

// Complex pairs of 32-bit parts: packed in 64 bits, real part low.
VrxStatus N0(vrxsSet_32sc)(Vrx32sc val, Vrx32sc* pDst, int len) {
    if (VrxStatus st = checkArgs(len, pDst)) return st;
    N0(ownsSet_64s)(bitsOf<Vrx64s>(&val), reinterpret_cast<Vrx64s*>(pDst), static_cast<size_t>(len));
    return vrxOk;
}

VrxStatus N0(vrxsSet_32fc)(Vrx32fc val, Vrx32fc* pDst, int len) {
    if (VrxStatus st = checkArgs(len, pDst)) return st;
    N0(ownsSet_64s)(bitsOf<Vrx64s>(&val), reinterpret_cast<Vrx64s*>(pDst), static_cast<size_t>(len));
    return vrxOk;
}

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
