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

VrxStatus run(const Vrx32f* x, Vrx32f* y, int m, Vrx8u* b) { return vrxsFilterMedian_32f(x, y, kLen, m, nullptr, nullptr, b); }
VrxStatus run(const Vrx16s* x, Vrx16s* y, int m, Vrx8u* b) { return vrxsFilterMedian_16s(x, y, kLen, m, nullptr, nullptr, b); }

template <class E, VrxDataType kType>
void BM_Median_vrx(benchmark::State& st) {
    const int m = static_cast<int>(st.range(0));
    const std::vector<float> xf = signal32f();
    const float scale = kType == vrx16s ? 32000.0f : 1.0f;
    std::vector<E> x(kLen), y(kLen);
    for (int i = 0; i < kLen; ++i) x[i] = static_cast<E>(xf[i] * scale);
    int size = 0;
    vrxsFilterMedianGetBufferSize(m, kType, &size);
    std::vector<Vrx8u> buf(size);
    for (auto _ : st) {
        run(x.data(), y.data(), m, buf.data());
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
BENCHMARK(BM_Median_vrx<Vrx32f, vrx32f>)->Name("BM_Median_vrx_32f")->Arg(3)->Arg(7)->Arg(31)->Arg(101)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_Median_vrx<Vrx16s, vrx16s>)->Name("BM_Median_vrx_16s")->Arg(3)->Arg(7)->Arg(31)->Arg(101)->Unit(benchmark::kMicrosecond);

}  // namespace
