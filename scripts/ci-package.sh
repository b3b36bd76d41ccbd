#!/usr/bin/env bash
# Builds the Debian packages as a plant's IT would install them and tries
# them on this machine: the metadata and man pages are checked, lintian
# judges each package, the package with the desktop tool is installed with
# apt-get, its programs are run from their installed paths (the window
# offscreen, taking its pictures), and it is removed again; then the same for
# the command-line package (-DKTR_GUI=OFF), which must not depend on Qt
# Widgets. Needs root or sudo for apt-get. Builds into build-deb/ and
# build-deb-cli/ (incremental).
set -euo pipefail
cd "$(dirname "$0")/.."

. scripts/packages.sh
ensure_packages "${base_packages[@]}" appstream dpkg-dev lintian
sudo_cmd=()
[ "$(id -u)" -ne 0 ] && sudo_cmd=(sudo)
jobs=$(nproc 2>/dev/null || echo 2)
scratch=$(mktemp -d)
installed=
cleanup() {
  [ -n "$installed" ] && "${sudo_cmd[@]}" apt-get remove -y -qq "$installed" >/dev/null
  rm -rf "$scratch"
}
trap cleanup EXIT
fail() { echo "FAIL: $*" >&2; exit 1; }

echo "== AppStream metadata"
appstreamcli validate --no-net resources/desktop/*.metainfo.xml

# build_package DIR CMAKE_OPTIONS...: prints the path of the .deb made.
build_package() {
  local dir=$1; shift
  cmake -S . -B "$dir" -DCMAKE_BUILD_TYPE=Release -DKTR_TESTS=OFF -DCMAKE_INSTALL_PREFIX=/usr "$@" >/dev/null
  cmake --build "$dir" -j"$jobs" >&2
  (cd "$dir" && cpack >&2)
  ls "$dir"/*.deb
}

install_package() {
  DEBIAN_FRONTEND=noninteractive "${sudo_cmd[@]}" apt-get install -y -qq --no-install-recommends "./$1" >/dev/null
  installed=$(dpkg-deb -f "$1" Package)
}

remove_package() {
  "${sudo_cmd[@]}" apt-get remove -y -qq "$installed" >/dev/null
  ! dpkg-query -W -f='${Status}' "$installed" 2>/dev/null | grep -q 'install ok installed' \
    || fail "$installed is still installed"
  [ ! -e /usr/bin/ktrctl ] || fail "/usr/bin/ktrctl is left after removing $installed"
  installed=
}

# Errors and warnings fail; the placeholder maintainer address stays until
# the package has a real one.
judge() {
  lintian --fail-on error,warning --suppress-tags bogus-mail-host,bogus-mail-host-in-debian-changelog "$1" 2>/dev/null \
    || fail "lintian finds errors or warnings in $(basename "$1")"
}

describe() {
  echo "$(basename "$1"): $(du -k "$1" | cut -f1) KiB"
  echo "  Depends: $(dpkg-deb -f "$1" Depends)"
  echo "  Recommends: $(dpkg-deb -f "$1" Recommends)"
}

run_cli() {
  export QT_QPA_PLATFORM=offscreen
  /usr/bin/ktrctl --lang en --simulator version | grep -q . || fail "installed ktrctl printed no version"
  /usr/bin/ktr-sim --lang en --help | grep -q -- --pty || fail "installed ktr-sim --help"
  bash -c '. /usr/share/bash-completion/completions/ktrctl && complete -p ktrctl' >/dev/null \
    || fail "the completion of ktrctl does not load"
  [ -s /usr/share/ktr-w5/erroreng.lst ] || fail "no error list installed"
}

echo "== package with the desktop tool"
deb=$(build_package build-deb -DKTR_GUI=ON)
describe "$deb"
judge "$deb"
install_package "$deb"
run_cli
[ -s /usr/share/applications/ktr-w5.desktop ] || fail "no .desktop entry installed"
[ -s /usr/share/icons/hicolor/scalable/apps/ktr-w5.svg ] || fail "no icon installed"
[ -s /usr/share/ktr-w5/help/index.html ] || fail "no help pages installed"
appstreamcli validate --no-net /usr/share/metainfo/org.ktr_w5.KtrW5.metainfo.xml
QT_QPA_PLATFORM=offscreen /usr/bin/ktr-w5 --simulator --screenshot "$scratch/shots" 2>/dev/null \
  || fail "installed ktr-w5 --screenshot failed"
[ -s "$scratch/shots/main-tab1.png" ] || fail "the main window's screenshot is missing or empty"
sh scripts/check-man-pages.sh /usr/bin /usr/share/man/man1
remove_package
[ ! -e /usr/bin/ktr-w5 ] || fail "/usr/bin/ktr-w5 is left after removal"

echo "== package for the command line alone"
deb=$(build_package build-deb-cli -DKTR_GUI=OFF)
describe "$deb"
dpkg-deb -f "$deb" Depends | grep -qi widgets && fail "the command-line package depends on Qt Widgets"
judge "$deb"
install_package "$deb"
run_cli
ldd /usr/bin/ktrctl /usr/bin/ktr-sim | grep -qi widgets && fail "an installed program links Qt Widgets"
[ ! -e /usr/bin/ktr-w5 ] || fail "the command-line package installed ktr-w5"
sh scripts/check-man-pages.sh /usr/bin /usr/share/man/man1
remove_package
echo "== packages built, installed, run and removed"
