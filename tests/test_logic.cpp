// Bitwise logic and constant shifts: every type against a scalar reference
// at every length 1..70 and misaligned pointers, and the order of the
// shortcuts that stand before the general argument checks.
#include "vrx_test.h"

namespace {

template <class T>
std::vector<T> randomVec(vt::Rng& rng, int n) {
    std::vector<T> v(n);
    rng.fill(v.data(), n * sizeof(T));
    return v;
}

// The logic forms of one type, table-driven against the scalar operation.
template <class T>
struct LogicFns {
    VrxStatus (*vv[3])(const T*, const T*, T*, int);
    VrxStatus (*vvI[3])(const T*, T*, int);
    VrxStatus (*vc[3])(const T*, T, T*, int);
    VrxStatus (*vcI[3])(T, T*, int);
    VrxStatus (*nt)(const T*, T*, int);
    VrxStatus (*ntI)(T*, int);
};

template <class T>
T op(int k, T a, T b) { return static_cast<T>(k == 0 ? (a & b) : k == 1 ? (a | b) : (a ^ b)); }

template <class T>
void checkLogic(const LogicFns<T>& f) {
    vt::Rng rng(sizeof(T));
    for (int len = 1; len <= 70; ++len) {
        const size_t off = static_cast<size_t>(len % 7) * sizeof(T) / 2 * 2 + 1 * (sizeof(T) == 1);
        vt::Buffer a(len * sizeof(T), off), b(len * sizeof(T), (off + 3) & ~(sizeof(T) - 1)), d(len * sizeof(T), off);
        auto x = randomVec<T>(rng, len), y = randomVec<T>(rng, len);
        const T c = static_cast<T>(rng.next() | 1);
        memcpy(a.data(), x.data(), len * sizeof(T));
        memcpy(b.data(), y.data(), len * sizeof(T));
        for (int k = 0; k < 3; ++k) {
            ASSERT_EQ(f.vv[k](a.as<T>(), b.as<T>(), d.as<T>(), len), vrxOk);
            for (int i = 0; i < len; ++i) ASSERT_EQ(d.as<T>()[i], op(k, x[i], y[i])) << k << " len " << len;
            ASSERT_EQ(f.vc[k](a.as<T>(), c, d.as<T>(), len), vrxOk);
            for (int i = 0; i < len; ++i) ASSERT_EQ(d.as<T>()[i], op(k, x[i], c));
            memcpy(d.data(), y.data(), len * sizeof(T));
            ASSERT_EQ(f.vvI[k](a.as<T>(), d.as<T>(), len), vrxOk);
            for (int i = 0; i < len; ++i) ASSERT_EQ(d.as<T>()[i], op(k, x[i], y[i]));
            ASSERT_EQ(f.vcI[k](c, d.as<T>(), len), vrxOk);
            for (int i = 0; i < len; ++i) ASSERT_EQ(d.as<T>()[i], op(k, op(k, x[i], y[i]), c));
        }
        ASSERT_EQ(f.nt(a.as<T>(), d.as<T>(), len), vrxOk);
        for (int i = 0; i < len; ++i) ASSERT_EQ(d.as<T>()[i], static_cast<T>(~x[i]));
        ASSERT_EQ(f.ntI(d.as<T>(), len), vrxOk);
        for (int i = 0; i < len; ++i) ASSERT_EQ(d.as<T>()[i], x[i]);
        ASSERT_TRUE(d.guardsIntact() && a.guardsIntact() && b.guardsIntact());
    }
}

TEST(Logic, EveryFormEveryTypeAgainstScalar) {
    checkLogic<Vrx8u>({{vrxsAnd_8u, vrxsOr_8u, vrxsXor_8u}, {vrxsAnd_8u_I, vrxsOr_8u_I, vrxsXor_8u_I},
                       {vrxsAndC_8u, vrxsOrC_8u, vrxsXorC_8u}, {vrxsAndC_8u_I, vrxsOrC_8u_I, vrxsXorC_8u_I},
                       vrxsNot_8u, vrxsNot_8u_I});
    checkLogic<Vrx16u>({{vrxsAnd_16u, vrxsOr_16u, vrxsXor_16u}, {vrxsAnd_16u_I, vrxsOr_16u_I, vrxsXor_16u_I},
                        {vrxsAndC_16u, vrxsOrC_16u, vrxsXorC_16u}, {vrxsAndC_16u_I, vrxsOrC_16u_I, vrxsXorC_16u_I},
                        vrxsNot_16u, vrxsNot_16u_I});
    checkLogic<Vrx32u>({{vrxsAnd_32u, vrxsOr_32u, vrxsXor_32u}, {vrxsAnd_32u_I, vrxsOr_32u_I, vrxsXor_32u_I},
                        {vrxsAndC_32u, vrxsOrC_32u, vrxsXorC_32u}, {vrxsAndC_32u_I, vrxsOrC_32u_I, vrxsXorC_32u_I},
                        vrxsNot_32u, vrxsNot_32u_I});
}

TEST(Logic, ZeroConstantShortcuts) {
    Vrx8u s[4] = {1, 2, 3, 4}, d[4] = {9, 9, 9, 9};
    // And with 0: src tested first, then the fill makes its own checks
    EXPECT_EQ(vrxsAndC_8u(s, 0, nullptr, 4), vrxErrNullPtr);
    EXPECT_EQ(vrxsAndC_8u(nullptr, 0, d, 0), vrxErrNullPtr);
    EXPECT_EQ(vrxsAndC_8u(s, 0, d, 0), vrxErrBadLength);
    EXPECT_EQ(vrxsAndC_8u(s, 0, d, 4), vrxOk);
    for (Vrx8u v : d) EXPECT_EQ(v, 0);
    Vrx32u w[3] = {5, 6, 7};
    EXPECT_EQ(vrxsAndC_32u_I(0, w, 3), vrxOk);
    for (Vrx32u v : w) EXPECT_EQ(v, 0u);
    EXPECT_EQ(vrxsAndC_16u_I(0, nullptr, 3), vrxErrNullPtr);
    // Or and Xor with 0 copy
    Vrx16u a[3] = {1, 0x8000, 0xFFFF}, b[3] = {};
    EXPECT_EQ(vrxsOrC_16u(a, 0, b, 3), vrxOk);
    EXPECT_EQ(b[1], 0x8000);
    EXPECT_EQ(vrxsXorC_16u(a, 0, b, -1), vrxErrBadLength);
    EXPECT_EQ(vrxsXorC_16u(nullptr, 0, b, -1), vrxErrNullPtr);
}

// ------------------------------------------------------------------ shifts
template <class T>
struct ShiftFns {
    VrxStatus (*l)(const T*, int, T*, int);
    VrxStatus (*lI)(int, T*, int);
    VrxStatus (*r)(const T*, int, T*, int);
    VrxStatus (*rI)(int, T*, int);
};

template <class T>
T refShift(T x, int c, bool left) {
    constexpr int w = 8 * sizeof(T);
    using U = std::make_unsigned_t<T>;
    if (left) return c >= w ? T(0) : static_cast<T>(static_cast<U>(x) << c);
    if (std::is_signed_v<T>) return static_cast<T>(x >> (c >= w ? w - 1 : c));
    return c >= w ? T(0) : static_cast<T>(x >> c);
}

template <class T>
void checkShifts(const ShiftFns<T>& f) {
    vt::Rng rng(3 * sizeof(T));
    constexpr int w = 8 * sizeof(T);
    std::vector<int> lens;
    for (int len = 1; len <= 70; len += 3) lens.push_back(len);
    for (int len : {129, 200, 333}) lens.push_back(len);
    for (int len : lens) {
        vt::Buffer a(len * sizeof(T), 2 * (len & 1)), d(len * sizeof(T), 4 * (len & 2));
        auto x = randomVec<T>(rng, len);
        memcpy(a.data(), x.data(), len * sizeof(T));
        for (int c : {0, 1, 3, w / 2, w - 1, w, w + 5, 1000}) {
            ASSERT_EQ(f.l(a.as<T>(), c, d.as<T>(), len), vrxOk);
            for (int i = 0; i < len; ++i) ASSERT_EQ(d.as<T>()[i], refShift(x[i], c, true)) << c;
            ASSERT_EQ(f.r(a.as<T>(), c, d.as<T>(), len), vrxOk);
            for (int i = 0; i < len; ++i) ASSERT_EQ(d.as<T>()[i], refShift(x[i], c, false)) << c;
            memcpy(d.data(), x.data(), len * sizeof(T));
            ASSERT_EQ(f.lI(c, d.as<T>(), len), vrxOk);
            for (int i = 0; i < len; ++i) ASSERT_EQ(d.as<T>()[i], refShift(x[i], c, true)) << c;
            memcpy(d.data(), x.data(), len * sizeof(T));
            ASSERT_EQ(f.rI(c, d.as<T>(), len), vrxOk);
            for (int i = 0; i < len; ++i) ASSERT_EQ(d.as<T>()[i], refShift(x[i], c, false)) << c;
        }
        ASSERT_TRUE(d.guardsIntact());
    }
}

TEST(Shift, EveryTypeAgainstScalar) {
    checkShifts<Vrx8u>({vrxsLShiftC_8u, vrxsLShiftC_8u_I, vrxsRShiftC_8u, vrxsRShiftC_8u_I});
    checkShifts<Vrx16u>({vrxsLShiftC_16u, vrxsLShiftC_16u_I, vrxsRShiftC_16u, vrxsRShiftC_16u_I});
    checkShifts<Vrx16s>({vrxsLShiftC_16s, vrxsLShiftC_16s_I, vrxsRShiftC_16s, vrxsRShiftC_16s_I});
    checkShifts<Vrx32s>({vrxsLShiftC_32s, vrxsLShiftC_32s_I, vrxsRShiftC_32s, vrxsRShiftC_32s_I});
}

TEST(Shift, ShortcutAndCheckOrder) {
    Vrx8u b[3] = {1, 2, 3}, d[3] = {7, 7, 7};
    // count 0 forwards to the copy, which checks for itself
    EXPECT_EQ(vrxsLShiftC_8u(nullptr, 0, d, 3), vrxErrNullPtr);
    EXPECT_EQ(vrxsLShiftC_8u(b, 0, d, 0), vrxErrBadLength);
    // count of the width: src first, then the fill on dst
    EXPECT_EQ(vrxsLShiftC_8u(nullptr, 8, d, 3), vrxErrNullPtr);
    EXPECT_EQ(vrxsLShiftC_8u(b, 8, nullptr, 3), vrxErrNullPtr);
    EXPECT_EQ(vrxsLShiftC_8u(b, 9, d, 0), vrxErrBadLength);
    EXPECT_EQ(vrxsRShiftC_16u_I(16, nullptr, 1), vrxErrNullPtr);
    // a negative count is only reported once pointers and length pass
    EXPECT_EQ(vrxsLShiftC_16s(nullptr, -1, reinterpret_cast<Vrx16s*>(d), 1), vrxErrNullPtr);
    EXPECT_EQ(vrxsRShiftC_32s(reinterpret_cast<Vrx32s*>(d), -4, reinterpret_cast<Vrx32s*>(d), 0), vrxErrBadLength);
    EXPECT_EQ(vrxsRShiftC_16s_I(-1, nullptr, 4), vrxErrNullPtr);
    EXPECT_EQ(vrxsRShiftC_16s_I(-1, reinterpret_cast<Vrx16s*>(d), 0), vrxErrBadLength);
    EXPECT_EQ(vrxsRShiftC_8u_I(-2, d, 3), vrxErrShift);
    // in place, count 0 succeeds after the checks and changes nothing
    EXPECT_EQ(vrxsLShiftC_8u_I(0, nullptr, 3), vrxErrNullPtr);
    EXPECT_EQ(vrxsLShiftC_8u_I(0, d, 0), vrxErrBadLength);
    EXPECT_EQ(vrxsLShiftC_8u_I(0, d, 3), vrxOk);
    // signed right shift: count 0 copies, large counts spread the sign
    EXPECT_EQ(vrxsRShiftC_32s(nullptr, 0, reinterpret_cast<Vrx32s*>(d), 0), vrxErrNullPtr);
    EXPECT_EQ(vrxsRShiftC_16s(nullptr, 40, reinterpret_cast<Vrx16s*>(d), 1), vrxErrNullPtr);
    for (Vrx8u v : d) EXPECT_EQ(v, 7);
}

// Vectors of several MiB take the streaming-store path: in place and out of
// place, from misaligned pointers, the results stay those of the scalar rule.
TEST(Logic, LargeVectorsInPlaceAndMisaligned) {
    const int n = (17 << 20) / 2 + 7;  // 32 MiB or more moved: streaming stores
    vt::Rng rng(99);
    auto x = randomVec<Vrx16u>(rng, n), y = randomVec<Vrx16u>(rng, n);
    for (size_t off : {0, 2, 6}) {
        vt::Buffer d(n * sizeof(Vrx16u), off);
        Vrx16u* p = d.as<Vrx16u>();
        memcpy(p, y.data(), n * sizeof(Vrx16u));
        ASSERT_EQ(vrxsXor_16u_I(x.data(), p, n), vrxOk);
        for (int i = 0; i < n; ++i) ASSERT_EQ(p[i], x[i] ^ y[i]) << i;
        ASSERT_EQ(vrxsXorC_16u_I(0x5AA5, p, n), vrxOk);
        for (int i = 0; i < n; ++i) ASSERT_EQ(p[i], (x[i] ^ y[i] ^ 0x5AA5)) << i;
        ASSERT_EQ(vrxsAndC_16u(x.data(), 0x0FF0, p, n), vrxOk);
        for (int i = 0; i < n; ++i) ASSERT_EQ(p[i], x[i] & 0x0FF0) << i;
        ASSERT_TRUE(d.guardsIntact());
    }
}

}  // namespace
