// Sorting kernels shared by the comparison (pssort.cpp) and the buffered
// (pssortradix.cpp) entries.
//
// Every element type is sorted through an unsigned key of its own width
// whose unsigned order is the order wanted:
//   unsigned types   key = x
//   signed types     key = x ^ sign bit
//   floats           key = bits ^ (sign ? all ones : sign bit)   (IEEE total order:
//                    -NaN < -inf < ... < -0 < +0 < ... < +inf < +NaN)
//   descending       key = ~key
// The map is a bijection on bit patterns, so equal keys are equal elements
// and every form gives the same bits whatever algorithm it runs.
//
// 32- and 64-bit keys: an in-place quicksort whose partition packs lanes
// with compress stores, a sorting network in registers below 4 registers'
// worth, heapsort past a depth limit. The index forms carry the index
// array along and compare (key, index): all pairs differ, so the order is
// total and the result is the stable one whatever the partition does.
// 8- and 16-bit keys: counting. 32- and 64-bit keys with a buffer: one
// most-significant-digit pass into the buffer, then the quicksort on each
// bucket.
#pragma once

#include <string.h>

#include <type_traits>

#include "simd/simd.h"

namespace n0::sortk {

using simd::V;

VRX_INLINE size_t round64(size_t v) { return (v + 63) & ~size_t(63); }

// ------------------------------------------------------------------ keys

template <class T> struct KeyOf;
template <> struct KeyOf<Vrx8u>  { using K = uint8_t;  static constexpr bool kFlt = false; static constexpr K kXor = 0; };
template <> struct KeyOf<Vrx16u> { using K = uint16_t; static constexpr bool kFlt = false; static constexpr K kXor = 0; };
template <> struct KeyOf<Vrx16s> { using K = uint16_t; static constexpr bool kFlt = false; static constexpr K kXor = 0x8000; };
template <> struct KeyOf<Vrx32u> { using K = uint32_t; static constexpr bool kFlt = false; static constexpr K kXor = 0; };
template <> struct KeyOf<Vrx32s> { using K = uint32_t; static constexpr bool kFlt = false; static constexpr K kXor = 0x80000000u; };
template <> struct KeyOf<Vrx32f> { using K = uint32_t; static constexpr bool kFlt = true;  static constexpr K kXor = 0x80000000u; };
template <> struct KeyOf<Vrx64f> { using K = uint64_t; static constexpr bool kFlt = true;  static constexpr K kXor = 0x8000000000000000ull; };

template <class K> inline constexpr K kSign = static_cast<K>(K(1) << (sizeof(K) * 8 - 1));

// Scalar key of a bit pattern b and back.
template <class T, bool kDesc>
VRX_INLINE typename KeyOf<T>::K toKey(typename KeyOf<T>::K b) {
    using K = typename KeyOf<T>::K;
    using S = std::make_signed_t<K>;
    K k;
    if constexpr (KeyOf<T>::kFlt) k = b ^ (static_cast<K>(static_cast<S>(b) >> (sizeof(K) * 8 - 1)) | kSign<K>);
    else k = static_cast<K>(b ^ KeyOf<T>::kXor);
    if constexpr (kDesc) k = static_cast<K>(~k);
    return k;
}
template <class T, bool kDesc>
VRX_INLINE typename KeyOf<T>::K fromKey(typename KeyOf<T>::K k) {
    using K = typename KeyOf<T>::K;
    using S = std::make_signed_t<K>;
    if constexpr (kDesc) k = static_cast<K>(~k);
    if constexpr (KeyOf<T>::kFlt) return k ^ (static_cast<K>(static_cast<S>(static_cast<K>(~k)) >> (sizeof(K) * 8 - 1)) | kSign<K>);
    else return static_cast<K>(k ^ KeyOf<T>::kXor);
}

// The same over registers of 32- or 64-bit patterns.
template <class T, bool kDesc, bool kInverse>
VRX_INLINE __m512i mapKeys(__m512i v) {
    using K = typename KeyOf<T>::K;
    using U = V<K>;
    using S = V<std::make_signed_t<K>>;
    const __m512i ones = U::set1(static_cast<K>(~K(0)));
    if constexpr (kInverse && kDesc) v = U::xorb(v, ones);
    if constexpr (KeyOf<T>::kFlt) {
        __m512i s = kInverse ? S::template shr<sizeof(K) * 8 - 1>(U::xorb(v, ones)) : S::template shr<sizeof(K) * 8 - 1>(v);
        v = U::xorb(v, U::orb(s, U::set1(kSign<K>)));
    } else if constexpr (KeyOf<T>::kXor != 0) {
        v = U::xorb(v, U::set1(KeyOf<T>::kXor));
    }
    if constexpr (!kInverse && kDesc) v = U::xorb(v, ones);
    return v;
}

// d[i] = map(s[i]) over n 32- or 64-bit patterns (d may be s).
template <class T, bool kDesc, bool kInverse>
void mapArray(const typename KeyOf<T>::K* s, typename KeyOf<T>::K* d, size_t n) {
    using K = typename KeyOf<T>::K;
    using U = V<K>;
    constexpr size_t L = U::N;
    size_t i = 0;
    for (; i + 2 * L <= n; i += 2 * L) {
        __m512i a = U::load(s + i), b = U::load(s + i + L);
        U::store(d + i, mapKeys<T, kDesc, kInverse>(a));
        U::store(d + i + L, mapKeys<T, kDesc, kInverse>(b));
    }
    for (; i < n; i += L) {
        auto m = simd::tail<K>(n - i < L ? n - i : L);
        U::storem(d + i, m, mapKeys<T, kDesc, kInverse>(U::loadm(m, s + i)));
    }
}

// x[i] = i
VRX_INLINE void iota(int32_t* x, size_t n) {
    using I = V<int32_t>;
    __m512i v = _mm512_setr_epi32(0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15);
    const __m512i step = I::set1(16);
    size_t i = 0;
    for (; i + 16 <= n; i += 16, v = I::add(v, step)) I::store(x + i, v);
    if (i < n) I::storem(x + i, simd::tail<int32_t>(n - i), v);
}

// -------------------------------------------------------------- quicksort

// Keys K (uint32_t or uint64_t), optionally with an int32 index each.
template <class K, bool kIdx>
struct Qs {
    using W = V<K>;
    using I = V<int32_t>;
    using M = typename W::M;
    static constexpr size_t N = W::N;
    static constexpr K kMaxKey = static_cast<K>(~K(0));

