// FIR filters side by side with their anchors in one run.
//
// Single-rate 32f (Auto and forced Direct) at 16..4096 taps x 1 Ki and
// 64 Ki samples against liquid-dsp firfilt_rrrf, a VOLK FIR (one
// volk_32f_x2_dot_prod_32f per output over the reversed taps), an FFTW
// overlap-save written here (r2c/c2r, FFTW_MEASURE) at our transform length
// and at 2N..16N, and a plain -O3 -march=native loop; 32fc likewise with
// firfilt_cccf and volk_32fc_x2_dot_prod_32fc; 64f against the loop and
// FFTW double. Multi-rate against firdecim_rrrf, firinterp_rrrf (factors 2,
// 4, 8 with 16 x factor taps) and rresamp_rrrf (3/2, 2/3). SampleUp and
// SampleDown at factors 2, 3, 8 against a scalar loop (1 Ki) and memcpy
// bandwidth (4 Mi, bytes read plus written, memcpy of the larger side).
#include <benchmark/benchmark.h>
#include <string.h>

#include <algorithm>
#include <complex>
#include <vector>

#include "vrxs.h"

#ifdef VRX_HAVE_LIQUID
#include <liquid/liquid.h>
#endif
#ifdef VRX_HAVE_VOLK
#include <volk/volk.h>
#endif
#ifdef VRX_HAVE_FFTW
#include <fftw3.h>
#endif

