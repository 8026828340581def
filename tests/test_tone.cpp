// Tone and Triangle: the family's own check order with nothing written and
// the phase kept on failure, the phase update bit for bit, the Tone
// recurrences bit for bit from their seeds, the Triangle running sum bit for
// bit, and both against closed forms in long double.
#include "vrx_test.h"

#include <cmath>
#include <functional>
#include <string>

namespace {

using ld = long double;
const double kTwoPi = 6.283185307179586;
const double kPi = 3.141592653589793;

// ------------------------------------------------------------ the table

// One call shape for all twelve: magnitude, frequency and asymmetry as
// doubles (converted to the form's types), the phase through a buffer.
using GenCall = std::function<VrxStatus(void* d, int len, double magn, double f, double asym, void* ph, int hint)>;
struct GenFn {
    std::string name;
    bool tone, cplx;
    int kind;   // 0: 16-bit, 1: single, 2: double
    size_t elem;
    GenCall call;
};
#define TONE(t, E, M, F, P, kind)                                                                     \
    GenFn{"Tone_" #t, true, sizeof(E) == 2 * sizeof(M), kind, sizeof(E),                              \
          GenCall([](void* d, int n, double m, double f, double, void* p, int h) {                   \
              return vrxsTone_##t((E*)d, n, (M)m, (F)f, (P*)p, h); })}
#define TRIANGLE(t, E, M, F, P, kind)                                                                 \
    GenFn{"Triangle_" #t, false, sizeof(E) == 2 * sizeof(M), kind, sizeof(E),                         \
          GenCall([](void* d, int n, double m, double f, double a, void* p, int) {                   \
              return vrxsTriangle_##t((E*)d, n, (M)m, (F)f, (F)a, (P*)p); })}

std::vector<GenFn> allGen() {
    return {TONE(16s, Vrx16s, Vrx16s, float, float, 0),         TONE(16sc, Vrx16sc, Vrx16s, float, float, 0),
            TONE(32f, float, float, float, float, 1),           TONE(32fc, Vrx32fc, float, float, float, 1),
            TONE(64f, double, double, double, double, 2),       TONE(64fc, Vrx64fc, double, double, double, 2),
            TRIANGLE(16s, Vrx16s, Vrx16s, float, float, 0),     TRIANGLE(16sc, Vrx16sc, Vrx16s, float, float, 0),
            TRIANGLE(32f, float, float, float, float, 1),       TRIANGLE(32fc, Vrx32fc, float, float, float, 1),
            TRIANGLE(64f, double, double, double, double, 2),   TRIANGLE(64fc, Vrx64fc, double, double, double, 2)};
}

// The phase buffer of a form holds a float or a double.
struct Phase {
    double d;
    float f;
    int kind;
    Phase(int k, double v) : d(v), f((float)v), kind(k) {}
    void* ptr() { return kind == 2 ? (void*)&d : (void*)&f; }
    double get() const { return kind == 2 ? d : (double)f; }
    uint64_t bits() const { return kind == 2 ? vt::bitsOf(d) : vt::bitsOf(f); }
};

// Phase pointer, magnitude, frequency, (asymmetry), phase, destination,
// length: the first failure wins; nothing written, the phase kept.
TEST(ToneTriangle, CheckOrderNothingWrittenPhaseKept) {
    const struct {
        const char* what;
        bool nullPhase, nullDst;
        double magn, f, asym, phase;
        int len, toneStatus, trnglStatus;
    } cases[] = {
        {"null phase first", true, true, -1, 2.0, 4.0, 9.0, 0, -8, -8},
        {"magnitude", false, true, 0, 2.0, 4.0, 9.0, 0, -46, -43},
        {"negative magnitude", false, true, -1, 2.0, 4.0, 9.0, 0, -46, -43},
        {"frequency", false, true, 10, 2.0, 4.0, 9.0, 0, -45, -42},
        {"negative frequency", false, true, 10, -0.01, 4.0, 9.0, 0, -45, -42},
        {"asymmetry before phase", false, true, 10, 0.1, 4.0, 9.0, 0, -44, -40},
        {"asymmetry pi", false, true, 10, 0.1, kPi + 1e-6, 1.0, 0, vrxOk, -40},
        {"phase", false, true, 10, 0.1, 0.0, 9.0, 0, -44, -41},
        {"phase 2pi", false, true, 10, 0.1, 0.0, kTwoPi, 0, -44, -41},
        {"negative phase", false, true, 10, 0.1, 0.0, -1e-3, 0, -44, -41},
        {"destination", false, true, 10, 0.1, 0.0, 1.0, 0, -8, -8},
        {"length", false, false, 10, 0.1, 0.0, 1.0, 0, -6, -6},
        {"negative length", false, false, 10, 0.1, 0.0, 1.0, -5, -6, -6},
    };
    for (const GenFn& g : allGen()) {
        for (const auto& c : cases) {
            SCOPED_TRACE(g.name + ": " + c.what);
            vt::Buffer dst(64 * g.elem);
            Phase ph(g.kind, c.phase);
            const uint64_t pb = ph.bits();
            const int len = c.len == 0 && !c.nullDst ? 0 : (c.len ? c.len : 64);
            VrxStatus st = g.call(c.nullDst ? nullptr : dst.data(), len, c.magn, c.f, c.asym,
                                  c.nullPhase ? nullptr : ph.ptr(), vrxAlgHintAccurate);
            int want = g.tone ? c.toneStatus : c.trnglStatus;
            if (want == vrxOk) want = vrxErrNullPtr;   // then the null destination fails
            EXPECT_EQ(st, want);
            EXPECT_EQ(ph.bits(), pb);
            EXPECT_TRUE(dst.guardsIntact() && std::count(dst.data(), dst.data() + dst.size(), vt::Buffer::kFill) == (long)dst.size());
        }
    }
}

// Real forms accept [0, 0.5), complex forms [0, 1).
TEST(ToneTriangle, FrequencyRanges) {
    for (const GenFn& g : allGen())
        for (double f : {0.0, 0.4999, 0.5, 0.9999, 1.0}) {
            std::vector<uint8_t> d(8 * g.elem);
            Phase ph(g.kind, 0.0);
            const int want = f < (g.cplx ? 1.0 : 0.5) ? vrxOk : g.tone ? vrxErrToneFreq : vrxErrTrnglFreq;
            EXPECT_EQ(g.call(d.data(), 8, 100, f, 0.0, ph.ptr(), 0), want) << g.name << " " << f;
        }
}

// ------------------------------------------------------ the phase update

// x = fma(N, w, phi) - q 2pi, q truncated (Tone) or floored (Triangle);
// rounded to the phase type; 0 when outside [0, 2pi).
double phaseModel(double phi, double f, int len, bool tone, int kind) {
    const double w = kTwoPi * f;
    double x = std::fma((double)len, w, phi);
    const double q = tone ? std::trunc(x * 0.15915494309189535) : std::floor(x * 0.15915494309189535);
    x = x - q * kTwoPi;
    const double r = kind == 2 ? x : (double)(float)x;
    return r < 0 || r >= kTwoPi ? 0.0 : r;
}

TEST(ToneTriangle, PhaseUpdateBitExact) {
    vt::Rng rng(11);
    for (const GenFn& g : allGen()) {
        SCOPED_TRACE(g.name);
        std::vector<uint8_t> d(3000 * g.elem);
        for (int i = 0; i < 200; ++i) {
            const int len = 1 + (int)rng.range(0, 2999);
            double f = rng.uniform() * (g.cplx ? 0.999 : 0.499);
            double phi = rng.uniform() * 6.28;
            if (g.kind != 2) { f = (float)f; phi = (float)phi; }
            if (i == 0) f = 0;
            Phase ph(g.kind, phi);
            ASSERT_EQ(g.call(d.data(), len, 100, f, 0.5, ph.ptr(), i & 1), vrxOk);
            EXPECT_EQ(ph.get(), phaseModel(phi, f, len, g.tone, g.kind)) << len << " " << f << " " << phi;
        }
    }
}

// ------------------------------------------------------------------ Tone

double ulps(double x, int k) {
    for (; k > 0; --k) x = std::nextafter(x, 1e300);
    for (; k < 0; ++k) x = std::nextafter(x, -1e300);
    return x;
}

// The double recurrences from a block's first two samples: x2 = 2c x1 - x0,
// x3 = 2c x2 - x1, then x[n] = ((2c)^2 - 2) x[n-2] - x[n-4]; Fast goes on
// after 8 with x[n] = (2cos 4w) x[n-4] - x[n-8].
std::vector<double> recurrence(const double* x0, int n, double c, bool fast) {
    const double tc = 2.0 * c, k2 = tc * tc - 2.0, k4 = k2 * k2 - 2.0;
    std::vector<double> x(x0, x0 + n);
    for (int i = 2; i < n; ++i)
        x[i] = i < 4 ? tc * x[i - 1] - x[i - 2] : fast && i >= 8 ? k4 * x[i - 4] - x[i - 8] : k2 * x[i - 2] - x[i - 4];
    return x;
}

// Magnitude 1, real and both streams of complex: Accurate (any hint but
// Fast) runs one recurrence over the vector, Fast reseeds blocks of 2048 at fma(k, w, phi);
// some cosine within 8 ulps of libm's cos(w) must reproduce every block.
TEST(Tone, DoubleRecurrencesBitExact) {
    const double phi = 1.234;
    for (int hint : {0, 1, 2})  // Accurate, Fast, another value
        for (double f : {0.0013, 0.1, 0.37, 0.4999})
            for (int len : {1, 3, 5, 1000, 5000}) {
                SCOPED_TRACE(testing::Message() << f << " " << len << " hint " << hint);
                std::vector<double> re(len), z(2 * len), zr(len), zi(len);
                double ph = phi;
                ASSERT_EQ(vrxsTone_64f(re.data(), len, 1.0, f, &ph, hint), vrxOk);
                ph = phi;
                ASSERT_EQ(vrxsTone_64fc((Vrx64fc*)z.data(), len, 1.0, f, &ph, hint), vrxOk);
                for (int i = 0; i < len; ++i) zr[i] = z[2 * i], zi[i] = z[2 * i + 1];
                const double w = kTwoPi * f;
                const int block = hint == vrxAlgHintFast ? 2048 : len;
                for (int b = 0; b < len; b += block) EXPECT_NEAR(re[b], std::cos(std::fma(double(b), w, phi)), 1e-15) << b;
                bool found = false;
                for (int k = -8; k <= 8 && !found; ++k) {
                    found = true;
                    for (const std::vector<double>* s : {&re, &zr, &zi})
                        for (int b = 0; b < len; b += block) {
                            const int n = std::min(block, len - b);
                            found = found && memcmp(recurrence(s->data() + b, n, ulps(std::cos(w), k), hint == vrxAlgHintFast).data(),
                                                    s->data() + b, n * 8) == 0;
                        }
                }
                EXPECT_TRUE(found);
            }
}

// Against magn cos(w n + phi) in long double over 70000 samples. The seeds
// of a tier of b bits (26 for 16-bit data, 50 single, 53 double) put an
// error of about 2^-b / sin(w) into the frequency and the amplitude of the
// recurrence, which then grows with the samples run from one seed (the
// whole vector when Accurate, one block when Fast); the base term is the
// rounding of the output and the single-precision recurrence.
TEST(Tone, WithinBoundsOfClosedForm) {
    const double base[3][2] = {{0, 1e-4}, {1e-6, 1e-4}, {1e-12, 1e-12}};  // [kind][hint]
    const int len = 70000;
    for (const GenFn& g : allGen())
        for (int hint : {vrxAlgHintAccurate, vrxAlgHintFast})
            for (double f : {0.001, 0.1234, 0.4})
                for (double phi : {0.0, 2.5}) {
                    if (!g.tone) continue;
                    SCOPED_TRACE(testing::Message() << g.name << " hint " << hint << " f " << f << " phi " << phi);
                    const int kind = g.kind, parts = g.cplx ? 2 : 1;
                    const double magn = kind == 0 ? 30000 : 3.0, fe = kind == 2 ? f : (float)f, pe = kind == 2 ? phi : (float)phi;
                    Phase ph(kind, phi);
                    std::vector<uint8_t> d(len * g.elem);
                    ASSERT_EQ(g.call(d.data(), len, magn, f, 0, ph.ptr(), hint), vrxOk);
                    const ld w = (ld)(kTwoPi * fe);  // formed in double, by definition
                    ld err = 0;
                    for (int i = 0; i < len * parts; ++i) {
                        const double v = kind == 2 ? ((double*)d.data())[i] : kind == 1 ? ((float*)d.data())[i] : ((int16_t*)d.data())[i];
                        const ld a = w * (i / parts) + pe;
                        err = std::max(err, std::fabs(v - magn * (i % parts ? std::sin(a) : std::cos(a))));
                    }
                    const double seedEps = kind == 0 ? 0x1p-26 : (kind == 1 ? 0x1p-50 : 0x1p-53);
                    const int run = hint == vrxAlgHintFast ? (kind == 2 ? 2048 : 1024) : len;
                    ld tol = (kind == 0 ? 1.0 : 0.0) + magn * (base[kind][hint] + 4.0 * (2 + run) * seedEps / std::sin((double)w));
                    if (hint == vrxAlgHintFast) {  // the lag-L recurrence of a block: run/L steps on 2cos(L w)
                        const int L = kind == 2 ? 4 : 8;
                        tol += magn * 8.0 * run / L * (kind == 2 ? 0x1p-53 : 0x1p-24) / std::max(std::fabs(std::sin(L * (double)w)), 0.01);
                    }
                    EXPECT_LE(err, tol);
                }
}

// 16-bit: the double values (the whole Accurate vector, the head of each
// Fast block) are truncated toward zero; rFreq 0 is the constant magn cos(phi).
TEST(Tone, SixteenBitTruncates) {
    std::vector<int16_t> d16(3000), n16(8);
    std::vector<double> d64(3000);
    float ph16 = 0.7f, ph0 = 0.0f;
    double ph64 = (double)0.7f;
    ASSERT_EQ(vrxsTone_16s(d16.data(), 3000, 20000, 0.05f, &ph16, vrxAlgHintFast), vrxOk);
    ASSERT_EQ(vrxsTone_64f(d64.data(), 3000, 20000, (double)0.05f, &ph64, vrxAlgHintFast), vrxOk);
    for (int b = 0; b < 3000; b += 1024)
        for (int i = b; i < b + 16; ++i) EXPECT_LE(std::fabs(d16[i] - std::trunc(d64[i])), 1.0) << i;  // seeds of two tiers
    ASSERT_EQ(vrxsTone_16s(n16.data(), 8, 1000, 0.0f, &ph0, 0), vrxOk);
    EXPECT_EQ(n16, std::vector<int16_t>(8, 1000));
}

// --------------------------------------------------------------- Triangle

// The running sum of the library, written out once more.
template <class S>
std::vector<S> triangleModel(int n, double m, double f, double a, double phi, int* bothPeaks) {
    const double pa = kPi + a, ma = kPi - a;
    const double dd = 12.566370614359172 * f * m / pa, du = 12.566370614359172 * f * m / ma;
    const double rT = -ma / pa, rB = -pa / ma;
    bool rising = !(phi < pa);
    double y = rising ? m * (2.0 * (phi - kPi - a) / ma - 1.0) : m * (1.0 - 2.0 * phi / pa);
    double step = rising ? du : -dd;
    std::vector<S> out(n);
    for (int i = 0; i < n; ++i) {
        if constexpr (std::is_same_v<S, int16_t>) out[i] = (int16_t)(int)y;
        else out[i] = (S)y;
        y += step;
        if (rising && y > m) {
            const double t = m + (y - m) * rT;
            if (t < -m) { y -= 12.566370614359172 * m / ma; ++*bothPeaks; }
            else { y = t; rising = false; step = -dd; }
        }
        if (!rising && y < -m) {
            const double t = -m + (y + m) * rB;
            if (t > m) { y += 12.566370614359172 * m / pa; ++*bothPeaks; }
            else { y = t; rising = true; step = du; }
        }
    }
    return out;
}

// One real form against the model over 1000 samples of magnitude 1000.
template <class S, class M, class F>
void expectTriangle(VrxStatus (*fn)(S*, int, M, F, F, F*), double f, double a, double phi, int* both) {
    std::vector<S> d(1000);
    F ph = (F)phi;
    ASSERT_EQ(fn(d.data(), 1000, (M)1000, (F)f, (F)a, &ph), vrxOk);
    EXPECT_TRUE(vt::sameBitsAll(d, triangleModel<S>(1000, 1000.0, (F)f, (F)a, (F)phi, both))) << sizeof(S);
}

TEST(Triangle, RunningSumBitExact) {
    const struct { double f, a, phi; } cases[] = {
        {0.25, 0.0, 0.0}, {0.01, 0.0, 1.0}, {0.1, 1.0, 4.5}, {0.3, -2.0, 0.1}, {0.45, 3.1, 6.0},
        {0.49, 3.14, 0.2}, {0.2, -3.0, 3.0}, {0.0, 0.5, 2.0}, {0.77, 0.3, 1.0}, {0.95, 3.1, 5.0},
    };
    int both = 0;
    for (const auto& c : cases) {
        SCOPED_TRACE(testing::Message() << c.f << " " << c.a << " " << c.phi);
        if (c.f < 0.5) {
            expectTriangle(vrxsTriangle_64f, c.f, c.a, c.phi, &both);
            expectTriangle(vrxsTriangle_32f, c.f, c.a, c.phi, &both);
            expectTriangle(vrxsTriangle_16s, c.f, c.a, c.phi, &both);
        }
        // complex: the imaginary part is the wave at phi + (2pi + pi + a)/2,
        // reduced once
        std::vector<Vrx64fc> z(1000);
        std::vector<double> re(1000), im(1000);
        double ph = c.phi, p2 = c.phi + 0.5 * (kTwoPi + kPi + c.a);
        ASSERT_EQ(vrxsTriangle_64fc(z.data(), 1000, 1000.0, c.f, c.a, &ph), vrxOk);
        for (int i = 0; i < 1000; ++i) re[i] = z[i].re, im[i] = z[i].im;
        EXPECT_TRUE(vt::sameBitsAll(re, triangleModel<double>(1000, 1000.0, c.f, c.a, c.phi, &both)));
        EXPECT_TRUE(vt::sameBitsAll(im, triangleModel<double>(1000, 1000.0, c.f, c.a, p2 >= kTwoPi ? p2 - kTwoPi : p2, &both)));
    }
    EXPECT_GT(both, 0);   // the both-peaks branch was reached
}

// The running sum against the exact wave: its error grows at most linearly
// in n, and each reflection scales it by the ratio of the slopes. a = 0,
// phi = 0: +M first, an exact -M at n = 1/(2f).
TEST(Triangle, WithinBoundsOfClosedForm) {
    const ld pi = 3.141592653589793238462643383279502884L;
    for (double f : {0.001, 0.05, 0.3})
        for (double a : {0.0, 1.0, -2.5}) {
            const int len = 20000;
            std::vector<double> d(len);
            double ph = 0.4;
            ASSERT_EQ(vrxsTriangle_64f(d.data(), len, 2.0, f, a, &ph), vrxOk);
            ld err = 0;
            for (int i = 0; i < len; ++i) {
                const ld p = std::fmod(2 * pi * f * i + 0.4L, 2 * pi);
                err = std::max(err, std::fabs(d[i] - (p < pi + a ? 2 * (1 - 2 * p / (pi + a)) : 2 * (2 * (p - pi - a) / (pi - a) - 1))));
            }
            EXPECT_LE(err, 2.0 * 4e-16 * len * std::max((kPi - a) / (kPi + a), (kPi + a) / (kPi - a))) << f << " " << a;
        }
    std::vector<float> t(16);
    float ph = 0.0f;
    ASSERT_EQ(vrxsTriangle_32f(t.data(), 16, 5.0f, 0.125f, 0.0f, &ph), vrxOk);
    EXPECT_TRUE(t[0] == 5.0f && t[2] == 0.0f && t[4] == -5.0f && t[8] == 5.0f);
}

}  // namespace
