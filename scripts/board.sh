#!/bin/sh
# Installs what is missing, builds for the board's ARM64, runs the tests under the emulator, and leaves
# packages for amd64 and arm64 in build/packages; scripts/check_packages.sh tries them.
set -eu

cd "$(dirname "$0")/.."
scripts/setup.sh test board
scripts/build.sh board
ctest --preset board

scripts/build.sh release
rm -rf build/packages
for preset in release board; do
    cpack --config "build/$preset/CPackConfig.cmake" -B build/packages >"build/$preset-cpack.log" 2>&1 ||
        { cat "build/$preset-cpack.log" >&2; exit 1; }
done
rm -rf build/packages/_CPack_Packages
scripts/check_packages.sh
