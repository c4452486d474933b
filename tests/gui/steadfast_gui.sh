#!/bin/sh
# What the window keeps through: damaged settings, keys and files that come while it asks something,
# and two windows at once.
set -u
# shellcheck source=tests/gui/viewer.sh
. "$(dirname "$0")/viewer.sh"
# shellcheck disable=SC2154  # set by what is sourced

damaged_settings() {
  [ "$system" = linux ] || return 0
  mkdir -p "$XDG_CONFIG_HOME/quarvel-log-viewer"
  printf '[Software/Zelkor\nno line of settings\n\001\377=\n[[[' \
    >"$XDG_CONFIG_HOME/quarvel-log-viewer/settings"
  open_viewer "$demo"
  check "damaged settings open no window" shows_rows 200
  must "the viewer ends" closing_ends_it
  wait "$viewer"
  check "the viewer ends well" [ $? -eq 0 ]
  viewer=
  check "the damage is told on standard error" grep -q "'=' expected" "$folder/viewer.log"
  check "the place is remembered again" [ -n "$(setting '' right)" ]
  forget_settings
}

# Enter confirms a field; with Alt it is the key of the details.
details_from_a_field() {
  open_viewer "$demo"
  key alt+m
  type_text nobody
  key alt+Return
  xdotool windowsize "$main" 900 600
  check "the window takes another size" has_size 900x600
  click_at 200 200
  check "the log is still shown" shows_rows 200
  key ctrl+shift+f
  type_text 'no such text'
  key alt+Return
  key Escape
  check "no message came" main_is_front
  close_viewer
}

a_second_window_waits() {
  open_viewer "$demo"
  key ctrl+f
  expect_dialog "the filter dialog"
  # Keys of another window of the program mean nothing to the main one.
  key Escape
  expect_main "the filter dialog has gone"
  key alt+l
  key v
  must "the preview" dialog_is_front
  dialog=$front
  key ctrl+m ctrl+f F1
  check "no dialog stands over the preview" dialog_is_back
  key alt+F4
  expect_main "the preview has gone"
  check "the log is still shown" shows_rows 200
  close_viewer
}

two_windows() {
  qvlog sample --entries 7 -o seven.qvx
  qvlog sample --entries 8 -o eight.qvx
  forget_settings
  start_program seven.qvx >"$folder/first.log" 2>&1
  first=$!
  must "the first window" viewer_is_shown
  check "its file is remembered at once" setting_ends '\Recent File List' File1 seven.qvx
  start_program eight.qvx >"$folder/second.log" 2>&1
  second=$!
  check "the second window's file comes first" setting_ends '\Recent File List' File1 eight.qvx
  check "the first one's is kept" setting_ends '\Recent File List' File2 seven.qvx
  must "both windows" are_titled "$title" 2
  for main in $(xdotool search --onlyvisible --name "^$title\$"); do
    xdotool windowactivate --sync "$main"
    key alt+F4
  done
  wait "$first" "$second"
  check "after both have gone, too" setting_ends '\Recent File List' File2 seven.qvx
}

start_screen
forget_settings
damaged_settings
details_from_a_field
a_second_window_waits
[ "$system" = windows ] || two_windows
report
