#!/usr/bin/env bash
# demo.sh CLI [DIR]: makes a batch in every text style from the photographs below DIR and exports it.
set -euo pipefail

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
cli=$1
# The other folders of mate-backgrounds hold drawings.
pictures=${2:-/usr/share/backgrounds/mate/nature}
out="$root/build/demo"

fail() {
  printf 'mosslantern: %s\n' "$1" >&2
  exit 1
}

[ $# -le 2 ] || fail 'usage: ./run demo [DIR]'
[ -d "$pictures" ] || fail "“$pictures” is not a folder"
pictures=$(realpath -- "$pictures")

rm -rf "$out"
mkdir -p "$out"
library=$(mktemp -d "$out/.demo.XXXXXX")
trap 'rm -rf "$library"' EXIT
tool() { "$cli" --library "$library" "$@"; }

# Pictures that cannot be read are named by the tool; the others will do.
status=0
LC_ALL=C find -L "$pictures" -regextype posix-extended -type f \
  -iregex '.*\.(jpe?g|png|webp|gif|bmp|tiff?|hei[cf]|avif)' -print0 | sort -z |
  xargs -0 -r "$cli" --library "$library" import -- >/dev/null || status=1
count=$({ tool list assets 2>/dev/null || true; } | wc -l)
[ "$count" -gt 0 ] || fail "there are no photographs in “$pictures”"

echo "Slides from $count photographs:"
for style in classic boxed modern neon; do
  tool generate --content "$root/setup/sample-content.json" --style "$style" --batch-name "$style" \
    --count 2 --seed 7 >/dev/null
  tool export --batch "$style" --to "$out"
done
exit "$status"
