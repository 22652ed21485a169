#!/usr/bin/env bash
# Prints the tests that use more than one thread, as a regular expression for ctest -R.
set -euo pipefail
cd "$(dirname "$0")/.."

# A file that starts threads, or has the toolkit start some, uses one of these words.
words='std::(j?thread|async)|StartThread|startprocess|RunProgram|RunHeadless|HoldBackground = false|ServeUntil'
files=(tests/{app,core,events,font,game,graphics,input,platform,program,start,text,window}/*_test.cpp)
suites=$(grep -lE "$words" "${files[@]}" |
    xargs sed -nE 's/^TEST(_F)?\(([A-Za-z0-9_]+),.*/\2/p' | sort -u | paste -sd '|')
echo "^($suites)\\."
