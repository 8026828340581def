// Wavelet transforms side by side with a plain scalar polyphase loop
// (-O3 -march=native) and two liquid-dsp firdecim_rrrf / firinterp_rrrf
// objects (M = 2): taps 4, 8, 16, 32; 4 Ki and 256 Ki outputs per band,
// fed in calls of 4096 outputs. The counter ns_per_pair is nanoseconds per
// output pair (one low and one high value, or two samples). Typed forms
// run beside the 32f state. Haar, forward and inverse, against a scalar
// loop at 4 Ki elements and against memcpy of the same bytes at 4 Mi.
#include <benchmark/benchmark.h>
#include <stdlib.h>
#include <string.h>

#include <complex>
#include <random>
#include <vector>

#include "vrxs.h"

#ifdef VRX_HAVE_LIQUID
#include <liquid/liquid.h>
#endif

namespace {

constexpr int kCall = 4096;  // outputs per band and call

std::vector<float> taps(int n, unsigned seed) {
    std::mt19937 g(seed);
    std::uniform_real_distribution<float> d(-1.0f, 1.0f);
    std::vector<float> t(n);
    for (float& v : t) v = d(g);
    return t;
}
template <class T>
std::vector<T> signal(size_t n, double scale) {
    std::mt19937 g(7);
    std::uniform_real_distribution<double> d(-scale, scale);
    std::vector<T> x(n);
    for (T& v : x) v = static_cast<T>(d(g));
    return x;
}

void perPair(benchmark::State& st, int64_t pairs) {
    st.counters["ns_per_pair"] =
        benchmark::Counter(static_cast<double>(pairs) * 1e-9, benchmark::Counter::kIsIterationInvariantRate |
                                                                   benchmark::Counter::kInvert);
}

// ------------------------------------------------------------- forward
template <class S, int Sel, class St, VrxStatus (*Init)(St*, const Vrx32f*, int, int, const Vrx32f*, int, int),
          VrxStatus (*Fwd)(const S*, Vrx32f*, Vrx32f*, int, St*)>
void BM_WTFwd(benchmark::State& st) {
    const int T = static_cast<int>(st.range(0)), total = static_cast<int>(st.range(1));
    const auto h0 = taps(T, 1), h1 = taps(T, 2);
    int size = 0;
    vrxsWTFwdGetSize(Sel, T, 0, T, 0, &size);
    std::vector<uint8_t> mem(size);
    St* s = reinterpret_cast<St*>(mem.data());
    Init(s, h0.data(), T, 0, h1.data(), T, 0);
    const auto x = signal<S>(2 * size_t(total), Sel == 13 ? 1.0 : 100.0);
    std::vector<float> lo(total), hi(total);
    for (auto _ : st) {
        for (int i = 0; i < total; i += kCall) Fwd(x.data() + 2 * i, lo.data() + i, hi.data() + i, kCall, s);
        benchmark::DoNotOptimize(lo.data());
    }
    perPair(st, total);
}

// The scalar polyphase loop: history and block in one buffer.
void BM_ScalarFwd(benchmark::State& st) {
    const int T = static_cast<int>(st.range(0)), total = static_cast<int>(st.range(1));
    const auto h0 = taps(T, 1), h1 = taps(T, 2);
    const auto x = signal<float>(2 * size_t(total), 1.0);
    std::vector<float> lo(total), hi(total), buf(T - 1 + 2 * kCall, 0.0f);
    for (auto _ : st) {
        for (int i = 0; i < total; i += kCall) {
            memcpy(buf.data() + T - 1, x.data() + 2 * i, 2 * kCall * sizeof(float));
            for (int m = 0; m < kCall; ++m) {
                const float* s = buf.data() + T - 1 + 2 * m;
                float a = 0, b = 0;
                for (int k = 0; k < T; ++k) {
                    a += h0[k] * s[-k];
                    b += h1[k] * s[-k];
                }
                lo[i + m] = a;
                hi[i + m] = b;
            }
            memmove(buf.data(), buf.data() + 2 * kCall, (T - 1) * sizeof(float));
        }
        benchmark::DoNotOptimize(lo.data());
    }
    perPair(st, total);
}

#ifdef VRX_HAVE_LIQUID
void BM_LiquidFwd(benchmark::State& st) {
    const int T = static_cast<int>(st.range(0)), total = static_cast<int>(st.range(1));
    auto h0 = taps(T, 1), h1 = taps(T, 2);
    firdecim_rrrf q0 = firdecim_rrrf_create(2, h0.data(), T), q1 = firdecim_rrrf_create(2, h1.data(), T);
    auto x = signal<float>(2 * size_t(total), 1.0);
    std::vector<float> lo(total), hi(total);
    for (auto _ : st) {
        for (int i = 0; i < total; i += kCall) {
            firdecim_rrrf_execute_block(q0, x.data() + 2 * i, kCall, lo.data() + i);
            firdecim_rrrf_execute_block(q1, x.data() + 2 * i, kCall, hi.data() + i);
        }
        benchmark::DoNotOptimize(lo.data());
    }
    firdecim_rrrf_destroy(q0);
    firdecim_rrrf_destroy(q1);
    perPair(st, total);
}
#endif

// ------------------------------------------------------------- inverse
template <class D, int Sel, class St, VrxStatus (*Init)(St*, const Vrx32f*, int, int, const Vrx32f*, int, int),
          VrxStatus (*Inv)(const Vrx32f*, const Vrx32f*, int, D*, St*)>
void BM_WTInv(benchmark::State& st) {
    const int T = static_cast<int>(st.range(0)), total = static_cast<int>(st.range(1));
    const auto h0 = taps(T, 1), h1 = taps(T, 2);
    int size = 0;
    vrxsWTInvGetSize(Sel, T, 0, T, 0, &size);
    std::vector<uint8_t> mem(size);
    St* s = reinterpret_cast<St*>(mem.data());
    Init(s, h0.data(), T, 0, h1.data(), T, 0);
    const auto lo = signal<float>(total, 20.0), hi = signal<float>(total, 20.0);
    std::vector<D> y(2 * size_t(total));
    for (auto _ : st) {
        for (int i = 0; i < total; i += kCall) Inv(lo.data() + i, hi.data() + i, kCall, y.data() + 2 * i, s);
        benchmark::DoNotOptimize(y.data());
    }
    perPair(st, total);
}

void BM_ScalarInv(benchmark::State& st) {
    const int T = static_cast<int>(st.range(0)), total = static_cast<int>(st.range(1));
    const auto g0 = taps(T, 1), g1 = taps(T, 2);
    const int H = (T + 1) / 2;
    std::vector<float> e0(H, 0.0f), o0(H, 0.0f), e1(H, 0.0f), o1(H, 0.0f);
    for (int k = 0; k < T; ++k) (k & 1 ? o0 : e0)[k / 2] = g0[k], (k & 1 ? o1 : e1)[k / 2] = g1[k];
    const auto lo = signal<float>(total, 1.0), hi = signal<float>(total, 1.0);
    std::vector<float> y(2 * size_t(total)), b0(H - 1 + kCall, 0.0f), b1(H - 1 + kCall, 0.0f);
    for (auto _ : st) {
        for (int i = 0; i < total; i += kCall) {
            memcpy(b0.data() + H - 1, lo.data() + i, kCall * sizeof(float));
            memcpy(b1.data() + H - 1, hi.data() + i, kCall * sizeof(float));
            for (int m = 0; m < kCall; ++m) {
                const float* u = b0.data() + H - 1 + m;
                const float* v = b1.data() + H - 1 + m;
                float a = 0, b = 0, c = 0, d = 0;
                for (int j = 0; j < H; ++j) {
                    a += e0[j] * u[-j];
                    b += o0[j] * u[-j];
                    c += e1[j] * v[-j];
                    d += o1[j] * v[-j];
                }
                y[2 * (i + m)] = a + c;
                y[2 * (i + m) + 1] = b + d;
            }
            memmove(b0.data(), b0.data() + kCall, (H - 1) * sizeof(float));
            memmove(b1.data(), b1.data() + kCall, (H - 1) * sizeof(float));
        }
        benchmark::DoNotOptimize(y.data());
    }
    perPair(st, total);
}

#ifdef VRX_HAVE_LIQUID
void BM_LiquidInv(benchmark::State& st) {
    const int T = static_cast<int>(st.range(0)), total = static_cast<int>(st.range(1));
    auto g0 = taps(T, 1), g1 = taps(T, 2);
    firinterp_rrrf q0 = firinterp_rrrf_create(2, g0.data(), T), q1 = firinterp_rrrf_create(2, g1.data(), T);
    auto lo = signal<float>(total, 1.0), hi = signal<float>(total, 1.0);
    std::vector<float> y(2 * size_t(total)), t(2 * kCall);
    for (auto _ : st) {
        for (int i = 0; i < total; i += kCall) {
            float* d = y.data() + 2 * i;
            firinterp_rrrf_execute_block(q0, lo.data() + i, kCall, d);
            firinterp_rrrf_execute_block(q1, hi.data() + i, kCall, t.data());
            for (int k = 0; k < 2 * kCall; ++k) d[k] += t[k];
        }
        benchmark::DoNotOptimize(y.data());
    }
    firinterp_rrrf_destroy(q0);
    firinterp_rrrf_destroy(q1);
    perPair(st, total);
}
#endif

void FilterArgs(benchmark::internal::Benchmark* b) {
    for (int total : {4096, 262144})
        for (int t : {4, 8, 16, 32}) b->Args({t, total});
}

BENCHMARK(BM_WTFwd<Vrx32f, 13, VrxsWtFwdState_32f, vrxsWTFwdInit_32f, vrxsWTFwd_32f>)->Name("WTFwd_32f")->Apply(FilterArgs);
BENCHMARK(BM_ScalarFwd)->Name("ScalarFwd")->Apply(FilterArgs);
#ifdef VRX_HAVE_LIQUID
BENCHMARK(BM_LiquidFwd)->Name("LiquidFirdecim2")->Apply(FilterArgs);
#endif
BENCHMARK(BM_WTFwd<Vrx8u, 1, VrxsWtFwdState_8u32f, vrxsWTFwdInit_8u32f, vrxsWTFwd_8u32f>)->Name("WTFwd_8u32f")->Apply(FilterArgs);
BENCHMARK(BM_WTFwd<Vrx16s, 7, VrxsWtFwdState_16s32f, vrxsWTFwdInit_16s32f, vrxsWTFwd_16s32f>)->Name("WTFwd_16s32f")->Apply(FilterArgs);
BENCHMARK(BM_WTInv<Vrx32f, 13, VrxsWtInvState_32f, vrxsWTInvInit_32f, vrxsWTInv_32f>)->Name("WTInv_32f")->Apply(FilterArgs);
BENCHMARK(BM_ScalarInv)->Name("ScalarInv")->Apply(FilterArgs);
#ifdef VRX_HAVE_LIQUID
BENCHMARK(BM_LiquidInv)->Name("LiquidFirinterp2")->Apply(FilterArgs);
#endif
BENCHMARK(BM_WTInv<Vrx8u, 1, VrxsWtInvState_32f8u, vrxsWTInvInit_32f8u, vrxsWTInv_32f8u>)->Name("WTInv_32f8u")->Apply(FilterArgs);
BENCHMARK(BM_WTInv<Vrx16s, 7, VrxsWtInvState_32f16s, vrxsWTInvInit_32f16s, vrxsWTInv_32f16s>)->Name("WTInv_32f16s")->Apply(FilterArgs);

// ----------------------------------------------------------------- Haar
// Every Haar run, ours and the loops it is compared with, reads and writes
// the same kind of buffers: on 64-byte boundaries (second argument 0), or
// each its own fixed distance past one (1: the source 16 bytes, the first
// result 48, the second 32), as heap blocks fall. The timings at 4 Ki move
// with the alignment, and separate heap blocks would give each side its own.
template <class T>
class Aligned {
public:
    Aligned(size_t n, size_t off) : raw_(static_cast<char*>(aligned_alloc(64, ((n * sizeof(T) + 63) & ~size_t(63)) + 64))), p_(reinterpret_cast<T*>(raw_ + off)) {}
    Aligned(const std::vector<T>& v, size_t off) : Aligned(v.size(), off) { memcpy(p_, v.data(), v.size() * sizeof(T)); }
    ~Aligned() { free(raw_); }
    Aligned(const Aligned&) = delete;
    Aligned& operator=(const Aligned&) = delete;
    T* data() const { return p_; }
    T& operator[](size_t i) const { return p_[i]; }
private:
    char* raw_;
    T* p_;
};
// byte offsets of the source and the two results for a run's second argument
struct HaarOffsets {
    size_t src, r1, r2;
    explicit HaarOffsets(int64_t misaligned) : src(misaligned ? 16 : 0), r1(misaligned ? 48 : 0), r2(misaligned ? 32 : 0) {}
};

template <class T>
void BM_HaarFwd(benchmark::State& st) {
    const int n = static_cast<int>(st.range(0));
    const HaarOffsets o(st.range(1));
    const Aligned<T> x(signal<T>(n, 1000.0), o.src), lo(n / 2, o.r1), hi(n / 2, o.r2);
    for (auto _ : st) {
        if constexpr (sizeof(T) == 2) vrxsWTHaarFwd_16s_Sfs(x.data(), n, lo.data(), hi.data(), 0);
        else if constexpr (sizeof(T) == 4) vrxsWTHaarFwd_32f(x.data(), n, lo.data(), hi.data());
        else vrxsWTHaarFwd_64f(x.data(), n, lo.data(), hi.data());
        benchmark::DoNotOptimize(lo.data());
    }
    st.SetBytesProcessed(int64_t(st.iterations()) * n * sizeof(T));
}

template <class T>
void BM_HaarScalar(benchmark::State& st) {
    const int n = static_cast<int>(st.range(0));
    const HaarOffsets o(st.range(1));
    const Aligned<T> x(signal<T>(n, 1000.0), o.src), lo(n / 2, o.r1), hi(n / 2, o.r2);
    for (auto _ : st) {
        for (int i = 0; i < n / 2; ++i) {
            if constexpr (sizeof(T) == 2) {
                // sf 0: (s / 2) and (d / 2), ties to even, saturated
                const int s = x[2 * i] + x[2 * i + 1], d = x[2 * i + 1] - x[2 * i];
                const int ls = (s + (s >> 1 & 1)) >> 1, ld = (d + (d >> 1 & 1)) >> 1;
                lo[i] = static_cast<T>(ls > 32767 ? 32767 : ls);
                hi[i] = static_cast<T>(ld > 32767 ? 32767 : ld < -32768 ? -32768 : ld);
            } else {
                const T h = (x[2 * i + 1] - x[2 * i]) * T(0.5);
                hi[i] = h;
                lo[i] = h + x[2 * i];
            }
        }
        benchmark::DoNotOptimize(lo.data());
    }
    st.SetBytesProcessed(int64_t(st.iterations()) * n * sizeof(T));
}

template <class T>
void BM_HaarInv(benchmark::State& st) {
    const int n = static_cast<int>(st.range(0));
    const HaarOffsets o(st.range(1));
    const Aligned<T> lo(signal<T>(n / 2, 1000.0), o.src), hi(signal<T>(n / 2, 500.0), o.r2), x(n, o.r1);
    for (auto _ : st) {
        if constexpr (sizeof(T) == 2) vrxsWTHaarInv_16s_Sfs(lo.data(), hi.data(), x.data(), n, 0);
        else if constexpr (sizeof(T) == 4) vrxsWTHaarInv_32f(lo.data(), hi.data(), x.data(), n);
        else vrxsWTHaarInv_64f(lo.data(), hi.data(), x.data(), n);
        benchmark::DoNotOptimize(x.data());
    }
    st.SetBytesProcessed(int64_t(st.iterations()) * n * sizeof(T));
}

template <class T>
void BM_HaarInvScalar(benchmark::State& st) {
    const int n = static_cast<int>(st.range(0));
    const HaarOffsets o(st.range(1));
    const Aligned<T> lo(signal<T>(n / 2, 1000.0), o.src), hi(signal<T>(n / 2, 500.0), o.r2), x(n, o.r1);
    for (auto _ : st) {
        for (int i = 0; i < n / 2; ++i) {
            if constexpr (sizeof(T) == 2) {  // sf 0: low - high and low + high, saturated
                const int a = lo[i] - hi[i], b = lo[i] + hi[i];
                x[2 * i] = static_cast<T>(a > 32767 ? 32767 : a < -32768 ? -32768 : a);
                x[2 * i + 1] = static_cast<T>(b > 32767 ? 32767 : b < -32768 ? -32768 : b);
            } else {
                x[2 * i] = lo[i] - hi[i];
                x[2 * i + 1] = lo[i] + hi[i];
            }
        }
        benchmark::DoNotOptimize(x.data());
    }
    st.SetBytesProcessed(int64_t(st.iterations()) * n * sizeof(T));
}

template <class T>
void BM_Memcpy(benchmark::State& st) {
    const int n = static_cast<int>(st.range(0));
    const HaarOffsets o(st.range(1));
    const Aligned<T> x(signal<T>(n, 1000.0), o.src), y(n, o.r1);
    for (auto _ : st) {
        memcpy(y.data(), x.data(), n * sizeof(T));
        benchmark::DoNotOptimize(y.data());
    }
    st.SetBytesProcessed(int64_t(st.iterations()) * n * sizeof(T));
}

void HaarSmallArgs(benchmark::internal::Benchmark* b) { b->Args({4096, 0})->Args({4096, 1}); }
void HaarLargeArgs(benchmark::internal::Benchmark* b) { b->Args({4 << 20, 0})->Args({4 << 20, 1}); }
void HaarArgs(benchmark::internal::Benchmark* b) { HaarSmallArgs(b); HaarLargeArgs(b); }

BENCHMARK(BM_HaarFwd<float>)->Name("WTHaarFwd_32f")->Apply(HaarArgs);
BENCHMARK(BM_HaarScalar<float>)->Name("HaarScalar_32f")->Apply(HaarSmallArgs);
BENCHMARK(BM_Memcpy<float>)->Name("Memcpy_32f")->Apply(HaarLargeArgs);
BENCHMARK(BM_HaarFwd<double>)->Name("WTHaarFwd_64f")->Apply(HaarArgs);
BENCHMARK(BM_HaarScalar<double>)->Name("HaarScalar_64f")->Apply(HaarSmallArgs);
BENCHMARK(BM_Memcpy<double>)->Name("Memcpy_64f")->Apply(HaarLargeArgs);
BENCHMARK(BM_HaarFwd<int16_t>)->Name("WTHaarFwd_16s_Sfs")->Apply(HaarArgs);
BENCHMARK(BM_HaarScalar<int16_t>)->Name("HaarScalar_16s")->Apply(HaarSmallArgs);
BENCHMARK(BM_Memcpy<int16_t>)->Name("Memcpy_16s")->Apply(HaarLargeArgs);
BENCHMARK(BM_HaarInv<float>)->Name("WTHaarInv_32f")->Apply(HaarArgs);
BENCHMARK(BM_HaarInvScalar<float>)->Name("HaarInvScalar_32f")->Apply(HaarSmallArgs);
BENCHMARK(BM_HaarInv<double>)->Name("WTHaarInv_64f")->Apply(HaarArgs);
BENCHMARK(BM_HaarInvScalar<double>)->Name("HaarInvScalar_64f")->Apply(HaarSmallArgs);
BENCHMARK(BM_HaarInv<int16_t>)->Name("WTHaarInv_16s_Sfs")->Apply(HaarArgs);
BENCHMARK(BM_HaarInvScalar<int16_t>)->Name("HaarInvScalar_16s")->Apply(HaarSmallArgs);

}  // namespace

BENCHMARK_MAIN();
