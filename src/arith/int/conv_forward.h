// Shortcuts of the logic, shift and threshold families forward to the block
// moves; the unsigned element types share the bits of the signed ones.
#pragma once

#include "vrx_base.h"

namespace n0::fwd {

VRX_INLINE VrxStatus copyW(const Vrx8u* s, Vrx8u* d, int len) { return N0(vrxsCopy_8u)(s, d, len); }
VRX_INLINE VrxStatus copyW(const Vrx16s* s, Vrx16s* d, int len) { return N0(vrxsCopy_16s)(s, d, len); }
VRX_INLINE VrxStatus copyW(const Vrx16u* s, Vrx16u* d, int len) {
    return N0(vrxsCopy_16s)(reinterpret_cast<const Vrx16s*>(s), reinterpret_cast<Vrx16s*>(d), len);
}
VRX_INLINE VrxStatus copyW(const Vrx32s* s, Vrx32s* d, int len) { return N0(vrxsCopy_32s)(s, d, len); }
VRX_INLINE VrxStatus copyW(const Vrx32u* s, Vrx32u* d, int len) {
    return N0(vrxsCopy_32s)(reinterpret_cast<const Vrx32s*>(s), reinterpret_cast<Vrx32s*>(d), len);
}

VRX_INLINE VrxStatus zeroW(Vrx8u* d, int len) { return N0(vrxsZero_8u)(d, len); }
VRX_INLINE VrxStatus zeroW(Vrx16s* d, int len) { return N0(vrxsZero_16s)(d, len); }
VRX_INLINE VrxStatus zeroW(Vrx16u* d, int len) { return N0(vrxsZero_16s)(reinterpret_cast<Vrx16s*>(d), len); }
VRX_INLINE VrxStatus zeroW(Vrx32s* d, int len) { return N0(vrxsZero_32s)(d, len); }
VRX_INLINE VrxStatus zeroW(Vrx32u* d, int len) { return N0(vrxsZero_32s)(reinterpret_cast<Vrx32s*>(d), len); }

}  // namespace n0::fwd
