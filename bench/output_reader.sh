#!/bin/sh
# Reading large command output documents: the output reader against `xmllint --noout` on the
# same file, side by side (best of three wall-clock times, peak resident memory). When the tool
# builds, the same document also goes through an extension command printed as table, json and
# xml. Targets for the reader: time no more than xmllint's, memory at most half of xmllint's.
#
# Environment: ROWS (default "100000 1000000"), BUILD (build directory), WORK (scratch
# directory for the documents, removed at the end unless given).
set -eu

ROOT=$(cd "$(dirname "$0")/.." && pwd)
BUILD=${BUILD:-$ROOT/build/bench}
ROWS=${ROWS:-"100000 1000000"}
if [ -n "${WORK:-}" ]; then
    mkdir -p "$WORK"
else
    WORK=$(mktemp -d)
    trap 'rm -rf "$WORK"' EXIT
fi

for tool in xmllint /usr/bin/time; do
    command -v "$tool" >/dev/null || { echo "missing $tool (packages libxml2-utils, time)" >&2; exit 2; }
done

launcher=""
command -v ccache >/dev/null && launcher="-DCMAKE_CXX_COMPILER_LAUNCHER=ccache"
cmake -S "$ROOT" -B "$BUILD" -G Ninja -DCMAKE_BUILD_TYPE=Release -DTINDRA_BUILD_BENCH=ON \
    -DTINDRA_BUILD_TESTS=OFF -DTINDRA_BUILD_PLUGINS=OFF $launcher >/dev/null
cmake --build "$BUILD" -j2 --target output_reader >/dev/null
READER=$BUILD/bench/output_reader
OSTREL=
if cmake --build "$BUILD" -j2 --target ostrel >/dev/null 2>&1; then
    OSTREL=$BUILD/tools/ostrel/ostrel
else
    echo "(ostrel does not build yet: extension command rows skipped)"
fi

# One list of six-field structures, about 500 bytes per row.
generate() {
    awk -v rows="$1" 'BEGIN {
        print "<?xml version=\"1.0\"?>"
        print "<output>"
        print "<list type=\"structure\">"
        for (i = 1; i <= rows; i++) {
            printf "  <structure typeName=\"Volume\">\n"
            printf "    <field name=\"Name\"><string>volume-%07d</string></field>\n", i
            printf "    <field name=\"Id\"><int>%d</int></field>\n", i
            printf "    <field name=\"Online\"><bool>%s</bool></field>\n", (i % 3 ? "true" : "false")
            printf "    <field name=\"Size\"><int>%d</int></field>\n", i * 4096
            printf "    <field name=\"Path\"><string>/srv/pool-%04d/images/volume-%07d.img</string></field>\n", i % 97, i
            printf "    <field name=\"Description\"><string>Generated row %d of %d for the output reader benchmark; text to fill the row</string></field>\n", i, rows
            printf "  </structure>\n"
        }
        print "</list>"
        print "</output>"
    }' > "$2"
}

# A descriptor whose command prints the document given as --file.
write_descriptor() {
    cat > "$1" <<'XML'
<plugin>
  <version>1.0.0</version>
  <namespaces>
    <namespace path="benchmark"><description>Benchmark commands</description></namespace>
  </namespaces>
  <commands>
    <command path="benchmark.rows">
      <description>Print a generated output document</description>
      <input-spec>
        <parameter name="file" type="string" required="true">
          <description>The document to print</description>
        </parameter>
      </input-spec>
      <output-spec>
        <list type="structure">
          <structure typeName="Volume">
            <field name="Name"><string/></field>
            <field name="Id"><int/></field>
            <field name="Online"><bool/></field>
            <field name="Size"><int/></field>
            <field name="Path"><string/></field>
            <field name="Description"><string/></field>
          </structure>
        </list>
      </output-spec>
      <format-parameters><formatter>table</formatter></format-parameters>
      <execute>cat '$val{file}'</execute>
    </command>
  </commands>
</plugin>
XML
}

# Prints "seconds cpu-seconds peak-kB": the best wall-clock run of three with its processor
# time (user and system), and the largest peak of the three.
measure() {
    best= cpu= peak=0
    for run in 1 2 3; do
        /usr/bin/time -f '%e %U %S %M' -o "$WORK/time" "$@" >/dev/null 2>"$WORK/stderr" || {
            echo "failed: $*" >&2; cat "$WORK/stderr" >&2; return 1; }
        read -r seconds user system kb < "$WORK/time"
        if [ -z "$best" ] || awk "BEGIN { exit !($seconds < $best) }"; then
            best=$seconds
            cpu=$(awk "BEGIN { print $user + $system }")
        fi
        if [ "$kb" -gt "$peak" ]; then peak=$kb; fi
    done
    echo "$best $cpu $peak"
}

row() {
    printf '%-8s %-6s %-26s %8s %8s %8s  %s\n' "$1" "$2" "$3" "$4" "$5" "$6" "$7"
}

write_descriptor "$WORK/benchmark.xml"
row rows size tool seconds cpu "peak MB" verdict
for rows in $ROWS; do
    doc=$WORK/rows-$rows.xml
    generate "$rows" "$doc"
    size="$(( $(wc -c < "$doc") / 1048576 ))MB"

    set -- $(measure xmllint --noout "$doc"); lint_s=$1 lint_kb=$3
    row "$rows" "$size" "xmllint --noout" "$1" "$2" "$(($3 / 1024))" "(reference)"

    set -- $(measure "$READER" "$doc")
    verdict=$(awk -v s="$1" -v ls="$lint_s" -v k="$3" -v lk="$lint_kb" 'BEGIN {
        printf "time %s, memory %s", (s <= ls ? "ok" : "SLOWER"), (2 * k <= lk ? "ok" : "OVER HALF") }')
    row "$rows" "$size" "output reader" "$1" "$2" "$(($3 / 1024))" "$verdict"

    if [ -n "$OSTREL" ]; then
        for format in table json xml; do
            set -- $(measure "$OSTREL" --plugin "$WORK/benchmark.xml" --formatter "$format" \
                benchmark rows --file "$doc")
            row "$rows" "$size" "ostrel --formatter $format" "$1" "$2" "$(($3 / 1024))" ""
        done
    fi
    rm -f "$doc"
done
