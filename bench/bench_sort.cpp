// Sorting against the standard library and a plain LSD radix sort, side by
// side at 1 Ki, 64 Ki and 1 Mi elements of random data:
//   vrxsSortAscend_*_I         / std::sort
//   vrxsSortRadixAscend_*_I    / lsd (8-bit digits, all histograms in one pass)
//   vrxsSortIndexAscend_*_I,
//   vrxsSortRadixIndexAscend_* / std::stable_sort of (key, index) pairs
// Every iteration sorts a fresh copy of one of several different random
// vectors (so that no branch predictor learns a run by heart); the copy is
// timed on both sides alike. Floats are finite (std::sort needs a strict
// weak order).
#include <benchmark/benchmark.h>
#include <stdlib.h>
#include <string.h>

#include <algorithm>
#include <random>
#include <type_traits>
#include <utility>
#include <vector>

#include "vrxs.h"

namespace {

const int64_t kSizes[] = {1 << 10, 64 << 10, 1 << 20};

void sizes(benchmark::internal::Benchmark* b) {
    for (int64_t s : kSizes) b->Arg(s);
}

// Several random vectors of n elements back to back: about 1 MiB of data,
// at least one vector.
template <class T>
size_t copiesFor(size_t n) {
    size_t c = (size_t(1) << 20) / (n * sizeof(T));
    return c ? c : 1;
}

template <class T>
std::vector<T> randomData(size_t n) {
    std::mt19937_64 g(12345);
    std::vector<T> v(n * copiesFor<T>(n));
    for (auto& x : v) {
        if constexpr (std::is_floating_point_v<T>) x = static_cast<T>(std::uniform_real_distribution<double>(-1e6, 1e6)(g));
        else x = static_cast<T>(g());
    }
    return v;
}

template <class T> struct DataType;
template <> struct DataType<Vrx8u> { static constexpr VrxDataType v = vrx8u; };
template <> struct DataType<Vrx16u> { static constexpr VrxDataType v = vrx16u; };
template <> struct DataType<Vrx16s> { static constexpr VrxDataType v = vrx16s; };
template <> struct DataType<Vrx32u> { static constexpr VrxDataType v = vrx32u; };
template <> struct DataType<Vrx32s> { static constexpr VrxDataType v = vrx32s; };
template <> struct DataType<Vrx32f> { static constexpr VrxDataType v = vrx32f; };
template <> struct DataType<Vrx64f> { static constexpr VrxDataType v = vrx64f; };

// ------------------------------------------------------ the LSD reference
// Unsigned keys in total order, 8-bit digits, one histogram pass for all
// digits, ping-pong between the data and a scratch vector.
template <class T>
auto lsdKey(T x) {
    if constexpr (std::is_same_v<T, float>) {
        uint32_t b;
        memcpy(&b, &x, 4);
        return b ^ ((b >> 31) ? 0xFFFFFFFFu : 0x80000000u);
    } else if constexpr (std::is_same_v<T, double>) {
        uint64_t b;
        memcpy(&b, &x, 8);
        return b ^ ((b >> 63) ? ~0ull : 0x8000000000000000ull);
    } else if constexpr (std::is_signed_v<T>) {
        using U = std::make_unsigned_t<T>;
        return static_cast<U>(static_cast<U>(x) ^ (U(1) << (sizeof(T) * 8 - 1)));
    } else {
        return x;
    }
}

template <class T>
void lsdSort(T* a, T* tmp, size_t n) {
    constexpr int P = sizeof(T);
    static thread_local uint32_t hist[P][256];
    memset(hist, 0, sizeof hist);
    for (size_t i = 0; i < n; ++i) {
        auto k = lsdKey(a[i]);
        for (int p = 0; p < P; ++p) ++hist[p][(k >> (8 * p)) & 0xFF];
    }
    T* s = a;
    T* d = tmp;
    for (int p = 0; p < P; ++p) {
        uint32_t acc = 0;
        for (int v = 0; v < 256; ++v) { uint32_t c = hist[p][v]; hist[p][v] = acc; acc += c; }
        for (size_t i = 0; i < n; ++i) d[hist[p][(lsdKey(s[i]) >> (8 * p)) & 0xFF]++] = s[i];
        std::swap(s, d);
    }
    if (s != a) memcpy(a, s, n * sizeof(T));
}

// ------------------------------------------------------------- the runs

template <class T, class Op>
void runInPlace(benchmark::State& st, Op op) {
    const size_t n = static_cast<size_t>(st.range(0));
    const auto src = randomData<T>(n);
    const size_t copies = copiesFor<T>(n);
    std::vector<T> a(n);
    size_t c = 0;
    for (auto _ : st) {
        memcpy(a.data(), src.data() + n * c, n * sizeof(T));
        c = c + 1 == copies ? 0 : c + 1;
        op(a.data(), n);
        benchmark::ClobberMemory();
    }
    st.SetItemsProcessed(st.iterations() * st.range(0));
}

template <class T>
void BM_std_sort(benchmark::State& st) {
    runInPlace<T>(st, [](T* a, size_t n) { std::sort(a, a + n); });
}

template <class T, VrxStatus (*F)(T*, int)>
void BM_vrx_sort(benchmark::State& st) {
    runInPlace<T>(st, [](T* a, size_t n) { F(a, static_cast<int>(n)); });
}

template <class T>
void BM_lsd(benchmark::State& st) {
    std::vector<T> tmp(static_cast<size_t>(st.range(0)));
    runInPlace<T>(st, [&](T* a, size_t n) { lsdSort(a, tmp.data(), n); });
}

template <class T, VrxStatus (*F)(T*, int, Vrx8u*)>
void BM_vrx_radix(benchmark::State& st) {
    int size = 0;
    vrxsSortRadixGetBufferSize(static_cast<int>(st.range(0)), DataType<T>::v, &size);
    std::vector<Vrx8u> buf(static_cast<size_t>(size));
    runInPlace<T>(st, [&](T* a, size_t n) { F(a, static_cast<int>(n), buf.data()); });
}

template <class T>
void BM_std_stable_pairs(benchmark::State& st) {
    const size_t n = static_cast<size_t>(st.range(0));
    const auto src = randomData<T>(n);
    const size_t copies = copiesFor<T>(n);
    std::vector<std::pair<T, int>> p(n);
    size_t c = 0;
    for (auto _ : st) {
        const T* s = src.data() + n * c;
        c = c + 1 == copies ? 0 : c + 1;
        for (size_t i = 0; i < n; ++i) p[i] = {s[i], static_cast<int>(i)};
        std::stable_sort(p.begin(), p.end(), [](const auto& x, const auto& y) { return x.first < y.first; });
        benchmark::ClobberMemory();
    }
    st.SetItemsProcessed(st.iterations() * st.range(0));
}

template <class T, VrxStatus (*F)(T*, int*, int)>
void BM_vrx_index(benchmark::State& st) {
    const size_t n = static_cast<size_t>(st.range(0));
    const auto src = randomData<T>(n);
    const size_t copies = copiesFor<T>(n);
    std::vector<T> a(n);
    std::vector<int> ix(n);
    size_t c = 0;
    for (auto _ : st) {
        memcpy(a.data(), src.data() + n * c, n * sizeof(T));
        c = c + 1 == copies ? 0 : c + 1;
        F(a.data(), ix.data(), static_cast<int>(n));
        benchmark::ClobberMemory();
    }
    st.SetItemsProcessed(st.iterations() * st.range(0));
}

template <class T, VrxStatus (*F)(const T*, int*, int, Vrx8u*)>
void BM_vrx_radix_index(benchmark::State& st) {
    const size_t n = static_cast<size_t>(st.range(0));
    const auto src = randomData<T>(n);
    const size_t copies = copiesFor<T>(n);
    std::vector<int> ix(n);
    int size = 0;
    vrxsSortRadixIndexGetBufferSize(static_cast<int>(n), DataType<T>::v, &size);
    std::vector<Vrx8u> buf(static_cast<size_t>(size));
    size_t c = 0;
    for (auto _ : st) {
        F(src.data() + n * c, ix.data(), static_cast<int>(n), buf.data());
        c = c + 1 == copies ? 0 : c + 1;
        benchmark::ClobberMemory();
    }
    st.SetItemsProcessed(st.iterations() * st.range(0));
}

// in place, against std::sort
BENCHMARK(BM_vrx_sort<Vrx8u, vrxsSortAscend_8u_I>)->Apply(sizes);
BENCHMARK(BM_std_sort<Vrx8u>)->Apply(sizes);
BENCHMARK(BM_vrx_sort<Vrx16u, vrxsSortAscend_16u_I>)->Apply(sizes);
BENCHMARK(BM_std_sort<Vrx16u>)->Apply(sizes);
BENCHMARK(BM_vrx_sort<Vrx16s, vrxsSortAscend_16s_I>)->Apply(sizes);
BENCHMARK(BM_std_sort<Vrx16s>)->Apply(sizes);
BENCHMARK(BM_vrx_sort<Vrx32u, vrxsSortAscend_32u_I>)->Apply(sizes);
BENCHMARK(BM_std_sort<Vrx32u>)->Apply(sizes);
BENCHMARK(BM_vrx_sort<Vrx32s, vrxsSortAscend_32s_I>)->Apply(sizes);
BENCHMARK(BM_std_sort<Vrx32s>)->Apply(sizes);
BENCHMARK(BM_vrx_sort<Vrx32f, vrxsSortAscend_32f_I>)->Apply(sizes);
BENCHMARK(BM_std_sort<Vrx32f>)->Apply(sizes);
BENCHMARK(BM_vrx_sort<Vrx64f, vrxsSortAscend_64f_I>)->Apply(sizes);
BENCHMARK(BM_std_sort<Vrx64f>)->Apply(sizes);

// buffered, against the LSD radix sort
BENCHMARK(BM_vrx_radix<Vrx8u, vrxsSortRadixAscend_8u_I>)->Apply(sizes);
BENCHMARK(BM_lsd<Vrx8u>)->Apply(sizes);
BENCHMARK(BM_vrx_radix<Vrx16s, vrxsSortRadixAscend_16s_I>)->Apply(sizes);
BENCHMARK(BM_lsd<Vrx16s>)->Apply(sizes);
BENCHMARK(BM_vrx_radix<Vrx32u, vrxsSortRadixAscend_32u_I>)->Apply(sizes);
BENCHMARK(BM_lsd<Vrx32u>)->Apply(sizes);
BENCHMARK(BM_vrx_radix<Vrx32f, vrxsSortRadixAscend_32f_I>)->Apply(sizes);
BENCHMARK(BM_lsd<Vrx32f>)->Apply(sizes);
BENCHMARK(BM_vrx_radix<Vrx64f, vrxsSortRadixAscend_64f_I>)->Apply(sizes);
BENCHMARK(BM_lsd<Vrx64f>)->Apply(sizes);

// index forms, against std::stable_sort of (key, index)
BENCHMARK(BM_vrx_index<Vrx16s, vrxsSortIndexAscend_16s_I>)->Apply(sizes);
BENCHMARK(BM_vrx_radix_index<Vrx16s, vrxsSortRadixIndexAscend_16s>)->Apply(sizes);
BENCHMARK(BM_std_stable_pairs<Vrx16s>)->Apply(sizes);
BENCHMARK(BM_vrx_index<Vrx32s, vrxsSortIndexAscend_32s_I>)->Apply(sizes);
BENCHMARK(BM_vrx_radix_index<Vrx32s, vrxsSortRadixIndexAscend_32s>)->Apply(sizes);
BENCHMARK(BM_std_stable_pairs<Vrx32s>)->Apply(sizes);
BENCHMARK(BM_vrx_index<Vrx32f, vrxsSortIndexAscend_32f_I>)->Apply(sizes);
BENCHMARK(BM_vrx_radix_index<Vrx32f, vrxsSortRadixIndexAscend_32f>)->Apply(sizes);
BENCHMARK(BM_std_stable_pairs<Vrx32f>)->Apply(sizes);
BENCHMARK(BM_vrx_index<Vrx64f, vrxsSortIndexAscend_64f_I>)->Apply(sizes);
BENCHMARK(BM_vrx_radix_index<Vrx64f, vrxsSortRadixIndexAscend_64f>)->Apply(sizes);
BENCHMARK(BM_std_stable_pairs<Vrx64f>)->Apply(sizes);

}  // namespace

BENCHMARK_MAIN();
