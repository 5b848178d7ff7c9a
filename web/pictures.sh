#!/usr/bin/env bash
# Makes pictures of the built page in build/web/pictures, and with --docs those of the guides in docs/.
set -euo pipefail
cd "$(dirname "$0")"
root=$(cd .. && pwd)
script=node_modules/.cache/pictures.mjs
node_modules/.bin/esbuild pictures.ts --bundle --platform=node --format=esm --packages=external \
  --define:__ROOT__="\"$root\"" --log-level=warning --outfile=$script
exec node $script "$root/build/web/pictures" ${1:+"$root/docs"}
