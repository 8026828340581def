// Reference helpers of the tests: bit patterns and bit equality, error in
// units in the last place, the exact model of the scale-factor rule, and
// the long-double DFT. Included by vrx_test.h.
#pragma once

#include <math.h>
#include <stdint.h>
#include <string.h>

#include <complex>
#include <limits>
#include <vector>

namespace vt {

// ------------------------------------------------------------ bit patterns
template <class T> uint64_t bitsOf(T v) { uint64_t b = 0; memcpy(&b, &v, sizeof v); return b; }
inline uint32_t fBits(float f) { uint32_t u; memcpy(&u, &f, 4); return u; }
inline float bitsF(uint32_t u) { float f; memcpy(&f, &u, 4); return f; }
inline uint64_t dBits(double d) { uint64_t u; memcpy(&u, &d, 8); return u; }
inline double bitsD(uint64_t u) { double d; memcpy(&d, &u, 8); return d; }

// The same bits: NaN equals the same NaN, +0 differs from -0. Works for
// complex element structs as well.
template <class T> bool sameBits(const T& a, const T& b) { return memcmp(&a, &b, sizeof a) == 0; }

// --------------------------------------------------------------- ulp error
// |got - ref| in units of the last place of ref's binade in T (the
// subnormal binade below the smallest normal); 0 for two NaNs, 1e30 for an
// overflow that the other side does not share.
template <class T>
double ulpErr(T got, long double ref) {
    constexpr int p = std::numeric_limits<T>::digits, emin = std::numeric_limits<T>::min_exponent;
    if (isnan(got) && isnan(ref)) return 0;
    if (isinf(ref) || isinf(got)) return got == (T)ref ? 0 : 1e30;
    int e;
    frexpl(ref, &e);
    if (ref == 0) e = emin;
    if (e < emin) e = emin;
    return (double)(fabsl((long double)got - ref) / ldexpl(1.0L, e - p));
}

// ------------------------------------------------------ scale-factor rule
using i128 = __int128;

// v saturated to T's range.
template <class T> i128 clampTo(i128 v) {
    const i128 lo = std::numeric_limits<T>::min(), hi = std::numeric_limits<T>::max();
    return v < lo ? lo : (v > hi ? hi : v);
}
template <class T> T saturate(i128 v) { return static_cast<T>(clampTo<T>(v)); }

// The exact result r times 2^-sf, rounded once with ties to even. A left
// shift stops at magnitude 2^100, beyond every element type, so saturating
// the result gives the right bound.
inline i128 scaleExact(i128 r, int sf) {
    if (sf > 0) {
        if (sf >= 127) return 0;  // |r| <= 2^126 rounds to zero
        i128 q = r >> sf, rem = r - (q << sf), half = i128(1) << (sf - 1);
        if (rem > half || (rem == half && (q & 1))) ++q;
        return q;
    }
    const int k = -sf;
    if (r == 0) return 0;
    if (k >= 80) return r > 0 ? i128(1) << 100 : -(i128(1) << 100);
    i128 m = r;
    for (int i = 0; i < k && m <= (i128(1) << 100) && m >= -(i128(1) << 100); ++i) m *= 2;
    return m;
}

// What a scaled function writes for the exact result r: rounded, then saturated.
template <class T> T scaled(i128 r, int sf) { return saturate<T>(scaleExact(r, sf)); }

// --------------------------------------------------------------------- DFT
using LD = long double;
using CLD = std::complex<LD>;

// The DFT in long double: naive up to 256 points, above that a radix-2 FFT
// (power-of-two lengths) with exactly computed twiddles. inverse: the
// positive exponent, unscaled.
inline std::vector<CLD> refDft(const std::vector<CLD>& x, bool inverse) {
    const size_t n = x.size();
    const LD sgn = inverse ? 1.0L : -1.0L;
    const LD twoPi = 6.283185307179586476925286766559005768L;
    if (n <= 256) {
        std::vector<CLD> y(n);
        for (size_t k = 0; k < n; ++k) {
            CLD acc = 0;
            for (size_t j = 0; j < n; ++j) {
                LD a = twoPi * static_cast<LD>((j * k) % n) / static_cast<LD>(n);
                acc += x[j] * CLD(cosl(a), sgn * sinl(a));
            }
            y[k] = acc;
        }
        return y;
    }
    std::vector<CLD> a(x);
    for (size_t i = 1, j = 0; i < n; ++i) {
        size_t bit = n >> 1;
        for (; j & bit; bit >>= 1) j ^= bit;
        j ^= bit;
        if (i < j) std::swap(a[i], a[j]);
    }
    std::vector<CLD> w(n / 2);
    for (size_t k = 0; k < n / 2; ++k) {
        LD ang = twoPi * static_cast<LD>(k) / static_cast<LD>(n);
        w[k] = CLD(cosl(ang), sgn * sinl(ang));
    }
    for (size_t len = 2; len <= n; len <<= 1) {
        size_t step = n / len;
        for (size_t i = 0; i < n; i += len)
            for (size_t k = 0; k < len / 2; ++k) {
                CLD u = a[i + k], v = a[i + k + len / 2] * w[k * step];
                a[i + k] = u + v;
                a[i + k + len / 2] = u - v;
            }
    }
    return a;
}

// ------------------------------------------------------------ special
// The modified Bessel function I0, by its power series in long double.
inline LD besselI0(LD x) {
    LD t = 1, s = 1;
    for (int k = 1; k < 500 && t > 1e-22L * s; ++k) s += t *= (x / 2) * (x / 2) / ((LD)k * k);
    return s;
}

}  // namespace vt
