#!/bin/sh
# Two hundred rounds on a live machine leave nothing behind in the viewer: each opens it, filters,
# sorts, reads the log again and closes it for a log file.
#
#   endurance_gui.sh linux|windows FOLDER_OF_PROGRAMS [FOLDER_OF_PICTURES]
#
# Prints what the viewer holds, every twenty rounds. QVL_ENDURANCE_ROUNDS makes it shorter.
set -u
# shellcheck source=tests/gui/viewer.sh
. "$(dirname "$0")/viewer.sh"
rounds=${QVL_ENDURANCE_ROUNDS:-200}
# By then every dialog, font and picture was needed once, the heap has its shape, and the system has
# what it makes for a program at some time.
settled=60
[ "$rounds" -ge 80 ] || settled=$((rounds * 3 / 4))
slack_kib=1536

# What the viewer holds: memory in KiB, handles, processes that it started.
measure() {
  case $system in
    linux)
      memory=$(awk '/^VmRSS:/ { print $2 }' "/proc/$viewer/status")
      handles=$(find "/proc/$viewer/fd" -mindepth 1 | wc -l)
      children=$(cat "/proc/$viewer/task/"*/children | wc -w)
      ;;
    windows)
      # shellcheck disable=SC2046  # three numbers
      set -- $("$wine_run" "$programs/holdings.exe" zlkqvxv.exe | tr -d '\r')
      memory=$1 handles=$2 children=$3
      ;;
  esac
  echo "round $round: memory $memory KiB, handles $handles, processes $children"
}

# A thousand looks at the window: they must not take longer than what they wait for.
wait_until() {
  looks=0
  until "$@"; do
    looks=$((looks + 1))
    [ "$looks" -lt 1000 ] || return 1
    sleep 0.02
  done
}
keys() { xdotool key --delay 4 "$@"; }
# What has just been opened may take the keyboard to the list again.
machine_is_typed() {
  go_to_machine_box
  keys ctrl+a l o c a l h o s t
  [ "$(copied ctrl+a ctrl+c)" = localhost ]
}
# The first severity, in the dialog's second list.
choose_severity() {
  case $system in
    linux) keys Tab Down alt+o ;;
    windows) keys Tab Down Return ;;
  esac
}

# Each column in turn, so that no two clicks are a double one.
heading_x() {
  set -- 100 420 520 585 660
  shift $((round % 5))
  echo "$1"
}

reads=0
# An answer behind the last entry ends each reading of the log.
log_was_read() { [ "$(grep -c 'ReadLogEntry .*: status 0, none' "$folder/calls")" -ge "$reads" ]; }
expect_read() {
  reads=$((reads + 1))
  must "round $round: the log is read to its end" log_was_read
  must "round $round: the window is back" machine_is_open LOCALHOST
}
another_is_front() { front=$(active_window) && [ "$front" != "$main" ]; }
file_is_open() { main_is_titled "$title" && main_is_front; }
fewer_rows_are_shown() { shown=$(count_of_rows) && [ "$shown" -gt 0 ] && [ "$shown" -lt "$all" ]; }

one_round() {
  must "round $round: the machine is typed" machine_is_typed
  keys Return
  expect_read
  keys ctrl+f
  must "round $round: the filter dialog" another_is_front
  choose_severity
  must "round $round: the filter is chosen" main_is_front
  click_at "$(heading_x)" "$header_y"
  keys F5
  expect_read
  [ $((round % 20)) -ne 0 ] || check "round $round: the filter is kept" fewer_rows_are_shown
  keys alt+l 1
  must "round $round: the machine is closed" file_is_open
}

start_screen
forget_settings
serve "$demo" --log-call "$folder/calls"
open_viewer "$demo"
find_header
all=$(count_of_rows)
round=0
while [ "$round" -lt "$rounds" ]; do
  round=$((round + 1))
  one_round
  [ "$round" -ne "$settled" ] || {
    measure
    memory_before=$memory handles_before=$handles children_before=$children
  }
  [ $((round % 20)) -ne 0 ] || measure
done
measure
check "the memory is flat" [ "$memory" -le $((memory_before + slack_kib)) ]
check "no handle is left" [ "$handles" -le "$handles_before" ]
check "no process is left" [ "$children" -le "$children_before" ]
close_viewer
report
