#!/usr/bin/python3
"""Writes FILE (tests/data/reference/statistics.json): t-tests, effective numbers, lines and measures by SciPy.

Usage: statistics_reference.py FILE. Made with Debian 12's python3-scipy 1.10.
"""

import json
import sys

import numpy as np
from scipy import signal, special, stats

RNG = np.random.default_rng(7)


def t_tests() -> list[dict]:
    """Independent samples, where the effective number is the count: SciPy's Welch test is the whole answer."""
    cases = []
    for count_a, count_b, shift, scale in [(2, 2, 0.3, 1), (5, 9, 0.8, 3), (30, 30, 0, 1), (118, 40, 0.4, 0.5),
                                           (7199, 12, 0.05, 2), (50, 50, 8, 1)]:
        a, b = RNG.standard_normal(count_a), shift + scale * RNG.standard_normal(count_b)
        test = stats.ttest_ind(a, b, equal_var=False)
        v_a, v_b = a.var(ddof=1) / count_a, b.var(ddof=1) / count_b
        df = (v_a + v_b) ** 2 / (v_a ** 2 / (count_a - 1) + v_b ** 2 / (count_b - 1))
        cases.append({"a": [a.mean(), a.var() * count_a, count_a], "b": [b.mean(), b.var() * count_b, count_b],
                      "t": test.statistic, "df": df, "p": test.pvalue})
    return cases


def effective_t_tests() -> list[dict]:
    """Effective numbers below the count: SciPy's test of the same variances with the effective numbers as counts."""
    cases = []
    for count_a, n_a, m2_a, count_b, n_b, m2_b, difference in [
            (59, 31.25, 60.0, 59, 31.25, 95.0, 0.5), (237, 145.2, 380.0, 117, 70.75, 190.0, 0.2),
            (3, 1.5, 2.0, 9, 4.25, 11.0, 3.0)]:
        var_a, var_b = (m2 / (count * (1 - 1 / n)) for count, n, m2 in ((count_a, n_a, m2_a), (count_b, n_b, m2_b)))
        test = stats.ttest_ind_from_stats(difference, np.sqrt(var_a), n_a, 0.0, np.sqrt(var_b), n_b, equal_var=False)
        v_a, v_b = var_a / n_a, var_b / n_b
        df = (v_a + v_b) ** 2 / (v_a ** 2 / (n_a - 1) + v_b ** 2 / (n_b - 1))
        cases.append({"a": [difference, m2_a, count_a, n_a], "b": [0.0, m2_b, count_b, n_b],
                      "t": test.statistic, "df": df, "p": test.pvalue})
    return cases


def coherence_tests() -> list[dict]:
    cases = []
    for c_a, n_a, c_b, n_b in [(0.5, 30.0, 0.7, 30.0), (0.0, 10.0, 0.9, 12.5), (0.8, 62.4, 0.8, 20.0)]:
        s_a, s_b = 1 / (2 * (n_a - 1)), 1 / (2 * (n_b - 1))
        z = (np.arctanh(c_a) - s_a - np.arctanh(c_b) + s_b) / np.sqrt(s_a + s_b)
        cases.append({"a": [c_a, n_a], "b": [c_b, n_b], "z": z, "p": 2 * stats.norm.sf(abs(z))})
    return cases


def effective_numbers() -> list[dict]:
    """By the full matrix of correlations, every pair of epochs."""
    cases = []
    for window, n, starts in [("hann", 64, np.arange(0, 30 * 32, 32)), ("boxcar", 50, np.arange(0, 400, 12)),
                              ("flattop", 40, np.arange(0, 200, 5)),
                              ("hamming", 33, np.sort(RNG.integers(0, 600, 40)))]:
        taper = signal.get_window(window, n, fftbins=True)
        product = np.correlate(taper, taper, "full")[n - 1:] / np.dot(taper, taper)
        lags = np.abs(starts[:, None] - starts[None, :])
        rho = np.where(lags < n, product[np.minimum(lags, n - 1)] ** 2, 0.0)
        logs = special.spence(1 - np.minimum(rho, 1.0)) / special.spence(0.0)
        cases.append({"starts": starts.tolist(), "taper": taper.tolist(),
                      "power": len(starts) ** 2 / rho.sum(), "log_power": len(starts) ** 2 / logs.sum()})
    return cases


def lines() -> list[dict]:
    cases = []
    for count, offset in [(2, 0.0), (10, 0.0), (200, 0.0), (200, 1e6)]:
        x = RNG.standard_normal(count) + offset
        y = 3.0 - 0.5 * (x - offset) + RNG.standard_normal(count)
        # Fitted at the origin of the cloud, then moved: SciPy itself loses digits far from it.
        fit = stats.linregress(x - offset, y)
        cases.append({"x": x.tolist(), "y": y.tolist(), "r": fit.rvalue, "slope": fit.slope,
                      "intercept": fit.intercept - fit.slope * offset})
    return cases


def measures() -> list[dict]:
    """Bands of a spectrum of 129 bins of 0.5 Hz, low <= f < high, by NumPy."""
    f = np.arange(129) * 0.5
    power = 40 / (1 + f) + 12 * np.exp(-((f - 10.2) / 1.1) ** 2) + RNG.uniform(0, 0.5, len(f))
    amplitude = 0.9 * np.sqrt(power) * RNG.uniform(0.95, 1.0, len(f))
    coherence, phase = RNG.uniform(0.1, 0.95, len(f)), RNG.uniform(2.0, 4.0, len(f))
    phase = np.angle(np.exp(1j * phase))
    total = (f >= 0.5) & (f < 45)
    cases = []
    for low, high in [(0.5, 4), (4, 8), (8, 13), (13, 30), (30, 45), (60, 80), (10.2, 10.9)]:
        band = (f >= low) & (f < high)
        share = power[band] / power[band].sum()
        edge = np.interp(0.95, np.cumsum(share), f[band])
        area = power[band].sum() * 0.5
        rel = 100 * power[band].sum() / power[total].sum()
        centroid = (f[band] * share).sum()

        def row(values, absolute):
            return [absolute, values[band].mean(), rel, f[band][values[band].argmax()], centroid,
                    values[band].max(), edge, 100 * 1.5 / 6]

        by_coherence = (f[band] * coherence[band]).sum() / coherence[band].sum()
        mean = coherence[band].mean()
        circular = stats.circmean(phase[band], high=np.pi, low=-np.pi)
        cases.append({"lo": low, "hi": high,
                      "amplitude": row(amplitude, np.sqrt(area)), "power": row(power, area),
                      "coherence": [mean, mean, 100 * mean, f[band][coherence[band].argmax()], by_coherence,
                                    coherence[band].max(), None, None],
                      "phase": [circular, circular] + [None] * 6})
    spectra = {"amplitude": amplitude, "power": power, "coherence": coherence, "phase": phase}
    return [{"spectra": {key: value.tolist() for key, value in spectra.items()}, "resolution": 0.5,
             "total": [0.5, 45], "abs_mean": 6, "abs_sd": 1.5, "bands": cases}]


def main(file: str) -> None:
    parts = {"t_tests": t_tests(), "effective_t_tests": effective_t_tests(), "coherence_tests": coherence_tests(),
             "effective_numbers": effective_numbers(), "lines": lines(), "measures": measures()}
    text = ",\n".join(f'"{name}": [\n' + ",\n".join(map(json.dumps, cases)) + "\n]" for name, cases in parts.items())
    with open(file, "w", encoding="utf-8") as out:
        out.write("{" + text + "}\n")


if __name__ == "__main__":
    main(sys.argv[1])
