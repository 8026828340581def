// Polyphase resampling by a Kaiser-windowed sinc prototype.
//
// Both resamplers keep the input history and the time in their state and
// compute every output as one dot product of a tap row with the window of
// inputs that ends at the output's newest input, oldest sample first. A
// dot product runs over 16-lane chunks (the last chunk's inputs masked to
// zero), accumulated by one fused multiply-add per chunk from +0, and its
// lanes are summed in the fixed tree of V<float>::reduceAdd, in blocks of 16
// outputs at a time (simd::reduceAdd16) or alone: the bits of an output do
// not depend on where a call starts or ends. Windows that reach back before
// the call's first input read a joined run of history and first inputs.
//
// Tables are computed in long double under a 64-bit, round-to-nearest x87
// word with all exceptions masked, and rounded once to float. I0 of the
// Kaiser window is its power series, summed until a term no longer counts.
#include <math.h>

#include "vrx_filter.h"
#include "vrx_fpu.h"
#include "vrx_layout.h"

using namespace n0;
using namespace n0::filt;

namespace {

using F = simd::V<float>;
using R = F::R;

constexpr int64_t kIntMax = 2147483647;
constexpr float kMaxBeta = 1000.0f;
constexpr double kMinFactor = 1.0 / 64.0;
constexpr double kMaxFactor = 65536.0;
constexpr int kWiden = 64;   // 1 / kMinFactor: the widest kernel, in prototype widths
constexpr int kTableWiden = 4; // factors from 1/4 up read a widened phase table

// ------------------------------------------------------------ long double
// The x87 word for the table step: 64-bit precision, nearest, all masked.
struct X87Scope {
    unsigned old;
    X87Scope() : old(N0(ps_set_cw_fpu)(0x033F, 0x0F3F)) {}
    ~X87Scope() { N0(ps_set_cw_fpu)(old, 0xFFFF); }
};

constexpr long double kPiL = 3.141592653589793238462643383279502884L;

long double besselI0(long double x) {
    const long double q = 0.25L * x * x;
    long double term = 1.0L, sum = 1.0L;
    for (int k = 1; k < 100000; ++k) {
        term *= q / (static_cast<long double>(k) * k);
        const long double next = sum + term;
        if (next == sum) break;
        sum = next;
    }
    return sum;
}

long double sincL(long double x) {
    if (x == 0.0L) return 1.0L;
    const long double px = kPiL * x;
    return sinl(px) / px;
}

// Kaiser window at u in [-1, 1] (u = position / half span).
VRX_INLINE long double kaiserAt(long double u, long double beta, long double i0Beta) {
    long double r = 1.0L - u * u;
    if (r < 0.0L) r = 0.0L;
    return besselI0(beta * sqrtl(r)) / i0Beta;
}

bool goodShape(Vrx32f rollf, Vrx32f beta) {
    return rollf > 0.0f && rollf <= 1.0f && beta >= 0.0f && beta <= kMaxBeta;
}

// --------------------------------------------------------- the dot product
struct Rows {
    int K;        // taps of a window
    int full;     // whole 16-lane chunks
    F::M last;    // lanes of the last, partial chunk (0: none)
};
VRX_INLINE Rows rowsOf(int K) { return Rows{K, K / F::N, simd::tail<float>(static_cast<size_t>(K % F::N))}; }

// The 16 lane sums of taps t against window x.
VRX_INLINE R partialDot(const float* t, const float* x, const Rows& r) {
    R acc = F::zero();
    int c = 0;
    for (; c < r.full; ++c) acc = F::fma(F::load(t + c * F::N), F::load(x + c * F::N), acc);
    if (r.last) acc = F::fma(F::loadm(r.last, t + c * F::N), F::loadm(r.last, x + c * F::N), acc);
    return acc;
}
// The same with taps t + alpha * d (one rounding each).
VRX_INLINE R partialDotLerp(const float* t, const float* d, R alpha, const float* x, const Rows& r) {
    R acc = F::zero();
    int c = 0;
    for (; c < r.full; ++c) {
        const R g = F::fma(alpha, F::load(d + c * F::N), F::load(t + c * F::N));
        acc = F::fma(g, F::load(x + c * F::N), acc);
    }
    if (r.last) {
        const R g = F::fma(alpha, F::loadm(r.last, d + c * F::N), F::loadm(r.last, t + c * F::N));
        acc = F::fma(g, F::loadm(r.last, x + c * F::N), acc);
    }
    return acc;
}

// Writes outputs while next(acc) gives one (its partial sums), 16 at a time
// through the block reduction; returns the count.
template <class Next>
VRX_INLINE int64_t emit(float* dst, Next next) {
    int64_t n = 0;
    R acc[16];
    for (;;) {
        int k = 0;
        while (k < 16 && next(acc[k])) ++k;
        if (k == 16) {
            F::store(dst + n, simd::reduceAdd16(acc));
            n += 16;
            continue;
        }
        for (int j = 0; j < k; ++j) dst[n + j] = F::reduceAdd(acc[j]);
        return n + k;
    }
}

// History of H samples after a run of len inputs: the newest H of
// hist ++ src. join = hist ++ src[0 .. min(len, H)) for the early windows.
VRX_INLINE void joinHistory(const float* hist, int H, const float* src, int len, float* join) {
    copyN(hist, join, H);
    copyN(src, join + H, len < H ? len : H);
}
VRX_INLINE void keepHistory(float* hist, int H, const float* src, int len) {
    if (H <= 0) return;
    if (len >= H) {
        copyN(src + (len - H), hist, H);
    } else {
        moveN(hist + len, hist, H - len);
        copyN(src, hist + (H - len), len);
    }
}

// ================================================================ fixed
struct FixedState {
    int32_t id;
    int32_t U, D, halfLen, L, K, Kp, H;
    int64_t at;   // the next output's stuffed position minus U times the next input's index, in [0, D)
    float* proto; // L prototype taps
    float* rows;  // U rows of Kp taps: row p, tap r = proto[p + (K-1-r)*U] (zero past L)
    float* hist;  // H = K-1 newest inputs, oldest first
    float* join;  // 2H + 16 scratch
};

struct FixedPlan {
    int64_t U, D, halfLen, L, K, Kp, H;
};

VRX_INLINE int64_t gcd64(int64_t a, int64_t b) {
    while (b) { const int64_t t = a % b; a = b; b = t; }
    return a;
}

VRX_INLINE FixedPlan fixedPlan(int up, int down, int halfLen) {
    const int64_t g = gcd64(up, down);
    FixedPlan p;
    p.U = up / g;
    p.D = down / g;
    p.halfLen = halfLen;
    const int64_t M = p.U > p.D ? p.U : p.D;
    p.L = 2 * int64_t(halfLen) * M + 1;
    p.K = (p.L + p.U - 1) / p.U;
    p.Kp = (p.K + 15) / 16 * 16;
    p.H = p.K - 1;
    return p;
}

struct FixedParts {
    FixedState* s;
    float *proto, *rows, *hist, *join;
};
FixedParts fixedLayout(Carver& c, const FixedPlan& p) {
    FixedParts r;
    r.s = c.take<FixedState>(1);
    r.proto = c.take<float>(p.L);
    r.rows = c.take<float>(p.U * p.Kp);
    r.hist = c.take<float>(p.H + 1);
    r.join = c.take<float>(2 * p.H + 16);
    return r;
}

// The state's bytes, or -1 past INT_MAX (the plan's numbers are bounded
// first so that the layout's products stay far inside int64).
int64_t fixedBytes(const FixedPlan& p) {
    if (p.L > kIntMax || p.U * p.Kp > kIntMax) return -1;
    Carver c;
    fixedLayout(c, p);
    const int64_t n = c.size() + Carver::kSlack;
    return n > kIntMax ? -1 : n;
}

bool goodFixed(int up, int down, int halfLen) { return up >= 1 && down >= 1 && halfLen >= 1; }

void buildRows(FixedState* s) {
    for (int p = 0; p < s->U; ++p) {
        float* row = s->rows + int64_t(p) * s->Kp;
        for (int r = 0; r < s->Kp; ++r) {
            const int64_t k = p + int64_t(s->K - 1 - r) * s->U;
            row[r] = (r < s->K && k < s->L) ? s->proto[k] : 0.0f;
        }
    }
}

// U times the Kaiser-windowed lowpass at cutoff rollf/M (of the Nyquist
// rate), summed to 1 before the gain.
void designFixed(float* h, int64_t L, int64_t U, int64_t M, float rollf, float beta) {
    X87Scope x87;   // before any long double arithmetic
    const long double f = static_cast<long double>(rollf) / static_cast<long double>(M);
    const long double i0b = besselI0(beta);
    const long double mid = static_cast<long double>(L - 1) / 2.0L;
    long double sum = 0.0L;
    // two passes, no scratch: the sum first, then the rounded taps
    for (int64_t n = 0; n < L; ++n) {
        const long double a = static_cast<long double>(n) - mid;
        sum += f * sincL(f * a) * kaiserAt(a / mid, beta, i0b);
    }
    for (int64_t n = 0; n < L; ++n) {
        const long double a = static_cast<long double>(n) - mid;
        h[n] = static_cast<float>(static_cast<long double>(U) * (f * sincL(f * a) * kaiserAt(a / mid, beta, i0b)) / sum);
    }
}

// =============================================================== arbitrary
struct ArbState {
    int32_t id;
    int32_t W, P, K, Kp, H, nFlat, Kw, wK;
    int64_t next;  // the next output's instant minus the next input's index, in units of 2^-32
    double wFactor; // the factor of the widened table (0: none yet)
    float* rows;   // P rows of Kp taps: p(W - 1 - r + p/P)
    float* drows;  // P rows: row p+1 minus row p
    float* flat;   // nFlat + 1: p(n/P - W), then zero
    float* dflat;  // nFlat + 1: flat[n+1] - flat[n]
    float* hist;   // H newest inputs
    float* join;   // 2H + 16 scratch
    float* taps;   // H + 17 taps of a widened kernel
    float* wrows;  // P rows of Kw: the kernel widened for wFactor, wK taps a row
    float* wdrows; // P rows: row p+1 minus row p
};

struct ArbPlan {
    int64_t W, P, K, Kp, H, nFlat, Kw;
};
VRX_INLINE ArbPlan arbPlan(int halfLen, int nPhases) {
    ArbPlan p;
    p.W = halfLen;
    p.P = nPhases;
    p.K = 2 * p.W;
    p.Kp = (p.K + 15) / 16 * 16;
    p.H = 2 * p.W * kWiden;   // the widest window less one, rounded up
    // (a halfLen this large is refused by arbBytes; the product stays in range)
    p.nFlat = p.W <= (1 << 24) ? 2 * p.W * p.P + 1 : INT64_MAX;
    p.Kw = (2 * p.W * kTableWiden + 15) / 16 * 16;
    return p;
}

struct ArbParts {
    ArbState* s;
    float *rows, *drows, *flat, *dflat, *hist, *join, *taps, *wrows, *wdrows;
};
ArbParts arbLayout(Carver& c, const ArbPlan& p) {
    ArbParts r;
    r.s = c.take<ArbState>(1);
    r.rows = c.take<float>(p.P * p.Kp);
    r.drows = c.take<float>(p.P * p.Kp);
    r.flat = c.take<float>(p.nFlat + 1);
    r.dflat = c.take<float>(p.nFlat + 1);
    r.hist = c.take<float>(p.H);
    r.join = c.take<float>(2 * p.H + 16);
    r.taps = c.take<float>(p.H + 17);
    r.wrows = c.take<float>(p.P * p.Kw);
    r.wdrows = c.take<float>(p.P * p.Kw);
    return r;
}
int64_t arbBytes(const ArbPlan& p) {
    if (p.H > kIntMax / 4 || p.nFlat > kIntMax || p.P * p.Kw > kIntMax) return -1;
    Carver c;
    arbLayout(c, p);
    const int64_t n = c.size() + Carver::kSlack;
    return n > kIntMax ? -1 : n;
}

void designArb(const ArbParts& a, const ArbPlan& p, float rollfF, float betaF) {
    X87Scope x87;   // before any long double arithmetic
    const long double rollf = rollfF, beta = betaF;
    const long double i0b = besselI0(beta);
    const long double W = static_cast<long double>(p.W), P = static_cast<long double>(p.P);
    auto proto = [&](long double t) -> long double {
        if (t <= -W || t >= W) return 0.0L;   // zero from the edges on
        return rollf * sincL(rollf * t) * kaiserAt(t / W, beta, i0b);
    };
    for (int64_t ph = 0; ph < p.P; ++ph) {
        float* row = a.rows + ph * p.Kp;
        float* drow = a.drows + ph * p.Kp;
        for (int64_t r = 0; r < p.Kp; ++r) {
            if (r >= p.K) { row[r] = 0.0f; drow[r] = 0.0f; continue; }
            const long double t = W - 1.0L - static_cast<long double>(r);
            const long double v0 = proto(t + static_cast<long double>(ph) / P);
            const long double v1 = proto(t + static_cast<long double>(ph + 1) / P);
            row[r] = static_cast<float>(v0);
            drow[r] = static_cast<float>(v1 - v0);
        }
    }
    long double prev = proto(-W);
    for (int64_t n = 0; n < p.nFlat; ++n) {
        const long double v1 = n + 1 < p.nFlat ? proto(static_cast<long double>(n + 1) / P - W) : 0.0L;
        a.flat[n] = static_cast<float>(prev);
        a.dflat[n] = static_cast<float>(v1 - prev);
        prev = v1;
    }
    a.flat[p.nFlat] = 0.0f;
    a.dflat[p.nFlat] = 0.0f;
}

// The widened kernel's tap at distance m + frac from the newest input:
// factor times the flat table read at factor*P*(m + frac), linear between
// its entries, zero past its end. pos = (m + frac) * P.
VRX_INLINE float widenedTap(const ArbState* s, double pos, double factor) {
    const double q = pos * factor;
    const int64_t k = static_cast<int64_t>(q);
    if (k >= s->nFlat) return 0.0f;
    const float alpha = static_cast<float>(q - static_cast<double>(k));
    return static_cast<float>(factor) * __builtin_fmaf(alpha, s->dflat[k], s->flat[k]);
}

// The phase rows of the kernel widened for factor: row p, place r holds the
// tap at distance K-1-r + p/P; the difference rows step to phase p+1.
void buildWidened(ArbState* s, double factor, int K) {
    const int64_t P = s->P, Kw = s->Kw;
    for (int64_t p = 0; p < P; ++p) {
        float* row = s->wrows + p * Kw;
        float* drow = s->wdrows + p * Kw;
        for (int r = 0; r < Kw; ++r) {
            if (r >= K) { row[r] = 0.0f; drow[r] = 0.0f; continue; }
            const double m = static_cast<double>(K - 1 - r) * static_cast<double>(P);
            const float v0 = widenedTap(s, m + static_cast<double>(p), factor);
            const float v1 = widenedTap(s, m + static_cast<double>(p + 1), factor);
            row[r] = v0;
            drow[r] = v1 - v0;
        }
    }
    s->wFactor = factor;
    s->wK = K;
}

// Outputs read from phase rows with linear interpolation between phases.
struct PhaseRows {
    const float* rows;
    const float* drows;
    int64_t stride;
    int K;
};
VRX_INLINE int64_t runPhases(ArbState* s, const PhaseRows& t, const float* pSrc, const float* join, int64_t& next,
                             int64_t end, int64_t step, float* pDst) {
    const Rows rw = rowsOf(t.K);
    const uint64_t P = static_cast<uint64_t>(s->P);
    const int back = t.K - 1, H = s->H;
    return emit(pDst, [&](R& acc) {
        if (next >= end) return false;
        const int64_t i = next >> 32;
        const uint64_t fp = static_cast<uint64_t>(next & 0xFFFFFFFF) * P;
        const int64_t ph = static_cast<int64_t>(fp >> 32);
        const float alpha = static_cast<float>(static_cast<uint32_t>(fp)) * 0x1p-32f;
        const int64_t start = i - back;
        const float* x = start >= 0 ? pSrc + start : join + (H + start);
        acc = partialDotLerp(t.rows + ph * t.stride, t.drows + ph * t.stride, F::set1(alpha), x, rw);
        next += step;
        return true;
    });
}

}  // namespace

