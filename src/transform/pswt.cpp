// Streaming two-band wavelet transforms with caller filters: sizes, Init,
// the forward and inverse runs and the delay lines of the eight state kinds.
//
// A block of a band runs in three parts. Head: the outputs whose window
// reaches into the history go pair by pair through the ring (the offset
// line first). Body: the rest straight from the source with the vector
// kernel. Tail: the newest samples of the block are copied into the ring
// and the offset line, and both positions return to 0. A block of only
// head outputs leaves the ring where the pairs put it.
#include "vrx_layout.h"
#include "pswt_kernel.h"

#include <limits.h>

namespace n0::wt {
namespace {

constexpr int kSel32f = 13, kSel8u = 1, kSel16u = 5, kSel16s = 7;

constexpr int64_t a16(int64_t x) { return (x + 15) & ~int64_t(15); }
constexpr int64_t a64(int64_t x) { return (x + 63) & ~int64_t(63); }

// Floats of the even tap set, rounded to 16 bytes: the odd set follows.
constexpr int64_t evenSlots(int64_t taps) { return a16(4 * ((taps + 1) / 2)) / 4; }

// Bytes of the prepared forward taps (ownsConvDown2Init_32f_new): the taps
// and the two ring records of the band.
constexpr int64_t fwdKernelSize(int64_t taps) { return 4 * taps + 32; }
// Bytes of the prepared inverse odd tap set (ownsUp2ConvInit_32f_new); the
// even set is the formula's a16(4h).
constexpr int64_t invKernelSize(int64_t taps) { return a16(4 * (taps / 2)); }
// The inverse band's own parts: the reversed taps, and for an even count
// one more ring entry (the odd phase keeps floor(taps/2) + 1 samples).
constexpr int64_t invTapsSpecific(int64_t taps) { return a16(4 * taps) + (taps % 2 == 0 ? 16 : 0); }

constexpr int64_t fwdBandSize(int64_t taps, int64_t offs) {
    return a16(fwdKernelSize(taps)) + a16(8 * taps) + a16(4 * taps) + 64 + (offs > 0 ? a16(8 * offs) : 0);
}
constexpr int64_t invBandSize(int64_t taps, int64_t offs) {
    const int64_t h = (taps + 1) / 2, g = offs / 2;
    return a16(8 * h) + a16(4 * h) + invKernelSize(taps) + 64 + invTapsSpecific(taps) + (g != 0 ? a16(8 * g) + 16 : 0) +
           48;
}
template <bool Inv>
constexpr int64_t stateSize(int sel, int64_t tl, int64_t ol, int64_t th, int64_t oh) {
    const int64_t b = Inv ? invBandSize(tl, ol) + invBandSize(th, oh) : fwdBandSize(tl, ol) + fwdBandSize(th, oh);
    return (sel == kSel32f ? 0 : 4096) + a64(b + 48) + 64;
}

// ------------------------------------------------------------- layout
struct BandPieces {
    BandRecords* rec;
    Ring* rings;       // line, offset line
    float* taps;       // forward: taps; inverse: even set, odd set
    float* ringData;
    float* reversed;
    float* offsetData;
    int32_t ringLen, offsetLen;
};
struct Pieces {
    State* st;
    float* conv;
    BandPieces low, high;
};

template <bool Inv>
constexpr BandPieces bandLayout(Carver& c, int taps, int offs) {
    BandPieces b{};
    b.rec = c.take<BandRecords>(1, 16);
    b.rings = c.take<Ring>(2, 16);
    if constexpr (Inv) {
        b.ringLen = taps / 2 + 1;
        b.offsetLen = offs / 2 > 0 ? offs / 2 : 0;
        b.ringData = c.take<float>(2 * int64_t(b.ringLen), 16);
        b.taps = c.take<float>(evenSlots(taps) + taps / 2, 16);
    } else {
        b.ringLen = taps;
        b.offsetLen = offs > 0 ? offs : 0;
        b.taps = c.take<float>(taps, 16);
        b.ringData = c.take<float>(2 * int64_t(taps), 16);
    }
    b.reversed = c.take<float>(taps, 16);
    b.offsetData = b.offsetLen ? c.take<float>(2 * int64_t(b.offsetLen), 16) : nullptr;
    return b;
}

// The header stays at the caller's pointer (its first word is the identity
// word); every other piece is on a 16-byte boundary.
template <bool Inv>
constexpr Pieces layout(Carver& c, bool typed, int tl, int ol, int th, int oh) {
    Pieces p{};
    p.st = c.take<State>(1, 1);
    p.conv = typed ? c.take<float>(kConvCount, 16) : nullptr;
    p.low = bandLayout<Inv>(c, tl, ol);
    p.high = bandLayout<Inv>(c, th, oh);
    return p;
}

template <bool Inv>
constexpr bool layoutFits(int sel, int tl, int ol, int th, int oh) {
    Carver c;
    layout<Inv>(c, sel != kSel32f, tl, ol, th, oh);
    return c.size() + Carver::kSlack <= stateSize<Inv>(sel, tl, ol, th, oh);
}
// Every parity of taps, every offset class, both selector kinds.
constexpr bool allFit() {
    for (int t = 1; t <= 40; ++t)
        for (int o = -1; o <= 9; ++o)
            for (int sel = kSel8u; sel <= kSel32f; sel += kSel32f - kSel8u)
                if (!layoutFits<false>(sel, t, o, 41 - t, 9 - o) || !layoutFits<true>(sel, t, o, 41 - t, 9 - o))
                    return false;
    return true;
}
static_assert(allFit(), "the wavelet layout stays inside the reported size");

// ------------------------------------------------------ argument checks
VrxStatus checkParams(int tl, int ol, int th, int oh) {
    if (tl < 1 || th < 1) return vrxErrBadLength;
    if (ol < -1 || oh < -1) return vrxErrWtOffset;
    return vrxOk;
}

template <bool Inv>
VrxStatus getSize(int sel, int tl, int ol, int th, int oh, int* pSize) {
    if (!pSize) return vrxErrNullPtr;
    *pSize = 0;
    if (sel != kSel32f && sel != kSel8u && sel != kSel16u && sel != kSel16s) return vrxErrDataType;
    if (VrxStatus st = checkParams(tl, ol, th, oh)) return st;
    const int64_t sz = stateSize<Inv>(sel, tl, ol, th, oh);
    if (sz > INT_MAX) return vrxErrBadLength;  // no 32-bit size holds it
    *pSize = static_cast<int>(sz);
    return vrxOk;
}

// ------------------------------------------------------------------ Init
void fillBand(const BandPieces& b, const float* taps, int n, int offs, bool inv) {
    Band& band = b.rec->band;
    Filter& f = b.rec->filter;
    Ring& line = b.rings[0];
    Ring& off = b.rings[1];
    line = Ring{b.ringData, b.ringLen, 0};
    for (int i = 0; i < 2 * b.ringLen; ++i) b.ringData[i] = 0.0f;
    f.kernel = b.taps;
    f.line = &line;
    f.taps = n;
    f.reversed = b.reversed;
    f.oddPhase = offs == -1 ? 1 : 0;
    for (int k = 0; k < n; ++k) b.reversed[k] = taps[n - 1 - k];
    if (inv) {
        const int64_t es = evenSlots(n);
        for (int j = 0; 2 * j < n; ++j) b.taps[j] = taps[2 * j];
        for (int64_t j = (n + 1) / 2; j < es; ++j) b.taps[j] = 0.0f;
        for (int j = 0; 2 * j + 1 < n; ++j) b.taps[es + j] = taps[2 * j + 1];
        band.delayLen = (f.oddPhase ? n / 2 : (n + 1) / 2 - 1) + b.offsetLen;
    } else {
        for (int k = 0; k < n; ++k) b.taps[k] = taps[k];
        band.delayLen = n - 1 + b.offsetLen;
    }
    band.filter = &f;
    if (b.offsetLen) {
        off = Ring{b.offsetData, b.offsetLen, 0};
        for (int i = 0; i < 2 * b.offsetLen; ++i) b.offsetData[i] = 0.0f;
        band.offsetLine = &off;
    } else {
        off = Ring{nullptr, 0, 0};
        band.offsetLine = nullptr;
    }
}

template <bool Inv>
VrxStatus init(void* pState, ObjId id, const float* tapsL, int tl, int ol, const float* tapsH, int th, int oh) {
    if (anyNull(pState, tapsL, tapsH)) return vrxErrNullPtr;
    static_cast<int32_t*>(pState)[0] = idWord(id);  // stays on the failures below
    if (VrxStatus st = checkParams(tl, ol, th, oh)) return st;
    const bool typed = id != ObjId::WtFwd32f && id != ObjId::WtInv32f;
    if (stateSize<Inv>(typed ? kSel8u : kSel32f, tl, ol, th, oh) > INT_MAX) return vrxErrBadLength;
    Carver c(pState);
    const Pieces p = layout<Inv>(c, typed, tl, ol, th, oh);
    fillBand(p.low, tapsL, tl, ol, Inv);
    fillBand(p.high, tapsH, th, oh, Inv);
    p.st->lowBand = &p.low.rec->band;
    p.st->highBand = &p.high.rec->band;
    p.st->convBuf = p.conv;
    p.st->convCount = typed ? kConvCount : 0;
    return vrxOk;
}

// ----------------------------------------------------------- state check
bool ringOk(const Ring* r) { return r && r->data && r->length > 0 && r->pos >= 0 && r->pos < r->length; }

// A band is whole when its records sit where the layout puts them for its
// own taps and offset, and its rings are in range. The record addresses do
// not depend on the taps, so nothing is read through a pointer that is not
// first found at its place inside the caller's block.
template <bool Inv>
bool bandOk(Carver& c, const Band* b) {
    Carver probe = c;
    const BandRecords* rec = probe.take<BandRecords>(1, 16);
    const Ring* rings = probe.take<Ring>(2, 16);
    if (b != &rec->band || b->filter != &rec->filter) return false;
    const Filter* f = b->filter;
    if (f->line != &rings[0] || (b->offsetLine && b->offsetLine != &rings[1])) return false;
    if (f->taps < 1 || (f->oddPhase != 0 && f->oddPhase != 1)) return false;
    const int32_t offLen = b->offsetLine ? b->offsetLine->length : 0;
    if (offLen < 0 || offLen > INT_MAX / 2 || (f->oddPhase && offLen)) return false;
    const int offs = f->oddPhase ? -1 : (Inv ? 2 * offLen : offLen);
    if (stateSize<Inv>(kSel8u, f->taps, offs, 1, 0) > INT_MAX) return false;
    const BandPieces e = bandLayout<Inv>(c, f->taps, offs);
    if (f->kernel != e.taps || f->reversed != e.reversed || f->line->data != e.ringData ||
        f->line->length != e.ringLen || !ringOk(f->line))
        return false;
    const int32_t hist = Inv ? (f->oddPhase ? f->taps / 2 : (f->taps + 1) / 2 - 1) : f->taps - 1;
    if (b->delayLen != hist + offLen) return false;
    if (b->offsetLine && (b->offsetLine->data != e.offsetData || !ringOk(b->offsetLine))) return false;
    return b->offsetLine || e.offsetLen == 0;
}

// WTFwdBaseCheck_32f and WTInvBaseCheck_32f: -17 for a state that is not
// whole; typed kinds need their conversion buffer.
template <bool Inv>
VrxStatus checkState(void* p, ObjId id, State** out) {
    State* st = nullptr;
    if (VrxStatus s = open(p, id, &st)) return s;
    if ((st->convBuf == nullptr) != (st->convCount == 0)) return vrxErrBadSpec;
    const bool typed = id != ObjId::WtFwd32f && id != ObjId::WtInv32f;
    Carver c(p);
    c.take<State>(1, 1);
    if (typed && (st->convBuf != c.take<float>(kConvCount, 16) || st->convCount != kConvCount)) return vrxErrBadSpec;
    if (!typed && st->convBuf) return vrxErrBadSpec;
    if (!bandOk<Inv>(c, st->lowBand) || !bandOk<Inv>(c, st->highBand)) return vrxErrBadSpec;
    *out = st;
    return vrxOk;
}

// ------------------------------------------------------------- forward
// Typed sources are widened as they are read: one value in the ring steps,
// 32 samples at a time split into even and odd floats for the body.
template <class S>
VRX_INLINE float sample(const S* src, int64_t i) { return static_cast<float>(src[i]); }

// Samples src[i0 .. i0 + len) as floats into a ring (both copies), pos 0.
template <class S>
VRX_INLINE void saveTail(const S* src, Ring& r) {
    if constexpr (sizeof(S) == 4) {
        N0(vrxsCopy_32f)(src, r.data, r.length);
        N0(vrxsCopy_32f)(src, r.data + r.length, r.length);
    } else {
        for (int i = 0; i < r.length; ++i) r.data[i] = r.data[i + r.length] = sample(src, i);
    }
    r.pos = 0;
}

// 16 source pairs at p as two registers of floats: first and second
// samples of each pair. Integers below 2^24 convert exactly.
using I = simd::V<int32_t>;
using U32 = simd::V<uint32_t>;
VRX_INLINE void splitPairs(const Vrx32f* p, F::R& ev, F::R& od) { simd::deinterleave(F::load(p), F::load(p + 16), ev, od); }
VRX_INLINE void splitPairs(const Vrx16s* p, F::R& ev, F::R& od) {
    const I::R v = I::load(reinterpret_cast<const int32_t*>(p));
    ev = simd::intToFloat(I::shr<16>(I::shl<16>(v)));
    od = simd::intToFloat(I::shr<16>(v));
}
VRX_INLINE void splitPairs(const Vrx16u* p, F::R& ev, F::R& od) {
    const U32::R v = U32::load(reinterpret_cast<const uint32_t*>(p));
    ev = simd::intToFloat(U32::andb(v, U32::set1(0xFFFF)));
    od = simd::intToFloat(U32::shr<16>(v));
}
VRX_INLINE void splitPairs(const Vrx8u* p, F::R& ev, F::R& od) {
    const U32::R v = simd::widen16u(reinterpret_cast<const uint16_t*>(p));
    ev = simd::intToFloat(U32::andb(v, U32::set1(0xFF)));
    od = simd::intToFloat(U32::shr<8>(v));
}

// Source samples i in [lo, hi), lo >= 0, into the split arrays: sample i
// goes to e[(i - base) / 2] when i - base is even, else to o[(i - base) / 2].
template <class S>
void splitSource(const S* src, int64_t lo, int64_t hi, int64_t base, float* e, float* o) {
    if ((lo - base) & 1) {
        o[(lo - base) / 2] = sample(src, lo);
        ++lo;
    }
    int64_t t = (lo - base) / 2;
    for (; lo + 32 <= hi; lo += 32, t += 16) {
        F::R ev, od;
        splitPairs(src + lo, ev, od);
        F::store(e + t, ev);
        F::store(o + t, od);
    }
    for (; lo + 1 < hi; lo += 2, ++t) {
        e[t] = sample(src, lo);
        o[t] = sample(src, lo + 1);
    }
    if (lo < hi) e[t] = sample(src, lo);
}

// The forward body from a split source: outputs j0 .. n - 1, whose windows
// lie in the source, in chunks through a buffer of 1024 floats (the
// conversion buffer of a typed state, a stack buffer for 32f). A chunk of m
// outputs from c needs samples from base = 2c - q - 2B on (q = offset -
// phase, B = taps / 2), split into e and o (512 floats each): tap k (even) of
// output j reads e[j - c + B - k/2], tap k + 1 reads o[j - c + B - 1 - k/2].
// A second filter f2 of the same taps and phase (into dst2) shares the split.
template <class S>
void fwdBodySplit(const Filter& f, int q, const S* src, float* dst, int j0, int n, float* buf,
                  const Filter* f2 = nullptr, float* dst2 = nullptr) {
    const int B = f.taps / 2, chunk = (kConvCount / 2 - B) / 16 * 16;
    float* e = buf;
    float* o = buf + kConvCount / 2;
    for (int c = j0; c < n; c += chunk) {
        const int m = n - c < chunk ? n - c : chunk;
        const int64_t base = 2 * int64_t(c) - q - 2 * B;
        // the last odd sample is never read
        splitSource(src, base > 0 ? base : 0, base + 2 * int64_t(m + B) - 1, base, e, o);
        convDown2(Split{e + B, o + B - 1}, f.kernel, f.taps, dst + c, m);
        if (f2) convDown2(Split{e + B, o + B - 1}, f2->kernel, f.taps, dst2 + c, m);
    }
}

// Taps beyond this leave too short a chunk in the buffer: such a typed
// state converts 1024 samples at a time and runs the float path on them.
constexpr int kSplitTapsMax = kConvCount - 2 * 64;
// A float source is split for one band only from this many taps on: the
// split costs about what the shuffles of a few taps do (at 8 taps it is 1.2
// times faster, at 32 taps 1.5 times, at 4 taps 10% slower). Two bands of
// one shape share it, and then it pays at every count (4 taps: 1.2 times).
constexpr int kSplitTapsMin = 6;

// The head of one band over 2n samples of src: the outputs whose window
// reaches the history (or the offset line), output m ready once sample
// 2m + p is in. Returns their count.
template <class S>
int fwdHead(const Band& b, const S* src, float* dst, int n) {
    const Filter& f = *b.filter;
    Ring& r = *f.line;
    Ring* ol = b.offsetLine;
    const int p = f.oddPhase;
    const int head = (b.delayLen - p + 1) / 2 < n ? (b.delayLen - p + 1) / 2 : n;
    if (head > 0) {
        // convDown2Pair_32f, with convDown2BlockByAppend_32f in front when
        // an offset line exists. A head-only block takes every sample in.
        const int pushed = head == n ? 2 * n : 2 * head;
        for (int i = 0; i < pushed; ++i) {
            const float x = sample(src, i);
            push(r, ol ? through(*ol, x) : x);
            if ((i & 1) == p && (i >> 1) < head) dst[i >> 1] = dotNewest(f.kernel, newest(r), f.taps);
        }
    }
    return head;
}

// The tail of a block with a body: its newest samples into the ring and the
// offset line.
template <class S>
void fwdTail(const Band& b, const S* src, int n) {
    const int o = b.offsetLine ? b.offsetLine->length : 0;
    saveTail(src + 2 * int64_t(n) - b.filter->taps - o, *b.filter->line);
    if (b.offsetLine) saveTail(src + 2 * int64_t(n) - o, *b.offsetLine);
}

VRX_INLINE int qOf(const Band& b) { return (b.offsetLine ? b.offsetLine->length : 0) - b.filter->oddPhase; }

// Both bands over 2n samples of src; buf (or null) the split buffer of each
// band. Bands of the same taps, offset and phase split the source once.
template <class S>
void fwdBands(const Band& L, const Band& H, const S* src, float* lo, float* hi, int n, float* bufL, float* bufH) {
    const Filter& fl = *L.filter;
    const Filter& fh = *H.filter;
    if (bufL && bufH && fl.taps == fh.taps && fl.oddPhase == fh.oddPhase && qOf(L) == qOf(H)) {
        const int head = fwdHead(L, src, lo, n);
        fwdHead(H, src, hi, n);
        if (head == n) return;
        fwdBodySplit(fl, qOf(L), src, lo, head, n, bufL, &fh, hi);
        fwdTail(L, src, n);
        fwdTail(H, src, n);
        return;
    }
    for (int k = 0; k < 2; ++k) {
        const Band& b = k ? H : L;
        float* dst = k ? hi : lo;
        float* buf = k ? bufH : bufL;
        const int head = fwdHead(b, src, dst, n);
        if (head == n) continue;
        const Filter& f = *b.filter;
        if (buf) fwdBodySplit(f, qOf(b), src, dst, head, n, buf);
        else if constexpr (sizeof(S) == 4) convDown2(Down2{src + 2 * head - qOf(b)}, f.kernel, f.taps, dst + head, n - head);
        fwdTail(b, src, n);
    }
}

VRX_INLINE void convertIn(const Vrx8u* s, float* d, int n) { N0(vrxsConvert_8u32f)(s, d, n); }
VRX_INLINE void convertIn(const Vrx16u* s, float* d, int n) { N0(vrxsConvert_16u32f)(s, d, n); }
VRX_INLINE void convertIn(const Vrx16s* s, float* d, int n) { N0(vrxsConvert_16s32f)(s, d, n); }

template <class S>
VrxStatus fwdRun(const S* src, float* lo, float* hi, int dstLen, void* pState, ObjId id) {
    if (anyNull(src, lo, hi, pState)) return vrxErrNullPtr;
    State* st = nullptr;
    if (VrxStatus s = checkState<false>(pState, id, &st)) return s;
    if (dstLen < 1) return vrxErrBadLength;
    if constexpr (sizeof(S) == 4) {
        // the stack holds the split source when the taps leave chunks long
        // enough to pay for it
        alignas(64) float split[kConvCount];
        const Band& L = *st->lowBand;
        const Band& H = *st->highBand;
        const bool same = L.filter->taps == H.filter->taps && L.filter->oddPhase == H.filter->oddPhase && qOf(L) == qOf(H);
        auto use = [&](const Filter& f) {
            return f.taps <= kSplitTapsMax && (same || f.taps >= kSplitTapsMin) ? split : nullptr;
        };
        fwdBands(L, H, src, lo, hi, dstLen, use(*L.filter), use(*H.filter));
    } else if (st->lowBand->filter->taps <= kSplitTapsMax && st->highBand->filter->taps <= kSplitTapsMax) {
        fwdBands(*st->lowBand, *st->highBand, src, lo, hi, dstLen, st->convBuf, st->convBuf);
    } else {
        // 1024 source samples at a time through convBuf; the band results
        // do not depend on the split.
        for (int64_t i = 0; i < dstLen; i += kConvCount / 2) {
            const int m = dstLen - i < kConvCount / 2 ? static_cast<int>(dstLen - i) : kConvCount / 2;
            convertIn(src + 2 * i, st->convBuf, 2 * m);
            fwdBands<float>(*st->lowBand, *st->highBand, st->convBuf, lo + i, hi + i, m, nullptr, nullptr);
        }
    }
    return vrxOk;
}

// ------------------------------------------------------------- inverse
// A band's pairs that go through the ring: those whose window reaches the
// history, and enough of them that a block with a body holds a whole ring
// of samples for its tail.
VRX_INLINE int invHead(const Band& b, int n) {
    const int want = b.filter->line->length - 1 + (b.offsetLine ? b.offsetLine->length : 0);
    return want < n ? want : n;
}

VRX_INLINE Up2 up2Of(const Band& b, const float* u) {
    const Filter& f = *b.filter;
    const int g = b.offsetLine ? b.offsetLine->length : 0;
    return Up2{u - g, f.kernel, (f.taps + 1) / 2, f.kernel + evenSlots(f.taps), f.taps / 2, f.oddPhase};
}

// Pairs j0 .. j1 - 1 of one band written (low) or added (high) to out
// (pair j at out[2 (j - j0)]): the head pairs through the ring
// (up2ConvPair_32f / up2ConvPairAdd_32f, the offset line in front as
// up2ConvBlockByAppend_32f and its Add twin do), the rest from the band.
template <bool Add>
void invRange(const Band& b, const float* u, int head, int j0, int j1, float* out) {
    Ring& r = *b.filter->line;
    Ring* ol = b.offsetLine;
    const Filter& f = *b.filter;
    const Up2 ring{nullptr, f.kernel, (f.taps + 1) / 2, f.kernel + evenSlots(f.taps), f.taps / 2, f.oddPhase};
    int j = j0;
    for (; j < j1 && j < head; ++j) {
        push(r, ol ? through(*ol, u[j]) : u[j]);
        Up2 w = ring;
        w.s = newest(r);
        up2Pair<Add>(w, 0, out + 2 * (j - j0));
    }
    if (j < j1) up2Conv<Add>(up2Of(b, u), j, j1, out + 2 * (j - j0));
}

VRX_INLINE void invTail(const Band& b, const float* u, int n) {
    Ring& r = *b.filter->line;
    const int g = b.offsetLine ? b.offsetLine->length : 0;
    saveTail(u + n - r.length - g, r);
    if (b.offsetLine) saveTail(u + n - g, *b.offsetLine);
}

// Result stores: plain floats, or narrowed to the result type as
// vrxsConvert_32f*_Sfs does with vrxRndNear and scale factor 0 (clamped
// above, ties to even whatever the caller's rounding mode, NaN to the
// lower bound, saturated), without touching MXCSR.
VRX_INLINE void storeOut(float* p, F::M m, F::R v) { F::storem(p, m, v); }
VRX_INLINE void storeOut(Vrx8u* p, F::M m, F::R v) {
    simd::narrowSat8u(p, m, simd::floatToIntNearestQuiet(F::min(F::set1(255.0f), v)));
}
VRX_INLINE void storeOut(Vrx16u* p, F::M m, F::R v) {
    simd::narrowSat16u(p, m, simd::floatToIntNearestQuiet(F::min(F::set1(65535.0f), v)));
}
VRX_INLINE void storeOut(Vrx16s* p, F::M m, F::R v) {
    simd::narrowSat16s(p, m, simd::floatToIntNearestQuiet(F::min(F::set1(32767.0f), v)));
}

template <class D>
struct Sink {
    D* d;
    VRX_INLINE void put(int i, F::R v) {
        if constexpr (sizeof(D) == 4) F::store(d + i, v);
        else storeOut(d + i, F::kAll, v);
    }
    VRX_INLINE void putn(int i, const float* t, int n) {
        for (int q = 0; q < n; q += 16) {
            const F::M m = simd::tail<float>(n - q < 16 ? n - q : 16);
            storeOut(d + i + q, m, F::loadm(m, t + q));
        }
    }
};

// Both bands: the pairs before the later head go band by band (through the
// conversion buffer for typed results, 512 pairs at a time), the rest are
// added in registers and stored once.
template <class D>
VrxStatus invRun(const float* lo, const float* hi, int srcLen, D* dst, void* pState, ObjId id) {
    if (anyNull(lo, hi, dst, pState)) return vrxErrNullPtr;
    State* st = nullptr;
    if (VrxStatus s = checkState<true>(pState, id, &st)) return s;
    if (srcLen < 1) return vrxErrBadLength;
    const Band& L = *st->lowBand;
    const Band& H = *st->highBand;
    const int n = srcLen, hl = invHead(L, n), hh = invHead(H, n), pre = hl > hh ? hl : hh;
    if constexpr (sizeof(D) == 4) {
        invRange<false>(L, lo, hl, 0, pre, dst);
        invRange<true>(H, hi, hh, 0, pre, dst);
    } else {
        Sink<D> out{dst};
        for (int c = 0; c < pre; c += kConvCount / 2) {
            const int e = pre - c < kConvCount / 2 ? pre : c + kConvCount / 2;
            invRange<false>(L, lo, hl, c, e, st->convBuf);
            invRange<true>(H, hi, hh, c, e, st->convBuf);
            out.putn(2 * c, st->convBuf, 2 * (e - c));
        }
    }
    if (pre < n) {
        Sink<D> out{dst + 2 * int64_t(pre)};
        up2Both(up2Of(L, lo), up2Of(H, hi), pre, n, out);
    }
    if (hl < n) invTail(L, lo, n);
    if (hh < n) invTail(H, hi, n);
    return vrxOk;
}

// --------------------------------------------------------- delay lines
// The caller's line of a band: the ring's history (its newest `hist`
// samples), then the offset line, oldest first.
int ringHistory(const Band& b) { return b.delayLen - (b.offsetLine ? b.offsetLine->length : 0); }

void setBand(Band& b, const float* dly) {
    Ring& r = *b.filter->line;
    const int hist = ringHistory(b), skip = r.length - hist;
    for (int i = 0; i < r.length; ++i) {
        const float v = (i >= skip && dly) ? dly[i - skip] : 0.0f;
        r.data[i] = v;
        r.data[i + r.length] = v;
    }
    r.pos = 0;
    if (Ring* ol = b.offsetLine) {
        for (int i = 0; i < ol->length; ++i) {
            const float v = dly ? dly[hist + i] : 0.0f;
            ol->data[i] = v;
            ol->data[i + ol->length] = v;
        }
        ol->pos = 0;
    }
}

void getBand(const Band& b, float* dly) {
    const Ring& r = *b.filter->line;
    const int hist = ringHistory(b);
    const float* w = r.data + r.pos + r.length - hist;
    for (int i = 0; i < hist; ++i) dly[i] = w[i];
    if (const Ring* ol = b.offsetLine)
        for (int i = 0; i < ol->length; ++i) dly[hist + i] = ol->data[ol->pos + i];
}

VrxStatus setDly(void* pState, ObjId id, const float* dl, const float* dh) {
    State* st = nullptr;
    const bool inv = id >= ObjId::WtInv32f && id <= ObjId::WtInv32f16s;
    if (VrxStatus s = inv ? checkState<true>(pState, id, &st) : checkState<false>(pState, id, &st)) return s;
    setBand(*st->lowBand, dl);
    setBand(*st->highBand, dh);
    return vrxOk;
}

VrxStatus getDly(const void* pState, ObjId id, float* dl, float* dh) {
    if (anyNull(pState, dl, dh)) return vrxErrNullPtr;
    State* st = nullptr;
    void* p = const_cast<void*>(pState);
    const bool inv = id >= ObjId::WtInv32f && id <= ObjId::WtInv32f16s;
    if (VrxStatus s = inv ? checkState<true>(p, id, &st) : checkState<false>(p, id, &st)) return s;
    getBand(*st->lowBand, dl);
    getBand(*st->highBand, dh);
    return vrxOk;
}

}  // namespace
}  // namespace n0::wt

