#!/usr/bin/env bash
# Builds zrkCore with its tests and runs the whole suite: the Windows-free
# layer built natively under the sanitizers, then, under Wine, the unit and
# end-to-end tests of every subsystem, the export-table check, and an
# application built against the installed package.
source "$(dirname "$0")/common.sh"

native="$root/build/native"
cmake -G Ninja -S "$root/tests/native" -B "$native" -DCMAKE_BUILD_TYPE=Debug >/dev/null
cmake --build "$native"
ctest --test-dir "$native" --output-on-failure --no-tests=error

# The parsers of that layer under libFuzzer: each replays its corpus and
# tries a bounded number of new inputs (scripts/fuzz.sh runs them longer).
fuzz="$root/build/fuzz"
cmake -G Ninja -S "$root/tests/fuzz" -B "$fuzz" -DCMAKE_CXX_COMPILER=clang++ \
  -DCMAKE_BUILD_TYPE=RelWithDebInfo >/dev/null
cmake --build "$fuzz"
ctest --test-dir "$fuzz" --output-on-failure --no-tests=error

build="$root/build/test"
zrk_build "$build" Debug ON
ctest --test-dir "$build" --output-on-failure --no-tests=error --timeout 900
