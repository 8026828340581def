// The FFT entries and vector helpers of each width that the families built
// on the FFT call (convolution, correlation, FIR, DFT, DCT), by element
// type: each entry of each width is named here once, and a family writes
// the operation it runs (FftCalls<E>::fwdPermI) instead of a table of its
// own per width.
//   FftCalls<Vrx32f>, <Vrx64f>    real plans: Perm, Pack and CCS spectra
//   FftCalls<Vrx32fc>, <Vrx64fc>  interleaved complex plans
//   FftSplit<float>, <double>     split complex plans (real and imaginary
//                                 parts in two vectors)
// Flags and hints are passed through unchanged.
#pragma once

#include "vrx_base.h"
#include "vrx_fft_own.h"

namespace n0 {

template <class E> struct FftCalls;

template <> struct FftCalls<Vrx32f> {
    using S = Vrx32f;
    using E = Vrx32f;
    using Cplx = Vrx32fc;
    using Plan = VrxsFftPlan_R_32f;
    static constexpr bool kCplx = false;
    static VrxStatus getSize(int o, int flag, int hint, int* s, int* i, int* w) { return N0(vrxsFFTGetSize_R_32f)(o, flag, static_cast<VrxAlgHint>(hint), s, i, w); }
    static VrxStatus init(Plan** pp, int o, int flag, int hint, Vrx8u* m, Vrx8u* b) { return N0(vrxsFFTInit_R_32f)(pp, o, flag, static_cast<VrxAlgHint>(hint), m, b); }
    static VrxStatus bufSize(const Plan* p, int* s) { return N0(ownsFFTGetBufSize_R_32f)(p, s); }
    static VrxStatus fwdPerm(const S* s, S* d, const Plan* p, Vrx8u* b) { return N0(vrxsFFTFwd_RToPerm_32f)(s, d, p, b); }
    static VrxStatus fwdPermI(S* d, const Plan* p, Vrx8u* b) { return N0(vrxsFFTFwd_RToPerm_32f_I)(d, p, b); }
    static VrxStatus invPerm(const S* s, S* d, const Plan* p, Vrx8u* b) { return N0(vrxsFFTInv_PermToR_32f)(s, d, p, b); }
    static VrxStatus invPermI(S* d, const Plan* p, Vrx8u* b) { return N0(vrxsFFTInv_PermToR_32f_I)(d, p, b); }
    static VrxStatus fwdPack(const S* s, S* d, const Plan* p, Vrx8u* b) { return N0(vrxsFFTFwd_RToPack_32f)(s, d, p, b); }
    static VrxStatus fwdPackI(S* d, const Plan* p, Vrx8u* b) { return N0(vrxsFFTFwd_RToPack_32f_I)(d, p, b); }
    static VrxStatus invPack(const S* s, S* d, const Plan* p, Vrx8u* b) { return N0(vrxsFFTInv_PackToR_32f)(s, d, p, b); }
    static VrxStatus invPackI(S* d, const Plan* p, Vrx8u* b) { return N0(vrxsFFTInv_PackToR_32f_I)(d, p, b); }
    static VrxStatus fwdCCS(const S* s, S* d, const Plan* p, Vrx8u* b) { return N0(vrxsFFTFwd_RToCCS_32f)(s, d, p, b); }
    static VrxStatus invCCS(const S* s, S* d, const Plan* p, Vrx8u* b) { return N0(vrxsFFTInv_CCSToR_32f)(s, d, p, b); }
    static VrxStatus mulPermI(const S* s, S* d, int n) { return N0(vrxsMulPerm_32f_I)(s, d, n); }
    static VrxStatus mulPackConjI(const S* s, S* d, int n) { return N0(vrxsMulPackConj_32f_I)(s, d, n); }
    static VrxStatus copy(const E* s, E* d, int n) { return N0(vrxsCopy_32f)(s, d, n); }
    static VrxStatus zero(E* d, int n) { return N0(vrxsZero_32f)(d, n); }
    static VrxStatus flipI(E* d, int n) { return N0(vrxsFlip_32f_I)(d, n); }
    static VrxStatus mulCI(S v, S* d, int n) { return N0(vrxsMulC_32f_I)(v, d, n); }
};

template <> struct FftCalls<Vrx64f> {
    using S = Vrx64f;
    using E = Vrx64f;
    using Cplx = Vrx64fc;
    using Plan = VrxsFftPlan_R_64f;
    static constexpr bool kCplx = false;
    static VrxStatus getSize(int o, int flag, int hint, int* s, int* i, int* w) { return N0(vrxsFFTGetSize_R_64f)(o, flag, static_cast<VrxAlgHint>(hint), s, i, w); }
    static VrxStatus init(Plan** pp, int o, int flag, int hint, Vrx8u* m, Vrx8u* b) { return N0(vrxsFFTInit_R_64f)(pp, o, flag, static_cast<VrxAlgHint>(hint), m, b); }
    static VrxStatus bufSize(const Plan* p, int* s) { return N0(ownsFFTGetBufSize_R_64f)(p, s); }
    static VrxStatus fwdPerm(const S* s, S* d, const Plan* p, Vrx8u* b) { return N0(vrxsFFTFwd_RToPerm_64f)(s, d, p, b); }
    static VrxStatus fwdPermI(S* d, const Plan* p, Vrx8u* b) { return N0(vrxsFFTFwd_RToPerm_64f_I)(d, p, b); }
    static VrxStatus invPerm(const S* s, S* d, const Plan* p, Vrx8u* b) { return N0(vrxsFFTInv_PermToR_64f)(s, d, p, b); }
    static VrxStatus invPermI(S* d, const Plan* p, Vrx8u* b) { return N0(vrxsFFTInv_PermToR_64f_I)(d, p, b); }
    static VrxStatus fwdPack(const S* s, S* d, const Plan* p, Vrx8u* b) { return N0(vrxsFFTFwd_RToPack_64f)(s, d, p, b); }
    static VrxStatus fwdPackI(S* d, const Plan* p, Vrx8u* b) { return N0(vrxsFFTFwd_RToPack_64f_I)(d, p, b); }
    static VrxStatus invPack(const S* s, S* d, const Plan* p, Vrx8u* b) { return N0(vrxsFFTInv_PackToR_64f)(s, d, p, b); }
    static VrxStatus invPackI(S* d, const Plan* p, Vrx8u* b) { return N0(vrxsFFTInv_PackToR_64f_I)(d, p, b); }
    static VrxStatus fwdCCS(const S* s, S* d, const Plan* p, Vrx8u* b) { return N0(vrxsFFTFwd_RToCCS_64f)(s, d, p, b); }
    static VrxStatus invCCS(const S* s, S* d, const Plan* p, Vrx8u* b) { return N0(vrxsFFTInv_CCSToR_64f)(s, d, p, b); }
    static VrxStatus mulPermI(const S* s, S* d, int n) { return N0(vrxsMulPerm_64f_I)(s, d, n); }
    static VrxStatus mulPackConjI(const S* s, S* d, int n) { return N0(vrxsMulPackConj_64f_I)(s, d, n); }
    static VrxStatus copy(const E* s, E* d, int n) { return N0(vrxsCopy_64f)(s, d, n); }
    static VrxStatus zero(E* d, int n) { return N0(vrxsZero_64f)(d, n); }
    static VrxStatus flipI(E* d, int n) { return N0(vrxsFlip_64f_I)(d, n); }
    static VrxStatus mulCI(S v, S* d, int n) { return N0(vrxsMulC_64f_I)(v, d, n); }
};

template <> struct FftCalls<Vrx32fc> {
    using S = Vrx32f;
    using E = Vrx32fc;
    using Plan = VrxsFftPlan_C_32fc;
    static constexpr bool kCplx = true;
    static VrxStatus getSize(int o, int flag, int hint, int* s, int* i, int* w) { return N0(vrxsFFTGetSize_C_32fc)(o, flag, static_cast<VrxAlgHint>(hint), s, i, w); }
    static VrxStatus init(Plan** pp, int o, int flag, int hint, Vrx8u* m, Vrx8u* b) { return N0(vrxsFFTInit_C_32fc)(pp, o, flag, static_cast<VrxAlgHint>(hint), m, b); }
    static VrxStatus bufSize(const Plan* p, int* s) { return N0(ownsFFTGetBufSize_C_32fc)(p, s); }
    static VrxStatus fwd(const E* s, E* d, const Plan* p, Vrx8u* b) { return N0(vrxsFFTFwd_CToC_32fc)(s, d, p, b); }
    static VrxStatus fwdI(E* d, const Plan* p, Vrx8u* b) { return N0(vrxsFFTFwd_CToC_32fc_I)(d, p, b); }
    static VrxStatus inv(const E* s, E* d, const Plan* p, Vrx8u* b) { return N0(vrxsFFTInv_CToC_32fc)(s, d, p, b); }
    static VrxStatus invI(E* d, const Plan* p, Vrx8u* b) { return N0(vrxsFFTInv_CToC_32fc_I)(d, p, b); }
    static VrxStatus mul(const E* a, const E* b, E* d, int n) { return N0(vrxsMul_32fc)(a, b, d, n); }
    static VrxStatus mulI(const E* s, E* d, int n) { return N0(vrxsMul_32fc_I)(s, d, n); }
    static VrxStatus conj(const E* s, E* d, int n) { return N0(vrxsConj_32fc)(s, d, n); }
    static VrxStatus conjI(E* d, int n) { return N0(vrxsConj_32fc_I)(d, n); }
    static VrxStatus copy(const E* s, E* d, int n) { return N0(vrxsCopy_32fc)(s, d, n); }
    static VrxStatus zero(E* d, int n) { return N0(vrxsZero_32fc)(d, n); }
    static VrxStatus flipI(E* d, int n) { return N0(vrxsFlip_32fc_I)(d, n); }
    // n real values (twice the element count for a whole complex vector)
    static VrxStatus mulCI(S v, S* d, int n) { return N0(vrxsMulC_32f_I)(v, d, n); }
};

template <> struct FftCalls<Vrx64fc> {
    using S = Vrx64f;
    using E = Vrx64fc;
    using Plan = VrxsFftPlan_C_64fc;
    static constexpr bool kCplx = true;
    static VrxStatus getSize(int o, int flag, int hint, int* s, int* i, int* w) { return N0(vrxsFFTGetSize_C_64fc)(o, flag, static_cast<VrxAlgHint>(hint), s, i, w); }
    static VrxStatus init(Plan** pp, int o, int flag, int hint, Vrx8u* m, Vrx8u* b) { return N0(vrxsFFTInit_C_64fc)(pp, o, flag, static_cast<VrxAlgHint>(hint), m, b); }
    static VrxStatus bufSize(const Plan* p, int* s) { return N0(ownsFFTGetBufSize_C_64fc)(p, s); }
    static VrxStatus fwd(const E* s, E* d, const Plan* p, Vrx8u* b) { return N0(vrxsFFTFwd_CToC_64fc)(s, d, p, b); }
    static VrxStatus fwdI(E* d, const Plan* p, Vrx8u* b) { return N0(vrxsFFTFwd_CToC_64fc_I)(d, p, b); }
    static VrxStatus inv(const E* s, E* d, const Plan* p, Vrx8u* b) { return N0(vrxsFFTInv_CToC_64fc)(s, d, p, b); }
    static VrxStatus invI(E* d, const Plan* p, Vrx8u* b) { return N0(vrxsFFTInv_CToC_64fc_I)(d, p, b); }
    static VrxStatus mul(const E* a, const E* b, E* d, int n) { return N0(vrxsMul_64fc)(a, b, d, n); }
    static VrxStatus mulI(const E* s, E* d, int n) { return N0(vrxsMul_64fc_I)(s, d, n); }
    static VrxStatus conj(const E* s, E* d, int n) { return N0(vrxsConj_64fc)(s, d, n); }
    static VrxStatus conjI(E* d, int n) { return N0(vrxsConj_64fc_I)(d, n); }
    static VrxStatus copy(const E* s, E* d, int n) { return N0(vrxsCopy_64fc)(s, d, n); }
    static VrxStatus zero(E* d, int n) { return N0(vrxsZero_64fc)(d, n); }
    static VrxStatus flipI(E* d, int n) { return N0(vrxsFlip_64fc_I)(d, n); }
    static VrxStatus mulCI(S v, S* d, int n) { return N0(vrxsMulC_64f_I)(v, d, n); }
};

template <class T> struct FftSplit;

template <> struct FftSplit<float> {
    using S = Vrx32f;
    using Plan = VrxsFftPlan_C_32f;
    static VrxStatus getSize(int o, int flag, int hint, int* s, int* i, int* w) { return N0(vrxsFFTGetSize_C_32f)(o, flag, static_cast<VrxAlgHint>(hint), s, i, w); }
    static VrxStatus init(Plan** pp, int o, int flag, int hint, Vrx8u* m, Vrx8u* b) { return N0(vrxsFFTInit_C_32f)(pp, o, flag, static_cast<VrxAlgHint>(hint), m, b); }
    static VrxStatus bufSize(const Plan* p, int* s) { return N0(ownsFFTGetBufSize_C_32f)(p, s); }
    static VrxStatus fwd(const S* sRe, const S* sIm, S* dRe, S* dIm, const Plan* p, Vrx8u* b) { return N0(vrxsFFTFwd_CToC_32f)(sRe, sIm, dRe, dIm, p, b); }
    static VrxStatus inv(const S* sRe, const S* sIm, S* dRe, S* dIm, const Plan* p, Vrx8u* b) { return N0(vrxsFFTInv_CToC_32f)(sRe, sIm, dRe, dIm, p, b); }
};

template <> struct FftSplit<double> {
    using S = Vrx64f;
    using Plan = VrxsFftPlan_C_64f;
    static VrxStatus getSize(int o, int flag, int hint, int* s, int* i, int* w) { return N0(vrxsFFTGetSize_C_64f)(o, flag, static_cast<VrxAlgHint>(hint), s, i, w); }
    static VrxStatus init(Plan** pp, int o, int flag, int hint, Vrx8u* m, Vrx8u* b) { return N0(vrxsFFTInit_C_64f)(pp, o, flag, static_cast<VrxAlgHint>(hint), m, b); }
    static VrxStatus bufSize(const Plan* p, int* s) { return N0(ownsFFTGetBufSize_C_64f)(p, s); }
    static VrxStatus fwd(const S* sRe, const S* sIm, S* dRe, S* dIm, const Plan* p, Vrx8u* b) { return N0(vrxsFFTFwd_CToC_64f)(sRe, sIm, dRe, dIm, p, b); }
    static VrxStatus inv(const S* sRe, const S* sIm, S* dRe, S* dIm, const Plan* p, Vrx8u* b) { return N0(vrxsFFTInv_CToC_64f)(sRe, sIm, dRe, dIm, p, b); }
};

}  // namespace n0
