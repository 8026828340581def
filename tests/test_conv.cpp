// Convolution and correlation: every form, path and normalisation against a
// long-double reference; the path thresholds from both sides through the
// size queries; the exact work sizes; check orders; nothing written on
// failure.
#include <complex>
#include <functional>
#include <limits>
#include <vector>

#include "vrx_test.h"

namespace {

using CLD = std::complex<long double>;

// ------------------------------------------------------------ element types
template <class E> struct Ty;
template <> struct Ty<Vrx32f> {
    using S = float;
    static constexpr bool kCplx = false;
    static constexpr int kType = vrx32f, kAuto = 1200, kCross = 384;
    static constexpr auto autoCorr = vrxsAutoCorrNorm_32f, cross = vrxsCrossCorrNorm_32f;
    static constexpr auto fftSizes = vrxsFFTGetSize_R_32f;
};
template <> struct Ty<Vrx64f> {
    using S = double;
    static constexpr bool kCplx = false;
    static constexpr int kType = vrx64f, kAuto = 1200, kCross = 512;
    static constexpr auto autoCorr = vrxsAutoCorrNorm_64f, cross = vrxsCrossCorrNorm_64f;
    static constexpr auto fftSizes = vrxsFFTGetSize_R_64f;
};
template <> struct Ty<Vrx32fc> {
    using S = float;
    static constexpr bool kCplx = true;
    static constexpr int kType = vrx32fc, kAuto = 128, kCross = 256;
    static constexpr auto autoCorr = vrxsAutoCorrNorm_32fc, cross = vrxsCrossCorrNorm_32fc;
    static constexpr auto fftSizes = vrxsFFTGetSize_C_32fc;
};
template <> struct Ty<Vrx64fc> {
    using S = double;
    static constexpr bool kCplx = true;
    static constexpr int kType = vrx64fc, kAuto = 128, kCross = 512;
    static constexpr auto autoCorr = vrxsAutoCorrNorm_64fc, cross = vrxsCrossCorrNorm_64fc;
    static constexpr auto fftSizes = vrxsFFTGetSize_C_64fc;
};
template <class E> constexpr long double kEps = std::numeric_limits<typename Ty<E>::S>::epsilon();

template <class E> CLD toC(const E& v) {
    if constexpr (Ty<E>::kCplx) return CLD(v.re, v.im);
    else return CLD(v, 0);
}

template <class E> std::vector<E> randomVec(vt::Rng& rng, int n) {
    std::vector<E> v(n);
    for (auto& e : v) {
        if constexpr (Ty<E>::kCplx) {
            e.re = static_cast<typename Ty<E>::S>(2 * rng.uniform() - 1);
            e.im = static_cast<typename Ty<E>::S>(2 * rng.uniform() - 1);
        } else {
            e = static_cast<E>(2 * rng.uniform() - 1);
        }
    }
    return v;
}

long long up64(long long x) { return (x + 63) & ~63ll; }
int ceilLog2(long long x) { int k = 0; while ((1ll << k) < x) ++k; return k; }

// The FFT-path work size from the plan's three sizes: A(P)+A(Q)+A(W)+64+A(arr).
template <class E> int fftWork(int order, long long arrayBytes) {
    int p = 0, q = 0, w = 0;
    EXPECT_EQ(Ty<E>::fftSizes(order, vrxFftScaleInv, 0, &p, &q, &w), vrxOk);
    return static_cast<int>(up64(p) + up64(q) + up64(w) + 64 + up64(arrayBytes));
}

// Reference value with its error scale: the sum of the magnitudes of the
// terms (the scale of a direct path's error) and the count of terms.
struct Ref {
    CLD v;
    long double mag = 0;
};

// got within tol of ref; tol from the error scale of each output.
template <class E>
void expectClose(const E* got, const std::vector<Ref>& ref, long double tolAbs, long double tolRel, const char* what) {
    int bad = 0;
    for (size_t n = 0; n < ref.size() && bad < 5; ++n) {
        const long double err = std::abs(toC(got[n]) - ref[n].v);
        const long double tol = tolAbs + tolRel * ref[n].mag;
        if (!(err <= tol)) {
            ADD_FAILURE() << what << ": output " << n << " err " << (double)err << " tol " << (double)tol
                          << " ref " << (double)ref[n].v.real();
            ++bad;
        }
    }
}

// The tolerance of an FFT path: a multiple of eps log2 F on the product of
// the vectors' 2-norms.
template <class E> long double fftTol(const std::vector<E>& a, const std::vector<E>& b, int order) {
    long double na = 0, nb = 0;
    for (auto& v : a) na += std::norm(toC(v));
    for (auto& v : b) nb += std::norm(toC(v));
    return 8 * kEps<E> * (order + 2) * sqrtl(na) * sqrtl(nb);
}

// ------------------------------------------------------------- references
template <class E> std::vector<Ref> refConv(const std::vector<E>& a, const std::vector<E>& b) {
    const int T = static_cast<int>(a.size() + b.size() - 1);
    std::vector<Ref> r(T);
    for (size_t i = 0; i < a.size(); ++i)
        for (size_t j = 0; j < b.size(); ++j) {
            const CLD t = toC(a[i]) * toC(b[j]);
            r[i + j].v += t;
            r[i + j].mag += std::abs(t);
        }
    return r;
}

// R[lag] = sum_i conj(a[i]) b[i+lag], for lag = lo .. lo+D-1.
template <class E> std::vector<Ref> refCross(const std::vector<E>& a, const std::vector<E>& b, long long lo, int D) {
    std::vector<Ref> r(D);
    for (int n = 0; n < D; ++n) {
        const long long lag = lo + n;
        for (long long i = 0; i < (long long)a.size(); ++i) {
            const long long j = i + lag;
            if (j < 0 || j >= (long long)b.size()) continue;
            const CLD t = std::conj(toC(a[i])) * toC(b[j]);
            r[n].v += t;
            r[n].mag += std::abs(t);
        }
    }
    return r;
}

// Normalisation of a reference over lags lo.. with the per-lag divisor.
void normalise(std::vector<Ref>& r, const std::function<long double(int)>& div) {
    for (size_t n = 0; n < r.size(); ++n) {
        const long double d = div(static_cast<int>(n));
        if (d == 0) continue;
        r[n].v /= d;
        r[n].mag /= d;
    }
}

// ================================================================ Convolve
template <class E> VrxStatus convolve(const E* a, int n1, const E* b, int n2, E* d, VrxAlgType t, Vrx8u* buf);
template <> VrxStatus convolve(const Vrx32f* a, int n1, const Vrx32f* b, int n2, Vrx32f* d, VrxAlgType t, Vrx8u* buf) {
    return vrxsConvolve_32f(a, n1, b, n2, d, t, buf);
}
template <> VrxStatus convolve(const Vrx64f* a, int n1, const Vrx64f* b, int n2, Vrx64f* d, VrxAlgType t, Vrx8u* buf) {
    return vrxsConvolve_64f(a, n1, b, n2, d, t, buf);
}

// The size the convolution must report, from its own rules.
template <class E> int expectedConvSize(int n1, int n2, int alg) {
    const long long T = n1 + n2 - 1, S = std::min(n1, n2), L = std::max(n1, n2);
    const bool fft = alg == vrxAlgFFT || (alg == vrxAlgAuto && T >= 512 && S >= 64);
    if (!fft) return 64;
    const int order = L < 3 * S ? ceilLog2(T) : ceilLog2(2 * S) + 1;
    return fftWork<E>(order, 2 * (1ll << order) * (long long)sizeof(E));
}

struct ConvCase {
    int n1, n2;
    VrxAlgType alg;
};
const ConvCase kConvCases[] = {
    {1, 1, vrxAlgDirect}, {1, 1, vrxAlgFFT}, {1, 1, vrxAlgAuto}, {7, 3, vrxAlgAuto}, {3, 7, vrxAlgAuto},
    {17, 17, vrxAlgDirect}, {100, 63, vrxAlgAuto}, {63, 1000, vrxAlgAuto}, {449, 64, vrxAlgAuto},
    {448, 64, vrxAlgAuto}, {64, 449, vrxAlgAuto}, {200, 150, vrxAlgAuto}, {150, 200, vrxAlgFFT},
    {1000, 64, vrxAlgAuto}, {64, 1000, vrxAlgAuto}, {1000, 64, vrxAlgDirect}, {2, 5000, vrxAlgFFT},
    {5000, 300, vrxAlgFFT}, {777, 777, vrxAlgFFT}, {130, 129, vrxAlgDirect}, {3, 3000, vrxAlgDirect},
    {4096, 1000, vrxAlgAuto}, {33, 65, vrxAlgFFT | vrxNormUnbiased}, {300, 300, vrxAlgAuto | 0x7F00},
    {3000, 1, vrxAlgFFT}, {1, 3000, vrxAlgFFT},
};

template <class E> void convCases() {
    vt::Rng rng(11);
    for (const ConvCase& c : kConvCases) {
        SCOPED_TRACE(testing::Message() << "n1 " << c.n1 << " n2 " << c.n2 << " alg " << c.alg);
        const auto a = randomVec<E>(rng, c.n1), b = randomVec<E>(rng, c.n2);
        int size = -1;
        ASSERT_EQ(vrxsConvolveGetBufferSize(c.n1, c.n2, Ty<E>::kType, c.alg, &size), vrxOk);
        ASSERT_EQ(size, expectedConvSize<E>(c.n1, c.n2, c.alg & 0xFF));
        const int T = c.n1 + c.n2 - 1;
        vt::Buffer work(size, rng.range(0, 63)), dst(T * sizeof(E), rng.range(0, 7) * sizeof(E));
        ASSERT_EQ(convolve(a.data(), c.n1, b.data(), c.n2, dst.as<E>(), c.alg, work.data()), vrxOk);
        EXPECT_TRUE(work.guardsIntact());
        EXPECT_TRUE(dst.guardsIntact());
        const auto ref = refConv(a, b);
        if (size == 64) {
            expectClose(dst.as<E>(), ref, 0, 2 * std::min(c.n1, c.n2) * kEps<E>, "direct");
        } else {
            const int S = std::min(c.n1, c.n2), L = std::max(c.n1, c.n2);
            const int order = L < 3 * S ? ceilLog2(T) : ceilLog2(2 * S) + 1;
            expectClose(dst.as<E>(), ref, fftTol(a, b, order), 0, "fft");
        }
    }
}
TEST(Convolve, Definition) {
    convCases<Vrx32f>();
    convCases<Vrx64f>();
}

// T = 511 / 512 at S = 64, and S = 63 / 64 at T = 512: direct, then FFT.
TEST(Convolve, AutoThresholdsBothSides) {
    struct { int n1, n2; bool fft; } rows[] = {
        {448, 64, false}, {449, 64, true}, {64, 448, false}, {64, 449, true}, {450, 63, false}, {63, 5000, false},
        {256, 257, true}, {1, 600, false},
    };
    for (auto r : rows) {
        for (int type : {vrx32f, vrx64f}) {
            int size = 0;
            ASSERT_EQ(vrxsConvolveGetBufferSize(r.n1, r.n2, type, vrxAlgAuto, &size), vrxOk);
            EXPECT_EQ(size > 64, r.fft) << r.n1 << " " << r.n2;
            ASSERT_EQ(vrxsConvolveGetBufferSize(r.n1, r.n2, type, vrxAlgDirect, &size), vrxOk);
            EXPECT_EQ(size, 64);
        }
    }
}

// Exact sizes over many shapes, both types, all three selectors.
TEST(Convolve, BufferSizesExact) {
    const int lens[] = {1, 2, 3, 31, 63, 64, 65, 127, 128, 129, 200, 255, 256, 257, 511, 512, 1000, 4095, 4096, 65536};
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
// after the lengths, the size query's own order, nothing written.
TEST(Convolve, ChecksInOrderNothingWritten) {
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
    // An order beyond the FFT's range: the plan query's status, size 0.
    size = 77;
    EXPECT_EQ(vrxsConvolveGetBufferSize(1 << 30, 1 << 29, vrx32f, vrxAlgFFT, &size), vrxErrFftOrder);
    EXPECT_EQ(size, 0);
}

TEST(Convolve, LeavesMxcsrAlone) {
    vt::MxcsrScope keep;
    const unsigned csr = (_mm_getcsr() & ~0x603Fu) | vt::kRoundZero | vt::kFtz;
    _mm_setcsr(csr);
    vt::Rng rng(5);
    const auto a = randomVec<Vrx32f>(rng, 1000), b = randomVec<Vrx32f>(rng, 100);
    std::vector<Vrx32f> d(1099);
    int size = 0;
    vrxsConvolveGetBufferSize(1000, 100, vrx32f, vrxAlgAuto, &size);
    std::vector<Vrx8u> buf(size);
    EXPECT_EQ(vrxsConvolve_32f(a.data(), 1000, b.data(), 100, d.data(), vrxAlgAuto, buf.data()), vrxOk);
    EXPECT_EQ(_mm_getcsr() & ~0x3Fu, csr & ~0x3Fu);
}

// ============================================================== ConvBiased
// (src2Len, src1Len, dstLen, bias): the seven dedicated shapes, the
// bounds-free case, the equal-length triangle and ragged ones.
struct BiasCase { int n2, n1, dstLen, bias; };
const BiasCase kBiasCases[] = {
    {45, 4, 41, 4}, {50, 11, 40, 10}, {56, 16, 40, 16}, {70, 31, 40, 30}, {110, 31, 80, 30}, {40, 40, 40, 0},
    {60, 60, 60, 0}, {8, 8, 8, 0}, {160, 160, 160, 0}, {164, 164, 164, 0}, {100, 5, 90, 4}, {100, 7, 93, 6},
    {100, 17, 83, 16}, {1, 1, 1, 0}, {10, 3, 20, 0}, {10, 3, 20, 5}, {10, 3, 20, -4}, {30, 50, 70, 20},
    {5, 9, 1, 0}, {300, 77, 500, 150}, {12, 4, 3, 40},
};

TEST(ConvBiased, Definition) {
    vt::Rng rng(21);
    for (const BiasCase& c : kBiasCases) {
        SCOPED_TRACE(testing::Message() << c.n2 << " " << c.n1 << " " << c.dstLen << " " << c.bias);
        // The usable part of pSrc2 is the whole array: pSrc2 stands bias
        // elements into it.
        const auto arr = randomVec<Vrx32f>(rng, c.n2), p1 = randomVec<Vrx32f>(rng, c.n1);
        const Vrx32f* p2 = arr.data() + c.bias;
        vt::Buffer dst(c.dstLen * sizeof(float), 4);
        ASSERT_EQ(vrxsConvBiased_32f(p1.data(), c.n1, p2, c.n2, dst.as<float>(), c.dstLen, c.bias), vrxOk);
        EXPECT_TRUE(dst.guardsIntact());
        std::vector<Ref> ref(c.dstLen);
        for (int n = 0; n < c.dstLen; ++n)
            for (int k = 0; k < c.n1; ++k) {
                const int j = n - k + c.bias;  // index into arr
                if (j < 0 || j >= c.n2) continue;
                const long double t = (long double)p1[k] * arr[j];
                ref[n].v += t;
                ref[n].mag += fabsl(t);
            }
        expectClose(dst.as<float>(), ref, 0, 2 * c.n1 * kEps<Vrx32f>, "biased");
    }
}

// Bias 0: only k = 0 reaches dst[0]; a NaN behind pSrc2 is never read.
TEST(ConvBiased, OutsideTermsLeftOut) {
    float arr[6] = {NAN, 2, 3, 4, 5, NAN};
    const float p1[3] = {1, 10, 100};
    float d[4];
    ASSERT_EQ(vrxsConvBiased_32f(p1, 3, arr + 1, 4, d, 4, 0), vrxOk);
    EXPECT_EQ(d[0], 2);
    EXPECT_EQ(d[1], 3 + 20);
    EXPECT_EQ(d[2], 4 + 30 + 200);
    EXPECT_EQ(d[3], 5 + 40 + 300);
}


// ============================================================ AutoCorrNorm
template <class E> class Corr : public ::testing::Test {};
using CorrTypes = ::testing::Types<Vrx32f, Vrx64f, Vrx32fc, Vrx64fc>;
TYPED_TEST_SUITE(Corr, CorrTypes);

template <class E> int expectedAutoSize(int srcLen, int dstLen, int alg) {
    const int m = std::min(srcLen, dstLen);
    if (!(alg == vrxAlgFFT || (alg == vrxAlgAuto && m >= Ty<E>::kAuto))) return 64;
    const int order = ceilLog2(2ll * srcLen);
    return fftWork<E>(order, (1ll << order) * (long long)sizeof(E) * (Ty<E>::kCplx ? 2 : 1));
}

struct AutoCase { int srcLen, dstLen, alg; };
const AutoCase kAutoCases[] = {
    {1, 1, 0}, {1, 5, 2}, {2, 1, 1}, {17, 40, 0}, {100, 30, 2}, {127, 127, 0}, {128, 128, 0}, {129, 200, 0},
    {300, 300, 1}, {1199, 1300, 0}, {1200, 1200, 0}, {1500, 1199, 0}, {1000, 64, 2}, {2000, 2000, 1}, {5, 1, 2},
};

TYPED_TEST(Corr, AutoDefinition) {
    using E = TypeParam;
    vt::Rng rng(31);
    for (const AutoCase& c : kAutoCases) {
        const auto x = randomVec<E>(rng, c.srcLen);
        const int m = std::min(c.srcLen, c.dstLen);
        const auto plain = refCross(x, x, 0, m);
        for (int norm : {vrxNormNone, vrxNormBiased, vrxNormUnbiased}) {
            SCOPED_TRACE(testing::Message() << c.srcLen << " " << c.dstLen << " alg " << c.alg << " norm " << norm);
            int size = -1;
            ASSERT_EQ(vrxsAutoCorrNormGetBufferSize(c.srcLen, c.dstLen, Ty<E>::kType, c.alg | norm, &size), vrxOk);
            ASSERT_EQ(size, expectedAutoSize<E>(c.srcLen, c.dstLen, c.alg));
            vt::Buffer work(size, rng.range(0, 63)), dst(c.dstLen * sizeof(E));
            ASSERT_EQ(Ty<E>::autoCorr(x.data(), c.srcLen, dst.as<E>(), c.dstLen, c.alg | norm, work.data()), vrxOk);
            EXPECT_TRUE(work.guardsIntact() && dst.guardsIntact());
            auto ref = plain;
            if (norm == vrxNormBiased) normalise(ref, [&](int) { return (long double)c.srcLen; });
            if (norm == vrxNormUnbiased) normalise(ref, [&](int n) { return (long double)(c.srcLen - n); });
            const E* d = dst.as<E>();
            if (size == 64) {
                expectClose(d, ref, 0, 2 * (c.srcLen + 1) * kEps<E>, "direct");
            } else {
                long double tol = fftTol(x, x, ceilLog2(2ll * c.srcLen));
                if (norm == vrxNormBiased) tol /= c.srcLen;
                if (norm == vrxNormUnbiased) tol /= 1;  // the last lag divides by 1
                expectClose(d, ref, tol, 0, "fft");
            }
            // The tail beyond srcLen is zero, never divided.
            for (int n = m; n < c.dstLen; ++n) EXPECT_EQ(toC(d[n]), CLD(0)) << n;
        }
    }
}

// m = min(srcLen, dstLen) against 1200 (real) and 128 (complex) from both
// sides, through either length.
TYPED_TEST(Corr, AutoThreshold) {
    using E = TypeParam;
    const int t = Ty<E>::kAuto;
    struct { int s, d; bool fft; } rows[] = {
        {t - 1, t - 1, false}, {t, t, true}, {t - 1, 5 * t, false}, {5 * t, t - 1, false}, {t, 5 * t, true}, {5 * t, t, true},
    };
    for (auto r : rows) {
        int size = 0;
        ASSERT_EQ(vrxsAutoCorrNormGetBufferSize(r.s, r.d, Ty<E>::kType, vrxAlgAuto, &size), vrxOk);
        EXPECT_EQ(size > 64, r.fft) << r.s << " " << r.d;
        EXPECT_EQ(size, expectedAutoSize<E>(r.s, r.d, vrxAlgAuto));
    }
}

// A bad norm byte: the unnormalised result is written, then -228.
TYPED_TEST(Corr, AutoBadNormWritesThenFails) {
    using E = TypeParam;
    vt::Rng rng(41);
    for (int alg : {vrxAlgDirect, vrxAlgFFT}) {
        const auto x = randomVec<E>(rng, 50);
        int size = 0;
        ASSERT_EQ(vrxsAutoCorrNormGetBufferSize(50, 60, Ty<E>::kType, alg, &size), vrxOk);
        EXPECT_EQ(vrxsAutoCorrNormGetBufferSize(50, 60, Ty<E>::kType, alg | 0x300, &size), vrxErrAlgType);
        std::vector<Vrx8u> buf(size);
        std::vector<E> plain(60), bad(60);
        ASSERT_EQ(Ty<E>::autoCorr(x.data(), 50, plain.data(), 60, alg, buf.data()), vrxOk);
        ASSERT_EQ(Ty<E>::autoCorr(x.data(), 50, bad.data(), 60, alg | 0x300, buf.data()), vrxErrAlgType);
        for (int i = 0; i < 60; ++i) EXPECT_TRUE(vt::sameBits(plain[i], bad[i])) << i;
    }
}

TYPED_TEST(Corr, AutoChecksInOrder) {
    using E = TypeParam;
    E x[4] = {};
    vt::Buffer dst(8 * sizeof(E)), buf(64);
    EXPECT_EQ(Ty<E>::autoCorr(x, 4, dst.as<E>(), -2, 9, buf.data()), vrxErrBadLength);
    EXPECT_EQ(Ty<E>::autoCorr(x, 4, dst.as<E>(), 4, 3, buf.data()), vrxErrAlgType);
    for (size_t i = 0; i < 8 * sizeof(E); ++i) ASSERT_EQ(dst.data()[i], vt::Buffer::kFill);
    int size = 77;
    EXPECT_EQ(vrxsAutoCorrNormGetBufferSize(4, 0, 99, 3, &size), vrxErrBadLength);
    EXPECT_EQ(vrxsAutoCorrNormGetBufferSize(4, 4, 99, 3, &size), vrxErrAlgType);
    EXPECT_EQ(vrxsAutoCorrNormGetBufferSize(4, 4, 99, 0x400, &size), vrxErrAlgType);
    EXPECT_EQ(size, 77);
    EXPECT_EQ(vrxsAutoCorrNormGetBufferSize(4, 4, vrx16s, 0x200, &size), vrxErrDataType);
    EXPECT_EQ(size, 0);
}

// =========================================================== CrossCorrNorm
// The lags that remain after those outside the overlap are cut off.
struct Lags { long long front, D, lo; };
Lags lagsOf(int n1, int n2, int D, int lo) {
    long long f = 0, d = D, l = lo;
    if (l < 1 - n1) { f = std::min<long long>(d, 1 - n1 - l); d -= f; l += f; }
    if (d > 0 && l + d - 1 > n2 - 1) d -= std::min<long long>(d, l + d - 1 - (n2 - 1));
    return {f, d, l};
}

struct CrossPath { bool fft; bool single; int order; };
template <class E> CrossPath crossPath(int n1, int n2, int dstLen, int lo, int alg) {
    const Lags g = lagsOf(n1, n2, dstLen, lo);
    if (g.D == 0) return {false, false, 0};
    const int mn = std::min(n1, n2), mx = std::max(n1, n2);
    const int v = static_cast<int>(static_cast<float>(mn) * static_cast<float>(g.D) / static_cast<float>(mx));
    const bool fft = alg == vrxAlgFFT || (alg == vrxAlgAuto && v >= Ty<E>::kCross);
    if (!fft) return {false, false, 0};
    const bool single = mx < 3 * mn;
    return {true, single, single ? ceilLog2(n1 + n2 - 1) : ceilLog2(2ll * mn) + 1};
}
template <class E> int expectedCrossSize(int n1, int n2, int dstLen, int lo, int alg) {
    const CrossPath p = crossPath<E>(n1, n2, dstLen, lo, alg);
    return p.fft ? fftWork<E>(p.order, 2 * (1ll << p.order) * (long long)sizeof(E)) : 64;
}

struct CrossCase { int n1, n2, dstLen, lowLag, alg; };
const CrossCase kCrossCases[] = {
    // lags all below, all above, and clipped at either end or both
    {10, 20, 5, -30, 0}, {10, 20, 5, 20, 2}, {10, 20, 40, -15, 1}, {10, 20, 40, -15, 2}, {1, 1, 3, -1, 2},
    {1, 1, 1, 0, 1}, {5, 5, 9, -4, 0},
    // single transform (mx < 3 mn), both orders of length
    {300, 400, 500, -250, 2}, {400, 300, 700, -399, 2}, {600, 700, 600, -100, 0},
    // overlap-save with the second vector longer, then the first, lags from
    // before the signal to past it
    {50, 2000, 2100, -60, 2}, {2000, 50, 2100, -2010, 2}, {64, 5000, 300, 1000, 2}, {5000, 64, 300, -1000, 2},
    {3, 4000, 4010, -5, 2}, {4000, 3, 4010, -4005, 2}, {1, 3000, 3100, -50, 2}, {3000, 1, 3100, -3050, 2}, {100, 3000, 700, -300, 0}, {3000, 100, 700, -300, 0},
    // long direct runs
    {2000, 50, 2100, -2010, 1}, {70, 90, 200, -80, 1},
};

TYPED_TEST(Corr, CrossDefinition) {
    using E = TypeParam;
    vt::Rng rng(51);
    for (const CrossCase& c : kCrossCases)
        for (int norm : {vrxNormNone, vrxNormBiased, vrxNormUnbiased}) {
            SCOPED_TRACE(testing::Message() << c.n1 << " " << c.n2 << " D " << c.dstLen << " lo " << c.lowLag
                                            << " alg " << c.alg << " norm " << norm);
            const auto a = randomVec<E>(rng, c.n1), b = randomVec<E>(rng, c.n2);
            int size = -1;
            ASSERT_EQ(vrxsCrossCorrNormGetBufferSize(c.n1, c.n2, c.dstLen, c.lowLag, Ty<E>::kType, c.alg | norm, &size),
                      vrxOk);
            ASSERT_EQ(size, expectedCrossSize<E>(c.n1, c.n2, c.dstLen, c.lowLag, c.alg));
            vt::Buffer work(size, rng.range(0, 63)), dst(c.dstLen * sizeof(E), 8);
            ASSERT_EQ(Ty<E>::cross(a.data(), c.n1, b.data(), c.n2, dst.as<E>(), c.dstLen, c.lowLag, c.alg | norm,
                                   work.data()),
                      vrxOk);
            EXPECT_TRUE(work.guardsIntact() && dst.guardsIntact());
            auto ref = refCross(a, b, c.lowLag, c.dstLen);
            const int mn = std::min(c.n1, c.n2);
            if (norm == vrxNormBiased) normalise(ref, [&](int) { return (long double)mn; });
            if (norm == vrxNormUnbiased)
                normalise(ref, [&](int n) {
                    const long long lag = (long long)c.lowLag + n;
                    const long long cnt = std::min<long long>(c.n1, c.n2 - lag) - std::max<long long>(0, -lag);
                    return cnt > 0 ? (long double)cnt : 0.0L;
                });
            const CrossPath p = crossPath<E>(c.n1, c.n2, c.dstLen, c.lowLag, c.alg);
            if (!p.fft) {
                expectClose(dst.as<E>(), ref, 0, 2 * (mn + 1) * kEps<E>, "direct");
            } else {
                long double tol = fftTol(a, b, p.order);
                if (norm == vrxNormBiased) tol /= mn;
                expectClose(dst.as<E>(), ref, tol, 0, p.single ? "single" : "segments");
            }
            // Lags outside the overlap are exact zeros.
            const Lags g = lagsOf(c.n1, c.n2, c.dstLen, c.lowLag);
            for (int n = 0; n < c.dstLen; ++n)
                if (n < g.front || n >= g.front + g.D) { EXPECT_EQ(toC(dst.as<E>()[n]), CLD(0)) << n; }
        }
}

// v = trunc(mn D / mx) against the threshold of each form, both sides; the
// D that counts is the one left after the cut.
TYPED_TEST(Corr, CrossThreshold) {
    using E = TypeParam;
    const int t = Ty<E>::kCross;
    struct { int n1, n2, D, lo; bool fft; } rows[] = {
        {1000, 1000, t - 1, 0, false}, {1000, 1000, t, 0, true}, {1000, 2000, 2 * t - 1, 0, false},
        {2000, 1000, 2 * t, -500, true}, {1000, 1000, t + 10, 990, false}, {1000, 1000, t + 10, -999 - 11, false},
        {1000, 1000, t + 10, -999 - 10, true},
    };
    for (auto r : rows) {
        int size = 0;
        ASSERT_EQ(vrxsCrossCorrNormGetBufferSize(r.n1, r.n2, r.D, r.lo, Ty<E>::kType, vrxAlgAuto, &size), vrxOk);
        EXPECT_EQ(size > 64, r.fft) << r.n1 << " " << r.n2 << " " << r.D << " " << r.lo;
        EXPECT_EQ(size, expectedCrossSize<E>(r.n1, r.n2, r.D, r.lo, vrxAlgAuto));
    }
    // No lag left: 64 bytes even on FFT.
    int size = 0;
    ASSERT_EQ(vrxsCrossCorrNormGetBufferSize(10, 10, 5, 50, Ty<E>::kType, vrxAlgFFT, &size), vrxOk);
    EXPECT_EQ(size, 64);
}

TYPED_TEST(Corr, CrossBadNormWritesThenFails) {
    using E = TypeParam;
    vt::Rng rng(61);
    for (int alg : {vrxAlgDirect, vrxAlgFFT}) {
        const auto a = randomVec<E>(rng, 40), b = randomVec<E>(rng, 200);
        int size = 0;
        ASSERT_EQ(vrxsCrossCorrNormGetBufferSize(40, 200, 260, -50, Ty<E>::kType, alg, &size), vrxOk);
        EXPECT_EQ(vrxsCrossCorrNormGetBufferSize(40, 200, 260, -50, Ty<E>::kType, alg | 0xFF00, &size), vrxErrAlgType);
        std::vector<Vrx8u> buf(size);
        std::vector<E> plain(260), bad(260);
        ASSERT_EQ(Ty<E>::cross(a.data(), 40, b.data(), 200, plain.data(), 260, -50, alg, buf.data()), vrxOk);
        ASSERT_EQ(Ty<E>::cross(a.data(), 40, b.data(), 200, bad.data(), 260, -50, alg | 0xFF00, buf.data()),
                  vrxErrAlgType);
        for (int i = 0; i < 260; ++i) EXPECT_TRUE(vt::sameBits(plain[i], bad[i])) << i;
    }
}

TYPED_TEST(Corr, CrossChecksInOrder) {
    using E = TypeParam;
    E x[4] = {};
    vt::Buffer dst(8 * sizeof(E)), buf(64);
    EXPECT_EQ(Ty<E>::cross(x, 4, x, 4, dst.as<E>(), 0, 0, 9, buf.data()), vrxErrBadLength);
    EXPECT_EQ(Ty<E>::cross(x, 4, x, 4, dst.as<E>(), 4, 0, 0x203, buf.data()), vrxErrAlgType);
    for (size_t i = 0; i < 8 * sizeof(E); ++i) ASSERT_EQ(dst.data()[i], vt::Buffer::kFill);
    int size = 77;
    EXPECT_EQ(vrxsCrossCorrNormGetBufferSize(4, 4, 0, 0, 99, 3, &size), vrxErrBadLength);
    EXPECT_EQ(vrxsCrossCorrNormGetBufferSize(4, 4, 4, 0, 99, 0x300, &size), vrxErrAlgType);
    EXPECT_EQ(size, 77);
    EXPECT_EQ(vrxsCrossCorrNormGetBufferSize(4, 4, 4, 0, 1, 0, &size), vrxErrDataType);
    EXPECT_EQ(size, 0);
}

// Exact sizes of the correlation queries over many shapes, every type and
// selector.
TYPED_TEST(Corr, SizesExact) {
    using E = TypeParam;
    const int lens[] = {1, 2, 63, 64, 127, 128, 129, 383, 384, 600, 1199, 1200, 1201, 4096, 65536};
    for (int n1 : lens)
        for (int n2 : lens)
            for (int alg : {0, 1, 2}) {
                int size = -1;
                ASSERT_EQ(vrxsAutoCorrNormGetBufferSize(n1, n2, Ty<E>::kType, alg | vrxNormBiased, &size), vrxOk);
                EXPECT_EQ(size, expectedAutoSize<E>(n1, n2, alg)) << n1 << " " << n2 << " " << alg;
                for (int lo : {-n1 - 5, -n1 / 2, 0, n2 / 3, n2}) {
                    const int D = std::max(n1, n2) / 2 + 1;
                    ASSERT_EQ(vrxsCrossCorrNormGetBufferSize(n1, n2, D, lo, Ty<E>::kType, alg, &size), vrxOk);
                    EXPECT_EQ(size, expectedCrossSize<E>(n1, n2, D, lo, alg)) << n1 << " " << n2 << " " << lo;
                }
            }
}

}  // namespace
