#!/bin/sh
# Builds, installs the tool, the library, its headers and the bundled plug-ins, then runs it.
set -eu
cd "$(dirname "$0")/.."
sh scripts/bootstrap.sh

sudo=""
[ "$(id -u)" -eq 0 ] || sudo="sudo"
cmake -S . -B build/release -G Ninja -DCMAKE_BUILD_TYPE=Release -DTINDRA_BUILD_TESTS=OFF >/dev/null
cmake --build build/release
$sudo cmake --install build/release >/dev/null
$sudo ldconfig
ostrel storage filesystem list
