// Extremes of a vector: Min, Max, their magnitude forms, the Indx forms,
// MinMax, MinMaxIndx, and the element-wise MinEvery and MaxEvery. Each entry
// checks its arguments and calls one driver of vrx_extrema.h.
#include "vrx_extrema.h"
#include "vrx_fpu.h"

using namespace n0;
using namespace n0::ext;

namespace {

constexpr int32_t kCap16 = 0x7FFF;
constexpr int32_t kCap32 = 0x7FFFFFFF;
using XfAbs16 = XfAbsSat<kCap16>;
using XfAbs32 = XfAbsSat<kCap32>;
using XfAbsF = XfAbs<simd::V<float>>;
using XfAbsD = XfAbs<simd::V<double>>;

// Min, Max, MinAbs, MaxAbs: the extreme of xf over the vector.
template <class Op, class T, class Xf = XfId>
VRX_INLINE VrxStatus value(const T* pSrc, int len, T* pRes, Xf xf = {}) {
    if (VrxStatus st = checkArgs(len, pSrc, pRes)) return st;
    *pRes = static_cast<T>(foldValue<T, Op>(pSrc, len, xf));
    return vrxOk;
}

// The Indx forms: value and first index; the index pointer is optional.
// 16-bit data run the block scheme, wider data the per-lane scheme.
template <class Op, class T, class Xf = XfId>
VRX_INLINE VrxStatus valueIndx(const T* pSrc, int len, T* pRes, int* pIndx, Xf xf = {}) {
    if (VrxStatus st = checkArgs(len, pSrc, pRes)) return st;
    Best<typename Src<T>::E> b;
    if constexpr (sizeof(T) == 2) b = argBestBlocks<T, Op>(pSrc, len, xf);
    else b = argBestLanes<T, Op, IndexLane<Src<T>::N>>(pSrc, len, xf);
    *pRes = static_cast<T>(b.value);
    if (pIndx) *pIndx = b.index;
    return vrxOk;
}

// Single-precision Indx forms. A source that is not 4-byte aligned is read
// element by element with an ordered compare; a short one (below 34) keeps
// integer lane indices; from 34 the lane indices are floats, exact to 2^24.
template <class Op>
VRX_INLINE VrxStatus valueIndx32f(const Vrx32f* pSrc, int len, Vrx32f* pRes, int* pIndx) {
    if (VrxStatus st = checkArgs(len, pSrc, pRes)) return st;
    Best<float> b;
    if (addr(pSrc) & 3) {
        const unsigned char* q = reinterpret_cast<const unsigned char*>(pSrc);
        float v;
        __builtin_memcpy(&v, q, 4);
        b = {v, 0};
        for (int i = 1; i < len; ++i) {
            __builtin_memcpy(&v, q + 4 * static_cast<size_t>(i), 4);
            if (Op::sBetter(v, b.value)) b = {v, i};
        }
    } else if (len < 34) {
        b = argBestLanes<float, Op, int32_t>(pSrc, len, XfId{});
    } else {
        // beyond 2^24 the float indices round: to nearest, whatever the caller's mode
        RoundNearestGuard nearest;
        b = argBestLanes<float, Op, float>(pSrc, len, XfId{});
    }
    *pRes = b.value;
    if (pIndx) *pIndx = b.index;
    return vrxOk;
}

template <class T>
VRX_INLINE VrxStatus minMax(const T* pSrc, int len, T* pMin, T* pMax) {
    if (VrxStatus st = checkArgs(len, pSrc, pMin, pMax)) return st;
    typename Src<T>::E mn, mx;
    foldMinMax(pSrc, len, mn, mx);
    *pMin = static_cast<T>(mn);
    *pMax = static_cast<T>(mx);
    return vrxOk;
}

// One pass for both values, a second for the first element equal to each.
template <class T>
VRX_INLINE VrxStatus minMaxIndx(const T* pSrc, int len, T* pMin, int* pMinIndx, T* pMax, int* pMaxIndx) {
    if (VrxStatus st = checkArgs(len, pSrc, pMin, pMinIndx, pMax, pMaxIndx)) return st;
    typename Src<T>::E mn, mx;
    foldMinMax(pSrc, len, mn, mx);
    int imn, imx;
    findFirstEq2(pSrc, len, mn, mx, imn, imx);
    *pMin = static_cast<T>(mn);
    *pMinIndx = imn;
    *pMax = static_cast<T>(mx);
    *pMaxIndx = imx;
    return vrxOk;
}

// ---------------------------------------------------------------- Every
// d[i] = op(a[i], b[i]); b is the operand that passes through on NaN. Native
// lanes take the tail under a mask; 8/16-bit data run on AVX2 lanes with the
// tail element by element.
template <class Op, class T>
VRX_INLINE void everyKernel(const T* a, const T* b, T* d, int len) {
    if constexpr (sizeof(T) <= 2) {
        // AVX2 on 8/16-bit lanes, 32 bytes a register
        using NW = simd::VNarrow<T>;
        constexpr int N = NW::N;
        int i = 0;
        for (; i + 2 * N <= len; i += 2 * N) {
            auto r0 = Op::template v<NW>(NW::load(a + i), NW::load(b + i));
            auto r1 = Op::template v<NW>(NW::load(a + i + N), NW::load(b + i + N));
            NW::store(d + i, r0);
            NW::store(d + i + N, r1);
        }
        for (; i + N <= len; i += N) NW::store(d + i, Op::template v<NW>(NW::load(a + i), NW::load(b + i)));
        for (; i < len; ++i) d[i] = Op::s(a[i], b[i]);
    } else {
        using W = simd::V<T>;
        constexpr int N = W::N;
        int i = 0;
        for (; i + N <= len; i += N) W::store(d + i, Op::template v<W>(W::load(a + i), W::load(b + i)));
        if (i < len) {
            const auto m = simd::tail<T>(static_cast<size_t>(len - i));
            W::storem(d + i, m, Op::template v<W>(W::loadm(m, a + i), W::loadm(m, b + i)));
        }
    }
}

template <class Op, class T>
VRX_INLINE VrxStatus every(const T* pSrc1, const T* pSrc2, T* pDst, int len) {
    if (VrxStatus st = checkArgs(len, pSrc1, pSrc2, pDst)) return st;
    everyKernel<Op>(pSrc1, pSrc2, pDst, len);
    return vrxOk;
}

template <class Op, class T>
VRX_INLINE VrxStatus everyI(const T* pSrc, T* pSrcDst, int len) {
    if (VrxStatus st = checkArgs(len, pSrc, pSrcDst)) return st;
    everyKernel<Op>(pSrc, static_cast<const T*>(pSrcDst), pSrcDst, len);
    return vrxOk;
}

}  // namespace

