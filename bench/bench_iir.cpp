// IIR filters against liquid-dsp's iirfilt_rrrf (transfer-function form and
// second-order sections) and plain -O3 -march=native loops (direct form II
// transposed and a biquad cascade with the state in locals), side by side
// at 1 Ki and 64 Ki samples.
#include <benchmark/benchmark.h>

#include <cmath>
#include <complex>
#include <vector>

#ifdef VRX_HAVE_LIQUID
#include <liquid/liquid.h>
#endif

#include "vrxs.h"

namespace {

// A stable order-n denominator (poles on radius 0.85 at spread angles) and a
// numerator of ones over n+1; taps b[0..n], a[0..n].
std::vector<double> arTaps(int n) {
    std::vector<std::complex<double>> p{1.0};
    for (int k = 0; k < n; ++k) {
        std::complex<double> z = std::polar(0.85, (k % 2 ? -1 : 1) * (0.3 + 0.4 * (k / 2)));
        if (n % 2 && k == n - 1) z = 0.5;
        std::vector<std::complex<double>> q(p.size() + 1, 0.0);
        for (size_t i = 0; i < p.size(); ++i) { q[i] += p[i]; q[i + 1] -= z * p[i]; }
        p = q;
    }
    std::vector<double> t(2 * n + 2);
    for (int i = 0; i <= n; ++i) { t[i] = 1.0 / (n + 1); t[n + 1 + i] = p[i].real(); }
    return t;
}
// m sections b0, b1, b2, a0, a1, a2 with poles on radius 0.9.
std::vector<double> bqTaps(int m) {
    std::vector<double> t;
    for (int s = 0; s < m; ++s) {
        double th = 0.2 + 0.3 * s;
        double v[6] = {0.3, 0.2, 0.1, 1.0, -2 * 0.9 * std::cos(th), 0.81};
        t.insert(t.end(), v, v + 6);
    }
    return t;
}
template <class T> std::vector<T> signal(int len) {
    std::vector<T> x(len);
    for (int i = 0; i < len; ++i) x[i] = static_cast<T>(std::sin(0.01 * i) * 1000 + (i % 7));
    return x;
}

// ---------------------------------------------------------------- loops
template <class T, class S>
void loopDF2T(const std::vector<double>& taps, int n, const S* x, S* y, int len, double scale = 1) {
    T b[16], a[16], d[16] = {};
    for (int i = 0; i <= n; ++i) { b[i] = static_cast<T>(taps[i] / taps[n + 1]); a[i] = static_cast<T>(taps[n + 1 + i] / taps[n + 1]); }
    for (int k = 0; k < len; ++k) {
        T xi = static_cast<T>(x[k]);
        T yi = b[0] * xi + d[0];
        for (int i = 0; i < n - 1; ++i) d[i] = b[i + 1] * xi - a[i + 1] * yi + d[i + 1];
        d[n - 1] = b[n] * xi - a[n] * yi;
        if constexpr (std::is_integral_v<S>) y[k] = static_cast<S>(std::nearbyint(yi * scale));
        else y[k] = static_cast<S>(yi);
    }
}
template <class T, class S>
void loopBQ(const std::vector<double>& taps, int m, const S* x, S* y, int len, double scale = 1) {
    T q[8][5], d[8][2] = {};
    for (int s = 0; s < m; ++s)
        for (int j = 0, src[5] = {0, 1, 2, 4, 5}; j < 5; ++j) q[s][j] = static_cast<T>(taps[6 * s + src[j]] / taps[6 * s + 3]);
    for (int k = 0; k < len; ++k) {
        T v = static_cast<T>(x[k]);
        for (int s = 0; s < m; ++s) {
            T yi = q[s][0] * v + d[s][0];
            d[s][0] = q[s][1] * v - q[s][3] * yi + d[s][1];
            d[s][1] = q[s][2] * v - q[s][4] * yi;
            v = yi;
        }
        if constexpr (std::is_integral_v<S>) y[k] = static_cast<S>(std::nearbyint(v * scale));
        else y[k] = static_cast<S>(v);
    }
}

// ------------------------------------------------------------- the library
void counters(benchmark::State& s, int len) {
    s.SetItemsProcessed(s.iterations() * len);
}

void AR32f_vrx(benchmark::State& s) {
    int n = s.range(0), len = s.range(1);
    std::vector<double> t = arTaps(n);
    std::vector<float> tf(t.begin(), t.end());
    int size;
    vrxsIIRGetStateSize_32f(n, &size);
    std::vector<uint8_t> mem(size);
    VrxsIirState* st;
    vrxsIIRInit_32f(&st, tf.data(), n, nullptr, mem.data());
    auto x = signal<float>(len);
    std::vector<float> y(len);
    for (auto _ : s) { vrxsIIR_32f(x.data(), y.data(), len, st); benchmark::DoNotOptimize(y.data()); }
    counters(s, len);
}
void AR32f_loop(benchmark::State& s) {
    int n = s.range(0), len = s.range(1);
    std::vector<double> t = arTaps(n);
    auto x = signal<float>(len);
    std::vector<float> y(len);
    for (auto _ : s) { loopDF2T<float>(t, n, x.data(), y.data(), len); benchmark::DoNotOptimize(y.data()); }
    counters(s, len);
}
void BQ32f_vrx(benchmark::State& s) {
    int m = s.range(0), len = s.range(1);
    std::vector<double> t = bqTaps(m);
    std::vector<float> tf(t.begin(), t.end());
    int size;
    vrxsIIRGetStateSize_BiQuad_32f(m, &size);
    std::vector<uint8_t> mem(size);
    VrxsIirState* st;
    vrxsIIRInit_BiQuad_32f(&st, tf.data(), m, nullptr, mem.data());
    auto x = signal<float>(len);
    std::vector<float> y(len);
    for (auto _ : s) { vrxsIIR_32f(x.data(), y.data(), len, st); benchmark::DoNotOptimize(y.data()); }
    counters(s, len);
}
void BQ32f_loop(benchmark::State& s) {
    int m = s.range(0), len = s.range(1);
    std::vector<double> t = bqTaps(m);
    auto x = signal<float>(len);
    std::vector<float> y(len);
    for (auto _ : s) { loopBQ<float>(t, m, x.data(), y.data(), len); benchmark::DoNotOptimize(y.data()); }
    counters(s, len);
}
#ifdef VRX_HAVE_LIQUID
void AR32f_liquid(benchmark::State& s) {
    int n = s.range(0), len = s.range(1);
    std::vector<double> t = arTaps(n);
    std::vector<float> b(t.begin(), t.begin() + n + 1), a(t.begin() + n + 1, t.end());
    iirfilt_rrrf q = iirfilt_rrrf_create(b.data(), n + 1, a.data(), n + 1);
    auto x = signal<float>(len);
    std::vector<float> y(len);
    for (auto _ : s) { iirfilt_rrrf_execute_block(q, x.data(), len, y.data()); benchmark::DoNotOptimize(y.data()); }
    iirfilt_rrrf_destroy(q);
    counters(s, len);
}
void BQ32f_liquid(benchmark::State& s) {
    int m = s.range(0), len = s.range(1);
    std::vector<double> t = bqTaps(m);
    std::vector<float> b, a;
    for (int i = 0; i < m; ++i) { b.insert(b.end(), t.begin() + 6 * i, t.begin() + 6 * i + 3); a.insert(a.end(), t.begin() + 6 * i + 3, t.begin() + 6 * i + 6); }
    iirfilt_rrrf q = iirfilt_rrrf_create_sos(b.data(), a.data(), m);
    auto x = signal<float>(len);
    std::vector<float> y(len);
    for (auto _ : s) { iirfilt_rrrf_execute_block(q, x.data(), len, y.data()); benchmark::DoNotOptimize(y.data()); }
    iirfilt_rrrf_destroy(q);
    counters(s, len);
}
#endif

void AR64f_vrx(benchmark::State& s) {
    int n = s.range(0), len = s.range(1);
    std::vector<double> t = arTaps(n);
    int size;
    vrxsIIRGetStateSize_64f(n, &size);
    std::vector<uint8_t> mem(size);
    VrxsIirState* st;
    vrxsIIRInit_64f(&st, t.data(), n, nullptr, mem.data());
    auto x = signal<double>(len);
    std::vector<double> y(len);
    for (auto _ : s) { vrxsIIR_64f(x.data(), y.data(), len, st); benchmark::DoNotOptimize(y.data()); }
    counters(s, len);
}
void AR64f_loop(benchmark::State& s) {
    int n = s.range(0), len = s.range(1);
    std::vector<double> t = arTaps(n);
    auto x = signal<double>(len);
    std::vector<double> y(len);
    for (auto _ : s) { loopDF2T<double>(t, n, x.data(), y.data(), len); benchmark::DoNotOptimize(y.data()); }
    counters(s, len);
}
void BQ64f_vrx(benchmark::State& s) {
    int m = s.range(0), len = s.range(1);
    std::vector<double> t = bqTaps(m);
    int size;
    vrxsIIRGetStateSize_BiQuad_64f(m, &size);
    std::vector<uint8_t> mem(size);
    VrxsIirState* st;
    vrxsIIRInit_BiQuad_64f(&st, t.data(), m, nullptr, mem.data());
    auto x = signal<double>(len);
    std::vector<double> y(len);
    for (auto _ : s) { vrxsIIR_64f(x.data(), y.data(), len, st); benchmark::DoNotOptimize(y.data()); }
    counters(s, len);
}
void BQ64f_loop(benchmark::State& s) {
    int m = s.range(0), len = s.range(1);
    std::vector<double> t = bqTaps(m);
    auto x = signal<double>(len);
    std::vector<double> y(len);
    for (auto _ : s) { loopBQ<double>(t, m, x.data(), y.data(), len); benchmark::DoNotOptimize(y.data()); }
    counters(s, len);
}

// integer samples: order 4 AR and 2 biquads, double arithmetic
template <class S>
void AR64fInt_vrx(benchmark::State& s) {
    int n = s.range(0), len = s.range(1);
    std::vector<double> t = arTaps(n);
    int size;
    VrxsIirState* st;
    std::vector<uint8_t> mem;
    if constexpr (sizeof(S) == 2) { vrxsIIRGetStateSize64f_16s(n, &size); mem.resize(size); vrxsIIRInit64f_16s(&st, t.data(), n, nullptr, mem.data()); }
    else { vrxsIIRGetStateSize64f_32s(n, &size); mem.resize(size); vrxsIIRInit64f_32s(&st, t.data(), n, nullptr, mem.data()); }
    auto x = signal<S>(len);
    std::vector<S> y(len);
    for (auto _ : s) {
        if constexpr (sizeof(S) == 2) vrxsIIR64f_16s_Sfs(x.data(), y.data(), len, st, 1);
        else vrxsIIR64f_32s_Sfs(x.data(), y.data(), len, st, 1);
        benchmark::DoNotOptimize(y.data());
    }
    counters(s, len);
}
template <class S>
void AR64fInt_loop(benchmark::State& s) {
    int n = s.range(0), len = s.range(1);
    std::vector<double> t = arTaps(n);
    auto x = signal<S>(len);
    std::vector<S> y(len);
    for (auto _ : s) { loopDF2T<double>(t, n, x.data(), y.data(), len, 0.5); benchmark::DoNotOptimize(y.data()); }
    counters(s, len);
}

// complex kinds: order 4 AR in complex float, 2 biquads in complex double,
// against the same direct form II transposed loops over std::complex
template <class T>
std::vector<std::complex<T>> cxTaps(const std::vector<double>& t) {
    std::vector<std::complex<T>> c(t.size());
    for (size_t i = 0; i < t.size(); ++i) c[i] = std::complex<T>(static_cast<T>(t[i]), static_cast<T>(0.1 * t[i]));
    return c;
}
void AR32fc_vrx(benchmark::State& s) {
    int n = s.range(0), len = s.range(1);
    auto t = cxTaps<float>(arTaps(n));
    int size;
    vrxsIIRGetStateSize_32fc(n, &size);
    std::vector<uint8_t> mem(size);
    VrxsIirState* st;
    vrxsIIRInit_32fc(&st, reinterpret_cast<const Vrx32fc*>(t.data()), n, nullptr, mem.data());
    auto x = signal<float>(2 * len);
    std::vector<float> y(2 * len);
    for (auto _ : s) {
        vrxsIIR_32fc(reinterpret_cast<const Vrx32fc*>(x.data()), reinterpret_cast<Vrx32fc*>(y.data()), len, st);
        benchmark::DoNotOptimize(y.data());
    }
    counters(s, len);
}
void AR32fc_loop(benchmark::State& s) {
    int n = s.range(0), len = s.range(1);
    auto t = cxTaps<float>(arTaps(n));
    using Z = std::complex<float>;
    auto xs = signal<float>(2 * len);
    std::vector<Z> y(len);
    const Z* x = reinterpret_cast<const Z*>(xs.data());
    for (auto _ : s) {
        Z b[16], a[16], d[16] = {};
        for (int i = 0; i <= n; ++i) { b[i] = t[i] / t[n + 1]; a[i] = t[n + 1 + i] / t[n + 1]; }
        for (int k = 0; k < len; ++k) {
            Z yi = b[0] * x[k] + d[0];
            for (int i = 0; i < n - 1; ++i) d[i] = b[i + 1] * x[k] - a[i + 1] * yi + d[i + 1];
            d[n - 1] = b[n] * x[k] - a[n] * yi;
            y[k] = yi;
        }
        benchmark::DoNotOptimize(y.data());
    }
    counters(s, len);
}
void BQ64fc_vrx(benchmark::State& s) {
    int m = s.range(0), len = s.range(1);
    auto t = cxTaps<double>(bqTaps(m));
    int size;
    vrxsIIRGetStateSize_BiQuad_64fc(m, &size);
    std::vector<uint8_t> mem(size);
    VrxsIirState* st;
    vrxsIIRInit_BiQuad_64fc(&st, reinterpret_cast<const Vrx64fc*>(t.data()), m, nullptr, mem.data());
    auto x = signal<double>(2 * len);
    std::vector<double> y(2 * len);
    for (auto _ : s) {
        vrxsIIR_64fc(reinterpret_cast<const Vrx64fc*>(x.data()), reinterpret_cast<Vrx64fc*>(y.data()), len, st);
        benchmark::DoNotOptimize(y.data());
    }
    counters(s, len);
}
void BQ64fc_loop(benchmark::State& s) {
    int m = s.range(0), len = s.range(1);
    auto t = cxTaps<double>(bqTaps(m));
    using Z = std::complex<double>;
    auto xs = signal<double>(2 * len);
    std::vector<Z> y(len);
    const Z* x = reinterpret_cast<const Z*>(xs.data());
    for (auto _ : s) {
        Z q[8][5], d[8][2] = {};
        for (int k = 0; k < m; ++k)
            for (int j = 0, src[5] = {0, 1, 2, 4, 5}; j < 5; ++j) q[k][j] = t[6 * k + src[j]] / t[6 * k + 3];
        for (int k = 0; k < len; ++k) {
            Z v = x[k];
            for (int i = 0; i < m; ++i) {
                Z yi = q[i][0] * v + d[i][0];
                d[i][0] = q[i][1] * v - q[i][3] * yi + d[i][1];
                d[i][1] = q[i][2] * v - q[i][4] * yi;
                v = yi;
            }
            y[k] = v;
        }
        benchmark::DoNotOptimize(y.data());
    }
    counters(s, len);
}

// 8 channels of 4 biquads: one _P call against 8 single calls
constexpr int kCh = 8;
template <bool Multi>
void BQ32f_channels(benchmark::State& s) {
    int len = s.range(0);
    std::vector<double> t = bqTaps(4);
    std::vector<float> tf(t.begin(), t.end());
    int size;
    vrxsIIRGetStateSize_BiQuad_32f(4, &size);
    std::vector<std::vector<uint8_t>> mem(kCh, std::vector<uint8_t>(size));
    std::vector<VrxsIirState*> st(kCh);
    std::vector<std::vector<float>> x(kCh, signal<float>(len)), y(kCh, std::vector<float>(len));
    std::vector<const float*> src(kCh);
    std::vector<float*> dst(kCh);
    for (int c = 0; c < kCh; ++c) {
        vrxsIIRInit_BiQuad_32f(&st[c], tf.data(), 4, nullptr, mem[c].data());
        src[c] = x[c].data();
        dst[c] = y[c].data();
    }
    for (auto _ : s) {
        if (Multi) vrxsIIR_32f_P(src.data(), dst.data(), len, kCh, st.data());
        else for (int c = 0; c < kCh; ++c) vrxsIIR_32f(src[c], dst[c], len, st[c]);
        benchmark::DoNotOptimize(dst.data());
    }
    counters(s, len * kCh);
}

}  // namespace

