// Real FFT: a complex transform of half length plus one recombination pass,
// with the three packed spectrum forms CCS, Pack and Perm. Up to N = 16 the
// transforms are straight-line real kernels.
#include "vrx_fft.h"
#include "vrx_fft_recomb.h"
#include "vrx_fft_simd.h"
#include "vrx_layout.h"

#include <type_traits>

using namespace n0::fft;
using n0::ObjId;

namespace {

constexpr int kFine = kRecombFine;

// ------------------------------------------------------------ recombination

// L complex values per step held as L real lanes and L imaginary lanes.
template <class T> struct SV : GVec<T> {
    using V = typename GVec<T>::R;
    using I = typename std::conditional<sizeof(T) == 4, int32_t, int64_t>::type;
    static constexpr int L = GVec<T>::V;
    static VRX_INLINE __m512i ldi(const I* p) { return n0::simd::V<I>::load(p); }
    static VRX_INLINE V perm(V a, __m512i i, V b) { return GVec<T>::W::permute2(a, i, b); }
};

// Lane selectors over a pair of registers (indices 0 .. 2L-1): split of L
// complex values into real and imaginary lanes, the same for a block read
// backwards, the inverse moves, and the two kinds of factor of a table
// stored in pairs by two. The half forms take L/2 values from one register
// and repeat them in the upper lanes.
template <class I, int L> struct Sel {
    struct Set { alignas(64) I re[L], im[L], reRev[L], imRev[L], lo[L], hi[L], loRev[L], hiRev[L], first[L], second[L]; };
    Set full, half;
    constexpr Sel() : full{}, half{} {
        for (int i = 0; i < L; ++i) {
            const int h = i % (L / 2), c0 = i / 2, c1 = L / 2 + i / 2;
            full.re[i] = I(2 * i);
            full.im[i] = I(2 * i + 1);
            full.reRev[i] = I(2 * (L - 1 - i));
            full.imRev[i] = I(2 * (L - 1 - i) + 1);
            full.first[i] = I(4 * (i / 2) + (i & 1));
            full.second[i] = I(4 * (i / 2) + 2 + (i & 1));
            // memory slot i of the first and of the second output register
            full.lo[i] = half.lo[i] = I((i & 1) ? L + c0 : c0);
            full.hi[i] = half.hi[i] = I((i & 1) ? L + c1 : c1);
            full.loRev[i] = I((i & 1) ? L + (L - 1 - c0) : L - 1 - c0);
            full.hiRev[i] = I((i & 1) ? L + (L - 1 - c1) : L - 1 - c1);
            half.re[i] = I(2 * h);
            half.im[i] = I(2 * h + 1);
            half.reRev[i] = I(2 * (L / 2 - 1 - h));
            half.imRev[i] = I(2 * (L / 2 - 1 - h) + 1);
            half.first[i] = I(4 * (h / 2) + (h & 1));
            half.second[i] = I(4 * (h / 2) + 2 + (h & 1));
            half.loRev[i] = I((i & 1) ? L + (L / 2 - 1 - c0) : L / 2 - 1 - c0);
            half.hiRev[i] = half.loRev[i];
        }
    }
};
template <class T> inline constexpr Sel<typename SV<T>::I, SV<T>::L> kSel{};

// B = L values of k per block (Half: L/2, all lanes computing copies).
template <class T, bool Half> struct Lanes {
    using S = SV<T>;
    using V = typename S::V;
    static constexpr int B = Half ? S::L / 2 : S::L;
    __m512i re, im, reRev, imRev, lo, hi, loRev, hiRev, first, second;
    VRX_INLINE Lanes() {
        const auto& q = Half ? kSel<T>.half : kSel<T>.full;
        re = S::ldi(q.re); im = S::ldi(q.im); reRev = S::ldi(q.reRev); imRev = S::ldi(q.imRev);
        lo = S::ldi(q.lo); hi = S::ldi(q.hi); loRev = S::ldi(q.loRev); hiRev = S::ldi(q.hiRev);
        first = S::ldi(q.first); second = S::ldi(q.second);
    }
    // x = z[k .. k+B-1], y = z[M-k], z[M-k-1], ... (read backwards)
    VRX_INLINE void load(const T* z, int64_t M, int64_t k, V& xr, V& xi, V& yr, V& yi) const {
        const T* f = z + 2 * k;
        const T* b = z + 2 * (M - k - B + 1);
        const V f0 = S::loadHalf(f), b0 = S::loadHalf(b);
        const V f1 = Half ? f0 : S::loadHalf(f + S::L), b1 = Half ? b0 : S::loadHalf(b + S::L);
        xr = S::perm(f0, re, f1);
        xi = S::perm(f0, im, f1);
        yr = S::perm(b0, reRev, b1);
        yi = S::perm(b0, imRev, b1);
    }
    // front values to z[k ..], then back values to z[M-k], z[M-k-1], ...
    VRX_INLINE void store(T* z, int64_t M, int64_t k, V fr, V fi, V br, V bi) const {
        T* f = z + 2 * k;
        T* b = z + 2 * (M - k - B + 1);
        S::storeHalf(f, S::perm(fr, lo, fi));
        if (!Half) S::storeHalf(f + S::L, S::perm(fr, hi, fi));
        S::storeHalf(b, S::perm(br, loRev, bi));
        if (!Half) S::storeHalf(b + S::L, S::perm(br, hiRev, bi));
    }
    // factors of k .. k+B-1 (k odd) from a table in pairs by two
    VRX_INLINE void factors(const T* tab, int64_t k, V& a, V& b) const {
        const T* t = tab + 2 * (k - 1);
        const V t0 = S::loadHalf(t), t1 = Half ? t0 : S::loadHalf(t + S::L);
        a = S::perm(t0, first, t1);
        b = S::perm(t0, second, t1);
    }
};

// Double precision over a planar table: the front block splits into real
// and imaginary lanes by in-lane unpacks, which leave k in the order
// kLaneK; the back block, read backwards, is split and reversed into the
// same order by one index permute per register, and put back the same way.
struct BackSel {
    alignas(64) int64_t re[8], im[8], lo[8], hi[8];
    constexpr BackSel() : re{}, im{}, lo{}, hi{} {
        for (int i = 0; i < 8; ++i) {
            re[i] = 2 * (7 - kLaneK(i));   // lane i: element 7 - kLaneK(i) of the back block
            im[i] = re[i] + 1;
        }
        for (int p = 0; p < 4; ++p) {
            // element p of the back block (first register) and 4 + p (second)
            lo[2 * p] = kSlotOf(7 - p);
            lo[2 * p + 1] = 8 + kSlotOf(7 - p);
            hi[2 * p] = kSlotOf(3 - p);
            hi[2 * p + 1] = 8 + kSlotOf(3 - p);
        }
    }
};
inline constexpr BackSel kBackSel{};

struct PlanarLanes {
    using S = SV<double>;
    using W = n0::simd::V<double>;
    using V = __m512d;
    static constexpr int B = 8;
    __m512i re, im, lo, hi;
    VRX_INLINE PlanarLanes() {
        re = S::ldi(kBackSel.re); im = S::ldi(kBackSel.im); lo = S::ldi(kBackSel.lo); hi = S::ldi(kBackSel.hi);
    }
    VRX_INLINE void load(const double* z, int64_t M, int64_t k, V& xr, V& xi, V& yr, V& yi) const {
        const double* f = z + 2 * k;
        const double* b = z + 2 * (M - k - B + 1);
        const V f0 = W::load(f), f1 = W::load(f + 8), b0 = W::load(b), b1 = W::load(b + 8);
        xr = n0::simd::unpackLo(f0, f1);
        xi = n0::simd::unpackHi(f0, f1);
        yr = S::perm(b0, re, b1);
        yi = S::perm(b0, im, b1);
    }
    VRX_INLINE void store(double* z, int64_t M, int64_t k, V fr, V fi, V br, V bi) const {
        double* f = z + 2 * k;
        double* b = z + 2 * (M - k - B + 1);
        W::store(f, n0::simd::unpackLo(fr, fi));
        W::store(f + 8, n0::simd::unpackHi(fr, fi));
        W::store(b, S::perm(br, lo, bi));
        W::store(b + 8, S::perm(br, hi, bi));
    }
    // the block of k .. k+7 (k = 1 + 8g): eight first factors, eight second
    VRX_INLINE void factors(const double* tab, int64_t k, V& a, V& b) const {
        const double* t = tab + 2 * (k - 1);
        a = W::load(t);
        b = W::load(t + 8);
    }
};

// Runs step(lanes, k) over blocks of k = 1 .. M/2 and returns the first k
// left to the scalar form. The last block reaches k = M/2, where front and
// back stand on one value: every load comes before the stores and the back
// store lands last, as in the scalar form, which has the same arithmetic.
template <class T, bool Planar, class Step> VRX_INLINE int64_t vectorBlocks(int64_t M, Step step) {
    constexpr int L = SV<T>::L;
    if constexpr (Planar) {
        static_assert(sizeof(T) == 8, "planar tables are double precision");
        if ((M / 2) % 8 != 0) return 1;
        const PlanarLanes ln;
        for (int64_t k = 1; k <= M / 2; k += 8) step(ln, k);
        return M / 2 + 1;
    }
    if (M / 2 >= L) {
        const Lanes<T, false> ln;
        for (int64_t k = 1; k <= M / 2; k += L) step(ln, k);
        return M / 2 + 1;
    }
    if (M / 2 == L / 2) {
        const Lanes<T, true> ln;
        step(ln, int64_t(1));
        return M / 2 + 1;
    }
    return 1;
}

// The two factors of k from a table in either layout.
template <class T, bool Planar = false> VRX_INLINE void factor(const T* tab, int64_t k, T& a, T& b) {
    int64_t ia, ib;
    recombSlots<Planar>(k, ia, ib);
    a = tab[ia];
    b = tab[ib];
}

// The norm scale of a plan applied to the recombination's outputs (Sc), so
// that the complex transform before it needs no pass of its own for it.
template <class T, bool Sc> struct OutScale {
    using S = SV<T>;
    typename S::V v;
    T t;
    explicit VRX_INLINE OutScale(T scale) : v(S::splat(scale)), t(scale) {}
    VRX_INLINE typename S::V operator()(typename S::V x) const {
        if constexpr (Sc) return S::mulv(x, v);
        else return x;
    }
    VRX_INLINE T operator()(T x) const {
        if constexpr (Sc) return x * t;
        else return x;
    }
};

// One value of k of the single-level forward recombination in scalar form:
// x = z[k] and y = z[M - k] in, X[k] and X[M - k] out (the back one last).
template <class T, class O> VRX_INLINE void fwdStep1(T xr, T xi, T yr, T yi, T c, T s, T* z, int64_t M, int64_t k, const O& o) {
    const T dr = xr - yr, di = xi + yi;
    const T P = dr * s + c * di;
    const T Q = di * s - c * dr;
    z[2 * k] = o(yr + P);
    z[2 * k + 1] = o(Q - yi);
    z[2 * (M - k)] = o(xr - P);
    z[2 * (M - k) + 1] = o(Q - xi);
}

// Forward recombination in place of the half-length spectrum into Perm,
// k = 1 .. M/2, single-level factors c = 0.5*cos, s = 0.5 - 0.5*sin.
template <class T, bool Planar, bool Sc> void realRecombine1(T* z, int64_t M, const T* tab, T scale) {
    using S = SV<T>;
    using V = typename S::V;
    const OutScale<T, Sc> o(scale);
    int64_t k = vectorBlocks<T, Planar>(M, [&](const auto& ln, int64_t k0) {
        V xr, xi, yr, yi, c, s;
        ln.load(z, M, k0, xr, xi, yr, yi);
        ln.factors(tab, k0, c, s);
        const V dr = S::sub(xr, yr), di = S::add(xi, yi);
        const V P = S::add(S::mulv(dr, s), S::mulv(c, di));
        const V Q = S::sub(S::mulv(di, s), S::mulv(c, dr));
        ln.store(z, M, k0, o(S::add(yr, P)), o(S::sub(Q, yi)), o(S::sub(xr, P)), o(S::sub(Q, xi)));
    });
    for (; k <= M / 2; ++k) {
        T c, s;
        factor<T, Planar>(tab, k, c, s);
        fwdStep1(z[2 * k], z[2 * k + 1], z[2 * (M - k)], z[2 * (M - k) + 1], c, s, z, M, k, o);
    }
}

// The same recombination (double precision, orders 11 to 14) reading the
// half-length spectrum w in the group form that the radix engine leaves in
// the work buffer (or in z itself) and writing the Perm form to z: per
// eight values of k = 8g .. 8g + 7, the front values are one group as it
// stands (and their outputs a block of z that starts on a 64-byte boundary
// when z does), the back values z[M - k] the groups of positions 8h and
// 8h + 8 (h = M/8 - 1 - g) joined and reversed by one index permute per
// part. k = 0 .. 7 and M/2 go the scalar way.
struct GroupSel {
    alignas(64) int64_t rev[8], lo[8], hi[8], loRev[8], hiRev[8];
    constexpr GroupSel() : rev{}, lo{}, hi{}, loRev{}, hiRev{} {
        for (int l = 0; l < 8; ++l) rev[l] = l == 0 ? 8 : 8 - l;  // M - k: group h+1 lane 0, then h lanes 7 .. 1
        for (int j = 0; j < 4; ++j) {
            lo[2 * j] = j, lo[2 * j + 1] = 8 + j;
            hi[2 * j] = 4 + j, hi[2 * j + 1] = 12 + j;
            loRev[2 * j] = 7 - j, loRev[2 * j + 1] = 15 - j;
            hiRev[2 * j] = 3 - j, hiRev[2 * j + 1] = 11 - j;
        }
    }
};
inline constexpr GroupSel kGroupSel{};

// w may be z: step g reads groups g, h and h + 1 and writes group g and
// all of group h but its first two reals (and those of group h + 1), so
// group h + 1 is the group h of the step before, carried in registers
// from it, and the values of the scalar steps are copied first.
template <bool Sc> void recombineGroups(const double* w, double* z, int64_t M, const double* tab, double scale) {
    using S = SV<double>;
    using W = n0::simd::V<double>;
    using V = __m512d;
    const OutScale<double, Sc> o(scale);
    const __m512i rev = S::ldi(kGroupSel.rev), lo = S::ldi(kGroupSel.lo), hi = S::ldi(kGroupSel.hi);
    const __m512i loRev = S::ldi(kGroupSel.loRev), hiRev = S::ldi(kGroupSel.hiRev);
    // groups 0 and M/8 - 1, and position M/2 (group M/16, lane 0)
    alignas(64) double head[16], tail[16];
    const double* last = w + 2 * M - 16;
    for (int i = 0; i < 16; ++i) head[i] = w[i], tail[i] = last[i];
    const double midRe = w[M], midIm = w[M + 8];
    V cr = W::load(last), ci = W::load(last + 8);
    for (int64_t g = 1; g < M / 16; ++g) {
        const int64_t h = M / 8 - 1 - g;
        const V xr = W::load(w + 16 * g), xi = W::load(w + 16 * g + 8);
        const V hr = W::load(w + 16 * h), hiv = W::load(w + 16 * h + 8);
        const V yr = S::perm(hr, rev, cr), yi = S::perm(hiv, rev, ci);
        cr = hr;
        ci = hiv;
        const V c = W::load(tab + 16 * g), s = W::load(tab + 16 * g + 8);
        const V dr = S::sub(xr, yr), di = S::add(xi, yi);
        const V P = S::add(S::mulv(dr, s), S::mulv(c, di));
        const V Q = S::sub(S::mulv(di, s), S::mulv(c, dr));
        const V fr = o(S::add(yr, P)), fi = o(S::sub(Q, yi)), br = o(S::sub(xr, P)), bi = o(S::sub(Q, xi));
        W::store(z + 16 * g, S::perm(fr, lo, fi));
        W::store(z + 16 * g + 8, S::perm(fr, hi, fi));
        double* b = z + 2 * (M - 8 * g - 7);
        W::store(b, S::perm(br, loRev, bi));
        W::store(b + 8, S::perm(br, hiRev, bi));
    }
    // part 0: real, 8: imaginary
    const auto val = [&](int64_t p, int part) {
        if (p < 8) return head[p + part];
        if (p >= M - 8) return tail[(p & 7) + part];
        return part ? midIm : midRe;
    };
    for (int64_t k = 1; k <= 8; ++k) {
        const int64_t kk = k == 8 ? M / 2 : k;
        int64_t ia, ib;
        groupSlots(kk, M / 2, ia, ib);
        fwdStep1(val(kk, 0), val(kk, 8), val(M - kk, 0), val(M - kk, 8), tab[ia], tab[ib], z, M, kk, o);
    }
    z[0] = o(head[0] + head[8]);
    z[1] = o(head[0] - head[8]);
}

// Two levels: W = fine(k') * coarse(j) for k = k' + kFine*j; A = 0.5*(x +
// conj y), D = 0.5*(x - conj y), B = -i*W*D; z[k] = A + B, z[M-k] =
// conj(A - B).
template <class T> VRX_INLINE void twoLevelW(const T* tab, int64_t k, T& wr, T& wi) {
    const T* coarse = tab + 2 * kFine;
    const int64_t j = (k - 1) / kFine, kf = k - j * kFine;
    T fr, fi;
    factor(tab, kf, fr, fi);
    const T gr = coarse[2 * j], gi = coarse[2 * j + 1];
    wr = fr * gr - fi * gi;
    wi = fr * gi + fi * gr;
}

template <class T, bool Sc> void realRecombine2(T* z, int64_t M, const T* tab, T scale) {
    using S = SV<T>;
    using V = typename S::V;
    const OutScale<T, Sc> o(scale);
    const T* coarse = tab + 2 * kFine;
    const V hv = S::splat(T(0.5));
    // blocks divide kFine: a block never crosses a coarse step
    int64_t k = vectorBlocks<T, false>(M, [&](const auto& ln, int64_t k0) {
        const int64_t j = (k0 - 1) / kFine, kf = k0 - j * kFine;
        const V gr = S::splat(coarse[2 * j]), gi = S::splat(coarse[2 * j + 1]);
        V xr, xi, yr, yi, fr, fi;
        ln.load(z, M, k0, xr, xi, yr, yi);
        ln.factors(tab, kf, fr, fi);
        const V wr = S::sub(S::mulv(fr, gr), S::mulv(fi, gi));
        const V wi = S::add(S::mulv(fr, gi), S::mulv(fi, gr));
        const V ar = S::mulv(hv, S::add(xr, yr)), ai = S::mulv(hv, S::sub(xi, yi));
        const V dr = S::mulv(hv, S::sub(xr, yr)), di = S::mulv(hv, S::add(xi, yi));
        const V pr = S::sub(S::mulv(wr, dr), S::mulv(wi, di));
        const V pi = S::add(S::mulv(wr, di), S::mulv(wi, dr));
        const V nr = S::sub(S::splat(T(0)), pr);
        ln.store(z, M, k0, o(S::add(ar, pi)), o(S::add(ai, nr)), o(S::sub(ar, pi)), o(S::sub(nr, ai)));
    });
    const T h = T(0.5);
    for (; k <= M / 2; ++k) {
        T wr, wi;
        twoLevelW(tab, k, wr, wi);
        const T xr = z[2 * k], xi = z[2 * k + 1], yr = z[2 * (M - k)], yi = z[2 * (M - k) + 1];
        const T ar = h * (xr + yr), ai = h * (xi - yi);
        const T dr = h * (xr - yr), di = h * (xi + yi);
        const T pr = wr * dr - wi * di, pi = wr * di + wi * dr;
        const T nr = T(0) - pr;
        z[2 * k] = o(ar + pi);
        z[2 * k + 1] = o(ai + nr);
        z[2 * (M - k)] = o(ar - pi);
        z[2 * (M - k) + 1] = o(nr - ai);
    }
}

// Inverse recombination of a Perm spectrum s (values from index 2 on) into
// the half-length spectrum in d, twice its value, k = 1 .. M/2; the head
// is set by the caller. d may be s.
template <class T, bool Two, bool Planar, bool Sc> void ccsRecombine(const T* s, T* d, int64_t M, const T* tab, T scale) {
    using S = SV<T>;
    using V = typename S::V;
    const OutScale<T, Sc> o(scale);
    const T* coarse = tab + 2 * kFine;
    int64_t k = vectorBlocks<T, Planar>(M, [&](const auto& ln, int64_t k0) {
        V xr, xi, yr, yi, a, b;
        ln.load(s, M, k0, xr, xi, yr, yi);
        if constexpr (!Two) {
            ln.factors(tab, k0, a, b);
        } else {
            const int64_t j = (k0 - 1) / kFine, kf = k0 - j * kFine;
            const V gr = S::splat(coarse[2 * j]), gi = S::splat(coarse[2 * j + 1]);
            V fr, fi;
            ln.factors(tab, kf, fr, fi);
            a = S::sub(S::mulv(fr, gr), S::mulv(fi, gi));
            b = S::add(S::mulv(fr, gi), S::mulv(fi, gr));
        }
        const V dr = S::sub(xr, yr), di = S::add(xi, yi);
        const V U = S::sub(S::mulv(b, dr), S::mulv(a, di));
        const V Tt = S::add(S::mulv(a, dr), S::mulv(b, di));
        const V sr = S::add(xr, yr), si = S::sub(xi, yi);
        ln.store(d, M, k0, o(S::add(sr, U)), o(S::add(si, Tt)), o(S::sub(sr, U)), o(S::sub(Tt, si)));
    });
    for (; k <= M / 2; ++k) {
        T a, b;
        if constexpr (!Two) factor<T, Planar>(tab, k, a, b);
        else twoLevelW(tab, k, a, b);
        const T xr = s[2 * k], xi = s[2 * k + 1], yr = s[2 * (M - k)], yi = s[2 * (M - k) + 1];
        const T dr = xr - yr, di = xi + yi;
        const T U = b * dr - a * di;
        const T Tt = a * dr + b * di;
        const T sr = xr + yr, si = xi - yi;
        d[2 * k] = o(sr + U);
        d[2 * k + 1] = o(si + Tt);
        d[2 * (M - k)] = o(sr - U);
        d[2 * (M - k) + 1] = o(Tt - si);
    }
}

// The recombinations of a plan of the given order, scaled when Sc; the
// head (k = 0) is the caller's.
template <class T, bool Sc> void recombineFwd(T* z, int order, const T* tab, T scale) {
    const int64_t M = (int64_t(1) << order) / 2;
    if (recombTwoLevel<T>(order)) realRecombine2<T, Sc>(z, M, tab, scale);
    else realRecombine1<T, kOneLevelPlanar<T>, Sc>(z, M, tab, scale);
}
template <class T, bool Sc> void recombineInv(const T* s, T* d, int order, const T* tab, T scale) {
    const int64_t M = (int64_t(1) << order) / 2;
    if (recombTwoLevel<T>(order)) ccsRecombine<T, true, false, Sc>(s, d, M, tab, scale);
    else ccsRecombine<T, false, kOneLevelPlanar<T>, Sc>(s, d, M, tab, scale);
}

// ------------------------------------------------------------ transforms

// The plan of a real transform of T, and the checks of every entry.
template <class T>
VRX_INLINE VrxStatus openReal(const void* planV, const void* s, const void* d, const Vrx8u* pBuf, const Plan** plan) {
    if (VrxStatus st = n0::open(planV, sizeof(T) == 4 ? ObjId::FftR32f : ObjId::FftR64f, plan)) return st;
    if (!s || !d) return vrxErrNullPtr;
    if (!pBuf && (*plan)->workSize > 0) return vrxErrNullPtr;
    return vrxOk;
}

// The paths of orders above 4, with the frame they need.
template <class T>
[[gnu::noinline]] VrxStatus fwdRealPath(const Plan* plan, const T* pSrc, T* pDst, Vrx8u* pBuf, Form f, T scale) {
    const int order = plan->order;
    const int64_t N = int64_t(1) << order;
    // N reals as N/2 complex values; the scale goes with the (linear)
    // recombination, on its outputs
    uint8_t* work = plan->workSize > 0 ? align64(pBuf) : nullptr;
    const T* tab = static_cast<const T*>(plan->recombFwdTab);
    if constexpr (sizeof(T) == 8) {
        if (recombGroupsFwd<T>(order)) {
            // the half-length transform leaves its result in the group
            // form in the destination (out of place, 64-byte aligned:
            // the recombination then runs in place) or in work
            const bool inDst = pSrc != pDst && (reinterpret_cast<uintptr_t>(pDst) & 63) == 0;
            Cx<T>* w = reinterpret_cast<Cx<T>*>(inDst ? reinterpret_cast<uint8_t*>(pDst) : work);
            radixToGroups<T, false>(plan, order - 1, reinterpret_cast<const Cx<T>*>(pSrc), w);
            const T* wv = reinterpret_cast<const T*>(w);
            if (scale != T(0)) recombineGroups<true>(wv, pDst, N / 2, tab, scale);
            else recombineGroups<false>(wv, pDst, N / 2, tab, scale);
            permToForm<T>(pDst, N, f);
            return vrxOk;
        }
    }
    complexTransform<T, false>(plan, order - 1, pSrc, nullptr, pDst, nullptr, false, T(0), work);
    const T p = pDst[0], q = pDst[1];
    if (scale != T(0)) {
        pDst[0] = (p + q) * scale;
        pDst[1] = (p - q) * scale;
        recombineFwd<T, true>(pDst, order, tab, scale);
    } else {
        pDst[0] = p + q;
        pDst[1] = p - q;
        recombineFwd<T, false>(pDst, order, tab, scale);
    }
    permToForm<T>(pDst, N, f);
    return vrxOk;
}

// Orders up to 4 run their kernel straight from the entry, without the
// frame of the other paths (six saved registers).
template <class T>
VrxStatus fwdReal(const void* planV, const T* pSrc, T* pDst, Vrx8u* pBuf, Form f) {
    const Plan* plan;
    if (VrxStatus st = openReal<T>(planV, pSrc, pDst, pBuf, &plan)) return st;
    const T scale = plan->fwdNorm ? planScale<T>(plan) : T(0);
    if (plan->order > 4) return fwdRealPath<T>(plan, pSrc, pDst, pBuf, f, scale);
    smallReal<T, false>(plan->order, pSrc, pDst, scale);
    permToForm<T>(pDst, int64_t(1) << plan->order, f);
    return vrxOk;
}

template <class T>
VrxStatus invReal(const void* planV, const T* pSrc, T* pDst, Vrx8u* pBuf, Form f) {
    const Plan* plan;
    if (VrxStatus st = openReal<T>(planV, pSrc, pDst, pBuf, &plan)) return st;
    const int order = plan->order;
    const int64_t N = int64_t(1) << order;
    const T scale = plan->invNorm ? planScale<T>(plan) : T(0);
    const T* s = pSrc;
    T rh;  // R(N/2)
    if (f == Form::Pack) {
        unfoldPack<T>(pSrc, pDst, N);
        s = pDst;
        rh = N > 1 ? s[1] : T(0);
    } else {
        rh = f == Form::CCS ? (N > 1 ? s[N] : T(0)) : (N > 1 ? s[1] : T(0));
    }
    if (order <= 4) {
        if (f == Form::CCS) {
            // Perm in the destination: R(N/2) to position 1, the rest in place
            const T r0 = s[0];
            if (N > 2 && s != pDst) memmove(pDst + 2, s + 2, static_cast<size_t>(N - 2) * sizeof(T));
            pDst[0] = r0;
            if (N > 1) pDst[1] = rh;
            s = pDst;
        }
        smallReal<T, true>(order, s, pDst, scale);
        return vrxOk;
    }
    // the scale goes with the recombination's outputs, before the complex
    // transform
    const T r0 = s[0];
    const T* tab = static_cast<const T*>(plan->recombInvTab);
    if (scale != T(0)) {
        recombineInv<T, true>(s, pDst, order, tab, scale);
        pDst[0] = (r0 + rh) * scale;
        pDst[1] = (r0 - rh) * scale;
    } else {
        recombineInv<T, false>(s, pDst, order, tab, scale);
        pDst[0] = r0 + rh;
        pDst[1] = r0 - rh;
    }
    uint8_t* work = plan->workSize > 0 ? align64(pBuf) : nullptr;
    complexTransform<T, true>(plan, order - 1, pDst, nullptr, pDst, nullptr, false, T(0), work);
    return vrxOk;
}

}  // namespace