namespace {

using cf = std::complex<float>;

template <class T> std::vector<T> noise(size_t n, unsigned seed) {
    std::vector<T> v(n);
    unsigned s = seed;
    auto next = [&] { s = s * 1664525u + 1013904223u; return float(int(s >> 9) - (1 << 22)) / float(1 << 22); };
    for (auto& x : v) {
        if constexpr (std::is_same_v<T, cf>) x = cf(next(), next());
        else x = T(next());
    }
    return v;
}

void items(benchmark::State& st, int64_t n) { st.SetItemsProcessed(st.iterations() * n); }

// ------------------------------------------------------------ single rate
template <class T> struct Sr;
template <> struct Sr<float> {
    using St = VrxsFirState_32f; static constexpr int kSel = vrx32f;
    static void init(const float* h, int n, int a, St* s) { vrxsFIRSRInit_32f(h, n, a, s); }
    static void run(const float* x, float* y, int n, const St* s, float* d, Vrx8u* b) { vrxsFIRSR_32f(x, y, n, s, d, d, b); }
};
template <> struct Sr<double> {
    using St = VrxsFirState_64f; static constexpr int kSel = vrx64f;
    static void init(const double* h, int n, int a, St* s) { vrxsFIRSRInit_64f(h, n, a, s); }
    static void run(const double* x, double* y, int n, const St* s, double* d, Vrx8u* b) { vrxsFIRSR_64f(x, y, n, s, d, d, b); }
};
template <> struct Sr<cf> {
    using St = VrxsFirState_32fc; static constexpr int kSel = vrx32fc;
    static void init(const cf* h, int n, int a, St* s) { vrxsFIRSRInit_32fc(reinterpret_cast<const Vrx32fc*>(h), n, a, s); }
    static void run(const cf* x, cf* y, int n, const St* s, cf* d, Vrx8u* b) {
        vrxsFIRSR_32fc(reinterpret_cast<const Vrx32fc*>(x), reinterpret_cast<Vrx32fc*>(y), n, s, reinterpret_cast<Vrx32fc*>(d), reinterpret_cast<Vrx32fc*>(d), b);
    }
};

template <class T>
void vrxSr(benchmark::State& st, int alg) {
    const int N = int(st.range(0)), n = int(st.range(1));
    const auto h = noise<T>(size_t(N), 1), x = noise<T>(size_t(n), 2);
    std::vector<T> y(static_cast<size_t>(n)), dly(static_cast<size_t>(N), T{});
    int s = 0, b = 0;
    vrxsFIRSRGetSize(N, Sr<T>::kSel, &s, &b);
    std::vector<uint8_t> spec(static_cast<size_t>(s)), buf(static_cast<size_t>(b));
    auto* stt = reinterpret_cast<typename Sr<T>::St*>(spec.data());
    Sr<T>::init(h.data(), N, alg, stt);
    for (auto _ : st) {
        Sr<T>::run(x.data(), y.data(), n, stt, dly.data(), buf.data());
        benchmark::DoNotOptimize(y.data());
    }
    items(st, n);
}
void BM_FIRSR_32f_Auto(benchmark::State& st) { vrxSr<float>(st, vrxAlgAuto); }
void BM_FIRSR_32f_Direct(benchmark::State& st) { vrxSr<float>(st, vrxAlgDirect); }
void BM_FIRSR_32fc_Auto(benchmark::State& st) { vrxSr<cf>(st, vrxAlgAuto); }
void BM_FIRSR_32fc_Direct(benchmark::State& st) { vrxSr<cf>(st, vrxAlgDirect); }
void BM_FIRSR_64f_Auto(benchmark::State& st) { vrxSr<double>(st, vrxAlgAuto); }
void BM_FIRSR_64f_Direct(benchmark::State& st) { vrxSr<double>(st, vrxAlgDirect); }

// The plain loop over a joined run of history and input.
template <class T>
void loopSr(benchmark::State& st) {
    const int N = int(st.range(0)), n = int(st.range(1));
    const auto h = noise<T>(size_t(N), 1), x = noise<T>(size_t(n), 2);
    std::vector<T> ext(static_cast<size_t>(n + N - 1), T{}), y(static_cast<size_t>(n));
    for (auto _ : st) {
        memcpy(static_cast<void*>(ext.data() + N - 1), x.data(), sizeof(T) * size_t(n));
        for (int i = 0; i < n; ++i) {
            T a{};
            const T* w = ext.data() + i + N - 1;
            for (int k = 0; k < N; ++k) a += h[size_t(k)] * w[-k];
            y[size_t(i)] = a;
        }
        memmove(static_cast<void*>(ext.data()), ext.data() + n, sizeof(T) * size_t(N - 1));
        benchmark::DoNotOptimize(y.data());
    }
    items(st, n);
}
void BM_Loop_FIR_32f(benchmark::State& st) { loopSr<float>(st); }
void BM_Loop_FIR_32fc(benchmark::State& st) { loopSr<cf>(st); }
void BM_Loop_FIR_64f(benchmark::State& st) { loopSr<double>(st); }

#ifdef VRX_HAVE_LIQUID
void BM_Liquid_firfilt_rrrf(benchmark::State& st) {
    const int N = int(st.range(0)), n = int(st.range(1));
    auto h = noise<float>(size_t(N), 1), x = noise<float>(size_t(n), 2);
    std::vector<float> y(static_cast<size_t>(n));
    firfilt_rrrf q = firfilt_rrrf_create(h.data(), unsigned(N));
    for (auto _ : st) {
        firfilt_rrrf_execute_block(q, x.data(), unsigned(n), y.data());
        benchmark::DoNotOptimize(y.data());
    }
    firfilt_rrrf_destroy(q);
    items(st, n);
}
void BM_Liquid_firfilt_cccf(benchmark::State& st) {
    const int N = int(st.range(0)), n = int(st.range(1));
    auto h = noise<cf>(size_t(N), 1), x = noise<cf>(size_t(n), 2);
    std::vector<cf> y(static_cast<size_t>(n));
    firfilt_cccf q = firfilt_cccf_create(h.data(), unsigned(N));
    for (auto _ : st) {
        firfilt_cccf_execute_block(q, x.data(), unsigned(n), y.data());
        benchmark::DoNotOptimize(y.data());
    }
    firfilt_cccf_destroy(q);
    items(st, n);
}
#endif

#ifdef VRX_HAVE_VOLK
// One dot product per output over the reversed taps.
void BM_Volk_FIR_32f(benchmark::State& st) {
    const int N = int(st.range(0)), n = int(st.range(1));
    auto h = noise<float>(size_t(N), 1), x = noise<float>(size_t(n), 2);
    std::vector<float> hr(h.rbegin(), h.rend()), ext(static_cast<size_t>(n + N - 1), 0.0f), y(static_cast<size_t>(n));
    for (auto _ : st) {
        memcpy(ext.data() + N - 1, x.data(), sizeof(float) * size_t(n));
        for (int i = 0; i < n; ++i) volk_32f_x2_dot_prod_32f(&y[size_t(i)], ext.data() + i, hr.data(), unsigned(N));
        memmove(ext.data(), ext.data() + n, sizeof(float) * size_t(N - 1));
        benchmark::DoNotOptimize(y.data());
    }
    items(st, n);
}
void BM_Volk_FIR_32fc(benchmark::State& st) {
    const int N = int(st.range(0)), n = int(st.range(1));
    auto h = noise<cf>(size_t(N), 1), x = noise<cf>(size_t(n), 2);
    std::vector<cf> hr(h.rbegin(), h.rend()), ext(static_cast<size_t>(n + N - 1)), y(static_cast<size_t>(n));
    for (auto _ : st) {
        memcpy(static_cast<void*>(ext.data() + N - 1), x.data(), sizeof(cf) * size_t(n));
        for (int i = 0; i < n; ++i)
            volk_32fc_x2_dot_prod_32fc(reinterpret_cast<lv_32fc_t*>(&y[size_t(i)]), reinterpret_cast<const lv_32fc_t*>(ext.data() + i),
                                       reinterpret_cast<const lv_32fc_t*>(hr.data()), unsigned(N));
        memmove(static_cast<void*>(ext.data()), ext.data() + n, sizeof(cf) * size_t(N - 1));
        benchmark::DoNotOptimize(y.data());
    }
    items(st, n);
}
#endif

#ifdef VRX_HAVE_FFTW
// Overlap-save with FFTW at transform length F: range(2) 0 means our F
// (the smallest power of two above 2N), m > 0 the smallest one >= m*N.
int olsLength(int N, int m) {
    int F = 4;
    if (m == 0) { int k = 1; while ((1 << k) <= N) ++k; return 1 << (k + 1); }
    while (F < m * N) F *= 2;
    return F;
}
void BM_Fftw_OLS_32f(benchmark::State& st) {
    const int N = int(st.range(0)), n = int(st.range(1)), F = olsLength(N, int(st.range(2))), L = F - N + 1;
    auto h = noise<float>(size_t(N), 1), x = noise<float>(size_t(n), 2);
    float* in = fftwf_alloc_real(size_t(F));
    fftwf_complex* X = fftwf_alloc_complex(size_t(F / 2 + 1));
    fftwf_complex* Hs = fftwf_alloc_complex(size_t(F / 2 + 1));
    fftwf_plan fw = fftwf_plan_dft_r2c_1d(F, in, X, FFTW_MEASURE);
    fftwf_plan bw = fftwf_plan_dft_c2r_1d(F, X, in, FFTW_MEASURE);
    memset(in, 0, sizeof(float) * size_t(F));
    for (int k = 0; k < N; ++k) in[k] = h[size_t(k)] / float(F);
    fftwf_execute(fw);
    memcpy(Hs, X, sizeof(fftwf_complex) * size_t(F / 2 + 1));
    std::vector<float> ext(static_cast<size_t>(n + N - 1), 0.0f), y(static_cast<size_t>(n));
    for (auto _ : st) {
        memcpy(ext.data() + N - 1, x.data(), sizeof(float) * size_t(n));
        for (int o = 0; o < n; o += L) {
            const int c = std::min(F, n + N - 1 - o);
            memcpy(in, ext.data() + o, sizeof(float) * size_t(c));
            if (c < F) memset(in + c, 0, sizeof(float) * size_t(F - c));
            fftwf_execute(fw);
            for (int k = 0; k <= F / 2; ++k) {
                const float re = X[k][0] * Hs[k][0] - X[k][1] * Hs[k][1];
                const float im = X[k][0] * Hs[k][1] + X[k][1] * Hs[k][0];
                X[k][0] = re; X[k][1] = im;
            }
            fftwf_execute(bw);
            memcpy(y.data() + o, in + N - 1, sizeof(float) * size_t(std::min(L, n - o)));
        }
        memmove(ext.data(), ext.data() + n, sizeof(float) * size_t(N - 1));
        benchmark::DoNotOptimize(y.data());
    }
    fftwf_destroy_plan(fw); fftwf_destroy_plan(bw);
    fftwf_free(in); fftwf_free(X); fftwf_free(Hs);
    items(st, n);
}
void BM_Fftw_OLS_64f(benchmark::State& st) {
    const int N = int(st.range(0)), n = int(st.range(1)), F = olsLength(N, int(st.range(2))), L = F - N + 1;
    auto h = noise<double>(size_t(N), 1), x = noise<double>(size_t(n), 2);
    double* in = fftw_alloc_real(size_t(F));
    fftw_complex* X = fftw_alloc_complex(size_t(F / 2 + 1));
    fftw_complex* Hs = fftw_alloc_complex(size_t(F / 2 + 1));
    fftw_plan fw = fftw_plan_dft_r2c_1d(F, in, X, FFTW_MEASURE);
    fftw_plan bw = fftw_plan_dft_c2r_1d(F, X, in, FFTW_MEASURE);
    memset(in, 0, sizeof(double) * size_t(F));
    for (int k = 0; k < N; ++k) in[k] = h[size_t(k)] / double(F);
    fftw_execute(fw);
    memcpy(Hs, X, sizeof(fftw_complex) * size_t(F / 2 + 1));
    std::vector<double> ext(static_cast<size_t>(n + N - 1), 0.0), y(static_cast<size_t>(n));
    for (auto _ : st) {
        memcpy(ext.data() + N - 1, x.data(), sizeof(double) * size_t(n));
        for (int o = 0; o < n; o += L) {
            const int c = std::min(F, n + N - 1 - o);
            memcpy(in, ext.data() + o, sizeof(double) * size_t(c));
            if (c < F) memset(in + c, 0, sizeof(double) * size_t(F - c));
            fftw_execute(fw);
            for (int k = 0; k <= F / 2; ++k) {
                const double re = X[k][0] * Hs[k][0] - X[k][1] * Hs[k][1];
                const double im = X[k][0] * Hs[k][1] + X[k][1] * Hs[k][0];
                X[k][0] = re; X[k][1] = im;
            }
            fftw_execute(bw);
            memcpy(y.data() + o, in + N - 1, sizeof(double) * size_t(std::min(L, n - o)));
        }
        memmove(ext.data(), ext.data() + n, sizeof(double) * size_t(N - 1));
        benchmark::DoNotOptimize(y.data());
    }
    fftw_destroy_plan(fw); fftw_destroy_plan(bw);
    fftw_free(in); fftw_free(X); fftw_free(Hs);
    items(st, n);
}
#endif

void srArgs(benchmark::internal::Benchmark* b) {
    for (int n : {1024, 65536})
        for (int N : {16, 64, 256, 1024, 4096}) b->Args({N, n});
}
void olsArgs(benchmark::internal::Benchmark* b) {
    for (int n : {1024, 65536})
        for (int N : {16, 64, 256, 1024, 4096})
            for (int m : {0, 2, 4, 8, 16}) b->Args({N, n, m});
}
BENCHMARK(BM_FIRSR_32f_Auto)->Apply(srArgs);
BENCHMARK(BM_FIRSR_32f_Direct)->Apply(srArgs);
BENCHMARK(BM_Loop_FIR_32f)->Apply(srArgs);
BENCHMARK(BM_FIRSR_32fc_Auto)->Apply(srArgs);
BENCHMARK(BM_FIRSR_32fc_Direct)->Apply(srArgs);
BENCHMARK(BM_Loop_FIR_32fc)->Apply(srArgs);
BENCHMARK(BM_FIRSR_64f_Auto)->Apply(srArgs);
BENCHMARK(BM_FIRSR_64f_Direct)->Apply(srArgs);
BENCHMARK(BM_Loop_FIR_64f)->Apply(srArgs);
#ifdef VRX_HAVE_LIQUID
BENCHMARK(BM_Liquid_firfilt_rrrf)->Apply(srArgs);
BENCHMARK(BM_Liquid_firfilt_cccf)->Apply(srArgs);
#endif
#ifdef VRX_HAVE_VOLK
BENCHMARK(BM_Volk_FIR_32f)->Apply(srArgs);
BENCHMARK(BM_Volk_FIR_32fc)->Apply(srArgs);
#endif
#ifdef VRX_HAVE_FFTW
BENCHMARK(BM_Fftw_OLS_32f)->Apply(olsArgs);
BENCHMARK(BM_Fftw_OLS_64f)->Apply(olsArgs);
#endif

// ------------------------------------------------------------- multi rate
// range(0) U, range(1) D; 16 x max(U, D) taps; 64 Ki input samples.
void BM_FIRMR_32f(benchmark::State& st) {
    const int U = int(st.range(0)), D = int(st.range(1)), N = 16 * std::max(U, D);
    const int iters = 65536 / D;
    const auto h = noise<float>(size_t(N), 1), x = noise<float>(size_t(iters * D), 2);
    std::vector<float> y(static_cast<size_t>(iters * U)), dly(static_cast<size_t>(N), 0.0f);
    int s = 0, b = 0;
    vrxsFIRMRGetSize(N, U, D, vrx32f, &s, &b);
    std::vector<uint8_t> spec(static_cast<size_t>(s)), buf(static_cast<size_t>(b));
    auto* stt = reinterpret_cast<VrxsFirMrState*>(spec.data());
    vrxsFIRMRInit_32f(h.data(), N, U, 0, D, 0, stt);
    for (auto _ : st) {
        vrxsFIRMR_32f(x.data(), y.data(), iters, stt, dly.data(), dly.data(), buf.data());
        benchmark::DoNotOptimize(y.data());
    }
    items(st, int64_t(iters) * D);
}
#ifdef VRX_HAVE_LIQUID
void BM_Liquid_firdecim_rrrf(benchmark::State& st) {
    const int D = int(st.range(1)), N = 16 * D, iters = 65536 / D;
    auto h = noise<float>(size_t(N), 1), x = noise<float>(size_t(iters * D), 2);
    std::vector<float> y(static_cast<size_t>(iters));
    firdecim_rrrf q = firdecim_rrrf_create(unsigned(D), h.data(), unsigned(N));
    for (auto _ : st) {
        firdecim_rrrf_execute_block(q, x.data(), unsigned(iters), y.data());
        benchmark::DoNotOptimize(y.data());
    }
    firdecim_rrrf_destroy(q);
    items(st, int64_t(iters) * D);
}
void BM_Liquid_firinterp_rrrf(benchmark::State& st) {
    const int U = int(st.range(0)), N = 16 * U, n = 65536;
    auto h = noise<float>(size_t(N), 1), x = noise<float>(size_t(n), 2);
    std::vector<float> y(static_cast<size_t>(n) * size_t(U));
    firinterp_rrrf q = firinterp_rrrf_create(unsigned(U), h.data(), unsigned(N));
    for (auto _ : st) {
        firinterp_rrrf_execute_block(q, x.data(), unsigned(n), y.data());
        benchmark::DoNotOptimize(y.data());
    }
    firinterp_rrrf_destroy(q);
    items(st, n);
}
void BM_Liquid_rresamp_rrrf(benchmark::State& st) {
    const int U = int(st.range(0)), D = int(st.range(1)), m = 8, iters = 65536 / D;
    auto h = noise<float>(size_t(2 * U * m), 1), x = noise<float>(size_t(iters * D), 2);
    std::vector<float> y(static_cast<size_t>(iters * U));
    rresamp_rrrf q = rresamp_rrrf_create(unsigned(U), unsigned(D), unsigned(m), h.data());
    for (auto _ : st) {
        rresamp_rrrf_execute_block(q, x.data(), unsigned(iters), y.data());
        benchmark::DoNotOptimize(y.data());
    }
    rresamp_rrrf_destroy(q);
    items(st, int64_t(iters) * D);
}
BENCHMARK(BM_Liquid_firdecim_rrrf)->Args({1, 2})->Args({1, 4})->Args({1, 8});
BENCHMARK(BM_Liquid_firinterp_rrrf)->Args({2, 1})->Args({4, 1})->Args({8, 1});
BENCHMARK(BM_Liquid_rresamp_rrrf)->Args({3, 2})->Args({2, 3});
#endif
BENCHMARK(BM_FIRMR_32f)->Args({1, 2})->Args({1, 4})->Args({1, 8})->Args({2, 1})->Args({4, 1})->Args({8, 1})->Args({3, 2})->Args({2, 3});

// --------------------------------------------------------- Up and Down
// Bytes per second count what a call reads and writes: the source and the
// destination. memcpy is compared at the larger side of each (the output of
// SampleUp, the source of SampleDown), read once and written once.
int64_t upBytes(int f, int n) { return int64_t(n) * (1 + f) * int64_t(sizeof(float)); }
int64_t downBytes(int f, int n) { return (int64_t(n) + (int64_t(n) + f - 1) / f) * int64_t(sizeof(float)); }
void BM_SampleUp_32f(benchmark::State& st) {
    const int f = int(st.range(0)), n = int(st.range(1));
    const auto x = noise<float>(size_t(n), 3);
    std::vector<float> y(static_cast<size_t>(n) * size_t(f));
    for (auto _ : st) {
        int len = 0, ph = 0;
        vrxsSampleUp_32f(x.data(), n, y.data(), &len, f, &ph);
        benchmark::DoNotOptimize(y.data());
    }
    items(st, n);
    st.SetBytesProcessed(st.iterations() * upBytes(f, n));
}
void BM_SampleDown_32f(benchmark::State& st) {
    const int f = int(st.range(0)), n = int(st.range(1));
    const auto x = noise<float>(size_t(n), 3);
    std::vector<float> y(static_cast<size_t>(n));
    for (auto _ : st) {
        int len = 0, ph = 0;
        vrxsSampleDown_32f(x.data(), n, y.data(), &len, f, &ph);
        benchmark::DoNotOptimize(y.data());
    }
    items(st, n);
    st.SetBytesProcessed(st.iterations() * downBytes(f, n));
}
void BM_Loop_SampleUp_32f(benchmark::State& st) {
    const int f = int(st.range(0)), n = int(st.range(1));
    const auto x = noise<float>(size_t(n), 3);
    std::vector<float> y(static_cast<size_t>(n) * size_t(f));
    for (auto _ : st) {
        for (int i = 0; i < n; ++i) {
            y[size_t(i) * size_t(f)] = x[size_t(i)];
            for (int k = 1; k < f; ++k) y[size_t(i) * size_t(f) + size_t(k)] = 0.0f;
        }
        benchmark::DoNotOptimize(y.data());
    }
    items(st, n);
    st.SetBytesProcessed(st.iterations() * upBytes(f, n));
}
void BM_Loop_SampleDown_32f(benchmark::State& st) {
    const int f = int(st.range(0)), n = int(st.range(1));
    const auto x = noise<float>(size_t(n), 3);
    std::vector<float> y(static_cast<size_t>(n));
    for (auto _ : st) {
        for (int i = 0, k = 0; i < n; i += f, ++k) y[size_t(k)] = x[size_t(i)];
        benchmark::DoNotOptimize(y.data());
    }
    items(st, n);
    st.SetBytesProcessed(st.iterations() * downBytes(f, n));
}
// memcpy of m floats: 2m floats of traffic per call.
void memcpyFloats(benchmark::State& st, size_t m) {
    const auto x = noise<float>(m, 3);
    std::vector<float> y(m);
    for (auto _ : st) {
        memcpy(y.data(), x.data(), m * sizeof(float));
        benchmark::DoNotOptimize(y.data());
    }
    items(st, st.range(1));
    st.SetBytesProcessed(st.iterations() * int64_t(2 * m * sizeof(float)));
}
void BM_Memcpy_Up_32f(benchmark::State& st) { memcpyFloats(st, size_t(st.range(1)) * size_t(st.range(0))); }
void BM_Memcpy_Down_32f(benchmark::State& st) { memcpyFloats(st, size_t(st.range(1))); }
void sampleArgs(benchmark::internal::Benchmark* b) {
    for (int n : {1024, 4 << 20})
        for (int f : {2, 3, 8}) b->Args({f, n});
}
BENCHMARK(BM_SampleUp_32f)->Apply(sampleArgs);
BENCHMARK(BM_Loop_SampleUp_32f)->Apply(sampleArgs);
BENCHMARK(BM_SampleDown_32f)->Apply(sampleArgs);
BENCHMARK(BM_Loop_SampleDown_32f)->Apply(sampleArgs);
BENCHMARK(BM_Memcpy_Up_32f)->Apply(sampleArgs);
BENCHMARK(BM_Memcpy_Down_32f)->Apply(sampleArgs);

}  // namespace

BENCHMARK_MAIN();
