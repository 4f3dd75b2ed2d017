# Sourced by every bundled helper.
#
# A helper answers the engine on standard output with either "ERROR:" lines or one XML output
# document. Everything a helper takes from the host reaches that document through emit_records,
# which passes it through xml_escape, the one escape of this pack.

export LC_ALL=C
tab=$(printf '\t')

# Root under which /proc, /sys and /etc are read; empty on a live host. Tests point it at
# fixture trees.
host_root=${OSTREL_HOST_ROOT:-}

# Reports one error in the engine's protocol and stops the helper.
fail() {
    printf 'ERROR:%s\n' "$*"
    exit 1
}

# Option parsing: $1 is the option, $2 the number of words left including the option.
need_value() {
    [ "$2" -ge 2 ] || fail "Option $1 needs a value"
}

# Makes a stream fit for an XML document: drops bytes that are not UTF-8 and the control
# characters XML cannot carry, then replaces the markup characters with entities. Tabs and
# line feeds pass, so a whole record stream can be escaped at once.
xml_escape() {
    iconv -f UTF-8 -t UTF-8 -c | tr -d '\001-\010\013\014\016-\037' |
        sed -e 's/&/\&amp;/g' -e 's/</\&lt;/g' -e 's/>/\&gt;/g' \
            -e 's/"/\&quot;/g' -e "s/'/\&apos;/g"
}

# Account databases: the name service on a live host, the fixture files under a test root.
host_passwd() {
    if [ -n "$host_root" ]; then cat "$host_root/etc/passwd"; else getent passwd; fi
}
host_group() {
    if [ -n "$host_root" ]; then cat "$host_root/etc/group"; else getent group; fi
}

# Writes the records on standard input (one per line, values separated by tabs) as an output
# document. $1 is "list" (a list of structures, possibly empty) or "one" (the first record as
# a single structure; no record is an error). $2 is the structure type name; the remaining
# arguments name the fields in record order as Name:kind, kind being string, int, bool or
# strings (a blank-separated value written as a list of strings).
emit_records() {
    shape=$1
    shift
    layout=$(printf '%s\n' "$*" | xml_escape)
    xml_escape | awk -F "$tab" -v shape="$shape" -v layout="$layout" '
        function open_document() {
            if (opened) return
            opened = 1
            print "<?xml version=\"1.0\" encoding=\"UTF-8\"?>"
            print "<output>"
            if (shape == "list") print "<list type=\"structure\">"
        }
        function value(kind, text,   count, items, out, i) {
            if (kind != "strings") return "<" kind ">" text "</" kind ">"
            count = split(text, items, " ")
            out = "<list type=\"string\">"
            for (i = 1; i <= count; i++) out = out "<string>" items[i] "</string>"
            return out "</list>"
        }
        BEGIN {
            fields = split(layout, spec, " ") - 1
            type = spec[1]
            for (i = 1; i <= fields; i++) {
                split(spec[i + 1], part, ":")
                name[i] = part[1]
                kind[i] = part[2]
            }
        }
        shape == "one" && NR > 1 { next }
        {
            open_document()
            printf "<structure typeName=\"%s\">", type
            for (i = 1; i <= fields; i++)
                printf "<field name=\"%s\">%s</field>", name[i], value(kind[i], $i)
            print "</structure>"
        }
        END {
            if (!opened && shape == "one") {
                print "ERROR:No " type " data found on this host"
                exit
            }
            open_document()
            if (shape == "list") print "</list>"
            print "</output>"
        }'
}

# awk functions for the address formats of /proc/net, shared by the network helpers.
# shellcheck disable=SC2034 # used by the helpers that source this file
net_awk_functions='
    function hex(text,   value, i) {
        value = 0
        text = tolower(text)
        for (i = 1; i <= length(text); i++)
            value = value * 16 + index("0123456789abcdef", substr(text, i, 1)) - 1
        return value
    }
    function has_flag(flags, bit) { return int(flags / bit) % 2 == 1 }
    # /proc/net/route prints each IPv4 address as one hexadecimal word in host byte order
    # (little-endian here), so the first octet comes last.
    function ipv4(word) {
        return hex(substr(word, 7, 2)) "." hex(substr(word, 5, 2)) "." \
            hex(substr(word, 3, 2)) "." hex(substr(word, 1, 2))
    }
    function prefix_length(word,   octets, count, i, bits, octet) {
        split(ipv4(word), octets, ".")
        count = 0
        for (i = 1; i <= 4; i++)
            for (octet = octets[i]; octet > 0; octet = (octet * 2) % 256) count++
        return count
    }
    # 32 hexadecimal digits to the canonical text: no leading zeros, the longest run of two or
    # more zero groups written as "::".
    function ipv6(digits,   group, i, best, bestLength, run, runStart, text) {
        for (i = 0; i < 8; i++) group[i] = sprintf("%x", hex(substr(digits, i * 4 + 1, 4)))
        best = -1; bestLength = 1; run = 0
        for (i = 0; i <= 8; i++) {
            if (i < 8 && group[i] == "0") {
                if (run++ == 0) runStart = i
            } else {
                if (run > bestLength) { best = runStart; bestLength = run }
                run = 0
            }
        }
        text = ""
        for (i = 0; i < 8; i++) {
            if (i == best) { text = text "::"; i += bestLength - 1; continue }
            text = text ((text == "" || text ~ /:$/) ? "" : ":") group[i]
        }
        return text
    }
'
