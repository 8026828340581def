// Pieces shared by the convolution and correlation modules: the direct
// lag-parallel kernel, the FFT engine calls by element type, the layout of
// the work buffer and the path choices that the size queries share with
// the run functions.
#pragma once

#include <utility>

#include "simd/simd.h"
#include "vrx_base.h"
#include "vrx_fft_calls.h"

namespace n0::conv {

using i64 = long long;

VRX_INLINE i64 min64(i64 a, i64 b) { return a < b ? a : b; }
VRX_INLINE i64 max64(i64 a, i64 b) { return a > b ? a : b; }
VRX_INLINE i64 up64(i64 x) { return (x + 63) & ~i64(63); }

// Smallest k with 2^k >= x, x >= 1.
VRX_INLINE int ceilLog2(i64 x) {
    int k = 0;
    while ((i64(1) << k) < x) ++k;
    return k;
}

constexpr int kDirectBytes = 64;  // what a size query reports for a direct path

VRX_INLINE int algOf(VrxAlgType t) { return t & 0xFF; }
VRX_INLINE int normOf(VrxAlgType t) { return (t >> 8) & 0xFF; }

// ------------------------------------------------------------ direct kernel
// out[n] = sum over i = 0 .. K-1 of c(i) d[i + off + n], n = 0 .. D-1, where
// d is usable on the element indices [dLo, dHi) and terms outside are left
// out; c(i) is coef[K-1-i] when Rev (a convolution), else coef[i]; complex
// coefficients enter conjugated. Outputs go in blocks of U registers; each
// product is accumulated by fused multiply-add in the element precision.
template <class S, bool Cplx>
struct Mac {
    using W = simd::V<S>;
    using R = typename W::R;
    using M = typename W::M;
    static constexpr int kPer = Cplx ? 2 : 1;  // scalars per element
    static constexpr int NE = W::N / kPer;     // elements per register

