#!/bin/sh
# A log file in the window: its list sorted, filtered and searched, and which commands it has.
set -u
# shellcheck source=tests/gui/viewer.sh
. "$(dirname "$0")/viewer.sh"
# shellcheck disable=SC2154  # set by what is sourced

sorting() {
  open_viewer "$demo"
  check "every entry is listed" shows_rows 200
  expect_list "$demo" --sort updated:desc
  check "the latest update comes first" shows_descriptions_of "$folder/wanted"

  xdotool windowsize "$main" 1200 600
  check "the window takes another size" has_size 1200x600
  find_header
  for column in 150,description 400,class 500,severity 562,count 640,updated 750,initial; do
    name=${column#*,}
    x=${column%,*}
    for direction in asc desc; do
      # Elsewhere, so that no two clicks are a double one.
      x=$((x + 12))
      click_at "$x" "$header_y"
      expect_list "$demo" --sort "$name:$direction"
      check "sorted by $name, $direction" shows_descriptions_of "$folder/wanted"
    done
  done
  if [ "$system" = linux ]; then
    xdotool mousemove --window "$main" 420 "$header_y" click --repeat 2 --delay 40 1
  else
    # The system's own header takes the second press for a double click, and that for nothing.
    click_at 400 "$header_y"
    click_at 440 "$header_y"
  fi
  expect_list "$demo" --sort class:desc
  check "two clicks turn the order twice" shows_descriptions_of "$folder/wanted"
}

# expect_filtered LABEL OPTION...: the rows that qvlog selects, in its order.
expect_filtered() {
  label=$1
  shift
  expect_list "$demo" --sort class:desc "$@"
  check "$label" shows_descriptions_of "$folder/wanted"
}

filter() {
  show_critical_only
  expect_filtered "critical entries only" --severity Critical

  key ctrl+f
  expect_dialog "the filter dialog again"
  key alt+c
  key Down Down
  key alt+s
  key Down
  choose_ok
  expect_main "two choices are made"
  expect_filtered "caution entries of one class" --severity Caution --class 'Machine Environment'

  key ctrl+f
  expect_dialog "the filter dialog with the choices"
  press alt+r
  key Escape
  expect_main "reset and then cancelled"
  expect_filtered "a reset alone changes nothing" --severity Caution --class 'Machine Environment'

  key ctrl+f
  expect_dialog "the filter dialog once more"
  press alt+r
  choose_ok Tab
  expect_main "reset and then confirmed"
  check "every entry after a reset" shows_rows 200

  key ctrl+f
  expect_dialog "the filter dialog for times"
  key alt+u
  key End
  key alt+i
  key End
  choose_ok
  expect_main "times are chosen"
  check "entries of the last year, or none" rows_are_filtered
  key ctrl+a
  check "every entry again" shows_rows 200
}
# The log is as old as it is: how many rows stay depends on the day, but no more than there are.
rows_are_filtered() { [ "$(qvlog list --no-header "$demo" | wc -l)" -ge "$(count_of_rows)" ]; }

find_text() {
  key ctrl+shift+f
  type_text "ticket 6999"
  key Escape
  check "the text is found while it is typed" selected_row_holds 'ticket 6999'
}

# What changes a machine has nothing to change, and a file that is open can be saved.
commands() {
  nothing_comes_of ctrl+l
  nothing_comes_of ctrl+m
  nothing_comes_of ctrl+r
  nothing_comes_of F5
  key ctrl+s
  expect_dialog "a log file can be saved" Save
  leave_file_dialog
  expect_main "and not be saved"
  key ctrl+e
  expect_dialog "a log file can be exported" Export
  leave_file_dialog
  expect_main "and not be exported"
  close_viewer
}

not_a_log() {
  printf 'no log' >plain.qvx
  start_viewer plain.qvx
  expect_dialog "a file that is no log is told"
  key Return
  expect_main "and the window stays"
  nothing_comes_of ctrl+f
  close_viewer
}

start_screen
forget_settings
sorting
filter
find_text
commands
not_a_log
report
