// The three-property self-test (linearity, impulse, time shift) at the
// first orders of 256-row blocks, too large for the long-double reference.
// By hand (several GiB): split data against interleaved data at the orders
// whose rows take a second level,
//   test_fft_large_self --gtest_also_run_disabled_tests --gtest_filter=*TwoLevel*
#include "test_fft_large_common.h"

using namespace ft;

namespace {

// Linearity, impulse and time shift of the forward transform, with no
// reference transform: for orders too large for the long-double reference.
template <class T> void threeProperties(Layout lay, int order) {
    const size_t n = size_t(1) << order;
    const LD tol = bound<T>(order) * 4;
    const LD twoPi = 6.283185307179586476925286766559005768L;
    auto fwd = [&](const std::vector<T>& v) { return transform<T>(lay, Place::OutOfPlace, order, vrxFftScaleNone, false, 0, v); };
    auto relErr = [](const std::vector<T>& y, auto want) {
        LD num = 0, den = 0;
        for (size_t k = 0; k < y.size() / 2; ++k) {
            const CLD r = want(k), d = CLD(y[2 * k], y[2 * k + 1]) - r;
            num += std::norm(d);
            den += std::norm(r);
        }
        return sqrtl(num / den);
    };
    const auto x = randomValues<T>(2 * n, 3 * order), z = randomValues<T>(2 * n, 3 * order + 1);
    const CLD a(0.625L, -0.375L), b(-0.25L, 0.875L);
    std::vector<T> comb(2 * n);
    for (size_t i = 0; i < n; ++i) {
        const CLD v = a * CLD(x[2 * i], x[2 * i + 1]) + b * CLD(z[2 * i], z[2 * i + 1]);
        comb[2 * i] = static_cast<T>(v.real());
        comb[2 * i + 1] = static_cast<T>(v.imag());
    }
    const auto fx = fwd(x);
    {
        const auto fz = fwd(z), fc = fwd(comb);
        EXPECT_LE(relErr(fc, [&](size_t k) { return a * CLD(fx[2 * k], fx[2 * k + 1]) + b * CLD(fz[2 * k], fz[2 * k + 1]); }), tol)
            << "linearity, order " << order;
    }
    auto w = [&](size_t e) {
        const LD ang = twoPi * static_cast<LD>(e % n) / static_cast<LD>(n);
        return CLD(cosl(ang), -sinl(ang));
    };
    {
        const size_t j = (size_t(0x9E3779B97F4A7C15ull) >> 7) % n;
        std::vector<T> imp(2 * n, T(0));
        imp[2 * j] = 1;
        EXPECT_LE(relErr(fwd(imp), [&](size_t k) { return w((j * k) % n); }), tol) << "impulse, order " << order;
    }
    {
        std::vector<T> xs(2 * n);
        for (size_t i = 0; i < n; ++i) {
            xs[2 * ((i + 1) % n)] = x[2 * i];
            xs[2 * ((i + 1) % n) + 1] = x[2 * i + 1];
        }
        EXPECT_LE(relErr(fwd(xs), [&](size_t k) { return CLD(fx[2 * k], fx[2 * k + 1]) * w(k); }), tol)
            << "time shift, order " << order;
    }
}

TEST(FftLarge, SingleThreePropertiesAtTheFirst256RowOrder) { threeProperties<float>(Layout::Interleaved, 23); }
TEST(FftLarge, DoubleThreePropertiesAtTheFirst256RowOrder) { threeProperties<double>(Layout::Split, 22); }

// Split and interleaved data, in place and out of place, give the same bits.
template <class T> void splitLikeInterleaved(int order) {
    const auto x = randomValues<T>(size_t(2) << order, order);
    for (bool inv : {false, true}) {
        const auto ref = transform<T>(Layout::Interleaved, Place::InPlace, order, vrxFftScaleSqrt, inv, 0, x);
        const auto y = transform<T>(Layout::Split, inv ? Place::ReInPlace : Place::OutOfPlace, order, vrxFftScaleSqrt, inv, 8, x);
        EXPECT_EQ(firstDiff(y, ref), -1) << "order " << order << " inverse " << inv;
    }
}

TEST(FftLarge, DISABLED_SplitLikeInterleavedAtTwoLevelOrders) {
    splitLikeInterleaved<float>(27);
    splitLikeInterleaved<double>(26);
}

}  // namespace
