#!/usr/bin/env bash
# Builds zrkCore for release and packs it as build/release/zrkCore-<version>-win64.zip:
# bin/ (zrkCore.dll, the C++ runtime DLLs, zrk.exe), lib/ (the import library
# and the CMake package) and include/, in one folder of the archive's name.
source "$(dirname "$0")/common.sh"

build="$root/build/release"
zrk_build "$build" Release OFF
(cd "$build" && cpack -G ZIP)
ls -l "$build"/zrkCore-*-win64.zip
