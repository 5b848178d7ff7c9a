#!/usr/bin/env python3
"""Makes small faults in src/ at random and reports which of them the tests notice.

    scripts/random-faults.py pick --seed 1 --count 100     chooses faults that compile, and writes them to LIST
    scripts/random-faults.py keep --tree COMMIT            leaves those of LIST that can be made in that tree, too
    scripts/random-faults.py run [--tree COMMIT]           runs the tests of a tree with each fault of LIST

A fault is an operator exchanged, a number or a truth value changed, a statement dropped, or a condition negated. With
`keep`, the tests of two trees can be compared on the same faults: a line is found in the other tree after blanks are
made equal and what RENAMED and normal_tokens() name is undone. The tree is the present one where none is given. `run`
builds a copy of the tree once, in which the environment decides which fault counts, and runs one program of tests
after the other until one fails. The same seed, tree and compiler give the same list.
"""

import argparse
import json
import os
import random
import re
import subprocess
import sys

from faulty_tree import REFUSED_IN_CONSTANTS, ROOT, Tests, build, snapshot, write_tree

WORK = ROOT / "build" / "random-faults"
LIST = WORK / "list.json"
SPARE = 1.5  # so many times the wanted faults are tried, since some do not compile
OPERATORS = {"<": "<=", "<=": "<", ">": ">=", ">=": ">", "==": "!=", "!=": "==", "&&": "||", "||": "&&", "+": "-",
             "-": "+", "*": "+", "/": "*", "%": "/", "&": "|", "|": "&", "<<": ">>", ">>": "<<", "+=": "-=",
             "-=": "+=", "++": "--", "--": "++", "|=": "&=", "&=": "|=", "true": "false", "false": "true"}
TOKEN = re.compile(r"""R"\((?s:.*?)\)"|u?8?"(?:\\.|[^"\\])*"|u?'(?:\\.|[^'\\])+'|\w+|<<=|>>=|<=>|->|::|"""
                   r"""[-+*/%&|<>=!^]=|&&|\|\||<<|>>|\+\+|--|\S""")
# Names that one tree has in place of another's, and the whole types written so.
RENAMED = {"Family": "Char", "SrcOf": "SrcData", "PrgOf": "PrgData"}
SKIPPED_LINE = re.compile(r"\b(constexpr|consteval|static_assert|assert|case|sizeof|noexcept|requires|operator)\b"
                          r"|^\s*#|\\$|^\s*//")


# Lines and their tokens

def tokens_of(line):
    """(text, first column, column after the last) of each token, without the comment."""
    found = [(m.group(), m.start(), m.end()) for m in TOKEN.finditer(line)]
    for i in range(len(found) - 1):
        if found[i][0] == found[i + 1][0] == "/" and found[i][2] == found[i + 1][1]:
            return found[:i]
    return found


def normal_tokens(line):
    """The tokens with the changes of RENAMED, CharOf<A> as Char, f<A>(b) as f(b), and report<A, b>(c) as report(b, c)."""
    found = [(RENAMED.get(text, text), a, b) for text, a, b in tokens_of(line)]
    result, i = [], 0
    while i < len(found):
        texts = [text for text, _, _ in found[i:i + 7]]
        if texts[:2] == ["report", "<"] and texts[3:4] == [","] and texts[5:7] == [">", "("]:
            result += [found[i], ("(", *found[i + 1][1:]), found[i + 4]]
            i += 7
            if i < len(found) and found[i][0] != ")":
                result.append((",", *found[i - 1][1:]))
        elif texts[:4] == ["CharOf", "<", "Char", ">"]:
            result.append(("Char", found[i][1], found[i + 3][2]))
            i += 4
        elif texts[1:5] == ["<", "Char", ">", "("] and re.match(r"\w", texts[0]):
            result.append((texts[0], found[i][1], found[i + 3][2]))
            i += 4
        else:
            result.append(found[i])
            i += 1
    return result


def key_of(line):
    return " ".join(text for text, _, _ in normal_tokens(line))


