#!/usr/bin/env bash
# Lists the operations that toolkit/toolkit.h brings, each with the header that declares it, in the
# order of the names. Exits 1 when one stands in two headers, and when one that a file of the toolkit
# defines is declared in none.
# usage: list_operations.sh [root of the tree] > docs/operations.txt
set -euo pipefail
export LC_ALL=C
cd "${1:-$(dirname "$0")/..}"

includes() {
    sed -n 's/^#include "\(toolkit\/.*\)"$/\1/p' "$@"
}

# The names of the functions that begin in column 1 outside namespaces, one line for each.
functions() {
    awk '
        /^namespace/ { depth++ }
        /^}.*namespace/ { depth-- }
        /^(struct|class|enum|using|template)/ { next }
        !depth && /^(t_|[a-z[])/ && match($0, /(^|[ *&])[A-Za-z_0-9]+\(/) {
            name = substr($0, RSTART, RLENGTH - 1)
            sub(/^[ *&]/, "", name)
            print name
        }' "$1"
}

# All that toolkit.h includes, and what that includes.
headers=toolkit/toolkit.h
while more=$(includes $headers | cat - <(printf '%s\n' $headers) | sort -u) &&
    [ "$more" != "$headers" ]; do
    headers=$more
done

list=$(for header in $headers; do
    functions "$header" | sort -u | while IFS= read -r name; do
        printf '%-30s %s\n' "$name" "$header"
    done
done | sort)
printf '%s\n' "$list"

failed=0
while IFS= read -r name; do
    echo "$name stands in two headers" >&2
    failed=1
done < <(cut -d ' ' -f 1 <<< "$list" | uniq -d)
while IFS= read -r name; do
    echo "$name is defined, but no header of toolkit.h declares it" >&2
    failed=1
done < <(comm -13 <(cut -d ' ' -f 1 <<< "$list") \
    <(find toolkit -name '*.cpp' | while IFS= read -r file; do functions "$file"; done | sort -u))
exit "$failed"
