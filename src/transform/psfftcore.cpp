// The complex FFT engine: straight-line kernels up to length 64, the
// radix-4/8 pass engine with the input permuted in its first pass, and the
// blocked large path with tile bit reversal. Also the builders of the tables
// that the engine reads, so that the layout lives in one place.
#include "vrx_fft.h"
#include "vrx_fft_simd.h"
#include "vrx_fft_sintab.h"

// The shuffle intrinsics of g++ 12 start from an undefined register, which
// its uninitialised-value analysis reports once they are inlined.
#pragma GCC diagnostic ignored "-Wuninitialized"

namespace n0::fft {

namespace {

template <class T> VRX_INLINE const T* fixTab();
template <> VRX_INLINE const float* fixTab<float>() { return fft_fix_twiddle_table_32f; }
template <> VRX_INLINE const double* fixTab<double>() { return fft_fix_twiddle_table_64f; }

VRX_INLINE uint32_t revBits(uint32_t x, int bits) {
    if (bits <= 0) return 0;
    x = ((x >> 1) & 0x55555555u) | ((x & 0x55555555u) << 1);
    x = ((x >> 2) & 0x33333333u) | ((x & 0x33333333u) << 2);
    x = ((x >> 4) & 0x0F0F0F0Fu) | ((x & 0x0F0F0F0Fu) << 4);
    x = __builtin_bswap32(x);
    return x >> (32 - bits);
}

// ------------------------------------------------------------ small kernels

// W_L^k (forward sign) from the constant sine table, for k < L/2, L <= 1024.
template <class T, int L> VRX_INLINE Cx<T> fixTw(int k) {
    const T* t = fixTab<T>();
    int j = k * (1024 / L);
    T s = j <= 256 ? t[j] : t[512 - j];
    T c = j <= 256 ? t[256 - j] : -t[j - 256];
    return {c, -s};
}

template <class T, int LOG, bool Inv, bool Scale>
VRX_INLINE void smallFft(const Cx<T>* src, Cx<T>* dst, T scale) {
    constexpr int N = 1 << LOG;
    Cx<T> a[N];
#pragma GCC unroll 64
    for (int i = 0; i < N; ++i) a[revBits(static_cast<uint32_t>(i), LOG)] = src[i];
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
                else if (k != 0) {
                    Cx<T> w;
                    if (L == 8) w = fixTw<T, 8>(k);
                    else if (L == 16) w = fixTw<T, 16>(k);
                    else if (L == 32) w = fixTw<T, 32>(k);
                    else w = fixTw<T, 64>(k);
                    y = cmulw<Inv>(y, w);
                }
                Cx<T> x = a[b + k];
                a[b + k] = cadd(x, y);
                a[b + k + L / 2] = csub(x, y);
            }
        }
    }
#pragma GCC unroll 64
    for (int i = 0; i < N; ++i) {
        if constexpr (Scale) dst[i] = {a[i].re * scale, a[i].im * scale};
        else dst[i] = a[i];
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

VRX_INLINE void transpose4x4(const __m256* r, __m256* o) {
    __m256d a0 = _mm256_castps_pd(r[0]), a1 = _mm256_castps_pd(r[1]), a2 = _mm256_castps_pd(r[2]), a3 = _mm256_castps_pd(r[3]);
    __m256d t0 = _mm256_unpacklo_pd(a0, a1), t1 = _mm256_unpackhi_pd(a0, a1);
    __m256d t2 = _mm256_unpacklo_pd(a2, a3), t3 = _mm256_unpackhi_pd(a2, a3);
    o[0] = _mm256_castpd_ps(_mm256_permute2f128_pd(t0, t2, 0x20));
    o[1] = _mm256_castpd_ps(_mm256_permute2f128_pd(t1, t3, 0x20));
    o[2] = _mm256_castpd_ps(_mm256_permute2f128_pd(t0, t2, 0x31));
    o[3] = _mm256_castpd_ps(_mm256_permute2f128_pd(t1, t3, 0x31));
}
template <bool Group = false> VRX_INLINE void transpose8x8(const __m512* r, __m512* o);
template <bool Group = false> VRX_INLINE void transpose4x4(const __m512d* r, __m512d* o);

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
    for (int i = 0; i < 4; ++i) a[i].v = o[i];
}

template <class CV, bool Inv> VRX_INLINE void vbfly4(CV a0, CV a1, CV a2, CV a3, CV* o);
template <class T, class CV, bool Inv> VRX_INLINE void vbfly8(const CV* a, CV* o);

