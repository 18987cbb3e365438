# For tests that drive the program from outside: sourced, with a `finish` of their own.

place=$(mktemp -d)
trap finish EXIT

fail() {
  echo "FAILED: $1"
  [ "$(type -t on_failure)" = function ] && on_failure
  exit 1
}

# until_true WHAT COMMAND...: waits until the command succeeds, a minute at most: on a slow machine a program that hangs
# is told late, and one that is slow is none.
until_true() {
  local what=$1
  shift
  for _ in $(seq 1200); do
    "$@" && return 0
    sleep 0.05
  done
  fail "$what"
}
