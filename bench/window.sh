#!/usr/bin/env bash
# First frame and scrolling with 20,000 assets, on an X server in memory with OpenGL in software.
# Usage: bench/window.sh [PRESET]: a build with the benchmarks ("bench" by default)
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/../setup/setup.sh"

bin="$root/build/${1:-bench}/bin/window_bench"
[ -x "$bin" ] || build_preset "${1:-bench}" window_bench
library=$(mktemp -d)
trap 'rm -rf "$library"' EXIT
export XDG_RUNTIME_DIR=$library/run LC_ALL=C.UTF-8
mkdir -m 700 "$XDG_RUNTIME_DIR"
"$bin" prepare "$library/20000" 20000 /usr/share/backgrounds/mate/nature

first_frames() {
  local i
  for i in 1 2 3 4 5 6 7; do STARTED=$(date +%s%N) "$bin" "$@"; done | sort -n | sed -n 4p
}
export -f first_frames
export bin library
xvfb-run -a -s '-screen 0 1920x1200x24' bash -c '
  echo "first frame, ms (median of 7): empty window $(first_frames empty), 20,000 assets $(first_frames first "$library/20000")"
  for seconds in 20 60; do
    echo "scrolling end to end in $seconds s: $("$bin" scroll "$library/20000" $seconds)"
  done'