// ================================================================ fixed
VrxStatus N0(vrxsResamplePolyphaseFixedGetSize_32f)(int up, int down, int halfLen, int* pSize, int* pFilterLen) {
    if (anyNull(pSize, pFilterLen)) return vrxErrNullPtr;
    if (!goodFixed(up, down, halfLen)) return vrxErrBadArg;
    const FixedPlan p = fixedPlan(up, down, halfLen);
    const int64_t n = fixedBytes(p);
    if (n < 0) return vrxErrBadArg;
    *pSize = static_cast<int>(n);
    *pFilterLen = static_cast<int>(p.L);
    return vrxOk;
}

VrxStatus N0(vrxsResamplePolyphaseFixedInit_32f)(int up, int down, int halfLen, Vrx32f rollf, Vrx32f beta,
                                                 VrxsResamplePolyphaseFixedState_32f** ppState, Vrx8u* pBuf) {
    if (anyNull(ppState, pBuf)) return vrxErrNullPtr;
    if (!goodFixed(up, down, halfLen) || !goodShape(rollf, beta)) return vrxErrBadArg;
    const FixedPlan p = fixedPlan(up, down, halfLen);
    if (fixedBytes(p) < 0) return vrxErrBadArg;
    Carver c(reinterpret_cast<void*>((addr(pBuf) + 63) & ~uintptr_t(63)));
    const FixedParts f = fixedLayout(c, p);
    FixedState* s = f.s;
    s->U = static_cast<int32_t>(p.U);
    s->D = static_cast<int32_t>(p.D);
    s->halfLen = halfLen;
    s->L = static_cast<int32_t>(p.L);
    s->K = static_cast<int32_t>(p.K);
    s->Kp = static_cast<int32_t>(p.Kp);
    s->H = static_cast<int32_t>(p.H);
    s->at = 0;
    s->proto = f.proto;
    s->rows = f.rows;
    s->hist = f.hist;
    s->join = f.join;
    const int64_t M = p.U > p.D ? p.U : p.D;
    designFixed(f.proto, p.L, p.U, M, rollf, beta);
    buildRows(s);
    zeroN(f.hist, static_cast<int>(p.H + 1));
    s->id = idWord(ObjId::ResamplePolyFixed32f);
    *ppState = reinterpret_cast<VrxsResamplePolyphaseFixedState_32f*>(s);
    return vrxOk;
}

