#!/bin/bash
# `vek gzip` and `vek zlib` against real clients: files round-trip through
# `gzip -d` and python3's zlib.decompress for every class, stdin/stdout mode
# works, and unreadable input or a full output device gives a message, exit
# status 1 and no partial output file.
#   check_vek_compress.sh path/to/vek
set -u
vek=$1
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
failures=0
fail() { echo "FAIL: $*"; failures=$((failures + 1)); }

# Inputs: empty, one byte, text, binary, a long run, random bytes and one
# larger than the driver's 256 KiB input slice.
: > "$work/empty"
printf 'x' > "$work/one"
cat /usr/share/common-licenses/* > "$work/text" 2>/dev/null || seq 1 50000 > "$work/text"
head -c 300000 "$(ls /usr/lib/x86_64-linux-gnu/libc.so.6 /bin/sh 2>/dev/null | head -n1)" > "$work/binary"
head -c 200000 /dev/zero > "$work/zeros"
head -c 100000 /dev/urandom > "$work/random"
{ cat "$work/text" "$work/binary" "$work/random" "$work/text"; } > "$work/large"
inputs="empty one text binary zeros random large"

for f in $inputs; do
  for c in 0 1 2; do
    rm -f "$work/$f.gz" "$work/$f.zz"
    "$vek" gzip -$c "$work/$f" || fail "gzip -$c $f exit $?"
    gzip -dc "$work/$f.gz" | cmp -s - "$work/$f" || fail "gzip -d does not restore $f (class $c)"
    "$vek" zlib -$c "$work/$f" || fail "zlib -$c $f exit $?"
    python3 -c 'import sys, zlib; sys.exit(zlib.decompress(open(sys.argv[1], "rb").read()) != open(sys.argv[2], "rb").read())' \
      "$work/$f.zz" "$work/$f" || fail "zlib.decompress does not restore $f (class $c)"
  done
  [ -e "$work/$f.gz.part" ] && fail "partial file left for $f"
done

# stdin to stdout, through a pipe that hands out small pieces.
cat "$work/large" | "$vek" gzip -1 | gzip -dc | cmp -s - "$work/large" || fail "stdin/stdout gzip"
"$vek" zlib < "$work/text" > "$work/stdout.zz" || fail "stdin/stdout zlib exit"
python3 -c 'import sys, zlib; sys.exit(zlib.decompress(open(sys.argv[1], "rb").read()) != open(sys.argv[2], "rb").read())' \
  "$work/stdout.zz" "$work/text" || fail "stdin/stdout zlib"

# An existing output is kept unless -f.
"$vek" gzip "$work/text" 2>/dev/null && fail "existing output replaced without -f"
"$vek" gzip -f "$work/text" || fail "-f does not replace"

# Errors: message, exit status 1, nothing left behind.
"$vek" gzip "$work/missing" 2> "$work/err"; status=$?
[ $status -eq 1 ] && grep -q 'cannot open' "$work/err" || fail "missing input: status $status, $(cat "$work/err")"
mkdir "$work/dir"
"$vek" gzip "$work/dir" 2> "$work/err"; status=$?
[ $status -eq 1 ] && grep -q 'read error' "$work/err" || fail "unreadable input: status $status, $(cat "$work/err")"
ls "$work" | grep -q '^dir\.gz' && fail "partial output left after a read error"
if [ -w /dev/full ]; then
  "$vek" gzip < "$work/large" > /dev/full 2> "$work/err"; status=$?
  [ $status -eq 1 ] && grep -q 'write error' "$work/err" || fail "full device: status $status, $(cat "$work/err")"
fi
"$vek" gzip -7 2>/dev/null; [ $? -eq 2 ] || fail "unknown option not a usage error"

echo "$((7 * 3 * 2 + 9 - failures)) passed, $failures failed"
[ $failures -eq 0 ]
