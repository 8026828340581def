// DFT of any length: sizes against the plan rules recomputed here, results
// against a long-double reference on every path, form, direction and flag,
// statuses in their order, nothing written on failure.
#include <gtest/gtest.h>

#include "test_dft_common.h"

using namespace dt;

namespace {

const K kKinds[] = {K::C, K::S, K::R};
const int kFlags[] = {1, 2, 4, 8};

// Bench lengths and the edge cases of the plan choice.
const int kEdge[] = {1, 2, 3, 6, 9, 15, 16, 17, 18, 31, 40, 47, 48, 53, 60, 64, 89, 97, 100, 298, 302, 323, 360,
                     1000, 1024, 1536, 4095, 4096, 10007, 65535, 65536, 2 * 149, 2 * 151, 3 * 3 * 3 * 3 * 3 * 3 * 3,
                     47 * 47, 53 * 53, 89 * 89, 97 * 97, 1 << 20, 1000000, 3 * 1048576};

template <class T> void checkSizes(int N) {
    for (K k : kKinds)
        for (int flag : {2, 8}) {
            const Expect x = expected<T>(k, N, flag);
            int s = -1, i = -1, w = -1;
            const VrxStatus st = getSize<T>(k, N, flag, &s, &i, &w);
            ASSERT_EQ(st, x.st) << "N=" << N << " kind " << int(k);
            if (st != vrxOk) continue;
            ASSERT_EQ(s, x.spec) << "N=" << N << " kind " << int(k);
            ASSERT_EQ(i, x.init) << "N=" << N << " kind " << int(k);
            ASSERT_EQ(w, x.work) << "N=" << N << " kind " << int(k);
        }
}

// every length to 1100, the bench lengths and the edges of the plan choice
TEST(DftSizes, AgainstThePlanRules) {
    std::vector<int> lens(std::begin(kEdge), std::end(kEdge));
    for (int N = 1; N <= 1100; ++N) lens.push_back(N);
    for (int N : lens) {
        checkSizes<float>(N);
        checkSizes<double>(N);
    }
}

// ------------------------------------------------------------ accuracy

std::vector<CLD> randomReal(size_t n, uint64_t seed) {
    auto x = ft::randomSignal(n, seed);
    for (auto& v : x) v = CLD(v.real(), 0);
    return x;
}

LD flagScale(int flag, bool inv, int N) {
    if (flag == 4) return 1.0L / sqrtl(static_cast<LD>(N));
    if ((flag == 1 && !inv) || (flag == 2 && inv)) return 1.0L / N;
    return 1;
}

// Runs a complex transform; misalignment mis of source and destination.
template <class T>
std::vector<CLD> runC(K k, Plan& pl, bool inv, bool inPlace, size_t mis, const std::vector<CLD>& x, VrxStatus* pst = nullptr) {
    using A = Api<T>;
    const size_t n = x.size();
    std::vector<CLD> out(n);
    VrxStatus st;
    if (k == K::C) {
        vt::Buffer src(n * 2 * sizeof(T), mis), dst(n * 2 * sizeof(T), (mis + 8) % 64);
        T* s = src.as<T>();
        for (size_t i = 0; i < n; ++i) { s[2 * i] = static_cast<T>(x[i].real()); s[2 * i + 1] = static_cast<T>(x[i].imag()); }
        auto* sc = src.as<typename A::C>();
        auto* dc = inPlace ? sc : dst.as<typename A::C>();
        auto* plan = reinterpret_cast<const typename A::PC*>(pl.p());
        st = inv ? A::invC(sc, dc, plan, pl.w()) : A::fwdC(sc, dc, plan, pl.w());
        const T* r = reinterpret_cast<const T*>(dc);
        for (size_t i = 0; i < n; ++i) out[i] = CLD(r[2 * i], r[2 * i + 1]);
        EXPECT_TRUE(src.guardsIntact() && dst.guardsIntact());
    } else {
        vt::Buffer sr(n * sizeof(T), mis), si(n * sizeof(T), 4), dr(n * sizeof(T), 12), di(n * sizeof(T), mis);
        for (size_t i = 0; i < n; ++i) { sr.as<T>()[i] = static_cast<T>(x[i].real()); si.as<T>()[i] = static_cast<T>(x[i].imag()); }
        T* oR = inPlace ? sr.as<T>() : dr.as<T>();
        T* oI = inPlace ? si.as<T>() : di.as<T>();
        auto* plan = reinterpret_cast<const typename A::PS*>(pl.p());
        st = inv ? A::invS(sr.as<T>(), si.as<T>(), oR, oI, plan, pl.w()) : A::fwdS(sr.as<T>(), si.as<T>(), oR, oI, plan, pl.w());
        for (size_t i = 0; i < n; ++i) out[i] = CLD(oR[i], oI[i]);
        EXPECT_TRUE(sr.guardsIntact() && si.guardsIntact() && dr.guardsIntact() && di.guardsIntact());
    }
    if (pl.work) EXPECT_TRUE(pl.work->guardsIntact());
    EXPECT_TRUE(pl.spec->guardsIntact());
    if (pst) *pst = st;
    else EXPECT_EQ(st, vrxOk);
    return out;
}

enum class Form { CCS, Pack, Perm };
const Form kForms[] = {Form::CCS, Form::Pack, Form::Perm};

size_t formLen(Form f, int N) { return f == Form::CCS ? (N % 2 ? N + 1 : N + 2) : N; }

// The packed array of a spectrum (first h+1 values of X).
std::vector<LD> pack(Form f, const std::vector<CLD>& X, int N) {
    std::vector<LD> p(formLen(f, N));
    const int h = N / 2;
    if (f == Form::CCS) {
        for (int k = 0; k <= h; ++k) { p[2 * k] = X[k].real(); p[2 * k + 1] = k == 0 || 2 * k == N ? 0 : X[k].imag(); }
    } else if (f == Form::Pack || N % 2) {
        p[0] = X[0].real();
        for (int k = 1; 2 * k < N; ++k) { p[2 * k - 1] = X[k].real(); p[2 * k] = X[k].imag(); }
        if (N % 2 == 0 && N > 1) p[N - 1] = X[h].real();
    } else {
        p[0] = X[0].real();
        if (N > 1) p[1] = X[h].real();
        for (int k = 1; 2 * k < N; ++k) { p[2 * k] = X[k].real(); p[2 * k + 1] = X[k].imag(); }
    }
    return p;
}

template <class T>
std::vector<LD> runR(Plan& pl, Form f, bool inv, bool inPlace, size_t mis, const std::vector<LD>& in, int N, VrxStatus* pst = nullptr) {
    using A = Api<T>;
    const size_t ni = inv ? formLen(f, N) : N, no = inv ? N : formLen(f, N);
    const size_t cap = std::max(ni, no);
    vt::Buffer src(cap * sizeof(T), mis), dst(no * sizeof(T), (mis + 4) % 64);
    for (size_t i = 0; i < ni; ++i) src.as<T>()[i] = static_cast<T>(in[i]);
    T* d = inPlace ? src.as<T>() : dst.as<T>();
    auto* plan = reinterpret_cast<const typename A::PR*>(pl.p());
    VrxStatus st;
    const T* s = src.as<T>();
    if (!inv) st = f == Form::CCS ? A::fwdCCS(s, d, plan, pl.w()) : f == Form::Pack ? A::fwdPack(s, d, plan, pl.w()) : A::fwdPerm(s, d, plan, pl.w());
    else st = f == Form::CCS ? A::invCCS(s, d, plan, pl.w()) : f == Form::Pack ? A::invPack(s, d, plan, pl.w()) : A::invPerm(s, d, plan, pl.w());
    if (pst) *pst = st;
    else EXPECT_EQ(st, vrxOk);
    EXPECT_TRUE(src.guardsIntact() && dst.guardsIntact());
    if (pl.work) EXPECT_TRUE(pl.work->guardsIntact());
    return std::vector<LD>(d, d + no);
}

LD relRmsR(const std::vector<LD>& y, const std::vector<LD>& r) {
    LD num = 0, den = 0;
    for (size_t i = 0; i < r.size(); ++i) { num += (y[i] - r[i]) * (y[i] - r[i]); den += r[i] * r[i]; }
    return den == 0 ? sqrtl(num) : sqrtl(num / den);
}

template <class T> void accuracy(int N, bool allFlags) {
    SCOPED_TRACE(testing::Message() << "N=" << N << " T=" << sizeof(T));
    const auto x = ft::roundTo<T>(ft::randomSignal(N, 1000 + N));
    const auto X = refAny(x, false), xi = refAny(x, true);
    const auto xr = ft::roundTo<T>(randomReal(N, 2000 + N));
    const auto XR = refAny(xr, false);
    const auto Xq = ft::roundTo<T>(XR);  // a Hermitian spectrum in the element width
    const auto xq = refAny(Xq, true);
    const std::vector<int> flags = allFlags ? std::vector<int>{1, 2, 4, 8} : std::vector<int>{2};
    for (int flag : flags) {
        for (K k : {K::C, K::S}) {
            const Expect ex = expected<T>(k, N, flag);
            const LD b = bound<T>(N, ex);
            for (size_t mis : {size_t(0), size_t(sizeof(T))}) {
                auto pl = makePlan<T>(k, N, flag, mis);
                ASSERT_EQ(pl->st, vrxOk);
                for (bool inv : {false, true})
                    for (bool inPlace : {false, true}) {
                        auto y = runC<T>(k, *pl, inv, inPlace, mis, x);
                        const LD sc = flagScale(flag, inv, N);
                        std::vector<CLD> ref = inv ? xi : X;
                        for (auto& v : ref) v *= sc;
                        EXPECT_LE(ft::relRms(y, ref), b) << "kind " << int(k) << " flag " << flag << " inv " << inv << " inPlace " << inPlace;
                    }
            }
        }
        const Expect ex = expected<T>(K::R, N, flag);
        const LD b = bound<T>(N, ex);
        for (size_t mis : {size_t(0), size_t(sizeof(T))}) {
            auto pl = makePlan<T>(K::R, N, flag, mis);
            ASSERT_EQ(pl->st, vrxOk);
            std::vector<LD> xin(N), xout(N);
            for (int i = 0; i < N; ++i) { xin[i] = xr[i].real(); xout[i] = xq[i].real() * flagScale(flag, true, N); }
            for (Form f : kForms)
                for (bool inPlace : {false, true}) {
                    auto y = runR<T>(*pl, f, false, inPlace, mis, xin, N);
                    auto r = pack(f, XR, N);
                    for (auto& v : r) v *= flagScale(flag, false, N);
                    EXPECT_LE(relRmsR(y, r), b) << "fwd form " << int(f) << " flag " << flag << " inPlace " << inPlace;
                    auto z = runR<T>(*pl, f, true, inPlace, mis, pack(f, Xq, N), N);
                    EXPECT_LE(relRmsR(z, xout), b) << "inv form " << int(f) << " flag " << flag << " inPlace " << inPlace;
                }
        }
    }
}

const int kAccLengths[] = {1,  2,  3,  4,  5,  6,  7,  8,  9,  10, 11, 12,  13,  14,  15,  16,  17,  18,  20,  22,   24,
                           26, 27, 30, 31, 34, 36, 40, 45, 47, 48, 53, 60, 89, 97, 100, 121, 169, 210, 289, 298, 302, 323,
                           360, 625, 1000, 1024, 1536, 2310, 4095, 4096};

TEST(DftAccuracy, SinglePrecisionAllPaths) {
    for (int N : kAccLengths) accuracy<float>(N, N <= 64 || N == 1000);
}
TEST(DftAccuracy, DoublePrecisionAllPaths) {
    for (int N : kAccLengths) accuracy<double>(N, N <= 64 || N == 1000);
}
// Real odd lengths of several prime-factor levels: the gather to the packed
// form runs long cycles with conjugated entries.
TEST(DftAccuracy, RealOddPrimeFactorGathers) {
    for (int N : {3 * 5 * 7 * 11, 3 * 3 * 3 * 3 * 3 * 3 * 3, 5 * 5 * 13 * 3, 7 * 7 * 11}) {
        accuracy<float>(N, false);
        accuracy<double>(N, false);
    }
}
TEST(DftAccuracy, LongLengths) {
    for (int N : {10007, 65535}) {
        accuracy<float>(N, false);
        accuracy<double>(N, false);
    }
}

// ------------------------------------------------------------ statuses

template <class T> void statusesOf(K k) {
    int s, i, w;
    // size query: pointers, then length, then flag
    EXPECT_EQ(getSize<T>(k, 0, 3, nullptr, &i, &w), vrxErrNullPtr);
    EXPECT_EQ(getSize<T>(k, 0, 3, &s, &i, &w), vrxErrBadLength);
    EXPECT_EQ(getSize<T>(k, -5, 8, &s, &i, &w), vrxErrBadLength);
    for (int bad : {0, 3, 5, 16, -1}) EXPECT_EQ(getSize<T>(k, 17, bad, &s, &i, &w), vrxErrFftFlag);
    // above the width's limit, and a length no path takes
    const int maxN = sizeof(T) == 4 ? 134217727 : 67108863;
    EXPECT_EQ(getSize<T>(k, maxN + 2, 8, &s, &i, &w), vrxErrBadLength);
    int noPath = (sizeof(T) == 4 ? 67108863 : 33554431) + 2;
    auto smallDiv = [](int v) { for (int d = 2; d <= 150; ++d) if (v % d == 0) return true; return false; };
    while (smallDiv(noPath)) noPath += 2;
    EXPECT_EQ(getSize<T>(k, noPath, 8, &s, &i, &w), vrxErrBadLength) << noPath;
    // a power of two beyond the FFT passes its status
    const int beyond = (k == K::R ? (sizeof(T) == 4 ? 30 : 29) : (sizeof(T) == 4 ? 29 : 28));
    EXPECT_EQ(getSize<T>(k, 1 << beyond, 8, &s, &i, &w), vrxErrFftOrder);
    // Init: spec pointer, length, flag, then the init buffer of a table path
    vt::Buffer spec(1 << 16), ib(1 << 16);
    EXPECT_EQ(initPlan<T>(k, 0, 3, nullptr, ib.data()), vrxErrNullPtr);
    EXPECT_EQ(initPlan<T>(k, 0, 3, spec.data(), ib.data()), vrxErrBadLength);
    EXPECT_EQ(initPlan<T>(k, 17, 3, spec.data(), ib.data()), vrxErrFftFlag);
    EXPECT_EQ(initPlan<T>(k, maxN + 2, 8, spec.data(), nullptr), vrxErrBadLength);
    EXPECT_EQ(initPlan<T>(k, 17, 8, spec.data(), nullptr), vrxErrNullPtr);
    EXPECT_EQ(initPlan<T>(k, 15, 8, spec.data(), nullptr), vrxOk);
    EXPECT_EQ(initPlan<T>(k, 1024, 8, spec.data(), nullptr), vrxOk);
    EXPECT_TRUE(spec.guardsIntact());
}

TEST(DftStatus, SizeAndInitInOrder) {
    for (K k : kKinds) {
        statusesOf<float>(k);
        statusesOf<double>(k);
    }
}

template <class T> void transformStatuses(int N) {
    using A = Api<T>;
    SCOPED_TRACE(testing::Message() << "N=" << N);
    auto pc = makePlan<T>(K::C, N, 8), ps = makePlan<T>(K::S, N, 8), pr = makePlan<T>(K::R, N, 8);
    auto other = makePlan<T>(K::C, N + 1, 8);
    std::vector<typename A::C> s(N), d(N);
    std::vector<T> re(N + 2), im(N + 2), o(N + 2), o2(N + 2);
    const auto* plC = reinterpret_cast<const typename A::PC*>(pc->p());
    const auto* plS = reinterpret_cast<const typename A::PS*>(ps->p());
    const auto* plR = reinterpret_cast<const typename A::PR*>(pr->p());
    vt::Buffer guard(N * 2 * sizeof(T) + 16);
    auto* gd = guard.as<typename A::C>();
    auto* gr = guard.as<T>();
    // plan null before data null; wrong word before data null
    EXPECT_EQ(A::fwdC(nullptr, nullptr, nullptr, pc->w()), vrxErrNullPtr);
    EXPECT_EQ(A::fwdC(nullptr, gd, reinterpret_cast<const typename A::PC*>(pr->p()), pc->w()), vrxErrBadSpec);
    EXPECT_EQ(A::fwdC(s.data(), gd, reinterpret_cast<const typename A::PC*>(ps->p()), pc->w()), vrxErrBadSpec);
    EXPECT_EQ(A::fwdC(nullptr, gd, plC, pc->w()), vrxErrNullPtr);
    EXPECT_EQ(A::invC(s.data(), nullptr, plC, pc->w()), vrxErrNullPtr);
    EXPECT_EQ(A::fwdS(re.data(), nullptr, gr, o.data(), plS, ps->w()), vrxErrNullPtr);
    EXPECT_EQ(A::invS(re.data(), im.data(), gr, nullptr, plS, ps->w()), vrxErrNullPtr);
    EXPECT_EQ(A::fwdS(re.data(), im.data(), gr, o.data(), reinterpret_cast<const typename A::PS*>(pc->p()), ps->w()), vrxErrBadSpec);
    EXPECT_EQ(A::fwdCCS(re.data(), gr, reinterpret_cast<const typename A::PR*>(pc->p()), pr->w()), vrxErrBadSpec);
    EXPECT_EQ(A::invPack(nullptr, gr, plR, pr->w()), vrxErrNullPtr);
    if (pc->workSize > 0) {
        EXPECT_EQ(A::fwdC(s.data(), gd, plC, nullptr), vrxErrNullPtr);
        EXPECT_EQ(A::invS(re.data(), im.data(), gr, o.data(), plS, nullptr), vrxErrNullPtr);
    } else {
        EXPECT_EQ(A::fwdC(s.data(), d.data(), plC, nullptr), vrxOk);
    }
    if (pr->workSize > 0) EXPECT_EQ(A::fwdPerm(re.data(), gr, plR, nullptr), vrxErrNullPtr);
    else EXPECT_EQ(A::fwdPerm(re.data(), o2.data(), plR, nullptr), vrxOk);
    EXPECT_TRUE(guard.guardsIntact());
    const uint8_t* g = guard.data();
    for (size_t i = 0; i < guard.size(); ++i) ASSERT_EQ(g[i], vt::Buffer::kFill) << "written on failure at byte " << i;
}

TEST(DftStatus, TransformsInOrderAndNothingWritten) {
    for (int N : {1, 7, 16, 17, 48, 53, 64, 97, 100, 2048}) {
        transformStatuses<float>(N);
        transformStatuses<double>(N);
    }
}

TEST(DftStatus, MxcsrUnchanged) {
    vt::MxcsrScope keep;
    _mm_setcsr(0x1F80 | vt::kRoundZero);
    auto pl = makePlan<float>(K::C, 100, 4);
    auto x = ft::randomSignal(100, 3);
    runC<float>(K::C, *pl, false, false, 0, x);
    EXPECT_EQ(_mm_getcsr() & 0xFFC0u, (0x1F80u | vt::kRoundZero) & 0xFFC0u);
}

}  // namespace
