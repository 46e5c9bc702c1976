#!/usr/bin/env bash
# Sets everything up on a Debian 12 machine and runs the demonstration:
# a demo installation with a week of history in demo/zorbel.db, and the
# station on it. Without a screen it runs on a virtual one (Xvfb).
set -euo pipefail
ROOT="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
cd "$ROOT"

bash scripts/install-deps.sh
bash scripts/build.sh "$ROOT/build"

DEMO="$ROOT/demo"
mkdir -p "$DEMO"
cd "$DEMO"
if [ ! -f zorbel.db ]; then
  "$ROOT/build/bin/zorbel-admin" demo --days 7
fi

if [ -z "${DISPLAY:-}" ] && [ -z "${WAYLAND_DISPLAY:-}" ]; then
  echo "run-demo: no screen; the station runs on a virtual one (xvfb-run)"
  exec xvfb-run -a -s "-screen 0 1280x900x24" "$ROOT/build/bin/zorbel" "$@"
fi
exec "$ROOT/build/bin/zorbel" "$@"
