#!/usr/bin/env bash
# Builds zrkCore and its demonstration program and runs it under Wine.
# Arguments are passed to the program (a folder to create; see demo/main.cpp).
source "$(dirname "$0")/common.sh"

build="$root/build/demo"
zrk_build "$build" Release OFF

compiler=x86_64-w64-mingw32-g++-posix
runtime=""
for dll in libstdc++-6.dll libgcc_s_seh-1.dll libwinpthread-1.dll; do
  runtime="$runtime;$(dirname "$(readlink -f "$($compiler -print-file-name=$dll)")")"
done

export WINEPREFIX="$build/wine-prefix" WINEDEBUG=-all WINEPATH="${runtime#;}"
mkdir -p "$WINEPREFIX"
trap '/usr/lib/wine/wineserver -k 2>/dev/null || true' EXIT
/usr/lib/wine/wine64 "$build/bin/zrkDemo.exe" "$@"
