#!/usr/bin/env bash
# Configures and builds Zorbel into a build directory.
# Usage: scripts/build.sh [BUILD_DIR] [extra cmake options...]
set -euo pipefail
ROOT="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
BUILD="${1:-$ROOT/build}"
shift || true
cmake -S "$ROOT" -B "$BUILD" -G Ninja -DCMAKE_BUILD_TYPE="${ZORBEL_BUILD_TYPE:-RelWithDebInfo}" "$@"
cmake --build "$BUILD" -- -j"$(nproc)"
