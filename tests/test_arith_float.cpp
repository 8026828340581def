// Floating-point element-wise arithmetic: bit-exact against scalar
// references computed here at every length 1..70 and shifted offsets, in
// place and out; the shortcuts and control-register state.
#include "vrx_test.h"

#include <cmath>
#include <cstring>

namespace {

using vt::Buffer;
using vt::Rng;
using vt::sameBits;
using vt::vec;

template <class T> T randVal(Rng& r) { return static_cast<T>((r.uniform() - 0.5) * 200.0); }

// Lane i of a op b. Sub is b - a (the second operand minus the first), SubR
// a - b; CMul multiplies (re, im) pairs, each imaginary-part product rounded
// before the fused step.
enum class Op { Add, Sub, SubR, Mul, CMul };

template <class T> T refLane(Op op, const T* a, const T* b, size_t i) {
    const size_t j = i & ~size_t(1);
    switch (op) {
        case Op::Add: return a[i] + b[i];
        case Op::Sub: return b[i] - a[i];
        case Op::SubR: return a[i] - b[i];
        case Op::Mul: return a[i] * b[i];
        default: return i & 1 ? std::fma(a[j], b[j + 1], a[j + 1] * b[j]) : std::fma(a[j], b[j], -(a[j + 1] * b[j + 1]));
    }
}

// fn(a, b, d, len) at every length 1..70, each operand at its own offset;
// b == d asks for the in-place form. per: T lanes per element; constant: b
// repeats its first element (a random constant).
template <class T, class F>
void sweep(Op op, size_t per, bool constant, F fn) {
    Rng r(42);
    for (int len = 1; len <= 70; ++len) {
        const size_t n = per * size_t(len), off = (size_t(len) * sizeof(T)) % 64;
        Buffer a(n * sizeof(T), off), b(n * sizeof(T), (off + sizeof(T)) % 64), d(n * sizeof(T), (off + 3 * sizeof(T)) % 64);
        T *pa = a.as<T>(), *pb = b.as<T>(), *pd = d.as<T>();
        for (size_t i = 0; i < n; ++i) { pa[i] = randVal<T>(r); pb[i] = constant && i >= per ? pb[i % per] : randVal<T>(r); }
        std::vector<T> ref(n);
        for (size_t i = 0; i < n; ++i) ref[i] = refLane(op, pa, pb, i);
        ASSERT_EQ(vrxOk, fn(pa, pb, pd, len)) << len;
        ASSERT_TRUE(vt::sameBitsAll(ref, vec(pd, n))) << "len " << len;
        ASSERT_TRUE(d.guardsIntact()) << len;
        ASSERT_EQ(vrxOk, fn(pa, pb, pb, len));
        ASSERT_TRUE(vt::sameBitsAll(ref, vec(pb, n))) << "in place len " << len;
    }
}

#define BIN(T, C, name) [](const T* a, const T* b, T* d, int len) { \
    return (b == d) ? name##_I(reinterpret_cast<const C*>(a), reinterpret_cast<C*>(d), len) \
                    : name(reinterpret_cast<const C*>(a), reinterpret_cast<const C*>(b), reinterpret_cast<C*>(d), len); }
// the constant is b's first element; in place runs on a copy of a
#define CST(T, C, name) [](const T* a, const T* b, T* d, int len) { \
    C c; memcpy(&c, b, sizeof c); \
    if (b != d) return name(reinterpret_cast<const C*>(a), c, reinterpret_cast<C*>(d), len); \
    memcpy(d, a, len * sizeof(C)); return name##_I(c, reinterpret_cast<C*>(d), len); }

