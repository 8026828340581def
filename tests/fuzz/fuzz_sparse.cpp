// Fuzz target of the sparse FIR and IIR states: a fuzzer-chosen kind (FIR or
// IIR, 32f or 32fc), tap counts, positions (rising, or raw to reach the
// refusals), taps, line, pieces and in-place use, through the size query,
// Init, the runs and the line pair. A failed call must return a negative
// status and change nothing; no call may write outside the state's block,
// the destination or the line.
#include "fuzz_util.h"

namespace {

// One state type over float data (a complex sample is two floats).
struct Kind {
    bool cplx, iir;
    VrxStatus (*size)(int, int, int, int, int*);
    VrxStatus (*init)(void**, const float*, const int*, int, int, const float*, uint8_t*);
    VrxStatus (*run)(const float*, float*, int, void*);
    VrxStatus (*get)(const void*, float*);
    VrxStatus (*set)(void*, const float*);
};
template <class S, class E, bool Iir, auto Size, auto Init, auto Run, auto Get, auto Set> Kind kind() {
    return {sizeof(E) == 8, Iir,
            [](int n1, int n2, int o1, int o2, int* s) {
                if constexpr (Iir) return Size(n1, n2, o1, o2, s);
                else return Size(n1, o1, s);
            },
            [](void** pp, const float* t, const int* p, int n1, int n2, const float* l, uint8_t* b) {
                auto* tt = reinterpret_cast<const E*>(t);
                auto* ll = reinterpret_cast<const E*>(l);
                if constexpr (Iir) return Init(reinterpret_cast<S**>(pp), tt, p, n1, n2, ll, b);
                else return Init(reinterpret_cast<S**>(pp), tt, p, n1, ll, b);
            },
            [](const float* s, float* d, int len, void* st) {
                return Run(reinterpret_cast<const E*>(s), reinterpret_cast<E*>(d), len, static_cast<S*>(st));
            },
            [](const void* st, float* l) { return Get(static_cast<const S*>(st), reinterpret_cast<E*>(l)); },
            [](void* st, const float* l) { return Set(static_cast<S*>(st), reinterpret_cast<const E*>(l)); }};
}
const Kind kKinds[] = {
    kind<VrxsFirSparseState_32f, Vrx32f, false, vrxsFIRSparseGetStateSize_32f, vrxsFIRSparseInit_32f, vrxsFIRSparse_32f,
         vrxsFIRSparseGetDlyLine_32f, vrxsFIRSparseSetDlyLine_32f>(),
    kind<VrxsFirSparseState_32fc, Vrx32fc, false, vrxsFIRSparseGetStateSize_32fc, vrxsFIRSparseInit_32fc, vrxsFIRSparse_32fc,
         vrxsFIRSparseGetDlyLine_32fc, vrxsFIRSparseSetDlyLine_32fc>(),
    kind<VrxsIirSparseState_32f, Vrx32f, true, vrxsIIRSparseGetStateSize_32f, vrxsIIRSparseInit_32f, vrxsIIRSparse_32f,
         vrxsIIRSparseGetDlyLine_32f, vrxsIIRSparseSetDlyLine_32f>(),
    kind<VrxsIirSparseState_32fc, Vrx32fc, true, vrxsIIRSparseGetStateSize_32fc, vrxsIIRSparseInit_32fc, vrxsIIRSparse_32fc,
         vrxsIIRSparseGetDlyLine_32fc, vrxsIIRSparseSetDlyLine_32fc>(),
};

}  // namespace

void fuzzOne(fz::In& in) {
    const Kind& k = kKinds[in.range(0, 3)];
    const int c = k.cplx ? 2 : 1;
    fz::CallerMxcsr mx(in);
    const int n1 = in.range(-1, 40);
    const int n2 = k.iir ? in.range(-1, 8) : 0;
    const bool raw = in.range(0, 7) == 0;
    const int total = (n1 > 0 ? n1 : 0) + (n2 > 0 ? n2 : 0);
    std::vector<int> pos(size_t(total) + 1, 0);
    // rising positions from 0..3, the feedback set restarting at 1 or above;
    // now and then raw ones, to reach the refusals
    for (int i = 0, p = 0; i < total; ++i)
        pos[i] = raw ? in.range(-3, 5000) : (p = i == n1 ? 1 + in.range(0, 40) : i ? p + 1 + in.range(0, 300) : in.range(0, 3));
    const int o1 = n1 > 0 ? pos[size_t(n1 - 1)] : in.range(-2, 10);
    const int o2 = n2 > 0 ? pos[size_t(total - 1)] : 1;

    int stateSize = -1;
    VrxStatus st = k.size(n1, n2, o1, o2, &stateSize);
    mx.check("size", st);
    if (st != vrxOk) return fz::require(st < 0 && stateSize == -1, "size query failed but wrote", "size", st);
    std::vector<float> taps(size_t(c) * (total + 1));
    for (float& t : taps) t = float(in.range(-64, 64)) / (k.iir ? 512.f : 64.f);
    const size_t lineBytes = sizeof(float) * c * size_t(o1 + (k.iir ? o2 : 0));
    fz::Guarded line(lineBytes, in.byte());
    line.fill(in);
    const bool nullLine = in.ConsumeBool();

    fz::Guarded block(stateSize, in.byte());
    void* const unset = reinterpret_cast<void*>(uintptr_t(1));
    void* state = unset;
    const fz::Watch wi{&block};
    st = k.init(&state, taps.data(), pos.data(), n1, n2, nullLine ? nullptr : line.as<float>(), block.data());
    mx.check("init", st);
    wi.check(st, "init");
    if (st != vrxOk) return fz::require(raw && state == unset, "valid positions refused, or state set", "init", st);

    for (int call = 0; call < 6 && in.remaining_bytes() > 0; ++call) {
        const int op = in.range(0, 7);
        if (op >= 6) {
            fz::Guarded out(lineBytes, in.byte());
            st = op == 6 ? k.get(state, out.as<float>()) : k.set(state, in.ConsumeBool() ? nullptr : line.as<float>());
            fz::require(st == vrxOk && out.intact() && block.intact(), "line pair", "get/set", st);
            continue;
        }
        const int len = in.range(-2, op < 3 ? 100 : 5000);
        const bool inPlace = in.ConsumeBool();
        const size_t n = len > 0 ? size_t(len) : 1;
        fz::Guarded src(sizeof(float) * c * n, in.byte()), dst(sizeof(float) * c * n, in.byte());
        src.fill(in);
        const fz::Watch w{&block, &src, &dst};
        st = k.run(src.as<float>(), inPlace ? src.as<float>() : dst.as<float>(), len, state);
        mx.check("run", st);
        w.check(st, "run");
        fz::require(st == (len < 1 ? vrxErrBadLength : vrxOk), "run status", "run", st);
    }
    // a block without the identity word is refused and left alone
    fz::Guarded alien(stateSize);
    float x[4] = {1, 2, 3, 4}, y[4] = {0, 0, 0, 0};
    const fz::Watch wa{&alien};
    st = k.run(x, y, 1, alien.data());
    wa.check(st, "run");
    fz::require(st == vrxErrBadSpec && y[0] == 0 && y[1] == 0, "foreign state", "run", st);
}
