#!/bin/sh
# Printing from the window and its preview, with a spooler of the test's own (with_spooler).
set -u
# shellcheck source=tests/gui/viewer.sh
. "$(dirname "$0")/viewer.sh"
# shellcheck source=tests/gui/extras.sh
. "$root/tests/gui/extras.sh"
# shellcheck disable=SC2154  # set by what is sourced

first_entry_has_its_lines() {
  sed -n '3,9s/ *$//p' "$folder/pages.txt" >"$folder/printed"
  cat >"$folder/wanted" <<END

System Fans Not Redundant (Location Memory)
    Class          : Machine Environment
    Severity       : Caution
    Count          : 1
END
  head -n 5 "$folder/printed" | cmp -s - "$folder/wanted" &&
    sed -n 6p "$folder/printed" | grep -q '^    Update Time    : 11/18/2026 1:59' &&
    sed -n 7p "$folder/printed" | grep -q '^    Initial Time   : 11/18/2026 1:59'
}
# As many as the last number says, which stands at the edge and is not cut off there.
every_page_is_numbered() {
  count=$(grep -c 'Page [0-9]' "$folder/pages.txt")
  [ "$count" -gt 10 ] && grep -q "Page $count\$" "$folder/pages.txt"
}

print_log() {
  rm -f "$QVL_PRINT_FOLDER"/*.pdf
  key ctrl+p
  expect_dialog "the system's print dialog" Print
  key Return
  expect_main "the print dialog has gone"
}

log_file() {
  open_viewer "$demo"
  check "every entry is listed" shows_rows 200
  key End Home # from elsewhere: where the focus is already, one system leaves every row selected
  print_log
  check "the pages name the file" printed_pages_hold 'Korvath Quarvel Log - demo.qvx' 'Page 1' ____
  check "an entry has its seven lines" first_entry_has_its_lines
  check "every page has its number" every_page_is_numbered
  check "the list has the keyboard again" selected_row_holds 'System Fans Not Redundant'
}

# The preview covers the window, so it is moved out of the way to see what is below.
preview() {
  find_header
  button="$main 310 $((header_y - 35)) 60 18" # the button to browse with
  remember_look $button
  menu l v
  expect_preview
  xdotool windowmove "$dialog" 0 650
  check "the bar is hidden meanwhile" looks_other $button
  key Escape
  expect_main "the preview has gone"
  check "the bar is back" looks_as_before $button
  check "the caption is the same" main_is_titled "$title"
  close_viewer
}

machine() {
  qvlog sample --entries 7 -o seven.qvx
  serve seven.qvx
  open_viewer
  expect_machine LOCALHOST 7
  print_log
  check "the page names the machine" \
    printed_pages_hold 'Korvath Quarvel Log - LOCALHOST' 'Page 1'
  close_viewer
}

start_screen
forget_settings
log_file
preview
machine
report
