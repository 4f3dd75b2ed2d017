#!/bin/sh
# Host name as the kernel knows it, its NIS domain and the name configured for boot.
. "$(dirname "$0")/common.sh"

[ $# -eq 0 ] || fail "Unexpected argument: $1"

read -r name < "$host_root/proc/sys/kernel/hostname" || fail "Unable to read the host name"
domain=
[ -r "$host_root/proc/sys/kernel/domainname" ] && read -r domain < "$host_root/proc/sys/kernel/domainname"
[ "$domain" = "(none)" ] && domain=
configured=
[ -r "$host_root/etc/hostname" ] && read -r configured < "$host_root/etc/hostname"

printf '%s\t%s\t%s\n' "$name" "$domain" "$configured" |
    emit_records one HostName Name:string Domain:string Configured:string
