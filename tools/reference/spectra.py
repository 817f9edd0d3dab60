#!/usr/bin/python3
"""Writes the reference recordings and their spectra as SciPy computes them.

Usage: spectra.py FOLDER (tests/data/reference). Made with Debian 12's python3-scipy 1.10.

FOLDER/<recording>, and FOLDER/<recording>.json: rate, and per case window length n, padded length p, step, taper
name, first samples of the epochs, and per channel mean and SD (n - 1) over epochs of the power density and of
its square root; in the cases with "extra" also mean and sum of squared deviations of ln power, and the mean
cross-spectrum of the first with the second channel.
FOLDER/tapers.json: the periodic tapers for some lengths.
"""

import json
import pathlib
import sys

import numpy as np
from scipy import signal

import recordings

TAPERS = {"Rectangular": "boxcar", "Hamming": "hamming", "Hanning": "hann", "Triangular": "triang",
          "Blackman": "blackman", "Blackman-Harris": "blackmanharris", "Flat Top": "flattop"}
# Window length in seconds for every taper and overlap, and longer ones for Hanning at 50 %.
SHORT = {"rate256.edf": 0.25, "rate255.edf": 0.2, "rate500.bdf": 0.1, "rate173.bdf": 0.2}
LONG = {"rate256.edf": [1.0], "rate255.edf": [1.0], "rate500.bdf": [2.0], "rate173.bdf": [1.5]}


def spectra(samples: list[np.ndarray], rate: float, seconds: float, taper: str, overlap: int, extra: bool) -> dict:
    n = int(seconds * rate + 0.5)
    p = 1 << (n - 1).bit_length()
    step = max(1, int(n * (1 - overlap / 100) + 0.5))
    common = {"fs": rate, "window": signal.get_window(TAPERS[taper], n, fftbins=True), "nperseg": n,
              "noverlap": n - step, "nfft": p, "detrend": "constant", "scaling": "density"}
    case = {"n": n, "p": p, "step": step, "taper": taper,
            "starts": list(range(0, len(samples[0]) - n + 1, step)), "channels": []}
    for values in samples:
        epochs = signal.spectrogram(values, mode="psd", **common)[2]
        assert epochs.shape == (p // 2 + 1, len(case["starts"]))
        mean = signal.welch(values, **common)[1]
        assert np.allclose(mean, epochs.mean(axis=1), rtol=1e-10, atol=mean.max() * 1e-14)
        amplitude = np.sqrt(epochs)
        channel = {"mean": mean, "sd": epochs.std(axis=1, ddof=1),
                   "amplitude_mean": amplitude.mean(axis=1), "amplitude_sd": amplitude.std(axis=1, ddof=1)}
        if extra:
            logs = np.log(epochs)
            channel["log_mean"] = logs.mean(axis=1)
            channel["log_m2"] = logs.var(axis=1) * logs.shape[1]
        case["channels"].append({key: value.tolist() for key, value in channel.items()})
    if extra:
        # csd conjugates its first argument; the mean of X0 * conj(X1) is wanted.
        cross = signal.csd(samples[1], samples[0], **common)[1]
        case["cross_re"], case["cross_im"] = cross.real.tolist(), cross.imag.tolist()
    return case


def main(folder: pathlib.Path) -> None:
    for recording in recordings.make():
        (folder / recording.name).write_bytes(recording.to_bytes())
        samples = [channel.centred() for channel in recording.channels]
        rate = recording.rate()
        cases = [spectra(samples, rate, SHORT[recording.name], taper, overlap, taper == "Hanning")
                 for taper in TAPERS for overlap in (0, 50, 75)]
        cases += [spectra(samples, rate, seconds, "Hanning", 50, True) for seconds in LONG[recording.name]]
        lines = ",\n".join(json.dumps(case) for case in cases)
        (folder / (recording.name + ".json")).write_text(f'{{"rate": {rate!r}, "cases": [\n{lines}\n]}}\n')
    tapers = [{"taper": name, "values": signal.get_window(kind, n, fftbins=True).tolist()}
              for name, kind in TAPERS.items() for n in (1, 2, 7, 16, 25)]
    (folder / "tapers.json").write_text("[\n" + ",\n".join(map(json.dumps, tapers)) + "\n]\n")


if __name__ == "__main__":
    main(pathlib.Path(sys.argv[1]))
