#!/bin/sh
# Fuzzes each reader of outside bytes, from the corpus in the tree: fuzz.sh [SECONDS], 30 by default.
# What fails is kept in build/fuzz/found.
set -eu

cd "$(dirname "$0")/.."
seconds=${1:-30}
scripts/build.sh fuzz
found=$PWD/build/fuzz/found
corpora=$(mktemp -d)
trap 'rm -rf "$corpora"' EXIT
mkdir -p "$found"
export QT_QPA_PLATFORM=offscreen LC_ALL=C.UTF-8

fuzz() {
    subject=$1
    mkdir "$corpora/$subject"
    # Qt's parser of flow files leaks where a file breaks off. The fuzzer's own switch spares it between the runs
    # only; the sanitizer also looks at the exit.
    leaks=1
    [ "$subject" != flow ] || leaks=0
    ASAN_OPTIONS=detect_leaks=$leaks \
        LSAN_OPTIONS=suppressions=$PWD/tests/lsan.supp:print_suppressions=0 \
        "build/fuzz/bin/fuzz_$subject" -max_total_time="$seconds" -max_len=4096 -timeout=10 -rss_limit_mb=4096 \
        -detect_leaks="$leaks" -close_fd_mask=1 -artifact_prefix="$found/$subject-" \
        "$corpora/$subject" "tests/fuzz/corpus/$subject" >"build/fuzz/$subject.log" 2>&1 ||
        {
            tail -n 40 "build/fuzz/$subject.log" >&2
            echo "fuzz.sh: $subject failed" >&2
            return 1
        }
    echo "fuzz $subject: $(sed -n 's/^Done \(.*\)/\1/p' "build/fuzz/$subject.log")"
}

# Two at a time.
fuzz conditions &
first=$!
fuzz menu
wait "$first"
fuzz flow &
first=$!
fuzz csv
wait "$first"
fuzz panel
