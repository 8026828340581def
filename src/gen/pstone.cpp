// Tone: a sampled cosine (and sine, for complex forms) from one cosine seed
// and a three-term recurrence. The caller's phase is advanced and written
// back before the samples are generated.
#include "psgen.h"

using namespace n0;
using namespace n0::gen;

namespace {

// Cosine (and sine) of the four seed arguments, by the tier of the form.
enum class ToneTier { A26, A50, A53 };

template <bool Cplx>
VRX_INLINE void toneSeed(ToneTier t, const double* x, double* c, double* s) {
    if constexpr (Cplx) {
        if (t == ToneTier::A26) N0(vrxsSinCos_64f_A26)(x, s, c, 4);
        else if (t == ToneTier::A50) N0(vrxsSinCos_64f_A50)(x, s, c, 4);
        else N0(vrxsSinCos_64f_A53)(x, s, c, 4);
    } else {
        if (t == ToneTier::A26) N0(vrxsCos_64f_A26)(x, c, 4);
        else if (t == ToneTier::A50) N0(vrxsCos_64f_A50)(x, c, 4);
        else N0(vrxsCos_64f_A53)(x, c, 4);
    }
}

// Stores of one value of the double recurrence (16-bit: truncated) and of
// the single-precision one (16-bit: rounded in the current mode, saturated).
VRX_INLINE void putD(float* p, double v) { *p = static_cast<float>(v); }
VRX_INLINE void putD(double* p, double v) { *p = v; }
VRX_INLINE void putD(int16_t* p, double v) {
    v = v < -32768.0 ? -32768.0 : (v > 32767.0 ? 32767.0 : v);
    *p = static_cast<int16_t>(static_cast<int>(v));
}
VRX_INLINE void putF(float* p, float v) { *p = v; }
VRX_INLINE void putF(int16_t* p, float v) { *p = sat16Cur(v); }

// The double recurrence from x0 = m cos(a), x1 = m cos(b), c = cos(w):
// x2 = 2c x1 - x0, x3 = 2c x2 - x1, then x[n] = K x[n-2] - x[n-4] with
// K = (2c)^2 - 2. Writes n values at stride st and returns the last four in
// r[n & 3]-order ring (r[i & 3] = x[i]).
template <class S>
VRX_INLINE void recurD(S* d, int st, int n, double x0, double x1, double c, double* r) {
    const double tc = 2.0 * c;
    const double k = tc * tc - 2.0;
    r[0] = x0;
    r[1] = x1;
    r[2] = tc * x1 - x0;
    r[3] = tc * r[2] - x1;
    for (int i = 0; i < n; ++i) {
        double v;
        if (i < 4) {
            v = r[i];
        } else {
            v = k * r[(i - 2) & 3] - r[i & 3];
            r[i & 3] = v;
        }
        putD(d + i * st, v);
    }
}

// Accurate path: one seed, one double recurrence over the whole vector.
template <class S, bool Cplx>
void toneAccurate(S* d, int len, double m, double phi, double w, ToneTier t) {
    const double x[4] = {phi, phi + w, w, 0.0};
    double c[4], s[4], r[4];
    toneSeed<Cplx>(t, x, c, s);
    constexpr int st = Cplx ? 2 : 1;
    recurD(d, st, len, m * c[0], m * c[1], c[2], r);
    if constexpr (Cplx) recurD(d + 1, st, len, m * s[0], m * s[1], c[2], r);
}

// Fast single-precision block: the first 16 values from the double
// recurrence, then x[n] = K x[n-8] - x[n-16] in single precision with
// K = 2 cos 8w. The recurrence state is single precision, never the output.
template <class S>
VRX_INLINE void blockF(S* d, int st, int n, double x0, double x1, double c) {
    double r[4];
    const int nd = n < 16 ? n : 16;
    recurD(d, st, nd, x0, x1, c, r);
    if (n <= 16) return;
    // the first 16 values again, as the single-precision state
    float h[16];
    {
        const double tc = 2.0 * c, k2 = tc * tc - 2.0;
        double q[4] = {x0, x1, tc * x1 - x0, 0.0};
        q[3] = tc * q[2] - x1;
        for (int i = 0; i < 16; ++i) {
            double v;
            if (i < 4) v = q[i];
            else { v = k2 * q[(i - 2) & 3] - q[i & 3]; q[i & 3] = v; }
            h[i] = static_cast<float>(v);
        }
    }
    const double tc = 2.0 * c;
    const double k2 = tc * tc - 2.0, k4 = k2 * k2 - 2.0, k8d = k4 * k4 - 2.0;
    const float k8 = static_cast<float>(k8d);
    int i = 16;
    for (; i + 8 <= n; i += 8) {
        float v[8];
        for (int j = 0; j < 8; ++j) v[j] = k8 * h[8 + j] - h[j];
        for (int j = 0; j < 8; ++j) {
            h[j] = h[8 + j];
            h[8 + j] = v[j];
            putF(d + (i + j) * st, v[j]);
        }
    }
    for (int j = 0; i < n; ++i, ++j) putF(d + i * st, k8 * h[8 + j] - h[j]);
}

// Fast double block: the first 8 values of a stream from the recurrence
// above.
VRX_INLINE void headD(double* d, int st, int n, double x0, double x1, double c) {
    double r[4];
    recurD(d, st, n < 8 ? n : 8, x0, x1, c, r);
}

// The rest of a fast double block, x[n] = K x[n-4] - x[n-8] with K = 2 cos
// 4w, for the real stream (st 1) or both interleaved streams of a complex
// one (st 2), which share K. The last two groups of four elements stay in
// registers; every lane repeats the scalar step's multiply and subtract.
VRX_INLINE void tailD(double* d, int st, int n, double c) {
    if (n <= 8) return;
    using D = simd::V<double>;
    const double tc = 2.0 * c;
    const double k2 = tc * tc - 2.0, k4 = k2 * k2 - 2.0;
    const D::M m = st == 1 ? D::M(0x0F) : D::kAll;
    const D::R k = D::set1(k4);
    D::R a = D::loadm(m, d), b = D::loadm(m, d + 4 * st);
    int i = 8;
    for (; i + 4 <= n; i += 4) {
        const D::R x = D::sub(D::mul(k, b), a);
        D::storem(d + i * st, m, x);
        a = b;
        b = x;
    }
    for (; i < n; ++i)
        for (int s = 0; s < st; ++s) d[i * st + s] = k4 * d[(i - 4) * st + s] - d[(i - 8) * st + s];
}

template <class S, bool Cplx>
void toneFast(S* d, int len, double m, double phi, double w, ToneTier t) {
    constexpr bool dbl = sizeof(S) == 8;
    constexpr int B = dbl ? 2048 : 1024;
    constexpr int st = Cplx ? 2 : 1;
    for (int k = 0; k < len; k += B) {
        const int n = len - k < B ? len - k : B;
        const double x[4] = {__builtin_fma(static_cast<double>(k), w, phi),
                             __builtin_fma(static_cast<double>(k + 1), w, phi), w, 0.0};
        double c[4], s[4];
        toneSeed<Cplx>(t, x, c, s);
        S* p = d + static_cast<size_t>(k) * st;
        if constexpr (dbl) {
            headD(p, st, n, m * c[0], m * c[1], c[2]);
            if constexpr (Cplx) headD(p + 1, st, n, m * s[0], m * s[1], c[2]);
            tailD(p, st, n, c[2]);
        } else {
            blockF(p, st, n, m * c[0], m * c[1], c[2]);
            if constexpr (Cplx) blockF(p + 1, st, n, m * s[0], m * s[1], c[2]);
        }
    }
}

// Checks in the order of this family, the phase update, then the samples.
template <class S, bool Cplx, class M, class P>
VrxStatus tone(S* d, int len, M magn, P rFreq, P* pPhase, VrxAlgHint hint, ToneTier t) {
    if (pPhase == nullptr) return vrxErrNullPtr;
    if (!(magn > M(0))) return vrxErrToneMagn;
    const P fmax = Cplx ? P(1.0) : P(0.5);
    if (!(rFreq >= P(0) && rFreq < fmax)) return vrxErrToneFreq;
    const double phi = static_cast<double>(*pPhase);
    if (!(phi >= 0.0 && phi < kTwoPi)) return vrxErrTonePhase;
    if (d == nullptr) return vrxErrNullPtr;
    if (len < 1) return vrxErrBadLength;

    const double w = kTwoPi * static_cast<double>(rFreq);
    double x = __builtin_fma(static_cast<double>(len), w, phi);
    const double q = __builtin_trunc(x * kInvTwoPi);
    x = x - q * kTwoPi;
    const P xp = static_cast<P>(x);
    const double xr = static_cast<double>(xp);
    *pPhase = (xr < 0.0 || xr >= kTwoPi) ? P(0) : xp;

    const double m = static_cast<double>(magn);
    if (hint == vrxAlgHintFast) toneFast<S, Cplx>(d, len, m, phi, w, t);
    else toneAccurate<S, Cplx>(d, len, m, phi, w, t);
    return vrxOk;
}

}  // namespace

