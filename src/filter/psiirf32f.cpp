// IIR filters with float taps and arithmetic: AR and biquad kinds on 32f,
// 32fc, 16s and 16sc samples, and the direct form I biquad on 32f. The
// engine is psiir_own.h; each entry names its kind.
#include "psiir_own.h"

using namespace n0;
using namespace n0::iir;

namespace {

using C32 = Cx<float>;

constexpr Kind kAR32f{ObjId::IirAR32f, Form::AR, 4, 1};
constexpr Kind kBQ32f{ObjId::IirBQ32f, Form::BQ, 4, 1};
constexpr Kind kAR32fc{ObjId::IirAR32fc, Form::AR, 8, 1};
constexpr Kind kBQ32fc{ObjId::IirBQ32fc, Form::BQ, 8, 1};
constexpr Kind kAR16s{ObjId::IirAR32f16s, Form::AR, 4, 2};
constexpr Kind kBQ16s{ObjId::IirBQ32f16s, Form::BQ, 4, 2};
constexpr Kind kAR16sc{ObjId::IirAR32fc16sc, Form::AR, 8, 2};
constexpr Kind kBQ16sc{ObjId::IirBQ32fc16sc, Form::BQ, 8, 2};
constexpr Kind kDF1{ObjId::IirBQDF1_32f, Form::DF1, 4, 1};

static_assert(layoutFits<float>(kAR32f, 300) && layoutFits<float>(kBQ32f, 300));
static_assert(layoutFits<C32>(kAR32fc, 300) && layoutFits<C32>(kBQ32fc, 300));
static_assert(layoutFits<float>(kAR16s, 300) && layoutFits<float>(kBQ16s, 300));
static_assert(layoutFits<C32>(kAR16sc, 300) && layoutFits<C32>(kBQ16sc, 300));
static_assert(layoutFits<float>(kDF1, 300));

// the words each run and each line pair accepts
constexpr Kind kRun32f[] = {kAR32f, kBQ32f, kDF1};
constexpr Kind kRun32fc[] = {kAR32fc, kBQ32fc};
constexpr Kind kRun16s[] = {kAR16s, kBQ16s};
constexpr Kind kRun16sc[] = {kAR16sc, kBQ16sc};
constexpr Kind kOnlyAR16s[] = {kAR16s};
constexpr Kind kOnlyBQ16s[] = {kBQ16s};
constexpr Kind kOnlyAR16sc[] = {kAR16sc};
constexpr Kind kOnlyBQ16sc[] = {kBQ16sc};
constexpr Kind kMulti32f[] = {kBQ32f, kDF1};

const C32* cx(const Vrx32fc* p) { return reinterpret_cast<const C32*>(p); }
C32* cx(Vrx32fc* p) { return reinterpret_cast<C32*>(p); }

}  // namespace

// Targets of the 16-bit pairs, reached through the word (not exported).
VRX_OWN(VrxStatus, vrxsIIRAR32f_16s_Sfs, (const Vrx16s* pSrc, Vrx16s* pDst, int len, VrxsIirState* pState, int scaleFactor));
VRX_OWN(VrxStatus, vrxsIIRBQ32f_16s_Sfs, (const Vrx16s* pSrc, Vrx16s* pDst, int len, VrxsIirState* pState, int scaleFactor));
VRX_OWN(VrxStatus, vrxsIIRAR32fc_16sc_Sfs, (const Vrx16sc* pSrc, Vrx16sc* pDst, int len, VrxsIirState* pState, int scaleFactor));
VRX_OWN(VrxStatus, vrxsIIRBQ32fc_16sc_Sfs, (const Vrx16sc* pSrc, Vrx16sc* pDst, int len, VrxsIirState* pState, int scaleFactor));

