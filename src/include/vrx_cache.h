// Processor cache size, as the block-move engines ask for it.
#pragma once

#include "vrx_base.h"

// Walks a (descriptor, size) table ended by a zero descriptor against the
// CPUID leaf 2 descriptors; 0xFFFFFFFF when nothing matches.
VRX_OWN(unsigned, ownGetCacheSize, (const unsigned* table));

namespace n0 {

constexpr unsigned kNoCacheSize = 0xFFFFFFFFu;

// Size of one row code of the compact descriptor table.
unsigned compactCodeSize(unsigned char code);

// The compact-table walk of the 16-byte fill: the largest cache by the
// CPUID leaf 2 descriptors, kNoCacheSize when none is known.
unsigned descriptorCacheSize();

// The largest cache as the core library reports it; false when unknown.
VRX_INLINE bool maxCacheSize(int& size) { return vrxGetMaxCacheSizeB(&size) == 0; }

}  // namespace n0
