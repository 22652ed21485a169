#!/usr/bin/env bash
# Builds with counters, runs all tests and prints line and branch coverage, file by file. Branches
# that only an exception takes, and those of comparisons that the compiler writes, are left out.
# usage: coverage.sh jobs
set -euo pipefail
cd "$(dirname "$0")/.."

cmake --preset coverage > /dev/null
cmake --build --preset coverage -j "$1"
find build/coverage -name '*.gcda' -delete
status=0
ctest --preset coverage -j "$1" > build/coverage/tests.log || status=$?
tail -n 12 build/coverage/tests.log
report() {
    gcovr --root . --object-directory build/coverage --filter "$1" --gcov-ignore-parse-errors \
        --exclude-throw-branches --exclude-unreachable-branches \
        --exclude-branches-by-pattern '.*operator==.*= default;.*' "${@:2}" build/coverage
}
for folder in toolkit/ game/ platform/ platform/parts/ platform/desktop/; do
    echo
    echo "== $folder lines"
    report "$folder"
    echo "== $folder branches"
    report "$folder" --branches
done
exit "$status"
