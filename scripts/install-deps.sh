#!/usr/bin/env bash
# Installs the Debian 12 packages Zorbel needs to build, test and run its demo.
# Idempotent: prints nothing and installs nothing when all is present.
set -euo pipefail

PACKAGES=(
  build-essential cmake ninja-build pkg-config
  dpkg-dev  # dpkg-shlibdeps, for the package's dependencies
  qt6-base-dev qt6-base-dev-tools qt6-serialport-dev qt6-charts-dev qt6-multimedia-dev
  libqt6sql6-sqlite libqt6sql6-psql qt6-qpa-plugins
  libgl-dev libqt6opengl6-dev libxkbcommon-dev
  postgresql
  xvfb xauth poppler-utils
  fonts-dejavu-core fonts-liberation2
)

missing=()
for p in "${PACKAGES[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
done
[ ${#missing[@]} -eq 0 ] && exit 0

SUDO=""
if [ "$(id -u)" -ne 0 ]; then
  command -v sudo >/dev/null || { echo "install-deps: need root or sudo to install: ${missing[*]}" >&2; exit 1; }
  SUDO=sudo
fi
echo "install-deps: installing ${missing[*]}"
export DEBIAN_FRONTEND=noninteractive
$SUDO apt-get update -qq
$SUDO apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
