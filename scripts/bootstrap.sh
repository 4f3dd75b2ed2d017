#!/bin/sh
# Installs the Debian packages a task needs, and only those that are missing.
#
#   sh scripts/bootstrap.sh [build|test] [PACKAGE...]
#
# build: what building and running the tool need. test (the default): that, and what the
# tests, benchmarks and package checks need. Further words are extra packages to install.
# Installing needs root or sudo; with nothing missing, nothing is asked of anyone.
set -eu

build_packages="g++ cmake ninja-build pkg-config libboost-regex-dev libxml2-dev"
test_packages="googletest libgtest-dev libbenchmark-dev libxml2-utils bash-completion zsh
               dpkg-dev debhelper fakeroot lintian"

set_name=test
case "${1:-}" in
    build | test) set_name=$1 && shift ;;
esac
packages=$build_packages
[ "$set_name" = build ] || packages="$packages $test_packages"
packages="$packages $*"

missing=""
for p in $packages; do
    if ! dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed"; then
        missing="$missing $p"
    fi
done
[ -z "$missing" ] && exit 0

sudo=""
if [ "$(id -u)" -ne 0 ]; then
    if ! command -v sudo >/dev/null 2>&1; then
        echo "Missing Debian packages:$missing" >&2
        echo "Install them as root (apt-get install$missing), then run this again." >&2
        exit 1
    fi
    sudo="sudo"
fi
echo "Installing:$missing"
if ! $sudo apt-get update -qq >/dev/null ||
    ! DEBIAN_FRONTEND=noninteractive $sudo apt-get install -y -qq --no-install-recommends $missing >/dev/null; then
    echo "Could not install the Debian packages:$missing" >&2
    echo "apt-get failed (is a Debian mirror reachable?). Install them with" \
        "apt-get install$missing, then run this again." >&2
    exit 1
fi
