#!/bin/sh
# Reading a machine with the console companion, from end to end: a real remote call to the trial
# service, and Ctrl+C on a real terminal.
#
#   qvlog_read_e2e.sh QVLOG
#
# QVLOG is the program; the trial service and the helper for remote calls stand beside it. Prints a
# line for every failed check and the counts at the end.

if [ $# -ne 1 ]; then
    echo "usage: qvlog_read_e2e.sh QVLOG" >&2
    exit 2
fi
# shellcheck source=tests/e2e/checks.sh
. "$(dirname -- "$0")/checks.sh"
qvlog=$(realpath -- "$1") || exit 2
programs=$(dirname -- "$qvlog")
root=$(CDPATH='' cd -- "$(dirname -- "$0")/../.." && pwd)
demo=$root/samples/demo.qvx

LC_ALL=C
TZ=UTC
export LC_ALL TZ
unset QVL_RPC_HELPER QVL_CALL_TIMEOUT_MS QVL_CONNECT_TIMEOUT_MS

# Not below TMPDIR: the paths of sockets are short.
folder=$(mktemp -d /tmp/qvlog_read.XXXXXX) || exit 1
QVL_TRIAL_DIR=$folder/trial
export QVL_TRIAL_DIR
service_resume() { kill -CONT "$(cut -d ' ' -f 1 "$QVL_TRIAL_DIR/run/service")"; }
service_halt() { kill -STOP "$(cut -d ' ' -f 1 "$QVL_TRIAL_DIR/run/service")"; }
cleanup() {
    [ ! -e "$QVL_TRIAL_DIR/run/service" ] || service_resume 2>/dev/null
    [ ! -d "$QVL_TRIAL_DIR" ] || "$root/trial/stop"
    cd / && rm -rf "$folder"
}
trap cleanup EXIT
trap 'exit 1' HUP INT TERM
trap '' PIPE
cd "$folder" || exit 1
complaints=err
has_text() { grep -qF -- "$2" "$1"; }
lacks_text() { ! grep -qF -- "$2" "$1"; }
is_empty() { [ ! -s "$1" ]; }
# The first COUNT records of the demo log and nothing else.
holds_entries() {
    [ "$(wc -c <"$1")" -eq $((19 + 512 * $2)) ] && cmp -s -n $((19 + 512 * $2)) "$1" "$demo"
}

# wait_for CONDITION...: for a minute at most.
wait_for() {
    steps=600
    until "$@"; do
        steps=$((steps - 1))
        [ "$steps" -gt 0 ] || return 1
        sleep 0.1
    done
}

# reads NAME STATUS ARGUMENTS...: `qvlog read` with the arguments; leaves out and err.
reads() {
    reads_name=$1
    expected=$2
    shift 2
    timeout 120 "$qvlog" read "$@" >out 2>err
    status=$?
    check "$reads_name: exit status $status, not $expected" [ "$status" -eq "$expected" ]
    [ "$expected" -ne 0 ] || check "$reads_name: a message" is_empty err
}

serves() {
    "$root/trial/restart" "$@" || exit 1
}

command -v script >/dev/null || {
    echo "FAILED: there is no script(1) to make a terminal; install: bsdutils"
    exit 1
}
environment=$("$root/trial/start" --env --programs "$programs" "$demo") || {
    echo "FAILED: the trial does not start"
    exit 1
}
eval "$environment"

# ---- A machine's log is the log that was saved ----

reads "list" 0 127.0.0.1
"$qvlog" list "$demo" >expected
check "list is that of the saved log" cmp -s expected out
reads "list of a filter and a sort" 0 --severity critical --sort updated:desc LOCALHOST
"$qvlog" list --severity critical --sort updated:desc "$demo" >expected
check "list of a filter and a sort is that of the saved log" cmp -s expected out
reads "log file" 0 -o log.qvx '\\127.0.0.1'
check "the log file is the saved log" cmp -s log.qvx "$demo"
check "a log file leaves standard output alone" is_empty out
for format in csv strict-csv jsonl report; do
    reads "$format" 0 --format "$format" 127.0.0.1
    "$qvlog" export --format "$format" --machine 127.0.0.1 "$demo" >expected
    # The report's head tells the time.
    check "$format is that of the saved log" \
        [ "$(sed '/^Date/d;2d' out)" = "$(sed '/^Date/d;2d' expected)" ]
done
timeout 60 "$qvlog" read --format qvx 127.0.0.1 2>err | "$qvlog" list --no-header - >out
check "through a pipe" [ "$(wc -l <out)" -eq 200 ]

serves --not-administrator
reads "without administrator rights" 0 -o plain.qvx 127.0.0.1
check "without administrator rights all is read" cmp -s plain.qvx "$demo"
serves --sparse 7
reads "numbers with gaps" 0 --no-header 127.0.0.1
check "numbers with gaps are all read" [ "$(wc -l <out)" -eq 200 ]

# ---- What stands in the way ----

# refused NAME TEXT: the message, and an older output that stays as it was.
refused() {
    echo precious >older.qvx
    reads "$1" 1 -o older.qvx 127.0.0.1
    check "$1: its message" has_text err "qvlog: 127.0.0.1: $2"
    check "$1: the older output" [ "$(cat older.qvx)" = precious ]
}
serves --no-log
refused "no log" "This machine does not have an Quarvel Log"
serves --no-driver
refused "no driver" "Error: The System Management driver is not detected."
serves --interface-version 1.0
refused "another version" "The requested machine is running an incompatible version"
serves --fail-call 3=5
refused "a first read that fails" "You don't have the required privileges"
serves
sed 's/smb ports = .*/smb ports = 1/' "$SMB_CONF_PATH" >closed.conf
with_service=$SMB_CONF_PATH
SMB_CONF_PATH=$folder/closed.conf
refused "no service" "The requested machine is not running the Korvath Remote Monitor service"
SMB_CONF_PATH=$with_service
with_password=$QVL_CREDENTIALS
(umask 077 && sed 's/^password.*/password = wrong/' "$QVL_CREDENTIALS" >wrong)
QVL_CREDENTIALS=$folder/wrong
refused "a wrong password" "You don't have the required privileges"
QVL_CREDENTIALS=$with_password

# ---- A reading that ends early ----

serves --die-in-call 10
reads "a service that dies" 1 -o dies.qvx 127.0.0.1
check "a service that dies: what came" holds_entries dies.qvx 7
check "a service that dies: its message" has_text err "reading ended after 7 entries: "
serves --number-falls-back 5
reads "a number that falls back" 1 --no-header 127.0.0.1
check "a number that falls back: what came" [ "$(wc -l <out)" -eq 5 ]
check "a number that falls back: its message" has_text err \
    "reading ended after 5 entries: the machine delivered entry 4 where entry 5"

# ---- A slow machine ----

# Each entry is asked for once, and its deadline is its own.
"$qvlog" sample --entries 6 --seed 1 -o six.qvx
reads_logged() { grep -c ' ReadLogEntry ' "$1"; }
"$root/trial/restart" --log six.qvx --delay 600 --log-call "$folder/slow" || exit 1
reads "a slow machine" 0 -o read.qvx 127.0.0.1
check "a slow machine: all entries" cmp -s read.qvx six.qvx
check "a slow machine: $(reads_logged slow) reads of 6 entries" [ "$(reads_logged slow)" -eq 7 ]
QVL_CALL_TIMEOUT_MS=2800
export QVL_CALL_TIMEOUT_MS
serves --delay 1500 --log-call "$folder/slower"
reads "an answer after half of the deadline" 0 -o read.qvx 127.0.0.1
check "an answer after half of the deadline: all entries" cmp -s read.qvx six.qvx
check "an answer after half of the deadline: $(reads_logged slower) reads of 6 entries" \
    [ "$(reads_logged slower)" -eq 7 ]
unset QVL_CALL_TIMEOUT_MS
"$root/trial/restart" --log "$demo" --log-call "$folder/quick" || exit 1
reads "a quick machine" 0 -o read.qvx 127.0.0.1
check "a quick machine: $(reads_logged quick) reads of 200 entries" [ "$(reads_logged quick)" -eq 201 ]

# ---- Ctrl+C on a terminal ----

# on_terminal COMMAND: begins the command; the terminal shows in screen.
on_terminal() {
    rm -f keys screen ended
    mkfifo keys
    (timeout 120 script -qefc "$1" screen <keys >/dev/null 2>&1; echo $? >ended) &
    exec 3>keys
}
press_ctrl_c() { printf '\003' >&3; } 2>/dev/null
has_ended() { [ -s ended ]; }
# Two that come too quickly one after the other are one to the system.
presses_until_end() { has_ended || { press_ctrl_c; false; }; }
screen_has() { [ -e screen ] && has_text screen "$1"; }
screen_has_echoes() { [ "$(tr '\r' '\n' <screen | grep -o '\^C' | wc -l)" -ge "$1" ]; }
# An answer that had come before the service was halted would let the reading go on, and end by the
# first Ctrl+C alone: the progress must stand still.
stands_still() {
    shown=$(tail -c 200 screen)
    sleep 1
    [ "$(tail -c 200 screen)" = "$shown" ]
}
# Waits for the end of the command; sets status.
terminal_ends() {
    wait_for has_ended
    exec 3>&-
    wait
    status=$(cat ended)
}
# How many entries the message says are kept.
kept() { sed -n 's/.*interrupted; \([0-9]*\) entr.* kept.*/\1/p' screen; }

serves --delay 20
on_terminal "'$qvlog' read -o interrupted.qvx 127.0.0.1"
check "progress on a terminal" wait_for screen_has "Reading 127.0.0.1: "
check "progress counts" wait_for screen_has "entries"
press_ctrl_c
terminal_ends
check "Ctrl+C: exit status $status, not 130" [ "$status" -eq 130 ]
check "Ctrl+C: its message" [ -n "$(kept)" ]
check "Ctrl+C keeps what came" holds_entries interrupted.qvx "$(kept)"

# The service stands still, so the call that is under way does not end.
on_terminal "'$qvlog' read --sort number:desc --no-header --format list -o sorted.txt 127.0.0.1"
check "progress of a sort" wait_for screen_has "entries"
service_halt
check "a halted service halts the progress" wait_for stands_still
press_ctrl_c
check "Ctrl+C in a call: its echo" wait_for screen_has_echoes 1
service_resume
terminal_ends
check "Ctrl+C in a call: exit status $status, not 130" [ "$status" -eq 130 ]
check "Ctrl+C in a call: what came, sorted" [ "$(wc -l <sorted.txt)" -eq "$(kept)" ]
check "Ctrl+C in a call: the last number first" \
    [ "$(sed -n '1s/^ *\([0-9]*\) .*/\1/p' sorted.txt)" -eq "$(kept)" ]

on_terminal "'$qvlog' read -o ended.qvx 127.0.0.1"
check "progress before the end" wait_for screen_has "entries"
service_halt
check "a halted service halts the progress" wait_for stands_still
press_ctrl_c
check "first Ctrl+C: its echo" wait_for screen_has_echoes 1
check "second Ctrl+C: the end" wait_for presses_until_end
terminal_ends
service_resume
check "second Ctrl+C: exit status $status, not 130" [ "$status" -eq 130 ]
check "second Ctrl+C ends at once" lacks_text screen interrupted
check "second Ctrl+C leaves whole records" \
    holds_entries ended.qvx "$((($(wc -c <ended.qvx) - 19) / 512))"

serves
on_terminal "'$qvlog' read -o whole.qvx 127.0.0.1"
terminal_ends
check "a terminal without Ctrl+C: exit status $status" [ "$status" -eq 0 ]
check "a terminal without Ctrl+C: the log" cmp -s whole.qvx "$demo"
check "a terminal without Ctrl+C: the progress line is gone" \
    [ -z "$(sed -n '/^Script/d;p' screen | tr '\r' '\n' | tail -n 1 | tr -d ' \n')" ]

all_passed