    struct Reg { __m512i k, x; };
    struct Piv { K k; int32_t x; };

    static VRX_INLINE __mmask16 im(M m) { return static_cast<__mmask16>(m); }

    static VRX_INLINE Reg load(const K* a, const int32_t* x) {
        Reg r;
        r.k = W::load(a);
        if constexpr (kIdx) { if constexpr (N == 16) r.x = I::load(x); else r.x = I::loadm(0xFF, x); }
        else r.x = I::zero();
        return r;
    }
    // n < N lanes; the others hold the largest pair
    static VRX_INLINE Reg loadPad(const K* a, const int32_t* x, size_t n) {
        M m = simd::tail<K>(n);
        Reg r;
        r.k = W::loadm(m, a, kMaxKey);
        if constexpr (kIdx) r.x = I::loadm(im(m), x, 0x7FFFFFFF);
        else r.x = I::zero();
        return r;
    }
    static VRX_INLINE void store(K* a, int32_t* x, Reg r) {
        W::store(a, r.k);
        if constexpr (kIdx) { if constexpr (N == 16) I::store(x, r.x); else I::storem(x, 0xFF, r.x); }
    }
    static VRX_INLINE void storeN(K* a, int32_t* x, Reg r, size_t n) {
        M m = simd::tail<K>(n);
        W::storem(a, m, r.k);
        if constexpr (kIdx) I::storem(x, im(m), r.x);
    }
    static VRX_INLINE void compress(K* a, int32_t* x, M m, Reg r) {
        W::compress(a, m, r.k);
        if constexpr (kIdx) I::compress(x, im(m), r.x);
    }
    // lanes where (a.k, a.x) < (b.k, b.x)
    static VRX_INLINE M lt(Reg a, Reg b) {
        if constexpr (kIdx) return static_cast<M>(W::lt(a.k, b.k) | (W::eq(a.k, b.k) & static_cast<M>(I::lt(a.x, b.x))));
        else return W::lt(a.k, b.k);
    }
    static VRX_INLINE Reg blend(M m, Reg a, Reg b) {
        Reg r;
        r.k = W::blend(m, a.k, b.k);
        if constexpr (kIdx) r.x = I::blend(im(m), a.x, b.x); else r.x = a.x;
        return r;
    }
    static VRX_INLINE Reg permute(Reg a, __m512i pk, __m512i px) {
        Reg r;
        r.k = W::permute(pk, a.k);
        if constexpr (kIdx) r.x = I::permute(px, a.x); else r.x = a.x;
        return r;
    }
    static VRX_INLINE Reg rmin(Reg a, Reg b) {
        if constexpr (kIdx) return blend(lt(b, a), a, b);
        else return Reg{W::min(a.k, b.k), a.x};
    }
    static VRX_INLINE Reg rmax(Reg a, Reg b) {
        if constexpr (kIdx) return blend(lt(a, b), a, b);
        else return Reg{W::max(a.k, b.k), a.x};
    }

