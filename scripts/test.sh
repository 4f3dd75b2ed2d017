#!/bin/sh
# The whole check, one stage per line: each compiler with AddressSanitizer,
# UndefinedBehaviorSanitizer and -Werror, then a short run of every fuzz target.
set -eu
cd "$(dirname "$0")/.."
sh scripts/bootstrap.sh

sh scripts/test-build.sh gcc
sh scripts/test-build.sh clang
# A fixed seed: the smoke replays the same inputs on every run (a slower machine, fewer of
# them), so a finding is a change in the code, not luck; `scripts/fuzz.sh 600` fuzzes for real.
FUZZ_SEED=1 sh scripts/fuzz.sh 20
sh scripts/test-ansible.sh build/test
sh scripts/check-packages.sh scripts  # installer, uninstaller and their refusals
