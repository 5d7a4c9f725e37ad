#!/bin/sh
# Installs what is missing, builds with sanitizers and runs the tests. Arguments go to ctest: test.sh -R tst_panel
set -eu

cd "$(dirname "$0")/.."
scripts/setup.sh test
scripts/build.sh asan
ctest --preset asan "$@"
