#!/bin/sh
# Batch mode from end to end: the program, a live service, a real pipe with NTLM, a real spooler.
# Both systems are held against the same run logs; only times and line ends may differ.
#
#   batch_e2e.sh linux|windows FOLDER_OF_PROGRAMS
#
# Prints a line for every failed check and the counts at the end. Wants a spooler (with_spooler)
# and, for the Windows programs, somebody logged on (wine_logon).
set -u
if [ $# -ne 2 ]; then
  echo "usage: batch_e2e.sh linux|windows FOLDER_OF_PROGRAMS" >&2
  exit 2
fi
# shellcheck source=tests/e2e/checks.sh
. "$(dirname -- "$0")/checks.sh"
system=$1
programs=$(cd "$2" && pwd) || exit 2
root=$(cd "$(dirname "$0")/../.." && pwd)
# A file system of this script's own that is small enough to be full.
if [ -z "${QVL_E2E_FULL_DISK:-}" ]; then
  for how in "-m" "-rm"; do
    # shellcheck disable=SC2086
    if unshare $how true 2>/dev/null; then
      # Wine's server would go on looking at files from outside.
      [ "$system" = linux ] ||
        WINEPREFIX=${QVL_WINEPREFIX:-$root/build/wineprefix} timeout 60 wineserver -w
      QVL_E2E_FULL_DISK=mount exec unshare $how --propagation private "$0" "$@"
    fi
  done
  export QVL_E2E_FULL_DISK=device
fi

LC_ALL=C.UTF-8
TZ=UTC
unset LC_MESSAGES LANGUAGE
LANG=C
export LC_ALL TZ LANG
folder=$(mktemp -d "${TMPDIR:-/tmp}/qvl_batch.XXXXXX") || exit 1
mkdir "$folder/work"
cd "$folder/work" || exit 1
# shellcheck source=tests/e2e/batch_service.sh
. "$root/tests/e2e/batch_service.sh"
trap 'cd / && end_service; empty_disk; rm -rf "$folder"' EXIT
trap 'exit 1' HUP INT TERM

# ---- What the checks are made of ----

# batch NAME STATUS SWITCH...: runs the program and checks its exit status and that it is silent.
batch() {
  name=$1
  expected=$2
  shift 2
  "$@" </dev/null >"$folder/out" 2>&1
  status=$?
  check "$name: exit status $status, not $expected" [ "$status" -eq "$expected" ]
  check "$name: something was printed: $(head -n 3 "$folder/out")" [ ! -s "$folder/out" ]
}

# runs NAME STATUS SWITCH...: the same for the program itself, in a new folder.
runs() {
  runs_name=$1
  runs_status=$2
  shift 2
  fresh_folder
  batch "$runs_name" "$runs_status" run_program "$@"
}

fresh_folder() {
  cd / && rm -rf "$folder/work" && mkdir "$folder/work" && cd "$folder/work" || exit 1
}

# What a run log says on every system: its times and the program's path are left out.
normalised() {
  sed -e 's/\r$//' \
    -e 's/^[A-Z][a-z]*day, [A-Z][a-z]* [0-9][0-9], [0-9]\{4\} at [01][0-9]:[0-5][0-9] [AP]M$/TIME/' \
    -e 's/^   Executing: .*zlkqvxv[^ ]* /   Executing: zlkqvxv /' "$1"
}

# log_is NAME FILE: the run log is standard input between the head and the separator.
log_is() {
  log_name=$1
  log_file=$2
  { printf 'Korvath Quarvel Log Viewer Log - LOCALHOST\nTIME\n' && cat && printf '  \n'; } >"$folder/expected"
  normalised "$log_file" | sed -e '/^   Executing: /d' >"$folder/actual"
  if ! cmp -s "$folder/expected" "$folder/actual"; then
    diff -u "$folder/expected" "$folder/actual"
    check "$log_name: the run log" false
  else
    check "$log_name: the run log" true
  fi
  check "$log_name: line ends" line_ends_are_the_systems "$log_file"
}

line_ends_are_the_systems() {
  total=$(grep -c '' "$1")
  carriage=$(grep -c "$(printf '\r')\$" "$1")
  case $system in
    windows) [ "$carriage" -eq "$total" ] ;;
    *) [ "$carriage" -eq 0 ] ;;
  esac
}

