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

// Every length to 1100 and the path edges: the rules' figures, the inverse
// the same as the forward.
TYPED_TEST(DctTest, SizesFollowTheRulesAndInvMatchesFwd) {
    using T = TypeParam;
    using A = Api<T>;
    std::vector<int> lens = {4096, 10007, 65535, 65536, 1 << 20, 1000003, 16777215, 16777216, 33554431, 67108864};
    for (int n = 1; n <= 1100; ++n) lens.push_back(n);
    for (int n : lens) {
        if (pathOf<T>(n, false) == Path::Bad) continue;
        int e[3] = {}, f[3], i[3];
        expectedSizes<T>(n, e[0], e[1], e[2]);
        ASSERT_EQ(A::fwdSize(n, &f[0], &f[1], &f[2]), vrxOk) << n;
        ASSERT_EQ(A::invSize(n, &i[0], &i[1], &i[2]), vrxOk) << n;
        for (int k = 0; k < 3; ++k) EXPECT_TRUE(f[k] == e[k] && i[k] == e[k]) << n << " figure " << k << ": " << f[k] << " " << i[k];
    }
}

// The length first (-6), where the size query's chirp limit ends below
// Init's; then ppPlan and pSpecMem; then a needed init buffer (-8). A
// failure writes nothing.
TYPED_TEST(DctTest, StatusOrderAndLimits) {
    using T = TypeParam;
    using A = Api<T>;
    const int between = A::kConvSize + 2, big = (A::kFftMax >> 1) + 1;  // odd; a power of two
    const struct { int n; VrxStatus size, init; } rows[] = {
        {A::kConvSize, vrxOk, vrxErrNullPtr},          {between, vrxErrBadLength, vrxErrNullPtr},
        {A::kConvInit, vrxErrBadLength, vrxErrNullPtr}, {A::kConvInit + 2, vrxErrBadLength, vrxErrBadLength},
        {big, vrxOk, vrxErrNullPtr},                    {2 * big, vrxErrBadLength, vrxErrBadLength},
        {0, vrxErrBadLength, vrxErrBadLength},          {-1, vrxErrBadLength, vrxErrBadLength},
        {INT32_MIN, vrxErrBadLength, vrxErrBadLength}};
    for (const auto& r : rows) {
        int s = 7, i = 7, w = 7;
        EXPECT_EQ(A::fwdSize(r.n, &s, &i, &w), r.size) << r.n;
        EXPECT_TRUE(r.size == vrxOk || (s == 7 && i == 7 && w == 7)) << r.n;
        EXPECT_EQ(A::invSize(r.n, &s, &i, &w), r.size) << r.n;
        EXPECT_EQ(A::fwdInit(nullptr, r.n, nullptr, nullptr), r.init) << r.n;
        EXPECT_EQ(A::invInit(nullptr, r.n, nullptr, nullptr), r.init) << r.n;
    }
    int s, i, w;
    ASSERT_EQ(A::fwdSize(8, &s, &i, &w), vrxOk);
    EXPECT_EQ(i, 0);  // a kernel plan needs no init buffer
    const int n = 2048;  // FFT path with an init buffer
    ASSERT_EQ(A::fwdSize(n, &s, &i, &w), vrxOk);
    ASSERT_GT(i, 0);
    vt::Buffer spec(s);
    typename A::Fwd* const unset = reinterpret_cast<typename A::Fwd*>(&s);
    typename A::Fwd* f = unset;
    EXPECT_EQ(A::fwdInit(nullptr, n, spec.data(), nullptr), vrxErrNullPtr);
    EXPECT_EQ(A::fwdInit(&f, n, nullptr, nullptr), vrxErrNullPtr);
    EXPECT_EQ(A::fwdInit(&f, n, spec.data(), nullptr), vrxErrNullPtr);
    EXPECT_EQ(f, unset);
    for (size_t b = 0; b < spec.size(); ++b) ASSERT_EQ(spec.data()[b], vt::Buffer::kFill) << b;
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

// Every path against the definition in both directions and round trip,
// misaligned; the in-place forms give the out-of-place bits; the caller's
// rounding mode and flush settings come back unchanged.
TYPED_TEST(DctTest, EveryPathMeetsTheDefinition) {
    using T = TypeParam;
    using A = Api<T>;
    std::vector<int> lens = {1000, 1001, 1024, 4098, 10007};
    for (int n = 1; n <= 200; ++n) lens.push_back(n);
    const unsigned modes[] = {vt::kRoundNear, vt::kRoundDown, vt::kRoundUp, vt::kRoundZero | vt::kFtz};
    for (int n : lens) {
        Plans<T> p(n, static_cast<size_t>(n * 4) % 64);
        ASSERT_EQ(p.status, vrxOk) << n;
        vt::Buffer sb(sizeof(T) * n, 4), db(sizeof(T) * n, 8 % 64), rb(sizeof(T) * n, 12);
        const std::vector<T> x = dt::randomVec<T>(n, 1000 + n);
        memcpy(sb.data(), x.data(), sizeof(T) * n);
        T* y = db.as<T>();
        T* r = rb.as<T>();
        std::vector<T> yi(x), ri;
        {
            vt::MxcsrScope scope;
            const unsigned mode = 0x1F80 | modes[n % 4];
            _mm_setcsr(mode);
            ASSERT_EQ(A::fwd(sb.as<T>(), y, p.f, p.fbuf()), vrxOk) << n;
            ASSERT_EQ(A::inv(y, r, p.i, p.ibuf()), vrxOk) << n;
            ASSERT_EQ(A::fwdI(yi.data(), p.f, p.fbuf()), vrxOk) << n;
            ri = yi;
            ASSERT_EQ(A::invI(ri.data(), p.i, p.ibuf()), vrxOk) << n;
            EXPECT_EQ(_mm_getcsr() & ~0x3Fu, mode) << n;
        }
        const std::vector<LD> yr = dt::refDct(x, false);
        const std::vector<T> yv(y, y + n);
        const std::vector<LD> xr = dt::refDct(yv, true);
        std::vector<LD> xl(x.begin(), x.end());
        EXPECT_LE(dt::relRms(y, yr), bound<T>(n)) << "forward " << n;
        EXPECT_LE(dt::relRms(r, xr), bound<T>(n)) << "inverse " << n;
        EXPECT_LE(dt::relRms(r, xl), 2 * bound<T>(n)) << "round trip " << n;
        EXPECT_TRUE(memcmp(yi.data(), y, sizeof(T) * n) == 0 && memcmp(ri.data(), r, sizeof(T) * n) == 0) << "in place " << n;
        EXPECT_TRUE(p.intact() && sb.guardsIntact() && db.guardsIntact() && rb.guardsIntact()) << n;
        EXPECT_EQ(0, memcmp(sb.data(), x.data(), sizeof(T) * n)) << "source written " << n;
    }
}

// N = 1 is the identity, N = 2 the scaled sum and difference, exactly.
TYPED_TEST(DctTest, EdgeValues) {
    using T = TypeParam;
    Plans<T> p1(1), p2(2);
    const T x[2] = {T(1.5), T(-0.5)}, r = T(0.70710678118654752440);
    T y1 = 0, y2[2];
    ASSERT_EQ(Api<T>::fwd(x, &y1, p1.f, nullptr), vrxOk);
    ASSERT_EQ(Api<T>::fwd(x, y2, p2.f, nullptr), vrxOk);
    EXPECT_TRUE(y1 == x[0] && y2[0] == T(1.0) * r && y2[1] == T(2.0) * r);
}

// Transforms: plan, source, destination -8, then the plan's kind -17 (a
// forward plan given to the inverse and back), then a needed work buffer
// -8; the kernel plans (up to 8) need none. Nothing written on failure.
TYPED_TEST(DctTest, TransformStatusOrder) {
    using T = TypeParam;
    using A = Api<T>;
    for (int len : {8, 16, 35, 47}) {
        Plans<T> p(len);
        ASSERT_EQ(p.status, vrxOk);
        std::vector<T> x = dt::randomVec<T>(len, 5), y(len, T(9)), z(len);
        const std::vector<T> y0 = y;
        const auto* wrongF = reinterpret_cast<const typename A::Fwd*>(p.i);
        const auto* wrongI = reinterpret_cast<const typename A::Inv*>(p.f);
        EXPECT_EQ(A::fwd(nullptr, y.data(), wrongF, nullptr), vrxErrNullPtr);
        EXPECT_EQ(A::fwd(x.data(), y.data(), wrongF, nullptr), vrxErrBadSpec);
        EXPECT_EQ(A::inv(x.data(), y.data(), wrongI, nullptr), vrxErrBadSpec);
        EXPECT_EQ(A::fwdI(y.data(), wrongF, p.fbuf()), vrxErrBadSpec);
        const VrxStatus noBuf = len > 8 ? vrxErrNullPtr : vrxOk;
        EXPECT_EQ(A::invI(len > 8 ? y.data() : z.data(), p.i, nullptr), noBuf);
        EXPECT_EQ(A::fwd(x.data(), len > 8 ? y.data() : z.data(), p.f, nullptr), noBuf);
        EXPECT_EQ(y, y0) << len;
    }
}

}  // namespace
