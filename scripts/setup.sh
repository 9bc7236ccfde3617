#!/usr/bin/env bash
# Installs what building and testing zrkCore needs on Debian 12, when missing:
# CMake, Ninja, the host compiler (for the natively built tests), clang with
# its libFuzzer runtime (for the fuzz targets), the mingw-w64 cross compiler
# (posix threads), Wine and the GoogleTest sources.
# Safe to run again.
set -euo pipefail

packages=(cmake ninja-build g++ clang libclang-rt-14-dev g++-mingw-w64-x86-64-posix wine64
          googletest)
missing=()
for package in "${packages[@]}"; do
  if ! dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q "install ok installed"; then
    missing+=("$package")
  fi
done

if [ ${#missing[@]} -gt 0 ]; then
  echo "setup: installing ${missing[*]}"
  sudo_cmd=()
  if [ "$(id -u)" -ne 0 ]; then sudo_cmd=(sudo); fi
  "${sudo_cmd[@]}" apt-get update -qq
  DEBIAN_FRONTEND=noninteractive "${sudo_cmd[@]}" apt-get install -y -qq "${missing[@]}" >/dev/null
fi
