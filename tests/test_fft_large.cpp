// FFT at large orders: the blocked large path and the two-level
// recombination against a long-double reference FFT.
#include "test_fft_common.h"

using namespace ft;

namespace {

template <class T> void complexAgainstReference(int from, int to) {
    for (int order = from; order <= to; ++order) {
        const size_t n = size_t(1) << order;
        auto x = roundTo<T>(randomSignal(n, 4242 + order));
        auto fwd = refDft(x, false);
        int combo = order;
        for (Layout lay : {Layout::Interleaved, Layout::Split})
            for (bool inPlace : {false, true}) {
                const int flag = (combo++ & 1) ? vrxFftScaleNone : vrxFftScaleFwd;
                auto y = runComplex<T>(lay, order, flag, false, inPlace, inPlace ? 0 : 8, x);
                std::vector<CLD> ref(fwd);
                LD s = flagScale(flag, false, order);
                for (auto& v : ref) v *= s;
                LD err = relRms(y, ref);
                if (getenv("FFT_SHOW")) printf("C %zu %d %d %d %Le\n", sizeof(T), order, (int)(lay == Layout::Split), inPlace, err);
                EXPECT_LE(err, bound<T>(order)) << "order " << order << " split " << (lay == Layout::Split) << " inplace " << inPlace;
                // and back: the inverse of the reference spectrum
                std::vector<CLD> yin(fwd);
                auto z = runComplex<T>(lay, order, vrxFftScaleInv, true, !inPlace, 0, roundTo<T>(yin));
                LD err2 = relRms(z, x);
                EXPECT_LE(err2, bound<T>(order) * 2) << "inverse order " << order;
            }
    }
}

TEST(FftLarge, ComplexSingleAroundTheLargePath) { complexAgainstReference<float>(17, 20); }
TEST(FftLarge, ComplexDoubleAroundTheLargePath) { complexAgainstReference<double>(16, 19); }

template <class T> void realAgainstReference(int from, int to) {
    using A = Api<T>;
    for (int order = from; order <= to; ++order) {
        const size_t n = size_t(1) << order;
        vt::Rng rng(99 + order);
        std::vector<CLD> x(n);
        for (auto& v : x) v = CLD(static_cast<T>(rng.uniform() * 2 - 1), 0);
        auto X = refDft(x, false);
        PlanMem mem;
        auto* plan = makePlan(A::kr(), order, vrxFftScaleInv, mem, 24);
        ASSERT_NE(plan, nullptr);
        std::vector<T> src(n), dst(n + 2);
        for (size_t i = 0; i < n; ++i) src[i] = static_cast<T>(x[i].real());
        ASSERT_EQ(A::fwdCCS(src.data(), dst.data(), plan, mem.workPtr()), vrxOk);
        std::vector<CLD> y(n / 2 + 1), r(n / 2 + 1);
        for (size_t k = 0; k <= n / 2; ++k) { y[k] = CLD(dst[2 * k], dst[2 * k + 1]); r[k] = X[k]; }
        LD err = relRms(y, r);
        if (getenv("FFT_SHOW")) printf("R %zu %d %Le\n", sizeof(T), order, err);
        EXPECT_LE(err, bound<T>(order)) << "order " << order;
        ASSERT_EQ(A::invCCSI(dst.data(), plan, mem.workPtr()), vrxOk);
        std::vector<CLD> back(n);
        for (size_t i = 0; i < n; ++i) back[i] = CLD(dst[i], 0);
        EXPECT_LE(relRms(back, x), bound<T>(order)) << "round trip order " << order;
    }
}

TEST(FftLarge, RealSingleTwoLevelRecombinationAndLargePath) { realAgainstReference<float>(18, 21); }
TEST(FftLarge, RealDoubleTwoLevelRecombinationAndLargePath) { realAgainstReference<double>(16, 20); }

}  // namespace
