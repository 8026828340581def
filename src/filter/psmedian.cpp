// Median filter over 8u, 16u, 16s, 32f and 64f.
//
// Every sample is first mapped to an unsigned key whose integer order is
// the order of the values (32-bit keys for every type but 64f, which has
// 64-bit keys); the median is taken on keys and mapped back, so the output
// is one of the inputs bit for bit. Float keys order
//     -inf < ... < -0 < +0 < ... < +inf < +NaN (by payload) < -NaN (by payload)
// and the map is a bijection of the bit patterns.
//
// The run goes in blocks of kBlock samples through the work buffer:
//   keys   L history keys followed by the block's keys (+ a register of slack)
//   outs   the block's median keys (+ slack)
//   sorted the L keys of the history in ascending order (large masks only)
// where L = m-1 for the odd mask m in use. After a block its last L keys
// move to the front, so the in-place form never rereads a sample it has
// overwritten, and at the end the front holds the line going out.
//
// Path: m up to kNetLimit by a selection network over one register of
// outputs at a time (psmedian_net.h); larger m by a sorted window with
// vector counting: per sample the rank of the key leaving and of the key
// entering, the median read off by rank, then one shift of the keys between.
#include <array>

#include "psmedian_net.h"

#include "simd/simd.h"
#include "vrx_base.h"

using namespace n0;