// Vertical transform of R = 4, 8 or 16 registers, natural order in and out.
template <class T, class CV, int R, bool Inv> VRX_INLINE void vdft(CV* a) {
    if constexpr (R == 4) {
        CV o[4];
        vbfly4<CV, Inv>(a[0], a[1], a[2], a[3], o);
        for (int i = 0; i < 4; ++i) a[i] = o[i];
    } else if constexpr (R == 8) {
        CV o[8];
        vbfly8<T, CV, Inv>(a, o);
        for (int i = 0; i < 8; ++i) a[i] = o[i];
    } else {
        CV y[4][4];
        for (int n2 = 0; n2 < 4; ++n2) {
            vbfly4<CV, Inv>(a[n2], a[4 + n2], a[8 + n2], a[12 + n2], y[n2]);
            for (int k1 = 1; k1 < 4; ++k1)
                if (n2 != 0) y[n2][k1] = CV::template mulc<Inv>(y[n2][k1], fixW<T>(n2 * k1, 16));
        }
        for (int k1 = 0; k1 < 4; ++k1) {
            CV o[4];
            vbfly4<CV, Inv>(y[0][k1], y[1][k1], y[2][k1], y[3][k1], o);
            for (int k2 = 0; k2 < 4; ++k2) a[k1 + 4 * k2] = o[k2];
        }
    }
}

// In-register kernel of N = R*V: columns of the R x V matrix, lane factors,
// transposes of V x V blocks, rows; output stored in natural order.
template <class T, int V, int R, bool Inv, bool Scale>
VRX_INLINE void smallVec(const Cx<T>* src, Cx<T>* dst, T scale) {
    using CV = CVec<T, V>;
    CV a[R];
    for (int r = 0; r < R; ++r) a[r] = CV::load(src + r * V);
    vdft<T, CV, R, Inv>(a);
    for (int k = 1; k < R; ++k)
        a[k] = CV::template mulSplit<Inv>(a[k], CV::load(&kLaneTwSplit<T, R, V>.wr[k * V]), CV::load(&kLaneTwSplit<T, R, V>.wi[k * V]));
    for (int b = 0; b < R / V; ++b) {
        transposeV<CV>(a + b * V);
        vdft<T, CV, V, Inv>(a + b * V);
    }
    for (int b = 0; b < R / V; ++b)
        for (int k2 = 0; k2 < V; ++k2) {
            CV v = a[b * V + k2];
            if constexpr (Scale) v = CV::scale(v, scale);
            v.store(dst + R * k2 + b * V);
        }
}

template <class T, bool Inv, bool Scale>
void smallDispatch(int m, const Cx<T>* src, Cx<T>* dst, T scale) {
    switch (m) {
        case 0: smallFft<T, 0, Inv, Scale>(src, dst, scale); break;
        case 1: smallFft<T, 1, Inv, Scale>(src, dst, scale); break;
        case 2: smallFft<T, 2, Inv, Scale>(src, dst, scale); break;
        case 3: smallFft<T, 3, Inv, Scale>(src, dst, scale); break;
        case 4: smallVec<T, 4, 4, Inv, Scale>(src, dst, scale); break;
        case 5: smallVec<T, 4, 8, Inv, Scale>(src, dst, scale); break;
        default: smallVec<T, sizeof(T) == 4 ? 8 : 4, sizeof(T) == 4 ? 8 : 16, Inv, Scale>(src, dst, scale); break;
    }
}

// ------------------------------------------------------------ radix engine

template <class T, bool Inv> VRX_INLINE void bfly4(Cx<T> a0, Cx<T> a1, Cx<T> a2, Cx<T> a3, Cx<T>* o) {
    Cx<T> t0 = cadd(a0, a2), t1 = csub(a0, a2), t2 = cadd(a1, a3), t3 = crot<Inv>(csub(a1, a3));
    o[0] = cadd(t0, t2);
    o[1] = cadd(t1, t3);
    o[2] = csub(t0, t2);
    o[3] = csub(t1, t3);
}

template <class T, bool Inv> VRX_INLINE Cx<T> mulW8(Cx<T> o) {
    const T c = fixTab<T>()[128];  // sin(pi/4)
    if constexpr (!Inv) return {(o.re + o.im) * c, (o.im - o.re) * c};
    else return {(o.re - o.im) * c, (o.im + o.re) * c};
}

