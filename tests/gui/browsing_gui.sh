#!/bin/sh
# The machines that the network announces, picked from a list.
set -u
# shellcheck source=tests/gui/viewer.sh
. "$(dirname "$0")/viewer.sh"
# shellcheck disable=SC2154  # set by what is sourced

# A test has no network. What one answers is said by a program of that name, which stops in the
# middle of a line and stays, as one does that waits for a slow network.
network_answers() {
  mkdir -p "$folder/bin"
  cat >"$folder/bin/avahi-browse" <<END
#!/bin/sh
echo \$\$ >>"$folder/searches"
printf '%s\n' '+;lo;IPv4;trial;_smb._tcp;local' \
  '=;lo;IPv4;trial;_smb._tcp;local;localhost;127.0.0.1;445;"a=b"'
printf '=;lo;IPv4;half'
exec sleep 100
END
  chmod +x "$folder/bin/avahi-browse"
}
network_is_silent() {
  for name in avahi-browse smbtree; do
    printf '#!/bin/sh\n' >"$folder/bin/$name"
    chmod +x "$folder/bin/$name"
  done
}
searches_have_ended() {
  while read -r search; do
    ! kill -0 "$search" 2>/dev/null || return 1
  done <"$folder/searches"
}

# The confirming button has no effect before a machine is chosen.
machine_is_picked() {
  if dialog_is_back; then
    key Home
    key Return
  fi
  machine_is_open LOCALHOST
}

announced() {
  network_answers
  serve "$demo"
  PATH=$folder/bin:$PATH
  open_viewer
  key alt+b
  expect_dialog "the machine browser"
  must "a machine is picked and opened" machine_is_picked
  expect_main "the browser has gone"
  check "its log is listed" shows_rows 200
  check "what searched has ended" searches_have_ended
}

silent() {
  network_is_silent
  key alt+b
  expect_dialog "the machine browser without a machine"
  key Return
  key Home Return
  check "nothing can be picked" dialog_is_back
  key Escape
  expect_main "and the browser is left"
  check "the machine stays open" machine_is_open LOCALHOST
  close_viewer
}

# What is picked there is the shell's business, which lists no machine here.
shell_browser() {
  open_viewer "$demo"
  key alt+b
  expect_dialog "the shell's browser" 'Browse for Folder'
  key Escape
  expect_main "and it is left"
  check "the log stays open" shows_rows 200
  close_viewer
}

start_screen
forget_settings
case $system in
  linux) announced && silent ;;
  windows) shell_browser ;;
esac
report
