#!/bin/sh
# IPv4 and IPv6 routes of the main table, from /proc/net/route and /proc/net/ipv6_route.
. "$(dirname "$0")/common.sh"

family='' interface=''
while [ $# -gt 0 ]; do
    case $1 in
    --family) need_value "$1" $#; family=$2; shift 2 ;;
    --interface) need_value "$1" $#; interface=$2; shift 2 ;;
    *) fail "Unexpected argument: $1" ;;
    esac
done
case $family in
'' | inet | inet6) ;;
*) fail "Invalid address family: $family" ;;
esac

net=$host_root/proc/net
files=
[ "$family" != inet6 ] && [ -r "$net/route" ] && files="$net/route"
[ "$family" != inet ] && [ -r "$net/ipv6_route" ] && files="$files $net/ipv6_route"

# Local and unreachable IPv6 entries are the kernel's own bookkeeping, not routes one set up.
# shellcheck disable=SC2086 # one or two file names
[ -z "$files" ] || awk "$net_awk_functions"'
    function flag_text(flags,   text) {
        text = has_flag(flags, 1) ? "U" : ""
        if (has_flag(flags, 2)) text = text "G"
        if (has_flag(flags, 4)) text = text "H"
        return text
    }
    FILENAME ~ /\/route$/ {
        if (FNR == 1) next
        flags = hex($4)
        gateway = has_flag(flags, 2) ? ipv4($3) : ""
        printf "%s\t%s/%d\t%s\t%s\t%d\t%s\n", "inet", ipv4($2), prefix_length($8), gateway,
            $1, $7, flag_text(flags)
        next
    }
    {
        flags = hex($9)
        if (has_flag(flags, 2147483648) || has_flag(flags, 512)) next
        gateway = has_flag(flags, 2) ? ipv6($5) : ""
        printf "%s\t%s/%d\t%s\t%s\t%d\t%s\n", "inet6", ipv6($1), hex($2), gateway, $10,
            hex($6), flag_text(flags)
    }' $files |
    awk -F "$tab" -v interface="$interface" 'interface == "" || $4 == interface' |
    emit_records list Route Family:string Destination:string Gateway:string Interface:string \
        Metric:int Flags:string
