"""nano.py RCFILE FILE: opens the file in nano on a terminal, has it checked, goes to the third message and types an X."""
import os
import pty
import select
import sys
import time

CTRL_C, CTRL_S, CTRL_V, CTRL_X, ALT_B = b"\x03", b"\x13", b"\x16", b"\x18", b"\x1bb"
# What is shown, and the key that is then typed.
DIALOGUE = (("Read 7 lines", ALT_B), (".casl:3:", CTRL_V), ("NOWHERE", CTRL_V), ("LOST", CTRL_C),
            ("Write Out", b"X"), ("Modified", CTRL_S), ("Wrote 7 lines", CTRL_X))

child, terminal = pty.fork()
if child == 0:
    os.execvp("nano", ["nano", "--rcfile", *sys.argv[1:]])
end = time.monotonic() + 60
for text, key in DIALOGUE:
    shown = b""
    while text.encode() not in shown:
        if not select.select([terminal], [], [], max(0, end - time.monotonic()))[0]:
            sys.exit(f"nano does not show {text!r}, but {shown!r}")
        shown += os.read(terminal, 65536)
    os.write(terminal, key)
