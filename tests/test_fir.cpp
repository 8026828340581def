// Single-rate FIR: the direct path to the bit against a scalar model with the
// same fused multiply-add order, the FFT path against a long-double
// convolution, the path thresholds from both sides, exact sizes with no
// write outside them, the delay-line cases, 16-bit rounding and saturation,
// and the check order with nothing written on failure.
#include <cmath>
#include <complex>
#include <vector>

#include "vrx_test.h"

namespace {

// ------------------------------------------------------------- the forms
template <class E> struct Form;
template <> struct Form<Vrx32f> {
    using S = float; using State = VrxsFirState_32f;
    static constexpr int kSel = vrx32f, kMinTaps = 52, kMinIters = 256;
    static constexpr auto init = vrxsFIRSRInit_32f, run = vrxsFIRSR_32f;
    static void fft(int o, int* P, int* T, int* W) { vrxsFFTGetSize_R_32f(o, 2, 0, P, T, W); }
    static int64_t region(int64_t N) { return std::max<int64_t>((32 * N + 63) / 64 * 64, 32 * ((N + 16) & ~7)); }
};
template <> struct Form<Vrx64f> {
    using S = double; using State = VrxsFirState_64f;
    static constexpr int kSel = vrx64f, kMinTaps = 34, kMinIters = 512;
    static constexpr auto init = vrxsFIRSRInit_64f, run = vrxsFIRSR_64f;
    static void fft(int o, int* P, int* T, int* W) { vrxsFFTGetSize_R_64f(o, 2, 0, P, T, W); }
    static int64_t region(int64_t N) { return std::max<int64_t>((32 * N + 63) / 64 * 64, (16 * ((N + 2) & ~1) + 63) / 64 * 64); }
};
template <> struct Form<Vrx32fc> {
    using S = float; using State = VrxsFirState_32fc;
    static constexpr int kSel = vrx32fc, kMinTaps = 18, kMinIters = 128;
    static constexpr auto init = vrxsFIRSRInit_32fc, run = vrxsFIRSR_32fc;
    static void fft(int o, int* P, int* T, int* W) { vrxsFFTGetSize_C_32fc(o, 2, 0, P, T, W); }
    static int64_t region(int64_t N) { return (32 * N + 63) / 64 * 64; }
};
template <> struct Form<Vrx64fc> {
    using S = double; using State = VrxsFirState_64fc;
    static constexpr int kSel = vrx64fc, kMinTaps = 21, kMinIters = 256;
    static constexpr auto init = vrxsFIRSRInit_64fc, run = vrxsFIRSR_64fc;
    static void fft(int o, int* P, int* T, int* W) { vrxsFFTGetSize_C_64fc(o, 2, 0, P, T, W); }
    static int64_t region(int64_t N) { return std::max<int64_t>((16 * N + 63) / 64 * 64, 64 * N); }
};

template <class E> constexpr bool kCplx = sizeof(E) == 2 * sizeof(typename Form<E>::S);

template <class E>
E rnd(vt::Rng& r) {
    using S = typename Form<E>::S;
    if constexpr (kCplx<E>) return E{S(2 * r.uniform() - 1), S(2 * r.uniform() - 1)};
    else return E(2 * r.uniform() - 1);
}
template <class E>
std::vector<E> rnds(vt::Rng& r, size_t n) {
    std::vector<E> v(n);
    for (auto& x : v) x = rnd<E>(r);
    return v;
}
template <class E> bool same(const E& a, const E& b) { return memcmp(&a, &b, sizeof(E)) == 0; }
template <class E> long double mag(const E& a) {
    if constexpr (kCplx<E>) return std::hypot((long double)a.re, (long double)a.im);
    else return std::fabs((long double)a);
}

// A filter: its state and work buffer in plain vectors.
template <class E>
struct Fir {
    using F = Form<E>;
    std::vector<uint8_t> spec, buf;
    int N;
    Fir(const std::vector<E>& h, int alg) : N(int(h.size())) {
        int s = 0, b = 0;
        EXPECT_EQ(vrxsFIRSRGetSize(N, F::kSel, &s, &b), vrxOk);
        spec.assign(static_cast<size_t>(s), 0);
        buf.assign(static_cast<size_t>(b), 0);
        EXPECT_EQ(F::init(h.data(), N, alg, st()), vrxOk);
    }
    typename F::State* st() { return reinterpret_cast<typename F::State*>(spec.data()); }
    VrxStatus run(const E* s, E* d, int n, const E* di, E* dd) { return F::run(s, d, n, st(), di, dd, buf.data()); }
};

// ------------------------------------------------------------- references
// The direct path's arithmetic: output i sums h[N-1-j] * ext[i+j] with j
// rising, one fused multiply-add per tap from +0; complex taps add re*x,
// then the cross term.
template <class E>
std::vector<E> model(const std::vector<E>& h, const std::vector<E>& hist, const E* x, int n) {
    const int N = int(h.size());
    std::vector<E> ext(hist);
    ext.insert(ext.end(), x, x + n);
    std::vector<E> out(static_cast<size_t>(n));
    for (int i = 0; i < n; ++i) {
        if constexpr (kCplx<E>) {
            typename Form<E>::S re = 0, im = 0;
            for (int j = 0; j < N; ++j) {
                const E g = h[size_t(N - 1 - j)], v = ext[size_t(i + j)];
                re = std::fma(-g.im, v.im, std::fma(g.re, v.re, re));
                im = std::fma(g.im, v.re, std::fma(g.re, v.im, im));
            }
            out[size_t(i)] = E{re, im};
        } else {
            E a = 0;
            for (int j = 0; j < N; ++j) a = std::fma(h[size_t(N - 1 - j)], ext[size_t(i + j)], a);
            out[size_t(i)] = a;
        }
    }
    return out;
}

// The convolution in long double, with the error bound of the FFT path:
// 8 eps log2(F) sum|h| max|x|.
template <class E>
void expectNearConv(const std::vector<E>& h, const std::vector<E>& hist, const E* x, int n, const E* got,
                    const char* what) {
    using S = typename Form<E>::S;
    const int N = int(h.size());
    int k = 1;
    while ((1 << k) <= N) ++k;
    const int order = k + 1;
    long double sh = 0, mx = 0;
    for (auto& v : h) sh += mag(v);
    for (auto& v : hist) mx = std::max(mx, mag(v));
    for (int i = 0; i < n; ++i) mx = std::max(mx, mag(x[i]));
    const long double tol = 8.0L * std::numeric_limits<S>::epsilon() * order * sh * mx + 1e-300L;
    std::vector<E> ext(hist);
    ext.insert(ext.end(), x, x + n);
    for (int i = 0; i < n; ++i) {
        std::complex<long double> a = 0;
        for (int j = 0; j < N; ++j) {
            const E g = h[size_t(N - 1 - j)], v = ext[size_t(i + j)];
            if constexpr (kCplx<E>) a += std::complex<long double>(g.re, g.im) * std::complex<long double>(v.re, v.im);
            else a += (long double)g * (long double)v;
        }
        long double err;
        if constexpr (kCplx<E>) err = std::abs(a - std::complex<long double>(got[i].re, got[i].im));
        else err = std::fabs(a.real() - (long double)got[i]);
        ASSERT_LE(err, tol) << what << " N=" << N << " n=" << n << " i=" << i;
    }
}

template <class E>
std::vector<E> lineAfter(const std::vector<E>& hist, const E* x, int n) {
    std::vector<E> ext(hist);
    ext.insert(ext.end(), x, x + n);
    return std::vector<E>(ext.end() - ptrdiff_t(hist.size()), ext.end());
}

template <class E>
class FirForms : public ::testing::Test {};
using Types = ::testing::Types<Vrx32f, Vrx64f, Vrx32fc, Vrx64fc>;
TYPED_TEST_SUITE(FirForms, Types);

// ---------------------------------------------------------- direct path
TYPED_TEST(FirForms, DirectPathMatchesTheModelToTheBit) {
    using E = TypeParam;
    vt::Rng r(11);
    // from 64 taps (32f) the taps drive the loop, in passes of up to 256 (32f),
    // 128 (64f, 32fc) or 64 (64fc) taps
    const int taps[] = {1, 2, 3, 7, 8, 9, 15, 16, 17, 31, 32, 33, 52, 64, 100, 257, 600};
    const int iters[] = {1, 2, 5, 15, 16, 17, 63, 64, 65, 127, 128, 129, 300, 1000};
    for (int N : taps)
        for (int n : iters) {
            const auto h = rnds<E>(r, size_t(N)), hist = rnds<E>(r, size_t(N - 1)), x = rnds<E>(r, size_t(n));
            Fir<E> f(h, vrxAlgDirect);
            std::vector<E> out(static_cast<size_t>(n)), line(static_cast<size_t>(N - 1) + 1);
            ASSERT_EQ(f.run(x.data(), out.data(), n, hist.data(), line.data()), vrxOk);
            const auto want = model(h, hist, x.data(), n);
            for (int i = 0; i < n; ++i) ASSERT_TRUE(same(out[size_t(i)], want[size_t(i)])) << "N=" << N << " n=" << n << " i=" << i;
            const auto wl = lineAfter(hist, x.data(), n);
            for (int i = 0; i < N - 1; ++i) ASSERT_TRUE(same(line[size_t(i)], wl[size_t(i)])) << "line N=" << N << " n=" << n;
        }
}

// ------------------------------------------------------------- FFT path
TYPED_TEST(FirForms, FftPathWithinTheBoundOfTheConvolution) {
    using E = TypeParam;
    vt::Rng r(12);
    const int taps[] = {1, 2, 5, 18, 52, 100, 300};
    const int iters[] = {1, 7, 100, 511, 512, 513, 3000};
    for (int N : taps)
        for (int n : iters) {
            const auto h = rnds<E>(r, size_t(N)), hist = rnds<E>(r, size_t(N - 1)), x = rnds<E>(r, size_t(n));
            Fir<E> f(h, vrxAlgFFT);
            std::vector<E> out(static_cast<size_t>(n)), line(static_cast<size_t>(N - 1) + 1);
            ASSERT_EQ(f.run(x.data(), out.data(), n, hist.data(), line.data()), vrxOk);
            expectNearConv(h, hist, x.data(), n, out.data(), "fft");
            const auto wl = lineAfter(hist, x.data(), n);
            for (int i = 0; i < N - 1; ++i) ASSERT_TRUE(same(line[size_t(i)], wl[size_t(i)]));
        }
}

// Auto takes the FFT path only when both tapsLen and numIters reach the
// form's thresholds: its bits then equal those of an FFT state, else those
// of a direct state.
TYPED_TEST(FirForms, AutoPathThresholdsFromBothSides) {
    using E = TypeParam;
    using F = Form<E>;
    vt::Rng r(13);
    for (int N : {F::kMinTaps - 1, F::kMinTaps})
        for (int n : {F::kMinIters - 1, F::kMinIters}) {
            const auto h = rnds<E>(r, size_t(N)), hist = rnds<E>(r, size_t(N - 1)), x = rnds<E>(r, size_t(n));
            Fir<E> fa(h, vrxAlgAuto), fd(h, vrxAlgDirect), ff(h, vrxAlgFFT);
            std::vector<E> oa(static_cast<size_t>(n)), od(static_cast<size_t>(n)), of(static_cast<size_t>(n));
            fa.run(x.data(), oa.data(), n, hist.data(), nullptr);
            fd.run(x.data(), od.data(), n, hist.data(), nullptr);
            ff.run(x.data(), of.data(), n, hist.data(), nullptr);
            const bool fft = N >= F::kMinTaps && n >= F::kMinIters;
            const auto& want = fft ? of : od;
            bool differs = false;
            for (int i = 0; i < n; ++i) {
                ASSERT_TRUE(same(oa[size_t(i)], want[size_t(i)])) << "N=" << N << " n=" << n << " i=" << i;
                differs |= !same(od[size_t(i)], of[size_t(i)]);
            }
            EXPECT_TRUE(differs) << "the two paths should differ somewhere in the last bits";
        }
}

// ---------------------------------------------------------------- sizes
TYPED_TEST(FirForms, SizesFollowTheFormulasAndNothingIsWrittenOutside) {
    using E = TypeParam;
    using F = Form<E>;
    std::vector<int> ns;
    for (int n = 1; n <= 300; ++n) ns.push_back(n);
    for (int p = 9; p <= 16; ++p) ns.push_back(1 << p);
    const int64_t e = sizeof(E);
    auto A = [](int64_t x) { return (x + 63) / 64 * 64; };
    vt::Rng r(14);
    for (int N : ns) {
        int s = 0, b = 0;
        ASSERT_EQ(vrxsFIRSRGetSize(N, F::kSel, &s, &b), vrxOk);
        int k = 1;
        while ((1 << k) <= N) ++k;
        const int64_t Fl = int64_t(1) << (k + 1);
        int P = 0, T = 0, W = 0;
        F::fft(k + 1, &P, &T, &W);
        ASSERT_EQ(s, 191 + F::region(N) + P + Fl * e + std::max(T, W)) << N;
        ASSERT_EQ(b, A(2 * N * e) + A((2 * N - 2) * e) + 32768 + Fl * e + W) << N;
        if (N > 300 && N != 4096) continue;  // the runs below: all small N and one large one
        const int n = N > 300 ? 9000 : 40 + N % 7 * 100;
        const auto h = rnds<E>(r, size_t(N)), x = rnds<E>(r, size_t(n));
        for (int alg : {vrxAlgDirect, vrxAlgFFT}) {
            vt::Buffer spec(static_cast<size_t>(s), size_t(N % 64)), buf(static_cast<size_t>(b), size_t(N * 7 % 64));
            ASSERT_EQ(F::init(h.data(), N, alg, reinterpret_cast<typename F::State*>(spec.data())), vrxOk);
            std::vector<E> out(static_cast<size_t>(n));
            auto* st = reinterpret_cast<const typename F::State*>(spec.data());
            ASSERT_EQ(F::run(x.data(), out.data(), n, st, nullptr, nullptr, buf.data()), vrxOk);
            std::vector<E> io(x);  // in place: the staged path
            ASSERT_EQ(F::run(io.data(), io.data(), n, st, nullptr, nullptr, buf.data()), vrxOk);
            ASSERT_TRUE(spec.guardsIntact()) << N;
            ASSERT_TRUE(buf.guardsIntact()) << N;
        }
    }
}

// ---------------------------------------------------------- delay lines
TYPED_TEST(FirForms, DelayLineCases) {
    using E = TypeParam;
    vt::Rng r(15);
    for (int alg : {vrxAlgDirect, vrxAlgFFT})
        for (int N : {1, 2, 9, 40, 70}) {
            const auto h = rnds<E>(r, size_t(N)), hist = rnds<E>(r, size_t(N - 1));
            const std::vector<E> zeros(static_cast<size_t>(N - 1), E{});
            Fir<E> f(h, alg);
            auto check = [&](const std::vector<E>& got, const std::vector<E>& hi, const std::vector<E>& x, const char* what) {
                if (alg == vrxAlgDirect) {
                    const auto want = model(h, hi, x.data(), int(x.size()));
                    for (size_t i = 0; i < x.size(); ++i) ASSERT_TRUE(same(got[i], want[i])) << what << " N=" << N << " i=" << i;
                } else {
                    expectNearConv(h, hi, x.data(), int(x.size()), got.data(), what);
                }
            };
            for (int n : {1, std::max(1, N / 3), N + 5}) {  // numIters below N-1 too
                const auto x = rnds<E>(r, size_t(n));
                std::vector<E> out(static_cast<size_t>(n)), line(static_cast<size_t>(N));
                // a null line in, a line out: zeros for the history
                ASSERT_EQ(f.run(x.data(), out.data(), n, nullptr, line.data()), vrxOk);
                check(out, zeros, x, "null in");
                const auto wz = lineAfter(zeros, x.data(), n);
                for (int i = 0; i < N - 1; ++i) ASSERT_TRUE(same(line[size_t(i)], wz[size_t(i)])) << "null-in line";
                // the same line in and out: updated in place
                std::vector<E> io(hist);
                ASSERT_EQ(f.run(x.data(), out.data(), n, io.data(), io.data()), vrxOk);
                check(out, hist, x, "same line");
                const auto wl = lineAfter(hist, x.data(), n);
                for (int i = 0; i < N - 1; ++i) ASSERT_TRUE(same(io[size_t(i)], wl[size_t(i)])) << "same line";
                // both null, pDst distinct: the history is the copy the work
                // buffer kept from the call before, so the same result again
                std::vector<E> again(static_cast<size_t>(n));
                ASSERT_EQ(f.run(x.data(), again.data(), n, nullptr, nullptr), vrxOk);
                ASSERT_EQ(f.run(x.data(), again.data(), n, nullptr, nullptr), vrxOk);
                std::vector<E> io2(hist), viaLine(static_cast<size_t>(n));
                ASSERT_EQ(f.run(x.data(), viaLine.data(), n, io2.data(), io2.data()), vrxOk);
                ASSERT_EQ(f.run(x.data(), again.data(), n, nullptr, nullptr), vrxOk);
                for (int i = 0; i < n; ++i) ASSERT_TRUE(same(again[size_t(i)], viaLine[size_t(i)])) << "both null, plain";
                // both null, in place: zero history
                std::vector<E> inpl(x);
                ASSERT_EQ(f.run(inpl.data(), inpl.data(), n, nullptr, nullptr), vrxOk);
                check(inpl, zeros, x, "both null, in place");
                // pDst is pDlySrc: the staged path
                if (n >= N - 1) {
                    std::vector<E> d(static_cast<size_t>(n));
                    std::copy(hist.begin(), hist.end(), d.begin());
                    std::vector<E> lo(static_cast<size_t>(N));
                    ASSERT_EQ(f.run(x.data(), d.data(), n, d.data(), lo.data()), vrxOk);
                    check(d, hist, x, "dst is line in");
                    for (int i = 0; i < N - 1; ++i) ASSERT_TRUE(same(lo[size_t(i)], wl[size_t(i)])) << "dst is line in";
                }
            }
        }
}

// In place equals out of place across several staging blocks: to the bit on
// the direct path, within the bound on the FFT path.
TYPED_TEST(FirForms, InPlaceEqualsOutOfPlace) {
    using E = TypeParam;
    vt::Rng r(16);
    for (int alg : {vrxAlgDirect, vrxAlgFFT, vrxAlgAuto})
        for (int N : {1, 5, 60}) {
            const int n = int(32768 / sizeof(E)) * 2 + 77;
            const auto h = rnds<E>(r, size_t(N)), hist = rnds<E>(r, size_t(N - 1)), x = rnds<E>(r, size_t(n));
            Fir<E> f(h, alg);
            std::vector<E> out(static_cast<size_t>(n)), l1(static_cast<size_t>(N)), l2(static_cast<size_t>(N)), io(x);
            ASSERT_EQ(f.run(x.data(), out.data(), n, hist.data(), l1.data()), vrxOk);
            ASSERT_EQ(f.run(io.data(), io.data(), n, hist.data(), l2.data()), vrxOk);
            if (alg == vrxAlgDirect) {
                for (int i = 0; i < n; ++i) ASSERT_TRUE(same(io[size_t(i)], out[size_t(i)])) << "N=" << N << " i=" << i;
            } else {
                // the staged blocks restart the overlap-save segments: the
                // same bound, not the same bits
                expectNearConv(h, hist, x.data(), n, io.data(), "in place");
            }
            for (int i = 0; i < N - 1; ++i) ASSERT_TRUE(same(l1[size_t(i)], l2[size_t(i)]));
        }
}

// A long signal in random pieces gives the bits of one call (direct path;
// the FFT path's blocks depend on the call length).
TYPED_TEST(FirForms, PiecesThroughTheLineEqualOneCall) {
    using E = TypeParam;
    vt::Rng r(17);
    const int N = 23, n = 5000;
    const auto h = rnds<E>(r, size_t(N)), x = rnds<E>(r, size_t(n));
    Fir<E> f(h, vrxAlgDirect);
    std::vector<E> one(static_cast<size_t>(n)), parts(static_cast<size_t>(n)), line(static_cast<size_t>(N - 1), E{});
    std::vector<E> z(static_cast<size_t>(N - 1), E{});
    ASSERT_EQ(f.run(x.data(), one.data(), n, z.data(), nullptr), vrxOk);
    for (int at = 0; at < n;) {
        const int m = std::min<int>(n - at, int(r.range(1, 300)));
        ASSERT_EQ(f.run(x.data() + at, parts.data() + at, m, line.data(), line.data()), vrxOk);
        at += m;
    }
    for (int i = 0; i < n; ++i) ASSERT_TRUE(same(one[size_t(i)], parts[size_t(i)])) << i;
}

// ---------------------------------------------------------------- checks
TYPED_TEST(FirForms, ChecksInOrderAndNothingWrittenOnFailure) {
    using E = TypeParam;
    using F = Form<E>;
    int s = -1, b = -1;
    EXPECT_EQ(vrxsFIRSRGetSize(0, 99, nullptr, nullptr), vrxErrBadLength);
    EXPECT_EQ(vrxsFIRSRGetSize(1, 99, nullptr, nullptr), vrxErrDataType);
    EXPECT_EQ(vrxsFIRSRGetSize(1, vrx16s, &s, &b), vrxErrDataType);
    EXPECT_EQ(vrxsFIRSRGetSize(1, F::kSel, nullptr, &b), vrxErrNullPtr);
    EXPECT_EQ(vrxsFIRSRGetSize(1, F::kSel, &s, nullptr), vrxErrNullPtr);
    EXPECT_EQ(s, -1);
    EXPECT_EQ(b, -1);
    const std::vector<E> h(4, E{});
    std::vector<uint8_t> spec(4096, 0x5A), ref(spec);
    auto* st = reinterpret_cast<typename F::State*>(spec.data());
    EXPECT_EQ(F::init(nullptr, 0, 7, nullptr), vrxErrBadLength);
    EXPECT_EQ(F::init(nullptr, 4, 7, st), vrxErrNullPtr);
    for (int bad : {-1, 3, 0x100, 0x102})
        EXPECT_EQ(F::init(h.data(), 4, bad, st), vrxErrAlgType) << bad;
    EXPECT_EQ(spec, ref);  // the run's checks are the contract test's
}

TYPED_TEST(FirForms, ControlWordUntouched) {
    using E = TypeParam;
    vt::Rng r(18);
    const auto h = rnds<E>(r, 60), x = rnds<E>(r, 600);
    for (int alg : {vrxAlgDirect, vrxAlgFFT}) {
        Fir<E> f(h, alg);
        std::vector<E> out(600);
        vt::MxcsrScope keep;
        const unsigned word = (_mm_getcsr() & ~0x603Fu) | vt::kRoundZero | vt::kFtz;
        _mm_setcsr(word);
        ASSERT_EQ(f.run(x.data(), out.data(), 600, nullptr, nullptr), vrxOk);
        EXPECT_EQ(_mm_getcsr() & ~0x3Fu, word & ~0x3Fu);
    }
}

// ---------------------------------------------------------------- 16-bit
struct Fir16 {
    std::vector<uint8_t> spec, buf;
    Fir16(const std::vector<float>& h, int alg) {
        int s = 0, b = 0;
        vrxsFIRSRGetSize(int(h.size()), vrx32f, &s, &b);
        spec.assign(static_cast<size_t>(s), 0);
        buf.assign(static_cast<size_t>(b), 0);
        vrxsFIRSRInit_32f(h.data(), int(h.size()), alg, st());
    }
    VrxsFirState_32f* st() { return reinterpret_cast<VrxsFirState_32f*>(spec.data()); }
};

int16_t sat16(float v) {
    const float r = std::nearbyint(v);  // ties to even in the default mode
    return int16_t(std::max(-32768.0f, std::min(32767.0f, r)));
}

TEST(Fir16s, DirectInFloatRoundedAndSaturated) {
    vt::Rng r(19);
    for (int alg : {vrxAlgDirect, vrxAlgFFT})  // an FFT state runs direct all the same
        for (int N : {1, 3, 33, 80}) {
            std::vector<float> h(static_cast<size_t>(N));
            for (auto& v : h) v = float(r.uniform() * 4 - 2);
            const int n = 9000;  // past the 4096-sample block
            std::vector<int16_t> x(static_cast<size_t>(n)), hist(static_cast<size_t>(N - 1)), out(static_cast<size_t>(n)), line(static_cast<size_t>(N));
            for (auto& v : x) v = int16_t(r.range(-32768, 32767));
            for (auto& v : hist) v = int16_t(r.range(-32768, 32767));
            Fir16 f(h, alg);
            ASSERT_EQ(vrxsFIRSR_16s(x.data(), out.data(), n, f.st(), hist.data(), line.data(), f.buf.data()), vrxOk);
            std::vector<float> hf(hist.begin(), hist.end()), xf(x.begin(), x.end());
            const auto want = model(h, hf, xf.data(), n);
            for (int i = 0; i < n; ++i) ASSERT_EQ(out[size_t(i)], sat16(want[size_t(i)])) << "N=" << N << " i=" << i;
            for (int i = 0; i < N - 1; ++i) ASSERT_EQ(line[size_t(i)], x[size_t(n - (N - 1) + i)]);
            std::vector<int16_t> io(x);
            ASSERT_EQ(vrxsFIRSR_16s(io.data(), io.data(), n, f.st(), hist.data(), nullptr, f.buf.data()), vrxOk);
            ASSERT_EQ(io, out);
        }
}

TEST(Fir16s, TiesToEvenAndSaturation) {
    // taps {0.5}: odd inputs give ties, which go to even; taps {3}: saturation
    Fir16 half({0.5f}, vrxAlgDirect), three({3.0f}, vrxAlgAuto);
    const std::vector<int16_t> x = {1, 3, 5, -1, -3, 32767, -32768, 7};
    std::vector<int16_t> out(x.size());
    ASSERT_EQ(vrxsFIRSR_16s(x.data(), out.data(), 8, half.st(), nullptr, nullptr, half.buf.data()), vrxOk);
    EXPECT_EQ(out, (std::vector<int16_t>{0, 2, 2, 0, -2, 16384, -16384, 4}));
    ASSERT_EQ(vrxsFIRSR_16s(x.data(), out.data(), 8, three.st(), nullptr, nullptr, three.buf.data()), vrxOk);
    EXPECT_EQ(out, (std::vector<int16_t>{3, 9, 15, -3, -9, 32767, -32768, 21}));
}

TEST(Fir16sc, ComplexOnTheFloatState) {
    vt::Rng r(20);
    const int N = 21, n = 5000;
    std::vector<Vrx32fc> h(static_cast<size_t>(N));
    for (auto& v : h) v = Vrx32fc{float(r.uniform() * 2 - 1), float(r.uniform() * 2 - 1)};
    std::vector<Vrx16sc> x(static_cast<size_t>(n)), out(static_cast<size_t>(n)), line(static_cast<size_t>(N - 1));
    for (auto& v : x) v = Vrx16sc{int16_t(r.range(-32768, 32767)), int16_t(r.range(-32768, 32767))};
    int s = 0, b = 0;
    vrxsFIRSRGetSize(N, vrx32fc, &s, &b);
    std::vector<uint8_t> spec(static_cast<size_t>(s)), buf(static_cast<size_t>(b));
    auto* st = reinterpret_cast<VrxsFirState_32fc*>(spec.data());
    ASSERT_EQ(vrxsFIRSRInit_32fc(h.data(), N, vrxAlgFFT, st), vrxOk);
    ASSERT_EQ(vrxsFIRSR_16sc(x.data(), out.data(), n, st, nullptr, line.data(), buf.data()), vrxOk);
    std::vector<Vrx32fc> xf(static_cast<size_t>(n)), zero(static_cast<size_t>(N - 1), Vrx32fc{0, 0});
    for (int i = 0; i < n; ++i) xf[size_t(i)] = Vrx32fc{float(x[size_t(i)].re), float(x[size_t(i)].im)};
    const auto want = model(h, zero, xf.data(), n);
    for (int i = 0; i < n; ++i) {
        ASSERT_EQ(out[size_t(i)].re, sat16(want[size_t(i)].re)) << i;
        ASSERT_EQ(out[size_t(i)].im, sat16(want[size_t(i)].im)) << i;
    }
}

}  // namespace
