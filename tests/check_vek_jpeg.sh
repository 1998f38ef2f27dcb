#!/bin/bash
# `vek jpeg` on its command line: the natural test image decodes at every
# scale to a PPM of the right size; what the encoder writes from it, at
# every sampling, optimised and progressive, decodes again; a PGM gives a
# grey file and a grey file a PGM; truncated, arithmetic-coded and 12-bit
# files and missing inputs give a message, status 1 and no output file (nor
# a temporary one); bad options are usage errors (status 2).
#   check_vek_jpeg.sh path/to/vek path/to/grace_hopper.jpg
set -u
vek=$(cd "$(dirname "$1")" && pwd)/$(basename "$1")
photo=$(cd "$(dirname "$2")" && pwd)/$(basename "$2")
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
# shellcheck source=tests/command_checks.sh
source "$(dirname "$0")/command_checks.sh"
# header FILE MAGIC WIDTH HEIGHT: a PNM with that magic number and size.
header() { test "$(head -c 15 "$1" | tr '\n' ' ' | cut -d' ' -f1-3)" = "$2 $3 $4"; }
# refused STATUS PATTERN OUT COMMAND...: that status, PATTERN in stderr, no OUT.
refused() {
  local want=$1 pattern=$2 out=$3 got
  shift 3
  "$@" 2>"$work/stderr" >/dev/null
  got=$?
  test "$got" = "$want" && grep -q -- "$pattern" "$work/stderr" && test ! -e "$out" && test ! -e "$out.part"
}
cd "$work" || exit 1

check "decode at full scale" "$vek" jpeg decode "$photo" full.ppm
check "full scale is 512x600" header full.ppm P6 512 600
for scale in 2:256:300 4:128:150 8:64:75; do
  IFS=: read -r d w h <<<"$scale"
  check "decode at 1/$d" "$vek" jpeg decode --scale "1/$d" "$photo" "scaled$d.ppm"
  check "1/$d is ${w}x$h" header "scaled$d.ppm" P6 "$w" "$h"
done
for options in "-s 444" "-s 422" "-s 420 -q 90" "-s gray" "--optimize" "--progressive" "--progressive -s 444 --restart 4"; do
  # shellcheck disable=SC2086 # the options split into words
  check "encode $options" "$vek" jpeg encode $options full.ppm out.jpg
  check "decode what encode $options wrote" "$vek" jpeg decode out.jpg again.ppm
  if [ "$options" = "-s gray" ]; then magic=P5; else magic=P6; fi
  check "encode $options keeps the size" header again.ppm "$magic" 512 600
done
check "grey from -s gray" "$vek" jpeg encode -s gray full.ppm grey.jpg
check "a grey file decodes to a PGM" "$vek" jpeg decode grey.jpg grey.pgm
check "a PGM" header grey.pgm P5 512 600
check "a PGM encodes" "$vek" jpeg encode -s 444 grey.pgm grey2.jpg
check "a PGM gives a grey file" "$vek" jpeg decode grey2.jpg grey2.ppm
check "grey again" header grey2.ppm P5 512 600

head -c 20000 "$photo" >cut.jpg
check "truncated file" refused 1 "truncated" bad.ppm "$vek" jpeg decode cut.jpg bad.ppm
# The frame header of the photograph: FF C0 (baseline); C9 is arithmetic.
python3 - "$photo" <<'PY'
import sys
data = bytearray(open(sys.argv[1], "rb").read())
sof = data.index(b"\xff\xc0")
arith = bytearray(data); arith[sof + 1] = 0xC9
open("arith.jpg", "wb").write(arith)
twelve = bytearray(data); twelve[sof + 4] = 12
open("twelve.jpg", "wb").write(twelve)
PY
check "arithmetic coding" refused 1 "arithmetic-coded JPEG is not supported" bad.ppm "$vek" jpeg decode arith.jpg bad.ppm
check "12-bit samples" refused 1 "12-bit JPEG is not supported" bad.ppm "$vek" jpeg decode twelve.jpg bad.ppm
check "not a JPEG" refused 1 "not a JPEG file" bad.ppm "$vek" jpeg decode full.ppm bad.ppm
check "not a PNM" refused 1 "not a binary PPM" bad.jpg "$vek" jpeg encode "$photo" bad.jpg
check "missing input" refused 1 "missing.ppm" bad.jpg "$vek" jpeg encode missing.ppm bad.jpg
check "bad quality" refused 2 "quality" bad.jpg "$vek" jpeg encode -q 0 full.ppm bad.jpg
check "bad sampling" refused 2 "usage" bad.jpg "$vek" jpeg encode -s 411 full.ppm bad.jpg
check "bad scale" refused 2 "usage" bad.ppm "$vek" jpeg decode --scale 1/3 "$photo" bad.ppm
check "no subcommand" refused 2 "usage" bad.ppm "$vek" jpeg

echo "vek jpeg: $checks checks, $failures failed"
test "$failures" = 0
