#!/usr/bin/env bash
# Sets everything up on a Debian 12 machine and runs the whole test suite:
# once in a normal build, once more with AddressSanitizer and
# UndefinedBehaviorSanitizer. The database tests also run on PostgreSQL
# when a local server can be started (ZORBEL_TEST_PG_URL may name another).
set -euo pipefail
ROOT="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
cd "$ROOT"

bash scripts/install-deps.sh

if [ -z "${ZORBEL_TEST_PG_URL:-}" ]; then
  if url=$(bash scripts/start-test-postgres.sh); then
    export ZORBEL_TEST_PG_URL="$url"
  else
    echo "run-tests: no PostgreSQL server; database tests run on SQLite only"
  fi
fi

JOBS="$(nproc)"
echo "== build and test"
bash scripts/build.sh "$ROOT/build"
(cd build && ctest --output-on-failure -j"$JOBS")

echo "== build and test with AddressSanitizer and UndefinedBehaviorSanitizer"
export ASAN_OPTIONS="detect_leaks=1:abort_on_error=1"
export UBSAN_OPTIONS="print_stacktrace=1:halt_on_error=1"
export LSAN_OPTIONS="suppressions=$ROOT/scripts/lsan.supp"
ZORBEL_BUILD_TYPE=Debug bash scripts/build.sh "$ROOT/build-asan" -DZORBEL_SANITIZE=ON
(cd build-asan && ctest --output-on-failure -j"$JOBS")
echo "run-tests: all passed"
