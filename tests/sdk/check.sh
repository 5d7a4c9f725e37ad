#!/bin/sh
# Builds a small platform, the plug-in against it, and shows a panel of the two:
# check.sh FOLDER CMAKE-OPTION...; programs run through EMULATOR where it is set.
set -eu

tests=$(cd "$(dirname "$0")" && pwd)
folder=$1
shift
rm -rf "$folder"

cmake -S "$tests" -B "$folder/platform" "$@"
cmake --build "$folder/platform"
cmake --install "$folder/platform" --prefix "$folder/sdk"
cmake -S "$tests/../.." -B "$folder/plugin" -DQIFMODULE_PLATFORM_DIR="$folder/sdk" "$@"
cmake --build "$folder/plugin"
LD_LIBRARY_PATH=$folder/sdk/lib ${EMULATOR:-} "$folder/platform/bin/host" "$folder/plugin/lib/libQIfModule.so"
