// One-step Haar transforms: floats bit-exact against the formulas, 16-bit
// against the exact integer rule for every scale factor from -20 to 40.
#include "vrx_test.h"

#include <cmath>

namespace {

VrxStatus fwd(const float* x, int n, float* l, float* h) { return vrxsWTHaarFwd_32f(x, n, l, h); }
VrxStatus fwd(const double* x, int n, double* l, double* h) { return vrxsWTHaarFwd_64f(x, n, l, h); }
VrxStatus inv(const float* l, const float* h, float* x, int n) { return vrxsWTHaarInv_32f(l, h, x, n); }
VrxStatus inv(const double* l, const double* h, double* x, int n) { return vrxsWTHaarInv_64f(l, h, x, n); }

const int kLens[] = {1, 2, 3, 4, 5, 31, 32, 33, 34, 63, 64, 65, 66, 127, 128, 129, 130, 1001, 4096};

// high = (x[2i+1] - x[2i]) * 0.5 and low = high + x[2i] (not the mean: the
// bits differ), inverse low -/+ high; an odd length carries its last sample
// as a low value, and the guards catch a high value written for it.
struct Offsets { size_t x, lo, hi, y; };  // bytes past a 64-byte boundary

template <class T>
void floatsExact(const std::vector<int>& lens, Offsets o = {4, 8, 12, 20}) {
    vt::Rng rng(sizeof(T));
    for (int n : lens) {
        SCOPED_TRACE(n);
        const int nl = (n + 1) / 2, nh = n / 2;
        vt::Buffer xb(n * sizeof(T), o.x), lb(nl * sizeof(T), o.lo), hb(nh * sizeof(T) + (nh == 0), o.hi), yb(n * sizeof(T), o.y);
        T *x = xb.as<T>(), *lo = lb.as<T>(), *hi = hb.as<T>(), *y = yb.as<T>();
        for (int i = 0; i < n; ++i) x[i] = static_cast<T>(rng.uniform() * 2000 - 1000);
        ASSERT_EQ(fwd(x, n, lo, hi), vrxOk);
        ASSERT_EQ(inv(lo, hi, y, n), vrxOk);
        for (int i = 0; i < nh; ++i) {
            const T h = (x[2 * i + 1] - x[2 * i]) * T(0.5);
            ASSERT_TRUE(vt::sameBits(hi[i], h) && vt::sameBits(lo[i], static_cast<T>(h + x[2 * i]))) << i;
            ASSERT_TRUE(vt::sameBits(y[2 * i], static_cast<T>(lo[i] - hi[i])) && vt::sameBits(y[2 * i + 1], static_cast<T>(lo[i] + hi[i]))) << i;
        }
        EXPECT_TRUE(!(n & 1) || (vt::sameBits(lo[nh], x[n - 1]) && vt::sameBits(y[n - 1], lo[nh])));
        EXPECT_TRUE(xb.guardsIntact() && lb.guardsIntact() && hb.guardsIntact() && yb.guardsIntact());
    }
}

TEST(Haar, FloatsExact) {
    const std::vector<int> lens(std::begin(kLens), std::end(kLens));
    floatsExact<float>(lens);
    floatsExact<double>(lens);
}
// Calls moving 32 MiB and more store with non-temporal stores from a
// boundary of the destination on: the same bits, the odd sample included.
TEST(Haar, LargeCallsExact) {
    floatsExact<float>({(1 << 22) + 5}, {4, 8, 12, 48});  // the inverse streams from a pair's boundary
    floatsExact<double>({(1 << 21) + 3}, {4, 8, 12, 48});
    floatsExact<float>({(1 << 22) + 2}, {0, 0, 40, 0});    // hi's results moved up onto its boundaries
}

// The forward brings lo to a 64-byte boundary by a head and moves hi's
// results up onto its own boundaries; the inverse brings its destination to
// one when the boundary falls on a pair: every pair of element offsets, at
// lengths about the shortest that takes these ways.
template <class T>
void floatsAnyOffsets() {
    constexpr int N = 64 / sizeof(T);
    for (size_t lo = 0; lo < 64; lo += sizeof(T))
        for (size_t hi = 0; hi < 64; hi += sizeof(T)) {
            SCOPED_TRACE(testing::Message() << "lo " << lo << " hi " << hi);
            floatsExact<T>({4 * N - 1, 4 * N, 4 * N + 1, 6 * N + 3, 8 * N + 2}, {(lo + hi) % 64, lo, hi, hi});
        }
}
TEST(Haar, FloatsAnyOffsets) {
    floatsAnyOffsets<float>();
    floatsAnyOffsets<double>();
}

// 16s: s and d exact in 32 bits, scaled by sf + 1 forward and sf inverse,
// ties to even, saturated; the shortcuts beyond +16 and -15 follow the rule.
TEST(Haar, Int16AgainstExactRule) {
    vt::Rng rng(16);
    for (int n : kLens) {
        const int nl = (n + 1) / 2, nh = n / 2;
        std::vector<int16_t> x(n), l2(nl), h2(nh + 1);
        for (auto& v : x) {  // extremes and random values mixed
            const int pick = static_cast<int>(rng.range(0, 5));
            v = pick == 0 ? int16_t(32767) : pick == 1 ? int16_t(-32768) : static_cast<int16_t>(rng.next());
        }
        for (auto& v : l2) v = static_cast<int16_t>(rng.next());
        for (auto& v : h2) v = static_cast<int16_t>(rng.next());
        for (int sf = -20; sf <= 40; ++sf) {
            SCOPED_TRACE(testing::Message() << "len " << n << " sf " << sf);
            vt::Buffer lb(nl * 2, 2), hb(nh * 2 + (nh == 0) * 2, 6), yb(n * 2, 10);
            int16_t *lo = lb.as<int16_t>(), *hi = hb.as<int16_t>(), *y = yb.as<int16_t>();
            ASSERT_EQ(vrxsWTHaarFwd_16s_Sfs(x.data(), n, lo, hi, sf), vrxOk);
            ASSERT_EQ(vrxsWTHaarInv_16s_Sfs(l2.data(), h2.data(), y, n, sf), vrxOk);
            for (int i = 0; i < nh; ++i) {
                ASSERT_EQ(lo[i], vt::scaled<int16_t>(vt::i128(x[2 * i]) + x[2 * i + 1], sf + 1)) << i;
                ASSERT_EQ(hi[i], vt::scaled<int16_t>(vt::i128(x[2 * i + 1]) - x[2 * i], sf + 1)) << i;
                ASSERT_EQ(y[2 * i], vt::scaled<int16_t>(vt::i128(l2[i]) - h2[i], sf)) << i;
                ASSERT_EQ(y[2 * i + 1], vt::scaled<int16_t>(vt::i128(l2[i]) + h2[i], sf)) << i;
            }
            if (n & 1) {
                ASSERT_EQ(lo[nh], vt::scaled<int16_t>(2 * vt::i128(x[n - 1]), sf + 1));
                ASSERT_EQ(y[n - 1], vt::scaled<int16_t>(l2[nh], sf));
            }
            ASSERT_TRUE(lb.guardsIntact() && hb.guardsIntact() && yb.guardsIntact());
        }
    }
    // 32767 + 32767 at sf -1 saturates; the extreme factors; the mean's
    // ties; 16 equal pairs and one: the vector and the scalar way
    const struct { int16_t a, b; int sf; int16_t lo, hi; } rows[] = {
        {32767, 32767, -1, 32767, 0},     {-32768, -32768, 15, -1, 0},       // -65536 / 2^16 = -1
        {-32768, -32768, 16, 0, 0},       {-32768, -32768, INT32_MAX, 0, 0},  // -0.5 ties to 0
        {-1, 0, INT32_MIN, -32768, 32767}, {-32768, 32767, -1, -1, 32767},
        {-32768, 32767, 0, 0, 32767},     {3, 4, 0, 4, 0},   {2, 3, 0, 2, 0},  // 32767.5 saturates; 3.5 and 2.5 tie to even
        {4, 3, 0, 4, 0},                  {3, 2, 0, 2, 0}, {-3, -4, 0, -4, 0}, {-4, -3, 0, -4, 0}};
    for (const auto& r : rows) {
        int16_t x[34], l[17], h[17];
        for (int i = 0; i < 34; i += 2) x[i] = r.a, x[i + 1] = r.b;
        ASSERT_EQ(vrxsWTHaarFwd_16s_Sfs(x, 34, l, h, r.sf), vrxOk);
        for (int i = 0; i < 17; ++i) EXPECT_TRUE(l[i] == r.lo && h[i] == r.hi) << r.a << " " << r.b << " sf " << r.sf << " at " << i;
    }
}

}  // namespace
