#!/bin/sh
# Installs a build, builds a program against what is installed and runs it and the workbench:
# check.sh BUILD FOLDER CMAKE-OPTION...; programs run through EMULATOR where it is set.
set -eu

tests=$(cd "$(dirname "$0")" && pwd)
build=$1 folder=$2
shift 2
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
${EMULATOR:-} "$folder/host/installed_host"
${EMULATOR:-} "$prefix/bin/if-workbench" --screenshot "$folder/picture.png"
test -s "$folder/picture.png"
