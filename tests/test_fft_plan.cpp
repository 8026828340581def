// FFT plans and packed spectra: the size figures of every order of every
// kind, the checks and their order, what a failed call leaves, and the
// expansions of packed spectra.
#include "test_fft_common.h"

using namespace ft;

namespace {

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
}

// The order's wide range first (-17, before a null pointer), then the
// pointers, then the flag, then the kind's own order limit; Init takes the
// order before the flag and needs the init buffer from order 11 on. A
// refused Init leaves *ppPlan alone and a plan refused for its flag is
// refused by the transforms.
TEST(FftPlan, CheckOrder) {
    int s, i, w;
    EXPECT_EQ(vrxsFFTGetSize_C_32fc(31, 8, 0, nullptr, &i, &w), vrxErrFftOrder);
    EXPECT_EQ(vrxsFFTGetSize_C_32fc(-1, 8, 0, nullptr, &i, &w), vrxErrFftOrder);
    EXPECT_EQ(vrxsFFTGetSize_C_32fc(5, 3, 0, nullptr, &i, &w), vrxErrNullPtr);
    EXPECT_EQ(vrxsFFTGetSize_C_32fc(29, 3, 0, &s, &i, &w), vrxErrFftFlag);
    EXPECT_EQ(vrxsFFTGetSize_C_32fc(29, 8, 0, &s, &i, &w), vrxErrFftOrder);
    for (int flag : {0, 3, 5, 16, -1}) EXPECT_EQ(vrxsFFTGetSize_R_32f(5, flag, 0, &s, &i, &w), vrxErrFftFlag) << flag;
    EXPECT_EQ(vrxsFFTGetSize_R_64f(29, 8, 0, &s, &i, &w), vrxErrFftOrder);
    vt::Buffer spec(1 << 16);
    VrxsFftPlan_C_32fc* p = nullptr;
    EXPECT_EQ(vrxsFFTInit_C_32fc(&p, 29, 3, 0, spec.data(), nullptr), vrxErrFftOrder);
    EXPECT_EQ(vrxsFFTInit_C_32fc(&p, 29, 8, 0, nullptr, nullptr), vrxErrFftOrder);
    EXPECT_EQ(vrxsFFTInit_C_32fc(&p, -2, 8, 0, spec.data(), nullptr), vrxErrFftOrder);
    EXPECT_EQ(vrxsFFTInit_C_32fc(&p, 5, 0, 0, spec.data(), nullptr), vrxErrFftFlag);
    // a plan rejected for its flag is refused by the transforms
    Vrx32fc x[32] = {};
    EXPECT_EQ(vrxsFFTFwd_CToC_32fc(x, x, reinterpret_cast<VrxsFftPlan_C_32fc*>(spec.data()), nullptr), vrxErrBadSpec);
    EXPECT_EQ(vrxsFFTInit_C_64fc(reinterpret_cast<VrxsFftPlan_C_64fc**>(&p), 11, 8, 0, spec.data(), nullptr), vrxErrNullPtr);
    EXPECT_EQ(p, nullptr);
    VrxsFftPlan_R_32f* r = nullptr;
    EXPECT_EQ(vrxsFFTInit_R_32f(&r, 29, 8, 0, nullptr, nullptr), vrxErrNullPtr);  // order 29 is valid for R_32f
    EXPECT_EQ(vrxsFFTInit_R_64f(reinterpret_cast<VrxsFftPlan_R_64f**>(&r), 29, 8, 0, spec.data(), nullptr), vrxErrFftOrder);
    EXPECT_EQ(vrxsFFTInit_C_64fc(reinterpret_cast<VrxsFftPlan_C_64fc**>(&p), 10, 8, 0, spec.data(), nullptr), vrxOk);
}

// From order 7 an out-of-place transform needs the work buffer: null is -8
// and nothing is written; order 6 takes none.
TEST(FftPlan, WorkBufferFromOrderSeven) {
    PlanMem m6, m7;
    auto* p6 = makePlan(kC32fc, 6, 8, m6);
    auto* p7 = makePlan(kC32fc, 7, 8, m7);
    ASSERT_TRUE(p6 && p7);
    std::vector<Vrx32fc> x(128, Vrx32fc{1.0f, 2.0f}), y(128, Vrx32fc{7.0f, 7.0f});
    EXPECT_EQ(vrxsFFTFwd_CToC_32fc(x.data(), y.data(), p6, nullptr), vrxOk);
    std::vector<Vrx32fc> z(128, Vrx32fc{7.0f, 7.0f});
    EXPECT_EQ(vrxsFFTFwd_CToC_32fc(x.data(), z.data(), p7, nullptr), vrxErrNullPtr);
    for (auto& v : z) EXPECT_TRUE(v.re == 7.0f && v.im == 7.0f);
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
            for (int k = 0; k < n; ++k)
                EXPECT_TRUE(d[k].re == X[k].real() && d[k].im == X[k].imag() && io[k].re == X[k].real() && io[k].im == X[k].imag())
                    << form << " " << n << " " << k;
        }
    // CCS in place at lengths 1 and 2 changes nothing
    TC keep[2] = {{T(1), T(5)}, {T(2), T(6)}};
    EXPECT_EQ(fi[0](keep, 2), vrxOk);
    EXPECT_EQ(keep[0].im, T(5));
    EXPECT_EQ(keep[1].im, T(6));
}

TEST(FftPacked, ConjExpansion) {
    VrxStatus (*f[3])(const Vrx32f*, Vrx32fc*, int) = {vrxsConjCcs_32fc, vrxsConjPack_32fc, vrxsConjPerm_32fc};
    VrxStatus (*fi[3])(Vrx32fc*, int) = {vrxsConjCcs_32fc_I, vrxsConjPack_32fc_I, vrxsConjPerm_32fc_I};
    expansion<Vrx32f, Vrx32fc>(f, fi);
    VrxStatus (*g[3])(const Vrx64f*, Vrx64fc*, int) = {vrxsConjCcs_64fc, vrxsConjPack_64fc, vrxsConjPerm_64fc};
    VrxStatus (*gi[3])(Vrx64fc*, int) = {vrxsConjCcs_64fc_I, vrxsConjPack_64fc_I, vrxsConjPerm_64fc_I};
    expansion<Vrx64f, Vrx64fc>(g, gi);
}

}  // namespace
