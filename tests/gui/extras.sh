# shellcheck shell=sh
# What the tests of printing, dropping, browsing and looks share; sourced after viewer.sh.
# shellcheck disable=SC2154  # what viewer.sh sets

# menu LETTER LETTER: a command of the menu bar.
menu() {
  key "alt+$1"
  key "$2"
}

# drag X Y X Y [WINDOW]: from one place of a window to another, as a hand does it.
drag() {
  dragged_window=${5:-$main}
  xdotool mousemove --window "$dragged_window" "$1" "$2" mousedown 1
  for part in 1 2 3 4 5; do
    xdotool mousemove --window "$dragged_window" $(($1 + part * ($3 - $1) / 5)) \
      $(($2 + part * ($4 - $2) / 5))
  done
  xdotool mouseup 1
}

# A part of a window is remembered and looked at again. Each gets WINDOW X Y WIDTH HEIGHT.
look_at() { timeout 10 import -window "$1" -crop "$4x$5+$2+$3" +repage "$folder/now.png"; }
# How many pixels are clearly of another colour than before.
changed_pixels() {
  look_at "$@"
  compare -metric AE -fuzz 10% "$folder/before.png" "$folder/now.png" null: 2>&1 | cut -d ' ' -f 1
}
stays_the_same() {
  look_at "$@"
  mv "$folder/now.png" "$folder/before.png"
  sleep 0.2
  [ "$(changed_pixels "$@")" -eq 0 ]
}
remember_look() { must "nothing moves any more" stays_the_same "$@"; }
looks_other() { [ "$(changed_pixels "$@")" -gt 8 ]; }
# But for a caret or the line below a letter.
looks_as_before() { [ "$(changed_pixels "$@")" -lt $(($4 * $5 / 20)) ]; }

# expect_preview [TITLE]: with the log's caption. Not every window manager gives a further main
# window the keyboard by itself.
expect_preview() {
  must "the preview has the log's caption" preview_is_front "${1:-$title}"
  dialog=$front
}
preview_is_front() {
  dialog_is_front "$1" && return
  for window in $(xdotool search --onlyvisible --class zlkqvxv 2>/dev/null); do
    [ "$window" = "$main" ] || [ "$(name_of "$window")" != "$1" ] ||
      xdotool windowactivate "$window"
  done
  dialog_is_front "$1"
}

# expect_machine NAME [ROWS]: opened by the box. Keys that came before the window took any are typed again.
expect_machine() {
  tries=0
  must "a machine is open" machine_opens "$1"
  # The caption changes first; keys are refused until the log is read.
  must "its log is listed" shows_rows "${2:-200}"
}
machine_opens() {
  machine_is_open "$1" && return
  [ $((tries % 40)) -ne 0 ] || ! main_is_front || open_machine "$1"
  tries=$((tries + 1))
  machine_is_open "$1"
}
