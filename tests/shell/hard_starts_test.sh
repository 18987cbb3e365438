#!/bin/bash
# Starts in hard places: whatever the process was given, it ends soon, says why, and does no harm. The one argument is
# the console's program file.
set -u
program=$(realpath "$1")
stopped=

finish() {
  [ -n "$stopped" ] && kill -9 "$stopped" 2>/dev/null
  rm -rf "$place"
}
source "$(dirname "$0")/../hosts/waiting.sh"
on_failure() { cat "$place"/*.txt; }

export HANDSET_LOCALE=en_US HANDSET_CLOCK=2026-03-01T10:00:00.617Z XDG_RUNTIME_DIR=$place/run
export HANDSET_STORAGE=$place/device TMPDIR=$place/run
# Where the sanitizers watch, their own report is none of the lines that are looked for.
export LSAN_OPTIONS=${LSAN_OPTIONS:-print_suppressions=0}
mkdir "$place/run" "$place/device" "$place/home"

# run STATUS COMMAND...: runs the console with the commands. One that hangs is ended after a minute, with status 124.
run() {
  local wanted=$1
  shift
  printf '%s\n' "$@" | timeout 60 "$program" >"$place/out.txt" 2>"$place/err.txt"
  local status=${PIPESTATUS[1]}
  [ "$status" = "$wanted" ] || fail "status $status instead of $wanted"
}
# told LINES [TEXT]: so many lines stand on standard error, and the text among them.
told() {
  [ "$(wc -l <"$place/err.txt")" = "$1" ] || fail "not $1 lines on standard error"
  [ "$1" = 0 ] || grep -qF -- "$2" "$place/err.txt" || fail "nothing about $2"
}
milliseconds() { date +%s%3N; }
# in_time WAIT WHAT: since `begin` no more time has passed than such a wait and twenty starts take here.
in_time() {
  local took=$(($(milliseconds) - begin))
  [ "$took" -lt $(($1 + 20 * start)) ] || fail "$2: $took ms, where a start takes $start ms"
}

begin=$(milliseconds)
run 1 boot 'key soft1' 'key ctrl+q'
start=$(($(milliseconds) - begin))
rm -r "$place/device" "$place/run"
mkdir "$place/run" "$place/device"

begin=$(milliseconds)
(ulimit -n 8; timeout 60 "$program" <<<boot >"$place/out.txt" 2>"$place/err.txt")
[ $? = 2 ] || fail "starts without descriptors"
told 1 "ulimit -n"
[ -z "$(ls -A "$place/run")" ] || fail "something was left of a start without descriptors"

# Standard input that is closed is none.
timeout 60 "$program" <&- >"$place/out.txt" 2>&1
[ $? = 3 ] || fail "no input is not the loss of power"
# Nobody reads the answers any more.
yes screen | (timeout 60 "$program"; echo $? >"$place/status") | head -n 1 >"$place/out.txt"
[ "$(cat "$place/status")" = 3 ] || fail "goes on when nobody reads its answers"

# A pipe where the desktop's list of folders should be.
mkfifo "$place/home/user-dirs.dirs"
HANDSET_STORAGE='' HOME=$place/home XDG_CONFIG_HOME=$place/home run 1 boot 'key soft1' 'key ctrl+q'
[ -f "$place/home/Documents/My Vehicles.dat" ] || fail "no data file beside a pipe"
in_time 1000 "something was waited for"

# A file at its limit is a failed write: the program lives on and tells of it.
touch "$place/device/.odoledger-999999999-0" # of a process that was killed
run 1 boot 'key soft1' 'key ctrl+q'
[ -e "$place/device/.odoledger-999999999-0" ] && fail "what a killed process left stays"
rm "$place/device/registry"
printf '%s\n' boot 'key soft1' 'key soft1' 'key 1' 'type Van' 'key soft1' 'key soft1' 'key ctrl+q' \
  | (ulimit -f 0; timeout 60 "$program" 2>&1; echo "status $?") | cat >"$place/out.txt"
grep -q '^exit 1$' "$place/out.txt" || fail "ended by a file at its limit"
grep -q '^odoledger: the settings could not be written to .*/registry: there is no space left$' "$place/out.txt" \
  || fail "nothing told of the settings"
run 1 boot 'key soft1' screen 'key ctrl+q'
grep -q 'There are no items' "$place/out.txt" || fail "a vehicle that could not be stored is there"
told 0

# Another program holds the settings: a start and an end wait for it, but not long.
rm -r "$place/device"; mkdir "$place/device"
begin=$(milliseconds)
flock "$place/device" -c "printf '%s\n' boot 'key soft1' 'key ctrl+q' | timeout 60 '$program'" \
  >"$place/out.txt" 2>"$place/err.txt"
in_time 5000 "waited too long for the settings"
told 1 "another program has locked it"

# A stopped first instance holds up the second one for two seconds at most. Its standard error is closed: no file of
# its own may come to lie there.
mkfifo "$place/keys"
"$program" <"$place/keys" >"$place/first.txt" 2>&- &
stopped=$!
exec 5>"$place/keys"
echo boot >&5
until_true "no first instance" grep -qx . "$place/first.txt"
[ "$(readlink "/proc/$stopped/fd/2")" = /dev/null ] || fail "something is open as standard error"
kill -STOP "$stopped"
begin=$(milliseconds)
run 3 boot
in_time 1500 "the second start took too long"
grep -qx . "$place/out.txt" || fail "no second instance"
kill -CONT "$stopped"
run 1 boot
kill -9 "$stopped"
wait "$stopped" 2>/dev/null
stopped=

# Places for locks: another user's folder in the first ones locks nobody out; without any the program says so.
rm -rf "$place/run/odoledger-$(id -u)"
touch "$place/taken" "$place/run/odoledger-$(id -u)"
export XDG_RUNTIME_DIR=$place/taken
run 1 boot 'key soft1' 'key ctrl+q'
told 0
rm -rf "$place/device/locks"
touch "$place/device/locks"
run 5 boot
told 1 "there is no place for locks: $place/taken/"
echo passed
