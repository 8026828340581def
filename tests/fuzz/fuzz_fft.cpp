// FFT plans under fuzzer-chosen orders, flags, hints, null pointers,
// misaligned buffers and data: the size query, Init in exactly the reported
// memory, then transforms of every entry, sometimes with a plan of another
// kind. A failed call must return a negative status and write nothing (the
// size results, the plan pointer, the destination); no call writes outside
// its buffers, a transform never writes its plan, and the caller's control
// word comes back unchanged.
#include <functional>
#include <memory>
#include <vector>

#include "fuzz_util.h"

namespace {

using fz::Guarded;
using fz::require;

constexpr int kMaxRunOrder = 14;  // Init and transforms run up to this order

bool knownStatus(VrxStatus st) {
    return st == vrxOk || st == vrxErrNullPtr || st == vrxErrFftOrder || st == vrxErrFftFlag || st == vrxErrBadSpec;
}

using GetSizeFn = VrxStatus (*)(int, int, VrxAlgHint, int*, int*, int*);

// One transform entry: source bytes, destination bytes (0: in place on the
// source), and the call with the plan passed as an opaque pointer.
struct Entry {
    const char* name;
    size_t srcBytes, dstBytes;
    size_t elem;  // data arrays start on a multiple of the element width
    std::function<VrxStatus(uint8_t*, uint8_t*, const void*, uint8_t*)> call;
};

// A plan kind: its size query and Init, its transforms at an order.
struct Kind {
    const char* name;
    GetSizeFn getSize;
    VrxStatus (*init)(void**, int, int, VrxAlgHint, Vrx8u*, Vrx8u*);
    std::vector<Entry> (*entries)(int order);
    int sibling;  // a kind of the same width whose plans the entries must refuse
};

template <class P, VrxStatus (*F)(P**, int, int, VrxAlgHint, Vrx8u*, Vrx8u*)>
VrxStatus initAs(void** pp, int order, int flag, VrxAlgHint hint, Vrx8u* spec, Vrx8u* buf) {
    return F(reinterpret_cast<P**>(pp), order, flag, hint, spec, buf);
}

template <class T, class C, class P>
std::vector<Entry> complexEntries(int order, VrxStatus (*fwd)(const C*, C*, const P*, Vrx8u*),
                                  VrxStatus (*inv)(const C*, C*, const P*, Vrx8u*), VrxStatus (*fwdI)(C*, const P*, Vrx8u*),
                                  VrxStatus (*invI)(C*, const P*, Vrx8u*)) {
    const size_t b = (size_t(1) << order) * sizeof(C);
    auto pc = [](const void* p) { return static_cast<const P*>(p); };
    return {
        {"fwd", b, b, sizeof(T), [=](uint8_t* s, uint8_t* d, const void* p, uint8_t* w) { return fwd(reinterpret_cast<C*>(s), reinterpret_cast<C*>(d), pc(p), w); }},
        {"inv", b, b, sizeof(T), [=](uint8_t* s, uint8_t* d, const void* p, uint8_t* w) { return inv(reinterpret_cast<C*>(s), reinterpret_cast<C*>(d), pc(p), w); }},
        {"fwd_I", b, 0, sizeof(T), [=](uint8_t* s, uint8_t*, const void* p, uint8_t* w) { return fwdI(reinterpret_cast<C*>(s), pc(p), w); }},
        {"inv_I", b, 0, sizeof(T), [=](uint8_t* s, uint8_t*, const void* p, uint8_t* w) { return invI(reinterpret_cast<C*>(s), pc(p), w); }},
    };
}

// Split data: real parts in the first half of a buffer, imaginary parts in
// the second.
template <class T, class P>
std::vector<Entry> splitEntries(int order, VrxStatus (*fwd)(const T*, const T*, T*, T*, const P*, Vrx8u*),
                                VrxStatus (*inv)(const T*, const T*, T*, T*, const P*, Vrx8u*),
                                VrxStatus (*fwdI)(T*, T*, const P*, Vrx8u*), VrxStatus (*invI)(T*, T*, const P*, Vrx8u*)) {
    const size_t n = size_t(1) << order, b = 2 * n * sizeof(T);
    auto pc = [](const void* p) { return static_cast<const P*>(p); };
    auto t = [](uint8_t* q) { return reinterpret_cast<T*>(q); };
    return {
        {"fwd", b, b, sizeof(T), [=](uint8_t* s, uint8_t* d, const void* p, uint8_t* w) { return fwd(t(s), s ? t(s) + n : nullptr, t(d), d ? t(d) + n : nullptr, pc(p), w); }},
        {"inv", b, b, sizeof(T), [=](uint8_t* s, uint8_t* d, const void* p, uint8_t* w) { return inv(t(s), s ? t(s) + n : nullptr, t(d), d ? t(d) + n : nullptr, pc(p), w); }},
        {"fwd_I", b, 0, sizeof(T), [=](uint8_t* s, uint8_t*, const void* p, uint8_t* w) { return fwdI(t(s), s ? t(s) + n : nullptr, pc(p), w); }},
        {"inv_I", b, 0, sizeof(T), [=](uint8_t* s, uint8_t*, const void* p, uint8_t* w) { return invI(t(s), s ? t(s) + n : nullptr, pc(p), w); }},
    };
}

template <class T, class P>
struct RealApi {
    using Out = VrxStatus (*)(const T*, T*, const P*, Vrx8u*);
    using In = VrxStatus (*)(T*, const P*, Vrx8u*);
    Out fwdCCS, fwdPack, fwdPerm, invCCS, invPack, invPerm;
    In fwdCCSI, fwdPackI, fwdPermI, invCCSI, invPackI, invPermI;
};

template <class T, class P>
std::vector<Entry> realEntries(int order, const RealApi<T, P>& a) {
    const size_t n = size_t(1) << order, b = n * sizeof(T), ccs = (n + 2) * sizeof(T);
    auto pc = [](const void* p) { return static_cast<const P*>(p); };
    auto t = [](uint8_t* q) { return reinterpret_cast<T*>(q); };
    auto out = [&](const char* name, size_t in, size_t o, typename RealApi<T, P>::Out f) {
        return Entry{name, in, o, sizeof(T), [=](uint8_t* s, uint8_t* d, const void* p, uint8_t* w) { return f(t(s), t(d), pc(p), w); }};
    };
    auto inPlace = [&](const char* name, size_t in, typename RealApi<T, P>::In f) {
        return Entry{name, in, 0, sizeof(T), [=](uint8_t* s, uint8_t*, const void* p, uint8_t* w) { return f(t(s), pc(p), w); }};
    };
    return {out("fwdCCS", b, ccs, a.fwdCCS), out("fwdPack", b, b, a.fwdPack), out("fwdPerm", b, b, a.fwdPerm),
            out("invCCS", ccs, b, a.invCCS), out("invPack", b, b, a.invPack), out("invPerm", b, b, a.invPerm),
            inPlace("fwdCCS_I", ccs, a.fwdCCSI), inPlace("fwdPack_I", b, a.fwdPackI), inPlace("fwdPerm_I", b, a.fwdPermI),
            inPlace("invCCS_I", ccs, a.invCCSI), inPlace("invPack_I", b, a.invPackI), inPlace("invPerm_I", b, a.invPermI)};
}

const RealApi<Vrx32f, VrxsFftPlan_R_32f> kReal32{
    vrxsFFTFwd_RToCCS_32f, vrxsFFTFwd_RToPack_32f, vrxsFFTFwd_RToPerm_32f,
    vrxsFFTInv_CCSToR_32f, vrxsFFTInv_PackToR_32f, vrxsFFTInv_PermToR_32f,
    vrxsFFTFwd_RToCCS_32f_I, vrxsFFTFwd_RToPack_32f_I, vrxsFFTFwd_RToPerm_32f_I,
    vrxsFFTInv_CCSToR_32f_I, vrxsFFTInv_PackToR_32f_I, vrxsFFTInv_PermToR_32f_I};
const RealApi<Vrx64f, VrxsFftPlan_R_64f> kReal64{
    vrxsFFTFwd_RToCCS_64f, vrxsFFTFwd_RToPack_64f, vrxsFFTFwd_RToPerm_64f,
    vrxsFFTInv_CCSToR_64f, vrxsFFTInv_PackToR_64f, vrxsFFTInv_PermToR_64f,
    vrxsFFTFwd_RToCCS_64f_I, vrxsFFTFwd_RToPack_64f_I, vrxsFFTFwd_RToPerm_64f_I,
    vrxsFFTInv_CCSToR_64f_I, vrxsFFTInv_PackToR_64f_I, vrxsFFTInv_PermToR_64f_I};

const Kind kKinds[6] = {
    {"C_32fc", vrxsFFTGetSize_C_32fc, initAs<VrxsFftPlan_C_32fc, vrxsFFTInit_C_32fc>,
     [](int o) { return complexEntries<Vrx32f>(o, vrxsFFTFwd_CToC_32fc, vrxsFFTInv_CToC_32fc, vrxsFFTFwd_CToC_32fc_I, vrxsFFTInv_CToC_32fc_I); }, 1},
    {"C_32f", vrxsFFTGetSize_C_32f, initAs<VrxsFftPlan_C_32f, vrxsFFTInit_C_32f>,
     [](int o) { return splitEntries<Vrx32f>(o, vrxsFFTFwd_CToC_32f, vrxsFFTInv_CToC_32f, vrxsFFTFwd_CToC_32f_I, vrxsFFTInv_CToC_32f_I); }, 0},
    {"R_32f", vrxsFFTGetSize_R_32f, initAs<VrxsFftPlan_R_32f, vrxsFFTInit_R_32f>,
     [](int o) { return realEntries(o, kReal32); }, 0},
    {"C_64fc", vrxsFFTGetSize_C_64fc, initAs<VrxsFftPlan_C_64fc, vrxsFFTInit_C_64fc>,
     [](int o) { return complexEntries<Vrx64f>(o, vrxsFFTFwd_CToC_64fc, vrxsFFTInv_CToC_64fc, vrxsFFTFwd_CToC_64fc_I, vrxsFFTInv_CToC_64fc_I); }, 4},
    {"C_64f", vrxsFFTGetSize_C_64f, initAs<VrxsFftPlan_C_64f, vrxsFFTInit_C_64f>,
     [](int o) { return splitEntries<Vrx64f>(o, vrxsFFTFwd_CToC_64f, vrxsFFTInv_CToC_64f, vrxsFFTFwd_CToC_64f_I, vrxsFFTInv_CToC_64f_I); }, 3},
    {"R_64f", vrxsFFTGetSize_R_64f, initAs<VrxsFftPlan_R_64f, vrxsFFTInit_R_64f>,
     [](int o) { return realEntries(o, kReal64); }, 3},
};

// A plan built in guarded memory of exactly the reported sizes.
struct Plan {
    std::unique_ptr<Guarded> spec, init;
    void* plan = nullptr;
    int workSize = 0;
};

bool build(const Kind& k, int order, int flag, VrxAlgHint hint, Plan& p) {
    int spec = 0, init = 0, work = 0;
    if (k.getSize(order, flag, hint, &spec, &init, &work) != vrxOk) return false;
    p.spec = std::make_unique<Guarded>(static_cast<size_t>(spec), 0);
    p.init = std::make_unique<Guarded>(static_cast<size_t>(init), 0);
    p.workSize = work;
    return k.init(&p.plan, order, flag, hint, p.spec->data(), p.init->data()) == vrxOk;
}

void fuzzOne(FuzzedDataProvider& in) {
    const Kind& k = kKinds[in.ConsumeIntegralInRange<int>(0, 5)];
    const int order = fz::mostlyIn(in, 0, kMaxRunOrder + 1);
    static const int kFlags[] = {vrxFftScaleFwd, vrxFftScaleInv, vrxFftScaleSqrt, vrxFftScaleNone};
    const int flag = fz::rarely(in, 8) ? in.ConsumeIntegral<int>() : kFlags[in.ConsumeIntegralInRange<int>(0, 3)];
    const VrxAlgHint hint = in.ConsumeIntegral<int>();
    fz::CallerMxcsr csr(in);

    // size query, with any result pointer null now and then
    const int sentinel = -0x5A5A5A5A;
    int sizes[3] = {sentinel, sentinel, sentinel};
    const uint8_t nulls = fz::rarely(in) ? in.ConsumeIntegral<uint8_t>() : 0;
    VrxStatus st = k.getSize(order, flag, hint, nulls & 1 ? nullptr : &sizes[0], nulls & 2 ? nullptr : &sizes[1],
                             nulls & 4 ? nullptr : &sizes[2]);
    csr.check("GetSize", st);
    require(knownStatus(st), "unknown status", "GetSize", st);
    if (st < 0) {
        require(sizes[0] == sentinel && sizes[1] == sentinel && sizes[2] == sentinel, "written on failure", "GetSize", st);
        return;
    }
    require((nulls & 7) == 0, "null result pointer accepted", "GetSize", st);
    require(sizes[0] > 0 && sizes[1] >= 0 && sizes[2] >= 0, "negative size", "GetSize", st);
    if (order > kMaxRunOrder) return;

    // Init in exactly the reported memory, at fuzzer-chosen misalignments
    Guarded spec(static_cast<size_t>(sizes[0]), in.ConsumeIntegral<uint8_t>());
    Guarded init(static_cast<size_t>(sizes[1]), in.ConsumeIntegral<uint8_t>());
    const uint8_t initNulls = fz::rarely(in) ? in.ConsumeIntegral<uint8_t>() : 0;
    void* const planSentinel = reinterpret_cast<void*>(uintptr_t(0x5A5A5A5A));
    void* plan = planSentinel;
    st = k.init(initNulls & 1 ? nullptr : &plan, order, flag, hint, initNulls & 2 ? nullptr : spec.data(),
                initNulls & 4 ? nullptr : init.data());
    csr.check("Init", st);
    require(knownStatus(st), "unknown status", "Init", st);
    require(spec.intact() && init.intact(), "written outside its buffers", "Init", st);
    if (st < 0) {
        require(plan == planSentinel, "plan pointer written on failure", "Init", st);
        return;
    }
    const uintptr_t at = reinterpret_cast<uintptr_t>(plan), base = reinterpret_cast<uintptr_t>(spec.data());
    require(at % 64 == 0 && at >= base && at < base + spec.size(), "plan outside its memory", "Init", st);
    const std::vector<uint8_t> planBytes = spec.snapshot();

    // a plan of another kind of the same width, for the entries to refuse
    Plan other;
    const bool haveOther = fz::rarely(in, 8) && build(kKinds[k.sibling], order, flag, hint, other);

    const std::vector<Entry> entries = k.entries(order);
    const int calls = in.ConsumeIntegralInRange<int>(1, 4);
    for (int c = 0; c < calls && in.remaining_bytes() > 0; ++c) {
        const Entry& e = entries[in.ConsumeIntegralInRange<size_t>(0, entries.size() - 1)];
        // data at any multiple of its element width from 64 bytes; plan,
        // init and work memory at any byte
        Guarded src(e.srcBytes, in.ConsumeIntegral<uint8_t>() & ~(e.elem - 1));
        Guarded dst(e.dstBytes, in.ConsumeIntegral<uint8_t>() & ~(e.elem - 1));
        const size_t workBytes = static_cast<size_t>(sizes[2]);
        Guarded work(workBytes, in.ConsumeIntegral<uint8_t>());
        src.fill(in);
        const uint8_t callNulls = fz::rarely(in) ? in.ConsumeIntegral<uint8_t>() : 0;
        const void* usePlan = haveOther && fz::rarely(in, 2) ? other.plan : plan;
        const std::vector<uint8_t> srcBefore = src.snapshot(), dstBefore = dst.snapshot();
        st = e.call(callNulls & 1 ? nullptr : src.data(), e.dstBytes == 0 || (callNulls & 2) ? nullptr : dst.data(),
                    callNulls & 4 ? nullptr : usePlan, callNulls & 8 ? nullptr : work.data());
        csr.check(e.name, st);
        require(knownStatus(st), "unknown status", e.name, st);
        require(src.intact() && dst.intact() && work.intact(), "written outside its buffers", e.name, st);
        require(spec.same(planBytes) && spec.intact(), "plan written by a transform", e.name, st);
        // a null pointer, or a null work buffer where the plan needs one,
        // or a plan of another kind must fail
        const bool mustFail = (callNulls & 1) || (e.dstBytes && (callNulls & 2)) || (callNulls & 4) ||
                              ((callNulls & 8) && workBytes > 0) || usePlan != plan;
        if (mustFail) require(st < 0, "bad argument accepted", e.name, st);
        if (st < 0) {
            require(src.same(srcBefore) && dst.same(dstBefore), "written on failure", e.name, st);
        } else if (e.dstBytes) {
            require(src.same(srcBefore), "source of an out-of-place call written", e.name, st);
        }
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    FuzzedDataProvider in(data, size);
    fuzzOne(in);
    return 0;
}
