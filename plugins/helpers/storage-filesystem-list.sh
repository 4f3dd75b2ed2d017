#!/bin/sh
# Mounted file systems with size and usage in MiB. Pseudo file systems, which hold no blocks,
# are left out unless asked for.
. "$(dirname "$0")/common.sh"

types='' all=false
while [ $# -gt 0 ]; do
    case $1 in
    --type) need_value "$1" $#; types="$types $2 "; shift 2 ;;
    --all) all=true; shift ;;
    *) fail "Unexpected argument: $1" ;;
    esac
done

mounts=$host_root/proc/self/mounts
[ -r "$mounts" ] || fail "Unable to read the mount table"

# The mount table escapes blanks, tabs, line feeds and backslashes in paths as \ooo.
awk '
    function decode(text,   out, code) {
        out = ""
        while (match(text, /\\[0-7][0-7][0-7]/)) {
            code = substr(text, RSTART + 1, 3)
            out = out substr(text, 1, RSTART - 1) \
                sprintf("%c", substr(code, 1, 1) * 64 + substr(code, 2, 1) * 8 + substr(code, 3, 1))
            text = substr(text, RSTART + 4)
        }
        out = out text
        gsub(/[\t\n]/, " ", out)
        return out
    }
    NF >= 4 { printf "%s\t%s\t%s\t%s\n", decode($1), decode($2), $3, $4 }' "$mounts" |
    while IFS=$tab read -r device mount type options; do
        case $types in '' | *" $type "*) ;; *) continue ;; esac
        # shellcheck disable=SC2046 # the four numbers are meant to be split
        set -- $(stat -f -c '%b %f %a %S' -- "$host_root$mount" 2>/dev/null) 0 0 0 0
        blocks=$1 free=$2 available=$3 block_size=$4
        [ "$blocks" -gt 0 ] || [ "$all" = true ] || continue
        used=$(((blocks - free) * block_size / 1048576))
        available=$((available * block_size / 1048576))
        size=$((blocks * block_size / 1048576))
        use=0
        [ $((used + available)) -gt 0 ] &&
            use=$(((used * 100 + used + available - 1) / (used + available)))
        case ,$options, in *,ro,*) readonly=true ;; *) readonly=false ;; esac
        printf '%s\t%s\t%s\t%s\t%s\t%s\t%s\t%s\n' "$device" "$mount" "$type" "$size" "$used" \
            "$available" "$use" "$readonly"
    done |
    emit_records list FileSystem Device:string Mount:string Type:string Size:int Used:int \
        Available:int Use:int ReadOnly:bool
