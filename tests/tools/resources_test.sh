#!/usr/bin/env bash
# Makes the fonts, the sounds, the table of upper-case letters, the font chart and the icons anew and
# compares them with those of the tree. Pictures are compared by their pixels: how one is packed is
# its library's choice. Prints what differs; exits 1 then.
# usage: resources_test.sh <folder of the makers> <folder of the outline fonts> <UnicodeData.txt>
set -euo pipefail
makers=$(realpath "$1")
cd "$(dirname "$0")/../.."

made=$(mktemp -d)
trap 'rm -rf "$made"' EXIT
"$makers/make_sounds" "$made"
"$makers/make_fonts" "$2" "$made"
"$makers/make_case_table" "$3" "$made/lower_case.h"
"$makers/make_font_chart" "$made" "$made/font-chart.png"
"$makers/make_icon" "$made"

failed=0
for file in resources/*.font resources/*.aif toolkit/core/lower_case.h packaging/icons/korvandi.svg; do
    cmp "$file" "$made/$(basename "$file")" || failed=1
done
pixels() {
    identify -format '%wx%h\n' "$1"
    convert "$1" rgba:-
}
for picture in docs/font-chart.png packaging/icons/*.png; do
    cmp <(pixels "$picture") <(pixels "$made/$(basename "$picture")") || failed=1
done
exit "$failed"
