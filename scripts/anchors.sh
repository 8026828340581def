#!/usr/bin/env bash
# Builds the fastest open FFT anchor a user would build for this processor:
# FFTW 3.3.10 from Debian's source package, single and double precision, with
# the SSE2/AVX/AVX2/AVX-512 codelets and FMA, into a prefix outside the tree.
# Skipped when the prefix already holds both libraries.
#   scripts/anchors.sh [prefix]      default /opt/vrx-anchors/fftw-avx512
# Environment: JOBS (make -j, default 1), NICE (default 19).
# Then: cmake -DVRX_BENCH_FFTW_PREFIX=<prefix> ... and build bench_fft.
set -euo pipefail
prefix=${1:-/opt/vrx-anchors/fftw-avx512}
jobs=${JOBS:-1}
nice=${NICE:-19}
if [[ -f "$prefix/lib/libfftw3f.so" && -f "$prefix/lib/libfftw3.so" ]]; then
  echo "anchors: $prefix already built"
  exit 0
fi
work=${WORK:-$(dirname "$prefix")/src}
mkdir -p "$work"
# Debian's sources: a deb-src entry next to the binary one, and dpkg-dev to unpack
if ! dpkg-query -W -f='${Status}' dpkg-dev 2>/dev/null | grep -q "install ok installed"; then
  DEBIAN_FRONTEND=noninteractive apt-get install -y -qq dpkg-dev
fi
if ! grep -rqs "deb-src" /etc/apt/sources.list /etc/apt/sources.list.d/; then
  . /etc/os-release
  cat > /etc/apt/sources.list.d/vrx-anchors-src.sources <<SRC
Types: deb-src
URIs: http://deb.debian.org/debian
Suites: ${VERSION_CODENAME}
Components: main
Signed-By: /usr/share/keyrings/debian-archive-keyring.gpg
SRC
  apt-get update -qq
fi
cd "$work"
src=$(ls -d fftw3-3.3.10* 2>/dev/null | head -1 || true)
if [[ -z "$src" ]]; then
  apt-get source -qq fftw3
  src=$(ls -d fftw3-3.3.10*/ | head -1)
fi
src=${src%/}
common=(--prefix="$prefix" --enable-sse2 --enable-avx --enable-avx2 --enable-avx512
        --enable-fma --enable-shared --disable-static --disable-fortran
        --disable-doc CFLAGS=-O3)
# one out-of-source build directory per precision
for prec in float double; do
  b="$work/build-$prec"
  mkdir -p "$b"
  cd "$b"
  extra=()
  [[ $prec == float ]] && extra=(--enable-float)
  [[ -f Makefile ]] || nice -n "$nice" "$work/$src/configure" "${common[@]}" "${extra[@]}"
  nice -n "$nice" make -j"$jobs"
  make install
done
echo "anchors: FFTW installed in $prefix"
