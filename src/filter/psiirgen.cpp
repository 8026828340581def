// IIR design: Butterworth and Chebyshev type I low-pass, high-pass,
// band-pass and band-stop filters as transfer functions b[0..N], a[0..N]
// (a[0] = 1), ready for vrxsIIRInit_64f.
//
// Method: the analog prototype's poles and gain (unit cut-off), moved to the
// prewarped cut-off (or band) by the low-pass, high-pass, band-pass or
// band-stop substitution, mapped by the bilinear transform at fs = 2
// (s = 4 (z-1)/(z+1)), and the zeros and poles expanded into polynomials.
// The cosines, sines and the Chebyshev ripple come from the double tier
// entries; everything after them runs in long double with the x87 unit at
// 64-bit precision and all its exceptions masked, the caller's control word
// put back on every return.
#include "vrx_base.h"
#include "vrx_fpu.h"
#include "vrx_tiers.h"
#include "psiirx87.h"

using namespace n0;
using n0::iir::X87Scope;

namespace {

constexpr int kMaxOrder = 12;
constexpr double kPi = 3.141592653589793;

enum class Band { Low, High, Pass, Stop };

// -------------------------------------------------------- long double complex
struct CL {
    long double re, im;
};
VRX_INLINE CL operator+(CL a, CL b) { return {a.re + b.re, a.im + b.im}; }
VRX_INLINE CL operator-(CL a, CL b) { return {a.re - b.re, a.im - b.im}; }
VRX_INLINE CL operator*(CL a, CL b) { return {a.re * b.re - a.im * b.im, a.re * b.im + a.im * b.re}; }
VRX_INLINE CL operator*(long double s, CL a) { return {s * a.re, s * a.im}; }
VRX_INLINE CL operator/(CL a, CL b) {
    const long double m = b.re * b.re + b.im * b.im;
    return {(a.re * b.re + a.im * b.im) / m, (a.im * b.re - a.re * b.im) / m};
}

// Square root of v >= 0: the double tier entry, then one Newton step in long
// double, which brings it to the long double precision.
long double sqrtL(long double v) {
    if (!(v > 0)) return 0;
    const double d = static_cast<double>(v);
    double s = 0;
    N0(vrxsSqrt_64f_A53)(&d, &s, 1);
    const long double r = s;
    return 0.5L * (r + v / r);
}

// Principal square root of a complex number.
CL csqrtL(CL z) {
    const long double r = sqrtL(z.re * z.re + z.im * z.im);
    const long double t = sqrtL((r + (z.re < 0 ? -z.re : z.re)) * 0.5L);
    if (t == 0) return {0, 0};
    if (z.re >= 0) return {t, z.im / (2 * t)};
    const long double u = (z.im < 0 ? -z.im : z.im) / (2 * t);
    return {u, z.im < 0 ? -t : t};
}

// Coefficients of prod (x - r_i), highest power first, real parts kept:
// c[0] = 1, c[k] the k-th; n roots, c has n+1 places.
void expand(const CL* r, int n, CL* c) {
    c[0] = {1, 0};
    for (int i = 1; i <= n; ++i) c[i] = {0, 0};
    for (int i = 0; i < n; ++i)
        for (int k = i + 1; k >= 1; --k) c[k] = c[k] - r[i] * c[k - 1];
}

// The analog prototype of order n, cut-off 1 rad/s: its poles and gain.
// Butterworth: p = -exp(j theta), gain 1. Chebyshev I with ripple rp dB:
// eps = sqrt(10^(rp/10) - 1), mu = asinh(1/eps)/n,
// p = -sinh(mu) cos(theta) - j cosh(mu) sin(theta), gain = prod(-p), divided
// by sqrt(1 + eps^2) at even n. theta = pi m/(2n), m = -n+1, -n+3, ..., n-1.
long double prototype(VrxIirGenType type, double rp, int n, CL* p) {
    double th[kMaxOrder], s[kMaxOrder], c[kMaxOrder];
    for (int i = 0; i < n; ++i) th[i] = kPi * (-n + 1 + 2 * i) / (2 * n);
    N0(vrxsSinCos_64f_A53)(th, s, c, n);
    if (type == vrxIirGenButterworth) {
        for (int i = 0; i < n; ++i) p[i] = {-static_cast<long double>(c[i]), -static_cast<long double>(s[i])};
        return 1;
    }
    const double ten = 10.0;
    double pw = 0;
    N0(vrxsPowx_64f_A53)(&ten, 0.1 * rp, &pw, 1);
    const long double eps2 = static_cast<long double>(pw) - 1;
    const long double eps = sqrtL(eps2);
    const long double v = 1 / eps;
    const double arg = static_cast<double>(v + sqrtL(v * v + 1));
    double lnv = 0;
    N0(vrxsLn_64f_A53)(&arg, &lnv, 1);
    const double mu = lnv / n;
    double sh = 0, ch = 0;
    N0(vrxsSinh_64f_A53)(&mu, &sh, 1);
    N0(vrxsCosh_64f_A53)(&mu, &ch, 1);
    CL k{1, 0};
    for (int i = 0; i < n; ++i) {
        p[i] = {-static_cast<long double>(sh) * c[i], -static_cast<long double>(ch) * s[i]};
        k = k * CL{-p[i].re, -p[i].im};
    }
    long double g = k.re;
    if (n % 2 == 0) g = g / sqrtL(1 + eps2);
    return g;
}

// The prewarped analog frequency of f (of the sampling rate) at fs = 2:
// 4 tan(pi f).
long double warp(double f) {
    const double x = kPi * f;
    double s = 0, c = 0;
    N0(vrxsSinCos_64f_A53)(&x, &s, &c, 1);
    return 4 * (static_cast<long double>(s) / static_cast<long double>(c));
}

// The design of order n (band forms: 2n) into b, a in long double. Digital
// zeros and poles come from the bilinear map (4 + s)/(4 - s) of the analog
// ones; analog zeros at infinity land at z = -1.
void design(Band band, double f1, double f2, double rp, int n, VrxIirGenType type, Vrx64f* pTaps) {
    CL p[kMaxOrder];
    const long double k0 = prototype(type, rp, n, p);
    CL zs[2 * kMaxOrder], ps[2 * kMaxOrder];  // analog zeros and poles after the substitution
    int nz = 0, np = 0;
    long double k = k0;
    const CL four{4, 0};
    if (band == Band::Low || band == Band::High) {
        const long double wo = warp(f1);
        if (band == Band::Low) {
            for (int i = 0; i < n; ++i) ps[np++] = wo * p[i];
            for (int i = 0; i < n; ++i) k *= wo;
        } else {
            CL prodNeg{1, 0};
            for (int i = 0; i < n; ++i) {
                ps[np++] = CL{wo, 0} / p[i];
                prodNeg = prodNeg * CL{-p[i].re, -p[i].im};
                zs[nz++] = {0, 0};
            }
            k *= (CL{1, 0} / prodNeg).re;
        }
    } else {
        const long double w1 = warp(f1), w2 = warp(f2);
        const long double wo2 = w1 * w2;  // wo^2
        const long double bw = w2 - w1;
        if (band == Band::Pass) {
            for (int i = 0; i < n; ++i) {
                const CL q = (bw / 2) * p[i];
                const CL r = csqrtL(q * q - CL{wo2, 0});
                ps[i] = q + r;
                ps[n + i] = q - r;
                zs[nz++] = {0, 0};
                k *= bw;
            }
        } else {
            const long double wo = sqrtL(wo2);
            CL prodNeg{1, 0};
            for (int i = 0; i < n; ++i) {
                const CL q = CL{bw / 2, 0} / p[i];
                const CL r = csqrtL(q * q - CL{wo2, 0});
                ps[i] = q + r;
                ps[n + i] = q - r;
                prodNeg = prodNeg * CL{-p[i].re, -p[i].im};
            }
            for (int i = 0; i < n; ++i) zs[nz++] = {0, wo};
            for (int i = 0; i < n; ++i) zs[nz++] = {0, -wo};
            k *= (CL{1, 0} / prodNeg).re;
        }
        np = 2 * n;
    }
    // bilinear transform at fs = 2: gain times prod(4 - z) / prod(4 - p)
    CL num{1, 0}, den{1, 0};
    CL zd[2 * kMaxOrder], pd[2 * kMaxOrder];
    for (int i = 0; i < nz; ++i) {
        num = num * (four - zs[i]);
        zd[i] = (four + zs[i]) / (four - zs[i]);
    }
    for (int i = 0; i < np; ++i) {
        den = den * (four - ps[i]);
        pd[i] = (four + ps[i]) / (four - ps[i]);
    }
    for (int i = nz; i < np; ++i) zd[i] = {-1, 0};
    k *= (num / den).re;
    CL cb[2 * kMaxOrder + 1], ca[2 * kMaxOrder + 1];
    expand(zd, np, cb);
    expand(pd, np, ca);
    for (int i = 0; i <= np; ++i) {
        pTaps[i] = static_cast<double>(k * cb[i].re);
        pTaps[np + 1 + i] = static_cast<double>(ca[i].re);
    }
}

VRX_INLINE bool inBand(double f) { return f > 0.0 && f < 0.5; }

// Checks in order: pTaps null -8, order -206, frequencies -208, type -5,
// Chebyshev ripple -209. Nothing is written on failure.
VrxStatus iirGen(Band band, double f1, double f2, double rp, int order, Vrx64f* pTaps, VrxIirGenType type) {
    if (!pTaps) return vrxErrNullPtr;
    if (order < 1 || order > kMaxOrder) return vrxErrIirGenOrder;
    if (!inBand(f1)) return vrxErrIirGenFreq;
    if (band == Band::Pass || band == Band::Stop) {
        if (!inBand(f2) || !(f1 < f2)) return vrxErrIirGenFreq;
    }
    if (type != vrxIirGenButterworth && type != vrxIirGenChebyshev1) return vrxErrBadArg;
    if (type == vrxIirGenChebyshev1 && !(rp > 0.0 && rp <= 30.0)) return vrxErrIirGenPassband;
    FpScope<MaskTraps> sse;
    X87Scope x87;
    design(band, f1, f2, rp, order, type, pTaps);
    return vrxOk;
}

}  // namespace

VrxStatus N0(vrxsIIRGenLowpass_64f)(Vrx64f rFreq, Vrx64f rRipple, int order, Vrx64f* pTaps, VrxIirGenType type) {
    return iirGen(Band::Low, rFreq, 0, rRipple, order, pTaps, type);
}
VrxStatus N0(vrxsIIRGenHighpass_64f)(Vrx64f rFreq, Vrx64f rRipple, int order, Vrx64f* pTaps, VrxIirGenType type) {
    return iirGen(Band::High, rFreq, 0, rRipple, order, pTaps, type);
}
VrxStatus N0(vrxsIIRGenBandpass_64f)(Vrx64f rLowFreq, Vrx64f rHighFreq, Vrx64f rRipple, int order, Vrx64f* pTaps,
                                     VrxIirGenType type) {
    return iirGen(Band::Pass, rLowFreq, rHighFreq, rRipple, order, pTaps, type);
}
VrxStatus N0(vrxsIIRGenBandstop_64f)(Vrx64f rLowFreq, Vrx64f rHighFreq, Vrx64f rRipple, int order, Vrx64f* pTaps,
                                     VrxIirGenType type) {
    return iirGen(Band::Stop, rLowFreq, rHighFreq, rRipple, order, pTaps, type);
}
