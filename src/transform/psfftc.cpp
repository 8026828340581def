// Complex FFT transforms: interleaved and split data, in place and out of
// place, both directions.
#include "vrx_fft.h"
#include "vrx_layout.h"

using namespace n0::fft;
using n0::ObjId;

namespace {

template <class T> VRX_INLINE T planScale(const Plan* p) {
    if constexpr (sizeof(T) == 4) return p->normScale.f;
    else return p->normScale.d;
}

// Plan and data pointers are checked by the callers.
template <class T, bool Inv>
VrxStatus run(const Plan* plan, const T* sRe, const T* sIm, T* dRe, T* dIm, bool split, Vrx8u* pBuf) {
    if (!pBuf && plan->workSize > 0) return vrxErrNullPtr;
    const bool norm = Inv ? plan->invNorm != 0 : plan->fwdNorm != 0;
    const T scale = norm ? planScale<T>(plan) : T(0);
    uint8_t* work = plan->workSize > 0 ? align64(pBuf) : nullptr;
    complexTransform<T, Inv>(plan, plan->order, sRe, sIm, dRe, dIm, split, scale, work);
    return vrxOk;
}

template <class T, bool Inv, class C>
VRX_INLINE VrxStatus runC(const void* planV, ObjId id, const C* s, C* d, Vrx8u* pBuf) {
    const Plan* plan;
    if (VrxStatus st = n0::open(planV, id, &plan)) return st;
    if (!s || !d) return vrxErrNullPtr;
    return run<T, Inv>(plan, reinterpret_cast<const T*>(s), nullptr, reinterpret_cast<T*>(d), nullptr, false, pBuf);
}

template <class T, bool Inv>
VRX_INLINE VrxStatus runS(const void* planV, ObjId id, const T* sRe, const T* sIm, T* dRe, T* dIm, Vrx8u* pBuf) {
    const Plan* plan;
    if (VrxStatus st = n0::open(planV, id, &plan)) return st;
    if (!sRe || !sIm || !dRe || !dIm) return vrxErrNullPtr;
    return run<T, Inv>(plan, sRe, sIm, dRe, dIm, true, pBuf);
}

}  // namespace

VrxStatus N0(vrxsFFTFwd_CToC_32fc)(const Vrx32fc* pSrc, Vrx32fc* pDst, const VrxsFftPlan_C_32fc* plan, Vrx8u* pBuf) {
    return runC<float, false>(plan, ObjId::FftC32fc, pSrc, pDst, pBuf);
}
VrxStatus N0(vrxsFFTInv_CToC_32fc)(const Vrx32fc* pSrc, Vrx32fc* pDst, const VrxsFftPlan_C_32fc* plan, Vrx8u* pBuf) {
    return runC<float, true>(plan, ObjId::FftC32fc, pSrc, pDst, pBuf);
}
VrxStatus N0(vrxsFFTFwd_CToC_32fc_I)(Vrx32fc* pSrcDst, const VrxsFftPlan_C_32fc* plan, Vrx8u* pBuf) {
    return N0(vrxsFFTFwd_CToC_32fc)(pSrcDst, pSrcDst, plan, pBuf);
}
VrxStatus N0(vrxsFFTInv_CToC_32fc_I)(Vrx32fc* pSrcDst, const VrxsFftPlan_C_32fc* plan, Vrx8u* pBuf) {
    return N0(vrxsFFTInv_CToC_32fc)(pSrcDst, pSrcDst, plan, pBuf);
}
VrxStatus N0(vrxsFFTFwd_CToC_64fc)(const Vrx64fc* pSrc, Vrx64fc* pDst, const VrxsFftPlan_C_64fc* plan, Vrx8u* pBuf) {
    return runC<double, false>(plan, ObjId::FftC64fc, pSrc, pDst, pBuf);
}
VrxStatus N0(vrxsFFTInv_CToC_64fc)(const Vrx64fc* pSrc, Vrx64fc* pDst, const VrxsFftPlan_C_64fc* plan, Vrx8u* pBuf) {
    return runC<double, true>(plan, ObjId::FftC64fc, pSrc, pDst, pBuf);
}
VrxStatus N0(vrxsFFTFwd_CToC_64fc_I)(Vrx64fc* pSrcDst, const VrxsFftPlan_C_64fc* plan, Vrx8u* pBuf) {
    return N0(vrxsFFTFwd_CToC_64fc)(pSrcDst, pSrcDst, plan, pBuf);
}
VrxStatus N0(vrxsFFTInv_CToC_64fc_I)(Vrx64fc* pSrcDst, const VrxsFftPlan_C_64fc* plan, Vrx8u* pBuf) {
    return N0(vrxsFFTInv_CToC_64fc)(pSrcDst, pSrcDst, plan, pBuf);
}

