#!/usr/bin/env bash
# samples.sh PROGRAM SRC: runs each sample of the folder SRC and compares what OUT prints with outputs.txt
# (name|typed lines|texts).  A faulty sample must fail as it is, and must do so no more with the lines of its
# answer.  scripts/mend.sh puts them in.
set -euo pipefail
program=$(realpath "$1")
src=$2
here=$(cd "$(dirname "$0")" && pwd)
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
failures=0

# texts_of FILE TYPED: the texts of a run without any message, else nothing.
texts_of() {
  cp "$1" "$scratch/x.txt"
  printf '[Mode]\nLangStr=ENU\nLangInt=1\n' >"$scratch/zelvaro.ini"
  (cd "$scratch" && printf "\n1\nx\n$2\n\n123\n" | timeout 2 "$program" || true) | awk '
    /^(Error|Warning|Note|Runtime Error)|terminated the comet2/ { message = 1 }
    afterOut { texts = texts (texts == "" ? "" : " / ") $0; afterOut = 0 }
    /^OS: Output by/ { afterOut = 1 }
    /^and it has come to an end/ { ended = 1 }
    END { if (ended && !message) print texts }'
}

expect() {
  [ "$2" = "$3" ] && return
  echo "$1: OUT printed \"$2\" in place of \"$3\""
  failures=$((failures + 1))
}

while IFS='|' read -r name typed texts; do
  file=$src/$name.txt
  case $name in
    */faults/*)
      expect "$name as it is" "$(texts_of "$file" "$typed")" ""
      "$here/../../scripts/mend.sh" "$file" >"$scratch/mended.txt"
      file=$scratch/mended.txt
      ;;
  esac
  expect "$name" "$(texts_of "$file" "$typed")" "$texts"
done <"$here/outputs.txt"

# Each sample has its row.
while read -r file; do
  name=${file#"$src"/}
  grep -q "^${name%.txt}|" "$here/outputs.txt" || expect "$name" "no row" "a row of outputs.txt"
done < <(find "$src" -name '*.txt')

# The copies of a subroutine differ in comments only.
for routine in PRTDEC PRTINT PRTHEX; do
  versions=$(grep -rl "^$routine *START" "$src" | while read -r file; do
    sed -n "/^$routine *START/,/^ *END/p" "$file" | sed 's/ *;.*//; s/\r$//' | md5sum
  done | sort -u | wc -l)
  expect "versions of $routine" "$versions" 1
done
exit $((failures > 0))
