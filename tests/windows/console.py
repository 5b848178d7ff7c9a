"""console.py WINE PROGRAM: the dialogue on a console, which wine makes of a pseudo-terminal.

Ctrl+Z ends one IN at once, text is shown whatever the code page, control characters of OUT are shown harmlessly, Ctrl+C
ends the program, and whenever it comes each report is the old one or the new one. Exit status 1, with what was shown,
where one of these does not hold.
"""

import os
import pty
import re
import select
import sys
import tempfile
import termios
import time
import tty

SOURCE = """A START
 IN B,L
 OUT B,L
 IN B,L
 OUT T,N
 IN B,L
 RET
B DS 256
L DS 1
T DC #001B,#3042,#009B,#0041
N DC 4
 END
"""
SEQUENCE = re.compile(rb"\x1b\[[0-9;?]*[a-zA-Z]|\x1b\][^\x07]*\x07")


class Console:
    def __init__(self, command, folder):
        self.pid, self.fd = pty.fork()
        if self.pid == 0:
            os.chdir(folder)
            os.execvp(command[0], command)
        tty.setraw(self.fd)  # as wine sets it, which may be later than the first key
        mode = termios.tcgetattr(self.fd)
        mode[3] |= termios.ISIG
        mode[6][termios.VSUSP] = b"\0"  # the key is for the program
        termios.tcsetattr(self.fd, termios.TCSANOW, mode)
        self.raw, self.seen = b"", 0

    def wait_for(self, text, seconds=30):
        """Waits until the text is shown after what was waited for before."""
        end = time.monotonic() + seconds
        while time.monotonic() < end:
            shown = SEQUENCE.sub(b"", self.raw).decode("utf-8", "replace")
            if text in shown[self.seen:]:
                self.seen = shown.index(text, self.seen) + len(text)
                return
            if select.select([self.fd], [], [], 0.2)[0]:
                self.raw += os.read(self.fd, 65536)
        sys.exit(f"not shown: {text!r}, but {shown[self.seen:]!r}")

    def type(self, keys):
        time.sleep(0.5)  # until the program reads
        os.write(self.fd, keys)


    def end(self):
        """Types Ctrl+C and waits for the end of the program."""
        os.write(self.fd, b"\x03")
        end = time.monotonic() + 20
        while os.waitpid(self.pid, os.WNOHANG)[0] == 0:
            if time.monotonic() > end:
                sys.exit("Ctrl+C does not end the program")
            time.sleep(0.1)
        os.close(self.fd)


def files_are_whole_after_ctrl_c(command, folder):
    reports = [f"{folder}/{name}" for name in ("aaAssembledRegMry.txt", "aaResultantRegMry.txt")]
    with open(f"{folder}/a.txt", "w", encoding="utf-8") as file:
        file.write("A START\n" + " LD GR1,=5\n" * 9000 + " RET\n END\n")
    tails, seen = {}, set()
    for delay in (None, 0.0, *(0.004 * 1.5**i for i in range(12))):
        if delay is not None:
            for report in reports:
                with open(report, "wb") as file:
                    file.write(b"old")
        console = Console(command, folder)
        for shown, typed in (("Press your Enter key", b"\r"), ("Input a menu number", b"1\r"), ("Input a filename", b"a\r")):
            console.wait_for(shown)
            console.type(typed)
        if delay is None:
            console.wait_for("Press Enter key")
        else:
            time.sleep(delay)
        console.end()
        for report in reports:
            with open(report, "rb") as file:
                text = file.read()
            tails.setdefault(report, text[-400:])
            seen.add("old" if text == b"old" else "new" if text.endswith(tails[report]) else f"{delay}: {text[-400:]}")
        if len([name for name in os.listdir(folder) if name.endswith(".tmp")]) > len(reports):
            sys.exit(f"too many temporary files: {os.listdir(folder)}")
    if seen != {"old", "new"}:
        sys.exit(f"reports after Ctrl+C: {seen}")


def main():
    with tempfile.TemporaryDirectory() as folder:
        with open(f"{folder}/a.txt", "w", encoding="utf-8") as file:
            file.write(SOURCE)
        with open(f"{folder}/zelvaro.ini", "w", encoding="utf-8") as file:
            file.write("[Mode]\nLangStr=ENU\nLangInt=1\n")
        console = Console(sys.argv[1:], folder)
        for shown, typed in (("Press your Enter key", b"\r"), ("Input a menu number", b"1\r"),
                             ("Input a filename", b"a\r"), ("at the end of your input", b"abc\x1a"),
                             ("Output by a Macro Instruction of OUT.", b""), ("abc", b""), ("at the end of your input", b"\x1a"),
                             ("^[あ<U+009B>A", b""), ("at the end of your input", b"x")):
            console.wait_for(shown)
            console.type(typed)
        console.end()
        files_are_whole_after_ctrl_c(sys.argv[1:], folder)


main()
