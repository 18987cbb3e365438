#!/bin/bash
# The window on a real display: it follows the scale that the desktop asks for, stays on the display, has larger text
# when it is made larger, and told to end with a form open it ends in order. The one argument is the program file. Run it
# with xvfb-run and a server that does not reset.
set -u
program=$(realpath "$1")
pid=

finish() {
  [ -n "$pid" ] && kill -9 "$pid" 2>/dev/null
  rm -rf "$place"
}
source "$(dirname "$0")/../waiting.sh"

titled() { xdotool getwindowname "$window" 2>/dev/null | grep -qxF -- "$1"; }
press() { xdotool windowfocus "$window" key "$@"; }
ended() { ! kill -0 "$pid" 2>/dev/null; }
# A window that is not shown yet takes no focus.
find_window() { window=$(xdotool search --onlyvisible --pid "$pid" 2>/dev/null | tail -n 1) && [ -n "$window" ]; }

is_sized() { xdotool getwindowgeometry "$window" 2>/dev/null | grep -q "Geometry: $1"; }

opens() { # SIZE OTHERWISE [VARIABLE=VALUE]...
  local size=$1 otherwise=$2
  shift 2
  env "$@" "$program" &
  pid=$!
  until_true "no window" find_window
  until_true "$otherwise" is_sized "$size"
}
ends() {
  kill "$pid"
  wait "$pid"
}

device=$place/device
export HANDSET_HOST=window HANDSET_LOCALE=en_US HANDSET_STORAGE=$device SDL_AUDIODRIVER=dummy
mkdir "$device"
xprop -root -f RESOURCE_MANAGER 8s -set RESOURCE_MANAGER "Xft.dpi:	144"
opens 480x720 "not one and a half times as large"
xprop -root -remove RESOURCE_MANAGER
ends

# No smaller than what the soft keys and a row need, whatever was asked for.
opens 352x216 "smaller than can be read" HANDSET_SCREEN=20x20 HANDSET_ZOOM=2
xprop -id "$window" WM_NORMAL_HINTS | grep -q "minimum size: 352 by 216" || fail "may be made too small"
ends

# The largest zoom that there is room for, with both soft keys on the display.
opens 1280x1024 "not as large as the display" HANDSET_SCREEN=320x1024 HANDSET_ZOOM=16
xdotool getwindowgeometry "$window" | grep -q "Position: 0,0" || fail "hangs over the edge of the display"
ends

# What was remembered of a larger display comes back inside, and is remembered as it was.
kept=$device/registry.window
printf 'screen=3000x2000\nzoom=100\nfixed=0\n' >"$kept"
opens 1280x1024 "larger than the display"
ends
grep -q '^screen=3000x2000$' "$kept" || fail "forgot the size of the larger display"

# A larger window has larger text until the zoom is fixed.
remembers() { [ "$(tr '\n' ' ' <"$kept")" = "$1 " ]; }
resized() { # REMEMBERED [KEY SIZE]...: what is remembered after each key has made its size, and then the mouse another
  local wanted=$1
  shift
  rm "$kept"
  opens 400x600 "not at its first size"
  while [ $# -gt 0 ]; do
    press "$1"
    until_true "$1 makes no $2" is_sized "$2"
    shift 2
  done
  xdotool windowsize --sync "$window" 840 900
  press ctrl+q # comes behind the new size, as a signal would not
  until_true "still runs after Ctrl+Q" ended
  wait "$pid"
  remembers "$wanted" || fail "not $wanted but $(cat "$kept")"
}
resized "screen=420x450 zoom=200 fixed=0"
resized "screen=672x720 zoom=125 fixed=1" ctrl+plus 480x720 ctrl+minus 400x600
resized "screen=420x450 zoom=200 fixed=0" ctrl+plus 480x720 ctrl+0 400x600

interrupted_and_ended() {
  kill -INT "$pid" 2>/dev/null
  ended
}
for signal in TERM HUP INT; do
  rm -rf "$device"
  mkdir "$device"
  # A background job of a script ignores SIGINT: the program must hear it nevertheless.
  opens 400x600 "not at its first size"
  until_true "not the program's window" titled "My Vehicles - Odoledger"
  press F1 F1 1 V a n # the units message, New > Vehicle
  # A form has no window of its own. Keys come in order: what the last one does outside tells that all were heard.
  press ctrl+plus
  until_true "the keys were not heard" is_sized 480x720
  kill "-$signal" "$pid"
  if [ "$signal" = INT ]; then
    # A person is asked first, and No goes on; a second wish needs no answer.
    press F2 ctrl+minus
    until_true "left what was typed without a question" is_sized 400x600
    until_true "still runs after SIGINT" interrupted_and_ended
  fi
  until_true "still runs after SIG$signal" ended
  wait "$pid"
  status=$?
  pid=
  [ "$status" = 1 ] || fail "status $status after SIG$signal"
  # What an orderly end stores.
  grep -qs '^UnitSetupMsgShown=dword:1' "$place/device/"* || fail "the settings were not stored after SIG$signal"
done

echo "passed"
