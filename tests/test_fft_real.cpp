// Real transforms and packed spectra: round trips in every form, flag and
// placement around the table switches, constants, closed-form tones at the
// largest tested order, the products of packed spectra.
#include <math.h>

#include <algorithm>

#include "test_fft_common.h"

namespace {

using namespace ft;

// X[k], k = 0 .. N/2, read from a packed array by the layout's definition.
template <class T> CLD packedAt(Form f, const T* p, size_t n, size_t k) {
    if (k == 0) return CLD(p[0], 0);
    if (2 * k == n) return CLD(f == kCCS ? p[n] : f == kPack ? p[n - 1] : p[1], 0);
    return f == kPack ? CLD(p[2 * k - 1], p[2 * k]) : CLD(p[2 * k], p[2 * k + 1]);
}

// Forward then inverse restores the input (times N when no direction
// scales) for each flag, form and placement; all forms and placements carry
// the same spectrum bits; sources and guards stay untouched. A constant
// gives R(0) = N * value and exact zeros elsewhere in every form.
template <class T> void roundTrips(std::initializer_list<int> orders) {
    for (int order : orders) {
        const size_t n = size_t(1) << order;
        vt::Rng rng(order);
        std::vector<T> x(n);
        for (auto& v : x) v = static_cast<T>(rng.uniform() * 2 - 1);
        for (int flag : {vrxFftScaleFwd, vrxFftScaleInv, vrxFftScaleSqrt, vrxFftScaleNone}) {
            PlanMem m;
            auto* p = makePlan(Api<T>::kr(), order, flag, m, 8);
            ASSERT_NE(p, nullptr);
            std::vector<CLD> first;
            for (Form f : {kPerm, kCCS, kPack}) {
                // a constant gives R(0) = N * value and exact zeros elsewhere
                std::vector<T> c(n, T(0.75)), d(packedLen(f, n), T(9));
                ASSERT_EQ(realCall<T>(false, f, c.data(), d.data(), p, m.workPtr()), vrxOk);
                const T dc = flag == vrxFftScaleFwd ? T(0.75) : flag == vrxFftScaleSqrt ? d[0] : T(0.75) * T(n);
                EXPECT_TRUE(d[0] == dc && std::count(d.begin() + 1, d.end(), T(0)) == std::ptrdiff_t(d.size() - 1)) << order << " " << f;
                for (bool inPlace : {false, true}) {
                    const size_t len = packedLen(f, n);
                    vt::Buffer src(n * sizeof(T), 8), freq(len * sizeof(T), 24), out(n * sizeof(T), 40);
                    T* io = inPlace ? freq.as<T>() : src.as<T>();
                    memcpy(io, x.data(), n * sizeof(T));
                    ASSERT_EQ(realCall<T>(false, f, inPlace ? nullptr : io, freq.as<T>(), p, m.workPtr()), vrxOk);
                    std::vector<CLD> X(n / 2 + 1);
                    for (size_t k = 0; k <= n / 2; ++k) X[k] = packedAt(f, freq.as<T>(), n, k);
                    if (first.empty()) first = X;
                    EXPECT_TRUE(X == first) << order << " " << f << " " << inPlace;
                    std::vector<T> keep(freq.as<T>(), freq.as<T>() + len);
                    ASSERT_EQ(realCall<T>(true, f, inPlace ? nullptr : freq.as<T>(), inPlace ? freq.as<T>() : out.as<T>(), p, m.workPtr()), vrxOk);
                    if (!inPlace) {
                        EXPECT_TRUE(std::equal(keep.begin(), keep.end(), freq.as<T>()) && std::equal(x.begin(), x.end(), src.as<T>()));
                    }
                    const T* r = inPlace ? freq.as<T>() : out.as<T>();
                    EXPECT_LT(relRmsReal(r, x, flag == vrxFftScaleNone ? LD(n) : 1), 2 * bound<T>(order))
                        << order << " " << flag << " " << f << " " << inPlace;
                    EXPECT_TRUE(src.guardsIntact() && freq.guardsIntact() && out.guardsIntact() && m.spec->guardsIntact() && (!m.work || m.work->guardsIntact()));
                }
            }
        }
    }
}
TEST(FftRealRoundTrip, AroundTheSwitches) {
    roundTrips<float>({0, 1, 2, 3, 4, 5, 7, 8, 18, 19});
    roundTrips<double>({0, 1, 2, 4, 5, 7, 8, 16, 17});
}

// At order 22 single the spectrum of whole-period tones is known in closed
// form: N/2 * amplitude * exp(i*phase) at each tone, zero elsewhere.
TEST(FftRealAccuracy, SingleTonesAtOrder22) {
    const int order = 22;
    const size_t n = size_t(1) << order;
    const struct { size_t f; LD a, ph; } tones[] = {{1, 0.5L, 0.3L}, {777, 0.25L, -1.1L}, {n / 4, 0.125L, 2.0L}, {n / 2 - 3, 0.1L, 0.7L}};
    std::vector<float> s(n), d(n + 2), r(n);
    const LD w = 2 * 3.14159265358979323846264338327950288L / LD(n);
    for (size_t i = 0; i < n; ++i) {
        LD v = 0;
        for (auto& t : tones) v += t.a * cosl(w * LD((t.f * i) % n) + t.ph);
        s[i] = static_cast<float>(v);
    }
    PlanMem m;
    auto* p = makePlan(kR32f, order, vrxFftScaleNone, m);
    ASSERT_EQ(vrxsFFTFwd_RToCCS_32f(s.data(), d.data(), p, m.workPtr()), vrxOk);
    std::vector<CLD> y(n / 2 + 1), ref(n / 2 + 1);
    for (size_t k = 0; k <= n / 2; ++k) y[k] = CLD(d[2 * k], d[2 * k + 1]);
    for (auto& t : tones) ref[t.f] = LD(n) / 2 * t.a * CLD(cosl(t.ph), sinl(t.ph));
    EXPECT_LT(relRms(y, ref), bound<float>(order));
    ASSERT_EQ(vrxsFFTInv_CCSToR_32f(d.data(), r.data(), p, m.workPtr()), vrxOk);
    EXPECT_LT(relRmsReal(r.data(), s, LD(n)), 2 * bound<float>(order));
    EXPECT_TRUE(m.spec->guardsIntact() && m.init->guardsIntact());
}

// ------------------------------------------------------------ packed operations

template <class T> struct Packed;
template <> struct Packed<float> {
    static constexpr auto pack = vrxsMulPack_32f, packI = vrxsMulPack_32f_I, perm = vrxsMulPerm_32f;
    static constexpr auto permI = vrxsMulPerm_32f_I, conjI = vrxsMulPackConj_32f_I;
};
template <> struct Packed<double> {
    static constexpr auto pack = vrxsMulPack_64f, packI = vrxsMulPack_64f_I, perm = vrxsMulPerm_64f;
    static constexpr auto permI = vrxsMulPerm_64f_I, conjI = vrxsMulPackConj_64f_I;
};

// Product by the layout: lone reals at 0 and (even len) at len-1 (Pack) or
// 1 (Perm), complex pairs after; conjB takes the conjugate of b.
template <class T> std::vector<T> productRef(Form f, const std::vector<T>& a, const std::vector<T>& b, bool conjB) {
    const size_t n = a.size(), even = n % 2 == 0, r = f == kPerm ? 1 : n - 1, first = even && f == kPerm ? 2 : 1;
    std::vector<T> d(n);
    d[0] = a[0] * b[0];
    if (even) d[r] = a[r] * b[r];
    for (size_t i = 0, j = first; i < (n - 1) / 2; ++i, j += 2) {
        const T ar = a[j], ai = a[j + 1], br = b[j], bi = b[j + 1];
        d[j] = conjB ? ar * br + ai * bi : ar * br - ai * bi;
        d[j + 1] = conjB ? ai * br - ar * bi : ar * bi + ai * br;
    }
    return d;
}

// Pack and Perm products at every length 1..70, against the layout's
// definition: a separate destination, either source as the destination,
// one array for all three, and MulPackConj with its two operands one
// array.
template <class T> void productAliasing() {
    using P = Packed<T>;
    vt::Rng rng(31);
    for (int len = 1; len <= 70; ++len) {
        std::vector<T> a(len), b(len);
        for (auto& v : a) v = static_cast<T>(rng.uniform() * 4 - 2);
        for (auto& v : b) v = static_cast<T>(rng.uniform() * 4 - 2);
        for (Form f : {kPack, kPerm}) {
            auto op = f == kPack ? P::pack : P::perm;
            std::vector<T> d0(len), d1(a), d2(b), d3(b), d4(a);
            ASSERT_EQ(op(a.data(), b.data(), d0.data(), len), vrxOk);
            ASSERT_EQ(op(d1.data(), b.data(), d1.data(), len), vrxOk);
            ASSERT_EQ(op(a.data(), d2.data(), d2.data(), len), vrxOk);
            ASSERT_EQ((f == kPack ? P::packI : P::permI)(a.data(), d3.data(), len), vrxOk);
            ASSERT_EQ(op(d4.data(), d4.data(), d4.data(), len), vrxOk);
            const auto ref = productRef(f, a, b, false);
            EXPECT_TRUE(d0 == ref && d1 == ref && d2 == ref && d3 == ref) << f << " " << len;
            EXPECT_EQ(d4, productRef(f, a, a, false)) << f << " " << len;
        }
        std::vector<T> c(b), c2(a);
        ASSERT_EQ(P::conjI(a.data(), c.data(), len), vrxOk);
        ASSERT_EQ(P::conjI(c2.data(), c2.data(), len), vrxOk);
        EXPECT_EQ(c, productRef(kPack, a, b, true)) << len;
        EXPECT_EQ(c2, productRef(kPack, a, a, true)) << len;
    }
}
TEST(FftRealPacked, ProductAliasing) {
    productAliasing<float>();
    productAliasing<double>();
}

}  // namespace
