// FFT plans in the caller's memory: Init builds every plan inside exactly
// the bytes that GetSize reports, at any misalignment of either block, and
// writes nothing outside them; a plan built at one misalignment transforms
// to the same bits as at another; every transform refuses a null plan with
// -8 and a plan of another kind with -17, before it looks at its data.
#include <algorithm>
#include <functional>

#include "vrx_test.h"

namespace {

constexpr int kFlags[] = {vrxFftScaleFwd, vrxFftScaleInv, vrxFftScaleSqrt, vrxFftScaleNone};
constexpr VrxAlgHint kHints[] = {vrxAlgHintFast, static_cast<VrxAlgHint>(0)};

// The six plan kinds through one signature.
enum Kind { C32fc, C32f, R32f, C64fc, C64f, R64f, kKinds };
constexpr const char* kNames[kKinds] = {"C_32fc", "C_32f", "R_32f", "C_64fc", "C_64f", "R_64f"};
constexpr int kMaxOrder[kKinds] = {28, 28, 29, 27, 27, 28};

VrxStatus getSize(Kind k, int order, int flag, VrxAlgHint hint, int* s, int* i, int* w) {
    switch (k) {
        case C32fc: return vrxsFFTGetSize_C_32fc(order, flag, hint, s, i, w);
        case C32f: return vrxsFFTGetSize_C_32f(order, flag, hint, s, i, w);
        case R32f: return vrxsFFTGetSize_R_32f(order, flag, hint, s, i, w);
        case C64fc: return vrxsFFTGetSize_C_64fc(order, flag, hint, s, i, w);
        case C64f: return vrxsFFTGetSize_C_64f(order, flag, hint, s, i, w);
        default: return vrxsFFTGetSize_R_64f(order, flag, hint, s, i, w);
    }
}

VrxStatus init(Kind k, void** plan, int order, int flag, VrxAlgHint hint, Vrx8u* spec, Vrx8u* ini) {
    switch (k) {
        case C32fc: return vrxsFFTInit_C_32fc(reinterpret_cast<VrxsFftPlan_C_32fc**>(plan), order, flag, hint, spec, ini);
        case C32f: return vrxsFFTInit_C_32f(reinterpret_cast<VrxsFftPlan_C_32f**>(plan), order, flag, hint, spec, ini);
        case R32f: return vrxsFFTInit_R_32f(reinterpret_cast<VrxsFftPlan_R_32f**>(plan), order, flag, hint, spec, ini);
        case C64fc: return vrxsFFTInit_C_64fc(reinterpret_cast<VrxsFftPlan_C_64fc**>(plan), order, flag, hint, spec, ini);
        case C64f: return vrxsFFTInit_C_64f(reinterpret_cast<VrxsFftPlan_C_64f**>(plan), order, flag, hint, spec, ini);
        default: return vrxsFFTInit_R_64f(reinterpret_cast<VrxsFftPlan_R_64f**>(plan), order, flag, hint, spec, ini);
    }
}

// A plan built in guarded blocks of exactly the reported sizes.
struct Built {
    std::unique_ptr<vt::Buffer> spec, ini;
    void* plan = nullptr;
    int work = 0;
};

Built build(Kind k, int order, int flag, VrxAlgHint hint, size_t specOff, size_t initOff) {
    Built b;
    int s = -1, i = -1, w = -1;
    EXPECT_EQ(vrxOk, getSize(k, order, flag, hint, &s, &i, &w));
    b.spec = std::make_unique<vt::Buffer>(static_cast<size_t>(s), specOff);
    b.ini = std::make_unique<vt::Buffer>(static_cast<size_t>(i), initOff);
    b.work = w;
    EXPECT_EQ(vrxOk, init(k, &b.plan, order, flag, hint, b.spec->data(), i > 0 ? b.ini->data() : nullptr));
    return b;
}

// Orders whose plans stay below a few tens of megabytes: every path of
// every kind (small kernels, radix engine, both block orders of the large
// path, the shared recombination table of single-precision real plans).
constexpr int kLastOrder = 22;

TEST(FftLayout, PlanFitsReportedSizeAtEveryMisalignment) {
    for (int k = 0; k < kKinds; ++k)
        for (int order = 0; order <= std::min(kLastOrder, kMaxOrder[k]); ++order) {
            // every misalignment of the plan block at the smaller orders,
            // a spread of them above, each with another of the init block
            const int step = order <= 14 ? 1 : 21;
            for (int off = 0; off < 64; off += step)
                for (int flag : kFlags)
                    for (VrxAlgHint hint : kHints) {
                        if (order > 14 && (flag != vrxFftScaleNone || hint != vrxAlgHintFast) && off != 0) continue;
                        SCOPED_TRACE(testing::Message() << kNames[k] << " order " << order << " flag " << flag
                                                        << " hint " << hint << " offset " << off);
                        Built b = build(static_cast<Kind>(k), order, flag, hint, off, (off * 37) % 64);
                        ASSERT_NE(b.plan, nullptr);
                        const uintptr_t p = reinterpret_cast<uintptr_t>(b.plan);
                        const uintptr_t s0 = reinterpret_cast<uintptr_t>(b.spec->data());
                        EXPECT_EQ(p % 64, 0u);
                        EXPECT_LT(p - s0, 64u);
                        EXPECT_TRUE(b.spec->guardsIntact());
                        EXPECT_TRUE(b.ini->guardsIntact());
                    }
        }
}

// The transform of a plan at one misalignment against the same plan at
// another: the tables are the same bytes, so are the results.
std::vector<uint8_t> runOnce(Kind k, int order, size_t specOff) {
    Built b = build(k, order, vrxFftScaleNone, vrxAlgHintFast, specOff, 63 - specOff);
    const size_t n = size_t(1) << order;
    const size_t bytes = (k == C32fc || k == C32f) ? 8 * n : (k == C64fc || k == C64f) ? 16 * n
                                                                                          : (k == R32f ? 4 : 8) * (n + 2);
    std::vector<uint8_t> src(bytes), dst(bytes, 0);
    vt::Rng rng(order * 131 + k);
    // finite values in [-1, 1)
    if (k == C32fc || k == C32f || k == R32f)
        for (size_t i = 0; i < bytes / 4; ++i) reinterpret_cast<float*>(src.data())[i] = static_cast<float>(2 * rng.uniform() - 1);
    else
        for (size_t i = 0; i < bytes / 8; ++i) reinterpret_cast<double*>(src.data())[i] = 2 * rng.uniform() - 1;
    vt::Buffer work(static_cast<size_t>(b.work), (specOff * 5) % 64);
    Vrx8u* wb = b.work > 0 ? work.data() : nullptr;
    VrxStatus st = vrxOk;
    switch (k) {
        case C32fc: st = vrxsFFTFwd_CToC_32fc(reinterpret_cast<Vrx32fc*>(src.data()), reinterpret_cast<Vrx32fc*>(dst.data()), static_cast<VrxsFftPlan_C_32fc*>(b.plan), wb); break;
        case C32f: {
            float* s = reinterpret_cast<float*>(src.data());
            float* d = reinterpret_cast<float*>(dst.data());
            st = vrxsFFTInv_CToC_32f(s, s + n, d, d + n, static_cast<VrxsFftPlan_C_32f*>(b.plan), wb);
            break;
        }
        case R32f: st = vrxsFFTFwd_RToCCS_32f(reinterpret_cast<Vrx32f*>(src.data()), reinterpret_cast<Vrx32f*>(dst.data()), static_cast<VrxsFftPlan_R_32f*>(b.plan), wb); break;
        case C64fc: st = vrxsFFTInv_CToC_64fc(reinterpret_cast<Vrx64fc*>(src.data()), reinterpret_cast<Vrx64fc*>(dst.data()), static_cast<VrxsFftPlan_C_64fc*>(b.plan), wb); break;
        case C64f: {
            double* s = reinterpret_cast<double*>(src.data());
            double* d = reinterpret_cast<double*>(dst.data());
            st = vrxsFFTFwd_CToC_64f(s, s + n, d, d + n, static_cast<VrxsFftPlan_C_64f*>(b.plan), wb);
            break;
        }
        default: st = vrxsFFTInv_CCSToR_64f(reinterpret_cast<Vrx64f*>(src.data()), reinterpret_cast<Vrx64f*>(dst.data()), static_cast<VrxsFftPlan_R_64f*>(b.plan), wb); break;
    }
    EXPECT_EQ(vrxOk, st);
    EXPECT_TRUE(work.guardsIntact());
    return dst;
}

TEST(FftLayout, MisalignedPlanGivesSameBits) {
    for (int k = 0; k < kKinds; ++k)
        for (int order : {0, 4, 5, 7, 8, 11, 13, 19, 20}) {
            SCOPED_TRACE(testing::Message() << kNames[k] << " order " << order);
            const std::vector<uint8_t> a = runOnce(static_cast<Kind>(k), order, 0);
            for (size_t off : {1, 8, 33, 63}) EXPECT_TRUE(a == runOnce(static_cast<Kind>(k), order, off)) << "offset " << off;
        }
}

// ------------------------------------------------------------ identity

// Every transform entry, called with a given plan pointer on order-3 data:
// its kind, and a call that leaves its destination alone on failure.
struct Entry {
    const char* name;
    Kind kind;
    std::function<VrxStatus(void* plan, void* src, void* dst, Vrx8u* buf)> call;
};

template <class P> P* as(void* p) { return static_cast<P*>(p); }
// The second array of split data, n values behind the first (null stays null).
template <class T> T* second(T* p, int n) { return p ? p + n : nullptr; }

std::vector<Entry> entries() {
    constexpr int n = 8;
    using F = float;
    using D = double;
    auto f = [](void* p) { return static_cast<F*>(p); };
    auto d = [](void* p) { return static_cast<D*>(p); };
    return {
        {"Fwd_CToC_32fc", C32fc, [](void* pl, void* s, void* o, Vrx8u* b) { return vrxsFFTFwd_CToC_32fc(static_cast<Vrx32fc*>(s), static_cast<Vrx32fc*>(o), as<VrxsFftPlan_C_32fc>(pl), b); }},
        {"Inv_CToC_32fc", C32fc, [](void* pl, void* s, void* o, Vrx8u* b) { return vrxsFFTInv_CToC_32fc(static_cast<Vrx32fc*>(s), static_cast<Vrx32fc*>(o), as<VrxsFftPlan_C_32fc>(pl), b); }},
        {"Fwd_CToC_32fc_I", C32fc, [](void* pl, void*, void* o, Vrx8u* b) { return vrxsFFTFwd_CToC_32fc_I(static_cast<Vrx32fc*>(o), as<VrxsFftPlan_C_32fc>(pl), b); }},
        {"Inv_CToC_32fc_I", C32fc, [](void* pl, void*, void* o, Vrx8u* b) { return vrxsFFTInv_CToC_32fc_I(static_cast<Vrx32fc*>(o), as<VrxsFftPlan_C_32fc>(pl), b); }},
        {"Fwd_CToC_32f", C32f, [f](void* pl, void* s, void* o, Vrx8u* b) { return vrxsFFTFwd_CToC_32f(f(s), second(f(s), n), f(o), second(f(o), n), as<VrxsFftPlan_C_32f>(pl), b); }},
        {"Inv_CToC_32f", C32f, [f](void* pl, void* s, void* o, Vrx8u* b) { return vrxsFFTInv_CToC_32f(f(s), second(f(s), n), f(o), second(f(o), n), as<VrxsFftPlan_C_32f>(pl), b); }},
        {"Fwd_CToC_32f_I", C32f, [f](void* pl, void*, void* o, Vrx8u* b) { return vrxsFFTFwd_CToC_32f_I(f(o), second(f(o), n), as<VrxsFftPlan_C_32f>(pl), b); }},
        {"Inv_CToC_32f_I", C32f, [f](void* pl, void*, void* o, Vrx8u* b) { return vrxsFFTInv_CToC_32f_I(f(o), second(f(o), n), as<VrxsFftPlan_C_32f>(pl), b); }},
        {"Fwd_CToC_64fc", C64fc, [](void* pl, void* s, void* o, Vrx8u* b) { return vrxsFFTFwd_CToC_64fc(static_cast<Vrx64fc*>(s), static_cast<Vrx64fc*>(o), as<VrxsFftPlan_C_64fc>(pl), b); }},
        {"Inv_CToC_64fc", C64fc, [](void* pl, void* s, void* o, Vrx8u* b) { return vrxsFFTInv_CToC_64fc(static_cast<Vrx64fc*>(s), static_cast<Vrx64fc*>(o), as<VrxsFftPlan_C_64fc>(pl), b); }},
        {"Fwd_CToC_64fc_I", C64fc, [](void* pl, void*, void* o, Vrx8u* b) { return vrxsFFTFwd_CToC_64fc_I(static_cast<Vrx64fc*>(o), as<VrxsFftPlan_C_64fc>(pl), b); }},
        {"Inv_CToC_64fc_I", C64fc, [](void* pl, void*, void* o, Vrx8u* b) { return vrxsFFTInv_CToC_64fc_I(static_cast<Vrx64fc*>(o), as<VrxsFftPlan_C_64fc>(pl), b); }},
        {"Fwd_CToC_64f", C64f, [d](void* pl, void* s, void* o, Vrx8u* b) { return vrxsFFTFwd_CToC_64f(d(s), second(d(s), n), d(o), second(d(o), n), as<VrxsFftPlan_C_64f>(pl), b); }},
        {"Inv_CToC_64f", C64f, [d](void* pl, void* s, void* o, Vrx8u* b) { return vrxsFFTInv_CToC_64f(d(s), second(d(s), n), d(o), second(d(o), n), as<VrxsFftPlan_C_64f>(pl), b); }},
        {"Fwd_CToC_64f_I", C64f, [d](void* pl, void*, void* o, Vrx8u* b) { return vrxsFFTFwd_CToC_64f_I(d(o), second(d(o), n), as<VrxsFftPlan_C_64f>(pl), b); }},
        {"Inv_CToC_64f_I", C64f, [d](void* pl, void*, void* o, Vrx8u* b) { return vrxsFFTInv_CToC_64f_I(d(o), second(d(o), n), as<VrxsFftPlan_C_64f>(pl), b); }},
        {"Fwd_RToCCS_32f", R32f, [f](void* pl, void* s, void* o, Vrx8u* b) { return vrxsFFTFwd_RToCCS_32f(f(s), f(o), as<VrxsFftPlan_R_32f>(pl), b); }},
        {"Fwd_RToPack_32f", R32f, [f](void* pl, void* s, void* o, Vrx8u* b) { return vrxsFFTFwd_RToPack_32f(f(s), f(o), as<VrxsFftPlan_R_32f>(pl), b); }},
        {"Fwd_RToPerm_32f", R32f, [f](void* pl, void* s, void* o, Vrx8u* b) { return vrxsFFTFwd_RToPerm_32f(f(s), f(o), as<VrxsFftPlan_R_32f>(pl), b); }},
        {"Fwd_RToCCS_32f_I", R32f, [f](void* pl, void*, void* o, Vrx8u* b) { return vrxsFFTFwd_RToCCS_32f_I(f(o), as<VrxsFftPlan_R_32f>(pl), b); }},
        {"Fwd_RToPack_32f_I", R32f, [f](void* pl, void*, void* o, Vrx8u* b) { return vrxsFFTFwd_RToPack_32f_I(f(o), as<VrxsFftPlan_R_32f>(pl), b); }},
        {"Fwd_RToPerm_32f_I", R32f, [f](void* pl, void*, void* o, Vrx8u* b) { return vrxsFFTFwd_RToPerm_32f_I(f(o), as<VrxsFftPlan_R_32f>(pl), b); }},
        {"Inv_CCSToR_32f", R32f, [f](void* pl, void* s, void* o, Vrx8u* b) { return vrxsFFTInv_CCSToR_32f(f(s), f(o), as<VrxsFftPlan_R_32f>(pl), b); }},
        {"Inv_PackToR_32f", R32f, [f](void* pl, void* s, void* o, Vrx8u* b) { return vrxsFFTInv_PackToR_32f(f(s), f(o), as<VrxsFftPlan_R_32f>(pl), b); }},
        {"Inv_PermToR_32f", R32f, [f](void* pl, void* s, void* o, Vrx8u* b) { return vrxsFFTInv_PermToR_32f(f(s), f(o), as<VrxsFftPlan_R_32f>(pl), b); }},
        {"Inv_CCSToR_32f_I", R32f, [f](void* pl, void*, void* o, Vrx8u* b) { return vrxsFFTInv_CCSToR_32f_I(f(o), as<VrxsFftPlan_R_32f>(pl), b); }},
        {"Inv_PackToR_32f_I", R32f, [f](void* pl, void*, void* o, Vrx8u* b) { return vrxsFFTInv_PackToR_32f_I(f(o), as<VrxsFftPlan_R_32f>(pl), b); }},
        {"Inv_PermToR_32f_I", R32f, [f](void* pl, void*, void* o, Vrx8u* b) { return vrxsFFTInv_PermToR_32f_I(f(o), as<VrxsFftPlan_R_32f>(pl), b); }},
        {"Fwd_RToCCS_64f", R64f, [d](void* pl, void* s, void* o, Vrx8u* b) { return vrxsFFTFwd_RToCCS_64f(d(s), d(o), as<VrxsFftPlan_R_64f>(pl), b); }},
        {"Fwd_RToPack_64f", R64f, [d](void* pl, void* s, void* o, Vrx8u* b) { return vrxsFFTFwd_RToPack_64f(d(s), d(o), as<VrxsFftPlan_R_64f>(pl), b); }},
        {"Fwd_RToPerm_64f", R64f, [d](void* pl, void* s, void* o, Vrx8u* b) { return vrxsFFTFwd_RToPerm_64f(d(s), d(o), as<VrxsFftPlan_R_64f>(pl), b); }},
        {"Fwd_RToCCS_64f_I", R64f, [d](void* pl, void*, void* o, Vrx8u* b) { return vrxsFFTFwd_RToCCS_64f_I(d(o), as<VrxsFftPlan_R_64f>(pl), b); }},
        {"Fwd_RToPack_64f_I", R64f, [d](void* pl, void*, void* o, Vrx8u* b) { return vrxsFFTFwd_RToPack_64f_I(d(o), as<VrxsFftPlan_R_64f>(pl), b); }},
        {"Fwd_RToPerm_64f_I", R64f, [d](void* pl, void*, void* o, Vrx8u* b) { return vrxsFFTFwd_RToPerm_64f_I(d(o), as<VrxsFftPlan_R_64f>(pl), b); }},
        {"Inv_CCSToR_64f", R64f, [d](void* pl, void* s, void* o, Vrx8u* b) { return vrxsFFTInv_CCSToR_64f(d(s), d(o), as<VrxsFftPlan_R_64f>(pl), b); }},
        {"Inv_PackToR_64f", R64f, [d](void* pl, void* s, void* o, Vrx8u* b) { return vrxsFFTInv_PackToR_64f(d(s), d(o), as<VrxsFftPlan_R_64f>(pl), b); }},
        {"Inv_PermToR_64f", R64f, [d](void* pl, void* s, void* o, Vrx8u* b) { return vrxsFFTInv_PermToR_64f(d(s), d(o), as<VrxsFftPlan_R_64f>(pl), b); }},
        {"Inv_CCSToR_64f_I", R64f, [d](void* pl, void*, void* o, Vrx8u* b) { return vrxsFFTInv_CCSToR_64f_I(d(o), as<VrxsFftPlan_R_64f>(pl), b); }},
        {"Inv_PackToR_64f_I", R64f, [d](void* pl, void*, void* o, Vrx8u* b) { return vrxsFFTInv_PackToR_64f_I(d(o), as<VrxsFftPlan_R_64f>(pl), b); }},
        {"Inv_PermToR_64f_I", R64f, [d](void* pl, void*, void* o, Vrx8u* b) { return vrxsFFTInv_PermToR_64f_I(d(o), as<VrxsFftPlan_R_64f>(pl), b); }},
    };
}

TEST(FftLayout, EveryEntryRefusesNullAndForeignPlans) {
    Built plans[kKinds];
    for (int k = 0; k < kKinds; ++k) plans[k] = build(static_cast<Kind>(k), 3, vrxFftScaleNone, vrxAlgHintFast, 0, 0);
    const std::vector<Entry> all = entries();
    EXPECT_EQ(all.size(), 40u);
    std::vector<uint8_t> src(512, 0x3C), dst(512, 0x5A);
    const std::vector<uint8_t> dst0 = dst;
    for (const Entry& e : all) {
        SCOPED_TRACE(e.name);
        // null plan: -8, also when the data pointers are null
        EXPECT_EQ(vrxErrNullPtr, e.call(nullptr, src.data(), dst.data(), nullptr));
        for (int k = 0; k < kKinds; ++k) {
            const VrxStatus want = k == e.kind ? vrxOk : vrxErrBadSpec;
            // the identity word is checked before the data pointers
            if (k != e.kind) {
                EXPECT_EQ(vrxErrBadSpec, e.call(plans[k].plan, nullptr, nullptr, nullptr)) << kNames[k];
            }
            EXPECT_EQ(want, e.call(plans[k].plan, src.data(), dst.data(), nullptr)) << kNames[k];
            if (k != e.kind) {
                EXPECT_TRUE(dst == dst0) << kNames[k];
            }
            dst = dst0;
        }
        // the plan's own kind with null data: -8
        EXPECT_EQ(vrxErrNullPtr, e.call(plans[e.kind].plan, nullptr, nullptr, nullptr));
    }
}

}  // namespace
