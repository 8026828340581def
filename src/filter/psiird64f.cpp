// IIR filters with double taps and arithmetic: AR and biquad kinds on 64f,
// 64fc, 32f, 32fc, 32s, 32sc, 16s and 16sc samples, and the biquad with a
// direct form I line on 32s. The engine is psiir_own.h; each entry names
// its kind.
#include "psiir_own.h"

using namespace n0;
using namespace n0::iir;

namespace {

using C64 = Cx<double>;

constexpr Kind kAR64f{ObjId::IirAR64f, Form::AR, 8, 1};
constexpr Kind kBQ64f{ObjId::IirBQ64f, Form::BQ, 8, 1};
constexpr Kind kAR64fc{ObjId::IirAR64fc, Form::AR, 16, 1};
constexpr Kind kBQ64fc{ObjId::IirBQ64fc, Form::BQ, 16, 1};
constexpr Kind kAR32f{ObjId::IirAR64f32f, Form::AR, 8, 2};
constexpr Kind kBQ32f{ObjId::IirBQ64f32f, Form::BQ, 8, 2};
constexpr Kind kAR32fc{ObjId::IirAR64fc32fc, Form::AR, 16, 2};
constexpr Kind kBQ32fc{ObjId::IirBQ64fc32fc, Form::BQ, 16, 2};
constexpr Kind kAR32s{ObjId::IirAR64f32s, Form::AR, 8, 2};
constexpr Kind kBQ32s{ObjId::IirBQ64f32s, Form::BQ, 8, 2};
constexpr Kind kAR32sc{ObjId::IirAR64fc32sc, Form::AR, 16, 2};
constexpr Kind kBQ32sc{ObjId::IirBQ64fc32sc, Form::BQ, 16, 2};
constexpr Kind kAR16s{ObjId::IirAR64f16s, Form::AR, 8, 2};
constexpr Kind kBQ16s{ObjId::IirBQ64f16s, Form::BQ, 8, 2};
constexpr Kind kAR16sc{ObjId::IirAR64fc16sc, Form::AR, 16, 2};
constexpr Kind kBQ16sc{ObjId::IirBQ64fc16sc, Form::BQ, 16, 2};
constexpr Kind kDF1{ObjId::IirBQDF1_64f32s, Form::DF1T, 8, 2};

static_assert(layoutFits<double>(kAR64f, 300) && layoutFits<double>(kBQ64f, 300));
static_assert(layoutFits<C64>(kAR64fc, 300) && layoutFits<C64>(kBQ64fc, 300));
static_assert(layoutFits<double>(kAR32f, 300) && layoutFits<double>(kBQ32f, 300));
static_assert(layoutFits<C64>(kAR32fc, 300) && layoutFits<C64>(kBQ32fc, 300));
static_assert(layoutFits<double>(kAR32s, 300) && layoutFits<double>(kBQ32s, 300));
static_assert(layoutFits<C64>(kAR32sc, 300) && layoutFits<C64>(kBQ32sc, 300));
static_assert(layoutFits<double>(kAR16s, 300) && layoutFits<double>(kBQ16s, 300));
static_assert(layoutFits<C64>(kAR16sc, 300) && layoutFits<C64>(kBQ16sc, 300));
static_assert(layoutFits<double>(kDF1, 300));

// the words each run and each line pair accepts
constexpr Kind k64f[] = {kAR64f, kBQ64f};
constexpr Kind k64fc[] = {kAR64fc, kBQ64fc};
constexpr Kind k32f[] = {kAR32f, kBQ32f};
constexpr Kind k32fc[] = {kAR32fc, kBQ32fc};
constexpr Kind k32s[] = {kAR32s, kBQ32s};
constexpr Kind kRun32s[] = {kAR32s, kBQ32s, kDF1};
constexpr Kind kOnlyBQ32s[] = {kBQ32s};
constexpr Kind kOnlyDF1[] = {kDF1};
constexpr Kind k32sc[] = {kAR32sc, kBQ32sc};
constexpr Kind k16s[] = {kAR16s, kBQ16s};
constexpr Kind k16sc[] = {kAR16sc, kBQ16sc};

const C64* cx(const Vrx64fc* p) { return reinterpret_cast<const C64*>(p); }
C64* cx(Vrx64fc* p) { return reinterpret_cast<C64*>(p); }

}  // namespace

