// The three-property self-test (linearity, impulse, time shift) at the
// first orders of 256-row blocks, too large for the long-double reference.
#include "test_fft_common.h"

using namespace ft;

namespace {

TEST(FftLarge, SingleThreePropertiesAtTheFirst256RowOrder) { threeProperties<float>(Layout::Interleaved, Place::OutOfPlace, 23); }
TEST(FftLarge, DoubleThreePropertiesAtTheFirst256RowOrder) { threeProperties<double>(Layout::Split, Place::OutOfPlace, 22); }

}  // namespace
