// Fuzz target of the adaptive FIR (LMS), 32f and 64f: fuzzer-chosen tap
// counts, taps, lines, step sizes, pieces, aliasing (pDst on pSrc or pRef)
// and damaged identity words through the size query, Init, the runs and the
// taps and line pairs. Every status is 0 or negative; a failed call writes
// nothing; no call writes outside the state's block and the destination;
// the caller's control word comes back unchanged.
#include <algorithm>

#include "fuzz_util.h"

namespace {

template <class T, class St>
struct Api {
    VrxStatus (*size)(int, int*);
    VrxStatus (*init)(St**, const T*, int, const T*, Vrx8u*);
    VrxStatus (*run)(const T*, const T*, T*, int, T, St*);
    VrxStatus (*getTaps)(const St*, T*);
    VrxStatus (*setTaps)(St*, const T*);
    VrxStatus (*getLine)(const St*, T*);
    VrxStatus (*setLine)(St*, const T*);
};

template <class T, class St>
void fuzzApi(fz::In& in, const Api<T, St>& a) {
    fz::CallerMxcsr cw(in);
    const int taps = in.mostlyIn(-2, 300);
    int bytes = -1;
    VrxStatus st = a.size(taps, &bytes);
    cw.check("GetStateSize", st);
    if (st != vrxOk) {
        fz::require(st < 0 && bytes == -1, "size query failed", "GetStateSize", st);
        // Init must refuse the same count and write nothing
        fz::Guarded blk(256);
        const fz::Watch w{&blk};
        St* p = nullptr;
        st = a.init(&p, nullptr, taps, nullptr, blk.data());
        w.check(st, "Init");
        return fz::require(st < 0 && p == nullptr, "Init on a bad count", "Init", st);
    }
    fz::require(bytes > 0, "zero size", "GetStateSize", st);
    if (taps > 4096) return;  // a valid count whose state is too large to build here
    const size_t n = size_t(taps);
    fz::Guarded blk(bytes, in.byte()), h(n * sizeof(T)), line(n * sizeof(T));
    h.fill(in);
    line.fill(in);
    St* p = nullptr;
    st = a.init(&p, in.ConsumeBool() ? h.as<T>() : nullptr, taps, in.ConsumeBool() ? line.as<T>() : nullptr, blk.data());
    cw.check("Init", st);
    fz::require(st == vrxOk && p != nullptr && blk.intact(), "Init", "Init", st);

    while (in.remaining_bytes() > 0) {
        const int op = in.range(0, 6);
        if (op <= 2) {
            const int len = std::min(in.mostlyIn(-1, 700), 5000);  // valid, but kept small enough to allocate
            const size_t m = len > 0 ? size_t(len) : 1;
            fz::Guarded x(m * sizeof(T), in.byte()), d(m * sizeof(T), in.byte()), y(m * sizeof(T), in.byte());
            x.fill(in);
            d.fill(in);
            const T mu = in.raw<T>();
            const int alias = in.range(0, 2);
            T* dst = alias == 1 ? x.as<T>() : alias == 2 ? d.as<T>() : y.as<T>();
            const bool damage = in.rarely();
            const int32_t word = *reinterpret_cast<int32_t*>(p);
            if (damage) *reinterpret_cast<int32_t*>(p) = word ^ 0x100;
            const fz::Watch w{&x, &d, &y, &blk};
            st = a.run(x.as<T>(), d.as<T>(), dst, len, mu, p);
            cw.check("run", st);
            w.check(st, "run");
            fz::require(st == vrxOk ? !damage && len >= 1 : damage || len < 1, "status", "run", st);
            fz::require((alias == 1 || w.unchanged(x)) && (alias == 2 || w.unchanged(d)), "source written", "run", st);
            if (damage) *reinterpret_cast<int32_t*>(p) = word;
        } else {
            fz::Guarded io(n * sizeof(T));
            io.fill(in);
            const bool useNull = in.rarely(8);
            T* v = useNull ? nullptr : io.as<T>();
            const fz::Watch w{&io, &blk};
            st = op == 3 ? a.getTaps(p, v) : op == 4 ? a.setTaps(p, v) : op == 5 ? a.getLine(p, v) : a.setLine(p, v);
            cw.check("taps/line", st);
            fz::require(io.intact() && blk.intact() && st <= 0, "write outside", "taps/line", st);
            fz::require(st == (useNull && op != 6 ? vrxErrNullPtr : vrxOk), "null handling", "taps/line", st);
            if (op == 4 || op == 6) fz::require(w.unchanged(io), "source written", "taps/line", st);
        }
    }
}

}  // namespace

void fuzzOne(fz::In& in) {
    static const Api<Vrx32f, VrxsFirLmsState_32f> a32{vrxsFIRLMSGetStateSize_32f, vrxsFIRLMSInit_32f, vrxsFIRLMS_32f, vrxsFIRLMSGetTaps_32f,
                                                       vrxsFIRLMSSetTaps_32f, vrxsFIRLMSGetDlyLine_32f, vrxsFIRLMSSetDlyLine_32f};
    static const Api<Vrx64f, VrxsFirLmsState_64f> a64{vrxsFIRLMSGetStateSize_64f, vrxsFIRLMSInit_64f, vrxsFIRLMS_64f, vrxsFIRLMSGetTaps_64f,
                                                       vrxsFIRLMSSetTaps_64f, vrxsFIRLMSGetDlyLine_64f, vrxsFIRLMSSetDlyLine_64f};
    if (in.ConsumeBool()) fuzzApi(in, a32);
    else fuzzApi(in, a64);
}
