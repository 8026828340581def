// FIR design by the window method, in double: the ideal response sampled at
// the taps before the centre (the sines from tones of vrxsTone_64f, the
// denominators pi t as a running sum), a window over all taps, an optional
// normalisation, and a mirror that makes the second half.
#include "vrx_base.h"

using namespace n0;

namespace {

constexpr double kPi = 3.141592653589793;
constexpr double kTwoPi = 6.283185307179586;

enum class Band { Low, High, Pass, Stop };

// A tone phase within [0, 2pi), as vrxsTone_64f demands.
VRX_INLINE double turn(double ph) { return ph >= kTwoPi ? ph - kTwoPi : ph; }

// Phases that make cos(2pi f n + phase), n = 0, 1, ..., into the wanted
// wave at the distances t of the left taps: t = n + 1 for odd lengths,
// t = n + 1/2 for even ones.
VRX_INLINE double sinPhase(double f, bool odd) {
    if (odd) return turn(f < 0.25 ? kTwoPi * (f + 0.75) : kTwoPi * (f - 0.25));
    return turn(kPi * (f + 1.5));
}
VRX_INLINE double negSinPhase(double f, bool odd) {
    return odd ? turn(kTwoPi * (f + 0.25)) : turn(kPi * (f + 0.5));
}

// n samples of cos(2pi f k + phase), magnitude 1, accurate hint.
VRX_INLINE void tone(double* d, int n, double f, double phase) {
    N0(vrxsTone_64f)(d, n, 1.0, f, &phase, 2);
}

VRX_INLINE bool inBand(double f) { return f > 0.0 && f < 0.5; }

VrxStatus firGen(Band band, double fl, double fh, Vrx64f* pTaps, int N, VrxWinType winType, int doNormal,
                 Vrx8u* pBuffer) {
    if (anyNull(pTaps, pBuffer)) return vrxErrNullPtr;
    if (N < 5) return vrxErrBadLength;
    if (band == Band::Low || band == Band::High) {
        if (!inBand(fl)) return vrxErrBadLength;
    } else {
        if (!inBand(fl) || !inBand(fh) || !(fl < fh)) return vrxErrBadLength;
    }

    const int H = N >> 1;
    const bool odd = (N & 1) != 0;
    // Two tone vectors of H + 1 samples, each on a 16-byte boundary.
    double* t1 = reinterpret_cast<double*>((addr(pBuffer) + 15) & ~uintptr_t(15));
    double* t2 = t1 + ((H + 2) & ~1);

    // 1. Centre tap.
    double* c = pTaps + H;  // the centre for odd lengths
    if (odd) {
        switch (band) {
        case Band::Low: *c = 2.0 * fl; break;
        case Band::High: *c = 1.0 - 2.0 * fl; break;
        case Band::Pass: *c = 2.0 * (fh - fl); break;
        case Band::Stop: *c = 1.0 - 2.0 * (fh - fl); break;
        }
    }

    // 2. Numerators from the tones, over denominators pi t kept as a running
    // sum; the n-th tap counted outward from the centre is pTaps[H - 1 - n].
    switch (band) {
    case Band::Low: tone(t1, H + 1, fl, sinPhase(fl, odd)); break;
    case Band::High: tone(t1, H + 1, fl, odd ? negSinPhase(fl, odd) : kPi * fl); break;
    case Band::Pass:
    case Band::Stop:
        tone(t1, H + 1, fl, sinPhase(fl, odd));
        tone(t2, H + 1, fh, sinPhase(fh, odd));
        break;
    }
    double den = odd ? kPi : kPi * 0.5;
    for (int n = 0; n < H; ++n) {
        double num;
        switch (band) {
        case Band::Pass: num = t2[n] - t1[n]; break;
        case Band::Stop: num = odd ? t1[n] - t2[n] : ((n & 1) ? -1.0 : 1.0) + t1[n] - t2[n]; break;
        default: num = t1[n]; break;
        }
        pTaps[H - 1 - n] = num / den;
        den += kPi;
    }

    // 3. The right part is zeroed, so that the window sees no stale data.
    const int right = (N + 1) >> 1;
    for (int k = 0; k < H; ++k) pTaps[right + k] = 0.0;

    // 4. The window over all N taps.
    switch (winType) {
    case vrxWinBartlett: N0(vrxsWinBartlett_64f_I)(pTaps, N); break;
    case vrxWinBlackman: N0(vrxsWinBlackmanOpt_64f_I)(pTaps, N); break;
    case vrxWinHamming: N0(vrxsWinHamming_64f_I)(pTaps, N); break;
    case vrxWinHann: N0(vrxsWinHann_64f_I)(pTaps, N); break;
    default: break;  // rectangular
    }

    // 5. Unit gain at the reference frequency, from the left half and centre.
    if (doNormal) {
        double g;
        if (band == Band::Pass) {
            // At the band's centre: the taps against one more tone, at the
            // same distances t as the left taps.
            const double f0 = (fl + fh) * 0.5;
            tone(t1, H + 1, f0, odd ? 0.0 : kPi * f0);
            double acc = 0.0;
            if (odd)
                for (int n = 1; n <= H; ++n) acc += pTaps[H - n] * t1[n];
            else
                for (int n = 0; n < H; ++n) acc += pTaps[H - 1 - n] * t1[n];
            g = 2.0 * acc + (odd ? *c : 0.0);
        } else if (band == Band::High) {
            // At Nyquist: signs alternate from -pTaps[0] on, through the centre.
            double acc = 0.0;
            for (int k = 0; k < H; ++k) acc += (k & 1) ? pTaps[k] : -pTaps[k];
            g = 2.0 * acc + (odd ? ((H & 1) ? *c : -*c) : 0.0);
        } else {
            double acc = 0.0;
            for (int k = 0; k < H; ++k) acc += pTaps[k];
            g = 2.0 * acc + (odd ? *c : 0.0);
        }
        for (int k = 0; k < right; ++k) pTaps[k] = pTaps[k] / g;
    }

    // 6. Mirror: antisymmetric for the even-length highpass only.
    if (band == Band::High && !odd)
        for (int k = 0; k < H; ++k) pTaps[N - 1 - k] = -pTaps[k];
    else
        for (int k = 0; k < H; ++k) pTaps[N - 1 - k] = pTaps[k];
    return vrxOk;
}

}  // namespace

