#!/usr/bin/env bash
# First frame and scrolling with 20,000 assets, on an X server in memory with OpenGL in software.
# Usage: bench/window.sh [PRESET]: a build with the benchmarks ("bench" by default)
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/window_setup.sh"

set_up_window window_bench "$@"
empty_window=${bin%/*}/empty_window
[ -x "$empty_window" ] || build_preset "${1:-bench}" empty_window
"$bin" prepare "$library/20000" 20000 /usr/share/backgrounds/mate/nature

# By turns, so that a machine that is slow for a while is slow for both.
for _ in {1..25}; do
  STARTED=$(date +%s%N) "$empty_window" >>"$library/empty"
  STARTED=$(date +%s%N) "$bin" first "$library/20000" >>"$library/first"
done
median() {
  sort -n "$1" | sed -n 13p
}
empty=$(median "$library/empty")
first=$(median "$library/first")
echo "first frame of an empty window: $empty ms"
echo "first frame with 20,000 assets: $first ms, $(awk "BEGIN { printf \"%.2f\", $first / $empty }") times that"
for seconds in 20 60; do
  echo "scrolling end to end in $seconds s: $("$bin" scroll "$library/20000" "$seconds")"
done