// ----------------------------------------------------------- Min, Max
VrxStatus N0(vrxsMin_16s)(const Vrx16s* pSrc, int len, Vrx16s* pMin) { return value<OpMin>(pSrc, len, pMin); }
VrxStatus N0(vrxsMin_32s)(const Vrx32s* pSrc, int len, Vrx32s* pMin) { return value<OpMin>(pSrc, len, pMin); }
VrxStatus N0(vrxsMin_32f)(const Vrx32f* pSrc, int len, Vrx32f* pMin) { return value<OpMin>(pSrc, len, pMin); }
VrxStatus N0(vrxsMin_64f)(const Vrx64f* pSrc, int len, Vrx64f* pMin) { return value<OpMin>(pSrc, len, pMin); }
VrxStatus N0(vrxsMax_16s)(const Vrx16s* pSrc, int len, Vrx16s* pMax) { return value<OpMax>(pSrc, len, pMax); }
VrxStatus N0(vrxsMax_32s)(const Vrx32s* pSrc, int len, Vrx32s* pMax) { return value<OpMax>(pSrc, len, pMax); }
VrxStatus N0(vrxsMax_32f)(const Vrx32f* pSrc, int len, Vrx32f* pMax) { return value<OpMax>(pSrc, len, pMax); }
VrxStatus N0(vrxsMax_64f)(const Vrx64f* pSrc, int len, Vrx64f* pMax) { return value<OpMax>(pSrc, len, pMax); }

