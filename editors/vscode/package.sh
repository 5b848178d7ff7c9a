#!/usr/bin/env bash
# package.sh [FOLDER]: packs the extension to FOLDER/zelvaro-casl2.vsix, by default into the current folder.
set -euo pipefail
folder=$(realpath "${1:-.}")
cd "$(dirname "$0")"
vsce=../npm/node_modules/.bin/vsce
[ -x "$vsce" ] || (cd ../npm && npm ci)
"$vsce" package --no-dependencies --allow-missing-repository --skip-license --out "$folder/zelvaro-casl2.vsix"
