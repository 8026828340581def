// Fuzz target of the IIR states: a fuzzer-chosen kind, order, taps, line,
// length, scale factor and word through the size query, Init, the runs and
// the line pair. Every state block and destination has guard bytes; a call
// that fails must return a negative status and leave the destination as it
// was, and no call may write outside the state's block or the destination.
#include "fuzz_util.h"

namespace {

struct Kind {
    VrxStatus (*size)(int, int*);
    VrxStatus (*init)(VrxsIirState**, const void*, int, const void*, Vrx8u*);
    VrxStatus (*run)(const void*, void*, int, VrxsIirState*, int);
    VrxStatus (*runI)(void*, int, VrxsIirState*, int);
    VrxStatus (*get)(const VrxsIirState*, void*);
    VrxStatus (*set)(VrxsIirState*, const void*);
    int tapBytes, sampleBytes, lineBytes;  // line element: tap type, or 32s for the direct form I 32s state
    bool bq;
};

// The integer runs take a scale factor, the float runs none.
template <class Tap, class S, class Line, auto SizeF, auto InitF, auto RunF, auto RunIF, auto GetF, auto SetF, bool Int>
Kind make(bool bq) {
    return {SizeF,
            [](VrxsIirState** pp, const void* t, int n, const void* l, Vrx8u* b) {
                return InitF(pp, static_cast<const Tap*>(t), n, static_cast<const Line*>(l), b);
            },
            [](const void* s, void* d, int len, VrxsIirState* st, int sf) {
                if constexpr (Int) return RunF(static_cast<const S*>(s), static_cast<S*>(d), len, st, sf);
                else return RunF(static_cast<const S*>(s), static_cast<S*>(d), len, st);
            },
            [](void* d, int len, VrxsIirState* st, int sf) {
                if constexpr (Int) return RunIF(static_cast<S*>(d), len, st, sf);
                else return RunIF(static_cast<S*>(d), len, st);
            },
            [](const VrxsIirState* st, void* l) { return GetF(st, static_cast<Line*>(l)); },
            [](VrxsIirState* st, const void* l) { return SetF(st, static_cast<const Line*>(l)); },
            sizeof(Tap), sizeof(S), sizeof(Line), bq};
}

#define K(Tap, S, Line, sfx, run, rs, is, pair, isInt, bq)                                                       \
    make<Tap, S, Line, &vrxsIIRGetStateSize##sfx, &vrxsIIRInit##sfx, &vrxsIIR##run##rs, &vrxsIIR##run##is, \
         &vrxsIIRGetDlyLine##pair, &vrxsIIRSetDlyLine##pair, isInt>(bq)

const Kind* kinds() {
    static const Kind k[] = {
        K(Vrx32f, Vrx32f, Vrx32f, _32f, _32f, , _I, _32f, false, false),
        K(Vrx32f, Vrx32f, Vrx32f, _BiQuad_32f, _32f, , _I, _32f, false, true),
        K(Vrx32fc, Vrx32fc, Vrx32fc, _32fc, _32fc, , _I, _32fc, false, false),
        K(Vrx32fc, Vrx32fc, Vrx32fc, _BiQuad_32fc, _32fc, , _I, _32fc, false, true),
        K(Vrx32f, Vrx16s, Vrx32f, 32f_16s, 32f_16s, _Sfs, _ISfs, 32f_16s, true, false),
        K(Vrx32f, Vrx16s, Vrx32f, 32f_BiQuad_16s, 32f_16s, _Sfs, _ISfs, 32f_16s, true, true),
        K(Vrx32fc, Vrx16sc, Vrx32fc, 32fc_16sc, 32fc_16sc, _Sfs, _ISfs, 32fc_16sc, true, false),
        K(Vrx32fc, Vrx16sc, Vrx32fc, 32fc_BiQuad_16sc, 32fc_16sc, _Sfs, _ISfs, 32fc_16sc, true, true),
        K(Vrx64f, Vrx64f, Vrx64f, _64f, _64f, , _I, _64f, false, false),
        K(Vrx64f, Vrx64f, Vrx64f, _BiQuad_64f, _64f, , _I, _64f, false, true),
        K(Vrx64fc, Vrx64fc, Vrx64fc, _64fc, _64fc, , _I, _64fc, false, false),
        K(Vrx64fc, Vrx64fc, Vrx64fc, _BiQuad_64fc, _64fc, , _I, _64fc, false, true),
        K(Vrx64f, Vrx32f, Vrx64f, 64f_32f, 64f_32f, , _I, 64f_32f, false, false),
        K(Vrx64f, Vrx32f, Vrx64f, 64f_BiQuad_32f, 64f_32f, , _I, 64f_32f, false, true),
        K(Vrx64fc, Vrx32fc, Vrx64fc, 64fc_32fc, 64fc_32fc, , _I, 64fc_32fc, false, false),
        K(Vrx64fc, Vrx32fc, Vrx64fc, 64fc_BiQuad_32fc, 64fc_32fc, , _I, 64fc_32fc, false, true),
        K(Vrx64f, Vrx32s, Vrx64f, 64f_32s, 64f_32s, _Sfs, _ISfs, 64f_32s, true, false),
        K(Vrx64f, Vrx32s, Vrx64f, 64f_BiQuad_32s, 64f_32s, _Sfs, _ISfs, 64f_32s, true, true),
        K(Vrx64fc, Vrx32sc, Vrx64fc, 64fc_32sc, 64fc_32sc, _Sfs, _ISfs, 64fc_32sc, true, false),
        K(Vrx64fc, Vrx32sc, Vrx64fc, 64fc_BiQuad_32sc, 64fc_32sc, _Sfs, _ISfs, 64fc_32sc, true, true),
        K(Vrx64f, Vrx16s, Vrx64f, 64f_16s, 64f_16s, _Sfs, _ISfs, 64f_16s, true, false),
        K(Vrx64f, Vrx16s, Vrx64f, 64f_BiQuad_16s, 64f_16s, _Sfs, _ISfs, 64f_16s, true, true),
        K(Vrx64fc, Vrx16sc, Vrx64fc, 64fc_16sc, 64fc_16sc, _Sfs, _ISfs, 64fc_16sc, true, false),
        K(Vrx64fc, Vrx16sc, Vrx64fc, 64fc_BiQuad_16sc, 64fc_16sc, _Sfs, _ISfs, 64fc_16sc, true, true),
        K(Vrx32f, Vrx32f, Vrx32f, _BiQuad_DF1_32f, _32f, , _I, _32f, false, true),
        K(Vrx64f, Vrx32s, Vrx32s, 64f_BiQuad_DF1_32s, 64f_32s, _Sfs, _ISfs, 64f_DF1_32s, true, true),
    };
    return k;
}
constexpr int kKinds = 26;

}  // namespace

