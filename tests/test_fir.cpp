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

using vt::randElems;
using vt::sameBits;

// Per form: the state, the Auto thresholds (taps, iterations), the FFT
// sizes of the plan inside and the state's tap region for N taps.
template <class E> struct Form;
#define FIR_FORM(E, t, RC, minTaps, minIters, REGION)                                                       \
    template <> struct Form<E> {                                                                               \
        using State = VrxsFirState_##t;                                                                       \
        static constexpr int kSel = vrx##t, kMinTaps = minTaps, kMinIters = minIters;                       \
        static constexpr auto init = vrxsFIRSRInit_##t, run = vrxsFIRSR_##t;                                 \
        static void fft(int o, int* P, int* T, int* W) { vrxsFFTGetSize_##RC##_##t(o, 2, 0, P, T, W); }        \
        static int64_t region(int64_t N) { return REGION; }                                                    \
    };
FIR_FORM(Vrx32f, 32f, R, 52, 256, std::max<int64_t>((32 * N + 63) / 64 * 64, 32 * ((N + 16) & ~7)))
FIR_FORM(Vrx64f, 64f, R, 34, 512, std::max<int64_t>((32 * N + 63) / 64 * 64, (16 * ((N + 2) & ~1) + 63) / 64 * 64))
FIR_FORM(Vrx32fc, 32fc, C, 18, 128, (32 * N + 63) / 64 * 64)
FIR_FORM(Vrx64fc, 64fc, C, 21, 256, std::max<int64_t>((16 * N + 63) / 64 * 64, 64 * N))

template <class E> std::vector<E> rnd(vt::Rng& r, int n) { return randElems<E>(r, static_cast<size_t>(n)); }
template <class E> std::vector<E> concat(const std::vector<E>& hist, const E* x, int n) {
    std::vector<E> ext(hist);
    ext.insert(ext.end(), x, x + n);
    return ext;
}
// The line a run leaves: the last N-1 samples of history and input.
template <class E> std::vector<E> lineAfter(const std::vector<E>& hist, const E* x, int n) {
    const std::vector<E> ext = concat(hist, x, n);
    return std::vector<E>(ext.end() - ptrdiff_t(hist.size()), ext.end());
}

// A filter: its state and work buffer in plain vectors.
template <class E>
struct Fir {
    using F = Form<E>;
    std::vector<uint8_t> spec, buf;
    Fir(const std::vector<E>& h, int alg) {
        int s = 0, b = 0;
        EXPECT_EQ(vrxsFIRSRGetSize(int(h.size()), F::kSel, &s, &b), vrxOk);
        spec.assign(static_cast<size_t>(s), 0);
        buf.assign(static_cast<size_t>(b), 0);
        EXPECT_EQ(F::init(h.data(), int(h.size()), alg, st()), vrxOk);
    }
    typename F::State* st() { return reinterpret_cast<typename F::State*>(spec.data()); }
    VrxStatus run(const E* s, E* d, int n, const E* di, E* dd) { return F::run(s, d, n, st(), di, dd, buf.data()); }
};

// The first n elements with the same bits.
template <class E> void expectSame(const std::vector<E>& got, const std::vector<E>& want, size_t n, const char* what) {
    for (size_t i = 0; i < n; ++i) ASSERT_TRUE(sameBits(got[i], want[i])) << what << " i=" << i;
}

// The direct path's arithmetic: output i sums h[N-1-j] * ext[i+j] with j
// rising, one fused multiply-add per tap from +0; complex taps add re*x,
// then the cross term.
template <class E>
std::vector<E> model(const std::vector<E>& h, const std::vector<E>& hist, const E* x, int n) {
    const size_t N = h.size();
    const std::vector<E> ext = concat(hist, x, n);
    std::vector<E> out(static_cast<size_t>(n));
    for (size_t i = 0; i < out.size(); ++i)
        for (size_t j = 0; j < N; ++j) {
            const E g = h[N - 1 - j], v = ext[i + j];
            E& a = out[i];
            if constexpr (vt::Elem<E>::cplx) {
                a.re = std::fma(-g.im, v.im, std::fma(g.re, v.re, a.re));
                a.im = std::fma(g.im, v.re, std::fma(g.re, v.im, a.im));
            } else {
                a = std::fma(g, v, a);
            }
        }
    return out;
}

// The convolution in long double, with the error bound of the FFT path:
// 8 eps log2(F) sum|h| max|x|.
template <class E>
void expectNearConv(const std::vector<E>& h, const std::vector<E>& hist, const E* x, int n, const E* got, const char* what) {
    const size_t N = h.size();
    int k = 1;
    while ((1u << k) <= N) ++k;
    const std::vector<E> ext = concat(hist, x, n);
    long double sh = 0, mx = 0;
    for (auto& v : h) sh += std::abs(vt::toLC(v));
    for (auto& v : ext) mx = std::max(mx, std::abs(vt::toLC(v)));
    const long double tol = 8.0L * std::numeric_limits<typename vt::Elem<E>::S>::epsilon() * (k + 1) * sh * mx + 1e-300L;
    for (int i = 0; i < n; ++i) {
        std::complex<long double> a = 0;
        for (size_t j = 0; j < N; ++j) a += vt::toLC(h[N - 1 - j]) * vt::toLC(ext[i + j]);
        ASSERT_LE(std::abs(a - vt::toLC(got[i])), tol) << what << " N=" << N << " n=" << n << " i=" << i;
    }
}

template <class E> class FirForms : public ::testing::Test {};
using Types = ::testing::Types<Vrx32f, Vrx64f, Vrx32fc, Vrx64fc>;
TYPED_TEST_SUITE(FirForms, Types);

// Both paths over tap counts and lengths across the kernels' registers and
// passes (from 64 taps the taps drive the loop, in passes of up to 256, 128
// or 64 taps): the direct path to the bit, the FFT path within its bound,
// the line out exactly the last N-1 samples.
TYPED_TEST(FirForms, PathsAgainstTheirReferences) {
    using E = TypeParam;
    vt::Rng r(11);
    struct { int alg; std::vector<int> taps, iters; } rows[] = {
        {vrxAlgDirect, {1, 2, 3, 7, 8, 9, 15, 16, 17, 31, 32, 33, 52, 64, 100, 257, 600},
         {1, 2, 5, 15, 16, 17, 63, 64, 65, 127, 128, 129, 300, 1000}},
        {vrxAlgFFT, {1, 2, 5, 18, 52, 100, 300}, {1, 7, 100, 511, 512, 513, 3000}},
    };
    for (auto& row : rows)
        for (int N : row.taps)
            for (int n : row.iters) {
                const auto h = rnd<E>(r, N), hist = rnd<E>(r, N - 1), x = rnd<E>(r, n);
                Fir<E> f(h, row.alg);
                std::vector<E> out(static_cast<size_t>(n)), line(static_cast<size_t>(N));
                ASSERT_EQ(f.run(x.data(), out.data(), n, hist.data(), line.data()), vrxOk);
                SCOPED_TRACE(::testing::Message() << "alg " << row.alg << " N=" << N << " n=" << n);
                if (row.alg == vrxAlgDirect) expectSame(out, model(h, hist, x.data(), n), static_cast<size_t>(n), "direct");
                else expectNearConv(h, hist, x.data(), n, out.data(), "fft");
                expectSame(line, lineAfter(hist, x.data(), n), static_cast<size_t>(N - 1), "line");
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
            const auto h = rnd<E>(r, N), hist = rnd<E>(r, N - 1), x = rnd<E>(r, n);
            std::vector<E> o[3];
            for (int alg : {vrxAlgAuto, vrxAlgDirect, vrxAlgFFT}) {  // 0, 1, 2
                o[alg].resize(static_cast<size_t>(n));
                ASSERT_EQ(Fir<E>(h, alg).run(x.data(), o[alg].data(), n, hist.data(), nullptr), vrxOk);
            }
            const bool fft = N >= F::kMinTaps && n >= F::kMinIters;
            expectSame(o[0], fft ? o[2] : o[1], static_cast<size_t>(n), fft ? "auto as fft" : "auto as direct");
            EXPECT_NE(0, memcmp(o[1].data(), o[2].data(), static_cast<size_t>(n) * sizeof(E))) << "the paths should differ in the last bits";
        }
}

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
        const auto h = rnd<E>(r, N), x = rnd<E>(r, n);
        for (int alg : {vrxAlgDirect, vrxAlgFFT}) {
            vt::Buffer spec(static_cast<size_t>(s), static_cast<size_t>(N % 64)), buf(static_cast<size_t>(b), static_cast<size_t>(N * 7 % 64));
            ASSERT_EQ(F::init(h.data(), N, alg, reinterpret_cast<typename F::State*>(spec.data())), vrxOk);
            std::vector<E> out(static_cast<size_t>(n)), io(x);
            auto* st = reinterpret_cast<const typename F::State*>(spec.data());
            ASSERT_EQ(F::run(x.data(), out.data(), n, st, nullptr, nullptr, buf.data()), vrxOk);
            ASSERT_EQ(F::run(io.data(), io.data(), n, st, nullptr, nullptr, buf.data()), vrxOk);  // staged
            ASSERT_TRUE(spec.guardsIntact() && buf.guardsIntact()) << N;
        }
    }
}

