// Wavelet transforms: the state records and the polyphase kernel that both
// directions run.
//
// Forward band, taps h[0..T), offset o:   y[n] = sum_k h[k] * x[2n - o - k]
// (offset -1 reads x[2n + 1 - k], the odd phase). Inverse band, taps g:
// the band is delayed by o/2 samples and upsampled by two, and
// out[2n] = sum_j g[2j] * u[n - j], out[2n + 1] = sum_j g[2j + 1] * u[n - j];
// offset -1 delays the output by one sample instead (out[2n] takes the odd
// taps over u[n - 1 - j], out[2n + 1] the even taps over u[n - j]).
//
// Every output is four chains of fused multiply-adds from zero in tap
// order, joined in one fixed order, so the ring path (head of a block) and the direct path
// (body) give the same bits, whatever the split of a signal into blocks.
#pragma once

#include "vrx_base.h"
#include "simd/simd.h"


namespace n0::wt {

// ------------------------------------------------------------- records
// A ring of `length` samples held twice (data[i] == data[i + length]): the
// newest `length` samples are data[pos .. pos + length), oldest first, so
// filters read them with no wrap test. pos is the next write.
struct Ring {
    float* data;
    int32_t length;
    int32_t pos;
};

struct Filter {
    float* kernel;     // forward: the taps; inverse: the even set, then the odd set
    Ring* line;        // the filter's ring
    int32_t taps;
    float* reversed;   // the taps, last first
    int32_t oddPhase;  // 1 for offset -1
};

struct Band {
    Filter* filter;
    Ring* offsetLine;  // null when the offset line is empty
    int32_t delayLen;  // samples of history the caller sees through Get/Set
};

// Band record and filter record, carved together: 64 bytes of records.
struct BandRecords {
    Band band;
    Filter filter;
};
static_assert(sizeof(BandRecords) == 64, "band records are 64 bytes");

struct State {
    int32_t idWord;
    Band* lowBand;
    Band* highBand;
    float* convBuf;     // typed forms: 4096 bytes, 1024 samples
    int32_t convCount;  // 0 exactly when convBuf is null
};
static_assert(sizeof(State) <= 48, "state header within 48 bytes");

constexpr int kConvCount = 1024;  // samples of convBuf

// -------------------------------------------------------- scalar steps
// One output: the sum of c[k] at(k), k < n, in four fused chains, tap k in
// chain k mod 4 in tap order, joined as (chain 0 + chain 1) +
// (chain 2 + chain 3). The lane computation of the vector kernel, so every
// path gives the same bits.
template <class At>
VRX_INLINE float dot(const float* c, int n, At at) {
    float a0 = 0.0f, a1 = 0.0f, a2 = 0.0f, a3 = 0.0f;
    int k = 0;
    for (; k + 3 < n; k += 4) {
        a0 = __builtin_fmaf(c[k], at(k), a0);
        a1 = __builtin_fmaf(c[k + 1], at(k + 1), a1);
        a2 = __builtin_fmaf(c[k + 2], at(k + 2), a2);
        a3 = __builtin_fmaf(c[k + 3], at(k + 3), a3);
    }
    if (k < n) a0 = __builtin_fmaf(c[k], at(k), a0);
    if (k + 1 < n) a1 = __builtin_fmaf(c[k + 1], at(k + 1), a1);
    if (k + 2 < n) a2 = __builtin_fmaf(c[k + 2], at(k + 2), a2);
    return (a0 + a1) + (a2 + a3);
}

// The window ending at wEnd (wEnd[0] newest): tap k takes wEnd[-k].
VRX_INLINE float dotNewest(const float* c, const float* wEnd, int n) {
    return dot(c, n, [wEnd](int k) { return wEnd[-k]; });
}

// Writes s into a ring (both copies) and steps pos.
VRX_INLINE void push(Ring& r, float s) {
    r.data[r.pos] = s;
    r.data[r.pos + r.length] = s;
    r.pos = r.pos + 1 == r.length ? 0 : r.pos + 1;
}

// Sends s through an offset line: the oldest sample comes out.
VRX_INLINE float through(Ring& r, float s) {
    float out = r.data[r.pos];
    push(r, s);
    return out;
}

// The newest sample of a ring.
VRX_INLINE const float* newest(const Ring& r) { return r.data + r.pos + r.length - 1; }

// ------------------------------------------------------ sample loaders
// Where the kernel finds the samples under its taps. pair(k, u, x0, x1)
// gives the 16 samples under taps k and k + 1 (k even) for the outputs of
// register u, last(k, u) those under tap k alone; at(j) moves to output j
// and dot(c, n) is output 0 done by the scalar step.
using F = simd::V<float>;

// Forward from the source, output j newest at s[2j]: the 32 samples under a
// pair of taps are split into even and odd samples, one split serving both.
struct Down2 {
    const float* s;
    VRX_INLINE void pair(int k, int u, F::R& x0, F::R& x1) const {
        const float* b = s + 32 * u - k - 1;  // evens: tap k + 1, odds: tap k
        simd::deinterleave(F::load(b), F::load(b + 16), x1, x0);
    }
    VRX_INLINE F::R last(int k, int u) const {
        // the even samples from s - k; the 32nd sample is not needed and not read
        const float* b = s + 32 * u - k;
        F::R ev, od;
        simd::deinterleave(F::load(b), F::loadm(0x7FFF, b + 16), ev, od);
        return ev;
    }
    VRX_INLINE Down2 at(int j) const { return {s + 2 * j}; }
    VRX_INLINE float dot(const float* c, int n) const { return dotNewest(c, s, n); }
};

// One sample per output, output j newest at s[j] (the inverse band).
struct Line {
    const float* s;
    VRX_INLINE void pair(int k, int u, F::R& x0, F::R& x1) const {
        x0 = F::load(s + 16 * u - k);
        x1 = F::load(s + 16 * u - k - 1);
    }
    VRX_INLINE F::R last(int k, int u) const { return F::load(s + 16 * u - k); }
    VRX_INLINE Line at(int j) const { return {s + j}; }
    VRX_INLINE float dot(const float* c, int n) const { return dotNewest(c, s, n); }
};

// The forward band from a source already split into two arrays: tap k
// (even) of output j reads a[j - k/2], tap k + 1 reads b[j - k/2]. No
// shuffle in the loop.
struct Split {
    const float* a;
    const float* b;
    VRX_INLINE void pair(int k, int u, F::R& x0, F::R& x1) const {
        x0 = F::load(a + 16 * u - k / 2);
        x1 = F::load(b + 16 * u - k / 2);
    }
    VRX_INLINE F::R last(int k, int u) const { return F::load(a + 16 * u - k / 2); }
    VRX_INLINE Split at(int j) const { return {a + j, b + j}; }
    VRX_INLINE float dot(const float* c, int n) const {
        const float* pa = a;
        const float* pb = b;
        return wt::dot(c, n, [pa, pb](int k) { return (k & 1) ? pb[-(k >> 1)] : pa[-(k >> 1)]; });
    }
};

// ------------------------------------------------------ vector kernel
// Taps k and k + 1 into chains Ch and Ch + 1 of the U registers.
template <int U, int Ch, class Ld>
VRX_INLINE void tapPair(const Ld& ld, const float* c, int k, F::R (&a)[U][4]) {
    const F::R c0 = F::set1(c[k]), c1 = F::set1(c[k + 1]);
    for (int u = 0; u < U; ++u) {
        F::R x0, x1;
        ld.pair(k, u, x0, x1);
        a[u][Ch] = F::fma(c0, x0, a[u][Ch]);
        a[u][Ch + 1] = F::fma(c1, x1, a[u][Ch + 1]);
    }
}

// The last tap k of an odd count into chain Ch.
template <int U, int Ch, class Ld>
VRX_INLINE void tapLast(const Ld& ld, const float* c, int k, F::R (&a)[U][4]) {
    const F::R c0 = F::set1(c[k]);
    for (int u = 0; u < U; ++u) a[u][Ch] = F::fma(c0, ld.last(k, u), a[u][Ch]);
}

// U registers of 16 outputs each: lane j of acc[u] is output 16u + j,
// sum_{k<n} c[k] * (sample under tap k) in the chains of dot().
template <int U, class Ld>
VRX_INLINE void polyphase(const Ld& ld, const float* c, int n, F::R (&acc)[U]) {
    F::R a[U][4];
    for (int u = 0; u < U; ++u) a[u][0] = a[u][1] = a[u][2] = a[u][3] = F::zero();
    int k = 0;
    for (; k + 3 < n; k += 4) {
        tapPair<U, 0>(ld, c, k, a);
        tapPair<U, 2>(ld, c, k + 2, a);
    }
    if (k + 1 < n) {
        tapPair<U, 0>(ld, c, k, a);
        k += 2;
    }
    if (k < n) {  // chain k mod 4
        if (k & 2) tapLast<U, 2>(ld, c, k, a);
        else tapLast<U, 0>(ld, c, k, a);
    }
    for (int u = 0; u < U; ++u) acc[u] = F::add(F::add(a[u][0], a[u][1]), F::add(a[u][2], a[u][3]));
}

// Forward body: out[j], j < m, output j of the loader (ownsConvDown2_32f).
template <class Ld>
VRX_INLINE void convDown2(Ld ld, const float* h, int taps, float* out, int m) {
    int j = 0;
    for (; j + 64 <= m; j += 64) {
        F::R a[4];
        polyphase<4>(ld.at(j), h, taps, a);
        for (int u = 0; u < 4; ++u) F::store(out + j + 16 * u, a[u]);
    }
    for (; j + 16 <= m; j += 16) {
        F::R a[1];
        polyphase<1>(ld.at(j), h, taps, a);
        F::store(out + j, a[0]);
    }
    for (; j < m; ++j) out[j] = ld.at(j).dot(h, taps);
}

// ------------------------------------------------------------- inverse
// One inverse band from pair j0 on: s the newest band sample of pair j0;
// A = even taps over s, B = odd taps over s - odd; a pair is (A, B), or
// (B, A) in the odd phase.
struct Up2 {
    const float* s;
    const float* ge;
    int ne;
    const float* go;
    int no;
    int odd;

