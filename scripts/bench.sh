#!/bin/sh
# Prints each figure beside its floor: what the same costs with nothing of the project in it.
#   bench.sh            times, counted instructions, and what the library weighs
#   bench.sh --quick    times only
set -eu

cd "$(dirname "$0")/.."
[ $# -eq 0 ] || [ "$*" = --quick ] || { echo "usage: bench.sh [--quick]" >&2; exit 2; }
scripts/setup.sh bench
scripts/build.sh release
export QT_QPA_PLATFORM=offscreen LC_ALL=C.UTF-8
ratios=build/release/bin/bm_ratios
outcome=0
"$ratios" || outcome=1
build/release/bin/bm_command_tap || outcome=1
[ $# -eq 0 ] || exit "$outcome"

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
valgrind -q --tool=callgrind --collect-atstart=no --callgrind-out-file="$work/%p" "$ratios" --count
echo
echo "Instructions in millions                floor      subject    ratio"
find "$work" -name '*.*' -type f | sort -V | xargs cat | awk '
    /^desc: Trigger: Client Request: / { sub(/^desc: Trigger: Client Request: /, ""); name = $0 }
    /^summary: / {
        if (sub(/:floor$/, "", name)) { floor[name] = $2; order[++count] = name } else subject[name] = $2
    }
    END {
        for (i = 1; i <= count; ++i) {
            name = order[i]
            printf "%-30s %14.3f %12.3f %8.3f\n", name, floor[name] / 1e6, subject[name] / 1e6,
                subject[name] / floor[name]
        }
    }'

echo
echo "Library                       bytes stripped  functions shown"
for library in ZelCommon QZelCommonControl QIfModule; do
    file=build/release/lib/lib$library.so
    strip -o "$work/stripped" "$file"
    printf '%-30s %13d %16d\n' "$library" "$(stat -c %s "$work/stripped")" \
        "$(nm -D --defined-only "$file" | grep -c ' [TWi] ')"
done
# Twice: the first time fills the file cache.
for time in 1 2; do
    build/release/bin/bm_load libQt5Widgets.so.5 libQt5QuickWidgets.so.5 build/release/lib/libZelCommon.so \
        build/release/lib/libQZelCommonControl.so build/release/lib/libQIfModule.so >"$work/load$time"
done
echo
cat "$work/load2"
exit "$outcome"