// ------------------------------------------------------------ sizes
VrxStatus N0(vrxsIIRGetStateSize_32f)(int order, int* pBufferSize) { return stateSize(kAR32f, order, pBufferSize); }
VrxStatus N0(vrxsIIRGetStateSize_BiQuad_32f)(int numBq, int* pBufferSize) { return stateSize(kBQ32f, numBq, pBufferSize); }
VrxStatus N0(vrxsIIRGetStateSize_32fc)(int order, int* pBufferSize) { return stateSize(kAR32fc, order, pBufferSize); }
VrxStatus N0(vrxsIIRGetStateSize_BiQuad_32fc)(int numBq, int* pBufferSize) { return stateSize(kBQ32fc, numBq, pBufferSize); }
VrxStatus N0(vrxsIIRGetStateSize32f_16s)(int order, int* pBufferSize) { return stateSize(kAR16s, order, pBufferSize); }
VrxStatus N0(vrxsIIRGetStateSize32f_BiQuad_16s)(int numBq, int* pBufferSize) { return stateSize(kBQ16s, numBq, pBufferSize); }
VrxStatus N0(vrxsIIRGetStateSize32fc_16sc)(int order, int* pBufferSize) { return stateSize(kAR16sc, order, pBufferSize); }
VrxStatus N0(vrxsIIRGetStateSize32fc_BiQuad_16sc)(int numBq, int* pBufferSize) { return stateSize(kBQ16sc, numBq, pBufferSize); }
VrxStatus N0(vrxsIIRGetStateSize_BiQuad_DF1_32f)(int numBq, int* pBufferSize) { return stateSize(kDF1, numBq, pBufferSize); }

// ------------------------------------------------------------- Init
VrxStatus N0(vrxsIIRInit_32f)(VrxsIirState** ppState, const Vrx32f* pTaps, int order, const Vrx32f* pDlyLine, Vrx8u* pBuf) {
    return initAR<float>(kAR32f, ppState, pTaps, order, pDlyLine, pBuf);
}
VrxStatus N0(vrxsIIRInit_BiQuad_32f)(VrxsIirState** ppState, const Vrx32f* pTaps, int numBq, const Vrx32f* pDlyLine, Vrx8u* pBuf) {
    return initBQ<float>(kBQ32f, ppState, pTaps, numBq, pDlyLine, pBuf);
}
VrxStatus N0(vrxsIIRInit_32fc)(VrxsIirState** ppState, const Vrx32fc* pTaps, int order, const Vrx32fc* pDlyLine, Vrx8u* pBuf) {
    return initAR<C32>(kAR32fc, ppState, cx(pTaps), order, cx(pDlyLine), pBuf);
}
VrxStatus N0(vrxsIIRInit_BiQuad_32fc)(VrxsIirState** ppState, const Vrx32fc* pTaps, int numBq, const Vrx32fc* pDlyLine, Vrx8u* pBuf) {
    return initBQ<C32>(kBQ32fc, ppState, cx(pTaps), numBq, cx(pDlyLine), pBuf);
}
VrxStatus N0(vrxsIIRInit32f_16s)(VrxsIirState** ppState, const Vrx32f* pTaps, int order, const Vrx32f* pDlyLine, Vrx8u* pBuf) {
    return initAR<float>(kAR16s, ppState, pTaps, order, pDlyLine, pBuf);
}
VrxStatus N0(vrxsIIRInit32f_BiQuad_16s)(VrxsIirState** ppState, const Vrx32f* pTaps, int numBq, const Vrx32f* pDlyLine, Vrx8u* pBuf) {
    return initBQ<float>(kBQ16s, ppState, pTaps, numBq, pDlyLine, pBuf);
}
VrxStatus N0(vrxsIIRInit32fc_16sc)(VrxsIirState** ppState, const Vrx32fc* pTaps, int order, const Vrx32fc* pDlyLine, Vrx8u* pBuf) {
    return initAR<C32>(kAR16sc, ppState, cx(pTaps), order, cx(pDlyLine), pBuf);
}
VrxStatus N0(vrxsIIRInit32fc_BiQuad_16sc)(VrxsIirState** ppState, const Vrx32fc* pTaps, int numBq, const Vrx32fc* pDlyLine, Vrx8u* pBuf) {
    return initBQ<C32>(kBQ16sc, ppState, cx(pTaps), numBq, cx(pDlyLine), pBuf);
}
VrxStatus N0(vrxsIIRInit_BiQuad_DF1_32f)(VrxsIirState** ppState, const Vrx32f* pTaps, int numBq, const Vrx32f* pDlyLine, Vrx8u* pBuf) {
    return initBQ<float>(kDF1, ppState, pTaps, numBq, pDlyLine, pBuf);
}

