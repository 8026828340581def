// Multi-rate FIR: the input stretched by U, convolved with the taps, every
// D-th sample kept, without forming the stretched signal. The outputs repeat
// their tap pattern every U outputs: output n = p + q*U (phase p) meets the
// taps of row p against the inputs from start[p] + q*D on. A joined run of
// history and the first inputs serves the first outputs; the rest run on the
// caller's vector. History and delay lines count input samples.
#include <type_traits>

#include "psfirsr.h"
#include "vrx_layout.h"

using namespace n0;
using namespace n0::filt;

namespace {

// ------------------------------------------------------------- objects
// Header at the first 64-byte boundary; isSingleRate sits in the last word
// so that a factor-1 state (a single-rate state at the same boundary) keeps
// its own header intact.
struct MrHead {
    int32_t tapsLen;
    void* pTaps;
    void* pMrCore;
};
constexpr int kSingleRateAt = 120;

struct Core {
    int32_t idCtx;
    void* pTapsRev;
    void* pDlyLine;
    int32_t tapsLen, upFactor, dlyLen, downFactor, firstOut;
    int32_t* pIndex;     // per phase: first input, relative to the call's first input
    void* pPhaseTaps;    // per phase a row of winLen taps, oldest sample first
    int32_t winLen, kind, histLen, upPhase, downPhase;
    int32_t* pCount;     // per phase: the taps of its row
};

template <class E> constexpr ObjId coreId();
template <> constexpr ObjId coreId<Vrx32f>() { return ObjId::FirMrCore32f; }
template <> constexpr ObjId coreId<Vrx32fc>() { return ObjId::FirMrCore32fc; }
template <> constexpr ObjId coreId<Vrx64f>() { return ObjId::FirMrCore64f; }
template <> constexpr ObjId coreId<Vrx64fc>() { return ObjId::FirMrCore64fc; }

constexpr int64_t kLimit = 2147483646;

// The derived numbers of a filter; bad is set when one of them passes the
// limit of the tables' positions.
struct Plan {
    int64_t N, U, D, H, win, firstOut, dlyLen;
    bool bad;
};
VRX_INLINE Plan planOf(int N, int U, int D, int dp) {
    Plan p{};
    p.N = N; p.U = U; p.D = D;
    p.H = (int64_t(N) + U - 1) / U;
    p.win = p.H;
    // outputs from firstOut on read no history: n*D >= N-1+U
    const int64_t f0 = (int64_t(N) - 1 + U + D - 1) / D;
    const int64_t g = 4 * int64_t(U);
    p.firstOut = (f0 + g - 1) / g * g;
    p.dlyLen = p.firstOut / U * D;
    p.bad = p.firstOut > kLimit || p.dlyLen > kLimit || (int64_t(U) - 1) * D + dp > kLimit ||
            int64_t(U) * p.win * 16 > kLimit;
    return p;
}

// The core's pieces, carved (Init) or measured (size query).
template <class E>
struct CoreParts {
    Core* core;
    E* tapsRev;
    int32_t* index;
    int32_t* count;
    E* rows;
};
template <class E>
CoreParts<E> coreLayout(Carver& c, const Plan& p) {
    CoreParts<E> r;
    r.core = c.template take<Core>(1);
    r.tapsRev = c.template take<E>(p.N);
    r.index = c.template take<int32_t>(p.U);
    r.count = c.template take<int32_t>(p.U);
    r.rows = c.template take<E>(p.U * p.win);
    return r;
}

VRX_INLINE int64_t coreBytes(const Plan& p, int e) {
    Carver c;
    switch (e) {
        case 4: coreLayout<Vrx32f>(c, p); break;
        case 8: coreLayout<Vrx64f>(c, p); break;
        default: coreLayout<Vrx64fc>(c, p); break;
    }
    return c.size();
}

// Work buffer: the delay pair, the joined run, the staging block.
VRX_INLINE int64_t pairBytes(int64_t H) { return ((H * 32) + 126) & ~int64_t(127); }
VRX_INLINE int64_t runBytes(int64_t dlyLen, int64_t H) { return (((dlyLen + H) * 16) + 79) & ~int64_t(63); }
constexpr int64_t kStage = 65599;
// The staging block starts at the first 64-byte boundary behind the joined
// run; its last 16 KiB are scratch of the kernels (the staged outputs and
// the 16-bit forms' blocks stay below 48 KiB).
constexpr int64_t kScratchAt = 49152, kScratch = 16384;

// ----------------------------------------------------------- size query
int elemBytes(int type) {
    switch (type) {
        case vrx32f: return 4;
        case vrx32fc: case vrx64f: return 8;
        case vrx64fc: return 16;
        default: return 0;
    }
}

VrxStatus mrSize(int N, int U, int D, int type, int* pSpecSize, int* pBufSize) {
    if (N < 1) return vrxErrFirLen;
    const int e = elemBytes(type);
    if (!e) return vrxErrDataType;
    if (U < 1 || D < 1) return vrxErrFirMrFactor;
    if (U == 1 && D == 1) return N0(vrxsFIRSRGetSize)(N, type, pSpecSize, pBufSize);
    const Plan p = planOf(N, U, D, 0);
    *pSpecSize = static_cast<int>(roundUp64(coreBytes(p, e)) + roundUp64(int64_t(e) * N) + 191);
    *pBufSize = static_cast<int>(pairBytes(p.H) + runBytes(p.dlyLen, p.H) + kStage);
    return vrxOk;
}

// ----------------------------------------------------------------- Init
template <class E> VrxStatus srInit(const E* t, int N, void* s);
template <> VrxStatus srInit(const Vrx32f* t, int N, void* s) { return N0(vrxsFIRSRInit_32f)(t, N, vrxAlgAuto, static_cast<VrxsFirState_32f*>(s)); }
template <> VrxStatus srInit(const Vrx32fc* t, int N, void* s) { return N0(vrxsFIRSRInit_32fc)(t, N, vrxAlgAuto, static_cast<VrxsFirState_32fc*>(s)); }
template <> VrxStatus srInit(const Vrx64f* t, int N, void* s) { return N0(vrxsFIRSRInit_64f)(t, N, vrxAlgAuto, static_cast<VrxsFirState_64f*>(s)); }
template <> VrxStatus srInit(const Vrx64fc* t, int N, void* s) { return N0(vrxsFIRSRInit_64fc)(t, N, vrxAlgAuto, static_cast<VrxsFirState_64fc*>(s)); }

VRX_INLINE int32_t* singleRateWord(const void* base) { return static_cast<int32_t*>(addBytes(const_cast<void*>(base), kSingleRateAt)); }
VRX_INLINE void* baseOf(const void* spec) { return reinterpret_cast<void*>((addr(spec) + 63) & ~uintptr_t(63)); }

template <class E>
VrxStatus mrInit(const E* pTaps, int N, int U, int up, int D, int dp, VrxsFirMrState* pSpec) {
    if (N < 1) return vrxErrFirLen;
    if (U < 0 || D < 0) return vrxErrFirMrFactor;
    if (up < 0 || up >= U || dp < 0 || dp >= D) return vrxErrFirMrPhase;
    if (anyNull(pTaps, pSpec)) return vrxErrNullPtr;
    void* base = baseOf(pSpec);
    if (U == 1 && D == 1) {
        srInit(pTaps, N, pSpec);
        *singleRateWord(base) = 1;
        return vrxOk;
    }
    const Plan p = planOf(N, U, D, dp);
    if (p.bad) return vrxErrNoMemory;
    MrHead* hd = static_cast<MrHead*>(base);
    E* taps = static_cast<E*>(addBytes(base, firsr::kHeadBytes));
    Carver c(addBytes(taps, size_t(roundUp64(int64_t(sizeof(E)) * N))));
    const CoreParts<E> parts = coreLayout<E>(c, p);
    Core* k = parts.core;
    hd->tapsLen = N;
    hd->pTaps = taps;
    hd->pMrCore = k;
    *singleRateWord(base) = 0;
    copyN(pTaps, taps, N);
    for (int i = 0; i < N; ++i) parts.tapsRev[i] = pTaps[N - 1 - i];
    // rows: output phase pr meets taps k0, k0+U, ... (k0 from the phases),
    // newest tap last in time, so the row runs from the largest k down
    for (int64_t pr = 0; pr < U; ++pr) {
        const int64_t r = pr * D + dp - up;
        const int64_t k0 = ((r % U) + U) % U;
        const int64_t sHi = (r - k0) / U;
        const int64_t cnt = k0 < N ? (N - 1 - k0) / U + 1 : 0;
        parts.count[pr] = static_cast<int32_t>(cnt);
        parts.index[pr] = static_cast<int32_t>(cnt ? sHi - cnt + 1 : 0);
        E* row = parts.rows + pr * p.win;
        for (int64_t j = 0; j < cnt; ++j) row[j] = pTaps[k0 + U * (cnt - 1 - j)];
    }
    k->idCtx = idWord(coreId<E>());
    k->pTapsRev = parts.tapsRev;
    k->pDlyLine = nullptr;
    k->tapsLen = N;
    k->upFactor = U;
    k->dlyLen = static_cast<int32_t>(p.dlyLen);
    k->downFactor = D;
    k->firstOut = static_cast<int32_t>(p.firstOut);
    k->pIndex = parts.index;
    k->pPhaseTaps = parts.rows;
    k->winLen = static_cast<int32_t>(p.win);
    // the kernel family by the filter's shape: r = N / (3D + N) in float
    const float ratio = static_cast<float>(N) / static_cast<float>(3 * int64_t(D) + N);
    if (U == 1) k->kind = ratio > 0.5f ? 1 : 2;
    else k->kind = static_cast<double>(ratio) > 0.3 ? 1 : 3;
    k->histLen = static_cast<int32_t>(p.H);
    k->upPhase = up;
    k->downPhase = dp;
    k->pCount = parts.count;
    return vrxOk;
}

// ------------------------------------------------------------ kernels
// Outputs [n0, n1) from inputs X (X[0] the call's first input; negative
// positions reach into a joined history), one at a time.
template <class E>
void outputsScalar(const Core* k, const E* X, E* out, int64_t n0, int64_t n1) {
    const int64_t U = k->upFactor, D = k->downFactor, win = k->winLen;
    const E* rows = static_cast<const E*>(k->pPhaseTaps);
    for (int64_t pr = n0 % U, q = n0 / U, n = n0; n < n1; ++n) {
        const int cnt = k->pCount[pr];
        const E* x = X + (k->pIndex[pr] + q * D);
        E v;
        if (cnt) v = dotOne(rows + pr * win, x, cnt, 1);
        else if constexpr (Elem<E>::kCplx) v = E{0, 0};
        else v = 0;
        out[n] = v;
        if (++pr == U) { pr = 0; ++q; }
    }
}

// Vector lanes hold outputs of one phase at consecutive q: inputs D apart
// (loads for D = 1, gathers otherwise), outputs U apart (stores for U = 1,
// scatters otherwise). The arithmetic per output is that of the scalar form.
template <class E> struct Lanes;
template <int Bytes> struct IndexOf;
template <> struct IndexOf<4> { using T = __m512i; };  // 16 lanes
template <> struct IndexOf<8> { using T = __m256i; };  // 8 lanes
template <class S> struct RealLanes {
    using W = simd::V<S>;
    using R = typename W::R;
    static constexpr bool k4 = sizeof(S) == 4;
    using Idx = typename IndexOf<sizeof(S)>::T;
    static constexpr int L = W::N;
    static Idx steps(int s) {
        if constexpr (k4) return simd::steps16(s);
        else return simd::steps8(s);
    }
    static R in(const S* p, bool unit, Idx i) {
        if (unit) return W::load(p);
        if constexpr (k4) return simd::gather32(p, i);
        else return simd::gather64(p, i);
    }
    static void put(S* p, bool unit, Idx i, R v) {
        if (unit) W::store(p, v);
        else if constexpr (k4) simd::scatter32(p, i, v);
        else simd::scatter64(p, i, v);
    }
    static R step(R acc, const S* g, R x) { return W::fma(W::set1(*g), x, acc); }
};
template <> struct Lanes<Vrx32f> : RealLanes<float> {};
template <> struct Lanes<Vrx64f> : RealLanes<double> {};
// Complex floats move as 8-byte lanes; re*x first, then the cross term.
template <> struct Lanes<Vrx32fc> {
    using W = simd::V<float>;
    using Idx = __m256i;
    static constexpr int L = 8;
    static Idx steps(int s) { return simd::steps8(s); }
    static W::R in(const Vrx32fc* p, bool unit, Idx i) {
        const double* d = reinterpret_cast<const double*>(p);
        return _mm512_castpd_ps(unit ? simd::V<double>::load(d) : simd::gather64(d, i));
    }
    static void put(Vrx32fc* p, bool unit, Idx i, W::R v) {
        double* d = reinterpret_cast<double*>(p);
        if (unit) simd::V<double>::store(d, _mm512_castps_pd(v));
        else simd::scatter64(d, i, _mm512_castps_pd(v));
    }
    static W::R step(W::R acc, const Vrx32fc* g, W::R x) {
        acc = W::fma(W::set1(g->re), x, acc);
        return W::fma(W::set2(-g->im, g->im), W::swapPair(x), acc);
    }
};

// With D > 1 the inputs are first split into D streams in scratch,
// z_r[m] = X[c0 + r + m*D], so that the lanes of one tap read consecutive
// elements of one stream: tap j of phase p meets stream (a+j) mod D from
// (a+j) div D on, a the phase's start from c0. Chunks of q fill the scratch.
// Returns false when a chunk of L lanes does not fit.
template <class E>
bool outputsSplit(const Core* k, const E* X, E* out, int64_t& n, int64_t n1, E* scr, int64_t scrElems) {
    using Ln = Lanes<E>;
    using R = typename Ln::W::R;
    constexpr int L = Ln::L;
    const int64_t U = k->upFactor, D = k->downFactor, win = k->winLen;
    const E* rows = static_cast<const E*>(k->pPhaseTaps);
    int64_t lo = INT64_MAX, hi = INT64_MIN;
    for (int64_t pr = 0; pr < U; ++pr) {
        if (!k->pCount[pr]) continue;
        lo = lo < k->pIndex[pr] ? lo : k->pIndex[pr];
        const int64_t e = k->pIndex[pr] + k->pCount[pr];
        hi = hi > e ? hi : e;
    }
    if (lo > hi) return false;  // no taps at all: the scalar form writes zeros
    const int64_t span = hi - lo;
    const int64_t B = (scrElems / D - span / D - 2) / L * L;  // q per chunk
    if (B < L) return false;
    const typename Ln::Idx iU = Ln::steps(static_cast<int>(U));
    while (n + L * U <= n1) {
        const int64_t qa = n / U;
        int64_t qn = (n1 - n) / (L * U) * L;
        if (qn > B) qn = B;
        const int64_t c0 = lo + qa * D, len = (qn - 1) * D + span;
        const int64_t M = len / D + 1;
        for (int64_t r = 0; r < D; ++r) {
            E* z = scr + r * M;
            const E* x = X + c0 + r;
            for (int64_t m = 0; r + m * D < len; ++m) z[m] = x[m * D];
        }
        for (int64_t pr = 0; pr < U; ++pr) {
            const int cnt = k->pCount[pr];
            const E* g = rows + pr * win;
            const int64_t a = k->pIndex[pr] - lo;
            int64_t qb = 0;
            for (; qb + 2 * L <= qn; qb += 2 * L) {  // two chains
                R a0 = Ln::W::zero(), a1 = Ln::W::zero();
                for (int j = 0; j < cnt; ++j) {
                    const int64_t t = a + j;
                    const E* z = scr + (t % D) * M + t / D + qb;
                    a0 = Ln::step(a0, g + j, Ln::in(z, true, iU));
                    a1 = Ln::step(a1, g + j, Ln::in(z + L, true, iU));
                }
                Ln::put(out + (qa + qb) * U + pr, U == 1, iU, a0);
                Ln::put(out + (qa + qb + L) * U + pr, U == 1, iU, a1);
            }
            for (; qb < qn; qb += L) {
                R acc = Ln::W::zero();
                for (int j = 0; j < cnt; ++j) {
                    const int64_t t = a + j;
                    acc = Ln::step(acc, g + j, Ln::in(scr + (t % D) * M + t / D + qb, true, iU));
                }
                Ln::put(out + (qa + qb) * U + pr, U == 1, iU, acc);
            }
        }
        n += qn * U;
    }
    return true;
}

template <class E>
void outputs(const Core* k, const E* X, E* out, int64_t n0, int64_t n1, E* scr = nullptr, int64_t scrElems = 0) {
    const int64_t U = k->upFactor, D = k->downFactor;
    int64_t n = (n0 + U - 1) / U * U;  // the first group boundary
    if (n > n1) n = n1;
    outputsScalar(k, X, out, n0, n);
    if constexpr (sizeof(E) <= 8) {
        using Ln = Lanes<E>;
        using R = typename Ln::W::R;
        constexpr int L = Ln::L;
        const bool split = D > 1 && scr && (L - 1) * U <= kLimit && outputsSplit(k, X, out, n, n1, scr, scrElems);
        if (!split && (L - 1) * D <= kLimit && (L - 1) * U <= kLimit) {
            const typename Ln::Idx iD = Ln::steps(static_cast<int>(D)), iU = Ln::steps(static_cast<int>(U));
            const E* rows = static_cast<const E*>(k->pPhaseTaps);
            const int64_t win = k->winLen;
            // Kb blocks of L lanes at a time: two for independent chains,
            // then one
            auto blocks = [&](auto kb) {
                constexpr int Kb = decltype(kb)::value;
                for (; n + Kb * L * U <= n1; n += Kb * L * U) {
                    const int64_t q = n / U;
                    for (int64_t pr = 0; pr < U; ++pr) {
                        const int cnt = k->pCount[pr];
                        const E* g = rows + pr * win;
                        const E* x0 = X + (k->pIndex[pr] + q * D);
                        R a[Kb];
                        for (int b = 0; b < Kb; ++b) a[b] = Ln::W::zero();
                        for (int j = 0; j < cnt; ++j)
                            for (int b = 0; b < Kb; ++b) a[b] = Ln::step(a[b], g + j, Ln::in(x0 + b * L * D + j, D == 1, iD));
                        for (int b = 0; b < Kb; ++b) Ln::put(out + n + pr + b * L * U, U == 1, iU, a[b]);
                    }
                }
            };
            blocks(std::integral_constant<int, 2>{});
            blocks(std::integral_constant<int, 1>{});
        }
    }
    outputsScalar(k, X, out, n, n1);
}

// One call without aliasing: iters blocks from src into dst, the joined run
// in J (H + dlyLen elements). When the input is not longer than dlyLen it
// all goes through J, and dst may then overlap src.
template <class E>
void plainRun(const Core* k, const E* src, E* dst, int64_t iters, const E* dlyIn, E* dlyOut, E* J, E* scr) {
    constexpr int64_t scrElems = kScratch / int64_t(sizeof(E));
    const int64_t H = k->histLen, nin = iters * k->downFactor, nout = iters * k->upFactor;
    if (dlyIn) copyN(dlyIn, J, static_cast<int>(H));
    else zeroN(J, static_cast<int>(H));
    if (k->dlyLen < nin) {
        copyN(src, J + H, k->dlyLen);
        outputs(k, J + H, dst, 0, k->firstOut, scr, scrElems);
        outputs(k, src, dst, k->firstOut, nout, scr, scrElems);
        if (dlyOut) copyN(src + (nin - H), dlyOut, static_cast<int>(H));
    } else {
        copyN(src, J + H, static_cast<int>(nin));
        outputs(k, J + H, dst, 0, nout, scr, scrElems);
        if (dlyOut) moveN(J + nin, dlyOut, static_cast<int>(H));
    }
}

template <class E>
VRX_INLINE E* runArea(const Core* k, Vrx8u* pBuf) {
    return reinterpret_cast<E*>(pBuf + pairBytes(k->histLen));
}
VRX_INLINE Vrx8u* stageArea(const Core* k, Vrx8u* pBuf) {
    return reinterpret_cast<Vrx8u*>((addr(pBuf + pairBytes(k->histLen) + runBytes(k->dlyLen, k->histLen)) + 63) & ~uintptr_t(63));
}
template <class E>
VRX_INLINE E* scratchArea(const Core* k, Vrx8u* pBuf) {
    return reinterpret_cast<E*>(stageArea(k, pBuf) + kScratchAt);
}

// ------------------------------------------------------------- run, floats
template <class E> VrxStatus srRun(const E* s, E* d, int n, const void* st, const E* di, E* dd, Vrx8u* b);
template <> VrxStatus srRun(const Vrx32f* s, Vrx32f* d, int n, const void* st, const Vrx32f* di, Vrx32f* dd, Vrx8u* b) { return N0(vrxsFIRSR_32f)(s, d, n, static_cast<const VrxsFirState_32f*>(st), di, dd, b); }
template <> VrxStatus srRun(const Vrx32fc* s, Vrx32fc* d, int n, const void* st, const Vrx32fc* di, Vrx32fc* dd, Vrx8u* b) { return N0(vrxsFIRSR_32fc)(s, d, n, static_cast<const VrxsFirState_32fc*>(st), di, dd, b); }
template <> VrxStatus srRun(const Vrx64f* s, Vrx64f* d, int n, const void* st, const Vrx64f* di, Vrx64f* dd, Vrx8u* b) { return N0(vrxsFIRSR_64f)(s, d, n, static_cast<const VrxsFirState_64f*>(st), di, dd, b); }
template <> VrxStatus srRun(const Vrx64fc* s, Vrx64fc* d, int n, const void* st, const Vrx64fc* di, Vrx64fc* dd, Vrx8u* b) { return N0(vrxsFIRSR_64fc)(s, d, n, static_cast<const VrxsFirState_64fc*>(st), di, dd, b); }
template <> VrxStatus srRun(const Vrx16s* s, Vrx16s* d, int n, const void* st, const Vrx16s* di, Vrx16s* dd, Vrx8u* b) { return N0(vrxsFIRSR_16s)(s, d, n, static_cast<const VrxsFirState_32f*>(st), di, dd, b); }
template <> VrxStatus srRun(const Vrx16sc* s, Vrx16sc* d, int n, const void* st, const Vrx16sc* di, Vrx16sc* dd, Vrx8u* b) { return N0(vrxsFIRSR_16sc)(s, d, n, static_cast<const VrxsFirState_32fc*>(st), di, dd, b); }

// The factor-1 form: the line has N elements and the single-rate filter
// runs on elements 1..N-1; the line going out is shifted up by one after
// (element 0 stale), except when no line came in.
template <class E>
VrxStatus singleRate(const void* base, const E* pSrc, E* pDst, int numIters, const E* pDlySrc, E* pDlyDst, Vrx8u* pBuf) {
    const int N = *static_cast<const int32_t*>(base);
    if (pDlySrc && pDlyDst == pDlySrc) return srRun(pSrc, pDst, numIters, base, pDlySrc + 1, pDlyDst + 1, pBuf);
    const VrxStatus st = srRun(pSrc, pDst, numIters, base, pDlySrc ? pDlySrc + 1 : nullptr, pDlyDst, pBuf);
    if (pDlySrc && pDlyDst) moveN(pDlyDst, pDlyDst + 1, N - 1);
    return st;
}

template <class E>
VrxStatus openCore(const void* pSpec, const Core** k) {
    const MrHead* hd = static_cast<const MrHead*>(baseOf(pSpec));
    return open(hd->pMrCore, coreId<E>(), k);
}

template <class E>
VrxStatus mrRun(const E* pSrc, E* pDst, int numIters, const VrxsFirMrState* pSpec, const E* pDlySrc, E* pDlyDst, Vrx8u* pBuf) {
    if (anyNull(pSpec, pSrc, pDst, pBuf)) return vrxErrNullPtr;
    if (numIters < 1) return vrxErrBadLength;
    const void* base = baseOf(pSpec);
    if (*singleRateWord(base) == 1) return singleRate(base, pSrc, pDst, numIters, pDlySrc, pDlyDst, pBuf);
    const Core* k = nullptr;
    if (VrxStatus st = openCore<E>(pSpec, &k)) return st;
    E* J = runArea<E>(k, pBuf);
    if (pSrc != pDst) {
        plainRun(k, pSrc, pDst, numIters, pDlySrc, pDlyDst, J, scratchArea<E>(k, pBuf));
        return vrxOk;
    }
    // In place: blocks of 4096/U iterations staged in the work buffer (or
    // written straight when the block goes wholly through the joined run);
    // when D < U the unread input is moved ahead of the growing output.
    const int64_t H = k->histLen, U = k->upFactor, D = k->downFactor;
    E* dA = reinterpret_cast<E*>(pBuf);
    E* dB = dA + H;
    E* stage = reinterpret_cast<E*>(stageArea(k, pBuf));
    E* v = pDst;
    if (pDlySrc) copyN(pDlySrc, dA, static_cast<int>(H));
    else zeroN(dA, static_cast<int>(H));
    int64_t inPos = 0, outPos = 0;
    const int64_t per = 4096 / U > 0 ? 4096 / U : 1;
    for (int64_t done = 0; done < numIters;) {
        const int64_t ib = numIters - done < per ? numIters - done : per;
        const bool straight = ib * D <= k->dlyLen;
        E* out = straight ? v + outPos : stage;
        // the rest of the input moves ahead of this block's output first (a
        // move to higher addresses, which leaves this block's input alone)
        const int64_t rest = (numIters - done - ib) * D;
        int64_t next = inPos + ib * D;
        if (rest > 0 && next < outPos + ib * U) {
            moveN(v + next, v + outPos + ib * U, static_cast<int>(rest));
            next = outPos + ib * U;
        }
        plainRun(k, v + inPos, out, ib, dA, dB, J, scratchArea<E>(k, pBuf));
        inPos = next;
        if (!straight) copyN(stage, v + outPos, static_cast<int>(ib * U));
        outPos += ib * U;
        E* t = dA; dA = dB; dB = t;
        done += ib;
    }
    if (pDlyDst) copyN(dA, pDlyDst, static_cast<int>(H));
    return vrxOk;
}

// ------------------------------------------------------------ run, 16-bit
// Blocks of at most 4096 scalars through the float filter, converted in and
// rounded and saturated out; the float lines swap roles between blocks.
template <class I, class E>
VrxStatus mrRun16(const I* pSrc, I* pDst, int numIters, const VrxsFirMrState* pSpec, const I* pDlySrc, I* pDlyDst, Vrx8u* pBuf) {
    if (anyNull(pSpec, pSrc, pDst, pBuf)) return vrxErrNullPtr;
    if (numIters < 1) return vrxErrBadLength;
    const void* base = baseOf(pSpec);
    if (*singleRateWord(base) == 1) return singleRate(base, pSrc, pDst, numIters, pDlySrc, pDlyDst, pBuf);
    const Core* k = nullptr;
    if (VrxStatus st = openCore<E>(pSpec, &k)) return st;
    const int64_t H = k->histLen, U = k->upFactor, D = k->downFactor;
    constexpr int64_t c = Elem<E>::kCplx ? 2 : 1;
    E* J = runArea<E>(k, pBuf);
    E* dA = reinterpret_cast<E*>(pBuf);
    E* dB = dA + H;
    E* inB = reinterpret_cast<E*>(stageArea(k, pBuf));
    E* outB = addBytes(inB, 32768);
    if (pDlySrc) toFloat(pDlySrc, dA, static_cast<int>(H));
    else zeroN(dA, static_cast<int>(H));
    const int64_t wide = (U > D ? U : D) * c;
    if (wide > 4096) {
        // One iteration is wider than a block: its input goes behind the
        // line in the joined run (dlyLen >= 4D), its outputs leave in
        // pieces of 4096 scalars.
        const int64_t piece = 4096 / c;
        int64_t inPos = 0, outPos = 0;
        for (int64_t done = 0; done < numIters; ++done) {
            copyN(dA, J, static_cast<int>(H));
            toFloat(pSrc == pDst ? pDst + inPos : pSrc + inPos, J + H, static_cast<int>(D));
            inPos += D;
            const int64_t rest = (numIters - done - 1) * D;
            if (pSrc == pDst && rest > 0 && inPos < outPos + U) {
                moveN(pDst + inPos, pDst + outPos + U, static_cast<int>(rest));
                inPos = outPos + U;
            }
            for (int64_t a = 0; a < U; a += piece) {
                const int64_t b = U - a < piece ? U : a + piece;
                outputs(k, J + H, outB - a, a, b);  // writes outB[0 .. b-a)
                fromFloat(outB, pDst + outPos + a, static_cast<int>(b - a));
            }
            copyN(J + D, dA, static_cast<int>(H));
            outPos += U;
        }
        if (pDlyDst) fromFloat(dA, pDlyDst, static_cast<int>(H));
        return vrxOk;
    }
    E* scr = scratchArea<E>(k, pBuf);
    const int64_t per = 4096 / wide > 0 ? 4096 / wide : 1;
    int64_t inPos = 0, outPos = 0;
    // in place with D < U: the output overtakes the input, so the unread
    // 16-bit input is moved ahead of each block's output
    for (int64_t done = 0; done < numIters;) {
        const int64_t ib = numIters - done < per ? numIters - done : per;
        toFloat(pSrc == pDst ? pDst + inPos : pSrc + inPos, inB, static_cast<int>(ib * D));
        plainRun(k, inB, outB, ib, dA, dB, J, scr);
        inPos += ib * D;
        const int64_t rest = (numIters - done - ib) * D;
        if (pSrc == pDst && rest > 0 && inPos < outPos + ib * U) {
            moveN(pDst + inPos, pDst + outPos + ib * U, static_cast<int>(rest));
            inPos = outPos + ib * U;
        }
        fromFloat(outB, pDst + outPos, static_cast<int>(ib * U));
        outPos += ib * U;
        E* t = dA; dA = dB; dB = t;
        done += ib;
    }
    if (pDlyDst) fromFloat(dA, pDlyDst, static_cast<int>(H));
    return vrxOk;
}

}  // namespace

