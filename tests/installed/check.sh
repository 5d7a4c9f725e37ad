#!/bin/sh
# Installs a build; builds programs, and the plug-in alone, against what is installed; works a panel of either
# plug-in, and runs the workbench: check.sh BUILD FOLDER CMAKE-OPTION...; programs run through EMULATOR if set.
set -eu

tests=$(cd "$(dirname "$0")" && pwd)
build=$1 folder=$2 prefix=$2/root
shift 2
rm -rf "$folder"

cmake --install "$build" --prefix "$prefix"
# The installed files must not contain where they are.
if grep -rlF -e "$folder" -e "$build/lib" "$prefix/include" "$prefix"/lib/*/cmake; then
    exit 1
fi
cmake -S "$tests" -B "$folder/host" -DCMAKE_PREFIX_PATH="$prefix" "$@"
cmake --build "$folder/host"
cmake -S "$tests/../.." -B "$folder/plugin" -DQIFMODULE_PLATFORM_DIR="$prefix" -DQIFMODULE_WARNINGS_AS_ERRORS=ON "$@"
cmake --build "$folder/plugin"

LD_LIBRARY_PATH=$(dirname "$(find "$prefix" -name libZelCommon.so)")
export LD_LIBRARY_PATH HOME="$folder"
${EMULATOR:-} "$folder/host/installed_units"
${EMULATOR:-} "$folder/host/bin/minimal_host" --check "$folder/panel.png"
ln -sf "$folder/plugin/lib/libQIfModule.so" "$folder/host/lib"
${EMULATOR:-} "$folder/host/bin/minimal_host" --check "$folder/panel.png"
${EMULATOR:-} "$prefix/bin/if-workbench" --screenshot "$folder/picture.png"
test -s "$folder/picture.png"
