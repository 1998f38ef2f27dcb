#!/usr/bin/env bash
# The emulated-processor matrix: runs the i686 test program under qemu-i386
# on processor models of every code-path level, and on models whose vendor
# string, family and model are overridden.  Each run checks the processor
# type and level the library picks there (VEK_EXPECT_CPU_TYPE/LEVEL), then
# runs the whole suite.  QEMU raises an illegal-instruction fault for SSE3,
# SSSE3, SSE4.1 and AVX2 instructions a model lacks; tests/check_isa.py
# covers the older instruction sets, which QEMU does not police, and the
# AVX-512 level, which QEMU cannot run.  A fourth column caps the level
# through VEK_MAX_LEVEL.
#
# usage: tests/run-emulated.sh BUILD_DIR   (an i686-linux build)
set -euo pipefail
build=${1:?usage: run-emulated.sh BUILD_DIR}
tests="$build/tests/vek_tests"
qemu=$(command -v qemu-i386) || { echo "qemu-i386 not found"; exit 1; }
own="vendor=GenuineOrvan"

# model                                         type level
matrix=(
  "pentium2                                      0  0"
  "pentium3                                      64 1"
  "pentium3,+sse2                                65 2"
  "coreduo                                       66 3"
  "core2duo                                      67 4"
  "Penryn                                        68 5"
  "Nehalem                                       69 5"
  "pentium2,$own,family=5,model=4                2  0"
  "pentium3,$own,family=6,model=8                5  1"
  "pentium3,+sse2,$own,family=6,model=9          9  2"
  "pentium3,+sse2,$own,family=15,model=2         6  2"
  "coreduo,$own,family=6,model=14                10 3"
  "coreduo,$own,family=15,model=3                8  3"
  "core2duo,$own,family=6,model=15               33 4"
  "Nehalem,$own,family=6,model=28                36 4"
  "Penryn,$own,family=6,model=23                 68 5"
  "Nehalem,$own,family=6,model=26                35 5"
  "Haswell                                       69 6"
  "Haswell,$own,family=6,model=26                35 6"
  "Haswell                                       69 4  4"
)

passed=0 failed=0
for row in "${matrix[@]}"; do
  read -r model type level cap <<<"$row"
  log=$(mktemp)
  label="$model${cap:+ (VEK_MAX_LEVEL=$cap)}"
  if env ${cap:+VEK_MAX_LEVEL=$cap} VEK_TEST_PROFILE=light VEK_EXPECT_CPU_TYPE="$type" VEK_EXPECT_LEVEL="$level" \
     "$qemu" -cpu "$model" "$tests" --gtest_brief=1 >"$log" 2>&1; then
    printf 'ok    %-62s type %-2s level %s\n' "$label" "$type" "$level"
    passed=$((passed + 1))
  else
    printf 'FAIL  %-62s type %-2s level %s\n' "$label" "$type" "$level"
    grep -v 'TCG doesn.t support' "$log" | tail -25
    failed=$((failed + 1))
  fi
  rm -f "$log"
done
echo "emulated processors: $passed passed, $failed failed"
[ "$failed" -eq 0 ]
