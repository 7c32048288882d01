#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Packs files into a zip file whose bytes depend on the files alone.

Usage: make_zip.py ZIP_FILE TOP_FOLDER FILE...

Each file lies directly in the top folder. All bear the date that the environment gives in
SOURCE_DATE_EPOCH, in seconds since 1970. The zip file is replaced as a whole or not at all.
"""

import os
import sys
import time
import zipfile
from pathlib import Path

# Made on Unix, which has permissions: a regular file that all may read.
UNIX, READABLE_FILE = 3, 0o100644


def make_zip(target: Path, top_folder: str, files: list[Path]) -> None:
    """Writes the files in the order of their names."""
    date = time.gmtime(int(os.environ["SOURCE_DATE_EPOCH"]))[:6]
    unfinished = target.with_suffix(".unfinished")
    with zipfile.ZipFile(unfinished, "w") as archive:
        for file in sorted(files, key=lambda file: file.name):
            entry = zipfile.ZipInfo(f"{top_folder}/{file.name}", date)
            entry.create_system = UNIX
            entry.external_attr = READABLE_FILE << 16
            archive.writestr(entry, file.read_bytes(), zipfile.ZIP_DEFLATED, 9)
    unfinished.replace(target)


if __name__ == "__main__":
    make_zip(Path(sys.argv[1]), sys.argv[2], [Path(file) for file in sys.argv[3:]])
