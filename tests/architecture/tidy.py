#!/usr/bin/env python3
"""Runs clang-tidy over every source that a build tree compiles.

Usage: tidy.py ROOT BUILD_FOLDER RUN_CLANG_TIDY. Exits 1 when a check complains.
"""

import json
import os
import pathlib
import re
import subprocess
import sys


def main(root: pathlib.Path, build: pathlib.Path, run_clang_tidy: str) -> int:
    commands = json.loads((build / "compile_commands.json").read_text(encoding="utf-8"))
    sources = sorted(
        {entry["file"] for entry in commands}
        - {entry["file"] for entry in commands if "_autogen" in entry["file"] or "/tests/" in entry["file"]}
    )
    if not sources:
        print("no sources to check")
        return 1
    pattern = "^(" + "|".join(re.escape(source) for source in sources) + ")$"
    result = subprocess.run(
        [run_clang_tidy, "-quiet", "-p", str(build), f"-j{os.cpu_count()}", pattern],
        cwd=root,
        capture_output=True,
        text=True,
        check=False,
    )
    complaints = [line for line in result.stdout.splitlines() if re.search(r": (warning|error):", line)]
    print("\n".join(dict.fromkeys(complaints)))
    print(f"{len(sources)} sources checked")
    if result.returncode and not complaints:
        print(result.stdout, result.stderr)
    return 1 if result.returncode or complaints else 0


if __name__ == "__main__":
    sys.exit(main(pathlib.Path(sys.argv[1]), pathlib.Path(sys.argv[2]), sys.argv[3]))
