// Sparse FIR and IIR filters: values against a long-double model of the
// filter and against the documented order of fused steps, pieces against one
// call, in place against out of place, the delay line both ways, the size
// query at every start of the caller's block, and the family's own statuses.
#include <cmath>
#include <complex>
#include <functional>
#include <memory>

#include "vrx_test.h"

namespace {

// ------------------------------------------------------------------ kinds
// One table over FIR/IIR x 32f/32fc. Samples and taps are floats, two per
// element for complex kinds; positions are the feed-forward set, then the
// feedback set (IIR).
struct Api {
    const char* name;
    bool cplx, iir;
    std::function<VrxStatus(int, int, int, int, int*)> size;
    std::function<VrxStatus(void**, const float*, const int*, int, int, const float*, uint8_t*)> init;
    std::function<VrxStatus(const float*, float*, int, void*)> run;
    std::function<VrxStatus(const void*, float*)> get;
    std::function<VrxStatus(void*, const float*)> set;
    int k() const { return cplx ? 2 : 1; }
};

// E: the element type, S: the state type. FIR forms take no feedback count.
#define SPARSE_KIND(name, t, E, Kind, S, iir, ...)                                                         \
    Api{name, sizeof(E) == 8, iir,                                                                        \
        [](int n1, int n2, int o1, int o2, int* s) { return vrxs##Kind##SparseGetStateSize_##t(__VA_ARGS__); }, \
        [](void** pp, const float* tp, const int* p, int n1, int n2, const float* l, uint8_t* b) {       \
            return vrxs##Kind##SparseInit_##t((S**)pp, (const E*)tp, p, n1, SPARSE_N2_##Kind(const E*)l, b); }, \
        [](const float* s, float* d, int n, void* st) { return vrxs##Kind##Sparse_##t((const E*)s, (E*)d, n, (S*)st); }, \
        [](const void* st, float* l) { return vrxs##Kind##SparseGetDlyLine_##t((const S*)st, (E*)l); },  \
        [](void* st, const float* l) { return vrxs##Kind##SparseSetDlyLine_##t((S*)st, (const E*)l); }}
#define SPARSE_N2_FIR
#define SPARSE_N2_IIR n2,

const std::vector<Api>& kinds() {
    static const std::vector<Api> v = {
        SPARSE_KIND("FIR_32f", 32f, Vrx32f, FIR, VrxsFirSparseState_32f, false, n1, o1, s),
        SPARSE_KIND("FIR_32fc", 32fc, Vrx32fc, FIR, VrxsFirSparseState_32fc, false, n1, o1, s),
        SPARSE_KIND("IIR_32f", 32f, Vrx32f, IIR, VrxsIirSparseState_32f, true, n1, n2, o1, o2, s),
        SPARSE_KIND("IIR_32fc", 32fc, Vrx32fc, IIR, VrxsIirSparseState_32fc, true, n1, n2, o1, o2, s),
    };
    return v;
}

// ----------------------------------------------------------------- filters
struct Filt {
    std::vector<float> taps;  // scalars: k per tap
    std::vector<int> pos;
    int n1, n2;
    int o1() const { return pos[n1 - 1]; }
    int o2() const { return n2 ? pos[n1 + n2 - 1] : 0; }
    int lineLen() const { return o1() + o2(); }
};

// n1 feed-forward taps over 0..o1 (first at 0 when zeroFirst), n2 feedback
// taps from minFb to o2 whose magnitudes add up to 0.6 (stable).
Filt makeFilt(vt::Rng& g, const Api& k, int n1, int o1, int n2, int minFb, int o2, bool zeroFirst = true) {
    Filt f{{}, {}, n1, k.iir ? n2 : 0};
    auto spread = [&](int n, int lo, int hi) {
        std::vector<int> p;
        for (int i = 0; i < n; ++i) p.push_back(n == 1 ? hi : lo + int((int64_t(hi - lo) * i) / (n - 1)));
        for (int i = 1; i + 1 < n; ++i) {  // jiggle inner positions, keeping them rising
            int room = p[i + 1] - p[i - 1] - 2;
            if (room > 0) p[i] = p[i - 1] + 1 + int(g.range(0, room));
        }
        return p;
    };
    f.pos = spread(n1, zeroFirst ? 0 : int(g.range(0, o1 - (n1 - 1))), o1);
    for (int i = 0; i < n1 * k.k(); ++i) f.taps.push_back(float(g.uniform() * 2 - 1));
    if (f.n2) {
        std::vector<int> q = spread(n2, minFb, o2);
        f.pos.insert(f.pos.end(), q.begin(), q.end());
        for (int i = 0; i < n2 * k.k(); ++i) f.taps.push_back(float((g.uniform() * 2 - 1) * 0.6 / (n2 * k.k())));
    }
    return f;
}

// A state in a guarded block of the queried size, at a byte offset from
// a 64-byte boundary.
struct Box {
    std::unique_ptr<vt::Buffer> mem;
    void* st = nullptr;
    Box(const Api& k, const Filt& f, const float* line = nullptr, size_t off = 0) {
        int sz = 0;
        EXPECT_EQ(k.size(f.n1, f.n2, f.o1(), f.o2(), &sz), vrxOk);
        mem = std::make_unique<vt::Buffer>(size_t(sz), off);
        EXPECT_EQ(k.init(&st, f.taps.data(), f.pos.data(), f.n1, f.n2, line, mem->data()), vrxOk);
    }
    std::vector<uint8_t> bytes() const { return vt::vec(mem->data(), mem->size()); }
};

// --------------------------------------------------------------- models
using LC = std::complex<long double>;
LC at(const std::vector<float>& v, bool c, long i) { return c ? LC(v[2 * i], v[2 * i + 1]) : LC(v[i], 0); }

// Two models of the filter over x after the line (inputs then outputs,
// oldest first). In float, in the documented order of fused steps: the
// feed-forward chain from +0 (complex: re*x first, then the cross term), then
// one fused subtraction per feedback tap (the same steps with the tap
// negated); the library must give these bits. In long double, with per
// output the bound of what single precision may miss: one rounding of the
// running sum per fused step (two for complex taps), plus the errors of
// earlier outputs carried through the feedback taps.
struct Model { std::vector<float> steps; std::vector<LC> ref; std::vector<long double> bound; };
Model model(const Api& k, const Filt& f, const std::vector<float>& line, const std::vector<float>& x) {
    const long c = k.k(), n = long(x.size()) / c, o1 = f.o1(), o2 = f.o2();
    const long double u = 0x1p-24L * c * (f.n1 + 2 * f.n2 + 1);
    std::vector<float> xs(c * (o1 + n), 0.f), ys(c * (o2 + n), 0.f);
    if (!line.empty()) {
        std::copy(line.begin(), line.begin() + c * o1, xs.begin());
        std::copy(line.begin() + c * o1, line.end(), ys.begin());
    }
    std::copy(x.begin(), x.end(), xs.begin() + c * o1);
    std::vector<LC> yl(o2 + n);
    std::vector<long double> bd(o2 + n, 0);
    for (long i = 0; i < o2; ++i) yl[i] = at(ys, k.cplx, i);
    for (long i = 0; i < n; ++i) {
        float re = 0.f, im = 0.f;
        LC acc = 0;
        long double s = 0, carried = 0;
        for (int t = 0; t < f.n1 + f.n2; ++t) {
            const bool fb = t >= f.n1;
            const long j = fb ? o2 + i - f.pos[t] : o1 + i - f.pos[t];
            const float* v = fb ? &ys[c * j] : &xs[c * j];
            const float tr = fb ? -f.taps[c * t] : f.taps[c * t], ti = !k.cplx ? 0.f : fb ? -f.taps[c * t + 1] : f.taps[c * t + 1];
            if (!k.cplx) {
                re = std::fmaf(tr, v[0], re);
            } else {
                re = std::fmaf(-ti, v[1], std::fmaf(tr, v[0], re));
                im = std::fmaf(ti, v[0], std::fmaf(tr, v[1], im));
            }
            const LC a = at(f.taps, k.cplx, t), term = a * (fb ? yl[j] : at(xs, k.cplx, j));
            acc += fb ? -term : term;
            s += std::abs(term);
            if (fb) carried += std::abs(a) * bd[j];
        }
        ys[c * (o2 + i)] = re;
        if (k.cplx) ys[c * (o2 + i) + 1] = im;
        yl[o2 + i] = acc;
        bd[o2 + i] = u * (s + carried) + carried + 1e-37L;
    }
    return {std::vector<float>(ys.begin() + c * o2, ys.end()), std::vector<LC>(yl.begin() + o2, yl.end()),
            std::vector<long double>(bd.begin() + o2, bd.end())};
}

std::vector<float> runWhole(const Api& k, const Filt& f, const std::vector<float>& x, const float* line = nullptr) {
    Box b(k, f, line);
    std::vector<float> y(x.size(), -7.f);
    EXPECT_EQ(k.run(x.data(), y.data(), int(x.size() / k.k()), b.st), vrxOk);
    return y;
}

// Shapes: (n1, o1, n2, minFb, o2). Positions at 0, order 0, orders beyond a
// block (2048 real / 1024 complex samples), feedback from position 1 (one by
// one), from 2..15 (partial groups) and from 16 up (whole registers), dense
// stretches.
struct Shape { int n1, o1, n2, minFb, o2; };
const Shape kShapes[] = {
    {1, 0, 1, 1, 1},       {1, 7, 1, 16, 16},     {3, 2, 2, 1, 2},        {5, 40, 3, 8, 33},
    {32, 4096, 4, 16, 4000}, {32, 31, 6, 17, 300}, {7, 2500, 2, 1500, 2600}, {12, 300, 5, 1, 5},
    {4, 50, 3, 3, 90},     {2, 9, 4, 2, 7},
};

TEST(Sparse, ValuesMatchLongDoubleAndStepOrder) {
    vt::Rng g(1);
    vt::MxcsrScope mx;
    for (const Api& k : kinds()) {
        for (const Shape& s : kShapes) {
            for (int len : {1, 15, 16, 17, 129, 5000}) {
                Filt f = makeFilt(g, k, s.n1, s.o1, s.n2, s.minFb, s.o2, len != 15);
                std::vector<float> line = len % 2 ? vt::noise(g.next(), size_t(k.k()) * f.lineLen()) : std::vector<float>();
                std::vector<float> x = vt::noise(g.next(), size_t(k.k()) * len);
                const unsigned csr = _mm_getcsr();
                std::vector<float> y = runWhole(k, f, x, line.empty() ? nullptr : line.data());
                EXPECT_EQ(_mm_getcsr(), csr);
                const Model m = model(k, f, line, x);
                for (int i = 0; i < len; ++i)
                    ASSERT_LE(std::abs(at(y, k.cplx, i) - m.ref[i]), m.bound[i])
                        << k.name << " shape " << s.n1 << "/" << s.o1 << "/" << s.n2 << " len " << len << " i " << i;
                EXPECT_EQ(0, memcmp(y.data(), m.steps.data(), y.size() * sizeof(float)))
                    << k.name << " step order, shape " << s.n1 << "/" << s.o1 << " len " << len;
            }
        }
    }
}

// Random pieces, in place and out of place, with the state at every start
// modulo 64 bytes, give the bits of one call and the same line going out;
// nothing outside the queried size is written.
TEST(Sparse, PiecesInPlaceAndEveryStartEqualOneCall) {
    vt::Rng g(2);
    for (const Api& k : kinds()) {
        for (const Shape& s : kShapes) {
            Filt f = makeFilt(g, k, s.n1, s.o1, s.n2, s.minFb, s.o2);
            const int len = 9000;
            std::vector<float> x = vt::noise(g.next(), size_t(k.k()) * len), want = runWhole(k, f, x);
            std::vector<float> wantLine(size_t(k.k()) * f.lineLen() + 1, 0.f), line(wantLine);
            Box one(k, f);
            ASSERT_EQ(k.run(x.data(), std::vector<float>(x.size()).data(), len, one.st), vrxOk);
            ASSERT_EQ(k.get(one.st, wantLine.data()), vrxOk);
            for (size_t off = 0; off < 64; off += 4) {
                const int maxPiece = off % 8 ? 70 : 3000;
                const bool inPlace = off % 16 >= 8;
                Box b(k, f, nullptr, off);
                std::vector<float> y = inPlace ? x : std::vector<float>(x.size());
                int done = 0;
                for (int p : vt::randomPieces(g, len, maxPiece)) {
                    const float* src = (inPlace ? y.data() : x.data()) + size_t(k.k()) * done;
                    ASSERT_EQ(k.run(src, y.data() + size_t(k.k()) * done, p, b.st), vrxOk);
                    done += p;
                }
                ASSERT_EQ(k.get(b.st, line.data()), vrxOk);
                EXPECT_EQ(y, want) << k.name << " pieces up to " << maxPiece << (inPlace ? " in place" : "");
                EXPECT_EQ(line, wantLine) << k.name;
                EXPECT_TRUE(b.mem->guardsIntact()) << k.name << " offset " << off;
            }
        }
    }
}

// The line going out holds the last inputs (and outputs) in time order; Set
// with it continues the signal; Init with it equals Set; a null line is zeros.
TEST(Sparse, DelayLineRoundTripAndContinuity) {
    vt::Rng g(3);
    for (const Api& k : kinds()) {
        for (const Shape& s : kShapes) {
            Filt f = makeFilt(g, k, s.n1, s.o1, s.n2, s.minFb, s.o2);
            const int c = k.k(), L = f.lineLen(), len = 3000;
            std::vector<float> x = vt::noise(g.next(), size_t(c) * 2 * len);
            std::vector<float> whole = runWhole(k, f, x);
            // first half, then the line out
            Box a(k, f);
            std::vector<float> y(x.size());
            ASSERT_EQ(k.run(x.data(), y.data(), len, a.st), vrxOk);
            std::vector<float> line(size_t(c) * L + 1, 0.f);
            ASSERT_EQ(k.get(a.st, line.data()), vrxOk);
            // inputs, oldest first, then outputs; zeros before the first sample
            for (long i = 0; i < long(c) * L; ++i) {
                const bool in = i < long(c) * f.o1();
                const long t = in ? long(c) * (len - f.o1()) + i : long(c) * (len - f.o2() - f.o1()) + i;
                ASSERT_EQ(line[i], t < 0 ? 0.f : (in ? x : y)[t]) << k.name << " line " << i;
            }
            // a fresh state from that line, by Init and by Set, continues the signal
            Box b(k, f, line.data()), z(k, f);
            ASSERT_EQ(k.set(z.st, line.data()), vrxOk);
            for (void* st : {b.st, z.st}) {
                std::vector<float> yb(size_t(c) * len);
                ASSERT_EQ(k.run(x.data() + size_t(c) * len, yb.data(), len, st), vrxOk);
                EXPECT_TRUE(std::equal(yb.begin(), yb.end(), whole.begin() + size_t(c) * len)) << k.name;
            }
            // Set with null after a run: zeros (nothing written past the line), the bits of a fresh state
            std::vector<float> zero(line.size(), 1.f);
            ASSERT_EQ(k.set(a.st, nullptr), vrxOk);
            ASSERT_EQ(k.get(a.st, zero.data()), vrxOk);
            ASSERT_EQ(k.run(x.data(), y.data(), len, a.st), vrxOk);
            EXPECT_TRUE(std::equal(y.begin(), y.begin() + size_t(c) * len, whole.begin())) << k.name;
            zero.back() -= 1.f;
            EXPECT_EQ(zero, std::vector<float>(line.size(), 0.f)) << k.name;
        }
    }
}

// ----------------------------------------------------------------- statuses
constexpr uint8_t kFill = 0x5A;

TEST(Sparse, SizeQueryStatuses) {
    struct Case { bool iir; int n1, n2, o1, o2; bool nullSize; VrxStatus want; };
    const Case cases[] = {
        {false, 1, 0, 0, 0, false, vrxOk}, {false, 4, 0, 3, 0, false, vrxOk},
        {false, 4, 0, 2, 0, false, vrxErrSparseTaps},      // order < count - 1
        {false, 0, 0, 5, 0, false, vrxErrFirLen},          // no tap
        {false, -1, 0, -9, 0, false, vrxErrFirLen},        // the count before the order
        {false, 1, 0, -1, 0, false, vrxErrSparseTaps},     // negative order
        {false, 1, 0, 2147483000, 0, false, vrxErrNoMemory}, {true, 1, 1, 0, 1, false, vrxOk},
        {true, 3, 2, 2, 2, false, vrxOk},
        {true, 3, 2, 1, 2, false, vrxErrSparseTaps},       // order1 < count1 - 1
        {true, 3, 2, 2, 1, false, vrxErrSparseTaps},       // order2 < count2
        {true, 1, 1, 0, 0, false, vrxErrSparseTaps},       // feedback order 0
        {true, 0, 1, 0, 1, false, vrxErrSparseTaps},       // no feed-forward tap
        {true, 1, 0, 0, 1, false, vrxErrSparseTaps},       // no feedback tap
        {true, 0, 1, 0, 1, true, vrxErrNullPtr}, {true, 1, 1, 0, 2147483000, false, vrxErrNoMemory}};
    for (const Api& k : kinds()) {
        for (const Case& c : cases) {
            if (c.iir != k.iir) continue;
            int sz = -123;
            EXPECT_EQ(k.size(c.n1, c.n2, c.o1, c.o2, c.nullSize ? nullptr : &sz), c.want)
                << k.name << " " << c.n1 << "," << c.n2 << "," << c.o1 << "," << c.o2;
            if (c.want != vrxOk) EXPECT_EQ(sz, -123) << k.name << ": size written on failure";
            else EXPECT_GT(sz, 0);
        }
    }
}

TEST(Sparse, InitStatusesWriteNothing) {
    // nullArg: 0 ppState, 1 taps, 2 positions, 3 buffer, -1 none
    struct Case { const char* what; bool iir; std::vector<int> pos; int n1, n2, nullArg; VrxStatus want; };
    const Case cases[] = {
        {"negative position", false, {-1, 3}, 2, 0, -1, vrxErrSparseTaps},
        {"equal positions", false, {0, 3, 3}, 3, 0, -1, vrxErrSparseTaps},
        {"falling positions", false, {0, 5, 4}, 3, 0, -1, vrxErrSparseTaps},
        {"no tap", false, {-1}, 0, 0, -1, vrxErrFirLen},
        {"count before positions", false, {-1}, -2, 0, -1, vrxErrFirLen},
        {"feedback position 0", true, {0, 2, 0, 1}, 2, 2, -1, vrxErrSparseTaps},
        {"negative feed-forward position", true, {-3, 2, 1}, 2, 1, -1, vrxErrSparseTaps},
        {"equal feed-forward positions", true, {1, 1, 1}, 2, 1, -1, vrxErrSparseTaps},
        {"falling feedback positions", true, {0, 4, 2}, 1, 2, -1, vrxErrSparseTaps},
        {"equal feedback positions", true, {0, 3, 3}, 1, 2, -1, vrxErrSparseTaps},
        {"no feedback tap", true, {0}, 1, 0, -1, vrxErrSparseTaps},
        {"no feed-forward tap", true, {1}, 0, 1, -1, vrxErrSparseTaps},
        {"null before counts", true, {0}, 0, 0, 2, vrxErrNullPtr},
        {"null buffer", true, {-1}, -1, 1, 3, vrxErrNullPtr},
        {"feedback may restart below the feed-forward order", true, {0, 9, 1, 2}, 2, 2, -1, vrxOk},
    };
    for (const Api& k : kinds()) {
        for (const Case& c : cases) {
            if (c.iir != k.iir) continue;
            std::vector<float> taps(16, 0.25f), line(64, 0.5f);
            std::vector<uint8_t> buf(1 << 16, kFill);
            void* st = reinterpret_cast<void*>(uintptr_t(0x1234));
            VrxStatus r = k.init(c.nullArg == 0 ? nullptr : &st, c.nullArg == 1 ? nullptr : taps.data(),
                                 c.nullArg == 2 ? nullptr : c.pos.data(), c.n1, c.n2, line.data(),
                                 c.nullArg == 3 ? nullptr : buf.data());
            EXPECT_EQ(r, c.want) << k.name << ": " << c.what;
            if (r == vrxOk) continue;
            EXPECT_EQ(st, reinterpret_cast<void*>(uintptr_t(0x1234))) << k.name << ": " << c.what;
            EXPECT_EQ(buf, std::vector<uint8_t>(buf.size(), kFill)) << k.name << ": " << c.what << ": buffer written";
        }
    }
}

// Run, Get and Set refuse a zero identity word and the state of the other
// FIR/IIR kind (-17), writing nothing.
TEST(Sparse, RunAndLineStatuses) {
    vt::Rng g(5);
    for (const Api& k : kinds()) {
        std::vector<uint8_t> alien(1 << 16, 0);
        const Api& other = kinds()[(&k - kinds().data()) ^ 2];
        Box ob(other, makeFilt(g, other, 3, 10, 2, 1, 4));
        const std::vector<uint8_t> otherBefore = ob.bytes();
        std::vector<float> x(64, 1.f), y(64, 9.f), line(64, 9.f);
        for (void* st : {(void*)alien.data(), ob.st}) {
            EXPECT_EQ(k.run(x.data(), y.data(), 8, st), vrxErrBadSpec) << k.name;
            EXPECT_EQ(k.get(st, line.data()), vrxErrBadSpec) << k.name;
            EXPECT_EQ(k.set(st, line.data()), vrxErrBadSpec) << k.name;
            EXPECT_EQ(k.set(st, nullptr), vrxErrBadSpec) << k.name;
        }
        EXPECT_EQ(y, std::vector<float>(64, 9.f)) << k.name << ": written on failure";
        EXPECT_EQ(line, std::vector<float>(64, 9.f)) << k.name << ": line written on failure";
        EXPECT_EQ(ob.bytes(), otherBefore) << k.name << ": a foreign state written";
        EXPECT_EQ(alien, std::vector<uint8_t>(alien.size(), 0));
    }
}

}  // namespace
