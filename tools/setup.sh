# Shared by the project's commands: sourced, not run. Changes to the project's root. From then on a
# failing line ends the command with a message.

set -Eeuo pipefail
shopt -s inherit_errexit

cd "$(dirname "${BASH_SOURCE[0]}")/.."
export LC_ALL=C.UTF-8

command_name=${command_name:-$(basename "$0")}

say() { printf '== %s\n' "$*"; }

fail() {
  trap - ERR
  printf '%s: %s\n' "$command_name" "$*" >&2
  exit 1
}

trap 'fail "line $LINENO failed: $BASH_COMMAND"' ERR

# Installs the packages that are missing.
need_packages() {
  local package state missing=()
  for package in "$@"; do
    state=$(dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null || true)
    [[ $state == installed ]] || missing+=("$package")
  done
  [[ ${#missing[@]} -gt 0 ]] || return 0
  [[ $(id -u) -eq 0 ]] || fail "not installed: ${missing[*]} (apt-get install them, or run this as root)"
  say "Installing ${missing[*]}"
  local -x DEBIAN_FRONTEND=noninteractive
  local options=(-qq -o DPkg::Lock::Timeout=300)
  mkdir -p build
  { apt-get "${options[@]}" update &&
    apt-get "${options[@]}" install -y --no-install-recommends "${missing[@]}"
  } >build/packages.log 2>&1 || { tail -n 20 build/packages.log >&2; fail "apt-get failed, see build/packages.log"; }
}

# A Node.js that was not installed by apt is accepted, if it is new enough.
need_node() {
  local packages=()
  command -v node >/dev/null || packages+=(nodejs ca-certificates)
  command -v npm >/dev/null || packages+=(npm ca-certificates)
  [[ ${#packages[@]} -eq 0 ]] || need_packages "${packages[@]}"
  node -e 'process.exit(parseInt(process.versions.node) >= 18 ? 0 : 1)' ||
    fail "node $(node --version) is too old, 18 or newer is needed"
}

# build PRESET [TARGET...]: prints the compiler's output only when the build fails.
build() {
  local preset=$1
  shift
  mkdir -p build
  local log=build/$preset.log
  say "Building ($preset)"
  { cmake --preset "$preset" && cmake --build --preset "$preset" --parallel "$(nproc)" ${1:+--target "$@"}
  } >"$log" 2>&1 || { { grep -i -E -A5 'error|FAILED' "$log" || tail -n 20 "$log"; } | head -n 60 >&2 || true; fail "the build failed, see $log"; }
}
