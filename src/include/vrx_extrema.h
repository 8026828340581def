// Reductions that answer with a value or a position: how each element type
// sits in register lanes, the folds to an extreme value, and the drivers that
// find the first index of an extreme (per-lane winners, 4096-element blocks,
// a scan for the first equal element). Ties always go to the lowest index,
// across lanes, unrolled register sets and blocks.
//
// A transform xf (identity, magnitude, saturated magnitude) is applied to
// every register before it is compared, so one driver serves Max, MaxAbs and
// MaxAbsIndx alike.
#pragma once

#include "simd/simd.h"

#include <type_traits>

namespace n0::ext {

// ------------------------------------------------------------- loaders
// Src<T>: E is the lane type that holds one T, W its register vocabulary,
// N the elements per register. loadFill reads n < N elements and puts fill
// in the other lanes; it never reads memory past the n elements.
template <class T>
struct SrcNative {
    using E = T;
    using W = simd::V<T>;
    using R = typename W::R;
    using M = typename W::M;
    static constexpr int N = W::N;
    static VRX_INLINE R load(const T* p) { return W::load(p); }
    static VRX_INLINE R loadFill(const T* p, int n, T fill) { return W::loadm(simd::tail<T>(static_cast<size_t>(n)), p, fill); }
};

// 8- and 16-bit elements are widened into the 32-bit lanes of a zmm
// register (there is no AVX-512BW), 16 a register.
template <class T>
struct SrcNarrow {
    using E = int32_t;
    using W = simd::V<int32_t>;
    using R = typename W::R;
    using M = typename W::M;
    static constexpr int N = 16;
    static VRX_INLINE R load(const T* p) {
        if constexpr (std::is_same_v<T, int16_t>) return simd::widen16s(p);
        else if constexpr (std::is_same_v<T, uint16_t>) return simd::widen16u(p);
        else return simd::widen8u(p);
    }
    static VRX_INLINE R loadFill(const T* p, int n, T fill) {
        T buf[16];
        for (int j = 0; j < 16; ++j) buf[j] = j < n ? p[j] : fill;
        return load(buf);
    }
};

template <class T> struct Src;
template <> struct Src<float> : SrcNative<float> {};
template <> struct Src<double> : SrcNative<double> {};
template <> struct Src<int32_t> : SrcNative<int32_t> {};
template <> struct Src<uint32_t> : SrcNative<uint32_t> {};
template <> struct Src<int16_t> : SrcNarrow<int16_t> {};
template <> struct Src<uint16_t> : SrcNarrow<uint16_t> {};
template <> struct Src<uint8_t> : SrcNarrow<uint8_t> {};

// Integer lane index type beside N value lanes.
template <int N> using IndexLane = std::conditional_t<N == 16, int32_t, int64_t>;

// ----------------------------------------------------------- directions
// v: the running extreme of a lane, max(run, x) where an unordered compare
// yields x (the second operand passes through). better: strict, ordered,
// so equal values and NaN never displace an earlier winner.
struct OpMax {
    template <class W> static VRX_INLINE typename W::R v(typename W::R run, typename W::R x) { return W::max(run, x); }
    template <class W> static VRX_INLINE typename W::M better(typename W::R x, typename W::R best) { return W::gt(x, best); }
    template <class E> static VRX_INLINE E s(E run, E x) { return run > x ? run : x; }
    template <class E> static VRX_INLINE bool sBetter(E x, E best) { return x > best; }
};
struct OpMin {
    template <class W> static VRX_INLINE typename W::R v(typename W::R run, typename W::R x) { return W::min(run, x); }
    template <class W> static VRX_INLINE typename W::M better(typename W::R x, typename W::R best) { return W::lt(x, best); }
    template <class E> static VRX_INLINE E s(E run, E x) { return run < x ? run : x; }
    template <class E> static VRX_INLINE bool sBetter(E x, E best) { return x < best; }
};

// ----------------------------------------------------------- transforms
struct XfId {
    template <class R> VRX_INLINE R operator()(R x) const { return x; }
};
// |x| of a float register (sign bit cleared)
template <class W> struct XfAbs {
    VRX_INLINE typename W::R operator()(typename W::R x) const { return W::abs(x); }
};
// Saturated integer magnitude: the most negative value counts as the
// largest positive one (lanes hold the element exactly; cap = type max).
template <int32_t Cap> struct XfAbsSat {
    using W = simd::V<int32_t>;
    VRX_INLINE W::R operator()(W::R x) const { return W::abs(W::max(x, W::set1(-Cap))); }
    // the same on 16-bit lanes (Cap 0x7FFF)
    VRX_INLINE __m256i operator()(__m256i x) const {
        using NW = simd::VNarrow<int16_t>;
        return NW::abs(NW::max(x, NW::set1(static_cast<int16_t>(-Cap))));
    }
};

// 8- and 16-bit data whose transform also runs on 16-bit lanes take the
// AVX2 compare-and-select kernels below.
template <class T, class Xf>
inline constexpr bool kNarrowLanes = sizeof(T) <= 2 && (std::is_same_v<Xf, XfId> || std::is_same_v<Xf, XfAbsSat<0x7FFF>>);

// Scalar value of the transform of one element.
template <class T, class Xf>
VRX_INLINE typename Src<T>::E xfOne(T x, Xf xf) {
    using S = Src<T>;
    return S::W::first(xf(S::W::set1(static_cast<typename S::E>(x))));
}

template <class W>
VRX_INLINE void storeLanes(typename W::T* t, typename W::R v) { W::store(t, v); }

// ----------------------------------------------------------------- folds
// AVX2 form of foldValue for 8/16-bit data: 32 bytes a register, four
// chains; a last partial register is read again from the end (an extreme
// tolerates the overlap), a vector shorter than one register element by
// element.
template <class T, class Op, class Xf>
VRX_INLINE int32_t foldNarrow(const T* p, int len, Xf xf) {
    using NW = simd::VNarrow<T>;
    using R = typename NW::R;
    constexpr int N = NW::N;
    if (len < N) {
        int32_t r = xfOne(p[0], xf);
        for (int i = 1; i < len; ++i) r = Op::s(r, xfOne(p[i], xf));
        return r;
    }
    R a0 = xf(NW::load(p)), a1 = a0, a2 = a0, a3 = a0;
    int i = N;
    for (; i + 4 * N <= len; i += 4 * N) {
        a0 = Op::template v<NW>(a0, xf(NW::load(p + i)));
        a1 = Op::template v<NW>(a1, xf(NW::load(p + i + N)));
        a2 = Op::template v<NW>(a2, xf(NW::load(p + i + 2 * N)));
        a3 = Op::template v<NW>(a3, xf(NW::load(p + i + 3 * N)));
    }
    for (; i + N <= len; i += N) a0 = Op::template v<NW>(a0, xf(NW::load(p + i)));
    if (i < len) a1 = Op::template v<NW>(a1, xf(NW::load(p + len - N)));
    a0 = Op::template v<NW>(Op::template v<NW>(a0, a1), Op::template v<NW>(a2, a3));
    if constexpr (std::is_same_v<Op, OpMax>) return simd::narrowMaxLane<T>(a0);
    else return simd::narrowMinLane<T>(a0);
}

// The extreme of xf(p[0..len)) under Op, len >= 1. Four register chains,
// lanes folded at the end.
template <class T, class Op, class Xf>
VRX_INLINE typename Src<T>::E foldWide(const T* p, int len, Xf xf) {
    using S = Src<T>;
    using W = typename S::W;
    using R = typename S::R;
    using E = typename S::E;
    constexpr int N = S::N;
    const R init = xf(W::set1(static_cast<E>(p[0])));
    R a0 = init, a1 = init, a2 = init, a3 = init;
    int i = 0;
    for (; i + 4 * N <= len; i += 4 * N) {
        a0 = Op::template v<W>(a0, xf(S::load(p + i)));
        a1 = Op::template v<W>(a1, xf(S::load(p + i + N)));
        a2 = Op::template v<W>(a2, xf(S::load(p + i + 2 * N)));
        a3 = Op::template v<W>(a3, xf(S::load(p + i + 3 * N)));
    }
    for (; i + N <= len; i += N) a0 = Op::template v<W>(a0, xf(S::load(p + i)));
    if (i < len) a0 = Op::template v<W>(a0, xf(S::loadFill(p + i, len - i, p[0])));
    a0 = Op::template v<W>(Op::template v<W>(a0, a1), Op::template v<W>(a2, a3));
    alignas(64) E t[N];
    storeLanes<W>(t, a0);
    E r = t[0];
    for (int j = 1; j < N; ++j) r = Op::s(r, t[j]);
    return r;
}

template <class T, class Op, class Xf>
VRX_INLINE typename Src<T>::E foldValue(const T* p, int len, Xf xf) {
    if constexpr (kNarrowLanes<T, Xf>) return foldNarrow<T, Op>(p, len, xf);
    else return foldWide<T, Op>(p, len, xf);
}

// Minimum and maximum of p[0..len) in one pass: AVX2 on 8/16-bit lanes
// (a short vector element by element; a last partial register read again
// from the end, which an extreme tolerates), masked tails on wider lanes.
template <class T>
VRX_INLINE void foldMinMax(const T* p, int len, typename Src<T>::E& mn, typename Src<T>::E& mx) {
    if constexpr (sizeof(T) <= 2) {
        using NW = simd::VNarrow<T>;
        using R = typename NW::R;
        constexpr int N = NW::N;
        if (len < N) {
            T lo = p[0], hi = p[0];
            for (int i = 1; i < len; ++i) { lo = p[i] < lo ? p[i] : lo; hi = p[i] > hi ? p[i] : hi; }
            mn = lo;
            mx = hi;
            return;
        }
        R l0 = NW::load(p), h0 = l0, l1 = l0, h1 = l0;
        int i = N;
        for (; i + 2 * N <= len; i += 2 * N) {
            R x = NW::load(p + i), y = NW::load(p + i + N);
            l0 = NW::min(l0, x); h0 = NW::max(h0, x);
            l1 = NW::min(l1, y); h1 = NW::max(h1, y);
        }
        if (i + N <= len) {
            R x = NW::load(p + i);
            l0 = NW::min(l0, x); h0 = NW::max(h0, x);
            i += N;
        }
        if (i < len) {
            R x = NW::load(p + len - N);
            l1 = NW::min(l1, x); h1 = NW::max(h1, x);
        }
        mn = simd::narrowMinLane<T>(NW::min(l0, l1));
        mx = simd::narrowMaxLane<T>(NW::max(h0, h1));
    } else {
        using S = Src<T>;
        using W = typename S::W;
        using R = typename S::R;
        using E = typename S::E;
        constexpr int N = S::N;
        const R init = W::set1(static_cast<E>(p[0]));
        R l0 = init, l1 = init, h0 = init, h1 = init;
        int i = 0;
        for (; i + 2 * N <= len; i += 2 * N) {
            R x = S::load(p + i), y = S::load(p + i + N);
            l0 = W::min(l0, x); h0 = W::max(h0, x);
            l1 = W::min(l1, y); h1 = W::max(h1, y);
        }
        for (; i + N <= len; i += N) {
            R x = S::load(p + i);
            l0 = W::min(l0, x); h0 = W::max(h0, x);
        }
        if (i < len) {
            R x = S::loadFill(p + i, len - i, p[0]);
            l0 = W::min(l0, x); h0 = W::max(h0, x);
        }
        l0 = W::min(l0, l1);
        h0 = W::max(h0, h1);
        alignas(64) E a[N], b[N];
        storeLanes<W>(a, l0);
        storeLanes<W>(b, h0);
        mn = a[0];
        mx = b[0];
        for (int j = 1; j < N; ++j) { mn = OpMin::s(mn, a[j]); mx = OpMax::s(mx, b[j]); }
    }
}

// ------------------------------------------------------- first positions
template <class E>
struct Best {
    E value;
    int index;
};

// Per-lane winners: every lane keeps its best value and the index where it
// first appeared (strict compare), four register sets side by side; then the
// best value over all lanes and, among lanes holding it, the lowest index.
// IE is the lane type of the indices (int32, int64, or float: then indices
// are exact only up to 2^24 and truncated to int at the end).
template <class T, class Op, class IE, class Xf>
VRX_INLINE Best<typename Src<T>::E> argBestLanes(const T* p, int len, Xf xf) {
    using S = Src<T>;
    using W = typename S::W;
    using R = typename S::R;
    using M = typename S::M;
    using E = typename S::E;
    using IW = simd::V<IE>;
    using IR = typename IW::R;
    constexpr int N = S::N;
    static_assert(IW::N == N, "one index lane per value lane");

    alignas(64) IE io[N];
    for (int j = 0; j < N; ++j) io[j] = static_cast<IE>(j);
    const IR iota = IW::load(io);
    const R init = xf(W::set1(static_cast<E>(p[0])));
    R b0 = init, b1 = init, b2 = init, b3 = init;
    IR x0 = IW::zero(), x1 = x0, x2 = x0, x3 = x0;
    IR c0 = iota;
    IR c1 = IW::add(iota, IW::set1(static_cast<IE>(N)));
    IR c2 = IW::add(iota, IW::set1(static_cast<IE>(2 * N)));
    IR c3 = IW::add(iota, IW::set1(static_cast<IE>(3 * N)));
    const IR step4 = IW::set1(static_cast<IE>(4 * N)), step1 = IW::set1(static_cast<IE>(N));
    int i = 0;
    for (; i + 4 * N <= len; i += 4 * N) {
        R v0 = xf(S::load(p + i)), v1 = xf(S::load(p + i + N));
        R v2 = xf(S::load(p + i + 2 * N)), v3 = xf(S::load(p + i + 3 * N));
        M m0 = Op::template better<W>(v0, b0), m1 = Op::template better<W>(v1, b1);
        M m2 = Op::template better<W>(v2, b2), m3 = Op::template better<W>(v3, b3);
        b0 = W::blend(m0, b0, v0); x0 = IW::blend(m0, x0, c0);
        b1 = W::blend(m1, b1, v1); x1 = IW::blend(m1, x1, c1);
        b2 = W::blend(m2, b2, v2); x2 = IW::blend(m2, x2, c2);
        b3 = W::blend(m3, b3, v3); x3 = IW::blend(m3, x3, c3);
        c0 = IW::add(c0, step4); c1 = IW::add(c1, step4);
        c2 = IW::add(c2, step4); c3 = IW::add(c3, step4);
    }
    // set 0's counters now stand at element i
    for (; i + N <= len; i += N) {
        R v = xf(S::load(p + i));
        M m = Op::template better<W>(v, b0);
        b0 = W::blend(m, b0, v); x0 = IW::blend(m, x0, c0);
        c0 = IW::add(c0, step1);
    }
    if (i < len) {
        // the fill lanes hold xf(p[0]), which never strictly beats a lane
        R v = xf(S::loadFill(p + i, len - i, p[0]));
        M m = Op::template better<W>(v, b0);
        b0 = W::blend(m, b0, v); x0 = IW::blend(m, x0, c0);
    }
    // the four sets merged lane by lane (better value, or equal value and
    // lower index), then the lanes
    auto merge = [](R& b, IR& x, R c, IR y) {
        const M take = Op::template better<W>(c, b) | (W::eq(c, b) & IW::lt(y, x));
        b = W::blend(take, b, c);
        x = IW::blend(take, x, y);
    };
    merge(b0, x0, b1, x1);
    merge(b2, x2, b3, x3);
    merge(b0, x0, b2, x2);
    alignas(64) E tv[N];
    alignas(64) IE ti[N];
    storeLanes<W>(tv, b0);
    IW::store(ti, x0);
    E bv = tv[0];
    IE bi = ti[0];
    for (int j = 1; j < N; ++j) {
        if (Op::sBetter(tv[j], bv) || (tv[j] == bv && ti[j] < bi)) { bv = tv[j]; bi = ti[j]; }
    }
    return {bv, static_cast<int>(bi)};
}

// First k in [0, len) with xf(p[k]) == v, or -1.
template <class T, class Xf>
VRX_INLINE int findFirstEq(const T* p, int len, Xf xf, typename Src<T>::E v) {
    using S = Src<T>;
    using W = typename S::W;
    using M = typename S::M;
    using E = typename S::E;
    constexpr int N = S::N;
    const typename S::R t = W::set1(v);
    int i = 0;
    for (; i + N <= len; i += N) {
        M m = W::eq(xf(S::load(p + i)), t);
        if (m) return i + __builtin_ctz(static_cast<unsigned>(m));
    }
    if (i < len) {
        M m = W::eq(xf(S::loadFill(p + i, len - i, p[0])), t) & simd::tail<E>(static_cast<size_t>(len - i));
        if (m) return i + __builtin_ctz(static_cast<unsigned>(m));
    }
    return -1;
}

// First positions of two values in one scan; an index stays 0 when its
// value is never met.
template <class T>
VRX_INLINE void findFirstEq2(const T* p, int len, typename Src<T>::E u, typename Src<T>::E v, int& iu, int& iv) {
    using S = Src<T>;
    using W = typename S::W;
    using M = typename S::M;
    using E = typename S::E;
    constexpr int N = S::N;
    const typename S::R tu = W::set1(u), tv = W::set1(v);
    bool fu = false, fv = false;
    iu = 0;
    iv = 0;
    for (int i = 0; i < len && !(fu && fv); i += N) {
        typename S::R x;
        M valid = static_cast<M>(W::kAll);
        if (i + N <= len) {
            x = S::load(p + i);
        } else {
            x = S::loadFill(p + i, len - i, p[0]);
            valid = simd::tail<E>(static_cast<size_t>(len - i));
        }
        M mu = W::eq(x, tu) & valid, mv = W::eq(x, tv) & valid;
        if (!fu && mu) { iu = i + __builtin_ctz(static_cast<unsigned>(mu)); fu = true; }
        if (!fv && mv) { iv = i + __builtin_ctz(static_cast<unsigned>(mv)); fv = true; }
    }
}

// Two passes over blocks of 4096 elements: the extreme of each block, and
// only when it strictly beats the best so far, a scan of that block for its
// first occurrence. A later block that only ties keeps the earlier index,
// and the hot loop carries no index.
inline constexpr int kIndexBlock = 4096;

template <class T, class Op, class Xf>
VRX_INLINE Best<typename Src<T>::E> argBestBlocks(const T* p, int len, Xf xf) {
    using E = typename Src<T>::E;
    E best = xfOne(p[0], xf);
    int idx = 0;
    for (int b = 0; b < len; b += kIndexBlock) {
        const int n = len - b < kIndexBlock ? len - b : kIndexBlock;
        const E v = foldValue<T, Op>(p + b, n, xf);
        if (Op::sBetter(v, best)) {
            best = v;
            idx = b + findFirstEq(p + b, n, xf, v);
        }
    }
    return {best, idx};
}

}  // namespace n0::ext