VrxStatus N0(vrxsFFTFwd_CToC_32f)(const Vrx32f* pSrcRe, const Vrx32f* pSrcIm, Vrx32f* pDstRe, Vrx32f* pDstIm,
                                  const VrxsFftPlan_C_32f* plan, Vrx8u* pBuf) {
    return runS<float, false>(plan, ObjId::FftC32f, pSrcRe, pSrcIm, pDstRe, pDstIm, pBuf);
}
VrxStatus N0(vrxsFFTInv_CToC_32f)(const Vrx32f* pSrcRe, const Vrx32f* pSrcIm, Vrx32f* pDstRe, Vrx32f* pDstIm,
                                  const VrxsFftPlan_C_32f* plan, Vrx8u* pBuf) {
    return runS<float, true>(plan, ObjId::FftC32f, pSrcRe, pSrcIm, pDstRe, pDstIm, pBuf);
}
VrxStatus N0(vrxsFFTFwd_CToC_32f_I)(Vrx32f* pSrcDstRe, Vrx32f* pSrcDstIm, const VrxsFftPlan_C_32f* plan, Vrx8u* pBuf) {
    return N0(vrxsFFTFwd_CToC_32f)(pSrcDstRe, pSrcDstIm, pSrcDstRe, pSrcDstIm, plan, pBuf);
}
VrxStatus N0(vrxsFFTInv_CToC_32f_I)(Vrx32f* pSrcDstRe, Vrx32f* pSrcDstIm, const VrxsFftPlan_C_32f* plan, Vrx8u* pBuf) {
    return N0(vrxsFFTInv_CToC_32f)(pSrcDstRe, pSrcDstIm, pSrcDstRe, pSrcDstIm, plan, pBuf);
}
VrxStatus N0(vrxsFFTFwd_CToC_64f)(const Vrx64f* pSrcRe, const Vrx64f* pSrcIm, Vrx64f* pDstRe, Vrx64f* pDstIm,
                                  const VrxsFftPlan_C_64f* plan, Vrx8u* pBuf) {
    return runS<double, false>(plan, ObjId::FftC64f, pSrcRe, pSrcIm, pDstRe, pDstIm, pBuf);
}
VrxStatus N0(vrxsFFTInv_CToC_64f)(const Vrx64f* pSrcRe, const Vrx64f* pSrcIm, Vrx64f* pDstRe, Vrx64f* pDstIm,
                                  const VrxsFftPlan_C_64f* plan, Vrx8u* pBuf) {
    return runS<double, true>(plan, ObjId::FftC64f, pSrcRe, pSrcIm, pDstRe, pDstIm, pBuf);
}
VrxStatus N0(vrxsFFTFwd_CToC_64f_I)(Vrx64f* pSrcDstRe, Vrx64f* pSrcDstIm, const VrxsFftPlan_C_64f* plan, Vrx8u* pBuf) {
    return N0(vrxsFFTFwd_CToC_64f)(pSrcDstRe, pSrcDstIm, pSrcDstRe, pSrcDstIm, plan, pBuf);
}
VrxStatus N0(vrxsFFTInv_CToC_64f_I)(Vrx64f* pSrcDstRe, Vrx64f* pSrcDstIm, const VrxsFftPlan_C_64f* plan, Vrx8u* pBuf) {
    return N0(vrxsFFTInv_CToC_64f)(pSrcDstRe, pSrcDstIm, pSrcDstRe, pSrcDstIm, plan, pBuf);
}
