// Kaiser window. The common factor 1/I0(x0), x0 = |alpha|(N-1)/2, comes from
// the polynomial pair of threshold 3.75 in double (exponential by
// vrxsExp_64f). Per-element weights: the single-precision forms use the same
// pair in single precision with an inline exponential; the double and 16-bit
// forms use the more accurate pair of threshold 4.0 in double, with
// vrxsSqrt_64f_I and vrxsExp_64f over each run of weights. The peak of a
// double window therefore misses 1 by up to about 5.5e-6 near x0 = 4.
#include "psgen.h"

using namespace n0;
using namespace n0::gen;

namespace {

// I0 by the pair of threshold 3.75, in double.
double i0Front(double x) {
    if (x < 3.75) {
        const double u = x / 3.75;
        const double t = u * u;
        return 1.0 + t * (3.5156229 + t * (3.0899424 + t * (1.2067492 + t * (0.2659732 + t * (0.0360768 + t * 0.0045813)))));
    }
    const double r = 3.75 / x;
    double e;
    N0(vrxsExp_64f)(&x, &e, 1);
    return (e / sqrt(x)) *
           (0.39894228 + r * (0.01328592 + r * (0.00225319 + r * (-0.00157565 + r * (0.00916281 +
            r * (-0.02057706 + r * (0.02635537 + r * (-0.01647633 + r * 0.00392377))))))));
}

// Small-x polynomial (highest power first, last 1.0) and large-x polynomial
// of the single-precision weights.
constexpr float Bes_m[7] = {0.0045813f, 0.0360768f, 0.2659732f, 1.2067492f, 3.0899424f, 3.5156229f, 1.0f};
constexpr float Bes_b[9] = {0.00392377f, -0.01647633f, 0.02635537f, -0.02057706f, 0.00916281f,
                            -0.00157565f, 0.00225319f, 0.01328592f, 0.39894228f};
constexpr float invLn2 = 1.44269504f;
constexpr float NegLn2Hi = -0.693145752f;   // -ln 2, high part (exact times small k)
constexpr float NegLn2Lo = -1.42860677e-6f; // -ln 2 - NegLn2Hi

// exp(x) for 0 <= x <= 40 in single precision.
VRX_INLINE float expInline(float x) {
    const float k = static_cast<float>(static_cast<int>(x * invLn2 + 0.5f));
    float r = __builtin_fmaf(k, NegLn2Hi, x);
    r = __builtin_fmaf(k, NegLn2Lo, r);
    float p = 1.0f / 5040.0f;
    p = p * r + 1.0f / 720.0f;
    p = p * r + 1.0f / 120.0f;
    p = p * r + 1.0f / 24.0f;
    p = p * r + 1.0f / 6.0f;
    p = p * r + 0.5f;
    p = p * r + 1.0f;
    p = p * r + 1.0f;
    const uint32_t bits = static_cast<uint32_t>(static_cast<int>(k) + 127) << 23;
    float s;
    __builtin_memcpy(&s, &bits, 4);
    return p * s;
}

VRX_INLINE float i0Single(float x) {
    if (x < 3.75f) {
        const float u = x / 3.75f;
        const float t = u * u;
        float p = Bes_m[0];
        for (int i = 1; i < 7; ++i) p = p * t + Bes_m[i];
        return p;
    }
    const float r = 3.75f / x;
    float q = Bes_b[0];
    for (int i = 1; i < 9; ++i) q = q * r + Bes_b[i];
    return (expInline(x) / sqrtf(x)) * q;
}

struct KaiserGen32 {
    float alpha, nm1, factor;
    int n = 0;
    VRX_INLINE void operator()(float* w, int cnt) {
        for (int j = 0; j < cnt; ++j, ++n) {
            const float nf = static_cast<float>(n);
            const float x = fabsf(alpha * sqrtf((nm1 - nf) * nf));
            w[j] = i0Single(x) * factor;
        }
    }
};

// c[0] (Bes_7m) to c[7] (Bes_0m) and d[0] (Bes_12b) to d[12] (Bes_0b).
constexpr double kSmall[8] = {0.9999999985, 4.0000001935, 3.9999959541, 1.777809969,
                              0.4443189384, 0.0713758187, 0.0075942968, 0.0008267816};
constexpr double kLarge[13] = {0.3989422809, 0.0124667783, 0.0017623668, 0.00026, 0.0022585672,
                               -0.0128314822, 0.0495811118, -0.1209940805, 0.1895476618,
                               -0.1867783276, 0.1113315511, -0.0366694767, 0.0051246015};

template <class W>
struct KaiserGen64 {
    double alpha, nm1, factor;
    int n = 0;
    VRX_INLINE void operator()(W* w, int cnt) {
        alignas(64) double x[kChunk], e[kChunk];
        for (int j = 0; j < cnt; ++j) {
            const double nd = static_cast<double>(n + j);
            x[j] = (nm1 - nd) * nd;
        }
        N0(vrxsSqrt_64f_I)(x, cnt);
        for (int j = 0; j < cnt; ++j) x[j] = fabs(alpha * x[j]);
        N0(vrxsExp_64f)(x, e, cnt);
        for (int j = 0; j < cnt; ++j) {
            const double v = x[j];
            double i0;
            if (v < 4.0) {
                const double q = v * 0.25;
                const double y = q * q;
                double p = kSmall[7];
                for (int k = 6; k >= 0; --k) p = p * y + kSmall[k];
                i0 = p;
            } else {
                const double r = 4.0 / v;
                double p = kLarge[12];
                for (int k = 11; k >= 0; --k) p = p * r + kLarge[k];
                i0 = (e[j] / sqrt(v)) * p;
            }
            w[j] = static_cast<W>(i0 * factor);
        }
        n += cnt;
    }
};

// Checks, the N = 1 copy, and the run from both ends with the odd middle
// weighted once.
template <class E, class A, class G>
VRX_INLINE VrxStatus kaiserRun(const E* src, E* dst, int len, A alpha, G& gen) {
    if (len == 1) {
        dst[0] = src[0];
        return vrxOk;
    }
    runSteps(src, dst, len, 0, len / 2, gen);
    if (len & 1) {
        typename WinElem<E>::W w;
        gen(&w, 1);
        applyMiddle(src, dst, len, w);
    }
    return vrxOk;
}

VRX_INLINE VrxStatus kaiserCheck(const void* src, const void* dst, int len, double alpha) {
    if (anyNull(src, dst)) return vrxErrNullPtr;
    if (len < 1) return vrxErrBadLength;
    if (fabs(alpha) * static_cast<double>(len - 1) * 0.5 > 38.0) return vrxErrKaiserAlpha;
    return vrxOk;
}

// Single-precision forms: x0 from the single-precision product alpha (N-1).
template <class E>
VrxStatus kaiser32(const E* src, E* dst, int len, float alpha) {
    if (VrxStatus st = kaiserCheck(src, dst, len, alpha)) return st;
    const float nm1 = static_cast<float>(len - 1);
    const double x0 = static_cast<double>(fabsf(alpha * nm1)) * 0.5;
    KaiserGen32 gen{fabsf(alpha), nm1, static_cast<float>(1.0 / i0Front(x0))};
    return kaiserRun(src, dst, len, alpha, gen);
}

// 16-bit forms: the same x0, double per-element weights rounded to single.
template <class E>
VrxStatus kaiser16(const E* src, E* dst, int len, float alpha) {
    if (VrxStatus st = kaiserCheck(src, dst, len, alpha)) return st;
    const float nm1 = static_cast<float>(len - 1);
    const double x0 = static_cast<double>(fabsf(alpha * nm1)) * 0.5;
    KaiserGen64<float> gen{static_cast<double>(alpha), static_cast<double>(len - 1), 1.0 / i0Front(x0)};
    return kaiserRun(src, dst, len, alpha, gen);
}

template <class E>
VrxStatus kaiser64(const E* src, E* dst, int len, double alpha) {
    if (VrxStatus st = kaiserCheck(src, dst, len, alpha)) return st;
    const double x0 = fabs(alpha) * static_cast<double>(len - 1) * 0.5;
    KaiserGen64<double> gen{alpha, static_cast<double>(len - 1), 1.0 / i0Front(x0)};
    return kaiserRun(src, dst, len, alpha, gen);
}

}  // namespace

