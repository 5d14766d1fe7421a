#!/usr/bin/env bash
# Installs every Debian package the project needs. Safe to run again: when everything is
# present it changes nothing and does not touch the network.
set -euo pipefail

packages=(
  # build and test
  cmake ninja-build g++ clang libclang-rt-14-dev clang-format
  libgtest-dev libgmock-dev libbenchmark-dev
  # libraries (libxcb for the desktop program's window search)
  libsqlite3-dev libcli11-dev libxcb1-dev pkg-config
  # the desktop program: Qt 6 Widgets; an X server, ImageMagick, xdotool and a window manager
  # for screenshots and start-up figures without a screen; free fonts standing in for
  # Tahoma, Verdana and Microsoft Sans Serif
  qt6-base-dev xvfb xauth imagemagick xdotool openbox
  fonts-dejavu-core fonts-dejavu-extra fonts-liberation2
  # the assistant window's browser: Qt WebEngine with its web channel (print support comes
  # with qt6-base-dev); the engine's renderer, QtWebEngineProcess, is its own package
  qt6-webengine-dev qt6-webchannel-dev libqt6webenginecore6-bin
  # the encoders the shipped fix file runs
  lame vorbis-tools sox ffmpeg
  # packaging: the .deb (cpack needs dpkg-shlibdeps and file) and the checks of it and of the
  # desktop entry, the AppStream file and the manual pages
  dpkg-dev file lintian desktop-file-utils appstream man-db
)

missing=()
for p in "${packages[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q 'install ok installed' || missing+=("$p")
done
[ ${#missing[@]} -eq 0 ] && exit 0

sudo=""
[ "$(id -u)" -eq 0 ] || sudo="sudo"
echo "Installing: ${missing[*]}"
$sudo apt-get update
DEBIAN_FRONTEND=noninteractive $sudo apt-get install -y --no-install-recommends "${missing[@]}"
