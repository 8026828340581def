// Orders, counts and searches: MaxOrder with its warning and MXCSR flag
// handling, CountInRange's exclusive bounds, the three zero-crossing
// measures of both types, the nearest-entry search against brute force, and
// the running window sum against its single-precision recurrence.
#include <float.h>
#include <math.h>

#include <algorithm>
#include <array>
#include <limits>

#include "vrx_test.h"

namespace {

constexpr unsigned kInvalid = 0x0001;

// ---------------------------------------------------------------- MaxOrder
TEST(MaxOrder, IntegerForms) {
    struct Row { std::vector<int32_t> x; int order; bool wide; };
    const Row rows[] = {
        {{-32768}, 16, false}, {{1}, 1, false}, {{0, 0, 0}, 0, false}, {{3, -4, 2}, 3, false}, {{32767}, 15, false},
        {{-1}, 1, false},      {{INT32_MIN}, 32, true}, {{INT32_MAX}, 31, true}, {{0}, 0, true}, {{-65536, 5}, 17, true},
    };
    for (const Row& r : rows) {
        const std::vector<Vrx16s> x16(r.x.begin(), r.x.end());
        const int n = static_cast<int>(r.x.size());
        int o = -99;
        ASSERT_EQ(r.wide ? vrxsMaxOrder_32s(r.x.data(), n, &o) : vrxsMaxOrder_16s(x16.data(), n, &o), vrxOk);
        EXPECT_EQ(o, r.order) << r.x[0];
    }
    // the peak in any lane and the tail
    vt::Rng rng(3);
    for (int len = 1; len <= 100; ++len) {
        std::vector<Vrx16s> x(len, 0);
        const int b = static_cast<int>(rng.range(0, 14));
        x[rng.range(0, len - 1)] = static_cast<Vrx16s>(-(1 << b));
        int o;
        ASSERT_EQ(vrxsMaxOrder_16s(x.data(), len, &o), vrxOk);
        ASSERT_EQ(o, b + 1) << len;
    }
}

// Float forms: the order, the status, and the invalid flag clear after the
// call whatever the caller left in it; the control bits and a caller's
// overflow flag stay.
template <class T> struct OrderRow { std::vector<T> x; int order; VrxStatus st; };
template <class T>
void floatOrders(VrxStatus (*f)(const T*, int, int*), const std::vector<OrderRow<T>>& rows) {
    for (unsigned callerFlags : {0u, kInvalid, 0x8u})
        for (const auto& c : rows) {
            vt::MxcsrScope scope;
            const unsigned before = (_mm_getcsr() & ~0x3Fu) | callerFlags | vt::kRoundUp;
            _mm_setcsr(before);
            int o = -99;
            ASSERT_EQ(f(c.x.data(), static_cast<int>(c.x.size()), &o), c.st) << c.x[0];
            EXPECT_EQ(o, c.order) << c.x[0];
            const unsigned after = _mm_getcsr();
            EXPECT_EQ(after & ~0x3Fu, before & ~0x3Fu);
            EXPECT_EQ(after & (kInvalid | callerFlags), callerFlags & ~kInvalid) << c.x[0] << " caller flags " << callerFlags;
        }
}

TEST(MaxOrder, FloatFormsWarningAndFlags) {
    const float inf = INFINITY, nan = NAN;
    floatOrders<float>(vrxsMaxOrder_32f, {
        {{0.25f}, -1, vrxOk}, {{1.0f}, 1, vrxOk}, {{0.5f}, 0, vrxOk}, {{-2.0f}, 2, vrxOk}, {{0.0f, -0.0f}, 0, vrxOk},
        {{1e-40f}, -126, vrxOk}, {{nan, 1.0f}, 1, vrxWarnNanArg}, {{3.0f, inf, -inf}, 2, vrxWarnNanArg},
        {{nan, inf}, 0, vrxWarnNanArg},
        {{1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, nan, 1, 0.5f}, 1, vrxWarnNanArg}});
    floatOrders<double>(vrxsMaxOrder_64f, {
        {{0.25}, -1, vrxOk}, {{1.5}, 1, vrxOk}, {{1e-310}, -1022, vrxOk}, {{NAN, 8.0}, 4, vrxWarnNanArg},
        {{INFINITY}, 0, vrxWarnNanArg}, {{0.0}, 0, vrxOk}});
}

// ------------------------------------------------------------ CountInRange
// Both bounds exclusive; bounds at the ends of the 32-bit range, empty,
// reversed and one-wide ranges, at every tail length.
TEST(CountInRange, ExclusiveBounds) {
    const Vrx32s vals[] = {INT32_MIN, INT32_MIN + 1, INT32_MIN + 2, -1, 0, 1, INT32_MAX - 2, INT32_MAX - 1, INT32_MAX};
    const Vrx32s bounds[][2] = {{INT32_MIN, INT32_MAX}, {INT32_MAX, INT32_MIN}, {INT32_MIN, INT32_MIN + 2},
                                {INT32_MIN, INT32_MIN + 1}, {INT32_MAX - 2, INT32_MAX}, {INT32_MAX, INT32_MAX},
                                {INT32_MIN, INT32_MIN}, {-1, 1}, {0, 1}, {5, 5}, {-2, 0}, {1, 3}, {3, 1}, {-4, 4}};
    vt::Rng rng(5);
    for (int len = 1; len <= 100; ++len) {
        std::vector<Vrx32s> v(len);
        for (int i = 0; i < len; ++i) v[i] = i % 2 ? vals[(i * 7 + len) % 9] : static_cast<Vrx32s>(rng.range(-5, 5));
        for (const auto& b : bounds) {
            int want = 0, n = -1;
            for (Vrx32s e : v) want += b[0] < e && e < b[1];
            ASSERT_EQ(vrxsCountInRange_32s(v.data(), len, &n, b[0], b[1]), vrxOk);
            ASSERT_EQ(n, want) << len << " (" << b[0] << ", " << b[1] << ")";
        }
    }
}

// ------------------------------------------------------------ ZeroCrossing
// The three counts over neighbour pairs, as integers: products below
// zero (in float for floats), sign bits that differ, |sign difference|.
template <class T> std::array<long, 3> zcRef(const std::vector<T>& x) {
    using P = std::conditional_t<std::is_same_v<T, float>, float, int32_t>;
    auto sgn = [](T v) { return (v > 0) - (v < 0); };
    std::array<long, 3> c{};
    for (size_t i = 0; i + 1 < x.size(); ++i) {
        c[0] += static_cast<P>(x[i]) * x[i + 1] < 0;
        c[1] += std::signbit(static_cast<float>(x[i])) != std::signbit(static_cast<float>(x[i + 1]));
        c[2] += std::abs(sgn(x[i + 1]) - sgn(x[i]));
    }
    return c;
}

// -0 is negative to the sign bit; a product that underflows to -0 is no
// crossing; the 16-bit sign difference is halved in integers.
TEST(ZeroCrossing, AgainstReference) {
    const float a[] = {-1, 0}, d[] = {1.0f, -0.0f, 1e-30f, -1e-30f};
    float r;
    ASSERT_EQ(vrxsZeroCrossing_32f(a, 2, &r, vrxZcSignDiff), vrxOk); EXPECT_EQ(r, 0.5f);
    ASSERT_EQ(vrxsZeroCrossing_32f(d, 4, &r, vrxZcSignBit), vrxOk); EXPECT_EQ(r, 3.0f);
    ASSERT_EQ(vrxsZeroCrossing_32f(d, 4, &r, vrxZcProduct), vrxOk); EXPECT_EQ(r, 0.0f);
    vt::Rng rng(23);
    for (int len = 1; len <= 120; ++len) {
        std::vector<float> f(len);
        std::vector<Vrx16s> s(len);
        for (int i = 0; i < len; ++i) {
            const int v = static_cast<int>(rng.range(-2, 2));
            s[i] = static_cast<Vrx16s>(v == 2 ? 32767 : v == -2 ? -32768 : v);
            f[i] = v == 2 ? -0.0f : static_cast<float>(v);
        }
        const auto cf = zcRef(f), cs = zcRef(s);
        for (int m = 0; m < 3; ++m) {
            ASSERT_EQ(vrxsZeroCrossing_32f(f.data(), len, &r, m), vrxOk);
            ASSERT_EQ(r, m == 2 ? 0.5f * static_cast<float>(cf[2]) : static_cast<float>(cf[m])) << len << " measure " << m;
            ASSERT_EQ(vrxsZeroCrossing_16s32f(s.data(), len, &r, m), vrxOk);
            ASSERT_EQ(r, static_cast<float>(m == 2 ? cs[2] / 2 : cs[m])) << len << " measure " << m;
        }
    }
}

// Alternating signs over lengths past the points where packed 16-bit
// counts must be folded: every neighbour pair crosses.
TEST(ZeroCrossing, LongAlternatingCountsEveryPair) {
    std::vector<Vrx16s> s(4194400);
    for (size_t i = 0; i < s.size(); ++i) s[i] = static_cast<Vrx16s>(i & 1 ? 32767 : -32768);
    for (int len : {2097087, 2097088, 2097089, 2097158, 4194303, 4194400}) {
        float r;
        for (int m = 0; m < 3; ++m) {
            ASSERT_EQ(vrxsZeroCrossing_16s32f(s.data(), len, &r, m), vrxOk);
            ASSERT_EQ(r, static_cast<float>(len - 1)) << len << " measure " << m;
        }
    }
}

// ------------------------------------------------------------- FindNearest
TEST(FindNearest, AgainstBruteForce) {
    Vrx16u v; int k;
    vt::Rng rng(29);
    std::vector<int> sizes;
    for (int n = 1; n <= 40; ++n) sizes.push_back(n);
    for (int n : {100, 255, 256, 1000, 65536}) sizes.push_back(n);
    for (int n : sizes) {
        std::vector<Vrx16u> t(n);
        for (auto& e : t) e = static_cast<Vrx16u>(rng.range(0, 65535));
        if (n > 4) t[1] = t[2] = t[0];                       // repeated entries
        std::sort(t.begin(), t.end());
        std::vector<Vrx16u> q(200);
        for (auto& e : q) e = static_cast<Vrx16u>(rng.range(0, 65535));
        for (int j = 0; j < n && j < 50; ++j) { q[2 * j] = t[j]; q[2 * j + 1] = static_cast<Vrx16u>(j + 1 < n ? (t[j] + t[j + 1]) / 2 : 65535); }
        std::vector<Vrx16u> ov(q.size());
        std::vector<int> oi(q.size());
        ASSERT_EQ(vrxsFindNearest_16u(q.data(), ov.data(), oi.data(), static_cast<int>(q.size()), t.data(), n), vrxOk);
        for (size_t i = 0; i < q.size(); ++i) {
            // nearest by distance; ties (equal distance or equal entries) to the lowest index
            int best = 0;
            for (int j = 1; j < n; ++j) if (std::abs(int(t[j]) - int(q[i])) < std::abs(int(t[best]) - int(q[i]))) best = j;
            ASSERT_EQ(ov[i], t[best]) << "n " << n << " q " << q[i];
            ASSERT_EQ(t[oi[i]], t[best]);
            ASSERT_EQ(vrxsFindNearestOne_16u(q[i], &v, &k, t.data(), n), vrxOk);
            ASSERT_EQ(v, ov[i]); ASSERT_EQ(k, oi[i]);
        }
    }
}

// -------------------------------------------------------------- SumWindow
// The recurrence itself: first window summed in single precision, then
// updated by the exact integer difference, never recomputed.
template <class T>
std::vector<float> sumWindowRef(const std::vector<T>& x, int len, int w) {
    std::vector<float> d(len);
    float s = 0.0f;
    for (int j = 0; j < w; ++j) s += static_cast<float>(x[j]);
    for (int i = 0; i < len; ++i) {
        d[i] = s;
        s += static_cast<float>(static_cast<int>(x[i + w]) - static_cast<int>(x[i]));
    }
    return d;
}

template <class T>
void expectSumWindow(VrxStatus (*f)(const T*, Vrx32f*, int, int), const std::vector<T>& x, int len, int w, size_t off,
                     const std::vector<float>& want) {
    vt::Buffer d(len * sizeof(float), off);
    ASSERT_EQ(f(x.data(), d.as<float>(), len, w), vrxOk);
    ASSERT_TRUE(vt::sameBitsAll(vt::vec(d.as<float>(), len), want)) << "w " << w << " len " << len;
    ASSERT_TRUE(d.guardsIntact());
}

TEST(SumWindow, AgainstRecurrence) {
    vt::Rng rng(31);
    for (int w : {1, 2, 7, 16, 100, 512, 513, 4000})
        for (int len : {1, 2, 15, 16, 17, 33, 250}) {
            std::vector<Vrx8u> a(len + w);
            std::vector<Vrx16s> b(len + w);
            rng.fill(a.data(), a.size());
            rng.fill(b.data(), b.size() * 2);
            expectSumWindow(vrxsSumWindow_8u32f, a, len, w, 4, sumWindowRef(a, len, w));
            expectSumWindow(vrxsSumWindow_16s32f, b, len, w, len % 16 * 4, sumWindowRef(b, len, w));
        }
    // sums beyond 2^24 round, and the rounding carries on, the same under
    // the caller's round-toward-zero, which is restored
    std::vector<Vrx16s> big(3000 + 1000, 32767);
    long exact = 0;
    for (size_t i = 0; i < big.size(); i += 7) big[i] = -32768;
    for (int j = 0; j < 1000; ++j) exact += big[2999 + j];
    const std::vector<float> want = sumWindowRef(big, 3000, 1000);
    EXPECT_NE(want[2999], static_cast<float>(exact));
    expectSumWindow(vrxsSumWindow_16s32f, big, 3000, 1000, 0, want);
    vt::MxcsrScope scope;
    _mm_setcsr((_mm_getcsr() & ~0x6000u) | vt::kRoundZero);
    expectSumWindow(vrxsSumWindow_16s32f, big, 3000, 1000, 4, want);
    EXPECT_EQ(_mm_getcsr() & 0x6000u, vt::kRoundZero);
}

// The zero-crossing selector and a window below one are their own statuses,
// tested after the pointers and the length; nothing is written.
TEST(Search, OwnChecksAfterPointersAndLength) {
    const float x[] = {1, -1};
    const Vrx16s y[] = {1, -1, 7};
    float r = 42.0f;
    const VrxStatus got[][2] = {
        {vrxsZeroCrossing_32f(x, 0, &r, 9), vrxErrBadLength},   {vrxsZeroCrossing_32f(x, 2, &r, 3), vrxErrRange},
        {vrxsZeroCrossing_32f(x, 2, &r, -1), vrxErrRange},      {vrxsZeroCrossing_16s32f(y, 2, &r, 3), vrxErrRange},
        {vrxsZeroCrossing_16s32f(nullptr, 2, &r, 3), vrxErrNullPtr}, {vrxsSumWindow_16s32f(y, &r, 1, 0), vrxErrMaskSize},
        {vrxsSumWindow_8u32f(reinterpret_cast<const Vrx8u*>(y), &r, 0, 0), vrxErrBadLength},
    };
    for (const auto& g : got) EXPECT_EQ(g[0], g[1]) << &g - got;
    EXPECT_EQ(r, 42.0f);
}

}  // namespace
