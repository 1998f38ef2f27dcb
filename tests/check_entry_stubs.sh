#!/usr/bin/env bash
# Checks a built library (ELF shared object or PE DLL):
#  1. it exports only names that start with "vek";
#  2. it exports every dispatched function of the export list, under its
#     plain (undecorated) name;
#  3. each dispatched entry is a load of the level and an indirect jump
#     through the table: only mov/lea before an indirect jmp, no frame, no
#     compare, no call;
#  4. no function of the library calls or jumps to a dispatched entry: a
#     level's code runs its own level's kernels, whatever level the library
#     chose at load.
# usage: check_entry_stubs.sh LIBRARY core/export_list.h
set -euo pipefail
lib=${1:?library}; list=${2:?export list}

format=$(objdump -f "$lib" 2>/dev/null | sed -n 's/.*file format //p')
if [[ $format == pei-i386 || $format == pei-x86-64 ]]; then
  [[ $format == pei-i386 ]] && objdump=i686-w64-mingw32-objdump || objdump=x86_64-w64-mingw32-objdump
  exports=$($objdump -p "$lib" | awk '/\[Ordinal\/Name Pointer\] Table/{t=1;next} t&&/^[ \t]*\[/{print $NF} t&&/^$/{t=0}')
else
  objdump=objdump
  exports=$(nm -D --defined-only "$lib" | awk '{print $3}')
fi
command -v "$objdump" >/dev/null || { echo "$objdump not found"; exit 1; }

fail=0
bad=$(printf '%s\n' "$exports" | grep -v '^vek' || true)
if [ -n "$bad" ]; then echo "exported names outside the vek namespace:"; echo "$bad"; fail=1; fi

dispatched=$(sed -n 's/^VEK_EXPORT( *\([A-Za-z0-9_]*\),.*/\1/p' "$list")
[ -n "$dispatched" ] || { echo "no exports read from $list"; exit 1; }

disasm=$(mktemp) names=$(mktemp) bodies=$(mktemp)
trap 'rm -f "$disasm" "$names" "$bodies"' EXIT
$objdump -d --no-show-raw-insn "$lib" >"$disasm"
printf '%s\n' "$dispatched" >"$names"
# One pass over the disassembly: each dispatched entry's instructions up to
# its first jump, as "name<TAB>insn;insn;..." (stdcall symbols carry @bytes
# and a leading underscore in the PE symbol table).
awk -F'\n' 'NR == FNR {want[$1] = 1; next}
  /^[0-9a-f]+ <.*>:$/ {
    flush(); name = $0; sub(/^[0-9a-f]+ <_?/, "", name); sub(/(@[0-9]+)?>:$/, "", name)
    on = (name in want); body = ""; next }
  on && /^$/ {flush(); next}
  on { line = $0; sub(/^[ \t]*[0-9a-f]+:[ \t]*/, "", line); body = body (body == "" ? "" : ";") line
       split(line, w, /[ \t]+/); if (w[1] ~ /^jmp/) flush() }
  function flush() { if (on) print name "\t" body; on = 0 }
  END {flush()}' "$names" "$disasm" >"$bodies"
printf '%s\n' "$exports" >"$disasm.exports"
trap 'rm -f "$disasm" "$disasm.exports" "$names" "$bodies"' EXIT
# Every dispatched name exported, its entry found, and the entry at most
# two mov/lea followed by an indirect jmp.
awk -F'\t' -v exportsFile="$disasm.exports" -v lib="$(basename "$lib")" '
  BEGIN { while ((getline e < exportsFile) > 0) { exported[e] = 1; nexp++ } }
  NR == FNR { order[++n] = $1; next }
  { body[$1] = $2 }
  END {
    fail = 0
    for (i = 1; i <= n; i++) {
      name = order[i]
      if (!(name in exported)) { print name " is not exported"; fail = 1; continue }
      if (!(name in body)) { print name ": entry not found in the disassembly"; fail = 1; continue }
      k = split(body[name], insn, ";"); ok = k >= 1 && k <= 3
      split(insn[k], w, /[ \t]+/); if (w[1] !~ /^jmp[lq]?$/ || w[2] !~ /^\*/) ok = 0
      for (j = 1; j < k; j++) { split(insn[j], w, /[ \t]+/); if (w[1] !~ /^(mov|movl|movslq|lea|leaq)$/) ok = 0 }
      if (!ok) { print name ": the entry does more than load the level and jump:"
                 for (j = 1; j <= k; j++) print "    " insn[j]; fail = 1 }
    }
    print "checked " n " dispatched entries and " nexp " exports of " lib
    exit fail
  }' "$names" "$bodies" || fail=1
# Direct calls and jumps name their target: "call 1230 <veksCRC32_8u@plt>",
# "<_veksCRC32_8u@12>" in a DLL.
awk 'NR == FNR {want[$1] = 1; next}
  /^[0-9a-f]+ <.*>:$/ {fn = $0; sub(/^[0-9a-f]+ </, "", fn); sub(/>:$/, "", fn); next}
  /(call|jmp)[lq]?[ \t]+[0-9a-fx]+ <[^>]*>$/ {
    target = $NF; gsub(/^<_?|>$/, "", target); sub(/(@plt|@[0-9]+)?(\+0x[0-9a-f]+)?$/, "", target)
    if (target in want) {print fn " calls the dispatched entry " target; bad = 1} }
  END {exit bad}' "$names" "$disasm" || fail=1
exit $fail
