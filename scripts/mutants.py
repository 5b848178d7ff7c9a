#!/usr/bin/env python3
"""Puts small faults into the program, one at a time, and reports which of them the tests notice.

    scripts/mutants.py            all faults of tests/mutants.txt; writes their table into docs/MUTANTS.md
    scripts/mutants.py 7 12       these alone; the page stays as it is

The tree is copied to build/mutants, where one build serves all faults.
"""

import argparse
import re
import subprocess
import sys
import time

from faulty_tree import QUIET_IN_CONSTANTS, ROOT, Tests, build, snapshot, write_tree

LIST = ROOT / "tests" / "mutants.txt"
PAGE = ROOT / "docs" / "MUTANTS.md"
TREE = ROOT / "build" / "mutants"
ENTRY = re.compile(r"(?P<file>\S+): (?P<original>.+) => (?P<mutated>.+?)  # (?P<breaks>.+?)(  @ (?P<place>.+))?")


class Mutant:
    """One line of the list."""

    def __init__(self, nr, text):
        self.nr, fields = nr, ENTRY.fullmatch(text)
        if not fields:
            sys.exit(f"{LIST.name}: cannot be read: {text}")
        self.file, self.original, self.mutated, self.breaks = fields.group("file", "original", "mutated", "breaks")
        self.place = fields.group("place") or self.original

    def put(self, source):
        if source.count(self.place) != 1:
            sys.exit(f"{self.nr}: '{self.place}' is {source.count(self.place)} times in {self.file}")
        original = f"static_cast<void>({self.original})" if self.mutated == "void()" else self.original
        switch = f"(isMutant({self.nr}) ? ({self.mutated}) : ({original}))"
        return source.replace(self.place, self.place.replace(self.original, switch))


def read_list():
    lines = [line for line in LIST.read_text().splitlines() if line and not line.startswith("#")]
    return [Mutant(nr, line) for nr, line in enumerate(lines, 1)]


def build_with(mutants):
    files = snapshot()
    for m in mutants:
        content, mode = files["src/" + m.file]
        files["src/" + m.file] = m.put(content.decode()).encode(), mode
    write_tree(TREE, files)
    result = build(TREE, QUIET_IN_CONSTANTS)
    if result.returncode != 0:
        sys.exit(result.stdout[-8000:] + result.stderr)


def cell(code):
    return "`" + code.replace("|", "\\|") + "`"


def write_page(mutants, noticed, count):
    """Replaces what is between the two marks of the page."""
    git = lambda *args: subprocess.run(["git", *args], cwd=ROOT, check=True, capture_output=True, text=True).stdout
    dirty = " and what was changed since" if git("status", "--porcelain", "--", "src", "tests").strip() else ""
    text = f"""\
**{count} of {len(mutants)} are noticed**, on commit {git("rev-parse", "--short", "HEAD").strip()}{dirty}, \
{time.strftime("%Y-%m-%d")}.

| Nr | File | What breaks | Original | Fault | First test that fails |
|---|---|---|---|---|---|
"""
    for m in mutants:
        test = noticed[m.nr]
        text += (f"| {m.nr} | {m.file} | {m.breaks} | {cell(m.original)} | {cell(m.mutated)} | "
                 f"{cell(test) if test else '**none**'} |\n")
    page, marked = re.subn(r"(?s)(<!-- mutants\.py -->\n).*(<!-- end -->)", lambda m: m[1] + text + m[2],
                           PAGE.read_text())
    if marked != 1:
        sys.exit(f"{PAGE.name} has no marks for the table")
    PAGE.write_text(page)


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("nr", type=int, nargs="*")
    asked = parser.parse_args().nr
    subprocess.run(["bash", "-c", ". scripts/need.sh && need_to_test"], cwd=ROOT, check=True)

    mutants = read_list()
    build_with(mutants)
    tests, noticed = Tests(TREE), {}
    for m in mutants:
        if asked and m.nr not in asked:
            continue
        noticed[m.nr] = tests.first_failure(m.nr)
        print(f"{m.nr:>3} {noticed[m.nr] or 'NOT NOTICED'}: {m.file}: {m.breaks}", flush=True)
    count = sum(test is not None for test in noticed.values())
    print(f"{count} of {len(noticed)} noticed")
    if not asked:
        write_page(mutants, noticed, count)
    sys.exit(count < len(noticed))


if __name__ == "__main__":
    main()
