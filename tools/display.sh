# A virtual display with a window manager. Sourced; what start_display starts, stop_display stops,
# by process id.

display_pids=()

# Usage: use_home FOLDER. All that is started from here on has FOLDER, which is made, as its home.
use_home() {
  mkdir -p "$1"
  export HOME=$1 XDG_CONFIG_HOME=$1/.config XDG_DATA_HOME=$1/.local/share
  export XDG_CACHE_HOME=$1/.cache XDG_STATE_HOME=$1/.local/state
}

# Usage: start_display [WIDTHxHEIGHT]. Takes a free display number and exports DISPLAY.
start_display() {
  local size=${1:-1920x1440} answer number=
  answer=$(mktemp -u)
  mkfifo "$answer"
  exec {display_fd}<>"$answer"
  rm "$answer"
  # No key repeats itself: a busy machine may be slow to let it go.
  Xvfb -r -displayfd "$display_fd" -screen 0 "${size}x24" -nolisten tcp </dev/null >/dev/null 2>&1 &
  display_pids+=($!)
  read -r -t 30 number <&"$display_fd"
  exec {display_fd}>&-
  if [ -z "$number" ]; then
    echo "The virtual display did not start." >&2
    return 1
  fi
  export DISPLAY=:$number
  unset WAYLAND_DISPLAY
  openbox --sm-disable </dev/null >/dev/null 2>&1 &
  display_pids+=($!)
  wait_for_window_manager
}

wait_for_window_manager() {
  local tries
  for tries in {1..100}; do
    xprop -root _NET_SUPPORTING_WM_CHECK 2>/dev/null | grep -q 'window id' && return 0
    sleep 0.1
  done
  echo "The window manager did not start on $DISPLAY." >&2
  return 1
}

stop_display() {
  local i
  for ((i = ${#display_pids[@]} - 1; i >= 0; --i)); do
    kill "${display_pids[i]}" 2>/dev/null
    wait "${display_pids[i]}" 2>/dev/null
  done
  display_pids=()
}