template <class T, bool Inv> VRX_INLINE void bfly8(const Cx<T>* a, Cx<T>* o) {
    Cx<T> e[4], d[4];
    bfly4<T, Inv>(a[0], a[2], a[4], a[6], e);
    bfly4<T, Inv>(a[1], a[3], a[5], a[7], d);
    d[1] = mulW8<T, Inv>(d[1]);
    d[2] = crot<Inv>(d[2]);
    d[3] = crot<Inv>(mulW8<T, Inv>(d[3]));
    for (int q = 0; q < 4; ++q) {
        o[q] = cadd(e[q], d[q]);
        o[q + 4] = csub(e[q], d[q]);
    }
}

template <class T> constexpr Cx<T> fixW(int j, int N);

// 16-point transform, natural order in and out, as 4 x 4.
template <class T, bool Inv> VRX_INLINE void dft16(const Cx<T>* a, Cx<T>* o) {
    Cx<T> y[4][4];
    for (int n2 = 0; n2 < 4; ++n2) {
        bfly4<T, Inv>(a[n2], a[4 + n2], a[8 + n2], a[12 + n2], y[n2]);
        if (n2 != 0)
            for (int k1 = 1; k1 < 4; ++k1) y[n2][k1] = cmulw<Inv>(y[n2][k1], fixW<T>(n2 * k1, 16));
    }
    for (int k1 = 0; k1 < 4; ++k1) {
        Cx<T> t[4];
        bfly4<T, Inv>(y[0][k1], y[1][k1], y[2][k1], y[3][k1], t);
        for (int k2 = 0; k2 < 4; ++k2) o[k1 + 4 * k2] = t[k2];
    }
}

// Source of the first pass: bit-reversed reads from interleaved or split
// data, or blocks already in bit-reversed order (large-path rows).
enum class First { Interleaved, Split, Sequential };

template <class T, bool Inv, First F>
void firstPass(int m, const int32_t* brev, const Cx<T>* src, const T* sRe, const T* sIm,
               Cx<T>* W, int64_t i0, int64_t i1) {
    const int64_t N = int64_t(1) << m;
    auto ld = [&](int64_t idx) -> Cx<T> {
        if constexpr (F == First::Split) return {sRe[idx], sIm[idx]};
        else return src[idx];
    };
    if ((m & 1) == 0) {
        const int64_t Q = N >> 4;
        static constexpr uint8_t r4[16] = {0, 8, 4, 12, 2, 10, 6, 14, 1, 9, 5, 13, 3, 11, 7, 15};
        for (int64_t i = i0; i < i1; ++i) {
            Cx<T> a[16];
            if constexpr (F == First::Sequential) {
                const Cx<T>* p = W + 16 * i;
                for (int j = 0; j < 16; ++j) a[j] = p[r4[j]];
            } else {
                int64_t r = brev[4 * i] >> 1;
                for (int j = 0; j < 16; ++j) a[j] = ld(r + j * Q);
            }
            dft16<T, Inv>(a, W + 16 * i);
        }
    } else {
        const int64_t E = N >> 3;
        for (int64_t i = i0; i < i1; ++i) {
            Cx<T> a[8];
            if constexpr (F == First::Sequential) {
                const Cx<T>* p = W + 8 * i;
                a[0] = p[0]; a[1] = p[4]; a[2] = p[2]; a[3] = p[6];
                a[4] = p[1]; a[5] = p[5]; a[6] = p[3]; a[7] = p[7];
            } else {
                int64_t r = brev[2 * i] >> 1;
                for (int j = 0; j < 8; ++j) a[j] = ld(r + j * E);
            }
            bfly8<T, Inv>(a, W + 8 * i);
        }
    }
}

// Vertical butterflies: each lane of the registers is its own transform.
template <class CV, bool Inv> VRX_INLINE void vbfly4(CV a0, CV a1, CV a2, CV a3, CV* o) {
    CV t0 = a0 + a2, t1 = a0 - a2, t2 = a1 + a3, t3 = CV::template rot<Inv>(a1 - a3);
    o[0] = t0 + t2;
    o[1] = t1 + t3;
    o[2] = t0 - t2;
    o[3] = t1 - t3;
}

template <class T, class CV, bool Inv> VRX_INLINE void vbfly8(const CV* a, CV* o) {
    const T c = fixTab<T>()[128];
    CV e[4], d[4];
    vbfly4<CV, Inv>(a[0], a[2], a[4], a[6], e);
    vbfly4<CV, Inv>(a[1], a[3], a[5], a[7], d);
    d[1] = CV::scale(d[1] + CV::template rot<Inv>(d[1]), c);
    d[2] = CV::template rot<Inv>(d[2]);
    d[3] = CV::template rot<Inv>(CV::scale(d[3] + CV::template rot<Inv>(d[3]), c));
    for (int q = 0; q < 4; ++q) {
        o[q] = e[q] + d[q];
        o[q + 4] = e[q] - d[q];
    }
}

