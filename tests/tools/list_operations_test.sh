#!/usr/bin/env bash
# Expects docs/operations.txt to be what tools/list_operations.sh makes of the headers. Then plants
# faults into copies of the tree and expects each of them to be noticed. Exits 1 if one is not.
set -euo pipefail
cd "$(dirname "$0")/../.."

copy=$(mktemp -d)
trap 'rm -rf "$copy"' EXIT
failed=0

# Whether the list is that of the tree below $1; tells what is not.
is_listed() {
    diff docs/operations.txt <(tools/list_operations.sh "$1" || echo "tools/list_operations.sh failed")
}

plant() {
    rm -rf "$copy/toolkit"
    cp -r toolkit "$copy"
    (cd "$copy" && eval "$1")
    ! is_listed "$copy" > "$copy/difference" 2>&1 || { echo "not noticed: $1"; failed=1; }
    grep -q "$2" "$copy/difference" || { echo "not told: $1"; cat "$copy/difference"; failed=1; }
}

is_listed . || { echo "docs/operations.txt is not what tools/list_operations.sh makes"; failed=1; }

# fault | what is told of it
plant 'sed -i "/^void t_ScrollUp(/d" toolkit/text/scroll.h' 't_ScrollUp is defined, but'
plant 'sed -i "/scroll\.h/d" toolkit/toolkit.h' 't_ScrollUp is defined, but'
plant 'echo "void t_Cr(std::uint8_t window);" >> toolkit/text/scroll.h' 't_Cr stands in two headers'
plant 'echo "[[nodiscard]] t_Font t_New();" >> toolkit/font/font.h' '> t_New  *toolkit/font/font.h'
plant 'mv toolkit/text/{lines,rules}.h; sed -i "s/lines\.h/rules.h/" toolkit/toolkit.h' \
    '> t_TextLine  *toolkit/text/rules.h'
exit "$failed"
