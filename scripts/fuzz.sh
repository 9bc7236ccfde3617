#!/usr/bin/env bash
# Runs every fuzz target of the natively built parsers for a while (default
# 60 s each; give another count of seconds as the first argument). Inputs that
# reach new code are kept in build/fuzz/found/<target>; a crash leaves its
# input as crash-* in the current folder: fix the fault, then add the input
# to tests/fuzz/corpus/<target> as a regression case.
source "$(dirname "$0")/common.sh"

seconds="${1:-60}"
fuzz="$root/build/fuzz"
cmake -G Ninja -S "$root/tests/fuzz" -B "$fuzz" -DCMAKE_CXX_COMPILER=clang++ \
  -DCMAKE_BUILD_TYPE=RelWithDebInfo >/dev/null
cmake --build "$fuzz"
for program in "$fuzz"/fuzz_*; do
  target="$(basename "$program")"
  target="${target#fuzz_}"
  echo "== $target, ${seconds} s"
  mkdir -p "$fuzz/found/$target"
  "$program" -max_total_time="$seconds" -max_len=4096 -timeout=10 \
    "$fuzz/found/$target" "$root/tests/fuzz/corpus/$target" 2>&1 | tail -2
done