class Lines:
    """The lines of all sources below src/ of a tree, by what they say."""

    def __init__(self, files):
        self.files = {name.removeprefix("src/"): content.decode().split("\n")
                      for name, (content, _) in sorted(files.items())
                      if name.startswith("src/") and name.endswith((".cpp", ".h", ".inc"))}
        self.places = {}
        for file, lines in self.files.items():
            for nr, line in enumerate(lines):
                self.places.setdefault(key_of(line), []).append((file, nr))

    def find(self, fault):
        """(file, line number) of a fault's line: of its own file, else the only one of its kind in the tree."""
        places = self.places.get(fault["line"], [])
        own = [place for place in places if place[0] == fault["file"]]
        if len(own) == fault["of"]:
            return own[fault["occurrence"]]
        return places[0] if not own and len(places) == 1 and fault["of"] == 1 else None


# Choosing

def load_clang():
    subprocess.run(["bash", "-c", ". scripts/need.sh && need_to_test && need python3-clang-14"], cwd=ROOT, check=True)
    sys.path.append("/usr/lib/python3/dist-packages")
    import clang.cindex
    clang.cindex.Config.set_library_file("/usr/lib/llvm-14/lib/libclang.so.1")
    return clang.cindex


class Collector:
    """Walks over the syntax of a tree and keeps what could be changed: (file, line, kind, columns, position)."""

    def __init__(self, tree, lines):
        self.ci, self.tree, self.found, self.lines = load_clang(), tree, set(), lines
        sources = [file for file in self.lines.files if file.endswith((".cpp", ".h"))]
        for file in sources:
            unit = self.ci.Index.create().parse(str(tree / "src" / file),
                                                args=["-xc++", "-std=c++20", "-w", f"-I{tree / 'src'}"])
            for cursor in unit.cursor.get_children():
                # each header once, by itself; a part of a source that is no header with that source
                name = cursor.location.file.name if cursor.location.file else ""
                if name == unit.spelling or name.endswith(".inc"):
                    self.walk(cursor, None, False)

    def span(self, cursor):
        """(file, line, first column, column after the last) of what is on one line, columns from 0 in characters."""
        start, end = cursor.extent.start, cursor.extent.end
        if not start.file or start.line != end.line:
            return None
        name = start.file.name
        if not name.startswith(str(self.tree / "src")):
            return None
        file = os.path.relpath(name, self.tree / "src")
        if file not in self.lines.files:
            return None
        line = self.lines.files[file][start.line - 1]
        if SKIPPED_LINE.search(line):
            return None
        raw = line.encode()  # columns are counted in bytes there
        a, b = (len(raw[:column - 1].decode(errors="ignore")) for column in (start.column, end.column))
        return file, start.line - 1, a, b

    def add(self, kind, cursor, at=None, semicolon=False):
        span = self.span(cursor)
        if span is None:
            return
        file, nr, a, b = span
        line = self.lines.files[file][nr]
        if semicolon:
            rest = line[b:]
            if not rest.lstrip().startswith(";"):
                return
            b += rest.index(";") + 1
        if at is not None and not a <= at < b:
            return
        self.found.add((file, nr, kind, a, b, -1 if at is None else at))

    def between(self, cursor, left, right):
        """Adds the operator between two operands."""
        whole, first, second = (self.span(c) for c in (cursor, left, right))
        if None in (whole, first, second) or first[:2] != whole[:2] or second[:2] != whole[:2]:
            return
        line = self.lines.files[whole[0]][whole[1]]
        gap = line[first[3]:second[2]]
        if gap.strip() in OPERATORS:
            self.add("operator", cursor, first[3] + len(gap) - len(gap.lstrip()))

    def runs(self, cursor):
        """Whether a function is for the running program: the faults of a constant expression do not compile."""
        start = cursor.extent.start
        if not start.file:  # a function that a macro's text makes
            return False
        file = os.path.relpath(start.file.name, self.tree / "src")
        text = self.lines.files.get(file, [])[start.line - 1:]
        return not re.search(r"\b(constexpr|consteval)\b", "\n".join(text).split("{")[0])

    def walk(self, cursor, parent, inside):
        """Collects below the cursor what is inside a function."""
        k = self.ci.CursorKind
        kind, children = cursor.kind, list(cursor.get_children())
        if not inside:
            functions = (k.FUNCTION_DECL, k.FUNCTION_TEMPLATE, k.CXX_METHOD, k.CONSTRUCTOR, k.DESTRUCTOR,
                         k.CONVERSION_FUNCTION)
            for child in children:
                self.walk(child, cursor, kind in functions and self.runs(cursor))
            return
        if kind in (k.BINARY_OPERATOR, k.COMPOUND_ASSIGNMENT_OPERATOR) and len(children) == 2:
            self.between(cursor, *children)
        elif kind == k.CALL_EXPR and cursor.spelling.startswith("operator") and len(children) == 3:
            self.between(cursor, children[0], children[2])
        elif kind == k.UNARY_OPERATOR and children and (span := self.span(cursor)):
            text = self.lines.files[span[0]][span[1]][span[2]:span[3]]
            for sign in ("++", "--"):
                if text.startswith(sign) or text.endswith(sign):
                    self.add("operator", cursor, span[2] + text.index(sign))
        elif kind in (k.INTEGER_LITERAL, k.CXX_BOOL_LITERAL_EXPR):
            span = self.span(cursor)
            if span and (tokens := tokens_of(self.lines.files[span[0]][span[1]][span[2]:])):
                length = len(tokens[0][0])  # a literal's own end is not always its last character
                if span[3] - span[2] <= length:
                    self.found.add((*span[:2], "number", span[2], span[2] + length, span[2]))
        if kind in (k.IF_STMT, k.WHILE_STMT, k.CONDITIONAL_OPERATOR) and children and children[0].kind.is_expression():
            self.add("condition", children[0])
        if parent and parent.kind in (k.COMPOUND_STMT, k.IF_STMT, k.FOR_STMT, k.CXX_FOR_RANGE_STMT, k.WHILE_STMT):
            if (kind in (k.CALL_EXPR, k.BINARY_OPERATOR, k.COMPOUND_ASSIGNMENT_OPERATOR, k.UNARY_OPERATOR,
                         k.CONTINUE_STMT, k.BREAK_STMT) or (kind == k.RETURN_STMT and not children)):
                self.add("statement", cursor, semicolon=True)
        for child in children:
            self.walk(child, cursor, True)