using n0::ObjId;
using namespace n0::wt;

VrxStatus N0(vrxsWTFwdGetSize)(int srcType, int lenLow, int offsLow, int lenHigh, int offsHigh, int* pSize) {
    return getSize<false>(srcType, lenLow, offsLow, lenHigh, offsHigh, pSize);
}
VrxStatus N0(vrxsWTInvGetSize)(int dstType, int lenLow, int offsLow, int lenHigh, int offsHigh, int* pSize) {
    return getSize<true>(dstType, lenLow, offsLow, lenHigh, offsHigh, pSize);
}

VrxStatus N0(vrxsWTFwdInit_32f)(VrxsWtFwdState_32f* s, const Vrx32f* tl, int nl, int ol, const Vrx32f* th, int nh, int oh) { return init<false>(s, ObjId::WtFwd32f, tl, nl, ol, th, nh, oh); }
VrxStatus N0(vrxsWTFwdInit_8u32f)(VrxsWtFwdState_8u32f* s, const Vrx32f* tl, int nl, int ol, const Vrx32f* th, int nh, int oh) { return init<false>(s, ObjId::WtFwd8u32f, tl, nl, ol, th, nh, oh); }
VrxStatus N0(vrxsWTFwdInit_16u32f)(VrxsWtFwdState_16u32f* s, const Vrx32f* tl, int nl, int ol, const Vrx32f* th, int nh, int oh) { return init<false>(s, ObjId::WtFwd16u32f, tl, nl, ol, th, nh, oh); }
VrxStatus N0(vrxsWTFwdInit_16s32f)(VrxsWtFwdState_16s32f* s, const Vrx32f* tl, int nl, int ol, const Vrx32f* th, int nh, int oh) { return init<false>(s, ObjId::WtFwd16s32f, tl, nl, ol, th, nh, oh); }
VrxStatus N0(vrxsWTInvInit_32f)(VrxsWtInvState_32f* s, const Vrx32f* tl, int nl, int ol, const Vrx32f* th, int nh, int oh) { return init<true>(s, ObjId::WtInv32f, tl, nl, ol, th, nh, oh); }
VrxStatus N0(vrxsWTInvInit_32f8u)(VrxsWtInvState_32f8u* s, const Vrx32f* tl, int nl, int ol, const Vrx32f* th, int nh, int oh) { return init<true>(s, ObjId::WtInv32f8u, tl, nl, ol, th, nh, oh); }
VrxStatus N0(vrxsWTInvInit_32f16u)(VrxsWtInvState_32f16u* s, const Vrx32f* tl, int nl, int ol, const Vrx32f* th, int nh, int oh) { return init<true>(s, ObjId::WtInv32f16u, tl, nl, ol, th, nh, oh); }
VrxStatus N0(vrxsWTInvInit_32f16s)(VrxsWtInvState_32f16s* s, const Vrx32f* tl, int nl, int ol, const Vrx32f* th, int nh, int oh) { return init<true>(s, ObjId::WtInv32f16s, tl, nl, ol, th, nh, oh); }