// Targets of the 32s run's biquad words (not exported).
VRX_OWN(VrxStatus, vrxsIIRBQ64f_32s_Sfs, (const Vrx32s* pSrc, Vrx32s* pDst, int len, VrxsIirState* pState, int scaleFactor));
VRX_OWN(VrxStatus, vrxsIIRBQDF164f_32s_Sfs, (const Vrx32s* pSrc, Vrx32s* pDst, int len, VrxsIirState* pState, int scaleFactor));

// ------------------------------------------------------------ sizes
VrxStatus N0(vrxsIIRGetStateSize_64f)(int order, int* pBufferSize) { return stateSize(kAR64f, order, pBufferSize); }
VrxStatus N0(vrxsIIRGetStateSize_BiQuad_64f)(int numBq, int* pBufferSize) { return stateSize(kBQ64f, numBq, pBufferSize); }
VrxStatus N0(vrxsIIRGetStateSize_64fc)(int order, int* pBufferSize) { return stateSize(kAR64fc, order, pBufferSize); }
VrxStatus N0(vrxsIIRGetStateSize_BiQuad_64fc)(int numBq, int* pBufferSize) { return stateSize(kBQ64fc, numBq, pBufferSize); }
VrxStatus N0(vrxsIIRGetStateSize64f_32f)(int order, int* pBufferSize) { return stateSize(kAR32f, order, pBufferSize); }
VrxStatus N0(vrxsIIRGetStateSize64f_BiQuad_32f)(int numBq, int* pBufferSize) { return stateSize(kBQ32f, numBq, pBufferSize); }
VrxStatus N0(vrxsIIRGetStateSize64fc_32fc)(int order, int* pBufferSize) { return stateSize(kAR32fc, order, pBufferSize); }
VrxStatus N0(vrxsIIRGetStateSize64fc_BiQuad_32fc)(int numBq, int* pBufferSize) { return stateSize(kBQ32fc, numBq, pBufferSize); }
VrxStatus N0(vrxsIIRGetStateSize64f_32s)(int order, int* pBufferSize) { return stateSize(kAR32s, order, pBufferSize); }
VrxStatus N0(vrxsIIRGetStateSize64f_BiQuad_32s)(int numBq, int* pBufferSize) { return stateSize(kBQ32s, numBq, pBufferSize); }
VrxStatus N0(vrxsIIRGetStateSize64fc_32sc)(int order, int* pBufferSize) { return stateSize(kAR32sc, order, pBufferSize); }
VrxStatus N0(vrxsIIRGetStateSize64fc_BiQuad_32sc)(int numBq, int* pBufferSize) { return stateSize(kBQ32sc, numBq, pBufferSize); }
VrxStatus N0(vrxsIIRGetStateSize64f_16s)(int order, int* pBufferSize) { return stateSize(kAR16s, order, pBufferSize); }
VrxStatus N0(vrxsIIRGetStateSize64f_BiQuad_16s)(int numBq, int* pBufferSize) { return stateSize(kBQ16s, numBq, pBufferSize); }
VrxStatus N0(vrxsIIRGetStateSize64fc_16sc)(int order, int* pBufferSize) { return stateSize(kAR16sc, order, pBufferSize); }
VrxStatus N0(vrxsIIRGetStateSize64fc_BiQuad_16sc)(int numBq, int* pBufferSize) { return stateSize(kBQ16sc, numBq, pBufferSize); }
VrxStatus N0(vrxsIIRGetStateSize64f_BiQuad_DF1_32s)(int numBq, int* pBufferSize) { return stateSize(kDF1, numBq, pBufferSize); }

