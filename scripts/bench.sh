#!/usr/bin/env bash
# Builds zrkCore for release and runs its benchmark under Wine: every hot path
# side by side with its floor and its usual peers. Prints the table and
# writes it to build/release/bench/bench.md and bench.csv. Takes a few minutes.
source "$(dirname "$0")/common.sh"

build="$root/build/release"
zrk_build "$build" Release OFF

export WINEPREFIX="$build/wine-prefix" WINEDEBUG=-all
export WINEPATH="$(cat "$build/wine-path.txt")"
mkdir -p "$WINEPREFIX" "$build/bench"
trap '/usr/lib/wine/wineserver -k 2>/dev/null || true' EXIT
# Wine maps the Linux root to drive Z:.
/usr/lib/wine/wine64 "$build/bin/zrkBench.exe" --out "Z:$build/bench"
