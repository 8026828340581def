// Signal generators: window functions against a scalar loop that calls cos
// for every weight (and liquid-dsp's per-sample window functions when it is
// installed), Tone with both hints against a scalar sin loop; 1 Ki and
// 64 Ki elements, side by side in one run. Random numbers (uniform in all
// four types) against std::mt19937 with the standard distributions and
// liquid-dsp's randf and randnf (1 Ki, 64 Ki, 1 Mi); FIR design against
// liquid_firdes_kaiser at 31, 255 and 4095 taps.
#include <benchmark/benchmark.h>
#include <math.h>

#include <complex>
#include <random>
#include <vector>

#include "vrxs.h"

#ifdef VRX_HAVE_LIQUID
#include <liquid/liquid.h>
#endif

namespace {

constexpr double kTwoPi = 6.283185307179586;

std::vector<float> ramp(int n) {
    std::vector<float> v(n);
    for (int i = 0; i < n; ++i) v[i] = 1.0f + 0.001f * static_cast<float>(i % 1000);
    return v;
}

void setItems(benchmark::State& st) { st.SetItemsProcessed(st.iterations() * st.range(0)); }

// ---------------------------------------------------------------- windows

void BM_WinHann_32f(benchmark::State& st) {
    const int n = static_cast<int>(st.range(0));
    auto src = ramp(n);
    std::vector<float> dst(n);
    for (auto _ : st) {
        vrxsWinHann_32f(src.data(), dst.data(), n);
        benchmark::DoNotOptimize(dst.data());
    }
    setItems(st);
}

void BM_WinHann_64f(benchmark::State& st) {
    const int n = static_cast<int>(st.range(0));
    std::vector<double> src(n, 1.5), dst(n);
    for (auto _ : st) {
        vrxsWinHann_64f(src.data(), dst.data(), n);
        benchmark::DoNotOptimize(dst.data());
    }
    setItems(st);
}

void BM_ScalarHannCos_32f(benchmark::State& st) {
    const int n = static_cast<int>(st.range(0));
    auto src = ramp(n);
    std::vector<float> dst(n);
    for (auto _ : st) {
        const double t = kTwoPi / (n - 1);
        for (int i = 0; i < n; ++i) dst[i] = src[i] * static_cast<float>(0.5 - 0.5 * cos(t * i));
        benchmark::DoNotOptimize(dst.data());
    }
    setItems(st);
}

void BM_WinBlackman_32f(benchmark::State& st) {
    const int n = static_cast<int>(st.range(0));
    auto src = ramp(n);
    std::vector<float> dst(n);
    for (auto _ : st) {
        vrxsWinBlackman_32f(src.data(), dst.data(), n, -0.16f);
        benchmark::DoNotOptimize(dst.data());
    }
    setItems(st);
}

// Kaiser with beta = 8: the library takes alpha = beta / ((N-1)/2).
void BM_WinKaiser_32f(benchmark::State& st) {
    const int n = static_cast<int>(st.range(0));
    auto src = ramp(n);
    std::vector<float> dst(n);
    const float alpha = 8.0f / ((n - 1) * 0.5f);
    for (auto _ : st) {
        vrxsWinKaiser_32f(src.data(), dst.data(), n, alpha);
        benchmark::DoNotOptimize(dst.data());
    }
    setItems(st);
}

void BM_WinKaiser_64f(benchmark::State& st) {
    const int n = static_cast<int>(st.range(0));
    std::vector<double> src(n, 1.5), dst(n);
    const double alpha = 8.0 / ((n - 1) * 0.5);
    for (auto _ : st) {
        vrxsWinKaiser_64f(src.data(), dst.data(), n, alpha);
        benchmark::DoNotOptimize(dst.data());
    }
    setItems(st);
}

#ifdef VRX_HAVE_LIQUID
void BM_LiquidHann_32f(benchmark::State& st) {
    const int n = static_cast<int>(st.range(0));
    auto src = ramp(n);
    std::vector<float> dst(n);
    for (auto _ : st) {
        for (int i = 0; i < n; ++i) dst[i] = src[i] * liquid_hann(i, n);
        benchmark::DoNotOptimize(dst.data());
    }
    setItems(st);
}

void BM_LiquidKaiser_32f(benchmark::State& st) {
    const int n = static_cast<int>(st.range(0));
    auto src = ramp(n);
    std::vector<float> dst(n);
    for (auto _ : st) {
        for (int i = 0; i < n; ++i) dst[i] = src[i] * liquid_kaiser(i, n, 8.0f);
        benchmark::DoNotOptimize(dst.data());
    }
    setItems(st);
}
#endif

// ------------------------------------------------------------------- tone

template <int Hint>
void BM_Tone_32f(benchmark::State& st) {
    const int n = static_cast<int>(st.range(0));
    std::vector<float> dst(n);
    for (auto _ : st) {
        float ph = 0.25f;
        vrxsTone_32f(dst.data(), n, 1.5f, 0.0123f, &ph, Hint);
        benchmark::DoNotOptimize(dst.data());
    }
    setItems(st);
}

template <int Hint>
void BM_Tone_64f(benchmark::State& st) {
    const int n = static_cast<int>(st.range(0));
    std::vector<double> dst(n);
    for (auto _ : st) {
        double ph = 0.25;
        vrxsTone_64f(dst.data(), n, 1.5, 0.0123, &ph, Hint);
        benchmark::DoNotOptimize(dst.data());
    }
    setItems(st);
}

void BM_ScalarSin_32f(benchmark::State& st) {
    const int n = static_cast<int>(st.range(0));
    std::vector<float> dst(n);
    const double w = kTwoPi * 0.0123;
    for (auto _ : st) {
        for (int i = 0; i < n; ++i) dst[i] = static_cast<float>(1.5 * sin(w * i + 0.25));
        benchmark::DoNotOptimize(dst.data());
    }
    setItems(st);
}

void BM_ScalarSin_64f(benchmark::State& st) {
    const int n = static_cast<int>(st.range(0));
    std::vector<double> dst(n);
    const double w = kTwoPi * 0.0123;
    for (auto _ : st) {
        for (int i = 0; i < n; ++i) dst[i] = 1.5 * sin(w * i + 0.25);
        benchmark::DoNotOptimize(dst.data());
    }
    setItems(st);
}

// ---------------------------------------------------------- random numbers
template <class T>
void BM_RandUniform(benchmark::State& st) {
    const int n = static_cast<int>(st.range(0));
    std::vector<T> dst(n);
    std::vector<uint8_t> mem(64);
    auto* s = reinterpret_cast<VrxsRandUniformState*>(mem.data());
    if constexpr (sizeof(T) == 1) vrxsRandUniformInit_8u(s, 0, 255, 1);
    else if constexpr (sizeof(T) == 2) vrxsRandUniformInit_16s(s, -1000, 1000, 1);
    else if constexpr (sizeof(T) == 4) vrxsRandUniformInit_32f(s, -1.0f, 1.0f, 1);
    else vrxsRandUniformInit_64f(s, -1.0, 1.0, 1);
    for (auto _ : st) {
        if constexpr (sizeof(T) == 1) vrxsRandUniform_8u(dst.data(), n, s);
        else if constexpr (sizeof(T) == 2) vrxsRandUniform_16s(dst.data(), n, s);
        else if constexpr (sizeof(T) == 4) vrxsRandUniform_32f(dst.data(), n, s);
        else vrxsRandUniform_64f(dst.data(), n, s);
        benchmark::DoNotOptimize(dst.data());
    }
    setItems(st);
}
template <class T>
void BM_StdUniform(benchmark::State& st) {
    const int n = static_cast<int>(st.range(0));
    std::vector<T> dst(n);
    std::mt19937 g(1);
    std::uniform_real_distribution<T> d(T(-1), T(1));
    for (auto _ : st) {
        for (int i = 0; i < n; ++i) dst[i] = d(g);
        benchmark::DoNotOptimize(dst.data());
    }
    setItems(st);
}
template <class T>
void BM_RandGauss(benchmark::State& st) {
    const int n = static_cast<int>(st.range(0));
    std::vector<T> dst(n);
    std::vector<uint8_t> mem(80);
    auto* s = reinterpret_cast<VrxsRandGaussState*>(mem.data());
    if constexpr (sizeof(T) == 4) vrxsRandGaussInit_32f(s, 0.0f, 1.0f, 1);
    else vrxsRandGaussInit_64f(s, 0.0, 1.0, 1);
    for (auto _ : st) {
        if constexpr (sizeof(T) == 4) vrxsRandGauss_32f(dst.data(), n, s);
        else vrxsRandGauss_64f(dst.data(), n, s);
        benchmark::DoNotOptimize(dst.data());
    }
    setItems(st);
}
template <class T>
void BM_StdNormal(benchmark::State& st) {
    const int n = static_cast<int>(st.range(0));
    std::vector<T> dst(n);
    std::mt19937 g(1);
    std::normal_distribution<T> d(T(0), T(1));
    for (auto _ : st) {
        for (int i = 0; i < n; ++i) dst[i] = d(g);
        benchmark::DoNotOptimize(dst.data());
    }
    setItems(st);
}
#ifdef VRX_HAVE_LIQUID
void BM_LiquidRandf(benchmark::State& st) {
    const int n = static_cast<int>(st.range(0));
    std::vector<float> dst(n);
    for (auto _ : st) {
        for (int i = 0; i < n; ++i) dst[i] = randf();
        benchmark::DoNotOptimize(dst.data());
    }
    setItems(st);
}
void BM_LiquidRandnf(benchmark::State& st) {
    const int n = static_cast<int>(st.range(0));
    std::vector<float> dst(n);
    for (auto _ : st) {
        for (int i = 0; i < n; ++i) dst[i] = randnf();
        benchmark::DoNotOptimize(dst.data());
    }
    setItems(st);
}
#endif

// -------------------------------------------------------------- FIR design
void BM_FIRGenLowpass_64f(benchmark::State& st) {
    const int n = static_cast<int>(st.range(0));
    std::vector<double> taps(n);
    int size = 0;
    vrxsFIRGenGetBufferSize(n, &size);
    std::vector<uint8_t> buf(size);
    for (auto _ : st) {
        vrxsFIRGenLowpass_64f(0.2, taps.data(), n, vrxWinHamming, 1, buf.data());
        benchmark::DoNotOptimize(taps.data());
    }
    setItems(st);
}
#ifdef VRX_HAVE_LIQUID
void BM_LiquidFirdesKaiser(benchmark::State& st) {
    const int n = static_cast<int>(st.range(0));
    std::vector<float> taps(n);
    for (auto _ : st) {
        liquid_firdes_kaiser(static_cast<unsigned>(n), 0.2f, 60.0f, 0.0f, taps.data());
        benchmark::DoNotOptimize(taps.data());
    }
    setItems(st);
}
#endif

}  // namespace

