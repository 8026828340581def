// Convolution and correlation against the anchors, side by side:
//   conv_fft/<impl>/<S>     vrxsConvolve_32f (Auto: overlap-save) of 64 Ki
//                           samples with S taps, against an FFTW r2c/c2r
//                           overlap-save written here at the same F
//                           (FFTW_MEASURE plans, made outside the timing);
//   conv_dir/<impl>/<S>     vrxsConvolve_32f forced Direct against a plain
//                           -O3 -march=native loop, 4 Ki samples;
//   xcorr_dir/<impl>/<mn>   vrxsCrossCorrNorm_32f / _32fc forced Direct
//                           over 256 full-overlap lags, against one VOLK dot
//                           product per lag (volk_32f_x2_dot_prod_32f,
//                           volk_32fc_x2_conjugate_dot_prod_32fc);
//   acorr_dir/<impl>/<n>    vrxsAutoCorrNorm_32f Direct, 256 lags, likewise.
//
//   bench_conv --benchmark_repetitions=3 --benchmark_report_aggregates_only=true
#include <benchmark/benchmark.h>
#include <stdlib.h>
#include <string.h>

#include <complex>
#include <vector>

#include "vrxs.h"
#ifdef VRX_HAVE_FFTW
#include <fftw3.h>
#endif
#ifdef VRX_HAVE_VOLK
#include <volk/volk.h>
#endif

