#!/bin/sh
# A live machine in the window: opened, read again, its entries marked, noted and cleared.
set -u
# shellcheck source=tests/gui/viewer.sh
. "$(dirname "$0")/viewer.sh"
# shellcheck disable=SC2154  # set by what is sourced

calls() { grep -c -- "$1" "$folder/calls"; }
first_row_holds() { rows | head -n 1 | grep -q -- "$1"; }
no_row_is() { ! rows | cut -f 3 | grep -qx -- "$1"; }

open_and_refresh() {
  open_viewer
  open_machine '\\localhost '
  must "the caption names the machine" machine_is_open LOCALHOST
  check "the machine's log is listed" shows_rows 200
  nothing_comes_of ctrl+z

  show_critical_only
  find_header
  click_at 420 "$header_y"
  expect_list "$demo" --sort class:asc --severity Critical
  check "critical entries only, by class" shows_descriptions_of "$folder/wanted"
  key Home
  key Down Down Down
  check "one row is selected" selects_one_row
  reads=$(calls ReadLogEntry)
  key F5
  check "every entry is read again" calls_hold ReadLogEntry $((2 * reads))
  expect_main "the log has been read again"
  check "the selection is kept" selection_is "$folder/selected"
  check "filter and order are kept" shows_descriptions_of "$folder/wanted"
  key ctrl+a
  check "every entry again" shows_rows 200
}
selects_one_row() {
  copied ctrl+c >"$folder/selected" && [ "$(wc -l <"$folder/selected")" -eq 2 ]
}
selection_is() { copied ctrl+c | cmp -s - "$1"; }

marking() {
  critical=$(qvlog list --no-header "$demo" --severity Critical | wc -l)
  caution=$(qvlog list --no-header "$demo" --severity Caution | wc -l)
  severe=$((critical + caution))
  key ctrl+shift+a
  key ctrl+r
  expect_dialog "entries that need no mark are told"
  check "every other entry was marked" calls_hold MarkEntryRepaired "$severe"
  key Return
  expect_main "they are told once"
  check "critical entries show as repaired" no_row_is Critical
  check "the rest was left alone" has_calls MarkEntryRepaired "$severe"
}
has_calls() { [ "$(calls "$1")" -eq "$2" ]; }

note() {
  key ctrl+m
  expect_dialog "the dialog for a note"
  note_dialog=$dialog
  key space space
  choose_ok Tab
  expect_dialog "an empty note is refused"
  key Return
  dialog=$note_dialog
  check "the dialog for the note stays" dialog_is_back
  key ctrl+a
  type_text 'Looked at on a screen.'
  choose_ok Tab
  expect_dialog "the answer to the note"
  key Return
  expect_main "the log is read again"
  check "the note is in the log" shows_rows 201
  check "the note comes first" first_row_holds 'Looked at on a screen.'
}

# save_to NAME: beside the demo log, by the dialog that is in front.
save_to() {
  type_text "$(as_path "$1")"
  must "the name stands there" stands_still 0.3
  key Return
}
is_a_file() { [ -s "$1" ]; }

clearing() {
  key ctrl+l
  expect_dialog "the clear dialog"
  clear_dialog=$dialog
  key alt+s
  expect_dialog "a file to save to is asked for" Save
  leave_file_dialog
  dialog=$clear_dialog
  check "the clear dialog stays when nothing is saved" dialog_is_back
  key alt+s
  expect_dialog "a file to save to is asked for again" Save
  save_to before.qvx
  dialog=$clear_dialog
  check "the clear dialog stays when the log is saved" dialog_is_back
  check "the log is saved" is_a_file before.qvx
  key alt+e
  expect_dialog "a file to export to is asked for" Export
  save_to before.csv
  dialog=$clear_dialog
  check "the clear dialog stays when the log is exported" dialog_is_back
  check "the log is exported" is_a_file before.csv
  check "nothing was cleared yet" has_calls RemoteClearLog 0
  key alt+c
  check "the log is cleared" calls_hold RemoteClearLog 1
  expect_main "the clear dialog has gone"
  check "one entry is left" shows_rows 1
  saved=$(qvlog list --no-header before.qvx | wc -l)
  check "the file holds what was cleared" [ "$saved" -eq 201 ]
}

# ask_to_clear LABEL: up to the point where the machine is asked.
ask_to_clear() {
  key ctrl+l
  expect_dialog "$1"
  key alt+c
}

# lose_machine: the next call fails. On Windows the machine has to be gone: one that came back is
# connected to again by the system itself.
lose_machine() {
  case $system in
    linux) serve "$demo" --refuse-clear ;;
    windows) end_service ;;
  esac
}
bring_machine_back() { [ "$system" = linux ] || serve "$demo" --refuse-clear; }

failing() {
  lose_machine
  ask_to_clear "the clear dialog, with the connection lost"
  expect_dialog "the failed call is told"
  key Return
  expect_dialog "and then that nothing was cleared"
  key Return
  expect_main "in two messages"
  bring_machine_back

  open_machine '127.0.0.1'
  must "another name is opened" main_is_titled "$title - 127.0.0.1"
  check "and its log is read" shows_rows 200
  ask_to_clear "the clear dialog of the machine that refuses"
  expect_dialog "a clear that is not done is told"
  key Return
  expect_main "in one message"
  check "nothing is lost" shows_rows 200
}

# A file in place of a machine closes it, and is not busy as a machine that was closed is.
file_after_machine() {
  qvlog sample --entries 7 --seed 1 -o seven.qvx
  key ctrl+o
  expect_dialog "a log file is asked for" Open
  save_to seven.qvx
  must "the caption names no machine" main_is_titled "$title"
  expect_main "the file is open"
  check "its entries are listed" shows_rows 7
  nothing_comes_of F5
  nothing_comes_of ctrl+l
  key ctrl+s
  expect_dialog "it can be saved" Save
  leave_file_dialog
  expect_main "it is not"
  close_viewer
}

not_administrator() {
  serve "$demo" --not-administrator
  open_viewer
  open_machine localhost
  expect_dialog "who may not change the log is told"
  key Return
  expect_main "once"
  check "and reads it all the same" shows_rows 200
  nothing_comes_of ctrl+l
  nothing_comes_of ctrl+m
  nothing_comes_of ctrl+r
  key F5
  expect_main "not again when the log is read again"
  check "and still reads it" shows_rows 200
  open_machine 127.0.0.1
  expect_dialog "but again with the next machine"
  key Return
  must "which is open then" machine_is_open 127.0.0.1
  check "and read" shows_rows 200
  close_viewer
}

nobody_there() {
  end_service
  open_viewer "$demo"
  check "a file's entries are listed" shows_rows 200
  open_machine localhost
  expect_dialog "a machine that does not answer is told"
  key Return
  expect_main "and the window stays"
  nothing_comes_of ctrl+s
  nothing_comes_of F5
  close_viewer
}

start_screen
forget_settings
serve "$demo" --log-call "$folder/calls"
open_and_refresh
marking
note
clearing
failing
file_after_machine
not_administrator
nobody_there
report
