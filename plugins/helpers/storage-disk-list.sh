#!/bin/sh
# Block devices from /sys/block with their size in MiB and partitions. Devices without media
# (size 0, such as unused loop devices) are left out unless asked for.
. "$(dirname "$0")/common.sh"

all=false
while [ $# -gt 0 ]; do
    case $1 in
    --all) all=true; shift ;;
    *) fail "Unexpected argument: $1" ;;
    esac
done

# Prints the first line of file $1 without surrounding blanks, or nothing when it is missing.
attribute() {
    [ -r "$1" ] || return 0
    read -r line < "$1" || line=
    printf '%s' "$line" | sed -e 's/[[:space:]]*$//'
}

flag() {
    [ "$(attribute "$1")" = 1 ] && echo true || echo false
}

for disk in "$host_root"/sys/block/*; do
    [ -d "$disk" ] || continue
    name=${disk##*/}
    sectors=$(attribute "$disk/size")
    sectors=${sectors:-0}
    [ "$sectors" -gt 0 ] || [ "$all" = true ] || continue
    partitions=
    for part in "$disk/$name"*; do
        [ -r "$part/partition" ] && partitions="$partitions${partitions:+ }${part##*/}"
    done
    printf '%s\t%s\t%s\t%s\t%s\t%s\t%s\t%s\n' "$name" $((sectors * 512 / 1048576)) \
        "$(attribute "$disk/device/vendor")" "$(attribute "$disk/device/model")" \
        "$(flag "$disk/removable")" "$(flag "$disk/ro")" "$(flag "$disk/queue/rotational")" \
        "$partitions"
done |
    emit_records list Disk Name:string Size:int Vendor:string Model:string Removable:bool \
        ReadOnly:bool Rotational:bool Partitions:strings
