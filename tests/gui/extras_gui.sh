#!/bin/sh
# What the window offers beside the list: details, severities over time, finding, copying, the
# context menu, and the question before a save that would leave older entries behind.
set -u
# shellcheck source=tests/gui/viewer.sh
. "$(dirname "$0")/viewer.sh"
# shellcheck source=tests/gui/extras.sh
. "$root/tests/gui/extras.sh"
# shellcheck disable=SC2154  # set by what is sourced

# ---- Copying ----

copies_with_header() {
  copied ctrl+c >"$folder/copied"
  printf 'Description\tClass\tSeverity\tCount\tUpdate Time\tInitial Time\n' >"$folder/wanted"
  head -n 1 "$folder/copied" | cmp -s - "$folder/wanted" &&
    [ "$(wc -l <"$folder/copied")" -eq "$1" ]
}
copying() {
  open_viewer "$demo"
  check "every row is copied below the headings" shows_rows 200
  key ctrl+shift+a
  check "every row and the headings" copies_with_header 201
  check "one row and the headings" first_row_is_copied
}
first_row_is_copied() {
  key End Home # from elsewhere: where the focus is already, one system leaves every row selected
  copies_with_header 2
}

# ---- Sorting ----

row_is_selected() { [ "$(copied ctrl+c | tail -n 1)" = "$1" ]; }
sorting() {
  find_header
  key End
  last=$(copied ctrl+c | tail -n 1)
  click_at 420 "$header_y"
  check "the selection follows its entry" row_is_selected "$last"
  click_at 420 "$header_y"
  check "also when the order is turned" row_is_selected "$last"
  arrow="$main 365 $((header_y - 12)) 112 22"
  remember_look $arrow
  click_at 420 "$header_y"
  xdotool mousemove --window "$main" 200 300
  check "the arrow on the column has turned" looks_other $arrow
  open_anew
}
open_anew() {
  close_viewer
  open_viewer "$demo"
  check "the log is listed" shows_rows 200
  find_header
}

# ---- Finding ----

is_found() { [ "$(copied ctrl+c | tail -n 1 | cut -f 1)" = "$(sed -n "$1p" "$folder/found")" ]; }
finding() {
  expect_list "$demo" --sort updated:desc
  grep -i 'fan' "$folder/wanted" >"$folder/found"
  key End
  key Home
  key ctrl+shift+f
  type_text 'FAN'
  key Escape
  check "the first that holds the text" is_found 1
  key F3
  check "the next one" is_found 2
  key F3
  check "and the next" is_found 3
  key shift+F3
  check "and back" is_found 2
  key ctrl+shift+f
  type_text 'fan no entry has'
  key Escape
  check "what nothing holds moves nothing" is_found 2
}

# ---- Details ----

bytes_are_copied() { copied ctrl+c | grep -q '^00  01 00 00 04'; }
details() {
  key Home
  eval "$(xdotool getwindowgeometry --shell "$main" | grep -E '^(WIDTH|HEIGHT)=')"
  list="$main 200 $((HEIGHT - 150)) 200 100"
  remember_look $list
  menu v d
  check "the pane is shown" looks_other $list
  click_at $((WIDTH - 200)) $((HEIGHT - 100))
  key ctrl+Home
  key ctrl+shift+End
  check "its bytes can be selected and copied" bytes_are_copied
  menu v d
  check "the pane is hidden" looks_as_before $list
}

# ---- Severities over time ----

rows_are_a_stretch() {
  rows >"$folder/stretch"
  count=$(wc -l <"$folder/stretch")
  [ "$count" -gt 0 ] && [ "$count" -lt 200 ] || return 1
  first=$(grep -nxF -- "$(head -n 1 "$folder/stretch")" "$folder/all_rows" | head -n 1)
  tail -n "+${first%%:*}" "$folder/all_rows" | head -n "$count" | cmp -s - "$folder/stretch"
}
over_time() {
  rows >"$folder/all_rows"
  menu v t
  check "the strip is shown" strip_is_shown
  drag 200 "$strip_y" 330 "$strip_y"
  check "the entries of a stretch of time are shown" rows_are_a_stretch
  key ctrl+a
  check "every entry again" shows_rows 200
  drag 330 "$strip_y" 200 "$strip_y"
  check "also when dragged to the left" rows_are_a_stretch
  key ctrl+a
  check "and every entry again" shows_rows 200
  menu v t
  check "the strip is hidden" list_begins_at "$header_y"
  close_viewer
}
list_begins_at() {
  key Home
  selected_row_is_seen && [ $((row_y - 11)) -eq "$1" ]
}
strip_is_shown() {
  key Home
  selected_row_is_seen && [ $((row_y - 11)) -gt $((header_y + 50)) ] &&
    strip_y=$((header_y + 20))
}

