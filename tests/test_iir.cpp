// IIR filters: every one of the 26 state kinds against a long-double direct
// form II transposed model, block and call-split invariance, in place,
// direct form I to the bit, integer scaling, saturation and rounding modes,
// state sizes and placement, zero taps, multi-channel runs, the check
// tables, and SciPy reference outputs.
#include <algorithm>
#include <cmath>

#include "data/iir_golden.h"
#include "test_iir_common.h"

using namespace iirt;

namespace {

// The model's output for x, with per-section extremes of input and output,
// and the bound of the error that a run in the kind's arithmetic may have:
// each section adds a few eps of its terms, carried by the section's own
// recursion (L1 of 1/A) and by every later section (L1 of its response).
struct Reference {
    V y;
    long double tol;
};
Reference reference(const Api& k, Model m, const V& x) {
    const size_t S = m.b.size();
    std::vector<long double> xin(S, 0), yout(S, 0), dmax(S, 0);
    Reference r;
    r.y.resize(x.size());
    for (size_t i = 0; i < x.size(); ++i) {
        cld v = x[i];
        for (size_t s = 0; s < S; ++s) {
            xin[s] = std::max(xin[s], std::abs(v));
            const size_t n = m.b[s].size() - 1;
            V& l = m.d[s];
            cld y = m.b[s][0] * v + l[0];
            for (size_t j = 0; j < n; ++j) l[j] = m.b[s][j + 1] * v - m.a[s][j + 1] * y + l[j + 1];
            for (size_t j = 0; j < n; ++j) dmax[s] = std::max(dmax[s], std::abs(l[j]));
            yout[s] = std::max(yout[s], std::abs(y));
            v = y;
        }
        r.y[i] = v;
    }
    r.tol = 0;
    for (size_t s = 0; s < S; ++s) {
        Model g = m;
        V one(m.b[s].size(), cld(0));
        one[0] = 1;
        g.b[s] = one;
        long double sb = 0, sa = 0;
        for (cld v : m.b[s]) sb += std::abs(v);
        for (cld v : m.a[s]) sa += std::abs(v);
        long double inj = 8 * k.eps * (m.b[s].size() + 1) * g.l1(s, s + 1) * (sb * xin[s] + sa * yout[s] + dmax[s]);
        if (k.cplxTaps) inj *= 2;
        r.tol += inj * (s + 1 < S ? m.l1(s + 1, S) : 1.0L);
    }
    return r;
}

// The taps as the kind holds them (rounded to its tap type).
V asTaps(const Api& k, V t) {
    for (cld& v : t) {
        if (k.eps > 0x1p-30L) v = cld(static_cast<float>(v.real()), static_cast<float>(v.imag()));
        else v = cld(static_cast<double>(v.real()), static_cast<double>(v.imag()));
        if (!k.cplxTaps) v = cld(v.real(), 0);
    }
    return t;
}

V runPieces(const Api& k, VrxsIirState* st, const V& x, const std::vector<int>& pieces, int sf = 0, bool inPlace = false) {
    std::vector<uint8_t> in = pack(k, x), out(inPlace ? in : std::vector<uint8_t>(in.size(), 0));
    size_t at = 0;
    for (int p : pieces) {
        uint8_t* o = out.data() + at * k.sampleBytes;
        EXPECT_EQ(inPlace ? k.runI(o, p, st, sf) : k.run(in.data() + at * k.sampleBytes, o, p, st, sf), vrxOk);
        at += p;
    }
    return unpack(k, out, x.size());
}

std::vector<int> randomSplit(vt::Rng& g, int len) {
    std::vector<int> p;
    while (len > 0) {
        int c = static_cast<int>(g.range(1, g.uniform() < 0.5 ? 9 : 1500));
        c = std::min(c, len);
        p.push_back(c);
        len -= c;
    }
    return p;
}

long double roundEven(long double v) { return std::nearbyint(v); }

// ------------------------------------------------------------ the model
TEST(Iir, EveryKindFollowsTheModel) {
    vt::Rng g(11);
    int cases = 0;
    for (const Api& k : kinds()) {
        std::vector<int> orders;
        for (int n = 1; n <= (k.bq() ? 8 : 12); ++n) orders.push_back(n);
        if (!k.bq()) orders.insert(orders.end(), {16, 20, 24});  // past a register of outputs; per sample
        for (int n : orders) {
            V taps = asTaps(k, k.bq() ? randomBQ(g, n, k.cplxTaps) : randomAR(g, n, k.cplxTaps));
            Model m(k, taps, n);
            const long double h1 = m.l1(0, static_cast<int>(m.b.size()));
            const long double amp = k.intSamples ? std::floor(k.sampleMax / (2 * h1 + 1)) : 1.0L;
            const int len = 2600;
            V x = randomSamples(k, g, len, amp);
            Reference ref = reference(k, m, x);
            StateBox box(k, taps, n);
            ASSERT_EQ(box.status, vrxOk) << k.name;
            V y = runPieces(k, box.st, x, randomSplit(g, len));
            long double worst = 0;
            for (int i = 0; i < len; ++i) {
                long double e = std::abs(y[i] - ref.y[i]);
                if (k.intSamples) {
                    cld want(roundEven(ref.y[i].real()), roundEven(ref.y[i].imag()));
                    e = std::abs(y[i] - want) - 1.5L - ref.tol;  // the model rounded, within one unit
                    ASSERT_LE(e, 0) << k.name << " n=" << n << " i=" << i << " got " << y[i] << " want " << ref.y[i];
                } else {
                    // samples narrower than the arithmetic round once more
                    const long double out = k.sampleBytes == (k.cplxSamples ? 8 : 4) && k.eps < 0x1p-30L ? 0x1p-24L : 0;
                    worst = std::max(worst, e);
                    ASSERT_LE(e, ref.tol + out * std::abs(ref.y[i])) << k.name << " n=" << n << " i=" << i << " got " << y[i] << " want " << ref.y[i];
                }
            }
            // the line out of the state is the model's
            V line;
            ASSERT_EQ(k.get(box.st, line, k.lineLen(n)), vrxOk);
            if (k.form == Form::AR || k.form == Form::BQ) {
                V want;
                Model mm = m;
                for (int i = 0; i < len; ++i) mm.step(x[i]);
                for (const V& l : mm.d) want.insert(want.end(), l.begin(), l.end() - 1);
                ASSERT_EQ(want.size(), line.size());
                for (size_t i = 0; i < line.size(); ++i)
                    ASSERT_LE(std::abs(line[i] - want[i]), ref.tol * 4 + 1e-30L) << k.name << " line " << i;
            }
            ++cases;
        }
    }
    EXPECT_EQ(cases, 12 * 15 + 14 * 8);
}

// --------------------------------------------------------- invariance
// 2048 samples in one call, two calls of 1024 and random pieces; and L = 4N
// against 4N+1 in one call: the same outputs and lines within rounding; in
// place the same outputs as out of place.
TEST(Iir, BlocksAndCallSplitsAgree) {
    vt::Rng g(12);
    for (const Api& k : kinds()) {
        for (int n : {1, 2, 3, 5, 8}) {
            V taps = asTaps(k, k.bq() ? randomBQ(g, n, k.cplxTaps) : randomAR(g, n, k.cplxTaps));
            Model m(k, taps, n);
            const long double h1 = m.l1(0, static_cast<int>(m.b.size()));
            const long double amp = k.intSamples ? std::floor(k.sampleMax / (2 * h1 + 1)) : 1.0L;
            V x = randomSamples(k, g, 2048, amp);
            const long double tol = 2 * reference(k, m, x).tol + (k.intSamples ? 1 : 0);
            std::vector<std::vector<int>> splits = {{2048}, {1024, 1024}, randomSplit(g, 2048),
                                                    {4 * n, 2048 - 4 * n}, {4 * n + 1, 2048 - 4 * n - 1}};
            std::vector<V> outs, lines;
            for (auto& sp : splits) {
                StateBox box(k, taps, n), io(k, taps, n);
                outs.push_back(runPieces(k, box.st, x, sp));
                ASSERT_EQ(runPieces(k, io.st, x, sp, 0, true), outs.back()) << k.name << " n=" << n << ": in place";
                V l;
                k.get(box.st, l, k.lineLen(n));
                lines.push_back(l);
            }
            for (size_t c = 1; c < outs.size(); ++c) {
                for (int i = 0; i < 2048; ++i)
                    ASSERT_LE(std::abs(outs[c][i] - outs[0][i]), tol) << k.name << " n=" << n << " split " << c << " i=" << i;
                for (size_t i = 0; i < lines[0].size(); ++i)
                    ASSERT_LE(std::abs(lines[c][i] - lines[0][i]), tol + (k.form == Form::DF1s ? 1 : 0))
                        << k.name << " n=" << n << " split " << c << " line " << i;
            }
            // a short first call of 4N and of 4N+1 samples leaves lines that agree
            for (int L : {4 * n, 4 * n + 1}) {
                StateBox a(k, taps, n), b(k, taps, n);
                V xs(x.begin(), x.begin() + L + 1);
                runPieces(k, a.st, xs, {L, 1});
                runPieces(k, b.st, xs, {L + 1});
                V la, lb;
                k.get(a.st, la, k.lineLen(n));
                k.get(b.st, lb, k.lineLen(n));
                for (size_t i = 0; i < la.size(); ++i) ASSERT_LE(std::abs(la[i] - lb[i]), tol + (k.form == Form::DF1s ? 1 : 0)) << k.name;
            }
        }
    }
}

// ---------------------------------------------------------- direct form I
// y = b1*x[n-1], then + b0*x[n], + b2*x[n-2], - a1*y[n-1], - a2*y[n-2], each
// a fused multiply-add; taps kept as given when a0 is 1, else times 1/a0.
TEST(Iir, DirectFormIFloatToTheBit) {
    vt::Rng g(14);
    for (int m = 1; m <= 4; ++m) {
        for (float a0 : {1.0f, 3.0f}) {
            std::vector<float> taps(6 * m), line(4 * m);
            for (int s = 0; s < m; ++s) {
                V t = randomAR(g, 2, false);
                for (int j = 0; j < 6; ++j) taps[6 * s + j] = static_cast<float>(t[j].real() / t[3].real()) * a0;
                if (s == 1) taps[6 * s] = 0;  // b0 = 0 is accepted here
            }
            for (float& v : line) v = static_cast<float>(g.uniform() - 0.5);
            int size = 0;
            ASSERT_EQ(vrxsIIRGetStateSize_BiQuad_DF1_32f(m, &size), vrxOk);
            std::vector<uint8_t> mem(size);
            VrxsIirState* st = nullptr;
            ASSERT_EQ(vrxsIIRInit_BiQuad_DF1_32f(&st, taps.data(), m, line.data(), mem.data()), vrxOk);
            std::vector<float> q(5 * m), l = line;
            for (int s = 0; s < m; ++s) {
                const float inv = 1.0f / taps[6 * s + 3];
                const int src[5] = {0, 1, 2, 4, 5};
                for (int j = 0; j < 5; ++j) q[5 * s + j] = a0 == 1.0f ? taps[6 * s + src[j]] : taps[6 * s + src[j]] * inv;
            }
            const int len = 2100;
            std::vector<float> x(len), want(len), got(len);
            for (float& v : x) v = static_cast<float>(2 * g.uniform() - 1);
            for (int s = 0; s < m; ++s) {
                const float* t = &q[5 * s];
                float* d = &l[4 * s];
                for (int i = 0; i < len; ++i) {
                    const float xi = s == 0 ? x[i] : want[i];
                    float acc = t[1] * d[1];
                    acc = std::fma(t[0], xi, acc);
                    acc = std::fma(t[2], d[0], acc);
                    acc = std::fma(-t[3], d[3], acc);
                    acc = std::fma(-t[4], d[2], acc);
                    want[i] = acc;
                    d[0] = d[1]; d[1] = xi; d[2] = d[3]; d[3] = acc;
                }
            }
            int at = 0;
            for (int step : {5, 1000, 1095}) {
                ASSERT_EQ(vrxsIIR_32f(x.data() + at, got.data() + at, step, st), vrxOk);
                at += step;
            }
            for (int i = 0; i < len; ++i) ASSERT_TRUE(vt::sameBits(got[i], want[i])) << "m=" << m << " i=" << i;
            std::vector<float> out(4 * m);
            ASSERT_EQ(vrxsIIRGetDlyLine_32f(st, out.data()), vrxOk);
            for (int i = 0; i < 4 * m; ++i) ASSERT_TRUE(vt::sameBits(out[i], l[i])) << i;
        }
    }
}

// The 32s direct form I line: Set and Get move whole numbers untouched; a
// run leaves the unscaled y inside, Get rounds it, and Set of what Get gave
// continues with only the fractions lost.
TEST(Iir, DirectFormILineOf32sRoundTrips) {
    vt::Rng g(15);
    const int m = 2;
    V taps = randomBQ(g, m, false);
    std::vector<double> t(6 * m);
    for (int i = 0; i < 6 * m; ++i) t[i] = static_cast<double>(taps[i].real());
    std::vector<Vrx32s> line = {5, -7, 100, -3, 9, 11, -250, 40};
    int size = 0;
    ASSERT_EQ(vrxsIIRGetStateSize64f_BiQuad_DF1_32s(m, &size), vrxOk);
    std::vector<uint8_t> mem(size), mem2(size);
    VrxsIirState *st = nullptr, *st2 = nullptr;
    ASSERT_EQ(vrxsIIRInit64f_BiQuad_DF1_32s(&st, t.data(), m, line.data(), mem.data()), vrxOk);
    std::vector<Vrx32s> out(4 * m);
    ASSERT_EQ(vrxsIIRGetDlyLine64f_DF1_32s(st, out.data()), vrxOk);
    EXPECT_EQ(out, line);
    // the model: direct form I in long double from the same line
    std::vector<long double> dl(line.begin(), line.end());
    std::vector<Vrx32s> x(300), y(300);
    for (Vrx32s& v : x) v = static_cast<Vrx32s>(g.range(-20000, 20000));
    ASSERT_EQ(vrxsIIR64f_32s_Sfs(x.data(), y.data(), 300, st, 0), vrxOk);
    std::vector<long double> in(x.begin(), x.end());
    for (int s = 0; s < m; ++s) {
        long double a0 = t[6 * s + 3];
        long double b0 = t[6 * s] / a0, b1 = t[6 * s + 1] / a0, b2 = t[6 * s + 2] / a0, a1 = t[6 * s + 4] / a0, a2 = t[6 * s + 5] / a0;
        long double* d = &dl[4 * s];
        for (long double& v : in) {
            long double yy = b0 * v + b1 * d[1] + b2 * d[0] - a1 * d[3] - a2 * d[2];
            d[0] = d[1]; d[1] = v; d[2] = d[3]; d[3] = yy;
            v = yy;
        }
    }
    for (int i = 0; i < 300; ++i) ASSERT_LE(std::fabs(y[i] - in[i]), 1.5L) << i;
    ASSERT_EQ(vrxsIIRGetDlyLine64f_DF1_32s(st, out.data()), vrxOk);
    for (int i = 0; i < 4 * m; ++i) ASSERT_LE(std::fabs(out[i] - dl[i]), 0.5L + 1e-6L) << i;
    // Set what Get gave: both states go on within the lost fractions
    ASSERT_EQ(vrxsIIRInit64f_BiQuad_DF1_32s(&st2, t.data(), m, nullptr, mem2.data()), vrxOk);
    ASSERT_EQ(vrxsIIRSetDlyLine64f_DF1_32s(st2, out.data()), vrxOk);
    std::vector<Vrx32s> out2(4 * m);
    ASSERT_EQ(vrxsIIRGetDlyLine64f_DF1_32s(st2, out2.data()), vrxOk);
    EXPECT_EQ(out2, out);
    std::vector<Vrx32s> y1(50), y2(50);
    vrxsIIR64f_32s_Sfs(x.data(), y1.data(), 50, st, 0);
    vrxsIIR64f_32s_Sfs(x.data(), y2.data(), 50, st2, 0);
    for (int i = 0; i < 50; ++i) EXPECT_LE(std::abs(y1[i] - y2[i]), 8) << i;
    ASSERT_EQ(vrxsIIRSetDlyLine64f_DF1_32s(st2, nullptr), vrxOk);
    ASSERT_EQ(vrxsIIRGetDlyLine64f_DF1_32s(st2, out2.data()), vrxOk);
    EXPECT_EQ(out2, std::vector<Vrx32s>(4 * m, 0));
}

// -------------------------------------------------------- integer samples
// A pass-through of gain c: y = c*x exactly, so the output is
// round-to-even(clamp(c*x*2^-sf')) with sf' = sign(sf)*(|sf| mod 128), in
// every rounding mode of the caller, whose MXCSR comes back unchanged.
TEST(Iir, IntegerScaleSaturateAndTiesInEveryMode) {
    int checked = 0;
    for (const Api& k : kinds()) {
        if (!k.intSamples) continue;
        const bool f32 = k.eps > 0x1p-30L;
        for (long double c : {0.5L, 1.0L, -1.5L}) {
            const int n = 1;
            V taps = k.bq() ? V{c, 0, 0, 1, 0, 0} : V{c, 0, 1, 0};
            std::vector<long double> xs = {0, 1, -1, 3, -3, 5, 7, -9, 255, 1001, -1001, 32767, -32768, 12345, -777};
            if (k.sampleMax > 40000) { xs.push_back(2147483647.0L); xs.push_back(-2147483648.0L); xs.push_back(1234567891); }
            V x;
            for (long double v : xs) x.push_back(cld(v, k.cplxSamples ? -v - 1 : 0));
            for (int sf = -140; sf <= 140; ++sf) {
                const int e = sf < 0 ? -((-sf) % 128) : sf % 128;
                for (unsigned mode : {vt::kRoundNear, vt::kRoundDown, vt::kRoundUp, vt::kRoundZero}) {
                    if (mode != vt::kRoundNear && (sf % 7) != 0) continue;
                    StateBox box(k, taps, n);
                    ASSERT_EQ(box.status, vrxOk);
                    vt::MxcsrScope scope;
                    const unsigned before = (_mm_getcsr() & ~0x6000u) | mode;
                    _mm_setcsr(before);
                    V y = runPieces(k, box.st, x, {static_cast<int>(x.size())}, sf);
                    const unsigned after = _mm_getcsr();
                    ASSERT_EQ(after & ~0x3Fu, before & ~0x3Fu) << k.name;
                    for (size_t i = 0; i < x.size(); ++i) {
                        for (int part = 0; part < (k.cplxSamples ? 2 : 1); ++part) {
                            long double v = (part ? x[i].imag() : x[i].real()) * c;
                            v = (f32 && e == 127) ? 0 : std::ldexp(v, -e);
                            const long double hi = k.sampleMax, lo = -k.sampleMax - 1;
                            long double want = v > hi ? hi : (v < lo ? lo : roundEven(v));
                            long double got = part ? y[i].imag() : y[i].real();
                            ASSERT_EQ(got, want) << k.name << " sf=" << sf << " x=" << xs[i] << " c=" << (double)c
                                                 << " mode=" << mode;
                        }
                    }
                    ++checked;
                }
            }
        }
    }
    EXPECT_GT(checked, 8 * 3 * 281);
}

// An integrator y[n] = x[n] + y[n-1]: the output saturates, the line keeps
// the unsaturated sum and the next call goes on from it.
TEST(Iir, SaturationKeepsTheLineUnsaturated) {
    for (const Api& k : kinds()) {
        if (!k.intSamples || k.form == Form::DF1s) continue;
        V taps = k.bq() ? V{1, 0, 0, 1, -1, 0} : V{1, 0, 1, -1};
        const long double big = std::floor(k.sampleMax * 0.9L);
        StateBox box(k, taps, 1);
        V x1 = {cld(big, k.cplxSamples ? -big : 0), cld(big, k.cplxSamples ? -big : 0)};
        V y1 = runPieces(k, box.st, x1, {2});
        EXPECT_EQ(y1[1].real(), k.sampleMax) << k.name;
        if (k.cplxSamples) {
            EXPECT_EQ(y1[1].imag(), -k.sampleMax - 1) << k.name;
        }
        V line;
        ASSERT_EQ(k.get(box.st, line, k.lineLen(1)), vrxOk);
        EXPECT_EQ(line[0].real(), std::nearbyint(2 * big)) << k.name;
        V x2 = {cld(-big, k.cplxSamples ? big : 0)};
        V y2 = runPieces(k, box.st, x2, {1});
        EXPECT_EQ(y2[0].real(), std::nearbyint(big)) << k.name;
        if (k.cplxSamples) {
            EXPECT_EQ(y2[0].imag(), -std::nearbyint(big)) << k.name;
        }
    }
}

// A NaN line makes NaN outputs, written as the conversion's 0x80000000 (16s:
// its low half, 0); an infinite one saturates: per sample (3) and by blocks
// (40).
TEST(Iir, IntegerWritersOnNaNAndInfinity) {
    for (const Api& k : kinds()) {
        if (!k.intSamples || k.form == Form::DF1s) continue;
        V taps = k.bq() ? V{1, 0, 0, 1, 0, 0} : V{1, 0, 1, 0};
        for (int len : {3, 40}) {
            for (long double fill : {NAN, INFINITY}) {
                StateBox box(k, taps, 1);
                V line(k.lineLen(1), cld(fill, 0));
                ASSERT_EQ(k.set(box.st, &line, k.lineLen(1)), vrxOk);
                V y = runPieces(k, box.st, V(len, cld(5, 0)), {len});
                const bool inf = !std::isnan(fill);
                if (k.cplxSamples && inf) continue;  // complex products of infinities are NaN in part
                const long double nan = k.sampleMax > 40000 ? -k.sampleMax - 1 : 0;
                for (int i = 0; i < len; ++i)
                    ASSERT_EQ(y[i].real(), inf && i == 0 ? k.sampleMax : nan) << k.name << " len=" << len << " i=" << i;
            }
        }
    }
}

// ---------------------------------------------------------------- sizes
long double sizeFormula(const Api& k, long long n) {
    auto R16 = [](long long v) { return v & ~15LL; };
    auto R32 = [](long long v) { return v & ~31LL; };
    const uint32_t w = k.word;
    const long long B = (w >= 0x49493031 && w <= 0x49493034) || (w >= 0x49493133 && w <= 0x49493136) ? 1 : 2;
    const bool f32 = k.eps > 0x1p-30L;
    if (k.form == Form::DF1f) return R16(20 * n + 15) + 176 + 16 * n;
    if (k.form == Form::DF1s) return R16(40 * n + 15) + 304 * n + 16480;
    const bool ar = k.form == Form::AR;
    if (f32 && !k.cplxTaps) {
        long long T = 4 * n + 12;
        if (w == 0x49493031 && n == 2) T = std::max(T, 120LL);
        return ar ? R16(8 * n + 19) + R16(4 * n + 19) + 216 + 4 * (T + 4 + 4 * n + 1024 * B)
                  : R16(20 * n + 15) + R16(8 * n + 15) + 216 + 4 * (1024 * B + 40 * n);
    }
    if (f32) return ar ? R32(16 * n + 39) + R32(8 * n + 39) + 160 * n + 560 + 8 * 1024 * B
                       : R32(40 * n + 31) + R32(16 * n + 31) + 224 + 8 * (148 * n + 1024 * B);
    if (!k.cplxTaps) return ar ? 64 * n + R16(8 * n + 23) + 8 * 1024 * B + 304 : R16(40 * n + 15) + 272 * n + 112 + 8 * 1024 * B;
    if (ar) return B == 1 ? 272 * n + 192 + 16 * (1024 + n + 10) : 272 * n + 192 + 16 * (2048 + 2 * n + 10);
    return 1136 * n + 160 + 16 * 1024 * B;
}

TEST(Iir, StateSizesAreTheFormulas) {
    for (const Api& k : kinds())
        for (int n = 1; n <= 64; ++n) {
            int size = -1;
            ASSERT_EQ(k.size(n, &size), vrxOk);
            ASSERT_EQ(size, sizeFormula(k, n)) << k.name << " n=" << n;
        }
}

// At every start modulo 32, the state lies on the block's first 32-byte
// boundary and Init, runs and line moves stay inside the reported size.
TEST(Iir, StateStaysInsideItsBlock) {
    vt::Rng g(16);
    for (const Api& k : kinds()) {
        for (int n : {1, 2, 3, 7, 12, 33, 64}) {
            V taps = asTaps(k, k.bq() ? randomBQ(g, n, k.cplxTaps) : randomAR(g, n, k.cplxTaps));
            int size = 0;
            k.size(n, &size);
            for (size_t off = 0; off < 32; off += (n == 2 ? 1 : 5)) {
                vt::Buffer buf(size, off);
                VrxsIirState* st = nullptr;
                ASSERT_EQ(k.init(&st, taps, n, nullptr, buf.data()), vrxOk);
                const uintptr_t p = reinterpret_cast<uintptr_t>(st), b = reinterpret_cast<uintptr_t>(buf.data());
                ASSERT_EQ(p % 32, 0u);
                ASSERT_LT(p - b, 32u);
                ASSERT_EQ(*reinterpret_cast<uint32_t*>(st), k.word);
                V x = randomSamples(k, g, 1500, k.intSamples ? 100 : 1);
                runPieces(k, st, x, {1500});
                V l;
                k.get(st, l, k.lineLen(n));
                k.set(st, &l, k.lineLen(n));
                ASSERT_TRUE(buf.guardsIntact()) << k.name << " n=" << n << " off=" << off;
            }
        }
    }
}

// ------------------------------------------------------------ zero taps
TEST(Iir, ZeroA0AndB0) {
    for (const Api& k : kinds()) {
        const int n = k.bq() ? 3 : 2;
        V taps = k.bq() ? V{1, .5, .25, 1, .1, .2, 1, .5, .25, 2, .1, .2, 1, .5, .25, 1, .1, .2} : V{1, .5, .25, 2, .1, .2};
        taps = asTaps(k, taps);
        // a zero a0 (AR) or a zero a0 in the second section
        V bad = taps;
        bad[k.bq() ? 9 : 3] = 0;
        StateBox a(k, bad, n);
        EXPECT_EQ(a.status, vrxErrDivByZero) << k.name;
        ASSERT_NE(a.st, nullptr) << k.name << ": the state's pointers stay set";
        EXPECT_EQ(reinterpret_cast<uintptr_t>(a.st) % 32, 0u);
        if (!k.bq()) continue;
        // b0 = 0: refused except by the direct form I float state
        V b = taps;
        b[6] = 0;
        StateBox c(k, b, n);
        EXPECT_EQ(c.status, k.form == Form::DF1f ? vrxOk : vrxErrDivByZero) << k.name;
        if (k.cplxTaps) {  // a nonzero imaginary part is no zero
            V d = taps;
            d[9] = cld(0, 0.5L);
            d[6] = cld(0, 0.5L);
            StateBox e(k, d, n);
            EXPECT_EQ(e.status, vrxOk) << k.name;
        }
    }
}

// ---------------------------------------------------------- multi-channel
TEST(Iir, MultiChannelEqualsSingleCalls) {
    vt::Rng g(17);
    const int ch = 5, len = 1300;
    auto makeStates = [&](const Api& k, int n, const std::vector<V>& taps, std::vector<std::vector<uint8_t>>& mem) {
        std::vector<VrxsIirState*> st(ch);
        int size = 0;
        k.size(n, &size);
        mem.assign(ch, std::vector<uint8_t>(size));
        for (int c = 0; c < ch; ++c) EXPECT_EQ(k.init(&st[c], taps[c], n, nullptr, mem[c].data()), vrxOk);
        return st;
    };
    for (const Api& k : kinds()) {
        const bool f = k.word == 0x49493032 || k.word == 0x49493239;
        const bool s = k.word == 0x49493231 || k.word == 0x49493232 || k.word == 0x49493330;
        if (!f && !s) continue;
        const int n = 3;
        std::vector<V> taps(ch);
        for (V& t : taps) t = asTaps(k, k.bq() ? randomBQ(g, n, false) : randomAR(g, n, false));
        std::vector<std::vector<uint8_t>> m1, m2, m3;
        auto s1 = makeStates(k, n, taps, m1), s2 = makeStates(k, n, taps, m2), s3 = makeStates(k, n, taps, m3);
        std::vector<std::vector<uint8_t>> in(ch), outP(ch), outS(ch), io(ch);
        std::vector<const void*> srcs(ch);
        std::vector<void*> dsts(ch), ios(ch);
        for (int c = 0; c < ch; ++c) {
            in[c] = pack(k, randomSamples(k, g, len, s ? 1000 : 1));
            outP[c].assign(in[c].size(), 0);
            outS[c].assign(in[c].size(), 0);
            io[c] = in[c];
            srcs[c] = in[c].data();
            dsts[c] = outP[c].data();
            ios[c] = io[c].data();
            ASSERT_EQ(k.run(in[c].data(), outS[c].data(), len, s1[c], 2), vrxOk);
        }
        if (f) {
            ASSERT_EQ(vrxsIIR_32f_P(reinterpret_cast<const Vrx32f**>(srcs.data()), reinterpret_cast<Vrx32f**>(dsts.data()), len, ch, s2.data()), vrxOk);
            ASSERT_EQ(vrxsIIR_32f_IP(reinterpret_cast<Vrx32f**>(ios.data()), len, ch, s3.data()), vrxOk);
        } else {
            ASSERT_EQ(vrxsIIR64f_32s_PSfs(reinterpret_cast<const Vrx32s**>(srcs.data()), reinterpret_cast<Vrx32s**>(dsts.data()), len, ch, s2.data(), 2), vrxOk);
            ASSERT_EQ(vrxsIIR64f_32s_IPSfs(reinterpret_cast<Vrx32s**>(ios.data()), len, ch, s3.data(), 2), vrxOk);
        }
        for (int c = 0; c < ch; ++c) {
            EXPECT_EQ(outP[c], outS[c]) << k.name << " channel " << c;
            EXPECT_EQ(io[c], outS[c]) << k.name << " channel " << c;
        }
        // a differing word at channel 3: -17, channels 0..2 filtered, 3 and 4 untouched
        // (the other accepted word of the pair)
        const uint32_t ow = k.word == 0x49493032 ? 0x49493239 : k.word == 0x49493239 ? 0x49493032 : k.word == 0x49493330 ? 0x49493232 : 0x49493330;
        const Api& o = *std::find_if(kinds().begin(), kinds().end(), [&](const Api& a) { return a.word == ow; });
        StateBox foreign(o, V{1, 0, 0, 1, 0, 0}, 1);
        s2[3] = foreign.st;
        for (auto& o : outP) std::fill(o.begin(), o.end(), 0);
        VrxStatus st = f ? vrxsIIR_32f_P(reinterpret_cast<const Vrx32f**>(srcs.data()), reinterpret_cast<Vrx32f**>(dsts.data()), len, ch, s2.data())
                         : vrxsIIR64f_32s_PSfs(reinterpret_cast<const Vrx32s**>(srcs.data()), reinterpret_cast<Vrx32s**>(dsts.data()), len, ch, s2.data(), 2);
        EXPECT_EQ(st, vrxErrBadSpec) << k.name;
        for (int c = 0; c < ch; ++c)
            EXPECT_EQ(outP[c] == std::vector<uint8_t>(outP[c].size(), 0), c >= 3) << k.name << " channel " << c;
    }
}

TEST(Iir, MultiChannelWordsAndCounts) {
    std::vector<uint8_t> mem(1 << 16);
    VrxsIirState* ar32f = nullptr;
    std::vector<float> t = {1, 0.5f, 1, 0.25f};
    ASSERT_EQ(vrxsIIRInit_32f(&ar32f, t.data(), 1, nullptr, mem.data()), vrxOk);
    float x[4] = {1, 2, 3, 4}, y[4];
    const Vrx32f* src[1] = {x};
    Vrx32f* dst[1] = {y};
    VrxsIirState* st[1] = {ar32f};
    EXPECT_EQ(vrxsIIR_32f_P(src, dst, 4, 1, st), vrxErrBadSpec);  // AR states are not taken
    EXPECT_EQ(vrxsIIR_32f_P(src, dst, 4, 0, st), vrxErrChannelCount);
    VrxsIirState* none[1] = {nullptr};
    EXPECT_EQ(vrxsIIR_32f_P(src, dst, 4, 1, none), vrxErrNullPtr);
    // the 32s pair counts channels with -47; both count before the states
    EXPECT_EQ(vrxsIIR_32f_P(src, dst, 4, 0, none), vrxErrChannelCount);
    Vrx32s xi[3] = {4, 8, 12}, yi[3];
    const Vrx32s* si[1] = {xi};
    Vrx32s* di[1] = {yi};
    EXPECT_EQ(vrxsIIR64f_32s_PSfs(si, di, 3, 0, none, 0), vrxErrChannels);
}

// ------------------------------------------------------------ check tables
TEST(Iir, CheckTables) {
    for (const Api& k : kinds()) {
        int size = 12345;
        EXPECT_EQ(k.size(0, &size), vrxErrIirOrder) << k.name;
        EXPECT_EQ(k.size(-3, &size), vrxErrIirOrder) << k.name;
        EXPECT_EQ(size, 12345);
        std::vector<uint8_t> mem(1 << 16, 0x5A);
        VrxsIirState* st = reinterpret_cast<VrxsIirState*>(0x1);
        V taps = k.bq() ? V{1, 0, 0, 1, 0, 0} : V{1, 0, 1, 0};
        EXPECT_EQ(k.init(&st, taps, 0, nullptr, mem.data()), vrxErrIirOrder) << k.name;
        EXPECT_EQ(st, reinterpret_cast<VrxsIirState*>(0x1));
        EXPECT_EQ(mem, std::vector<uint8_t>(1 << 16, 0x5A)) << k.name << ": written on failure";
        // every kind's state: taken by the runs and line pairs it shares, else
        // -17 (after a bad length's -6), nothing written
        for (const Api& o : kinds()) {
            StateBox box(o, o.bq() ? V{1, 0, 0, 1, 0, 0} : V{1, 0, 1, 0}, 1);
            std::vector<uint8_t> in(64 * k.sampleBytes, 1), out(64 * k.sampleBytes, 0x77);
            EXPECT_EQ(k.run(in.data(), out.data(), 0, box.st, 0), vrxErrBadLength);
            const VrxStatus run = k.run(in.data(), out.data(), 64, box.st, 0), runI = k.runI(out.data(), 64, box.st, 0);
            EXPECT_EQ(run, k.runFn == o.runFn ? vrxOk : vrxErrBadSpec) << k.name << " with " << o.name;
            EXPECT_EQ(runI, run) << k.name << " with " << o.name;
            if (run != vrxOk) {
                EXPECT_EQ(out, std::vector<uint8_t>(out.size(), 0x77));
            }
            V l(o.lineLen(1), cld(1, 0));
            const VrxStatus line = k.lineFn == o.lineFn ? vrxOk : vrxErrBadSpec;
            EXPECT_EQ(k.get(box.st, l, o.lineLen(1)), line) << k.name << " with " << o.name;
            EXPECT_EQ(k.set(box.st, &l, o.lineLen(1)), line) << k.name << " with " << o.name;
        }
    }
}

// The float line pair moves the direct form I line too; a null line at Set
// is zeros.
TEST(Iir, DirectFormIFloatLineThroughTheFloatPair) {
    std::vector<uint8_t> mem(1 << 16);
    VrxsIirState* st = nullptr;
    std::vector<float> t = {1, 0.5f, 0.25f, 1, 0.1f, 0.2f};
    std::vector<float> line = {1, 2, 3, 4}, out(4, -1);
    ASSERT_EQ(vrxsIIRInit_BiQuad_DF1_32f(&st, t.data(), 1, line.data(), mem.data()), vrxOk);
    ASSERT_EQ(vrxsIIRGetDlyLine_32f(st, out.data()), vrxOk);
    EXPECT_EQ(out, line);
    ASSERT_EQ(vrxsIIRSetDlyLine_32f(st, nullptr), vrxOk);
    ASSERT_EQ(vrxsIIRGetDlyLine_32f(st, out.data()), vrxOk);
    EXPECT_EQ(out, std::vector<float>(4, 0));
}

// --------------------------------------------------------------- SciPy
TEST(Iir, MatchesScipyReferences) {
    const int n = 8;
    std::vector<double> tap64(2 * n + 2);
    std::vector<float> tap32(2 * n + 2);
    for (int i = 0; i <= n; ++i) {
        tap64[i] = kGoldenButterB[i];
        tap64[n + 1 + i] = kGoldenButterA[i];
    }
    for (size_t i = 0; i < tap64.size(); ++i) tap32[i] = static_cast<float>(tap64[i]);
    std::vector<uint8_t> mem(1 << 16), mem32(1 << 16);
    VrxsIirState *s64 = nullptr, *s32 = nullptr;
    ASSERT_EQ(vrxsIIRInit_64f(&s64, tap64.data(), n, nullptr, mem.data()), vrxOk);
    ASSERT_EQ(vrxsIIRInit64f_32f(&s32, tap64.data(), n, nullptr, mem32.data()), vrxOk);
    std::vector<double> y(kGoldenLen);
    std::vector<float> xf(kGoldenX, kGoldenX + kGoldenLen), yf(kGoldenLen);
    ASSERT_EQ(vrxsIIR_64f(kGoldenX, y.data(), kGoldenLen, s64), vrxOk);
    ASSERT_EQ(vrxsIIR64f_32f(xf.data(), yf.data(), kGoldenLen, s32), vrxOk);
    for (int i = 0; i < kGoldenLen; ++i) {
        EXPECT_NEAR(y[i], kGoldenButterY[i], 1e-9) << i;
        EXPECT_NEAR(yf[i], kGoldenButterY[i], 1e-5) << i;
    }
    const int m = kGoldenSections;
    std::vector<double> sos(kGoldenSos, kGoldenSos + 6 * m);
    std::vector<float> sosf(sos.begin(), sos.end());
    ASSERT_EQ(vrxsIIRInit_BiQuad_64f(&s64, sos.data(), m, nullptr, mem.data()), vrxOk);
    ASSERT_EQ(vrxsIIRInit_BiQuad_32f(&s32, sosf.data(), m, nullptr, mem32.data()), vrxOk);
    ASSERT_EQ(vrxsIIR_64f(kGoldenX, y.data(), kGoldenLen, s64), vrxOk);
    ASSERT_EQ(vrxsIIR_32f(xf.data(), yf.data(), kGoldenLen, s32), vrxOk);
    for (int i = 0; i < kGoldenLen; ++i) {
        EXPECT_NEAR(y[i], kGoldenSosY[i], 1e-11) << i;
        EXPECT_NEAR(yf[i], kGoldenSosY[i], 2e-3) << i;
    }
}

}  // namespace
