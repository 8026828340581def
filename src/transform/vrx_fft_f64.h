// Double-precision pieces of the complex FFT engine.
//
// Interleaved double plans of the radix engine keep the positions of each
// group of eight in the lane order pairLane (0, 4, 1, 5, 2, 6, 3, 7): the
// first pass writes them so by taking its rows in that order, the factor
// table of every pass at s >= 3 holds them in the same order, and the last
// pass stores by in-lane unpacks instead of two index permutes per group.
// Every position sees the same operations as in natural order: same bits.
#pragma once

#include "vrx_fft.h"
#include "vrx_fft_simd.h"
#include "vrx_fft_pass.h"
#include "vrx_layout.h"

namespace n0::fft {

// Plans whose radix-engine factors stand in the paired lane order.
constexpr bool pairedKind(ObjId id) { return id == ObjId::FftC64fc; }
template <class T> VRX_INLINE bool pairedPlan(const Plan* p) {
    return sizeof(T) == 8 && p->idWord == idWord(ObjId::FftC64fc);
}

// The R rows of a first-pass butterfly, each group of eight rows reordered
// so that row 8g + q is the former row 8g + pairLane(q).
template <class CV, int R> VRX_INLINE void pairGroups(CV* a) {
    static_assert(R % 8 == 0, "whole groups of eight");
#pragma GCC unroll 2
    for (int g = 0; g < R / 8; ++g) {
        CV t[8];
#pragma GCC unroll 8
        for (int q = 0; q < 8; ++q) t[q] = a[8 * g + pairLane<double>(q)];
#pragma GCC unroll 8
        for (int q = 0; q < 8; ++q) a[8 * g + q] = t[q];
    }
}

// The radix-16 butterfly of the double first pass (radix 4, the factors of
// the pass at s = 2, radix 4; lanes are blocks), the operations of vdftTw
// with fewer sign flips: a rotation by -i or +i that feeds a sum is the
// pair swap times the signs of rotSign, added by one multiply-add (the
// product by +-1 is exact, the sum rounded once: the bits of the add), and
// the cross products of the factors take fi with the sign already in it.
using CVd = CVec<double, 4>;
template <bool Inv> VRX_INLINE simd::V<double>::R rotSign() {
    using W = simd::V<double>;
    return Inv ? W::set2(-1.0, 1.0) : W::set2(1.0, -1.0);
}
// Rot2: a2 is taken as a2 * (-i) (forward; +i inverse), the pair swap
// times the signs folded into a0 +- a2 as above (the bits of rotating
// first).
template <bool Inv, bool Rot2 = false> VRX_INLINE void bfly4d(CVd a0, CVd a1, CVd a2, CVd a3, CVd* o) {
    using W = simd::V<double>;
    const W::R sg = rotSign<Inv>();
    CVd t0, t1;
    if constexpr (Rot2) {
        const W::R r = W::swapPair(a2.v);
        t0 = {W::fma(r, sg, a0.v)};
        t1 = {W::fnma(r, sg, a0.v)};
    } else {
        t0 = a0 + a2;
        t1 = a0 - a2;
    }
    const CVd t2 = CVd::addM(a1, a3);
    const W::R s = W::swapPair(CVd::subM(a1, a3).v);
    o[0] = t0 + t2;
    o[1] = {W::fma(s, sg, t1.v)};
    o[2] = t0 - t2;
    o[3] = {W::fnma(s, sg, t1.v)};
}
// fr[x], fiS[x]: factor x = 3*(n2-1) + (k1-1) as real parts, and as
// imaginary parts with the sign of the cross product (firstFactors16d).
template <bool Inv> VRX_INLINE void bfly16d(CVd* a, const CVd* fr, const CVd* fiS) {
    using W = simd::V<double>;
    CVd y[4][4];
#pragma GCC unroll 4
    for (int n2 = 0; n2 < 4; ++n2) {
        bfly4d<Inv>(a[n2], a[4 + n2], a[8 + n2], a[12 + n2], y[n2]);
        if (n2 != 0)
#pragma GCC unroll 3
            for (int k1 = 1; k1 < 4; ++k1) {
                const int x = 3 * (n2 - 1) + (k1 - 1);
                const W::R p = W::mul(y[n2][k1].v, fr[x].v), q = W::mul(W::swapPair(y[n2][k1].v), fiS[x].v);
                y[n2][k1] = {W::add(p, q)};
            }
    }
#pragma GCC unroll 4
    for (int k1 = 0; k1 < 4; ++k1) {
        CVd o[4];
        bfly4d<Inv>(y[0][k1], y[1][k1], y[2][k1], y[3][k1], o);
#pragma GCC unroll 4
        for (int k2 = 0; k2 < 4; ++k2) a[k1 + 4 * k2] = o[k2];
    }
}
// The factors of the pass at s = 2 from the table (as loadFirstFactors),
// the imaginary parts signed for bfly16d.
template <bool Inv> VRX_INLINE void firstFactors16d(const Cx<double>* tw, CVd* fr, CVd* fiS) {
    const double* t = reinterpret_cast<const double*>(tw);
#pragma GCC unroll 3
    for (int j = 1; j < 4; ++j)
#pragma GCC unroll 3
        for (int k = 1; k < 4; ++k) {
            const double re = t[8 * (j - 1) + k], im = t[8 * (j - 1) + 4 + k];
            fr[3 * (j - 1) + (k - 1)] = CVd::bcast({re, re});
            fiS[3 * (j - 1) + (k - 1)] = Inv ? CVd::bcast({im, -im}) : CVd::bcast({-im, im});
        }
}

// The 32-point double kernel: the operations of smallVec<double, 4, 8>
// (radix 8 down eight rows of four, lane factors, 4 x 4 transposes,
// radix 4), each rotation that feeds a sum folded into it as in bfly4d
// and the factors' cross products signed (wr: real parts twice, wiS:
// imaginary parts signed, per lane as kLaneTwSplit; tr: the 4 x 4
// transpose of four rows). In place a call waits
// for the stores of the call before, so its chain of dependent operations
// bounds it: each fold takes a sign flip off that chain.
template <bool Inv> VRX_INLINE void bfly8d(CVd* a) {
    using W = simd::V<double>;
    const W::R sg = rotSign<Inv>(), c = W::set1(sqrtHalf<double>());
    CVd e[4], d[4];
    bfly4d<Inv>(a[0], a[2], a[4], a[6], e);
    bfly4d<Inv>(a[1], a[3], a[5], a[7], d);
    const W::R d1 = W::mul(W::fma(W::swapPair(d[1].v), sg, d[1].v), c);
    const W::R s2 = W::swapPair(d[2].v);
    const W::R x3 = W::mul(W::fma(W::swapPair(d[3].v), sg, d[3].v), c), s3 = W::swapPair(x3);
    a[0] = e[0] + d[0];
    a[4] = e[0] - d[0];
    a[1] = {W::add(e[1].v, d1)};
    a[5] = {W::sub(e[1].v, d1)};
    a[2] = {W::fma(s2, sg, e[2].v)};
    a[6] = {W::fnma(s2, sg, e[2].v)};
    a[3] = {W::fma(s3, sg, e[3].v)};
    a[7] = {W::fnma(s3, sg, e[3].v)};
}
template <bool Inv, bool Scale, class Tr>
VRX_INLINE void small32d(const Cx<double>* src, Cx<double>* dst, double scale, const double* wr, const double* wiS, Tr tr) {
    using W = simd::V<double>;
    CVd a[8];
#pragma GCC unroll 8
    for (int r = 0; r < 8; ++r) a[r] = CVd::load(src + 4 * r);
    bfly8d<Inv>(a);
#pragma GCC unroll 8
    for (int k = 1; k < 8; ++k) {
        const W::R p = W::mul(a[k].v, W::load(wr + 8 * k)), q = W::mul(W::swapPair(a[k].v), W::load(wiS + 8 * k));
        a[k] = {W::add(p, q)};
    }
#pragma GCC unroll 2
    for (int b = 0; b < 2; ++b) {
        tr(a + 4 * b);
        CVd o[4];
        bfly4d<Inv>(a[4 * b], a[4 * b + 1], a[4 * b + 2], a[4 * b + 3], o);
#pragma GCC unroll 4
        for (int k2 = 0; k2 < 4; ++k2) {
            CVd v = o[k2];
            if constexpr (Scale) v = CVd::scale(v, scale);
            v.store(dst + 8 * k2 + 4 * b);
        }
    }
}


// ---- order 8 (double) as 16 x 16 without full-width permutes
//
// x[16*n1 + n2]: per four columns n2, 16-point transforms down the rows
// (every operation vertical: each complex lane is one column), the factors
// W_256^(k1*n2), then each complex value stored by a lane store into a
// stack buffer held as [n2][k1]; per four rows k1, one load per n2 and
// 16-point transforms over n2 give X[k1 + 16*k2], four adjacent outputs per
// register. Split data is paired on load and unpaired on store, so the
// operations per position, and the bits, are those of interleaved data.
//
// cos and sin of 2*pi*j/N from the constant sine table, N <= 1024.
struct CosSin {
    double c, s;
};
constexpr CosSin cosSinD(int j, int N) {
    const double* t = n0::fft_fix_twiddle_table_64f;
    const int q = (j % N) * (1024 / N), quad = q / 256, r = q % 256;
    const double sv = t[r], cv = t[256 - r];
    return {quad == 0 ? cv : quad == 1 ? -sv : quad == 2 ? -cv : sv, quad == 0 ? sv : quad == 1 ? cv : quad == 2 ? -sv : -cv};
}
// cmul16: y*w (forward) or y*conj(w) (inverse); wr: real parts twice, wi:
// the imaginary parts as (-im, im).
template <bool Inv> VRX_INLINE simd::V<double>::R cmul16(simd::V<double>::R y, simd::V<double>::R wr, simd::V<double>::R wi) {
    using W = simd::V<double>;
    const W::R p = W::mul(y, wr), q = W::mul(W::swapPair(y), wi);
    return Inv ? W::sub(p, q) : W::add(p, q);
}
// W_16^E times y, 0 < E < 16 (rotations by -i and W_16^2 by signs)
template <bool Inv, int E> VRX_INLINE simd::V<double>::R w16d(simd::V<double>::R y) {
    using W = simd::V<double>;
    constexpr double c = 0.70710678118654752440;
    if constexpr (E == 4) return W::mul(W::swapPair(y), rotSign<Inv>());
    else if constexpr (E == 2) return W::mul(W::fma(W::swapPair(y), rotSign<Inv>(), y), W::set1(c));
    else {
        // forward W = cos - i*sin
        constexpr CosSin w = cosSinD(E, 16);
        return cmul16<Inv>(y, W::set1(w.c), W::set2(w.s, -w.s));
    }
}
// 16-point transform down 16 registers: inputs ld(n), outputs st(k, X[k])
// in the order 0, 4, 8, 12, 1, 5, ...
template <bool Inv, class Ld, class St> VRX_INLINE void dft16d(Ld ld, St st) {
    CVd y[4][4];
#pragma GCC unroll 4
    for (int n2 = 0; n2 < 4; ++n2) bfly4d<Inv>(ld(n2), ld(4 + n2), ld(8 + n2), ld(12 + n2), y[n2]);
    y[1][1].v = w16d<Inv, 1>(y[1][1].v);
    y[1][2].v = w16d<Inv, 2>(y[1][2].v);
    y[1][3].v = w16d<Inv, 3>(y[1][3].v);
    y[2][1].v = w16d<Inv, 2>(y[2][1].v);
    y[2][3].v = w16d<Inv, 6>(y[2][3].v);
    y[3][1].v = w16d<Inv, 3>(y[3][1].v);
    y[3][2].v = w16d<Inv, 6>(y[3][2].v);
    y[3][3].v = w16d<Inv, 9>(y[3][3].v);
#pragma GCC unroll 4
    for (int k1 = 0; k1 < 4; ++k1) {
        CVd o[4];
        // y[2][2] is still to be multiplied by W_16^4 = -i: folded into its butterfly
        if (k1 == 2) bfly4d<Inv, true>(y[0][k1], y[1][k1], y[2][k1], y[3][k1], o);
        else bfly4d<Inv>(y[0][k1], y[1][k1], y[2][k1], y[3][k1], o);
#pragma GCC unroll 4
        for (int k2 = 0; k2 < 4; ++k2) st(k1 + 4 * k2, o[k2]);
    }
}

// W_N^(k1*n2) for k1 < N/16, n2 < 16: real parts twice, imaginary parts
// as (-im, im), entry 16*k1 + n2 (forward sign).
template <int N> struct alignas(64) TwRowsD {
    double wr[2 * N], wi[2 * N];
    constexpr TwRowsD() : wr{}, wi{} {
        for (int k1 = 0; k1 < N / 16; ++k1)
            for (int n2 = 0; n2 < 16; ++n2) {
                const CosSin w = cosSinD(k1 * n2, N);
                const int e = 2 * (16 * k1 + n2);
                wr[e] = wr[e + 1] = w.c;
                wi[e] = w.s;
                wi[e + 1] = -w.s;
            }
    }
};
template <int N> inline constexpr TwRowsD<N> kTwRowsD{};

// Shared pieces of orders 7 to 9 (R = 8, 16 or 32 rows k1): four columns
// of point x as interleaved values; the buffer held by columns,
// y[2*(R*n2 + k1)]: row k1 of the four columns 4q.. is stored value by
// value (lane stores: no shuffle), and each register of the second step
// (four consecutive k1 of one n2) is one whole load; the second step: per
// four rows k1, 16-point transforms over n2, outputs X[k1 + R*k2].
template <bool Split> VRX_INLINE CVd loadCols4d(const double* sre, const double* sim, int x) {
    if constexpr (Split) return CVd{simd::pairSplit4d(sre + x, sim + x)};
    else return CVd{simd::V<double>::load(sre + 2 * x)};
}
template <int R> VRX_INLINE void storeLanes4d(double* y, int q, int k1, simd::V<double>::R x) {
    double* p = y + 2 * (4 * R * q + k1);
    simd::storeLanes128d(p, p + 2 * R, p + 4 * R, p + 6 * R, x);
}
template <bool Inv, bool Split, int R> VRX_INLINE void rowStep16d(const double* y, double* dre, double* dim) {
    using W = simd::V<double>;
#pragma GCC unroll 1
    for (int j = 0; j < R / 4; ++j) {
        dft16d<Inv>([&](int n2) __attribute__((always_inline)) { return CVd{W::load(y + 2 * (R * n2 + 4 * j))}; },
                    [&](int k2, CVd v) __attribute__((always_inline)) {
                        const int x = R * k2 + 4 * j;
                        if constexpr (Split) simd::unpairSplit4d(dre + x, dim + x, v.v);
                        else W::store(dre + 2 * x, v.v);
                    });
    }
}

// ---- order 7 (double) as 8 x 16, the same two steps
//
// x[16*n1 + n2]: per four columns, 8-point transforms down the rows (two
// radix-4 butterflies over the even and odd rows, joined by W_8^k), the
// factors W_128^(k1*n2) and the lane stores as for order 8; then per four
// rows k1 the 16-point transforms over n2 give X[k1 + 8*k2]. Outputs leave
// as X[k], X[k + 4] for k = 0 .. 3.
template <bool Inv, class Ld, class St> VRX_INLINE void dft8d(Ld ld, St st) {
    using W = simd::V<double>;
    CVd e[4], o[4];
    bfly4d<Inv>(ld(0), ld(2), ld(4), ld(6), e);
    bfly4d<Inv>(ld(1), ld(3), ld(5), ld(7), o);
#pragma GCC unroll 4
    for (int k = 0; k < 4; ++k) {
        W::R s0, s1;
        if (k == 2) {
            // W_8^2 = -i: the rotation folded into the sums
            const W::R r = W::swapPair(o[k].v);
            s0 = W::fma(r, rotSign<Inv>(), e[k].v);
            s1 = W::fnma(r, rotSign<Inv>(), e[k].v);
        } else {
            const W::R t = k == 0 ? o[k].v : k == 1 ? w16d<Inv, 2>(o[k].v) : w16d<Inv, 6>(o[k].v);
            s0 = W::add(e[k].v, t);
            s1 = W::sub(e[k].v, t);
        }
        st(k, CVd{s0});
        st(k + 4, CVd{s1});
    }
}
// Orders 7 and 8: R = 8 or 16 rows of 16 columns.
template <bool Inv, bool Split, int R>
[[gnu::noinline]] void rows16d(const double* sre, const double* sim, double* dre, double* dim) {
    using W = simd::V<double>;
    alignas(64) double y[32 * R];
#pragma GCC unroll 1
    for (int q = 0; q < 4; ++q) {
        auto ld = [&](int n1) __attribute__((always_inline)) { return loadCols4d<Split>(sre, sim, 16 * n1 + 4 * q); };
        auto st = [&](int k1, CVd v) __attribute__((always_inline)) {
            const int e = 2 * (16 * k1 + 4 * q);
            W::R x = v.v;
            if (k1 != 0) x = cmul16<Inv>(x, W::load(kTwRowsD<16 * R>.wr + e), W::load(kTwRowsD<16 * R>.wi + e));
            storeLanes4d<R>(y, q, k1, x);
        };
        if constexpr (R == 8) dft8d<Inv>(ld, st);
        else dft16d<Inv>(ld, st);
    }
    rowStep16d<Inv, Split, R>(y, dre, dim);
}

// ---- order 9 (double) as 32 x 16, the same two steps
//
// x[16*n1 + n2]: per four columns, the 32-point transforms down the rows as
// E = 16 points of the even rows (kept in a stack buffer) and O = 16 points
// of the odd rows, X[k] = E[k] + W_32^k O[k] and X[k+16] = E[k] - W_32^k O[k]
// as O's outputs arrive; the factors W_512^(k1*n2), then each row's four
// columns stored one by one (lane stores: no shuffle) into a buffer held as
// [n2][k1]; per four rows k1, one whole load per n2 and the 16-point
// transforms over n2 give X[k1 + 32*k2].
template <bool Inv, int K> VRX_INLINE simd::V<double>::R w32d(simd::V<double>::R y) {
    using W = simd::V<double>;
    if constexpr (K % 2 == 0) return w16d<Inv, K / 2>(y);
    else {
        constexpr CosSin w = cosSinD(K, 32);
        return cmul16<Inv>(y, W::set1(w.c), W::set2(w.s, -w.s));
    }
}
// W_32^k times y, k < 16 (a constant after unrolling)
template <bool Inv> VRX_INLINE simd::V<double>::R w32sel(int k, simd::V<double>::R y) {
    switch (k) {
        case 1: return w32d<Inv, 1>(y);
        case 2: return w32d<Inv, 2>(y);
        case 3: return w32d<Inv, 3>(y);
        case 4: return w32d<Inv, 4>(y);
        case 5: return w32d<Inv, 5>(y);
        case 6: return w32d<Inv, 6>(y);
        case 7: return w32d<Inv, 7>(y);
        case 8: return w32d<Inv, 8>(y);
        case 9: return w32d<Inv, 9>(y);
        case 10: return w32d<Inv, 10>(y);
        case 11: return w32d<Inv, 11>(y);
        case 12: return w32d<Inv, 12>(y);
        case 13: return w32d<Inv, 13>(y);
        case 14: return w32d<Inv, 14>(y);
        case 15: return w32d<Inv, 15>(y);
        default: return y;
    }
}
template <bool Inv, bool Split>
[[gnu::noinline]] void order9d(const double* sre, const double* sim, double* dre, double* dim) {
    using W = simd::V<double>;
    alignas(64) double y[1024];
    alignas(64) double e[128];
#pragma GCC unroll 1
    for (int q = 0; q < 4; ++q) {
        auto ld = [&](int n1) __attribute__((always_inline)) { return loadCols4d<Split>(sre, sim, 16 * n1 + 4 * q); };
        dft16d<Inv>([&](int m) __attribute__((always_inline)) { return ld(2 * m); },
                    [&](int k, CVd v) __attribute__((always_inline)) { W::store(e + 8 * k, v.v); });
        // row k1 times its factors, its four columns stored one by one
        auto put = [&](int k1, W::R x) __attribute__((always_inline)) {
            const int t = 2 * (16 * k1 + 4 * q);
            if (k1 != 0) x = cmul16<Inv>(x, W::load(kTwRowsD<512>.wr + t), W::load(kTwRowsD<512>.wi + t));
            storeLanes4d<32>(y, q, k1, x);
        };
        dft16d<Inv>([&](int m) __attribute__((always_inline)) { return ld(2 * m + 1); },
                    [&](int k, CVd v) __attribute__((always_inline)) {
                        const W::R ek = W::load(e + 8 * k);
                        W::R s0, s1;
                        if (k == 8) {
                            // W_32^8 = -i: the rotation folded into the sums
                            const W::R r = W::swapPair(v.v);
                            s0 = W::fma(r, rotSign<Inv>(), ek);
                            s1 = W::fnma(r, rotSign<Inv>(), ek);
                        } else {
                            const W::R t = w32sel<Inv>(k, v.v);
                            s0 = W::add(ek, t);
                            s1 = W::sub(ek, t);
                        }
                        put(k, s0);
                        put(k + 16, s1);
                    });
    }
    rowStep16d<Inv, Split, 32>(y, dre, dim);
}

}  // namespace n0::fft
