#!/usr/bin/env bash
# Plays a user before the real program: loads a file by the real file chooser, plays it, stops, resets, resizes the
# window and closes it. Usage: system_test.sh VELORIA FOLDER-FOR-PICTURES
set -euo pipefail
here="$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)"
# shellcheck source=../desktop.sh
source "$here/../desktop.sh"
use_own_desktop 1920x1080 "$0" "$@"

program="$1"
pictures="$2"
work="$(mktemp -d)"
pid=""
finish() {
  [ -z "$pid" ] || kill "$pid" 2>/dev/null || true
  rm -rf "$work"
}
trap finish EXIT
isolate_user "$work"
mkdir -p "$pictures" "$work/music"
# The device writes what it would have played into a file, so that it can be listened to by numbers.
export SDL_AUDIODRIVER=disk SDL_DISKAUDIOFILE="$work/sound.raw"

fail() {
  echo "FAILED: $*" >&2
  cat "$work/err" >&2 || true
  import -window root "$pictures/failed.png" 2>/dev/null || true
  exit 1
}

# The picture of the window's part WIDTHxHEIGHT+X+Y, as a digest.
digest() { import -window "$window" -crop "$1" +repage -depth 8 rgb:- | md5sum; }
# The digest of a part once it has come to rest: the same twice, a third of a second apart.
settled() {
  local last="" now
  for ((tries = 0; tries < 60; ++tries)); do
    now="$(digest "$1")"
    [ "$now" != "$last" ] || break
    last="$now"
    sleep 0.35
  done
  printf '%s' "$now"
}
picture() { import -window "$window" "$pictures/$1.png"; }
changed() { [ "$(digest "$1")" != "$2" ]; }
same() { [ "$(digest "$1")" = "$2" ]; }
geometry() { xdotool getwindowgeometry --shell "$window" | grep -qx "$1"; }
gone() { ! kill -0 "$pid" 2>/dev/null; }

# Three tracks: a chord that sounds for four seconds.
python3 - "$work/music/song.mid" <<'PY'
import struct, sys
tracks = b""
for key in (60, 64, 67):
    track = bytes([0, 0x90, key, 100, 0x9E, 0, 0x80, key, 64, 0, 0xFF, 0x2F, 0])
    tracks += b"MTrk" + struct.pack(">I", len(track)) + track
with open(sys.argv[1], "wb") as file:
    file.write(b"MThd" + struct.pack(">IHHH", 6, 1, 3, 480) + tracks)
PY

# A quarter of a second each, one note behind the other: what is not fed in time is missing.
python3 - "$work/music/steps.mid" <<'PY'
import struct, sys
track = b"".join(bytes([0, 0x90, 60 + i % 12, 100, 0x81, 0x70, 0x80, 60 + i % 12, 64]) for i in range(120))
track += bytes([0, 0xFF, 0x2F, 0])
with open(sys.argv[1], "wb") as file:
    file.write(b"MThd" + struct.pack(">IHHH", 6, 0, 1, 480) + b"MTrk" + struct.pack(">I", len(track)) + track)
PY
mkfifo "$work/music/pipe.ogg"

(cd "$work/music" && exec "$program") >"$work/out" 2>"$work/err" &
pid=$!
await find_window "Veloria V3.6 - 342 Frequency System" || fail "no window"
find_window "Veloria V3.6 - 342 Frequency System"
window="$found"
await geometry WIDTH=1280 || fail "the window is not 1280 wide"
status="600x28+0+691"   # the status bar's text
name="300x20+790+6"     # the file's name in the top bar
sleep 7.5 # the welcome dims the whole window and fades for seven seconds
quiet="$(settled "$status")"
unnamed="$(settled "$name")"

click_at 580 16 # LOAD MUSIC FILE
await find_window "Select Music File" || fail "no file chooser"
find_window "Select Music File"
xdotool windowfocus "$found"
xdotool type --delay 8 "$work/music/song.mid"
xdotool key Return
await no_window "Select Music File" || fail "the chooser stayed open"
await changed "$name" "$unnamed" || fail "the file's name is not shown"
await changed "$status" "$quiet" || fail "the status bar does not show the file"
loaded="$(settled "$status")"

click_at 724 16 # PLAY
await changed "$status" "$loaded" || fail "no voices are counted"
picture playing
sleep 1
click_at 684 16 # STOP
await same "$status" "$loaded" || fail "the voices go on after STOP"
click_at 764 16 # RESET
await same "$status" "$quiet" || fail "RESET does not forget the file"
await same "$name" "$unnamed" || fail "RESET does not forget the name"