# ---- The context menu ----

context_menu() {
  serve "$demo"
  open_viewer
  expect_machine LOCALHOST
  key End
  find_header
  whole="$main 0 0 700 400"
  remember_look $whole
  xdotool mousemove --window "$main" 200 "$row_y" click 3
  must "a menu opens where it was clicked" looks_other $whole
  key Down Return
  check "its one command marks the entry" selected_row_holds Repaired
  opens_at_row Menu Down
  check "and marks the next entry" selected_row_holds Repaired
  opens_at_row shift+F10 Down Down Down Down Down Down
  check "and one further down" selected_row_holds Repaired
  close_viewer
  end_service
}
# opens_at_row KEY WAY...: at the row where the way leads, wherever the pointer rests.
opens_at_row() {
  menu_key=$1
  shift
  xdotool mousemove --window "$main" 600 300
  key "$@"
  must "the row is seen" selected_row_is_seen
  below_row="$main 0 $((row_y + 30)) 400 40"
  remember_look $below_row
  key "$menu_key"
  must "$menu_key opens it below the row" looks_other $below_row
  key Down Return
}

# ---- Saving over a longer log ----

save_over() {
  key ctrl+s
  expect_dialog "the save dialog" Save
  key ctrl+a
  type_text "$(as_path "$1")"
  must "the name stands there" stands_still 0.3
  must "entries that would stay are told" name_is_taken
  dialog=$front
}
# A key that ends the completion of a name on some systems, and the dialog with the next one. Pressed
# too soon it would answer the question.
name_is_taken() {
  ! dialog_is_back || { key Return && sleep 1; }
  dialog_is_front
}
is_same_log() { cmp -s "$1" "$2"; }
tail_remains() {
  qvlog sample --entries 7 -o seven.qvx
  cp "$demo" clean.qvx
  cp "$demo" over.qvx
  open_viewer seven.qvx
  check "the short log is listed" shows_rows 7
  save_over clean.qvx
  key Escape
  expect_main "nothing is saved"
  check "the longer log is as it was" is_same_log clean.qvx "$demo"
  save_over clean.qvx
  key alt+r
  expect_main "the file is replaced"
  check "it holds nothing but the log" is_same_log clean.qvx seven.qvx
  save_over over.qvx
  key alt+s
  expect_main "the file is saved over"
  check "older entries follow as they always did" [ "$(wc -c <over.qvx)" -eq "$(wc -c <"$demo")" ]
  close_viewer
}

# ---- Texts of the rows ----

# part_of_rows X Y WIDTH HEIGHT FORMAT: what the pixels of that part are like; Y from the first row.
part_of_rows() {
  timeout 10 import -window "$main" -crop "$3x$4+$1+$((row_y + $2))" +repage png:- |
    convert png:- -colorspace gray -format "%[fx:int($5)]" info:
}
is_at_least() {
  least=$1
  shift
  [ "$("$@")" -ge "$least" ]
}
is_at_most() {
  most=$1
  shift
  [ "$("$@")" -le "$most" ]
}
# The second row and those below it; the first one is selected. The first column ends at 365.
row_texts() {
  [ "$system" = linux ] || return 0
  open_viewer "$demo"
  check "the log is listed" shows_rows 200
  find_header
  check "a selected row has light letters" is_at_least 95 part_of_rows 30 2 300 18 '100*maxima'
  check "the others have dark ones" is_at_most 20 part_of_rows 30 26 300 18 '100*minima'
  check "a long text comes near the next column" \
    is_at_most 50 part_of_rows 325 26 30 160 '100*minima'
  check "and ends before it" is_at_most 0 part_of_rows 358 26 7 160 '100*(maxima-minima)'
  xdotool mousemove --window "$main" 365 "$header_y" click --repeat 2 --delay 40 1
  check "a column is fitted to its texts" is_at_least 50 part_of_rows 358 26 7 160 \
    '100*(maxima-minima)'
  close_viewer
}

start_screen
forget_settings
copying
sorting
finding
details
over_time
context_menu
tail_remains
row_texts
report
