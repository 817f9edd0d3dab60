#!/usr/bin/python3
"""Writes recordings in every format, and what the whole program shall compute of them.

Usage: program_reference.py FOLDER (tests/data/program). Made with Debian 12's python3-scipy 1.10.

FOLDER/<recordings>, and FOLDER/expected.json: per recording what `orvanta info` tells, the settings of two analyses and
numbers of them at some bins (by_definition.py). numbers_end_to_end.py asks the program for the same.
"""

import json
import pathlib
import sys
from fractions import Fraction

import numpy as np
from scipy import stats

import by_definition
import recordings
from by_definition import Analysis, Timed
from recordings import Channel, Recording

NAMES = ["C3", "C4", "O1", "O2"]
INT16, INT24 = (-32768, 32767), (-8388608, 8388607)
MONTAGE = "[Test]\nd = C3 - O1\ne = C4 - O2\nlap = C3 - 0.5*O1 - 0.5*O2\n"
ROUNDED = 11  # significant digits that are written


def signals(rng: np.random.Generator, count: int, rate: float) -> list[np.ndarray]:
    """Noise with a rhythm; what is common to all makes coherence. The rhythm is louder in the second half."""
    common = recordings.background(rng, count, rate, 6.0) * np.linspace(0.5, 1.5, count)
    return [recordings.background(rng, count, rate, 8.0) + common for _ in NAMES]


def plain(rng) -> tuple[dict, Timed, list[np.ndarray]]:
    """EDF: ranges of every kind, one of them saturated; another rate beside EEG; events in a table."""
    rate, records = 100, 20
    values = signals(rng, rate * records, rate)
    values[3] = np.clip(values[3] * 2, -20, 20)
    ranges = [("C3", ("500", "-500"), INT16, "\xb5V"), ("C4", ("-0.5", "0.5"), (-1000, 1001), "mV"),
              ("EEG O1-Ref", ("-80", "120"), (0, 4095), "uV"), ("EEG O2-Ref", ("-20", "20"), (-2048, 2047), "uV")]
    channels = [Channel(label, physical, digital, x, unit)
                for (label, physical, digital, unit), x in zip(ranges, values)]
    channels.append(Channel("ECG", ("-3276.8", "3276.7"), INT16, np.zeros(25 * records), samples=25))
    file = Recording("ranges.edf", "1", rate, records, channels)
    table = ("onset\tduration\ttrial_type\n0.30000000000000004\t8.0\tgo\n1e1\t9.5\tno go\n4.005\tn/a\ttone\n"
             "6.01\t0\ttone\n1.5e+01\t0.0\ttone\n17.123\t0.001\tartifact\n")
    events = [("go", "0.3", "8"), ("no go", "10", "9.5"), ("tone", "4.005", "0"), ("tone", "6.01", "0"),
              ("tone", "15", "0"), ("artifact", "17.123", "0.001")]
    parts = {"ranges.edf": file.to_bytes(), "ranges_events.tsv": table.encode()}
    return parts, timed(rate, [(0, 0, rate * records)], events), [c.read() for c in channels[:4]]


def gapped(rng) -> tuple[dict, Timed, list[np.ndarray]]:
    """EDF+ with gaps, a rate of 99.6 Hz, and a start between two seconds."""
    each, records, rate = 249, 9, Fraction(996, 10)
    begins = [Fraction(5, 2) * i + (Fraction("1.703") if i > 2 else 0) + (Fraction("4.0041") if i > 5 else 0)
              for i in range(records)]
    values = signals(rng, each * records, float(rate))
    channels = [Channel(name, ("-3276.8", "3276.7"), INT16, x) for name, x in zip(NAMES, values)]
    events = [("go", "0.5", "8.2"), ("no go", "12.002", "16"), ("tone", "2", "0"), ("tone", "3.77", "0"),
              ("tone", "15.5", "0"), ("tone", "24.6", "0"), ("artifact", "5.1", "0.4"), ("artifact", "13.9", "0"),
              ("t\u00f6n, \u2192 \"x\"", "27", "0")]
    shifted = [(str(float(Fraction(at) + Fraction(1, 4))), "" if long == "0" else long, label)
               for label, at, long in events]
    file = Recording("gaps.edf", "2.5", each, records, channels, "D",
                     [f"{float(begin) + 0.25:.6f}" for begin in begins], shifted)
    stretches = [(begins[i], i * each, 3 * each) for i in (0, 3, 6)]
    return {"gaps.edf": file.to_bytes()}, timed(rate, stretches, events), [c.read() for c in channels]


