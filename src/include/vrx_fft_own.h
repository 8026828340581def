// Internal FFT entries that other families use (DFT plans, convolution,
// FIR filters): the work-buffer query of a plan and the conjugate product
// of packed spectra.
#pragma once

#include "vrx_base.h"

// *pSize: the plan's work bytes plus 64 of slack, or 0 when it needs none.
// Null plan or pointer -8, a plan of another kind -17.
VRX_OWN(VrxStatus, ownsFFTGetBufSize_C_32fc, (const VrxsFftPlan_C_32fc* plan, int* pSize));
VRX_OWN(VrxStatus, ownsFFTGetBufSize_C_32f, (const VrxsFftPlan_C_32f* plan, int* pSize));
VRX_OWN(VrxStatus, ownsFFTGetBufSize_R_32f, (const VrxsFftPlan_R_32f* plan, int* pSize));
VRX_OWN(VrxStatus, ownsFFTGetBufSize_C_64fc, (const VrxsFftPlan_C_64fc* plan, int* pSize));
VRX_OWN(VrxStatus, ownsFFTGetBufSize_C_64f, (const VrxsFftPlan_C_64f* plan, int* pSize));
VRX_OWN(VrxStatus, ownsFFTGetBufSize_R_64f, (const VrxsFftPlan_R_64f* plan, int* pSize));

// pDst = pSrc1 times the conjugate of pSrc2, in the Pack layout.
VRX_OWN(VrxStatus, ownsMulPackConj_32f, (const Vrx32f* pSrc1, const Vrx32f* pSrc2, Vrx32f* pDst, int len));
VRX_OWN(VrxStatus, ownsMulPackConj_64f, (const Vrx64f* pSrc1, const Vrx64f* pSrc2, Vrx64f* pDst, int len));
