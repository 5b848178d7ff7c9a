#!/usr/bin/env bash
# scripts/fuzz.sh [SECONDS]: builds the fuzz targets and runs each of them for that time, 300 seconds where none
# is given.  Fails on any finding, which is then in build/fuzz/findings.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/need.sh
export seconds=${1:-300} build=build/fuzz

need_to_build
need clang libclang-rt-14-dev python3
cmake --preset fuzz
cmake --build --preset fuzz
fuzz/seeds.py "$build/seeds"

run_target() {
  mkdir -p "$build/findings" "$build/found/$1"
  echo "== $1"
  "$build/fuzz/fuzz_$1" -max_total_time="$seconds" -entropic=0 -max_len=4096 -timeout=10 -report_slow_units=2 \
    -rss_limit_mb=2048 -detect_leaks=1 -dict="$build/seeds/casl.dict" -artifact_prefix="$build/findings/$1-" \
    -print_final_stats=1 "$build/found/$1" "fuzz/corpus/$1" "$build/seeds/$1" >"$build/$1.log" 2>&1 ||
    { tail -n 60 "$build/$1.log"; return 1; }
  grep -E 'number_of_executed_units|slowest_unit' "$build/$1.log" | sed "s/^/$1 /"
}
export -f run_target
printf '%s\n' load session image ini task | xargs -P "$(nproc)" -I{} bash -c 'run_target {}'
