// The kernels behind the tier entries, one tier table per function and
// type, indexed by the named slots below.
#pragma once

#include "vrx_base.h"

typedef VrxStatus (*VrxKernD1)(const Vrx64f*, Vrx64f*, int);
typedef VrxStatus (*VrxKernS1)(const Vrx32f*, Vrx32f*, int);
typedef VrxStatus (*VrxKernD12)(const Vrx64f*, Vrx64f*, Vrx64f*, int);
typedef VrxStatus (*VrxKernS12)(const Vrx32f*, Vrx32f*, Vrx32f*, int);
typedef VrxStatus (*VrxKernD21)(const Vrx64f*, const Vrx64f*, Vrx64f*, int);
typedef VrxStatus (*VrxKernS21)(const Vrx32f*, const Vrx32f*, Vrx32f*, int);
typedef VrxStatus (*VrxKernDPow)(const Vrx64f*, Vrx64f, Vrx64f*, int);
typedef VrxStatus (*VrxKernZAbs)(const Vrx64fc*, Vrx64f*, int);

namespace n0::vm {
// The slots of a tier table: three bits less than full precision (LA),
// full precision (HA), and the short form (EP).
enum TierSlot : int { kSlotLA = 0, kSlotHA = 1, kSlotEP = 2 };
}  // namespace n0::vm

// A tier table: the kernel of each slot.
#define VRX_TTAB(type, name) extern "C" __attribute__((visibility("hidden"))) const type N0(name)[3]

VRX_TTAB(VrxKernD1, own_vrxs_dSin_B3_ttab);
VRX_TTAB(VrxKernD1, own_vrxs_dCos_B3_ttab);
VRX_TTAB(VrxKernD12, own_vrxs_dSinCos_B3_ttab);
VRX_TTAB(VrxKernS1, own_vrxs_sSin_B3_ttab);
VRX_TTAB(VrxKernS1, own_vrxs_sCos_B3_ttab);
VRX_TTAB(VrxKernS12, own_vrxs_sSinCos_B3_ttab);
VRX_TTAB(VrxKernD1, own_vrxs_dCosh_B3_ttab);
VRX_TTAB(VrxKernD1, own_vrxs_dSinh_B3_ttab);
VRX_TTAB(VrxKernD1, own_vrxs_dLn_B3_ttab);
VRX_TTAB(VrxKernD1, own_vrxs_dSqrt_B3_ttab);
VRX_TTAB(VrxKernDPow, own_vrxs_dPowx_B3_ttab);
VRX_TTAB(VrxKernS1, own_vrxs_sExp_B3_ttab);
VRX_TTAB(VrxKernS1, own_vrxs_sLn_B3_ttab);
VRX_TTAB(VrxKernD21, own_vrxs_dAtan2_B3_ttab);
VRX_TTAB(VrxKernS21, own_vrxs_sAtan2_B3_ttab);
VRX_TTAB(VrxKernZAbs, own_vrxs_zAbs_B3_ttab);
VRX_TTAB(VrxKernD1, own_vrxs_dExp_B3_ttab);
VRX_TTAB(VrxKernD1, own_vrxs_dAtan_B3_ttab);
VRX_TTAB(VrxKernS1, own_vrxs_sAtan_B3_ttab);

