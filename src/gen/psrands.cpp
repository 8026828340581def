// Random numbers: uniform and normal, from one 32-bit source, the sum of a
// subtract-with-borrow generator (modulo 2^32 - 18) and a congruential
// generator. The state sits at the caller's pointer with no alignment of
// its own; a call copies it in, runs, and copies it back, so a failed call
// leaves it as it was and unaligned fields cost nothing in the loops.
//
// The borrow chain is serial; the congruential word is not, and runs in
// sixteen jump-ahead lanes, so the uniform loop is a scalar chain of
// subtractive words into a small buffer followed by a vector pass (sum,
// conversion to double, one fused multiply-add, conversion to the type).
// The uniform chain guesses each borrow from the sign of its difference,
// and the vector pass finds the rare words where that can be wrong.
#include "vrx_base.h"
#include "vrx_layout.h"
#include "simd/simd.h"

#include <math.h>
#include <string.h>

using namespace n0;

namespace {

constexpr uint32_t kLcgMul = 69069u;        // 0x10DCD
constexpr uint32_t kLcgAdd = 0x3C6EF373u;
constexpr uint32_t kLcgInit = 0x436CBAE9u;
constexpr double kTwoM32 = 2.3283064365386963e-10;  // 2^-32
constexpr double kTwoM31 = 4.656612873077393e-10;   // 2^-31

// ----------------------------------------------------------------- states
// Fields in this order, naturally aligned relative to the state's start.
template <class T>
struct UniformState {
    int32_t id;
    uint32_t seed;
    T low;
    T high;
    double mid;    // (low + high) * 0.5
    double scale;  // (high - low) * 2^-32
    uint32_t lcg;
    int32_t a, b, c;  // subtractive words, newest first
    int32_t borrow;   // 0 or -1
};

template <class T>
struct GaussState {
    int32_t id;
    uint32_t seed;
    T mean;
    T stdDev;
    uint32_t lcg;
    int32_t a, b, c;
    int32_t borrow;
    int32_t empty;  // 1: no spare deviate held
    double factor;  // the held pair: polar factor and coordinates
    double second;
    double first;
};

// The one layout of a state: a single piece at the caller's pointer, with
// no alignment (byte alignment keeps the offsets fixed from any start).
template <class S>
constexpr S* stateLayout(Carver& c) { return c.take<S>(1, 1); }

template <class S>
constexpr int64_t stateBytes() {
    Carver c;
    stateLayout<S>(c);
    return c.size();
}

// The sizes that GetSize reports. The Gauss 32f and 64f figures are 8 bytes
// above the natural layout and are reported as they are.
constexpr int kUniformSize8u = 56, kUniformSize16s = 56, kUniformSize32f = 56, kUniformSize64f = 64;
constexpr int kGaussSize8u = 64, kGaussSize16s = 64, kGaussSize32f = 72, kGaussSize64f = 80;
static_assert(stateBytes<UniformState<Vrx8u>>() <= kUniformSize8u);
static_assert(stateBytes<UniformState<Vrx16s>>() <= kUniformSize16s);
static_assert(stateBytes<UniformState<Vrx32f>>() <= kUniformSize32f);
static_assert(stateBytes<UniformState<Vrx64f>>() <= kUniformSize64f);
static_assert(stateBytes<GaussState<Vrx8u>>() <= kGaussSize8u);
static_assert(stateBytes<GaussState<Vrx16s>>() <= kGaussSize16s);
static_assert(stateBytes<GaussState<Vrx32f>>() <= kGaussSize32f);
static_assert(stateBytes<GaussState<Vrx64f>>() <= kGaussSize64f);

VRX_INLINE VrxStatus putSize(int* pSize, int size) {
    if (!pSize) return vrxErrNullPtr;
    *pSize = size;
    return vrxOk;
}

// -------------------------------------------------------------- generator
struct Gen {
    uint32_t lcg, a, b, c, borrow;

