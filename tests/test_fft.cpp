// FFT as a user sees it: plan sizes and checks, complex and real transforms
// against a long-double reference, the packed forms and their operations.
#include "test_fft_common.h"

using namespace ft;

namespace {

constexpr int kFlags[] = {vrxFftScaleFwd, vrxFftScaleInv, vrxFftScaleSqrt, vrxFftScaleNone};

// ------------------------------------------------------------ complex accuracy

template <class T> void complexAccuracy(int maxOrder) {
    for (int order = 0; order <= maxOrder; ++order) {
        const size_t n = size_t(1) << order;
        auto x = roundTo<T>(randomSignal(n, 1000 + order));
        auto fwdRef = refDft(x, false);
        auto invRef = refDft(x, true);
        int combo = 0;
        for (Layout lay : {Layout::Interleaved, Layout::Split})
            for (bool inverse : {false, true})
                for (bool inPlace : {false, true}) {
                    int flag = kFlags[(order + combo++) % 4];
                    size_t mis = (combo & 1) ? 4 : 0;
                    auto y = runComplex<T>(lay, order, flag, inverse, inPlace, mis, x);
                    LD s = flagScale(flag, inverse, order);
                    auto ref = inverse ? invRef : fwdRef;
                    for (auto& v : ref) v *= s;
                    LD err = relRms(y, ref);
                    EXPECT_LE(err, bound<T>(order)) << "order " << order << " split " << (lay == Layout::Split)
                                                    << " inv " << inverse << " inplace " << inPlace << " flag " << flag;
                }
    }
}

TEST(FftComplex, AccuracySingleEveryOrderTo16) { complexAccuracy<float>(16); }
TEST(FftComplex, AccuracyDoubleEveryOrderTo16) { complexAccuracy<double>(16); }

// The small kernels, the register kernels, the radix engine and the large
// path give the same bits whatever the data layout, placement and alignment:
// the vector first passes equal the scalar one, and the group form between
// passes is invisible.
template <class T> void layoutsAgree(int firstOrder, int lastOrder) {
    for (int order = firstOrder; order <= lastOrder; ++order) {
        auto x = roundTo<T>(randomSignal(size_t(1) << order, 77 + order));
        for (bool inverse : {false, true}) {
            auto ref = runComplex<T>(Layout::Interleaved, order, vrxFftScaleNone, inverse, false, 0, x);
            for (Layout lay : {Layout::Interleaved, Layout::Split})
                for (bool inPlace : {false, true})
                    for (size_t mis : {size_t(0), size_t(4)}) {
                        auto y = runComplex<T>(lay, order, vrxFftScaleNone, inverse, inPlace, mis, x);
                        size_t bad = 0;
                        for (size_t i = 0; i < y.size(); ++i) bad += (y[i] != ref[i]);
                        EXPECT_EQ(bad, 0u) << "order " << order << " split " << (lay == Layout::Split) << " inv " << inverse
                                           << " inplace " << inPlace << " misalign " << mis;
                    }
        }
    }
}

TEST(FftComplex, LayoutsGiveTheSameBitsSingle) { layoutsAgree<float>(4, 19); }
TEST(FftComplex, LayoutsGiveTheSameBitsDouble) { layoutsAgree<double>(4, 18); }

// ------------------------------------------------------------ real accuracy

// Packs a reference spectrum X[0..N/2] into a form.
template <class T> std::vector<T> packRef(const std::vector<CLD>& X, int order, Form f, LD s) {
    const size_t n = size_t(1) << order;
    std::vector<T> p(f == kCCS ? n + 2 : n);
    auto R = [&](size_t k) { return static_cast<T>(X[k].real() * s); };
    auto I = [&](size_t k) { return static_cast<T>(X[k].imag() * s); };
    if (n == 1) { p[0] = R(0); if (f == kCCS) p[1] = 0; return p; }
    if (f == kCCS) {
        for (size_t k = 0; k <= n / 2; ++k) { p[2 * k] = R(k); p[2 * k + 1] = I(k); }
        p[1] = 0; p[n + 1] = 0;
    } else if (f == kPack) {
        p[0] = R(0);
        for (size_t k = 1; k < n / 2; ++k) { p[2 * k - 1] = R(k); p[2 * k] = I(k); }
        p[n - 1] = R(n / 2);
    } else {
        p[0] = R(0); p[1] = R(n / 2);
        for (size_t k = 1; k < n / 2; ++k) { p[2 * k] = R(k); p[2 * k + 1] = I(k); }
    }
    return p;
}

template <class T> LD relRmsReal(const T* y, const std::vector<T>& ref) {
    LD num = 0, den = 0;
    for (size_t i = 0; i < ref.size(); ++i) {
        LD d = static_cast<LD>(y[i]) - ref[i];
        num += d * d;
        den += static_cast<LD>(ref[i]) * ref[i];
    }
    return den == 0 ? sqrtl(num) : sqrtl(num / den);
}

template <class T> void realAccuracy(int minOrder, int maxOrder) {
    using A = Api<T>;
    for (int order = minOrder; order <= maxOrder; ++order) {
        const size_t n = size_t(1) << order;
        vt::Rng rng(77 + order);
        std::vector<CLD> x(n);
        for (auto& v : x) v = CLD(static_cast<T>(rng.uniform() * 2 - 1), 0);
        auto X = refDft(x, false);
        int combo = 0;
        for (Form f : {kCCS, kPack, kPerm})
            for (bool inPlace : {false, true}) {
                int flag = kFlags[(order + combo++) % 4];
                PlanMem mem;
                auto* plan = makePlan(A::kr(), order, flag, mem, (combo & 1) * 8);
                ASSERT_NE(plan, nullptr);
                const size_t len = f == kCCS ? n + 2 : n;
                vt::Buffer src(len * sizeof(T), 4), dst(len * sizeof(T), (combo & 2) ? 0 : 12);
                for (size_t i = 0; i < n; ++i) src.as<T>()[i] = static_cast<T>(x[i].real());
                T* s = src.as<T>();
                T* d = inPlace ? s : dst.as<T>();
                Vrx8u* w = mem.workPtr();
                ASSERT_EQ(realCall<T>(false, f, inPlace ? nullptr : s, d, plan, w), vrxOk);
                auto ref = packRef<T>(X, order, f, flagScale(flag, false, order));
                LD err = relRmsReal(d, ref);
                EXPECT_LE(err, bound<T>(order)) << "order " << order << " form " << int(f) << " inplace " << inPlace;
                // back again: the round trip restores the input times the flags' product
                vt::Buffer back(n * sizeof(T), 20);
                T* b = inPlace ? d : back.as<T>();
                ASSERT_EQ(realCall<T>(true, f, inPlace ? nullptr : d, b, plan, w), vrxOk);
                LD s2 = flagScale(flag, false, order) * flagScale(flag, true, order);
                std::vector<T> xr(n);
                for (size_t i = 0; i < n; ++i) xr[i] = static_cast<T>(x[i].real() * s2 * static_cast<LD>(n));
                LD err2 = relRmsReal(b, xr);
                EXPECT_LE(err2, bound<T>(order)) << "round trip order " << order << " form " << int(f);
                EXPECT_TRUE(src.guardsIntact() && dst.guardsIntact() && back.guardsIntact());
                if (mem.work) {
                    EXPECT_TRUE(mem.work->guardsIntact());
                }
            }
    }
}

TEST(FftReal, AccuracySingleEveryOrderTo17) { realAccuracy<float>(0, 17); }
TEST(FftReal, AccuracyDoubleEveryOrderTo17) { realAccuracy<double>(0, 17); }

}  // namespace
