// Floating-point element-wise arithmetic: bit-exact against scalar
// references computed here, every length 1..70 at unaligned offsets,
// shortcuts and control-register state.
#include "vrx_test.h"

#include <cmath>
#include <cstring>

namespace {

using vt::Buffer;
using vt::Rng;
using vt::sameBits;

template <class T> T randVal(Rng& r) { return static_cast<T>((r.uniform() - 0.5) * 200.0); }

// one scalar op: d = f(a, b) over lanes; complex forms give whole pairs
enum class Op { Add, Sub, Mul, CMul };

template <class T> void refOp(Op op, const T* a, const T* b, T* d, size_t n) {
    for (size_t i = 0; i < n; ++i) {
        switch (op) {
            case Op::Add: d[i] = a[i] + b[i]; break;
            case Op::Sub: d[i] = b[i] - a[i]; break;
            case Op::Mul: d[i] = a[i] * b[i]; break;
            case Op::CMul:
                if (i % 2 == 0) {
                    T ar = a[i], ai = a[i + 1], br = b[i], bi = b[i + 1];
                    T bd = ai * bi, bc = ai * br;
                    d[i] = std::fma(ar, br, -bd);
                    d[i + 1] = std::fma(ar, bi, bc);
                }
                break;
        }
    }
}

template <class T, class F>
void checkBinary(Op op, size_t perElem, F fn) {
    Rng r(42);
    for (int len = 1; len <= 70; ++len) {
        const size_t n = perElem * static_cast<size_t>(len);
        const size_t off = (static_cast<size_t>(len) * sizeof(T)) % 64;
        Buffer a(n * sizeof(T), off), b(n * sizeof(T), (off + sizeof(T)) % 64), d(n * sizeof(T), (off + 3 * sizeof(T)) % 64);
        for (size_t i = 0; i < n; ++i) { a.as<T>()[i] = randVal<T>(r); b.as<T>()[i] = randVal<T>(r); }
        std::vector<T> ref(n);
        refOp(op, a.as<T>(), b.as<T>(), ref.data(), n);
        ASSERT_EQ(vrxOk, fn(a.as<T>(), b.as<T>(), d.as<T>(), len)) << len;
        for (size_t i = 0; i < n; ++i) ASSERT_TRUE(sameBits(ref[i], d.as<T>()[i])) << "len " << len << " i " << i;
        ASSERT_TRUE(d.guardsIntact()) << len;
        // in place: the second source is the destination
        ASSERT_EQ(vrxOk, fn(a.as<T>(), b.as<T>(), b.as<T>(), len));
        for (size_t i = 0; i < n; ++i) ASSERT_TRUE(sameBits(ref[i], b.as<T>()[i])) << "in place len " << len;
    }
}

#define BIN(T, C, name) [](const T* a, const T* b, T* d, int len) { \
    return (b == d) ? name##_I(reinterpret_cast<const C*>(a), reinterpret_cast<C*>(d), len) \
                    : name(reinterpret_cast<const C*>(a), reinterpret_cast<const C*>(b), reinterpret_cast<C*>(d), len); }

TEST(ArithFloat, VectorFormsAllLengths) {
    checkBinary<float>(Op::Add, 1, BIN(float, Vrx32f, vrxsAdd_32f));
    checkBinary<float>(Op::Sub, 1, BIN(float, Vrx32f, vrxsSub_32f));
    checkBinary<float>(Op::Mul, 1, BIN(float, Vrx32f, vrxsMul_32f));
    checkBinary<double>(Op::Add, 1, BIN(double, Vrx64f, vrxsAdd_64f));
    checkBinary<double>(Op::Sub, 1, BIN(double, Vrx64f, vrxsSub_64f));
    checkBinary<double>(Op::Mul, 1, BIN(double, Vrx64f, vrxsMul_64f));
    checkBinary<float>(Op::Add, 2, BIN(float, Vrx32fc, vrxsAdd_32fc));
    checkBinary<float>(Op::Sub, 2, BIN(float, Vrx32fc, vrxsSub_32fc));
    checkBinary<float>(Op::CMul, 2, BIN(float, Vrx32fc, vrxsMul_32fc));
    checkBinary<double>(Op::Add, 2, BIN(double, Vrx64fc, vrxsAdd_64fc));
    checkBinary<double>(Op::Sub, 2, BIN(double, Vrx64fc, vrxsSub_64fc));
    checkBinary<double>(Op::CMul, 2, BIN(double, Vrx64fc, vrxsMul_64fc));
}

