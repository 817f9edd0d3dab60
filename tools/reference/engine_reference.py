#!/usr/bin/python3
"""Writes the spectra of whole-number samples as SciPy computes them, for the tests of the computing engine.

Usage: engine_reference.py FILE (tests/data/engine/welch.json). Made with Debian 12's python3-scipy 1.10.

The samples follow from a seed, see coloured(); the tests make the same. Per case: format, rate, window n,
overlap in percent, taper (n values), gain in microvolts, offset in stored steps, samples; then per channel mean
and SD (n - 1) over epochs of the power density, of its root and of its logarithm (from bin 1 on, for bin 0 may be
empty); the same for the first less the
second channel ("difference") and for the first less the mean of all ("reference"); and the mean of
X_first * conj(X_second) ("cross_re", "cross_im").
"""

import json
import sys

import numpy as np
from scipy import signal

CHANNELS = 3
CASES = [
    # name, format, rate, n, overlap, taper, gain, offset, samples
    ("rectangular", "int16", 128.0, 128, 0, "boxcar", 0.1, 0, 1200),
    ("half_overlap", "int16", 128.0, 128, 50, "hann", 0.1, 300, 1300),
    ("odd_length", "int16", 99.7, 100, 50, "hann", 0.5, -700, 1111),
    ("dense", "int24", 125.0, 150, 75, "hamming", 0.03125, 0, 1500),
    ("odd_rate", "int16", 77.3, 77, 75, "blackmanharris", 0.2, 0, 600),
    ("flat", "int16", 64.0, 60, 0, "flattop", 0.1, 0, 900),
    ("offset_200_mV", "int24", 128.0, 128, 50, "hann", 0.03125, 6_400_000, 1300),
]


def coloured(count: int, seed: int) -> np.ndarray:
    """Noise that is louder at low frequencies: a leaky sum of a linear congruence's upper bits, all in integers."""
    state, level, values = seed + 1, 0, []
    for _ in range(count):
        state = (1664525 * state + 1013904223) % 2**32
        level += (state >> 20) - 2048 - (level >> 3)
        values.append(level)
    return np.array(values)


def short(values: np.ndarray) -> list:
    """To 13 digits: the tests ask for nine."""
    return [float(f"{value:.13g}") for value in values]


def moments(epochs: np.ndarray) -> dict:
    return {"mean": short(epochs.mean(axis=-1)), "sd": short(epochs.std(axis=-1, ddof=1))}


def spectra(samples: np.ndarray, rate: float, n: int, step: int, taper: np.ndarray) -> dict:
    padded = 1 << (n - 1).bit_length()
    options = dict(window=taper, nperseg=n, noverlap=n - step, nfft=padded, detrend="constant")
    _, _, epochs = signal.spectrogram(samples, rate, mode="psd", **options)
    _, mean = signal.welch(samples, rate, **options)
    assert np.allclose(mean, epochs.mean(axis=-1), rtol=1e-12, atol=0)
    return {"power": moments(epochs), "root": moments(np.sqrt(epochs)), "log": moments(np.log(epochs[1:]))}


def main() -> None:
    cases = []
    for name, form, rate, n, overlap, kind, gain, offset, count in CASES:
        taper = signal.get_window(kind, n, fftbins=True)
        step = max(1, int(n * (1 - overlap / 100) + 0.5))
        # The offset itself is left out: the mean of each epoch goes anyway, and so it costs the reference no digits.
        values = np.array([coloured(count, seed) for seed in range(CHANNELS)]) * gain
        case = dict(name=name, format=form, rate=rate, window=n, step=step, taper=taper.tolist(), gain=gain,
                    offset=offset, samples=count)
        case["channels"] = [spectra(channel, rate, n, step, taper) for channel in values]
        case["difference"] = spectra(values[0] - values[1], rate, n, step, taper)
        case["reference"] = spectra(values[0] - values.mean(axis=0), rate, n, step, taper)
        padded = 1 << (n - 1).bit_length()
        # SciPy's csd conjugates its first argument.
        _, cross = signal.csd(values[1], values[0], rate, window=taper, nperseg=n, noverlap=n - step, nfft=padded,
                              detrend="constant")
        case["cross_re"], case["cross_im"] = short(cross.real), short(cross.imag)
        cases.append(case)
    with open(sys.argv[1], "w", encoding="ascii") as file:
        json.dump(cases, file, indent=None, separators=(",", ":"))
        file.write("\n")


if __name__ == "__main__":
    main()