namespace {

template <class T> std::vector<T> randomVec(size_t n, uint64_t seed) {
    std::vector<T> v(n);
    float* p = reinterpret_cast<float*>(v.data());
    for (size_t i = 0; i < n * sizeof(T) / 4; ++i) {
        seed = seed * 6364136223846793005ull + 1442695040888963407ull;
        p[i] = static_cast<float>(static_cast<double>(seed >> 11) * 0x1.0p-53 - 0.5);
    }
    return v;
}

int ceilLog2(long long x) { int k = 0; while ((1ll << k) < x) ++k; return k; }

constexpr int kLong = 65536;

// ----------------------------------------------------------- convolution
void convVrx(benchmark::State& st, int L, int S, VrxAlgType alg) {
    const auto x = randomVec<float>(L, 1), h = randomVec<float>(S, 2);
    std::vector<float> d(L + S - 1);
    int size = 0;
    vrxsConvolveGetBufferSize(L, S, vrx32f, alg, &size);
    std::vector<Vrx8u> buf(size);
    for (auto _ : st) {
        vrxsConvolve_32f(x.data(), L, h.data(), S, d.data(), alg, buf.data());
        benchmark::DoNotOptimize(d.data());
    }
    st.SetItemsProcessed(st.iterations() * L);
}

void BM_conv_fft_vrx(benchmark::State& st) { convVrx(st, kLong, static_cast<int>(st.range(0)), vrxAlgAuto); }
BENCHMARK(BM_conv_fft_vrx)->Name("conv_fft/vrx")->Arg(64)->Arg(256)->Arg(1024)->Arg(4096);

#ifdef VRX_HAVE_FFTW
// Overlap-save with F = 2^(ceil(log2 2S)+1), step F-S+1, the kernel
// spectrum (scaled by 1/F) made once.
void BM_conv_fft_fftw(benchmark::State& st) {
    const int L = kLong, S = static_cast<int>(st.range(0)), T = L + S - 1;
    const int F = 1 << (ceilLog2(2ll * S) + 1), P = F - S + 1, B = F / 2 + 1;
    const auto x = randomVec<float>(L, 1), h = randomVec<float>(S, 2);
    std::vector<float> d(T);
    float* seg = fftwf_alloc_real(F);
    fftwf_complex* spec = fftwf_alloc_complex(B);
    fftwf_complex* kern = fftwf_alloc_complex(B);
    fftwf_plan fwd = fftwf_plan_dft_r2c_1d(F, seg, spec, FFTW_MEASURE);
    fftwf_plan inv = fftwf_plan_dft_c2r_1d(F, spec, seg, FFTW_MEASURE);
    memset(seg, 0, F * sizeof(float));
    for (int i = 0; i < S; ++i) seg[i] = h[i] / F;
    fftwf_execute(fwd);
    memcpy(kern, spec, B * sizeof(fftwf_complex));
    for (auto _ : st) {
        for (int o = 0; o < T; o += P) {
            const int hd = o ? S - 1 : 0;
            const int c = std::min(std::min(L, L - o + hd), P + hd);
            memcpy(seg, x.data() + (o - hd), c * sizeof(float));
            memset(seg + c, 0, (F - c) * sizeof(float));
            fftwf_execute(fwd);
            for (int k = 0; k < B; ++k) {
                const float re = spec[k][0] * kern[k][0] - spec[k][1] * kern[k][1];
                const float im = spec[k][0] * kern[k][1] + spec[k][1] * kern[k][0];
                spec[k][0] = re;
                spec[k][1] = im;
            }
            fftwf_execute(inv);
            memcpy(d.data() + o, seg + hd, std::min(T - o, P) * sizeof(float));
        }
        benchmark::DoNotOptimize(d.data());
    }
    st.SetItemsProcessed(st.iterations() * L);
    fftwf_destroy_plan(fwd);
    fftwf_destroy_plan(inv);
    fftwf_free(seg);
    fftwf_free(spec);
    fftwf_free(kern);
}
BENCHMARK(BM_conv_fft_fftw)->Name("conv_fft/fftw")->Arg(64)->Arg(256)->Arg(1024)->Arg(4096);
#endif

constexpr int kShort = 4096;

void BM_conv_dir_vrx(benchmark::State& st) { convVrx(st, kShort, static_cast<int>(st.range(0)), vrxAlgDirect); }
BENCHMARK(BM_conv_dir_vrx)->Name("conv_dir/vrx")->Arg(8)->Arg(32)->Arg(63)->Arg(256);

void BM_conv_dir_loop(benchmark::State& st) {
    const int L = kShort, S = static_cast<int>(st.range(0)), T = L + S - 1;
    const auto x = randomVec<float>(L, 1), h = randomVec<float>(S, 2);
    std::vector<float> d(T);
    for (auto _ : st) {
        for (int n = 0; n < T; ++n) {
            const int k0 = n - (L - 1) > 0 ? n - (L - 1) : 0, k1 = n < S - 1 ? n : S - 1;
            float acc = 0;
            for (int k = k0; k <= k1; ++k) acc += h[k] * x[n - k];
            d[n] = acc;
        }
        benchmark::DoNotOptimize(d.data());
    }
    st.SetItemsProcessed(st.iterations() * L);
}
BENCHMARK(BM_conv_dir_loop)->Name("conv_dir/loop")->Arg(8)->Arg(32)->Arg(63)->Arg(256);

// ----------------------------------------------------------- correlation
constexpr int kLags = 256;

template <class E>
void xcorrVrx(benchmark::State& st) {
    const int mn = static_cast<int>(st.range(0)), n2 = mn + kLags;
    const auto a = randomVec<E>(mn, 3), b = randomVec<E>(n2, 4);
    std::vector<E> d(kLags);
    Vrx8u buf[64];
    for (auto _ : st) {
        if constexpr (sizeof(E) == 4)
            vrxsCrossCorrNorm_32f(a.data(), mn, b.data(), n2, d.data(), kLags, 0, vrxAlgDirect, buf);
        else
            vrxsCrossCorrNorm_32fc(a.data(), mn, b.data(), n2, d.data(), kLags, 0, vrxAlgDirect, buf);
        benchmark::DoNotOptimize(d.data());
    }
    st.SetItemsProcessed(st.iterations() * kLags);
}
BENCHMARK(xcorrVrx<Vrx32f>)->Name("xcorr_dir_32f/vrx")->Arg(64)->Arg(256)->Arg(1024);
BENCHMARK(xcorrVrx<Vrx32fc>)->Name("xcorr_dir_32fc/vrx")->Arg(64)->Arg(256)->Arg(1024);

void BM_acorr_vrx(benchmark::State& st) {
    const int n = static_cast<int>(st.range(0));
    const auto x = randomVec<float>(n, 5);
    std::vector<float> d(kLags);
    Vrx8u buf[64];
    for (auto _ : st) {
        vrxsAutoCorrNorm_32f(x.data(), n, d.data(), kLags, vrxAlgDirect, buf);
        benchmark::DoNotOptimize(d.data());
    }
    st.SetItemsProcessed(st.iterations() * kLags);
}
BENCHMARK(BM_acorr_vrx)->Name("acorr_dir/vrx")->Arg(512)->Arg(4096);

#ifdef VRX_HAVE_VOLK
void BM_xcorr_volk_32f(benchmark::State& st) {
    const int mn = static_cast<int>(st.range(0)), n2 = mn + kLags;
    float* a = static_cast<float*>(volk_malloc(mn * sizeof(float), volk_get_alignment()));
    const auto av = randomVec<float>(mn, 3), b = randomVec<float>(n2, 4);
    memcpy(a, av.data(), mn * sizeof(float));
    std::vector<float> d(kLags);
    for (auto _ : st) {
        for (int lag = 0; lag < kLags; ++lag) volk_32f_x2_dot_prod_32f(&d[lag], a, b.data() + lag, mn);
        benchmark::DoNotOptimize(d.data());
    }
    st.SetItemsProcessed(st.iterations() * kLags);
    volk_free(a);
}
BENCHMARK(BM_xcorr_volk_32f)->Name("xcorr_dir_32f/volk")->Arg(64)->Arg(256)->Arg(1024);

void BM_xcorr_volk_32fc(benchmark::State& st) {
    const int mn = static_cast<int>(st.range(0)), n2 = mn + kLags;
    const auto a = randomVec<lv_32fc_t>(mn, 3), b = randomVec<lv_32fc_t>(n2, 4);
    std::vector<lv_32fc_t> d(kLags);
    for (auto _ : st) {
        // sum b[i+lag] conj(a[i])
        for (int lag = 0; lag < kLags; ++lag) volk_32fc_x2_conjugate_dot_prod_32fc(&d[lag], b.data() + lag, a.data(), mn);
        benchmark::DoNotOptimize(d.data());
    }
    st.SetItemsProcessed(st.iterations() * kLags);
}
BENCHMARK(BM_xcorr_volk_32fc)->Name("xcorr_dir_32fc/volk")->Arg(64)->Arg(256)->Arg(1024);

void BM_acorr_volk(benchmark::State& st) {
    const int n = static_cast<int>(st.range(0));
    const auto x = randomVec<float>(n, 5);
    std::vector<float> d(kLags);
    for (auto _ : st) {
        for (int lag = 0; lag < kLags; ++lag) volk_32f_x2_dot_prod_32f(&d[lag], x.data(), x.data() + lag, n - lag);
        benchmark::DoNotOptimize(d.data());
    }
    st.SetItemsProcessed(st.iterations() * kLags);
}
BENCHMARK(BM_acorr_volk)->Name("acorr_dir/volk")->Arg(512)->Arg(4096);
#endif

}  // namespace

BENCHMARK_MAIN();
