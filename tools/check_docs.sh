#!/usr/bin/env bash
# Checks that what the documents name is there: files and folders, make targets and their variables,
# CMake presets and targets, test filters, t_ names. Prints each name that is not, with its document;
# exits 1 if there is one.
# usage: check_docs.sh [root of the tree]
set -euo pipefail
cd "${1:-$(dirname "$0")/..}"

invented='t_Ring'  # stands for an operation that a reader adds

failed=0
complain() {
    echo "$document: $1"
    failed=1
}

# What stands in `quotes`, in fenced blocks and in indented lines, without the explanation that two
# blanks or more set apart there; one piece per line.
code() {
    awk '/^```/ { fenced = !fenced; next }
         fenced { print; next }
         /^    / { sub(/^ +/, ""); sub(/  +.*/, ""); print; next }
         { while (match($0, /`[^`]*`/)) {
               print substr($0, RSTART + 1, RLENGTH - 2); $0 = substr($0, RSTART + RLENGTH) } }' \
        "$document"
}

presets() {
    sed -n '/"configurePresets"/,/"buildPresets"/{/"hidden"/d
        s/^ *"name": "\([a-z0-9]*\)",$/\1/p}' CMakePresets.json | grep -vx base
}

tests() {
    cat tests/*/*_test.cpp | tr '\n' ' ' |
        grep -oE '\bTEST(_F|_P)?\( *[A-Za-z0-9]+, *[A-Za-z0-9]+\)|TYPED_TEST\([A-Za-z0-9, ]+\)' |
        sed -E 's/^[A-Z_]+\( *([A-Za-z0-9]+), *([A-Za-z0-9]+)\)/\1.\2/'
    grep -hroE 'add_test\(NAME [a-z_]+' --include=CMakeLists.txt . | sed 's/.* //'
}

check_paths() {
    # A path that begins inside the toolkit means that one.
    grep -oE '[A-Za-z_.*-]+(/[A-Za-z_.*-]+)+/?|\b[a-zA-Z_]+\.(md|h|cpp|sh|txt)\b|`[a-z_]+/`' \
        "$document" | tr -d '`' | sort -u | while IFS= read -r path; do
        case $path in build/* | */nproc | hallo.cpp) continue ;; esac
        [[ $path =~ \.[a-z]+$ || $path =~ /$ || $path =~ ^(app|game|platform|toolkit|tests|tools)/ ]] ||
            continue
        for place in . toolkit "$(dirname "$document")"; do
            compgen -G "$place/${path%/}" > /dev/null && continue 2
        done
        echo "$path"
    done
}

check_document() {
    while IFS= read -r path; do complain "no such file: $path"; done < <(check_paths)

    while IFS= read -r target; do
        grep -qE "^([a-z]+ )*$target( [a-z]+)*:" Makefile || complain "no such make target: $target"
    done < <(code | grep -oE '^make( [a-z]+)+' | cut -d ' ' -f 2- | tr ' ' '\n')

    while IFS= read -r variable; do
        grep -qF "(${variable%=}" Makefile || grep -qF "(or \$(${variable%=})" Makefile ||
            complain "no such make variable: ${variable%=}"
    done < <(code | grep -oE '\b[A-Z]+=' | sort -u)

    while IFS= read -r preset; do
        presets | grep -qx "$preset" || complain "no such preset: $preset"
    done < <({ code | grep -oE '(^|[^a-z])(--preset |build/)[a-z0-9]+' | grep -oE '[a-z0-9]+$'
               sed -n '/CMake presets/,/\.$/p' "$document" | grep -oE '`[a-z0-9]+`' | tr -d '`'; })

    while IFS= read -r target; do
        grep -rqE "(add_(executable|library|custom_target)|add_tool|function)\($target\b" \
            --include=CMakeLists.txt --include='korvandi_*.cmake' . || complain "no such CMake target: $target"
    done < <(code | grep -oE '\bkorvandi_[a-z_]+' | sort -u)

    while IFS= read -r filter; do
        expression=^$(sed 's/\./\\./g; s/\*/.*/g' <<< "$filter")\$
        tests | grep -E "$expression" > /dev/null || complain "no such test: $filter"
    done < <(code | grep -oE "gtest_filter='?[A-Za-z0-9.*]+" | sed -E "s/.*='?//")

    while IFS= read -r expression; do
        tests | grep -E "$expression" > /dev/null || complain "no such test: $expression"
    done < <(code | grep -E '^ctest' | grep -oE "\-R '?[^ ']+" | sed -E "s/-R '?//")

    while IFS= read -r name; do
        [[ " $invented " == *" $name "* ]] || grep -rqw "$name" toolkit ||
            complain "no such name: $name"
    done < <(grep -oE '\bt_[A-Za-z]+' "$document" | sort -u)
}

for document in README.md CONTRIBUTING.md CHANGELOG.md docs/*.md; do
    check_document
done

# And every preset is told of.
document=README.md
while IFS= read -r preset; do
    grep -q "\`$preset\`" README.md || complain "does not name the preset $preset"
done < <(presets)
exit "$failed"
