// DFT of any length, 32-bit plans: the entries of the template in
// vrx_dft_impl.h with the functions of their width.
#include "vrx_dft_impl.h"
#include "vrx_fft_own.h"

using namespace n0::dft;
using n0::fft::Form;

namespace {

using T = float;
using C = Cx<T>;
using TC = Vrx32fc;

struct Tr32 {
    static int32_t id(Kind k) { return k == Kind::C ? 13 : k == Kind::Cs ? 14 : 15; }
    static VrxStatus fftGetSize(Kind k, int order, int flag, int hint, int* s, int* i, int* w) {
        if (k == Kind::C) return N0(vrxsFFTGetSize_C_32fc)(order, flag, static_cast<VrxAlgHint>(hint), s, i, w);
        if (k == Kind::Cs) return N0(vrxsFFTGetSize_C_32f)(order, flag, static_cast<VrxAlgHint>(hint), s, i, w);
        return N0(vrxsFFTGetSize_R_32f)(order, flag, static_cast<VrxAlgHint>(hint), s, i, w);
    }
    static VrxStatus fftInit(Kind k, void** pp, int order, int flag, int hint, uint8_t* mem, uint8_t* ib) {
        const VrxAlgHint h = static_cast<VrxAlgHint>(hint);
        if (k == Kind::C) return N0(vrxsFFTInit_C_32fc)(reinterpret_cast<VrxsFftPlan_C_32fc**>(pp), order, flag, h, mem, ib);
        if (k == Kind::Cs) return N0(vrxsFFTInit_C_32f)(reinterpret_cast<VrxsFftPlan_C_32f**>(pp), order, flag, h, mem, ib);
        return N0(vrxsFFTInit_R_32f)(reinterpret_cast<VrxsFftPlan_R_32f**>(pp), order, flag, h, mem, ib);
    }
    static VrxStatus fftBufSize(Kind k, void* plan, int* s) {
        if (k == Kind::C) return N0(ownsFFTGetBufSize_C_32fc)(static_cast<const VrxsFftPlan_C_32fc*>(plan), s);
        if (k == Kind::Cs) return N0(ownsFFTGetBufSize_C_32f)(static_cast<const VrxsFftPlan_C_32f*>(plan), s);
        return N0(ownsFFTGetBufSize_R_32f)(static_cast<const VrxsFftPlan_R_32f*>(plan), s);
    }
    static VrxStatus fftRunC(Kind k, bool inv, const T* sRe, const T* sIm, T* dRe, T* dIm, const void* plan, Vrx8u* buf) {
        if (k == Kind::C) {
            const TC* s = reinterpret_cast<const TC*>(sRe);
            TC* d = reinterpret_cast<TC*>(dRe);
            const VrxsFftPlan_C_32fc* pl = static_cast<const VrxsFftPlan_C_32fc*>(plan);
            return inv ? N0(vrxsFFTInv_CToC_32fc)(s, d, pl, buf) : N0(vrxsFFTFwd_CToC_32fc)(s, d, pl, buf);
        }
        const VrxsFftPlan_C_32f* pl = static_cast<const VrxsFftPlan_C_32f*>(plan);
        return inv ? N0(vrxsFFTInv_CToC_32f)(sRe, sIm, dRe, dIm, pl, buf) : N0(vrxsFFTFwd_CToC_32f)(sRe, sIm, dRe, dIm, pl, buf);
    }
    static VrxStatus fftRunR(bool inv, Form f, const T* s, T* d, const void* plan, Vrx8u* buf) {
        const VrxsFftPlan_R_32f* pl = static_cast<const VrxsFftPlan_R_32f*>(plan);
        if (!inv) {
            if (f == Form::CCS) return N0(vrxsFFTFwd_RToCCS_32f)(s, d, pl, buf);
            if (f == Form::Pack) return N0(vrxsFFTFwd_RToPack_32f)(s, d, pl, buf);
            return N0(vrxsFFTFwd_RToPerm_32f)(s, d, pl, buf);
        }
        if (f == Form::CCS) return N0(vrxsFFTInv_CCSToR_32f)(s, d, pl, buf);
        if (f == Form::Pack) return N0(vrxsFFTInv_PackToR_32f)(s, d, pl, buf);
        return N0(vrxsFFTInv_PermToR_32f)(s, d, pl, buf);
    }
    static VrxStatus convGetSize(int M, int* s, int* i, int* w) {
        return N0(vrxsDFTGetSize_C_32fc)(M, 8, static_cast<VrxAlgHint>(0), s, i, w);
    }
    static VrxStatus convInit(int M, uint8_t* mem, uint8_t* ib) {
        return N0(vrxsDFTInit_C_32fc)(M, 8, static_cast<VrxAlgHint>(0), mem, ib);
    }
    static VrxStatus dftFwdC(C* s, C* d, const void* plan, uint8_t* w) {
        return N0(vrxsDFTFwd_CToC_32fc)(reinterpret_cast<TC*>(s), reinterpret_cast<TC*>(d), static_cast<const VrxsDftPlan_C_32fc*>(plan), w);
    }
    static VrxStatus dftInvC(C* s, C* d, const void* plan, uint8_t* w) {
        return N0(vrxsDFTInv_CToC_32fc)(reinterpret_cast<TC*>(s), reinterpret_cast<TC*>(d), static_cast<const VrxsDftPlan_C_32fc*>(plan), w);
    }
    static VrxStatus zeroC(C* d, int n) { return N0(vrxsZero_32fc)(reinterpret_cast<TC*>(d), n); }
    static VrxStatus mulCI(const C* s, C* d, int n) {
        return N0(vrxsMul_32fc_I)(reinterpret_cast<const TC*>(s), reinterpret_cast<TC*>(d), n);
    }
    static VrxStatus mulC(const C* a, const C* b, C* d, int n) {
        return N0(vrxsMul_32fc)(reinterpret_cast<const TC*>(a), reinterpret_cast<const TC*>(b), reinterpret_cast<TC*>(d), n);
    }
    static VrxStatus mulScalarI(T v, T* d, int n) { return N0(vrxsMulC_32f_I)(v, d, n); }
};

using D = Dft<T, Tr32>;

}  // namespace

