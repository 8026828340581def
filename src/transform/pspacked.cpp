// Operations on packed real spectra: expansion to the full complex
// spectrum (ConjCcs, ConjPack, ConjPerm) and products (MulPack, MulPerm,
// MulPackConj).
#include "vrx_base.h"
#include "vrx_fft_own.h"
#include "vrx_fft_simd.h"


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

// Expansion: in place when source and destination are one array (the
// in-place form's checks then apply), else the two-array checks.
template <class T, Form F, class C> VrxStatus conjI(C* pSrcDst, int lenDst) {
    if (VrxStatus st = n0::checkArgs(lenDst, pSrcDst)) return st;
    if (F == Form::CCS && lenDst <= 2) return vrxOk;
    expand<T, F>(reinterpret_cast<const T*>(pSrcDst), reinterpret_cast<T*>(pSrcDst), lenDst);
    return vrxOk;
}
template <class T, Form F, class C> VrxStatus conjExpand(const T* pSrc, C* pDst, int lenDst) {
    if (static_cast<const void*>(pSrc) == static_cast<const void*>(pDst)) return conjI<T, F>(pDst, lenDst);
    if (VrxStatus st = n0::checkArgs(lenDst, pSrc, pDst)) return st;
    expand<T, F>(pSrc, reinterpret_cast<T*>(pDst), lenDst);
    return vrxOk;
}

// Products: Pack (Conj: times the conjugate) or Perm layout. A two-source
// call whose destination is one of its sources runs as the in-place form.
template <class T, Form F, bool Conj> VrxStatus mulI(const T* pSrc, T* pSrcDst, int len) {
    if (VrxStatus st = n0::checkArgs(len, pSrc, pSrcDst)) return st;
    if constexpr (F == Form::Perm) mulPerm<T>(pSrc, pSrcDst, pSrcDst, len);
    else mulPack<T, Conj>(pSrc, pSrcDst, pSrcDst, len);
    return vrxOk;
}
template <class T, Form F> VrxStatus mul(const T* pSrc1, const T* pSrc2, T* pDst, int len) {
    if (pSrc2 == pDst) return mulI<T, F, false>(pSrc1, pDst, len);
    if (pSrc1 == pDst) return mulI<T, F, false>(pSrc2, pDst, len);
    if (VrxStatus st = n0::checkArgs(len, pSrc1, pSrc2, pDst)) return st;
    if constexpr (F == Form::Perm) mulPerm<T>(pSrc1, pSrc2, pDst, len);
    else mulPack<T, false>(pSrc1, pSrc2, pDst, len);
    return vrxOk;
}
template <class T> VrxStatus mulPackConj(const T* pSrc1, const T* pSrc2, T* pDst, int len) {
    if (VrxStatus st = n0::checkArgs(len, pSrc1, pSrc2, pDst)) return st;
    mulPack<T, true>(pSrc1, pSrc2, pDst, len);
    return vrxOk;
}

}  // namespace

// ------------------------------------------------------------ expansion

VrxStatus N0(vrxsConjCcs_32fc_I)(Vrx32fc* pSrcDst, int lenDst) { return conjI<Vrx32f, Form::CCS>(pSrcDst, lenDst); }
VrxStatus N0(vrxsConjCcs_32fc)(const Vrx32f* pSrc, Vrx32fc* pDst, int lenDst) { return conjExpand<Vrx32f, Form::CCS>(pSrc, pDst, lenDst); }
VrxStatus N0(vrxsConjPack_32fc_I)(Vrx32fc* pSrcDst, int lenDst) { return conjI<Vrx32f, Form::Pack>(pSrcDst, lenDst); }
VrxStatus N0(vrxsConjPack_32fc)(const Vrx32f* pSrc, Vrx32fc* pDst, int lenDst) { return conjExpand<Vrx32f, Form::Pack>(pSrc, pDst, lenDst); }
VrxStatus N0(vrxsConjPerm_32fc_I)(Vrx32fc* pSrcDst, int lenDst) { return conjI<Vrx32f, Form::Perm>(pSrcDst, lenDst); }
VrxStatus N0(vrxsConjPerm_32fc)(const Vrx32f* pSrc, Vrx32fc* pDst, int lenDst) { return conjExpand<Vrx32f, Form::Perm>(pSrc, pDst, lenDst); }
VrxStatus N0(vrxsConjCcs_64fc_I)(Vrx64fc* pSrcDst, int lenDst) { return conjI<Vrx64f, Form::CCS>(pSrcDst, lenDst); }
VrxStatus N0(vrxsConjCcs_64fc)(const Vrx64f* pSrc, Vrx64fc* pDst, int lenDst) { return conjExpand<Vrx64f, Form::CCS>(pSrc, pDst, lenDst); }
VrxStatus N0(vrxsConjPack_64fc_I)(Vrx64fc* pSrcDst, int lenDst) { return conjI<Vrx64f, Form::Pack>(pSrcDst, lenDst); }
VrxStatus N0(vrxsConjPack_64fc)(const Vrx64f* pSrc, Vrx64fc* pDst, int lenDst) { return conjExpand<Vrx64f, Form::Pack>(pSrc, pDst, lenDst); }
VrxStatus N0(vrxsConjPerm_64fc_I)(Vrx64fc* pSrcDst, int lenDst) { return conjI<Vrx64f, Form::Perm>(pSrcDst, lenDst); }
VrxStatus N0(vrxsConjPerm_64fc)(const Vrx64f* pSrc, Vrx64fc* pDst, int lenDst) { return conjExpand<Vrx64f, Form::Perm>(pSrc, pDst, lenDst); }

