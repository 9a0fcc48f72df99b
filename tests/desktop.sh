# shellcheck shell=bash disable=SC2154
# (`window` and `found` go between this file and the scripts that source it.)
# A desktop of one's own for scripts that play the user: a virtual display, no settings and no session of the real
# user's, and helpers that wait for what they need instead of sleeping. To be sourced.

# use_own_desktop WIDTHxHEIGHT SCRIPT ARGUMENTS...: starts the script again inside a virtual display.
use_own_desktop() {
  local size="$1"
  shift
  if [ "${VELORIA_OWN_DESKTOP:-}" != yes ]; then
    export VELORIA_OWN_DESKTOP=yes
    exec xvfb-run -a -s "-screen 0 ${size}x24" "$@"
  fi
}

# isolate_user FOLDER: neither the user's settings nor a running session may take part.
isolate_user() {
  mkdir -p "$1/home" "$1/run"
  chmod 700 "$1/run"
  export HOME="$1/home" XDG_RUNTIME_DIR="$1/run" XDG_CONFIG_HOME="$1/home/.config"
  export XDG_DATA_HOME="$1/home/.local/share" XDG_CACHE_HOME="$1/home/.cache"
  export GSETTINGS_BACKEND=memory NO_AT_BRIDGE=1 DBUS_SESSION_BUS_ADDRESS=disabled: LC_ALL=C.UTF-8
  export SDL_VIDEODRIVER=x11
  unset WAYLAND_DISPLAY GTK_USE_PORTAL GDK_BACKEND || true
}

# await COMMAND...: runs a condition until it holds; 20 s at the most.
await() {
  local tries
  for ((tries = 0; tries < 400; ++tries)); do
    if "$@" >/dev/null 2>&1; then return 0; fi
    sleep 0.05
  done
  return 1
}

# find_window TITLE-REGEX: its id is in $found then.
find_window() {
  found="$(xdotool search --onlyvisible --name "^$1\$" 2>/dev/null | tail -n 1)"
  [ -n "$found" ]
}
no_window() { ! find_window "$1"; }

# click_at X Y [BUTTON]: in $window, by its own pixels.
click_at() { xdotool mousemove --window "$window" "$1" "$2" click "${3:-1}"; }
