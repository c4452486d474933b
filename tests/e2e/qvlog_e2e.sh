#!/bin/sh
# The console companion from end to end, through real pipes, files and exit statuses.
#
#   qvlog_e2e.sh COMMAND...
#
# COMMAND is the program, with whatever runs it in front. Prints a line for every failed check and
# the counts at the end. The expected hashes are those of outputs that were read by eye; they are
# the same on every system.

if [ $# -eq 0 ]; then
  echo "usage: qvlog_e2e.sh COMMAND..." >&2
  exit 2
fi
# shellcheck source=tests/e2e/checks.sh
. "$(dirname -- "$0")/checks.sh"

# The program runs in a folder of its own, so its path must not depend on this one.
count=$#
while [ "$count" -gt 0 ]; do
  argument=$1
  shift
  case $argument in
    /*) ;;
    *) [ -e "$argument" ] && argument=$PWD/$argument ;;
  esac
  set -- "$@" "$argument"
  count=$((count - 1))
done
case $argument in
  *.exe) windows=yes ;;
  *) windows=no ;;
esac

LC_ALL=C
TZ=UTC
export LC_ALL TZ

folder=$(mktemp -d "${TMPDIR:-/tmp}/qvlog_e2e.XXXXXX") || exit 1
trap 'cd / && rm -rf "$folder"' EXIT
trap 'exit 1' HUP INT TERM
cd "$folder" || exit 1
mkdir messages data
complaints=messages/err
hash_is() { [ "$(sha256sum "$1" | cut -d ' ' -f 1)" = "$2" ]; }
is_empty() { [ ! -s "$1" ]; }
has_text() { grep -qF -- "$2" "$1"; }
lines_are() { [ "$(wc -l <"$1")" -eq "$2" ]; }
# Every line of a message begins with the program's name, or is what follows a usage mistake.
is_message() {
  [ -s "$1" ] && ! grep -v -e '^qvlog: ' -e '^Run with --help' -e '^.\{0,1\}$' "$1" >/dev/null
}

# ends NAME STATUS PROGRAM...: runs the program, leaves its streams in data/out and messages/err
# and checks its exit status and that the right stream stayed empty.
ends() {
  ends_name=$1
  expected=$2
  shift 2
  "$@" >data/out 2>messages/err
  status=$?
  check "$ends_name: exit status $status, not $expected" [ "$status" -eq "$expected" ]
  if [ "$expected" -eq 0 ]; then
    check "$ends_name: messages after a success" is_empty messages/err
  else
    check "$ends_name: no message" is_message messages/err
    check "$ends_name: a message among the data" lacks_message data/out
  fi
}
lacks_message() { ! grep -q '^qvlog: ' "$1"; }

if ! "$@" --version >data/out 2>&1; then
  echo "FAILED: the program does not start: $*"
  echo "0 passed, 1 failed"
  exit 1
fi

# ---- Samples ----

ends "sample to a file" 0 "$@" sample --entries 20 --seed 7 -o log.qvx
check "sample to a file prints nothing" is_empty data/out
check "sample of seed 7" hash_is log.qvx \
  16bc6e3e2ab1878095fefcf1c8ab76d728b5a8c9eb0eb7b4112a2ae37f08a53e
"$@" sample --entries 20 --seed 7 >piped.qvx 2>messages/err
check "sample to standard output is the same" cmp -s log.qvx piped.qvx
check "sample to standard output has no messages" is_empty messages/err
ends "large sample" 0 "$@" sample --entries 3000 --seed 42 -o large.qvx
check "sample of seed 42" hash_is large.qvx \
  e3fdcbe7d126416964c6a1826bc629cb51386e3fb4ec6c4e792e84f9c713b189
ends "empty sample" 0 "$@" sample --entries 0 -o empty.qvx
check "an empty log is its header" [ "$(cat empty.qvx)" = "Zelkor QVX Log v1.0" ]

# ---- list ----

ends "list" 0 "$@" list log.qvx
check "list bytes" hash_is data/out \
  d03a7fef401603c26dc13a53c06ff8100985a475a84f60572c55ccdde96f6583
cp data/out list.txt
"$@" list - <log.qvx >data/out 2>messages/err
check "list of standard input" cmp -s list.txt data/out
dd if=log.qvx 2>/dev/null | "$@" list - >data/out 2>messages/err
check "list of a pipe" cmp -s list.txt data/out
"$@" sample --entries 20 --seed 7 | "$@" list - >data/out 2>messages/err
check "list of a sample's pipe" cmp -s list.txt data/out
ends "list of a log and a pipe" 0 "$@" list --no-header log.qvx - <piped.qvx
check "list of a log and a pipe has all lines" lines_are data/out 40
ends "list of an empty log" 0 "$@" list empty.qvx
check "list of an empty log is a heading" lines_are data/out 1
ends "list, sorted and filtered" 0 "$@" list --severity caution --since 2026-01-01 \
  --until 2026-11-17 --sort number:desc --no-header log.qvx
check "list, sorted and filtered, bytes" hash_is data/out \
  94ea3831cd1f257a41508f74d4ab23ca3de55e1b81e07f4a7cbd1e903e5b5ddb
ends "list of a large log, sorted" 0 "$@" list --sort description large.qvx
check "list of a large log, sorted, bytes" hash_is data/out \
  b2f061bf97e58b7e4e47a4515a87c1622b13f6609dd0906d0205f4db9b55c18b

# A reader that has seen enough closes the pipe; that is no mistake of anybody's.
"$@" list large.qvx large.qvx large.qvx 2>messages/err | head -n 2 >data/out
check "list | head prints" lines_are data/out 2
check "list | head ends quietly" is_empty messages/err

# A closed standard stream is nobody's file: what is opened next must not take its place.
# Wine itself cannot start without them.
if [ "$windows" = no ]; then
  "$@" export -o closed.csv log.qvx missing.qvx >&- 2>&-
  check "messages to a closed stream stay out of the output" lacks_message closed.csv
  "$@" export -o open.csv log.qvx missing.qvx 2>messages/err
  check "a closed stream changes nothing else" cmp -s closed.csv open.csv
fi

# ---- info, show ----

ends "info" 0 "$@" info log.qvx
check "info bytes" hash_is data/out \
  621154393929704862724d423cf799274f2e15a593b5b76335451ee113e77ac4
ends "info of a large log" 0 "$@" info large.qvx
check "info of a large log, bytes" hash_is data/out \
  fb61844dceb0b621516bb264c14812785fa1e47ee9eb94adbfc51cc7574aa427
(cat large.qvx && tail -c 1024 log.qvx) | "$@" info - >data/out 2>messages/err
check "info notices an older log's tail" has_text data/out \
  "First: entry 19 follows entry 3000 at position 3001"
ends "show" 0 "$@" show 3 log.qvx
check "show bytes" hash_is data/out \
  ce92bc67a61d538bb9e009d9706e1143d7d168a2700f9bfe479b8b9d68fc41f1
ends "show of a number that no entry has" 1 "$@" show 99 log.qvx
check "show of a number that no entry has prints nothing" is_empty data/out

# ---- export ----

ends "export csv" 0 "$@" export --format csv --machine SERVER1 large.qvx
check "csv bytes" hash_is data/out \
  e652231b36f79d095c3c87169b1e378b2c9883783064317e37f5bee03a202e89
cp data/out large.csv
ends "export csv to a file" 0 "$@" export --machine SERVER1 -o file.csv large.qvx
check "csv in a file is the same" cmp -s large.csv file.csv
"$@" export --machine SERVER1 -o - - <large.qvx >data/out 2>messages/err
check "csv from standard input to standard output is the same" cmp -s large.csv data/out
"$@" export --machine SERVER1 -o file.csv log.qvx >data/out 2>messages/err
check "csv over a longer file succeeds" [ $? -eq 0 ]
check "csv over a longer file warns" has_text messages/err "warning: 'file.csv' was longer"
check "csv over a longer file keeps its length" \
  [ "$(wc -c <file.csv)" -eq "$(wc -c <large.csv)" ]
ends "export strict-csv" 0 "$@" export --format strict-csv large.qvx
check "strict-csv bytes" hash_is data/out \
  bdcae27e64ddd560478eb0f25f0f53ac0793b31aff2fd300d6c21f322b5b8d93
ends "export jsonl" 0 "$@" export --format jsonl large.qvx
check "jsonl has a line an entry" lines_are data/out 3000
cp data/out large.jsonl
ends "export report" 0 "$@" export --format report log.qvx
check "report bytes" hash_is data/out \
  81fe305635f404d37a97d1518b8cfc382f79c8f6848b773b0a7aeaa3ec89e1b0
ends "export report of a machine" 0 "$@" export --format report --machine SERVER1 empty.qvx
check "report of a machine has a head" lines_are data/out 2
ends "export jsonl over a longer file" 0 "$@" export --format jsonl -o file.csv log.qvx
check "jsonl replaces the file" lines_are file.csv 20

# ---- describe ----

sed -n 's/.*"data":"\([0-9a-f]*\)".*/\1/p' large.jsonl >data.hex
check "jsonl holds the data of every entry" lines_are data.hex 3000
# A record is its first 28 bytes and the data; a file's record has as many zeros behind it.
od -An -v -tx1 -w512 -j19 large.qvx | tr -d ' ' | cut -c 1-512 >large.hex
ends "describe" 0 "$@" describe <large.hex
check "describe bytes" hash_is data/out \
  f8deef24455cfdb4aedcb86a9dd3732abfbe923cd1a85f26a5018e2dd7807a3c
check "describe has a line an entry" lines_are data/out 3000
sed 's/$/\r/' large.hex | "$@" describe >data/crlf 2>messages/err
check "describe takes CR LF" cmp -s data/out data/crlf
(head -n 1 large.hex && echo nonsense && head -n 2 large.hex | tail -n 1) >mixed.hex
ends "describe with a bad line" 1 "$@" describe <mixed.hex
check "describe with a bad line describes the others" lines_are data/out 2
check "describe with a bad line names it" has_text messages/err "line 2"

# ---- Mistakes ----

ends "no command" 2 "$@"
ends "unknown command" 2 "$@" frobnicate
ends "no file" 2 "$@" list
ends "unknown option" 2 "$@" list --frobnicate log.qvx
ends "unknown class" 2 "$@" list --class Toaster log.qvx
ends "unknown sort" 2 "$@" list --sort colour log.qvx
ends "impossible date" 2 "$@" list --since 2026-02-30 log.qvx
ends "help" 0 "$@" --help
ends "help of a command" 0 "$@" export --help
ends "version" 0 "$@" --version
ends "missing file" 1 "$@" list missing.qvx
check "missing file prints nothing" is_empty data/out
check "missing file is named" has_text messages/err missing.qvx
ends "one missing file of three" 1 "$@" list log.qvx missing.qvx log.qvx
check "one missing file of three lists the others" lines_are data/out 41
ends "a folder as input" 1 "$@" list .
check "a folder as input prints nothing" is_empty data/out
ends "a text as input" 1 "$@" info large.csv
head -c 18 log.qvx >short.qvx
ends "a cut header" 1 "$@" list short.qvx
head -c 1200 log.qvx >cut.qvx
ends "a cut record" 0 "$@" list --no-header cut.qvx
check "a cut record is left out" lines_are data/out 2
echo precious >old.csv
ends "export of a missing file" 1 "$@" export --format jsonl -o old.csv missing.qvx
check "export of a missing file leaves the output alone" [ "$(cat old.csv)" = precious ]
ends "export into a missing folder" 1 "$@" export -o missing/out.csv log.qvx
cp log.qvx inout.qvx
ends "export over its own input" 1 "$@" export --format jsonl -o inout.qvx inout.qvx
check "export over its own input leaves it alone" cmp -s log.qvx inout.qvx

# ---- Names of files ----

log=$(printf 'caf\303\251 \346\227\245\346\234\254.qvx')
cp log.qvx "$log"
ends "non-ASCII name" 0 "$@" list "$log"
check "non-ASCII name lists" cmp -s list.txt data/out
ends "info of a non-ASCII name" 0 "$@" info "$log"
check "info prints the name" [ "$(head -n 1 data/out | tr -d '\r')" = "$log" ]
output=$(printf 'r\303\251sum\303\251.csv')
ends "non-ASCII output" 0 "$@" export -o "$output" "$log"
check "non-ASCII output is written" [ -s "$output" ]
absent=$(printf 'absent \303\244.qvx')
ends "missing non-ASCII name" 1 "$@" list "$absent"
check "missing non-ASCII name is named" has_text messages/err "$absent"
cp log.qvx 'a name.qvx'
ends "name with a blank" 0 "$@" list 'a name.qvx'
cp log.qvx '[a,b]'
ends "name in brackets" 0 "$@" list './[a,b]'
cp log.qvx info
ends "name of a command" 0 "$@" list info
cp log.qvx ./-h
ends "name with a hyphen" 0 "$@" list -- -h
check "name with a hyphen lists" cmp -s list.txt data/out
ends "absolute name" 0 "$@" list "$folder/log.qvx"
check "absolute name lists" cmp -s list.txt data/out

# ---- A full device, which only POSIX systems have ----

if [ "$windows" = no ] && [ -c /dev/full ]; then
  for command in "list log.qvx" "info log.qvx" "show 3 log.qvx" "export log.qvx" "sample" "--help"; do
    # shellcheck disable=SC2086 # the words of a command
    "$@" $command >/dev/full 2>messages/err
    status=$?
    check "$command to a full device: exit status $status" [ "$status" -eq 1 ]
    check "$command to a full device: no message" is_message messages/err
  done
  "$@" describe <large.hex >/dev/full 2>messages/err
  check "describe to a full device" [ $? -eq 1 ]
  ends "export to a full device by name" 1 "$@" export -o /dev/full log.qvx
  ends "sample to a full device by name" 1 "$@" sample -o /dev/full
fi

# ---- A log that memory cannot hold; sanitizers need more room than the limit leaves ----

if [ "$windows" = no ] && sh -c 'ulimit -v 200000; "$@"; exit' sh "$@" --version >/dev/null 2>&1; then
  "$@" sample --entries 600000 -o large.qvx
  (ulimit -v 200000 && "$@" list --sort count large.qvx) >data/out 2>messages/err
  check "sort of a log too large" [ $? -eq 1 ]
  check "sort of a log too large: no message" has_text messages/err "too large"
  (ulimit -v 200000 && "$@" list large.qvx) >data/out 2>messages/err
  check "list of a log too large to sort" [ $? -eq 0 ]
  rm -f large.qvx
fi

all_passed
