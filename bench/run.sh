#!/usr/bin/env bash
# Builds and runs every benchmark: the parts, then whole exports against the floor, on one thread and on all.
# Usage: bench/run.sh [FOLDER]: photographs to export (by default those of mate-backgrounds)
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/../setup/setup.sh"

install_packages "$root/setup/packages.txt" "$root/setup/bench-packages.txt"
install_assets
build_preset bench
bin="$root/build/bench/bin"
photographs=${1:-/usr/share/backgrounds/mate}

for bench in store_bench picture_bench render_bench generator_bench; do
  printf '\n== %s\n' "$bench"
  "$bin/$bench"
done
for threads in 1 "$(nproc)"; do
  printf '\n== export, %s thread(s)\n' "$threads"
  "$bin/export_bench" "$photographs" "$threads" 2
done
