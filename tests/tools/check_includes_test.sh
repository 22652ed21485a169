#!/usr/bin/env bash
# Plants lines that point the wrong way into a copy of the tree and expects tools/check_includes.sh
# to complain of each of them. Exits 1 if one goes unnoticed, or if the copy itself is not clean.
set -euo pipefail
cd "$(dirname "$0")/../.."

copy=$(mktemp -d)
trap 'rm -rf "$copy"' EXIT
cp -r app examples game korvandi.h platform toolkit "$copy"
tools/check_includes.sh "$copy"

# file that the line is added to | what the complaint begins with | line
planted='
toolkit/core/planted.h       | toolkit/core/planted.h:       | #include "toolkit/events/event.h"
toolkit/core/planted.cpp     | toolkit/core/planted.cpp:     | #include "toolkit/toolkit.h"
toolkit/events/planted.cpp   | toolkit/events/planted.cpp:   | #include "toolkit/font/font.h"
toolkit/font/planted.cpp     | toolkit/font/planted.cpp:     | #include "toolkit/events/event.h"
toolkit/window/planted.cpp   | toolkit/window/planted.cpp:   | #include "toolkit/events/event.h"
toolkit/window/planted.h     | toolkit/window/planted.h:     | #include "toolkit/text/area.h"
toolkit/text/planted.cpp     | toolkit/text/planted.cpp:     | #include "toolkit/graphics/frame.h"
toolkit/graphics/planted.cpp | toolkit/graphics/planted.cpp: | #include "toolkit/input/mouse.h"
toolkit/input/planted.h      | toolkit/input/planted.h:      | #include "toolkit/start/quit.h"
toolkit/start/planted.cpp    | toolkit/start/planted.cpp:    | #include "app/app_delegate.h"
toolkit/start/planted.h      | toolkit/start/planted.h:      | #include "platform/desktop/desk.h"
toolkit/start/library.cpp    | toolkit/start/library.cpp:    | #include <QWidget>
toolkit/roof/planted.cpp     | toolkit/roof:                 | #include "toolkit/core/color.h"
toolkit/toolkit.h            | toolkit/toolkit.h:            | constexpr int kPlanted = 1;
platform/planted.h           | platform/planted.h:           | #include "toolkit/core/color.h"
platform/parts/planted.h     | platform/parts/planted.h:     | #include "platform/desktop/desk.h"
platform/parts/library.cpp   | platform/parts/library.cpp:   | #include <QWidget>
platform/desktop/library.cpp | platform/desktop/library.cpp: | #include <sndfile.h>
platform/headless/planted.h  | platform/headless/planted.h:  | #include "platform/desktop/desk.h"
platform/desktop/chrome.cpp  | platform/desktop/.* circle    | #include "platform/desktop/host_window.h"
toolkit/window/window.h      | toolkit/window/.* circle      | #include "toolkit/window/blocks.h"
game/planted.cpp             | game/planted.cpp:             | #include "toolkit/core/color.h"
examples/planted.cpp         | examples/planted.cpp:         | #include "toolkit/core/color.h"
'

rows() {
    sed '/^$/d; s/ *| */|/g' <<< "$planted"
}

while IFS='|' read -r file _ line; do
    mkdir -p "$(dirname "$copy/$file")"
    echo "$line" >> "$copy/$file"
done < <(rows)

failed=0
status=0
complaints=$(tools/check_includes.sh "$copy") || status=$?
[ "$status" = 1 ] || { echo "planted lines: exit status $status"; failed=1; }
while IFS='|' read -r file complaint line; do
    grep -q "^$complaint" <<< "$complaints" || { echo "$file: not noticed: $line"; failed=1; }
done < <(rows)
exit "$failed"
