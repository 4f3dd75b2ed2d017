#!/bin/sh
# Builds with one compiler (gcc or clang) under AddressSanitizer, UndefinedBehaviorSanitizer
# and -Werror in build/test (gcc) or build/test-clang, then runs every test.
set -eu
cd "$(dirname "$0")/.."
compiler=${1:-gcc}
case "$compiler" in
    gcc) cxx=g++ dir=build/test ;;
    clang) cxx=clang++ dir=build/test-clang
           sh scripts/bootstrap.sh clang libclang-rt-14-dev ;;
    *) echo "usage: $0 gcc|clang" >&2; exit 2 ;;
esac

launcher=""
command -v ccache >/dev/null && launcher="-DCMAKE_CXX_COMPILER_LAUNCHER=ccache"
cmake -S . -B "$dir" -G Ninja -DCMAKE_CXX_COMPILER="$cxx" -DCMAKE_BUILD_TYPE=Debug \
      -DTINDRA_SANITIZE=ON -DTINDRA_WERROR=ON $launcher >/dev/null
cmake --build "$dir"
cd "$dir"
ASAN_OPTIONS=detect_leaks=1 ctest --output-on-failure -j "$(nproc)"