VrxStatus N0(vrxsWTFwd_32f)(const Vrx32f* pSrc, Vrx32f* lo, Vrx32f* hi, int dstLen, VrxsWtFwdState_32f* s) { return fwdRun(pSrc, lo, hi, dstLen, s, ObjId::WtFwd32f); }
VrxStatus N0(vrxsWTFwd_8u32f)(const Vrx8u* pSrc, Vrx32f* lo, Vrx32f* hi, int dstLen, VrxsWtFwdState_8u32f* s) { return fwdRun(pSrc, lo, hi, dstLen, s, ObjId::WtFwd8u32f); }
VrxStatus N0(vrxsWTFwd_16u32f)(const Vrx16u* pSrc, Vrx32f* lo, Vrx32f* hi, int dstLen, VrxsWtFwdState_16u32f* s) { return fwdRun(pSrc, lo, hi, dstLen, s, ObjId::WtFwd16u32f); }
VrxStatus N0(vrxsWTFwd_16s32f)(const Vrx16s* pSrc, Vrx32f* lo, Vrx32f* hi, int dstLen, VrxsWtFwdState_16s32f* s) { return fwdRun(pSrc, lo, hi, dstLen, s, ObjId::WtFwd16s32f); }
VrxStatus N0(vrxsWTInv_32f)(const Vrx32f* lo, const Vrx32f* hi, int srcLen, Vrx32f* pDst, VrxsWtInvState_32f* s) { return invRun(lo, hi, srcLen, pDst, s, ObjId::WtInv32f); }
VrxStatus N0(vrxsWTInv_32f8u)(const Vrx32f* lo, const Vrx32f* hi, int srcLen, Vrx8u* pDst, VrxsWtInvState_32f8u* s) { return invRun(lo, hi, srcLen, pDst, s, ObjId::WtInv32f8u); }
VrxStatus N0(vrxsWTInv_32f16u)(const Vrx32f* lo, const Vrx32f* hi, int srcLen, Vrx16u* pDst, VrxsWtInvState_32f16u* s) { return invRun(lo, hi, srcLen, pDst, s, ObjId::WtInv32f16u); }
VrxStatus N0(vrxsWTInv_32f16s)(const Vrx32f* lo, const Vrx32f* hi, int srcLen, Vrx16s* pDst, VrxsWtInvState_32f16s* s) { return invRun(lo, hi, srcLen, pDst, s, ObjId::WtInv32f16s); }

