#!/usr/bin/env python3
"""Compares what a library offers to others with the list of what it shall offer.

Usage: exported_symbols.py NM LIBRARY LIST. Prints one line per difference and exits 1 when there is one.
"""

import pathlib
import subprocess
import sys


def main(nm: str, library: str, listed: str) -> int:
    lines = subprocess.run(
        [nm, "--dynamic", "--demangle", "--defined-only", "--format=posix", library],
        check=True, capture_output=True, text=True,
    ).stdout.splitlines()
    # POSIX format: name, type letter, value, size; a demangled name may hold blanks.
    found = {line.rsplit(" ", 3)[0] for line in lines}
    wanted = set(pathlib.Path(listed).read_text(encoding="utf-8").splitlines())
    for name in sorted(found - wanted):
        print(f"{library} exports {name}, which is not listed")
    for name in sorted(wanted - found):
        print(f"{library} does not export {name}")
    print(f"{len(found)} symbols exported, {len(wanted)} listed")
    return 0 if found == wanted and wanted else 1


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:4]))
