// Orthonormal DCT (type II forward, type III inverse) of any length: the
// plan record, the choice of path, the layout, and the four paths as one
// template over the element type. psdcts.cpp and psdctd.cpp hold the entries.
//
// Paths, chosen from N at initialisation:
//   kernels   N = 1, 2, 4, 8: straight-line butterflies, scale in the constants
//   FFT       larger powers of two: even samples forward, odd samples backward,
//             a real FFT of length N to Perm, one rotation pass (postTab holds
//             the scale, so no separate scaling pass)
//   direct    other N up to 35 (single) or 45 (double): folded sums over a
//             table of 4N cosines
//   chirp     the rest: a convolution through a power-of-two complex FFT of
//             length M >= 2h - 1 (h = N/2 for even N, h = N for odd N)
#pragma once

#include "vrx_base.h"
#include "vrx_layout.h"
#include "vrx_fft_calls.h"
#include "simd/simd.h"

#include <math.h>
#include <string.h>

#include <type_traits>

namespace n0::dct {

// The plan header, on a 64-byte boundary of the caller's block.
struct Plan {
    int32_t idWord;
    int32_t length;
    int32_t algHint;     // stored, never consulted
    int32_t workSize;    // bytes of work buffer, without the 64 bytes of slack
    double scale0;       // 1/sqrt(N)
    double scale1;       // sqrt(2)/sqrt(N)
    int32_t useKernel, useFft, useConv;
    int32_t convLength;  // M of the chirp path
    void* dirTab;        // direct: cos(2*pi*j/(4N)), j < 4N
    void* postTab;       // final factors (FFT and chirp paths)
    void* rotTab;        // chirp path: second factor table
    void* chirpTab;
    void* filterTab;     // chirp path: spectrum of the conjugate chirp, times 1/M
    void* innerPlan;     // the FFT plan
};
static_assert(sizeof(Plan) == 96, "the fixed 192 bytes of the size rules hold the header and its alignment");

enum class Path { Kernel, Fft, Direct, Conv };

// Per-width pieces: limits, element sizes and the FFT entries
// (vrx_fft_calls.h); inner plans take flag 8 and hint 0.
template <class T> struct WidthCalls {
    using R = FftCalls<T>;
    using C = typename R::Cplx;
    using X = FftCalls<C>;
    using RPlan = typename R::Plan;
    using CPlan = typename X::Plan;
    static VrxStatus rSize(int o, int* s, int* i, int* w) { return R::getSize(o, 8, 0, s, i, w); }
    static VrxStatus cSize(int o, int* s, int* i, int* w) { return X::getSize(o, 8, 0, s, i, w); }
    static VrxStatus rInit(RPlan** p, int o, uint8_t* m, uint8_t* b) { return R::init(p, o, 8, 0, m, b); }
    static VrxStatus cInit(CPlan** p, int o, uint8_t* m, uint8_t* b) { return X::init(p, o, 8, 0, m, b); }
    static VrxStatus rFwd(T* d, const RPlan* p, uint8_t* b) { return R::fwdPermI(d, p, b); }
    static VrxStatus rInv(T* d, const RPlan* p, uint8_t* b) { return R::invPermI(d, p, b); }
    static VrxStatus cFwd(C* d, const CPlan* p, uint8_t* b) { return X::fwdI(d, p, b); }
    static VrxStatus cInv(C* d, const CPlan* p, uint8_t* b) { return X::invI(d, p, b); }
    static VrxStatus zero(C* d, int n) { return X::zero(d, n); }
};
template <class T> struct Width;
template <> struct Width<float> : WidthCalls<float> {
    static constexpr int kFftMax = 268435455, kDirectMax = 35, kConvInit = 67108863, kConvSize = 33554431;
    static constexpr ObjId kFwd = ObjId::DctFwd32f, kInv = ObjId::DctInv32f;
};
template <> struct Width<double> : WidthCalls<double> {
    static constexpr int kFftMax = 134217727, kDirectMax = 45, kConvInit = 33554431, kConvSize = 16777215;
    static constexpr ObjId kFwd = ObjId::DctFwd64f, kInv = ObjId::DctInv64f;
};

VRX_INLINE uint8_t* align64(uint8_t* p) { return reinterpret_cast<uint8_t*>((addr(p) + 63) & ~uintptr_t(63)); }

// ------------------------------------------------------------ choice and sizes

struct Choice {
    Path path;
    int order;      // FFT path: log2 N; chirp path: log2 M
    int64_t h, M;   // chirp path
    int fs, fi, fw; // sizes of the inner FFT plan
};

// The path of length N. The chirp path ends earlier for the size query
// than for Init (forInit false). Lengths outside every path give -6.
template <class T>
VrxStatus choose(int N, bool forInit, Choice& c) {
    using W = Width<T>;
    if (N < 1) return vrxErrBadLength;
    c = Choice{};
    const bool pow2 = (N & (N - 1)) == 0;
    if (pow2 && N <= 8) {
        c.path = Path::Kernel;
        return vrxOk;
    }
    if (pow2) {
        if (N > W::kFftMax) return vrxErrBadLength;
        c.path = Path::Fft;
        c.order = __builtin_ctz(static_cast<unsigned>(N));
        return W::rSize(c.order, &c.fs, &c.fi, &c.fw);
    }
    if (N <= W::kDirectMax) {
        c.path = Path::Direct;
        return vrxOk;
    }
    if (N > (forInit ? W::kConvInit : W::kConvSize)) return vrxErrBadLength;
    c.path = Path::Conv;
    c.h = (N & 1) ? N : N / 2;
    c.order = 0;
    while ((int64_t(1) << c.order) < 2 * c.h - 1) ++c.order;
    c.M = int64_t(1) << c.order;
    return W::cSize(c.order, &c.fs, &c.fi, &c.fw);
}

struct Sizes {
    int spec, init, work;
};

// The byte counts of the size rules, in 32-bit arithmetic.
template <class T>
Sizes sizesOf(int N, const Choice& c) {
    const uint32_t e = sizeof(T), n = static_cast<uint32_t>(N);
    const uint32_t fi = static_cast<uint32_t>(c.fi), fw = static_cast<uint32_t>(c.fw);
    uint32_t s = 0, i = 0, w = 0;
    switch (c.path) {
        case Path::Kernel: s = 168; break;
        case Path::Fft:
            s = static_cast<uint32_t>(c.fs) + e * n + 192;
            i = c.fi > 0 ? fi + 64 : 0;
            w = fw + e * n + 64;
            break;
        case Path::Direct:
            s = 4 * e * n + 192;
            w = e * n + 64;
            break;
        case Path::Conv: {
            const uint32_t h = static_cast<uint32_t>(c.h), M = static_cast<uint32_t>(c.M);
            s = static_cast<uint32_t>(c.fs) + (3 * h + M) * 2 * e + 192;
            const uint32_t m = fi > fw ? fi : fw;
            i = m > 0 ? m + 64 : 0;
            w = fw + 2 * e * M + 64;
            break;
        }
    }
    return {static_cast<int>(s), static_cast<int>(i), static_cast<int>(w)};
}

template <class T> struct Pieces {
    using C = typename Width<T>::C;
    Plan* hdr = nullptr;
    T* dir = nullptr;
    T* post = nullptr;
    C* postC = nullptr;
    C* rot = nullptr;
    C* chirp = nullptr;
    C* filter = nullptr;
    uint8_t* inner = nullptr;
};

// The one layout of the plan: the header, then the tables of the path;
// the inner FFT plan last, handed its raw bytes (it aligns itself within
// its own size).
template <class T>
Pieces<T> layout(Carver& c, int N, const Choice& ch) {
    using C = typename Width<T>::C;
    Pieces<T> p;
    p.hdr = c.take<Plan>(1);
    switch (ch.path) {
        case Path::Kernel: break;
        case Path::Fft:
            p.post = c.take<T>(N);
            p.inner = c.take<uint8_t>(ch.fs, 8);
            break;
        case Path::Direct: p.dir = c.take<T>(4 * int64_t(N)); break;
        case Path::Conv:
            p.filter = c.take<C>(ch.M);
            p.chirp = c.take<C>(ch.h, alignof(C));
            p.rot = c.take<C>(ch.h, alignof(C));
            p.postC = c.take<C>(ch.h, alignof(C));
            p.inner = c.take<uint8_t>(ch.fs, 8);
            break;
    }
    return p;
}

template <class T>
VrxStatus getSize(int N, int* pSpec, int* pInit, int* pWork) {
    if (anyNull(pSpec, pInit, pWork)) return vrxErrNullPtr;
    Choice ch;
    if (VrxStatus st = choose<T>(N, false, ch)) return st;
    const Sizes s = sizesOf<T>(N, ch);
    *pSpec = s.spec;
    *pInit = s.init;
    *pWork = s.work;
    return vrxOk;
}

// ------------------------------------------------------------ tables

template <class T> VRX_INLINE void setC(typename Width<T>::C& d, double re, double im) {
    d.re = static_cast<T>(re);
    d.im = static_cast<T>(im);
}

// exp(-i*pi*q/den) for the chirp with q = j^2 mod 2*den, kept by running
// addition: den = h for even N (length h), den = 2N for odd N (length N).
template <class T>
void buildChirp(typename Width<T>::C* w, int64_t len, int64_t den) {
    const int64_t mod = 2 * den;
    int64_t q = 0;
    for (int64_t j = 0; j < len; ++j) {
        const double a = M_PI * static_cast<double>(q) / static_cast<double>(den);
        setC<T>(w[j], cos(a), -sin(a));
        q += 2 * j + 1;
        while (q >= mod) q -= mod;
    }
}

template <class T>
VrxStatus init(ObjId id, void** ppPlan, int N, int hint, uint8_t* pSpecMem, uint8_t* pInitBuf) {
    using W = Width<T>;
    using C = typename W::C;
    Choice ch;
    if (N < 1) return vrxErrBadLength;
    if (VrxStatus st = choose<T>(N, true, ch)) return st;
    if (!ppPlan || !pSpecMem) return vrxErrNullPtr;
    const Sizes sz = sizesOf<T>(N, ch);
    if (sz.init > 0 && !pInitBuf) return vrxErrNullPtr;

    Carver c(pSpecMem);
    const Pieces<T> o = layout<T>(c, N, ch);
    Plan* p = o.hdr;
    memset(p, 0, sizeof(Plan));
    p->length = N;
    p->algHint = hint;
    p->scale0 = 1.0 / sqrt(static_cast<double>(N));
    p->scale1 = sqrt(2.0) / sqrt(static_cast<double>(N));
    const double c0 = p->scale0, c1 = p->scale1;
    const bool fwd = id == W::kFwd;
    switch (ch.path) {
        case Path::Kernel:
            p->useKernel = 1;
            break;
        case Path::Fft: {
            typename W::RPlan* inner = nullptr;
            if (VrxStatus st = W::rInit(&inner, ch.order, o.inner, pInitBuf)) return st;
            p->useFft = 1;
            p->innerPlan = inner;
            p->postTab = o.post;
            p->workSize = static_cast<int32_t>(sizeof(T) * N + (ch.fw > 0 ? ch.fw - 64 : 0));
            // forward: (-c1 cos t, c1 sin t); inverse: c1/2 (cos t, sin t);
            // t = pi k/(2N); entries 0 and 1 hold c0
            T* q = o.post;
            q[0] = q[1] = static_cast<T>(c0);
            for (int k = 1; k < N / 2; ++k) {
                const double t = M_PI * k / (2.0 * N);
                if (fwd) {
                    q[2 * k] = static_cast<T>(-c1 * cos(t));
                    q[2 * k + 1] = static_cast<T>(c1 * sin(t));
                } else {
                    q[2 * k] = static_cast<T>(0.5 * c1 * cos(t));
                    q[2 * k + 1] = static_cast<T>(0.5 * c1 * sin(t));
                }
            }
            break;
        }
        case Path::Direct: {
            p->dirTab = o.dir;
            p->workSize = static_cast<int32_t>(sizeof(T) * N);
            const int64_t L = 4 * int64_t(N);
            for (int64_t j = 0; j < L; ++j) o.dir[j] = static_cast<T>(cos(2.0 * M_PI * j / static_cast<double>(L)));
            break;
        }
        case Path::Conv: {
            typename W::CPlan* inner = nullptr;
            if (VrxStatus st = W::cInit(&inner, ch.order, o.inner, pInitBuf)) return st;
            const int64_t h = ch.h, M = ch.M;
            const bool even = (N & 1) == 0;
            buildChirp<T>(o.chirp, h, even ? h : 2 * int64_t(N));
            // filter: conj(chirp) at m and M - m, transformed, times 1/M
            C* f = o.filter;
            W::zero(f, static_cast<int>(M));
            for (int64_t m = 0; m < h; ++m) {
                const C v{o.chirp[m].re, static_cast<T>(-o.chirp[m].im)};
                f[m] = v;
                if (m) f[M - m] = v;
            }
            if (VrxStatus st = W::cFwd(f, inner, pInitBuf)) return st;
            const T inv = T(1) / static_cast<T>(M);
            for (int64_t m = 0; m < M; ++m) {
                f[m].re *= inv;
                f[m].im *= inv;
            }
            if (even) {
                // rotation exp(-+2 pi i k/N); post: forward c1/2 (cos t, sin t),
                // inverse exp(i t)/(2h c1) with entry 0 = 1/(2h c0) twice
                for (int64_t k = 0; k < h; ++k) {
                    const double r = 2.0 * M_PI * static_cast<double>(k) / N;
                    const double t = M_PI * static_cast<double>(k) / (2.0 * N);
                    if (fwd) {
                        setC<T>(o.rot[k], cos(r), -sin(r));
                        setC<T>(o.postC[k], 0.5 * c1 * cos(t), 0.5 * c1 * sin(t));
                    } else {
                        const double g = 1.0 / (2.0 * static_cast<double>(h) * c1);
                        setC<T>(o.rot[k], cos(r), sin(r));
                        setC<T>(o.postC[k], g * cos(t), g * sin(t));
                    }
                }
                if (!fwd) {
                    const double s0 = 1.0 / (2.0 * static_cast<double>(h) * c0);
                    setC<T>(o.postC[0], s0, s0);
                }
            } else {
                // post: c_k exp(-i t); rotation: the same times the chirp (the
                // forward final pass and the inverse pre-multiplication)
                for (int64_t k = 0; k < h; ++k) {
                    const double t = M_PI * static_cast<double>(k) / (2.0 * N);
                    const double ck = k ? c1 : c0;
                    const double pr = ck * cos(t), pi = -ck * sin(t);
                    setC<T>(o.postC[k], pr, pi);
                    // chirp value recomputed in double for the product
                    const int64_t q = (k * k) % (4 * int64_t(N));
                    const double a = M_PI * static_cast<double>(q) / (2.0 * N);
                    const double wr = cos(a), wi = -sin(a);
                    setC<T>(o.rot[k], pr * wr - pi * wi, pr * wi + pi * wr);
                }
            }
            p->useConv = 1;
            p->convLength = static_cast<int32_t>(M);
            p->innerPlan = inner;
            p->chirpTab = o.chirp;
            p->rotTab = o.rot;
            p->postTab = o.postC;
            p->filterTab = o.filter;
            p->workSize = static_cast<int32_t>(2 * sizeof(T) * M + (ch.fw > 0 ? ch.fw - 64 : 0));
            break;
        }
    }
    p->idWord = idWord(id);
    *ppPlan = p;
    return vrxOk;
}

// ------------------------------------------------------------ kernels

constexpr double kR2 = 0.70710678118654752440;   // 1/sqrt(2)
constexpr double kA4 = 0.65328148243818826393;   // cos(pi/8)/sqrt(2)
constexpr double kB4 = 0.27059805007309849220;   // cos(3pi/8)/sqrt(2)
constexpr double kC08 = 0.35355339059327376220;  // 1/sqrt(8)
constexpr double kA8 = 0.46193976625564337806;   // cos(pi/8)/2
constexpr double kB8 = 0.19134171618254488586;   // cos(3pi/8)/2
constexpr double kO1 = 0.49039264020161522456;   // cos(k pi/16)/2, k = 1, 3, 5, 7
constexpr double kO3 = 0.41573480615127261854;
constexpr double kO5 = 0.27778511650980111237;
constexpr double kO7 = 0.09754516100806413392;

// odd rows of the length-8 transform: y[2r+1] = sum over n < 4 of kOdd8[r][n] d[n]
constexpr double kOdd8[4][4] = {{kO1, kO3, kO5, kO7},
                                {kO3, -kO7, -kO1, -kO5},
                                {kO5, -kO1, kO7, kO3},
                                {kO7, -kO5, kO3, -kO1}};

template <class T> VRX_INLINE void kernelFwd(int N, const T* x, T* y) {
    if (N == 1) {
        y[0] = x[0];
    } else if (N == 2) {
        const T a = x[0], b = x[1], r = T(kR2);
        y[0] = (a + b) * r;
        y[1] = (a - b) * r;
    } else if (N == 4) {
        const T s0 = x[0] + x[3], s1 = x[1] + x[2], d0 = x[0] - x[3], d1 = x[1] - x[2];
        const T A = T(kA4), B = T(kB4), h = T(0.5);
        y[0] = (s0 + s1) * h;
        y[2] = (s0 - s1) * h;
        y[1] = A * d0 + B * d1;
        y[3] = B * d0 - A * d1;
    } else {
        T s[4], d[4];
        for (int i = 0; i < 4; ++i) {
            s[i] = x[i] + x[7 - i];
            d[i] = x[i] - x[7 - i];
        }
        const T ss0 = s[0] + s[3], ss1 = s[1] + s[2], sd0 = s[0] - s[3], sd1 = s[1] - s[2];
        const T c0 = T(kC08), A = T(kA8), B = T(kB8);
        T o[4];
        for (int r = 0; r < 4; ++r)
            o[r] = (T(kOdd8[r][0]) * d[0] + T(kOdd8[r][1]) * d[1]) + (T(kOdd8[r][2]) * d[2] + T(kOdd8[r][3]) * d[3]);
        y[0] = (ss0 + ss1) * c0;
        y[4] = (ss0 - ss1) * c0;
        y[2] = A * sd0 + B * sd1;
        y[6] = B * sd0 - A * sd1;
        y[1] = o[0];
        y[3] = o[1];
        y[5] = o[2];
        y[7] = o[3];
    }
}

template <class T> VRX_INLINE void kernelInv(int N, const T* y, T* x) {
    if (N == 1) {
        x[0] = y[0];
    } else if (N == 2) {
        const T a = y[0], b = y[1], r = T(kR2);
        x[0] = (a + b) * r;
        x[1] = (a - b) * r;
    } else if (N == 4) {
        const T A = T(kA4), B = T(kB4), h = T(0.5);
        const T s0 = (y[0] + y[2]) * h, s1 = (y[0] - y[2]) * h;
        const T d0 = A * y[1] + B * y[3], d1 = B * y[1] - A * y[3];
        x[0] = s0 + d0;
        x[3] = s0 - d0;
        x[1] = s1 + d1;
        x[2] = s1 - d1;
    } else {
        const T c0 = T(kC08), A = T(kA8), B = T(kB8);
        const T y0 = y[0] * c0, y4 = y[4] * c0;
        const T ee0 = y0 + y4, ee1 = y0 - y4;
        const T eo0 = A * y[2] + B * y[6], eo1 = B * y[2] - A * y[6];
        const T e[4] = {ee0 + eo0, ee1 + eo1, ee1 - eo1, ee0 - eo0};
        const T yo[4] = {y[1], y[3], y[5], y[7]};
        T o[4];
        for (int n = 0; n < 4; ++n)
            o[n] = (T(kOdd8[0][n]) * yo[0] + T(kOdd8[1][n]) * yo[1]) + (T(kOdd8[2][n]) * yo[2] + T(kOdd8[3][n]) * yo[3]);
        for (int n = 0; n < 4; ++n) {
            x[n] = e[n] + o[n];
            x[7 - n] = e[n] - o[n];
        }
    }
}

// ------------------------------------------------------------ FFT path

// Lanes in reverse order.
template <class T> VRX_INLINE typename simd::V<T>::R rev(typename simd::V<T>::R a) { return simd::reverseLanes(a); }

// t[j] = x[2j], t[N-1-j] = x[2j+1], j < N/2; each register of t passes
// through f(v, at, m) on its way out (at: the index in t of lane 0, m: the
// lanes written).
template <class T, class Fn> void splitEvenOdd(const T* x, T* t, int64_t N, Fn f) {
    using F = simd::V<T>;
    constexpr int L = F::N;
    const int64_t H = N / 2;
    for (int64_t j = 0; j < H; j += L) {
        const int64_t n = H - j < L ? H - j : L;
        const typename F::M m = simd::tail<T>(n);
        typename F::R lo, hi, ev, od;
        lo = F::loadm(simd::tail<T>(n >= L / 2 ? L : 2 * n), x + 2 * j);
        hi = F::loadm(simd::tail<T>(n > L / 2 ? 2 * n - L : 0), x + 2 * j + L);
        simd::deinterleave(lo, hi, ev, od);
        F::storem(t + j, m, f(ev, j, m));
        // lane l of the reversed odd values is x[2(j + L-1-l) + 1]: stored at t[N-1-j-(L-1)+l]
        const typename F::M mo = static_cast<typename F::M>(~simd::tail<T>(L - n));
        F::storem(t + N - j - L, mo, f(rev<T>(od), N - j - L, mo));
    }
}
template <class T> void splitEvenOdd(const T* x, T* t, int64_t N) {
    splitEvenOdd<T>(x, t, N, [](auto v, int64_t, auto) { return v; });
}

// x[2j] = t[j], x[2j+1] = t[N-1-j], j < N/2; each register of t passes
// through f(v, at, m) as it is read.
template <class T, class Fn> void joinEvenOdd(const T* t, T* x, int64_t N, Fn f) {
    using F = simd::V<T>;
    constexpr int L = F::N;
    const int64_t H = N / 2;
    for (int64_t j = 0; j < H; j += L) {
        const int64_t n = H - j < L ? H - j : L;
        const typename F::M m = simd::tail<T>(n), mo = static_cast<typename F::M>(~simd::tail<T>(L - n));
        const typename F::R ev = f(F::loadm(m, t + j), j, m);
        const typename F::R od = rev<T>(f(F::loadm(mo, t + N - j - L), N - j - L, mo));
        typename F::R lo, hi;
        simd::interleave(ev, od, lo, hi);
        F::storem(x + 2 * j, simd::tail<T>(n >= L / 2 ? L : 2 * n), lo);
        F::storem(x + 2 * j + L, simd::tail<T>(n > L / 2 ? 2 * n - L : 0), hi);
    }
}
template <class T> void joinEvenOdd(const T* t, T* x, int64_t N) {
    joinEvenOdd<T>(t, x, N, [](auto v, int64_t, auto) { return v; });
}

// Forward rotation: y[k] = pi*im - re*pr, y[N-k] = pr*im + pi*re, k = 1 .. N/2-1.
template <class T> void postFwd(const T* t, const T* q, T* y, int64_t N) {
    using F = simd::V<T>;
    constexpr int L = F::N;
    const int64_t H = N / 2;
    y[0] = q[0] * t[0];
    y[H] = q[0] * t[1];
    for (int64_t k = 1; k < H; k += L) {
        const int64_t n = H - k < L ? H - k : L;
        const typename F::M m2lo = simd::tail<T>(n >= L / 2 ? L : 2 * n);
        const typename F::M m2hi = simd::tail<T>(n > L / 2 ? 2 * n - L : 0);
        typename F::R re, im, pr, pi;
        simd::deinterleave(F::loadm(m2lo, t + 2 * k), F::loadm(m2hi, t + 2 * k + L), re, im);
        simd::deinterleave(F::loadm(m2lo, q + 2 * k), F::loadm(m2hi, q + 2 * k + L), pr, pi);
        const typename F::R a = F::sub(F::mul(pi, im), F::mul(re, pr));
        const typename F::R b = F::add(F::mul(pr, im), F::mul(pi, re));
        F::storem(y + k, simd::tail<T>(n), a);
        F::storem(y + N - k - (L - 1), static_cast<typename F::M>(~simd::tail<T>(L - n)), rev<T>(b));
    }
}

// Inverse: the Perm array V from y: V[0] = c0 y[0], V[1] = c0 y[N/2],
// V(k) = (qr a + qi b, qi a - qr b) with a = y[k], b = y[N-k].
template <class T> void preInv(const T* y, const T* q, T* v, int64_t N) {
    using F = simd::V<T>;
    constexpr int L = F::N;
    const int64_t H = N / 2;
    v[0] = q[0] * y[0];
    v[1] = q[0] * y[H];
    for (int64_t k = 1; k < H; k += L) {
        const int64_t n = H - k < L ? H - k : L;
        const typename F::M m2lo = simd::tail<T>(n >= L / 2 ? L : 2 * n);
        const typename F::M m2hi = simd::tail<T>(n > L / 2 ? 2 * n - L : 0);
        typename F::R qr, qi, lo, hi;
        simd::deinterleave(F::loadm(m2lo, q + 2 * k), F::loadm(m2hi, q + 2 * k + L), qr, qi);
        const typename F::R a = F::loadm(simd::tail<T>(n), y + k);
        const typename F::R b = rev<T>(F::loadm(static_cast<typename F::M>(~simd::tail<T>(L - n)), y + N - k - (L - 1)));
        const typename F::R re = F::add(F::mul(qr, a), F::mul(qi, b));
        const typename F::R im = F::sub(F::mul(qi, a), F::mul(qr, b));
        simd::interleave(re, im, lo, hi);
        F::storem(v + 2 * k, m2lo, lo);
        F::storem(v + 2 * k + L, m2hi, hi);
    }
}

// ------------------------------------------------------------ direct path

// The sums run across outputs, one lane each, and every lane serves two
// outputs: cos((2i+1)(N-k) pi/(2N)) = (-1)^i sin((2i+1) k pi/(2N)), so the
// lane of output k walks the (cos, sin) pair of its angle and gives output
// N-k from the sine. Each eighth term reads the pair from the table (cos at
// index j, sin at j + 3N, mod 4N); the terms between turn it by the lane's
// step angle. Lanes left over past the last full register, when they are
// few, run as scalars straight off the table. Terms add in order.
using I32 = simd::VInt<int32_t, 4>;
constexpr int kMaxHalf = 24;  // above half the longest direct length

// a + b reduced once modulo 4N (both below 4N).
VRX_INLINE I32::R addMod(I32::R a, I32::R b, I32::R L4) {
    const I32::R t = I32::add(a, b);
    return I32::blend(I32::ge(t, L4), t, I32::sub(t, L4));
}
VRX_INLINE int addMod(int a, int b, int L4) { return a + b >= L4 ? a + b - L4 : a + b; }

template <class T> VRX_INLINE typename simd::V<T>::R tabAt(const T* tab, I32::R idx) { return simd::gatherAt(tab, idx); }

template <int J, int E, class Fn> VRX_INLINE void unrollTo(Fn&& f) {
    if constexpr (J < E) {
        f(std::integral_constant<int, J>{});
        unrollTo<J + 1, E>(f);
    }
}

// Lanes l = tab[first + S l] (S = 0, 1 or 2), indices at or past the end
// (4N) reading tab[0]: the table values of a register of evenly spaced
// angles without a gather.
template <class T, int S> VRX_INLINE typename simd::V<T>::R tabRun(const T* tab, int first, int L4) {
    using F = simd::V<T>;
    constexpr int L = F::N;
    const int n = L4 - first;  // readable scalars from first
    const auto m = [&](int from) { return simd::tail<T>(n - from <= 0 ? 0 : n - from >= L ? L : n - from); };
    if constexpr (S == 0) {
        return F::set1(tab[n > 0 ? first : 0]);
    } else if constexpr (S == 1) {
        return F::loadm(m(0), tab + first, tab[0]);
    } else {
        typename F::R ev, od;
        simd::deinterleave(F::loadm(m(0), tab + first, tab[0]), F::loadm(m(L), tab + first + L, tab[0]), ev, od);
        return ev;
    }
}

// For t < terms, body(t, parity of t, c, s) with c[b], s[b] the cosine and
// sine of lane angle start[b] + t step[b] (table units), b < G. Lane l of
// register b starts at start0 + S0 (l + L b) (S0 = 0 or 1) and steps by
// step0 + 2 (l + L b), so the first pair and the step's pair are plain
// loads. In double every twelfth term reads the pair from the table by a
// gather; the term after it turns the pair by the step, the terms between
// run the recurrence c[t+1] = 2 cos(step) c[t] - c[t-1] (the same for the
// sine). In single precision the recurrence would lose about a factor five
// of accuracy: every eighth term reads the table, and each term between
// turns the pair by the step.
template <class T> constexpr int kRefresh = sizeof(T) == 4 ? 8 : 12;
template <class T, int G, int S0, class Body>
VRX_INLINE void walk(const T* tab, int N, int start0, int step0, int terms, Body body) {
    using F = simd::V<T>;
    using R = typename F::R;
    constexpr int L = F::N;
    constexpr int kSteps = kRefresh<T>;
    const int L4i = 4 * N, q3 = 3 * N;
    const I32::R L4 = I32::set1(L4i), q = I32::set1(q3);
    R c[G], s[G], pc[G], ps[G], cr[G], sr[G], c2[G];
    I32::R idx[G], stepR[G];
    for (int b = 0; b < G; ++b) {
        const int st = step0 + 2 * L * b, s0 = start0 + S0 * L * b;
        cr[b] = tabRun<T, 2>(tab, st, L4i);
        sr[b] = tabRun<T, 2>(tab, st + q3, L4i);
        c2[b] = F::add(cr[b], cr[b]);
        c[b] = tabRun<T, S0>(tab, s0, L4i);
        s[b] = tabRun<T, S0>(tab, s0 + q3 >= L4i ? s0 + q3 - L4i : s0 + q3, L4i);
        const I32::R iota = simd::iota32();
        const I32::R stepV = I32::add(I32::set1(st), I32::add(iota, iota));
        // kSteps steps, by doubling and adding
        I32::R acc = I32::zero(), pw = stepV;
        for (int k = kSteps; k; k >>= 1) {
            if (k & 1) acc = addMod(acc, pw, L4);
            pw = addMod(pw, pw, L4);
        }
        stepR[b] = acc;
        const I32::R startV = S0 ? I32::add(I32::set1(s0), iota) : I32::set1(s0);
        idx[b] = addMod(startV, stepR[b], L4);
    }
    for (int t0 = 0; t0 < terms; t0 += kSteps) {
        const int u = terms - t0;
        unrollTo<0, kSteps>([&](auto jc) {
            constexpr int j = decltype(jc)::value;
            if (j >= u) return;
            if constexpr (j == 0) {
                if (t0 > 0) {
                    for (int b = 0; b < G; ++b) {
                        c[b] = tabAt(tab, idx[b]);
                        s[b] = tabAt(tab, addMod(idx[b], q, L4));
                        idx[b] = addMod(idx[b], stepR[b], L4);
                    }
                }
            } else if constexpr (j == 1 || sizeof(T) == 4) {
                for (int b = 0; b < G; ++b) {
                    pc[b] = c[b];
                    ps[b] = s[b];
                    c[b] = F::sub(F::mul(pc[b], cr[b]), F::mul(ps[b], sr[b]));
                    s[b] = F::add(F::mul(ps[b], cr[b]), F::mul(pc[b], sr[b]));
                }
            } else {
                for (int b = 0; b < G; ++b) {
                    const R nc = F::sub(F::mul(c2[b], c[b]), pc[b]);
                    const R ns = F::sub(F::mul(c2[b], s[b]), ps[b]);
                    pc[b] = c[b];
                    ps[b] = s[b];
                    c[b] = nc;
                    s[b] = ns;
                }
            }
            body(t0 + j, std::integral_constant<int, j & 1>{}, c, s);
        });
    }
}

// f(std::integral_constant<int, G>) for G = regs, 0 .. 3.
template <class Fn> VRX_INLINE void byRegs(int regs, Fn f) {
    if (regs >= 3) f(std::integral_constant<int, 3>{});
    else if (regs == 2) f(std::integral_constant<int, 2>{});
    else if (regs == 1) f(std::integral_constant<int, 1>{});
    else f(std::integral_constant<int, 0>{});
}

// f(std::integral_constant<int, n>) for the n = 0 .. 4 scalar lanes.
template <class Fn> VRX_INLINE void byCount(int n, Fn f) {
    switch (n) {
        case 1: f(std::integral_constant<int, 1>{}); break;
        case 2: f(std::integral_constant<int, 2>{}); break;
        case 3: f(std::integral_constant<int, 3>{}); break;
        case 4: f(std::integral_constant<int, 4>{}); break;
        default: break;
    }
}

// Registers for `lanes` lanes: a last partial register only when it holds
// more than a quarter of its lanes; the rest run as scalars.
template <class T> VRX_INLINE int vectorRegs(int lanes) {
    constexpr int L = simd::V<T>::N;
    return lanes / L + (lanes % L > L / 4 ? 1 : 0);
}

// Lanes with an odd lane number (mask).
template <class T> VRX_INLINE typename simd::V<T>::M oddLanes() {
    return static_cast<typename simd::V<T>::M>(0xAAAAu);
}

// Forward: y[0] = c0 sum s; lane k (1 <= k <= N/2) sums the coefficients of
// output k (s for even k, d for odd k) against the cosines, and those of
// output N-k, sign alternating with i, against the sines.
template <class T> void directFwd(const Plan* p, const T* x, T* y) {
    using F = simd::V<T>;
    using R = typename F::R;
    using M = typename F::M;
    constexpr int L = F::N;
    const int N = p->length, n2 = N / 2, m = (N + 1) / 2;
    const T* tab = static_cast<const T*>(p->dirTab);
    T s[kMaxHalf], d[kMaxHalf], sa[kMaxHalf], da[kMaxHalf];
    for (int i = 0; i < n2; ++i) {
        s[i] = x[i] + x[N - 1 - i];
        d[i] = x[i] - x[N - 1 - i];
    }
    if (N & 1) {
        s[n2] = x[n2];
        d[n2] = T(0);
    }
    for (int i = 0; i < m; ++i) {
        sa[i] = (i & 1) ? -s[i] : s[i];
        da[i] = (i & 1) ? -d[i] : d[i];
    }
    const T c0 = static_cast<T>(p->scale0), c1 = static_cast<T>(p->scale1);
    T sum = s[0];
    for (int i = 1; i < m; ++i) sum += s[i];
    const int K = n2, regs = vectorRegs<T>(K), kv = regs * L < K ? regs * L : K;
    // lane l holds k = 1 + l (+ L per register): odd k on even lanes
    const M kOdd = static_cast<M>(~oddLanes<T>());
    const M nkOdd = (N & 1) ? oddLanes<T>() : kOdd;
    byRegs(regs, [&](auto gc) {
        constexpr int G = decltype(gc)::value;
        if constexpr (G > 0) {
            R a[G], b[G];
            for (int r = 0; r < G; ++r) a[r] = b[r] = F::zero();
            // lane k starts at angle k and steps by 2k
            walk<T, G, 1>(tab, N, 1, 2, m, [&](int i, auto, const R* c, const R* sn) {
                const R ca = F::blend(kOdd, F::set1(s[i]), F::set1(d[i]));
                const R cb = F::blend(nkOdd, F::set1(sa[i]), F::set1(da[i]));
                for (int r = 0; r < G; ++r) {
                    a[r] = F::add(a[r], F::mul(ca, c[r]));
                    b[r] = F::add(b[r], F::mul(cb, sn[r]));
                }
            });
            const R sc = F::set1(c1);
            // outputs N-k first: for even N the lane k = N/2 is written by its cosine sum last
            for (int r = 0; r < G; ++r) {
                const int cnt = kv - r * L < L ? kv - r * L : L;
                F::storem(y + N - r * L - L, static_cast<M>(~simd::tail<T>(L - cnt)), simd::reverseLanes(F::mul(b[r], sc)));
            }
            for (int r = 0; r < G; ++r) {
                const int cnt = kv - r * L < L ? kv - r * L : L;
                F::storem(y + 1 + r * L, simd::tail<T>(cnt), F::mul(a[r], sc));
            }
        }
    });
    const int L4 = 4 * N, q = 3 * N;
    byCount(K - kv, [&](auto nc) {
        constexpr int NL = decltype(nc)::value;
        const T* ca[NL + 1];
        const T* cb[NL + 1];
        int j[NL + 1], st[NL + 1];
        T A[NL + 1], B[NL + 1];
        for (int l = 0; l < NL; ++l) {
            const int k = kv + 1 + l;
            ca[l] = (k & 1) ? d : s;
            cb[l] = ((N - k) & 1) ? da : sa;
            j[l] = k;
            st[l] = 2 * k;
            A[l] = B[l] = T(0);
        }
        for (int i = 0; i < m; ++i) {
            for (int l = 0; l < NL; ++l) {
                A[l] += ca[l][i] * tab[j[l]];
                B[l] += cb[l][i] * tab[addMod(j[l], q, L4)];
                j[l] = addMod(j[l], st[l], L4);
            }
        }
        for (int l = 0; l < NL; ++l) {
            const int k = kv + 1 + l;
            if (N - k != k) y[N - k] = B[l] * c1;
            y[k] = A[l] * c1;
        }
    });
    y[0] = sum * c0;
}

// Inverse: lane n (n < (N+1)/2) walks t = 0 .. N/2 over the angle (2n+1) t,
// the coefficient c_t y[t] against the cosine and c_{N-t} y[N-t] (t < N-t)
// against the sine, even and odd t apart; then
// x[n] = C0 + C1 + (-1)^n (S0 + S1), x[N-1-n] = C0 - C1 + (-1)^n (S0 - S1)
// for even N and (-1)^n (S1 - S0) for odd N.
template <class T> void directInv(const Plan* p, const T* y, T* x) {
    using F = simd::V<T>;
    using R = typename F::R;
    using M = typename F::M;
    constexpr int L = F::N;
    const int N = p->length, n2 = N / 2, m = (N + 1) / 2;
    const T* tab = static_cast<const T*>(p->dirTab);
    const T c0 = static_cast<T>(p->scale0), c1 = static_cast<T>(p->scale1);
    const int terms = n2 + 1;
    T w[kMaxHalf], v[kMaxHalf];
    w[0] = y[0] * c0;
    v[0] = T(0);
    for (int t = 1; t < terms; ++t) {
        w[t] = y[t] * c1;
        v[t] = N - t > t ? y[N - t] * c1 : T(0);
    }
    const bool odd = N & 1;
    const int regs = vectorRegs<T>(m), nv = regs * L < m ? regs * L : m;
    const M neg = oddLanes<T>();
    byRegs(regs, [&](auto gc) {
        constexpr int G = decltype(gc)::value;
        if constexpr (G > 0) {
            R c0r[G], c1r[G], s0r[G], s1r[G];
            for (int r = 0; r < G; ++r) c0r[r] = c1r[r] = s0r[r] = s1r[r] = F::zero();
            // lane n starts at angle 0 and steps by 2n+1
            walk<T, G, 0>(tab, N, 0, 1, terms, [&](int t, auto par, const R* c, const R* sn) {
                const R wt = F::set1(w[t]), vt = F::set1(v[t]);
                for (int r = 0; r < G; ++r) {
                    if constexpr (decltype(par)::value == 0) {
                        c0r[r] = F::add(c0r[r], F::mul(wt, c[r]));
                        s0r[r] = F::add(s0r[r], F::mul(vt, sn[r]));
                    } else {
                        c1r[r] = F::add(c1r[r], F::mul(wt, c[r]));
                        s1r[r] = F::add(s1r[r], F::mul(vt, sn[r]));
                    }
                }
            });
            R lo[G];
            for (int r = 0; r < G; ++r) {
                const R sp = F::add(s0r[r], s1r[r]);
                const R sm = odd ? F::sub(s1r[r], s0r[r]) : F::sub(s0r[r], s1r[r]);
                lo[r] = F::add(F::add(c0r[r], c1r[r]), F::blend(neg, sp, F::neg(sp)));
                const R hi = F::add(F::sub(c0r[r], c1r[r]), F::blend(neg, sm, F::neg(sm)));
                const int cnt = nv - r * L < L ? nv - r * L : L;
                // mirrors first: the middle output of odd N is written from its direct sum last
                F::storem(x + N - r * L - L, static_cast<M>(~simd::tail<T>(L - cnt)), simd::reverseLanes(hi));
            }
            for (int r = 0; r < G; ++r) {
                const int cnt = nv - r * L < L ? nv - r * L : L;
                F::storem(x + r * L, simd::tail<T>(cnt), lo[r]);
            }
        }
    });
    const int L4 = 4 * N, q = 3 * N;
    byCount(m - nv, [&](auto nc) {
        constexpr int NL = decltype(nc)::value;
        int j[NL + 1], st[NL + 1];
        T C0[NL + 1], C1[NL + 1], S0[NL + 1], S1[NL + 1];
        for (int l = 0; l < NL; ++l) {
            j[l] = 0;
            st[l] = 2 * (nv + l) + 1;
            C0[l] = C1[l] = S0[l] = S1[l] = T(0);
        }
        // terms in pairs, even t then odd t
        for (int t = 0; t < terms; t += 2) {
            for (int l = 0; l < NL; ++l) {
                C0[l] += w[t] * tab[j[l]];
                S0[l] += v[t] * tab[addMod(j[l], q, L4)];
                j[l] = addMod(j[l], st[l], L4);
            }
            if (t + 1 == terms) break;
            for (int l = 0; l < NL; ++l) {
                C1[l] += w[t + 1] * tab[j[l]];
                S1[l] += v[t + 1] * tab[addMod(j[l], q, L4)];
                j[l] = addMod(j[l], st[l], L4);
            }
        }
        for (int l = 0; l < NL; ++l) {
            const int n = nv + l;
            const T sp = S0[l] + S1[l], sm = odd ? S1[l] - S0[l] : S0[l] - S1[l];
            const T hi = (C0[l] - C1[l]) + ((n & 1) ? -sm : sm);
            const T lo = (C0[l] + C1[l]) + ((n & 1) ? -sp : sp);
            if (N - 1 - n != n) x[N - 1 - n] = hi;
            x[n] = lo;
        }
    });
}

// ------------------------------------------------------------ chirp path

// The convolution with the conjugate chirp of a, which holds the chirp
// product and zeros up to M: the forward FFT, the product with filterTab,
// the inverse FFT. The product with the chirp that finishes it is left to
// the caller's final pass.
template <class T>
VrxStatus convolve(const Plan* p, typename Width<T>::C* a, uint8_t* work) {
    using W = Width<T>;
    using C = typename W::C;
    const auto* inner = static_cast<const typename W::CPlan*>(p->innerPlan);
    if (VrxStatus st = W::cFwd(a, inner, work)) return st;
    // the product with filterTab as the library's complex multiply forms it (filter first)
    using F = simd::V<T>;
    const T* f = &static_cast<const C*>(p->filterTab)->re;
    T* b = &a->re;
    for (int64_t i = 0, n = 2 * int64_t(p->convLength); i < n; i += F::N)
        F::store(b + i, simd::cmul<T>(F::load(f + i), F::load(b + i)));
    return W::cInv(a, inner, work);
}

// Vector pieces of the chirp path's linear passes: L complex values as a
// register of real parts and one of imaginary parts.
template <class T> struct CV {
    using F = simd::V<T>;
    using R = typename F::R;
    using M = typename F::M;
    static constexpr int L = F::N;
    // masks of the first and second register of 2L scalars, first q scalars
    static VRX_INLINE M lo(int64_t q) { return simd::tail<T>(q >= L ? L : q); }
    static VRX_INLINE M hi(int64_t q) { return simd::tail<T>(q > L ? q - L : 0); }
    // p[0 .. cnt-1]
    static VRX_INLINE void load(const typename Width<T>::C* c, int64_t cnt, R& re, R& im) {
        const T* p = &c->re;
        simd::deinterleave(F::loadm(lo(2 * cnt), p), F::loadm(hi(2 * cnt), p + L), re, im);
    }
    // lane l = c[-l], l < cnt
    static VRX_INLINE void loadRev(const typename Width<T>::C* c, int64_t cnt, R& re, R& im) {
        const T* p = &(c - (L - 1))->re;
        const int64_t skip = 2 * (L - cnt);
        const R a = F::loadm(static_cast<M>(~lo(skip)), p), b = F::loadm(static_cast<M>(~hi(skip)), p + L);
        re = simd::evenLanesReversed(a, b);
        im = simd::oddLanesReversed(a, b);
    }
    // c[-l] = lane l, l < cnt
    static VRX_INLINE void storeRev(typename Width<T>::C* c, int64_t cnt, R re, R im) {
        T* p = &(c - (L - 1))->re;
        const int64_t skip = 2 * (L - cnt);
        R a, b;
        simd::interleaveRev(re, im, a, b);
        F::storem(p, static_cast<M>(~lo(skip)), a);
        F::storem(p + L, static_cast<M>(~hi(skip)), b);
    }
    static VRX_INLINE void store(typename Width<T>::C* c, int64_t cnt, R re, R im) {
        T* p = &c->re;
        R a, b;
        simd::interleave(re, im, a, b);
        F::storem(p, lo(2 * cnt), a);
        F::storem(p + L, hi(2 * cnt), b);
    }
    // reals: lane l = p[l] and lane l = p[-l]
    static VRX_INLINE R loadR(const T* p, int64_t cnt) { return F::loadm(simd::tail<T>(cnt), p); }
    static VRX_INLINE R loadRRev(const T* p, int64_t cnt) {
        return simd::reverseLanes(F::loadm(static_cast<M>(~simd::tail<T>(L - cnt)), p - (L - 1)));
    }
    static VRX_INLINE void storeR(T* p, int64_t cnt, R v) { F::storem(p, simd::tail<T>(cnt), v); }
    // (ar, ai) times (wr, wi)
    static VRX_INLINE void mul(R& ar, R& ai, R wr, R wi) {
        const R re = F::sub(F::mul(ar, wr), F::mul(ai, wi));
        ai = F::add(F::mul(ar, wi), F::mul(ai, wr));
        ar = re;
    }
    static VRX_INLINE void storeRRev(T* p, int64_t cnt, R v) {
        F::storem(p - (L - 1), static_cast<M>(~simd::tail<T>(L - cnt)), simd::reverseLanes(v));
    }
};

// Interleaved pairs: L/2 complex values per register, (re, im) lanes.
template <class T> struct CP {
    using F = simd::V<T>;
    using R = typename F::R;
    using M = typename F::M;
    static constexpr int L = F::N, P = L / 2;
    static VRX_INLINE R negOdd(R a) { return F::xorb(a, F::set2(T(0), T(-0.0))); }
    // the pairs c[i .. i+cnt) (reals of c, pair index i)
    static VRX_INLINE R load(const T* c, int64_t i, int64_t cnt) { return F::loadm(simd::tail<T>(2 * cnt), c + 2 * i); }
    // pairs in register r of a group of L starting at pair k0, cnt pairs in the group
    static VRX_INLINE int64_t count(int64_t cnt, int r) {
        const int64_t c = cnt - r * P;
        return c < 0 ? 0 : c > P ? P : c;
    }
    // a[k] = (x[k] w[k].re, x[k] w[k].im) for k < N (w as reals), zeros up to M
    static VRX_INLINE void realTimes(const T* x, const T* w, T* a, int64_t N, int64_t M) {
        for (int64_t k = 0; k < N; k += L) {
            const int64_t c = N - k < L ? N - k : L;
            R lo, hi;
            simd::dupLanes(F::loadm(simd::tail<T>(c), x + k), lo, hi);
            F::store(a + 2 * k, F::mul(lo, load(w, k, count(c, 0))));
            F::store(a + 2 * k + L, F::mul(hi, load(w, k + P, count(c, 1))));
        }
        zero(a, 2 * N, 2 * M);
    }
    // reals c[from .. to) = 0, from even, to a multiple of L
    static VRX_INLINE void zero(T* c, int64_t from, int64_t to) {
        const int64_t r = from % L;
        if (r) {
            F::storem(c + from, simd::tail<T>(L - r), F::zero());
            from += L - r;
        }
        for (; from < to; from += L) F::store(c + from, F::zero());
    }
};

// group(k, c) over k = 1 .. h/2 in groups of L (whole groups with the
// count a constant, then the rest), k = h/2 left out for even h: the middle
// is its own partner, and the caller runs it alone as the h-k side that the
// groups would write last. True when the middle is left to the caller.
template <int L, class G> VRX_INLINE bool pairGroups(int64_t h, G group) {
    const int64_t last = h / 2 - (h & 1 ? 0 : 1);
    int64_t k = 1;
    for (; k + L - 1 <= last; k += L) group(k, int64_t(L));
    if (k <= last) group(k, last + 1 - k);
    return !(h & 1);
}

template <class T>
VrxStatus convFwd(const Plan* p, const T* x, T* y, typename Width<T>::C* a, uint8_t* work) {
    using W = Width<T>;
    using C = typename W::C;
    using V = CV<T>;
    using Q = CP<T>;
    using F = typename V::F;
    using R = typename V::R;
    constexpr int L = V::L, P = Q::P;
    const int64_t N = p->length, M = p->convLength;
    const C* chirp = static_cast<const C*>(p->chirpTab);
    const C* post = static_cast<const C*>(p->postTab);
    const T c0 = static_cast<T>(p->scale0);
    T* at = &a->re;
    if (N & 1) {
        Q::realTimes(x, &chirp->re, at, N, M);
        if (VrxStatus st = convolve<T>(p, a, work)) return st;
        // rotTab holds postTab times the chirp: y = re(rot a), the part products
        // of two registers of pairs split into real and imaginary lanes
        const T* rot = static_cast<const T*>(p->rotTab);
        for (int64_t k = 0; k < N; k += L) {
            const int64_t c = N - k < L ? N - k : L;
            R re, im;
            simd::deinterleave(F::mul(Q::load(rot, k, Q::count(c, 0)), Q::load(at, k, Q::count(c, 0))),
                               F::mul(Q::load(rot, k + P, Q::count(c, 1)), Q::load(at, k + P, Q::count(c, 1))), re, im);
            V::storeR(y + k, c, F::sub(re, im));
        }
        return vrxOk;
    }
    const int64_t h = N / 2;
    const T* ch = &chirp->re;
    // z[j] = v[2j] + i v[2j+1] of the reordered v: v[m] = x[2m] (m < h), x[2N-2m-1] (m >= h),
    // times the chirp (the library's complex product, chirp first) on the way, then zeros
    splitEvenOdd<T>(x, at, N, [ch](R v, int64_t i, typename F::M m) { return simd::cmul<T>(F::loadm(m, ch + i), v); });
    if (h & 1) {  // the pair of t[h-1] and t[h] was split between the registers: (x[N-2], x[N-1])
        const typename F::M m2 = simd::tail<T>(2);
        F::storem(at + h - 1, m2, simd::cmul<T>(F::loadm(m2, ch + h - 1), F::loadm(m2, x + N - 2)));
    }
    Q::zero(at, N, 2 * M);
    if (VrxStatus st = convolve<T>(p, a, work)) return st;
    const C* rot = static_cast<const C*>(p->rotTab);
    const T z0r = a[0].re * chirp[0].re - a[0].im * chirp[0].im;
    const T z0i = a[0].re * chirp[0].im + a[0].im * chirp[0].re;
    // Z = a times the chirp; 2V(k) = A + r B with A = Z(k) + conj Z(h-k),
    // B = -i (Z(k) - conj Z(h-k)). Outputs k and h-k come from one pair of
    // Z values: A and B of h-k are the conjugates of those of k.
    const int64_t half = h / 2;
    // the values of k from 1 to h/2 in groups (pairGroups)
    const auto group = [&](int64_t k, int64_t c) __attribute__((always_inline)) {
        R zr, zi, mr, mi, rr, ri, pr, pi, wr, wi;
        V::load(a + k, c, zr, zi);
        V::load(chirp + k, c, wr, wi);
        V::mul(zr, zi, wr, wi);
        V::loadRev(a + h - k, c, mr, mi);
        V::loadRev(chirp + h - k, c, wr, wi);
        V::mul(mr, mi, wr, wi);
        const R Ar = F::add(zr, mr), Ai = F::sub(zi, mi);
        const R Br = F::add(zi, mi), Bi = F::sub(mr, zr);
        V::load(rot + k, c, rr, ri);
        V::load(post + k, c, pr, pi);
        R vr = F::add(Ar, F::sub(F::mul(rr, Br), F::mul(ri, Bi)));
        R vi = F::add(Ai, F::add(F::mul(rr, Bi), F::mul(ri, Br)));
        V::storeR(y + k, c, F::add(F::mul(pr, vr), F::mul(pi, vi)));
        V::storeRRev(y + N - k, c, F::sub(F::mul(pi, vr), F::mul(pr, vi)));
        // index h-k: A = (Ar, -Ai), B = (Br, -Bi)
        V::loadRev(rot + h - k, c, rr, ri);
        V::loadRev(post + h - k, c, pr, pi);
        vr = F::add(Ar, F::add(F::mul(rr, Br), F::mul(ri, Bi)));
        vi = F::sub(F::sub(F::mul(ri, Br), F::mul(rr, Bi)), Ai);
        V::storeRRev(y + h - k, c, F::add(F::mul(pr, vr), F::mul(pi, vi)));
        V::storeR(y + N - h + k, c, F::sub(F::mul(pi, vr), F::mul(pr, vi)));
    };
    if (pairGroups<L>(h, group)) {
        const int64_t m = half;
        const T zr = a[m].re * chirp[m].re - a[m].im * chirp[m].im;
        const T zi = a[m].re * chirp[m].im + a[m].im * chirp[m].re;
        const T Ar = zr + zr, Ai = zi - zi, Br = zi + zi, Bi = zr - zr;
        const T rr = rot[m].re, ri = rot[m].im, pr = post[m].re, pi = post[m].im;
        const T vr = Ar + (rr * Br + ri * Bi), vi = (ri * Br - rr * Bi) - Ai;
        y[m] = pr * vr + pi * vi;
        y[N - m] = pi * vr - pr * vi;
    }
    y[0] = (z0r + z0i) * c0;
    y[h] = (z0r - z0i) * c0;
    return vrxOk;
}

template <class T>
VrxStatus convInv(const Plan* p, const T* y, T* x, typename Width<T>::C* a, uint8_t* work) {
    using W = Width<T>;
    using C = typename W::C;
    using V = CV<T>;
    using Q = CP<T>;
    using F = typename V::F;
    using R = typename V::R;
    constexpr int L = V::L, P = Q::P;
    const int64_t N = p->length, M = p->convLength;
    const C* rot = static_cast<const C*>(p->rotTab);
    const C* post = static_cast<const C*>(p->postTab);
    T* at = &a->re;
    const T* ch = &static_cast<const C*>(p->chirpTab)->re;
    if (N & 1) {
        Q::realTimes(y, &rot->re, at, N, M);
        if (VrxStatus st = convolve<T>(p, a, work)) return st;
        // x = re(a chirp): the part products of two registers of pairs split into real and imaginary lanes
        for (int64_t n = 0; n < N; n += L) {
            const int64_t c = N - n < L ? N - n : L;
            R re, im;
            simd::deinterleave(F::mul(Q::load(at, n, Q::count(c, 0)), Q::load(ch, n, Q::count(c, 0))),
                               F::mul(Q::load(at, n + P, Q::count(c, 1)), Q::load(ch, n + P, Q::count(c, 1))), re, im);
            V::storeR(x + n, c, F::sub(re, im));
        }
        return vrxOk;
    }
    const C* chirp = static_cast<const C*>(p->chirpTab);
    const int64_t h = N / 2;
    const T s0 = post[0].re;
    // R'(k) = post[k] (y[k] - i y[N-k]); R'(0) = s0 y[0], R'(h) = s0 y[h]
    // Z'(k) = (R'(k) + conj R'(h-k)) + i conj(r_k) (R'(k) - conj R'(h-k)); a = conj(Z')
    {
        const T pr = s0 * y[0], qr = s0 * y[h];
        const T Ar = pr + qr, Dr = pr - qr;
        const T cr = rot[0].re, ci = rot[0].im;
        const T er = cr * Dr - ci * T(0), ei = cr * T(0) + ci * Dr;
        const T zr = Ar - ei, zi = -(T(0) + er);
        a[0].re = zr * chirp[0].re - zi * chirp[0].im;
        a[0].im = zr * chirp[0].im + zi * chirp[0].re;
    }
    // k and h-k from one pair P = R'(k), Q = conj R'(h-k): for h-k the sum
    // is (Ar, -Ai) and the difference (-Dr, Di)
    const int64_t half = h / 2;
    // the values of k from 1 to h/2 in groups (pairGroups)
    const auto group = [&](int64_t k, int64_t c) __attribute__((always_inline)) {
        R gr, gi, hr, hi, cr, ci;
        V::load(post + k, c, gr, gi);
        V::loadRev(post + h - k, c, hr, hi);
        V::load(rot + k, c, cr, ci);
        const R u = V::loadR(y + k, c), v = V::loadRRev(y + N - k, c);
        const R u2 = V::loadRRev(y + h - k, c), v2 = V::loadR(y + h + k, c);
        const R pr = F::add(F::mul(gr, u), F::mul(gi, v)), pi = F::sub(F::mul(gi, u), F::mul(gr, v));
        const R qr = F::add(F::mul(hr, u2), F::mul(hi, v2)), qi = F::neg(F::sub(F::mul(hi, u2), F::mul(hr, v2)));
        const R Ar = F::add(pr, qr), Ai = F::add(pi, qi), Dr = F::sub(pr, qr), Di = F::sub(pi, qi);
        const R er = F::sub(F::mul(cr, Dr), F::mul(ci, Di)), ei = F::add(F::mul(cr, Di), F::mul(ci, Dr));
        R zr = F::sub(Ar, ei), zi = F::neg(F::add(Ai, er)), wr, wi;
        V::load(chirp + k, c, wr, wi);
        V::mul(zr, zi, wr, wi);
        V::store(a + k, c, zr, zi);
        V::loadRev(rot + h - k, c, cr, ci);
        const R fr = F::add(F::mul(cr, Dr), F::mul(ci, Di)), fi = F::sub(F::mul(cr, Di), F::mul(ci, Dr));
        zr = F::sub(Ar, fi);
        zi = F::add(Ai, fr);
        V::loadRev(chirp + h - k, c, wr, wi);
        V::mul(zr, zi, wr, wi);
        V::storeRev(a + h - k, c, zr, zi);
    };
    if (pairGroups<L>(h, group)) {
        const int64_t m = half;
        const T u = y[m], v = y[N - m], gr = post[m].re, gi = post[m].im;
        const T pr = gr * u + gi * v, pi = gi * u - gr * v;
        const T qr = gr * u + gi * v, qi = -(gi * u - gr * v);
        const T Ar = pr + qr, Ai = pi + qi, Dr = pr - qr, Di = pi - qi;
        const T cr = rot[m].re, ci = rot[m].im;
        const T fr = cr * Dr + ci * Di, fi = cr * Di - ci * Dr;
        const T zr = Ar - fi, zi = Ai + fr, wr = chirp[m].re, wi = chirp[m].im;
        a[m].re = zr * wr - zi * wi;
        a[m].im = zr * wi + zi * wr;
    }
    Q::zero(at, N, 2 * M);
    if (VrxStatus st = convolve<T>(p, a, work)) return st;
    // t[2j] = re, t[2j+1] = -im of a times the chirp; x[2m] = t[m] (m < h), x[2N-2m-1] = t[m] (m >= h)
    joinEvenOdd<T>(at, x, N, [ch](R v, int64_t i, typename F::M m) {
        return Q::negOdd(simd::cmulRound<T>(v, F::loadm(m, ch + i)));
    });
    if (h & 1) {  // the pair of t[h-1] and t[h] was split between the registers
        const typename F::M m2 = simd::tail<T>(2);
        F::storem(x + N - 2, m2, Q::negOdd(simd::cmulRound<T>(F::loadm(m2, at + h - 1), F::loadm(m2, ch + h - 1))));
    }
    return vrxOk;
}

// ------------------------------------------------------------ dispatch

// The paths past the kernels, with the frame they need (the kernels are
// called before it is set up).
template <class T, bool Inv>
__attribute__((noinline)) VrxStatus runPath(const Plan* p, const T* src, T* dst, uint8_t* pBuf) {
    using W = Width<T>;
    using C = typename W::C;
    const int64_t N = p->length;
    uint8_t* buf = align64(pBuf);
    if (p->useFft) {
        T* t = reinterpret_cast<T*>(buf);
        uint8_t* work = buf + sizeof(T) * N;
        const auto* inner = static_cast<const typename W::RPlan*>(p->innerPlan);
        const T* q = static_cast<const T*>(p->postTab);
        if (Inv) {
            preInv<T>(src, q, t, N);
            if (VrxStatus st = W::rInv(t, inner, work)) return st;
            joinEvenOdd<T>(t, dst, N);
        } else {
            splitEvenOdd<T>(src, t, N);
            if (VrxStatus st = W::rFwd(t, inner, work)) return st;
            postFwd<T>(t, q, dst, N);
        }
        return vrxOk;
    }
    if (p->useConv) {
        C* a = reinterpret_cast<C*>(buf);
        uint8_t* work = buf + sizeof(C) * static_cast<size_t>(p->convLength);
        return Inv ? convInv<T>(p, src, dst, a, work) : convFwd<T>(p, src, dst, a, work);
    }
    if (Inv) directInv<T>(p, src, dst);
    else directFwd<T>(p, src, dst);
    return vrxOk;
}

template <class T, bool Inv>
VrxStatus run(const T* src, T* dst, const void* planV, uint8_t* pBuf) {
    using W = Width<T>;
    if (anyNull(planV, src, dst)) return vrxErrNullPtr;
    const Plan* p;
    if (VrxStatus st = open(planV, Inv ? W::kInv : W::kFwd, &p)) return st;
    if (!pBuf && p->workSize > 0) return vrxErrNullPtr;
    if (p->useKernel) {
        if (Inv) kernelInv<T>(static_cast<int>(p->length), src, dst);
        else kernelFwd<T>(static_cast<int>(p->length), src, dst);
        return vrxOk;
    }
    return runPath<T, Inv>(p, src, dst, pBuf);
}

}  // namespace n0::dct
