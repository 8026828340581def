// Adaptive FIR (LMS), 32f and 64f: a long-double model over a system
// identification run, the documented accumulation order to the bit, pieces
// against one call, in place, the taps and line round trips, the state
// inside its reported size, the tap-count bound and the identity word.
#include <cmath>
#include <limits>
#include <vector>

#include "vrx_test.h"

namespace {

template <class T> struct Api;
#define LMS_API(T, t, lanes, word)                                       \
    template <> struct Api<T> {                                          \
        using St = VrxsFirLmsState_##t;                                  \
        static constexpr auto size = vrxsFIRLMSGetStateSize_##t;         \
        static constexpr auto init = vrxsFIRLMSInit_##t;                 \
        static constexpr auto run = vrxsFIRLMS_##t;                      \
        static constexpr auto getTaps = vrxsFIRLMSGetTaps_##t;           \
        static constexpr auto setTaps = vrxsFIRLMSSetTaps_##t;           \
        static constexpr auto getLine = vrxsFIRLMSGetDlyLine_##t;        \
        static constexpr auto setLine = vrxsFIRLMSSetDlyLine_##t;        \
        static constexpr int kLanes = lanes;                             \
        static constexpr int32_t kWord = word;                           \
    };
LMS_API(float, 32f, 16, 0x464C3031)
LMS_API(double, 64f, 8, 0x464C3032)
#undef LMS_API

// A state in a guarded block of the reported size at a chosen misalignment.
template <class T>
struct Lms {
    using A = Api<T>;
    int n;
    vt::Buffer mem;
    typename A::St* st = nullptr;
    static size_t bytes(int taps) { int b = 0; EXPECT_EQ(A::size(taps, &b), vrxOk); return size_t(b); }
    Lms(const std::vector<T>* taps, int taps_len, const std::vector<T>* line, size_t offset = 0)
        : n(taps_len), mem(bytes(taps_len), offset) {
        EXPECT_EQ(A::init(&st, taps ? taps->data() : nullptr, n, line ? line->data() : nullptr, mem.data()), vrxOk);
    }
    std::vector<T> run(const std::vector<T>& x, const std::vector<T>& d, T mu) {
        std::vector<T> y(x.size());
        EXPECT_EQ(A::run(x.data(), d.data(), y.data(), int(x.size()), mu, st), vrxOk);
        EXPECT_TRUE(mem.guardsIntact());
        return y;
    }
    std::vector<T> taps() const {
        std::vector<T> h(static_cast<size_t>(n));
        EXPECT_EQ(A::getTaps(st, h.data()), vrxOk);
        return h;
    }
    std::vector<T> line() const {
        std::vector<T> l(static_cast<size_t>(n));
        EXPECT_EQ(A::getLine(st, l.data()), vrxOk);
        l.pop_back();
        return l;
    }
};

template <class T>
std::vector<T> noise(vt::Rng& g, size_t n, double amp = 1.0) {
    std::vector<T> v(n);
    for (T& x : v) x = static_cast<T>(amp * (2 * g.uniform() - 1));
    return v;
}

// The unknown system's output in long double, rounded once to T.
template <class T>
std::vector<T> through(const std::vector<T>& h, const std::vector<T>& x) {
    std::vector<T> d(x.size());
    for (size_t n = 0; n < x.size(); ++n) {
        long double s = 0;
        for (size_t k = 0; k < h.size() && k <= n; ++k) s += (long double)h[k] * x[n - k];
        d[n] = static_cast<T>(s);
    }
    return d;
}

// The documented order in T: reversed taps g meet the window oldest first,
// chunk c of L lanes into partial sum c mod 4 by fma from +0, the sums in
// use folded (A0+A1)+(A2+A3), then the lanes in halves.
template <class T>
T orderedDot(const std::vector<T>& g, const T* w) {
    constexpr int L = Api<T>::kLanes;
    const int N = static_cast<int>(g.size()), used = std::min((N + L - 1) / L, 4);
    T acc[4][L] = {}, s[L];
    for (int j = 0; j < N; ++j) acc[(j / L) % 4][j % L] = std::fma(g[size_t(j)], w[j], acc[(j / L) % 4][j % L]);
    for (int l = 0; l < L; ++l) {
        const T a01 = used == 1 ? acc[0][l] : acc[0][l] + acc[1][l];
        s[l] = used <= 2 ? a01 : used == 3 ? a01 + acc[2][l] : a01 + (acc[2][l] + acc[3][l]);
    }
    for (int half = L / 2; half >= 1; half /= 2)
        for (int l = 0; l < half; ++l) s[l] = s[l] + s[l + half];
    return s[0];
}

// The algorithm in A: y = the taps' dot product with the window, written,
// then every tap moved by mu e x (in T by fma). In long double the dot product is
// a plain sum; in T it takes the documented order.
template <class A>
struct Model {
    std::vector<A> g, hist, y;  // g: reversed taps; hist: line, then every input
    template <class T>
    Model(const std::vector<T>& taps, const std::vector<T>& line) : g(taps.rbegin(), taps.rend()), hist(line.begin(), line.end()) {}
    template <class T>
    void run(const std::vector<T>& x, const std::vector<T>& d, T mu) {
        const size_t N = g.size();
        for (size_t i = 0; i < x.size(); ++i) {
            hist.push_back(x[i]);
            const A* w = hist.data() + hist.size() - N;
            A out = 0;
            if constexpr (std::is_same_v<A, long double>) for (size_t j = 0; j < N; ++j) out += g[j] * w[j];
            else out = orderedDot(g, w);
            y.push_back(out);
            const A me = A(mu) * (A(d[i]) - out);
            for (size_t j = 0; j < N; ++j) g[j] = std::is_same_v<A, long double> ? g[j] + me * w[j] : std::fma(me, w[j], g[j]);
        }
    }
    std::vector<A> taps() const { return std::vector<A>(g.rbegin(), g.rend()); }
};

template <class T> constexpr double kEps = std::numeric_limits<T>::epsilon();

template <class T>
class LmsTest : public ::testing::Test {};
using Types = ::testing::Types<float, double>;
TYPED_TEST_SUITE(LmsTest, Types);

// System identification: the taps converge to the unknown filter, and
// outputs and taps stay within a few rounding errors of the long-double
// run of the same algorithm.
TYPED_TEST(LmsTest, IdentifiesSystemAndFollowsLongDoubleModel) {
    using T = TypeParam;
    vt::Rng g(7);
    for (int N : {1, 3, 16, 17, 40, 64, 100, 256}) {
        SCOPED_TRACE(N);
        const std::vector<T> h = noise<T>(g, size_t(N), 1.0 / std::sqrt(double(N)));
        const int len = 3000 + 60 * N;  // about 30 time constants
        const std::vector<T> x = noise<T>(g, size_t(len)), d = through(h, x);
        const T mu = static_cast<T>(1.5 / N);  // input power 1/3
        Lms<T> f(nullptr, N, nullptr);
        const std::vector<T> y = f.run(x, d, mu), got = f.taps();
        Model<long double> m(std::vector<T>(size_t(N), T(0)), std::vector<T>(size_t(N - 1), T(0)));
        m.run(x, d, mu);
        const std::vector<long double> mh = m.taps();
        double worstY = 0, worstH = 0, converged = 0;
        for (int i = 0; i < len; ++i) worstY = std::max(worstY, double(std::fabs(y[size_t(i)] - m.y[size_t(i)])));
        for (int k = 0; k < N; ++k) {
            worstH = std::max(worstH, double(std::fabs(got[size_t(k)] - mh[size_t(k)])));
            converged = std::max(converged, double(std::fabs(got[size_t(k)] - h[size_t(k)])));
        }
        // measured: outputs about eps*sqrt(N)/2, taps about eps
        EXPECT_LE(worstY, 8 * kEps<T> * std::sqrt(double(N))) << "outputs against the long-double model";
        EXPECT_LE(worstH, 16 * kEps<T>) << "taps against the long-double model";
        EXPECT_LE(converged, 64 * kEps<T> * std::sqrt(double(N))) << "taps against the unknown system";
    }
}

// Outputs and taps to the bit of the documented order, at tap counts around
// every chunk and partial-sum boundary, from random taps and line, in the
// caller's rounding mode (nearest and toward zero), which comes back as it
// was, with flush-to-zero and denormals-are-zero left alone.
TYPED_TEST(LmsTest, AccumulationOrderToTheBitInTheCallersRounding) {
    using T = TypeParam;
    constexpr int L = Api<T>::kLanes;
    vt::Rng g(11);
    for (unsigned mode : {vt::kRoundNear, vt::kRoundZero | vt::kFtz | vt::kDaz}) {
        vt::MxcsrScope keep;
        _mm_setcsr(0x1F80u | mode);
        for (int N : {1, 2, L - 1, L, L + 1, 2 * L, 3 * L - 1, 3 * L, 4 * L, 4 * L + 1, 5 * L + 3, 7 * L, 9 * L - 2}) {
            SCOPED_TRACE(N);
            const std::vector<T> h = noise<T>(g, size_t(N), 0.5), line = noise<T>(g, size_t(N - 1));
            const std::vector<T> x = noise<T>(g, 300, 3.0), d = noise<T>(g, 300);
            const T mu = static_cast<T>(0.25 / N);
            Lms<T> f(&h, N, &line, size_t(N % 64));
            const std::vector<T> y = f.run(x, d, mu), got = f.taps();
            EXPECT_EQ(_mm_getcsr() & ~0x3Fu, 0x1F80u | mode);
            Model<T> m(h, line);
            m.run(x, d, mu);
            EXPECT_TRUE(vt::sameBitsAll(y, m.y)) << "outputs";
            EXPECT_TRUE(vt::sameBitsAll(got, m.taps())) << "taps";
        }
    }
}

// Random pieces give the bits of one call, and so do pDst == pSrc and
// pDst == pRef.
TYPED_TEST(LmsTest, PiecesAndInPlaceEqualOneCall) {
    using T = TypeParam;
    using A = Api<T>;
    vt::Rng g(5);
    for (int N : {1, 7, 16, 33, 64, 65, 130}) {
        SCOPED_TRACE(N);
        const std::vector<T> h = noise<T>(g, size_t(N), 0.3), line = noise<T>(g, size_t(N - 1));
        const int len = 1300;  // blocks of the line buffer and pieces across them
        const std::vector<T> x = noise<T>(g, size_t(len)), d = noise<T>(g, size_t(len));
        const T mu = static_cast<T>(0.5 / N);
        Lms<T> one(&h, N, &line), pieces(&h, N, &line, 24), onSrc(&h, N, &line), onRef(&h, N, &line);
        const std::vector<T> y = one.run(x, d, mu);
        std::vector<T> yp(size_t(len), T(-7)), xs(x), ds(d);
        int at = 0;
        for (int p : vt::randomPieces(g, len, 3 * N + 600)) {
            ASSERT_EQ(A::run(x.data() + at, d.data() + at, yp.data() + at, p, mu, pieces.st), vrxOk);
            at += p;
        }
        ASSERT_EQ(A::run(xs.data(), d.data(), xs.data(), len, mu, onSrc.st), vrxOk);
        ASSERT_EQ(A::run(x.data(), ds.data(), ds.data(), len, mu, onRef.st), vrxOk);
        for (const auto* other : {&yp, &xs, &ds}) EXPECT_EQ(0, memcmp(y.data(), other->data(), sizeof(T) * size_t(len)));
        for (const Lms<T>* s : {&pieces, &onSrc, &onRef}) {
            EXPECT_EQ(one.taps(), s->taps());
            EXPECT_EQ(one.line(), s->line());
        }
    }
}

// Taps and line: what Init takes comes back out, null means zeros, the
// line after a run is the last inputs (short runs keep the newest of the
// old line), and a used state given taps and line by Set continues like a
// fresh Init with them.
TYPED_TEST(LmsTest, TapsAndLineRoundTrips) {
    using T = TypeParam;
    using A = Api<T>;
    vt::Rng g(3);
    for (int N : {1, 2, 9, 31, 50}) {
        const std::vector<T> h = noise<T>(g, size_t(N)), h2 = noise<T>(g, size_t(N)), line = noise<T>(g, size_t(N - 1));
        Lms<T> f(&h, N, &line, 9), z(nullptr, N, nullptr);
        EXPECT_TRUE(f.taps() == h && f.line() == line);
        EXPECT_TRUE(z.taps() == std::vector<T>(size_t(N), T(0)) && z.line() == std::vector<T>(size_t(N - 1), T(0)));
        ASSERT_EQ(A::setLine(f.st, nullptr), vrxOk);
        EXPECT_EQ(f.line(), z.line()) << "a null line at Set is zeros";
        EXPECT_EQ(f.taps(), h) << "the line leaves the taps alone";
        for (int len : {1, 2, N / 2 + 1, N - 1, N + 5}) {
            if (len < 1) continue;
            SCOPED_TRACE(testing::Message() << N << " " << len);
            const std::vector<T> x = noise<T>(g, size_t(len)), d = noise<T>(g, size_t(len));
            Lms<T> a(&h, N, &line), b(&h2, N, nullptr);
            const std::vector<T> ya = a.run(x, d, T(0.01));
            std::vector<T> want(line);  // the last N-1 of line and input
            want.insert(want.end(), x.begin(), x.end());
            EXPECT_TRUE(std::equal(want.end() - (N - 1), want.end(), a.line().begin()));
            b.run(d, x, T(0.02));
            ASSERT_EQ(A::setTaps(b.st, h.data()), vrxOk);
            ASSERT_EQ(A::setLine(b.st, line.data()), vrxOk);
            EXPECT_EQ(b.taps(), h);
            EXPECT_EQ(b.run(x, d, T(0.01)), ya);
            EXPECT_EQ(a.taps(), b.taps());
        }
    }
}

// The tap count's upper bound, and the identity word (zero, or the other
// type's) after the pointers and the length; nothing written on failure.
TYPED_TEST(LmsTest, TapCountBoundAndIdentityWord) {
    using T = TypeParam;
    using A = Api<T>;
    int size = -5;
    EXPECT_EQ(A::size((1 << 26) + 1, &size), vrxErrFirLen);
    EXPECT_EQ(size, -5) << "nothing written";
    EXPECT_EQ(A::size(1 << 26, &size), vrxOk);
    const int N = 5;
    const std::vector<T> h(N, T(0.5)), line(N - 1, T(1));
    Lms<T> good(&h, N, &line);
    std::vector<uint8_t> mem(Lms<T>::bytes(N), 0xEE), wrong(mem.size(), 0);
    typename A::St *const kUnset = reinterpret_cast<typename A::St*>(8), *st = kUnset;
    EXPECT_EQ(A::init(&st, h.data(), (1 << 26) + 1, line.data(), mem.data()), vrxErrFirLen);
    EXPECT_TRUE(st == kUnset && mem == std::vector<uint8_t>(mem.size(), 0xEE));
    auto* bad = reinterpret_cast<typename A::St*>(wrong.data());
    std::vector<T> x(8, T(1)), d(8, T(2)), y(8, T(-3)), out(N, T(-9));
    const std::vector<uint8_t> before = vt::vec(good.mem.data(), good.mem.size());
    for (int32_t word : {0, Api<T>::kWord ^ 3}) {
        memcpy(wrong.data(), &word, 4);
        EXPECT_EQ(A::run(x.data(), d.data(), y.data(), 8, T(0.1), bad), vrxErrBadSpec);
        EXPECT_EQ(A::getTaps(bad, out.data()), vrxErrBadSpec);
        EXPECT_EQ(A::getLine(bad, out.data()), vrxErrBadSpec);
        EXPECT_EQ(A::setTaps(bad, h.data()), vrxErrBadSpec);
        EXPECT_EQ(A::setLine(bad, nullptr), vrxErrBadSpec);  // a null line is zeros: the word decides
        EXPECT_EQ(std::count(wrong.begin() + 4, wrong.end(), 0), long(wrong.size() - 4));
    }
    EXPECT_TRUE(y == std::vector<T>(8, T(-3)) && out == std::vector<T>(N, T(-9)));
    EXPECT_EQ(before, vt::vec(good.mem.data(), good.mem.size()));
    EXPECT_EQ(memcmp(good.st, &Api<T>::kWord, 4), 0);
}

}  // namespace
