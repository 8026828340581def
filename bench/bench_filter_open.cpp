// Open filter families against liquid-dsp and plain scalar loops, 64 Ki
// samples: median, LMS, polyphase resampling, sparse FIR/IIR and zero-phase
// IIR. Each family's cases live in bench/filter_open/<family>.cpp and are
// linked into this one executable, so one run shows them side by side.
#include <benchmark/benchmark.h>

BENCHMARK_MAIN();