// constant forms: the constant stands as the second operand b of refOp,
// except SubCRev which is val - element.
template <class T, class C, class F, class FI>
void checkConst(Op op, bool rev, C val, F fn, FI fnI) {
    Rng r(7);
    constexpr size_t per = sizeof(C) / sizeof(T);
    T cv[2];
    memcpy(cv, &val, sizeof val);
    for (int len = 1; len <= 70; ++len) {
        const size_t n = per * static_cast<size_t>(len);
        Buffer a(n * sizeof(T), 3 * sizeof(T)), d(n * sizeof(T), 5 * sizeof(T));
        std::vector<T> k(n), ref(n);
        for (size_t i = 0; i < n; ++i) { a.as<T>()[i] = randVal<T>(r); k[i] = cv[i % per]; }
        if (op == Op::Sub && !rev) refOp(Op::Sub, k.data(), a.as<T>(), ref.data(), n);
        else if (op == Op::Sub) refOp(Op::Sub, a.as<T>(), k.data(), ref.data(), n);
        else refOp(op, a.as<T>(), k.data(), ref.data(), n);
        ASSERT_EQ(vrxOk, fn(reinterpret_cast<const C*>(a.as<T>()), val, reinterpret_cast<C*>(d.as<T>()), len));
        for (size_t i = 0; i < n; ++i) ASSERT_TRUE(sameBits(ref[i], d.as<T>()[i])) << "len " << len << " i " << i;
        ASSERT_TRUE(d.guardsIntact());
        ASSERT_EQ(vrxOk, fnI(val, reinterpret_cast<C*>(a.as<T>()), len));
        for (size_t i = 0; i < n; ++i) ASSERT_TRUE(sameBits(ref[i], a.as<T>()[i])) << "in place len " << len;
    }
}

TEST(ArithFloat, ConstantFormsAllLengths) {
    checkConst<float>(Op::Add, false, 1.25f, vrxsAddC_32f, vrxsAddC_32f_I);
    checkConst<float>(Op::Sub, false, 3.5f, vrxsSubC_32f, vrxsSubC_32f_I);
    checkConst<float>(Op::Sub, true, -2.75f, vrxsSubCRev_32f, vrxsSubCRev_32f_I);
    checkConst<float>(Op::Mul, false, 0.3f, vrxsMulC_32f, vrxsMulC_32f_I);
    checkConst<double>(Op::Add, false, 1.25, vrxsAddC_64f, vrxsAddC_64f_I);
    checkConst<double>(Op::Sub, false, 3.5, vrxsSubC_64f, vrxsSubC_64f_I);
    checkConst<double>(Op::Sub, true, -2.75, vrxsSubCRev_64f, vrxsSubCRev_64f_I);
    checkConst<double>(Op::Mul, false, 0.3, vrxsMulC_64f, vrxsMulC_64f_I);
    checkConst<float>(Op::Add, false, Vrx32fc{1.5f, -2.0f}, vrxsAddC_32fc, vrxsAddC_32fc_I);
    checkConst<float>(Op::Sub, false, Vrx32fc{1.5f, -2.0f}, vrxsSubC_32fc, vrxsSubC_32fc_I);
    checkConst<float>(Op::Sub, true, Vrx32fc{1.5f, -2.0f}, vrxsSubCRev_32fc, vrxsSubCRev_32fc_I);
    checkConst<float>(Op::CMul, false, Vrx32fc{0.7f, -1.3f}, vrxsMulC_32fc, vrxsMulC_32fc_I);
    checkConst<double>(Op::Add, false, Vrx64fc{1.5, -2.0}, vrxsAddC_64fc, vrxsAddC_64fc_I);
    checkConst<double>(Op::Sub, false, Vrx64fc{1.5, -2.0}, vrxsSubC_64fc, vrxsSubC_64fc_I);
    checkConst<double>(Op::Sub, true, Vrx64fc{1.5, -2.0}, vrxsSubCRev_64fc, vrxsSubCRev_64fc_I);
    checkConst<double>(Op::CMul, false, Vrx64fc{0.7, -1.3}, vrxsMulC_64fc, vrxsMulC_64fc_I);
}

TEST(ArithFloat, ComplexProductRoundsTheImaginaryTermsFirst) {
    // a c - b d with b d rounded before the fused step: 1+e by 1-e against e*e
    const float e = 0x1.0p-12f;
    Vrx32fc x{1.0f + e, e}, y{1.0f - e, e};
    Vrx32fc d{};
    ASSERT_EQ(vrxOk, vrxsMul_32fc(&x, &y, &d, 1));
    EXPECT_TRUE(sameBits(std::fma(x.re, y.re, -(x.im * y.im)), d.re));
    EXPECT_TRUE(sameBits(std::fma(x.re, y.im, x.im * y.re), d.im));
}

TEST(ArithFloat, MulCShortcuts) {
    const float nan = std::nanf("");
    float src[3] = {nan, INFINITY, 2.0f}, d[3];
    ASSERT_EQ(vrxOk, vrxsMulC_32f(src, 0.0f, d, 3));
    for (float v : d) EXPECT_TRUE(sameBits(0.0f, v));
    ASSERT_EQ(vrxOk, vrxsMulC_32f(src, 0.5f, d, 3));
    EXPECT_TRUE(std::isnan(d[0]));
    ASSERT_EQ(vrxOk, vrxsMulC_32f(src, 1.0f, d, 3));
    EXPECT_TRUE(sameBits(src[0], d[0]));
    double s64[2] = {std::nan(""), -INFINITY};
    ASSERT_EQ(vrxOk, vrxsMulC_64f_I(0.0, s64, 2));
    EXPECT_TRUE(sameBits(0.0, s64[0]) && sameBits(0.0, s64[1]));
    // AddC with a zero constant is a copy: -0 stays -0
    float m0 = -0.0f, r0 = 1.0f;
    ASSERT_EQ(vrxOk, vrxsAddC_32f(&m0, 0.0f, &r0, 1));
    EXPECT_TRUE(sameBits(-0.0f, r0));
}

