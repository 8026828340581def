// Two calls timed in turns: a block of calls of a, then a block of calls
// of b, each block timed on its own, so that the slow phases of a shared
// machine fall on both alike. Counters: <a>_ns and <b>_ns per call, and
// <b>_over_<a>, the ratio of their times.
#pragma once

#include <benchmark/benchmark.h>

#include <chrono>
#include <string>

template <class A, class B>
void timePair(benchmark::State& state, int block, A a, B b, const std::string& nameA, const std::string& nameB) {
    double ta = 0, tb = 0;
    for (auto _ : state) {
        const auto t0 = std::chrono::steady_clock::now();
        for (int k = 0; k < block; ++k) {
            a();
            benchmark::ClobberMemory();
        }
        const auto t1 = std::chrono::steady_clock::now();
        for (int k = 0; k < block; ++k) {
            b();
            benchmark::ClobberMemory();
        }
        const auto t2 = std::chrono::steady_clock::now();
        ta += std::chrono::duration<double, std::nano>(t1 - t0).count();
        tb += std::chrono::duration<double, std::nano>(t2 - t1).count();
    }
    const double calls = double(state.iterations()) * block;
    state.counters[nameA + "_ns"] = ta / calls;
    state.counters[nameB + "_ns"] = tb / calls;
    state.counters[nameB + "_over_" + nameA] = tb / ta;
}
