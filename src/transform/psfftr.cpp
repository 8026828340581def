// Real FFT: a complex transform of half length plus one recombination pass,
// with the three packed spectrum forms CCS, Pack and Perm.
#include "vrx_fft.h"
#include "vrx_fft_simd.h"

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

// Small real transforms (N <= 16) through the straight-line complex kernels.
template <class T, bool Inv> void smallReal(T* d, int order, T scale) {
    const int64_t N = int64_t(1) << order;
    alignas(64) Cx<T> z[16];
    if (!Inv) {
        // N reals in, Perm out; at N = 16 the complex input is built in
        // registers, so that the kernel's wide loads meet wide stores
        if (N == 16) {
            if constexpr (sizeof(T) == 4) {
                __m512 x = _mm512_loadu_ps(reinterpret_cast<const float*>(d)), zero = _mm512_setzero_ps();
                const __m512i lo = _mm512_set_epi32(16, 7, 16, 6, 16, 5, 16, 4, 16, 3, 16, 2, 16, 1, 16, 0);
                const __m512i hi = _mm512_set_epi32(16, 15, 16, 14, 16, 13, 16, 12, 16, 11, 16, 10, 16, 9, 16, 8);
                _mm512_store_ps(reinterpret_cast<float*>(z), _mm512_permutex2var_ps(x, lo, zero));
                _mm512_store_ps(reinterpret_cast<float*>(z + 8), _mm512_permutex2var_ps(x, hi, zero));
            } else {
                const __m512i lo = _mm512_set_epi64(8, 3, 8, 2, 8, 1, 8, 0), hi = _mm512_set_epi64(8, 7, 8, 6, 8, 5, 8, 4);
                const __m512d zero = _mm512_setzero_pd();
                for (int h = 0; h < 2; ++h) {
                    __m512d x = _mm512_loadu_pd(reinterpret_cast<const double*>(d) + 8 * h);
                    _mm512_store_pd(reinterpret_cast<double*>(z + 8 * h), _mm512_permutex2var_pd(x, lo, zero));
                    _mm512_store_pd(reinterpret_cast<double*>(z + 8 * h + 4), _mm512_permutex2var_pd(x, hi, zero));
                }
            }
        } else {
            for (int64_t i = 0; i < N; ++i) z[i] = {d[i], T(0)};
        }
        smallComplex<T, false>(order, z, z, scale);
        d[0] = z[0].re;
        if (N == 1) return;
        const T rh = z[N / 2].re;
        memcpy(d + 2, z + 1, static_cast<size_t>(N - 2) * sizeof(T));
        d[1] = rh;
    } else {
        // Perm in, N reals out
        z[0] = {d[0], T(0)};
        if (N > 1) z[N / 2] = {d[1], T(0)};
        for (int64_t k = 1; k < N / 2; ++k) {
            z[k] = {d[2 * k], d[2 * k + 1]};
            z[N - k] = {d[2 * k], -d[2 * k + 1]};
        }
        smallComplex<T, true>(order, z, z, scale);
        for (int64_t i = 0; i < N; ++i) d[i] = z[i].re;
    }
}

// Vector helpers of the recombination: lanes reversed, real and imaginary
// parts of a vector of factor pairs spread over both halves of each lane.
VRX_INLINE __m512 revLanes(__m512 v) {
    return _mm512_castpd_ps(_mm512_permutexvar_pd(_mm512_set_epi64(0, 1, 2, 3, 4, 5, 6, 7), _mm512_castps_pd(v)));
}
VRX_INLINE __m512d revLanes(__m512d v) { return _mm512_shuffle_f64x2(v, v, 0x1B); }
VRX_INLINE __m512 dupFirst(__m512 v) { return _mm512_moveldup_ps(v); }
VRX_INLINE __m512 dupSecond(__m512 v) { return _mm512_movehdup_ps(v); }
VRX_INLINE __m512d dupFirst(__m512d v) { return _mm512_movedup_pd(v); }
VRX_INLINE __m512d dupSecond(__m512d v) { return _mm512_permute_pd(v, 0xFF); }
VRX_INLINE __m512 swapRI(__m512 v) { return _mm512_permute_ps(v, 0xB1); }
VRX_INLINE __m512d swapRI(__m512d v) { return _mm512_permute_pd(v, 0x55); }
VRX_INLINE __m512 vadd(__m512 a, __m512 b) { return _mm512_add_ps(a, b); }
VRX_INLINE __m512d vadd(__m512d a, __m512d b) { return _mm512_add_pd(a, b); }
VRX_INLINE __m512 vsub(__m512 a, __m512 b) { return _mm512_sub_ps(a, b); }
VRX_INLINE __m512d vsub(__m512d a, __m512d b) { return _mm512_sub_pd(a, b); }
VRX_INLINE __m512 vmul(__m512 a, __m512 b) { return _mm512_mul_ps(a, b); }
VRX_INLINE __m512d vmul(__m512d a, __m512d b) { return _mm512_mul_pd(a, b); }
template <class T> struct RV;
template <> struct RV<float> {
    using V = __m512;
    static constexpr int n = 8;
    static VRX_INLINE V ld(const void* p) { return _mm512_loadu_ps(static_cast<const float*>(p)); }
    static VRX_INLINE void st(void* p, V v) { _mm512_storeu_ps(static_cast<float*>(p), v); }
    static VRX_INLINE V negOdd(V v) { return CVec<float, 8>::negOdd(v); }
    static VRX_INLINE V negEven(V v) { return CVec<float, 8>::negEven(v); }
    static VRX_INLINE V bc(float x) { return _mm512_set1_ps(x); }
};
template <> struct RV<double> {
    using V = __m512d;
    static constexpr int n = 4;
    static VRX_INLINE V ld(const void* p) { return _mm512_loadu_pd(static_cast<const double*>(p)); }
    static VRX_INLINE void st(void* p, V v) { _mm512_storeu_pd(static_cast<double*>(p), v); }
    static VRX_INLINE V negOdd(V v) { return CVec<double, 4>::negOdd(v); }
    static VRX_INLINE V negEven(V v) { return CVec<double, 4>::negEven(v); }
    static VRX_INLINE V bc(double x) { return _mm512_set1_pd(x); }
};

