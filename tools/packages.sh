# shellcheck shell=bash
# Debian packages by what they are needed for, and their installation. Sourced by ./dev.

# shellcheck disable=SC2034  # used by ./dev
buildPackages=(build-essential cmake ninja-build
               qt6-base-dev qt6-base-dev-tools qt6-serialport-dev qt6-svg-dev
               libgtest-dev libgmock-dev libcli11-dev
               fontconfig fonts-dejavu-core)
# shellcheck disable=SC2034
checkPackages=(clang-format clang-tidy shellcheck)
# shellcheck disable=SC2034
formatPackages=(clang-format)
# shellcheck disable=SC2034
coveragePackages=(gcovr)
# shellcheck disable=SC2034
packagePackages=(dpkg-dev librsvg2-bin lintian appstream desktop-file-utils)

# Messages go to stderr: what a program prints stays alone on stdout.
say() {
  printf '== %s\n' "$1" >&2
}

# missing_packages NAME...: prints those that are not installed, one a line.
missing_packages() {
  local installed
  installed=$(dpkg-query -W -f='${Package} ${db:Status-Status}\n' "$@" 2>/dev/null |
              sed -n 's/ installed$//p' || true)
  local package
  for package in "$@"; do
    grep -qxF -- "$package" <<<"$installed" || printf '%s\n' "$package"
  done
}

# ensure_packages NAME...: installs what is missing. Elsewhere than on Debian it leaves that to the
# person, and the build says what it does not find.
ensure_packages() {
  if ! command -v dpkg-query >/dev/null; then
    say "This is no Debian system; the packages needed are: $*"
    return 0
  fi
  local missing=()
  mapfile -t missing < <(missing_packages "$@")
  [ ${#missing[@]} -gt 0 ] || return 0

  if ! can_install; then
    say "Please install as root: apt-get install --no-install-recommends ${missing[*]}"
    return 1
  fi
  local asRoot=()
  [ "$(id -u)" = 0 ] || asRoot=(sudo)
  say "Installing ${missing[*]} and what they stand on; on a bare machine that takes a minute"
  mkdir -p build
  local apt=(${asRoot[@]+"${asRoot[@]}"} env DEBIAN_FRONTEND=noninteractive
             apt-get -qq -o Dpkg::Use-Pty=0)
  "${apt[@]}" update >build/packages.log 2>&1 </dev/null ||
    say "The package lists could not be renewed; going on"
  if ! "${apt[@]}" install -y --no-install-recommends "${missing[@]}" \
      >>build/packages.log 2>&1 </dev/null; then
    cat build/packages.log >&2
    return 1
  fi
}

# can_install: root can; others need sudo, and somebody there to give it a password if it wants one.
can_install() {
  [ "$(id -u)" != 0 ] || return 0
  command -v sudo >/dev/null || return 1
  [ -t 0 ] || sudo -n true 2>/dev/null
}
