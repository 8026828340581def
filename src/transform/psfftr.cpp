// Real FFT: a complex transform of half length plus one recombination pass,
// with the three packed spectrum forms CCS, Pack and Perm.
#include "vrx_fft.h"
#include "vrx_fft_simd.h"

// The vectorisers of g++ 12 turn complex products into fused
// multiply-add-subtract instructions whatever the contraction setting; they
// stay off here, and the vector code is written out by hand.
#pragma GCC optimize("no-tree-vectorize")

using namespace n0::fft;

namespace {

enum class Form { CCS, Pack, Perm };

template <class T> VRX_INLINE T planScale(const Plan* p) {
    if constexpr (sizeof(T) == 4) return p->normScale.f;
    else return p->normScale.d;
}

template <class T> constexpr int kFine = sizeof(T) == 4 ? 1024 : 512;
template <class T> VRX_INLINE bool twoLevel(int order) { return sizeof(T) == 4 ? order >= 19 : order >= 17; }

// Perm -> requested form, in place in the destination.
template <class T> void permToForm(T* d, int64_t N, Form f) {
    if (f == Form::Pack) {
        if (N >= 3) {
            T v = d[1];
            memmove(d + 1, d + 2, static_cast<size_t>(N - 2) * sizeof(T));
            d[N - 1] = v;
        }
    } else if (f == Form::CCS) {
        if (N == 1) { d[1] = T(0); return; }
        d[N] = d[1];
        d[N + 1] = T(0);
        d[1] = T(0);
    }
}

// Source in the given form -> Perm in the destination (safe in place).
template <class T> void formToPerm(const T* s, T* d, int64_t N, Form f) {
    if (f == Form::Perm) {
        if (s != d) memmove(d, s, static_cast<size_t>(N) * sizeof(T));
    } else if (f == Form::CCS) {
        T r0 = s[0];
        T rh = N > 1 ? s[N] : T(0);
        if (N > 2 && s != d) memmove(d + 2, s + 2, static_cast<size_t>(N - 2) * sizeof(T));
        d[0] = r0;
        if (N > 1) d[1] = rh;
    } else {
        if (N <= 2) {
            if (s != d) memmove(d, s, static_cast<size_t>(N) * sizeof(T));
            return;
        }
        T last = s[N - 1];
        T r0 = s[0];
        memmove(d + 2, s + 1, static_cast<size_t>(N - 2) * sizeof(T));
        d[0] = r0;
        d[1] = last;
    }
}

// Small real transforms (N <= 16) through a direct complex product form.
template <class T, bool Inv> void smallReal(T* d, int order, T scale) {
    const int64_t N = int64_t(1) << order;
    if (!Inv) {
        // d holds N reals in, Perm out
        if (N == 1) { if (scale != T(0)) d[0] *= scale; return; }
        T x[16];
        memcpy(x, d, static_cast<size_t>(N) * sizeof(T));
        // DFT of a real sequence at k = 0 .. N/2, straightforward radix-2 via complex transform
        Cx<T> z[16];
        for (int64_t i = 0; i < N; ++i) z[i] = {x[i], T(0)};
        for (int64_t i = 0, j = 0; i < N; ++i) {
            if (i < j) { Cx<T> t = z[i]; z[i] = z[j]; z[j] = t; }
            int64_t b = N >> 1;
            while (j & b) { j ^= b; b >>= 1; }
            j |= b;
        }
        for (int64_t L = 2; L <= N; L <<= 1) {
            for (int64_t b = 0; b < N; b += L)
                for (int64_t k = 0; k < L / 2; ++k) {
                    Cx<T> w = fixTwiddle<T>(k, L);
                    Cx<T> y = n0::fft::cmulw<false>(z[b + k + L / 2], w);
                    Cx<T> a = z[b + k];
                    z[b + k] = cadd(a, y);
                    z[b + k + L / 2] = csub(a, y);
                }
        }
        d[0] = z[0].re;
        d[1] = z[N / 2].re;
        for (int64_t k = 1; k < N / 2; ++k) { d[2 * k] = z[k].re; d[2 * k + 1] = z[k].im; }
        if (scale != T(0)) for (int64_t i = 0; i < N; ++i) d[i] *= scale;
    } else {
        // d holds Perm in, N reals out
        if (N == 1) { if (scale != T(0)) d[0] *= scale; return; }
        Cx<T> z[16];
        z[0] = {d[0], T(0)};
        z[N / 2] = {d[1], T(0)};
        for (int64_t k = 1; k < N / 2; ++k) {
            z[k] = {d[2 * k], d[2 * k + 1]};
            z[N - k] = {d[2 * k], -d[2 * k + 1]};
        }
        for (int64_t i = 0, j = 0; i < N; ++i) {
            if (i < j) { Cx<T> t = z[i]; z[i] = z[j]; z[j] = t; }
            int64_t b = N >> 1;
            while (j & b) { j ^= b; b >>= 1; }
            j |= b;
        }
        for (int64_t L = 2; L <= N; L <<= 1) {
            for (int64_t b = 0; b < N; b += L)
                for (int64_t k = 0; k < L / 2; ++k) {
                    Cx<T> w = fixTwiddle<T>(k, L);
                    Cx<T> y = n0::fft::cmulw<true>(z[b + k + L / 2], w);
                    Cx<T> a = z[b + k];
                    z[b + k] = cadd(a, y);
                    z[b + k + L / 2] = csub(a, y);
                }
        }
        for (int64_t i = 0; i < N; ++i) d[i] = scale != T(0) ? z[i].re * scale : z[i].re;
    }
}

// Forward recombination of the half-length spectrum z (M values) into Perm.
template <class T> void realRecombine(Cx<T>* z, int64_t M, const T* tab, int order) {
    const Cx<T> z0 = z[0];
    z[0] = {z0.re + z0.im, z0.re - z0.im};
    if (!twoLevel<T>(order)) {
        for (int64_t k = 1; k <= M / 2; ++k) {
            int64_t p = (k - 1) >> 1, w = (k - 1) & 1;
            const T c = tab[4 * p + w], s = tab[4 * p + 2 + w];
            const Cx<T> x = z[k], y = z[M - k];
            const T dr = x.re - y.re, di = x.im + y.im;
            const T P = dr * s + c * di;
            const T Q = di * s - c * dr;
            z[k] = {y.re + P, Q - y.im};
            z[M - k] = {x.re - P, Q - x.im};
        }
        return;
    }
    const int F = kFine<T>;
    const T* coarse = tab + 2 * F;
    const T h = T(0.5);
    for (int64_t k = 1; k <= M / 2; ++k) {
        int64_t j = (k - 1) / F, kf = k - j * F;
        int64_t p = (kf - 1) >> 1, w = (kf - 1) & 1;
        const Cx<T> f = {tab[4 * p + w], tab[4 * p + 2 + w]};
        const Cx<T> g = {coarse[2 * j], coarse[2 * j + 1]};
        const Cx<T> W = {f.re * g.re - f.im * g.im, f.re * g.im + f.im * g.re};
        const Cx<T> x = z[k], y = z[M - k];
        const Cx<T> A = {h * (x.re + y.re), h * (x.im - y.im)};
        const Cx<T> D = {h * (x.re - y.re), h * (x.im + y.im)};
        const Cx<T> P = {W.re * D.re - W.im * D.im, W.re * D.im + W.im * D.re};
        const Cx<T> B = {P.im, -P.re};
        z[k] = {A.re + B.re, A.im + B.im};
        z[M - k] = {A.re - B.re, B.im - A.im};
    }
}

// Inverse recombination: Perm in z (after the head) into the half-length
// spectrum, twice its value.
template <class T> void ccsRecombine(Cx<T>* z, int64_t M, const T* tab, int order) {
    const Cx<T> z0 = z[0];
    z[0] = {z0.re + z0.im, z0.re - z0.im};
    const bool two = twoLevel<T>(order);
    const int F = kFine<T>;
    const T* coarse = tab + 2 * F;
    for (int64_t k = 1; k <= M / 2; ++k) {
        T a, b;
        if (!two) {
            int64_t p = (k - 1) >> 1, w = (k - 1) & 1;
            a = tab[4 * p + w];
            b = tab[4 * p + 2 + w];
        } else {
            int64_t j = (k - 1) / F, kf = k - j * F;
            int64_t p = (kf - 1) >> 1, w = (kf - 1) & 1;
            const T fr = tab[4 * p + w], fi = tab[4 * p + 2 + w];
            const T gr = coarse[2 * j], gi = coarse[2 * j + 1];
            a = fr * gr - fi * gi;
            b = fr * gi + fi * gr;
        }
        const Cx<T> x = z[k], y = z[M - k];
        const T dr = x.re - y.re, di = x.im + y.im;
        const T U = b * dr - a * di;
        const T Tt = a * dr + b * di;
        const T sr = x.re + y.re, si = x.im - y.im;
        z[k] = {sr + U, si + Tt};
        z[M - k] = {sr - U, Tt - si};
    }
}

template <class T>
VRX_INLINE VrxStatus checkReal(const void* planV, int32_t id, const void* s, const void* d, const Vrx8u* pBuf) {
    if (!planV) return vrxErrNullPtr;
    const Plan* plan = static_cast<const Plan*>(planV);
    if (plan->idWord != id) return vrxErrBadSpec;
    if (!s || !d) return vrxErrNullPtr;
    if (!pBuf && plan->workSize > 0) return vrxErrNullPtr;
    return vrxOk;
}

template <class T>
VrxStatus fwdReal(const void* planV, int32_t id, const T* pSrc, T* pDst, Vrx8u* pBuf, Form f) {
    if (VrxStatus st = checkReal<T>(planV, id, pSrc, pDst, pBuf)) return st;
    const Plan* plan = static_cast<const Plan*>(planV);
    const int order = plan->order;
    const int64_t N = int64_t(1) << order;
    const T scale = plan->fwdNorm ? planScale<T>(plan) : T(0);
    if (order <= 4) {
        if (pSrc != pDst) memmove(pDst, pSrc, static_cast<size_t>(N) * sizeof(T));
        smallReal<T, false>(pDst, order, scale);
    } else {
        uint8_t* work = plan->workSize > 0 ? align64(pBuf) : nullptr;
        complexTransform<T, false>(plan, order - 1, pSrc, nullptr, pDst, nullptr, false, scale, work);
        realRecombine<T>(reinterpret_cast<Cx<T>*>(pDst), N / 2, static_cast<const T*>(plan->recombFwdTab), order);
    }
    permToForm<T>(pDst, N, f);
    return vrxOk;
}

template <class T>
VrxStatus invReal(const void* planV, int32_t id, const T* pSrc, T* pDst, Vrx8u* pBuf, Form f) {
    if (VrxStatus st = checkReal<T>(planV, id, pSrc, pDst, pBuf)) return st;
    const Plan* plan = static_cast<const Plan*>(planV);
    const int order = plan->order;
    const int64_t N = int64_t(1) << order;
    const T scale = plan->invNorm ? planScale<T>(plan) : T(0);
    formToPerm<T>(pSrc, pDst, N, f);
    if (order <= 4) {
        smallReal<T, true>(pDst, order, scale);
        return vrxOk;
    }
    Cx<T>* z = reinterpret_cast<Cx<T>*>(pDst);
    ccsRecombine<T>(z, N / 2, static_cast<const T*>(plan->recombInvTab), order);
    uint8_t* work = plan->workSize > 0 ? align64(pBuf) : nullptr;
    complexTransform<T, true>(plan, order - 1, pDst, nullptr, pDst, nullptr, false, scale, work);
    return vrxOk;
}

}  // namespace

