// Median filter: every type against a sorted-window reference, delay lines
// carried across pieces, in place, even masks, the order of NaN, infinities
// and signed zeros, SciPy medfilt goldens, the mask checks.
#include <math.h>

#include <algorithm>

#include "vrx_test.h"
#include "data/median_golden.h"
#include "test_median_common.h"

namespace {

using med::Api;
using med::before;

// out[n] = middle of the sorted window of the last m inputs; line = the
// last m-1 inputs (history before the first sample).
template <class E>
void reference(const std::vector<E>& hist, const std::vector<E>& x, int m, std::vector<E>& out, std::vector<E>& line) {
    std::vector<E> all(hist);
    all.insert(all.end(), x.begin(), x.end());
    out.resize(x.size());
    std::vector<E> w(m);
    for (size_t n = 0; n < x.size(); ++n) {
        std::copy(all.begin() + n, all.begin() + n + m, w.begin());
        std::sort(w.begin(), w.end(), before<E>);
        out[n] = w[m / 2];
    }
    line.assign(all.end() - (m - 1), all.end());
}

// Test data with many ties; floats mix in infinities, NaNs of both signs and
// payloads, signed zeros and denormals.
template <class E> std::vector<E> drawN(vt::Rng& r, size_t n) {
    using L = std::numeric_limits<E>;
    std::vector<E> v(n);
    for (auto& e : v) {
        if constexpr (std::is_floating_point_v<E>) {
            using U = std::conditional_t<sizeof(E) == 4, uint32_t, uint64_t>;
            const U sign = r.range(0, 1) ? U(1) << (sizeof(E) * 8 - 1) : 0, inf = U(vt::bitsOf(L::infinity()));
            switch (r.range(0, 15)) {
                case 0: e = L::infinity(); break;
                case 1: e = E(0); break;
                case 2: e = L::quiet_NaN(); break;
                case 3: { const U b = inf | static_cast<U>(r.range(1, static_cast<int64_t>(inf >> 1 & ~inf) * 2 - 1)); memcpy(&e, &b, sizeof e); break; }
                case 4: e = L::denorm_min() * E(r.range(0, 3)); break;
                default: e = E(r.range(-20, 20)) * E(0.25); break;
            }
            if (sign) e = -e;
        } else if constexpr (sizeof(E) == 1) {
            e = static_cast<E>(r.range(0, 7) == 0 ? r.range(0, 255) : r.range(100, 110));
        } else {
            e = static_cast<E>(r.range(0, 3) == 0 ? r.range(L::min(), L::max()) : r.range(std::max<int64_t>(L::min(), -5), 5));
        }
    }
    return v;
}
template <class E> ::testing::AssertionResult sameVec(const E* got, const std::vector<E>& want, const char* what) {
    for (size_t i = 0; i < want.size(); ++i)
        if (!vt::sameBits(got[i], want[i]))
            return ::testing::AssertionFailure() << what << "[" << i << "] bits " << std::hex << vt::bitsOf(got[i])
                                                 << " want " << vt::bitsOf(want[i]);
    return ::testing::AssertionSuccess();
}

int bufSize(int m, VrxDataType t) {
    int sz = -1;
    const VrxStatus st = vrxsFilterMedianGetBufferSize(m, t, &sz);
    EXPECT_EQ(st, (m & 1) ? vrxOk : vrxWarnEvenMedianMask);
    return sz;
}

// One call on guarded buffers (work buffer exactly the reported size, at an
// odd offset), against the reference, with or without a history.
template <class E> void checkAgainstReference(int m, int len, bool withHist, uint64_t seed) {
    SCOPED_TRACE(::testing::Message() << "type " << Api<E>::kType << " mask " << m << " len " << len << " hist " << withHist);
    vt::Rng r(seed);
    const int mu = m - 1 + (m & 1), L = mu - 1;
    std::vector<E> hist = withHist ? drawN<E>(r, L) : std::vector<E>(L, E(0));
    const std::vector<E> x = drawN<E>(r, len);
    std::vector<E> want, wantLine;
    reference(hist, x, mu, want, wantLine);

    vt::Buffer src(len * sizeof(E), 8), dst(len * sizeof(E), 24), dly(L * sizeof(E) + 1, 40);
    vt::Buffer buf(bufSize(m, Api<E>::kType), 3);
    memcpy(src.data(), x.data(), len * sizeof(E));
    if (withHist && L > 0) memcpy(dly.data(), hist.data(), L * sizeof(E));
    E* line = dly.as<E>();
    const VrxStatus st = Api<E>::run(src.as<E>(), dst.as<E>(), len, m, withHist ? line : nullptr, line, buf.data());
    EXPECT_EQ(st, (m & 1) ? vrxOk : vrxWarnEvenMedianMask);
    EXPECT_TRUE(sameVec(dst.as<E>(), want, "out"));
    EXPECT_TRUE(sameVec(line, wantLine, "line"));
    EXPECT_EQ(dly.data()[L * sizeof(E)], vt::Buffer::kFill) << "line written past m-1";
    EXPECT_TRUE(sameVec(src.as<E>(), x, "src"));
    EXPECT_TRUE(src.guardsIntact() && dst.guardsIntact() && dly.guardsIntact() && buf.guardsIntact());
}

template <class E> class MedianTypes : public ::testing::Test {};
using Types = ::testing::Types<Vrx8u, Vrx16u, Vrx16s, Vrx32f, Vrx64f>;
TYPED_TEST_SUITE(MedianTypes, Types);

TYPED_TEST(MedianTypes, AgainstReference) {
    std::vector<int> masks;
    for (int m = 1; m <= 41; ++m) masks.push_back(m);
    masks.insert(masks.end(), {63, 64, 65, 101, 257});
    for (int m : masks)
        for (int len : {1, 5, 37, 1100})
            for (bool h : {false, true}) checkAgainstReference<TypeParam>(m, len, h, 977u * m + 31u * len + h);
}

// Random pieces with the line carried through one buffer (pDlyDst ==
// pDlySrc) give the bits of one call; so does the in-place form.
TYPED_TEST(MedianTypes, PiecesAndInPlace) {
    using E = TypeParam;
    for (int m : {1, 3, 4, 7, 25, 33, 63, 65, 101}) {
        SCOPED_TRACE(::testing::Message() << "mask " << m);
        vt::Rng r(5000u + m);
        const int len = 2600, L = m - 2 + (m & 1);
        const std::vector<E> x = drawN<E>(r, len), hist = drawN<E>(r, L);
        std::vector<Vrx8u> buf(bufSize(m, Api<E>::kType));
        std::vector<E> whole(len), line1(L), pieces(len), line2(hist), inPlace(x), line3(L);
        const VrxStatus want = (m & 1) ? vrxOk : vrxWarnEvenMedianMask;
        ASSERT_EQ(Api<E>::run(x.data(), whole.data(), len, m, hist.data(), line1.data(), buf.data()), want);
        for (int pos = 0, n; pos < len; pos += n) {
            n = std::min<int>(len - pos, static_cast<int>(r.range(1, 1200)));
            ASSERT_EQ(Api<E>::run(x.data() + pos, pieces.data() + pos, n, m, line2.data(), line2.data(), buf.data()), want);
        }
        ASSERT_EQ(Api<E>::runI(inPlace.data(), len, m, hist.data(), line3.data(), buf.data()), want);
        EXPECT_TRUE(sameVec(pieces.data(), whole, "pieces") && sameVec(line2.data(), line1, "pieces line"));
        EXPECT_TRUE(sameVec(inPlace.data(), whole, "in place") && sameVec(line3.data(), line1, "in place line"));
    }
}

// The order itself, spelled out on three-sample windows (mask 3, history of
// two): NaN above +inf, positive NaNs below negative ones and then by
// payload, -0 below +0. The sweep above checks every type against it.
TEST(Median, OrderOfSpecials) {
    constexpr uint64_t kPInf = 0x7FF0000000000000ull, kNInf = 0xFFF0000000000000ull, kPZero = 0, kNZero = 1ull << 63;
    constexpr uint64_t kNan1 = 0x7FF8000000000001ull, kNan2 = 0x7FF8000000000002ull, kNegNan = 0xFFF8000000000000ull;
    constexpr uint64_t kOne = 0x3FF0000000000000ull, kMinusOne = 0xBFF0000000000000ull;
    const uint64_t cases[][4] = {  // a, b, c, the median
        {kNan1, kPInf, kOne, kPInf},       {kNegNan, kOne, kPInf, kPInf},        {kNan1, kPInf, kNegNan, kNan1},
        {kNan2, kNan1, kNegNan, kNan2},    {kNInf, kMinusOne, kNegNan, kMinusOne}, {kPZero, kNZero, kOne, kPZero},
        {kNZero, kMinusOne, kPZero, kNZero}, {kNZero, kPZero, kNZero, kNZero},    {kNegNan, kNan2, kNan1, kNan2},
    };
    std::vector<Vrx8u> b64(bufSize(3, vrx64f));
    for (const auto& c : cases) {
        const double hist[2] = {vt::bitsD(c[0]), vt::bitsD(c[1])}, x = vt::bitsD(c[2]);
        double y = 0;
        ASSERT_EQ(vrxsFilterMedian_64f(&x, &y, 1, 3, hist, nullptr, b64.data()), vrxOk);
        EXPECT_EQ(vt::dBits(y), c[3]) << std::hex << c[0] << " " << c[1] << " " << c[2];
    }
}

// SciPy medfilt with zero padding: out[n + h] = medfilt[n].
TEST(Median, ScipyGoldens) {
    const int N = kMedGoldenLen;
    const std::vector<float> xf(kMedGoldenX, kMedGoldenX + N);
    for (int k = 0; k < static_cast<int>(sizeof kMedGoldenMasks / sizeof kMedGoldenMasks[0]); ++k) {
        const int m = kMedGoldenMasks[k], h = (m - 1) / 2;
        SCOPED_TRACE(m);
        std::vector<Vrx8u> b(bufSize(m, vrx64f));
        std::vector<double> y(N);
        std::vector<float> yf(N);
        std::vector<Vrx16s> y16(N);
        ASSERT_EQ(vrxsFilterMedian_64f(kMedGoldenX, y.data(), N, m, nullptr, nullptr, b.data()), vrxOk);
        ASSERT_EQ(vrxsFilterMedian_32f(xf.data(), yf.data(), N, m, nullptr, nullptr, b.data()), vrxOk);
        ASSERT_EQ(vrxsFilterMedian_16s(kMedGoldenX16s, y16.data(), N, m, nullptr, nullptr, b.data()), vrxOk);
        for (int n = 0; n + h < N; ++n) {
            ASSERT_EQ(y[n + h], kMedGoldenY[k][n]) << n;
            ASSERT_EQ(yf[n + h], static_cast<float>(kMedGoldenY[k][n])) << n;
            ASSERT_EQ(y16[n + h], kMedGoldenY16s[k][n]) << n;
        }
    }
}

// ------------------------------------------------------------ statuses
// The size query: null, then the mask, then the type; the filter: the length
// before the mask. Nothing is written on failure.
TEST(Median, ChecksInOrderNothingWritten) {
    struct SizeCase { int mask; VrxDataType type; bool nullSize; VrxStatus want; };
    const SizeCase sizes[] = {
        {0, 0, true, vrxErrNullPtr},           {0, 0, false, vrxErrMaskSize},         {-1, vrx8u, false, vrxErrMaskSize},
        {(1 << 26) + 1, vrx64f, false, vrxErrMaskSize}, {3, 9, false, vrxErrDataType}, {3, 11, false, vrxErrDataType},
        {3, vrx32fc, false, vrxErrDataType},   {4, vrx64fc, false, vrxErrDataType},   {3, -1, false, vrxErrDataType},
        {1, vrx32f, false, vrxOk},             {1 << 26, vrx64f, false, vrxWarnEvenMedianMask},
    };
    for (const SizeCase& c : sizes) {
        int size = -12345;
        EXPECT_EQ(vrxsFilterMedianGetBufferSize(c.mask, c.type, c.nullSize ? nullptr : &size), c.want) << c.mask << " " << c.type;
        EXPECT_TRUE(c.want < 0 ? size == -12345 : size > 0) << c.mask << " " << c.type;
    }
    struct Case { int len, mask; VrxStatus want; };
    const Case cases[] = {{0, 0, vrxErrBadLength}, {4, 0, vrxErrMaskSize}, {4, -7, vrxErrMaskSize}, {4, (1 << 26) + 1, vrxErrMaskSize}};
    const Vrx16s src[4] = {1, 2, 3, 4}, hist[2] = {5, 6};
    for (const Case& c : cases)
        for (bool inPlace : {false, true}) {
            SCOPED_TRACE(::testing::Message() << "len " << c.len << " mask " << c.mask << " in place " << inPlace);
            Vrx16s dst[4] = {-9, -9, -9, -9}, line[2] = {-9, -9};
            std::vector<Vrx8u> buf(bufSize(3, vrx16s), 0xEE);
            if (inPlace) memcpy(dst, src, sizeof dst);
            EXPECT_EQ(inPlace ? vrxsFilterMedian_16s_I(dst, c.len, c.mask, hist, line, buf.data())
                              : vrxsFilterMedian_16s(src, dst, c.len, c.mask, hist, line, buf.data()), c.want);
            EXPECT_EQ(vt::vec(dst, 4), inPlace ? vt::vec(src, 4) : std::vector<Vrx16s>(4, -9));
            EXPECT_EQ(vt::vec(line, 2), std::vector<Vrx16s>(2, -9));
            EXPECT_TRUE(std::all_of(buf.begin(), buf.end(), [](Vrx8u v) { return v == 0xEE; }));
        }
}

}  // namespace
