// Adaptive FIR (LMS), 32f and 64f: a long-double model over a system
// identification run, the documented accumulation order to the bit, pieces
// against one call, in place, the taps and line round trips, the state
// inside its reported size, and every status with its order.
#include <cmath>
#include <limits>
#include <vector>

#include <gtest/gtest.h>

#include "vrx_test.h"

namespace {

template <class T> struct Api;
template <> struct Api<float> {
    using St = VrxsFirLmsState_32f;
    static constexpr auto size = vrxsFIRLMSGetStateSize_32f;
    static constexpr auto init = vrxsFIRLMSInit_32f;
    static constexpr auto run = vrxsFIRLMS_32f;
    static constexpr auto getTaps = vrxsFIRLMSGetTaps_32f;
    static constexpr auto setTaps = vrxsFIRLMSSetTaps_32f;
    static constexpr auto getLine = vrxsFIRLMSGetDlyLine_32f;
    static constexpr auto setLine = vrxsFIRLMSSetDlyLine_32f;
    static constexpr int kLanes = 16;
    static constexpr int32_t kWord = 0x464C3031;
};
template <> struct Api<double> {
    using St = VrxsFirLmsState_64f;
    static constexpr auto size = vrxsFIRLMSGetStateSize_64f;
    static constexpr auto init = vrxsFIRLMSInit_64f;
    static constexpr auto run = vrxsFIRLMS_64f;
    static constexpr auto getTaps = vrxsFIRLMSGetTaps_64f;
    static constexpr auto setTaps = vrxsFIRLMSSetTaps_64f;
    static constexpr auto getLine = vrxsFIRLMSGetDlyLine_64f;
    static constexpr auto setLine = vrxsFIRLMSSetDlyLine_64f;
    static constexpr int kLanes = 8;
    static constexpr int32_t kWord = 0x464C3032;
};

// A state in its own block of the reported size at a chosen misalignment.
template <class T>
struct Lms {
    using A = Api<T>;
    int n;
    std::vector<uint8_t> mem;
    typename A::St* st = nullptr;
    Lms(const T* taps, int taps_len, const T* line, size_t offset = 0) : n(taps_len) {
        int bytes = 0;
        EXPECT_EQ(A::size(taps_len, &bytes), vrxOk);
        mem.assign(size_t(bytes) + offset, 0);
        EXPECT_EQ(A::init(&st, taps, taps_len, line, mem.data() + offset), vrxOk);
    }
    VrxStatus run(const T* x, const T* d, T* y, int len, T mu) { return A::run(x, d, y, len, mu, st); }
    std::vector<T> taps() const {
        std::vector<T> h(static_cast<size_t>(n));
        EXPECT_EQ(A::getTaps(st, h.data()), vrxOk);
        return h;
    }
    std::vector<T> line() const {
        std::vector<T> l(static_cast<size_t>(n > 1 ? n - 1 : 1));
        EXPECT_EQ(A::getLine(st, l.data()), vrxOk);
        l.resize(size_t(n - 1));
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

// The algorithm in long double: y written, then every tap moved by mu*e*x.
struct ModelLD {
    std::vector<long double> h, hist;  // hist: line, then every input
    std::vector<long double> y;
    template <class T>
    ModelLD(const std::vector<T>& taps, const std::vector<T>& line) : h(taps.begin(), taps.end()), hist(line.begin(), line.end()) {}
    template <class T>
    void run(const std::vector<T>& x, const std::vector<T>& d, long double mu) {
        const size_t N = h.size();
        for (size_t i = 0; i < x.size(); ++i) {
            hist.push_back(x[i]);
            const size_t now = hist.size() - 1;
            long double s = 0;
            for (size_t k = 0; k < N; ++k) s += h[k] * hist[now - k];
            y.push_back(s);
            const long double e = d[i] - s;
            for (size_t k = 0; k < N; ++k) h[k] += mu * e * hist[now - k];
        }
    }
};

// The documented order in T: reversed taps g meet the window oldest first,
// chunk c of L lanes into partial sum c mod 4 by fma from +0, the sums in
// use folded (A0+A1)+(A2+A3), then the lanes in halves.
template <class T>
T orderedDot(const std::vector<T>& g, const T* w) {
    constexpr int L = Api<T>::kLanes;
    const int N = static_cast<int>(g.size());
    T acc[4][L] = {};
    for (int j = 0; j < N; ++j) acc[(j / L) % 4][j % L] = std::fma(g[size_t(j)], w[j], acc[(j / L) % 4][j % L]);
    const int used = std::min((N + L - 1) / L, 4);
    T s[L];
    for (int l = 0; l < L; ++l) {
        if (used == 1) s[l] = acc[0][l];
        else if (used == 2) s[l] = acc[0][l] + acc[1][l];
        else if (used == 3) s[l] = (acc[0][l] + acc[1][l]) + acc[2][l];
        else s[l] = (acc[0][l] + acc[1][l]) + (acc[2][l] + acc[3][l]);
    }
    for (int half = L / 2; half >= 1; half /= 2)
        for (int l = 0; l < half; ++l) s[l] = s[l] + s[l + half];
    return s[0];
}

template <class T>
struct ModelBits {
    std::vector<T> g, hist;
    ModelBits(const std::vector<T>& taps, const std::vector<T>& line) : g(taps.rbegin(), taps.rend()), hist(line) {}
    void run(const std::vector<T>& x, const std::vector<T>& d, T mu, std::vector<T>& y) {
        const size_t N = g.size();
        for (size_t i = 0; i < x.size(); ++i) {
            hist.push_back(x[i]);
            const T* w = hist.data() + hist.size() - N;
            const T out = orderedDot(g, w);
            y.push_back(out);
            const T me = mu * (d[i] - out);
            for (size_t j = 0; j < N; ++j) g[j] = std::fma(me, w[j], g[j]);
        }
    }
    std::vector<T> taps() const { return std::vector<T>(g.rbegin(), g.rend()); }
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
        std::vector<T> zeros(static_cast<size_t>(N), T(0)), line(size_t(N - 1), T(0));
        Lms<T> f(zeros.data(), N, nullptr);
        std::vector<T> y(static_cast<size_t>(len));
        ASSERT_EQ(f.run(x.data(), d.data(), y.data(), len, mu), vrxOk);
        ModelLD m(zeros, line);
        m.run(x, d, mu);
        double worstY = 0, worstH = 0, converged = 0;
        for (int i = 0; i < len; ++i) worstY = std::max(worstY, double(std::fabs(y[size_t(i)] - m.y[size_t(i)])));
        const std::vector<T> got = f.taps();
        for (int k = 0; k < N; ++k) {
            worstH = std::max(worstH, double(std::fabs(got[size_t(k)] - m.h[size_t(k)])));
            converged = std::max(converged, double(std::fabs(got[size_t(k)] - h[size_t(k)])));
        }
        // measured: outputs about eps*sqrt(N)/2, taps about eps
        EXPECT_LE(worstY, 8 * kEps<T> * std::sqrt(double(N))) << "outputs against the long-double model";
        EXPECT_LE(worstH, 16 * kEps<T>) << "taps against the long-double model";
        EXPECT_LE(converged, 64 * kEps<T> * std::sqrt(double(N))) << "taps against the unknown system";
    }
}

// Outputs and taps to the bit of the documented order, at tap counts around
// every chunk and partial-sum boundary, from random taps and line.
TYPED_TEST(LmsTest, AccumulationOrderToTheBit) {
    using T = TypeParam;
    constexpr int L = Api<T>::kLanes;
    vt::Rng g(11);
    for (int N : {1, 2, L - 1, L, L + 1, 2 * L, 3 * L - 1, 3 * L, 4 * L, 4 * L + 1, 5 * L + 3, 7 * L, 9 * L - 2}) {
        SCOPED_TRACE(N);
        const std::vector<T> h = noise<T>(g, size_t(N), 0.5), line = noise<T>(g, size_t(N - 1));
        const int len = 300;
        const std::vector<T> x = noise<T>(g, size_t(len), 3.0), d = noise<T>(g, size_t(len));
        const T mu = static_cast<T>(0.25 / N);
        Lms<T> f(h.data(), N, line.data());
        std::vector<T> y(static_cast<size_t>(len));
        ASSERT_EQ(f.run(x.data(), d.data(), y.data(), len, mu), vrxOk);
        ModelBits<T> m(h, line);
        std::vector<T> ym;
        m.run(x, d, mu, ym);
        for (int i = 0; i < len; ++i) ASSERT_TRUE(vt::sameBits(y[size_t(i)], ym[size_t(i)])) << "output " << i;
        const std::vector<T> got = f.taps(), want = m.taps();
        for (int k = 0; k < N; ++k) ASSERT_TRUE(vt::sameBits(got[size_t(k)], want[size_t(k)])) << "tap " << k;
    }
}

// Random pieces give the bits of one call; so do pDst == pSrc and
// pDst == pRef; a second state from the same input gives the same bits.
TYPED_TEST(LmsTest, PiecesAndInPlaceEqualOneCall) {
    using T = TypeParam;
    vt::Rng g(5);
    for (int N : {1, 7, 16, 33, 64, 65, 130}) {
        SCOPED_TRACE(N);
        const std::vector<T> h = noise<T>(g, size_t(N), 0.3), line = noise<T>(g, size_t(N - 1));
        const int len = 700;
        const std::vector<T> x = noise<T>(g, size_t(len)), d = noise<T>(g, size_t(len));
        const T mu = static_cast<T>(0.5 / N);
        Lms<T> one(h.data(), N, line.data());
        std::vector<T> y(static_cast<size_t>(len));
        ASSERT_EQ(one.run(x.data(), d.data(), y.data(), len, mu), vrxOk);

        Lms<T> pieces(h.data(), N, line.data(), 24);
        std::vector<T> yp(static_cast<size_t>(len), T(-7));
        int at = 0;
        for (int p : vt::randomPieces(g, len, 3 * N)) {
            ASSERT_EQ(pieces.run(x.data() + at, d.data() + at, yp.data() + at, p, mu), vrxOk);
            at += p;
        }
        EXPECT_EQ(0, memcmp(y.data(), yp.data(), sizeof(T) * size_t(len))) << "pieces";
        EXPECT_EQ(one.taps(), pieces.taps());
        EXPECT_EQ(one.line(), pieces.line());

        Lms<T> onSrc(h.data(), N, line.data()), onRef(h.data(), N, line.data());
        std::vector<T> xs(x), ds(d);
        ASSERT_EQ(onSrc.run(xs.data(), d.data(), xs.data(), len, mu), vrxOk);
        ASSERT_EQ(onRef.run(x.data(), ds.data(), ds.data(), len, mu), vrxOk);
        EXPECT_EQ(0, memcmp(y.data(), xs.data(), sizeof(T) * size_t(len))) << "pDst == pSrc";
        EXPECT_EQ(0, memcmp(y.data(), ds.data(), sizeof(T) * size_t(len))) << "pDst == pRef";
        EXPECT_EQ(one.taps(), onRef.taps());
    }
}

// Taps and line: what Init takes comes back out, null means zeros, Set
// replaces, the line after a run is the last inputs (short runs keep the
// newest of the old line), and Set of a line equals Init with it.
TYPED_TEST(LmsTest, TapsAndLineRoundTrips) {
    using T = TypeParam;
    vt::Rng g(3);
    for (int N : {1, 2, 9, 31, 50}) {
        SCOPED_TRACE(N);
        const std::vector<T> h = noise<T>(g, size_t(N)), line = noise<T>(g, size_t(N - 1));
        Lms<T> f(h.data(), N, line.data(), 9);
        EXPECT_EQ(f.taps(), h);
        EXPECT_EQ(f.line(), line);
        Lms<T> z(nullptr, N, nullptr);
        EXPECT_EQ(z.taps(), std::vector<T>(size_t(N), T(0)));
        EXPECT_EQ(z.line(), std::vector<T>(size_t(N - 1), T(0)));

        const std::vector<T> h2 = noise<T>(g, size_t(N));
        ASSERT_EQ(Api<T>::setTaps(z.st, h2.data()), vrxOk);
        EXPECT_EQ(z.taps(), h2);
        ASSERT_EQ(Api<T>::setLine(z.st, line.data()), vrxOk);
        EXPECT_EQ(z.line(), line);
        EXPECT_EQ(z.taps(), h2) << "the line leaves the taps alone";

        for (int len : {1, 2, N / 2 + 1, N - 1, N, N + 5}) {
            if (len < 1) continue;
            SCOPED_TRACE(len);
            const std::vector<T> x = noise<T>(g, size_t(len)), d = noise<T>(g, size_t(len));
            Lms<T> a(h.data(), N, line.data());
            std::vector<T> ya(static_cast<size_t>(len));
            ASSERT_EQ(a.run(x.data(), d.data(), ya.data(), len, T(0.01)), vrxOk);
            std::vector<T> want(line);
            want.insert(want.end(), x.begin(), x.end());
            want.erase(want.begin(), want.end() - (N - 1));
            EXPECT_EQ(a.line(), want);

            // a state moved elsewhere by Set: after a run, SetDlyLine and
            // SetTaps it continues like a fresh Init with those
            Lms<T> b(h2.data(), N, nullptr);
            std::vector<T> yb(static_cast<size_t>(len));
            ASSERT_EQ(b.run(d.data(), x.data(), yb.data(), len, T(0.02)), vrxOk);
            ASSERT_EQ(Api<T>::setTaps(b.st, h.data()), vrxOk);
            ASSERT_EQ(Api<T>::setLine(b.st, line.data()), vrxOk);
            ASSERT_EQ(b.run(x.data(), d.data(), yb.data(), len, T(0.01)), vrxOk);
            EXPECT_EQ(ya, yb);
            EXPECT_EQ(a.taps(), b.taps());
        }
        ASSERT_EQ(Api<T>::setLine(f.st, nullptr), vrxOk);
        EXPECT_EQ(f.line(), std::vector<T>(size_t(N - 1), T(0))) << "a null line at Set is zeros";
    }
}

// The state stays inside the reported size wherever the block starts, and
// a zero mu leaves the taps alone while the outputs are the plain filter.
TYPED_TEST(LmsTest, StateInsideItsSizeAndFixedFilterWithZeroMu) {
    using T = TypeParam;
    vt::Rng g(9);
    for (int N : {1, 16, 37, 200}) {
        int bytes = 0;
        ASSERT_EQ(Api<T>::size(N, &bytes), vrxOk);
        const std::vector<T> h = noise<T>(g, size_t(N)), x = noise<T>(g, 400);
        const std::vector<T> d = through(h, x);
        for (size_t off : {0, 4, 8, 36, 60}) {
            vt::Buffer b(size_t(bytes), off);
            typename Api<T>::St* st = nullptr;
            ASSERT_EQ(Api<T>::init(&st, h.data(), N, nullptr, b.data()), vrxOk);
            std::vector<T> y(x.size());
            ASSERT_EQ(Api<T>::run(x.data(), x.data(), y.data(), 400, T(0), st), vrxOk);
            EXPECT_TRUE(b.guardsIntact()) << N << " at " << off;
            std::vector<T> out(static_cast<size_t>(N));
            ASSERT_EQ(Api<T>::getTaps(st, out.data()), vrxOk);
            EXPECT_EQ(out, h);
            for (size_t i = 0; i < x.size(); ++i)
                EXPECT_NEAR(double(y[i]), double(d[i]), 8 * kEps<T> * std::sqrt(double(N))) << i;
        }
    }
}

// Every status and its order; nothing written on failure.
TYPED_TEST(LmsTest, StatusesAndOrder) {
    using T = TypeParam;
    using A = Api<T>;
    int size = -5;
    EXPECT_EQ(A::size(4, nullptr), vrxErrNullPtr);
    EXPECT_EQ(A::size(0, nullptr), vrxErrNullPtr) << "null before the tap count";
    for (int bad : {0, -1, (1 << 26) + 1}) {
        EXPECT_EQ(A::size(bad, &size), vrxErrFirLen) << bad;
        EXPECT_EQ(size, -5) << "nothing written";
    }
    EXPECT_EQ(A::size(1 << 26, &size), vrxOk);
    EXPECT_GT(size, 0);

    const int N = 5;
    std::vector<T> h(N, T(0.5)), line(N - 1, T(1));
    ASSERT_EQ(A::size(N, &size), vrxOk);
    std::vector<uint8_t> mem(static_cast<size_t>(size), 0xEE);
    typename A::St* st = reinterpret_cast<typename A::St*>(1);
    EXPECT_EQ(A::init(nullptr, h.data(), N, line.data(), mem.data()), vrxErrNullPtr);
    EXPECT_EQ(A::init(&st, h.data(), N, line.data(), nullptr), vrxErrNullPtr);
    EXPECT_EQ(A::init(&st, h.data(), 0, line.data(), nullptr), vrxErrNullPtr) << "null before the tap count";
    EXPECT_EQ(A::init(&st, h.data(), 0, line.data(), mem.data()), vrxErrFirLen);
    EXPECT_EQ(A::init(&st, h.data(), -3, line.data(), mem.data()), vrxErrFirLen);
    EXPECT_EQ(st, reinterpret_cast<typename A::St*>(1)) << "nothing written";
    EXPECT_EQ(std::vector<uint8_t>(size_t(size), 0xEE), mem) << "nothing written";
    ASSERT_EQ(A::init(&st, h.data(), N, line.data(), mem.data()), vrxOk);

    std::vector<uint8_t> wrong(static_cast<size_t>(size), 0);  // identity word 0
    auto* bad = reinterpret_cast<typename A::St*>(wrong.data());
    std::vector<T> x(8, T(1)), d(8, T(2)), y(8, T(-3));
    const std::vector<T> y0(y);
    const std::vector<uint8_t> before(mem);
    struct Case { const T* s; const T* r; T* o; int len; typename A::St* p; VrxStatus want; const char* what; };
    const Case cases[] = {
        {nullptr, d.data(), y.data(), 8, st, vrxErrNullPtr, "pSrc"},
        {x.data(), nullptr, y.data(), 8, st, vrxErrNullPtr, "pRef"},
        {x.data(), d.data(), nullptr, 8, st, vrxErrNullPtr, "pDst"},
        {x.data(), d.data(), y.data(), 8, nullptr, vrxErrNullPtr, "pState"},
        {nullptr, d.data(), y.data(), 0, st, vrxErrNullPtr, "null before length"},
        {x.data(), d.data(), y.data(), 0, st, vrxErrBadLength, "len 0"},
        {x.data(), d.data(), y.data(), -1, st, vrxErrBadLength, "len -1"},
        {x.data(), d.data(), y.data(), 0, bad, vrxErrBadLength, "length before the word"},
        {x.data(), d.data(), y.data(), 8, bad, vrxErrBadSpec, "identity word"},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(A::run(c.s, c.r, c.o, c.len, T(0.1), c.p), c.want) << c.what;
        EXPECT_EQ(y, y0) << c.what;
        EXPECT_EQ(mem, before) << c.what;
    }
    std::vector<T> out(N, T(-9));
    const std::vector<T> out0(out);
    EXPECT_EQ(A::getTaps(nullptr, out.data()), vrxErrNullPtr);
    EXPECT_EQ(A::getTaps(st, nullptr), vrxErrNullPtr);
    EXPECT_EQ(A::getTaps(bad, nullptr), vrxErrNullPtr) << "pointers before the word";
    EXPECT_EQ(A::getTaps(bad, out.data()), vrxErrBadSpec);
    EXPECT_EQ(A::getLine(nullptr, out.data()), vrxErrNullPtr);
    EXPECT_EQ(A::getLine(st, nullptr), vrxErrNullPtr);
    EXPECT_EQ(A::getLine(bad, out.data()), vrxErrBadSpec);
    EXPECT_EQ(out, out0);
    EXPECT_EQ(A::setTaps(nullptr, h.data()), vrxErrNullPtr);
    EXPECT_EQ(A::setTaps(st, nullptr), vrxErrNullPtr);
    EXPECT_EQ(A::setTaps(bad, h.data()), vrxErrBadSpec);
    EXPECT_EQ(A::setLine(nullptr, line.data()), vrxErrNullPtr);
    EXPECT_EQ(A::setLine(bad, line.data()), vrxErrBadSpec);
    EXPECT_EQ(A::setLine(bad, nullptr), vrxErrBadSpec);
    EXPECT_EQ(mem, before);
    EXPECT_EQ(wrong, std::vector<uint8_t>(size_t(size), 0));
    // the other type's state is refused
    int32_t word = 0;
    memcpy(&word, st, 4);
    EXPECT_EQ(word, A::kWord);
    const int32_t other = A::kWord ^ 3;
    memcpy(wrong.data(), &other, 4);
    EXPECT_EQ(A::run(x.data(), d.data(), y.data(), 8, T(0.1), bad), vrxErrBadSpec);
}

// The caller's MXCSR (rounding, flush-to-zero, denormals-are-zero) comes
// back as it was; the rounding mode is the caller's.
TYPED_TEST(LmsTest, ControlWordUntouched) {
    using T = TypeParam;
    vt::Rng g(1);
    const int N = 20;
    const std::vector<T> h = noise<T>(g, N), x = noise<T>(g, 100), d = noise<T>(g, 100);
    for (unsigned w : {vt::kRoundNear, vt::kRoundZero, vt::kRoundUp | vt::kFtz | vt::kDaz}) {
        vt::MxcsrScope keep;
        Lms<T> f(h.data(), N, nullptr);
        std::vector<T> y(100);
        _mm_setcsr(0x1F80u | w);
        ASSERT_EQ(f.run(x.data(), d.data(), y.data(), 100, T(0.05)), vrxOk);
        EXPECT_EQ(_mm_getcsr() & ~0x3Fu, 0x1F80u | w);
    }
}

}  // namespace