TEST(ArithFloat, AllFormsAllLengths) {
    sweep<float>(Op::Add, 1, false, BIN(float, Vrx32f, vrxsAdd_32f));
    sweep<float>(Op::Sub, 1, false, BIN(float, Vrx32f, vrxsSub_32f));
    sweep<float>(Op::Mul, 1, false, BIN(float, Vrx32f, vrxsMul_32f));
    sweep<double>(Op::Add, 1, false, BIN(double, Vrx64f, vrxsAdd_64f));
    sweep<double>(Op::Sub, 1, false, BIN(double, Vrx64f, vrxsSub_64f));
    sweep<double>(Op::Mul, 1, false, BIN(double, Vrx64f, vrxsMul_64f));
    sweep<float>(Op::Add, 2, false, BIN(float, Vrx32fc, vrxsAdd_32fc));
    sweep<float>(Op::Sub, 2, false, BIN(float, Vrx32fc, vrxsSub_32fc));
    sweep<float>(Op::CMul, 2, false, BIN(float, Vrx32fc, vrxsMul_32fc));
    sweep<double>(Op::Add, 2, false, BIN(double, Vrx64fc, vrxsAdd_64fc));
    sweep<double>(Op::Sub, 2, false, BIN(double, Vrx64fc, vrxsSub_64fc));
    sweep<double>(Op::CMul, 2, false, BIN(double, Vrx64fc, vrxsMul_64fc));
    sweep<float>(Op::Add, 1, true, CST(float, Vrx32f, vrxsAddC_32f));
    sweep<float>(Op::SubR, 1, true, CST(float, Vrx32f, vrxsSubC_32f));
    sweep<float>(Op::Sub, 1, true, CST(float, Vrx32f, vrxsSubCRev_32f));
    sweep<float>(Op::Mul, 1, true, CST(float, Vrx32f, vrxsMulC_32f));
    sweep<double>(Op::Add, 1, true, CST(double, Vrx64f, vrxsAddC_64f));
    sweep<double>(Op::SubR, 1, true, CST(double, Vrx64f, vrxsSubC_64f));
    sweep<double>(Op::Sub, 1, true, CST(double, Vrx64f, vrxsSubCRev_64f));
    sweep<double>(Op::Mul, 1, true, CST(double, Vrx64f, vrxsMulC_64f));
    sweep<float>(Op::Add, 2, true, CST(float, Vrx32fc, vrxsAddC_32fc));
    sweep<float>(Op::SubR, 2, true, CST(float, Vrx32fc, vrxsSubC_32fc));
    sweep<float>(Op::Sub, 2, true, CST(float, Vrx32fc, vrxsSubCRev_32fc));
    sweep<float>(Op::CMul, 2, true, CST(float, Vrx32fc, vrxsMulC_32fc));
    sweep<double>(Op::Add, 2, true, CST(double, Vrx64fc, vrxsAddC_64fc));
    sweep<double>(Op::SubR, 2, true, CST(double, Vrx64fc, vrxsSubC_64fc));
    sweep<double>(Op::Sub, 2, true, CST(double, Vrx64fc, vrxsSubCRev_64fc));
    sweep<double>(Op::CMul, 2, true, CST(double, Vrx64fc, vrxsMulC_64fc));
}

TEST(ArithFloat, ConstantShortcuts) {
    // times 0 gives +0 even for NaN and infinity; times 1 and plus 0 are
    // copies (a signalling NaN is not quieted, -0 stays -0)
    float src[4] = {vt::bitsF(0x7F800001u), INFINITY, 2.0f, -0.0f}, d[4];
    ASSERT_EQ(vrxOk, vrxsMulC_32f(src, 0.0f, d, 4));
    for (float v : d) EXPECT_TRUE(sameBits(0.0f, v));
    ASSERT_EQ(vrxOk, vrxsMulC_32f(src, 1.0f, d, 4));
    EXPECT_TRUE(vt::sameBitsAll(vec(src, 4), vec(d, 4)));
    ASSERT_EQ(vrxOk, vrxsAddC_32f(src, 0.0f, d, 4));
    EXPECT_TRUE(vt::sameBitsAll(vec(src, 4), vec(d, 4)));
    double s64[2] = {std::nan(""), -INFINITY};
    ASSERT_EQ(vrxOk, vrxsMulC_64f_I(0.0, s64, 2));
    EXPECT_TRUE(sameBits(0.0, s64[0]) && sameBits(0.0, s64[1]));
}

