// Sparse IIR: y[n] = Σ b[k] * x[n - p[k]] - Σ a[j] * y[n - q[j]] over the
// nonzero taps only; taps and positions hold the feed-forward set, then the
// feedback set. Engine, layout and arithmetic in pssparse_own.h.
#include "pssparse_own.h"

using namespace n0;

namespace {

// Counts below 1, a feed-forward order below its count - 1, a feedback order
// below its count (feedback positions start at 1): -194.
template <class E>
VrxStatus sizeImpl(int n1, int n2, int order1, int order2, int* pSize) {
    if (!pSize) return vrxErrNullPtr;
    if (n1 < 1 || n2 < 1 || order1 < n1 - 1 || order2 < n2) return vrxErrSparseTaps;
    const int64_t s = sparse::stateBytes<E>(n1, n2, order1, order2, true);
    if (s < 0) return vrxErrNoMemory;
    *pSize = static_cast<int>(s);
    return vrxOk;
}

template <class E, class S>
VrxStatus initImpl(S** ppState, ObjId id, const E* taps, const Vrx32s* pos, int n1, int n2, const E* line,
                   Vrx8u* pBuf) {
    if (anyNull(ppState, taps, pos, pBuf)) return vrxErrNullPtr;
    if (n1 < 1 || n2 < 1) return vrxErrSparseTaps;
    if (!sparse::positionsOk(pos, n1, 0) || !sparse::positionsOk(pos + n1, n2, 1)) return vrxErrSparseTaps;
    return sparse::init<E>(reinterpret_cast<void**>(ppState), id, taps, pos, n1, n2, line, pBuf, true);
}

}  // namespace

VrxStatus N0(vrxsIIRSparseGetStateSize_32f)(int nzTapsLen1, int nzTapsLen2, int order1, int order2, int* pSize) {
    return sizeImpl<Vrx32f>(nzTapsLen1, nzTapsLen2, order1, order2, pSize);
}
VrxStatus N0(vrxsIIRSparseGetStateSize_32fc)(int nzTapsLen1, int nzTapsLen2, int order1, int order2, int* pSize) {
    return sizeImpl<Vrx32fc>(nzTapsLen1, nzTapsLen2, order1, order2, pSize);
}
VrxStatus N0(vrxsIIRSparseInit_32f)(VrxsIirSparseState_32f** ppState, const Vrx32f* pNZTaps, const Vrx32s* pNZTapPos,
                                     int nzTapsLen1, int nzTapsLen2, const Vrx32f* pDlyLine, Vrx8u* pBuf) {
    return initImpl(ppState, ObjId::IirSparse32f, pNZTaps, pNZTapPos, nzTapsLen1, nzTapsLen2, pDlyLine, pBuf);
}
VrxStatus N0(vrxsIIRSparseInit_32fc)(VrxsIirSparseState_32fc** ppState, const Vrx32fc* pNZTaps,
                                      const Vrx32s* pNZTapPos, int nzTapsLen1, int nzTapsLen2,
                                      const Vrx32fc* pDlyLine, Vrx8u* pBuf) {
    return initImpl(ppState, ObjId::IirSparse32fc, pNZTaps, pNZTapPos, nzTapsLen1, nzTapsLen2, pDlyLine, pBuf);
}
VrxStatus N0(vrxsIIRSparse_32f)(const Vrx32f* pSrc, Vrx32f* pDst, int len, VrxsIirSparseState_32f* pState) {
    return sparse::runEntry(pSrc, pDst, len, pState, ObjId::IirSparse32f);
}
VrxStatus N0(vrxsIIRSparse_32fc)(const Vrx32fc* pSrc, Vrx32fc* pDst, int len, VrxsIirSparseState_32fc* pState) {
    return sparse::runEntry(pSrc, pDst, len, pState, ObjId::IirSparse32fc);
}
VrxStatus N0(vrxsIIRSparseGetDlyLine_32f)(const VrxsIirSparseState_32f* pState, Vrx32f* pDlyLine) {
    return sparse::getEntry(pState, pDlyLine, ObjId::IirSparse32f);
}
VrxStatus N0(vrxsIIRSparseGetDlyLine_32fc)(const VrxsIirSparseState_32fc* pState, Vrx32fc* pDlyLine) {
    return sparse::getEntry(pState, pDlyLine, ObjId::IirSparse32fc);
}
VrxStatus N0(vrxsIIRSparseSetDlyLine_32f)(VrxsIirSparseState_32f* pState, const Vrx32f* pDlyLine) {
    return sparse::setEntry(pState, pDlyLine, ObjId::IirSparse32f);
}
VrxStatus N0(vrxsIIRSparseSetDlyLine_32fc)(VrxsIirSparseState_32fc* pState, const Vrx32fc* pDlyLine) {
    return sparse::setEntry(pState, pDlyLine, ObjId::IirSparse32fc);
}