VrxStatus N0(vrxsTone_16s)(Vrx16s* pDst, int len, Vrx16s magn, Vrx32f rFreq, Vrx32f* pPhase, VrxAlgHint hint) {
    return tone<int16_t, false>(pDst, len, magn, rFreq, pPhase, hint, ToneTier::A26);
}
VrxStatus N0(vrxsTone_16sc)(Vrx16sc* pDst, int len, Vrx16s magn, Vrx32f rFreq, Vrx32f* pPhase, VrxAlgHint hint) {
    return tone<int16_t, true>(reinterpret_cast<int16_t*>(pDst), len, magn, rFreq, pPhase, hint, ToneTier::A26);
}
VrxStatus N0(vrxsTone_32f)(Vrx32f* pDst, int len, Vrx32f magn, Vrx32f rFreq, Vrx32f* pPhase, VrxAlgHint hint) {
    return tone<float, false>(pDst, len, magn, rFreq, pPhase, hint, ToneTier::A50);
}
VrxStatus N0(vrxsTone_32fc)(Vrx32fc* pDst, int len, Vrx32f magn, Vrx32f rFreq, Vrx32f* pPhase, VrxAlgHint hint) {
    return tone<float, true>(reinterpret_cast<float*>(pDst), len, magn, rFreq, pPhase, hint, ToneTier::A50);
}
VrxStatus N0(vrxsTone_64f)(Vrx64f* pDst, int len, Vrx64f magn, Vrx64f rFreq, Vrx64f* pPhase, VrxAlgHint hint) {
    return tone<double, false>(pDst, len, magn, rFreq, pPhase, hint, ToneTier::A53);
}
VrxStatus N0(vrxsTone_64fc)(Vrx64fc* pDst, int len, Vrx64f magn, Vrx64f rFreq, Vrx64f* pPhase, VrxAlgHint hint) {
    return tone<double, true>(reinterpret_cast<double*>(pDst), len, magn, rFreq, pPhase, hint, ToneTier::A53);
}
