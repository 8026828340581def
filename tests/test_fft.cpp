// FFT as a user sees it: plan sizes and checks, complex and real transforms
// against a long-double reference, the packed forms and their operations.
#include "test_fft_common.h"

using namespace ft;

namespace {

constexpr int kFlags[] = {vrxFftScaleFwd, vrxFftScaleInv, vrxFftScaleSqrt, vrxFftScaleNone};

// ------------------------------------------------------------ complex

// Every order up to 16 against the long-double reference in each layout,
// direction, placement and flag; and to the last order, every layout,
// placement and alignment gives the bits of the aligned interleaved
// out-of-place call (the small kernels, the register kernels, the radix
// engine and the large path: the vector first passes equal the scalar one,
// and the group form between passes is invisible).
template <class T> void complexTransforms(int lastOrder) {
    for (int order = 0; order <= lastOrder; ++order) {
        const size_t n = size_t(1) << order;
        const auto x = roundTo<T>(randomSignal(n, 1000 + order));
        const bool ref = order <= 16;
        const std::vector<CLD> X[2] = {ref ? refDft(x, false) : x, ref ? refDft(x, true) : x};
        int combo = 0;
        for (bool inverse : {false, true}) {
            const auto plain = runComplex<T>(Layout::Interleaved, order, vrxFftScaleNone, inverse, false, 0, x);
            for (Layout lay : {Layout::Interleaved, Layout::Split})
                for (bool inPlace : {false, true}) {
                    SCOPED_TRACE(testing::Message() << "order " << order << " split " << (lay == Layout::Split) << " inv "
                                                    << inverse << " inplace " << inPlace);
                    for (size_t mis : {size_t(0), size_t(4)})
                        EXPECT_TRUE(runComplex<T>(lay, order, vrxFftScaleNone, inverse, inPlace, mis, x) == plain) << "misalign " << mis;
                    if (!ref) continue;
                    const int flag = kFlags[(order + combo++) % 4];
                    std::vector<CLD> want = X[inverse];
                    for (auto& v : want) v *= flagScale(flag, inverse, order);
                    const auto y = runComplex<T>(lay, order, flag, inverse, inPlace, (combo & 1) ? 4 : 0, x);
                    EXPECT_LE(relRms(y, want), bound<T>(order)) << "flag " << flag;
                }
        }
    }
}

TEST(FftComplex, SingleEveryOrderTo19) { complexTransforms<float>(19); }
TEST(FftComplex, DoubleEveryOrderTo18) { complexTransforms<double>(18); }

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

TEST(FftReal, AccuracyEveryOrderTo17) {
    realAccuracy<float>(0, 17);
    realAccuracy<double>(0, 17);
}

// Double orders 11 to 14 run their half-length transform and the
// recombination in the destination when it is 64-byte aligned and not the
// source, through the work buffer otherwise: every destination offset,
// source offset and in place give the same bits in each form, scaled or
// not, and the spectrum stays within the bound of a long-double DFT.
TEST(FftRealPlacement, DestinationAsWorkArea) {
    const struct { int order; int flag; Form f; } cases[] = {
        {9, vrxFftScaleNone, kCCS},  {10, vrxFftScaleNone, kCCS}, {10, vrxFftScaleFwd, kPack}, {11, vrxFftScaleNone, kPerm},
        {11, vrxFftScaleSqrt, kCCS}, {12, vrxFftScaleFwd, kCCS},  {13, vrxFftScaleNone, kPack}, {14, vrxFftScaleSqrt, kPerm},
        {14, vrxFftScaleNone, kCCS}, {15, vrxFftScaleNone, kCCS},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(testing::Message() << "order " << c.order << " flag " << c.flag << " form " << c.f);
        const size_t n = size_t(1) << c.order, len = packedLen(c.f, n);
        std::vector<CLD> xc(n);
        const auto x = randomValues<double>(n, 500 + c.order);
        for (size_t i = 0; i < n; ++i) xc[i] = CLD(x[i], 0);
        PlanMem m;
        auto* p = makePlan(kR64f, c.order, c.flag, m);
        ASSERT_NE(p, nullptr);
        std::vector<double> first;
        for (size_t srcOff : {size_t(0), size_t(8)})
            for (size_t dstOff = 0; dstOff <= 64; dstOff += 8) {
                // dstOff 64: in place
                const bool inPlace = dstOff == 64;
                vt::Buffer src(len * sizeof(double), srcOff), dst(len * sizeof(double), inPlace ? 0 : dstOff);
                memcpy(src.as<double>(), x.data(), n * sizeof(double));
                double* d = inPlace ? src.as<double>() : dst.as<double>();
                ASSERT_EQ(realCall<double>(false, c.f, inPlace ? nullptr : src.as<double>(), d, p, m.workPtr()), vrxOk);
                std::vector<double> y(d, d + len);
                if (first.empty()) first = y;
                EXPECT_EQ(firstDiff(y, first), -1) << "source offset " << srcOff << " destination offset " << dstOff;
                if (!inPlace) {
                    EXPECT_EQ(memcmp(src.as<double>(), x.data(), n * sizeof(double)), 0) << "source written";
                }
                EXPECT_TRUE(src.guardsIntact() && dst.guardsIntact() && m.work->guardsIntact());
            }
        const auto ref = packRef<double>(refDft(xc, false), c.order, c.f, flagScale(c.flag, false, c.order));
        EXPECT_LE(relRmsReal(first.data(), ref), bound<double>(c.order));
    }
}

}  // namespace
