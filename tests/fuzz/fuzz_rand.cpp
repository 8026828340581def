// Random-number states under fuzzer-chosen types, bounds, seeds, lengths,
// null pointers and misaligned memory of exactly the reported size: the
// size query, Init, then draws, sometimes into a state of another type. A
// failed call must return a negative status and write nothing (neither the
// state nor the destination); no call writes outside its buffers, and the
// caller's control word comes back unchanged.
#include <memory>

#include "fuzz_util.h"

namespace {

using fz::Guarded;
using fz::require;

// One state type: size query, Init from fuzzer bytes (its two bounds as
// the type's values), and a draw.
struct Kind {
    const char* name;
    size_t elem;
    VrxStatus (*getSize)(int*);
    VrxStatus (*init)(void*, fz::In&, Vrx32u);
    VrxStatus (*draw)(uint8_t*, int, void*);
};

template <class S, class T, VrxStatus (*F)(S*, T, T, Vrx32u)>
VrxStatus initAs(void* st, fz::In& in, Vrx32u seed) {
    const T a = in.raw<T>(), b = in.raw<T>();
    return F(static_cast<S*>(st), a, b, seed);
}
template <class S, class T, VrxStatus (*F)(T*, int, S*)>
VrxStatus drawAs(uint8_t* d, int n, void* st) { return F(reinterpret_cast<T*>(d), n, static_cast<S*>(st)); }

using U = VrxsRandUniformState;
using G = VrxsRandGaussState;
const Kind kKinds[] = {
    {"uniform 8u", 1, vrxsRandUniformGetSize_8u, initAs<U, Vrx8u, vrxsRandUniformInit_8u>, drawAs<U, Vrx8u, vrxsRandUniform_8u>},
    {"uniform 16s", 2, vrxsRandUniformGetSize_16s, initAs<U, Vrx16s, vrxsRandUniformInit_16s>, drawAs<U, Vrx16s, vrxsRandUniform_16s>},
    {"uniform 32f", 4, vrxsRandUniformGetSize_32f, initAs<U, Vrx32f, vrxsRandUniformInit_32f>, drawAs<U, Vrx32f, vrxsRandUniform_32f>},
    {"uniform 64f", 8, vrxsRandUniformGetSize_64f, initAs<U, Vrx64f, vrxsRandUniformInit_64f>, drawAs<U, Vrx64f, vrxsRandUniform_64f>},
    {"gauss 8u", 1, vrxsRandGaussGetSize_8u, initAs<G, Vrx8u, vrxsRandGaussInit_8u>, drawAs<G, Vrx8u, vrxsRandGauss_8u>},
    {"gauss 16s", 2, vrxsRandGaussGetSize_16s, initAs<G, Vrx16s, vrxsRandGaussInit_16s>, drawAs<G, Vrx16s, vrxsRandGauss_16s>},
    {"gauss 32f", 4, vrxsRandGaussGetSize_32f, initAs<G, Vrx32f, vrxsRandGaussInit_32f>, drawAs<G, Vrx32f, vrxsRandGauss_32f>},
    {"gauss 64f", 8, vrxsRandGaussGetSize_64f, initAs<G, Vrx64f, vrxsRandGaussInit_64f>, drawAs<G, Vrx64f, vrxsRandGauss_64f>},
};
constexpr int kKindCount = sizeof(kKinds) / sizeof(kKinds[0]);

bool knownStatus(VrxStatus st) {
    return st == vrxOk || st == vrxErrNullPtr || st == vrxErrBadLength || st == vrxErrBadSpec;
}

// A state of a kind in exactly its reported memory, filled by Init.
std::unique_ptr<Guarded> makeState(const Kind& k, fz::In& in, fz::CallerMxcsr& csr) {
    int size = -1;
    VrxStatus st = k.getSize(&size);
    csr.check("GetSize", st);
    require(st == vrxOk && size > 0, "no state size", k.name, st);
    auto state = std::make_unique<Guarded>(static_cast<size_t>(size), in.ConsumeIntegral<uint8_t>());
    st = k.init(state->data(), in, in.ConsumeIntegral<Vrx32u>());
    csr.check("Init", st);
    require(st == vrxOk, "Init refused a state", k.name, st);
    require(state->intact(), "Init wrote outside the state", k.name, st);
    return state;
}

}  // namespace

void fuzzOne(fz::In& in) {
    const Kind& k = kKinds[in.range(0, kKindCount - 1)];
    fz::CallerMxcsr csr(in);

    // the size query and Init refuse null pointers and write nothing then
    if (in.rarely()) {
        VrxStatus st = k.getSize(nullptr);
        require(st == vrxErrNullPtr, "null size pointer", k.name, st);
        st = k.init(nullptr, in, 1u);
        require(st == vrxErrNullPtr, "null state", k.name, st);
        csr.check("null", st);
    }
    std::unique_ptr<Guarded> state = makeState(k, in, csr);
    // now and then the draws get a state of another type
    const Kind& otherKind = kKinds[in.range(0, kKindCount - 1)];
    std::unique_ptr<Guarded> other = in.rarely(8) ? makeState(otherKind, in, csr) : nullptr;

    for (int c = in.range(1, 6); c-- > 0 && in.remaining_bytes() > 0;) {
        const int len = in.mostlyIn(1, 5000);
        if (len > 5000) continue;  // a valid length too long to draw here
        Guarded dst(len > 0 ? size_t(len) * k.elem : 16, in.byte() & ~(k.elem - 1));  // states sit at any byte
        const uint8_t nulls = in.rarely() ? in.byte() : 0;
        const bool foreign = other && in.rarely(2);
        Guarded& use = foreign ? *other : *state;
        const fz::Watch w{&dst, &use};
        const VrxStatus st = k.draw(nulls & 1 ? nullptr : dst.data(), len, nulls & 2 ? nullptr : use.data());
        csr.check(k.name, st);
        require(knownStatus(st), "unknown status", k.name, st);
        w.check(st, k.name);
        if ((nulls & 3) || len < 1 || (foreign && &otherKind != &k)) require(st < 0, "bad argument accepted", k.name, st);
    }
}
