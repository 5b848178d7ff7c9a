#!/usr/bin/env bash
# Builds the programs for Windows and runs under wine: the tests of findings, dialogues and the engine, those of the platform
# for Windows, and the checker's cases, the samples and a dialogue on a console, which start the built programs.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/need.sh
need_to_test
need_windows
need python3

cmake --preset windows
cmake --build --preset windows --target zelvaro zelvaro-check test_findings test_dialogues test_engine test_windows
cmake --preset release -DZELVARO_TESTS=ON
cmake --build --preset release --target test_check

# The first start makes wine's folder; a server that is kept makes the others short. One of an earlier run may be there.
export WINEPREFIX=$PWD/build/wine
mkdir -p "$WINEPREFIX"
wineserver -p || true
trap 'wineserver -k || true' EXIT
scripts/wine.sh wineboot -i
ctest --preset windows -R '^(findings|dialogues|engine|windows)$'

for program in zelvaro zelvaro-check; do
  printf '#!/bin/sh\nexec "%s" "%s" "$@"\n' "$PWD/scripts/wine.sh" "$PWD/build/windows/$program.exe" >"build/windows/$program"
  chmod +x "build/windows/$program"
done
ZELVARO_CHECK=$PWD/build/windows/zelvaro-check build/release/tests/test_check
tests/samples/samples.sh build/windows/zelvaro workspace/src
TERM=xterm python3 tests/windows/console.py "$PWD/build/windows/zelvaro"
