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

# One stream for awk: the account database, then every status line and every argument, each
# prefixed with its file. grep reads the files because a process may end while its files are
# read, and grep, unlike awk, shrugs that off and goes on.
{
    host_passwd
    echo "%%status%%"
    grep -s -H '' "$host_root"/proc/[0-9]*/status
    echo "%%arguments%%"
    grep -s -a -z -H '' "$host_root"/proc/[0-9]*/cmdline | tr '\000\n\t' '\n  '
} | awk -v user="$user" -v name="$name" -v pids="$pids" -v state="$state" '
    BEGIN {
        split("R running S sleeping D disk-sleep T stopped t tracing-stop Z zombie X dead " \
              "I idle P parked W waking K wakekill", words, " ")
        for (i = 1; i < 24; i += 2) stateWord[words[i]] = words[i + 1]
        wanted = split(pids, list, /[ ,]+/)
        for (i = 1; i <= wanted; i++) if (list[i] != "") wantedPid[list[i] + 0] = 1
        part = "accounts"
    }
    /^%%(status|arguments)%%$/ { part = substr($0, 3, length($0) - 4); next }
    part == "accounts" { split($0, account, ":"); userName[account[3]] = account[1]; next }
    # Lines read "<dir>/<file>:<text>"; the directory stands for the process.
    part == "status" {
        at = index($0, "/status:")
        dir = substr($0, 1, at - 1)
        line = substr($0, at + 8)
        key = line
        sub(/:.*/, "", key)
        sub(/^[^:]*:[ \t]*/, "", line)
        info[dir, key] = line
        dirs[dir] = 1
        next
    }
    {
        at = index($0, "/cmdline:")
        dir = substr($0, 1, at - 1)
        arg = substr($0, at + 9)
        args[dir] = (++argCount[dir] > 1 ? args[dir] " " : "") arg
    }
    END {
        for (dir in dirs) {
            if (!((dir, "Pid") in info)) continue  # ended while we looked
            pid = info[dir, "Pid"] + 0
            split(info[dir, "Uid"], uids, /[ \t]+/)
            owner = (uids[1] in userName) ? userName[uids[1]] : uids[1]
            word = stateWord[substr(info[dir, "State"], 1, 1)]
            if (word == "") word = info[dir, "State"]
            command = info[dir, "Name"]
            gsub(/\t/, " ", command)
            if (wanted && !(pid in wantedPid)) continue
            if (user != "" && user != owner && user != uids[1]) continue
            if (state != "" && state != word) continue
            if (name != "" && !index(command, name) && !index(args[dir], name)) continue
            printf "%d\t%d\t%s\t%s\t%d\t%d\t%s\t%s\n", pid, info[dir, "PPid"], owner, word,
                info[dir, "Threads"], info[dir, "VmRSS"], command, args[dir]
        }
    }' |
    sort -t "$tab" $sort_keys |
    if [ -n "$limit" ]; then head -n "$limit"; else cat; fi |
    emit_records list Process Pid:int Parent:int User:string State:string Threads:int \
        Memory:int Command:string Arguments:string
