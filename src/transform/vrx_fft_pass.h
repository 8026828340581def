// The twiddled passes of the FFT, shared by the radix engine and the outer
// passes of the large path. Data between passes is in the group form: G
// real parts then G imaginary parts (G = 8 for float, 4 for double).
//
// A pass of radix r merges r sub-blocks of S values, stored one behind the
// other, into blocks of r*S. The sub-blocks stand in bit-reversed order of
// their index j (0,2,1,3 for radix 4; 0,4,2,6,1,5,3,7 for radix 8), as the
// bit-reversed input leaves them. Position k (0 <= k < S) of sub-block j is
// multiplied by the factor w^(j*k), w = exp(-2*pi*i/(r*S)), taken from the
// table: for each group of G positions, for j = 1 .. r-1, G real parts then
// G imaginary parts. Output position k + q*S of a block is X[q] of the
// r-point transform of position k: natural order within the block.
// The inverse direction conjugates the factors in its arithmetic.
#pragma once

#include "vrx_fft_simd.h"

namespace n0::fft {

// Where a pass writes: the group form, interleaved complex values, the
// real and imaginary parts into two separate arrays, or interleaved values
// from groups whose lanes stand in the order pairLane.
enum class Out { Group, Cx, Split, Paired };

template <class T> struct GOps {
    using G = GVec<T>;
    static constexpr int V = G::V;
    // the real parts on the add unit, the imaginary parts on the multiply unit
    static VRX_INLINE G add(G a, G b) { return {G::add(a.re, b.re), G::addM(a.im, b.im)}; }
    static VRX_INLINE G sub(G a, G b) { return {G::sub(a.re, b.re), G::subM(a.im, b.im)}; }
    // a*x (forward) or a*conj(x) (inverse)
    template <bool Inv> static VRX_INLINE G mulG(G a, G x) {
        if constexpr (!Inv) return {G::sub(G::mulv(a.re, x.re), G::mulv(a.im, x.im)), G::add(G::mulv(a.im, x.re), G::mulv(a.re, x.im))};
        else return {G::add(G::mulv(a.re, x.re), G::mulv(a.im, x.im)), G::sub(G::mulv(a.im, x.re), G::mulv(a.re, x.im))};
    }
    // a + (-i)*d (forward) or a + i*d (inverse), and the difference
    template <bool Inv> static VRX_INLINE G addRot(G a, G d) {
        if constexpr (!Inv) return {G::add(a.re, d.im), G::sub(a.im, d.re)};
        else return {G::sub(a.re, d.im), G::add(a.im, d.re)};
    }
    template <bool Inv> static VRX_INLINE G subRot(G a, G d) {
        if constexpr (!Inv) return {G::sub(a.re, d.im), G::add(a.im, d.re)};
        else return {G::add(a.re, d.im), G::sub(a.im, d.re)};
    }
    // the same with x as V real parts then V imaginary parts in memory
    template <bool Inv> static VRX_INLINE G mul(G a, const T* w) { return mulG<Inv>(a, G::load(w)); }
    // times exp(-i*pi/4) (forward) or exp(+i*pi/4) (inverse)
    template <bool Inv> static VRX_INLINE G w8(G a, T c) {
        const auto cv = G::splat(c);
        if constexpr (!Inv) return {G::mulv(G::add(a.re, a.im), cv), G::mulv(G::sub(a.im, a.re), cv)};
        else return {G::mulv(G::sub(a.re, a.im), cv), G::mulv(G::add(a.im, a.re), cv)};
    }
    template <Out O> static VRX_INLINE void put(G v, T* out, T* re, T* im, int64_t e) {
        if constexpr (O == Out::Group) v.store(out + 2 * e);
        else if constexpr (O == Out::Cx) v.storeCx(out + 2 * e);
        else if constexpr (O == Out::Paired) v.storePaired(out + 2 * e);
        else { G::storeHalf(re + e, v.re); G::storeHalf(im + e, v.im); }
    }
};

// cos(pi/4) of the constant table, the factor of the eighth turns.
template <class T> VRX_INLINE T sqrtHalf() { return fixTwiddle<T>(1, 8).re; }

// Multiplies n values by s in place (the norm scaling).
template <class T> VRX_INLINE void scaleBy(T* p, int64_t n, T s) {
    if constexpr (sizeof(T) == 4) N0(vrxsMulC_32f_I)(s, p, static_cast<int>(n));
    else N0(vrxsMulC_64f_I)(s, p, static_cast<int>(n));
}

// Radix-4 pass over nBlocks blocks of 4S values. in/out index complex
// values; with Out::Split, re/im receive the values instead of out.
template <class T, bool Inv, Out O>
void pass4(const Cx<T>* in, Cx<T>* out, T* re, T* im, int64_t S, int64_t nBlocks, const Cx<T>* tw) {
    using P = GOps<T>;
    using G = typename P::G;
    constexpr int V = P::V;
    const T* tf = reinterpret_cast<const T*>(tw);
    const T* src = reinterpret_cast<const T*>(in);
    T* dst = reinterpret_cast<T*>(out);
    for (int64_t b = 0; b < nBlocks; ++b) {
        const int64_t e0 = b * 4 * S;
        const T* t = tf;
        for (int64_t k = 0; k < S; k += V, t += 6 * V) {
            const T* p = src + 2 * (e0 + k);
            G b0 = G::load(p), b1 = G::load(p + 2 * S), b2 = G::load(p + 4 * S), b3 = G::load(p + 6 * S);
            // memory slots 0,1,2,3 hold j = 0,2,1,3
            G c1 = P::template mul<Inv>(b1, t + 2 * V), c2 = P::template mul<Inv>(b2, t), c3 = P::template mul<Inv>(b3, t + 4 * V);
            G u0 = P::add(b0, c1), u1 = P::sub(b0, c1), v0 = P::add(c2, c3), d = P::sub(c2, c3);
            const int64_t e = e0 + k;
            P::template put<O>(P::add(u0, v0), dst, re, im, e);
            P::template put<O>(P::template addRot<Inv>(u1, d), dst, re, im, e + S);
            P::template put<O>(P::sub(u0, v0), dst, re, im, e + 2 * S);
            P::template put<O>(P::template subRot<Inv>(u1, d), dst, re, im, e + 3 * S);
        }
    }
}

// The radix-8 butterfly of one group of positions: c[j] holds sub-block j
// (natural order), already multiplied by its factors; X[q] goes to e + q*S.
template <class T, bool Inv, Out O>
VRX_INLINE void bfly8Group(const GVec<T>* c, T* dst, T* re, T* im, int64_t e, int64_t S, T sqrtHalf) {
    using P = GOps<T>;
    using G = typename P::G;
    // even half: 4-point transform of j = 0, 2, 4, 6
    G t0 = P::add(c[0], c[4]), t1 = P::sub(c[0], c[4]), t2 = P::add(c[2], c[6]), t3 = P::sub(c[2], c[6]);
    G E0 = P::add(t0, t2), E1 = P::template addRot<Inv>(t1, t3), E2 = P::sub(t0, t2), E3 = P::template subRot<Inv>(t1, t3);
    // odd half: j = 1, 3, 5, 7, then the factors exp(-2*pi*i*q/8)
    G s0 = P::add(c[1], c[5]), s1 = P::sub(c[1], c[5]), s2 = P::add(c[3], c[7]), s3 = P::sub(c[3], c[7]);
    G O0 = P::add(s0, s2), O2 = P::sub(s0, s2);
    G O1 = P::template w8<Inv>(P::template addRot<Inv>(s1, s3), sqrtHalf);
    G O3 = P::template w8<Inv>(P::template subRot<Inv>(s1, s3), sqrtHalf);
    P::template put<O>(P::add(E0, O0), dst, re, im, e);
    P::template put<O>(P::add(E1, O1), dst, re, im, e + S);
    P::template put<O>(P::template addRot<Inv>(E2, O2), dst, re, im, e + 2 * S);
    P::template put<O>(P::template addRot<Inv>(E3, O3), dst, re, im, e + 3 * S);
    P::template put<O>(P::sub(E0, O0), dst, re, im, e + 4 * S);
    P::template put<O>(P::sub(E1, O1), dst, re, im, e + 5 * S);
    P::template put<O>(P::template subRot<Inv>(E2, O2), dst, re, im, e + 6 * S);
    P::template put<O>(P::template subRot<Inv>(E3, O3), dst, re, im, e + 7 * S);
}

// Radix-8 pass over nBlocks blocks of 8S values.
template <class T, bool Inv, Out O>
void pass8(const Cx<T>* in, Cx<T>* out, T* re, T* im, int64_t S, int64_t nBlocks, const Cx<T>* tw, T sqrtHalf) {
    using P = GOps<T>;
    using G = typename P::G;
    constexpr int V = P::V;
    const T* tf = reinterpret_cast<const T*>(tw);
    const T* src = reinterpret_cast<const T*>(in);
    T* dst = reinterpret_cast<T*>(out);
    static constexpr int kRev3[8] = {0, 4, 2, 6, 1, 5, 3, 7};
    for (int64_t b = 0; b < nBlocks; ++b) {
        const int64_t e0 = b * 8 * S;
        const T* t = tf;
        for (int64_t k = 0; k < S; k += V, t += 14 * V) {
            const T* p = src + 2 * (e0 + k);
            // memory slot q holds j = rev3(q); factor j sits at t + 2V(j-1)
            G c[8];
            c[0] = G::load(p);
            for (int q = 1; q < 8; ++q) c[kRev3[q]] = P::template mul<Inv>(G::load(p + 2 * q * S), t + 2 * V * (kRev3[q] - 1));
            bfly8Group<T, Inv, O>(c, dst, re, im, e0 + k, S, sqrtHalf);
        }
    }
}

}  // namespace n0::fft
