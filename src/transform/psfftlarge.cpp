// The large path of the complex FFT: tile bit reversal, row transforms by
// the radix engine, and outer passes over groups of columns, recursing while
// the rows are too long for the radix engine alone. Also the builders and
// size rules of its tables.
#include "vrx_fft.h"
#include "vrx_fft_simd.h"

#pragma GCC diagnostic ignored "-Wuninitialized"

namespace n0::fft {

namespace {

VRX_INLINE uint32_t revBits(uint32_t x, int bits) {
    if (bits <= 0) return 0;
    x = ((x >> 1) & 0x55555555u) | ((x & 0x55555555u) << 1);
    x = ((x >> 2) & 0x33333333u) | ((x & 0x33333333u) << 2);
    x = ((x >> 4) & 0x0F0F0F0Fu) | ((x & 0x0F0F0F0Fu) << 4);
    x = __builtin_bswap32(x);
    return x >> (32 - bits);
}

// Interleaved values again from the group form the row transform leaves.
template <class T> void fromGroups(Cx<T>* p, int64_t n) {
    T* f = reinterpret_cast<T*>(p);
    constexpr int V = GVec<T>::V;
    for (int64_t i = 0; i < 2 * n; i += 2 * V) GVec<T>::load(f + i).storeCx(f + i);
}

template <class T> void scaleCx(Cx<T>* p, int64_t n, T s) {
    T* f = reinterpret_cast<T*>(p);
    for (int64_t i = 0; i < 2 * n; ++i) f[i] *= s;
}
// ------------------------------------------------------------ large path

// Where the data of the large path lives: interleaved, or split arrays.
template <class T> struct Store {
    Cx<T>* cx;
    T* re;
    T* im;
    VRX_INLINE void gather(int64_t idx, int64_t n, Cx<T>* d) const {
        if (cx) memcpy(d, cx + idx, static_cast<size_t>(n) * sizeof(Cx<T>));
        else for (int64_t i = 0; i < n; ++i) d[i] = {re[idx + i], im[idx + i]};
    }
    VRX_INLINE void scatter(int64_t idx, int64_t n, const Cx<T>* s) const {
        if (cx) memcpy(cx + idx, s, static_cast<size_t>(n) * sizeof(Cx<T>));
        else for (int64_t i = 0; i < n; ++i) { re[idx + i] = s[i].re; im[idx + i] = s[i].im; }
    }
};

// Bit reversal of 2^m elements of type E through tiles of 2^k x 2^k: the
// index (hi, mid, lo) goes to (rev lo, rev mid, rev hi). tileTab[i] holds
// rev(i) << k for the middle bits.
template <class E>
void bitRevTiles(const E* src, E* dst, int m, int k, const int32_t* tileTab, E* buf) {
    const int64_t K = int64_t(1) << k;
    const int64_t rowStride = int64_t(1) << (m - k);
    const int64_t nTiles = int64_t(1) << (m - 2 * k);
    uint8_t rk[64];
    for (int i = 0; i < K; ++i) rk[i] = static_cast<uint8_t>(revBits(static_cast<uint32_t>(i), k));
    E* A = buf;
    E* B = buf + K * K;
    auto gatherTile = [&](const E* base, int64_t tileOff, E* t) {
        for (int64_t h = 0; h < K; ++h) memcpy(t + h * K, base + h * rowStride + tileOff, static_cast<size_t>(K) * sizeof(E));
    };
    auto writeTile = [&](E* base, int64_t tileOff, const E* t) {
        for (int64_t h = 0; h < K; ++h) {
            E* row = base + h * rowStride + tileOff;
            const E* col = t + rk[h];
            for (int64_t l = 0; l < K; ++l) row[l] = col[rk[l] * K];
        }
    };
    for (int64_t i = 0; i < nTiles; ++i) {
        int64_t a = i << k, b = tileTab[i];
        if (src != dst) {
            gatherTile(src, b, A);
            writeTile(dst, a, A);
        } else if (b > a) {
            gatherTile(dst, a, A);
            gatherTile(dst, b, B);
            writeTile(dst, a, B);
            writeTile(dst, b, A);
        } else if (b == a) {
            gatherTile(dst, a, A);
            writeTile(dst, a, A);
        }
    }
}

// Layout of a level's step table: for each stage t < blk, W_{2^(sub+t+1)}^c
// for c < 2^sub; then W_{2^blk}^j for j < 2^(blk-1).
template <class T> int64_t stepCount(int blk, int sub) { return int64_t(blk) * (int64_t(1) << sub) + (int64_t(1) << (blk - 1)); }

// Widest column group of the large path's outer passes.
constexpr int64_t kMaxCols = 64;

VRX_INLINE void splitDup(CVec<float, 8> w, CVec<float, 8>& wr, CVec<float, 8>& wi) {
    wr.v = _mm512_moveldup_ps(w.v);
    wi.v = _mm512_movehdup_ps(w.v);
}
VRX_INLINE void splitDup(CVec<double, 4> w, CVec<double, 4>& wr, CVec<double, 4>& wi) {
    wr.v = _mm512_movedup_pd(w.v);
    wi.v = _mm512_permute_pd(w.v, 0xFF);
}

template <class T, bool Inv>
void largeLevel(const Plan* plan, int m, int level, const Store<T>& st, int64_t base, Cx<T>* work, T scale) {
    const int blk = blockOrder<T>(m);
    const int sub = m - blk;
    const int64_t rows = int64_t(1) << blk, rowLen = int64_t(1) << sub;
    const Cx<T>* tw = static_cast<const Cx<T>*>(plan->twiddleTab);
    // rows
    for (int64_t r = 0; r < rows; ++r) {
        int64_t at = base + r * rowLen;
        if (sub > Limits<T>::kRadixLast) {
            largeLevel<T, Inv>(plan, sub, level + 1, st, at, work, scale);
            continue;
        }
        Cx<T>* row;
        if (st.cx) row = st.cx + at;
        else { row = work; st.gather(at, rowLen, row); }
        radixBlock<T, Inv>(sub, tw, row, work);
        fromGroups<T>(row, rowLen);
        if (scale != T(0)) scaleCx(row, rowLen, scale);
        if (!st.cx) st.scatter(at, rowLen, row);
    }
    // outer passes over groups of columns
    const Cx<T>* step = static_cast<const Cx<T>*>(plan->stepTab[level]);
    const Cx<T>* small = step + int64_t(blk) * rowLen;
    constexpr int V = sizeof(T) == 4 ? 8 : 4;
    using CV = CVec<T, V>;
    const int64_t w = int64_t(1) << (bufferOrder<T>(m) - blk);
    CV twr[kMaxCols / V], twi[kMaxCols / V];
    for (int64_t c0 = 0; c0 < rowLen; c0 += w) {
        for (int64_t r = 0; r < rows; ++r) st.gather(base + r * rowLen + c0, w, work + r * w);
        for (int t = 0; t < blk; ++t) {
            const int64_t half = int64_t(1) << t;
            const Cx<T>* stg = step + int64_t(t) * rowLen + c0;
            for (int64_t rp = 0; rp < half; ++rp) {
                Cx<T> f = small[rp << (blk - t - 1)];
                Cx<T> fv[V];
                for (int i = 0; i < V; ++i) fv[i] = f;
                CV F = CV::load(fv);
                // the factors of this row pair, once for all its groups, as
                // duplicated real parts and imaginary parts
                for (int64_t cc = 0; cc < w; cc += V) {
                    CV tv = CV::template mul<false>(CV::load(stg + cc), F);
                    splitDup(tv, twr[cc / V], twi[cc / V]);
                }
                for (int64_t g = 0; g < rows; g += 2 * half) {
                    Cx<T>* pa = work + (g + rp) * w;
                    Cx<T>* pb = work + (g + rp + half) * w;
                    for (int64_t cc = 0; cc < w; cc += V) {
                        CV a = CV::load(pa + cc);
                        CV bt = CV::template mulSplit<Inv>(CV::load(pb + cc), twr[cc / V], twi[cc / V]);
                        (a + bt).store(pa + cc);
                        (a - bt).store(pb + cc);
                    }
                }
            }
        }
        for (int64_t r = 0; r < rows; ++r) st.scatter(base + r * rowLen + c0, w, work + r * w);
    }
}

}  // namespace

template <class T, bool Inv>
void largeRun(const Plan* plan, int m, const T* srcRe, const T* srcIm, T* dstRe, T* dstIm, bool split,
              T scale, uint8_t* work) {
    const int k = Limits<T>::kTileOrder;
    const int32_t* tiles = plan->bitRevTab;
    if (!split) {
        using E = Cx<T>;
        bitRevTiles<E>(reinterpret_cast<const E*>(srcRe), reinterpret_cast<E*>(dstRe), m, k, tiles,
                       reinterpret_cast<E*>(work));
        Store<T> st{reinterpret_cast<Cx<T>*>(dstRe), nullptr, nullptr};
        largeLevel<T, Inv>(plan, m, 0, st, 0, reinterpret_cast<Cx<T>*>(work), scale);
    } else {
        bitRevTiles<T>(srcRe, dstRe, m, k, tiles, reinterpret_cast<T*>(work));
        bitRevTiles<T>(srcIm, dstIm, m, k, tiles, reinterpret_cast<T*>(work));
        Store<T> st{nullptr, dstRe, dstIm};
        largeLevel<T, Inv>(plan, m, 0, st, 0, reinterpret_cast<Cx<T>*>(work), scale);
    }
}

namespace {

template <class T> VRX_INLINE Cx<T> twAt(const SineTab<T>& st, int64_t j, int ord) {
    T c, s;
    st.cosSin(j, ord, c, s);
    return {c, -s};
}

template <class T> uint8_t* buildStep(Plan* plan, int m, int level, const SineTab<T>& st, uint8_t* p) {
    const int blk = blockOrder<T>(m);
    const int sub = m - blk;
    if (sub > Limits<T>::kRadixLast) {
        p = buildStep<T>(plan, sub, level + 1, st, p);
    } else {
        p = align64(p);
        plan->twiddleTab = p;
        initTabTwdL1<T>(sub, st, reinterpret_cast<Cx<T>*>(p));
        p += radixTwiddleCount<T>(sub) * int64_t(sizeof(Cx<T>));
    }
    p = align64(p);
    plan->stepTab[level] = p;
    Cx<T>* d = reinterpret_cast<Cx<T>*>(p);
    const int64_t rowLen = int64_t(1) << sub;
    for (int t = 0; t < blk; ++t)
        for (int64_t c = 0; c < rowLen; ++c) *d++ = twAt<T>(st, c, sub + t + 1);
    for (int64_t j = 0; j < (int64_t(1) << (blk - 1)); ++j) *d++ = twAt<T>(st, j, blk);
    return reinterpret_cast<uint8_t*>(d);
}

}  // namespace

template <class T> uint8_t* initTabTwdLarge(Plan* plan, int m, const SineTab<T>& st, uint8_t* p) {
    const int k = Limits<T>::kTileOrder;
    int32_t* tab = reinterpret_cast<int32_t*>(p);
    plan->bitRevTab = tab;
    const int bits = m - 2 * k;
    const int64_t nT = int64_t(1) << bits;
    for (int64_t i = 0; i < nT; ++i) tab[i] = static_cast<int32_t>(revBits(static_cast<uint32_t>(i), bits) << k);
    // the in-tile list: pairs (4i, 4r) of the middle 2k-2 bits with i < r at
    // the front closed by 0, self-reversed singles from the back
    int32_t* list = tab + nT;
    const int nb = 2 * k - 2;
    const int64_t n = int64_t(1) << nb;
    int64_t front = 0, back = n - 1;
    for (int64_t i = 1; i < n; ++i) {
        int64_t r = revBits(static_cast<uint32_t>(i), nb);
        if (i < r) { list[front++] = static_cast<int32_t>(4 * i); list[front++] = static_cast<int32_t>(4 * r); }
        else if (i == r) list[back--] = static_cast<int32_t>(4 * i);
    }
    list[front] = 0;
    list[n] = 0;
    p = reinterpret_cast<uint8_t*>(list + n + 1);
    return buildStep<T>(plan, m, 0, st, p);
}

namespace {
template <class T> void largeSizes(int m, bool top, int64_t& s, int64_t& w) {
    const int64_t e = sizeof(Cx<T>);
    const int blk = blockOrder<T>(m), buf = bufferOrder<T>(m);
    if (m - blk <= Limits<T>::kRadixLast) {
        s = a64(e * (int64_t(1) << (m - blk)) + e);
        w = a64(e * (int64_t(1) << (m - blk)));
    } else {
        largeSizes<T>(m - blk, false, s, w);
    }
    s += e * (int64_t(1) << (m - 1));
    if (w < (e << buf)) w = e << buf;
    if (top) {
        if (sizeof(T) == 4) { s += 4 * (int64_t(1) << (m - 12)) + 4160; if (w < 65536) w = 65536; }
        else { s += 4 * (int64_t(1) << (m - 10)) + 1088; if (w < 32768) w = 32768; }
    }
}
}  // namespace

template <class T> int64_t largeSpecSize(int m) { int64_t s, w; largeSizes<T>(m, true, s, w); return s; }
template <class T> int64_t largeWorkSize(int m) { int64_t s, w; largeSizes<T>(m, true, s, w); return w; }

#define VRX_FFT_LARGE_INSTANTIATE(T)                                                                    \
    template uint8_t* initTabTwdLarge<T>(Plan*, int, const SineTab<T>&, uint8_t*);                     \
    template int64_t largeSpecSize<T>(int);                                                            \
    template int64_t largeWorkSize<T>(int);                                                            \
    template void largeRun<T, false>(const Plan*, int, const T*, const T*, T*, T*, bool, T, uint8_t*);  \
    template void largeRun<T, true>(const Plan*, int, const T*, const T*, T*, T*, bool, T, uint8_t*);

VRX_FFT_LARGE_INSTANTIATE(float)
VRX_FFT_LARGE_INSTANTIATE(double)

}  // namespace n0::fft
