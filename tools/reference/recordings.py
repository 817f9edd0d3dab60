"""Small deterministic EDF and BDF recordings for the reference spectra, and their samples in microvolts."""

import dataclasses

import numpy as np


@dataclasses.dataclass
class Channel:
    label: str
    physical: tuple[str, str]  # minimum and maximum as the header has them, microvolts
    digital: tuple[int, int]
    microvolts: np.ndarray
    unit: str = "uV"  # of the physical range
    samples: int = 0  # in a record, for a rate of its own

    def per_unit(self) -> float:
        return {"uV": 1.0, "\u00b5V": 1.0, "mV": 1000.0}[self.unit]

    def gain(self) -> float:
        low, high = map(float, self.physical)
        return (high - low) / (self.digital[1] - self.digital[0])

    def stored(self) -> np.ndarray:
        low = float(self.physical[0])
        values = np.rint((self.microvolts / self.per_unit() - low) / self.gain()) + self.digital[0]
        assert values.min() >= self.digital[0] and values.max() <= self.digital[1], self.label
        return values.astype(np.int64)

    def centred(self) -> np.ndarray:
        """What a reader gets, in microvolts, less a constant: whole steps around the mean, so that an offset of
        200 mV costs the reference no digits. The mean of every epoch is removed anyway."""
        stored = self.stored()
        return (stored - round(stored.mean())) * self.gain()

    def read(self) -> np.ndarray:
        """What a reader gets, in microvolts."""
        return (float(self.physical[0]) + (self.stored() - self.digital[0]) * self.gain()) * self.per_unit()


@dataclasses.dataclass
class Recording:
    name: str
    record_seconds: str  # as the header has it
    record_samples: int
    records: int
    channels: list[Channel]
    plus: str = ""  # "C" or "D" of EDF+ and BDF+, which hold the two that follow
    starts: list[str] = dataclasses.field(default_factory=list)  # of the records, seconds
    annotations: list[tuple[str, str, str]] = dataclasses.field(default_factory=list)  # onset, duration or "", text

    def is_bdf(self) -> bool:
        return self.name.endswith(".bdf")

    def rate(self) -> float:
        return self.record_samples / float(self.record_seconds)

    def annotation_bytes(self) -> list[bytes]:
        """One run for each record, equally long: its time, and some of the annotations."""
        each = -(-len(self.annotations) // self.records)
        runs = []
        for record, start in enumerate(self.starts):
            run = f"+{start}\x14\x14\0"
            for onset, duration, text in self.annotations[record * each:(record + 1) * each]:
                run += f"+{onset}" + (f"\x15{duration}" if duration else "") + f"\x14{text}\x14\0"
            runs.append(run.encode())
        longest = max(map(len, runs))
        return [run.ljust(longest + -longest % 6, b"\0") for run in runs]  # whole samples of 2 and of 3 bytes

    def to_bytes(self) -> bytes:
        """The file: header, channel headers, records with one run of samples per channel."""
        def text(value: object, width: int) -> bytes:
            encoded = str(value).encode("latin-1")
            assert len(encoded) <= width, value
            return encoded.ljust(width)

        family, width = ("BDF", 3) if self.is_bdf() else ("EDF", 2)
        runs = [[values[i * size:(i + 1) * size].astype("<i4").view(np.uint8).reshape(-1, 4)[:, :width].tobytes()
                 for i in range(self.records)]
                for values, size in ((c.stored(), c.samples or self.record_samples) for c in self.channels)]
        rows = [(c.label, "", c.unit, *c.physical, *c.digital, "", c.samples or self.record_samples, "")
                for c in self.channels]
        kind = "24BIT" if self.is_bdf() else ""
        if self.plus:
            runs.append(self.annotation_bytes())
            half = 1 << (8 * width - 1)
            rows.append((f"{family} Annotations", "", "", -1, 1, -half, half - 1, "", len(runs[-1][0]) // width, ""))
            kind = f"{family}+{self.plus}"
        parts = [b"\xffBIOSEMI" if self.is_bdf() else text("0", 8),
                 text("X X X X", 80), text("Startdate 01-JAN-2020 X X X", 80), text("01.01.20", 8),
                 text("00.00.00", 8), text(256 * (len(rows) + 1), 8), text(kind, 44),
                 text(self.records, 8), text(self.record_seconds, 8), text(len(rows), 4)]
        parts += [text(value, width) for column, width in zip(zip(*rows), (16, 80, 8, 8, 8, 8, 8, 80, 8, 32))
                  for value in column]
        return b"".join(parts) + b"".join(run for record in zip(*runs) for run in record)


def background(rng: np.random.Generator, samples: int, rate: float, rms: float) -> np.ndarray:
    """1/f noise with a 10 Hz rhythm of the same size."""
    frequencies = np.fft.rfftfreq(4 * samples)
    frequencies[0] = frequencies[1]
    shape = rng.standard_normal((2, len(frequencies)))
    noise = np.fft.irfft((shape[0] + 1j * shape[1]) / np.sqrt(frequencies))[:samples]
    noise *= rms / noise.std()
    return noise + rms * np.sin(2 * np.pi * 10 * np.arange(samples) / rate)


def make() -> list[Recording]:
    rng = np.random.default_rng(20200101)
    int16 = (-32768, 32767)
    int24 = (-8388608, 8388607)
    biosemi = ("-262144", "262143")

    def recording(name, seconds, samples, records, ranges, digital):
        total, rate = samples * records, samples / float(seconds)
        common = background(rng, total, rate, 1.0)
        channels = []
        for label, physical, offset, rms in ranges:
            own = background(rng, total, rate, 1.0)
            channels.append(Channel(label, physical, digital, offset + rms * (own + 0.5 * common)))
        return Recording(name, seconds, samples, records, channels)

    return [
        # Plain, and 200 mV that the calibration carries.
        recording("rate256.edf", "1", 256, 5,
                  [("Fp1", ("-3276.8", "3276.7"), 0.0, 30.0), ("Fp2", ("199000", "201000"), 2e5, 80.0)], int16),
        # 200 mV inside the stored values: a coarse step, so a large signal.
        recording("rate255.edf", "1", 255, 5,
                  [("O1", ("-250000", "250000"), 2e5, 3000.0), ("O2", ("-250000", "250000"), -2e5, 3000.0)], int16),
        # The electrode offsets of an active system, in 24 bits.
        recording("rate500.bdf", "1", 500, 6,
                  [("C3", biosemi, 2e5, 20.0), ("C4", biosemi, -2e5, 5.0)], int24),
        # 173.61 Hz, as near as eight characters of record duration allow.
        recording("rate173.bdf", "5.760037", 1000, 1,
                  [("Cz", biosemi, 2e5, 50.0), ("Pz", biosemi, 12.5, 50.0)], int24),
    ]
