#!/bin/sh
# Installs what is missing, builds, and runs the workbench on the sample flow. Arguments go to the workbench.
# Without arguments and without a display it writes a picture of the window and judges the sample.
set -eu

root=$(cd "$(dirname "$0")/.." && pwd)
"$root/scripts/setup.sh" run
"$root/scripts/build.sh" release if-workbench catalogues
workbench=$root/build/release/bin/if-workbench
if [ $# -ne 0 ] || [ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}${QT_QPA_PLATFORM:-}" ]; then
    exec "$workbench" "$@"
fi
samples=$root/workbench/samples
"$workbench" --screenshot "$root/build/workbench.png" >/dev/null 2>&1
"$workbench" --run "$samples/nuclei.csv" --summary --conditions "$samples/nuclei-conditions.json"
echo "There is no display. The window is shown in build/workbench.png; with a display it opens."
