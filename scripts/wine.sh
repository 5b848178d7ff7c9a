#!/usr/bin/env bash
# scripts/wine.sh PROGRAM ARGUMENT...: runs a program for Windows, without a display, in a folder of wine's own below build/.
set -euo pipefail
export WINEPREFIX=${WINEPREFIX:-$(dirname "$(realpath "$0")")/../build/wine} WINEARCH=win64
# No line of wine's own, and nothing that its first start would install besides.
export WINEDEBUG=-all WINEDLLOVERRIDES="mscoree,mshtml="
mkdir -p "$WINEPREFIX"
exec wine "$@"
