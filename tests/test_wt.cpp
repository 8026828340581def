// Streaming wavelet transforms: the eight state kinds against a polyphase
// filter bank computed here in long double, block splits, perfect
// reconstruction, typed forms, delay lines and every status in its order.
#include "vrx_test.h"

#include <algorithm>
#include <cmath>
#include <functional>

namespace {

// ------------------------------------------------------------ the kinds
struct Kind {
    const char* name;
    bool isInv;
    int sel;  // 13 32f, 1 8u, 5 16u, 7 16s
    VrxStatus (*init)(void*, const float*, int, int, const float*, int, int);
    VrxStatus (*set)(void*, const float*, const float*);
    VrxStatus (*get)(const void*, float*, float*);
    // forward: typed source (elements of sel) into two float bands
    VrxStatus (*fwd)(const void*, float*, float*, int, void*);
    // inverse: two float bands into typed result
    VrxStatus (*inv)(const float*, const float*, int, void*, void*);
};

// One kind from its exports: St the state, E the typed end (source or result).
template <class St, class E, VrxStatus (*Init)(St*, const Vrx32f*, int, int, const Vrx32f*, int, int),
          VrxStatus (*Set)(St*, const Vrx32f*, const Vrx32f*), VrxStatus (*Get)(const St*, Vrx32f*, Vrx32f*)>
struct KindOf {
    static VrxStatus init(void* s, const float* a, int b, int c, const float* d, int e, int f) { return Init(static_cast<St*>(s), a, b, c, d, e, f); }
    static VrxStatus set(void* s, const float* l, const float* h) { return Set(static_cast<St*>(s), l, h); }
    static VrxStatus get(const void* s, float* l, float* h) { return Get(static_cast<const St*>(s), l, h); }
    template <VrxStatus (*Fwd)(const E*, Vrx32f*, Vrx32f*, int, St*)>
    static Kind fwd(const char* name, int sel) {
        return {name, false, sel, init, set, get,
                [](const void* x, float* l, float* h, int n, void* s) { return Fwd(static_cast<const E*>(x), l, h, n, static_cast<St*>(s)); }, nullptr};
    }
    template <VrxStatus (*Inv)(const Vrx32f*, const Vrx32f*, int, E*, St*)>
    static Kind inv(const char* name, int sel) {
        return {name, true, sel, init, set, get, nullptr,
                [](const float* l, const float* h, int n, void* d, void* s) { return Inv(l, h, n, static_cast<E*>(d), static_cast<St*>(s)); }};
    }
};
const Kind kKinds[] = {
    KindOf<VrxsWtFwdState_32f, Vrx32f, vrxsWTFwdInit_32f, vrxsWTFwdSetDlyLine_32f, vrxsWTFwdGetDlyLine_32f>::fwd<vrxsWTFwd_32f>("Fwd_32f", 13),
    KindOf<VrxsWtFwdState_8u32f, Vrx8u, vrxsWTFwdInit_8u32f, vrxsWTFwdSetDlyLine_8u32f, vrxsWTFwdGetDlyLine_8u32f>::fwd<vrxsWTFwd_8u32f>("Fwd_8u32f", 1),
    KindOf<VrxsWtFwdState_16u32f, Vrx16u, vrxsWTFwdInit_16u32f, vrxsWTFwdSetDlyLine_16u32f, vrxsWTFwdGetDlyLine_16u32f>::fwd<vrxsWTFwd_16u32f>("Fwd_16u32f", 5),
    KindOf<VrxsWtFwdState_16s32f, Vrx16s, vrxsWTFwdInit_16s32f, vrxsWTFwdSetDlyLine_16s32f, vrxsWTFwdGetDlyLine_16s32f>::fwd<vrxsWTFwd_16s32f>("Fwd_16s32f", 7),
    KindOf<VrxsWtInvState_32f, Vrx32f, vrxsWTInvInit_32f, vrxsWTInvSetDlyLine_32f, vrxsWTInvGetDlyLine_32f>::inv<vrxsWTInv_32f>("Inv_32f", 13),
    KindOf<VrxsWtInvState_32f8u, Vrx8u, vrxsWTInvInit_32f8u, vrxsWTInvSetDlyLine_32f8u, vrxsWTInvGetDlyLine_32f8u>::inv<vrxsWTInv_32f8u>("Inv_32f8u", 1),
    KindOf<VrxsWtInvState_32f16u, Vrx16u, vrxsWTInvInit_32f16u, vrxsWTInvSetDlyLine_32f16u, vrxsWTInvGetDlyLine_32f16u>::inv<vrxsWTInv_32f16u>("Inv_32f16u", 5),
    KindOf<VrxsWtInvState_32f16s, Vrx16s, vrxsWTInvInit_32f16s, vrxsWTInvSetDlyLine_32f16s, vrxsWTInvGetDlyLine_32f16s>::inv<vrxsWTInv_32f16s>("Inv_32f16s", 7),
};

bool sameN(const float* a, const float* b, size_t n) { return n == 0 || memcmp(a, b, n * sizeof(float)) == 0; }

size_t elemSize(int sel) { return sel == 13 ? 4 : sel == 1 ? 1 : 2; }

int stateSize(const Kind& k, int tl, int ol, int th, int oh) {
    int sz = -1;
    VrxStatus st = k.isInv ? vrxsWTInvGetSize(k.sel, tl, ol, th, oh, &sz) : vrxsWTFwdGetSize(k.sel, tl, ol, th, oh, &sz);
    EXPECT_EQ(st, vrxOk);
    return sz;
}

// The caller's view of one band's history length.
int fwdDelay(int taps, int offs) { return taps - 1 + (offs > 0 ? offs : 0); }
int invDelay(int taps, int offs) { return offs == -1 ? taps / 2 : (taps + 1) / 2 - 1 + offs / 2; }
int delayOf(bool inv, int taps, int offs) { return inv ? invDelay(taps, offs) : fwdDelay(taps, offs); }

// A state in a guarded buffer of exactly the reported size.
struct StateBuf {
    vt::Buffer buf;
    StateBuf(const Kind& k, int tl, int ol, int th, int oh, size_t off = 0)
        : buf(static_cast<size_t>(stateSize(k, tl, ol, th, oh)), off) {}
    void* p() { return buf.data(); }
};

std::vector<float> randomFloats(vt::Rng& r, size_t n, double scale = 1.0) {
    std::vector<float> t(n);
    for (float& v : t) v = static_cast<float>((r.uniform() * 2 - 1) * scale);
    return t;
}

// ------------------------------------------------------ the references
struct Ref {
    long double v = 0, mag = 0;  // the value and the sum of |terms|
};

// r += sum_k g[k] s(at - k).
template <class S> void fir(Ref& r, const std::vector<float>& g, int at, S s) {
    for (size_t k = 0; k < g.size(); ++k) {
        const long double t = static_cast<long double>(g[k]) * s(at - static_cast<int>(k));
        r.v += t;
        r.mag += fabsl(t);
    }
}

// x after its history x[-D..-1], zero before.
auto withHistory(const std::vector<float>& x, const std::vector<float>& hist) {
    return [&x, &hist](int i) -> long double {
        const int D = static_cast<int>(hist.size());
        return i >= 0 ? x[i] : (i >= -D ? hist[D + i] : 0.0L);
    };
}

// y[n] = sum_k h[k] x[2n - o - k] (o = -1: x[2n + 1 - k]).
std::vector<Ref> refFwd(const std::vector<float>& h, int o, const std::vector<float>& hist, const std::vector<float>& x) {
    std::vector<Ref> y(x.size() / 2);
    for (int m = 0; m < static_cast<int>(y.size()); ++m) fir(y[m], h, o == -1 ? 2 * m + 1 : 2 * m - o, withHistory(x, hist));
    return y;
}

// One inverse band added to out: the band delayed by o/2 samples and
// upsampled, up(v)[2i] = v[i]; even outputs from even taps, odd from odd;
// offset -1: one sample later.
void refInvBand(const std::vector<float>& g, int o, const std::vector<float>& hist, const std::vector<float>& u,
                std::vector<Ref>& out) {
    const auto U = withHistory(u, hist);
    const int gd = o > 0 ? o / 2 : 0;
    for (int m = 0; m < static_cast<int>(out.size()); ++m)
        fir(out[m], g, m - (o == -1), [&](int i) { return (i & 1) ? 0.0L : U(i / 2 - gd); });
}

// One config: taps and offsets of both bands.
struct Cfg {
    int tl, ol, th, oh;
};

std::vector<Cfg> allConfigs() {
    std::vector<Cfg> c;
    for (int t = 1; t <= 33; ++t)
        for (int o = -1; o <= 5; ++o) c.push_back({t, o, 34 - t, (o + 3) % 7 - 1});
    for (int t : {1, 6, 9, 16})  // bands of one shape share the split source
        for (int o : {-1, 0, 3}) c.push_back({t, o, t, o});
    return c;
}

// Runs a 32f kind in the given pieces: forward, pieces of outputs from the
// source a into bands o0, o1; inverse, pieces of band samples from a, b
// into o0.
void run32(const Kind& k, void* st, const std::vector<float>& a, const std::vector<float>& b, std::vector<float>& o0,
           std::vector<float>& o1, const std::vector<int>& pieces) {
    int at = 0;
    for (int p : pieces) {
        ASSERT_EQ(k.isInv ? k.inv(a.data() + at, b.data() + at, p, o0.data() + 2 * at, st)
                          : k.fwd(a.data() + 2 * at, o0.data() + at, o1.data() + at, p, st),
                  vrxOk);
        at += p;
    }
}

constexpr float kEps = 0x1p-24f;

// ----------------------------------------------------------- the tests
// Forward and inverse 32f against the filter bank, with and without a
// history set beforehand, for taps 1..33 and offsets -1..5; random block
// splits (pieces of 1 included) give the bits of one call, and the delay
// line read afterwards is the newest input.
TEST(WtBank, MatchesReferenceAndSplits) {
    vt::Rng rng(11);
    for (const Cfg& c : allConfigs()) {
        for (int withHist = 0; withHist < 2; ++withHist) {
            const std::vector<float> hl = randomFloats(rng, c.tl), hh = randomFloats(rng, c.th);
            const int n = static_cast<int>(rng.range(1, 150));
            for (const Kind* k : {&kKinds[0], &kKinds[4]}) {
                SCOPED_TRACE(testing::Message() << k->name << " taps " << c.tl << "/" << c.th << " offs " << c.ol << "/"
                                                << c.oh << " hist " << withHist);
                std::vector<float> dl(delayOf(k->isInv, c.tl, c.ol)), dh(delayOf(k->isInv, c.th, c.oh));
                if (withHist) {
                    dl = randomFloats(rng, dl.size());
                    dh = randomFloats(rng, dh.size());
                }
                // forward: a is the source (2n samples); inverse: a, b the bands
                const std::vector<float> a = randomFloats(rng, k->isInv ? n : 2 * n), b = k->isInv ? randomFloats(rng, n) : a;
                StateBuf s1(*k, c.tl, c.ol, c.th, c.oh), s2(*k, c.tl, c.ol, c.th, c.oh, k->isInv ? 24 : 8);
                for (StateBuf* s : {&s1, &s2}) {
                    ASSERT_EQ(k->init(s->p(), hl.data(), c.tl, c.ol, hh.data(), c.th, c.oh), vrxOk);
                    ASSERT_EQ(withHist ? k->set(s->p(), dl.data(), dh.data()) : vrxOk, vrxOk);
                }
                std::vector<float> o0(2 * n), o1(n), p0(2 * n), p1(n);
                run32(*k, s1.p(), a, b, o0, o1, {n});
                run32(*k, s2.p(), a, b, p0, p1, vt::randomPieces(rng, n, rng.range(1, 3) == 1 ? 2 : 40));
                EXPECT_TRUE(sameN(o0.data(), p0.data(), 2 * n) && sameN(o1.data(), p1.data(), n));
                if (!k->isInv) {
                    const auto rl = refFwd(hl, c.ol, dl, a), rh = refFwd(hh, c.oh, dh, a);
                    for (int m = 0; m < n; ++m) {
                        EXPECT_LE(fabsl(o0[m] - rl[m].v), 2 * c.tl * kEps * rl[m].mag) << "low " << m;
                        EXPECT_LE(fabsl(o1[m] - rh[m].v), 2 * c.th * kEps * rh[m].mag) << "high " << m;
                    }
                } else {
                    std::vector<Ref> r(2 * n);
                    refInvBand(hl, c.ol, dl, a, r);
                    refInvBand(hh, c.oh, dh, b, r);
                    for (int m = 0; m < 2 * n; ++m)
                        EXPECT_LE(fabsl(o0[m] - r[m].v), 2 * (c.tl + c.th) * kEps * r[m].mag) << m;
                }
                // the lines now hold the newest inputs, after the history
                std::vector<float> gl(dl.size() + 1, 7.0f), gh(dh.size() + 1, 7.0f);
                ASSERT_EQ(k->get(s2.p(), gl.data(), gh.data()), vrxOk);
                auto newest = [](const std::vector<float>& src, const std::vector<float>& hist, size_t i) {
                    const long idx = static_cast<long>(src.size()) - static_cast<long>(hist.size()) + static_cast<long>(i);
                    return idx >= 0 ? src[idx] : hist[hist.size() + idx];
                };
                for (size_t i = 0; i < dl.size(); ++i) EXPECT_EQ(gl[i], newest(a, dl, i)) << i;
                for (size_t i = 0; i < dh.size(); ++i) EXPECT_EQ(gh[i], newest(b, dh, i)) << i;
                EXPECT_TRUE(gl[dl.size()] == 7.0f && gh[dh.size()] == 7.0f);
                EXPECT_TRUE(s1.buf.guardsIntact() && s2.buf.guardsIntact());
            }
        }
    }
}

// ------------------------------------------------- perfect reconstruction
// A forward and an inverse state in random pieces give the input back,
// delayed by the taps and offsets of both. Orthogonal: the 4-tap low pass
// with two vanishing moments, high pass h1[k] = (-1)^k h0[L-1-k], synthesis
// the reversed analysis taps. Biorthogonal 5/3: odd lengths, so the bands
// take different phases.
TEST(WtBank, PerfectReconstruction) {
    const long double r3 = sqrtl(3.0L), q = 4 * sqrtl(2.0L);
    const std::vector<float> h0 = {float((1 + r3) / q), float((3 + r3) / q), float((3 - r3) / q), float((1 - r3) / q)};
    const std::vector<float> h1 = {h0[3], -h0[2], h0[1], -h0[0]};
    const std::vector<float> f0(h0.rbegin(), h0.rend()), f1(h1.rbegin(), h1.rend());
    const std::vector<float> a0 = {-0.125f, 0.25f, 0.75f, 0.25f, -0.125f}, a1 = {-0.5f, 1.0f, -0.5f};
    const std::vector<float> s0 = {0.5f, 1.0f, 0.5f}, s1 = {-0.125f, -0.25f, 0.75f, -0.25f, -0.125f};
    const struct { bool ortho; int of, oi, delay; } rows[] = {
        {true, 0, 0, 3},   {true, -1, 0, 2},   {true, 1, 0, 4},   {true, -1, -1, 3}, {true, 0, 2, 5},
        {true, 0, 1, 3},   {true, 2, 4, 9},    {false, 0, 0, 3},  {false, -1, 0, 2}, {false, -1, -1, 3},
        {false, 1, 2, 6}};
    vt::Rng rng(3);
    const std::vector<float> x = randomFloats(rng, 2 * 600);
    const int n = 600;
    for (const auto& r : rows) {
        SCOPED_TRACE(testing::Message() << "orthogonal " << r.ortho << " offsets " << r.of << " " << r.oi);
        const auto &g0 = r.ortho ? h0 : a0, &g1 = r.ortho ? h1 : a1, &y0 = r.ortho ? f0 : s0, &y1 = r.ortho ? f1 : s1;
        const int n0 = int(g0.size()), n1 = int(g1.size()), m0 = int(y0.size()), m1 = int(y1.size());
        StateBuf f(kKinds[0], n0, r.of, n1, r.of), i(kKinds[4], m0, r.oi, m1, r.oi);
        ASSERT_EQ(kKinds[0].init(f.p(), g0.data(), n0, r.of, g1.data(), n1, r.of), vrxOk);
        ASSERT_EQ(kKinds[4].init(i.p(), y0.data(), m0, r.oi, y1.data(), m1, r.oi), vrxOk);
        std::vector<float> lo(n), hi(n), y(2 * n);
        run32(kKinds[0], f.p(), x, x, lo, hi, vt::randomPieces(rng, n));
        run32(kKinds[4], i.p(), lo, hi, y, y, vt::randomPieces(rng, n));
        double worst = 0;
        for (int m = 0; m < 2 * n; ++m) worst = std::max(worst, std::fabs(y[m] - (m >= r.delay ? x[m - r.delay] : 0.0)));
        EXPECT_LE(worst, 1e-5);
    }
}

// ------------------------------------------------------------ typed forms
// Each typed kind against the 32f kind of its direction, across the
// 1024-sample chunks, in random pieces. Sources: bit-identical to the 32f
// state on the converted data (taps up to the split buffer's shortest chunk,
// 896, and the chunked float path beyond it). Results: the 32f result
// converted by Convert_32f*_Sfs (nearest, 0), saturation on both sides; the
// filter runs in the caller's mode (here toward zero, flushing), the
// conversion does not, and the control word comes back as it was.
TEST(WtTyped, MatchFloatKind) {
    vt::Rng rng(8);
    const std::vector<Cfg> fwdCfgs = {{1, -1, 5, 3}, {8, 0, 8, -1}, {33, 5, 16, 1}, {896, -1, 895, 2}, {900, 0, 3, 1},
                                      {4, 0, 4, 0},  {9, -1, 9, -1}, {12, 3, 12, 3}},
                           invCfgs = {{2, 0, 3, -1}, {9, 4, 1, 2}, {33, -1, 20, 5}};
    for (const Kind& k : kKinds) {
        if (k.sel == 13) continue;
        const Kind& kf = kKinds[k.isInv ? 4 : 0];
        const size_t es = elemSize(k.sel);
        for (const Cfg& c : k.isInv ? invCfgs : fwdCfgs) {
            SCOPED_TRACE(testing::Message() << k.name << " taps " << c.tl);
            const std::vector<float> hl = randomFloats(rng, c.tl), hh = randomFloats(rng, c.th);
            const int n = k.isInv ? 1300 : 1500;
            StateBuf sf(kf, c.tl, c.ol, c.th, c.oh), st(k, c.tl, c.ol, c.th, c.oh);
            ASSERT_EQ(kf.init(sf.p(), hl.data(), c.tl, c.ol, hh.data(), c.th, c.oh), vrxOk);
            ASSERT_EQ(k.init(st.p(), hl.data(), c.tl, c.ol, hh.data(), c.th, c.oh), vrxOk);
            std::vector<uint8_t> raw(2 * n * es), got(2 * n * es);
            if (!k.isInv) {
                rng.fill(raw.data(), raw.size());
                std::vector<float> xf(2 * n), l1(n), h1(n), l2(n), h2(n);
                for (int i = 0; i < 2 * n; ++i) {
                    uint16_t u = 0;
                    memcpy(&u, &raw[i * es], es == 1 ? 0 : 2);
                    xf[i] = es == 1 ? raw[i] : k.sel == 5 ? float(u) : float(int16_t(u));
                }
                run32(kf, sf.p(), xf, xf, l1, h1, {n});
                int at = 0;
                for (int p : vt::randomPieces(rng, n, 700)) {
                    ASSERT_EQ(k.fwd(raw.data() + 2 * at * es, l2.data() + at, h2.data() + at, p, st.p()), vrxOk);
                    at += p;
                }
                EXPECT_TRUE(sameN(l1.data(), l2.data(), n) && sameN(h1.data(), h2.data(), n));
            } else {
                const std::vector<float> ul = randomFloats(rng, n, 40000.0), uh = randomFloats(rng, n, 40000.0);
                vt::MxcsrScope mx;
                const unsigned mode = 0x1F80 | vt::kRoundZero | vt::kFtz | vt::kDaz;
                _mm_setcsr(mode);
                std::vector<float> yf(2 * n);
                run32(kf, sf.p(), ul, uh, yf, yf, {n});
                _mm_setcsr(0x1F80);
                auto* w = raw.data();
                ASSERT_EQ(k.sel == 1   ? vrxsConvert_32f8u_Sfs(yf.data(), w, 2 * n, vrxRndNear, 0)
                          : k.sel == 5 ? vrxsConvert_32f16u_Sfs(yf.data(), reinterpret_cast<Vrx16u*>(w), 2 * n, vrxRndNear, 0)
                                       : vrxsConvert_32f16s_Sfs(yf.data(), reinterpret_cast<Vrx16s*>(w), 2 * n, vrxRndNear, 0),
                          vrxOk);
                _mm_setcsr(mode);
                int at = 0;
                for (int p : vt::randomPieces(rng, n, 700)) {
                    ASSERT_EQ(k.inv(ul.data() + at, uh.data() + at, p, got.data() + 2 * at * es, st.p()), vrxOk);
                    at += p;
                }
                EXPECT_EQ(_mm_getcsr() & ~0x3Fu, mode & ~0x3Fu);
                EXPECT_EQ(memcmp(raw.data(), got.data(), raw.size()), 0);
                size_t lowSat = 0, highSat = 0;
                for (float v : yf) lowSat += v < (k.sel == 7 ? -32768.0f : 0.0f), highSat += v > (k.sel == 1 ? 255.0f : 32767.0f);
                EXPECT_TRUE(lowSat > 0 && highSat > 0);
            }
            EXPECT_TRUE(st.buf.guardsIntact());
        }
    }
}

// ---------------------------------------------------------------- statuses
// GetSize: selector, then lengths, then offsets; every failure leaves 0.
// The size formula at one case of each direction.
TEST(WtStatus, GetSizeOrderAndFormula) {
    for (bool inv : {false, true}) {
        auto gs = [&](int sel, int tl, int ol, int th, int oh, int* p) {
            return inv ? vrxsWTInvGetSize(sel, tl, ol, th, oh, p) : vrxsWTFwdGetSize(sel, tl, ol, th, oh, p);
        };
        const struct { int sel, tl, ol, th, oh; VrxStatus st; } rows[] = {
            {2, 0, -2, 4, 0, vrxErrDataType}, {13, 4, -2, 0, 0, vrxErrBadLength}, {7, 4, 0, 4, -2, vrxErrWtOffset},
            {1, 0x7FFFFFF0, 0, 4, 0, vrxErrBadLength}};
        int sz = 77;
        for (const auto& r : rows) {
            sz = 77;
            EXPECT_EQ(gs(r.sel, r.tl, r.ol, r.th, r.oh, &sz), r.st);
            EXPECT_EQ(sz, 0);
        }
        // taps 3 offset 2, taps 4 offset -1; a typed kind adds its 4096-byte conversion block
        int a = 0, b = 0;
        ASSERT_EQ(gs(13, 3, 2, 4, -1, &a), vrxOk);
        ASSERT_EQ(gs(5, 3, 2, 4, -1, &b), vrxOk);
        EXPECT_EQ(b - a, 4096);
        // forward: a16(4t+32) + a16(8t) + a16(4t) + 64 (+ a16(8 offset))
        if (!inv) EXPECT_EQ(a, ((48 + 32 + 16 + 64 + 16) + (48 + 32 + 16 + 64) + 48 + 63) / 64 * 64 + 64);
        // inverse: a16(8h) + a16(4h) + a16(4 floor(t/2)) + 64 + a16(4t) (+16 even t) (+ a16(8g) + 16) + 48
        else EXPECT_EQ(a, ((16 + 16 + 16 + 64 + 16 + 32 + 48) + (16 + 16 + 16 + 64 + 32 + 48) + 48 + 63) / 64 * 64 + 64);
    }
}

// Init writes the identity word before the length (-6) and offset (-35)
// checks, and nothing else; a run refuses a state of another kind (-17);
// a good state with a bad length is -6 and nothing is written. Init leaves
// the lines zero; Get after Set gives the values back and writes no more
// than the line; a null line given to Set means zeros.
TEST(WtStatus, InitAndRunOrder) {
    const float taps[4] = {1, 2, 3, 4};
    const int32_t ids[] = {43, 44, 46, 47, 52, 53, 55, 56};
    for (const Kind& k : kKinds) {
        SCOPED_TRACE(k.name);
        std::vector<uint8_t> mem(stateSize(k, 4, 1, 4, 1), 0xC3);
        for (int bad = 0; bad < 2; ++bad) {
            EXPECT_EQ(bad ? k.init(mem.data(), taps, 4, 1, taps, 4, -2) : k.init(mem.data(), taps, 4, -2, taps, 0, 1),
                      bad ? vrxErrWtOffset : vrxErrBadLength);
            int32_t id;
            memcpy(&id, mem.data(), 4);
            EXPECT_EQ(id, ids[&k - kKinds]);
            EXPECT_TRUE(std::all_of(mem.begin() + 4, mem.end(), [](uint8_t b) { return b == 0xC3; }));
        }
        std::vector<float> f(64, 5.0f), lo(64, 5.0f), hi(64, 5.0f);
        std::vector<uint8_t> out(256, 0x5A);
        const std::vector<uint8_t> outFresh = out;
        auto run = [&](void* st, int n) {
            return k.isInv ? k.inv(f.data(), f.data(), n, out.data(), st) : k.fwd(out.data(), lo.data(), hi.data(), n, st);
        };
        const Kind& other = kKinds[(&k - kKinds + 1) % 8];
        std::vector<uint8_t> om(stateSize(other, 4, 1, 4, 1));
        ASSERT_EQ(other.init(om.data(), taps, 4, 1, taps, 4, 1), vrxOk);
        EXPECT_EQ(run(om.data(), 4), vrxErrBadSpec);
        EXPECT_EQ(k.get(om.data(), lo.data(), hi.data()), vrxErrBadSpec);
        ASSERT_EQ(k.init(mem.data(), taps, 4, 1, taps, 4, 1), vrxOk);
        const size_t D = delayOf(k.isInv, 4, 1);
        const std::vector<float> zeros(D), dl = {1.5f, -2, 3, 0.25f, 7}, dh = {-4, 5, 6.5f, 8, -9};
        auto expectLines = [&](const std::vector<float>& wl, const std::vector<float>& wh) {
            std::vector<float> gl(D + 1, 9.0f), gh(D + 1, 9.0f);
            ASSERT_EQ(k.get(mem.data(), gl.data(), gh.data()), vrxOk);
            EXPECT_TRUE(sameN(gl.data(), wl.data(), D) && sameN(gh.data(), wh.data(), D) && gl[D] == 9.0f && gh[D] == 9.0f);
        };
        expectLines(zeros, zeros);
        ASSERT_EQ(k.set(mem.data(), dl.data(), dh.data()), vrxOk);
        expectLines(dl, dh);
        ASSERT_EQ(k.set(mem.data(), nullptr, dh.data()), vrxOk);
        expectLines(zeros, dh);
        const std::vector<uint8_t> snap = mem;
        EXPECT_EQ(run(mem.data(), 0), vrxErrBadLength);
        EXPECT_EQ(run(mem.data(), -1), vrxErrBadLength);
        EXPECT_TRUE(mem == snap && out == outFresh);
        EXPECT_TRUE(std::all_of(lo.begin(), lo.end(), [](float v) { return v == 5.0f; }));
    }
}

}  // namespace
