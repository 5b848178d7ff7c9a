"""A copy of the tree that holds many faults, of which the environment chooses one, and the running of its tests.

Used by mutants.py and random-faults.py. One build serves all faults: each is beside what it replaces, in the form
(isMutant(NR) ? (FAULT) : (ORIGINAL)).
"""

import io
import os
import re
import resource
import subprocess
import sys
import tarfile
import time
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
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
"""
# With the first of these a constant expression keeps its value, with the second it does not compile.
QUIET_IN_CONSTANTS = SWITCH + """
constexpr bool isMutant(int nr) { return !__builtin_is_constant_evaluated() && nr == askedMutant(); }
"""
REFUSED_IN_CONSTANTS = SWITCH + """
inline bool isMutant(int nr) { return nr == askedMutant(); }
"""


def snapshot(commit=None):
    """The files of a commit, or those that git knows as they are now: path -> (content, mode)."""
    if commit is None:
        names = subprocess.run(["git", "ls-files", "-z"], cwd=ROOT, check=True, capture_output=True, text=True).stdout
        return {name: ((ROOT / name).read_bytes(), (ROOT / name).stat().st_mode & 0o777)
                for name in names.split("\0") if name and (ROOT / name).is_file()}
    archive = subprocess.run(["git", "archive", commit], cwd=ROOT, check=True, capture_output=True).stdout
    with tarfile.open(fileobj=io.BytesIO(archive)) as tar:
        return {m.name: (tar.extractfile(m).read(), m.mode & 0o777) for m in tar.getmembers() if m.isfile()}


def write_tree(tree, files):
    """Makes the tree hold these files. One that does not change keeps its date, so that it is not built anew."""
    for name, (content, mode) in files.items():
        target = tree / name
        if not target.exists() or target.read_bytes() != content:
            target.parent.mkdir(parents=True, exist_ok=True)
            target.write_bytes(content)
            target.chmod(mode)
    for folder in ("src", "tests", "fuzz"):
        for old in (tree / folder).rglob("*"):
            if old.is_file() and str(old.relative_to(tree)) not in files:
                old.unlink()


def build(tree, switch):
    """Builds program and tests without optimising much; the finished process of the build."""
    folder = tree / "build"
    folder.mkdir(parents=True, exist_ok=True)
    header = folder / "mutant.h"
    if not header.exists() or header.read_text() != switch:
        header.write_text(switch)
    # the header by an option and not by a line of each source, so that the numbers of lines stay
    subprocess.run(["cmake", "-S", str(tree), "-B", str(folder), "-G", "Ninja", "-DCMAKE_BUILD_TYPE=Release",
                    "-DCMAKE_CXX_FLAGS_RELEASE=-O1 -DNDEBUG", f"-DCMAKE_CXX_FLAGS=-w -include {header}",
                    "-DZELVARO_TESTS=ON"], check=True, stdout=subprocess.DEVNULL)
    return subprocess.run(["cmake", "--build", str(folder), "--", "-k", "0"], capture_output=True, text=True,
                          errors="replace")


def limit_resources():
    """A fault may loop for ever, and ask for memory or write meanwhile."""
    resource.setrlimit(resource.RLIMIT_AS, (8 << 30, 8 << 30))
    resource.setrlimit(resource.RLIMIT_FSIZE, (2 << 30, 2 << 30))  # a test makes a hole of that size
    resource.setrlimit(resource.RLIMIT_CORE, (0, 0))


class Program:
    """One program of tests, which ends at its first failure."""

    def __init__(self, path, arguments):
        self.path, self.arguments, self.seconds = path, arguments, 0
        self.log = path.with_name(path.name + ".log")

    def first_failure(self, nr, seconds):
        """The first test that fails with that fault, or None. One that takes longer than so many seconds has failed."""
        with open(self.log, "w") as out:
            process = subprocess.Popen([str(self.path), *self.arguments], cwd=self.path.parent,
                                       stdin=subprocess.DEVNULL, stdout=out, stderr=out, start_new_session=True,
                                       preexec_fn=limit_resources,
                                       env=os.environ | {"ZELVARO_MUTANT": str(nr), "GTEST_FAIL_FAST": "1"})
            try:
                code = process.wait(seconds)
            except subprocess.TimeoutExpired:
                code = "time"
            try:
                os.killpg(process.pid, 9)  # what the tests have started as well
            except ProcessLookupError:
                pass
            process.wait()
        if code == 0:
            return None
        text = self.log.read_text(errors="replace")
        names = (re.findall(r"^\[  FAILED  \] ([^\s,]+)", text, re.MULTILINE)
                 or re.findall(r"^\[ RUN      \] (\S+)", text, re.MULTILINE)[-1:] or [str(code)])
        return f"{self.path.name.removeprefix('test_').replace('fuzz_', 'fuzz.')}.{names[0]}"


class Tests:
    """All programs of tests of a built tree, the quick ones first."""

    def __init__(self, tree):
        folder = tree / "build"
        found = [Program(path, []) for path in (folder / "tests").glob("test_*")]
        found += [Program(path, [str(tree / "fuzz" / "corpus" / path.name.removeprefix("fuzz_"))])
                  for path in (folder / "fuzz").glob("fuzz_*")]
        # an earlier build may have left a program whose sources are gone
        kept = subprocess.run(["ninja", "-C", str(folder), "-t", "targets", "all"], check=True, capture_output=True,
                              text=True).stdout
        self.programs = [p for p in found if p.path.is_file() and os.access(p.path, os.X_OK)
                         and f"{p.path.relative_to(folder)}:" in kept]
        for program in self.programs:
            start = time.monotonic()
            if failed := program.first_failure(0, 900):
                sys.exit(f"{failed} fails without any fault; see {program.log}")
            program.seconds = time.monotonic() - start
        self.programs.sort(key=lambda p: p.seconds)

    def first_failure(self, nr):
        return next((failed for p in self.programs if (failed := p.first_failure(nr, 30 + 10 * p.seconds))), None)
