#!/bin/sh
# The interactive viewer, clicked and typed at on a screen of its own.
#
#   viewer_gui.sh linux|windows FOLDER_OF_PROGRAMS [FOLDER_OF_PICTURES]
#
# Prints a line for every failed check, with a picture of the screen beside it, and the counts at
# the end. Wants Xvfb, openbox, xdotool, xclip and ImageMagick; for the Windows programs somebody
# logged on (wine_logon).
set -u
if [ $# -lt 2 ]; then
  echo "usage: viewer_gui.sh linux|windows FOLDER_OF_PROGRAMS [FOLDER_OF_PICTURES]" >&2
  exit 2
fi
system=$1
programs=$(cd "$2" && pwd) || exit 2
root=$(cd "$(dirname "$0")/../.." && pwd)
shots=${3:-$programs/../gui_failures}
unset LC_MESSAGES LANGUAGE
LC_ALL=C.UTF-8 LANG=C.UTF-8 TZ=UTC NO_AT_BRIDGE=1 GDK_BACKEND=x11
export LC_ALL LANG TZ NO_AT_BRIDGE GDK_BACKEND
folder=$(mktemp -d "${TMPDIR:-/tmp}/qvl_gui.XXXXXX") || exit 1
XDG_CONFIG_HOME=$folder/config
export XDG_CONFIG_HOME
mkdir "$XDG_CONFIG_HOME" "$folder/work"
cd "$folder/work" || exit 1

# shellcheck source=tests/gui/screen.sh
. "$root/tests/gui/screen.sh"
# shellcheck source=tests/e2e/batch_service.sh
. "$root/tests/e2e/batch_service.sh"
# shellcheck source=tests/gui/viewer_settings.sh
. "$root/tests/gui/viewer_settings.sh"
viewer=
finish() {
  cd /
  [ -z "$viewer" ] || ! kill -0 "$viewer" 2>/dev/null || kill "$viewer"
  end_service
  end_screen
  [ -n "${KEEP:-}" ] || rm -rf "$folder"
}
trap finish EXIT
trap 'exit 1' HUP INT TERM

title='Korvath Quarvel Log Viewer'
# Not by its whole path: an argument that begins with a slash starts batch mode.
demo=demo.qvx
cp "$root/samples/demo.qvx" .
case $system in
  linux) header_y=78 ;;
  windows) header_y=62 ;;
esac

size_of_main() { xdotool getwindowgeometry "$main" | awk '/Geometry/ { print $2 }'; }
has_size() { [ "$(size_of_main)" = "$1" ]; }
has_ended() { ! kill -0 "$viewer" 2>/dev/null; }

# open_viewer TITLE ARGUMENT...: and waits for its window, which has the keyboard then.
open_viewer() {
  wanted=$1
  shift
  start_program "$@" >"$folder/viewer.log" 2>&1
  viewer=$!
  must "a window titled $wanted" are_titled "$wanted" 1
  main=$(xdotool search --onlyvisible --name "^$wanted\$")
  xdotool windowactivate "$main"
}
close_viewer() {
  key alt+F4
  must "the viewer ends" has_ended
  wait "$viewer"
  check "the viewer ends well" [ $? -eq 0 ]
  viewer=
  complaints=$(grep -E 'zlkqvxv: toolkit:|AddressSanitizer|runtime error' "$folder/viewer.log")
  check "no complaint: $complaints" [ -z "$complaints" ]
}

# expect_list FILE OPTION...: the descriptions that qvlog lists, in its order.
expect_list() {
  qvlog list "$@" | tr -d '\r' |
    awk 'NR == 1 { at = index($0, "Description"); next } { print substr($0, at) }' >"$folder/wanted"
}

# ---- A log file ----

