// Internals of the FFT: the plan record, its kinds and limits, the size
// rules, and the engine entries shared by the complex and real transforms.
#pragma once

#include "vrx_base.h"

#include <stdint.h>
#include <string.h>

namespace n0::fft {

// The plan header. It sits on a 64-byte boundary of the caller's block; the
// tables follow it in the same block.
struct Plan {
    int32_t idWord;
    int32_t order;
    int32_t fwdNorm;
    int32_t invNorm;
    union { float f; double d; } normScale;
    int32_t algHint;
    int32_t workSize;      // bytes of work buffer, without the 64 bytes of slack
    int32_t cleared;
    int32_t reserved;
    int32_t* bitRevTab;
    void* twiddleTab;
    void* recombFwdTab;
    void* recombInvTab;
    void* stepTab[3];
};
static_assert(sizeof(Plan) == 96, "plan header must stay within the fixed slack of the size rules");

VRX_INLINE uintptr_t align64(uintptr_t a) { return (a + 63) & ~uintptr_t(63); }
template <class T> VRX_INLINE T* align64(T* p) { return reinterpret_cast<T*>(align64(reinterpret_cast<uintptr_t>(p))); }
constexpr int32_t a64(int64_t x) { return static_cast<int32_t>((x + 63) & ~int64_t(63)); }

// The low `bits` bits of x in reverse order.
VRX_INLINE uint32_t revBits(uint32_t x, int bits) {
    if (bits <= 0) return 0;
    x = ((x >> 1) & 0x55555555u) | ((x & 0x55555555u) << 1);
    x = ((x >> 2) & 0x33333333u) | ((x & 0x33333333u) << 2);
    x = ((x >> 4) & 0x0F0F0F0Fu) | ((x & 0x0F0F0F0Fu) << 4);
    x = __builtin_bswap32(x);
    return x >> (32 - bits);
}

// Per-width constants of the engine.
template <class T> struct Limits;
template <> struct Limits<float> {
    static constexpr int kRadixLast = 18;      // highest order of the radix engine (rows, size rules)
    static constexpr int kTileOrder = 6;       // large path: 64 x 64 tiles
    static constexpr int kMinWork = 65536;     // two tiles
    static constexpr int kChunk = 2048;        // complex elements of a cache chunk
    static constexpr int kChunkLog = 11;
    static constexpr int kLargeFirst = 19;     // lowest order of the large path
    static constexpr int kBlock8First = 23;    // lowest order of block order 8
};
template <> struct Limits<double> {
    static constexpr int kRadixLast = 17;
    static constexpr int kTileOrder = 5;       // 32 x 32 tiles
    static constexpr int kMinWork = 32768;
    static constexpr int kChunk = 1024;
    static constexpr int kChunkLog = 10;
    static constexpr int kLargeFirst = 17;     // complex plans: the engine's last order too
    static constexpr int kBlock8First = 22;
};

// Whether the whole transform of complex order m runs on the large path:
// above the engine's last order, and from kLargeFirst in complex plans
// (double order 17, where an in-place call of the engine runs its passes
// in the work buffer; real plans keep the engine, whose forward out of
// place is faster there). The size rules keep the engine's sizes up to
// kRadixLast: they exceed what the large path needs at those orders.
template <class T> constexpr bool onLargePath(int m, bool real) {
    return m > Limits<T>::kRadixLast || (!real && m >= Limits<T>::kLargeFirst);
}

// Large-path order tables: block order and buffer order by complex order.
template <class T> constexpr int blockOrder(int m) {
    return m < Limits<T>::kLargeFirst ? 0 : (m < Limits<T>::kBlock8First ? 4 : 8);
}
template <class T> constexpr int bufferOrder(int m) {
    int b = blockOrder<T>(m);
    if (b == 0) return 0;
    return (sizeof(T) == 4 ? 10 : 9) + (b == 8 ? 4 : 0);
}

// Recombination tables of real plans: one level up to a half length of
// 2^17 (single) or 2^15 (double), two levels above, with kRecombFine fine
// factors and one coarse factor per kRecombFine values of k.
constexpr int kRecombFine = 512;
template <class T> constexpr bool recombTwoLevel(int order) { return sizeof(T) == 4 ? order >= 19 : order >= 17; }

// Table builders and the engine (templates instantiated for float and
// double in the engine modules).
template <class T> struct Cx { T re, im; };

// sin(2*pi*j/R) for j = 0 .. R/4 with R = 2^tabOrder.
template <class T> struct SineTab {
    const T* tab;
    int tabOrder;
    // cos and sin of 2*pi*j/2^ord for any j (ord <= tabOrder).
    VRX_INLINE void cosSin(int64_t j, int ord, T& c, T& s) const {
        int64_t R = int64_t(1) << tabOrder;
        int64_t q = (j << (tabOrder - ord)) & (R - 1);
        int64_t Q = R >> 2;
        int quad = static_cast<int>(q / Q);
        int64_t r = q - quad * Q;
        T sv = tab[r], cv = tab[Q - r];
        switch (quad) {
            case 0: c = cv; s = sv; break;
            case 1: c = -sv; s = cv; break;
            case 2: c = -cv; s = -sv; break;
            default: c = sv; s = -cv; break;
        }
    }
};

// W^j = exp(-2*pi*i*j/2^ord) (the forward sign) from a sine table.
template <class T> VRX_INLINE Cx<T> twAt(const SineTab<T>& st, int64_t j, int ord) {
    T c, s;
    st.cosSin(j, ord, c, s);
    return {c, -s};
}

// The norm scale of a plan in the element's width.
template <class T> VRX_INLINE T planScale(const Plan* p) {
    if constexpr (sizeof(T) == 4) return p->normScale.f;
    else return p->normScale.d;
}

// One pass of the radix engine: merges blocks of 2^s values by radix 2^t.
struct PassStep {
    int s, t;
};

// Builds the radix engine's bit-reversal table for order m.
void initTabBitRevNorm(int m, int32_t* tab);
// Builds the radix engine's per-pass twiddle table for order m; paired:
// the lane order of interleaved double plans (see pairedPlan).
template <class T> void initTabTwdL1(int m, const SineTab<T>& st, Cx<T>* dst, bool paired = false);
// Builds the large path's tables of order m at the plan's bitRevTab,
// twiddleTab and stepTab (placed by planLayout in vrx_fft_layout.h).
template <class T> void initTabTwdLarge(const Plan* plan, int m, const SineTab<T>& st);

// Radix engine on a block of 2^m values already in bit-reversed order (the
// rows of the large path), in place at p; work holds 2^m values.
template <class T, bool Inv> void radixBlock(int m, const Cx<T>* tw, Cx<T>* p, Cx<T>* work);
// The large path for complex order m (above the radix engine's last order).
template <class T, bool Inv>
void largeRun(const Plan* plan, int m, const T* srcRe, const T* srcIm, T* dstRe, T* dstIm, bool split,
              T scale, uint8_t* work);

// Straight-line complex kernels of order m <= 6 (scale applied when nonzero).
template <class T, bool Inv> void smallComplex(int m, const Cx<T>* src, Cx<T>* dst, T scale);

// Complex transform of order m over the plan's tables. Data layouts: the
// interleaved form (re pointer only, im null) or split arrays. The scale is
// applied when scale != 0.
template <class T, bool Inv>
void complexTransform(const Plan* plan, int m, const T* srcRe, const T* srcIm, T* dstRe, T* dstIm,
                      bool split, T scale, uint8_t* work);

// ------------------------------------------------------------ real kernels and packed forms
// Shared by the real FFT and the DFT of any length.

enum class Form { CCS, Pack, Perm };



// ------------------------------------------------------------ packed forms

// Perm -> requested form, in place in the destination.
template <class T> void permToForm(T* d, int64_t N, Form f) {
    if (f == Form::Pack) {
        if (N >= 3) {
            const T v = d[1];
            memmove(d + 1, d + 2, static_cast<size_t>(N - 2) * sizeof(T));
            d[N - 1] = v;
        }
    } else if (f == Form::CCS) {
        if (N == 1) { d[1] = T(0); return; }
        d[N] = d[1];
        d[N + 1] = T(0);
        d[1] = T(0);
    }
}

// Pack -> Perm positions in the destination, from the end, so that an
// in-place call reads every value before it is overwritten.
template <class T> void unfoldPack(const T* s, T* d, int64_t N) {
    if (N <= 2) {
        if (s != d) memmove(d, s, static_cast<size_t>(N) * sizeof(T));
        return;
    }
    const T last = s[N - 1], r0 = s[0];
    memmove(d + 2, s + 1, static_cast<size_t>(N - 2) * sizeof(T));
    d[1] = last;
    d[0] = r0;
}

// ------------------------------------------------------------ real kernels up to N = 16

// cos and sin of 2*pi*k/N for the kernels (k < N/4, N <= 16).
constexpr long double kC16 = 0.923879532511286756128183189396788933L;  // cos(pi/8)
constexpr long double kS16 = 0.382683432365089771728459984030398866L;  // sin(pi/8)
constexpr long double kR2 = 0.707106781186547524400844362104849039L;   // sqrt(1/2)
template <class T, int N> constexpr T kCos(int k) {
    const int j = k * (16 / N);
    return j == 0 ? T(1) : j == 1 ? T(kC16) : j == 2 ? T(kR2) : T(kS16);
}
template <class T, int N> constexpr T kSin(int k) {
    const int j = k * (16 / N);
    return j == 0 ? T(0) : j == 1 ? T(kS16) : j == 2 ? T(kR2) : T(kC16);
}

// N reals at stride S into X[0..N/2] (re, im), by halves: even and odd
// samples, joined with the factors exp(-2*pi*i*k/N).
template <class T, int N, int S> VRX_INLINE void rfwd(const T* x, T* re, T* im) {
    if constexpr (N == 1) {
        re[0] = x[0];
        im[0] = T(0);
    } else if constexpr (N == 2) {
        re[0] = x[0] + x[S];
        re[1] = x[0] - x[S];
        im[0] = im[1] = T(0);
    } else {
        constexpr int H = N / 4;
        T er[H + 1], ei[H + 1], orr[H + 1], oi[H + 1];
        rfwd<T, N / 2, 2 * S>(x, er, ei);
        rfwd<T, N / 2, 2 * S>(x + S, orr, oi);
        re[0] = er[0] + orr[0];
        re[N / 2] = er[0] - orr[0];
        im[0] = im[N / 2] = T(0);
        re[H] = er[H];
        im[H] = -orr[H];
#pragma GCC unroll 8
        for (int k = 1; k < H; ++k) {
            const T c = kCos<T, N>(k), s = kSin<T, N>(k);
            const T tr = c * orr[k] + s * oi[k], ti = c * oi[k] - s * orr[k];
            re[k] = er[k] + tr;
            im[k] = ei[k] + ti;
            re[N / 2 - k] = er[k] - tr;
            im[N / 2 - k] = ti - ei[k];
        }
    }
}

// X[0..N/2] (re, im) of a real sequence into its N values at stride S,
// unscaled: even samples from X[k] + X[k+N/2], odd ones from
// (X[k] - X[k+N/2]) exp(2*pi*i*k/N).
template <class T, int N, int S> VRX_INLINE void rinv(const T* re, const T* im, T* x) {
    if constexpr (N == 1) {
        x[0] = re[0];
    } else if constexpr (N == 2) {
        x[0] = re[0] + re[1];
        x[S] = re[0] - re[1];
    } else {
        constexpr int H = N / 4;
        T er[H + 1], ei[H + 1], orr[H + 1], oi[H + 1];
        er[0] = re[0] + re[N / 2];
        orr[0] = re[0] - re[N / 2];
        ei[0] = oi[0] = T(0);
        er[H] = re[H] + re[H];
        ei[H] = T(0);
        orr[H] = -(im[H] + im[H]);
        oi[H] = T(0);
#pragma GCC unroll 8
        for (int k = 1; k < H; ++k) {
            const T c = kCos<T, N>(k), s = kSin<T, N>(k);
            const T ar = re[k] + re[N / 2 - k], ai = im[k] - im[N / 2 - k];
            const T dr = re[k] - re[N / 2 - k], di = im[k] + im[N / 2 - k];
            er[k] = ar;
            ei[k] = ai;
            orr[k] = dr * c - di * s;
            oi[k] = dr * s + di * c;
        }
        rinv<T, N / 2, 2 * S>(er, ei, x);
        rinv<T, N / 2, 2 * S>(orr, oi, x + S);
    }
}

// Forward kernel: N reals to Perm, scaled when Scale.
template <class T, int N, bool Scale> void rFFTfwd(const T* s, T* d, T scale) {
    T re[N / 2 + 1], im[N / 2 + 1];
    rfwd<T, N, 1>(s, re, im);
    if constexpr (N == 1) {
        d[0] = Scale ? re[0] * scale : re[0];
    } else {
        T o[N];
        o[0] = re[0];
        o[1] = re[N / 2];
#pragma GCC unroll 8
        for (int k = 1; k < N / 2; ++k) { o[2 * k] = re[k]; o[2 * k + 1] = im[k]; }
#pragma GCC unroll 16
        for (int i = 0; i < N; ++i) d[i] = Scale ? o[i] * scale : o[i];
    }
}

// Inverse kernel: Perm to N reals, scaled when Scale.
template <class T, int N, bool Scale> void rFFTinv(const T* s, T* d, T scale) {
    T re[N / 2 + 1], im[N / 2 + 1], o[N];
    re[0] = s[0];
    im[0] = T(0);
    if constexpr (N > 1) {
        re[N / 2] = s[1];
        im[N / 2] = T(0);
#pragma GCC unroll 8
        for (int k = 1; k < N / 2; ++k) { re[k] = s[2 * k]; im[k] = s[2 * k + 1]; }
    }
    rinv<T, N, 1>(re, im, o);
#pragma GCC unroll 16
    for (int i = 0; i < N; ++i) d[i] = Scale ? o[i] * scale : o[i];
}

template <class T, bool Inv, bool Scale> void smallRealS(int order, const T* s, T* d, T scale) {
    switch (order) {
        case 0: Inv ? rFFTinv<T, 1, Scale>(s, d, scale) : rFFTfwd<T, 1, Scale>(s, d, scale); break;
        case 1: Inv ? rFFTinv<T, 2, Scale>(s, d, scale) : rFFTfwd<T, 2, Scale>(s, d, scale); break;
        case 2: Inv ? rFFTinv<T, 4, Scale>(s, d, scale) : rFFTfwd<T, 4, Scale>(s, d, scale); break;
        case 3: Inv ? rFFTinv<T, 8, Scale>(s, d, scale) : rFFTfwd<T, 8, Scale>(s, d, scale); break;
        default: Inv ? rFFTinv<T, 16, Scale>(s, d, scale) : rFFTfwd<T, 16, Scale>(s, d, scale); break;
    }
}
template <class T, bool Inv> VRX_INLINE void smallReal(int order, const T* s, T* d, T scale) {
    if (scale != T(0)) smallRealS<T, Inv, true>(order, s, d, scale);
    else smallRealS<T, Inv, false>(order, s, d, scale);
}

}  // namespace n0::fft
