#!/bin/sh
# Descriptor loading speed: 1,000 generated descriptor files of 10 commands each, loaded by
# ostrel, against xmllint merely parsing the same files.
#
#   bench/descriptor_load.sh [path/to/ostrel]      (default: build/release/tools/ostrel/ostrel)
#
# Prints the best of several runs for each side and their ratio; the goal is at most 1.3.
set -eu

ostrel=${1:-build/release/tools/ostrel/ostrel}
runs=${RUNS:-5}
files=${FILES:-1000}
per_file=${COMMANDS_PER_FILE:-10}
[ -x "$ostrel" ] || { echo "no ostrel at $ostrel" >&2; exit 2; }
command -v xmllint >/dev/null || { echo "xmllint is needed" >&2; exit 2; }

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT INT TERM
mkdir "$work/descriptors" "$work/empty"

# One command as a real descriptor would declare it: three constrained parameters, a list of
# structures as output, a table with units and a templated execute line.
command_element() {
    cat <<XML
    <command path="bench$1.area$2.list">
      <description>List the items of area $2 in bench $1.</description>
      <meta-data>
        <meta-data-entry name="type">fetcher</meta-data-entry>
        <meta-data-entry name="example:--name a --limit 3">Three items named a</meta-data-entry>
      </meta-data>
      <input-spec>
        <parameter name="name" shortname="n" type="string" required="false">
          <description>Only items whose name contains this text.</description>
          <constraint type="regex"><regex>[a-z0-9]+</regex></constraint>
        </parameter>
        <parameter name="state" shortname="s" type="string" required="false">
          <description>Only items in this state:%FULLENUM%</description>
          <constraint type="stringenum">
            <enum>
              <enum-value value="up">working</enum-value>
              <enum-value value="down">stopped</enum-value>
            </enum>
          </constraint>
        </parameter>
        <parameter name="limit" shortname="l" type="int" required="false">
          <description>At most this many items.</description>
          <constraint type="range"><range min="1" max="1000"/></constraint>
        </parameter>
      </input-spec>
      <output-spec>
        <list type="structure">
          <structure typeName="BenchItem">
            <field name="Name"><string/></field>
            <field name="State"><string/></field>
            <field name="Size"><int/></field>
            <field name="Online"><bool/></field>
            <field name="Tags"><list type="string"/></field>
          </structure>
        </list>
      </output-spec>
      <format-parameters>
        <formatter>table</formatter>
        <format-parameter name="fields:BenchItem">Name,State,Size,Online,Tags</format-parameter>
        <format-parameter name="units:BenchItem.Size">MiB</format-parameter>
      </format-parameters>
      <execute>/bin/true \$if{name,--name '\$val{name}'} \$if{state,--state '\$val{state}'} \$if{limit,--limit '\$val{limit}'}</execute>
    </command>
XML
}

generate() {
    file=0
    while [ "$file" -lt "$files" ]; do
        {
            echo '<?xml version="1.0" encoding="UTF-8"?>'
            echo '<plugin>'
            echo '  <version>1.0.0</version>'
            echo '  <namespaces>'
            echo "    <namespace path=\"bench$file\"><description>Bench $file.</description></namespace>"
            area=0
            while [ "$area" -lt "$per_file" ]; do
                echo "    <namespace path=\"bench$file.area$area\"><description>Area $area.</description></namespace>"
                area=$((area + 1))
            done
            echo '  </namespaces>'
            echo '  <commands>'
            area=0
            while [ "$area" -lt "$per_file" ]; do
                command_element "$file" "$area"
                area=$((area + 1))
            done
            echo '  </commands>'
            echo '</plugin>'
        } > "$work/descriptors/bench$file.xml"
        file=$((file + 1))
    done
}

# Best wall-clock time in milliseconds of $runs runs of the given command.
best_ms() {
    best=
    run=0
    while [ "$run" -lt "$runs" ]; do
        start=$(date +%s%N)
        "$@" > "$work/out" 2> "$work/err"
        end=$(date +%s%N)
        ms=$(((end - start) / 1000000))
        if [ -z "$best" ] || [ "$ms" -lt "$best" ]; then best=$ms; fi
        run=$((run + 1))
    done
    echo "$best"
}

load() {
    OSTREL_SKIP_DEFAULT_PLUGINS=1 "$ostrel" --plugin-dir "$1" ostrel command list \
        --command-filter nothingmatches
}

generate
set -- "$work"/descriptors/*.xml
xmllint_ms=$(best_ms xmllint --noout "$@")
ostrel_ms=$(best_ms load "$work/descriptors")
[ ! -s "$work/err" ] || { echo "ostrel reported errors:" >&2; cat "$work/err" >&2; exit 1; }
listed=$(OSTREL_SKIP_DEFAULT_PLUGINS=1 "$ostrel" --plugin-dir "$work/descriptors" ostrel command \
    list | tail -n +3 | wc -l)
startup_ms=$(best_ms load "$work/empty")

echo "descriptor files:      $files ($((files * per_file)) commands, $listed listed)"
echo "xmllint --noout:       $xmllint_ms ms"
echo "ostrel load and list:  $ostrel_ms ms (of which start-up with no descriptors: $startup_ms ms)"
awk -v a="$ostrel_ms" -v b="$xmllint_ms" 'BEGIN { printf "ratio ostrel/xmllint:  %.2f (goal <= 1.30)\n", a / b }'

# Wall-clock times on a shared machine swing widely; user-space instruction counts do not.
# perf counts them where the machine exposes the counter, valgrind everywhere else (slower).
if command -v perf >/dev/null && perf stat -x, -e instructions:u true 2>&1 | grep -q '^[0-9]'; then
    instructions() {
        perf stat -x, -e instructions:u "$@" 2>&1 >/dev/null | awk -F, '/instructions/ { print $1 }'
    }
elif command -v valgrind >/dev/null; then
    instructions() {
        valgrind --tool=callgrind --callgrind-out-file=/dev/null "$@" 2>&1 >/dev/null |
            awk '/Collected :/ { print $NF }'
    }
else
    exit 0
fi
lint_i=$(instructions xmllint --noout "$work"/descriptors/*.xml)
ostrel_i=$(OSTREL_SKIP_DEFAULT_PLUGINS=1 instructions "$ostrel" --plugin-dir "$work/descriptors" \
    ostrel command list --command-filter nothingmatches)
awk -v a="$ostrel_i" -v b="$lint_i" 'BEGIN {
    printf "instructions:          ostrel %.0f M, xmllint %.0f M, ratio %.2f (goal <= 1.30)\n", a / 1e6, b / 1e6, a / b }'
