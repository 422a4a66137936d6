#!/usr/bin/env bash
# Installs the Debian packages that are missing. Usage: tools/setup.sh GROUP..., with the groups
# build (program), players (what plays the movies), test (test run, the visit included), visit (scripted
# visit without a display), managers (more window managers and panels to play it under), format (look of the code),
# bench (benchmarks), fidelity (pages beside LibreOffice's), fuzz (fuzz targets) and artwork (what renders
# the skin and the films).
set -euo pipefail

packages_of() {
  case "$1" in
    build) echo g++ cmake ninja-build pkgconf python3 qt6-base-dev libfontconfig-dev libx11-dev libxcb1-dev \
      libxcb-randr0-dev libwayland-dev qt6-wayland fonts-liberation libarchive-dev libcli11-dev libmd4c-dev libmd4c-html0-dev \
      libtomlplusplus-dev xdg-utils cups-client ;;
    players) echo libavcodec-dev libavformat-dev libswresample-dev libswscale-dev libpulse-dev \
      qt6-webengine-dev; command -v npm >/dev/null || echo npm ;;
    test) echo libgtest-dev strace; packages_of visit ;;
    format) echo clang-format ;;
    fuzz) echo clang libclang-rt-14-dev ;;
    artwork) echo ffmpeg libjpeg-turbo-progs librsvg2-bin ;;
    bench) echo libbenchmark-dev unrtf ;;
    fidelity) echo imagemagick libreoffice-writer-nogui poppler-utils python3-numpy ;;
    managers) echo xfwm4 metacity mutter kwin-x11 dbus-daemon tint2 xfce4-panel ;;
    visit)
      echo xvfb openbox xdotool imagemagick x11-utils x11-xserver-utils
      echo cups-daemon cups-client cups-filters poppler-utils ;;
    *) echo "setup: no such group: $1" >&2; return 1 ;;
  esac
}

install() {
  local as_root=()
  [ "$(id -u)" -eq 0 ] || as_root=(sudo)
  echo "Installing: $*"
  "${as_root[@]}" apt-get update -q
  "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -q --no-install-recommends "$@"
}

missing=()
for group in "$@"; do
  for package in $(packages_of "$group"); do
    state=$(dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null || true)
    [ "$state" = installed ] || missing+=("$package")
  done
done
[ ${#missing[@]} -eq 0 ] || install "${missing[@]}"

# What plays Flash movies is no package of Debian's.
case " $* " in
  *" players "*) "$(dirname "$0")/get_flash_player.py" ;;
esac
