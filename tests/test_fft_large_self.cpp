// The three-property self-test (linearity, impulse, time shift) at the
// first orders of 256-row blocks, too large for the long-double reference.
// By hand (several GiB): split data against interleaved data at the orders
// whose rows take a second level,
//   test_fft_large_self --gtest_also_run_disabled_tests --gtest_filter=*TwoLevel*
#include "test_fft_large_common.h"

using namespace ft;

namespace {

TEST(FftLarge, SingleThreePropertiesAtTheFirst256RowOrder) { threeProperties<float>(Layout::Interleaved, Place::OutOfPlace, 23); }
TEST(FftLarge, DoubleThreePropertiesAtTheFirst256RowOrder) { threeProperties<double>(Layout::Split, Place::OutOfPlace, 22); }

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