void fuzzOne(fz::In& in) {
    const Kind& k = kinds()[in.range(0, kKinds - 1)];
    const uint8_t flags = in.byte();
    int n = in.range(-2, 37);  // orders below 1 as well
    int len = in.range(-8, 4087);
    const int sf = static_cast<int8_t>(in.byte()) * 2;

    int stateSize = -1;
    VrxStatus st = k.size(n, &stateSize);
    if (n < 1) {
        fz::require(st == vrxErrIirOrder && stateSize == -1, "bad order", "GetStateSize", st);
        n = 1;
        st = k.size(n, &stateSize);
    }
    fz::require(st == vrxOk && stateSize > 0, "size", "GetStateSize", st);

    fz::Guarded taps(size_t(k.bq ? 6 * n : 2 * n + 2) * k.tapBytes);
    taps.fill(in);
    if ((flags & 1) && k.bq)  // mostly well-scaled taps: a0 = 1 in the first element of a0
        for (int s = 0; s < n; ++s) memset(taps.data() + (6 * s + 3) * k.tapBytes, 0, k.tapBytes);
    fz::Guarded line(size_t((k.bq ? (k.lineBytes == 4 && k.tapBytes == 8 ? 4 : 2) : 1) * n + 4 * n) * k.lineBytes);
    line.fill(in);

    fz::Guarded block(stateSize, in.byte());  // any start: Init aligns
    VrxsIirState* state = nullptr;
    st = k.init(&state, taps.data(), n, (flags & 2) ? nullptr : line.data(), block.data());
    fz::require(block.intact() && (st == vrxOk || st == vrxErrDivByZero) && state != nullptr, "Init", "Init", st);

    if (len < -4) len = -len;
    fz::Guarded src(size_t(len > 0 ? len : 1) * k.sampleBytes), dst(src.size());
    src.fill(in);
    memset(dst.data(), 0x11, dst.size());

    // a state with a damaged word is refused and nothing is written
    if (flags & 4) {
        uint32_t word;
        memcpy(&word, state, 4);
        const uint32_t bad = word ^ (1u << (flags % 32));
        memcpy(state, &bad, 4);
        const fz::Watch w{&dst};
        st = k.run(src.data(), dst.data(), len, state, sf);
        w.check(st, "run");
        fz::require(st == (len < 1 ? vrxErrBadLength : vrxErrBadSpec) || (st == vrxOk && len >= 1), "damaged word", "run", st);
        memcpy(state, &word, 4);
    }
    st = (flags & 16) ? k.runI(dst.data(), len, state, sf) : k.run(src.data(), dst.data(), len, state, sf);
    fz::require(st == (len < 1 ? vrxErrBadLength : vrxOk) && dst.intact() && block.intact(), "run", "run", st);

    fz::Guarded out(line.size());
    fz::require(k.get(state, out.data()) == vrxOk && out.intact(), "GetDlyLine");
    fz::require(k.set(state, (flags & 32) ? nullptr : out.data()) == vrxOk && block.intact(), "SetDlyLine");
    if (len >= 1) fz::require(k.run(src.data(), dst.data(), len, state, sf) == vrxOk && dst.intact() && block.intact(), "run after the line pair");
}
