// Triangle: a scalar running sum in double with exact reflection at the
// peaks, so that a peak between two samples is not flattened to the grid.
#include "psgen.h"

using namespace n0;
using namespace n0::gen;

namespace {

VRX_INLINE void put(float* p, double v) { *p = static_cast<float>(v); }
VRX_INLINE void put(double* p, double v) { *p = v; }
// 16 bits: truncated toward zero, low 16 bits kept.
VRX_INLINE void put(int16_t* p, double v) { *p = static_cast<int16_t>(static_cast<int>(v)); }

// One wave at phase phi: writes n values at stride st.
template <class S>
void wave(S* d, int st, int n, double m, double f, double a, double phi) {
    const double pa = kPi + a, ma = kPi - a;
    const double dd = kFourPi * f * m / pa;
    const double du = kFourPi * f * m / ma;
    const double rT = -ma / pa, rB = -pa / ma;
    const double jumpUp = kFourPi * m / ma, jumpDown = kFourPi * m / pa;
    bool rising;
    double y, step;
    if (phi < pa) {
        rising = false;
        y = m * (1.0 - 2.0 * phi / pa);
        step = -dd;
    } else {
        rising = true;
        y = m * (2.0 * (phi - kPi - a) / ma - 1.0);
        step = du;
    }
    for (int i = 0; i < n; ++i) {
        put(d + i * st, y);
        y = y + step;
        if (rising && y > m) {
            const double t = m + (y - m) * rT;
            if (t < -m) {
                y = y - jumpUp;
            } else {
                y = t;
                rising = false;
                step = -dd;
            }
        }
        if (!rising && y < -m) {
            const double t = -m + (y + m) * rB;
            if (t > m) {
                y = y + jumpDown;
            } else {
                y = t;
                rising = true;
                step = du;
            }
        }
    }
}

template <class S, bool Cplx, class M, class P>
VrxStatus triangle(S* d, int len, M magn, P rFreq, P asym, P* pPhase) {
    if (pPhase == nullptr) return vrxErrNullPtr;
    if (!(magn > M(0))) return vrxErrTrnglMagn;
    const P fmax = Cplx ? P(1.0) : P(0.5);
    if (!(rFreq >= P(0) && rFreq < fmax)) return vrxErrTrnglFreq;
    const double a = static_cast<double>(asym);
    if (!(a >= -kPi && a < kPi)) return vrxErrTrnglAsym;
    const double phi = static_cast<double>(*pPhase);
    if (!(phi >= 0.0 && phi < kTwoPi)) return vrxErrTrnglPhase;
    if (d == nullptr) return vrxErrNullPtr;
    if (len < 1) return vrxErrBadLength;

    const double f = static_cast<double>(rFreq);
    const double w = kTwoPi * f;
    double x = __builtin_fma(static_cast<double>(len), w, phi);
    const double q = __builtin_floor(x * kInvTwoPi);
    x = x - q * kTwoPi;
    const P xp = static_cast<P>(x);
    const double xr = static_cast<double>(xp);
    *pPhase = (xr < 0.0 || xr >= kTwoPi) ? P(0) : xp;

    const double m = static_cast<double>(magn);
    constexpr int st = Cplx ? 2 : 1;
    wave(d, st, len, m, f, a, phi);
    if constexpr (Cplx) {
        double pi2 = phi + 0.5 * (kTwoPi + kPi + a);
        if (pi2 >= kTwoPi) pi2 = pi2 - kTwoPi;
        wave(d + 1, st, len, m, f, a, pi2);
    }
    return vrxOk;
}

}  // namespace

VrxStatus N0(vrxsTriangle_16s)(Vrx16s* pDst, int len, Vrx16s magn, Vrx32f rFreq, Vrx32f asym, Vrx32f* pPhase) {
    return triangle<int16_t, false>(pDst, len, magn, rFreq, asym, pPhase);
}
VrxStatus N0(vrxsTriangle_16sc)(Vrx16sc* pDst, int len, Vrx16s magn, Vrx32f rFreq, Vrx32f asym, Vrx32f* pPhase) {
    return triangle<int16_t, true>(reinterpret_cast<int16_t*>(pDst), len, magn, rFreq, asym, pPhase);
}
VrxStatus N0(vrxsTriangle_32f)(Vrx32f* pDst, int len, Vrx32f magn, Vrx32f rFreq, Vrx32f asym, Vrx32f* pPhase) {
    return triangle<float, false>(pDst, len, magn, rFreq, asym, pPhase);
}
VrxStatus N0(vrxsTriangle_32fc)(Vrx32fc* pDst, int len, Vrx32f magn, Vrx32f rFreq, Vrx32f asym, Vrx32f* pPhase) {
    return triangle<float, true>(reinterpret_cast<float*>(pDst), len, magn, rFreq, asym, pPhase);
}
VrxStatus N0(vrxsTriangle_64f)(Vrx64f* pDst, int len, Vrx64f magn, Vrx64f rFreq, Vrx64f asym, Vrx64f* pPhase) {
    return triangle<double, false>(pDst, len, magn, rFreq, asym, pPhase);
}
VrxStatus N0(vrxsTriangle_64fc)(Vrx64fc* pDst, int len, Vrx64f magn, Vrx64f rFreq, Vrx64f asym, Vrx64f* pPhase) {
    return triangle<double, true>(reinterpret_cast<double*>(pDst), len, magn, rFreq, asym, pPhase);
}
