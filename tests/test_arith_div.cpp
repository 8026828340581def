// Division: exact integer quotients against a rational reference made here
// (rounded by the mode, saturated), the values and warning at a zero
// divisor, the scale-factor windows, and the float forms with their
// zero-divisor patterns.
#include "vrx_test.h"

#include <cmath>
#include <algorithm>
#include <cstring>
#include <limits>

namespace {

using vt::i128;
using vt::Rng;
using vt::sameBits;
using vt::vec;

// round(num / den) in mode 0 (toward zero), 1 (nearest even), 2 (half away).
i128 refDiv(i128 num, i128 den, int mode) {
    if (den < 0) { num = -num; den = -den; }
    i128 q = num / den, r = num % den;
    if (r == 0 || mode == 0) return q;
    i128 ar = r < 0 ? -r : r;
    bool up = 2 * ar > den || (2 * ar == den && (mode == 2 || (q & 1)));
    return up ? q + (num < 0 ? -1 : 1) : q;
}

template <class T> T sat(i128 v) { return vt::saturate<T>(v); }

template <class T> T boundOf(i128 v) { return v > 0 ? std::numeric_limits<T>::max() : (v < 0 ? std::numeric_limits<T>::min() : 0); }

// b * 2^-sf / a with the zero divisor's bound; |sf| small enough for 128 bits
template <class T> T refScaled(i128 b, i128 a, int sf, int mode) {
    if (a == 0) return boundOf<T>(b);
    if (sf >= 0) return sat<T>(refDiv(b, a << sf, mode));
    return sat<T>(refDiv(b << -sf, a, mode));
}

template <class T> std::vector<T> values(Rng& r, size_t n) {
    std::vector<T> v(n);
    const T ex[] = {std::numeric_limits<T>::min(), std::numeric_limits<T>::max(), T(0), T(1), T(-1), T(2), T(3)};
    for (size_t i = 0; i < n; ++i) {
        switch (r.next() % 4) {
            case 0: v[i] = ex[r.next() % 7]; break;
            case 1: v[i] = static_cast<T>(r.next() % 16); break;
            default: v[i] = static_cast<T>(r.next());
        }
    }
    return v;
}

// b * 2^-sf / a for every pair, scale factor and rounding mode against the
// reference; a holds a zero divisor, so every call warns.
// fn(a, b, d, len, sf, mode).
template <class TD, class TA, class TB, class F>
void checkDiv(const char* name, F fn, const std::vector<TA>& a, const std::vector<TB>& b, int sfLo, int sfHi,
              std::initializer_list<int> modes = {1}) {
    std::vector<TD> d(a.size());
    ASSERT_NE(std::find(a.begin(), a.end(), TA(0)), a.end());
    for (int mode : modes)
        for (int sf = sfLo; sf <= sfHi; ++sf) {
            ASSERT_EQ(vrxWarnDivByZero, fn(a.data(), b.data(), d.data(), static_cast<int>(a.size()), sf, mode)) << name;
            for (size_t i = 0; i < a.size(); ++i)
                ASSERT_EQ(refScaled<TD>(b[i], a[i], sf, mode), d[i]) << name << " sf " << sf << " mode " << mode << " " << +b[i] << "/" << +a[i];
        }
}

// src * 2^-sf / v for each constant v and scale factor in [sfLo, sfHi].
template <class T>
void checkDivC(VrxStatus (*fn)(const T*, T, T*, int, int), const std::vector<T>& s, std::vector<int> consts, int sfLo, int sfHi) {
    std::vector<T> d(s.size());
    for (int v : consts)
        for (int sf = sfLo; sf <= sfHi; ++sf) {
            ASSERT_EQ(vrxOk, fn(s.data(), T(v), d.data(), int(s.size()), sf));
            for (size_t i = 0; i < s.size(); ++i) ASSERT_EQ(refScaled<T>(s[i], v, sf, 1), d[i]) << v << " sf " << sf << " " << +s[i];
        }
}

// A scaled division without a mode as fn of checkDiv.
template <class TA, class TB, class TD>
auto noMode(VrxStatus (*f)(const TA*, const TB*, TD*, int, int)) {
    return [f](const TA* a, const TB* b, TD* d, int n, int sf, int) { return f(a, b, d, n, sf); };
}

TEST(ArithDiv, IntegerVectorsExact) {
    Rng r(1);
    checkDiv<Vrx8u>("Div_8u", noMode(vrxsDiv_8u_Sfs), values<Vrx8u>(r, 2000), values<Vrx8u>(r, 2000), -20, 12);
    checkDiv<Vrx16u>("Div_16u", noMode(vrxsDiv_16u_Sfs), values<Vrx16u>(r, 2000), values<Vrx16u>(r, 2000), -35, 20);
    checkDiv<Vrx16s>("Div_16s", noMode(vrxsDiv_16s_Sfs), values<Vrx16s>(r, 2000), values<Vrx16s>(r, 2000), -35, 20);
    checkDiv<Vrx32s>("Div_32s", noMode(vrxsDiv_32s_Sfs), values<Vrx32s>(r, 2000), values<Vrx32s>(r, 2000), -66, 36);
    checkDiv<Vrx16s>("Div_32s16s", noMode(vrxsDiv_32s16s_Sfs), values<Vrx32s>(r, 2000), values<Vrx16s>(r, 2000), -50, 20);
}

TEST(ArithDiv, Exhaustive8u) {
    std::vector<Vrx8u> a(65536), b(65536);
    for (int i = 0; i < 65536; ++i) { a[i] = static_cast<Vrx8u>(i & 255); b[i] = static_cast<Vrx8u>(i >> 8); }
    checkDiv<Vrx8u>("Div_Round_8u", [](const Vrx8u* x, const Vrx8u* y, Vrx8u* o, int n, int sf, int mode) {
        return vrxsDiv_Round_8u_Sfs(x, y, o, n, mode, sf); }, a, b, -20, 20, {0, 1, 2});
    std::vector<int> all(255);
    for (int v = 1; v < 256; ++v) all[v - 1] = v;
    checkDivC(vrxsDivC_8u_Sfs, std::vector<Vrx8u>(a.begin(), a.begin() + 256), all, -20, 20);
}

TEST(ArithDiv, RoundingModes16) {
    Rng r(9);
    checkDiv<Vrx16s>("Div_Round_16s", [](const Vrx16s* x, const Vrx16s* y, Vrx16s* o, int n, int sf, int mode) {
        return vrxsDiv_Round_16s_Sfs(x, y, o, n, mode, sf); }, values<Vrx16s>(r, 1500), values<Vrx16s>(r, 1500), -33, 20, {0, 1, 2});
    checkDiv<Vrx16u>("Div_Round_16u", [](const Vrx16u* x, const Vrx16u* y, Vrx16u* o, int n, int sf, int mode) {
        return vrxsDiv_Round_16u_Sfs(x, y, o, n, mode, sf); }, values<Vrx16u>(r, 1500), values<Vrx16u>(r, 1500), -33, 20, {0, 1, 2});
    // any other rounding is refused
    Vrx16s one = 1, o;
    EXPECT_EQ(vrxErrRounding, vrxsDiv_Round_8u_Sfs(reinterpret_cast<Vrx8u*>(&one), reinterpret_cast<Vrx8u*>(&one), reinterpret_cast<Vrx8u*>(&o), 1, 3, 0));
    EXPECT_EQ(vrxErrRounding, vrxsDiv_Round_16s_ISfs(&one, &o, 1, -1, 0));
}

// A zero divisor still gives its bound at a huge scale factor, where the
// rest is zero; the in-place form.
TEST(ArithDiv, HugeScaleAndInPlace) {
    Vrx16s a[4] = {0, 2, 0, 0}, b[4] = {5, 7, -5, 0}, d[4] = {99, 99, 99, 99};
    ASSERT_EQ(vrxWarnDivByZero, vrxsDiv_16s_Sfs(a, b, d, 4, 100));
    EXPECT_EQ(vec(d, 4), (std::vector<Vrx16s>{32767, 0, -32768, 0}));
    Vrx16s nz[2] = {3, -7}, y[2] = {10, 10};
    ASSERT_EQ(vrxOk, vrxsDiv_16s_ISfs(nz, y, 2, -1));
    EXPECT_EQ(vec(y, 2), (std::vector<Vrx16s>{7, -3}));  // 20/3, -20/7 = -2.86
}

TEST(ArithDiv, ConstantDivisors) {
    Rng r(12);
    const int n = 1000;
    auto s = values<Vrx16s>(r, n);
    auto su = values<Vrx16u>(r, n);
    checkDivC(vrxsDivC_16s_Sfs, s, {1, -1, 3, -32768, 32767, -10}, -35, 20);
    checkDivC(vrxsDivC_16u_Sfs, su, {1, 3, 65535, 1000}, -35, 20);
    // a zero constant: -10 after the pointers, nothing written
    Vrx16s keep[2] = {4, 4};
    EXPECT_EQ(vrxErrNullPtr, vrxsDivC_16s_Sfs(nullptr, 0, keep, 2, 0));
    EXPECT_EQ(vrxErrDivByZero, vrxsDivC_16s_Sfs(keep, 0, keep, 2, 0));
    EXPECT_EQ(vrxErrDivByZero, vrxsDivC_8u_ISfs(0, reinterpret_cast<Vrx8u*>(keep), 2, 0));
    EXPECT_EQ(4, keep[0]);
    // 16u tests the scale factor, then the constant, before the pointers
    EXPECT_EQ(vrxErrDivByZero, vrxsDivC_16u_Sfs(nullptr, 0, reinterpret_cast<Vrx16u*>(keep), 2, 0));
    EXPECT_EQ(vrxOk, vrxsDivC_16u_Sfs(nullptr, 0, reinterpret_cast<Vrx16u*>(keep), 2, 17));
    EXPECT_EQ(0, keep[0]);
    EXPECT_EQ(vrxErrNullPtr, vrxsDivC_16u_Sfs(nullptr, 0, nullptr, 2, 17));
    // 64s by a constant, exact
    auto s64 = values<Vrx64s>(r, 300);
    for (Vrx64s v : {Vrx64s(1), Vrx64s(-3), Vrx64s(INT64_MIN), Vrx64s(INT64_MAX), Vrx64s(1000000007)})
        for (int sf = -70; sf <= 66; ++sf) {
            std::vector<Vrx64s> t = s64;
            ASSERT_EQ(vrxOk, vrxsDivC_64s_ISfs(v, t.data(), 300, sf));
            for (int i = 0; i < 300; ++i) {
                const i128 x = s64[i];
                const int k = -sf;
                i128 want;
                if (sf >= 64) want = 0;  // at most one half, and that ties to 0
                else if (sf >= 0) want = refDiv(x, i128(v) << sf, 1);
                else if (k <= 62) want = refDiv(x << k, v, 1);
                else if (v > -(i128(1) << 40) && v < (i128(1) << 40))
                    want = (x > -(i128(1) << 40) && x < (i128(1) << 40)) ? refDiv(x << k, v, 1) : ((x < 0) != (v < 0) ? -(i128(1) << 100) : (i128(1) << 100));
                else continue;
                ASSERT_EQ(sat<Vrx64s>(want), t[i]) << v << " sf " << sf << " " << s64[i];
            }
        }
    Vrx64s z = 5;
    EXPECT_EQ(vrxErrDivByZero, vrxsDivC_64s_ISfs(0, &z, 1, 0));
    EXPECT_EQ(5, z);
}

TEST(ArithDiv, ComplexIntegers) {
    Rng r(13);
    const int n = 500;
    auto a = values<Vrx16s>(r, 2 * n), b = values<Vrx16s>(r, 2 * n);
    a[0] = a[1] = 0;  // one zero divisor
    std::vector<Vrx16s> d(2 * n);
    auto* A = reinterpret_cast<const Vrx16sc*>(a.data());
    auto* B = reinterpret_cast<const Vrx16sc*>(b.data());
    auto* D = reinterpret_cast<Vrx16sc*>(d.data());
    for (int sf = -36; sf <= 36; ++sf) {
        ASSERT_EQ(vrxWarnDivByZero, vrxsDiv_16sc_Sfs(A, B, D, n, sf));
        for (int j = 0; j < n; ++j) {
            i128 c = a[2 * j], e = a[2 * j + 1], p = b[2 * j], q = b[2 * j + 1];
            i128 den = c * c + e * e, re = p * c + q * e, im = q * c - p * e;
            Vrx16s wr, wi;
            if (den == 0 || sf > 32) wr = wi = 0;
            else if (sf < -32) { wr = boundOf<Vrx16s>(re); wi = boundOf<Vrx16s>(im); }
            else { wr = refScaled<Vrx16s>(re, den, sf, 1); wi = refScaled<Vrx16s>(im, den, sf, 1); }
            ASSERT_EQ(wr, D[j].re) << sf << " j " << j;
            ASSERT_EQ(wi, D[j].im) << sf << " j " << j;
        }
    }
    Vrx16sc v{3, -4};
    ASSERT_EQ(vrxOk, vrxsDivC_16sc_Sfs(B, v, D, n, -2));
    for (int j = 0; j < n; ++j) {
        i128 p = b[2 * j], q = b[2 * j + 1];
        ASSERT_EQ(refScaled<Vrx16s>(p * 3 + q * -4, 25, -2, 1), D[j].re);
        ASSERT_EQ(refScaled<Vrx16s>(q * 3 - p * -4, 25, -2, 1), D[j].im);
    }
    EXPECT_EQ(vrxErrDivByZero, vrxsDivC_16sc_ISfs(Vrx16sc{0, 0}, D, n, 0));
}

// v / src rounded to even, a zero element giving v's bound with the warning.
TEST(ArithDiv, DivCRev16u) {
    Rng r(5);
    auto s = values<Vrx16u>(r, 600);
    for (int v : {0, 1, 9, 10, 65535}) {
        std::vector<Vrx16u> d(s.size()), io(s);
        ASSERT_EQ(vrxWarnDivByZero, vrxsDivCRev_16u(s.data(), Vrx16u(v), d.data(), int(s.size())));
        for (size_t i = 0; i < s.size(); ++i) ASSERT_EQ(refScaled<Vrx16u>(v, s[i], 0, 1), d[i]) << v << " / " << s[i];
        ASSERT_EQ(vrxWarnDivByZero, vrxsDivCRev_16u_I(Vrx16u(v), io.data(), int(s.size())));
        EXPECT_EQ(d, io);
    }
}

template <class T> T zeroDivRef(T b) {
    using U = std::conditional_t<sizeof(T) == 4, uint32_t, uint64_t>;
    if (std::isnan(b) || b == 0) {
        U bits = sizeof(T) == 4 ? U(0x7FBFFFFFu) : U(0x7FF7FFFFFFFFFFFFull);
        T v;
        memcpy(&v, &bits, sizeof v);
        return v;
    }
    return b > 0 ? T(INFINITY) : T(-INFINITY);
}

// b / a per element; a zero divisor gives zeroDivRef of each part of b. The
// complex quotient is (b * conj a) / |a|^2, each step rounded.
template <class E> E divRef(E a, E b) {
    if constexpr (!vt::Elem<E>::cplx) {
        return a == 0 ? zeroDivRef(b) : b / a;
    } else {
        using T = typename vt::Elem<E>::S;
        if (a.re == 0 && a.im == 0) return {zeroDivRef(b.re), zeroDivRef(b.im)};
        const T den = a.re * a.re + a.im * a.im;
        return {(b.re * a.re + b.im * a.im) / den, (b.im * a.re - b.re * a.im) / den};
    }
}

// Every length to 70 with a zero divisor at every third: one warning for the
// call, every element written, no division by zero run, the caller's word kept.
template <class E>
void checkFloatDiv(VrxStatus (*fn)(const E*, const E*, E*, int)) {
    Rng r(17);
    vt::MxcsrScope scope;
    for (int len = 1; len <= 70; ++len) {
        auto a = vt::randElems<E>(r, len), b = vt::randElems<E>(r, len);
        std::vector<E> d(len);
        if (len % 3 == 0) a[len / 2] = E{};
        if (len % 6 == 0) b[len / 2] = E{};
        const unsigned before = _mm_getcsr() & ~0x3Fu;
        VrxStatus st = fn(a.data(), b.data(), d.data(), len);
        EXPECT_EQ(before, _mm_getcsr() & ~0x3Fu);
        EXPECT_EQ(0u, _mm_getcsr() & 0x4u);  // no division by zero ran
        ASSERT_EQ(len % 3 == 0 ? vrxWarnDivByZero : vrxOk, st) << len;
        for (int i = 0; i < len; ++i) ASSERT_TRUE(sameBits(divRef(a[i], b[i]), d[i])) << len << " " << i;
    }
}

TEST(ArithDiv, FloatVectors) {
    checkFloatDiv(vrxsDiv_32f);
    checkFloatDiv(vrxsDiv_64f);
    checkFloatDiv(vrxsDiv_32fc);
    checkFloatDiv(vrxsDiv_64fc);
    float z = 0.0f, nan = std::nanf("");
    ASSERT_EQ(vrxWarnDivByZero, vrxsDiv_32f_I(&z, &nan, 1));
    EXPECT_TRUE(sameBits(zeroDivRef(0.0f), nan));
    Vrx32fc x[2] = {{1, 2}, {3, -4}}, o[2];
    ASSERT_EQ(vrxErrDivByZero, vrxsDivC_32fc(x, Vrx32fc{0, 0}, o, 2));
    ASSERT_EQ(vrxOk, vrxsDivC_32fc(x, Vrx32fc{0, 2}, o, 2));
    EXPECT_EQ(1.0f, o[0].re);
    EXPECT_EQ(-0.5f, o[0].im);
}

TEST(ArithDiv, FloatConstants) {
    float s[3] = {3.0f, -6.0f, 1.0f}, d[3] = {7, 7, 7};
    EXPECT_EQ(vrxErrDivByZero, vrxsDivC_32f(s, 0.0f, d, 3));
    EXPECT_EQ(7.0f, d[0]);
    EXPECT_EQ(vrxErrNullPtr, vrxsDivC_32f(s, 0.0f, nullptr, 3));
    ASSERT_EQ(vrxOk, vrxsDivC_32f(s, 3.0f, d, 3));
    const float r3 = 1.0f / 3.0f;
    EXPECT_EQ(3.0f * r3, d[0]);  // a product with the rounded reciprocal
    EXPECT_EQ(-6.0f * r3, d[1]);
    ASSERT_EQ(vrxOk, vrxsDivCRev_32f(s, 0.0f, d, 3));
    EXPECT_EQ(0.0f, d[0]);
    float z[3] = {2.0f, 0.0f, -4.0f};
    ASSERT_EQ(vrxWarnDivByZero, vrxsDivCRev_32f(z, 1.0f, d, 3));
    EXPECT_EQ(0.5f, d[0]);
    EXPECT_EQ(INFINITY, d[1]);
    EXPECT_EQ(-0.25f, d[2]);
    ASSERT_EQ(vrxWarnDivByZero, vrxsDivCRev_32f_I(-1.0f, z, 3));
    EXPECT_EQ(-INFINITY, z[1]);
}

}  // namespace