VRX_INLINE __m512d asPd(__m512 v) { return _mm512_castps_pd(v); }
VRX_INLINE __m512 asPs(__m512d v) { return _mm512_castpd_ps(v); }

// Index of a two-source permute that does the last 128-bit shuffle of a
// transpose (sel 0: lanes 0,2 of each source; sel 1: lanes 1,3) and the
// group form of the result at once. E: elements per 128 bits.
constexpr int groupIdx(int E, int sel, int i) {
    const int n = 4 * E;                                // elements per register
    const int f = i < n / 2 ? 2 * i : 2 * (i - n / 2) + 1;
    const int L = f / E, w = f % E;
    return (L >= 2 ? n : 0) + ((L % 2) * 2 + sel) * E + w;
}
template <int E, int sel> struct GroupIdx {
    static constexpr int n = 4 * E;
    static constexpr auto make() {
        struct A { int32_t v[16]; } a{};
        for (int i = 0; i < 16; ++i) a.v[i] = 0;
        if constexpr (E == 4) { for (int i = 0; i < n; ++i) a.v[i] = groupIdx(E, sel, i); }
        else { for (int i = 0; i < n; ++i) { a.v[2 * i] = groupIdx(E, sel, i); a.v[2 * i + 1] = 0; } }
        return a;
    }
    static constexpr auto tab = make();
};
VRX_INLINE __m512i groupIdxVec(int E, int sel) {
    if (E == 4) return _mm512_loadu_si512(sel ? GroupIdx<4, 1>::tab.v : GroupIdx<4, 0>::tab.v);
    return _mm512_loadu_si512(sel ? GroupIdx<2, 1>::tab.v : GroupIdx<2, 0>::tab.v);
}

// Transpose of 8 x 8 complex floats (64-bit elements): r[j] lane l -> o[l] lane j;
// with Group, each o[l] comes out in the group form.
template <bool Group> VRX_INLINE void transpose8x8(const __m512* r, __m512* o) {
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
        if constexpr (Group) {
            const __m512i i0 = groupIdxVec(4, 0), i1 = groupIdxVec(4, 1);
            o[0 + odd] = _mm512_permutex2var_ps(asPs(p01), i0, asPs(p45));
            o[4 + odd] = _mm512_permutex2var_ps(asPs(p01), i1, asPs(p45));
            o[2 + odd] = _mm512_permutex2var_ps(asPs(q01), i0, asPs(q45));
            o[6 + odd] = _mm512_permutex2var_ps(asPs(q01), i1, asPs(q45));
        } else {
            o[0 + odd] = asPs(_mm512_shuffle_f64x2(p01, p45, 0x88));
            o[4 + odd] = asPs(_mm512_shuffle_f64x2(p01, p45, 0xDD));
            o[2 + odd] = asPs(_mm512_shuffle_f64x2(q01, q45, 0x88));
            o[6 + odd] = asPs(_mm512_shuffle_f64x2(q01, q45, 0xDD));
        }
    }
}

// Transpose of 4 x 4 complex doubles (128-bit elements).
template <bool Group> VRX_INLINE void transpose4x4(const __m512d* r, __m512d* o) {
    __m512d t0 = _mm512_shuffle_f64x2(r[0], r[1], 0x44), t1 = _mm512_shuffle_f64x2(r[0], r[1], 0xEE);
    __m512d t2 = _mm512_shuffle_f64x2(r[2], r[3], 0x44), t3 = _mm512_shuffle_f64x2(r[2], r[3], 0xEE);
    if constexpr (Group) {
        const __m512i i0 = groupIdxVec(2, 0), i1 = groupIdxVec(2, 1);
        o[0] = _mm512_permutex2var_pd(t0, i0, t2);
        o[1] = _mm512_permutex2var_pd(t0, i1, t2);
        o[2] = _mm512_permutex2var_pd(t1, i0, t3);
        o[3] = _mm512_permutex2var_pd(t1, i1, t3);
    } else {
        o[0] = _mm512_shuffle_f64x2(t0, t2, 0x88);
        o[1] = _mm512_shuffle_f64x2(t0, t2, 0xDD);
        o[2] = _mm512_shuffle_f64x2(t1, t3, 0x88);
        o[3] = _mm512_shuffle_f64x2(t1, t3, 0xDD);
    }
}

