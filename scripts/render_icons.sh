#!/bin/sh
# Renders the drawings of the plug-in and of the workbench to the PNG files of the tree.
# A drawing has its normal colour; its hover state is the same drawing in the accent colour.
set -eu

cd "$(dirname "$0")/.."
scripts/setup.sh pictures
drawings=QIfModule/img_im/svg
images=QIfModule/img_im/ImageResource
workbench_icon=workbench/icons/if-workbench
hover_sheet=$(mktemp)
trap 'rm -f "$hover_sheet"' EXIT
echo 'svg { color: rgb(231,105,0) }' >"$hover_sheet"

# icon NAME WIDTH HEIGHT NORMAL [HOVER]: names of the images without folder and suffix.
icon() {
    rsvg-convert -w "$2" -h "$3" -o "$images/$4.png" "$drawings/$1.svg"
    [ $# -lt 5 ] || rsvg-convert -w "$2" -h "$3" -s "$hover_sheet" -o "$images/$5.png" "$drawings/$1.svg"
}

icon ic_add            20 20 ic_add_normal            ic_add_highlight
icon ic_dark_delete    24 24 ic_dark_delete_normal    ic_dark_delete_click
icon combo_ic_triangle 16 16 combo_ic_triangle_normal combo_ic_triangle_click
icon combo_ic_top      20 16 combo_ic_top_normal      combo_ic_top_click
icon combo_ic_down     20 16 combo_ic_down_normal     combo_ic_down_click
icon ic_btn_linkswitch 26 26 ic_btn_linkswitch_normal ic_btn_linkswitch_click
icon ic_btn_editswitch 26 26 ic_btn_editswitch_normal ic_btn_editswitch_click
icon ic_link_gray      32 32 ic_link_gray_normal      ic_link_gray_click
icon img_none          24 24 img_none
icon msg_close         24 24 msg_close_normal

for size in 64 128; do
    rsvg-convert -w "$size" -h "$size" -o "$workbench_icon-$size.png" "$workbench_icon.svg"
done
