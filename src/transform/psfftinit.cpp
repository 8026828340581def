// FFT plans: size queries and initialisation of the six plan kinds.
#include "vrx_fft_layout.h"
#include "vrx_fft_sintab.h"
#include "vrx_tiers.h"
#include "vrx_fft_own.h"
#include "vrx_fft_recomb.h"
#include "vrx_fft_f64.h"

#include <math.h>

namespace n0::fft {

namespace {

VRX_INLINE bool flagKnown(int flag) { return flag == 8 || flag == 4 || flag == 1 || flag == 2; }

// Every layout fits inside the sizes reported, at any misalignment of the
// caller's blocks: the plan in the plan size (pSpecSize), the sine table in the init
// size.
template <class T> constexpr bool layoutFits(const Kind& k) {
    for (int order = 0; order <= k.maxOrder; ++order) {
        const PlanSizes z = planSizes(k, order);
        Carver plan, init;
        planLayout<T>(plan, k, order);
        initLayout<T>(init, order);
        if (plan.size() + Carver::kSlack > z.spec) return false;
        if (init.size() > 0 && init.size() + Carver::kSlack > z.init) return false;
    }
    return true;
}
static_assert(layoutFits<float>(kC32fc) && layoutFits<float>(kR32f), "a single-precision plan outgrows its size");
static_assert(layoutFits<double>(kC64fc) && layoutFits<double>(kR64f), "a double-precision plan outgrows its size");

VrxStatus getSize(const Kind& k, int order, int flag, int* pSpec, int* pInit, int* pWork) {
    if (static_cast<unsigned>(order) > 30u) return vrxErrFftOrder;
    if (anyNull(pSpec, pInit, pWork)) return vrxErrNullPtr;
    if (!flagKnown(flag)) return vrxErrFftFlag;
    if (order > k.maxOrder) return vrxErrFftOrder;
    const PlanSizes z = planSizes(k, order);
    *pSpec = z.spec;
    *pInit = z.init;
    *pWork = z.work;
    return vrxOk;
}

// The sine table of resolution 2^order in the init buffer: the first octant
// by sines, the second by cosines of the complement, so that every argument
// stays at or below pi/4.
void owns_initTabTwdBase_64f(int order, double* tab) {
    const int64_t N = int64_t(1) << order;
    const double step = 6.283185307179586476925286766559 / static_cast<double>(N);
    const int64_t e = N / 8, q = N / 4;
    for (int64_t j = 0; j <= e; ++j) tab[j] = static_cast<double>(j) * step;
    for (int64_t j = e + 1; j <= q; ++j) tab[j] = static_cast<double>(q - j) * step;
    N0(vrxsSin_64f_A53)(tab, tab, static_cast<int>(e + 1));
    N0(vrxsCos_64f_A53)(tab + e + 1, tab + e + 1, static_cast<int>(q - e));
}

void owns_initTabTwdBase_32f(int order, float* tab) {
    const int64_t N = int64_t(1) << order;
    const double step = 6.283185307179586476925286766559 / static_cast<double>(N);
    const int64_t e = N / 8, q = N / 4;
    for (int64_t j = 0; j <= e; ++j) tab[j] = static_cast<float>(static_cast<double>(j) * step);
    for (int64_t j = e + 1; j <= q; ++j) tab[j] = static_cast<float>(static_cast<double>(q - j) * step);
    N0(vrxsSin_32f_A24)(tab, tab, static_cast<int>(e + 1));
    N0(vrxsCos_32f_A24)(tab + e + 1, tab + e + 1, static_cast<int>(q - e));
}

// Recombination tables of a real plan of order n, theta(k) = 2*pi*k/N, in
// the layouts of vrx_fft_recomb.h. Single level (k = 1 .. N/4): forward
// 0.5*cos and 0.5 - 0.5*sin, inverse cos and -sin. Two levels: a fine part
// of kRecombFine factors cos, -sin for k = 1 .. kRecombFine, then the
// coarse factors (cos, -sin) of theta(kRecombFine*j), j = 0 ..
// N/(4*kRecombFine) - 1, adjacent; both directions hold the same values.

template <bool Planar, class T> VRX_INLINE void putFactors(T* d, int64_t k, T first, T second) {
    int64_t a, b;
    recombSlots<Planar>(k, a, b);
    d[a] = first;
    d[b] = second;
}

template <class T> void buildRecomb(int order, const SineTab<T>& st, T* d, bool fwd) {
    const int64_t N = int64_t(1) << order;
    const int64_t q = N / 4;
    const bool two = recombTwoLevel<T>(order);
    const bool planar = recombPlanar<T>(order);
    const int64_t nFine = two ? kRecombFine : q;
    for (int64_t k = 1; k <= nFine; ++k) {
        T c, s;
        st.cosSin(k, order, c, s);
        const T a = fwd && !two ? T(0.5) * c : c, b = fwd && !two ? T(0.5) - T(0.5) * s : -s;
        if (fwd && recombGroupsFwd<T>(order)) {
            int64_t ia, ib;
            groupSlots(k, q, ia, ib);
            d[ia] = a;
            d[ib] = b;
        } else if (planar) putFactors<true>(d, k, a, b);
        else putFactors<false>(d, k, a, b);
    }
    T* e = d + 2 * nFine;
    if (two) {
        for (int64_t j = 0; j < q / kRecombFine; ++j) {
            T c, s;
            st.cosSin(j * kRecombFine, order, c, s);
            *e++ = c;
            *e++ = -s;
        }
    }
}

template <class T>
VrxStatus init(const Kind& k, void** ppPlan, int order, int flag, int hint, uint8_t* pSpecMem, uint8_t* pInitBuf) {
    if (!ppPlan) return vrxErrNullPtr;
    if (order < 0 || order > k.maxOrder) return vrxErrFftOrder;
    if (!pSpecMem) return vrxErrNullPtr;
    Carver c(pSpecMem);
    const PlanPieces<T> o = planLayout<T>(c, k, order);
    Plan* plan = o.hdr;
    memset(plan, 0, sizeof(Plan));
    plan->order = order;
    plan->algHint = hint;
    plan->cleared = 0;
    const int64_t N = int64_t(1) << order;
    T scale;
    switch (flag) {
        case 1: plan->fwdNorm = 1; scale = T(1) / static_cast<T>(N); break;
        case 2: plan->invNorm = 1; scale = T(1) / static_cast<T>(N); break;
        case 4: plan->fwdNorm = plan->invNorm = 1; scale = static_cast<T>(1.0 / sqrt(static_cast<double>(N))); break;
        case 8: scale = T(0); break;
        default: plan->idWord = 0; return vrxErrFftFlag;
    }
    if (sizeof(T) == 4) plan->normScale.f = static_cast<float>(scale);
    else plan->normScale.d = static_cast<double>(scale);
    plan->idWord = idWord(k.id);
    const int smallEnd = k.real ? 4 : 6;
    if (order <= smallEnd) {
        plan->workSize = 0;
        *ppPlan = plan;
        return vrxOk;
    }
    SineTab<T> st;
    if (order < 11) {
        st.tab = sizeof(T) == 4 ? reinterpret_cast<const T*>(fft_fix_twiddle_table_32f)
                                : reinterpret_cast<const T*>(fft_fix_twiddle_table_64f);
        st.tabOrder = 10;
    } else {
        if (!pInitBuf) return vrxErrNullPtr;
        Carver ci(pInitBuf);
        T* tab = initLayout<T>(ci, order);
        if constexpr (sizeof(T) == 4) owns_initTabTwdBase_32f(order, tab);
        else owns_initTabTwdBase_64f(order, tab);
        st.tab = tab;
        st.tabOrder = order;
    }
    plan->bitRevTab = o.bitRev;
    plan->twiddleTab = o.twiddle;
    for (int l = 0; l < 3; ++l) plan->stepTab[l] = o.step[l];
    plan->recombFwdTab = o.recombFwd;
    plan->recombInvTab = o.recombInv;
    const int m = k.real ? order - 1 : order;
    if (!k.real || order >= 8) {
        if (!onLargePath<T>(m, k.real)) {
            initTabBitRevNorm(m, o.bitRev);
            initTabTwdL1<T>(m, st, o.twiddle, pairedKind(k.id));
        } else {
            initTabTwdLarge<T>(plan, m, st);
        }
        plan->workSize = complexWorkSize<T>(m);
    } else {
        plan->workSize = 0;
    }
    if (k.real) {
        buildRecomb<T>(order, st, o.recombFwd, true);
        if (o.recombInv != o.recombFwd) buildRecomb<T>(order, st, o.recombInv, false);
    }
    *ppPlan = plan;
    return vrxOk;
}

}  // namespace

}  // namespace n0::fft

