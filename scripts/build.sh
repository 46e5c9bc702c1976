#!/usr/bin/env bash
# Configures and builds Zorbel into a build directory.
# Usage: scripts/build.sh [BUILD_DIR] [extra cmake options...]
# ZORBEL_BUILD_TARGETS (space-separated) builds those targets instead of all.
set -euo pipefail
ROOT="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
BUILD="${1:-$ROOT/build}"
shift || true
# a compiler cache, where the machine has one, makes rebuilds of other trees cheap
LAUNCHER=()
command -v ccache >/dev/null 2>&1 && LAUNCHER=(-DCMAKE_CXX_COMPILER_LAUNCHER=ccache)
cmake -S "$ROOT" -B "$BUILD" -G Ninja -DCMAKE_BUILD_TYPE="${ZORBEL_BUILD_TYPE:-RelWithDebInfo}" "${LAUNCHER[@]}" "$@"
TARGETS=()
for t in ${ZORBEL_BUILD_TARGETS:-}; do TARGETS+=(--target "$t"); done
cmake --build "$BUILD" "${TARGETS[@]}" -- -j"$(nproc)"
