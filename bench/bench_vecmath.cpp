// Vector math: the tier entries and the exported float families against
// SLEEF's AVX-512F vector functions of the same width (u10 for the HA
// tiers, u35 for LA and EP), at 1 Ki and 64 Ki elements.
//
// Run with --vrx_accuracy to measure the maximum ulp error of every entry
// and exported float function against long double over ten million
// arguments each (and the special values) instead of timing.

// The tier entries are internal: they are declared by the library's internal
// headers and linked from its objects, compiled with the library's flags.
#include <math.h>

#include <bit>

#include "vrx_tiers.h"
#include "../src/vecmath/vm_kernels.h"

#include <benchmark/benchmark.h>
#include <math.h>
#include <stdio.h>
#include <string.h>

#include <vector>

#include "vrx_tiers.h"

// The public header was read above as the library's internal declarations;
// the exported functions timed here are declared again as the caller sees them.
extern "C" {
VrxStatus vrxsExp_64f(const Vrx64f*, Vrx64f*, int);
VrxStatus vrxsArctan_64f(const Vrx64f*, Vrx64f*, int);
VrxStatus vrxsArctan_32f(const Vrx32f*, Vrx32f*, int);
VrxStatus vrxsCubrt_64f(const Vrx64f*, Vrx64f*, int);
VrxStatus vrxsCubrt_32f(const Vrx32f*, Vrx32f*, int);
VrxStatus vrxsSqrt_32f(const Vrx32f*, Vrx32f*, int);
VrxStatus vrxsMagnitude_32fc(const Vrx32fc*, Vrx32f*, int);
}

#ifdef VRX_HAVE_SLEEF
#include <sleef.h>
#endif

