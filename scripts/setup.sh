#!/bin/sh
# Installs what is missing for one or more purposes: setup.sh run | test | bench | check | board | pictures ...
# Needs root and the network only when something is missing.
set -eu

run='g++ cmake ninja-build qtbase5-dev qtdeclarative5-dev qttools5-dev qttools5-dev-tools libqt5sql5-sqlite
     qml-module-qtquick2 qttranslations5-l10n fonts-dejavu-core fonts-wqy-microhei'
test="$run strace xvfb xauth xdotool openbox"
bench="$run mawk python3"
pictures="$test imagemagick librsvg2-bin"
check="$run valgrind clang clang-format clang-tidy libclang-rt-14-dev shellcheck"
# The board's libraries are installed in addition to those of this machine; its compiler and tools run on this machine.
board='g++-aarch64-linux-gnu qemu-user-static debootstrap dpkg-dev file
       qtbase5-dev:arm64 qtdeclarative5-dev:arm64 qttools5-dev:arm64 libqt5sql5-sqlite:arm64
       qml-module-qtquick2:arm64'

packages=
for purpose in "$@"; do
    case $purpose in
        run) packages="$packages $run" ;;
        test) packages="$packages $test" ;;
        bench) packages="$packages $bench" ;;
        check) packages="$packages $check" ;;
        board) packages="$packages $board" ;;
        pictures) packages="$packages $pictures" ;;
        *) echo "usage: setup.sh run | test | bench | check | board | pictures ..." >&2; exit 2 ;;
    esac
done

missing=
for package in $packages; do
    dpkg-query -W -f '${Status}' "$package" 2>/dev/null | grep -q ' installed$' || missing="$missing $package"
done
[ -n "$missing" ] || exit 0

echo "installing:$missing" >&2
export DEBIAN_FRONTEND=noninteractive
case "$missing" in
    *:arm64*) dpkg --add-architecture arm64 ;;
esac
apt-get update -qq
# shellcheck disable=SC2086 # a list of names
apt-get install -qq -y --no-install-recommends $missing >/dev/null
