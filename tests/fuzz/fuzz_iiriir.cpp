// Fuzz target of the zero-phase IIR states and the IIR design: a
// fuzzer-chosen kind, order, taps, length and offsets through the size
// query, Init and the runs (out of place and in place), and fuzzer-chosen
// design arguments. A failed call must return a negative status and leave
// the destination (and the state block at Init) as it was; no call may
// write outside the state's block or the destination, or change the
// caller's MXCSR control bits.
#include "fuzz_util.h"

namespace {

using fz::Guarded;
using fz::require;

// The run and Init of one kind over bytes; the kind's sample and tap types.
struct Kind {
    int tapBytes, sampleBytes;
    VrxStatus (*size)(int, int*);
    VrxStatus (*init)(void**, const void*, int, Vrx8u*);
    VrxStatus (*run)(const void*, void*, int, void*);
    VrxStatus (*runI)(void*, int, void*);
};

template <class S, class T, class X, auto Size, auto Init, auto Run, auto RunI> Kind kind() {
    return {sizeof(T), sizeof(X), Size,
            [](void** pp, const void* t, int n, Vrx8u* b) { return Init(reinterpret_cast<S**>(pp), static_cast<const T*>(t), n, b); },
            [](const void* s, void* d, int len, void* st) { return Run(static_cast<const X*>(s), static_cast<X*>(d), len, static_cast<S*>(st)); },
            [](void* d, int len, void* st) { return RunI(static_cast<X*>(d), len, static_cast<S*>(st)); }};
}
const Kind kKinds[] = {
    kind<VrxsIirIirState_32f, Vrx32f, Vrx32f, vrxsIIRIIRGetStateSize_32f, vrxsIIRIIRInit_32f, vrxsIIRIIR_32f, vrxsIIRIIR_32f_I>(),
    kind<VrxsIirIirState64f_32f, Vrx64f, Vrx32f, vrxsIIRIIRGetStateSize64f_32f, vrxsIIRIIRInit64f_32f, vrxsIIRIIR64f_32f, vrxsIIRIIR64f_32f_I>(),
    kind<VrxsIirIirState_64f, Vrx64f, Vrx64f, vrxsIIRIIRGetStateSize_64f, vrxsIIRIIRInit_64f, vrxsIIRIIR_64f, vrxsIIRIIR_64f_I>(),
};

void fuzzDesign(fz::In& in) {
    fz::CallerMxcsr mx(in);
    const int band = in.range(0, 3), order = in.range(-2, 14);
    const double f1 = in.ConsumeFloatingPoint<double>(), f2 = in.ConsumeFloatingPoint<double>();
    const double pick1 = in.ConsumeProbability<double>() * 0.6 - 0.05, pick2 = in.ConsumeProbability<double>() * 0.6;
    const bool raw = in.ConsumeBool();
    const double lo = raw ? f1 : pick1, hi = raw ? f2 : pick2;
    const double rp = in.ConsumeBool() ? in.ConsumeFloatingPoint<double>() : in.ConsumeProbability<double>() * 32;
    const VrxIirGenType type = static_cast<VrxIirGenType>(in.range(-1, 2));
    Guarded out(2 * (2 * 12 + 1) * sizeof(double), in.byte());
    memset(out.data(), 0x5A, out.size());
    const fz::Watch w{&out};
    VrxStatus st;
    Vrx64f* t = out.as<Vrx64f>();
    switch (band) {
        case 0: st = vrxsIIRGenLowpass_64f(lo, rp, order, t, type); break;
        case 1: st = vrxsIIRGenHighpass_64f(lo, rp, order, t, type); break;
        case 2: st = vrxsIIRGenBandpass_64f(lo, hi, rp, order, t, type); break;
        default: st = vrxsIIRGenBandstop_64f(lo, hi, rp, order, t, type); break;
    }
    mx.check("IIRGen", st);
    w.check(st, "IIRGen");
    if (st == 0) {
        const int m = band >= 2 ? 2 * order : order;
        for (int i = 2 * (m + 1); i < 2 * 25; ++i)
            require(reinterpret_cast<const uint8_t*>(t + i)[0] == 0x5A, "written past the taps", "IIRGen", st);
        require(t[m + 1] == 1.0, "a[0] is not 1", "IIRGen", st);
    }
}

void fuzzFilter(fz::In& in) {
    fz::CallerMxcsr mx(in);
    const Kind& k = kKinds[in.range(0, 2)];
    const int order = in.range(-1, 40);
    int size = 0;
    const VrxStatus ss = k.size(order, &size);
    if (order < 1) return require(ss < 0, "size of a bad order", "GetStateSize", ss);
    require(ss == 0 && size > 0, "size query", "GetStateSize", ss);
    Guarded block(size, in.byte()), taps(size_t(2 * order + 2) * k.tapBytes);
    memset(block.data(), 0x77, block.size());
    taps.fill(in);
    // usually a tame filter: taps mapped into [-1, 1], a[0] = 1, a weak denominator
    if (in.ConsumeBool()) {
        for (int i = 0; i < 2 * order + 2; ++i) {
            const double v = (in.byte() - 128) / 128.0;
            const double w = i == order + 1 ? (in.ConsumeBool() ? 1.0 : 0.0) : (i > order + 1 ? v * 0.3 / order : v);
            if (k.tapBytes == 4) taps.as<float>()[i] = static_cast<float>(w);
            else taps.as<double>()[i] = w;
        }
    }
    void* st = nullptr;
    const fz::Watch wb{&block};
    const VrxStatus is = k.init(&st, taps.data(), order, block.data());
    wb.check(is, "Init");
    if (is < 0) return;
    const int len = in.range(-1, 3000);
    const size_t cnt = len > 0 ? static_cast<size_t>(len) : 1;
    Guarded src(cnt * k.sampleBytes, in.byte()), dst(cnt * k.sampleBytes, in.byte());
    src.fill(in);
    memset(dst.data(), 0x11, dst.size());
    const bool inPlace = in.ConsumeBool();
    const fz::Watch w{&block, &src, &dst};
    const VrxStatus rs = inPlace ? k.runI(src.data(), len, st) : k.run(src.data(), dst.data(), len, st);
    mx.check("IIRIIR", rs);
    require(block.intact(), "write outside the state block", "IIRIIR", rs);
    w.check(rs, "IIRIIR");
    if (!inPlace) require(w.unchanged(src), "source written", "IIRIIR", rs);
    if (rs < 0) require(len < 1 || len < 3 * order, "refused a valid call", "IIRIIR", rs);
    else require(len >= 3 * order, "ran a short vector", "IIRIIR", rs);
}

}  // namespace

void fuzzOne(fz::In& in) {
    if (in.ConsumeBool()) fuzzDesign(in);
    else fuzzFilter(in);
}
