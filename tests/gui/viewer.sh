# shellcheck shell=sh
# What every test of the window begins with: a private folder, settings and screen, and the viewer
# opened, asked and closed. Sourced with the test's own arguments:
#
#   linux|windows FOLDER_OF_PROGRAMS [FOLDER_OF_PICTURES]
#
# Wants Xvfb, openbox, xdotool, xclip, xprop and ImageMagick; for the Windows programs somebody
# logged on (wine_logon).
# shellcheck disable=SC2154,SC2034  # the files sourced here use each other's variables
if [ $# -lt 2 ]; then
  echo "usage: $0 linux|windows FOLDER_OF_PROGRAMS [FOLDER_OF_PICTURES]" >&2
  exit 2
fi
system=$1
programs=$(cd "$2" && pwd) || exit 2
root=$(cd "$(dirname "$0")/../.." && pwd)
shots=${3:-$programs/../gui_failures}
unset LC_MESSAGES LANGUAGE GTK_THEME GDK_SCALE GDK_DPI_SCALE
LC_ALL=C.UTF-8 LANG=C.UTF-8 TZ=UTC NO_AT_BRIDGE=1 GDK_BACKEND=x11
GSETTINGS_BACKEND=memory
export LC_ALL LANG TZ NO_AT_BRIDGE GDK_BACKEND GSETTINGS_BACKEND
folder=$(mktemp -d "${TMPDIR:-/tmp}/qvl_gui.XXXXXX") || exit 1
XDG_CONFIG_HOME=$folder/config
export XDG_CONFIG_HOME
mkdir "$XDG_CONFIG_HOME" "$folder/files"
cd "$folder/files" || exit 1

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
# Programs that ran without a screen must have ended: later ones would share their missing one.
[ "$system" = linux ] ||
  WINEPREFIX=${QVL_WINEPREFIX:-$root/build/wineprefix} timeout 60 wineserver -w
cp "$root/samples/demo.qvx" .

# as_path FILE: a file of the test's own folder in full, as the system writes it.
as_path() {
  case $system in
    linux) printf '%s\n' "$folder/files/$1" ;;
    windows) printf '%s\n' "Z:$folder/files/$1" | tr / '\\' ;;
  esac
}

# ---- Windows ----

# The window that gets the keys: the window manager names one before the keys go there.
active_window() {
  active=$(xdotool getactivewindow 2>/dev/null) &&
    [ "$(xdotool getwindowfocus 2>/dev/null)" = "$active" ] && echo "$active"
}
size_of_main() { xdotool getwindowgeometry "$main" | awk '/Geometry/ { print $2 }'; }
has_size() { [ "$(size_of_main)" = "$1" ]; }
has_ended() { ! kill -0 "$viewer" 2>/dev/null; }
main_is_front() {
  [ "$(active_window)" = "$main" ] && return
  # Wine tells the window manager that a window held back from input takes none, which takes the
  # keyboard from it; afterwards nobody gives it back. A user would click.
  [ "$system" = linux ] || [ "$(xdotool search --onlyvisible --class zlkqvxv 2>/dev/null)" != "$main" ] ||
    xdotool windowactivate "$main"
  return 1
}
main_is_titled() { [ "$(name_of "$main")" = "$1" ]; }

# kind_of WINDOW: "progress" for one that can only be waited for, "dialog" for any other, nothing
# for one that has gone. What can only be waited for has no way to close it (_MOTIF_WM_HINTS): GTK
# leaves out the function (the second number, 0x20); Wine has the function for every window that
# takes input, and leaves out the menu on the frame (the third number, 0x10).
kind_of() {
  # shellcheck disable=SC2046  # five numbers
  set -- $(xprop -id "$1" _MOTIF_WM_HINTS 2>&1 |
    sed 's/.* = //; s/.*not found.*/none/; s/.*no such atom.*/none/' | tr -d ,)
  case $system,$#,${1:-} in
    *,1,none) echo dialog ;;
    linux,5,*) [ $(($2 & 0x21)) -ne 0 ] && echo dialog || echo progress ;;
    windows,5,*) [ $(($3 & 0x11)) -ne 0 ] && echo dialog || echo progress ;;
  esac
}
progress_is_front() {
  front=$(active_window) && [ "$front" != "$main" ] && [ "$(kind_of "$front")" = progress ]
}

# A dialog or message that the test has not answered yet.
dialog=
dialog_is_front() {
  front=$(active_window) && [ "$front" != "$main" ] && [ "$front" != "$dialog" ] &&
    [ "$(name_of "$front")" = "${1:-$title}" ] && [ "$(kind_of "$front")" = dialog ]
}
dialog_is_back() { [ "$(active_window)" = "$dialog" ]; }

# stands_still SECONDS: two looks so far apart show the same.
stands_still() {
  before=$(look root rgb | cksum)
  sleep "$1"
  [ "$(look root rgb | cksum)" = "$before" ]
}

