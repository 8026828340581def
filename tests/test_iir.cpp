// IIR filters: every one of the 26 state kinds against a long-double direct
// form II transposed model under any split of calls and in place, direct
// form I to the bit, integer scaling, saturation and rounding modes, state
// sizes and placement, zero taps, multi-channel runs and the check tables.
#include <algorithm>
#include <cmath>

#include "test_iir_common.h"

using namespace iirt;

namespace {

// The model's output and final line for x, and the bound of the error that
// a run in the kind's arithmetic may have: each section adds a few eps of
// its terms, carried by the section's own recursion (L1 of 1/A) and by
// every later section (L1 of its response).
struct Reference {
    V y, line;
    long double tol = 0;
};
Reference reference(const Api& k, Model m, const V& x) {
    Reference r;
    for (cld v : x) r.y.push_back(m.step(v));
    for (const V& l : m.d) r.line.insert(r.line.end(), l.begin(), l.end() - 1);
    const size_t S = m.b.size();
    for (size_t s = 0; s < S; ++s) {
        Model g = m;
        g.b[s] = V(m.b[s].size(), cld(0));
        g.b[s][0] = 1;
        long double sb = 0, sa = 0;
        for (cld v : m.b[s]) sb += std::abs(v);
        for (cld v : m.a[s]) sa += std::abs(v);
        const long double inj = (k.cplxTaps ? 16 : 8) * k.eps * (m.b[s].size() + 1) * g.l1(int(s), int(s) + 1) *
                                (sb * m.xin[s] + sa * m.yout[s] + m.dmax[s]);
        r.tol += inj * (s + 1 < S ? m.l1(int(s) + 1, int(S)) : 1.0L);
    }
    return r;
}

V runPieces(const Api& k, VrxsIirState* st, const V& x, const std::vector<int>& pieces, int sf = 0, bool inPlace = false) {
    std::vector<uint8_t> in = k.pack(x), out(inPlace ? in : std::vector<uint8_t>(in.size(), 0));
    size_t at = 0;
    for (int p : pieces) {
        uint8_t* o = out.data() + at * k.sampleBytes;
        EXPECT_EQ(inPlace ? k.runI(o, p, st, sf) : k.run(in.data() + at * k.sampleBytes, o, p, st, sf), vrxOk);
        at += p;
    }
    return k.unpack(out, x.size());
}

V runLine(const Api& k, VrxsIirState* st, int n) {
    V l;
    EXPECT_EQ(k.get(st, l, k.lineLen(n)), vrxOk);
    return l;
}

// The model over orders 1..12 and 16, 20, 24 (past a register of outputs;
// per sample) or 1..8 sections, fed in one call, two halves, random pieces
// or a first call of 4N or 4N+1 samples: within the bound of the model
// (integers: of the model rounded to even, within one unit); in place the
// same bits; the line out is the model's.
TEST(Iir, EveryKindFollowsTheModelInAnySplitAndInPlace) {
    vt::Rng g(12);
    int cases = 0;
    for (const Api& k : kinds()) {
        for (int n = 1; n <= (k.bq() ? 8 : 24); n += n < 12 ? 1 : 4) {
            SCOPED_TRACE(::testing::Message() << k.name << " n=" << n);
            // a high order rounded to float taps can land at the edge of
            // stability, where the kind's own normalising may tip it over:
            // redraw until the response's L1 norm stays moderate
            auto l1 = [&](const V& t) { const Model mt(k, t, n); return mt.l1(0, int(mt.b.size())); };
            V taps = randomTaps(k, g, n);
            while (l1(taps) > 256) taps = randomTaps(k, g, n);
            const Model m(k, taps, n);
            const long double amp = k.intSamples ? std::floor(k.sampleMax / (2 * m.l1(0, int(m.b.size())) + 1)) : 1.0L;
            const int len = 2600;
            const V x = randomSamples(k, g, len, amp);
            const Reference ref = reference(k, m, x);
            std::vector<std::vector<int>> splits = {{len}, {len / 2, len / 2}, {4 * n, len - 4 * n}, {4 * n + 1, len - 4 * n - 1}};
            std::vector<int> rnd;
            for (int left = len; left > 0; left -= rnd.back()) rnd.push_back(std::min<int>(left, int(g.range(1, g.uniform() < 0.5 ? 9 : 1500))));
            splits.push_back(rnd);
            const auto& split = splits[size_t(cases++) % splits.size()];
            StateBox box(k, taps, n), io(k, taps, n);
            ASSERT_EQ(box.status, vrxOk);
            const V y = runPieces(k, box.st, x, split);
            ASSERT_EQ(runPieces(k, io.st, x, split, 0, true), y) << "in place";
            // samples narrower than the arithmetic round once more
            const long double out = !k.intSamples && k.sampleBytes == (k.cplxSamples ? 8 : 4) && k.eps < 0x1p-30L ? 0x1p-24L : 0;
            for (int i = 0; i < len; ++i) {
                const cld want = k.intSamples ? cld(std::nearbyint(ref.y[i].real()), std::nearbyint(ref.y[i].imag())) : ref.y[i];
                ASSERT_LE(std::abs(y[i] - want), (k.intSamples ? 1.5L : 0) + ref.tol + out * std::abs(ref.y[i]))
                    << "i=" << i << " got " << y[i] << " want " << ref.y[i];
            }
            if (k.form == Form::AR || k.form == Form::BQ) {
                const V line = runLine(k, box.st, n);
                ASSERT_EQ(ref.line.size(), line.size());
                for (size_t i = 0; i < line.size(); ++i) ASSERT_LE(std::abs(line[i] - ref.line[i]), ref.tol * 4 + 1e-30L) << "line " << i;
            }
        }
    }
    EXPECT_EQ(cases, 12 * 15 + 14 * 8);
}

// ---------------------------------------------------------- direct form I
// y = b1*x[n-1], then + b0*x[n], + b2*x[n-2], - a1*y[n-1], - a2*y[n-2], each
// a fused multiply-add; taps kept as given when a0 is 1, else times 1/a0.
// The float line pair moves the line; a null line at Set is zeros.
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
            const int len = 2100;
            std::vector<float> x(len), want(len), got(len), l = line;
            for (float& v : x) v = static_cast<float>(2 * g.uniform() - 1);
            for (int s = 0; s < m; ++s) {
                float t[6];
                for (int j = 0; j < 6; ++j) t[j] = a0 == 1.0f ? taps[6 * s + j] : taps[6 * s + j] * (1.0f / taps[6 * s + 3]);
                float* d = &l[4 * s];
                for (int i = 0; i < len; ++i) {
                    const float xi = s == 0 ? x[i] : want[i];
                    const float acc = std::fma(-t[5], d[2], std::fma(-t[4], d[3], std::fma(t[2], d[0], std::fma(t[0], xi, t[1] * d[1]))));
                    want[i] = acc;
                    d[0] = d[1], d[1] = xi, d[2] = d[3], d[3] = acc;
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
            ASSERT_EQ(0, memcmp(out.data(), l.data(), out.size() * 4));
            ASSERT_EQ(vrxsIIRSetDlyLine_32f(st, nullptr), vrxOk);
            ASSERT_EQ(vrxsIIRGetDlyLine_32f(st, out.data()), vrxOk);
            EXPECT_EQ(out, std::vector<float>(4 * m, 0));
        }
    }
}

