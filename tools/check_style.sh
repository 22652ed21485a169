#!/usr/bin/env bash
# The style checks: clang-format, include directions, headers that compile alone, a build by clang
# with all warnings as errors, and clang-tidy. Exits 1 at the first one that fails.
set -euo pipefail
cd "$(dirname "$0")/.."

git ls-files '*.h' '*.cpp' | xargs clang-format-14 --dry-run --Werror
echo "clang-format: clean"
tools/check_includes.sh
echo "include directions: clean"
tools/check_headers.sh
echo "headers compile alone: clean"

cmake -S . -B build/clang -G Ninja -DCMAKE_BUILD_TYPE=Debug -DCMAKE_CXX_COMPILER=clang++-14 > /dev/null
cmake --build build/clang
echo "clang: no warnings"
git ls-files '*.cpp' | grep -v '^tools/' |
    xargs -P "$(nproc)" -n 4 clang-tidy-14 -p build/clang --quiet 2> /dev/null
echo "clang-tidy: clean"
