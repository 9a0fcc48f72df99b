#!/usr/bin/env bash
# Builds a release of Veloria and starts it. Without a display it says so and starts the program on a private
# virtual display with a silent audio driver.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

scripts/deps.sh run
cmake --preset release -DVELORIA_TESTS=OFF -DVELORIA_FUZZ=OFF
cmake --build --preset release --target veloria

program="$PWD/build/release/bin/veloria"
if [ -n "${DISPLAY:-}" ] || [ -n "${WAYLAND_DISPLAY:-}" ]; then
  echo "run: starting Veloria"
  exec "$program"
fi
echo "run: no display found; starting Veloria on a virtual display (1280x720) with a silent audio driver"
exec env SDL_AUDIODRIVER=dummy xvfb-run --auto-servernum --server-args="-screen 0 1280x720x24" "$program"
