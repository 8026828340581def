// Polyphase resampling, 64 Ki input samples, halfLen 16 against liquid-dsp's
// filter semi-length 16: the fixed ratio (3/2, 2/3, 160/147) against
// rresamp_rrrf, the arbitrary factor (0.5, 1.5, pi; 256 phases) against
// resamp_rrrf with a 256-filter bank.
#include <benchmark/benchmark.h>

#include <cmath>
#include <complex>
#include <vector>

#include "vrxs.h"
#ifdef VRX_HAVE_LIQUID
#include <liquid/liquid.h>
#endif

namespace {

constexpr int kLen = 65536;
constexpr int kHalf = 16;
constexpr int kPhases = 256;

std::vector<float> input() {
    std::vector<float> x(kLen);
    for (int i = 0; i < kLen; ++i) x[size_t(i)] = std::sin(0.01f * float(i)) + 0.25f * std::cos(0.37f * float(i));
    return x;
}

void BM_ResampleFixed_vrx(benchmark::State& s) {
    const int up = int(s.range(0)), down = int(s.range(1));
    const std::vector<float> x = input();
    int size = 0, L = 0;
    vrxsResamplePolyphaseFixedGetSize_32f(up, down, kHalf, &size, &L);
    std::vector<uint8_t> mem(static_cast<size_t>(size));
    VrxsResamplePolyphaseFixedState_32f* st = nullptr;
    vrxsResamplePolyphaseFixedInit_32f(up, down, kHalf, 0.9f, 8.0f, &st, mem.data());
    std::vector<float> y(size_t(kLen) * size_t(up) / size_t(down) + 16);
    int got = 0;
    for (auto _ : s) {
        vrxsResamplePolyphaseFixed_32f(x.data(), kLen, y.data(), &got, st);
        benchmark::DoNotOptimize(y.data());
    }
    s.SetItemsProcessed(int64_t(s.iterations()) * kLen);
}
BENCHMARK(BM_ResampleFixed_vrx)->Args({3, 2})->Args({2, 3})->Args({160, 147});

void BM_ResampleArb_vrx(benchmark::State& s) {
    const double factor = double(s.range(0)) / 1000.0;
    const std::vector<float> x = input();
    int size = 0;
    vrxsResamplePolyphaseGetSize_32f(kHalf, kPhases, &size);
    std::vector<uint8_t> mem(static_cast<size_t>(size));
    VrxsResamplePolyphaseState_32f* st = nullptr;
    vrxsResamplePolyphaseInit_32f(kHalf, kPhases, 0.9f, 8.0f, &st, mem.data());
    std::vector<float> y(size_t(std::ceil(kLen * factor)) + 16);
    int got = 0;
    for (auto _ : s) {
        vrxsResamplePolyphase_32f(x.data(), kLen, y.data(), factor, &got, st);
        benchmark::DoNotOptimize(y.data());
    }
    s.SetItemsProcessed(int64_t(s.iterations()) * kLen);
}
BENCHMARK(BM_ResampleArb_vrx)->Arg(500)->Arg(1500)->Arg(3142);

#ifdef VRX_HAVE_LIQUID
void BM_ResampleFixed_liquid(benchmark::State& s) {
    const unsigned up = unsigned(s.range(0)), down = unsigned(s.range(1));
    std::vector<float> x = input();
    rresamp_rrrf q = rresamp_rrrf_create_kaiser(up, down, kHalf, 0.45f, 60.0f);
    const unsigned P = rresamp_rrrf_get_P(q), Q = rresamp_rrrf_get_Q(q);
    const unsigned blocks = unsigned(kLen) / Q;
    std::vector<float> y(size_t(blocks) * P + 16);
    for (auto _ : s) {
        rresamp_rrrf_execute_block(q, x.data(), blocks, y.data());
        benchmark::DoNotOptimize(y.data());
    }
    rresamp_rrrf_destroy(q);
    s.SetItemsProcessed(int64_t(s.iterations()) * kLen);
}
BENCHMARK(BM_ResampleFixed_liquid)->Args({3, 2})->Args({2, 3})->Args({160, 147});

void BM_ResampleArb_liquid(benchmark::State& s) {
    const float factor = float(s.range(0)) / 1000.0f;
    std::vector<float> x = input();
    resamp_rrrf q = resamp_rrrf_create(factor, kHalf, 0.45f * (factor < 1 ? factor : 1.0f), 60.0f, kPhases);
    std::vector<float> y(size_t(std::ceil(kLen * factor)) + 64);
    unsigned ny = 0;
    for (auto _ : s) {
        resamp_rrrf_execute_block(q, x.data(), kLen, y.data(), &ny);
        benchmark::DoNotOptimize(y.data());
    }
    resamp_rrrf_destroy(q);
    s.SetItemsProcessed(int64_t(s.iterations()) * kLen);
}
BENCHMARK(BM_ResampleArb_liquid)->Arg(500)->Arg(1500)->Arg(3142);
#endif

}  // namespace
