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
// run in float, the sample terms first, a register of them at a time, then
// the chain (16-bit samples converted as they are loaded; complex input
// with both parts of the chain in one register); the 64-bit forms run in
// double. The 16-bit forms run at
// round to nearest whatever the caller's mode, which they put back.
#include "vrx_base.h"
#include "vrx_fpu.h"
#include "vrx_tiers.h"
#include "simd/simd.h"

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

// The factors of the recurrence: U_1 .. U_4 of c, in double, rounded to A.
template <class A> struct Factors {
    A u1, u2, u3, u4;
    explicit Factors(A c) {
        const double cd = static_cast<double>(c);
        u1 = static_cast<A>(2.0 * cd);
        u2 = static_cast<A>(4.0 * cd * cd - 1.0);
        u3 = static_cast<A>((8.0 * cd * cd - 4.0) * cd);
        u4 = static_cast<A>((16.0 * cd * cd - 12.0) * cd * cd + 1.0);
    }
};

// cnt single steps over K interleaved parts (K = 1 real, K = 2 complex);
// load(i) gives scalar i as A; a = w[n], b = w[n-1].
template <class A, int K, class Load>
VRX_INLINE void stepOne(Load load, int64_t cnt, const Factors<A>& f, A* a, A* b) {
    for (int64_t i = 0; i < cnt; ++i) {
        for (int k = 0; k < K; ++k) {
            const A w = (load(i * K + k) - b[k]) + f.u1 * a[k];
            b[k] = a[k];
            a[k] = w;
        }
    }
}

// cnt samples (a multiple of 4), four at a time.
template <class A, int K, class Load>
VRX_INLINE void stepFour(Load load, int64_t cnt, const Factors<A>& f, A* a, A* b) {
    A ra[K], rb[K];  // in registers: the stores below could alias the samples
    for (int k = 0; k < K; ++k) { ra[k] = a[k]; rb[k] = b[k]; }
    for (int64_t i = 0; i < cnt; i += 4) {
        for (int k = 0; k < K; ++k) {
            const A x1 = load(i * K + k), x2 = load((i + 1) * K + k);
            const A x3 = load((i + 2) * K + k), x4 = load((i + 3) * K + k);
            const A p3 = (x3 + f.u1 * x2) + f.u2 * x1;
            const A p4 = ((x4 + f.u1 * x3) + f.u2 * x2) + f.u3 * x1;
            const A nb = (f.u3 * ra[k] - f.u2 * rb[k]) + p3;
            const A na = (f.u4 * ra[k] - f.u3 * rb[k]) + p4;
            ra[k] = na;
            rb[k] = nb;
        }
    }
    for (int k = 0; k < K; ++k) { a[k] = ra[k]; b[k] = rb[k]; }
}

// Real input in float (32- and 16-bit forms), a stretch of 1024 samples at
// a time, in two passes. The first computes the sample terms of each
// four-sample step,
//   p3 = (x[4i+2] + U1 x[4i+1]) + U2 x[4i]
//   p4 = ((x[4i+3] + U1 x[4i+2]) + U2 x[4i+1]) + U3 x[4i],
// sixteen steps per register: an in-lane 4 x 4 transpose of 64 samples
// brings the four samples of each step into one lane (step 4r + l of the
// sixteen lands at element 4l + r). The second runs the dependent chain
// alone on them (register work beside it would take its ports). load(j, r)
// gives the 16 scalars from j as floats, those from r on as 0. cnt is a
// multiple of 4.
template <class Load>
VRX_INLINE void stepFloat(Load load, int64_t cnt, const Factors<float>& f, float* a, float* b) {
    using F = n0::simd::V<float>;
    constexpr int64_t kStretch = 1024;
    const F::R u1 = F::set1(f.u1), u2 = F::set1(f.u2), u3 = F::set1(f.u3);
    const float v2 = f.u2, v3 = f.u3, v4 = f.u4;
    float ra = *a, rb = *b;  // in registers: the stores below could alias the samples
    alignas(64) float t3[kStretch / 4], t4[kStretch / 4];
    auto step = [&](int64_t e) {
        const float nb = (v3 * ra - v2 * rb) + t3[e];
        const float na = (v4 * ra - v3 * rb) + t4[e];
        ra = na;
        rb = nb;
    };
    auto part = [](int64_t r) { return static_cast<size_t>(r <= 0 ? 0 : (r < 16 ? r : 16)); };
    for (int64_t i = 0; i < cnt; i += kStretch) {
        const int64_t n = cnt - i < kStretch ? cnt - i : kStretch;
        for (int64_t q = 0; q < n; q += 64) {
            const int64_t j = i + q, r = n - q;  // scalars
            F::R v[4], x[4];
            for (int m = 0; m < 4; ++m) v[m] = load(j + 16 * m, part(r - 16 * m));
            n0::simd::transpose4InLanes(v, x);
            F::store(t3 + q / 4, F::add(F::add(x[2], F::mul(u1, x[1])), F::mul(u2, x[0])));
            F::store(t4 + q / 4, F::add(F::add(F::add(x[3], F::mul(u1, x[2])), F::mul(u2, x[1])), F::mul(u3, x[0])));
        }
        const int64_t steps = n / 4;
        int64_t s = 0;
        for (; s + 16 <= steps; s += 16) {
#pragma GCC unroll 16
            for (int m = 0; m < 16; ++m) step(s + 4 * (m & 3) + (m >> 2));
        }
        for (int m = 0; s + m < steps; ++m) step(s + 4 * (m & 3) + (m >> 2));
    }
    *a = ra;
    *b = rb;
}

