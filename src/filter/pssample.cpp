// SampleUp and SampleDown: zero insertion and decimation with a phase that
// carries a long signal across pieces. The kernels move elements by size
// only, so one kernel serves every type of an element size; factor 2 has
// its own kernels.
#include <string.h>

#include <type_traits>

#include "simd/simd.h"
#include "vrx_base.h"
#include "vrx_const.h"

using namespace n0;

namespace {

struct U128 { uint64_t lo, hi; };

// ------------------------------------------------------------- factor 2
// Up: the source spread to every other element, the others zero.
VRX_INLINE void up2(const uint32_t* s, uint32_t* d, int n, int ph) {
    using W = simd::V<float>;
    const __m512 z = W::zero();
    int i = 0;
    for (; i + 16 <= n; i += 16) {
        __m512 lo, hi;
        const __m512 x = W::load(reinterpret_cast<const float*>(s + i));
        if (ph == 0) simd::interleave(x, z, lo, hi);
        else simd::interleave(z, x, lo, hi);
        W::store(reinterpret_cast<float*>(d + 2 * i), lo);
        W::store(reinterpret_cast<float*>(d + 2 * i + 16), hi);
    }
    for (; i < n; ++i) {
        d[2 * i + ph] = s[i];
        d[2 * i + 1 - ph] = 0;
    }
}
VRX_INLINE void up2(const uint64_t* s, uint64_t* d, int n, int ph) {
    using W = simd::V<double>;
    const __m512d z = W::zero();
    int i = 0;
    for (; i + 8 <= n; i += 8) {
        __m512d lo, hi;
        const __m512d x = W::load(reinterpret_cast<const double*>(s + i));
        if (ph == 0) simd::interleave(x, z, lo, hi);
        else simd::interleave(z, x, lo, hi);
        W::store(reinterpret_cast<double*>(d + 2 * i), lo);
        W::store(reinterpret_cast<double*>(d + 2 * i + 8), hi);
    }
    for (; i < n; ++i) {
        d[2 * i + ph] = s[i];
        d[2 * i + 1 - ph] = 0;
    }
}
// 16-bit pairs are 32-bit words with the sample in the low or high half.
VRX_INLINE void up2(const uint16_t* s, uint16_t* d, int n, int ph) {
    int i = 0;
    for (; i + 16 <= n; i += 16) {
        __m512i w = _mm512_cvtepu16_epi32(_mm256_loadu_si256(reinterpret_cast<const __m256i*>(s + i)));  // widen, zero high halves
        if (ph) w = _mm512_slli_epi32(w, 16);
        _mm512_storeu_si512(d + 2 * i, w);
    }
    for (; i < n; ++i) {
        d[2 * i + ph] = s[i];
        d[2 * i + 1 - ph] = 0;
    }
}
VRX_INLINE void up2(const U128* s, U128* d, int n, int ph) {
    for (int i = 0; i < n; ++i) {
        d[2 * i + ph] = s[i];
        d[2 * i + 1 - ph] = U128{0, 0};
    }
}

// Down: every other element from ph, count of them, from a source of len.
VRX_INLINE void down2(const uint32_t* s, uint32_t* d, int count, int ph, int len) {
    using W = simd::V<float>;
    int k = 0;
    const float* f = reinterpret_cast<const float*>(s);
    for (; k + 16 <= count && 2 * k + 32 <= len; k += 16) {  // the two loads stay inside the source
        __m512 re, im;
        simd::deinterleave(W::load(f + 2 * k), W::load(f + 2 * k + 16), re, im);
        W::store(reinterpret_cast<float*>(d + k), ph ? im : re);
    }
    for (; k < count; ++k) d[k] = s[ph + 2 * k];
}
VRX_INLINE void down2(const uint64_t* s, uint64_t* d, int count, int ph, int len) {
    using W = simd::V<double>;
    int k = 0;
    const double* f = reinterpret_cast<const double*>(s);
    for (; k + 8 <= count && 2 * k + 16 <= len; k += 8) {
        __m512d re, im;
        simd::deinterleave(W::load(f + 2 * k), W::load(f + 2 * k + 8), re, im);
        W::store(reinterpret_cast<double*>(d + k), ph ? im : re);
    }
    for (; k < count; ++k) d[k] = s[ph + 2 * k];
}
VRX_INLINE void down2(const uint16_t* s, uint16_t* d, int count, int ph, int len) {
    int k = 0;
    for (; k + 16 <= count && 2 * k + 32 <= len; k += 16) {
        __m512i w = _mm512_loadu_si512(s + 2 * k);
        if (ph) w = _mm512_srli_epi32(w, 16);
        simd::narrowLow16(reinterpret_cast<int16_t*>(d + k), 0xFFFF, w);
    }
    for (; k < count; ++k) d[k] = s[ph + 2 * k];
}
VRX_INLINE void down2(const U128* s, U128* d, int count, int ph, int len) {
    (void)len;
    for (int k = 0; k < count; ++k) d[k] = s[ph + 2 * k];
}

// ------------------------------------------------------------- any factor
template <class T>
VRX_INLINE void upAny(const T* s, T* d, int n, int f, int ph) {
    memset(static_cast<void*>(d), 0, sizeof(T) * size_t(n) * size_t(f));
    T* o = d + ph;
    for (int i = 0; i < n; ++i, o += f) *o = s[i];
}
template <class T>
VRX_INLINE void downAny(const T* s, T* d, int count, int f, int ph) {
    const T* p = s + ph;
    for (int k = 0; k < count; ++k, p += f) d[k] = *p;
}

// Up by 3 <= f <= 8 for 4- and 8-byte elements: a register of N source
// elements spreads over f output registers, each one permute of it with a
// fixed index and zeros outside a fixed mask (the pattern of phase 0). A
// phase ph is the same words written ph elements later behind ph zeros.
template <class Ix, int Fc>
struct UpTables {
    static constexpr int N = 64 / int(sizeof(Ix));
    Ix idx[Fc][N];     // lane l of output register r: source element (r*N + l) / f
    uint32_t mask[Fc];  // the lanes that hold a source element
    constexpr UpTables() : idx{}, mask{} {
        for (int r = 0; r < Fc; ++r)
            for (int l = 0; l < N; ++l)
                if ((r * N + l) % Fc == 0) {
                    idx[r][l] = (r * N + l) / Fc;
                    mask[r] |= 1u << l;
                }
    }
};

template <int Fc, class T>
VRX_INLINE void upFixed(const T* s, T* d, int n, int ph) {
    using Ix = std::conditional_t<sizeof(T) == 4, int32_t, int64_t>;
    using I = simd::V<Ix>;
    using M = typename I::M;
    using Tb = UpTables<Ix, Fc>;
    constexpr int N = I::N;
    alignas(64) static constexpr Tb tb{};
    typename I::R ix[Fc];
#pragma GCC unroll 8
    for (int r = 0; r < Fc; ++r) ix[r] = I::load(tb.idx[r]);
    const Ix* x = reinterpret_cast<const Ix*>(s);
    Ix* o = reinterpret_cast<Ix*>(d);
    I::storem(o, simd::tail<Ix>(size_t(ph)), I::zero());
    o += ph;
    const int64_t limit = int64_t(n) * Fc - ph;  // elements written from o
    auto spread = [&](typename I::R v, int r) __attribute__((always_inline)) {
        return I::blend(static_cast<M>(tb.mask[r]), I::zero(), I::permute(ix[r], v));
    };
    int i = 0;
    for (; int64_t(i + N) * Fc <= limit; i += N) {
        const typename I::R v = I::load(x + i);
        Ix* q = o + int64_t(i) * Fc;
#pragma GCC unroll 8
        for (int r = 0; r < Fc; ++r) I::store(q + r * N, spread(v, r));
    }
    for (; i < n; i += N) {
        const typename I::R v = I::loadm(simd::tail<Ix>(size_t(n - i < N ? n - i : N)), x + i);
        for (int r = 0; r < Fc; ++r) {
            const int64_t at = int64_t(i) * Fc + r * N, left = limit - at;
            if (left <= 0) break;
            I::storem(o + at, simd::tail<Ix>(size_t(left < N ? left : N)), spread(v, r));
        }
    }
}

template <class T>
VRX_INLINE bool upMany(const T* s, T* d, int n, int f, int ph) {
    if constexpr (sizeof(T) == 4 || sizeof(T) == 8)
        return withConst<3, 8>(f, [&](auto k) { upFixed<decltype(k)::value>(s, d, n, ph); });
    return false;
}

// Down by 3 <= f <= lanes for 4- and 8-byte elements: a register of N
// outputs from the f registers of input behind it. Output lane i is input
// element f*i; the registers are taken in pairs, one two-register permute
// per pair puts the lanes that pair holds in place, and blends with fixed
// masks join the pairs (ceil(f/2) permutes per register of outputs). The
// loads stay inside the source: the last registers load under masks.
template <class F, int Fc>
struct DownTables {
    using Ix = std::conditional_t<sizeof(F) == 4, int32_t, int64_t>;
    static constexpr int N = 64 / int(sizeof(F));
    static constexpr int Q = (Fc + 1) / 2;  // pairs of input registers
    Ix idx[Q][N];   // lane i of pair q: element f*i - 2*q*N of the pair
    uint32_t mask[Q];  // the lanes pair q holds
    constexpr DownTables() : idx{}, mask{} {
        for (int q = 0; q < Q; ++q)
            for (int i = 0; i < N; ++i) {
                const int e = i * Fc - 2 * q * N;
                if (e >= 0 && e < 2 * N) {
                    idx[q][i] = e;
                    mask[q] |= 1u << i;
                }
            }
    }
};

template <class F, int Fc, class T>
VRX_INLINE void downFixed(const T* s, T* d, int count, int ph, int len) {
    static_assert(sizeof(F) == sizeof(T));
    using W = simd::V<F>;
    using Tb = DownTables<F, Fc>;
    using I = simd::V<typename Tb::Ix>;
    using M = typename W::M;
    constexpr int N = W::N, Q = Tb::Q;
    alignas(64) static constexpr Tb tb{};
    typename I::R ix[Q];
#pragma GCC unroll 8
    for (int q = 0; q < Q; ++q) ix[q] = I::load(tb.idx[q]);
    const F* p = reinterpret_cast<const F*>(s) + ph;
    F* o = reinterpret_cast<F*>(d);
    auto gather = [&](const F* x, auto load) __attribute__((always_inline)) {
        typename W::R acc = W::permute2(load(x, 0), ix[0], load(x + N, 1));
#pragma GCC unroll 8
        for (int q = 1; q < Q; ++q) {
            const typename W::R a = load(x + 2 * q * N, 2 * q);
            const typename W::R b = 2 * q + 1 < Fc ? load(x + (2 * q + 1) * N, 2 * q + 1) : a;
            acc = W::blend(static_cast<M>(tb.mask[q]), acc, W::permute2(a, ix[q], b));
        }
        return acc;
    };
    const int64_t avail = int64_t(len) - ph;  // source elements from p on
    int k = 0;
    for (; k + N <= count && int64_t(k) * Fc + int64_t(N) * Fc <= avail; k += N)
        W::store(o + k, gather(p + int64_t(k) * Fc, [](const F* x, int) { return W::load(x); }));
    for (; k < count; k += N) {
        const int64_t left = avail - int64_t(k) * Fc;  // elements the registers may read
        auto masked = [left](const F* x, int r) {
            // registers wholly past the source are not touched at all: a
            // masked load that reaches an unmapped page is slow even when
            // every lane is off
            const int64_t m = left - int64_t(r) * N;
            if (m <= 0) return W::zero();
            return W::loadm(simd::tail<F>(size_t(m >= N ? N : m)), x);
        };
        const int rem = count - k < N ? count - k : N;
        W::storem(o + k, simd::tail<F>(size_t(rem)), gather(p + int64_t(k) * Fc, masked));
    }
}

template <class F, class T>
VRX_INLINE void downPerm(const T* s, T* d, int count, int f, int ph, int len) {
    constexpr int kMax = sizeof(F) == 4 ? 16 : 8;
    if (withConst<3, kMax>(f, [&](auto k) { downFixed<F, decltype(k)::value>(s, d, count, ph, len); })) return;
    downAny(s, d, count, f, ph);
}
VRX_INLINE void downMany(const uint32_t* s, uint32_t* d, int count, int f, int ph, int len) { downPerm<float>(s, d, count, f, ph, len); }
VRX_INLINE void downMany(const uint64_t* s, uint64_t* d, int count, int f, int ph, int len) { downPerm<double>(s, d, count, f, ph, len); }
VRX_INLINE void downMany(const uint16_t* s, uint16_t* d, int count, int f, int ph, int len) { (void)len; downAny(s, d, count, f, ph); }
VRX_INLINE void downMany(const U128* s, U128* d, int count, int f, int ph, int len) { (void)len; downAny(s, d, count, f, ph); }

// --------------------------------------------------------------- entries
VRX_INLINE VrxStatus checks(const void* s, int len, const void* d, const int* dl, int f, const int* ph) {
    if (anyNull(s, d, dl, ph)) return vrxErrNullPtr;
    if (len < 1) return vrxErrBadLength;
    if (f < 1) return vrxErrSampleFactor;
    if (*ph < 0 || *ph >= f) return vrxErrSamplePhase;
    return vrxOk;
}

template <class T, class E>
VrxStatus sampleUp(const E* pSrc, int srcLen, E* pDst, int* pDstLen, int factor, int* pPhase) {
    if (VrxStatus st = checks(pSrc, srcLen, pDst, pDstLen, factor, pPhase)) return st;
    static_assert(sizeof(T) == sizeof(E));
    const T* s = reinterpret_cast<const T*>(pSrc);
    T* d = reinterpret_cast<T*>(pDst);
    const int ph = *pPhase;
    *pDstLen = static_cast<int>(int64_t(srcLen) * factor);
    if (factor == 1) memmove(static_cast<void*>(d), s, sizeof(T) * size_t(srcLen));
    else if (factor == 2) up2(s, d, srcLen, ph);
    else if (!upMany(s, d, srcLen, factor, ph)) {
        // pieces of 16 KiB of source for the narrow types keep the zeroing
        // and the scatter of a piece in cache
        const int piece = sizeof(T) <= 4 ? 16384 / int(sizeof(T)) : srcLen;
        for (int i = 0; i < srcLen; i += piece) {
            const int n = srcLen - i < piece ? srcLen - i : piece;
            upAny(s + i, d + int64_t(i) * factor, n, factor, ph);
        }
    }
    return vrxOk;
}

template <class T, class E>
VrxStatus sampleDown(const E* pSrc, int srcLen, E* pDst, int* pDstLen, int factor, int* pPhase) {
    if (VrxStatus st = checks(pSrc, srcLen, pDst, pDstLen, factor, pPhase)) return st;
    const T* s = reinterpret_cast<const T*>(pSrc);
    T* d = reinterpret_cast<T*>(pDst);
    const int ph = *pPhase;
    if (factor == 1) {
        memmove(static_cast<void*>(d), s, sizeof(T) * size_t(srcLen));
        *pDstLen = srcLen;
        *pPhase = 0;
        return vrxOk;
    }
    if (ph >= srcLen) {
        *pDstLen = 0;
        *pPhase = ph - srcLen;
        return vrxOk;
    }
    // below 2^32: a 32-bit division
    const int count = static_cast<int>((uint32_t(srcLen) + uint32_t(factor - ph - 1)) / uint32_t(factor));
    if (factor == 2) down2(s, d, count, ph, srcLen);
    else downMany(s, d, count, factor, ph, srcLen);
    *pDstLen = count;
    *pPhase = static_cast<int>(int64_t(ph) + int64_t(count) * factor - srcLen);
    return vrxOk;
}

}  // namespace

