#!/usr/bin/env bash
# clang-tidy over our own sources but those for Windows, with the compile commands of the build folder given: one that
# clang has built.
set -euo pipefail
build=${1:-build/clang}
git ls-files -z 'src/*.cpp' ':!src/platform/windows' | xargs -0 -n 1 -P "$(nproc)" clang-tidy --quiet -p "$build" 2>/dev/null
