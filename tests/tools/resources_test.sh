#!/usr/bin/env bash
# Makes the fonts, the sounds, the table of upper-case letters and the font chart anew and compares
# them with those of the tree. The chart is compared by its pixels: how a picture is packed is its
# library's choice. Prints what differs; exits 1 then.
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

failed=0
for file in resources/*.font resources/*.aif toolkit/core/lower_case.h; do
    cmp "$file" "$made/$(basename "$file")" || failed=1
done
pixels() {
    convert "$1" rgb:-
}
cmp <(pixels docs/font-chart.png) <(pixels "$made/font-chart.png") || failed=1
exit "$failed"
