#!/bin/sh
# Renders the pictures of the documentation: docs/panel.png, and docs/workbench.png and docs/faults.png,
# which together show every dock.
set -eu

cd "$(dirname "$0")/.."
scripts/setup.sh pictures
scripts/build.sh release

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
store=$work/store.sqlite
workbench=build/release/bin/if-workbench
export XDG_CONFIG_HOME="$work" LC_ALL=C.UTF-8

"$workbench" --import workbench/samples/nuclei-conditions.json --store "$store" --module 7
"$workbench" --screenshot "$work/shot.png" --store "$store" 2>/dev/null >/dev/null
convert "$work/shot.png" -crop 612x400+243+62 +repage docs/panel.png

mkdir -p "$work/if-workbench"
printf '[General]\nlanguage=en\n' >"$work/if-workbench/if-workbench.ini"
cat >"$work/drive.sh" <<'DRIVE'
openbox >/dev/null 2>&1 &
"$1" --store "$2" >/dev/null 2>&1 &
xdotool search --sync --onlyvisible --name 'Cell nuclei' windowfocus --sync >/dev/null
sleep 2
xdotool key F9
sleep 2
import -window root "$3"
# The other two docks lie behind these, as tabs. The next command fails, and so does the mode of the panel.
xdotool mousemove 100 848 click 1
xdotool mousemove 989 534 click 1
sleep 1
xdotool mousemove 1180 282 click 1
xdotool mousemove 390 142 click 1 sleep 1 key Down key Return
sleep 1
xdotool mousemove 1180 282 click 1
sleep 1
import -window root "$4"
DRIVE
xvfb-run -a -s '-screen 0 1402x900x24' sh "$work/drive.sh" "$workbench" "$store" "$work/workbench.png" "$work/faults.png"
for picture in workbench faults; do
    convert "$work/$picture.png" -trim +repage "docs/$picture.png"
done