#define ORDERS ->ArgsProduct({{1, 2, 4, 8, 12}, {1024, 65536}})
#define SECTIONS ->ArgsProduct({{1, 2, 4, 8}, {1024, 65536}})
BENCHMARK(AR32f_vrx) ORDERS;
BENCHMARK(AR32f_loop) ORDERS;
BENCHMARK(BQ32f_vrx) SECTIONS;
BENCHMARK(BQ32f_loop) SECTIONS;
#ifdef VRX_HAVE_LIQUID
BENCHMARK(AR32f_liquid) ORDERS;
BENCHMARK(BQ32f_liquid) SECTIONS;
#endif
BENCHMARK(AR64f_vrx)->ArgsProduct({{2, 8}, {1024, 65536}});
BENCHMARK(AR64f_loop)->ArgsProduct({{2, 8}, {1024, 65536}});
BENCHMARK(BQ64f_vrx)->ArgsProduct({{2, 4}, {1024, 65536}});
BENCHMARK(BQ64f_loop)->ArgsProduct({{2, 4}, {1024, 65536}});
BENCHMARK(AR64fInt_vrx<Vrx16s>)->ArgsProduct({{4}, {1024, 65536}});
BENCHMARK(AR64fInt_loop<Vrx16s>)->ArgsProduct({{4}, {1024, 65536}});
BENCHMARK(AR64fInt_vrx<Vrx32s>)->ArgsProduct({{4}, {1024, 65536}});
BENCHMARK(AR64fInt_loop<Vrx32s>)->ArgsProduct({{4}, {1024, 65536}});
BENCHMARK(AR32fc_vrx)->ArgsProduct({{4}, {1024, 65536}});
BENCHMARK(AR32fc_loop)->ArgsProduct({{4}, {1024, 65536}});
BENCHMARK(BQ64fc_vrx)->ArgsProduct({{2}, {1024, 65536}});
BENCHMARK(BQ64fc_loop)->ArgsProduct({{2}, {1024, 65536}});
BENCHMARK(BQ32f_channels<true>)->Arg(1024)->Arg(65536);
BENCHMARK(BQ32f_channels<false>)->Arg(1024)->Arg(65536);

BENCHMARK_MAIN();
