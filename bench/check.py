#!/usr/bin/env python3
"""Measures zelvaro-check side by side with what it is compared with, and prints ratios.

    bench/check.py PROGRAM DIALOGUE [ROUNDS]

Processor time of PROGRAM, zelvaro-check, for 1,000 files of 60 lines, checked and run in one process, against that of GNU as
started once for each of 1,000 files of as many lines; its wall time with --jobs 1 against --jobs 2. Processor time
of one run of 92 million steps in PROGRAM and in DIALOGUE, which is zelvaro, and with the usual limit of steps and
none. The two of a pair take turns, and the least time of all rounds counts.
"""

import os
import resource
import subprocess
import sys
import tempfile
import time
from pathlib import Path

FILES = 1000
LINES = 60


def casl(number):
    """A program that sums the numbers of a table a few times; each file has other numbers."""
    head = [f"M{number} START", " LAD GR3,0", "AGAIN LAD GR1,0", " LAD GR2,0", "LOOP ADDA GR1,TAB,GR2", " LAD GR2,1,GR2",
            " CPA GR2,=30", " JMI LOOP", " ST GR1,SUM", " LAD GR3,1,GR3", " CPA GR3,=20", " JMI AGAIN", " RET", "SUM DS 1"]
    table = [f"{'TAB' if i == 0 else f'T{i}'} DC {number % 97 + i} ; number {i}" for i in range(30)]
    notes = [f"; note {i} of {number}" for i in range(LINES - len(head) - len(table) - 1)]
    return "\n".join(head + table + notes + [" END", ""])


def gas(number):
    """As many lines for GNU as: the same loop and table."""
    head = [".text", ".globl _start", "_start: xor %edx, %edx", "again: xor %eax, %eax", " xor %ecx, %ecx",
            "loop: add tab(,%rcx,4), %eax", " inc %ecx", " cmp $30, %ecx", " jl loop", " mov %eax, sum", " inc %edx",
            " cmp $20, %edx", " jl again", " ret", ".data", "sum: .long 0"]
    table = [f"{'tab' if i == 0 else f't{i}'}: .long {number % 97 + i} # number {i}" for i in range(30)]
    notes = [f"# note {i} of {number}" for i in range(LINES - len(head) - len(table))]
    return "\n".join(head + table + notes + [""])


LONG = """LONG START
 LAD GR1,700
OUTER LAD GR2,0
INNER SUBL GR2,=1
 JNZ INNER
 SUBL GR1,=1
 JNZ OUTER
 RET
 END
"""


def measured(commands):
    """Processor time and wall time in seconds of commands that are run one after the other."""
    before, start = resource.getrusage(resource.RUSAGE_CHILDREN), time.monotonic()
    for command in commands:
        subprocess.run(command, check=True, stdin=open("typed"), stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    after = resource.getrusage(resource.RUSAGE_CHILDREN)
    return after.ru_utime + after.ru_stime - before.ru_utime - before.ru_stime, time.monotonic() - start


def best(rounds, *kinds):
    """The least processor and wall times of each kind of commands, which take turns."""
    times = [[measured(kind) for kind in kinds] for _ in range(rounds)]
    return [(min(t[k][0] for t in times), min(t[k][1] for t in times)) for k in range(len(kinds))]


def main(program, dialogue, rounds):
    program, dialogue = os.path.abspath(program), os.path.abspath(dialogue)
    with tempfile.TemporaryDirectory() as folder:
        os.chdir(folder)
        Path("typed").write_text("\n1\nlong.cas\n1\n123\n")
        Path("long.cas").write_text(LONG)
        for i in range(FILES):
            Path(f"{i}.cas").write_text(casl(i))
            Path(f"{i}.s").write_text(gas(i))
        sources = [f"{i}.cas" for i in range(FILES)]
        check = [program, "--quiet", "--run", "--input", "/dev/null"]
        each_as = [["as", "-o", "out.o", f"{i}.s"] for i in range(FILES)]
        (own, _), (other, _) = best(rounds, [[*check, *sources]], each_as)
        print(f"processor time: zelvaro-check {own:.3f} s, as {other:.3f} s, ratio {own / other:.3f} (at most 0.1)")
        (_, one), (_, two) = best(2 * rounds, [[*check, *sources]], [[*check, "--jobs", "2", *sources]])
        print(f"wall time: one job {one:.3f} s, two jobs {two:.3f} s, ratio {one / two:.2f} (at least 1.7)")
        run = [program, "--quiet", "--run", "--input", "/dev/null", "long.cas"]
        for what, other in (("the dialogue", [dialogue]), ("no limit", [*run, "--max-steps", "0"])):
            (own, _), (others, _) = best(4 * rounds, [run], [other])
            print(f"run: {own:.3f} s, {what} {others:.3f} s, ratio {own / others:.3f} (at most 1.05)")


if __name__ == "__main__":
    main(sys.argv[1], sys.argv[2], int(sys.argv[3]) if len(sys.argv) > 3 else 5)
