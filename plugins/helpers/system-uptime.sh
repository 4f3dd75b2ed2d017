#!/bin/sh
# Time since boot, boot time and load averages.
. "$(dirname "$0")/common.sh"

[ $# -eq 0 ] || fail "Unexpected argument: $1"

read -r uptime _ < "$host_root/proc/uptime" || fail "Unable to read the uptime"
read -r load1 load5 load15 tasks _ < "$host_root/proc/loadavg" || fail "Unable to read the load"
seconds=${uptime%%.*}
now=$(date +%s)
since=$(date -d "@$((now - seconds))" '+%Y-%m-%d %H:%M:%S')
days=$((seconds / 86400))
clock=$(printf '%02d:%02d:%02d' $((seconds % 86400 / 3600)) $((seconds % 3600 / 60)) $((seconds % 60)))
case $days in
0) text=$clock ;;
1) text="1 day, $clock" ;;
*) text="$days days, $clock" ;;
esac

printf '%s\t%s\t%s\t%s\t%s\t%s\t%s\n' "$seconds" "$text" "$since" "$load1" "$load5" "$load15" \
    "${tasks#*/}" |
    emit_records one Uptime Seconds:int Text:string Since:string Load1:string Load5:string \
        Load15:string Tasks:int
