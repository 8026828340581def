// Ramps: the Jaehne chirp against long double, its rounding and lobes, and
// the slope bit for bit (one fused multiply-add, ties to even, saturation).
#include "vrx_test.h"

#include <cmath>
#include <limits>

namespace {

using ld = long double;

// A negative magnitude is its own status, after the pointer and length
// checks; nothing written. Magnitude 0 gives zeros.
TEST(Ramp, JaehneMagnitudeCheck) {
    std::vector<double> d(8, 5.0);
    EXPECT_EQ(vrxsVectorJaehne_64f(d.data(), 8, -1.0), vrxErrJaehneMagn);
    EXPECT_EQ(vrxsVectorJaehne_64f(d.data(), 0, -1.0), vrxErrBadLength);
    EXPECT_EQ(vrxsVectorJaehne_64f(nullptr, 8, -1.0), vrxErrNullPtr);
    for (double v : d) EXPECT_EQ(v, 5.0);
    int16_t s[4] = {1, 2, 3, 4};
    EXPECT_EQ(vrxsVectorJaehne_16s(s, 4, -1), vrxErrJaehneMagn);
    EXPECT_EQ(vrxsVectorJaehne_32s(nullptr, 4, -1), vrxErrNullPtr);
    EXPECT_EQ(s[0], 1);
    EXPECT_EQ(vrxsVectorJaehne_64f(d.data(), 8, 0.0), vrxOk);
    for (double v : d) EXPECT_EQ(v, 0.0);
}

ld jaehneExact(ld magn, int n, int len) {
    const ld pi = 3.141592653589793238462643383279502884L;
    // sin has period 4 len in n^2: reduce exactly before the long double sine
    const uint64_t m = (uint64_t)n * (uint64_t)n % (4ull * (uint64_t)len);
    return magn * std::sin(pi * (ld)m / (2.0L * len));
}

// Floating forms within a bound of the tier; integer forms within one of
// the exactly rounded value, unsigned forms zero on the negative lobes.
TEST(Ramp, JaehneWithinBounds) {
    for (int len : {1, 2, 7, 100, 1000, 100000}) {
        SCOPED_TRACE(len);
        std::vector<double> d(len);
        std::vector<float> f(len);
        std::vector<int32_t> i32(len);
        std::vector<int16_t> i16(len);
        std::vector<uint16_t> u16(len);
        std::vector<uint8_t> u8(len);
        ASSERT_EQ(vrxsVectorJaehne_64f(d.data(), len, 3.0), vrxOk);
        ASSERT_EQ(vrxsVectorJaehne_32f(f.data(), len, 3.0f), vrxOk);
        ASSERT_EQ(vrxsVectorJaehne_32s(i32.data(), len, 2000000000), vrxOk);
        ASSERT_EQ(vrxsVectorJaehne_16s(i16.data(), len, 30000), vrxOk);
        ASSERT_EQ(vrxsVectorJaehne_16u(u16.data(), len, 60000), vrxOk);
        ASSERT_EQ(vrxsVectorJaehne_8u(u8.data(), len, 200), vrxOk);
        for (int n = 0; n < len; ++n) {
            // the argument is formed from n^2 mod 4 len in double (and rounded
            // to single for the single-precision tiers)
            ASSERT_NEAR(d[n], (double)jaehneExact(3, n, len), 1e-14) << n;
            ASSERT_NEAR(f[n], (double)jaehneExact(3, n, len), 3e-6) << n;
            ASSERT_NEAR(i32[n], (double)jaehneExact(2000000000, n, len), 2.0) << n;
            ASSERT_NEAR(i16[n], (double)jaehneExact(30000, n, len), 1.01) << n;
            const ld u = jaehneExact(60000, n, len);
            ASSERT_NEAR(u16[n], u < 0 ? 0.0 : (double)u, 1.01) << n;
            const ld b = jaehneExact(200, n, len);
            ASSERT_NEAR(u8[n], b < 0 ? 0.0 : (double)b, 1.01) << n;
        }
    }
    // saturation: magn 32767 reaches the bound, never wraps
    std::vector<int16_t> s(1000);
    ASSERT_EQ(vrxsVectorJaehne_16s(s.data(), 1000, 32767), vrxOk);
    for (int16_t v : s) EXPECT_GE(v, -32767);
}

template <class T>
T slopeModel(double off, double sl, int n) {
    const double v = std::fma(sl, (double)n, off);
    if constexpr (std::is_floating_point_v<T>) {
        return (T)v;
    } else {
        const double lo = (double)std::numeric_limits<T>::min(), hi = (double)std::numeric_limits<T>::max();
        const double r = std::nearbyint(v);   // the tests run in the default mode
        return r <= lo ? (T)lo : (r >= hi ? (T)hi : (T)(int64_t)r);
    }
}

template <class T>
void checkSlope(VrxStatus (*fn)(T*, int, Vrx64f, Vrx64f)) {
    struct C { double off, sl; } cases[] = {{0.5, 1.0}, {-3.5, 0.25}, {1e10, -3e8}, {0.1, 0.1}, {-1e3, 7.77}, {255.5, 0.0}};
    for (auto c : cases) {
        const int len = 300;
        std::vector<T> d(len);
        ASSERT_EQ(fn(d.data(), len, c.off, c.sl), vrxOk);
        for (int n = 0; n < len; ++n) {
            const T e = slopeModel<T>(c.off, c.sl, n);
            ASSERT_EQ(memcmp(&d[n], &e, sizeof(T)), 0) << n << " " << c.off << " " << c.sl;
        }
    }
}

TEST(Ramp, SlopeBitExact) {
    checkSlope<Vrx8u>(vrxsVectorSlope_8u);
    checkSlope<Vrx16u>(vrxsVectorSlope_16u);
    checkSlope<Vrx16s>(vrxsVectorSlope_16s);
    checkSlope<Vrx32u>(vrxsVectorSlope_32u);
    checkSlope<Vrx32s>(vrxsVectorSlope_32s);
    checkSlope<Vrx32f>(vrxsVectorSlope_32f);
    checkSlope<Vrx64f>(vrxsVectorSlope_64f);
    // ties to even whatever the caller's mode, which survives the call
    vt::MxcsrScope keep;
    _mm_setcsr((_mm_getcsr() & ~0x6000u) | vt::kRoundUp);
    int16_t t[4];
    ASSERT_EQ(vrxsVectorSlope_16s(t, 4, 0.5, 1.0), vrxOk);
    EXPECT_EQ(t[0], 0); EXPECT_EQ(t[1], 2); EXPECT_EQ(t[2], 2); EXPECT_EQ(t[3], 4);
    EXPECT_EQ(_mm_getcsr() & 0x6000u, vt::kRoundUp);
}

}  // namespace
