#!/bin/sh
# What the viewer remembers from one run to the next: its place, the widths of the columns, the
# files and the machines.
set -u
# shellcheck source=tests/gui/viewer.sh
. "$(dirname "$0")/viewer.sh"
# shellcheck disable=SC2154  # set by what is sourced

# How far a drag gets is the toolkit's business.
setting_is_between() {
  number=$(setting "$1" "$2")
  [ -n "$number" ] && [ "$number" -ge "$3" ] && [ "$number" -le "$4" ]
}
width_of_settings() { echo $(($(setting '' right) - $(setting '' left))); }
height_of_settings() { echo $(($(setting '' bottom) - $(setting '' top))); }

first_run() {
  open_viewer
  close_viewer
  check "a first window is 740 wide" [ "$(width_of_settings)" -eq 740 ]
  check "and 540 high" [ "$(height_of_settings)" -eq 540 ]
  check "in the middle" setting_is '' left $((1366 / 2 - 740 / 2))
  check "of the screen" setting_is '' top $((768 / 2 - 540 / 2))
  check "shown as it is" setting_is '' state 1
  check "with no flags" setting_is '' flags 0
  check "the first column has its own width" setting_is '\Description' width 365
  check "the last column has its own width" setting_is '\Initial' width 110
}

place_of_main() { xdotool getwindowgeometry "$main" | awk '/Position/ { print $2 }'; }
has_place() { [ "$(place_of_main)" = "$1" ]; }
is_moved() { [ "$(place_of_main)" != "$1" ]; }

place_and_widths() {
  open_viewer "$demo"
  check "the log is listed" shows_rows 200
  before=$(place_of_main)
  xdotool windowmove "$main" 120 90
  check "the window takes another place" is_moved "$before"
  xdotool windowsize "$main" 1000 500
  check "the window takes another size" has_size 1000x500
  must "the larger window is drawn" stands_still 0.3
  find_header
  # The border between the first two columns, dragged to the left.
  xdotool mousemove --window "$main" 365 "$header_y"
  must "the pointer is on the border" stands_still 0.3
  xdotool mousedown 1
  for x in 355 345 335 325 315; do xdotool mousemove --window "$main" "$x" "$header_y"; done
  must "the border is drawn where it goes" stands_still 0.2
  xdotool mouseup 1
  must "the column is drawn" stands_still 0.3
  place=$(place_of_main)
  size=$(size_of_main)
  close_viewer
  check "the width of the column is remembered" setting_is_between '\Description' width 300 360
  check "the width of another column too" setting_is '\Class' width 115
  check "the file is remembered" setting_ends '\Recent File List' File1 demo.qvx
  width=$(setting '\Description' width)

  open_viewer
  check "the window is as large as it was" has_size "$size"
  check "and where it was" has_place "$place"
  key alt+l
  key 1
  check "a recent file is opened from the menu" shows_rows 200
  close_viewer
  check "the column is as wide as it was" setting_is '\Description' width "$width"
}

is_maximised() { xprop -id "$main" _NET_WM_STATE | grep -q MAXIMIZED_VERT; }
is_not_maximised() { ! is_maximised; }

maximised() {
  right=$(setting '' right)
  open_viewer
  # As the window manager's own title bar does it.
  key alt+space
  key x
  check "the window is maximised" is_maximised
  close_viewer
  check "that is remembered" setting_is '' state 3
  check "with the place that it had before" setting_is '' right "$right"
  open_viewer
  check "the window is maximised again" is_maximised
  close_viewer
}

# A name that begins with the new one is taken for the same machine; so it always was.
machines() {
  forget_settings
  remember '\MRU' 0 OTHER
  remember '\MRU' 1 LOCALHOST12
  remember '\MRU' 2 LOCALHOST3
  remember '\MRU' 4 UNREAD
  serve "$demo"
  open_viewer
  open_machine localhost
  must "the machine is open" main_is_titled "$title - LOCALHOST"
  check "and read" shows_rows 200
  close_viewer
  check "the machine comes first" setting_is '\MRU' 0 LOCALHOST
  check "then the one before it" setting_is '\MRU' 1 OTHER
  check "without the first name that begins with it" setting_is '\MRU' 2 LOCALHOST3
  check "what is behind a gap is left alone" setting_is '\MRU' 4 UNREAD

  open_viewer
  go_to_machine_box
  key Down
  must "a machine is opened from the list" main_is_titled "$title - LOCALHOST"
  check "and read" shows_rows 200
  close_viewer
}

start_screen
forget_settings
first_run
place_and_widths
maximised
machines
report
