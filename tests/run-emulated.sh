#!/usr/bin/env bash
# The emulated-processor matrix: runs the i686 test program under qemu-i386
# on processor models of every code-path level, and on models whose vendor
# string, family and model are overridden.  Each run checks the processor
# type and level the library picks there (VEK_EXPECT_CPU_TYPE/LEVEL).
#
# "full" rows then run the whole suite, whose differential cases run every
# level the model has: on a model that stops just below a level's
# successor, QEMU raises an illegal-instruction fault for any SSE3, SSSE3,
# SSE4.1 or AVX2 instruction a level uses beyond its set.  tests/check_isa.py
# covers what QEMU does not police (SSE, SSE2) or cannot run (AVX-512).
# "select" rows check only the choice of type and level (the other models
# of a level would rerun the same code).  A last column caps the level
# through VEK_MAX_LEVEL.
#
# usage: tests/run-emulated.sh BUILD_DIR   (an i686-linux build)
set -euo pipefail
build=${1:?usage: run-emulated.sh BUILD_DIR}
tests="$build/tests/vek_tests"
qemu=$(command -v qemu-i386) || { echo "qemu-i386 not found"; exit 1; }
own="vendor=GenuineOrvan"

# model                                   type level  runs    cap
matrix=(
  "pentium2                                0  0       full"
  "pentium3                                64 1       select"
  "pentium3,+sse2                          65 2       select"
  "coreduo                                 66 3       full"
  "core2duo                                67 4       full"
  "Penryn                                  68 5       full"
  "Nehalem                                 69 5       select"
  "Haswell                                 69 6       full"
  "Haswell                                 69 4       select  4"
  "pentium2,$own,family=5,model=4          2  0       select"
  "pentium3,$own,family=6,model=8          5  1       select"
  "pentium3,+sse2,$own,family=6,model=9    9  2       select"
  "pentium3,+sse2,$own,family=15,model=2   6  2       select"
  "coreduo,$own,family=6,model=14          10 3       select"
  "coreduo,$own,family=15,model=3          8  3       select"
  "core2duo,$own,family=6,model=15         33 4       select"
  "Nehalem,$own,family=6,model=28          36 4       select"
  "Penryn,$own,family=6,model=23           68 5       select"
  "Nehalem,$own,family=6,model=26          35 5       select"
  "Haswell,$own,family=6,model=26          35 6       select"
)

passed=0 failed=0
for row in "${matrix[@]}"; do
  read -r model type level runs cap <<<"$row"
  log=$(mktemp)
  label="$model${cap:+ (VEK_MAX_LEVEL=$cap)}"
  filter='*'
  [ "$runs" = select ] && filter='Cpu*:Versions*'
  if env ${cap:+VEK_MAX_LEVEL=$cap} VEK_TEST_PROFILE=light VEK_EXPECT_CPU_TYPE="$type" VEK_EXPECT_LEVEL="$level" \
     "$qemu" -cpu "$model" "$tests" --gtest_brief=1 --gtest_filter="$filter" >"$log" 2>&1; then
    printf 'ok    %-56s type %-2s level %s  %s\n' "$label" "$type" "$level" "$runs"
    passed=$((passed + 1))
  else
    printf 'FAIL  %-56s type %-2s level %s  %s\n' "$label" "$type" "$level" "$runs"
    grep -v 'TCG doesn.t support' "$log" | tail -25
    failed=$((failed + 1))
  fi
  rm -f "$log"
done
echo "emulated processors: $passed passed, $failed failed"
[ "$failed" -eq 0 ]
