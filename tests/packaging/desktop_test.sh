#!/bin/sh
# An installation, used as a desktop uses it: the type of log files, the launcher, the help.
#
#   desktop_test.sh BUILD_FOLDER [FOLDER_OF_PICTURES]
#
# Prints a line for every failed check, with a picture of the screen beside it, and the counts at
# the end. Wants what tests/gui/viewer.sh wants, desktop-file-utils, shared-mime-info and
# libglib2.0-bin and librsvg2-bin.
set -u
if [ $# -lt 1 ]; then
  echo "usage: desktop_test.sh BUILD_FOLDER [FOLDER_OF_PICTURES]" >&2
  exit 2
fi
build=$(cd "$1" && pwd) || exit 2
root=$(cd "$(dirname "$0")/../.." && pwd)
shots=${2:-$build/gui_failures}
unset LC_MESSAGES LANGUAGE XDG_CURRENT_DESKTOP
LC_ALL=C.UTF-8 LANG=C.UTF-8 TZ=UTC NO_AT_BRIDGE=1 GDK_BACKEND=x11
export LC_ALL LANG TZ NO_AT_BRIDGE GDK_BACKEND
folder=$(mktemp -d "${TMPDIR:-/tmp}/qvl_desktop.XXXXXX") || exit 1
prefix=$folder/usr
# Nothing of this user's desktop, and nothing of the system's that opens files.
XDG_CONFIG_HOME=$folder/config XDG_DATA_HOME=$folder/data XDG_DATA_DIRS=$prefix/share:/usr/share
XDG_CACHE_HOME=$folder/cache
export XDG_CONFIG_HOME XDG_DATA_HOME XDG_DATA_DIRS XDG_CACHE_HOME
mkdir "$XDG_CONFIG_HOME" "$XDG_DATA_HOME" "$XDG_CACHE_HOME" "$folder/a log"

# shellcheck source=tests/gui/screen.sh
. "$root/tests/gui/screen.sh"
viewer=
finish() {
  cd /
  [ -z "$viewer" ] || ! kill -0 "$viewer" 2>/dev/null || kill "$viewer"
  end_screen
  rm -rf "$folder"
}
trap finish EXIT
trap 'exit 1' HUP INT TERM
cd "$folder/a log" || exit 1

# now LABEL COMMAND...: a check of what does not change by waiting.
now() {
  label=$1
  shift
  if "$@"; then
    passed=$((passed + 1))
  else
    failed=$((failed + 1))
    echo "FAILED: $label"
  fi
}

installs() { cmake --install "$build" --prefix "$prefix" >"$folder/install.log"; }
now "installing" installs
for file in bin/qvlog bin/zlkqvxv libexec/quarvel-log-viewer/zlkqvxv-window \
  libexec/quarvel-log-viewer/zlkqvxv-rpc libexec/quarvel-log-viewer/zlkqvxv-print.so \
  libexec/quarvel-log-viewer/zlkqvxv.htb libexec/quarvel-log-viewer/zlkqvxv_ja.htb \
  share/man/man1/zlkqvxv.1 share/man/man1/qvlog.1; do
  now "$file is installed" [ -f "$prefix/$file" ]
done

# ---- The type of log files ----

desktop=$prefix/share/applications/zlkqvxv.desktop
now "the desktop file is valid" desktop-file-validate "$desktop"
now "the types are taken up" update-mime-database "$prefix/share/mime"
now "the launchers are taken up" update-desktop-database "$prefix/share/applications"

type=application/x-quarvel-log
type_of() { gio info -a standard::content-type "$1" | sed -n 's/.*content-type: //p'; }
is_log() { [ "$(type_of "$1")" = "$type" ]; }
is_no_log() { [ "$(type_of "$1")" != "$type" ]; }
cp "$root/samples/demo.qvx" 'demo 100%.qvx'
cp "$root/samples/demo.qvx" DEMO.QVX
cp "$root/samples/demo.qvx" 'no extension'
echo nothing >'nothing.Qvx'
printf 'Zelkor QVX Log v1.1' >'another version'
now "a log is known by its name" is_log 'demo 100%.qvx'
now "a log is known by its name in capitals" is_log DEMO.QVX
now "a log is known by its name alone" is_log nothing.Qvx
now "a log is known by its first bytes" is_log 'no extension'
now "what begins otherwise is no log" is_no_log 'another version'
opens_logs() { gio mime "$type" | grep -q '^Default.*: zlkqvxv.desktop$'; }
now "the program opens logs" opens_logs
for icon in apps/zlkqvxv mimetypes/application-x-quarvel-log; do
  now "the icon $icon can be drawn" \
    rsvg-convert "$prefix/share/icons/hicolor/scalable/$icon.svg" -o "$folder/icon.png"
done

# ---- The window ----

title='Korvath Quarvel Log Viewer'
is_active() { [ "$(xdotool getactivewindow 2>/dev/null)" = "$main" ]; }
activate() {
  xdotool windowactivate "$main"
  must "the window has the keyboard" is_active
}
# opened LABEL: waits for the window, which has the keyboard then.
opened() {
  must "$1" are_titled "$title" 1
  main=$(xdotool search --onlyvisible --name "^$title\$")
  viewer=$(xdotool getwindowpid "$main")
  activate
}
has_ended() { ! kill -0 "$viewer" 2>/dev/null; }
closed() {
  activate
  key alt+F4
  must "the viewer ends" has_ended
  viewer=
}
in_class() { xprop -id "$main" WM_CLASS | grep -q '"zlkqvxv"$'; }

start_screen
gio launch "$desktop" 'demo 100%.qvx' >"$folder/launch.log" 2>&1
opened "the launcher opens the viewer with a URI"
check "the log is listed" shows_rows 200
check "the window belongs to the launcher" in_class
closed

"$prefix/libexec/quarvel-log-viewer/zlkqvxv-window" "$PWD/DEMO.QVX" >"$folder/launch.log" 2>&1 &
opened "a launcher that hands over a path opens it too"
check "the log of the path is listed" shows_rows 200
closed

help='Help: .*'
"$prefix/bin/zlkqvxv" DEMO.QVX >"$folder/launch.log" 2>&1 &
opened "the command opens the viewer"
key F1
check "F1 opens the help" are_titled "$help" 1
activate
key F1
check "F1 again opens no second one" are_titled "$help" 1
closed
check "the help has gone with the viewer" are_titled "$help" 0

# help_in_japanese LABEL TITLE: a Japanese viewer is opened, and F1 opens the help of this title.
help_in_japanese() {
  LOCPATH=$folder/locales LC_ALL=ja_JP.UTF-8 "$prefix/bin/zlkqvxv" DEMO.QVX \
    >"$folder/launch.log" 2>&1 &
  must "a Japanese viewer" shows_window 'Korvath Quarvel ログ ビューアー'
  main=$window
  viewer=$(xdotool getwindowpid "$main")
  activate
  key F1
  check "$1" shows_window "$2"
  closed
}
mkdir "$folder/locales"
now "a Japanese locale is made" localedef -i ja_JP -f UTF-8 "$folder/locales/ja_JP.UTF-8"
help_in_japanese "the help is Japanese" 'ヘルプ: Quarvel ログ ビューアー'
rm "$prefix/libexec/quarvel-log-viewer/zlkqvxv_ja.htb"
help_in_japanese "the English help stands in for it" 'ヘルプ: Quarvel Log Viewer'

rm "$prefix/libexec/quarvel-log-viewer/zlkqvxv.htb"
"$prefix/bin/zlkqvxv" DEMO.QVX >"$folder/launch.log" 2>&1 &
opened "the viewer without its help"
key F1
must "missing help is told" are_titled "$title" 2
key Return
must "the message has gone" are_titled "$title" 1
closed

echo "$passed passed, $failed failed"
[ "$failed" -eq 0 ]