def as_fault(lines, entry):
    """The entry in terms that hold in another tree as well: the line's tokens, and numbers of tokens."""
    file, nr, kind, a, b, at = entry
    line = lines.files[file][nr]
    tokens = normal_tokens(line)
    inside = [i for i, (_, first, end) in enumerate(tokens) if first >= a and end <= b]
    if not inside or tokens[inside[0]][1] != a or tokens[inside[-1]][2] != b:
        return None
    own = [place for place in lines.places[key_of(line)] if place[0] == file]
    fault = {"file": file, "line": key_of(line), "of": len(own), "occurrence": own.index((file, nr)), "kind": kind,
             "first": inside[0], "last": inside[-1], "shown": line[a:b]}
    if at >= 0:
        fault["token"] = next(i for i in inside if tokens[i][1] == at)
        fault["was"] = tokens[fault["token"]][0]
    return fault


def replacement(fault, chance):
    """What takes the place of the token, or None."""
    old = fault["was"]
    if old in OPERATORS:
        return OPERATORS[old]
    number = re.fullmatch(r"(0[xX][0-9a-fA-F']+|[0-9']+)([uUlLzZ]*)", old)
    if not number:
        return None
    digits = number.group(1).replace("'", "")
    value = int(digits, 16 if digits[:2] in ("0x", "0X") else 10)
    return str(value + (chance.choice((-1, 1)) if value > 0 else 1)) + number.group(2)


def changed_line(fault, nr, line):
    """The line with both the expression and the fault in it, and the fault's text alone."""
    tokens = normal_tokens(line)
    a, b = tokens[fault["first"]][1], tokens[fault["last"]][2]
    original = line[a:b]
    if fault["kind"] == "statement":
        return line[:a] + f"{{ if (!isMutant({nr})) {original} }}" + line[b:], ";"
    if fault["kind"] == "condition":
        mutated = f"!({original})"
    else:
        _, first, end = tokens[fault["token"]]
        mutated = line[a:first] + fault["becomes"] + line[end:b]
    return line[:a] + f"(isMutant({nr}) ? ({mutated}) : ({original}))" + line[b:], mutated


def choose(tree, lines, seed, count):
    """So many faults, at most one a line, in an order that the seed decides."""
    collector = Collector(tree, lines)
    by_line = {}
    for entry in sorted(collector.found):
        by_line.setdefault(entry[:2], []).append(entry)
    chance, chosen = random.Random(seed), []
    order = sorted(by_line)
    chance.shuffle(order)
    for place in order:
        fault = as_fault(lines, chance.choice(by_line[place]))
        if fault and ("token" not in fault or fault.setdefault("becomes", replacement(fault, chance))):
            chosen.append(fault)
    print(f"{len(chosen)} lines can be changed", flush=True)
    return chosen[:count]


