#!/usr/bin/env bash
# Expects tests/support/globals.cpp to reset every global that a header of the toolkit declares.
# Exits 1 and names those that it leaves as a test made them.
# usage: globals_test.sh [root of the tree]
set -euo pipefail
cd "${1:-$(dirname "$0")/../..}"

# The tables and the memory are made anew, marks and all, by whoever needs them; the flags follow
# their queues.
others='t_FontIdentifier t_UpperCaseTable t_LowerCaseTable t_HexDigits t_HexValue t_Memory writeMarks
t_EventPending t_MouseEventPending t_MenuEventPending menuChoicePending'

globals=$(grep -rh '^extern ' toolkit --include='*.h' | sed 's/;.*//; s/.*[ &*]//')
[ "$(wc -l <<< "$globals")" -gt 30 ] || { echo "too few globals were found"; exit 1; }
failed=0
for name in $globals; do
    grep -qw "$name" tests/support/globals.cpp <(echo "$others") ||
        { echo "$name is not reset between tests"; failed=1; }
done
exit "$failed"
