#!/bin/sh
# What the window keeps through: damaged settings, keys and files that come while it asks something,
# and two windows at once.
set -u
# shellcheck source=tests/gui/viewer.sh
. "$(dirname "$0")/viewer.sh"
# shellcheck source=tests/gui/extras.sh
. "$root/tests/gui/extras.sh"
# shellcheck disable=SC2154  # set by what is sourced

damage_settings() {
  case $system in
    linux)
      mkdir -p "$XDG_CONFIG_HOME/quarvel-log-viewer"
      printf '[Software/Zelkor\nno line of settings\n\001\377=\n[[[' \
        >"$XDG_CONFIG_HOME/quarvel-log-viewer/settings"
      ;;
    windows)
      remember '' right 'no number'
      remember '' state '-1'
      remember '\Description' width 'as wide as it goes'
      "$wine_run" reg add "HKCU\\$settings_key\\MRU" /v 0 /t REG_DWORD /d 4294967295 /f
      "$wine_run" reg add "HKCU\\$settings_key" /v left /t REG_BINARY /d 01 /f
      "$wine_run" reg add "HKCU\\$settings_key\\Recent File List" /v File1 /t REG_BINARY /d ff /f
      ;;
  esac >/dev/null 2>&1
}
damaged_settings() {
  damage_settings
  open_viewer "$demo"
  check "damaged settings open no window" shows_rows 200
  must "the viewer ends" closing_ends_it
  wait "$viewer"
  check "the viewer ends well" [ $? -eq 0 ]
  viewer=
  [ "$system" = windows ] ||
    check "the damage is told on standard error" grep -q "'=' expected" "$folder/viewer.log"
  check "the place is remembered again" is_a_number "$(setting '' right)"
  check "and the columns" is_a_number "$(setting '\Description' width)"
  check "and the file" setting_ends '\Recent File List' File1 demo.qvx
  forget_settings
}
is_a_number() { [ "$1" -ge 0 ] 2>/dev/null; }

# Enter confirms a field; with Alt it is the key of the details.
details_from_a_field() {
  open_viewer "$demo"
  go_to_machine_box
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
  menu l v
  expect_preview
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
two_windows
report