    template <class S>
    VRX_INLINE void load(const S& s) {
        lcg = s.lcg;
        a = static_cast<uint32_t>(s.a);
        b = static_cast<uint32_t>(s.b);
        c = static_cast<uint32_t>(s.c);
        borrow = static_cast<uint32_t>(s.borrow);
    }
    template <class S>
    VRX_INLINE void save(S& s) const {
        s.lcg = lcg;
        s.a = static_cast<int32_t>(a);
        s.b = static_cast<int32_t>(b);
        s.c = static_cast<int32_t>(c);
        s.borrow = static_cast<int32_t>(borrow);
    }
    // The next subtractive word: v = b - c + borrow, borrow = -1 when v is
    // negative, and then 18 is taken off.
    VRX_INLINE uint32_t swb() {
        const uint32_t v = b - c + borrow;
        borrow = static_cast<uint32_t>(static_cast<int32_t>(v) >> 31);
        const uint32_t x = v - (18u & borrow);
        c = b;
        b = a;
        a = x;
        return x;
    }
    // n subtractive words into xs. The borrow chain, v_n = d_n + borrow and
    // borrow = v_n >> 31, is the critical path: two operations a word, so
    // d_n = x_{n-2} - x_{n-3} must be ready before the borrow is. It is
    // formed two steps ahead from the plain difference of this step,
    // d_{n+2} = (v_n - x_{n-1}) - (18 & borrow_n), not from x_n, which would
    // put two more operations on the chain; the empty asm keeps the compiler
    // from reassociating the sums back into one chain.
    VRX_INLINE void fill(uint32_t* xs, int n) {
        uint32_t br = borrow;
        uint32_t x1 = a;      // x_{n-1}
        uint32_t p = b - c;   // d_n
        uint32_t q = a - b;   // d_{n+1}
        uint32_t r = 0;       // d_{n+2}, formed now
        // one word from d (taken), writing d two steps ahead into dn
        auto step = [&br, &x1](uint32_t d, uint32_t& dn) {
            const uint32_t v = d + br;
            br = static_cast<uint32_t>(static_cast<int32_t>(v) >> 31);
            const uint32_t t = 18u & br;  // no branch: the sign is a coin toss
            uint32_t w = v - x1;
            __asm__("" : "+r"(w));
            dn = w - t;
            __asm__("" : "+r"(dn));
            x1 = v - t;
            return x1;
        };
        // three a round, so that the pending differences rotate through
        // the registers instead of being moved
        int i = 0;
        for (; i + 3 <= n; i += 3) {
            xs[i] = step(p, r);      // pending (q, r)
            xs[i + 1] = step(q, p);  // pending (r, p)
            xs[i + 2] = step(r, q);  // pending (p, q)
        }
        for (; i < n; ++i) {
            xs[i] = step(p, r);
            p = q;
            q = r;
        }
        // the last three words: a = x_{n-1}, b and c from the pending
        // differences (q = a - b, p = b - c)
        a = x1;
        b = x1 - q;
        c = b - p;
        borrow = br;
    }
    // n subtractive words into xs, the borrow guessed: br_{n-1} = d_{n-1} >> 31,
    // which is the true borrow sign(d_{n-1} + br_{n-2}) unless d_{n-1} is 0
    // or 0x80000000 (the first word takes the state's borrow). With the
    // guess the chain runs through the words alone, d_n = x_{n-2} - x_{n-3}:
    //   x_n = x_{n-2} - (x_{n-3} + (18 & (d_n >> 31))) - [d_{n-1} < 0]
    // where d_n >> 31 is also the sign of v_n. Per word: the sign of d_n
    // picks x_{n-3} or x_{n-3} + 18 (cmov), the sign bit of d_{n-1} goes
    // to the carry (d + d) and one subtract-with-borrow forms x_n; the
    // longest path, x_{n-2} to x_n, is three operations for two words.
    // The words and the end state are exact when no d_m of the words is 0
    // or 0x80000000; the caller checks that (d + d != 0) and otherwise
    // redoes them with fill from the saved state.
    VRX_INLINE void fillGuessed(uint32_t* xs, int n) {
        uint32_t x1 = a, x2 = b, x3 = c;
        uint32_t d0 = borrow, d1;  // sign bit: the borrow into the next word
        // x_n from x2 = x_{n-2}, x3 = x_{n-3}, dp = d_{n-1} (spent); d_n
        // into dn, x_n into x3 (x_{n-3} is dead after the step)
        auto step = [](uint32_t x2_, uint32_t& x3_, uint32_t& dp, uint32_t& dn) {
            uint32_t t, xn;
            __asm__("lea 18(%[x3]), %[t]\n\t"
                    "mov %[x2], %[dn]\n\t"
                    "sub %[x3], %[dn]\n\t"
                    "cmovns %[x3], %[t]\n\t"
                    "add %[dp], %[dp]\n\t"
                    "mov %[x2], %[xn]\n\t"
                    "sbb %[t], %[xn]"
                    : [t] "=&r"(t), [dn] "=&r"(dn), [xn] "=&r"(xn), [dp] "+r"(dp)
                    : [x2] "r"(x2_), [x3] "r"(x3_)
                    : "cc");
            x3_ = xn;
            return xn;
        };
        // six a round, so that the words (three) and the differences (two)
        // rotate through the registers instead of being moved
        const int n6 = n - n % 6;
        int i = 0;
        for (; i < n6; i += 6) {
            xs[i] = step(x2, x3, d0, d1);      // now x_{n-1}, x_{n-2}, x_{n-3} = x3, x1, x2
            xs[i + 1] = step(x1, x2, d1, d0);  // x2, x3, x1
            xs[i + 2] = step(x3, x1, d0, d1);  // x1, x2, x3
            xs[i + 3] = step(x2, x3, d1, d0);
            xs[i + 4] = step(x1, x2, d0, d1);
            xs[i + 5] = step(x3, x1, d1, d0);
        }
        for (; i < n; ++i) {
            xs[i] = step(x2, x3, d0, d1);
            const uint32_t xn = x3;
            x3 = x2;
            x2 = x1;
            x1 = xn;
            d0 = d1;
        }
        a = x1;
        b = x2;
        c = x3;
        borrow = static_cast<uint32_t>(static_cast<int32_t>(d0) >> 31);
    }
    // The three newest words before w: w[-3] = c, w[-2] = b, w[-1] = a.
    VRX_INLINE void prefix(uint32_t* w) const {
        w[-3] = c;
        w[-2] = b;
        w[-1] = a;
    }
    // One raw number, signed.
    VRX_INLINE int32_t next() {
        const uint32_t x = swb();
        lcg = lcg * kLcgMul + kLcgAdd;
        return static_cast<int32_t>(x + lcg);
    }
};

template <class S>
VRX_INLINE void seedWords(S& s, uint32_t seed) {
    const uint32_t b = seed * kLcgMul + kLcgAdd;
    const uint32_t c = b * kLcgMul + kLcgAdd;
    s.lcg = kLcgInit;
    s.a = static_cast<int32_t>(seed);
    s.b = static_cast<int32_t>(b);
    s.c = static_cast<int32_t>(c);
    s.borrow = -1;
}

// Sixteen steps of the congruential generator at once: X -> kMul16 X + kAdd16.
struct Jump {
    uint32_t mul, add;
};
constexpr Jump jump16() {
    Jump j{1u, 0u};
    for (int i = 0; i < 16; ++i) j = Jump{j.mul * kLcgMul, j.add * kLcgMul + kLcgAdd};
    return j;
}
constexpr Jump kJump16 = jump16();

// Lane i: the congruential generator advanced i + 1 steps (X -> mul X + add).
struct JumpLanes {
    uint32_t mul[16], add[16];
};
constexpr JumpLanes jumpLanes() {
    JumpLanes l{};
    Jump j{1u, 0u};
    for (int i = 0; i < 16; ++i) {
        j = Jump{j.mul * kLcgMul, j.add * kLcgMul + kLcgAdd};
        l.mul[i] = j.mul;
        l.add[i] = j.add;
    }
    return l;
}
alignas(64) constexpr JumpLanes kJumpLanes = jumpLanes();

// --------------------------------------------------------------- Uniform
using VD = simd::V<double>;
using VF = simd::V<float>;
using VU = simd::V<uint32_t>;

// Sixteen values (lo: 0..7, hi: 8..15) stored to d, n <= 16 of them.
VRX_INLINE void putGroup(Vrx64f* d, int n, __m512d lo, __m512d hi) {
    if (n == 16) {
        VD::store(d, lo);
        VD::store(d + 8, hi);
    } else if (n > 8) {
        VD::store(d, lo);
        VD::storem(d + 8, simd::tail<double>(static_cast<size_t>(n - 8)), hi);
    } else {
        VD::storem(d, simd::tail<double>(static_cast<size_t>(n)), lo);
    }
}
VRX_INLINE void putGroup(Vrx32f* d, int n, __m512d lo, __m512d hi) {
    VF::storem(d, simd::tail<float>(static_cast<size_t>(n)), simd::joinToFloatCur(lo, hi));
}
VRX_INLINE void putGroup(Vrx16s* d, int n, __m512d lo, __m512d hi) {
    simd::narrowLow16(d, simd::tail<float>(static_cast<size_t>(n)), simd::joinToInt32Cur(lo, hi));
}
VRX_INLINE void putGroup(Vrx8u* d, int n, __m512d lo, __m512d hi) {
    simd::narrowLow8(d, simd::tail<float>(static_cast<size_t>(n)), simd::joinToInt32Cur(lo, hi));
}

constexpr int kBlock = 240;  // subtractive words buffered per pass
constexpr int kPiece = 48;   // words filled per piece converted (six a round)
constexpr int kPad = 16;     // buffer words ahead of a block: the three before it

constexpr int kPairs = 64;   // normal pairs per batch

template <class T>
VrxStatus uniformRun(T* pDst, int len, VrxsRandUniformState* pState, ObjId id) {
    if (anyNull(pDst, pState)) return vrxErrNullPtr;
    if (len < 1) return vrxErrBadLength;
    UniformState<T>* sp;
    if (VrxStatus st = open(static_cast<void*>(pState), id, &sp)) return st;
    UniformState<T> s;
    memcpy(&s, sp, sizeof s);

    Gen g;
    g.load(s);
    // Lanes hold the congruential words of the next sixteen numbers,
    // lane i the word advanced i + 1 steps.
    alignas(64) uint32_t lanes[16];
    VU::R lcg = VU::add(VU::mullo(VU::set1(g.lcg), VU::load(kJumpLanes.mul)), VU::load(kJumpLanes.add));
    const VU::R jm = VU::set1(kJump16.mul), ja = VU::set1(kJump16.add);
    const VD::R scale = VD::set1(s.scale), mid = VD::set1(s.mid);

    // Two buffers of subtractive words: while the vector pass converts one
    // block, the scalar chain fills the next, a piece of kPiece words per
    // piece converted, so that the two run side by side in the core; the
    // words are read a whole block after they were written. The chain
    // guesses its borrows (fillGuessed), and the vector pass checks the
    // differences of the words it converts (each buffer holds the three
    // words before its block, from kPad - 3 on). A block with a wrong guess
    // is filled again by the exact chain from the state saved at its start
    // and converted again, and the next block, filled from its wrong end
    // state, is filled again from the right one.
    alignas(64) uint32_t xs[2][kPad + kBlock];
    const VU::R low31 = VU::set1(0x7FFFFFFFu);
    int last = 16;  // numbers used of the last group
    VU::R lastLcg = lcg;
    // Converts words j.. of block w (at pDst + i0) for m = 16 or fewer;
    // returns the lanes whose difference is neither 0 nor 0x80000000.
    auto group = [&](const uint32_t* w, int i0, int j, int m) {
        const VU::M t = simd::tail<float>(static_cast<size_t>(m));
        const VU::R x = VU::loadm(t, w + j);
        const VU::R u = VU::add(x, lcg);
        putGroup(pDst + i0 + j, m, VD::fma(simd::lowInt32ToDouble(u), scale, mid),
                 VD::fma(simd::highInt32ToDouble(u), scale, mid));
        lastLcg = lcg;
        lcg = VU::add(VU::mullo(lcg, jm), ja);
        return static_cast<VU::M>(VU::test(VU::sub(VU::loadm(t, w + j - 2), VU::loadm(t, w + j - 3)), low31) | ~t);
    };
    int n = len < kBlock ? len : kBlock;
    Gen start = g;  // the state at the start of the block being converted
    g.prefix(xs[0] + kPad);
    g.fillGuessed(xs[0] + kPad, n);
    int cur = 0;
    for (int i0 = 0; i0 < len; i0 += kBlock, cur ^= 1) {
        uint32_t* const w = xs[cur] + kPad;
        uint32_t* const wNext = xs[cur ^ 1] + kPad;
        const int rest = len - i0 - kBlock;
        const int nNext = rest <= 0 ? 0 : (rest < kBlock ? rest : kBlock);
        Gen startNext = g;
        g.prefix(wNext);
        const VU::R lcg0 = lcg;
        VU::M ok = VU::kAll;
        for (int j0 = 0; j0 < n; j0 += kPiece) {
            if (j0 < nNext) g.fillGuessed(wNext + j0, nNext - j0 < kPiece ? nNext - j0 : kPiece);
            const int je = n - j0 < kPiece ? n : j0 + kPiece;
            int j = j0;
            for (; j + 16 <= je; j += 16) ok &= group(w, i0, j, 16);
            if (j < je) {  // the call's last group, cut
                ok &= group(w, i0, j, je - j);
                last = je - j;
            }
        }
        if (ok != VU::kAll) {
            g = start;
            g.fill(w, n);
            lcg = lcg0;
            for (int j = 0; j < n; j += 16) group(w, i0, j, n - j < 16 ? n - j : 16);
            startNext = g;
            g.prefix(wNext);
            g.fillGuessed(wNext, nNext);
        }
        start = startNext;
        // a next block longer than this one (only the first block can be
        // shorter, and then there is no next) is never left half filled
        n = nNext;
    }
    VU::store(lanes, lastLcg);
    g.lcg = lanes[last - 1];
    g.save(s);
    memcpy(sp, &s, sizeof s);
    return vrxOk;
}

template <class T>
VrxStatus uniformInit(VrxsRandUniformState* pState, T low, T high, uint32_t seed, ObjId id) {
    if (!pState) return vrxErrNullPtr;
    Carver c(pState);
    UniformState<T>* sp = stateLayout<UniformState<T>>(c);
    UniformState<T> s;
    memset(&s, 0, sizeof s);
    s.id = idWord(id);
    s.seed = seed;
    s.low = low;
    s.high = high;
    s.mid = (static_cast<double>(low) + static_cast<double>(high)) * 0.5;
    s.scale = (static_cast<double>(high) - static_cast<double>(low)) * kTwoM32;
    seedWords(s, seed);
    memcpy(sp, &s, sizeof s);
    return vrxOk;
}

// ----------------------------------------------------------------- Gauss
// Integer outputs are clamped to the type's range, then converted in the
// caller's rounding mode.
VRX_INLINE void putG(Vrx64f* d, double v) { *d = v; }
VRX_INLINE void putG(Vrx32f* d, double v) { *d = static_cast<float>(v); }
VRX_INLINE int cvtCur(double v) { return _mm_cvtsd_si32(_mm_set_sd(v)); }
VRX_INLINE void putG(Vrx16s* d, double v) {
    v = v < -32768.0 ? -32768.0 : (v > 32767.0 ? 32767.0 : v);
    *d = static_cast<Vrx16s>(cvtCur(v));
}
VRX_INLINE void putG(Vrx8u* d, double v) {
    v = v < 0.0 ? 0.0 : (v > 255.0 ? 255.0 : v);
    *d = static_cast<Vrx8u>(cvtCur(v));
}

// Sixteen outputs at once: the same clamps as putG (outputs are never NaN:
// mean and stdDev are integers there and the factor is finite), then the
// uniform loop's stores.
VRX_INLINE VD::R clampG(const Vrx64f*, VD::R v) { return v; }
VRX_INLINE VD::R clampG(const Vrx32f*, VD::R v) { return v; }
VRX_INLINE VD::R clampG(const Vrx16s*, VD::R v) { return VD::min(VD::max(v, VD::set1(-32768.0)), VD::set1(32767.0)); }
VRX_INLINE VD::R clampG(const Vrx8u*, VD::R v) { return VD::min(VD::max(v, VD::zero()), VD::set1(255.0)); }

// Accepted pairs of the polar method, in order, into P, Q and R (p, q and
// r = q q + p p), at most np of them; returns how many. Attempts go in groups
// of eight, sixteen numbers: the congruential words formed in lanes from the
// group's first one, the pairs formed and tested in vector lanes (the same
// operations as one at a time), the accepted ones packed. A group accepts at
// most eight pairs, so while np - k >= 8 the next (np - k) / 8 groups all
// run: their subtractive words are filled in one go, ahead of the vector
// work, instead of being read back right after each sixteen are written.
// The caller's word-by-word loop draws the rest.
int groupedAttempts(Gen& gen, int np, double* P, double* Q, double* R) {
    Gen g = gen;  // in registers, not behind the caller's pointer
    using VU64 = simd::V<uint64_t>;
    constexpr int kAhead = 8;  // groups filled at once
    const VU::R jm = VU::load(kJumpLanes.mul), ja = VU::load(kJumpLanes.add);
    alignas(64) static constexpr uint32_t kEvenOdd[16] = {0, 2, 4, 6, 8, 10, 12, 14, 1, 3, 5, 7, 9, 11, 13, 15};
    const VU::R evenOdd = VU::load(kEvenOdd);
    const VD::R scale = VD::set1(kTwoM31), one = VD::set1(1.0), zero = VD::zero();
    alignas(64) uint32_t xs[kAhead * 16];
    int k = 0;
    while (np - k >= 8) {
        const int ng = (np - k) / 8 < kAhead ? (np - k) / 8 : kAhead;
        g.fill(xs, ng * 16);
        for (int gi = 0; gi < ng; ++gi) {
            const VU::R w = VU::add(VU::load(xs + gi * 16), VU::add(VU::mullo(VU::set1(g.lcg), jm), ja));
            g.lcg = g.lcg * kJump16.mul + kJump16.add;
            const VU::R e = VU::permute(evenOdd, w);  // numbers 0, 2, .. then 1, 3, ..
            const VD::R p = VD::mul(simd::lowInt32ToDouble(e), scale);
            const VD::R q = VD::mul(simd::highInt32ToDouble(e), scale);
            const VD::R r = VD::fma(q, q, VD::mul(p, p));
            const VD::M ok = static_cast<VD::M>(VD::lt(r, one) & VD::ne(r, zero));
            VU64::compress(reinterpret_cast<uint64_t*>(P + k), ok, simd::bitsOf(p));
            VU64::compress(reinterpret_cast<uint64_t*>(Q + k), ok, simd::bitsOf(q));
            VU64::compress(reinterpret_cast<uint64_t*>(R + k), ok, simd::bitsOf(r));
            k += __builtin_popcount(ok);
        }
    }
    gen = g;
    return k;
}

template <class T>
VrxStatus gaussRun(T* pDst, int len, VrxsRandGaussState* pState, ObjId id) {
    if (anyNull(pDst, pState)) return vrxErrNullPtr;
    if (len < 1) return vrxErrBadLength;
    GaussState<T>* sp;
    if (VrxStatus st = open(static_cast<void*>(pState), id, &sp)) return st;
    GaussState<T> s;
    memcpy(&s, sp, sizeof s);

    Gen g;
    g.load(s);
    const double mean = static_cast<double>(s.mean);
    const double sd = static_cast<double>(s.stdDev);
    int i = 0;
    if (s.empty == 0) {
        // The held deviate: its own association, stdDev times (f q).
        putG(pDst, __builtin_fma(sd, s.factor * s.second, mean));
        s.empty = 1;
        i = 1;
    }
    // Pairs in batches: accepted pairs first (the generator in order), then
    // the logarithms, then the factors in vector lanes (division and square
    // root are correctly rounded, so lanes equal the scalar form), then the
    // outputs. The last pair of a call may be cut, and is held.
    alignas(64) double P[kPairs], Q[kPairs], R[kPairs], F[kPairs];
    while (i < len) {
        const int left = len - i;
        const int np = left / 2 + (left & 1) < kPairs ? left / 2 + (left & 1) : kPairs;
        int k = groupedAttempts(g, np, P, Q, R);
        for (; k < np; ++k) {
            double p, q, r;
            do {
                p = static_cast<double>(g.next()) * kTwoM31;
                q = static_cast<double>(g.next()) * kTwoM31;
                r = __builtin_fma(q, q, p * p);
            } while (r >= 1.0 || r == 0.0);
            P[k] = p;
            Q[k] = q;
            R[k] = r;
        }
        for (int k = 0; k < np; ++k) F[k] = log(R[k]);
        for (int k = 0; k < np; k += VD::N) {
            const auto m = simd::tail<double>(static_cast<size_t>(np - k));
            const VD::R r = VD::loadm(m, R + k, 1.0);
            VD::storem(F + k, m, VD::sqrt(VD::div(VD::mul(VD::set1(-2.0), VD::loadm(m, F + k)), r)));
        }
        // whole pairs eight at a time, interleaved (p, q, p, q, ...)
        const int whole = (len - i) / 2 < np ? (len - i) / 2 : np;
        const VD::R vsd = VD::set1(sd), vmean = VD::set1(mean);
        alignas(64) static constexpr uint64_t kZip[16] = {0, 8, 1, 9, 2, 10, 3, 11, 4, 12, 5, 13, 6, 14, 7, 15};
        const auto lo8 = simd::V<uint64_t>::load(kZip), hi8 = simd::V<uint64_t>::load(kZip + 8);
        int j = 0;
        for (; j + 8 <= whole; j += 8, i += 16) {
            const VD::R f = VD::load(F + j);
            const VD::R a = VD::fma(VD::mul(VD::load(P + j), vsd), f, vmean);
            const VD::R b = VD::fma(VD::mul(VD::load(Q + j), vsd), f, vmean);
            putGroup(pDst + i, 16, clampG(pDst, VD::permute2(a, lo8, b)), clampG(pDst, VD::permute2(a, hi8, b)));
        }
        for (; j < np; ++j) {
            const double f = F[j];
            putG(pDst + i, __builtin_fma(P[j] * sd, f, mean));
            ++i;
            if (i < len) {
                putG(pDst + i, __builtin_fma(Q[j] * sd, f, mean));
                ++i;
            } else {
                s.empty = 0;
                s.factor = f;
                s.second = Q[j];
                s.first = P[j];
            }
        }
    }
    g.save(s);
    memcpy(sp, &s, sizeof s);
    return vrxOk;
}

template <class T>
VrxStatus gaussInit(VrxsRandGaussState* pState, T mean, T stdDev, uint32_t seed, ObjId id) {
    if (!pState) return vrxErrNullPtr;
    Carver c(pState);
    GaussState<T>* sp = stateLayout<GaussState<T>>(c);
    GaussState<T> s;
    memset(&s, 0, sizeof s);
    s.id = idWord(id);
    s.seed = seed;
    s.mean = mean;
    s.stdDev = stdDev;
    seedWords(s, seed);
    s.empty = 1;
    s.factor = 0.0;
    s.second = 0.0;
    s.first = 0.0;
    memcpy(sp, &s, sizeof s);
    return vrxOk;
}

}  // namespace

