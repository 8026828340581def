// Hilbert transform: the analytic signal against a long-double reference,
// sizes from the inner DFT plans, the short lengths, a foreign plan.
#include <gtest/gtest.h>

#include "test_dft_common.h"

using namespace dt;

namespace {

struct HPlan {
    std::unique_ptr<vt::Buffer> spec, buf;
    int specSize = 0, bufSize = 0;
    VrxStatus st = vrxOk;
    VrxsHilbertPlan* p() { return reinterpret_cast<VrxsHilbertPlan*>(spec->data()); }
};

std::unique_ptr<HPlan> makeH(int N, size_t mis = 0) {
    auto h = std::make_unique<HPlan>();
    h->st = vrxsHilbertGetSize_32f32fc(N, 0, &h->specSize, &h->bufSize);
    if (h->st != vrxOk) return h;
    h->spec = std::make_unique<vt::Buffer>(h->specSize, mis);
    h->buf = std::make_unique<vt::Buffer>(h->bufSize, (mis * 5) % 64);
    h->st = vrxsHilbertInit_32f32fc(N, 0, h->p(), h->buf->data());
    return h;
}

// x + i*H(x) in long double: positive bins doubled, negative bins cleared,
// DC and (even N) Nyquist kept.
std::vector<CLD> analytic(const std::vector<CLD>& x) {
    const int N = static_cast<int>(x.size()), h = N / 2, m = N % 2 ? h : h - 1;
    auto X = refAny(x, false);
    for (int k = 1; k <= m; ++k) X[k] *= 2;
    for (int k = h + 1; k < N; ++k) X[k] = 0;
    auto y = refAny(X, true);
    for (auto& v : y) v /= static_cast<LD>(N);
    return y;
}

// Sizes from the inner plans; the analytic signal against long double at
// two alignments; N 1 and 2 give the input itself with zero imaginary
// parts, nothing past N.
TEST(Hilbert, SizesAndAnalyticSignal) {
    for (int N : {1, 2, 3, 4, 5, 8, 16, 17, 18, 53, 97, 100, 1000, 1024, 4095, 10007}) {
        int s, i, w, s2, i2, w2, hs, hb;
        ASSERT_EQ(vrxsDFTGetSize_C_32fc(N, 2, 0, &s, &i, &w), vrxOk);
        ASSERT_EQ(vrxsDFTGetSize_R_32f(N, 2, 0, &s2, &i2, &w2), vrxOk);
        ASSERT_EQ(vrxsHilbertGetSize_32f32fc(N, 0, &hs, &hb), vrxOk);
        EXPECT_TRUE(hs == s + s2 + 48 && hb == 16 + std::max(std::max(i, w), std::max(i2, w2))) << N;
        for (size_t mis : {size_t(0), size_t(4)}) {
            auto h = makeH(N, mis);
            ASSERT_EQ(h->st, vrxOk) << N;
            auto x = ft::roundTo<float>(ft::randomSignal(N, 31 + N));
            vt::Buffer src(N * sizeof(float), mis), dst((N + 1) * sizeof(Vrx32fc), (mis + 8) % 64);
            for (int i = 0; i < N; ++i) src.as<float>()[i] = static_cast<float>(x[i].real()), x[i] = CLD(x[i].real(), 0);
            const auto* y = dst.as<Vrx32fc>();
            ASSERT_EQ(vrxsHilbert_32f32fc(src.as<float>(), dst.as<Vrx32fc>(), h->p(), h->buf->data()), vrxOk);
            if (N <= 2) {
                for (int i = 0; i < N; ++i) EXPECT_TRUE(y[i].re == src.as<float>()[i] && y[i].im == 0.0f) << N;
                const uint8_t* past = reinterpret_cast<const uint8_t*>(y + N);
                EXPECT_TRUE(std::all_of(past, past + sizeof(Vrx32fc), [](uint8_t b) { return b == vt::Buffer::kFill; }));
                continue;
            }
            std::vector<CLD> yl(N);
            for (int i = 0; i < N; ++i) yl[i] = CLD(y[i].re, y[i].im);
            EXPECT_LE(ft::relRms(yl, analytic(x)), 2 * bound<float>(N, expected<float>(K::C, N, 2))) << N;
            EXPECT_TRUE(src.guardsIntact() && dst.guardsIntact() && h->buf->guardsIntact() && h->spec->guardsIntact());
        }
    }
}

// Another object's memory is refused with -17 and nothing is written.
TEST(Hilbert, ForeignPlanRefused) {
    auto h = makeH(100);
    auto pl = makePlan<float>(K::C, 100, 2);
    std::vector<float> x(100, 1.0f);
    vt::Buffer dst(100 * sizeof(Vrx32fc));
    EXPECT_EQ(vrxsHilbert_32f32fc(x.data(), dst.as<Vrx32fc>(), reinterpret_cast<const VrxsHilbertPlan*>(pl->p()), h->buf->data()),
              vrxErrBadSpec);
    const uint8_t* g = dst.data();
    for (size_t i = 0; i < dst.size(); ++i) ASSERT_EQ(g[i], vt::Buffer::kFill);
}

}  // namespace
