#!/bin/sh
# Brings the catalogues up to date with the texts of the sources.
#   update_translations.sh          writes them; an English text is its own English entry
#   update_translations.sh --check  writes nothing; fails where a text has no entry
set -eu

cd "$(dirname "$0")/.."
target=.
if [ "${1:-}" = --check ]; then
    target=$(mktemp -d)
    trap 'rm -rf "$target"' EXIT
    git ls-files '*.ts' | while read -r catalogue; do
        mkdir -p "$target/$(dirname "$catalogue")"
        cp "$catalogue" "$target/$catalogue"
    done
fi

# update SOURCE-LANGUAGE CATALOGUE LANGUAGES FOLDER...
update() {
    source_language=$1 catalogue=$2 languages=$3
    shift 3
    for language in $languages; do
        lupdate -silent -I . -I QIfModule -I platform -I workbench -disable-heuristic sametext -disable-heuristic similartext -disable-heuristic number -no-obsolete -locations none -no-recursive -extensions cpp,h,ui \
            -source-language "$source_language" -target-language "$language" \
            "$@" -ts "$target/${catalogue}_$language.ts"
    done
}

mkdir -p QIfModule/i18n platform/QZelCommonControl/i18n workbench/i18n
update zh_CN QIfModule/i18n/QIfModule en QIfModule
update en platform/QZelCommonControl/i18n/QZelCommonControl zh_CN platform/QZelCommonControl
update en workbench/i18n/if-workbench 'en zh_CN' workbench workbench/commands workbench/faults workbench/inspector workbench/run judgement platform/EmbeddedCore

for catalogue in workbench/i18n/if-workbench; do
    perl -0pi -e 's{(<source>)((?:(?!</?source>).)*)(</source>(?:(?!<source>).)*?)<translation type="unfinished"></translation>}{$1$2$3<translation>$2</translation>}gs' \
        "$target/${catalogue}_en.ts"
done

if grep -n -B4 'type="unfinished"' "$target"/*/i18n/*.ts "$target"/*/*/i18n/*.ts; then
    echo "texts without an entry, see above" >&2
    [ "$target" = . ] || exit 1
fi
if [ "$target" != . ]; then
    for catalogue in "$target"/*/i18n/*.ts "$target"/*/*/i18n/*.ts; do
        cmp "$catalogue" "${catalogue#"$target"/}"
    done
fi
