#!/bin/sh
# The whole check, one stage per line: each compiler with AddressSanitizer,
# UndefinedBehaviorSanitizer and -Werror, then a short run of every fuzz target.
set -eu
cd "$(dirname "$0")/.."
sh scripts/bootstrap.sh

sh scripts/test-build.sh gcc
sh scripts/test-build.sh clang
sh scripts/fuzz.sh 20
sh scripts/test-ansible.sh build/test
sh scripts/check-packages.sh scripts  # installer, uninstaller and their refusals
