#!/bin/bash
# `vek gzip` and `vek zlib` against real clients, on gzip's command line:
# files round-trip through `gzip -d` and python3's zlib.decompress for every
# class; -1..-9 and --class pick the classes as documented; -c, -k, -f, -v,
# several files and "-" behave as gzip's do; -d is refused with its
# message; bad options are usage errors (status 2); unreadable input, a
# full output device and refused overwrites give a message, status 1 and no
# partial output file.
#   check_vek_compress.sh path/to/vek
set -u
vek=$(cd "$(dirname "$1")" && pwd)/$(basename "$1")
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
# shellcheck source=tests/command_checks.sh
source "$(dirname "$0")/command_checks.sh"
gz_restores() { gzip -dc "$1" | cmp -s - "$2"; }
zz_restores() {
  python3 -c 'import sys, zlib; sys.exit(zlib.decompress(open(sys.argv[1], "rb").read()) != open(sys.argv[2], "rb").read())' "$1" "$2"
}
io() { # io IN OUT COMMAND...: the command reading IN and writing OUT
  local from=$1 to=$2
  shift 2
  "$@" <"$from" >"$to"
}
quiet() { "$@" >/dev/null; }
all_exist() { for f; do test -e "$f" || return 1; done; }
none_exist() { for f; do test ! -e "$f" || return 1; done; }
differ() { ! cmp -s "$1" "$2"; }
# exits_with STATUS PATTERN COMMAND...: that status, and PATTERN in stderr.
exits_with() {
  local want=$1 pattern=$2 got
  shift 2
  "$@" 2>"$work/err"
  got=$?
  [ "$got" -eq "$want" ] && grep -q -- "$pattern" "$work/err" && return 0
  echo "  status $got, stderr: $(cat "$work/err")"
  return 1
}

