// FFT plans in the caller's memory: Init builds every plan inside exactly
// the bytes that GetSize reports, at any misalignment of either block, and
// writes nothing outside them; a plan built at one misalignment transforms
// to the same bits as at another; every transform refuses a null plan with
// -8 and a plan of another kind with -17, before it looks at its data.
#include <algorithm>

#include "test_fft_common.h"

namespace {

constexpr int kFlags[] = {vrxFftScaleFwd, vrxFftScaleInv, vrxFftScaleSqrt, vrxFftScaleNone};
constexpr VrxAlgHint kHints[] = {vrxAlgHintFast, static_cast<VrxAlgHint>(0)};

// The six plan kinds through one signature.
enum Kind { C32fc, C32f, R32f, C64fc, C64f, R64f, kKinds };
using Init = VrxStatus (*)(void**, int, int, VrxAlgHint, Vrx8u*, Vrx8u*);
template <class P, VrxStatus (*F)(P**, int, int, VrxAlgHint, Vrx8u*, Vrx8u*)>
VrxStatus initAs(void** p, int order, int flag, VrxAlgHint hint, Vrx8u* spec, Vrx8u* ini) {
    return F(reinterpret_cast<P**>(p), order, flag, hint, spec, ini);
}
const struct {
    const char* name;
    int maxOrder;
    VrxStatus (*getSize)(int, int, VrxAlgHint, int*, int*, int*);
    Init init;
} kKind[kKinds] = {{"C_32fc", 28, vrxsFFTGetSize_C_32fc, initAs<VrxsFftPlan_C_32fc, vrxsFFTInit_C_32fc>},
                   {"C_32f", 28, vrxsFFTGetSize_C_32f, initAs<VrxsFftPlan_C_32f, vrxsFFTInit_C_32f>},
                   {"R_32f", 29, vrxsFFTGetSize_R_32f, initAs<VrxsFftPlan_R_32f, vrxsFFTInit_R_32f>},
                   {"C_64fc", 27, vrxsFFTGetSize_C_64fc, initAs<VrxsFftPlan_C_64fc, vrxsFFTInit_C_64fc>},
                   {"C_64f", 27, vrxsFFTGetSize_C_64f, initAs<VrxsFftPlan_C_64f, vrxsFFTInit_C_64f>},
                   {"R_64f", 28, vrxsFFTGetSize_R_64f, initAs<VrxsFftPlan_R_64f, vrxsFFTInit_R_64f>}};

// A plan built in guarded blocks of exactly the reported sizes.
struct Built {
    std::unique_ptr<vt::Buffer> spec, ini;
    void* plan = nullptr;
    int work = 0;
};

Built build(Kind k, int order, int flag, VrxAlgHint hint, size_t specOff, size_t initOff) {
    Built b;
    int s = -1, i = -1, w = -1;
    EXPECT_EQ(vrxOk, kKind[k].getSize(order, flag, hint, &s, &i, &w));
    b.spec = std::make_unique<vt::Buffer>(static_cast<size_t>(s), specOff);
    b.ini = std::make_unique<vt::Buffer>(static_cast<size_t>(i), initOff);
    b.work = w;
    EXPECT_EQ(vrxOk, kKind[k].init(&b.plan, order, flag, hint, b.spec->data(), i > 0 ? b.ini->data() : nullptr));
    return b;
}

// Orders whose plans stay below a few tens of megabytes: every path of
// every kind (small kernels, radix engine, both block orders of the large
// path, the shared recombination table of single-precision real plans).
constexpr int kLastOrder = 22;

TEST(FftLayout, PlanFitsReportedSizeAtEveryMisalignment) {
    for (int k = 0; k < kKinds; ++k)
        for (int order = 0; order <= std::min(kLastOrder, kKind[k].maxOrder); ++order) {
            // every misalignment of the plan block at the smaller orders,
            // a spread of them above, each with another of the init block
            const int step = order <= 14 ? 1 : 21;
            for (int off = 0; off < 64; off += step)
                for (int flag : kFlags)
                    for (VrxAlgHint hint : kHints) {
                        if (order > 14 && (flag != vrxFftScaleNone || hint != vrxAlgHintFast) && off != 0) continue;
                        SCOPED_TRACE(testing::Message() << kKind[k].name << " order " << order << " flag " << flag
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

// The entries of the plan kind k at an order.
std::vector<ft::Entry> entriesOfKind(int k, int order) {
    std::vector<ft::Entry> all = k < 3 ? ft::entriesOf<float>(order) : ft::entriesOf<double>(order), mine;
    for (auto& e : all)
        if (e.kind == k % 3) mine.push_back(e);
    return mine;
}

// The transform of a plan at one misalignment against the same plan at
// another: the tables are the same bytes, so are the results.
std::vector<uint8_t> runOnce(Kind k, int order, size_t specOff) {
    Built b = build(k, order, vrxFftScaleNone, vrxAlgHintFast, specOff, 63 - specOff);
    const ft::Entry e = entriesOfKind(k, order)[0];  // forward, out of place
    std::vector<uint8_t> src(e.inBytes), dst(e.outBytes, 0);
    vt::Rng rng(order * 131 + k);
    // finite values in [-1, 1)
    if (k < 3)
        for (size_t i = 0; i < src.size() / 4; ++i) reinterpret_cast<float*>(src.data())[i] = static_cast<float>(2 * rng.uniform() - 1);
    else
        for (size_t i = 0; i < src.size() / 8; ++i) reinterpret_cast<double*>(src.data())[i] = 2 * rng.uniform() - 1;
    vt::Buffer work(static_cast<size_t>(b.work), (specOff * 5) % 64);
    EXPECT_EQ(vrxOk, e.run(b.plan, src.data(), dst.data(), b.work > 0 ? work.data() : nullptr));
    EXPECT_TRUE(work.guardsIntact());
    return dst;
}

TEST(FftLayout, MisalignedPlanGivesSameBits) {
    for (int k = 0; k < kKinds; ++k)
        for (int order : {0, 4, 5, 7, 8, 11, 13, 19, 20}) {
            SCOPED_TRACE(testing::Message() << kKind[k].name << " order " << order);
            const std::vector<uint8_t> a = runOnce(static_cast<Kind>(k), order, 0);
            for (size_t off : {1, 8, 33, 63}) EXPECT_TRUE(a == runOnce(static_cast<Kind>(k), order, off)) << "offset " << off;
        }
}

// ------------------------------------------------------------ identity

// Every transform entry refuses a null plan with -8 and a plan of every
// other kind with -17 before it looks at its data, and leaves its
// destination alone.
TEST(FftLayout, EveryEntryRefusesNullAndForeignPlans) {
    Built plans[kKinds];
    for (int k = 0; k < kKinds; ++k) plans[k] = build(static_cast<Kind>(k), 3, vrxFftScaleNone, vrxAlgHintFast, 0, 0);
    std::vector<uint8_t> src(512, 0x3C), dst(512, 0x5A);
    const std::vector<uint8_t> dst0 = dst;
    int count = 0;
    for (int own = 0; own < kKinds; own += 3)
        for (const ft::Entry& e : own ? ft::entriesOf<double>(3) : ft::entriesOf<float>(3)) {
            SCOPED_TRACE(e.name);
            ++count;
            const int kind = own + e.kind;
            EXPECT_EQ(vrxErrNullPtr, e.run(nullptr, src.data(), dst.data(), nullptr));
            for (int k = 0; k < kKinds; ++k) {
                if (k != kind) {
                    // the identity word is checked before the data pointers
                    EXPECT_EQ(vrxErrBadSpec, e.run(plans[k].plan, nullptr, nullptr, nullptr)) << kKind[k].name;
                    EXPECT_EQ(vrxErrBadSpec, e.run(plans[k].plan, src.data(), dst.data(), nullptr)) << kKind[k].name;
                    EXPECT_TRUE(dst == dst0) << kKind[k].name;
                } else {
                    EXPECT_EQ(vrxOk, e.run(plans[k].plan, src.data(), dst.data(), nullptr));
                }
                dst = dst0;
            }
            // the plan's own kind with null data: -8
            EXPECT_EQ(vrxErrNullPtr, e.run(plans[kind].plan, nullptr, nullptr, nullptr));
        }
    EXPECT_EQ(count, 40);
}

}  // namespace