// The _I forms are the two-array forms with source and destination the same.
VrxStatus N0(vrxsFFTFwd_RToCCS_32f)(const Vrx32f* pSrc, Vrx32f* pDst, const VrxsFftPlan_R_32f* plan, Vrx8u* pBuf) { return fwdReal(plan, pSrc, pDst, pBuf, Form::CCS); }
VrxStatus N0(vrxsFFTFwd_RToCCS_32f_I)(Vrx32f* pSrcDst, const VrxsFftPlan_R_32f* plan, Vrx8u* pBuf) { return fwdReal(plan, pSrcDst, pSrcDst, pBuf, Form::CCS); }
VrxStatus N0(vrxsFFTFwd_RToPack_32f)(const Vrx32f* pSrc, Vrx32f* pDst, const VrxsFftPlan_R_32f* plan, Vrx8u* pBuf) { return fwdReal(plan, pSrc, pDst, pBuf, Form::Pack); }
VrxStatus N0(vrxsFFTFwd_RToPack_32f_I)(Vrx32f* pSrcDst, const VrxsFftPlan_R_32f* plan, Vrx8u* pBuf) { return fwdReal(plan, pSrcDst, pSrcDst, pBuf, Form::Pack); }
VrxStatus N0(vrxsFFTFwd_RToPerm_32f)(const Vrx32f* pSrc, Vrx32f* pDst, const VrxsFftPlan_R_32f* plan, Vrx8u* pBuf) { return fwdReal(plan, pSrc, pDst, pBuf, Form::Perm); }
VrxStatus N0(vrxsFFTFwd_RToPerm_32f_I)(Vrx32f* pSrcDst, const VrxsFftPlan_R_32f* plan, Vrx8u* pBuf) { return fwdReal(plan, pSrcDst, pSrcDst, pBuf, Form::Perm); }
VrxStatus N0(vrxsFFTFwd_RToCCS_64f)(const Vrx64f* pSrc, Vrx64f* pDst, const VrxsFftPlan_R_64f* plan, Vrx8u* pBuf) { return fwdReal(plan, pSrc, pDst, pBuf, Form::CCS); }
VrxStatus N0(vrxsFFTFwd_RToCCS_64f_I)(Vrx64f* pSrcDst, const VrxsFftPlan_R_64f* plan, Vrx8u* pBuf) { return fwdReal(plan, pSrcDst, pSrcDst, pBuf, Form::CCS); }
VrxStatus N0(vrxsFFTFwd_RToPack_64f)(const Vrx64f* pSrc, Vrx64f* pDst, const VrxsFftPlan_R_64f* plan, Vrx8u* pBuf) { return fwdReal(plan, pSrc, pDst, pBuf, Form::Pack); }
VrxStatus N0(vrxsFFTFwd_RToPack_64f_I)(Vrx64f* pSrcDst, const VrxsFftPlan_R_64f* plan, Vrx8u* pBuf) { return fwdReal(plan, pSrcDst, pSrcDst, pBuf, Form::Pack); }
VrxStatus N0(vrxsFFTFwd_RToPerm_64f)(const Vrx64f* pSrc, Vrx64f* pDst, const VrxsFftPlan_R_64f* plan, Vrx8u* pBuf) { return fwdReal(plan, pSrc, pDst, pBuf, Form::Perm); }
VrxStatus N0(vrxsFFTFwd_RToPerm_64f_I)(Vrx64f* pSrcDst, const VrxsFftPlan_R_64f* plan, Vrx8u* pBuf) { return fwdReal(plan, pSrcDst, pSrcDst, pBuf, Form::Perm); }
VrxStatus N0(vrxsFFTInv_CCSToR_32f)(const Vrx32f* pSrc, Vrx32f* pDst, const VrxsFftPlan_R_32f* plan, Vrx8u* pBuf) { return invReal(plan, pSrc, pDst, pBuf, Form::CCS); }
VrxStatus N0(vrxsFFTInv_CCSToR_32f_I)(Vrx32f* pSrcDst, const VrxsFftPlan_R_32f* plan, Vrx8u* pBuf) { return invReal(plan, pSrcDst, pSrcDst, pBuf, Form::CCS); }
VrxStatus N0(vrxsFFTInv_PackToR_32f)(const Vrx32f* pSrc, Vrx32f* pDst, const VrxsFftPlan_R_32f* plan, Vrx8u* pBuf) { return invReal(plan, pSrc, pDst, pBuf, Form::Pack); }
VrxStatus N0(vrxsFFTInv_PackToR_32f_I)(Vrx32f* pSrcDst, const VrxsFftPlan_R_32f* plan, Vrx8u* pBuf) { return invReal(plan, pSrcDst, pSrcDst, pBuf, Form::Pack); }
VrxStatus N0(vrxsFFTInv_PermToR_32f)(const Vrx32f* pSrc, Vrx32f* pDst, const VrxsFftPlan_R_32f* plan, Vrx8u* pBuf) { return invReal(plan, pSrc, pDst, pBuf, Form::Perm); }
VrxStatus N0(vrxsFFTInv_PermToR_32f_I)(Vrx32f* pSrcDst, const VrxsFftPlan_R_32f* plan, Vrx8u* pBuf) { return invReal(plan, pSrcDst, pSrcDst, pBuf, Form::Perm); }
VrxStatus N0(vrxsFFTInv_CCSToR_64f)(const Vrx64f* pSrc, Vrx64f* pDst, const VrxsFftPlan_R_64f* plan, Vrx8u* pBuf) { return invReal(plan, pSrc, pDst, pBuf, Form::CCS); }
VrxStatus N0(vrxsFFTInv_CCSToR_64f_I)(Vrx64f* pSrcDst, const VrxsFftPlan_R_64f* plan, Vrx8u* pBuf) { return invReal(plan, pSrcDst, pSrcDst, pBuf, Form::CCS); }
VrxStatus N0(vrxsFFTInv_PackToR_64f)(const Vrx64f* pSrc, Vrx64f* pDst, const VrxsFftPlan_R_64f* plan, Vrx8u* pBuf) { return invReal(plan, pSrc, pDst, pBuf, Form::Pack); }
VrxStatus N0(vrxsFFTInv_PackToR_64f_I)(Vrx64f* pSrcDst, const VrxsFftPlan_R_64f* plan, Vrx8u* pBuf) { return invReal(plan, pSrcDst, pSrcDst, pBuf, Form::Pack); }
VrxStatus N0(vrxsFFTInv_PermToR_64f)(const Vrx64f* pSrc, Vrx64f* pDst, const VrxsFftPlan_R_64f* plan, Vrx8u* pBuf) { return invReal(plan, pSrc, pDst, pBuf, Form::Perm); }
VrxStatus N0(vrxsFFTInv_PermToR_64f_I)(Vrx64f* pSrcDst, const VrxsFftPlan_R_64f* plan, Vrx8u* pBuf) { return invReal(plan, pSrcDst, pSrcDst, pBuf, Form::Perm); }