// The delay-line cases on both paths, numIters below N-1 too: a null line
// in is zeros; the same line in and out is updated in place; both null with
// pDst distinct reuse the history the work buffer kept from the call before,
// in place they are zeros; pDst = pDlySrc stages the input.
TYPED_TEST(FirForms, DelayLineCases) {
    using E = TypeParam;
    vt::Rng r(15);
    for (int alg : {vrxAlgDirect, vrxAlgFFT})
        for (int N : {1, 2, 9, 40, 70}) {
            const auto h = rnd<E>(r, N), hist = rnd<E>(r, N - 1);
            const std::vector<E> zeros(static_cast<size_t>(N - 1), E{});
            Fir<E> f(h, alg);
            auto check = [&](const std::vector<E>& got, const std::vector<E>& hi, const std::vector<E>& x, const char* what) {
                SCOPED_TRACE(::testing::Message() << "alg " << alg << " N=" << N << " n=" << x.size());
                if (alg == vrxAlgDirect) expectSame(got, model(h, hi, x.data(), int(x.size())), x.size(), what);
                else expectNearConv(h, hi, x.data(), int(x.size()), got.data(), what);
            };
            for (int n : {1, std::max(1, N / 3), N + 5}) {
                const auto x = rnd<E>(r, n);
                const auto wl = lineAfter(hist, x.data(), n);
                std::vector<E> out(static_cast<size_t>(n)), line(static_cast<size_t>(N));
                ASSERT_EQ(f.run(x.data(), out.data(), n, nullptr, line.data()), vrxOk);
                check(out, zeros, x, "null in");
                expectSame(line, lineAfter(zeros, x.data(), n), static_cast<size_t>(N - 1), "null-in line");
                std::vector<E> io(hist);
                ASSERT_EQ(f.run(x.data(), out.data(), n, io.data(), io.data()), vrxOk);
                check(out, hist, x, "same line");
                expectSame(io, wl, static_cast<size_t>(N - 1), "same line");
                std::vector<E> again(static_cast<size_t>(n)), viaLine(static_cast<size_t>(n)), io2(hist);
                ASSERT_EQ(f.run(x.data(), again.data(), n, nullptr, nullptr), vrxOk);
                ASSERT_EQ(f.run(x.data(), again.data(), n, nullptr, nullptr), vrxOk);
                ASSERT_EQ(f.run(x.data(), viaLine.data(), n, io2.data(), io2.data()), vrxOk);
                ASSERT_EQ(f.run(x.data(), again.data(), n, nullptr, nullptr), vrxOk);
                expectSame(again, viaLine, static_cast<size_t>(n), "both null, kept history");
                std::vector<E> inpl(x);
                ASSERT_EQ(f.run(inpl.data(), inpl.data(), n, nullptr, nullptr), vrxOk);
                check(inpl, zeros, x, "both null, in place");
                if (n >= N - 1) {
                    std::vector<E> d(static_cast<size_t>(n)), lo(static_cast<size_t>(N));
                    std::copy(hist.begin(), hist.end(), d.begin());
                    ASSERT_EQ(f.run(x.data(), d.data(), n, d.data(), lo.data()), vrxOk);
                    check(d, hist, x, "dst is line in");
                    expectSame(lo, wl, static_cast<size_t>(N - 1), "dst is line in");
                }
            }
        }
}

