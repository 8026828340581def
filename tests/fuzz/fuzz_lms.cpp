// Fuzz target of the adaptive FIR (LMS), 32f and 64f: fuzzer-chosen tap
// counts, taps, lines, step sizes, pieces, aliasing (pDst on pSrc or pRef)
// and damaged identity words through the size query, Init, the runs and the
// taps and line pairs. Every status is 0 or negative; a failed call writes
// nothing; no call writes outside the state's block and the destination;
// the caller's control word comes back unchanged.
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
void fuzzOne(FuzzedDataProvider& in, const Api<T, St>& a) {
    fz::CallerMxcsr cw(in);
    const int taps = fz::mostlyIn(in, -2, 300);
    int bytes = -1;
    VrxStatus st = a.size(taps, &bytes);
    cw.check("GetStateSize", st);
    fz::require(st <= 0, "positive status", "GetStateSize", st);
    if (st != vrxOk) {
        fz::require(bytes == -1, "size written on failure", "GetStateSize", st);
        // Init must refuse the same count and write nothing
        fz::Guarded blk(256, 0);
        const std::vector<uint8_t> snap = blk.snapshot();
        St* p = nullptr;
        st = a.init(&p, nullptr, taps, nullptr, blk.data());
        fz::require(st < 0 && p == nullptr && blk.same(snap) && blk.intact(), "Init on a bad count", "Init", st);
        return;
    }
    fz::require(bytes > 0, "zero size", "GetStateSize", st);
    if (taps > 4096) return;  // a valid count whose state is too large to build here
    const size_t n = size_t(taps);
    fz::Guarded blk(size_t(bytes), in.ConsumeIntegralInRange<size_t>(0, 63));
    fz::Guarded h(n * sizeof(T), 0), line(n * sizeof(T), 0);
    h.fill(in);
    line.fill(in);
    St* p = nullptr;
    st = a.init(&p, in.ConsumeBool() ? h.as<T>() : nullptr, taps, in.ConsumeBool() ? line.as<T>() : nullptr, blk.data());
    cw.check("Init", st);
    fz::require(st == vrxOk && p != nullptr && blk.intact(), "Init", "Init", st);

    while (in.remaining_bytes() > 0) {
        const int op = in.ConsumeIntegralInRange<int>(0, 6);
        if (op <= 2) {
            int len = fz::mostlyIn(in, -1, 700);
            if (len > 5000) len = 5000;  // valid, but kept small enough to allocate
            const size_t m = len > 0 ? size_t(len) : 1;
            fz::Guarded x(m * sizeof(T), in.ConsumeIntegralInRange<size_t>(0, 63));
            fz::Guarded d(m * sizeof(T), in.ConsumeIntegralInRange<size_t>(0, 63));
            fz::Guarded y(m * sizeof(T), in.ConsumeIntegralInRange<size_t>(0, 63));
            x.fill(in);
            d.fill(in);
            T mu;
            const std::vector<uint8_t> mb = in.ConsumeBytes<uint8_t>(sizeof(T));
            memset(&mu, 0, sizeof mu);
            if (!mb.empty()) memcpy(&mu, mb.data(), mb.size());
            const int alias = in.ConsumeIntegralInRange<int>(0, 2);
            T* dst = alias == 1 ? x.as<T>() : alias == 2 ? d.as<T>() : y.as<T>();
            const bool damage = fz::rarely(in);
            const int32_t word = *reinterpret_cast<int32_t*>(p);
            if (damage) *reinterpret_cast<int32_t*>(p) = word ^ 0x100;
            const std::vector<uint8_t> sx = x.snapshot(), sd = d.snapshot(), sy = y.snapshot(), sb = blk.snapshot();
            st = a.run(x.as<T>(), d.as<T>(), dst, len, mu, p);
            cw.check("run", st);
            fz::require(st <= 0, "positive status", "run", st);
            fz::require(x.intact() && d.intact() && y.intact() && blk.intact(), "write outside", "run", st);
            if (st != vrxOk) {
                fz::require(x.same(sx) && d.same(sd) && y.same(sy) && blk.same(sb), "written on failure", "run", st);
                fz::require(damage || len < 1, "unexpected failure", "run", st);
            } else {
                fz::require(!damage && len >= 1, "accepted a bad call", "run", st);
            }
            if (alias != 1) fz::require(x.same(sx), "source written", "run", st);
            if (alias != 2) fz::require(d.same(sd), "reference written", "run", st);
            if (damage) *reinterpret_cast<int32_t*>(p) = word;
        } else {
            fz::Guarded io(n * sizeof(T), 0);
            io.fill(in);
            const std::vector<uint8_t> snap = io.snapshot();
            const bool useNull = fz::rarely(in, 8);
            T* v = useNull ? nullptr : io.as<T>();
            if (op == 3) st = a.getTaps(p, v);
            else if (op == 4) st = a.setTaps(p, v);
            else if (op == 5) st = a.getLine(p, v);
            else st = a.setLine(p, v);
            cw.check("taps/line", st);
            fz::require(io.intact() && blk.intact(), "write outside", "taps/line", st);
            fz::require(st <= 0, "positive status", "taps/line", st);
            if (useNull) fz::require(op == 6 ? st == vrxOk : st == vrxErrNullPtr, "null handling", "taps/line", st);
            else fz::require(st == vrxOk, "refused", "taps/line", st);
            if (op == 4 || op == 6) fz::require(io.same(snap), "source written", "taps/line", st);
        }
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    FuzzedDataProvider in(data, size);
    if (in.ConsumeBool()) {
        static const Api<Vrx32f, VrxsFirLmsState_32f> a{vrxsFIRLMSGetStateSize_32f, vrxsFIRLMSInit_32f, vrxsFIRLMS_32f,
                                                      vrxsFIRLMSGetTaps_32f, vrxsFIRLMSSetTaps_32f,
                                                      vrxsFIRLMSGetDlyLine_32f, vrxsFIRLMSSetDlyLine_32f};
        fuzzOne(in, a);
    } else {
        static const Api<Vrx64f, VrxsFirLmsState_64f> a{vrxsFIRLMSGetStateSize_64f, vrxsFIRLMSInit_64f, vrxsFIRLMS_64f,
                                                      vrxsFIRLMSGetTaps_64f, vrxsFIRLMSSetTaps_64f,
                                                      vrxsFIRLMSGetDlyLine_64f, vrxsFIRLMSSetDlyLine_64f};
        fuzzOne(in, a);
    }
    return 0;
}
