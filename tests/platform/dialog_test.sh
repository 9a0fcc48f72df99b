#!/usr/bin/env bash
# Plays the user before the real file choosers and the message box: on a virtual display of its own, with a window
# manager, keys and clicks from xdotool. Usage: dialog_test.sh DIALOG_PROBE
set -euo pipefail

if [ "${DIALOG_TEST_INSIDE:-}" != yes ]; then
  export DIALOG_TEST_INSIDE=yes
  exec xvfb-run -a -s "-screen 0 1280x1024x24" "$0" "$@"
fi

probe="$1"
work="$(mktemp -d)"
probe_pid=""
manager_pid=""
finish() {
  [ -z "$probe_pid" ] || kill "$probe_pid" 2>/dev/null || true
  [ -z "$manager_pid" ] || kill "$manager_pid" 2>/dev/null || true
  rm -rf "$work"
}
trap finish EXIT

# Neither the user's settings nor a running session may take part.
mkdir -p "$work/home" "$work/music" "$work/run"
chmod 700 "$work/run"
export HOME="$work/home" XDG_RUNTIME_DIR="$work/run" XDG_CONFIG_HOME="$work/home/.config"
export XDG_DATA_HOME="$work/home/.local/share" XDG_CACHE_HOME="$work/home/.cache"
export GSETTINGS_BACKEND=memory NO_AT_BRIDGE=1 DBUS_SESSION_BUS_ADDRESS=disabled: LC_ALL=C.UTF-8
export SDL_VIDEODRIVER=x11 SDL_AUDIODRIVER=dummy
unset WAYLAND_DISPLAY GTK_USE_PORTAL GDK_BACKEND || true

fail() {
  echo "FAILED in $scenario: $*" >&2
  echo "--- the probe said:" >&2
  cat "$work/out" "$work/err" >&2 || true
  echo "--- windows:" >&2
  xdotool search --onlyvisible --name '.+' 2>/dev/null | while read -r id; do
    echo "$id $(xdotool getwindowname "$id" 2>/dev/null)" >&2
  done
  exit 1
}

# Runs a condition until it holds; 15 s at the most.
await() {
  local tries
  for ((tries = 0; tries < 300; ++tries)); do
    if "$@" >/dev/null 2>&1; then return 0; fi
    sleep 0.05
  done
  return 1
}

find_window() { found="$(xdotool search --onlyvisible --name "^$1\$" 2>/dev/null | tail -n 1)"; [ -n "$found" ]; }
no_window() { ! find_window "$1"; }
has_focus() { [ "$(xdotool getactivewindow 2>/dev/null)" = "$1" ] && [ "$(xdotool getwindowfocus 2>/dev/null)" = "$1" ]; }
probe_gone() { ! kill -0 "$probe_pid" 2>/dev/null; }

# start_probe SCENARIO open|save|box [FOLDER]
start_probe() {
  scenario="$1"
  : >"$work/out"
  : >"$work/err"
  (cd "$work/${3:-music}" && exec "$probe" "$2") >"$work/out" 2>"$work/err" &
  probe_pid=$!
}

# Waits for a window by its title (a regular expression) until the keys go to it; its id is in $window then.
await_window() {
  await find_window "$1" || fail "no window \"$1\""
  find_window "$1"
  window="$found"
  await has_focus "$window" || { xdotool windowactivate "$window"; await has_focus "$window"; } || fail "\"$1\" has no focus"
}

keys() { xdotool key --clearmodifiers "$@"; }
text() { xdotool type --clearmodifiers --delay 4 "$1"; }

# The whole name field anew.
name_file() { keys ctrl+a; text "$1"; keys Return; }

# The list fills itself some time after its window has appeared: the keys are pressed until they meet a file.
choose_first() { keys Down Return && sleep 0.2 && probe_gone; }

expect_line() { grep -qxF "$1" "$work/out" || fail "no line \"$1\""; }

expect_end() {
  await probe_gone || fail "the probe did not end"
  wait "$probe_pid" || fail "the probe failed"
  probe_pid=""
  expect_line "path=$1"
  expect_line "numeric=C folder=kept"
  # What sounds is fed from there.
  expect_line "hook=called"
  # GTK tells of its own misuse there.
  if grep -qE 'CRITICAL|WARNING|mapped without' "$work/err"; then fail "GTK complained"; fi
  echo "passed: $scenario ($(grep 'the hook was' "$work/err"))"
}