# Inputs: empty, one byte, text, binary, a long run, random bytes and one
# larger than the driver's 256 KiB input slice.
in=$work/in
mkdir "$in"
: >"$in/empty"
printf 'x' >"$in/one"
cat /usr/share/common-licenses/* >"$in/text" 2>/dev/null || seq 1 50000 >"$in/text"
for lib in /usr/lib/x86_64-linux-gnu/libc.so.6 /bin/sh; do
  [ -e "$lib" ] && head -c 300000 "$lib" >"$in/binary" && break
done
head -c 200000 /dev/zero >"$in/zeros"
head -c 100000 /dev/urandom >"$in/random"
cat "$in/text" "$in/binary" "$in/random" "$in/text" >"$in/large"
inputs="empty one text binary zeros random large"

# Every input in every class, kept (-k), restored by the real clients.
for f in $inputs; do
  for level in 1 5 9; do
    check "gzip -k$level $f" "$vek" gzip -k$level "$in/$f"
    check "gzip -d restores $f (-$level)" gz_restores "$in/$f.gz" "$in/$f"
    check "zlib -k$level $f" "$vek" zlib -k$level "$in/$f"
    check "zlib.decompress restores $f (-$level)" zz_restores "$in/$f.zz" "$in/$f"
    rm -f "$in/$f.gz" "$in/$f.zz"
  done
  check "-k keeps $f" test -e "$in/$f"
done

# -1..-9 are the classes 0, 0, 0, 1, 1, 1, 2, 2, 2; no level is class 1.
for c in 0 1 2; do "$vek" gzip -c --class $c "$in/text" >"$work/class$c"; done
for level in 1 2 3 4 5 6 7 8 9; do
  c=$(((level - 1) / 3))
  check "-$level is class $c" cmp -s <("$vek" gzip -c -$level "$in/text") "$work/class$c"
done
check "no level is class 1" cmp -s <("$vek" gzip -c "$in/text") "$work/class1"
check "--class=2, --best" cmp -s <("$vek" gzip -c --class=2 "$in/text") <("$vek" gzip --best -c "$in/text")
check "classes differ" differ "$work/class0" "$work/class2"

# Without -k, FILE becomes FILE.gz and goes; an existing FILE.gz stays
# unless -f; -f replaces it.
mkdir "$work/files"
cd "$work/files" || exit 1
cp "$in/text" a && cp "$in/binary" b && cp "$in/random" c
chmod 600 a
check "gzip a" "$vek" gzip a
check "a removed" test ! -e a
check "a.gz restores" gz_restores a.gz "$in/text"
check "a.gz keeps a's permissions" test "$(stat -c %a a.gz)" = 600
cp "$in/text" a && cp a.gz a.gz.before
check "existing a.gz refused" exits_with 1 'already exists' "$vek" gzip a
check "a.gz untouched" cmp -s a.gz a.gz.before
check "a kept" test -e a
cp "$in/binary" a
check "-f replaces a.gz" "$vek" gzip -f a
check "replaced a.gz restores" gz_restores a.gz "$in/binary"
check "a.gz itself refused" exits_with 1 'already has the .gz suffix' "$vek" gzip a.gz
rm -f ./*.gz ./*.before

# Several files; one missing spoils the status, not the others.
cp "$in/text" a
check "several files" "$vek" gzip a b
check "a.gz restores" gz_restores a.gz "$in/text"
check "b.gz restores" gz_restores b.gz "$in/binary"
gzip -dc a.gz >a && gzip -dc b.gz >b && rm a.gz b.gz
check "several files, one missing" exits_with 1 'cannot open' "$vek" gzip -k a missing b
check "the others compressed" all_exist a.gz b.gz a b

# -c: every FILE to stdout, one member after another, FILE kept.
check "-c several files" io /dev/null all.gz "$vek" gzip -c a b c
check "members restore in order" cmp -s <(gzip -dc all.gz) <(cat a b c)
check "-c keeps FILE" all_exist a b c
check "zlib -c refuses several files" exits_with 2 'do not concatenate' "$vek" zlib -c a b

# stdin: no FILE, or "-", alone or among files; pipes hand out small pieces.
# shellcheck disable=SC2002 # cat: a pipe rather than a file on stdin
piped() { cat "$in/large" | "$vek" gzip -1 | gzip -dc | cmp -s - "$in/large"; }
check "stdin to stdout" piped
# A file is compressed in place (mapped), a pipe through reads: the same
# stream either way, also for two whole input slices and one byte more.
head -c 524288 "$in/large" >"$in/slices"
head -c 524289 "$in/large" >"$in/slices1"
for f in large slices slices1; do
  # shellcheck disable=SC2002 # cat: a pipe rather than a file on stdin
  check "$f: file and pipe alike" cmp -s <("$vek" gzip -9 <"$in/$f") <(cat "$in/$f" | "$vek" gzip -9)
done
check "- among files" io "$in/zeros" mix.gz "$vek" gzip -c a - c
check "- among files restores" cmp -s <(gzip -dc mix.gz) <(cat a "$in/zeros" c)
check "zlib stdin" io "$in/text" out.zz "$vek" zlib -
check "zlib stdin restores" zz_restores out.zz "$in/text"
if command -v script >/dev/null; then # a terminal on stdout, through a pseudo-terminal
  script -qec "$(printf %q "$vek") gzip <a" /dev/null >"$work/tty" 2>&1
  check "terminal refused" test $? -eq 1
  check "terminal message" grep -q 'not written to a terminal' "$work/tty"
fi

# -v: the space saved, per file.
check "-v" exits_with 0 '^a:.*%.*created a.gz' "$vek" gzip -kfv a
check "-v -c" exits_with 0 '^b:.*%$' quiet "$vek" gzip -vc b

# Refusals and usage errors leave the inputs as they were.
check "-d refused" exits_with 1 'decompression is not supported yet' "$vek" gzip -d a.gz
check "-dc refused" exits_with 1 'decompression is not supported yet' "$vek" zlib -dc a.zz
check "-0 is a usage error" exits_with 2 '-0' "$vek" gzip -0 a
check "--class 3 is a usage error" exits_with 2 'class' "$vek" gzip --class 3 a
check "unknown option" exits_with 2 'unknown option' "$vek" gzip -x a
check "inputs untouched" all_exist a a.gz

# Errors: message, status 1, nothing left behind.
check "missing input" exits_with 1 'cannot open' "$vek" gzip missing
mkdir dir
check "unreadable input" exits_with 1 'read error' "$vek" gzip dir
check "no partial output" none_exist dir.gz dir.gz.part
if [ -w /dev/full ]; then
  check "full device" exits_with 1 'write error' io "$in/large" /dev/full "$vek" gzip
fi

echo "$((checks - failures)) passed, $failures failed"
[ "$failures" -eq 0 ]
