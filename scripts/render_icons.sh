#!/bin/sh
# Renders the drawings of the plug-in and of the workbench to the PNG files of the tree.
# A drawing carries its normal colour; its hover state is the same drawing in the accent colour.
set -eu

cd "$(dirname "$0")/.."
drawings=QIfModule/img_im/svg
images=QIfModule/img_im/ImageResource
workbench_icon=workbench/icons/if-workbench
accent='svg { color: rgb(231,105,0) }'
accent_sheet=$(mktemp)
trap 'rm -f "$accent_sheet"' EXIT
printf '%s\n' "$accent" >"$accent_sheet"

# check_png FILE WIDTH HEIGHT: fails unless FILE is a PNG of that size with 8-bit RGBA pixels.
check_png() {
    # 16 bytes of signature and chunk header, then width and height (big endian), bit depth, colour type.
    header=$(od -An -tx1 -N26 "$1" | tr -d ' \n')
    expected=$(printf '89504e470d0a1a0a0000000d49484452%08x%08x0806' "$2" "$3")
    if [ "$header" != "$expected" ]; then
        echo "$1: not a PNG of $2 x $3 with 8-bit RGBA pixels" >&2
        exit 1
    fi
}

# render DRAWING WIDTH HEIGHT FILE [OPTION...]
render() {
    drawing=$1 width=$2 height=$3 file=$4
    shift 4
    rsvg-convert --format png --width "$width" --height "$height" "$@" --output "$file" "$drawing"
    check_png "$file" "$width" "$height"
}

# icon NAME WIDTH HEIGHT NORMAL [HOVER]: names of the images without folder and suffix.
icon() {
    render "$drawings/$1.svg" "$2" "$3" "$images/$4.png"
    if [ $# -gt 4 ]; then
        render "$drawings/$1.svg" "$2" "$3" "$images/$5.png" --stylesheet "$accent_sheet"
    fi
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
    render "$workbench_icon.svg" "$size" "$size" "$workbench_icon-$size.png"
done
