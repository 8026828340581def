// Fuzz target of the sparse FIR and IIR states: a fuzzer-chosen kind (FIR or
// IIR, 32f or 32fc), tap counts, positions (rising, or raw to reach the
// refusals), taps, line, pieces and in-place use, through the size query,
// Init, the runs and the line pair. A failed call must return a negative
// status and change nothing; no call may write outside the state's block,
// the destination or the line.
#include "fuzz_util.h"

namespace {

struct Kind {
    bool cplx, iir;
};
constexpr Kind kKinds[] = {{false, false}, {true, false}, {false, true}, {true, true}};

VrxStatus sizeOf(const Kind& k, int n1, int n2, int o1, int o2, int* s) {
    if (!k.iir)
        return k.cplx ? vrxsFIRSparseGetStateSize_32fc(n1, o1, s) : vrxsFIRSparseGetStateSize_32f(n1, o1, s);
    return k.cplx ? vrxsIIRSparseGetStateSize_32fc(n1, n2, o1, o2, s) : vrxsIIRSparseGetStateSize_32f(n1, n2, o1, o2, s);
}
VrxStatus initOf(const Kind& k, void** pp, const float* t, const int* p, int n1, int n2, const float* l, uint8_t* b) {
    auto c = [](const float* f) { return reinterpret_cast<const Vrx32fc*>(f); };
    if (!k.iir)
        return k.cplx ? vrxsFIRSparseInit_32fc(reinterpret_cast<VrxsFirSparseState_32fc**>(pp), c(t), p, n1, c(l), b)
                      : vrxsFIRSparseInit_32f(reinterpret_cast<VrxsFirSparseState_32f**>(pp), t, p, n1, l, b);
    return k.cplx ? vrxsIIRSparseInit_32fc(reinterpret_cast<VrxsIirSparseState_32fc**>(pp), c(t), p, n1, n2, c(l), b)
                  : vrxsIIRSparseInit_32f(reinterpret_cast<VrxsIirSparseState_32f**>(pp), t, p, n1, n2, l, b);
}
VrxStatus runOf(const Kind& k, const float* s, float* d, int len, void* st) {
    auto c = [](const float* f) { return reinterpret_cast<const Vrx32fc*>(f); };
    auto w = [](float* f) { return reinterpret_cast<Vrx32fc*>(f); };
    if (!k.iir)
        return k.cplx ? vrxsFIRSparse_32fc(c(s), w(d), len, static_cast<VrxsFirSparseState_32fc*>(st))
                      : vrxsFIRSparse_32f(s, d, len, static_cast<VrxsFirSparseState_32f*>(st));
    return k.cplx ? vrxsIIRSparse_32fc(c(s), w(d), len, static_cast<VrxsIirSparseState_32fc*>(st))
                  : vrxsIIRSparse_32f(s, d, len, static_cast<VrxsIirSparseState_32f*>(st));
}
VrxStatus getOf(const Kind& k, const void* st, float* l) {
    auto w = [](float* f) { return reinterpret_cast<Vrx32fc*>(f); };
    if (!k.iir)
        return k.cplx ? vrxsFIRSparseGetDlyLine_32fc(static_cast<const VrxsFirSparseState_32fc*>(st), w(l))
                      : vrxsFIRSparseGetDlyLine_32f(static_cast<const VrxsFirSparseState_32f*>(st), l);
    return k.cplx ? vrxsIIRSparseGetDlyLine_32fc(static_cast<const VrxsIirSparseState_32fc*>(st), w(l))
                  : vrxsIIRSparseGetDlyLine_32f(static_cast<const VrxsIirSparseState_32f*>(st), l);
}
VrxStatus setOf(const Kind& k, void* st, const float* l) {
    auto c = [](const float* f) { return reinterpret_cast<const Vrx32fc*>(f); };
    if (!k.iir)
        return k.cplx ? vrxsFIRSparseSetDlyLine_32fc(static_cast<VrxsFirSparseState_32fc*>(st), c(l))
                      : vrxsFIRSparseSetDlyLine_32f(static_cast<VrxsFirSparseState_32f*>(st), l);
    return k.cplx ? vrxsIIRSparseSetDlyLine_32fc(static_cast<VrxsIirSparseState_32fc*>(st), c(l))
                  : vrxsIIRSparseSetDlyLine_32f(static_cast<VrxsIirSparseState_32f*>(st), l);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    FuzzedDataProvider in(data, size);
    const Kind& k = kKinds[in.ConsumeIntegralInRange<int>(0, 3)];
    const int c = k.cplx ? 2 : 1;
    fz::CallerMxcsr mx(in);
    const int n1 = in.ConsumeIntegralInRange<int>(-1, 40);
    const int n2 = k.iir ? in.ConsumeIntegralInRange<int>(-1, 8) : 0;
    const bool raw = in.ConsumeIntegralInRange<int>(0, 7) == 0;
    const int total = (n1 > 0 ? n1 : 0) + (n2 > 0 ? n2 : 0);
    std::vector<int> pos(size_t(total) + 1, 0);
    int p = 0;
    for (int i = 0; i < total; ++i) {
        if (raw) {
            pos[size_t(i)] = in.ConsumeIntegralInRange<int>(-3, 5000);
        } else {
            if (i == n1) p = 1 + in.ConsumeIntegralInRange<int>(0, 40);  // feedback set restarts at 1 or above
            else if (i) p += 1 + in.ConsumeIntegralInRange<int>(0, 300);
            else p = in.ConsumeIntegralInRange<int>(0, 3);
            pos[size_t(i)] = p;
        }
    }
    const int o1 = n1 > 0 ? pos[size_t(n1 - 1)] : in.ConsumeIntegralInRange<int>(-2, 10);
    const int o2 = n2 > 0 ? pos[size_t(total - 1)] : 1;

    int stateSize = -1;
    VrxStatus st = sizeOf(k, n1, n2, o1, o2, &stateSize);
    if (st != vrxOk) {
        fz::require(st < 0 && stateSize == -1, "size query failed but wrote", "size", st);
        return 0;
    }
    mx.check("size", st);
    std::vector<float> taps(size_t(c) * (total + 1));
    for (float& t : taps) t = float(in.ConsumeIntegralInRange<int>(-64, 64)) / (k.iir ? 512.f : 64.f);
    const int lineLen = o1 + (k.iir ? o2 : 0);
    fz::Guarded line(sizeof(float) * c * size_t(lineLen), in.ConsumeIntegralInRange<int>(0, 63));
    line.fill(in);
    const bool nullLine = in.ConsumeBool();

    fz::Guarded block(size_t(stateSize), in.ConsumeIntegralInRange<int>(0, 63));
    const std::vector<uint8_t> before = block.snapshot();
    void* state = reinterpret_cast<void*>(uintptr_t(1));
    st = initOf(k, &state, taps.data(), pos.data(), n1, n2, nullLine ? nullptr : line.as<float>(), block.data());
    mx.check("init", st);
    fz::require(block.intact(), "init wrote outside the block", "init", st);
    if (st != vrxOk) {
        fz::require(st < 0 && raw, "valid positions refused", "init", st);
        fz::require(state == reinterpret_cast<void*>(uintptr_t(1)) && block.same(before), "failed init wrote", "init", st);
        return 0;
    }

    for (int call = 0; call < 6 && in.remaining_bytes() > 0; ++call) {
        const int op = in.ConsumeIntegralInRange<int>(0, 7);
        if (op == 6) {
            fz::Guarded out(sizeof(float) * c * size_t(lineLen), in.ConsumeIntegralInRange<int>(0, 63));
            st = getOf(k, state, out.as<float>());
            fz::require(st == vrxOk && out.intact(), "get line", "get", st);
            continue;
        }
        if (op == 7) {
            st = setOf(k, state, in.ConsumeBool() ? nullptr : line.as<float>());
            fz::require(st == vrxOk && block.intact(), "set line", "set", st);
            continue;
        }
        const int len = in.ConsumeIntegralInRange<int>(-2, op < 3 ? 100 : 5000);
        const bool inPlace = in.ConsumeBool();
        const size_t n = len > 0 ? size_t(len) : 1;
        fz::Guarded src(sizeof(float) * c * n, in.ConsumeIntegralInRange<int>(0, 63));
        src.fill(in);
        fz::Guarded dstBuf(sizeof(float) * c * n, in.ConsumeIntegralInRange<int>(0, 63));
        float* dst = inPlace ? src.as<float>() : dstBuf.as<float>();
        const std::vector<uint8_t> d0 = inPlace ? src.snapshot() : dstBuf.snapshot(), s0 = block.snapshot();
        st = runOf(k, src.as<float>(), dst, len, state);
        mx.check("run", st);
        fz::require(block.intact() && src.intact() && dstBuf.intact(), "run wrote outside", "run", st);
        if (len < 1) {
            fz::require(st == vrxErrBadLength, "bad length accepted", "run", st);
            fz::require((inPlace ? src.same(d0) : dstBuf.same(d0)) && block.same(s0), "failed run wrote", "run", st);
        } else {
            fz::require(st == vrxOk, "run refused", "run", st);
        }
    }
    // a block without the identity word is refused and left alone
    fz::Guarded alien(size_t(stateSize), 0);
    const std::vector<uint8_t> a0 = alien.snapshot();
    float x[4] = {1, 2, 3, 4}, y[4] = {0, 0, 0, 0};
    st = runOf(k, x, y, 1, alien.data());
    fz::require(st == vrxErrBadSpec && alien.same(a0) && y[0] == 0 && y[1] == 0, "foreign state", "run", st);
    return 0;
}
