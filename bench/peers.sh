#!/usr/bin/env bash
# How fast veloria-cli is beside tools that a user would otherwise take: installs them (Debian packages), makes its own
# test files, runs each tool and veloria-cli in turn on one core, and prints a table of medians, ratios and peak memory.
# Every run writes a WAV file. The files and the outputs lie in a temporary folder, which is removed.
# Usage: bench/peers.sh [ROUNDS]   5 rounds unless said; VELORIA_CLI names another program than the release's.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

rounds="${1:-5}"
say() { printf 'peers: %s\n' "$*" >&2; }

packages=(fluidsynth timgm6mb-soundfont wildmidi freepats rubberband-cli sox soundstretch mpg123 lame time
  util-linux python3-minimal)
missing=()
for package in "${packages[@]}"; do
  status="$(dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null || true)"
  [ "$status" = installed ] || missing+=("$package")
done
if [ "${#missing[@]}" -gt 0 ]; then
  as_root=()
  [ "$(id -u)" -eq 0 ] || as_root=(sudo)
  say "installing ${missing[*]}"
  "${as_root[@]}" apt-get update -q >&2
  DEBIAN_FRONTEND=noninteractive "${as_root[@]}" apt-get install -y -q --no-install-recommends "${missing[@]}" >&2
fi

if [ -z "${VELORIA_CLI:-}" ]; then
  say "building the release"
  cmake --preset release -DVELORIA_TESTS=OFF -DVELORIA_BENCH=OFF >&2
  cmake --build --preset release --target veloria-cli >&2
  VELORIA_CLI="$PWD/build/release/bin/veloria-cli"
fi

work="$(mktemp -d)"
trap 'rm -rf "$work"' EXIT
say "making songs"
python3 bench/peer_songs.py "$work"
say "measuring in $work"
# The last core: the first has most of the system's own work.
taskset -c "$(($(nproc) - 1))" python3 bench/peers.py "$VELORIA_CLI" "$work" "$rounds"
