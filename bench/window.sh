#!/usr/bin/env bash
# First frame and scrolling with 20,000 assets, on an X server in memory with OpenGL in software.
# Usage: bench/window.sh [PRESET]: a build with the benchmarks ("bench" by default)
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/window_setup.sh"

set_up_window window_bench "$@"
"$bin" prepare "$library/20000" 20000 /usr/share/backgrounds/mate/nature

# The median of seven starts.
first_frame() {
  for _ in 1 2 3 4 5 6 7; do
    STARTED=$(date +%s%N) "$bin" "$@"
  done | sort -n | sed -n 4p
}
echo "first frame of an empty window: $(first_frame empty) ms"
echo "first frame with 20,000 assets: $(first_frame first "$library/20000") ms"
for seconds in 20 60; do
  echo "scrolling end to end in $seconds s: $("$bin" scroll "$library/20000" "$seconds")"
done
