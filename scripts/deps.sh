#!/usr/bin/env bash
# Installs the Debian packages the build needs, when they are missing.
#   scripts/deps.sh          compiler, CMake, GoogleTest, pkg-config, and qemu-user
#                            (its test runs a program on an emulated processor
#                            without AVX-512 and sees the library refuse it);
#                            Python 3 with NumPy, SciPy, pytest and matplotlib
#                            (the Python package, its cross-checks and example)
#   scripts/deps.sh --bench  also Google Benchmark and the comparison libraries
#   scripts/deps.sh --check  also clang, its sanitizer and fuzzer runtimes and
#                            ccache, for scripts/check.sh
set -euo pipefail
pkgs=(g++ cmake make libgtest-dev pkg-config qemu-user
      python3 python3-numpy python3-scipy python3-pytest python3-matplotlib)
if [[ "${1:-}" == "--bench" ]]; then
  pkgs+=(libbenchmark-dev libfftw3-dev libvolk2-dev libsleef-dev libliquid-dev)
fi
if [[ "${1:-}" == "--check" ]]; then
  pkgs+=(clang libclang-rt-dev ccache)
fi
missing=()
for p in "${pkgs[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
done
if ((${#missing[@]})); then
  export DEBIAN_FRONTEND=noninteractive
  apt-get update -qq
  apt-get install -y -qq "${missing[@]}"
fi
