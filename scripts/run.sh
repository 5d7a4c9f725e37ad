#!/bin/sh
# Installs what is missing, builds, and runs the workbench on the sample flow. Arguments go to the workbench.
set -eu

root=$(cd "$(dirname "$0")/.." && pwd)
"$root/scripts/setup.sh" run
"$root/scripts/build.sh" release if-workbench catalogues
exec "$root/build/release/bin/if-workbench" "$@"