VrxStatus N0(vrxsResamplePolyphaseFixed_32f)(const Vrx32f* pSrc, int len, Vrx32f* pDst, int* pOutLen,
                                             VrxsResamplePolyphaseFixedState_32f* pState) {
    if (anyNull(pSrc, pDst, pOutLen, pState)) return vrxErrNullPtr;
    if (len < 1) return vrxErrBadLength;
    FixedState* s;
    if (VrxStatus st = open(static_cast<void*>(pState), ObjId::ResamplePolyFixed32f, &s)) return st;
    const int H = s->H;
    joinHistory(s->hist, H, pSrc, len, s->join);
    const Rows rw = rowsOf(s->K);
    const int64_t U = s->U, D = s->D, Kp = s->Kp;
    int64_t at = s->at;
    const float* rows = s->rows;
    const float* join = s->join;
    const int64_t n = emit(pDst, [&](R& acc) {
        const int64_t i = at / U;
        if (i >= len) return false;
        const int64_t start = i - H;
        const float* x = start >= 0 ? pSrc + start : join + (H + start);
        acc = partialDot(rows + (at - i * U) * Kp, x, rw);
        at += D;
        return true;
    });
    s->at = at - int64_t(len) * U;
    keepHistory(s->hist, H, pSrc, len);
    *pOutLen = static_cast<int>(n);
    return vrxOk;
}