extern "C" {

VrxStatus N0(vrxsFIRGenGetBufferSize)(int tapsLen, int* pBufferSize) {
    if (!pBufferSize) return vrxErrNullPtr;
    if (tapsLen < 5) return vrxErrBadLength;
    *pBufferSize = (((tapsLen >> 1) * 16 + 46) & ~31) + 16;
    return vrxOk;
}

VrxStatus N0(vrxsFIRGenLowpass_64f)(Vrx64f rFreq, Vrx64f* pTaps, int tapsLen, VrxWinType winType, int doNormal, Vrx8u* pBuffer) {
    return firGen(Band::Low, rFreq, 0.0, pTaps, tapsLen, winType, doNormal, pBuffer);
}
VrxStatus N0(vrxsFIRGenHighpass_64f)(Vrx64f rFreq, Vrx64f* pTaps, int tapsLen, VrxWinType winType, int doNormal, Vrx8u* pBuffer) {
    return firGen(Band::High, rFreq, 0.0, pTaps, tapsLen, winType, doNormal, pBuffer);
}
VrxStatus N0(vrxsFIRGenBandpass_64f)(Vrx64f rLowFreq, Vrx64f rHighFreq, Vrx64f* pTaps, int tapsLen, VrxWinType winType, int doNormal, Vrx8u* pBuffer) {
    return firGen(Band::Pass, rLowFreq, rHighFreq, pTaps, tapsLen, winType, doNormal, pBuffer);
}
VrxStatus N0(vrxsFIRGenBandstop_64f)(Vrx64f rLowFreq, Vrx64f rHighFreq, Vrx64f* pTaps, int tapsLen, VrxWinType winType, int doNormal, Vrx8u* pBuffer) {
    return firGen(Band::Stop, rLowFreq, rHighFreq, pTaps, tapsLen, winType, doNormal, pBuffer);
}

}  // extern "C"
