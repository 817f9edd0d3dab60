"""Epochs, spectra, measures and tests as docs/numbers.md defines them, written anew with NumPy and SciPy.

Times are fractions, so that whether a sample lies at or after an event is no question of rounding.
"""

import dataclasses
import math
from fractions import Fraction

import numpy as np
from scipy import signal, special, stats

TAPERS = {"Rectangular": "boxcar", "Hamming": "hamming", "Hanning": "hann", "Triangular": "triang",
          "Blackman": "blackman", "Blackman-Harris": "blackmanharris", "Flat Top": "flattop"}
BANDS = {"Delta": (0.5, 4), "Theta": (4, 8), "Alpha": (8, 13), "Beta": (13, 30), "Gamma": (30, 45)}
TOTAL = (0.5, 45)
Span = tuple[Fraction, Fraction]


@dataclasses.dataclass
class Timed:
    """Rate, stretches without a gap as (begin in s, first sample, samples), events as (label, onset, duration)."""
    rate: Fraction
    stretches: list[tuple[Fraction, int, int]]
    events: list[tuple[str, Fraction, Fraction]]

    def end(self) -> Fraction:
        begin, _, count = self.stretches[-1]
        return begin + count / self.rate


def nearest(value: Fraction) -> int:
    return math.floor(value + Fraction(1, 2))


def united(spans: list[Span]) -> list[Span]:
    result: list[Span] = []
    for begin, end in sorted(spans):
        if result and begin <= result[-1][1]:
            result[-1] = result[-1][0], max(end, result[-1][1])
        else:
            result.append((begin, end))
    return result


def selected(timed: Timed, macro: dict) -> list[Span]:
    mode = macro.get("mode", "all")
    if mode == "all":
        return [(Fraction(0), timed.end())]
    if mode == "duration":
        return [(Fraction(0), Fraction(macro["duration"]))]
    if mode == "states":
        return united([(at, at + long) for label, at, long in timed.events if long > 0 and label in macro["states"]])
    steps = range(macro.get("spot_steps", 1))
    before, step, length = (Fraction(macro.get(key, default), 1000) for key, default in (
        ("pre_trigger_ms", 0), ("spot_step_ms", 1), ("trigger_duration_ms", 1000)))
    begins = [at + before + i * step for label, at, long in timed.events if long == 0 and label in macro["spots"]
              for i in steps]
    return [(begin, begin + length) for begin in begins]


def epoch_starts(timed: Timed, macro: dict) -> tuple[int, list[int]]:
    """Samples of the window, and the first samples of the epochs."""
    window = nearest(Fraction(str(macro["fft_seconds"])) * timed.rate)
    step = max(1, nearest(window * (1 - Fraction(macro["overlap"], 100))))
    instant = Fraction(1, 100000)  # as long as a rejected moment is
    rejected = united([(at, at + max(long, instant)) for label, at, long in timed.events
                       if label in macro.get("reject", [])])
    starts = set()
    for begin, end in selected(timed, macro):
        begin, end = max(Fraction(0), begin), min(timed.end(), end)
        edges = [begin] + [max(begin, at) for _, at in rejected if at < end]
        for at in edges:
            limit = min((cut for cut, _ in rejected if cut >= at), default=None)
            if at >= end or any(cut <= at < over for cut, over in rejected):
                continue
            starts |= set(starts_in(timed, at, min(end, limit) if limit else end, limit, window, step))
    return window, sorted(starts)


def starts_in(timed: Timed, begin: Fraction, end: Fraction, limit: Fraction | None, window: int, step: int):
    for at, first, count in timed.stretches:
        skipped = max(0, math.ceil((begin - at) * timed.rate))
        own_begin = max(begin, at)
        if end <= own_begin or skipped >= count:
            continue
        samples = nearest((end - own_begin) * timed.rate)
        if limit is not None:
            before = math.ceil((limit - at) * timed.rate) - skipped
            samples = before if limit == end else min(samples, before)
        samples = min(samples, count - skipped)
        yield from range(first + skipped, first + skipped + samples - window + 1, step)


