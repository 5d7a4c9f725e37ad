#!/bin/sh
# Builds a small platform, the plug-in against it, and shows a panel of the two:
# check.sh FOLDER EMULATOR CMAKE-OPTION...; an empty emulator for this machine.
set -eu

tests=$(cd "$(dirname "$0")" && pwd)
folder=$1 emulator=$2
shift 2
rm -rf "$folder"

cmake -S "$tests" -B "$folder/platform" "$@"
cmake --build "$folder/platform"
cmake --install "$folder/platform" --prefix "$folder/sdk"
cmake -S "$tests/../.." -B "$folder/plugin" -DQIFMODULE_PLATFORM_DIR="$folder/sdk" "$@"
cmake --build "$folder/plugin"
LD_LIBRARY_PATH=$folder/sdk/lib $emulator "$folder/platform/bin/host" "$folder/plugin/lib/libQIfModule.so"