// In place equals out of place across several staging blocks (to the bit
// on the direct path, within the bound on the FFT path, whose staged blocks
// restart the segments), under a caller's round-to-zero and flush-to-zero
// control word that comes back unchanged. On the direct path random pieces
// through the line give the bits of one call too.
TYPED_TEST(FirForms, InPlaceAndPiecesEqualOneCallUnderAnyControlWord) {
    using E = TypeParam;
    vt::Rng r(16);
    for (int alg : {vrxAlgDirect, vrxAlgFFT, vrxAlgAuto})
        for (int N : {1, 5, 23, 60}) {
            const int n = int(32768 / sizeof(E)) * 2 + 77;
            const auto h = rnd<E>(r, N), hist = rnd<E>(r, N - 1), x = rnd<E>(r, n);
            Fir<E> f(h, alg);
            std::vector<E> out(static_cast<size_t>(n)), l1(static_cast<size_t>(N)), l2(static_cast<size_t>(N)), io(x), parts(static_cast<size_t>(n)), line(hist);
            vt::MxcsrScope keep;
            const unsigned word = (_mm_getcsr() & ~0x603Fu) | vt::kRoundZero | vt::kFtz;
            _mm_setcsr(word);
            ASSERT_EQ(f.run(x.data(), out.data(), n, hist.data(), l1.data()), vrxOk);
            ASSERT_EQ(f.run(io.data(), io.data(), n, hist.data(), l2.data()), vrxOk);
            for (int at = 0, m = 0; at < n && alg == vrxAlgDirect; at += m) {
                m = std::min<int>(n - at, int(r.range(1, 300)));
                ASSERT_EQ(f.run(x.data() + at, parts.data() + at, m, line.data(), line.data()), vrxOk);
            }
            EXPECT_EQ(_mm_getcsr() & ~0x3Fu, word & ~0x3Fu);
            expectSame(l1, l2, static_cast<size_t>(N - 1), "line");
            if (alg != vrxAlgDirect) {
                expectNearConv(h, hist, x.data(), n, io.data(), "in place");
            } else {
                expectSame(io, out, static_cast<size_t>(n), "in place");
                expectSame(parts, out, static_cast<size_t>(n), "pieces");
            }
        }
}

