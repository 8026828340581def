// Single-precision orders 8 to 11 as two sweeps over a stack buffer.
// Included by psfftcore.cpp inside its unnamed namespace, after the
// in-register kernels (fixW, sdft, mulFix, transposeReals) it uses.
#pragma once

// W_N^j (forward sign) for N up to 2048: from the constant table where its
// resolution holds it (even j*1024/N), else sin and cos by their series in
// long double at compile time, rounded once to float.
constexpr long double sinSeries(long double x) {
    long double t = x, s = x;
    for (int i = 1; i < 30; ++i) {
        t = -t * x * x / static_cast<long double>((2 * i) * (2 * i + 1));
        s += t;
    }
    return s;
}
constexpr Cx<float> fixWf(int j, int N) {
    j %= N;
    if (N <= 1024) return fixW<float>(j, N);
    if ((j * (2048 / N)) % 2 == 0) return fixW<float>(j * (2048 / N) / 2, 1024);
    // j/N = r/N + quad/4 with 0 < r < N/4: c and s of 2*pi*r/N, turned by quad quarters
    const int quad = j / (N / 4), r = j % (N / 4);
    const long double pi = 3.141592653589793238462643383279502884L;
    const long double x = 2 * pi * static_cast<long double>(r) / static_cast<long double>(N);
    const long double sv = sinSeries(x), cv = sinSeries(pi / 2 - x);
    long double c = 0, s = 0;
    switch (quad) {
        case 0: c = cv; s = sv; break;
        case 1: c = -sv; s = cv; break;
        case 2: c = -cv; s = -sv; break;
        default: c = sv; s = -cv; break;
    }
    return {static_cast<float>(c), static_cast<float>(-s)};
}

// The lane order of interleaved input in the first sweep: lane p holds
// column inLane(p) of its 16 values (lanes 2i and 2i + 1 columns i and
// 8 + i), as the loads of duplicated parts and one blend leave them.
constexpr int inLane(int p) { return (p >> 1) + 8 * (p & 1); }
// The lane order of interleaved input for rows of C columns: at 64 columns
// (order 11) the in-lane shuffles' order pairLane, split by pairLoad.
constexpr int inLaneOf(int p, int C) { return C == 64 ? pairLane<float>(p) : inLane(p); }
// 16 interleaved values to real and imaginary parts in the order inLane:
// the real (imaginary) parts of each half duplicated by the load itself,
// the two halves joined by a blend, so no shuffle is issued.
VRX_INLINE void dupLoad(const float* p, __m512& re, __m512& im) {
    using W = simd::V<float>;
    re = W::blend(0xAAAA, W::dupRe(W::load(p)), W::dupRe(W::load(p + 16)));
    im = W::blend(0xAAAA, W::dupIm(W::load(p)), W::dupIm(W::load(p + 16)));
}

// The lane of row r (0 .. 15) in the order pairLane, its inverse.
constexpr int pairLaneInv(int r) { return (r & 1) + 2 * ((r >> 3) & 1) + 4 * ((r >> 1) & 1) + 8 * ((r >> 2) & 1); }
static_assert(pairLaneInv(pairLane<float>(5)) == 5 && pairLaneInv(pairLane<float>(10)) == 10 && pairLaneInv(pairLane<float>(7)) == 7, "inverse lane order");

// Factors W_N^(k1*n2) of the first sweep: row k1, per 16 columns, the 16
// real parts then the 16 imaginary parts, lane p for column n2 =
// inLaneOf(p, C) (Perm) or p of those 16.
template <int M, bool Perm, int C> struct LaneTwF {
    static constexpr int V = 16, N = 1 << M;
    float f[2 * N];
    constexpr LaneTwF() : f{} {
        for (int k1 = 0; k1 < N / C; ++k1)
            for (int h = 0; h < C / V; ++h)
                for (int p = 0; p < V; ++p) {
                    const Cx<float> w = fixWf(k1 * (V * h + (Perm ? inLaneOf(p, C) : p)), N);
                    f[2 * (C * k1 + V * h) + p] = w.re;
                    f[2 * (C * k1 + V * h) + V + p] = w.im;
                }
    }
};
template <int M, bool Perm, int C> inline constexpr LaneTwF<M, Perm, C> kLaneTwF{};

