#!/usr/bin/env bash
# Installs what Veloria is built from and tested with on Debian 12: packages by apt, and the MP3 decoder's header
# from the npm registry, unpacked to .deps/minimp3 (which git ignores). Safe to repeat: what is there stays.
# Usage: scripts/deps.sh [run|test]   run: to build and start the program; test (default): the tests' tools as well.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

purpose="${1:-test}"
say() { printf 'deps: %s\n' "$*"; }
fail() {
  printf 'deps: %s\n' "$*" >&2
  exit 1
}

build_packages=(
  g++ cmake ninja-build pkg-config ca-certificates openssl
  libsdl2-dev libsdl2-ttf-dev libgtk-3-dev libgstreamer1.0-dev libfontconfig-dev libhwy-dev
  gstreamer1.0-plugins-base gstreamer1.0-plugins-good gstreamer1.0-libav gstreamer1.0-alsa
  fonts-liberation fonts-dejavu-core xvfb xauth
)
test_packages=(
  libgtest-dev libbenchmark-dev libpng-dev clang-format g++-mingw-w64-x86-64 clang libclang-rt-14-dev
  xdotool openbox x11-utils imagemagick dbus-x11 python3-minimal shellcheck adwaita-icon-theme librsvg2-common parallel
)

packages=("${build_packages[@]}")
[ "$purpose" = run ] || packages+=("${test_packages[@]}")

# npm comes from Node.js's own packages on some machines; Debian's is taken only where there is none.
system_minimp3() { ls -1 /usr/include/minimp3.h /usr/local/include/minimp3.h /usr/include/minimp3/minimp3.h 2>/dev/null || true; }
if ! command -v npm >/dev/null 2>&1 && [ ! -f .deps/minimp3/minimp3.h ] && [ -z "$(system_minimp3)" ]; then
  packages+=(npm)
fi

missing=()
for package in "${packages[@]}"; do
  status="$(dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null || true)"
  [ "$status" = installed ] || missing+=("$package")
done

if [ "${#missing[@]}" -gt 0 ]; then
  as_root=()
  [ "$(id -u)" -eq 0 ] || as_root=(sudo)
  say "installing ${missing[*]}"
  "${as_root[@]}" apt-get update -q
  DEBIAN_FRONTEND=noninteractive "${as_root[@]}" apt-get install -y -q --no-install-recommends "${missing[@]}"
else
  say "all ${#packages[@]} packages are installed"
fi

# The MP3 decoder: one public-domain header. The digest pins its bytes; npm checks it too when it unpacks.
minimp3_version=1.0.0
minimp3_sha512="K+d0ltqfCigErdRNYgeA9t2187tt6gQk64y9hlfPxW82MVB8ujv1wCHtvd6UWg+7qiHx0au/P+O8NDBNWDl9PA=="

# In a shell of its own, whose end takes the folder along, however it ends. Each step says what failed: the tools
# themselves may say nothing, or nothing of what was wanted.
fetch_minimp3() (
  name="minimp3 ${minimp3_version}"
  work="$(mktemp -d)"
  trap 'rm -rf "$work"' EXIT
  archive="$work/minimp3-${minimp3_version}.tgz"
  command -v npm >/dev/null 2>&1 || fail "$name cannot be fetched: there is no npm"
  (cd "$work" && npm pack --loglevel=error "minimp3@${minimp3_version}" >/dev/null) ||
    fail "$name could not be fetched from the npm registry ($(npm config get registry 2>/dev/null)); npm's reason, if any, stands above"
  [ -f "$archive" ] || fail "$name could not be fetched: npm left no minimp3-${minimp3_version}.tgz"
  digest="$(openssl dgst -sha512 -binary "$archive" | base64 -w0)" || fail "$name: its digest could not be taken"
  [ "$digest" = "$minimp3_sha512" ] || fail "$name: the package's digest is not the pinned one; nothing was unpacked"
  tar -xzf "$archive" -C "$work" package/lib/minimp3.h package/LICENSE || fail "$name could not be unpacked"
  if ! mkdir -p .deps/minimp3 || ! cp "$work/package/LICENSE" .deps/minimp3/LICENSE ||
    ! cp "$work/package/lib/minimp3.h" .deps/minimp3/minimp3.h; then
    fail "$name could not be written to .deps/minimp3"
  fi
)

if [ -n "$(system_minimp3)" ]; then
  say "using the system's minimp3.h"
elif [ -f .deps/minimp3/minimp3.h ]; then
  say "minimp3 ${minimp3_version} is in .deps/minimp3"
else
  say "fetching minimp3 ${minimp3_version} from the npm registry"
  fetch_minimp3
fi
say "done"
