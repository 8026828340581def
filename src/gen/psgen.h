// Shared pieces of the signal generators: the constants of the cosine
// seeds, the weighting kernels of the window functions and the conversions
// of generated values to the element types.
#pragma once

#include "vrx_base.h"
#include "vrx_tiers.h"
#include "simd/simd.h"

#include <math.h>

namespace n0::gen {

inline constexpr double kTwoPi = 6.283185307179586;
inline constexpr double kFourPi = 12.566370614359172;
inline constexpr double kPi = 3.141592653589793;
inline constexpr double kInvTwoPi = 0.15915494309189535;

// Weights are produced in runs of this many into a buffer on the stack and
// then applied from both ends of the vector.
inline constexpr int kChunk = 256;

// ------------------------------------------------------------ conversions

// Float to 16 bits in the caller's rounding mode, saturated.
VRX_INLINE int16_t sat16Cur(float v) {
    v = v < -32768.0f ? -32768.0f : v;
    v = v > 32767.0f ? 32767.0f : v;
    return static_cast<int16_t>(_mm_cvtss_si32(_mm_set_ss(v)));
}

// Double to an integer type, rounded to nearest with ties to even whatever
// the caller's mode, saturated. NaN gives 0.
template <class T>
VRX_INLINE T satNearEven(double v) {
    constexpr bool sgn = T(-1) < T(0);
    constexpr double lo = sgn ? -static_cast<double>(uint64_t(1) << (sizeof(T) * 8 - 1)) : 0.0;
    constexpr double hi = sgn ? static_cast<double>((uint64_t(1) << (sizeof(T) * 8 - 1)) - 1)
                              : static_cast<double>((uint64_t(1) << (sizeof(T) * 8)) - 1);
    if (!(v == v)) return T(0);
    double r = _mm_cvtsd_f64(_mm_round_sd(_mm_setzero_pd(), _mm_set_sd(v), _MM_FROUND_TO_NEAREST_INT | _MM_FROUND_NO_EXC));
    if (r <= lo) return static_cast<T>(static_cast<int64_t>(lo));
    if (r >= hi) return static_cast<T>(static_cast<int64_t>(hi));
    return static_cast<T>(static_cast<int64_t>(r));
}

// ---------------------------------------------------- window application
// d[i] = s[i] * w[i] for i < n: the same kernel serves a complex vector at
// twice the length with each weight doubled.

VRX_INLINE void mulW(const float* s, const float* w, float* d, int n) {
    using F = simd::V<float>;
    int i = 0;
    for (; i + F::N <= n; i += F::N) F::store(d + i, F::mul(F::load(s + i), F::load(w + i)));
    if (i < n) {
        auto m = simd::tail<float>(static_cast<size_t>(n - i));
        F::storem(d + i, m, F::mul(F::loadm(m, s + i), F::loadm(m, w + i)));
    }
}

VRX_INLINE void mulW(const double* s, const double* w, double* d, int n) {
    using D = simd::V<double>;
    int i = 0;
    for (; i + D::N <= n; i += D::N) D::store(d + i, D::mul(D::load(s + i), D::load(w + i)));
    if (i < n) {
        auto m = simd::tail<double>(static_cast<size_t>(n - i));
        D::storem(d + i, m, D::mul(D::loadm(m, s + i), D::loadm(m, w + i)));
    }
}

// 16-bit samples times single-precision weights, converted back in the
// caller's rounding mode with saturation.
VRX_INLINE void mulW(const int16_t* s, const float* w, int16_t* d, int n) {
    using F = simd::V<float>;
    const F::R lo = F::set1(-32768.0f), hi = F::set1(32767.0f);
    int i = 0;
    for (; i + 16 <= n; i += 16) {
        F::R x = _mm512_cvtepi32_ps(simd::widen16s(s + i));
        x = F::min(F::max(F::mul(x, F::load(w + i)), lo), hi);
        simd::narrowSat16s(d + i, 0xFFFF, _mm512_cvtps_epi32(x));
    }
    for (; i < n; ++i) d[i] = sat16Cur(static_cast<float>(s[i]) * w[i]);
}

// Element traits of the window functions: the scalar lane type, the weight
// type and the number of lanes per element.
template <class E> struct WinElem;
template <> struct WinElem<Vrx32f>  { using S = float;   using W = float;  static constexpr int K = 1; };
template <> struct WinElem<Vrx32fc> { using S = float;   using W = float;  static constexpr int K = 2; };
template <> struct WinElem<Vrx64f>  { using S = double;  using W = double; static constexpr int K = 1; };
template <> struct WinElem<Vrx64fc> { using S = double;  using W = double; static constexpr int K = 2; };
template <> struct WinElem<Vrx16s>  { using S = int16_t; using W = float;  static constexpr int K = 1; };
template <> struct WinElem<Vrx16sc> { using S = int16_t; using W = float;  static constexpr int K = 2; };

// Applies the weights w[0..cnt) of steps n0..n0+cnt-1: step n weights
// element n and element len-1-n.
template <class E>
VRX_INLINE void applySteps(const E* src, E* dst, int len, int n0, int cnt, const typename WinElem<E>::W* w) {
    using T = WinElem<E>;
    constexpr int K = T::K;
    alignas(64) typename T::W fw[kChunk * K];
    alignas(64) typename T::W bw[kChunk * K];
    for (int j = 0; j < cnt; ++j)
        for (int k = 0; k < K; ++k) {
            fw[j * K + k] = w[j];
            bw[(cnt - 1 - j) * K + k] = w[j];
        }
    const auto* s = reinterpret_cast<const typename T::S*>(src);
    auto* d = reinterpret_cast<typename T::S*>(dst);
    mulW(s + n0 * K, fw, d + n0 * K, cnt * K);
    const int b = len - n0 - cnt;
    mulW(s + b * K, bw, d + b * K, cnt * K);
}

// Runs a weight generator over steps 0..nEnd-1 and applies steps
// nBegin..nEnd-1 (earlier steps only advance the generator).
template <class E, class G>
VRX_INLINE void runSteps(const E* src, E* dst, int len, int nBegin, int nEnd, G& gen) {
    alignas(64) typename WinElem<E>::W w[kChunk];
    int n = 0;
    while (n < nEnd) {
        int cnt = nEnd - n < kChunk ? nEnd - n : kChunk;
        if (n + cnt <= nBegin) {
            gen(w, cnt);
        } else if (n < nBegin) {
            int skip = nBegin - n;
            gen(w, skip);
            n += skip;
            continue;
        } else {
            gen(w, cnt);
            applySteps(src, dst, len, n, cnt, w);
        }
        n += cnt;
    }
}

// The middle element of an odd length, copied unchanged.
template <class E>
VRX_INLINE void copyMiddle(const E* src, E* dst, int len) {
    if ((len & 1) && src != dst) dst[len >> 1] = src[len >> 1];
}

// Length-3 short cut: 0, src[1], 0.
template <class E>
VRX_INLINE void shortcut3(const E* src, E* dst) {
    E z;
    __builtin_memset(&z, 0, sizeof z);
    dst[0] = z;
    dst[1] = src[1];
    dst[2] = z;
}

}  // namespace n0::gen

namespace n0::gen {

// The middle element of an odd length, weighted once.
template <class E>
VRX_INLINE void applyMiddle(const E* src, E* dst, int len, typename WinElem<E>::W w) {
    using T = WinElem<E>;
    typename T::W fw[2] = {w, w};
    const int m = len >> 1;
    mulW(reinterpret_cast<const typename T::S*>(src) + m * T::K, fw, reinterpret_cast<typename T::S*>(dst) + m * T::K, T::K);
}

}  // namespace n0::gen
