#!/usr/bin/env bash
# Sets up what is missing, builds the page and opens it; without a desktop it names the file. --build only builds.
set -euo pipefail
cd "$(dirname "$0")"
. scripts/need.sh

need_to_build_web
build_web
page=$PWD/build/web/zelvaro.html
if [ "${1:-}" != --build ] && [ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ] && command -v xdg-open >/dev/null; then
  exec xdg-open "$page"
fi
echo "The page: $page"
