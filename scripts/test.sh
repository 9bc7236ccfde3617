#!/usr/bin/env bash
# Builds zrkCore with its tests and runs the whole suite under Wine: the unit
# and end-to-end tests of every subsystem, the export-table check, and an
# application built against the installed package.
source "$(dirname "$0")/common.sh"

build="$root/build/test"
zrk_build "$build" Debug ON
cd "$build"
ctest --output-on-failure --timeout 900
