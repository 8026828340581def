// Goertzel: one frequency's spectral value by the second-order recurrence
// w[n] = x[n] + 2c w[n-1] - w[n-2], c = cos(theta), theta = 2 pi rFreq.
// The result e^{i theta} w1 - w2 carries the phase of the last sample.
//
// The recurrence runs four samples a step: with U_k the Chebyshev values
// sin((k+1) theta)/sin(theta) (U_1 = 2c, U_2 = 4c^2 - 1, ...),
//   w[n+3] = U3 w[n] - U2 w[n-1] + (x[n+3] + U1 x[n+2] + U2 x[n+1])
//   w[n+4] = U4 w[n] - U3 w[n-1] + (x[n+4] + U1 x[n+3] + U2 x[n+2] + U3 x[n+1])
// so the chain of dependent operations is three per four samples; the
// sample terms do not depend on the state. The 32- and 16-bit forms round
// c, s and the U_k (computed in double from the rounded c) to float and
// run in float; the 64-bit forms run in double. The 16-bit forms run at
// round to nearest whatever the caller's mode, which they put back.
#include "vrx_base.h"
#include "vrx_fpu.h"
#include "vrx_tiers.h"

#include <math.h>

namespace {

enum class Tier { A53, A50, A26 };

// c = cos(theta), s = sin(theta) from the tier entry of the form.
void sinCos(double rFreq, Tier t, double& c, double& s) {
    const double theta = 6.283185307179586 * rFreq;
    if (t == Tier::A53) N0(vrxsSinCos_64f_A53)(&theta, &s, &c, 1);
    else if (t == Tier::A50) N0(vrxsSinCos_64f_A50)(&theta, &s, &c, 1);
    else N0(vrxsSinCos_64f_A26)(&theta, &s, &c, 1);
}

// The recurrence over K interleaved parts (K = 1 real, K = 2 complex) of len
// samples; load(i) gives scalar i as A. On return w1 = w[len-1], w2 = w[len-2].
template <class A, int K, class Load>
VRX_INLINE void recur(Load load, int len, A c, A* w1, A* w2) {
    const double cd = static_cast<double>(c);
    const A u1 = static_cast<A>(2.0 * cd);
    const A u2 = static_cast<A>(4.0 * cd * cd - 1.0);
    const A u3 = static_cast<A>((8.0 * cd * cd - 4.0) * cd);
    const A u4 = static_cast<A>((16.0 * cd * cd - 12.0) * cd * cd + 1.0);
    A a[K], b[K];
    for (int k = 0; k < K; ++k) a[k] = b[k] = A(0);
    const int head = len & 3;
    int64_t i = 0;
    for (; i < head; ++i) {
        for (int k = 0; k < K; ++k) {
            const A w = (load(i * K + k) - b[k]) + u1 * a[k];
            b[k] = a[k];
            a[k] = w;
        }
    }
    for (; i < len; i += 4) {
        for (int k = 0; k < K; ++k) {
            const A x1 = load(i * K + k), x2 = load((i + 1) * K + k);
            const A x3 = load((i + 2) * K + k), x4 = load((i + 3) * K + k);
            const A p3 = (x3 + u1 * x2) + u2 * x1;
            const A p4 = ((x4 + u1 * x3) + u2 * x2) + u3 * x1;
            const A nb = (u3 * a[k] - u2 * b[k]) + p3;
            const A na = (u4 * a[k] - u3 * b[k]) + p4;
            a[k] = na;
            b[k] = nb;
        }
    }
    for (int k = 0; k < K; ++k) {
        w1[k] = a[k];
        w2[k] = b[k];
    }
}

VRX_INLINE bool badFreq(double f) { return !(f >= 0.0 && f < 1.0); }

// Real input: (w1 c - w2, w1 s).
template <class A, class S, class Out>
VrxStatus goertzReal(const S* src, int len, Out* pVal, double rFreq, Tier t) {
    if (VrxStatus st = n0::checkArgs(len, src, pVal)) return st;
    if (badFreq(rFreq)) return vrxErrRelFreq;
    double cd, sd;
    sinCos(rFreq, t, cd, sd);
    const A c = static_cast<A>(cd), s = static_cast<A>(sd);
    A w1, w2;
    recur<A, 1>([src](int64_t i) { return static_cast<A>(src[i]); }, len, c, &w1, &w2);
    pVal->re = w1 * c - w2;
    pVal->im = w1 * s;
    return vrxOk;
}

// Complex input: both parts through the same recurrence.
template <class A, class S, class Out>
VrxStatus goertzCplx(const S* src, int len, Out* pVal, double rFreq, Tier t) {
    if (VrxStatus st = n0::checkArgs(len, src, pVal)) return st;
    if (badFreq(rFreq)) return vrxErrRelFreq;
    double cd, sd;
    sinCos(rFreq, t, cd, sd);
    const A c = static_cast<A>(cd), s = static_cast<A>(sd);
    A w1[2], w2[2];
    const auto* p = &src->re;
    recur<A, 2>([p](int64_t i) { return static_cast<A>(p[i]); }, len, c, w1, w2);
    pVal->re = (w1[0] * c - w1[1] * s) - w2[0];
    pVal->im = (w1[1] * c + w1[0] * s) - w2[1];
    return vrxOk;
}

// v * 2^-sf, clamped to the 16-bit range, rounded to nearest (the caller
// holds rounding at nearest). The scale is
// applied as two finite powers of two, so no value gives NaN: any scale
// factor gives 0 or a bound where the exact result is out of reach.
int16_t scaleTo16s(float v, int sf) {
    const int e = sf < -2000 ? -2000 : (sf > 2000 ? 2000 : sf);
    double r = static_cast<double>(v);
    r = ldexp(r, -(e / 2));
    r = ldexp(r, -(e - e / 2));
    if (r > 32767.0) r = 32767.0;
    if (r < -32768.0) r = -32768.0;
    return static_cast<int16_t>(lrint(r));
}

struct Val32 {
    float re, im;
};

}  // namespace

