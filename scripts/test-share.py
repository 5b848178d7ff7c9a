#!/usr/bin/env python3
"""Prints how many lines the tests have for each folder, in percent of all lines of the code.

Blank lines are left out. Code is src/ and the page of web/; tests are all files under the test folders and fuzz/,
data included, but not the kept inputs of the fuzz targets. Only files that git knows are counted.
Exit status 1 where the tests have more than MOST percent of the code.
"""

import collections
import subprocess
import sys
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
MOST = 34
CODE = ("src/", "web/core/", "web/page/")
TESTS = ("tests/", "web/tests/", "fuzz/")
LEFT_OUT = ("fuzz/corpus/",)


def folder(name, parents):
    """The folder below the first of the parents that holds the file; "." for a file of the parent itself."""
    parent = next(p for p in parents if name.startswith(p))
    below = name[len(parent):].split("/")
    if parent not in ("src/", "tests/"):
        return parent.rstrip("/")
    return below[0] if len(below) > 1 else "."


def main():
    names = subprocess.run(["git", "ls-files", "-z"], cwd=ROOT, check=True, capture_output=True, text=True).stdout
    code, tests = collections.Counter(), collections.Counter()
    for name in names.split("\0"):
        counts, parents = (code, CODE) if name.startswith(CODE) else (tests, TESTS)
        if name.startswith(parents) and not name.startswith(LEFT_OUT) and (ROOT / name).is_file():
            lines = (ROOT / name).read_bytes().splitlines()
            counts[folder(name, parents)] += sum(bool(line.strip()) for line in lines)

    whole = sum(code.values())
    share = 100 * sum(tests.values()) / whole
    print(f"{'folder':<14}{'code':>8}{'tests':>8}{'share':>9}")
    for name in sorted(code.keys() | tests.keys()):
        print(f"{name:<14}{code[name]:>8}{tests[name]:>8}{100 * tests[name] / whole:>7.1f} %")
    print(f"{'all':<14}{whole:>8}{sum(tests.values()):>8}{share:>7.1f} %")
    if share > MOST:
        sys.exit(f"the tests have more than {MOST} % of the lines of the code")


if __name__ == "__main__":
    main()
