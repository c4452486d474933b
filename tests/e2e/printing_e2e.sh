#!/bin/sh
# Printed pages from end to end: what print_report prints is read back from the spooler.
#
#   with_spooler printing_e2e.sh COMMAND...
#
# COMMAND is print_report, with whatever runs it in front. Prints a line for every failed check and
# the counts at the end.
set -u
if [ $# -eq 0 ] || [ -z "${QVL_PRINT_FOLDER:-}" ]; then
  echo "usage: with_spooler printing_e2e.sh COMMAND..." >&2
  exit 2
fi
# shellcheck source=tests/e2e/checks.sh
. "$(dirname -- "$0")/checks.sh"
for program in pdftotext pdftoppm pdfinfo lpadmin cupsreject; do
  command -v "$program" >/dev/null || PATH=$PATH:/usr/sbin
  command -v "$program" >/dev/null || {
    echo "printing_e2e.sh: $program is missing (Debian: poppler-utils cups-client)" >&2
    exit 2
  }
done
for argument in "$@"; do last=$argument; done
case $last in
  *.exe) windows=yes ;;
  *) windows=no ;;
esac
LC_ALL=C.UTF-8
TZ=UTC
export LC_ALL TZ
folder=$(mktemp -d "${TMPDIR:-/tmp}/qvl_printing.XXXXXX") || exit 1
trap 'rm -rf "$folder"' EXIT
trap 'exit 1' HUP INT TERM
# prints NAME STATUS COMMAND...: what the command tells is left in a file.
prints() {
  name=$1
  expected=$2
  shift 2
  timeout 120 "$@" >"$folder/output" 2>"$folder/errors"
  status=$?
  tr -d '\r' <"$folder/output" >"$folder/told"
  check "$name: exit status $status, not $expected" [ "$status" -eq "$expected" ]
  check "$name: $(head -n 3 "$folder/errors")" [ ! -s "$folder/errors" ]
}

told() {
  sed -n "s/^$1=//p" "$folder/told"
}

# A job appears in the folder when it is whole.
job=0
await_job() {
  job=$((job + 1))
  pdf=$QVL_PRINT_FOLDER/$job.pdf
  tries=0
  until [ -e "$pdf" ] || [ "$tries" -ge 300 ]; do
    tries=$((tries + 1))
    sleep 0.1
  done
  check "$name: the document reached the printer" [ -e "$pdf" ]
  check "$name: the document's name" [ "$(cat "$QVL_PRINT_FOLDER/$job.title")" = Report ]
}

page_count() {
  pdfinfo "$pdf" | sed -n 's/^Pages: *//p'
}

# One page's lines as they should be, but for blank ones and for runs of blanks.
expected_page() {
  awk -v page="$1" -v lines="$(told lines)" -v width="$(told characters)" -v count="$2" 'BEGIN {
    print "Korvath Quarvel Log Viewer - SRV1 Page " page
    print "Friday, November 20, 2026 at 01:05 PM"
    for (i = 0; i < width; i++) printf "_"
    print ""
    entry = (page - 1) * int(lines / 7)
    for (line = 2; entry < count && lines - line >= 6; line += 7) {
      entry++
      more = entry <= 2 ? " éüß" : ""
      print "Maintenance note: entry " entry " of " count more
      print " Class : Maintenance"
      print " Severity :"
      print " Count : 0"
      print " Update Time : Invalid: 0/0/0 12:00 AM"
      print " Initial Time : Invalid: 0/0/0 12:00 AM"
    }
  }'
}

# The text of one page, as pdftotext lays it out.
page_text() {
  pdftotext -layout -f "$1" -l "$1" "$pdf" - | tr -d '\f' | sed -e 's/ *$//' -e '/^$/d'
}

# How much of a page's picture is not white.
ink() {
  pdftoppm -r 20 -mono -f "$1" -l "$1" "$pdf" >"$folder/page.pbm"
  # Two lines of head, then eight pixels a byte.
  tail -n +3 "$folder/page.pbm" | tr -d '\000' | wc -c
}

pages_hold() {
  count=$1
  shift
  prints "$count entries" 0 "$@" "$count"
  await_job
  pages=$(told pages)
  check "$count entries: $(page_count) pages, not $((pages + 1))" \
    [ "$(page_count)" -eq "$((pages + 1))" ]
  page=1
  while [ "$page" -le "$pages" ]; do
    expected_page "$page" "$count" >"$folder/expected"
    page_text "$page" >"$folder/page"
    tr -s ' ' <"$folder/page" >"$folder/actual"
    cmp -s "$folder/expected" "$folder/actual" || diff -u "$folder/expected" "$folder/actual"
    check "$count entries: the text of page $page" cmp -s "$folder/expected" "$folder/actual"
    check "$count entries: page $page is numbered at its right edge" \
      [ "$(sed -n 1p "$folder/page" | wc -m)" -eq "$(($(told characters) + 1))" ]
    check "$count entries: page $page shows something" [ "$(ink "$page")" -gt 100 ]
    page=$((page + 1))
  done
  check "$count entries: the last page's text" [ -z "$(page_text "$page")" ]
  check "$count entries: the last page is white" [ "$(ink "$page")" -eq 0 ]
}

# ---- Pages ----

pages_hold 25 "$@"
pages_hold 0 "$@"

# ---- The user's choice ----

if [ "$windows" = no ]; then
  lpoptions -p Pages -o media=iso_a5_148x210mm >/dev/null
  prints "the user's paper" 0 "$@" 1
  await_job
  size=$(pdfinfo "$pdf" | sed -n 's/^Page size: *//p')
  check "the user's paper: $size" [ "$size" = "420 x 595 pts (A5)" ]

  lpadmin -p Other -E -v "keep:$QVL_PRINT_FOLDER" -P "$CUPS_SERVERROOT/ppd/Pages.ppd" \
    2>"$folder/warnings"
  prints "the user's printer" 0 env PRINTER=Other "$@" 1
  await_job
  check "the user's printer: $(lpstat -W all -o)" \
    [ "$(lpstat -W all -o | grep -c "^Other-$job ")" -eq 1 ]
  lpadmin -x Other
fi

# ---- Printers that print nothing ----

cupsreject Pages
prints "a printer that takes no documents" 1 "$@" 1
lpadmin -x Pages
prints "no default printer" 2 "$@" 1
prints "no spooler" 2 env CUPS_SERVER="$folder/none" "$@" 1
check "nothing more was printed" [ ! -e "$QVL_PRINT_FOLDER/$((job + 1)).pdf" ]

all_passed
