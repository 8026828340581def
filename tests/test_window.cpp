// Window functions: the minimum lengths, the recurrences bit for bit against
// models written here, and the weights against closed forms computed in long
// double and against SciPy's windows.
#include "vrx_test.h"
#include "data/window_golden.h"

#include <cmath>
#include <functional>
#include <string>

namespace {

using ld = long double;
const ld kPiL = 3.141592653589793238462643383279502884L;

// ------------------------------------------------------------ the table

// Every window function as a call on raw pointers: out-of-place forms take
// (src, dst), in-place forms take (dst, dst) and ignore src.
struct WinFn {
    std::string name;
    size_t elem;   // bytes per element
    int minLen;
    bool inPlace;
    std::function<VrxStatus(void*, void*, int)> call;
};

#define WIN_OP(fn, T, minl) \
    WinFn{#fn, sizeof(T), minl, false, [](void* s, void* d, int n) { return fn(static_cast<const T*>(s), static_cast<T*>(d), n); }}
#define WIN_IP(fn, T, minl) \
    WinFn{#fn, sizeof(T), minl, true, [](void*, void* d, int n) { return fn(static_cast<T*>(d), n); }}
#define WIN_OPA(fn, T, A, minl) \
    WinFn{#fn, sizeof(T), minl, false, [](void* s, void* d, int n) { return fn(static_cast<const T*>(s), static_cast<T*>(d), n, A(0.1)); }}
#define WIN_IPA(fn, T, A, minl) \
    WinFn{#fn, sizeof(T), minl, true, [](void*, void* d, int n) { return fn(static_cast<T*>(d), n, A(0.1)); }}
#define WIN_FAMILY(F, minl)                                                                        \
    WIN_OP(vrxs##F##_16s, Vrx16s, minl), WIN_IP(vrxs##F##_16s_I, Vrx16s, minl),                   \
    WIN_OP(vrxs##F##_16sc, Vrx16sc, minl), WIN_IP(vrxs##F##_16sc_I, Vrx16sc, minl),               \
    WIN_OP(vrxs##F##_32f, Vrx32f, minl), WIN_IP(vrxs##F##_32f_I, Vrx32f, minl),                   \
    WIN_OP(vrxs##F##_32fc, Vrx32fc, minl), WIN_IP(vrxs##F##_32fc_I, Vrx32fc, minl),               \
    WIN_OP(vrxs##F##_64f, Vrx64f, minl), WIN_IP(vrxs##F##_64f_I, Vrx64f, minl),                   \
    WIN_OP(vrxs##F##_64fc, Vrx64fc, minl), WIN_IP(vrxs##F##_64fc_I, Vrx64fc, minl)
#define WIN_FAMILY_A(F, minl)                                                                              \
    WIN_OPA(vrxs##F##_16s, Vrx16s, Vrx32f, minl), WIN_IPA(vrxs##F##_16s_I, Vrx16s, Vrx32f, minl),         \
    WIN_OPA(vrxs##F##_16sc, Vrx16sc, Vrx32f, minl), WIN_IPA(vrxs##F##_16sc_I, Vrx16sc, Vrx32f, minl),     \
    WIN_OPA(vrxs##F##_32f, Vrx32f, Vrx32f, minl), WIN_IPA(vrxs##F##_32f_I, Vrx32f, Vrx32f, minl),         \
    WIN_OPA(vrxs##F##_32fc, Vrx32fc, Vrx32f, minl), WIN_IPA(vrxs##F##_32fc_I, Vrx32fc, Vrx32f, minl),     \
    WIN_OPA(vrxs##F##_64f, Vrx64f, Vrx64f, minl), WIN_IPA(vrxs##F##_64f_I, Vrx64f, Vrx64f, minl),         \
    WIN_OPA(vrxs##F##_64fc, Vrx64fc, Vrx64f, minl), WIN_IPA(vrxs##F##_64fc_I, Vrx64fc, Vrx64f, minl)

std::vector<WinFn> allWindows() {
    return {WIN_FAMILY(WinBartlett, 3), WIN_FAMILY_A(WinBlackman, 3), WIN_FAMILY(WinBlackmanStd, 3),
            WIN_FAMILY(WinBlackmanOpt, 4), WIN_FAMILY(WinHann, 3), WIN_FAMILY(WinHamming, 3),
            WIN_FAMILY_A(WinKaiser, 1)};
}

// A length below the family's minimum (the contract test covers 0 and -1)
// is -6 with nothing written; the minimum itself is accepted.
TEST(Window, MinimumLength) {
    for (const WinFn& f : allWindows()) {
        SCOPED_TRACE(f.name);
        vt::Buffer src(16 * f.elem), dst(16 * f.elem);
        vt::Rng(1).fill(src.data(), src.size());
        std::vector<uint8_t> before(dst.data(), dst.data() + dst.size());
        if (f.minLen > 1) {
            EXPECT_EQ(f.call(src.data(), dst.data(), f.minLen - 1), vrxErrBadLength);
        }
        EXPECT_EQ(memcmp(before.data(), dst.data(), dst.size()), 0);
        EXPECT_EQ(f.call(src.data(), dst.data(), f.minLen), vrxOk);
        EXPECT_TRUE(dst.guardsIntact());
    }
}

TEST(Window, KaiserAlphaLimit) {
    // |alpha|(N-1)/2: 38.5 fails, 38.0 exactly passes; the sign does not count.
    std::vector<double> s(78, 1.0), d(78, 7.0);
    EXPECT_EQ(vrxsWinKaiser_64f(s.data(), d.data(), 78, 1.0), vrxErrKaiserAlpha);
    EXPECT_EQ(vrxsWinKaiser_64f(s.data(), d.data(), 78, -1.0), vrxErrKaiserAlpha);
    for (double v : d) EXPECT_EQ(v, 7.0);
    EXPECT_EQ(vrxsWinKaiser_64f(s.data(), d.data(), 77, -1.0), vrxOk);
    std::vector<float> sf(78, 1.0f), df(78, 7.0f);
    EXPECT_EQ(vrxsWinKaiser_32f(sf.data(), df.data(), 78, 1.0f), vrxErrKaiserAlpha);
    EXPECT_EQ(vrxsWinKaiser_32f_I(df.data(), 78, 1.0f), vrxErrKaiserAlpha);
    for (float v : df) EXPECT_EQ(v, 7.0f);
    // the length check comes first, then the alpha test (any alpha at N = 1)
    EXPECT_EQ(vrxsWinKaiser_64f(s.data(), d.data(), 0, 1e300), vrxErrBadLength);
    EXPECT_EQ(vrxsWinKaiser_64f(s.data(), d.data(), 1, 1e300), vrxOk);
    EXPECT_EQ(d[0], 1.0);
}

// Out-of-place Bartlett 32f/32fc/64f and Blackman 32f/32fc hand an in-place
// call to _I, which stops at the middle: visible in Blackman's odd middle.
TEST(Window, SameSourceAndDestinationForwardsToInPlace) {
    const int n = 101;
    vt::Rng r(7);
    std::vector<float> a(n), b;
    for (auto& v : a) v = static_cast<float>(r.uniform() * 2 - 1);
    b = a;
    std::vector<float> c = a;
    ASSERT_EQ(vrxsWinBlackman_32f(a.data(), a.data(), n, -0.16f), vrxOk);
    ASSERT_EQ(vrxsWinBlackman_32f_I(b.data(), n, -0.16f), vrxOk);
    EXPECT_EQ(memcmp(a.data(), b.data(), n * 4), 0);
    EXPECT_EQ(a[n / 2], c[n / 2]);   // the _I form copies the odd middle
    std::vector<double> e(n, 1.0), f(n, 1.0);
    ASSERT_EQ(vrxsWinBartlett_64f(e.data(), e.data(), n), vrxOk);
    ASSERT_EQ(vrxsWinBartlett_64f_I(f.data(), n), vrxOk);
    EXPECT_EQ(memcmp(e.data(), f.data(), n * 8), 0);
}

// ------------------------------------------------------------ the models

double ulps(double x, int k) {
    for (; k > 0; --k) x = std::nextafter(x, 1e300);
    for (; k < 0; ++k) x = std::nextafter(x, -1e300);
    return x;
}

// y(n) = a cos(n theta) by the library's strands: y(1) = a*2c - a*c, y(2),
// y(3) on 2c, then y(m+2) = 2cos(2 theta) y(m) - y(m-2).
std::vector<double> strands(int steps, double a, double c, double c2) {
    std::vector<double> y(steps > 4 ? steps : 4);
    const double tc = 2.0 * c, k2 = 2.0 * c2;
    y[0] = a;
    y[1] = a * tc - a * c;
    y[2] = tc * y[1] - y[0];
    y[3] = tc * y[2] - y[1];
    for (int m = 4; m < steps; ++m) y[m] = k2 * y[m - 2] - y[m - 4];
    y.resize(steps);
    return y;
}

// Single-strand y in double, the weight in single precision.
std::vector<float> blackman32Steps(int steps, float alpha, double c) {
    std::vector<float> w(steps);
    const double tc = 2.0 * c;
    double y0 = 0.5, y1 = 0.5 * tc - 0.5 * c;
    const float A = alpha + 0.5f, B = -4.0f * alpha;
    for (int n = 0; n < steps; ++n) {
        double y = n == 0 ? y0 : (n == 1 ? y1 : tc * y1 - y0);
        if (n >= 2) { y0 = y1; y1 = y; }
        const float yf = static_cast<float>(y);
        w[n] = (A - yf) + B * (yf * yf);
    }
    return w;
}

// Step of each position: the half run (middle -1: copied) or all N steps.
int stepOf(int m, int n, bool allSteps) {
    if (allSteps) return m > n - 1 - m ? m : n - 1 - m;
    if ((n & 1) && m == n / 2) return -1;
    return m < n / 2 ? m : n - 1 - m;
}

int16_t sat16Near(float v) {
    if (v >= 32767.0f) return 32767;
    if (v <= -32768.0f) return -32768;
    return static_cast<int16_t>(std::nearbyint(v));
}

template <class S, class W>
S weighted(S s, W w) {
    if constexpr (std::is_same_v<S, int16_t>) return sat16Near(static_cast<float>(s) * static_cast<float>(w));
    else return static_cast<S>(s * static_cast<S>(w));
}

// Expected output for scalars S (lanes per element K) from weights per step.
template <class S, class W>
std::vector<S> modelOut(const std::vector<S>& src, int n, int K, const std::vector<W>& stepW, bool allSteps) {
    std::vector<S> out(src.size());
    for (int m = 0; m < n; ++m) {
        const int st = stepOf(m, n, allSteps);
        for (int k = 0; k < K; ++k)
            out[m * K + k] = st < 0 ? src[m * K + k] : weighted(src[m * K + k], stepW[st]);
    }
    return out;
}

template <class S>
std::vector<S> randomSrc(size_t count, uint64_t seed) {
    vt::Rng r(seed);
    std::vector<S> v(count);
    for (auto& x : v) {
        if constexpr (std::is_same_v<S, int16_t>) x = static_cast<int16_t>(r.range(-32768, 32767));
        else x = static_cast<S>(r.uniform() * 200.0 - 100.0);
    }
    return v;
}

// Finds seeds within +-R ulps of libm's cosines for which the model gives
// the library's output bit for bit.
template <class F>
bool someSeedMatches(double c, double c2, int R, F&& tryPair) {
    for (int i = 0; i <= 2 * R; ++i) {
        const int di = (i & 1) ? -(i + 1) / 2 : i / 2;
        for (int j = 0; j <= 2 * R; ++j) {
            const int dj = (j & 1) ? -(j + 1) / 2 : j / 2;
            if (tryPair(ulps(c, di), ulps(c2, dj))) return true;
        }
    }
    return false;
}

template <class S>
bool sameBits(const std::vector<S>& a, const std::vector<S>& b) { return memcmp(a.data(), b.data(), a.size() * sizeof(S)) == 0; }

struct HamHanCase { bool hamming; int n; };

class HamHanExact : public ::testing::TestWithParam<HamHanCase> {};

// Hann and Hamming, every type, out of place and in place, bit for bit.
TEST_P(HamHanExact, MatchesRecurrenceModel) {
    const auto [hamming, n] = GetParam();
    const double a = hamming ? 0.46 : 0.5, b = hamming ? 0.54 : 0.5;
    const double c = std::cos(6.283185307179586 / (n - 1)), c2 = std::cos(12.566370614359172 / (n - 1));
    auto steps = [&](double cc, double cc2) {
        std::vector<double> y = strands(n / 2, a, cc, cc2), w(n / 2);
        for (int i = 0; i < n / 2; ++i) w[i] = b - y[i];
        return w;
    };
    auto toF = [](const std::vector<double>& w) { return std::vector<float>(w.begin(), w.end()); };
    auto check = [&](auto tag, int K, auto fnOp, auto fnIp, bool single) {
        using S = decltype(tag);
        auto src = randomSrc<S>(static_cast<size_t>(n) * K, n + K);
        std::vector<S> out(src.size()), inp = src;
        ASSERT_EQ(fnOp(src.data(), out.data(), n), vrxOk);
        ASSERT_EQ(fnIp(inp.data(), n), vrxOk);
        EXPECT_TRUE(sameBits(out, inp));
        if (!hamming && n == 3) {
            for (int k = 0; k < K; ++k) {
                EXPECT_EQ(out[k], S(0));
                EXPECT_EQ(out[K + k], src[K + k]);
                EXPECT_EQ(out[2 * K + k], S(0));
            }
            return;
        }
        const bool ok = someSeedMatches(c, c2, 16, [&](double cc, double cc2) {
            auto w = steps(cc, cc2);
            return single ? sameBits(modelOut(src, n, K, toF(w), false), out) : sameBits(modelOut(src, n, K, w, false), out);
        });
        EXPECT_TRUE(ok);
    };
#define HAMHAN_TYPES(F)                                                                                       \
    check(float(), 1, vrxsWin##F##_32f, vrxsWin##F##_32f_I, true);                                            \
    check(double(), 1, vrxsWin##F##_64f, vrxsWin##F##_64f_I, false);                                          \
    check(int16_t(), 1, vrxsWin##F##_16s, vrxsWin##F##_16s_I, true);                                          \
    check(float(), 2, [](float* s, float* d, int m) { return vrxsWin##F##_32fc((Vrx32fc*)s, (Vrx32fc*)d, m); }, \
          [](float* d, int m) { return vrxsWin##F##_32fc_I((Vrx32fc*)d, m); }, true);                          \
    check(double(), 2, [](double* s, double* d, int m) { return vrxsWin##F##_64fc((Vrx64fc*)s, (Vrx64fc*)d, m); }, \
          [](double* d, int m) { return vrxsWin##F##_64fc_I((Vrx64fc*)d, m); }, false);                        \
    check(int16_t(), 2, [](int16_t* s, int16_t* d, int m) { return vrxsWin##F##_16sc((Vrx16sc*)s, (Vrx16sc*)d, m); }, \
          [](int16_t* d, int m) { return vrxsWin##F##_16sc_I((Vrx16sc*)d, m); }, true);
    if (hamming) {
        HAMHAN_TYPES(Hamming)
    } else {
        HAMHAN_TYPES(Hann)
    }
}

INSTANTIATE_TEST_SUITE_P(Lengths, HamHanExact,
                         ::testing::Values(HamHanCase{false, 3}, HamHanCase{true, 3}, HamHanCase{false, 4}, HamHanCase{true, 5},
                                           HamHanCase{false, 9}, HamHanCase{true, 64}, HamHanCase{false, 257},
                                           HamHanCase{true, 1000}, HamHanCase{false, 1999}));

// Single-precision Blackman: out of place over all N steps, in place over
// half, bit for bit; Std is alpha = -0.16f.
TEST(Window, Blackman32Exact) {
    for (int n : {4, 5, 10, 33, 256, 777}) {
        for (float alpha : {-0.16f, 0.25f, -1.5f}) {
            SCOPED_TRACE(testing::Message() << n << " " << alpha);
            const double c = std::cos(6.283185307179586 / (n - 1));
            auto src = randomSrc<float>(n, n);
            std::vector<float> out(n), inp = src;
            ASSERT_EQ(vrxsWinBlackman_32f(src.data(), out.data(), n, alpha), vrxOk);
            ASSERT_EQ(vrxsWinBlackman_32f_I(inp.data(), n, alpha), vrxOk);
            EXPECT_TRUE(someSeedMatches(c, 0.0, 16, [&](double cc, double) {
                return sameBits(modelOut(src, n, 1, blackman32Steps(n, alpha, cc), true), out) &&
                       sameBits(modelOut(src, n, 1, blackman32Steps(n, alpha, cc), false), inp);
            }));
            auto srcc = randomSrc<float>(2 * n, n + 1);
            std::vector<float> outc(2 * n);
            ASSERT_EQ(vrxsWinBlackman_32fc((Vrx32fc*)srcc.data(), (Vrx32fc*)outc.data(), n, alpha), vrxOk);
            EXPECT_TRUE(someSeedMatches(c, 0.0, 16, [&](double cc, double) {
                return sameBits(modelOut(srcc, n, 2, blackman32Steps(n, alpha, cc), true), outc);
            }));
            auto s16 = randomSrc<int16_t>(n, n + 2);
            std::vector<int16_t> o16(n);
            ASSERT_EQ(vrxsWinBlackman_16s(s16.data(), o16.data(), n, alpha), vrxOk);
            EXPECT_TRUE(someSeedMatches(c, 0.0, 16, [&](double cc, double) {
                return sameBits(modelOut(s16, n, 1, blackman32Steps(n, alpha, cc), false), o16);
            }));
            if (alpha == -0.16f) {
                std::vector<float> std_(n);
                ASSERT_EQ(vrxsWinBlackmanStd_32f(src.data(), std_.data(), n), vrxOk);
                EXPECT_TRUE(sameBits(std_, out));
            }
        }
    }
}

TEST(Window, Blackman64Exact) {
    for (int n : {4, 7, 64, 1001}) {
        const double alpha = -0.16;
        const double c = std::cos(6.283185307179586 / (n - 1)), c2 = std::cos(12.566370614359172 / (n - 1));
        auto src = randomSrc<double>(n, n);
        std::vector<double> out(n);
        ASSERT_EQ(vrxsWinBlackman_64f(src.data(), out.data(), n, alpha), vrxOk);
        EXPECT_TRUE(someSeedMatches(c, c2, 8, [&](double cc, double cc2) {
            auto y = strands(n / 2, 0.5, cc, cc2);
            std::vector<double> w(n / 2);
            for (int i = 0; i < n / 2; ++i) w[i] = ((alpha + 0.5) - y[i]) + (-4.0 * alpha) * (y[i] * y[i]);
            return sameBits(modelOut(src, n, 1, w, false), out);
        })) << n;
    }
}

// Bartlett: a running sum of the step in the data's precision, ends 0.
TEST(Window, BartlettExact) {
    for (int n : {3, 4, 5, 6, 31, 1000, 4097}) {
        SCOPED_TRACE(n);
        std::vector<double> wd(n / 2);
        std::vector<float> wf(n / 2);
        double sd = 0, stepd = 2.0 / (n - 1);
        float sf = 0, stepf = 2.0f / static_cast<float>(n - 1);
        for (int i = 0; i < n / 2; ++i) { wd[i] = sd; sd += stepd; wf[i] = sf; sf += stepf; }
        auto s64 = randomSrc<double>(n, n);
        std::vector<double> o64(n);
        ASSERT_EQ(vrxsWinBartlett_64f(s64.data(), o64.data(), n), vrxOk);
        auto m64 = modelOut(s64, n, 1, wd, false);
        m64[0] = m64[n - 1] = 0.0;   // written directly, never src * 0
        EXPECT_TRUE(sameBits(m64, o64));
        auto s32 = randomSrc<float>(2 * n, n);
        std::vector<float> o32(2 * n);
        ASSERT_EQ(vrxsWinBartlett_32fc((Vrx32fc*)s32.data(), (Vrx32fc*)o32.data(), n), vrxOk);
        auto m32 = modelOut(s32, n, 2, wf, false);
        m32[0] = m32[1] = m32[2 * n - 2] = m32[2 * n - 1] = 0.0f;
        EXPECT_TRUE(sameBits(m32, o32));
        auto s16 = randomSrc<int16_t>(n, n);
        std::vector<int16_t> o16(n);
        ASSERT_EQ(vrxsWinBartlett_16s(s16.data(), o16.data(), n), vrxOk);
        auto m16 = modelOut(s16, n, 1, wf, false);
        m16[0] = m16[n - 1] = 0;
        EXPECT_TRUE(sameBits(m16, o16));
    }
    // a negative source still gives +0 at the ends
    std::vector<float> s(8, -3.0f), d(8);
    ASSERT_EQ(vrxsWinBartlett_32f(s.data(), d.data(), 8), vrxOk);
    EXPECT_FALSE(std::signbit(d[0]));
    EXPECT_FALSE(std::signbit(d[7]));
}

// 16-bit products are converted in the caller's rounding mode, and the
// mode survives the call.
TEST(Window, SixteenBitUsesCurrentRoundingMode) {
    // N - 1 a power of two: the step and its running sums are exact in any
    // rounding mode, so only the conversion of the products differs
    const int n = 257;
    auto src = randomSrc<int16_t>(n, 3);
    std::vector<int16_t> near(n), down(n), up(n);
    ASSERT_EQ(vrxsWinBartlett_16s(src.data(), near.data(), n), vrxOk);
    {
        vt::MxcsrScope keep;
        _mm_setcsr((_mm_getcsr() & ~0x6000u) | vt::kRoundDown);
        ASSERT_EQ(vrxsWinBartlett_16s(src.data(), down.data(), n), vrxOk);
        EXPECT_EQ(_mm_getcsr() & 0x6000u, vt::kRoundDown);
        _mm_setcsr((_mm_getcsr() & ~0x6000u) | vt::kRoundUp);
        ASSERT_EQ(vrxsWinBartlett_16s(src.data(), up.data(), n), vrxOk);
    }
    float step = 2.0f / (n - 1), acc = 0;
    for (int i = 0; i < n / 2; ++i, acc += step) {
        if (i == 0) continue;
        for (int m : {i, n - 1 - i}) {
            // the exact product: floor and ceiling survive the directed
            // rounding of the single-precision product
            const double p = static_cast<double>(src[m]) * acc;
            EXPECT_EQ(down[m], static_cast<int16_t>(std::floor(p))) << m;
            EXPECT_EQ(up[m], static_cast<int16_t>(std::ceil(p))) << m;
            EXPECT_EQ(near[m], static_cast<int16_t>(std::nearbyint(static_cast<float>(src[m]) * acc))) << m;
        }
    }
}

// ---------------------------------------------------- closed forms

ld besselI0(ld x) {
    ld sum = 1, term = 1, q = x * x / 4;
    for (int k = 1; k < 200; ++k) {
        term *= q / (static_cast<ld>(k) * k);
        sum += term;
        if (term < sum * 1e-22L) break;
    }
    return sum;
}

enum class Fam { Bartlett, Blackman, BlackmanStd, BlackmanOpt, Hann, Hamming, Kaiser };

ld exactWeight(Fam f, int N, int n, ld alpha) {
    const ld x = 2 * kPiL * n / (N - 1);
    switch (f) {
    case Fam::Bartlett: return n <= (N - 1) / 2.0L ? 2.0L * n / (N - 1) : 2.0L - 2.0L * n / (N - 1);
    case Fam::Hann: return 0.5L - 0.5L * std::cos(x);
    case Fam::Hamming: return 0.54L - 0.46L * std::cos(x);
    case Fam::BlackmanOpt: {
        const ld t = 0.5L / std::cos(kPiL / (N - 1));
        alpha = -t * t;
    }
        [[fallthrough]];
    case Fam::BlackmanStd:
    case Fam::Blackman:
        if (f == Fam::BlackmanStd) alpha = -0.16L;
        return (alpha + 1) / 2 - 0.5L * std::cos(x) - alpha / 2 * std::cos(2 * x);
    case Fam::Kaiser:
        return besselI0(std::fabs(alpha) * std::sqrt(static_cast<ld>(n) * (N - 1 - n))) /
               besselI0(std::fabs(alpha) * (N - 1) / 2);
    }
    return 0;
}

struct CloseCase { Fam fam; const char* name; };

class WindowClosedForm : public ::testing::TestWithParam<CloseCase> {};

// Weights (the window of a source of ones) against long double, within
// bounds that grow with the recurrence length.
TEST_P(WindowClosedForm, WithinBounds) {
    const Fam fam = GetParam().fam;
    const int minN = fam == Fam::Kaiser ? 1 : (fam == Fam::BlackmanOpt ? 4 : 3);
    for (int N : {1, 2, 3, 4, 5, 8, 17, 128, 1001, 4096, 65536}) {
        if (N < minN) continue;
        for (double alpha : {0.0, 0.05, 0.5, -3.0}) {
            if (fam == Fam::Kaiser && std::fabs(alpha) * (N - 1) / 2 > 38) continue;
            if (fam != Fam::Kaiser && fam != Fam::Blackman && alpha != 0.0) continue;
            SCOPED_TRACE(testing::Message() << GetParam().name << " N=" << N << " alpha=" << alpha);
            std::vector<double> d(N, 1.0);
            std::vector<float> f(N, 1.0f);
            VrxStatus s64 = vrxOk, s32 = vrxOk;
            switch (fam) {
            case Fam::Bartlett: s64 = vrxsWinBartlett_64f_I(d.data(), N); s32 = vrxsWinBartlett_32f_I(f.data(), N); break;
            case Fam::Blackman: s64 = vrxsWinBlackman_64f_I(d.data(), N, alpha); s32 = vrxsWinBlackman_32f_I(f.data(), N, (float)alpha); break;
            case Fam::BlackmanStd: s64 = vrxsWinBlackmanStd_64f_I(d.data(), N); s32 = vrxsWinBlackmanStd_32f_I(f.data(), N); break;
            case Fam::BlackmanOpt: s64 = vrxsWinBlackmanOpt_64f_I(d.data(), N); s32 = vrxsWinBlackmanOpt_32f_I(f.data(), N); break;
            case Fam::Hann: s64 = vrxsWinHann_64f_I(d.data(), N); s32 = vrxsWinHann_32f_I(f.data(), N); break;
            case Fam::Hamming: s64 = vrxsWinHamming_64f_I(d.data(), N); s32 = vrxsWinHamming_32f_I(f.data(), N); break;
            case Fam::Kaiser: s64 = vrxsWinKaiser_64f_I(d.data(), N, alpha); s32 = vrxsWinKaiser_32f_I(f.data(), N, (float)alpha); break;
            }
            ASSERT_EQ(s64, vrxOk);
            ASSERT_EQ(s32, vrxOk);
            // the recurrences lose about n eps / theta; Kaiser is bounded by its
            // polynomials (the double pair misses I0 by up to 5.5e-6)
            const ld nn = static_cast<ld>(N);
            const ld tol64 = fam == Fam::Kaiser ? 1e-5L : (fam == Fam::Bartlett ? 4e-16L * nn : 1e-15L + 2e-16L * nn * nn / 8);
            // single-precision Kaiser forms x in single precision: I0 near e^x
            // turns the rounding of x (about x eps) into a relative error
            const ld x0 = std::fabs(alpha) * (N - 1) / 2;
            const ld tol32 = fam == Fam::Kaiser ? 1e-6L + 1.2e-7L * x0 : 1.2e-7L + 2e-16L * nn * nn / 8 + (fam == Fam::Bartlett ? 1.2e-7L * nn / 2 : 0);
            const ld scale = fam == Fam::Blackman ? 1 + std::fabs(alpha) * 2 : 1;
            ld e64 = 0, e32 = 0;
            for (int n = 0; n < N; ++n) {
                const ld w = N == 3 && fam != Fam::Hamming && fam != Fam::Kaiser ? (n == 1 ? 1 : 0) : exactWeight(fam, N, n, alpha);
                e64 = std::max(e64, std::fabs(d[n] - w));
                // the single-precision forms see alpha rounded to single
                const ld w32 = fam == Fam::Kaiser || fam == Fam::Blackman ? (N == 3 && fam != Fam::Kaiser ? w : exactWeight(fam, N, n, static_cast<float>(alpha))) : w;
                e32 = std::max(e32, std::fabs(f[n] - w32));
            }
            EXPECT_LE(e64, tol64 * scale);
            EXPECT_LE(e32, tol32 * scale + (fam == Fam::Blackman ? 1e-6L * std::fabs(alpha) : 0));
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Families, WindowClosedForm,
                         ::testing::Values(CloseCase{Fam::Bartlett, "Bartlett"}, CloseCase{Fam::Blackman, "Blackman"},
                                           CloseCase{Fam::BlackmanStd, "BlackmanStd"}, CloseCase{Fam::BlackmanOpt, "BlackmanOpt"},
                                           CloseCase{Fam::Hann, "Hann"}, CloseCase{Fam::Hamming, "Hamming"},
                                           CloseCase{Fam::Kaiser, "Kaiser"}),
                         [](const auto& i) { return std::string(i.param.name); });

// Reference windows from a table generated once (tests/make_window_golden.py):
// 1e-6 in single precision (Kaiser: plus the rounding of x in single
// precision), 1e-5 in double for Kaiser and 1e-13 for the others.
TEST(Window, GoldenTable) {
    for (const GoldenWindow& g : kGoldenWindows) {
        const std::string fam = g.family;
        SCOPED_TRACE(fam + " N=" + std::to_string(g.n));
        const int n = g.n;
        std::vector<double> d(n, 1.0);
        std::vector<float> f(n, 1.0f);
        if (fam == "Hann") { vrxsWinHann_64f_I(d.data(), n); vrxsWinHann_32f_I(f.data(), n); }
        if (fam == "Hamming") { vrxsWinHamming_64f_I(d.data(), n); vrxsWinHamming_32f_I(f.data(), n); }
        if (fam == "Blackman") { vrxsWinBlackmanStd_64f_I(d.data(), n); vrxsWinBlackmanStd_32f_I(f.data(), n); }
        if (fam == "Bartlett") { vrxsWinBartlett_64f_I(d.data(), n); vrxsWinBartlett_32f_I(f.data(), n); }
        if (fam == "Kaiser") { vrxsWinKaiser_64f_I(d.data(), n, g.alpha); vrxsWinKaiser_32f_I(f.data(), n, (float)g.alpha); }
        const double x0 = g.alpha * (n - 1) / 2;
        const double t64 = fam == "Kaiser" ? 1e-5 : 1e-13;
        const double t32 = fam == "Kaiser" ? 1e-6 + 1.2e-7 * x0 : 1e-6;
        for (int i = 0; i < n; ++i) {
            EXPECT_NEAR(d[i], g.w[i], t64) << i;
            EXPECT_NEAR(f[i], g.w[i], t32) << i;
        }
    }
}

// 16-bit and complex Kaiser against the double window of the same alpha.
TEST(Window, KaiserTypesAgree) {
    const int n = 301;
    const float alpha = 0.05f;
    std::vector<double> w(n, 1.0);
    ASSERT_EQ(vrxsWinKaiser_64f_I(w.data(), n, alpha), vrxOk);
    std::vector<int16_t> s(2 * n, 30000);
    ASSERT_EQ(vrxsWinKaiser_16sc_I((Vrx16sc*)s.data(), n, alpha), vrxOk);
    std::vector<float> c(2 * n, 1.0f);
    ASSERT_EQ(vrxsWinKaiser_32fc_I((Vrx32fc*)c.data(), n, alpha), vrxOk);
    for (int i = 0; i < n; ++i) {
        EXPECT_NEAR(s[2 * i], 30000 * w[i], 1.0) << i;
        EXPECT_EQ(s[2 * i], s[2 * i + 1]);
        EXPECT_NEAR(c[2 * i], w[i], 2e-6) << i;
        EXPECT_EQ(c[2 * i], c[2 * i + 1]);
    }
}

}  // namespace
