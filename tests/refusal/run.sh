#!/bin/sh
# Runs a program of the library on an emulated processor without AVX-512
# (qemu-x86_64 -cpu Haswell) and checks that the core library refuses it at
# load: exit status 70, nothing on stdout (main never ran), and one line on
# stderr that names the library and the missing features.
#   run.sh <program>      exit 77 (skipped) when qemu-x86_64 is not installed
prog=$1
qemu=$(command -v qemu-x86_64) || { echo "qemu-x86_64 not found (Debian package qemu-user): skipped"; exit 77; }
dir=$(mktemp -d) || exit 1
trap 'rm -rf "$dir"' EXIT
"$qemu" -cpu Haswell "$prog" >"$dir/out" 2>"$dir/all"
rc=$?
# qemu's own notes about features it cannot emulate are not the program's
grep -v '^qemu-x86_64: ' "$dir/all" >"$dir/err"
echo "status $rc; stderr:"; cat "$dir/err"
fail=0
[ "$rc" -eq 70 ] || { echo "FAIL: status $rc, expected 70"; fail=1; }
[ -s "$dir/out" ] && { echo "FAIL: the program wrote to stdout, so main ran:"; cat "$dir/out"; fail=1; }
[ "$(wc -l <"$dir/err")" -eq 1 ] || { echo "FAIL: expected exactly one line on stderr"; fail=1; }
grep -q '^vrxs: libvrxsn0\.so\.9\.0 is built for processors with AVX-512F and AVX-512CD, and this one lacks AVX-512F and AVX-512CD' "$dir/err" \
  || { echo "FAIL: the line does not name the library and both missing features"; fail=1; }
grep -q 'run the program on a machine whose /proc/cpuinfo lists avx512f and avx512cd' "$dir/err" || { echo "FAIL: the line does not say what to do"; fail=1; }
exit $fail
