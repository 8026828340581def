// Byte-level engines of the block moves and the small-block primitives they
// share. Counts are in bytes. The engines choose between ordinary, string
// and non-temporal stores; their results never depend on that choice.
// Stores are at most 32 bytes wide in these engines.
#pragma once

#include "vrx_base.h"

#include <immintrin.h>
#include <string.h>

VRX_OWN(void, ownsCopy_8u, (const Vrx8u* src, Vrx8u* dst, size_t n));
VRX_OWN(void, ownsCopy_8u_E9, (const Vrx8u* src, Vrx8u* dst, size_t n));
VRX_OWN(void, ownsCopy_8u_repE9, (const Vrx8u* src, Vrx8u* dst, size_t n));
VRX_OWN(void, ownsCopy_8u_nt, (const Vrx8u* src, Vrx8u* dst, size_t n));
VRX_OWN(void, ownsCopy_8u_inv, (const Vrx8u* src, Vrx8u* dst, size_t n));
VRX_OWN(void, ownsMove_8u, (const Vrx8u* src, Vrx8u* dst, size_t n));
VRX_OWN(void, ownsZero_8u, (Vrx8u* dst, size_t n));
VRX_OWN(void, ownsSet_8u, (Vrx8u val, Vrx8u* dst, size_t n));
VRX_OWN(void, ownsSet_16u, (Vrx16u val, Vrx16u* dst, size_t n));
VRX_OWN(void, ownsSet_32s, (Vrx32s val, Vrx32s* dst, size_t n));
VRX_OWN(void, ownsSet_64s, (Vrx64s val, Vrx64s* dst, size_t n));
VRX_OWN(void, ownsSet_64sc, (const Vrx64sc* val, Vrx64sc* dst, size_t n));

namespace n0 {

// Thresholds of the engines.
constexpr size_t kCopySmallLimit = 0x8000;      // below: straight to the small engine
constexpr size_t kCopyNtFloor = 0x400000;       // above: non-temporal stores considered
constexpr size_t kCopyBackwardFloor = 0x4000;   // the small engine's long loop
constexpr uint32_t kPageGap = 0xA0;             // page-offset gap of the backward path
constexpr size_t kFillNtFloor = 0x200000;       // Set/Zero beyond the ordinary engine
constexpr size_t kLadderCeiling = 256;

VRX_INLINE __m256i ld32(const Vrx8u* p) { return _mm256_loadu_si256(reinterpret_cast<const __m256i*>(p)); }
VRX_INLINE void st32(Vrx8u* p, __m256i v) { _mm256_storeu_si256(reinterpret_cast<__m256i*>(p), v); }
VRX_INLINE void st32a(Vrx8u* p, __m256i v) { _mm256_store_si256(reinterpret_cast<__m256i*>(p), v); }
VRX_INLINE __m128i ld16(const Vrx8u* p) { return _mm_loadu_si128(reinterpret_cast<const __m128i*>(p)); }
VRX_INLINE void st16(Vrx8u* p, __m128i v) { _mm_storeu_si128(reinterpret_cast<__m128i*>(p), v); }
template <class T> VRX_INLINE T ldu(const Vrx8u* p) { T v; memcpy(&v, p, sizeof v); return v; }
template <class T> VRX_INLINE void stu(Vrx8u* p, T v) { memcpy(p, &v, sizeof v); }

// Copies n < 256 bytes with overlapping blocks from both ends. Every load
// comes before every store, so the copy is right for overlapping vectors
// in either direction.
VRX_INLINE void copySmall(const Vrx8u* s, Vrx8u* d, size_t n) {
    if (n >= 32) {
        if (n <= 64) {
            __m256i a = ld32(s), b = ld32(s + n - 32);
            st32(d, a); st32(d + n - 32, b);
        } else if (n <= 128) {
            __m256i a = ld32(s), b = ld32(s + 32), c = ld32(s + n - 64), e = ld32(s + n - 32);
            st32(d, a); st32(d + 32, b); st32(d + n - 64, c); st32(d + n - 32, e);
        } else {
            __m256i a = ld32(s), b = ld32(s + 32), c = ld32(s + 64), e = ld32(s + 96);
            __m256i f = ld32(s + n - 128), g = ld32(s + n - 96), h = ld32(s + n - 64), k = ld32(s + n - 32);
            st32(d, a); st32(d + 32, b); st32(d + 64, c); st32(d + 96, e);
            st32(d + n - 128, f); st32(d + n - 96, g); st32(d + n - 64, h); st32(d + n - 32, k);
        }
    } else if (n >= 16) {
        __m128i a = ld16(s), b = ld16(s + n - 16);
        st16(d, a); st16(d + n - 16, b);
    } else if (n >= 8) {
        uint64_t a = ldu<uint64_t>(s), b = ldu<uint64_t>(s + n - 8);
        stu(d, a); stu(d + n - 8, b);
    } else if (n >= 4) {
        uint32_t a = ldu<uint32_t>(s), b = ldu<uint32_t>(s + n - 4);
        stu(d, a); stu(d + n - 4, b);
    } else if (n > 0) {
        Vrx8u a = s[0], b = s[n >> 1], c = s[n - 1];
        d[0] = a; d[n >> 1] = b; d[n - 1] = c;
    }
}

// Pattern fills. p holds the fill pattern at phase 0 (its period, the
// element size, divides 32) and n is a multiple of the period, so every
// block that starts at a multiple of 32 from dst or ends at dst + n is at
// phase 0 too.

// n < 256 bytes, overlapping blocks from both ends.
VRX_INLINE void fillSmall(Vrx8u* d, size_t n, __m256i p) {
    if (n >= 32) {
        if (n <= 64) {
            st32(d, p); st32(d + n - 32, p);
        } else if (n <= 128) {
            st32(d, p); st32(d + 32, p); st32(d + n - 64, p); st32(d + n - 32, p);
        } else {
            st32(d, p); st32(d + 32, p); st32(d + 64, p); st32(d + 96, p);
            st32(d + n - 128, p); st32(d + n - 96, p); st32(d + n - 64, p); st32(d + n - 32, p);
        }
    } else if (n >= 16) {
        st16(d, _mm256_castsi256_si128(p)); st16(d + n - 16, _mm256_castsi256_si128(p));
    } else if (n >= 8) {
        uint64_t v = static_cast<uint64_t>(_mm256_extract_epi64(p, 0));
        stu(d, v); stu(d + n - 8, v);
    } else if (n >= 4) {
        uint32_t v = static_cast<uint32_t>(_mm256_extract_epi32(p, 0));
        stu(d, v); stu(d + n - 4, v);
    } else if (n >= 2) {
        uint16_t v = static_cast<uint16_t>(_mm256_extract_epi16(p, 0));
        stu(d, v); stu(d + n - 2, v);
    } else {
        d[0] = static_cast<Vrx8u>(_mm256_extract_epi8(p, 0));
    }
}

// n >= 256 bytes: aligned 256-byte rounds of ordinary 32-byte stores.
void fillPattern(Vrx8u* dst, size_t n, __m256i p, size_t period);
// n above 2 MiB: 128-byte rounds of non-temporal stores, then a store fence.
void fillPatternNt(Vrx8u* dst, size_t n, __m256i p, size_t period);

}  // namespace n0
