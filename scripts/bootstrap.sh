#!/bin/sh
# Installs the Debian packages the build needs, and only those that are missing. Packages
# named as arguments are installed too (a stage's extra tools).
set -eu

packages="g++ cmake ninja-build pkg-config libboost-regex-dev libxml2-dev libxml2-utils
          googletest libgtest-dev libbenchmark-dev $*"
missing=""
for p in $packages; do
    if ! dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed"; then
        missing="$missing $p"
    fi
done
[ -z "$missing" ] && exit 0

echo "Installing:$missing"
sudo=""
[ "$(id -u)" -eq 0 ] || sudo="sudo"
$sudo apt-get update -qq
DEBIAN_FRONTEND=noninteractive $sudo apt-get install -y -qq $missing >/dev/null