TEST(ArithFloat, RealByComplexAndWidenedSources) {
    Rng r(3);
    for (int len = 1; len <= 70; ++len) {
        std::vector<float> a(len), b(2 * len), d(2 * len);
        for (auto& v : a) v = randVal<float>(r);
        for (auto& v : b) v = randVal<float>(r);
        ASSERT_EQ(vrxOk, vrxsMul_32f32fc(a.data(), reinterpret_cast<Vrx32fc*>(b.data()), reinterpret_cast<Vrx32fc*>(d.data()), len));
        for (int i = 0; i < 2 * len; ++i) ASSERT_TRUE(sameBits(a[i / 2] * b[i], d[i]));
        ASSERT_EQ(vrxOk, vrxsMul_32f32fc_I(a.data(), reinterpret_cast<Vrx32fc*>(b.data()), len));
        ASSERT_EQ(0, memcmp(b.data(), d.data(), d.size() * sizeof(float)));
        std::vector<Vrx16s> x(len), y(len);
        for (int i = 0; i < len; ++i) { x[i] = static_cast<Vrx16s>(r.next()); y[i] = static_cast<Vrx16s>(r.next()); }
        std::vector<float> o(len);
        ASSERT_EQ(vrxOk, vrxsAdd_16s32f(x.data(), y.data(), o.data(), len));
        for (int i = 0; i < len; ++i) ASSERT_EQ(float(x[i]) + float(y[i]), o[i]);
        ASSERT_EQ(vrxOk, vrxsSub_16s32f(x.data(), y.data(), o.data(), len));
        for (int i = 0; i < len; ++i) ASSERT_EQ(float(y[i]) - float(x[i]), o[i]);
        ASSERT_EQ(vrxOk, vrxsMul_16s32f(x.data(), y.data(), o.data(), len));
        for (int i = 0; i < len; ++i) ASSERT_EQ(float(x[i]) * float(y[i]), o[i]);
    }
}

TEST(ArithFloat, MulC32f16s) {
    vt::MxcsrScope scope;
    float src[4] = {3.0e9f, -3.0e9f, 2.5f, 3.5f};
    Vrx16s d[4];
    ASSERT_EQ(vrxOk, vrxsMulC_Low_32f16s(src, 1.0f, d, 4));
    EXPECT_EQ(vt::vec(d, 4), (std::vector<Vrx16s>{-32768, -32768, 2, 4}));  // the integer-indefinite answer, then the pack
    ASSERT_EQ(vrxOk, vrxsMulC_32f16s_Sfs(src, 1.0f, d, 4, 0));
    EXPECT_EQ(vt::vec(d, 4), (std::vector<Vrx16s>{32767, -32768, 2, 4}));
    // the caller's rounding rules Low, never the Sfs form; both restore MXCSR
    _mm_setcsr((_mm_getcsr() & ~0x6000u) | vt::kRoundZero);
    const unsigned before = _mm_getcsr() & ~0x3Fu;
    ASSERT_EQ(vrxOk, vrxsMulC_Low_32f16s(src + 2, 1.0f, d, 2));
    EXPECT_EQ(vt::vec(d, 2), (std::vector<Vrx16s>{2, 3}));
    ASSERT_EQ(vrxOk, vrxsMulC_32f16s_Sfs(src + 2, 4.0f, d, 2, 1));  // 2.5*2 = 5, 3.5*2 = 7
    EXPECT_EQ(vt::vec(d, 2), (std::vector<Vrx16s>{5, 7}));
    ASSERT_EQ(vrxOk, vrxsMulC_32f16s_Sfs(src + 2, 1.0f, d, 2, 0));
    EXPECT_EQ(vt::vec(d, 2), (std::vector<Vrx16s>{2, 4}));
    EXPECT_EQ(before, _mm_getcsr() & ~0x3Fu);
    // all lengths against the clamped, nearest-rounded reference
    _mm_setcsr(_mm_getcsr() & ~0x6000u);
    Rng r(11);
    for (int len = 1; len <= 70; ++len) {
        std::vector<float> s(len);
        std::vector<Vrx16s> o(len);
        for (auto& v : s) v = static_cast<float>((r.uniform() - 0.5) * 1.0e5);
        ASSERT_EQ(vrxOk, vrxsMulC_32f16s_Sfs(s.data(), 0.75f, o.data(), len, -1));
        for (int i = 0; i < len; ++i) {
            float p = s[i] * 1.5f;
            p = p > 32767.0f ? 32767.0f : (p < -32768.0f ? -32768.0f : p);
            ASSERT_EQ(static_cast<Vrx16s>(std::nearbyint(p)), o[i]) << s[i];
        }
    }
}

}  // namespace
