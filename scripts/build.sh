#!/usr/bin/env bash
# Configures and builds Zorbel into a build directory.
# Usage: scripts/build.sh [BUILD_DIR] [extra cmake options...]
set -euo pipefail
ROOT="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
BUILD="${1:-$ROOT/build}"
shift || true
# a compiler cache, where the machine has one, makes rebuilds of other trees cheap
LAUNCHER=()
command -v ccache >/dev/null 2>&1 && LAUNCHER=(-DCMAKE_CXX_COMPILER_LAUNCHER=ccache)
cmake -S "$ROOT" -B "$BUILD" -G Ninja -DCMAKE_BUILD_TYPE="${ZORBEL_BUILD_TYPE:-RelWithDebInfo}" "${LAUNCHER[@]}" "$@"
cmake --build "$BUILD" -- -j"$(nproc)"
