# shellcheck shell=bash
# Sourced by ./run and ./test: installs what is missing, then configures and builds.
# Says nothing and takes a moment when there is nothing to do.

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)

fail() {
  printf 'mosslantern: %s\n' "$1" >&2
  exit 1
}

as_root() {
  if [ "$(id -u)" -eq 0 ]; then
    env DEBIAN_FRONTEND=noninteractive "$@"
  elif command -v sudo >/dev/null; then
    sudo env DEBIAN_FRONTEND=noninteractive "$@"
  else
    fail "needs root to install packages; run: apt-get install ${packages[*]}"
  fi
}

# Installs the packages named in the given lists that are not there yet. What a release of Debian needs beyond a list
# stands beside it, such as packages-13.txt beside packages.txt.
install_packages() {
  local wanted packages=() package list lists=("$@")
  for list in "$@"; do
    # shellcheck source=/dev/null
    list=${list%.txt}-$(. /etc/os-release && echo "${VERSION_ID:-}").txt
    [ ! -f "$list" ] || lists+=("$list")
  done
  wanted=$(cat "${lists[@]}" | sed 's/#.*//' | tr -s '[:space:]' '\n' | sed '/^$/d')
  command -v npm >/dev/null || wanted+=$'\nnpm'
  for package in $wanted; do
    case $(dpkg-query -W -f='${Status}' "$package" 2>/dev/null) in
      'install ok installed') ;;
      *) packages+=("$package") ;;
    esac
  done
  [ ${#packages[@]} -eq 0 ] && return
  echo "Installing ${packages[*]}" >&2
  as_root apt-get update -qq || fail 'apt-get update failed'
  as_root apt-get install -y -qq --no-install-recommends "${packages[@]}" >/dev/null </dev/null ||
    fail "could not install ${packages[*]}"
}

# Fonts and symbols of exact versions, into the build folder.
install_assets() {
  local to="$root/build/npm"
  cmp -s "$root/package-lock.json" "$to/.installed" && return
  mkdir -p "$to"
  cp "$root/package.json" "$root/package-lock.json" "$root/.npmrc" "$to/"
  (cd "$to" && npm ci --ignore-scripts --silent </dev/null) || fail 'npm ci failed'
  cp "$root/package-lock.json" "$to/.installed"
}

# Keeps what a build prints in file $1, and says once on standard error when there is something to build.
keep_log() {
  local line announced=
  while IFS= read -r line; do
    if [ -z "$announced" ] && [[ $line == '['[1-9]* ]]; then
      announced=1
      echo 'Building…' >&2
    fi
    printf '%s\n' "$line"
  done >"$1"
}

# build_preset PRESET [TARGET...]: configures once, builds what changed. What the build prints is shown to a
# terminal and to CI; to others only when it fails.
build_preset() {
  local preset=$1 log="$root/build/$1.log"
  shift
  mkdir -p "$root/build"
  cd "$root" || exit
  if [ ! -f "build/$preset/build.ninja" ]; then
    cmake --preset "$preset" >"$log" 2>&1 || { cat "$log" >&2; fail 'configuring failed'; }
  fi
  if [ -t 2 ] || [ -n "${CI:-}" ]; then
    cmake --build --preset "$preset" ${1:+--target "$@"} >&2 || fail 'building failed'
  else
    cmake --build --preset "$preset" ${1:+--target "$@"} 2>&1 | keep_log "$log" ||
      { cat "$log" >&2; fail 'building failed'; }
  fi
}
