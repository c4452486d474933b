#!/bin/sh
# What the Windows program registers for log files, and that an uninstaller takes it away again.
#
#   file_type_test.sh FOLDER_OF_PROGRAMS [FOLDER_OF_PICTURES]
#
# Prints a line for every failed check and the counts at the end. Wants what tests/gui/viewer.sh
# wants, and makensis.
set -u
if [ $# -lt 1 ]; then
  echo "usage: file_type_test.sh FOLDER_OF_PROGRAMS [FOLDER_OF_PICTURES]" >&2
  exit 2
fi
programs=$(cd "$1" && pwd) || exit 2
root=$(cd "$(dirname "$0")/../.." && pwd)
shots=${2:-$programs/../gui_failures}
unset LC_MESSAGES LANGUAGE
LC_ALL=C.UTF-8 LANG=C.UTF-8 TZ=UTC
export LC_ALL LANG TZ
wine_run=$root/cmake/wine-run
folder=$(mktemp -d "${TMPDIR:-/tmp}/qvl_file_type.XXXXXX") || exit 1
cd "$folder" || exit 1

# shellcheck source=tests/gui/screen.sh
. "$root/tests/gui/screen.sh"
viewer=
end_session() { WINEPREFIX=${QVL_WINEPREFIX:-$root/build/wineprefix} timeout 60 wineserver -w; }
finish() {
  cd /
  forget
  [ -z "$viewer" ] || ! kill -0 "$viewer" 2>/dev/null || kill "$viewer"
  end_session
  end_screen
  rm -rf "$folder"
}
trap finish EXIT
trap 'exit 1' HUP INT TERM

# equals LABEL EXPECTED ACTUAL
equals() {
  if [ "$2" = "$3" ]; then
    passed=$((passed + 1))
  else
    failed=$((failed + 1))
    printf 'FAILED: %s\n  expected: %s\n  actual:   %s\n' "$1" "$2" "$3"
  fi
}

classes='HKCU\Software\Classes'
classes_of_everybody='HKLM\Software\Classes'
# text_of KEY: its unnamed text; nothing where there is none.
text_of() {
  "$wine_run" reg query "$classes\\$1" /ve 2>/dev/null | tr -d '\r' | sed -n 's/.*REG_SZ *//p'
}
forget() {
  for root_key in "$classes" "$classes_of_everybody"; do
    "$wine_run" reg delete "$root_key\\.qvx" /f
    "$wine_run" reg delete "$root_key\\Zlkqvxv.Document" /f
  done >/dev/null 2>&1
}
# Ends at once; what it says is in a run log that nobody reads.
start_program() { "$wine_run" "$programs/zlkqvxv.exe" /bogus; }
registered() {
  equals "$1: the type's name" 'Zlkqvxv Document' "$(text_of Zlkqvxv.Document)"
  equals "$1: the type's icon" "\"$program\",1" "$(text_of 'Zlkqvxv.Document\DefaultIcon')"
  equals "$1: what opens a log" "\"$program\" \"%1\"" \
    "$(text_of 'Zlkqvxv.Document\shell\open\command')"
}

cat >uninstall.nsi <<END
Unicode true
Target amd64-unicode
!include LogicLib.nsh
!include "$root/packaging/windows/file_type.nsh"
OutFile uninstall.exe
SilentInstall silent
RequestExecutionLevel user
Section
  !insertmacro ForgetFileType
SectionEnd
END
makensis -V2 uninstall.nsi || exit 1
uninstall() { "$wine_run" ./uninstall.exe; }

start_screen
# What is left of a session without a screen shows nothing on this one.
end_session || exit 1
program=$("$wine_run" winepath -w "$programs/zlkqvxv.exe" | tr -d '\r')
forget
start_program
registered "a first start"
equals "the extension" Zlkqvxv.Document "$(text_of .qvx)"
equals "no print command" '' "$(text_of 'Zlkqvxv.Document\shell\print\command')"

"$wine_run" reg add "$classes\\Zlkqvxv.Document\\shell\\open\\command" /ve /d 'C:\gone.exe' /f \
  >/dev/null
start_program
registered "a program that was moved"

# ---- The shell opens a log ----

# Wine's shell looks at the classes of the machine alone, so it gets a copy of the user's there.
for key in .qvx Zlkqvxv.Document; do
  "$wine_run" reg export "$classes\\$key" class.reg /y >/dev/null
  iconv -f UTF-16 -t UTF-8 class.reg | sed 's/HKEY_CURRENT_USER/HKEY_LOCAL_MACHINE/' >copy.reg
  "$wine_run" reg import copy.reg >/dev/null 2>&1
done
title='Korvath Quarvel Log Viewer'
cp "$root/samples/demo.qvx" 'a log.qvx'
is_active() { [ "$(xdotool getactivewindow 2>/dev/null)" = "$main" ]; }
activate() {
  xdotool windowactivate "$main"
  must "the window has the keyboard" is_active
}
"$wine_run" start /unix "$folder/a log.qvx" >start.log 2>&1 &
must "the shell opens the viewer" are_titled "$title" 1
main=$(xdotool search --onlyvisible --name "^$title\$")
viewer=$(xdotool getwindowpid "$main")
activate
check "with the log" shows_rows 200

# ---- The help ----

key F1
check "F1 opens the help" are_titled "$title Help" 1
activate
key alt+F4
has_gone() { are_titled "$title" 0; }
check "the viewer ends" has_gone
check "the help has gone with it" are_titled "$title Help" 0
viewer=

# ---- Uninstalling ----

forget
start_program
uninstall
equals "the type has gone" '' "$(text_of Zlkqvxv.Document)"
equals "what opened a log has gone" '' "$(text_of 'Zlkqvxv.Document\shell\open\command')"
equals "the extension has gone" '' "$(text_of .qvx)"

"$wine_run" reg add "$classes\\.qvx" /ve /d Another.Type /f >/dev/null
start_program
registered "beside another program"
equals "another program keeps the extension" Another.Type "$(text_of .qvx)"
uninstall
equals "the type has gone again" '' "$(text_of Zlkqvxv.Document)"
equals "another program keeps the extension still" Another.Type "$(text_of .qvx)"

echo "$passed passed, $failed failed"
[ "$failed" -eq 0 ]
