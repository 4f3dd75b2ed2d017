#!/bin/sh
# Time of one completion answer with the bundled plug-ins loaded, for a few typical lines;
# fails when the slowest mean reaches the budget of 50 ms, beyond which typing Tab feels slow.
#
#   bench/completion.sh [build folder] [repetitions]        (default: build/release, 200)
set -eu
root=$(cd "$(dirname "$0")/.." && pwd)
build=${1:-$root/build/release}
runs=${2:-200}
helper=$build/tools/ostrel-complete/ostrel-complete
[ -x "$helper" ] || { echo "No ostrel-complete in $build; build it first." >&2; exit 2; }
budget_us=50000

# The bundled descriptors and the example plug-in, named on the line as a user could.
plugins="--plugin-dir $build/plugins/bundled --plugin $build/examples/resource/resource.so"
export OSTREL_SKIP_DEFAULT_PLUGINS=1

mean_us() {
    i=0
    while [ $i -lt 10 ]; do "$helper" "$@" >/dev/null; i=$((i + 1)); done
    start=$(date +%s%N)
    i=0
    while [ $i -lt "$runs" ]; do "$helper" "$@" >/dev/null; i=$((i + 1)); done
    end=$(date +%s%N)
    echo $(((end - start) / runs / 1000))
}

worst=0
for line in "ostrel $plugins|" "ostrel $plugins storage filesystem list|-" \
    "ostrel $plugins system resource get --units|" "ostrel $plugins --formatter|"; do
    words=${line%|*}
    current=${line#*|}
    # shellcheck disable=SC2086 # the words are split on purpose
    us=$(mean_us $words "$current")
    printf '%6d us  %s [%s]\n' "$us" "${words#"ostrel $plugins"}" "$current"
    [ "$us" -le "$worst" ] || worst=$us
done
echo "slowest mean: $worst us per answer (budget $budget_us us)"
[ "$worst" -lt "$budget_us" ]
