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
struct GenFn {
    std::string name;
    bool tone, cplx;
    int kind;   // 0: 16-bit, 1: single, 2: double
    size_t elem;
    std::function<VrxStatus(void* d, int len, double magn, double f, double asym, void* ph, int hint)> call;
};

using GenCall = std::function<VrxStatus(void*, int, double, double, double, void*, int)>;
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
    double d = 0;
    float f = 0;
    int kind;
    explicit Phase(int k, double v) : kind(k) { set(v); }
    void set(double v) { d = v; f = (float)v; }
    void* ptr() { return kind == 2 ? (void*)&d : (void*)&f; }
    double get() const { return kind == 2 ? d : (double)f; }
    uint64_t bits() const { uint64_t b = 0; if (kind == 2) memcpy(&b, &d, 8); else memcpy(&b, &f, 4); return b; }
};

struct OrderCase {
    const char* what;
    bool nullPhase, nullDst;
    double magn, f, asym, phase;
    int len;
    int toneStatus, trnglStatus;   // expected; for complex forms see below
};

// Phase pointer, magnitude, frequency, (asymmetry), phase, destination,
// length: the first failure wins; nothing written, the phase kept.
TEST(ToneTriangle, CheckOrderNothingWrittenPhaseKept) {
    const double bad = -1;
    const OrderCase cases[] = {
        {"null phase first", true, true, bad, 2.0, 4.0, 9.0, 0, -8, -8},
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
        for (const OrderCase& c : cases) {
            SCOPED_TRACE(g.name + ": " + c.what);
            vt::Buffer dst(64 * g.elem);
            std::vector<uint8_t> before(dst.data(), dst.data() + dst.size());
            Phase ph(g.kind, c.phase);
            const uint64_t pb = ph.bits();
            const int len = c.len == 0 && !c.nullDst ? 0 : (c.len ? c.len : 64);
            VrxStatus st = g.call(c.nullDst ? nullptr : dst.data(), len, c.magn, c.f, c.asym,
                                  c.nullPhase ? nullptr : ph.ptr(), vrxAlgHintAccurate);
            int want = g.tone ? c.toneStatus : c.trnglStatus;
            if (want == vrxOk) want = vrxErrNullPtr;   // then the null destination fails
            EXPECT_EQ(st, want);
            EXPECT_EQ(ph.bits(), pb);
            EXPECT_EQ(memcmp(before.data(), dst.data(), dst.size()), 0);
            EXPECT_TRUE(dst.guardsIntact());
        }
    }
}

