#!/bin/sh
# User accounts with their primary and supplementary groups.
. "$(dirname "$0")/common.sh"

kind=all name=
while [ $# -gt 0 ]; do
    case $1 in
    --kind) need_value "$1" $#; kind=$2; shift 2 ;;
    --name) need_value "$1" $#; name=$2; shift 2 ;;
    *) fail "Unexpected argument: $1" ;;
    esac
done
case $kind in
all | system | regular) ;;
*) fail "Invalid account kind: $kind" ;;
esac

# Regular accounts start at UID_MIN of login.defs; nobody is a system account whatever its id.
first_regular=$(awk '$1 == "UID_MIN" { print $2 }' "$host_root/etc/login.defs" 2>/dev/null)
first_regular=${first_regular:-1000}

{
    host_group
    echo "%%accounts%%"
    host_passwd
} | awk -F: -v kind="$kind" -v name="$name" -v firstRegular="$first_regular" '
    !started && $0 == "%%accounts%%" { started = 1; next }
    !started {
        groupName[$3] = $1
        count = split($4, members, ",")
        for (i = 1; i <= count; i++)
            if (members[i] != "") memberOf[members[i]] = memberOf[members[i]] " " $1
        next
    }
    NF < 7 { next }
    {
        regular = ($3 + 0 >= firstRegular + 0 && $1 != "nobody")
        if (kind == "system" && regular) next
        if (kind == "regular" && !regular) next
        if (name != "" && !index($1, name)) next
        login = ($7 !~ /(nologin|false)$/ && $7 != "") ? "true" : "false"
        groups = memberOf[$1]
        sub(/^ /, "", groups)
        comment = $5
        sub(/,.*/, "", comment)
        gsub(/\t/, " ", comment)
        printf "%s\t%d\t%d\t%s\t%s\t%s\t%s\t%s\t%s\n", $1, $3, $4, groupName[$4], $6, $7,
            login, comment, groups
    }' |
    emit_records list Account Name:string Uid:int Gid:int Group:string Home:string \
        Shell:string Login:bool Comment:string Groups:strings
