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

const Kind kKinds[] = {
    {4, 4, vrxsIIRIIRGetStateSize_32f,
     [](void** pp, const void* t, int n, Vrx8u* b) {
         return vrxsIIRIIRInit_32f(reinterpret_cast<VrxsIirIirState_32f**>(pp), static_cast<const Vrx32f*>(t), n, b);
     },
     [](const void* s, void* d, int len, void* st) {
         return vrxsIIRIIR_32f(static_cast<const Vrx32f*>(s), static_cast<Vrx32f*>(d), len,
                               static_cast<VrxsIirIirState_32f*>(st));
     },
     [](void* d, int len, void* st) {
         return vrxsIIRIIR_32f_I(static_cast<Vrx32f*>(d), len, static_cast<VrxsIirIirState_32f*>(st));
     }},
    {8, 4, vrxsIIRIIRGetStateSize64f_32f,
     [](void** pp, const void* t, int n, Vrx8u* b) {
         return vrxsIIRIIRInit64f_32f(reinterpret_cast<VrxsIirIirState64f_32f**>(pp), static_cast<const Vrx64f*>(t), n,
                                      b);
     },
     [](const void* s, void* d, int len, void* st) {
         return vrxsIIRIIR64f_32f(static_cast<const Vrx32f*>(s), static_cast<Vrx32f*>(d), len,
                                  static_cast<VrxsIirIirState64f_32f*>(st));
     },
     [](void* d, int len, void* st) {
         return vrxsIIRIIR64f_32f_I(static_cast<Vrx32f*>(d), len, static_cast<VrxsIirIirState64f_32f*>(st));
     }},
    {8, 8, vrxsIIRIIRGetStateSize_64f,
     [](void** pp, const void* t, int n, Vrx8u* b) {
         return vrxsIIRIIRInit_64f(reinterpret_cast<VrxsIirIirState_64f**>(pp), static_cast<const Vrx64f*>(t), n, b);
     },
     [](const void* s, void* d, int len, void* st) {
         return vrxsIIRIIR_64f(static_cast<const Vrx64f*>(s), static_cast<Vrx64f*>(d), len,
                               static_cast<VrxsIirIirState_64f*>(st));
     },
     [](void* d, int len, void* st) {
         return vrxsIIRIIR_64f_I(static_cast<Vrx64f*>(d), len, static_cast<VrxsIirIirState_64f*>(st));
     }},
};

void fuzzDesign(FuzzedDataProvider& in) {
    fz::CallerMxcsr mx(in);
    const int band = in.ConsumeIntegralInRange<int>(0, 3);
    const int order = in.ConsumeIntegralInRange<int>(-2, 14);
    const double f1 = in.ConsumeFloatingPoint<double>(), f2 = in.ConsumeFloatingPoint<double>();
    const double pick1 = in.ConsumeProbability<double>() * 0.6 - 0.05, pick2 = in.ConsumeProbability<double>() * 0.6;
    const bool raw = in.ConsumeBool();
    const double lo = raw ? f1 : pick1, hi = raw ? f2 : pick2;
    const double rp = in.ConsumeBool() ? in.ConsumeFloatingPoint<double>() : in.ConsumeProbability<double>() * 32;
    const VrxIirGenType type = static_cast<VrxIirGenType>(in.ConsumeIntegralInRange<int>(-1, 2));
    const size_t n = 2 * (2 * 12 + 1) * sizeof(double);
    Guarded out(n, in.ConsumeIntegralInRange<size_t>(0, 63));
    memset(out.data(), 0x5A, n);
    const std::vector<uint8_t> before = out.snapshot();
    VrxStatus st;
    Vrx64f* t = out.as<Vrx64f>();
    switch (band) {
        case 0: st = vrxsIIRGenLowpass_64f(lo, rp, order, t, type); break;
        case 1: st = vrxsIIRGenHighpass_64f(lo, rp, order, t, type); break;
        case 2: st = vrxsIIRGenBandpass_64f(lo, hi, rp, order, t, type); break;
        default: st = vrxsIIRGenBandstop_64f(lo, hi, rp, order, t, type); break;
    }
    mx.check("IIRGen", st);
    require(st <= 0, "warning from a design", "IIRGen", st);
    require(out.intact(), "write outside the taps", "IIRGen", st);
    if (st < 0) require(out.same(before), "taps written on failure", "IIRGen", st);
    if (st == 0) {
        const int m = band >= 2 ? 2 * order : order;
        for (int i = 2 * (m + 1); i < 2 * 25; ++i)
            require(reinterpret_cast<const uint8_t*>(t + i)[0] == 0x5A, "written past the taps", "IIRGen", st);
        require(t[m + 1] == 1.0, "a[0] is not 1", "IIRGen", st);
    }
}

