#!/usr/bin/env python3
"""Plays the same dialogues through the native program and through the one for Windows under wine, and compares them.

    scripts/windows-same-output.py NATIVE WINDOWS [--mutants N] [--parts samples,dialogues,check,mutants] [--seconds S]

NATIVE and WINDOWS are folders with zelvaro and zelvaro-check, or with zelvaro.exe and zelvaro-check.exe.

samples    every source of workspace/, in all pipelines and both languages
dialogues  what the scripts of tests/dialogues/ type, with the files that they begin with
check      zelvaro-check on every source of workspace/, with its run, in three forms and both languages
mutants    N variations of the sources, in all pipelines and both languages

Compared are the exit status, the console, the reports and the settings. Dates, times and the tips, which come at random,
are left out. Line ends are the only difference allowed: on Windows all of a text may be CR LF. A program that does not
end in the native build is counted and not compared. Where nothing at all was printed, wine is started once more, which
is counted: now and then it does not start. The first difference of each play is printed; status 1 if there is one.
"""

import argparse
import itertools
import os
import random
import re
import shutil
import subprocess
import sys
import tempfile
import time
from collections import Counter
from concurrent.futures import ThreadPoolExecutor
from dataclasses import dataclass, field
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
PIPELINES = ["WP", "NWW", "NwW", "NaW", "AP", "NA", "NH"]
LANGUAGES = ["ENU", "JPN"]
INI = "[Mode]\nLangStr={}\nFightFunc={}\nTimeFuncStr=QPC\nTimeFuncInt=0\n"
# Enter, the name, "go on" or a line for IN, more lines for it, the end.
TYPED = "\n1\nt\n1\nAB\n\n-12\n\n\n123\n\n123\n".encode()
CHECKS = (["--run", "--hints", "--listing"], ["--run", "--format", "json"], ["--format", "gnu"])
NATIVE_SECONDS, WINE_SECONDS = 1, 60
MASKS = [(re.compile(pattern.encode(), re.M), b"T") for pattern in (
    r"^.*(msec|micro second|milli second| sec).*$",
    r"[A-Z][a-z]+day [A-Z][a-z]+ \d+, \d+\(R\d+\) +\d+:\d+:\d+s",
    r"作成日時：.*$")]
TIP = re.compile("^(このファイル|Open this file)[^\n]*\n(?:(?!//--).*\n){0,9}//-+\n".encode(), re.M)
ODD = list(",;'\"=#+-_ \t*/0189ABGRXabx\\") + ["　", "Ａ", "１", "；", "，", "ｱ", "語", "～", "①", "😀", "'", "''", "GR", "=#", "  "]


@dataclass
class Play:
    part: str
    title: str
    files: dict
    typed: bytes = TYPED
    program: str = "zelvaro"
    options: list = field(default_factory=list)


def unescaped(text):
    """The escapes of tests/support/Texts.h."""
    text = re.sub(r"\{(\d+):([^}]*)\}", lambda m: m[2] * int(m[1]), text)
    pattern = re.compile(rb"\\(x[0-9A-Fa-f]{2}|u[0-9A-Fa-f]{4}|.)")

    def meaning(m):
        kind, digits = m[1][:1], m[1][1:]
        if kind == b"x":
            return bytes([int(digits, 16)])
        if kind == b"u":
            return chr(int(digits, 16)).encode("utf-8", "replace")
        return {b"n": b"\n", b"t": b"\t"}.get(kind, m[1])

    return pattern.sub(meaning, text.encode())


def sources():
    for folder in ("src", "tasks"):
        for path in sorted((ROOT / "workspace" / folder).rglob("*.txt")):
            yield str(path.relative_to(ROOT / "workspace")), path.read_bytes()


def sample_plays():
    for (name, data), pipe, lang in itertools.product(sources(), PIPELINES, LANGUAGES):
        yield Play("samples", f"{name} ({pipe}, {lang})", {"t.txt": data, "zelvaro.ini": INI.format(lang, pipe).encode()})


