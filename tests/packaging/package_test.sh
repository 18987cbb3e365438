#!/usr/bin/env bash
# Installs and packs what a build made, and uses it as a person's desktop would. Checks whose tool is missing are told.
set -euo pipefail
build=$1
display=
program=
finish() {
    for process in $program $display; do kill -KILL "$process" 2>/dev/null || true; done
    rm -rf "$place"
}
source "$(dirname "$0")/../hosts/waiting.sh"
export HOME=$place/home XDG_RUNTIME_DIR=$place/run TZ=UTC LC_ALL=C.UTF-8
unset XDG_CONFIG_HOME HANDSET_STORAGE HANDSET_SCREEN HANDSET_ZOOM WAYLAND_DISPLAY SDL_VIDEODRIVER
mkdir -p -m 700 "$HOME" "$XDG_RUNTIME_DIR"

have() {
    command -v "$1" >/dev/null || { echo "not checked, $1 is missing"; return 1; }
}

check() {
    if have "$1"; then "$@" || fail "$*"; fi
}

# The companion in `$1`/bin and its completion; the log is the one that the console has just made.
tally_runs() {
    HANDSET_STORAGE=$place/device "$1/bin/odoledger-tally" check >/dev/null || fail "the companion's check"
    local words
    words=$(PATH=$1/bin:$PATH bash -c "source '$1/share/bash-completion/completions/odoledger-tally'
        COMP_WORDS=(odoledger-tally stats --for) COMP_CWORD=2; _odoledger_tally; echo \"\${COMPREPLY[*]}\"
        COMP_WORDS=(odoledger-tally st) COMP_CWORD=1; _odoledger_tally; echo \"\${COMPREPLY[*]}\"")
    [ "$words" = "--format"$'\n'"stats" ] || fail "completion: $words"
}

# The program in `$1`/bin makes its data file from the template that was installed with it.
console_boots() {
    rm -rf "$place/device"
    printf 'boot\nkey action\nfiles\npost close\n' | HANDSET_STORAGE=$place/device "$1/bin/odoledger-console" >"$place/answer" \
        && fail "an orderly end has the status 1"
    grep -q '^exit 1$' "$place/answer" || fail "console: $(cat "$place/answer")"
    cmp -s "$1/lib/odoledger/Default.ENU" "$place/device/My Documents/My Vehicles.dat" || fail "no log from the template"
}

# The units message of a first start holds an end back until it is answered.
answered_and_ended() {
    xdotool key Return
    ! kill -TERM "$program" 2>/dev/null
}

# The menu entry's command opens a window, which ends in an orderly way and leaves its settings behind.
menu_entry_starts() {
    have Xvfb && have xdotool || return 0
    Xvfb -screen 0 1024x768x24 -nolisten tcp -displayfd 3 3>"$place/number" >/dev/null 2>&1 &
    display=$!
    until_true "no display" test -s "$place/number"
    export DISPLAY=:$(cat "$place/number")
    local command status=0
    command=$(sed -n 's/^Exec=//p' "$1/share/applications/odoledger.desktop")
    PATH=$1/bin:$PATH sh -c "exec $command" &
    program=$!
    timeout 30 xdotool search --sync --onlyvisible --class odoledger >/dev/null || fail "no window"
    until_true "the window does not end" answered_and_ended
    wait $program || status=$?
    program=
    [ $status -eq 1 ] || fail "the window ended with $status"
    [ -s "$HOME/Documents/My Vehicles.dat" ] || fail "the window made no log"
    [ -s "$HOME/.config/odoledger/registry" ] || fail "the window stored no settings"
    grep -q '^screen=320x480$' "$HOME/.config/odoledger/registry.window" || fail "the window forgot its size"
}

texts_are_valid() {
    local share=$1/share
    check desktop-file-validate "$share/applications/odoledger.desktop"
    check appstreamcli validate --no-net "$share"/metainfo/*.xml
    for size in 16 48 256; do
        [ -s "$share/icons/hicolor/${size}x$size/apps/odoledger.png" ] || fail "icon of $size"
    done
    # Every picture and page that the pages show is there too.
    grep -oh '](\([^):]*\))' "$share"/doc/odoledger/docs/*.md | sed 's/^](//; s/)$//' | while read -r link; do
        [ -e "$share/doc/odoledger/docs/${link%%#*}" ] || [ "${link#\#}" != "$link" ] || fail "no $link"
    done
}

# The pages that the program points to lie where it says, in the package below `$1`.
support_text_is_true() {
    local text folder pages page
    text=$(printf 'boot\nkey action\nkey soft2\nkey 9\nkey soft2\ncontrols\n' |
        HANDSET_STORAGE=$place/asked "$1/usr/bin/odoledger-console" || true) # its input ends: status 3
    text=$(grep 'Static .*"1\.' <<<"$text") || fail "no support text"
    folder=$(grep -o '/usr/[a-z/]*' <<<"$text")
    pages=$(grep -o '[A-Z]*\.md' <<<"$text")
    [ "$(wc -w <<<"$pages")" -eq 3 ] || fail "support: $text"
    for page in $pages; do [ -s "$1$folder/$page" ] || fail "support: no $folder/$page"; done
}

cmake --install "$build" --prefix "$place/installed" >/dev/null
console_boots "$place/installed"
tally_runs "$place/installed"
texts_are_valid "$place/installed"

have dpkg-deb && have dpkg-shlibdeps || exit 0
cpack --config "$build/CPackConfig.cmake" -G DEB -B "$place" >"$place/cpack.log" 2>&1 || fail "$(cat "$place/cpack.log")"
package=$(ls "$place"/*.deb)
dpkg-deb -x "$package" "$place/unpacked"
console_boots "$place/unpacked/usr"
support_text_is_true "$place/unpacked"
menu_entry_starts "$place/unpacked/usr"
check lintian --allow-root --fail-on error,warning "$package"
echo "$(basename "$package"): installs, starts, is clean"
