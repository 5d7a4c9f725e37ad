#!/bin/sh
# Checks what a program can check of the sources: format, white space, scripts, clang-tidy. Needs a built
# asan preset for its compile commands.
set -eu

cd "$(dirname "$0")/.."
git ls-files '*.cpp' '*.h' | xargs clang-format --dry-run --Werror
git -c core.whitespace=cr-at-eol diff --check "$(git hash-object -t tree /dev/null)" HEAD
shellcheck scripts/*.sh tests/*/*.sh .ci/run
# What is built apart has headers of its own.
git ls-files '*.cpp' ':!tests/*/*' | xargs -P "$(nproc)" -n 4 clang-tidy -p build/asan --quiet >build/tidy.log 2>&1 ||
    { grep -vE '^[0-9]+ warnings? generated' build/tidy.log >&2; exit 1; }