// Per-lane factors W_C^(c*q), q = 1 .. Q-1, of the row transforms' first
// step: per q, 16 real parts then 16 imaginary parts, lane p for column
// c = inLaneOf(p, C) (Perm, the lane order of interleaved input) or c = p.
template <int C, bool Perm> struct LaneFoldTw {
    static constexpr int V = 16, Q = C / V;
    float f[Q > 1 ? 2 * V * (Q - 1) : 1];
    constexpr LaneFoldTw() : f{} {
        for (int q = 1; q < Q; ++q)
            for (int p = 0; p < V; ++p) {
                const Cx<float> w = fixW<float>(q * (Perm ? inLaneOf(p, C) : p), C);
                f[2 * V * (q - 1) + p] = w.re;
                f[2 * V * (q - 1) + V + p] = w.im;
            }
    }
};
template <int C, bool Perm> inline constexpr LaneFoldTw<C, Perm> kLaneFoldTw{};

// A transform of N = R*C floats, R = 32 rows of C = 16*Q columns (Q = 1
// or 4), or 16 or 64 rows of 16 (orders 8 and 10), x[C*n1 + n2], in two
// sweeps over a stack buffer y. Sweep one, per group h of 16 columns:
// transforms of length R down the rows, a radix-4 step over rows n1 + Lj
// first (L = R/4, j = 0 .. 3), whose outputs 1 to 3, times W_R^(n1*j),
// wait in the stack while output 0 runs its L-point transforms down the
// registers (the operations of sdft<R>; at 64 rows all four outputs wait
// and each runs a 16-point transform loaded from the stack); they give
// rows k1 = j + 4k, each multiplied by W_N^(k1*n2). At 64 columns the last
// group also takes the first step of the row transforms, which pairs
// columns c + 16h (h = 0 .. 3) and so lies within lanes: per row k1 the
// groups stored before are loaded again, a 4-point transform runs across
// the groups, its output q is multiplied by W_C^(c*q) lane by lane and
// stored in the slot of group q. Sweep two, per 16 rows and per q: a
// transpose of the 16 x 16 block and a 16-point transform give
// X[k1 + R*(Q*k + q)], 16 adjacent outputs per register, with no trip
// through the stack between its transpose and its stores. With 16 columns
// y holds half rows (put below) and the transposes pair columns by loads
// of duplicated floats; at 64 columns y holds whole rows, gathered by
// 128-bit pieces.
template <int M, int Q, bool Inv, bool SplitIn, Out O>
[[gnu::noinline]] void twoSweepF(const SrcRef<float>& src, float* out, float* re, float* im) {
    using G = GVec<float>;
    using W = simd::V<float>;
    using Pq = GOps<float>;
    constexpr int V = 16, C = 16 * Q, N = 1 << M, R = N / C, L = R / 4;
    static_assert((R == 32 && (Q == 1 || Q == 4)) || ((R == 16 || R == 64) && Q == 1), "32 rows of 16 or 64 columns, or 16 or 64 rows of 16");
    constexpr bool Halves = Q == 1;
    // At 64 columns the rows of y and of the source both lie 512 bytes
    // apart, and a load whose address matches an older store's in bits 0
    // to 11 waits for that store: y (and z after it) starts 256 bytes past
    // the source modulo 1 KiB (to 64 bytes), so that the stores of a group
    // of columns land half a row away from the loads of the same group.
    // Slack: 256 floats, room for any such start.
    constexpr int Zn = 2 * V * (L == 16 ? 4 : 3) * L, Slack = Halves ? 0 : 256;
    alignas(64) float buf[2 * N + Zn + Slack];
    float* y = buf;
    if constexpr (Slack > 0) {
        const uintptr_t from = addr(SplitIn ? static_cast<const void*>(src.re) : static_cast<const void*>(src.cx));
        y += ((from + 256 - addr(buf)) & 1023 & ~uintptr_t(63)) / sizeof(float);
    }
    float* z = y + 2 * N;
    const float* ftw = kLaneTwF<M, !SplitIn, C>.f;
    const float* fold = kLaneFoldTw<C, !SplitIn>.f;
    auto row = [&](int64_t e) __attribute__((always_inline)) {
        G a;
        if constexpr (SplitIn) a = {W::load(src.re + e), W::load(src.im + e)};
        else if constexpr (C == 64) pairLoad(reinterpret_cast<const float*>(src.cx + e), a.re, a.im);
        else dupLoad(reinterpret_cast<const float*>(src.cx + e), a.re, a.im);
        return a;
    };
    auto put = [&](int k1, int q, G v) __attribute__((always_inline)) {
        if constexpr (!Halves) {
            v.store(y + 2 * C * k1 + 2 * V * q);
            return;
        }
        const int l = O == Out::Cx ? pairLaneInv(k1 & 15) : k1 & 15;
        float* p = y + 2 * 256 * (Q * (k1 >> 4) + q) + 16 * ((l & 3) + 4 * (l >> 3)) + 8 * ((l >> 2) & 1);
        simd::storeHalf8<0>(p, v.re);
        simd::storeHalf8<1>(p + 128, v.re);
        simd::storeHalf8<0>(p + 256, v.im);
        simd::storeHalf8<1>(p + 384, v.im);
    };
    if constexpr (L == 16) {
        // 64 rows: all four outputs of the radix-4 step wait in z, then
        // per output a 16-point transform down the rows
#pragma GCC unroll 16
        for (int n1 = 0; n1 < L; ++n1) {
            G a[4];
#pragma GCC unroll 4
            for (int j = 0; j < 4; ++j) a[j] = row(C * (n1 + L * j));
            sdft<float, 4, Inv>(a);
#pragma GCC unroll 4
            for (int j = 0; j < 4; ++j) mulFix<float, Inv>(a[j], n1 * j, R).store(z + 2 * V * (j * L + n1));
        }
#pragma GCC unroll 1
        for (int j = 0; j < 4; ++j)
            sdft16S<float, Inv>([&](int n) __attribute__((always_inline)) { return G::load(z + 2 * V * (j * L + n)); },
                                [&](int k, G v) __attribute__((always_inline)) {
                                    const int k1 = j + 4 * k;
                                    put(k1, 0, k1 == 0 ? v : Pq::template mul<Inv>(v, ftw + 2 * C * k1));
                                });
    } else
#pragma GCC unroll 1
    for (int h = 0; h < Q; ++h) {
        G u[L];
#pragma GCC unroll 8
        for (int n1 = 0; n1 < L; ++n1) {
            G a[4];
#pragma GCC unroll 4
            for (int j = 0; j < 4; ++j) a[j] = row(C * (n1 + L * j) + V * h);
            sdft<float, 4, Inv>(a);
            u[n1] = a[0];
#pragma GCC unroll 4
            for (int j = 1; j < 4; ++j) mulFix<float, Inv>(a[j], n1 * j, R).store(z + 2 * V * ((j - 1) * L + n1));
        }
        const bool last = h == Q - 1;
#pragma GCC unroll 1
        for (int j = 0; j < 4; ++j) {
            if (j > 0)
#pragma GCC unroll 8
                for (int n1 = 0; n1 < L; ++n1) u[n1] = G::load(z + 2 * V * ((j - 1) * L + n1));
            sdft<float, L, Inv>(u);
#pragma GCC unroll 8
            for (int k = 0; k < L; ++k) {
                const int k1 = j + 4 * k;
                float* yr = y + 2 * C * k1;
                const float* fr = ftw + 2 * C * k1;
                if (!last) {
                    (k1 == 0 ? u[k] : Pq::template mul<Inv>(u[k], fr + 2 * V * h)).store(yr + 2 * V * h);
                    continue;
                }
                G g[Q];
#pragma GCC unroll 4
                for (int i = 0; i < Q - 1; ++i) g[i] = G::load(yr + 2 * V * i);
                g[Q - 1] = k1 == 0 ? u[k] : Pq::template mul<Inv>(u[k], fr + 2 * V * (Q - 1));
                if constexpr (Q == 4) sdft<float, 4, Inv>(g);
                put(k1, 0, g[0]);
#pragma GCC unroll 4
                for (int q = 1; q < Q; ++q) put(k1, q, Pq::template mul<Inv>(g[q], fold + 2 * V * (q - 1)));
            }
        }
    }
#pragma GCC unroll 1
    for (int b = 0; b < R / V; ++b) {
#pragma GCC unroll 1
        for (int q = 0; q < Q; ++q) {
            G c[16];
            if constexpr (!Halves) {
                // tr[p] lane e = row(e) column p: the 128-bit pieces of four
                // columns of rows e = 4L + j gathered into lanes L, then
                // transposed within the lanes
                typename W::R tr[V], ti[V];
#pragma GCC unroll 2
                for (int part = 0; part < 2; ++part)
#pragma GCC unroll 4
                    for (int g = 0; g < 4; ++g) {
                        __m512 m[4];
#pragma GCC unroll 4
                        for (int j = 0; j < 4; ++j) {
                            auto at = [&](int e) __attribute__((always_inline)) {
                                const int k1 = V * b + (O == Out::Cx ? pairLane<float>(e) : e);
                                return y + 2 * (C * k1 + V * q) + V * part + 4 * g;
                            };
                            m[j] = simd::load4x128(at(j), at(4 + j), at(8 + j), at(12 + j));
                        }
                        simd::transpose4InLanes(m, (part ? ti : tr) + 4 * g);
                    }
#pragma GCC unroll 16
                for (int p = 0; p < V; ++p) c[SplitIn ? p : inLaneOf(p, C)] = {tr[p], ti[p]};
            } else {
                // tr[p] lane l = column p of the row of lane l: the even
                // (odd) columns of chunks u and u + 1 paired by duplicating
                // loads and a blend, then 64-bit pairs and 128-bit blocks
                // exchanged between four registers
                typename W::R tr[V], ti[V];
#pragma GCC unroll 2
                for (int part = 0; part < 2; ++part)
#pragma GCC unroll 2
                    for (int hh = 0; hh < 2; ++hh) {
                        const float* base = y + 2 * 256 * (Q * b + q) + 256 * part + 128 * hh;
                        __m512 x[4], w[4];
#pragma GCC unroll 4
                        for (int r = 0; r < 4; ++r) {
                            const float* pa = base + 16 * (2 * (r & 1) + 4 * (r >> 1));
                            dupLoad(pa, x[r], w[r]);
                        }
                        typename W::R* o = (part ? ti : tr) + 8 * hh;
#pragma GCC unroll 2
                        for (int s0 = 0; s0 < 2; ++s0) {
                            const __m512 px0 = s0 ? simd::unpackHi64(x[0], x[1]) : simd::unpackLo64(x[0], x[1]);
                            const __m512 px1 = s0 ? simd::unpackHi64(x[2], x[3]) : simd::unpackLo64(x[2], x[3]);
                            const __m512 pw0 = s0 ? simd::unpackHi64(w[0], w[1]) : simd::unpackLo64(w[0], w[1]);
                            const __m512 pw1 = s0 ? simd::unpackHi64(w[2], w[3]) : simd::unpackLo64(w[2], w[3]);
                            o[2 * s0] = simd::blocks128<0, 2, 0, 2>(px0, px1);
                            o[2 * s0 + 4] = simd::blocks128<1, 3, 1, 3>(px0, px1);
                            o[2 * s0 + 1] = simd::blocks128<0, 2, 0, 2>(pw0, pw1);
                            o[2 * s0 + 5] = simd::blocks128<1, 3, 1, 3>(pw0, pw1);
                        }
                    }
#pragma GCC unroll 16
                for (int p = 0; p < V; ++p) c[SplitIn ? p : inLaneOf(p, C)] = {tr[p], ti[p]};
            }
            sdft16S<float, Inv>([&](int n) __attribute__((always_inline)) { return c[n]; },
                                [&](int k, G v) __attribute__((always_inline)) {
                                    const int64_t e = V * b + R * (Q * k + q);
                                    if constexpr (O == Out::Cx) pairStore(out + 2 * e, v.re, v.im);
                                    else Pq::template put<O>(v, out, re, im, e);
                                });
        }
    }
}
