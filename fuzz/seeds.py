#!/usr/bin/env python3
"""Writes first inputs for the fuzz targets, made of the samples, the dialogues and the tests, and their dictionary.

  fuzz/seeds.py FOLDER      an input a file in FOLDER/load, FOLDER/session, FOLDER/image, FOLDER/ini and
                            FOLDER/task, and FOLDER/casl.dict
"""
import collections
import hashlib
import re
import sys
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
FAMILIES, JAPANESE = 8, 8  # low bits of the first byte, and the next one; the targets say what the others mean
TYPED = b"\x1e1\n12\n3\n\n11\n"  # a separator, and the lines that are typed after the name of the source
ENCODINGS = (("", "utf-8"), ("", "utf-8-sig"), ("", "cp932"), ("\ufeff", "utf-16-le"), ("\ufeff", "utf-16-be"))
KEPT_WORDS = r"""
\x0a \x09 \x0d\x0a ; ,  '  '' =  =5 =#00FF ='A' ='A''B' #FFFF -32768 65535 65536 'A;B'
[rules] [[case]] before= after= output= hidden= points= true =1 =JPN =std::chrono \xef\xbb\xbf \xff\xfe \xfe\xff \x82\xa0 \xe3\x80\x80 \xf0\xa0\xae\xb7
"""


def texts(pattern, regex):
    """The texts that a regular expression finds in the files of the tree, with their escapes replaced."""
    for path in sorted(ROOT.glob(pattern)):
        for text in re.findall(regex, path.read_text(encoding="utf-8"), flags=re.M):
            one = lambda m: bytes([int(m[1], 16)]) if m[1] else m[2].replace(b"n", b"\n")
            yield re.sub(rb"\\(?:x(..)|(.))", one, text.encode("utf-8"))


def sources():
    yield from (path.read_bytes() for path in sorted((ROOT / "workspace" / "src").rglob("*.txt")))
    yield from texts("tests/dialogues/*.dialogue", r"^file (?!.*\.ini:)[^:]*: (.*)$")
    for body in texts("tests/findings/*.cases", r"^[^|#\n]+ \| (.*?) \| "):
        yield b"MAIN START\n" + body + b"\n RET\n END\n"


def settings():
    yield from texts("tests/dialogues/*.dialogue", r"^(?:file|edit) [^:]*\.ini: (.*)$")


def images():
    """The words that the tests of the machine run."""
    for words in texts("tests/comet2/*.cpp", r"put\(0, \{([^}]*)\}\)"):
        numbers = re.findall(rb"\b(?:0x[0-9A-Fa-f]+|\d+)\b", words)
        yield b"".join((int(n, 0) & 0xFFFF).to_bytes(2, "big") for n in numbers)


def tasks():
    yield from (path.read_bytes() for path in sorted((ROOT / "workspace" / "tasks").rglob("*.toml")))
    yield from texts("tests/check/check.cases", r"^\w+\.toml := (.*)$")
    yield from texts("tests/check/check.cases", r"^printf '([^']*)' >x; z --grade")


def dictionary():
    """What a source and a settings file are made of, a line a word, as libFuzzer reads it."""
    found = collections.Counter(w for s in sources() for w in re.findall(rb"\b(?:[A-Z]{2,5}|GR\d)\b", s))
    words = [f" {word.decode()} " for word, _ in found.most_common(120)]
    words += [word.decode() for s in settings() for word in re.findall(rb"^(?:\w+=|\[\w+\])", s, flags=re.M)]
    return "".join(f'"{word}"\n' for word in dict.fromkeys(words + KEPT_WORDS.split()))


def main(folder):
    def write(target, data):
        (folder / target).mkdir(parents=True, exist_ok=True)
        (folder / target / hashlib.sha1(data).hexdigest()).write_bytes(data)

    for number, source in enumerate(sources()):
        how = bytes([number % FAMILIES | JAPANESE * (number % 3 == 0)])
        write("session", how + source + TYPED)
        write("load", how + source)
        for mark, name in ENCODINGS if number % 5 == 0 else ():
            write("load", how + (mark + source.decode("utf-8", "replace")).encode(name, "replace"))
    for number, words in enumerate(images()):
        write("image", bytes([number % FAMILIES]) + bytes(18) + words)
    for data in settings():
        write("ini", data)
    for data in tasks():
        write("task", data)
    (folder / "casl.dict").write_text(dictionary())


if __name__ == "__main__":
    main(Path(sys.argv[1]))
