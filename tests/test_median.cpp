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
// payloads, and signed zeros.
template <class E> E draw(vt::Rng& r) {
    if constexpr (std::is_floating_point_v<E>) {
        switch (r.range(0, 15)) {
            case 0: return INFINITY;
            case 1: return -INFINITY;
            case 2: return E(0.0);
            case 3: return E(-0.0);
            case 4: { E v = NAN; if (r.range(0, 1)) v = -v; return v; }
            case 5: {
                if constexpr (sizeof(E) == 4) return vt::bitsF(0x7F800000u | static_cast<uint32_t>(r.range(1, 0x7FFFFF)) | (r.range(0, 1) ? 0x80000000u : 0));
                else return vt::bitsD(0x7FF0000000000000ull | static_cast<uint64_t>(r.range(1, 0xFFFFFFFFFFFFFll)) | (r.range(0, 1) ? 0x8000000000000000ull : 0));
            }
            case 6: return E(std::numeric_limits<E>::denorm_min() * E(r.range(-3, 3)));
            default: return E(r.range(-20, 20)) * E(0.25);
        }
    } else if constexpr (sizeof(E) == 1) {
        return static_cast<E>(r.range(0, 7) == 0 ? r.range(0, 255) : r.range(100, 110));
    } else {
        const int64_t lo = std::numeric_limits<E>::min(), hi = std::numeric_limits<E>::max();
        return static_cast<E>(r.range(0, 3) == 0 ? r.range(lo, hi) : r.range(-5 < lo ? lo : -5, 5));
    }
}
template <class E> std::vector<E> drawN(vt::Rng& r, size_t n) {
    std::vector<E> v(n);
    for (auto& e : v) e = draw<E>(r);
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

template <class E> void referenceSweep() {
    std::vector<int> masks;
    for (int m = 1; m <= 41; ++m) masks.push_back(m);
    masks.insert(masks.end(), {63, 64, 65, 101, 257});
    for (int m : masks)
        for (int len : {1, 5, 37, 1100})
            for (bool h : {false, true}) checkAgainstReference<E>(m, len, h, 977u * m + 31u * len + h);
}

TEST(Median, AgainstReference8u) { referenceSweep<Vrx8u>(); }
TEST(Median, AgainstReference16u) { referenceSweep<Vrx16u>(); }
TEST(Median, AgainstReference16s) { referenceSweep<Vrx16s>(); }
TEST(Median, AgainstReference32f) { referenceSweep<Vrx32f>(); }
TEST(Median, AgainstReference64f) { referenceSweep<Vrx64f>(); }

// Random pieces with the line carried through one buffer (pDlyDst ==
// pDlySrc) give the bits of one call; the in-place form gives the bits of
// the out-of-place one.
template <class E> void piecesAndInPlace() {
    for (int m : {1, 3, 4, 7, 25, 33, 63, 65, 101}) {
        SCOPED_TRACE(::testing::Message() << "type " << Api<E>::kType << " mask " << m);
        vt::Rng r(5000u + m);
        const int len = 2600, mu = m - 1 + (m & 1), L = mu - 1;
        const std::vector<E> x = drawN<E>(r, len), hist = drawN<E>(r, L);
        std::vector<Vrx8u> buf(bufSize(m, Api<E>::kType));
        std::vector<E> whole(len), line1(L + 1), line2(hist);
        line2.push_back(E(0));
        const VrxStatus want = (m & 1) ? vrxOk : vrxWarnEvenMedianMask;
        ASSERT_EQ(Api<E>::run(x.data(), whole.data(), len, m, hist.data(), line1.data(), buf.data()), want);

        std::vector<E> piecewise(len);
        for (int pos = 0; pos < len;) {
            const int n = std::min<int>(len - pos, static_cast<int>(r.range(1, 1200)));
            ASSERT_EQ(Api<E>::run(x.data() + pos, piecewise.data() + pos, n, m, line2.data(), line2.data(), buf.data()), want);
            pos += n;
        }
        EXPECT_TRUE(sameVec(piecewise.data(), whole, "pieces"));
        EXPECT_TRUE(sameVec(line2.data(), std::vector<E>(line1.begin(), line1.begin() + L), "pieces line"));

        std::vector<E> inPlace(x), line3(L + 1);
        ASSERT_EQ(Api<E>::runI(inPlace.data(), len, m, hist.data(), line3.data(), buf.data()), want);
        EXPECT_TRUE(sameVec(inPlace.data(), whole, "in place"));
        EXPECT_TRUE(sameVec(line3.data(), std::vector<E>(line1.begin(), line1.begin() + L), "in place line"));
    }
}
TEST(Median, PiecesAndInPlace) {
    piecesAndInPlace<Vrx8u>();
    piecesAndInPlace<Vrx16u>();
    piecesAndInPlace<Vrx16s>();
    piecesAndInPlace<Vrx32f>();
    piecesAndInPlace<Vrx64f>();
}

// Ordering of specials: three-sample windows (mask 3, history of two).
struct OrderCase {
    const char* name;
    uint64_t a, b, c, want;  // 64f bits; the 32f case uses the same values narrowed
};
constexpr uint64_t kPInf = 0x7FF0000000000000ull, kNInf = 0xFFF0000000000000ull, kPZero = 0, kNZero = 0x8000000000000000ull;
constexpr uint64_t kNan1 = 0x7FF8000000000001ull, kNan2 = 0x7FF8000000000002ull, kNegNan = 0xFFF8000000000000ull;
constexpr uint64_t kOne = 0x3FF0000000000000ull, kMinusOne = 0xBFF0000000000000ull;
const OrderCase kOrderCases[] = {
    {"NaN above +inf", kNan1, kPInf, kOne, kPInf},
    {"negative NaN above +inf", kNegNan, kOne, kPInf, kPInf},
    {"two NaNs beat +inf", kNan1, kPInf, kNegNan, kNan1},
    {"NaN payloads ordered", kNan2, kNan1, kNegNan, kNan2},
    {"-inf lowest", kNInf, kMinusOne, kNegNan, kMinusOne},
    {"-0 below +0, median +0", kPZero, kNZero, kOne, kPZero},
    {"-0 below +0, median -0", kNZero, kMinusOne, kPZero, kNZero},
    {"two -0 and +0", kNZero, kPZero, kNZero, kNZero},
    {"all NaN", kNegNan, kNan2, kNan1, kNan2},
};
TEST(Median, OrderOfSpecials) {
    std::vector<Vrx8u> b32(bufSize(3, vrx32f)), b64(bufSize(3, vrx64f));
    for (const OrderCase& c : kOrderCases) {
        SCOPED_TRACE(c.name);
        const double hist[2] = {vt::bitsD(c.a), vt::bitsD(c.b)};
        const double x = vt::bitsD(c.c);
        double y = 0;
        ASSERT_EQ(vrxsFilterMedian_64f(&x, &y, 1, 3, hist, nullptr, b64.data()), vrxOk);
        EXPECT_EQ(vt::dBits(y), c.want);
        // narrowed: payload bits 0x1 and 0x2 sit below the float mantissa, so build them in place
        auto narrow = [](uint64_t d) -> float {
            if (d == kNan1) return vt::bitsF(0x7FC00001u);
            if (d == kNan2) return vt::bitsF(0x7FC00002u);
            return static_cast<float>(vt::bitsD(d));
        };
        const float hf[2] = {narrow(c.a), narrow(c.b)}, xf = narrow(c.c);
        float yf = 0;
        ASSERT_EQ(vrxsFilterMedian_32f(&xf, &yf, 1, 3, hf, nullptr, b32.data()), vrxOk);
        EXPECT_EQ(vt::fBits(yf), vt::fBits(narrow(c.want)));
    }
}

// SciPy medfilt with zero padding: out[n + h] = medfilt[n].
TEST(Median, ScipyGoldens) {
    const int N = kMedGoldenLen;
    for (int k = 0; k < static_cast<int>(sizeof kMedGoldenMasks / sizeof kMedGoldenMasks[0]); ++k) {
        const int m = kMedGoldenMasks[k], h = (m - 1) / 2;
        SCOPED_TRACE(m);
        std::vector<Vrx8u> b64(bufSize(m, vrx64f)), b32(bufSize(m, vrx32f)), b16(bufSize(m, vrx16s));
        std::vector<double> y(N);
        std::vector<float> xf(kMedGoldenX, kMedGoldenX + N), yf(N);
        std::vector<Vrx16s> x16(kMedGoldenX16s, kMedGoldenX16s + N), y16(N);
        ASSERT_EQ(vrxsFilterMedian_64f(kMedGoldenX, y.data(), N, m, nullptr, nullptr, b64.data()), vrxOk);
        ASSERT_EQ(vrxsFilterMedian_32f(xf.data(), yf.data(), N, m, nullptr, nullptr, b32.data()), vrxOk);
        ASSERT_EQ(vrxsFilterMedian_16s(x16.data(), y16.data(), N, m, nullptr, nullptr, b16.data()), vrxOk);
        for (int n = 0; n + h < N; ++n) {
            ASSERT_EQ(y[n + h], kMedGoldenY[k][n]) << n;
            ASSERT_EQ(yf[n + h], static_cast<float>(kMedGoldenY[k][n])) << n;
            ASSERT_EQ(y16[n + h], kMedGoldenY16s[k][n]) << n;
        }
    }
}

// ------------------------------------------------------------ statuses
TEST(Median, BufferSizeStatuses) {
    struct Case { int mask; VrxDataType type; bool nullSize; VrxStatus want; };
    const Case cases[] = {
        {3, vrx32f, true, vrxErrNullPtr},     {0, 0, true, vrxErrNullPtr},
        {0, vrx32f, false, vrxErrMaskSize},   {-1, vrx8u, false, vrxErrMaskSize},
        {0, 0, false, vrxErrMaskSize},        {(1 << 26) + 1, vrx64f, false, vrxErrMaskSize},
        {3, 0, false, vrxErrDataType},        {3, 9, false, vrxErrDataType},
        {3, 11, false, vrxErrDataType},       {3, vrx32fc, false, vrxErrDataType},
        {4, vrx64fc, false, vrxErrDataType},  {3, -1, false, vrxErrDataType},
        {3, vrx8u, false, vrxOk},             {3, vrx16u, false, vrxOk},
        {3, vrx16s, false, vrxOk},            {1, vrx32f, false, vrxOk},
        {2, vrx64f, false, vrxWarnEvenMedianMask}, {1 << 26, vrx64f, false, vrxWarnEvenMedianMask},
    };
    for (const Case& c : cases) {
        int size = -12345;
        EXPECT_EQ(vrxsFilterMedianGetBufferSize(c.mask, c.type, c.nullSize ? nullptr : &size), c.want)
            << c.mask << " " << c.type;
        if (c.want < 0) EXPECT_EQ(size, -12345) << "size written on failure";
        else EXPECT_GT(size, 0);
    }
}

// The length before the mask; nothing written on failure.
TEST(Median, MaskAfterLengthNothingWritten) {
    struct Case { int len, mask; VrxStatus want; };
    const Case cases[] = {{0, 0, vrxErrBadLength}, {-5, 3, vrxErrBadLength}, {4, 0, vrxErrMaskSize},
                          {4, -7, vrxErrMaskSize}, {4, (1 << 26) + 1, vrxErrMaskSize}};
    std::vector<Vrx8u> work(bufSize(3, vrx16s));
    const Vrx16s src[4] = {1, 2, 3, 4}, hist[2] = {5, 6};
    for (const Case& c : cases) {
        for (bool inPlace : {false, true}) {
            SCOPED_TRACE(::testing::Message() << "len " << c.len << " mask " << c.mask << " in place " << inPlace);
            Vrx16s dst[4] = {-9, -9, -9, -9}, line[2] = {-9, -9};
            std::vector<Vrx8u> buf(work.size(), 0xEE);
            if (inPlace) memcpy(dst, src, sizeof dst);
            EXPECT_EQ(inPlace ? vrxsFilterMedian_16s_I(dst, c.len, c.mask, hist, line, buf.data())
                              : vrxsFilterMedian_16s(src, dst, c.len, c.mask, hist, line, buf.data()), c.want);
            for (int i = 0; i < 4; ++i) EXPECT_EQ(dst[i], inPlace ? src[i] : -9);
            EXPECT_TRUE(line[0] == -9 && line[1] == -9);
            EXPECT_TRUE(std::all_of(buf.begin(), buf.end(), [](Vrx8u v) { return v == 0xEE; }));
        }
    }
}

}  // namespace