# Building

def with_switches(files, lines, faults):
    """The files with all faults, and where each is: (file, line number from 1) -> number of the fault."""
    where, changed = {}, {}
    for nr, fault in faults.items():
        file, at = lines.find(fault)
        changed.setdefault(file, list(lines.files[file]))[at], fault["mutated"] = (
            changed_line(fault, nr, lines.files[file][at]))
        where["src/" + file, at + 1] = nr
    return files | {"src/" + file: ("\n".join(content).encode(), files["src/" + file][1])
                    for file, content in changed.items()}, where


def not_compiled(output, where):
    """The numbers of the faults at the places of errors, or else at those that the errors mention."""
    place = r"[/ ](src/[^: ]+):(\d+)"
    bad = set()
    for block in re.split(r"\n(?=FAILED: )", output):
        at_errors = {where.get((file, int(nr))) for file, nr in re.findall(place + r":\d+: error:", block)} - {None}
        bad |= at_errors or {where.get((file, int(nr))) for file, nr in re.findall(place, block)} - {None}
    return bad


def build_with(commit, faults):
    """Builds that tree with the faults, unless that was done before. Leaves out of them what does not compile."""
    tree = WORK / (commit or "here")
    note = WORK / f"built-{commit or 'here'}.json"
    if commit and note.exists() and json.loads(note.read_text()).items() >= as_json(faults).items():
        return tree
    files = snapshot(commit)
    lines = Lines(files)
    for nr in [nr for nr, fault in faults.items() if not lines.find(fault)]:
        del faults[nr]
    while True:
        print(f"{len(faults)} faults for {commit or 'the present tree'}", flush=True)
        changed, where = with_switches(files, lines, faults)
        write_tree(tree, changed)
        result = build(tree, REFUSED_IN_CONSTANTS)
        if result.returncode == 0:
            note.write_text(json.dumps(as_json(faults)))
            return tree
        bad = not_compiled(result.stdout, where)
        if not bad:
            sys.exit(result.stdout[-8000:] + result.stderr)
        for nr in bad:
            del faults[nr]


def as_json(faults):
    return {str(nr): {k: v for k, v in fault.items() if k != "mutated"} for nr, fault in faults.items()}


def read_list():
    return {int(nr): fault for nr, fault in json.loads(LIST.read_text()).items()}


def write_list(faults, count):
    kept = dict(list(faults.items())[:count])
    LIST.write_text(json.dumps(as_json(kept), indent=0, ensure_ascii=False))
    print(f"{len(kept)} faults in {LIST}")


# Running

def run_all(tree, faults, out):
    """Prints what notices each fault. The results so far are kept in a file, so that a run can be taken up again."""
    tests = Tests(tree)
    noticed = json.loads(out.read_text()) if out.exists() else {}
    for nr, fault in faults.items():
        if str(nr) not in noticed:
            noticed[str(nr)] = tests.first_failure(nr)
            out.write_text(json.dumps(noticed, indent=0))
        print(f"{nr:>4} {noticed[str(nr)] or 'NOT NOTICED'}: {fault['file']}: `{fault['shown']}` -> "
              f"`{fault.get('mutated', fault.get('becomes', fault['kind']))}`", flush=True)
    count = sum(noticed[str(nr)] is not None for nr in faults)
    print(f"{count} of {len(faults)} noticed")


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("step", choices=("pick", "keep", "run"))
    parser.add_argument("--tree", metavar="COMMIT")
    parser.add_argument("--seed", type=int, default=1)
    parser.add_argument("--count", type=int, default=100)
    asked = parser.parse_args()

    if asked.step == "pick":
        tree, files = WORK / (asked.tree or "here"), snapshot(asked.tree)
        write_tree(tree, files)
        faults = dict(enumerate(choose(tree, Lines(files), asked.seed, int(asked.count * SPARE)), 1))
    else:
        faults = read_list()
    tree = build_with(asked.tree, faults)
    if asked.step == "run":
        run_all(tree, faults, WORK / f"noticed-{asked.tree or 'here'}.json")
    else:
        write_list(faults, asked.count)


if __name__ == "__main__":
    main()
