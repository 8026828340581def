// Fuzz target of the polyphase resamplers: fuzzer-chosen ratio, halfLen,
// phases, rollf, beta (bad values included) through the size query and Init
// into a guarded block of exactly the reported size, then runs of chosen
// lengths and factors, Get/SetFixedFilter with chosen taps, under a chosen
// MXCSR. A failed call must return a negative status and leave the
// destination and the state as they were; no call writes outside the state
// block or the destination, and no run writes past the documented count.
#include <math.h>

#include "fuzz_util.h"

namespace {

using fz::Guarded;
using fz::require;

float pickFloat(FuzzedDataProvider& in, float lo, float hi) {
    switch (in.ConsumeIntegralInRange<int>(0, 7)) {
        case 0: return NAN;
        case 1: return -1.0f;
        case 2: return hi * 1.5f;
        default: return in.ConsumeFloatingPointInRange<float>(lo, hi);
    }
}

void runFixed(FuzzedDataProvider& in, fz::CallerMxcsr& mx) {
    const int up = fz::mostlyIn(in, 1, 12), down = fz::mostlyIn(in, 1, 12), half = fz::mostlyIn(in, 1, 24);
    const float rollf = pickFloat(in, 0.01f, 1.0f), beta = pickFloat(in, 0.0f, 20.0f);
    int size = -1, L = -1;
    const VrxStatus qs = vrxsResamplePolyphaseFixedGetSize_32f(up, down, half, &size, &L);
    mx.check("FixedGetSize", qs);
    if (qs != vrxOk) {
        require(qs < 0 && size == -1 && L == -1, "failed size query wrote", "FixedGetSize", qs);
        return;
    }
    if (size > (8 << 20)) return;
    Guarded block(size_t(size), in.ConsumeIntegral<uint8_t>());
    VrxsResamplePolyphaseFixedState_32f* st = nullptr;
    const VrxStatus is = vrxsResamplePolyphaseFixedInit_32f(up, down, half, rollf, beta, &st, block.data());
    mx.check("FixedInit", is);
    require(block.intact(), "Init wrote outside the state", "FixedInit", is);
    if (is != vrxOk) {
        require(is < 0 && st == nullptr, "failed Init wrote", "FixedInit", is);
        return;
    }
    int g = 1;
    for (int a = up, b = down; b;) { const int t = a % b; a = b; b = t; g = a; }
    const long U = up / g, D = down / g;
    for (int call = 0; call < 6 && in.remaining_bytes() > 0; ++call) {
        const int op = in.ConsumeIntegralInRange<int>(0, 5);
        if (op == 4) {
            Guarded taps(size_t(L) * 4, 0);
            taps.fill(in);
            float* t = taps.as<float>();
            for (int k = 0; k < L; ++k) if (!isfinite(t[k])) t[k] = 0.5f;
            const VrxStatus s = vrxsResamplePolyphaseSetFixedFilter_32f(st, t);
            require(s == vrxOk && block.intact(), "SetFixedFilter", "SetFixedFilter", s);
            continue;
        }
        if (op == 5) {
            Guarded taps(size_t(L) * 4, 0);
            const VrxStatus s = vrxsResamplePolyphaseGetFixedFilter_32f(st, taps.as<float>());
            require(s == vrxOk && taps.intact(), "GetFixedFilter", "GetFixedFilter", s);
            continue;
        }
        const int len = fz::mostlyIn(in, -1, 3000);
        if (len > (1 << 20)) continue;   // the source is allocated here
        const long most = len > 0 ? (len * U + D - 1) / D : 0;
        if (most > (4 << 20)) continue;
        Guarded src(size_t(len > 0 ? len : 1) * 4, in.ConsumeIntegral<uint8_t>());
        src.fill(in);
        Guarded dst(size_t(most > 0 ? most : 1) * 4, in.ConsumeIntegral<uint8_t>());
        const std::vector<uint8_t> before = dst.snapshot();
        const std::vector<uint8_t> state = block.snapshot();
        int got = -1;
        const VrxStatus s = vrxsResamplePolyphaseFixed_32f(src.as<float>(), len, dst.as<float>(), &got, st);
        mx.check("Fixed", s);
        require(dst.intact() && block.intact(), "run wrote outside", "Fixed", s);
        if (s != vrxOk) {
            require(s < 0 && got == -1 && dst.same(before) && block.same(state), "failed run wrote", "Fixed", s);
        } else {
            require(got >= 0 && got <= most, "output count", "Fixed", got);
        }
    }
}

void runArb(FuzzedDataProvider& in, fz::CallerMxcsr& mx) {
    const int half = fz::mostlyIn(in, 1, 16), phases = fz::mostlyIn(in, 1, 512);
    const float rollf = pickFloat(in, 0.01f, 1.0f), beta = pickFloat(in, 0.0f, 20.0f);
    int size = -1;
    const VrxStatus qs = vrxsResamplePolyphaseGetSize_32f(half, phases, &size);
    mx.check("GetSize", qs);
    if (qs != vrxOk) {
        require(qs < 0 && size == -1, "failed size query wrote", "GetSize", qs);
        return;
    }
    if (size > (8 << 20)) return;
    Guarded block(size_t(size), in.ConsumeIntegral<uint8_t>());
    VrxsResamplePolyphaseState_32f* st = nullptr;
    const VrxStatus is = vrxsResamplePolyphaseInit_32f(half, phases, rollf, beta, &st, block.data());
    mx.check("Init", is);
    require(block.intact(), "Init wrote outside the state", "Init", is);
    if (is != vrxOk) {
        require(is < 0 && st == nullptr, "failed Init wrote", "Init", is);
        return;
    }
    for (int call = 0; call < 6 && in.remaining_bytes() > 0; ++call) {
        const int len = fz::mostlyIn(in, -1, 2000);
        if (len > (1 << 20)) continue;
        double factor;
        switch (in.ConsumeIntegralInRange<int>(0, 9)) {
            case 0: factor = NAN; break;
            case 1: factor = 0.0; break;
            case 2: factor = 1.0 / 64; break;
            case 3: factor = 1.0 / 70; break;
            case 4: factor = in.ConsumeFloatingPointInRange<double>(1.0, 300.0); break;
            default: factor = in.ConsumeFloatingPointInRange<double>(1.0 / 64, 4.0); break;
        }
        const double mostD = len > 0 && factor > 0 && factor < 1e6 ? ceil(len * factor) + 1 : 1;
        if (mostD > (4 << 20)) continue;
        const size_t most = size_t(mostD);
        Guarded src(size_t(len > 0 ? len : 1) * 4, in.ConsumeIntegral<uint8_t>());
        src.fill(in);
        Guarded dst(most * 4, in.ConsumeIntegral<uint8_t>());
        const std::vector<uint8_t> before = dst.snapshot();
        const std::vector<uint8_t> state = block.snapshot();
        int got = -1;
        const VrxStatus s = vrxsResamplePolyphase_32f(src.as<float>(), len, dst.as<float>(), factor, &got, st);
        mx.check("run", s);
        require(dst.intact() && block.intact(), "run wrote outside", "run", s);
        if (s != vrxOk) {
            require(s < 0 && got == -1 && dst.same(before) && block.same(state), "failed run wrote", "run", s);
        } else {
            require(got >= 0 && size_t(got) <= most, "output count", "run", got);
        }
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    FuzzedDataProvider in(data, size);
    fz::CallerMxcsr mx(in);
    if (in.ConsumeBool()) runFixed(in, mx);
    else runArb(in, mx);
    return 0;
}
