#!/usr/bin/env bash
# Opening and scrolling a gallery of 1,000 slideshows, and the frames during an export, on an X server in memory
# with OpenGL in software.
# Usage: bench/gallery.sh [PRESET]: a build with the benchmarks ("bench" by default)
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/window_setup.sh"

set_up_window gallery_bench "$@"
for batch in 1 20 1000; do
  "$bin" prepare "$library/$batch" 1000 "$batch" /usr/share/backgrounds/mate/nature
  echo "1,000 slideshows in batches of $batch:"
  for _ in 1 2 3; do
    echo "  $("$bin" open "$library/$batch")"
  done
  for seconds in 20 60; do
    echo "  scrolling end to end in $seconds s: $("$bin" scroll "$library/$batch" "$seconds")"
  done
done
echo "exporting 20 slideshows of five slides: $("$bin" export "$library/20" "$library/export")"