// ------------------------------------------------------ MinAbs, MaxAbs
VrxStatus N0(vrxsMinAbs_16s)(const Vrx16s* pSrc, int len, Vrx16s* pMinAbs) { return value<OpMin>(pSrc, len, pMinAbs, XfAbs16{}); }
VrxStatus N0(vrxsMinAbs_32s)(const Vrx32s* pSrc, int len, Vrx32s* pMinAbs) { return value<OpMin>(pSrc, len, pMinAbs, XfAbs32{}); }
VrxStatus N0(vrxsMinAbs_32f)(const Vrx32f* pSrc, int len, Vrx32f* pMinAbs) { return value<OpMin>(pSrc, len, pMinAbs, XfAbsF{}); }
VrxStatus N0(vrxsMinAbs_64f)(const Vrx64f* pSrc, int len, Vrx64f* pMinAbs) { return value<OpMin>(pSrc, len, pMinAbs, XfAbsD{}); }
VrxStatus N0(vrxsMaxAbs_16s)(const Vrx16s* pSrc, int len, Vrx16s* pMaxAbs) { return value<OpMax>(pSrc, len, pMaxAbs, XfAbs16{}); }
VrxStatus N0(vrxsMaxAbs_32s)(const Vrx32s* pSrc, int len, Vrx32s* pMaxAbs) { return value<OpMax>(pSrc, len, pMaxAbs, XfAbs32{}); }
VrxStatus N0(vrxsMaxAbs_32f)(const Vrx32f* pSrc, int len, Vrx32f* pMaxAbs) { return value<OpMax>(pSrc, len, pMaxAbs, XfAbsF{}); }
VrxStatus N0(vrxsMaxAbs_64f)(const Vrx64f* pSrc, int len, Vrx64f* pMaxAbs) { return value<OpMax>(pSrc, len, pMaxAbs, XfAbsD{}); }

// ------------------------------------------------------------ Indx forms
VrxStatus N0(vrxsMinIndx_16s)(const Vrx16s* pSrc, int len, Vrx16s* pMin, int* pIndx) { return valueIndx<OpMin>(pSrc, len, pMin, pIndx); }
VrxStatus N0(vrxsMinIndx_32s)(const Vrx32s* pSrc, int len, Vrx32s* pMin, int* pIndx) { return valueIndx<OpMin>(pSrc, len, pMin, pIndx); }
VrxStatus N0(vrxsMinIndx_32f)(const Vrx32f* pSrc, int len, Vrx32f* pMin, int* pIndx) { return valueIndx32f<OpMin>(pSrc, len, pMin, pIndx); }
VrxStatus N0(vrxsMinIndx_64f)(const Vrx64f* pSrc, int len, Vrx64f* pMin, int* pIndx) { return valueIndx<OpMin>(pSrc, len, pMin, pIndx); }
VrxStatus N0(vrxsMaxIndx_16s)(const Vrx16s* pSrc, int len, Vrx16s* pMax, int* pIndx) { return valueIndx<OpMax>(pSrc, len, pMax, pIndx); }
VrxStatus N0(vrxsMaxIndx_32s)(const Vrx32s* pSrc, int len, Vrx32s* pMax, int* pIndx) { return valueIndx<OpMax>(pSrc, len, pMax, pIndx); }
VrxStatus N0(vrxsMaxIndx_32f)(const Vrx32f* pSrc, int len, Vrx32f* pMax, int* pIndx) { return valueIndx32f<OpMax>(pSrc, len, pMax, pIndx); }
VrxStatus N0(vrxsMaxIndx_64f)(const Vrx64f* pSrc, int len, Vrx64f* pMax, int* pIndx) { return valueIndx<OpMax>(pSrc, len, pMax, pIndx); }

VrxStatus N0(vrxsMinAbsIndx_16s)(const Vrx16s* pSrc, int len, Vrx16s* pMinAbs, int* pIndx) { return valueIndx<OpMin>(pSrc, len, pMinAbs, pIndx, XfAbs16{}); }
VrxStatus N0(vrxsMinAbsIndx_32s)(const Vrx32s* pSrc, int len, Vrx32s* pMinAbs, int* pIndx) { return valueIndx<OpMin>(pSrc, len, pMinAbs, pIndx, XfAbs32{}); }
VrxStatus N0(vrxsMaxAbsIndx_16s)(const Vrx16s* pSrc, int len, Vrx16s* pMaxAbs, int* pIndx) { return valueIndx<OpMax>(pSrc, len, pMaxAbs, pIndx, XfAbs16{}); }
VrxStatus N0(vrxsMaxAbsIndx_32s)(const Vrx32s* pSrc, int len, Vrx32s* pMaxAbs, int* pIndx) { return valueIndx<OpMax>(pSrc, len, pMaxAbs, pIndx, XfAbs32{}); }