log_file() {
  open_viewer "$title" "$demo"
  check "every entry is listed" shows_rows 200
  expect_list "$demo" --sort updated:desc
  check "the latest update comes first" shows_descriptions_of "$folder/wanted"

  xdotool windowsize "$main" 1200 600
  check "the window takes another size" has_size 1200x600
  for column in 100,description 390,class 490,severity 550,count 750,initial; do
    name=${column#*,}
    x=${column%,*}
    for direction in asc desc; do
      # Elsewhere, so that no two clicks are a double one.
      x=$((x + 15))
      click_at "$x" "$header_y"
      expect_list "$demo" --sort "$name:$direction"
      check "sorted by $name, $direction" shows_descriptions_of "$folder/wanted"
    done
  done
}

filter() {
  key ctrl+f
  must "the filter dialog" are_titled "$title" 2
  # The buttons stand in each system's own order.
  [ "$system" = windows ] || key alt+s Down Tab Tab Tab Tab Tab Return
  [ "$system" = linux ] || key alt+s Down Tab Tab Tab Tab Return
  must "the filter dialog has gone" are_titled "$title" 1
  critical=$(qvlog list --no-header --severity Critical "$demo" | wc -l)
  check "critical entries only" shows_rows "$critical"
  key ctrl+a
  check "every entry again" shows_rows 200
}

find_text() {
  key ctrl+shift+f
  type_text "ticket 6999"
  key Escape
  check "the text is found while it is typed" selected_row_holds 'ticket 6999'
}

width_is_remembered() {
  width=$(($(setting '' right) - $(setting '' left)))
  [ "$width" -ge 1200 ] && [ "$width" -le 1220 ]
}

remembered() {
  size=$(size_of_main)
  close_viewer
  check "the window's width is remembered" width_is_remembered
  check "how the window is shown is remembered" setting_is '' state 1
  check "the width of a column is remembered" setting_is '\Description' width 365
  check "the file is remembered" setting_ends '\Recent File List' File1 demo.qvx
  open_viewer "$title"
  check "the window is as large as it was" has_size "$size"
  key alt+l
  key 1
  check "a recent file is opened from the menu" shows_rows 200
  close_viewer
}

# ---- A live machine ----

service_was_asked() { grep -q "$1" "$folder/calls"; }

live_machine() {
  forget_settings
  serve "$demo" --log-call "$folder/calls"
  open_viewer "$title"
  key alt+m
  type_text '\\localhost '
  key Return
  must "the caption names the machine" are_titled "$title - LOCALHOST" 1
  check "the machine's log is listed" shows_rows 200
  key F5
  check "the log is read again" shows_rows 200

  key Home
  key ctrl+r
  check "the first entry is marked repaired" selected_row_holds Repaired
  key ctrl+r
  must "an entry that is repaired already is told" are_titled "$title" 1
  key Return
  must "the message has gone" are_titled "$title" 0

  key ctrl+m
  must "the dialog for a note" are_titled "$title" 1
  type_text 'Looked at on a screen.'
  key Tab
  [ "$system" = windows ] || key Tab
  key Return
  must "the answer to the note" are_titled "$title" 1
  key Return
  check "the note is in the log" shows_rows 201
  check "the note comes first" first_row_holds 'Looked at on a screen.'
}
first_row_holds() { rows | head -n 1 | grep -q -- "$1"; }

clearing() {
  key ctrl+l
  must "the clear dialog" are_titled "$title" 1
  key alt+c
  # "Cancel" has the same letter there: the key chooses the button and does not press it.
  [ "$system" = windows ] || key Return
  check "the log is cleared" shows_rows 1
  close_viewer
  check "the machine is remembered" setting_is '\MRU' 0 LOCALHOST
}

refused() {
  serve "$demo" --not-administrator --refuse-clear
  open_viewer "$title"
  key alt+m
  type_text 'localhost'
  key Return
  must "who may not change the log is told" are_titled "$title" 1
  key Return
  must "once" are_titled "$title" 0
  check "and reads it all the same" shows_rows 200
  close_viewer
}

nobody_there() {
  end_service
  open_viewer "$title"
  key alt+m
  type_text 'localhost'
  key Return
  must "a machine that does not answer is told" are_titled "$title" 2
  key Return
  check "and the window stays" are_titled "$title" 1
  close_viewer
}

forget_settings
start_screen
log_file
filter
find_text
remembered
live_machine
clearing
refused
nobody_there
echo "$passed passed, $failed failed"
[ "$failed" -eq 0 ]
