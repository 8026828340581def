// Shared pieces of the DFT tests: the plan choice and sizes recomputed from
// the documented rules, plans in guarded memory, a long-double reference
// for any length.
#pragma once

#include <math.h>
#include <stdint.h>

#include <algorithm>
#include <memory>
#include <vector>

#include "test_fft_common.h"

namespace dt {

using ft::CLD;
using ft::LD;

enum class K { C, S, R };  // interleaved complex, split complex, real
enum class Path { Small, Fft, Pf, Dir, Conv, HalfSmall, Fail };

inline int64_t a64(int64_t x) { return (x + 63) & ~int64_t(63); }

// ------------------------------------------------------------ the plan rules

// Factor records of n: 4s, a 2 in front, trial divisors, the 2*3 merge.
inline std::vector<int> factorList(int n, int trial) {
    std::vector<int> f;
    int r = n;
    while (r % 4 == 0) { f.push_back(4); r /= 4; }
    if (r % 2 == 0) { f.insert(f.begin(), 2); r /= 2; }
    if (r > 8) {
        for (int d = 3; d * d <= r;) {
            if (r % d == 0) {
                r /= d;
                if (d == 3 && !f.empty() && f[0] == 2) f[0] = 6;
                else f.push_back(d);
            } else if ((d += 2) > trial) {
                return {};
            }
        }
    }
    if (f.empty()) return {};
    if (r > (n % 2 == 0 ? 150 : trial)) return {};
    if (r == 3 && f[0] == 2) f[0] = 6;
    else f.push_back(r);
    return f;
}

inline void reorder(std::vector<int>& f) {
    if (f.size() >= 2 && f[1] == 4 && f[0] != 6) { f[0] *= 4; f.erase(f.begin() + 1); }
    const int a = f[0];
    if (f.size() >= 2 && (a == 2 || a == 4 || a == 6 || a == 8 || a == 16)) std::swap(f[0], f.back());
}

struct Expect {
    VrxStatus st = vrxOk;
    int64_t spec = 0, init = 0, work = 0;
    Path path = Path::Fail;
    int n = 0, M = 0;
    std::vector<int> f;
};

// Sizes of the prime-factor engine for the records f of length n.
inline void pfAdd(Expect& x, const std::vector<int>& f, int n, bool real, int e, int unit) {
    static const int primeC[] = {2, 3, 4, 5, 6, 7, 8, 11, 13, 16}, factC[] = {2, 3, 4, 5, 7, 11, 13};
    static const int primeR[] = {11, 13}, factR[] = {5, 7, 11, 13};
    auto in = [](int v, const int* b, const int* e2) { return std::find(b, e2, v) != e2; };
    const int L = static_cast<int>(f.size()) - 2;
    int64_t P = 0, rest = n, t = 0, b = 1;
    int g = -1;
    for (int i = 0; i <= L; ++i) {
        if (g < 0 && rest <= unit) g = i;
        rest /= f[i];
        P += a64(int64_t(e) * f[i] * rest);
        if (f[i] % 2 && f[i] >= 14 && (i == 0 || f[i - 1] != f[i])) P += a64(3LL * (e / 2) * f[i]);
        const bool fixed = real ? in(f[i], factR, factR + 4) : in(f[i], factC, factC + 7);
        if (!fixed) t = std::max<int64_t>(t, rest % 2 == 0 ? 2 * f[i] : f[i]);
    }
    const int last = f.back();
    if (last % 2 && last >= 14) P += a64(3LL * (e / 2) * last);
    const bool fixedLast = real ? in(last, primeR, primeR + 2) : in(last, primeC, primeC + 10);
    if (!fixedLast) t = std::max<int64_t>(t, last);
    if (g < 0) g = L;
    for (int i = g; i <= L; ++i) b *= f[i];
    if (!real) P += a64(4 * b);
    x.spec += a64(P);
    if (real) {
        x.init += a64(2 * a64(4LL * n));
        x.work += a64(t > 0 ? t * e + 128 : 0);
    } else {
        x.work += a64((int64_t(n) + t) * e + 128);
    }
}

template <class T> Expect expected(K k, int N, int flag);

inline int convLen(int n) {
    static const int tab[] = {128, 144, 160, 192, 200, 256, 288, 320, 384, 400, 512, 576, 640, 768, 800, 1024,
                              1152, 1280, 1536, 1600, 2048, 2304, 2560, 3072, 3200, 4096, 4608, 5120, 6144, 6400, 8192};
    const int64_t L = 2LL * n - 1;
    if (L <= 8192) return *std::lower_bound(std::begin(tab), std::end(tab), static_cast<int>(L));
    int64_t m = 1;
    while (m < L) m *= 2;
    return static_cast<int>(m);
}

template <class T> VrxStatus fftSizes(K k, int o, int f, int* s, int* i, int* w) {
    using A = ft::Api<T>;
    return (k == K::C ? A::kc().getSize : k == K::S ? A::ks().getSize : A::kr().getSize)(o, f, 0, s, i, w);
}

template <class T> Expect expected(K k, int N, int flag) {
    Expect x;
    const int e = 2 * sizeof(T), trial = sizeof(T) == 4 ? 50 : 90, unit = sizeof(T) == 4 ? 2000 : 500;
    const int maxN = sizeof(T) == 4 ? 134217727 : 67108863, convMax = sizeof(T) == 4 ? 67108863 : 33554431;
    if (N < 1) { x.st = vrxErrBadLength; return x; }
    if (flag != 1 && flag != 2 && flag != 4 && flag != 8) { x.st = vrxErrFftFlag; return x; }
    x.spec = 768;
    x.n = N;
    if (N <= 16) {
        x.path = Path::Small;
    } else if ((N & (N - 1)) == 0) {
        x.path = Path::Fft;
        int s, i, w;
        if ((x.st = fftSizes<T>(k, __builtin_ctz(N), flag, &s, &i, &w)) != vrxOk) return x;
        x.spec += a64(s);
        x.init += a64(i);
        x.work += a64(w);
    } else {
        if (N > maxN) { x.st = vrxErrBadLength; return x; }
        x.init += a64(int64_t(e) * N);
        int n = N;
        const bool half = k == K::R && N % 2 == 0;
        if (half) {
            x.spec += 2 * a64(int64_t(e) * ((N + 3) / 4) + e);
            n = N / 2;
        }
        x.n = n;
        std::vector<int> f = factorList(n, trial);
        if (half && n <= 16) {
            x.path = Path::HalfSmall;
        } else if (!f.empty()) {
            const bool real = k == K::R && !half;
            if (!real) reorder(f);
            x.f = f;
            x.path = Path::Pf;
            pfAdd(x, f, n, real, e, unit);
        } else if (n <= trial) {
            x.path = Path::Dir;
            x.spec += a64(3LL * (e / 2) * n);
            x.work += a64(int64_t(e) * n);
        } else if (n <= convMax) {
            x.path = Path::Conv;
            x.M = convLen(n);
            const Expect in = expected<T>(K::C, x.M, 8);
            const int64_t s = in.spec, i = in.init, w = in.work;
            const int64_t Fc = int64_t(e) * x.M + a64(w) + 64;
            x.spec += a64(a64(int64_t(e) * n) + a64(int64_t(e) * x.M) + a64(s));
            x.init += a64((half ? 0 : a64(2LL * n)) + a64(i) + a64(Fc));
            x.work += a64(a64(w) + a64(Fc));
        } else {
            x.st = vrxErrBadLength;
            return x;
        }
    }
    if (x.spec) x.spec += 64;
    if (x.init) x.init += 64;
    if (x.work) x.work += 64;
    return x;
}

// ------------------------------------------------------------ API by width

template <class T> struct Api {
    using C = std::conditional_t<sizeof(T) == 4, Vrx32fc, Vrx64fc>;
    using PC = std::conditional_t<sizeof(T) == 4, VrxsDftPlan_C_32fc, VrxsDftPlan_C_64fc>;
    using PS = std::conditional_t<sizeof(T) == 4, VrxsDftPlan_C_32f, VrxsDftPlan_C_64f>;
    using PR = std::conditional_t<sizeof(T) == 4, VrxsDftPlan_R_32f, VrxsDftPlan_R_64f>;
    static constexpr auto sizeC = ft::pick<T>(vrxsDFTGetSize_C_32fc, vrxsDFTGetSize_C_64fc), initC = ft::pick<T>(vrxsDFTInit_C_32fc, vrxsDFTInit_C_64fc);
    static constexpr auto sizeS = ft::pick<T>(vrxsDFTGetSize_C_32f, vrxsDFTGetSize_C_64f), initS = ft::pick<T>(vrxsDFTInit_C_32f, vrxsDFTInit_C_64f);
    static constexpr auto sizeR = ft::pick<T>(vrxsDFTGetSize_R_32f, vrxsDFTGetSize_R_64f), initR = ft::pick<T>(vrxsDFTInit_R_32f, vrxsDFTInit_R_64f);
    static constexpr auto fwdC = ft::pick<T>(vrxsDFTFwd_CToC_32fc, vrxsDFTFwd_CToC_64fc), invC = ft::pick<T>(vrxsDFTInv_CToC_32fc, vrxsDFTInv_CToC_64fc);
    static constexpr auto fwdS = ft::pick<T>(vrxsDFTFwd_CToC_32f, vrxsDFTFwd_CToC_64f), invS = ft::pick<T>(vrxsDFTInv_CToC_32f, vrxsDFTInv_CToC_64f);
    static constexpr auto fwdCCS = ft::pick<T>(vrxsDFTFwd_RToCCS_32f, vrxsDFTFwd_RToCCS_64f), invCCS = ft::pick<T>(vrxsDFTInv_CCSToR_32f, vrxsDFTInv_CCSToR_64f);
    static constexpr auto fwdPack = ft::pick<T>(vrxsDFTFwd_RToPack_32f, vrxsDFTFwd_RToPack_64f), invPack = ft::pick<T>(vrxsDFTInv_PackToR_32f, vrxsDFTInv_PackToR_64f);
    static constexpr auto fwdPerm = ft::pick<T>(vrxsDFTFwd_RToPerm_32f, vrxsDFTFwd_RToPerm_64f), invPerm = ft::pick<T>(vrxsDFTInv_PermToR_32f, vrxsDFTInv_PermToR_64f);
};

template <class T> VrxStatus getSize(K k, int N, int flag, int* s, int* i, int* w) {
    using A = Api<T>;
    return k == K::C ? A::sizeC(N, flag, 0, s, i, w) : k == K::S ? A::sizeS(N, flag, 0, s, i, w) : A::sizeR(N, flag, 0, s, i, w);
}
template <class T> VrxStatus initPlan(K k, int N, int flag, Vrx8u* spec, Vrx8u* init) {
    using A = Api<T>;
    return k == K::C ? A::initC(N, flag, 0, spec, init) : k == K::S ? A::initS(N, flag, 0, spec, init) : A::initR(N, flag, 0, spec, init);
}

// A plan in guarded memory at a chosen misalignment.
struct Plan {
    std::unique_ptr<vt::Buffer> spec, init, work;
    int specSize = 0, initSize = 0, workSize = 0;
    VrxStatus st = vrxOk;
    Vrx8u* p() { return spec->data(); }
    Vrx8u* w() { return work ? work->data() : nullptr; }
};
template <class T> std::unique_ptr<Plan> makePlan(K k, int N, int flag, size_t mis = 0) {
    auto pl = std::make_unique<Plan>();
    pl->st = getSize<T>(k, N, flag, &pl->specSize, &pl->initSize, &pl->workSize);
    if (pl->st != vrxOk) return pl;
    pl->spec = std::make_unique<vt::Buffer>(pl->specSize, mis);
    if (pl->initSize) pl->init = std::make_unique<vt::Buffer>(pl->initSize, mis);
    if (pl->workSize) pl->work = std::make_unique<vt::Buffer>(pl->workSize, (mis * 3) % 64);
    pl->st = initPlan<T>(k, N, flag, pl->spec->data(), pl->init ? pl->init->data() : nullptr);
    return pl;
}

// ------------------------------------------------------------ reference

// The DFT in long double for any length: the shared reference up to 256
// points and for powers of two, chirp-z over its radix-2 FFT otherwise.
// inverse: unscaled.
inline std::vector<CLD> refAny(const std::vector<CLD>& x, bool inverse) {
    const size_t n = x.size();
    if (n <= 256 || (n & (n - 1)) == 0) return ft::refDft(x, inverse);
    const LD twoPi = 6.283185307179586476925286766559005768L, sg = inverse ? 1 : -1;
    size_t M = 1;
    while (M < 2 * n - 1) M *= 2;
    std::vector<CLD> w(n), a(M), b(M);
    const LD pi = twoPi / 2;
    for (size_t k = 0; k < n; ++k) {
        const uint64_t q = (uint64_t(k) * k) % (2 * n);
        w[k] = CLD(cosl(pi * q / n), sg * sinl(pi * q / n));
    }
    for (size_t k = 0; k < n; ++k) a[k] = x[k] * w[k];
    b[0] = std::conj(w[0]);
    for (size_t k = 1; k < n; ++k) b[k] = b[M - k] = std::conj(w[k]);
    auto A = ft::refDft(a, false), B = ft::refDft(b, false);
    for (size_t i = 0; i < M; ++i) A[i] *= B[i];
    auto c = ft::refDft(A, true);
    std::vector<CLD> y(n);
    for (size_t k = 0; k < n; ++k) y[k] = c[k] * w[k] / static_cast<LD>(M);
    return y;
}

// The accuracy bound: 2e-7 (single) or 4e-16 (double) times ceil(log2 len),
// at least 1; len is M on the convolution path, else N.
template <class T> LD bound(int N, const Expect& x) {
    const int len = x.path == Path::Conv ? x.M : N;
    int lg = 0;
    while ((1LL << lg) < len) ++lg;
    return (sizeof(T) == 4 ? 2e-7L : 4e-16L) * std::max(lg, 1);
}

}  // namespace dt