// ------------------------------------------------------------- Init
VrxStatus N0(vrxsIIRInit_64f)(VrxsIirState** ppState, const Vrx64f* pTaps, int order, const Vrx64f* pDlyLine, Vrx8u* pBuf) {
    return initAR<double>(kAR64f, ppState, pTaps, order, pDlyLine, pBuf);
}
VrxStatus N0(vrxsIIRInit_BiQuad_64f)(VrxsIirState** ppState, const Vrx64f* pTaps, int numBq, const Vrx64f* pDlyLine, Vrx8u* pBuf) {
    return initBQ<double>(kBQ64f, ppState, pTaps, numBq, pDlyLine, pBuf);
}
VrxStatus N0(vrxsIIRInit_64fc)(VrxsIirState** ppState, const Vrx64fc* pTaps, int order, const Vrx64fc* pDlyLine, Vrx8u* pBuf) {
    return initAR<C64>(kAR64fc, ppState, cx(pTaps), order, cx(pDlyLine), pBuf);
}
VrxStatus N0(vrxsIIRInit_BiQuad_64fc)(VrxsIirState** ppState, const Vrx64fc* pTaps, int numBq, const Vrx64fc* pDlyLine, Vrx8u* pBuf) {
    return initBQ<C64>(kBQ64fc, ppState, cx(pTaps), numBq, cx(pDlyLine), pBuf);
}
VrxStatus N0(vrxsIIRInit64f_32f)(VrxsIirState** ppState, const Vrx64f* pTaps, int order, const Vrx64f* pDlyLine, Vrx8u* pBuf) {
    return initAR<double>(kAR32f, ppState, pTaps, order, pDlyLine, pBuf);
}
VrxStatus N0(vrxsIIRInit64f_BiQuad_32f)(VrxsIirState** ppState, const Vrx64f* pTaps, int numBq, const Vrx64f* pDlyLine, Vrx8u* pBuf) {
    return initBQ<double>(kBQ32f, ppState, pTaps, numBq, pDlyLine, pBuf);
}
VrxStatus N0(vrxsIIRInit64fc_32fc)(VrxsIirState** ppState, const Vrx64fc* pTaps, int order, const Vrx64fc* pDlyLine, Vrx8u* pBuf) {
    return initAR<C64>(kAR32fc, ppState, cx(pTaps), order, cx(pDlyLine), pBuf);
}
VrxStatus N0(vrxsIIRInit64fc_BiQuad_32fc)(VrxsIirState** ppState, const Vrx64fc* pTaps, int numBq, const Vrx64fc* pDlyLine, Vrx8u* pBuf) {
    return initBQ<C64>(kBQ32fc, ppState, cx(pTaps), numBq, cx(pDlyLine), pBuf);
}
VrxStatus N0(vrxsIIRInit64f_32s)(VrxsIirState** ppState, const Vrx64f* pTaps, int order, const Vrx64f* pDlyLine, Vrx8u* pBuf) {
    return initAR<double>(kAR32s, ppState, pTaps, order, pDlyLine, pBuf);
}
VrxStatus N0(vrxsIIRInit64f_BiQuad_32s)(VrxsIirState** ppState, const Vrx64f* pTaps, int numBq, const Vrx64f* pDlyLine, Vrx8u* pBuf) {
    return initBQ<double>(kBQ32s, ppState, pTaps, numBq, pDlyLine, pBuf);
}
VrxStatus N0(vrxsIIRInit64fc_32sc)(VrxsIirState** ppState, const Vrx64fc* pTaps, int order, const Vrx64fc* pDlyLine, Vrx8u* pBuf) {
    return initAR<C64>(kAR32sc, ppState, cx(pTaps), order, cx(pDlyLine), pBuf);
}
VrxStatus N0(vrxsIIRInit64fc_BiQuad_32sc)(VrxsIirState** ppState, const Vrx64fc* pTaps, int numBq, const Vrx64fc* pDlyLine, Vrx8u* pBuf) {
    return initBQ<C64>(kBQ32sc, ppState, cx(pTaps), numBq, cx(pDlyLine), pBuf);
}
VrxStatus N0(vrxsIIRInit64f_16s)(VrxsIirState** ppState, const Vrx64f* pTaps, int order, const Vrx64f* pDlyLine, Vrx8u* pBuf) {
    return initAR<double>(kAR16s, ppState, pTaps, order, pDlyLine, pBuf);
}
VrxStatus N0(vrxsIIRInit64f_BiQuad_16s)(VrxsIirState** ppState, const Vrx64f* pTaps, int numBq, const Vrx64f* pDlyLine, Vrx8u* pBuf) {
    return initBQ<double>(kBQ16s, ppState, pTaps, numBq, pDlyLine, pBuf);
}
VrxStatus N0(vrxsIIRInit64fc_16sc)(VrxsIirState** ppState, const Vrx64fc* pTaps, int order, const Vrx64fc* pDlyLine, Vrx8u* pBuf) {
    return initAR<C64>(kAR16sc, ppState, cx(pTaps), order, cx(pDlyLine), pBuf);
}
VrxStatus N0(vrxsIIRInit64fc_BiQuad_16sc)(VrxsIirState** ppState, const Vrx64fc* pTaps, int numBq, const Vrx64fc* pDlyLine, Vrx8u* pBuf) {
    return initBQ<C64>(kBQ16sc, ppState, cx(pTaps), numBq, cx(pDlyLine), pBuf);
}
// The direct form I line comes as 32s and is kept in double.
VrxStatus N0(vrxsIIRInit64f_BiQuad_DF1_32s)(VrxsIirState** ppState, const Vrx64f* pTaps, int numBq, const Vrx32s* pDlyLine, Vrx8u* pBuf) {
    VrxStatus st = initBQ<double>(kDF1, ppState, pTaps, numBq, nullptr, pBuf);
    if (st == vrxErrNullPtr || st == vrxErrIirOrder) return st;
    double* df = reinterpret_cast<State*>(*ppState)->pDf1Dly;
    for (int i = 0; i < 4 * numBq; ++i) df[i] = pDlyLine ? double(pDlyLine[i]) : 0.0;
    return st;
}