# A count that cannot be had is told with everything the program said, and asked for once more:
# under load Wine has been seen to start a program that said nothing at all.
entries_in() {
  for try in 1 2; do
    qvlog info "$1" >"$folder/info" 2>&1
    status=$?
    count=$(tr -d '\r' <"$folder/info" | sed -n 's/^ *Entries  *//p')
    [ -z "$count" ] || break
    echo "qvlog info $1, try $try: status $status, and said: '$(cat "$folder/info")'" >&2
  done
  echo "$count"
}
has_entries() {
  found=$(entries_in "$1")
  [ "$found" = "$2" ] || echo "$1 has '$found' entries, not $2" >&2
  [ "$found" = "$2" ]
}
size_is() { [ "$(stat -c %s "$1")" -eq "$2" ]; }
# The service's log as it stands, read once more.
log_on_machine() {
  rm -f "$folder/now.qvx"
  qvlog read -o "$folder/now.qvx" localhost 2>"$folder/err" || cat "$folder/err"
}
listed() { qvlog list "$1" | grep -qF -- "$2"; }
# The same entries: a saved file's padding may differ.
same_entries() {
  qvlog export --format jsonl "$1" >"$folder/entries1" &&
    qvlog export --format jsonl "$2" >"$folder/entries2" &&
    cmp -s "$folder/entries1" "$folder/entries2"
}
same_lines() {
  tr -d '\r' <"$1" >"$folder/lines1"
  tr -d '\r' <"$2" >"$folder/lines2"
  cmp -s "$folder/lines1" "$folder/lines2"
}
holds_entries() { log_on_machine && has_entries "$folder/now.qvx" "$1"; }

connected='   Connecting to LOCALHOST ...
   Connected to LOCALHOST.'

# ---- The whole job ----

demo=$root/samples/demo.qvx
demo_entries=$(entries_in "$demo")
serve "$demo"
runs "the whole job" 0 /m:localhost /save:a /export:b /p:c /p /note:checked /clear
log_is "the whole job" zlkqvxv.log <<EOF
$connected
   Successfully saved QVX data to file a.qvx
   Successfully exported QVX data to file b.csv
   Successfully wrote output to file 'c.txt'.
   Successfully printed output to the default printer.
   Successfully cleared all entries from the Quarvel Log.
   Successfully logged maintenance note to the Quarvel Log.
   Finished!
EOF
check "the command line stands in the run log" grep -q \
  '^   Executing: .*zlkqvxv.* /m:localhost /save:a /export:b /p:c /p /note:checked /clear' zlkqvxv.log
check "a.qvx has the demo's entries" has_entries a.qvx "$demo_entries"
check "a.qvx is the demo log" same_entries a.qvx "$demo"
check "b.csv has a title, a heading and a line an entry" [ "$(grep -c '' b.csv)" -eq "$((demo_entries + 2))" ]
check "b.csv ends its lines as everywhere" [ "$(grep -c "$(printf '\r')\$" b.csv)" -eq "$((demo_entries + 2))" ]
qvlog export --machine LOCALHOST "$demo" >"$folder/export.csv"
check "b.csv is the export of the demo log" same_lines b.csv "$folder/export.csv"
qvlog export --format report --machine LOCALHOST "$demo" | tail -n +3 >"$folder/report.txt"
tail -n +3 c.txt >"$folder/report_entries.txt"
check "c.txt is the report of the demo log" same_lines "$folder/report_entries.txt" "$folder/report.txt"
check "c.txt has the system's line ends" line_ends_are_the_systems c.txt
check "the pages reached the spooler" printed_pages_hold 'Korvath Quarvel Log Viewer - LOCALHOST' 'Page 1' \
  'Memory Added (Size 32768 MB)'
