#!/bin/sh
# Every symbol libtindra exports is the host hook Panic or lies in namespace Tindra within a class
# or function marked TINDRA_EXPORT under include/tindra; every such function is exported; the
# exception and every exported class with a virtual table export their type information.
#   exported_symbols.sh <libtindra.so> <include directory> <nm>
set -eu
library=$1 include=$2 nm=$3
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

find "$include/tindra" -name '*.h' -exec cat {} + >"$work/headers"
grep -o '\(class\|struct\) TINDRA_EXPORT [A-Za-z0-9_]*' "$work/headers" | awk '{ print $3 }' |
    sort -u >"$work/classes"
grep 'TINDRA_EXPORT' "$work/headers" | grep -v '^#\|^ *//\|\(class\|struct\) TINDRA_EXPORT' |
    sed 's/(.*//; s/.*[ *&]//' | sort -u >"$work/functions"
"$nm" -DC --defined-only "$library" | cut -d' ' -f3- >"$work/exported"
[ -s "$work/exported" ] || { echo "no exported symbols in $library"; exit 1; }
echo "$(wc -l <"$work/exported") exported symbols checked"

# One line per symbol, "<kind> <qualified name>": kinds vtable, typeinfo, type (other type data)
# and code (functions, thunks, data); arguments, ABI tags and template return types dropped.
sed -e 's/\[abi:[a-z0-9]*\]//g' -e 's/^\(vtable\|typeinfo\) for /\1 /' \
    -e 's/^\(typeinfo name\|VTT\) for /type /' -e 's/^\(non-virtual \|virtual \)\{0,1\}thunk to /code /' \
    -e '/^\(vtable\|typeinfo\|type\|code\) /!s/^/code /' -e 's/(.*//' \
    -e 's/^code [^<]* \(Tindra::\)/code \1/' "$work/exported" |
    awk -v classes="$work/classes" -v functions="$work/functions" '
    BEGIN {
        while ((getline name < classes) > 0) isClass[name] = 1
        while ((getline name < functions) > 0) isFunction[name] = 1
        hasVtable["Tindra::TindraException"] = 1
    }
    {
        kind = $1; symbol = substr($0, length(kind) + 2)
        if (kind == "vtable") hasVtable[symbol] = 1
        if (kind == "typeinfo") hasTypeinfo[symbol] = 1
        if (symbol ~ /boost::|^_*xml/) { print "private dependency exported: " symbol; bad++; next }
        if (symbol == "Panic" && ("Panic" in isFunction)) { seen["Panic"] = 1; next }
        if (symbol !~ /^Tindra::/) { print "outside namespace Tindra: " symbol; bad++; next }
        count = split(symbol, part, "::")
        if (kind != "code" && !(part[count] in isClass)) { print "type of an unexported class: " symbol; bad++; next }
        if (kind != "code") next
        for (i = 2; i < count; i++) if (part[i] in isClass) next
        sub(/^~/, "", part[count])
        if ((part[count] in isFunction) || (part[count] in isClass)) { seen[part[count]] = 1; next }
        { print "not declared with TINDRA_EXPORT under include/tindra: " symbol; bad++; next }
    }
    END {
        for (name in isFunction) if (!(name in seen)) { print "declared but not exported: " name; bad++ }
        for (name in hasVtable) if (!(name in hasTypeinfo)) { print "typeinfo for " name " is not exported"; bad++ }
        exit bad > 0
    }'
