#!/bin/sh
# The shared library's exported set against the public headers: every exported symbol is the
# host hook Panic or lies in namespace Tindra and belongs to a class or function that a header
# under include/tindra marks TINDRA_EXPORT; every such function is exported; the exception and
# every exported class with a virtual table keep their type information exported.
#
#   exported_symbols.sh <libtindra.so> <include directory> <nm> <c++filt>
set -eu
library=$1 include=$2 nm=$3 cxxfilt=$4
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

find "$include/tindra" -name '*.h' -exec cat {} + >"$work/headers"
grep -o '\(class\|struct\) TINDRA_EXPORT [A-Za-z0-9_]*' "$work/headers" | awk '{ print $3 }' |
    sort -u >"$work/classes"
grep 'TINDRA_EXPORT' "$work/headers" | grep -v '^#\|^ *//\|\(class\|struct\) TINDRA_EXPORT' |
    sed 's/(.*//; s/.*[ *&]//' | sort -u >"$work/functions"
"$nm" -D --defined-only "$library" | awk '{ print $3 }' | "$cxxfilt" >"$work/exported"
[ -s "$work/exported" ] || { echo "no exported symbols in $library"; exit 1; }

# One line per symbol: "<kind> <qualified name>", kind "type" for type information, virtual
# tables and VTTs, "code" for functions, thunks and data; arguments, ABI tags and the return
# types of template functions dropped.
sed -e 's/\[abi:[a-z0-9]*\]//g' \
    -e 's/^\(typeinfo name\|typeinfo\|vtable\|VTT\) for /type /' \
    -e 's/^\(non-virtual \|virtual \)\{0,1\}thunk to /code /' \
    -e '/^\(type\|code\) /!s/^/code /' -e 's/(.*//' \
    -e 's/^code [^<]* \(Tindra::\)/code \1/' "$work/exported" |
    awk -v classes="$work/classes" -v functions="$work/functions" '
    BEGIN {
        while ((getline name < classes) > 0) isClass[name] = 1
        while ((getline name < functions) > 0) isFunction[name] = 1
    }
    {
        kind = $1; symbol = substr($0, length(kind) + 2)
        if (symbol ~ /boost::|^_*xml/) { print "private dependency exported: " symbol; bad++; next }
        if (symbol == "Panic" && ("Panic" in isFunction)) { seen["Panic"] = 1; next }
        if (symbol !~ /^Tindra::/) { print "outside namespace Tindra: " symbol; bad++; next }
        count = split(symbol, part, "::")
        if (kind == "type" && !(part[count] in isClass)) { print "type of an unexported class: " symbol; bad++; next }
        if (kind == "type") next
        for (i = 2; i < count; i++) if (part[i] in isClass) next
        sub(/^~/, "", part[count])
        if ((part[count] in isFunction) || (part[count] in isClass)) { seen[part[count]] = 1; next }
        { print "not declared with TINDRA_EXPORT under include/tindra: " symbol; bad++; next }
    }
    END {
        for (name in isFunction) if (!(name in seen)) { print "declared but not exported: " name; bad++ }
        exit bad > 0
    }' || failed=1

sed -n 's/^vtable for //p' "$work/exported" | { echo Tindra::TindraException; cat; } |
    while read -r class; do
        grep -qx "typeinfo for $class" "$work/exported" || echo "typeinfo for $class is not exported"
    done >"$work/types"
[ ! -s "$work/types" ] || { cat "$work/types"; failed=1; }

echo "$(wc -l <"$work/exported") exported symbols checked"
exit ${failed:-0}