TEST(ArithFloat, RealByComplexAndWidenedSources) {
    Rng r(3);
    for (int len = 1; len <= 70; ++len) {
        std::vector<float> a(len), b(2 * len), d(2 * len), o(len);
        for (auto& v : a) v = randVal<float>(r);
        for (auto& v : b) v = randVal<float>(r);
        ASSERT_EQ(vrxOk, vrxsMul_32f32fc(a.data(), reinterpret_cast<Vrx32fc*>(b.data()), reinterpret_cast<Vrx32fc*>(d.data()), len));
        for (int i = 0; i < 2 * len; ++i) ASSERT_TRUE(sameBits(a[i / 2] * b[i], d[i]));
        ASSERT_EQ(vrxOk, vrxsMul_32f32fc_I(a.data(), reinterpret_cast<Vrx32fc*>(b.data()), len));
        ASSERT_EQ(0, memcmp(b.data(), d.data(), d.size() * sizeof(float)));
        std::vector<Vrx16s> x(len), y(len);
        std::vector<float> xf(len), yf(len);
        for (int i = 0; i < len; ++i) xf[i] = x[i] = Vrx16s(r.next()), yf[i] = y[i] = Vrx16s(r.next());
        for (auto [fn, op] : {std::pair{&vrxsAdd_16s32f, Op::Add}, {&vrxsSub_16s32f, Op::Sub}, {&vrxsMul_16s32f, Op::Mul}}) {
            ASSERT_EQ(vrxOk, fn(x.data(), y.data(), o.data(), len));
            for (int i = 0; i < len; ++i) ASSERT_EQ(refLane(op, xf.data(), yf.data(), i), o[i]);
        }
    }
}

TEST(ArithFloat, MulC32f16s) {
    vt::MxcsrScope scope;
    float src[4] = {3.0e9f, -3.0e9f, 2.5f, 3.5f};
    Vrx16s d[4];
    ASSERT_EQ(vrxOk, vrxsMulC_Low_32f16s(src, 1.0f, d, 4));
    EXPECT_EQ(vec(d, 4), (std::vector<Vrx16s>{-32768, -32768, 2, 4}));  // the integer-indefinite answer, then the pack
    ASSERT_EQ(vrxOk, vrxsMulC_32f16s_Sfs(src, 1.0f, d, 4, 0));
    EXPECT_EQ(vec(d, 4), (std::vector<Vrx16s>{32767, -32768, 2, 4}));
    // the caller's rounding rules Low, never the Sfs form; both restore MXCSR
    _mm_setcsr((_mm_getcsr() & ~0x6000u) | vt::kRoundZero);
    const unsigned before = _mm_getcsr() & ~0x3Fu;
    ASSERT_EQ(vrxOk, vrxsMulC_Low_32f16s(src + 2, 1.0f, d, 2));
    EXPECT_EQ(vec(d, 2), (std::vector<Vrx16s>{2, 3}));
    ASSERT_EQ(vrxOk, vrxsMulC_32f16s_Sfs(src + 2, 1.0f, d, 2, 0));
    EXPECT_EQ(vec(d, 2), (std::vector<Vrx16s>{2, 4}));
    EXPECT_EQ(before, _mm_getcsr() & ~0x3Fu);
    // all lengths against the clamped, nearest-rounded reference
    _mm_setcsr(_mm_getcsr() & ~0x6000u);
    Rng r(11);
    for (int len = 1; len <= 70; ++len) {
        std::vector<float> s(len);
        std::vector<Vrx16s> o(len);
        for (auto& v : s) v = static_cast<float>((r.uniform() - 0.5) * 1.0e5);
        ASSERT_EQ(vrxOk, vrxsMulC_32f16s_Sfs(s.data(), 0.75f, o.data(), len, -1));
        for (int i = 0; i < len; ++i) ASSERT_EQ(vt::sat16(2.0L * (s[i] * 0.75f)), o[i]) << s[i];
    }
}

}  // namespace
