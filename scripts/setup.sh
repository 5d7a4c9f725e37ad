#!/bin/sh
# Installs what is missing for a purpose: setup.sh run | test | bench | board. Only then does it need root and the network.
set -eu

build='g++ cmake ninja-build qtbase5-dev qtdeclarative5-dev qtquickcontrols2-5-dev
       qttools5-dev qttools5-dev-tools'
run='libqt5sql5-sqlite qml-module-qtquick2 qml-module-qtquick-controls2 qml-module-qtquick-templates2
     qml-module-qtquick-window2 qttranslations5-l10n fonts-dejavu-core fonts-wqy-microhei'
test='clang clang-format clang-tidy libclang-rt-14-dev libbenchmark-dev valgrind binutils xvfb xauth xdotool
      openbox shellcheck strace'
bench='libbenchmark-dev valgrind binutils'
# The board's libraries stand beside those of this machine; its compiler and tools run on this machine.
board='g++-aarch64-linux-gnu qemu-user-static debootstrap dpkg-dev file
       qtbase5-dev:arm64 qtdeclarative5-dev:arm64 qtquickcontrols2-5-dev:arm64 qttools5-dev:arm64
       libqt5sql5-sqlite:arm64 qml-module-qtquick2:arm64 qml-module-qtquick-controls2:arm64
       qml-module-qtquick-templates2:arm64 qml-module-qtquick-window2:arm64'

case "${1:-}" in
    run) packages="$build $run" ;;
    test) packages="$build $run $test" ;;
    bench) packages="$build $run $bench" ;;
    board) packages="$build $run $test $board" ;;
    *)
        echo "usage: setup.sh run | test | bench | board" >&2
        exit 2
        ;;
esac

missing=
for package in $packages; do
    case "$(dpkg-query -W -f '${Status}' "$package" 2>/dev/null)" in
        *' installed') ;;
        *) missing="$missing $package" ;;
    esac
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
