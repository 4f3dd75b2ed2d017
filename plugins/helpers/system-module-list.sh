#!/bin/sh
# Kernel modules known to /sys/module: loadable ones with their state and users, and the
# built-in ones that expose parameters.
. "$(dirname "$0")/common.sh"

name='' loaded=false
while [ $# -gt 0 ]; do
    case $1 in
    --name) need_value "$1" $#; name=$2; shift 2 ;;
    --loaded) loaded=true; shift ;;
    *) fail "Unexpected argument: $1" ;;
    esac
done

# Counts the entries of directory $1 and lists their names, blank-separated, in $entries.
list_entries() {
    count=0 entries=
    for entry in "$1"/*; do
        [ -e "$entry" ] || continue
        count=$((count + 1))
        entries="$entries${entries:+ }${entry##*/}"
    done
}

for module in "$host_root"/sys/module/*; do
    [ -d "$module" ] || continue
    module_name=${module##*/}
    case $module_name in *"$name"*) ;; *) continue ;; esac
    state=builtin size=0 references=0
    if [ -r "$module/initstate" ]; then
        read -r state < "$module/initstate"
        [ -r "$module/coresize" ] && read -r size < "$module/coresize"
        [ -r "$module/refcnt" ] && read -r references < "$module/refcnt"
    elif [ "$loaded" = true ]; then
        continue
    fi
    list_entries "$module/parameters"
    parameters=$count
    list_entries "$module/holders"
    printf '%s\t%s\t%s\t%s\t%s\t%s\n' "$module_name" "$state" "$size" "$references" \
        "$entries" "$parameters"
done |
    emit_records list KernelModule Name:string State:string Size:int References:int \
        Holders:strings Parameters:int
