#!/bin/sh
# Installs what is missing, builds, and runs every test: with sanitizers, and as released.
set -eu

cd "$(dirname "$0")/.."
scripts/setup.sh test
for preset in asan release fuzz; do
    scripts/build.sh "$preset"
done
scripts/check.sh
for preset in asan release; do
    ctest --preset "$preset"
done
scripts/fuzz.sh
