// Hilbert transform: the analytic signal of a real sequence through a real
// forward DFT, a bin edit (positive frequencies doubled, negative ones
// cleared) and a complex inverse DFT, both inner plans scaling the inverse.
#include "vrx_base.h"
#include "vrx_layout.h"
#include "simd/simd.h"

#include <string.h>

using n0::ObjId;

namespace {

struct HilbertPlan {
    int32_t idWord;
    int32_t length;
    int32_t workSize;
    int32_t algHint;
    VrxsDftPlan_C_32fc* planC;
    VrxsDftPlan_R_32f* planR;
};
static_assert(sizeof(HilbertPlan) == 32, "the header ahead of the inner plans");

constexpr int kFlag = 2;  // scale the inverse by 1/N

template <class P> P* align16(P* p) { return reinterpret_cast<P*>((reinterpret_cast<uintptr_t>(p) + 15) & ~uintptr_t(15)); }

// Sizes of both inner plans.
VrxStatus innerSizes(int N, VrxAlgHint hint, int* s, int* i, int* w, int* s2, int* i2, int* w2) {
    if (VrxStatus st = N0(vrxsDFTGetSize_C_32fc)(N, kFlag, hint, s, i, w)) return st;
    return N0(vrxsDFTGetSize_R_32f)(N, kFlag, hint, s2, i2, w2);
}

int max4(int a, int b, int c, int d) {
    const int x = a > b ? a : b, y = c > d ? c : d;
    return x > y ? x : y;
}

// The bin edit in one pass over the spectrum's floats: bins 1 .. m doubled
// (x + x, exact), bins h+1 .. N-1 cleared; DC and, for even N, bin h kept.
void editBins(Vrx32fc* spec, int N) {
    using F = n0::simd::V<float>;
    constexpr int L = F::N;
    const int h = N / 2, m = (N % 2 == 0) ? h - 1 : h;
    float* d = &spec[1].re;
    const int nd = 2 * m;
    for (int i = 0; i < nd; i += L) {
        const auto k = n0::simd::tail<float>(nd - i < L ? nd - i : L);
        const F::R v = F::loadm(k, d + i);
        F::storem(d + i, k, F::add(v, v));
    }
    float* z = &spec[h + 1].re;
    const int nz = 2 * (N - 1 - h);
    for (int i = 0; i < nz; i += L) F::storem(z + i, n0::simd::tail<float>(nz - i < L ? nz - i : L), F::zero());
}

}  // namespace

VrxStatus N0(vrxsHilbertGetSize_32f32fc)(int length, VrxAlgHint hint, int* pSpecSize, int* pBufSize) {
    if (!pSpecSize || !pBufSize) return vrxErrNullPtr;
    if (length < 1) return vrxErrBadLength;
    int s, i, w, s2, i2, w2;
    if (VrxStatus st = innerSizes(length, hint, &s, &i, &w, &s2, &i2, &w2)) return st;
    *pSpecSize = s + s2 + 48;
    *pBufSize = 16 + max4(i, w, i2, w2);
    return vrxOk;
}

VrxStatus N0(vrxsHilbertInit_32f32fc)(int length, VrxAlgHint hint, VrxsHilbertPlan* pSpec, Vrx8u* pBuf) {
    if (!pSpec || !pBuf) return vrxErrNullPtr;
    if (length < 1) return vrxErrBadLength;
    int s, i, w, s2, i2, w2;
    if (VrxStatus st = innerSizes(length, hint, &s, &i, &w, &s2, &i2, &w2)) return st;
    HilbertPlan* p = reinterpret_cast<HilbertPlan*>(pSpec);
    memset(p, 0, sizeof(HilbertPlan));
    uint8_t* mc = align16(reinterpret_cast<uint8_t*>(p) + sizeof(HilbertPlan));
    uint8_t* mr = mc + s;
    uint8_t* buf = align16(pBuf);
    if (VrxStatus st = N0(vrxsDFTInit_C_32fc)(length, kFlag, hint, mc, buf)) return st;
    if (VrxStatus st = N0(vrxsDFTInit_R_32f)(length, kFlag, hint, mr, buf)) return st;
    p->length = length;
    p->workSize = max4(i, w, i2, w2);
    p->algHint = hint;
    p->planC = reinterpret_cast<VrxsDftPlan_C_32fc*>(mc);
    p->planR = reinterpret_cast<VrxsDftPlan_R_32f*>(mr);
    p->idWord = n0::idWord(ObjId::Hilbert);
    return vrxOk;
}

VrxStatus N0(vrxsHilbert_32f32fc)(const Vrx32f* pSrc, Vrx32fc* pDst, const VrxsHilbertPlan* plan, Vrx8u* pBuf) {
    if (!pSrc || !pDst || !plan || !pBuf) return vrxErrNullPtr;
    const HilbertPlan* p;
    if (VrxStatus st = n0::open(plan, ObjId::Hilbert, &p)) return st;
    const int N = p->length;
    if (N < 3) {
        // the sequence is its own analytic signal here
        const Vrx32f x1 = N == 2 ? pSrc[1] : 0.0f;
        pDst[0].re = pSrc[0];
        pDst[0].im = 0.0f;
        if (N == 2) { pDst[1].re = x1; pDst[1].im = 0.0f; }
        return vrxOk;
    }
    uint8_t* buf = align16(pBuf);
    if (VrxStatus st = N0(vrxsDFTFwd_RToCCS_32f)(pSrc, reinterpret_cast<Vrx32f*>(pDst), p->planR, buf)) return st;
    editBins(pDst, N);
    return N0(vrxsDFTInv_CToC_32fc)(pDst, pDst, p->planC, buf);
}
