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

float pickFloat(fz::In& in, float lo, float hi) {
    switch (in.range(0, 7)) {
        case 0: return NAN;
        case 1: return -1.0f;
        case 2: return hi * 1.5f;
        default: return in.ConsumeFloatingPointInRange<float>(lo, hi);
    }
}

// A size query's status and sizes (-1 until written): a failure writes none.
bool sized(VrxStatus qs, fz::CallerMxcsr& mx, const char* where, int size, int L = -1) {
    mx.check(where, qs);
    if (qs != vrxOk) require(qs < 0 && size == -1 && L == -1, "failed size query wrote", where, qs);
    return qs == vrxOk && size <= (8 << 20);
}
// After Init into block: nothing written outside it; a failure sets no state.
bool built(VrxStatus is, fz::CallerMxcsr& mx, const char* where, Guarded& block, const void* st) {
    mx.check(where, is);
    require(block.intact(), "Init wrote outside the state", where, is);
    if (is != vrxOk) require(is < 0 && st == nullptr, "failed Init wrote", where, is);
    return is == vrxOk;
}
// One run of len samples into at most `most` outputs through call(src, dst, &got).
template <class Call> void run(fz::In& in, fz::CallerMxcsr& mx, const char* where, Guarded& block, int len, size_t most, Call call) {
    Guarded src(size_t(len > 0 ? len : 1) * 4, in.byte()), dst((most > 0 ? most : 1) * 4, in.byte());
    src.fill(in);
    const fz::Watch w{&dst, &block};
    int got = -1;
    const VrxStatus s = call(src.as<float>(), dst.as<float>(), &got);
    mx.check(where, s);
    w.check(s, where);
    if (s != vrxOk) require(got == -1, "failed run wrote its count", where, s);
    else require(got >= 0 && size_t(got) <= most, "output count", where, got);
}

void runFixed(fz::In& in, fz::CallerMxcsr& mx) {
    const int up = in.mostlyIn(1, 12), down = in.mostlyIn(1, 12), half = in.mostlyIn(1, 24);
    const float rollf = pickFloat(in, 0.01f, 1.0f), beta = pickFloat(in, 0.0f, 20.0f);
    int size = -1, L = -1;
    if (!sized(vrxsResamplePolyphaseFixedGetSize_32f(up, down, half, &size, &L), mx, "FixedGetSize", size, L)) return;
    Guarded block(size, in.byte());
    VrxsResamplePolyphaseFixedState_32f* st = nullptr;
    if (!built(vrxsResamplePolyphaseFixedInit_32f(up, down, half, rollf, beta, &st, block.data()), mx, "FixedInit", block, st)) return;
    int g = 1;
    for (int a = up, b = down; b;) { const int t = a % b; a = b; b = t; g = a; }
    const long U = up / g, D = down / g;
    for (int call = 0; call < 6 && in.remaining_bytes() > 0; ++call) {
        const int op = in.range(0, 5);
        if (op >= 4) {
            Guarded taps(size_t(L) * 4);
            taps.fillWith<float>([&] { const float t = in.raw<float>(); return isfinite(t) ? t : 0.5f; });
            const VrxStatus s = op == 4 ? vrxsResamplePolyphaseSetFixedFilter_32f(st, taps.as<float>())
                                        : vrxsResamplePolyphaseGetFixedFilter_32f(st, taps.as<float>());
            require(s == vrxOk && block.intact() && taps.intact(), "Set/GetFixedFilter", "FixedFilter", s);
            continue;
        }
        const int len = in.mostlyIn(-1, 3000);
        const long most = len > 0 ? (len * U + D - 1) / D : 0;
        if (len > (1 << 20) || most > (4 << 20)) continue;  // the buffers are allocated here
        run(in, mx, "Fixed", block, len, size_t(most),
            [&](const float* s, float* d, int* got) { return vrxsResamplePolyphaseFixed_32f(s, len, d, got, st); });
    }
}

void runArb(fz::In& in, fz::CallerMxcsr& mx) {
    const int half = in.mostlyIn(1, 16), phases = in.mostlyIn(1, 512);
    const float rollf = pickFloat(in, 0.01f, 1.0f), beta = pickFloat(in, 0.0f, 20.0f);
    int size = -1;
    if (!sized(vrxsResamplePolyphaseGetSize_32f(half, phases, &size), mx, "GetSize", size)) return;
    Guarded block(size, in.byte());
    VrxsResamplePolyphaseState_32f* st = nullptr;
    if (!built(vrxsResamplePolyphaseInit_32f(half, phases, rollf, beta, &st, block.data()), mx, "Init", block, st)) return;
    for (int call = 0; call < 6 && in.remaining_bytes() > 0; ++call) {
        const int len = in.mostlyIn(-1, 2000);
        static const double kFactors[] = {NAN, 0.0, 1.0 / 64, 1.0 / 70};
        const int pick = in.range(0, 9);
        const double factor = pick < 4 ? kFactors[pick]
                            : pick == 4 ? in.ConsumeFloatingPointInRange<double>(1.0, 300.0)
                                        : in.ConsumeFloatingPointInRange<double>(1.0 / 64, 4.0);
        const double most = len > 0 && factor > 0 && factor < 1e6 ? ceil(len * factor) + 1 : 1;
        if (len > (1 << 20) || most > (4 << 20)) continue;
        run(in, mx, "run", block, len, size_t(most),
            [&](const float* s, float* d, int* got) { return vrxsResamplePolyphase_32f(s, len, d, factor, got, st); });
    }
}

}  // namespace

void fuzzOne(fz::In& in) {
    fz::CallerMxcsr mx(in);
    if (in.ConsumeBool()) runFixed(in, mx);
    else runArb(in, mx);
}