def check_plays():
    for (name, data), options, lang in itertools.product(sources(), CHECKS, LANGUAGES):
        yield Play("check", f"{name} ({' '.join(options)}, {lang})", {"t.txt": data}, b"AB\n\n-12\n", "zelvaro-check",
                   ["--lang", "ja" if lang == "JPN" else "en", "--max-steps", "200000", *options, "t.txt"])


def dialogue_plays():
    """The typed lines and files of the scripts; what they expect is for tests/dialogues/ to compare."""
    samples = {name: data for name, data in sources() if name.startswith("src/")}
    for path in sorted((ROOT / "tests/dialogues").glob("*.dialogue")):
        cases = [("", [], [])]
        for line in path.read_text().split("\n"):
            if line.startswith("== "):
                cases.append((line[3:], list(cases[0][1]), []))
            elif line.startswith(">"):
                typed = line.split(" => ")[0][1:].removeprefix("=")
                cases[-1][2].extend(unescaped(part.strip(" ")) for part in typed.split("|"))
            elif line.startswith(("file ", "folder ", "language ")):
                cases[-1][1].append(line)
        for title, directives, typed in cases:
            files = dict(samples)
            for directive in directives:
                word, _, rest = directive.partition(" ")
                names, _, text = rest.partition(": ")
                if word == "file" and not names.endswith(".chm"):  # would be opened on the desktop
                    files.update({name.strip(): unescaped(text) for name in names.split("|")})
                elif word == "language":
                    files.setdefault("zelvaro.ini", INI.format("JPN", "WP").encode())
            files.setdefault("zelvaro.ini", INI.format("ENU", "WP").encode())
            if typed:
                yield Play("dialogues", f"{path.name}: {title}", files, b"\n".join(typed) + b"\n")


def mutant(data, rnd):
    for encoding in ("utf-8", "latin-1"):  # the latter: byte by byte
        try:
            lines = data.decode(encoding).split("\n")
            break
        except UnicodeDecodeError:
            continue
    for _ in range(rnd.randint(1, 3)):
        i, j, kind = rnd.randrange(len(lines)), rnd.randrange(len(lines)), rnd.random()
        if kind < 0.1 and len(lines) > 2:
            del lines[i]
        elif kind < 0.2:
            lines.insert(i, lines[j])
        elif kind < 0.3:
            lines[i], lines[j] = lines[j], lines[i]
        else:
            at = rnd.randint(0, len(lines[i]))
            new = rnd.choice(ODD) if rnd.random() < 0.7 else ""
            lines[i] = lines[i][:at] + new + lines[i][at + rnd.randint(0, 2):]
    return "\n".join(lines).encode(encoding, "replace")


def mutant_plays(count):
    rnd = random.Random(1)
    all_sources = list(sources())
    for nr in range(count):
        name, data = all_sources[nr % len(all_sources)]
        data = mutant(data, rnd)
        for pipe, lang in itertools.product(PIPELINES, LANGUAGES):
            yield Play("mutants", f"{name}, mutant {nr} ({pipe}, {lang})",
                       {"t.txt": data, "zelvaro.ini": INI.format(lang, pipe).encode()})


def run(command, p, seconds, env=None):
    """What the play has left: the console, the status, every file.  None if it does not end."""
    with tempfile.TemporaryDirectory(prefix="same output ") as folder:
        for name, data in p.files.items():
            path = Path(folder, name)
            if path.resolve().is_relative_to(Path(folder).resolve()):
                path.parent.mkdir(parents=True, exist_ok=True)
                path.write_bytes(data)
        # Into a file: a process that wine starts besides, and that stays, would keep a pipe open.
        with tempfile.TemporaryFile() as console:
            try:
                r = subprocess.run(command + p.options, cwd=folder, input=p.typed, stdout=console,
                                   stderr=subprocess.STDOUT, timeout=seconds, env=env, check=False)
            except subprocess.TimeoutExpired:
                return None
            console.seek(0)
            out = {"(console)": console.read(), "(status)": str(r.returncode).encode()}
        out.update((str(path.relative_to(folder)), path.read_bytes()) for path in sorted(Path(folder).rglob("*"))
                   if path.is_file())
        return out


