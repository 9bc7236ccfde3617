#!/usr/bin/env bash
# Builds zrkCore and its demonstration program and runs it under Wine.
# Arguments are passed to the program (a folder to create; see demo/main.cpp).
source "$(dirname "$0")/common.sh"

build="$root/build/demo"
zrk_build "$build" Release OFF

export WINEPREFIX="$build/wine-prefix" WINEDEBUG=-all WINEPATH="$(cat "$build/wine-path.txt")"
mkdir -p "$WINEPREFIX"
trap '/usr/lib/wine/wineserver -k 2>/dev/null || true' EXIT
/usr/lib/wine/wine64 "$build/bin/zrkDemo.exe" "$@"
