#!/usr/bin/env bash
# The reliability checks that run after the unit tests, each in its own
# build tree beside build/:
#   asan  build-asan  g++ -fsanitize=address,undefined (at -O1): libraries, tests and
#                     examples; the whole ctest suite
#   tsan  build-tsan  g++ -fsanitize=thread: libraries and the thread tests
#                     (tests/test_threads_*.cpp) only; ctest -R test_threads
#   fuzz  build-fuzz  clang, libraries instrumented for coverage and
#                     address,undefined: every tests/fuzz/fuzz_*.cpp, each
#                     run for VRX_FUZZ_SECONDS (20) seconds
# Usage: scripts/check.sh [asan] [tsan] [fuzz]      (no argument: all three)
# Environment: VRX_CHECK_JOBS (2) parallel builds, tests and fuzz runs;
# VRX_FUZZ_SECONDS (20). The compiler cache is used when ccache is present.
# Any sanitizer report, test failure or fuzz finding stops the script with
# a nonzero status; a fuzz finding is kept in build-fuzz/findings/.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/deps.sh --check

jobs=${VRX_CHECK_JOBS:-2}
fuzzSeconds=${VRX_FUZZ_SECONDS:-20}
stages=("$@")
((${#stages[@]})) || stages=(asan tsan fuzz)

common=(-DCMAKE_BUILD_TYPE=Release -DVRX_BUILD_BENCH=OFF)
if command -v ccache >/dev/null 2>&1; then
  common+=(-DCMAKE_C_COMPILER_LAUNCHER=ccache -DCMAKE_CXX_COMPILER_LAUNCHER=ccache)
fi
# Errors stop the program; leaks count as errors.
export ASAN_OPTIONS=${ASAN_OPTIONS:-detect_leaks=1:abort_on_error=1}
export UBSAN_OPTIONS=${UBSAN_OPTIONS:-print_stacktrace=1:halt_on_error=1}
export TSAN_OPTIONS=${TSAN_OPTIONS:-halt_on_error=1:second_deadlock_stack=1}

summary=()
timed() {  # timed <stage> <command...>: runs and records the wall time
  local name=$1 t0=$SECONDS
  shift
  echo "== check: $name"
  "$@"
  summary+=("$name: $((SECONDS - t0)) s")
}

asan() {
  cmake -S . -B build-asan "${common[@]}" -DVRX_SANITIZE=address,undefined >/dev/null
  cmake --build build-asan -j"$jobs"
  ctest --test-dir build-asan --output-on-failure -j"$jobs"
}

tsan() {
  local targets=()
  for f in tests/test_threads_*.cpp; do targets+=("$(basename "$f" .cpp)"); done
  cmake -S . -B build-tsan "${common[@]}" -DVRX_SANITIZE=thread -DVRX_BUILD_EXAMPLES=OFF >/dev/null
  cmake --build build-tsan -j"$jobs" --target "${targets[@]}"
  ctest --test-dir build-tsan --output-on-failure -j"$jobs" -R '^test_threads_'
}

fuzzRun() {  # fuzzRun <target>: one target for fuzzSeconds, its corpus kept
  local name=$1 dir=build-fuzz
  mkdir -p "$dir/corpus/$name" "$dir/findings"
  if "$dir/fuzz/$name" -max_total_time="$fuzzSeconds" -print_final_stats=1 \
       -artifact_prefix="$dir/findings/$name-" "$dir/corpus/$name" >"$dir/$name.log" 2>&1; then
    echo "$name: $(grep -o 'Done [0-9]* runs' "$dir/$name.log" | tail -1) in ${fuzzSeconds} s"
  else
    echo "$name: FAILED"; tail -40 "$dir/$name.log"; return 1
  fi
}

fuzz() {
  local cc=${VRX_FUZZ_CC:-clang} cxx=${VRX_FUZZ_CXX:-clang++}
  CC=$cc CXX=$cxx cmake -S . -B build-fuzz "${common[@]}" -DVRX_FUZZ=ON -DVRX_BUILD_TESTS=OFF \
    -DVRX_BUILD_EXAMPLES=OFF >/dev/null
  cmake --build build-fuzz -j"$jobs" --target fuzz
  local names=()
  for f in tests/fuzz/fuzz_*.cpp; do names+=("$(basename "$f" .cpp)"); done
  export -f fuzzRun
  export fuzzSeconds
  printf '%s\n' "${names[@]}" | xargs -P "$jobs" -I{} bash -c 'fuzzRun {}'
}

for s in "${stages[@]}"; do
  case $s in
    asan|tsan|fuzz) timed "$s" "$s" ;;
    *) echo "unknown stage: $s (asan, tsan, fuzz)" >&2; exit 2 ;;
  esac
done
echo "== check: passed (${summary[*]})"
