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
// One output from a window ending at wEnd (wEnd[0] newest): the sum of
// c[k] wEnd[-k], k < n, in four fused chains, tap k in chain k mod 4 in tap
// order, joined as (chain 0 + chain 1) + (chain 2 + chain 3). The lane
// computation of the vector kernel, so both paths give the same bits.
VRX_INLINE float dotNewest(const float* c, const float* wEnd, int n) {
    float a0 = 0.0f, a1 = 0.0f, a2 = 0.0f, a3 = 0.0f;
    int k = 0;
    for (; k + 3 < n; k += 4) {
        a0 = __builtin_fmaf(c[k], wEnd[-k], a0);
        a1 = __builtin_fmaf(c[k + 1], wEnd[-k - 1], a1);
        a2 = __builtin_fmaf(c[k + 2], wEnd[-k - 2], a2);
        a3 = __builtin_fmaf(c[k + 3], wEnd[-k - 3], a3);
    }
    if (k < n) a0 = __builtin_fmaf(c[k], wEnd[-k], a0);
    if (k + 1 < n) a1 = __builtin_fmaf(c[k + 1], wEnd[-k - 1], a1);
    if (k + 2 < n) a2 = __builtin_fmaf(c[k + 2], wEnd[-k - 2], a2);
    return (a0 + a1) + (a2 + a3);
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

// ------------------------------------------------------ vector kernel
using F = simd::V<float>;

// U registers of 16 outputs each: lane j of acc[u] is
// sum_{k<n} c[k] * s[Stride * (16u + j) - k] in the chains of dotNewest.
// Stride 2 (forward): the 32 samples under a pair of taps are split into
// even and odd samples, one split serving two taps. Stride 1 (inverse):
// one load per tap. Reads s[-(n - 1)] up to s[Stride * (16U - 1)].
// Taps k and k + 1 into chains Ch and Ch + 1 of the U registers.
template <int Stride, int U, int Ch>
VRX_INLINE void tapPair(const float* s, const float* c, int k, F::R (&a)[U][4]) {
    const F::R c0 = F::set1(c[k]), c1 = F::set1(c[k + 1]);
    for (int u = 0; u < U; ++u) {
        if constexpr (Stride == 2) {
            const float* b = s + 32 * u - k - 1;  // evens: tap k + 1, odds: tap k
            F::R ev, od;
            simd::deinterleave(F::load(b), F::load(b + 16), ev, od);
            a[u][Ch] = F::fma(c0, od, a[u][Ch]);
            a[u][Ch + 1] = F::fma(c1, ev, a[u][Ch + 1]);
        } else {
            a[u][Ch] = F::fma(c0, F::load(s + 16 * u - k), a[u][Ch]);
            a[u][Ch + 1] = F::fma(c1, F::load(s + 16 * u - k - 1), a[u][Ch + 1]);
        }
    }
}

// The last tap k of an odd count into chain Ch.
template <int Stride, int U, int Ch>
VRX_INLINE void tapLast(const float* s, const float* c, int k, F::R (&a)[U][4]) {
    const F::R c0 = F::set1(c[k]);
    for (int u = 0; u < U; ++u) {
        if constexpr (Stride == 2) {
            // the even samples from s - k; the 32nd sample is not needed and not read
            const float* b = s + 32 * u - k;
            F::R ev, od;
            simd::deinterleave(F::load(b), F::loadm(0x7FFF, b + 16), ev, od);
            a[u][Ch] = F::fma(c0, ev, a[u][Ch]);
        } else {
            a[u][Ch] = F::fma(c0, F::load(s + 16 * u - k), a[u][Ch]);
        }
    }
}

// U registers of 16 outputs each: lane j of acc[u] is
// sum_{k<n} c[k] * s[Stride * (16u + j) - k] in the chains of dotNewest.
// Stride 2 (forward): the 32 samples under a pair of taps are split into
// even and odd samples, one split serving two taps. Stride 1 (inverse):
// one load per tap. Reads s[-(n - 1)] up to s[Stride * (16U - 1)].
template <int Stride, int U>
VRX_INLINE void polyphase(const float* s, const float* c, int n, F::R (&acc)[U]) {
    F::R a[U][4];
    for (int u = 0; u < U; ++u) a[u][0] = a[u][1] = a[u][2] = a[u][3] = F::zero();
    int k = 0;
    for (; k + 3 < n; k += 4) {
        tapPair<Stride, U, 0>(s, c, k, a);
        tapPair<Stride, U, 2>(s, c, k + 2, a);
    }
    if (k + 1 < n) {
        tapPair<Stride, U, 0>(s, c, k, a);
        k += 2;
    }
    if (k < n) {  // chain k mod 4
        if (k & 2) tapLast<Stride, U, 2>(s, c, k, a);
        else tapLast<Stride, U, 0>(s, c, k, a);
    }
    for (int u = 0; u < U; ++u) acc[u] = F::add(F::add(a[u][0], a[u][1]), F::add(a[u][2], a[u][3]));
}

// Forward body: out[j] = sum_k h[k] s[2j - k] for j < m, s the newest
// sample of output 0 (ownsConvDown2_32f).
VRX_INLINE void convDown2(const float* s, const float* h, int taps, float* out, int m) {
    int j = 0;
    for (; j + 64 <= m; j += 64) {
        F::R a[4];
        polyphase<2, 4>(s + 2 * j, h, taps, a);
        for (int u = 0; u < 4; ++u) F::store(out + j + 16 * u, a[u]);
    }
    for (; j + 16 <= m; j += 16) {
        F::R a[1];
        polyphase<2, 1>(s + 2 * j, h, taps, a);
        F::store(out + j, a[0]);
    }
    for (; j < m; ++j) out[j] = dotNewest(h, s + 2 * j, taps);
}

// One inverse output pair from the band samples ending at w (w[0] newest):
// A = even taps over w, B = odd taps over w - odd; (A, B) or, in the odd
// phase, (B, A), written or added to out[0..1].
template <bool Add>
VRX_INLINE void up2Pair(const float* w, const float* ge, int ne, const float* go, int no, int odd, float* out) {
    const float A = dotNewest(ge, w, ne), B = dotNewest(go, w - odd, no);
    const float e = odd ? B : A, o = odd ? A : B;
    if constexpr (Add) {
        out[0] = out[0] + e;
        out[1] = out[1] + o;
    } else {
        out[0] = e;
        out[1] = o;
    }
}

// 16 U output pairs from band samples s (even taps) and so (odd taps).
template <bool Add, int U>
VRX_INLINE void up2Block(const float* s, const float* ge, int ne, const float* so, const float* go, int no, int odd,
                         float* out) {
    F::R a[U], b[U];
    polyphase<1, U>(s, ge, ne, a);
    polyphase<1, U>(so, go, no, b);
    for (int u = 0; u < U; ++u) {
        F::R lo, hi;
        if (odd) simd::interleave(b[u], a[u], lo, hi);
        else simd::interleave(a[u], b[u], lo, hi);
        float* d = out + 32 * u;
        if constexpr (Add) {
            lo = F::add(F::load(d), lo);
            hi = F::add(F::load(d + 16), hi);
        }
        F::store(d, lo);
        F::store(d + 16, hi);
    }
}

// Inverse body over m band samples, s the newest band sample of pair 0:
// A = even taps over s, B = odd taps over s - odd; output pair j is (A, B),
// or (B, A) in the odd phase; Add adds it to what out holds
// (ownsUp2ConvAdd_32f).
template <bool Add>
VRX_INLINE void up2Conv(const float* s, const float* ge, int ne, const float* go, int no, int odd, float* out,
                        int m) {
    const float* so = s - odd;
    int j = 0;
    for (; j + 32 <= m; j += 32) up2Block<Add, 2>(s + j, ge, ne, so + j, go, no, odd, out + 2 * j);
    for (; j + 16 <= m; j += 16) up2Block<Add, 1>(s + j, ge, ne, so + j, go, no, odd, out + 2 * j);
    for (; j < m; ++j) up2Pair<Add>(s + j, ge, ne, go, no, odd, out + 2 * j);
}

}  // namespace n0::wt
