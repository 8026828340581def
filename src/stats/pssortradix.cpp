// Sorts with a caller's buffer: vrxsSortRadix{Ascend,Descend}_*_I,
// vrxsSortRadixIndex{Ascend,Descend}_* and their two size queries.
//
// Buffer layout, every part starting at a multiple of 64 bytes from the
// buffer's start (the buffer itself need not be aligned):
//   8-bit          counts, 256 words                         1024 bytes
//   16-bit         counts 65536 words                        262144 bytes
//   32/64-bit      keys r(len*K), for the index forms the indices r(len*4),
//                  then the bucket counts (up to 8192 words, 32768 bytes)
// with r() rounding up to 64 and K the element size. Vectors shorter than
// 512 elements are sorted by the quicksort alone; the in-place form leaves
// the buffer alone then.
#include "pssort.h"

using namespace n0;
using namespace n0::sortk;

namespace {

// Below this length the quicksort runs in place and the buffer is unused.
constexpr size_t kMsdMin = 512;

template <class T, bool kDesc>
VrxStatus sortRadix(T* pSrcDst, int len, Vrx8u* pBuffer) {
    if (VrxStatus st = checkArgs(len, pSrcDst, pBuffer)) return st;
    using K = typename KeyOf<T>::K;
    const size_t n = static_cast<size_t>(len);
    if constexpr (sizeof(K) <= 2) {
        countSort<T, kDesc>(pSrcDst, pSrcDst, nullptr, n, reinterpret_cast<uint32_t*>(pBuffer));
    } else if (n < kMsdMin) {
        K* k = reinterpret_cast<K*>(pSrcDst);
        mapArray<T, kDesc, false>(k, k, n);
        Qs<K, false>::run(k, nullptr, n);
        mapArray<T, kDesc, true>(k, k, n);
    } else {
        msdSort<T, kDesc, false>(pSrcDst, pSrcDst, nullptr, n, pBuffer);
    }
    return vrxOk;
}

// Stable; the source is only read.
template <class T, bool kDesc>
VrxStatus sortRadixIndex(const T* pSrc, int* pDstIndx, int len, Vrx8u* pBuffer) {
    if (VrxStatus st = checkArgs(len, pSrc, pDstIndx, pBuffer)) return st;
    using K = typename KeyOf<T>::K;
    const size_t n = static_cast<size_t>(len);
    if constexpr (sizeof(K) <= 2) {
        countSort<T, kDesc>(pSrc, nullptr, pDstIndx, n, reinterpret_cast<uint32_t*>(pBuffer));
    } else if (n < kMsdMin) {
        K* k = reinterpret_cast<K*>(pBuffer);
        mapArray<T, kDesc, false>(reinterpret_cast<const K*>(pSrc), k, n);
        iota(pDstIndx, n);
        Qs<K, true>::run(k, pDstIndx, n);
    } else {
        msdSort<T, kDesc, true>(pSrc, nullptr, pDstIndx, n, pBuffer);
    }
    return vrxOk;
}

// Null pointer (-8), then length (-6), then the type selector (-12). A size
// beyond the range of int is reported as a bad length.
VrxStatus bufferSize(int len, VrxDataType dataType, int* pBufferSize, bool index) {
    if (pBufferSize == nullptr) return vrxErrNullPtr;
    if (len < 1) return vrxErrBadLength;
    const size_t n = static_cast<size_t>(len);
    size_t bytes;
    switch (dataType) {
    case vrx8u: bytes = kCountWords<uint8_t> * sizeof(uint32_t); break;
    case vrx16u:
    case vrx16s: bytes = kCountWords<uint16_t> * sizeof(uint32_t); break;
    case vrx32u:
    case vrx32s:
    case vrx32f: bytes = round64(n * 4) + (index ? round64(n * 4) : 0) + kHistBytes; break;
    case vrx64f: bytes = round64(n * 8) + (index ? round64(n * 4) : 0) + kHistBytes; break;
    default: return vrxErrDataType;
    }
    if (bytes > 0x7FFFFFFFu) return vrxErrBadLength;
    *pBufferSize = static_cast<int>(bytes);
    return vrxOk;
}

}  // namespace

