#!/bin/sh
# Builds with AddressSanitizer, UndefinedBehaviorSanitizer and -Werror, then runs every test.
set -eu
cd "$(dirname "$0")/.."
sh scripts/bootstrap.sh

cmake -S . -B build/test -G Ninja -DCMAKE_BUILD_TYPE=Debug -DTINDRA_SANITIZE=ON >/dev/null
cmake --build build/test
cd build/test
ASAN_OPTIONS=detect_leaks=1 ctest --output-on-failure -j "$(nproc)"
sh ../../scripts/check-packages.sh scripts  # installer, uninstaller and their refusals