VrxStatus N0(vrxsDFTGetSize_C_32fc)(int length, int flag, VrxAlgHint hint, int* pSpecSize, int* pInitSize, int* pWorkSize) { return D::getSize(Kind::C, length, flag, hint, pSpecSize, pInitSize, pWorkSize); }
VrxStatus N0(vrxsDFTGetSize_C_32f)(int length, int flag, VrxAlgHint hint, int* pSpecSize, int* pInitSize, int* pWorkSize) { return D::getSize(Kind::Cs, length, flag, hint, pSpecSize, pInitSize, pWorkSize); }
VrxStatus N0(vrxsDFTGetSize_R_32f)(int length, int flag, VrxAlgHint hint, int* pSpecSize, int* pInitSize, int* pWorkSize) { return D::getSize(Kind::R, length, flag, hint, pSpecSize, pInitSize, pWorkSize); }
VrxStatus N0(vrxsDFTInit_C_32fc)(int length, int flag, VrxAlgHint hint, Vrx8u* pSpecMem, Vrx8u* pInitBuf) { return D::init(Kind::C, length, flag, hint, pSpecMem, pInitBuf); }
VrxStatus N0(vrxsDFTInit_C_32f)(int length, int flag, VrxAlgHint hint, Vrx8u* pSpecMem, Vrx8u* pInitBuf) { return D::init(Kind::Cs, length, flag, hint, pSpecMem, pInitBuf); }
VrxStatus N0(vrxsDFTInit_R_32f)(int length, int flag, VrxAlgHint hint, Vrx8u* pSpecMem, Vrx8u* pInitBuf) { return D::init(Kind::R, length, flag, hint, pSpecMem, pInitBuf); }
VrxStatus N0(vrxsDFTFwd_CToC_32fc)(const Vrx32fc* pSrc, Vrx32fc* pDst, const VrxsDftPlan_C_32fc* plan, Vrx8u* pBuf) { return D::runC<false>(Kind::C, plan, reinterpret_cast<const T*>(pSrc), nullptr, reinterpret_cast<T*>(pDst), nullptr, pBuf); }
VrxStatus N0(vrxsDFTInv_CToC_32fc)(const Vrx32fc* pSrc, Vrx32fc* pDst, const VrxsDftPlan_C_32fc* plan, Vrx8u* pBuf) { return D::runC<true>(Kind::C, plan, reinterpret_cast<const T*>(pSrc), nullptr, reinterpret_cast<T*>(pDst), nullptr, pBuf); }
VrxStatus N0(vrxsDFTFwd_CToC_32f)(const Vrx32f* pSrcRe, const Vrx32f* pSrcIm, Vrx32f* pDstRe, Vrx32f* pDstIm, const VrxsDftPlan_C_32f* plan, Vrx8u* pBuf) { return D::runC<false>(Kind::Cs, plan, pSrcRe, pSrcIm, pDstRe, pDstIm, pBuf); }
VrxStatus N0(vrxsDFTInv_CToC_32f)(const Vrx32f* pSrcRe, const Vrx32f* pSrcIm, Vrx32f* pDstRe, Vrx32f* pDstIm, const VrxsDftPlan_C_32f* plan, Vrx8u* pBuf) { return D::runC<true>(Kind::Cs, plan, pSrcRe, pSrcIm, pDstRe, pDstIm, pBuf); }
VrxStatus N0(vrxsDFTFwd_RToCCS_32f)(const Vrx32f* pSrc, Vrx32f* pDst, const VrxsDftPlan_R_32f* plan, Vrx8u* pBuf) { return D::runRFwd(plan, pSrc, pDst, pBuf, Form::CCS); }
VrxStatus N0(vrxsDFTFwd_RToPack_32f)(const Vrx32f* pSrc, Vrx32f* pDst, const VrxsDftPlan_R_32f* plan, Vrx8u* pBuf) { return D::runRFwd(plan, pSrc, pDst, pBuf, Form::Pack); }
VrxStatus N0(vrxsDFTFwd_RToPerm_32f)(const Vrx32f* pSrc, Vrx32f* pDst, const VrxsDftPlan_R_32f* plan, Vrx8u* pBuf) { return D::runRFwd(plan, pSrc, pDst, pBuf, Form::Perm); }
VrxStatus N0(vrxsDFTInv_CCSToR_32f)(const Vrx32f* pSrc, Vrx32f* pDst, const VrxsDftPlan_R_32f* plan, Vrx8u* pBuf) { return D::runRInv(plan, pSrc, pDst, pBuf, Form::CCS); }
VrxStatus N0(vrxsDFTInv_PackToR_32f)(const Vrx32f* pSrc, Vrx32f* pDst, const VrxsDftPlan_R_32f* plan, Vrx8u* pBuf) { return D::runRInv(plan, pSrc, pDst, pBuf, Form::Pack); }
VrxStatus N0(vrxsDFTInv_PermToR_32f)(const Vrx32f* pSrc, Vrx32f* pDst, const VrxsDftPlan_R_32f* plan, Vrx8u* pBuf) { return D::runRInv(plan, pSrc, pDst, pBuf, Form::Perm); }
