// DCT entries, double precision: one line per export over the template of vrx_dct.h.
#include "vrx_dct.h"

using namespace n0::dct;
using n0::ObjId;

VrxStatus N0(vrxsDCTFwdGetSize_64f)(int length, VrxAlgHint, int* pSpecSize, int* pInitSize, int* pWorkSize) {
    return getSize<double>(length, pSpecSize, pInitSize, pWorkSize);
}
VrxStatus N0(vrxsDCTInvGetSize_64f)(int length, VrxAlgHint hint, int* pSpecSize, int* pInitSize, int* pWorkSize) {
    return N0(vrxsDCTFwdGetSize_64f)(length, hint, pSpecSize, pInitSize, pWorkSize);
}
VrxStatus N0(vrxsDCTFwdInit_64f)(VrxsDctPlan_Fwd_64f** ppPlan, int length, VrxAlgHint hint, Vrx8u* pSpecMem, Vrx8u* pInitBuf) {
    return init<double>(Width<double>::kFwd, reinterpret_cast<void**>(ppPlan), length, hint, pSpecMem, pInitBuf);
}
VrxStatus N0(vrxsDCTInvInit_64f)(VrxsDctPlan_Inv_64f** ppPlan, int length, VrxAlgHint hint, Vrx8u* pSpecMem, Vrx8u* pInitBuf) {
    return init<double>(Width<double>::kInv, reinterpret_cast<void**>(ppPlan), length, hint, pSpecMem, pInitBuf);
}
VrxStatus N0(vrxsDCTFwd_64f)(const Vrx64f* pSrc, Vrx64f* pDst, const VrxsDctPlan_Fwd_64f* plan, Vrx8u* pBuf) {
    return run<double, false>(pSrc, pDst, plan, pBuf);
}
VrxStatus N0(vrxsDCTFwd_64f_I)(Vrx64f* pSrcDst, const VrxsDctPlan_Fwd_64f* plan, Vrx8u* pBuf) {
    return run<double, false>(pSrcDst, pSrcDst, plan, pBuf);
}
VrxStatus N0(vrxsDCTInv_64f)(const Vrx64f* pSrc, Vrx64f* pDst, const VrxsDctPlan_Inv_64f* plan, Vrx8u* pBuf) {
    return run<double, true>(pSrc, pDst, plan, pBuf);
}
VrxStatus N0(vrxsDCTInv_64f_I)(Vrx64f* pSrcDst, const VrxsDctPlan_Inv_64f* plan, Vrx8u* pBuf) {
    return run<double, true>(pSrcDst, pSrcDst, plan, pBuf);
}
