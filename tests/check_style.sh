#!/usr/bin/env bash
# Style checks that need no build: every C and C++ file as clang-format
# (.clang-format) would write it, and every shell script clean under the
# shell linter.  Run from anywhere; the fixes are `clang-format -i FILE`
# and what the linter says.
set -euo pipefail
cd "$(dirname "$0")/.."
fail=0

mapfile -t sources < <(git ls-files '*.c' '*.cpp' '*.h')
if ! command -v clang-format >/dev/null; then
  echo "clang-format not found (Debian's clang-format)"; fail=1
elif ! clang-format --dry-run --Werror "${sources[@]}" 2>/dev/null; then
  echo "these files are not formatted (run clang-format -i on them):"
  clang-format --dry-run "${sources[@]}" 2>&1 | sed -n 's/^\([^:]*\):[0-9]*:[0-9]*: warning.*/  \1/p' | sort -u
  fail=1
else
  echo "formatting: ${#sources[@]} files as clang-format writes them"
fi

mapfile -t scripts < <(git ls-files '*.sh' .ci/run .ci/install-deps)
if ! command -v shellcheck >/dev/null; then
  echo "shellcheck not found (Debian's shellcheck)"; fail=1
elif ! shellcheck -x "${scripts[@]}"; then
  fail=1
else
  echo "shellcheck: ${#scripts[@]} scripts clean"
fi
exit $fail
