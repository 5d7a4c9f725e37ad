#!/bin/sh
# Installs a build, builds a program against what is installed and runs it and the workbench:
# check.sh BUILD FOLDER EMULATOR CMAKE-OPTION...; an empty emulator for this machine.
set -eu

tests=$(cd "$(dirname "$0")" && pwd)
build=$1 folder=$2 emulator=$3
shift 3
rm -rf "$folder"
prefix=$folder/root

cmake --install "$build" --prefix "$prefix"
# Where the installed files are must not be in them.
if grep -rlF -e "$folder" -e "$build/lib" "$prefix/include" "$prefix"/lib/*/cmake; then
    exit 1
fi
cmake -S "$tests" -B "$folder/host" -DCMAKE_PREFIX_PATH="$prefix" "$@"
cmake --build "$folder/host"

libraries=$(dirname "$(find "$prefix" -name libZelCommon.so)")
export LD_LIBRARY_PATH="$libraries" HOME="$folder"
$emulator "$folder/host/installed_host"
$emulator "$prefix/bin/if-workbench" --screenshot "$folder/picture.png"
test -s "$folder/picture.png"
