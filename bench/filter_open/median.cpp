// Median filter, 64 Ki samples at masks 3, 7, 31, 101: the library (32f
// and 16s) beside a scalar std::nth_element loop over each window and
// liquid-dsp's order-statistic filter set up as a median.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <complex>
#include <random>
#include <vector>

#include "vrxs.h"
#ifdef VRX_HAVE_LIQUID
#include <liquid/liquid.h>
#endif

namespace {

constexpr int kLen = 65536;

std::vector<float> signal32f() {
    std::mt19937 g(7);
    std::uniform_real_distribution<float> u(-1.0f, 1.0f);
    std::vector<float> x(kLen);
    for (auto& v : x) v = u(g);
    return x;
}

void finish(benchmark::State& st) {
    st.SetItemsProcessed(static_cast<int64_t>(st.iterations()) * kLen);
}

void BM_Median_vrx_32f(benchmark::State& st) {
    const int m = static_cast<int>(st.range(0));
    const std::vector<float> x = signal32f();
    std::vector<float> y(kLen);
    int size = 0;
    vrxsFilterMedianGetBufferSize(m, vrx32f, &size);
    std::vector<Vrx8u> buf(size);
    for (auto _ : st) {
        vrxsFilterMedian_32f(x.data(), y.data(), kLen, m, nullptr, nullptr, buf.data());
        benchmark::DoNotOptimize(y.data());
    }
    finish(st);
}

void BM_Median_vrx_16s(benchmark::State& st) {
    const int m = static_cast<int>(st.range(0));
    const std::vector<float> xf = signal32f();
    std::vector<Vrx16s> x(kLen), y(kLen);
    for (int i = 0; i < kLen; ++i) x[i] = static_cast<Vrx16s>(xf[i] * 32000.0f);
    int size = 0;
    vrxsFilterMedianGetBufferSize(m, vrx16s, &size);
    std::vector<Vrx8u> buf(size);
    for (auto _ : st) {
        vrxsFilterMedian_16s(x.data(), y.data(), kLen, m, nullptr, nullptr, buf.data());
        benchmark::DoNotOptimize(y.data());
    }
    finish(st);
}

// The plain way: copy each window, nth_element, take the middle.
void BM_Median_nth_element_32f(benchmark::State& st) {
    const int m = static_cast<int>(st.range(0));
    const std::vector<float> x = signal32f();
    std::vector<float> padded(m - 1, 0.0f), y(kLen), w(m);
    padded.insert(padded.end(), x.begin(), x.end());
    for (auto _ : st) {
        for (int n = 0; n < kLen; ++n) {
            std::copy(padded.begin() + n, padded.begin() + n + m, w.begin());
            std::nth_element(w.begin(), w.begin() + m / 2, w.end());
            y[n] = w[m / 2];
        }
        benchmark::DoNotOptimize(y.data());
    }
    finish(st);
}

#ifdef VRX_HAVE_LIQUID
void BM_Median_liquid_ordfilt_32f(benchmark::State& st) {
    const int m = static_cast<int>(st.range(0));
    std::vector<float> x = signal32f();
    std::vector<float> y(kLen);
    ordfilt_rrrf q = ordfilt_rrrf_create(static_cast<unsigned>(m), static_cast<unsigned>(m / 2));
    for (auto _ : st) {
        ordfilt_rrrf_reset(q);
        ordfilt_rrrf_execute_block(q, x.data(), kLen, y.data());
        benchmark::DoNotOptimize(y.data());
    }
    ordfilt_rrrf_destroy(q);
    finish(st);
}
BENCHMARK(BM_Median_liquid_ordfilt_32f)->Arg(3)->Arg(7)->Arg(31)->Arg(101)->Unit(benchmark::kMicrosecond);
#endif
BENCHMARK(BM_Median_nth_element_32f)->Arg(3)->Arg(7)->Arg(31)->Arg(101)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_Median_vrx_32f)->Arg(3)->Arg(7)->Arg(31)->Arg(101)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_Median_vrx_16s)->Arg(3)->Arg(7)->Arg(31)->Arg(101)->Unit(benchmark::kMicrosecond);

}  // namespace