    // Permutation tables of the networks: lane i takes lane i ^ J (J > 0) or
    // lane N - 1 - i (J == 0); the index register has 16 lanes whatever N.
    template <int J>
    struct Perm {
        struct Tab {
            alignas(64) K k[N];
            alignas(64) int32_t x[16];
            constexpr Tab() : k(), x() {
                for (size_t i = 0; i < N; ++i) k[i] = static_cast<K>(J ? (i ^ static_cast<size_t>(J)) : N - 1 - i);
                for (size_t i = 0; i < 16; ++i) x[i] = static_cast<int32_t>(i < N ? static_cast<size_t>(k[i]) : i);
            }
        };
        static constexpr Tab kTab{};
    };
    template <int J>
    static VRX_INLINE Reg perm(Reg v) {
        return permute(v, W::load(Perm<J>::kTab.k), I::load(Perm<J>::kTab.x));
    }
    static constexpr M minMask(int k, int j) {
        unsigned m = 0;
        for (unsigned i = 0; i < N; ++i)
            if (((i & static_cast<unsigned>(j)) == 0) == ((i & static_cast<unsigned>(k)) == 0)) m |= 1u << i;
        return static_cast<M>(m);
    }
    // One compare-exchange stage of the bitonic network: lane i meets lane
    // i ^ J and keeps the smaller where minMask(K2, J) has its bit.
    template <int K2, int J>
    static VRX_INLINE Reg stage(Reg v) {
        Reg p = perm<J>(v);
        return blend(minMask(K2, J), rmax(v, p), rmin(v, p));
    }
    // bitonic sort of the lanes of one register, ascending
    static VRX_INLINE Reg sortReg(Reg v) {
        v = stage<2, 1>(v);
        v = stage<4, 2>(v); v = stage<4, 1>(v);
        v = stage<8, 4>(v); v = stage<8, 2>(v); v = stage<8, 1>(v);
        if constexpr (N == 16) { v = stage<16, 8>(v); v = stage<16, 4>(v); v = stage<16, 2>(v); v = stage<16, 1>(v); }
        return v;
    }
    // a bitonic register to ascending order
    static VRX_INLINE Reg cleanReg(Reg v) {
        constexpr int n = static_cast<int>(N);
        if constexpr (N == 16) v = stage<n, 8>(v);
        v = stage<n, 4>(v); v = stage<n, 2>(v); v = stage<n, 1>(v);
        return v;
    }
    static VRX_INLINE Reg reverse(Reg v) { return perm<0>(v); }
    // two ascending registers to one ascending run lo, hi
    static VRX_INLINE void merge2(Reg& a, Reg& b) {
        Reg r = reverse(b);
        Reg lo = rmin(a, r), hi = rmax(a, r);
        a = cleanReg(lo);
        b = cleanReg(hi);
    }