// Null pointers and the run's checks are the contract test's; here the
// selector and algorithm checks in order, nothing written.
TYPED_TEST(FirForms, ChecksInOrderAndNothingWrittenOnFailure) {
    using F = Form<TypeParam>;
    int s = -1, b = -1;
    EXPECT_EQ(vrxsFIRSRGetSize(0, 99, nullptr, nullptr), vrxErrBadLength);
    EXPECT_EQ(vrxsFIRSRGetSize(1, 99, nullptr, nullptr), vrxErrDataType);
    EXPECT_EQ(vrxsFIRSRGetSize(1, vrx16s, &s, &b), vrxErrDataType);
    EXPECT_EQ(vrxsFIRSRGetSize(1, F::kSel, nullptr, &b), vrxErrNullPtr);
    EXPECT_EQ(s, -1);
    EXPECT_EQ(b, -1);
    const std::vector<TypeParam> h(4, TypeParam{});
    std::vector<uint8_t> spec(4096, 0x5A), ref(spec);
    auto* st = reinterpret_cast<typename F::State*>(spec.data());
    EXPECT_EQ(F::init(nullptr, 4, 7, st), vrxErrNullPtr);
    for (int bad : {-1, 3, 0x100, 0x102}) EXPECT_EQ(F::init(h.data(), 4, bad, st), vrxErrAlgType) << bad;
    EXPECT_EQ(spec, ref);
}

