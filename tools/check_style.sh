#!/usr/bin/env bash
# The style checks: clang-format, include directions, what the documents name, headers that compile
# alone. Exits 1 at the first one that fails.
set -euo pipefail
cd "$(dirname "$0")/.."

git ls-files '*.h' '*.cpp' | xargs clang-format-14 --dry-run --Werror
echo "clang-format: clean"
tools/check_includes.sh
echo "include directions: clean"
tools/check_docs.sh
echo "documents: clean"
tools/check_headers.sh
echo "headers compile alone: clean"
