// Allocation through the core library. The byte count is formed in 64 bits
// and limited to 2^31-1 bytes, so the limit on length depends on the type.
#include "vrx_base.h"

namespace {

template <class T, size_t ES = sizeof(T)>
T* allocate(int len) {
    if (len < 1) return nullptr;
    int64_t bytes = static_cast<int64_t>(len) * static_cast<int64_t>(ES);
    if (bytes > 0x7FFFFFFF) return nullptr;
    return static_cast<T*>(vrxMalloc(static_cast<int>(bytes)));
}

}  // namespace

Vrx8u* N0(vrxsMalloc_8u)(int len) { return allocate<Vrx8u>(len); }
Vrx8s* N0(vrxsMalloc_8s)(int len) { return allocate<Vrx8s>(len); }
Vrx16u* N0(vrxsMalloc_16u)(int len) { return allocate<Vrx16u>(len); }
Vrx16s* N0(vrxsMalloc_16s)(int len) { return allocate<Vrx16s>(len); }
Vrx8sc* N0(vrxsMalloc_8sc)(int len) { return allocate<Vrx8sc>(len); }
Vrx32u* N0(vrxsMalloc_32u)(int len) { return allocate<Vrx32u>(len); }
Vrx32s* N0(vrxsMalloc_32s)(int len) { return allocate<Vrx32s>(len); }
Vrx32f* N0(vrxsMalloc_32f)(int len) { return allocate<Vrx32f>(len); }
Vrx16sc* N0(vrxsMalloc_16sc)(int len) { return allocate<Vrx16sc>(len); }
Vrx64s* N0(vrxsMalloc_64s)(int len) { return allocate<Vrx64s>(len); }
Vrx64f* N0(vrxsMalloc_64f)(int len) { return allocate<Vrx64f>(len); }
Vrx32sc* N0(vrxsMalloc_32sc)(int len) { return allocate<Vrx32sc>(len); }
Vrx32fc* N0(vrxsMalloc_32fc)(int len) { return allocate<Vrx32fc>(len); }
Vrx64sc* N0(vrxsMalloc_64sc)(int len) { return allocate<Vrx64sc>(len); }
Vrx64fc* N0(vrxsMalloc_64fc)(int len) { return allocate<Vrx64fc>(len); }

void N0(vrxsFree)(void* ptr) { vrxFree(ptr); }