#define VRX_REAL_FWD(F, T, ID, FORM)                                                                   \
    VrxStatus N0(vrxsFFTFwd_RTo##F##_##T)(const Vrx##T* pSrc, Vrx##T* pDst, const VrxsFftPlan_R_##T* plan, Vrx8u* pBuf) { \
        return fwdReal<Vrx##T>(plan, ID, pSrc, pDst, pBuf, FORM);                                       \
    }                                                                                                   \
    VrxStatus N0(vrxsFFTFwd_RTo##F##_##T##_I)(Vrx##T* pSrcDst, const VrxsFftPlan_R_##T* plan, Vrx8u* pBuf) { \
        return N0(vrxsFFTFwd_RTo##F##_##T)(pSrcDst, pSrcDst, plan, pBuf);                               \
    }
#define VRX_REAL_INV(F, T, ID, FORM)                                                                   \
    VrxStatus N0(vrxsFFTInv_##F##ToR_##T)(const Vrx##T* pSrc, Vrx##T* pDst, const VrxsFftPlan_R_##T* plan, Vrx8u* pBuf) { \
        return invReal<Vrx##T>(plan, ID, pSrc, pDst, pBuf, FORM);                                       \
    }                                                                                                   \
    VrxStatus N0(vrxsFFTInv_##F##ToR_##T##_I)(Vrx##T* pSrcDst, const VrxsFftPlan_R_##T* plan, Vrx8u* pBuf) { \
        return N0(vrxsFFTInv_##F##ToR_##T)(pSrcDst, pSrcDst, plan, pBuf);                               \
    }

VRX_REAL_FWD(CCS, 32f, kIdR32f, Form::CCS)
VRX_REAL_FWD(Pack, 32f, kIdR32f, Form::Pack)
VRX_REAL_FWD(Perm, 32f, kIdR32f, Form::Perm)
VRX_REAL_FWD(CCS, 64f, kIdR64f, Form::CCS)
VRX_REAL_FWD(Pack, 64f, kIdR64f, Form::Pack)
VRX_REAL_FWD(Perm, 64f, kIdR64f, Form::Perm)
VRX_REAL_INV(CCS, 32f, kIdR32f, Form::CCS)
VRX_REAL_INV(Pack, 32f, kIdR32f, Form::Pack)
VRX_REAL_INV(Perm, 32f, kIdR32f, Form::Perm)
VRX_REAL_INV(CCS, 64f, kIdR64f, Form::CCS)
VRX_REAL_INV(Pack, 64f, kIdR64f, Form::Pack)
VRX_REAL_INV(Perm, 64f, kIdR64f, Form::Perm)
