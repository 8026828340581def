// SampleUp and SampleDown: zero insertion and decimation with a phase that
// carries a long signal across pieces. The kernels move elements by size
// only, so one kernel serves every type of an element size; factor 2 has
// its own kernels.
#include <string.h>

#include <type_traits>

#include "simd/simd.h"
#include "vrx_base.h"

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

// Down by 3 <= f <= lanes for 4- and 8-byte elements: a register of N
// outputs from the f registers of input behind it. Register r holds the
// outputs i with f*i in [N*r, N*r + N); a chain of two-register permutes
// puts them in place: the first takes registers 0 and 1, each further one
// keeps the lanes placed so far and takes those of register r. The loads
// stay inside the source; the rest goes element by element.
template <class F, class T>
VRX_INLINE void downPerm(const T* s, T* d, int count, int f, int ph, int len) {
    static_assert(sizeof(F) == sizeof(T));
    using W = simd::V<F>;
    using I = simd::V<std::conditional_t<sizeof(F) == 4, int32_t, int64_t>>;
    constexpr int N = W::N;
    int k = 0;
    if (f <= N) {
        using I32 = simd::V<int32_t>;
        const I32::R iota32 = simd::iota32(), pos32 = I32::mullo(iota32, I32::set1(f));
        typename I::R iota, pos, idx[N];
        if constexpr (N == 16) iota = iota32, pos = pos32;
        else iota = simd::lowTo64s(iota32), pos = simd::lowTo64s(pos32);
        idx[1] = pos;  // lanes past register 1 are replaced later
        for (int r = 2; r < f; ++r)
            idx[r] = I::blend(I::eq(I::template shr<N == 16 ? 4 : 3>(pos), I::set1(r)), iota,
                              I::add(I::andb(pos, I::set1(N - 1)), I::set1(N)));
        const F* p = reinterpret_cast<const F*>(s) + ph;
        F* o = reinterpret_cast<F*>(d);
        const int64_t span = int64_t(N) * f;
        for (; k + N <= count && ph + int64_t(k) * f + span <= len; k += N) {
            const F* x = p + int64_t(k) * f;
            typename W::R acc = W::permute2(W::load(x), idx[1], W::load(x + N));
            for (int r = 2; r < f; ++r) acc = W::permute2(acc, idx[r], W::load(x + N * r));
            W::store(o + k, acc);
        }
    }
    downAny(s + int64_t(k) * f, d + k, count - k, f, ph);
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
    else {
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
    const int count = static_cast<int>((int64_t(srcLen) + factor - ph - 1) / factor);
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