namespace {

constexpr int kBlock = 1024;
constexpr int kNetLimit = 63;
constexpr int kMaskLimit = 1 << 26;  // keeps every buffer size within int

constexpr int64_t roundUp64(int64_t x) { return (x + 63) & ~int64_t(63); }

// ------------------------------------------------------------- key codecs
// enc/dec per element; encN/decN over n elements.
template <class E> struct Codec;

template <> struct Codec<Vrx8u> {
    using K = uint32_t;
    static VRX_INLINE K enc(Vrx8u v) { return v; }
    static VRX_INLINE Vrx8u dec(K k) { return static_cast<Vrx8u>(k); }
    static void encN(const Vrx8u* s, K* k, int n) {
        int i = 0;
        for (; i + 16 <= n; i += 16) simd::V<K>::store(k + i, simd::widen8u(s + i));
        for (; i < n; ++i) k[i] = enc(s[i]);
    }
    static void decN(const K* k, Vrx8u* d, int n) {
        using W = simd::V<K>;
        for (int i = 0; i < n; i += 16)
            simd::narrowLow8(d + i, simd::tail<K>(static_cast<size_t>(n - i < 16 ? n - i : 16)), W::load(k + i));
    }
};

// 16-bit samples: 16s keys are the value plus 32768 (the sign bit flipped).
template <class E, uint32_t Flip> struct Codec16 {
    using K = uint32_t;
    static VRX_INLINE K enc(E v) { return static_cast<uint16_t>(v) ^ Flip; }
    static VRX_INLINE E dec(K k) { return static_cast<E>(static_cast<uint16_t>(k ^ Flip)); }
    static void encN(const E* s, K* k, int n) {
        using W = simd::V<K>;
        int i = 0;
        for (; i + 16 <= n; i += 16)
            W::store(k + i, W::xorb(simd::widen16u(reinterpret_cast<const uint16_t*>(s + i)), W::set1(Flip)));
        for (; i < n; ++i) k[i] = enc(s[i]);
    }
    static void decN(const K* k, E* d, int n) {
        using W = simd::V<K>;
        for (int i = 0; i < n; i += 16)
            simd::narrowLow16(reinterpret_cast<int16_t*>(d + i), simd::tail<K>(static_cast<size_t>(n - i < 16 ? n - i : 16)),
                              W::xorb(W::load(k + i), W::set1(Flip)));
    }
};
template <> struct Codec<Vrx16u> : Codec16<Vrx16u, 0u> {};
template <> struct Codec<Vrx16s> : Codec16<Vrx16s, 0x8000u> {};

// Floats: with S the sign bit, I the bits of +inf and P = I + 1 (the key
// of +0, one above the key I of -0):
//   negative NaN (bits above S|I)  key = bits
//   positive value or NaN          key = bits + P
//   negative value, -inf .. -0     key = (S|I) - bits
template <class E, class Key, Key S, Key I> struct CodecF {
    using K = Key;
    static constexpr K kNegInf = S | I, kP = I + 1;
    static VRX_INLINE K encBits(K b) { return b > kNegInf ? b : b < S ? b + kP : kNegInf - b; }
    static VRX_INLINE K decBits(K k) { return k > kNegInf ? k : k >= kP ? k - kP : kNegInf - k; }
    static VRX_INLINE K enc(E v) { return encBits(__builtin_bit_cast(K, v)); }
    static VRX_INLINE E dec(K k) { return __builtin_bit_cast(E, decBits(k)); }
    using W = simd::V<K>;
    static VRX_INLINE typename W::R encV(typename W::R b) {
        const typename W::R k = W::blend(W::lt(b, W::set1(S)), W::sub(W::set1(kNegInf), b), W::add(b, W::set1(kP)));
        return W::blend(W::gt(b, W::set1(kNegInf)), k, b);
    }
    static VRX_INLINE typename W::R decV(typename W::R k) {
        const typename W::R b = W::blend(W::ge(k, W::set1(kP)), W::sub(W::set1(kNegInf), k), W::sub(k, W::set1(kP)));
        return W::blend(W::gt(k, W::set1(kNegInf)), b, k);
    }
    static void encN(const E* s, K* k, int n) {
        const K* b = reinterpret_cast<const K*>(s);
        for (int i = 0; i < n; i += W::N) {
            const auto m = simd::tail<K>(static_cast<size_t>(n - i < W::N ? n - i : W::N));
            W::storem(k + i, m, encV(W::loadm(m, b + i)));
        }
    }
    static void decN(const K* k, E* d, int n) {
        K* b = reinterpret_cast<K*>(d);
        for (int i = 0; i < n; i += W::N) {
            const auto m = simd::tail<K>(static_cast<size_t>(n - i < W::N ? n - i : W::N));
            W::storem(b + i, m, decV(W::loadm(m, k + i)));
        }
    }
};
template <> struct Codec<Vrx32f> : CodecF<Vrx32f, uint32_t, 0x80000000u, 0x7F800000u> {};
template <> struct Codec<Vrx64f> : CodecF<Vrx64f, uint64_t, 0x8000000000000000ull, 0x7FF0000000000000ull> {};

// ------------------------------------------------------------ key moves
// d[0..n) = s[0..n), any overlap.
template <class K>
void moveKeys(const K* s, K* d, int n) {
    using W = simd::V<K>;
    if (n <= 0 || s == d) return;
    if (d < s) {
        for (int i = 0; i < n; i += W::N) {
            const auto m = simd::tail<K>(static_cast<size_t>(n - i < W::N ? n - i : W::N));
            W::storem(d + i, m, W::loadm(m, s + i));
        }
    } else {
        for (int e = n; e > 0; e -= W::N) {
            const int c = e < W::N ? e : W::N;
            const auto m = simd::tail<K>(static_cast<size_t>(c));
            W::storem(d + e - c, m, W::loadm(m, s + e - c));
        }
    }
}

// Ascending heap sort of n keys (the first window of the sorted path).
template <class K>
void sortKeys(K* a, int n) {
    auto sift = [a](int i, int end) {
        for (;;) {
            int c = 2 * i + 1;
            if (c >= end) return;
            if (c + 1 < end && a[c + 1] > a[c]) ++c;
            if (a[c] <= a[i]) return;
            const K t = a[c]; a[c] = a[i]; a[i] = t;
            i = c;
        }
    };
    for (int i = n / 2 - 1; i >= 0; --i) sift(i, n);
    for (int e = n - 1; e > 0; --e) {
        const K t = a[0]; a[0] = a[e]; a[e] = t;
        sift(0, e);
    }
}

// -------------------------------------------------------- sorted window
// S holds in[0..L) sorted on entry and in[n..n+L) sorted on exit;
// out[t] = median of in[t..t+L].
template <class K>
void sortedRun(const K* in, K* out, int n, int L, K* S) {
    using W = simd::V<K>;
    const int h = L / 2;
    for (int t = 0; t < n; ++t) {
        const K old = in[t], nw = in[t + L];
        const typename W::R vo = W::set1(old), vn = W::set1(nw);
        int p = 0, q = 0;   // ranks: keys of S below old, below nw
        int i = 0;
        for (; i + W::N <= L; i += W::N) {
            const typename W::R s = W::load(S + i);
            p += __builtin_popcount(static_cast<unsigned>(W::lt(s, vo)));
            q += __builtin_popcount(static_cast<unsigned>(W::lt(s, vn)));
        }
        if (i < L) {
            const auto m = simd::tail<K>(static_cast<size_t>(L - i));
            const typename W::R s = W::loadm(m, S + i);
            p += __builtin_popcount(static_cast<unsigned>(W::lt(s, vo) & m));
            q += __builtin_popcount(static_cast<unsigned>(W::lt(s, vn) & m));
        }
        // the window is S with nw inserted at rank q
        out[t] = h < q ? S[h] : h == q ? nw : S[h - 1];
        // old sits at rank p of S; take it out and put nw in
        if (q > p) {
            moveKeys(S + p + 1, S + p, q - 1 - p);
            S[q - 1] = nw;
        } else {
            moveKeys(S + q, S + q + 1, p - q);
            S[q] = nw;
        }
    }
}

// ----------------------------------------------------------- path table
template <class K> using NetFn = void (*)(const K*, K*, int);

template <class K, size_t... I>
constexpr auto netTable(std::index_sequence<I...>) {
    return std::array<NetFn<K>, sizeof...(I)>{&median::netRun<K, int(2 * I + 1)>...};
}

template <class K>
NetFn<K> netFor(int m) {
    static constexpr auto table = netTable<K>(std::make_index_sequence<(kNetLimit + 1) / 2>{});
    return table[(m - 1) / 2];
}

// ------------------------------------------------------------ the layout
struct Layout {
    int64_t keys, outs, sorted, bytes;  // offsets and total, from a 64-byte boundary
};

constexpr Layout layout(int m, int keySize) {
    const int64_t L = m - 1;
    Layout l{};
    l.keys = 0;
    l.outs = l.keys + roundUp64((L + kBlock + 16) * keySize);
    l.sorted = l.outs + roundUp64((kBlock + 16) * keySize);
    l.bytes = l.sorted + (m > kNetLimit ? roundUp64((L + 16) * keySize) : 0);
    return l;
}

// The odd mask in use, or a status: -33 outside 1..kMaskLimit.
VRX_INLINE VrxStatus maskInUse(int maskSize, int* m) {
    if (maskSize < 1 || maskSize > kMaskLimit) return vrxErrMaskSize;
    *m = maskSize - 1 + (maskSize & 1);
    return vrxOk;
}

template <class E>
VrxStatus medianImpl(const E* src, E* dst, int len, int maskSize, const E* dlySrc, E* dlyDst, Vrx8u* buf) {
    if (anyNull(src, dst, buf)) return vrxErrNullPtr;
    if (len < 1) return vrxErrBadLength;
    int m = 0;
    if (VrxStatus st = maskInUse(maskSize, &m)) return st;
    using C = Codec<E>;
    using K = typename C::K;
    const int L = m - 1;
    const Layout lay = layout(m, static_cast<int>(sizeof(K)));
    Vrx8u* base = reinterpret_cast<Vrx8u*>((addr(buf) + 63) & ~uintptr_t(63));
    K* keys = reinterpret_cast<K*>(base + lay.keys);
    K* outs = reinterpret_cast<K*>(base + lay.outs);
    K* sorted = reinterpret_cast<K*>(base + lay.sorted);

    if (dlySrc) C::encN(dlySrc, keys, L);
    else for (int i = 0; i < L; ++i) keys[i] = C::enc(E(0));
    const NetFn<K> net = m <= kNetLimit ? netFor<K>(m) : nullptr;
    if (!net) {
        moveKeys(keys, sorted, L);
        sortKeys(sorted, L);
    }
    for (int pos = 0; pos < len; pos += kBlock) {
        const int n = len - pos < kBlock ? len - pos : kBlock;
        C::encN(src + pos, keys + L, n);
        if (net) net(keys, outs, n);
        else sortedRun(keys, outs, n, L, sorted);
        C::decN(outs, dst + pos, n);
        moveKeys(keys + n, keys, L);
    }
    if (dlyDst) C::decN(keys, dlyDst, L);
    return maskSize & 1 ? vrxOk : vrxWarnEvenMedianMask;
}

}  // namespace

