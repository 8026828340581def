// Prime-factor engine of the DFT: mixed-radix stages over the factor records
// of a plan. Complex data runs decimation in frequency in place in the work
// buffer and is gathered into natural order; real data of odd length runs
// the same stages in place in the destination (the real stage keeps half of
// its conjugate-symmetric outputs, as split complex sub-blocks) and is put
// into the odd-length packed form by one in-place permutation.
#include "vrx_dft.h"
#include "simd/simd.h"

#include <string.h>

#include <type_traits>

namespace n0::dft {

namespace {

constexpr long double kTwoPi = 6.283185307179586476925286766559005768L;

template <class T> struct RootTab { Cx<T> r[17][16]; };
template <class T> constexpr RootTab<T> makeRoots() {
    RootTab<T> t{};
    for (int R = 1; R <= 16; ++R)
        for (int q = 0; q < R; ++q) {
            const long double a = kTwoPi * q / R;
            t.r[R][q] = {static_cast<T>(__builtin_cosl(a)), static_cast<T>(-__builtin_sinl(a))};
        }
    return t;
}
// Constant-initialised where the compiler folds cosl/sinl (g++); computed
// once at load otherwise.
template <class T> const RootTab<T> kRoots = makeRoots<T>();

// (j*m) mod R for the fixed radices.
struct IdxTab { uint8_t q[17][16][16]; };
constexpr IdxTab makeIdx() {
    IdxTab t{};
    for (int R = 1; R <= 16; ++R)
        for (int j = 0; j < R; ++j)
            for (int m = 0; m < R; ++m) t.q[R][j][m] = static_cast<uint8_t>((j * m) % R);
    return t;
}
constexpr IdxTab kIdx = makeIdx();

constexpr bool inList(int v, const int* l, int n) {
    for (int i = 0; i < n; ++i)
        if (l[i] == v) return true;
    return false;
}
// Radices with fixed kernels: untwiddled (Prime) and twiddled (Fact) stages.
constexpr int kPrimeC[] = {2, 3, 4, 5, 6, 7, 8, 11, 13, 16};
constexpr int kFactC[] = {2, 3, 4, 5, 7, 11, 13};
constexpr int kPrimeR[] = {11, 13};
constexpr int kFactR[] = {5, 7, 11, 13};

bool genericTab(int f) { return (f & 1) && f >= 14; }

// ------------------------------------------------------------ radix kernels

// A register of L values of T with the arithmetic of the SIMD layer, so
// that the radix kernels run L columns at once.
template <class T> struct VE {
    using S = simd::V<T>;
    typename S::R r;
};
template <class T> VRX_INLINE VE<T> operator+(VE<T> a, VE<T> b) { return {VE<T>::S::add(a.r, b.r)}; }
template <class T> VRX_INLINE VE<T> operator-(VE<T> a, VE<T> b) { return {VE<T>::S::sub(a.r, b.r)}; }
template <class T> VRX_INLINE VE<T> operator*(VE<T> a, VE<T> b) { return {VE<T>::S::mul(a.r, b.r)}; }
template <class T> VRX_INLINE VE<T> operator*(VE<T> a, T b) { return {VE<T>::S::mul(a.r, VE<T>::S::set1(b))}; }
template <class T> VRX_INLINE VE<T> operator*(T a, VE<T> b) { return {VE<T>::S::mul(VE<T>::S::set1(a), b.r)}; }
template <class T> VRX_INLINE VE<T> operator-(VE<T> a) { return {VE<T>::S::neg(a.r)}; }
template <class T> VRX_INLINE VE<T>& operator+=(VE<T>& a, VE<T> b) { a = a + b; return a; }

// Straight-line DFT of a fixed odd radix R: the roots are constants; inputs
// j and R-j pair up as a = v[j] + v[R-j], b = v[j] - v[R-j], so that bins m
// and R-m share the sums of a*cos and b*sin (in the order j = 1 .. R/2).
template <class T, class E, int R> VRX_INLINE void dftT(const Cx<E>* v, Cx<E>* y) {
    constexpr const Cx<T>* W = kRoots<T>.r[R];
    constexpr int h = R / 2;
    Cx<E> a[h], b[h];
    VRX_UNROLL(8)
    for (int j = 1; j <= h; ++j) {
        a[j - 1] = {v[j].re + v[R - j].re, v[j].im + v[R - j].im};
        b[j - 1] = {v[j].re - v[R - j].re, v[j].im - v[R - j].im};
    }
    E s0r = v[0].re, s0i = v[0].im;
    VRX_UNROLL(8)
    for (int j = 0; j < h; ++j) {
        s0r += a[j].re;
        s0i += a[j].im;
    }
    VRX_UNROLL(8)
    for (int m = 1; m <= h; ++m) {
        E ar = v[0].re, ai = v[0].im;
        E br = b[0].re * W[m].im, bi = b[0].im * W[m].im;
        ar += a[0].re * W[m].re;
        ai += a[0].im * W[m].re;
        VRX_UNROLL(8)
        for (int j = 2; j <= h; ++j) {
            const int q = kIdx.q[R][j][m];
            ar += a[j - 1].re * W[q].re;
            ai += a[j - 1].im * W[q].re;
            br += b[j - 1].re * W[q].im;
            bi += b[j - 1].im * W[q].im;
        }
        // v[j] W^(jm) + v[R-j] W^(-jm) = a*cos + i*b*sin
        y[m] = {ar - bi, ai + br};
        y[R - m] = {ar + bi, ai - br};
    }
    y[0] = {s0r, s0i};
}

// y[m] = sum_j v[j] W^(j*m), m = 0 .. R-1 (forward sign; W the roots of
// order R): butterflies of 2, 3, 4 and 5, straight-line primes, generic sums.
template <class T, class E> VRX_INLINE void dftBase(int R, const Cx<T>* W, const Cx<E>* v, Cx<E>* y) {
    switch (R) {
        case 7: dftT<T, E, 7>(v, y); return;
        case 11: dftT<T, E, 11>(v, y); return;
        case 13: dftT<T, E, 13>(v, y); return;

        case 1: y[0] = v[0]; return;
        case 2:
            y[0] = {v[0].re + v[1].re, v[0].im + v[1].im};
            y[1] = {v[0].re - v[1].re, v[0].im - v[1].im};
            return;
        case 3: {
            const T s = W[1].im;  // -sin(2*pi/3)
            const E tr = v[1].re + v[2].re, ti = v[1].im + v[2].im;
            const E dr = v[1].re - v[2].re, di = v[1].im - v[2].im;
            const E ar = v[0].re - T(0.5) * tr, ai = v[0].im - T(0.5) * ti;
            y[0] = {v[0].re + tr, v[0].im + ti};
            y[1] = {ar - s * di, ai + s * dr};
            y[2] = {ar + s * di, ai - s * dr};
            return;
        }
        case 4: {
            const E ar = v[0].re + v[2].re, ai = v[0].im + v[2].im;
            const E br = v[0].re - v[2].re, bi = v[0].im - v[2].im;
            const E cr = v[1].re + v[3].re, ci = v[1].im + v[3].im;
            const E dr = v[1].re - v[3].re, di = v[1].im - v[3].im;
            y[0] = {ar + cr, ai + ci};
            y[2] = {ar - cr, ai - ci};
            y[1] = {br + di, bi - dr};
            y[3] = {br - di, bi + dr};
            return;
        }
        case 5: {
            const T c1 = W[1].re, s1 = W[1].im, c2 = W[2].re, s2 = W[2].im;
            const E t1r = v[1].re + v[4].re, t1i = v[1].im + v[4].im;
            const E t2r = v[2].re + v[3].re, t2i = v[2].im + v[3].im;
            const E d1r = v[1].re - v[4].re, d1i = v[1].im - v[4].im;
            const E d2r = v[2].re - v[3].re, d2i = v[2].im - v[3].im;
            y[0] = {v[0].re + t1r + t2r, v[0].im + t1i + t2i};
            const E a1r = v[0].re + c1 * t1r + c2 * t2r, a1i = v[0].im + c1 * t1i + c2 * t2i;
            const E a2r = v[0].re + c2 * t1r + c1 * t2r, a2i = v[0].im + c2 * t1i + c1 * t2i;
            // i*(s1*d1 + s2*d2) and i*(s2*d1 - s1*d2)
            const E b1r = -(s1 * d1i + s2 * d2i), b1i = s1 * d1r + s2 * d2r;
            const E b2r = -(s2 * d1i - s1 * d2i), b2i = s2 * d1r - s1 * d2r;
            y[1] = {a1r + b1r, a1i + b1i};
            y[4] = {a1r - b1r, a1i - b1i};
            y[2] = {a2r + b2r, a2i + b2i};
            y[3] = {a2r - b2r, a2i - b2i};
            return;
        }
        default: break;
    }
    // generic: conjugate pairs m and R-m share the sums of v[j] +- v[R-j]
    // for odd R; plain sums otherwise
    for (int m = 0; m < R; ++m) {
        E sr = v[0].re, si = v[0].im;
        int q = 0;
        for (int j = 1; j < R; ++j) {
            q += m;
            if (q >= R) q -= R;
            sr += v[j].re * W[q].re - v[j].im * W[q].im;
            si += v[j].re * W[q].im + v[j].im * W[q].re;
        }
        y[m] = {sr, si};
    }
}

// N = N1*N2 in two straight-line levels: DFTs of N1 over x[n2 + N2*n1],
// the factors w_N^(n2*k1), DFTs of N2 into y[k1 + N1*k2].
template <class T, class E, int N1, int N2> VRX_INLINE void smallCt(const Cx<E>* x, Cx<E>* y) {
    constexpr int N = N1 * N2;
    Cx<E> a[N2][N1], v[N1 > N2 ? N1 : N2], o[N1 > N2 ? N1 : N2];
    VRX_UNROLL(8)
    for (int n2 = 0; n2 < N2; ++n2) {
        VRX_UNROLL(8)
        for (int n1 = 0; n1 < N1; ++n1) v[n1] = x[n2 + N2 * n1];
        dftBase<T, E>(N1, kRoots<T>.r[N1], v, a[n2]);
    }
    VRX_UNROLL(8)
    for (int k1 = 0; k1 < N1; ++k1) {
        VRX_UNROLL(8)
        for (int n2 = 0; n2 < N2; ++n2) {
            const int q = (n2 * k1) % N;
            const Cx<T> w = kRoots<T>.r[N][q];
            const Cx<E> z = a[n2][k1];
            // the quarter turns are exact: -i, -1, i
            if (q == 0) v[n2] = z;
            else if (4 * q == N) v[n2] = {z.im, -z.re};
            else if (2 * q == N) v[n2] = {-z.re, -z.im};
            else if (4 * q == 3 * N) v[n2] = {-z.im, z.re};
            else v[n2] = {z.re * w.re - z.im * w.im, z.re * w.im + z.im * w.re};
        }
        dftBase<T, E>(N2, kRoots<T>.r[N2], v, o);
        VRX_UNROLL(8)
        for (int k2 = 0; k2 < N2; ++k2) y[k1 + N1 * k2] = o[k2];
    }
}

// Any radix of the engine: composite ones up to 16 in two levels.
template <class T, class E> VRX_INLINE void dftR(int R, const Cx<T>* W, const Cx<E>* v, Cx<E>* y) {
    switch (R) {
        case 6: smallCt<T, E, 2, 3>(v, y); return;
        case 8: smallCt<T, E, 2, 4>(v, y); return;
        case 9: smallCt<T, E, 3, 3>(v, y); return;
        case 16: smallCt<T, E, 4, 4>(v, y); return;
        default: dftBase<T, E>(R, W, v, y); return;
    }
}

// Real input: Y[m] for m = 0 .. (R-1)/2 of R (odd) reals; E is T or a
// register of them (z its zero).
template <class T, class E = T> VRX_INLINE void dftRReal(int R, const Cx<T>* W, const E* v, Cx<E>* y, E z = E()) {
    E s0 = v[0];
    for (int j = 1; j < R; ++j) s0 += v[j];
    y[0] = {s0, z};
    const int h = (R - 1) / 2;
    for (int m = 1; m <= h; ++m) {
        E sr = v[0], si = z;
        int q = 0;
        for (int j = 1; j <= h; ++j) {
            q += m;
            if (q >= R) q -= R;
            // v[j] W^(jm) + v[R-j] W^(-jm)
            sr += (v[j] + v[R - j]) * W[q].re;
            si += (v[j] - v[R - j]) * W[q].im;
        }
        y[m] = {sr, si};
    }
}

template <class T> VRX_INLINE const Cx<T>* rootsOf(int R, const void* gen) {
    return R <= 16 ? kRoots<T>.r[R] : static_cast<const Cx<T>*>(gen);
}

constexpr int kMaxRadix = 150;

// The prime radices of straight-line sums as rows for the last level: row j
// holds W^(j*m) with the lanes over m (zero past R), so that one register
// sums the terms of up to L bins in the order j = 0 .. R-1.
constexpr int rowSlot(int R) { return R == 7 ? 0 : R == 11 ? 1 : R == 13 ? 2 : -1; }
template <class T> struct RowTab {
    alignas(64) T re[3][16][16];
    alignas(64) T im[3][16][16];
};
template <class T> constexpr RowTab<T> makeRows() {
    const RootTab<T> w = makeRoots<T>();  // folded by g++, at load by others
    RowTab<T> t{};
    constexpr int kRadix[] = {7, 11, 13};
    for (int R : kRadix)
        for (int j = 0; j < R; ++j)
            for (int m = 0; m < R; ++m) {
                t.re[rowSlot(R)][j][m] = w.r[R][(j * m) % R].re;
                t.im[rowSlot(R)][j][m] = w.r[R][(j * m) % R].im;
            }
    return t;
}
template <class T> const RowTab<T> kRows = makeRows<T>();

// The DFT of R contiguous values in place (split arrays) for a radix with
// rows: the plain sums over j = 0 .. R-1, bins across the lanes.
template <class T> void dftRows(int R, T* re, T* im) {
    using S = simd::V<T>;
    constexpr int NL = S::N;
    const int slot = rowSlot(R);
    const RowTab<T>& tb = kRows<T>;
    typename S::R outR[16 / NL], outI[16 / NL];
    const int nv = (R + NL - 1) / NL;
    for (int v = 0; v < nv; ++v) {
        const int m0 = v * NL;
        typename S::R sr = S::set1(re[0]), si = S::set1(im[0]);
        for (int j = 1; j < R; ++j) {
            const typename S::R xr = S::set1(re[j]), xi = S::set1(im[j]);
            const typename S::R wr = S::load(tb.re[slot][j] + m0), wi = S::load(tb.im[slot][j] + m0);
            sr = S::add(sr, S::sub(S::mul(xr, wr), S::mul(xi, wi)));
            si = S::add(si, S::add(S::mul(xr, wi), S::mul(xi, wr)));
        }
        outR[v] = sr;
        outI[v] = si;
    }
    for (int v = 0; v < nv; ++v) {
        const int m0 = v * NL;
        const typename S::M mk = simd::tail<T>(R - m0 < NL ? R - m0 : NL);
        S::storem(re + m0, mk, outR[v]);
        S::storem(im + m0, mk, outI[v]);
    }
}

// ------------------------------------------------------------ complex stages

// Decimation in frequency in place on n / prod values at level lvl, split
// arrays. A twiddled stage runs L columns k at a time in registers, the
// rest one by one; the twiddles of factor m are rest real parts, then rest
// imaginary parts.
template <class T> void cdif(const Plan* p, int lvl, T* re, T* im) {
    const int L = p->lastFactor;
    if (L < 0) __builtin_unreachable();  // a plan has at least two factors
    Cx<T> v[kMaxRadix], y[kMaxRadix];
    if (lvl > L) {
        const int R = p->rec[L].rest;
        if (rowSlot(R) >= 0) {
            dftRows<T>(R, re, im);
            return;
        }
        const Cx<T>* W = rootsOf<T>(R, p->lastGen);
        for (int j = 0; j < R; ++j) v[j] = {re[j], im[j]};
        dftR<T, T>(R, W, v, y);
        for (int j = 0; j < R; ++j) { re[j] = y[j].re; im[j] = y[j].im; }
        return;
    }
    const Rec& r = p->rec[lvl];
    const int R = r.factor, rest = r.rest;
    const Cx<T>* W = rootsOf<T>(R, r.gen);
    const T* tw = static_cast<const T*>(r.tw);
    int k = 0;
    using S = simd::V<T>;
    constexpr int NL = S::N;
    if (R <= 16) {
        // L columns at a time in registers, the last few under a mask
        auto cols = [&]<bool Mk>(int k, typename S::M mk) {
            auto ld = [mk](const T* q) { if constexpr (Mk) return S::loadm(mk, q); else return S::load(q); };
            auto st = [mk](T* q, typename S::R x) { if constexpr (Mk) S::storem(q, mk, x); else S::store(q, x); };
            Cx<VE<T>> vv[16], yy[16];
            for (int j = 0; j < R; ++j) {
                const int64_t i = int64_t(j) * rest + k;
                vv[j] = {{ld(re + i)}, {ld(im + i)}};
            }
            dftR<T, VE<T>>(R, W, vv, yy);
            st(re + k, yy[0].re.r);
            st(im + k, yy[0].im.r);
            for (int m = 1; m < R; ++m) {
                const T* t = tw + int64_t(m - 1) * 2 * rest + k;
                const VE<T> wr{ld(t)}, wi{ld(t + rest)};
                const int64_t i = int64_t(m) * rest + k;
                st(re + i, (yy[m].re * wr - yy[m].im * wi).r);
                st(im + i, (yy[m].re * wi + yy[m].im * wr).r);
            }
        };
        for (; k + NL <= rest; k += NL) cols.template operator()<false>(k, typename S::M(0));
        if (k < rest) cols.template operator()<true>(k, simd::tail<T>(rest - k));
        k = rest;
    }
    for (; k < rest; ++k) {
        for (int j = 0; j < R; ++j) {
            const int64_t i = int64_t(j) * rest + k;
            v[j] = {re[i], im[i]};
        }
        dftR<T, T>(R, W, v, y);
        re[k] = y[0].re;
        im[k] = y[0].im;
        for (int m = 1; m < R; ++m) {
            const T* t = tw + int64_t(m - 1) * 2 * rest + k;
            const T wr = t[0], wi = t[rest];
            const int64_t i = int64_t(m) * rest + k;
            re[i] = y[m].re * wr - y[m].im * wi;
            im[i] = y[m].re * wi + y[m].im * wr;
        }
    }
    for (int m = 0; m < R; ++m) cdif<T>(p, lvl + 1, re + int64_t(m) * rest, im + int64_t(m) * rest);
}

// ------------------------------------------------------------ complex engine, self-sorting

// The complex transform runs the stages of the records out of place, each
// one a pass over all n values: a stage of radix R with l finished
// sub-transforms and m = rest reads a[q + l*(j*m + k)] and writes
// b[q + l*(r + R*k)] = w^(r*k) * sum_j a[..] W_R^(j*r), so the bins come out
// in natural order after the last stage. Stage 0 (l = 1) runs the registers
// across k; the others across q. Intermediate passes are split arrays.

template <class T> using CV = Cx<VE<T>>;

// NL complex values (the first cnt) at complex index i of interleaved data.
template <class T> VRX_INLINE CV<T> loadIl(const T* a, int64_t i, int cnt) {
    using S = simd::V<T>;
    constexpr int NL = S::N;
    const typename S::R lo = S::loadm(simd::tail<T>(2 * cnt < NL ? 2 * cnt : NL), a + 2 * i);
    const typename S::R hi = S::loadm(simd::tail<T>(2 * cnt > NL ? 2 * cnt - NL : 0), a + 2 * i + NL);
    CV<T> v;
    simd::deinterleave(lo, hi, v.re.r, v.im.r);
    return v;
}
template <class T> VRX_INLINE void storeIl(T* a, int64_t i, int cnt, CV<T> v) {
    using S = simd::V<T>;
    constexpr int NL = S::N;
    typename S::R lo, hi;
    simd::interleave(v.re.r, v.im.r, lo, hi);
    S::storem(a + 2 * i, simd::tail<T>(2 * cnt < NL ? 2 * cnt : NL), lo);
    S::storem(a + 2 * i + NL, simd::tail<T>(2 * cnt > NL ? 2 * cnt - NL : 0), hi);
}

// Index and lane masks of the R x NL transposition of stage 0 (R fixed).
template <class T, int RC> struct Transpose {
    static constexpr int NL = simd::V<T>::N, RM = RC ? RC : 1;
    using I = std::conditional_t<sizeof(T) == 4, int32_t, int64_t>;
    alignas(64) I idx[RM][NL] = {};
    // odd R: the lane permutation that moves column k of register r to
    // lane (R*k + r) mod NL, the lane it takes in its output register
    alignas(64) I rot[RM][NL] = {};
    typename simd::V<T>::M msk[RM][RM] = {};
    constexpr Transpose() {
        for (int r = 0; r < RM; ++r)
            for (int k = 0; k < NL; ++k) rot[r][(RM * k + r) % NL] = static_cast<I>(k);
        for (int v = 0; v < RM; ++v) {
            for (int r = 0; r < RM; ++r) msk[v][r] = 0;
            for (int i = 0; i < NL; ++i) {
                const int e = NL * v + i;
                idx[v][i] = static_cast<I>(e / RM);
                msk[v][e % RM] = static_cast<typename simd::V<T>::M>(msk[v][e % RM] | (1u << i));
            }
        }
    }
};
template <class T, int RC> inline constexpr Transpose<T, RC> kTranspose{};

// Register vo of an output tile of valid values at b: whole, or masked
// past the last value.
template <class T> VRX_INLINE void putTileReg(T* b, int vo, int valid, typename simd::V<T>::R x) {
    using S = simd::V<T>;
    constexpr int NL = S::N;
    const int left = valid - NL * vo;
    if (left >= NL) S::store(b + NL * vo, x);
    else S::storem(b + NL * vo, simd::tail<T>(left), x);
}

// The RC x 8 tile of double registers y[r] (lane k: column k) stored as
// 8 x RC values b[RC*k + r] (valid of them) for RC of 4 or 8: pairs of
// registers unpacked, then 128-bit blocks moved (no lane permutes).
template <int RC>
VRX_INLINE void tileOut4x8(const Cx<VE<double>>* y, int valid, double* bRe, double* bIm) {
    using S = simd::V<double>;
    using Rg = S::R;
    auto put = [valid](const Rg* o, double* b) {
        for (int vo = 0; vo < RC && 8 * vo < valid; ++vo) putTileReg<double>(b, vo, valid, o[vo]);
    };
    auto one = [&](const Rg* x, double* b) {
        if constexpr (RC == 4) {
            // output v: columns 2v and 2v+1, r = 0 .. 3 each
            const Rg a = simd::unpackLo(x[0], x[1]), bb = simd::unpackHi(x[0], x[1]);
            const Rg c = simd::unpackLo(x[2], x[3]), d = simd::unpackHi(x[2], x[3]);
            const Rg ac01 = simd::blocks128<0, 1, 0, 1>(a, c), bd01 = simd::blocks128<0, 1, 0, 1>(bb, d);
            const Rg ac23 = simd::blocks128<2, 3, 2, 3>(a, c), bd23 = simd::blocks128<2, 3, 2, 3>(bb, d);
            const Rg o[4] = {simd::blocks128<0, 2, 0, 2>(ac01, bd01), simd::blocks128<1, 3, 1, 3>(ac01, bd01),
                             simd::blocks128<0, 2, 0, 2>(ac23, bd23), simd::blocks128<1, 3, 1, 3>(ac23, bd23)};
            put(o, b);
        } else {
            // output v: column v, r = 0 .. 7
            Rg t[8], u[8], o[8];
            for (int i = 0; i < 4; ++i) {
                t[2 * i] = simd::unpackLo(x[2 * i], x[2 * i + 1]);
                t[2 * i + 1] = simd::unpackHi(x[2 * i], x[2 * i + 1]);
            }
            for (int h = 0; h < 2; ++h) {
                // h = 0: even columns from t0, t2, t4, t6; h = 1: odd ones from t1, t3, t5, t7
                u[4 * h + 0] = simd::blocks128<0, 1, 0, 1>(t[h], t[h + 2]);
                u[4 * h + 1] = simd::blocks128<2, 3, 2, 3>(t[h], t[h + 2]);
                u[4 * h + 2] = simd::blocks128<0, 1, 0, 1>(t[h + 4], t[h + 6]);
                u[4 * h + 3] = simd::blocks128<2, 3, 2, 3>(t[h + 4], t[h + 6]);
                o[h + 0] = simd::blocks128<0, 2, 0, 2>(u[4 * h], u[4 * h + 2]);
                o[h + 2] = simd::blocks128<1, 3, 1, 3>(u[4 * h], u[4 * h + 2]);
                o[h + 4] = simd::blocks128<0, 2, 0, 2>(u[4 * h + 1], u[4 * h + 3]);
                o[h + 6] = simd::blocks128<1, 3, 1, 3>(u[4 * h + 1], u[4 * h + 3]);
            }
            put(o, b);
        }
    };
    Rg xr[RC], xi[RC];
    for (int r = 0; r < RC; ++r) {
        xr[r] = y[r].re.r;
        xi[r] = y[r].im.r;
    }
    one(xr, bRe);
    one(xi, bIm);
}

// Four float registers of four 128-bit blocks transposed as a 4 x 4 matrix
// of blocks: o[v] holds blocks v of x0, x1, x2, x3.
VRX_INLINE void blocks4x4(simd::V<float>::R x0, simd::V<float>::R x1, simd::V<float>::R x2, simd::V<float>::R x3,
                          simd::V<float>::R* o) {
    using Rg = simd::V<float>::R;
    const Rg a = simd::blocks128<0, 1, 0, 1>(x0, x1), b = simd::blocks128<0, 1, 0, 1>(x2, x3);
    const Rg c = simd::blocks128<2, 3, 2, 3>(x0, x1), d = simd::blocks128<2, 3, 2, 3>(x2, x3);
    o[0] = simd::blocks128<0, 2, 0, 2>(a, b);
    o[1] = simd::blocks128<1, 3, 1, 3>(a, b);
    o[2] = simd::blocks128<0, 2, 0, 2>(c, d);
    o[3] = simd::blocks128<1, 3, 1, 3>(c, d);
}

// The 4 x 16 tile of float registers y[r] (lane k: column k) stored as
// 16 x 4 values b[4*k + r] (valid of them): 32-bit then 64-bit unpacks
// leave column 4*b + c in block b of register c, and 128-bit block moves
// gather the four columns of each output register.
VRX_INLINE void tileOut4x16(const Cx<VE<float>>* y, int valid, float* bRe, float* bIm) {
    using Rg = simd::V<float>::R;
    auto one = [valid](Rg x0, Rg x1, Rg x2, Rg x3, float* b) {
        const Rg x[4] = {x0, x1, x2, x3};
        Rg u[4], o[4];
        simd::transpose4InLanes(x, u);
        blocks4x4(u[0], u[1], u[2], u[3], o);
        for (int vo = 0; vo < 4 && 16 * vo < valid; ++vo) putTileReg<float>(b, vo, valid, o[vo]);
    };
    one(y[0].re.r, y[1].re.r, y[2].re.r, y[3].re.r, bRe);
    one(y[0].im.r, y[1].im.r, y[2].im.r, y[3].im.r, bIm);
}

// A float tile of RC rows transposed by one(x, b), real parts then
// imaginary parts.
template <int RC, class F> VRX_INLINE void tileReIm(const Cx<VE<float>>* y, F one, float* bRe, float* bIm) {
    simd::V<float>::R xr[RC], xi[RC];
    for (int r = 0; r < RC; ++r) {
        xr[r] = y[r].re.r;
        xi[r] = y[r].im.r;
    }
    one(xr, bRe);
    one(xi, bIm);
}

// The 8 x 16 tile of float registers y[r] stored as 16 x 8 values
// b[8*k + r] (valid of them): the two halves r = 0 .. 3 and 4 .. 7 by the
// in-lane transposition (block b of register c: column 4*b + c), then
// output register 2*b + c/2 (columns 4*b + c and 4*b + c + 1) gathers
// block b of both halves of registers c and c + 1 by two 128-bit block
// moves.
VRX_INLINE void tileOut8x16(const Cx<VE<float>>* y, int valid, float* bRe, float* bIm) {
    using Rg = simd::V<float>::R;
    auto one = [valid](const Rg* x, float* b) {
        Rg u[4], w[4], ab[8], o[8];
        simd::transpose4InLanes(x, u);
        simd::transpose4InLanes(x + 4, w);
        for (int c = 0; c < 4; ++c) {
            ab[c] = simd::blocks128<0, 1, 0, 1>(u[c], w[c]);      // blocks 0, 1 of both halves
            ab[4 + c] = simd::blocks128<2, 3, 2, 3>(u[c], w[c]);  // blocks 2, 3
        }
        for (int h = 0; h < 2; ++h)
            for (int c = 0; c < 4; c += 2) {
                o[4 * h + c / 2] = simd::blocks128<0, 2, 0, 2>(ab[4 * h + c], ab[4 * h + c + 1]);
                o[4 * h + 2 + c / 2] = simd::blocks128<1, 3, 1, 3>(ab[4 * h + c], ab[4 * h + c + 1]);
            }
        for (int vo = 0; vo < 8 && 16 * vo < valid; ++vo) putTileReg<float>(b, vo, valid, o[vo]);
    };
    tileReIm<8>(y, one, bRe, bIm);
}

// The 16 x 16 tile of float registers y[r] stored as 16 x 16 values
// b[16*k + r] (valid of them): the in-lane transposition of each group of
// four rows leaves column 4*b + c in block b of register c of the group;
// output register k = 4*b + c gathers blocks b of register c of the four
// groups (blocks4x4).
VRX_INLINE void tileOut16x16(const Cx<VE<float>>* y, int valid, float* bRe, float* bIm) {
    using Rg = simd::V<float>::R;
    auto one = [valid](const Rg* x, float* b) {
        Rg u[4][4], o[16];
        for (int g = 0; g < 4; ++g) simd::transpose4InLanes(x + 4 * g, u[g]);
        for (int c = 0; c < 4; ++c) {
            Rg t[4];
            blocks4x4(u[0][c], u[1][c], u[2][c], u[3][c], t);
            for (int bb = 0; bb < 4; ++bb) o[4 * bb + c] = t[bb];
        }
        for (int vo = 0; vo < 16 && 16 * vo < valid; ++vo) putTileReg<float>(b, vo, valid, o[vo]);
    };
    tileReIm<16>(y, one, bRe, bIm);
}

// Stage 0 (l = 1) of radix R (RC, or R at run time when RC is 0): the input
// split or interleaved (Il), its imaginary parts negated for the inverse;
// the output split.
template <class T, int RC, bool Il>
void stageK(int Rr, int64_t m, const T* tw, const Cx<T>* W, const T* aRe, const T* aIm, T* bRe, T* bIm, bool neg) {
    using S = simd::V<T>;
    constexpr int NL = S::N, RM = RC ? RC : kMaxRadix;
    const int R = RC ? RC : Rr;
    CV<T> v[RM], y[RM];
    alignas(64) T ore[RM * NL], oim[RM * NL];
    constexpr const Transpose<T, RC>& tr = kTranspose<T, RC>;
    for (int64_t k = 0; k < m; k += NL) {
        const int cnt = m - k < NL ? static_cast<int>(m - k) : NL;
        const typename S::M mk = simd::tail<T>(cnt);
        for (int j = 0; j < R; ++j) {
            const int64_t i = int64_t(j) * m + k;
            if constexpr (Il) v[j] = loadIl<T>(aRe, i, cnt);
            else v[j] = {{S::loadm(mk, aRe + i)}, {S::loadm(mk, aIm + i)}};
            if (neg) v[j].im = -v[j].im;
        }
        dftR<T, VE<T>>(R, W, v, y);
        for (int r = 1; r < R; ++r) {
            const T* t = tw + int64_t(r - 1) * 2 * m + k;
            const VE<T> wr{S::loadm(mk, t)}, wi{S::loadm(mk, t + m)};
            y[r] = {y[r].re * wr - y[r].im * wi, y[r].re * wi + y[r].im * wr};
        }
        if constexpr ((RC == 4 || RC == 8) && sizeof(T) == 8) {
            tileOut4x8<RC>(y, R * cnt, bRe + k * R, bIm + k * R);
        } else if constexpr (RC == 4) {
            tileOut4x16(y, R * cnt, bRe + k * R, bIm + k * R);
        } else if constexpr (RC == 8) {
            tileOut8x16(y, R * cnt, bRe + k * R, bIm + k * R);
        } else if constexpr (RC == 16 && sizeof(T) == 4) {
            tileOut16x16(y, R * cnt, bRe + k * R, bIm + k * R);
        } else if constexpr (RC % 2 == 1 && sizeof(T) == 8) {
            // odd R: one permute per register puts every column in the lane it
            // takes in its output register; the outputs are then blends
            const int valid = R * cnt;
            for (int r = 0; r < R; ++r) {
                const __m512i ix = _mm512_load_si512(tr.rot[r]);
                y[r].re.r = simd::permuteMerge(y[r].re.r, typename S::M(~0u), ix, y[r].re.r);
                y[r].im.r = simd::permuteMerge(y[r].im.r, typename S::M(~0u), ix, y[r].im.r);
            }
            for (int vo = 0; vo < R && NL * vo < valid; ++vo) {
                const int r0 = (NL * vo) % R;
                typename S::R orr = y[r0].re.r, oii = y[r0].im.r;
                for (int r = 0; r < R; ++r) {
                    const typename S::M mr = tr.msk[vo][r];
                    if (!mr || r == r0) continue;
                    orr = S::blend(mr, orr, y[r].re.r);
                    oii = S::blend(mr, oii, y[r].im.r);
                }
                putTileReg<T>(bRe + k * R, vo, valid, orr);
                putTileReg<T>(bIm + k * R, vo, valid, oii);
            }
        } else if constexpr (RC != 0) {
            // the R x NL tile to NL x R in registers: output register v lane i
            // is element e = NL*v + i, from register e mod R at lane e / R
            const int valid = R * cnt;
            for (int vo = 0; vo < R && NL * vo < valid; ++vo) {
                typename S::R orr = S::zero(), oii = S::zero();
                const __m512i ix = _mm512_load_si512(tr.idx[vo]);
                for (int r = 0; r < R; ++r) {
                    const typename S::M mr = tr.msk[vo][r];
                    if (!mr) continue;
                    orr = simd::permuteMerge(orr, mr, ix, y[r].re.r);
                    oii = simd::permuteMerge(oii, mr, ix, y[r].im.r);
                }
                putTileReg<T>(bRe + k * R, vo, valid, orr);
                putTileReg<T>(bIm + k * R, vo, valid, oii);
            }
        } else {
            for (int r = 0; r < R; ++r) {
                S::store(ore + r * NL, y[r].re.r);
                S::store(oim + r * NL, y[r].im.r);
            }
            for (int i = 0; i < cnt; ++i) {
                T* dr = bRe + (k + i) * R;
                T* di = bIm + (k + i) * R;
                for (int r = 0; r < R; ++r) {
                    dr[r] = ore[r * NL + i];
                    di[r] = oim[r * NL + i];
                }
            }
        }
    }
}

// The shared steps of the later stages: the R values j = 0 .. R-1 of
// column k for the lanes from q (stride l*m), the twiddle of output r of
// column k (rows of m real parts, then m imaginary parts), and the store of
// an output, split or interleaved (its imaginary parts negated if neg).
template <class T>
VRX_INLINE void loadQ(int R, int64_t q, int64_t l, int64_t m, int64_t k, typename simd::V<T>::M mk, const T* aRe,
                      const T* aIm, CV<T>* v) {
    using S = simd::V<T>;
    for (int j = 0; j < R; ++j) {
        const int64_t i = q + l * (int64_t(j) * m + k);
        v[j] = {{S::loadm(mk, aRe + i)}, {S::loadm(mk, aIm + i)}};
    }
}
template <class T> VRX_INLINE CV<T> twQ(CV<T> o, const T* tw, int r, int64_t k, int64_t m) {
    if (r == 0 || k == 0) return o;
    const T* t = tw + int64_t(r - 1) * 2 * m + k;
    const T wr = t[0], wi = t[m];
    return {o.re * wr - o.im * wi, o.re * wi + o.im * wr};
}
template <class T, bool Il>
VRX_INLINE void putQ(CV<T> o, int64_t i, int cnt, typename simd::V<T>::M mk, T* bRe, T* bIm, bool neg) {
    using S = simd::V<T>;
    if constexpr (Il) {
        if (neg) o.im = -o.im;
        storeIl<T>(bRe, i, cnt, o);
    } else {
        S::storem(bRe + i, mk, o.re.r);
        S::storem(bIm + i, mk, o.im.r);
    }
}

// A later stage (l >= 2), split input; the output split, or interleaved
// with its imaginary parts negated for the inverse (the last stage, Il).
template <class T, int RC, bool Il>
void stageQ(int Rr, int64_t l, int64_t m, const T* tw, const Cx<T>* W, const T* aRe, const T* aIm, T* bRe, T* bIm,
            bool neg) {
    using S = simd::V<T>;
    constexpr int NL = S::N, RM = RC ? RC : kMaxRadix;
    const int R = RC ? RC : Rr;
    CV<T> v[RM], y[RM];
    for (int64_t k = 0; k < m; ++k) {
        for (int64_t q = 0; q < l; q += NL) {
            const int cnt = l - q < NL ? static_cast<int>(l - q) : NL;
            const typename S::M mk = simd::tail<T>(cnt);
            loadQ<T>(R, q, l, m, k, mk, aRe, aIm, v);
            dftR<T, VE<T>>(R, W, v, y);
            for (int r = 0; r < R; ++r)
                putQ<T, Il>(twQ<T>(y[r], tw, r, k, m), q + l * (r + int64_t(R) * k), cnt, mk, bRe, bIm, neg);
        }
    }
}

// The last two stages in one pass: radix RA with l finished sub-transforms
// and m = RB, then radix RB with l*RA, the RA x RB values of each register
// of q kept in registers between them (the same operations as the two
// passes, so the same bits). Together they are a DFT of N = RA*RB values
// of stride l; for coprime radices it runs as a prime-factor map with no
// factors between the two: input (RB*n1 + RA*n2) mod N, radix RA over n1,
// radix RB over n2, output k1 + RA*k2 to the bin congruent to k1 mod RA
// and k2 mod RB (the twiddle rows of the pair are not read).
constexpr int gcdOf(int a, int b) { return b ? gcdOf(b, a % b) : a; }
template <int RA, int RB> struct PfaMap {
    static constexpr int N = RA * RB;
    int in[RB][RA] = {}, out[RA][RB] = {};
    constexpr PfaMap() {
        for (int n2 = 0; n2 < RB; ++n2)
            for (int n1 = 0; n1 < RA; ++n1) in[n2][n1] = (RB * n1 + RA * n2) % N;
        for (int b = 0; b < N; ++b) out[b % RA][b % RB] = b;
    }
};
template <class T, int RA, int RB, bool Il>
void stageQ2(int64_t l, const T* tw, const Cx<T>* WA, const Cx<T>* WB, const T* aRe, const T* aIm, T* bRe, T* bIm,
             bool neg) {
    using S = simd::V<T>;
    constexpr int NL = S::N;
    CV<T> v[RA > RB ? RA : RB], o[RA > RB ? RA : RB], y[RA][RB];
    for (int64_t q = 0; q < l; q += NL) {
        const int cnt = l - q < NL ? static_cast<int>(l - q) : NL;
        const typename S::M mk = simd::tail<T>(cnt);
        if constexpr (gcdOf(RA, RB) == 1) {
            constexpr PfaMap<RA, RB> pm{};
            VRX_UNROLL(8)
            for (int n2 = 0; n2 < RB; ++n2) {
                VRX_UNROLL(8)
                for (int n1 = 0; n1 < RA; ++n1) {
                    const int64_t i = q + l * pm.in[n2][n1];
                    v[n1] = {{S::loadm(mk, aRe + i)}, {S::loadm(mk, aIm + i)}};
                }
                dftR<T, VE<T>>(RA, WA, v, o);
                VRX_UNROLL(8)
                for (int k1 = 0; k1 < RA; ++k1) y[k1][n2] = o[k1];
            }
            VRX_UNROLL(8)
            for (int k1 = 0; k1 < RA; ++k1) {
                dftR<T, VE<T>>(RB, WB, y[k1], o);
                VRX_UNROLL(8)
                for (int k2 = 0; k2 < RB; ++k2) putQ<T, Il>(o[k2], q + l * pm.out[k1][k2], cnt, mk, bRe, bIm, neg);
            }
            continue;
        }
        for (int k = 0; k < RB; ++k) {
            loadQ<T>(RA, q, l, RB, k, mk, aRe, aIm, v);
            dftR<T, VE<T>>(RA, WA, v, o);
            for (int r = 0; r < RA; ++r) y[r][k] = twQ<T>(o[r], tw, r, k, RB);
        }
        for (int r = 0; r < RA; ++r) {
            dftR<T, VE<T>>(RB, WB, y[r], o);
            for (int r2 = 0; r2 < RB; ++r2) putQ<T, Il>(o[r2], q + l * (r + int64_t(RA) * r2), cnt, mk, bRe, bIm, neg);
        }
    }
}

// The pairs of last stages that run fused (l finished sub-transforms ahead
// of them, at least a register of them).
template <class T> bool q2Fits(int RA, int RB, int64_t l) {
    constexpr int NL = simd::V<T>::N;
    if (l < NL) return false;
    if (RA == 3 && RB == 6) return true;
    if (RA == 4 && RB == 6) return true;
    if (RA == 5 && RB == 4) return true;
    if constexpr (sizeof(T) == 4) return RA == 5 && (RB == 8 || RB == 5 || RB == 7);
    // 5 x 8 in double would keep more registers than there are; 5 x 5 only
    // pays with every register of q full (measured slower for l = 20)
    return (RA == 4 && RB == 3) || (RA == 3 && RB == 5) || (RA == 8 && RB == 3) || (RA == 5 && RB == 7) || (RA == 5 && RB == 5 && l % NL == 0);
}
template <class T, bool Il>
void runStageQ2(int RA, int RB, int64_t l, const T* tw, const Cx<T>* WA, const Cx<T>* WB, const T* aRe, const T* aIm,
                T* bRe, T* bIm, bool neg) {
    if (RA == 3 && RB == 6) stageQ2<T, 3, 6, Il>(l, tw, WA, WB, aRe, aIm, bRe, bIm, neg);
    else if (RA == 3) stageQ2<T, 3, 5, Il>(l, tw, WA, WB, aRe, aIm, bRe, bIm, neg);
    else if (RA == 4 && RB == 3) stageQ2<T, 4, 3, Il>(l, tw, WA, WB, aRe, aIm, bRe, bIm, neg);
    else if (RA == 4) stageQ2<T, 4, 6, Il>(l, tw, WA, WB, aRe, aIm, bRe, bIm, neg);
    else if (RA == 5 && RB == 7) stageQ2<T, 5, 7, Il>(l, tw, WA, WB, aRe, aIm, bRe, bIm, neg);
    else if (RB == 5) stageQ2<T, 5, 5, Il>(l, tw, WA, WB, aRe, aIm, bRe, bIm, neg);
    else if (RB == 4) stageQ2<T, 5, 4, Il>(l, tw, WA, WB, aRe, aIm, bRe, bIm, neg);
    else if (RA == 8) stageQ2<T, 8, 3, Il>(l, tw, WA, WB, aRe, aIm, bRe, bIm, neg);
    else stageQ2<T, 5, 8, Il>(l, tw, WA, WB, aRe, aIm, bRe, bIm, neg);
}

// The last pass of a real plan of even length (m = 1, at least two
// registers of l) with the forward recombination into Perm (z interleaved,
// H = l*R bins, the table's factors of bins 1 .. K = H/2, then their second
// ones). Bin q + l*r pairs with H - q - l*r = (l - q) + l*(R-1-r): a
// register of q from q0 and the reversed register of l - q take their radix
// together, and output r of the one meets output R-1-r of the other. The
// side of a lane whose bin is at most K is x (its factors read forward, the
// others' reversed); the results go out as interleaved pairs, the partner
// side reversed and last (bin K). Column q = 0 (bins l*r against l*(R-r))
// runs in lane 0 alone. Registers of q near l/2 overlap their partners and
// store the same values twice. The same operations as the pass and the
// recombination, so the same bits.
template <class T, int R>
void stageRec(int64_t l, const Cx<T>* W, const T* aRe, const T* aIm, T* z, const T* tab) {
    using S = simd::V<T>;
    using Rg = typename S::R;
    using M = typename S::M;
    constexpr int NL = S::N;
    const int64_t H = l * R, K = H / 2;
    CV<T> v[R], ya[R], yb[R];
    // mode 0: every lane's bin kA + i at most K (x is a); 1: none (x is b,
    // the factors read reversed); 2: the first cA lanes
    auto pair = [&](const CV<T>& a, const CV<T>& b, int64_t kA, auto mode) {
        constexpr int md = decltype(mode)::value;
        const int64_t o = H - kA - NL;  // factors of lanes on the b side read forward from here
        Rg xr, xi, yr, yi, fa, fb;
        M mA = 0;
        if constexpr (md == 0) {
            xr = a.re.r, xi = a.im.r, yr = b.re.r, yi = b.im.r;
            fa = S::load(tab + kA - 1);
            fb = S::load(tab + K + kA - 1);
        } else if constexpr (md == 1) {
            xr = b.re.r, xi = b.im.r, yr = a.re.r, yi = a.im.r;
            fa = simd::reverseLanes(S::load(tab + o));
            fb = simd::reverseLanes(S::load(tab + K + o));
        } else {
            const int cA = static_cast<int>(K - kA + 1);
            mA = simd::tail<T>(cA);
            const M mB = simd::tail<T>(NL - cA);
            fa = S::blend(mA, simd::reverseLanes(S::loadm(mB, tab + o)), S::loadm(mA, tab + kA - 1));
            fb = S::blend(mA, simd::reverseLanes(S::loadm(mB, tab + K + o)), S::loadm(mA, tab + K + kA - 1));
            xr = S::blend(mA, b.re.r, a.re.r), xi = S::blend(mA, b.im.r, a.im.r);
            yr = S::blend(mA, a.re.r, b.re.r), yi = S::blend(mA, a.im.r, b.im.r);
        }
        Rg Xr, Xi, Yr, Yi, lo, hi;
        recFwdPair<S>(xr, xi, yr, yi, fa, fb, Xr, Xi, Yr, Yi);
        Rg ar = Xr, ai = Xi, br = Yr, bi = Yi;  // new bins of the a and b sides
        if constexpr (md == 1) ar = Yr, ai = Yi, br = Xr, bi = Xi;
        if constexpr (md == 2) {
            ar = S::blend(mA, Yr, Xr), ai = S::blend(mA, Yi, Xi);
            br = S::blend(mA, Xr, Yr), bi = S::blend(mA, Xi, Yi);
        }
        simd::interleave(ar, ai, lo, hi);
        S::store(z + 2 * kA, lo);
        S::store(z + 2 * kA + NL, hi);
        simd::interleaveRev(br, bi, lo, hi);
        S::store(z + 2 * (o + 1), lo);
        S::store(z + 2 * (o + 1) + NL, hi);
    };
    for (int64_t q0 = 1; q0 <= l / 2; q0 += NL) {
        const int64_t qb = l - q0 - (NL - 1);
        for (int j = 0; j < R; ++j) v[j] = {{S::load(aRe + q0 + l * j)}, {S::load(aIm + q0 + l * j)}};
        dftR<T, VE<T>>(R, W, v, ya);
        for (int j = 0; j < R; ++j)
            v[j] = {{simd::reverseLanes(S::load(aRe + qb + l * j))}, {simd::reverseLanes(S::load(aIm + qb + l * j))}};
        dftR<T, VE<T>>(R, W, v, yb);
        VRX_UNROLL(8)
        for (int r = 0; r < R; ++r) {
            const int64_t kA = q0 + l * r;
            if (kA + NL - 1 <= K) pair(ya[r], yb[R - 1 - r], kA, std::integral_constant<int, 0>{});
            else if (kA > K) pair(ya[r], yb[R - 1 - r], kA, std::integral_constant<int, 1>{});
            else pair(ya[r], yb[R - 1 - r], kA, std::integral_constant<int, 2>{});
        }
    }
    // column 0 in lane 0
    const M m1 = simd::tail<T>(1);
    for (int j = 0; j < R; ++j) v[j] = {{S::loadm(m1, aRe + l * j)}, {S::loadm(m1, aIm + l * j)}};
    dftR<T, VE<T>>(R, W, v, ya);
    const T p0 = S::first(ya[0].re.r), q0 = S::first(ya[0].im.r);
    z[0] = p0 + q0;
    z[1] = p0 - q0;
    for (int r = 1; 2 * r <= R; ++r) {
        const int64_t k = l * r;
        Rg Xr, Xi, Yr, Yi;
        recFwdPair<S>(ya[r].re.r, ya[r].im.r, ya[R - r].re.r, ya[R - r].im.r, S::set1(tab[k - 1]), S::set1(tab[K + k - 1]),
                      Xr, Xi, Yr, Yi);
        z[2 * k] = S::first(Xr);
        z[2 * k + 1] = S::first(Xi);
        z[2 * (H - k)] = S::first(Yr);
        z[2 * (H - k) + 1] = S::first(Yi);
    }
}
template <class T> bool recFits(int R, int64_t l) {
    return R >= 2 && R <= 5 && l >= 2 * simd::V<T>::N;
}
template <class T>
void runStageRec(int R, int64_t l, const Cx<T>* W, const T* aRe, const T* aIm, T* z, const T* tab) {
    switch (R) {
        case 2: stageRec<T, 2>(l, W, aRe, aIm, z, tab); return;
        case 3: stageRec<T, 3>(l, W, aRe, aIm, z, tab); return;
        case 4: stageRec<T, 4>(l, W, aRe, aIm, z, tab); return;
        default: stageRec<T, 5>(l, W, aRe, aIm, z, tab); return;
    }
}

// A later stage whose l finished sub-transforms are fewer than the lanes
// (and m above 1): the registers run across t = q + l*k, contiguous in the
// input for each j, c = l*floor(NL/l) lanes a register (whole groups of l),
// lane i taking k = t0/l + i/l for its twiddles. The R x c tile goes out
// as R*c contiguous values b[R*t0 + p], p = q + l*(r + R*kk), assembled in
// registers so that every store but the last is a whole register.
template <class T, int RC> struct TTile {
    static constexpr int NL = simd::V<T>::N;
    using I = std::conditional_t<sizeof(T) == 4, int32_t, int64_t>;
    alignas(64) I src[NL][RC][NL] = {};   // [l][vo][i]: source lane of output lane i
    alignas(64) I grp[NL][NL] = {};       // [l][i]: i / l, the twiddle offset of lane i
    typename simd::V<T>::M msk[NL][RC][RC] = {};  // [l][vo][r]: lanes taken from register r
    constexpr TTile() {
        for (int l = 2; l < NL; ++l) {
            const int c = l * (NL / l);
            for (int i = 0; i < NL; ++i) grp[l][i] = static_cast<I>(i / l);
            for (int p = 0; p < RC * c; ++p) {
                const int vo = p / NL, i = p % NL;
                const int kk = p / (l * RC), r = (p / l) % RC, q = p % l;
                src[l][vo][i] = static_cast<I>(q + l * kk);
                msk[l][vo][r] = static_cast<typename simd::V<T>::M>(msk[l][vo][r] | (1u << i));
            }
        }
    }
};
template <class T, int RC> inline constexpr TTile<T, RC> kTTile{};

// Half ha of register a, then half hb of register b.
template <class Rg> VRX_INLINE Rg halvesOf(Rg a, int ha, Rg b, int hb) {
    if (ha == 0) return hb == 0 ? simd::blocks128<0, 1, 0, 1>(a, b) : simd::blocks128<0, 1, 2, 3>(a, b);
    return hb == 0 ? simd::blocks128<2, 3, 0, 1>(a, b) : simd::blocks128<2, 3, 2, 3>(a, b);
}

template <class T, int RC>
void stageT(int64_t l, int64_t m, const T* tw, const Cx<T>* W, const T* aRe, const T* aIm, T* bRe, T* bIm) {
    using S = simd::V<T>;
    constexpr int NL = S::N, R = RC;
    constexpr const TTile<T, RC>& tt = kTTile<T, RC>;
    CV<T> v[R], y[R];
    const int64_t total = l * m, c = l * (NL / l);
    const __m512i gx = _mm512_load_si512(tt.grp[l]);
    for (int64_t t0 = 0; t0 < total; t0 += c) {
        const int cnt = total - t0 < c ? static_cast<int>(total - t0) : static_cast<int>(c);
        const typename S::M mk = simd::tail<T>(cnt);
        for (int j = 0; j < R; ++j) {
            const int64_t i = j * total + t0;
            v[j] = {{S::loadm(mk, aRe + i)}, {S::loadm(mk, aIm + i)}};
        }
        dftR<T, VE<T>>(R, W, v, y);
        const int64_t kb = t0 / l;
        const int kc = m - kb < NL ? static_cast<int>(m - kb) : NL;
        const typename S::M tm = simd::tail<T>(kc);
        for (int r = 1; r < R; ++r) {
            const T* t = tw + int64_t(r - 1) * 2 * m + kb;
            const typename S::R wr0 = S::loadm(tm, t), wi0 = S::loadm(tm, t + m);
            const VE<T> wr{S::permute2(wr0, gx, wr0)}, wi{S::permute2(wi0, gx, wi0)};
            y[r] = {y[r].re * wr - y[r].im * wi, y[r].re * wi + y[r].im * wr};
        }
        const int valid = R * cnt;
        T* oRe = bRe + R * t0;
        T* oIm = bIm + R * t0;
        if constexpr (R == 4) {
            if (l == 4) {
                // double: lanes 0-3 of register r are q = 0 .. 3 of r (kk = 0),
                // lanes 4-7 the same for kk = 1, whole 256-bit halves; single:
                // output register kk takes blocks kk of registers 0 .. 3
                auto tile = [&](typename S::R y0, typename S::R y1, typename S::R y2, typename S::R y3, T* b) {
                    typename S::R o[4];
                    if constexpr (sizeof(T) == 8) {
                        o[0] = simd::blocks128<0, 1, 0, 1>(y0, y1), o[1] = simd::blocks128<0, 1, 0, 1>(y2, y3);
                        o[2] = simd::blocks128<2, 3, 2, 3>(y0, y1), o[3] = simd::blocks128<2, 3, 2, 3>(y2, y3);
                    } else {
                        blocks4x4(y0, y1, y2, y3, o);
                    }
                    for (int vo = 0; vo < 4 && NL * vo < valid; ++vo) putTileReg<T>(b, vo, valid, o[vo]);
                };
                tile(y[0].re.r, y[1].re.r, y[2].re.r, y[3].re.r, oRe);
                tile(y[0].im.r, y[1].im.r, y[2].im.r, y[3].im.r, oIm);
                continue;
            }
        }
        if (2 * l == NL) {
            // two groups of l a register: output register vo is run 2*vo
            // then run 2*vo + 1 of the sequence r + R*kk, each the half kk
            // of register r (one 128-bit block move per register)
            VRX_UNROLL(16)
            for (int vo = 0; vo < R; ++vo) {
                if (NL * vo >= valid) break;
                const int s0 = 2 * vo, s1 = 2 * vo + 1;
                const auto cat = [&](const VE<T>& a, const VE<T>& b) { return halvesOf(a.r, s0 / R, b.r, s1 / R); };
                putTileReg<T>(oRe, vo, valid, cat(y[s0 % R].re, y[s1 % R].re));
                putTileReg<T>(oIm, vo, valid, cat(y[s0 % R].im, y[s1 % R].im));
            }
            continue;
        }
        for (int vo = 0; vo < R && NL * vo < valid; ++vo) {
            typename S::R orr = S::zero(), oii = S::zero();
            const __m512i ix = _mm512_load_si512(tt.src[l][vo]);
            for (int r = 0; r < R; ++r) {
                const typename S::M mr = tt.msk[l][vo][r];
                if (!mr) continue;
                orr = simd::permuteMerge(orr, mr, ix, y[r].re.r);
                oii = simd::permuteMerge(oii, mr, ix, y[r].im.r);
            }
            putTileReg<T>(oRe, vo, valid, orr);
            putTileReg<T>(oIm, vo, valid, oii);
        }
    }
}

// Returns false for a radix without a tile kernel.
template <class T>
bool runStageT(int R, int64_t l, int64_t m, const T* tw, const Cx<T>* W, const T* aRe, const T* aIm, T* bRe, T* bIm) {
    switch (R) {
        case 2: stageT<T, 2>(l, m, tw, W, aRe, aIm, bRe, bIm); return true;
        case 3: stageT<T, 3>(l, m, tw, W, aRe, aIm, bRe, bIm); return true;
        case 4: stageT<T, 4>(l, m, tw, W, aRe, aIm, bRe, bIm); return true;
        case 5: stageT<T, 5>(l, m, tw, W, aRe, aIm, bRe, bIm); return true;
        default: return false;
    }
}

template <class T, bool Il>
void runStageK(int R, int64_t m, const T* tw, const Cx<T>* W, const T* aRe, const T* aIm, T* bRe, T* bIm, bool neg) {
    switch (R) {
        case 2: stageK<T, 2, Il>(R, m, tw, W, aRe, aIm, bRe, bIm, neg); return;
        case 3: stageK<T, 3, Il>(R, m, tw, W, aRe, aIm, bRe, bIm, neg); return;
        case 4: stageK<T, 4, Il>(R, m, tw, W, aRe, aIm, bRe, bIm, neg); return;
        case 5: stageK<T, 5, Il>(R, m, tw, W, aRe, aIm, bRe, bIm, neg); return;
        case 6: stageK<T, 6, Il>(R, m, tw, W, aRe, aIm, bRe, bIm, neg); return;
        case 7: stageK<T, 7, Il>(R, m, tw, W, aRe, aIm, bRe, bIm, neg); return;
        case 8: stageK<T, 8, Il>(R, m, tw, W, aRe, aIm, bRe, bIm, neg); return;
        case 9: stageK<T, 9, Il>(R, m, tw, W, aRe, aIm, bRe, bIm, neg); return;
        case 11: stageK<T, 11, Il>(R, m, tw, W, aRe, aIm, bRe, bIm, neg); return;
        case 13: stageK<T, 13, Il>(R, m, tw, W, aRe, aIm, bRe, bIm, neg); return;
        case 16: stageK<T, 16, Il>(R, m, tw, W, aRe, aIm, bRe, bIm, neg); return;
        default: stageK<T, 0, Il>(R, m, tw, W, aRe, aIm, bRe, bIm, neg); return;
    }
}
template <class T, bool Il>
void runStageQ(int R, int64_t l, int64_t m, const T* tw, const Cx<T>* W, const T* aRe, const T* aIm, T* bRe, T* bIm,
               bool neg) {
    switch (R) {
        case 2: stageQ<T, 2, Il>(R, l, m, tw, W, aRe, aIm, bRe, bIm, neg); return;
        case 3: stageQ<T, 3, Il>(R, l, m, tw, W, aRe, aIm, bRe, bIm, neg); return;
        case 4: stageQ<T, 4, Il>(R, l, m, tw, W, aRe, aIm, bRe, bIm, neg); return;
        case 5: stageQ<T, 5, Il>(R, l, m, tw, W, aRe, aIm, bRe, bIm, neg); return;
        case 6: stageQ<T, 6, Il>(R, l, m, tw, W, aRe, aIm, bRe, bIm, neg); return;
        case 7: stageQ<T, 7, Il>(R, l, m, tw, W, aRe, aIm, bRe, bIm, neg); return;
        case 8: stageQ<T, 8, Il>(R, l, m, tw, W, aRe, aIm, bRe, bIm, neg); return;
        case 9: stageQ<T, 9, Il>(R, l, m, tw, W, aRe, aIm, bRe, bIm, neg); return;
        case 11: stageQ<T, 11, Il>(R, l, m, tw, W, aRe, aIm, bRe, bIm, neg); return;
        case 13: stageQ<T, 13, Il>(R, l, m, tw, W, aRe, aIm, bRe, bIm, neg); return;
        case 16: stageQ<T, 16, Il>(R, l, m, tw, W, aRe, aIm, bRe, bIm, neg); return;
        default: stageQ<T, 0, Il>(R, l, m, tw, W, aRe, aIm, bRe, bIm, neg); return;
    }
}

// Position, within a complex sub-block of level lvl, of its bin n.
int64_t cpos(const Plan* p, int lvl, int64_t n) {
    int64_t pos = 0;
    for (int l = lvl; l <= p->lastFactor; ++l) {
        const int R = p->rec[l].factor;
        pos += (n % R) * p->rec[l].rest;
        n /= R;
    }
    return pos + n;
}

// ------------------------------------------------------------ real stages

template <class T> void rdif(const Plan* p, int lvl, T* a) {
    const int L = p->lastFactor;
    if (L < 0) __builtin_unreachable();  // a plan has at least two factors
    Cx<T> y[kMaxRadix];
    T v[kMaxRadix];
    if (lvl > L) {
        const int R = p->rec[L].rest;
        for (int j = 0; j < R; ++j) v[j] = a[j];
        dftRReal<T>(R, rootsOf<T>(R, p->lastGen), v, y);
        a[0] = y[0].re;
        for (int m = 1; 2 * m < R; ++m) { a[2 * m - 1] = y[m].re; a[2 * m] = y[m].im; }
        return;
    }
    const Rec& r = p->rec[lvl];
    const int R = r.factor, rest = r.rest, h = (R - 1) / 2;
    const Cx<T>* W = rootsOf<T>(R, r.gen);
    const T* tw = static_cast<const T*>(r.tw);
    int k = 0;
    using S = simd::V<T>;
    constexpr int NL = S::N;
    if (R <= 16) {
        // L columns at a time in registers, the last few under a mask
        const VE<T> z{S::zero()};
        auto cols = [&]<bool Mk>(int k, typename S::M mk) {
            auto ld = [mk](const T* q) { if constexpr (Mk) return S::loadm(mk, q); else return S::load(q); };
            auto st = [mk](T* q, typename S::R x) { if constexpr (Mk) S::storem(q, mk, x); else S::store(q, x); };
            VE<T> vv[16];
            Cx<VE<T>> yy[16];
            for (int j = 0; j < R; ++j) vv[j] = {ld(a + int64_t(j) * rest + k)};
            dftRReal<T, VE<T>>(R, W, vv, yy, z);
            st(a + k, yy[0].re.r);
            for (int m = 1; m <= h; ++m) {
                const T* t = tw + int64_t(m - 1) * 2 * rest + k;
                const VE<T> wr{ld(t)}, wi{ld(t + rest)};
                st(a + int64_t(2 * m - 1) * rest + k, (yy[m].re * wr - yy[m].im * wi).r);
                st(a + int64_t(2 * m) * rest + k, (yy[m].re * wi + yy[m].im * wr).r);
            }
        };
        for (; k + NL <= rest; k += NL) cols.template operator()<false>(k, typename S::M(0));
        if (k < rest) cols.template operator()<true>(k, simd::tail<T>(rest - k));
        k = rest;
    }
    for (; k < rest; ++k) {
        for (int j = 0; j < R; ++j) v[j] = a[int64_t(j) * rest + k];
        dftRReal<T>(R, W, v, y);
        a[k] = y[0].re;
        for (int m = 1; m <= h; ++m) {
            const Cx<T> w{tw[int64_t(m - 1) * 2 * rest + k], tw[int64_t(m - 1) * 2 * rest + rest + k]};
            a[int64_t(2 * m - 1) * rest + k] = y[m].re * w.re - y[m].im * w.im;
            a[int64_t(2 * m) * rest + k] = y[m].re * w.im + y[m].im * w.re;
        }
    }
    rdif<T>(p, lvl + 1, a);
    for (int m = 1; m <= h; ++m)
        cdif<T>(p, lvl + 1, a + int64_t(2 * m - 1) * rest, a + int64_t(2 * m) * rest);
}

// Where bin n (n <= (len-1)/2) of the real sub-block at level lvl stands:
// positions of its real and imaginary parts (im -1 for bin 0), and whether
// the stored value is its conjugate.
struct RPos { int64_t re, im; bool neg; };
RPos rpos(const Plan* p, int lvl, int64_t n) {
    const int L = p->lastFactor;
    for (;;) {
        if (lvl > L) {
            if (n == 0) return {0, -1, false};
            return {2 * n - 1, 2 * n, false};
        }
        const int R = p->rec[lvl].factor;
        const int64_t rest = p->rec[lvl].rest;
        const int64_t m = n % R, q = n / R;
        if (m == 0) { n = q; ++lvl; continue; }
        if (2 * m < R) {
            const int64_t c = cpos(p, lvl + 1, q);
            return {(2 * m - 1) * rest + c, 2 * m * rest + c, false};
        }
        const int64_t mm = R - m, c = cpos(p, lvl + 1, rest - 1 - q);
        return {(2 * mm - 1) * rest + c, 2 * mm * rest + c, true};
    }
}

// a[i] = sign(i) * a[src(i)] for a permutation src, in place by cycles: a
// cycle is moved from its smallest position.
template <class T, class F> void gatherInPlace(T* a, int64_t n, F src) {
    for (int64_t i = 0; i < n; ++i) {
        bool neg;
        int64_t j = src(i, neg);
        if (j == i) {
            if (neg) a[i] = -a[i];
            continue;
        }
        bool d;
        while (j > i) j = src(j, d);
        if (j != i) continue;
        const T first = a[i];
        int64_t cur = i;
        for (;;) {
            const int64_t nx = src(cur, neg);
            const T v = nx == i ? first : a[nx];
            a[cur] = neg ? -v : v;
            if (nx == i) break;
            cur = nx;
        }
    }
}

// Position in the odd form of the output -> stored position after the stages.
int64_t formSrc(const Plan* p, int64_t i, bool& neg) {
    neg = false;
    if (i == 0) return 0;
    const RPos r = rpos(p, 0, (i + 1) / 2);
    if (i & 1) return r.re;
    neg = r.neg;
    return r.im;
}

// The gather to the odd form as a list of cycles: entries are positions,
// kCycStart opens a cycle at its leader, kCycNeg negates the value the
// entry's position receives; untouched positions are left out.
constexpr int32_t kCycStart = int32_t(1) << 30, kCycNeg = int32_t(1) << 29, kCycPos = kCycNeg - 1;

// Each position of a cycle takes the value of the next one, the last takes
// the leader's first value.
template <class T> void realToForm(const Plan* p, T* a) {
    const int32_t* tab = p->formTab;
    const int64_t cnt = p->formCount;
    for (int64_t t = 0; t < cnt;) {
        int64_t cur = tab[t] & kCycPos;
        bool neg = tab[t] & kCycNeg;
        const T first = a[cur];
        for (++t; t < cnt && !(tab[t] & kCycStart); ++t) {
            const int64_t nx = tab[t] & kCycPos;
            a[cur] = neg ? -a[nx] : a[nx];
            cur = nx;
            neg = tab[t] & kCycNeg;
        }
        a[cur] = neg ? -first : first;
    }
}

// (re, im) pairs of the odd form to natural positions k and n-k.
template <class T> void pairsToNatural(T* a, int64_t n) {
    const int64_t h = (n - 1) / 2;
    for (int64_t k = 1; k <= h; ++k) {
        const T r = a[2 * k - 1], i = a[2 * k];
        a[2 * k - 1] = r + i;
        a[2 * k] = r - i;
    }
    gatherInPlace<T>(a, n, [n, h](int64_t i, bool& neg) -> int64_t {
        neg = false;
        if (i == 0) return 0;
        return i <= h ? 2 * i - 1 : 2 * (n - i);
    });
}

// ------------------------------------------------------------ two-level small lengths

// Complex lengths n = N1*N2 with N1 of 2 or 4 and N2 with a register kernel
// run as one piece in registers of complex lanes (re, im pairs): rows
// x[n1*N2 + n2] (lanes n2) take the radix N1 across the registers and the
// factors w_n^(k1*n2); a transposition puts k1 in the lanes, one register
// per n2; the DFT of N2 across the registers leaves X[k1 + N1*k2] in lane
// k1 of register k2, stored whole. Nothing goes through memory between the
// two levels. Double 2 x 25 runs in 256-bit registers of two complex values
// (its two rows fill them; 512-bit ones would leave half of every register
// of the 25-point level empty), the rows paired by moves of 128-bit halves.

// Roots exp(-2*pi*i*q/R) of the composite register kernels.
template <class T, int R> struct RootsOf {
    Cx<T> r[R];
    constexpr RootsOf() : r{} {
        for (int q = 0; q < R; ++q) {
            const long double a = kTwoPi * q / R;
            r[q] = {static_cast<T>(__builtin_cosl(a)), static_cast<T>(-__builtin_sinl(a))};
        }
    }
};
template <class T, int R> inline const RootsOf<T, R> kRootsOf{};  // built at load where cosl does not fold

// Arithmetic on registers of complex lanes (S: simd::V<T>, or simd::V256d
// for two complex doubles a register).
template <class S> struct CLs {
    using T = typename S::T;
    using R = typename S::R;
    // 512-bit double registers move some adds to the multiply unit
    static constexpr bool kM = sizeof(T) == 8 && S::N == 8;
    static VRX_INLINE R add(R a, R b) { return S::add(a, b); }
    static VRX_INLINE R sub(R a, R b) { return S::sub(a, b); }
    static VRX_INLINE R neg(R a) { return S::neg(a); }
    // -i*v and i*v
    static VRX_INLINE R mulNegI(R v) { return S::xorb(S::swapPair(v), S::set2(T(0), T(-0.0))); }
    static VRX_INLINE R mulI(R v) { return S::xorb(S::swapPair(v), S::set2(T(-0.0), T(0))); }
    static VRX_INLINE R scale(R v, T c) { return S::mul(v, S::set1(c)); }
    // a + b and a - b (kM: on the multiply unit as b*1 + a and -(b*1) + a,
    // exact product and one rounding: the bits of add and sub)
    static VRX_INLINE R addM(R a, R b) {
        if constexpr (kM) return S::fma(b, S::set1(T(1)), a);
        else return S::add(a, b);
    }
    static VRX_INLINE R subM(R a, R b) {
        if constexpr (kM) return S::fnma(b, S::set1(T(1)), a);
        else return S::sub(a, b);
    }
    // a + (-i)*b and a - (-i)*b (kM: multiply-adds of the pair swap by the
    // signs (1, -1), the bits of the add of the rotated value)
    static VRX_INLINE R addNegI(R a, R b) {
        if constexpr (kM) return S::fma(S::swapPair(b), S::set2(T(1), T(-1)), a);
        else return S::add(a, mulNegI(b));
    }
    static VRX_INLINE R subNegI(R a, R b) {
        if constexpr (kM) return S::fnma(S::swapPair(b), S::set2(T(1), T(-1)), a);
        else return S::sub(a, mulNegI(b));
    }
    // v * (c + i*s)
    static VRX_INLINE R mulC(R v, T c, T s) {
        const R p = S::mul(v, S::set1(c)), q = S::mul(S::swapPair(v), S::set2(-s, s));
        return addM(p, q);
    }
    // v * w, w a register of factors (kM: the cross products' signs as a
    // multiply-add by (-1, 1) instead of a sign flip and an add)
    static VRX_INLINE R mulW(R v, R w) {
        if constexpr (kM) {
            const R p = S::mul(v, S::dupRe(w)), q = S::mul(S::swapPair(v), S::dupIm(w));
            return S::fma(q, S::set2(T(-1), T(1)), p);
        } else {
            const R p = S::mul(v, S::dupRe(w)), q = S::mul(S::swapPair(v), S::xorb(S::dupIm(w), S::set2(T(-0.0), T(0))));
            return S::add(p, q);
        }
    }
    static VRX_INLINE R conj(R v) { return S::xorb(v, S::set2(T(0), T(-0.0))); }
};

// The first level A of a composite register kernel R = A*(R/A), or 0.
constexpr int tlSplit(int R) {
    switch (R) {
        case 6: case 8: case 10: return 2;
        case 9: case 15: return 3;
        case 20: return 4;
        case 25: case 45: return 5;
        default: return 0;
    }
}

// y[m] = sum_j v[j] W_R^(j*m) on registers of complex lanes (forward sign).
template <class S, int R> VRX_INLINE void dftCL(const typename S::R* v, typename S::R* y);

template <class S, int R, int A, int B, class In> VRX_INLINE void dftCL2f(In x, typename S::R* y) {
    // R = A*B in two levels: DFTs of A over x(n2 + B*n1), the factors
    // w_R^(n2*k1) (quarter turns as swaps), DFTs of B into y[k1 + A*k2];
    // x(j) makes input j when the first level needs it
    using T = typename S::T;
    using C = CLs<S>;
    using Rg = typename S::R;
    Rg a[B][A], v[A > B ? A : B], o[A > B ? A : B];
    VRX_UNROLL(8)
    for (int n2 = 0; n2 < B; ++n2) {
        VRX_UNROLL(8)
        for (int n1 = 0; n1 < A; ++n1) v[n1] = x(n2 + B * n1);
        dftCL<S, A>(v, a[n2]);
    }
    VRX_UNROLL(8)
    for (int k1 = 0; k1 < A; ++k1) {
        VRX_UNROLL(8)
        for (int n2 = 0; n2 < B; ++n2) {
            const int q = (n2 * k1) % R;
            const Rg z = a[n2][k1];
            if (q == 0) v[n2] = z;
            else if (4 * q == R) v[n2] = C::mulNegI(z);
            else if (2 * q == R) v[n2] = C::neg(z);
            else if (4 * q == 3 * R) v[n2] = C::mulI(z);
            else v[n2] = C::mulC(z, kRootsOf<T, R>.r[q].re, kRootsOf<T, R>.r[q].im);
        }
        dftCL<S, B>(v, o);
        VRX_UNROLL(8)
        for (int k2 = 0; k2 < B; ++k2) y[k1 + A * k2] = o[k2];
    }
}

template <class S, int R, int A, int B> VRX_INLINE void dftCL2(const typename S::R* x, typename S::R* y) {
    dftCL2f<S, R, A, B>([x](int j) { return x[j]; }, y);
}

template <class S, int R> VRX_INLINE void dftCL(const typename S::R* v, typename S::R* y) {
    using T = typename S::T;
    using C = CLs<S>;
    using Rg = typename S::R;
    if constexpr (R == 2) {
        y[0] = C::add(v[0], v[1]);
        y[1] = C::sub(v[0], v[1]);
    } else if constexpr (R == 3) {
        const T s = kRoots<T>.r[3][1].im;  // -sin(2*pi/3)
        const Rg t = C::add(v[1], v[2]), d = C::sub(v[1], v[2]);
        const Rg a = C::sub(v[0], C::scale(t, T(0.5)));
        const Rg sd = S::mul(S::swapPair(d), S::set2(-s, s));  // s*i*d
        y[0] = C::add(v[0], t);
        y[1] = C::add(a, sd);
        y[2] = C::sub(a, sd);
    } else if constexpr (R == 4) {
        const Rg a = C::add(v[0], v[2]), b = C::sub(v[0], v[2]);
        const Rg c = C::add(v[1], v[3]);
        y[0] = C::add(a, c);
        y[2] = C::sub(a, c);
        const Rg d = C::sub(v[1], v[3]);
        y[1] = C::addNegI(b, d);
        y[3] = C::subNegI(b, d);
    } else if constexpr (R == 5) {
        const Cx<T>* W = kRoots<T>.r[5];
        const T c1 = W[1].re, s1 = W[1].im, c2 = W[2].re, s2 = W[2].im;
        const Rg t1 = C::add(v[1], v[4]), t2 = C::add(v[2], v[3]);
        const Rg d1 = S::swapPair(C::sub(v[1], v[4])), d2 = S::swapPair(C::sub(v[2], v[3]));
        y[0] = C::add(C::add(v[0], t1), t2);
        const Rg a1 = C::add(C::add(v[0], C::scale(t1, c1)), C::scale(t2, c2));
        const Rg a2 = C::add(C::add(v[0], C::scale(t1, c2)), C::scale(t2, c1));
        // i*(s1*d1 + s2*d2) and i*(s2*d1 - s1*d2)
        const Rg q1 = S::set2(-s1, s1), q2 = S::set2(-s2, s2);
        const Rg b1 = C::add(S::mul(d1, q1), S::mul(d2, q2));
        const Rg b2 = C::sub(S::mul(d1, q2), S::mul(d2, q1));
        y[1] = C::addM(a1, b1);
        y[4] = C::subM(a1, b1);
        y[2] = C::addM(a2, b2);
        y[3] = C::subM(a2, b2);
    } else if constexpr (R == 7 || R == 11 || R == 13 || R == 17 || R == 19) {
        // inputs j and R-j paired, bins m and R-m from shared sums: with
        // t_j = v_j + v_(R-j), d_j = i-swapped v_j - v_(R-j) and W^q = (c_q, -s_q),
        // a_m = v_0 + sum t_j c_(jm), b_m = sum d_j (s_(jm), -s_(jm)) rotated:
        // y_m = a_m + b_m, y_(R-m) = a_m - b_m (the radix 5's sums, longer)
        constexpr int h = (R - 1) / 2;
        const Cx<T>* W = kRootsOf<T, R>.r;
        Rg t[h], d[h];
        VRX_UNROLL(9)
        for (int j = 1; j <= h; ++j) {
            t[j - 1] = C::add(v[j], v[R - j]);
            d[j - 1] = S::swapPair(C::sub(v[j], v[R - j]));
        }
        Rg s0 = v[0];
        VRX_UNROLL(9)
        for (int j = 0; j < h; ++j) s0 = C::add(s0, t[j]);
        y[0] = s0;
        VRX_UNROLL(9)
        for (int m = 1; m <= h; ++m) {
            Rg a = C::add(v[0], C::scale(t[0], W[m % R].re));
            Rg b = S::mul(d[0], S::set2(-W[m % R].im, W[m % R].im));
            VRX_UNROLL(9)
            for (int j = 2; j <= h; ++j) {
                const int q = (j * m) % R;
                a = C::add(a, C::scale(t[j - 1], W[q].re));
                b = C::add(b, S::mul(d[j - 1], S::set2(-W[q].im, W[q].im)));
            }
            y[m] = C::addM(a, b);
            y[R - m] = C::subM(a, b);
        }
    } else {
        constexpr int A = tlSplit(R);
        static_assert(A > 1, "a register kernel of this radix");
        dftCL2<S, R, A, R / A>(v, y);
    }
}

// The permute that brings complex lane p of registers 2q and 2q+1 into
// complex lanes 2q and 2q+1.
template <class T> struct TlIdx {
    static constexpr int NL = simd::V<T>::N, C = NL / 2;
    using I = std::conditional_t<sizeof(T) == 4, int32_t, int64_t>;
    alignas(64) I idx[C][C / 2][NL] = {};
    constexpr TlIdx() {
        for (int p = 0; p < C; ++p)
            for (int q = 0; q < C / 2; ++q)
                for (int c = 0; c < C; ++c)
                    for (int h = 0; h < 2; ++h)
                        idx[p][q][2 * c + h] = static_cast<I>((c == 2 * q + 1 ? NL : 0) + 2 * p + h);
    }
};
template <class T> inline constexpr TlIdx<T> kTlIdx{};

// One whole transform of n = N1*N2 complex values (split or interleaved):
// tw holds w_n^(k1*n2), k1 = 1 .. N1-1, n2 = 0 .. N2-1, as pairs. S is the
// register: simd::V<T>, or simd::V256d (two complex doubles, rows paired by
// moves of 128-bit halves). Every value is loaded before out(k0, rows, o)
// takes the first group's N2 registers (X[k1 + N1*k2] in lane k1 - k0 of
// o[k2], forward sign), so the output may overwrite the source.
template <class T, int N1, int N2, class S, class Out>
VRX_INLINE void tlCore(const T* sRe, const T* sIm, bool split, bool inv, const T* tw, Out&& out) {
    using C = CLs<S>;
    using Rg = typename S::R;
    constexpr int NL = S::N, CC = NL / 2, NB = (N2 + CC - 1) / CC, KB = (N1 + CC - 1) / CC;
    Rg z[N1][NB];
    VRX_UNROLL(16)
    for (int b = 0; b < NB; ++b) {
        const int cnt = N2 - b * CC < CC ? N2 - b * CC : CC;
        Rg x[N1], y[N1];
        VRX_UNROLL(8)
        for (int n1 = 0; n1 < N1; ++n1) {
            const int64_t i = int64_t(n1) * N2 + b * CC;
            if constexpr (CC == 2) {
                x[n1] = split ? S::loadSplit(sRe + i, sIm + i, cnt) : S::loadc(sRe + 2 * i, cnt);
            } else if (split) {
                Rg lo, hi;
                const typename S::M mh = simd::tail<T>(cnt);
                simd::interleave(S::loadm(mh, sRe + i), S::loadm(mh, sIm + i), lo, hi);
                x[n1] = lo;
            } else {
                x[n1] = S::loadm(simd::tail<T>(2 * cnt), sRe + 2 * i);
            }
            if (inv) x[n1] = C::conj(x[n1]);
        }
        dftCL<S, N1>(x, y);
        z[0][b] = y[0];
        VRX_UNROLL(8)
        for (int k1 = 1; k1 < N1; ++k1) {
            const T* w = tw + 2 * ((k1 - 1) * N2 + b * CC);
            if constexpr (CC == 2) z[k1][b] = C::mulW(y[k1], S::loadc(w, cnt));
            else z[k1][b] = C::mulW(y[k1], S::loadm(simd::tail<T>(2 * cnt), w));
        }
    }
    // register n2 of group g takes complex lane n2 % CC of rows
    // k1 = g*CC .. g*CC + CC-1 (a group of at most CC rows)
    VRX_UNROLL(2)
    for (int g = 0; g < KB; ++g) {
        const int k0 = g * CC, rows = N1 - k0 < CC ? N1 - k0 : CC;
        const auto col = [&](int n2) {
            const int b = n2 / CC, p = n2 % CC;
            if constexpr (CC == 2) {
                const Rg lo = z[k0][b], hi = z[rows > 1 ? k0 + 1 : k0][b];
                return p == 0 ? S::lows(lo, hi) : S::highs(lo, hi);
            } else if constexpr (sizeof(T) == 8 && N1 % 4 == 0) {
                // four rows of double: a transposition of 128-bit blocks
                // (no index registers, no blends)
                const Rg *r0 = &z[k0][b], *r1 = &z[k0 + 1][b], *r2 = &z[k0 + 2][b], *r3 = &z[k0 + 3][b];
                const Rg t = p < 2 ? simd::blocks128<0, 1, 0, 1>(*r0, *r1) : simd::blocks128<2, 3, 2, 3>(*r0, *r1);
                const Rg u = p < 2 ? simd::blocks128<0, 1, 0, 1>(*r2, *r3) : simd::blocks128<2, 3, 2, 3>(*r2, *r3);
                return p % 2 == 0 ? simd::blocks128<0, 2, 0, 2>(t, u) : simd::blocks128<1, 3, 1, 3>(t, u);
            } else {
                const TlIdx<T>& ti = kTlIdx<T>;
                Rg t = S::permute2(z[k0][b], _mm512_load_si512(ti.idx[p][0]), z[rows > 1 ? k0 + 1 : k0][b]);
                VRX_UNROLL(4)
                for (int q = 1; 2 * q < rows; ++q) {
                    // complex lanes 2q and 2q+1
                    const Rg w = S::permute2(z[k0 + 2 * q][b], _mm512_load_si512(ti.idx[p][q]),
                                             z[k0 + (2 * q + 1 < rows ? 2 * q + 1 : 2 * q)][b]);
                    t = S::blend(static_cast<typename S::M>(0xFu << (4 * q)), t, w);
                }
                return t;
            }
        };
        Rg o[N2];
        if constexpr (tlSplit(N2) > 1) {
            // a composite N2 takes each column as its first level needs it
            dftCL2f<S, N2, tlSplit(N2), N2 / tlSplit(N2)>(col, o);
        } else {
            Rg u[N2];
            VRX_UNROLL(32)
            for (int n2 = 0; n2 < N2; ++n2) u[n2] = col(n2);
            dftCL<S, N2>(u, o);
        }
        out(k0, rows, o);
    }
}

// The whole transform stored to the destination (s may be d).
template <class T, int N1, int N2, class S = simd::V<T>>
void tlRun(const T* sRe, const T* sIm, T* dRe, T* dIm, bool split, bool inv, const T* tw) {
    using C = CLs<S>;
    using Rg = typename S::R;
    tlCore<T, N1, N2, S>(sRe, sIm, split, inv, tw, [&](int k0, int rows, const Rg* o) {
        VRX_UNROLL(32)
        for (int k2 = 0; k2 < N2; ++k2) {
            Rg v = o[k2];
            if (inv) v = C::conj(v);
            const int64_t i = int64_t(N1) * k2 + k0;
            if constexpr (S::N == 4) {
                if (split) S::storeSplit(dRe + i, dIm + i, rows, v);
                else S::storec(dRe + 2 * i, rows, v);
            } else if (split) {
                Rg re, im;
                simd::deinterleave(v, S::zero(), re, im);
                S::storem(dRe + i, simd::tail<T>(rows), re);
                S::storem(dIm + i, simd::tail<T>(rows), im);
            } else {
                S::storem(dRe + 2 * i, simd::tail<T>(2 * rows), v);
            }
        }
    });
}

// N1 of the two-level path for a complex length n, or 0: k1 fills as many
// of the complex lanes of a register (8 single, 4 double) as the length
// allows.
template <class T> int tlPick(int64_t n) {
    switch (n) {  // both widths: the radices 7, 11 and 13 across the registers
        case 22: case 26: case 34: case 38: return 2;
        case 21: case 33: case 39: return 3;
        case 28: case 44: case 52: return 4;
        case 35: return 5;
        case 42: case 66: case 78: return 6;
        default: break;
    }
    if constexpr (sizeof(T) == 4) {
        switch (n) {
            case 18: case 30: case 60: return 6;
            case 20: case 36: return 4;
            case 50: case 100: return 5;
            case 360: return 8;
            default: return 0;
        }
    } else {
        switch (n) {
            case 18: case 30: return 3;
            case 50: return 2;
            case 20: case 36: case 60: case 100: case 180: return 4;
            default: return 0;
        }
    }
}

template <class T> bool tlDispatch(int64_t n, const T* sRe, const T* sIm, T* dRe, T* dIm, bool split, bool inv, const T* tw) {
#define VRX_TL(N1, N2) tlRun<T, N1, N2>(sRe, sIm, dRe, dIm, split, inv, tw); return true
#define VRX_TL2(N1, N2) tlRun<T, N1, N2, simd::V256d>(sRe, sIm, dRe, dIm, split, inv, tw); return true
    constexpr bool single = sizeof(T) == 4;
    switch (n) {
        case 18: if constexpr (single) { VRX_TL(6, 3); } else { VRX_TL(3, 6); }
        case 20: VRX_TL(4, 5);
        case 21: VRX_TL(3, 7);
        case 22: VRX_TL(2, 11);
        case 26: VRX_TL(2, 13);
        case 28: VRX_TL(4, 7);
        case 33: VRX_TL(3, 11);
        case 34: VRX_TL(2, 17);
        case 35: VRX_TL(5, 7);
        case 38: VRX_TL(2, 19);
        case 39: VRX_TL(3, 13);
        case 42: VRX_TL(6, 7);
        case 44: VRX_TL(4, 11);
        case 52: VRX_TL(4, 13);
        case 66: VRX_TL(6, 11);
        case 78: VRX_TL(6, 13);
        case 30: if constexpr (single) { VRX_TL(6, 5); } else { VRX_TL(3, 10); }
        case 36: VRX_TL(4, 9);
        case 50: if constexpr (single) { VRX_TL(5, 10); } else { VRX_TL2(2, 25); }
        case 60: if constexpr (single) { VRX_TL(6, 10); } else { VRX_TL(4, 15); }
        case 100: if constexpr (single) { VRX_TL(5, 20); } else { VRX_TL(4, 25); }
        case 180: if constexpr (single) { return false; } else { VRX_TL(4, 45); }
        case 360: if constexpr (single) { VRX_TL(8, 45); } else { return false; }
        default: return false;
    }
#undef VRX_TL
#undef VRX_TL2
}

// Radices of the passes where they differ from the records (0: the
// records' order). Double lengths whose records would leave the early
// passes with fewer finished sub-transforms than a register's lanes run a
// radix 8 first (its 8 x 8 tile moves by unpacks and 128-bit blocks), so
// every later pass fills whole registers. 4095 (records 3, 3, 5, 7, 13)
// runs 13, 9, then 5 and 7 fused (three passes instead of five, its two 3s
// as one radix 9, the last pair on the prime-factor map); 500 runs
// its radix 4 first, its radix 5 at l = 4 on the half-register tile (with
// the masked permutes, the radix 4 second measured faster). Single 1000 and
// 1536 run a radix 8 or 16 first (their tiles move by unpacks and 128-bit
// blocks), so the radix 5 at l = 5 or the radix 4 at l = 4 across t goes
// away. The twiddle
// rows of the passes follow one another in level 0's table: 2*(n-1) values
// in all, within its 2*n.
template <class T> int altPasses(int64_t n, int* R) {
    if (n == 4095) {
        R[0] = 13; R[1] = 9; R[2] = 5; R[3] = 7;
        return 4;
    }
    if constexpr (sizeof(T) == 8) {
        switch (n) {
            case 1000: R[0] = 8; R[1] = 5; R[2] = 5; R[3] = 5; return 4;
            case 1536: R[0] = 8; R[1] = 8; R[2] = 8; R[3] = 3; return 4;
            case 768: R[0] = 8; R[1] = 8; R[2] = 4; R[3] = 3; return 4;
            case 360: R[0] = 8; R[1] = 3; R[2] = 3; R[3] = 5; return 4;
            case 500: R[0] = 4; R[1] = 5; R[2] = 5; R[3] = 5; return 4;
            default: return 0;
        }
    } else {
        if (n == 1000) { R[0] = 8; R[1] = 5; R[2] = 5; R[3] = 5; return 4; }
        if (n == 1536) { R[0] = 16; R[1] = 4; R[2] = 4; R[3] = 6; return 4; }
    }
    return 0;
}

}  // namespace

// ------------------------------------------------------------ factoring and sizes

int factorize(int n, int trialLimit, int* f) {
    int r = n, cnt = 0;
    while (r % 4 == 0 && r > 1) { f[cnt++] = 4; r /= 4; }
    if (r % 2 == 0) {
        r /= 2;
        for (int i = cnt; i > 0; --i) f[i] = f[i - 1];
        f[0] = 2;
        ++cnt;
    }
    if (r > 8) {
        int d = 3;
        while (int64_t(d) * d <= r) {
            if (r % d == 0) {
                r /= d;
                if (d == 3 && cnt > 0 && f[0] == 2) f[0] = 6;
                else f[cnt++] = d;
            } else {
                d += 2;
                if (d > trialLimit) return 0;
            }
        }
    }
    if (cnt == 0) return 0;
    const int limit = (n % 2 == 0) ? kEvenLeftover : trialLimit;
    if (r > limit) return 0;
    if (r == 3 && f[0] == 2) f[0] = 6;
    else f[cnt++] = r;
    return cnt >= 2 ? cnt : 0;
}

int reorderComplex(int* f, int cnt) {
    if (cnt >= 2 && f[1] == 4 && f[0] != 6) {
        f[0] *= 4;
        for (int i = 1; i + 1 < cnt; ++i) f[i] = f[i + 1];
        --cnt;
    }
    const int a = f[0];
    if (cnt >= 2 && (a == 2 || a == 4 || a == 6 || a == 8 || a == 16 || (a == 6 && f[1] == 4))) {
        f[0] = f[cnt - 1];
        f[cnt - 1] = a;
    }
    return cnt;
}

PfSizes pfSizes(const int* f, int cnt, int n, bool real, int e, int unit) {
    PfSizes s{0, 0, 0, 1, 0};
    const int L = cnt - 2;
    int64_t rest = n, g = -1;
    int64_t rests[kMaxRec];
    for (int i = 0; i <= L; ++i) {
        const int64_t blk = rest;  // f[i] * rest_i
        rest /= f[i];
        rests[i] = rest;
        s.P += a64(int64_t(e) * f[i] * rest);
        if (genericTab(f[i]) && (i == 0 || f[i - 1] != f[i])) s.P += a64(int64_t(3) * (e / 2) * f[i]);
        if (g < 0 && blk <= unit) g = i;
    }
    const int last = f[L + 1];
    if (genericTab(last)) s.P += a64(int64_t(3) * (e / 2) * last);
    if (g < 0) g = L;
    int64_t b = 1;
    for (int i = static_cast<int>(g); i <= L; ++i) b *= f[i];
    s.b = static_cast<int32_t>(b);
    if (!real) s.P += a64(4 * b);
    int64_t t = 0;
    for (int i = 0; i <= L; ++i) {
        const bool fixed = real ? inList(f[i], kFactR, 4) : inList(f[i], kFactC, 7);
        if (!fixed) {
            const int64_t v = (rests[i] % 2 == 0) ? 2 * int64_t(f[i]) : f[i];
            if (v > t) t = v;
        }
    }
    if (!(real ? inList(last, kPrimeR, 2) : inList(last, kPrimeC, 10)) && last > t) t = last;
    s.t = static_cast<int32_t>(t);
    if (real) {
        s.J = 2 * a64(int64_t(4) * n);
        s.work = t > 0 ? t * e + 128 : 0;
    } else {
        s.work = (int64_t(n) + t) * e + 128;
    }
    return s;
}

template <class T>
void pfInit(Plan* p, Carver& c, const int* f, int cnt, int n, bool real, const Cx<T>* base, int bs,
            int32_t* scratch) {
    const int L = cnt - 2;
    const int unit = Lim<T>::kUnit;
    p->usePrimeFact = 1;
    p->lastFactor = L;
    p->baseStride = bs;
    int64_t rest = n, prod = 1;
    int g = -1;
    const Cx<T>* prevGen = nullptr;
    for (int i = 0; i <= L; ++i) {
        Rec& r = p->rec[i];
        const int64_t blk = rest;
        rest /= f[i];
        r.factor = f[i];
        r.rest = static_cast<int32_t>(rest);
        r.prod = static_cast<int32_t>(prod);
        if (g < 0 && blk <= unit) g = i;
        T* tw = c.take<T>(int64_t(2) * f[i] * rest);
        // w^(m*k) of order blk = w_n^(m*k*prod): per m, rest real parts, then rest imaginary parts
        // the real stage of level 0 uses m <= (factor-1)/2 only
        const int mEnd = real && i == 0 ? (f[i] + 1) / 2 : f[i];
        for (int m = 1; m < mEnd; ++m) {
            int64_t idx = 0;
            const int64_t step = (int64_t(m) * prod) % n;
            T* t = tw + int64_t(m - 1) * 2 * rest;
            for (int64_t k = 0; k < rest; ++k) {
                t[k] = base[idx * bs].re;
                t[rest + k] = base[idx * bs].im;
                idx += step;
                if (idx >= n) idx -= n;
            }
        }
        r.tw = tw;
        r.gen = nullptr;
        if (genericTab(f[i])) {
            if (i > 0 && f[i - 1] == f[i]) {
                r.gen = const_cast<Cx<T>*>(prevGen);
            } else {
                Cx<T>* gt = c.take<Cx<T>>(f[i]);
                for (int q = 0; q < f[i]; ++q) gt[q] = base[(int64_t(q) * (n / f[i])) * bs];
                r.gen = gt;
                prevGen = gt;
            }
        }
        prod *= f[i];
    }
    const int last = f[L + 1];
    p->lastGen = nullptr;
    if (genericTab(last)) {
        Cx<T>* gt = c.take<Cx<T>>(last);
        for (int q = 0; q < last; ++q) gt[q] = base[(int64_t(q) * (n / last)) * bs];
        p->lastGen = gt;
    }
    if (g < 0) g = L;
    int64_t pg = 1;
    for (int i = 0; i < g; ++i) pg *= f[i];
    for (int i = 0; i <= L; ++i) p->rec[i].blocks = i >= g ? static_cast<int32_t>(p->rec[i].prod / pg) : 1;
    if (real) {
        // the gather to the odd form in the unused half of level 0's table,
        // (factor+1)*rest values of T, at least n positions
        const Rec& r0 = p->rec[0];
        int32_t* tab = reinterpret_cast<int32_t*>(static_cast<T*>(r0.tw) + int64_t(r0.factor - 1) * r0.rest);
        int32_t* src = scratch;
        uint8_t* seen = reinterpret_cast<uint8_t*>(scratch + n);
        for (int64_t i = 0; i < n; ++i) {
            bool neg;
            src[i] = static_cast<int32_t>(formSrc(p, i, neg)) | (neg ? kCycNeg : 0);
            seen[i] = 0;
        }
        int64_t cnt = 0;
        for (int64_t i = 0; i < n; ++i) {
            if (seen[i] || src[i] == i) continue;
            int64_t cur = i;
            int32_t mark = kCycStart;
            do {
                seen[cur] = 1;
                tab[cnt++] = static_cast<int32_t>(cur) | (src[cur] & kCycNeg) | mark;
                mark = 0;
                cur = src[cur] & kCycPos;
            } while (cur != i);
        }
        p->formTab = tab;
        p->formCount = static_cast<int32_t>(cnt);
    }
    if (const int N1 = real ? 0 : tlPick<T>(n)) {
        // the two-level path: level 0's table takes w_n^(k1*n2) as pairs
        T* tw = static_cast<T*>(p->rec[0].tw);
        const int N2 = n / N1;
        for (int k1 = 1; k1 < N1; ++k1)
            for (int n2 = 0; n2 < N2; ++n2) {
                const int64_t i = (int64_t(k1) * n2) % n;
                tw[2 * ((k1 - 1) * N2 + n2)] = base[i * bs].re;
                tw[2 * ((k1 - 1) * N2 + n2) + 1] = base[i * bs].im;
            }
    }
    int ar[kMaxRec + 1];
    if (const int na = real ? 0 : altPasses<T>(n, ar)) {
        // the passes' own twiddle rows, one after another in level 0's table
        T* tw = static_cast<T*>(p->rec[0].tw);
        int64_t l = 1;
        for (int s = 0; s + 1 < na; ++s) {
            const int64_t m = n / (l * ar[s]);
            for (int r = 1; r < ar[s]; ++r, tw += 2 * m)
                for (int64_t k = 0; k < m; ++k) {
                    const int64_t i = (int64_t(r) * k * l) % n;
                    tw[k] = base[i * bs].re;
                    tw[m + k] = base[i * bs].im;
                }
            l *= ar[s];
        }
    }
    if (!real) {
        // input offsets of the untwiddled blocks of one unit, digit-reversed
        int64_t b = 1;
        for (int i = g; i <= L; ++i) b *= f[i];
        int32_t* tab = c.take<int32_t>(b);
        int digit[kMaxRec] = {};
        int64_t off = 0;
        for (int64_t k = 0; k < b; ++k) {
            tab[k] = static_cast<int32_t>(off);
            for (int i = L; i >= g; --i) {
                const int64_t wgt = p->rec[i].prod / pg;
                if (++digit[i] < f[i]) { off += wgt; break; }
                off -= wgt * (f[i] - 1);
                digit[i] = 0;
            }
        }
        p->reorderTab = tab;
    }
}

namespace {

// The passes of the complex engine (the lengths that do not run as two
// levels in registers).
template <class T>
VRX_INLINE bool pfPasses(const Plan* p, const T* sRe, const T* sIm, T* dRe, T* dIm, bool split, bool inv,
                         Cx<T>* work, const T* rec) {
    const int64_t n = p->n;
    // the radix, twiddle rows and roots of each pass
    int Rs[kMaxRec + 1];
    const T* tws[kMaxRec + 1];
    const Cx<T>* Ws[kMaxRec + 1];
    int stages = altPasses<T>(n, Rs);
    if (stages) {
        const T* t = static_cast<const T*>(p->rec[0].tw);
        int64_t l = 1;
        for (int s = 0; s < stages; ++s) {
            Ws[s] = kRoots<T>.r[Rs[s]];
            tws[s] = t;
            t += int64_t(2) * (Rs[s] - 1) * (n / (l * Rs[s]));
            l *= Rs[s];
        }
    } else {
        const int L = p->lastFactor;
        stages = L + 2;
        for (int i = 0; i <= L; ++i) {
            Rs[i] = p->rec[i].factor;
            tws[i] = static_cast<const T*>(p->rec[i].tw);
            Ws[i] = rootsOf<T>(Rs[i], p->rec[i].gen);
        }
        Rs[L + 1] = p->rec[L].rest;
        tws[L + 1] = nullptr;
        Ws[L + 1] = rootsOf<T>(Rs[L + 1], p->lastGen);
    }
    T* wRe = reinterpret_cast<T*>(work);
    T* wIm = wRe + n;
    // the last two stages may run as one pass
    const int RA = Rs[stages - 2], RB = Rs[stages - 1];
    const bool fuse = stages >= 3 && q2Fits<T>(RA, RB, n / (int64_t(RA) * RB));
    const int passes = fuse ? stages - 1 : stages;
    // the passes alternate between the work buffer and the destination (as
    // split arrays) so that the last one writes the destination
    T* xRe = dRe;
    T* xIm = split ? dIm : dRe + n;
    auto target = [&](int st, T*& re, T*& im) {
        const bool toDst = (passes - 1 - st) % 2 == 0;
        re = toDst ? xRe : wRe;
        im = toDst ? xIm : wIm;
    };
    T *bRe, *bIm;
    target(0, bRe, bIm);
    const T* aRe = sRe;
    const T* aIm = split ? sIm : nullptr;
    if (bRe == xRe && (sRe == dRe || (split && (sRe == dIm || sIm == dRe || sIm == dIm)))) {
        // in place with the first pass into the destination: read a copy
        if (split) {
            memcpy(wRe, sRe, sizeof(T) * n);
            memcpy(wIm, sIm, sizeof(T) * n);
            aIm = wIm;
        } else {
            memcpy(wRe, sRe, sizeof(T) * 2 * n);
        }
        aRe = wRe;
    }
    if (split) runStageK<T, false>(Rs[0], n / Rs[0], tws[0], Ws[0], aRe, aIm, bRe, bIm, inv);
    else runStageK<T, true>(Rs[0], n / Rs[0], tws[0], Ws[0], aRe, aIm, bRe, bIm, inv);
    int64_t l = Rs[0];
    for (int st = 1; st < stages; ++st) {
        aRe = bRe;
        aIm = bIm;
        if (fuse && st == stages - 2) {
            if (split) {
                runStageQ2<T, false>(RA, RB, l, tws[st], Ws[st], Ws[st + 1], aRe, aIm, dRe, dIm, false);
                if (inv)
                    for (int64_t i = 0; i < n; ++i) dIm[i] = -dIm[i];
            } else {
                runStageQ2<T, true>(RA, RB, l, tws[st], Ws[st], Ws[st + 1], aRe, aIm, dRe, nullptr, inv);
            }
            return false;
        }
        target(st, bRe, bIm);
        const bool last = st == stages - 1;
        const int R = Rs[st];
        const int64_t m = n / (l * R);
        const T* tw = tws[st];
        const Cx<T>* W = Ws[st];
        if (!last) {
            if (!(2 * l <= simd::V<T>::N && m > 1 && runStageT<T>(R, l, m, tw, W, aRe, aIm, bRe, bIm)))
                runStageQ<T, false>(R, l, m, tw, W, aRe, aIm, bRe, bIm, false);
        }
        else if (rec && recFits<T>(R, l)) {
            runStageRec<T>(R, l, W, aRe, aIm, dRe, rec);
            return true;
        } else if (split) {
            runStageQ<T, false>(R, l, m, tw, W, aRe, aIm, dRe, dIm, false);
            if (inv)
                for (int64_t i = 0; i < n; ++i) dIm[i] = -dIm[i];
        } else {
            runStageQ<T, true>(R, l, m, tw, W, aRe, aIm, dRe, nullptr, inv);
        }
        l *= R;
    }
    return false;
}

// Double calls the passes out of line: inline, they made the two-level
// double length 60 measure a tenth slower; single keeps them inline (it
// measured slower the other way).
template <class T>
__attribute__((noinline)) bool pfPassesOut(const Plan* p, const T* sRe, const T* sIm, T* dRe, T* dIm, bool split,
                                           bool inv, Cx<T>* work, const T* rec) {
    return pfPasses<T>(p, sRe, sIm, dRe, dIm, split, inv, work, rec);
}

}  // namespace

template <class T>
bool pfComplex(const Plan* p, const T* sRe, const T* sIm, T* dRe, T* dIm, bool split, bool inv, Cx<T>* work,
               const T* rec) {
    if (tlDispatch<T>(p->n, sRe, sIm, dRe, dIm, split, inv, static_cast<const T*>(p->rec[0].tw))) return false;
    if constexpr (sizeof(T) == 8) return pfPassesOut<T>(p, sRe, sIm, dRe, dIm, split, inv, work, rec);
    else return pfPasses<T>(p, sRe, sIm, dRe, dIm, split, inv, work, rec);
}

// The real forward of double length 100 in one piece: its half of 50 runs
// as 2 x 25 (tlCore), and the recombination takes the registers as they
// come: register k2 holds bins 2*k2 and 2*k2 + 1, their partners 50 - 2*k2
// and 49 - 2*k2 are value 0 of register 25 - k2 and value 1 of register
// 24 - k2 (one blend). On complex pairs, with y the partner's conjugate,
// the factors as (a, a) and (b, b), d = x - y, PQ = d*b + swap(d)*(a, -a),
// the bin is y + PQ and its partner conj(x) + (-P, Q): the same products
// and sums as the split recombination, so the same bits. The bins go
// straight to their places in the form (Pack one value earlier), scaled
// there when the plan scales; bin 25 is stored last from the partner side.
template <class T> bool pfRealFwdTl(const Plan* p, const T* s, T* d, fft::Form f, T scale) {
    if constexpr (sizeof(T) != 8) {
        return false;
    } else {
        if (p->n != 50) return false;
        using S = simd::V256d;
        using C = CLs<S>;
        using Rg = S::R;
        constexpr int K = 25;
        const T* ab = static_cast<const T*>(p->recFwdTab);  // a of bins 1 .. K, then b
        const int off = f == fft::Form::Pack ? -1 : 0;
        tlCore<T, 2, 25, S>(s, nullptr, false, false, static_cast<const T*>(p->rec[0].tw), [&](int, int, const Rg* o) {
            const Rg sc = S::set1(scale), negRe = S::set2(T(-0.0), T(0));
            // one loop with the scale and one without (no test per register)
            const auto bins = [&](auto scaled) {
                VRX_UNROLL(13)
                for (int k2 = 0; k2 <= K / 2; ++k2) {
                    const Rg x = o[k2], y = C::conj(S::blendHalves(o[k2 ? 25 - k2 : 0], o[24 - k2]));
                    const Rg a = k2 ? S::loadDupPair(ab + 2 * k2 - 1) : S::set1(ab[0]);
                    const Rg b = k2 ? S::loadDupPair(ab + K + 2 * k2 - 1) : S::set1(ab[K]);
                    const Rg dd = S::sub(x, y);
                    const Rg pq = S::add(S::mul(dd, b), S::mul(S::swapPair(dd), C::conj(a)));
                    Rg X = S::add(y, pq), Y = S::add(C::conj(x), S::xorb(pq, negRe));
                    if constexpr (decltype(scaled)::value) {
                        X = S::mul(X, sc);
                        Y = S::mul(Y, sc);
                    }
                    // bin 0 of register 0 and its partner 50 are not recombined
                    if (k2) S::storec(d + 4 * k2 + off, 2, X);
                    else S::storec(d + 2 + off, 1, S::swapHalves(X));
                    S::storec(d + 2 * (49 - 2 * k2) + off, k2 ? 2 : 1, S::swapHalves(Y));
                }
            };
            if (scale != T(0)) bins(std::true_type{});
            else bins(std::false_type{});
            alignas(32) T z0[4];
            S::storec(z0, 2, o[0]);
            T r0 = z0[0] + z0[1], rh = z0[0] - z0[1];
            if (scale != T(0)) {
                r0 = r0 * scale;
                rh = rh * scale;
            }
            d[0] = r0;
            if (f == fft::Form::Perm) {
                d[1] = rh;
            } else if (f == fft::Form::CCS) {
                d[1] = T(0);
                d[100] = rh;
                d[101] = T(0);
            } else {
                d[99] = rh;
            }
        });
        return true;
    }
}

template <class T> void pfReal(const Plan* p, T* d, bool inv) {
    const int64_t n = p->n;
    if (inv) pairsToNatural<T>(d, n);
    rdif<T>(p, 0, d);
    realToForm<T>(p, d);
    if (inv) pairsToNatural<T>(d, n);
}

template <class T> const Cx<T>* smallRoots(int R) { return kRoots<T>.r[R]; }

namespace {

// The straight-line kernel of a length N up to 15 that is not a power of two.
template <class T, int N> VRX_INLINE void smallK(const Cx<T>* x, Cx<T>* y) {
    if constexpr (N == 3 || N == 5) dftBase<T, T>(N, kRoots<T>.r[N], x, y);
    else if constexpr (N == 7 || N == 11 || N == 13) dftT<T, T, N>(x, y);
    else if constexpr (N == 6) smallCt<T, T, 2, 3>(x, y);
    else if constexpr (N == 9) smallCt<T, T, 3, 3>(x, y);
    else if constexpr (N == 10) smallCt<T, T, 2, 5>(x, y);
    else if constexpr (N == 12) smallCt<T, T, 4, 3>(x, y);
    else if constexpr (N == 14) smallCt<T, T, 2, 7>(x, y);
    else smallCt<T, T, 3, 5>(x, y);
}

// Lengths 12 and 15 of interleaved complex values as R1 x 3 in registers of
// complex lanes: register r holds x[3r .. 3r+2], the radix R1 (4 or 5) runs
// across the registers, lane n2 of register k1 takes w_N^(n2*k1), a
// transposition puts k1 in the lanes, and the radix 3 across the registers
// leaves X[k1 + R1*k2] in lane k1 of register k2, ready to store.
template <class T, int N> struct VecSmall {
    using S = simd::V<T>;
    using I = std::conditional_t<sizeof(T) == 4, int32_t, int64_t>;
    static constexpr int kC = S::N / 2;                  // complex lanes of a register
    static constexpr int R1 = N / 3;                     // 4 or 5
    static constexpr int G = (R1 + kC - 1) / kC;         // registers of a row of R1 lanes
    static constexpr int kPairs = ((R1 < kC ? R1 : kC) + 1) / 2;  // permutes of one register of a row
    // the factors of register k1 as (c, c) and (-s, s) per lane
    alignas(64) T cr[R1][S::N] = {}, ci[R1][S::N] = {};
    // idx[n2][p][q]: the permute that brings lane n2 of registers p*kC + 2q
    // and p*kC + 2q + 1 into lanes 2q and 2q + 1 (the rows are then blended)
    alignas(64) I idx[3][G][kPairs][S::N] = {};
    constexpr VecSmall() {
        for (int k1 = 0; k1 < R1; ++k1)
            for (int n2 = 0; n2 < 3; ++n2) {
                const long double a = kTwoPi * ((n2 * k1) % N) / N;
                long double c = __builtin_cosl(a), sn = -__builtin_sinl(a);
                // the quarter turns are exact
                if (c < 1e-15L && c > -1e-15L) c = 0;
                if (sn < 1e-15L && sn > -1e-15L) sn = 0;
                cr[k1][2 * n2] = cr[k1][2 * n2 + 1] = static_cast<T>(c);
                ci[k1][2 * n2] = static_cast<T>(-sn);
                ci[k1][2 * n2 + 1] = static_cast<T>(sn);
            }
        for (int n2 = 0; n2 < 3; ++n2)
            for (int p = 0; p < G; ++p)
                for (int q = 0; q < kPairs; ++q)
                    for (int l = 0; l < kC; ++l)
                        for (int h = 0; h < 2; ++h)
                            idx[n2][p][q][2 * l + h] = static_cast<I>((l == 2 * q + 1 ? S::N : 0) + 2 * n2 + h);
    }
};
template <class T, int N> inline const VecSmall<T, N> kVecSmall{};  // built at load where cosl does not fold

template <class T, int N, bool Inv> VRX_INLINE void smallVec(const T* s, T* d, T scale) {
    using S = simd::V<T>;
    using R = typename S::R;
    using K = VecSmall<T, N>;
    const K& k = kVecSmall<T, N>;
    constexpr int R1 = K::R1, kC = K::kC, G = K::G;
    const R conjM = S::set2(T(0), T(-0.0));
    auto mulI = [&](R v) { return S::xorb(S::swapPair(v), S::set2(T(-0.0), T(0))); };  // i*v
    R a[R1], f[R1];
    VRX_UNROLL(8)
    for (int r = 0; r < R1; ++r) {
        a[r] = S::loadm(simd::tail<T>(6), s + 6 * r);
        if (Inv) a[r] = S::xorb(a[r], conjM);
    }
    if constexpr (R1 == 4) {
        const R p0 = S::add(a[0], a[2]), m0 = S::sub(a[0], a[2]);
        const R p1 = S::add(a[1], a[3]), m1 = S::sub(a[1], a[3]);
        const R mi = S::xorb(S::swapPair(m1), conjM);  // -i*m1
        f[0] = S::add(p0, p1);
        f[2] = S::sub(p0, p1);
        f[1] = S::add(m0, mi);
        f[3] = S::sub(m0, mi);
    } else {
        const Cx<T>* W = kRoots<T>.r[5];
        const R c1 = S::set1(W[1].re), s1 = S::set1(W[1].im), c2 = S::set1(W[2].re), s2 = S::set1(W[2].im);
        const R t1 = S::add(a[1], a[4]), t2 = S::add(a[2], a[3]);
        const R d1 = S::sub(a[1], a[4]), d2 = S::sub(a[2], a[3]);
        f[0] = S::add(S::add(a[0], t1), t2);
        const R a1 = S::add(S::add(a[0], S::mul(c1, t1)), S::mul(c2, t2));
        const R a2 = S::add(S::add(a[0], S::mul(c2, t1)), S::mul(c1, t2));
        const R b1 = mulI(S::add(S::mul(s1, d1), S::mul(s2, d2)));
        const R b2 = mulI(S::sub(S::mul(s2, d1), S::mul(s1, d2)));
        f[1] = S::add(a1, b1);
        f[4] = S::sub(a1, b1);
        f[2] = S::add(a2, b2);
        f[3] = S::sub(a2, b2);
    }
    VRX_UNROLL(8)
    for (int k1 = 1; k1 < R1; ++k1)
        f[k1] = S::add(S::mul(f[k1], S::loada(k.cr[k1])), S::mul(S::swapPair(f[k1]), S::loada(k.ci[k1])));
    R g[3][G];
    VRX_UNROLL(4)
    for (int n2 = 0; n2 < 3; ++n2)
        VRX_UNROLL(2)
        for (int p = 0; p < G; ++p) {
            const int first = p * kC, cnt = R1 - first < kC ? R1 - first : kC;
            R t = S::zero();
            for (int q = 0; 2 * q < cnt; ++q) {
                const R u = S::permute2(f[first + 2 * q], _mm512_load_si512(k.idx[n2][p][q]),
                                        f[first + (2 * q + 1 < cnt ? 2 * q + 1 : 2 * q)]);
                t = q == 0 ? u : S::blend(static_cast<typename S::M>(0xFu << (4 * q)), t, u);
            }
            g[n2][p] = t;
        }
    const T s3 = kRoots<T>.r[3][1].im;
    VRX_UNROLL(2)
    for (int p = 0; p < G; ++p) {
        const int cnt = R1 - p * kC < kC ? R1 - p * kC : kC;
        const R t = S::add(g[1][p], g[2][p]), dd = S::sub(g[1][p], g[2][p]);
        const R am = S::sub(g[0][p], S::mul(S::set1(T(0.5)), t));
        const R sd = S::mul(S::swapPair(dd), S::set2(-s3, s3));
        R e[3] = {S::add(g[0][p], t), S::add(am, sd), S::sub(am, sd)};
        VRX_UNROLL(4)
        for (int k2 = 0; k2 < 3; ++k2) {
            R v = e[k2];
            if (Inv) v = S::xorb(v, conjM);
            if (scale != T(0)) v = S::mul(v, S::set1(scale));
            const int k0 = R1 * k2 + p * kC;
            S::storem(d + 2 * k0, simd::tail<T>(2 * cnt), v);
        }
    }
}


// Double-precision interleaved 12 and 15 as prime-factor maps with no
// factors, in 256-bit registers of two complex values: input x[(R2*a + 3*b)
// mod N] (a the radix-3 index, b the other), radix 3 across registers, the
// radix R2 (4 or 5) inside and across register pairs, and output
// X[(c3*k1 + c2*k2) mod N] with c3 = 1 mod 3, 0 mod R2 and c2 = 0 mod 3,
// 1 mod R2. A 512-bit register of four would run a quarter empty and pay
// full-width permutes for the transposition.
VRX_INLINE void pair3(const simd::CPair::R x[3], simd::CPair::R y[3], simd::CPair::R sg) {
    using P = simd::CPair;
    const P::R t = P::add(x[1], x[2]), dd = P::sub(x[1], x[2]);
    const P::R am = P::sub(x[0], P::mul(P::set1(0.5), t));
    const P::R sd = P::mul(P::swapRI(dd), sg);
    y[0] = P::add(x[0], t);
    y[1] = P::add(am, sd);
    y[2] = P::sub(am, sd);
}
// the forward sign pattern (s, -s) of -i*s*d, s = sin(2 pi/3); the inverse negates it
template <bool Inv> VRX_INLINE simd::CPair::R pair3Sign() {
    const double h = kRoots<double>.r[3][1].im;  // -sin(2 pi/3)
    return Inv ? simd::CPair::setr(h, -h, h, -h) : simd::CPair::setr(-h, h, -h, h);
}
// complex value i of interleaved data, or of split arrays
struct PairInter {
    const double* s;
    double* d;
    VRX_INLINE simd::CPair::R load2(int i, int j) const { return simd::CPair::load2(s + 2 * i, s + 2 * j); }
    VRX_INLINE simd::CPair::R dup(int i) const { return simd::CPair::dup(s + 2 * i); }
    VRX_INLINE void store2(int i, int j, simd::CPair::R v) const { simd::CPair::store2(d + 2 * i, d + 2 * j, v); }
    VRX_INLINE void storeLo(int i, simd::CPair::R v) const { simd::CPair::storeLo(d + 2 * i, v); }
};
struct PairSplit {
    const double *sr, *si;
    double *dr, *di;
    VRX_INLINE simd::CPair::R load2(int i, int j) const { return simd::CPair::load2(sr + i, si + i, sr + j, si + j); }
    VRX_INLINE simd::CPair::R dup(int i) const { return simd::CPair::dup(sr + i, si + i); }
    VRX_INLINE void store2(int i, int j, simd::CPair::R v) const { simd::CPair::store2(dr + i, di + i, dr + j, di + j, v); }
    VRX_INLINE void storeLo(int i, simd::CPair::R v) const { simd::CPair::storeLo(dr + i, di + i, v); }
};
template <class A> VRX_INLINE void pairStore(const A& io, int i, int j, simd::CPair::R v, double scale) {
    if (scale != 0.0) v = simd::CPair::mul(v, simd::CPair::set1(scale));
    io.store2(i, j, v);
}

template <bool Inv, class A> VRX_INLINE void pair12(const A& io, double scale) {
    using P = simd::CPair;
    using R = P::R;
    const R sg = pair3Sign<Inv>();
    // group p holds b = 2p, 2p+1: after the radix 3, y[p][k1] is (y(k1, 2p), y(k1, 2p+1))
    R x[2][3], y[2][3];
    VRX_UNROLL(2)
    for (int p = 0; p < 2; ++p)
        VRX_UNROLL(3)
        for (int a = 0; a < 3; ++a)
            x[p][a] = io.load2((4 * a + 6 * p) % 12, (4 * a + 6 * p + 3) % 12);
    pair3(x[0], y[0], sg);
    pair3(x[1], y[1], sg);
    // radix 4 over b: (b0 +- b2, b1 +- b3) across the pair, then inside it;
    // the quarter turn -i (forward) or +i (inverse) on the high half of v
    const R qt = Inv ? P::setr(0.0, 0.0, -0.0, 0.0) : P::setr(0.0, 0.0, 0.0, -0.0);
    VRX_UNROLL(3)
    for (int k1 = 0; k1 < 3; ++k1) {
        const R u = P::add(y[0][k1], y[1][k1]), v = P::sub(y[0][k1], y[1][k1]);
        const R vq = P::xorb(P::swapRIHigh(v), qt);
        const R w = P::lows(u, v), q = P::highs(u, vq);
        // (X(k2 = 0), X(k2 = 1)) and (X(k2 = 2), X(k2 = 3)) at k = 4*k1 + 9*k2 mod 12
        pairStore(io, (4 * k1) % 12, (4 * k1 + 9) % 12, P::add(w, q), scale);
        pairStore(io, (4 * k1 + 6) % 12, (4 * k1 + 3) % 12, P::sub(w, q), scale);
    }
}

template <bool Inv, class A> VRX_INLINE void pair15(const A& io, double scale) {
    using P = simd::CPair;
    using R = P::R;
    const R sg = pair3Sign<Inv>();
    // groups over b: (1, 2), (4, 3) and 0 in both halves
    R x[3][3], y[3][3];
    VRX_UNROLL(3)
    for (int a = 0; a < 3; ++a) {
        x[0][a] = io.load2((5 * a + 3) % 15, (5 * a + 6) % 15);
        x[1][a] = io.load2((5 * a + 12) % 15, (5 * a + 9) % 15);
        x[2][a] = io.dup(5 * a);
    }
    pair3(x[0], y[0], sg);
    pair3(x[1], y[1], sg);
    pair3(x[2], y[2], sg);
    const Cx<double>* W = kRoots<double>.r[5];
    const R c1 = P::set1(W[1].re), c2 = P::set1(W[2].re), s2 = P::set1(W[2].im);
    const R s1 = P::setr(W[1].im, W[1].im, -W[1].im, -W[1].im);
    const R iSign = P::setr(-0.0, 0.0, -0.0, 0.0);
    VRX_UNROLL(3)
    for (int k1 = 0; k1 < 3; ++k1) {
        // radix 5 over b: t = (y1 + y4, y2 + y3), e = (y1 - y4, y2 - y3)
        const R y0 = y[2][k1];
        const R t = P::add(y[0][k1], y[1][k1]), e = P::sub(y[0][k1], y[1][k1]);
        const R ts = P::swapHalves(t), es = P::swapHalves(e);
        const R a = P::add(P::add(y0, P::mul(t, c1)), P::mul(ts, c2));   // (a1, a2)
        const R b = P::add(P::mul(e, s1), P::mul(es, s2));               // (b1, b2) before the i
        const R ib = P::xorb(P::swapRI(b), iSign);
        const R z0 = P::add(P::add(y0, t), ts);                            // y0 + t1 + t2 low
        // k = 10*k1 + 6*k2 mod 15
        const R z12 = Inv ? P::sub(a, ib) : P::add(a, ib), z43 = Inv ? P::add(a, ib) : P::sub(a, ib);
        pairStore(io, (10 * k1 + 6) % 15, (10 * k1 + 12) % 15, z12, scale);
        pairStore(io, (10 * k1 + 9) % 15, (10 * k1 + 3) % 15, z43, scale);
        io.storeLo((10 * k1) % 15, scale != 0.0 ? P::mul(z0, P::set1(scale)) : z0);
    }
}

// interleaved 12 and 15: the pair kernels in double, the lane kernels in single
template <class T, int N, bool Inv> VRX_INLINE void smallInter(const T* s, T* d, T scale) {
    if constexpr (sizeof(T) == 8) {
        if constexpr (N == 12) pair12<Inv>(PairInter{s, d}, scale);
        else pair15<Inv>(PairInter{s, d}, scale);
    } else {
        smallVec<T, N, Inv>(s, d, scale);
    }
}

}  // namespace

template <class T, bool Inv> VrxStatus smallVecC(int N, const T* s, T* d, T scale) {
    if (N == 12) smallInter<T, 12, Inv>(s, d, scale);
    else smallInter<T, 15, Inv>(s, d, scale);
    return vrxOk;
}

namespace {

// One whole call of a fixed length: the values go from the source into
// registers, through the kernel and out to the destination with no copy
// through memory (s may be d: every value is read before one is written).
// The inverse is the conjugate of the forward transform of the conjugate.
template <class T, int N, bool Inv, int ss>
VRX_INLINE void smallCN(const T* sRe, const T* sIm, T* dRe, T* dIm, T scale) {
    constexpr int ds = ss;
    if constexpr (ss == 2 && (N == 12 || N == 15)) {
        smallInter<T, N, Inv>(sRe, dRe, scale);
        return;
    }
    if constexpr (ss == 1 && sizeof(T) == 8 && (N == 12 || N == 15)) {  // split double: the pair kernels
        if constexpr (N == 12) pair12<Inv>(PairSplit{sRe, sIm, dRe, dIm}, scale);
        else pair15<Inv>(PairSplit{sRe, sIm, dRe, dIm}, scale);
        return;
    }
    if constexpr (ss == 2) {  // interleaved: one base each, so that pairs load and store together
        sIm = sRe + 1;
        dIm = dRe + 1;
    }
    Cx<T> x[N], y[N];
    VRX_UNROLL(16)
    for (int i = 0; i < N; ++i) x[i] = {sRe[i * ss], Inv ? -sIm[i * ss] : sIm[i * ss]};
    smallK<T, N>(x, y);
    if (scale != T(0)) {
        VRX_UNROLL(16)
        for (int i = 0; i < N; ++i) {
            dRe[i * ds] = y[i].re * scale;
            dIm[i * ds] = (Inv ? -y[i].im : y[i].im) * scale;
        }
    } else {
        VRX_UNROLL(16)
        for (int i = 0; i < N; ++i) {
            dRe[i * ds] = y[i].re;
            dIm[i * ds] = Inv ? -y[i].im : y[i].im;
        }
    }
}

// Reals to the requested form: the complex kernel on x + 0i, written
// straight into the form's positions.
template <class T, int N> void smallRFwdN(const T* s, T* d, T scale, fft::Form f) {
    Cx<T> x[N], y[N];
    T o[N];
    VRX_UNROLL(16)
    for (int i = 0; i < N; ++i) x[i] = {s[i], T(0)};
    smallK<T, N>(x, y);
    o[0] = y[0].re;
    if constexpr (N % 2 == 0) {
        o[1] = y[N / 2].re;
        VRX_UNROLL(8)
        for (int k = 1; 2 * k < N; ++k) { o[2 * k] = y[k].re; o[2 * k + 1] = y[k].im; }
    } else {
        VRX_UNROLL(8)
        for (int k = 1; 2 * k < N; ++k) { o[2 * k - 1] = y[k].re; o[2 * k] = y[k].im; }
    }
    if (scale != T(0)) {
        VRX_UNROLL(16)
        for (int i = 0; i < N; ++i) o[i] = o[i] * scale;
    }
    // o is Perm; Pack moves R(N/2) last (even N), CCS puts a zero after R(0)
    // and, for even N, (R(N/2), 0) at the end
    d[0] = o[0];
    if constexpr (N % 2 == 0) {
        if (f == fft::Form::Perm) {
            VRX_UNROLL(16)
            for (int i = 1; i < N; ++i) d[i] = o[i];
        } else if (f == fft::Form::Pack) {
            VRX_UNROLL(16)
            for (int i = 2; i < N; ++i) d[i - 1] = o[i];
            d[N - 1] = o[1];
        } else {
            d[1] = T(0);
            VRX_UNROLL(16)
            for (int i = 2; i < N; ++i) d[i] = o[i];
            d[N] = o[1];
            d[N + 1] = T(0);
        }
    } else {
        const int sh = f == fft::Form::CCS ? 1 : 0;
        if (sh) d[1] = T(0);
        VRX_UNROLL(16)
        for (int i = 1; i < N; ++i) d[i + sh] = o[i];
    }
}

// The requested form to reals: the real part of the forward kernel on the
// conjugate of the full spectrum (s may be d).
template <class T, int N> void smallRInvN(const T* s, T* d, T scale, fft::Form f) {
    // P(i): value i of the Perm form
    auto P = [s, f](int i) -> T {
        if (i == 0) return s[0];
        if constexpr (N % 2 == 0) {
            if (f == fft::Form::Pack) return i == 1 ? s[N - 1] : s[i - 1];
            if (f == fft::Form::CCS) return i == 1 ? s[N] : s[i];
            return s[i];
        } else {
            return f == fft::Form::CCS ? s[i + 1] : s[i];
        }
    };
    Cx<T> X[N], y[N];
    X[0] = {P(0), T(0)};
    if constexpr (N % 2 == 0) X[N / 2] = {P(1), T(0)};
    VRX_UNROLL(8)
    for (int k = 1; 2 * k < N; ++k) {
        const T xr = N % 2 == 0 ? P(2 * k) : P(2 * k - 1), xi = N % 2 == 0 ? P(2 * k + 1) : P(2 * k);
        X[k] = {xr, -xi};
        X[N - k] = {xr, xi};
    }
    smallK<T, N>(X, y);
    if (scale != T(0)) {
        VRX_UNROLL(16)
        for (int i = 0; i < N; ++i) d[i] = y[i].re * scale;
    } else {
        VRX_UNROLL(16)
        for (int i = 0; i < N; ++i) d[i] = y[i].re;
    }
}

// Run-time length to the fixed-length entry F<N>.
#define VRX_SMALL_SWITCH(N, CALL)                \
    switch (N) {                                \
        case 3: CALL(3); return;                 \
        case 5: CALL(5); return;                 \
        case 6: CALL(6); return;                 \
        case 7: CALL(7); return;                 \
        case 9: CALL(9); return;                 \
        case 10: CALL(10); return;               \
        case 11: CALL(11); return;               \
        case 12: CALL(12); return;               \
        case 13: CALL(13); return;               \
        case 14: CALL(14); return;               \
        default: CALL(15); return;               \
    }

}  // namespace

template <class T> void smallRunC(int N, bool inv, const T* sRe, const T* sIm, int ss, T* dRe, T* dIm, int ds, T scale) {
    // split arrays (stride 1) or interleaved pairs (stride 2) on both sides
    (void)ds;
#define VRX_SMALL_C(K)                                                                     \
    (ss == 2 ? (inv ? smallCN<T, K, true, 2>(sRe, sIm, dRe, dIm, scale)                \
                    : smallCN<T, K, false, 2>(sRe, sIm, dRe, dIm, scale))              \
             : (inv ? smallCN<T, K, true, 1>(sRe, sIm, dRe, dIm, scale) : smallCN<T, K, false, 1>(sRe, sIm, dRe, dIm, scale)))
    VRX_SMALL_SWITCH(N, VRX_SMALL_C)
#undef VRX_SMALL_C
}
template <class T> void smallRunRFwd(int N, const T* s, T* d, T scale, fft::Form f) {
#define VRX_SMALL_RF(K) smallRFwdN<T, K>(s, d, scale, f)
    VRX_SMALL_SWITCH(N, VRX_SMALL_RF)
#undef VRX_SMALL_RF
}
template <class T> void smallRunRInv(int N, const T* s, T* d, T scale, fft::Form f) {
#define VRX_SMALL_RI(K) smallRInvN<T, K>(s, d, scale, f)
    VRX_SMALL_SWITCH(N, VRX_SMALL_RI)
#undef VRX_SMALL_RI
}
#undef VRX_SMALL_SWITCH

#define VRX_DFTPF_INSTANTIATE(T)                                                                         \
    template void pfInit<T>(Plan*, Carver&, const int*, int, int, bool, const Cx<T>*, int, int32_t*);   \
    template bool pfComplex<T>(const Plan*, const T*, const T*, T*, T*, bool, bool, Cx<T>*, const T*);  \
    template bool pfRealFwdTl<T>(const Plan*, const T*, T*, fft::Form, T);                              \
    template void pfReal<T>(const Plan*, T*, bool);                                                     \
    template const Cx<T>* smallRoots<T>(int);                                                            \
    template void smallRunC<T>(int, bool, const T*, const T*, int, T*, T*, int, T);                     \
    template void smallRunRFwd<T>(int, const T*, T*, T, fft::Form);                                      \
    template void smallRunRInv<T>(int, const T*, T*, T, fft::Form);                                      \
    template VrxStatus smallVecC<T, false>(int, const T*, T*, T);                                        \
    template VrxStatus smallVecC<T, true>(int, const T*, T*, T);

VRX_DFTPF_INSTANTIATE(float)
VRX_DFTPF_INSTANTIATE(double)

}  // namespace n0::dft
