#!/bin/sh
# Builds a preset, or some of its targets: build.sh PRESET [TARGET...]. Prints nothing unless it fails.
set -eu

cd "$(dirname "$0")/.."
preset=$1
shift
mkdir -p build
{ cmake --preset "$preset" && cmake --build --preset "$preset" ${1:+--target "$@"}; } >"build/$preset.log" 2>&1 ||
    { cat "build/$preset.log" >&2; exit 1; }
