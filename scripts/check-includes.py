#!/usr/bin/env python3
"""Checks which folder of src/ includes which, and where system headers are included.

    scripts/check-includes.py              src/ against the table of folders in CMakeLists.txt
    scripts/check-includes.py --self-test  puts faults into copies of both, each of which must be found

The table is the lines zelvaro_folder(NAME LOWER...) that CMake builds the libraries from. A folder may include
itself and the folders that its line names, and its line may name only folders of earlier lines, so that no circle
is possible. A line zelvaro_file(FOLDER/FILE ...) names a file that may be included without its folder. A file of src/ itself, such as main.cpp, may include every folder. Headers of the operating system are
included in src/platform/posix/ and src/platform/windows/ alone, and nothing outside of such a folder includes its
headers; every other header in <> has to be one of the standard library or of THIRD_PARTY.
"""

import argparse
import re
import shutil
import sys
import tempfile
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
SYSTEM_FOLDERS = ("platform/posix", "platform/windows")
THIRD_PARTY = ("fmt/", "boost/", "CLI/", "nlohmann/", "toml++/", "emscripten/")
# Headers of C++20 have no extension and no folder. These of the C library have one as well, and are portable.
PORTABLE_C = {"assert.h", "ctype.h", "errno.h", "float.h", "inttypes.h", "limits.h", "math.h", "stddef.h", "stdint.h",
              "stdio.h", "stdlib.h", "string.h", "time.h"}
# These have neither, and belong to the operating system's side nevertheless.
SYSTEM_CPP = {"csignal", "csetjmp", "clocale", "locale"}

TABLE_LINE = re.compile(r"^zelvaro_(?:folder|file)\(([^)]*)\)", re.MULTILINE)
INCLUDE = re.compile(r'^[ \t]*#[ \t]*include[ \t]*(?:"([^"]+)"|<([^>]+)>)', re.MULTILINE)


def read_table(cmake_lists, faults):
    """The folders named, each with those that it may include, in the order of the table."""
    table = {}
    for words in (m.group(1).split() for m in TABLE_LINE.finditer(cmake_lists.read_text())):
        name, lower = words[0], words[1:]
        for folder in lower:
            if folder not in table:
                faults.append(f"{cmake_lists.name}: {name} names {folder}, which is not on an earlier line")
        if name in table:
            faults.append(f"{cmake_lists.name}: {name} has two lines")
        table[name] = set(lower)
    return table


def is_system_header(header):
    if header.startswith(THIRD_PARTY) or header in PORTABLE_C:
        return False
    return "/" in header or header.endswith(".h") or header in SYSTEM_CPP


def check_file(path, src, table, faults):
    below = path.relative_to(src)
    folder = below.parts[0] if len(below.parts) > 1 else None
    place = below.parent.as_posix()
    text = path.read_text()
    for m in INCLUDE.finditer(text):
        line = text.count("\n", 0, m.start()) + 1
        where = f"src/{below}:{line}"
        own, header = m.groups()
        if header is not None:
            if place not in SYSTEM_FOLDERS and is_system_header(header):
                faults.append(f"{where}: <{header}> belongs into a folder of one system below src/platform/")
        elif not (src / own).is_file():
            # with one way to write an include, none escapes this check
            faults.append(f'{where}: "{own}" is no file below src/')
        elif own.startswith(SYSTEM_FOLDERS) and not own.startswith(f"{place}/"):
            faults.append(f'{where}: "{own}" is for the files of its own folder')
        else:
            target = own.split("/")[0]
            allowed = table.get(folder, ())
            if folder not in (None, target) and target not in allowed and own.rsplit(".")[0] not in allowed:
                faults.append(f'{where}: {folder} may not include "{own}"')


def check(root):
    """All faults found, one line of text for each."""
    faults = []
    src = root / "src"
    table = read_table(root / "CMakeLists.txt", faults)
    folders = {p.name for p in src.iterdir() if p.is_dir()}
    faults += [f"CMakeLists.txt: no line for src/{name}" for name in sorted(folders - table.keys())]
    faults += [f"CMakeLists.txt: a line for {name}, which src/ does not have" for name in sorted(table.keys() - folders)
               if not (src / f"{name}.cpp").is_file()]
    for path in sorted(src.rglob("*")):
        if path.is_file():
            check_file(path, src, table, faults)
    return faults


def including(folder, include):
    """A change: a new file in that folder with that include."""
    return lambda tree: (tree / "src" / folder / "Fault.h").write_text(f"#pragma once\n{include}\n")


def header_of(folder):
    return next((ROOT / "src" / folder).glob("*.h")).relative_to(ROOT / "src")


def change_table(tree, pattern, text):
    lists = tree / "CMakeLists.txt"
    lists.write_text(re.sub(pattern, text, lists.read_text(), count=1))


def self_test():
    """Each of these changes to the tree must be found; returns those that are not."""
    changes = {
        "an include of a higher folder": including("diag", f'#include "{header_of("shell")}"'),
        "an include of a folder beside it": including("macro", f'#  include "{header_of("data")}"'),
        "an include by a relative path": including("diag", f'#include "../{header_of("diag")}"'),
        "a system header outside platform": including("shell", "#include <unistd.h>"),
        "a system header of a folder": including("source", "#include <sys/stat.h>"),
        "a system header in what the systems share": including("platform", "#include <unistd.h>"),
        "one system's header outside": including("shell", '#include "platform/posix/Files.h"'),
        "signals outside platform": including(".", "#include <csignal>"),
        "a circle between folders": lambda t: change_table(t, r"zelvaro_folder\(diag\b", "zelvaro_folder(diag source"),
        "a folder with two lines": lambda t: change_table(t, r"(zelvaro_folder\(diag\b[^\n]*\n)", r"\1\1"),
        "a folder without a line": lambda t: (t / "src/other").mkdir(),
    }
    missed = []
    for name, change in changes.items():
        with tempfile.TemporaryDirectory() as scratch:
            tree = Path(scratch)
            shutil.copytree(ROOT / "src", tree / "src")
            shutil.copy(ROOT / "CMakeLists.txt", tree)
            change(tree)
            if len(check(tree)) <= len(check(ROOT)):
                missed.append(f"self-test: not found: {name}")
    return missed


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--self-test", action="store_true")
    faults = self_test() if parser.parse_args().self_test else check(ROOT)
    if faults:
        sys.exit("\n".join(faults))


if __name__ == "__main__":
    main()