VrxStatus N0(vrxsFIRMRGetSize)(int tapsLen, int upFactor, int downFactor, VrxDataType tapsType, int* pSpecSize, int* pBufSize) {
    return mrSize(tapsLen, upFactor, downFactor, tapsType, pSpecSize, pBufSize);
}

VrxStatus N0(vrxsFIRMRInit_32f)(const Vrx32f* pTaps, int tapsLen, int upFactor, int upPhase, int downFactor, int downPhase, VrxsFirMrState* pSpec) { return mrInit(pTaps, tapsLen, upFactor, upPhase, downFactor, downPhase, pSpec); }
VrxStatus N0(vrxsFIRMRInit_32fc)(const Vrx32fc* pTaps, int tapsLen, int upFactor, int upPhase, int downFactor, int downPhase, VrxsFirMrState* pSpec) { return mrInit(pTaps, tapsLen, upFactor, upPhase, downFactor, downPhase, pSpec); }
VrxStatus N0(vrxsFIRMRInit_64f)(const Vrx64f* pTaps, int tapsLen, int upFactor, int upPhase, int downFactor, int downPhase, VrxsFirMrState* pSpec) { return mrInit(pTaps, tapsLen, upFactor, upPhase, downFactor, downPhase, pSpec); }
VrxStatus N0(vrxsFIRMRInit_64fc)(const Vrx64fc* pTaps, int tapsLen, int upFactor, int upPhase, int downFactor, int downPhase, VrxsFirMrState* pSpec) { return mrInit(pTaps, tapsLen, upFactor, upPhase, downFactor, downPhase, pSpec); }

