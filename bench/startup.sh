#!/bin/sh
# Start-up cost of the tool: `ostrel ostrel command list` against an empty C++ program linked
# with the same libraries (libxml2, Boost.Regex), so the difference is the engine's own work.
# The two are measured in alternating rounds, each round giving one ratio of medians; the
# median of those ratios is the figure, as load from other processes moves both sides alike.
#
#   bench/startup.sh [path/to/ostrel] [rounds] [runs per round]
#
# The installed plug-in directories are skipped (OSTREL_SKIP_DEFAULT_PLUGINS=1) so that the
# figure does not depend on what happens to be installed; run with OSTREL_SKIP_DEFAULT_PLUGINS=0
# in the environment to include them.
#
# Which binary matters: the packaged tool (/usr/bin/ostrel from the Debian packages) has no run
# path and finds libtindra through the loader's cache, like the libraries of the empty program.
# A build-tree or relocatable binary carries a run path, and the loader probes it (and its
# hardware subdirectories) for every library it loads first: about 40 failed opens, a few
# percent of this figure. Pass /usr/bin/ostrel after installing the packages to measure the
# former.
set -eu
root=$(cd "$(dirname "$0")/.." && pwd)
ostrel=${1:-$root/build/release/tools/ostrel/ostrel}
rounds=${2:-15}
runs=${3:-40}
[ -x "$ostrel" ] || { echo "No ostrel binary at $ostrel; build it first." >&2; exit 2; }
OSTREL_SKIP_DEFAULT_PLUGINS=${OSTREL_SKIP_DEFAULT_PLUGINS:-1}
export OSTREL_SKIP_DEFAULT_PLUGINS

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
# Linked whether or not it calls them: loading and relocating the libraries is part of any
# program that uses them.
printf '#include <iostream>\nint main() { std::cout.flush(); }\n' >"$work/empty.cc"
c++ -O2 -o "$work/empty" "$work/empty.cc" -Wl,--no-as-needed -lxml2 -lboost_regex
for library in libxml2 libboost_regex; do
    ldd "$work/empty" | grep -q "$library" || { echo "baseline lacks $library" >&2; exit 2; }
done

base="$work/empty"
tool="$ostrel ostrel command list"
"$ostrel" ostrel command list >/dev/null

# One round, in microseconds: "base tool" median wall times, then "base tool" mean processor
# times (user and system), which a busy machine moves less.
if command -v hyperfine >/dev/null 2>&1; then
    round() {
        hyperfine -N --style none --warmup 5 --runs "$runs" --export-csv "$work/round.csv" \
            "$1" "$2" >/dev/null 2>&1
        # command,mean,stddev,median,user,system,... in seconds.
        awk -F, -v base="$base" 'NR > 1 { s = ($1 == base) ? 0 : 1; w[s] = $4 * 1e6
                                          c[s] = ($5 + $6) * 1e6 }
            END { print w[0], w[1], c[0], c[1] }' "$work/round.csv"
    }
else
    # Mean over a block of runs; date's own cost falls on both sides alike.
    block_us() {
        start=$(date +%s%N)
        i=0
        while [ $i -lt "$runs" ]; do $1 >/dev/null 2>&1 || true; i=$((i + 1)); done
        echo $((($(date +%s%N) - start) / runs / 1000))
    }
    round() {
        a=$(block_us "$1")
        b=$(block_us "$2")
        if [ "$1" = "$base" ]; then echo "$a $b - -"; else echo "$b $a - -"; fi
    }
fi

: >"$work/rounds"
r=0
while [ $r -lt "$rounds" ]; do
    if [ $((r % 2)) -eq 0 ]; then round "$base" "$tool"; else round "$tool" "$base"; fi \
        >>"$work/rounds"
    r=$((r + 1))
done

median() { sort -n | awk '{ v[NR] = $1 } END { print (NR % 2) ? v[(NR + 1) / 2] : (v[NR / 2] + v[NR / 2 + 1]) / 2 }'; }
echo "rounds x runs:               $rounds x $runs"
echo "empty C++ program (median):  $(awk '{ print $1 }' "$work/rounds" | median) us per run"
echo "ostrel ostrel command list:  $(awk '{ print $2 }' "$work/rounds" | median) us per run"
echo "ratio (median of rounds):    $(awk '{ printf "%.3f\n", $2 / $1 }' "$work/rounds" | median)"
if ! grep -q -- ' - -$' "$work/rounds"; then
    echo "processor time ratio:        $(awk '{ printf "%.3f\n", $4 / $3 }' "$work/rounds" | median)"
fi

# Times on a shared machine swing widely; instruction counts, the loader's included, do not.
if command -v valgrind >/dev/null 2>&1; then
    instructions() {
        valgrind --tool=callgrind --callgrind-out-file=/dev/null "$@" 2>&1 >/dev/null |
            awk '/refs:/ { gsub(",", "", $NF); print $NF }'
    }
    base_i=$(instructions "$base")
    tool_i=$(instructions $tool)
    awk -v b="$base_i" -v t="$tool_i" 'BEGIN {
        printf "instructions:                %.2f M against %.2f M, ratio %.3f\n", t / 1e6, b / 1e6, t / b }'
fi
