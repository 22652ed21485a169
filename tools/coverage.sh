#!/usr/bin/env bash
# Builds with counters, runs all tests and prints line and branch coverage, file by file. Branches
# that only an exception takes are left out.
# usage: coverage.sh jobs
set -euo pipefail
cd "$(dirname "$0")/.."

cmake --preset coverage > /dev/null
cmake --build --preset coverage -j "$1"
find build/coverage -name '*.gcda' -delete
ctest --preset coverage -j "$1" | tail -n 4
report() {
    gcovr --root . --object-directory build/coverage --filter "$1" --exclude-throw-branches --gcov-ignore-parse-errors \
        --exclude-unreachable-branches "${@:2}" build/coverage
}
for folder in toolkit/ game/ platform/ platform/desktop/; do
    echo
    echo "== $folder lines"
    report "$folder"
    echo "== $folder branches"
    report "$folder" --branches
done
