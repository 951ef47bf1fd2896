#!/usr/bin/env bash
# Opening and scrolling a gallery of 1,000 slideshows, and the frames during an export, on an X server in memory
# with OpenGL in software.
# Usage: bench/gallery.sh [PRESET]: a build with the benchmarks ("bench" by default)
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/../setup/setup.sh"

preset=${1:-bench}
bin=$root/build/$preset/bin/gallery_bench
[ -x "$bin" ] || build_preset "$preset" gallery_bench
[ -n "${DISPLAY:-}" ] || exec xvfb-run -a -s '-screen 0 1920x1200x24' "$0" "$preset"

library=$(mktemp -d)
trap 'rm -rf "$library"' EXIT
export XDG_RUNTIME_DIR=$library/run LC_ALL=C.UTF-8
mkdir -m 700 "$XDG_RUNTIME_DIR"
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
