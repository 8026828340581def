// Median selection networks for the median filter, built at compile time.
//
// The network of an odd size M is Batcher's odd-even merge sort of the next
// power of two, with every comparator that touches a lane at or above M
// dropped (those lanes stand for +inf and never move), then pruned backwards
// from the middle output: a comparator whose two outputs are both unused is
// dropped, one with only its low (high) output used keeps only the min
// (max). What remains computes exactly the middle element of the sorted M.
#pragma once

#include <stdint.h>

#include <utility>

#include "simd/simd.h"

namespace n0::median {

// Comparator on lanes i < j: min to i, max to j; kind 0 both, 1 min only,
// 2 max only.
struct Cmp {
    uint8_t i, j, kind;
};

inline constexpr int kNetMax = 576;  // comparators of the sort of 64 lanes: 543

struct Net {
    Cmp c[kNetMax] = {};
    int n = 0;
};

constexpr Net makeNet(int M) {
    int N = 1;
    while (N < M) N <<= 1;
    Net all;
    for (int p = 1; p < N; p <<= 1)
        for (int k = p; k >= 1; k >>= 1)
            for (int j = k % p; j + k < N; j += 2 * k)
                for (int i = 0; i < k && i + j + k < N; ++i)
                    if ((i + j) / (2 * p) == (i + j + k) / (2 * p) && i + j + k < M)
                        all.c[all.n++] = Cmp{uint8_t(i + j), uint8_t(i + j + k), 0};
    // backwards: which lanes are still needed after each comparator
    bool need[64] = {};
    need[M / 2] = true;
    bool keep[kNetMax] = {};
    uint8_t kind[kNetMax] = {};
    for (int t = all.n - 1; t >= 0; --t) {
        const Cmp c = all.c[t];
        if (!need[c.i] && !need[c.j]) continue;
        keep[t] = true;
        kind[t] = need[c.i] && need[c.j] ? 0 : need[c.i] ? 1 : 2;
        need[c.i] = need[c.j] = true;
    }
    Net out;
    for (int t = 0; t < all.n; ++t)
        if (keep[t]) out.c[out.n++] = Cmp{all.c[t].i, all.c[t].j, kind[t]};
    return out;
}

template <class W, Cmp C>
VRX_INLINE void apply(typename W::R* x) {
    const typename W::R a = x[C.i], b = x[C.j];
    if constexpr (C.kind != 2) x[C.i] = W::min(a, b);
    if constexpr (C.kind != 1) x[C.j] = W::max(a, b);
}

template <int M>
inline constexpr Net kNet = makeNet(M);

// The comparators [B, B + 128) of the network, then the next run: one fold
// holds at most 128 of them (compilers bound the length of a fold).
template <class W, int M, size_t B, size_t... T>
VRX_INLINE void applyRun(typename W::R* x, std::index_sequence<T...>) {
    (apply<W, kNet<M>.c[B + T]>(x), ...);
}
template <class W, int M, size_t B = 0>
VRX_INLINE void applyAll(typename W::R* x) {
    constexpr size_t kRun = 128, n = size_t(kNet<M>.n);
    if constexpr (B < n) {
        applyRun<W, M, B>(x, std::make_index_sequence<(n - B < kRun ? n - B : kRun)>{});
        applyAll<W, M, B + kRun>(x);
    }
}

// out[t] = median of in[t..t+M-1] for t < n, whole registers: reads up to
// in[roundUp(n, lanes) + M - 2] and writes up to out[roundUp(n, lanes) - 1].
template <class K, int M>
void netRun(const K* in, K* out, int n) {
    using W = simd::V<K>;
    for (int i = 0; i < n; i += W::N) {
        typename W::R x[M];
        [&]<size_t... J>(std::index_sequence<J...>) { ((x[J] = W::load(in + i + J)), ...); }(std::make_index_sequence<M>{});
        applyAll<W, M>(x);
        W::store(out + i, x[M / 2]);
    }
}

}  // namespace n0::median
