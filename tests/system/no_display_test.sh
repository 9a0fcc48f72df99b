#!/usr/bin/env bash
# Starts the real program without a display: it says so and ends with 1, unless it is told to draw nowhere.
# Usage: no_display_test.sh VELORIA
set -euo pipefail
here="$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)"
# shellcheck source=../desktop.sh
source "$here/../desktop.sh"

program="$1"
work="$(mktemp -d)"
pid=""
finish() {
  [ -z "$pid" ] || kill "$pid" 2>/dev/null || true
  rm -rf "$work"
}
trap finish EXIT
isolate_user "$work"
unset DISPLAY SDL_VIDEODRIVER
export SDL_AUDIODRIVER=dummy
fail() {
  echo "FAILED: $*" >&2
  cat "$work/err" >&2 || true
  exit 1
}
gone() { ! kill -0 "$pid" 2>/dev/null; }
maps_fonts() { grep -q '[.]ttf' "/proc/$pid/maps" || readlink "/proc/$pid/fd/"* | grep -q '[.]ttf'; }

# start: the program in the background, in a folder of its own.
start() {
  (cd "$work" && exec "$program") >"$work/out" 2>"$work/err" &
  pid=$!
}

start
await gone || fail "the program runs on without a display"
status=0
wait "$pid" || status=$?
pid=""
[ "$status" -eq 1 ] || fail "exit status $status without a display"
[ "$(cat "$work/err")" = "Error: Failed to initialize SDL2/TTF!" ] || fail "not what is said without a display"

for driver in offscreen dummy x11,offscreen; do
  export SDL_VIDEODRIVER="$driver"
  start
  await maps_fonts || fail "no start under $driver"
  sleep 1
  gone && fail "the program ended under $driver"
  kill "$pid"
  wait "$pid" || true
  pid=""
done
echo "passed"
