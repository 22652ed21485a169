#!/usr/bin/env bash
# Checks that every header compiles alone, but for those that need Qt. The compiler is $CXX, or c++.
set -euo pipefail
cd "$(dirname "$0")/.."

read -ra freetype < <(pkg-config --cflags freetype2)
failed=0
log=$(mktemp)
while IFS= read -r header; do
    "${CXX:-c++}" -std=c++20 -fsyntax-only -I. "${freetype[@]}" -x c++ "$header" 2> "$log" ||
        { echo "$header does not compile alone:"; head -3 "$log"; failed=1; }
done < <(find korvandi*.h app bench fuzz game platform toolkit tests tools -name '*.h' -not -path '*/desktop/*')
rm -f "$log"
exit "$failed"
