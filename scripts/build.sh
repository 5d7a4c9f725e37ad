#!/bin/sh
# Builds a preset: build.sh PRESET. Says nothing but errors when all goes well.
set -eu

cd "$(dirname "$0")/.."
log=build/$1.log
mkdir -p build
if ! { cmake --preset "$1" && cmake --build --preset "$1"; } >"$log" 2>&1; then
    cat "$log" >&2
    exit 1
fi
