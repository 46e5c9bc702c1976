#!/usr/bin/env bash
# Installs a built package into a fresh, minimal Debian 12 root with apt, as
# a user would on a new machine, and runs zorbel-admin and zorbel-sim there:
# proof that the package's dependencies pull in all the programs need.
# Needs root and the network (the system's Debian mirror); takes minutes, so
# it is not part of the tests.
# Usage: scripts/check-package-install.sh [PACKAGE.deb] [ROOT_DIR]
set -euo pipefail
ROOT="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
DEB="$(realpath "${1:-$(ls -t "$ROOT"/build-package/zorbel_*.deb | head -n1)}")"
CHROOT="${2:-$(mktemp -d /tmp/zorbel-bookworm.XXXXXX)}"
[ "$(id -u)" -eq 0 ] || { echo "check-package-install: run as root" >&2; exit 1; }
command -v mmdebstrap >/dev/null || DEBIAN_FRONTEND=noninteractive apt-get install -y -qq mmdebstrap >/dev/null

# the archive a fresh Debian 12 installation uses, with its updates
MIRROR="$(sed -n 's/^URIs: *//p' /etc/apt/sources.list.d/debian.sources 2>/dev/null | head -n1)"
MIRROR="${MIRROR:-http://deb.debian.org/debian}"
[ -e "$CHROOT/usr/bin/apt-get" ] || mmdebstrap --variant=apt --quiet bookworm "$CHROOT" \
  "deb $MIRROR bookworm main" "deb $MIRROR bookworm-updates main"
cp "$DEB" "$CHROOT/tmp/"
# mmdebstrap leaves no package lists behind
chroot "$CHROOT" apt-get update -qq
chroot "$CHROOT" env DEBIAN_FRONTEND=noninteractive apt-get install -y -q "/tmp/$(basename "$DEB")"
for program in zorbel-admin zorbel-sim zorbel; do
  chroot "$CHROOT" env -u DISPLAY -u WAYLAND_DISPLAY -u QT_QPA_PLATFORM "$program" --help | head -n1
done
chroot "$CHROOT" sh -c 'cd /tmp && zorbel-admin init --db sqlite:zorbel.db && ls -l zorbel.db'
echo "check-package-install: $(basename "$DEB") installed and ran in $CHROOT"
