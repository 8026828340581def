// Real transforms and packed spectra: exact layouts, round trips in every
// form and placement around the table switches, accuracy in the two-level
// range, products and expansions against scalar references.
#include <math.h>

#include "test_fft_common.h"

namespace {

using namespace ft;

enum Form { kCCS, kPack, kPerm };
constexpr int kFlags[4] = {vrxFftScaleFwd, vrxFftScaleInv, vrxFftScaleSqrt, vrxFftScaleNone};

// Reals of a packed spectrum of N points (N a power of two).
size_t packedLen(Form f, size_t n) { return f == kCCS ? (n == 1 ? 2 : n + 2) : n; }

template <class T> VrxStatus fwd(Form f, bool inPlace, const T* s, T* d, const typename Api<T>::PR* p, Vrx8u* w) {
    using A = Api<T>;
    if (inPlace) return f == kCCS ? A::fwdCCSI(d, p, w) : f == kPack ? A::fwdPackI(d, p, w) : A::fwdPermI(d, p, w);
    return f == kCCS ? A::fwdCCS(s, d, p, w) : f == kPack ? A::fwdPack(s, d, p, w) : A::fwdPerm(s, d, p, w);
}
template <class T> VrxStatus inv(Form f, bool inPlace, const T* s, T* d, const typename Api<T>::PR* p, Vrx8u* w) {
    using A = Api<T>;
    if (inPlace) return f == kCCS ? A::invCCSI(d, p, w) : f == kPack ? A::invPackI(d, p, w) : A::invPermI(d, p, w);
    return f == kCCS ? A::invCCS(s, d, p, w) : f == kPack ? A::invPack(s, d, p, w) : A::invPerm(s, d, p, w);
}

// X[k], k = 0 .. N/2, read from a packed array by the layout's definition.
template <class T> CLD packedAt(Form f, const T* p, size_t n, size_t k) {
    if (k == 0) return CLD(p[0], 0);
    if (2 * k == n) return CLD(f == kCCS ? p[n] : f == kPack ? p[n - 1] : p[1], 0);
    if (f == kPack) return CLD(p[2 * k - 1], p[2 * k]);
    return CLD(p[2 * k], p[2 * k + 1]);
}

// ------------------------------------------------------------ layouts

// Small orders against the definition computed here; sums of small
// integers are exact, and the zeros of each form are exact zeros.
template <class T> void smallForms() {
    for (int order = 0; order <= 4; ++order) {
        const size_t n = size_t(1) << order;
        std::vector<CLD> x(n);
        for (size_t i = 0; i < n; ++i) x[i] = CLD(LD(int(i * 7 % 5) - 2), 0);
        const auto X = refDft(x, false);
        for (Form f : {kCCS, kPack, kPerm}) {
            PlanMem m;
            auto* p = makePlan(Api<T>::kr(), order, vrxFftScaleNone, m);
            ASSERT_NE(p, nullptr);
            std::vector<T> s(n), d(packedLen(f, n) + 1, T(77));
            for (size_t i = 0; i < n; ++i) s[i] = static_cast<T>(x[i].real());
            ASSERT_EQ(fwd<T>(f, false, s.data(), d.data(), p, m.workPtr()), vrxOk);
            EXPECT_EQ(d[packedLen(f, n)], T(77)) << "written past the form";
            for (size_t k = 0; k <= n / 2; ++k) {
                CLD v = packedAt(f, d.data(), n, k);
                EXPECT_NEAR(double(v.real()), double(X[k].real()), 1e-5) << order << " " << f << " " << k;
                EXPECT_NEAR(double(v.imag()), double(X[k].imag()), 1e-5) << order << " " << f << " " << k;
            }
            if (f == kCCS) {
                EXPECT_EQ(d[1], T(0));
                EXPECT_EQ(d[packedLen(f, n) - 1], T(0));
            }
        }
    }
}
TEST(FftRealForms, SmallOrdersSingle) { smallForms<float>(); }
TEST(FftRealForms, SmallOrdersDouble) { smallForms<double>(); }

// A constant gives R(0) = N*value and exact zeros elsewhere, at orders on
// both sides of every table switch.
template <class T> void constantInput(std::initializer_list<int> orders) {
    for (int order : orders) {
        const size_t n = size_t(1) << order;
        PlanMem m;
        auto* p = makePlan(Api<T>::kr(), order, vrxFftScaleNone, m);
        ASSERT_NE(p, nullptr);
        std::vector<T> s(n, T(0.75));
        for (Form f : {kCCS, kPack, kPerm}) {
            std::vector<T> d(packedLen(f, n), T(9));
            ASSERT_EQ(fwd<T>(f, false, s.data(), d.data(), p, m.workPtr()), vrxOk);
            EXPECT_EQ(d[0], T(0.75) * T(n)) << order;
            size_t bad = 0;
            for (size_t i = 1; i < d.size(); ++i) bad += d[i] != T(0);
            EXPECT_EQ(bad, 0u) << order << " " << f;
        }
    }
}
TEST(FftRealForms, ConstantSingle) { constantInput<float>({0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 18, 19}); }
TEST(FftRealForms, ConstantDouble) { constantInput<double>({0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 16, 17}); }

// ------------------------------------------------------------ round trips

// For each order, flag, form and placement: forward then inverse restores
// the input (times N when neither direction scales), the three forms carry
// the same values, nothing outside the arrays changes.
template <class T> void roundTrips(std::initializer_list<int> orders) {
    for (int order : orders) {
        const size_t n = size_t(1) << order;
        vt::Rng rng(order);
        std::vector<T> x(n);
        for (auto& v : x) v = static_cast<T>(rng.uniform() * 2 - 1);
        for (int flag : kFlags) {
            PlanMem m;
            auto* p = makePlan(Api<T>::kr(), order, flag, m, 8);
            ASSERT_NE(p, nullptr);
            const LD back = flag == vrxFftScaleNone ? LD(n) : 1;
            std::vector<CLD> first;
            for (Form f : {kPerm, kCCS, kPack})
                for (bool inPlace : {false, true}) {
                    const size_t len = packedLen(f, n);
                    vt::Buffer src(n * sizeof(T), 8), dst(len * sizeof(T), 24), out(n * sizeof(T), 40);
                    memcpy(src.as<T>(), x.data(), n * sizeof(T));
                    T* spec = inPlace ? src.as<T>() : dst.as<T>();
                    if (inPlace) {
                        // the in-place array holds the longer form
                        vt::Buffer big(len * sizeof(T), 8);
                        memcpy(big.as<T>(), x.data(), n * sizeof(T));
                        ASSERT_EQ(fwd<T>(f, true, nullptr, big.as<T>(), p, m.workPtr()), vrxOk);
                        memcpy(dst.as<T>(), big.as<T>(), len * sizeof(T));
                        spec = dst.as<T>();
                        EXPECT_TRUE(big.guardsIntact());
                    } else {
                        ASSERT_EQ(fwd<T>(f, false, src.as<T>(), spec, p, m.workPtr()), vrxOk);
                        EXPECT_EQ(memcmp(src.as<T>(), x.data(), n * sizeof(T)), 0) << "source changed";
                    }
                    std::vector<CLD> X(n / 2 + 1);
                    for (size_t k = 0; k <= n / 2; ++k) X[k] = packedAt(f, spec, n, k);
                    if (first.empty()) first = X;
                    else EXPECT_TRUE(X == first) << "forms differ " << order << " " << f << " " << inPlace;
                    std::vector<T> keep(spec, spec + len);
                    T* r;
                    if (inPlace) {
                        ASSERT_EQ(inv<T>(f, true, nullptr, spec, p, m.workPtr()), vrxOk);
                        r = spec;
                    } else {
                        ASSERT_EQ(inv<T>(f, false, spec, out.as<T>(), p, m.workPtr()), vrxOk);
                        EXPECT_TRUE(std::equal(keep.begin(), keep.end(), spec)) << "inverse source changed";
                        r = out.as<T>();
                    }
                    LD num = 0, den = 0;
                    for (size_t i = 0; i < n; ++i) {
                        LD e = LD(r[i]) / back - LD(x[i]);
                        num += e * e;
                        den += LD(x[i]) * LD(x[i]);
                    }
                    EXPECT_LT(sqrtl(num / den), 2 * bound<T>(order)) << order << " " << flag << " " << f << " " << inPlace;
                    EXPECT_TRUE(src.guardsIntact() && dst.guardsIntact() && out.guardsIntact());
                    if (m.work) {
                        EXPECT_TRUE(m.work->guardsIntact());
                    }
                }
        }
    }
}
TEST(FftRealRoundTrip, SingleAroundTheSwitches) { roundTrips<float>({0, 1, 3, 4, 5, 7, 8, 18, 19}); }
TEST(FftRealRoundTrip, DoubleAroundTheSwitches) { roundTrips<double>({0, 2, 4, 5, 7, 8, 16, 17}); }

// ------------------------------------------------------------ accuracy

// Forward against a long-double DFT, inverse of that spectrum against the
// input, at orders of the two-level recombination.
template <class T> void twoLevelAccuracy(std::initializer_list<int> orders) {
    for (int order : orders) {
        const size_t n = size_t(1) << order;
        std::vector<CLD> x = randomSignal(n, 100 + order);
        for (auto& v : x) v = CLD(static_cast<T>(v.real()), 0);
        const auto X = refDft(x, false);
        PlanMem m;
        auto* p = makePlan(Api<T>::kr(), order, vrxFftScaleInv, m, 40);
        ASSERT_NE(p, nullptr);
        std::vector<T> s(n), d(n + 2);
        for (size_t i = 0; i < n; ++i) s[i] = static_cast<T>(x[i].real());
        ASSERT_EQ(Api<T>::fwdCCS(s.data(), d.data(), p, m.workPtr()), vrxOk);
        std::vector<CLD> y(n / 2 + 1), ref(X.begin(), X.begin() + n / 2 + 1);
        for (size_t k = 0; k <= n / 2; ++k) y[k] = CLD(d[2 * k], d[2 * k + 1]);
        EXPECT_LT(relRms(y, ref), bound<T>(order)) << order;
        // the exact spectrum, rounded, back through the inverse
        for (size_t k = 0; k <= n / 2; ++k) {
            d[2 * k] = static_cast<T>(X[k].real());
            d[2 * k + 1] = static_cast<T>(k == 0 || 2 * k == n ? 0 : X[k].imag());
        }
        std::vector<T> r(n);
        ASSERT_EQ(Api<T>::invCCS(d.data(), r.data(), p, m.workPtr()), vrxOk);
        std::vector<CLD> rv(n), xv(n);
        for (size_t i = 0; i < n; ++i) { rv[i] = CLD(r[i], 0); xv[i] = x[i]; }
        EXPECT_LT(relRms(rv, xv), bound<T>(order)) << order;
    }
}
TEST(FftRealAccuracy, SingleTwoLevel) { twoLevelAccuracy<float>({19, 20}); }
TEST(FftRealAccuracy, DoubleTwoLevel) { twoLevelAccuracy<double>({17, 18}); }

// At the top single-precision orders the spectrum of a few whole-period
// tones is known in closed form: N/2 * amplitude * exp(i*phase) at each tone,
// zero elsewhere.
TEST(FftRealAccuracy, SingleTonesAtOrder22) {
    const int order = 22;
    const size_t n = size_t(1) << order;
    const struct { size_t f; LD a, ph; } tones[] = {{1, 0.5L, 0.3L}, {777, 0.25L, -1.1L}, {n / 4, 0.125L, 2.0L}, {n / 2 - 3, 0.1L, 0.7L}};
    std::vector<float> s(n), d(n + 2);
    const LD w = 2 * 3.14159265358979323846264338327950288L / LD(n);
    for (size_t i = 0; i < n; ++i) {
        LD v = 0;
        for (auto& t : tones) v += t.a * cosl(w * LD((t.f * i) % n) + t.ph);
        s[i] = static_cast<float>(v);
    }
    PlanMem m;
    auto* p = makePlan(kR32f, order, vrxFftScaleNone, m);
    ASSERT_NE(p, nullptr);
    ASSERT_EQ(vrxsFFTFwd_RToCCS_32f(s.data(), d.data(), p, m.workPtr()), vrxOk);
    std::vector<CLD> y(n / 2 + 1), ref(n / 2 + 1);
    for (size_t k = 0; k <= n / 2; ++k) y[k] = CLD(d[2 * k], d[2 * k + 1]);
    for (auto& t : tones) ref[t.f] = LD(n) / 2 * t.a * CLD(cosl(t.ph), sinl(t.ph));
    EXPECT_LT(relRms(y, ref), bound<float>(order));
    std::vector<float> r(n);
    ASSERT_EQ(vrxsFFTInv_CCSToR_32f(d.data(), r.data(), p, m.workPtr()), vrxOk);
    LD num = 0, den = 0;
    for (size_t i = 0; i < n; ++i) {
        LD e = LD(r[i]) / LD(n) - LD(s[i]);
        num += e * e;
        den += LD(s[i]) * LD(s[i]);
    }
    EXPECT_LT(sqrtl(num / den), 2 * bound<float>(order));
}

// ------------------------------------------------------------ packed operations

template <class T> struct Packed;
template <> struct Packed<float> {
    using C = Vrx32fc;
    static constexpr auto pack = vrxsMulPack_32f, packI = vrxsMulPack_32f_I;
    static constexpr auto perm = vrxsMulPerm_32f, permI = vrxsMulPerm_32f_I;
    static constexpr auto conjI = vrxsMulPackConj_32f_I;
    static constexpr VrxStatus (*conj[3])(const Vrx32f*, C*, int) = {vrxsConjCcs_32fc, vrxsConjPack_32fc, vrxsConjPerm_32fc};
    static constexpr VrxStatus (*conjIp[3])(C*, int) = {vrxsConjCcs_32fc_I, vrxsConjPack_32fc_I, vrxsConjPerm_32fc_I};
};
template <> struct Packed<double> {
    using C = Vrx64fc;
    static constexpr auto pack = vrxsMulPack_64f, packI = vrxsMulPack_64f_I;
    static constexpr auto perm = vrxsMulPerm_64f, permI = vrxsMulPerm_64f_I;
    static constexpr auto conjI = vrxsMulPackConj_64f_I;
    static constexpr VrxStatus (*conj[3])(const Vrx64f*, C*, int) = {vrxsConjCcs_64fc, vrxsConjPack_64fc, vrxsConjPerm_64fc};
    static constexpr VrxStatus (*conjIp[3])(C*, int) = {vrxsConjCcs_64fc_I, vrxsConjPack_64fc_I, vrxsConjPerm_64fc_I};
};

// Product of two packed arrays by the layout: which positions are lone
// reals, which pairs are complex; conjB multiplies by the conjugate of b.
template <class T> std::vector<T> productRef(Form f, const std::vector<T>& a, const std::vector<T>& b, bool conjB) {
    const size_t n = a.size();
    std::vector<T> d(n);
    d[0] = a[0] * b[0];
    size_t first = 1;
    if (n % 2 == 0) {
        const size_t r = f == kPerm ? 1 : n - 1;
        d[r] = a[r] * b[r];
        if (f == kPerm) first = 2;
    }
    const size_t pairs = n % 2 ? (n - 1) / 2 : (n - 2) / 2;
    for (size_t i = 0; i < pairs; ++i) {
        const size_t j = first + 2 * i;
        const T ar = a[j], ai = a[j + 1], br = b[j], bi = b[j + 1];
        if (!conjB) { d[j] = ar * br - ai * bi; d[j + 1] = ar * bi + ai * br; }
        else { d[j] = ar * br + ai * bi; d[j + 1] = ai * br - ar * bi; }
    }
    return d;
}

// Every aliasing of MulPack and MulPerm gives the reference: distinct
// arrays, either source as the destination, both sources and destination
// one array; MulPackConj conjugates its destination operand.
template <class T> void products() {
    using P = Packed<T>;
    vt::Rng rng(31);
    for (int len = 1; len <= 41; ++len) {
        std::vector<T> a(len), b(len);
        for (auto& v : a) v = static_cast<T>(rng.uniform() * 4 - 2);
        for (auto& v : b) v = static_cast<T>(rng.uniform() * 4 - 2);
        for (Form f : {kPack, kPerm}) {
            auto op = f == kPack ? P::pack : P::perm;
            auto opI = f == kPack ? P::packI : P::permI;
            const auto ref = productRef(f, a, b, false);
            const auto sq = productRef(f, a, a, false);
            std::vector<T> d(len, T(5)), d1(a), d2(b), d3(b), d4(a);
            ASSERT_EQ(op(a.data(), b.data(), d.data(), len), vrxOk);
            ASSERT_EQ(op(d1.data(), b.data(), d1.data(), len), vrxOk);
            ASSERT_EQ(op(a.data(), d2.data(), d2.data(), len), vrxOk);
            ASSERT_EQ(opI(a.data(), d3.data(), len), vrxOk);
            ASSERT_EQ(op(d4.data(), d4.data(), d4.data(), len), vrxOk);
            EXPECT_EQ(d, ref) << f << " " << len;
            EXPECT_EQ(d1, ref) << f << " " << len;
            EXPECT_EQ(d2, ref) << f << " " << len;
            EXPECT_EQ(d3, ref) << f << " " << len;
            EXPECT_EQ(d4, sq) << f << " " << len;
        }
        std::vector<T> c(b), c2(a);
        ASSERT_EQ(P::conjI(a.data(), c.data(), len), vrxOk);
        EXPECT_EQ(c, productRef(kPack, a, b, true)) << len;
        ASSERT_EQ(P::conjI(c2.data(), c2.data(), len), vrxOk);
        EXPECT_EQ(c2, productRef(kPack, a, a, true)) << len;
    }
}
TEST(FftRealPacked, ProductsSingle) { products<float>(); }
TEST(FftRealPacked, ProductsDouble) { products<double>(); }

// Statuses: a source equal to the destination forwards to the in-place form
// before any null test; then null pointers, then the length.
template <class T> void packedChecks() {
    using P = Packed<T>;
    T v[8] = {};
    typename P::C c[4] = {};
    const struct { VrxStatus got, want; } rows[] = {
        {P::pack(nullptr, v, v, 0), vrxErrNullPtr},
        {P::pack(v + 1, v, v, 0), vrxErrBadLength},
        {P::pack(v, nullptr, nullptr, 3), vrxErrNullPtr},
        {P::pack(nullptr, v, v + 2, -1), vrxErrNullPtr},
        {P::pack(v, v + 2, v + 4, 0), vrxErrBadLength},
        {P::perm(v, v + 2, v, -3), vrxErrBadLength},
        {P::perm(v, v + 2, nullptr, 2), vrxErrNullPtr},
        {P::permI(v, nullptr, 0), vrxErrNullPtr},
        {P::conjI(nullptr, v, 2), vrxErrNullPtr},
        {P::conjI(v, v + 2, 0), vrxErrBadLength},
        {P::conj[1](reinterpret_cast<T*>(c), c, 0), vrxErrBadLength},
        {P::conj[0](nullptr, c, 0), vrxErrNullPtr},
        {P::conj[2](v, nullptr, 1), vrxErrNullPtr},
        {P::conjIp[0](nullptr, 1), vrxErrNullPtr},
        {P::conjIp[1](c, -2), vrxErrBadLength},
    };
    int i = 0;
    for (auto& r : rows) EXPECT_EQ(r.got, r.want) << "row " << i++;
}
TEST(FftRealPacked, ChecksSingle) { packedChecks<float>(); }
TEST(FftRealPacked, ChecksDouble) { packedChecks<double>(); }

// Expansion to the full spectrum: out-of-place against the definition, and
// the in-place form (working from the end) gives the same bits.
template <class T> void expansions() {
    using P = Packed<T>;
    using C = typename P::C;
    vt::Rng rng(77);
    for (Form f : {kCCS, kPack, kPerm})
        for (int n = 1; n <= 70; ++n) {
            const size_t len = f == kCCS ? 2 * size_t(n / 2) + 2 : size_t(n);
            std::vector<T> p(len);
            for (auto& v : p) v = static_cast<T>(rng.uniform() - 0.5);
            if (f == kCCS) { p[1] = 0; if (n % 2 == 0) p[n + 1] = 0; }
            vt::Buffer out(n * sizeof(C), 8), io(n * sizeof(C), 16);
            ASSERT_EQ(P::conj[f](p.data(), out.as<C>(), n), vrxOk);
            memcpy(io.data(), p.data(), std::min(len, 2 * size_t(n)) * sizeof(T));
            ASSERT_EQ(P::conjIp[f](io.as<C>(), n), vrxOk);
            for (int k = 0; k < n; ++k) {
                size_t h = size_t(k <= n / 2 ? k : n - k);
                CLD want;
                if (f == kPerm && n % 2) want = packedAt(kPack, p.data(), n, h);
                else want = packedAt(f, p.data(), n, h);
                if (size_t(k) != h) want = std::conj(want);
                const C o = out.as<C>()[k], q = io.as<C>()[k];
                EXPECT_EQ(o.re, T(want.real())) << f << " " << n << " " << k;
                EXPECT_EQ(o.im, T(want.imag())) << f << " " << n << " " << k;
                EXPECT_EQ(memcmp(&o, &q, sizeof(C)), 0) << "in place " << f << " " << n << " " << k;
            }
            EXPECT_TRUE(out.guardsIntact() && io.guardsIntact());
        }
}
TEST(FftRealPacked, ExpansionsSingle) { expansions<float>(); }
TEST(FftRealPacked, ExpansionsDouble) { expansions<double>(); }

}  // namespace
