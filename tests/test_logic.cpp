// Bitwise logic and constant shifts: every form of every type against a
// scalar rule at every tail length with misaligned pointers, the streaming
// path of long vectors, and the shortcuts that stand before the general
// argument checks.
#include "vrx_test.h"

namespace {

// All len results of d against rule(i).
template <class T, class R> ::testing::AssertionResult each(const T* d, int len, R rule) {
    for (int i = 0; i < len; ++i)
        if (d[i] != rule(i)) return ::testing::AssertionFailure() << "len " << len << " at " << i << ": " << +d[i] << " vs " << +rule(i);
    return ::testing::AssertionSuccess();
}

template <class T> T op(int k, T a, T b) { return static_cast<T>(k == 0 ? (a & b) : k == 1 ? (a | b) : (a ^ b)); }

// [k] = And, Or, Xor; each form out of place, in place, with a constant and both.
template <class T, class VV, class VVI, class VC, class VCI>
void checkLogic(const VV (&vv)[3], const VVI (&vvI)[3], const VC (&vc)[3], const VCI (&vcI)[3],
                VrxStatus (*nt)(const T*, T*, int), VrxStatus (*ntI)(T*, int)) {
    vt::Rng rng(sizeof(T));
    for (int len = 1; len <= 70; ++len) {
        const size_t off = static_cast<size_t>(len % 7) * sizeof(T) / 2 * 2 + (sizeof(T) == 1);
        vt::Buffer a(len * sizeof(T), off), b(len * sizeof(T), (off + 3) & ~(sizeof(T) - 1)), d(len * sizeof(T), off);
        rng.fill(a.data(), len * sizeof(T));
        rng.fill(b.data(), len * sizeof(T));
        const T* x = a.as<T>();
        const T* y = b.as<T>();
        T* o = d.as<T>();
        const T c = static_cast<T>(rng.next() | 1);
        for (int k = 0; k < 3; ++k) {
            ASSERT_EQ(vv[k](x, y, o, len), vrxOk);
            ASSERT_TRUE(each(o, len, [&](int i) { return op(k, x[i], y[i]); })) << k;
            ASSERT_EQ(vc[k](x, c, o, len), vrxOk);
            ASSERT_TRUE(each(o, len, [&](int i) { return op(k, x[i], c); })) << k;
            memcpy(o, y, len * sizeof(T));
            ASSERT_EQ(vvI[k](x, o, len), vrxOk);
            ASSERT_EQ(vcI[k](c, o, len), vrxOk);
            ASSERT_TRUE(each(o, len, [&](int i) { return op(k, op(k, x[i], y[i]), c); })) << k;
        }
        ASSERT_EQ(nt(x, o, len), vrxOk);
        ASSERT_TRUE(each(o, len, [&](int i) { return static_cast<T>(~x[i]); }));
        ASSERT_EQ(ntI(o, len), vrxOk);
        ASSERT_TRUE(each(o, len, [&](int i) { return x[i]; }));
        ASSERT_TRUE(d.guardsIntact() && a.guardsIntact() && b.guardsIntact());
    }
}

TEST(Logic, EveryFormEveryTypeAgainstScalar) {
    checkLogic<Vrx8u>({vrxsAnd_8u, vrxsOr_8u, vrxsXor_8u}, {vrxsAnd_8u_I, vrxsOr_8u_I, vrxsXor_8u_I},
                      {vrxsAndC_8u, vrxsOrC_8u, vrxsXorC_8u}, {vrxsAndC_8u_I, vrxsOrC_8u_I, vrxsXorC_8u_I}, vrxsNot_8u,
                      vrxsNot_8u_I);
    checkLogic<Vrx16u>({vrxsAnd_16u, vrxsOr_16u, vrxsXor_16u}, {vrxsAnd_16u_I, vrxsOr_16u_I, vrxsXor_16u_I},
                       {vrxsAndC_16u, vrxsOrC_16u, vrxsXorC_16u}, {vrxsAndC_16u_I, vrxsOrC_16u_I, vrxsXorC_16u_I},
                       vrxsNot_16u, vrxsNot_16u_I);
    checkLogic<Vrx32u>({vrxsAnd_32u, vrxsOr_32u, vrxsXor_32u}, {vrxsAnd_32u_I, vrxsOr_32u_I, vrxsXor_32u_I},
                       {vrxsAndC_32u, vrxsOrC_32u, vrxsXorC_32u}, {vrxsAndC_32u_I, vrxsOrC_32u_I, vrxsXorC_32u_I},
                       vrxsNot_32u, vrxsNot_32u_I);
}

// Vectors of several MiB take the streaming-store path, in place and out of
// place, from misaligned pointers.
TEST(Logic, LargeVectorsInPlaceAndMisaligned) {
    const int n = (17 << 20) / 2 + 7;
    vt::Rng rng(99);
    std::vector<Vrx16u> x(n), y(n);
    rng.fill(x.data(), n * 2);
    rng.fill(y.data(), n * 2);
    for (size_t off : {0, 2, 6}) {
        vt::Buffer d(n * sizeof(Vrx16u), off);
        Vrx16u* p = d.as<Vrx16u>();
        memcpy(p, y.data(), n * sizeof(Vrx16u));
        ASSERT_EQ(vrxsXor_16u_I(x.data(), p, n), vrxOk);
        ASSERT_EQ(vrxsXorC_16u_I(0x5AA5, p, n), vrxOk);
        ASSERT_TRUE(each(p, n, [&](int i) { return Vrx16u(x[i] ^ y[i] ^ 0x5AA5); }));
        ASSERT_EQ(vrxsAndC_16u(x.data(), 0x0FF0, p, n), vrxOk);
        ASSERT_TRUE(each(p, n, [&](int i) { return Vrx16u(x[i] & 0x0FF0); }));
        ASSERT_TRUE(d.guardsIntact());
    }
}

// ------------------------------------------------------------------ shifts
// Left: zero from the width on; right: logical likewise, arithmetic spreads
// the sign.
template <class T> T refShift(T x, int c, bool left) {
    constexpr int w = 8 * sizeof(T);
    if (left) return c >= w ? T(0) : static_cast<T>(static_cast<std::make_unsigned_t<T>>(x) << c);
    if (std::is_signed_v<T>) return static_cast<T>(x >> (c >= w ? w - 1 : c));
    return c >= w ? T(0) : static_cast<T>(x >> c);
}

template <class T>
void checkShifts(VrxStatus (*l)(const T*, int, T*, int), VrxStatus (*lI)(int, T*, int), VrxStatus (*r)(const T*, int, T*, int),
                 VrxStatus (*rI)(int, T*, int)) {
    vt::Rng rng(3 * sizeof(T));
    constexpr int w = 8 * sizeof(T);
    for (int len = 1; len <= 340; len += len < 70 ? 3 : 67) {
        vt::Buffer a(len * sizeof(T), 2 * (len & 1)), d(len * sizeof(T), 4 * (len & 2));
        rng.fill(a.data(), len * sizeof(T));
        const T* x = a.as<T>();
        T* o = d.as<T>();
        for (int c : {0, 1, 3, w / 2, w - 1, w, w + 5, 1000})
            for (bool left : {true, false}) {
                auto rule = [&](int i) { return refShift(x[i], c, left); };
                ASSERT_EQ((left ? l : r)(x, c, o, len), vrxOk);
                ASSERT_TRUE(each(o, len, rule)) << "count " << c << " left " << left;
                memcpy(o, x, len * sizeof(T));
                ASSERT_EQ((left ? lI : rI)(c, o, len), vrxOk);
                ASSERT_TRUE(each(o, len, rule)) << "in place, count " << c << " left " << left;
            }
        ASSERT_TRUE(d.guardsIntact());
    }
}

TEST(Shift, EveryTypeAgainstScalar) {
    checkShifts<Vrx8u>(vrxsLShiftC_8u, vrxsLShiftC_8u_I, vrxsRShiftC_8u, vrxsRShiftC_8u_I);
    checkShifts<Vrx16u>(vrxsLShiftC_16u, vrxsLShiftC_16u_I, vrxsRShiftC_16u, vrxsRShiftC_16u_I);
    checkShifts<Vrx16s>(vrxsLShiftC_16s, vrxsLShiftC_16s_I, vrxsRShiftC_16s, vrxsRShiftC_16s_I);
    checkShifts<Vrx32s>(vrxsLShiftC_32s, vrxsLShiftC_32s_I, vrxsRShiftC_32s, vrxsRShiftC_32s_I);
}

// ------------------------------------------------------------- shortcuts
// A zero constant and a count of 0 or of the width forward to the copy or
// the fill, which check for themselves; a negative count is reported only
// once pointers and length pass. Nothing is written on failure.
TEST(LogicShift, ShortcutsAndCheckOrder) {
    Vrx8u s[4] = {1, 2, 3, 4}, d[4] = {9, 9, 9, 9}, e[4] = {7, 7, 7, 7};
    Vrx16u a[3] = {1, 0x8000, 0xFFFF}, b[3] = {};
    Vrx32u w[3] = {5, 6, 7};
    auto* e16 = reinterpret_cast<Vrx16s*>(e);
    auto* e32 = reinterpret_cast<Vrx32s*>(e);
    struct Row { VrxStatus got, want; };
    const Row rows[] = {
        {vrxsAndC_8u(s, 0, nullptr, 4), vrxErrNullPtr}, {vrxsAndC_8u(nullptr, 0, d, 0), vrxErrNullPtr}, {vrxsAndC_8u(s, 0, d, 0), vrxErrBadLength},
        {vrxsAndC_16u_I(0, nullptr, 3), vrxErrNullPtr}, {vrxsXorC_16u(a, 0, b, -1), vrxErrBadLength}, {vrxsXorC_16u(nullptr, 0, b, -1), vrxErrNullPtr},
        {vrxsLShiftC_8u(nullptr, 0, e, 3), vrxErrNullPtr}, {vrxsLShiftC_8u(s, 0, e, 0), vrxErrBadLength}, {vrxsLShiftC_8u(nullptr, 8, e, 3), vrxErrNullPtr},
        {vrxsLShiftC_8u(s, 8, nullptr, 3), vrxErrNullPtr}, {vrxsLShiftC_8u(s, 9, e, 0), vrxErrBadLength}, {vrxsRShiftC_16u_I(16, nullptr, 1), vrxErrNullPtr},
        {vrxsLShiftC_16s(nullptr, -1, e16, 1), vrxErrNullPtr}, {vrxsRShiftC_32s(e32, -4, e32, 0), vrxErrBadLength}, {vrxsRShiftC_16s_I(-1, nullptr, 4), vrxErrNullPtr},
        {vrxsRShiftC_16s_I(-1, e16, 0), vrxErrBadLength}, {vrxsRShiftC_8u_I(-2, e, 3), vrxErrShift}, {vrxsLShiftC_8u_I(0, nullptr, 3), vrxErrNullPtr},
        {vrxsLShiftC_8u_I(0, e, 0), vrxErrBadLength}, {vrxsLShiftC_8u_I(0, e, 3), vrxOk}, {vrxsRShiftC_32s(nullptr, 0, e32, 0), vrxErrNullPtr},
        {vrxsRShiftC_16s(nullptr, 40, e16, 1), vrxErrNullPtr}, {vrxsAndC_8u(s, 0, d, 4), vrxOk}, {vrxsAndC_32u_I(0, w, 3), vrxOk},
        {vrxsOrC_16u(a, 0, b, 3), vrxOk},
    };
    for (size_t i = 0; i < sizeof rows / sizeof rows[0]; ++i) EXPECT_EQ(rows[i].got, rows[i].want) << "row " << i;
    for (Vrx8u v : e) EXPECT_EQ(v, 7);
    for (Vrx8u v : d) EXPECT_EQ(v, 0);
    for (Vrx32u v : w) EXPECT_EQ(v, 0u);
    EXPECT_EQ(vt::vec(b, 3), vt::vec(a, 3));
}

}  // namespace
