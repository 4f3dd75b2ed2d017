#!/bin/sh
# Memory and swap totals from /proc/meminfo, in MiB.
. "$(dirname "$0")/common.sh"

[ $# -eq 0 ] || fail "Unexpected argument: $1"
[ -r "$host_root/proc/meminfo" ] || fail "Unable to read /proc/meminfo"

awk '
    { sub(/:$/, "", $1); kib[$1] = $2 }
    END {
        # Kernels before 3.14 lack MemAvailable; free and reclaimable caches approximate it.
        if (!("MemAvailable" in kib)) kib["MemAvailable"] = kib["MemFree"] + kib["Buffers"] + kib["Cached"]
        used = kib["MemTotal"] - kib["MemAvailable"]
        swapUsed = kib["SwapTotal"] - kib["SwapFree"]
        printf "%d\t%d\t%d\t%d\t%d\t%d\t%d\t%d\t%d\n", kib["MemTotal"] / 1024,
            used / 1024, kib["MemAvailable"] / 1024, kib["MemFree"] / 1024,
            kib["Buffers"] / 1024, kib["Cached"] / 1024, kib["SwapTotal"] / 1024,
            swapUsed / 1024, kib["SwapFree"] / 1024
    }' "$host_root/proc/meminfo" |
    emit_records one Memory Total:int Used:int Available:int Free:int Buffers:int Cached:int \
        SwapTotal:int SwapUsed:int SwapFree:int
