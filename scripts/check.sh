#!/bin/sh
# Checks what a program can check of the sources: format, white space, scripts, clang-tidy. Needs the asan,
# release and fuzz presets built, for their compile commands.
set -eu

cd "$(dirname "$0")/.."
git ls-files '*.cpp' '*.h' | xargs clang-format --dry-run --Werror
git -c core.whitespace=cr-at-eol diff --check "$(git hash-object -t tree /dev/null)" HEAD
shellcheck scripts/*.sh tests/*/*.sh .ci/run
tidy() {
    preset=$1
    shift
    git ls-files "$@" | xargs -P "$(nproc)" -n 4 clang-tidy -p "build/$preset" --quiet >build/tidy.log 2>&1 ||
        {
            grep -vE '^[0-9]+ warnings? generated' build/tidy.log >&2
            exit 1
        }
}
# What is built apart has headers of its own.
tidy asan '*.cpp' ':!tests/*/*' ':!tests/tst_long_sessions.cpp'
tidy release tests/tst_long_sessions.cpp
tidy fuzz 'tests/fuzz/*.cpp'
