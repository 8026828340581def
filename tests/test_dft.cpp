// DFT of any length: sizes against the plan rules recomputed here, results
// against a long-double reference on every path, form, direction and flag,
// statuses in their order, nothing written on failure.
#include <gtest/gtest.h>

#include "test_dft_common.h"

using namespace dt;

namespace {

const K kKinds[] = {K::C, K::S, K::R};

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

LD flagScale(int flag, bool inv, int N) {
    if (flag == 4) return 1.0L / sqrtl(static_cast<LD>(N));
    return (flag == 1 && !inv) || (flag == 2 && inv) ? 1.0L / N : 1;
}

// One complex transform of x, data at the byte offset mis: interleaved
// pairs, or (split) the real parts followed by the imaginary parts.
template <class T>
std::vector<CLD> runC(K k, Plan& pl, bool inv, bool inPlace, size_t mis, const std::vector<CLD>& x) {
    using A = Api<T>;
    using C = typename A::C;
    const size_t n = x.size(), step = k == K::C ? 2 : 1, im = k == K::C ? 1 : n;
    vt::Buffer src(2 * n * sizeof(T), mis), dst(2 * n * sizeof(T), (mis + 8) % 64);
    T *s = src.as<T>(), *d = inPlace ? s : dst.as<T>();
    for (size_t i = 0; i < n; ++i) s[step * i] = static_cast<T>(x[i].real()), s[step * i + im] = static_cast<T>(x[i].imag());
    const auto* pC = reinterpret_cast<const typename A::PC*>(pl.p());
    const auto* pS = reinterpret_cast<const typename A::PS*>(pl.p());
    C *sc = reinterpret_cast<C*>(s), *dc = reinterpret_cast<C*>(d);
    EXPECT_EQ(k == K::C ? (inv ? A::invC(sc, dc, pC, pl.w()) : A::fwdC(sc, dc, pC, pl.w()))
                        : (inv ? A::invS(s, s + n, d, d + n, pS, pl.w()) : A::fwdS(s, s + n, d, d + n, pS, pl.w())),
              vrxOk);
    EXPECT_TRUE(src.guardsIntact() && dst.guardsIntact() && pl.spec->guardsIntact() && (!pl.work || pl.work->guardsIntact()));
    std::vector<CLD> out(n);
    for (size_t i = 0; i < n; ++i) out[i] = CLD(d[step * i], d[step * i + im]);
    return out;
}

enum class Form { CCS, Pack, Perm };
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

// One real transform of in (a packed spectrum when inverse) in a form;
// returns the relative RMS distance of the result from want.
template <class T>
LD runR(Plan& pl, Form f, bool inv, bool inPlace, size_t mis, const std::vector<LD>& in, const std::vector<LD>& want) {
    using A = Api<T>;
    const size_t no = want.size();
    vt::Buffer src(std::max(in.size(), no) * sizeof(T), mis), dst(no * sizeof(T), (mis + 4) % 64);
    T *s = src.as<T>(), *d = inPlace ? s : dst.as<T>();
    for (size_t i = 0; i < in.size(); ++i) s[i] = static_cast<T>(in[i]);
    const auto run = inv ? (f == Form::CCS ? A::invCCS : f == Form::Pack ? A::invPack : A::invPerm)
                         : (f == Form::CCS ? A::fwdCCS : f == Form::Pack ? A::fwdPack : A::fwdPerm);
    EXPECT_EQ(run(s, d, reinterpret_cast<const typename A::PR*>(pl.p()), pl.w()), vrxOk);
    EXPECT_TRUE(src.guardsIntact() && dst.guardsIntact() && (!pl.work || pl.work->guardsIntact()));
    return ft::relRmsReal(d, want);
}

// Complex kinds in both directions and placements, real kinds in every
// form both ways (the inverse of a Hermitian spectrum rounded to the
// width), plans and data at two alignments.
template <class T> void accuracy(int N, bool allFlags) {
    SCOPED_TRACE(testing::Message() << "N=" << N << " T=" << sizeof(T));
    const auto x = ft::roundTo<T>(ft::randomSignal(N, 1000 + N));
    const std::vector<CLD> X[2] = {refAny(x, false), refAny(x, true)};
    auto xr = ft::randomSignal(N, 2000 + N);
    for (auto& v : xr) v = CLD(static_cast<T>(v.real()), 0);
    const auto XR = refAny(xr, false), Xq = ft::roundTo<T>(XR), xq = refAny(Xq, true);
    for (int flag : allFlags ? std::vector<int>{1, 2, 4, 8} : std::vector<int>{2})
        for (K k : kKinds)
            for (size_t mis : {size_t(0), size_t(sizeof(T))}) {
                auto pl = makePlan<T>(k, N, flag, mis);
                ASSERT_EQ(pl->st, vrxOk);
                const LD b = bound<T>(N, expected<T>(k, N, flag));
                for (bool inv : {false, true})
                    for (bool inPlace : {false, true}) {
                        SCOPED_TRACE(testing::Message() << "kind " << int(k) << " flag " << flag << " inv " << inv << " inPlace " << inPlace);
                        const LD sc = flagScale(flag, inv, N);
                        if (k != K::R) {
                            std::vector<CLD> ref = X[inv];
                            for (auto& v : ref) v *= sc;
                            EXPECT_LE(ft::relRms(runC<T>(k, *pl, inv, inPlace, mis, x), ref), b);
                            continue;
                        }
                        std::vector<LD> xin(N), xout(N);
                        for (int i = 0; i < N; ++i) xin[i] = xr[i].real(), xout[i] = xq[i].real() * sc;
                        for (Form f : {Form::CCS, Form::Pack, Form::Perm}) {
                            std::vector<LD> r = pack(f, XR, N);
                            for (auto& v : r) v *= sc;
                            EXPECT_LE(inv ? runR<T>(*pl, f, true, inPlace, mis, pack(f, Xq, N), xout) : runR<T>(*pl, f, false, inPlace, mis, xin, r), b)
                                << "form " << int(f);
                        }
                    }
            }
}

// Every path: the small kernels, powers of two, the prime-factor engine
// (real odd lengths of several levels run long gather cycles with
// conjugated entries), the direct and the chirp paths; every flag on the
// short lengths. 66-70: real halves at the register width with a one-bin
// tail; 90 = 2·3·3·5, a short middle stage; 50, 72, 120, 180, 200: lengths
// (or real halves) that run as two levels in registers. 96: radix-4 tiles
// of single precision with a half register left. Real halves whose last
// pass takes the recombination: 136 (radix 4), 140 (2), 162 and 486 (3, odd
// halves), 250 and 1000 (5; 1000 has the middle bin in a register of q).
// 21 to 78 with a factor 7, 11, 13, 17 or 19 (and the real lengths of
// twice them): two levels in registers with the prime radix across them.
TEST(DftAccuracy, AllPaths) {
    std::vector<int> lens = {20, 22, 24, 26, 27, 30, 31, 34, 36, 40, 45, 47, 48, 50, 53, 60, 66, 68, 70, 72, 89, 90, 96, 97, 100, 120, 121,
                             21, 28, 33, 35, 38, 39, 42, 44, 52, 76, 78, 84, 104, 132, 156,
                             136, 140, 162, 169, 180, 200, 210, 250, 289, 298, 486,
                             302, 323, 360, 625, 1000, 1024, 1536, 2310, 4095, 4096, 3 * 5 * 7 * 11, 3 * 3 * 3 * 3 * 3 * 3 * 3,
                             5 * 5 * 13 * 3, 7 * 7 * 11, 10007, 65535};
    for (int N = 1; N <= 18; ++N) lens.push_back(N);
    for (int N : lens) {
        const bool allFlags = N <= 64 || N == 1000;
        accuracy<float>(N, allFlags);
        accuracy<double>(N, allFlags);
    }
}

// Real 12 and 15 forward run one register kernel in single precision and
// scalar formulas in double: on inputs of signed zeros (every output a
// zero) both give the same signs in every form, so the single-precision
// kernel applies each sign where the formulas do.
TEST(DftSmallReal, SignedZerosAsInDouble) {
    for (int N : {12, 15})
        for (Form f : {Form::CCS, Form::Pack, Form::Perm})
            for (int pattern = 0; pattern < 64; ++pattern) {
                std::vector<LD> x(N);
                for (int i = 0; i < N; ++i) x[i] = ((pattern * 2654435761u) >> (i % 32)) & 1 ? -0.0L : 0.0L;
                auto pf = makePlan<float>(K::R, N, 8);
                auto pd = makePlan<double>(K::R, N, 8);
                const size_t no = formLen(f, N);
                std::vector<float> sf(x.begin(), x.end()), df(no + 1, 7.0f);
                std::vector<double> sd(x.begin(), x.end()), dd(no + 1, 7.0);
                const auto runF = f == Form::CCS ? vrxsDFTFwd_RToCCS_32f : f == Form::Pack ? vrxsDFTFwd_RToPack_32f : vrxsDFTFwd_RToPerm_32f;
                const auto runD = f == Form::CCS ? vrxsDFTFwd_RToCCS_64f : f == Form::Pack ? vrxsDFTFwd_RToPack_64f : vrxsDFTFwd_RToPerm_64f;
                ASSERT_EQ(runF(sf.data(), df.data(), reinterpret_cast<const VrxsDftPlan_R_32f*>(pf->p()), pf->w()), vrxOk);
                ASSERT_EQ(runD(sd.data(), dd.data(), reinterpret_cast<const VrxsDftPlan_R_64f*>(pd->p()), pd->w()), vrxOk);
                for (size_t k = 0; k < no; ++k) {
                    ASSERT_EQ(df[k], 0.0f) << "N=" << N << " slot " << k;
                    EXPECT_EQ(std::signbit(df[k]), std::signbit(dd[k])) << "N=" << N << " form " << int(f) << " pattern " << pattern << " slot " << k;
                }
                EXPECT_EQ(df[no], 7.0f);
            }
}

// Lengths whose last two passes run fused as a prime-factor map (coprime
// radices, no factors between them): a wrong input or output map leaves
// bins in the wrong places. Double 135 (3 then 5), 220 (5 then 4), 768 (4
// then 3), 315 (5 then 7) and 1536 (8 then 3; real 3072 on the same
// passes), single 800 (5 then 8), both 1575 (5 then 7).
TEST(DftAccuracy, FusedCoprimeLastPasses) {
    for (int N : {135, 220, 315, 800, 768, 1536, 1575, 3072}) {
        accuracy<float>(N, false);
        accuracy<double>(N, false);
    }
}

// Real forwards of even length whose recombination runs inside the half's
// register body (100 double) or its last pass (250, 1000, 2808): every
// form, offset and placement holds the same bins, and a scaling plan's bins
// are the unscaled ones times its scale, rounded once.
template <class T> std::vector<T> fwdBins(int N, int flag, Form f, bool inPlace, size_t mis, const std::vector<LD>& x) {
    using A = Api<T>;
    auto pl = makePlan<T>(K::R, N, flag, mis);
    const size_t no = formLen(f, N);
    vt::Buffer src(no * sizeof(T), mis), dst(no * sizeof(T), (mis + 4) % 64);
    T *s = src.as<T>(), *d = inPlace ? s : dst.as<T>();
    for (int i = 0; i < N; ++i) s[i] = static_cast<T>(x[i]);
    const auto run = f == Form::CCS ? A::fwdCCS : f == Form::Pack ? A::fwdPack : A::fwdPerm;
    EXPECT_EQ(run(s, d, reinterpret_cast<const typename A::PR*>(pl->p()), pl->w()), vrxOk);
    EXPECT_TRUE(src.guardsIntact() && dst.guardsIntact());
    const int h = N / 2, o = f == Form::Pack ? -1 : 0;  // bin k at 2k + o, 0 < k < h
    std::vector<T> b(2 * h + 2, T(0));
    b[0] = d[0];
    b[2 * h] = f == Form::CCS ? d[N] : f == Form::Pack ? d[N - 1] : d[1];
    for (int k = 1; k < h; ++k) b[2 * k] = d[2 * k + o], b[2 * k + 1] = d[2 * k + 1 + o];
    return b;
}
template <class T> void realFoldBits(int N) {
    SCOPED_TRACE(testing::Message() << "N=" << N << " T=" << sizeof(T));
    std::vector<LD> x(N);
    const auto r = ft::randomSignal(N, 77);
    for (int i = 0; i < N; ++i) x[i] = r[i].real();
    const std::vector<T> want = fwdBins<T>(N, 8, Form::Perm, false, 0, x);
    for (int flag : {1, 4, 8}) {
        const T sc = flag == 1 ? T(1) / static_cast<T>(N) : static_cast<T>(1.0 / sqrt(static_cast<double>(N)));
        for (Form f : {Form::CCS, Form::Pack, Form::Perm})
            for (size_t mis : {size_t(0), sizeof(T), size_t(24)})
                for (bool inPlace : {false, true}) {
                    const std::vector<T> got = fwdBins<T>(N, flag, f, inPlace, mis, x);
                    for (size_t i = 0; i < got.size(); ++i)
                        ASSERT_TRUE(got[i] == (flag == 8 ? want[i] : static_cast<T>(want[i] * sc)))
                            << "flag " << flag << " form " << int(f) << " mis " << mis << " inPlace " << inPlace << " value " << i;
                }
    }
}

TEST(DftBits, RealRecombinationEveryFormAndScale) {
    for (int N : {100, 250, 1000, 2808}) {
        realFoldBits<float>(N);
        realFoldBits<double>(N);
    }
}

// ------------------------------------------------------------ statuses

template <class T> void statusesOf(K k) {
    int s, i, w;
    // size query: length, then flag
    EXPECT_EQ(getSize<T>(k, 0, 3, &s, &i, &w), vrxErrBadLength);
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

// A plan of another kind is refused (-17) before the data pointers, which
// a good plan checks next (-8); a needed work buffer (-8) after them;
// nothing is written on failure.
template <class T> void transformStatuses(int N) {
    using A = Api<T>;
    SCOPED_TRACE(testing::Message() << "N=" << N);
    auto pc = makePlan<T>(K::C, N, 8), ps = makePlan<T>(K::S, N, 8), pr = makePlan<T>(K::R, N, 8);
    const auto* plC = reinterpret_cast<const typename A::PC*>(pc->p());
    const auto* plS = reinterpret_cast<const typename A::PS*>(ps->p());
    const auto* plR = reinterpret_cast<const typename A::PR*>(pr->p());
    std::vector<T> x(2 * N + 2, T(0.5)), o(2 * N + 2);
    vt::Buffer guard(N * 2 * sizeof(T) + 16);
    auto* gd = guard.as<typename A::C>();
    auto* gr = guard.as<T>();
    auto* xc = reinterpret_cast<const typename A::C*>(x.data());
    EXPECT_EQ(A::fwdC(nullptr, gd, reinterpret_cast<const typename A::PC*>(plR), pc->w()), vrxErrBadSpec);
    EXPECT_EQ(A::fwdC(xc, gd, reinterpret_cast<const typename A::PC*>(plS), pc->w()), vrxErrBadSpec);
    EXPECT_EQ(A::fwdS(x.data(), x.data(), gr, o.data(), reinterpret_cast<const typename A::PS*>(plC), ps->w()), vrxErrBadSpec);
    EXPECT_EQ(A::fwdCCS(x.data(), gr, reinterpret_cast<const typename A::PR*>(plC), pr->w()), vrxErrBadSpec);
    EXPECT_EQ(A::invPack(nullptr, gr, plR, pr->w()), vrxErrNullPtr);
    // with a good plan each data pointer in turn: -8
    EXPECT_EQ(A::fwdC(nullptr, gd, plC, pc->w()), vrxErrNullPtr);
    EXPECT_EQ(A::invC(xc, nullptr, plC, pc->w()), vrxErrNullPtr);
    EXPECT_EQ(A::fwdS(x.data(), nullptr, gr, o.data(), plS, ps->w()), vrxErrNullPtr);
    EXPECT_EQ(A::invS(x.data(), x.data(), gr, nullptr, plS, ps->w()), vrxErrNullPtr);
    // the work buffer: -8 when the plan needs one, else the transform runs
    EXPECT_EQ(A::fwdC(xc, pc->workSize ? gd : reinterpret_cast<typename A::C*>(o.data()), plC, nullptr),
              pc->workSize ? vrxErrNullPtr : vrxOk);
    EXPECT_EQ(A::invS(x.data(), x.data(), ps->workSize ? gr : o.data(), o.data() + N, plS, nullptr), ps->workSize ? vrxErrNullPtr : vrxOk);
    EXPECT_EQ(A::fwdPerm(x.data(), pr->workSize ? gr : o.data(), plR, nullptr), pr->workSize ? vrxErrNullPtr : vrxOk);
    const uint8_t* g = guard.data();
    for (size_t i = 0; i < guard.size(); ++i) ASSERT_EQ(g[i], vt::Buffer::kFill) << "written on failure at byte " << i;
}

TEST(DftStatus, TransformsInOrderAndNothingWritten) {
    for (int N : {1, 7, 16, 17, 48, 53, 64, 97, 100, 2048}) {
        transformStatuses<float>(N);
        transformStatuses<double>(N);
    }
}

// ------------------------------------------------------------ determinism

// The lengths that run as two levels in registers load and store each form
// (interleaved, split, in place, any offset) with their own code around the
// same sums: every form gives the bits of interleaved data out of place.
// Chirp lengths (split data take other chirp products) give the bits of
// their own kind out of place, whichever buffers the inner transforms run in.
template <class T> void sameBitsEveryForm(int N, bool kindsAgree = true) {
    const auto x = ft::randomSignal(N, 11);
    for (int flag : {1, 8})
        for (bool inv : {false, true})
            for (K k : {K::C, K::S}) {
                const K rk = kindsAgree ? K::C : k;
                auto ref = makePlan<T>(rk, N, flag);
                const std::vector<CLD> want = runC<T>(rk, *ref, inv, false, 0, x);
                for (size_t mis : {size_t(0), sizeof(T), size_t(24)}) {
                    auto pl = makePlan<T>(k, N, flag, mis);
                    for (bool inPlace : {false, true}) {
                        const std::vector<CLD> got = runC<T>(k, *pl, inv, inPlace, mis, x);
                        for (int i = 0; i < N; ++i)
                            ASSERT_TRUE(got[i] == want[i]) << "N=" << N << " kind " << int(k) << " flag " << flag << " inv "
                                                           << inv << " mis " << mis << " inPlace " << inPlace << " bin " << i;
                    }
                }
            }
}

TEST(DftBits, TwoLevelLengthsEveryForm) {
    for (int N : {18, 20, 30, 36, 50, 60, 100, 360}) sameBitsEveryForm<float>(N);
    for (int N : {18, 20, 30, 36, 50, 60, 100, 180}) sameBitsEveryForm<double>(N);
}

// Lengths whose passes are not the records': single 1000 (8·5·5·5: an
// 8 x 16 first tile with 13 columns in its last, a radix 5 at l = 8 whose
// tile takes half registers and whose last register holds one group, 5
// then 5 fused at l = 40 over a register half empty), single 1536 (a
// 16 x 16 first tile), double 360, 500, 768, 1000 and 1536, and 4095: every
// form, placement and offset gives the bits of interleaved data out of place.
TEST(DftBits, OwnPassLengthsEveryForm) {
    const struct { int n; bool single, dbl; } cases[] = {
        {1000, true, true}, {360, false, true}, {500, false, true}, {768, false, true}, {1536, true, true}, {4095, true, true}};
    for (const auto& c : cases) {
        if (c.single) sameBitsEveryForm<float>(c.n);
        if (c.dbl) sameBitsEveryForm<double>(c.n);
    }
}

// 97 and 4099: inner lengths of the prime-factor engine; 65535: of the
// radix engine; 100003: of the radix engine (single) and the large path
// (double), whose work holds no second copy and runs in place.
TEST(DftBits, ChirpLengthsInPlaceAndAtOffsets) {
    for (int N : {97, 4099, 65535, 100003}) {
        sameBitsEveryForm<float>(N, false);
        sameBitsEveryForm<double>(N, false);
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