def masked(text):
    for pattern, by in MASKS:
        text = pattern.sub(by, text)
    return TIP.sub(b"", text)


def with_native_line_ends(text):
    """Only if all line ends are CR LF; a mixture stays as it is, and is reported as a difference."""
    count = text.count(b"\n")
    return text.replace(b"\r\n", b"\n") if count and text.count(b"\r\n") == count else text


def difference(native, windows, p):
    """The first difference in words, or None."""
    for part in sorted(set(native) | set(windows)):
        x, y = native.get(part), windows.get(part)
        if x is None or y is None:
            return f"{part}: only {'Windows' if x is None else 'native'} has it"
        if x == y or (part in p.files and p.files[part] == x == y):
            continue
        x, y = masked(x).split(b"\n"), masked(with_native_line_ends(y)).split(b"\n")
        for nr, (a, b) in enumerate(itertools.zip_longest(x, y), 1):
            if a != b:
                return f"{part} line {nr}\n    native  {a!r:.300}\n    windows {b!r:.300}"
    return None


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("native", type=Path)
    parser.add_argument("windows", type=Path)
    parser.add_argument("--mutants", type=int, default=40)
    parser.add_argument("--parts", default="samples,dialogues,check,mutants")
    parser.add_argument("--seconds", type=float, default=1e9, help="begin no play after that time")
    parser.add_argument("--jobs", type=int, default=os.cpu_count())
    a = parser.parse_args()
    wine = shutil.which("wine64") or "/usr/lib/wine/wine64"
    prefix = os.environ.get("WINEPREFIX", ROOT / "build/wine")
    Path(prefix).mkdir(parents=True, exist_ok=True)
    # As scripts/wine.sh has it, which would be another process for each of thousands of plays.
    env = {**os.environ, "WINEPREFIX": str(prefix), "WINEARCH": "win64", "WINEDEBUG": "-all",
           "WINEDLLOVERRIDES": "mscoree,mshtml=", "LC_ALL": "C.UTF-8"}
    parts = {"samples": sample_plays, "dialogues": dialogue_plays, "check": check_plays,
             "mutants": lambda: mutant_plays(a.mutants)}
    started, counts, shown = time.monotonic(), Counter(), 0

    def one(p):
        if time.monotonic() - started > a.seconds:
            return p, "left out", None
        native = run([str((a.native / p.program).resolve())], p, NATIVE_SECONDS)
        if native is None:
            return p, "endless", None
        command = [wine, str((a.windows / (p.program + ".exe")).resolve())]
        windows = run(command, p, WINE_SECONDS, env)
        started_twice = windows is not None and not windows["(console)"] and native["(console)"]
        if started_twice:
            windows = run(command, p, WINE_SECONDS, env)
        found = f"no end in {WINE_SECONDS} seconds" if windows is None else difference(native, windows, p)
        return p, "different" if found else "same, at the second start" if started_twice else "same", found

    plays = itertools.chain.from_iterable(parts[part]() for part in a.parts.split(","))
    with ThreadPoolExecutor(a.jobs) as pool:
        for p, kind, found in pool.map(one, plays):
            counts[p.part, kind] += 1
            if found and shown < 30:
                shown += 1
                print(f"DIFFERENT {p.part}: {p.title}\n  {found}", flush=True)
    for (part, kind), count in sorted(counts.items()):
        print(f"{part:10} {kind:26} {count:6}")
    print(f"{time.monotonic() - started:.0f} seconds")
    differs = any(kind == "different" for _, kind in counts)
    return 1 if differs or not any(kind.startswith("same") for _, kind in counts) else 0


if __name__ == "__main__":
    sys.exit(main())
