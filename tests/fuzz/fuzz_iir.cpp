// Fuzz target of the IIR states: a fuzzer-chosen kind, order, taps, line,
// length, scale factor and word through the size query, Init, the runs and
// the line pair. Every state block and destination has guard bytes; a call
// that fails must return a negative status and leave the destination as it
// was, and no call may write outside the state's block or the destination.
#include <stdint.h>
#include <stdlib.h>
#include <string.h>

#include <vector>

#include "vrxs.h"

namespace {

constexpr uint8_t kGuardByte = 0xCD;
constexpr size_t kGuard = 64;

struct Reader {
    const uint8_t* p;
    size_t n;
    uint8_t byte() { if (!n) return 0; --n; return *p++; }
    void bytes(void* to, size_t count) {
        uint8_t* t = static_cast<uint8_t*>(to);
        for (size_t i = 0; i < count; ++i) t[i] = byte();
    }
};

// A block with guards on both sides.
struct Guarded {
    std::vector<uint8_t> mem;
    size_t size, off;
    explicit Guarded(size_t n, size_t offset = 0) : mem(n + 2 * kGuard + 32, kGuardByte), size(n), off(offset) {}
    uint8_t* data() { return mem.data() + kGuard + off; }
    bool intact() const {
        for (size_t i = 0; i < kGuard + off; ++i)
            if (mem[i] != kGuardByte) return false;
        for (size_t i = 0; i < kGuard; ++i)
            if (mem[kGuard + off + size + i] != kGuardByte) return false;
        return true;
    }
};

void check(bool ok) { if (!ok) abort(); }

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

template <class Tap, class S, class Line, auto SizeF, auto InitF, auto RunF, auto RunIF, auto GetF, auto SetF, bool Int>
Kind make(bool bq) {
    Kind k;
    k.size = SizeF;
    k.init = [](VrxsIirState** pp, const void* t, int n, const void* l, Vrx8u* b) {
        return InitF(pp, static_cast<const Tap*>(t), n, static_cast<const Line*>(l), b);
    };
    k.run = [](const void* s, void* d, int len, VrxsIirState* st, int sf) {
        if constexpr (Int) return RunF(static_cast<const S*>(s), static_cast<S*>(d), len, st, sf);
        else return RunF(static_cast<const S*>(s), static_cast<S*>(d), len, st);
    };
    k.runI = [](void* d, int len, VrxsIirState* st, int sf) {
        if constexpr (Int) return RunIF(static_cast<S*>(d), len, st, sf);
        else return RunIF(static_cast<S*>(d), len, st);
    };
    k.get = [](const VrxsIirState* st, void* l) { return GetF(st, static_cast<Line*>(l)); };
    k.set = [](VrxsIirState* st, const void* l) { return SetF(st, static_cast<const Line*>(l)); };
    k.tapBytes = sizeof(Tap);
    k.sampleBytes = sizeof(S);
    k.lineBytes = sizeof(Line);
    k.bq = bq;
    return k;
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

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    Reader r{data, size};
    const int which = r.byte() % kKinds;
    const Kind& k = kinds()[which];
    const uint8_t flags = r.byte();
    int n = static_cast<int>(r.byte() % 40) - 2;  // orders below 1 as well
    int len = static_cast<int>(r.byte()) * 16 + r.byte() - 8;
    const int sf = static_cast<int8_t>(r.byte()) * 2;

    int stateSize = -1;
    VrxStatus st = k.size(n, &stateSize);
    if (n < 1) {
        check(st == vrxErrIirOrder && stateSize == -1);
        n = 1;
        check(k.size(n, &stateSize) == vrxOk);
    }
    check(stateSize > 0);

    const int taps = k.bq ? 6 * n : 2 * n + 2;
    std::vector<uint8_t> tapBytes(static_cast<size_t>(taps) * k.tapBytes);
    r.bytes(tapBytes.data(), tapBytes.size());
    if (flags & 1) {  // mostly well-scaled taps: a0 = 1 in the first element of a0
        if (k.bq) for (int s = 0; s < n; ++s) memset(tapBytes.data() + (6 * s + 3) * k.tapBytes, 0, k.tapBytes);
    }
    const int lineCount = (k.bq ? (k.lineBytes == 4 && k.tapBytes == 8 ? 4 : 2) : 1) * n + 4 * n;
    std::vector<uint8_t> line(static_cast<size_t>(lineCount) * k.lineBytes);
    r.bytes(line.data(), line.size());

    Guarded block(static_cast<size_t>(stateSize), r.byte() % 32);  // any start: Init aligns
    uint8_t* base = block.data();
    VrxsIirState* state = nullptr;
    st = k.init(&state, tapBytes.data(), n, (flags & 2) ? nullptr : line.data(), base);
    check(block.intact());
    check(st == vrxOk || st == vrxErrDivByZero);
    check(state != nullptr);

    if (len < -4) len = -len;
    std::vector<uint8_t> src(static_cast<size_t>(len > 0 ? len : 1) * k.sampleBytes);
    r.bytes(src.data(), src.size());
    Guarded dst(src.size());
    memset(dst.data(), 0x11, src.size());

    // a state with a damaged word is refused and nothing is written
    if (flags & 4) {
        uint32_t word;
        memcpy(&word, state, 4);
        uint32_t bad = word ^ (1u << (flags % 32));
        memcpy(state, &bad, 4);
        st = k.run(src.data(), dst.data(), len, state, sf);
        check(st == (len < 1 ? vrxErrBadLength : vrxErrBadSpec) || (st == vrxOk && len >= 1));
        if (st < 0)
            for (size_t i = 0; i < src.size(); ++i) check(dst.data()[i] == 0x11);
        memcpy(state, &word, 4);
    }
    st = (flags & 16) ? k.runI(dst.data(), len, state, sf) : k.run(src.data(), dst.data(), len, state, sf);
    check(st == (len < 1 ? vrxErrBadLength : vrxOk));
    check(dst.intact() && block.intact());

    std::vector<uint8_t> out(line.size() + 64, 0);
    check(k.get(state, out.data()) == vrxOk);
    check(k.set(state, (flags & 32) ? nullptr : out.data()) == vrxOk);
    check(block.intact());
    if (len >= 1) {
        check(k.run(src.data(), dst.data(), len, state, sf) == vrxOk);
        check(dst.intact() && block.intact());
    }
    return 0;
}
