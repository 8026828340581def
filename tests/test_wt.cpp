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

std::vector<float> randomTaps(vt::Rng& r, int n) {
    std::vector<float> t(n);
    for (float& v : t) v = static_cast<float>(r.uniform() * 2 - 1);
    return t;
}
std::vector<float> randomFloats(vt::Rng& r, size_t n, double scale = 1.0) {
    std::vector<float> t(n);
    for (float& v : t) v = static_cast<float>((r.uniform() * 2 - 1) * scale);
    return t;
}

// ------------------------------------------------------ the references
struct Ref {
    long double v;
    long double mag;  // sum of |terms|
};

// y[n] = sum_k h[k] x[2n - o - k] (o = -1: x[2n + 1 - k]); x[-D..-1] = history.
std::vector<Ref> refFwd(const std::vector<float>& h, int o, const std::vector<float>& hist,
                        const std::vector<float>& x) {
    const int D = static_cast<int>(hist.size()), n = static_cast<int>(x.size() / 2);
    auto X = [&](int i) -> long double { return i >= 0 ? x[i] : (i >= -D ? hist[D + i] : 0.0L); };
    std::vector<Ref> y(n);
    for (int m = 0; m < n; ++m) {
        const int top = o == -1 ? 2 * m + 1 : 2 * m - o;
        for (size_t k = 0; k < h.size(); ++k) {
            long double t = static_cast<long double>(h[k]) * X(top - static_cast<int>(k));
            y[m].v += t;
            y[m].mag += fabsl(t);
        }
    }
    return y;
}