    // A complex term conj(c) d is kept in two sums, cr d and ci d (both
    // lanes of each pair), that the store joins: re = (cr d).re + (ci d).im,
    // im = (cr d).im - (ci d).re. Real data uses the first sum alone.
    struct Acc { R a, b; };
    static VRX_INLINE Acc zero() { return {W::zero(), W::zero()}; }
    static VRX_INLINE void step(const S* c, Acc& acc, R d) {
        acc.a = W::fma(W::set1(c[0]), d, acc.a);
        if constexpr (Cplx) acc.b = W::fma(W::set1(c[1]), d, acc.b);
    }
    static VRX_INLINE void stepm(M m, const S* c, Acc& acc, R d) {
        acc.a = W::fmam(m, W::set1(c[0]), d, acc.a);
        if constexpr (Cplx) acc.b = W::fmam(m, W::set1(c[1]), d, acc.b);
    }
    static VRX_INLINE R join(const Acc& acc) {
        if constexpr (!Cplx) return acc.a;
        else return W::add(acc.a, W::xorb(W::swapPair(acc.b), W::set2(S(0), S(-0.0))));
    }
    // Element mask to lane mask.
    static VRX_INLINE M lanes(unsigned me) {
        if constexpr (!Cplx) return static_cast<M>(me);
        else return static_cast<M>(_pdep_u32(me, W::N == 16 ? 0x5555u : 0x55u) * 3u);
    }
    // Elements l of the register whose data index b + l lies in [lo, hi).
    static VRX_INLINE unsigned inRange(i64 b, i64 lo, i64 hi) {
        const i64 a = max64(lo - b, 0), e = min64(hi - b, NE);
        if (e <= a) return 0;
        return ((1u << e) - 1u) & ~((1u << a) - 1u);
    }
};

// Terms r = 0 .. NE-1 of an aligned run (see directBlock): the coefficient
// of term r at c + r (c - r for a reversed kernel), registers 0 and 2 shifted
// out of a0..a3, registers 1 and 3 loaded.
template <class X, bool Rev, int... Rs>
VRX_INLINE void runAligned(const typename X::W::T* c, const typename X::W::T* p, typename X::W::R a0,
                           typename X::W::R a1, typename X::W::R a2, typename X::W::R a3, typename X::Acc* acc,
                           std::integer_sequence<int, Rs...>) {
    using W = typename X::W;
    constexpr int kPer = X::kPer;
    (
        [&] {
            constexpr int r = Rs;
            const typename W::T* k = Rev ? c - r * kPer : c + r * kPer;
            X::step(k, acc[0], W::template alignr<r * kPer>(a1, a0));
            X::step(k, acc[1], W::load(p + r * kPer + W::N));
            X::step(k, acc[2], W::template alignr<r * kPer>(a3, a2));
            X::step(k, acc[3], W::load(p + r * kPer + 3 * W::N));
        }(),
        ...);
}

template <class S, bool Cplx, bool Rev, int U>
VRX_INLINE void directBlock(const S* coef, i64 K, const S* d, i64 dLo, i64 dHi, i64 base, S* out, i64 cnt) {
    using X = Mac<S, Cplx>;
    using W = typename X::W;
    constexpr int NE = X::NE, kPer = X::kPer, Wd = U * NE;
    typename X::Acc acc[U];
    for (int u = 0; u < U; ++u) acc[u] = X::zero();
    // base: data index of the block's first output at i = 0.
    const i64 iLo = max64(0, dLo - base - (Wd - 1)), iHi = min64(K - 1, dHi - 1 - base);
    const i64 fLo = max64(iLo, dLo - base), fHi = min64(iHi, dHi - Wd - base);
    auto masked = [&](i64 i) {
        const S* c = coef + (Rev ? K - 1 - i : i) * kPer;
        for (int u = 0; u < U; ++u) {
            const i64 b = base + i + i64(u) * NE;
            const unsigned me = X::inRange(b, dLo, dHi);
            if (!me) continue;
            const auto m = X::lanes(me);
            X::stepm(m, c, acc[u], W::loadm(m, d + b * kPer));
        }
    };
    auto full = [&](i64 i) {
        const S* c = coef + (Rev ? K - 1 - i : i) * kPer;
        const S* p = d + (base + i) * kPer;
        for (int u = 0; u < U; ++u) X::step(c, acc[u], W::load(p + u * W::N));
    };
    i64 i = iLo;
    if (fLo <= fHi) {
        for (; i < fLo; ++i) masked(i);
        if constexpr (U == 4) {
            // Four registers: from a 64-byte boundary on, runs of NE terms
            // read four aligned registers once and make registers 0 and 2 of
            // every term by shifting across them; registers 1 and 3 stay
            // plain loads. This halves the loads that straddle cache lines,
            // the limit of the plain loop.
            for (; i <= fHi && (addr(d + (base + i) * kPer) & 63); ++i) full(i);
            for (; i + NE - 1 <= fHi; i += NE) {
                const S* p = d + (base + i) * kPer;
                const typename W::R a0 = W::loada(p), a1 = W::loada(p + W::N), a2 = W::loada(p + 2 * W::N),
                                    a3 = W::loada(p + 3 * W::N);
                runAligned<X, Rev>(coef + (Rev ? K - 1 - i : i) * kPer, p, a0, a1, a2, a3, acc,
                                   std::make_integer_sequence<int, NE>{});
            }
        }
        for (; i <= fHi; ++i) full(i);
    }
    for (; i <= iHi; ++i) masked(i);
    for (int u = 0; u < U; ++u) {
        const i64 e = cnt - i64(u) * NE;
        if (e >= NE) W::store(out + u * W::N, X::join(acc[u]));
        else if (e > 0) W::storem(out + u * W::N, X::lanes((1u << e) - 1u), X::join(acc[u]));
    }
}

template <class S, bool Cplx, bool Rev>
void directRun(const S* coef, i64 K, const S* d, i64 dLo, i64 dHi, i64 off, S* out, i64 D) {
    using X = Mac<S, Cplx>;
    constexpr int NE = X::NE, kPer = X::kPer;
    i64 n = 0;
    for (; D - n >= 4 * NE; n += 4 * NE) directBlock<S, Cplx, Rev, 4>(coef, K, d, dLo, dHi, off + n, out + n * kPer, 4 * NE);
    const i64 rem = D - n;
    if (rem <= 0) return;
    S* o = out + n * kPer;
    switch ((rem + NE - 1) / NE) {
    case 1: directBlock<S, Cplx, Rev, 1>(coef, K, d, dLo, dHi, off + n, o, rem); break;
    case 2: directBlock<S, Cplx, Rev, 2>(coef, K, d, dLo, dHi, off + n, o, rem); break;
    case 3: directBlock<S, Cplx, Rev, 3>(coef, K, d, dLo, dHi, off + n, o, rem); break;
    default: directBlock<S, Cplx, Rev, 4>(coef, K, d, dLo, dHi, off + n, o, rem); break;
    }
}

// -------------------------------------------------------------- FFT engine
// The engine by element type (vrx_fft_calls.h): real plans over Perm and
// Pack spectra for 32f and 64f, complex plans for 32fc and 64fc. Plans take
// flag 2 (the inverse divided by the length) and hint 0; the copies skip
// empty ranges. Fft<E> exists for the four element types only (a const
// type fails substitution instead of instantiating).
template <class E> struct FftOf : FftCalls<E> {
    using C = FftCalls<E>;
    using Plan = typename C::Plan;
    static VrxStatus sizes(int order, int* p, int* q, int* w) { return C::getSize(order, vrxFftScaleInv, 0, p, q, w); }
    static VrxStatus init(Plan** pp, int order, Vrx8u* spec, Vrx8u* ini) { return C::init(pp, order, vrxFftScaleInv, 0, spec, ini); }
    static void copy(const E* s, E* d, int n) { if (n > 0) C::copy(s, d, n); }
    static void zero(E* d, int n) { if (n > 0) C::zero(d, n); }
    static void flip(E* d, int n) { if (n > 0) C::flipI(d, n); }
    static void scale(typename C::S v, E* d, int n) { C::mulCI(v, reinterpret_cast<typename C::S*>(d), (C::kCplx ? 2 : 1) * n); }
};
template <class E> struct Fft;
template <> struct Fft<Vrx32f> : FftOf<Vrx32f> {};
template <> struct Fft<Vrx64f> : FftOf<Vrx64f> {};
template <> struct Fft<Vrx32fc> : FftOf<Vrx32fc> {};
template <> struct Fft<Vrx64fc> : FftOf<Vrx64fc> {};

// dst[0 .. F-1] = src[0 .. n-1] followed by zeros.
template <class E>
VRX_INLINE void padTo(const E* src, int n, E* dst, int F) {
    Fft<E>::copy(src, dst, n);
    Fft<E>::zero(dst + n, F - n);
}

// Work buffer of an FFT path, from its 64-byte-aligned start: the plan's
// spec, init and work pieces at their rounded sizes, then the arrays. The
// 64 bytes of the size formula are the alignment slack of the start.
template <class E>
VrxStatus fftBytes(int order, i64 arrayBytes, int* pSize) {
    int p = 0, q = 0, w = 0;
    if (VrxStatus st = Fft<E>::sizes(order, &p, &q, &w)) {
        *pSize = 0;
        return st;
    }
    *pSize = static_cast<int>(up64(p) + up64(q) + up64(w) + 64 + up64(arrayBytes));
    return vrxOk;
}

template <class E>
struct FftWork {
    const typename Fft<E>::Plan* plan = nullptr;
    Vrx8u* work = nullptr;
    E* arr = nullptr;  // the first array of F elements; the second, where used, follows it
};

template <class E>
VrxStatus openWork(Vrx8u* pBuffer, int order, FftWork<E>* w) {
    int p = 0, q = 0, ws = 0;
    if (VrxStatus st = Fft<E>::sizes(order, &p, &q, &ws)) return st;
    Vrx8u* base = reinterpret_cast<Vrx8u*>((addr(pBuffer) + 63) & ~uintptr_t(63));
    Vrx8u* spec = base;
    Vrx8u* ini = spec + up64(p);
    w->work = ini + up64(q);
    w->arr = reinterpret_cast<E*>(w->work + up64(ws));
    typename Fft<E>::Plan* plan = nullptr;
    if (VrxStatus st = Fft<E>::init(&plan, order, spec, ini)) return st;
    w->plan = plan;
    return vrxOk;
}

// ---------------------------------------------------------- path choices
// Convolution: the FFT on vrxAlgFFT, or on Auto from 512 outputs with a
// kernel of at least 64; one transform while the signal is shorter than
// three kernels, else overlap-save.
struct ConvPath {
    bool fft = false, single = false;
    int order = 0;
};
VRX_INLINE ConvPath convPath(i64 n1, i64 n2, int alg) {
    ConvPath r;
    const i64 T = n1 + n2 - 1, S = min64(n1, n2), L = max64(n1, n2);
    r.fft = alg == vrxAlgFFT || (alg == vrxAlgAuto && T >= 512 && S >= 64);
    if (!r.fft) return r;
    r.single = L < 3 * S;
    r.order = r.single ? ceilLog2(T) : ceilLog2(2 * S) + 1;
    return r;
}

// The lags that remain after those outside 1-n1 .. n2-1 are cut off: the
// count cut at the front, and the remaining count D (0 when none remain).
struct LagRange {
    i64 front = 0, D = 0, lo = 0;
};
VRX_INLINE LagRange lagRange(i64 n1, i64 n2, i64 D, i64 lo) {
    LagRange r;
    const i64 loLim = 1 - n1, hiLim = n2 - 1;
    if (lo < loLim) {
        r.front = min64(D, loLim - lo);
        D -= r.front;
        lo += r.front;
    }
    if (D > 0 && lo + D - 1 > hiLim) D -= min64(D, lo + D - 1 - hiLim);
    r.D = D;
    r.lo = lo;
    return r;
}

// Cross-correlation: v = trunc(mn D / mx) in single precision against the
// threshold of the form; one transform while mx < 3 mn.
VRX_INLINE ConvPath corrPath(i64 n1, i64 n2, i64 D, int alg, int thr) {
    ConvPath r;
    const i64 mn = min64(n1, n2), mx = max64(n1, n2);
    const float q = static_cast<float>(mn) * static_cast<float>(D) / static_cast<float>(mx);
    const i64 v = static_cast<i64>(q);
    r.fft = alg == vrxAlgFFT || (alg == vrxAlgAuto && v >= thr);
    if (!r.fft) return r;
    r.single = mx < 3 * mn;
    r.order = r.single ? ceilLog2(n1 + n2 - 1) : ceilLog2(2 * mn) + 1;
    return r;
}

}  // namespace n0::conv
