#!/bin/sh
# Records the binary contract of the plug-in: layouts in QIfModule/core_client/BinaryLayout.h, symbols in
# QIfModule/QIfModule.exports.
#   update_contract.sh                           writes what the sources make of it, for a change that is meant
#   update_contract.sh --check PRINTER PLUGIN    writes nothing; fails where the built files differ from the record
set -eu

cd "$(dirname "$0")/.."
layout=QIfModule/core_client/BinaryLayout.h
exports=QIfModule/QIfModule.exports
measured=$(mktemp)
trap 'rm -f "$measured"' EXIT

symbols_of() {
    nm -D --defined-only --format=posix "$1" | cut -d ' ' -f 1,2 | LC_ALL=C sort
}

if [ "${1:-}" = --check ]; then
    "$2" >"$measured"
    # The entries begin at the first empty line.
    sed -n '/^$/,$p' "$layout" | diff -u --label "$layout" - --label measured "$measured"
    symbols_of "$3" | diff -u --label "$exports" "$exports" --label exported -
    exit
fi

cmake --preset dev >/dev/null
cmake --build --preset dev --target print_binary_layout >/dev/null
build/dev/bin/print_binary_layout >"$measured"
sed -i -n '/^$/q; p' "$layout"
cat "$measured" >>"$layout"
# Only now does the plug-in compile again.
cmake --build --preset dev --target QIfModule >/dev/null
symbols_of build/dev/lib/libQIfModule.so >"$exports"