// ------------------------------------------------------------- runs
VrxStatus N0(vrxsIIR_64f)(const Vrx64f* pSrc, Vrx64f* pDst, int len, VrxsIirState* pState) {
    return run<double, Vrx64f>(k64f, 2, pSrc, pDst, len, pState, 0);
}
VrxStatus N0(vrxsIIR_64f_I)(Vrx64f* pSrcDst, int len, VrxsIirState* pState) {
    return run<double, Vrx64f>(k64f, 2, pSrcDst, pSrcDst, len, pState, 0);
}
VrxStatus N0(vrxsIIR_64fc)(const Vrx64fc* pSrc, Vrx64fc* pDst, int len, VrxsIirState* pState) {
    return run<C64, Vrx64fc>(k64fc, 2, pSrc, pDst, len, pState, 0);
}
VrxStatus N0(vrxsIIR_64fc_I)(Vrx64fc* pSrcDst, int len, VrxsIirState* pState) {
    return run<C64, Vrx64fc>(k64fc, 2, pSrcDst, pSrcDst, len, pState, 0);
}
VrxStatus N0(vrxsIIR64f_32f)(const Vrx32f* pSrc, Vrx32f* pDst, int len, VrxsIirState* pState) {
    return run<double, Vrx32f>(k32f, 2, pSrc, pDst, len, pState, 0);
}
VrxStatus N0(vrxsIIR64f_32f_I)(Vrx32f* pSrcDst, int len, VrxsIirState* pState) {
    return run<double, Vrx32f>(k32f, 2, pSrcDst, pSrcDst, len, pState, 0);
}
VrxStatus N0(vrxsIIR64fc_32fc)(const Vrx32fc* pSrc, Vrx32fc* pDst, int len, VrxsIirState* pState) {
    return run<C64, Vrx32fc>(k32fc, 2, pSrc, pDst, len, pState, 0);
}
VrxStatus N0(vrxsIIR64fc_32fc_I)(Vrx32fc* pSrcDst, int len, VrxsIirState* pState) {
    return run<C64, Vrx32fc>(k32fc, 2, pSrcDst, pSrcDst, len, pState, 0);
}
VrxStatus N0(vrxsIIRBQ64f_32s_Sfs)(const Vrx32s* pSrc, Vrx32s* pDst, int len, VrxsIirState* pState, int scaleFactor) {
    return run<double, Vrx32s>(kOnlyBQ32s, 1, pSrc, pDst, len, pState, scaleFactor);
}
VrxStatus N0(vrxsIIRBQDF164f_32s_Sfs)(const Vrx32s* pSrc, Vrx32s* pDst, int len, VrxsIirState* pState, int scaleFactor) {
    return run<double, Vrx32s>(kOnlyDF1, 1, pSrc, pDst, len, pState, scaleFactor);
}
// the 32s run checks, then hands the biquad words to their targets
static VrxStatus run32s(const Vrx32s* s, Vrx32s* d, int len, VrxsIirState* st, int sf) {
    if (anyNull(st, s, d)) return vrxErrNullPtr;
    if (len < 1) return vrxErrBadLength;
    const Kind* k = kindOf(st, kRun32s, 3);
    if (!k) return vrxErrBadSpec;
    if (k->form == Form::BQ) return N0(vrxsIIRBQ64f_32s_Sfs)(s, d, len, st, sf);
    if (k->form == Form::DF1T) return N0(vrxsIIRBQDF164f_32s_Sfs)(s, d, len, st, sf);
    runState<double, Vrx32s>(reinterpret_cast<State*>(st), *k, s, d, len, sf);
    return vrxOk;
}
VrxStatus N0(vrxsIIR64f_32s_Sfs)(const Vrx32s* pSrc, Vrx32s* pDst, int len, VrxsIirState* pState, int scaleFactor) {
    return run32s(pSrc, pDst, len, pState, scaleFactor);
}
VrxStatus N0(vrxsIIR64f_32s_ISfs)(Vrx32s* pSrcDst, int len, VrxsIirState* pState, int scaleFactor) {
    return run32s(pSrcDst, pSrcDst, len, pState, scaleFactor);
}
VrxStatus N0(vrxsIIR64fc_32sc_Sfs)(const Vrx32sc* pSrc, Vrx32sc* pDst, int len, VrxsIirState* pState, int scaleFactor) {
    return run<C64, Vrx32sc>(k32sc, 2, pSrc, pDst, len, pState, scaleFactor);
}
VrxStatus N0(vrxsIIR64fc_32sc_ISfs)(Vrx32sc* pSrcDst, int len, VrxsIirState* pState, int scaleFactor) {
    return run<C64, Vrx32sc>(k32sc, 2, pSrcDst, pSrcDst, len, pState, scaleFactor);
}
VrxStatus N0(vrxsIIR64f_16s_Sfs)(const Vrx16s* pSrc, Vrx16s* pDst, int len, VrxsIirState* pState, int scaleFactor) {
    return run<double, Vrx16s>(k16s, 2, pSrc, pDst, len, pState, scaleFactor);
}
VrxStatus N0(vrxsIIR64f_16s_ISfs)(Vrx16s* pSrcDst, int len, VrxsIirState* pState, int scaleFactor) {
    return run<double, Vrx16s>(k16s, 2, pSrcDst, pSrcDst, len, pState, scaleFactor);
}
VrxStatus N0(vrxsIIR64fc_16sc_Sfs)(const Vrx16sc* pSrc, Vrx16sc* pDst, int len, VrxsIirState* pState, int scaleFactor) {
    return run<C64, Vrx16sc>(k16sc, 2, pSrc, pDst, len, pState, scaleFactor);
}
VrxStatus N0(vrxsIIR64fc_16sc_ISfs)(Vrx16sc* pSrcDst, int len, VrxsIirState* pState, int scaleFactor) {
    return run<C64, Vrx16sc>(k16sc, 2, pSrcDst, pSrcDst, len, pState, scaleFactor);
}

