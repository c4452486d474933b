# shellcheck shell=sh
# A screen of its own, and what a test does on it: keys, clicks, and looking until something is so.
# shellcheck disable=SC2154,SC2034  # folder and shots are the sourcing script's; so is what is set

passed=0
failed=0

# wait_until COMMAND...: false when it is not so within a minute; much, for a machine may be busy.
# A bare comparison has its words by now, and no time changes them.
wait_until() {
  give_up_at=$(($(date +%s) + 60))
  until "$@"; do
    [ "$1" != '[' ] && [ "$(date +%s)" -lt "$give_up_at" ] || return 1
    sleep 0.1
  done
}

# check LABEL COMMAND...: waits until it is so; leaves a picture of the screen where it never is.
check() {
  label=$1
  shift
  if wait_until "$@"; then
    passed=$((passed + 1))
    return 0
  fi
  failed=$((failed + 1))
  mkdir -p "$shots"
  picture=$shots/$(basename "$0" .sh)_$(echo "$label" | tr -c 'a-zA-Z0-9\n' '_').png
  timeout 20 import -window root "$picture"
  echo "FAILED: $label ($picture)"
  return 1
}

# must LABEL COMMAND...: a check without which the rest makes no sense.
must() {
  check "$@" || exit 1
}

# Its end is as good as its number: nobody waits for a server that is not there.
display_is_known() { [ -s "$folder/display" ] || ! kill -0 "$screen" 2>/dev/null; }
windows_are_managed() {
  timeout 5 xdotool get_num_desktops >/dev/null 2>&1 || ! kill -0 "$window_manager" 2>/dev/null
}

try_screen() {
  : >"$folder/display"
  Xvfb -displayfd 3 -screen 0 1366x768x24 -nolisten tcp 3>"$folder/display" 2>"$folder/xvfb.log" &
  screen=$!
  wait_until display_is_known && [ -s "$folder/display" ] || return 1
  DISPLAY=:$(cat "$folder/display")
  export DISPLAY
  openbox --sm-disable >"$folder/openbox.log" 2>&1 &
  window_manager=$!
  wait_until windows_are_managed && kill -0 "$window_manager" 2>/dev/null
}

start_screen() {
  try_screen && return
  echo "The screen did not start:"
  cat "$folder/xvfb.log" "$folder/openbox.log" 2>/dev/null
  end_screen
  echo "A second one is tried."
  try_screen && return
  cat "$folder/xvfb.log" "$folder/openbox.log" 2>/dev/null
  echo "FAILED: there is no screen"
  exit 1
}

end_screen() {
  [ -z "${window_manager:-}" ] || kill "$window_manager" 2>/dev/null
  [ -z "${screen:-}" ] || kill "$screen" 2>/dev/null
  wait
  window_manager=
  screen=
}

# look WINDOW FORMAT: its picture to standard output. A window that has gone by then has none, and
# without a bound import would wait for somebody to choose another.
look() { timeout 10 import -window "$1" "$2:-" 2>/dev/null; }

key() { xdotool key --clearmodifiers "$@"; }
type_text() { xdotool type --delay 20 "$1"; }

# How many windows with exactly this title are on the screen.
windows_titled() { xdotool search --onlyvisible --name "^$1\$" 2>/dev/null | wc -l; }
are_titled() { [ "$(windows_titled "$1")" -eq "$2" ]; }

# By titles in any language, which xdotool's own search does not know.
name_of() { xdotool getwindowname "$1" 2>/dev/null; }
shows_window() {
  for window in $(xdotool search --onlyvisible --class zlkqvxv 2>/dev/null); do
    [ "$(name_of "$window")" != "$1" ] || return 0
  done
  return 1
}

# click_at X Y: in the main window.
click_at() { xdotool mousemove --window "$main" "$1" "$2" click 1; }

clipboard_is_empty() {
  text=$(timeout 2 xclip -selection clipboard -out 2>/dev/null) && [ -z "$text" ]
}

# copied KEYS...: what the keys bring into the clipboard; nothing while they bring nothing.
# What empties it goes on in the background and may take it only then: later than the keys, too,
# if they did not wait.
copied() {
  printf '' | xclip -selection clipboard -in >/dev/null
  wait_until clipboard_is_empty || return 1
  key "$@"
  looks=0
  until text=$(timeout 2 xclip -selection clipboard -out 2>/dev/null) && [ -n "$text" ]; do
    looks=$((looks + 1))
    [ "$looks" -lt 20 ] || return 1
    sleep 0.05
  done
  printf '%s\n' "$text" | tr -d '\r'
}

# Every row that is shown, a line each. Selects them all.
rows() {
  key ctrl+shift+a
  copied ctrl+c | tail -n +2
}
count_of_rows() { rows | wc -l; }
shows_rows() { [ "$(count_of_rows)" -eq "$1" ]; }
shows_descriptions_of() {
  rows | cut -f 1 >"$folder/shown"
  cmp -s "$folder/shown" "$1"
}
selected_row_holds() { copied ctrl+c | tail -n 1 | grep -q -- "$1"; }

# report: the counts; ends the test with its result.
report() {
  echo "$passed passed, $failed failed"
  [ "$failed" -eq 0 ]
  exit $?
}