namespace {

uint64_t gSeed = 0x1234567;
double uni() {
    uint64_t z = (gSeed += 0x9E3779B97F4A7C15ull);
    z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9ull;
    z = (z ^ (z >> 27)) * 0x94D049BB133111EBull;
    return static_cast<double>((z ^ (z >> 31)) >> 11) * 0x1.0p-53;
}

template <class T>
std::vector<T> data(size_t n, double lo, double hi) {
    std::vector<T> v(n);
    for (auto& x : v) x = static_cast<T>(lo + (hi - lo) * uni());
    return v;
}

// ---------------------------------------------------------- timing
using LibD = VrxStatus (*)(const double*, double*, int);
using LibS = VrxStatus (*)(const float*, float*, int);

template <class T, class F>
void runLib(benchmark::State& st, F f, double lo, double hi);
void runLibD(benchmark::State& st, LibD f, double lo, double hi) { runLib<double>(st, f, lo, hi); }
void runLibS(benchmark::State& st, LibS f, double lo, double hi) { runLib<float>(st, f, lo, hi); }
template <class T, class F>
void runLib(benchmark::State& st, F f, double lo, double hi) {
    size_t n = st.range(0);
    auto x = data<T>(n, lo, hi);
    std::vector<T> y(n);
    for (auto _ : st) {
        f(x.data(), y.data(), static_cast<int>(n));
        benchmark::DoNotOptimize(y.data());
    }
    st.SetItemsProcessed(st.iterations() * n);
}

#ifdef VRX_HAVE_SLEEF
template <class F>
void runSleefD(benchmark::State& st, F f, double lo, double hi) {
    size_t n = st.range(0);
    auto x = data<double>(n, lo, hi);
    std::vector<double> y(n);
    for (auto _ : st) {
        for (size_t i = 0; i < n; i += 8) _mm512_storeu_pd(y.data() + i, f(_mm512_loadu_pd(x.data() + i)));
        benchmark::DoNotOptimize(y.data());
    }
    st.SetItemsProcessed(st.iterations() * n);
}
template <class F>
void runSleefS(benchmark::State& st, F f, double lo, double hi) {
    size_t n = st.range(0);
    auto x = data<float>(n, lo, hi);
    std::vector<float> y(n);
    for (auto _ : st) {
        for (size_t i = 0; i < n; i += 16) _mm512_storeu_ps(y.data() + i, f(_mm512_loadu_ps(x.data() + i)));
        benchmark::DoNotOptimize(y.data());
    }
    st.SetItemsProcessed(st.iterations() * n);
}
#endif

// two-output and two-input library forms as unary callables
VrxStatus sinCos53(const double* s, double* d, int n) {
    static thread_local std::vector<double> c(1 << 16);
    return n0_vrxsSinCos_64f_A53(s, d, c.data(), n);
}
VrxStatus sinCos50(const double* s, double* d, int n) {
    static thread_local std::vector<double> c(1 << 16);
    return n0_vrxsSinCos_64f_A50(s, d, c.data(), n);
}
VrxStatus sinCos26(const double* s, double* d, int n) {
    static thread_local std::vector<double> c(1 << 16);
    return n0_vrxsSinCos_64f_A26(s, d, c.data(), n);
}
VrxStatus sinCosS21(const float* s, float* d, int n) {
    static thread_local std::vector<float> c(1 << 16);
    return n0_vrxsSinCos_32f_A21(s, d, c.data(), n);
}
VrxStatus atan2D(const double* s, double* d, int n) { return n0_vrxsAtan2_64f_A50(s, s + 1, d, n - 1); }
VrxStatus atan2S(const float* s, float* d, int n) { return n0_vrxsAtan2_32f_A21(s, s + 1, d, n - 1); }
VrxStatus absZ(const double* s, double* d, int n) { return n0_vrxsAbs_64fc_A50(reinterpret_cast<const Vrx64fc*>(s), d, n / 2); }
VrxStatus powx(const double* s, double* d, int n) { return n0_vrxsPowx_64f_A53(s, 1.37, d, n); }
VrxStatus sinEP(const double* s, double* d, int n) { return n0_own_vrxs_dSin_B3_ttab[2](s, d, n); }

#define LIB_D(name, fn, lo, hi) \
    BENCHMARK_CAPTURE(runLibD, name, fn, lo, hi)->Arg(1024)->Arg(65536)
#define LIB_S(name, fn, lo, hi) \
    BENCHMARK_CAPTURE(runLibS, name, fn, lo, hi)->Arg(1024)->Arg(65536)

LIB_D(vrx_Sin_64f_A53, n0_vrxsSin_64f_A53, -100, 100);
LIB_D(vrx_Sin_64f_A50, n0_vrxsSin_64f_A50, -100, 100);
LIB_D(vrx_Sin_64f_EP, sinEP, -100, 100);
LIB_D(vrx_Cos_64f_A53, n0_vrxsCos_64f_A53, -100, 100);
LIB_D(vrx_Cos_64f_A50, n0_vrxsCos_64f_A50, -100, 100);
LIB_D(vrx_Cos_64f_A26, n0_vrxsCos_64f_A26, -100, 100);
LIB_D(vrx_SinCos_64f_A53, sinCos53, -100, 100);
LIB_D(vrx_SinCos_64f_A50, sinCos50, -100, 100);
LIB_D(vrx_SinCos_64f_A26, sinCos26, -100, 100);
LIB_S(vrx_Sin_32f_A24, n0_vrxsSin_32f_A24, -100, 100);
LIB_S(vrx_Sin_32f_A21, n0_vrxsSin_32f_A21, -100, 100);
LIB_S(vrx_Cos_32f_A24, n0_vrxsCos_32f_A24, -100, 100);
LIB_S(vrx_SinCos_32f_A21, sinCosS21, -100, 100);
LIB_D(vrx_Ln_64f_A53, n0_vrxsLn_64f_A53, 1e-3, 1e3);
LIB_S(vrx_Ln_32f_A21, n0_vrxsLn_32f_A21, 1e-3, 1e3);
LIB_S(vrx_Exp_32f_A21, n0_vrxsExp_32f_A21, -80, 80);
LIB_D(vrx_Sinh_64f_A53, n0_vrxsSinh_64f_A53, -20, 20);
LIB_D(vrx_Cosh_64f_A53, n0_vrxsCosh_64f_A53, -20, 20);
LIB_D(vrx_Sqrt_64f_A53, n0_vrxsSqrt_64f_A53, 0, 1e6);
LIB_D(vrx_Powx_64f_A53, powx, 0, 100);
LIB_D(vrx_Atan2_64f_A50, atan2D, -10, 10);
LIB_S(vrx_Atan2_32f_A21, atan2S, -10, 10);
LIB_D(vrx_Abs_64fc_A50, absZ, -10, 10);
LIB_D(vrx_Exp_64f, vrxsExp_64f, -700, 700);
LIB_D(vrx_Arctan_64f, vrxsArctan_64f, -10, 10);
LIB_S(vrx_Arctan_32f, vrxsArctan_32f, -10, 10);

#ifdef VRX_HAVE_SLEEF
template <class F>
void runSleefD2(benchmark::State& st, F f, double lo, double hi) {  // sincos: two outputs
    size_t n = st.range(0);
    auto x = data<double>(n, lo, hi);
    std::vector<double> s(n), c(n);
    for (auto _ : st) {
        for (size_t i = 0; i < n; i += 8) {
            auto r = f(_mm512_loadu_pd(x.data() + i));
            _mm512_storeu_pd(s.data() + i, r.x);
            _mm512_storeu_pd(c.data() + i, r.y);
        }
        benchmark::DoNotOptimize(s.data());
        benchmark::DoNotOptimize(c.data());
    }
    st.SetItemsProcessed(st.iterations() * n);
}
template <class F>
void runSleefS2(benchmark::State& st, F f, double lo, double hi) {
    size_t n = st.range(0);
    auto x = data<float>(n, lo, hi);
    std::vector<float> s(n), c(n);
    for (auto _ : st) {
        for (size_t i = 0; i < n; i += 16) {
            auto r = f(_mm512_loadu_ps(x.data() + i));
            _mm512_storeu_ps(s.data() + i, r.x);
            _mm512_storeu_ps(c.data() + i, r.y);
        }
        benchmark::DoNotOptimize(s.data());
        benchmark::DoNotOptimize(c.data());
    }
    st.SetItemsProcessed(st.iterations() * n);
}
// two inputs: element i and i+1, as the library forms above
template <class F>
void runSleefD21(benchmark::State& st, F f, double lo, double hi) {
    size_t n = st.range(0);
    auto x = data<double>(n + 8, lo, hi);
    std::vector<double> y(n);
    for (auto _ : st) {
        for (size_t i = 0; i + 8 <= n; i += 8)
            _mm512_storeu_pd(y.data() + i, f(_mm512_loadu_pd(x.data() + i), _mm512_loadu_pd(x.data() + i + 1)));
        benchmark::DoNotOptimize(y.data());
    }
    st.SetItemsProcessed(st.iterations() * n);
}
template <class F>
void runSleefS21(benchmark::State& st, F f, double lo, double hi) {
    size_t n = st.range(0);
    auto x = data<float>(n + 16, lo, hi);
    std::vector<float> y(n);
    for (auto _ : st) {
        for (size_t i = 0; i + 16 <= n; i += 16)
            _mm512_storeu_ps(y.data() + i, f(_mm512_loadu_ps(x.data() + i), _mm512_loadu_ps(x.data() + i + 1)));
        benchmark::DoNotOptimize(y.data());
    }
    st.SetItemsProcessed(st.iterations() * n);
}
// complex magnitude over interleaved data: n/2 results, as the library form
void runSleefHypot(benchmark::State& st) {
    size_t n = st.range(0);
    auto x = data<double>(n, -10, 10);
    std::vector<double> y(n / 2);
    const __m512i ie = _mm512_set_epi64(14, 12, 10, 8, 6, 4, 2, 0), io = _mm512_set_epi64(15, 13, 11, 9, 7, 5, 3, 1);
    for (auto _ : st) {
        for (size_t i = 0; i < n; i += 16) {
            __m512d a = _mm512_loadu_pd(x.data() + i), b = _mm512_loadu_pd(x.data() + i + 8);
            _mm512_storeu_pd(y.data() + i / 2, Sleef_hypotd8_u35avx512f(_mm512_permutex2var_pd(a, ie, b),
                                                                        _mm512_permutex2var_pd(a, io, b)));
        }
        benchmark::DoNotOptimize(y.data());
    }
    st.SetItemsProcessed(st.iterations() * n);
}
void runSleefPow(benchmark::State& st) {
    size_t n = st.range(0);
    auto x = data<double>(n, 0, 100);
    std::vector<double> y(n);
    for (auto _ : st) {
        for (size_t i = 0; i < n; i += 8)
            _mm512_storeu_pd(y.data() + i, Sleef_powd8_u10avx512f(_mm512_loadu_pd(x.data() + i), _mm512_set1_pd(1.37)));
        benchmark::DoNotOptimize(y.data());
    }
    st.SetItemsProcessed(st.iterations() * n);
}

#define SLEEF_D(name, fn, lo, hi) \
    BENCHMARK_CAPTURE(runSleefD, name, [](__m512d v) { return fn(v); }, lo, hi)->Arg(1024)->Arg(65536)
#define SLEEF_S(name, fn, lo, hi) \
    BENCHMARK_CAPTURE(runSleefS, name, [](__m512 v) { return fn(v); }, lo, hi)->Arg(1024)->Arg(65536)
#define SLEEF_D2(name, fn, lo, hi) \
    BENCHMARK_CAPTURE(runSleefD2, name, [](__m512d v) { return fn(v); }, lo, hi)->Arg(1024)->Arg(65536)
#define SLEEF_S2(name, fn, lo, hi) \
    BENCHMARK_CAPTURE(runSleefS2, name, [](__m512 v) { return fn(v); }, lo, hi)->Arg(1024)->Arg(65536)
SLEEF_D(sleef_sind8_u10, Sleef_sind8_u10avx512f, -100, 100);
SLEEF_D(sleef_sind8_u35, Sleef_sind8_u35avx512f, -100, 100);
SLEEF_D(sleef_cosd8_u10, Sleef_cosd8_u10avx512f, -100, 100);
SLEEF_D(sleef_cosd8_u35, Sleef_cosd8_u35avx512f, -100, 100);
SLEEF_D2(sleef_sincosd8_u10, Sleef_sincosd8_u10avx512f, -100, 100);
SLEEF_D2(sleef_sincosd8_u35, Sleef_sincosd8_u35avx512f, -100, 100);
SLEEF_S(sleef_sinf16_u10, Sleef_sinf16_u10avx512f, -100, 100);
SLEEF_S(sleef_sinf16_u35, Sleef_sinf16_u35avx512f, -100, 100);
SLEEF_S(sleef_cosf16_u10, Sleef_cosf16_u10avx512f, -100, 100);
SLEEF_S2(sleef_sincosf16_u35, Sleef_sincosf16_u35avx512f, -100, 100);
SLEEF_D(sleef_logd8_u10, Sleef_logd8_u10avx512f, 1e-3, 1e3);
SLEEF_S(sleef_logf16_u35, Sleef_logf16_u35avx512f, 1e-3, 1e3);
SLEEF_S(sleef_expf16_u10, Sleef_expf16_u10avx512f, -80, 80);
SLEEF_D(sleef_sinhd8_u10, Sleef_sinhd8_u10avx512f, -20, 20);
SLEEF_D(sleef_coshd8_u10, Sleef_coshd8_u10avx512f, -20, 20);
SLEEF_D(sleef_sqrtd8_u05, Sleef_sqrtd8_u05avx512f, 0, 1e6);
SLEEF_D(sleef_expd8_u10, Sleef_expd8_u10avx512f, -700, 700);
SLEEF_D(sleef_atand8_u10, Sleef_atand8_u10avx512f, -10, 10);
SLEEF_S(sleef_atanf16_u10, Sleef_atanf16_u10avx512f, -10, 10);
BENCHMARK_CAPTURE(runSleefD21, sleef_atan2d8_u35, [](__m512d a, __m512d b) { return Sleef_atan2d8_u35avx512f(a, b); }, -10, 10)->Arg(1024)->Arg(65536);
BENCHMARK_CAPTURE(runSleefS21, sleef_atan2f16_u35, [](__m512 a, __m512 b) { return Sleef_atan2f16_u35avx512f(a, b); }, -10, 10)->Arg(1024)->Arg(65536);
BENCHMARK(runSleefHypot)->Name("runSleefHypot/sleef_hypotd8_u35")->Arg(1024)->Arg(65536);
BENCHMARK(runSleefPow)->Name("runSleefPow/sleef_powd8_u10")->Arg(1024)->Arg(65536);
#endif

// ------------------------------------------------------ accuracy sweep
template <class T>
double ulpErr(T got, long double ref) {
    constexpr int p = std::numeric_limits<T>::digits, emin = std::numeric_limits<T>::min_exponent;
    if (isnan(got) && isnan(ref)) return 0;
    if (isinf(ref) || isinf(got)) return got == static_cast<T>(ref) ? 0 : 1e30;  // overflow of the type
    int e;
    frexpl(ref, &e);
    if (ref == 0 || e < emin) e = emin;
    return (double)(fabsl((long double)got - ref) / ldexpl(1.0L, e - p));
}

struct Domain { double lo, hi; bool logScale, sym; };

// max ulp error (and, with rel, max relative error) over n arguments
template <class T, class F, class R>
void sweep(const char* name, F f, R ref, std::initializer_list<Domain> doms, std::initializer_list<double> specials,
           long n = 10000000, bool rel = false) {
    const int block = 1 << 16;
    std::vector<T> x(block), y(block);
    double worst = 0, worstRel = 0, at = 0;
    long per = n / static_cast<long>(doms.size());
    auto check = [&](int m) {
        f(x.data(), y.data(), m);
        for (int i = 0; i < m; ++i) {
            long double r = ref((long double)x[i]);
            double e = ulpErr<T>(y[i], r);
            if (e > worst) { worst = e; at = x[i]; }
            if (rel && r != 0 && isfinite((double)r)) worstRel = std::max(worstRel, (double)fabsl((y[i] - r) / r));
        }
    };
    for (const auto& d : doms) {
        for (long done = 0; done < per; done += block) {
            int m = static_cast<int>(std::min<long>(block, per - done));
            for (int i = 0; i < m; ++i) {
                double u = uni();
                double v = d.logScale ? exp(log(d.lo) + u * (log(d.hi) - log(d.lo))) : d.lo + u * (d.hi - d.lo);
                if (d.sym && (gSeed & 64)) v = -v;
                x[i] = static_cast<T>(v);
            }
            check(m);
        }
    }
    int m = 0;
    for (double s : specials) x[m++] = static_cast<T>(s);
    check(m);
    if (rel) printf("%-26s max ulp %12.3f   max rel %.3g (2^%.2f)   at %a\n", name, worst, worstRel, log2(worstRel), at);
    else printf("%-26s max ulp %12.3f   at %a\n", name, worst, at);
}

int accuracy(long n) {
    const double inf = INFINITY, nan = NAN;
    auto sp = {0.0, -0.0, inf, -inf, nan, 4.9e-324, -2.2e-308, 1e22, -1e300, 1.7e308, 0x1p1023, 6381956970095103.0 * 0x1p797};
    auto sl = [](long double x) { return sinl(x); };
    auto cl = [](long double x) { return cosl(x); };
    std::initializer_list<Domain> trig = {{-10, 10, false, false}, {1e-300, 1e300, true, true}, {1, 1e8, true, true}};
    std::initializer_list<Domain> trigS = {{-10, 10, false, false}, {1e-40, 3e38, true, true}, {1, 1e8, true, true}};
    std::initializer_list<Domain> small = {{-1e7, 1e7, false, false}, {1e-300, 16777216, true, true}};
    sweep<double>("Sin_64f_A53", n0_vrxsSin_64f_A53, sl, trig, sp, n);
    sweep<double>("Sin_64f_A50", n0_vrxsSin_64f_A50, sl, trig, sp, n);
    sweep<double>("Sin_64f EP (no entry)", sinEP, sl, small, sp, n, true);
    sweep<double>("Cos_64f_A53", n0_vrxsCos_64f_A53, cl, trig, sp, n);
    sweep<double>("Cos_64f_A50", n0_vrxsCos_64f_A50, cl, trig, sp, n);
    sweep<double>("Cos_64f_A26", n0_vrxsCos_64f_A26, cl, small, sp, n, true);
    sweep<double>("SinCos_64f_A53 (sin)", sinCos53, sl, trig, sp, n);
    sweep<double>("SinCos_64f_A50 (sin)", sinCos50, sl, trig, sp, n);
    sweep<double>("SinCos_64f_A26 (sin)", sinCos26, sl, small, sp, n, true);
    sweep<double>("SinCos_64f_A53 (cos)", [](const double* s, double* d, int k) { std::vector<double> t(k); return n0_vrxsSinCos_64f_A53(s, t.data(), d, k); }, cl, trig, sp, n);
    sweep<double>("SinCos_64f_A50 (cos)", [](const double* s, double* d, int k) { std::vector<double> t(k); return n0_vrxsSinCos_64f_A50(s, t.data(), d, k); }, cl, trig, sp, n);
    sweep<double>("SinCos_64f_A26 (cos)", [](const double* s, double* d, int k) { std::vector<double> t(k); return n0_vrxsSinCos_64f_A26(s, t.data(), d, k); }, cl, small, sp, n, true);
    sweep<float>("Sin_32f_A24", n0_vrxsSin_32f_A24, sl, trigS, sp, n);
    sweep<float>("Sin_32f_A21", n0_vrxsSin_32f_A21, sl, trigS, sp, n);
    sweep<float>("Cos_32f_A24", n0_vrxsCos_32f_A24, cl, trigS, sp, n);
    sweep<float>("SinCos_32f_A21 (sin)", sinCosS21, sl, trigS, sp, n);
    sweep<float>("SinCos_32f_A21 (cos)", [](const float* s, float* d, int k) { std::vector<float> t(k); return n0_vrxsSinCos_32f_A21(s, t.data(), d, k); }, cl, trigS, sp, n);
    auto lnl = [](long double x) { return logl(x); };
    sweep<double>("Ln_64f_A53", n0_vrxsLn_64f_A53, lnl, {{4.9e-324, 1.7e308, true, false}, {0.5, 2, false, false}}, sp, n);
    sweep<float>("Ln_32f_A21", n0_vrxsLn_32f_A21, lnl, {{1.4e-45, 3.4e38, true, false}, {0.5, 2, false, false}}, sp, n);
    auto el = [](long double x) { return expl(x); };
    sweep<float>("Exp_32f_A21", n0_vrxsExp_32f_A21, el, {{-104, 89, false, false}}, sp, n);
    sweep<double>("Exp_64f (exported)", vrxsExp_64f, el, {{-746, 710, false, false}, {1e-300, 1, true, true}}, sp, n);
    sweep<double>("Sinh_64f_A53", n0_vrxsSinh_64f_A53, [](long double x) { return sinhl(x); }, {{-2, 2, false, false}, {1e-300, 711, true, true}}, sp, n);
    sweep<double>("Cosh_64f_A53", n0_vrxsCosh_64f_A53, [](long double x) { return coshl(x); }, {{-2, 2, false, false}, {1e-300, 711, true, true}}, sp, n);
    sweep<double>("Sqrt_64f_A53", n0_vrxsSqrt_64f_A53, [](long double x) { return sqrtl(x); }, {{4.9e-324, 1.7e308, true, false}}, sp, n);
    sweep<double>("Powx_64f_A53 (e=1.37)", powx, [](long double x) { return powl(x, (long double)1.37); }, {{1e-200, 1e200, true, false}}, sp, n);
    sweep<double>("Atan2_64f_A50 (y/x=t)", [](const double* s, double* d, int k) { std::vector<double> one(k, 1.0); return n0_vrxsAtan2_64f_A50(s, one.data(), d, k); }, [](long double x) { return atanl(x); }, {{1e-300, 1e300, true, true}, {-4, 4, false, false}}, sp, n);
    sweep<double>("Atan2_64f_A50 (x=-1)", [](const double* s, double* d, int k) { std::vector<double> one(k, -1.0); return n0_vrxsAtan2_64f_A50(s, one.data(), d, k); }, [](long double x) { return atan2l(x, -1.0L); }, {{1e-300, 1e300, true, true}}, sp, n);
    sweep<float>("Atan2_32f_A21 (y/x=t)", [](const float* s, float* d, int k) { std::vector<float> one(k, 1.0f); return n0_vrxsAtan2_32f_A21(s, one.data(), d, k); }, [](long double x) { return atanl(x); }, {{1e-38, 1e38, true, true}, {-4, 4, false, false}}, sp, n);
    sweep<float>("Atan2_32f_A21 (x=-1)", [](const float* s, float* d, int k) { std::vector<float> one(k, -1.0f); return n0_vrxsAtan2_32f_A21(s, one.data(), d, k); }, [](long double x) { return atan2l(x, -1.0L); }, {{1e-38, 1e38, true, true}}, sp, n);
    sweep<double>("Abs_64fc_A50 (re=x, im=0.7x)", [](const double* s, double* d, int k) { std::vector<Vrx64fc> z(k); for (int i = 0; i < k; ++i) z[i] = {s[i], 0.7 * s[i]}; return n0_vrxsAbs_64fc_A50(z.data(), d, k); }, [](long double x) { long double b = (long double)(0.7 * (double)x); return sqrtl(x * x + b * b); }, {{1e-300, 1e300, true, true}}, sp, n);
    sweep<double>("Arctan_64f (exported)", vrxsArctan_64f, [](long double x) { return atanl(x); }, {{1e-300, 1e300, true, true}, {-4, 4, false, false}}, sp, n);
    sweep<float>("Arctan_32f (exported)", vrxsArctan_32f, [](long double x) { return atanl(x); }, {{1e-38, 1e38, true, true}}, sp, n);
    sweep<double>("Cubrt_64f (exported)", vrxsCubrt_64f, [](long double x) { return cbrtl(x); }, {{4.9e-324, 1.7e308, true, true}}, sp, n);
    sweep<float>("Cubrt_32f (exported)", vrxsCubrt_32f, [](long double x) { return cbrtl(x); }, {{1.4e-45, 3.4e38, true, true}}, sp, n);
    sweep<float>("Sqrt_32f (exported)", vrxsSqrt_32f, [](long double x) { return sqrtl(x); }, {{1.4e-45, 3.4e38, true, false}}, sp, n);
    sweep<float>("Magnitude_32fc (re=x,im=.7x)", [](const float* s, float* d, int k) { std::vector<Vrx32fc> z(k); for (int i = 0; i < k; ++i) z[i] = {s[i], 0.7f * s[i]}; return vrxsMagnitude_32fc(z.data(), d, k); }, [](long double x) { long double b = (long double)(0.7f * (float)x); return sqrtl(x * x + b * b); }, {{1e-30, 1e30, true, true}}, sp, n);
    return 0;
}

}  // namespace

int main(int argc, char** argv) {
    for (int i = 1; i < argc; ++i) {
        if (!strcmp(argv[i], "--vrx_accuracy")) return accuracy(i + 1 < argc ? atol(argv[i + 1]) : 10000000);
    }
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