// One inverse band: band delayed by o/2 after the history u[-D..-1];
// even outputs from even taps, odd from odd; offset -1: one sample later.
void refInvBand(const std::vector<float>& g, int o, const std::vector<float>& hist, const std::vector<float>& u,
                std::vector<Ref>& out) {
    const int D = static_cast<int>(hist.size()), n = static_cast<int>(u.size());
    const int gd = o > 0 ? o / 2 : 0, p = o == -1 ? 1 : 0;
    auto V = [&](int i) -> long double {
        i -= gd;
        return i >= 0 ? u[i] : (i >= -D ? hist[D + i] : 0.0L);
    };
    for (int m = 0; m < 2 * n; ++m) {
        // output m = sum_k g[k] up(v)[m - k - p], up(v)[2i] = v[i]
        for (size_t k = 0; k < g.size(); ++k) {
            const int idx = m - static_cast<int>(k) - p;
            if (idx < -2 * (D + 4) || (idx & 1)) continue;
            long double t = static_cast<long double>(g[k]) * V(idx / 2);
            out[m].v += t;
            out[m].mag += fabsl(t);
        }
    }
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
            const std::vector<float> hl = randomTaps(rng, c.tl), hh = randomTaps(rng, c.th);
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
                    if (withHist) ASSERT_EQ(k->set(s->p(), dl.data(), dh.data()), vrxOk);
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

// Init leaves every line zero; Get after Set gives the values back; a null
// line given to Set means zeros. Every kind.
TEST(WtBank, DelayLinesAfterInitAndSet) {
    vt::Rng rng(5);
    for (const Kind& k : kKinds) {
        for (Cfg c : {Cfg{1, -1, 2, 0}, Cfg{7, 3, 4, -1}, Cfg{12, 5, 33, 2}}) {
            SCOPED_TRACE(testing::Message() << k.name << " taps " << c.tl << " " << c.th);
            const std::vector<float> hl = randomTaps(rng, c.tl), hh = randomTaps(rng, c.th);
            StateBuf s(k, c.tl, c.ol, c.th, c.oh);
            ASSERT_EQ(k.init(s.p(), hl.data(), c.tl, c.ol, hh.data(), c.th, c.oh), vrxOk);
            const size_t Dl = delayOf(k.isInv, c.tl, c.ol), Dh = delayOf(k.isInv, c.th, c.oh);
            const std::vector<float> zl(Dl), dl = randomFloats(rng, Dl), dh = randomFloats(rng, Dh);
            std::vector<float> gl(Dl + 1, 9.0f), gh(Dh + 1, 9.0f);
            ASSERT_EQ(k.get(s.p(), gl.data(), gh.data()), vrxOk);
            EXPECT_TRUE(sameN(gl.data(), zl.data(), Dl) && std::all_of(gh.begin(), gh.end() - 1, [](float v) { return v == 0; }));
            EXPECT_TRUE(gl[Dl] == 9.0f && gh[Dh] == 9.0f);
            ASSERT_EQ(k.set(s.p(), dl.data(), dh.data()), vrxOk);
            ASSERT_EQ(k.get(s.p(), gl.data(), gh.data()), vrxOk);
            EXPECT_TRUE(sameN(gl.data(), dl.data(), Dl) && sameN(gh.data(), dh.data(), Dh));
            ASSERT_EQ(k.set(s.p(), nullptr, dh.data()), vrxOk);
            ASSERT_EQ(k.get(s.p(), gl.data(), gh.data()), vrxOk);
            EXPECT_TRUE(sameN(gl.data(), zl.data(), Dl) && sameN(gh.data(), dh.data(), Dh));
            EXPECT_TRUE(s.buf.guardsIntact());
        }
    }
}

// ------------------------------------------------- perfect reconstruction
// Daubechies low-pass analysis taps with 2, 4 and 8 vanishing moments; the
// high-pass is h1[k] = (-1)^k h0[L-1-k], synthesis the reversed analysis taps.
const float kDb2[] = {0.48296291314453414f, 0.83651630373780790f, 0.22414386804201339f, -0.12940952255126037f};
const float kDb4[] = {0.23037781330889656f, 0.71484657055291589f, 0.63088076792985903f, -0.02798376941685991f,
                      -0.18703481171909314f, 0.030841381835560764f, 0.032883011666885203f, -0.010597401785069037f};
const float kDb8[] = {0.054415842243103987f, 0.31287159091429989f, 0.67563073629728976f, 0.58535468365420629f,
                      -0.015829105256348466f, -0.28401554296154746f, 0.00047248457391377215f, 0.12874742662047806f,
                      -0.017369301001807308f, -0.044088253930794803f, 0.013981027917398274f, 0.0087460940474057714f,
                      -0.0048703529934515689f, -0.00039174037337694716f, 0.00067544940645056857f,
                      -0.00011747678412476937f};

// x through a forward and an inverse state; returns the reconstruction.
std::vector<float> roundTrip(const std::vector<float>& a0, const std::vector<float>& a1, int of0, int of1,
                             const std::vector<float>& s0, const std::vector<float>& s1, int oi0, int oi1,
                             const std::vector<float>& x, vt::Rng& rng) {
    const int n = static_cast<int>(x.size() / 2);
    const int na0 = int(a0.size()), na1 = int(a1.size()), ns0 = int(s0.size()), ns1 = int(s1.size());
    StateBuf f(kKinds[0], na0, of0, na1, of1), i(kKinds[4], ns0, oi0, ns1, oi1);
    EXPECT_EQ(vrxsWTFwdInit_32f(static_cast<VrxsWtFwdState_32f*>(f.p()), a0.data(), na0, of0, a1.data(), na1, of1), vrxOk);
    EXPECT_EQ(vrxsWTInvInit_32f(static_cast<VrxsWtInvState_32f*>(i.p()), s0.data(), ns0, oi0, s1.data(), ns1, oi1), vrxOk);
    std::vector<float> lo(n), hi(n), y(2 * n);
    run32(kKinds[0], f.p(), x, x, lo, hi, vt::randomPieces(rng, n));
    run32(kKinds[4], i.p(), lo, hi, y, y, vt::randomPieces(rng, n));
    return y;
}

void expectDelayed(const std::vector<float>& x, const std::vector<float>& y, int delay) {
    double worst = 0;
    for (size_t m = 0; m < y.size(); ++m) {
        const double want = m >= size_t(delay) ? x[m - delay] : 0.0;
        worst = std::max(worst, std::fabs(y[m] - want));
    }
    EXPECT_LE(worst, 1e-5) << "delay " << delay;
}

TEST(WtBank, PerfectReconstructionOrthogonal) {
    vt::Rng rng(3);
    const std::vector<float> x = randomFloats(rng, 2 * 700);
    struct W {
        const float* h;
        int L;
    };
    for (W w : {W{kDb2, 4}, W{kDb4, 8}, W{kDb8, 16}}) {
        std::vector<float> h0(w.h, w.h + w.L), h1(w.L);
        for (int k = 0; k < w.L; ++k) h1[k] = (k & 1 ? -1.0f : 1.0f) * h0[w.L - 1 - k];
        const std::vector<float> f0(h0.rbegin(), h0.rend()), f1(h1.rbegin(), h1.rend());
        struct Case {
            int of, oi, delay;
        };
        const int L = w.L;
        for (Case c : {Case{0, 0, L - 1}, Case{-1, 0, L - 2}, Case{1, 0, L}, Case{-1, -1, L - 1}, Case{0, 2, L + 1},
                       Case{0, 1, L - 1}, Case{2, 4, L + 5}}) {
            SCOPED_TRACE(testing::Message() << "L " << L << " offsets " << c.of << " " << c.oi);
            expectDelayed(x, roundTrip(h0, h1, c.of, c.of, f0, f1, c.oi, c.oi, x, rng), c.delay);
        }
    }
}

// The 5/3 biorthogonal pair: analysis low 5 taps, high 3, synthesis low 3,
// high 5; odd lengths, so the bands take different phases.
TEST(WtBank, PerfectReconstructionBiorthogonal) {
    vt::Rng rng(4);
    const std::vector<float> x = randomFloats(rng, 2 * 500);
    const std::vector<float> a0 = {-0.125f, 0.25f, 0.75f, 0.25f, -0.125f}, a1 = {-0.5f, 1.0f, -0.5f};
    const std::vector<float> s0 = {0.5f, 1.0f, 0.5f}, s1 = {-0.125f, -0.25f, 0.75f, -0.25f, -0.125f};
    expectDelayed(x, roundTrip(a0, a1, 0, 0, s0, s1, 0, 0, x, rng), 3);
    expectDelayed(x, roundTrip(a0, a1, -1, -1, s0, s1, 0, 0, x, rng), 2);
    expectDelayed(x, roundTrip(a0, a1, -1, -1, s0, s1, -1, -1, x, rng), 3);
    expectDelayed(x, roundTrip(a0, a1, 1, 1, s0, s1, 2, 2, x, rng), 6);
}

// ------------------------------------------------------------ typed forms
// Typed sources: bit-identical to the 32f state on the converted data,
// across the 1024-sample chunks, in random pieces.
TEST(WtTyped, SourcesMatchFloatState) {
    vt::Rng rng(8);
    for (int ki = 1; ki <= 3; ++ki) {
        const Kind& k = kKinds[ki];
        // the split buffer's shortest chunk (896 taps) and the chunked float path beyond it
        for (Cfg c : {Cfg{1, -1, 5, 3}, Cfg{8, 0, 8, -1}, Cfg{33, 5, 16, 1}, Cfg{896, -1, 895, 2}, Cfg{900, 0, 3, 1},
                       Cfg{4, 0, 4, 0}, Cfg{9, -1, 9, -1}, Cfg{12, 3, 12, 3}}) {
            SCOPED_TRACE(testing::Message() << k.name << " taps " << c.tl);
            const std::vector<float> hl = randomTaps(rng, c.tl), hh = randomTaps(rng, c.th);
            const int n = 1500;
            std::vector<uint8_t> raw(2 * n * elemSize(k.sel));
            rng.fill(raw.data(), raw.size());
            std::vector<float> xf(2 * n);
            for (int i = 0; i < 2 * n; ++i) {
                if (k.sel == 1) xf[i] = raw[i];
                else if (k.sel == 5) xf[i] = reinterpret_cast<const uint16_t*>(raw.data())[i];
                else xf[i] = reinterpret_cast<const int16_t*>(raw.data())[i];
            }
            StateBuf sf(kKinds[0], c.tl, c.ol, c.th, c.oh), st(k, c.tl, c.ol, c.th, c.oh);
            ASSERT_EQ(kKinds[0].init(sf.p(), hl.data(), c.tl, c.ol, hh.data(), c.th, c.oh), vrxOk);
            ASSERT_EQ(k.init(st.p(), hl.data(), c.tl, c.ol, hh.data(), c.th, c.oh), vrxOk);
            std::vector<float> l1(n), h1(n), l2(n), h2(n);
            run32(kKinds[0], sf.p(), xf, xf, l1, h1, {n});
            int at = 0;
            for (int p : vt::randomPieces(rng, n, 700)) {
                ASSERT_EQ(k.fwd(raw.data() + 2 * at * elemSize(k.sel), l2.data() + at, h2.data() + at, p, st.p()), vrxOk);
                at += p;
            }
            EXPECT_TRUE(sameN(l1.data(), l2.data(), n));
            EXPECT_TRUE(sameN(h1.data(), h2.data(), n));
            EXPECT_TRUE(st.buf.guardsIntact());
        }
    }
}

// Typed results: the 32f result converted by Convert_32f*_Sfs (nearest, 0),
// saturation included, across the chunk edge.
TEST(WtTyped, ResultsAreConvertedFloatResult) {
    vt::Rng rng(9);
    for (int ki = 5; ki <= 7; ++ki) {
        const Kind& k = kKinds[ki];
        for (Cfg c : {Cfg{2, 0, 3, -1}, Cfg{9, 4, 1, 2}, Cfg{33, -1, 20, 5}}) {
            SCOPED_TRACE(testing::Message() << k.name << " taps " << c.tl);
            const std::vector<float> hl = randomTaps(rng, c.tl), hh = randomTaps(rng, c.th);
            const int n = 1300;
            const std::vector<float> ul = randomFloats(rng, n, 40000.0), uh = randomFloats(rng, n, 40000.0);
            StateBuf sf(kKinds[4], c.tl, c.ol, c.th, c.oh), st(k, c.tl, c.ol, c.th, c.oh);
            ASSERT_EQ(kKinds[4].init(sf.p(), hl.data(), c.tl, c.ol, hh.data(), c.th, c.oh), vrxOk);
            ASSERT_EQ(k.init(st.p(), hl.data(), c.tl, c.ol, hh.data(), c.th, c.oh), vrxOk);
            vt::MxcsrScope mx;
            _mm_setcsr(_mm_getcsr() | vt::kRoundZero);  // the filter runs in it, the conversion does not
            const unsigned before = _mm_getcsr();
            std::vector<float> yf(2 * n);
            run32(kKinds[4], sf.p(), ul, uh, yf, yf, {n});
            const size_t es = elemSize(k.sel);
            std::vector<uint8_t> want(2 * n * es), got(2 * n * es);
            _mm_setcsr(before);
            if (k.sel == 1) ASSERT_EQ(vrxsConvert_32f8u_Sfs(yf.data(), want.data(), 2 * n, vrxRndNear, 0), vrxOk);
            if (k.sel == 5) ASSERT_EQ(vrxsConvert_32f16u_Sfs(yf.data(), reinterpret_cast<Vrx16u*>(want.data()), 2 * n, vrxRndNear, 0), vrxOk);
            if (k.sel == 7) ASSERT_EQ(vrxsConvert_32f16s_Sfs(yf.data(), reinterpret_cast<Vrx16s*>(want.data()), 2 * n, vrxRndNear, 0), vrxOk);
            int at = 0;
            for (int p : vt::randomPieces(rng, n, 700)) {
                ASSERT_EQ(k.inv(ul.data() + at, uh.data() + at, p, got.data() + 2 * at * es, st.p()), vrxOk);
                at += p;
            }
            EXPECT_EQ(_mm_getcsr() & ~0x3Fu, before & ~0x3Fu);
            _mm_setcsr(before);
            EXPECT_EQ(memcmp(want.data(), got.data(), want.size()), 0);
            // saturation is reached on both sides
            size_t lowSat = 0, highSat = 0;
            for (float v : yf) lowSat += v < (k.sel == 7 ? -32768.0f : 0.0f), highSat += v > (k.sel == 1 ? 255.0f : 32767.0f);
            EXPECT_GT(lowSat, 0u);
            EXPECT_GT(highSat, 0u);
            EXPECT_TRUE(st.buf.guardsIntact());
        }
    }
}

// ---------------------------------------------------------------- statuses
TEST(WtStatus, GetSizeOrderAndZero) {
    for (bool inv : {false, true}) {
        auto gs = [&](int sel, int tl, int ol, int th, int oh, int* p) {
            return inv ? vrxsWTInvGetSize(sel, tl, ol, th, oh, p) : vrxsWTFwdGetSize(sel, tl, ol, th, oh, p);
        };
        // selector, then lengths, then offsets; every failure leaves 0
        const struct { int sel, tl, ol, th, oh; VrxStatus st; } rows[] = {
            {2, 0, -2, 4, 0, vrxErrDataType}, {13, 4, -2, 0, 0, vrxErrBadLength}, {7, 4, 0, 4, -2, vrxErrWtOffset},
            {1, 0x7FFFFFF0, 0, 4, 0, vrxErrBadLength}};
        int sz = 77;
        for (const auto& r : rows) {
            sz = 77;
            EXPECT_EQ(gs(r.sel, r.tl, r.ol, r.th, r.oh, &sz), r.st);
            EXPECT_EQ(sz, 0);
        }
        for (int sel : {13, 1, 5, 7}) EXPECT_EQ(gs(sel, 4, 0, 4, 0, &sz), vrxOk);
        // the size formula for one case: forward taps 3 offset 2, taps 4 offset -1
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

// Init: -8 writes nothing; the identity word is written before -6 and -35
// and nothing else; a run reports -8, then -17, then -6, leaving outputs alone.
TEST(WtStatus, InitAndRunOrder) {
    const float taps[4] = {1, 2, 3, 4};
    for (const Kind& k : kKinds) {
        SCOPED_TRACE(k.name);
        const int size = stateSize(k, 4, 1, 4, 1);
        std::vector<uint8_t> mem(size, 0xC3), fresh(size, 0xC3);
        EXPECT_EQ(k.init(mem.data(), nullptr, 0, 1, taps, 4, 1), vrxErrNullPtr);
        EXPECT_EQ(mem, fresh);
        for (int bad = 0; bad < 2; ++bad) {
            const VrxStatus want = bad ? vrxErrWtOffset : vrxErrBadLength;
            EXPECT_EQ(bad ? k.init(mem.data(), taps, 4, 1, taps, 4, -2) : k.init(mem.data(), taps, 4, -2, taps, 0, 1), want);
            int32_t id;
            memcpy(&id, mem.data(), 4);
            const int32_t ids[] = {43, 44, 46, 47, 52, 53, 55, 56};
            EXPECT_EQ(id, ids[&k - kKinds]);
            EXPECT_TRUE(std::all_of(mem.begin() + 4, mem.end(), [](uint8_t b) { return b == 0xC3; }));
        }
        // a state with only its word is refused (-17), before the length
        std::vector<float> f(64, 5.0f), lo(64, 5.0f), hi(64, 5.0f);
        std::vector<uint8_t> out(256, 0x5A), outFresh(256, 0x5A);
        auto run = [&](void* st, int n) {
            return k.isInv ? k.inv(f.data(), f.data(), n, out.data(), st) : k.fwd(out.data(), lo.data(), hi.data(), n, st);
        };
        EXPECT_EQ(run(mem.data(), 0), vrxErrBadSpec);
        EXPECT_EQ(run(mem.data(), 4), vrxErrBadSpec);
        EXPECT_EQ(k.set(mem.data(), nullptr, nullptr), vrxErrBadSpec);
        EXPECT_EQ(k.get(mem.data(), lo.data(), hi.data()), vrxErrBadSpec);
        // a whole state of another kind is refused too
        const Kind& other = kKinds[(&k - kKinds + 1) % 8];
        std::vector<uint8_t> om(stateSize(other, 4, 1, 4, 1));
        ASSERT_EQ(other.init(om.data(), taps, 4, 1, taps, 4, 1), vrxOk);
        EXPECT_EQ(run(om.data(), 4), vrxErrBadSpec);
        // a good state: -6 for the length, nothing written
        ASSERT_EQ(k.init(mem.data(), taps, 4, 1, taps, 4, 1), vrxOk);
        const std::vector<uint8_t> snap = mem;
        EXPECT_EQ(run(mem.data(), 0), vrxErrBadLength);
        EXPECT_EQ(run(mem.data(), -1), vrxErrBadLength);
        EXPECT_EQ(mem, snap);
        EXPECT_EQ(out, outFresh);
        EXPECT_TRUE(std::all_of(lo.begin(), lo.end(), [](float v) { return v == 5.0f; }));
        // a state whose ring position or delay length was corrupted is refused
        for (int32_t bad : {-1, 1 << 20}) {
            std::vector<uint8_t> m2 = mem;
            // find the ring record of the low band: length 4 (forward) or 3 (inverse) then pos 0
            const int32_t len = k.isInv ? 3 : 4;
            size_t at = 0;
            for (size_t i = 48; i + 8 <= m2.size(); i += 4) {
                int32_t a, b;
                memcpy(&a, &m2[i], 4);
                memcpy(&b, &m2[i + 4], 4);
                if (a == len && b == 0 && i % 8 == 0) { at = i; break; }
            }
            ASSERT_NE(at, 0u);
            memcpy(&m2[at + 4], &bad, 4);
            EXPECT_EQ(run(m2.data(), 4), vrxErrBadSpec);
        }
    }
}

// The rounding mode of the caller is left as it was, and the filter runs
// in it without touching the word.
TEST(WtStatus, MxcsrUntouched) {
    vt::MxcsrScope mx;
    vt::Rng rng(2);
    const std::vector<float> h = randomTaps(rng, 9), x = randomFloats(rng, 400);
    for (unsigned mode : {vt::kRoundNear, vt::kRoundUp, vt::kRoundZero | vt::kFtz | vt::kDaz}) {
        _mm_setcsr(0x1F80 | mode);
        StateBuf s(kKinds[0], 9, 2, 9, -1);
        ASSERT_EQ(kKinds[0].init(s.p(), h.data(), 9, 2, h.data(), 9, -1), vrxOk);
        std::vector<float> lo(200), hi(200);
        ASSERT_EQ(kKinds[0].fwd(x.data(), lo.data(), hi.data(), 200, s.p()), vrxOk);
        EXPECT_EQ(_mm_getcsr() & ~0x3Fu, 0x1F80 | mode);
    }
}

}  // namespace