VrxStatus N0(vrxsFilterMedianGetBufferSize)(int maskSize, VrxDataType dataType, int* pSize) {
    if (!pSize) return vrxErrNullPtr;
    int m = 0;
    if (VrxStatus st = maskInUse(maskSize, &m)) return st;
    int keySize;
    switch (dataType) {
        case vrx8u: case vrx16u: case vrx16s: case vrx32f: keySize = 4; break;
        case vrx64f: keySize = 8; break;
        default: return vrxErrDataType;
    }
    *pSize = static_cast<int>(layout(m, keySize).bytes + 64);  // + alignment slack
    return maskSize & 1 ? vrxOk : vrxWarnEvenMedianMask;
}

VrxStatus N0(vrxsFilterMedian_8u)(const Vrx8u* pSrc, Vrx8u* pDst, int len, int maskSize, const Vrx8u* pDlySrc, Vrx8u* pDlyDst, Vrx8u* pBuf) { return medianImpl(pSrc, pDst, len, maskSize, pDlySrc, pDlyDst, pBuf); }
VrxStatus N0(vrxsFilterMedian_8u_I)(Vrx8u* pSrcDst, int len, int maskSize, const Vrx8u* pDlySrc, Vrx8u* pDlyDst, Vrx8u* pBuf) { return medianImpl<Vrx8u>(pSrcDst, pSrcDst, len, maskSize, pDlySrc, pDlyDst, pBuf); }
VrxStatus N0(vrxsFilterMedian_16u)(const Vrx16u* pSrc, Vrx16u* pDst, int len, int maskSize, const Vrx16u* pDlySrc, Vrx16u* pDlyDst, Vrx8u* pBuf) { return medianImpl(pSrc, pDst, len, maskSize, pDlySrc, pDlyDst, pBuf); }
VrxStatus N0(vrxsFilterMedian_16u_I)(Vrx16u* pSrcDst, int len, int maskSize, const Vrx16u* pDlySrc, Vrx16u* pDlyDst, Vrx8u* pBuf) { return medianImpl<Vrx16u>(pSrcDst, pSrcDst, len, maskSize, pDlySrc, pDlyDst, pBuf); }
VrxStatus N0(vrxsFilterMedian_16s)(const Vrx16s* pSrc, Vrx16s* pDst, int len, int maskSize, const Vrx16s* pDlySrc, Vrx16s* pDlyDst, Vrx8u* pBuf) { return medianImpl(pSrc, pDst, len, maskSize, pDlySrc, pDlyDst, pBuf); }
VrxStatus N0(vrxsFilterMedian_16s_I)(Vrx16s* pSrcDst, int len, int maskSize, const Vrx16s* pDlySrc, Vrx16s* pDlyDst, Vrx8u* pBuf) { return medianImpl<Vrx16s>(pSrcDst, pSrcDst, len, maskSize, pDlySrc, pDlyDst, pBuf); }
VrxStatus N0(vrxsFilterMedian_32f)(const Vrx32f* pSrc, Vrx32f* pDst, int len, int maskSize, const Vrx32f* pDlySrc, Vrx32f* pDlyDst, Vrx8u* pBuf) { return medianImpl(pSrc, pDst, len, maskSize, pDlySrc, pDlyDst, pBuf); }
VrxStatus N0(vrxsFilterMedian_32f_I)(Vrx32f* pSrcDst, int len, int maskSize, const Vrx32f* pDlySrc, Vrx32f* pDlyDst, Vrx8u* pBuf) { return medianImpl<Vrx32f>(pSrcDst, pSrcDst, len, maskSize, pDlySrc, pDlyDst, pBuf); }
VrxStatus N0(vrxsFilterMedian_64f)(const Vrx64f* pSrc, Vrx64f* pDst, int len, int maskSize, const Vrx64f* pDlySrc, Vrx64f* pDlyDst, Vrx8u* pBuf) { return medianImpl(pSrc, pDst, len, maskSize, pDlySrc, pDlyDst, pBuf); }
VrxStatus N0(vrxsFilterMedian_64f_I)(Vrx64f* pSrcDst, int len, int maskSize, const Vrx64f* pDlySrc, Vrx64f* pDlyDst, Vrx8u* pBuf) { return medianImpl<Vrx64f>(pSrcDst, pSrcDst, len, maskSize, pDlySrc, pDlyDst, pBuf); }