#define SIZES ->Arg(1 << 10)->Arg(1 << 16)
BENCHMARK(BM_WinHann_32f) SIZES;
BENCHMARK(BM_WinHann_64f) SIZES;
BENCHMARK(BM_WinBlackman_32f) SIZES;
BENCHMARK(BM_ScalarHannCos_32f) SIZES;
#ifdef VRX_HAVE_LIQUID
BENCHMARK(BM_LiquidHann_32f) SIZES;
#endif
BENCHMARK(BM_WinKaiser_32f) SIZES;
BENCHMARK(BM_WinKaiser_64f) SIZES;
#ifdef VRX_HAVE_LIQUID
BENCHMARK(BM_LiquidKaiser_32f) SIZES;
#endif
BENCHMARK_TEMPLATE(BM_Tone_32f, vrxAlgHintFast) SIZES;
BENCHMARK_TEMPLATE(BM_Tone_32f, vrxAlgHintAccurate) SIZES;
BENCHMARK(BM_ScalarSin_32f) SIZES;
BENCHMARK_TEMPLATE(BM_Tone_64f, vrxAlgHintFast) SIZES;
BENCHMARK_TEMPLATE(BM_Tone_64f, vrxAlgHintAccurate) SIZES;
BENCHMARK(BM_ScalarSin_64f) SIZES;

