// SwapBytes: the bytes of each element in reverse order. A 24u sample is
// three bytes, of which the outer two trade places.
// The byte shuffle has no name in the SIMD layer (no 8-bit lanes without
// AVX-512BW): the kernel uses raw 256-bit AVX2 registers.
#include "vrx_memops.h"

using namespace n0;

namespace {

template <size_t ES>
VRX_INLINE __m256i swapMask() {
    if constexpr (ES == 2)
        return _mm256_setr_epi8(1, 0, 3, 2, 5, 4, 7, 6, 9, 8, 11, 10, 13, 12, 15, 14,
                                1, 0, 3, 2, 5, 4, 7, 6, 9, 8, 11, 10, 13, 12, 15, 14);
    else if constexpr (ES == 4)
        return _mm256_setr_epi8(3, 2, 1, 0, 7, 6, 5, 4, 11, 10, 9, 8, 15, 14, 13, 12,
                                3, 2, 1, 0, 7, 6, 5, 4, 11, 10, 9, 8, 15, 14, 13, 12);
    else
        return _mm256_setr_epi8(7, 6, 5, 4, 3, 2, 1, 0, 15, 14, 13, 12, 11, 10, 9, 8,
                                7, 6, 5, 4, 3, 2, 1, 0, 15, 14, 13, 12, 11, 10, 9, 8);
}

template <class T>
VRX_INLINE T swapScalar(T v) {
    if constexpr (sizeof(T) == 2) return static_cast<T>(__builtin_bswap16(v));
    else if constexpr (sizeof(T) == 4) return __builtin_bswap32(v);
    else return __builtin_bswap64(v);
}

// Shuffled 32-byte blocks, then a scalar tail. Each block is loaded before
// it is stored, so the same pointer twice is the in-place form.
template <class T>
void swapKernel(const T* s, T* d, size_t n) {
    constexpr size_t L = 32 / sizeof(T);
    const __m256i m = swapMask<sizeof(T)>();
    size_t i = 0;
    for (; i + 2 * L <= n; i += 2 * L) {
        __m256i a = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(s + i));
        __m256i b = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(s + i + L));
        _mm256_storeu_si256(reinterpret_cast<__m256i*>(d + i), _mm256_shuffle_epi8(a, m));
        _mm256_storeu_si256(reinterpret_cast<__m256i*>(d + i + L), _mm256_shuffle_epi8(b, m));
    }
    for (; i + L <= n; i += L) {
        __m256i a = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(s + i));
        _mm256_storeu_si256(reinterpret_cast<__m256i*>(d + i), _mm256_shuffle_epi8(a, m));
    }
    for (; i < n; ++i) d[i] = swapScalar(s[i]);
}

// 24-bit samples, five at a time through a 16-byte shuffle whose last byte
// is passed through unchanged (the next block rewrites it).
void swap24Kernel(const Vrx8u* s, Vrx8u* d, size_t n) {
    const __m128i m = _mm_setr_epi8(2, 1, 0, 5, 4, 3, 8, 7, 6, 11, 10, 9, 14, 13, 12, 15);
    size_t bytes = 3 * n, k = 0;
    for (; k + 16 <= bytes; k += 15) st16(d + k, _mm_shuffle_epi8(ld16(s + k), m));
    for (; k < bytes; k += 3) {
        Vrx8u a = s[k], b = s[k + 1], c = s[k + 2];
        d[k] = c; d[k + 1] = b; d[k + 2] = a;
    }
}

template <class T>
VrxStatus swapOut(const T* pSrc, T* pDst, int len) {
    if (VrxStatus st = checkArgs(len, pSrc, pDst)) return st;
    swapKernel(pSrc, pDst, static_cast<size_t>(len));
    return vrxOk;
}

template <class T>
VrxStatus swapIn(T* pSrcDst, int len) {
    if (VrxStatus st = checkArgs(len, pSrcDst)) return st;
    swapKernel(pSrcDst, pSrcDst, static_cast<size_t>(len));
    return vrxOk;
}

}  // namespace

VrxStatus N0(vrxsSwapBytes_16u)(const Vrx16u* pSrc, Vrx16u* pDst, int len) { return swapOut(pSrc, pDst, len); }
VrxStatus N0(vrxsSwapBytes_32u)(const Vrx32u* pSrc, Vrx32u* pDst, int len) { return swapOut(pSrc, pDst, len); }
VrxStatus N0(vrxsSwapBytes_64u)(const Vrx64u* pSrc, Vrx64u* pDst, int len) { return swapOut(pSrc, pDst, len); }

// The 16-bit in-place form is the out-of-place function with one pointer twice.
VrxStatus N0(vrxsSwapBytes_16u_I)(Vrx16u* pSrcDst, int len) { return N0(vrxsSwapBytes_16u)(pSrcDst, pSrcDst, len); }
VrxStatus N0(vrxsSwapBytes_32u_I)(Vrx32u* pSrcDst, int len) { return swapIn(pSrcDst, len); }
VrxStatus N0(vrxsSwapBytes_64u_I)(Vrx64u* pSrcDst, int len) { return swapIn(pSrcDst, len); }

VrxStatus N0(vrxsSwapBytes_24u)(const Vrx8u* pSrc, Vrx8u* pDst, int len) {
    if (VrxStatus st = checkArgs(len, pSrc, pDst)) return st;
    swap24Kernel(pSrc, pDst, static_cast<size_t>(len));
    return vrxOk;
}

VrxStatus N0(vrxsSwapBytes_24u_I)(Vrx8u* pSrcDst, int len) {
    if (VrxStatus st = checkArgs(len, pSrcDst)) return st;
    swap24Kernel(pSrcDst, pSrcDst, static_cast<size_t>(len));
    return vrxOk;
}
