#!/usr/bin/python3
"""Writes what SciPy's filters make of a signal without a pattern.

Usage: trace_filters.py FILE (tests/data/traces/filters.json). Made with Debian 12's python3-scipy 1.10.

Per case rate, cuts and notch in Hz (0 is off), the filter sections (b0, b1, b2, a1, a2), the first samples of the
filtered signal (7i² + 3i) mod 23 − 11 when its first value had been there for ever, and how many samples the slowest
pole takes to decay to 1e-6.
"""

import json
import math
import pathlib
import sys

import numpy as np
from scipy import signal

CASES = [(256, 0.5, 70, 50), (512, 0.1, 0, 0), (500, 0, 35, 0), (200, 0, 0, 60), (1024, 1, 100, 50), (256, 0, 127, 0)]
SAMPLES = 64


def sections(rate: float, low_cut: float, high_cut: float, notch: float) -> np.ndarray:
    parts = []
    if low_cut:
        parts.append(signal.butter(2, low_cut, "highpass", fs=rate, output="sos"))
    if high_cut:
        parts.append(signal.butter(2, high_cut, "lowpass", fs=rate, output="sos"))
    if notch:
        parts.append(signal.tf2sos(*signal.iirnotch(notch, 30, fs=rate)))
    return np.vstack(parts)


def main(file: pathlib.Path) -> None:
    values = np.array([(7 * i * i + 3 * i) % 23 - 11 for i in range(SAMPLES)], dtype=float)
    cases = []
    for rate, low_cut, high_cut, notch in CASES:
        sos = sections(rate, low_cut, high_cut, notch)
        filtered, _ = signal.sosfilt(sos, values, zi=signal.sosfilt_zi(sos) * values[0])
        slowest = max(abs(root) for section in sos for root in np.roots(section[3:]))
        cases.append({"rate": rate, "low_cut": low_cut, "high_cut": high_cut, "notch": notch,
                      "sections": [[*section[:3], *section[4:]] for section in sos.tolist()],
                      "filtered": filtered.tolist(), "settling": math.ceil(math.log(1e-6) / math.log(slowest))})
    file.write_text("[" + ",\n ".join(map(json.dumps, cases)) + "]\n", encoding="utf-8")


if __name__ == "__main__":
    main(pathlib.Path(sys.argv[1]))