#define RAND_SIZES ->Arg(1 << 10)->Arg(1 << 16)->Arg(1 << 20)
BENCHMARK_TEMPLATE(BM_RandUniform, float) RAND_SIZES;
BENCHMARK_TEMPLATE(BM_StdUniform, float) RAND_SIZES;
BENCHMARK_TEMPLATE(BM_RandUniform, double) RAND_SIZES;
BENCHMARK_TEMPLATE(BM_StdUniform, double) RAND_SIZES;
BENCHMARK_TEMPLATE(BM_RandUniform, int16_t) RAND_SIZES;
BENCHMARK_TEMPLATE(BM_RandUniform, uint8_t) RAND_SIZES;
#ifdef VRX_HAVE_LIQUID
BENCHMARK(BM_LiquidRandf) RAND_SIZES;
#endif
BENCHMARK_TEMPLATE(BM_RandGauss, float) RAND_SIZES;
BENCHMARK_TEMPLATE(BM_StdNormal, float) RAND_SIZES;
BENCHMARK_TEMPLATE(BM_RandGauss, double) RAND_SIZES;
BENCHMARK_TEMPLATE(BM_StdNormal, double) RAND_SIZES;
#ifdef VRX_HAVE_LIQUID
BENCHMARK(BM_LiquidRandnf) RAND_SIZES;
#endif
#define FIR_SIZES ->Arg(31)->Arg(255)->Arg(4095)
BENCHMARK(BM_FIRGenLowpass_64f) FIR_SIZES;
#ifdef VRX_HAVE_LIQUID
BENCHMARK(BM_LiquidFirdesKaiser) FIR_SIZES;
#endif

BENCHMARK_MAIN();
