// The DFT plan of any length, one template for both widths: plan choice and
// sizes (one routine for the size query and Init), table building, and the
// transforms of every path. psdfts.cpp and psdftd.cpp instantiate it with a
// traits class Tr that names the exported functions of their width.
#pragma once

#include "vrx_dft.h"
#include "vrx_fft_calls.h"
#include "simd/simd.h"

#include <math.h>
#include <string.h>

#include <type_traits>

namespace n0::dft {

enum class Kind { C, Cs, R };

constexpr long double kTwoPiL = 6.283185307179586476925286766559005768L;
constexpr int kConvTab[] = {128, 144, 160, 192, 200, 256, 288, 320, 384, 400, 512, 576, 640, 768, 800, 1024,
                            1152, 1280, 1536, 1600, 2048, 2304, 2560, 3072, 3200, 4096, 4608, 5120, 6144, 6400, 8192};

// M of the convolution path for a length n.
inline int convLength(int n) {
    const int64_t L = 2 * int64_t(n) - 1;
    if (L <= 8192) {
        for (int m : kConvTab)
            if (m >= L) return m;
    }
    int64_t m = 1;
    while (m < L) m <<= 1;
    return static_cast<int>(m);
}

inline bool isPow2(int n) { return (n & (n - 1)) == 0; }
inline int log2i(int n) { return 31 - __builtin_clz(static_cast<unsigned>(n)); }

// The outcome of the plan choice.
struct Choice {
    int path = 0;
    int n = 0;          // length the path runs
    bool half = false;  // real plan of even length on the half length
    bool realOdd = false;
    int cnt = 0;
    int f[kMaxRec + 2] = {};
    int M = 0, order = 0;
    int64_t is = 0, ii = 0, iw = 0;  // inner plan sizes (FFT, or the length-M DFT)
    PfSizes pf{};
    int64_t spec = 0, init = 0, work = 0;
};

// Element-access of complex data: interleaved (stride 2) or split arrays.
template <class T> struct CRef {
    T* re;
    T* im;
    int s;
    VRX_INLINE Cx<T> get(int64_t i) const { return {re[i * s], im[i * s]}; }
    VRX_INLINE void set(int64_t i, Cx<T> v) const { re[i * s] = v.re; im[i * s] = v.im; }
};

template <class T> VRX_INLINE Cx<T> cmul(Cx<T> a, Cx<T> b) { return {a.re * b.re - a.im * b.im, a.re * b.im + a.im * b.re}; }
template <class T> VRX_INLINE Cx<T> conj(Cx<T> a) { return {a.re, -a.im}; }

// ------------------------------------------------------------ real 12 and 15
// Forward real transforms of 12 and 15 points in scalar registers, as
// prime-factor index maps with no twiddles: 12 = 3 x 4 reads the groups
// x[(4a + 3b) mod 12] (b = 0..3) through four real 3-point transforms,
// then a real 4-point transform of their sums and a complex one of their
// first bins (bins 2 and 5 are conjugates of its outputs); 15 = 5 x 3
// reads x[(3a + 5b) mod 15] through three real 5-point transforms, then a
// real 3-point transform of their sums and complex 3-point transforms of
// bins 1 and 2 (bins 3 and 4 from the conjugates). Bins 0 .. N/2 go
// straight to the requested form, times scale when it is not 0.
template <class T> struct RealSmall {
    static constexpr T kS3 = T(0.866025403784438646763723170752936183L);   // sin(2pi/3)
    static constexpr T kC1 = T(0.309016994374947424102293417182819059L);   // cos(2pi/5)
    static constexpr T kC2 = T(-0.809016994374947424102293417182819059L);  // cos(4pi/5)
    static constexpr T kS1 = T(0.951056516295153572116439333379382143L);   // sin(2pi/5)
    static constexpr T kS2 = T(0.587785252292473129168705954639072769L);   // sin(4pi/5)

    // bins 0 .. N/2 (re[k], im[k]) into the form F; the imaginary parts of
    // bin 0 and, for even N, bin N/2 are zeros
    template <int N, fft::Form F> static VRX_INLINE void putF(const T* r, const T* q, T* d) {
        constexpr int h = N / 2;
        if constexpr (F == fft::Form::CCS) {
            d[0] = r[0];
            d[1] = T(0);
            VRX_UNROLL(8)
            for (int k = 1; k <= h; ++k) {
                d[2 * k] = r[k];
                d[2 * k + 1] = (N % 2 == 0 && k == h) ? T(0) : q[k];
            }
        } else {
            // Pack: R0, R1, I1, ... (R(N/2) last for even N); Perm: R(N/2) second
            constexpr int o = (N % 2 == 0 && F == fft::Form::Perm) ? 1 : 0;
            constexpr int top = N % 2 == 0 ? h - 1 : h;
            d[0] = r[0];
            if constexpr (o) d[1] = r[h];
            VRX_UNROLL(8)
            for (int k = 1; k <= top; ++k) {
                d[2 * k - 1 + o] = r[k];
                d[2 * k + o] = q[k];
            }
            if constexpr (N % 2 == 0 && !o) d[N - 1] = r[h];
        }
    }
    template <int N> static VRX_INLINE void put(T* re, T* im, T* d, T scale, fft::Form f) {
        if (scale != T(0))
            VRX_UNROLL(8)
            for (int k = 0; k <= N / 2; ++k) {
                re[k] *= scale;
                im[k] *= scale;
            }
        if (f == fft::Form::CCS) putF<N, fft::Form::CCS>(re, im, d);
        else if (f == fft::Form::Pack) putF<N, fft::Form::Pack>(re, im, d);
        else putF<N, fft::Form::Perm>(re, im, d);
    }

    static void fwd12(const T* x, T* d, T scale, fft::Form f) {
        // four real 3-point transforms: sum P, first bin (u, w)
        T P[4], u[4], w[4];
        constexpr int idx[4][3] = {{0, 4, 8}, {3, 7, 11}, {6, 10, 2}, {9, 1, 5}};
        for (int b = 0; b < 4; ++b) {
            const T a0 = x[idx[b][0]], a1 = x[idx[b][1]], a2 = x[idx[b][2]];
            const T t = a1 + a2;
            P[b] = a0 + t;
            u[b] = a0 - T(0.5) * t;
            w[b] = kS3 * (a2 - a1);
        }
        T re[7], im[7];
        const T p02 = P[0] + P[2], p13 = P[1] + P[3];
        re[0] = p02 + p13;
        im[0] = T(0);
        re[6] = p02 - p13;
        im[6] = T(0);
        re[3] = P[0] - P[2];
        im[3] = P[1] - P[3];
        const T su02 = u[0] + u[2], su13 = u[1] + u[3], sw02 = w[0] + w[2], sw13 = w[1] + w[3];
        const T er = u[0] - u[2], ei = w[0] - w[2], fr = u[1] - u[3], fi = w[1] - w[3];
        re[4] = su02 + su13;
        im[4] = sw02 + sw13;
        re[2] = su02 - su13;
        im[2] = sw13 - sw02;
        re[1] = er + fi;
        im[1] = ei - fr;
        re[5] = er - fi;
        im[5] = -(ei + fr);
        put<12>(re, im, d, scale, f);
    }

    static void fwd15(const T* x, T* d, T scale, fft::Form f) {
        // three real 5-point transforms: sum P, bins 1 and 2 (B, C)
        T P[3], Br[3], Bi[3], Cr[3], Ci[3];
        constexpr int idx[3][5] = {{0, 3, 6, 9, 12}, {5, 8, 11, 14, 2}, {10, 13, 1, 4, 7}};
        for (int b = 0; b < 3; ++b) {
            const T a0 = x[idx[b][0]], a1 = x[idx[b][1]], a2 = x[idx[b][2]], a3 = x[idx[b][3]], a4 = x[idx[b][4]];
            const T t1 = a1 + a4, t2 = a2 + a3, d1 = a4 - a1, d2 = a3 - a2;
            P[b] = (a0 + t1) + t2;
            Br[b] = (a0 + kC1 * t1) + kC2 * t2;
            Cr[b] = (a0 + kC2 * t1) + kC1 * t2;
            Bi[b] = kS1 * d1 + kS2 * d2;
            Ci[b] = kS2 * d1 - kS1 * d2;
        }
        T re[8], im[8];
        const T ps = P[1] + P[2];
        re[0] = P[0] + ps;
        im[0] = T(0);
        re[5] = P[0] - T(0.5) * ps;
        im[5] = kS3 * (P[1] - P[2]);
        // complex 3-point transforms of B and C: Z0 = v0 + s, Z1,2 = m -/+ i r
        const auto three = [](const T* vr, const T* vi, T& z0r, T& z0i, T& mr, T& mi, T& rr, T& ri) {
            const T sr = vr[1] + vr[2], si = vi[1] + vi[2];
            z0r = vr[0] + sr;
            z0i = vi[0] + si;
            mr = vr[0] - T(0.5) * sr;
            mi = vi[0] - T(0.5) * si;
            rr = kS3 * (vr[1] - vr[2]);
            ri = kS3 * (vi[1] - vi[2]);
        };
        T bz0r, bz0i, bmr, bmi, brr, bri, cz0r, cz0i, cmr, cmi, crr, cri;
        three(Br, Bi, bz0r, bz0i, bmr, bmi, brr, bri);
        three(Cr, Ci, cz0r, cz0i, cmr, cmi, crr, cri);
        re[1] = bmr + bri;
        im[1] = bmi - brr;
        re[6] = bz0r;
        im[6] = bz0i;
        re[4] = bmr - bri;
        im[4] = -(bmi + brr);
        re[2] = cmr - cri;
        im[2] = cmi + crr;
        re[7] = cmr + cri;
        im[7] = cmi - crr;
        re[3] = cz0r;
        im[3] = -cz0i;
        put<15>(re, im, d, scale, f);
    }

    // bins 0 .. N/2 of the form (the zero imaginary parts are not read)
    template <int N> static VRX_INLINE void get(const T* s, T* re, T* im, fft::Form f) {
        constexpr int h = N / 2;
        re[0] = s[0];
        im[0] = T(0);
        const int o = (f == fft::Form::CCS || (N % 2 == 0 && f == fft::Form::Perm)) ? 1 : 0;
        constexpr int top = N % 2 == 0 ? h - 1 : h;
        for (int k = 1; k <= top; ++k) {
            re[k] = s[2 * k - 1 + o];
            im[k] = s[2 * k + o];
        }
        if (N % 2 == 0) {
            re[h] = f == fft::Form::CCS ? s[N] : f == fft::Form::Perm ? s[1] : s[N - 1];
            im[h] = T(0);
        }
    }
    static VRX_INLINE void out(T* d, int i, T v, T scale) { d[i] = scale != T(0) ? v * scale : v; }

    // The inverses run the same maps backwards: the 4- (3-) point sums over
    // the bins of each residue first, then the real 3- (5-) point sums, each
    // value stored once where it belongs (all of the source is read first).
    static void inv12(const T* sp, T* d, T scale, fft::Form f) {
        T re[7], im[7];
        get<12>(sp, re, im, f);
        // residue 0 of 3: bins 0, 9, 6, 3 (real sums G0[b])
        const T s06 = re[0] + re[6], d06 = re[0] - re[6], r3 = re[3] + re[3], i3 = im[3] + im[3];
        const T G0[4] = {s06 + r3, d06 + i3, s06 - r3, d06 - i3};
        // residue 1: bins 4, 1, 10, 7 = (X4, X1, conj X2, conj X5)
        const T acr = re[4] + re[2], aci = im[4] - im[2], bdr = re[1] + re[5], bdi = im[1] - im[5];
        const T emr = re[4] - re[2], emi = im[4] + im[2], fmr = re[1] - re[5], fmi = im[1] + im[5];
        const T gr[4] = {acr + bdr, emr - fmi, acr - bdr, emr + fmi};
        const T gi[4] = {aci + bdi, emi + fmr, aci - bdi, emi - fmr};
        constexpr int idx[4][3] = {{0, 4, 8}, {3, 7, 11}, {6, 10, 2}, {9, 1, 5}};
        constexpr T kR3 = T(1.73205080756887729352744634150587237L);  // 2 sin(2pi/3)
        for (int b = 0; b < 4; ++b) {
            const T t = G0[b] - gr[b], q = kR3 * gi[b];
            out(d, idx[b][0], G0[b] + (gr[b] + gr[b]), scale);
            out(d, idx[b][1], t - q, scale);
            out(d, idx[b][2], t + q, scale);
        }
    }

    static void inv15(const T* sp, T* d, T scale, fft::Form f) {
        T re[8], im[8];
        get<15>(sp, re, im, f);
        // residue 0 of 5: bins 0, 10, 5 (real sums)
        const T r5 = re[5] + re[5], t0 = re[0] - re[5], q0 = (kS3 + kS3) * im[5];
        const T G0[3] = {re[0] + r5, t0 + q0, t0 - q0};
        // residues 1 and 2: complex 3-point sums of (X6, X1, conj X4) and (conj X3, X7, X2)
        const auto three = [](T y0r, T y0i, T y1r, T y1i, T y2r, T y2i, T* gr, T* gi) {
            const T sr = y1r + y2r, si = y1i + y2i;
            const T mr = y0r - T(0.5) * sr, mi = y0i - T(0.5) * si;
            const T rr = kS3 * (y1r - y2r), ri = kS3 * (y1i - y2i);
            gr[0] = y0r + sr;
            gi[0] = y0i + si;
            gr[1] = mr - ri;
            gi[1] = mi + rr;
            gr[2] = mr + ri;
            gi[2] = mi - rr;
        };
        T g1r[3], g1i[3], g2r[3], g2i[3];
        three(re[6], im[6], re[1], im[1], re[4], -im[4], g1r, g1i);
        three(re[3], -im[3], re[7], im[7], re[2], im[2], g2r, g2i);
        constexpr int idx[3][5] = {{0, 3, 6, 9, 12}, {5, 8, 11, 14, 2}, {10, 13, 1, 4, 7}};
        constexpr T c1 = kC1 + kC1, c2 = kC2 + kC2, s1 = kS1 + kS1, s2 = kS2 + kS2;
        for (int b = 0; b < 3; ++b) {
            const T al = c1 * g1r[b] + c2 * g2r[b], be = s1 * g1i[b] + s2 * g2i[b];
            const T ga = c2 * g1r[b] + c1 * g2r[b], de = s2 * g1i[b] - s1 * g2i[b];
            out(d, idx[b][0], G0[b] + ((g1r[b] + g2r[b]) + (g1r[b] + g2r[b])), scale);
            out(d, idx[b][1], G0[b] + (al - be), scale);
            out(d, idx[b][4], G0[b] + (al + be), scale);
            out(d, idx[b][2], G0[b] + (ga - de), scale);
            out(d, idx[b][3], G0[b] + (ga + de), scale);
        }
    }
};

// The single-precision forward kernels of 12 and 15 in one register of 16
// lanes: the first stage holds the short transforms of every group in lanes
// (quantity, group), the second computes each lane of the requested form
// from lanes picked out of those, with signs and coefficients per lane.
// Products by +-1 are exact and the signs are applied where the plain
// formulas negate, so every output is the same sum, rounded the same way,
// signed zeros included, as in RealSmall. (In double, two registers and
// two-source permutes ran slower than the scalar kernels.)
template <class T> struct RealSmallVec {
    static_assert(sizeof(T) == 4, "single precision only");
    using Idx = int32_t;
    static constexpr T kS3 = RealSmall<T>::kS3, kC1 = RealSmall<T>::kC1, kC2 = RealSmall<T>::kC2;
    static constexpr T kS1 = RealSmall<T>::kS1, kS2 = RealSmall<T>::kS2;
    static constexpr int kZero = 15;  // a lane that holds +0 in both stages
    struct alignas(64) Stage1 {
        Idx a[5][16];          // x lane of a_j
        T sg[16], al[16], be[16];
        uint32_t addA0;        // lanes that add a_0
    };
    struct alignas(64) Stage2 {
        Idx p[5][16];          // lanes of the first stage
        T k[4][16];            // signs and coefficients
        int count;             // values of the form
    };
    // output slot s of form f (0 CCS, 1 Pack, 2 Perm) -> bin index o (re k:
    // 2k, im k: 2k + 1), or -1 for a lane that is not stored
    static constexpr int slotBin(int N, int f, int s) {
        const int nCcs = 2 * (N / 2 + 1);
        if (f == 0) return s < nCcs ? s : -1;
        if (s >= N) return -1;
        if (f == 2 && N % 2 == 0) return s == 0 ? 0 : s == 1 ? N : s;
        return s == 0 ? 0 : s + 1;
    }

    // 12 = 3 x 4: lanes 4q + b of the first stage, q = P (sum), u (real part
    // of the first bin), w (its imaginary part); each bin is
    // so·((Va + kb·Vb) + sy·(Vc + kd·Vd)), the signs applied where the plain
    // formula negates (signed zeros alike)
    enum : int8_t { qP = 0, qU = 1, qW = 2 };
    struct Bin12 { int8_t q[4], b[4], kb, kd, sy, so; };
    static constexpr Bin12 kBins12[14] = {
        {{qP, qP, qP, qP}, {0, 2, 1, 3}, 1, 1, 1, 1},        // re0 = (P0 + P2) + (P1 + P3)
        {{-1, -1, -1, -1}, {0, 0, 0, 0}, 1, 1, -1, 1},       // im0 = 0
        {{qU, qU, qW, qW}, {0, 2, 1, 3}, -1, -1, 1, 1},      // re1 = (u0 - u2) + (w1 - w3)
        {{qW, qW, qU, qU}, {0, 2, 1, 3}, -1, -1, -1, 1},     // im1 = (w0 - w2) - (u1 - u3)
        {{qU, qU, qU, qU}, {0, 2, 1, 3}, 1, 1, -1, 1},       // re2 = (u0 + u2) - (u1 + u3)
        {{qW, qW, qW, qW}, {1, 3, 0, 2}, 1, 1, -1, 1},       // im2 = (w1 + w3) - (w0 + w2)
        {{qP, qP, -1, -1}, {0, 2, 0, 0}, -1, 1, -1, 1},      // re3 = P0 - P2
        {{qP, qP, -1, -1}, {1, 3, 0, 0}, -1, 1, -1, 1},      // im3 = P1 - P3
        {{qU, qU, qU, qU}, {0, 2, 1, 3}, 1, 1, 1, 1},        // re4 = (u0 + u2) + (u1 + u3)
        {{qW, qW, qW, qW}, {0, 2, 1, 3}, 1, 1, 1, 1},        // im4 = (w0 + w2) + (w1 + w3)
        {{qU, qU, qW, qW}, {0, 2, 1, 3}, -1, -1, -1, 1},     // re5 = (u0 - u2) - (w1 - w3)
        {{qW, qW, qU, qU}, {0, 2, 1, 3}, -1, -1, 1, -1},     // im5 = -((w0 - w2) + (u1 - u3))
        {{qP, qP, qP, qP}, {0, 2, 1, 3}, 1, 1, -1, 1},       // re6 = (P0 + P2) - (P1 + P3)
        {{-1, -1, -1, -1}, {0, 0, 0, 0}, 1, 1, -1, 1},       // im6 = 0
    };
    static constexpr Stage1 stage1Of12() {
        Stage1 t{};
        for (int l = 0; l < 16; ++l) {
            const int q = l / 4, b = l % 4;
            for (int j = 0; j < 3; ++j) t.a[j][l] = q < 3 ? (4 * j + 3 * b) % 12 : kZero;
            t.sg[l] = q == qW ? T(-1) : T(1);
            t.al[l] = q == qU ? T(-0.5) : q == qW ? kS3 : T(1);
            if (q < qW) t.addA0 |= 1u << l;
        }
        return t;
    }
    static constexpr Stage2 stage2Of12(int f) {
        Stage2 t{};
        for (int s = 0; s < 16; ++s) {
            const int o = slotBin(12, f, s);
            const Bin12 z = o < 0 ? kBins12[1] : kBins12[o];
            for (int i = 0; i < 4; ++i) t.p[i][s] = z.q[i] < 0 ? kZero : 4 * z.q[i] + z.b[i];
            t.k[0][s] = T(z.kb);
            t.k[1][s] = T(z.kd);
            t.k[2][s] = T(z.sy);
            t.k[3][s] = T(z.so);
        }
        t.count = f == 0 ? 14 : 12;
        return t;
    }
    static constexpr Stage1 kS1of12 = stage1Of12();
    static constexpr Stage2 kS2of12[3] = {stage2Of12(0), stage2Of12(1), stage2Of12(2)};

    // 15 = 5 x 3: lanes 3q + b of the first stage, q = P (sum), Br, Cr (real
    // parts of bins 1 and 2), Bi, Ci (their imaginary parts); each bin is
    // so·((v0 + c·(v1 + v2)) + kR·(w1 - w2)), v of quantity qU, w of qW
    // (c = 1 for z0, -1/2 for m; kR = +-sin(2pi/3), r = sin(2pi/3)(v1 - v2);
    // a missing part is -0)
    enum : int8_t { q5P = 0, qBr = 1, qCr = 2, qBi = 3, qCi = 4 };
    struct Bin15 { int8_t qU, z0, qW, sW, so; };
    static constexpr Bin15 kBins15[16] = {
        {q5P, 1, -1, 1, 1}, {-1, 1, -1, 1, 1},     // re0 = P0 + (P1 + P2), im0 = 0
        {qBr, 0, qBi, 1, 1}, {qBi, 0, qBr, -1, 1},  // bin 1 = mB - i·rB
        {qCr, 0, qCi, -1, 1}, {qCi, 0, qCr, 1, 1},  // bin 2 = mC + i·rC
        {qCr, 1, -1, 1, 1}, {qCi, 1, -1, 1, -1},    // bin 3 = conj(z0C)
        {qBr, 0, qBi, -1, 1}, {qBi, 0, qBr, 1, -1},  // bin 4 = conj(mB + i·rB)
        {q5P, 0, -1, 1, 1}, {-1, 1, q5P, 1, 1},     // bin 5 = P0 - (P1 + P2)/2, sin(2pi/3)(P1 - P2)
        {qBr, 1, -1, 1, 1}, {qBi, 1, -1, 1, 1},     // bin 6 = z0B
        {qCr, 0, qCi, 1, 1}, {qCi, 0, qCr, -1, 1},  // bin 7 = mC - i·rC
    };
    static constexpr Stage1 stage1Of15() {
        Stage1 t{};
        const T al[5] = {T(1), kC1, kC2, kS1, kS2}, be[5] = {T(1), kC2, kC1, kS2, -kS1};
        for (int l = 0; l < 16; ++l) {
            const int q = l / 3, b = l % 3;
            for (int j = 0; j < 5; ++j) t.a[j][l] = q < 5 ? (3 * j + 5 * b) % 15 : kZero;
            t.sg[l] = q == qBi || q == qCi ? T(-1) : T(1);
            t.al[l] = q < 5 ? al[q] : T(1);
            t.be[l] = q < 5 ? be[q] : T(1);
            if (q < qBi) t.addA0 |= 1u << l;
        }
        return t;
    }
    static constexpr Stage2 stage2Of15(int f) {
        Stage2 t{};
        for (int s = 0; s < 16; ++s) {
            const int o = slotBin(15, f, s);
            const Bin15 z = o < 0 ? kBins15[1] : kBins15[o];
            for (int i = 0; i < 3; ++i) t.p[i][s] = z.qU < 0 ? kZero : 3 * z.qU + i;
            for (int i = 0; i < 2; ++i) t.p[3 + i][s] = z.qW < 0 ? kZero : 3 * z.qW + 1 + i;
            // with no v part, v0 + c·0 is -0 (c, the sign of v0: -1) when w is there
            const T sv = z.qU < 0 && z.qW >= 0 ? T(-1) : T(1);
            t.k[0][s] = sv;
            t.k[1][s] = z.qU < 0 ? sv : z.z0 ? T(1) : T(-0.5);
            t.k[2][s] = z.qW < 0 ? T(-1) : z.sW * kS3;
            t.k[3][s] = T(z.so);
        }
        t.count = f == 0 ? 16 : 15;
        return t;
    }
    static constexpr Stage1 kS1of15 = stage1Of15();
    static constexpr Stage2 kS2of15[3] = {stage2Of15(0), stage2Of15(1), stage2Of15(2)};

    using S = simd::V<T>;
    using R = typename S::R;
    static VRX_INLINE R pick(const Idx* idx, R a) { return simd::pickLanes(idx, a); }
    static VRX_INLINE void store(T* d, int n, R v, T scale) {
        S::storem(d, simd::tail<T>(n), scale != T(0) ? S::mul(v, S::set1(scale)) : v);
    }
    static int formIndex(fft::Form f) { return f == fft::Form::CCS ? 0 : f == fft::Form::Pack ? 1 : 2; }

    static void fwd12(const T* x, T* d, T scale, fft::Form f) {
        const Stage1& a = kS1of12;
        const Stage2& z = kS2of12[formIndex(f)];
        const R v = S::loadm(simd::tail<T>(12), x);
        // P = a0 + t, u = a0 - t/2 (t = a1 + a2), w = sin(2pi/3)(a2 - a1)
        const R s = S::fma(S::load(a.sg), pick(a.a[1], v), pick(a.a[2], v));
        const R m = S::mul(S::load(a.al), s);
        const R q = S::addm(m, static_cast<typename S::M>(a.addA0), pick(a.a[0], v), m);
        const R xs = S::fma(S::load(z.k[0]), pick(z.p[1], q), pick(z.p[0], q));
        const R ys = S::mul(S::load(z.k[2]), S::fma(S::load(z.k[1]), pick(z.p[3], q), pick(z.p[2], q)));
        store(d, z.count, S::mul(S::load(z.k[3]), S::add(xs, ys)), scale);
    }

    static void fwd15(const T* x, T* d, T scale, fft::Form f) {
        const Stage1& a = kS1of15;
        const Stage2& z = kS2of15[formIndex(f)];
        const R v = S::loadm(simd::tail<T>(15), x);
        // P = (a0 + t1) + t2, Br = (a0 + c1·t1) + c2·t2, Cr = (a0 + c2·t1) + c1·t2,
        // Bi = s1·d1 + s2·d2, Ci = s2·d1 - s1·d2 (t1, d1 = a1 + a4, a4 - a1; t2, d2 alike)
        const R sg = S::load(a.sg);
        const R s1 = S::fma(sg, pick(a.a[1], v), pick(a.a[4], v));
        const R s2 = S::fma(sg, pick(a.a[2], v), pick(a.a[3], v));
        const R m1 = S::mul(S::load(a.al), s1);
        const R q1 = S::addm(m1, static_cast<typename S::M>(a.addA0), pick(a.a[0], v), m1);
        const R q = S::add(q1, S::mul(S::load(a.be), s2));
        const R s = S::add(pick(z.p[1], q), pick(z.p[2], q));
        const R u = S::fma(S::load(z.k[0]), pick(z.p[0], q), S::mul(S::load(z.k[1]), s));
        const R w = S::mul(S::load(z.k[2]), S::sub(pick(z.p[3], q), pick(z.p[4], q)));
        store(d, z.count, S::mul(S::load(z.k[3]), S::add(u, w)), scale);
    }
};

template <class T, class Tr> struct Dft {
    static constexpr int e = 2 * sizeof(T);
    using C = Cx<T>;

    // ---------------------------------------------------------- choice and sizes

    static VrxStatus choose(Kind K, int N, int flag, int hint, bool isInit, const void* initBuf, Choice& c) {
        c.spec = 768;
        if (N <= 16) {
            c.path = kPathSmall;
            c.n = N;
        } else if (isPow2(N)) {
            c.path = kPathFft;
            c.order = log2i(N);
            int s, i, w;
            if (VrxStatus st = Tr::fftGetSize(K, c.order, flag, hint, &s, &i, &w)) return st;
            c.is = s; c.ii = i; c.iw = w;
            c.spec += a64(s);
            c.init += a64(i);
            c.work += a64(w);
        } else {
            if (N > Lim<T>::kMax) return vrxErrBadLength;
            if (isInit && !initBuf) return vrxErrNullPtr;
            c.init += a64(int64_t(e) * N);
            int n = N;
            if (K == Kind::R && N % 2 == 0) {
                c.spec += 2 * a64(int64_t(e) * ((N + 3) / 4) + e);
                n = N / 2;
                c.half = true;
            }
            c.n = n;
            c.realOdd = K == Kind::R && !c.half;
            if (c.half && n <= 16) {
                c.path = kPathHalfSmall;
            } else if ((c.cnt = factorize(n, Lim<T>::kTrial, c.f)) != 0) {
                if (!c.realOdd) c.cnt = reorderComplex(c.f, c.cnt);
                c.path = kPathPf;
                c.pf = pfSizes(c.f, c.cnt, n, c.realOdd, e, Lim<T>::kUnit);
                c.spec += a64(c.pf.P);
                c.init += a64(c.pf.J);
                c.work += a64(c.pf.work);
            } else if (n <= Lim<T>::kTrial) {
                c.path = kPathDir;
                c.spec += a64(int64_t(3) * (e / 2) * n);
                c.work += a64(int64_t(e) * n);
            } else if (n <= Lim<T>::kConv) {
                c.path = kPathConv;
                c.M = convLength(n);
                int s, i, w;
                if (VrxStatus st = Tr::convGetSize(c.M, &s, &i, &w)) return st;
                c.is = s; c.ii = i; c.iw = w;
                const int64_t Fc = int64_t(e) * c.M + a64(w) + 64;
                const int64_t Sc = a64(int64_t(e) * n) + a64(int64_t(e) * c.M) + a64(s);
                const int64_t Ic = (c.half ? 0 : a64(2 * int64_t(n))) + a64(i) + a64(Fc);
                const int64_t Wc = a64(w) + a64(Fc);
                c.spec += a64(Sc);
                c.init += a64(Ic);
                c.work += a64(Wc);
            } else {
                return vrxErrBadLength;
            }
        }
        if (c.spec) c.spec += 64;
        if (c.init) c.init += 64;
        if (c.work) c.work += 64;
        if (c.spec > INT32_MAX || c.init > INT32_MAX || c.work > INT32_MAX) return vrxErrBadLength;
        return vrxOk;
    }

    static bool flagOk(int flag) { return flag == 1 || flag == 2 || flag == 4 || flag == 8; }

    static VrxStatus getSize(Kind K, int N, int flag, int hint, int* pSpec, int* pInit, int* pWork) {
        if (!pSpec || !pInit || !pWork) return vrxErrNullPtr;
        if (N < 1) return vrxErrBadLength;
        if (!flagOk(flag)) return vrxErrFftFlag;
        Choice c;
        if (VrxStatus st = choose(K, N, flag, hint, false, nullptr, c)) return st;
        *pSpec = static_cast<int>(c.spec);
        *pInit = static_cast<int>(c.init);
        *pWork = static_cast<int>(c.work);
        return vrxOk;
    }

    // ---------------------------------------------------------- tables

    // exp(-2*pi*i*k/N), k = 0 .. N-1
    static void baseTab(C* b, int64_t N) {
        for (int64_t k = 0; k < N; ++k) {
            const int64_t kk = 2 * k <= N ? k : N - k;  // exact symmetry of the upper half
            long double s, co;
            sincosl(kTwoPiL * static_cast<long double>(kk) / static_cast<long double>(N), &s, &co);
            const T cr = static_cast<T>(co), si = static_cast<T>(s);
            b[k] = {cr, kk == k ? -si : si};
        }
    }

    static VrxStatus init(Kind K, int N, int flag, int hint, Vrx8u* pSpecMem, Vrx8u* pInitBuf) {
        if (!pSpecMem) return vrxErrNullPtr;
        if (N < 1) return vrxErrBadLength;
        if (!flagOk(flag)) return vrxErrFftFlag;
        Plan* p = fft::align64(reinterpret_cast<Plan*>(pSpecMem));
        memset(p, 0, sizeof(Plan));
        p->idWord = Tr::id(K);
        p->length = N;
        p->algHint = hint;
        T scale = T(0);
        switch (flag) {
            case 1: p->fwdNorm = 1; scale = T(1) / static_cast<T>(N); break;
            case 2: p->invNorm = 1; scale = T(1) / static_cast<T>(N); break;
            case 4: p->fwdNorm = p->invNorm = 1; scale = static_cast<T>(1.0 / sqrt(static_cast<double>(N))); break;
            default: break;
        }
        if (sizeof(T) == 4) p->normScale.f = static_cast<float>(scale);
        else p->normScale.d = static_cast<double>(scale);
        Choice c;
        if (VrxStatus st = choose(K, N, flag, hint, true, pInitBuf, c)) return st;
        p->path = c.path;
        p->n = c.n;
        Carver cs(p);
        cs.take<uint8_t>(sizeof(Plan));
        if (c.path == kPathSmall) return vrxOk;
        if (c.path == kPathFft) {
            uint8_t* mem = cs.take<uint8_t>(c.is);
            void* fp = nullptr;
            if (VrxStatus st = Tr::fftInit(K, &fp, c.order, flag, hint, mem, pInitBuf ? fft::align64(pInitBuf) : nullptr))
                return st;
            p->innerPlan = fp;
            p->useFft = 1;
            int ws = 0;
            Tr::fftBufSize(K, fp, &ws);
            p->workSize = ws;
            return vrxOk;
        }
        Carver ci(fft::align64(pInitBuf));
        C* base = ci.take<C>(N);
        baseTab(base, N);
        if (c.half) {
            const int64_t cnt = 2 * ((N + 3) / 4) + 2;
            T* rf = cs.take<T>(cnt);
            T* ri = cs.take<T>(cnt);
            const int64_t K = N / 4;
            for (int64_t k = 1; k <= K; ++k) {
                const C w = base[k];  // (cos, -sin)
                rf[k - 1] = T(0.5) * w.re;
                rf[K + k - 1] = T(0.5) + T(0.5) * w.im;
                ri[k - 1] = w.re;
                ri[K + k - 1] = w.im;
            }
            p->recFwdTab = rf;
            p->recInvTab = ri;
        }
        const int n = c.n, bs = c.half ? 2 : 1;
        switch (c.path) {
            case kPathHalfSmall: p->workSize = 0; break;
            case kPathPf:
                pfInit<T>(p, cs, c.f, c.cnt, n, c.realOdd, base, bs, c.realOdd ? ci.take<int32_t>(int64_t(2) * n) : nullptr);
                p->realFactors = c.realOdd ? 1 : 0;
                p->workSize = static_cast<int32_t>(c.pf.work);
                break;
            case kPathDir: {
                T* d = cs.take<T>(int64_t(3) * n);
                dirTables(d, n, base, bs);
                p->dirTab = d;
                p->workSize = e * n + 64;
                break;
            }
            default: {  // convolution
                const int M = c.M;
                C* chirp = cs.take<C>(n);
                C* filt = cs.take<C>(M);
                uint8_t* cp = cs.take<uint8_t>(c.is);
                if (!c.half) ci.take<uint8_t>(2 * int64_t(n));
                uint8_t* innerInit = ci.take<uint8_t>(c.ii);
                uint8_t* fc = ci.take<uint8_t>(int64_t(e) * M + a64(c.iw) + 64);
                if (VrxStatus st = Tr::convInit(M, cp, innerInit)) return st;
                // w[k] = exp(-i*pi*k*k/n) from a base of 2n values, k*k mod 2n by running addition
                const C* cb = base;
                if (!c.half) {
                    C* b2 = reinterpret_cast<C*>(fc);
                    baseTab(b2, 2 * int64_t(n));
                    cb = b2;
                }
                int64_t q = 0;
                const int64_t twoN = 2 * int64_t(n);
                for (int64_t k = 0; k < n; ++k) {
                    chirp[k] = cb[q];
                    q += 2 * k + 1;
                    if (q >= twoN) q -= twoN;
                }
                C* data = reinterpret_cast<C*>(fc);
                uint8_t* iwork = fc + a64(int64_t(e) * M);
                for (int64_t k = 0; k < M; ++k) data[k] = {T(0), T(0)};
                data[0] = conj(chirp[0]);
                for (int64_t k = 1; k < n; ++k) data[k] = data[M - k] = conj(chirp[k]);
                if (VrxStatus st = Tr::dftFwdC(data, data, cp, iwork)) return st;
                const T invM = T(1) / static_cast<T>(M);
                for (int64_t k = 0; k < M; ++k) filt[k] = {data[k].re * invM, data[k].im * invM};
                p->chirpTab = chirp;
                p->filterTab = filt;
                p->convPlan = cp;
                p->convLength = M;
                p->workSize = static_cast<int32_t>(int64_t(e) * M + a64(c.iw) + 64);
                break;
            }
        }
        return vrxOk;
    }

    // ---------------------------------------------------------- small kernels

    // complex, N <= 16: the FFT's kernels for powers of two, else the
    // fixed-length kernels
    template <bool Inv> static void smallC(int N, CRef<T> s, CRef<T> d, T scale) {
        if (!isPow2(N)) {
            smallRunC<T>(N, Inv, s.re, s.im, s.s, d.re, d.im, d.s, scale);
            return;
        }
        // interleaved pairs go to the kernels as they are (a copy stored
        // value by value kept the kernels' register loads waiting)
        if (s.s == 2 && d.s == 2 && s.im == s.re + 1 && d.im == d.re + 1) {
            fft::smallComplex<T, Inv>(log2i(N), reinterpret_cast<const C*>(s.re), reinterpret_cast<C*>(d.re), scale);
            return;
        }
        C x[16], y[16];
        for (int i = 0; i < N; ++i) x[i] = s.get(i);
        fft::smallComplex<T, Inv>(log2i(N), x, y, scale);
        for (int i = 0; i < N; ++i) d.set(i, y[i]);
    }

    // ---------------------------------------------------------- direct path

    // The direct lengths are odd primes n. With g a generator of the nonzero
    // residues, h = (n-1)/2, a[q] = x[g^q] and b[t] = w^(g^t) = (c[t], s[t]),
    // bin g^(-p) is x[0] + sum_q a[q] b[q-p] (Rader): the roots of a register
    // of bins p .. p+L-1 are consecutive. As g^h = -1, a[q+h] = x[n - g^q] and
    // b[t+h] = conj(b[t]), so with S = a[q] + a[q+h], D = a[q] - a[q+h] the
    // bins g^(-p) and n - g^(-p) share the sums A = sum S*c[q-p] and
    // B = sum D*s[q-p] (A + iB and A - iB), half the products of the plain sum.
    //
    // Table (3n values of T): rc[v] = c[h-1-v], rs[v] = s[h-1-v] (indices
    // mod n-1) for v < dirSpan(h), so that register p0 reads rc + p0 + h-1-q;
    // then g^q, q < h, as bytes.
    using S = simd::V<T>;
    static constexpr int kL = S::N;
    static constexpr int dirSpan(int h) { return (h + kL - 1) / kL * kL + h - 1; }
    static void dirTables(T* tab, int n, const C* base, int bs) {
        const int h = (n - 1) / 2, span = dirSpan(h);
        int g = 2;
        for (;; ++g) {  // the least generator: g^t != 1 for 0 < t < n-1
            int v = 1, t = 1;
            for (; t < n - 1; ++t) {
                v = v * g % n;
                if (v == 1) break;
            }
            if (t == n - 1) break;
        }
        uint8_t* gq = reinterpret_cast<uint8_t*>(tab + 2 * span);
        int v = 1;
        for (int q = 0; q < h; ++q) {
            gq[q] = static_cast<uint8_t>(v);
            v = v * g % n;
        }
        for (int i = 0; i < span; ++i) {
            const int t = ((h - 1 - i) % (n - 1) + (n - 1)) % (n - 1);
            int e = 1;  // g^t mod n
            for (int u = 0; u < t; ++u) e = e * g % n;
            tab[i] = base[int64_t(e) * bs].re;
            tab[span + i] = base[int64_t(e) * bs].im;
        }
    }
    // the direct table of a plan read back
    struct DirTab {
        int n, h, span;
        const T* rc;
        const uint8_t* gq;
        explicit DirTab(const Plan* p)
            : n(p->n), h(p->n / 2), span(dirSpan(p->n / 2)), rc(static_cast<const T*>(p->dirTab)),
              gq(reinterpret_cast<const uint8_t*>(rc + 2 * span)) {}
    };
    // the bin of register lane p < h: g^(-p) = n - g^(h-p) (1 at p = 0)
    static VRX_INLINE int dirBin(const uint8_t* gq, int n, int h, int p) { return p == 0 ? 1 : n - gq[h - p]; }

    // A and B of bins p0 .. p0+NB*L-1 (NB registers) from the pair sums S, D
    // (interleaved complex values when Cplx); A starts at (a0r, a0i).
    template <int NB> struct DirSums {
        typename S::R ar[NB], ai[NB], br[NB], bi[NB];
    };
    template <bool Cplx, int NB>
    static VRX_INLINE DirSums<NB> dirSums(const T* rc, const T* rs, const T* Sv, const T* Dv, int h, int p0, T a0r, T a0i) {
        DirSums<NB> o;
        for (int b = 0; b < NB; ++b) {
            o.ar[b] = S::set1(a0r);
            o.ai[b] = S::set1(a0i);
            o.br[b] = o.bi[b] = S::zero();
        }
        const T* pc = rc + p0 + h - 1;
        const T* ps = rs + p0 + h - 1;
        for (int q = 0; q < h; ++q) {
#pragma GCC unroll 2
            for (int b = 0; b < NB; ++b) {
                const typename S::R c = S::load(pc - q + b * kL), t = S::load(ps - q + b * kL);
                if constexpr (Cplx) {
                    o.ar[b] = S::add(o.ar[b], S::mul(S::set1(Sv[2 * q]), c));
                    o.ai[b] = S::add(o.ai[b], S::mul(S::set1(Sv[2 * q + 1]), c));
                    o.br[b] = S::add(o.br[b], S::mul(S::set1(Dv[2 * q]), t));
                    o.bi[b] = S::add(o.bi[b], S::mul(S::set1(Dv[2 * q + 1]), t));
                } else {
                    o.ar[b] = S::add(o.ar[b], S::mul(S::set1(Sv[q]), c));
                    o.br[b] = S::add(o.br[b], S::mul(S::set1(Dv[q]), t));
                }
            }
        }
        return o;
    }
    // f(r, b, p0): the sums of register b of a pass over bins p0 ..; two
    // registers a pass while two are left, so that the sums hide their latency
    template <bool Cplx, class F>
    static VRX_INLINE void dirPasses(const T* rc, int span, const T* Sv, const T* Dv, int h, T a0r, T a0i, F&& f) {
        int p0 = 0;
        for (; p0 + kL < h; p0 += 2 * kL) {
            const DirSums<2> r = dirSums<Cplx, 2>(rc, rc + span, Sv, Dv, h, p0, a0r, a0i);
            f(r, 0, p0);
            f(r, 1, p0 + kL);
        }
        if (p0 < h) {
            const DirSums<1> r = dirSums<Cplx, 1>(rc, rc + span, Sv, Dv, h, p0, a0r, a0i);
            f(r, 0, p0);
        }
    }

    template <bool Inv> static void dirC(const Plan* p, CRef<T> s, CRef<T> d, C* work) {
        const DirTab t(p);
        const int n = t.n, h = t.h, span = t.span;
        C* Sv = work;
        C* Dv = work + h;
        const C x0 = s.get(0);
        C sum = x0;
        for (int q = 0; q < h; ++q) {
            const C a = s.get(t.gq[q]), b = s.get(n - t.gq[q]);
            Sv[q] = {a.re + b.re, a.im + b.im};
            Dv[q] = {a.re - b.re, a.im - b.im};
        }
        for (int q = 0; q < h; ++q) sum = {sum.re + Sv[q].re, sum.im + Sv[q].im};
        alignas(64) T o[4][kL];
        dirPasses<true>(t.rc, span, &Sv[0].re, &Dv[0].re, h, x0.re, x0.im, [&](const auto& r, int b, int p0) {
            // forward: X[k] = (A - Bi, Ai + Br), X[n-k] = (A + Bi, Ai - Br); the inverse swaps them
            S::store(o[0], S::sub(r.ar[b], r.bi[b]));
            S::store(o[1], S::add(r.ai[b], r.br[b]));
            S::store(o[2], S::add(r.ar[b], r.bi[b]));
            S::store(o[3], S::sub(r.ai[b], r.br[b]));
            const int m = h - p0 < kL ? h - p0 : kL;
            for (int i = 0; i < m; ++i) {
                const int k = dirBin(t.gq, n, h, p0 + i);
                d.set(Inv ? n - k : k, {o[0][i], o[1][i]});
                d.set(Inv ? k : n - k, {o[2][i], o[3][i]});
            }
        });
        d.set(0, sum);
    }
    // real odd length, in place in d: reals to the odd form and back
    static void dirRFwd(const Plan* p, T* d, T* work) {
        const DirTab t(p);
        const int n = t.n, h = t.h, span = t.span;
        T* Sv = work;
        T* Dv = work + h;
        const T x0 = d[0];
        T sum = x0;
        for (int q = 0; q < h; ++q) {
            Sv[q] = d[t.gq[q]] + d[n - t.gq[q]];
            Dv[q] = d[t.gq[q]] - d[n - t.gq[q]];
        }
        for (int q = 0; q < h; ++q) sum += Sv[q];
        alignas(64) T ore[kL], oim[kL];
        dirPasses<false>(t.rc, span, Sv, Dv, h, x0, T(0), [&](const auto& r, int b, int p0) {
            S::store(ore, r.ar[b]);
            S::store(oim, r.br[b]);
            const int m = h - p0 < kL ? h - p0 : kL;
            for (int i = 0; i < m; ++i) {
                const int k = dirBin(t.gq, n, h, p0 + i);
                // X[k] = A + iB; the stored half has X[n-k] = A - iB
                if (k <= h) {
                    d[2 * k - 1] = ore[i];
                    d[2 * k] = oim[i];
                } else {
                    d[2 * (n - k) - 1] = ore[i];
                    d[2 * (n - k)] = -oim[i];
                }
            }
        });
        d[0] = sum;
    }
    // x[j] and x[n-j] share the sums of R(k)*c and I(k)*s, k = g^q (the
    // conjugate where g^q is past the stored half)
    static void dirRInv(const Plan* p, T* d, T* work) {
        const DirTab t(p);
        const int n = t.n, h = t.h, span = t.span;
        T* Rv = work;
        T* Iv = work + h;
        const T r0 = d[0];
        T x0 = r0;
        for (int k = 1; k <= h; ++k) x0 += d[2 * k - 1] + d[2 * k - 1];
        for (int q = 0; q < h; ++q) {
            const int k = t.gq[q];
            if (k <= h) {
                Rv[q] = d[2 * k - 1];
                Iv[q] = d[2 * k];
            } else {
                Rv[q] = d[2 * (n - k) - 1];
                Iv[q] = -d[2 * (n - k)];
            }
        }
        alignas(64) T o[2][kL];
        dirPasses<false>(t.rc, span, Rv, Iv, h, T(0), T(0), [&](const auto& r, int b, int p0) {
            const typename S::R c0 = S::add(r.ar[b], r.ar[b]), s0 = S::add(r.br[b], r.br[b]), rr = S::set1(r0);
            S::store(o[0], S::add(rr, S::add(c0, s0)));
            S::store(o[1], S::add(rr, S::sub(c0, s0)));
            const int m = h - p0 < kL ? h - p0 : kL;
            for (int i = 0; i < m; ++i) {
                const int j = dirBin(t.gq, n, h, p0 + i);
                d[j] = o[0][i];
                d[n - j] = o[1][i];
            }
        });
        d[0] = x0;
    }

    // ---------------------------------------------------------- convolution path

    // Register passes of the chirp products. The interleaved forward product
    // is simd::cmul, the one the library's complex multiply runs; the other
    // products round each part product and then add (x.re*y.re - x.im*y.im,
    // x.re*y.im + x.im*y.re), as one value at a time does.
    using SR = typename S::R;
    using SM = typename S::M;
    VRX_INLINE static SR conjR(SR x) { return S::xorb(x, S::set2(T(0), T(-0.0))); }
    // B[0 .. M) = x * chirp over n values, then zeros; conjugated x for the
    // inverse (x interleaved)
    template <bool Inv> static void chirpIn(const T* x, const T* ch, T* B, int n, int M) {
        const int64_t m = 2 * int64_t(n), e2 = 2 * int64_t(M);
        int64_t i = 0;
        for (; i + kL <= m; i += kL) {
            const SR v = S::load(x + i), c = S::load(ch + i);
            S::store(B + i, Inv ? simd::cmulRound<T>(conjR(v), c) : simd::cmul<T>(v, c));
        }
        if (i < m) {  // the last values and zeros after them in one register
            const SM t = simd::tail<T>(static_cast<size_t>(m - i));
            const SR v = S::loadm(t, x + i), c = S::loadm(t, ch + i);
            S::store(B + i, S::blend(t, S::zero(), Inv ? simd::cmulRound<T>(conjR(v), c) : simd::cmul<T>(v, c)));
            i += kL;
        }
        for (; i + kL <= e2; i += kL) S::store(B + i, S::zero());
        if (i < e2) S::storem(B + i, simd::tail<T>(static_cast<size_t>(e2 - i)), S::zero());
    }
    // d = conj(B * chirp) over n values (interleaved)
    static void chirpOutConj(const T* B, const T* ch, T* d, int n) {
        const int64_t m = 2 * int64_t(n);
        int64_t i = 0;
        for (; i + kL <= m; i += kL) S::store(d + i, conjR(simd::cmulRound<T>(S::load(B + i), S::load(ch + i))));
        if (i < m) {
            const SM t = simd::tail<T>(static_cast<size_t>(m - i));
            S::storem(d + i, t, conjR(simd::cmulRound<T>(S::loadm(t, B + i), S::loadm(t, ch + i))));
        }
    }
    // B[0 .. M) = (x[k] * chirp[k].re, x[k] * chirp[k].im) over n reals, then zeros
    static void chirpInReal(const T* x, const T* ch, T* B, int n, int M) {
        using I = std::conditional_t<sizeof(T) == 4, int32_t, int64_t>;
        struct Dup {
            alignas(64) I v[kL];
            constexpr Dup() : v() { for (int j = 0; j < kL; ++j) v[j] = static_cast<I>(j / 2); }
        };
        static constexpr Dup kDup{};
        const __m512i dup = _mm512_load_si512(kDup.v);
        constexpr int h = kL / 2;  // reals per register of products
        const int64_t e2 = 2 * int64_t(M);
        int64_t k = 0, i = 0;
        for (; k + h <= n; k += h, i += kL) {
            const SR v = S::loadm(simd::tail<T>(h), x + k);
            S::store(B + i, S::mul(S::permute2(v, dup, v), S::load(ch + i)));
        }
        if (k < n) {
            const SR v = S::loadm(simd::tail<T>(static_cast<size_t>(n - k)), x + k);
            const SM t = simd::tail<T>(static_cast<size_t>(2 * (n - k)));
            S::store(B + i, S::blend(t, S::zero(), S::mul(S::permute2(v, dup, v), S::loadm(t, ch + i))));
            i += kL;
        }
        for (; i + kL <= e2; i += kL) S::store(B + i, S::zero());
        if (i < e2) S::storem(B + i, simd::tail<T>(static_cast<size_t>(e2 - i)), S::zero());
    }

    // B = chirp * (x, conjugated for the inverse) over n, zero to M (both
    // already in B), forward, times the filter, inverse; the caller takes
    // B * chirp. The work holds two inner work areas behind B: when the
    // inner one can take M values (the inner FFT's work of its in-place
    // calls), the forward runs from B into it, the product stays there and
    // the inverse comes back to B, both out of place with the second area
    // as their work (the same bits as in place, about a tenth faster at M =
    // 2^17); otherwise both run in place in B.
    static VrxStatus convCore(const Plan* p, C* B, uint8_t* iwork) {
        const int M = p->convLength;
        const C* filt = static_cast<const C*>(p->filterTab);
        const int64_t area = p->workSize - int64_t(e) * M - 64;  // a64 of the inner work size
        if (area >= int64_t(e) * M) {
            C* X = reinterpret_cast<C*>(iwork);
            uint8_t* w2 = iwork + area;
            if (VrxStatus st = Tr::dftFwdC(B, X, p->convPlan, w2)) return st;
            if (VrxStatus st = Tr::mulCI(filt, X, M)) return st;
            return Tr::dftInvC(X, B, p->convPlan, w2);
        }
        if (VrxStatus st = Tr::dftFwdC(B, B, p->convPlan, iwork)) return st;
        if (VrxStatus st = Tr::mulCI(filt, B, M)) return st;
        return Tr::dftInvC(B, B, p->convPlan, iwork);
    }
    template <bool Inv> static VrxStatus convC(const Plan* p, CRef<T> s, CRef<T> d, uint8_t* buf, bool interleaved) {
        const int n = p->n, M = p->convLength;
        C* B = reinterpret_cast<C*>(buf);
        uint8_t* iwork = buf + a64(int64_t(e) * M);
        const C* ch = static_cast<const C*>(p->chirpTab);
        // the chirp product and the zeros up to M in one pass
        if (interleaved) {
            chirpIn<Inv>(s.re, reinterpret_cast<const T*>(ch), reinterpret_cast<T*>(B), n, M);
        } else {
            for (int64_t k = 0; k < n; ++k) B[k] = cmul(Inv ? conj(s.get(k)) : s.get(k), ch[k]);
            if (VrxStatus st = Tr::zeroC(B + n, M - n)) return st;
        }
        if (VrxStatus st = convCore(p, B, iwork)) return st;
        if (interleaved && !Inv) return Tr::mulC(B, ch, reinterpret_cast<C*>(d.re), n);
        if (interleaved) {
            chirpOutConj(reinterpret_cast<const T*>(B), reinterpret_cast<const T*>(ch), d.re, n);
            return vrxOk;
        }
        for (int64_t k = 0; k < n; ++k) {
            const C v = cmul(B[k], ch[k]);
            d.set(k, Inv ? conj(v) : v);
        }
        return vrxOk;
    }
    // reals of src to the Perm form in d (src may be d), or straight to CCS
    // when ccs (bins 1 .. h one value further on, 0 after R(0))
    static VrxStatus convRFwd(const Plan* p, const T* src, T* d, uint8_t* buf, bool ccs) {
        const int n = p->n, M = p->convLength;
        C* B = reinterpret_cast<C*>(buf);
        const C* ch = static_cast<const C*>(p->chirpTab);
        chirpInReal(src, reinterpret_cast<const T*>(ch), reinterpret_cast<T*>(B), n, M);
        if (VrxStatus st = convCore(p, B, buf + a64(int64_t(e) * M))) return st;
        d[0] = cmul(B[0], ch[0]).re;
        if (ccs) d[1] = T(0);
        // bins 1 .. h as pairs from d[1] (Perm) or d[2] (CCS)
        const T* b = reinterpret_cast<const T*>(B + 1);
        const T* c = reinterpret_cast<const T*>(ch + 1);
        T* o = d + (ccs ? 2 : 1);
        const int64_t m = 2 * int64_t((n - 1) / 2);
        int64_t i = 0;
        for (; i + kL <= m; i += kL) S::store(o + i, simd::cmulRound<T>(S::load(b + i), S::load(c + i)));
        if (i < m) {
            const SM t = simd::tail<T>(static_cast<size_t>(m - i));
            S::storem(o + i, t, simd::cmulRound<T>(S::loadm(t, b + i), S::loadm(t, c + i)));
        }
        return vrxOk;
    }
    // Index register of the real inverse: pairs in reverse order.
    using SI = std::conditional_t<sizeof(T) == 4, int32_t, int64_t>;
    struct InvIdx {
        alignas(64) SI rev[kL];
        constexpr InvIdx() : rev() {
            for (int j = 0; j < kL; ++j) rev[j] = static_cast<SI>(kL - 2 - (j & ~1) + (j & 1));
        }
    };
    static constexpr InvIdx kInvIdx{};
    // the Perm form in d to reals in d
    static VrxStatus convRInv(const Plan* p, T* d, uint8_t* buf) {
        const int n = p->n, M = p->convLength, h = (n - 1) / 2;
        C* B = reinterpret_cast<C*>(buf);
        const C* ch = static_cast<const C*>(p->chirpTab);
        T* b = reinterpret_cast<T*>(buf);
        const T* c = reinterpret_cast<const T*>(ch);
        // conj(X[k]): (R, -I) up to h, X[n-k] above
        B[0] = cmul(C{d[0], T(0)}, ch[0]);
        const int64_t m = 2 * int64_t(h);
        int64_t i = 0;
        for (; i + kL <= m; i += kL) S::store(b + 2 + i, simd::cmulRound<T>(conjR(S::load(d + 1 + i)), S::load(c + 2 + i)));
        if (i < m) {
            const SM t = simd::tail<T>(static_cast<size_t>(m - i));
            S::storem(b + 2 + i, t, simd::cmulRound<T>(conjR(S::loadm(t, d + 1 + i)), S::loadm(t, c + 2 + i)));
        }
        // k = h+1 .. n-1 reads bin n-k: registers of pairs loaded from the top down, reversed
        const __m512i rev = _mm512_load_si512(kInvIdx.rev);
        const T* top = d + 1 + m;  // one past the pairs of bins 1 .. h
        T* o = b + 2 * (int64_t(h) + 1);
        for (i = 0; i + kL <= m; i += kL) {
            const SR v = S::load(top - i - kL);
            S::store(o + i, simd::cmulRound<T>(S::permute2(v, rev, v), S::load(c + 2 * (int64_t(h) + 1) + i)));
        }
        if (i < m) {  // the last r values: the register ending at the first pair, masked at its top
            const int64_t r = m - i;
            const SM t = simd::tail<T>(static_cast<size_t>(r));
            const SR v = S::loadm(static_cast<SM>(t << (kL - r)), top - i - kL);
            S::storem(o + i, t, simd::cmulRound<T>(S::permute2(v, rev, v), S::loadm(t, c + 2 * (int64_t(h) + 1) + i)));
        }
        if (VrxStatus st = Tr::zeroC(B + n, M - n)) return st;
        if (VrxStatus st = convCore(p, B, buf + a64(int64_t(e) * M))) return st;
        // d[k] = re(B[k] * chirp[k]): the real lanes of two registers of products
        auto prod = [&](int64_t j, SM t) { return simd::cmulRound<T>(S::loadm(t, b + j), S::loadm(t, c + j)); };
        auto reals = [](SR lo, SR hi) {
            SR re, im;
            simd::deinterleave(lo, hi, re, im);
            return re;
        };
        const int64_t e2 = 2 * int64_t(n);
        const SM all = static_cast<SM>(~0u);
        int64_t j = 0;
        for (; j + 2 * kL <= e2; j += 2 * kL) S::store(d + j / 2, reals(prod(j, all), prod(j + kL, all)));
        if (j < e2) {
            const int64_t r = e2 - j;
            const SR lo = prod(j, simd::tail<T>(static_cast<size_t>(r < kL ? r : kL)));
            const SR hi = r > kL ? prod(j + kL, simd::tail<T>(static_cast<size_t>(r - kL))) : S::zero();
            S::storem(d + j / 2, simd::tail<T>(static_cast<size_t>(r / 2)), reals(lo, hi));
        }
        return vrxOk;
    }

    // ---------------------------------------------------------- complex dispatch

    template <bool Inv> static VrxStatus pathC(const Plan* p, CRef<T> s, CRef<T> d, bool interleaved, uint8_t* work) {
        switch (p->path) {
            case kPathSmall:
            case kPathHalfSmall: smallC<Inv>(p->n, s, d, T(0)); return vrxOk;
            case kPathPf:
                pfComplex<T>(p, s.re, s.im, d.re, d.im, !interleaved, Inv, reinterpret_cast<C*>(work));
                return vrxOk;
            case kPathDir: dirC<Inv>(p, s, d, reinterpret_cast<C*>(work)); return vrxOk;
            default: return convC<Inv>(p, s, d, work, interleaved);
        }
    }

    template <bool Inv>
    static VrxStatus runC(Kind K, const void* planMem, const T* sRe, const T* sIm, T* dRe, T* dIm, Vrx8u* pBuf) {
        const Plan* p;
        if (VrxStatus st = open(fft::align64(planMem), static_cast<ObjId>(Tr::id(K)), &p)) return st;
        const bool split = K == Kind::Cs;
        if (!sRe || !dRe || (split && (!sIm || !dIm))) return vrxErrNullPtr;
        if (!pBuf && p->workSize > 0) return vrxErrNullPtr;
        const int N = p->length;
        const bool norm = Inv ? p->invNorm : p->fwdNorm;
        const T scale = norm ? (sizeof(T) == 4 ? T(p->normScale.f) : T(p->normScale.d)) : T(0);
        // the fixed-length kernels straight from here: no frame for the other paths
        if (p->path == kPathSmall && !isPow2(N)) {
            if (!split && (N == 12 || N == 15)) return smallVecC<T, Inv>(N, sRe, dRe, scale);
            smallRunC<T>(N, Inv, sRe, split ? sIm : sRe + 1, split ? 1 : 2, dRe, split ? dIm : dRe + 1, split ? 1 : 2, scale);
            return vrxOk;
        }
        return runCPath<Inv>(p, split, sRe, sIm, dRe, dIm, pBuf, scale);
    }
    template <bool Inv>
    __attribute__((noinline)) static VrxStatus runCPath(const Plan* p, bool split, const T* sRe, const T* sIm, T* dRe,
                                                        T* dIm, Vrx8u* pBuf, T scale) {
        const int N = p->length;
        const CRef<T> s = split ? CRef<T>{const_cast<T*>(sRe), const_cast<T*>(sIm), 1}
                                : CRef<T>{const_cast<T*>(sRe), const_cast<T*>(sRe) + 1, 2};
        const CRef<T> d = split ? CRef<T>{dRe, dIm, 1} : CRef<T>{dRe, dRe + 1, 2};
        if (p->path == kPathSmall) {
            smallC<Inv>(N, s, d, scale);
            return vrxOk;
        }
        if (p->path == kPathFft) return Tr::fftRunC(split ? Kind::Cs : Kind::C, Inv, sRe, sIm, dRe, dIm, p->innerPlan, pBuf);
        uint8_t* work = fft::align64(pBuf);
        if (VrxStatus st = pathC<Inv>(p, s, d, !split, work)) return st;
        if (scale != T(0)) {
            if (split) {
                Tr::mulScalarI(scale, dRe, N);
                Tr::mulScalarI(scale, dIm, N);
            } else {
                Tr::mulScalarI(scale, dRe, 2 * N);
            }
        }
        return vrxOk;
    }

    // ---------------------------------------------------------- real dispatch

    // The checks of a real entry in their order; the plan and the scale of the direction.
    VRX_INLINE static VrxStatus openR(const void* planMem, const T* src, T* dst, Vrx8u* pBuf, bool inv,
                                      const Plan** pp, T* scale) {
        const Plan* p;
        if (VrxStatus st = open(fft::align64(planMem), static_cast<ObjId>(Tr::id(Kind::R)), &p)) return st;
        if (!src || !dst) return vrxErrNullPtr;
        if (!pBuf && p->workSize > 0) return vrxErrNullPtr;
        const bool norm = inv ? p->invNorm : p->fwdNorm;
        *scale = norm ? (sizeof(T) == 4 ? T(p->normScale.f) : T(p->normScale.d)) : T(0);
        *pp = p;
        return vrxOk;
    }

    static VrxStatus runRFwd(const void* planMem, const T* src, T* dst, Vrx8u* pBuf, fft::Form form) {
        const Plan* p;
        T scale;
        if (VrxStatus st = openR(planMem, src, dst, pBuf, false, &p, &scale)) return st;
        const int N = p->length;
        // the fixed-length kernels straight from here: no frame for the other paths
        if (p->path == kPathSmall && !isPow2(N)) {
            // single precision: the register kernels of 12 and 15
            using Fwd = std::conditional_t<sizeof(T) == 4, RealSmallVec<T>, RealSmall<T>>;
            if (N == 12) Fwd::fwd12(src, dst, scale, form);
            else if (N == 15) Fwd::fwd15(src, dst, scale, form);
            else smallRunRFwd<T>(N, src, dst, scale, form);
            return vrxOk;
        }
        return runRFwdPath(p, src, dst, pBuf, form, scale);
    }
    __attribute__((noinline)) static VrxStatus runRFwdPath(const Plan* p, const T* src, T* dst, Vrx8u* pBuf,
                                                           fft::Form form, T scale) {
        const int N = p->length;
        if (p->path == kPathFft) return Tr::fftRunR(false, form, src, dst, p->innerPlan, pBuf);
        uint8_t* work = fft::align64(pBuf);
        if (p->path == kPathSmall) {
            fft::smallReal<T, false>(log2i(N), src, dst, scale);
        } else {
            if (N % 2 && p->path != kPathPf && p->path != kPathDir) {
                // convolution: reads src itself; with no scale it writes CCS in place
                const bool ccs = form == fft::Form::CCS && scale == T(0);
                if (VrxStatus st = convRFwd(p, src, dst, work, ccs)) return st;
                if (ccs) return vrxOk;
            } else if (N % 2) {
                if (src != dst) memmove(dst, src, sizeof(T) * N);
                if (p->path == kPathPf) pfReal<T>(p, dst, false);
                else dirRFwd(p, dst, reinterpret_cast<T*>(work));
            } else {
                const int H = p->n;
                const CRef<T> s{const_cast<T*>(src), const_cast<T*>(src) + 1, 2};
                const CRef<T> d{dst, dst + 1, 2};
                const T* rt = static_cast<const T*>(p->recFwdTab);
                // the engine's last pass may take the recombination with it
                if (p->path == kPathPf) {
                    if (pfRealFwdTl<T>(p, src, dst, form, scale)) return vrxOk;
                    if (!pfComplex<T>(p, src, nullptr, dst, nullptr, false, false, reinterpret_cast<C*>(work), rt))
                        recombineFwd(dst, H, rt);
                } else {
                    if (VrxStatus st = pathC<false>(p, s, d, true, work)) return st;
                    recombineFwd(dst, H, rt);
                }
            }
            if (scale != T(0)) Tr::mulScalarI(scale, dst, N);
        }
        toForm(dst, N, form);
        return vrxOk;
    }

    static VrxStatus runRInv(const void* planMem, const T* src, T* dst, Vrx8u* pBuf, fft::Form form) {
        const Plan* p;
        T scale;
        if (VrxStatus st = openR(planMem, src, dst, pBuf, true, &p, &scale)) return st;
        const int N = p->length;
        if (p->path == kPathSmall && !isPow2(N)) {
            if (N == 12) RealSmall<T>::inv12(src, dst, scale, form);
            else if (N == 15) RealSmall<T>::inv15(src, dst, scale, form);
            else smallRunRInv<T>(N, src, dst, scale, form);
            return vrxOk;
        }
        return runRInvPath(p, src, dst, pBuf, form, scale);
    }
    __attribute__((noinline)) static VrxStatus runRInvPath(const Plan* p, const T* src, T* dst, Vrx8u* pBuf,
                                                           fft::Form form, T scale) {
        const int N = p->length;
        if (p->path == kPathFft) return Tr::fftRunR(true, form, src, dst, p->innerPlan, pBuf);
        uint8_t* work = fft::align64(pBuf);
        fromForm(src, dst, N, form);
        if (p->path == kPathSmall) {
            fft::smallReal<T, true>(log2i(N), dst, dst, scale);
            return vrxOk;
        }
        if (N % 2) {
            if (p->path == kPathPf) pfReal<T>(p, dst, true);
            else if (p->path == kPathDir) dirRInv(p, dst, reinterpret_cast<T*>(work));
            else if (VrxStatus st = convRInv(p, dst, work)) return st;
        } else {
            const int H = p->n;
            recombineInv(dst, H, static_cast<const T*>(p->recInvTab));
            const CRef<T> d{dst, dst + 1, 2};
            if (VrxStatus st = pathC<true>(p, d, d, true, work)) return st;
        }
        if (scale != T(0)) Tr::mulScalarI(scale, dst, N);
        return vrxOk;
    }

    // Perm to the requested form; odd N: Pack is Perm, CCS adds the zero after R(0).
    static void toForm(T* d, int N, fft::Form f) {
        if (N % 2 == 0) { fft::permToForm<T>(d, N, f); return; }
        if (f != fft::Form::CCS) return;
        if (N > 1) memmove(d + 2, d + 1, sizeof(T) * (N - 1));
        d[1] = T(0);
    }
    // The requested form to Perm in d (s may be d).
    static void fromForm(const T* s, T* d, int N, fft::Form f) {
        if (f == fft::Form::CCS) {
            const T r0 = s[0];
            if (N % 2) {
                if (N > 1) memmove(d + 1, s + 2, sizeof(T) * (N - 1));
            } else {
                const T rh = s[N];
                if (N > 2) memmove(d + 2, s + 2, sizeof(T) * (N - 2));
                d[1] = rh;
            }
            d[0] = r0;
        } else if (f == fft::Form::Pack && N % 2 == 0) {
            fft::unfoldPack<T>(s, d, N);
        } else if (s != d) {
            memmove(d, s, sizeof(T) * N);
        }
    }

    // The recombinations run G = lanes bins k .. k+G-1 a step against their
    // partners H-k .. H-k-G+1, in split registers: the two registers of
    // each side are split into real and imaginary parts (the partners
    // reversed by the same permute) and the results interleaved back.
    // The table holds the first factors of bins 1 .. K (K = H/2), then their
    // second ones, so a step (or any run of consecutive bins) loads them
    // straight.
    static constexpr int kG = simd::V<T>::N;
    struct RecIdx {
        using I = std::conditional_t<sizeof(T) == 4, int32_t, int64_t>;
        // ev/od: parts of bins 0..G-1 of a pair of registers; rev/rod: of
        // bins G-1..0; lo/hi: (re, im) pairs of bins 0.., G/2.. from the
        // part registers; ylo/yhi: the same of bins G-1.., G/2-1..
        alignas(64) I ev[kG] = {}, od[kG] = {}, rev[kG] = {}, rod[kG] = {}, lo[kG] = {}, hi[kG] = {}, ylo[kG] = {},
                      yhi[kG] = {};
        constexpr RecIdx() {
            for (int j = 0; j < kG; ++j) {
                ev[j] = static_cast<I>(2 * j);
                od[j] = static_cast<I>(2 * j + 1);
                rev[j] = static_cast<I>(2 * (kG - 1 - j));
                rod[j] = static_cast<I>(2 * (kG - 1 - j) + 1);
            }
            for (int m = 0; m < kG / 2; ++m)
                for (int h = 0; h < 2; ++h) {
                    lo[2 * m + h] = static_cast<I>(m + h * kG);
                    hi[2 * m + h] = static_cast<I>(kG / 2 + m + h * kG);
                    ylo[2 * m + h] = static_cast<I>(kG - 1 - m + h * kG);
                    yhi[2 * m + h] = static_cast<I>(kG / 2 - 1 - m + h * kG);
                }
        }
    };
    static constexpr RecIdx kRecIdx{};

    // The parts of one step: bins x (k + j) and partners y (H - k - j) in
    // lane j, the table's factors a and b of bin k + j.
    struct RecParts {
        typename simd::V<T>::R xr, xi, yr, yi, a, b;
    };
    // f(parts, Xr, Xi, Yr, Yi) gives the new bins k + j and H - k - j; the
    // partner side is stored last (bin H/2 when H is even); the last step
    // masks off the bins past H/2.
    template <class F> static VRX_INLINE void recSteps(T* z, int64_t H, const T* tab, F&& f) {
        using S = simd::V<T>;
        using R = typename S::R;
        using M = typename S::M;
        constexpr int NL = S::N;
        const __m512i ev = _mm512_load_si512(kRecIdx.ev), od = _mm512_load_si512(kRecIdx.od),
                      rev = _mm512_load_si512(kRecIdx.rev), rod = _mm512_load_si512(kRecIdx.rod),
                      lo = _mm512_load_si512(kRecIdx.lo), hi = _mm512_load_si512(kRecIdx.hi),
                      ylo = _mm512_load_si512(kRecIdx.ylo), yhi = _mm512_load_si512(kRecIdx.yhi);
        const int64_t K = H / 2;
        const auto step = [&](int64_t k, int64_t cnt, auto full) {
            T* px = z + 2 * k;
            T* py = z + 2 * (H - k - kG + 1);
            const T* pt = tab + (k - 1);
            R x0, x1, y0, y1;
            RecParts q;
            M mx0{}, mx1{}, my0{}, my1{};
            if constexpr (decltype(full)::value) {
                x0 = S::load(px);
                x1 = S::load(px + NL);
                y0 = S::load(py);
                y1 = S::load(py + NL);
                q.a = S::load(pt);
                q.b = S::load(pt + K);
            } else {
                const int c2 = static_cast<int>(2 * cnt), lead = 2 * kG - c2;  // values of each side, lanes before y's
                mx0 = simd::tail<T>(c2);
                mx1 = simd::tail<T>(c2 > NL ? c2 - NL : 0);
                my0 = static_cast<M>(~simd::tail<T>(lead));
                my1 = static_cast<M>(~simd::tail<T>(lead > NL ? lead - NL : 0));
                x0 = S::loadm(mx0, px);
                x1 = S::loadm(mx1, px + NL);
                y0 = S::loadm(my0, py);
                y1 = S::loadm(my1, py + NL);
                const M mt = simd::tail<T>(static_cast<int>(cnt));
                q.a = S::loadm(mt, pt);
                q.b = S::loadm(mt, pt + K);
            }
            q.xr = S::permute2(x0, ev, x1);
            q.xi = S::permute2(x0, od, x1);
            q.yr = S::permute2(y0, rev, y1);
            q.yi = S::permute2(y0, rod, y1);
            R Xr, Xi, Yr, Yi;
            f(q, Xr, Xi, Yr, Yi);
            const R o0 = S::permute2(Xr, lo, Xi), o1 = S::permute2(Xr, hi, Xi);
            const R p0 = S::permute2(Yr, ylo, Yi), p1 = S::permute2(Yr, yhi, Yi);
            if constexpr (decltype(full)::value) {
                S::store(px, o0);
                S::store(px + NL, o1);
                S::store(py, p0);
                S::store(py + NL, p1);
            } else {
                S::storem(px, mx0, o0);
                S::storem(px + NL, mx1, o1);
                S::storem(py, my0, p0);
                S::storem(py + NL, my1, p1);
            }
        };
        int64_t k = 1;
        for (; k + kG - 1 <= K; k += kG) step(k, int64_t(kG), std::true_type{});
        if (k <= K) step(k, K - k + 1, std::false_type{});
    }

    // Half-length spectrum z (H complex values) to Perm, in place: with
    // x = z[k], y = z[H-k] and the factors (a, b) of bin k (recFwdPair).
    static void recombineFwd(T* z, int64_t H, const T* tab) {
        using S = simd::V<T>;
        using R = typename S::R;
        const T p0 = z[0], q0 = z[1];
        z[0] = p0 + q0;
        z[1] = p0 - q0;
        recSteps(z, H, tab, [](const RecParts& q, R& Xr, R& Xi, R& Yr, R& Yi) {
            recFwdPair<S>(q.xr, q.xi, q.yr, q.yi, q.a, q.b, Xr, Xi, Yr, Yi);
        });
    }
    // Perm to twice the half-length spectrum, in place: with the factors
    // (a, b) of bin k, U = b*dr - a*di, T = a*dr + b*di, s = (xr + yr, xi - yi),
    // z[k] = (sr + U, si + T), z[H-k] = (sr - U, T - si).
    static void recombineInv(T* z, int64_t H, const T* tab) {
        using S = simd::V<T>;
        using R = typename S::R;
        const T r0 = z[0], rh = z[1];
        recSteps(z, H, tab, [](const RecParts& q, R& Xr, R& Xi, R& Yr, R& Yi) {
            const R dr = S::sub(q.xr, q.yr), di = S::add(q.xi, q.yi);
            const R U = S::sub(S::mul(q.b, dr), S::mul(q.a, di));
            const R Tt = S::add(S::mul(q.a, dr), S::mul(q.b, di));
            const R sr = S::add(q.xr, q.yr), si = S::sub(q.xi, q.yi);
            Xr = S::add(sr, U);
            Xi = S::add(si, Tt);
            Yr = S::sub(sr, U);
            Yi = S::sub(Tt, si);
        });
        z[0] = r0 + rh;
        z[1] = r0 - rh;
    }
};

// ------------------------------------------------------------ FFT entries
// The FFT side of a width's entries (vrx_fft_calls.h) by plan kind, for the
// power-of-two lengths and the inner transforms.
template <class T> struct FftPart {
    using R = FftCalls<T>;             // real plans
    using TC = typename R::Cplx;
    using X = FftCalls<TC>;            // interleaved complex plans
    using P = FftSplit<T>;             // split complex plans
    using C = Cx<T>;
    static VrxStatus fftGetSize(Kind k, int order, int flag, int hint, int* s, int* i, int* w) {
        if (k == Kind::C) return X::getSize(order, flag, hint, s, i, w);
        if (k == Kind::Cs) return P::getSize(order, flag, hint, s, i, w);
        return R::getSize(order, flag, hint, s, i, w);
    }
    static VrxStatus fftInit(Kind k, void** pp, int order, int flag, int hint, uint8_t* mem, uint8_t* ib) {
        if (k == Kind::C) return X::init(reinterpret_cast<typename X::Plan**>(pp), order, flag, hint, mem, ib);
        if (k == Kind::Cs) return P::init(reinterpret_cast<typename P::Plan**>(pp), order, flag, hint, mem, ib);
        return R::init(reinterpret_cast<typename R::Plan**>(pp), order, flag, hint, mem, ib);
    }
    static VrxStatus fftBufSize(Kind k, void* plan, int* s) {
        if (k == Kind::C) return X::bufSize(static_cast<const typename X::Plan*>(plan), s);
        if (k == Kind::Cs) return P::bufSize(static_cast<const typename P::Plan*>(plan), s);
        return R::bufSize(static_cast<const typename R::Plan*>(plan), s);
    }
    static VrxStatus fftRunC(Kind k, bool inv, const T* sRe, const T* sIm, T* dRe, T* dIm, const void* plan, Vrx8u* buf) {
        if (k == Kind::C) {
            const TC* s = reinterpret_cast<const TC*>(sRe);
            TC* d = reinterpret_cast<TC*>(dRe);
            const auto* pl = static_cast<const typename X::Plan*>(plan);
            return inv ? X::inv(s, d, pl, buf) : X::fwd(s, d, pl, buf);
        }
        const auto* pl = static_cast<const typename P::Plan*>(plan);
        return inv ? P::inv(sRe, sIm, dRe, dIm, pl, buf) : P::fwd(sRe, sIm, dRe, dIm, pl, buf);
    }
    static VrxStatus fftRunR(bool inv, fft::Form f, const T* s, T* d, const void* plan, Vrx8u* buf) {
        const auto* pl = static_cast<const typename R::Plan*>(plan);
        if (!inv) {
            if (f == fft::Form::CCS) return R::fwdCCS(s, d, pl, buf);
            if (f == fft::Form::Pack) return R::fwdPack(s, d, pl, buf);
            return R::fwdPerm(s, d, pl, buf);
        }
        if (f == fft::Form::CCS) return R::invCCS(s, d, pl, buf);
        if (f == fft::Form::Pack) return R::invPack(s, d, pl, buf);
        return R::invPerm(s, d, pl, buf);
    }
    static VrxStatus zeroC(C* d, int n) { return X::zero(reinterpret_cast<TC*>(d), n); }
    static VrxStatus mulCI(const C* s, C* d, int n) { return X::mulI(reinterpret_cast<const TC*>(s), reinterpret_cast<TC*>(d), n); }
    static VrxStatus mulC(const C* a, const C* b, C* d, int n) {
        return X::mul(reinterpret_cast<const TC*>(a), reinterpret_cast<const TC*>(b), reinterpret_cast<TC*>(d), n);
    }
    static VrxStatus mulScalarI(T v, T* d, int n) { return R::mulCI(v, d, n); }
};

}  // namespace n0::dft
