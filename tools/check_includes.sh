#!/usr/bin/env bash
# Checks that every include line points the way the folders may: down, never up; that no two rooms
# of a folder (a header with its source) need each other; and that Qt, X and the sound libraries
# stay where they are wrapped. Prints each line and each circle that does not; exits 1 if there is
# one.
# usage: check_includes.sh [root of the tree]
set -euo pipefail
cd "${1:-$(dirname "$0")/..}"

# folder | what its files may include of ours, as an extended regular expression
rules='
platform          | ^platform/[a-z_0-9]+\.h$
platform/headless | ^platform/([a-z_0-9]+\.h|headless/.*)$
platform/parts    | ^platform/([a-z_0-9]+\.h|parts/.*)$
platform/desktop  | ^platform/([a-z_0-9]+\.h|(parts|desktop)/.*)$
toolkit           | ^toolkit/[a-z]+/[a-z_0-9]+\.h$
toolkit/core      | ^(platform|toolkit/core)/[a-z_0-9]+\.h$
toolkit/events    | ^(platform|toolkit/(core|events))/[a-z_0-9]+\.h$
toolkit/font      | ^(platform|toolkit/(core|font))/[a-z_0-9]+\.h$
toolkit/window    | ^(platform|toolkit/(core|font|window))/[a-z_0-9]+\.h$
toolkit/text      | ^(platform|toolkit/(core|events|font|window|text))/[a-z_0-9]+\.h$
toolkit/graphics  | ^(platform|toolkit/(core|events|font|window|text|graphics))/[a-z_0-9]+\.h$
toolkit/input     | ^(platform|toolkit/(core|events|font|window|text|graphics|input))/[a-z_0-9]+\.h$
toolkit/program   | ^(platform|toolkit/(core|events|font|window|text|graphics|input|program))/[a-z_0-9]+\.h$
toolkit/start     | ^(platform|toolkit/[a-z]+)/[a-z_0-9]+\.h$
game              | ^(game/.*|toolkit/toolkit\.h|korvandi\.h)$
examples          | ^korvandi\.h$
app               | .
'

failed=0
complain() {
    echo "$1"
    failed=1
}

while IFS='|' read -r folder allowed; do
    folder=${folder// /}
    allowed=${allowed# }
    [ -n "$folder" ] || continue
    depth=()
    case $folder in platform | toolkit) depth=(-maxdepth 1) ;; esac
    while IFS= read -r file; do
        while IFS= read -r name; do
            [[ $name =~ $allowed ]] || complain "$file: may not include \"$name\""
        done < <(sed -n 's/^#include "\(.*\)"$/\1/p' "$file")
    done < <(find "$folder" "${depth[@]}" -name '*.h' -o "${depth[@]}" -name '*.cpp')
done <<< "$rules"

# A folder without a row would be checked by nobody.
while IFS= read -r folder; do
    grep -q "^$folder  *|" <<< "$rules" || complain "$folder: has no rule"
done < <(find platform toolkit -mindepth 1 -type d)

# Rooms of a folder that need each other all the same: the first may include the second.
pairs='platform/desktop/drawing_area platform/desktop/view_widget'

# Which room includes which of its own folder, two names a line.
neighbours() {
    local file room
    while IFS= read -r file; do
        room=${file%.*}
        sed -n "s|^#include \"\(${room%/*}/[a-z_0-9]*\)\.h\"$|$room \1|p" "$file"
    done < <(find platform toolkit -name '*.h' -o -name '*.cpp')
}

# tsort names the rooms of each circle that it finds.
while IFS= read -r circle; do
    complain "$circle: include each other in a circle"
done < <(neighbours | awk '$1 != $2' | grep -vxF "$pairs" | tsort 2>&1 > /dev/null |
    awk '/loop:$/ { if (rooms) print rooms; rooms = ""; next } { rooms = rooms $2 " " }
        END { if (rooms) print rooms }' | sed 's/ $//')

# The toolkit knows the seam, not what implements it.
while IFS= read -r line; do
    complain "$line: the toolkit may not know an implementation of the platform"
done < <(grep -rnE '^#include "platform/(parts|desktop|headless)/' toolkit game || true)

# What the compiler itself brings along to name a processor's instructions.
compiler_headers='cpuid\.h|[a-z]+intrin\.h'

# Foreign headers: the standard library has no capital letter, no slash and no ending.
while IFS= read -r line; do
    complain "$line: only platform/desktop and tools may use this header"
done < <(grep -rnE '^#include <(Q[A-Z]|xcb|X11|ft2|png)' app game platform toolkit |
    grep -v '^platform/desktop/' || true)
while IFS= read -r line; do
    complain "$line: only platform/parts may use this header"
done < <(grep -rnE '^#include <(AL/|sndfile)' app game platform toolkit |
    grep -v '^platform/parts/' || true)
while IFS= read -r line; do
    complain "$line: the toolkit and the game use the standard library alone"
done < <(grep -rnE '^#include <[^>]*[./A-Z]' toolkit game |
    grep -vE "<($compiler_headers)>" || true)

while IFS= read -r file; do
    [ "$(grep -vc '^#include "\|^#pragma once$\|^$' "$file")" = 0 ] ||
        complain "$file: holds more than include lines"
done < <(echo toolkit/toolkit.h)

exit "$failed"
