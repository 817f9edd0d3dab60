#!/usr/bin/env python3
"""Runs clang-tidy over every source that a build tree compiles.

Usage: tidy.py ROOT BUILD_FOLDER CLANG_TIDY OWN_CODE_ONLY. The last is the plugin that keeps it to our own code. Exits 1
when a check complains.
"""

import concurrent.futures
import json
import os
import pathlib
import re
import subprocess
import sys


def main(root: pathlib.Path, build: pathlib.Path, clang_tidy: str, plugin: str) -> int:
    commands = json.loads((build / "compile_commands.json").read_text(encoding="utf-8"))
    files = {entry["file"] for entry in commands}
    sources = sorted(file for file in files if "_autogen" not in file and "/tests/" not in file)
    if not sources:
        print("no sources to check")
        return 1

    def check(source: str) -> subprocess.CompletedProcess[str]:
        command = [clang_tidy, "--quiet", f"--load={plugin}", "-p", build, source]
        return subprocess.run(command, cwd=root, capture_output=True, text=True, check=False)

    with concurrent.futures.ThreadPoolExecutor(len(os.sched_getaffinity(0))) as pool:
        results = list(pool.map(check, sources))
    lines = [line for result in results for line in result.stdout.splitlines()]
    complaints = [line for line in lines if re.search(r": (warning|error):", line)]
    print("\n".join(dict.fromkeys(complaints)))
    print(f"{len(sources)} sources checked")
    failed = [result for result in results if result.returncode]
    if failed and not complaints:
        print(failed[0].stdout, failed[0].stderr)
    return 1 if failed or complaints else 0


if __name__ == "__main__":
    sys.exit(main(pathlib.Path(sys.argv[1]), pathlib.Path(sys.argv[2]), sys.argv[3], sys.argv[4]))
