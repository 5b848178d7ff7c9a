#!/usr/bin/env python3
"""Makes fuzz/corpus/TARGET anew out of what scripts/fuzz.sh has found: the COUNT inputs that together reach most.

  fuzz/keep.py TARGET COUNT      behind a run of scripts/fuzz.sh, never beside it

Inputs of findings, named finding-*, stay.
"""
import hashlib
import heapq
import pathlib
import subprocess
import sys
import tempfile

ROOT = pathlib.Path(__file__).resolve().parent.parent
BUILD = ROOT / "build" / "fuzz"


def what_each_reaches(target, kept):
    """Features and size of each input, by its path, as a merge of libFuzzer measures them."""
    folders = [kept, BUILD / "seeds" / target, BUILD / "found" / target]
    with tempfile.TemporaryDirectory() as work:
        control = pathlib.Path(work) / "control"
        (pathlib.Path(work) / "merged").mkdir()
        flags = ["-set_cover_merge=1", "-use_counters=0", "-max_len=4096", f"-merge_control_file={control}"]
        command = [BUILD / "fuzz" / f"fuzz_{target}", *flags, f"{work}/merged", *folders]
        subprocess.run(command, check=True, stderr=subprocess.DEVNULL)
        lines = control.read_text().splitlines()
    names = lines[2 : 2 + int(lines[0])]
    rows = [line.split() for line in lines[2 + len(names) :]]
    sizes = {row[1]: int(row[2]) for row in rows if row[0] == "STARTED"}
    return {names[int(row[1])]: (set(row[2:]), sizes[row[1]]) for row in rows if row[0] == "FT"}


def choose(reached, count):
    """What an input adds only shrinks: the head of the heap is the best where its number is still right."""
    heap = [(-len(features), size, name) for name, (features, size) in reached.items()]
    heapq.heapify(heap)
    seen, chosen = set(), []
    while heap and len(chosen) < count:
        number, size, name = heapq.heappop(heap)
        new = reached[name][0] - seen
        if len(new) < -number:
            heapq.heappush(heap, (-len(new), size, name))
        elif new:
            chosen.append(pathlib.Path(name).read_bytes())
            seen |= new
    return chosen


def main(target, count):
    kept = ROOT / "fuzz" / "corpus" / target
    kept.mkdir(parents=True, exist_ok=True)
    inputs = choose(what_each_reaches(target, kept), count)
    for old in kept.iterdir():
        if not old.name.startswith("finding-"):
            old.unlink()
    for data in inputs:
        (kept / hashlib.sha1(data).hexdigest()[:12]).write_bytes(data)
    print(f"{target}: {len(inputs)} inputs, {sum(map(len, inputs))} bytes")


if __name__ == "__main__":
    main(sys.argv[1], int(sys.argv[2]))