check "a second read shows two entries" holds_entries 2
check "one is the cleared log, with the user's name" \
  listed "$folder/now.qvx" "$(id -un)"
check "the other is the note" listed "$folder/now.qvx" checked

# ---- Grammar ----

serve "$demo"
runs "mistakes" 1 /m:localhost /save: plain /x /P: /note: /clear
log_is "mistakes" zlkqvxv.log <<'EOF'
   Unknown command '/save:'. Please view the helpfile on using the command-line arguments.
   Unknown command 'plain'. Please view the helpfile on using the command-line arguments.
   Unknown command '/x'. Please view the helpfile on using the command-line arguments.
   Unknown command '/P:'. Please view the helpfile on using the command-line arguments.
   Unknown command '/note:'. Please view the helpfile on using the command-line arguments.
   Did nothing!
EOF
check "mistakes change nothing" holds_entries "$demo_entries"

runs "only a slash" 1 / /m:localhost
log_is "only a slash" zlkqvxv.log <<'EOF'
   Unknown command '/'. Please view the helpfile on using the command-line arguments.
   Did nothing!
EOF

runs "/ackalerts alone" 0 /ackalerts '/m:\\localhost' -F:other
log_is "/ackalerts alone" other.log <<EOF
$connected
   Finished!
EOF

runs "two runs" 0 -M:localhost -Save:log.v1 /P:twice /EXPORT:one
batch "two runs: the second" 0 run_program /m:localhost /p:twice
check "two runs: the name with a dot stays" has_entries log.v1 "$demo_entries"
check "two runs: one run log" [ "$(grep -c 'Finished!' zlkqvxv.log)" -eq 2 ]
check "two runs: two reports in one file" [ "$(grep -c ' - LOCALHOST' twice.txt)" -eq 2 ]

runs "repeated switches" 0 /m:localhost /save:a /p:c /save:b /ackalertsnow /m:LocalHost
log_is "repeated switches" zlkqvxv.log <<EOF
$connected
   Successfully saved QVX data to file a.qvx
   Successfully saved QVX data to file b.qvx
   Successfully wrote output to file 'c.txt'.
   Finished!
EOF

# An older, longer export keeps its tail; an older save and its tail are gone.
fresh_folder
seq 100000 >b.csv
seq 1000000 >a.qvx
size=$(stat -c %s b.csv)
batch "older files" 0 run_program /m:localhost /save:a /export:b
check "older files: the export's tail" size_is b.csv "$size"
check "older files: the save" same_entries a.qvx "$demo"

note227=$(printf '%227s' '' | tr ' ' n)
runs "a note of 227 characters and one of 228" 2 /m:localhost "/note:$note227" "/note:${note227}x"
log_is "a note of 227 characters and one of 228" zlkqvxv.log <<EOF
$connected
   Successfully logged maintenance note to the Quarvel Log.
   Unable to write maintenance note to the Quarvel Log - note is too long.
   Finished!
EOF
log_on_machine
check "a note of 227 characters arrives whole" listed "$folder/now.qvx" "$note227"

# ---- Failures of the machine ----

serve "$demo" --die-in-call 1
runs "the service dies in its first call" 1 /m:localhost /save:a /clear
log_is "the service dies in its first call" zlkqvxv.log <<EOF
   Connecting to LOCALHOST ...
   $call_failed
   Did nothing!
EOF
runs "no service" 1 /m:localhost /save:a /clear
log_is "no service" zlkqvxv.log <<'EOF'
   Connecting to LOCALHOST ...
   The requested machine is not running the Korvath Remote Monitor service, or it can't be found on the network.
   Did nothing!
EOF
check "no service: no file" [ ! -e a.qvx ]
end_service
runs "no server at all" 1 /m:localhost /save:a
check "no server at all: says the same" grep -q 'is not running the Korvath Remote Monitor service, or' zlkqvxv.log

serve "$demo" --interface-version 1.0
runs "another version" 1 /m:localhost /save:a
log_is "another version" zlkqvxv.log <<'EOF'
   Connecting to LOCALHOST ...
   The requested machine is running an incompatible version of the Korvath Remote Monitor service.
   Did nothing!
