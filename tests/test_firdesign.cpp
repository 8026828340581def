// FIR design: taps against SciPy's window-method design (a table generated
// once by tests/make_firdesign_golden.py) and against long-double closed
// forms within length-dependent bounds; buffer size, buffer bounds at any
// alignment, the length and band checks with untouched taps on failure.
#include "vrx_test.h"

#include <math.h>

#include <algorithm>
#include <string>
#include <vector>

#include "data/firdesign_golden.h"

namespace {

enum Kind { Low, High, Pass, Stop };

Kind kindOf(const char* s) {
    const std::string k(s);
    return k == "Low" ? Low : k == "High" ? High : k == "Pass" ? Pass : Stop;
}

int bufSize(int n) {
    int s = -1;
    EXPECT_EQ(vrxsFIRGenGetBufferSize(n, &s), vrxOk);
    return s;
}

VrxStatus design(Kind k, double fl, double fh, double* taps, int n, int win, int normal, uint8_t* buf) {
    switch (k) {
    case Low: return vrxsFIRGenLowpass_64f(fl, taps, n, win, normal, buf);
    case High: return vrxsFIRGenHighpass_64f(fl, taps, n, win, normal, buf);
    case Pass: return vrxsFIRGenBandpass_64f(fl, fh, taps, n, win, normal, buf);
    default: return vrxsFIRGenBandstop_64f(fl, fh, taps, n, win, normal, buf);
    }
}

// Taps through a work buffer of exactly the reported size at the given
// offset; the guards of both buffers must survive.
std::vector<double> run(Kind k, double fl, double fh, int n, int win, int normal, size_t off = 0) {
    vt::Buffer taps(n * sizeof(double)), buf(bufSize(n), off);
    EXPECT_EQ(design(k, fl, fh, taps.as<double>(), n, win, normal, buf.data()), vrxOk);
    EXPECT_TRUE(taps.guardsIntact());
    EXPECT_TRUE(buf.guardsIntact()) << "n " << n << " offset " << off;
    return std::vector<double>(taps.as<double>(), taps.as<double>() + n);
}

// ------------------------------------------------- long-double reference
typedef long double LD;
const LD kPiL = 3.141592653589793238462643383279502884L;

LD windowL(int win, int n, int k) {
    const LD th = 2 * kPiL / (n - 1);
    switch (win) {
    case vrxWinHann: return 0.5L - 0.5L * cosl(th * k);
    case vrxWinHamming: return 0.54L - 0.46L * cosl(th * k);
    case vrxWinBartlett: return k <= (n - 1) / 2.0L ? 2.0L * k / (n - 1) : 2.0L - 2.0L * k / (n - 1);
    case vrxWinBlackman: {
        const LD c = cosl(kPiL / (n - 1));
        const LD a = -(0.5L / c) * (0.5L / c);
        return (a + 1) / 2 - 0.5L * cosl(th * k) - a / 2 * cosl(2 * th * k);
    }
    default: return 1.0L;
    }
}

std::vector<LD> referenceL(Kind kd, LD fl, LD fh, int n, int win, int normal, LD* gain) {
    std::vector<LD> h(n);
    const bool odd = n & 1;
    for (int k = 0; k < n; ++k) {
        const LD m = k - (n - 1) / 2.0L;
        const LD t = fabsl(m);
        LD v;
        if (t == 0) {
            v = kd == Low ? 2 * fl : kd == High ? 1 - 2 * fl : kd == Pass ? 2 * (fh - fl) : 1 - 2 * (fh - fl);
        } else {
            const LD sl = sinl(2 * kPiL * fl * t), sh = sinl(2 * kPiL * fh * t);
            LD num;
            switch (kd) {
            case Low: num = sl; break;
            case High: num = odd ? -sl : cosl(2 * kPiL * fl * t); break;
            case Pass: num = sh - sl; break;
            default: num = odd ? sl - sh : (((int)(t - 0.5L) & 1) ? -1.0L : 1.0L) + sl - sh; break;
            }
            v = num / (kPiL * t);
            if (kd == High && !odd && m > 0) v = -v;  // antisymmetric
        }
        h[k] = v * windowL(win, n, k);
    }
    if (normal) {
        LD g = 0;
        const LD f0 = (fl + fh) / 2;
        for (int k = 0; k < n; ++k) {
            const LD m = k - (n - 1) / 2.0L;
            if (kd == High) g += (k & 1) ? h[k] : -h[k];  // alternating from -h[0]
            else if (kd == Pass) g += h[k] * cosl(2 * kPiL * f0 * m);
            else g += h[k];
        }
        for (auto& v : h) v /= g;
        *gain = g;
    } else {
        *gain = 1;
    }
    return h;
}

}  // namespace

// ---------------------------------------------------------- buffer size
TEST(FirGenBufferSize, Formula) {
    for (int n : {5, 6, 7, 8, 31, 32, 33, 255, 256, 4095, 1000000}) EXPECT_EQ(bufSize(n), (((n >> 1) * 16 + 46) & ~31) + 16) << n;
    EXPECT_EQ(bufSize(5), 80);
}