// The kernels. The suffix names the tier a kernel was written for
// (LA, HA, EP); a table may place it in other slots too.
VRX_OWN(VrxStatus, own_vrxs_dSin_B3LAynn, (const Vrx64f* s, Vrx64f* d, int n));
VRX_OWN(VrxStatus, own_vrxs_dSin_B3HAynn, (const Vrx64f* s, Vrx64f* d, int n));
VRX_OWN(VrxStatus, own_vrxs_dSin_B3EPnnn, (const Vrx64f* s, Vrx64f* d, int n));
VRX_OWN(VrxStatus, own_vrxs_dCos_B3LAynn, (const Vrx64f* s, Vrx64f* d, int n));
VRX_OWN(VrxStatus, own_vrxs_dCos_B3HAynn, (const Vrx64f* s, Vrx64f* d, int n));
VRX_OWN(VrxStatus, own_vrxs_dCos_B3EPnnn, (const Vrx64f* s, Vrx64f* d, int n));
VRX_OWN(VrxStatus, own_vrxs_dSinCos_B3LAynn, (const Vrx64f* s, Vrx64f* a, Vrx64f* b, int n));
VRX_OWN(VrxStatus, own_vrxs_dSinCos_B3HAynn, (const Vrx64f* s, Vrx64f* a, Vrx64f* b, int n));
VRX_OWN(VrxStatus, own_vrxs_dSinCos_B3EPnnn, (const Vrx64f* s, Vrx64f* a, Vrx64f* b, int n));
VRX_OWN(VrxStatus, own_vrxs_sSin_B3LAynn, (const Vrx32f* s, Vrx32f* d, int n));
VRX_OWN(VrxStatus, own_vrxs_sSin_B3HAynn, (const Vrx32f* s, Vrx32f* d, int n));
VRX_OWN(VrxStatus, own_vrxs_sCos_B3LAynn, (const Vrx32f* s, Vrx32f* d, int n));
VRX_OWN(VrxStatus, own_vrxs_sCos_B3HAynn, (const Vrx32f* s, Vrx32f* d, int n));
VRX_OWN(VrxStatus, own_vrxs_sSinCos_B3LAynn, (const Vrx32f* s, Vrx32f* a, Vrx32f* b, int n));
VRX_OWN(VrxStatus, own_vrxs_sSinCos_B3HAynn, (const Vrx32f* s, Vrx32f* a, Vrx32f* b, int n));
VRX_OWN(VrxStatus, own_vrxs_dExp_B3HAynn, (const Vrx64f* s, Vrx64f* d, int n));
VRX_OWN(VrxStatus, own_vrxs_sExp_B3LAynn, (const Vrx32f* s, Vrx32f* d, int n));
VRX_OWN(VrxStatus, own_vrxs_sExp_B3HAynn, (const Vrx32f* s, Vrx32f* d, int n));
VRX_OWN(VrxStatus, own_vrxs_dCosh_B3HAynn, (const Vrx64f* s, Vrx64f* d, int n));
VRX_OWN(VrxStatus, own_vrxs_dSinh_B3HAynn, (const Vrx64f* s, Vrx64f* d, int n));
VRX_OWN(VrxStatus, own_vrxs_dLn_B3HAynn, (const Vrx64f* s, Vrx64f* d, int n));
VRX_OWN(VrxStatus, own_vrxs_sLn_B3LAynn, (const Vrx32f* s, Vrx32f* d, int n));
VRX_OWN(VrxStatus, own_vrxs_sLn_B3HAynn, (const Vrx32f* s, Vrx32f* d, int n));
VRX_OWN(VrxStatus, own_vrxs_dAtan_B3HAynn, (const Vrx64f* s, Vrx64f* d, int n));
VRX_OWN(VrxStatus, own_vrxs_sAtan_B3HAynn, (const Vrx32f* s, Vrx32f* d, int n));
VRX_OWN(VrxStatus, own_vrxs_dAtan2_B3LAynn, (const Vrx64f* y, const Vrx64f* x, Vrx64f* d, int n));
VRX_OWN(VrxStatus, own_vrxs_sAtan2_B3LAynn, (const Vrx32f* y, const Vrx32f* x, Vrx32f* d, int n));
VRX_OWN(VrxStatus, own_vrxs_sAtan2_B3HAynn, (const Vrx32f* y, const Vrx32f* x, Vrx32f* d, int n));
VRX_OWN(VrxStatus, own_vrxs_dSqrt_B3HAynn, (const Vrx64f* s, Vrx64f* d, int n));
VRX_OWN(VrxStatus, own_vrxs_zAbs_B3LAynn, (const Vrx64fc* s, Vrx64f* d, int n));
VRX_OWN(VrxStatus, own_vrxs_dPowx_B3HAynn, (const Vrx64f* s, Vrx64f e, Vrx64f* d, int n));