EOF

serve "$demo"
fresh_folder
batch "wrong password" 1 with_wrong_password run_program /m:localhost /save:a
log_is "wrong password" zlkqvxv.log <<'EOF'
   Connecting to LOCALHOST ...
   You don't have the required privileges to access the requested machine.
   Did nothing!
EOF

serve "$demo" --not-administrator
runs "not an administrator" 1 /m:localhost /save:a
log_is "not an administrator" zlkqvxv.log <<EOF
$connected
   You do not have administrator privileges on this machine.
   Did nothing!
EOF
check "not an administrator: no file" [ ! -e a.qvx ]

serve "$demo" --no-log
runs "no log" 1 /m:localhost /save:a
log_is "no log" zlkqvxv.log <<EOF
$connected
   This machine does not have an Quarvel Log
   Did nothing!
EOF

# Calls 1 and 2 ask for the user's rights and the log's presence; the first read is call 3.
serve "$demo" --fail-call 2=1726
runs "presence fails" 1 /m:localhost /save:a
log_is "presence fails" zlkqvxv.log <<EOF
$connected
   $call_failed
   Did nothing!
EOF

serve "$demo" --fail-call 3=0xE0000002
runs "the first read fails" 1 /m:localhost /save:a /clear
log_is "the first read fails" zlkqvxv.log <<EOF
$connected
   Error: The System Management driver is not detected.
EOF
check "the first read fails: no file" [ ! -e a.qvx ]

serve "$demo" --no-driver
runs "no driver" 1 /m:localhost /save:a
check "no driver: says so" grep -q 'Error: The System Management driver is not detected.' zlkqvxv.log

qvlog sample --entries 10 --seed 5 -o "$folder/ten.qvx"
third=$(qvlog list --no-header "$folder/ten.qvx" | awk 'NR == 2 { print $1 + 1 }')
serve "$folder/ten.qvx" --fail-entry "$third=1117"
runs "entry 3 of 10 fails" 2 /m:localhost /save:a
log_is "entry 3 of 10 fails" zlkqvxv.log <<EOF
$connected
   Successfully saved QVX data to file a.qvx
   Finished!
EOF
check "entry 3 of 10 fails: two are kept" has_entries a.qvx 2

serve "$folder/ten.qvx" --die-in-call 6
runs "the service dies in the middle" 2 /m:localhost /save:a /note:after
log_is "the service dies in the middle" zlkqvxv.log <<EOF
$connected
   Successfully saved QVX data to file a.qvx
   The requested machine is not running the Korvath Remote Monitor service, or it can't be found on the network.
   Finished!
EOF
check "the service dies in the middle: three are kept" has_entries a.qvx 3

serve "$folder/ten.qvx" --sparse 1000
runs "sparse numbers" 0 /m:localhost /save:a
check "sparse numbers: all ten" has_entries a.qvx 10

serve "$folder/ten.qvx" --number-falls-back 4
runs "a number falls back" 2 /m:localhost /clear /save:a
check "a number falls back: the run log says so" grep -q \
  '^   Reading ended early: the machine delivered entry [0-9]* where entry [0-9]* or a later one was due\.' zlkqvxv.log
check "a number falls back: nothing is cleared" grep -q \
  '^   Unable to clear the log - it could not be read to its end' zlkqvxv.log
check "a number falls back: what came is kept" [ "$(entries_in a.qvx)" -ge 3 ]

serve "$folder/ten.qvx" --refuse-clear --refuse-note
runs "refusals" 2 /m:localhost /clear /note:no
log_is "refusals" zlkqvxv.log <<EOF
$connected
   Unable to clear the entries from the Quarvel Log.
   Unable to log maintenance note to the Quarvel Log.
   Finished!
EOF

