#!/bin/sh
# shellcheck disable=SC2086 # $sort_keys holds several sort keys
# Processes read from /proc, with optional filters, ordering and a row limit.
. "$(dirname "$0")/common.sh"

user='' name='' pids='' state='' limit='' order=pid
while [ $# -gt 0 ]; do
    case $1 in
    --user) need_value "$1" $#; user=$2; shift 2 ;;
    --name) need_value "$1" $#; name=$2; shift 2 ;;
    --pid) need_value "$1" $#; pids=$2; shift 2 ;;
    --state) need_value "$1" $#; state=$2; shift 2 ;;
    --limit) need_value "$1" $#; limit=$2; shift 2 ;;
    --sort) need_value "$1" $#; order=$2; shift 2 ;;
    *) fail "Unexpected argument: $1" ;;
    esac
done
case $limit in
'' | *[!0-9]*) [ -z "$limit" ] || fail "Invalid limit: $limit" ;;
esac
case $order in
pid) sort_keys="-k1,1n" ;;
memory) sort_keys="-k6,6nr -k1,1n" ;;
name) sort_keys="-k7,7 -k1,1n" ;;
*) fail "Invalid sort order: $order" ;;
esac

# One stream for awk: the account database, a marker line, then one process directory per line.
{
    host_passwd
    echo "%%processes%%"
    for dir in "$host_root"/proc/[0-9]*; do
        [ -d "$dir" ] && printf '%s\n' "$dir"
    done
} | awk -v user="$user" -v name="$name" -v pids="$pids" -v state="$state" '
    BEGIN {
        split("R running S sleeping D disk-sleep T stopped t tracing-stop Z zombie X dead " \
              "I idle P parked W waking K wakekill", words, " ")
        for (i = 1; i < 24; i += 2) stateWord[words[i]] = words[i + 1]
        wanted = split(pids, list, /[ ,]+/)
        for (i = 1; i <= wanted; i++) if (list[i] != "") wantedPid[list[i] + 0] = 1
    }
    !started && $0 == "%%processes%%" { started = 1; next }
    !started { split($0, account, ":"); userName[account[3]] = account[1]; next }
    function arguments(dir,   file, arg, text) {
        file = dir "/cmdline"
        RS = "\0"
        text = ""
        while ((getline arg < file) > 0) text = text (text == "" ? "" : " ") arg
        close(file)
        RS = "\n"
        gsub(/[\t\n]/, " ", text)
        return text
    }
    {
        dir = $0
        file = dir "/status"
        delete info
        while ((getline line < file) > 0) {
            key = line
            sub(/:.*/, "", key)
            sub(/^[^:]*:[ \t]*/, "", line)
            info[key] = line
        }
        close(file)
        if (!("Pid" in info)) next  # gone while we looked
        pid = info["Pid"] + 0
        split(info["Uid"], uids, /[ \t]+/)
        owner = (uids[1] in userName) ? userName[uids[1]] : uids[1]
        word = stateWord[substr(info["State"], 1, 1)]
        if (word == "") word = info["State"]
        command = info["Name"]
        gsub(/\t/, " ", command)
        args = arguments(dir)
        if (wanted && !(pid in wantedPid)) next
        if (user != "" && user != owner && user != uids[1]) next
        if (state != "" && state != word) next
        if (name != "" && !index(command, name) && !index(args, name)) next
        printf "%d\t%d\t%s\t%s\t%d\t%d\t%s\t%s\n", pid, info["PPid"], owner, word,
            info["Threads"], info["VmRSS"], command, args
    }' |
    sort -t "$tab" $sort_keys |
    if [ -n "$limit" ]; then head -n "$limit"; else cat; fi |
    emit_records list Process Pid:int Parent:int User:string State:string Threads:int \
        Memory:int Command:string Arguments:string
