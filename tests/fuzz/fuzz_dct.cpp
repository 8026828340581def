// libFuzzer target of the DCT plans and Goertzel, through the public header:
// fuzzer-chosen width, direction, length, buffer offsets, in-place runs,
// missing buffers and plans of the other direction go through the size
// query, Init and the transforms. A failed call must return a negative
// status and write nothing: every buffer carries guard bytes, and the
// destination of a failed call must keep its bytes. abort() on a violation.
#include <math.h>

#include "fuzz_util.h"

namespace {

template <class T, class P> struct Dct {
    VrxStatus (*getSize)(int, VrxAlgHint, int*, int*, int*);
    VrxStatus (*init)(P**, int, VrxAlgHint, Vrx8u*, Vrx8u*);
    VrxStatus (*run)(const T*, T*, const P*, Vrx8u*);
    VrxStatus (*runI)(T*, const P*, Vrx8u*);
    bool inv;
};
const Dct<Vrx32f, VrxsDctPlan_Fwd_32f> kFwd32{vrxsDCTFwdGetSize_32f, vrxsDCTFwdInit_32f, vrxsDCTFwd_32f, vrxsDCTFwd_32f_I, false};
const Dct<Vrx32f, VrxsDctPlan_Inv_32f> kInv32{vrxsDCTInvGetSize_32f, vrxsDCTInvInit_32f, vrxsDCTInv_32f, vrxsDCTInv_32f_I, true};
const Dct<Vrx64f, VrxsDctPlan_Fwd_64f> kFwd64{vrxsDCTFwdGetSize_64f, vrxsDCTFwdInit_64f, vrxsDCTFwd_64f, vrxsDCTFwd_64f_I, false};
const Dct<Vrx64f, VrxsDctPlan_Inv_64f> kInv64{vrxsDCTInvGetSize_64f, vrxsDCTInvInit_64f, vrxsDCTInv_64f, vrxsDCTInv_64f_I, true};

template <class T, class P>
void runDct(fz::In& in, const Dct<T, P>& api) {
    const int n = in.range(-2, 4997);  // includes 0 and negatives
    const uint8_t flags = in.byte();
    int spec = -1, init = -1, work = -1;
    VrxStatus st = api.getSize(n, 0, &spec, &init, &work);
    if (st != vrxOk) return fz::require(st < 0 && spec == -1 && init == -1 && work == -1, "failed size query wrote", "GetSize", st);
    fz::require(spec > 0 && init >= 0 && work >= 0, "negative size", "GetSize", st);
    fz::Guarded specB(spec, in.byte()), initB(init, in.byte()), workB(work, in.byte());
    P* plan = nullptr;
    Vrx8u* ib = (flags & 1) ? nullptr : initB.data();
    st = api.init(&plan, n, 0, specB.data(), ib);
    fz::require(specB.intact() && initB.intact(), "Init wrote outside", "Init", st);
    if (st != vrxOk) return fz::require(st < 0 && plan == nullptr && ib == nullptr && init > 0, "Init failed", "Init", st);
    fz::Guarded src(sizeof(T) * n, in.byte() & ~7), dst(sizeof(T) * n, in.byte() & ~7);
    src.fillWith<T>([&] { return static_cast<T>(in.ConsumeIntegral<int32_t>()) * static_cast<T>(1.0 / 65536); });
    const bool inPlace = flags & 2;
    T* out = inPlace ? src.as<T>() : dst.as<T>();
    Vrx8u* wb = (flags & 4) ? nullptr : workB.data();
    if (flags & 8) *reinterpret_cast<int32_t*>(plan) += api.inv ? -1 : 1;  // the word of the other direction
    const fz::Watch w{&src, &dst, &workB};
    st = inPlace ? api.runI(out, plan, wb) : api.run(src.as<T>(), out, plan, wb);
    fz::require(specB.intact(), "plan guards", "run", st);
    w.check(st, "run");
    if (st != vrxOk) return fz::require((flags & 8) || (wb == nullptr && work > 0), "refused a good call", "run", st);
    fz::require(!(flags & 8), "ran a plan of the other direction", "run", st);
    for (int i = 0; i < n; ++i) fz::require(isfinite(static_cast<double>(out[i])), "not finite", "run", st);
}

void runGoertz(fz::In& in) {
    const int form = in.range(0, 5), len = in.range(-2, 2997);
    const float f = in.raw<float>();
    const int sf = in.ConsumeIntegral<int>();
    fz::Guarded buf(16 * size_t(len > 0 ? len : 1)), val(16);
    buf.fill(in);
    // keep float samples finite
    if (form <= 1) buf.fillWith<float>([&, i = 0]() mutable { return float(buf.data()[i++]) - 128; });
    else if (form <= 3) buf.fillWith<double>([&, i = 0]() mutable { return double(buf.data()[i++]) - 128; });
    const fz::Watch w{&val};
    VrxStatus st;
    switch (form) {
        case 0: st = vrxsGoertz_32f(buf.as<Vrx32f>(), len, val.as<Vrx32fc>(), f); break;
        case 1: st = vrxsGoertz_32fc(buf.as<Vrx32fc>(), len, val.as<Vrx32fc>(), f); break;
        case 2: st = vrxsGoertz_64f(buf.as<Vrx64f>(), len, val.as<Vrx64fc>(), f); break;
        case 3: st = vrxsGoertz_64fc(buf.as<Vrx64fc>(), len, val.as<Vrx64fc>(), f); break;
        case 4: st = vrxsGoertz_16s_Sfs(buf.as<Vrx16s>(), len, val.as<Vrx16sc>(), f, sf); break;
        default: st = vrxsGoertz_16sc_Sfs(buf.as<Vrx16sc>(), len, val.as<Vrx16sc>(), f, sf); break;
    }
    w.check(st, "Goertz");
    const size_t wrote = form <= 1 ? 8 : (form <= 3 ? 16 : 4);
    for (size_t i = wrote; i < 16; ++i) fz::require(val.data()[i] == fz::Guarded::kFill, "written past the value", "Goertz", st);
    if (st != vrxOk) fz::require(len < 1 || !(f >= 0.0f && f < 1.0f), "refused a good call", "Goertz", st);
}

}  // namespace

void fuzzOne(fz::In& in) {
    switch (in.range(0, 4)) {
        case 0: runDct(in, kFwd32); break;
        case 1: runDct(in, kInv32); break;
        case 2: runDct(in, kFwd64); break;
        case 3: runDct(in, kInv64); break;
        default: runGoertz(in); break;
    }
}