    // n <= 4N: up to four registers sorted, merged in pairs, then the two
    // runs of two merged (a bitonic merge across registers, then in each)
    static void small(K* a, int32_t* x, size_t n) {
        if (n <= 1) return;
        if (n <= N) {
            storeN(a, x, sortReg(loadPad(a, x, n)), n);
            return;
        }
        if (n <= 2 * N) {
            Reg r0 = sortReg(load(a, x));
            Reg r1 = sortReg(loadPad(a + N, x + N, n - N));
            merge2(r0, r1);
            store(a, x, r0);
            storeN(a + N, x + N, r1, n - N);
            return;
        }
        const size_t n2 = n - 2 * N < N ? n - 2 * N : N;
        const size_t n3 = n - 2 * N - n2;
        Reg r0 = sortReg(load(a, x));
        Reg r1 = sortReg(load(a + N, x + N));
        Reg r2 = sortReg(loadPad(a + 2 * N, x + 2 * N, n2));
        Reg r3 = sortReg(loadPad(a + 3 * N, x + 3 * N, n3));
        merge2(r0, r1);
        merge2(r2, r3);
        Reg b0 = reverse(r3), b1 = reverse(r2);
        Reg l0 = rmin(r0, b0), h0 = rmax(r0, b0);
        Reg l1 = rmin(r1, b1), h1 = rmax(r1, b1);
        r0 = cleanReg(rmin(l0, l1));
        r1 = cleanReg(rmax(l0, l1));
        r2 = cleanReg(rmin(h0, h1));
        r3 = cleanReg(rmax(h0, h1));
        store(a, x, r0);
        store(a + N, x + N, r1);
        storeN(a + 2 * N, x + 2 * N, r2, n2);
        storeN(a + 3 * N, x + 3 * N, r3, n3);
    }

    static VRX_INLINE bool lessAt(const K* a, const int32_t* x, size_t i, size_t j) {
        if constexpr (kIdx) return a[i] < a[j] || (a[i] == a[j] && x[i] < x[j]);
        else return a[i] < a[j];
    }
    static VRX_INLINE void swapAt(K* a, int32_t* x, size_t i, size_t j) {
        K t = a[i]; a[i] = a[j]; a[j] = t;
        if constexpr (kIdx) { int32_t u = x[i]; x[i] = x[j]; x[j] = u; }
    }
    static void siftDown(K* a, int32_t* x, size_t i, size_t n) {
        for (;;) {
            size_t c = 2 * i + 1;
            if (c >= n) return;
            if (c + 1 < n && lessAt(a, x, c, c + 1)) ++c;
            if (!lessAt(a, x, i, c)) return;
            swapAt(a, x, i, c);
            i = c;
        }
    }
    static void heapSort(K* a, int32_t* x, size_t n) {
        for (size_t i = n / 2; i-- > 0;) siftDown(a, x, i, n);
        for (size_t e = n - 1; e > 0; --e) {
            swapAt(a, x, 0, e);
            siftDown(a, x, 0, e);
        }
    }

    static VRX_INLINE size_t med3(const K* a, const int32_t* x, size_t i, size_t j, size_t k) {
        if (lessAt(a, x, i, j)) {
            if (lessAt(a, x, j, k)) return j;
            return lessAt(a, x, i, k) ? k : i;
        }
        if (lessAt(a, x, i, k)) return i;
        return lessAt(a, x, j, k) ? k : j;
    }
    static Piv pivot(const K* a, const int32_t* x, size_t n) {
        size_t p;
        if (n >= 512) {
            size_t s = n / 8;
            p = med3(a, x, med3(a, x, 0, s, 2 * s), med3(a, x, 3 * s, 4 * s, 5 * s), med3(a, x, 6 * s, 7 * s, n - 1));
        } else {
            p = med3(a, x, 0, n / 2, n - 1);
        }
        return Piv{a[p], kIdx ? x[p] : 0};
    }

