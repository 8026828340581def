// Fuzz target of the DFT and Hilbert plans: fuzzer-chosen kind, length, flag,
// form and data through the size query, Init and the transforms. A failed
// call must return a negative status and write nothing outside the object's
// memory and the destination.
#include "fuzz_util.h"

namespace {

// A transform over untyped data: the split form takes its imaginary parts N
// elements on.
using Call = VrxStatus (*)(const void*, void*, int, const void*, Vrx8u*);
template <class T, class P, VrxStatus (*F)(const T*, T*, const P*, Vrx8u*)>
VrxStatus plain(const void* s, void* d, int, const void* p, Vrx8u* b) {
    return F(static_cast<const T*>(s), static_cast<T*>(d), static_cast<const P*>(p), b);
}
template <class T, class P, VrxStatus (*F)(const T*, const T*, T*, T*, const P*, Vrx8u*)>
VrxStatus split(const void* s, void* d, int n, const void* p, Vrx8u* b) {
    const T* x = static_cast<const T*>(s);
    T* y = static_cast<T*>(d);
    return F(x, x + n, y, y + n, static_cast<const P*>(p), b);
}

struct Kind {
    size_t elem;
    VrxStatus (*getSize)(int, int, VrxAlgHint, int*, int*, int*);
    VrxStatus (*init)(int, int, VrxAlgHint, Vrx8u*, Vrx8u*);
    std::vector<Call> calls;
};
using C32 = VrxsDftPlan_C_32fc;
using S32 = VrxsDftPlan_C_32f;
using R32 = VrxsDftPlan_R_32f;
using C64 = VrxsDftPlan_C_64fc;
using S64 = VrxsDftPlan_C_64f;
using R64 = VrxsDftPlan_R_64f;
const Kind kKinds[] = {
    {4, vrxsDFTGetSize_C_32fc, vrxsDFTInit_C_32fc, {plain<Vrx32fc, C32, vrxsDFTFwd_CToC_32fc>, plain<Vrx32fc, C32, vrxsDFTInv_CToC_32fc>}},
    {4, vrxsDFTGetSize_C_32f, vrxsDFTInit_C_32f, {split<Vrx32f, S32, vrxsDFTFwd_CToC_32f>, split<Vrx32f, S32, vrxsDFTInv_CToC_32f>}},
    {4, vrxsDFTGetSize_R_32f, vrxsDFTInit_R_32f,
     {plain<Vrx32f, R32, vrxsDFTFwd_RToCCS_32f>, plain<Vrx32f, R32, vrxsDFTFwd_RToPack_32f>, plain<Vrx32f, R32, vrxsDFTFwd_RToPerm_32f>,
      plain<Vrx32f, R32, vrxsDFTInv_CCSToR_32f>, plain<Vrx32f, R32, vrxsDFTInv_PackToR_32f>, plain<Vrx32f, R32, vrxsDFTInv_PermToR_32f>}},
    {8, vrxsDFTGetSize_C_64fc, vrxsDFTInit_C_64fc, {plain<Vrx64fc, C64, vrxsDFTFwd_CToC_64fc>, plain<Vrx64fc, C64, vrxsDFTInv_CToC_64fc>}},
    {8, vrxsDFTGetSize_C_64f, vrxsDFTInit_C_64f, {split<Vrx64f, S64, vrxsDFTFwd_CToC_64f>, split<Vrx64f, S64, vrxsDFTInv_CToC_64f>}},
    {8, vrxsDFTGetSize_R_64f, vrxsDFTInit_R_64f,
     {plain<Vrx64f, R64, vrxsDFTFwd_RToCCS_64f>, plain<Vrx64f, R64, vrxsDFTFwd_RToPack_64f>, plain<Vrx64f, R64, vrxsDFTFwd_RToPerm_64f>,
      plain<Vrx64f, R64, vrxsDFTInv_CCSToR_64f>, plain<Vrx64f, R64, vrxsDFTInv_PackToR_64f>, plain<Vrx64f, R64, vrxsDFTInv_PermToR_64f>}},
};

void runDft(fz::In& in, const Kind& k) {
    const int N = in.rarely() ? in.ConsumeIntegral<int>() : in.range(-2, 4997);  // huge ones included
    static const int kFlags[] = {1, 2, 4, 8, 0, 3};
    const int flag = kFlags[in.range(0, 5)];
    int s = 0, i = 0, w = 0;
    VrxStatus st = k.getSize(N, flag, 0, &s, &i, &w);
    if (st != vrxOk) return fz::require(st < 0, "positive status", "GetSize", st);
    if (N > 5000 || s <= 0 || s > (64 << 20)) return;
    fz::Guarded spec(s), ib(i), wb(w);
    st = k.init(N, flag, 0, spec.data(), in.rarely(8) ? nullptr : ib.data());
    fz::require(spec.intact() && ib.intact(), "Init wrote outside", "Init", st);
    if (st != vrxOk) return fz::require(st < 0, "positive status", "Init", st);
    const size_t cap = 2 * static_cast<size_t>(N) + 2;
    fz::Guarded src(cap * k.elem), dst(cap * k.elem);
    if (k.elem == 4) src.fillWith<float>([&] { return in.ConsumeIntegral<int32_t>() * 1e-9; });
    else src.fillWith<double>([&] { return in.ConsumeIntegral<int32_t>() * 1e-9; });
    Vrx8u* buf = in.rarely(8) ? nullptr : wb.data();
    const bool inPlace = in.ConsumeBool();
    const Call call = k.calls[in.range(0, int(k.calls.size()) - 1)];
    const fz::Watch watch{&src, &dst, &wb};
    st = call(src.data(), inPlace ? src.data() : dst.data(), N, spec.data(), buf);
    fz::require(spec.intact(), "plan guards", "run", st);
    watch.check(st, "run");
}

void runHilbert(fz::In& in) {
    const int N = in.range(-2, 2997);
    int s = 0, b = 0;
    VrxStatus st = vrxsHilbertGetSize_32f32fc(N, 0, &s, &b);
    if (st != vrxOk) return fz::require(st < 0, "positive status", "GetSize", st);
    fz::Guarded spec(s), buf(b);
    auto* plan = spec.as<VrxsHilbertPlan>();
    st = vrxsHilbertInit_32f32fc(N, 0, plan, buf.data());
    fz::require(st == vrxOk && spec.intact() && buf.intact(), "Init", "Init", st);
    fz::Guarded src(N * sizeof(float)), dst(N * sizeof(Vrx32fc));
    src.fillWith<float>([&] { return in.ConsumeIntegral<int32_t>() * 1e-9; });
    const bool nullBuf = in.rarely(8);
    const fz::Watch w{&src, &dst, &buf};
    st = vrxsHilbert_32f32fc(src.as<float>(), dst.as<Vrx32fc>(), plan, nullBuf ? nullptr : buf.data());
    w.check(st, "Hilbert");
    fz::require(nullBuf == (st == vrxErrNullPtr), "null buffer", "Hilbert", st);
}

}  // namespace

void fuzzOne(fz::In& in) {
    const int sel = in.range(0, 6);
    if (sel < 6) runDft(in, kKinds[sel]);
    else runHilbert(in);
}
