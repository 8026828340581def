// FFT plans and packed spectra: the size figures of every order of every
// kind, the checks and their order, what a failed call leaves, the packed
// layouts at the smallest orders and the products and expansions of packed
// spectra.
#include "test_fft_common.h"

using namespace ft;

namespace {

constexpr int kFlags[] = {vrxFftScaleFwd, vrxFftScaleInv, vrxFftScaleSqrt, vrxFftScaleNone};

// ------------------------------------------------------------ size figures

int64_t a64(int64_t x) { return (x + 63) & ~int64_t(63); }

struct Sizes { int64_t spec, init, work; };

// The large-path figures S and W of a complex order m.
void largeSW(bool dbl, int m, bool top, int64_t& s, int64_t& w) {
    const int64_t e = dbl ? 16 : 8;
    const int c = dbl ? 17 : 18;
    const int first = dbl ? 18 : 19;
    const int blk = m <= first + 3 ? 4 : 8;
    const int buf = (dbl ? 9 : 10) + (blk == 8 ? 4 : 0);
    if (m - blk <= c) { s = a64(e * (int64_t(1) << (m - blk)) + e); w = a64(e * (int64_t(1) << (m - blk))); }
    else largeSW(dbl, m - blk, false, s, w);
    s += e * (int64_t(1) << (m - 1));
    w = std::max(w, e << buf);
    if (top) {
        if (!dbl) { s += 4 * (int64_t(1) << (m - 12)) + 4160; w = std::max<int64_t>(w, 65536); }
        else { s += 4 * (int64_t(1) << (m - 10)) + 1088; w = std::max<int64_t>(w, 32768); }
    }
}

Sizes expectComplex(bool dbl, int order) {
    const int64_t N = int64_t(1) << order, e = dbl ? 16 : 8;
    const int c = dbl ? 17 : 18;
    const int64_t initBig = dbl ? a64(2 * N + 8) + 64 : a64(N + 4) + 64;
    if (order <= 6) return {208, 0, 0};
    if (order <= c) return {a64(e * N + e) + a64(N + 4) + 256, order < 11 ? 0 : initBig, a64(e * N) + 64};
    int64_t s, w;
    largeSW(dbl, order, true, s, w);
    return {s + 256, initBig, w + 64};
}

Sizes expectReal(bool dbl, int order) {
    const int64_t N = int64_t(1) << order, M = N / 2, e = dbl ? 16 : 8;
    const int64_t Q = !dbl ? (order <= 18 ? a64(2 * N) : a64(8 * (int64_t(1) << (order - 12)) + 8192))
                           : (order <= 16 ? a64(4 * N) : a64(16 * (int64_t(1) << (order - 11)) + 8192));
    const int64_t initBig = dbl ? a64(2 * N + 8) + 64 : a64(N + 4) + 64;
    if (order <= 4) return {208, 0, 0};
    if (order <= 7) return {2 * a64((dbl ? 4 : 2) * N) + 256, 0, 0};
    if (order <= (dbl ? 18 : 19)) return {a64(e * M + e) + a64(M + 4) + 2 * Q + 256, order < 11 ? 0 : initBig, a64(e * M) + 64};
    int64_t s, w;
    largeSW(dbl, order - 1, true, s, w);
    return {s + 2 * Q + 256, initBig, w + 64};
}

TEST(FftPlan, GetSizeFiguresEveryOrderEveryKind) {
    struct K { const char* name; VrxStatus (*f)(int, int, VrxAlgHint, int*, int*, int*); bool real, dbl; int max; };
    const K kinds[] = {{"C_32fc", vrxsFFTGetSize_C_32fc, false, false, 28}, {"C_32f", vrxsFFTGetSize_C_32f, false, false, 28},
                       {"R_32f", vrxsFFTGetSize_R_32f, true, false, 29},    {"C_64fc", vrxsFFTGetSize_C_64fc, false, true, 27},
                       {"C_64f", vrxsFFTGetSize_C_64f, false, true, 27},    {"R_64f", vrxsFFTGetSize_R_64f, true, true, 28}};
    for (const K& k : kinds)
        for (int order = 0; order <= 30; ++order) {
            int s = -1, i = -1, w = -1;
            VrxStatus st = k.f(order, vrxFftScaleInv, 0, &s, &i, &w);
            if (order > k.max) {
                EXPECT_EQ(st, vrxErrFftOrder) << k.name << " " << order;
                continue;
            }
            ASSERT_EQ(st, vrxOk) << k.name << " " << order;
            Sizes e = k.real ? expectReal(k.dbl, order) : expectComplex(k.dbl, order);
            EXPECT_EQ(s, e.spec) << k.name << " order " << order;
            EXPECT_EQ(i, e.init) << k.name << " order " << order;
            EXPECT_EQ(w, e.work) << k.name << " order " << order;
        }
    // a few figures written out
    int s, i, w;
    ASSERT_EQ(vrxsFFTGetSize_C_32fc(10, 8, 0, &s, &i, &w), vrxOk);
    EXPECT_EQ(s, 8256 + 1088 + 256); EXPECT_EQ(i, 0); EXPECT_EQ(w, 8192 + 64);
    ASSERT_EQ(vrxsFFTGetSize_R_64f(5, 8, 0, &s, &i, &w), vrxOk);
    EXPECT_EQ(s, 2 * 128 + 256); EXPECT_EQ(i, 0); EXPECT_EQ(w, 0);
}

TEST(FftPlan, GetSizeCheckOrder) {
    int s, i, w;
    EXPECT_EQ(vrxsFFTGetSize_C_32fc(31, 8, 0, nullptr, &i, &w), vrxErrFftOrder);   // wide order test first
    EXPECT_EQ(vrxsFFTGetSize_C_32fc(-1, 8, 0, nullptr, &i, &w), vrxErrFftOrder);
    EXPECT_EQ(vrxsFFTGetSize_C_32fc(29, 3, 0, &s, &i, &w), vrxErrFftFlag);         // flag before the kind's limit
    EXPECT_EQ(vrxsFFTGetSize_C_32fc(29, 8, 0, &s, &i, &w), vrxErrFftOrder);
    EXPECT_EQ(vrxsFFTGetSize_C_32fc(5, 3, 0, nullptr, &i, &w), vrxErrNullPtr);     // null before flag
    EXPECT_EQ(vrxsFFTGetSize_R_64f(5, 8, 0, &s, nullptr, &w), vrxErrNullPtr);
    EXPECT_EQ(vrxsFFTGetSize_R_64f(5, 8, 0, &s, &i, nullptr), vrxErrNullPtr);
    for (int flag : {0, 3, 5, 16, -1}) EXPECT_EQ(vrxsFFTGetSize_R_32f(5, flag, 0, &s, &i, &w), vrxErrFftFlag) << flag;
    EXPECT_EQ(vrxsFFTGetSize_R_32f(29, 8, 0, &s, &i, &w), vrxOk);
    EXPECT_EQ(vrxsFFTGetSize_R_64f(29, 8, 0, &s, &i, &w), vrxErrFftOrder);
}

// ------------------------------------------------------------ initialisation

TEST(FftPlan, InitChecksAndHeaderPlacement) {
    vt::Buffer spec(4096, 8), init(8192);
    VrxsFftPlan_C_32fc* p = nullptr;
    EXPECT_EQ(vrxsFFTInit_C_32fc(nullptr, 5, 8, 0, spec.data(), nullptr), vrxErrNullPtr);
    EXPECT_EQ(vrxsFFTInit_C_32fc(&p, 29, 3, 0, spec.data(), nullptr), vrxErrFftOrder);  // order before flag
    EXPECT_EQ(vrxsFFTInit_C_32fc(&p, -2, 8, 0, spec.data(), nullptr), vrxErrFftOrder);
    EXPECT_EQ(vrxsFFTInit_C_32fc(&p, 5, 8, 0, nullptr, nullptr), vrxErrNullPtr);
    EXPECT_EQ(p, nullptr);
    EXPECT_EQ(vrxsFFTInit_C_32fc(&p, 5, 3, 0, spec.data(), nullptr), vrxErrFftFlag);
    EXPECT_EQ(vrxsFFTInit_C_32fc(&p, 5, 0, 0, spec.data(), nullptr), vrxErrFftFlag);
    EXPECT_EQ(p, nullptr);
    // a plan rejected for its flag is refused by the transforms
    Vrx32fc x[32] = {};
    EXPECT_EQ(vrxsFFTFwd_CToC_32fc(x, x, reinterpret_cast<VrxsFftPlan_C_32fc*>(spec.data() + 56), nullptr), vrxErrBadSpec);
    ASSERT_EQ(vrxsFFTInit_C_32fc(&p, 5, 8, 0, spec.data(), nullptr), vrxOk);
    EXPECT_EQ(reinterpret_cast<uintptr_t>(p) % 64, 0u);
    EXPECT_EQ(reinterpret_cast<uint8_t*>(p) - spec.data(), 56);
    EXPECT_TRUE(spec.guardsIntact());
    VrxsFftPlan_R_32f* r = nullptr;
    EXPECT_EQ(vrxsFFTInit_R_32f(&r, 29, 8, 0, nullptr, nullptr), vrxErrNullPtr);  // order 29 is valid for R_32f
    VrxsFftPlan_R_64f* r64 = nullptr;
    EXPECT_EQ(vrxsFFTInit_R_64f(&r64, 29, 8, 0, spec.data(), nullptr), vrxErrFftOrder);
    // order 10 needs no init buffer, order 11 does
    PlanMem m10;
    int ss, is, ws;
    ASSERT_EQ(vrxsFFTGetSize_C_64fc(10, 8, 0, &ss, &is, &ws), vrxOk);
    vt::Buffer s10(ss);
    VrxsFftPlan_C_64fc* q = nullptr;
    EXPECT_EQ(vrxsFFTInit_C_64fc(&q, 10, 8, 0, s10.data(), nullptr), vrxOk);
    EXPECT_NE(q, nullptr);
    ASSERT_EQ(vrxsFFTGetSize_C_64fc(11, 8, 0, &ss, &is, &ws), vrxOk);
    vt::Buffer s11(ss);
    q = nullptr;
    EXPECT_EQ(vrxsFFTInit_C_64fc(&q, 11, 8, 0, s11.data(), nullptr), vrxErrNullPtr);
    EXPECT_EQ(q, nullptr);
    EXPECT_TRUE(s10.guardsIntact() && s11.guardsIntact());
}

TEST(FftPlan, TransformsRefuseOtherKindsAndNullBuffers) {
    PlanMem mc, ms, mr, md;
    auto* pc = makePlan(kC32fc, 7, 8, mc);
    auto* ps = makePlan(kC32f, 7, 8, ms);
    auto* pr = makePlan(kR32f, 7, 8, mr);
    auto* pd = makePlan(kC64fc, 7, 8, md);
    ASSERT_TRUE(pc && ps && pr && pd);
    std::vector<Vrx32fc> x(128), y(128);
    std::vector<Vrx32f> re(128), im(128);
    const auto* wrongC = reinterpret_cast<const VrxsFftPlan_C_32fc*>(ps);
    EXPECT_EQ(vrxsFFTFwd_CToC_32fc(x.data(), y.data(), wrongC, mc.workPtr()), vrxErrBadSpec);
    EXPECT_EQ(vrxsFFTInv_CToC_32fc(x.data(), y.data(), reinterpret_cast<const VrxsFftPlan_C_32fc*>(pr), mc.workPtr()), vrxErrBadSpec);
    EXPECT_EQ(vrxsFFTFwd_CToC_32fc(x.data(), y.data(), reinterpret_cast<const VrxsFftPlan_C_32fc*>(pd), mc.workPtr()), vrxErrBadSpec);
    EXPECT_EQ(vrxsFFTFwd_CToC_32f(re.data(), im.data(), re.data(), im.data(), reinterpret_cast<const VrxsFftPlan_C_32f*>(pc), mc.workPtr()), vrxErrBadSpec);
    EXPECT_EQ(vrxsFFTFwd_RToPerm_32f(re.data(), im.data(), reinterpret_cast<const VrxsFftPlan_R_32f*>(pc), mc.workPtr()), vrxErrBadSpec);
    EXPECT_EQ(vrxsFFTFwd_RToPerm_64f(nullptr, nullptr, reinterpret_cast<const VrxsFftPlan_R_64f*>(pr), nullptr), vrxErrBadSpec);
    // plan first, then data, then the buffer
    EXPECT_EQ(vrxsFFTFwd_CToC_32fc(nullptr, y.data(), nullptr, nullptr), vrxErrNullPtr);
    EXPECT_EQ(vrxsFFTFwd_CToC_32fc(nullptr, y.data(), wrongC, nullptr), vrxErrBadSpec);
    EXPECT_EQ(vrxsFFTFwd_CToC_32fc(x.data(), y.data(), pc, nullptr), vrxErrNullPtr);  // order 7 out of place
    EXPECT_EQ(vrxsFFTFwd_CToC_32f(re.data(), nullptr, re.data(), im.data(), ps, ms.workPtr()), vrxErrNullPtr);
    EXPECT_EQ(vrxsFFTFwd_CToC_32f(re.data(), im.data(), re.data(), nullptr, ps, ms.workPtr()), vrxErrNullPtr);
    EXPECT_EQ(vrxsFFTInv_CToC_32f_I(nullptr, im.data(), ps, ms.workPtr()), vrxErrNullPtr);
    EXPECT_EQ(vrxsFFTFwd_RToCCS_32f(re.data(), nullptr, pr, mr.workPtr()), vrxErrNullPtr);
    EXPECT_EQ(vrxsFFTInv_PackToR_32f(re.data(), im.data(), nullptr, mr.workPtr()), vrxErrNullPtr);
    // order 6 takes no buffer; a failed call writes nothing
    PlanMem m6;
    auto* p6 = makePlan(kC32fc, 6, 8, m6);
    ASSERT_NE(p6, nullptr);
    for (auto& v : x) v = {1.0f, 2.0f};
    for (auto& v : y) v = {7.0f, 7.0f};
    EXPECT_EQ(vrxsFFTFwd_CToC_32fc(x.data(), y.data(), p6, nullptr), vrxOk);
    std::vector<Vrx32fc> z(128, Vrx32fc{7.0f, 7.0f});
    EXPECT_EQ(vrxsFFTFwd_CToC_32fc(x.data(), z.data(), pc, nullptr), vrxErrNullPtr);
    for (auto& v : z) EXPECT_TRUE(v.re == 7.0f && v.im == 7.0f);
}

TEST(FftPlan, OrderZeroAndScaleFlags) {
    for (int flag : kFlags) {
        PlanMem m;
        auto* p = makePlan(kC64fc, 0, flag, m);
        ASSERT_NE(p, nullptr);
        Vrx64fc x{3.5, -1.25}, y{0, 0};
        ASSERT_EQ(vrxsFFTFwd_CToC_64fc(&x, &y, p, nullptr), vrxOk);
        EXPECT_EQ(y.re, 3.5); EXPECT_EQ(y.im, -1.25);   // scale 1 at N = 1
        ASSERT_EQ(vrxsFFTInv_CToC_64fc(&x, &y, p, nullptr), vrxOk);
        EXPECT_EQ(y.re, 3.5); EXPECT_EQ(y.im, -1.25);
    }
    // order 3, flag Fwd: forward scaled by 1/8, inverse unscaled
    PlanMem m;
    auto* p = makePlan(kC32fc, 3, vrxFftScaleFwd, m);
    ASSERT_NE(p, nullptr);
    Vrx32fc x[8], y[8], z[8];
    for (int i = 0; i < 8; ++i) x[i] = {1.0f, 0.0f};
    ASSERT_EQ(vrxsFFTFwd_CToC_32fc(x, y, p, nullptr), vrxOk);
    EXPECT_EQ(y[0].re, 1.0f);
    for (int i = 1; i < 8; ++i) EXPECT_EQ(std::fabs(y[i].re) + std::fabs(y[i].im), 0.0f);
    ASSERT_EQ(vrxsFFTInv_CToC_32fc(y, z, p, nullptr), vrxOk);
    for (int i = 0; i < 8; ++i) EXPECT_NEAR(z[i].re, 1.0f, 1e-6f);
}

// The flag 4 scale is 1/sqrt(N) rounded once from double.
TEST(FftPlan, SqrtScaleIsRoundedFromDouble) {
    PlanMem m;
    auto* p = makePlan(kC32fc, 5, vrxFftScaleSqrt, m);
    ASSERT_NE(p, nullptr);
    Vrx32fc x[32] = {}, y[32];
    x[0] = {1.0f, 0.0f};
    ASSERT_EQ(vrxsFFTFwd_CToC_32fc(x, y, p, nullptr), vrxOk);
    const float expect = static_cast<float>(1.0 / sqrt(32.0));
    for (int i = 0; i < 32; ++i) EXPECT_EQ(y[i].re, expect);
}

// ------------------------------------------------------------ packed layouts

template <class T> void smallLayouts() {
    using A = Api<T>;
    // order 0: CCS x, 0
    {
        PlanMem m;
        auto* p = makePlan(A::kr(), 0, vrxFftScaleNone, m);
        T x[1] = {T(2.5)}, d[2] = {T(9), T(9)};
        ASSERT_EQ(A::fwdCCS(x, d, p, nullptr), vrxOk);
        EXPECT_EQ(d[0], T(2.5)); EXPECT_EQ(d[1], T(0));
        T e[1] = {T(9)};
        ASSERT_EQ(A::fwdPack(x, e, p, nullptr), vrxOk);
        EXPECT_EQ(e[0], T(2.5));
    }
    // order 1: CCS R0, 0, R1, 0; Pack and Perm R0, R1
    {
        PlanMem m;
        auto* p = makePlan(A::kr(), 1, vrxFftScaleNone, m);
        T x[2] = {T(3), T(1)}, c[4], q[2], r[2];
        ASSERT_EQ(A::fwdCCS(x, c, p, nullptr), vrxOk);
        EXPECT_EQ(c[0], T(4)); EXPECT_EQ(c[1], T(0)); EXPECT_EQ(c[2], T(2)); EXPECT_EQ(c[3], T(0));
        ASSERT_EQ(A::fwdPack(x, q, p, nullptr), vrxOk);
        ASSERT_EQ(A::fwdPerm(x, r, p, nullptr), vrxOk);
        EXPECT_EQ(q[0], T(4)); EXPECT_EQ(q[1], T(2)); EXPECT_EQ(r[0], T(4)); EXPECT_EQ(r[1], T(2));
    }
    // order 2: x = 1, 2, 3, 4: X0 = 10, X1 = -2 + 2i, X2 = -2
    {
        PlanMem m;
        auto* p = makePlan(A::kr(), 2, vrxFftScaleNone, m);
        T x[4] = {1, 2, 3, 4}, c[6], q[4], r[4];
        ASSERT_EQ(A::fwdCCS(x, c, p, nullptr), vrxOk);
        ASSERT_EQ(A::fwdPack(x, q, p, nullptr), vrxOk);
        ASSERT_EQ(A::fwdPerm(x, r, p, nullptr), vrxOk);
        const T ec[6] = {10, 0, -2, 2, -2, 0}, eq[4] = {10, -2, 2, -2}, er[4] = {10, -2, -2, 2};
        for (int i = 0; i < 6; ++i) EXPECT_EQ(c[i], ec[i]) << i;
        for (int i = 0; i < 4; ++i) { EXPECT_EQ(q[i], eq[i]) << i; EXPECT_EQ(r[i], er[i]) << i; }
    }
    // order 3 and a constant input: R0 = N * value, everything else 0
    for (int order : {3, 5, 8}) {
        PlanMem m;
        auto* p = makePlan(A::kr(), order, vrxFftScaleNone, m);
        const int n = 1 << order;
        std::vector<T> x(n, T(0.5)), c(n + 2, T(9)), q(n, T(9)), r(n, T(9));
        ASSERT_EQ(A::fwdCCS(x.data(), c.data(), p, m.workPtr()), vrxOk);
        ASSERT_EQ(A::fwdPack(x.data(), q.data(), p, m.workPtr()), vrxOk);
        ASSERT_EQ(A::fwdPerm(x.data(), r.data(), p, m.workPtr()), vrxOk);
        EXPECT_EQ(c[0], T(n) / 2); EXPECT_EQ(q[0], T(n) / 2); EXPECT_EQ(r[0], T(n) / 2);
        for (int i = 1; i < n + 2; ++i) EXPECT_EQ(c[i], T(0)) << order << " " << i;
        for (int i = 1; i < n; ++i) { EXPECT_EQ(q[i], T(0)); EXPECT_EQ(r[i], T(0)); }
    }
    // order 3 against the definition: x = 0..7
    {
        PlanMem m;
        auto* p = makePlan(A::kr(), 3, vrxFftScaleNone, m);
        T x[8] = {0, 1, 2, 3, 4, 5, 6, 7}, r[8];
        ASSERT_EQ(A::fwdPerm(x, r, p, nullptr), vrxOk);
        // X[k] = -4 + 4i cot(pi k / 8) for k = 1..3, X0 = 28, X4 = -4
        const double cot1 = 1.0 / tan(M_PI / 8), cot3 = 1.0 / tan(3 * M_PI / 8);
        const double e[8] = {28, -4, -4, 4 * cot1, -4, 4, -4, 4 * cot3};
        for (int i = 0; i < 8; ++i) EXPECT_NEAR(r[i], e[i], sizeof(T) == 4 ? 4e-6 : 1e-14) << i;
    }
}

TEST(FftPacked, LayoutsAtOrdersZeroToThreeSingle) { smallLayouts<float>(); }
TEST(FftPacked, LayoutsAtOrdersZeroToThreeDouble) { smallLayouts<double>(); }

// ------------------------------------------------------------ expansion

// Full spectrum of a packed array of length N in a form (reference).
template <class T> std::vector<std::complex<T>> fullOf(const std::vector<T>& p, int n, int form) {
    std::vector<std::complex<T>> X(n);
    X[0] = {p[0], 0};
    const int h = n / 2;
    for (int k = 1; k <= h; ++k) {
        T re, im;
        if (2 * k == n) { re = form == 0 ? p[n] : (form == 1 ? p[n - 1] : p[1]); im = 0; }
        else if (form == 0 || (form == 2 && n % 2 == 0)) { re = p[2 * k]; im = p[2 * k + 1]; }
        else { re = p[2 * k - 1]; im = p[2 * k]; }
        X[k] = {re, im};
        X[n - k] = {re, -im};
    }
    return X;
}

template <class T, class TC> void expansion(VrxStatus (*f[3])(const T*, TC*, int), VrxStatus (*fi[3])(TC*, int)) {
    vt::Rng rng(5);
    for (int form = 0; form < 3; ++form)
        for (int n = 1; n <= 37; ++n) {
            std::vector<T> p(2 * n + 2);
            for (auto& v : p) v = static_cast<T>(rng.uniform() - 0.5);
            if (form == 0) { p[1] = 0; if (n % 2 == 0) p[n + 1] = 0; }
            auto X = fullOf(p, n, form);
            std::vector<TC> d(n);
            ASSERT_EQ(f[form](p.data(), d.data(), n), vrxOk);
            std::vector<TC> io(n + 1);
            memcpy(io.data(), p.data(), (form == 0 ? 2 * (n / 2) + 2 : n) * sizeof(T));
            if (form == 0 && n <= 2) memcpy(io.data(), p.data(), 2 * n * sizeof(T));
            ASSERT_EQ(fi[form](io.data(), n), vrxOk);
            for (int k = 0; k < n; ++k) {
                EXPECT_EQ(d[k].re, X[k].real()) << form << " " << n << " " << k;
                EXPECT_EQ(d[k].im, X[k].imag()) << form << " " << n << " " << k;
                EXPECT_EQ(io[k].re, X[k].real()) << "in place " << form << " " << n << " " << k;
                EXPECT_EQ(io[k].im, X[k].imag()) << "in place " << form << " " << n << " " << k;
            }
        }
    // checks: source equal to destination forwards to the in-place form
    TC one[2] = {};
    EXPECT_EQ(f[1](nullptr, one, 2), vrxErrNullPtr);
    EXPECT_EQ(f[1](reinterpret_cast<T*>(one), nullptr, 2), vrxErrNullPtr);
    EXPECT_EQ(f[0](reinterpret_cast<T*>(one), one, 0), vrxErrBadLength);
    EXPECT_EQ(fi[2](nullptr, -1), vrxErrNullPtr);
    EXPECT_EQ(fi[2](one, 0), vrxErrBadLength);
    // CCS in place at lengths 1 and 2 changes nothing
    TC keep[2] = {{T(1), T(5)}, {T(2), T(6)}};
    EXPECT_EQ(fi[0](keep, 2), vrxOk);
    EXPECT_EQ(keep[0].im, T(5));
    EXPECT_EQ(keep[1].im, T(6));
}

TEST(FftPacked, ConjExpansionSingle) {
    VrxStatus (*f[3])(const Vrx32f*, Vrx32fc*, int) = {vrxsConjCcs_32fc, vrxsConjPack_32fc, vrxsConjPerm_32fc};
    VrxStatus (*fi[3])(Vrx32fc*, int) = {vrxsConjCcs_32fc_I, vrxsConjPack_32fc_I, vrxsConjPerm_32fc_I};
    expansion<Vrx32f, Vrx32fc>(f, fi);
}
TEST(FftPacked, ConjExpansionDouble) {
    VrxStatus (*f[3])(const Vrx64f*, Vrx64fc*, int) = {vrxsConjCcs_64fc, vrxsConjPack_64fc, vrxsConjPerm_64fc};
    VrxStatus (*fi[3])(Vrx64fc*, int) = {vrxsConjCcs_64fc_I, vrxsConjPack_64fc_I, vrxsConjPerm_64fc_I};
    expansion<Vrx64f, Vrx64fc>(f, fi);
}

// ------------------------------------------------------------ products

template <class T> struct MulApi;
template <> struct MulApi<float> {
    static constexpr auto pack = vrxsMulPack_32f; static constexpr auto packI = vrxsMulPack_32f_I;
    static constexpr auto perm = vrxsMulPerm_32f; static constexpr auto permI = vrxsMulPerm_32f_I;
    static constexpr auto conjI = vrxsMulPackConj_32f_I;
};
template <> struct MulApi<double> {
    static constexpr auto pack = vrxsMulPack_64f; static constexpr auto packI = vrxsMulPack_64f_I;
    static constexpr auto perm = vrxsMulPerm_64f; static constexpr auto permI = vrxsMulPerm_64f_I;
    static constexpr auto conjI = vrxsMulPackConj_64f_I;
};

// Products by the definition: reals at their positions, pairs complex.
template <class T> std::vector<T> mulRef(const std::vector<T>& a, const std::vector<T>& b, int len, bool perm, bool conjDst) {
    std::vector<T> d(len);
    d[0] = a[0] * b[0];
    int first = 1;
    if (len % 2 == 0) {
        if (perm) { d[1] = a[1] * b[1]; first = 2; }
        else d[len - 1] = a[len - 1] * b[len - 1];
    }
    const int pairs = len % 2 ? (len - 1) / 2 : (len - 2) / 2;
    for (int i = 0; i < pairs; ++i) {
        int j = first + 2 * i;
        T ar = a[j], ai = a[j + 1], br = b[j], bi = b[j + 1];
        if (!conjDst) { d[j] = ar * br - ai * bi; d[j + 1] = ar * bi + ai * br; }
        else { d[j] = ar * br + ai * bi; d[j + 1] = ai * br - ar * bi; }
    }
    return d;
}

template <class T> void products() {
    using M = MulApi<T>;
    vt::Rng rng(9);
    for (int len = 1; len <= 70; ++len) {
        std::vector<T> a(len), b(len);
        for (auto& v : a) v = static_cast<T>(rng.uniform() * 4 - 2);
        for (auto& v : b) v = static_cast<T>(rng.uniform() * 4 - 2);
        vt::Buffer dst(len * sizeof(T), 4);
        for (int perm = 0; perm < 2; ++perm) {
            auto ref = mulRef(a, b, len, perm, false);
            ASSERT_EQ((perm ? M::perm : M::pack)(a.data(), b.data(), dst.as<T>(), len), vrxOk);
            for (int i = 0; i < len; ++i) EXPECT_EQ(dst.as<T>()[i], ref[i]) << len << " " << i;
            std::vector<T> io(b);
            ASSERT_EQ((perm ? M::permI : M::packI)(a.data(), io.data(), len), vrxOk);
            for (int i = 0; i < len; ++i) EXPECT_EQ(io[i], ref[i]);
            std::vector<T> io2(a);  // pSrc1 = pDst forwards to the in-place form
            ASSERT_EQ((perm ? M::perm : M::pack)(io2.data(), b.data(), io2.data(), len), vrxOk);
            for (int i = 0; i < len; ++i) EXPECT_EQ(io2[i], ref[i]);
        }
        // odd lengths: Pack and Perm agree
        if (len % 2) {
            std::vector<T> p(len), q(len);
            M::pack(a.data(), b.data(), p.data(), len);
            M::perm(a.data(), b.data(), q.data(), len);
            EXPECT_EQ(p, q);
        }
        // conjugate product: pSrc times the conjugate of pSrcDst
        auto refc = mulRef(a, b, len, false, true);
        std::vector<T> io(b);
        ASSERT_EQ(M::conjI(a.data(), io.data(), len), vrxOk);
        for (int i = 0; i < len; ++i) EXPECT_EQ(io[i], refc[i]);
        EXPECT_TRUE(dst.guardsIntact());
    }
    T v[4] = {};
    EXPECT_EQ(M::pack(nullptr, v, v + 1, 0), vrxErrNullPtr);
    EXPECT_EQ(M::pack(v, v + 1, v + 2, 0), vrxErrBadLength);
    EXPECT_EQ(M::perm(v, nullptr, v + 2, 3), vrxErrNullPtr);
    EXPECT_EQ(M::permI(nullptr, v, -1), vrxErrNullPtr);
    EXPECT_EQ(M::conjI(v, v + 1, 0), vrxErrBadLength);
    EXPECT_EQ(M::conjI(v, nullptr, 2), vrxErrNullPtr);
}

TEST(FftPacked, ProductsSingle) { products<float>(); }
TEST(FftPacked, ProductsDouble) { products<double>(); }

}  // namespace
