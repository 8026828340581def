// Adaptive FIR (LMS) at 16, 64 and 256 taps over 64 Ki samples: the library
// (32f and 64f) against liquid-dsp's eqlms_rrrf (push, execute and step per
// sample) and a plain scalar loop of the same algorithm.
#include <benchmark/benchmark.h>

#include <complex>
#include <vector>

#include "vrxs.h"

#ifdef VRX_HAVE_LIQUID
// the header marks eqlms push as deprecated by a misplaced macro
#pragma GCC diagnostic ignored "-Wdeprecated-declarations"
#include <liquid/liquid.h>
#endif

namespace {

constexpr int kLen = 65536;

template <class T>
struct Signals {
    std::vector<T> x, d, y;
    explicit Signals(int taps) : x(kLen), d(kLen), y(kLen) {
        uint64_t s = 0x2545F4914F6CDD1Dull;
        for (int i = 0; i < kLen; ++i) {
            s ^= s << 13; s ^= s >> 7; s ^= s << 17;
            x[i] = static_cast<T>(static_cast<double>(s >> 11) * 0x1.0p-52 - 1.0);
        }
        // the unknown system: a short decaying response
        for (int i = 0; i < kLen; ++i) {
            T acc = 0, g = 1;
            for (int k = 0; k < taps && k <= i; ++k, g *= T(0.7)) acc += g * x[i - k];
            d[i] = acc;
        }
    }
};

template <class T> T stepOf(int taps) { return static_cast<T>(0.5 / taps); }

template <class T, class St>
void vrxLms(benchmark::State& st, VrxStatus (*size)(int, int*), VrxStatus (*init)(St**, const T*, int, const T*, Vrx8u*),
            VrxStatus (*run)(const T*, const T*, T*, int, T, St*)) {
    const int N = static_cast<int>(st.range(0));
    Signals<T> s(N);
    int bytes = 0;
    size(N, &bytes);
    std::vector<Vrx8u> mem(bytes);
    St* p = nullptr;
    init(&p, nullptr, N, nullptr, mem.data());
    for (auto _ : st) {
        run(s.x.data(), s.d.data(), s.y.data(), kLen, stepOf<T>(N), p);
        benchmark::DoNotOptimize(s.y.data());
    }
    st.SetItemsProcessed(st.iterations() * kLen);
}
void BM_Lms_vrx32f(benchmark::State& st) { vrxLms(st, vrxsFIRLMSGetStateSize_32f, vrxsFIRLMSInit_32f, vrxsFIRLMS_32f); }
void BM_Lms_vrx64f(benchmark::State& st) { vrxLms(st, vrxsFIRLMSGetStateSize_64f, vrxsFIRLMSInit_64f, vrxsFIRLMS_64f); }

// The scalar loop: a line shifted by one per sample, then the dot product
// and the update as two plain loops.
template <class T>
void scalarLms(const T* x, const T* d, T* y, int len, T mu, T* h, T* line, int N) {
    for (int n = 0; n < len; ++n) {
        for (int k = N - 1; k > 0; --k) line[k] = line[k - 1];
        line[0] = x[n];
        T acc = 0;
        for (int k = 0; k < N; ++k) acc += h[k] * line[k];
        y[n] = acc;
        const T me = mu * (d[n] - acc);
        for (int k = 0; k < N; ++k) h[k] += me * line[k];
    }
}

void BM_Lms_scalar32f(benchmark::State& st) {
    const int N = static_cast<int>(st.range(0));
    Signals<float> s(N);
    std::vector<float> h(N, 0.0f), line(N, 0.0f);
    for (auto _ : st) {
        scalarLms(s.x.data(), s.d.data(), s.y.data(), kLen, stepOf<float>(N), h.data(), line.data(), N);
        benchmark::DoNotOptimize(s.y.data());
    }
    st.SetItemsProcessed(st.iterations() * kLen);
}

#ifdef VRX_HAVE_LIQUID
void BM_Lms_liquid_eqlms_rrrf(benchmark::State& st) {
    const int N = static_cast<int>(st.range(0));
    Signals<float> s(N);
    std::vector<float> h0(N, 0.0f);
    eqlms_rrrf q = eqlms_rrrf_create(h0.data(), static_cast<unsigned>(N));
    eqlms_rrrf_set_bw(q, stepOf<float>(N));
    for (auto _ : st) {
        for (int n = 0; n < kLen; ++n) {
            float y = 0;
            eqlms_rrrf_push(q, s.x[n]);
            eqlms_rrrf_execute(q, &y);
            eqlms_rrrf_step(q, s.d[n], y);
            s.y[n] = y;
        }
        benchmark::DoNotOptimize(s.y.data());
    }
    st.SetItemsProcessed(st.iterations() * kLen);
    eqlms_rrrf_destroy(q);
}
BENCHMARK(BM_Lms_liquid_eqlms_rrrf)->Arg(16)->Arg(64)->Arg(256);
#endif

BENCHMARK(BM_Lms_vrx32f)->Arg(16)->Arg(64)->Arg(256);
BENCHMARK(BM_Lms_scalar32f)->Arg(16)->Arg(64)->Arg(256);
BENCHMARK(BM_Lms_vrx64f)->Arg(16)->Arg(64)->Arg(256);

}  // namespace