# expect_dialog LABEL [TITLE]: the next one, which gets the keys from then on. A window that is in
# front may still have to choose which of its controls gets them.
expect_dialog() {
  must "$1" dialog_is_front "${2:-$title}"
  dialog=$front
  must "$1 is drawn" stands_still 0.1
}
# expect_main LABEL: the main window again, and no other.
expect_main() {
  must "$1" main_is_front
  dialog=
}

# choose_ok [LEADING_KEYS...]: a key of its own on one system, the default button on the other; the
# leading keys are for where Enter means something else there.
choose_ok() {
  case $system in
    linux) key alt+o ;;
    windows) key "$@" Return ;;
  esac
}

# leave_file_dialog: asked again where GTK took Escape for the proposals below its box for the name.
another_is_active() { front=$(active_window) && [ "$front" != "$dialog" ]; }
escape_leaves_it() {
  another_is_active && return
  key Escape
  sleep 0.5
  another_is_active
}
leave_file_dialog() { must "no file is chosen" escape_leaves_it; }

# press KEYS...: a button that leaves the dialog open. Pressed by a key it acts a moment later, and
# takes no other key until then.
press() {
  key "$@"
  must "$* is done" stands_still 0.3
}

# nothing_comes_of KEYS...: whatever they open would take the keys that open the about box.
about_box_is_alone() {
  dialog_is_front && [ "$(xdotool search --onlyvisible --name "^($title.*|Save|Open|Export)\$" |
    wc -l)" -eq 2 ]
}
nothing_comes_of() {
  key "$@"
  key alt+h
  key a
  must "nothing comes of $*" about_box_is_alone
  key Escape
  expect_main "the about box has gone"
}

# ---- The viewer ----

# By its class: not every title can be searched for.
viewer_is_shown() {
  for main in $(xdotool search --onlyvisible --class zlkqvxv 2>/dev/null); do
    [ "$(name_of "$main")" != "$title" ] || return 0
  done
  return 1
}

# start_viewer ARGUMENT...: and waits for its window.
start_viewer() {
  start_program "$@" >"$folder/viewer.log" 2>&1
  viewer=$!
  must "the viewer's window" viewer_is_shown
}
# open_viewer ARGUMENT...: and waits until its window has the keyboard and shows what it was given:
# while it reads, it takes no command.
open_viewer() {
  start_viewer "$@"
  expect_main "the viewer's window has the keyboard"
  must "the viewer's window is drawn" stands_still 0.5
}
# Asked again where the window manager still had the keyboard.
closing_ends_it() {
  has_ended && return 0
  key alt+F4
  sleep 0.5
  has_ended
}
close_viewer() {
  expect_main "the window to be closed is in front"
  must "the viewer ends" closing_ends_it
  wait "$viewer"
  check "the viewer ends well" [ $? -eq 0 ]
  viewer=
  # The system's print dialog tells that there is no colour management here. GTK complains of the
  # help window's toolbar and scrollbar, which have no room before the window is laid out.
  complaints=$(grep -vE 'system bus|colord' "$folder/viewer.log" |
    grep -vE 'gtk_box_gadget_distribute.* in GtkScrollbar|Negative content .* GtkToolbar' |
    grep -E 'zlkqvxv|toolkit:|CRITICAL|WARNING|Sanitizer|runtime error')
  check "no complaint" [ -z "$complaints" ] || cat "$folder/viewer.log"
}

go_to_machine_box() {
  case $system in
    linux) key alt+m ;;
    # Wine opens the menu when Alt is let go, even behind an accelerator.
    windows) click_at 150 38 ;;
  esac
}
# open_machine NAME: by the box; what comes is the caller's to expect.
open_machine() {
  go_to_machine_box
  key ctrl+a
  type_text "$1"
  key Return
}
machine_is_open() { main_is_titled "$title - $1" && main_is_front; }

# ---- The list ----

# expect_list FILE OPTION...: the descriptions that qvlog lists, in its order.
expect_list() {
  qvlog list "$@" | tr -d '\r' |
    awk 'NR == 1 { at = index($0, "Description"); next } { print substr($0, at) }' >"$folder/wanted"
}

# Where the header stands: above the row that is selected first, found by its colour.
find_header() {
  key Home
  must "the first row is seen" selected_row_is_seen
  header_y=$((row_y - 11))
}
selected_row_is_seen() {
  row_y=$(look "$main" png |
    convert png:- -crop '160x400+130+0' +repage -scale '1x400!' -depth 8 txt:- |
    sed -n 's/^0,\([0-9]*\): (\([0-9]*\)[0-9.]*,\([0-9]*\)[0-9.]*,\([0-9]*\).*/\1 \2 \4/p' |
    awk '$3 - $2 > 50 { if (run++ == 0) first = $1; if (run == 10) { print first; exit } next }
         { run = 0 }')
  [ -n "$row_y" ]
}

# show_critical_only: the first severity that the filter dialog offers.
show_critical_only() {
  key ctrl+f
  expect_dialog "the filter dialog"
  key alt+s
  key Down
  choose_ok
  expect_main "the filter dialog has gone"
}

# ---- The service ----

calls_hold() { [ "$(grep -c -- "$1" "$folder/calls")" -ge "$2" ]; }
