#!/usr/bin/env bash
# Builds zrkCore for release and runs its benchmark under Wine: every hot path
# side by side with its floor and its usual peers. Prints the table, writes it
# to build/release/bench/ (bench.md, bench.csv and the chart of the ratios,
# bench-ratios.svg), then puts the table, the machine it ran on and the chart
# into the README (docs/bench-ratios.svg). Takes a few minutes.
source "$(dirname "$0")/common.sh"

build="$root/build/release"
zrk_build "$build" Release OFF

export WINEPREFIX="$build/wine-prefix" WINEDEBUG=-all
export WINEPATH="$(cat "$build/wine-path.txt")"
mkdir -p "$WINEPREFIX" "$build/bench"
trap '/usr/lib/wine/wineserver -k 2>/dev/null || true' EXIT
# Wine maps the Linux root to drive Z:.
/usr/lib/wine/wine64 "$build/bin/zrkBench.exe" --out "Z:$build/bench"

# The README's section between its two bench markers is rewritten.
mkdir -p "$root/docs"
cp "$build/bench/bench-ratios.svg" "$root/docs/bench-ratios.svg"
section="$build/bench/readme-section.md"
{
  echo "Measured on $(date -u +%Y-%m-%d): $(grep -m1 'model name' /proc/cpuinfo | cut -d: -f2 |
    xargs), $(nproc) cores, $(/usr/lib/wine/wine64 --version) on $(uname -sr)," \
    "built by $(x86_64-w64-mingw32-g++-posix --version | head -1)."
  echo
  cat "$build/bench/bench.md"
  echo
  echo "![The ratios of the table, zrkCore's cost over its peer's](docs/bench-ratios.svg)"
} >"$section"
awk -v section="$section" '
  /<!-- bench:end -->/ { skipping = 0 }
  !skipping { print }
  /<!-- bench:begin -->/ { while ((getline line < section) > 0) print line; skipping = 1 }
' "$root/README.md" >"$build/bench/README.md"
cp "$build/bench/README.md" "$root/README.md"
echo "README updated from $build/bench/bench.md"