VrxStatus N0(vrxsFIRMR_32f)(const Vrx32f* pSrc, Vrx32f* pDst, int numIters, const VrxsFirMrState* pSpec, const Vrx32f* pDlySrc, Vrx32f* pDlyDst, Vrx8u* pBuf) { return mrRun(pSrc, pDst, numIters, pSpec, pDlySrc, pDlyDst, pBuf); }
VrxStatus N0(vrxsFIRMR_32fc)(const Vrx32fc* pSrc, Vrx32fc* pDst, int numIters, const VrxsFirMrState* pSpec, const Vrx32fc* pDlySrc, Vrx32fc* pDlyDst, Vrx8u* pBuf) { return mrRun(pSrc, pDst, numIters, pSpec, pDlySrc, pDlyDst, pBuf); }
VrxStatus N0(vrxsFIRMR_64f)(const Vrx64f* pSrc, Vrx64f* pDst, int numIters, const VrxsFirMrState* pSpec, const Vrx64f* pDlySrc, Vrx64f* pDlyDst, Vrx8u* pBuf) { return mrRun(pSrc, pDst, numIters, pSpec, pDlySrc, pDlyDst, pBuf); }
VrxStatus N0(vrxsFIRMR_64fc)(const Vrx64fc* pSrc, Vrx64fc* pDst, int numIters, const VrxsFirMrState* pSpec, const Vrx64fc* pDlySrc, Vrx64fc* pDlyDst, Vrx8u* pBuf) { return mrRun(pSrc, pDst, numIters, pSpec, pDlySrc, pDlyDst, pBuf); }
VrxStatus N0(vrxsFIRMR_16s)(const Vrx16s* pSrc, Vrx16s* pDst, int numIters, const VrxsFirMrState* pSpec, const Vrx16s* pDlySrc, Vrx16s* pDlyDst, Vrx8u* pBuf) { return mrRun16<Vrx16s, Vrx32f>(pSrc, pDst, numIters, pSpec, pDlySrc, pDlyDst, pBuf); }
VrxStatus N0(vrxsFIRMR_16sc)(const Vrx16sc* pSrc, Vrx16sc* pDst, int numIters, const VrxsFirMrState* pSpec, const Vrx16sc* pDlySrc, Vrx16sc* pDlyDst, Vrx8u* pBuf) { return mrRun16<Vrx16sc, Vrx32fc>(pSrc, pDst, numIters, pSpec, pDlySrc, pDlyDst, pBuf); }