// The first pass with bit-reversed reads, vectorised: the blocks i + t*G
// (t < V) read V adjacent elements, since rev(i + t*G) = rev(i) + rev(t).
template <class T, bool Inv>
void firstPassVec(int m, const int32_t* brev, const Cx<T>* src, Cx<T>* W) {
    constexpr int V = sizeof(T) == 4 ? 8 : 4;
    constexpr int LV = sizeof(T) == 4 ? 3 : 2;
    using CV = CVec<T, V>;
    const int64_t N = int64_t(1) << m;
    uint8_t rv[8];
    for (int t = 0; t < V; ++t) rv[t] = static_cast<uint8_t>(revBits(static_cast<uint32_t>(t), LV));
    if ((m & 1) == 0) {
        const int64_t Q = N >> 4;
        const int64_t G = int64_t(1) << (m - 4 - LV);   // blocks per lane step
        for (int64_t i = 0; i < G; ++i) {
            const Cx<T>* p = src + (brev[4 * i] >> 1);
            CV a[16];
            for (int j = 0; j < 16; ++j) a[j] = CV::load(p + j * Q);
            vdft<T, CV, 16, Inv>(a);
            if constexpr (sizeof(T) == 4) {
                __m512 r0[8], r1[8], t0[8], t1[8];
                for (int q = 0; q < 8; ++q) { r0[q] = a[q].v; r1[q] = a[8 + q].v; }
                transpose8x8<true>(r0, t0);
                transpose8x8<true>(r1, t1);
                for (int l = 0; l < 8; ++l) {
                    float* d = reinterpret_cast<float*>(W + 16 * (i + rv[l] * G));
                    _mm512_storeu_ps(d, t0[l]);
                    _mm512_storeu_ps(d + 16, t1[l]);
                }
            } else {
                __m512d t[4][4];
                for (int h = 0; h < 4; ++h) {
                    __m512d r[4] = {a[4 * h].v, a[4 * h + 1].v, a[4 * h + 2].v, a[4 * h + 3].v};
                    transpose4x4<true>(r, t[h]);
                }
                for (int l = 0; l < 4; ++l) {
                    double* d = reinterpret_cast<double*>(W + 16 * (i + rv[l] * G));
                    for (int h = 0; h < 4; ++h) _mm512_storeu_pd(d + 8 * h, t[h][l]);
                }
            }
        }
    } else {
        const int64_t E = N >> 3;
        const int64_t G = int64_t(1) << (m - 3 - LV);
        for (int64_t i = 0; i < G; ++i) {
            const Cx<T>* p = src + (brev[2 * i] >> 1);
            CV a[8], o[8];
            for (int j = 0; j < 8; ++j) a[j] = CV::load(p + j * E);
            vbfly8<T, CV, Inv>(a, o);
            if constexpr (sizeof(T) == 4) {
                __m512 r[8], t[8];
                for (int q = 0; q < 8; ++q) r[q] = o[q].v;
                transpose8x8<true>(r, t);
                for (int l = 0; l < 8; ++l) _mm512_storeu_ps(reinterpret_cast<float*>(W + 8 * (i + rv[l] * G)), t[l]);
            } else {
                __m512d r0[4] = {o[0].v, o[1].v, o[2].v, o[3].v}, r1[4] = {o[4].v, o[5].v, o[6].v, o[7].v}, t0[4], t1[4];
                transpose4x4<true>(r0, t0);
                transpose4x4<true>(r1, t1);
                for (int l = 0; l < 4; ++l) {
                    double* d = reinterpret_cast<double*>(W + 8 * (i + rv[l] * G));
                    _mm512_storeu_pd(d, t0[l]);
                    _mm512_storeu_pd(d + 8, t1[l]);
                }
            }
        }
    }
}

