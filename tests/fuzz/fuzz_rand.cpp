// Random-number states under fuzzer-chosen types, bounds, seeds, lengths,
// null pointers and misaligned memory of exactly the reported size: the
// size query, Init, then draws, sometimes into a state of another type. A
// failed call must return a negative status and write nothing (neither the
// state nor the destination); no call writes outside its buffers, and the
// caller's control word comes back unchanged.
#include <string.h>

#include <memory>
#include <vector>

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
    VrxStatus (*init)(void*, FuzzedDataProvider&, Vrx32u);
    VrxStatus (*draw)(uint8_t*, int, void*);
};

template <class T> T value(FuzzedDataProvider& in) {
    T v{};
    std::vector<uint8_t> b = in.ConsumeBytes<uint8_t>(sizeof(T));
    if (!b.empty()) memcpy(&v, b.data(), b.size());
    return v;
}

template <class S, class T, VrxStatus (*F)(S*, T, T, Vrx32u)>
VrxStatus initAs(void* st, FuzzedDataProvider& in, Vrx32u seed) {
    const T a = value<T>(in), b = value<T>(in);
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
std::unique_ptr<Guarded> makeState(const Kind& k, FuzzedDataProvider& in, fz::CallerMxcsr& csr) {
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

void fuzzOne(FuzzedDataProvider& in) {
    const Kind& k = kKinds[in.ConsumeIntegralInRange<int>(0, kKindCount - 1)];
    fz::CallerMxcsr csr(in);

    // the size query and Init refuse null pointers and write nothing then
    if (fz::rarely(in)) {
        VrxStatus st = k.getSize(nullptr);
        require(st == vrxErrNullPtr, "null size pointer", k.name, st);
        st = k.init(nullptr, in, 1u);
        require(st == vrxErrNullPtr, "null state", k.name, st);
        csr.check("null", st);
    }
    std::unique_ptr<Guarded> state = makeState(k, in, csr);
    // now and then the draws get a state of another type
    const Kind& otherKind = kKinds[in.ConsumeIntegralInRange<int>(0, kKindCount - 1)];
    std::unique_ptr<Guarded> other = fz::rarely(in, 8) ? makeState(otherKind, in, csr) : nullptr;

    const int calls = in.ConsumeIntegralInRange<int>(1, 6);
    for (int c = 0; c < calls && in.remaining_bytes() > 0; ++c) {
        const int len = fz::mostlyIn(in, 1, 5000);
        const size_t bytes = len > 0 && len <= 5000 ? static_cast<size_t>(len) * k.elem : 16;
        Guarded dst(bytes, in.ConsumeIntegral<uint8_t>() & ~(k.elem - 1));  // states sit at any byte
        const uint8_t nulls = fz::rarely(in) ? in.ConsumeIntegral<uint8_t>() : 0;
        const bool foreign = other && fz::rarely(in, 2);
        Guarded& use = foreign ? *other : *state;
        const std::vector<uint8_t> stateBefore = use.snapshot(), dstBefore = dst.snapshot();
        if (len > 5000) continue;  // a valid length too long to draw here
        VrxStatus st = k.draw(nulls & 1 ? nullptr : dst.data(), len, nulls & 2 ? nullptr : use.data());
        csr.check(k.name, st);
        require(knownStatus(st), "unknown status", k.name, st);
        require(dst.intact() && use.intact(), "written outside its buffers", k.name, st);
        const bool sameType = !foreign || &otherKind == &k;
        const bool mustFail = (nulls & 3) || len < 1 || !sameType;
        if (mustFail) require(st < 0, "bad argument accepted", k.name, st);
        if (st < 0) require(use.same(stateBefore) && dst.same(dstBefore), "written on failure", k.name, st);
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    FuzzedDataProvider in(data, size);
    fuzzOne(in);
    return 0;
}
