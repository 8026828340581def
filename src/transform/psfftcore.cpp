// The complex FFT engine: straight-line kernels up to length 64, whole
// transforms in registers at a few middle orders, and the radix-4/8 pass
// engine with the input permuted in its first pass (the
// blocked large path is in psfftlarge.cpp). Also the builders of the tables
// that the engine reads, so that the layout lives in one place.
#include "vrx_fft.h"
#include "vrx_fft_simd.h"
#include "vrx_fft_pass.h"
#include "vrx_fft_sintab.h"
#include "vrx_fft_layout.h"
#include "vrx_fft_f64.h"

// The shuffle intrinsics of g++ 12 start from an undefined register, which
// its uninitialised-value analysis reports once they are inlined.
#pragma GCC diagnostic ignored "-Wuninitialized"

namespace n0::fft {

namespace {

// ------------------------------------------------------------ small kernels

template <class T, int LOG, bool Inv, bool Scale>
VRX_INLINE void smallFft(const Cx<T>* src, Cx<T>* dst, T scale) {
    constexpr int N = 1 << LOG;
    Cx<T> a[N];
#pragma GCC unroll 64
    for (int i = 0; i < N; ++i) a[revBits(static_cast<uint32_t>(i), LOG)] = {src[i].re, src[i].im};
    if constexpr (LOG >= 1) {
#pragma GCC unroll 64
        for (int b = 0; b < N; b += 2) {
            Cx<T> x = a[b], y = a[b + 1];
            a[b] = cadd(x, y);
            a[b + 1] = csub(x, y);
        }
    }
    if constexpr (LOG >= 2) {
#pragma GCC unroll 64
        for (int b = 0; b < N; b += 4) {
            Cx<T> x0 = a[b], x1 = a[b + 1], y0 = a[b + 2], y1 = crot<Inv>(a[b + 3]);
            a[b] = cadd(x0, y0);
            a[b + 2] = csub(x0, y0);
            a[b + 1] = cadd(x1, y1);
            a[b + 3] = csub(x1, y1);
        }
    }
#pragma GCC unroll 8
    for (int L = 8; L <= N; L *= 2) {
#pragma GCC unroll 64
        for (int b = 0; b < N; b += L) {
#pragma GCC unroll 64
            for (int k = 0; k < L / 2; ++k) {
                Cx<T> y = a[b + k + L / 2];
                if (k == L / 4) y = crot<Inv>(y);
                else if (k != 0) y = cmulw<Inv>(y, fixTwiddle<T>(k, L));
                Cx<T> x = a[b + k];
                a[b + k] = cadd(x, y);
                a[b + k + L / 2] = csub(x, y);
            }
        }
    }
    // values in and out part by part: with whole-value copies g++ kept a[]
    // on the stack, written a part at a time and read whole, each read
    // waiting for its stores (order 3 took four times as long as order 4)
#pragma GCC unroll 64
    for (int i = 0; i < N; ++i) {
        dst[i].re = Scale ? a[i].re * scale : a[i].re;
        dst[i].im = Scale ? a[i].im * scale : a[i].im;
    }
}

// W_N^j (forward sign) for any j, N <= 1024, from the constant sine table.
template <class T> constexpr Cx<T> fixW(int j, int N) {
    const T* t = nullptr;
    if constexpr (sizeof(T) == 4) t = fft_fix_twiddle_table_32f;
    else t = fft_fix_twiddle_table_64f;
    int q = (j % N) * (1024 / N);
    int quad = q / 256, r = q % 256;
    T sv = t[r], cv = t[256 - r], c = 0, s = 0;
    switch (quad) {
        case 0: c = cv; s = sv; break;
        case 1: c = -sv; s = cv; break;
        case 2: c = -cv; s = -sv; break;
        default: c = sv; s = -cv; break;
    }
    return {c, -s};
}

// Lane factors of the in-register kernels: entry k1*V + c is W_N^(c*k1),
// as the real part twice and the imaginary part twice.
template <class T, int R, int V> struct LaneTwSplit {
    Cx<T> wr[R * V], wi[R * V];
    constexpr LaneTwSplit() : wr{}, wi{} {
        for (int k = 0; k < R; ++k)
            for (int c = 0; c < V; ++c) {
                Cx<T> w = fixW<T>(k * c, R * V);
                wr[k * V + c] = {w.re, w.re};
                wi[k * V + c] = {w.im, w.im};
            }
    }
};
template <class T, int R, int V> inline constexpr LaneTwSplit<T, R, V> kLaneTwSplit{};

// Transposes of V x V complex values in registers. Raw intrinsics: the
// unpacks and 128-bit-lane shuffles of a transpose have no name in the SIMD
// layer (nor has the ymm register of the 4 x 4 single-precision form).
VRX_INLINE void transpose4x4(const __m256* r, __m256* o) {
    __m256d a0 = _mm256_castps_pd(r[0]), a1 = _mm256_castps_pd(r[1]), a2 = _mm256_castps_pd(r[2]), a3 = _mm256_castps_pd(r[3]);
    __m256d t0 = _mm256_unpacklo_pd(a0, a1), t1 = _mm256_unpackhi_pd(a0, a1);
    __m256d t2 = _mm256_unpacklo_pd(a2, a3), t3 = _mm256_unpackhi_pd(a2, a3);
    o[0] = _mm256_castpd_ps(_mm256_permute2f128_pd(t0, t2, 0x20));
    o[1] = _mm256_castpd_ps(_mm256_permute2f128_pd(t1, t3, 0x20));
    o[2] = _mm256_castpd_ps(_mm256_permute2f128_pd(t0, t2, 0x31));
    o[3] = _mm256_castpd_ps(_mm256_permute2f128_pd(t1, t3, 0x31));
}
VRX_INLINE void transpose8x8(const __m512* r, __m512* o);
VRX_INLINE void transpose4x4(const __m512d* r, __m512d* o);

template <class CV> VRX_INLINE void transposeV(CV* a);
template <> VRX_INLINE void transposeV<CVec<float, 4>>(CVec<float, 4>* a) {
    __m256 r[4] = {a[0].v, a[1].v, a[2].v, a[3].v}, o[4];
    transpose4x4(r, o);
    for (int i = 0; i < 4; ++i) a[i].v = o[i];
}
template <> VRX_INLINE void transposeV<CVec<float, 8>>(CVec<float, 8>* a) {
    __m512 r[8], o[8];
    for (int i = 0; i < 8; ++i) r[i] = a[i].v;
    transpose8x8(r, o);
    for (int i = 0; i < 8; ++i) a[i].v = o[i];
}
template <> VRX_INLINE void transposeV<CVec<double, 4>>(CVec<double, 4>* a) {
    __m512d r[4] = {a[0].v, a[1].v, a[2].v, a[3].v}, o[4];
    transpose4x4(r, o);
#pragma GCC unroll 4
    for (int i = 0; i < 4; ++i) a[i].v = o[i];
}

template <class CV, bool Inv, bool M = true> VRX_INLINE void vbfly4(CV a0, CV a1, CV a2, CV a3, CV* o);
template <class T, class CV, bool Inv, bool M = true> VRX_INLINE void vbfly8(const CV* a, CV* o);

// Vertical transform of R = 4 or 8 registers, natural order in and out;
// M: half the adds on the multiply unit (CVec::addM).
template <class T, class CV, int R, bool Inv, bool M = true> VRX_INLINE void vdft(CV* a) {
    static_assert(R == 4 || R == 8, "radix 4 or 8");
    CV o[R];
    if constexpr (R == 4) vbfly4<CV, Inv, M>(a[0], a[1], a[2], a[3], o);
    else vbfly8<T, CV, Inv, M>(a, o);
#pragma GCC unroll 8
    for (int i = 0; i < R; ++i) a[i] = o[i];
}

// In-register kernel of N = R*V: columns of the R x V matrix, lane factors,
// transposes of V x V blocks, rows; output stored in natural order. At 16
// points all adds stay on the add unit: a chain of dependent operations
// bounds that kernel, and the multiply-add's longer latency lengthened it.
template <class T, int V, int R, bool Inv, bool Scale>
VRX_INLINE void smallVec(const Cx<T>* src, Cx<T>* dst, T scale) {
    using CV = CVec<T, V>;
    constexpr bool M = R * V > 16;
    CV a[R];
#pragma GCC unroll 8
    for (int r = 0; r < R; ++r) a[r] = CV::load(src + r * V);
    vdft<T, CV, R, Inv, M>(a);
#pragma GCC unroll 8
    for (int k = 1; k < R; ++k)
        a[k] = CV::template mulSplit<Inv>(a[k], CV::load(&kLaneTwSplit<T, R, V>.wr[k * V]), CV::load(&kLaneTwSplit<T, R, V>.wi[k * V]));
#pragma GCC unroll 2
    for (int b = 0; b < R / V; ++b) {
        transposeV<CV>(a + b * V);
        vdft<T, CV, V, Inv, M>(a + b * V);
    }
#pragma GCC unroll 2
    for (int b = 0; b < R / V; ++b)
#pragma GCC unroll 8
        for (int k2 = 0; k2 < V; ++k2) {
            CV v = a[b * V + k2];
            if constexpr (Scale) v = CV::scale(v, scale);
            v.store(dst + R * k2 + b * V);
        }
}

template <class CV, bool Inv, bool M> VRX_INLINE void vbfly4(CV a0, CV a1, CV a2, CV a3, CV* o) {
    if constexpr (M) {
        CV t0 = a0 + a2, t1 = a0 - a2, t2 = CV::addM(a1, a3), t3 = CV::template rot<Inv>(CV::subM(a1, a3));
        o[0] = t0 + t2;
        o[1] = CV::addM(t1, t3);
        o[2] = t0 - t2;
        o[3] = CV::subM(t1, t3);
    } else {
        CV t0 = a0 + a2, t1 = a0 - a2, t2 = a1 + a3, t3 = CV::template rot<Inv>(a1 - a3);
        o[0] = t0 + t2;
        o[1] = t1 + t3;
        o[2] = t0 - t2;
        o[3] = t1 - t3;
    }
}

template <class T, class CV, bool Inv, bool M> VRX_INLINE void vbfly8(const CV* a, CV* o) {
    const T c = sqrtHalf<T>();
    CV e[4], d[4];
    vbfly4<CV, Inv, M>(a[0], a[2], a[4], a[6], e);
    vbfly4<CV, Inv, M>(a[1], a[3], a[5], a[7], d);
    d[1] = CV::scale(d[1] + CV::template rot<Inv>(d[1]), c);
    d[2] = CV::template rot<Inv>(d[2]);
    d[3] = CV::template rot<Inv>(CV::scale(d[3] + CV::template rot<Inv>(d[3]), c));
#pragma GCC unroll 4
    for (int q = 0; q < 4; ++q) {
        o[q] = e[q] + d[q];
        o[q + 4] = e[q] - d[q];
    }
}

// Register casts of the transposes below, whose 64-bit unpacks and 128-bit
// shuffles work on double lanes (raw, as the transposes).
VRX_INLINE __m512d asPd(__m512 v) { return _mm512_castps_pd(v); }
VRX_INLINE __m512 asPs(__m512d v) { return _mm512_castpd_ps(v); }

// Transpose of 8 x 8 complex floats (64-bit elements): r[j] lane l -> o[l] lane j.
VRX_INLINE void transpose8x8(const __m512* r, __m512* o) {
    __m512d t[8];
    for (int k = 0; k < 4; ++k) {
        t[2 * k] = _mm512_unpacklo_pd(asPd(r[2 * k]), asPd(r[2 * k + 1]));
        t[2 * k + 1] = _mm512_unpackhi_pd(asPd(r[2 * k]), asPd(r[2 * k + 1]));
    }
    // t[2k] block i = (r2k[2i], r2k+1[2i]); t[2k+1] block i = (r2k[2i+1], r2k+1[2i+1])
    for (int odd = 0; odd < 2; ++odd) {
        __m512d p01 = _mm512_shuffle_f64x2(t[odd], t[2 + odd], 0x88);
        __m512d q01 = _mm512_shuffle_f64x2(t[odd], t[2 + odd], 0xDD);
        __m512d p45 = _mm512_shuffle_f64x2(t[4 + odd], t[6 + odd], 0x88);
        __m512d q45 = _mm512_shuffle_f64x2(t[4 + odd], t[6 + odd], 0xDD);
        o[0 + odd] = asPs(_mm512_shuffle_f64x2(p01, p45, 0x88));
        o[4 + odd] = asPs(_mm512_shuffle_f64x2(p01, p45, 0xDD));
        o[2 + odd] = asPs(_mm512_shuffle_f64x2(q01, q45, 0x88));
        o[6 + odd] = asPs(_mm512_shuffle_f64x2(q01, q45, 0xDD));
    }
}

// Transpose of 4 x 4 complex doubles (128-bit elements).
VRX_INLINE void transpose4x4(const __m512d* r, __m512d* o) {
    __m512d t0 = _mm512_shuffle_f64x2(r[0], r[1], 0x44), t1 = _mm512_shuffle_f64x2(r[0], r[1], 0xEE);
    __m512d t2 = _mm512_shuffle_f64x2(r[2], r[3], 0x44), t3 = _mm512_shuffle_f64x2(r[2], r[3], 0xEE);
    o[0] = _mm512_shuffle_f64x2(t0, t2, 0x88);
    o[1] = _mm512_shuffle_f64x2(t0, t2, 0xDD);
    o[2] = _mm512_shuffle_f64x2(t1, t3, 0x88);
    o[3] = _mm512_shuffle_f64x2(t1, t3, 0xDD);
}

// ------------------------------------------------------------ radix engine

// The schedules of all orders of the radix engine, with the offset of each
// pass's factors in the twiddle table.
struct Schedule {
    int np;
    PassStep ps[12];
    int32_t off[12];
};
template <class T> struct Schedules {
    Schedule s[Limits<T>::kRadixLast + 1];
    constexpr Schedules() : s{} {
        for (int m = 5; m <= Limits<T>::kRadixLast; ++m) {
            Schedule& x = s[m];
            x.np = radixSchedule<T>(m, x.ps);
            x.off[0] = x.off[1] = 0;
            for (int i = 1; i + 1 < x.np; ++i) x.off[i + 1] = x.off[i] + ((1 << x.ps[i].t) - 1) * (1 << x.ps[i].s);
        }
    }
};
template <class T> inline constexpr Schedules<T> kSchedules{};
// The first passes of the engine: radix 8 alone, or radix 4 fused with a
// radix-4 pass at s = 2 (a radix-16 first pass in registers).
template <class T> constexpr bool firstPassesKnown() {
    for (int m = 7; m <= Limits<T>::kRadixLast; ++m) {
        const Schedule& x = kSchedules<T>.s[m];
        if (x.ps[0].t == 2 ? x.ps[1].t != 2 : x.ps[0].t != 3) return false;
    }
    return true;
}
static_assert(firstPassesKnown<float>() && firstPassesKnown<double>(), "a first pass the engine lacks");

// Positions per factor group of the pass at s: the width of the group
// form, or all positions of a pass that has fewer (the pass at s = 2).
template <class T> constexpr int twGroup(int s) { return (1 << s) < GVec<T>::V ? (1 << s) : GVec<T>::V; }

// The source of the first pass: interleaved values, or two arrays.
template <class T> struct SrcRef {
    const Cx<T>* cx;
    const T* re;
    const T* im;
};

// V values of split data interleaved into one register. Raw intrinsics:
// the half-register loads have no name in the SIMD layer.
template <class T, int V, bool Split> VRX_INLINE CVec<T, V> loadSrc(const SrcRef<T>& s, int64_t idx) {
    if constexpr (!Split) return CVec<T, V>::load(s.cx + idx);
    else if constexpr (sizeof(T) == 4) {
        const __m512i ix = _mm512_setr_epi32(0, 16, 1, 17, 2, 18, 3, 19, 4, 20, 5, 21, 6, 22, 7, 23);
        return {simd::V<float>::permute2(_mm512_castps256_ps512(_mm256_loadu_ps(s.re + idx)), ix,
                                         _mm512_castps256_ps512(_mm256_loadu_ps(s.im + idx)))};
    } else {
        const __m512i ix = _mm512_setr_epi64(0, 8, 1, 9, 2, 10, 3, 11);
        return {simd::V<double>::permute2(_mm512_castpd256_pd512(_mm256_loadu_pd(s.re + idx)), ix,
                                          _mm512_castpd256_pd512(_mm256_loadu_pd(s.im + idx)))};
    }
}

// Transposes into the group form with in-lane unpacks first and 128-bit
// shuffles last (no index permutes): o[e] element q = r[q] element e.
// The last two stages: x[K*i + c] holds in its 128-bit lane L a piece of
// column K*L + c; o[K*L + c] gathers lane L of x[c], x[K+c], x[2K+c], x[3K+c].
struct Shuf128f {
    template <int I> static VRX_INLINE __m512 f(__m512 a, __m512 b) { return _mm512_shuffle_f32x4(a, b, I); }
};
struct Shuf128d {
    template <int I> static VRX_INLINE __m512d f(__m512d a, __m512d b) { return _mm512_shuffle_f64x2(a, b, I); }
};
template <class S, int K, class R> VRX_INLINE void laneTranspose(const R* x, R* o) {
    for (int c = 0; c < K; ++c) {
        const R c1 = S::template f<0x44>(x[c], x[K + c]), c2 = S::template f<0xEE>(x[c], x[K + c]);
        const R d1 = S::template f<0x44>(x[2 * K + c], x[3 * K + c]), d2 = S::template f<0xEE>(x[2 * K + c], x[3 * K + c]);
        o[c] = S::template f<0x88>(c1, d1);
        o[K + c] = S::template f<0xDD>(c1, d1);
        o[2 * K + c] = S::template f<0x88>(c2, d2);
        o[3 * K + c] = S::template f<0xDD>(c2, d2);
    }
}
// 16 x 16 floats: the real and imaginary rows of eight blocks of 16.
VRX_INLINE void groupTranspose16f(const __m512* r, __m512* o) {
    __m512 a[16], b[16];
    for (int i = 0; i < 8; ++i) {
        a[2 * i] = _mm512_unpacklo_ps(r[2 * i], r[2 * i + 1]);
        a[2 * i + 1] = _mm512_unpackhi_ps(r[2 * i], r[2 * i + 1]);
    }
    // b[4j + c], 128-bit lane L: column 4L + c of rows 4j .. 4j+3
    for (int j = 0; j < 4; ++j) {
        b[4 * j] = asPs(_mm512_unpacklo_pd(asPd(a[4 * j]), asPd(a[4 * j + 2])));
        b[4 * j + 1] = asPs(_mm512_unpackhi_pd(asPd(a[4 * j]), asPd(a[4 * j + 2])));
        b[4 * j + 2] = asPs(_mm512_unpacklo_pd(asPd(a[4 * j + 1]), asPd(a[4 * j + 3])));
        b[4 * j + 3] = asPs(_mm512_unpackhi_pd(asPd(a[4 * j + 1]), asPd(a[4 * j + 3])));
    }
    laneTranspose<Shuf128f, 4>(b, o);
}
// 8 x 8 doubles: the real and imaginary rows of four blocks, 8 positions.
VRX_INLINE void groupTranspose8d(const __m512d* r, __m512d* o) {
    __m512d a[8];
    // a[2i + c], 128-bit lane L: column 2L + c of rows 2i, 2i+1
    for (int i = 0; i < 4; ++i) {
        a[2 * i] = _mm512_unpacklo_pd(r[2 * i], r[2 * i + 1]);
        a[2 * i + 1] = _mm512_unpackhi_pd(r[2 * i], r[2 * i + 1]);
    }
    laneTranspose<Shuf128d, 2>(a, o);
}

// Stores the R outputs of V lanes-as-blocks in the group form: lane l's
// values are block dst(l), R complex values, by the group transposes above
// (raw intrinsics: the SIMD layer has no transposes).
template <class T, class CV, int R, class D> VRX_INLINE void storeGroups(const CV* a, D dst) {
    if constexpr (sizeof(T) == 4) {
        static_assert(R == 16, "single precision blocks are of 16");
        __m512 r[16], o[16];
        for (int q = 0; q < 16; ++q) r[q] = a[q].v;
        groupTranspose16f(r, o);
        for (int l = 0; l < 8; ++l) {
            float* d = reinterpret_cast<float*>(dst(l));
            simd::V<float>::store(d, o[2 * l]);
            simd::V<float>::store(d + 16, o[2 * l + 1]);
        }
    } else {
        for (int g = 0; g < R / 8; ++g) {
            __m512d r[8], o[8];
            for (int q = 0; q < 8; ++q) r[q] = a[8 * g + q].v;
            groupTranspose8d(r, o);
            for (int l = 0; l < 4; ++l) {
                double* d = reinterpret_cast<double*>(dst(l) + 8 * g);
                simd::V<double>::store(d, o[2 * l]);
                simd::V<double>::store(d + 8, o[2 * l + 1]);
            }
        }
    }
}

// Radix-16 (or radix-R) first pass in lanes: the radix-4 first pass and the
// radix-R/4 pass at s = 2 in registers, the latter with its factors
// fr/fi[3*(j-1) + (k-1)] (real and imaginary parts in every lane).
template <class T, class CV, int R, bool Inv> VRX_INLINE void vdftTw(CV* a, const CV* fr, const CV* fi) {
    constexpr int Q = R / 4;
    CV y[Q][4];
    for (int n2 = 0; n2 < Q; ++n2) {
        vbfly4<CV, Inv>(a[n2], a[Q + n2], a[2 * Q + n2], a[3 * Q + n2], y[n2]);
        if (n2 != 0)
            for (int k1 = 1; k1 < 4; ++k1) {
                const int x = 3 * (n2 - 1) + (k1 - 1);
                y[n2][k1] = CV::template mulSplit<Inv>(y[n2][k1], fr[x], fi[x]);
            }
    }
    for (int k1 = 0; k1 < 4; ++k1) {
        CV c[Q];
        for (int n2 = 0; n2 < Q; ++n2) c[n2] = y[n2][k1];
        vdft<T, CV, Q, Inv>(c);
        for (int k2 = 0; k2 < Q; ++k2) a[k1 + 4 * k2] = c[k2];
    }
}

// Butterfly of the first pass over R = 8 or 16 lanes-as-blocks.
template <class T, class CV, int R, bool Inv> VRX_INLINE void firstBfly(CV* a, const CV* fr, const CV* fi) {
    if constexpr (sizeof(T) == 8 && R == 16) bfly16d<Inv>(a, fr, fi);
    else if constexpr (R > 8) vdftTw<T, CV, R, Inv>(a, fr, fi);
    else vdft<T, CV, R, Inv>(a);
}

// Factors of the pass at s = 2 (radix R/4, four positions) broadcast for
// the fused first pass.
template <class T, class CV, int R> VRX_INLINE void loadFirstFactors(const Cx<T>* tw, CV* fr, CV* fi) {
    const T* t = reinterpret_cast<const T*>(tw);
    for (int j = 1; j < R / 4; ++j)
        for (int k = 1; k < 4; ++k) {
            const T re = t[8 * (j - 1) + k], im = t[8 * (j - 1) + 4 + k];
            fr[3 * (j - 1) + (k - 1)] = CV::bcast({re, re});
            fi[3 * (j - 1) + (k - 1)] = CV::bcast({im, im});
        }
}

// The factors that firstBfly takes (signed imaginary parts in double).
template <class T, class CV, int R, bool Inv> VRX_INLINE void firstFactors(const Cx<T>* tw, CV* fr, CV* fi) {
    if constexpr (sizeof(T) == 8 && R == 16) firstFactors16d<Inv>(tw, fr, fi);
    else if constexpr (R > 8) loadFirstFactors<T, CV, R>(tw, fr, fi);
}

// The first pass with bit-reversed reads: blocks i + rev(l)*G (l < V) read V
// adjacent values, since their bit-reversed bases differ by l. The results
// are written in the group form, block b at W + R*b.
// Pair (double): position 8g + pairLane(q) of each group of eight in lane
// q, so that the last pass stores by in-lane unpacks.
template <class T, int R, bool Inv, bool Split, bool Pair = false>
void firstPassRev(int m, const int32_t* brev, const SrcRef<T> src, Cx<T>* W, const Cx<T>* tw) {
    constexpr int V = sizeof(T) == 4 ? 8 : 4;
    constexpr int LV = sizeof(T) == 4 ? 3 : 2;
    using CV = CVec<T, V>;
    const int64_t N = int64_t(1) << m;
    const int64_t stride = N / R;
    const int64_t G = N / (int64_t(R) * V);
    int64_t rv[8];
    for (int l = 0; l < V; ++l) rv[l] = int64_t(revBits(static_cast<uint32_t>(l), LV)) * G;
    CV fr[9], fi[9];
    firstFactors<T, CV, R, Inv>(tw, fr, fi);
    for (int64_t i = 0; i < G; ++i) {
        const int64_t base = brev[i * (R / 4)] >> 1;
        CV a[R];
        for (int j = 0; j < R; ++j) a[j] = loadSrc<T, V, Split>(src, base + j * stride);
        firstBfly<T, CV, R, Inv>(a, fr, fi);
        if constexpr (Pair) pairGroups<CV, R>(a);
        storeGroups<T, CV, R>(a, [&](int l) { return W + R * (i + rv[l]); });
    }
}

// The paired first pass as a function of its own, as the natural one is
// (inlined into the transform's frame it ran 3-7% slower at order 9).
template <bool Inv>
[[gnu::noinline]] void firstPassPaired(int m, const int32_t* brev, const SrcRef<double> src, Cx<double>* W, const Cx<double>* tw) {
    firstPassRev<double, 16, Inv, false, true>(m, brev, src, W, tw);
}

// The first pass over a block already in bit-reversed order: V consecutive
// blocks at a time, transposed in so that lanes are blocks.
template <class T, int R, bool Inv>
void firstPassSeq(int m, const Cx<T>* src, Cx<T>* W, const Cx<T>* tw) {
    constexpr int V = sizeof(T) == 4 ? 8 : 4;
    using CV = CVec<T, V>;
    const int64_t N = int64_t(1) << m;
    constexpr int LR = R == 32 ? 5 : (R == 16 ? 4 : 3);
    CV fr[9], fi[9];
    firstFactors<T, CV, R, Inv>(tw, fr, fi);
    for (int64_t i = 0; i < N; i += int64_t(R) * V) {
        CV e[R], a[R];
        for (int h = 0; h < R / V; ++h) {
            CV r[V];
            for (int b = 0; b < V; ++b) r[b] = CV::load(src + i + R * b + V * h);
            transposeV<CV>(r);
            for (int j = 0; j < V; ++j) e[V * h + j] = r[j];
        }
        for (int j = 0; j < R; ++j) a[j] = e[revBits(static_cast<uint32_t>(j), LR)];
        firstBfly<T, CV, R, Inv>(a, fr, fi);
        storeGroups<T, CV, R>(a, [&](int b) { return W + i + R * b; });
    }
}


// One pass of the schedule over len values from base.
template <class T, bool Inv, Out O>
VRX_INLINE void runPass(const PassStep& p, Cx<T>* W, Cx<T>* out, T* re, T* im, int64_t base, int64_t len,
                        const Cx<T>* tw) {
    const int64_t S = int64_t(1) << p.s;
    const int64_t nb = len >> (p.s + p.t);
    if (p.t == 2) pass4<T, Inv, O>(W + base, out + base, re ? re + base : re, im ? im + base : im, S, nb, tw);
    else pass8<T, Inv, O>(W + base, out + base, re ? re + base : re, im ? im + base : im, S, nb, tw, sqrtHalf<T>());
}

// Order 7 in single precision: the first pass (fused with the pass at s = 2)
// and the radix-8 pass at s = 4 that completes the schedule, without leaving
// the registers; the eight blocks of 16 are the eight lanes, lane j holding
// the block that the last pass takes as its sub-block j.
// Interleaved output takes the lanes of a block in the order pairLane, so
// that in-lane unpacks store it; the factors of the last pass, W_128^(j*k),
// are constants in the lane order of the output form.
template <bool Pair> struct Radix7Tw {
    float f[7 * 32];
    constexpr Radix7Tw() : f{} {
        for (int j = 1; j < 8; ++j)
            for (int p = 0; p < 16; ++p) {
                const Cx<float> w = fixW<float>(j * (Pair ? pairLane<float>(p) : p), 128);
                f[32 * (j - 1) + p] = w.re;
                f[32 * (j - 1) + 16 + p] = w.im;
            }
    }
};
template <bool Pair> inline constexpr Radix7Tw<Pair> kRadix7Tw{};

template <bool Inv, Out O, bool Split>
void radix7f(const SrcRef<float>& src, Cx<float>* out, float* re, float* im, const Cx<float>* tw) {
    using CV = CVec<float, 8>;
    using G = GVec<float>;
    constexpr bool Pair = O == Out::Cx;
    CV fr[9], fi[9];
    loadFirstFactors<float, CV, 16>(tw, fr, fi);
    CV a[16];
#pragma GCC unroll 16
    for (int j = 0; j < 16; ++j) a[j] = loadSrc<float, 8, Split>(src, j * 8);
    vdftTw<float, CV, 16, Inv>(a, fr, fi);
    __m512 r[16], o[16];
#pragma GCC unroll 16
    for (int q = 0; q < 16; ++q) r[q] = a[Pair ? pairLane<float>(q) : q].v;
    groupTranspose16f(r, o);
    G c[8];
#pragma GCC unroll 8
    for (int j = 0; j < 8; ++j) {
        G g{o[2 * j], o[2 * j + 1]};
        c[j] = j == 0 ? g : GOps<float>::template mul<Inv>(g, kRadix7Tw<Pair>.f + 32 * (j - 1));
    }
    bfly8Group<float, Inv, Pair ? Out::Paired : O>(c, reinterpret_cast<float*>(out), re, im, 0, 16, sqrtHalf<float>());
}

// ------------------------------------------------------------ whole transforms in registers

// Times -i (forward) or +i (inverse), in the group form: a swap and a sign.
template <class T, bool Inv> VRX_INLINE GVec<T> rotG(GVec<T> a) {
    using W = simd::V<T>;
    if constexpr (!Inv) return {a.im, W::neg(a.re)};
    else return {W::neg(a.im), a.re};
}

// Times W_L^j (forward sign; conjugated for the inverse), a constant factor.
template <class T, bool Inv> VRX_INLINE GVec<T> mulFix(GVec<T> a, int j, int L) {
    using G = GVec<T>;
    j %= L;
    if (j == 0) return a;
    if (4 * j == L) return rotG<T, Inv>(a);
    if (8 * j == L) return GOps<T>::template w8<Inv>(a, sqrtHalf<T>());
    if (8 * j == 3 * L) return rotG<T, Inv>(GOps<T>::template w8<Inv>(a, sqrtHalf<T>()));
    const Cx<T> w = fixW<T>(j, L);
    return GOps<T>::template mulG<Inv>(a, G{G::splat(w.re), G::splat(w.im)});
}

// Transform of length R down the registers a[0..R-1] (every lane its own
// transform), natural order in and out: radix 4 over R/4 sub-transforms.
template <class T, int R, bool Inv> VRX_INLINE void sdft(GVec<T>* a) {
    using P = GOps<T>;
    using G = GVec<T>;
    if constexpr (R == 4) {
        const G t0 = P::add(a[0], a[2]), t1 = P::sub(a[0], a[2]), t2 = P::add(a[1], a[3]), t3 = P::sub(a[1], a[3]);
        a[0] = P::add(t0, t2);
        a[1] = P::template addRot<Inv>(t1, t3);
        a[2] = P::sub(t0, t2);
        a[3] = P::template subRot<Inv>(t1, t3);
    } else if constexpr (R == 8) {
        G e[4] = {a[0], a[2], a[4], a[6]}, d[4] = {a[1], a[3], a[5], a[7]};
        sdft<T, 4, Inv>(e);
        sdft<T, 4, Inv>(d);
#pragma GCC unroll 4
        for (int q = 1; q < 4; ++q) d[q] = mulFix<T, Inv>(d[q], q, 8);
#pragma GCC unroll 4
        for (int q = 0; q < 4; ++q) {
            a[q] = P::add(e[q], d[q]);
            a[q + 4] = P::sub(e[q], d[q]);
        }
    } else {
        constexpr int Q = R / 4;
        G y[4][Q];
#pragma GCC unroll 64
        for (int n2 = 0; n2 < Q; ++n2) {
            G b[4] = {a[n2], a[Q + n2], a[2 * Q + n2], a[3 * Q + n2]};
            sdft<T, 4, Inv>(b);
            y[0][n2] = b[0];
#pragma GCC unroll 4
            for (int k1 = 1; k1 < 4; ++k1) y[k1][n2] = mulFix<T, Inv>(b[k1], n2 * k1, R);
        }
#pragma GCC unroll 4
        for (int k1 = 0; k1 < 4; ++k1) {
            sdft<T, Q, Inv>(y[k1]);
#pragma GCC unroll 64
            for (int k2 = 0; k2 < Q; ++k2) a[k1 + 4 * k2] = y[k1][k2];
        }
    }
}

// sdft<T, 16> with its inputs taken from ld(n) and its outputs handed
// to st(k, X[k]), the same operations: each input is loaded when its
// radix-4 butterfly runs and each output leaves as soon as its last
// butterfly has run, so that fewer of the 16 rows (which fill the
// registers) wait in registers.
template <class T, bool Inv, class Ld, class St> VRX_INLINE void sdft16S(Ld ld, St st) {
    GVec<T> y[4][4];
#pragma GCC unroll 4
    for (int n2 = 0; n2 < 4; ++n2) {
        GVec<T> b[4] = {ld(n2), ld(4 + n2), ld(8 + n2), ld(12 + n2)};
        sdft<T, 4, Inv>(b);
        y[0][n2] = b[0];
#pragma GCC unroll 4
        for (int k1 = 1; k1 < 4; ++k1) y[k1][n2] = mulFix<T, Inv>(b[k1], n2 * k1, 16);
    }
#pragma GCC unroll 4
    for (int k1 = 0; k1 < 4; ++k1) {
        sdft<T, 4, Inv>(y[k1]);
#pragma GCC unroll 4
        for (int k2 = 0; k2 < 4; ++k2) st(k1 + 4 * k2, y[k1][k2]);
    }
}

// Factors W_N^(k1*n2) of the in-register transforms of C columns: row k1
// holds, per V columns, the V real parts then the V imaginary parts, lane p
// for column n2 = pairLane(p) (Perm) or p of those V.
template <class T, int M, bool Perm, int C> struct LaneTwGroup {
    static constexpr int V = GVec<T>::V, N = 1 << M;
    T f[2 * N];
    constexpr LaneTwGroup() : f{} {
        for (int k1 = 0; k1 < N / C; ++k1)
            for (int h = 0; h < C / V; ++h)
                for (int p = 0; p < V; ++p) {
                    const Cx<T> w = fixW<T>(k1 * (V * h + (Perm ? pairLane<T>(p) : p)), N);
                    f[2 * (C * k1 + V * h) + p] = w.re;
                    f[2 * (C * k1 + V * h) + V + p] = w.im;
                }
    }
};
template <class T, int M, bool Perm, int C> inline constexpr LaneTwGroup<T, M, Perm, C> kLaneTwGroup{};

// Transpose of V x V reals (o[e] lane q = r[q] lane e).
VRX_INLINE void transposeReals(const __m512* r, __m512* o) { groupTranspose16f(r, o); }
VRX_INLINE void transposeReals(const __m512d* r, __m512d* o) { groupTranspose8d(r, o); }

// A transform of N = R*C points (C = V or 2V columns, R >= V rows) with one
// pass over memory: x[C*n1 + n2] is column n2 of row n1, a row held V
// columns per register; transforms of length R down the rows, the factors
// W_N^(k1*n2), then per V rows a transpose of each V x V block and
// transforms of length C, whose rows are V consecutive outputs X[k1 + R*k2].
template <class T, int M, bool Inv, bool SplitIn, Out O, bool Scale = false, int C = GVec<T>::V>
VRX_INLINE void inRegisters(const SrcRef<T>& src, T* out, T* re, T* im, T scale = T(0)) {
    using G = GVec<T>;
    using W = simd::V<T>;
    using P = GOps<T>;
    constexpr int V = G::V, N = 1 << M, R = N / C, H = C / V;
    static_assert(R >= V && C % V == 0, "whole square blocks");
    // one square block stays in registers; more go through the stack
    constexpr bool Direct = R == V && H == 1;
    alignas(64) T y[Direct ? 1 : 2 * N];
    G a[R];
#pragma GCC unroll 1
    for (int h = 0; h < H; ++h) {
#pragma GCC unroll 64
        for (int r = 0; r < R; ++r) {
            const int64_t e = C * r + V * h;
            if constexpr (SplitIn) a[r] = {W::load(src.re + e), W::load(src.im + e)};
            else pairLoad(reinterpret_cast<const T*>(src.cx + e), a[r].re, a[r].im);
        }
        sdft<T, R, Inv>(a);
#pragma GCC unroll 64
        for (int k1 = 1; k1 < R; ++k1)
            a[k1] = P::template mul<Inv>(a[k1], kLaneTwGroup<T, M, !SplitIn, C>.f + 2 * (C * k1 + V * h));
        if constexpr (!Direct)
#pragma GCC unroll 64
            for (int k1 = 0; k1 < R; ++k1) a[k1].store(y + 2 * (C * k1 + V * h));
    }
#pragma GCC unroll 1
    for (int b = 0; b < R / V; ++b) {
        G c[C];
#pragma GCC unroll 2
        for (int h = 0; h < H; ++h) {
            typename W::R rr[V], ri[V], tr[V], ti[V];
#pragma GCC unroll 16
            for (int j = 0; j < V; ++j) {
                const int k1 = V * b + (O == Out::Cx ? pairLane<T>(j) : j);
                if constexpr (Direct) {
                    rr[j] = a[k1].re;
                    ri[j] = a[k1].im;
                } else {
                    rr[j] = W::load(y + 2 * (C * k1 + V * h));
                    ri[j] = W::load(y + 2 * (C * k1 + V * h) + V);
                }
            }
            transposeReals(rr, tr);
            transposeReals(ri, ti);
#pragma GCC unroll 16
            for (int p = 0; p < V; ++p) c[V * h + (SplitIn ? p : pairLane<T>(p))] = {tr[p], ti[p]};
        }
        auto st = [&](int k2, G v) __attribute__((always_inline)) {
            if constexpr (Scale) v = {W::mul(v.re, W::set1(scale)), W::mul(v.im, W::set1(scale))};
            if constexpr (O == Out::Cx) pairStore(out + 2 * (V * b + R * k2), v.re, v.im);
            else P::template put<O>(v, out, re, im, V * b + R * k2);
        };
        sdft<T, C, Inv>(c);
#pragma GCC unroll 32
        for (int k2 = 0; k2 < C; ++k2) st(k2, c[k2]);
    }
}

// Single-precision orders 8 to 11: two sweeps over a stack buffer.
#include "vrx_fft_f32.h"

// The orders that run in registers; false for the others.
template <class T, bool Inv, Out O, bool Split>
bool runInRegisters(int m, const SrcRef<T>& src, Cx<T>* out, T* re, T* im) {
    T* o = reinterpret_cast<T*>(out);
    if constexpr (sizeof(T) == 4) {
        switch (m) {
            case 8: twoSweepF<8, 1, Inv, Split, O>(src, o, re, im); return true;
            case 9: twoSweepF<9, 1, Inv, Split, O>(src, o, re, im); return true;
            case 10: twoSweepF<10, 1, Inv, Split, O>(src, o, re, im); return true;
            case 11: twoSweepF<11, 4, Inv, Split, O>(src, o, re, im); return true;
            default: return false;
        }
    } else {
        switch (m) {
            case 7:
                if constexpr (Split) rows16d<Inv, true, 8>(src.re, src.im, re, im);
                else rows16d<Inv, false, 8>(reinterpret_cast<const T*>(src.cx), nullptr, o, nullptr);
                return true;
            case 8:
                if constexpr (Split) rows16d<Inv, true, 16>(src.re, src.im, re, im);
                else rows16d<Inv, false, 16>(reinterpret_cast<const T*>(src.cx), nullptr, o, nullptr);
                return true;
            case 9:
                if constexpr (Split) order9d<Inv, true>(src.re, src.im, re, im);
                else order9d<Inv, false>(reinterpret_cast<const T*>(src.cx), nullptr, o, nullptr);
                return true;
            default: return false;
        }
    }
}

// The 16-point double kernel on ymm halves (lanes 0-1 and 2-3 of each row)
// with the same operations, lane for lane, as smallVec<double, 4, 4>: the
// first level of the 4 x 4 transpose is then only a pairing of halves, the
// first butterflies of the rows run before the one shuffle level, and the
// factors carry the sign of the cross products. A call in place reads the
// stores of the call before, so this chain is what such calls wait for.
template <bool Inv, int R = 4> struct LaneTwSigned {
    Cx<double> wi[4 * R];
    constexpr LaneTwSigned() : wi{} {
        for (int i = 0; i < 4 * R; ++i) {
            double v = kLaneTwSplit<double, R, 4>.wi[i].re;
            wi[i] = Inv ? Cx<double>{v, -v} : Cx<double>{-v, v};
        }
    }
};
template <bool Inv, int R = 4> inline constexpr LaneTwSigned<Inv, R> kLaneTwSigned{};

template <bool Inv> VRX_INLINE __m256d rot16d(__m256d x) {
    const __m256d s = _mm256_permute_pd(x, 0x5);
    const __m256d m = Inv ? _mm256_setr_pd(-0.0, 0.0, -0.0, 0.0) : _mm256_setr_pd(0.0, -0.0, 0.0, -0.0);
    return _mm256_xor_pd(s, m);
}

template <bool Inv, bool Scale> VRX_INLINE void small16d(const Cx<double>* src, Cx<double>* dst, double scale) {
    const double* s = reinterpret_cast<const double*>(src);
    double* d = reinterpret_cast<double*>(dst);
    __m256d y[4][2];
#pragma GCC unroll 2
    for (int h = 0; h < 2; ++h) {
        __m256d a0 = _mm256_loadu_pd(s + 4 * h), a1 = _mm256_loadu_pd(s + 8 + 4 * h);
        __m256d a2 = _mm256_loadu_pd(s + 16 + 4 * h), a3 = _mm256_loadu_pd(s + 24 + 4 * h);
        __m256d t0 = _mm256_add_pd(a0, a2), t1 = _mm256_sub_pd(a0, a2), t2 = _mm256_add_pd(a1, a3);
        __m256d t3 = rot16d<Inv>(_mm256_sub_pd(a1, a3));
        y[0][h] = _mm256_add_pd(t0, t2);
        y[1][h] = _mm256_add_pd(t1, t3);
        y[2][h] = _mm256_sub_pd(t0, t2);
        y[3][h] = _mm256_sub_pd(t1, t3);
    }
#pragma GCC unroll 4
    for (int k = 1; k < 4; ++k)
#pragma GCC unroll 2
        for (int h = 0; h < 2; ++h) {
            const __m256d wr = _mm256_loadu_pd(&kLaneTwSplit<double, 4, 4>.wr[k * 4 + 2 * h].re);
            const __m256d wi = _mm256_loadu_pd(&kLaneTwSigned<Inv>.wi[k * 4 + 2 * h].re);
            const __m256d p = _mm256_mul_pd(y[k][h], wr), q = _mm256_mul_pd(_mm256_permute_pd(y[k][h], 0x5), wi);
            y[k][h] = _mm256_add_pd(p, q);
        }
    // columns 0 and 1 are the low and high lanes of a row's first half, 2
    // and 3 of its second: sums and differences of the halves, then pairs
    __m256d e[4], f[4];
#pragma GCC unroll 4
    for (int k = 0; k < 4; ++k) {
        e[k] = _mm256_add_pd(y[k][0], y[k][1]);
        f[k] = _mm256_sub_pd(y[k][0], y[k][1]);
    }
#pragma GCC unroll 2
    for (int h = 0; h < 2; ++h) {
        const int k = 2 * h;
        __m256d t0 = _mm256_permute2f128_pd(e[k], e[k + 1], 0x20), t2 = _mm256_permute2f128_pd(e[k], e[k + 1], 0x31);
        __m256d t1 = _mm256_permute2f128_pd(f[k], f[k + 1], 0x20);
        __m256d t3 = _mm256_permute2f128_pd(rot16d<Inv>(f[k]), rot16d<Inv>(f[k + 1]), 0x31);
        __m256d o[4] = {_mm256_add_pd(t0, t2), _mm256_add_pd(t1, t3), _mm256_sub_pd(t0, t2), _mm256_sub_pd(t1, t3)};
#pragma GCC unroll 4
        for (int q = 0; q < 4; ++q) {
            if constexpr (Scale) o[q] = _mm256_mul_pd(o[q], _mm256_set1_pd(scale));
            _mm256_storeu_pd(d + 8 * q + 4 * h, o[q]);
        }
    }
}

// The register kernels of 16 and 32 complex values as functions of their
// own: no stack frame (the other small orders' kernels need one), and
// reached from complexTransform before the general paths' frame is set up.
// Whole: the 64-bit kernel of 16 points on whole registers (smallVec),
// taken out of place; in place each call waits for the stores of the one
// before, and the kernel on 256-bit halves has the shorter chain, while out
// of place the one on whole registers, with half the operations, runs more
// calls at once (the same operations per value: same bits).
template <class T, int LOG, bool Inv, bool Scale, bool Whole = false>
[[gnu::noinline]] void smallCx(const Cx<T>* src, Cx<T>* dst, T scale) {
    if constexpr (sizeof(T) == 8 && LOG == 4 && !Whole) small16d<Inv, Scale>(src, dst, scale);
    else if constexpr (sizeof(T) == 8 && LOG == 5)
        small32d<Inv, Scale>(src, dst, scale, &kLaneTwSplit<double, 8, 4>.wr[0].re, &kLaneTwSigned<Inv, 8>.wi[0].re,
                             [](CVd* r) __attribute__((always_inline)) { transposeV<CVd>(r); });
    else smallVec<T, 4, (1 << LOG) / 4, Inv, Scale>(src, dst, scale);
}
template <class T, bool Inv, bool Scale> VRX_INLINE void smallCxRun(int m, const Cx<T>* src, Cx<T>* dst, T scale) {
    if (m == 5) return smallCx<T, 5, Inv, Scale>(src, dst, scale);
    if constexpr (sizeof(T) == 8)
        if (src != dst) return smallCx<T, 4, Inv, Scale, true>(src, dst, scale);
    smallCx<T, 4, Inv, Scale>(src, dst, scale);
}

template <class T, bool Inv, bool Scale>
void smallDispatch(int m, const Cx<T>* src, Cx<T>* dst, T scale) {
    if (m == 4 || m == 5) return smallCxRun<T, Inv, Scale>(m, src, dst, scale);
    switch (m) {
        case 0: smallFft<T, 0, Inv, Scale>(src, dst, scale); break;
        case 1: smallFft<T, 1, Inv, Scale>(src, dst, scale); break;
        case 2: smallFft<T, 2, Inv, Scale>(src, dst, scale); break;
        case 3: smallFft<T, 3, Inv, Scale>(src, dst, scale); break;
        default:
            if constexpr (sizeof(T) == 4) smallVec<T, 8, 8, Inv, Scale>(src, dst, scale);
            else inRegisters<T, 6, Inv, false, Out::Cx, Scale>(SrcRef<T>{src, nullptr, nullptr}, reinterpret_cast<T*>(dst), nullptr, nullptr, scale);
            break;
    }
}

// The radix engine for order m >= 7: the first pass into W, the passes whose
// blocks fit a chunk chunk by chunk, the rest over the whole array; the last
// pass writes the destination in the form O (out, or re and im).
// Pair: a plan whose factors of groups of eight stand in the lane order
// pairLane (interleaved double plans), the last pass storing by unpacks.
template <class T, bool Inv, bool Seq, Out O, bool Pair = false>
void radixRun(int m, const Cx<T>* tw, const int32_t* brev, const SrcRef<T>& src, Cx<T>* W, Cx<T>* out, T* re, T* im) {
    static_assert(!Pair || (sizeof(T) == 8 && !Seq && O == Out::Cx), "paired lanes: interleaved double output");
    if constexpr (sizeof(T) == 4 && !Seq) {
        if (m == 7) {
            radix7f<Inv, O, O == Out::Split>(src, out, re, im, tw);
            return;
        }
    }
    if constexpr (!Seq && O != Out::Group) {
        if (runInRegisters<T, Inv, O, O == Out::Split>(m, src, out, re, im)) return;
    }
    const Schedule& sc = kSchedules<T>.s[m];
    const int np = sc.np;
    const PassStep* ps = sc.ps;
    const int32_t* off = sc.off;
    const int64_t N = int64_t(1) << m;
    // the first pass, fused with the pass at s = 2 where the schedule has one
    int first = 2;
    if (ps[0].t == 3) {
        first = 1;
        if constexpr (sizeof(T) == 8) {
            if constexpr (Seq) firstPassSeq<T, 8, Inv>(m, src.cx, W, tw);
            else firstPassRev<T, 8, Inv, O == Out::Split>(m, brev, src, W, tw);
        }
    } else {
        // a radix-4 first pass is always followed by a radix-4 pass at s = 2
        if constexpr (Seq) firstPassSeq<T, 16, Inv>(m, src.cx, W, tw);
        else if constexpr (Pair) firstPassPaired<Inv>(m, brev, src, W, tw);
        else firstPassRev<T, 16, Inv, O == Out::Split>(m, brev, src, W, tw);
    }
    const int logC = m < Limits<T>::kChunkLog ? m : Limits<T>::kChunkLog;
    const int64_t C = int64_t(1) << logC;
    int chunkEnd = first;
    while (chunkEnd < np && ps[chunkEnd].s + ps[chunkEnd].t <= logC) ++chunkEnd;
    auto run = [&](int i, int64_t base, int64_t len) {
        if (i == np - 1) runPass<T, Inv, Pair ? Out::Paired : O>(ps[i], W, out, re, im, base, len, tw + off[i]);
        else runPass<T, Inv, Out::Group>(ps[i], W, W, nullptr, nullptr, base, len, tw + off[i]);
    };
    if (chunkEnd > first)
        for (int64_t base = 0; base < N; base += C)
            for (int i = first; i < chunkEnd; ++i) run(i, base, C);
    for (int i = chunkEnd; i < np; ++i) run(i, 0, N);
}




}  // namespace

// A block already in bit-reversed order: in place when it is 32-byte
// aligned, through work otherwise; the result stays in the group form.
template <class T, bool Inv> void radixBlock(int m, const Cx<T>* tw, Cx<T>* p, Cx<T>* work) {
    Cx<T>* W = (reinterpret_cast<uintptr_t>(p) & 31) ? work : p;
    radixRun<T, Inv, true, Out::Group>(m, tw, nullptr, SrcRef<T>{p, nullptr, nullptr}, W, p, nullptr, nullptr);
}

// ------------------------------------------------------------ table builders

void initTabBitRevNorm(int m, int32_t* tab) {
    if (m < 2) return;
    const int bits = m - 2;
    const int64_t n = int64_t(1) << bits;
    for (int64_t i = 0; i < n; ++i) tab[i] = static_cast<int32_t>(2 * revBits(static_cast<uint32_t>(i), bits));
    tab[n] = 0;
}

// Pass by pass in the order of the schedule: for each group of positions k,
// for j = 1 .. r-1, the real parts then the imaginary parts of w^(j*k).
// Paired (double): groups of eight positions k0 .. k0+7 hold position
// k0 + pairLane(kk) in slot kk, the lane order of radixRun<..., Pair>.
template <class T> void initTabTwdL1(int m, const SineTab<T>& st, Cx<T>* d, bool paired) {
    PassStep ps[16];
    const int np = radixSchedule<T>(m, ps);
    T* f = reinterpret_cast<T*>(d);
    for (int i = 1; i < np; ++i) {
        const int s = ps[i].s, ord = ps[i].s + ps[i].t, r = 1 << ps[i].t;
        const int64_t S = int64_t(1) << s;
        const int G = twGroup<T>(s);
        for (int64_t k0 = 0; k0 < S; k0 += G)
            for (int j = 1; j < r; ++j) {
                for (int kk = 0; kk < G; ++kk) {
                    const int pos = paired && G == 8 ? pairLane<double>(kk) : kk;
                    Cx<T> w = twAt<T>(st, j * (k0 + pos), ord);
                    f[kk] = w.re;
                    f[G + kk] = w.im;
                }
                f += 2 * G;
            }
    }
}


// ------------------------------------------------------------ transform

template <class T, bool Inv>
[[gnu::noinline]] void complexPaths(const Plan* plan, int m, const T* srcRe, const T* srcIm, T* dstRe, T* dstIm,
                                    bool split, T scale, uint8_t* work) {
    using C = Cx<T>;
    if (m <= 6) {
        if (!split) {
            const C* s = reinterpret_cast<const C*>(srcRe);
            C* d = reinterpret_cast<C*>(dstRe);
            if (scale != T(0)) smallDispatch<T, Inv, true>(m, s, d, scale);
            else smallDispatch<T, Inv, false>(m, s, d, scale);
        } else {
            C tmp[64];
            const int n = 1 << m;
            for (int i = 0; i < n; ++i) tmp[i] = {srcRe[i], srcIm[i]};
            if (scale != T(0)) smallDispatch<T, Inv, true>(m, tmp, tmp, scale);
            else smallDispatch<T, Inv, false>(m, tmp, tmp, scale);
            for (int i = 0; i < n; ++i) { dstRe[i] = tmp[i].re; dstIm[i] = tmp[i].im; }
        }
        return;
    }
    const bool realPlan = plan->idWord == idWord(ObjId::FftR32f) || plan->idWord == idWord(ObjId::FftR64f);
    if (onLargePath<T>(m, realPlan)) {
        largeRun<T, Inv>(plan, m, srcRe, srcIm, dstRe, dstIm, split, scale, work);
        return;
    }
    const C* tw = static_cast<const C*>(plan->twiddleTab);
    const int32_t* brev = plan->bitRevTab;
    const int64_t N = int64_t(1) << m;
    if (!split) {
        const C* s = reinterpret_cast<const C*>(srcRe);
        C* d = reinterpret_cast<C*>(dstRe);
        // the destination holds the passes unless it is the source or not 32-byte aligned
        const bool viaWork = static_cast<const void*>(s) == static_cast<const void*>(d) ||
                             (reinterpret_cast<uintptr_t>(d) & 31) != 0;
        C* W = viaWork ? reinterpret_cast<C*>(work) : d;
        if (pairedPlan<T>(plan))
            radixRun<T, Inv, false, Out::Cx, sizeof(T) == 8>(m, tw, brev, SrcRef<T>{s, nullptr, nullptr}, W, d, nullptr, nullptr);
        else
            radixRun<T, Inv, false, Out::Cx>(m, tw, brev, SrcRef<T>{s, nullptr, nullptr}, W, d, nullptr, nullptr);
        if (scale != T(0)) scaleBy<T>(dstRe, 2 * N, scale);
    } else {
        C* W = reinterpret_cast<C*>(work);
        radixRun<T, Inv, false, Out::Split>(m, tw, brev, SrcRef<T>{nullptr, srcRe, srcIm}, W, W, dstRe, dstIm);
        if (scale != T(0)) {
            scaleBy<T>(dstRe, N, scale);
            scaleBy<T>(dstIm, N, scale);
        }
    }
}

// Interleaved data of 16 and 32 points goes straight to its kernels, and so
// does that of the orders whose whole transform runs in registers (single 7
// to 11, double 7 to 9), which read all their input before they write.
template <class T, bool Inv>
void complexTransform(const Plan* plan, int m, const T* srcRe, const T* srcIm, T* dstRe, T* dstIm,
                      bool split, T scale, uint8_t* work) {
    if (!split && (m == 4 || m == 5)) {
        const Cx<T>* s = reinterpret_cast<const Cx<T>*>(srcRe);
        Cx<T>* d = reinterpret_cast<Cx<T>*>(dstRe);
        if (scale != T(0)) smallCxRun<T, Inv, true>(m, s, d, scale);
        else smallCxRun<T, Inv, false>(m, s, d, scale);
        return;
    }
    if (!split && m >= 7 && m <= (sizeof(T) == 4 ? 11 : 9)) {
        const SrcRef<T> src{reinterpret_cast<const Cx<T>*>(srcRe), nullptr, nullptr};
        Cx<T>* d = reinterpret_cast<Cx<T>*>(dstRe);
        if constexpr (sizeof(T) == 4) {
            if (m == 7) radix7f<Inv, Out::Cx, false>(src, d, nullptr, nullptr, static_cast<const Cx<T>*>(plan->twiddleTab));
            else runInRegisters<T, Inv, Out::Cx, false>(m, src, d, nullptr, nullptr);
        } else {
            runInRegisters<T, Inv, Out::Cx, false>(m, src, d, nullptr, nullptr);
        }
        if (scale != T(0)) scaleBy<T>(dstRe, int64_t(2) << m, scale);
        return;
    }
    complexPaths<T, Inv>(plan, m, srcRe, srcIm, dstRe, dstIm, split, scale, work);
}

template <class T, bool Inv> void smallComplex(int m, const Cx<T>* src, Cx<T>* dst, T scale) {
    if (scale != T(0)) smallDispatch<T, Inv, true>(m, src, dst, scale);
    else smallDispatch<T, Inv, false>(m, src, dst, scale);
}

#define VRX_FFT_INSTANTIATE(T)                                                                          \
    template void smallComplex<T, false>(int, const Cx<T>*, Cx<T>*, T);                                \
    template void smallComplex<T, true>(int, const Cx<T>*, Cx<T>*, T);                                 \
    template void initTabTwdL1<T>(int, const SineTab<T>&, Cx<T>*, bool);                               \
    template void radixBlock<T, false>(int, const Cx<T>*, Cx<T>*, Cx<T>*);                             \
    template void radixBlock<T, true>(int, const Cx<T>*, Cx<T>*, Cx<T>*);                              \
    template void complexTransform<T, false>(const Plan*, int, const T*, const T*, T*, T*, bool, T, uint8_t*); \
    template void complexTransform<T, true>(const Plan*, int, const T*, const T*, T*, T*, bool, T, uint8_t*);

VRX_FFT_INSTANTIATE(float)
VRX_FFT_INSTANTIATE(double)

// The radix engine of order m (7 to kRadixLast, orders that do not run in
// registers) from interleaved src, every pass in work, the result left
// there in the group form: per V positions, in natural order, V real parts
// then V imaginary parts. Unscaled.
template <class T, bool Inv> void radixToGroups(const Plan* plan, int m, const Cx<T>* src, Cx<T>* work) {
    radixRun<T, Inv, false, Out::Group>(m, static_cast<const Cx<T>*>(plan->twiddleTab), plan->bitRevTab,
                                        SrcRef<T>{src, nullptr, nullptr}, work, work, nullptr, nullptr);
}
template void radixToGroups<double, false>(const Plan*, int, const Cx<double>*, Cx<double>*);

}  // namespace n0::fft