VrxStatus N0(vrxsResamplePolyphaseGetFixedFilter_32f)(const VrxsResamplePolyphaseFixedState_32f* pState, Vrx32f* pTaps) {
    if (anyNull(pState, pTaps)) return vrxErrNullPtr;
    const FixedState* s;
    if (VrxStatus st = open(static_cast<const void*>(pState), ObjId::ResamplePolyFixed32f, &s)) return st;
    copyN(s->proto, pTaps, s->L);
    return vrxOk;
}

VrxStatus N0(vrxsResamplePolyphaseSetFixedFilter_32f)(VrxsResamplePolyphaseFixedState_32f* pState, const Vrx32f* pTaps) {
    if (anyNull(pState, pTaps)) return vrxErrNullPtr;
    FixedState* s;
    if (VrxStatus st = open(static_cast<void*>(pState), ObjId::ResamplePolyFixed32f, &s)) return st;
    copyN(pTaps, s->proto, s->L);
    buildRows(s);
    return vrxOk;
}

// =============================================================== arbitrary
VrxStatus N0(vrxsResamplePolyphaseGetSize_32f)(int halfLen, int nPhases, int* pSize) {
    if (anyNull(pSize)) return vrxErrNullPtr;
    if (halfLen < 1 || nPhases < 1) return vrxErrBadArg;
    const int64_t n = arbBytes(arbPlan(halfLen, nPhases));
    if (n < 0) return vrxErrBadArg;
    *pSize = static_cast<int>(n);
    return vrxOk;
}

