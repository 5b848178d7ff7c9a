#!/usr/bin/env python3
"""Measures the program side by side with others and prints a table in Markdown.

    bench/measure.py [--program build/release/zelvaro] [--anchors DIR] [--runs 5]

Times are user + system time of whole processes, medians, both sides measured in turn.  DIR holds the
workloads (count.txt ...), gen_casl.py and work/bench.lua; what is missing on the machine (lua5.4, spim, as)
or in DIR is left out with a line that says so.
"""
import argparse, os, shutil, statistics, subprocess, sys, tempfile
from pathlib import Path

HERE = Path(__file__).resolve().parent


def child(cmd, cwd, stdin=b""):
    """CPU seconds and peak memory in bytes of one process."""
    with open(os.devnull, "wb") as null:
        p = subprocess.Popen(cmd, cwd=cwd, stdin=subprocess.PIPE, stdout=null, stderr=null)
        p.stdin.write(stdin)
        p.stdin.close()
        _, _, usage = os.wait4(p.pid, 0)
        p.returncode = 0
    return usage.ru_utime + usage.ru_stime, usage.ru_maxrss * 1024


class Bench:
    def __init__(self, program, anchors, runs):
        self.program, self.anchors, self.runs = program, anchors, runs
        self.dir = Path(tempfile.mkdtemp(prefix="zelvaro-bench-"))
        (self.dir / "zelvaro.ini").write_text("[Mode]\nLangStr=ENU\n")

    def reports(self, on):
        """Folders under the reports' names keep the program from writing them."""
        for name in ("aaAssembledRegMry.txt", "aaResultantRegMry.txt"):
            path = self.dir / name
            if path.is_dir():
                path.rmdir()
            elif path.exists():
                path.unlink()
            if not on:
                path.mkdir()

    def session(self, source):
        return [str(self.program)], f"\n1\n{source}\n1\n".encode()

    def together(self, *sides):
        """Medians of (seconds, bytes) of each side, measured in turn."""
        seen = [[] for _ in sides]
        for k in range(self.runs + 1):
            for i, (cmd, stdin) in enumerate(sides):
                one = child(cmd, self.dir, stdin)
                if k > 0:  # the first round warms up
                    seen[i].append(one)
        return [(statistics.median(t for t, _ in s), statistics.median(m for _, m in s)) for s in seen]

    def generate(self, name, dialect, *args):
        # straight into the file: what this process holds would count as its children's memory
        with open(self.dir / name, "wb") as out:
            subprocess.run([sys.executable, str(self.anchors / "gen_casl.py"), dialect, *map(str, args)],
                           stdout=out, check=True)
        with open(self.dir / name, "rb") as text:
            return sum(1 for _ in text)


def row(what, against, value, goal, better):
    met = value >= goal if better == "more" else value <= goal
    print(f"| {what} | {against} | {value:.2f} | {goal} | {'yes' if met else 'no'} |", flush=True)


WORK = {"count": (3000, 360012005, 2.3), "sieve": (400, 290186805, 1.0), "sort": (12, 203777190, 2.2),
        "fib": (300, 222564304, 1.8)}

CLIFFS = {"near": (360008003, 0.9), "selfmod": (140080005, 0.35)}


def run_rows(b):
    rate = {}
    for name in ("count", "sieve", "sort", "fib", "near", "selfmod"):
        shutil.copy(b.anchors / f"{name}.txt", b.dir)
    lua = shutil.which("lua5.4")
    for name, (rounds, instructions, goal) in WORK.items():
        sides = [b.session(name)]
        if lua:
            sides.append(([lua, str(b.anchors / "work/bench.lua"), name, str(rounds // 2)], b""))
        times = b.together(*sides)
        rate[name] = instructions / times[0][0]
        if lua:
            row(f"run of {name}, {rate[name] / 1e6:.0f} M/s", "lua5.4", rate[name] * times[1][0] / (instructions / 2),
                goal, "more")
        else:
            print(f"| run of {name}, {rate[name] / 1e6:.0f} M/s | lua5.4 is not installed | | | |")
    for name, (executed, goal) in CLIFFS.items():
        (mine, _), (count, _) = b.together(b.session(name), b.session("count"))
        row(f"{name}, {executed / mine / 1e6:.0f} M/s", "count, rate", executed / mine * count / WORK["count"][1], goal,
            "more")
    if shutil.which("spim"):
        source = (b.anchors / "work/count.mips.s").read_text().replace("ROUNDS", "8")
        (b.dir / "a.mips").write_text(source)
        (t, _), = b.together((["spim", "-sdata", "1000000", "-file", "a.mips"], b""))
        row("run of count", "spim", rate["count"] / (WORK["count"][1] / 3000 * 8 / t), 500, "more")
    else:
        print("| run of count | spim is not installed | | | |")


def assembler_rows(b):
    lines = b.generate("w60.txt", "casl", 60000)
    b.generate("w30.txt", "casl", 30000)
    b.generate("l500.txt", "casl", 60000, 500000)
    b.generate("w60.s", "gas", 60000)
    b.generate("l500.s", "gas", 60000, 500000)
    b.reports(False)
    if shutil.which("as"):
        (z, _), (gas, _) = b.together(b.session("w60"), (["as", "--32", "-o", "o", "w60.s"], b""))
        row(f"60,000 words, load to image, {z * 1e3:.0f} ms", "GNU as", z / gas, 1.3, "less")
        (z, _), (gas, _) = b.together(b.session("l500"), (["as", "--32", "-o", "o", "l500.s"], b""))
        row(f"500,000 lines, mostly comments, {z * 1e3:.0f} ms", "GNU as", z / gas, 2.5, "less")
        b.reports(True)
        (z, memory), (gas, _) = b.together(b.session("w60"), (["as", "--32", "-aln=l", "-o", "o", "w60.s"], b""))
        row(f"60,000 words with both reports, {z * 1e3:.0f} ms", "GNU as with listing", z / gas, 0.55, "less")
    else:
        print("| 60,000 words | as is not installed | | | |")
    b.reports(False)
    (t60, memory), (t30, _) = b.together(b.session("w60"), b.session("w30"))
    row("growth of the time from 30,000 to 60,000 words", "itself", t60 / t30, 2.1, "less")
    row("memory for 60,000 words, bytes a line", "itself", memory / lines, 600, "less")


def other_rows(b):
    body = "".join(f"L{k:06d} NOP\n" for k in range(20000))
    (b.dir / "faults.txt").write_text(f"MAIN START\n RET\n{body} END\n")
    (b.dir / "clean.txt").write_text("MAIN START\n RET\n" + "        NOP\n" * 20000 + " END\n")
    (f, _), (c, _) = b.together(b.session("faults"), b.session("clean"))
    row("20,000 lines that each draw a Note", "the same without labels", f / c, 3, "less")
    (z, _), (t, _) = b.together(([str(b.program)], b""), (["true"], b""))
    row("start to menu to end, ms more than true", "true", (z - t) * 1e3, 5, "less")


def main():
    ap = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    ap.add_argument("--program", type=Path, default=HERE.parent / "build/release/zelvaro")
    ap.add_argument("--anchors", type=Path, default=HERE.parent / "../shared/bench")
    ap.add_argument("--runs", type=int, default=5)
    a = ap.parse_args()
    b = Bench(a.program.resolve(), a.anchors.resolve(), a.runs)
    print("| what | against | ratio | goal | met |\n|---|---|---|---|---|")
    try:
        run_rows(b)
        assembler_rows(b)
        other_rows(b)
    finally:
        shutil.rmtree(b.dir, ignore_errors=True)


main()