// The 32s direct form I line: Set and Get move whole numbers untouched; a
// run leaves the unscaled y inside, Get rounds it, and Set of what Get gave
// continues with only the fractions lost.
TEST(Iir, DirectFormILineOf32sRoundTrips) {
    vt::Rng g(15);
    const int m = 2;
    const V taps = randomBQ(g, m, false);
    std::vector<double> t(6 * m);
    for (int i = 0; i < 6 * m; ++i) t[i] = static_cast<double>(taps[i].real());
    const std::vector<Vrx32s> line = {5, -7, 100, -3, 9, 11, -250, 40};
    int size = 0;
    ASSERT_EQ(vrxsIIRGetStateSize64f_BiQuad_DF1_32s(m, &size), vrxOk);
    std::vector<uint8_t> mem(size), mem2(size);
    VrxsIirState *st = nullptr, *st2 = nullptr;
    std::vector<Vrx32s> out(4 * m), out2(4 * m), x(300), y(300), y1(50), y2(50);
    auto lineOf = [&](VrxsIirState* s, std::vector<Vrx32s>& l) { EXPECT_EQ(vrxsIIRGetDlyLine64f_DF1_32s(s, l.data()), vrxOk); return l; };
    ASSERT_EQ(vrxsIIRInit64f_BiQuad_DF1_32s(&st, t.data(), m, line.data(), mem.data()), vrxOk);
    EXPECT_EQ(lineOf(st, out), line);
    for (Vrx32s& v : x) v = static_cast<Vrx32s>(g.range(-20000, 20000));
    ASSERT_EQ(vrxsIIR64f_32s_Sfs(x.data(), y.data(), 300, st, 0), vrxOk);
    std::vector<long double> dl(line.begin(), line.end()), in(x.begin(), x.end());  // direct form I in long double
    for (int s = 0; s < m; ++s)
        for (long double& v : in) {
            const double* c = &t[6 * s];
            long double* d = &dl[4 * s];
            const long double yy = (c[0] * v + c[1] * d[1] + c[2] * d[0] - c[4] * d[3] - c[5] * d[2]) / c[3];
            d[0] = d[1], d[1] = v, d[2] = d[3], d[3] = yy;
            v = yy;
        }
    for (int i = 0; i < 300; ++i) ASSERT_LE(std::fabs(y[i] - in[i]), 1.5L) << i;
    lineOf(st, out);
    for (int i = 0; i < 4 * m; ++i) ASSERT_LE(std::fabs(out[i] - dl[i]), 0.5L + 1e-6L) << i;
    ASSERT_EQ(vrxsIIRInit64f_BiQuad_DF1_32s(&st2, t.data(), m, nullptr, mem2.data()), vrxOk);
    ASSERT_EQ(vrxsIIRSetDlyLine64f_DF1_32s(st2, out.data()), vrxOk);
    EXPECT_EQ(lineOf(st2, out2), out);
    vrxsIIR64f_32s_Sfs(x.data(), y1.data(), 50, st, 0);
    vrxsIIR64f_32s_Sfs(x.data(), y2.data(), 50, st2, 0);
    for (int i = 0; i < 50; ++i) EXPECT_LE(std::abs(y1[i] - y2[i]), 8) << i;
    ASSERT_EQ(vrxsIIRSetDlyLine64f_DF1_32s(st2, nullptr), vrxOk);
    EXPECT_EQ(lineOf(st2, out2), std::vector<Vrx32s>(4 * m, 0));
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
        std::vector<long double> xs = {0, 1, -1, 3, -3, 5, 7, -9, 255, 1001, -1001, 32767, -32768, 12345, -777};
        if (k.sampleMax > 40000) xs.insert(xs.end(), {2147483647.0L, -2147483648.0L, 1234567891});
        V x;
        for (long double v : xs) x.push_back(cld(v, k.cplxSamples ? -v - 1 : 0));
        for (long double c : {0.5L, 1.0L, -1.5L}) {
            const V taps = k.bq() ? V{c, 0, 0, 1, 0, 0} : V{c, 0, 1, 0};
            for (int sf = -140; sf <= 140; ++sf) {
                const int e = sf < 0 ? -((-sf) % 128) : sf % 128;
                for (unsigned mode : {vt::kRoundNear, vt::kRoundDown, vt::kRoundUp, vt::kRoundZero}) {
                    if (mode != vt::kRoundNear && (sf % 7) != 0) continue;
                    StateBox box(k, taps, 1);
                    ASSERT_EQ(box.status, vrxOk);
                    vt::MxcsrScope scope;
                    const unsigned before = (_mm_getcsr() & ~0x6000u) | mode;
                    _mm_setcsr(before);
                    const V y = runPieces(k, box.st, x, {static_cast<int>(x.size())}, sf);
                    ASSERT_EQ(_mm_getcsr() & ~0x3Fu, before & ~0x3Fu) << k.name;
                    for (size_t i = 0; i < x.size(); ++i)
                        for (int part = 0; part < (k.cplxSamples ? 2 : 1); ++part) {
                            long double v = (part ? x[i].imag() : x[i].real()) * c;
                            v = (f32 && e == 127) ? 0 : std::ldexp(v, -e);
                            const long double want = std::clamp(std::nearbyint(v), -k.sampleMax - 1, k.sampleMax);
                            ASSERT_EQ(part ? y[i].imag() : y[i].real(), want)
                                << k.name << " sf=" << sf << " x=" << xs[i] << " c=" << (double)c << " mode=" << mode;
                        }
                    ++checked;
                }
            }
        }
    }
    EXPECT_GT(checked, 8 * 3 * 281);
}

