// Operations on packed real spectra: expansion to the full complex
// spectrum (ConjCcs, ConjPack, ConjPerm) and products (MulPack, MulPerm,
// MulPackConj).
#include "vrx_base.h"
#include "vrx_fft_own.h"
#include "vrx_fft_simd.h"

#include <immintrin.h>

// The vectorisers of g++ 12 turn complex products into fused
// multiply-add-subtract instructions whatever the contraction setting; they
// stay off here, and the vector code is written out by hand.

namespace {

enum class Form { CCS, Pack, Perm };

// The conjugate flip of the upper half: conj(src[n-1-i]) to dst[i].
VRX_INLINE VrxStatus conjFlip(const Vrx32f* s, Vrx32f* d, int n) {
    return N0(vrxsConjFlip_32fc)(reinterpret_cast<const Vrx32fc*>(s), reinterpret_cast<Vrx32fc*>(d), n);
}
VRX_INLINE VrxStatus conjFlip(const Vrx64f* s, Vrx64f* d, int n) {
    return N0(vrxsConjFlip_64fc)(reinterpret_cast<const Vrx64fc*>(s), reinterpret_cast<Vrx64fc*>(d), n);
}

// Full spectrum of N values from a packed array: out[0] = (R(0), 0),
// out[k] = X[k] up to N/2, out[N-k] = conj(X[k]). The upper half is
// written first, above everything the source occupies, then the lower half
// moves up from the end, so that an in-place call reads every value before
// a store reaches it.
template <class T, Form F> void expand(const T* s, T* d, int64_t N) {
    const int64_t cnt = (N - 1) / 2;  // k = 1 .. cnt lie below N/2
    const bool packLike = F == Form::Pack || (F == Form::Perm && (N & 1));
    const T* x1 = packLike ? s + 1 : s + 2;  // X[1], X[2], ... as complex values
    const T r0 = s[0];
    T rh = T(0);
    if ((N & 1) == 0 && N >= 2) rh = F == Form::CCS ? s[N] : F == Form::Pack ? s[N - 1] : s[1];
    if (cnt > 0) conjFlip(x1, d + 2 * (N - cnt), static_cast<int>(cnt));
    if ((N & 1) == 0 && N >= 2) {
        d[N] = rh;
        d[N + 1] = T(0);
    }
    if (cnt > 0 && x1 != d + 2) memmove(d + 2, x1, static_cast<size_t>(2 * cnt) * sizeof(T));
    d[0] = r0;
    d[1] = T(0);
}

// The four products of one complex pair.
template <class T, bool Conj> VRX_INLINE void pairMul(const T* a, const T* b, T* d) {
    const T ar = a[0], ai = a[1], br = b[0], bi = b[1];
    if constexpr (!Conj) { d[0] = ar * br - ai * bi; d[1] = ar * bi + ai * br; }
    else { d[0] = ar * br + ai * bi; d[1] = ai * br - ar * bi; }
}

template <class T, bool Conj> void pairsMul(const T* a, const T* b, T* d, int64_t nPairs) {
    using n0::fft::Cx;
    constexpr int V = sizeof(T) == 4 ? 8 : 4;
    using CV = n0::fft::CVec<T, V>;
    const Cx<T>* pa = reinterpret_cast<const Cx<T>*>(a);
    const Cx<T>* pb = reinterpret_cast<const Cx<T>*>(b);
    Cx<T>* pd = reinterpret_cast<Cx<T>*>(d);
    int64_t i = 0;
    for (; i + V <= nPairs; i += V) CV::template mul<Conj>(CV::load(pa + i), CV::load(pb + i)).store(pd + i);
    for (; i < nPairs; ++i) pairMul<T, Conj>(a + 2 * i, b + 2 * i, d + 2 * i);
}

// Pack layout: real at 0, real at len-1 for even len, pairs from 1.
template <class T, bool Conj> void mulPack(const T* a, const T* b, T* d, int len) {
    const int64_t n = len;
    const T r0 = a[0] * b[0];
    const int64_t pairs = (n & 1) ? (n - 1) / 2 : (n - 2) / 2;
    if ((n & 1) == 0 && n >= 2) d[n - 1] = a[n - 1] * b[n - 1];
    pairsMul<T, Conj>(a + 1, b + 1, d + 1, pairs);
    d[0] = r0;
}

// Perm layout: reals at 0 and 1 for even len, pairs from 2; odd len is Pack.
template <class T> void mulPerm(const T* a, const T* b, T* d, int len) {
    const int64_t n = len;
    if (n & 1) { mulPack<T, false>(a, b, d, len); return; }
    d[0] = a[0] * b[0];
    if (n >= 2) d[1] = a[1] * b[1];
    pairsMul<T, false>(a + 2, b + 2, d + 2, (n - 2) / 2);
}

}  // namespace

// ------------------------------------------------------------ expansion