// ------------------------------------------------------------- runs
VrxStatus N0(vrxsIIR_32f)(const Vrx32f* pSrc, Vrx32f* pDst, int len, VrxsIirState* pState) {
    return run<float, Vrx32f>(kRun32f, 3, pSrc, pDst, len, pState, 0);
}
VrxStatus N0(vrxsIIR_32f_I)(Vrx32f* pSrcDst, int len, VrxsIirState* pState) {
    return run<float, Vrx32f>(kRun32f, 3, pSrcDst, pSrcDst, len, pState, 0);
}
VrxStatus N0(vrxsIIR_32fc)(const Vrx32fc* pSrc, Vrx32fc* pDst, int len, VrxsIirState* pState) {
    return run<C32, Vrx32fc>(kRun32fc, 2, pSrc, pDst, len, pState, 0);
}
VrxStatus N0(vrxsIIR_32fc_I)(Vrx32fc* pSrcDst, int len, VrxsIirState* pState) {
    return run<C32, Vrx32fc>(kRun32fc, 2, pSrcDst, pSrcDst, len, pState, 0);
}

VrxStatus N0(vrxsIIRAR32f_16s_Sfs)(const Vrx16s* pSrc, Vrx16s* pDst, int len, VrxsIirState* pState, int scaleFactor) {
    return run<float, Vrx16s>(kOnlyAR16s, 1, pSrc, pDst, len, pState, scaleFactor);
}
VrxStatus N0(vrxsIIRBQ32f_16s_Sfs)(const Vrx16s* pSrc, Vrx16s* pDst, int len, VrxsIirState* pState, int scaleFactor) {
    return run<float, Vrx16s>(kOnlyBQ16s, 1, pSrc, pDst, len, pState, scaleFactor);
}
VrxStatus N0(vrxsIIRAR32fc_16sc_Sfs)(const Vrx16sc* pSrc, Vrx16sc* pDst, int len, VrxsIirState* pState, int scaleFactor) {
    return run<C32, Vrx16sc>(kOnlyAR16sc, 1, pSrc, pDst, len, pState, scaleFactor);
}
VrxStatus N0(vrxsIIRBQ32fc_16sc_Sfs)(const Vrx16sc* pSrc, Vrx16sc* pDst, int len, VrxsIirState* pState, int scaleFactor) {
    return run<C32, Vrx16sc>(kOnlyBQ16sc, 1, pSrc, pDst, len, pState, scaleFactor);
}

// the 16-bit pairs check, then hand the call to the target of the word
static VrxStatus run16s(const Vrx16s* s, Vrx16s* d, int len, VrxsIirState* st, int sf) {
    if (anyNull(st, s, d)) return vrxErrNullPtr;
    if (len < 1) return vrxErrBadLength;
    if (!kindOf(st, kRun16s, 2)) return vrxErrBadSpec;
    if (idAt(st) == idWord(ObjId::IirAR32f16s)) return N0(vrxsIIRAR32f_16s_Sfs)(s, d, len, st, sf);
    return N0(vrxsIIRBQ32f_16s_Sfs)(s, d, len, st, sf);
}
static VrxStatus run16sc(const Vrx16sc* s, Vrx16sc* d, int len, VrxsIirState* st, int sf) {
    if (anyNull(st, s, d)) return vrxErrNullPtr;
    if (len < 1) return vrxErrBadLength;
    if (!kindOf(st, kRun16sc, 2)) return vrxErrBadSpec;
    if (idAt(st) == idWord(ObjId::IirAR32fc16sc)) return N0(vrxsIIRAR32fc_16sc_Sfs)(s, d, len, st, sf);
    return N0(vrxsIIRBQ32fc_16sc_Sfs)(s, d, len, st, sf);
}
VrxStatus N0(vrxsIIR32f_16s_Sfs)(const Vrx16s* pSrc, Vrx16s* pDst, int len, VrxsIirState* pState, int scaleFactor) {
    return run16s(pSrc, pDst, len, pState, scaleFactor);
}
VrxStatus N0(vrxsIIR32f_16s_ISfs)(Vrx16s* pSrcDst, int len, VrxsIirState* pState, int scaleFactor) {
    return run16s(pSrcDst, pSrcDst, len, pState, scaleFactor);
}
VrxStatus N0(vrxsIIR32fc_16sc_Sfs)(const Vrx16sc* pSrc, Vrx16sc* pDst, int len, VrxsIirState* pState, int scaleFactor) {
    return run16sc(pSrc, pDst, len, pState, scaleFactor);
}
VrxStatus N0(vrxsIIR32fc_16sc_ISfs)(Vrx16sc* pSrcDst, int len, VrxsIirState* pState, int scaleFactor) {
    return run16sc(pSrcDst, pSrcDst, len, pState, scaleFactor);
}

