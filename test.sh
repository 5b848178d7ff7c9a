#!/usr/bin/env bash
# Sets up what is missing, builds the program and its tests and runs them all. PRESET=asan tests under the
# sanitizers, TARGETS="test_link test_data" builds these programs alone; further arguments go to ctest.
set -euo pipefail
cd "$(dirname "$0")"
. scripts/need.sh
preset=${PRESET:-release}

need_to_test
need_to_test_editors
[ "$preset" != clang ] || need_clang
cmake --preset "$preset" -DZELVARO_TESTS=ON -DZELVARO_WERROR=ON
# shellcheck disable=SC2086 # a word for each target
cmake --build --preset "$preset" ${TARGETS:+--target $TARGETS}
ctest --preset "$preset" -j "$(nproc)" --no-tests=error "$@"