def active(rng) -> tuple[dict, Timed, list[np.ndarray]]:
    """BDF+ with the offsets of active electrodes."""
    each, records, rate = 161, 8, Fraction(644, 10)
    values = [x + offset for x, offset in zip(signals(rng, each * records, float(rate)), (2e5, -1.8e5, 0, 12345.6))]
    channels = [Channel(name, ("-262144", "262143"), INT24, x) for name, x in zip(NAMES, values)]
    events = [("go", "1", "7"), ("no go", "9.25", "9.5"), ("tone", "3", "0"), ("tone", "8.125", "0"),
              ("tone", "12", "0"), ("artifact", "12.5", "0.25")]
    file = Recording("active.bdf", "2.5", each, records, channels, "C", [f"{2.5 * i}" for i in range(records)],
                     [(at, "" if long == "0" else long, label) for label, at, long in events])
    return {"active.bdf": file.to_bytes()}, timed(rate, [(0, 0, each * records)], events), [c.read() for c in channels]


def vector(rng) -> tuple[dict, Timed, list[np.ndarray]]:
    """BrainVision, a channel after the other, 256 Hz by an interval with decimals, resolutions of their own."""
    rate, count = 256, 16 * 256
    resolutions = ["0.0488281", "0.1", "0.5", "1"]
    stored = np.array([np.rint(x / float(r)) for x, r in zip(signals(rng, count, rate), resolutions)])
    marks = [("go", 129, 1792), ("no go", 2049, 1900), ("tone", 513, 1), ("tone", 1400, 1), ("tone", 3001, 1),
             ("artifact", 2800, 40)]
    head = ("Brain Vision Data Exchange Header File Version 1.0\n\n[Common Infos]\nCodepage=UTF-8\n"
            "DataFile=vector.eeg\nMarkerFile=vector.vmrk\nDataFormat=BINARY\nDataOrientation=VECTORIZED\n"
            f"NumberOfChannels=4\nDataPoints={count}\nSamplingInterval=3906.25\n\n[Binary Infos]\nBinaryFormat=INT_16\n\n"
            "[Channel Infos]\n"
            + "".join(f"Ch{i + 1}={name},,{resolutions[i]},\u00b5V\n" for i, name in enumerate(NAMES)))
    markers = ("Brain Vision Data Exchange Marker File, Version 1.0\n\n[Common Infos]\nCodepage=UTF-8\n"
               "DataFile=vector.eeg\n\n[Marker Infos]\nMk1=New Segment,,1,1,0,20200101000000250000\n"
               + "".join(f"Mk{i + 2}=Comment,{label},{at},{size},0\n" for i, (label, at, size) in enumerate(marks)))
    events = [(label, Fraction(at - 1, rate), Fraction(size, rate) if size > 1 else 0) for label, at, size in marks]
    parts = {"vector.vhdr": head.encode(), "vector.vmrk": markers.encode(), "vector.eeg": stored.astype("<i2").tobytes()}
    return parts, timed(rate, [(0, 0, count)], events), [x * float(r) for x, r in zip(stored, resolutions)]


def timed(rate, stretches, events) -> Timed:
    return Timed(Fraction(rate), [(Fraction(at), first, count) for at, first, count in stretches],
                 sorted(((label, Fraction(at), Fraction(long)) for label, at, long in events), key=lambda e: e[1]))


CASES = {
    "ranges.edf": (plain, {"fft_seconds": 1, "overlap": 50, "window": "Hanning", "mode": "states", "states": ["go"]},
                   {"fft_seconds": 1, "overlap": 75, "window": "Blackman-Harris", "mode": "states",
                    "states": ["no go"], "reject": ["artifact"]}),
    "gaps.edf": (gapped, {"fft_seconds": 0.9, "overlap": 33, "window": "Hamming", "mode": "all", "reject": ["artifact"]},
                 {"fft_seconds": 0.9, "overlap": 0, "window": "Triangular", "mode": "spots", "spots": ["tone"],
                  "pre_trigger_ms": -250, "trigger_duration_ms": 1000, "spot_steps": 3, "spot_step_ms": 450}),
    "active.bdf": (active, {"fft_seconds": 2, "overlap": 90, "window": "Flat Top", "mode": "duration", "duration": 11},
                   {"fft_seconds": 2, "overlap": 66, "window": "Rectangular", "mode": "states", "states": ["no go"],
                    "reject": ["artifact"]}),
    "vector.vhdr": (vector, {"fft_seconds": 0.73, "overlap": 50, "window": "Blackman", "mode": "states",
                             "states": ["go", "no go"], "reject": ["artifact", "tone"]},
                    {"fft_seconds": 0.73, "overlap": 25, "window": "Hanning", "mode": "all"}),
}
CONTRASTS = (1, -2)


