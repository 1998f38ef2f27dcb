#!/bin/bash
# Builds a fuzz target (FUZZ_TARGET: fuzz_deflate, the default, or
# fuzz_jpeg) with clang (libFuzzer, ASan, UBSan; the
# "fuzz" CMake preset, which compiles the whole library with coverage and
# each kernel file with its level's flags) and runs it for the given number
# of seconds (default 60) on one core.
#   [FUZZ_TARGET=fuzz_jpeg] tests/fuzz/build-and-run.sh [seconds] [extra libFuzzer arguments...]
# Crashing inputs are left in build/fuzz/ as crash-*; rerun one with
#   build/fuzz/tests/fuzz/fuzz_deflate build/fuzz/crash-...
set -euo pipefail
root=$(cd "$(dirname "$0")/../.." && pwd)
out=$root/build/fuzz
seconds=${1:-60}
shift || true
cd "$root"
cmake --preset fuzz >/dev/null
target=${FUZZ_TARGET:-fuzz_deflate}
cmake --build --preset fuzz --target "$target"
cd "$out"
if [ "$target" = fuzz_jpeg ]; then
    # Seeds: the natural test image and a short entropy-coded segment.
    mkdir -p corpus-jpeg
    cp "$root/tests/data/grace_hopper.jpg" corpus-jpeg/seed-photo
    printf '\x80\x05\x02\x3f\xfa\x28\xa2\x8a\xff\x00\x12\xff\xd0' >corpus-jpeg/seed-scan
    exec ./tests/fuzz/fuzz_jpeg -max_total_time="$seconds" -max_len=200000 -rss_limit_mb=4096 "$@" corpus-jpeg
fi
mkdir -p "$out/corpus"
# A few seeds so the first minute already sees long inputs: text, runs, a
# dictionary and tiny chunks.
if [ -z "$(ls corpus)" ]; then
    python3 - <<'PY'
import random
random.seed(1)
text = b"the quick brown fox jumps over the lazy dog " * 400
runs = b"".join(bytes([random.randrange(3)]) * random.randrange(1, 400) for _ in range(300))
seeds = {"text": bytes([1, 200, 3, 1, 2, 255, 0, 0]) + text,
         "best-runs": bytes([2, 9, 40, 0, 255, 3, 1, 0]) + runs,
         "dict-tiny": bytes([0x45, 0x82, 1, 2, 1, 0, 1, 20]) + text[:3000] + runs[:3000]}
for name, data in seeds.items():
    open("corpus/seed-" + name, "wb").write(data)
PY
fi
./tests/fuzz/fuzz_deflate -max_total_time="$seconds" -max_len=300000 -rss_limit_mb=4096 "$@" corpus
