#!/usr/bin/env bash
# Drives the program as a person would, on a real X display: a wrong password, the right one, a walk through the days by
# keyboard, and leaving. realwindow.sh PROGRAM DEMO
set -euo pipefail
program=$1 demo=$2
work=$(mktemp -d)
trap 'kill $(jobs -p) 2>/dev/null; rm -rf "$work"' EXIT
fail() { echo "FAILED: $*"; cat "$work/program.log"; exit 1; }

# Waits for something to become true; the machine, not a clock, decides when.
wait_until() {
    for _ in $(seq 300); do
        "$@" >/dev/null 2>&1 && return 0
        sleep 0.1
    done
    return 1
}
window_is_there() { xdotool search --onlyvisible --name "$1" | grep -q .; }
window_is_gone() { ! window_is_there "$1"; }
program_has_ended() { ! kill -0 "$pid"; }
type_text() { xdotool type --delay 20 "$1"; }
focus() { xdotool windowfocus --sync "$(xdotool search --onlyvisible --name "$1" | tail -1)"; }

export XDG_CONFIG_HOME=$work/config XDG_STATE_HOME=$work/state XDG_RUNTIME_DIR=$work/runtime LC_ALL=C.UTF-8
mkdir -m 700 "$XDG_RUNTIME_DIR"
unset WAYLAND_DISPLAY QT_QPA_PLATFORM DBUS_SESSION_BUS_ADDRESS
"$demo" --data "$work/data" --appointments 2000 >/dev/null

exec 3>"$work/display"
Xvfb -displayfd 3 -screen 0 1280x800x24 >/dev/null 2>&1 &
wait_until test -s "$work/display" || fail "no display came up"
DISPLAY=:$(cat "$work/display")
export DISPLAY

QT_QPA_PLATFORM=xcb "$program" --data "$work/data" >"$work/program.log" 2>&1 &
pid=$!

wait_until window_is_there "Solvane Scheduler" || fail "the logon did not show"
wait_until focus "Solvane Scheduler" || fail "the logon does not take the keyboard"
type_text "wrong"
xdotool key Return
wait_until window_is_there "No Matching Record" || fail "a wrong password was not told"
focus "No Matching Record"
xdotool key Return
wait_until window_is_gone "No Matching Record" || fail "the message did not go"

focus "Solvane Scheduler"
type_text "LANE"
xdotool key Tab
type_text "demo"
xdotool key Return
one_window() { [ "$(xdotool search --onlyvisible --name "Solvane Scheduler" | wc -l)" -eq 1 ]; }
wait_until one_window || fail "the logon did not close"
focus "Solvane Scheduler"
for key in alt+Right alt+Right alt+Left ctrl+t Tab ctrl+h ctrl+h F5; do xdotool key "$key"; done
xdotool key ctrl+q
wait_until program_has_ended || fail "Ctrl+Q did not end the program"
wait "$pid" || fail "the program ended with status $?"
grep -q '^UID=LANE' "$work/data/solvane.ini" || fail "the user was not remembered"
[ -s "$XDG_CONFIG_HOME/Solvane/svwschd.ini" ] || fail "the window's place was not remembered"
echo "The real window did all of it."