// multi-channel: 0x49493231, 0x49493232, 0x49493330; nChannels < 1 is -47 here
static VrxStatus runP32s(const Vrx32s* const* ppSrc, Vrx32s* const* ppDst, int len, int nChannels, VrxsIirState* const* ppState,
                         int sf) {
    return runChannels<Vrx32s>(ppSrc, ppDst, len, nChannels, ppState, vrxErrChannels, kRun32s, 3,
                               [&](const Vrx32s* s, Vrx32s* d, VrxsIirState* st) {
                                   runState<double, Vrx32s>(reinterpret_cast<State*>(st), *kindOf(st, kRun32s, 3), s, d, len, sf);
                               });
}
VrxStatus N0(vrxsIIR64f_32s_PSfs)(const Vrx32s** ppSrc, Vrx32s** ppDst, int len, int nChannels, VrxsIirState** ppState, int scaleFactor) {
    return runP32s(ppSrc, ppDst, len, nChannels, ppState, scaleFactor);
}
VrxStatus N0(vrxsIIR64f_32s_IPSfs)(Vrx32s** ppSrcDst, int len, int nChannels, VrxsIirState** ppState, int scaleFactor) {
    return runP32s(ppSrcDst, ppSrcDst, len, nChannels, ppState, scaleFactor);
}

