#!/usr/bin/env python3
"""Writes the list file that tells ctest of a GoogleTest program: one test for each of its suites.

Usage: list.py PROGRAM RUNNER LIST_FILE [--apart SUITE...] [--environment NAME=VALUE...]. The cases of suites that stand apart
are tests of their own: for cases that take so long that they should run side by side.
"""

import argparse
import pathlib
import subprocess
import sys

# Limit of a process, and more of it for every further case; with sanitizers on a busy machine of four cores they take a
# tenth of it.
SECONDS, SECONDS_A_CASE = 600, 30


def suites_of(listing: str) -> dict[str, list[str]]:
    """The cases of each suite: a suite stands at the margin and ends with a dot, its cases are indented."""
    suites: dict[str, list[str]] = {}
    for line in listing.splitlines():
        name = line.split("#")[0].strip()
        if line.startswith("  "):
            suites[next(reversed(suites))].append(name)
        elif name.endswith("."):
            suites[name[:-1]] = []
    return suites


def quoted(*words: str) -> str:
    return " ".join(f"[==[{word}]==]" for word in words)


def main() -> int:
    parser = argparse.ArgumentParser()
    for name in ("program", "runner", "list_file"):
        parser.add_argument(name)
    parser.add_argument("--apart", nargs="*", default=[])
    parser.add_argument("--environment", nargs="*", default=[])
    given = parser.parse_args()
    listing = subprocess.run(
        [given.program, "--gtest_list_tests"], capture_output=True, text=True, timeout=60, check=True
    )
    suites = suites_of(listing.stdout)
    if not suites or set(given.apart) - suites.keys():
        print(f"{given.program} has no tests, or not the suites {given.apart}")
        return 1
    tests = []
    for suite, cases in suites.items():
        if suite in given.apart:
            tests += [(f"{suite}.{case}", f"{suite}.{case}", 1) for case in cases]
        else:
            tests.append((suite, f"{suite}.*", len(cases)))
    lines = []
    for name, cases, count in tests:
        limit = SECONDS + SECONDS_A_CASE * (count - 1)
        lines.append(f"add_test({quoted(name, given.runner, given.program, cases, str(count), str(limit))})")
        # Longer than the runner takes at the most: all cases, then every one by itself.
        lines.append(f"set_tests_properties({quoted(name)} PROPERTIES TIMEOUT {limit * (count + 2)}")
        lines.append(f"    ENVIRONMENT {quoted(';'.join(given.environment))})")
    pathlib.Path(given.list_file).write_text("\n".join(lines) + "\n", encoding="utf-8")
    return 0


if __name__ == "__main__":
    sys.exit(main())