    // Moves the elements that pass (key < pivot key, or with kLe key <=
    // pivot key) to the front; returns their count. n >= 2N. Only keys are
    // compared: equal keys stay on one side, and their indices are put in
    // order where the keys' order is settled (networks, heap, equal runs).
    template <bool kLe>
    static size_t partition(K* a, int32_t* x, size_t n, Piv pv) {
        const __m512i pk = W::set1(pv.k);
        auto pass = [&](Reg v) -> M {
            if constexpr (kLe) return W::le(v.k, pk);
            else return W::lt(v.k, pk);
        };
        Reg vl = load(a, x), vr = load(a + n - N, x + n - N);
        size_t rl = N, rr = n - N, wl = 0, wr = n;
        auto put = [&](Reg v, M m, size_t cnt) {
            size_t c = static_cast<size_t>(__builtin_popcount(m));
            compress(a + wl, x + wl, m, v);
            wl += c;
            wr -= cnt - c;
            compress(a + wr, x + wr, static_cast<M>(~m & simd::tail<K>(cnt)), v);
        };
        while (rr - rl >= N) {
            // read from the side with less room left (no branch: the
            // choice follows the data and would mispredict)
            const size_t lm = size_t(0) - static_cast<size_t>(rl - wl <= wr - rr);
            const size_t at = (rl & lm) | ((rr - N) & ~lm);
            rl += N & lm;
            rr -= N & ~lm;
            Reg v = load(a + at, x + at);
            put(v, pass(v), N);
        }
        if (rr > rl) {
            size_t r = rr - rl;
            Reg v = loadPad(a + rl, x + rl, r);
            put(v, static_cast<M>(pass(v) & simd::tail<K>(r)), r);
        }
        put(vl, pass(vl), N);
        put(vr, pass(vr), N);
        return wl;
    }

    static void sort(K* a, int32_t* x, size_t n, int depth) {
        while (n > 4 * N) {
            if (depth-- <= 0) { heapSort(a, x, n); return; }
            Piv pv = pivot(a, x, n);
            size_t l = partition<false>(a, x, n, pv);
            if (l == 0) {
                // the pivot is the smallest: peel off its equals, whose
                // indices (non-negative) then go in ascending order
                size_t e = partition<true>(a, x, n, pv);
                if constexpr (kIdx) Qs<uint32_t, false>::run(reinterpret_cast<uint32_t*>(x), nullptr, e);
                a += e; x += e; n -= e;
                continue;
            }
            if (l < n - l) { sort(a, x, l, depth); a += l; x += l; n -= l; }
            else { sort(a + l, x + l, n - l, depth); n = l; }
        }
        small(a, x, n);
    }

