#!/usr/bin/env bash
# Sets everything up on a Debian 12 machine and runs the demonstration: a
# demo installation with two months of history in demo/zorbel.db, a simulated
# bus of its controllers (zorbel-sim) on a pseudo-terminal, and the station
# polling that bus; one controller runs above its voltage threshold, so an
# alarm shows.
# The demo keeps its own settings in demo/config, so a user's own station
# settings are left alone. Without a screen the station runs on a virtual
# one (Xvfb). Arguments are passed to the station.
set -euo pipefail
ROOT="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
cd "$ROOT"

bash scripts/install-deps.sh
bash scripts/build.sh "$ROOT/build"
BIN="$ROOT/build/bin"

DEMO="$ROOT/demo"
mkdir -p "$DEMO/config/Zorbel"
cd "$DEMO"
# an installation from an older build is moved forward, never replaced
if [ -f zorbel.db ]; then
  "$BIN/zorbel-admin" upgrade --db sqlite:zorbel.db
else
  "$BIN/zorbel-admin" demo --db sqlite:zorbel.db --days 62
fi

# The station plays its sounds from its working directory.
cp "$BIN"/alarm.wav "$BIN"/zablokregul.wav "$BIN"/odblokregul.wav "$DEMO/"

# The simulated bus on a pseudo-terminal, reached as demo/bus; the station's
# port 1 points at it. Closing the station stops the simulator.
"$BIN/zorbel-sim" --db sqlite:zorbel.db --link "$DEMO/bus" --log "$DEMO/zorbel-sim.log" \
  >"$DEMO/zorbel-sim.out" 2>"$DEMO/zorbel-sim.err" &
SIM=$!
trap 'kill $SIM 2>/dev/null || true' EXIT
for _ in $(seq 1 50); do
  [ -s "$DEMO/zorbel-sim.out" ] && break
  sleep 0.1
done
if [ ! -e "$DEMO/bus" ]; then
  echo "run-demo: zorbel-sim did not start:" >&2; cat "$DEMO/zorbel-sim.err" >&2; exit 1
fi
CONF="$DEMO/config/Zorbel/Zorbel.conf"
# written once, so that options changed in the demo stay
grep -qx "1=$DEMO/bus" "$CONF" 2>/dev/null || printf '[porty]\n1=%s\n' "$DEMO/bus" >"$CONF"
echo "run-demo: simulated controllers on $(head -n1 "$DEMO/zorbel-sim.out") (frame log: demo/zorbel-sim.log)"
export XDG_CONFIG_HOME="$DEMO/config"

if [ -z "${DISPLAY:-}" ] && [ -z "${WAYLAND_DISPLAY:-}" ]; then
  echo "run-demo: no screen; the station runs on a virtual one (xvfb-run)"
  xvfb-run -a -s "-screen 0 1280x900x24" "$BIN/zorbel" "$@"
else
  "$BIN/zorbel" "$@"
fi
