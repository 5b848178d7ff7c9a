#!/usr/bin/env python3
"""Makes a zip whose bytes depend on the files alone: packaging/windows/zip.py FOLDER OUT.zip YEAR-MONTH-DAY

The files are in the order of their names and have the date given; the zip has FOLDER's name as its only folder.
"""

import sys
import zipfile
from pathlib import Path


def main():
    folder, out, date = Path(sys.argv[1]), sys.argv[2], sys.argv[3]
    when = (*map(int, date.split("-")), 0, 0, 0)
    with zipfile.ZipFile(out, "w") as archive:
        for path in sorted(p for p in folder.rglob("*") if p.is_file()):
            entry = zipfile.ZipInfo(path.relative_to(folder.parent).as_posix(), when)
            entry.compress_type = zipfile.ZIP_DEFLATED
            entry.external_attr = 0o100644 << 16
            archive.writestr(entry, path.read_bytes(), compresslevel=9)


if __name__ == "__main__":
    main()
