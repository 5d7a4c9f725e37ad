#!/bin/sh
# Fuzzes each reader of outside bytes, from the corpus in the tree: fuzz.sh [SECONDS], 30 by default.
# What fails is kept in build/fuzz/found.
set -eu

cd "$(dirname "$0")/.."
scripts/setup.sh test check
scripts/build.sh fuzz
mkdir -p build/fuzz/found
corpora=$(mktemp -d)
trap 'rm -rf "$corpora"' EXIT
export QT_QPA_PLATFORM=offscreen LC_ALL=C.UTF-8
export LSAN_OPTIONS="suppressions=$PWD/tests/lsan.supp:print_suppressions=0"
for subject in conditions flow csv; do
    mkdir "$corpora/$subject"
    # Qt's JSON parser leaks on a file that breaks off; the sanitizer also checks at exit.
    leaks=1
    [ "$subject" != flow ] || leaks=0
    log=build/fuzz/$subject.log
    ASAN_OPTIONS=detect_leaks=$leaks "build/fuzz/bin/fuzz_$subject" -max_total_time="${1:-30}" -max_len=4096 \
        -timeout=10 -rss_limit_mb=4096 -detect_leaks=$leaks -close_fd_mask=1 \
        -artifact_prefix="build/fuzz/found/$subject-" "$corpora/$subject" "tests/fuzz/corpus/$subject" >"$log" 2>&1 ||
        { tail -n 40 "$log" >&2; echo "fuzz.sh: $subject failed" >&2; exit 1; }
    echo "fuzz $subject: $(sed -n 's/^Done \(.*\)/\1/p' "$log")"
done
