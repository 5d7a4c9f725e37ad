#!/bin/sh
# Brings the catalogues up to date with the texts of the sources; fails where a text has no translation.
#   update_translations.sh          writes the catalogues
#   update_translations.sh --check  writes nothing; fails also where a catalogue is not up to date
set -eu

cd "$(dirname "$0")/.."
written=$(mktemp -d)
trap 'rm -rf "$written"' EXIT
outcome=0

# update SOURCE-LANGUAGE LANGUAGE CATALOGUE FOLDER...
update() {
    source=$1 language=$2 catalogue=$3_$2.ts
    copy=$written/${catalogue##*/}
    shift 3
    cp "$catalogue" "$copy"
    lupdate -silent -I . -I QIfModule -I platform -I workbench -disable-heuristic sametext \
        -disable-heuristic similartext -disable-heuristic number -no-obsolete -locations none -no-recursive \
        -extensions cpp,h,ui -source-language "$source" -target-language "$language" "$@" -ts "$copy"
    ! grep -n -B4 'type="unfinished"' "$copy" || { echo "$catalogue: texts without a translation" >&2; outcome=1; }
    [ "$mode" = --check ] || cp "$copy" "$catalogue"
    cmp "$copy" "$catalogue" || outcome=1
}

mode=${1:-}
update zh_CN en QIfModule/i18n/QIfModule QIfModule
update en zh_CN platform/QZelCommonControl/i18n/QZelCommonControl platform/QZelCommonControl
update en zh_CN workbench/i18n/if-workbench workbench workbench/commands workbench/faults workbench/inspector \
    workbench/run judgement platform/EmbeddedCore
exit "$outcome"
