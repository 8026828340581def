// Zero-phase IIR filtering, 64 Ki samples at orders 2, 4 and 8, float and
// double, against a plain -O3 -march=native two-pass loop: the same odd
// extension and steady-state start, forward in direct form II transposed
// into the destination, then backward over it in place.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <vector>

#include "vrxs.h"

namespace {

constexpr int kLen = 65536;

std::vector<double> designTaps(int order) {
    std::vector<double> t(2 * order + 2);
    vrxsIIRGenLowpass_64f(0.15, 0.0, order, t.data(), vrxIirGenButterworth);
    return t;
}

// The scalar reference: one pass of direct form II transposed over v in
// the direction step, starting from the line zi * v[first].
template <class T>
void scalarPass(const T* b, const T* a, const T* zi, int n, T* d, const T* in, T* out, int len, int step) {
    const T* x = step > 0 ? in : in + len - 1;
    T* y = step > 0 ? out : out + len - 1;
    for (int i = 0; i < n; ++i) d[i] = zi[i] * x[0];
    d[n] = 0;
    for (int k = 0; k < len; ++k) {
        const T xk = x[k * step];
        const T yk = b[0] * xk + d[0];
        for (int i = 0; i < n; ++i) d[i] = b[i + 1] * xk - a[i + 1] * yk + d[i + 1];
        y[k * step] = yk;
    }
}

template <class T>
void scalarTwoPass(benchmark::State& state) {
    const int n = static_cast<int>(state.range(0));
    const std::vector<double> t = designTaps(n);
    std::vector<T> b(t.begin(), t.begin() + n + 1), a(t.begin() + n + 1, t.end()), zi(n), d(n + 1);
    long double sb = 0, sa = 0;
    for (int i = 0; i <= n; ++i) { sb += b[i]; sa += a[i]; }
    long double acc = 0;
    for (int i = n; i >= 1; --i) { acc += b[i] - a[i] * (sb / sa); zi[i - 1] = static_cast<T>(acc); }
    const int e = 3 * n;
    std::vector<T> x(kLen), ext(kLen + 2 * e), y(kLen + 2 * e);
    for (int i = 0; i < kLen; ++i) x[i] = static_cast<T>((i * 7919 % 1000) / 500.0 - 1.0);
    for (auto _ : state) {
        for (int i = 0; i < e; ++i) ext[i] = 2 * x[0] - x[e - i];
        std::copy(x.begin(), x.end(), ext.begin() + e);
        for (int j = 0; j < e; ++j) ext[e + kLen + j] = 2 * x[kLen - 1] - x[kLen - 2 - j];
        scalarPass(b.data(), a.data(), zi.data(), n, d.data(), ext.data(), y.data(), kLen + 2 * e, 1);
        scalarPass(b.data(), a.data(), zi.data(), n, d.data(), y.data(), y.data(), kLen + 2 * e, -1);
        benchmark::DoNotOptimize(y.data());
    }
    state.SetItemsProcessed(state.iterations() * kLen);
}

template <class T>
void vrxTwoPass(benchmark::State& state) {
    const int n = static_cast<int>(state.range(0));
    const std::vector<double> t = designTaps(n);
    int size = 0;
    if constexpr (sizeof(T) == 4) vrxsIIRIIRGetStateSize_32f(n, &size);
    else vrxsIIRIIRGetStateSize_64f(n, &size);
    std::vector<Vrx8u> buf(size);
    std::vector<T> x(kLen), y(kLen);
    for (int i = 0; i < kLen; ++i) x[i] = static_cast<T>((i * 7919 % 1000) / 500.0 - 1.0);
    if constexpr (sizeof(T) == 4) {
        std::vector<float> tf(t.begin(), t.end());
        VrxsIirIirState_32f* s = nullptr;
        vrxsIIRIIRInit_32f(&s, tf.data(), n, buf.data());
        for (auto _ : state) {
            vrxsIIRIIR_32f(x.data(), y.data(), kLen, s);
            benchmark::DoNotOptimize(y.data());
        }
    } else {
        VrxsIirIirState_64f* s = nullptr;
        vrxsIIRIIRInit_64f(&s, t.data(), n, buf.data());
        for (auto _ : state) {
            vrxsIIRIIR_64f(x.data(), y.data(), kLen, s);
            benchmark::DoNotOptimize(y.data());
        }
    }
    state.SetItemsProcessed(state.iterations() * kLen);
}

BENCHMARK_TEMPLATE(vrxTwoPass, float)->Name("IIRIIR/vrx_32f")->Arg(2)->Arg(4)->Arg(8);
BENCHMARK_TEMPLATE(scalarTwoPass, float)->Name("IIRIIR/scalar_32f")->Arg(2)->Arg(4)->Arg(8);
BENCHMARK_TEMPLATE(vrxTwoPass, double)->Name("IIRIIR/vrx_64f")->Arg(2)->Arg(4)->Arg(8);
BENCHMARK_TEMPLATE(scalarTwoPass, double)->Name("IIRIIR/scalar_64f")->Arg(2)->Arg(4)->Arg(8);

}  // namespace
