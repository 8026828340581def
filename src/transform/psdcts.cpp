// DCT entries, single precision: one line per export over the template of vrx_dct.h.
#include "vrx_dct.h"

using namespace n0::dct;
using n0::ObjId;

VrxStatus N0(vrxsDCTFwdGetSize_32f)(int length, VrxAlgHint, int* pSpecSize, int* pInitSize, int* pWorkSize) {
    return getSize<float>(length, pSpecSize, pInitSize, pWorkSize);
}
VrxStatus N0(vrxsDCTInvGetSize_32f)(int length, VrxAlgHint hint, int* pSpecSize, int* pInitSize, int* pWorkSize) {
    return N0(vrxsDCTFwdGetSize_32f)(length, hint, pSpecSize, pInitSize, pWorkSize);
}
VrxStatus N0(vrxsDCTFwdInit_32f)(VrxsDctPlan_Fwd_32f** ppPlan, int length, VrxAlgHint hint, Vrx8u* pSpecMem, Vrx8u* pInitBuf) {
    return init<float>(Width<float>::kFwd, reinterpret_cast<void**>(ppPlan), length, hint, pSpecMem, pInitBuf);
}
VrxStatus N0(vrxsDCTInvInit_32f)(VrxsDctPlan_Inv_32f** ppPlan, int length, VrxAlgHint hint, Vrx8u* pSpecMem, Vrx8u* pInitBuf) {
    return init<float>(Width<float>::kInv, reinterpret_cast<void**>(ppPlan), length, hint, pSpecMem, pInitBuf);
}
VrxStatus N0(vrxsDCTFwd_32f)(const Vrx32f* pSrc, Vrx32f* pDst, const VrxsDctPlan_Fwd_32f* plan, Vrx8u* pBuf) {
    return run<float, false>(pSrc, pDst, plan, pBuf);
}
VrxStatus N0(vrxsDCTFwd_32f_I)(Vrx32f* pSrcDst, const VrxsDctPlan_Fwd_32f* plan, Vrx8u* pBuf) {
    return run<float, false>(pSrcDst, pSrcDst, plan, pBuf);
}
VrxStatus N0(vrxsDCTInv_32f)(const Vrx32f* pSrc, Vrx32f* pDst, const VrxsDctPlan_Inv_32f* plan, Vrx8u* pBuf) {
    return run<float, true>(pSrc, pDst, plan, pBuf);
}
VrxStatus N0(vrxsDCTInv_32f_I)(Vrx32f* pSrcDst, const VrxsDctPlan_Inv_32f* plan, Vrx8u* pBuf) {
    return run<float, true>(pSrcDst, pSrcDst, plan, pBuf);
}