VrxStatus N0(vrxsResamplePolyphaseInit_32f)(int halfLen, int nPhases, Vrx32f rollf, Vrx32f beta,
                                            VrxsResamplePolyphaseState_32f** ppState, Vrx8u* pBuf) {
    if (anyNull(ppState, pBuf)) return vrxErrNullPtr;
    if (halfLen < 1 || nPhases < 1 || !goodShape(rollf, beta)) return vrxErrBadArg;
    const ArbPlan p = arbPlan(halfLen, nPhases);
    if (arbBytes(p) < 0) return vrxErrBadArg;
    Carver c(reinterpret_cast<void*>((addr(pBuf) + 63) & ~uintptr_t(63)));
    const ArbParts a = arbLayout(c, p);
    ArbState* s = a.s;
    s->W = halfLen;
    s->P = nPhases;
    s->K = static_cast<int32_t>(p.K);
    s->Kp = static_cast<int32_t>(p.Kp);
    s->H = static_cast<int32_t>(p.H);
    s->nFlat = static_cast<int32_t>(p.nFlat);
    s->Kw = static_cast<int32_t>(p.Kw);
    s->wK = 0;
    s->wFactor = 0.0;
    s->wrows = a.wrows;
    s->wdrows = a.wdrows;
    s->next = 0;
    s->rows = a.rows;
    s->drows = a.drows;
    s->flat = a.flat;
    s->dflat = a.dflat;
    s->hist = a.hist;
    s->join = a.join;
    s->taps = a.taps;
    designArb(a, p, rollf, beta);
    zeroN(a.hist, static_cast<int>(p.H));
    s->id = idWord(ObjId::ResamplePoly32f);
    *ppState = reinterpret_cast<VrxsResamplePolyphaseState_32f*>(s);
    return vrxOk;
}

