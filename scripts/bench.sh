#!/bin/sh
# Prints each figure beside its floor: what the same costs with nothing of the project in it.
#   bench.sh            times and counted instructions; fails when a time exceeds its bound
#   bench.sh --quick    times only
set -eu

cd "$(dirname "$0")/.."
scripts/setup.sh bench
scripts/build.sh release bm_ratios run_floor if-workbench
export QT_QPA_PLATFORM=offscreen LC_ALL=C.UTF-8
outcome=0
build/release/bin/bm_ratios || outcome=1
python3 bench/run.py || outcome=1
[ "${1:-}" != --quick ] || exit "$outcome"

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
valgrind -q --tool=callgrind --collect-atstart=no --callgrind-out-file="$work/%p" build/release/bin/bm_ratios --count
echo "Instructions in millions             floor      subject    ratio"
find "$work" -name '*.*' -type f | sort -V | xargs cat | awk '
    /^desc: Trigger: Client Request: / { sub(/^desc: Trigger: Client Request: /, ""); name = $0 }
    /^summary: / && sub(/:floor$/, "", name) { floor = $2; next }
    /^summary: / { printf "%-30s %11.3f %12.3f %8.3f\n", name, floor / 1e6, $2 / 1e6, $2 / floor }'
exit "$outcome"
