#!/usr/bin/env bash
# Installs a build into a scratch prefix and builds a user's program against
# it twice: with find_package(Vek CONFIG) and with pkg-config.  Also checks
# that the shared library depends on the C library alone.
# usage: check_install.sh BUILD_DIR
set -euo pipefail
build=$(cd "${1:?usage: check_install.sh BUILD_DIR}" && pwd)
src=$(cd "$(dirname "$0")" && pwd)
prefix=$(mktemp -d)
trap 'rm -rf "$prefix"' EXIT

cmake --install "$build" --prefix "$prefix" >/dev/null
libdir=$(dirname "$(find "$prefix" -name 'libvek.so' | head -n 1)")
test -f "$prefix/include/vek.h"
test -f "$libdir/pkgconfig/vek.pc"
test -f "$libdir/cmake/Vek/VekConfig.cmake"

needed=$(readelf -d "$libdir/libvek.so" | sed -n 's/.*Shared library: \[\(.*\)\]/\1/p' | tr '\n' ' ')
[[ "$needed" =~ ^(libc\.so\.6[[:space:]]*)$ ]] || { echo "libvek.so needs more than the C library: $needed"; exit 1; }

cmake -S "$src/consumer" -B "$prefix/consumer" -G Ninja -DCMAKE_PREFIX_PATH="$prefix" >/dev/null
cmake --build "$prefix/consumer" >/dev/null
LD_LIBRARY_PATH="$libdir" "$prefix/consumer/consumer"

read -r -a flags <<<"$(PKG_CONFIG_PATH="$libdir/pkgconfig" pkg-config --cflags --libs vek)"
cc -o "$prefix/pc-consumer" "$src/shared_client.c" "${flags[@]}"
LD_LIBRARY_PATH="$libdir" "$prefix/pc-consumer"
echo "installed package works with CMake and pkg-config"