// An integrator y[n] = x[n] + y[n-1]: the output saturates, the line keeps
// the unsaturated sum and the next call goes on from it. A NaN line makes
// NaN outputs, written as the conversion's 0x80000000 (16s: its low half,
// 0); an infinite one saturates: per sample (3) and by blocks (40).
TEST(Iir, IntegerSaturationKeepsTheLineAndNonFiniteWriters) {
    for (const Api& k : kinds()) {
        if (!k.intSamples || k.form == Form::DF1s) continue;
        SCOPED_TRACE(k.name);
        const long double big = std::floor(k.sampleMax * 0.9L), im = k.cplxSamples ? 1 : 0;
        StateBox box(k, k.bq() ? V{1, 0, 0, 1, -1, 0} : V{1, 0, 1, -1}, 1);
        const V y1 = runPieces(k, box.st, V(2, cld(big, -big * im)), {2});
        EXPECT_EQ(y1[1], cld(k.sampleMax, (-k.sampleMax - 1) * im));
        EXPECT_EQ(runLine(k, box.st, 1)[0].real(), std::nearbyint(2 * big));
        EXPECT_EQ(runPieces(k, box.st, V{cld(-big, big * im)}, {1})[0], cld(big, -big * im));
        const V pass = k.bq() ? V{1, 0, 0, 1, 0, 0} : V{1, 0, 1, 0};
        for (int len : {3, 40})
            for (long double fill : {NAN, INFINITY}) {
                const bool inf = !std::isnan(fill);
                if (k.cplxSamples && inf) continue;  // complex products of infinities are NaN in part
                StateBox b(k, pass, 1);
                const V line(k.lineLen(1), cld(fill, 0));
                ASSERT_EQ(k.set(b.st, &line, k.lineLen(1)), vrxOk);
                const V y = runPieces(k, b.st, V(len, cld(5, 0)), {len});
                const long double nan = k.sampleMax > 40000 ? -k.sampleMax - 1 : 0;
                for (int i = 0; i < len; ++i) ASSERT_EQ(y[i].real(), inf && i == 0 ? k.sampleMax : nan) << "len=" << len << " i=" << i;
            }
    }
}

