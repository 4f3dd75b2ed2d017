#!/bin/sh
# Network interfaces from /sys/class/net with state, MTU, hardware address, link speed and the
# IPv4 and IPv6 addresses assigned to them.
. "$(dirname "$0")/common.sh"

name='' state=''
while [ $# -gt 0 ]; do
    case $1 in
    --name) need_value "$1" $#; name=$2; shift 2 ;;
    --state) need_value "$1" $#; state=$2; shift 2 ;;
    *) fail "Unexpected argument: $1" ;;
    esac
done

net=$host_root/proc/net

# Prints "interface<TAB>address/prefix" for every local address. IPv6 addresses name their
# interface; IPv4 addresses are the host entries of the FIB trie, matched to the interface of
# the connected route that covers them (loopback addresses have none and belong to lo).
addresses() {
    [ -r "$net/if_inet6" ] && awk "$net_awk_functions"'
        { printf "%s\t%s/%d\n", $6, ipv6($1), hex($3) }' "$net/if_inet6"
    [ -r "$net/fib_trie" ] && [ -r "$net/route" ] && awk "$net_awk_functions"'
        function network(address, mask,   a, m, i, step, text) {
            split(address, a, "."); split(mask, m, ".")
            text = ""
            for (i = 1; i <= 4; i++) {
                step = 256 - m[i]
                text = text (i > 1 ? "." : "") (a[i] - a[i] % step)
            }
            return text
        }
        FILENAME ~ /route$/ {
            if (FNR > 1 && !has_flag(hex($4), 2))
                routes[++count] = $1 " " ipv4($2) " " ipv4($8) " " prefix_length($8)
            next
        }
        $1 == "|--" { last = $2; next }
        $0 ~ /\/32 host LOCAL/ && !(last in seen) {
            seen[last] = 1
            best = -1
            for (i = 1; i <= count; i++) {
                split(routes[i], r, " ")
                if (network(last, r[3]) == r[2] && r[4] > best) { best = r[4]; device = r[1] }
            }
            if (best < 0 && last ~ /^127\./) { best = 8; device = "lo" }
            if (best >= 0) printf "%s\t%s/%d\n", device, last, best
        }' "$net/route" "$net/fib_trie"
}

# Prints the first line of file $1, or $2 when the file is missing or unreadable.
attribute() {
    value=$2
    { [ -r "$1" ] && read -r value < "$1"; } 2>/dev/null || value=$2
    printf '%s' "$value"
}

{
    addresses
    echo "%%interfaces%%"
    for interface in "$host_root"/sys/class/net/*; do
        [ -d "$interface" ] || continue
        printf '%s\t%s\t%s\t%s\t%s\n' "${interface##*/}" "$(attribute "$interface/operstate" unknown)" \
            "$(attribute "$interface/mtu" 0)" "$(attribute "$interface/address" "")" \
            "$(attribute "$interface/speed" -1)"
    done
} | awk -F "$tab" -v name="$name" -v state="$state" '
    !started && $0 == "%%interfaces%%" { started = 1; next }
    !started { assigned[$1] = assigned[$1] (assigned[$1] == "" ? "" : " ") $2; next }
    {
        if (name != "" && !index($1, name)) next
        if (state != "" && $2 != state) next
        speed = ($5 ~ /^-?[0-9]+$/) ? $5 : -1
        printf "%s\t%s\t%d\t%s\t%d\t%s\n", $1, $2, $3, $4, speed, assigned[$1]
    }' |
    emit_records list NetInterface Name:string State:string Mtu:int Mac:string Speed:int \
        Addresses:strings
