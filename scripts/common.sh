# Sourced by the scripts beside it: installs what is missing and configures
# and builds one build tree.
#   zrk_build <build folder> <build type> <ON|OFF for the tests>
set -euo pipefail
root="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
bash "$root/scripts/setup.sh"

zrk_build() {
  cmake -G Ninja -S "$root" -B "$1" \
    -DCMAKE_TOOLCHAIN_FILE="$root/cmake/toolchain-mingw-w64-x86_64.cmake" \
    -DCMAKE_BUILD_TYPE="$2" -DBUILD_TESTING="$3" >/dev/null
  cmake --build "$1"
}
