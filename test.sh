#!/usr/bin/env bash
# Sets up what is missing, builds the program and its tests and runs them all.  PRESET=asan tests under the
# sanitizers; further arguments go to ctest.
set -euo pipefail
cd "$(dirname "$0")"
. scripts/need.sh
preset=${PRESET:-release}

need_to_test
cmake --preset "$preset" -DZELVARO_TESTS=ON
cmake --build --preset "$preset"
ctest --preset "$preset" -j "$(nproc)" "$@"
