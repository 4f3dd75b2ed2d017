#!/bin/sh
# Operating system release (os-release) and the running kernel.
. "$(dirname "$0")/common.sh"

[ $# -eq 0 ] || fail "Unexpected argument: $1"

release=$host_root/etc/os-release
[ -r "$release" ] || release=$host_root/usr/lib/os-release
[ -r "$release" ] || fail "Unable to find os-release"
read -r kernel < "$host_root/proc/sys/kernel/osrelease" || fail "Unable to read the kernel release"
read -r build < "$host_root/proc/sys/kernel/version" || build=
machine=$(uname -m)

# os-release holds shell-style assignments; values may be quoted and carry backslash escapes.
awk -F= -v kernel="$kernel" -v build="$build" -v machine="$machine" '
    function unquote(text,   quote) {
        quote = substr(text, 1, 1)
        if ((quote == "\"" || quote == "\047") && substr(text, length(text)) == quote)
            text = substr(text, 2, length(text) - 2)
        gsub(/\t/, " ", text)
        gsub(/\\\\/, "\001", text)
        gsub(/\\/, "", text)
        gsub(/\001/, "\\", text)
        return text
    }
    /^[A-Z_]+=/ { key = $1; sub(/^[^=]*=/, ""); field[key] = unquote($0) }
    END {
        version = ("VERSION" in field) ? field["VERSION"] : field["VERSION_ID"]
        printf "%s\t%s\t%s\t%s\t%s\t%s\t%s\n", field["NAME"], version, field["ID"],
            field["PRETTY_NAME"], kernel, build, machine
    }' "$release" |
    emit_records one OsVersion Name:string Version:string Id:string Description:string \
        Kernel:string Build:string Architecture:string