// The first pass over blocks already in bit-reversed order (rows of the
// large path), vectorised across V blocks: transpose in, butterflies with
// lanes as blocks, transpose out.
template <class T, bool Inv>
void firstPassSeqVec(int m, Cx<T>* W, int64_t i0, int64_t i1) {
    constexpr int V = sizeof(T) == 4 ? 8 : 4;
    using CV = CVec<T, V>;
    const int R = (m & 1) ? 8 : 16;
    static constexpr uint8_t r4[16] = {0, 8, 4, 12, 2, 10, 6, 14, 1, 9, 5, 13, 3, 11, 7, 15};
    static constexpr uint8_t r3[8] = {0, 4, 2, 6, 1, 5, 3, 7};
    for (int64_t i = i0; i < i1; i += V) {
        Cx<T>* p = W + R * i;
        CV e[16], a[16];
        // e[j] lane b = element j of block i + b
        if constexpr (sizeof(T) == 4) {
            for (int h = 0; h < R / 8; ++h) {
                __m512 r[8], t[8];
                for (int b = 0; b < 8; ++b) r[b] = CV::load(p + R * b + 8 * h).v;
                transpose8x8(r, t);
                for (int j = 0; j < 8; ++j) e[8 * h + j].v = t[j];
            }
        } else {
            for (int h = 0; h < R / 4; ++h) {
                __m512d r[4], t[4];
                for (int b = 0; b < 4; ++b) r[b] = CV::load(p + R * b + 4 * h).v;
                transpose4x4(r, t);
                for (int j = 0; j < 4; ++j) e[4 * h + j].v = t[j];
            }
        }
        if (R == 16) {
            for (int j = 0; j < 16; ++j) a[j] = e[r4[j]];
            vdft<T, CV, 16, Inv>(a);
        } else {
            for (int j = 0; j < 8; ++j) a[j] = e[r3[j]];
            vdft<T, CV, 8, Inv>(a);
        }
        if constexpr (sizeof(T) == 4) {
            for (int h = 0; h < R / 8; ++h) {
                __m512 r[8], t[8];
                for (int q = 0; q < 8; ++q) r[q] = a[8 * h + q].v;
                transpose8x8<true>(r, t);
                for (int b = 0; b < 8; ++b) CV{t[b]}.store(p + R * b + 8 * h);
            }
        } else {
            for (int h = 0; h < R / 4; ++h) {
                __m512d r[4], t[4];
                for (int q = 0; q < 4; ++q) r[q] = a[4 * h + q].v;
                transpose4x4<true>(r, t);
                for (int b = 0; b < 4; ++b) CV{t[b]}.store(p + R * b + 4 * h);
            }
        }
    }
}

// One radix-4 pass: blocks of 4S, each from four sub-blocks of S, over
// the group form; the last pass writes interleaved values. Twiddles come in
// the same group form, for j = 1, 2, 3 per group of V.
template <class T, bool Inv, bool Last>
void pass4(const Cx<T>* in, Cx<T>* out, int64_t S, int64_t nBlocks, const Cx<T>* tw) {
    using G = GVec<T>;
    constexpr int V = G::V;
    const T* tf = reinterpret_cast<const T*>(tw);
    const int64_t S2 = 2 * S;
    auto mul = [](G a, const T* w) -> G {
        G x = G::load(w);
        if constexpr (!Inv) return {G::sub(G::mulv(a.re, x.re), G::mulv(a.im, x.im)), G::add(G::mulv(a.im, x.re), G::mulv(a.re, x.im))};
        else return {G::add(G::mulv(a.re, x.re), G::mulv(a.im, x.im)), G::sub(G::mulv(a.im, x.re), G::mulv(a.re, x.im))};
    };
    for (int64_t b = 0; b < nBlocks; ++b) {
        const T* p = reinterpret_cast<const T*>(in + b * 4 * S);
        T* q = reinterpret_cast<T*>(out + b * 4 * S);
        const T* t = tf;
        for (int64_t k = 0; k < S2; k += 2 * V, t += 6 * V) {
            G b0 = G::load(p + k), b1 = G::load(p + k + S2), b2 = G::load(p + k + 2 * S2), b3 = G::load(p + k + 3 * S2);
            G c1 = mul(b1, t + 2 * V), c2 = mul(b2, t), c3 = mul(b3, t + 4 * V);
            G u0{G::add(b0.re, c1.re), G::add(b0.im, c1.im)}, u1{G::sub(b0.re, c1.re), G::sub(b0.im, c1.im)};
            G v0{G::add(c2.re, c3.re), G::add(c2.im, c3.im)}, d{G::sub(c2.re, c3.re), G::sub(c2.im, c3.im)};
            G o0{G::add(u0.re, v0.re), G::add(u0.im, v0.im)}, o2{G::sub(u0.re, v0.re), G::sub(u0.im, v0.im)};
            G o1, o3;
            // u1 -/+ i*d (forward), u1 +/- i*d (inverse)
            if constexpr (!Inv) {
                o1 = {G::add(u1.re, d.im), G::sub(u1.im, d.re)};
                o3 = {G::sub(u1.re, d.im), G::add(u1.im, d.re)};
            } else {
                o1 = {G::sub(u1.re, d.im), G::add(u1.im, d.re)};
                o3 = {G::add(u1.re, d.im), G::sub(u1.im, d.re)};
            }
            if constexpr (Last) {
                o0.storeCx(q + k); o1.storeCx(q + k + S2); o2.storeCx(q + k + 2 * S2); o3.storeCx(q + k + 3 * S2);
            } else {
                o0.store(q + k); o1.store(q + k + S2); o2.store(q + k + 2 * S2); o3.store(q + k + 3 * S2);
            }
        }
    }
}