#define VRX_CONJ(NAME, F, T, TC)                                                                        \
    VrxStatus N0(vrxsConj##NAME##_##TC##_I)(Vrx##TC * pSrcDst, int lenDst) {                           \
        if (VrxStatus st = n0::checkArgs(lenDst, pSrcDst)) return st;                                  \
        if (F == Form::CCS && lenDst <= 2) return vrxOk;                                               \
        expand<Vrx##T, F>(reinterpret_cast<const Vrx##T*>(pSrcDst), reinterpret_cast<Vrx##T*>(pSrcDst), lenDst); \
        return vrxOk;                                                                                   \
    }                                                                                                   \
    VrxStatus N0(vrxsConj##NAME##_##TC)(const Vrx##T* pSrc, Vrx##TC* pDst, int lenDst) {              \
        if (static_cast<const void*>(pSrc) == static_cast<const void*>(pDst))                          \
            return N0(vrxsConj##NAME##_##TC##_I)(pDst, lenDst);                                         \
        if (VrxStatus st = n0::checkArgs(lenDst, pSrc, pDst)) return st;                               \
        expand<Vrx##T, F>(pSrc, reinterpret_cast<Vrx##T*>(pDst), lenDst);                              \
        return vrxOk;                                                                                   \
    }

VRX_CONJ(Ccs, Form::CCS, 32f, 32fc)
VRX_CONJ(Pack, Form::Pack, 32f, 32fc)
VRX_CONJ(Perm, Form::Perm, 32f, 32fc)
VRX_CONJ(Ccs, Form::CCS, 64f, 64fc)
VRX_CONJ(Pack, Form::Pack, 64f, 64fc)
VRX_CONJ(Perm, Form::Perm, 64f, 64fc)

// ------------------------------------------------------------ products

#define VRX_MULPACKED(T)                                                                                \
    VrxStatus N0(vrxsMulPack_##T##_I)(const Vrx##T* pSrc, Vrx##T* pSrcDst, int len) {                  \
        if (VrxStatus st = n0::checkArgs(len, pSrc, pSrcDst)) return st;                               \
        mulPack<Vrx##T, false>(pSrc, pSrcDst, pSrcDst, len);                                            \
        return vrxOk;                                                                                   \
    }                                                                                                   \
    VrxStatus N0(vrxsMulPack_##T)(const Vrx##T* pSrc1, const Vrx##T* pSrc2, Vrx##T* pDst, int len) {   \
        if (pSrc2 == pDst) return N0(vrxsMulPack_##T##_I)(pSrc1, pDst, len);                           \
        if (pSrc1 == pDst) return N0(vrxsMulPack_##T##_I)(pSrc2, pDst, len);                           \
        if (VrxStatus st = n0::checkArgs(len, pSrc1, pSrc2, pDst)) return st;                          \
        mulPack<Vrx##T, false>(pSrc1, pSrc2, pDst, len);                                                \
        return vrxOk;                                                                                   \
    }                                                                                                   \
    VrxStatus N0(vrxsMulPerm_##T##_I)(const Vrx##T* pSrc, Vrx##T* pSrcDst, int len) {                  \
        if (VrxStatus st = n0::checkArgs(len, pSrc, pSrcDst)) return st;                               \
        mulPerm<Vrx##T>(pSrc, pSrcDst, pSrcDst, len);                                                   \
        return vrxOk;                                                                                   \
    }                                                                                                   \
    VrxStatus N0(vrxsMulPerm_##T)(const Vrx##T* pSrc1, const Vrx##T* pSrc2, Vrx##T* pDst, int len) {   \
        if (pSrc2 == pDst) return N0(vrxsMulPerm_##T##_I)(pSrc1, pDst, len);                           \
        if (pSrc1 == pDst) return N0(vrxsMulPerm_##T##_I)(pSrc2, pDst, len);                           \
        if (VrxStatus st = n0::checkArgs(len, pSrc1, pSrc2, pDst)) return st;                          \
        mulPerm<Vrx##T>(pSrc1, pSrc2, pDst, len);                                                       \
        return vrxOk;                                                                                   \
    }                                                                                                   \
    VrxStatus N0(vrxsMulPackConj_##T##_I)(const Vrx##T* pSrc, Vrx##T* pSrcDst, int len) {              \
        if (VrxStatus st = n0::checkArgs(len, pSrc, pSrcDst)) return st;                               \
        mulPack<Vrx##T, true>(pSrc, pSrcDst, pSrcDst, len);                                             \
        return vrxOk;                                                                                   \
    }                                                                                                   \
    VrxStatus N0(ownsMulPackConj_##T)(const Vrx##T* pSrc1, const Vrx##T* pSrc2, Vrx##T* pDst, int len) { \
        if (VrxStatus st = n0::checkArgs(len, pSrc1, pSrc2, pDst)) return st;                          \
        mulPack<Vrx##T, true>(pSrc1, pSrc2, pDst, len);                                                 \
        return vrxOk;                                                                                   \
    }

VRX_MULPACKED(32f)
VRX_MULPACKED(64f)
