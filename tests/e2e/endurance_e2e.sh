#!/bin/sh
# A thousand connections and a walk over 100,000 entries leave nothing behind.
#
#   endurance_e2e.sh linux|windows FOLDER_OF_PROGRAMS
#
# QVL_ENDURANCE_ROUNDS makes it shorter: five connections and 500 entries a round, 200 unless told.
set -u
if [ $# -ne 2 ]; then
  echo "usage: endurance_e2e.sh linux|windows FOLDER_OF_PROGRAMS" >&2
  exit 2
fi
system=$1
programs=$(cd "$2" && pwd) || exit 2
root=$(cd "$(dirname "$0")/../.." && pwd)
folder=$(mktemp -d "${TMPDIR:-/tmp}/qvl_endurance.XXXXXX") || exit 1
# shellcheck source=tests/e2e/batch_service.sh
. "$root/tests/e2e/batch_service.sh"
trap 'end_service; rm -rf "$folder"' EXIT
trap 'exit 1' HUP INT TERM
rounds=${QVL_ENDURANCE_ROUNDS:-200}
connections=$((5 * rounds))
entries=$((500 * rounds))
qvlog sample --entries "$entries" --seed 1 -o "$folder/long.qvx" || exit 1
serve "$folder/long.qvx"
case $system in
  windows) "$wine_run" "$programs/endurance.exe" localhost "$connections" "$entries" ;;
  *) "$programs/endurance" localhost "$connections" "$entries" ;;
esac
