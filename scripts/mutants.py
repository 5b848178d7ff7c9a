#!/usr/bin/env python3
"""Puts small faults into the program, one at a time, and tells which of them the tests notice.

    scripts/mutants.py            all faults of tests/mutants.txt; writes docs/MUTANTS.md
    scripts/mutants.py 7 12       these alone; the page stays as it is
    scripts/mutants.py --list F   another list; the page stays as it is

The tree is copied to build/mutants.  There every fault stands beside what it replaces, and the environment
decides which of the two counts, so that one build does for all.
"""

import argparse
import os
import re
import shutil
import subprocess
import sys
import time
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
TREE = ROOT / "build" / "mutants"
LEAST = 47
SECONDS_A_TEST = 60

SWITCH = """\
#pragma once
#include <cstdlib>

inline int askedMutant() {
  static const int nr = [] {
    const char* text = std::getenv("ZELVARO_MUTANT");
    return text == nullptr ? 0 : std::atoi(text);
  }();
  return nr;
}
constexpr bool isMutant(int nr) {
  return !__builtin_is_constant_evaluated() && nr == askedMutant();
}
"""


class Mutant:
    """One fault: the file below src/, what breaks, the expression and what replaces it."""

    def __init__(self, nr, text):
        lines = text.splitlines()
        self.nr = nr
        self.file, self.breaks = lines[0].split(": ", 1)
        marked = {line[0]: line[2:] for line in lines[1:]}
        self.original, self.mutated = marked["-"], marked["+"]
        self.place = marked.get(":", self.original)  # a longer text, where the expression alone is not unique

    def put(self, source):
        if source.count(self.place) != 1:
            sys.exit(f"{self.nr}: '{self.place}' stands {source.count(self.place)} times in {self.file}")
        switch = f"(isMutant({self.nr}) ? ({self.mutated}) : ({self.original}))"
        return source.replace(self.place, self.place.replace(self.original, switch))


def read_list(path):
    text = "\n".join(line for line in path.read_text().splitlines() if not line.startswith("#"))
    return [Mutant(nr, entry) for nr, entry in enumerate(re.split(r"\n\n+", text.strip()), 1)]


def copy_tree(mutants):
    """Copies what git knows, with the switches put in.  A file that does not change keeps its date."""
    changed = {}
    for m in mutants:
        name = "src/" + m.file
        changed[name] = m.put(changed.get(name) or '#include "mutant.h"\n' + (ROOT / name).read_text())
    names = subprocess.run(["git", "ls-files", "-z"], cwd=ROOT, check=True, capture_output=True, text=True).stdout
    wanted = {n: changed[n].encode() if n in changed else (ROOT / n).read_bytes()
              for n in names.split("\0") if n and (ROOT / n).exists()}
    wanted["src/mutant.h"] = SWITCH.encode()
    for name, content in wanted.items():
        target = TREE / name
        if target.exists() and target.read_bytes() == content:
            continue
        target.parent.mkdir(parents=True, exist_ok=True)
        target.write_bytes(content)
        if (ROOT / name).exists():
            shutil.copymode(ROOT / name, target)
    for folder in ("src", "tests"):
        for old in (TREE / folder).rglob("*"):
            if old.is_file() and str(old.relative_to(TREE)) not in wanted:
                old.unlink()


def build():
    subprocess.run(["cmake", "--preset", "release", "-DZELVARO_TESTS=ON"], cwd=TREE, check=True,
                   stdout=subprocess.DEVNULL)
    subprocess.run(["cmake", "--build", "--preset", "release"], cwd=TREE, check=True)


def first_failure(nr):
    """The first test that fails with that fault, or None."""
    run = subprocess.run(["ctest", "--preset", "release", "-j", str(os.cpu_count()), "--stop-on-failure", "--timeout",
                          str(SECONDS_A_TEST)], cwd=TREE, capture_output=True, text=True, errors="replace",
                         env=os.environ | {"ZELVARO_MUTANT": str(nr)})
    if run.returncode == 0:
        return None
    failed = re.search(r"Test\s+#\d+: (\S+).*\*\*\*", run.stdout)
    return failed.group(1) if failed else sys.exit(run.stdout + run.stderr)


def cell(code):
    return "`" + code.replace("|", "\\|") + "`"


def write_page(mutants, noticed):
    git = lambda *args: subprocess.run(["git", *args], cwd=ROOT, check=True, capture_output=True, text=True).stdout
    dirty = " and what was changed since" if git("status", "--porcelain", "--", "src", "tests").strip() else ""
    count = sum(test is not None for test in noticed.values())
    page = f"""\
# Faults put in by tool

How much do the tests notice? `scripts/mutants.py` puts the {len(mutants)} small faults of `tests/mutants.txt` into the
program, one at a time, and runs the tests with each: an edge moved by one, a wrong field, a check or a tally left
out, two operands swapped. The faults were drawn by lot, so many for each folder, from a longer list that was written
while reading the sources, before any test had been run on them.

**{count} of {len(mutants)} are noticed** (at least {LEAST} have to be), on commit {git("rev-parse", "--short", "HEAD").strip()}\
{dirty}, {time.strftime("%Y-%m-%d")}.
The first run noticed 49: no test had an address of three hexadecimal digits. It has its case now.

To run it again: `scripts/mutants.py`. It needs what the tests need, and builds once in `build/mutants`; this page is
written anew. A fault that nothing notices is a case to write, unless it changes nothing that can be seen: then
another one takes its place in the list.

| Nr | File | What breaks | Instead of | stands | First test that fails |
|---|---|---|---|---|---|
"""
    for m in mutants:
        test = noticed[m.nr]
        page += (f"| {m.nr} | {m.file} | {m.breaks} | {cell(m.original)} | {cell(m.mutated)} | "
                 f"{cell(test) if test else '**none**'} |\n")
    (ROOT / "docs" / "MUTANTS.md").write_text(page)


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--list", type=Path, default=ROOT / "tests" / "mutants.txt")
    parser.add_argument("nr", type=int, nargs="*")
    asked = parser.parse_args()
    subprocess.run(["bash", "-c", ". scripts/need.sh && need_to_test"], cwd=ROOT, check=True)

    mutants = read_list(asked.list)
    copy_tree(mutants)
    build()
    if failed := first_failure(0):
        sys.exit(f"{failed} fails without any fault")
    noticed = {}
    for m in mutants:
        if asked.nr and m.nr not in asked.nr:
            continue
        noticed[m.nr] = first_failure(m.nr)
        print(f"{m.nr:>3} {noticed[m.nr] or 'NOT NOTICED'}: {m.file}: {m.breaks}", flush=True)
    count = sum(test is not None for test in noticed.values())
    print(f"{count} of {len(noticed)} noticed")
    if len(noticed) == len(mutants) and asked.list == parser.get_default("list"):
        write_page(mutants, noticed)
        sys.exit(count < LEAST)


if __name__ == "__main__":
    main()
