// Hilbert transform: the analytic signal against a long-double reference,
// sizes from the inner DFT plans, statuses in order, the short lengths.
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

TEST(Hilbert, SizesFromTheInnerPlans) {
    for (int N : {1, 2, 3, 16, 17, 53, 97, 100, 1000, 1024, 4095, 10007}) {
        int s, i, w, s2, i2, w2, hs, hb;
        ASSERT_EQ(vrxsDFTGetSize_C_32fc(N, 2, 0, &s, &i, &w), vrxOk);
        ASSERT_EQ(vrxsDFTGetSize_R_32f(N, 2, 0, &s2, &i2, &w2), vrxOk);
        ASSERT_EQ(vrxsHilbertGetSize_32f32fc(N, 0, &hs, &hb), vrxOk);
        EXPECT_EQ(hs, s + s2 + 48) << N;
        EXPECT_EQ(hb, 16 + std::max(std::max(i, w), std::max(i2, w2))) << N;
    }
}

TEST(Hilbert, AgainstLongDoubleAnalyticSignal) {
    for (int N : {3, 4, 5, 8, 17, 18, 53, 97, 100, 1000, 1024, 4095, 10007}) {
        for (size_t mis : {size_t(0), size_t(4)}) {
            auto h = makeH(N, mis);
            ASSERT_EQ(h->st, vrxOk) << N;
            auto x = ft::roundTo<float>(ft::randomSignal(N, 31 + N));
            for (auto& v : x) v = CLD(v.real(), 0);
            vt::Buffer src(N * sizeof(float), mis), dst(N * sizeof(Vrx32fc), (mis + 8) % 64);
            for (int i = 0; i < N; ++i) src.as<float>()[i] = static_cast<float>(x[i].real());
            ASSERT_EQ(vrxsHilbert_32f32fc(src.as<float>(), dst.as<Vrx32fc>(), h->p(), h->buf->data()), vrxOk);
            std::vector<CLD> y(N);
            for (int i = 0; i < N; ++i) y[i] = CLD(dst.as<Vrx32fc>()[i].re, dst.as<Vrx32fc>()[i].im);
            const Expect e = expected<float>(K::C, N, 2);
            EXPECT_LE(ft::relRms(y, analytic(x)), 2 * bound<float>(N, e)) << N;
            EXPECT_TRUE(src.guardsIntact() && dst.guardsIntact() && h->buf->guardsIntact() && h->spec->guardsIntact());
        }
    }
}

// N 1 and 2: the input itself with zero imaginary parts, nothing past N.
TEST(Hilbert, ShortLengthsExact) {
    for (int N : {1, 2}) {
        auto h = makeH(N);
        ASSERT_EQ(h->st, vrxOk);
        const float x[2] = {3.5f, -1.25f};
        Vrx32fc y[2] = {{9, 9}, {9, 9}};
        ASSERT_EQ(vrxsHilbert_32f32fc(x, y, h->p(), h->buf->data()), vrxOk);
        EXPECT_TRUE(y[0].re == 3.5f && y[0].im == 0.0f);
        EXPECT_TRUE(N == 2 ? y[1].re == -1.25f && y[1].im == 0.0f : y[1].re == 9.0f);
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
