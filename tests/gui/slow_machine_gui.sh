#!/bin/sh
# A machine that takes its time: the window is painted meanwhile, and reading can be cancelled.
set -u
# shellcheck source=tests/gui/viewer.sh
. "$(dirname "$0")/viewer.sh"
# shellcheck disable=SC2154  # set by what is sourced

# The status bar's left end, which stands at the window's lower edge.
status_bar() {
  height=$(size_of_main | cut -d x -f 2)
  look "$main" png |
    convert png:- -crop "150x14+4+$((height - 20))" +repage -depth 8 rgb:- | cksum
}
status_bar_is() { [ "$(status_bar)" = "$1" ]; }

painting() {
  serve "$demo" --delay 5000 --log-call "$folder/calls"
  open_viewer
  open_machine localhost
  must "the machine is waited for" progress_is_front
  waiting=$front
  bar=$(status_bar)
  xdotool windowsize "$main" 900 650
  check "the window takes another size meanwhile" has_size 900x650
  check "and is painted" status_bar_is "$bar"
  check "while the machine is still waited for" progress_stays
}
progress_stays() { [ "$(active_window)" = "$waiting" ]; }

cancelling() {
  serve "$demo" --delay 60 --log-call "$folder/calls"
  expect_dialog "the machine that has gone is told"
  key Return
  expect_main "and the window stays"
  open_machine 127.0.0.1
  must "the machine is open" main_is_titled "$title - 127.0.0.1"
  must "some entries are read" calls_hold ReadLogEntry 20
  must "reading is cancelled" escape_ends_reading
  expect_main "the progress window has gone"
  check "what came is kept" has_some_rows
  check "and no more was read" [ "$shown" -lt 150 ]
  check "the machine stays open" machine_is_open 127.0.0.1
  close_viewer
}
has_some_rows() { shown=$(count_of_rows) && [ "$shown" -ge 15 ]; }
escape_ends_reading() {
  main_is_front && return 0
  key Escape
  return 1
}

start_screen
forget_settings
painting
cancelling
report
