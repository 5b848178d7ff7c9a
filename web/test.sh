#!/usr/bin/env bash
# Sets up what is missing, builds the page and the programs that it is compared with, checks the types and runs the tests:
# web/test.sh [NAME...] runs only web/tests/NAME.test.ts.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/need.sh

need_to_build
need_to_test_web
build_web
[ build/release/build.ninja -nt CMakePresets.json ] || cmake --preset release -DZELVARO_TESTS=OFF
cmake --build --preset release --target zelvaro-check
cd web
npx tsc --noEmit -p tsconfig.json
exec node tests/run.mjs "$@"
