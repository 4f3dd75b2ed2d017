#!/bin/sh
# Logical processors from /proc/cpuinfo, with their socket, core and current clock.
. "$(dirname "$0")/common.sh"

socket=
while [ $# -gt 0 ]; do
    case $1 in
    --socket) need_value "$1" $#; socket=$2; shift 2 ;;
    *) fail "Unexpected argument: $1" ;;
    esac
done
case $socket in
*[!0-9]*) fail "Invalid socket: $socket" ;;
esac

cpus=$host_root/sys/devices/system/cpu
[ -r "$host_root/proc/cpuinfo" ] || fail "Unable to read /proc/cpuinfo"

# Keys differ between architectures: x86 names vendor and model, ARM the implementer and part.
awk -F '[ \t]*: ?' -v socket="$socket" -v cpus="$cpus" '
    function online(id,   file, state) {
        file = cpus "/cpu" id "/online"
        state = 1
        if ((getline state < file) > 0) close(file)
        return state == 1 ? "true" : "false"
    }
    function flush() {
        if (!("processor" in cpu)) return
        id = cpu["processor"]
        vendor = ("vendor_id" in cpu) ? cpu["vendor_id"] : cpu["CPU implementer"]
        model = ("model name" in cpu) ? cpu["model name"] : cpu["CPU part"]
        package = ("physical id" in cpu) ? cpu["physical id"] : 0
        core = ("core id" in cpu) ? cpu["core id"] : id
        mhz = int(cpu["cpu MHz"] + 0.5)
        if (socket == "" || package == socket)
            printf "%d\t%s\t%s\t%d\t%d\t%d\t%s\n", id, vendor, model, package, core, mhz, online(id)
        delete cpu
    }
    NF == 0 || $0 ~ /^[ \t]*$/ { flush(); next }
    { value = $2; gsub(/\t/, " ", value); cpu[$1] = value }
    END { flush() }' "$host_root/proc/cpuinfo" |
    emit_records list Cpu Id:int Vendor:string Model:string Socket:int Core:int Mhz:int Online:bool