qvlog sample --entries 0 -o "$folder/none.qvx"
serve "$folder/none.qvx"
runs "an empty log" 0 /m:localhost /save:a /p:c /export:b
check "an empty log: nothing but the header" size_is a.qvx 19
check "an empty log: nothing but the head" [ "$(grep -c '' c.txt)" -eq 2 ]
check "an empty log: title and heading" [ "$(grep -c '' b.csv)" -eq 2 ]

# ---- Failures of this computer ----

serve "$folder/ten.qvx"
fresh_folder
full_disk full
batch "a full disk" 2 run_program /m:localhost "/save:$full_save" /clear
log_is "a full disk" zlkqvxv.log <<EOF
$connected
   Failure saving QVX data to file $full_save
   Unable to clear the log - attempt(s) to save the log first have failed
   Finished!
EOF
check "a full disk: nothing is cleared" holds_entries 10
batch "a full disk, everything" 2 run_program /m:localhost /f:all.log "/export:$full_save" "/p:$full_save" \
  /save:missing/a "/export:missing/b" /p:missing/c /clear
log_is "a full disk, everything" all.log <<EOF
$connected
   Failure saving QVX data to file missing/a.qvx
   Failure exporting QVX data to file $full_save
   Failure exporting QVX data to file missing/b.csv
   Couldn't write file '$full_save'.
   Couldn't open file 'missing/c.txt'.
   Unable to clear the log - attempt(s) to save the log first have failed
   Finished!
EOF
check "a full disk, everything: nothing is cleared" holds_entries 10

runs "no run log" 3 /m:localhost /f:missing/run.log /save:a /clear
check "no run log: nothing is written" [ -z "$(ls)" ]
check "no run log: nothing is cleared" holds_entries 10

# Another program holds a file: a second run of this one, halted while its run log is open.
serve "$folder/ten.qvx" --delay 200
fresh_folder
start_program /m:localhost /f:held.qvx
holder=$!
tries=0
while [ ! -s held.qvx ] && [ "$tries" -lt 200 ]; do
  tries=$((tries + 1))
  sleep 0.05
done
kill -STOP "$holder"
batch "a run log in use" 3 run_program /m:localhost /f:held.qvx /clear
batch "an output in use" 2 run_program /m:nowhere.invalid /m:localhost /save:held.qvx /clear
kill -CONT "$holder"
wait "$holder"
check "an output in use: the holder ends well" [ $? -eq 0 ]
check "an output in use: says so" grep -q '^   Failure saving QVX data to file held.qvx' zlkqvxv.log
check "an output in use: the holder's file is whole" [ "$(grep -c 'Finished!' held.qvx)" -eq 1 ]
check "an output in use: nothing is cleared" grep -q '^   Unable to clear the log' zlkqvxv.log

# A clear without any copy asked for.
serve "$folder/ten.qvx"
runs "clear alone" 0 /m:localhost /clearall
log_is "clear alone" zlkqvxv.log <<EOF
$connected
   Successfully cleared all entries from the Quarvel Log.
   Finished!
EOF
check "clear alone: one entry tells" holds_entries 1

fresh_folder
batch "no printer" 2 without_printer run_program /m:localhost /p /clear
log_is "no printer" zlkqvxv.log <<EOF
$connected
   No default printer could be found.
   Unable to clear the log - attempt(s) to save the log first have failed
   Finished!
EOF

# ---- What only one system has ----

if [ "$system" = linux ]; then
  serve "$folder/ten.qvx" --delay 20000
  fresh_folder
  batch "a silent service" 1 with_little_patience run_program /m:localhost
  log_is "a silent service" zlkqvxv.log <<'EOF'
   Connecting to LOCALHOST ...
   The requested machine is not running the Korvath Remote Monitor service, or it can't be found on the network.
   Did nothing!
EOF
  serve "$folder/ten.qvx"
  chmod 644 "$QVL_CREDENTIALS"
  runs "a password that others can read" 1 /m:localhost
  check "a password that others can read: refused" grep -q \
    "^   You don't have the required privileges to access the requested machine\\." zlkqvxv.log
  chmod 600 "$QVL_CREDENTIALS"
fi

all_passed
