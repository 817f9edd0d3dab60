#!/usr/bin/env python3
"""Compares what a library offers to others with the list of what it shall offer.

Usage: exported_symbols.py NM LIBRARY LIST. A line of the list is a symbol, or "CLASS::*" for whatever members
the class has. Prints one line per difference and exits 1 when there is one.
"""

import pathlib
import subprocess
import sys


def class_of(name: str) -> str:
    """Of a member "CLASS::NAME(...)" its class as the list has it: "CLASS::*"; else nothing."""
    owner, separator, _ = name.split("(")[0].partition("::")
    return owner + "::*" if separator else ""


def main(nm: str, library: str, listed: str) -> int:
    lines = subprocess.run(
        [nm, "--dynamic", "--extern-only", "--demangle", "--defined-only", "--format=posix", library],
        check=True, capture_output=True, text=True,
    ).stdout.splitlines()
    # POSIX format: name, type letter, value, size; a demangled name may hold blanks.
    found = {line.rsplit(" ", 3)[0] for line in lines}
    wanted = set(pathlib.Path(listed).read_text(encoding="utf-8").splitlines())
    offered = {class_of(name) if class_of(name) in wanted else name for name in found}
    for name in sorted(offered - wanted):
        print(f"{library} exports {name}, which is not listed")
    for name in sorted(wanted - offered):
        print(f"{library} does not export {name}")
    print(f"{len(found)} symbols exported, {len(wanted)} lines listed")
    return 0 if offered == wanted and wanted else 1


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:4]))
