// FFT at large orders: the blocked large path and the two-level
// recombination against a long-double reference FFT; the same bits for every
// placement and alignment, and scaling exact to the bit.
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
                EXPECT_LE(err, bound<T>(order)) << "order " << order << " split " << (lay == Layout::Split) << " inplace " << inPlace;
                // and back: the inverse of the reference spectrum
                std::vector<CLD> yin(fwd);
                auto z = runComplex<T>(lay, order, vrxFftScaleInv, true, !inPlace, 0, roundTo<T>(yin));
                LD err2 = relRms(z, x);
                EXPECT_LE(err2, bound<T>(order) * 2) << "inverse order " << order;
            }
    }
}

TEST(FftLarge, ComplexAroundTheLargePath) {
    complexAgainstReference<float>(17, 20);
    complexAgainstReference<double>(16, 19);
}

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
        EXPECT_LE(err, bound<T>(order)) << "order " << order;
        ASSERT_EQ(A::invCCSI(dst.data(), plan, mem.workPtr()), vrxOk);
        std::vector<CLD> back(n);
        for (size_t i = 0; i < n; ++i) back[i] = CLD(dst[i], 0);
        EXPECT_LE(relRms(back, x), bound<T>(order)) << "round trip order " << order;
    }
}

TEST(FftLarge, RealTwoLevelRecombinationAndLargePath) {
    realAgainstReference<float>(18, 21);
    realAgainstReference<double>(16, 20);
}

struct PlaceCase {
    int order;
    Layout lay;
    Place pl;
    size_t off;  // byte offset of the data from a 64-byte boundary
};

// Every placement and alignment gives the bits of the aligned out-of-place
// call, in both directions.
template <class T> void samePlacementBits(const std::vector<PlaceCase>& cases) {
    for (const PlaceCase& c : cases) {
        const auto x = randomValues<T>(size_t(2) << c.order, 77 + c.order);
        for (bool inv : {false, true}) {
            const auto ref = transform<T>(c.lay, Place::OutOfPlace, c.order, vrxFftScaleNone, inv, 0, x);
            const auto y = transform<T>(c.lay, c.pl, c.order, vrxFftScaleNone, inv, c.off, x);
            EXPECT_EQ(firstDiff(y, ref), -1) << "order " << c.order << " split " << (c.lay == Layout::Split)
                                             << " placement " << int(c.pl) << " offset " << c.off << " inverse " << inv;
        }
    }
}

TEST(FftLarge, PlacementsAndAlignmentsGiveTheSameBits) {
    samePlacementBits<float>({
        {19, Layout::Interleaved, Place::InPlace, 0},
        {19, Layout::Split, Place::ReInPlace, 4},
        {20, Layout::Interleaved, Place::OutOfPlace, 8},   // rows not 32-byte aligned
        {22, Layout::Interleaved, Place::InPlace, 4},
        {22, Layout::Split, Place::InPlace, 0},
        {23, Layout::Interleaved, Place::InPlace, 8},     // out of place: copy, then in place
        {23, Layout::Split, Place::ReInPlace, 0},
    });
    samePlacementBits<double>({
        {17, Layout::Interleaved, Place::InPlace, 0},    // the lowest order of the large path (complex plans)
        {17, Layout::Interleaved, Place::OutOfPlace, 24},
        {17, Layout::Split, Place::ReInPlace, 16},
        {18, Layout::Interleaved, Place::InPlace, 0},
        {18, Layout::Split, Place::ReInPlace, 8},
        {19, Layout::Interleaved, Place::OutOfPlace, 16},
        {21, Layout::Split, Place::InPlace, 4},
        {22, Layout::Interleaved, Place::InPlace, 24},
        {22, Layout::Split, Place::OutOfPlace, 8},
    });
}

// ------------------------------------------------------------ scaling

struct ScaleCase {
    int order;
    Layout lay;
    int flag;
    bool inv;
};

// A scaled transform equals the unscaled one times the flag's scale: to the
// bit when the scale is a power of two (so also when the direction is not
// scaled at all), within rounding otherwise.
template <class T> void scaledLikeUnscaled(const std::vector<ScaleCase>& cases) {
    for (const ScaleCase& c : cases) {
        const size_t n = size_t(1) << c.order;
        const auto x = randomValues<T>(2 * n, 5 + c.order);
        const auto plain = transform<T>(c.lay, Place::OutOfPlace, c.order, vrxFftScaleNone, c.inv, 0, x);
        const auto y = transform<T>(c.lay, Place::InPlace, c.order, c.flag, c.inv, 0, x);
        const LD s = flagScale(c.flag, c.inv, c.order);
        int e;
        const bool pow2 = frexpl(s, &e) == 0.5L;
        std::vector<T> want(2 * n);
        for (size_t i = 0; i < 2 * n; ++i) want[i] = static_cast<T>(plain[i] * s);
        LD num = 0, den = 0;
        for (size_t i = 0; i < 2 * n; ++i) num += (y[i] - plain[i] * s) * (y[i] - plain[i] * s), den += plain[i] * s * plain[i] * s;
        EXPECT_TRUE(pow2 ? firstDiff(y, want) == -1 : sqrtl(num / den) <= (sizeof(T) == 4 ? 2e-7L : 4e-16L))
            << "order " << c.order << " flag " << c.flag << " inverse " << c.inv;
    }
}

TEST(FftLarge, ScaleFlagsScaleEveryRowOnce) {
    scaledLikeUnscaled<float>({
        {19, Layout::Interleaved, vrxFftScaleFwd, false},
        {19, Layout::Split, vrxFftScaleFwd, true},
        {20, Layout::Split, vrxFftScaleInv, true},
        {20, Layout::Interleaved, vrxFftScaleSqrt, false},
        {21, Layout::Interleaved, vrxFftScaleSqrt, true},
        {23, Layout::Interleaved, vrxFftScaleInv, true},
    });
    scaledLikeUnscaled<double>({
        {17, Layout::Interleaved, vrxFftScaleFwd, false},
        {17, Layout::Split, vrxFftScaleSqrt, true},
        {18, Layout::Split, vrxFftScaleSqrt, false},
        {19, Layout::Interleaved, vrxFftScaleInv, false},
        {19, Layout::Interleaved, vrxFftScaleSqrt, true},
        {20, Layout::Interleaved, vrxFftScaleInv, true},
        {22, Layout::Split, vrxFftScaleFwd, false},
    });
}

}  // namespace
