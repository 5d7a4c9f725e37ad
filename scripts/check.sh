#!/bin/sh
# Checks the sources: format, white space, scripts, clang-tidy.
set -eu

cd "$(dirname "$0")/.."
scripts/setup.sh test check
git ls-files '*.cpp' '*.h' | xargs clang-format --dry-run --Werror
git -c core.whitespace=cr-at-eol diff --check "$(git hash-object -t tree /dev/null)" HEAD
shellcheck scripts/*.sh tests/*/*.sh .ci/run

# The compile commands are those of the sanitized build.
scripts/build.sh asan
tidy() {
    checks=$1
    shift
    # QSKIP has an optional argument.
    git ls-files "$@" | xargs -P "$(nproc)" -n 2 clang-tidy -p build/asan --quiet "--checks=$checks" \
        --extra-arg=-Wno-gnu-zero-variadic-macro-arguments >build/tidy.log 2>&1 ||
        { grep -vE '^[0-9]+ warnings? generated' build/tidy.log >&2; exit 1; }
}
tidy '' '*.cpp' ':!tests' ':!bench'
# For tests the sanitizers replace the analyzer.
tidy '-clang-analyzer-*' 'tests/*.cpp' ':!tests/installed'
