#!/usr/bin/env python3
"""Checks every include line of the tree against the arrows between its rooms.

Usage: include_arrows.py ROOT. Prints one line per forbidden include and exits 1 when there is one.
"""

import pathlib
import re
import sys

# Room -> rooms whose headers it may include. The longest matching prefix of a path names its room.
ARROWS = {
    "spectra_contract": ["host/toolkit"],
    "host/platform": ["spectra_contract"],
    "host/signal_base": ["spectra_contract", "host/platform"],
    "host/spectral_data": ["spectra_contract", "host/platform", "host/signal_base"],
    "host/toolkit": [],
    "host/chart_view": ["spectra_contract", "host/toolkit"],
    "side_bar": ["spectra_contract", "host/toolkit"],
    "spectrum_view": ["spectra_contract", "host/toolkit", "host/chart_view", "side_bar"],
    "spectral_maps": ["spectra_contract", "host/toolkit", "host/chart_view", "side_bar", "spectrum_view/dialogs"],
    "module": ["spectra_contract", "host/toolkit", "side_bar", "spectrum_view", "spectral_maps", "resources"],
    "host/review": ["spectra_contract", "host"],
    "host/review/bridge": ["spectra_contract", "host", "side_bar", "spectrum_view", "spectral_maps"],
    "resources": ["host/toolkit"],
}
FREE = ("tests", "benchmarks", "examples")
QT_FREE = ("spectra_contract", "host/platform", "host/signal_base", "host/spectral_data", "host/review/cli")
# Made of the Designer files in resources/ for the rooms that show them.
FORM_HEADER = re.compile(r"^ui_\w+\.h$")
FORM_ROOMS = ("resources", "side_bar", "spectrum_view", "spectral_maps", "host/chart_view", "host/review/app")
INCLUDE = re.compile(r'^\s*#\s*include\s+([<"])([^>"]+)[>"]')
SOURCES = {".cpp", ".h"}


def inside(path: str, room: str) -> bool:
    return path == room or path.startswith(room + "/")


def room_of(path: str) -> str | None:
    rooms = [room for room in ARROWS if inside(path, room)]
    return max(rooms, key=len) if rooms else None


def fault(path: str, room: str, bracket: str, target: str) -> str | None:
    if bracket == "<":
        if target.startswith("Q") and any(inside(path, free) for free in QT_FREE):
            return "this room knows no Qt"
        return None
    if any(inside(target, free) for free in FREE):
        return "nothing points at tests, benchmarks or examples"
    if FORM_HEADER.match(target):
        return None if any(inside(path, forms) for forms in FORM_ROOMS) else "this room shows no forms"
    if inside(target, room) or any(inside(target, allowed) for allowed in ARROWS[room]):
        return None
    return f"{room} may include only {', '.join([room] + ARROWS[room])}"


def main(root: pathlib.Path) -> int:
    faults = checked = 0
    for file in sorted(root.rglob("*")):
        path = file.relative_to(root).as_posix()
        if file.suffix not in SOURCES or path.startswith(("build/", ".")) or any(inside(path, f) for f in FREE):
            continue
        room = room_of(path)
        if room is None:
            print(f"{path}: lies in no room of the house")
            faults += 1
            continue
        for number, line in enumerate(file.read_text(encoding="utf-8").splitlines(), 1):
            match = INCLUDE.match(line)
            if match is None:
                continue
            checked += 1
            reason = fault(path, room, *match.groups())
            if reason:
                print(f"{path}:{number}: includes {match.group(2)}: {reason}")
                faults += 1
    print(f"{checked} include lines checked, {faults} forbidden")
    return 1 if faults or checked == 0 else 0


if __name__ == "__main__":
    sys.exit(main(pathlib.Path(sys.argv[1])))
