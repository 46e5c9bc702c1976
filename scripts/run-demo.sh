#!/usr/bin/env bash
# Sets everything up on a Debian 12 machine and runs the demonstration: a
# demo installation with a week of history in demo/zorbel.db, a simulated
# bus of its controllers (zorbel-sim), and the station polling that bus.
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
[ -f zorbel.db ] || "$BIN/zorbel-admin" demo --days 7

# The simulated bus on a free local TCP port; the station's port 1 points at it.
"$BIN/zorbel-sim" --db sqlite:zorbel.db --tcp 0 --log "$DEMO/zorbel-sim.log" >"$DEMO/zorbel-sim.out" 2>"$DEMO/zorbel-sim.err" &
SIM=$!
trap 'kill $SIM 2>/dev/null || true' EXIT
for _ in $(seq 1 50); do
  [ -s "$DEMO/zorbel-sim.out" ] && break
  sleep 0.1
done
ADDRESS=$(head -n1 "$DEMO/zorbel-sim.out")
case "$ADDRESS" in
  127.0.0.1:*) ;;
  *) echo "run-demo: zorbel-sim did not start:" >&2; cat "$DEMO/zorbel-sim.err" >&2; exit 1 ;;
esac
printf '[porty]\n1=tcp://%s\n' "$ADDRESS" >"$DEMO/config/Zorbel/Zorbel.conf"
echo "run-demo: simulated controllers on $ADDRESS (frame log: demo/zorbel-sim.log)"
export XDG_CONFIG_HOME="$DEMO/config"

if [ -z "${DISPLAY:-}" ] && [ -z "${WAYLAND_DISPLAY:-}" ]; then
  echo "run-demo: no screen; the station runs on a virtual one (xvfb-run)"
  xvfb-run -a -s "-screen 0 1280x900x24" "$BIN/zorbel" "$@"
else
  "$BIN/zorbel" "$@"
fi