// ---------------------------------------------------------------- 16-bit
// The 16-bit runs filter on the float state, past the 4096-sample block,
// direct whatever the state's path: the float model rounded to nearest even
// and saturated; the line holds the last input samples; in place the same.
template <class S, class E, auto Run>
void sixteenBit(vt::Rng& r, int alg, int N, int n) {
    auto h = rnd<E>(r, N);
    if constexpr (!vt::Elem<E>::cplx)
        for (auto& v : h) v *= 2;  // real taps to |2|: saturation
    std::vector<S> x(static_cast<size_t>(n)), hist(static_cast<size_t>(N - 1)), out(static_cast<size_t>(n)), line(static_cast<size_t>(N));
    r.fill(x.data(), x.size() * sizeof(S));
    r.fill(hist.data(), hist.size() * sizeof(S));
    Fir<E> f(h, alg);
    ASSERT_EQ(Run(x.data(), out.data(), n, f.st(), hist.data(), line.data(), f.buf.data()), vrxOk);
    auto widen = [](const std::vector<S>& v) {  // S and E have the same parts
        std::vector<E> w(v.size());
        for (size_t i = 0; i < v.size() * sizeof(E) / 4; ++i) reinterpret_cast<float*>(w.data())[i] = reinterpret_cast<const int16_t*>(v.data())[i];
        return w;
    };
    const auto xf = widen(x), want = model(h, widen(hist), xf.data(), n);
    for (int i = 0; i < n; ++i) {
        const auto w = vt::toLC(want[static_cast<size_t>(i)]);
        const int16_t parts[2] = {vt::sat16(w.real()), vt::sat16(w.imag())};
        ASSERT_EQ(0, memcmp(&out[static_cast<size_t>(i)], parts, sizeof(S))) << "N=" << N << " i=" << i;
    }
    for (int i = 0; i < N - 1; ++i) ASSERT_TRUE(sameBits(line[static_cast<size_t>(i)], x[static_cast<size_t>(n - (N - 1) + i)]));
    std::vector<S> io(x);
    ASSERT_EQ(Run(io.data(), io.data(), n, f.st(), hist.data(), nullptr, f.buf.data()), vrxOk);
    ASSERT_EQ(0, memcmp(io.data(), out.data(), out.size() * sizeof(S)));
}

TEST(Fir16s, DirectInFloatRoundedAndSaturated) {
    vt::Rng r(19);
    for (int alg : {vrxAlgDirect, vrxAlgFFT})
        for (int N : {1, 3, 33, 80}) {
            sixteenBit<Vrx16s, Vrx32f, vrxsFIRSR_16s>(r, alg, N, 9000);
            sixteenBit<Vrx16sc, Vrx32fc, vrxsFIRSR_16sc>(r, alg, N, 5000);
        }
}

TEST(Fir16s, TiesToEvenAndSaturation) {
    // taps {0.5}: odd inputs give ties, which go to even; taps {3}: saturation
    Fir<Vrx32f> half({0.5f}, vrxAlgDirect), three({3.0f}, vrxAlgAuto);
    const std::vector<int16_t> x = {1, 3, 5, -1, -3, 32767, -32768, 7};
    std::vector<int16_t> out(x.size());
    ASSERT_EQ(vrxsFIRSR_16s(x.data(), out.data(), 8, half.st(), nullptr, nullptr, half.buf.data()), vrxOk);
    EXPECT_EQ(out, (std::vector<int16_t>{0, 2, 2, 0, -2, 16384, -16384, 4}));
    ASSERT_EQ(vrxsFIRSR_16s(x.data(), out.data(), 8, three.st(), nullptr, nullptr, three.buf.data()), vrxOk);
    EXPECT_EQ(out, (std::vector<int16_t>{3, 9, 15, -3, -9, 32767, -32768, 21}));
}

}  // namespace
