#!/bin/sh
# What the window tells those who hear it: every control has a name. Wants a session bus of its own
# (dbus-run-session); Linux only.
set -u
# shellcheck source=tests/gui/viewer.sh
. "$(dirname "$0")/viewer.sh"
# shellcheck source=tests/gui/extras.sh
. "$root/tests/gui/extras.sh"
# shellcheck disable=SC2154  # set by what is sourced
unset NO_AT_BRIDGE

all_are_named() {
  timeout 20 "$programs/accessible_names" zlkqvxv >"$folder/unnamed" 2>"$folder/unnamed.log"
}
# expect_names WHERE
expect_names() {
  check "every control has a name: $1" all_are_named || cat "$folder/unnamed" "$folder/unnamed.log"
}
# expect_names_in NAME KEYS...: of the dialog that the keys open.
expect_names_in() {
  name=$1
  shift
  for keys in "$@"; do key "$keys"; done
  expect_dialog "the $name dialog"
  expect_names "$name"
  key Escape
  expect_main "the $name dialog has gone"
}

names() {
  serve "$demo"
  open_viewer
  expect_machine LOCALHOST
  menu v t
  menu v d
  key ctrl+shift+f
  expect_names "the window with every bar"
  key Escape
  expect_names_in filter ctrl+f
  expect_names_in note ctrl+m
  expect_names_in clear ctrl+l
  expect_names_in browser alt+b
  expect_names_in about alt+h a
  menu l v
  expect_preview "$title - LOCALHOST"
  expect_names preview
  key Escape
  expect_main "the preview has gone"
  close_viewer
}

start_screen
forget_settings
names
report