class Analysis:
    """Spectra of the epochs that \\p macro selects. Signals are arrays of microvolts."""

    def __init__(self, timed: Timed, macro: dict):
        self.window, self.starts = epoch_starts(timed, macro)
        self.rate = float(timed.rate)
        self.padded = 1 << (self.window - 1).bit_length()
        self.taper = signal.get_window(TAPERS[macro["window"]], self.window, fftbins=True)
        self.frequencies = np.arange(self.padded // 2 + 1) * self.rate / self.padded

    def transforms(self, values: np.ndarray) -> np.ndarray:
        epochs = np.stack([values[start:start + self.window] for start in self.starts])
        tapered = (epochs - epochs.mean(axis=1, keepdims=True)) * self.taper
        scale = np.full(self.padded // 2 + 1, math.sqrt(2 / (self.rate * (self.taper**2).sum())))
        scale[[0, -1]] /= math.sqrt(2)
        return np.fft.rfft(tapered, self.padded, axis=1) * scale

    def powers(self, values: np.ndarray) -> np.ndarray:
        return np.abs(self.transforms(values)) ** 2

    def coherence_and_phase(self, first: np.ndarray, second: np.ndarray) -> tuple[np.ndarray, np.ndarray]:
        a, b = self.transforms(first), self.transforms(second)
        cross = (a.conj() * b).mean(axis=0)
        with np.errstate(invalid="ignore"):
            return np.abs(cross) / np.sqrt((abs(a) ** 2).mean(axis=0) * (abs(b) ** 2).mean(axis=0)), np.angle(cross)

    def effective(self) -> tuple[float, float]:
        """Effective numbers of epochs for power and for its logarithm."""
        overlap = np.correlate(self.taper, self.taper, "full")[self.window - 1:] / (self.taper**2).sum()
        lags = np.abs(np.subtract.outer(self.starts, self.starts))
        rho = np.where(lags < self.window, overlap[np.minimum(lags, self.window - 1)] ** 2, 0)
        logs = special.spence(1 - np.minimum(rho, 1)) / special.spence(0)
        return len(self.starts) ** 2 / rho.sum(), len(self.starts) ** 2 / logs.sum()

    def measures(self, epochs: np.ndarray, amplitude: bool) -> dict:
        """Per band Abs, Mean, Rel, Peak F, Mean F, Peak, SEF95 and CV of the powers of all epochs."""
        f, width = self.frequencies, self.rate / self.padded
        power = epochs.mean(axis=0)
        shown = np.sqrt(epochs).mean(axis=0) if amplitude else power
        total = power[(f >= TOTAL[0]) & (f < TOTAL[1])].sum()
        result = {}
        for name, (low, high) in BANDS.items():
            band = (f >= low) & (f < high)
            p, here = power[band], f[band]
            areas = epochs[:, band].sum(axis=1) * width
            areas = np.sqrt(areas) if amplitude else areas
            area = p.sum() * width
            result[name] = [math.sqrt(area) if amplitude else area, shown[band].mean(), 100 * p.sum() / total,
                            here[shown[band].argmax()], (here * p).sum() / p.sum(), shown[band].max(),
                            np.interp(0.95, np.cumsum(p) / p.sum(), here), 100 * areas.std(ddof=1) / areas.mean()]
        return result


def welch_test(a: np.ndarray, n_a: float, b: np.ndarray, n_b: float) -> tuple[np.ndarray, np.ndarray, np.ndarray]:
    """t, degrees of freedom and p of the logarithms of two analyses' powers with their effective numbers."""
    a, b = np.log(a), np.log(b)
    v_a, v_b = (x.var(axis=0) / (n - 1) for x, n in ((a, n_a), (b, n_b)))
    t = (a.mean(axis=0) - b.mean(axis=0)) / np.sqrt(v_a + v_b)
    df = (v_a + v_b) ** 2 / (v_a**2 / (n_a - 1) + v_b**2 / (n_b - 1))
    return t, df, 2 * stats.t.sf(np.abs(t), df)


def coherence_test(a: np.ndarray, n_a: float, b: np.ndarray, n_b: float) -> tuple[np.ndarray, np.ndarray]:
    s_a, s_b = 1 / (2 * (n_a - 1)), 1 / (2 * (n_b - 1))
    z = (np.arctanh(a) - s_a - np.arctanh(b) + s_b) / math.sqrt(s_a + s_b)
    return z, 2 * stats.norm.sf(np.abs(z))
