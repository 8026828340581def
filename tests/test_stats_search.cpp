// Orders, counts and searches: MaxOrder with its warning and MXCSR flag
// handling, CountInRange's exclusive bounds, the three zero-crossing
// measures of both types, the nearest-entry search against brute force, and
// the running window sum against its single-precision recurrence.
#include <float.h>
#include <math.h>

#include <algorithm>
#include <limits>

#include "vrx_test.h"

namespace {

constexpr unsigned kInvalid = 0x0001;

// ---------------------------------------------------------------- MaxOrder
TEST(MaxOrder, IntegerForms) {
    struct { std::vector<Vrx16s> x; int order; } t16[] = {
        {{-32768}, 16}, {{1}, 1}, {{0, 0, 0}, 0}, {{3, -4, 2}, 3}, {{32767}, 15}, {{-1}, 1},
    };
    for (auto& c : t16) {
        int o = -99;
        ASSERT_EQ(vrxsMaxOrder_16s(c.x.data(), static_cast<int>(c.x.size()), &o), vrxOk);
        EXPECT_EQ(o, c.order);
    }
    struct { std::vector<Vrx32s> x; int order; } t32[] = {
        {{INT32_MIN}, 32}, {{INT32_MAX}, 31}, {{0}, 0}, {{-65536, 5}, 17},
    };
    for (auto& c : t32) {
        int o = -99;
        ASSERT_EQ(vrxsMaxOrder_32s(c.x.data(), static_cast<int>(c.x.size()), &o), vrxOk);
        EXPECT_EQ(o, c.order);
    }
    // long vectors, the peak in any lane and the tail
    vt::Rng rng(3);
    for (int len = 1; len <= 100; ++len) {
        std::vector<Vrx16s> x(len, 0);
        const int k = static_cast<int>(rng.range(0, len - 1)), b = static_cast<int>(rng.range(0, 14));
        x[k] = static_cast<Vrx16s>(-(1 << b));
        int o;
        ASSERT_EQ(vrxsMaxOrder_16s(x.data(), len, &o), vrxOk);
        ASSERT_EQ(o, b + 1) << len;
    }
}

// Float forms: the order, the status, and the invalid flag after the call
// for a caller state of clear or set.
TEST(MaxOrder, FloatFormsWarningAndFlags) {
    const float inf = INFINITY, nan = NAN, sub = 1e-40f;
    struct { std::vector<float> x; int order; VrxStatus st; } t[] = {
        {{0.25f}, -1, vrxOk}, {{1.0f}, 1, vrxOk}, {{0.5f}, 0, vrxOk}, {{-2.0f}, 2, vrxOk}, {{0.0f, -0.0f}, 0, vrxOk},
        {{sub}, -126, vrxOk}, {{nan, 1.0f}, 1, vrxWarnNanArg}, {{3.0f, inf, -inf}, 2, vrxWarnNanArg},
        {{nan, inf}, 0, vrxWarnNanArg},
        {{1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, nan, 1, 0.5f}, 1, vrxWarnNanArg},
    };
    for (bool callerFlag : {false, true}) {
        for (auto& c : t) {
            vt::MxcsrScope scope;
            const unsigned before = (_mm_getcsr() & ~0x3Fu) | (callerFlag ? kInvalid : 0u) | vt::kRoundUp;
            _mm_setcsr(before);
            int o = -99;
            ASSERT_EQ(vrxsMaxOrder_32f(c.x.data(), static_cast<int>(c.x.size()), &o), c.st) << c.x[0];
            const unsigned after = _mm_getcsr();
            EXPECT_EQ(o, c.order) << c.x[0];
            // control bits untouched; the invalid flag cleared whenever pass 1
            // saw it set, left clear otherwise
            EXPECT_EQ(after & ~0x3Fu, before & ~0x3Fu);
            EXPECT_EQ(after & kInvalid, 0u) << c.x[0] << " caller flag " << callerFlag;
        }
    }
    struct { std::vector<double> x; int order; VrxStatus st; } d[] = {
        {{0.25}, -1, vrxOk}, {{1.5}, 1, vrxOk}, {{1e-310}, -1022, vrxOk}, {{NAN, 8.0}, 4, vrxWarnNanArg},
        {{INFINITY}, 0, vrxWarnNanArg}, {{0.0}, 0, vrxOk},
    };
    for (auto& c : d) {
        vt::MxcsrScope scope;
        int o = -99;
        ASSERT_EQ(vrxsMaxOrder_64f(c.x.data(), static_cast<int>(c.x.size()), &o), c.st);
        EXPECT_EQ(o, c.order);
        EXPECT_EQ(_mm_getcsr() & kInvalid, 0u);
    }
    // an overflow flag raised by the caller is not the function's business
    vt::MxcsrScope scope;
    _mm_setcsr(_mm_getcsr() | 0x8);
    const float one = 1.0f;
    int o;
    ASSERT_EQ(vrxsMaxOrder_32f(&one, 1, &o), vrxOk);
    EXPECT_EQ(_mm_getcsr() & 0x8, 0x8u);
}

// ------------------------------------------------------------ CountInRange
TEST(CountInRange, ExclusiveBounds) {
    const Vrx32s x[] = {1, 2, 3};
    int n = -1;
    ASSERT_EQ(vrxsCountInRange_32s(x, 3, &n, 1, 3), vrxOk);
    EXPECT_EQ(n, 1);
    ASSERT_EQ(vrxsCountInRange_32s(x, 3, &n, 3, 1), vrxOk);
    EXPECT_EQ(n, 0);
    vt::Rng rng(5);
    for (int len = 1; len <= 100; ++len) {
        std::vector<Vrx32s> v(len);
        for (auto& e : v) e = static_cast<Vrx32s>(rng.range(-5, 5));
        if (len > 2) { v[0] = INT32_MIN; v[1] = INT32_MAX; }
        const int lo = static_cast<int>(rng.range(-6, 2)), hi = static_cast<int>(rng.range(-2, 6));
        int want = 0;
        for (Vrx32s e : v) want += lo < e && e < hi;
        ASSERT_EQ(vrxsCountInRange_32s(v.data(), len, &n, lo, hi), vrxOk);
        ASSERT_EQ(n, want) << len;
    }
}

// Bounds at the ends of the 32-bit range, empty and one-wide ranges.
TEST(CountInRange, BoundsAtTheEndsOfTheRange) {
    const Vrx32s vals[] = {INT32_MIN, INT32_MIN + 1, INT32_MIN + 2, -1, 0, 1, INT32_MAX - 2, INT32_MAX - 1, INT32_MAX};
    const Vrx32s bounds[][2] = {{INT32_MIN, INT32_MAX}, {INT32_MAX, INT32_MIN}, {INT32_MIN, INT32_MIN + 2},
                                {INT32_MIN, INT32_MIN + 1}, {INT32_MAX - 2, INT32_MAX}, {INT32_MAX, INT32_MAX},
                                {INT32_MIN, INT32_MIN}, {-1, 1}, {0, 1}, {5, 5}, {-2, 0}};
    for (int len = 1; len <= 70; ++len) {
        std::vector<Vrx32s> v(len);
        for (int i = 0; i < len; ++i) v[i] = vals[(i * 7 + len) % 9];
        for (const auto& b : bounds) {
            int want = 0, n = -1;
            for (Vrx32s e : v) want += b[0] < e && e < b[1];
            ASSERT_EQ(vrxsCountInRange_32s(v.data(), len, &n, b[0], b[1]), vrxOk);
            ASSERT_EQ(n, want) << len << " (" << b[0] << ", " << b[1] << ")";
        }
    }
}

// ------------------------------------------------------------ ZeroCrossing
template <class T> int sgn(T x) { return (x > 0) - (x < 0); }

// The three counts over neighbour pairs, as integers.
template <class T>
void zcRef(const std::vector<T>& x, long& prod, long& bit, long& diff) {
    prod = bit = diff = 0;
    for (size_t i = 0; i + 1 < x.size(); ++i) {
        if constexpr (std::is_same_v<T, float>) {
            prod += x[i] * x[i + 1] < 0.0f;
            bit += std::signbit(x[i]) != std::signbit(x[i + 1]);
        } else {
            prod += static_cast<int32_t>(x[i]) * x[i + 1] < 0;
            bit += (x[i] < 0) != (x[i + 1] < 0);
        }
        diff += std::abs(sgn(x[i + 1]) - sgn(x[i]));
    }
}

TEST(ZeroCrossing, Examples) {
    const float a[] = {-1, 0}, d[] = {1.0f, -0.0f, 1e-30f, -1e-30f};
    float r;
    ASSERT_EQ(vrxsZeroCrossing_32f(a, 2, &r, vrxZcSignDiff), vrxOk); EXPECT_EQ(r, 0.5f);
    // -0 is negative to the sign bit; a product that underflows to -0 is no crossing
    ASSERT_EQ(vrxsZeroCrossing_32f(d, 4, &r, vrxZcSignBit), vrxOk); EXPECT_EQ(r, 3.0f);
    ASSERT_EQ(vrxsZeroCrossing_32f(d, 4, &r, vrxZcProduct), vrxOk); EXPECT_EQ(r, 0.0f);
}

TEST(ZeroCrossing, AgainstReference) {
    vt::Rng rng(23);
    for (int len = 1; len <= 120; ++len) {
        std::vector<float> f(len);
        std::vector<Vrx16s> s(len);
        for (int i = 0; i < len; ++i) {
            const int v = static_cast<int>(rng.range(-2, 2));
            s[i] = static_cast<Vrx16s>(v == 2 ? 32767 : v == -2 ? -32768 : v);
            f[i] = v == 2 ? -0.0f : static_cast<float>(v);
        }
        long p, b, d;
        float r;
        zcRef(f, p, b, d);
        ASSERT_EQ(vrxsZeroCrossing_32f(f.data(), len, &r, 0), vrxOk); ASSERT_EQ(r, static_cast<float>(p)) << len;
        ASSERT_EQ(vrxsZeroCrossing_32f(f.data(), len, &r, 1), vrxOk); ASSERT_EQ(r, static_cast<float>(b)) << len;
        ASSERT_EQ(vrxsZeroCrossing_32f(f.data(), len, &r, 2), vrxOk); ASSERT_EQ(r, 0.5f * static_cast<float>(d)) << len;
        zcRef(s, p, b, d);
        ASSERT_EQ(vrxsZeroCrossing_16s32f(s.data(), len, &r, 0), vrxOk); ASSERT_EQ(r, static_cast<float>(p)) << len;
        ASSERT_EQ(vrxsZeroCrossing_16s32f(s.data(), len, &r, 1), vrxOk); ASSERT_EQ(r, static_cast<float>(b)) << len;
        ASSERT_EQ(vrxsZeroCrossing_16s32f(s.data(), len, &r, 2), vrxOk); ASSERT_EQ(r, static_cast<float>(d / 2)) << len;
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

// The selector is tested after the pointers and the length.
TEST(ZeroCrossing, SelectorAfterLength) {
    const float x[] = {1, -1};
    const Vrx16s y[] = {1, -1};
    float r = 42.0f;
    EXPECT_EQ(vrxsZeroCrossing_32f(x, 0, &r, 9), vrxErrBadLength);
    EXPECT_EQ(vrxsZeroCrossing_32f(x, 2, &r, 3), vrxErrRange);
    EXPECT_EQ(vrxsZeroCrossing_32f(x, 2, &r, -1), vrxErrRange);
    EXPECT_EQ(vrxsZeroCrossing_16s32f(y, 2, &r, 3), vrxErrRange);
    EXPECT_EQ(vrxsZeroCrossing_16s32f(nullptr, 2, &r, 3), vrxErrNullPtr);
    EXPECT_EQ(r, 42.0f);
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
long sumWindowExactInt(const std::vector<T>& x, int i, int w) {
    long s = 0;
    for (int j = 0; j < w; ++j) s += x[i + j];
    return s;
}

TEST(SumWindow, AgainstRecurrence) {
    vt::Rng rng(31);
    for (int w : {1, 2, 7, 16, 100, 512, 513, 4000}) {
        for (int len : {1, 2, 15, 16, 17, 33, 250}) {
            std::vector<Vrx8u> a(len + w);
            std::vector<Vrx16s> b(len + w);
            for (auto& e : a) e = static_cast<Vrx8u>(rng.next());
            for (auto& e : b) e = static_cast<Vrx16s>(rng.next());
            vt::Buffer d(len * sizeof(float), 4);
            ASSERT_EQ(vrxsSumWindow_8u32f(a.data(), d.as<float>(), len, w), vrxOk);
            auto ra = sumWindowRef(a, len, w);
            ASSERT_EQ(memcmp(d.data(), ra.data(), len * sizeof(float)), 0) << "8u w " << w << " len " << len;
            ASSERT_EQ(vrxsSumWindow_16s32f(b.data(), d.as<float>(), len, w), vrxOk);
            auto rb = sumWindowRef(b, len, w);
            ASSERT_EQ(memcmp(d.data(), rb.data(), len * sizeof(float)), 0) << "16s w " << w << " len " << len;
            ASSERT_TRUE(d.guardsIntact());
        }
    }
    // sums beyond 2^24 round, and the rounding carries on
    std::vector<Vrx16s> big(3000 + 1000, 32767);
    for (size_t i = 0; i < big.size(); i += 7) big[i] = -32768;
    std::vector<float> d(3000);
    ASSERT_EQ(vrxsSumWindow_16s32f(big.data(), d.data(), 3000, 1000), vrxOk);
    auto r = sumWindowRef(big, 3000, 1000);
    EXPECT_NE(d[2999], static_cast<float>(sumWindowExactInt(big, 2999, 1000)));
    EXPECT_EQ(memcmp(d.data(), r.data(), d.size() * sizeof(float)), 0);
    // the same bits under the caller's round-toward-zero, which is restored
    vt::MxcsrScope scope;
    _mm_setcsr((_mm_getcsr() & ~0x6000u) | vt::kRoundZero);
    std::vector<float> z(3000);
    ASSERT_EQ(vrxsSumWindow_16s32f(big.data(), z.data(), 3000, 1000), vrxOk);
    EXPECT_EQ(_mm_getcsr() & 0x6000u, vt::kRoundZero);
    EXPECT_EQ(memcmp(z.data(), r.data(), z.size() * sizeof(float)), 0);
}

// A window below one is its own status, tested after the length.
TEST(SumWindow, WindowAfterLength) {
    const Vrx16s x[] = {5, -3, 7};
    float e[1] = {9};
    EXPECT_EQ(vrxsSumWindow_16s32f(x, e, 1, 0), vrxErrMaskSize);
    EXPECT_EQ(vrxsSumWindow_8u32f(reinterpret_cast<const Vrx8u*>(x), e, 0, 0), vrxErrBadLength);
    EXPECT_EQ(e[0], 9.0f);
}

}  // namespace
