// IIR filters: the state, its layout and sizes, Init, the runs and the
// delay-line moves, as one template over structure x sample type x
// arithmetic type. psiirf32f.cpp instantiates the float-arithmetic kinds,
// psiird64f.cpp the double ones; each entry is one line.
//
// Recursion (direct form II transposed), taps divided by a0:
//     y = b0*x + d0;  d[i] = b[i+1]*x - a[i+1]*y + d[i+1]  (i < N),  d[N] = 0
// The AR line has N+1 elements, the last always 0, so the update needs no
// special case at its end. A biquad section is the same with N = 2.
// Direct form I (0x49493239) runs per section over the whole vector with the
// fused multiply-adds b1*x[n-1] first, then b0, b2, a1, a2. The block
// scheme (x pass, look-ahead y pass) is psiir_block.h for the real kinds,
// psiir_cblock.h for the complex ones.
#pragma once

#include "vrx_base.h"
#include "vrx_fpu.h"
#include "vrx_layout.h"
#include "psiir_cblock.h"
#include "simd/simd.h"

#include <string.h>

#include <type_traits>

namespace n0::iir {

// ------------------------------------------------------------------ state
// Fields in this order; the state starts at the block's first 32-byte
// boundary.
struct State {
    int32_t idCtx;
    void* pTaps;       // normalised taps
    void* pDlyLine;    // the line, arithmetic type
    int32_t dlyLen;    // N for AR, 2*numBq for BQ, 4*numBq for direct form I
    void* pXTaps;      // taps arranged for the x pass
    void* pYTaps;      // the look-ahead table
    int32_t numBq;     // 0 for AR
    void* pBqOneTaps;  // BQ: (b0, b0), (b1, b2), (-a1, -a2) per section
    void* pWorkE;      // 1024 elements: x pass output
    void* pWorkY;      // 1024 elements of the arithmetic type: wide outputs
    int32_t reserved;  // 0
    double* pDf1Dly;   // 0x49493330: x2, x1, y2, y1 per section, y unscaled
};
static_assert(sizeof(State) == 96);

enum class Form { AR, BQ, DF1, DF1T };  // DF1T: a direct form I line on the transposed engine

constexpr int kBlock = 1024;
// Look-ahead tables of this many sections are kept over a call; those of
// later sections are made again for each block.
constexpr int kAheadKept = 16;

// lanes over which a tap is repeated in the x-pass arrangement
template <class A> constexpr int xLanes() { return isCx<A> ? 2 : (sizeof(A) == 4 ? 4 : 2); }

// ----------------------------------------------------------------- kinds
struct Kind {
    ObjId id;
    Form form;
    int elem;   // bytes of one arithmetic element
    int B;      // 1: samples of the arithmetic type, 2: narrower samples (second work block)
};

// ------------------------------------------------------------ the layout
// One function for the size check and Init: pieces follow the header on the
// alignment of their scalar, so that each kind fits its size formula.
template <class A>
struct Pieces {
    State* st;
    A* taps;
    A* line;
    A* x;
    A* y;
    A* one;
    A* workE;
    A* workY;
    double* df1;
};

VRX_INLINE constexpr bool isOrder2Fused(ObjId id, int n) { return id == ObjId::IirAR32f && n == 2; }

template <class A>
constexpr Pieces<A> layout(Carver& c, const Kind& k, int n) {
    constexpr int64_t al = sizeof(Scalar<A>);
    Pieces<A> p{};
    p.st = c.take<State>(1, 32);
    if (k.form == Form::AR) {
        p.taps = c.take<A>(2 * int64_t(n) + 1, al);
        p.line = c.take<A>(int64_t(n) + 1, al);
        p.x = c.take<A>((int64_t(n) + 1) * xLanes<A>(), al);
        p.y = c.take<A>(isOrder2Fused(k.id, n) ? 12 * 8 : (int64_t(n) + 3) * 4, al);
        p.workE = c.take<A>(kBlock, al);
        p.workY = k.B == 2 ? c.take<A>(kBlock, al) : p.workE;
    } else if (k.form == Form::DF1) {
        p.taps = c.take<A>(5 * int64_t(n), al);
        p.line = c.take<A>(4 * int64_t(n), al);
    } else {
        p.taps = c.take<A>(5 * int64_t(n), al);
        p.line = c.take<A>(2 * int64_t(n), al);
        p.x = c.take<A>(6 * int64_t(n) * (xLanes<A>() / 2), al);
        // rows for y[n-1], y[n-2] and e[n]; the rows of e[n+1], e[n+2] are
        // the e[n] row moved one and two lanes on
        p.y = c.take<A>(12 * int64_t(n), al);
        p.one = c.take<A>(6 * int64_t(n), al);
        p.workE = c.take<A>(kBlock, al);
        p.workY = k.B == 2 ? c.take<A>(kBlock, al) : nullptr;
        if (k.form == Form::DF1T) p.df1 = c.take<double>(4 * int64_t(n), 8);
    }
    return p;
}

// The reported sizes. R16/R32 round down to a multiple of 16 / 32.
constexpr int64_t R16(int64_t v) { return v & ~int64_t(15); }
constexpr int64_t R32(int64_t v) { return v & ~int64_t(31); }

constexpr int64_t formulaSize(const Kind& k, int64_t n) {
    const int64_t B = k.B;
    if (k.form == Form::DF1) return R16(20 * n + 15) + 176 + 16 * n;
    if (k.form == Form::DF1T) return R16(40 * n + 15) + 304 * n + 16480;
    const bool ar = k.form == Form::AR;
    switch (k.elem) {
        case 4:
            if (ar) {
                int64_t T = 4 * n + 12;
                if (k.id == ObjId::IirAR32f && n == 2 && T < 120) T = 120;
                return R16(8 * n + 19) + R16(4 * n + 19) + 216 + 4 * (T + 4 + 4 * n + 1024 * B);
            }
            return R16(20 * n + 15) + R16(8 * n + 15) + 216 + 4 * (1024 * B + 40 * n);
        case 8:
            if (k.id == ObjId::IirAR32fc || k.id == ObjId::IirBQ32fc || k.id == ObjId::IirAR32fc16sc ||
                k.id == ObjId::IirBQ32fc16sc) {
                if (ar) return R32(16 * n + 39) + R32(8 * n + 39) + 160 * n + 560 + 8 * 1024 * B;
                return R32(40 * n + 31) + R32(16 * n + 31) + 224 + 8 * (148 * n + 1024 * B);
            }
            if (ar) return 64 * n + R16(8 * n + 23) + 8 * 1024 * B + 304;
            return R16(40 * n + 15) + 272 * n + 112 + 8 * 1024 * B;
        default:  // complex double
            if (ar) return B == 1 ? 272 * n + 192 + 16 * (1024 + n + 10) : 272 * n + 192 + 16 * (2048 + 2 * n + 10);
            return 1136 * n + 160 + 16 * 1024 * B;
    }
}

// The layout, started anywhere in the caller's block, ends inside the
// reported size: checked at compile time over a range of orders.
template <class A>
constexpr bool layoutFits(const Kind& k, int upTo) {
    for (int n = 1; n <= upTo; ++n) {
        Carver c;
        layout<A>(c, k, n);
        if (c.size() + 31 > formulaSize(k, n)) return false;
    }
    return true;
}

// GetStateSize
VRX_INLINE VrxStatus stateSize(const Kind& k, int n, int* pSize) {
    if (!pSize) return vrxErrNullPtr;
    if (n < 1) return vrxErrIirOrder;
    *pSize = static_cast<int>(static_cast<uint32_t>(formulaSize(k, n)));
    return vrxOk;
}

// -------------------------------------------------------------- Init
// Normalising: one reciprocal of a0 in the tap type; complex float taps take
// it in double as conj(a0)/|a0|^2, each product formed in double and stored
// as float.
template <class A>
struct Normaliser {
    A inv;
    explicit Normaliser(A a0) : inv(one<A>() / a0) {}
    A operator()(A v) const { return v * inv; }
};
template <>
struct Normaliser<Cx<float>> {
    double re, im;
    explicit Normaliser(Cx<float> a0) {
        const double r = a0.re, i = a0.im, m = r * r + i * i;
        re = r / m;
        im = -i / m;
    }
    Cx<float> operator()(Cx<float> v) const {
        return {static_cast<float>(v.re * re - v.im * im), static_cast<float>(v.re * im + v.im * re)};
    }
};
template <>
struct Normaliser<Cx<double>> {
    Cx<double> inv;
    explicit Normaliser(Cx<double> a0) {
        const double m = a0.re * a0.re + a0.im * a0.im;
        inv = {a0.re / m, -a0.im / m};
    }
    Cx<double> operator()(Cx<double> v) const { return v * inv; }
};

// The look-ahead table of 4 columns for order n from c[i] = -a[i] (i = 1..n),
// rows 0..n-1 then the rows of e[n], e[n+1], e[n+2]. rows = n + 3 for AR;
// BQ keeps rows 0, 1 and the e[n] row only.
template <class A>
void lookAhead(const A* a, int n, A* out, bool bqRows) {
    auto c = [&](int i) { return i >= 1 && i <= n ? -a[i - 1] : zero<A>(); };
    auto t0 = [&](int r) { return r < n ? c(r + 1) : zero<A>(); };
    A t1_0 = zero<A>(), t2_0 = zero<A>();
    for (int r = 0; r < n; ++r) {
        A r0 = t0(r);
        A r1 = c(1) * r0 + t0(r + 1);
        A r2 = c(1) * r1 + c(2) * r0 + t0(r + 2);
        A r3 = c(1) * r2 + c(2) * r1 + c(3) * r0 + t0(r + 3);
        if (r == 0) { t1_0 = r1; t2_0 = r2; }
        A* row = out + 4 * r;
        row[0] = r0; row[1] = r1; row[2] = r2; row[3] = r3;
    }
    A* e = out + 4 * n;
    e[0] = one<A>(); e[1] = c(1); e[2] = t1_0; e[3] = t2_0;
    if (bqRows) return;
    e[4] = zero<A>(); e[5] = one<A>(); e[6] = c(1); e[7] = t1_0;
    e[8] = zero<A>(); e[9] = zero<A>(); e[10] = one<A>(); e[11] = c(1);
}

// The fused order-2 table of form 0x49493031: 12 columns of 8 outputs, the
// response of y[0..7] to x[-2..7] (columns 0..9), y[-2] and y[-1].
inline void order2Table(const float* b, const float* a, float* out) {
    for (int col = 0; col < 12; ++col) {
        double x[10] = {}, y[10] = {};  // index k holds time k-2
        if (col < 10) x[col] = 1;
        else y[col - 10] = 1;
        for (int j = 2; j < 10; ++j) {
            y[j] = double(b[0]) * x[j] + double(b[1]) * x[j - 1] + double(b[2]) * x[j - 2] -
                   double(a[0]) * y[j - 1] - double(a[1]) * y[j - 2];
            out[col * 8 + (j - 2)] = static_cast<float>(y[j]);
        }
    }
}

template <class A>
VRX_INLINE void copyOrZero(A* to, const A* from, int64_t n) {
    if (from) memcpy(to, from, sizeof(A) * n);
    else memset(to, 0, sizeof(A) * n);
}

template <class A>
Pieces<A> carveState(const Kind& k, int n, Vrx8u* pBuf) {
    Carver c(reinterpret_cast<void*>((addr(pBuf) + 31) & ~uintptr_t(31)));
    Pieces<A> p = layout<A>(c, k, n);
    State* s = p.st;
    s->idCtx = idWord(k.id);
    s->pTaps = p.taps;
    s->pDlyLine = p.line;
    s->dlyLen = k.form == Form::AR ? n : (k.form == Form::BQ ? 2 * n : 4 * n);
    s->pXTaps = p.x;
    s->pYTaps = p.y;
    s->numBq = k.form == Form::AR ? 0 : n;
    s->pBqOneTaps = p.one;
    s->pWorkE = p.workE;
    s->pWorkY = p.workY;
    s->reserved = 0;
    s->pDf1Dly = p.df1;
    return p;
}

// Init of an AR kind. The line is taken (or zeroed) before the a0 test; a
// zero a0 leaves a laid-out state with zero taps and returns -10.
template <class A>
VrxStatus initAR(const Kind& k, VrxsIirState** ppState, const A* pTaps, int order, const A* pDly, Vrx8u* pBuf) {
    if (anyNull(ppState, pTaps, pBuf)) return vrxErrNullPtr;
    if (order < 1) return vrxErrIirOrder;
    const int n = order;
    Pieces<A> p = carveState<A>(k, n, pBuf);
    *ppState = reinterpret_cast<VrxsIirState*>(p.st);
    copyOrZero(p.line, pDly, n);
    p.line[n] = zero<A>();
    memset(p.taps, 0, sizeof(A) * (2 * int64_t(n) + 1));
    const A a0 = pTaps[n + 1];
    if (isZero(a0)) return vrxErrDivByZero;
    const Normaliser<A> nz(a0);
    for (int i = 0; i <= n; ++i) p.taps[i] = nz(pTaps[i]);
    for (int i = 1; i <= n; ++i) p.taps[n + i] = nz(pTaps[n + 1 + i]);
    constexpr int L = xLanes<A>();
    for (int i = 0; i <= n; ++i)
        for (int j = 0; j < L; ++j) p.x[i * L + j] = p.taps[i];
    if constexpr (std::is_same_v<A, float>) {
        if (isOrder2Fused(k.id, n)) {
            order2Table(p.taps, p.taps + 3, p.y);
            return vrxOk;
        }
    }
    lookAhead(p.taps + n + 1, n, p.y, false);
    return vrxOk;
}

// Init of a biquad kind: per section a0 or b0 of zero stops with -10, the
// sections before it written. Direct form I (0x49493239) copies the taps
// untouched when a0 is exactly 1 and has no b0 test.
template <class A>
VrxStatus initBQ(const Kind& k, VrxsIirState** ppState, const A* pTaps, int numBq, const A* pDly, Vrx8u* pBuf) {
    if (anyNull(ppState, pTaps, pBuf)) return vrxErrNullPtr;
    if (numBq < 1) return vrxErrIirOrder;
    const int m = numBq;
    Pieces<A> p = carveState<A>(k, m, pBuf);
    *ppState = reinterpret_cast<VrxsIirState*>(p.st);
    if (k.form == Form::DF1) {
        copyOrZero(p.line, pDly, 4 * int64_t(m));
    } else if (k.form == Form::BQ) {
        copyOrZero(p.line, pDly, 2 * int64_t(m));
    } else {
        memset(p.line, 0, sizeof(A) * 2 * m);
    }
    memset(p.taps, 0, sizeof(A) * 5 * m);
    for (int s = 0; s < m; ++s) {
        const A* t = pTaps + 6 * s;
        A* q = p.taps + 5 * s;
        if (k.form == Form::DF1) {
            if constexpr (!isCx<A>) {
                if (t[3] == A(1)) {
                    q[0] = t[0]; q[1] = t[1]; q[2] = t[2]; q[3] = t[4]; q[4] = t[5];
                    continue;
                }
            }
            if (isZero(t[3])) return vrxErrDivByZero;
        } else if (isZero(t[3]) || isZero(t[0])) {
            return vrxErrDivByZero;
        }
        const Normaliser<A> nz(t[3]);
        q[0] = nz(t[0]); q[1] = nz(t[1]); q[2] = nz(t[2]); q[3] = nz(t[4]); q[4] = nz(t[5]);
        if (k.form == Form::DF1) continue;
        constexpr int R = (std::is_same_v<A, float> ? 4 : 2);  // each of b0, b1, b2 twice (x4 in float)
        A* xr = p.x + 6 * int64_t(s) * (xLanes<A>() / 2);
        for (int j = 0; j < 3; ++j)
            for (int r = 0; r < R; ++r) xr[j * R + r] = q[j];
        lookAhead(q + 3, 2, p.y + 12 * int64_t(s), true);
        A* o = p.one + 6 * int64_t(s);
        o[0] = q[0]; o[1] = q[0]; o[2] = q[1]; o[3] = q[2]; o[4] = -q[3]; o[5] = -q[4];
    }
    return vrxOk;
}

// ------------------------------------------------------- sample moves
// Samples in: exact conversion to the arithmetic type.
template <class A, class S>
VRX_INLINE A load(const S& v) {
    if constexpr (isCx<A>) return A{Scalar<A>(v.re), Scalar<A>(v.im)};
    else return A(v);
}

// The output scale 2^-sf', sf' = sign(sf) * (|sf| mod 128), built in the
// exponent field (in float, sf' = 127 gives a zero field: s = 0).
template <class T>
VRX_INLINE T scaleOf(int sf) {
    const int64_t a = sf < 0 ? -int64_t(sf) : int64_t(sf);
    const int64_t e = sf < 0 ? -(a % 128) : (a % 128);
    if constexpr (sizeof(T) == 4) {
        uint32_t bits = static_cast<uint32_t>(127 - e) << 23;
        T s;
        memcpy(&s, &bits, 4);
        return s;
    } else {
        uint64_t bits = static_cast<uint64_t>(1023 - e) << 52;
        T s;
        memcpy(&s, &bits, 8);
        return s;
    }
}

// y*s clamped to the integer range, rounded to nearest even (the run holds
// the rounding mode at nearest).
template <class I, class T>
VRX_INLINE I toInt(T y, T s) {
    T v = y * s;
    if constexpr (sizeof(I) == 2) {
        if (v > T(32767)) v = T(32767);
        else if (v < T(-32768)) v = T(-32768);
        if constexpr (sizeof(T) == 4) return static_cast<I>(_mm_cvtss_si32(_mm_set_ss(v)));
        else return static_cast<I>(_mm_cvtsd_si32(_mm_set_sd(v)));
    } else {
        if (v > 2147483647.0) return static_cast<I>(0x7FFFFFFF);
        if (v < -2147483648.0) return static_cast<I>(INT32_MIN);
        return static_cast<I>(_mm_cvtsd_si32(_mm_set_sd(v)));
    }
}

template <class S> struct IsIntSample { static constexpr bool value = false; };
template <> struct IsIntSample<Vrx16s> { static constexpr bool value = true; };
template <> struct IsIntSample<Vrx32s> { static constexpr bool value = true; };
template <> struct IsIntSample<Vrx16sc> { static constexpr bool value = true; };
template <> struct IsIntSample<Vrx32sc> { static constexpr bool value = true; };

// Samples that are the arithmetic type itself (complex ones alike): the
// block scheme runs in the destination, with no work copy.
template <class A, class S>
constexpr bool sameRep = std::is_same_v<A, S> || (isCx<A> && sizeof(A) == sizeof(S) && !IsIntSample<S>::value);

// The writer of output samples of type S from arithmetic A.
template <class S, class A>
struct Writer {
    Scalar<A> s;
    VRX_INLINE void operator()(S* d, A y) const {
        if constexpr (IsIntSample<S>::value) {
            if constexpr (isCx<A>) {
                using I = decltype(S{}.re);
                d->re = toInt<I>(y.re, s);
                d->im = toInt<I>(y.im, s);
            } else {
                *d = toInt<S>(y, s);
            }
        } else if constexpr (isCx<A>) {
            using F = decltype(S{}.re);
            d->re = static_cast<F>(y.re);
            d->im = static_cast<F>(y.im);
        } else {
            *d = static_cast<S>(y);
        }
    }
};

// A block of samples into the arithmetic type, sixteen at a time (exact).
template <class A, class S>
VRX_INLINE void readBlock(const S* s, A* ys, int L) {
    if constexpr (isCx<A>) {  // part by part
        using F = decltype(S{}.re);
        readBlock(reinterpret_cast<const F*>(s), reinterpret_cast<Scalar<A>*>(ys), 2 * L);
    } else if constexpr (std::is_same_v<A, float> && std::is_same_v<S, Vrx16s>) {
        for (int k = 0; k < L; k += 16) {
            const int cnt = L - k < 16 ? L - k : 16;
            simd::V<float>::storem(ys + k, simd::tail<float>(cnt), simd::intToFloat(simd::widen16sPart(s + k, cnt)));
        }
    } else if constexpr (std::is_same_v<A, double> && !std::is_same_v<S, double> && !isCx<A>) {
        using W = simd::V<double>;
        for (int k = 0; k < L; k += 16) {
            const int cnt = L - k < 16 ? L - k : 16, c0 = cnt < 8 ? cnt : 8, c1 = cnt - c0;
            W::R lo, hi;
            if constexpr (std::is_same_v<S, Vrx32f>) {
                lo = simd::floatsToDouble(s + k, c0);
                hi = simd::floatsToDouble(s + k + 8, c1);
            } else {
                __m512i v;
                if constexpr (std::is_same_v<S, Vrx16s>) v = simd::widen16sPart(s + k, cnt);
                else v = simd::V<int32_t>::loadm(simd::tail<int32_t>(cnt), s + k);
                lo = simd::lowInt32ToDouble(v);
                hi = simd::highInt32ToDouble(v);
            }
            W::storem(ys + k, simd::tail<double>(c0), lo);
            W::storem(ys + k + 8, simd::tail<double>(c1), hi);
        }
    } else {
        for (int k = 0; k < L; ++k) ys[k] = load<A>(s[k]);
    }
}

// A block of wide outputs through the writer, sixteen at a time, with the
// values of the scalar writer: the product y*s, clamped, then rounded in the
// run's mode (nearest). 32s from double: clamped by min/max, where a NaN
// takes the lower bound (the scalar conversion's 0x80000000). 16s: clamped
// with a NaN passing through (max(lo, v), min(hi, v) keep their second
// operand on NaN), converted (NaN: 0x80000000) and stored as the low 16 bits,
// so that a NaN gives 0 as the scalar writer's narrowing does. 32f from
// double: rounded in the caller's mode, as the scalar cast.
template <class S, class A>
VRX_INLINE void writeBlock(const Writer<S, A>& w, S* d, const A* ys, int L) {
    using I = simd::V<int32_t>;
    if constexpr (isCx<A>) {  // part by part, as the complex writer
        using F = decltype(S{}.re);
        const Writer<F, Scalar<A>> wp{w.s};
        writeBlock(wp, reinterpret_cast<F*>(d), reinterpret_cast<const Scalar<A>*>(ys), 2 * L);
    } else if constexpr (std::is_same_v<S, Vrx32s> && std::is_same_v<A, double>) {
        using W = simd::V<double>;
        const W::R s = W::set1(w.s), lo = W::set1(-2147483648.0), hi = W::set1(2147483647.0);
        auto clamp = [&](W::R v) { return W::min(W::max(W::mul(v, s), lo), hi); };
        for (int k = 0; k < L; k += 16) {
            const int cnt = L - k < 16 ? L - k : 16;
            const W::R a = clamp(W::loadm(simd::tail<double>(cnt < 8 ? cnt : 8), ys + k));
            const W::R b = clamp(W::loadm(simd::tail<double>(cnt > 8 ? cnt - 8 : 0), ys + k + 8));
            I::storem(reinterpret_cast<int32_t*>(d + k), simd::tail<int32_t>(cnt), simd::joinToInt32Cur(a, b));
        }
    } else if constexpr (std::is_same_v<S, Vrx16s>) {
        using W = simd::V<A>;
        const typename W::R s = W::set1(w.s), lo = W::set1(A(-32768)), hi = W::set1(A(32767));
        auto clamp = [&](typename W::R v) { return W::min(hi, W::max(lo, W::mul(v, s))); };
        for (int k = 0; k < L; k += 16) {
            const int cnt = L - k < 16 ? L - k : 16;
            __m512i v;
            if constexpr (std::is_same_v<A, float>) {
                v = simd::floatToInt(clamp(W::loadm(simd::tail<float>(cnt), ys + k)));
            } else {
                const typename W::R a = clamp(W::loadm(simd::tail<double>(cnt < 8 ? cnt : 8), ys + k));
                const typename W::R b = clamp(W::loadm(simd::tail<double>(cnt > 8 ? cnt - 8 : 0), ys + k + 8));
                v = simd::joinToInt32Cur(a, b);
            }
            simd::narrowLow16(d + k, simd::tail<int32_t>(cnt), v);
        }
    } else if constexpr (std::is_same_v<S, Vrx32f> && std::is_same_v<A, double>) {
        using W = simd::V<double>;
        for (int k = 0; k < L; k += 16) {
            const int cnt = L - k < 16 ? L - k : 16;
            const W::R a = W::loadm(simd::tail<double>(cnt < 8 ? cnt : 8), ys + k);
            const W::R b = W::loadm(simd::tail<double>(cnt > 8 ? cnt - 8 : 0), ys + k + 8);
            simd::V<float>::storem(d + k, simd::tail<float>(cnt), simd::joinToFloatCur(a, b));
        }
    } else {
        for (int k = 0; k < L; ++k) w(d + k, ys[k]);
    }
}

// ---------------------------------------------------------------- engines
// AR, one sample at a time. taps: b[0..n], a[1..n]; line d[0..n], d[n] = 0.
template <class A, class In, class Out>
VRX_INLINE void arRun(const A* taps, A* d, int n, int len, In in, Out out) {
    const A* b = taps;
    const A* a = taps + n + 1;
    for (int k = 0; k < len; ++k) {
        const A x = in(k);
        const A y = b[0] * x + d[0];
        for (int i = 0; i < n; ++i) d[i] = b[i + 1] * x - a[i] * y + d[i + 1];
        out(k, y);
    }
}

// One biquad section over len samples: y = b0*x + d0, then
// d0 = b1*x - a1*y + d1, d1 = b2*x - a2*y.
template <class A, class In, class Out>
VRX_INLINE void bqSection(const A* q, A* d, int len, In in, Out out) {
    const A b0 = q[0], b1 = q[1], b2 = q[2], a1 = q[3], a2 = q[4];
    A d0 = d[0], d1 = d[1];
    for (int k = 0; k < len; ++k) {
        const A x = in(k);
        const A y = b0 * x + d0;
        d0 = b1 * x - a1 * y + d1;
        d1 = b2 * x - a2 * y;
        out(k, y);
    }
    d[0] = d0;
    d[1] = d1;
}


// Direct form I, float: each section over the whole vector, src to dst, then
// in place on dst. Line per section: x[n-2], x[n-1], y[n-2], y[n-1].
inline void runDF1(State* st, const float* src, float* dst, int len) {
    const float* taps = static_cast<const float*>(st->pTaps);
    float* line = static_cast<float*>(st->pDlyLine);
    for (int s = 0; s < st->numBq; ++s) {
        const float* q = taps + 5 * s;
        const float b0 = q[0], b1 = q[1], b2 = q[2], na1 = -q[3], na2 = -q[4];
        float* l = line + 4 * s;
        float x2 = l[0], x1 = l[1], y2 = l[2], y1 = l[3];
        const float* in = s == 0 ? src : dst;
        for (int k = 0; k < len; ++k) {
            const float x = in[k];
            float acc = b1 * x1;
            acc = __builtin_fmaf(b0, x, acc);
            acc = __builtin_fmaf(b2, x2, acc);
            acc = __builtin_fmaf(na1, y1, acc);
            acc = __builtin_fmaf(na2, y2, acc);
            dst[k] = acc;
            x2 = x1; x1 = x;
            y2 = y1; y1 = acc;
        }
        l[0] = x2; l[1] = x1; l[2] = y2; l[3] = y1;
    }
}

// Biquad cascade in blocks of kBlock: each section in turn over the block.
// Between sections the values stay in the arithmetic type (in the
// destination when it has that type, else in pWorkY); the last section
// writes the samples. Df1 (0x49493330): the transposed line is derived from
// the direct form I line first, and each block leaves x[L-2], x[L-1] and the
// unscaled y[L-2], y[L-1] of every section in it.
template <class A, class S, bool Df1>
void runBQ(State* st, const S* src, S* dst, int len, const Writer<S, A>& w) {
    const int m = st->numBq;
    const A* taps = static_cast<const A*>(st->pTaps);
    A* line = static_cast<A*>(st->pDlyLine);
    double* df = st->pDf1Dly;
    if constexpr (Df1) {
        for (int s = 0; s < m; ++s) {
            const double* q = taps + 5 * s;
            const double x2 = df[4 * s], x1 = df[4 * s + 1], y2 = df[4 * s + 2], y1 = df[4 * s + 3];
            line[2 * s] = x2 * q[2] + x1 * q[1] - y1 * q[3] - y2 * q[4];
            line[2 * s + 1] = x1 * q[2] - y1 * q[4];
        }
    }
    // samples of the arithmetic type (complex ones alike) carry the values
    // between sections in the destination
    constexpr bool same = sameRep<A, S>;
    // the block scheme's tables: those of the first sections made once a
    // call, the others per block in the last slot (a few dozen operations)
    AheadBQ<A> ahead[kAheadKept + 1];
    bool haveAhead = false;
    for (int start = 0; start < len; start += kBlock) {
        const int L = len - start < kBlock ? len - start : kBlock;
        const S* sb = src + start;
        S* db = dst + start;
        if (4 * m < L) {  // the block scheme, section by section
            A* ys;
            const A* xs0;
            if constexpr (same) {
                ys = reinterpret_cast<A*>(db);
                xs0 = reinterpret_cast<const A*>(sb);
            } else {
                ys = static_cast<A*>(st->pWorkY);
                readBlock(sb, ys, L);
                xs0 = ys;
            }
            if (!haveAhead) {
                for (int s = 0; s < m && s < kAheadKept; ++s) aheadBQ(taps + 5 * s, &ahead[s]);
                haveAhead = true;
            }
            for (int s = 0; s < m; ++s) {
                const A* xs = s == 0 ? xs0 : ys;
                const A xa = xs[L - 2], xb = xs[L - 1];
                const AheadBQ<A>* t = &ahead[s < kAheadKept ? s : kAheadKept];
                if (s >= kAheadKept) aheadBQ(taps + 5 * s, &ahead[kAheadKept]);
                bqBlock(taps + 5 * s, *t, line + 2 * s, xs, ys, L);
                if constexpr (Df1) {
                    double* r = df + 4 * s;
                    r[0] = xa; r[1] = xb; r[2] = ys[L - 2]; r[3] = ys[L - 1];
                }
            }
            if constexpr (!same) writeBlock(w, db, ys, L);
            continue;
        }
        A* wide;
        if constexpr (same) wide = reinterpret_cast<A*>(db);
        else wide = static_cast<A*>(st->pWorkY);
        for (int s = 0; s < m; ++s) {
            const A* q = taps + 5 * s;
            A* d = line + 2 * s;
            A xa = zero<A>(), xb = zero<A>(), ya = zero<A>(), yb = zero<A>();  // last two in and out
            auto inS = [&](int k) { A x = load<A>(sb[k]); if constexpr (Df1) { xa = xb; xb = x; } return x; };
            auto inW = [&](int k) { A x = wide[k]; if constexpr (Df1) { xa = xb; xb = x; } return x; };
            auto outS = [&](int k, A y) { w(db + k, y); if constexpr (Df1) { ya = yb; yb = y; } };
            auto outW = [&](int k, A y) { wide[k] = y; if constexpr (Df1) { ya = yb; yb = y; } };
            const bool first = s == 0, last = s == m - 1;
            if (first && last) bqSection<A>(q, d, L, inS, outS);
            else if (first) bqSection<A>(q, d, L, inS, outW);
            else if (last) bqSection<A>(q, d, L, inW, outS);
            else bqSection<A>(q, d, L, inW, outW);
            if constexpr (Df1) {
                double* r = df + 4 * s;
                if (L >= 2) { r[0] = xa; r[1] = xb; r[2] = ya; r[3] = yb; }
                else { r[0] = r[1]; r[1] = xb; r[2] = r[3]; r[3] = yb; }
            }
        }
    }
}

template <class A, class S>
void runAR(State* st, const S* src, S* dst, int len, const Writer<S, A>& w) {
    const int N = st->dlyLen;
    if (N <= kMaxAheadOrder) {
        const A* taps = static_cast<const A*>(st->pTaps);
        A* d = static_cast<A*>(st->pDlyLine);
        A* e = static_cast<A*>(st->pWorkE);
        AheadAR<A> ahead;
        bool haveAhead = false;
        for (int start = 0; start < len; start += kBlock) {
            const int L = len - start < kBlock ? len - start : kBlock;
            const S* sb = src + start;
            S* db = dst + start;
            if (4 * N >= L) {
                arRun<A>(taps, d, N, L, [&](int k) { return load<A>(sb[k]); }, [&](int k, A y) { w(db + k, y); });
                continue;
            }
            if (!haveAhead) {
                aheadAR(taps + N + 1, N, &ahead);
                haveAhead = true;
            }
            if constexpr (sameRep<A, S>) {
                arBlock(taps, ahead, d, N, reinterpret_cast<const A*>(sb), reinterpret_cast<A*>(db), e, L);
            } else {
                A* wy = static_cast<A*>(st->pWorkY);
                readBlock(sb, wy, L);
                arBlock(taps, ahead, d, N, wy, wy, e, L);
                writeBlock(w, db, wy, L);
            }
        }
        return;
    }
    arRun<A>(static_cast<const A*>(st->pTaps), static_cast<A*>(st->pDlyLine), st->dlyLen, len,
             [&](int k) { return load<A>(src[k]); }, [&](int k, A y) { w(dst + k, y); });
}

// The state of pState when it carries one of the words of ks, else null.
VRX_INLINE const Kind* kindOf(const void* p, const Kind* ks, int nk) {
    for (int i = 0; i < nk; ++i)
        if (idAt(p) == idWord(ks[i].id)) return &ks[i];
    return nullptr;
}

// One run of a state already checked: integer samples hold the rounding mode
// at nearest for the whole call.
template <class A, class S>
void runState(State* st, const Kind& k, const S* src, S* dst, int len, int sf) {
    Writer<S, A> w{};
    if constexpr (IsIntSample<S>::value) w.s = scaleOf<Scalar<A>>(sf);
    if constexpr (IsIntSample<S>::value) {
        FpScope<RoundNearest> guard;
        if (k.form == Form::AR) runAR<A, S>(st, src, dst, len, w);
        else if (k.form == Form::DF1T) {
            if constexpr (std::is_same_v<A, double>) runBQ<A, S, true>(st, src, dst, len, w);
        } else runBQ<A, S, false>(st, src, dst, len, w);
    } else {
        if (k.form == Form::AR) runAR<A, S>(st, src, dst, len, w);
        else if (k.form == Form::DF1) {
            if constexpr (std::is_same_v<S, float> && std::is_same_v<A, float>) runDF1(st, src, dst, len);
        } else runBQ<A, S, false>(st, src, dst, len, w);
    }
}

// A run entry: pointers -8, len < 1 -6, a word not among ks -17.
template <class A, class S>
VrxStatus run(const Kind* ks, int nk, const S* src, S* dst, int len, VrxsIirState* pState, int sf) {
    if (anyNull(pState, src, dst)) return vrxErrNullPtr;
    if (len < 1) return vrxErrBadLength;
    const Kind* k = kindOf(pState, ks, nk);
    if (!k) return vrxErrBadSpec;
    runState<A, S>(reinterpret_cast<State*>(pState), *k, src, dst, len, sf);
    return vrxOk;
}

// Multi-channel: the first state's word picks the kind, every channel must
// carry it; channels before a failing one stay filtered.
template <class S, class Single>
VrxStatus runChannels(const S* const* ppSrc, S* const* ppDst, int len, int nCh, VrxsIirState* const* ppState,
                      VrxStatus chanErr, const Kind* ks, int nk, Single single) {
    if (anyNull(ppState, ppSrc, ppDst)) return vrxErrNullPtr;
    if (len < 1) return vrxErrBadLength;
    if (nCh < 1) return chanErr;
    if (!ppState[0]) return vrxErrNullPtr;
    if (!kindOf(ppState[0], ks, nk)) return vrxErrBadSpec;
    const int32_t word = idAt(ppState[0]);
    for (int c = 0; c < nCh; ++c) {
        if (anyNull(ppState[c], ppSrc[c], ppDst[c])) return vrxErrNullPtr;
        if (idAt(ppState[c]) != word) return vrxErrBadSpec;
        single(ppSrc[c], ppDst[c], ppState[c]);
    }
    return vrxOk;
}

// Delay lines: Get copies dlyLen elements out (AR: N, the stored 0 stays
// inside), Set copies them in or zeroes them.
template <class A>
VrxStatus getLine(const VrxsIirState* p, A* out, const Kind* ks, int nk) {
    if (anyNull(p, out)) return vrxErrNullPtr;
    if (!kindOf(p, ks, nk)) return vrxErrBadSpec;
    const State* st = reinterpret_cast<const State*>(p);
    memcpy(out, st->pDlyLine, sizeof(A) * st->dlyLen);
    return vrxOk;
}
template <class A>
VrxStatus setLine(VrxsIirState* p, const A* in, const Kind* ks, int nk) {
    if (!p) return vrxErrNullPtr;
    if (!kindOf(p, ks, nk)) return vrxErrBadSpec;
    State* st = reinterpret_cast<State*>(p);
    copyOrZero(static_cast<A*>(st->pDlyLine), in, st->dlyLen);
    return vrxOk;
}

}  // namespace n0::iir