// ------------------------------------------------------ delay lines
VrxStatus N0(vrxsIIRGetDlyLine_64f)(const VrxsIirState* pState, Vrx64f* pDlyLine) { return getLine<double>(pState, pDlyLine, k64f, 2); }
VrxStatus N0(vrxsIIRSetDlyLine_64f)(VrxsIirState* pState, const Vrx64f* pDlyLine) { return setLine<double>(pState, pDlyLine, k64f, 2); }
VrxStatus N0(vrxsIIRGetDlyLine_64fc)(const VrxsIirState* pState, Vrx64fc* pDlyLine) { return getLine<C64>(pState, cx(pDlyLine), k64fc, 2); }
VrxStatus N0(vrxsIIRSetDlyLine_64fc)(VrxsIirState* pState, const Vrx64fc* pDlyLine) { return setLine<C64>(pState, cx(pDlyLine), k64fc, 2); }
VrxStatus N0(vrxsIIRGetDlyLine64f_32f)(const VrxsIirState* pState, Vrx64f* pDlyLine) { return getLine<double>(pState, pDlyLine, k32f, 2); }
VrxStatus N0(vrxsIIRSetDlyLine64f_32f)(VrxsIirState* pState, const Vrx64f* pDlyLine) { return setLine<double>(pState, pDlyLine, k32f, 2); }
VrxStatus N0(vrxsIIRGetDlyLine64fc_32fc)(const VrxsIirState* pState, Vrx64fc* pDlyLine) { return getLine<C64>(pState, cx(pDlyLine), k32fc, 2); }
VrxStatus N0(vrxsIIRSetDlyLine64fc_32fc)(VrxsIirState* pState, const Vrx64fc* pDlyLine) { return setLine<C64>(pState, cx(pDlyLine), k32fc, 2); }
VrxStatus N0(vrxsIIRGetDlyLine64f_32s)(const VrxsIirState* pState, Vrx64f* pDlyLine) { return getLine<double>(pState, pDlyLine, k32s, 2); }
VrxStatus N0(vrxsIIRSetDlyLine64f_32s)(VrxsIirState* pState, const Vrx64f* pDlyLine) { return setLine<double>(pState, pDlyLine, k32s, 2); }
VrxStatus N0(vrxsIIRGetDlyLine64fc_32sc)(const VrxsIirState* pState, Vrx64fc* pDlyLine) { return getLine<C64>(pState, cx(pDlyLine), k32sc, 2); }
VrxStatus N0(vrxsIIRSetDlyLine64fc_32sc)(VrxsIirState* pState, const Vrx64fc* pDlyLine) { return setLine<C64>(pState, cx(pDlyLine), k32sc, 2); }
VrxStatus N0(vrxsIIRGetDlyLine64f_16s)(const VrxsIirState* pState, Vrx64f* pDlyLine) { return getLine<double>(pState, pDlyLine, k16s, 2); }
VrxStatus N0(vrxsIIRSetDlyLine64f_16s)(VrxsIirState* pState, const Vrx64f* pDlyLine) { return setLine<double>(pState, pDlyLine, k16s, 2); }
VrxStatus N0(vrxsIIRGetDlyLine64fc_16sc)(const VrxsIirState* pState, Vrx64fc* pDlyLine) { return getLine<C64>(pState, cx(pDlyLine), k16sc, 2); }
VrxStatus N0(vrxsIIRSetDlyLine64fc_16sc)(VrxsIirState* pState, const Vrx64fc* pDlyLine) { return setLine<C64>(pState, cx(pDlyLine), k16sc, 2); }

// The direct form I line of 0x49493330: 4*numBq doubles inside, 32s outside
// (rounded to nearest even, saturated, scale factor 0).
VrxStatus N0(vrxsIIRGetDlyLine64f_DF1_32s)(const VrxsIirState* pState, Vrx32s* pDlyLine) {
    if (anyNull(pState, pDlyLine)) return vrxErrNullPtr;
    if (!kindOf(pState, kOnlyDF1, 1)) return vrxErrBadSpec;
    const State* st = reinterpret_cast<const State*>(pState);
    return N0(vrxsConvert_64f32s_Sfs)(st->pDf1Dly, pDlyLine, 4 * st->numBq, vrxRndNear, 0);
}
VrxStatus N0(vrxsIIRSetDlyLine64f_DF1_32s)(VrxsIirState* pState, const Vrx32s* pDlyLine) {
    if (!pState) return vrxErrNullPtr;
    if (!kindOf(pState, kOnlyDF1, 1)) return vrxErrBadSpec;
    State* st = reinterpret_cast<State*>(pState);
    for (int i = 0; i < 4 * st->numBq; ++i) st->pDf1Dly[i] = pDlyLine ? double(pDlyLine[i]) : 0.0;
    return vrxOk;
}
