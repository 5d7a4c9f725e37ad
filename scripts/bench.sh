#!/bin/sh
# Prints each figure and its floor: the same work done by plain Qt code. Fails when a bound
# is exceeded. Takes about a minute, once built; the machine must be idle.
set -eu

cd "$(dirname "$0")/.."
scripts/setup.sh bench
scripts/build.sh release bm_ratios run_floor if-workbench
export QT_QPA_PLATFORM=offscreen LC_ALL=C.UTF-8
outcome=0
build/release/bin/bm_ratios || outcome=1
python3 bench/run.py || outcome=1
exit "$outcome"
