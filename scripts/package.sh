#!/usr/bin/env bash
# Builds the Debian package of Zorbel (zorbel_<version>_<arch>.deb) from a
# Release build of its own in build-package/, and says where it lies.
# Usage: scripts/package.sh [BUILD_DIR]
set -euo pipefail
ROOT="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
BUILD="${1:-$ROOT/build-package}"

bash "$ROOT/scripts/install-deps.sh"
# only what the package holds: the programs, their sounds and manual pages
ZORBEL_BUILD_TYPE=Release ZORBEL_BUILD_TARGETS="zorbel zorbel-admin zorbel-sim zorbel-sounds zorbel-man" bash "$ROOT/scripts/build.sh" "$BUILD"
(cd "$BUILD" && cpack -G DEB --config CPackConfig.cmake)

DEB="$(ls -t "$BUILD"/zorbel_*.deb | head -n1)"
echo "package: $DEB ($(du -h "$DEB" | cut -f1), $(stat -c %s "$DEB") bytes)"
