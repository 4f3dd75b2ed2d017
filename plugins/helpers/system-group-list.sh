#!/bin/sh
# Groups with their members: those listed in the group database and those for whom it is the
# primary group.
. "$(dirname "$0")/common.sh"

name='' member=''
while [ $# -gt 0 ]; do
    case $1 in
    --name) need_value "$1" $#; name=$2; shift 2 ;;
    --member) need_value "$1" $#; member=$2; shift 2 ;;
    *) fail "Unexpected argument: $1" ;;
    esac
done

{
    host_passwd
    echo "%%groups%%"
    host_group
} | awk -F: -v name="$name" -v member="$member" '
    !started && $0 == "%%groups%%" { started = 1; next }
    !started { primary[$4] = primary[$4] " " $1; next }
    NF < 3 { next }
    {
        if (name != "" && !index($1, name)) next
        members = primary[$3]
        count = split($4, listed, ",")
        for (i = 1; i <= count; i++)
            if (listed[i] != "" && index(members " ", " " listed[i] " ") == 0)
                members = members " " listed[i]
        sub(/^ /, "", members)
        if (member != "" && index(" " members " ", " " member " ") == 0) next
        printf "%s\t%d\t%s\n", $1, $3, members
    }' |
    emit_records list Group Name:string Gid:int Members:strings