VrxStatus N0(vrxsSortRadixGetBufferSize)(int len, VrxDataType dataType, int* pBufferSize) { return bufferSize(len, dataType, pBufferSize, false); }
VrxStatus N0(vrxsSortRadixIndexGetBufferSize)(int len, VrxDataType dataType, int* pBufferSize) { return bufferSize(len, dataType, pBufferSize, true); }

VrxStatus N0(vrxsSortRadixAscend_8u_I)(Vrx8u* pSrcDst, int len, Vrx8u* pBuffer) { return sortRadix<Vrx8u, false>(pSrcDst, len, pBuffer); }
VrxStatus N0(vrxsSortRadixDescend_8u_I)(Vrx8u* pSrcDst, int len, Vrx8u* pBuffer) { return sortRadix<Vrx8u, true>(pSrcDst, len, pBuffer); }
VrxStatus N0(vrxsSortRadixAscend_16u_I)(Vrx16u* pSrcDst, int len, Vrx8u* pBuffer) { return sortRadix<Vrx16u, false>(pSrcDst, len, pBuffer); }
VrxStatus N0(vrxsSortRadixDescend_16u_I)(Vrx16u* pSrcDst, int len, Vrx8u* pBuffer) { return sortRadix<Vrx16u, true>(pSrcDst, len, pBuffer); }
VrxStatus N0(vrxsSortRadixAscend_16s_I)(Vrx16s* pSrcDst, int len, Vrx8u* pBuffer) { return sortRadix<Vrx16s, false>(pSrcDst, len, pBuffer); }
VrxStatus N0(vrxsSortRadixDescend_16s_I)(Vrx16s* pSrcDst, int len, Vrx8u* pBuffer) { return sortRadix<Vrx16s, true>(pSrcDst, len, pBuffer); }
VrxStatus N0(vrxsSortRadixAscend_32u_I)(Vrx32u* pSrcDst, int len, Vrx8u* pBuffer) { return sortRadix<Vrx32u, false>(pSrcDst, len, pBuffer); }
VrxStatus N0(vrxsSortRadixDescend_32u_I)(Vrx32u* pSrcDst, int len, Vrx8u* pBuffer) { return sortRadix<Vrx32u, true>(pSrcDst, len, pBuffer); }
VrxStatus N0(vrxsSortRadixAscend_32s_I)(Vrx32s* pSrcDst, int len, Vrx8u* pBuffer) { return sortRadix<Vrx32s, false>(pSrcDst, len, pBuffer); }
VrxStatus N0(vrxsSortRadixDescend_32s_I)(Vrx32s* pSrcDst, int len, Vrx8u* pBuffer) { return sortRadix<Vrx32s, true>(pSrcDst, len, pBuffer); }
VrxStatus N0(vrxsSortRadixAscend_32f_I)(Vrx32f* pSrcDst, int len, Vrx8u* pBuffer) { return sortRadix<Vrx32f, false>(pSrcDst, len, pBuffer); }
VrxStatus N0(vrxsSortRadixDescend_32f_I)(Vrx32f* pSrcDst, int len, Vrx8u* pBuffer) { return sortRadix<Vrx32f, true>(pSrcDst, len, pBuffer); }
VrxStatus N0(vrxsSortRadixAscend_64f_I)(Vrx64f* pSrcDst, int len, Vrx8u* pBuffer) { return sortRadix<Vrx64f, false>(pSrcDst, len, pBuffer); }
VrxStatus N0(vrxsSortRadixDescend_64f_I)(Vrx64f* pSrcDst, int len, Vrx8u* pBuffer) { return sortRadix<Vrx64f, true>(pSrcDst, len, pBuffer); }

