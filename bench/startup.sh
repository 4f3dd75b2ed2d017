#!/bin/sh
# Start-up cost of the tool: `ostrel ostrel command list` timed against a C++ program that
# only starts and exits, over many repetitions; prints both means and their ratio.
#
#   bench/startup.sh [path/to/ostrel] [repetitions]
#
# The installed plug-in directories are skipped (OSTREL_SKIP_DEFAULT_PLUGINS=1) so that the
# figure does not depend on what happens to be installed; run with OSTREL_SKIP_DEFAULT_PLUGINS=0
# in the environment to include them.
set -eu
root=$(cd "$(dirname "$0")/.." && pwd)
ostrel=${1:-$root/build/release/tools/ostrel/ostrel}
runs=${2:-500}
[ -x "$ostrel" ] || { echo "No ostrel binary at $ostrel; build it first." >&2; exit 2; }
OSTREL_SKIP_DEFAULT_PLUGINS=${OSTREL_SKIP_DEFAULT_PLUGINS:-1}
export OSTREL_SKIP_DEFAULT_PLUGINS

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
# The baseline loads the C++ runtime too, so the difference is the engine's own start-up.
printf '#include <iostream>\nint main() { std::cout.flush(); }\n' >"$work/empty.cc"
c++ -O2 -o "$work/empty" "$work/empty.cc"

if command -v hyperfine >/dev/null 2>&1; then
    hyperfine -N --warmup 20 --runs "$runs" "$work/empty" "$ostrel ostrel command list"
    exit 0
fi

# Mean wall time of one run, in microseconds.
mean_us() {
    i=0
    while [ $i -lt 20 ]; do "$@" >/dev/null 2>&1 || true; i=$((i + 1)); done
    start=$(date +%s%N)
    i=0
    while [ $i -lt "$runs" ]; do "$@" >/dev/null 2>&1 || true; i=$((i + 1)); done
    end=$(date +%s%N)
    echo $(((end - start) / runs / 1000))
}

base=$(mean_us "$work/empty")
tool=$(mean_us "$ostrel" ostrel command list)
echo "runs:                        $runs"
echo "empty C++ program:           ${base} us per run"
echo "ostrel ostrel command list:  ${tool} us per run"
awk -v t="$tool" -v b="$base" 'BEGIN { printf "ratio:                       %.2f\n", t / b }'
