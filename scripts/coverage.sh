#!/usr/bin/env bash
# What the tests reach: lines and branches by folder of src/, as a table.  Fails where a folder is below the
# limits.  Left out are the two main.cpp, which construct and start, and the lists of macros (.inc, .def): one line of
# them is part of many functions, and gcov counts its branches once for each.
#
# Not counted are branches on lines without code of their own (gcovr's --exclude-unreachable-branches), and the
# way out of a call by an exception.  gcovr's --exclude-throw-branches does not do the latter for templates: it
# loses the mark in the instances that never ran.  So the mark is taken from the merged lines.
#
# The preset updates the counters atomically: some tests start threads, and a count that a race made negative stops gcovr.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/need.sh
least_lines=95
least_branches=85

need_to_test
need gcovr
cmake --preset coverage -DZELVARO_TESTS=ON >/dev/null
find build/coverage -name '*.gcda' -delete
cmake --build --preset coverage
find build/coverage -name '*.gcda' -delete # the build has run the tests' programs to ask for their names
# the tests of started programs, which bound memory and end by signals, measure the program as it is built for use
ctest --preset coverage -j "$(nproc)" -E '^program\.' >build/coverage/ctest.log ||
  { cat build/coverage/ctest.log; exit 1; }
# what an earlier build left of sources that are gone
find build/coverage -name '*.gcno' | while read -r note; do
  source=${note##*.dir/}
  source=${source%.gcno}
  [ -e "$source" ] || [ -e "tests/$source" ] || rm "$note"
done
gcovr --root . --filter src/ --exclude 'src/(check_)?main\.cpp' --exclude '.*\.(inc|def)' --exclude-unreachable-branches -j "$(nproc)" \
  --json build/coverage/coverage.json build/coverage

python3 - "$least_lines" "$least_branches" <<'PYTHON'
import collections, json, sys

least = {"line": float(sys.argv[1]), "branch": float(sys.argv[2])}
folders = collections.defaultdict(collections.Counter)
for file in json.load(open("build/coverage/coverage.json"))["files"]:
    lines = [line for line in file["lines"] if not line["gcovr/noncode"]]
    counts = {"line": [line["count"] for line in lines],
              "branch": [b["count"] for line in lines for b in line["branches"] if not b["throw"]]}
    for name in (file["file"].split("/")[1], "all"):
        for kind in least:
            folders[name][kind] += sum(count > 0 for count in counts[kind])
            folders[name][kind + "s"] += len(counts[kind])

below = False
print(f"{'folder':<12}{'lines':>18}{'branches':>20}")
for name in sorted(folders, key=lambda n: (n == "all", n)):
    counts, row = folders[name], f"{name:<12}"
    for kind in least:
        reached, total = counts[kind], counts[kind + "s"]
        share = 100 * reached / total if total else 100
        row += f"{reached:>6} /{total:>6} {share:5.1f}"
        if share < least[kind]:
            below = True
            row += " !"
    print(row)
if below:
    sys.exit(f"! is below {least['line']:g} % of the lines or {least['branch']:g} % of the branches, or the folder's own limits")
PYTHON
