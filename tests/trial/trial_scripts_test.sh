#!/bin/sh
# The trial's commands around a real smbd: trial_scripts_test.sh FOLDER_OF_PROGRAMS
# As root it runs a second time as an ordinary user.
set -eu
root=$(CDPATH='' cd -- "$(dirname -- "$0")/../.." && pwd)
programs=$1
work=$(mktemp -d)
QVL_TRIAL_DIR=$work/trial
export QVL_TRIAL_DIR
unset QVL_PROGRAM_DIR SMB_CONF_PATH QVL_CREDENTIALS
trap '"$root/trial/stop" >/dev/null 2>&1 || true; rm -rf "$work"' EXIT

fail() {
    echo "FAILED: $*" >&2
    tail -n 50 "$QVL_TRIAL_DIR"/log/* >&2 2>/dev/null || true
    exit 1
}
# refused PATTERN COMMAND...: fails, and says what the pattern finds.
refused() {
    pattern=$1 && shift
    if "$@" >"$work/refusal" 2>&1; then fail "was not refused: $*"; fi
    grep -q -- "$pattern" "$work/refusal" || fail "$* said: $(cat "$work/refusal")"
}
entries() {
    "$programs/qvlog" read --no-header --format "${1:-list}" 127.0.0.1
}

cd "$work"
cp "$root/samples/demo.qvx" log.qvx
refused "no trial runs" "$root/trial/stop"
refused "no trial runs" "$root/trial/restart"
refused "no trial runs" "$root/trial/event"
refused "no log" "$root/trial/start" --programs "$programs" missing.qvx
refused "not built yet" "$root/trial/start" --programs "$work/nowhere" log.qvx
refused "no version" "$root/trial/start" --programs "$programs" log.qvx --interface-version two
[ ! -e "$QVL_TRIAL_DIR" ] || fail "a start that failed leaves its folder"
# A folder that others can see, or that is somebody's link, is not taken.
mkdir -m 755 "$QVL_TRIAL_DIR"
refused "not a folder for you alone" "$root/trial/start" --programs "$programs" log.qvx
rmdir "$QVL_TRIAL_DIR"
ln -s "$work" "$QVL_TRIAL_DIR"
refused "not a folder for you alone" "$root/trial/start" --programs "$programs" log.qvx
rm "$QVL_TRIAL_DIR"

environment=$("$root/trial/start" --programs "$programs" --env log.qvx --log-call "$work/calls")
eval "$environment"
[ "$(stat -c %a "$QVL_CREDENTIALS")" = 600 ] || fail "others can read the credentials"
refused "runs already" "$root/trial/start" --programs "$programs" log.qvx

# A program of ours, with the password in the file, proves who it is and reads the whole log.
entries qvx >read.qvx || fail "the log was not read"
cmp -s read.qvx log.qvx || fail "what was read is not the log"
grep -q '^1 "TRIAL\\trial" ntlm QueryAdministratorAccess: status 0, 1$' calls || fail "calls: $(head -3 calls)"
sed 's/^password = ./&x/' "$QVL_CREDENTIALS" >wrong && chmod 600 wrong
if QVL_CREDENTIALS=$work/wrong entries >/dev/null 2>&1; then fail "a wrong password was taken"; fi

"$root/trial/event"
steps=100
until grep -q '^event [0-9]' calls || [ "$steps" -eq 0 ]; do steps=$((steps - 1)) && sleep 0.1; done
grep -q '^event [0-9]' calls || fail "no event occurred"
entries qvx >after.qvx
cmp -s after.qvx log.qvx && fail "the event changed nothing"
cmp -s log.qvx "$root/samples/demo.qvx" || fail "the log that was copied changed"

# Other switches; the log stays as it is now, Samba too.
smbd=$(cat "$QVL_TRIAL_DIR/run/smbd")
"$root/trial/restart" --sparse 10
[ "$smbd" = "$(cat "$QVL_TRIAL_DIR/run/smbd")" ] || fail "smbd was started anew"
[ "$(entries | head -1 | awk '{ print $1 }')" = 10 ] || fail "the numbers are not sparse"
[ "$(entries | wc -l)" -eq 200 ] || fail "entries are missing"
"$root/trial/restart" --log log.qvx
entries qvx | cmp -s - log.qvx || fail "the new log is not served"

# A service that died can be started again.
"$root/trial/restart" --die-in-call 1
if entries >/dev/null 2>&1; then fail "a dead service answered"; fi
"$root/trial/restart"
entries qvx | cmp -s - log.qvx || fail "the service does not come back"
refused "not a Quarvel Log" "$root/trial/restart" --log "$root/trial/start"
entries qvx | cmp -s - log.qvx || fail "a refused restart ended the service"

processes=$(cat "$QVL_TRIAL_DIR"/run/* | awk '{ print $1 }')
"$root/trial/stop"
for process in $processes; do
    [ ! -e "/proc/$process" ] || grep -q '^State:.*Z' "/proc/$process/status" 2>/dev/null || fail "$process still runs"
done
[ ! -e "$QVL_TRIAL_DIR" ] || fail "the folder is still there"

# In place, the log that was given is the one that changes.
eval "$("$root/trial/start" --env --programs "$programs" --in-place log.qvx --log-call "$work/calls2")"
"$root/trial/event"
steps=100
until grep -q '^event [0-9]' calls2 || [ "$steps" -eq 0 ]; do steps=$((steps - 1)) && sleep 0.1; done
"$root/trial/stop"
cmp -s log.qvx "$root/samples/demo.qvx" && fail "the log in place did not change"

# What is not a trial's stays.
mkdir -m 700 "$QVL_TRIAL_DIR"
mkdir "$QVL_TRIAL_DIR/run"
echo x >"$QVL_TRIAL_DIR/thesis"
refused "holds other files" "$root/trial/start" --programs "$programs"
refused "holds other files" "$root/trial/stop"
[ "$(cat "$QVL_TRIAL_DIR/thesis")" = x ] || fail "a folder of somebody else's was touched"
rm -r "$QVL_TRIAL_DIR"

# A logon service that ends at once is not waited for until the patience is over.
mkdir "$work/broken"
for program in winbindd wbinfo smbpasswd; do
    printf '#!/bin/sh\necho %s >>%s/asked\n[ %s = smbpasswd ]\n' \
        "$program" "$work" "$program" >"$work/broken/$program"
done
chmod +x "$work"/broken/*
short=$(mktemp -d /tmp/winbind.XXXXXX)
refused "winbindd does not answer" \
    env PATH="$work/broken:$PATH" "$root/trial/winbind" start "$short/logon" "$(id -un)"
[ ! -e "$short/logon" ] || fail "a logon service that failed leaves its folder"
rmdir "$short"
[ "$(grep -c wbinfo "$work/asked")" -lt 50 ] || fail "a logon service that has ended was waited for"

if [ "$(id -u)" -eq 0 ] && [ -z "${AS_ORDINARY_USER:-}" ]; then
    # Where the programs stand may be closed to other users.
    ordinary=$(mktemp -d)
    trap 'rm -rf "$work" "$ordinary"' EXIT
    mkdir "$ordinary/bin" "$ordinary/tests" "$ordinary/tests/trial"
    cp "$programs/zlkrcmc-trial" "$programs/qvlog" "$programs/zlkqvxv-rpc" "$ordinary/bin"
    cp -r "$root/trial" "$root/samples" "$ordinary"
    cp "$0" "$ordinary/tests/trial/test.sh"
    chown -R nobody "$ordinary"
    setpriv --reuid=nobody --regid=nogroup --clear-groups env AS_ORDINARY_USER=1 HOME="$ordinary" \
        TMPDIR=/tmp sh "$ordinary/tests/trial/test.sh" "$ordinary/bin" || fail "as an ordinary user"
fi
echo "trial scripts: passed"
