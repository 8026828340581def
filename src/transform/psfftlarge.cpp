// The large path of the complex FFT. Three phases:
//   1. bit reversal tile by tile: a tile of 2^k rows of 2^k elements is
//      gathered into work, reversed in place with the in-tile list, and
//      written to its partner's place;
//   2. every row of 2^sub points transformed by the radix engine (group
//      form result), scaled right away, or the whole procedure one level
//      deeper when the row is too long for the engine alone;
//   3. the outer passes across rows, for one group of w columns at a time
//      gathered into work: radix 8, 8, 4 at block order 8, radix 4, 4 at
//      block order 4, each pass with its factors laid out per column group
//      in the order the passes read them.
// Also the builders and size rules of its tables.
#include "vrx_fft.h"
#include "vrx_fft_pass.h"
#include "vrx_fft_simd.h"
#include "vrx_fft_layout.h"

#include <type_traits>

#pragma GCC diagnostic ignored "-Wuninitialized"

namespace n0::fft {

namespace {


// Out of place up to this order the tiles go straight from the source to
// the destination; above it the source is copied first and reversed in place.
constexpr int kDirectLast = 22;
// Elements per piece of that copy.
constexpr int64_t kCopyPiece = int64_t(1) << 23;

// Copies n bytes, a multiple of 64.
VRX_INLINE void copy64(void* d, const void* s, int64_t n) {
    using Q = simd::V<int64_t>;
    uint8_t* dp = static_cast<uint8_t*>(d);
    const uint8_t* sp = static_cast<const uint8_t*>(s);
    auto at = [](const uint8_t* p) { return reinterpret_cast<const int64_t*>(p); };
    for (int64_t i = 0; i < n; i += 128) {
        const Q::R a = Q::load(at(sp + i));
        if (i + 64 < n) Q::store(reinterpret_cast<int64_t*>(dp + i + 64), Q::load(at(sp + i + 64)));
        Q::store(reinterpret_cast<int64_t*>(dp + i), a);
    }
}

// Fetches n bytes (a multiple of 64) towards the second-level cache.
VRX_INLINE void prefetchRow(const void* p, int64_t n) {
    const char* c = static_cast<const char*>(p);
    for (int64_t i = 0; i < n; i += 64) simd::prefetchL2(c + i);
}

// ------------------------------------------------------------ phase 1

// Units of the bit reversal: the complex element, or one real.
struct U128 { uint64_t a, b; };
template <class T> using CxUnit = typename std::conditional<sizeof(T) == 4, uint64_t, U128>::type;
template <class T> using ReUnit = typename std::conditional<sizeof(T) == 4, uint32_t, uint64_t>::type;

// Two adjacent units (x0, x1) in a register; transpose writes (a0, b0) to
// qa and (a1, b1) to qb. Raw intrinsics: 2 x 2 transposes of 32-, 64- and
// 128-bit units in xmm and ymm registers have no name in the SIMD layer.
template <class U> struct Pair2;
template <> struct Pair2<uint32_t> {
    static VRX_INLINE __m128i load(const uint32_t* p) { return _mm_loadl_epi64(reinterpret_cast<const __m128i*>(p)); }
    static VRX_INLINE void transpose(__m128i a, __m128i b, uint32_t* qa, uint32_t* qb) {
        const __m128d x = _mm_castsi128_pd(_mm_unpacklo_epi32(a, b));
        _mm_storel_pd(reinterpret_cast<double*>(qa), x);
        _mm_storeh_pd(reinterpret_cast<double*>(qb), x);
    }
};
template <> struct Pair2<uint64_t> {
    static VRX_INLINE __m128i load(const uint64_t* p) { return _mm_loadu_si128(reinterpret_cast<const __m128i*>(p)); }
    static VRX_INLINE void transpose(__m128i a, __m128i b, uint64_t* qa, uint64_t* qb) {
        _mm_storeu_si128(reinterpret_cast<__m128i*>(qa), _mm_unpacklo_epi64(a, b));
        _mm_storeu_si128(reinterpret_cast<__m128i*>(qb), _mm_unpackhi_epi64(a, b));
    }
};
template <> struct Pair2<U128> {
    static VRX_INLINE __m256i load(const U128* p) { return _mm256_loadu_si256(reinterpret_cast<const __m256i*>(p)); }
    static VRX_INLINE void transpose(__m256i a, __m256i b, U128* qa, U128* qb) {
        _mm256_storeu_si256(reinterpret_cast<__m256i*>(qa), _mm256_permute2x128_si256(a, b, 0x20));
        _mm256_storeu_si256(reinterpret_cast<__m256i*>(qb), _mm256_permute2x128_si256(a, b, 0x31));
    }
};

// Tiles of K x K units of U (one element: a complex value, or one real of
// split data). The rows of a tile lie rowStride units apart.
template <class U, int K> struct Tile {
    static constexpr int64_t kBytes = int64_t(K) * int64_t(sizeof(U));
    static_assert(kBytes % 64 == 0, "tile rows are whole cache lines");

    // merge: the tile's rows into contiguous memory; the rows of the
    // tile at next (if any) are fetched ahead meanwhile.
    static VRX_INLINE void merge(const U* base, int64_t rowStride, U* t, const U* next, const U* next2 = nullptr) {
        for (int h = 0; h < K; ++h) {
            if (next) prefetchRow(next + h * rowStride, kBytes);
            if (next2) prefetchRow(next2 + h * rowStride, kBytes);
            copy64(t + h * K, base + h * rowStride, kBytes);
        }
    }
    // split: back to rows.
    static VRX_INLINE void split(U* base, int64_t rowStride, const U* t) {
        for (int h = 0; h < K; ++h) copy64(base + h * rowStride, t + h * K, kBytes);
    }
    // reverse: full reversal of the 2k-bit index within the tile. The
    // index is (top bit, middle bits, low bit); list entries are four times
    // a middle value. Pairs (i, r) exchange all four (top, low) combinations
    // with the two bits swapped; self-reversed middles (and middle 0, which
    // the list leaves out) only exchange the two mixed combinations.
    static VRX_INLINE void reverse(U* t, const int32_t* list) {
        using X = Pair2<U>;
        constexpr int64_t H = int64_t(K) * K / 2;
        const int32_t* e = list;
        for (; *e; e += 2) {
            U* pi = t + (e[0] >> 1);
            U* pr = t + (e[1] >> 1);
            const auto a = X::load(pi), b = X::load(pi + H), c = X::load(pr), d = X::load(pr + H);
            X::transpose(a, b, pr, pr + H);
            X::transpose(c, d, pi, pi + H);
        }
        for (++e; *e; ++e) {
            U* pi = t + (e[0] >> 1);
            X::transpose(X::load(pi), X::load(pi + H), pi, pi + H);
        }
        X::transpose(X::load(t), X::load(t + H), t, t + H);
    }
};

// Full bit reversal of 2^m units in place, tile pair by tile pair through
// the two halves of work.
template <class U, int K>
void bitRevInPlace(U* d, int m, const int32_t* tab, const int32_t* list, U* work) {
    using TL = Tile<U, K>;
    constexpr int k = __builtin_ctz(K);
    const int64_t rowStride = int64_t(1) << (m - k);
    const int64_t nTiles = int64_t(1) << (m - 2 * k);
    U* A = work;
    U* B = work + K * K;
    // the next tile pair that has work to do
    auto nextPair = [&](int64_t i) {
        for (++i; i < nTiles && tab[i] < (i << k); ++i) {}
        return i;
    };
    for (int64_t i = nextPair(-1); i < nTiles;) {
        const int64_t a = i << k, b = tab[i];
        const int64_t ni = nextPair(i);
        const U* na = ni < nTiles ? d + (ni << k) : nullptr;
        const U* nb = ni < nTiles && tab[ni] != (ni << k) ? d + tab[ni] : nullptr;
        i = ni;
        if (b > a) {
            TL::merge(d + a, rowStride, A, na);
            TL::merge(d + b, rowStride, B, nb);
            TL::reverse(A, list);
            TL::reverse(B, list);
            TL::split(d + a, rowStride, B);
            TL::split(d + b, rowStride, A);
        } else {
            TL::merge(d + a, rowStride, A, na, nb);
            TL::reverse(A, list);
            TL::split(d + a, rowStride, A);
        }
    }
}

// Full bit reversal of 2^m units from src to dst (different arrays).
template <class U, int K>
void bitRevOutOfPlace(const U* s, U* d, int m, const int32_t* tab, const int32_t* list, U* work) {
    using TL = Tile<U, K>;
    constexpr int k = __builtin_ctz(K);
    if (m > kDirectLast) {
        const int64_t n = int64_t(1) << m;
        for (int64_t i = 0; i < n; i += kCopyPiece) {
            const int64_t len = n - i < kCopyPiece ? n - i : kCopyPiece;
            N0(vrxsCopy_8u)(reinterpret_cast<const Vrx8u*>(s + i), reinterpret_cast<Vrx8u*>(d + i),
                            static_cast<int>(len * int64_t(sizeof(U))));
        }
        bitRevInPlace<U, K>(d, m, tab, list, work);
        return;
    }
    const int64_t rowStride = int64_t(1) << (m - k);
    const int64_t nTiles = int64_t(1) << (m - 2 * k);
    for (int64_t i = 0; i < nTiles; ++i) {
        TL::merge(s + tab[i], rowStride, work, i + 1 < nTiles ? s + tab[i + 1] : nullptr);
        TL::reverse(work, list);
        TL::split(d + (i << k), rowStride, work);
    }
}

template <class U, int K>
void bitRev(const U* s, U* d, int m, const int32_t* tab, U* work) {
    const int32_t* list = tab + (int64_t(1) << (m - 2 * __builtin_ctz(K)));
    if (s == d) bitRevInPlace<U, K>(d, m, tab, list, work);
    else bitRevOutOfPlace<U, K>(s, d, m, tab, list, work);
}


// ------------------------------------------------------------ phases 2 and 3

// a*x (forward) or a*conj(x) (inverse), both in the group form

// The last radix-4 pass of a column group, where one block remains: S
// positions per sub-block (slots j = 0, 2, 1, 3). Position p of the upper
// half (p >= S/2) has the factors of p - S/2 times exp(-2*pi*i*j/8), so the
// table holds the lower half only: for each group of V positions, V real and
// V imaginary parts of w^k, then of w^2k; w^3k is their product.
template <class T, bool Inv, Out O>
void passLast4(const Cx<T>* in, Cx<T>* out, T* re, T* im, int64_t S, const Cx<T>* tw, T sqrtHalf) {
    using P = GOps<T>;
    using G = typename P::G;
    constexpr int V = P::V;
    const T* t = reinterpret_cast<const T*>(tw);
    const T* src = reinterpret_cast<const T*>(in);
    T* dst = reinterpret_cast<T*>(out);
    const int64_t H = S / 2;
    for (int64_t k = 0; k < H; k += V, t += 4 * V) {
        const G f1 = G::load(t), f2 = G::load(t + 2 * V);
        const G f3 = GOps<T>::template mulG<false>(f1, f2);
        {
            const T* p = src + 2 * k;
            G b0 = G::load(p), b1 = G::load(p + 2 * S), b2 = G::load(p + 4 * S), b3 = G::load(p + 6 * S);
            G c1 = GOps<T>::template mulG<Inv>(b1, f2), c2 = GOps<T>::template mulG<Inv>(b2, f1), c3 = GOps<T>::template mulG<Inv>(b3, f3);
            G u0 = P::add(b0, c1), u1 = P::sub(b0, c1), v0 = P::add(c2, c3), d = P::sub(c2, c3);
            P::template put<O>(P::add(u0, v0), dst, re, im, k);
            P::template put<O>(P::template addRot<Inv>(u1, d), dst, re, im, k + S);
            P::template put<O>(P::sub(u0, v0), dst, re, im, k + 2 * S);
            P::template put<O>(P::template subRot<Inv>(u1, d), dst, re, im, k + 3 * S);
        }
        {
            // y_j = z_j * exp(-2*pi*i*j/8): y2 = -i z2, y1 + y3 and y1 - y3
            // as one eighth-turn of z1 -+ i z3
            const int64_t e = k + H;
            const T* p = src + 2 * e;
            G b0 = G::load(p), b1 = G::load(p + 2 * S), b2 = G::load(p + 4 * S), b3 = G::load(p + 6 * S);
            G z2 = GOps<T>::template mulG<Inv>(b1, f2), z1 = GOps<T>::template mulG<Inv>(b2, f1), z3 = GOps<T>::template mulG<Inv>(b3, f3);
            G u0 = P::template addRot<Inv>(b0, z2), u1 = P::template subRot<Inv>(b0, z2);
            G v0 = P::template w8<Inv>(P::template addRot<Inv>(z1, z3), sqrtHalf);
            G d = P::template w8<Inv>(P::template subRot<Inv>(z1, z3), sqrtHalf);
            P::template put<O>(P::add(u0, v0), dst, re, im, e);
            P::template put<O>(P::template addRot<Inv>(u1, d), dst, re, im, e + S);
            P::template put<O>(P::sub(u0, v0), dst, re, im, e + 2 * S);
            P::template put<O>(P::template subRot<Inv>(u1, d), dst, re, im, e + 3 * S);
        }
    }
}


// Where the data lives: interleaved (cx, in T units) or split arrays.
// Positions count complex values.
template <class T> struct Data {
    T* cx;
    T* re;
    T* im;
};

// n split values (a multiple of V) to ordinary interleaved complex.
template <class T> VRX_INLINE void interleave(const T* re, const T* im, T* d, int64_t n) {
    using G = GVec<T>;
    constexpr int V = G::V;
    for (int64_t i = 0; i < n; i += V) G{G::loadHalf(re + i), G::loadHalf(im + i)}.storeCx(d + 2 * i);
}
// n split values into the group form, and back.
template <class T> VRX_INLINE void toGroups(const T* re, const T* im, T* d, int64_t n) {
    using G = GVec<T>;
    constexpr int V = G::V;
    for (int64_t i = 0; i < n; i += V) {
        G::storeHalf(d + 2 * i, G::loadHalf(re + i));
        G::storeHalf(d + 2 * i + V, G::loadHalf(im + i));
    }
}
template <class T> VRX_INLINE void fromGroups(const T* s, T* re, T* im, int64_t n) {
    using G = GVec<T>;
    constexpr int V = G::V;
    for (int64_t i = 0; i < n; i += V) {
        G::storeHalf(re + i, G::loadHalf(s + 2 * i));
        G::storeHalf(im + i, G::loadHalf(s + 2 * i + V));
    }
}

// One level of order m over the 2^m points from position base: rows, then
// the outer passes. Work is 64-byte aligned.
template <class T, bool Inv>
void largeLevel(const Plan* plan, int m, int level, const Data<T>& dt, int64_t base, T* work, T scale) {
    using C = Cx<T>;
    if (level > 1) __builtin_unreachable();  // the largest orders need two levels
    const int blk = blockOrder<T>(m);
    const int sub = m - blk;
    const int64_t rows = int64_t(1) << blk, rowLen = int64_t(1) << sub;
    const C* tw = static_cast<const C*>(plan->twiddleTab);
    C* cw = reinterpret_cast<C*>(work);

    // phase 2: the rows
    for (int64_t r = 0; r < rows; ++r) {
        const int64_t at = base + r * rowLen;
        if (sub > Limits<T>::kRadixLast) {
            largeLevel<T, Inv>(plan, sub, level + 1, dt, at, work, scale);
        } else if (dt.cx) {
            T* row = dt.cx + 2 * at;
            radixBlock<T, Inv>(sub, tw, reinterpret_cast<C*>(row), cw);
            if (scale != T(0)) scaleBy<T>(row, 2 * rowLen, scale);
        } else {
            interleave<T>(dt.re + at, dt.im + at, work, rowLen);
            radixBlock<T, Inv>(sub, tw, cw, cw);
            fromGroups<T>(work, dt.re + at, dt.im + at, rowLen);
            if (scale != T(0)) {
                scaleBy<T>(dt.re + at, rowLen, scale);
                scaleBy<T>(dt.im + at, rowLen, scale);
            }
        }
    }

    // phase 3: the outer passes, column group by column group
    const C* step = static_cast<const C*>(plan->stepTab[level]);
    const int64_t w = int64_t(1) << (bufferOrder<T>(m) - blk);
    const T sh = sqrtHalf<T>();
    // factors of one column group, and the share of the next group's that
    // each row's merge fetches ahead
    const int64_t perGroup = stepGroupCount<T>(m);
    const int64_t tabBytes = perGroup * int64_t(sizeof(C));
    const int64_t tabShare = ((tabBytes / rows) + 63) & ~int64_t(63);
    const int64_t rowBytes = 2 * w * int64_t(sizeof(T));
    // The data fetched ahead: at block order 4 the group after next, half
    // of its rows while this group is merged and half after its first
    // pass, so that the fetches overlap the passes; at block order 8 the
    // next group while this one is merged.
    const int64_t dist = blk == 4 ? 2 : 1;
    const int64_t early = blk == 4 ? rows / 2 : rows;
    for (int64_t c0 = 0; c0 < rowLen; c0 += w) {
        const bool fetch = c0 + dist * w < rowLen;
        auto fetchRow = [&](int64_t r) {
            const int64_t at = base + r * rowLen + c0 + dist * w;
            if (dt.cx) prefetchRow(dt.cx + 2 * at, rowBytes);
            else {
                prefetchRow(dt.re + at, rowBytes / 2);
                prefetchRow(dt.im + at, rowBytes / 2);
            }
        };
        // merge the group into work
        const bool ahead = c0 + w < rowLen;
        const char* nextTab = reinterpret_cast<const char*>(step + perGroup);
        for (int64_t r = 0; r < rows; ++r) {
            const int64_t at = base + r * rowLen + c0;
            if (ahead && r * tabShare < tabBytes) prefetchRow(nextTab + r * tabShare, tabShare);
            if (fetch && r < early) fetchRow(r);
            if (dt.cx) copy64(work + 2 * r * w, dt.cx + 2 * at, rowBytes);
            else toGroups<T>(dt.re + at, dt.im + at, work + 2 * r * w, w);
        }
        int64_t c = w;
        for (int t = 0; t < blk;) {
            if (t == 2 && fetch)  // after the first pass at block order 4
                for (int64_t r = early; r < rows; ++r) fetchRow(r);
            if (blk == t + 2) {
                // level 0, interleaved data: ordinary complex values again
                if (dt.cx && level == 0) passLast4<T, Inv, Out::Cx>(cw, cw, nullptr, nullptr, c, step, sh);
                else passLast4<T, Inv, Out::Group>(cw, cw, nullptr, nullptr, c, step, sh);
                step += c;
                t += 2;
            } else if (blk == t + 4 || blk == t + 6) {
                pass4<T, Inv, Out::Group>(cw, cw, nullptr, nullptr, c, rows >> (t + 2), step);
                step += 3 * c;
                c *= 4;
                t += 2;
            } else {
                pass8<T, Inv, Out::Group>(cw, cw, nullptr, nullptr, c, rows >> (t + 3), step, sh);
                step += 7 * c;
                c *= 8;
                t += 3;
            }
        }
        // split it back: at level 0 the last pass has interleaved the values
        // again, deeper the group form stays (the same bytes either way);
        // split data goes back to its two arrays
        for (int64_t r = 0; r < rows; ++r) {
            const int64_t at = base + r * rowLen + c0;
            if (dt.cx) copy64(dt.cx + 2 * at, work + 2 * r * w, rowBytes);
            else fromGroups<T>(work + 2 * r * w, dt.re + at, dt.im + at, w);
        }
    }
}

}  // namespace

template <class T, bool Inv>
void largeRun(const Plan* plan, int m, const T* srcRe, const T* srcIm, T* dstRe, T* dstIm, bool split,
              T scale, uint8_t* work) {
    constexpr int K = 1 << Limits<T>::kTileOrder;
    const int32_t* tab = plan->bitRevTab;
    if (!split) {
        using U = CxUnit<T>;
        bitRev<U, K>(reinterpret_cast<const U*>(srcRe), reinterpret_cast<U*>(dstRe), m, tab,
                     reinterpret_cast<U*>(work));
        largeLevel<T, Inv>(plan, m, 0, Data<T>{dstRe, nullptr, nullptr}, 0, reinterpret_cast<T*>(work), scale);
    } else {
        using U = ReUnit<T>;
        bitRev<U, K>(reinterpret_cast<const U*>(srcRe), reinterpret_cast<U*>(dstRe), m, tab,
                     reinterpret_cast<U*>(work));
        bitRev<U, K>(reinterpret_cast<const U*>(srcIm), reinterpret_cast<U*>(dstIm), m, tab,
                     reinterpret_cast<U*>(work));
        largeLevel<T, Inv>(plan, m, 0, Data<T>{nullptr, dstRe, dstIm}, 0, reinterpret_cast<T*>(work), scale);
    }
}

// ------------------------------------------------------------ tables

namespace {


// Factors of one pass for positions p (q = p / w rows down, column c0 +
// p % w): w_ord^(j*k) with k = c0 + p % w + 2^sub * q, for j = js[0 ..
// nj-1], for each group of V positions V real parts then V imaginary parts.
template <class T>
T* stepFactors(T* f, const SineTab<T>& st, int64_t c0, int64_t w, int sub, int ord, int64_t positions,
               const int* js, int nj) {
    constexpr int V = GVec<T>::V;
    for (int64_t p0 = 0; p0 < positions; p0 += V)
        for (int ji = 0; ji < nj; ++ji) {
            for (int l = 0; l < V; ++l) {
                const int64_t p = p0 + l;
                const int64_t k = c0 + p % w + (p / w << sub);
                const Cx<T> v = twAt<T>(st, js[ji] * k, ord);
                f[l] = v.re;
                f[V + l] = v.im;
            }
            f += 2 * V;
        }
    return f;
}

// The tables of a level of order m: the deepest level's twiddle table,
// then this level's step table, both placed by planLayout.
template <class T> void buildStep(const Plan* plan, int m, int level, const SineTab<T>& st) {
    const int blk = blockOrder<T>(m);
    const int sub = m - blk;
    if (sub > Limits<T>::kRadixLast) buildStep<T>(plan, sub, level + 1, st);
    else initTabTwdL1<T>(sub, st, static_cast<Cx<T>*>(plan->twiddleTab));
    T* f = static_cast<T*>(plan->stepTab[level]);
    static constexpr int kJ[7] = {1, 2, 3, 4, 5, 6, 7};
    const int64_t rowLen = int64_t(1) << sub;
    const int64_t w = int64_t(1) << (bufferOrder<T>(m) - blk);
    for (int64_t c0 = 0; c0 < rowLen; c0 += w) {
        int64_t c = w;
        for (int t = 0; t < blk;) {
            if (blk == t + 2) {
                f = stepFactors<T>(f, st, c0, w, sub, m, c / 2, kJ, 2);
                t += 2;
            } else {
                const int tl = outerRadixLog(blk, t);
                f = stepFactors<T>(f, st, c0, w, sub, sub + t + tl, c, kJ, (1 << tl) - 1);
                c <<= tl;
                t += tl;
            }
        }
    }
}

}  // namespace

template <class T> void initTabTwdLarge(const Plan* plan, int m, const SineTab<T>& st) {
    const int k = Limits<T>::kTileOrder;
    int32_t* tab = plan->bitRevTab;
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
    buildStep<T>(plan, m, 0, st);
}

#define VRX_FFT_LARGE_INSTANTIATE(T)                                                                    \
    template void initTabTwdLarge<T>(const Plan*, int, const SineTab<T>&);                             \
    template void largeRun<T, false>(const Plan*, int, const T*, const T*, T*, T*, bool, T, uint8_t*);  \
    template void largeRun<T, true>(const Plan*, int, const T*, const T*, T*, T*, bool, T, uint8_t*);

VRX_FFT_LARGE_INSTANTIATE(float)
VRX_FFT_LARGE_INSTANTIATE(double)

}  // namespace n0::fft
