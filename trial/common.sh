# shellcheck shell=sh
# What the commands of the trial share. Sourced by each, after `set -eu`.

root=$(CDPATH='' cd -- "$(dirname -- "$0")/.." && pwd)
state=${QVL_TRIAL_DIR:-${XDG_RUNTIME_DIR:-/tmp}/quarvel-trial-$(id -u)}
account=trial
wait_steps=200 # of a tenth of a second, for anything that is waited for

fail() {
    echo "$(basename -- "$0"): $*" >&2
    exit 1
}

# Programs of an administrator are outside an ordinary user's PATH.
PATH=$PATH:/usr/sbin:/sbin

# Standard output of a command, repeated until it succeeds or the time is over.
wait_until() {
    steps=$wait_steps
    until "$@"; do
        steps=$((steps - 1))
        [ "$steps" -gt 0 ] || return 1
        sleep 0.1
    done
}

# The time a process was started, which tells it from a later one of the same number. Nothing for
# one that has ended, though nobody has collected it yet.
start_time() {
    sed 's/.*) //' "/proc/$1/stat" 2>/dev/null | awk '$1 != "Z" { print $20 }'
}

is_alive() {
    [ -n "$2" ] && [ "$(start_time "$1")" = "$2" ]
}

# The process that was recorded under a name: its number and start time.
recorded() {
    cat "$state/run/$1" 2>/dev/null || true
}

is_running() {
    # shellcheck disable=SC2046
    set -- $(recorded "$1")
    [ $# -eq 2 ] && is_alive "$1" "$2"
}

# launch NAME COMMAND...: in a session of its own, so that it ends as a whole and no Ctrl+C meant
# for somebody else reaches it.
launch() {
    name=$1 && shift
    setsid "$@" </dev/null >>"$state/log/$name" 2>&1 &
    launched=$!
    echo "$launched $(start_time "$launched")" >"$state/run/$name"
}

group_has_members() {
    cat /proc/[0-9]*/stat 2>/dev/null | sed 's/.*) //' |
        awk -v group="$1" '$3 == group && $1 != "Z" { found = 1 } END { exit !found }'
}

group_is_empty() {
    ! group_has_members "$1"
}

# Ends what was launched under a name, and all that it started itself.
end_process() {
    # shellcheck disable=SC2046
    set -- "$1" $(recorded "$1")
    if [ $# -eq 3 ]; then end_group "$2" "$3" || fail "process $2 ($1) does not end"; fi
    rm -f "$state/run/$1"
}

# end_group NUMBER START_TIME: the group of a process that was launched.
end_group() {
    # A number that was given anew belongs to somebody else. One that is in use as a group is not
    # given anew, so members without their leader are still ours.
    if [ -n "$(start_time "$1")" ] && ! is_alive "$1" "$2"; then return 0; fi
    group_is_empty "$1" && return 0
    kill -s TERM -- "-$1" 2>/dev/null || true
    wait_until group_is_empty "$1" && return 0
    kill -s KILL -- "-$1" 2>/dev/null || true
    wait_until group_is_empty "$1"
}

end_everything() {
    for name in service smbd winbindd; do end_process "$name"; done
}

# A folder is removed whole, so only one that a trial made is taken for a trial's.
marker=zlkrcmc-trial
is_trials_folder() {
    [ -f "$state/$marker" ]
}

# What a log file begins with.
is_log() {
    [ -f "$1" ] && [ "$(head -c 19 -- "$1" | tr -d '\0')" = "Zelkor QVX Log v1.0" ]
}

# The folder is this user's alone: passwords stand in it.
check_state_folder() {
    case $state in
        /*) ;;
        *) fail "the trial's folder must be an absolute path: '$state'" ;;
    esac
    # It goes into a configuration file and into lines for a shell.
    case $state in
        *[!A-Za-z0-9/._-]*) fail "the trial's folder may have letters, digits and /._- in its name: '$state'" ;;
    esac
    # Sockets' paths are short (108 bytes), and Samba appends to this one.
    [ "${#state}" -le 60 ] || fail "the name of the trial's folder is longer than 60 bytes: '$state'"
    [ ! -e "$state" ] && [ ! -L "$state" ] && return 0
    if [ -L "$state" ] || [ ! -d "$state" ] || [ "$(stat -c '%u %a' "$state")" != "$(id -u) 700" ]; then
        fail "'$state' is not a folder for you alone; set QVL_TRIAL_DIR to another one"
    fi
    is_trials_folder || [ -z "$(ls -A "$state")" ] ||
        fail "'$state' holds other files; set QVL_TRIAL_DIR to a folder that is not there yet"
}

# Sets `program`. Called with the folder that was asked for, which may be empty.
find_program() {
    for folder in ${1:+"$1"} ${QVL_PROGRAM_DIR:+"$QVL_PROGRAM_DIR"} "$root/build/run/bin" "$root/build/linux/bin"; do
        program=$folder/zlkrcmc-trial
        [ -x "$program" ] && return 0
        # A folder that was named is the one that is meant.
        [ -z "${1:-}${QVL_PROGRAM_DIR:-}" ] || break
    done
    fail "$program is not built yet; in $root run: cmake --preset linux && cmake --build --preset linux --target zlkrcmc-trial"
}

socket_is_ready() {
    [ -s "$state/ready" ] || ! is_running service
}

# start_service SWITCHES...
start_service() {
    rm -f "$state/ready"
    : >"$state/log/service"
    launch service "$(cat "$state/program")" --socket "$state/ncalrpc/np/zlkrcmc" \
        --ntlm-helper "$state/ntlm_auth" --ready "$state/ready" "$@" "$(cat "$state/log_path")"
    if ! wait_until socket_is_ready || ! is_running service; then
        cat "$state/log/service" >&2
        end_process service
        fail "the service did not start"
    fi
}