def short(values) -> list:
    return [float(f"{value:.{ROUNDED}g}") for value in values]


def told(timed: Timed) -> dict:
    begins, ends = [at for at, _, _ in timed.stretches], [at + n / timed.rate for at, _, n in timed.stretches]
    return {"rate_hz": float(timed.rate), "duration_s": float(timed.end()),
            "gaps": [[float(a), float(b)] for a, b in zip(ends, begins[1:])],
            "events": [[label, float(at), float(long)] for label, at, long in timed.events]}


def regression(first: np.ndarray, second: np.ndarray, bins: list[int]) -> list:
    contrast = np.repeat(CONTRASTS, (len(first), len(second)))
    rows = []
    for k in bins:
        fit = stats.linregress(np.log10(np.concatenate([first[:, k], second[:, k]])), contrast)
        rows.append(short([fit.rvalue, fit.slope, fit.intercept]))
    return rows


def numbers(timed: Timed, values: list[np.ndarray], macros: tuple[dict, dict]) -> dict:
    main, other = (Analysis(timed, macro) for macro in macros)
    last = main.padded // 2
    bins = sorted({1, 2, 3, 5, 8, 10, 13, 16, 20, 25, last // 2, last - 7, last - 1})
    c3, c4, o1, o2 = values
    traces = dict(zip(NAMES, values), d=c3 - o1, e=c4 - o2, lap=c3 - 0.5 * o1 - 0.5 * o2)
    result = {"bins": bins, "frequencies": short(main.frequencies[bins]), "traces": {}, "pairs": {}, "regression": {},
              "begins": [[float(begin_of(timed, start)) for start in a.starts] for a in (main, other)],
              "n_eff_power": short([main.effective()[0], other.effective()[0]]),
              "n_eff_log": short([main.effective()[1], other.effective()[1]])}
    for name, trace in traces.items():
        a, b = main.powers(trace), other.powers(trace)
        roots = np.sqrt(a)
        t, df, p = by_definition.welch_test(a[:, bins], main.effective()[1], b[:, bins], other.effective()[1])
        result["traces"][name] = {
            "power": short(a.mean(axis=0)[bins]), "power_sd": short(a.std(axis=0, ddof=1)[bins]),
            "amplitude": short(roots.mean(axis=0)[bins]), "amplitude_sd": short(roots.std(axis=0, ddof=1)[bins]),
            "secondary": short(b.mean(axis=0)[bins]), "t": short(t), "df": short(df), "p": short(p),
            "power_measures": {k: short(v) for k, v in main.measures(a, False).items()},
            "amplitude_measures": {k: short(v) for k, v in main.measures(a, True).items()}}
        if name in NAMES:
            result["regression"][name] = regression(a, b, bins)
    for name, pair in {"d": (c3, o1), "e": (c4, o2)}.items():
        (coherence, phase), (second, _) = main.coherence_and_phase(*pair), other.coherence_and_phase(*pair)
        z, p = by_definition.coherence_test(coherence[bins], main.effective()[0], second[bins], other.effective()[0])
        result["pairs"][name] = {"coherence": short(coherence[bins]), "phase": short(phase[bins]),
                                 "secondary": short(second[bins]), "t": short(z), "p": short(p)}
    return result


def begin_of(timed: Timed, sample: int) -> Fraction:
    return next(at + (sample - first) / timed.rate for at, first, count in timed.stretches
                if first <= sample < first + count)


def main(folder: pathlib.Path) -> None:
    folder.mkdir(exist_ok=True)
    expected = {}
    for name, (make, *macros) in CASES.items():
        files, timing, values = make(np.random.default_rng(20211121))
        for file, content in files.items():
            (folder / file).write_bytes(content)
        expected[name] = {"info": told(timing), "macros": macros, **numbers(timing, values, macros)}
    lines = ",\n".join(f"{json.dumps(name)}: {{\n" + ",\n".join(f"{json.dumps(key)}: {json.dumps(part)}"
                       for key, part in case.items()) + "}" for name, case in expected.items())
    (folder / "expected.json").write_text(
        f'{{"montage": {json.dumps(MONTAGE)}, "contrasts": {json.dumps(CONTRASTS)}, "recordings": {{\n{lines}}}}}\n')


if __name__ == "__main__":
    main(pathlib.Path(sys.argv[1]))
