// The three-property self-test of an FFT (linearity, impulse, time shift)
// at every order up to 22: it needs no reference transform at all. The
// orders above 22 run by hand:
//   test_fft_selftest --gtest_also_run_disabled_tests --gtest_filter=*Highest*
#include "test_fft_common.h"

using namespace ft;

namespace {

// ------------------------------------------------------------ self-test

constexpr Place kPlaces[] = {Place::OutOfPlace, Place::InPlace, Place::ReInPlace};

TEST(FftSelfTest, EveryOrderTo22) {
    for (int order = 0; order <= 22; ++order) {
        const Layout lay = order % 3 == 0 ? Layout::Split : Layout::Interleaved, lay64 = order % 3 == 1 ? Layout::Split : Layout::Interleaved;
        threeProperties<float>(lay, lay == Layout::Split ? kPlaces[(order / 3) % 3] : kPlaces[order % 2], order);
        threeProperties<double>(lay64, lay64 == Layout::Split ? kPlaces[(order / 3) % 3] : kPlaces[order % 2], order);
    }
}

// The highest orders of every kind (several GiB of memory): by hand. Light
// on memory: an impulse and a shifted impulse in place, checked on the fly
// against the exact spectrum, and linearity of two impulses.
template <class T> void highest(int order) {
    using A = Api<T>;
    const size_t n = size_t(1) << order;
    PlanMem mem;
    auto* plan = makePlan(A::kc(), order, vrxFftScaleNone, mem);
    ASSERT_NE(plan, nullptr);
    std::vector<typename A::C> v(n);
    vt::Rng rng(order);
    const size_t j1 = rng.next() % n, j2 = rng.next() % n;
    const double a = 0.75, b = -0.5;
    for (auto& e : v) e = {0, 0};
    v[j1].re += static_cast<T>(a);
    v[j2].re += static_cast<T>(b);
    ASSERT_EQ(A::fwdCI(v.data(), plan, mem.workPtr()), vrxOk);
    LD num = 0, den = 0;
    const double step = 6.283185307179586476925286766559 / static_cast<double>(n);
    for (size_t k = 0; k < n; ++k) {
        double p1 = step * static_cast<double>((j1 * k) % n), p2 = step * static_cast<double>((j2 * k) % n);
        LD re = a * cos(p1) + b * cos(p2), im = -(a * sin(p1) + b * sin(p2));
        LD dr = v[k].re - re, di = v[k].im - im;
        num += dr * dr + di * di;
        den += re * re + im * im;
    }
    EXPECT_LE(sqrtl(num / den), bound<T>(order)) << "order " << order;
    ASSERT_EQ(A::invCI(v.data(), plan, mem.workPtr()), vrxOk);
    num = 0;
    for (size_t k = 0; k < n; ++k) {
        LD re = (k == j1 ? a * n : 0) + (k == j2 ? b * n : 0);
        LD dr = v[k].re - re, di = v[k].im;
        num += dr * dr + di * di;
    }
    EXPECT_LE(sqrtl(num / ((a * a + b * b) * n * n)), 2 * bound<T>(order)) << "back, order " << order;
}

TEST(FftSelfTest, DISABLED_HighestOrders) {
    for (int order = 23; order <= Api<float>::maxC; ++order) highest<float>(order);
    for (int order = 22; order <= Api<double>::maxC; ++order) highest<double>(order);
}

}  // namespace
