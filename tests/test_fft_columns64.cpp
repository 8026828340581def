// Double complex orders 7 to 9 (and the real orders 8 to 10 that run them)
// go through a stack buffer held by columns between two steps: the first
// step stores each complex value of a row on its own (one store per lane),
// the second loads four rows of one column as a register. A value stored
// at a wrong column, row or lane, or a lane with a wrong factor, shows at
// its own bins; a part of the buffer not rewritten by a call shows as a
// value carried from the call before.
#include "test_fft_common.h"

using namespace ft;

namespace {

struct ColumnCase {
    int order;
    Layout lay;
    bool inverse;
    bool inPlace;
    size_t misalign;
};
constexpr ColumnCase kCases[] = {
    {7, Layout::Interleaved, false, false, 0}, {7, Layout::Split, true, true, 8},
    {8, Layout::Interleaved, true, true, 16},  {8, Layout::Split, false, false, 0},
    {9, Layout::Interleaved, false, false, 0}, {9, Layout::Interleaved, true, true, 8},
    {9, Layout::Split, false, true, 24},       {9, Layout::Split, true, false, 0},
};

// A unit impulse at n0 transforms to exp(-+2 pi i n0 k / N): per bin the
// error against that value in long double, for impulses on every column
// of the first four rows of 16 and one column of every row, stays within
// the bound.
TEST(FftColumns64, ImpulsesOnEveryLaneAndRowAgainstLongDouble) {
    for (const auto& c : kCases) {
        const size_t n = size_t(1) << c.order;
        std::vector<size_t> at;
        for (size_t i = 0; i < 64; ++i) at.push_back(i);
        for (size_t r = 4; r < n / 16; ++r) at.push_back(16 * r + (5 * r) % 16);
        for (size_t n0 : at) {
            const LD worst = impulseError<double>(c.lay, c.order, c.inverse, c.inPlace, c.misalign, n0);
            EXPECT_LE(worst, bound<double>(c.order)) << "order " << c.order << " impulse at " << n0;
        }
    }
}

// The same input after calls on two other inputs gives the same bits, and
// in place the bits of out of place.
TEST(FftColumns64, NoValueCarriedFromTheCallBefore) {
    for (const auto& c : kCases) {
        const size_t n = size_t(1) << c.order;
        const auto x = roundTo<double>(randomSignal(n, 700 + c.order));
        std::vector<CLD> got[2];
        for (int before = 0; before < 2; ++before) {
            (void)runComplex<double>(c.lay, c.order, vrxFftScaleNone, c.inverse, c.inPlace, c.misalign,
                                     roundTo<double>(randomSignal(n, 300 + 11 * before)));
            got[before] = runComplex<double>(c.lay, c.order, vrxFftScaleNone, c.inverse, c.inPlace, c.misalign, x);
        }
        EXPECT_TRUE(got[0] == got[1]) << "order " << c.order;
        EXPECT_TRUE(got[0] == runComplex<double>(c.lay, c.order, vrxFftScaleNone, c.inverse, !c.inPlace, 0, x))
            << "order " << c.order << " in place against out of place";
    }
}

}  // namespace
