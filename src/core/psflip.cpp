// Flip: dst[i] = src[len-1-i]. One kernel per element size; a complex
// element moves whole, its parts keep their order.
// The reversal shuffles have no name in the SIMD layer: the kernels use raw
// registers, 256-bit AVX2 for 1- and 2-byte elements (no AVX-512BW byte
// shuffle), 512-bit permutes for the wider ones.
#include "vrx_memops.h"

using namespace n0;

namespace {

// Reversal of the elements of one vector register, per element size.
template <size_t ES> struct Rev;

// 1- and 2-byte elements in 32 bytes: a byte shuffle reverses the elements
// of each half, then the halves trade places.
template <size_t ES>
struct RevYmm {
    using V = __m256i;
    static constexpr size_t kLanes = 32 / ES;
    static VRX_INLINE V load(const void* p) { return _mm256_loadu_si256(static_cast<const V*>(p)); }
    static VRX_INLINE void store(void* p, V v) { _mm256_storeu_si256(static_cast<V*>(p), v); }
    static VRX_INLINE V rev(V v) {
        alignas(32) static constexpr char kIdx[32] = {
#define VRX_REV_HALF(e) (char)(15 - (e) / ES * ES - (ES - 1) + (e) % ES)
            VRX_REV_HALF(0), VRX_REV_HALF(1), VRX_REV_HALF(2), VRX_REV_HALF(3), VRX_REV_HALF(4), VRX_REV_HALF(5),
            VRX_REV_HALF(6), VRX_REV_HALF(7), VRX_REV_HALF(8), VRX_REV_HALF(9), VRX_REV_HALF(10), VRX_REV_HALF(11),
            VRX_REV_HALF(12), VRX_REV_HALF(13), VRX_REV_HALF(14), VRX_REV_HALF(15),
            VRX_REV_HALF(0), VRX_REV_HALF(1), VRX_REV_HALF(2), VRX_REV_HALF(3), VRX_REV_HALF(4), VRX_REV_HALF(5),
            VRX_REV_HALF(6), VRX_REV_HALF(7), VRX_REV_HALF(8), VRX_REV_HALF(9), VRX_REV_HALF(10), VRX_REV_HALF(11),
            VRX_REV_HALF(12), VRX_REV_HALF(13), VRX_REV_HALF(14), VRX_REV_HALF(15),
#undef VRX_REV_HALF
        };
        const V idx = _mm256_load_si256(reinterpret_cast<const V*>(kIdx));
        return _mm256_permute4x64_epi64(_mm256_shuffle_epi8(v, idx), 0x4E);
    }
};
template <> struct Rev<1> : RevYmm<1> {};
template <> struct Rev<2> : RevYmm<2> {};

template <> struct Rev<4> {
    using V = __m512i;
    static constexpr size_t kLanes = 16;
    static VRX_INLINE V load(const void* p) { return _mm512_loadu_si512(p); }
    static VRX_INLINE void store(void* p, V v) { _mm512_storeu_si512(p, v); }
    static VRX_INLINE V rev(V v) {
        return _mm512_permutexvar_epi32(_mm512_setr_epi32(15, 14, 13, 12, 11, 10, 9, 8, 7, 6, 5, 4, 3, 2, 1, 0), v);
    }
};

template <> struct Rev<8> {
    using V = __m512i;
    static constexpr size_t kLanes = 8;
    static VRX_INLINE V load(const void* p) { return _mm512_loadu_si512(p); }
    static VRX_INLINE void store(void* p, V v) { _mm512_storeu_si512(p, v); }
    static VRX_INLINE V rev(V v) { return _mm512_permutexvar_epi64(_mm512_setr_epi64(7, 6, 5, 4, 3, 2, 1, 0), v); }
};

template <> struct Rev<16> {
    using V = __m512i;
    static constexpr size_t kLanes = 4;
    static VRX_INLINE V load(const void* p) { return _mm512_loadu_si512(p); }
    static VRX_INLINE void store(void* p, V v) { _mm512_storeu_si512(p, v); }
    static VRX_INLINE V rev(V v) { return _mm512_shuffle_i64x2(v, v, 0x1B); }
};

template <size_t ES>
struct Elem { Vrx8u b[ES]; };

template <size_t ES>
void flipOut(const Vrx8u* s, Vrx8u* d, size_t n) {
    using R = Rev<ES>;
    constexpr size_t L = R::kLanes;
    size_t i = 0;
    for (; i + L <= n; i += L) R::store(d + i * ES, R::rev(R::load(s + (n - i - L) * ES)));
    const Elem<ES>* se = reinterpret_cast<const Elem<ES>*>(s);
    Elem<ES>* de = reinterpret_cast<Elem<ES>*>(d);
    for (; i < n; ++i) de[i] = se[n - 1 - i];
}

template <size_t ES>
void flipIn(Vrx8u* p, size_t n) {
    using R = Rev<ES>;
    constexpr size_t L = R::kLanes;
    size_t i = 0, j = n;
    for (; j - i >= 2 * L; i += L, j -= L) {
        auto a = R::load(p + i * ES), b = R::load(p + (j - L) * ES);
        R::store(p + i * ES, R::rev(b));
        R::store(p + (j - L) * ES, R::rev(a));
    }
    Elem<ES>* e = reinterpret_cast<Elem<ES>*>(p);
    for (; i + 1 < j; ++i, --j) {
        Elem<ES> t = e[i];
        e[i] = e[j - 1];
        e[j - 1] = t;
    }
}

template <class T>
VrxStatus flipInPlace(T* pSrcDst, int len) {
    if (VrxStatus st = checkArgs(len, pSrcDst)) return st;
    flipIn<sizeof(T)>(reinterpret_cast<Vrx8u*>(pSrcDst), static_cast<size_t>(len));
    return vrxOk;
}

template <class T>
VrxStatus flipOutOfPlace(const T* pSrc, T* pDst, int len) {
    if (VrxStatus st = checkArgs(len, pSrc, pDst)) return st;
    flipOut<sizeof(T)>(reinterpret_cast<const Vrx8u*>(pSrc), reinterpret_cast<Vrx8u*>(pDst), static_cast<size_t>(len));
    return vrxOk;
}

}  // namespace