template <class T, bool Inv>
VRX_INLINE void runPass(const Cx<T>* in, Cx<T>* out, int64_t S, int64_t nBlocks, const Cx<T>* tw, bool last) {
    if (last) pass4<T, Inv, true>(in, out, S, nBlocks, tw);
    else pass4<T, Inv, false>(in, out, S, nBlocks, tw);
}

// The radix engine for order m >= 4: the first pass into W, then the passes,
// chunk by chunk while the blocks fit a chunk, the last pass into out.
template <class T, bool Inv, First F>
void radixRun(int m, const Cx<T>* tw, const int32_t* brev, const Cx<T>* src, const T* sRe, const T* sIm,
              Cx<T>* W, Cx<T>* out) {
    const int64_t N = int64_t(1) << m;
    const int s0 = (m & 1) ? 3 : 4;
    const int64_t R0 = int64_t(1) << s0;
    const int64_t C = N < Limits<T>::kChunk ? N : Limits<T>::kChunk;
    const int logC = __builtin_ctzll(static_cast<unsigned long long>(C));
    const int sLast = m - 2;
    int64_t off = 0;
    int sOuter = s0;
    while (sOuter + 2 <= logC && sOuter <= sLast) sOuter += 2;
    constexpr bool kVecFirst = (F == First::Interleaved);
    if constexpr (kVecFirst) firstPassVec<T, Inv>(m, brev, src, W);
    for (int64_t base = 0; base < N; base += C) {
        if constexpr (F == First::Sequential) firstPassSeqVec<T, Inv>(m, W, base / R0, (base + C) / R0);
        else if constexpr (!kVecFirst) {
            firstPass<T, Inv, F>(m, brev, src, sRe, sIm, W, base / R0, (base + C) / R0);
            toGroups<T>(W + base, C);
        }
        off = 0;
        for (int s = s0; s < sOuter; s += 2) {
            int64_t S = int64_t(1) << s;
            runPass<T, Inv>(W + base, (s == sLast ? out : W) + base, S, C / (4 * S), tw + off, s == sLast);
            off += 3 * S;
        }
    }
    for (int s = sOuter; s <= sLast; s += 2) {
        int64_t S = int64_t(1) << s;
        runPass<T, Inv>(W, s == sLast ? out : W, S, N / (4 * S), tw + off, s == sLast);
        off += 3 * S;
    }
}

template <class T> void scaleCx(Cx<T>* p, int64_t n, T s) {
    T* f = reinterpret_cast<T*>(p);
    for (int64_t i = 0; i < 2 * n; ++i) f[i] *= s;
}

template <class T> VRX_INLINE Cx<T> twAt(const SineTab<T>& st, int64_t j, int ord) {
    T c, s;
    st.cosSin(j, ord, c, s);
    return {c, -s};
}

}  // namespace

template <class T, bool Inv> void radixBlock(int m, const Cx<T>* tw, Cx<T>* p, Cx<T>*) {
    radixRun<T, Inv, First::Sequential>(m, tw, nullptr, nullptr, nullptr, nullptr, p, p);
}

// ------------------------------------------------------------ table builders

template <class T> int64_t radixTwiddleCount(int m) {
    int64_t n = 0;
    for (int s = (m & 1) ? 3 : 4; s <= m - 2; s += 2) n += 3 * (int64_t(1) << s);
    return n;
}

uint8_t* initTabBitRevNorm(int m, int32_t* tab) {
    if (m < 2) return align64(reinterpret_cast<uint8_t*>(tab));
    const int bits = m - 2;
    const int64_t n = int64_t(1) << bits;
    for (int64_t i = 0; i < n; ++i) tab[i] = static_cast<int32_t>(2 * revBits(static_cast<uint32_t>(i), bits));
    tab[n] = 0;
    return align64(reinterpret_cast<uint8_t*>(tab + n + 1));
}

