// Convolution and correlation: every form, path and normalisation against a
// long-double reference; the path thresholds from both sides through the
// exact work sizes; check orders; nothing written on failure.
#include <complex>
#include <limits>
#include <vector>

#include "vrx_test.h"

namespace {

using CLD = std::complex<long double>;
using vt::randElems;
using vt::toLC;

// Per form: the size query's type, the Auto thresholds of the auto and the
// cross correlation, the runs and the FFT plan sizes behind the work size.
template <class E> struct Ty;
#define CONV_TYPE(E, t, RC, autoMin, crossMin)                                                               \
    template <> struct Ty<E> {                                                                                \
        static constexpr int kType = vrx##t, kAuto = autoMin, kCross = crossMin;                              \
        static constexpr auto autoCorr = vrxsAutoCorrNorm_##t, cross = vrxsCrossCorrNorm_##t;                 \
        static constexpr auto fftSizes = vrxsFFTGetSize_##RC##_##t;                                           \
    };
CONV_TYPE(Vrx32f, 32f, R, 1200, 384)
CONV_TYPE(Vrx64f, 64f, R, 1200, 512)
CONV_TYPE(Vrx32fc, 32fc, C, 128, 256)
CONV_TYPE(Vrx64fc, 64fc, C, 128, 512)
template <class E> constexpr long double kEps = std::numeric_limits<typename vt::Elem<E>::S>::epsilon();

long long up64(long long x) { return (x + 63) & ~63ll; }
int ceilLog2(long long x) { int k = 0; while ((1ll << k) < x) ++k; return k; }

// The FFT-path work size from the plan's three sizes: A(P)+A(Q)+A(W)+64+A(arr).
template <class E> int fftWork(int order, long long arrayBytes) {
    int p = 0, q = 0, w = 0;
    EXPECT_EQ(Ty<E>::fftSizes(order, vrxFftScaleInv, 0, &p, &q, &w), vrxOk);
    return static_cast<int>(up64(p) + up64(q) + up64(w) + 64 + up64(arrayBytes));
}

// A reference value with the sum of the magnitudes of its terms (the scale
// of a direct path's error).
struct Ref {
    CLD v;
    long double mag = 0;
};

// got within tolAbs + tolRel * mag of each reference.
template <class E>
void expectClose(const E* got, const std::vector<Ref>& ref, long double tolAbs, long double tolRel, const char* what) {
    int bad = 0;
    for (size_t n = 0; n < ref.size() && bad < 5; ++n) {
        const long double err = std::abs(toLC(got[n]) - ref[n].v), tol = tolAbs + tolRel * ref[n].mag;
        if (!(err <= tol)) {
            ADD_FAILURE() << what << ": output " << n << " err " << (double)err << " tol " << (double)tol;
            ++bad;
        }
    }
}

// The tolerance of an FFT path: a multiple of eps log2 F on the product of
// the vectors' 2-norms.
template <class E> long double fftTol(const std::vector<E>& a, const std::vector<E>& b, int order) {
    long double na = 0, nb = 0;
    for (auto& v : a) na += std::norm(toLC(v));
    for (auto& v : b) nb += std::norm(toLC(v));
    return 8 * kEps<E> * (order + 2) * sqrtl(na) * sqrtl(nb);
}

// R[lag] = sum_i conj(a[i]) b[i+lag], for lag = lo .. lo+D-1; with conj
// off and b reversed, the convolution.
template <class E> std::vector<Ref> refCross(const std::vector<E>& a, const std::vector<E>& b, long long lo, int D) {
    std::vector<Ref> r(static_cast<size_t>(D));
    for (int n = 0; n < D; ++n)
        for (long long lag = lo + n, i = std::max(0ll, -lag); i < (long long)a.size() && i + lag < (long long)b.size(); ++i) {
            const CLD t = std::conj(toLC(a[static_cast<size_t>(i)])) * toLC(b[static_cast<size_t>(i + lag)]);
            r[static_cast<size_t>(n)].v += t;
            r[static_cast<size_t>(n)].mag += std::abs(t);
        }
    return r;
}
template <class E> std::vector<Ref> refConv(const std::vector<E>& a, const std::vector<E>& b) {
    std::vector<E> s(a.size() < b.size() ? a : b);  // the shorter, reversed; real only: conj is a no-op
    std::reverse(s.begin(), s.end());
    return refCross(s, a.size() < b.size() ? b : a, 1 - (long long)s.size(), int(a.size() + b.size() - 1));
}

// ================================================================ Convolve
template <class E> VrxStatus convolve(const E* a, int n1, const E* b, int n2, E* d, VrxAlgType t, Vrx8u* buf) {
    if constexpr (std::is_same_v<E, Vrx32f>) return vrxsConvolve_32f(a, n1, b, n2, d, t, buf);
    else return vrxsConvolve_64f(a, n1, b, n2, d, t, buf);
}

// The FFT order the convolution takes (-1: direct): one transform while the
// longer vector is below three times the shorter, else overlap-save.
int convOrder(int n1, int n2, int alg) {
    const long long T = n1 + n2 - 1, S = std::min(n1, n2), L = std::max(n1, n2);
    if (!(alg == vrxAlgFFT || (alg == vrxAlgAuto && T >= 512 && S >= 64))) return -1;
    return L < 3 * S ? ceilLog2(T) : ceilLog2(2 * S) + 1;
}
template <class E> int expectedConvSize(int n1, int n2, int alg) {
    const int order = convOrder(n1, n2, alg);
    return order >= 0 ? fftWork<E>(order, 2 * (1ll << order) * (long long)sizeof(E)) : 64;
}

template <class E> void convCases() {
    struct { int n1, n2; VrxAlgType alg; } rows[] = {
        {1, 1, vrxAlgDirect}, {1, 1, vrxAlgFFT}, {1, 1, vrxAlgAuto}, {7, 3, vrxAlgAuto}, {3, 7, vrxAlgAuto},
        {17, 17, vrxAlgDirect}, {100, 63, vrxAlgAuto}, {63, 1000, vrxAlgAuto}, {449, 64, vrxAlgAuto},
        {448, 64, vrxAlgAuto}, {64, 449, vrxAlgAuto}, {200, 150, vrxAlgAuto}, {150, 200, vrxAlgFFT},
        {1000, 64, vrxAlgAuto}, {64, 1000, vrxAlgAuto}, {1000, 64, vrxAlgDirect}, {2, 5000, vrxAlgFFT},
        {5000, 300, vrxAlgFFT}, {777, 777, vrxAlgFFT}, {130, 129, vrxAlgDirect}, {3, 3000, vrxAlgDirect},
        {4096, 1000, vrxAlgAuto}, {33, 65, vrxAlgFFT | vrxNormUnbiased}, {300, 300, vrxAlgAuto | 0x7F00},
        {3000, 1, vrxAlgFFT}, {1, 3000, vrxAlgFFT},
    };
    vt::Rng rng(11);
    for (auto& c : rows) {
        SCOPED_TRACE(testing::Message() << "n1 " << c.n1 << " n2 " << c.n2 << " alg " << c.alg);
        const auto a = randElems<E>(rng, static_cast<size_t>(c.n1)), b = randElems<E>(rng, static_cast<size_t>(c.n2));
        int size = -1;
        ASSERT_EQ(vrxsConvolveGetBufferSize(c.n1, c.n2, Ty<E>::kType, c.alg, &size), vrxOk);
        ASSERT_EQ(size, expectedConvSize<E>(c.n1, c.n2, c.alg & 0xFF));
        vt::Buffer work(static_cast<size_t>(size), static_cast<size_t>(rng.range(0, 63))), dst((c.n1 + c.n2 - 1) * sizeof(E), rng.range(0, 7) * sizeof(E));
        ASSERT_EQ(convolve(a.data(), c.n1, b.data(), c.n2, dst.as<E>(), c.alg, work.data()), vrxOk);
        EXPECT_TRUE(work.guardsIntact() && dst.guardsIntact());
        const int order = convOrder(c.n1, c.n2, c.alg & 0xFF);
        if (order < 0) expectClose(dst.as<E>(), refConv(a, b), 0, 2 * std::min(c.n1, c.n2) * kEps<E>, "direct");
        else expectClose(dst.as<E>(), refConv(a, b), fftTol(a, b, order), 0, "fft");
    }
}
TEST(Convolve, Definition) {
    convCases<Vrx32f>();
    convCases<Vrx64f>();
}

// Exact sizes over many shapes, both types, all three selectors; the lengths
// straddle the auto thresholds T = 511 / 512 at S >= 64 and S = 63 / 64.
TEST(Convolve, BufferSizesExactAndThresholds) {
    const int lens[] = {1, 2, 3, 31, 63, 64, 65, 127, 128, 129, 200, 255, 256, 257, 448, 449, 511, 512, 1000, 4095, 4096, 65536};
    for (int n1 : lens)
        for (int n2 : lens)
            for (int alg : {0, 1, 2}) {
                int size = -1;
                ASSERT_EQ(vrxsConvolveGetBufferSize(n1, n2, vrx32f, alg, &size), vrxOk);
                EXPECT_EQ(size, expectedConvSize<Vrx32f>(n1, n2, alg)) << n1 << " " << n2 << " " << alg;
                ASSERT_EQ(vrxsConvolveGetBufferSize(n1, n2, vrx64f, alg | 0x300, &size), vrxOk);
                EXPECT_EQ(size, expectedConvSize<Vrx64f>(n1, n2, alg)) << n1 << " " << n2 << " " << alg;
            }
}

// Null pointers and lengths are the contract test's; here the selector
// after the lengths, the size query's own order, nothing written; the
// caller's control word untouched.
TEST(Convolve, ChecksInOrderNothingWrittenMxcsrKept) {
    float a[4] = {1, 2, 3, 4};
    vt::Buffer dst(64), buf(64);
    EXPECT_EQ(vrxsConvolve_32f(a, 4, a, 0, dst.as<float>(), 9, buf.data()), vrxErrBadLength);
    EXPECT_EQ(vrxsConvolve_32f(a, 4, a, 4, dst.as<float>(), 3, buf.data()), vrxErrAlgType);
    EXPECT_EQ(vrxsConvolve_32f(a, 4, a, 4, dst.as<float>(), 0x1FF, buf.data()), vrxErrAlgType);
    for (int i = 0; i < 64; ++i) ASSERT_TRUE(dst.data()[i] == vt::Buffer::kFill && buf.data()[i] == vt::Buffer::kFill);
    int size = 77;
    EXPECT_EQ(vrxsConvolveGetBufferSize(0, 4, 99, 7, &size), vrxErrBadLength);
    EXPECT_EQ(vrxsConvolveGetBufferSize(4, 4, 99, 7, &size), vrxErrAlgType);
    EXPECT_EQ(size, 77);
    EXPECT_EQ(vrxsConvolveGetBufferSize(4, 4, vrx32fc, 0x702, &size), vrxErrDataType);
    EXPECT_EQ(size, 0);
    size = 77;  // an order beyond the FFT's range: the plan query's status, size 0
    EXPECT_EQ(vrxsConvolveGetBufferSize(1 << 30, 1 << 29, vrx32f, vrxAlgFFT, &size), vrxErrFftOrder);
    EXPECT_EQ(size, 0);
    vt::MxcsrScope keep;
    const unsigned csr = (_mm_getcsr() & ~0x603Fu) | vt::kRoundZero | vt::kFtz;
    _mm_setcsr(csr);
    vt::Rng rng(5);
    const auto x = randElems<Vrx32f>(rng, 1000), y = randElems<Vrx32f>(rng, 100);
    std::vector<Vrx32f> d(1099);
    std::vector<Vrx8u> work(static_cast<size_t>(expectedConvSize<Vrx32f>(1000, 100, vrxAlgAuto)));
    EXPECT_EQ(vrxsConvolve_32f(x.data(), 1000, y.data(), 100, d.data(), vrxAlgAuto, work.data()), vrxOk);
    EXPECT_EQ(_mm_getcsr() & ~0x3Fu, csr & ~0x3Fu);
}

// ============================================================== ConvBiased
// (src2Len, src1Len, dstLen, bias): the seven dedicated shapes, the
// bounds-free case, the equal-length triangle and ragged ones. pSrc2 stands
// bias elements into the array, whose whole is the usable part.
TEST(ConvBiased, Definition) {
    struct { int n2, n1, dstLen, bias; } rows[] = {
        {45, 4, 41, 4}, {50, 11, 40, 10}, {56, 16, 40, 16}, {70, 31, 40, 30}, {110, 31, 80, 30}, {40, 40, 40, 0},
        {60, 60, 60, 0}, {8, 8, 8, 0}, {160, 160, 160, 0}, {164, 164, 164, 0}, {100, 5, 90, 4}, {100, 7, 93, 6},
        {100, 17, 83, 16}, {1, 1, 1, 0}, {10, 3, 20, 0}, {10, 3, 20, 5}, {10, 3, 20, -4}, {30, 50, 70, 20},
        {5, 9, 1, 0}, {300, 77, 500, 150}, {12, 4, 3, 40},
    };
    vt::Rng rng(21);
    for (auto& c : rows) {
        SCOPED_TRACE(testing::Message() << c.n2 << " " << c.n1 << " " << c.dstLen << " " << c.bias);
        const auto arr = randElems<Vrx32f>(rng, static_cast<size_t>(c.n2)), p1 = randElems<Vrx32f>(rng, static_cast<size_t>(c.n1));
        vt::Buffer dst(c.dstLen * sizeof(float), 4);
        ASSERT_EQ(vrxsConvBiased_32f(p1.data(), c.n1, arr.data() + c.bias, c.n2, dst.as<float>(), c.dstLen, c.bias), vrxOk);
        EXPECT_TRUE(dst.guardsIntact());
        std::vector<Ref> ref(static_cast<size_t>(c.dstLen));
        for (int n = 0; n < c.dstLen; ++n)
            for (int k = 0; k < c.n1; ++k) {
                const int j = n - k + c.bias;  // index into arr
                if (j < 0 || j >= c.n2) continue;
                const long double t = (long double)p1[static_cast<size_t>(k)] * arr[static_cast<size_t>(j)];
                ref[static_cast<size_t>(n)].v += t;
                ref[static_cast<size_t>(n)].mag += fabsl(t);
            }
        expectClose(dst.as<float>(), ref, 0, 2 * c.n1 * kEps<Vrx32f>, "biased");
    }
    // bias 0: only k = 0 reaches dst[0]; a NaN behind pSrc2 is never read
    float arr[6] = {NAN, 2, 3, 4, 5, NAN}, d[4];
    const float p1[3] = {1, 10, 100};
    ASSERT_EQ(vrxsConvBiased_32f(p1, 3, arr + 1, 4, d, 4, 0), vrxOk);
    EXPECT_EQ(vt::vec(d, 4), (std::vector<float>{2, 23, 234, 345}));
}

// ======================================================= AutoCorr, CrossCorr
template <class E> class Corr : public ::testing::Test {};
using CorrTypes = ::testing::Types<Vrx32f, Vrx64f, Vrx32fc, Vrx64fc>;
TYPED_TEST_SUITE(Corr, CorrTypes);

template <class E> int expectedAutoSize(int srcLen, int dstLen, int alg) {
    if (!(alg == vrxAlgFFT || (alg == vrxAlgAuto && std::min(srcLen, dstLen) >= Ty<E>::kAuto))) return 64;
    const int order = ceilLog2(2ll * srcLen);
    return fftWork<E>(order, (1ll << order) * (long long)sizeof(E) * (vt::Elem<E>::cplx ? 2 : 1));
}

// The lags that remain after those outside the overlap are cut off.
struct Lags { long long front, D, lo; };
Lags lagsOf(int n1, int n2, int D, int lo) {
    long long f = 0, d = D, l = lo;
    if (l < 1 - n1) { f = std::min<long long>(d, 1 - n1 - l); d -= f; l += f; }
    if (d > 0 && l + d - 1 > n2 - 1) d -= std::min<long long>(d, l + d - 1 - (n2 - 1));
    return {f, d, l};
}

// The cross path: FFT when v = trunc(mn D / mx) (D after the cut) reaches the
// form's threshold; one transform while mx < 3 mn, else segments.
struct CrossPath { bool fft; bool single; int order; };
template <class E> CrossPath crossPath(int n1, int n2, int dstLen, int lo, int alg) {
    const Lags g = lagsOf(n1, n2, dstLen, lo);
    if (g.D == 0) return {false, false, 0};
    const int mn = std::min(n1, n2), mx = std::max(n1, n2);
    const int v = static_cast<int>(static_cast<float>(mn) * static_cast<float>(g.D) / static_cast<float>(mx));
    if (!(alg == vrxAlgFFT || (alg == vrxAlgAuto && v >= Ty<E>::kCross))) return {false, false, 0};
    const bool single = mx < 3 * mn;
    return {true, single, single ? ceilLog2(n1 + n2 - 1) : ceilLog2(2ll * mn) + 1};
}
template <class E> int expectedCrossSize(int n1, int n2, int dstLen, int lo, int alg) {
    const CrossPath p = crossPath<E>(n1, n2, dstLen, lo, alg);
    return p.fft ? fftWork<E>(p.order, 2 * (1ll << p.order) * (long long)sizeof(E)) : 64;
}

// Auto rows (n1 = n2 = srcLen, lags 0..dstLen-1) and cross rows against one
// reference, every normalisation: the work size exact, direct paths within
// a relative, FFT paths within an absolute bound; lags outside the overlap
// (auto: the tail beyond srcLen) exact zeros, never divided.
TYPED_TEST(Corr, Definition) {
    using E = TypeParam;
    struct { bool isAuto; int n1, n2, dstLen, lowLag, alg; } rows[] = {
        {1, 1, 1, 1, 0, 0}, {1, 1, 1, 5, 0, 2}, {1, 2, 2, 1, 0, 1}, {1, 17, 17, 40, 0, 0}, {1, 100, 100, 30, 0, 2},
        {1, 127, 127, 127, 0, 0}, {1, 128, 128, 128, 0, 0}, {1, 129, 129, 200, 0, 0}, {1, 300, 300, 300, 0, 1},
        {1, 1199, 1199, 1300, 0, 0}, {1, 1200, 1200, 1200, 0, 0}, {1, 1500, 1500, 1199, 0, 0}, {1, 1000, 1000, 64, 0, 2},
        {1, 2000, 2000, 2000, 0, 1}, {1, 5, 5, 1, 0, 2},
        // lags all below, all above, and clipped at either end or both
        {0, 10, 20, 5, -30, 0}, {0, 10, 20, 5, 20, 2}, {0, 10, 20, 40, -15, 1}, {0, 10, 20, 40, -15, 2}, {0, 1, 1, 3, -1, 2},
        {0, 1, 1, 1, 0, 1}, {0, 5, 5, 9, -4, 0},
        // single transform (mx < 3 mn), both orders of length
        {0, 300, 400, 500, -250, 2}, {0, 400, 300, 700, -399, 2}, {0, 600, 700, 600, -100, 0},
        // overlap-save with either vector longer, lags from before the signal to past it
        {0, 50, 2000, 2100, -60, 2}, {0, 2000, 50, 2100, -2010, 2}, {0, 64, 5000, 300, 1000, 2}, {0, 5000, 64, 300, -1000, 2},
        {0, 3, 4000, 4010, -5, 2}, {0, 4000, 3, 4010, -4005, 2}, {0, 1, 3000, 3100, -50, 2}, {0, 3000, 1, 3100, -3050, 2},
        {0, 100, 3000, 700, -300, 0}, {0, 3000, 100, 700, -300, 0},
        // long direct runs
        {0, 2000, 50, 2100, -2010, 1}, {0, 70, 90, 200, -80, 1},
    };
    vt::Rng rng(51);
    for (auto& c : rows) {
        const auto a = randElems<E>(rng, static_cast<size_t>(c.n1)), b = c.isAuto ? a : randElems<E>(rng, static_cast<size_t>(c.n2));
        const auto plain = refCross(a, b, c.lowLag, c.dstLen);
        for (int norm : {vrxNormNone, vrxNormBiased, vrxNormUnbiased}) {
            SCOPED_TRACE(testing::Message() << (c.isAuto ? "auto " : "cross ") << c.n1 << " " << c.n2 << " D " << c.dstLen
                                            << " lo " << c.lowLag << " alg " << c.alg << " norm " << norm);
            int size = -1, order = 0;
            bool fft = false;
            if (c.isAuto) {
                ASSERT_EQ(vrxsAutoCorrNormGetBufferSize(c.n1, c.dstLen, Ty<E>::kType, c.alg | norm, &size), vrxOk);
                ASSERT_EQ(size, expectedAutoSize<E>(c.n1, c.dstLen, c.alg));
                fft = size > 64, order = ceilLog2(2ll * c.n1);
            } else {
                ASSERT_EQ(vrxsCrossCorrNormGetBufferSize(c.n1, c.n2, c.dstLen, c.lowLag, Ty<E>::kType, c.alg | norm, &size), vrxOk);
                ASSERT_EQ(size, expectedCrossSize<E>(c.n1, c.n2, c.dstLen, c.lowLag, c.alg));
                const CrossPath p = crossPath<E>(c.n1, c.n2, c.dstLen, c.lowLag, c.alg);
                fft = p.fft, order = p.order;
            }
            vt::Buffer work(static_cast<size_t>(size), static_cast<size_t>(rng.range(0, 63))), dst(c.dstLen * sizeof(E), 8);
            const VrxStatus st = c.isAuto ? Ty<E>::autoCorr(a.data(), c.n1, dst.as<E>(), c.dstLen, c.alg | norm, work.data())
                                          : Ty<E>::cross(a.data(), c.n1, b.data(), c.n2, dst.as<E>(), c.dstLen, c.lowLag, c.alg | norm, work.data());
            ASSERT_EQ(st, vrxOk);
            EXPECT_TRUE(work.guardsIntact() && dst.guardsIntact());
            auto ref = plain;  // biased: over min(n1, n2); unbiased: over the lag's overlap, when there is one
            const int mn = std::min(c.n1, c.n2);
            for (int n = 0; n < c.dstLen; ++n) {
                const long long lag = (long long)c.lowLag + n, cnt = std::min<long long>(c.n1, c.n2 - lag) - std::max<long long>(0, -lag);
                const long double div = norm == vrxNormBiased ? mn : norm == vrxNormUnbiased && cnt > 0 ? cnt : 1;
                ref[n].v /= div, ref[n].mag /= div;
            }
            if (!fft) expectClose(dst.as<E>(), ref, 0, 2 * (mn + 1) * kEps<E>, "direct");
            else expectClose(dst.as<E>(), ref, fftTol(a, b, order) / (norm == vrxNormBiased ? mn : 1), 0, "fft");
            const Lags g = lagsOf(c.n1, c.n2, c.dstLen, c.lowLag);
            for (int n = 0; n < c.dstLen; ++n)
                if (n < g.front || n >= g.front + g.D) { EXPECT_EQ(toLC(dst.as<E>()[n]), CLD(0)) << n; }
        }
    }
}

// Exact sizes over many shapes, every selector; the lengths straddle the
// auto threshold of min(srcLen, dstLen) (1200 real, 128 complex) through
// either length. The cross threshold from both sides, the D that counts
// being the one left after the cut; no lag left: 64 bytes even on FFT.
TYPED_TEST(Corr, SizesExactAndCrossThreshold) {
    using E = TypeParam;
    const int t = Ty<E>::kCross, lens[] = {1, 2, 63, 64, 127, 128, 129, 383, 384, 600, 1199, 1200, 1201, 4096, 65536};
    int size = -1;
    for (int n1 : lens)
        for (int n2 : lens)
            for (int alg : {0, 1, 2}) {
                ASSERT_EQ(vrxsAutoCorrNormGetBufferSize(n1, n2, Ty<E>::kType, alg | vrxNormBiased, &size), vrxOk);
                EXPECT_EQ(size, expectedAutoSize<E>(n1, n2, alg)) << n1 << " " << n2 << " " << alg;
                for (int lo : {-n1 - 5, -n1 / 2, 0, n2 / 3, n2}) {
                    const int D = std::max(n1, n2) / 2 + 1;
                    ASSERT_EQ(vrxsCrossCorrNormGetBufferSize(n1, n2, D, lo, Ty<E>::kType, alg, &size), vrxOk);
                    EXPECT_EQ(size, expectedCrossSize<E>(n1, n2, D, lo, alg)) << n1 << " " << n2 << " " << lo;
                }
            }
    struct { int n1, n2, D, lo, alg; bool fft; } rows[] = {
        {1000, 1000, t - 1, 0, 0, false}, {1000, 1000, t, 0, 0, true}, {1000, 2000, 2 * t - 1, 0, 0, false},
        {2000, 1000, 2 * t, -500, 0, true}, {1000, 1000, t + 10, 990, 0, false}, {1000, 1000, t + 10, -999 - 11, 0, false},
        {1000, 1000, t + 10, -999 - 10, 0, true}, {10, 10, 5, 50, vrxAlgFFT, false},
    };
    for (auto r : rows) {
        ASSERT_EQ(vrxsCrossCorrNormGetBufferSize(r.n1, r.n2, r.D, r.lo, Ty<E>::kType, r.alg, &size), vrxOk);
        EXPECT_EQ(size > 64, r.fft) << r.n1 << " " << r.n2 << " " << r.D << " " << r.lo;
        EXPECT_EQ(size, expectedCrossSize<E>(r.n1, r.n2, r.D, r.lo, r.alg));
    }
}

// A bad norm byte: the unnormalised result is written, then -228. Before
// that, the lengths, then the selector, nothing written; the size queries'
// own order.
TYPED_TEST(Corr, NormAndCheckOrder) {
    using E = TypeParam;
    vt::Rng rng(41);
    for (int alg : {vrxAlgDirect, vrxAlgFFT}) {
        const auto a = randElems<E>(rng, 40), b = randElems<E>(rng, 200);
        int sa = 0, sc = 0;
        ASSERT_EQ(vrxsAutoCorrNormGetBufferSize(200, 60, Ty<E>::kType, alg, &sa), vrxOk);
        ASSERT_EQ(vrxsCrossCorrNormGetBufferSize(40, 200, 200, -50, Ty<E>::kType, alg, &sc), vrxOk);
        EXPECT_EQ(vrxsAutoCorrNormGetBufferSize(200, 60, Ty<E>::kType, alg | 0x300, &sa), vrxErrAlgType);
        EXPECT_EQ(vrxsCrossCorrNormGetBufferSize(40, 200, 200, -50, Ty<E>::kType, alg | 0xFF00, &sc), vrxErrAlgType);
        std::vector<Vrx8u> buf(static_cast<size_t>(std::max(sa, sc)));
        std::vector<E> plain(260), bad(260);
        ASSERT_EQ(Ty<E>::autoCorr(b.data(), 200, plain.data(), 60, alg, buf.data()), vrxOk);
        ASSERT_EQ(Ty<E>::autoCorr(b.data(), 200, bad.data(), 60, alg | 0x300, buf.data()), vrxErrAlgType);
        ASSERT_EQ(Ty<E>::cross(a.data(), 40, b.data(), 200, plain.data() + 60, 200, -50, alg, buf.data()), vrxOk);
        ASSERT_EQ(Ty<E>::cross(a.data(), 40, b.data(), 200, bad.data() + 60, 200, -50, alg | 0xFF00, buf.data()), vrxErrAlgType);
        EXPECT_EQ(0, memcmp(plain.data(), bad.data(), plain.size() * sizeof(E)));
    }
    E x[4] = {};
    vt::Buffer dst(8 * sizeof(E)), buf(64);
    EXPECT_EQ(Ty<E>::autoCorr(x, 4, dst.as<E>(), -2, 9, buf.data()), vrxErrBadLength);
    EXPECT_EQ(Ty<E>::autoCorr(x, 4, dst.as<E>(), 4, 3, buf.data()), vrxErrAlgType);
    EXPECT_EQ(Ty<E>::cross(x, 4, x, 4, dst.as<E>(), 0, 0, 9, buf.data()), vrxErrBadLength);
    EXPECT_EQ(Ty<E>::cross(x, 4, x, 4, dst.as<E>(), 4, 0, 0x203, buf.data()), vrxErrAlgType);
    for (size_t i = 0; i < 8 * sizeof(E); ++i) ASSERT_EQ(dst.data()[i], vt::Buffer::kFill);
    int size = 77;
    EXPECT_EQ(vrxsAutoCorrNormGetBufferSize(4, 0, 99, 3, &size), vrxErrBadLength);
    EXPECT_EQ(vrxsAutoCorrNormGetBufferSize(4, 4, 99, 3, &size), vrxErrAlgType);
    EXPECT_EQ(vrxsAutoCorrNormGetBufferSize(4, 4, 99, 0x400, &size), vrxErrAlgType);
    EXPECT_EQ(vrxsCrossCorrNormGetBufferSize(4, 4, 0, 0, 99, 3, &size), vrxErrBadLength);
    EXPECT_EQ(vrxsCrossCorrNormGetBufferSize(4, 4, 4, 0, 99, 0x300, &size), vrxErrAlgType);
    EXPECT_EQ(size, 77);
    EXPECT_EQ(vrxsAutoCorrNormGetBufferSize(4, 4, vrx16s, 0x200, &size), vrxErrDataType);
    EXPECT_EQ(size, 0);
    size = 77;
    EXPECT_EQ(vrxsCrossCorrNormGetBufferSize(4, 4, 4, 0, 1, 0, &size), vrxErrDataType);
    EXPECT_EQ(size, 0);
}

}  // namespace
