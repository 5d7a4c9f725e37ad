#!/bin/sh
# Tries the packages in build/packages: a workbench from them has to write a picture, those for amd64
# installed into a system of its own that holds nothing else, those for arm64 unpacked, under the emulator.
# Needs root and the network.
set -eu

cd "$(dirname "$0")/.."
packages=$PWD/build/packages
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
export LC_ALL=C.UTF-8 DEBIAN_FRONTEND=noninteractive

fail() {
    echo "$*" >&2
    exit 1
}

# check_picture FILE LOG: fails unless it is a PNG of the window, with the panel's plug-in at work.
check_picture() {
    { file "$1" | grep -q 'PNG image data, 1400 x 860' && grep -q 'QueryIfModuleInfo IFText' "$2"; } ||
        { cat "$2" >&2; fail "no picture from the packages"; }
}

for architecture in amd64 arm64; do
    root=$work/$architecture
    for package in qifmodule-platform qifmodule if-workbench qifmodule-dev; do
        set -- "$packages/${package}"_*_"$architecture.deb"
        { [ $# -eq 1 ] && [ -s "$1" ]; } || fail "$package: not one package for $architecture"
        dpkg-deb -x "$1" "$root.files"
    done
    find "$root.files" -type f \( -name '*.so' -o -path '*/bin/*' \) -exec readelf -d {} + >"$root.dynamic"
    ! grep -E 'R(UN)?PATH' "$root.dynamic" || fail "the packages look for libraries in folders of their own"
    grep -q "NEEDED.*libZelCommon" "$root.dynamic" || fail "nothing links the platform"
done

apt-get install -qq -s --no-install-recommends "$packages"/*_arm64.deb >"$work/arm64.log" 2>&1 ||
    { cat "$work/arm64.log" >&2; fail "packages for arm64 can't be installed"; }
HOME=$work QT_QPA_PLATFORM=offscreen qemu-aarch64-static \
    -E LD_LIBRARY_PATH="$work/arm64.files/usr/lib/aarch64-linux-gnu" \
    "$work/arm64.files/usr/bin/if-workbench" --screenshot "$work/arm64.png" 2>"$work/arm64.log" || true
check_picture "$work/arm64.png" "$work/arm64.log"

root=$work/amd64
release=$(sed -n 's/^VERSION_CODENAME=//p' /etc/os-release)
debootstrap --variant=minbase "$release" "$root" >"$work/amd64.log" 2>&1 ||
    { tail -n 20 "$work/amd64.log" >&2; fail "no clean system"; }
cp "$packages"/*_amd64.deb "$root/tmp"
rm "$root"/tmp/qifmodule-dev_*
chroot "$root" sh -c 'apt-get update -qq && apt-get install -qq -y --no-install-recommends /tmp/*.deb' \
    >"$work/amd64.log" 2>&1 || { tail -n 20 "$work/amd64.log" >&2; fail "packages can't be installed"; }
chroot "$root" env HOME=/tmp if-workbench --screenshot /tmp/amd64.png 2>"$work/amd64.log" || true
check_picture "$root/tmp/amd64.png" "$work/amd64.log"

# The slider's scene is read when it first opens.
git ls-files '*.qml' | xargs sed -n 's/^import \([A-Z][A-Za-z.]*\) \([0-9]*\).*/\1.\2/p' | tr . / | sort -u |
    while read -r module; do
        folder=${module%/*}.${module##*/}
        [ -s "$(echo "$root"/usr/lib/*/qt5/qml/"$folder"/qmldir)" ] || fail "no QML module $folder"
    done
