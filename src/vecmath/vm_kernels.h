// The kernels behind the tier entries, one tier table per function and
// type. Slot 0 is LA, slot 1 HA, slot 2 EP.
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

#define VRX_TTAB(type, name) extern "C" __attribute__((visibility("hidden"))) const type n0_##name[3]

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
