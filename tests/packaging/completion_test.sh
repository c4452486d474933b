#!/bin/bash
# The Bash completion and the man page, held against the program's own help and messages.
#
#   completion_test.sh QVLOG
#
# Prints a line for every failed check and the counts at the end.

if [[ $# -ne 1 ]]; then
    echo "usage: completion_test.sh QVLOG" >&2
    exit 2
fi
qvlog=$(realpath -- "$1") || exit 2
packaging=$(realpath -- "$(dirname -- "${BASH_SOURCE[0]}")/../../packaging") || exit 2
# shellcheck source=packaging/qvlog.bash
source "$packaging/qvlog.bash" || exit 1

folder=$(mktemp -d "${TMPDIR:-/tmp}/completion_test.XXXXXX") || exit 1
trap 'cd / && rm -rf "$folder"' EXIT
trap 'exit 1' HUP INT TERM
cd "$folder" || exit 1
mkdir logs
touch server1.qvx 'a log.qvx' notes.txt 'part:1.qvx' logs/old.qvx

passed=0
failed=0

# check NAME EXPECTED ACTUAL
check() {
    if [[ $2 == "$3" ]]; then
        passed=$((passed + 1))
    else
        failed=$((failed + 1))
        printf 'FAILED: %s\n  expected: %s\n  actual:   %s\n' "$1" "$2" "$3"
    fi
}

# complete_words WORD...: completes the last of the words behind "qvlog"; leaves COMPREPLY.
complete_words() {
    COMP_WORDS=(qvlog "$@")
    COMP_CWORD=$#
    COMPREPLY=()
    _qvlog
}

# replies EXPECTED WORD...: EXPECTED is the replies, sorted, with "|" between.
replies() {
    local expected=$1 actual
    shift
    complete_words "$@"
    actual=$(printf '%s\n' "${COMPREPLY[@]}" | LC_ALL=C sort | paste -s -d '|')
    check "qvlog $*" "$expected" "$actual"
}

# ---- Commands and options ----

replies 'describe|export|info|list|read|sample|show' ''
replies 'list' li
replies 'list' LI
replies '' frob
replies '--help|--version' -
replies '--version' --v
replies '--severity|--since|--sort' list --s
replies '--severity' list server1.qvx --sev
replies '--help' show -
replies '--machine' export --m
replies '--entries' sample --e
replies '--no-header' read --no
replies 'list' --version l

# ---- Choices ----

replies 'Main\ Memory|Maintenance' list --class Main
replies 'Main\ Memory|Maintenance' list --class main
replies 'Main\ Memory' list --class 'Main\ '
replies 'Main Memory' list --class '"Main M'
replies 'Main Memory' list --class "'main m"
replies '\(All\)' list --class '\('
replies '(All)' list --class '"('
replies 'Main\ Memory' list --class = 'Main\ M'
replies 'UPS|Unrecoverable\ System\ Error' export --class U
replies 'Caution|Critical' list --severity C
replies 'Caution|Critical|Informational|Repaired|\(All\)' list --severity ''
replies 'Caution|Critical|Informational|Repaired|\(All\)' list --severity =
replies 'Since\ Last\ 6\ Months|Since\ Last\ Month|Since\ Last\ Week|Since\ Last\ Year' \
    list --updated 'Since\ L'
replies 'Since Yesterday' list --initial '"since y'
replies 'strict-csv' export --format s
replies 'csv|jsonl|list|qvx|report|strict-csv' read --format ''
replies 'qvx' read --format q
replies '' list --class Nothing
replies '' list --since ''
replies '' list --text ''
replies '' export --machine ''
replies '' sample --entries ''

# ---- Sorts, in the pieces that Bash makes of them ----

replies 'class|count' list --sort c
replies 'updated' list --sort upd
replies 'asc|desc' list --sort updated :
replies 'desc' list --sort updated : d
replies 'class|count' list --sort = c
replies 'asc|desc' list --sort = updated :
replies 'desc' list --sort = updated : d
replies 'server1.qvx' list --sort updated : desc s
replies 'server1.qvx' list --sort = updated : desc s
replies 'server1.qvx' list --sort updated s
# Where COMP_WORDBREAKS was changed, words come whole.
replies 'updated:desc' list --sort updated:d
replies '--sort=updated:asc|--sort=updated:desc' list --sort=updated:
replies '--class=Main\ Memory' list '--class=Main\ M'

# ---- Files ----

replies 'a log.qvx|logs|part:1.qvx|server1.qvx' list ''
replies 'a log.qvx|logs|part:1.qvx|server1.qvx' list --no-header --text x ''
replies 'a log.qvx' info 'a\ l'
replies 'a log.qvx' info '"a l'
replies 'logs/old.qvx' list logs/
replies '1.qvx' list part :
replies '' list -x n
replies '' list n
replies '' describe ''
replies '' sample ''
replies '' show ''
replies 'server1.qvx' show 3 s
replies 'server1.qvx' show 3 logs/old.qvx s
replies 'server1.qvx' list -- s
replies '' list -- --sev
replies 'a log.qvx|logs|notes.txt|part:1.qvx|server1.qvx' export -o ''
replies 'notes.txt' export --output = n
replies 'server1.qvx' export -o notes.txt s
replies '' sample -o n
replies 'server1.qvx' sample --seed 3 -o s
replies 'notes.txt' read -o n

# ---- Machines ----

printf '127.0.0.2 trial-server1 trial-server2\n' >hosts
HOSTFILE=$folder/hosts
replies 'trial-server1|trial-server2' read trial-s
replies 'trial-server2' read --format qvx -o server2.qvx trial-server2
replies '' read trial-server1 trial-s
unset HOSTFILE
rm hosts

# ---- The program's own words ----

# The man page as plain text, one long line, hyphens as they are typed.
manual=$(sed -e 's/\\-/-/g' -e 's/\\~/ /g' -e 's/\\f[A-Z]//g' -e 's/"//g' "$packaging/qvlog.1" |
    tr '\n' ' ')

# The synopsis and the examples explain nothing.
explained=${manual#*.SH COMMANDS}
explained=${explained%.SH EXAMPLES*}

# in_manual WORD: the word, not part of a longer one.
in_manual() {
    local found=no
    [[ $explained =~ (^|[^A-Za-z-])"$1"([^A-Za-z-]|$) ]] && found=yes
    check "the man page explains $1" yes "$found"
}

# help_of [COMMAND]: the program's help.
help_of() { "$qvlog" "$@" --help; }

# Long options, one a line, and the short ones beside them.
options_of() { help_of "$@" | sed -n 's/^  \(-.,\)\{0,1\}\(--[a-z-]*\) .*/\2/p'; }
short_options_of() { help_of "$@" | sed -n 's/^  \(-.\),--[a-z-]* .*/\1/p'; }

commands=$(help_of | sed -n '/^Subcommands:/,/^$/s/^  \([a-z][a-z]*\) .*/\1/p')
check "the commands of the help" 7 "$(wc -w <<<"$commands")"
complete_words ''
check "the commands of the completion" "$(sort <<<"$commands")" \
    "$(printf '%s\n' "${COMPREPLY[@]}" | sort)"

for command in '' $commands; do
    [[ -n $command ]] && in_manual "$command"
    # shellcheck disable=SC2086 # no word for the program itself
    options=$(options_of $command | LC_ALL=C sort)
    check "qvlog $command has options" yes "$([[ -n $options ]] && echo yes)"
    # shellcheck disable=SC2086
    complete_words $command --
    check "the options of qvlog $command" "$options" \
        "$(printf '%s\n' "${COMPREPLY[@]}" | LC_ALL=C sort)"
    # shellcheck disable=SC2086
    for option in $options $(short_options_of $command); do
        in_manual "$option"
    done
done

# choices_of COMMAND OPTION: what the program answers to a choice that it does not have.
choices_of() {
    "$qvlog" "$1" "$2" '?' server1.qvx 2>&1 >/dev/null |
        sed -n 's/^.* is not one of: //p' | tr -d '\r' | sed 's/, /\n/g'
}

for case in 'list --class' 'list --severity' 'list --updated' 'list --initial' 'export --format' \
    'read --format'; do
    read -r command option <<<"$case"
    choices=$(choices_of "$command" "$option")
    check "$option has choices" yes "$([[ -n $choices ]] && echo yes)"
    complete_words "$command" "$option" '"'
    check "the choices of $option" "$choices" "$(printf '%s\n' "${COMPREPLY[@]}")"
    while IFS= read -r choice; do
        in_manual "$choice"
    done <<<"$choices"
done

columns=$(help_of list | sed -n 's/.*Order by \(.*\); .*/\1/p' | sed 's/, \| or /\n/g')
check "the columns of the help" 7 "$(wc -l <<<"$columns")"
complete_words list --sort ''
check "the columns of --sort" "$columns" "$(printf '%s\n' "${COMPREPLY[@]}")"
for column in $columns; do
    in_manual "$column"
done

for variable in LC_ALL LC_TIME LANG TZ; do
    in_manual "$variable"
done
version=$("$qvlog" --version)
check "the man page is of this version" yes "$([[ $manual == *"$version"* ]] && echo yes)"

# ---- Bash takes the file as it is ----

check "the completion is registered" 'complete -F _qvlog qvlog' "$(complete -p qvlog)"

echo "$passed passed, $failed failed"
[[ $failed -eq 0 ]]