VrxStatus N0(vrxsSampleUp_16s)(const Vrx16s* pSrc, int srcLen, Vrx16s* pDst, int* pDstLen, int factor, int* pPhase) { return sampleUp<uint16_t>(pSrc, srcLen, pDst, pDstLen, factor, pPhase); }
VrxStatus N0(vrxsSampleUp_16sc)(const Vrx16sc* pSrc, int srcLen, Vrx16sc* pDst, int* pDstLen, int factor, int* pPhase) { return sampleUp<uint32_t>(pSrc, srcLen, pDst, pDstLen, factor, pPhase); }
VrxStatus N0(vrxsSampleUp_32f)(const Vrx32f* pSrc, int srcLen, Vrx32f* pDst, int* pDstLen, int factor, int* pPhase) { return sampleUp<uint32_t>(pSrc, srcLen, pDst, pDstLen, factor, pPhase); }
VrxStatus N0(vrxsSampleUp_32fc)(const Vrx32fc* pSrc, int srcLen, Vrx32fc* pDst, int* pDstLen, int factor, int* pPhase) { return sampleUp<uint64_t>(pSrc, srcLen, pDst, pDstLen, factor, pPhase); }
VrxStatus N0(vrxsSampleUp_64f)(const Vrx64f* pSrc, int srcLen, Vrx64f* pDst, int* pDstLen, int factor, int* pPhase) { return sampleUp<uint64_t>(pSrc, srcLen, pDst, pDstLen, factor, pPhase); }
VrxStatus N0(vrxsSampleUp_64fc)(const Vrx64fc* pSrc, int srcLen, Vrx64fc* pDst, int* pDstLen, int factor, int* pPhase) { return sampleUp<U128>(pSrc, srcLen, pDst, pDstLen, factor, pPhase); }
VrxStatus N0(vrxsSampleDown_16s)(const Vrx16s* pSrc, int srcLen, Vrx16s* pDst, int* pDstLen, int factor, int* pPhase) { return sampleDown<uint16_t>(pSrc, srcLen, pDst, pDstLen, factor, pPhase); }
VrxStatus N0(vrxsSampleDown_16sc)(const Vrx16sc* pSrc, int srcLen, Vrx16sc* pDst, int* pDstLen, int factor, int* pPhase) { return sampleDown<uint32_t>(pSrc, srcLen, pDst, pDstLen, factor, pPhase); }
VrxStatus N0(vrxsSampleDown_32f)(const Vrx32f* pSrc, int srcLen, Vrx32f* pDst, int* pDstLen, int factor, int* pPhase) { return sampleDown<uint32_t>(pSrc, srcLen, pDst, pDstLen, factor, pPhase); }
VrxStatus N0(vrxsSampleDown_32fc)(const Vrx32fc* pSrc, int srcLen, Vrx32fc* pDst, int* pDstLen, int factor, int* pPhase) { return sampleDown<uint64_t>(pSrc, srcLen, pDst, pDstLen, factor, pPhase); }
VrxStatus N0(vrxsSampleDown_64f)(const Vrx64f* pSrc, int srcLen, Vrx64f* pDst, int* pDstLen, int factor, int* pPhase) { return sampleDown<uint64_t>(pSrc, srcLen, pDst, pDstLen, factor, pPhase); }
VrxStatus N0(vrxsSampleDown_64fc)(const Vrx64fc* pSrc, int srcLen, Vrx64fc* pDst, int* pDstLen, int factor, int* pPhase) { return sampleDown<U128>(pSrc, srcLen, pDst, pDstLen, factor, pPhase); }
