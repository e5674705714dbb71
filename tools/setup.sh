# What run, test, bench and the tools share; sourced by them, never run. The caller stands in the
# project's folder afterwards.
#
#   need_packages BUILD_PACKAGES TEST_PACKAGES ...   installs what the machine lacks of these lists
#   logged LOG 'what is done' COMMAND ...            runs it quietly, into build/LOG
#   fail 'one line'                                  says it and ends the script

set -euo pipefail
shopt -s inherit_errexit
cd "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/.."

# The Debian 12 packages, in this one place, by what they are for.
BUILD_PACKAGES=(g++ cmake ninja-build qt6-base-dev libqcustomplot-dev libgl1-mesa-dev libcsv-dev libuchardet-dev)
RUNTIME_PACKAGES=(qt6-translations-l10n fonts-dejavu-core fonts-liberation)
SCREENSHOT_PACKAGES=(xvfb imagemagick)
WAYLAND_PACKAGES=(qt6-wayland)
TEST_PACKAGES=(libgtest-dev libgmock-dev poppler-utils xvfb binutils strace)
# A desktop for the tests from outside: window manager, keys, pictures, session bus, accessibility service.
TEST_PACKAGES+=(openbox xdotool x11-utils x11-xkb-utils imagemagick dbus-daemon at-spi2-core python3 python3-pyatspi)
# A print server with a printer that writes PDF files.
PRINTING_PACKAGES=(cups cups-client printer-driver-cups-pdf)
BENCH_PACKAGES=(libbenchmark-dev libsqlite3-dev xvfb)
SOAK_PACKAGES=(btrfs-progs xfsprogs)
CLANG_PACKAGES=(clang-14 libclang-rt-14-dev clang-tidy-14 clang-format-14)
COVERAGE_PACKAGES=(gcovr)
# The manual made into one page, for whoever opens it from the program.
MANUAL_PACKAGES=(pandoc)
# For the Linux package: libraries found beside the program.
PACKAGE_PACKAGES=(patchelf)
SIGNING_PACKAGES=(minisign)
PACKAGE_TEST_PACKAGES=(appstream mmdebstrap dosfstools weston)
# For the Windows program: cross compiler, means to unpack sources, icon; and what runs it here.
WINDOWS_PACKAGES=(g++-mingw-w64-x86-64-posix dpkg-dev librsvg2-bin icoutils zip)
WINDOWS_TEST_PACKAGES=(googletest wine wine64)

fail() {
  echo "$(basename "$0"): $*" >&2
  exit 1
}

logged() {
  local log="build/$1" what="$2"
  shift 2
  mkdir -p build
  echo "$what ..."
  if ! "$@" > "$log" 2>&1; then
    tail -n 40 "$log" >&2
    fail "$what failed; the whole log is $PWD/$log"
  fi
}

missing_packages() {
  local package
  for package in "$@"; do
    [ "$(dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null)" = installed ] || echo "$package"
  done
}

install_packages() {
  local -a root=()
  if [ "$(id -u)" -ne 0 ]; then
    command -v sudo > /dev/null || fail "as root (sudo is not there either), please: apt-get install $*"
    root=(sudo)
  fi
  # A desktop's own updater may hold the package database for a while.
  local -a quiet=("${root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get -qq -o DPkg::Lock::Timeout=300)
  logged packages.log "Reading the package lists" "${quiet[@]}" update
  logged packages.log "Installing $*" "${quiet[@]}" install --yes --no-install-recommends "$@"
}

need_packages() {
  command -v dpkg-query > /dev/null || fail "this is made for Debian 12 (there is no dpkg here)"
  local list
  local -a wanted=() missing
  for list in "$@"; do
    local -n packages="$list"
    wanted+=("${packages[@]}")
  done
  mapfile -t missing < <(missing_packages "${wanted[@]}" | sort --unique)
  [ "${#missing[@]}" -eq 0 ] || install_packages "${missing[@]}"
}

# build PRESET TARGET...: configures and builds; without a target, everything.
build() {
  local preset="$1"
  shift
  logged "$preset-configure.log" "Configuring $preset" cmake --preset "$preset"
  logged "$preset-build.log" "Building $preset" \
    cmake --build --preset "$preset" --parallel "$(nproc)" ${1:+--target "$@"}
}