// ---------------------------------------------------------------- sizes
long double sizeFormula(const Api& k, long long n) {
    auto R16 = [](long long v) { return v & ~15LL; };
    auto R32 = [](long long v) { return v & ~31LL; };
    const uint32_t w = k.word;
    const long long B = (w >= 0x49493031 && w <= 0x49493034) || (w >= 0x49493133 && w <= 0x49493136) ? 1 : 2;
    const bool f32 = k.eps > 0x1p-30L, ar = k.form == Form::AR;
    if (k.form == Form::DF1f) return R16(20 * n + 15) + 176 + 16 * n;
    if (k.form == Form::DF1s) return R16(40 * n + 15) + 304 * n + 16480;
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

// The sizes are the formulas; at every start modulo 32 the state lies on
// the block's first 32-byte boundary with its identity word, and Init, runs
// and line moves stay inside the reported size.
TEST(Iir, StateSizesAndPlacement) {
    vt::Rng g(16);
    for (const Api& k : kinds()) {
        for (int n = 1; n <= 64; ++n) {
            int size = -1;
            ASSERT_EQ(k.size(n, &size), vrxOk);
            ASSERT_EQ(size, sizeFormula(k, n)) << k.name << " n=" << n;
            if (n != 1 && n != 2 && n != 3 && n != 7 && n != 12 && n != 33 && n != 64) continue;
            const V taps = randomTaps(k, g, n);
            for (size_t off = 0; off < 32; off += (n == 2 ? 1 : 5)) {
                vt::Buffer buf(size, off);
                VrxsIirState* st = nullptr;
                ASSERT_EQ(k.init(&st, taps, n, nullptr, buf.data()), vrxOk);
                const uintptr_t p = reinterpret_cast<uintptr_t>(st), b = reinterpret_cast<uintptr_t>(buf.data());
                ASSERT_TRUE(p % 32 == 0 && p - b < 32) << k.name << " off=" << off;
                ASSERT_EQ(*reinterpret_cast<uint32_t*>(st), k.word);
                runPieces(k, st, randomSamples(k, g, 1500, k.intSamples ? 100 : 1), {1500});
                const V l = runLine(k, st, n);
                k.set(st, &l, k.lineLen(n));
                ASSERT_TRUE(buf.guardsIntact()) << k.name << " n=" << n << " off=" << off;
            }
        }
    }
}

// A zero a0 (AR, or in the second section) is -10 with the state's pointer
// set; b0 = 0 is refused except by the direct form I float state; a nonzero
// imaginary part is no zero.
TEST(Iir, ZeroA0AndB0) {
    for (const Api& k : kinds()) {
        const int n = k.bq() ? 3 : 2;
        const V taps = k.bq() ? V{1, .5, .25, 1, .1, .2, 1, .5, .25, 2, .1, .2, 1, .5, .25, 1, .1, .2} : V{1, .5, .25, 2, .1, .2};
        V bad = taps;
        bad[k.bq() ? 9 : 3] = 0;
        StateBox a(k, bad, n);
        EXPECT_EQ(a.status, vrxErrDivByZero) << k.name;
        EXPECT_TRUE(a.st && reinterpret_cast<uintptr_t>(a.st) % 32 == 0) << k.name;
        if (!k.bq()) continue;
        V b = taps;
        b[6] = 0;
        EXPECT_EQ(StateBox(k, b, n).status, k.form == Form::DF1f ? vrxOk : vrxErrDivByZero) << k.name;
        if (k.cplxTaps) {
            b[9] = b[6] = cld(0, 0.5L);
            EXPECT_EQ(StateBox(k, b, n).status, vrxOk) << k.name;
        }
    }
}

// ---------------------------------------------------------- multi-channel
// The channel runs equal one run per channel, out of place and in place; a
// state of the pair's other word at channel 3 is -17 with channels 0..2
// filtered and 3, 4 untouched.
TEST(Iir, MultiChannelEqualsSingleCalls) {
    vt::Rng g(17);
    const int ch = 5, len = 1300, n = 3;
    auto byWord = [](uint32_t w) -> const Api& { return *std::find_if(kinds().begin(), kinds().end(), [&](const Api& a) { return a.word == w; }); };
    for (uint32_t word : {0x49493032u, 0x49493239u, 0x49493231u, 0x49493232u, 0x49493330u}) {
        const Api& k = byWord(word);
        const bool f = !k.intSamples;
        std::vector<StateBox> s1, s2, s3;
        std::vector<std::vector<uint8_t>> in(ch), outP(ch), outS(ch), io(ch);
        std::vector<void*> srcs(ch), dsts(ch), ios(ch);
        std::vector<VrxsIirState*> st2(ch), st3(ch);
        for (int c = 0; c < ch; ++c) {
            const V taps = randomTaps(k, g, n);
            s1.emplace_back(k, taps, n), s2.emplace_back(k, taps, n), s3.emplace_back(k, taps, n);
            st2[c] = s2.back().st, st3[c] = s3.back().st;
            in[c] = io[c] = k.pack(randomSamples(k, g, len, f ? 1 : 1000));
            outP[c].assign(in[c].size(), 0), outS[c].assign(in[c].size(), 0);
            srcs[c] = in[c].data(), dsts[c] = outP[c].data(), ios[c] = io[c].data();
            ASSERT_EQ(k.run(in[c].data(), outS[c].data(), len, s1[c].st, 2), vrxOk);
        }
        auto runP = [&](std::vector<VrxsIirState*>& st) {
            return f ? vrxsIIR_32f_P((const Vrx32f**)srcs.data(), (Vrx32f**)dsts.data(), len, ch, st.data())
                     : vrxsIIR64f_32s_PSfs((const Vrx32s**)srcs.data(), (Vrx32s**)dsts.data(), len, ch, st.data(), 2);
        };
        ASSERT_EQ(runP(st2), vrxOk);
        ASSERT_EQ(f ? vrxsIIR_32f_IP((Vrx32f**)ios.data(), len, ch, st3.data()) : vrxsIIR64f_32s_IPSfs((Vrx32s**)ios.data(), len, ch, st3.data(), 2), vrxOk);
        for (int c = 0; c < ch; ++c) EXPECT_TRUE(outP[c] == outS[c] && io[c] == outS[c]) << k.name << " channel " << c;
        const uint32_t ow = word == 0x49493032 ? 0x49493239 : word == 0x49493239 ? 0x49493032 : word == 0x49493330 ? 0x49493232 : 0x49493330;
        StateBox foreign(byWord(ow), V{1, 0, 0, 1, 0, 0}, 1);
        st2[3] = foreign.st;
        for (auto& p : outP) std::fill(p.begin(), p.end(), 0);
        EXPECT_EQ(runP(st2), vrxErrBadSpec) << k.name;
        for (int c = 0; c < ch; ++c) EXPECT_EQ(outP[c] == std::vector<uint8_t>(outP[c].size(), 0), c >= 3) << k.name << " channel " << c;
    }
}

// AR states are not taken; the channel count comes before the states, -53
// on the float pair, -47 on the 32s pair.
TEST(Iir, MultiChannelWordsAndCounts) {
    std::vector<uint8_t> mem(1 << 16);
    VrxsIirState* ar32f = nullptr;
    const std::vector<float> t = {1, 0.5f, 1, 0.25f};
    ASSERT_EQ(vrxsIIRInit_32f(&ar32f, t.data(), 1, nullptr, mem.data()), vrxOk);
    float x[4] = {1, 2, 3, 4}, y[4];
    const Vrx32f* src[1] = {x};
    Vrx32f* dst[1] = {y};
    VrxsIirState *st[1] = {ar32f}, *none[1] = {nullptr};
    EXPECT_EQ(vrxsIIR_32f_P(src, dst, 4, 1, st), vrxErrBadSpec);
    EXPECT_EQ(vrxsIIR_32f_P(src, dst, 4, 0, st), vrxErrChannelCount);
    EXPECT_EQ(vrxsIIR_32f_P(src, dst, 4, 1, none), vrxErrNullPtr);
    EXPECT_EQ(vrxsIIR_32f_P(src, dst, 4, 0, none), vrxErrChannelCount);
    Vrx32s xi[3] = {4, 8, 12}, yi[3];
    const Vrx32s* si[1] = {xi};
    Vrx32s* di[1] = {yi};
    EXPECT_EQ(vrxsIIR64f_32s_PSfs(si, di, 3, 0, none, 0), vrxErrChannels);
}

// ------------------------------------------------------------ check tables
// An order below one is -25 with nothing written; every kind's state is
// taken by the runs and line pairs it shares, else -17 with nothing written.
TEST(Iir, CheckTables) {
    for (const Api& k : kinds()) {
        int size = 12345;
        EXPECT_EQ(k.size(0, &size), vrxErrIirOrder) << k.name;
        EXPECT_EQ(k.size(-3, &size), vrxErrIirOrder) << k.name;
        EXPECT_EQ(size, 12345);
        std::vector<uint8_t> mem(1 << 16, 0x5A);
        VrxsIirState* st = reinterpret_cast<VrxsIirState*>(0x1);
        const V unit = k.bq() ? V{1, 0, 0, 1, 0, 0} : V{1, 0, 1, 0};
        EXPECT_EQ(k.init(&st, unit, 0, nullptr, mem.data()), vrxErrIirOrder) << k.name;
        EXPECT_EQ(st, reinterpret_cast<VrxsIirState*>(0x1));
        EXPECT_EQ(mem, std::vector<uint8_t>(1 << 16, 0x5A)) << k.name << ": written on failure";
        for (const Api& o : kinds()) {
            StateBox box(o, o.bq() ? V{1, 0, 0, 1, 0, 0} : V{1, 0, 1, 0}, 1);
            std::vector<uint8_t> in(64 * k.sampleBytes, 1), out(64 * k.sampleBytes, 0x77);
            const VrxStatus run = k.run(in.data(), out.data(), 64, box.st, 0), runI = k.runI(out.data(), 64, box.st, 0);
            EXPECT_EQ(run, k.runFn == o.runFn ? vrxOk : vrxErrBadSpec) << k.name << " with " << o.name;
            EXPECT_EQ(runI, run) << k.name << " with " << o.name;
            if (run != vrxOk) { EXPECT_EQ(out, std::vector<uint8_t>(out.size(), 0x77)); }
            V l(o.lineLen(1), cld(1, 0));
            const VrxStatus line = k.lineFn == o.lineFn ? vrxOk : vrxErrBadSpec;
            EXPECT_EQ(k.get(box.st, l, o.lineLen(1)), line) << k.name << " with " << o.name;
            EXPECT_EQ(k.set(box.st, &l, o.lineLen(1)), line) << k.name << " with " << o.name;
        }
    }
}

}  // namespace