// ------------------------------------------------------------ products

VrxStatus N0(vrxsMulPack_32f_I)(const Vrx32f* pSrc, Vrx32f* pSrcDst, int len) { return mulI<Vrx32f, Form::Pack, false>(pSrc, pSrcDst, len); }
VrxStatus N0(vrxsMulPack_32f)(const Vrx32f* pSrc1, const Vrx32f* pSrc2, Vrx32f* pDst, int len) { return mul<Vrx32f, Form::Pack>(pSrc1, pSrc2, pDst, len); }
VrxStatus N0(vrxsMulPerm_32f_I)(const Vrx32f* pSrc, Vrx32f* pSrcDst, int len) { return mulI<Vrx32f, Form::Perm, false>(pSrc, pSrcDst, len); }
VrxStatus N0(vrxsMulPerm_32f)(const Vrx32f* pSrc1, const Vrx32f* pSrc2, Vrx32f* pDst, int len) { return mul<Vrx32f, Form::Perm>(pSrc1, pSrc2, pDst, len); }
VrxStatus N0(vrxsMulPackConj_32f_I)(const Vrx32f* pSrc, Vrx32f* pSrcDst, int len) { return mulI<Vrx32f, Form::Pack, true>(pSrc, pSrcDst, len); }
VrxStatus N0(ownsMulPackConj_32f)(const Vrx32f* pSrc1, const Vrx32f* pSrc2, Vrx32f* pDst, int len) { return mulPackConj<Vrx32f>(pSrc1, pSrc2, pDst, len); }
VrxStatus N0(vrxsMulPack_64f_I)(const Vrx64f* pSrc, Vrx64f* pSrcDst, int len) { return mulI<Vrx64f, Form::Pack, false>(pSrc, pSrcDst, len); }
VrxStatus N0(vrxsMulPack_64f)(const Vrx64f* pSrc1, const Vrx64f* pSrc2, Vrx64f* pDst, int len) { return mul<Vrx64f, Form::Pack>(pSrc1, pSrc2, pDst, len); }
VrxStatus N0(vrxsMulPerm_64f_I)(const Vrx64f* pSrc, Vrx64f* pSrcDst, int len) { return mulI<Vrx64f, Form::Perm, false>(pSrc, pSrcDst, len); }
VrxStatus N0(vrxsMulPerm_64f)(const Vrx64f* pSrc1, const Vrx64f* pSrc2, Vrx64f* pDst, int len) { return mul<Vrx64f, Form::Perm>(pSrc1, pSrc2, pDst, len); }
VrxStatus N0(vrxsMulPackConj_64f_I)(const Vrx64f* pSrc, Vrx64f* pSrcDst, int len) { return mulI<Vrx64f, Form::Pack, true>(pSrc, pSrcDst, len); }
VrxStatus N0(ownsMulPackConj_64f)(const Vrx64f* pSrc1, const Vrx64f* pSrc2, Vrx64f* pDst, int len) { return mulPackConj<Vrx64f>(pSrc1, pSrc2, pDst, len); }
