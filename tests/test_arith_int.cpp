// Integer scaled arithmetic against a reference model built here: the
// exact result in 128 bits, rounded half to even by floor division, and
// saturated; the zero and bound limits of each function kept beside it.
#include "vrx_test.h"

#include <cmath>
#include <cstring>
#include <limits>

namespace {

using vt::i128;
using vt::Buffer;
using vt::Rng;
using vt::vec;

enum Ref { kAdd, kSub, kSubRev, kMul };  // kSub: b - a; kSubRev: a - b
constexpr int kNone = -100000;

i128 exact(Ref op, i128 a, i128 b) {
    switch (op) {
        case kAdd: return a + b;
        case kSub: return b - a;
        case kSubRev: return a - b;
        default: return a * b;
    }
}

// r * 2^-sf, ties to even, then saturation (vt::scaled); zero from
// zeroFrom, the sign's bound up to boundTo.
template <class T> T model(i128 r, int sf, int zeroFrom, int boundTo) {
    if (sf >= zeroFrom) return 0;
    if (sf <= boundTo) return r > 0 ? std::numeric_limits<T>::max() : (r < 0 ? std::numeric_limits<T>::min() : 0);
    return vt::scaled<T>(r, std::max(sf, -1000));
}

// Every scale factor from lo to hi, and the extremes where the shortcuts
// stand (a scale factor of any size is never an error).
std::vector<int> sfsOf(int lo, int hi) {
    std::vector<int> v = {INT32_MIN, INT32_MIN + 1, -1000, 1000, INT32_MAX};
    for (int sf = lo; sf <= hi; ++sf) v.push_back(sf);
    return v;
}

template <class T> std::vector<T> randomWithExtremes(Rng& r, size_t n) {
    std::vector<T> v(n);
    const T ex[] = {std::numeric_limits<T>::min(), std::numeric_limits<T>::max(), T(0), T(1), T(-1),
                    T(std::numeric_limits<T>::min() + 1), T(std::numeric_limits<T>::max() - 1)};
    for (size_t i = 0; i < n; ++i) v[i] = (r.next() % 8 == 0) ? ex[r.next() % 7] : static_cast<T>(r.next());
    return v;
}

// ------------------------------------------------------------ vector forms
template <class T, class TD = T, class T2 = T>
struct VecCase {
    const char* name;
    VrxStatus (*fn)(const T*, const T2*, TD*, int, int);
    Ref op;
    int zeroFrom, boundTo;
};

template <class T, class TD, class T2>
void runVec(const VecCase<T, TD, T2>& c, const std::vector<T>& a, const std::vector<T2>& b, int sfLo, int sfHi) {
    const int n = static_cast<int>(a.size());
    std::vector<TD> d(n);
    for (int sf : sfsOf(sfLo, sfHi)) {
        ASSERT_EQ(vrxOk, c.fn(a.data(), b.data(), d.data(), n, sf)) << c.name;
        for (int i = 0; i < n; ++i) {
            TD want = model<TD>(exact(c.op, a[i], b[i]), sf, c.zeroFrom, c.boundTo);
            ASSERT_EQ(want, d[i]) << c.name << " sf " << sf << " a " << +a[i] << " b " << +b[i];
        }
    }
}

template <class T, class C = T>
struct ConstCase {
    const char* name;
    VrxStatus (*fn)(const C*, C, C*, int, int);
    Ref op;  // element first, constant second
    int zeroFrom, boundTo;
};

// Every constant of vals at every scale factor from sfLo to sfHi.
template <class T, class V>
void checkConst(const ConstCase<T>& c, const std::vector<T>& a, const V& vals, int sfLo, int sfHi) {
    const int n = static_cast<int>(a.size());
    std::vector<T> d(n);
    for (T v : vals)
        for (int sf : sfsOf(sfLo, sfHi)) {
            ASSERT_EQ(vrxOk, c.fn(a.data(), v, d.data(), n, sf));
            for (int i = 0; i < n; ++i)
                ASSERT_EQ(model<T>(exact(c.op, a[i], v), sf, c.zeroFrom, c.boundTo), d[i])
                    << c.name << " v " << +v << " sf " << sf << " e " << +a[i];
        }
}

// Every pair of 8-bit operands, every 8-bit constant.
TEST(ArithInt, Exhaustive8u) {
    std::vector<Vrx8u> a(65536), b(65536);
    for (int i = 0; i < 65536; ++i) { a[i] = static_cast<Vrx8u>(i & 255); b[i] = static_cast<Vrx8u>(i >> 8); }
    for (const auto& c : {VecCase<Vrx8u>{"Add_8u", vrxsAdd_8u_Sfs, kAdd, 10, -8}, VecCase<Vrx8u>{"Sub_8u", vrxsSub_8u_Sfs, kSub, 10, -8},
                          VecCase<Vrx8u>{"Mul_8u", vrxsMul_8u_Sfs, kMul, 17, -8}})
        runVec(c, a, b, -20, 20);
    a.resize(256);
    for (const auto& c : {ConstCase<Vrx8u>{"AddC_8u", vrxsAddC_8u_Sfs, kAdd, 9, -8}, ConstCase<Vrx8u>{"SubC_8u", vrxsSubC_8u_Sfs, kSubRev, 9, -8},
                          ConstCase<Vrx8u>{"SubCRev_8u", vrxsSubCRev_8u_Sfs, kSub, 9, -8}, ConstCase<Vrx8u>{"MulC_8u", vrxsMulC_8u_Sfs, kMul, 17, -8}})
        checkConst(c, a, a, -20, 20);
}

TEST(ArithInt, Random16And32BitVectors) {
    Rng r(1234);
    const int n = 3000;
    auto a16 = randomWithExtremes<Vrx16s>(r, n), b16 = randomWithExtremes<Vrx16s>(r, n);
    auto a16u = randomWithExtremes<Vrx16u>(r, n), b16u = randomWithExtremes<Vrx16u>(r, n);
    auto a32 = randomWithExtremes<Vrx32s>(r, n), b32 = randomWithExtremes<Vrx32s>(r, n);
    runVec(VecCase<Vrx16s>{"Add_16s", vrxsAdd_16s_Sfs, kAdd, 17, -16}, a16, b16, -20, 20);
    runVec(VecCase<Vrx16s>{"Sub_16s", vrxsSub_16s_Sfs, kSub, 17, -16}, a16, b16, -20, 20);
    runVec(VecCase<Vrx16s>{"Mul_16s", vrxsMul_16s_Sfs, kMul, 31, -16}, a16, b16, -20, 34);
    runVec(VecCase<Vrx16u>{"Add_16u", vrxsAdd_16u_Sfs, kAdd, 18, kNone}, a16u, b16u, -40, 20);
    runVec(VecCase<Vrx16u>{"Sub_16u", vrxsSub_16u_Sfs, kSub, 17, kNone}, a16u, b16u, -40, 20);
    runVec(VecCase<Vrx16u>{"Mul_16u", vrxsMul_16u_Sfs, kMul, 33, -16}, a16u, b16u, -20, 31);
    runVec(VecCase<Vrx16s, Vrx32s>{"Mul_16s32s", vrxsMul_16s32s_Sfs, kMul, 31, -31}, a16, b16, -34, 34);
    runVec(VecCase<Vrx16u, Vrx16s, Vrx16s>{"Mul_16u16s", vrxsMul_16u16s_Sfs, kMul, 32, -15}, a16u, b16, -20, 34);
    runVec(VecCase<Vrx32s>{"Add_32s", vrxsAdd_32s_Sfs, kAdd, 33, -31}, a32, b32, -34, 36);
    runVec(VecCase<Vrx32s>{"Sub_32s", vrxsSub_32s_Sfs, kSub, 33, -31}, a32, b32, -34, 36);
    auto a64 = randomWithExtremes<Vrx64s>(r, n), b64 = randomWithExtremes<Vrx64s>(r, n);
    runVec(VecCase<Vrx64s>{"Add_64s", vrxsAdd_64s_Sfs, kAdd, 64, -63}, a64, b64, -66, 66);
    // small values exercise the negative scale factors without saturating
    std::vector<Vrx64s> s64(n);
    for (auto& v : s64) v = static_cast<int64_t>(r.range(-1000, 1000));
    runVec(VecCase<Vrx64s>{"Add_64s small", vrxsAdd_64s_Sfs, kAdd, 64, -63}, s64, s64, -66, 4);
}

TEST(ArithInt, Mul16uAtScaleFactor32) {
    Vrx16u a[4] = {65535, 46341, 46340, 32769}, b[4] = {65535, 46341, 46340, 65535}, d[4];
    ASSERT_EQ(vrxOk, vrxsMul_16u_Sfs(a, b, d, 4, 32));
    // products 4294836225, 2147488281, 2147395600, 2147516415 against 2^31
    EXPECT_EQ(vec(d, 4), (std::vector<Vrx16u>{1, 1, 0, 1}));
    ASSERT_EQ(vrxOk, vrxsMul_16u_Sfs(a, b, d, 1, 33));
    EXPECT_EQ(0, d[0]);
}

TEST(ArithInt, RandomConstants) {
    Rng r(99);
    const int n = 500;
    auto a16 = randomWithExtremes<Vrx16s>(r, n);
    auto a16u = randomWithExtremes<Vrx16u>(r, n);
    auto a32 = randomWithExtremes<Vrx32s>(r, n);
    const Vrx16s v16[] = {0, 1, -1, 7, -32768, 32767, 12345};
    const Vrx16u v16u[] = {0, 1, 3, 65535, 40000};
    const Vrx32s v32[] = {0, 1, -1, 3, INT32_MIN, INT32_MAX, 123456789};
    for (auto c : {ConstCase<Vrx16s>{"AddC_16s", vrxsAddC_16s_Sfs, kAdd, 17, -16},
                   ConstCase<Vrx16s>{"SubC_16s", vrxsSubC_16s_Sfs, kSubRev, 17, -16},
                   ConstCase<Vrx16s>{"SubCRev_16s", vrxsSubCRev_16s_Sfs, kSub, 17, -16},
                   ConstCase<Vrx16s>{"MulC_16s", vrxsMulC_16s_Sfs, kMul, 31, -16}})
        checkConst(c, a16, v16, -20, 33);
    for (auto c : {ConstCase<Vrx16u>{"AddC_16u", vrxsAddC_16u_Sfs, kAdd, 18, -16},
                   ConstCase<Vrx16u>{"SubC_16u", vrxsSubC_16u_Sfs, kSubRev, 17, kNone},
                   ConstCase<Vrx16u>{"SubCRev_16u", vrxsSubCRev_16u_Sfs, kSub, 17, -16},
                   ConstCase<Vrx16u>{"MulC_16u", vrxsMulC_16u_Sfs, kMul, 33, kNone}})
        checkConst(c, a16u, v16u, -40, 35);
    for (auto c : {ConstCase<Vrx32s>{"AddC_32s", vrxsAddC_32s_Sfs, kAdd, 33, -31},
                   ConstCase<Vrx32s>{"SubC_32s", vrxsSubC_32s_Sfs, kSubRev, 33, -31},
                   ConstCase<Vrx32s>{"SubCRev_32s", vrxsSubCRev_32s_Sfs, kSub, 33, -31},
                   ConstCase<Vrx32s>{"MulC_32s", vrxsMulC_32s_Sfs, kMul, 63, -32}})
        checkConst(c, a32, v32, -34, 65);
}

// Complex constants act on each component with the real rule; complex
// vectors add and subtract as reals.
template <class T, class C>
void checkComplexConst(const ConstCase<T, C>& c, const std::vector<T>& a, C v, int sfLo, int sfHi) {
    const int n = static_cast<int>(a.size() / 2);
    std::vector<T> d(a.size());
    for (int sf : sfsOf(sfLo, sfHi)) {
        ASSERT_EQ(vrxOk, c.fn(reinterpret_cast<const C*>(a.data()), v, reinterpret_cast<C*>(d.data()), n, sf));
        for (int i = 0; i < 2 * n; ++i)
            ASSERT_EQ(model<T>(exact(c.op, a[i], i % 2 ? v.im : v.re), sf, c.zeroFrom, c.boundTo), d[i]) << c.name << " sf " << sf;
    }
}

TEST(ArithInt, ComplexConstantsByComponent) {
    Rng r(5);
    auto a = randomWithExtremes<Vrx16s>(r, 134), b = randomWithExtremes<Vrx16s>(r, 134);
    auto a32 = randomWithExtremes<Vrx32s>(r, 134);
    const Vrx16sc v{-300, 32767};
    const Vrx32sc w{INT32_MIN, 77};
    checkComplexConst(ConstCase<Vrx16s, Vrx16sc>{"AddC_16sc", vrxsAddC_16sc_Sfs, kAdd, 17, -16}, a, v, -18, 18);
    checkComplexConst(ConstCase<Vrx16s, Vrx16sc>{"SubC_16sc", vrxsSubC_16sc_Sfs, kSubRev, 17, -16}, a, v, -18, 18);
    checkComplexConst(ConstCase<Vrx16s, Vrx16sc>{"SubCRev_16sc", vrxsSubCRev_16sc_Sfs, kSub, 17, -16}, a, v, -18, 18);
    checkComplexConst(ConstCase<Vrx32s, Vrx32sc>{"AddC_32sc", vrxsAddC_32sc_Sfs, kAdd, 33, -31}, a32, w, -33, 34);
    checkComplexConst(ConstCase<Vrx32s, Vrx32sc>{"SubCRev_32sc", vrxsSubCRev_32sc_Sfs, kSub, 33, -31}, a32, w, -33, 34);
    std::vector<Vrx16s> d(134);
    ASSERT_EQ(vrxOk, vrxsSub_16sc_Sfs(reinterpret_cast<const Vrx16sc*>(a.data()), reinterpret_cast<const Vrx16sc*>(b.data()),
                                      reinterpret_cast<Vrx16sc*>(d.data()), 67, 1));
    for (int i = 0; i < 134; ++i) ASSERT_EQ(model<Vrx16s>(i128(b[i]) - a[i], 1, 17, -16), d[i]);
}

// ------------------------------------------------------- complex products
// The exact complex product; an imaginary part of exactly 2^(2w-1) (only
// from two products of the lowest value) is taken one below.
template <class T, class C>
void checkComplexProducts(VrxStatus (*mul)(const C*, const C*, C*, int, int), VrxStatus (*mulc)(const C*, C, C*, int, int),
                          Rng& r, int sfLo, int sfHi, int zeroFrom, int boundTo) {
    const int n = 400;
    auto a = randomWithExtremes<T>(r, 2 * n), b = randomWithExtremes<T>(r, 2 * n);
    std::vector<T> d(2 * n);
    const T lo = std::numeric_limits<T>::min();
    const C k{lo, lo};
    const i128 top = i128(1) << (2 * sizeof(T) * 8 - 1);
    auto check = [&](int sf, auto other) {
        for (int j = 0; j < n; ++j) {
            const i128 ar = a[2 * j], ai = a[2 * j + 1], br = other(2 * j), bi = other(2 * j + 1);
            i128 re = ar * br - ai * bi, im = ar * bi + ai * br;
            if (im == top) im = top - 1;
            ASSERT_EQ(model<T>(re, sf, zeroFrom, boundTo), d[2 * j]) << sf;
            ASSERT_EQ(model<T>(im, sf, zeroFrom, boundTo), d[2 * j + 1]) << sf;
        }
    };
    auto* A = reinterpret_cast<const C*>(a.data());
    auto* D = reinterpret_cast<C*>(d.data());
    for (int sf : sfsOf(sfLo, sfHi)) {
        ASSERT_EQ(vrxOk, mul(A, reinterpret_cast<const C*>(b.data()), D, n, sf));
        check(sf, [&](int i) { return b[i]; });
        ASSERT_EQ(vrxOk, mulc(A, k, D, n, sf));
        check(sf, [&](int) { return lo; });
    }
}

TEST(ArithInt, ComplexProducts) {
    Rng r(77);
    checkComplexProducts<Vrx16s, Vrx16sc>(vrxsMul_16sc_Sfs, vrxsMulC_16sc_Sfs, r, -18, 33, 32, -16);
    checkComplexProducts<Vrx32s, Vrx32sc>(vrxsMul_32sc_Sfs, vrxsMulC_32sc_Sfs, r, -34, 65, 64, -32);
    // (-32768, -32768) squared: re 0, im saturates
    Vrx16sc m{-32768, -32768}, o{};
    ASSERT_EQ(vrxOk, vrxsMul_16sc_Sfs(&m, &m, &o, 1, 0));
    EXPECT_EQ(0, o.re);
    EXPECT_EQ(32767, o.im);
}

TEST(ArithInt, ComplexProductsInPlaceAndPointerForwarding) {
    Vrx16sc a[3] = {{3, 4}, {-5, 6}, {100, -200}}, b[3] = {{1, 2}, {7, -8}, {-3, 9}}, ref[3], x[3];
    const Vrx16sc c{2, -1};
    // an aliased call from x = init gives the out-of-place result
    auto same = [&](const Vrx16sc* init, auto call) {
        memcpy(x, init, sizeof x);
        ASSERT_EQ(vrxOk, call());
        EXPECT_EQ(0, memcmp(ref, x, sizeof x));
    };
    ASSERT_EQ(vrxOk, vrxsMul_16sc_Sfs(a, b, ref, 3, 0));
    same(b, [&] { return vrxsMul_16sc_Sfs(a, x, x, 3, 0); });  // dst == src2
    same(a, [&] { return vrxsMul_16sc_Sfs(x, b, x, 3, 0); });  // dst == src1
    same(b, [&] { return vrxsMul_16sc_ISfs(a, x, 3, 0); });
    ASSERT_EQ(vrxOk, vrxsMulC_16sc_Sfs(a, c, ref, 3, 1));
    same(a, [&] { return vrxsMulC_16sc_Sfs(x, c, x, 3, 1); });
    // the pointer comparison stands before the null test: src2 == dst == null
    EXPECT_EQ(vrxErrNullPtr, vrxsMul_16sc_Sfs(a, nullptr, nullptr, 3, 0));
    Vrx32sc w[1] = {{1, 1}};
    EXPECT_EQ(vrxErrNullPtr, vrxsMul_32sc_Sfs(nullptr, w, w, 0, 0));  // in place: null before length
}

// ------------------------------------------------ 32s product in binary64
TEST(ArithInt, Mul32sThroughBinary64) {
    vt::MxcsrScope scope;
    Rng r(8);
    const int n = 1000;
    auto a = randomWithExtremes<Vrx32s>(r, n), b = randomWithExtremes<Vrx32s>(r, n);
    std::vector<Vrx32s> d(n), e(n);
    for (int sf : sfsOf(-35, 64)) {
        ASSERT_EQ(vrxOk, vrxsMul_32s_Sfs(a.data(), b.data(), d.data(), n, sf));
        for (int i = 0; i < n; ++i) {
            Vrx32s want;
            if (sf >= 63) want = 0;
            else if (sf <= -32) want = model<Vrx32s>(i128(a[i]) * b[i], sf, 63, -32);
            else {
                double p = sf == 0 ? double(a[i]) * double(b[i]) : (double(a[i]) * std::ldexp(1.0, -sf)) * double(b[i]);
                p = p > 2147483647.0 ? 2147483647.0 : (p < -2147483648.0 ? -2147483648.0 : p);
                want = static_cast<Vrx32s>(sf == 0 ? std::trunc(p) : std::nearbyint(p));
            }
            ASSERT_EQ(want, d[i]) << "sf " << sf << " " << a[i] << " * " << b[i];
        }
        // the same answers with the caller rounding toward zero, and its mode kept
        _mm_setcsr((_mm_getcsr() & ~0x6000u) | vt::kRoundZero | vt::kFtz | vt::kDaz);
        ASSERT_EQ(vrxOk, vrxsMul_32s_Sfs(a.data(), b.data(), e.data(), n, sf));
        EXPECT_EQ(vt::kRoundZero | vt::kFtz | vt::kDaz, _mm_getcsr() & (0x6000u | vt::kFtz | vt::kDaz));
        _mm_setcsr(_mm_getcsr() & ~(0x6000u | vt::kFtz | vt::kDaz));
        ASSERT_EQ(d, e) << sf;
    }
    // beyond 53 bits the binary64 product differs from the exact constant form
    Vrx32s x = 2147483647, y = 2147483645, p, q;
    ASSERT_EQ(vrxOk, vrxsMul_32s_Sfs(&x, &y, &p, 1, 31));
    ASSERT_EQ(vrxOk, vrxsMulC_32s_Sfs(&x, y, &q, 1, 31));
    EXPECT_EQ(model<Vrx32s>(i128(x) * y, 31, 63, -32), q);
    ASSERT_EQ(vrxOk, vrxsMul_32s_Sfs(&x, &y, &p, 1, 62));
    ASSERT_EQ(vrxOk, vrxsMulC_32s_Sfs(&x, y, &q, 1, 62));
    EXPECT_EQ(1, p);
    EXPECT_EQ(1, q);
}

// --------------------------------------------------------- 64-bit forms
TEST(ArithInt, MulC64s) {
    Rng r(21);
    const int n = 300;
    auto a = randomWithExtremes<Vrx64s>(r, n);
    const Vrx64s vals[] = {1, -1, 3, INT64_MIN, INT64_MAX, 0x123456789LL, -987654321987LL};
    std::vector<Vrx64s> d(n);
    for (Vrx64s v : vals)
        for (int sf : sfsOf(-70, 130)) {
            d = a;
            ASSERT_EQ(vrxOk, vrxsMulC_64s_ISfs(v, d.data(), n, sf));
            for (int i = 0; i < n; ++i)
                ASSERT_EQ(model<Vrx64s>(i128(a[i]) * v, sf, 127, kNone), d[i]) << v << " sf " << sf << " e " << a[i];
        }
    d = a;
    ASSERT_EQ(vrxOk, vrxsMulC_64s_ISfs(0, d.data(), n, -5));
    for (auto v : d) ASSERT_EQ(0, v);
}

TEST(ArithInt, MulC64f64s) {
    Rng r(22);
    const int n = 200;
    auto a = randomWithExtremes<Vrx64s>(r, n);
    const double vals[] = {1.0, -2.5, 0.75, 3.0e-300, -1.0e10, 0x1.fffffffffffffp+0, 4.9406564584124654e-324};
    std::vector<Vrx64s> d(n);
    for (double v : vals)
        for (int sf = -10; sf <= 10; ++sf) {
            int e;
            const double fr = std::frexp(v, &e);                       // v = fr * 2^e, 0.5 <= |fr| < 1
            const int64_t m = static_cast<int64_t>(std::ldexp(fr, 53));  // exact 53-bit mantissa
            const int s2 = sf + 53 - e;
            d = a;
            ASSERT_EQ(vrxOk, vrxsMulC_64f64s_ISfs(v, d.data(), n, sf));
            for (int i = 0; i < n; ++i) {
                // subnormals carry fewer bits but the same value
                ASSERT_EQ(model<Vrx64s>(i128(a[i]) * m, s2, s2 > 126 ? s2 : 100000, kNone), d[i])
                    << v << " sf " << sf << " e " << a[i];
            }
        }
    // the singled-out pattern saturates nonzero elements by the signs
    double odd;
    const int64_t bits = 0x90000012CD94LL;
    memcpy(&odd, &bits, sizeof odd);
    Vrx64s x[3] = {5, 0, -5};
    ASSERT_EQ(vrxOk, vrxsMulC_64f64s_ISfs(odd, x, 3, 0));
    EXPECT_EQ(INT64_MAX, x[0]);
    EXPECT_EQ(0, x[1]);
    EXPECT_EQ(INT64_MIN, x[2]);
}

TEST(ArithInt, AddC64WithRounding) {
    // unsigned: exact rounding in each mode
    Rng r(31);
    const int n = 300;
    auto a = randomWithExtremes<Vrx64s>(r, n);
    std::vector<Vrx64u> au(n), du(n);
    for (int i = 0; i < n; ++i) au[i] = static_cast<Vrx64u>(a[i]);
    const Vrx64u vals[] = {0, 1, 12345, ~0ull, 1ull << 63};
    for (Vrx64u v : vals)
        for (int sf = -66; sf <= 67; ++sf)
            for (int mode = 0; mode < 3; ++mode) {
                ASSERT_EQ(vrxOk, vrxsAddC_64u_Sfs(au.data(), v, du.data(), n, sf, mode));
                for (int i = 0; i < n; ++i) {
                    const unsigned __int128 s = (unsigned __int128)au[i] + v;
                    Vrx64u want;
                    if (sf == 0) want = s > ~0ull ? ~0ull : Vrx64u(s);
                    else if (sf < 0) want = (sf <= -64) ? (s ? ~0ull : 0) : ((s >> (64 + sf)) ? ~0ull : Vrx64u(s << -sf));
                    else if (sf >= 66) want = 0;
                    else {
                        unsigned __int128 q = s >> sf, rem = s - (q << sf), half = (unsigned __int128)1 << (sf - 1);
                        if (mode == 1) q += (rem > half || (rem == half && (q & 1))) ? 1 : 0;
                        if (mode == 2) q += rem >= half ? 1 : 0;
                        want = Vrx64u(q);
                    }
                    ASSERT_EQ(want, du[i]) << v << " sf " << sf << " mode " << mode << " e " << au[i];
                }
            }
    // an unknown rounding with a nonzero scale factor leaves the destination
    Vrx64u s[2] = {7, 9}, d[2] = {1, 2};
    EXPECT_EQ(vrxOk, vrxsAddC_64u_Sfs(s, 3, d, 2, 2, 3));
    EXPECT_EQ(vec(d, 2), (std::vector<Vrx64u>{1, 2}));
    EXPECT_EQ(vrxOk, vrxsAddC_64u_Sfs(s, 3, d, 2, 0, 3));
    EXPECT_EQ(10u, d[0]);
    // signed: outside the high-part quirks the modes round exactly
    Vrx64s x[4] = {10, -10, 13, -13}, y[4];
    EXPECT_EQ(vrxOk, vrxsAddC_64s_Sfs(x, 1, y, 4, 1, vrxRndNear));   // 5.5 -4.5 7 -6
    EXPECT_EQ(vec(y, 4), (std::vector<Vrx64s>{6, -4, 7, -6}));
    EXPECT_EQ(vrxOk, vrxsAddC_64s_Sfs(x, 1, y, 4, 1, vrxRndFinancial));
    EXPECT_EQ(vec(y, 4), (std::vector<Vrx64s>{6, -5, 7, -6}));
    Vrx64s z[4];
    EXPECT_EQ(vrxOk, vrxsAddC_64s_Sfs(x, 1, z, 4, 1, 3));  // acts as financial
    EXPECT_EQ(0, memcmp(y, z, sizeof y));
    // truncation adds one for a negative high part with any low bits, even
    // when they carry a whole unit: -12 / 2 reads -7 + 1 + 1
    EXPECT_EQ(vrxOk, vrxsAddC_64s_Sfs(x, 1, y, 4, 1, vrxRndZero));
    EXPECT_EQ(vec(y, 4), (std::vector<Vrx64s>{5, -4, 7, -5}));
    // a high part of 0 or -1 gives 0: -1 at sf 2 (h = -1) truncates to 0 as it should,
    // and -4 at sf 2 is exactly -1 but reads h = -1
    Vrx64s m[2] = {-4, 3}, o[2];
    EXPECT_EQ(vrxOk, vrxsAddC_64s_Sfs(m, 0, o, 2, 2, vrxRndZero));
    EXPECT_EQ(vec(o, 2), (std::vector<Vrx64s>{0, 0}));
    // saturation at sf 0
    Vrx64s big = INT64_MAX;
    EXPECT_EQ(vrxOk, vrxsAddC_64s_Sfs(&big, 5, o, 1, 0, vrxRndNear));
    EXPECT_EQ(INT64_MAX, o[0]);
}

// ----------------------------------------------- edge cases and shortcuts
// A few hand-checked results anchor the reference model.
TEST(ArithInt, RoundingExamples) {
    struct { Vrx16s a, b; int sf; Vrx16s want; } add[] = {
        {1, 2, 1, 2}, {2, 3, 1, 2}, {-1, -2, 1, -2}, {0, -1, 1, 0}, {1, 2, 0, 3},
        {100, 200, 17, 0}, {1, 0, -16, 32767}, {-1, 0, -16, -32768}, {0, 0, -16, 0}};
    for (auto c : add) {
        Vrx16s d;
        ASSERT_EQ(vrxOk, vrxsAdd_16s_Sfs(&c.a, &c.b, &d, 1, c.sf));
        EXPECT_EQ(c.want, d) << c.a << "+" << c.b << " sf " << c.sf;
    }
}

// Every length to 70 from odd offsets, in place too: the 16-bit product and
// sum, a 32-bit constant, the binary64 product of small operands (exact there).
TEST(ArithInt, AllLengthsUnalignedAndInPlace) {
    Rng r(55);
    for (int len = 1; len <= 70; ++len)
        for (int sf : {-3, 0, 1, 4}) {
            Buffer a(len * 2, 2), b(len * 2, 6), d(len * 2, 10), c(len * 4, 4), e(len * 4, 12);
            r.fill(a.data(), len * 2);
            r.fill(b.data(), len * 2);
            r.fill(c.data(), len * 4);
            const Vrx16s* x = a.as<Vrx16s>();
            Vrx16s* y = b.as<Vrx16s>();
            Vrx32s* z = c.as<Vrx32s>();
            const std::vector<Vrx16s> y0(y, y + len);
            ASSERT_EQ(vrxOk, vrxsMul_16s_Sfs(x, y, d.as<Vrx16s>(), len, sf));
            ASSERT_EQ(vrxOk, vrxsAdd_16s_ISfs(x, y, len, sf));
            for (int i = 0; i < len; ++i) {
                ASSERT_EQ(model<Vrx16s>(i128(x[i]) * y0[i], sf, 31, -16), d.as<Vrx16s>()[i]);
                ASSERT_EQ(model<Vrx16s>(i128(x[i]) + y0[i], sf, 17, -16), y[i]);
            }
            ASSERT_EQ(vrxOk, vrxsAddC_32s_Sfs(z, -77, e.as<Vrx32s>(), len, sf));
            for (int i = 0; i < len; ++i) ASSERT_EQ(model<Vrx32s>(i128(z[i]) - 77, sf, 33, -31), e.as<Vrx32s>()[i]);
            for (int i = 0; i < len; ++i) z[i] = static_cast<Vrx32s>(r.range(-40000, 40000));
            ASSERT_EQ(vrxOk, vrxsMul_32s_Sfs(z, z, e.as<Vrx32s>(), len, sf));
            for (int i = 0; i < len; ++i) ASSERT_EQ(model<Vrx32s>(i128(z[i]) * z[i], sf, 63, -32), e.as<Vrx32s>()[i]) << len;
            ASSERT_TRUE(b.guardsIntact() && d.guardsIntact() && e.guardsIntact());
        }
}

TEST(ArithInt, WideningAndSaturatingForms) {
    Vrx8u a[3] = {255, 0, 17}, b[3] = {255, 9, 3};
    Vrx16u d[3];
    ASSERT_EQ(vrxOk, vrxsAdd_8u16u(a, b, d, 3));
    EXPECT_EQ(vec(d, 3), (std::vector<Vrx16u>{510, 9, 20}));
    ASSERT_EQ(vrxOk, vrxsMul_8u16u(a, b, d, 3));
    EXPECT_EQ(vec(d, 3), (std::vector<Vrx16u>{65025, 0, 51}));
    Vrx16u u[2] = {65535, 3}, v[2] = {2, 4};
    ASSERT_EQ(vrxOk, vrxsAdd_16u(u, v, d, 2));
    EXPECT_EQ(vec(d, 2), (std::vector<Vrx16u>{65535, 7}));
    Vrx32u w[2] = {0xFFFFFFF0u, 5}, x[2] = {0x20, 6}, y[2];
    ASSERT_EQ(vrxOk, vrxsAdd_32u(w, x, y, 2));
    EXPECT_EQ(vec(y, 2), (std::vector<Vrx32u>{0xFFFFFFFFu, 11u}));
    Vrx16s s[3] = {-32768, 32767, -5};
    Vrx32s t[3] = {INT32_MIN, INT32_MAX, 10};
    ASSERT_EQ(vrxOk, vrxsAdd_16s32s_I(s, t, 3));
    EXPECT_EQ(vec(t, 3), (std::vector<Vrx32s>{INT32_MIN, INT32_MAX, 5}));
    Vrx16s p[2] = {300, -300}, q[2] = {300, 300}, o[2];
    ASSERT_EQ(vrxOk, vrxsMul_16s(p, q, o, 2));
    EXPECT_EQ(vec(o, 2), (std::vector<Vrx16s>{32767, -32768}));
}

}  // namespace
