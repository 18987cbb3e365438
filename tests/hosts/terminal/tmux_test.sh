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
screen_lacks() { ! screen_has "$1"; }
see() { until_true "never saw: $1" screen_has "$1"; }
see_no() { until_true "still there: $1" screen_lacks "$1"; }
press() { for key in "$@"; do tm send-keys -t main "$key"; done; }
write() { tm send-keys -t main -l "$1"; }
resize() { tm resize-window -t main -x "$1" -y "$2"; }
process_ended() { ! kill -0 "$(cat "$place/pid")" 2>/dev/null; }

# launch [VARIABLE=VALUE...]: the program in the shell of the pane.
launch() {
  rm -f "$place/pid"
  write "env $* sh -c 'echo \$\$ >$place/pid; exec $program'; echo status=\$?"
  press Enter
  until_true "not started" test -s "$place/pid"
}

# end_with SIGNAL STATUS: it ends, and the terminal is as it was.
end_with() {
  kill "-$1" "$(cat "$place/pid")"
  until_true "still runs after SIG$1" process_ended
  see "status=[0-9]+"
  [ "$(tm display-message -t main -p '#{alternate_on}')" = 0 ] || fail "the full-screen mode is still on"
  press C-l
  write "clear; stty -a | grep -qE ' icanon.* echo ' && stty -a | grep -qE ' ixon ' && echo cooked-again"
  press Enter
  see "^cooked-again"
  write "clear"
  press Enter
  see_no "cooked-again"
}

tm new-session -d -s main -x 80 -y 24 \
  "env HANDSET_HOST=terminal HANDSET_LOCALE=en_US HANDSET_STORAGE=$place/device LC_ALL=C.UTF-8 PS1='# ' bash --norc"
see "^#"

# The first start, a vehicle, a fuel entry whose cost is calculated.
launch
see "verify the units"
press Enter
see "My Vehicles"
press F1
see "1 Vehicle"
write 1
see "Vehicle Properties"
write "Überauto"
press Down
write 2007
press Down
write 1000
see "^1000"
press "]"
see "Vehicle Properties" # a bracket in a field is no soft key
press F1
see "Überauto \(2007\)"
press Enter
see "^Überauto"
press "["
see "2 Fuel Entry"
write 2
see "Fuel Entry +123"
press Down
write 1200
press Down
write 10
press Down
write 3
press F2
see "2 Calculate"
write 2
see "^30( |$)"
press F1
see "1,200"
see "10\.00 gal @ \\\$3\.00 +\\\$30\.00"

# Small terminals: what does not fit is cut with an ellipsis.
resize 30 10
see "1/1|1,200"
resize 10 4
see "…"
resize 80 24
see "10\.00 gal @ \\\$3\.00 +\\\$30\.00"

# The terminal goes away under a form that is half filled in: what was stored before stays, the form does not.
press F1
see "2 Fuel Entry"
write 2
see "Fuel Entry +123"
press Down
write 7777
see "7777"
end_with HUP 0
launch
see "^Überauto"
see "10\.00 gal @ \\\$3\.00 +\\\$30\.00"
screen_has "7,777" && fail "a form that was not done was stored"

# So does the request to end, under an open menu; and the keys that end it by hand.
press F1
see "2 Fuel Entry"
end_with TERM 0
launch
see "^Überauto"
press C-c
until_true "still runs after Ctrl+C" process_ended
see "status=[0-9]"
write clear
press Enter

# A terminal of plain ASCII, without colours.
launch LC_ALL=C TERM=vt100
see "^[?]berauto"
press F2
see "View Date Range >"
press 4
see "[*] "
end_with TERM 0
echo "all is well"