void fuzzFilter(FuzzedDataProvider& in) {
    fz::CallerMxcsr mx(in);
    const Kind& k = kKinds[in.ConsumeIntegralInRange<int>(0, 2)];
    const int order = in.ConsumeIntegralInRange<int>(-1, 40);
    int size = 0;
    const VrxStatus ss = k.size(order, &size);
    if (order < 1) {
        require(ss < 0, "size of a bad order", "GetStateSize", ss);
        return;
    }
    require(ss == 0 && size > 0, "size query", "GetStateSize", ss);
    Guarded block(static_cast<size_t>(size), in.ConsumeIntegralInRange<size_t>(0, 63));
    memset(block.data(), 0x77, block.size());
    Guarded taps(static_cast<size_t>(2 * order + 2) * k.tapBytes, 0);
    taps.fill(in);
    // usually a tame filter: taps mapped into [-1, 1], a[0] = 1, a weak denominator
    if (in.ConsumeBool()) {
        for (int i = 0; i < 2 * order + 2; ++i) {
            const double v = (in.ConsumeIntegral<uint8_t>() - 128) / 128.0;
            const double w = i == order + 1 ? (in.ConsumeBool() ? 1.0 : 0.0) : (i > order + 1 ? v * 0.3 / order : v);
            if (k.tapBytes == 4) taps.as<float>()[i] = static_cast<float>(w);
            else taps.as<double>()[i] = w;
        }
    }
    const std::vector<uint8_t> clean = block.snapshot();
    void* st = nullptr;
    const VrxStatus is = k.init(&st, taps.data(), order, block.data());
    require(block.intact(), "write outside the state block", "Init", is);
    if (is < 0) {
        require(block.same(clean), "state block written on failure", "Init", is);
        return;
    }
    require(is == 0, "Init warning", "Init", is);
    const int len = in.ConsumeIntegralInRange<int>(-1, 3000);
    const size_t cnt = len > 0 ? static_cast<size_t>(len) : 1;
    Guarded src(cnt * k.sampleBytes, in.ConsumeIntegralInRange<size_t>(0, 63));
    Guarded dst(cnt * k.sampleBytes, in.ConsumeIntegralInRange<size_t>(0, 63));
    src.fill(in);
    memset(dst.data(), 0x11, dst.size());
    const std::vector<uint8_t> s0 = src.snapshot(), d0 = dst.snapshot();
    const bool inPlace = in.ConsumeBool();
    const VrxStatus rs = inPlace ? k.runI(src.data(), len, st) : k.run(src.data(), dst.data(), len, st);
    mx.check("IIRIIR", rs);
    require(block.intact() && src.intact() && dst.intact(), "write outside the buffers", "IIRIIR", rs);
    require(rs <= 0, "warning from a run", "IIRIIR", rs);
    if (!inPlace) require(src.same(s0), "source written", "IIRIIR", rs);
    if (rs < 0) {
        require(inPlace ? src.same(s0) : dst.same(d0), "destination written on failure", "IIRIIR", rs);
        require(len < 1 || len < 3 * order, "refused a valid call", "IIRIIR", rs);
    } else {
        require(len >= 3 * order, "ran a short vector", "IIRIIR", rs);
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    FuzzedDataProvider in(data, size);
    if (in.ConsumeBool()) fuzzDesign(in);
    else fuzzFilter(in);
    return 0;
}
