# shellcheck shell=bash
# Sourced by the command-line checks (check_vek_*.sh): counts checks and
# failures, so each script ends with one summary line and its status.
checks=0 failures=0
check() { # check DESCRIPTION COMMAND...: the command must succeed
  local what=$1
  shift
  checks=$((checks + 1))
  "$@" || {
    echo "FAIL: $what"
    failures=$((failures + 1))
  }
}
