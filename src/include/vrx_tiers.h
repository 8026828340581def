// Vector math at stated accuracy tiers, for use inside the library only.
// The number in a name is the tier's target in bits of the significand:
// A53/A24 full precision (HA), A50/A21 three bits less (LA), A26 (EP).
// Every entry: a count below one gives -6 (tested first), then a null
// pointer -8. Atan2 computes atan2(src1, src2), src1 being y.
#pragma once

#include "vrx_base.h"

VRX_OWN(VrxStatus, vrxsAbs_64fc_A50, (const Vrx64fc* pSrc, Vrx64f* pDst, int len));
VRX_OWN(VrxStatus, vrxsAtan2_32f_A21, (const Vrx32f* pSrc1, const Vrx32f* pSrc2, Vrx32f* pDst, int len));
VRX_OWN(VrxStatus, vrxsAtan2_64f_A50, (const Vrx64f* pSrc1, const Vrx64f* pSrc2, Vrx64f* pDst, int len));
VRX_OWN(VrxStatus, vrxsCos_32f_A24, (const Vrx32f* pSrc, Vrx32f* pDst, int len));
VRX_OWN(VrxStatus, vrxsCos_64f_A26, (const Vrx64f* pSrc, Vrx64f* pDst, int len));
VRX_OWN(VrxStatus, vrxsCos_64f_A50, (const Vrx64f* pSrc, Vrx64f* pDst, int len));
VRX_OWN(VrxStatus, vrxsCos_64f_A53, (const Vrx64f* pSrc, Vrx64f* pDst, int len));
VRX_OWN(VrxStatus, vrxsCosh_64f_A53, (const Vrx64f* pSrc, Vrx64f* pDst, int len));
VRX_OWN(VrxStatus, vrxsExp_32f_A21, (const Vrx32f* pSrc, Vrx32f* pDst, int len));
VRX_OWN(VrxStatus, vrxsLn_32f_A21, (const Vrx32f* pSrc, Vrx32f* pDst, int len));
VRX_OWN(VrxStatus, vrxsLn_64f_A53, (const Vrx64f* pSrc, Vrx64f* pDst, int len));
VRX_OWN(VrxStatus, vrxsPowx_64f_A53, (const Vrx64f* pSrc, Vrx64f exponent, Vrx64f* pDst, int len));
VRX_OWN(VrxStatus, vrxsSinCos_32f_A21, (const Vrx32f* pSrc, Vrx32f* pSin, Vrx32f* pCos, int len));
VRX_OWN(VrxStatus, vrxsSinCos_64f_A26, (const Vrx64f* pSrc, Vrx64f* pSin, Vrx64f* pCos, int len));
VRX_OWN(VrxStatus, vrxsSinCos_64f_A50, (const Vrx64f* pSrc, Vrx64f* pSin, Vrx64f* pCos, int len));
VRX_OWN(VrxStatus, vrxsSinCos_64f_A53, (const Vrx64f* pSrc, Vrx64f* pSin, Vrx64f* pCos, int len));
VRX_OWN(VrxStatus, vrxsSin_32f_A21, (const Vrx32f* pSrc, Vrx32f* pDst, int len));
VRX_OWN(VrxStatus, vrxsSin_32f_A24, (const Vrx32f* pSrc, Vrx32f* pDst, int len));
VRX_OWN(VrxStatus, vrxsSin_64f_A50, (const Vrx64f* pSrc, Vrx64f* pDst, int len));
VRX_OWN(VrxStatus, vrxsSin_64f_A53, (const Vrx64f* pSrc, Vrx64f* pDst, int len));
VRX_OWN(VrxStatus, vrxsSinh_64f_A53, (const Vrx64f* pSrc, Vrx64f* pDst, int len));
VRX_OWN(VrxStatus, vrxsSqrt_64f_A53, (const Vrx64f* pSrc, Vrx64f* pDst, int len));
