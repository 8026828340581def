// IIR design (Butterworth and Chebyshev I low-pass, high-pass, band-pass,
// band-stop) against SciPy's designs, and zero-phase IIR filtering against
// SciPy's filtfilt and a long double model of it; statuses and their order,
// the caller's x87 word and MXCSR across a design.
#include "vrx_test.h"

#include <math.h>

#include <memory>

#include "data/iirgen_golden.h"

namespace {

// ------------------------------------------------------------------ design
VrxStatus designCall(int band, double f1, double f2, double rp, int order, double* taps, int type) {
    const VrxIirGenType t = static_cast<VrxIirGenType>(type);
    switch (band) {
        case 0: return vrxsIIRGenLowpass_64f(f1, rp, order, taps, t);
        case 1: return vrxsIIRGenHighpass_64f(f1, rp, order, taps, t);
        case 2: return vrxsIIRGenBandpass_64f(f1, f2, rp, order, taps, t);
        default: return vrxsIIRGenBandstop_64f(f1, f2, rp, order, taps, t);
    }
}

// Each polynomial within 1e-9 of its largest coefficient; nothing written
// past the 2(M+1) values (M = order, twice it for the band forms).
TEST(IirGen, EqualsScipyDesigns) {
    int count[4] = {};
    for (const GoldenDesign& g : kGoldenDesigns) {
        const int m = g.band >= 2 ? 2 * g.order : g.order;
        std::vector<double> taps(2 * (m + 1) + 4, -7.0);
        ASSERT_EQ(vrxOk, designCall(g.band, g.f1, g.f2, g.ripple, g.order, taps.data(), g.type));
        for (int poly = 0; poly < 2; ++poly) {
            const double *want = g.taps + poly * (m + 1), *got = taps.data() + poly * (m + 1);
            double big = 0;
            for (int i = 0; i <= m; ++i) big = fmax(big, fabs(want[i]));
            for (int i = 0; i <= m; ++i)
                EXPECT_NEAR(got[i], want[i], 1e-9 * big)
                    << "band " << g.band << " type " << g.type << " order " << g.order << (poly ? " a[" : " b[") << i << "]";
        }
        EXPECT_EQ(std::vector<double>(taps.end() - 4, taps.end()), std::vector<double>(4, -7.0));
        ++count[g.band];
    }
    EXPECT_TRUE(count[0] == 24 && count[1] == 24 && count[2] + count[3] >= 8);
}

// The order (1..12), then the edges (inside (0, 0.5), rising), then the
// type, then the ripple (Chebyshev: (0, 30]); nothing written on failure.
TEST(IirGen, StatusesInOrder) {
    const double nan = NAN;
    struct Case { const char* what; int band; double f1, f2, rp; int order; bool nullTaps; int type; VrxStatus want; };
    const Case cases[] = {
        {"null taps before a bad order", 0, 0.1, 0, 1, 0, true, 0, vrxErrNullPtr},
        {"order 0", 0, 0.1, 0, 1, 0, false, 0, vrxErrIirGenOrder},
        {"order 13", 1, 0.1, 0, 1, 13, false, 0, vrxErrIirGenOrder},
        {"order before frequency", 0, 0.7, 0, 1, -3, false, 0, vrxErrIirGenOrder},
        {"frequency 0", 0, 0.0, 0, 1, 2, false, 0, vrxErrIirGenFreq},
        {"frequency 0.5", 1, 0.5, 0, 1, 2, false, 0, vrxErrIirGenFreq},
        {"frequency NaN", 0, nan, 0, 1, 2, false, 0, vrxErrIirGenFreq},
        {"negative frequency", 1, -0.1, 0, 1, 2, false, 0, vrxErrIirGenFreq},
        {"frequency before type", 0, 0.6, 0, 1, 2, false, 7, vrxErrIirGenFreq},
        {"band: high edge 0.5", 2, 0.1, 0.5, 1, 2, false, 0, vrxErrIirGenFreq},
        {"band: low = high", 3, 0.2, 0.2, 1, 2, false, 0, vrxErrIirGenFreq},
        {"band: low > high", 2, 0.3, 0.2, 1, 2, false, 0, vrxErrIirGenFreq},
        {"band: low edge 0", 3, 0.0, 0.2, 1, 2, false, 0, vrxErrIirGenFreq},
        {"type 2", 0, 0.1, 0, 1, 2, false, 2, vrxErrBadArg},
        {"type -1 before ripple", 1, 0.1, 0, -1, 2, false, -1, vrxErrBadArg},
        {"ripple 0", 0, 0.1, 0, 0.0, 2, false, 1, vrxErrIirGenPassband},
        {"ripple above 30", 3, 0.1, 0.2, 30.000001, 2, false, 1, vrxErrIirGenPassband},
        {"ripple NaN", 1, 0.1, 0, nan, 2, false, 1, vrxErrIirGenPassband},
        {"ripple 30 accepted", 0, 0.1, 0, 30.0, 2, false, 1, vrxOk},
        {"Butterworth ignores the ripple", 2, 0.1, 0.2, -5.0, 2, false, 0, vrxOk},
        {"order 12 accepted", 3, 0.1, 0.2, 1, 12, false, 1, vrxOk},
    };
    for (const Case& c : cases) {
        std::vector<double> taps(60, -3.0);
        EXPECT_EQ(c.want, designCall(c.band, c.f1, c.f2, c.rp, c.order, c.nullTaps ? nullptr : taps.data(), c.type))
            << c.what;
        EXPECT_TRUE(c.want == vrxOk || taps == std::vector<double>(60, -3.0)) << c.what << ": written on failure";
    }
}

unsigned short x87Sw() { unsigned short sw; __asm__ __volatile__("fnstsw %0" : "=a"(sw)); return sw; }

// The caller's x87 word with zero-divide unmasked and 53-bit precision, and
// an MXCSR with all exceptions unmasked: the design neither traps nor leaves
// anything changed, and its values are those of the default words.
TEST(IirGen, CallerControlWordsKept) {
    vt::MxcsrScope keep;
    const unsigned short saved = vt::x87Cw();
    const unsigned short callerCw = static_cast<unsigned short>((saved & ~0x0304u & ~0x04u) | 0x0200u);
    for (const GoldenDesign& g : kGoldenDesigns) {
        if (g.order != 12 && g.band < 2) continue;
        const int m = g.band >= 2 ? 2 * g.order : g.order;
        double ref[2 * 25], got[2 * 25];
        ASSERT_EQ(vrxOk, designCall(g.band, g.f1, g.f2, g.ripple, g.order, ref, g.type));
        __asm__ __volatile__("fnclex");
        vt::setX87Cw(callerCw);
        _mm_setcsr(0x0000);  // all SSE exceptions unmasked, nearest
        const VrxStatus st = designCall(g.band, g.f1, g.f2, g.ripple, g.order, got, g.type);
        const unsigned mx = _mm_getcsr();
        const unsigned short cw = vt::x87Cw(), sw = x87Sw();
        _mm_setcsr(0x1F80);
        vt::setX87Cw(saved);
        EXPECT_EQ(vrxOk, st);
        EXPECT_EQ(cw, callerCw);
        EXPECT_EQ(mx & ~0x3Fu, 0u) << "MXCSR control bits changed";
        EXPECT_EQ(sw & 0x04 & ~cw, 0) << "an unmasked zero-divide flag left pending";
        for (int i = 0; i < 2 * (m + 1); ++i) EXPECT_EQ(vt::dBits(got[i]), vt::dBits(ref[i])) << i;
    }
    vt::setX87Cw(saved);
}

// ------------------------------------------------------------ zero-phase
// The long double model: filtfilt with odd extension, each pass started
// from the steady state of a unit step scaled by its first sample.
std::vector<long double> lfilterL(const std::vector<long double>& b, const std::vector<long double>& a,
                                  const std::vector<long double>& x, std::vector<long double> d) {
    const size_t n = b.size() - 1;
    std::vector<long double> y(x.size());
    d.push_back(0);
    for (size_t k = 0; k < x.size(); ++k) {
        const long double yk = b[0] * x[k] + d[0];
        for (size_t i = 0; i < n; ++i) d[i] = b[i + 1] * x[k] - a[i + 1] * yk + d[i + 1];
        y[k] = yk;
    }
    return y;
}
// The steady state of a unit step: with the output G = sum b / sum a
// constant, line value i is the sum over k > i of b[k] - a[k] G.
std::vector<long double> ziL(const std::vector<long double>& b, const std::vector<long double>& a) {
    long double sb = 0, sa = 0, acc = 0;
    for (size_t i = 0; i < b.size(); ++i) sb += b[i], sa += a[i];
    std::vector<long double> z(b.size() - 1);
    for (size_t i = z.size(); i-- > 0;) z[i] = acc += b[i + 1] - a[i + 1] * (sb / sa);
    return z;
}
std::vector<long double> filtfiltL(const double* taps, int order, const std::vector<double>& xd) {
    std::vector<long double> b(taps, taps + order + 1), a(taps + order + 1, taps + 2 * order + 2);
    const long double a0 = a[0];
    for (auto& v : b) v /= a0;
    for (auto& v : a) v /= a0;
    const int len = static_cast<int>(xd.size());
    const int e = std::min(3 * order, len - 1);
    std::vector<long double> ext;
    for (int i = 0; i < e; ++i) ext.push_back(2.0L * xd[0] - xd[e - i]);
    for (double v : xd) ext.push_back(v);
    for (int j = 0; j < e; ++j) ext.push_back(2.0L * xd[len - 1] - xd[len - 2 - j]);
    const std::vector<long double> zi = ziL(b, a);
    std::vector<long double> y = ext, d(order);
    for (int pass = 0; pass < 2; ++pass) {
        for (int i = 0; i < order; ++i) d[i] = zi[i] * y[0];
        y = lfilterL(b, a, y, d);
        std::reverse(y.begin(), y.end());
    }
    return std::vector<long double>(y.begin() + e, y.begin() + e + len);
}

// The three kinds behind one interface: double taps and samples in, double
// results out (the float kinds see the values rounded to float).
const char* const kKinds[] = {"32f", "64f_32f", "64f"};

class Filter {
public:
    Filter(int kind, const double* taps, int order, size_t offset = 0) : kind_(kind) {
        int size = 0;
        EXPECT_EQ(vrxOk, kind == 0   ? vrxsIIRIIRGetStateSize_32f(order, &size)
                         : kind == 1 ? vrxsIIRIIRGetStateSize64f_32f(order, &size)
                                     : vrxsIIRIIRGetStateSize_64f(order, &size));
        buf_ = std::make_unique<vt::Buffer>(size, offset);
        const std::vector<float> t(taps, taps + 2 * order + 2);
        status_ = kind == 0   ? vrxsIIRIIRInit_32f(&s32_, t.data(), order, buf_->data())
                  : kind == 1 ? vrxsIIRIIRInit64f_32f(&s6432_, taps, order, buf_->data())
                              : vrxsIIRIIRInit_64f(&s64_, taps, order, buf_->data());
    }
    VrxStatus status() const { return status_; }
    bool guardsIntact() const { return buf_->guardsIntact(); }
    // out of place, or in place through the _I form
    VrxStatus run(const std::vector<double>& x, std::vector<double>& y, bool inPlace, int len = -1) {
        if (len < 0) len = static_cast<int>(x.size());
        if (kind_ == 2) {
            y = inPlace ? x : std::vector<double>(x.size(), 0.0);
            return inPlace ? vrxsIIRIIR_64f_I(y.data(), len, s64_) : vrxsIIRIIR_64f(x.data(), y.data(), len, s64_);
        }
        std::vector<float> xf(x.begin(), x.end()), yf = inPlace ? xf : std::vector<float>(x.size(), 0.0f);
        const VrxStatus st =
            kind_ == 0 ? (inPlace ? vrxsIIRIIR_32f_I(yf.data(), len, s32_) : vrxsIIRIIR_32f(xf.data(), yf.data(), len, s32_))
                       : (inPlace ? vrxsIIRIIR64f_32f_I(yf.data(), len, s6432_)
                                  : vrxsIIRIIR64f_32f(xf.data(), yf.data(), len, s6432_));
        y.assign(yf.begin(), yf.end());
        return st;
    }

private:
    int kind_;
    std::unique_ptr<vt::Buffer> buf_;
    VrxStatus status_ = vrxOk;
    VrxsIirIirState_32f* s32_ = nullptr;
    VrxsIirIirState64f_32f* s6432_ = nullptr;
    VrxsIirIirState_64f* s64_ = nullptr;
};

// Error of y against ref relative to ref's largest magnitude.
template <class R>
double relErr(const std::vector<double>& y, const std::vector<R>& ref) {
    long double big = 0, err = 0;
    for (size_t i = 0; i < y.size(); ++i) {
        big = std::max<long double>(big, fabsl(ref[i]));
        err = std::max<long double>(err, fabsl(y[i] - ref[i]));
    }
    return static_cast<double>(err / (big > 0 ? big : 1));
}

// tolerances by kind: float arithmetic, float between the passes, double
double tolerance(int kind, int order) {
    if (kind == 2) return 1e-11;
    if (kind == 1) return 4e-6;
    return order >= 8 && order <= 12 ? 5e-2 : 2e-4;
}

TEST(IirIir, EqualsScipyFiltfilt) {
    EXPECT_GE(std::size(kGoldenFiltfilt), 30u);
    for (const GoldenFiltfilt& g : kGoldenFiltfilt) {
        const std::vector<double> x(g.x, g.x + g.len);
        const std::vector<double> want(g.y, g.y + g.len);
        const std::vector<long double> model = filtfiltL(g.taps, g.order, x);
        EXPECT_LT(relErr(std::vector<double>(model.begin(), model.end()), want), 1e-12)
            << "model, order " << g.order << " len " << g.len;
        for (int k = 0; k < 3; ++k) {
            Filter f(k, g.taps, g.order);
            ASSERT_EQ(vrxOk, f.status());
            std::vector<double> y;
            ASSERT_EQ(vrxOk, f.run(x, y, false)) << kKinds[k] << " order " << g.order << " len " << g.len;
            EXPECT_LT(relErr(y, want), tolerance(k, g.order)) << kKinds[k] << " order " << g.order << " len " << g.len;
            EXPECT_TRUE(f.guardsIntact());
        }
    }
}

// Long signals over the block boundaries of both passes, orders on both
// sides of the look-ahead limit, against the long double model; then in
// place equals out of place bit for bit, and a second run of the same
// state gives the same bits (nothing carried over between calls).
TEST(IirIir, LongSignalsAgainstModel) {
    struct Case { int order, len; };
    const Case cases[] = {{1, 1023}, {2, 1024}, {2, 1025}, {3, 2055}, {4, 3000}, {5, 4096}, {7, 1030},
                          {21, 2100}, {22, 2100}, {30, 1500}, {6, 18}, {6, 24}, {6, 25}};
    vt::Rng rng(17);
    for (const Case& c : cases) {
        // a stable filter: poles on radius 0.3..0.8, numerator random
        std::vector<long double> poly{1};
        for (int i = 0; i < c.order; ++i) {
            const long double r = (i % 2 ? -1 : 1) * (0.3L + 0.5L * rng.uniform());
            poly.push_back(0);
            for (size_t j = poly.size() - 1; j >= 1; --j) poly[j] -= r * poly[j - 1];
        }
        std::vector<double> taps(2 * c.order + 2);
        for (int i = 0; i <= c.order; ++i) taps[i] = static_cast<float>(rng.uniform() * 2 - 1);
        for (int i = 0; i <= c.order; ++i) taps[c.order + 1 + i] = static_cast<float>(poly[i] * 2.0L);  // a0 = 2
        std::vector<double> x(c.len);
        for (double& v : x) v = static_cast<float>(rng.uniform() * 2 - 1);
        const std::vector<long double> model = filtfiltL(taps.data(), c.order, x);
        for (int k = 0; k < 3; ++k) {
            Filter f(k, taps.data(), c.order, static_cast<size_t>(c.len % 64));
            ASSERT_EQ(vrxOk, f.status());
            std::vector<double> y, yi, y2;
            ASSERT_EQ(vrxOk, f.run(x, y, false));
            ASSERT_EQ(vrxOk, f.run(x, yi, true));
            ASSERT_EQ(vrxOk, f.run(x, y2, false));
            const bool high = c.order > 20;  // conditioning grows with the order
            EXPECT_LT(relErr(y, model), k == 2 ? (high ? 1e-11 : 1e-12) : (k == 1 ? 2e-6 : (high ? 1e-3 : 1e-4)))
                << kKinds[k] << " order " << c.order << " len " << c.len;
            for (int i = 0; i < c.len; ++i) {
                ASSERT_EQ(vt::dBits(yi[i]), vt::dBits(y[i])) << kKinds[k] << " in place, at " << i;
                ASSERT_EQ(vt::dBits(y2[i]), vt::dBits(y[i])) << kKinds[k] << " second run, at " << i;
            }
            EXPECT_TRUE(f.guardsIntact());
        }
    }
}

// After the pointers and the length: the identity word, then len < 3N
// (also for the _I forms and the float kinds); nothing written on failure.
TEST(IirIir, RunStatusesInOrder) {
    const int order = 4;
    double taps[10] = {1, 2, 3, 2, 1, 2, 0.1, 0.2, 0.05, 0.01};
    int size = 0, size2 = 0;
    ASSERT_EQ(vrxOk, vrxsIIRIIRGetStateSize_64f(order, &size));
    ASSERT_EQ(vrxOk, vrxsIIRIIRGetStateSize64f_32f(order, &size2));
    vt::Buffer mine(size), other(size2);
    VrxsIirIirState_64f* s = nullptr;
    VrxsIirIirState64f_32f* s2 = nullptr;
    ASSERT_EQ(vrxOk, vrxsIIRIIRInit_64f(&s, taps, order, mine.data()));
    ASSERT_EQ(vrxOk, vrxsIIRIIRInit64f_32f(&s2, taps, order, other.data()));
    VrxsIirIirState_64f* wrong = reinterpret_cast<VrxsIirIirState_64f*>(s2);
    std::vector<double> x(40, 0.5), y(40, -9.0);
    struct Case { const char* what; int len; VrxsIirIirState_64f* st; VrxStatus want; };
    const Case cases[] = {{"word before the short length", 2, wrong, vrxErrBadSpec},
                          {"len 3N-1", 3 * order - 1, s, vrxErrIirIirLength},
                          {"len 1", 1, s, vrxErrIirIirLength},
                          {"len 3N", 3 * order, s, vrxOk}};
    for (const Case& c : cases) {
        std::fill(y.begin(), y.end(), -9.0);
        EXPECT_EQ(c.want, vrxsIIRIIR_64f(x.data(), y.data(), c.len, c.st)) << c.what;
        EXPECT_TRUE(c.want == vrxOk || y == std::vector<double>(40, -9.0)) << c.what << ": written on failure";
    }
    for (int k = 0; k < 3; ++k) {
        Filter g(k, taps, order);
        for (bool inPlace : {false, true}) {
            std::vector<double> out;
            EXPECT_EQ(vrxErrIirIirLength, g.run(x, out, inPlace, 3 * order - 1)) << kKinds[k];
            EXPECT_EQ(vrxOk, g.run(x, out, inPlace, 3 * order)) << kKinds[k];
        }
    }
    float xf[40] = {}, yf[40] = {};
    EXPECT_EQ(vrxErrBadSpec, vrxsIIRIIR_32f(xf, yf, 40, reinterpret_cast<VrxsIirIirState_32f*>(s2)));
}

// Size query and Init: the order and a0 checks, nothing written on failure;
// the state starts on 64 bytes.
TEST(IirIir, InitAndSize) {
    int size = -1, s3 = 0;
    EXPECT_EQ(vrxErrIirOrder, vrxsIIRIIRGetStateSize_32f(0, &size));
    EXPECT_EQ(vrxErrIirOrder, vrxsIIRIIRGetStateSize64f_32f(-2, &size));
    EXPECT_EQ(-1, size);
    ASSERT_EQ(vrxOk, vrxsIIRIIRGetStateSize_64f(5, &s3));
    double taps[8] = {1, 3, 3, 1, 0, 0.5, 0.25, 0.1};  // a0 = 0
    const float tf[8] = {1, 3, 3, 1, 0, 0.5f, 0.25f, 0.1f};
    vt::Buffer buf(s3), b2(s3, 5);
    VrxsIirIirState_64f* st = reinterpret_cast<VrxsIirIirState_64f*>(&size);
    VrxsIirIirState_32f* st32 = nullptr;
    EXPECT_EQ(vrxErrIirOrder, vrxsIIRIIRInit_64f(&st, taps, 0, buf.data()));
    EXPECT_EQ(vrxErrDivByZero, vrxsIIRIIRInit_64f(&st, taps, 3, buf.data()));
    EXPECT_EQ(vrxErrDivByZero, vrxsIIRIIRInit_32f(&st32, tf, 3, buf.data()));
    EXPECT_TRUE(st32 == nullptr && st == reinterpret_cast<VrxsIirIirState_64f*>(&size));
    EXPECT_EQ(vt::vec(buf.data(), buf.size()), std::vector<uint8_t>(buf.size(), vt::Buffer::kFill)) << "written on failure";
    taps[4] = 1;
    ASSERT_EQ(vrxOk, vrxsIIRIIRInit_64f(&st, taps, 3, b2.data()));
    EXPECT_EQ(reinterpret_cast<uintptr_t>(st) % 64, 0u);
}

}  // namespace
