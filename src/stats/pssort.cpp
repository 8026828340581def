// Comparison sorts without a buffer: vrxsSort{Ascend,Descend}_*_I and the
// stable index forms vrxsSortIndex{Ascend,Descend}_*_I. 8- and 16-bit data
// are counted (the 16-bit work space lives on the stack, 256 KiB); 32- and
// 64-bit data go through their unsigned keys and the in-place quicksort.
#include "pssort.h"

using namespace n0;
using namespace n0::sortk;

namespace {

template <class T, bool kDesc>
VrxStatus sortInPlace(T* pSrcDst, int len) {
    if (VrxStatus st = checkArgs(len, pSrcDst)) return st;
    using K = typename KeyOf<T>::K;
    const size_t n = static_cast<size_t>(len);
    if constexpr (sizeof(K) <= 2) {
        uint32_t cnt[kCountWords<K>];
        countSort<T, kDesc>(pSrcDst, pSrcDst, nullptr, n, cnt);
    } else {
        K* k = reinterpret_cast<K*>(pSrcDst);
        mapArray<T, kDesc, false>(k, k, n);
        Qs<K, false>::run(k, nullptr, n);
        mapArray<T, kDesc, true>(k, k, n);
    }
    return vrxOk;
}

// Stable: equal elements keep their order in the index array. The 32- and
// 64-bit forms sort (key, position) pairs, all distinct, so the quicksort's
// result is the stable order.
template <class T, bool kDesc>
VrxStatus sortIndexInPlace(T* pSrcDst, int* pDstIndx, int len) {
    if (VrxStatus st = checkArgs(len, pSrcDst, pDstIndx)) return st;
    using K = typename KeyOf<T>::K;
    const size_t n = static_cast<size_t>(len);
    if constexpr (sizeof(K) <= 2) {
        uint32_t cnt[kCountWords<K>];
        countSort<T, kDesc>(pSrcDst, pSrcDst, pDstIndx, n, cnt);
    } else {
        K* k = reinterpret_cast<K*>(pSrcDst);
        mapArray<T, kDesc, false>(k, k, n);
        iota(pDstIndx, n);
        Qs<K, true>::run(k, pDstIndx, n);
        mapArray<T, kDesc, true>(k, k, n);
    }
    return vrxOk;
}

}  // namespace

VrxStatus N0(vrxsSortAscend_8u_I)(Vrx8u* pSrcDst, int len) { return sortInPlace<Vrx8u, false>(pSrcDst, len); }
VrxStatus N0(vrxsSortDescend_8u_I)(Vrx8u* pSrcDst, int len) { return sortInPlace<Vrx8u, true>(pSrcDst, len); }
VrxStatus N0(vrxsSortAscend_16u_I)(Vrx16u* pSrcDst, int len) { return sortInPlace<Vrx16u, false>(pSrcDst, len); }
VrxStatus N0(vrxsSortDescend_16u_I)(Vrx16u* pSrcDst, int len) { return sortInPlace<Vrx16u, true>(pSrcDst, len); }
VrxStatus N0(vrxsSortAscend_16s_I)(Vrx16s* pSrcDst, int len) { return sortInPlace<Vrx16s, false>(pSrcDst, len); }
VrxStatus N0(vrxsSortDescend_16s_I)(Vrx16s* pSrcDst, int len) { return sortInPlace<Vrx16s, true>(pSrcDst, len); }
VrxStatus N0(vrxsSortAscend_32u_I)(Vrx32u* pSrcDst, int len) { return sortInPlace<Vrx32u, false>(pSrcDst, len); }
VrxStatus N0(vrxsSortDescend_32u_I)(Vrx32u* pSrcDst, int len) { return sortInPlace<Vrx32u, true>(pSrcDst, len); }
VrxStatus N0(vrxsSortAscend_32s_I)(Vrx32s* pSrcDst, int len) { return sortInPlace<Vrx32s, false>(pSrcDst, len); }
VrxStatus N0(vrxsSortDescend_32s_I)(Vrx32s* pSrcDst, int len) { return sortInPlace<Vrx32s, true>(pSrcDst, len); }
VrxStatus N0(vrxsSortAscend_32f_I)(Vrx32f* pSrcDst, int len) { return sortInPlace<Vrx32f, false>(pSrcDst, len); }
VrxStatus N0(vrxsSortDescend_32f_I)(Vrx32f* pSrcDst, int len) { return sortInPlace<Vrx32f, true>(pSrcDst, len); }
VrxStatus N0(vrxsSortAscend_64f_I)(Vrx64f* pSrcDst, int len) { return sortInPlace<Vrx64f, false>(pSrcDst, len); }
VrxStatus N0(vrxsSortDescend_64f_I)(Vrx64f* pSrcDst, int len) { return sortInPlace<Vrx64f, true>(pSrcDst, len); }

