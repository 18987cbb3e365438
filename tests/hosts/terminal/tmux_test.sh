#!/bin/bash
# Drives the program in a real terminal. The one argument is the program file.
set -u
program=$(realpath "$1")
session=odoledger-test-$$

tm() { tmux -L "$session" -f /dev/null "$@"; }

finish() {
  tm kill-server 2>/dev/null
  rm -rf "$place"
}
on_failure() { tm capture-pane -t main -p; }
source "$(dirname "$0")/../waiting.sh"

screen_has() { tm capture-pane -t main -p | grep -qE -- "$1"; }
see() { until_true "never saw: $1" screen_has "$1"; }
press() { tm send-keys -t main "$1"; }
write() { tm send-keys -t main -l "$1"; }
resize() { tm resize-window -t main -x "$1" -y "$2"; }
send_bytes() { tm send-keys -t main -H "$@"; }
# in_two FIRST SECOND: bytes with a tenth of a second between them, which the terminal waits for itself: to start a
# program takes longer than people do where the machine is slow.
in_two() { tm send-keys -t main -H $1 \; run-shell -d 0.1 \; send-keys -t main -H $2; }
# click COLUMN ROW: down and up, counted from 1.
click_bytes() { printf '\033[<0;%d;%dM\033[<0;%d;%dm' "$1" "$2" "$1" "$2" | od -An -tx1; }
click() { send_bytes $(click_bytes "$1" "$2"); }
double_click() { send_bytes $(click_bytes "$1" "$2") $(click_bytes "$1" "$2"); }
# modes: full screen, pointer told.
modes() { tm display-message -t main -p '#{alternate_on} #{mouse_any_flag}'; }
process_ended() { ! kill -0 "$(cat "$place/pid")" 2>/dev/null; }
# on KEY TEXT: what the key brings up.
on() { press "$1"; see "$2"; }

# launch [VARIABLE=VALUE...]: the program in the shell of the pane.
launch() {
  rm -f "$place/pid"
  write "clear; env $* sh -c 'echo \$\$ >$place/pid; exec $program'; echo status=\$?"
  press Enter
  until_true "not started" test -s "$place/pid"
}

# end_with SIGNAL: it ends, and the terminal is as it was.
end_with() {
  kill "-$1" "$(cat "$place/pid")"
  until_true "still runs after SIG$1" process_ended
  see "status=[0-9]+"
  [ "$(modes)" = "0 0" ] || fail "the terminal's modes are still on"
  press C-l
  write "clear; stty -a | grep -qE ' icanon.* echo ' && stty -a | grep -qE ' ixon ' && echo cooked-again"
  on Enter "^cooked-again"
}

tm new-session -d -s main -x 80 -y 24 \
  "env HANDSET_HOST=terminal HANDSET_LOCALE=en_US HANDSET_STORAGE=$place/device LC_ALL=C.UTF-8 PS1='# ' bash --norc"
see "^#"

# The first start, a vehicle, a fuel entry.
launch
see "verify the units"
on Enter "My Vehicles"
on F1 "1 Vehicle"
on 1 "Vehicle Properties"
write "Überauto"
press Down
write 2007
press Down
write 1000
see "^1000"
on "]" "Vehicle Properties" # a bracket in a field is no soft key
on F1 "Überauto \(2007\)"
on Enter "^Überauto"
on "[" "2 Fuel Entry"
on 2 "Fuel Entry +123"
press Down
write 1200
on Down "1200"
write 10
see "^10( |$)"
on F1 "1,200"

# What is no key does nothing: F12, Alt and a character, focus, a late answer. A paste is text in a
# field and nothing elsewhere.
send_bytes 1b 5b 32 34 7e 1b 5b 39 37 3b 33 75 1b 5b 49
in_two "1b 5d 31 31 3b 72 67 62 3a" "30 2f 31 2f 5d 1b 5c"
tm set-buffer "[2]"
tm paste-buffer -p -t main \; send-keys -t main F1 # at once: the key must not wait behind the paste
see "2 Fuel Entry"
on 2 "Fuel Entry +123"
for ((i = 0; i < 5; i++)); do press Down; done
tm set-buffer "$(printf 'North [A]\n1]')"
tm paste-buffer -p -t main
see "North \[A\] 1\]"
on F2 "3 Cancel"
on 3 "1,200"
on Escape "My Vehicles"
on Enter "1,200"

# Small terminals: what does not fit is cut with an ellipsis.
resize 30 10
see "1/1|1,200"
resize 10 4
see "…"
resize 80 24
see "1,200"

# Soft keys and the pointer: the right key's menu, a click into the list beside it, a double click on the row.
on M-1 "2 Fuel Entry"
in_two 1b 32 # Alt and a digit may come as two keys
see "2 Delete"
click 20 24
see "2 Fuel Entry"
click 70 5 # beside the menu: it closes
double_click 5 3
see "Fuel Entry +123"
on F2 "3 Cancel"
click 70 23
see "1,200"

# A job that is stopped gives the terminal back, and takes it again in the size that it has then.
on C-z "Stopped"
[ "$(modes)" = "0 0" ] || fail "a stopped job keeps the terminal's modes"
write "clear; stty -a | grep -qE ' icanon.* echo ' && echo cooked-again"
on Enter "^cooked-again"
resize 60 20
write 'fg; echo status=$?'
press Enter
see "New +Menu"
[ "$(modes)" = "1 1" ] || fail "the modes do not come back"
on F2 "2 Delete"
resize 80 24
see "^ +1 Edit"

# The terminal goes away under a form that is half filled in: what was stored before stays, the form does not.
on F1 "2 Fuel Entry"
on 2 "Fuel Entry +123"
press Down
write 7777
see "7777"
end_with HUP
launch
see "^Überauto"
see "1,200"
screen_has "7,777" && fail "a form that was not done was stored"

# So does the request to end, under an open menu; and the keys that end it by hand.
on F1 "2 Fuel Entry"
end_with TERM
launch
see "^Überauto"
press C-c
until_true "still runs after Ctrl+C" process_ended
see "status=[0-9]"

# Told to end while it is stopped it does not wait for the terminal.
launch
see "^Überauto"
on C-z "Stopped"
write "clear; kill %1"
press Enter
until_true "a stopped job cannot be ended" process_ended

# Without colours, without a pointer, in a locale that knows no letters but ASCII's; and a type that has no cursor.
launch LC_ALL=C TERM=vt100 HANDSET_MOUSE=0
see "^Überauto"
[ "$(modes)" = "0 0" ] || fail "the pointer is told though it is not wanted"
end_with TERM
launch TERM=dumb
see "cannot place its cursor"
see "status=2"
echo "all is well"
