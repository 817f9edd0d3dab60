#!/usr/bin/env python3
"""Every C++ file is formatted as .clang-format says and opens with the licence line.

Usage: format.py ROOT CLANG_FORMAT. Exits 1 when a file differs.
"""

import pathlib
import subprocess
import sys

LICENCE = "// SPDX-License-Identifier: GPL-3.0-or-later"


def main(root: pathlib.Path, clang_format: str) -> int:
    files = [
        file
        for file in sorted(root.rglob("*"))
        if file.suffix in {".cpp", ".h"} and not file.relative_to(root).as_posix().startswith(("build/", "."))
    ]
    unlicensed = [f for f in files if not f.read_text(encoding="utf-8").startswith(LICENCE)]
    for file in unlicensed:
        print(f"{file.relative_to(root)}: the first line is not the licence line")
    result = subprocess.run([clang_format, "--dry-run", "--Werror", *map(str, files)], check=False)
    print(f"{len(files)} files checked")
    return 1 if unlicensed or result.returncode or not files else 0


if __name__ == "__main__":
    sys.exit(main(pathlib.Path(sys.argv[1]), sys.argv[2]))
