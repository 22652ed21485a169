#!/usr/bin/env bash
# Builds the fuzz targets and runs one of them, or all, for a number of seconds each. What is found
# on the way is kept below build/fuzz/corpus; a failing input is left in build/fuzz, and its name is
# printed. RUNS ends a target after so many executions.
# usage: fuzz.sh seconds [target]
set -euo pipefail
cd "$(dirname "$0")/.."

seconds=$1
targets=${2:-$(ls fuzz/corpus)}
cmake --preset fuzz > /dev/null
for target in $targets; do
    cmake --build --preset fuzz --target "fuzz_$target"
    found=build/fuzz/corpus/$target
    mkdir -p "$found"
    dictionary=()
    [ ! -f "fuzz/dictionaries/$target.txt" ] || dictionary=("-dict=fuzz/dictionaries/$target.txt")
    ASAN_OPTIONS=malloc_context_size=4 "build/fuzz/bin/fuzz_$target" \
        "$found" "fuzz/corpus/$target" -max_total_time="$seconds" \
        -runs="${RUNS:--1}" -max_len="${MAX_LEN:-512}" -timeout=10 -rss_limit_mb=1024 \
        -print_final_stats=1 -artifact_prefix=build/fuzz/ "${dictionary[@]}" 2>&1 |
        grep -vE '^#[0-9]+[[:space:]]+(NEW|REDUCE|RELOAD|pulse)'
done