// Real forms accept [0, 0.5), complex forms [0, 1); phase 0 is valid.
TEST(ToneTriangle, FrequencyRanges) {
    for (const GenFn& g : allGen()) {
        SCOPED_TRACE(g.name);
        std::vector<uint8_t> d(8 * g.elem);
        for (double f : {0.0, 0.4999, 0.5, 0.9999, 1.0}) {
            Phase ph(g.kind, 0.0);
            const bool ok = g.cplx ? f < 1.0 : f < 0.5;
            const int bad = g.tone ? vrxErrToneFreq : vrxErrTrnglFreq;
            EXPECT_EQ(g.call(d.data(), 8, 100, f, 0.0, ph.ptr(), 0), ok ? vrxOk : bad) << f;
        }
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

// The double recurrence: x2 = 2c x1 - x0, x3 = 2c x2 - x1, then
// x[n] = ((2c)^2 - 2) x[n-2] - x[n-4].
std::vector<double> accurateModel(int n, double x0, double x1, double c) {
    std::vector<double> x(std::max(n, 4));
    const double tc = 2.0 * c, k = tc * tc - 2.0;
    x[0] = x0; x[1] = x1; x[2] = tc * x1 - x0; x[3] = tc * x[2] - x1;
    for (int i = 4; i < n; ++i) x[i] = k * x[i - 2] - x[i - 4];
    x.resize(n);
    return x;
}

// With magnitude 1 the first two samples are the seeds themselves; some
// cosine within 8 ulps of libm's cos(w) must reproduce the whole vector.
TEST(Tone, AccurateDoubleBitExact) {
    for (double f : {0.0013, 0.1, 0.37, 0.4999}) {
        for (int len : {1, 2, 3, 4, 5, 1000, 5000}) {
            SCOPED_TRACE(testing::Message() << f << " " << len);
            const double phi = 1.234;
            std::vector<double> out(len);
            double ph = phi;
            ASSERT_EQ(vrxsTone_64f(out.data(), len, 1.0, f, &ph, vrxAlgHintAccurate), vrxOk);
            EXPECT_NEAR(out[0], std::cos(phi), 1e-15);
            if (len < 3) continue;
            bool found = false;
            for (int k = -8; k <= 8 && !found; ++k) {
                auto m = accurateModel(len, out[0], out[1], ulps(std::cos(kTwoPi * f), k));
                found = memcmp(m.data(), out.data(), len * 8) == 0;
            }
            EXPECT_TRUE(found);
            // the complex form: the same recurrence on the sine seeds
            std::vector<double> z(2 * len), re(len), im(len);
            ph = phi;
            ASSERT_EQ(vrxsTone_64fc((Vrx64fc*)z.data(), len, 1.0, f, &ph, 0), vrxOk);
            for (int i = 0; i < len; ++i) { re[i] = z[2 * i]; im[i] = z[2 * i + 1]; }
            found = false;
            for (int k = -8; k <= 8 && !found; ++k) {
                const double c = ulps(std::cos(kTwoPi * f), k);
                auto mr = accurateModel(len, re[0], re[1], c), mi = accurateModel(len, im[0], im[1], c);
                found = memcmp(mr.data(), re.data(), len * 8) == 0 && memcmp(mi.data(), im.data(), len * 8) == 0;
            }
            EXPECT_TRUE(found);
        }
    }
}

// Fast double: blocks of 2048 reseeded at fma(k, w, phi); the first 8 of a
// block by the double recurrence, then x[n] = (2cos 4w) x[n-4] - x[n-8].
TEST(Tone, FastDoubleBitExact) {
    const int len = 5000;
    for (double f : {0.01, 0.23}) {
        const double phi = 0.5;
        std::vector<double> out(len);
        double ph = phi;
        ASSERT_EQ(vrxsTone_64f(out.data(), len, 1.0, f, &ph, vrxAlgHintFast), vrxOk);
        const double w = kTwoPi * f;
        bool found = false;
        for (int k = -8; k <= 8 && !found; ++k) {
            const double c = ulps(std::cos(w), k);
            const double tc = 2.0 * c, k2 = tc * tc - 2.0, k4 = k2 * k2 - 2.0;
            std::vector<double> m(len);
            for (int b = 0; b < len; b += 2048) {
                const int n = std::min(2048, len - b);
                auto head = accurateModel(std::min(n, 8), out[b], out[b + 1], c);
                for (int i = 0; i < (int)head.size(); ++i) m[b + i] = head[i];
                for (int i = 8; i < n; ++i) m[b + i] = k4 * m[b + i - 4] - m[b + i - 8];
            }
            found = memcmp(m.data(), out.data(), len * 8) == 0;
        }
        EXPECT_TRUE(found) << f;
        // each block starts from a fresh seed of its own phase
        EXPECT_NEAR(out[2048], std::cos(std::fma(2048.0, w, phi)), 1e-15);
        EXPECT_NEAR(out[4096], std::cos(std::fma(4096.0, w, phi)), 1e-15);
    }
}

struct ToneBound { int kind; bool cplx; int hint; double base; };

const GenFn& gen(bool tone, int kind, bool cplx) {
    static const std::vector<GenFn> all = allGen();
    for (const GenFn& g : all)
        if (g.tone == tone && g.kind == kind && g.cplx == cplx) return g;
    abort();
}

// Against magn cos(w n + phi) in long double over 70000 samples. The seeds
// of a tier of b bits (26 for 16-bit data, 50 single, 53 double) put an
// error of about 2^-b / sin(w) into the frequency and the amplitude of the
// recurrence, which then grows with the samples run from one seed (the
// whole vector when Accurate, one block when Fast); the base term is the
// rounding of the output and the single-precision recurrence.
TEST(Tone, WithinBoundsOfClosedForm) {
    const ToneBound cases[] = {
        {2, false, 0, 1e-12}, {2, true, 0, 1e-12}, {2, false, 1, 1e-12}, {2, true, 1, 1e-12},
        {1, false, 0, 1e-6}, {1, true, 0, 1e-6}, {1, false, 1, 1e-4}, {1, true, 1, 1e-4},
        {0, false, 0, 0}, {0, true, 0, 0}, {0, false, 1, 1e-4}, {0, true, 1, 1e-4},
    };
    const int len = 70000;
    for (const ToneBound& c : cases) {
        for (double f : {0.001, 0.1234, 0.4})
        for (double phi : {0.0, 2.5}) {
            SCOPED_TRACE(testing::Message() << c.kind << " " << c.cplx << " hint " << c.hint << " f " << f << " phi " << phi);
            const double magn = c.kind == 0 ? 30000 : 3.0;
            const double fe = c.kind == 2 ? f : (double)(float)f;
            const double pe = c.kind == 2 ? phi : (double)(float)phi;
            std::vector<double> re(len), im(len);
            Phase ph(c.kind, phi);
            const GenFn& g = gen(true, c.kind, c.cplx);
            std::vector<uint8_t> d(len * g.elem);
            const VrxStatus st = g.call(d.data(), len, magn, f, 0, ph.ptr(), c.hint);
            for (int i = 0; i < len * (c.cplx ? 2 : 1); ++i) {
                const double v = c.kind == 2 ? ((double*)d.data())[i] : c.kind == 1 ? ((float*)d.data())[i] : ((int16_t*)d.data())[i];
                (c.cplx && (i & 1) ? im : re)[c.cplx ? i / 2 : i] = v;
            }
            ASSERT_EQ(st, vrxOk);
            // the frequency is w = 2pi rFreq formed in double, by definition
            const ld w = (ld)(kTwoPi * fe);
            ld err = 0;
            for (int i = 0; i < len; ++i) {
                const ld a = w * i + pe;
                err = std::max(err, std::fabs(re[i] - magn * std::cos(a)));
                if (c.cplx) err = std::max(err, std::fabs(im[i] - magn * std::sin(a)));
            }
            const double seedEps = c.kind == 0 ? 0x1p-26 : (c.kind == 1 ? 0x1p-50 : 0x1p-53);
            const int run = c.hint == vrxAlgHintFast ? (c.kind == 2 ? 2048 : 1024) : len;
            ld tol = (c.kind == 0 ? 1.0 : 0.0) + magn * (c.base + 4.0 * (2 + run) * seedEps / std::sin((double)w));
            if (c.hint == vrxAlgHintFast) {
                // the lag-L recurrence of a block: run/L steps on 2cos(L w)
                const int L = c.kind == 2 ? 4 : 8;
                const double eps = c.kind == 2 ? 0x1p-53 : 0x1p-24;
                tol += magn * 8.0 * run / L * eps / std::max(std::fabs(std::sin(L * (double)w)), 0.01);
            }
            EXPECT_LE(err, tol);
        }
    }
}

TEST(Tone, ZeroFrequencyAndHints) {
    // rFreq 0: a constant, the phase returned unchanged
    std::vector<float> d(100);
    float ph = 1.0f;
    ASSERT_EQ(vrxsTone_32f(d.data(), 100, 2.0f, 0.0f, &ph, 0), vrxOk);
    EXPECT_EQ(ph, 1.0f);
    for (float v : d) EXPECT_NEAR(v, 2.0 * std::cos(1.0), 1e-6);
    // hint 0 and 2 are the same path
    std::vector<float> a(5000), b(5000);
    float pa = 0.1f, pb = 0.1f;
    ASSERT_EQ(vrxsTone_32f(a.data(), 5000, 1.0f, 0.2f, &pa, 0), vrxOk);
    ASSERT_EQ(vrxsTone_32f(b.data(), 5000, 1.0f, 0.2f, &pb, 2), vrxOk);
    EXPECT_EQ(memcmp(a.data(), b.data(), sizeof(float) * 5000), 0);
}

// 16-bit: the double values (the whole Accurate vector, the head of each
// Fast block) are truncated toward zero.
TEST(Tone, SixteenBitTruncatesDoubleValues) {
    const int len = 3000;
    std::vector<int16_t> d16(len);
    std::vector<double> d64(len);
    float ph16 = 0.7f;
    double ph64 = (double)0.7f;
    ASSERT_EQ(vrxsTone_16s(d16.data(), len, 20000, 0.05f, &ph16, vrxAlgHintFast), vrxOk);
    ASSERT_EQ(vrxsTone_64f(d64.data(), len, 20000, (double)0.05f, &ph64, vrxAlgHintFast), vrxOk);
    for (int b = 0; b < len; b += 1024)
        for (int i = b; i < b + 16; ++i)
            EXPECT_LE(std::fabs(d16[i] - std::trunc(d64[i])), 1.0) << i;   // seeds of two tiers
    std::vector<int16_t> n16(8);
    ph16 = 0.0f;
    ASSERT_EQ(vrxsTone_16s(n16.data(), 8, 1000, 0.0f, &ph16, 0), vrxOk);
    for (int16_t v : n16) EXPECT_EQ(v, 1000);
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

struct TriCase { double f, a, phi; };

TEST(Triangle, RunningSumBitExact) {
    const TriCase cases[] = {
        {0.25, 0.0, 0.0}, {0.01, 0.0, 1.0}, {0.1, 1.0, 4.5}, {0.3, -2.0, 0.1}, {0.45, 3.1, 6.0},
        {0.49, 3.14, 0.2}, {0.2, -3.0, 3.0}, {0.0, 0.5, 2.0}, {0.77, 0.3, 1.0}, {0.95, 3.1, 5.0},
    };
    int both = 0;
    for (const TriCase& c : cases) {
        SCOPED_TRACE(testing::Message() << c.f << " " << c.a << " " << c.phi);
        const int len = 1000;
        const double m = 1000.0;
        if (c.f < 0.5) {
            std::vector<double> d(len);
            double ph = c.phi;
            ASSERT_EQ(vrxsTriangle_64f(d.data(), len, m, c.f, c.a, &ph), vrxOk);
            auto e = triangleModel<double>(len, m, c.f, c.a, c.phi, &both);
            EXPECT_EQ(memcmp(d.data(), e.data(), len * 8), 0);
            const float ff = (float)c.f, fa = (float)c.a, fp = (float)c.phi;
            std::vector<float> s(len);
            float phf = fp;
            ASSERT_EQ(vrxsTriangle_32f(s.data(), len, (float)m, ff, fa, &phf), vrxOk);
            auto es = triangleModel<float>(len, m, ff, fa, fp, &both);
            EXPECT_EQ(memcmp(s.data(), es.data(), len * 4), 0);
            std::vector<int16_t> h(len);
            phf = fp;
            ASSERT_EQ(vrxsTriangle_16s(h.data(), len, 1000, ff, fa, &phf), vrxOk);
            auto eh = triangleModel<int16_t>(len, m, ff, fa, fp, &both);
            EXPECT_EQ(memcmp(h.data(), eh.data(), len * 2), 0);
        }
        // complex: the imaginary part is the wave at phi + (2pi + pi + a)/2,
        // reduced once
        std::vector<double> z(2 * len), re(len), im(len);
        double ph = c.phi;
        ASSERT_EQ(vrxsTriangle_64fc((Vrx64fc*)z.data(), len, m, c.f, c.a, &ph), vrxOk);
        for (int i = 0; i < len; ++i) { re[i] = z[2 * i]; im[i] = z[2 * i + 1]; }
        double p2 = c.phi + 0.5 * (kTwoPi + kPi + c.a);
        if (p2 >= kTwoPi) p2 -= kTwoPi;
        auto er = triangleModel<double>(len, m, c.f, c.a, c.phi, &both);
        auto ei = triangleModel<double>(len, m, c.f, c.a, p2, &both);
        EXPECT_EQ(memcmp(re.data(), er.data(), len * 8), 0);
        EXPECT_EQ(memcmp(im.data(), ei.data(), len * 8), 0);
    }
    EXPECT_GT(both, 0);   // the both-peaks branch was reached
}

ld triangleExact(ld p, ld m, ld a) {
    const ld pi = 3.141592653589793238462643383279502884L;
    p = std::fmod(p, 2 * pi);
    return p < pi + a ? m * (1 - 2 * p / (pi + a)) : m * (2 * (p - pi - a) / (pi - a) - 1);
}

TEST(Triangle, WithinBoundsOfClosedForm) {
    for (double f : {0.001, 0.05, 0.3})
    for (double a : {0.0, 1.0, -2.5}) {
        SCOPED_TRACE(testing::Message() << f << " " << a);
        const int len = 20000;
        std::vector<double> d(len);
        double ph = 0.4;
        ASSERT_EQ(vrxsTriangle_64f(d.data(), len, 2.0, f, a, &ph), vrxOk);
        ld err = 0;
        const ld w = 2 * 3.141592653589793238462643383279502884L * f;
        for (int i = 0; i < len; ++i) err = std::max(err, std::fabs(d[i] - triangleExact(w * i + 0.4L, 2.0L, a)));
        // a running sum: the error grows at most linearly in n, and each
        // reflection scales it by the ratio of the slopes
        const double ratio = std::max((kPi - a) / (kPi + a), (kPi + a) / (kPi - a));
        EXPECT_LE(err, 2.0 * 4e-16 * len * ratio);
    }
    // a = 0, phi = 0: +M first, an exact -M at n = 1/(2f)
    std::vector<float> t(16);
    float ph = 0.0f;
    ASSERT_EQ(vrxsTriangle_32f(t.data(), 16, 5.0f, 0.125f, 0.0f, &ph), vrxOk);
    EXPECT_EQ(t[0], 5.0f);
    EXPECT_EQ(t[4], -5.0f);
    EXPECT_EQ(t[8], 5.0f);
    EXPECT_EQ(t[2], 0.0f);
}

}  // namespace