VrxStatus N0(vrxsWinKaiser_16s)(const Vrx16s* pSrc, Vrx16s* pDst, int len, Vrx32f alpha) { return kaiser16(pSrc, pDst, len, alpha); }
VrxStatus N0(vrxsWinKaiser_16s_I)(Vrx16s* pSrcDst, int len, Vrx32f alpha) { return kaiser16<Vrx16s>(pSrcDst, pSrcDst, len, alpha); }
VrxStatus N0(vrxsWinKaiser_16sc)(const Vrx16sc* pSrc, Vrx16sc* pDst, int len, Vrx32f alpha) { return kaiser16(pSrc, pDst, len, alpha); }
VrxStatus N0(vrxsWinKaiser_16sc_I)(Vrx16sc* pSrcDst, int len, Vrx32f alpha) { return kaiser16<Vrx16sc>(pSrcDst, pSrcDst, len, alpha); }
VrxStatus N0(vrxsWinKaiser_32f)(const Vrx32f* pSrc, Vrx32f* pDst, int len, Vrx32f alpha) { return kaiser32(pSrc, pDst, len, alpha); }
VrxStatus N0(vrxsWinKaiser_32f_I)(Vrx32f* pSrcDst, int len, Vrx32f alpha) { return kaiser32<Vrx32f>(pSrcDst, pSrcDst, len, alpha); }
VrxStatus N0(vrxsWinKaiser_32fc)(const Vrx32fc* pSrc, Vrx32fc* pDst, int len, Vrx32f alpha) { return kaiser32(pSrc, pDst, len, alpha); }
VrxStatus N0(vrxsWinKaiser_32fc_I)(Vrx32fc* pSrcDst, int len, Vrx32f alpha) { return kaiser32<Vrx32fc>(pSrcDst, pSrcDst, len, alpha); }
VrxStatus N0(vrxsWinKaiser_64f)(const Vrx64f* pSrc, Vrx64f* pDst, int len, Vrx64f alpha) { return kaiser64(pSrc, pDst, len, alpha); }
VrxStatus N0(vrxsWinKaiser_64f_I)(Vrx64f* pSrcDst, int len, Vrx64f alpha) { return kaiser64<Vrx64f>(pSrcDst, pSrcDst, len, alpha); }
VrxStatus N0(vrxsWinKaiser_64fc)(const Vrx64fc* pSrc, Vrx64fc* pDst, int len, Vrx64f alpha) { return kaiser64(pSrc, pDst, len, alpha); }
VrxStatus N0(vrxsWinKaiser_64fc_I)(Vrx64fc* pSrcDst, int len, Vrx64f alpha) { return kaiser64<Vrx64fc>(pSrcDst, pSrcDst, len, alpha); }
