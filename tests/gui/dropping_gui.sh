#!/bin/sh
# A log file that is dropped on the window.
set -u
# shellcheck source=tests/gui/viewer.sh
. "$(dirname "$0")/viewer.sh"
# shellcheck source=tests/gui/extras.sh
. "$root/tests/gui/extras.sh"
# shellcheck disable=SC2154  # set by what is sourced

source_program=
end_source() {
  [ -z "$source_program" ] || ! kill -0 "$source_program" 2>/dev/null || kill "$source_program"
  finish
}
trap end_source EXIT

source_is_shown() {
  source_window=$(xdotool search --onlyvisible --name '^Drag source$') && [ -n "$source_window" ]
}
offer() {
  case $system in
    linux) "$programs/drag_source" "$@" >"$folder/source.log" 2>&1 & ;;
    windows) "$wine_run" "$programs/drag_source.exe" "$@" >"$folder/source.log" 2>&1 & ;;
  esac
  source_program=$!
  must "a window to drag from" source_is_shown
  xdotool windowmove --sync "$source_window" 20 20
}

# The next move comes when the last one was noticed: a drag that is only jumped through is none.
drop_on_list() {
  eval "$(xdotool getwindowgeometry --shell "$main" | grep '^[XY]=')"
  xdotool mousemove --window "$source_window" 60 40 mousedown 1
  for step in 1 2 3 4; do
    xdotool mousemove_relative --sync 6 6
    sleep 0.1
  done
  for step in 1 2 3 4; do
    xdotool mousemove --sync $((X + 200 + step)) $((Y + 250 + step))
    sleep 0.1
  done
  xdotool mouseup 1
}

dropped() {
  qvlog sample --entries 7 -o seven.qvx
  open_viewer "$demo"
  check "the first log is listed" shows_rows 200
  offer seven.qvx
  drop_on_list
  xdotool windowactivate --sync "$main"
  check "the log that was dropped is listed" shows_rows 7
  close_viewer
  check "it is a recent file now" setting_ends '\Recent File List' File1 seven.qvx
}

start_screen
forget_settings
dropped
report
