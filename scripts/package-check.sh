#!/usr/bin/env bash
# Builds the Debian package, unpacks it into a scratch root and runs a sample from a fresh folder with it.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/need.sh
need dpkg-dev file binutils

scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT

(cd build/release && cpack -G DEB -B "$scratch/package" >"$scratch/cpack.log" 2>&1) || { cat "$scratch/cpack.log"; exit 1; }
dpkg-deb -x "$scratch"/package/*.deb "$scratch/root"
cmake --install build/release --prefix "$scratch/prefix" >/dev/null

for part in bin/zelvaro share/man/man1/zelvaro.1 share/man/ja/man1/zelvaro.1 share/doc/zelvaro/GUIDE.en.md \
  share/doc/zelvaro/GUIDE.ja.md share/zelvaro/src/pn100.txt; do
  [ -e "$scratch/root/usr/$part" ] || { echo "the package lacks $part"; exit 1; }
  [ -e "$scratch/prefix/$part" ] || { echo "the installation lacks $part"; exit 1; }
done

scripts/check-hardening.sh "$scratch/root/usr/bin/zelvaro"

mkdir "$scratch/fresh"
cp -r "$scratch/root/usr/share/zelvaro/src" "$scratch/fresh"
(cd "$scratch/fresh" && printf '\n1\nsrc/pn100\n\n123\n' | "$scratch/root/usr/bin/zelvaro" >"$scratch/shown")
for report in aaAssembledRegMry.txt aaResultantRegMry.txt; do
  grep -q "^VM COMET2: $report" "$scratch/fresh/$report" || { echo "$report is missing"; exit 1; }
done
grep -q '^  GR1:.*#0007' "$scratch/fresh/aaResultantRegMry.txt" || { echo "the sample gave no 7"; exit 1; }
echo "the package runs from a fresh folder"
