#!/bin/sh
# Tests the Ansible module: its unit tests, then playbooks run with Debian's ansible-core
# against local host aliases, using the ostrel built in the given build directory.
set -eu
build=$(realpath "${1:-$(dirname "$0")/../build/test}")
cd "$(dirname "$0")/.."
sh scripts/bootstrap.sh ansible-core python3

[ -x "$build/tools/ostrel/ostrel" ] || { echo "No ostrel built in $build" >&2; exit 1; }
# The playbooks run the sanitised tool; a leak report is a failure as in the other tests.
OSTREL_BUILD_DIR="$build" ASAN_OPTIONS=detect_leaks=1 PYTHONDONTWRITEBYTECODE=1 \
    /usr/bin/python3 -m unittest discover -s contrib/ansible/tests -p 'test_*.py'