VrxStatus N0(vrxsWTFwdSetDlyLine_32f)(VrxsWtFwdState_32f* s, const Vrx32f* dl, const Vrx32f* dh) { return setDly(s, ObjId::WtFwd32f, dl, dh); }
VrxStatus N0(vrxsWTFwdSetDlyLine_8u32f)(VrxsWtFwdState_8u32f* s, const Vrx32f* dl, const Vrx32f* dh) { return setDly(s, ObjId::WtFwd8u32f, dl, dh); }
VrxStatus N0(vrxsWTFwdSetDlyLine_16u32f)(VrxsWtFwdState_16u32f* s, const Vrx32f* dl, const Vrx32f* dh) { return setDly(s, ObjId::WtFwd16u32f, dl, dh); }
VrxStatus N0(vrxsWTFwdSetDlyLine_16s32f)(VrxsWtFwdState_16s32f* s, const Vrx32f* dl, const Vrx32f* dh) { return setDly(s, ObjId::WtFwd16s32f, dl, dh); }
VrxStatus N0(vrxsWTInvSetDlyLine_32f)(VrxsWtInvState_32f* s, const Vrx32f* dl, const Vrx32f* dh) { return setDly(s, ObjId::WtInv32f, dl, dh); }
VrxStatus N0(vrxsWTInvSetDlyLine_32f8u)(VrxsWtInvState_32f8u* s, const Vrx32f* dl, const Vrx32f* dh) { return setDly(s, ObjId::WtInv32f8u, dl, dh); }
VrxStatus N0(vrxsWTInvSetDlyLine_32f16u)(VrxsWtInvState_32f16u* s, const Vrx32f* dl, const Vrx32f* dh) { return setDly(s, ObjId::WtInv32f16u, dl, dh); }
VrxStatus N0(vrxsWTInvSetDlyLine_32f16s)(VrxsWtInvState_32f16s* s, const Vrx32f* dl, const Vrx32f* dh) { return setDly(s, ObjId::WtInv32f16s, dl, dh); }

