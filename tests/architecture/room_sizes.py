#!/usr/bin/env python3
"""Small rooms: no source above 600 lines, no header above 250.

Usage: room_sizes.py ROOT. Prints one line per file that is too long and exits 1 when there is one.
"""

import pathlib
import sys

LIMITS = {".cpp": 600, ".h": 250}


def main(root: pathlib.Path) -> int:
    faults = checked = 0
    for file in sorted(root.rglob("*")):
        path = file.relative_to(root).as_posix()
        if file.suffix not in LIMITS or path.startswith(("build/", ".")):
            continue
        checked += 1
        lines = len(file.read_text(encoding="utf-8").splitlines())
        if lines > LIMITS[file.suffix]:
            print(f"{path}: {lines} lines, wants to be two files (limit {LIMITS[file.suffix]})")
            faults += 1
    print(f"{checked} files checked, {faults} too long")
    return 1 if faults or checked == 0 else 0


if __name__ == "__main__":
    sys.exit(main(pathlib.Path(sys.argv[1])))
