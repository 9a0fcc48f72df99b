#!/usr/bin/env bash
# Makes the MP3 files of this folder from sine tones, with lame (Debian package "lame", not needed to build or test).
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")"
work="$(mktemp -d)"
trap 'rm -rf "$work"' EXIT

# tone OUT RATE BITRATE SECONDS AMPLITUDE HZ...: one channel for each frequency.
tone() {
  local out="$1" rate="$2" bitrate="$3"
  python3 - "$work/tone.wav" "$rate" "${@:4}" <<'PY'
import math, struct, sys, wave
path, rate, seconds, amplitude = sys.argv[1], int(sys.argv[2]), float(sys.argv[3]), float(sys.argv[4])
tones = [float(hz) for hz in sys.argv[5:]]
with wave.open(path, "wb") as out:
    out.setnchannels(len(tones))
    out.setsampwidth(2)
    out.setframerate(rate)
    for i in range(int(seconds * rate)):
        for hz in tones:
            out.writeframes(struct.pack("<h", round(amplitude * 32767 * math.sin(2 * math.pi * hz * i / rate))))
PY
  # At a constant bit rate lame takes a twentieth off the level of its own accord; the scale puts it back.
  lame --quiet --cbr -b "$bitrate" --noreplaygain --scale 1.0526316 "$work/tone.wav" "$out"
}

tone mono_44100.mp3 44100 64 0.3 0.5 440
tone stereo_44100.mp3 44100 128 0.3 0.5 500 1250
tone mono_22050.mp3 22050 32 0.3 0.5 440
tone mono_48000.mp3 48000 64 0.3 0.5 1000
