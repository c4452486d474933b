#!/bin/bash
# The manual page, docs/batch.md and the help, held against the switches that the program takes.
#
#   batch_documentation_test.sh ZLKQVXV VERSION
#
# Prints a line for every failed check and the counts at the end.

if [[ $# -ne 2 ]]; then
    echo "usage: batch_documentation_test.sh ZLKQVXV VERSION" >&2
    exit 2
fi
zlkqvxv=$(realpath -- "$1") || exit 2
version=$2
tree=$(realpath -- "$(dirname -- "${BASH_SOURCE[0]}")/../..") || exit 2

folder=$(mktemp -d "${TMPDIR:-/tmp}/batch_documentation.XXXXXX") || exit 1
trap 'cd / && rm -rf "$folder"' EXIT
trap 'exit 1' HUP INT TERM
cd "$folder" || exit 1
export LC_ALL=C

passed=0
failed=0

# check NAME EXPECTED ACTUAL
check() {
    if [[ $2 == "$3" ]]; then
        passed=$((passed + 1))
    else
        failed=$((failed + 1))
        printf 'FAILED: %s\n  expected: %s\n  actual:   %s\n' "$1" "$2" "$3"
    fi
}

# What each tells of the switches, as the program's table has them: "save:", "clear", ...
program=$(sed -n '/^constexpr SwitchRow kSwitchRows/,/^};/s/^ *{"\([a-z]*:\{0,1\}\)".*/\1/p' \
    "$tree/batch/switches.cpp" | sort)
guide=$(sed -n 's/^| `\/\([a-z]*:\{0,1\}\).*/\1/p' "$tree/docs/batch.md" | sort)
manual=$(sed -n '/^\.SH SWITCHES/,/^\.SH "EXIT/s/^\.BI* \/\([a-z][a-z]*:\{0,1\}\).*/\1/p' \
    "$tree/packaging/zlkqvxv.1" | sort)
help_pages=("$tree/viewer/resources/help/batch.html" "$tree/viewer/resources/help/ja/batch.html")
check "the program has switches" 9 "$(wc -w <<<"$program")"
check "the switches of docs/batch.md" "$program" "$guide"
check "the switches of the manual page" "$program" "$manual"
for page in "${help_pages[@]}"; do
    check "the switches of $page" "$program" \
        "$(sed -n 's/^<tr><td><tt>\/\([a-z]*:\{0,1\}\).*/\1/p' "$page" | sort)"
done

# The program itself takes all of them, and refuses one that none of them names.
switches=()
for keyword in $guide; do
    case $keyword in
    f:) switches+=("/f:run.log") ;;
    *:) switches+=("/${keyword}value") ;;
    *) switches+=("/$keyword") ;;
    esac
done
timeout 30 "$zlkqvxv" "${switches[@]}" /bogus
check "the exit status of a refused run" 1 "$?"
check "what the program refuses" \
    "   Unknown command '/bogus'. Please view the helpfile on using the command-line arguments." \
    "$(grep Unknown run.log)"

for status in 0 1 2 3; do
    check "docs/batch.md tells of exit status $status" 1 \
        "$(grep -c "^| $status | " "$tree/docs/batch.md")"
    for page in "${help_pages[@]}"; do
        check "$page tells of exit status $status" 1 "$(grep -c "^<tr><td>$status</td>" "$page")"
    done
    check "the manual page tells of exit status $status" 1 \
        "$(grep -c "^\.B $status\$" "$tree/packaging/zlkqvxv.1")"
done
check "the manual page is of this version" 1 \
    "$(grep -c "^\.TH ZLKQVXV 1 \"\" \"zlkqvxv $version\"" "$tree/packaging/zlkqvxv.1")"

echo "$passed passed, $failed failed"
[[ $failed -eq 0 ]]
