#!/usr/bin/env python3
"""Makes docs/session.svg, the picture of the README, from a real session.

    scripts/session-picture.py [PROGRAM]      the program is build/release/zelvaro unless named

The program runs on a terminal of its own in a fresh folder with the samples.  What it prints and the echo of
what is typed become the lines of the picture.
"""

import os
import pty
import select
import shutil
import sys
import tempfile
from html import escape
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
TYPED = ["", "1", "src/pn1000"]
CHARACTER, LINE, MARGIN = 8.4, 18, 16  # pixels; the width of a character at 14 pixels
QUIET = 0.5  # seconds without output, after which the program waits for a line


def read_until_quiet(terminal):
    text = b""
    while select.select([terminal], [], [], QUIET)[0]:
        text += os.read(terminal, 65536)
    return text.decode().replace("\r\n", "\n")


def session(program):
    """Pairs of a text and whether it was typed."""
    pid, terminal = pty.fork()
    if pid == 0:
        os.environ.update(LC_ALL="C.UTF-8")
        os.execv(program, [program])
    parts = [(read_until_quiet(terminal), False)]
    for line in TYPED:
        os.write(terminal, line.encode() + b"\n")
        shown = read_until_quiet(terminal)
        parts += [(shown[: len(line)], True), (shown[len(line) :], False)]
    os.close(terminal)  # the dialogue ends with its terminal
    os.waitpid(pid, 0)
    return parts


def lines_of(parts):
    """Each line as a list of its pairs, without blanks at its end."""
    lines = [[]]
    for text, typed in parts:
        for number, piece in enumerate(text.split("\n")):
            if number:
                lines.append([])
            lines[-1].append((piece, typed))
    while lines and not "".join(piece for piece, _ in lines[-1]).strip():
        lines.pop()
    return lines


def picture(lines):
    columns = max(len("".join(piece for piece, _ in line)) for line in lines)
    width, height = round(columns * CHARACTER) + 2 * MARGIN, len(lines) * LINE + 2 * MARGIN
    rows = [
        f'<svg xmlns="http://www.w3.org/2000/svg" width="{width}" height="{height}" viewBox="0 0 {width} {height}">',
        "<title>A session with Zelvaro</title>",
        '<rect width="100%" height="100%" rx="8" fill="#14202e"/>',
        '<g fill="#d6dee8" font-family="DejaVu Sans Mono, Menlo, Consolas, monospace" font-size="14" xml:space="preserve">',
    ]
    for number, line in enumerate(lines):
        spans = "".join(
            f'<tspan fill="#ffd35c">{escape(piece)}</tspan>' if typed else escape(piece, quote=False)
            for piece, typed in line
        ).rstrip()
        if spans:
            rows.append(f'<text x="{MARGIN}" y="{MARGIN + LINE * number + 14}">{spans}</text>')
    return "\n".join([*rows, "</g>", "</svg>", ""])


def main():
    program = os.path.abspath(sys.argv[1]) if len(sys.argv) > 1 else str(ROOT / "build/release/zelvaro")
    with tempfile.TemporaryDirectory() as folder:
        shutil.copytree(ROOT / "workspace" / "src", Path(folder) / "src")
        os.chdir(folder)
        parts = session(program)
        os.chdir(ROOT)
    (ROOT / "docs" / "session.svg").write_text(picture(lines_of(parts)), encoding="utf-8")


main()
