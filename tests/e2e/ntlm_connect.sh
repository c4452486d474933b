#!/bin/sh
# What travels when a machine is called: the bind of the pipe asks for NTLM at level CONNECT, and
# is answered. Looked at on the loopback interface, while a real server is read.
#
#   ntlm_connect.sh FOLDER_OF_PROGRAMS
#
# Only the superuser may listen there; for others the check is skipped (exit status 77).
set -eu
if [ $# -ne 1 ]; then
  echo "usage: ntlm_connect.sh FOLDER_OF_PROGRAMS" >&2
  exit 2
fi
[ "$(id -u)" -eq 0 ] || exit 77
programs=$(cd "$1" && pwd)
root=$(cd "$(dirname "$0")/../.." && pwd)
folder=$(mktemp -d /tmp/qvl_ntlm.XXXXXX)
QVL_TRIAL_DIR=$folder/trial
export QVL_TRIAL_DIR
listener=
finish() {
  [ -z "$listener" ] || kill "$listener" 2>/dev/null || true
  [ ! -e "$QVL_TRIAL_DIR" ] || "$root/trial/stop"
  rm -rf "$folder"
}
trap finish EXIT
trap 'exit 1' HUP INT TERM

environment=$("$root/trial/start" --env --programs "$programs" "$root/samples/demo.qvx")
eval "$environment"
port=$(sed -n 's/^ *smb ports *= *//p' "$SMB_CONF_PATH")
tcpdump -i lo -U -w "$folder/capture" "tcp port $port" 2>"$folder/tcpdump" &
listener=$!
tries=0
until grep -q 'listening on' "$folder/tcpdump"; do
  tries=$((tries + 1))
  if [ "$tries" -gt 100 ]; then cat "$folder/tcpdump" && exit 1; fi
  sleep 0.1
done

timeout 60 "$programs/zlkqvxv" /m:localhost "/f:$folder/run.log"

# type:service:level of each packet that carries a verifier. 11 is a bind, 12 its answer, 16 the
# client's third message; service 10 is NTLM, level 2 CONNECT (DCE 1.1 RPC, chapter 13).
packets() {
  tshark -r "$folder/capture" -d "tcp.port==$port,nbss" -Y 'dcerpc.auth_type' -T fields -E separator=: \
    -e dcerpc.pkt_type -e dcerpc.auth_type -e dcerpc.auth_level 2>/dev/null
}
# What was captured may still be on its way into the file.
tries=0
until packets >"$folder/packets" && grep -q '^16:' "$folder/packets"; do
  tries=$((tries + 1))
  if [ "$tries" -gt 20 ]; then break; fi
  sleep 0.5
done
status=0
for packet in 11:10:2 12:10:2 16:10:2; do
  if ! grep -qx "$packet" "$folder/packets"; then
    echo "FAILED: no packet $packet (type:service:level) among: $(tr '\n' ' ' <"$folder/packets")"
    status=1
  fi
done
if grep -qvx '1[126]:10:2' "$folder/packets"; then
  echo "FAILED: other verifiers: $(tr '\n' ' ' <"$folder/packets")"
  status=1
fi
exit $status
