# shellcheck shell=bash
# Sourced by the benchmarks of the window.
source "$(dirname "${BASH_SOURCE[0]}")/../setup/setup.sh"

# Usage: set_up_window PROGRAM [PRESET]
# Leaves a benchmark's program in $bin, built if it is not there yet, and an empty folder, which goes in the end, in
# $library. Without a display the script starts again on an X server in memory with OpenGL in software.
set_up_window() {
  local preset=${2:-bench}
  bin=$root/build/$preset/bin/$1
  [ -x "$bin" ] || build_preset "$preset" "$1"
  [ -n "${DISPLAY:-}" ] || exec xvfb-run -a -s '-screen 0 1920x1200x24' "$0" "$preset"

  library=$(mktemp -d)
  trap 'rm -rf "$library"' EXIT
  export XDG_RUNTIME_DIR=$library/run LC_ALL=C.UTF-8
  mkdir -m 700 "$XDG_RUNTIME_DIR"
}
