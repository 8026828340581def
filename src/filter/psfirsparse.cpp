// Sparse FIR: y[n] = Σ taps[k] * x[n - pos[k]] over the nonzero taps only.
// Engine, layout and arithmetic in pssparse_own.h.
#include "pssparse_own.h"

using namespace n0;

namespace {

template <class E>
VrxStatus sizeImpl(int nzTapsLen, int order, int* pSize) {
    if (!pSize) return vrxErrNullPtr;
    if (nzTapsLen < 1) return vrxErrFirLen;
    if (order < nzTapsLen - 1) return vrxErrSparseTaps;
    const int64_t s = sparse::stateBytes<E>(nzTapsLen, 0, order, 0, false);
    if (s < 0) return vrxErrNoMemory;
    *pSize = static_cast<int>(s);
    return vrxOk;
}

template <class E, class S>
VrxStatus initImpl(S** ppState, ObjId id, const E* taps, const Vrx32s* pos, int n, const E* line, Vrx8u* pBuf) {
    if (anyNull(ppState, taps, pos, pBuf)) return vrxErrNullPtr;
    if (n < 1) return vrxErrFirLen;
    if (!sparse::positionsOk(pos, n, 0)) return vrxErrSparseTaps;
    return sparse::init<E>(reinterpret_cast<void**>(ppState), id, taps, pos, n, 0, line, pBuf, false);
}

}  // namespace

VrxStatus N0(vrxsFIRSparseGetStateSize_32f)(int nzTapsLen, int order, int* pSize) {
    return sizeImpl<Vrx32f>(nzTapsLen, order, pSize);
}
VrxStatus N0(vrxsFIRSparseGetStateSize_32fc)(int nzTapsLen, int order, int* pSize) {
    return sizeImpl<Vrx32fc>(nzTapsLen, order, pSize);
}
VrxStatus N0(vrxsFIRSparseInit_32f)(VrxsFirSparseState_32f** ppState, const Vrx32f* pNZTaps, const Vrx32s* pNZTapPos,
                                     int nzTapsLen, const Vrx32f* pDlyLine, Vrx8u* pBuf) {
    return initImpl(ppState, ObjId::FirSparse32f, pNZTaps, pNZTapPos, nzTapsLen, pDlyLine, pBuf);
}
VrxStatus N0(vrxsFIRSparseInit_32fc)(VrxsFirSparseState_32fc** ppState, const Vrx32fc* pNZTaps,
                                      const Vrx32s* pNZTapPos, int nzTapsLen, const Vrx32fc* pDlyLine, Vrx8u* pBuf) {
    return initImpl(ppState, ObjId::FirSparse32fc, pNZTaps, pNZTapPos, nzTapsLen, pDlyLine, pBuf);
}
VrxStatus N0(vrxsFIRSparse_32f)(const Vrx32f* pSrc, Vrx32f* pDst, int len, VrxsFirSparseState_32f* pState) {
    return sparse::runEntry(pSrc, pDst, len, pState, ObjId::FirSparse32f);
}
VrxStatus N0(vrxsFIRSparse_32fc)(const Vrx32fc* pSrc, Vrx32fc* pDst, int len, VrxsFirSparseState_32fc* pState) {
    return sparse::runEntry(pSrc, pDst, len, pState, ObjId::FirSparse32fc);
}
VrxStatus N0(vrxsFIRSparseGetDlyLine_32f)(const VrxsFirSparseState_32f* pState, Vrx32f* pDlyLine) {
    return sparse::getEntry(pState, pDlyLine, ObjId::FirSparse32f);
}
VrxStatus N0(vrxsFIRSparseGetDlyLine_32fc)(const VrxsFirSparseState_32fc* pState, Vrx32fc* pDlyLine) {
    return sparse::getEntry(pState, pDlyLine, ObjId::FirSparse32fc);
}
VrxStatus N0(vrxsFIRSparseSetDlyLine_32f)(VrxsFirSparseState_32f* pState, const Vrx32f* pDlyLine) {
    return sparse::setEntry(pState, pDlyLine, ObjId::FirSparse32f);
}
VrxStatus N0(vrxsFIRSparseSetDlyLine_32fc)(VrxsFirSparseState_32fc* pState, const Vrx32fc* pDlyLine) {
    return sparse::setEntry(pState, pDlyLine, ObjId::FirSparse32fc);
}