# choose PATH: by the button and the chooser.
choose() {
  click_at 580 16
  await find_window "Select Music File" || fail "no file chooser"
  find_window "Select Music File"
  xdotool windowfocus "$found"
  xdotool type --delay 8 "$1"
  xdotool key Return
  await no_window "Select Music File" || fail "the chooser stayed open"
}

# Nobody writes to the pipe: whoever opened it would wait for ever.
choose "$work/music/pipe.ogg"
await find_window "File Open Error" || fail "a pipe was not refused"
find_window "File Open Error"
xdotool windowfocus "$found"
xdotool key Return
await no_window "File Open Error" || fail "the message stayed open"

choose "$work/music/steps.mid"
loaded="$(settled "$status")"
click_at 724 16 # PLAY
await changed "$status" "$loaded" || fail "no voices are counted"
sleep 1
began="$(stat -c %s "$work/sound.raw")"
click_at 580 16
await find_window "Select Music File" || fail "no file chooser"
find_window "Select Music File"
sleep 3
xdotool windowfocus "$found"
xdotool key Escape
await no_window "Select Music File" || fail "the chooser stayed open"
sleep 0.5
python3 - "$work/sound.raw" "$began" <<'PY' || fail "the music stopped while the chooser stood"
import array, sys
with open(sys.argv[1], "rb") as file:
    file.seek(int(sys.argv[2]) // 8 * 8)
    data = file.read()
samples = array.array("f", data[: len(data) // 8 * 8])
longest = silent = 0
for i in range(0, len(samples), 2):
    silent = silent + 1 if max(abs(samples[i]), abs(samples[i + 1])) < 0.001 else 0
    longest = max(longest, silent)
print(f"chooser: {len(samples) / 88200:.1f} s, longest silence {longest / 44.1:.0f} ms")
sys.exit(0 if len(samples) > 2 * 44100 and longest < 6615 else 1)
PY
click_at 764 16 # RESET
await same "$status" "$quiet" || fail "RESET does not forget the file"

click_at 950 105 # a Reflection row
await changed "$status" "$quiet" || fail "a row does not sound"
click_at 684 16
await same "$status" "$quiet" || fail "STOP does not end a row"

for size in "800 600" "1920 1080"; do
  # shellcheck disable=SC2086
  xdotool windowsize "$window" $size
  await geometry "WIDTH=${size% *}" || fail "no resize to $size"
  sleep 0.4
  picture "size_${size/ /x}"
done

# As the window's close button does.
xdotool windowfocus "$window"
python3 - "$window" <<'PY' || fail "the close request was not sent"
import ctypes, sys
x11 = ctypes.CDLL("libX11.so.6")
x11.XOpenDisplay.restype = ctypes.c_void_p
display = ctypes.c_void_p(x11.XOpenDisplay(None))
x11.XInternAtom.restype = ctypes.c_ulong
protocols = x11.XInternAtom(display, b"WM_PROTOCOLS", 0)
delete = x11.XInternAtom(display, b"WM_DELETE_WINDOW", 0)
class Event(ctypes.Structure):
    _fields_ = [("type", ctypes.c_int), ("serial", ctypes.c_ulong), ("send", ctypes.c_int),
                ("display", ctypes.c_void_p), ("window", ctypes.c_ulong), ("kind", ctypes.c_ulong),
                ("format", ctypes.c_int), ("data", ctypes.c_long * 5), ("pad", ctypes.c_long * 16)]
window = int(sys.argv[1])
event = Event(33, 0, 1, display, window, protocols, 32, (ctypes.c_long * 5)(delete, 0, 0, 0, 0))
x11.XSendEvent(display, ctypes.c_ulong(window), 0, ctypes.c_long(0), ctypes.byref(event))
x11.XFlush(display)
PY
await gone || fail "the program did not end"
status_code=0
wait "$pid" || status_code=$?
pid=""
[ "$status_code" -eq 0 ] || fail "exit status $status_code"
# SDL announces its recording driver there, and the program has nothing to say.
! grep -vE 'SDL disk i/o audio driver|Writing to file' "$work/err" >/dev/null || fail "something was said on standard error"
[ ! -e "$work/music/scale_table_dump.txt" ] || fail "the scale was dumped without a walk"

# The file that sounded is in what the device got: loud somewhere, and silent at the end.
python3 - "$work/sound.raw" <<'PY' || fail "the sound is not what was played"
import array, sys
samples = array.array("f", open(sys.argv[1], "rb").read())
peak = max(abs(s) for s in samples)
tail = max(abs(s) for s in samples[-4410:])
print(f"sound: {len(samples) / 88200:.1f} s, peak {peak:.3f}, tail {tail:.4f}")
sys.exit(0 if 0.1 < peak <= 1.0 and tail < 0.001 else 1)
PY
echo "passed"
