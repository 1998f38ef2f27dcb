#!/usr/bin/env bash
# Builds and runs every test: the native suite, the sanitizer suite, a short
# fuzzing run of the deflate encoder, the i686 Linux build with its
# emulated-processor matrix, the i686 Windows DLL
# with its checks (and its test programs under Wine where this machine can
# run 32-bit programs; elsewhere an x86-64 Windows build under 64-bit Wine).
# Cross builds are skipped, and said so, when their toolchains are not
# installed.  Ends with a "N passed, N failed" line.
set -uo pipefail
cd "$(dirname "$0")/.." || exit 1
jobs=$(nproc 2>/dev/null || echo 2)
passed=0 failed=0 skipped=0
results=()

step() {  # step NAME COMMAND...
  local name=$1 start=$SECONDS; shift
  echo; echo "=== $name"
  if "$@"; then passed=$((passed + 1)); results+=("passed   $name ($((SECONDS - start)) s)")
  else failed=$((failed + 1)); results+=("FAILED   $name ($((SECONDS - start)) s)"); fi
}
skip() { skipped=$((skipped + 1)); results+=("skipped  $1: $2"); echo; echo "=== $1: skipped ($2)"; }

build() {  # build PRESET, with warnings as errors
  cmake --preset "$1" -DVEK_WERROR=ON >/dev/null && cmake --build --preset "$1" -j "$jobs"
}
# Compiler cache, where installed: a rerun rebuilds only what changed, also
# from another checkout of the tree (paths hashed relative to it, and the
# working directory left out of the debug builds' hashes).
if command -v ccache >/dev/null; then
  export CMAKE_C_COMPILER_LAUNCHER=ccache CMAKE_CXX_COMPILER_LAUNCHER=ccache
  export CCACHE_BASEDIR="$PWD" CCACHE_NOHASHDIR=1
fi

# Whether this machine runs 32-bit x86 programs itself (not every kernel
# does; QEMU covers the i686 Linux tests, but Wine needs the real thing).
runs_i386_natively() {
  [ -e /proc/sys/fs/binfmt_misc/qemu-i386 ] && return 1
  [ -x build/i686-linux/tests/vek_tests ] && build/i686-linux/tests/vek_tests --gtest_list_tests >/dev/null 2>&1
}

# ---- style: formatting and shell scripts ------------------------------------------
step "style (clang-format, shellcheck)" bash tests/check_style.sh

# ---- native x86-64 ------------------------------------------------------------
step "native build" build native
step "native tests" ctest --preset native -j "$jobs"
step "install and use the package" bash tests/check_install.sh build/native

# ---- sanitizers ------------------------------------------------------------------
step "sanitizer build" build sanitize
step "sanitizer tests" env ASAN_OPTIONS=detect_leaks=1 UBSAN_OPTIONS=print_stacktrace=1 \
  ctest --preset sanitize -j "$jobs"

# ---- fuzzing: the whole deflate encoder against zlib, briefly ---------------
if command -v clang++ >/dev/null && echo 'int main(){}' | clang++ -fsanitize=fuzzer-no-link -x c++ -o /dev/null - 2>/dev/null; then
  step "deflate fuzzing (30 s)" bash tests/fuzz/build-and-run.sh 30 -print_final_stats=0
else
  skip "deflate fuzzing" "needs clang and libFuzzer (Debian's clang, libclang-rt-dev)"
fi

# ---- i686 Linux -----------------------------------------------------------------
if g++ -m32 -x c++ -o /dev/null - <<<'int main(){}' >/dev/null 2>&1 && command -v qemu-i386 >/dev/null; then
  step "i686 Linux build" build i686-linux
  step "i686 Linux tests (qemu-i386)" ctest --preset i686-linux
  step "emulated-processor matrix" bash tests/run-emulated.sh build/i686-linux
else
  skip "i686 Linux" "needs gcc-multilib, g++-multilib and qemu-user"
fi

# ---- i686 Windows ----------------------------------------------------------------
if command -v i686-w64-mingw32-g++ >/dev/null; then
  step "i686 Windows DLL build" build i686-windows
  step "i686 Windows DLL checks" ctest --preset i686-windows -R 'entry_stubs|instruction_sets'
  if command -v wine >/dev/null && runs_i386_natively; then
    export WINEDEBUG=-all WINEPREFIX="${WINEPREFIX:-$PWD/build/wineprefix}"
    # Capped at the AVX2 level: the public entries run level 6 (the
    # differential cases run level 7 too, where the processor has it).
    step "i686 Windows tests (Wine)" env VEK_MAX_LEVEL=6 ctest --preset i686-windows -E 'entry_stubs|instruction_sets'
    windows_tested=yes
  else
    skip "i686 Windows tests (Wine)" "this kernel cannot run 32-bit x86 programs, which 32-bit Wine needs"
  fi
else
  skip "i686 Windows" "needs gcc-mingw-w64-i686 and g++-mingw-w64-i686"
fi

# ---- x86-64 Windows under 64-bit Wine -----------------------------------------------
# The same Windows code (DllMain, the PE exports, the C runtime) in a build
# that 64-bit Wine runs on any x86-64 kernel: the stand-in where the i686
# DLL's tests could not run.
wine64=$(command -v wine64 || ls /usr/lib/wine/wine64 2>/dev/null || true)
if [ -n "${windows_tested:-}" ]; then
  skip "x86-64 Windows tests (Wine)" "the i686 DLL's tests ran under Wine"
elif command -v x86_64-w64-mingw32-g++ >/dev/null && [ -n "$wine64" ]; then
  step "x86-64 Windows DLL build" build x86_64-windows
  step "x86-64 Windows tests (Wine)" env WINEDEBUG=-all WINEPREFIX="$PWD/build/wineprefix64" \
    ctest --preset x86_64-windows
else
  skip "x86-64 Windows tests (Wine)" "needs gcc-mingw-w64-x86-64, g++-mingw-w64-x86-64 and wine64"
fi

echo; echo "=== summary"
printf '  %s\n' "${results[@]}"
echo "$passed passed, $failed failed, $skipped skipped in $((SECONDS / 60)) min $((SECONDS % 60)) s"
[ "$failed" -eq 0 ]
