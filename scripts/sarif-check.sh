#!/usr/bin/env bash
# Validates what zelvaro-check writes as SARIF for all samples, clean and faulty, against the schema of SARIF 2.1.0,
# which a package of the npm registry has.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/need.sh
need python3-jsonschema
command -v npm >/dev/null || need npm

scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
(cd "$scratch" && npm pack --silent @microsoft/jest-sarif@1.0.0-beta.0 >/dev/null && tar xzf ./*.tgz)
schema=$(find "$scratch" -name 'sarif-2.1.0*.json')
[ -s "$schema" ] || { echo "the package has no schema"; exit 1; }

mapfile -d '' samples < <(find workspace/src -type f -print0 | sort -z)
for language in en ja; do
  status=0
  build/release/zelvaro-check --lang "$language" --format sarif --hints --run --input /dev/null --max-steps 200000 \
    --output "$scratch/$language.sarif" "${samples[@]}" none.cas || status=$?
  [ "$status" -eq 5 ] || { echo "status $status, with a file that cannot be read"; exit 1; }
  /usr/bin/jsonschema -i "$scratch/$language.sarif" "$schema" 2>"$scratch/faults" || { cat "$scratch/faults"; exit 1; }
  grep -q '"ruleId":"hint-' "$scratch/$language.sarif" || { echo "no results"; exit 1; }
done
echo "the SARIF of ${#samples[@]} samples is valid"