// Forward recombination of the half-length spectrum z (M values) into Perm.
template <class T> void realRecombine(Cx<T>* z, int64_t M, const T* tab, int order) {
    const Cx<T> z0 = z[0];
    z[0] = {z0.re + z0.im, z0.re - z0.im};
    if (!twoLevel<T>(order)) {
        using R = RV<T>;
        constexpr int L = R::n;
        int64_t k = 1;
        // front lanes k .. k+L-1 against back lanes M-k .. M-k-L+1, the same
        // arithmetic as the scalar loop below
        for (; k + L <= M / 2; k += L) {
            auto x = R::ld(z + k);
            auto y = revLanes(R::ld(z + M - k - L + 1));
            auto f = R::ld(tab + 2 * (k - 1));
            auto c = dupFirst(f), s = dupSecond(f);
            auto yc = R::negOdd(y), xc = R::negOdd(x);
            auto d = vsub(x, yc);
            auto pq = vadd(vmul(d, s), R::negOdd(vmul(swapRI(d), c)));
            R::st(z + k, vadd(pq, yc));
            R::st(z + M - k - L + 1, revLanes(vadd(R::negEven(pq), xc)));
        }
        for (; k <= M / 2; ++k) {
            const T c = tab[2 * (k - 1)], s = tab[2 * (k - 1) + 1];
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
    int64_t k = 1;
    {
        // groups of L lanes never cross a coarse step, since L divides F
        using R = RV<T>;
        constexpr int L = R::n;
        using CV = CVec<T, L>;
        for (; k + L <= M / 2; k += L) {
            int64_t j = (k - 1) / F, kf = k - j * F;
            CV W = CV::template mul<false>(CV::load(reinterpret_cast<const Cx<T>*>(tab) + (kf - 1)),
                                           CV::bcast({coarse[2 * j], coarse[2 * j + 1]}));
            auto x = R::ld(z + k);
            auto y = revLanes(R::ld(z + M - k - L + 1));
            auto yc = R::negOdd(y);
            CV A{vmul(vadd(x, yc), R::bc(h))}, D{vmul(vsub(x, yc), R::bc(h))};
            CV B = CV::template rot<false>(CV::template mul<false>(D, W));
            (A + B).store(z + k);
            R::st(z + M - k - L + 1, revLanes(R::negOdd((A - B).v)));
        }
    }
    for (; k <= M / 2; ++k) {
        int64_t j = (k - 1) / F, kf = k - j * F;
        const Cx<T> f = {tab[2 * (kf - 1)], tab[2 * (kf - 1) + 1]};
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
    int64_t k = 1;
    {
        using R = RV<T>;
        constexpr int L = R::n;
        using CV = CVec<T, L>;
        for (; k + L <= M / 2; k += L) {
            auto x = R::ld(z + k);
            auto y = revLanes(R::ld(z + M - k - L + 1));
            typename R::V f;
            if (!two) {
                f = R::ld(tab + 2 * (k - 1));
            } else {
                int64_t j = (k - 1) / F, kf = k - j * F;
                f = CV::template mul<false>(CV::load(reinterpret_cast<const Cx<T>*>(tab) + (kf - 1)),
                                            CV::bcast({coarse[2 * j], coarse[2 * j + 1]})).v;
            }
            auto a = dupFirst(f), b = dupSecond(f);
            auto yc = R::negOdd(y);
            auto d = vsub(x, yc);
            auto S = vadd(x, yc);
            auto ut = vadd(vmul(d, b), R::negEven(vmul(swapRI(d), a)));
            R::st(z + k, vadd(S, ut));
            R::st(z + M - k - L + 1, revLanes(R::negOdd(vsub(S, ut))));
        }
    }
    for (; k <= M / 2; ++k) {
        T a, b;
        if (!two) {
            a = tab[2 * (k - 1)];
            b = tab[2 * (k - 1) + 1];
        } else {
            int64_t j = (k - 1) / F, kf = k - j * F;
            const T fr = tab[2 * (kf - 1)], fi = tab[2 * (kf - 1) + 1];
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