    VRX_INLINE void pair(int j, float& e, float& o) const {
        const float A = dotNewest(ge, s + j, ne), B = dotNewest(go, s + j - odd, no);
        e = odd ? B : A;
        o = odd ? A : B;
    }
    // pairs j .. j + 16U - 1 as 32U interleaved outputs, lo[u] and hi[u]
    // the two halves of register u's 32
    template <int U>
    VRX_INLINE void block(int j, F::R (&lo)[U], F::R (&hi)[U]) const {
        F::R a[U], b[U];
        polyphase<U>(Line{s + j}, ge, ne, a);
        polyphase<U>(Line{s + j - odd}, go, no, b);
        for (int u = 0; u < U; ++u) {
            if (odd) simd::interleave(b[u], a[u], lo[u], hi[u]);
            else simd::interleave(a[u], b[u], lo[u], hi[u]);
        }
    }
};

// One output pair of a band written (or added) at out[0..1].
template <bool Add>
VRX_INLINE void up2Pair(const Up2& b, int j, float* out) {
    float e, o;
    b.pair(j, e, o);
    if constexpr (Add) {
        out[0] = out[0] + e;
        out[1] = out[1] + o;
    } else {
        out[0] = e;
        out[1] = o;
    }
}

// One band's pairs j0 .. j1 - 1 written or added to out (pair j at
// out[2 (j - j0)]): ownsUp2ConvAdd_32f and its writing twin.
template <bool Add>
VRX_INLINE void up2Conv(const Up2& b, int j0, int j1, float* out) {
    int j = j0;
    auto put = [&](F::R v, float* d) {
        if constexpr (Add) v = F::add(F::load(d), v);
        F::store(d, v);
    };
    for (; j + 32 <= j1; j += 32) {
        F::R lo[2], hi[2];
        b.block<2>(j, lo, hi);
        float* d = out + 2 * (j - j0);
        put(lo[0], d), put(hi[0], d + 16), put(lo[1], d + 32), put(hi[1], d + 48);
    }
    for (; j + 16 <= j1; j += 16) {
        F::R lo[1], hi[1];
        b.block<1>(j, lo, hi);
        float* d = out + 2 * (j - j0);
        put(lo[0], d), put(hi[0], d + 16);
    }
    for (; j < j1; ++j) up2Pair<Add>(b, j, out + 2 * (j - j0));
}

// Both bands' pairs j0 .. j1 - 1 added in registers (low first) and stored
// once through the sink: sink.put(i, v) stores 16 outputs from output i on,
// sink.putn(i, t, n) the n outputs t[0..n) (pair j is output 2 (j - j0)).
template <int U, class Sink>
VRX_INLINE void up2BothBlock(const Up2& l, const Up2& h, int j, int i, Sink& sink) {
    F::R a[U], b[U], c[U], d[U];
    l.block<U>(j, a, b);
    h.block<U>(j, c, d);
    for (int u = 0; u < U; ++u) {
        sink.put(i + 32 * u, F::add(a[u], c[u]));
        sink.put(i + 32 * u + 16, F::add(b[u], d[u]));
    }
}
template <class Sink>
VRX_INLINE void up2Both(const Up2& l, const Up2& h, int j0, int j1, Sink& sink) {
    int j = j0;
    for (; j + 32 <= j1; j += 32) up2BothBlock<2>(l, h, j, 2 * (j - j0), sink);
    for (; j + 16 <= j1; j += 16) up2BothBlock<1>(l, h, j, 2 * (j - j0), sink);
    if (j < j1) {
        float t[32];
        const int rest = j1 - j;
        for (int q = 0; q < rest; ++q) {
            float le, lo, he, ho;
            l.pair(j + q, le, lo);
            h.pair(j + q, he, ho);
            t[2 * q] = le + he;
            t[2 * q + 1] = lo + ho;
        }
        sink.putn(2 * (j - j0), t, 2 * rest);
    }
}

}  // namespace n0::wt
