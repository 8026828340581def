// Sparse FIR and IIR, 64 Ki samples a call, 32 nonzero feed-forward taps
// spread over order 4096: the library against a plain sparse loop (the
// history joined before the input, one sum per output, -O3 -march=native)
// and, for the FIR, liquid-dsp firfilt_rrrf / firfilt_cccf on the dense
// equivalent (4097 taps, mostly zero). The IIR cases add 4 feedback taps
// from position 64 (whole registers), 4 (groups of 4 outputs) or 1 (one
// output at a time).
#include <benchmark/benchmark.h>
#include <string.h>

#include <complex>
#include <vector>

#include "vrxs.h"

#ifdef VRX_HAVE_LIQUID
#include <liquid/liquid.h>
#endif

namespace {

constexpr int kLen = 65536, kTaps = 32, kOrder = 4096;
using cf = std::complex<float>;

std::vector<float> noiseF(size_t n, unsigned seed) {
    std::vector<float> v(n);
    uint32_t s = seed * 2654435761u + 1;
    for (float& x : v) {
        s = s * 1664525u + 1013904223u;
        x = float(int32_t(s) >> 8) * 0x1p-23f;
    }
    return v;
}

struct Taps {
    std::vector<float> t;  // feed-forward then feedback, k floats a tap
    std::vector<int> pos;
    int n1, n2;
};

// 32 feed-forward taps over 0..4096; nfb feedback taps from minFb to 4000
// with small gains (stable).
Taps sparseTaps(int k, int nfb, int minFb) {
    Taps s{noiseF(size_t(k) * (kTaps + nfb), 7), {}, kTaps, nfb};
    for (int i = 0; i < kTaps; ++i) s.pos.push_back(i == 0 ? 0 : (kOrder * i) / (kTaps - 1) - (i % 3));
    for (int i = 0; i < nfb; ++i) s.pos.push_back(minFb + ((4000 - minFb) * i) / (nfb > 1 ? nfb - 1 : 1));
    for (int i = k * kTaps; i < k * (kTaps + nfb); ++i) s.t[size_t(i)] *= 0.1f;
    return s;
}

void items(benchmark::State& st) { st.SetItemsProcessed(int64_t(st.iterations()) * kLen); }

void BM_FIRSparse_32f(benchmark::State& st) {
    Taps s = sparseTaps(1, 0, 0);
    int sz = 0;
    vrxsFIRSparseGetStateSize_32f(kTaps, kOrder, &sz);
    std::vector<uint8_t> buf(static_cast<size_t>(sz));
    VrxsFirSparseState_32f* p = nullptr;
    vrxsFIRSparseInit_32f(&p, s.t.data(), s.pos.data(), kTaps, nullptr, buf.data());
    auto x = noiseF(kLen, 1);
    std::vector<float> y(kLen);
    for (auto _ : st) {
        vrxsFIRSparse_32f(x.data(), y.data(), kLen, p);
        benchmark::DoNotOptimize(y.data());
    }
    items(st);
}

void BM_FIRSparse_32fc(benchmark::State& st) {
    Taps s = sparseTaps(2, 0, 0);
    int sz = 0;
    vrxsFIRSparseGetStateSize_32fc(kTaps, kOrder, &sz);
    std::vector<uint8_t> buf(static_cast<size_t>(sz));
    VrxsFirSparseState_32fc* p = nullptr;
    vrxsFIRSparseInit_32fc(&p, reinterpret_cast<const Vrx32fc*>(s.t.data()), s.pos.data(), kTaps, nullptr, buf.data());
    auto x = noiseF(2 * kLen, 1);
    std::vector<float> y(2 * kLen);
    for (auto _ : st) {
        vrxsFIRSparse_32fc(reinterpret_cast<const Vrx32fc*>(x.data()), reinterpret_cast<Vrx32fc*>(y.data()), kLen, p);
        benchmark::DoNotOptimize(y.data());
    }
    items(st);
}

void BM_IIRSparse_32f(benchmark::State& st) {
    Taps s = sparseTaps(1, 4, int(st.range(0)));
    int sz = 0;
    vrxsIIRSparseGetStateSize_32f(s.n1, s.n2, s.pos[s.n1 - 1], s.pos.back(), &sz);
    std::vector<uint8_t> buf(static_cast<size_t>(sz));
    VrxsIirSparseState_32f* p = nullptr;
    vrxsIIRSparseInit_32f(&p, s.t.data(), s.pos.data(), s.n1, s.n2, nullptr, buf.data());
    auto x = noiseF(kLen, 1);
    std::vector<float> y(kLen);
    for (auto _ : st) {
        vrxsIIRSparse_32f(x.data(), y.data(), kLen, p);
        benchmark::DoNotOptimize(y.data());
    }
    items(st);
}

// The scalar loops: history and input joined in one buffer, the history
// carried over by a move after each call, as a plain implementation does.
template <class T>
void loopFir(benchmark::State& st, int k) {
    Taps s = sparseTaps(k, 0, 0);
    std::vector<T> taps(kTaps);
    memcpy(taps.data(), s.t.data(), sizeof(T) * kTaps);
    auto xs = noiseF(size_t(k) * kLen, 1);
    std::vector<T> x(kLen), y(kLen), joined(kOrder + kLen);
    memcpy(x.data(), xs.data(), sizeof(T) * kLen);
    for (auto _ : st) {
        memcpy(joined.data() + kOrder, x.data(), sizeof(T) * kLen);
        for (int n = 0; n < kLen; ++n) {
            T acc = T(0);
            const T* w = joined.data() + kOrder + n;
            for (int t = 0; t < kTaps; ++t) acc += taps[size_t(t)] * w[-s.pos[size_t(t)]];
            y[size_t(n)] = acc;
        }
        memmove(joined.data(), joined.data() + kLen, sizeof(T) * kOrder);
        benchmark::DoNotOptimize(y.data());
    }
    items(st);
}
void BM_Loop_FIRSparse_32f(benchmark::State& st) { loopFir<float>(st, 1); }
void BM_Loop_FIRSparse_32fc(benchmark::State& st) { loopFir<cf>(st, 2); }

void BM_Loop_IIRSparse_32f(benchmark::State& st) {
    Taps s = sparseTaps(1, 4, int(st.range(0)));
    const int o1 = s.pos[kTaps - 1], o2 = s.pos.back();
    auto x = noiseF(kLen, 1);
    std::vector<float> y(kLen), xj(size_t(o1) + kLen), yj(size_t(o2) + kLen);
    for (auto _ : st) {
        memcpy(xj.data() + o1, x.data(), sizeof(float) * kLen);
        for (int n = 0; n < kLen; ++n) {
            float acc = 0.f;
            const float* w = xj.data() + o1 + n;
            float* v = yj.data() + o2 + n;
            for (int t = 0; t < s.n1; ++t) acc += s.t[size_t(t)] * w[-s.pos[size_t(t)]];
            for (int t = s.n1; t < s.n1 + s.n2; ++t) acc -= s.t[size_t(t)] * v[-s.pos[size_t(t)]];
            *v = acc;
        }
        memcpy(y.data(), yj.data() + o2, sizeof(float) * kLen);
        memmove(xj.data(), xj.data() + kLen, sizeof(float) * size_t(o1));
        memmove(yj.data(), yj.data() + kLen, sizeof(float) * size_t(o2));
        benchmark::DoNotOptimize(y.data());
    }
    items(st);
}

#ifdef VRX_HAVE_LIQUID
// The dense equivalent: 4097 taps, 32 of them nonzero.
template <class T>
std::vector<T> denseTaps(int k) {
    Taps s = sparseTaps(k, 0, 0);
    std::vector<T> h(kOrder + 1, T(0));
    // liquid's taps meet the newest sample first: h[pos] multiplies x[n - pos]
    for (int i = 0; i < kTaps; ++i) memcpy(&h[size_t(s.pos[size_t(i)])], &s.t[size_t(k * i)], sizeof(T));
    return h;
}
void BM_Liquid_firfilt_rrrf_dense4097(benchmark::State& st) {
    auto h = denseTaps<float>(1);
    auto x = noiseF(kLen, 1);
    std::vector<float> y(kLen);
    firfilt_rrrf q = firfilt_rrrf_create(h.data(), unsigned(h.size()));
    for (auto _ : st) {
        firfilt_rrrf_execute_block(q, x.data(), unsigned(kLen), y.data());
        benchmark::DoNotOptimize(y.data());
    }
    firfilt_rrrf_destroy(q);
    items(st);
}
void BM_Liquid_firfilt_cccf_dense4097(benchmark::State& st) {
    auto h = denseTaps<cf>(2);
    auto xs = noiseF(2 * kLen, 1);
    std::vector<cf> x(kLen), y(kLen);
    memcpy(x.data(), xs.data(), sizeof(cf) * kLen);
    firfilt_cccf q = firfilt_cccf_create(h.data(), unsigned(h.size()));
    for (auto _ : st) {
        firfilt_cccf_execute_block(q, x.data(), unsigned(kLen), y.data());
        benchmark::DoNotOptimize(y.data());
    }
    firfilt_cccf_destroy(q);
    items(st);
}
BENCHMARK(BM_Liquid_firfilt_rrrf_dense4097)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_Liquid_firfilt_cccf_dense4097)->Unit(benchmark::kMicrosecond);
#endif

BENCHMARK(BM_FIRSparse_32f)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_Loop_FIRSparse_32f)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_FIRSparse_32fc)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_Loop_FIRSparse_32fc)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_IIRSparse_32f)->Arg(64)->Arg(4)->Arg(1)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_Loop_IIRSparse_32f)->Arg(64)->Arg(4)->Arg(1)->Unit(benchmark::kMicrosecond);

}  // namespace
