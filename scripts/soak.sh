#!/bin/sh
# Runs the drivers of the reliability tests ten times longer than scripts/test.sh does; takes hours.
set -eu

cd "$(dirname "$0")/.."
scripts/setup.sh test
for preset in asan release; do
    scripts/build.sh "$preset"
done

# The environment of the entries in ctest sets the usual counts: the programs are run by hand here.
export QT_QPA_PLATFORM=offscreen LC_ALL=C.UTF-8 QTEST_FUNCTION_TIMEOUT=2000000000
export ASAN_OPTIONS=detect_leaks=1:strict_string_checks=1:detect_stack_use_after_return=1
export LSAN_OPTIONS="suppressions=$PWD/build/asan/tests/lsan.supp:print_suppressions=0"
export UBSAN_OPTIONS=print_stacktrace=1
export RANDOM_RUNS=2000 SHOW_CYCLES=20000 ADD_CYCLES=50000

run() {
    echo "soak: $1"
    "build/$1" >build/soak.log 2>&1 || {
        grep -aA10 'FAIL!' build/soak.log >&2 || tail -n 60 build/soak.log >&2
        exit 1
    }
}
# Nothing of these is random: again and again under other loads and addresses.
for _ in 1 2 3 4 5 6 7 8 9 10; do
    run asan/bin/tst_faults
done
run asan/bin/tst_random_use
run release/bin/tst_long_sessions
scripts/fuzz.sh 300
