// Internals of the DFT of any length: the plan header, the factoring of a
// length, the size rules of the prime-factor engine and the engine entries.
#pragma once

#include "vrx_fft.h"
#include "vrx_layout.h"

#include <stdint.h>

namespace n0::dft {

using fft::Cx;

// One factor record of the prime-factor engine.
struct Rec {
    int32_t factor;  // radix of this stage
    int32_t rest;    // length behind it: n / (f[0] * ... * f[i])
    int32_t prod;    // f[0] * ... * f[i-1]
    int32_t blocks;  // stage blocks of this level in one unit of work
    void* tw;        // w^(m*k), m = 1 .. factor-1, k = 0 .. rest-1, w = exp(-2*pi*i/(factor*rest))
    void* gen;       // roots of order factor for a generic radix (factors 14 and above), else null
};

constexpr int kMaxRec = 19;

// Paths of a plan.
enum Path : int32_t { kPathSmall = 1, kPathFft, kPathPf, kPathDir, kPathConv, kPathHalfSmall };

// The plan header: a fixed block of 768 bytes on a 64-byte boundary of the
// caller's block; the tables follow it.
struct Plan {
    int32_t idWord;
    int32_t length;
    int32_t fwdNorm, invNorm;
    union { float f; double d; } normScale;
    int32_t algHint;
    int32_t workSize;     // bytes of work buffer the call needs (0: none)
    int32_t useFft;
    int32_t realFactors;  // a real plan of odd length on the real engine
    int32_t convLength;   // M of the convolution path
    int32_t path;
    void* dirTab;
    void* recFwdTab;
    void* recInvTab;
    void* chirpTab;
    void* filterTab;
    void* innerPlan;      // the FFT plan of the power-of-two path
    void* convPlan;       // the length-M DFT plan of the convolution path
    int32_t usePrimeFact;
    int32_t lastFactor;   // index L of the last record
    int32_t* reorderTab;
    int32_t n;            // length the path runs: N, or N/2 on a real plan of even N
    int32_t baseStride;   // twiddle index stride into the base table (1, or 2 on a half length)
    void* lastGen;        // roots of the last record's rest when it is a generic radix
    int32_t restGeneric;
    int32_t formCount;    // entries of formTab
    int32_t* formTab;     // real plans of odd length: the gather to the odd form as cycles
    int32_t pad[2];
    Rec rec[kMaxRec];
};
static_assert(sizeof(Plan) == 768, "the plan header is a fixed block of 768 bytes");

constexpr int64_t a64(int64_t x) { return (x + 63) & ~int64_t(63); }

// Per-width limits.
template <class T> struct Lim;
template <> struct Lim<float> {
    static constexpr int kMax = 134217727, kConv = 67108863, kTrial = 50, kUnit = 2000;
};
template <> struct Lim<double> {
    static constexpr int kMax = 67108863, kConv = 33554431, kTrial = 90, kUnit = 500;
};
constexpr int kEvenLeftover = 150;

// Factors n: 4s first, one 2 in front, trial divisors 3, 5, ... up to
// trialLimit, the 2*3 merge, the leftover within its limit. Returns the
// count of records (f[0 .. count-1], the last being the leftover), or 0.
int factorize(int n, int trialLimit, int* f);
// Complex plans: 2,4 -> 8 and 4,4 -> 16, then the largest even factor to
// the untwiddled stage. Returns the new count.
int reorderComplex(int* f, int count);

// Sizes of the engine for the records f[0 .. count-1] of length n.
struct PfSizes {
    int64_t P;      // plan bytes
    int64_t J;      // init bytes
    int64_t work;   // workSize
    int32_t b;      // entries of reorderTab
    int32_t t;      // largest generic factor (doubled ahead of an even rest)
};
PfSizes pfSizes(const int* f, int count, int n, bool real, int e, int unit);

// Builds the records and tables in the plan from the carver (which runs in
// the order of pfSizes); base holds baseN values exp(-2*pi*i*k/baseN) with
// baseN = n * baseStride; scratch holds 2*n int32 values (real plans).
template <class T>
void pfInit(Plan* p, Carver& c, const int* f, int count, int n, bool real, const Cx<T>* base, int baseStride,
            int32_t* scratch);

// Complex transform of length p->n: interleaved (split false: re pointers
// only) or split arrays; work holds n complex values. With rec (the forward
// recombination table of a real plan of even length, interleaved forward
// data), the last pass may also recombine into Perm: returns true if it did.
template <class T>
bool pfComplex(const Plan* p, const T* sRe, const T* sIm, T* dRe, T* dIm, bool split, bool inv, Cx<T>* work,
               const T* rec = nullptr);

// The real forward of a plan of even length whose half runs as two levels
// in registers with the recombination folded in (double 100), straight into
// form f and scaled (scale 0: none): returns false for the other plans.
template <class T> bool pfRealFwdTl(const Plan* p, const T* src, T* dst, fft::Form f, T scale);

// The forward recombination of a real plan of even length for a register of
// bin pairs (S the register operations): x = z[k], y = z[H-k] as parts, the
// factors (a, b) of bin k; d = (xr - yr, xi + yi), P = dr*b + a*di,
// Q = di*b - a*dr, z[k] = (yr + P, Q - yi), z[H-k] = (xr - P, Q - xi).
template <class S, class R>
VRX_INLINE void recFwdPair(R xr, R xi, R yr, R yi, R a, R b, R& Xr, R& Xi, R& Yr, R& Yi) {
    const R dr = S::sub(xr, yr), di = S::add(xi, yi);
    const R P = S::add(S::mul(dr, b), S::mul(a, di));
    const R Q = S::sub(S::mul(di, b), S::mul(a, dr));
    Xr = S::add(yr, P);
    Xi = S::sub(Q, yi);
    Yr = S::sub(xr, P);
    Yi = S::sub(Q, xi);
}
// Real transform of odd length in place in d: forward, N reals to the odd
// form; inverse, the odd form to N reals (unscaled).
template <class T> void pfReal(const Plan* p, T* d, bool inv);

// Roots exp(-2*pi*i*q/R), q = 0 .. R-1, for R up to 16.
template <class T> const Cx<T>* smallRoots(int R);
// Whole transforms of N values, N up to 15 and not a power of two, each
// length a straight-line kernel in registers (s may be d). Complex: element
// i at sRe[i*ss], sIm[i*ss] (ss, ds: 1 split, 2 interleaved); scale 0: none.
template <class T> void smallRunC(int N, bool inv, const T* sRe, const T* sIm, int ss, T* dRe, T* dIm, int ds, T scale);
// Interleaved lengths 12 and 15 in registers of complex lanes, called
// straight from the entries (s may be d); scale 0: none.
template <class T, bool Inv> VrxStatus smallVecC(int N, const T* s, T* d, T scale);
// Real: N reals to form f, and form f to N reals (unscaled unless scale).
template <class T> void smallRunRFwd(int N, const T* s, T* d, T scale, fft::Form f);
template <class T> void smallRunRInv(int N, const T* s, T* d, T scale, fft::Form f);

}  // namespace n0::dft
