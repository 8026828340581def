// Multi-rate FIR against stretch, convolve and pick in long double for every
// pair of factors 1..8 and every phase; pieces through the delay line give
// the bits of one call; in place past the block length; the factor-1 line
// rule; 16-bit saturation; sizes with no write outside; the check tables.
#include <cmath>
#include <complex>
#include <vector>

#include "vrx_test.h"

namespace {

template <class E> struct Form;
template <> struct Form<Vrx32f> {
    using S = float;
    static constexpr int kSel = vrx32f;
    static constexpr auto init = vrxsFIRMRInit_32f, run = vrxsFIRMR_32f;
};
template <> struct Form<Vrx64f> {
    using S = double;
    static constexpr int kSel = vrx64f;
    static constexpr auto init = vrxsFIRMRInit_64f, run = vrxsFIRMR_64f;
};
template <> struct Form<Vrx32fc> {
    using S = float;
    static constexpr int kSel = vrx32fc;
    static constexpr auto init = vrxsFIRMRInit_32fc, run = vrxsFIRMR_32fc;
};
template <> struct Form<Vrx64fc> {
    using S = double;
    static constexpr int kSel = vrx64fc;
    static constexpr auto init = vrxsFIRMRInit_64fc, run = vrxsFIRMR_64fc;
};

template <class E> constexpr bool kCplx = sizeof(E) == 2 * sizeof(typename Form<E>::S);
using LC = std::complex<long double>;
template <class E> LC toL(const E& v) {
    if constexpr (kCplx<E>) return LC(v.re, v.im);
    else return LC(v, 0);
}
template <class E> E rnd(vt::Rng& r) {
    using S = typename Form<E>::S;
    if constexpr (kCplx<E>) return E{S(2 * r.uniform() - 1), S(2 * r.uniform() - 1)};
    else return E(2 * r.uniform() - 1);
}
template <class E> std::vector<E> rnds(vt::Rng& r, size_t n) {
    std::vector<E> v(n);
    for (auto& x : v) x = rnd<E>(r);
    return v;
}
template <class E> bool same(const E& a, const E& b) { return memcmp(&a, &b, sizeof(E)) == 0; }

template <class E>
struct Mr {
    std::vector<uint8_t> spec, buf;
    Mr(const std::vector<E>& h, int U, int up, int D, int dp) {
        int s = 0, b = 0;
        EXPECT_EQ(vrxsFIRMRGetSize(int(h.size()), U, D, Form<E>::kSel, &s, &b), vrxOk);
        spec.assign(static_cast<size_t>(s), 0);
        buf.assign(static_cast<size_t>(b), 0);
        EXPECT_EQ(Form<E>::init(h.data(), int(h.size()), U, up, D, dp, st()), vrxOk);
    }
    VrxsFirMrState* st() { return reinterpret_cast<VrxsFirMrState*>(spec.data()); }
    VrxStatus run(const E* s, E* d, int n, const E* di, E* dd) { return Form<E>::run(s, d, n, st(), di, dd, buf.data()); }
};

// Stretch the history and the input by U (sample k at k*U + upPhase),
// convolve with the taps, keep every D-th from downPhase; the history is
// H samples before the input.
template <class E>
std::vector<LC> reference(const std::vector<E>& h, const std::vector<E>& hist, const std::vector<E>& x, int U, int up,
                          int D, int dp, int iters) {
    const int H = int(hist.size());
    std::vector<LC> u(static_cast<size_t>((H + int(x.size())) * U));
    for (int k = 0; k < H; ++k) u[static_cast<size_t>(k * U + up)] = toL(hist[static_cast<size_t>(k)]);
    for (size_t k = 0; k < x.size(); ++k) u[(H + k) * U + up] = toL(x[k]);
    std::vector<LC> y(static_cast<size_t>(iters * U));
    for (int n = 0; n < iters * U; ++n) {
        const long m = long(n) * D + dp + long(H) * U;
        LC a = 0;
        for (int k = 0; k < int(h.size()); ++k)
            if (m - k >= 0) a += toL(h[static_cast<size_t>(k)]) * u[static_cast<size_t>(m - k)];
        y[static_cast<size_t>(n)] = a;
    }
    return y;
}

template <class E>
void expectNear(const std::vector<E>& got, const std::vector<LC>& want, long double tol, const char* what) {
    for (size_t i = 0; i < want.size(); ++i)
        ASSERT_LE(std::abs(toL(got[i]) - want[i]), tol) << what << " i=" << i;
}

template <class E> class MrForms : public ::testing::Test {};
using Types = ::testing::Types<Vrx32f, Vrx64f, Vrx32fc, Vrx64fc>;
TYPED_TEST_SUITE(MrForms, Types);

TYPED_TEST(MrForms, StretchConvolvePickEveryFactorAndPhase) {
    using E = TypeParam;
    using S = typename Form<E>::S;
    vt::Rng r(31);
    for (int U = 1; U <= 8; ++U)
        for (int D = 1; D <= 8; ++D) {
            if (U == 1 && D == 1) continue;  // the single-rate form, below
            const int N = int(r.range(1, 40));
            const int H = (N + U - 1) / U;
            const auto h = rnds<E>(r, static_cast<size_t>(N));
            long double sh = 0;
            for (auto& v : h) sh += std::abs(toL(v));
            const long double tol = 4 * sh * std::numeric_limits<S>::epsilon() * (N / U + 2);
            for (int up = 0; up < U; ++up)
                for (int dp = 0; dp < D; ++dp) {
                    const int iters = int(r.range(1, 60));
                    const auto hist = rnds<E>(r, static_cast<size_t>(H));
                    const auto x = rnds<E>(r, static_cast<size_t>(iters * D));
                    Mr<E> f(h, U, up, D, dp);
                    std::vector<E> out(static_cast<size_t>(iters * U)), line(static_cast<size_t>(H));
                    ASSERT_EQ(f.run(x.data(), out.data(), iters, hist.data(), line.data()), vrxOk);
                    SCOPED_TRACE(::testing::Message() << "U=" << U << " D=" << D << " up=" << up << " dp=" << dp << " N=" << N << " iters=" << iters);
                    expectNear(out, reference(h, hist, x, U, up, D, dp, iters), tol, "out");
                    std::vector<E> all(hist);
                    all.insert(all.end(), x.begin(), x.end());
                    for (int i = 0; i < H; ++i) ASSERT_TRUE(same(line[static_cast<size_t>(i)], all[all.size() - static_cast<size_t>(H - i)])) << "line " << i;
                    // a null line in counts as zeros
                    const std::vector<E> zeros(static_cast<size_t>(H), E{});
                    ASSERT_EQ(f.run(x.data(), out.data(), iters, nullptr, nullptr), vrxOk);
                    expectNear(out, reference(h, zeros, x, U, up, D, dp, iters), tol, "null line");
                }
        }
}

// Random pieces through the line give the bits of one call.
TYPED_TEST(MrForms, RandomPiecesEqualOneCall) {
    using E = TypeParam;
    vt::Rng r(32);
    for (auto [U, D, N] : {std::tuple{3, 2, 25}, std::tuple{1, 4, 64}, std::tuple{5, 1, 17}, std::tuple{2, 7, 3}}) {
        const int H = (N + U - 1) / U, iters = 700;
        const auto h = rnds<E>(r, static_cast<size_t>(N));
        const auto x = rnds<E>(r, static_cast<size_t>(iters * D));
        Mr<E> f(h, U, U - 1, D, D / 2);
        std::vector<E> one(static_cast<size_t>(iters * U)), parts(one.size()), line(static_cast<size_t>(H), E{});
        const std::vector<E> zeros(static_cast<size_t>(H), E{});
        ASSERT_EQ(f.run(x.data(), one.data(), iters, zeros.data(), nullptr), vrxOk);
        for (int at = 0; at < iters;) {
            const int m = std::min<int>(iters - at, int(r.range(1, 90)));
            ASSERT_EQ(f.run(x.data() + at * D, parts.data() + at * U, m, line.data(), line.data()), vrxOk);
            at += m;
        }
        for (size_t i = 0; i < one.size(); ++i) ASSERT_TRUE(same(one[i], parts[i])) << "U=" << U << " D=" << D << " i=" << i;
    }
}

// In place, the vector sized for the longer side, past 4096/U iterations.
TYPED_TEST(MrForms, InPlaceEqualsOutOfPlace) {
    using E = TypeParam;
    vt::Rng r(33);
    for (auto [U, D, N] : {std::tuple{3, 1, 30}, std::tuple{2, 3, 40}, std::tuple{1, 2, 9}, std::tuple{7, 5, 90}}) {
        const int H = (N + U - 1) / U, iters = 4096 / U * 2 + 33;
        const auto h = rnds<E>(r, static_cast<size_t>(N)), hist = rnds<E>(r, static_cast<size_t>(H));
        const auto x = rnds<E>(r, static_cast<size_t>(iters * D));
        Mr<E> f(h, U, 0, D, D - 1);
        std::vector<E> out(static_cast<size_t>(iters * U)), l1(static_cast<size_t>(H)), l2(static_cast<size_t>(H));
        ASSERT_EQ(f.run(x.data(), out.data(), iters, hist.data(), l1.data()), vrxOk);
        std::vector<E> io(static_cast<size_t>(iters * std::max(U, D)));
        std::copy(x.begin(), x.end(), io.begin());
        ASSERT_EQ(f.run(io.data(), io.data(), iters, hist.data(), l2.data()), vrxOk);
        for (size_t i = 0; i < out.size(); ++i) ASSERT_TRUE(same(io[i], out[i])) << "U=" << U << " D=" << D << " i=" << i;
        for (int i = 0; i < H; ++i) ASSERT_TRUE(same(l1[static_cast<size_t>(i)], l2[static_cast<size_t>(i)]));
    }
}

// U = D = 1 is the single-rate filter on elements 1.. of an N-element line;
// the line going out is shifted up by one, except when no line came in.
TYPED_TEST(MrForms, FactorOneIsTheSingleRateFilterWithTheLineRule) {
    using E = TypeParam;
    vt::Rng r(34);
    const int N = 12, n = 50;
    const auto h = rnds<E>(r, N), x = rnds<E>(r, n), lineIn = rnds<E>(r, N);
    Mr<E> f(h, 1, 0, 1, 0);
    std::vector<E> out(n), line(N, E{}), out2(n);
    ASSERT_EQ(f.run(x.data(), out.data(), n, lineIn.data(), line.data()), vrxOk);
    std::vector<E> all(lineIn.begin() + 1, lineIn.end());
    all.insert(all.end(), x.begin(), x.end());
    for (int i = 1; i < N; ++i) ASSERT_TRUE(same(line[size_t(i)], all[all.size() - size_t(N - i)])) << i;
    // the same through the multi-rate reference: history = elements 1..N-1
    const std::vector<E> hist(lineIn.begin() + 1, lineIn.end());
    using S = typename Form<E>::S;
    expectNear(out, reference(h, hist, x, 1, 0, 1, 0, n), 64 * N * std::numeric_limits<S>::epsilon(), "factor 1");
    // no line in: the N-1 history elements stay at the start of the line out
    std::vector<E> l2(N, E{});
    ASSERT_EQ(f.run(x.data(), out2.data(), n, nullptr, l2.data()), vrxOk);
    for (int i = 0; i < N - 1; ++i) ASSERT_TRUE(same(l2[size_t(i)], x[size_t(n - (N - 1) + i)])) << i;
    // the same line in and out
    std::vector<E> io(lineIn);
    ASSERT_EQ(f.run(x.data(), out2.data(), n, io.data(), io.data()), vrxOk);
    for (int i = 1; i < N; ++i) ASSERT_TRUE(same(io[size_t(i)], line[size_t(i)])) << i;
    for (int i = 0; i < n; ++i) ASSERT_TRUE(same(out2[size_t(i)], out[size_t(i)])) << i;
}

TYPED_TEST(MrForms, SizesLeaveNoWriteOutside) {
    using E = TypeParam;
    vt::Rng r(35);
    for (int U = 1; U <= 9; U += 2)
        for (int D = 1; D <= 9; D += 4)
            for (int N : {1, 7, 64, 301}) {
                int s = 0, b = 0;
                ASSERT_EQ(vrxsFIRMRGetSize(N, U, D, Form<E>::kSel, &s, &b), vrxOk);
                const int iters = 5000 / std::max(U, D);
                const auto h = rnds<E>(r, size_t(N)), x = rnds<E>(r, size_t(iters * D));
                vt::Buffer spec(static_cast<size_t>(s), size_t(N % 64)), buf(static_cast<size_t>(b), size_t((N * 3 + U) % 64));
                auto* st = reinterpret_cast<VrxsFirMrState*>(spec.data());
                ASSERT_EQ(Form<E>::init(h.data(), N, U, U / 2, D, D - 1, st), vrxOk);
                std::vector<E> out(static_cast<size_t>(iters * U)), line(static_cast<size_t>(N) + 1);
                ASSERT_EQ(Form<E>::run(x.data(), out.data(), iters, st, nullptr, line.data(), buf.data()), vrxOk);
                std::vector<E> io(static_cast<size_t>(iters * std::max(U, D)));
                std::copy(x.begin(), x.end(), io.begin());
                ASSERT_EQ(Form<E>::run(io.data(), io.data(), iters, st, line.data(), line.data(), buf.data()), vrxOk);
                ASSERT_TRUE(spec.guardsIntact()) << U << " " << D << " " << N;
                ASSERT_TRUE(buf.guardsIntact()) << U << " " << D << " " << N;
            }
}

TEST(FirMr, SizeOfTheFactorOneFormIsTheSingleRateSize) {
    for (int N : {1, 2, 50, 1000}) {
        int s1 = 0, b1 = 0, s2 = 0, b2 = 0;
        ASSERT_EQ(vrxsFIRMRGetSize(N, 1, 1, vrx32fc, &s1, &b1), vrxOk);
        ASSERT_EQ(vrxsFIRSRGetSize(N, vrx32fc, &s2, &b2), vrxOk);
        EXPECT_EQ(s1, s2);
        EXPECT_EQ(b1, b2);
    }
}

TEST(FirMr, ChecksInOrderAndNothingWrittenOnFailure) {
    int s = -1, b = -1;
    EXPECT_EQ(vrxsFIRMRGetSize(0, 0, 0, 99, &s, &b), vrxErrFirLen);
    EXPECT_EQ(vrxsFIRMRGetSize(1, 0, 0, 99, &s, &b), vrxErrDataType);
    EXPECT_EQ(vrxsFIRMRGetSize(1, 0, 1, vrx32f, &s, &b), vrxErrFirMrFactor);
    EXPECT_EQ(vrxsFIRMRGetSize(1, 1, -1, vrx32f, &s, &b), vrxErrFirMrFactor);
    EXPECT_EQ(vrxsFIRMRGetSize(1, 1, 1, vrx32f, nullptr, &b), vrxErrNullPtr);
    EXPECT_EQ(s, -1);
    EXPECT_EQ(b, -1);
    const std::vector<float> h(5, 1.0f);
    std::vector<uint8_t> spec(8192, 0x5A), ref(spec);
    auto* st = reinterpret_cast<VrxsFirMrState*>(spec.data());
    EXPECT_EQ(vrxsFIRMRInit_32f(nullptr, 0, -1, -1, -1, -1, nullptr), vrxErrFirLen);
    EXPECT_EQ(vrxsFIRMRInit_32f(nullptr, 5, -1, -1, 1, 0, nullptr), vrxErrFirMrFactor);
    EXPECT_EQ(vrxsFIRMRInit_32f(nullptr, 5, 1, 0, -1, 0, nullptr), vrxErrFirMrFactor);
    EXPECT_EQ(vrxsFIRMRInit_32f(nullptr, 5, 0, 0, 1, 0, nullptr), vrxErrFirMrPhase);  // factor 0
    EXPECT_EQ(vrxsFIRMRInit_32f(nullptr, 5, 2, 2, 1, 0, nullptr), vrxErrFirMrPhase);  // phase = factor
    EXPECT_EQ(vrxsFIRMRInit_32f(nullptr, 5, 2, -1, 1, 0, nullptr), vrxErrFirMrPhase);
    EXPECT_EQ(vrxsFIRMRInit_32f(nullptr, 5, 2, 1, 3, 3, nullptr), vrxErrFirMrPhase);
    EXPECT_EQ(vrxsFIRMRInit_32f(nullptr, 5, 2, 1, 3, 2, st), vrxErrNullPtr);
    EXPECT_EQ(vrxsFIRMRInit_32f(h.data(), 5, 2, 1, 3, 2, nullptr), vrxErrNullPtr);
    EXPECT_EQ(vrxsFIRMRInit_32f(h.data(), 5, 2000000000, 1, 3, 2, st), vrxErrNoMemory);
    EXPECT_EQ(spec, ref);
    ASSERT_EQ(vrxsFIRMRInit_32f(h.data(), 5, 2, 1, 3, 2, st), vrxOk);
    // the run's null pointers and lengths are the contract test's; a state
    // of another form
    std::vector<float> x(30, 1.0f), d(30, 7.0f);
    std::vector<uint8_t> buf(200000);
    EXPECT_EQ(vrxsFIRMR_64f(reinterpret_cast<double*>(x.data()), reinterpret_cast<double*>(d.data()), 1, st, nullptr, nullptr, buf.data()), vrxErrBadSpec);
    EXPECT_EQ(d, std::vector<float>(30, 7.0f));
}

TEST(FirMr16s, FloatFilterRoundedAndSaturated) {
    vt::Rng r(36);
    for (auto [U, D] : {std::pair{3, 2}, std::pair{1, 1}, std::pair{2, 5}}) {
        const int N = 24, H = (N + U - 1) / U, iters = 9000 / std::max(U, D);
        std::vector<float> h(N);
        for (auto& v : h) v = float(r.uniform() * 3 - 1.5);
        std::vector<int16_t> x(static_cast<size_t>(iters * D));
        for (auto& v : x) v = int16_t(r.range(-32768, 32767));
        Mr<float> f(h, U, U - 1, D, 0);
        const int L = U == 1 && D == 1 ? N : H;
        std::vector<int16_t> out(static_cast<size_t>(iters * U)), line(static_cast<size_t>(L));
        ASSERT_EQ(vrxsFIRMR_16s(x.data(), out.data(), iters, f.st(), nullptr, line.data(), f.buf.data()), vrxOk);
        // the float filter on the converted input, rounded to nearest and saturated
        std::vector<float> xf(x.begin(), x.end()), of(out.size());
        std::vector<float> zl(static_cast<size_t>(L), 0.0f);
        ASSERT_EQ(f.run(xf.data(), of.data(), iters, zl.data(), nullptr), vrxOk);
        int saturated = 0;
        for (size_t i = 0; i < out.size(); ++i) {
            const float v = std::nearbyint(of[i]);
            const int16_t w = int16_t(std::max(-32768.0f, std::min(32767.0f, v)));
            saturated += v != w;
            ASSERT_EQ(out[i], w) << "U=" << U << " D=" << D << " i=" << i;
        }
        EXPECT_GT(saturated, 0);
        std::vector<int16_t> io(static_cast<size_t>(iters * std::max(U, D)));
        std::copy(x.begin(), x.end(), io.begin());
        ASSERT_EQ(vrxsFIRMR_16s(io.data(), io.data(), iters, f.st(), nullptr, nullptr, f.buf.data()), vrxOk);
        for (size_t i = 0; i < out.size(); ++i) ASSERT_EQ(io[i], out[i]) << "in place U=" << U << " D=" << D << " i=" << i;
    }
}

// An iteration wider than the 16-bit forms' block (factors above 4096
// scalars): the same outputs and line as the float filter on the converted
// input, nothing written outside the work buffer.
TEST(FirMr16sc, FactorsWiderThanABlock) {
    vt::Rng r(37);
    for (auto [U, D] : {std::pair{2100, 3}, std::pair{3, 4500}, std::pair{5000, 4999}}) {
        const int N = 40, H = (N + U - 1) / U, iters = 3;
        std::vector<Vrx32fc> h(static_cast<size_t>(N));
        for (auto& v : h) v = Vrx32fc{float(r.uniform() - 0.5), float(r.uniform() - 0.5)};
        int s = 0, b = 0;
        ASSERT_EQ(vrxsFIRMRGetSize(N, U, D, vrx32fc, &s, &b), vrxOk);
        std::vector<uint8_t> spec(static_cast<size_t>(s));
        vt::Buffer buf(static_cast<size_t>(b), 8);
        auto* st = reinterpret_cast<VrxsFirMrState*>(spec.data());
        ASSERT_EQ(vrxsFIRMRInit_32fc(h.data(), N, U, U - 1, D, D / 2, st), vrxOk);
        std::vector<Vrx16sc> x(static_cast<size_t>(iters * D)), out(static_cast<size_t>(iters * U)), line(static_cast<size_t>(H));
        for (auto& v : x) v = Vrx16sc{int16_t(r.range(-32768, 32767)), int16_t(r.range(-32768, 32767))};
        ASSERT_EQ(vrxsFIRMR_16sc(x.data(), out.data(), iters, st, nullptr, line.data(), buf.data()), vrxOk);
        ASSERT_TRUE(buf.guardsIntact()) << U << " " << D;
        std::vector<Vrx32fc> xf(x.size()), of(out.size()), zl(static_cast<size_t>(H), Vrx32fc{0, 0});
        for (size_t i = 0; i < x.size(); ++i) xf[i] = Vrx32fc{float(x[i].re), float(x[i].im)};
        std::vector<uint8_t> fbuf(static_cast<size_t>(b));
        ASSERT_EQ(vrxsFIRMR_32fc(xf.data(), of.data(), iters, st, zl.data(), nullptr, fbuf.data()), vrxOk);
        auto s16 = [](float v) { return int16_t(std::max(-32768.0f, std::min(32767.0f, std::nearbyint(v)))); };
        for (size_t i = 0; i < out.size(); ++i) {
            ASSERT_EQ(out[i].re, s16(of[i].re)) << "U=" << U << " D=" << D << " i=" << i;
            ASSERT_EQ(out[i].im, s16(of[i].im)) << "U=" << U << " D=" << D << " i=" << i;
        }
        for (int i = 0; i < H; ++i) ASSERT_EQ(line[size_t(i)].re, x[x.size() - size_t(H - i)].re);
        std::vector<Vrx16sc> io(static_cast<size_t>(iters * std::max(U, D)));
        std::copy(x.begin(), x.end(), io.begin());
        ASSERT_EQ(vrxsFIRMR_16sc(io.data(), io.data(), iters, st, nullptr, nullptr, buf.data()), vrxOk);
        for (size_t i = 0; i < out.size(); ++i) ASSERT_EQ(memcmp(&io[i], &out[i], sizeof(Vrx16sc)), 0) << "in place U=" << U << " i=" << i;
    }
}

}  // namespace
