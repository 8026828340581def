// DFT of any length, 64-bit plans: the entries of the template in
// vrx_dft_impl.h with the functions of their width.
#include "vrx_dft_impl.h"

using namespace n0::dft;
using n0::fft::Form;

namespace {

using T = double;
using C = Cx<T>;
using TC = Vrx64fc;

struct Tr64 : FftPart<double> {
    static int32_t id(Kind k) { return k == Kind::C ? 16 : k == Kind::Cs ? 17 : 18; }
    static VrxStatus convGetSize(int M, int* s, int* i, int* w) {
        return N0(vrxsDFTGetSize_C_64fc)(M, 8, static_cast<VrxAlgHint>(0), s, i, w);
    }
    static VrxStatus convInit(int M, uint8_t* mem, uint8_t* ib) {
        return N0(vrxsDFTInit_C_64fc)(M, 8, static_cast<VrxAlgHint>(0), mem, ib);
    }
    static VrxStatus dftFwdC(C* s, C* d, const void* plan, uint8_t* w) {
        return N0(vrxsDFTFwd_CToC_64fc)(reinterpret_cast<TC*>(s), reinterpret_cast<TC*>(d), static_cast<const VrxsDftPlan_C_64fc*>(plan), w);
    }
    static VrxStatus dftInvC(C* s, C* d, const void* plan, uint8_t* w) {
        return N0(vrxsDFTInv_CToC_64fc)(reinterpret_cast<TC*>(s), reinterpret_cast<TC*>(d), static_cast<const VrxsDftPlan_C_64fc*>(plan), w);
    }
};

using D = Dft<T, Tr64>;

}  // namespace

VrxStatus N0(vrxsDFTGetSize_C_64fc)(int length, int flag, VrxAlgHint hint, int* pSpecSize, int* pInitSize, int* pWorkSize) { return D::getSize(Kind::C, length, flag, hint, pSpecSize, pInitSize, pWorkSize); }
VrxStatus N0(vrxsDFTGetSize_C_64f)(int length, int flag, VrxAlgHint hint, int* pSpecSize, int* pInitSize, int* pWorkSize) { return D::getSize(Kind::Cs, length, flag, hint, pSpecSize, pInitSize, pWorkSize); }
VrxStatus N0(vrxsDFTGetSize_R_64f)(int length, int flag, VrxAlgHint hint, int* pSpecSize, int* pInitSize, int* pWorkSize) { return D::getSize(Kind::R, length, flag, hint, pSpecSize, pInitSize, pWorkSize); }
VrxStatus N0(vrxsDFTInit_C_64fc)(int length, int flag, VrxAlgHint hint, Vrx8u* pSpecMem, Vrx8u* pInitBuf) { return D::init(Kind::C, length, flag, hint, pSpecMem, pInitBuf); }
VrxStatus N0(vrxsDFTInit_C_64f)(int length, int flag, VrxAlgHint hint, Vrx8u* pSpecMem, Vrx8u* pInitBuf) { return D::init(Kind::Cs, length, flag, hint, pSpecMem, pInitBuf); }
VrxStatus N0(vrxsDFTInit_R_64f)(int length, int flag, VrxAlgHint hint, Vrx8u* pSpecMem, Vrx8u* pInitBuf) { return D::init(Kind::R, length, flag, hint, pSpecMem, pInitBuf); }
VrxStatus N0(vrxsDFTFwd_CToC_64fc)(const Vrx64fc* pSrc, Vrx64fc* pDst, const VrxsDftPlan_C_64fc* plan, Vrx8u* pBuf) { return D::runC<false>(Kind::C, plan, reinterpret_cast<const T*>(pSrc), nullptr, reinterpret_cast<T*>(pDst), nullptr, pBuf); }
VrxStatus N0(vrxsDFTInv_CToC_64fc)(const Vrx64fc* pSrc, Vrx64fc* pDst, const VrxsDftPlan_C_64fc* plan, Vrx8u* pBuf) { return D::runC<true>(Kind::C, plan, reinterpret_cast<const T*>(pSrc), nullptr, reinterpret_cast<T*>(pDst), nullptr, pBuf); }
VrxStatus N0(vrxsDFTFwd_CToC_64f)(const Vrx64f* pSrcRe, const Vrx64f* pSrcIm, Vrx64f* pDstRe, Vrx64f* pDstIm, const VrxsDftPlan_C_64f* plan, Vrx8u* pBuf) { return D::runC<false>(Kind::Cs, plan, pSrcRe, pSrcIm, pDstRe, pDstIm, pBuf); }
VrxStatus N0(vrxsDFTInv_CToC_64f)(const Vrx64f* pSrcRe, const Vrx64f* pSrcIm, Vrx64f* pDstRe, Vrx64f* pDstIm, const VrxsDftPlan_C_64f* plan, Vrx8u* pBuf) { return D::runC<true>(Kind::Cs, plan, pSrcRe, pSrcIm, pDstRe, pDstIm, pBuf); }
VrxStatus N0(vrxsDFTFwd_RToCCS_64f)(const Vrx64f* pSrc, Vrx64f* pDst, const VrxsDftPlan_R_64f* plan, Vrx8u* pBuf) { return D::runRFwd(plan, pSrc, pDst, pBuf, Form::CCS); }
VrxStatus N0(vrxsDFTFwd_RToPack_64f)(const Vrx64f* pSrc, Vrx64f* pDst, const VrxsDftPlan_R_64f* plan, Vrx8u* pBuf) { return D::runRFwd(plan, pSrc, pDst, pBuf, Form::Pack); }
VrxStatus N0(vrxsDFTFwd_RToPerm_64f)(const Vrx64f* pSrc, Vrx64f* pDst, const VrxsDftPlan_R_64f* plan, Vrx8u* pBuf) { return D::runRFwd(plan, pSrc, pDst, pBuf, Form::Perm); }
VrxStatus N0(vrxsDFTInv_CCSToR_64f)(const Vrx64f* pSrc, Vrx64f* pDst, const VrxsDftPlan_R_64f* plan, Vrx8u* pBuf) { return D::runRInv(plan, pSrc, pDst, pBuf, Form::CCS); }
VrxStatus N0(vrxsDFTInv_PackToR_64f)(const Vrx64f* pSrc, Vrx64f* pDst, const VrxsDftPlan_R_64f* plan, Vrx8u* pBuf) { return D::runRInv(plan, pSrc, pDst, pBuf, Form::Pack); }
VrxStatus N0(vrxsDFTInv_PermToR_64f)(const Vrx64f* pSrc, Vrx64f* pDst, const VrxsDftPlan_R_64f* plan, Vrx8u* pBuf) { return D::runRInv(plan, pSrc, pDst, pBuf, Form::Perm); }
