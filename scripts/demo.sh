#!/usr/bin/env bash
# Builds zrkCore and its zrk tool and runs the guided tour ("zrk tour") under
# Wine. Arguments are passed on to the tour, whose command line step shows
# them as key and value pairs; without any, it gets a sample.
source "$(dirname "$0")/common.sh"

build="$root/build/demo"
zrk_build "$build" Release OFF

export WINEPREFIX="$build/wine-prefix" WINEDEBUG=-all WINEDLLOVERRIDES=winedbg.exe=d
export WINEPATH="$(cat "$build/wine-path.txt")"
mkdir -p "$WINEPREFIX"
trap '/usr/lib/wine/wineserver -k 2>/dev/null || true' EXIT
if [ $# -eq 0 ]; then
  set -- /mode draft /Mode "final run" "/no value" "a file.txt"
fi
/usr/lib/wine/wine64 "$build/bin/zrk.exe" tour "$@"
