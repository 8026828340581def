// Single-precision complex orders 8 to 11 (and the real orders 9 to 12
// that run them) go through a stack buffer between two sweeps, written as
// half rows scattered over the buffer: every call must rewrite all of it
// before reading it, and every lane and row of each sweep must carry its
// own factors.
#include "test_fft_common.h"

using namespace ft;

namespace {

struct SweepCase {
    int order;
    Layout lay;
    bool inverse;
    bool inPlace;
};
constexpr SweepCase kCases[] = {
    {8, Layout::Interleaved, false, false}, {8, Layout::Split, true, true},
    {9, Layout::Interleaved, true, true},   {9, Layout::Split, false, false},
    {10, Layout::Interleaved, false, true}, {10, Layout::Split, true, false},
    {11, Layout::Interleaved, true, false}, {11, Layout::Split, false, true},
};

// A unit impulse at n0 transforms to exp(-+2 pi i n0 k / N): per bin the
// error against that value in long double, for impulses on every column
// of the first rows and one column of every row, stays within the bound
// (a lane or row with a wrong factor fails at its own bins).
TEST(FftSweeps32, ImpulsesOnEveryLaneAndRowAgainstLongDouble) {
    for (const auto& c : kCases) {
        const size_t n = size_t(1) << c.order;
        std::vector<size_t> at;
        for (size_t i = 0; i < 64; ++i) at.push_back(i);
        for (size_t r = 1; r < n / 32; ++r) at.push_back(32 * r + (7 * r) % 32);
        at.push_back(n - 1);
        for (size_t n0 : at) {
            const LD worst = impulseError<float>(c.lay, c.order, c.inverse, c.inPlace, 0, n0);
            EXPECT_LE(worst, bound<float>(c.order)) << "order " << c.order << " impulse at " << n0;
        }
    }
}

// The same input after calls on two other inputs gives the same bits: no
// part of the buffer is read before this call has written it.
TEST(FftSweeps32, NoValueCarriedFromTheCallBefore) {
    for (const auto& c : kCases) {
        const size_t n = size_t(1) << c.order;
        const auto x = roundTo<float>(randomSignal(n, 500 + c.order));
        std::vector<CLD> got[2];
        for (int before = 0; before < 2; ++before) {
            (void)runComplex<float>(c.lay, c.order, vrxFftScaleNone, c.inverse, c.inPlace, 0,
                                    roundTo<float>(randomSignal(n, 900 + 17 * before)));
            got[before] = runComplex<float>(c.lay, c.order, vrxFftScaleNone, c.inverse, c.inPlace, 0, x);
        }
        EXPECT_TRUE(got[0] == got[1]) << "order " << c.order;
    }
}

}  // namespace