    static void run(K* a, int32_t* x, size_t n) {
        // without indices x only follows a's offsets, never dereferenced
        if constexpr (!kIdx) x = reinterpret_cast<int32_t*>(a);
        int depth = 2 * (64 - __builtin_clzll(static_cast<unsigned long long>(n) | 1));
        sort(a, x, n, depth);
    }
};

// ------------------------------------------------------ counting (8/16 bit)

// Writes v c times from p on; end is the end of the vector. A run that fits
// one 256-bit store with room behind it costs that one store (8- and 16-bit
// data moved in AVX2 registers, 32 or 16 elements a store).
template <class K>
VRX_INLINE K* emitRun(K* p, K* end, K v, size_t c) {
    constexpr size_t kPer = 32 / sizeof(K);
    const __m256i r = sizeof(K) == 1 ? _mm256_set1_epi8(static_cast<char>(v)) : _mm256_set1_epi16(static_cast<short>(v));
    if (VRX_LIKELY(c <= kPer && static_cast<size_t>(end - p) >= kPer)) {
        _mm256_storeu_si256(reinterpret_cast<__m256i*>(p), r);
        return p + c;
    }
    size_t i = 0;
    for (; i + kPer <= c; i += kPer) _mm256_storeu_si256(reinterpret_cast<__m256i*>(p + i), r);
    for (; i < c; ++i) p[i] = v;
    return p + c;
}

// Work space of the 8- and 16-bit sorts, in 32-bit words: 256 counts, or
// 65536 counts (which also hold the short vectors' digit passes).
template <class K> inline constexpr size_t kCountWords = sizeof(K) == 1 ? 256 : 65536;
// 16-bit vectors shorter than this take two 8-bit digit passes instead of
// the 65536 counts.
inline constexpr size_t kCount16Min = 16384;

// Two stable 8-bit digit passes of a short 16-bit vector through the work
// space: keys (32 KiB), positions (64 KiB), two histograms (2 KiB).
template <class T, bool kDesc, bool kVal, bool kIdx>
void digitSort16(const T* src, T* dst, int32_t* idx, size_t n, uint32_t* work) {
    using K = typename KeyOf<T>::K;
    const K* s = reinterpret_cast<const K*>(src);
    K* d = reinterpret_cast<K*>(dst);
    K* tk = reinterpret_cast<K*>(work);
    int32_t* tx = reinterpret_cast<int32_t*>(work + kCount16Min / 2);
    uint32_t* h0 = work + kCount16Min / 2 + kCount16Min;
    uint32_t* h1 = h0 + 256;
    memset(h0, 0, 512 * sizeof(uint32_t));
    for (size_t i = 0; i < n; ++i) {
        K k = toKey<T, kDesc>(s[i]);
        ++h0[k & 0xFF];
        ++h1[k >> 8];
    }
    uint32_t a0 = 0, a1 = 0;
    for (int v = 0; v < 256; ++v) {
        uint32_t c0 = h0[v], c1 = h1[v];
        h0[v] = a0; h1[v] = a1;
        a0 += c0; a1 += c1;
    }
    for (size_t i = 0; i < n; ++i) {
        K k = toKey<T, kDesc>(s[i]);
        uint32_t o = h0[k & 0xFF]++;
        tk[o] = k;
        if constexpr (kIdx) tx[o] = static_cast<int32_t>(i);
    }
    for (size_t i = 0; i < n; ++i) {
        K k = tk[i];
        uint32_t o = h1[k >> 8]++;
        if constexpr (kVal) d[o] = fromKey<T, kDesc>(k);
        if constexpr (kIdx) idx[o] = tx[i];
    }
}

// Counting sort of the n elements of src (keys through KeyOf<T>): writes the
// sorted elements to dst (may be src, or null) and the stable permutation to
// idx (or null). work holds kCountWords<K> words.
template <class T, bool kDesc>
void countSort(const T* src, T* dst, int32_t* idx, size_t n, uint32_t* work) {
    using K = typename KeyOf<T>::K;
    constexpr size_t kValues = size_t(1) << (8 * sizeof(K));
    if constexpr (sizeof(K) == 2) {
        if (n < kCount16Min) {
            if (dst && idx) digitSort16<T, kDesc, true, true>(src, dst, idx, n, work);
            else if (dst) digitSort16<T, kDesc, true, false>(src, dst, idx, n, work);
            else digitSort16<T, kDesc, false, true>(src, dst, idx, n, work);
            return;
        }
    }
    const K* s = reinterpret_cast<const K*>(src);
    K* d = reinterpret_cast<K*>(dst);
    uint32_t* cnt = work;
    if (sizeof(K) == 1 && n < 4096) {
        memset(cnt, 0, 256 * sizeof(uint32_t));
        for (size_t i = 0; i < n; ++i) ++cnt[toKey<T, kDesc>(s[i])];
    } else if constexpr (sizeof(K) == 1) {
        // four tables in turn, so that runs of one value do not wait on
        // their own increments
        uint32_t c4[4][256];
        memset(c4, 0, sizeof c4);
        size_t i = 0;
        for (; i + 4 <= n; i += 4) {
            ++c4[0][toKey<T, kDesc>(s[i])];
            ++c4[1][toKey<T, kDesc>(s[i + 1])];
            ++c4[2][toKey<T, kDesc>(s[i + 2])];
            ++c4[3][toKey<T, kDesc>(s[i + 3])];
        }
        for (; i < n; ++i) ++c4[0][toKey<T, kDesc>(s[i])];
        for (size_t v = 0; v < 256; ++v) cnt[v] = c4[0][v] + c4[1][v] + c4[2][v] + c4[3][v];
    } else {
        memset(cnt, 0, kValues * sizeof(uint32_t));
        for (size_t i = 0; i < n; ++i) ++cnt[toKey<T, kDesc>(s[i])];
    }
    if (idx) {
        // counts to start positions, positions placed, then cnt[v] is the
        // end of v's run
        uint32_t acc = 0;
        for (size_t v = 0; v < kValues; ++v) { uint32_t c = cnt[v]; cnt[v] = acc; acc += c; }
        for (size_t i = 0; i < n; ++i) idx[cnt[toKey<T, kDesc>(s[i])]++] = static_cast<int32_t>(i);
        if (d) {
            K* p = d;
            uint32_t at = 0;
            for (size_t v = 0; v < kValues; ++v) {
                p = emitRun<K>(p, d + n, fromKey<T, kDesc>(static_cast<K>(v)), cnt[v] - at);
                at = cnt[v];
            }
        }
    } else if (d) {
        K* p = d;
        for (size_t v = 0; v < kValues; ++v) p = emitRun<K>(p, d + n, fromKey<T, kDesc>(static_cast<K>(v)), cnt[v]);
    }
}

// ------------------------------------------------- buffered (32/64 bit)

// One most-significant-digit pass spreads the keys into the buffer over up
// to 8192 buckets, by the bits just below the highest bit in which any two
// keys differ; each bucket, small and warm in cache, is then sorted there by
// the quicksort and written back (values mapped back, or indices only).
inline constexpr int kMaxBucketBits = 13;
inline constexpr size_t kHistBytes = (size_t(1) << kMaxBucketBits) * sizeof(uint32_t);

template <class T, bool kDesc, bool kIdx>
void msdSort(const T* src, T* dst, int32_t* dstIdx, size_t n, Vrx8u* buf) {
    using K = typename KeyOf<T>::K;
    using U = V<K>;
    constexpr size_t L = U::N;
    const K* s = reinterpret_cast<const K*>(src);
    K* b = reinterpret_cast<K*>(buf);
    int32_t* bx = kIdx ? reinterpret_cast<int32_t*>(buf + round64(n * sizeof(K))) : nullptr;
    uint32_t* hist = reinterpret_cast<uint32_t*>(buf + round64(n * sizeof(K)) + (kIdx ? round64(n * sizeof(int32_t)) : 0));

    // the bits in which the keys differ from the first one
    const K k0 = toKey<T, kDesc>(s[0]);
    __m512i diff = U::zero();
    const __m512i first = U::set1(k0);
    size_t i = 0;
    for (; i + L <= n; i += L) diff = U::orb(diff, U::xorb(first, mapKeys<T, kDesc, false>(U::load(s + i))));
    K d = 0;
    for (; i < n; ++i) d |= static_cast<K>(toKey<T, kDesc>(s[i]) ^ k0);
    alignas(64) K lanes[L];
    U::store(lanes, diff);
    for (size_t l = 0; l < L; ++l) d |= lanes[l];
    if (d == 0) {  // all equal: sorted as they stand
        if constexpr (kIdx) iota(dstIdx, n);
        return;
    }
    // about 32 keys a bucket, 64 to 8192 buckets
    int bits = 63 - __builtin_clzll(static_cast<unsigned long long>(n)) - 5;
    bits = bits < 6 ? 6 : bits > kMaxBucketBits ? kMaxBucketBits : bits;
    const int top = 63 - __builtin_clzll(static_cast<unsigned long long>(d));
    const int shift = top + 1 >= bits ? top + 1 - bits : 0;
    const size_t buckets = size_t(1) << bits;
    const K mask = static_cast<K>(buckets - 1);

    memset(hist, 0, buckets * sizeof(uint32_t));
    for (i = 0; i < n; ++i) ++hist[(toKey<T, kDesc>(s[i]) >> shift) & mask];
    uint32_t acc = 0;
    for (size_t v = 0; v < buckets; ++v) { uint32_t c = hist[v]; hist[v] = acc; acc += c; }
    for (i = 0; i < n; ++i) {
        const K k = toKey<T, kDesc>(s[i]);
        const uint32_t o = hist[(k >> shift) & mask]++;
        b[o] = k;
        if constexpr (kIdx) bx[o] = static_cast<int32_t>(i);
    }
    // hist[v] is now the end of bucket v
    size_t at = 0;
    for (size_t v = 0; v < buckets; ++v) {
        const size_t e = hist[v];
        if (e == at) continue;
        Qs<K, kIdx>::run(b + at, kIdx ? bx + at : nullptr, e - at);
        if constexpr (kIdx) memcpy(dstIdx + at, bx + at, (e - at) * sizeof(int32_t));
        else mapArray<T, kDesc, true>(b + at, reinterpret_cast<K*>(dst) + at, e - at);
        at = e;
    }
}


}  // namespace n0::sortk
