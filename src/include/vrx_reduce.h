// Reduction drivers of the statistics family: the accumulator policies and
// fold orders that sums, deviations, norms and dot products share, and the
// rules that turn an exact or a double total into a scaled integer.
//
// Two kinds of loop live here:
// - sweep(): lane-free accumulation in U independent registers; only the
//   accumulator width is fixed, so the lane layout is the loop's business.
// - The blocked single-precision paths (FastSum4, FastSumSq2): their fold
//   order is part of the result and is written out step by step.
#pragma once

#include "simd/simd.h"
#include "vrx_fpu.h"
#include "vrx_scale.h"

#include <limits>
#include <utility>

namespace n0::red {

using F = simd::V<float>;
using D = simd::V<double>;

template <int K> using Idx = std::integral_constant<int, K>;

// f(Idx<0>), f(Idx<1>), ..., f(Idx<U-1>): accumulator arrays indexed by k
// stay in registers.
template <int U, class Fn>
VRX_INLINE void unroll(Fn&& f) {
    [&]<int... K>(std::integer_sequence<int, K...>) { (f(Idx<K>{}), ...); }(std::make_integer_sequence<int, U>{});
}

// body(k, i, n) over `count` items in steps of `step`: rounds of U full
// steps into accumulators k = 0..U-1, then single full steps and a last
// partial step of n < step items into accumulator 0.
template <int U, size_t step, class Body>
VRX_INLINE void sweep(size_t count, Body&& body) {
    size_t i = 0;
    for (; i + U * step <= count; i += U * step) unroll<U>([&](auto k) { body(k, i + k * step, step); });
    for (; i + step <= count; i += step) body(Idx<0>{}, i, step);
    if (i < count) body(Idx<0>{}, i, count - i);
}

// acc[0] + acc[1] + ... as a balanced tree.
template <int U, class R, class Add>
VRX_INLINE R combine(R* acc, Add add) {
    if constexpr (U == 1) return acc[0];
    else if constexpr (U == 2) return add(acc[0], acc[1]);
    else if constexpr (U == 4) return add(add(acc[0], acc[1]), add(acc[2], acc[3]));
    else return add(combine<U / 2>(acc, add), combine<U / 2>(acc + U / 2, add));
}

// Calls fn(start, len) for consecutive blocks of at most B items.
template <class Fn>
VRX_INLINE void inBlocks(size_t count, size_t B, Fn&& fn) {
    for (size_t i = 0; i < count; i += B) fn(i, count - i < B ? count - i : B);
}

// ------------------------------------------------ blocked single precision
// Values before the first 32-byte boundary of p, at most count.
VRX_INLINE size_t headTo32(const float* p, size_t count) {
    size_t h = ((32 - (addr(p) & 31)) & 31) / sizeof(float);
    return h < count ? h : count;
}

constexpr size_t kFastBlock = 8192;

// The body of the Fast sum: p is 32-byte aligned. Blocks of 8192 values:
// four accumulators of eight single lanes, value i of the block into
// accumulator (i / 8) mod 4, lane i mod 8 (registers a01 = A0|A1 and
// a23 = A2|A3). The rest (under 8192) in the same accumulators, zeroed:
// whole groups of 32, then 16 values into A0|A1, 8 into A0, 4, 2 and 1
// into the low lanes of A0. Each block and the rest are folded as
// (A0 + A2) + (A1 + A3), low and high four lanes widened and added, added to d.
VRX_INLINE simd::Total4 fastSum4(const float* p, size_t m, simd::Total4 d) {
    for (; m >= kFastBlock; m -= kFastBlock) {
        F::R a01 = F::zero(), a23 = F::zero();
        for (size_t r = 0; r < kFastBlock; r += 32, p += 32) {
            a01 = F::add(a01, F::load(p));
            a23 = F::add(a23, F::load(p + 16));
        }
        d = simd::foldToTotal4(F::add(a01, a23), d);
    }
    if (m == 0) return d;
    F::R a01 = F::zero(), a23 = F::zero();
    for (; m >= 32; m -= 32, p += 32) {
        a01 = F::add(a01, F::load(p));
        a23 = F::add(a23, F::load(p + 16));
    }
    for (size_t piece = 16; piece >= 1; piece /= 2) {
        if (m & piece) {
            const F::M k = simd::tail<float>(piece);
            a01 = F::addm(a01, k, a01, F::loadm(k, p));
            p += piece;
        }
    }
    return simd::foldToTotal4(F::add(a01, a23), d);
}

// The body of the Fast deviation: p is 32-byte aligned. Two accumulators
// of eight single lanes for the sum (s01) and two for the sum of squares
// (q01, fused multiply-add), value i of a block into accumulator
// (i / 8) mod 2, lane i mod 8. Blocks of 8192, then the rest in groups of
// 16 and pieces of 8, 4, 2, 1 into the low lanes of accumulator 0; each
// folded as A0 + A1, low and high four lanes widened and added.
VRX_INLINE void fastSumSq2(const float* p, size_t m, simd::Total4& dS, simd::Total4& dQ) {
    for (; m >= kFastBlock; m -= kFastBlock) {
        F::R s = F::zero(), q = F::zero();
        for (size_t r = 0; r < kFastBlock; r += 16, p += 16) {
            F::R x = F::load(p);
            s = F::add(s, x);
            q = F::fma(x, x, q);
        }
        dS = simd::foldToTotal4(s, dS);
        dQ = simd::foldToTotal4(q, dQ);
    }
    if (m == 0) return;
    F::R s = F::zero(), q = F::zero();
    for (; m >= 16; m -= 16, p += 16) {
        F::R x = F::load(p);
        s = F::add(s, x);
        q = F::fma(x, x, q);
    }
    for (size_t piece = 8; piece >= 1; piece /= 2) {
        if (m & piece) {
            const F::M k = simd::tail<float>(piece);
            F::R x = F::loadm(k, p);
            s = F::addm(s, k, s, x);
            q = F::fmam(k, x, x, q);
            p += piece;
        }
    }
    dS = simd::foldToTotal4(s, dS);
    dQ = simd::foldToTotal4(q, dQ);
}

// (d0 + d1) + (d2 + d3)
VRX_INLINE double total4Sum(simd::Total4 t) {
    alignas(32) double d[4];
    simd::storeTotal4(d, t);
    return (d[0] + d[1]) + (d[2] + d[3]);
}

// ------------------------------------------------------- lane-free sums
// Single-precision values at p widened to double and added: S and, when
// wanted, Q (the squares, by fused multiply-add when Fused, else formed
// and added separately). Returns the 8-lane double registers; a source
// starting on an even value keeps real parts in even lanes.
template <bool WantQ, bool Fused>
VRX_INLINE void sumWidened(const float* p, size_t count, D::R& S, D::R& Q) {
    constexpr int U = 4;
    D::R s[U], q[U];
    unroll<U>([&](auto k) { s[k] = D::zero(); q[k] = D::zero(); });
    sweep<U, 8>(count, [&](auto k, size_t i, size_t n) {
        const D::R x = simd::floatsToDouble(p + i, n);
        s[k] = D::add(s[k], x);
        if constexpr (WantQ) {
            if constexpr (Fused) q[k] = D::fma(x, x, q[k]);
            else q[k] = D::add(q[k], D::mul(x, x));
        }
    });
    S = combine<U>(s, D::add);
    if constexpr (WantQ) Q = combine<U>(q, D::add);
}

// Doubles at p added (and their squares, formed and added separately).
template <bool WantQ>
VRX_INLINE void sumDouble(const double* p, size_t count, D::R& S, D::R& Q) {
    constexpr int U = 4;
    D::R s[U], q[U];
    unroll<U>([&](auto k) { s[k] = D::zero(); q[k] = D::zero(); });
    sweep<U, 8>(count, [&](auto k, size_t i, size_t n) {
        D::R x = n == 8 ? D::load(p + i) : D::loadm(simd::tail<double>(n), p + i);
        s[k] = D::add(s[k], x);
        if constexpr (WantQ) q[k] = D::add(q[k], D::mul(x, x));
    });
    S = combine<U>(s, D::add);
    if constexpr (WantQ) Q = combine<U>(q, D::add);
}

// --------------------------------------------------- exact integer sums
using I32 = simd::V<int32_t>;
using I64 = simd::V<int64_t>;
using U64 = simd::V<uint64_t>;

// The eight 64-bit lanes of a register summed (wrapping, exact in range).
VRX_INLINE int64_t lanes64Sum(I64::R a) {
    alignas(64) int64_t l[8];
    I64::store(l, a);
    return ((l[0] + l[1]) + (l[2] + l[3])) + ((l[4] + l[5]) + (l[6] + l[7]));
}
// Sums of the even and of the odd 64-bit lanes.
VRX_INLINE void lanes64Sum2(I64::R a, int64_t* even, int64_t* odd) {
    alignas(64) int64_t l[8];
    I64::store(l, a);
    *even = (l[0] + l[2]) + (l[4] + l[6]);
    *odd = (l[1] + l[3]) + (l[5] + l[7]);
}
// 32-bit lanes folded into 64-bit lanes: even-numbered lanes of a land in
// the even lanes of the result, so real and imaginary parts stay apart.
VRX_INLINE I64::R fold32to64(I64::R acc, I32::R a) {
    return I64::add(acc, I64::add(simd::lowTo64s(a), simd::highTo64s(a)));
}

// Exact sum of count 16-bit values at p: the even-indexed and the
// odd-indexed values apart (real and imaginary parts of 16sc). Blocks of
// 65536 values in 32-bit lanes (each lane gathers at most 2^12 of them),
// folded into 64-bit lanes.
VRX_INLINE void sum16s(const int16_t* p, size_t count, int64_t* even, int64_t* odd) {
    constexpr int U = 4;
    I64::R tot = I64::zero();
    inBlocks(count, 65536, [&](size_t b, size_t len) {
        I32::R a[U];
        unroll<U>([&](auto k) { a[k] = I32::zero(); });
        sweep<U, 16>(len, [&](auto k, size_t i, size_t n) { a[k] = I32::add(a[k], simd::widen16sPart(p + b + i, n)); });
        tot = fold32to64(tot, combine<U>(a, I32::add));
    });
    lanes64Sum2(tot, even, odd);
}

// Exact total of count 16-bit values through AVX2 pair sums: pairs(i, n)
// gives the n <= 16 values at offset i (n below 16 only in a last group)
// summed in adjacent pairs as eight 32-bit lanes; rounds of four groups go
// into four named registers (a lane gathers some 2^10 pairs of a
// 65536-value block, far from overflow), and the lanes are widened into 64
// bits once per block.
template <class Pairs>
VRX_INLINE int64_t pairBlocks16s(size_t count, Pairs pairs) {
    I64::R tot = I64::zero();
    size_t i = 0;
    while (i < count) {
        const size_t end = count - i > 65536 ? i + 65536 : count;
        __m256i a0 = simd::zero256i(), a1 = a0, a2 = a0, a3 = a0;
        for (; i + 64 <= end; i += 64) {
            a0 = simd::add8x32(a0, pairs(i, 16));
            a1 = simd::add8x32(a1, pairs(i + 16, 16));
            a2 = simd::add8x32(a2, pairs(i + 32, 16));
            a3 = simd::add8x32(a3, pairs(i + 48, 16));
        }
        for (; i < end; i += 16) a0 = simd::add8x32(a0, pairs(i, end - i < 16 ? end - i : 16));
        using simd::add8x32;
        tot = I64::add(tot, simd::widen8x32sTo64(add8x32(add8x32(a0, a1), add8x32(a2, a3))));
    }
    return lanes64Sum(tot);
}

// The same with step(q) giving the pair sums of sixteen values at q: a
// last partial group of 16 goes through a zeroed copy.
template <class Step>
VRX_INLINE int64_t pairTotal16s(const int16_t* p, size_t count, Step step) {
    return pairBlocks16s(count, [&](size_t i, size_t n) {
        if (n == 16) return step(p + i);
        alignas(32) int16_t t[16] = {};
        __builtin_memcpy(t, p + i, n * sizeof(int16_t));
        return step(t);
    });
}

// Exact sum of count 16-bit values (even and odd positions together).
VRX_INLINE int64_t sum16sAll(const int16_t* p, size_t count) {
    return pairTotal16s(p, count, [](const int16_t* q) { return simd::addPairSums16s(simd::zero256i(), q); });
}

// Exact 64-bit sum of count 32-bit values without widening each value:
// per 32-bit lane, H sums the high halves x >> 16 (signed) and W the
// values themselves, wrapping. The low halves' sum L = W - (H << 16)
// modulo 2^32 is exact while it stays below 2^32, so blocks of at most
// 65535 values a lane are folded as (H << 16) + L into 64-bit lanes.
VRX_INLINE int64_t sum32s(const int32_t* p, size_t count) {
    constexpr int U = 2;
    constexpr size_t kBlock = 65535 * 16 * U;
    I64::R tot = I64::zero();
    size_t i = 0;
    while (i + U * 16 <= count) {
        I32::R h[U], w[U];
        unroll<U>([&](auto k) { h[k] = I32::zero(); w[k] = I32::zero(); });
        const size_t end = count - i > kBlock ? i + kBlock : count;
        for (; i + U * 16 <= end; i += U * 16) {
            unroll<U>([&](auto k) {
                const I32::R x = I32::load(p + i + 16 * k);
                h[k] = I32::add(h[k], I32::shr<16>(x));
                w[k] = I32::add(w[k], x);
            });
        }
        unroll<U>([&](auto k) {
            const I32::R l = I32::sub(w[k], I32::shl<16>(h[k]));
            const I64::R hl = I64::shl<16>(simd::lowTo64s(h[k])), hh = I64::shl<16>(simd::highTo64s(h[k]));
            tot = I64::add(tot, I64::add(I64::add(hl, simd::lowTo64u(l)), I64::add(hh, simd::highTo64u(l))));
        });
    }
    for (; i < count; i += 8) tot = I64::add(tot, simd::widen32sTo64Part(p + i, count - i < 8 ? count - i : 8));
    return lanes64Sum(tot);
}

// Exact sum of squares of 16-bit values (and, when WantS, their exact sum)
// in one pass. Pair sums of squares, each up to 2^31 and read as unsigned
// (so two values of -32768 give 2^31), go into 32-bit lanes as high halves
// (h) and wrapping totals (w); pair sums of the values into s. Rounds of
// 64 values feed four registers of each, added together at the end of a
// block of 65536 values (a lane then holds at most 2^12 pairs, so the sum
// of low halves, w - (h << 16), stays below 2^32) and folded into 64-bit
// lanes. The rest of a block goes by 16s into the first registers, a last
// partial 16 through a zeroed copy. The accumulators are named variables:
// in arrays indexed inside lambdas the compiler copied each one between
// registers at every step.
template <bool WantS>
VRX_INLINE uint64_t sumSqExact16s(const int16_t* p, size_t count, int64_t* S) {
    using NS = simd::VNarrow<int16_t>;
    U64::R tot = U64::zero();
    I64::R s64 = I64::zero();
    size_t i = 0;
    while (i < count) {
        const size_t end = count - i > 65536 ? i + 65536 : count;
        __m256i h0 = simd::zero256i(), h1 = h0, h2 = h0, h3 = h0, w0 = h0, w1 = h0, w2 = h0, w3 = h0, s0 = h0, s1 = h0;
        if constexpr (WantS) {
            for (; i + 32 <= end; i += 32) {
                const __m256i x0 = NS::load(p + i), x1 = NS::load(p + i + 16);
                simd::pairSquaresSplitInPlace16s(x0, h0, w0);
                simd::addPairSumsInPlace16s(s0, x0);
                simd::pairSquaresSplitInPlace16s(x1, h1, w1);
                simd::addPairSumsInPlace16s(s1, x1);
            }
        } else {
            for (; i + 64 <= end; i += 64) {
                const __m256i x0 = NS::load(p + i), x1 = NS::load(p + i + 16);
                const __m256i x2 = NS::load(p + i + 32), x3 = NS::load(p + i + 48);
                simd::pairSquaresSplitInPlace16s(x0, h0, w0);
                simd::pairSquaresSplitInPlace16s(x1, h1, w1);
                simd::pairSquaresSplitInPlace16s(x2, h2, w2);
                simd::pairSquaresSplitInPlace16s(x3, h3, w3);
            }
        }
        for (; i < end; i += 16) {
            const __m256i x = i + 16 <= end ? NS::load(p + i) : simd::load16x16sPart(p + i, end - i);
            simd::pairSquaresSplitInPlace16s(x, h0, w0);
            if constexpr (WantS) simd::addPairSumsInPlace16s(s0, x);
        }
        using simd::add8x32;
        tot = U64::add(tot, simd::foldSplit32u(add8x32(add8x32(h0, h1), add8x32(h2, h3)), add8x32(add8x32(w0, w1), add8x32(w2, w3))));
        if constexpr (WantS) s64 = I64::add(s64, simd::widen8x32sTo64(add8x32(s0, s1)));
    }
    if constexpr (WantS) *S = lanes64Sum(s64);
    return static_cast<uint64_t>(lanes64Sum(tot));
}

VRX_INLINE uint64_t sumSqPairs16s(const int16_t* p, size_t count) { return sumSqExact16s<false>(p, count, nullptr); }

VRX_INLINE void sumSq16s(const int16_t* p, size_t count, int64_t* S, uint64_t* Q) { *Q = sumSqExact16s<true>(p, count, S); }

// ------------------------------------------------------- scalar helpers
// Rounds with the caller's current MXCSR mode (round to nearest, ties to
// even, unless the caller chose otherwise).
VRX_INLINE int32_t cvtCurrent(double x) { return _mm_cvtsd_si32(_mm_set_sd(x)); }
// Truncates toward zero.
VRX_INLINE int32_t cvtTrunc(double x) { return _mm_cvttsd_si32(_mm_set_sd(x)); }

// Bounds with the compare-and-select of the hardware: a NaN x gives the bound.
VRX_INLINE double minHi(double x, double hi) { return x < hi ? x : hi; }
VRX_INLINE double maxLo(double x, double lo) { return x > lo ? x : lo; }
// max(x, 0) with a NaN x giving 0.
VRX_INLINE double posOrZero(double x) { return x > 0.0 ? x : 0.0; }

// 2^-sf built in the exponent field: the biased exponent is
// clamp(1023 - sf, 0, 2047), so sf >= 1023 gives 0.0 and sf <= -1024 +inf.
VRX_INLINE double pow2Neg(int sf) {
    int64_t e = 1023 - static_cast<int64_t>(sf);
    e = e < 0 ? 0 : (e > 2047 ? 2047 : e);
    return __builtin_bit_cast(double, static_cast<uint64_t>(e) << 52);
}

constexpr int32_t kI32Max = std::numeric_limits<int32_t>::max();
constexpr int32_t kI32Min = std::numeric_limits<int32_t>::min();
constexpr int64_t kI64Max = std::numeric_limits<int64_t>::max();

// -sf for sf < 0, limited to lim (no overflow at INT_MIN).
VRX_INLINE int negClamp(int sf, int lim) { return sf < -lim ? lim : -sf; }

// Rule A: a magnitude m (Inf norms) to 32 bits. Truncating shift for
// sf > 0 (0 beyond 31); for sf < 0 the shift is limited to 31 and saturates.
VRX_INLINE int32_t ruleA(uint32_t m, int sf) {
    if (sf == 0) return static_cast<int32_t>(m);
    if (sf > 0) return sf > 31 ? 0 : static_cast<int32_t>(m >> sf);
    uint64_t v = static_cast<uint64_t>(m) << negClamp(sf, 31);
    return v > static_cast<uint64_t>(kI32Max) ? kI32Max : static_cast<int32_t>(v);
}

// Rule B, short path (length up to 65536, the sum s in 32 unsigned bits).
// The sf 0 store takes the 32 bits as they stand: no saturation.
VRX_INLINE int32_t ruleBShort(uint32_t s, int sf) {
    if (sf == 0) return static_cast<int32_t>(s);
    if (sf > 0) return sf > 31 ? 0 : static_cast<int32_t>(s >> sf);
    uint64_t v = static_cast<uint64_t>(s) << negClamp(sf, 31);
    return v > static_cast<uint64_t>(kI32Max) ? kI32Max : static_cast<int32_t>(v);
}

// Rule B, long path (the 64-bit total t): shifts up to 63 right and up to
// 32 left; the sf 0 store again keeps the low 32 bits unsaturated.
VRX_INLINE int32_t ruleBLong(uint64_t t, int sf) {
    constexpr uint64_t hi = static_cast<uint64_t>(kI32Max);
    if (sf == 0) return static_cast<int32_t>(static_cast<uint32_t>(t));
    if (sf > 0) {
        if (sf > 63) return 0;
        uint64_t v = t >> sf;
        return v > hi ? kI32Max : static_cast<int32_t>(v);
    }
    if (t == 0) return 0;
    if (t > hi) return kI32Max;
    uint64_t v = t << negClamp(sf, 32);
    return v > hi ? kI32Max : static_cast<int32_t>(v);
}

// Rule C: a non-negative 64-bit value x. sf > 0 shifts right by sf mod 64
// (so sf 64 leaves x as it is); sf < 0 shifts left by up to 63 and
// saturates when the bit length would pass 63.
VRX_INLINE int64_t ruleC(int64_t x, int sf) {
    if (sf == 0) return x;
    if (sf > 0) return x >> (sf & 63);
    const int n = negClamp(sf, 63);
    const int L = x == 0 ? 0 : 64 - __builtin_clzll(static_cast<uint64_t>(x));
    return L + n > 63 ? kI64Max : static_cast<int64_t>(static_cast<uint64_t>(x) << n);
}

// Rule D: a double root r to 32 bits. The divisor (sf > 0) or multiplier
// (sf < 0) is the 32-bit integer 1 << (|sf| mod 32), so |sf| = 31 gives
// -2^31 and |sf| = 32 gives 1. Saturates, then truncates toward zero.
VRX_INLINE int32_t ruleD(double r, int sf) {
    if (sf != 0) {
        const unsigned mag = sf > 0 ? static_cast<unsigned>(sf) : 0u - static_cast<unsigned>(sf);
        const double d = static_cast<double>(static_cast<int32_t>(1u << (mag & 31)));
        r = sf > 0 ? r / d : r * d;
    }
    if (r > 2147483647.0) return kI32Max;
    if (r < -2147483648.0) return kI32Min;
    return cvtTrunc(r);
}

// Rule E: an exact 64-bit value v to 32 bits: ties to even for sf > 0
// (shift limited to 31), a saturating shift by up to 31 for sf < 0.
VRX_INLINE int32_t ruleE(int64_t v, int sf) {
    if (sf > 0) return saturate<int32_t>(roundShiftEven<int64_t>(v, sf > 31 ? 31 : sf));
    if (sf < 0) return shiftLeftSaturate<int32_t>(v, negClamp(sf, 31));
    return saturate<int32_t>(v);
}

// Rule F: a double total to 32 bits. sf limited to -31..93, 2^-sf built in
// the exponent field, saturation, then rounding to nearest, ties to even;
// the caller holds a RoundNearestGuard for the whole kernel.
VRX_INLINE int32_t ruleF(double d, int sf) {
    const int s = sf < -31 ? -31 : (sf > 93 ? 93 : sf);
    d *= __builtin_bit_cast(double, static_cast<uint64_t>(1023 - s) << 52);
    if (d > 2147483647.0) return kI32Max;
    if (d < -2147483648.0) return kI32Min;
    return cvtCurrent(d);
}

}  // namespace n0::red