VrxStatus N0(vrxsGoertz_32f)(const Vrx32f* pSrc, int len, Vrx32fc* pVal, Vrx32f rFreq) {
    return goertzReal<float>(pSrc, len, pVal, rFreq, Tier::A50);
}
VrxStatus N0(vrxsGoertz_32fc)(const Vrx32fc* pSrc, int len, Vrx32fc* pVal, Vrx32f rFreq) {
    return goertzCplx<float>(pSrc, len, pVal, rFreq, Tier::A50);
}
VrxStatus N0(vrxsGoertz_64f)(const Vrx64f* pSrc, int len, Vrx64fc* pVal, Vrx64f rFreq) {
    return goertzReal<double>(pSrc, len, pVal, rFreq, Tier::A53);
}
VrxStatus N0(vrxsGoertz_64fc)(const Vrx64fc* pSrc, int len, Vrx64fc* pVal, Vrx64f rFreq) {
    return goertzCplx<double>(pSrc, len, pVal, rFreq, Tier::A53);
}
VrxStatus N0(vrxsGoertz_16s_Sfs)(const Vrx16s* pSrc, int len, Vrx16sc* pVal, Vrx32f rFreq, int scaleFactor) {
    // the whole kernel, factors and conversion, runs at round to nearest
    n0::RoundNearestGuard g;
    Val32 v;
    if (VrxStatus st = goertzReal<float>(pSrc, len, pVal ? &v : nullptr, rFreq, Tier::A26)) return st;
    pVal->re = scaleTo16s(v.re, scaleFactor);
    pVal->im = scaleTo16s(v.im, scaleFactor);
    return vrxOk;
}
VrxStatus N0(vrxsGoertz_16sc_Sfs)(const Vrx16sc* pSrc, int len, Vrx16sc* pVal, Vrx32f rFreq, int scaleFactor) {
    // the whole kernel, factors and conversion, runs at round to nearest
    n0::RoundNearestGuard g;
    Val32 v;
    if (VrxStatus st = goertzCplx<float>(pSrc, len, pVal ? &v : nullptr, rFreq, Tier::A26)) return st;
    pVal->re = scaleTo16s(v.re, scaleFactor);
    pVal->im = scaleTo16s(v.im, scaleFactor);
    return vrxOk;
}