// ----------------------------------------------------------- golden taps
// SciPy's firwin normalises a highpass to +1 at Nyquist; the alternating
// sum here starts with -pTaps[0], which for odd lengths with an even half
// (5, 9, 13, ...) is the negative gain, so those taps come out negated.
TEST(FirGenGolden, AgainstScipyFirwin) {
    int rows = 0;
    for (const GoldenFir& g : kGoldenFir) {
        const Kind k = kindOf(g.kind);
        const std::vector<double> got = run(k, g.fl, g.fh, g.n, g.win, g.normal, rows % 16);
        const double sign = (k == High && g.normal && (g.n & 1) && ((g.n >> 1) & 1) == 0) ? -1.0 : 1.0;
        for (int i = 0; i < g.n; ++i)
            ASSERT_NEAR(got[i], sign * g.h[i], 2e-15 * g.n)
                << g.kind << " n " << g.n << " f " << g.fl << "," << g.fh << " win " << g.win << " norm " << g.normal << " tap " << i;
        ++rows;
    }
    EXPECT_GT(rows, 250);
}

// ------------------------------------------------- long-double closed forms
TEST(FirGenClosedForm, AllKindsWindowsLengths) {
    const int wins[] = {vrxWinBartlett, vrxWinBlackman, vrxWinHamming, vrxWinHann, 4, -1};
    struct Band { Kind k; double fl, fh; };
    const Band bands[] = {{Low, 0.05, 0}, {Low, 0.25, 0}, {Low, 0.4999, 0}, {High, 0.125, 0}, {High, 0.3, 0},
                          {Pass, 0.01, 0.49}, {Pass, 0.2, 0.21}, {Stop, 0.1, 0.3}, {Stop, 0.3, 0.33}};
    for (int n : {5, 6, 9, 10, 64, 255, 1024, 4095}) {
        for (const Band& b : bands) {
            for (int w : wins) {
                for (int normal : {0, 1}) {
                    const std::vector<double> got = run(b.k, b.fl, b.fh, n, w, normal, n % 13);
                    LD g = 1;
                    const std::vector<LD> want = referenceL(b.k, b.fl, b.fh, n, w, normal, &g);
                    // Errors of the tone and window recurrences grow linearly
                    // with n, on terms of size up to 1 before the gain.
                    const double bound = 2e-16 * (n + 8) / static_cast<double>(fabsl(g));
                    for (int i = 0; i < n; ++i)
                        ASSERT_LE(fabsl(got[i] - want[i]), bound)
                            << "kind " << b.k << " n " << n << " win " << w << " norm " << normal << " tap " << i;
                }
            }
        }
    }
}

// ----------------------------------------------------------- properties
// Exact mirror images (the right half is the left half written twice); an
// unknown window type is the rectangular window; the bits do not depend on
// where the work buffer lies.
TEST(FirGenShape, SymmetryUnknownWindowAnyBufferOffset) {
    for (int n : {5, 6, 7, 8, 31, 64, 100, 1001}) {
        for (int w : {int(vrxWinBartlett), int(vrxWinBlackman), int(vrxWinHamming), int(vrxWinHann), 7}) {
            std::vector<double> h = run(Low, 0.17, 0, n, w, 1);
            for (int i = 0; i < n; ++i) ASSERT_EQ(h[i], h[n - 1 - i]);
            if (n % 2) continue;
            h = run(High, 0.3, 0, n, w, 0);
            for (int i = 0; i < n; ++i) ASSERT_EQ(h[i], -h[n - 1 - i]);
        }
        const std::vector<double> ref = run(Stop, 0.11, 0.31, n, vrxWinHamming, 1, 0);
        for (size_t off = 1; off < 16; off += 2) EXPECT_EQ(run(Stop, 0.11, 0.31, n, vrxWinHamming, 1, off), ref) << n << " " << off;
    }
    EXPECT_EQ(run(Pass, 0.1, 0.2, 33, 4, 1), run(Pass, 0.1, 0.2, 33, -7, 1));
}

// ---------------------------------------------------------------- checks
// After the pointers, a length below five and frequencies outside the open
// band are all -6; nothing is written on failure.
TEST(FirGenChecks, LengthAndFrequenciesNothingWritten) {
    vt::Buffer taps(64 * 8), buf(2048);
    struct Case { Kind k; double fl, fh; int n; };
    const Case cases[] = {
        {Low, 0.1, 0, 4},    {Low, 0.0, 0, 16},    {Low, 0.5, 0, 16},    {High, -0.1, 0, 16}, {High, NAN, 0, 16},
        {Pass, 0.2, 0.2, 16}, {Pass, 0.3, 0.2, 16}, {Stop, 0.0, 0.2, 16}, {Stop, 0.1, 0.5, 16}, {Pass, NAN, 0.2, 16},
    };
    for (const Case& c : cases)
        EXPECT_EQ(design(c.k, c.fl, c.fh, taps.as<double>(), c.n, vrxWinHann, 1, buf.data()), vrxErrBadLength)
            << c.k << " " << c.fl << " " << c.fh << " " << c.n;
    EXPECT_EQ(design(High, 0.7, 0, taps.as<double>(), 16, vrxWinHann, 1, nullptr), vrxErrNullPtr);
    int s = 1234;
    EXPECT_EQ(vrxsFIRGenGetBufferSize(4, &s), vrxErrBadLength);  // five taps at least
    EXPECT_EQ(s, 1234);
    EXPECT_TRUE(std::all_of(taps.data() - 64, taps.data() + 64 * 8 + 64, [](uint8_t v) { return v == vt::Buffer::kFill; }));
    EXPECT_TRUE(std::all_of(buf.data() - 64, buf.data() + 2048 + 64, [](uint8_t v) { return v == vt::Buffer::kFill; }));
}
