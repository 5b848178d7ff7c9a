#!/usr/bin/env bash
# mend.sh FILE: prints a faulty sample with the lines of its answer in their places.  The answer is the comment
# at its end: "; 10:LOOP2    SUBA  GR1,=1" has the text of line 10.
set -euo pipefail
awk '
  NR == FNR { if (match($0, /^; *[0-9]+:/)) answer[substr($0, 2, RLENGTH - 2) + 0] = substr($0, RLENGTH + 1); next }
  FNR in answer { print answer[FNR]; next }
  { print }' "$1" "$1"
