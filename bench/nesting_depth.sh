#!/bin/sh
# Cost of a declared output against its nesting depth: for each depth, a descriptor whose output
# prototype is that many lists of structures nested in one another, and a document of the same
# shape. Times (best of RUNS, milliseconds) and peak memory (KiB) of the whole tool for listing
# the command, its --help, and running it (reading and checking the document, printed with the
# python formatter); then the run's time above start-up (the tool listing with no descriptor) per
# level. Linear cost shows as a flat time per level.
#
#   bench/nesting_depth.sh [path/to/ostrel]      (default: build/release/tools/ostrel/ostrel)
#
# Environment: DEPTHS (list levels, default "10 20 40 80"; libxml2 refuses documents nested
# deeper than 256 elements, which is 84 such levels), RUNS (default 5).
set -eu

ostrel=${1:-build/release/tools/ostrel/ostrel}
depths=${DEPTHS:-"10 20 40 80"}
runs=${RUNS:-5}
[ -x "$ostrel" ] || { echo "no ostrel at $ostrel" >&2; exit 2; }
command -v /usr/bin/time >/dev/null || { echo "/usr/bin/time is needed (package time)" >&2; exit 2; }

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT INT TERM

# Lists of structures, $1 levels deep; each structure has a name and the next list.
nested() {
    awk -v depth="$1" 'BEGIN {
        for (i = 0; i < depth; i++)
            printf "<list type=\"structure\"><structure typeName=\"Level%d\"><field name=\"Name\"><string>%d</string></field><field name=\"Sub\">", i, i
        printf "<list type=\"structure\"/>"
        for (i = 0; i < depth; i++)
            printf "</field></structure></list>"
    }'
}

descriptor() {
    cat <<XML
<?xml version="1.0"?>
<plugin><version>1.0.0</version>
<namespaces><namespace path="deep"><description>Deep outputs.</description></namespace></namespaces>
<commands><command path="deep.show"><description>Prints a deep value.</description><input-spec/>
<output-spec>$(nested "$1")</output-spec>
<format-parameters><formatter>python</formatter></format-parameters>
<execute>cat '$2'</execute></command></commands></plugin>
XML
}

# "milliseconds kibibytes": the best time and the largest peak memory of $runs runs.
measure() {
    best=
    peak=0
    run=0
    while [ "$run" -lt "$runs" ]; do
        start=$(date +%s%N)
        OSTREL_SKIP_DEFAULT_PLUGINS=1 /usr/bin/time -f '%M' -o "$work/time" "$@" \
            > "$work/out" 2> "$work/err" || true
        end=$(date +%s%N)
        ms=$(((end - start) / 1000000))
        kib=$(cat "$work/time")
        if [ -z "$best" ] || [ "$ms" -lt "$best" ]; then best=$ms; fi
        if [ "$kib" -gt "$peak" ]; then peak=$kib; fi
        run=$((run + 1))
    done
    echo "$best $peak"
}

set -- $(measure "$ostrel" ostrel command list)
startup_ms=$1
echo "start-up with no descriptor: $1 ms, $2 KiB"
printf '%6s %16s %16s %16s %14s\n' levels "list ms/KiB" "help ms/KiB" "run ms/KiB" "run ms/level"
for depth in $depths; do
    { echo "<output>"; nested "$depth"; echo "</output>"; } > "$work/doc$depth.xml"
    descriptor "$depth" "$work/doc$depth.xml" > "$work/deep$depth.xml"
    plugin="--plugin $work/deep$depth.xml"
    # shellcheck disable=SC2086
    set -- $(measure "$ostrel" $plugin ostrel command list) \
        $(measure "$ostrel" $plugin deep show --help) \
        $(measure "$ostrel" $plugin deep show)
    [ ! -s "$work/err" ] || { echo "ostrel reported errors at $depth levels:" >&2; cat "$work/err" >&2; exit 1; }
    printf '%6s %16s %16s %16s %14s\n' "$depth" "$1/$2" "$3/$4" "$5/$6" \
        "$(awk -v ms="$5" -v s="$startup_ms" -v d="$depth" 'BEGIN { printf "%.3f", (ms - s) / d }')"
done
