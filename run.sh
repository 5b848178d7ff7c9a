#!/usr/bin/env bash
# Sets up what is missing, builds the program and starts it in workspace/.
set -euo pipefail
cd "$(dirname "$0")"
. scripts/need.sh

# The dialogue owns the console from the first line on: what the build says goes to a file.
mkdir -p build
if ! { need_to_build && cmake --preset release -DZELVARO_TESTS=OFF && cmake --build --preset release --target zelvaro; } \
  > build/run.log 2>&1 < /dev/null; then
  cat build/run.log >&2
  exit 1
fi
cd workspace
exec ../build/release/zelvaro
