// Window functions: the weight generators and the family bodies shared by
// the single-precision and 16-bit module (pswin) and the double one
// (pswindbl). Every weight comes from one cosine seed advanced by
// recurrence; the rounding of the weights is that of the recurrence.
#pragma once

#include "psgen.h"

namespace n0::gen {

// Seed sources, named by the tier entry (or libm) they call.
enum class Seed { Libm, CosA50, CosA53, SinCosA50, SinCosA53 };

// cos(x[i]) for i < n (n <= 2) from the named source.
VRX_INLINE void seedCos(Seed s, const double* x, double* c, int n) {
    double sn[2];
    switch (s) {
    case Seed::Libm:
        for (int i = 0; i < n; ++i) c[i] = cos(x[i]);
        break;
    case Seed::CosA50: N0(vrxsCos_64f_A50)(x, c, n); break;
    case Seed::CosA53: N0(vrxsCos_64f_A53)(x, c, n); break;
    case Seed::SinCosA50: N0(vrxsSinCos_64f_A50)(x, sn, c, n); break;
    case Seed::SinCosA53: N0(vrxsSinCos_64f_A53)(x, sn, c, n); break;
    }
}

// y(n) = a cos(n theta) in double: y(0) = a, y(1) = a*2c - a*c, y(2) and
// y(3) by y(m+1) = 2c y(m) - y(m-1), then two interleaved strands
// y(m+2) = 2cos(2 theta) y(m) - y(m-2).
struct CosStrands {
    double k2, r[4];
    int n = 0;
    CosStrands(double a, double c, double c2) : k2(2.0 * c2) {
        const double tc = 2.0 * c;
        r[0] = a;
        r[1] = a * tc - a * c;
        r[2] = tc * r[1] - r[0];
        r[3] = tc * r[2] - r[1];
    }
    VRX_INLINE double next() {
        double y;
        if (n < 4) {
            y = r[n];
        } else {
            y = k2 * r[(n - 2) & 3] - r[n & 3];
            r[n & 3] = y;
        }
        ++n;
        return y;
    }
};

// Hann and Hamming: w = b - y, in double, then rounded to the weight type.
template <class W>
struct HamHanGen {
    CosStrands y;
    double b;
    HamHanGen(double a, double b_, double c, double c2) : y(a, c, c2), b(b_) {}
    VRX_INLINE void operator()(W* w, int cnt) {
        for (int j = 0; j < cnt; ++j) w[j] = static_cast<W>(b - y.next());
    }
};

// Blackman in single precision: y = 0.5 cos(n theta) by the single-strand
// recurrence in double, rounded to single; w = (alpha+0.5) - y + (-4 alpha) y^2
// in single precision.
struct BlackmanGen32 {
    double tc, c, y0, y1;
    float a, b;
    int n = 0;
    BlackmanGen32(float alpha, double c_) : tc(2.0 * c_), c(c_) {
        y0 = 0.5;
        y1 = 0.5 * tc - 0.5 * c;
        a = alpha + 0.5f;
        b = -4.0f * alpha;
    }
    VRX_INLINE void operator()(float* w, int cnt) {
        for (int j = 0; j < cnt; ++j) {
            double y;
            if (n == 0) {
                y = y0;
            } else if (n == 1) {
                y = y1;
            } else {
                y = tc * y1 - y0;
                y0 = y1;
                y1 = y;
            }
            ++n;
            const float yf = static_cast<float>(y);
            w[j] = (a - yf) + b * (yf * yf);
        }
    }
};

// Blackman in double: y = 0.5 cos(n theta) by the strands of Hann, and the
// same weight formula in double.
struct BlackmanGen64 {
    CosStrands y;
    double a, b;
    BlackmanGen64(double alpha, double c, double c2) : y(0.5, c, c2), a(alpha + 0.5), b(-4.0 * alpha) {}
    VRX_INLINE void operator()(double* w, int cnt) {
        for (int j = 0; j < cnt; ++j) {
            const double v = y.next();
            w[j] = (a - v) + b * (v * v);
        }
    }
};

// Bartlett: a running sum of the step in the weight type, from 0.
template <class W>
struct BartlettGen {
    W acc = W(0), step;
    explicit BartlettGen(W s) : step(s) {}
    VRX_INLINE void operator()(W* w, int cnt) {
        for (int j = 0; j < cnt; ++j) {
            w[j] = acc;
            acc = acc + step;
        }
    }
};

// ------------------------------------------------------------- families

template <class E>
VRX_INLINE VrxStatus winHamHan(const E* src, E* dst, int len, bool hamming, Seed seed) {
    if (anyNull(src, dst)) return vrxErrNullPtr;
    if (len < 3) return vrxErrBadLength;
    if (len == 3 && !hamming) {
        shortcut3(src, dst);
        return vrxOk;
    }
    const double x[2] = {6.283185307179586 / (len - 1), 12.566370614359172 / (len - 1)};
    double c[2];
    seedCos(seed, x, c, 2);
    HamHanGen<typename WinElem<E>::W> gen(hamming ? 0.46 : 0.5, hamming ? 0.54 : 0.5, c[0], c[1]);
    runSteps(src, dst, len, 0, len / 2, gen);
    copyMiddle(src, dst, len);
    return vrxOk;
}

// Single-precision and 16-bit Blackman. allSteps: the out-of-place 32f and
// 32fc forms, which run the recurrence over all N steps.
template <class E>
VRX_INLINE VrxStatus winBlackman32(const E* src, E* dst, int len, float alpha, bool allSteps, Seed seed) {
    if (anyNull(src, dst)) return vrxErrNullPtr;
    if (len < 3) return vrxErrBadLength;
    if (len == 3) {
        shortcut3(src, dst);
        return vrxOk;
    }
    const double x = 6.283185307179586 / (len - 1);
    double c;
    seedCos(seed, &x, &c, 1);
    BlackmanGen32 gen(alpha, c);
    if (allSteps) {
        runSteps(src, dst, len, len / 2, len, gen);
    } else {
        runSteps(src, dst, len, 0, len / 2, gen);
        copyMiddle(src, dst, len);
    }
    return vrxOk;
}

template <class E>
VRX_INLINE VrxStatus winBlackman64(const E* src, E* dst, int len, double alpha) {
    if (anyNull(src, dst)) return vrxErrNullPtr;
    if (len < 3) return vrxErrBadLength;
    if (len == 3) {
        shortcut3(src, dst);
        return vrxOk;
    }
    const double x[2] = {6.283185307179586 / (len - 1), 12.566370614359172 / (len - 1)};
    double c[2];
    seedCos(Seed::CosA53, x, c, 2);
    BlackmanGen64 gen(alpha, c[0], c[1]);
    runSteps(src, dst, len, 0, len / 2, gen);
    copyMiddle(src, dst, len);
    return vrxOk;
}

// alpha of the optimal Blackman window, -(0.5 / cos(pi/(N-1)))^2.
VRX_INLINE double blackmanOptAlpha(int len, Seed seed) {
    const double x = 3.141592653589793 / (len - 1);
    double c;
    seedCos(seed, &x, &c, 1);
    const double t = 0.5 / c;
    return -(t * t);
}

template <class E>
VRX_INLINE VrxStatus winBartlett(const E* src, E* dst, int len) {
    using W = typename WinElem<E>::W;
    if (anyNull(src, dst)) return vrxErrNullPtr;
    if (len < 3) return vrxErrBadLength;
    if (len == 3) {
        shortcut3(src, dst);
        return vrxOk;
    }
    BartlettGen<W> gen(W(2) / static_cast<W>(len - 1));
    E z;
    __builtin_memset(&z, 0, sizeof z);
    dst[0] = z;
    dst[len - 1] = z;
    runSteps(src, dst, len, 1, len / 2, gen);
    copyMiddle(src, dst, len);
    return vrxOk;
}

}  // namespace n0::gen
