#!/bin/bash
# Builds the deflate fuzz target with clang (libFuzzer, ASan, UBSan; the
# "fuzz" CMake preset, which compiles the whole library with coverage and
# each kernel file with its level's flags) and runs it for the given number
# of seconds (default 60) on one core.
#   tests/fuzz/build-and-run.sh [seconds] [extra libFuzzer arguments...]
# Crashing inputs are left in build/fuzz/ as crash-*; rerun one with
#   build/fuzz/tests/fuzz/fuzz_deflate build/fuzz/crash-...
set -euo pipefail
root=$(cd "$(dirname "$0")/../.." && pwd)
out=$root/build/fuzz
seconds=${1:-60}
shift || true
cd "$root"
cmake --preset fuzz >/dev/null
cmake --build --preset fuzz --target fuzz_deflate
mkdir -p "$out/corpus"
cd "$out"
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
