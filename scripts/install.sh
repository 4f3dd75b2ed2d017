#!/bin/sh
# Builds and installs the tool, the library and its development files, the bundled plug-ins,
# the manual page and the shell completions, then runs the tool's main job.
#
#   sh scripts/install.sh [--prefix DIR]        or   PREFIX=DIR sh scripts/install.sh
#
# The prefix defaults to /usr/local for root and to ~/.local for anyone else. Root is needed
# only to install missing Debian packages. `sh scripts/uninstall.sh` removes the installation.
set -eu
cd "$(dirname "$0")/.."

die() {
    echo "install.sh: $*" >&2
    exit 1
}

prefix=${PREFIX:-}
while [ $# -gt 0 ]; do
    case $1 in
        --prefix)
            [ $# -ge 2 ] || die "--prefix needs a directory"
            prefix=$2 && shift 2 ;;
        --prefix=*) prefix=${1#--prefix=} && shift ;;
        -h | --help) sed -n '2,9s/^# \{0,1\}//p' "$0" && exit 0 ;;
        *) die "unknown argument '$1' (expected --prefix DIR)" ;;
    esac
done
if [ -z "$prefix" ]; then
    if [ "$(id -u)" -eq 0 ]; then prefix=/usr/local; else prefix=$HOME/.local; fi
fi
case $prefix in /*) ;; *) prefix=$(pwd)/$prefix ;; esac

# Refuse before building: an install that fails half-way leaves files behind.
for dir in "$prefix" "$prefix/bin" "$prefix/include" "$prefix/lib" "$prefix/libexec" \
    "$prefix/share"; do
    existing=$dir
    while [ ! -e "$existing" ]; do existing=$(dirname "$existing"); done
    if [ ! -d "$existing" ] || [ ! -w "$existing" ]; then
        die "cannot install into $prefix: $existing is not writable by $(id -un)." \
            "Choose a prefix of your own (--prefix ~/.local) or run as root."
    fi
done

sh scripts/bootstrap.sh build
command -v c++ >/dev/null 2>&1 || die "no C++ compiler found: install g++ (apt-get install g++)"

build=build/release
launcher=""
command -v ccache >/dev/null 2>&1 && launcher="-DCMAKE_CXX_COMPILER_LAUNCHER=ccache"
cmake -S . -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Release -DTINDRA_BUILD_TESTS=OFF \
    -DCMAKE_INSTALL_PREFIX="$prefix" $launcher >/dev/null
cmake --build "$build"

# A trial run into a stage lists every file the real one writes, so a failure midway can be
# undone completely.
stage=$(pwd)/$build/stage
rm -rf "$stage"
DESTDIR=$stage cmake --install "$build" >/dev/null
if ! cmake --install "$build" >/dev/null; then
    (cd "$stage$prefix" && find . ! -type d) | while IFS= read -r file; do
        rm -f "$prefix/${file#./}"
    done
    rm -rf "$stage"
    die "installing into $prefix failed; the files it had written are removed again."
fi
rm -rf "$stage"
[ "$(id -u)" -ne 0 ] || ldconfig

echo "Installed into $prefix (sh scripts/uninstall.sh removes it)."
case ":$PATH:" in
    *":$prefix/bin:"*) ;;
    *) echo "Add $prefix/bin to PATH to run ostrel by name." ;;
esac
"$prefix/bin/ostrel" storage filesystem list