template <class T> void initTabTwdL1(int m, const SineTab<T>& st, Cx<T>* d) {
    for (int s = (m & 1) ? 3 : 4; s <= m - 2; s += 2) {
        const int64_t S = int64_t(1) << s;
        // groups of G real parts then G imaginary parts
        constexpr int G = GVec<T>::V;
        T* f = reinterpret_cast<T*>(d);
        for (int64_t k0 = 0; k0 < S; k0 += G)
            for (int j = 1; j <= 3; ++j) {
                for (int kk = 0; kk < G; ++kk) {
                    Cx<T> w = twAt<T>(st, j * (k0 + kk), s + 2);
                    f[kk] = w.re;
                    f[G + kk] = w.im;
                }
                f += 2 * G;
            }
        d = reinterpret_cast<Cx<T>*>(f);
    }
}


template <class T> int32_t complexWorkSize(int m) {
    if (m <= 6) return 0;
    if (m <= Limits<T>::kRadixLast) return a64(int64_t(sizeof(Cx<T>)) << m);
    return static_cast<int32_t>(largeWorkSize<T>(m));
}


// ------------------------------------------------------------ transform

template <class T, bool Inv>
void complexTransform(const Plan* plan, int m, const T* srcRe, const T* srcIm, T* dstRe, T* dstIm,
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
    if (m > Limits<T>::kRadixLast) {
        largeRun<T, Inv>(plan, m, srcRe, srcIm, dstRe, dstIm, split, scale, work);
        return;
    }
    if constexpr (sizeof(T) == 4) {
        // 128 single-precision points fit the registers: one in-register kernel
        if (m == 7 && !split) {
            const C* s = reinterpret_cast<const C*>(srcRe);
            C* d = reinterpret_cast<C*>(dstRe);
            if (scale != T(0)) smallVec<T, 8, 16, Inv, true>(s, d, scale);
            else smallVec<T, 8, 16, Inv, false>(s, d, scale);
            return;
        }
    }
    const C* tw = static_cast<const C*>(plan->twiddleTab);
    const int32_t* brev = plan->bitRevTab;
    const int64_t N = int64_t(1) << m;
    if (!split) {
        const C* s = reinterpret_cast<const C*>(srcRe);
        C* d = reinterpret_cast<C*>(dstRe);
        C* W = (static_cast<const void*>(s) == static_cast<const void*>(d)) ? reinterpret_cast<C*>(work) : d;
        radixRun<T, Inv, First::Interleaved>(m, tw, brev, s, nullptr, nullptr, W, d);
        if (scale != T(0)) scaleCx(d, N, scale);
    } else {
        C* W = reinterpret_cast<C*>(work);
        radixRun<T, Inv, First::Split>(m, tw, brev, nullptr, srcRe, srcIm, W, W);
        if (scale != T(0)) {
            for (int64_t i = 0; i < N; ++i) { dstRe[i] = W[i].re * scale; dstIm[i] = W[i].im * scale; }
        } else {
            for (int64_t i = 0; i < N; ++i) { dstRe[i] = W[i].re; dstIm[i] = W[i].im; }
        }
    }
}

template <class T, bool Inv> void smallComplex(int m, const Cx<T>* src, Cx<T>* dst, T scale) {
    if (scale != T(0)) smallDispatch<T, Inv, true>(m, src, dst, scale);
    else smallDispatch<T, Inv, false>(m, src, dst, scale);
}

#define VRX_FFT_INSTANTIATE(T)                                                                          \
    template void smallComplex<T, false>(int, const Cx<T>*, Cx<T>*, T);                                \
    template void smallComplex<T, true>(int, const Cx<T>*, Cx<T>*, T);                                 \
    template int64_t radixTwiddleCount<T>(int);                                                        \
    template void initTabTwdL1<T>(int, const SineTab<T>&, Cx<T>*);                                     \
    template int32_t complexWorkSize<T>(int);                                                          \
    template void radixBlock<T, false>(int, const Cx<T>*, Cx<T>*, Cx<T>*);                             \
    template void radixBlock<T, true>(int, const Cx<T>*, Cx<T>*, Cx<T>*);                              \
    template void complexTransform<T, false>(const Plan*, int, const T*, const T*, T*, T*, bool, T, uint8_t*); \
    template void complexTransform<T, true>(const Plan*, int, const T*, const T*, T*, T*, bool, T, uint8_t*);

VRX_FFT_INSTANTIATE(float)
VRX_FFT_INSTANTIATE(double)

}  // namespace n0::fft