// Equal pointers go to the in-place form before any check.
VrxStatus N0(vrxsFlip_8u_I)(Vrx8u* pSrcDst, int len) { return flipInPlace(pSrcDst, len); }
VrxStatus N0(vrxsFlip_8u)(const Vrx8u* pSrc, Vrx8u* pDst, int len) { return pSrc == pDst ? N0(vrxsFlip_8u_I)(pDst, len) : flipOutOfPlace(pSrc, pDst, len); }
VrxStatus N0(vrxsFlip_16u_I)(Vrx16u* pSrcDst, int len) { return flipInPlace(pSrcDst, len); }
VrxStatus N0(vrxsFlip_16u)(const Vrx16u* pSrc, Vrx16u* pDst, int len) { return pSrc == pDst ? N0(vrxsFlip_16u_I)(pDst, len) : flipOutOfPlace(pSrc, pDst, len); }
VrxStatus N0(vrxsFlip_32f_I)(Vrx32f* pSrcDst, int len) { return flipInPlace(pSrcDst, len); }
VrxStatus N0(vrxsFlip_32f)(const Vrx32f* pSrc, Vrx32f* pDst, int len) { return pSrc == pDst ? N0(vrxsFlip_32f_I)(pDst, len) : flipOutOfPlace(pSrc, pDst, len); }
VrxStatus N0(vrxsFlip_64f_I)(Vrx64f* pSrcDst, int len) { return flipInPlace(pSrcDst, len); }
VrxStatus N0(vrxsFlip_64f)(const Vrx64f* pSrc, Vrx64f* pDst, int len) { return pSrc == pDst ? N0(vrxsFlip_64f_I)(pDst, len) : flipOutOfPlace(pSrc, pDst, len); }
VrxStatus N0(vrxsFlip_32fc_I)(Vrx32fc* pSrcDst, int len) { return flipInPlace(pSrcDst, len); }
VrxStatus N0(vrxsFlip_32fc)(const Vrx32fc* pSrc, Vrx32fc* pDst, int len) { return pSrc == pDst ? N0(vrxsFlip_32fc_I)(pDst, len) : flipOutOfPlace(pSrc, pDst, len); }
VrxStatus N0(vrxsFlip_64fc_I)(Vrx64fc* pSrcDst, int len) { return flipInPlace(pSrcDst, len); }
VrxStatus N0(vrxsFlip_64fc)(const Vrx64fc* pSrc, Vrx64fc* pDst, int len) { return pSrc == pDst ? N0(vrxsFlip_64fc_I)(pDst, len) : flipOutOfPlace(pSrc, pDst, len); }
