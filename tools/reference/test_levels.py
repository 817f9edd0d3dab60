#!/usr/bin/python3
"""How often the tests reject when nothing differs, by simulation with NumPy and SciPy only.

Usage: test_levels.py [COMPARISONS] (default 20000). Prints, for two analyses of independent stretches of the same
stationary noise, the share of p < 0.05 in percent: of the t-test on ln power with the effective number of ln power
("ln"), of the same test with Welch's number for power ("power"), and of the coherence test. It takes some minutes.
"""

import sys

import numpy as np
from scipy import signal, special, stats

N = 64
# Bins far enough apart to be independent under every taper used here.
BINS = np.arange(4, 29, 4)
SECONDS = [(3, 3), (5, 5), (15, 15), (30, 30), (120, 120), (60, 20), (60, 8)]


def effective(count: int, step: int, taper: np.ndarray, of_logs: bool) -> float:
    total = float(count)
    for lag in range(step, min(N, count * step), step):
        rho = (taper[:-lag] @ taper[lag:] / (taper @ taper)) ** 2
        if of_logs:
            rho = special.spence(1 - rho) / special.spence(0.0)
        total += 2 * (count - lag // step) * rho
    return count ** 2 / total


def noise(rng: np.random.Generator, kind: str, rows: int, samples: int) -> np.ndarray:
    if kind == "white":
        return rng.standard_normal((rows, samples))
    long = 4 * N * 120  # the same process whatever the stretch
    frequencies = np.fft.rfftfreq(long)
    frequencies[0] = frequencies[1]
    shape = rng.standard_normal((2, rows, len(frequencies)))
    return np.fft.irfft((shape[0] + 1j * shape[1]) / np.sqrt(frequencies))[:, :samples]


def transforms(values: np.ndarray, taper: np.ndarray, step: int) -> np.ndarray:
    epochs = np.lib.stride_tricks.sliding_window_view(values, N, axis=1)[:, ::step]
    return np.fft.rfft((epochs - epochs.mean(-1, keepdims=True)) * taper)[..., BINS]


def t_test(a: np.ndarray, b: np.ndarray, n_a: float, n_b: float) -> np.ndarray:
    def error(values, number):
        return values.var(axis=1) / (number - 1)

    v_a, v_b = error(a, n_a), error(b, n_b)
    df = (v_a + v_b) ** 2 / (v_a ** 2 / (n_a - 1) + v_b ** 2 / (n_b - 1))
    return 2 * stats.t.sf(np.abs(a.mean(1) - b.mean(1)) / np.sqrt(v_a + v_b), df)


def coherence(x: np.ndarray, y: np.ndarray) -> np.ndarray:
    cross = (x * y.conj()).mean(1)
    return np.abs(cross) / np.sqrt((np.abs(x) ** 2).mean(1) * (np.abs(y) ** 2).mean(1))


def coherence_test(c_a: np.ndarray, c_b: np.ndarray, n_a: float, n_b: float) -> np.ndarray:
    s_a, s_b = 1 / (2 * (n_a - 1)), 1 / (2 * (n_b - 1))
    z = (np.arctanh(c_a) - s_a - np.arctanh(c_b) + s_b) / np.sqrt(s_a + s_b)
    return 2 * stats.norm.sf(np.abs(z))


def main(comparisons: int) -> None:
    rng = np.random.default_rng(1967)
    print("taper noise overlap | windows | epochs | ln | power")
    for name in ("hann", "boxcar", "blackmanharris"):
        taper = signal.get_window(name, N, fftbins=True)
        for kind in ("white", "1/f"):
            for overlap in (0, 50, 75):
                step = N * (100 - overlap) // 100
                for pair in SECONDS:
                    p_logs, p_power = [], []
                    for _ in range(-(-comparisons // (250 * len(BINS)))):
                        logs = [np.log(np.abs(transforms(noise(rng, kind, 250, N * long), taper, step)) ** 2)
                                for long in pair]
                        counts = [values.shape[1] for values in logs]
                        for of_logs, found in ((True, p_logs), (False, p_power)):
                            numbers = [effective(count, step, taper, of_logs) for count in counts]
                            found.append(t_test(*logs, *numbers))
                    shares = [100 * np.mean(np.concatenate(found) < 0.05) for found in (p_logs, p_power)]
                    print(f"{name} {kind} {overlap} | {pair[0]} {pair[1]} | {counts[0]} {counts[1]} "
                          f"| {shares[0]:.1f} | {shares[1]:.1f}", flush=True)
    print("coherence, Hanning, white: true value | overlap | windows | rejected")
    taper = signal.get_window("hann", N, fftbins=True)
    for true in (0.0, 0.3, 0.6, 0.9):
        for overlap in (0, 50, 75):
            step = N * (100 - overlap) // 100
            for pair in [(10, 10), (30, 30), (60, 20), (200, 10)]:
                found = []
                for _ in range(-(-comparisons // (250 * len(BINS)))):
                    sides = []
                    for long in pair:
                        x = noise(rng, "white", 250, N * long)
                        y = true * x + np.sqrt(1 - true ** 2) * noise(rng, "white", 250, N * long)
                        x, y = transforms(x, taper, step), transforms(y, taper, step)
                        sides.append((coherence(x, y), effective(x.shape[1], step, taper, False)))
                    (c_a, n_a), (c_b, n_b) = sides
                    found.append(coherence_test(c_a, c_b, n_a, n_b))
                print(f"{true} | {overlap} | {pair[0]} {pair[1]} | {100 * np.mean(np.concatenate(found) < 0.05):.1f}",
                      flush=True)


if __name__ == "__main__":
    main(int(sys.argv[1]) if len(sys.argv) > 1 else 20000)
