#!/usr/bin/env python3
"""Writes first inputs for the fuzz targets, made of the samples, the dialogues and the tests, and their dictionary.

  fuzz/seeds.py FOLDER      an input a file in FOLDER/load, FOLDER/session, FOLDER/image, FOLDER/ini and
                            FOLDER/task, and FOLDER/casl.dict
"""
import hashlib
import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
FAMILIES = 8  # low bits of the first byte; the targets tell what the others mean
JAPANESE = 8
SEPARATOR = b"\x1e"


def dialogue_files(word):
    """Pairs of the name and the bytes of each file that a script of tests/dialogues has or edits."""
    for path in sorted((ROOT / "tests" / "dialogues").glob("*.dialogue")):
        for names, text in re.findall(rf"^{word} ([^:]*): (.*)$", path.read_text(encoding="utf-8"), flags=re.M):
            data = text.encode("utf-8").decode("latin-1")
            data = re.sub(r"\\(?:x(..)|(.))", lambda m: chr(int(m[1], 16)) if m[1] else m[2].replace("n", "\n"), data)
            yield names, data.encode("latin-1")


def encodings(text):
    yield text.encode("utf-8")
    yield text.encode("utf-8-sig")
    yield text.encode("cp932", "replace")
    for mark, name in ((b"\xff\xfe", "utf-16-le"), (b"\xfe\xff", "utf-16-be")):
        yield mark + text.replace("\n", "\r\n").encode(name, "replace")


def sources():
    """Pairs of a source's bytes and the lines typed behind its name."""
    for path in sorted((ROOT / "workspace" / "src").rglob("*.txt")):
        yield path.read_bytes(), "1\n12\n3\n\n11\n"
    for names, data in dialogue_files("file"):
        if not names.endswith(".ini"):
            yield data, "1\n12\n3\n\n11\n"
    for path in sorted((ROOT / "tests" / "findings").glob("*.cases")):
        for fields in (line.split(" | ") for line in path.read_text(encoding="utf-8").splitlines()):
            if len(fields) > 2:
                body = fields[1].replace("\\n", "\n")
                yield f"MAIN START\n{body}\n RET\n END\n".encode("utf-8"), ""


def images():
    """The words that the tests of the machine run."""
    for path in sorted((ROOT / "tests" / "comet2").glob("*.cpp")):
        for words in re.findall(r"machineWith\(\{([^}]*)\}\)", path.read_text(encoding="utf-8")):
            numbers = re.findall(r"\b(?:0x[0-9A-Fa-f]+|\d+)\b", words)
            yield b"".join((int(n, 0) & 0xFFFF).to_bytes(2, "big") for n in numbers)


def settings():
    for word in ("file", "edit"):
        for names, data in dialogue_files(word):
            if names.endswith(".ini"):
                yield data


def tasks():
    for path in sorted((ROOT / "workspace" / "tasks").rglob("*.toml")):
        yield path.read_bytes()
    cases = (ROOT / "tests" / "check" / "check.cases").read_text(encoding="utf-8")
    for text in re.findall(r"^\w+\.toml := (.*)$|^printf '([^']*)' >x; z --grade", cases, flags=re.M):
        yield "".join(text).replace("\\n", "\n").encode("utf-8")


KEPT_WORDS = r"""
\n \t \r\n ; ,  '  '' =  =5 =#00FF ='A' ='A''B' #FFFF -32768 65535 65536 'A;B' ''
[Mode] [Src] [Editor] [rules] [[case]] before= after= output= hidden= points= true =1 =JPN =std::chrono \xef\xbb\xbf \xff\xfe \xfe\xff \x82\xa0 \xe3\x80\x80 \xf0\xa0\xae\xb7
"""


def dictionary():
    """What a source, a settings file and an image are made of, a line a word, as libFuzzer reads it."""
    table = (ROOT / "src" / "encode" / "Instructions.def").read_text(encoding="utf-8")
    rows = re.findall(r"^ZELVARO_INSTRUCTION\((\w+), *\w+, *\w+, *(\w+), *(\w+),", table, flags=re.M)
    settings = (ROOT / "src" / "shell" / "Settings.cpp").read_text(encoding="utf-8")
    words = [f" {name} " for name, _, _ in rows] + [f"GR{n}" for n in range(10)]
    words += [f"\\x{int(code, 16):02x}" for _, adr, reg in rows for code in (adr, reg) if int(code, 16)]
    words += [f"{key}=" for key in re.findall(r'put\("\w+\.(\w+)"', settings)]
    words += [word.replace("\\n", "\\x0a").replace("\\t", "\\x09").replace("\\r", "\\x0d") for word in KEPT_WORDS.split()]
    return "".join(f'"{word}"\n' for word in dict.fromkeys(words))


def write(folder, data):
    folder.mkdir(parents=True, exist_ok=True)
    (folder / hashlib.sha1(data).hexdigest()).write_bytes(data)


def main(folder):
    for number, (source, typed) in enumerate(sources()):
        family, language = number % FAMILIES, JAPANESE * (number % 3 == 0)
        write(folder / "session", bytes([family | language]) + source + SEPARATOR + typed.encode("utf-8"))
        write(folder / "load", bytes([family | language]) + source)
        if number % 5 == 0:
            for data in encodings(source.decode("utf-8", "replace")):
                write(folder / "load", bytes([family]) + data)
    for number, words in enumerate(images()):
        write(folder / "image", bytes([number % FAMILIES]) + bytes(18) + words)
    for data in settings():
        write(folder / "ini", data)
    for data in tasks():
        write(folder / "task", data)
    (folder / "casl.dict").write_text(dictionary())


if __name__ == "__main__":
    main(pathlib.Path(sys.argv[1]))
