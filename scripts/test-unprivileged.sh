#!/usr/bin/env bash
# scripts/test-unprivileged.sh [PRESET]: runs the tests of files, faults and the whole program, which are built
# already, in a copy as a user without privileges, who meets real rights.  To be called by root; anybody else has
# run them so anyway.
set -euo pipefail
cd "$(dirname "$0")/.."
build=build/${1:-release}

copy=$(mktemp -d)
trap 'rm -rf "$copy"' EXIT
cp "$build"/zelvaro "$build"/tests/test_{platform,faults,program} "$copy"
mkdir "$copy/tmp"
as_user=(env TMPDIR="$copy/tmp" HOME="$copy/tmp" ZELVARO_PROGRAM="$copy/zelvaro")
if [ "$(id -u)" -eq 0 ]; then
  chown -R nobody:nogroup "$copy"
  as_user=(setpriv --reuid=nobody --regid=nogroup --clear-groups "${as_user[@]}")
fi
cd "$copy"
for tests in platform faults program; do
  "${as_user[@]}" "./test_$tests" --gtest_brief=1
done