// ---------------------------------------------------------------- MinMax
VrxStatus N0(vrxsMinMax_8u)(const Vrx8u* pSrc, int len, Vrx8u* pMin, Vrx8u* pMax) { return minMax(pSrc, len, pMin, pMax); }
VrxStatus N0(vrxsMinMax_16u)(const Vrx16u* pSrc, int len, Vrx16u* pMin, Vrx16u* pMax) { return minMax(pSrc, len, pMin, pMax); }
VrxStatus N0(vrxsMinMax_16s)(const Vrx16s* pSrc, int len, Vrx16s* pMin, Vrx16s* pMax) { return minMax(pSrc, len, pMin, pMax); }
VrxStatus N0(vrxsMinMax_32u)(const Vrx32u* pSrc, int len, Vrx32u* pMin, Vrx32u* pMax) { return minMax(pSrc, len, pMin, pMax); }
VrxStatus N0(vrxsMinMax_32s)(const Vrx32s* pSrc, int len, Vrx32s* pMin, Vrx32s* pMax) { return minMax(pSrc, len, pMin, pMax); }
VrxStatus N0(vrxsMinMax_32f)(const Vrx32f* pSrc, int len, Vrx32f* pMin, Vrx32f* pMax) { return minMax(pSrc, len, pMin, pMax); }
VrxStatus N0(vrxsMinMax_64f)(const Vrx64f* pSrc, int len, Vrx64f* pMin, Vrx64f* pMax) { return minMax(pSrc, len, pMin, pMax); }

VrxStatus N0(vrxsMinMaxIndx_8u)(const Vrx8u* pSrc, int len, Vrx8u* pMin, int* pMinIndx, Vrx8u* pMax, int* pMaxIndx) { return minMaxIndx(pSrc, len, pMin, pMinIndx, pMax, pMaxIndx); }
VrxStatus N0(vrxsMinMaxIndx_16u)(const Vrx16u* pSrc, int len, Vrx16u* pMin, int* pMinIndx, Vrx16u* pMax, int* pMaxIndx) { return minMaxIndx(pSrc, len, pMin, pMinIndx, pMax, pMaxIndx); }
VrxStatus N0(vrxsMinMaxIndx_16s)(const Vrx16s* pSrc, int len, Vrx16s* pMin, int* pMinIndx, Vrx16s* pMax, int* pMaxIndx) { return minMaxIndx(pSrc, len, pMin, pMinIndx, pMax, pMaxIndx); }
VrxStatus N0(vrxsMinMaxIndx_32u)(const Vrx32u* pSrc, int len, Vrx32u* pMin, int* pMinIndx, Vrx32u* pMax, int* pMaxIndx) { return minMaxIndx(pSrc, len, pMin, pMinIndx, pMax, pMaxIndx); }
VrxStatus N0(vrxsMinMaxIndx_32s)(const Vrx32s* pSrc, int len, Vrx32s* pMin, int* pMinIndx, Vrx32s* pMax, int* pMaxIndx) { return minMaxIndx(pSrc, len, pMin, pMinIndx, pMax, pMaxIndx); }
VrxStatus N0(vrxsMinMaxIndx_32f)(const Vrx32f* pSrc, int len, Vrx32f* pMin, int* pMinIndx, Vrx32f* pMax, int* pMaxIndx) { return minMaxIndx(pSrc, len, pMin, pMinIndx, pMax, pMaxIndx); }
VrxStatus N0(vrxsMinMaxIndx_64f)(const Vrx64f* pSrc, int len, Vrx64f* pMin, int* pMinIndx, Vrx64f* pMax, int* pMaxIndx) { return minMaxIndx(pSrc, len, pMin, pMinIndx, pMax, pMaxIndx); }