VrxStatus N0(vrxsResamplePolyphase_32f)(const Vrx32f* pSrc, int len, Vrx32f* pDst, Vrx64f factor, int* pOutLen,
                                        VrxsResamplePolyphaseState_32f* pState) {
    if (anyNull(pSrc, pDst, pOutLen, pState)) return vrxErrNullPtr;
    if (len < 1) return vrxErrBadLength;
    ArbState* s;
    if (VrxStatus st = open(static_cast<void*>(pState), ObjId::ResamplePoly32f, &s)) return st;
    if (!(factor >= kMinFactor && factor <= kMaxFactor)) return vrxErrBadArg;
    if (static_cast<double>(len) * factor + 2.0 > static_cast<double>(kIntMax)) return vrxErrBadArg;
    // the step: 1/factor rounded up to a multiple of 2^-32
    const int64_t step = static_cast<int64_t>(ceil(4294967296.0 / factor));
    const int H = s->H;
    joinHistory(s->hist, H, pSrc, len, s->join);
    const float* join = s->join;
    const int64_t end = int64_t(len) << 32;
    int64_t next = s->next;
    int64_t n;
    if (factor >= 1.0) {
        n = runPhases(s, PhaseRows{s->rows, s->drows, s->Kp, s->K}, pSrc, join, next, end, step, pDst);
    } else {
        // The widened kernel: ceil(2 halfLen / factor) taps, the tap of
        // input i - m at table position factor*P*(m + f), scaled by factor.
        int K = static_cast<int>(ceil(2.0 * s->W / factor));
        if (K > H) K = H;
        if (K <= s->Kw) {
            // from 1/4 up: phase rows of the widened kernel, built once per factor
            if (s->wFactor != factor) buildWidened(s, factor, K);
            n = runPhases(s, PhaseRows{s->wrows, s->wdrows, s->Kw, K}, pSrc, join, next, end, step, pDst);
        } else {
            const Rows rw = rowsOf(K);
            const double P = static_cast<double>(s->P);
            float* taps = s->taps;
            n = emit(pDst, [&](R& acc) {
                if (next >= end) return false;
                const int64_t i = next >> 32;
                const double f = static_cast<double>(next & 0xFFFFFFFF) * 0x1p-32;
                for (int r = 0; r < K; ++r) taps[r] = widenedTap(s, (static_cast<double>(K - 1 - r) + f) * P, factor);
                const int64_t start = i - (K - 1);
                const float* x = start >= 0 ? pSrc + start : join + (H + start);
                acc = partialDot(taps, x, rw);
                next += step;
                return true;
            });
        }
    }
    s->next = next - end;
    keepHistory(s->hist, H, pSrc, len);
    *pOutLen = static_cast<int>(n);
    return vrxOk;
}