// Complex input in float (32- and 16-bit forms): as stepFloat, but each
// sample's two parts stay together as a 64-bit pair. The first pass computes
// the terms of eight steps per register: of four registers of 32 samples,
// moves of 128-bit blocks and unpacks of 64-bit pairs bring sample m of
// step L + 4e (L < 4, e < 2) to pair 2L + e of register m. The second runs
// both parts' chains in one register, a pair per step, each part through
// the operations of the real form. load as stepFloat's; cnt a multiple of 4.
template <class Load>
VRX_INLINE void stepPairs(Load load, int64_t cnt, const Factors<float>& f, float* a, float* b) {
    namespace s = n0::simd;
    using F = s::V<float>;
    using P = s::Pair32f;
    constexpr int64_t kStretch = 1024;
    const F::R u1 = F::set1(f.u1), u2 = F::set1(f.u2), u3 = F::set1(f.u3);
    const P::R v2 = P::set1(f.u2), v3 = P::set1(f.u3), v4 = P::set1(f.u4);
    P::R ra = P::set(a[0], a[1]), rb = P::set(b[0], b[1]);
    alignas(64) double t3[kStretch / 4], t4[kStretch / 4];  // a pair of floats per step
    auto part = [](int64_t r) { return static_cast<size_t>(r <= 0 ? 0 : (r < 16 ? r : 16)); };
    auto step = [&](int64_t e) {
        const P::R nb = P::add(P::sub(P::mul(v3, ra), P::mul(v2, rb)), P::load(t3 + e));
        const P::R na = P::add(P::sub(P::mul(v4, ra), P::mul(v3, rb)), P::load(t4 + e));
        ra = na;
        rb = nb;
    };
    for (int64_t i = 0; i < cnt; i += kStretch) {
        const int64_t n = cnt - i < kStretch ? cnt - i : kStretch;
        for (int64_t q = 0; q < n; q += 32) {
            const int64_t j = (i + q) * 2, r = (n - q) * 2;  // scalars
            F::R v[4];
            for (int m = 0; m < 4; ++m) v[m] = load(j + 16 * m, part(r - 16 * m));
            const F::R w0 = s::blocks128<0, 2, 0, 2>(v[0], v[1]), w1 = s::blocks128<1, 3, 1, 3>(v[0], v[1]);
            const F::R w2 = s::blocks128<0, 2, 0, 2>(v[2], v[3]), w3 = s::blocks128<1, 3, 1, 3>(v[2], v[3]);
            const F::R x0 = s::unpackLo64(w0, w2), x1 = s::unpackHi64(w0, w2);
            const F::R x2 = s::unpackLo64(w1, w3), x3 = s::unpackHi64(w1, w3);
            F::store(reinterpret_cast<float*>(t3 + q / 4), F::add(F::add(x2, F::mul(u1, x1)), F::mul(u2, x0)));
            F::store(reinterpret_cast<float*>(t4 + q / 4),
                     F::add(F::add(F::add(x3, F::mul(u1, x2)), F::mul(u2, x1)), F::mul(u3, x0)));
        }
        const int64_t steps = n / 4;
        int64_t st = 0;
        for (; st + 8 <= steps; st += 8) {
#pragma GCC unroll 8
            for (int m = 0; m < 8; ++m) step(st + 2 * (m & 3) + (m >> 2));
        }
        for (int m = 0; st + m < steps; ++m) step(st + 2 * (m & 3) + (m >> 2));
    }
    a[0] = P::re(ra);
    a[1] = P::im(ra);
    b[0] = P::re(rb);
    b[1] = P::im(rb);
}

