#!/usr/bin/env bash
# Whole processes side by side: `vek gzip -N < file` against libdeflate-gzip
# and gzip at the levels each class is weighed against, on the two public
# corpora (vim-runtime's doc/*.txt in name order; the cmake executable then
# libstdc++.so.6).  Prints the processor time (user + system) of the best
# of a few runs and the MB/s it makes, and checks that every vek stream
# inflates to its input.
#
#   bash bench/compare_gzip.sh [path/to/vek] [runs]
set -euo pipefail

vek=${1:-build/native/tools/vek}
runs=${2:-5}
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

docs=$(find /usr/share/vim -maxdepth 2 -type d -name doc -path '/usr/share/vim/vim[0-9]*' 2>/dev/null | sort | tail -1)
if [ -n "$docs" ]; then
  find "$docs" -maxdepth 1 -name '*.txt' -print0 | LC_ALL=C sort -z | xargs -0 cat > "$work/text"
else
  echo "compare_gzip: vim-runtime is not installed: no text corpus" >&2
fi
stdcxx=/usr/lib/x86_64-linux-gnu/libstdc++.so.6
if [ -f /usr/bin/cmake ] && [ -f "$stdcxx" ]; then
  cat /usr/bin/cmake "$stdcxx" > "$work/binary"
else
  echo "compare_gzip: cmake or libstdc++ is missing: no binary corpus" >&2
fi

# The least processor time of $runs runs of the command on stdin $1, in
# seconds (the shell's own timing: milliseconds, where time(1) has ten).
best_cpu() {
  local input=$1 best="" t
  shift
  for _ in $(seq "$runs"); do
    t=$( { TIMEFORMAT='%3U %3S'; time "$@" < "$input" > /dev/null 2>&1; } 2>&1 | tail -1 | awk '{print $1 + $2}')
    if [ -z "$best" ] || awk -v a="$t" -v b="$best" 'BEGIN { exit !(a < b) }'; then best=$t; fi
  done
  echo "$best"
}

printf '%-7s %-22s %8s %9s\n' corpus command seconds MB/s
for corpus in text binary; do
  file=$work/$corpus
  [ -f "$file" ] || continue
  bytes=$(stat -c %s "$file")
  for level in 1 6 9; do
    "$vek" gzip "-$level" < "$file" > "$work/out.gz"
    gzip -dc "$work/out.gz" > "$work/back"
    cmp -s "$work/back" "$file" || { echo "compare_gzip: vek gzip -$level does not round-trip" >&2; exit 1; }
    peers=("libdeflate-gzip -$level -c" "gzip -$level -c")
    for cmd in "vek gzip -$level" "${peers[@]}"; do
      read -r -a argv <<< "$cmd"
      [ "${argv[0]}" = vek ] && argv[0]=$vek
      command -v "${argv[0]}" > /dev/null || { echo "compare_gzip: ${argv[0]} is not installed" >&2; continue; }
      s=$(best_cpu "$file" "${argv[@]}")
      printf '%-7s %-22s %8.3f %9.1f\n' "$corpus" "$cmd" "$s" "$(awk -v b="$bytes" -v s="$s" 'BEGIN { if (s > 0) print b / s / 1e6; else print 0 }')"
    done
  done
done
