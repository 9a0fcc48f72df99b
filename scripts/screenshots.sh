#!/usr/bin/env bash
# Starts the real program on a virtual display, puts it into its main states and writes a picture of each.
# Usage: scripts/screenshots.sh [FOLDER] [PROGRAM]   the folder is docs/images unless another is named.
# The pictures of the manual, in its folder `manual`, are kept in the tree; the others are for looking at.
set -euo pipefail
root="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
# shellcheck source=../tests/desktop.sh
source "$root/tests/desktop.sh"
folder="$(mkdir -p "${1:-$root/docs/images}" && cd "${1:-$root/docs/images}" && pwd)"
program="$(realpath "${2:-$root/build/release/bin/veloria}")"
use_own_desktop 1920x1080 "$0" "$folder" "$program"

work="$(mktemp -d)"
pid=""
finish() {
  [ -z "$pid" ] || kill "$pid" 2>/dev/null || true
  rm -rf "$work"
}
trap finish EXIT
isolate_user "$work"
export SDL_AUDIODRIVER=dummy

# Three voices in canon, so that there is something to see; long enough for a slow machine.
python3 - "$work/canon.mid" <<'PY'
import struct, sys
def track(channel, first, keys):
    data = b""
    for place, key in enumerate(keys):
        delta = first if place == 0 else 0
        data += bytes([delta & 0x7F, 0x90 | channel, key, 90, 0x83, 0x60, 0x80 | channel, key, 0])
    data += bytes([0, 0xFF, 0x2F, 0])
    return b"MTrk" + struct.pack(">I", len(data)) + data
keys = [60, 62, 64, 65, 67, 69, 71, 72, 71, 69, 67, 65, 64, 62] * 60
tracks = track(0, 0, keys) + track(1, 0x40, [k - 12 for k in keys]) + track(2, 0, [k + 7 for k in keys])
with open(sys.argv[1], "wb") as file:
    file.write(b"MThd" + struct.pack(">IHHH", 6, 1, 3, 480) + tracks)
PY

title="Veloria V3.6 - 342 Frequency System"
(cd "$work" && exec "$program") &
pid=$!
await find_window "$title" || { echo "screenshots: no window" >&2; exit 1; }
find_window "$title"
window="$found"

geometry() { xdotool getwindowgeometry --shell "$window" | grep -qx "$1"; }
# picture NAME: once the frame after the last click is drawn.
picture() {
  sleep 0.6
  import -window "$window" "$folder/$1.png"
  echo "$folder/$1.png"
}
# part NAME X Y W H: a part of the window, for the manual.
part() {
  sleep 0.6
  mkdir -p "$folder/manual"
  import -window "$window" -crop "$4x$5+$2+$3" +repage -strip "$folder/manual/$1.png"
  echo "$folder/manual/$1.png"
}
tab() { click_at $((33 + 66 * $1)) 46; }
resize() {
  xdotool windowmove "$window" 0 0 windowsize "$window" "$1" "$2"
  await geometry "WIDTH=$1"
  sleep 0.3 # until a frame has been laid out in the new size
}

await geometry WIDTH=1280
sleep 1.5
picture welcome
sleep 7

click_at 580 16
await find_window "Select Music File"
find_window "Select Music File"
xdotool windowfocus "$found"
xdotool type --delay 8 "$work/canon.mid"
xdotool key Return
await no_window "Select Music File"
click_at 724 16
sleep 1
picture tuning_720
cp "$folder/tuning_720.png" "$folder/veloria.png" # the one that the README shows
for state in 1:wave 2:fx 3:voices 4:viz 5:sys; do
  tab "${state%%:*}"
  picture "${state#*:}_720"
done
click_at 1180 72 # ROTATION
picture rotation_720
click_at 980 72
click_at 207 675 # CALC
tab 4
click_at 100 306 # SCOPE
picture calculator_over_scope_720
click_at 617 61 # the scope's maximise box
picture scope_maximised_720
click_at 1247 11
click_at 629 131 # the calculator's close box
click_at 638 61  # the scope's

resize 1920 1080
# The recorder's upper edge down, so that every tab is seen whole.
xdotool mousemove --window "$window" 960 710 mousedown 1 mousemove --window "$window" 960 890 mouseup 1
for state in 0:tuning 1:wave 2:fx 3:voices 4:viz 5:sys; do
  tab "${state%%:*}"
  picture "${state#*:}"
done
tab 3
click_at 300 70
picture frequency_table
click_at 100 70

tab 0
click_at 200 166 # the selector: the retuner's Solfeggio mode
click_at 45 326  # Heart
click_at 100 360 # DNA Spiral
sleep 1
picture walking
click_at 45 164
click_at 100 360
click_at 45 326

click_at 1700 46 # 180 SHADOW
click_at 1100 130
picture shadow_rows
click_at 1000 46

tab 4
click_at 100 306 # SCOPE
picture scope
click_at 100 306

# The manual's pictures. More room for the centre view first. The buttons
# of the tab VIZ stand 32 pixels apart; they are clicked at their left ends, where no panel lies over them.
drag() { xdotool mousemove --window "$window" "$1" "$2" mousedown 1 mousemove --window "$window" "$3" "$4" mouseup 1; }
drag 960 890 960 700
drag 880 300 1240 300
viz() { click_at 20 $((82 + 32 * $1)); }
viz 5 # LOTUS: its clock makes all pictures breathe
sleep 1
part lotus 100 100 360 360
viz 5
for panel in 0:spectrum:100:100:560:380 2:sacred:160:80:420:420 3:harmonics:200:120:420:420 6:polar:160:100:360:360 \
  7:scope:50:50:600:220; do
  IFS=: read -r button name x y w h <<<"$panel"
  viz "$button"
  part "$name" "$x" "$y" "$w" "$h"
  viz "$button"
done
viz 8 # KATHARA PANEL
part kathara_panel 240 60 520 560
click_at 705 71 # its "i" box
part kathara_research 240 60 520 560
click_at 705 71
viz 8
viz 9 # SHADOW
click_at 200 150
click_at 400 300
part shadow 180 80 480 520
click_at 595 90 # 555
part shadow_555 180 80 480 520
click_at 555 90
viz 9
viz 7
click_at 207 1035 # CALC
part calculator 50 50 640 450
click_at 629 131
viz 7
for view in 941:front 986:top 1031:side 1076:inside; do
  click_at "${view%%:*}" 45
  part "kathara_${view#*:}" 401 32 838 668
done