// The whole recurrence: len mod 4 single steps, then blocks of four. On
// return w1 = w[len-1], w2 = w[len-2]. Float and 16-bit input by stepFloat
// (real) or stepPairs (complex), 16-bit samples converted as they are
// loaded; the double forms by stepFour.
template <class A, int K, class S>
VRX_INLINE void recur(const S* src, int len, A c, A* w1, A* w2) {
    const Factors<A> f(c);
    for (int k = 0; k < K; ++k) w1[k] = w2[k] = A(0);
    const int head = len & 3;
    stepOne<A, K>([src](int64_t i) { return static_cast<A>(src[i]); }, head, f, w1, w2);
    const S* rest = src + int64_t(head) * K;
    if constexpr (sizeof(A) == 4) {
        using F = n0::simd::V<float>;
        auto run = [&](auto load) {
            if constexpr (K == 1) stepFloat(load, len - head, f, w1, w2);
            else stepPairs(load, len - head, f, w1, w2);
        };
        if constexpr (sizeof(S) == 2)
            run([rest](int64_t j, size_t r) { return n0::simd::intToFloat(n0::simd::widen16sPart(rest + j, r)); });
        else
            run([rest](int64_t j, size_t r) { return F::loadm(n0::simd::tail<float>(r), rest + j); });
    } else {
        stepFour<A, K>([rest](int64_t i) { return static_cast<A>(rest[i]); }, len - head, f, w1, w2);
    }
}

VRX_INLINE bool badFreq(double f) { return !(f >= 0.0 && f < 1.0); }

// K = 1 real input: (w1 c - w2, w1 s); K = 2 complex input (src points at
// the scalars): e^{i theta} w1 - w2.
template <class A, int K, class S, class Out>
VrxStatus goertz(const S* src, int len, Out* pVal, double rFreq, Tier t) {
    if (VrxStatus st = n0::checkArgs(len, src, pVal)) return st;
    if (badFreq(rFreq)) return vrxErrRelFreq;
    double cd, sd;
    sinCos(rFreq, t, cd, sd);
    const A c = static_cast<A>(cd), s = static_cast<A>(sd);
    A w1[K], w2[K];
    recur<A, K>(src, len, c, w1, w2);
    if constexpr (K == 1) {
        pVal->re = w1[0] * c - w2[0];
        pVal->im = w1[0] * s;
    } else {
        pVal->re = (w1[0] * c - w1[1] * s) - w2[0];
        pVal->im = (w1[1] * c + w1[0] * s) - w2[1];
    }
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

// The 16-bit forms: the whole kernel, factors and conversion, runs at
// round to nearest.
template <int K>
VrxStatus goertz16(const Vrx16s* src, int len, Vrx16sc* pVal, float rFreq, int sf) {
    n0::RoundNearestGuard g;
    Val32 v;
    if (VrxStatus st = goertz<float, K>(src, len, pVal ? &v : nullptr, rFreq, Tier::A26)) return st;
    pVal->re = scaleTo16s(v.re, sf);
    pVal->im = scaleTo16s(v.im, sf);
    return vrxOk;
}

}  // namespace

VrxStatus N0(vrxsGoertz_32f)(const Vrx32f* pSrc, int len, Vrx32fc* pVal, Vrx32f rFreq) {
    return goertz<float, 1>(pSrc, len, pVal, rFreq, Tier::A50);
}
VrxStatus N0(vrxsGoertz_32fc)(const Vrx32fc* pSrc, int len, Vrx32fc* pVal, Vrx32f rFreq) {
    return goertz<float, 2>(reinterpret_cast<const Vrx32f*>(pSrc), len, pVal, rFreq, Tier::A50);
}
VrxStatus N0(vrxsGoertz_64f)(const Vrx64f* pSrc, int len, Vrx64fc* pVal, Vrx64f rFreq) {
    return goertz<double, 1>(pSrc, len, pVal, rFreq, Tier::A53);
}
VrxStatus N0(vrxsGoertz_64fc)(const Vrx64fc* pSrc, int len, Vrx64fc* pVal, Vrx64f rFreq) {
    return goertz<double, 2>(reinterpret_cast<const Vrx64f*>(pSrc), len, pVal, rFreq, Tier::A53);
}
VrxStatus N0(vrxsGoertz_16s_Sfs)(const Vrx16s* pSrc, int len, Vrx16sc* pVal, Vrx32f rFreq, int scaleFactor) {
    return goertz16<1>(pSrc, len, pVal, rFreq, scaleFactor);
}
VrxStatus N0(vrxsGoertz_16sc_Sfs)(const Vrx16sc* pSrc, int len, Vrx16sc* pVal, Vrx32f rFreq, int scaleFactor) {
    return goertz16<2>(reinterpret_cast<const Vrx16s*>(pSrc), len, pVal, rFreq, scaleFactor);
}
