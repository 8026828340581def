// DCT: sizes and path choice against the size rules recomputed here, every
// path against the orthonormal definition in long double, round trips, in
// place and misaligned, the check order, and nothing written on failure.
#include "test_dct_common.h"

namespace {

using dt::Api;
using dt::LD;
using dt::Plans;

enum class Path { Kernel, Fft, Direct, Conv, Bad };

template <class T> Path pathOf(int n, bool forInit) {
    using A = Api<T>;
    if (n < 1) return Path::Bad;
    const bool pow2 = (n & (n - 1)) == 0;
    if (pow2 && n <= 8) return Path::Kernel;
    if (pow2) return n <= A::kFftMax ? Path::Fft : Path::Bad;
    if (n <= A::kDirectMax) return Path::Direct;
    return n <= (forInit ? A::kConvInit : A::kConvSize) ? Path::Conv : Path::Bad;
}

int log2Ceil(int64_t v) {
    int k = 0;
    while ((int64_t(1) << k) < v) ++k;
    return k;
}

// The size rules: spec, init, work.
template <class T> void expectedSizes(int n, int& s, int& i, int& w) {
    using A = Api<T>;
    const int e = sizeof(T);
    int fs = 0, fi = 0, fw = 0;
    switch (pathOf<T>(n, false)) {
        case Path::Kernel: s = 168; i = 0; w = 0; break;
        case Path::Fft:
            ASSERT_EQ(A::fftR(log2Ceil(n), &fs, &fi, &fw), vrxOk);
            s = fs + e * n + 192;
            i = fi > 0 ? fi + 64 : 0;
            w = fw + e * n + 64;
            break;
        case Path::Direct: s = 4 * e * n + 192; i = 0; w = e * n + 64; break;
        case Path::Conv: {
            const int h = n % 2 ? n : n / 2, k = log2Ceil(2 * int64_t(h) - 1), M = 1 << k;
            ASSERT_EQ(A::fftC(k, &fs, &fi, &fw), vrxOk);
            s = fs + (3 * h + M) * 2 * e + 192;
            const int m = fi > fw ? fi : fw;
            i = m > 0 ? m + 64 : 0;
            w = fw + 2 * e * M + 64;
            break;
        }
        case Path::Bad: FAIL() << n;
    }
}

template <class T> class DctTest : public ::testing::Test {};
using Widths = ::testing::Types<float, double>;
TYPED_TEST_SUITE(DctTest, Widths);

std::vector<int> sizeLengths() {
    std::vector<int> v;
    for (int n = 1; n <= 1100; ++n) v.push_back(n);
    for (int n : {4096, 10007, 65535, 65536, 1 << 20, 1000003, 16777215, 16777216, 33554431, 67108864})
        v.push_back(n);
    return v;
}

TYPED_TEST(DctTest, SizesFollowTheRulesAndInvMatchesFwd) {
    using T = TypeParam;
    using A = Api<T>;
    for (int n : sizeLengths()) {
        if (pathOf<T>(n, false) == Path::Bad) continue;
        int s, i, w, es = 0, ei = 0, ew = 0, is, ii, iw;
        expectedSizes<T>(n, es, ei, ew);
        ASSERT_EQ(A::fwdSize(n, &s, &i, &w), vrxOk) << n;
        ASSERT_EQ(A::invSize(n, &is, &ii, &iw), vrxOk) << n;
        EXPECT_EQ(s, es) << n;
        EXPECT_EQ(i, ei) << n;
        EXPECT_EQ(w, ew) << n;
        EXPECT_EQ(is, s) << n;
        EXPECT_EQ(ii, i) << n;
        EXPECT_EQ(iw, w) << n;
    }
}

// The chirp path ends earlier in the size query than in Init: a length
// between the two limits is -6 for the query, while Init accepts it (and
// so reaches its pointer checks).
TYPED_TEST(DctTest, LimitsOfQueryAndInit) {
    using T = TypeParam;
    using A = Api<T>;
    int s = 7, i = 7, w = 7;
    const int between = A::kConvSize + 2;  // odd, not a power of two
    EXPECT_EQ(A::fwdSize(A::kConvSize, &s, &i, &w), vrxOk);
    s = i = w = 7;
    EXPECT_EQ(A::fwdSize(between, &s, &i, &w), vrxErrBadLength);
    EXPECT_EQ(A::invSize(between, &s, &i, &w), vrxErrBadLength);
    EXPECT_EQ(A::fwdInit(nullptr, between, nullptr, nullptr), vrxErrNullPtr);
    EXPECT_EQ(A::invInit(nullptr, A::kConvInit, nullptr, nullptr), vrxErrNullPtr);
    EXPECT_EQ(A::fwdInit(nullptr, A::kConvInit + 2, nullptr, nullptr), vrxErrBadLength);
    // powers of two above the FFT path
    const int big = (A::kFftMax >> 1) + 1;
    EXPECT_EQ(A::fwdInit(nullptr, big, nullptr, nullptr), vrxErrNullPtr);
    EXPECT_EQ(A::fwdSize(big * 2, &s, &i, &w), vrxErrBadLength);
    EXPECT_EQ(A::fwdInit(nullptr, big * 2, nullptr, nullptr), vrxErrBadLength);
    for (int bad : {0, -1, INT32_MIN}) {
        EXPECT_EQ(A::fwdSize(bad, &s, &i, &w), vrxErrBadLength);
        EXPECT_EQ(A::invInit(nullptr, bad, nullptr, nullptr), vrxErrBadLength);
    }
    EXPECT_TRUE(s == 7 && i == 7 && w == 7);
}

// Relative RMS bound: 2e-7 (single) or 4e-16 (double) times log2 of the
// transform length (M on the chirp path), at least 1, times 2.
template <class T> LD bound(int n) {
    const Path p = pathOf<T>(n, true);
    int lg = log2Ceil(n);
    if (p == Path::Conv) lg = log2Ceil(2 * int64_t(n % 2 ? n : n / 2) - 1);
    if (lg < 1) lg = 1;
    return (sizeof(T) == 4 ? 2e-7L : 4e-16L) * lg * 2;
}

std::vector<int> accuracyLengths() {
    std::vector<int> v;
    for (int n = 1; n <= 200; ++n) v.push_back(n);
    v.push_back(1024);
    v.push_back(10007);
    return v;
}

TYPED_TEST(DctTest, EveryPathMeetsTheDefinition) {
    using T = TypeParam;
    using A = Api<T>;
    for (int n : accuracyLengths()) {
        Plans<T> p(n, static_cast<size_t>(n * 4) % 64);
        ASSERT_EQ(p.status, vrxOk) << n;
        vt::Buffer sb(sizeof(T) * n, 4), db(sizeof(T) * n, 8 % 64), rb(sizeof(T) * n, 12);
        const std::vector<T> x = dt::randomVec<T>(n, 1000 + n);
        memcpy(sb.data(), x.data(), sizeof(T) * n);
        T* y = db.as<T>();
        T* r = rb.as<T>();
        ASSERT_EQ(A::fwd(sb.as<T>(), y, p.f, p.fbuf()), vrxOk) << n;
        ASSERT_EQ(A::inv(y, r, p.i, p.ibuf()), vrxOk) << n;
        const std::vector<LD> yr = dt::refDct(x, false);
        const std::vector<T> yv(y, y + n);
        const std::vector<LD> xr = dt::refDct(yv, true);
        std::vector<LD> xl(x.begin(), x.end());
        EXPECT_LE(dt::relRms(y, yr), bound<T>(n)) << "forward " << n;
        EXPECT_LE(dt::relRms(r, xr), bound<T>(n)) << "inverse " << n;
        EXPECT_LE(dt::relRms(r, xl), 2 * bound<T>(n)) << "round trip " << n;
        EXPECT_TRUE(p.intact() && sb.guardsIntact() && db.guardsIntact() && rb.guardsIntact()) << n;
        EXPECT_EQ(0, memcmp(sb.data(), x.data(), sizeof(T) * n)) << "source written " << n;
    }
}

// N = 1 is the identity, N = 2 the scaled sum and difference, exactly.
TYPED_TEST(DctTest, EdgeValues) {
    using T = TypeParam;
    using A = Api<T>;
    {
        Plans<T> p(1);
        T x = T(-3.25), y = 0;
        ASSERT_EQ(A::fwd(&x, &y, p.f, nullptr), vrxOk);
        EXPECT_EQ(y, x);
    }
    {
        Plans<T> p(2);
        T x[2] = {T(1.5), T(-0.5)}, y[2];
        ASSERT_EQ(A::fwd(x, y, p.f, nullptr), vrxOk);
        EXPECT_EQ(y[0], T(1.0) * T(0.70710678118654752440));
        EXPECT_EQ(y[1], T(2.0) * T(0.70710678118654752440));
    }
}

// In place gives the bits of out of place, on every path.
TYPED_TEST(DctTest, InPlaceFormsMatch) {
    using T = TypeParam;
    using A = Api<T>;
    for (int n : {1, 2, 4, 8, 16, 64, 3, 35, 45, 46, 47, 100, 1024, 1001}) {
        Plans<T> p(n, 16);
        const std::vector<T> x = dt::randomVec<T>(n, 77 + n);
        std::vector<T> y(n), z(x), r(n), q;
        ASSERT_EQ(A::fwd(x.data(), y.data(), p.f, p.fbuf()), vrxOk);
        ASSERT_EQ(A::fwdI(z.data(), p.f, p.fbuf()), vrxOk);
        EXPECT_EQ(0, memcmp(y.data(), z.data(), sizeof(T) * n)) << n;
        q = y;
        ASSERT_EQ(A::inv(y.data(), r.data(), p.i, p.ibuf()), vrxOk);
        ASSERT_EQ(A::invI(q.data(), p.i, p.ibuf()), vrxOk);
        EXPECT_EQ(0, memcmp(r.data(), q.data(), sizeof(T) * n)) << n;
    }
}

// Statuses in their order, and nothing written on failure.
TYPED_TEST(DctTest, StatusOrderAndNothingWritten) {
    using T = TypeParam;
    using A = Api<T>;
    int s = 5, i = 5, w = 5;
    EXPECT_EQ(A::fwdSize(0, nullptr, &i, &w), vrxErrNullPtr);
    EXPECT_EQ(A::fwdSize(0, &s, &i, &w), vrxErrBadLength);
    EXPECT_TRUE(s == 5 && i == 5 && w == 5);

    // Init: length first, then ppPlan and pSpecMem, then a needed init buffer
    const int n = 2048;  // FFT path with an init buffer
    ASSERT_EQ(A::fwdSize(n, &s, &i, &w), vrxOk);
    ASSERT_GT(i, 0);
    vt::Buffer spec(s);
    std::vector<uint8_t> before(spec.data(), spec.data() + s);
    typename A::Fwd* f = reinterpret_cast<typename A::Fwd*>(&s);
    EXPECT_EQ(A::fwdInit(nullptr, 0, nullptr, nullptr), vrxErrBadLength);
    EXPECT_EQ(A::fwdInit(nullptr, n, spec.data(), nullptr), vrxErrNullPtr);
    EXPECT_EQ(A::fwdInit(&f, n, nullptr, nullptr), vrxErrNullPtr);
    EXPECT_EQ(A::fwdInit(&f, n, spec.data(), nullptr), vrxErrNullPtr);
    EXPECT_EQ(f, reinterpret_cast<typename A::Fwd*>(&s));
    EXPECT_EQ(0, memcmp(before.data(), spec.data(), s));
    // a kernel plan needs no init buffer
    Plans<T> k8(8);
    ASSERT_EQ(A::fwdSize(8, &s, &i, &w), vrxOk);
    EXPECT_EQ(i, 0);

    // Transform: plan, source, destination -8, then the plan's kind -17,
    // then the work buffer -8
    for (int len : {8, 16, 35, 47}) {
        Plans<T> p(len);
        ASSERT_EQ(p.status, vrxOk);
        std::vector<T> x = dt::randomVec<T>(len, 5), y(len, T(9));
        const std::vector<T> y0 = y;
        const auto* wrongF = reinterpret_cast<const typename A::Fwd*>(p.i);
        const auto* wrongI = reinterpret_cast<const typename A::Inv*>(p.f);
        EXPECT_EQ(A::fwd(nullptr, y.data(), wrongF, nullptr), vrxErrNullPtr);
        EXPECT_EQ(A::fwd(x.data(), y.data(), wrongF, nullptr), vrxErrBadSpec);
        EXPECT_EQ(A::inv(x.data(), y.data(), wrongI, nullptr), vrxErrBadSpec);
        EXPECT_EQ(A::fwdI(y.data(), wrongF, p.fbuf()), vrxErrBadSpec);
        if (len > 8) {
            EXPECT_EQ(A::fwd(x.data(), y.data(), p.f, nullptr), vrxErrNullPtr);
            EXPECT_EQ(A::inv(x.data(), y.data(), p.i, nullptr), vrxErrNullPtr);
            EXPECT_EQ(A::invI(y.data(), p.i, nullptr), vrxErrNullPtr);
        } else {
            EXPECT_EQ(A::fwd(x.data(), y.data(), p.f, nullptr), vrxOk);
            y = y0;
        }
        EXPECT_EQ(y, y0) << len;
    }
}

// A caller's rounding mode and flush settings come back unchanged.
TYPED_TEST(DctTest, ControlWordUntouched) {
    using T = TypeParam;
    using A = Api<T>;
    for (unsigned mode : {vt::kRoundNear, vt::kRoundDown, vt::kRoundUp, vt::kRoundZero | vt::kFtz}) {
        for (int n : {8, 64, 30, 100}) {
            Plans<T> p(n);
            std::vector<T> x = dt::randomVec<T>(n, 9), y(n);
            vt::MxcsrScope scope;
            _mm_setcsr(0x1F80 | mode);
            ASSERT_EQ(A::fwd(x.data(), y.data(), p.f, p.fbuf()), vrxOk);
            ASSERT_EQ(A::inv(y.data(), x.data(), p.i, p.ibuf()), vrxOk);
            EXPECT_EQ(_mm_getcsr() & ~0x3Fu, 0x1F80u | mode) << n;
        }
    }
}

}  // namespace
