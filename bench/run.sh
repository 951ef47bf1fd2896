#!/usr/bin/env bash
# Builds and runs every benchmark: the parts, then whole exports against the floor, on one thread and on all.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
cmake --preset bench >/dev/null
cmake --build --preset bench
bin=build/bench/bin
photographs=${1:-/usr/share/backgrounds/mate}

for bench in store_bench picture_bench render_bench generator_bench; do
  printf '\n== %s\n' "$bench"
  "$bin/$bench"
done
for threads in 1 "$(nproc)"; do
  printf '\n== export, %s thread(s)\n' "$threads"
  "$bin/export_bench" "$photographs" "$threads" 2
done