VrxStatus N0(vrxsSortRadixIndexAscend_8u)(const Vrx8u* pSrc, int* pDstIndx, int len, Vrx8u* pBuffer) { return sortRadixIndex<Vrx8u, false>(pSrc, pDstIndx, len, pBuffer); }
VrxStatus N0(vrxsSortRadixIndexDescend_8u)(const Vrx8u* pSrc, int* pDstIndx, int len, Vrx8u* pBuffer) { return sortRadixIndex<Vrx8u, true>(pSrc, pDstIndx, len, pBuffer); }
VrxStatus N0(vrxsSortRadixIndexAscend_16u)(const Vrx16u* pSrc, int* pDstIndx, int len, Vrx8u* pBuffer) { return sortRadixIndex<Vrx16u, false>(pSrc, pDstIndx, len, pBuffer); }
VrxStatus N0(vrxsSortRadixIndexDescend_16u)(const Vrx16u* pSrc, int* pDstIndx, int len, Vrx8u* pBuffer) { return sortRadixIndex<Vrx16u, true>(pSrc, pDstIndx, len, pBuffer); }
VrxStatus N0(vrxsSortRadixIndexAscend_16s)(const Vrx16s* pSrc, int* pDstIndx, int len, Vrx8u* pBuffer) { return sortRadixIndex<Vrx16s, false>(pSrc, pDstIndx, len, pBuffer); }
VrxStatus N0(vrxsSortRadixIndexDescend_16s)(const Vrx16s* pSrc, int* pDstIndx, int len, Vrx8u* pBuffer) { return sortRadixIndex<Vrx16s, true>(pSrc, pDstIndx, len, pBuffer); }
VrxStatus N0(vrxsSortRadixIndexAscend_32u)(const Vrx32u* pSrc, int* pDstIndx, int len, Vrx8u* pBuffer) { return sortRadixIndex<Vrx32u, false>(pSrc, pDstIndx, len, pBuffer); }
VrxStatus N0(vrxsSortRadixIndexDescend_32u)(const Vrx32u* pSrc, int* pDstIndx, int len, Vrx8u* pBuffer) { return sortRadixIndex<Vrx32u, true>(pSrc, pDstIndx, len, pBuffer); }
VrxStatus N0(vrxsSortRadixIndexAscend_32s)(const Vrx32s* pSrc, int* pDstIndx, int len, Vrx8u* pBuffer) { return sortRadixIndex<Vrx32s, false>(pSrc, pDstIndx, len, pBuffer); }
VrxStatus N0(vrxsSortRadixIndexDescend_32s)(const Vrx32s* pSrc, int* pDstIndx, int len, Vrx8u* pBuffer) { return sortRadixIndex<Vrx32s, true>(pSrc, pDstIndx, len, pBuffer); }
VrxStatus N0(vrxsSortRadixIndexAscend_32f)(const Vrx32f* pSrc, int* pDstIndx, int len, Vrx8u* pBuffer) { return sortRadixIndex<Vrx32f, false>(pSrc, pDstIndx, len, pBuffer); }
VrxStatus N0(vrxsSortRadixIndexDescend_32f)(const Vrx32f* pSrc, int* pDstIndx, int len, Vrx8u* pBuffer) { return sortRadixIndex<Vrx32f, true>(pSrc, pDstIndx, len, pBuffer); }
VrxStatus N0(vrxsSortRadixIndexAscend_64f)(const Vrx64f* pSrc, int* pDstIndx, int len, Vrx8u* pBuffer) { return sortRadixIndex<Vrx64f, false>(pSrc, pDstIndx, len, pBuffer); }
VrxStatus N0(vrxsSortRadixIndexDescend_64f)(const Vrx64f* pSrc, int* pDstIndx, int len, Vrx8u* pBuffer) { return sortRadixIndex<Vrx64f, true>(pSrc, pDstIndx, len, pBuffer); }
