#!/usr/bin/env bash
# Plants names of what is not there into a copy of the documents and expects tools/check_docs.sh to
# complain of each of them. Exits 1 if one goes unnoticed, or if the copy itself is not clean.
set -euo pipefail
cd "$(dirname "$0")/../.."

copy=$(mktemp -d)
trap 'rm -rf "$copy"' EXIT
cp -r ./*.md Makefile CMakeLists.txt CMakePresets.json LICENSE app bench cmake docs fuzz game korvandi*.h \
    platform resources tests toolkit tools "$copy"
tools/check_docs.sh "$copy"

# document | what the complaint ends with | line
planted='
README.md            | file: toolkit/text/planted.h    | `toolkit/text/planted.h`
README.md            | file: planted/                  | `planted/`
docs/architecture.md | file: text/planted.cpp          | drawn here (text/planted.cpp)
README.md            | make target: plant              | `make plant`
CONTRIBUTING.md      | make target: plant              |     make check plant   checks
README.md            | make variable: PLANTS           | `make soak`; `PLANTS=5`
CONTRIBUTING.md      | preset: planted                 |     cmake --preset planted
README.md            | preset: greenhouse              | The CMake presets are `release` and `greenhouse`.
README.md            | CMake target: korvandi_planted  | Link `korvandi_planted`.
CONTRIBUTING.md      | test: Planted.*                 |     build/release/bin/korvandi_tests --gtest_filter='"'Planted.*'"'
CONTRIBUTING.md      | test: ^Planted                  |     ctest --preset release -R '"'^Planted'"'
CHANGELOG.md         | name: t_Planted                 | `t_Planted` grows.
'

rows() {
    sed '/^$/d; s/ *| /|/; s/ *| /|/' <<< "$planted"
}

while IFS='|' read -r document _ line; do
    printf '\n%s\n' "$line" >> "$copy/$document"
done < <(rows)
sed -i 's/"name": "headless",/"name": "untold",/' "$copy/CMakePresets.json"

failed=0
status=0
complaints=$(tools/check_docs.sh "$copy") || status=$?
[ "$status" = 1 ] || { echo "planted lines: exit status $status"; failed=1; }
while IFS='|' read -r document complaint line; do
    grep -qxF "$document: no such $complaint" <<< "$complaints" ||
        { echo "$document: not noticed: $line"; failed=1; }
done < <(rows)
grep -qxF 'README.md: does not name the preset untold' <<< "$complaints" ||
    { echo "README.md: not noticed: a preset that it does not name"; failed=1; }
exit "$failed"
