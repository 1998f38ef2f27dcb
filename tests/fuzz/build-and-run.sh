#!/bin/bash
# Builds the deflate fuzz target with clang (libFuzzer, ASan, UBSan) from
# the library's sources, each kernel file with its level's flags, and runs
# it for the given number of seconds (default 60) on one core.
#   tests/fuzz/build-and-run.sh [seconds] [extra libFuzzer arguments...]
# Crashing inputs are left in build/fuzz/ as crash-*; rerun one with
#   build/fuzz/fuzz_deflate build/fuzz/crash-...
set -euo pipefail
root=$(cd "$(dirname "$0")/../.." && pwd)
out=$root/build/fuzz
seconds=${1:-60}
shift || true
mkdir -p "$out/obj" "$out/corpus"
flags=(-O1 -g -std=c++17 -fsanitize=fuzzer-no-link,address,undefined -fno-sanitize-recover=all
       -I"$root/include" -I"$root" -DVEK_STATIC -DVEK_BUILDING_LIBRARY -Wall -Wextra)
objs=()
for src in "$root"/core/{cpu,dispatch_tables,entry_stubs,memory,services,status,version,dispatch_level}.cpp \
           "$root"/compression/*_plain.cpp "$root"/compression/*_sse*.cpp "$root"/signal/*_plain.cpp \
           "$root"/signal/*_sse*.cpp; do
    [ -e "$src" ] || continue
    level=
    case "$src" in
        *_plain.cpp) level=-fno-tree-vectorize ;;
        *_sse.cpp) level=-msse ;;
        *_sse2.cpp) level=-msse2 ;;
        *_sse3.cpp) level=-msse3 ;;
        *_ssse3.cpp) level=-mssse3 ;;
        *_sse41.cpp) level=-msse4.1 ;;
    esac
    obj=$out/obj/$(basename "$(dirname "$src")")_$(basename "$src" .cpp).o
    clang++ "${flags[@]}" $level -DVEK_VERSION_MAJOR=0 -DVEK_VERSION_MINOR=1 -DVEK_VERSION_PATCH=0 -c "$src" -o "$obj"
    objs+=("$obj")
done
clang++ "${flags[@]}" -fsanitize=fuzzer "$root/tests/fuzz/fuzz_deflate.cpp" "${objs[@]}" -lz -o "$out/fuzz_deflate"
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
./fuzz_deflate -max_total_time="$seconds" -max_len=300000 -rss_limit_mb=4096 "$@" corpus