VrxStatus N0(vrxsWTFwdGetDlyLine_32f)(const VrxsWtFwdState_32f* s, Vrx32f* dl, Vrx32f* dh) { return getDly(s, ObjId::WtFwd32f, dl, dh); }
VrxStatus N0(vrxsWTFwdGetDlyLine_8u32f)(const VrxsWtFwdState_8u32f* s, Vrx32f* dl, Vrx32f* dh) { return getDly(s, ObjId::WtFwd8u32f, dl, dh); }
VrxStatus N0(vrxsWTFwdGetDlyLine_16u32f)(const VrxsWtFwdState_16u32f* s, Vrx32f* dl, Vrx32f* dh) { return getDly(s, ObjId::WtFwd16u32f, dl, dh); }
VrxStatus N0(vrxsWTFwdGetDlyLine_16s32f)(const VrxsWtFwdState_16s32f* s, Vrx32f* dl, Vrx32f* dh) { return getDly(s, ObjId::WtFwd16s32f, dl, dh); }
VrxStatus N0(vrxsWTInvGetDlyLine_32f)(const VrxsWtInvState_32f* s, Vrx32f* dl, Vrx32f* dh) { return getDly(s, ObjId::WtInv32f, dl, dh); }
VrxStatus N0(vrxsWTInvGetDlyLine_32f8u)(const VrxsWtInvState_32f8u* s, Vrx32f* dl, Vrx32f* dh) { return getDly(s, ObjId::WtInv32f8u, dl, dh); }
VrxStatus N0(vrxsWTInvGetDlyLine_32f16u)(const VrxsWtInvState_32f16u* s, Vrx32f* dl, Vrx32f* dh) { return getDly(s, ObjId::WtInv32f16u, dl, dh); }
VrxStatus N0(vrxsWTInvGetDlyLine_32f16s)(const VrxsWtInvState_32f16s* s, Vrx32f* dl, Vrx32f* dh) { return getDly(s, ObjId::WtInv32f16s, dl, dh); }
