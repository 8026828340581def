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

template <class S>
bool sameBits(const std::vector<S>& a, const std::vector<S>& b) { return a.size() == b.size() && memcmp(a.data(), b.data(), a.size() * sizeof(S)) == 0; }

// ------------------------------------------------------------ the table

// Every window function as a call on raw pointers: out-of-place forms take
// (src, dst), in-place forms take (dst, dst) and ignore src; the rest of the
// arguments (Blackman's and Kaiser's alpha) follow the length.
struct WinFn {
    std::string name;
    size_t elem;  // bytes per element
    int minLen;
    std::function<VrxStatus(void*, void*, int)> call;
};
#define WIN_PAIR(fn, T, minl, ...)                                                                           \
    WinFn{#fn, sizeof(T), minl, [](void* s, void* d, int n) { return fn((const T*)s, (T*)d, n __VA_ARGS__); }}, \
    WinFn{#fn "_I", sizeof(T), minl, [](void*, void* d, int n) { return fn##_I((T*)d, n __VA_ARGS__); }}
#define WIN_FAMILY(F, minl, ...)                                                                                \
    WIN_PAIR(vrxs##F##_16s, Vrx16s, minl, __VA_ARGS__), WIN_PAIR(vrxs##F##_16sc, Vrx16sc, minl, __VA_ARGS__),     \
    WIN_PAIR(vrxs##F##_32f, Vrx32f, minl, __VA_ARGS__), WIN_PAIR(vrxs##F##_32fc, Vrx32fc, minl, __VA_ARGS__),     \
    WIN_PAIR(vrxs##F##_64f, Vrx64f, minl, __VA_ARGS__), WIN_PAIR(vrxs##F##_64fc, Vrx64fc, minl, __VA_ARGS__)

std::vector<WinFn> allWindows() {
    return {WIN_FAMILY(WinBartlett, 3, ), WIN_FAMILY(WinBlackman, 3, , 0.1f), WIN_FAMILY(WinBlackmanStd, 3, ),
            WIN_FAMILY(WinBlackmanOpt, 4, ), WIN_FAMILY(WinHann, 3, ), WIN_FAMILY(WinHamming, 3, ),
            WIN_FAMILY(WinKaiser, 1, , 0.1f)};
}

// A length below the family's minimum (the contract test covers 0 and -1)
// is -6 with nothing written; the minimum itself is accepted.
TEST(Window, MinimumLength) {
    for (const WinFn& f : allWindows()) {
        SCOPED_TRACE(f.name);
        vt::Buffer src(16 * f.elem), dst(16 * f.elem);
        vt::Rng(1).fill(src.data(), src.size());
        const std::vector<uint8_t> before = vt::vec(dst.data(), dst.size());
        EXPECT_EQ(f.minLen > 1 ? f.call(src.data(), dst.data(), f.minLen - 1) : vrxErrBadLength, vrxErrBadLength);
        EXPECT_EQ(vt::vec(dst.data(), dst.size()), before);
        EXPECT_EQ(f.call(src.data(), dst.data(), f.minLen), vrxOk);
        EXPECT_TRUE(dst.guardsIntact());
    }
}

// |alpha|(N-1)/2: 38.5 fails, 38.0 exactly passes; the sign does not count;
// the length check comes first, then the alpha test (any alpha at N = 1).
TEST(Window, KaiserAlphaLimit) {
    std::vector<double> s(78, 1.0), d(78, 7.0);
    std::vector<float> sf(78, 1.0f), df(78, 7.0f);
    EXPECT_EQ(vrxsWinKaiser_64f(s.data(), d.data(), 78, 1.0), vrxErrKaiserAlpha);
    EXPECT_EQ(vrxsWinKaiser_64f(s.data(), d.data(), 78, -1.0), vrxErrKaiserAlpha);
    EXPECT_EQ(vrxsWinKaiser_32f(sf.data(), df.data(), 78, 1.0f), vrxErrKaiserAlpha);
    EXPECT_EQ(vrxsWinKaiser_32f_I(df.data(), 78, 1.0f), vrxErrKaiserAlpha);
    EXPECT_TRUE(d == std::vector<double>(78, 7.0) && df == std::vector<float>(78, 7.0f)) << "written on failure";
    EXPECT_EQ(vrxsWinKaiser_64f(s.data(), d.data(), 77, -1.0), vrxOk);
    EXPECT_EQ(vrxsWinKaiser_64f(s.data(), d.data(), 0, 1e300), vrxErrBadLength);
    EXPECT_EQ(vrxsWinKaiser_64f(s.data(), d.data(), 1, 1e300), vrxOk);
    EXPECT_EQ(d[0], 1.0);
}

// Out-of-place Bartlett 32f/32fc/64f and Blackman 32f/32fc hand an in-place
// call to _I, which stops at the middle: visible in Blackman's odd middle.
TEST(Window, SameSourceAndDestinationForwardsToInPlace) {
    const int n = 101;
    const std::vector<float> c = vt::noise(7, n);
    std::vector<float> a = c, b = c;
    ASSERT_EQ(vrxsWinBlackman_32f(a.data(), a.data(), n, -0.16f), vrxOk);
    ASSERT_EQ(vrxsWinBlackman_32f_I(b.data(), n, -0.16f), vrxOk);
    EXPECT_TRUE(sameBits(a, b));
    EXPECT_EQ(a[n / 2], c[n / 2]);   // the _I form copies the odd middle
    std::vector<double> e(n, 1.0), f(n, 1.0);
    ASSERT_EQ(vrxsWinBartlett_64f(e.data(), e.data(), n), vrxOk);
    ASSERT_EQ(vrxsWinBartlett_64f_I(f.data(), n), vrxOk);
    EXPECT_TRUE(sameBits(e, f));
}

// ------------------------------------------------------------ the models

// x moved k units in the last place (away from zero for k > 0).
double ulps(double x, int k) { return vt::bitsD(vt::dBits(x) + uint64_t(int64_t(k))); }

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
    double y0 = 0.5, y1 = 0.5 * (2.0 * c) - 0.5 * c;
    for (int n = 0; n < steps; ++n) {
        const double y = n == 0 ? y0 : (n == 1 ? y1 : (2.0 * c) * y1 - y0);
        if (n >= 2) y0 = y1, y1 = y;
        const float yf = static_cast<float>(y);
        w[n] = ((alpha + 0.5f) - yf) + (-4.0f * alpha) * (yf * yf);
    }
    return w;
}

// Step of each position: the half run (middle -1: copied) or all N steps.
int stepOf(int m, int n, bool allSteps) {
    if (allSteps) return m > n - 1 - m ? m : n - 1 - m;
    if ((n & 1) && m == n / 2) return -1;
    return m < n / 2 ? m : n - 1 - m;
}

template <class S, class W>
S weighted(S s, W w) {
    if constexpr (std::is_same_v<S, int16_t>) return vt::sat16(static_cast<float>(s) * static_cast<float>(w));
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
    auto d = [](int i) { return (i & 1) ? -(i + 1) / 2 : i / 2; };  // 0, -1, 1, -2, ...
    for (int i = 0; i <= 2 * R; ++i)
        for (int j = 0; j <= 2 * R; ++j)
            if (tryPair(ulps(c, d(i)), ulps(c2, d(j)))) return true;
    return false;
}

// fn(src, dst, n) on random data of n elements of K scalars S gives the
// model's output for the weights per step of some seeds.
template <class S, class Fn, class W>
bool matches(int n, int K, Fn fn, bool allSteps, W weights, int R = 16) {
    auto src = randomSrc<S>(size_t(n) * K, n + K);
    std::vector<S> out(src.size());
    if (fn(src.data(), out.data(), n) != vrxOk) return false;
    const double c = std::cos(6.283185307179586 / (n - 1)), c2 = std::cos(12.566370614359172 / (n - 1));
    return someSeedMatches(c, c2, R, [&](double cc, double cc2) {
        return sameBits(modelOut(src, n, K, weights(cc, cc2), allSteps), out);
    });
}

// Hann and Hamming, every type, out of place and in place, bit for bit.
TEST(Window, HannHammingExact) {
    for (auto [hamming, n] : {std::pair{false, 3}, {true, 3}, {false, 4}, {true, 5}, {false, 9}, {true, 64},
                              {false, 257}, {true, 1000}, {false, 1999}}) {
        SCOPED_TRACE(testing::Message() << (hamming ? "Hamming " : "Hann ") << n);
        const double a = hamming ? 0.46 : 0.5, b = hamming ? 0.54 : 0.5;
        auto w = [&](double cc, double cc2) {
            std::vector<double> y = strands(n / 2, a, cc, cc2);
            for (double& v : y) v = b - v;
            return y;
        };
        auto wf = [&](double cc, double cc2) { auto y = w(cc, cc2); return std::vector<float>(y.begin(), y.end()); };
        // the weights in the data's precision (single for 16-bit data)
        auto check = [&](auto tag, int K, auto fnOp, auto fnIp, bool single) {
            using S = decltype(tag);
            auto ip = [&](S* s, S* d, int m) { std::copy(s, s + size_t(m) * K, d); return fnIp(d, m); };
            if (!hamming && n == 3) {  // Hann of 3: zeros at the ends, the middle kept
                std::vector<S> src = randomSrc<S>(3 * K, 3), out(3 * K);
                ASSERT_EQ(fnOp(src.data(), out.data(), 3), vrxOk);
                for (int k = 0; k < K; ++k) EXPECT_TRUE(out[k] == S(0) && out[K + k] == src[K + k] && out[2 * K + k] == S(0));
                return;
            }
            EXPECT_TRUE(single ? matches<S>(n, K, fnOp, false, wf) : matches<S>(n, K, fnOp, false, w)) << K;
            EXPECT_TRUE(single ? matches<S>(n, K, ip, false, wf) : matches<S>(n, K, ip, false, w)) << K << " in place";
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
}

// Blackman: single precision out of place over all N steps (single strand),
// in place and 16-bit over half; double over half by the strands. Std is
// alpha = -0.16.
TEST(Window, BlackmanExact) {
    for (int n : {4, 5, 7, 10, 33, 64, 256, 777, 1001}) {
        for (float alpha : {-0.16f, 0.25f, -1.5f}) {
            SCOPED_TRACE(testing::Message() << n << " " << alpha);
            auto w = [&](double cc, double) { return blackman32Steps(n, alpha, cc); };
            EXPECT_TRUE(matches<float>(n, 1, [&](float* s, float* d, int m) { return vrxsWinBlackman_32f(s, d, m, alpha); }, true, w));
            EXPECT_TRUE(matches<float>(n, 1, [&](float* s, float* d, int m) {
                std::copy(s, s + m, d);
                return vrxsWinBlackman_32f_I(d, m, alpha);
            }, false, w));
            EXPECT_TRUE(matches<float>(n, 2, [&](float* s, float* d, int m) {
                return vrxsWinBlackman_32fc((Vrx32fc*)s, (Vrx32fc*)d, m, alpha);
            }, true, w));
            EXPECT_TRUE(matches<int16_t>(n, 1, [&](int16_t* s, int16_t* d, int m) { return vrxsWinBlackman_16s(s, d, m, alpha); }, false, w));
            if (alpha != -0.16f) continue;
            EXPECT_TRUE(matches<float>(n, 1, [](float* s, float* d, int m) { return vrxsWinBlackmanStd_32f(s, d, m); }, true, w));
            EXPECT_TRUE(matches<double>(n, 1, [](double* s, double* d, int m) { return vrxsWinBlackman_64f(s, d, m, -0.16); }, false,
                                        [&](double cc, double cc2) {
                                            auto y = strands(n / 2, 0.5, cc, cc2);
                                            for (double& v : y) v = ((-0.16 + 0.5) - v) + (-4.0 * -0.16) * (v * v);
                                            return y;
                                        }, 8));
        }
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
        // the ends are written directly, never src * 0
        auto check = [&](auto tag, int K, auto fn, const auto& w) {
            using S = decltype(tag);
            auto src = randomSrc<S>(size_t(n) * K, n), out = src;
            ASSERT_EQ(fn(src.data(), out.data(), n), vrxOk);
            auto m = modelOut(src, n, K, w, false);
            std::fill(m.begin(), m.begin() + K, S(0));
            std::fill(m.end() - K, m.end(), S(0));
            EXPECT_TRUE(sameBits(m, out)) << K;
        };
        check(double(), 1, vrxsWinBartlett_64f, wd);
        check(float(), 2, [](float* s, float* d, int m) { return vrxsWinBartlett_32fc((Vrx32fc*)s, (Vrx32fc*)d, m); }, wf);
        check(int16_t(), 1, vrxsWinBartlett_16s, wf);
    }
    // a negative source still gives +0 at the ends
    std::vector<float> s(8, -3.0f), d(8);
    ASSERT_EQ(vrxsWinBartlett_32f(s.data(), d.data(), 8), vrxOk);
    EXPECT_FALSE(std::signbit(d[0]));
    EXPECT_FALSE(std::signbit(d[7]));
}

// 16-bit products are converted in the caller's rounding mode, which the
// call keeps. N - 1 = 256: the weights k/128 and their products are exact in
// single precision, so only the conversion rounds.
TEST(Window, SixteenBitUsesCurrentRoundingMode) {
    const int n = 257;
    const auto src = randomSrc<int16_t>(n, 3);
    using Round = double (*)(double);
    const struct { unsigned mode; Round round; } modes[] = {
        {vt::kRoundNear, ::nearbyint}, {vt::kRoundDown, ::floor}, {vt::kRoundUp, ::ceil}, {vt::kRoundZero, ::trunc}};
    for (const auto& [mode, round] : modes) {
        std::vector<int16_t> out(n);
        {
            vt::MxcsrScope keep;
            _mm_setcsr((_mm_getcsr() & ~0x6000u) | mode);
            ASSERT_EQ(vrxsWinBartlett_16s(src.data(), out.data(), n), vrxOk);
            EXPECT_EQ(_mm_getcsr() & 0x6000u, mode);
        }
        for (int m = 0; m < n; ++m) {
            const int k = stepOf(m, n, false);
            EXPECT_EQ(out[m], k < 0 ? src[m] : int16_t(round(src[m] * (k / 128.0)))) << m << " mode " << mode;
        }
    }
}

// ---------------------------------------------------- closed forms

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
        return vt::besselI0(std::fabs(alpha) * std::sqrt(static_cast<ld>(n) * (N - 1 - n))) /
               vt::besselI0(std::fabs(alpha) * (N - 1) / 2);
    }
    return 0;
}

// The window of a source of ones, in double and in single precision (which
// sees alpha rounded to single).
bool ones(Fam fam, int N, double alpha, std::vector<double>& d, std::vector<float>& f) {
    d.assign(N, 1.0);
    f.assign(N, 1.0f);
    double* a = d.data();
    float* b = f.data();
    auto ok = [](VrxStatus x, VrxStatus y) { return x == vrxOk && y == vrxOk; };
    switch (fam) {
    case Fam::Bartlett: return ok(vrxsWinBartlett_64f_I(a, N), vrxsWinBartlett_32f_I(b, N));
    case Fam::Blackman: return ok(vrxsWinBlackman_64f_I(a, N, alpha), vrxsWinBlackman_32f_I(b, N, float(alpha)));
    case Fam::BlackmanStd: return ok(vrxsWinBlackmanStd_64f_I(a, N), vrxsWinBlackmanStd_32f_I(b, N));
    case Fam::BlackmanOpt: return ok(vrxsWinBlackmanOpt_64f_I(a, N), vrxsWinBlackmanOpt_32f_I(b, N));
    case Fam::Hann: return ok(vrxsWinHann_64f_I(a, N), vrxsWinHann_32f_I(b, N));
    case Fam::Hamming: return ok(vrxsWinHamming_64f_I(a, N), vrxsWinHamming_32f_I(b, N));
    case Fam::Kaiser: return ok(vrxsWinKaiser_64f_I(a, N, alpha), vrxsWinKaiser_32f_I(b, N, float(alpha)));
    }
    return false;
}

// Weights (the window of a source of ones) against long double, within
// bounds that grow with the recurrence length.
TEST(Window, ClosedFormsWithinBounds) {
    const char* const names[] = {"Bartlett", "Blackman", "BlackmanStd", "BlackmanOpt", "Hann", "Hamming", "Kaiser"};
    for (int fi = 0; fi < 7; ++fi) {
        const Fam fam = Fam(fi);
        const int minN = fam == Fam::Kaiser ? 1 : (fam == Fam::BlackmanOpt ? 4 : 3);
        for (int N : {1, 2, 3, 4, 5, 8, 17, 128, 1001, 4096, 65536}) {
            if (N < minN) continue;
            for (double alpha : {0.0, 0.05, 0.5, -3.0}) {
                if (fam == Fam::Kaiser && std::fabs(alpha) * (N - 1) / 2 > 38) continue;
                if (fam != Fam::Kaiser && fam != Fam::Blackman && alpha != 0.0) continue;
                SCOPED_TRACE(testing::Message() << names[fi] << " N=" << N << " alpha=" << alpha);
                std::vector<double> d;
                std::vector<float> f;
                ASSERT_TRUE(ones(fam, N, alpha, d, f));
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
}

// Reference windows from a table generated once (tests/make_window_golden.py):
// 1e-6 in single precision (Kaiser: plus the rounding of x in single
// precision), 1e-5 in double for Kaiser and 1e-13 for the others.
TEST(Window, GoldenTable) {
    for (const GoldenWindow& g : kGoldenWindows) {
        const std::string fam = g.family;
        SCOPED_TRACE(fam + " N=" + std::to_string(g.n));
        const int n = g.n;
        const Fam f2 = fam == "Hann" ? Fam::Hann : fam == "Hamming" ? Fam::Hamming : fam == "Blackman" ? Fam::BlackmanStd
                     : fam == "Bartlett" ? Fam::Bartlett : Fam::Kaiser;
        std::vector<double> d;
        std::vector<float> f;
        ASSERT_TRUE(ones(f2, n, g.alpha, d, f));
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
    std::vector<double> w(n, 1.0);
    std::vector<int16_t> s(2 * n, 30000);
    std::vector<float> c(2 * n, 1.0f);
    ASSERT_EQ(vrxsWinKaiser_64f_I(w.data(), n, 0.05f), vrxOk);
    ASSERT_EQ(vrxsWinKaiser_16sc_I((Vrx16sc*)s.data(), n, 0.05f), vrxOk);
    ASSERT_EQ(vrxsWinKaiser_32fc_I((Vrx32fc*)c.data(), n, 0.05f), vrxOk);
    for (int i = 0; i < n; ++i) {
        EXPECT_TRUE(fabs(s[2 * i] - 30000 * w[i]) <= 1.0 && s[2 * i] == s[2 * i + 1]) << i;
        EXPECT_TRUE(fabs(c[2 * i] - w[i]) <= 2e-6 && c[2 * i] == c[2 * i + 1]) << i;
    }
}

}  // namespace
