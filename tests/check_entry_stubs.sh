#!/usr/bin/env bash
# Checks a built library (ELF shared object or PE DLL):
#  1. it exports only names that start with "vek";
#  2. it exports every dispatched function of the export list, under its
#     plain (undecorated) name;
#  3. each dispatched entry is a load of the level and an indirect jump
#     through the table: only mov/lea before an indirect jmp, no frame, no
#     compare, no call.
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

disasm=$(mktemp)
trap 'rm -f "$disasm"' EXIT
$objdump -d --no-show-raw-insn "$lib" >"$disasm"
count=0
for name in $dispatched; do
  count=$((count + 1))
  if ! printf '%s\n' "$exports" | grep -qx "$name"; then echo "$name is not exported"; fail=1; continue; fi
  # The entry's instructions up to its first jump (stdcall symbols carry
  # @bytes and a leading underscore in the PE symbol table).
  body=$(awk -v n="$name" '
    $0 ~ "^[0-9a-f]+ <_?" n "(@[0-9]+)?>:$" {on=1; next}
    on && /^$/ {exit}
    on {sub(/^[ \t]*[0-9a-f]+:[ \t]*/, ""); print; if ($1 ~ /^jmp/) exit}' "$disasm")
  if [ -z "$body" ]; then echo "$name: entry not found in the disassembly"; fail=1; continue; fi
  last=$(printf '%s\n' "$body" | tail -n 1)
  before=$(printf '%s\n' "$body" | sed '$d' | awk '{print $1}' | sort -u | tr '\n' ' ')
  if ! [[ $last =~ ^jmp[lq]?[[:space:]]+\* ]] || [ "$(printf '%s\n' "$body" | wc -l)" -gt 3 ] ||
     ! [[ "$before" =~ ^((mov|movl|movslq|lea|leaq)[[:space:]])+$ ]]; then
    echo "$name: the entry does more than load the level and jump:"; printf '    %s\n' "$body"; fail=1
  fi
done
echo "checked $count dispatched entries and $(printf '%s\n' "$exports" | wc -l) exports of $(basename "$lib")"
exit $fail
