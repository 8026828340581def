// Multi-rate FIR against stretch, convolve and pick in long double for every
// pair of factors 1..8 and every phase; pieces through the delay line and
// in place past the block length give the bits of one call; the factor-1
// line rule; 16-bit rounding and saturation; sizes with no write outside;
// the check order.
#include <cmath>
#include <complex>
#include <vector>

#include "vrx_test.h"

namespace {

using vt::randElems;
using vt::sameBits;
using LC = std::complex<long double>;

template <class E> struct Form;
template <> struct Form<Vrx32f> { static constexpr int kSel = vrx32f; static constexpr auto init = vrxsFIRMRInit_32f, run = vrxsFIRMR_32f; };
template <> struct Form<Vrx64f> { static constexpr int kSel = vrx64f; static constexpr auto init = vrxsFIRMRInit_64f, run = vrxsFIRMR_64f; };
template <> struct Form<Vrx32fc> { static constexpr int kSel = vrx32fc; static constexpr auto init = vrxsFIRMRInit_32fc, run = vrxsFIRMR_32fc; };
template <> struct Form<Vrx64fc> { static constexpr int kSel = vrx64fc; static constexpr auto init = vrxsFIRMRInit_64fc, run = vrxsFIRMR_64fc; };

template <class E> constexpr long double kEps = std::numeric_limits<typename vt::Elem<E>::S>::epsilon();

template <class E>
struct Mr {
    std::vector<uint8_t> spec, buf;
    Mr(const std::vector<E>& h, int U, int up, int D, int dp) {
        int s = 0, b = 0;
        EXPECT_EQ(vrxsFIRMRGetSize(int(h.size()), U, D, Form<E>::kSel, &s, &b), vrxOk);
        spec.assign(s, 0);
        buf.assign(b, 0);
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
    const long H = long(hist.size());
    std::vector<LC> u(static_cast<size_t>((H + long(x.size())) * U)), y(iters * U);
    for (long k = 0; k < H; ++k) u[k * U + up] = vt::toLC(hist[k]);
    for (size_t k = 0; k < x.size(); ++k) u[(H + k) * U + up] = vt::toLC(x[k]);
    for (long n = 0; n < iters * U; ++n) {
        const long m = n * D + dp + H * U;
        for (long k = 0; k < long(h.size()) && k <= m; ++k) y[n] += vt::toLC(h[k]) * u[m - k];
    }
    return y;
}

template <class E>
void expectNear(const std::vector<E>& got, const std::vector<LC>& want, long double tol, const char* what) {
    for (size_t i = 0; i < want.size(); ++i) ASSERT_LE(std::abs(vt::toLC(got[i]) - want[i]), tol) << what << " i=" << i;
}

template <class E> class MrForms : public ::testing::Test {};
using Types = ::testing::Types<Vrx32f, Vrx64f, Vrx32fc, Vrx64fc>;
TYPED_TEST_SUITE(MrForms, Types);

// Every factor pair and phase: the outputs, the line (the last H inputs),
// and a null line in counted as zeros.
TYPED_TEST(MrForms, StretchConvolvePickEveryFactorAndPhase) {
    using E = TypeParam;
    vt::Rng r(31);
    for (int U = 1; U <= 8; ++U)
        for (int D = 1; D <= 8; ++D) {
            if (U == 1 && D == 1) continue;  // the single-rate form, below
            const int N = int(r.range(1, 40)), H = (N + U - 1) / U;
            const auto h = randElems<E>(r, N);
            long double sh = 0;
            for (auto& v : h) sh += std::abs(vt::toLC(v));
            const long double tol = 4 * sh * kEps<E> * (N / U + 2);
            for (int up = 0; up < U; ++up)
                for (int dp = 0; dp < D; ++dp) {
                    const int iters = int(r.range(1, 60));
                    const auto hist = randElems<E>(r, H), x = randElems<E>(r, iters * D);
                    Mr<E> f(h, U, up, D, dp);
                    std::vector<E> out(iters * U), line(H);
                    ASSERT_EQ(f.run(x.data(), out.data(), iters, hist.data(), line.data()), vrxOk);
                    SCOPED_TRACE(::testing::Message() << "U=" << U << " D=" << D << " up=" << up << " dp=" << dp << " N=" << N);
                    expectNear(out, reference(h, hist, x, U, up, D, dp, iters), tol, "out");
                    std::vector<E> all(hist);
                    all.insert(all.end(), x.begin(), x.end());
                    for (int i = 0; i < H; ++i) ASSERT_TRUE(sameBits(line[i], all[all.size() - (H - i)])) << "line " << i;
                    ASSERT_EQ(f.run(x.data(), out.data(), iters, nullptr, nullptr), vrxOk);
                    expectNear(out, reference(h, std::vector<E>(H, E{}), x, U, up, D, dp, iters), tol, "null line");
                }
        }
}

// U = D = 1 is the single-rate filter on elements 1.. of an N-element line;
// the line going out is shifted up by one, except when no line came in.
TYPED_TEST(MrForms, FactorOneIsTheSingleRateFilterWithTheLineRule) {
    using E = TypeParam;
    vt::Rng r(34);
    const int N = 12, n = 50;
    const auto h = randElems<E>(r, N), x = randElems<E>(r, n), lineIn = randElems<E>(r, N);
    Mr<E> f(h, 1, 0, 1, 0);
    std::vector<E> out(n), line(N, E{}), out2(n), l2(N, E{}), io(lineIn);
    ASSERT_EQ(f.run(x.data(), out.data(), n, lineIn.data(), line.data()), vrxOk);
    const std::vector<E> hist(lineIn.begin() + 1, lineIn.end());
    std::vector<E> all(hist);
    all.insert(all.end(), x.begin(), x.end());
    for (int i = 1; i < N; ++i) ASSERT_TRUE(sameBits(line[i], all[all.size() - (N - i)])) << i;
    expectNear(out, reference(h, hist, x, 1, 0, 1, 0, n), 64 * N * kEps<E>, "factor 1");
    ASSERT_EQ(f.run(x.data(), out2.data(), n, nullptr, l2.data()), vrxOk);  // no line in: history at the start
    for (int i = 0; i < N - 1; ++i) ASSERT_TRUE(sameBits(l2[i], x[n - (N - 1) + i])) << i;
    ASSERT_EQ(f.run(x.data(), out2.data(), n, io.data(), io.data()), vrxOk);  // the same line in and out
    for (int i = 1; i < N; ++i) ASSERT_TRUE(sameBits(io[i], line[i])) << i;
    ASSERT_EQ(0, memcmp(out2.data(), out.data(), out.size() * sizeof(E)));
}

// One call against random pieces through the line, and against in place in
// a vector sized for the longer side, past 4096/U iterations: the same bits
// (factors other than 1, 1).
// The sizes hold every write, at any misalignment; the factor-1 form has
// the single-rate sizes.
TYPED_TEST(MrForms, PiecesInPlaceAndSizes) {
    using E = TypeParam;
    vt::Rng r(35);
    for (int U = 1; U <= 9; U += 2)
        for (int D = 1; D <= 9; D += 4)
            for (int N : {1, 7, 64, 301}) {
                SCOPED_TRACE(::testing::Message() << "U=" << U << " D=" << D << " N=" << N);
                int s = 0, b = 0, s1 = 0, b1 = 0;
                ASSERT_EQ(vrxsFIRMRGetSize(N, U, D, Form<E>::kSel, &s, &b), vrxOk);
                if (U == 1 && D == 1) {
                    ASSERT_EQ(vrxsFIRSRGetSize(N, Form<E>::kSel, &s1, &b1), vrxOk);
                    EXPECT_TRUE(s == s1 && b == b1);
                }
                const int iters = 4096 / U + 5000 / std::max(U, D), H = U == 1 && D == 1 ? N : (N + U - 1) / U;
                const auto h = randElems<E>(r, N), x = randElems<E>(r, iters * D), hist = randElems<E>(r, H);
                vt::Buffer spec(s, N % 64), buf(b, (N * 3 + U) % 64);
                auto* st = reinterpret_cast<VrxsFirMrState*>(spec.data());
                ASSERT_EQ(Form<E>::init(h.data(), N, U, U / 2, D, D - 1, st), vrxOk);
                std::vector<E> one(iters * U), parts(one.size()), io(iters * std::max(U, D)), l1(H), l2(H), line(hist);
                ASSERT_EQ(Form<E>::run(x.data(), one.data(), iters, st, hist.data(), l1.data(), buf.data()), vrxOk);
                for (int at = 0, m; at < iters; at += m) {
                    m = std::min<int>(iters - at, int(r.range(1, 90)));
                    ASSERT_EQ(Form<E>::run(x.data() + at * D, parts.data() + at * U, m, st, line.data(), line.data(), buf.data()), vrxOk);
                }
                std::copy(x.begin(), x.end(), io.begin());
                ASSERT_EQ(Form<E>::run(io.data(), io.data(), iters, st, hist.data(), l2.data(), buf.data()), vrxOk);
                ASSERT_TRUE(spec.guardsIntact() && buf.guardsIntact());
                if (U == 1 && D == 1) continue;  // the single-rate path picks its method by the call's length
                io.resize(one.size());
                EXPECT_TRUE(vt::sameBitsAll(parts, one) && vt::sameBitsAll(line, l1)) << "pieces";
                EXPECT_TRUE(vt::sameBitsAll(io, one) && vt::sameBitsAll(l2, l1)) << "in place";
            }
}

// Null pointers and the run's lengths are the contract test's; here taps,
// then factors, then phases, then pointers, then memory; a state of another
// form is refused; nothing written.
TEST(FirMr, ChecksInOrderAndNothingWrittenOnFailure) {
    int s = -1, b = -1;
    EXPECT_EQ(vrxsFIRMRGetSize(0, 0, 0, 99, &s, &b), vrxErrFirLen);
    EXPECT_EQ(vrxsFIRMRGetSize(1, 0, 0, 99, &s, &b), vrxErrDataType);
    EXPECT_EQ(vrxsFIRMRGetSize(1, 0, 1, vrx32f, &s, &b), vrxErrFirMrFactor);
    EXPECT_EQ(vrxsFIRMRGetSize(1, 1, -1, vrx32f, &s, &b), vrxErrFirMrFactor);
    EXPECT_EQ(vrxsFIRMRGetSize(1, 1, 1, vrx32f, nullptr, &b), vrxErrNullPtr);
    EXPECT_TRUE(s == -1 && b == -1);
    const std::vector<float> h(5, 1.0f);
    std::vector<uint8_t> spec(8192, 0x5A), ref(spec);
    auto* st = reinterpret_cast<VrxsFirMrState*>(spec.data());
    struct { const float* h; int N, U, up, D, dp; VrxsFirMrState* st; VrxStatus want; } rows[] = {
        {nullptr, 0, -1, -1, -1, -1, nullptr, vrxErrFirLen}, {nullptr, 5, -1, -1, 1, 0, nullptr, vrxErrFirMrFactor},
        {nullptr, 5, 1, 0, -1, 0, nullptr, vrxErrFirMrFactor}, {nullptr, 5, 0, 0, 1, 0, nullptr, vrxErrFirMrPhase},
        {nullptr, 5, 2, 2, 1, 0, nullptr, vrxErrFirMrPhase}, {nullptr, 5, 2, -1, 1, 0, nullptr, vrxErrFirMrPhase},
        {nullptr, 5, 2, 1, 3, 3, nullptr, vrxErrFirMrPhase}, {nullptr, 5, 2, 1, 3, 2, st, vrxErrNullPtr},
        {h.data(), 5, 2, 1, 3, 2, nullptr, vrxErrNullPtr}, {h.data(), 5, 2000000000, 1, 3, 2, st, vrxErrNoMemory},
    };
    for (auto& c : rows) EXPECT_EQ(vrxsFIRMRInit_32f(c.h, c.N, c.U, c.up, c.D, c.dp, c.st), c.want) << c.N << " " << c.U << " " << c.up;
    EXPECT_EQ(spec, ref);
    ASSERT_EQ(vrxsFIRMRInit_32f(h.data(), 5, 2, 1, 3, 2, st), vrxOk);
    std::vector<double> x(30, 1.0), d(30, 7.0);
    std::vector<uint8_t> buf(200000);
    EXPECT_EQ(vrxsFIRMR_64f(x.data(), d.data(), 1, st, nullptr, nullptr, buf.data()), vrxErrBadSpec);
    EXPECT_EQ(d, std::vector<double>(30, 7.0));
}

// The 16-bit runs: the float filter on the converted input, rounded to
// nearest even and saturated; the line holds input samples; in place the
// same. Factors wider than the 16-bit block (4096 scalars) included.
template <class S, class E, auto Run>
void sixteenBit(vt::Rng& r, int U, int D, int N, int iters, long double tapScale) {
    SCOPED_TRACE(::testing::Message() << "U=" << U << " D=" << D);
    auto h = randElems<E>(r, N);
    const int L = U == 1 && D == 1 ? N : (N + U - 1) / U;
    if constexpr (!vt::Elem<E>::cplx)
        for (auto& v : h) v = float(v * tapScale);
    Mr<E> f(h, U, U - 1, D, D / 2);
    std::vector<S> x(iters * D), out(iters * U), line(L), io(iters * std::max(U, D));
    r.fill(x.data(), x.size() * sizeof(S));
    vt::Buffer buf(f.buf.size(), 8);
    ASSERT_EQ(Run(x.data(), out.data(), iters, f.st(), nullptr, line.data(), buf.data()), vrxOk);
    ASSERT_TRUE(buf.guardsIntact());
    std::vector<E> xf(x.size()), of(out.size()), zl(L, E{});
    for (size_t i = 0; i < x.size(); ++i) {
        if constexpr (vt::Elem<E>::cplx) xf[i] = E{float(x[i].re), float(x[i].im)};
        else xf[i] = E(x[i]);
    }
    ASSERT_EQ(f.run(xf.data(), of.data(), iters, zl.data(), nullptr), vrxOk);
    int saturated = 0;
    for (size_t i = 0; i < out.size(); ++i) {
        const LC w = vt::toLC(of[i]);
        S want;
        if constexpr (vt::Elem<E>::cplx) want = S{vt::sat16(w.real()), vt::sat16(w.imag())};
        else want = vt::sat16(w.real());
        saturated += fabsl(w.real()) > 32768;
        ASSERT_TRUE(sameBits(out[i], want)) << "i=" << i;
    }
    if (tapScale > 1) { EXPECT_GT(saturated, 0); }
    const int H = (N + U - 1) / U;
    for (int i = 0; i < H && !(U == 1 && D == 1); ++i) ASSERT_TRUE(sameBits(line[i], x[x.size() - (H - i)]));
    std::copy(x.begin(), x.end(), io.begin());
    ASSERT_EQ(Run(io.data(), io.data(), iters, f.st(), nullptr, nullptr, f.buf.data()), vrxOk);
    ASSERT_EQ(0, memcmp(io.data(), out.data(), out.size() * sizeof(S))) << "in place";
}

TEST(FirMr16s, FloatFilterRoundedAndSaturated) {
    vt::Rng r(36);
    for (auto [U, D] : {std::pair{3, 2}, std::pair{1, 1}, std::pair{2, 5}})
        sixteenBit<Vrx16s, Vrx32f, vrxsFIRMR_16s>(r, U, D, 24, 9000 / std::max(U, D), 1.5L);
    for (auto [U, D] : {std::pair{2100, 3}, std::pair{3, 4500}, std::pair{5000, 4999}})
        sixteenBit<Vrx16sc, Vrx32fc, vrxsFIRMR_16sc>(r, U, D, 40, 3, 1);
}

}  // namespace