VrxStatus N0(vrxsSortIndexAscend_8u_I)(Vrx8u* pSrcDst, int* pDstIndx, int len) { return sortIndexInPlace<Vrx8u, false>(pSrcDst, pDstIndx, len); }
VrxStatus N0(vrxsSortIndexDescend_8u_I)(Vrx8u* pSrcDst, int* pDstIndx, int len) { return sortIndexInPlace<Vrx8u, true>(pSrcDst, pDstIndx, len); }
VrxStatus N0(vrxsSortIndexAscend_16u_I)(Vrx16u* pSrcDst, int* pDstIndx, int len) { return sortIndexInPlace<Vrx16u, false>(pSrcDst, pDstIndx, len); }
VrxStatus N0(vrxsSortIndexDescend_16u_I)(Vrx16u* pSrcDst, int* pDstIndx, int len) { return sortIndexInPlace<Vrx16u, true>(pSrcDst, pDstIndx, len); }
VrxStatus N0(vrxsSortIndexAscend_16s_I)(Vrx16s* pSrcDst, int* pDstIndx, int len) { return sortIndexInPlace<Vrx16s, false>(pSrcDst, pDstIndx, len); }
VrxStatus N0(vrxsSortIndexDescend_16s_I)(Vrx16s* pSrcDst, int* pDstIndx, int len) { return sortIndexInPlace<Vrx16s, true>(pSrcDst, pDstIndx, len); }
VrxStatus N0(vrxsSortIndexAscend_32u_I)(Vrx32u* pSrcDst, int* pDstIndx, int len) { return sortIndexInPlace<Vrx32u, false>(pSrcDst, pDstIndx, len); }
VrxStatus N0(vrxsSortIndexDescend_32u_I)(Vrx32u* pSrcDst, int* pDstIndx, int len) { return sortIndexInPlace<Vrx32u, true>(pSrcDst, pDstIndx, len); }
VrxStatus N0(vrxsSortIndexAscend_32s_I)(Vrx32s* pSrcDst, int* pDstIndx, int len) { return sortIndexInPlace<Vrx32s, false>(pSrcDst, pDstIndx, len); }
VrxStatus N0(vrxsSortIndexDescend_32s_I)(Vrx32s* pSrcDst, int* pDstIndx, int len) { return sortIndexInPlace<Vrx32s, true>(pSrcDst, pDstIndx, len); }
VrxStatus N0(vrxsSortIndexAscend_32f_I)(Vrx32f* pSrcDst, int* pDstIndx, int len) { return sortIndexInPlace<Vrx32f, false>(pSrcDst, pDstIndx, len); }
VrxStatus N0(vrxsSortIndexDescend_32f_I)(Vrx32f* pSrcDst, int* pDstIndx, int len) { return sortIndexInPlace<Vrx32f, true>(pSrcDst, pDstIndx, len); }
VrxStatus N0(vrxsSortIndexAscend_64f_I)(Vrx64f* pSrcDst, int* pDstIndx, int len) { return sortIndexInPlace<Vrx64f, false>(pSrcDst, pDstIndx, len); }
VrxStatus N0(vrxsSortIndexDescend_64f_I)(Vrx64f* pSrcDst, int* pDstIndx, int len) { return sortIndexInPlace<Vrx64f, true>(pSrcDst, pDstIndx, len); }
