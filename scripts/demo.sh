#!/usr/bin/env bash
# Builds zrkCore and its demonstration program and runs it under Wine.
# Arguments are passed to the program (a folder to create, then anything for
# its command line step; see demo/main.cpp). Without any, it gets a sample.
source "$(dirname "$0")/common.sh"

build="$root/build/demo"
zrk_build "$build" Release OFF

export WINEPREFIX="$build/wine-prefix" WINEDEBUG=-all WINEPATH="$(cat "$build/wine-path.txt")"
mkdir -p "$WINEPREFIX"
trap '/usr/lib/wine/wineserver -k 2>/dev/null || true' EXIT
if [ $# -eq 0 ]; then
  set -- '%TEMP%/zrkCore-demo/output' /mode draft /Mode "final run" "/no value" "a file.txt"
fi
/usr/lib/wine/wine64 "$build/bin/zrkDemo.exe" "$@"
