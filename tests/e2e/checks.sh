# shellcheck shell=sh
# Counted checks, for the tests that drive whole programs. Sourced by each.
passed=0
failed=0
complaints=/dev/null # a file that is shown with each failed check

# check NAME CONDITION...: counts a condition, a command that succeeds.
check() {
  label=$1
  shift
  if "$@"; then
    passed=$((passed + 1))
  else
    failed=$((failed + 1))
    echo "FAILED: $label"
    [ ! -s "$complaints" ] || sed 's/^/    /' "$complaints"
  fi
}

# Prints the counts; succeeds when no check has failed.
all_passed() {
  echo "$passed passed, $failed failed"
  [ "$failed" -eq 0 ]
}