// multi-channel: biquad states only; nChannels < 1 is -53 here
static VrxStatus runP32f(const Vrx32f* const* ppSrc, Vrx32f* const* ppDst, int len, int nChannels, VrxsIirState* const* ppState) {
    return runChannels<Vrx32f>(ppSrc, ppDst, len, nChannels, ppState, vrxErrChannelCount, kMulti32f, 2,
                               [&](const Vrx32f* s, Vrx32f* d, VrxsIirState* st) {
                                   runState<float, Vrx32f>(reinterpret_cast<State*>(st), *kindOf(st, kMulti32f, 2), s, d, len, 0);
                               });
}
VrxStatus N0(vrxsIIR_32f_P)(const Vrx32f** ppSrc, Vrx32f** ppDst, int len, int nChannels, VrxsIirState** ppState) {
    return runP32f(ppSrc, ppDst, len, nChannels, ppState);
}
VrxStatus N0(vrxsIIR_32f_IP)(Vrx32f** ppSrcDst, int len, int nChannels, VrxsIirState** ppState) {
    return runP32f(ppSrcDst, ppSrcDst, len, nChannels, ppState);
}

// ------------------------------------------------------ delay lines
VrxStatus N0(vrxsIIRGetDlyLine_32f)(const VrxsIirState* pState, Vrx32f* pDlyLine) { return getLine<float>(pState, pDlyLine, kRun32f, 3); }
VrxStatus N0(vrxsIIRSetDlyLine_32f)(VrxsIirState* pState, const Vrx32f* pDlyLine) { return setLine<float>(pState, pDlyLine, kRun32f, 3); }
VrxStatus N0(vrxsIIRGetDlyLine_32fc)(const VrxsIirState* pState, Vrx32fc* pDlyLine) { return getLine<C32>(pState, cx(pDlyLine), kRun32fc, 2); }
VrxStatus N0(vrxsIIRSetDlyLine_32fc)(VrxsIirState* pState, const Vrx32fc* pDlyLine) { return setLine<C32>(pState, cx(pDlyLine), kRun32fc, 2); }
VrxStatus N0(vrxsIIRGetDlyLine32f_16s)(const VrxsIirState* pState, Vrx32f* pDlyLine) { return getLine<float>(pState, pDlyLine, kRun16s, 2); }
VrxStatus N0(vrxsIIRSetDlyLine32f_16s)(VrxsIirState* pState, const Vrx32f* pDlyLine) { return setLine<float>(pState, pDlyLine, kRun16s, 2); }
VrxStatus N0(vrxsIIRGetDlyLine32fc_16sc)(const VrxsIirState* pState, Vrx32fc* pDlyLine) { return getLine<C32>(pState, cx(pDlyLine), kRun16sc, 2); }
VrxStatus N0(vrxsIIRSetDlyLine32fc_16sc)(VrxsIirState* pState, const Vrx32fc* pDlyLine) { return setLine<C32>(pState, cx(pDlyLine), kRun16sc, 2); }
