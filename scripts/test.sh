#!/usr/bin/env bash
# Builds zrkCore with its tests and runs the whole suite under Wine: the unit
# and end-to-end tests of every subsystem, the export-table check, and an
# application built against the installed package.
set -euo pipefail
root="$(cd "$(dirname "$0")/.." && pwd)"
bash "$root/scripts/setup.sh"

build="$root/build/test"
cmake -G Ninja -S "$root" -B "$build" \
  -DCMAKE_TOOLCHAIN_FILE="$root/cmake/toolchain-mingw-w64-x86_64.cmake" \
  -DCMAKE_BUILD_TYPE=Debug -DBUILD_TESTING=ON >/dev/null
cmake --build "$build"
cd "$build"
ctest --output-on-failure --timeout 900
