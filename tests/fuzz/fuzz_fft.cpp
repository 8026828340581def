// FFT plans under fuzzer-chosen orders, flags, hints, null pointers,
// misaligned buffers and data: the size query, Init in exactly the reported
// memory, then transforms of every entry, sometimes with a plan of another
// kind. A failed call must return a negative status and write nothing (the
// size results, the plan pointer, the destination); no call writes outside
// its buffers, a transform never writes its plan, and the caller's control
// word comes back unchanged.
#include "fuzz_util.h"

namespace {

using fz::Guarded;
using fz::require;

constexpr int kMaxRunOrder = 14;  // Init and transforms run up to this order

bool knownStatus(VrxStatus st) {
    return st == vrxOk || st == vrxErrNullPtr || st == vrxErrFftOrder || st == vrxErrFftFlag || st == vrxErrBadSpec;
}

// A transform over untyped data (n points, the plan as an opaque pointer);
// split data holds its imaginary parts n elements on.
using Call = VrxStatus (*)(uint8_t*, uint8_t*, size_t, const void*, Vrx8u*);
template <class T> T* at(uint8_t* q, size_t k = 0) { return q ? reinterpret_cast<T*>(q) + k : nullptr; }
template <class T, class P, auto F> VrxStatus outOf(uint8_t* s, uint8_t* d, size_t, const void* p, Vrx8u* w) {
    return F(at<T>(s), at<T>(d), static_cast<const P*>(p), w);
}
template <class T, class P, auto F> VrxStatus inPlace(uint8_t* s, uint8_t*, size_t, const void* p, Vrx8u* w) {
    return F(at<T>(s), static_cast<const P*>(p), w);
}
template <class T, class P, auto F> VrxStatus splitOut(uint8_t* s, uint8_t* d, size_t n, const void* p, Vrx8u* w) {
    return F(at<T>(s), at<T>(s, n), at<T>(d), at<T>(d, n), static_cast<const P*>(p), w);
}
template <class T, class P, auto F> VrxStatus splitIn(uint8_t* s, uint8_t*, size_t n, const void* p, Vrx8u* w) {
    return F(at<T>(s), at<T>(s, n), static_cast<const P*>(p), w);
}

// One entry: its call and its source and destination lengths in reals
// (kN: n, kCcs: n + 2, k2N: 2n; none: in place on the source).
enum Len { kNone, kN, kCcs, k2N };
struct Entry {
    const char* name;
    Call call;
    Len src, dst;
};
size_t reals(Len l, size_t n) { return l == kN ? n : l == kCcs ? n + 2 : l == k2N ? 2 * n : 0; }

template <class C, class P, auto Fwd, auto Inv, auto FwdI, auto InvI> std::vector<Entry> complexEntries() {
    return {{"fwd", outOf<C, P, Fwd>, k2N, k2N}, {"inv", outOf<C, P, Inv>, k2N, k2N},
            {"fwd_I", inPlace<C, P, FwdI>, k2N, kNone}, {"inv_I", inPlace<C, P, InvI>, k2N, kNone}};
}
template <class T, class P, auto Fwd, auto Inv, auto FwdI, auto InvI> std::vector<Entry> splitEntries() {
    return {{"fwd", splitOut<T, P, Fwd>, k2N, k2N}, {"inv", splitOut<T, P, Inv>, k2N, k2N},
            {"fwd_I", splitIn<T, P, FwdI>, k2N, kNone}, {"inv_I", splitIn<T, P, InvI>, k2N, kNone}};
}
#define VRX_REAL_ENTRIES(T, P, w)                                                                                          \
    {{"fwdCCS", outOf<T, P, vrxsFFTFwd_RToCCS_##w>, kN, kCcs}, {"fwdPack", outOf<T, P, vrxsFFTFwd_RToPack_##w>, kN, kN},     \
     {"fwdPerm", outOf<T, P, vrxsFFTFwd_RToPerm_##w>, kN, kN}, {"invCCS", outOf<T, P, vrxsFFTInv_CCSToR_##w>, kCcs, kN},    \
     {"invPack", outOf<T, P, vrxsFFTInv_PackToR_##w>, kN, kN}, {"invPerm", outOf<T, P, vrxsFFTInv_PermToR_##w>, kN, kN},    \
     {"fwdCCS_I", inPlace<T, P, vrxsFFTFwd_RToCCS_##w##_I>, kCcs, kNone},                                                  \
     {"fwdPack_I", inPlace<T, P, vrxsFFTFwd_RToPack_##w##_I>, kN, kNone},                                                  \
     {"fwdPerm_I", inPlace<T, P, vrxsFFTFwd_RToPerm_##w##_I>, kN, kNone},                                                  \
     {"invCCS_I", inPlace<T, P, vrxsFFTInv_CCSToR_##w##_I>, kCcs, kNone},                                                  \
     {"invPack_I", inPlace<T, P, vrxsFFTInv_PackToR_##w##_I>, kN, kNone},                                                  \
     {"invPerm_I", inPlace<T, P, vrxsFFTInv_PermToR_##w##_I>, kN, kNone}}

template <class P, VrxStatus (*F)(P**, int, int, VrxAlgHint, Vrx8u*, Vrx8u*)>
VrxStatus initAs(void** pp, int order, int flag, VrxAlgHint hint, Vrx8u* spec, Vrx8u* buf) {
    return F(reinterpret_cast<P**>(pp), order, flag, hint, spec, buf);
}

// A plan kind: its size query and Init, its transforms, its real width.
struct Kind {
    VrxStatus (*getSize)(int, int, VrxAlgHint, int*, int*, int*);
    VrxStatus (*init)(void**, int, int, VrxAlgHint, Vrx8u*, Vrx8u*);
    std::vector<Entry> entries;
    size_t real;
    int sibling;  // a kind of the same width whose plans the entries must refuse
};
using C32 = VrxsFftPlan_C_32fc;
using S32 = VrxsFftPlan_C_32f;
using R32 = VrxsFftPlan_R_32f;
using C64 = VrxsFftPlan_C_64fc;
using S64 = VrxsFftPlan_C_64f;
using R64 = VrxsFftPlan_R_64f;
const Kind kKinds[6] = {
    {vrxsFFTGetSize_C_32fc, initAs<C32, vrxsFFTInit_C_32fc>,
     complexEntries<Vrx32fc, C32, vrxsFFTFwd_CToC_32fc, vrxsFFTInv_CToC_32fc, vrxsFFTFwd_CToC_32fc_I, vrxsFFTInv_CToC_32fc_I>(), 4, 1},
    {vrxsFFTGetSize_C_32f, initAs<S32, vrxsFFTInit_C_32f>,
     splitEntries<Vrx32f, S32, vrxsFFTFwd_CToC_32f, vrxsFFTInv_CToC_32f, vrxsFFTFwd_CToC_32f_I, vrxsFFTInv_CToC_32f_I>(), 4, 0},
    {vrxsFFTGetSize_R_32f, initAs<R32, vrxsFFTInit_R_32f>, VRX_REAL_ENTRIES(Vrx32f, R32, 32f), 4, 0},
    {vrxsFFTGetSize_C_64fc, initAs<C64, vrxsFFTInit_C_64fc>,
     complexEntries<Vrx64fc, C64, vrxsFFTFwd_CToC_64fc, vrxsFFTInv_CToC_64fc, vrxsFFTFwd_CToC_64fc_I, vrxsFFTInv_CToC_64fc_I>(), 8, 4},
    {vrxsFFTGetSize_C_64f, initAs<S64, vrxsFFTInit_C_64f>,
     splitEntries<Vrx64f, S64, vrxsFFTFwd_CToC_64f, vrxsFFTInv_CToC_64f, vrxsFFTFwd_CToC_64f_I, vrxsFFTInv_CToC_64f_I>(), 8, 3},
    {vrxsFFTGetSize_R_64f, initAs<R64, vrxsFFTInit_R_64f>, VRX_REAL_ENTRIES(Vrx64f, R64, 64f), 8, 3},
};
#undef VRX_REAL_ENTRIES

}  // namespace

void fuzzOne(fz::In& in) {
    const Kind& k = kKinds[in.range(0, 5)];
    const int order = in.mostlyIn(0, kMaxRunOrder + 1);
    static const int kFlags[] = {vrxFftScaleFwd, vrxFftScaleInv, vrxFftScaleSqrt, vrxFftScaleNone};
    const int flag = in.rarely(8) ? in.ConsumeIntegral<int>() : kFlags[in.range(0, 3)];
    const VrxAlgHint hint = in.ConsumeIntegral<int>();
    fz::CallerMxcsr csr(in);

    // size query, with any result pointer null now and then
    const int sentinel = -0x5A5A5A5A;
    int sizes[3] = {sentinel, sentinel, sentinel};
    const uint8_t nulls = in.rarely() ? in.byte() : 0;
    VrxStatus st = k.getSize(order, flag, hint, nulls & 1 ? nullptr : &sizes[0], nulls & 2 ? nullptr : &sizes[1],
                             nulls & 4 ? nullptr : &sizes[2]);
    csr.check("GetSize", st);
    require(knownStatus(st), "unknown status", "GetSize", st);
    if (st < 0)
        return require(sizes[0] == sentinel && sizes[1] == sentinel && sizes[2] == sentinel, "written on failure", "GetSize", st);
    require((nulls & 7) == 0, "null result pointer accepted", "GetSize", st);
    require(sizes[0] > 0 && sizes[1] >= 0 && sizes[2] >= 0, "negative size", "GetSize", st);
    if (order > kMaxRunOrder) return;

    // Init in exactly the reported memory, at fuzzer-chosen misalignments
    Guarded spec(sizes[0], in.byte()), init(sizes[1], in.byte());
    const uint8_t initNulls = in.rarely() ? in.byte() : 0;
    void* const planSentinel = reinterpret_cast<void*>(uintptr_t(0x5A5A5A5A));
    void* plan = planSentinel;
    st = k.init(initNulls & 1 ? nullptr : &plan, order, flag, hint, initNulls & 2 ? nullptr : spec.data(),
                initNulls & 4 ? nullptr : init.data());
    csr.check("Init", st);
    require(knownStatus(st), "unknown status", "Init", st);
    require(spec.intact() && init.intact(), "written outside its buffers", "Init", st);
    if (st < 0) return require(plan == planSentinel, "plan pointer written on failure", "Init", st);
    const uintptr_t pos = reinterpret_cast<uintptr_t>(plan), base = reinterpret_cast<uintptr_t>(spec.data());
    require(pos % 64 == 0 && pos >= base && pos < base + spec.size(), "plan outside its memory", "Init", st);

    // a plan of another kind of the same width, for the entries to refuse
    const Kind& sib = kKinds[k.sibling];
    std::vector<Guarded> mem;
    mem.reserve(2);
    void* other = nullptr;
    int os[3];
    if (in.rarely(8) && sib.getSize(order, flag, hint, &os[0], &os[1], &os[2]) == vrxOk) {
        mem.emplace_back(os[0]);
        mem.emplace_back(os[1]);
        if (sib.init(&other, order, flag, hint, mem[0].data(), mem[1].data()) != vrxOk) other = nullptr;
    }
    const size_t n = size_t(1) << order;
    for (int c = in.range(1, 4); c-- > 0 && in.remaining_bytes() > 0;) {
        const Entry& e = k.entries[in.range(0, int(k.entries.size()) - 1)];
        // data at any multiple of its element width from 64 bytes; plan,
        // init and work memory at any byte
        Guarded src(reals(e.src, n) * k.real, in.byte() & ~(k.real - 1));
        Guarded dst(reals(e.dst, n) * k.real, in.byte() & ~(k.real - 1));
        Guarded work(sizes[2], in.byte());
        src.fill(in);
        const uint8_t callNulls = in.rarely() ? in.byte() : 0;
        const void* usePlan = other && in.rarely(2) ? other : plan;
        const fz::Watch w{&src, &dst, &spec};
        st = e.call(callNulls & 1 ? nullptr : src.data(), e.dst == kNone || (callNulls & 2) ? nullptr : dst.data(), n,
                    callNulls & 4 ? nullptr : usePlan, callNulls & 8 ? nullptr : work.data());
        csr.check(e.name, st);
        require(knownStatus(st), "unknown status", e.name, st);
        w.check(st, e.name);
        require(work.intact(), "written outside the work buffer", e.name, st);
        require(w.unchanged(spec), "plan written by a transform", e.name, st);
        if (e.dst != kNone) require(w.unchanged(src), "source of an out-of-place call written", e.name, st);
        // a null pointer, or a null work buffer where the plan needs one,
        // or a plan of another kind must fail
        const bool mustFail = (callNulls & 1) || (e.dst != kNone && (callNulls & 2)) || (callNulls & 4) ||
                              ((callNulls & 8) && sizes[2] > 0) || usePlan != plan;
        if (mustFail) require(st < 0, "bad argument accepted", e.name, st);
    }
}