using namespace n0::fft;
using n0::ObjId;

namespace {
VrxStatus bufSize(const void* plan, int* pSize, ObjId id) {
    if (!pSize) return vrxErrNullPtr;
    const Plan* p;
    if (VrxStatus st = n0::open(plan, id, &p)) return st;
    *pSize = p->workSize > 0 ? p->workSize + 64 : 0;
    return vrxOk;
}
}  // namespace

VrxStatus N0(ownsFFTGetBufSize_C_32fc)(const VrxsFftPlan_C_32fc* plan, int* pSize) { return bufSize(plan, pSize, ObjId::FftC32fc); }
VrxStatus N0(ownsFFTGetBufSize_C_32f)(const VrxsFftPlan_C_32f* plan, int* pSize) { return bufSize(plan, pSize, ObjId::FftC32f); }
VrxStatus N0(ownsFFTGetBufSize_R_32f)(const VrxsFftPlan_R_32f* plan, int* pSize) { return bufSize(plan, pSize, ObjId::FftR32f); }
VrxStatus N0(ownsFFTGetBufSize_C_64fc)(const VrxsFftPlan_C_64fc* plan, int* pSize) { return bufSize(plan, pSize, ObjId::FftC64fc); }
VrxStatus N0(ownsFFTGetBufSize_C_64f)(const VrxsFftPlan_C_64f* plan, int* pSize) { return bufSize(plan, pSize, ObjId::FftC64f); }
VrxStatus N0(ownsFFTGetBufSize_R_64f)(const VrxsFftPlan_R_64f* plan, int* pSize) { return bufSize(plan, pSize, ObjId::FftR64f); }