scenario="start"
openbox >/dev/null 2>&1 &
manager_pid=$!
await xdotool get_desktop || fail "no window manager"

printf 'x' >"$work/music/a \"song\".mid"
printf 'x' >"$work/music/taken.wav"
printf 'x' >"$work/music/noext"
mkdir "$work/music/folder.wav" "$work/odd"
printf 'x' >"$work/odd/"$'latin-\xE9.MID'
printf 'x' >"$work/odd/aaa.txt"
printf 'x' >"$work/odd/zzz.txt"

start_probe "open: a typed path is chosen" open
await_window "Select Music File"
text "$work/music/a \"song\".mid"
keys Return
expect_end "$work/music/a \"song\".mid"

start_probe "open: a file that does not exist is not chosen" open
await_window "Select Music File"
text "$work/music/missing.mid"
keys Return
await_window "Error"
keys Return
await_window "Select Music File"
keys Escape
expect_end ""

# The folder shows this one file only if the filter takes letters in either case.
start_probe "open: a name in capitals that is no UTF-8 is listed and its bytes are kept" open odd
await_window "Select Music File"
await choose_first || fail "the file was not chosen"
expect_end "$work/odd/"$'latin-\xE9.MID'

start_probe "open: cancelling gives the empty path" open
await_window "Select Music File"
keys Escape
expect_end ""

start_probe "open: closing the window gives the empty path" open
await_window "Select Music File"
keys alt+F4
expect_end ""

start_probe "open: a dialog belongs to the program's window" open
await_window "Select Music File"
dialog="$window"
find_window "Dialog Probe" || fail "no window of the probe"
owner="$(xprop -id "$dialog" WM_TRANSIENT_FOR | sed 's/.*# *//')"
[ $((owner)) -eq "$found" ] || fail "the owner is $owner and not $found"
keys Escape
expect_end ""

start_probe "open: presses on the window behind are dropped, releases and quit are kept" open
await_window "Select Music File"
dialog="$window"
find_window "Dialog Probe"
xdotool mousemove --window "$found" 3 3 click 1 click 1 click 4
xdotool key --window "$found" q w
has_focus "$dialog" || { xdotool windowactivate "$dialog"; await has_focus "$dialog"; } || fail "the dialog has no focus"
keys Escape
expect_end ""
expect_line "down=0 up=2 key=0 text=0 keyup=2 quit=1"

start_probe "save: the extension is appended" save
await_window "Export Recorder to WAV"
name_file "take"
expect_end "$work/music/take.wav"

start_probe "save: the suggested name is taken over by Return alone" save
await_window "Export Recorder to WAV"
keys Return
expect_end "$work/music/recorder_export.wav"

start_probe "save: an extension of the user's own is kept" save
await_window "Export Recorder to WAV"
name_file "take.raw"
expect_end "$work/music/take.raw"

start_probe "save: a file whose name lacks the extension is no reason to ask" save
await_window "Export Recorder to WAV"
name_file "noext"
expect_end "$work/music/noext.wav"

start_probe "save: asks before a file is replaced, after the extension was appended" save
await_window "Export Recorder to WAV"
name_file "taken"
await_window "Replace File[?]"
keys Escape
await_window "Export Recorder to WAV"
keys Return
await_window "Replace File[?]"
keys alt+r
expect_end "$work/music/taken.wav"

start_probe "save: the question is answered with no by Return" save
await_window "Export Recorder to WAV"
name_file "taken.wav"
await_window "Replace File[?]"
keys Return
await_window "Export Recorder to WAV"
name_file "other"
expect_end "$work/music/other.wav"

start_probe "save: a folder is never replaced" save
await_window "Export Recorder to WAV"
name_file "folder"
await_window "Error"
keys Return
await_window "Export Recorder to WAV"
keys Escape
expect_end ""

start_probe "box: stands until it is closed" box
await_window "Probe Error"
keys Return
expect_end "(box)"

echo "all passed"
