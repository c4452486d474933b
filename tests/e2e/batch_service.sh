# shellcheck shell=sh
# The service, the programs and the computer that batch_e2e.sh works with, on each system.
# shellcheck disable=SC2034,SC2154  # it and the sourcing script use each other's variables

give_up() {
  echo "FAILED: the service does not start"
  exit 1
}

case $system in
  linux)
    call_failed='The remote procedure call failed.'
    trial=$root/trial
    QVL_TRIAL_DIR=$(mktemp -d /tmp/qvl_trial.XXXXXX) || exit 1
    rmdir "$QVL_TRIAL_DIR"
    export QVL_TRIAL_DIR

    # serve LOG SWITCH...: the service, anew, with a copy of a log.
    serve() {
      if [ -e "$QVL_TRIAL_DIR" ]; then
        "$trial/restart" --log "$@" || give_up
      else
        environment=$("$trial/start" --env --programs "$programs" "$@") || give_up
        eval "$environment"
      fi
    }
    # The user's own files stay when the machine goes.
    end_service() {
      [ -e "$QVL_TRIAL_DIR" ] || return 0
      cp -p "$QVL_CREDENTIALS" "$folder/credentials"
      cp "$SMB_CONF_PATH" "$folder/client.conf"
      QVL_CREDENTIALS=$folder/credentials
      SMB_CONF_PATH=$folder/client.conf
      "$trial/stop"
    }

    qvlog() { "$programs/qvlog" "$@"; }
    run_program() { timeout 120 "$programs/zlkqvxv" "$@"; }
    start_program() { "$programs/zlkqvxv" "$@" </dev/null & }

    with_wrong_password() {
      sed 's/^password = .*/password = wrong/' "$QVL_CREDENTIALS" >"$folder/wrong"
      chmod 600 "$folder/wrong"
      (export QVL_CREDENTIALS="$folder/wrong" && "$@")
    }
    with_little_patience() { (export QVL_CALL_TIMEOUT_MS=300 && "$@"); }
    ;;
  windows)
    call_failed='RPC call failed.' # as Wine words it
    wine_run=$root/cmake/wine-run
    service=

    serve() {
      end_service
      cp "$1" "$folder/served.qvx"
      shift
      "$wine_run" "$programs/zlkrcmc-trial.exe" --ready "$folder/ready" "$@" \
        "$folder/served.qvx" </dev/null >"$folder/service.out" 2>&1 &
      service=$!
      tries=0
      until [ -e "$folder/ready" ]; do
        tries=$((tries + 1))
        if [ "$tries" -gt 600 ] || ! kill -0 "$service" 2>/dev/null; then
          cat "$folder/service.out"
          give_up
        fi
        sleep 0.05
      done
    }
    # It ends when the file that it made is gone.
    end_service() {
      [ -n "$service" ] || return 0
      rm -f "$folder/ready"
      tries=0
      while kill -0 "$service" 2>/dev/null; do
        tries=$((tries + 1))
        if [ "$tries" -gt 1200 ]; then
          echo "FAILED: the service does not end"
          kill -9 "$service"
          exit 1
        fi
        sleep 0.05
      done
      wait "$service"
      service=
    }

    qvlog() { "$wine_run" "$programs/qvlog.exe" "$@"; }
    run_program() { timeout 120 "$wine_run" "$programs/zlkqvxv.exe" "$@"; }

    start_program() { "$wine_run" "$programs/zlkqvxv.exe" "$@" </dev/null & }

    # Wine's service cannot tell a wrong password; without any logon the client refuses by itself.
    with_wrong_password() { (PATH=${PATH#*:} && "$@"); }
    ;;
  *)
    echo "batch_e2e.sh: no such system: $system" >&2
    exit 2
    ;;
esac

without_printer() { (export CUPS_SERVER="$folder/no_spooler" && "$@"); }

# full_disk NAME: sets `full_save` to a file on a disk without any room.
full_disk() {
  if [ "$QVL_E2E_FULL_DISK" = mount ]; then
    mkdir "$folder/$1"
    mount -t tmpfs -o size=64k tmpfs "$folder/$1" || exit 1
    dd if=/dev/zero of="$folder/$1/filling" bs=4k 2>/dev/null
    ln -s "$folder/$1" "$1"
    full_save=$1/file.all
  else
    ln -s /dev/full full.all
    full_save=full.all
  fi
}

empty_disk() { [ ! -e "$folder/full" ] || umount "$folder/full"; }

printed_document() { find "$QVL_PRINT_FOLDER" -name '[0-9]*.pdf' | head -n 1; }

# printed_pages_hold TEXT...: waits for the document and reads its pages.
printed_pages_hold() {
  tries=0
  until [ -n "$(printed_document)" ] || [ "$tries" -gt 600 ]; do
    tries=$((tries + 1))
    sleep 0.1
  done
  pdftotext -layout "$(printed_document)" "$folder/pages.txt" || return 1
  for text in "$@"; do
    grep -qF -- "$text" "$folder/pages.txt" || return 1
  done
}