// ------------------------------------------------------ MinEvery, MaxEvery
VrxStatus N0(vrxsMinEvery_8u)(const Vrx8u* pSrc1, const Vrx8u* pSrc2, Vrx8u* pDst, int len) { return every<OpMin>(pSrc1, pSrc2, pDst, len); }
VrxStatus N0(vrxsMinEvery_16u)(const Vrx16u* pSrc1, const Vrx16u* pSrc2, Vrx16u* pDst, int len) { return every<OpMin>(pSrc1, pSrc2, pDst, len); }
VrxStatus N0(vrxsMinEvery_32f)(const Vrx32f* pSrc1, const Vrx32f* pSrc2, Vrx32f* pDst, int len) { return every<OpMin>(pSrc1, pSrc2, pDst, len); }
VrxStatus N0(vrxsMinEvery_64f)(const Vrx64f* pSrc1, const Vrx64f* pSrc2, Vrx64f* pDst, int len) { return every<OpMin>(pSrc1, pSrc2, pDst, len); }
VrxStatus N0(vrxsMinEvery_8u_I)(const Vrx8u* pSrc, Vrx8u* pSrcDst, int len) { return everyI<OpMin>(pSrc, pSrcDst, len); }
VrxStatus N0(vrxsMinEvery_16u_I)(const Vrx16u* pSrc, Vrx16u* pSrcDst, int len) { return everyI<OpMin>(pSrc, pSrcDst, len); }
VrxStatus N0(vrxsMinEvery_16s_I)(const Vrx16s* pSrc, Vrx16s* pSrcDst, int len) { return everyI<OpMin>(pSrc, pSrcDst, len); }
VrxStatus N0(vrxsMinEvery_32s_I)(const Vrx32s* pSrc, Vrx32s* pSrcDst, int len) { return everyI<OpMin>(pSrc, pSrcDst, len); }
VrxStatus N0(vrxsMinEvery_32f_I)(const Vrx32f* pSrc, Vrx32f* pSrcDst, int len) { return everyI<OpMin>(pSrc, pSrcDst, len); }
VrxStatus N0(vrxsMinEvery_64f_I)(const Vrx64f* pSrc, Vrx64f* pSrcDst, int len) { return everyI<OpMin>(pSrc, pSrcDst, len); }

VrxStatus N0(vrxsMaxEvery_8u)(const Vrx8u* pSrc1, const Vrx8u* pSrc2, Vrx8u* pDst, int len) { return every<OpMax>(pSrc1, pSrc2, pDst, len); }
VrxStatus N0(vrxsMaxEvery_16u)(const Vrx16u* pSrc1, const Vrx16u* pSrc2, Vrx16u* pDst, int len) { return every<OpMax>(pSrc1, pSrc2, pDst, len); }
VrxStatus N0(vrxsMaxEvery_32f)(const Vrx32f* pSrc1, const Vrx32f* pSrc2, Vrx32f* pDst, int len) { return every<OpMax>(pSrc1, pSrc2, pDst, len); }
VrxStatus N0(vrxsMaxEvery_64f)(const Vrx64f* pSrc1, const Vrx64f* pSrc2, Vrx64f* pDst, int len) { return every<OpMax>(pSrc1, pSrc2, pDst, len); }
VrxStatus N0(vrxsMaxEvery_8u_I)(const Vrx8u* pSrc, Vrx8u* pSrcDst, int len) { return everyI<OpMax>(pSrc, pSrcDst, len); }
VrxStatus N0(vrxsMaxEvery_16u_I)(const Vrx16u* pSrc, Vrx16u* pSrcDst, int len) { return everyI<OpMax>(pSrc, pSrcDst, len); }
VrxStatus N0(vrxsMaxEvery_16s_I)(const Vrx16s* pSrc, Vrx16s* pSrcDst, int len) { return everyI<OpMax>(pSrc, pSrcDst, len); }
VrxStatus N0(vrxsMaxEvery_32s_I)(const Vrx32s* pSrc, Vrx32s* pSrcDst, int len) { return everyI<OpMax>(pSrc, pSrcDst, len); }
VrxStatus N0(vrxsMaxEvery_32f_I)(const Vrx32f* pSrc, Vrx32f* pSrcDst, int len) { return everyI<OpMax>(pSrc, pSrcDst, len); }
VrxStatus N0(vrxsMaxEvery_64f_I)(const Vrx64f* pSrc, Vrx64f* pSrcDst, int len) { return everyI<OpMax>(pSrc, pSrcDst, len); }