extern "C" {

// ---------------------------------------------------------------- sizes
VrxStatus N0(vrxsRandUniformGetSize_8u)(int* pSize) { return putSize(pSize, kUniformSize8u); }
VrxStatus N0(vrxsRandUniformGetSize_16s)(int* pSize) { return putSize(pSize, kUniformSize16s); }
VrxStatus N0(vrxsRandUniformGetSize_32f)(int* pSize) { return putSize(pSize, kUniformSize32f); }
VrxStatus N0(vrxsRandUniformGetSize_64f)(int* pSize) { return putSize(pSize, kUniformSize64f); }
VrxStatus N0(vrxsRandGaussGetSize_8u)(int* pSize) { return putSize(pSize, kGaussSize8u); }
VrxStatus N0(vrxsRandGaussGetSize_16s)(int* pSize) { return putSize(pSize, kGaussSize16s); }
VrxStatus N0(vrxsRandGaussGetSize_32f)(int* pSize) { return putSize(pSize, kGaussSize32f); }
VrxStatus N0(vrxsRandGaussGetSize_64f)(int* pSize) { return putSize(pSize, kGaussSize64f); }

// --------------------------------------------------------------- Uniform
VrxStatus N0(vrxsRandUniformInit_8u)(VrxsRandUniformState* pState, Vrx8u low, Vrx8u high, Vrx32u seed) { return uniformInit(pState, low, high, seed, ObjId::RandUniform8u); }
VrxStatus N0(vrxsRandUniformInit_16s)(VrxsRandUniformState* pState, Vrx16s low, Vrx16s high, Vrx32u seed) { return uniformInit(pState, low, high, seed, ObjId::RandUniform16s); }
VrxStatus N0(vrxsRandUniformInit_32f)(VrxsRandUniformState* pState, Vrx32f low, Vrx32f high, Vrx32u seed) { return uniformInit(pState, low, high, seed, ObjId::RandUniform32f); }
VrxStatus N0(vrxsRandUniformInit_64f)(VrxsRandUniformState* pState, Vrx64f low, Vrx64f high, Vrx32u seed) { return uniformInit(pState, low, high, seed, ObjId::RandUniform64f); }

VrxStatus N0(vrxsRandUniform_8u)(Vrx8u* pDst, int len, VrxsRandUniformState* pState) { return uniformRun(pDst, len, pState, ObjId::RandUniform8u); }
VrxStatus N0(vrxsRandUniform_16s)(Vrx16s* pDst, int len, VrxsRandUniformState* pState) { return uniformRun(pDst, len, pState, ObjId::RandUniform16s); }
VrxStatus N0(vrxsRandUniform_32f)(Vrx32f* pDst, int len, VrxsRandUniformState* pState) { return uniformRun(pDst, len, pState, ObjId::RandUniform32f); }
VrxStatus N0(vrxsRandUniform_64f)(Vrx64f* pDst, int len, VrxsRandUniformState* pState) { return uniformRun(pDst, len, pState, ObjId::RandUniform64f); }

// ----------------------------------------------------------------- Gauss
VrxStatus N0(vrxsRandGaussInit_8u)(VrxsRandGaussState* pState, Vrx8u mean, Vrx8u stdDev, Vrx32u seed) { return gaussInit(pState, mean, stdDev, seed, ObjId::RandGauss8u); }
VrxStatus N0(vrxsRandGaussInit_16s)(VrxsRandGaussState* pState, Vrx16s mean, Vrx16s stdDev, Vrx32u seed) { return gaussInit(pState, mean, stdDev, seed, ObjId::RandGauss16s); }
VrxStatus N0(vrxsRandGaussInit_32f)(VrxsRandGaussState* pState, Vrx32f mean, Vrx32f stdDev, Vrx32u seed) { return gaussInit(pState, mean, stdDev, seed, ObjId::RandGauss32f); }
VrxStatus N0(vrxsRandGaussInit_64f)(VrxsRandGaussState* pState, Vrx64f mean, Vrx64f stdDev, Vrx32u seed) { return gaussInit(pState, mean, stdDev, seed, ObjId::RandGauss64f); }

VrxStatus N0(vrxsRandGauss_8u)(Vrx8u* pDst, int len, VrxsRandGaussState* pState) { return gaussRun(pDst, len, pState, ObjId::RandGauss8u); }
VrxStatus N0(vrxsRandGauss_16s)(Vrx16s* pDst, int len, VrxsRandGaussState* pState) { return gaussRun(pDst, len, pState, ObjId::RandGauss16s); }
VrxStatus N0(vrxsRandGauss_32f)(Vrx32f* pDst, int len, VrxsRandGaussState* pState) { return gaussRun(pDst, len, pState, ObjId::RandGauss32f); }
VrxStatus N0(vrxsRandGauss_64f)(Vrx64f* pDst, int len, VrxsRandGaussState* pState) { return gaussRun(pDst, len, pState, ObjId::RandGauss64f); }

}  // extern "C"