VrxStatus N0(vrxsFFTGetSize_C_32fc)(int order, int flag, VrxAlgHint, int* pSpecSize, int* pInitSize, int* pWorkSize) {
    return getSize(kC32fc, order, flag, pSpecSize, pInitSize, pWorkSize);
}
VrxStatus N0(vrxsFFTGetSize_C_32f)(int order, int flag, VrxAlgHint hint, int* pSpecSize, int* pInitSize, int* pWorkSize) {
    return N0(vrxsFFTGetSize_C_32fc)(order, flag, hint, pSpecSize, pInitSize, pWorkSize);
}
VrxStatus N0(vrxsFFTGetSize_R_32f)(int order, int flag, VrxAlgHint, int* pSpecSize, int* pInitSize, int* pWorkSize) {
    return getSize(kR32f, order, flag, pSpecSize, pInitSize, pWorkSize);
}
VrxStatus N0(vrxsFFTGetSize_C_64fc)(int order, int flag, VrxAlgHint, int* pSpecSize, int* pInitSize, int* pWorkSize) {
    return getSize(kC64fc, order, flag, pSpecSize, pInitSize, pWorkSize);
}
VrxStatus N0(vrxsFFTGetSize_C_64f)(int order, int flag, VrxAlgHint hint, int* pSpecSize, int* pInitSize, int* pWorkSize) {
    return N0(vrxsFFTGetSize_C_64fc)(order, flag, hint, pSpecSize, pInitSize, pWorkSize);
}
VrxStatus N0(vrxsFFTGetSize_R_64f)(int order, int flag, VrxAlgHint, int* pSpecSize, int* pInitSize, int* pWorkSize) {
    return getSize(kR64f, order, flag, pSpecSize, pInitSize, pWorkSize);
}

VrxStatus N0(vrxsFFTInit_C_32fc)(VrxsFftPlan_C_32fc** ppPlan, int order, int flag, VrxAlgHint hint, Vrx8u* pSpecMem, Vrx8u* pInitBuf) {
    return init<float>(kC32fc, reinterpret_cast<void**>(ppPlan), order, flag, hint, pSpecMem, pInitBuf);
}
VrxStatus N0(vrxsFFTInit_C_64fc)(VrxsFftPlan_C_64fc** ppPlan, int order, int flag, VrxAlgHint hint, Vrx8u* pSpecMem, Vrx8u* pInitBuf) {
    return init<double>(kC64fc, reinterpret_cast<void**>(ppPlan), order, flag, hint, pSpecMem, pInitBuf);
}
VrxStatus N0(vrxsFFTInit_R_32f)(VrxsFftPlan_R_32f** ppPlan, int order, int flag, VrxAlgHint hint, Vrx8u* pSpecMem, Vrx8u* pInitBuf) {
    return init<float>(kR32f, reinterpret_cast<void**>(ppPlan), order, flag, hint, pSpecMem, pInitBuf);
}
VrxStatus N0(vrxsFFTInit_R_64f)(VrxsFftPlan_R_64f** ppPlan, int order, int flag, VrxAlgHint hint, Vrx8u* pSpecMem, Vrx8u* pInitBuf) {
    return init<double>(kR64f, reinterpret_cast<void**>(ppPlan), order, flag, hint, pSpecMem, pInitBuf);
}

// The split-data plans are the interleaved ones under their own identity word.
VrxStatus N0(vrxsFFTInit_C_32f)(VrxsFftPlan_C_32f** ppPlan, int order, int flag, VrxAlgHint hint, Vrx8u* pSpecMem, Vrx8u* pInitBuf) {
    VrxsFftPlan_C_32fc* p = nullptr;
    VrxStatus st = N0(vrxsFFTInit_C_32fc)(ppPlan ? &p : nullptr, order, flag, hint, pSpecMem, pInitBuf);
    if (st != vrxOk) return st;
    reinterpret_cast<Plan*>(p)->idWord = idWord(ObjId::FftC32f);
    *ppPlan = reinterpret_cast<VrxsFftPlan_C_32f*>(p);
    return vrxOk;
}
// The double split plan is built as its own kind: its factors keep the
// natural lane order, which split stores need (see vrx_fft_f64.h).
VrxStatus N0(vrxsFFTInit_C_64f)(VrxsFftPlan_C_64f** ppPlan, int order, int flag, VrxAlgHint hint, Vrx8u* pSpecMem, Vrx8u* pInitBuf) {
    constexpr Kind kC64f{ObjId::FftC64f, kC64fc.maxOrder, false, true};
    return init<double>(kC64f, reinterpret_cast<void**>(ppPlan), order, flag, hint, pSpecMem, pInitBuf);
}
