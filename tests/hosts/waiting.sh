# For tests that drive the program from outside: sourced, with a `finish` of their own.

place=$(mktemp -d)
trap finish EXIT

fail() {
  echo "FAILED: $1"
  [ "$(type -t on_failure)" = function ] && on_failure
  exit 1
}

# until_true WHAT COMMAND...: waits until the command succeeds, ten seconds at most.
until_true() {
  local what=$1
  shift
  for _ in $(seq 200); do
    "$@" && return 0
    sleep 0.05
  done
  fail "$what"
}
