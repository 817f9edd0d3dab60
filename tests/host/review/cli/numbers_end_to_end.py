#!/usr/bin/env python3
"""The numbers of every command, from the file on, against those of tools/reference/program_reference.py.

Usage: numbers_end_to_end.py ORVANTA DATA [unittest arguments], DATA being tests/data.
"""

import csv
import json
import math
import os
import pathlib
import subprocess
import sys
import tempfile
import unittest
import xml.etree.ElementTree as xml

DATA = pathlib.Path(sys.argv.pop(2)) if len(sys.argv) > 2 else pathlib.Path()

import end_to_end  # noqa: E402  takes ORVANTA from the arguments

RECORDINGS = DATA / "program"
EXPECTED = json.loads((RECORDINGS / "expected.json").read_text(encoding="utf-8"))
MEASURES = ["Abs", "Mean", "Rel", "Peak F", "Mean F", "Peak", "SEF95", "CV"]
PAIRS = {"d", "e"}
# Of the largest value of a row. Epochs are kept in 32 bits, whatever the precision: CV and regressions have no more.
IN_DOUBLE, IN_FLOAT, OF_EPOCHS = 1e-9, 3e-6, 2e-5


class NumbersTest(unittest.TestCase):
    """Every recording has two analyses; their macros are in the scratch folder."""

    def setUp(self):
        scratch = tempfile.TemporaryDirectory()
        self.addCleanup(scratch.cleanup)
        self.folder = pathlib.Path(scratch.name)
        self.montage = self.folder / "test.mtg"
        self.montage.write_text(EXPECTED["montage"])
        self.environment = dict(os.environ)

    def orvanta(self, *arguments):
        result = subprocess.run([end_to_end.ORVANTA, *map(str, arguments)], capture_output=True, text=True,
                                           timeout=120, env=self.environment)
        self.assertEqual(result.returncode, 0, result.stderr)
        return result.stdout

    def json_of(self, command, path, *arguments):
        return json.loads(self.orvanta(command, path, *arguments, "--json", "-"))

    def spectra_of(self, command, path, *arguments, precision="double"):
        return self.json_of(command, path, *arguments, "--montage", self.montage, "--precision", precision)

    def recordings(self):
        """Name, path, expected numbers and the paths of both macros of every recording."""
        for name, case in EXPECTED["recordings"].items():
            paths = []
            for number, settings in enumerate(case["macros"]):
                path = self.folder / f"{name}-{number}.smx"
                path.unlink(missing_ok=True)
                settings = {**settings, "contrast": EXPECTED["contrasts"][number]}
                sets = [f"{key}={','.join(value) if isinstance(value, list) else value}" for key, value in settings.items()]
                self.orvanta("macro", "new", path, *(part for text in sets for part in ("--set", text)))
                paths.append(path)
            yield RECORDINGS / name, case, paths

    def assert_near(self, values, expected, tolerance, what, largest=None):
        """All within \\p tolerance of the largest one, or of \\p largest."""
        self.assertEqual(len(values), len(expected), what)
        self.assertNotIn(None, values, what)
        limit = tolerance * (largest or max(map(abs, expected)))
        for i, (value, wanted) in enumerate(zip(values, expected)):
            self.assertAlmostEqual(value, wanted, delta=limit, msg=f"{what}, value {i}")

    def traces(self, computed, case, names=None):
        """Name, expected numbers and the program's of the traces, which are four sensors and three channels."""
        traces = {trace["name"]: trace for trace in computed["sensors"] + computed["channels"]}
        self.assertEqual(list(traces), list(case["traces"]))
        for name in names or traces:
            yield name, case["pairs" if names else "traces"][name], traces[name]

class Numbers(NumbersTest):
    def assert_spectra(self, case, computed, entity, tolerance):
        self.assert_near([epoch["begin_s"] for epoch in computed["epochs"]], case["begins"][0], 1e-9, "epochs", 1)
        at = case["bins"]
        self.assert_near([computed["frequencies_hz"][i] for i in at], case["frequencies"], 1e-10, "frequencies")
        for name, expected, trace in self.traces(computed, case):
            for key, of in (("mean", entity), ("sd", f"{entity}_sd")):
                self.assert_near([trace[key][i] for i in at], expected[of], tolerance, f"{name} {of}")
            measures = {(m["band"], m["measure"]): m["value"] for m in trace["measures"]}
            for band, values in expected[f"{entity}_measures"].items():
                for measure, wanted in zip(MEASURES, values):
                    delta = wanted * (OF_EPOCHS if measure == "CV" else tolerance)
                    what = f"{name} {band} {measure}"
                    self.assertAlmostEqual(measures[band, measure], wanted, delta=delta, msg=what)

    def test_recordings_are_what_their_files_say(self):
        for path, case, _ in self.recordings():
            with self.subTest(recording=path.name):
                info = self.json_of("info", path)
                told = {"rate_hz": info["rate_hz"], "duration_s": info["duration_s"],
                        "gaps": [[gap["begin_s"], gap["end_s"]] for gap in info["gaps"]],
                        "events": [[event["label"], event["onset_s"], event["duration_s"]] for event in info["events"]]}
                expected = case["info"]
                self.assertEqual([event[0] for event in told["events"]], [event[0] for event in expected["events"]])
                for key in ("rate_hz", "duration_s"):
                    self.assertAlmostEqual(told[key], expected[key], places=9, msg=key)
                for key, skip in (("gaps", 0), ("events", 1)):
                    rows = [[value for row in table[key] for value in row[skip:]] for table in (told, expected)]
                    self.assert_near(*rows, 1e-9, key, 1)

    def test_events_have_the_digits_of_their_table(self):
        events = self.json_of("info", RECORDINGS / "ranges.edf")["events"]
        self.assertEqual([(event["onset_s"], event["duration_s"]) for event in events],
                         [(0.3, 8), (4.005, 0), (6.01, 0), (10, 9.5), (15, 0), (17.123, 0.001)])

    def test_sensors_have_the_labels_of_the_file(self):
        info = self.json_of("info", RECORDINGS / "ranges.edf")
        self.assertEqual([tuple(s[key] for key in ("name", "label", "type", "unit", "rate_hz")) for s in info["sensors"]],
                         [("C3", "C3", "eeg", "µV", 100), ("C4", "C4", "eeg", "µV", 100),
                          ("O1", "EEG O1-Ref", "eeg", "µV", 100), ("O2", "EEG O2-Ref", "eeg", "µV", 100),
                          ("ECG", "ECG", "ecg", "µV", 25)])

    def test_recordings_start_when_their_files_say(self):
        starts = {name: self.json_of("info", RECORDINGS / name)["start"] for name in EXPECTED["recordings"]}
        self.assertEqual(starts, {"ranges.edf": "2020-01-01T00:00:00", "gaps.edf": "2020-01-01T00:00:00.250000",
                                  "active.bdf": "2020-01-01T00:00:00", "vector.vhdr": "2020-01-01T00:00:00.250000"})

    def test_spectra_and_measures_of_power_and_amplitude(self):
        for path, case, macros in self.recordings():
            with self.subTest(recording=path.name):
                for entity in ("power", "amplitude"):
                    for precision, tolerance in (("double", IN_DOUBLE), ("float", IN_FLOAT)):
                        computed = self.spectra_of("compute", path, "--macro", macros[0], "--entity", entity,
                                                   precision=precision)
                        self.assert_spectra(case, computed, entity, tolerance)

    def test_coherence_and_phase_of_pairs(self):
        for path, case, macros in self.recordings():
            with self.subTest(recording=path.name):
                for entity in ("coherence", "phase"):
                    computed = self.spectra_of("compute", path, "--macro", macros[0], "--entity", entity)
                    for name, expected, trace in self.traces(computed, case, PAIRS):
                        apart = [trace["mean"][i] - wanted for i, wanted in zip(case["bins"], expected[entity])]
                        if entity == "phase":
                            apart = [math.remainder(difference, 2 * math.pi) for difference in apart]
                        self.assertLess(max(map(abs, apart)), 1e-8, f"{name} {entity}")
                    for name, _, trace in self.traces(computed, case):
                        self.assertEqual(set(trace["mean"]) == {None}, name not in PAIRS, name)

    def test_comparisons(self):
        for path, case, macros in self.recordings():
            with self.subTest(recording=path.name):
                for entity, effective in (("power", "log"), ("amplitude", "log"), ("coherence", "power")):
                    compared = self.spectra_of("compare", path, "--main", macros[0], "--secondary", macros[1],
                                               "--entity", entity)
                    self.assert_near(list(compared["n_eff"].values()), case[f"n_eff_{effective}"], 1e-9, "n_eff")
                    begins = [epoch["begin_s"] for epoch in compared["secondary"]["epochs"]]
                    self.assert_near(begins, case["begins"][1], 1e-9, "secondary epochs", 1)
                    for name, expected, trace in self.traces(compared, case, PAIRS if entity == "coherence" else None):
                        columns = {key: [values[i] for i in case["bins"]] for key, values in trace.items()
                                   if key not in ("name", "measures")}
                        if entity != "amplitude":
                            self.assert_near(columns["secondary_mean"], expected["secondary"], IN_DOUBLE, name)
                        quotients = [a / b for a, b in zip(columns["mean"], columns["secondary_mean"])]
                        self.assert_near(columns["ratio"], quotients, 1e-12, f"{name} ratio")
                        for key in ("t", "df", "p") if entity != "coherence" else ("t", "p"):
                            self.assert_near(columns[key], expected[key], 1e-7, f"{name} {entity} {key}")

    def test_regressions_and_the_epochs_behind_them(self):
        text, full = self.folder / "r.txt", self.folder / "f.txt"
        for path, case, macros in self.recordings():
            with self.subTest(recording=path.name):
                self.orvanta("regress", path, "--macro", *macros, "--low", 0, "--high", 200, "--out", text,
                             "--full-spectra", full, "--precision", "double", "--quiet")
                with open(text, encoding="utf-8", newline="") as file:
                    rows = {(row["sensor"], float(row["freq_hz"])): row for row in csv.DictReader(file, delimiter="\t")}
                frequencies = sorted({hz for _, hz in rows})
                count = str(len(case["begins"][0]) + len(case["begins"][1]))
                for sensor, lines in case["regression"].items():
                    for hz, line in zip(case["frequencies"], lines):
                        nearest = min(frequencies, key=lambda other: abs(other - hz))
                        self.assertAlmostEqual(nearest, hz, places=6)
                        row = rows[sensor, nearest]
                        self.assert_near([float(row[key]) for key in "rkm"], line, OF_EPOCHS, f"{sensor} at {hz} Hz", 1)
                        self.assertEqual(row["count"], count)
                with open(full, encoding="utf-8", newline="") as file:
                    epochs = list(csv.reader(file, delimiter="\t"))[1:]
                for number, begins in enumerate(case["begins"]):
                    lines = [line for line in epochs if line[0] == macros[number].stem and line[5] == "O1"]
                    self.assert_near([float(line[3]) for line in lines], begins, 1e-9, "begins", 1)
                    mean = [sum(float(line[6 + i]) for line in lines) / len(lines) for i in case["bins"]]
                    self.assert_near(mean, case["traces"]["O1"][("power", "secondary")[number]], 1e-6, "full spectra")

    def test_exported_epochs_have_the_mean(self):
        text = self.folder / "e.txt"
        for path, case, macros in self.recordings():
            with self.subTest(recording=path.name):
                self.orvanta("export", path, "--macro", *macros, "--out", text, "--precision", "double", "--quiet")
                with open(text, encoding="utf-8", newline="") as file:
                    head, *rows = [line[:-1] for line in csv.reader(file, delimiter="\t")]
                for number, key in enumerate(("power", "secondary")):
                    begin = [macros[number].stem, str(EXPECTED["contrasts"][number])]
                    rows_of = [row for row in rows if row[:2] == begin]
                    self.assertEqual(len(rows_of), len(case["begins"][number]))
                    for sensor, at in (("C3", 2), ("O2", 5)):
                        column = 2 + ["C3", "C4", "O1", "O2"].index(sensor) * ((len(head) - 2) // 4) + at - 1
                        self.assertTrue(head[column].startswith(f"{sensor}("))
                        mean = sum(float(row[column]) for row in rows_of) / len(rows_of)
                        wanted = case["traces"][sensor][key][case["bins"].index(at)]
                        self.assertAlmostEqual(mean / wanted, 1, delta=1e-5)


class Files(NumbersTest):
    """One computation in every format."""

    def everything(self):
        """What is written: a file's name and its text."""
        path, _, macros = next(self.recordings())
        both = ["--main", macros[0], "--secondary", macros[1]]
        self.orvanta("compute", path, "--macro", macros[0], "--montage", self.montage, "--json", self.folder / "c.json",
                     "--csv", self.folder / "c.csv", "--spectra", self.folder / "c.xml")
        self.orvanta("compare", path, *both, "--json", self.folder / "m.json", "--csv", self.folder / "m.csv")
        self.orvanta("regress", path, "--macro", *macros, "--out", self.folder / "r.txt", "--full-spectra",
                     self.folder / "f.txt")
        self.orvanta("export", path, "--macro", *macros, "--out", self.folder / "e.txt")
        self.orvanta("info", path, "--json", self.folder / "i.json")
        return {file.name: file.read_text(encoding="utf-8") for file in self.folder.iterdir()}

    def test_json_csv_and_xml_hold_the_same_numbers(self):
        written = self.everything()
        computed = json.loads(written["c.json"])
        traces = [(kind, trace) for kind in ("sensor", "channel") for trace in computed[f"{kind}s"]]
        rows = [(row["kind"], row["trace"], row["band"], row["measure"], row["value"], row["unit"])
                for row in csv.DictReader(written["c.csv"].splitlines())]
        self.assertEqual([(*row[:4], float(row[4]), row[5]) for row in rows],
                         [(kind, trace["name"], m["band"], m["measure"], m["value"], m["unit"])
                          for kind, trace in traces for m in trace["measures"]])
        root = xml.fromstring(written["c.xml"])
        self.assertEqual([float(hz) for hz in root.find("frequencies_hz").text.split()], computed["frequencies_hz"])
        for element, (kind, trace) in zip(root.find("traces"), traces, strict=True):
            self.assertEqual((element.get("kind"), element.get("name")), (kind, trace["name"]))
            for key in ("mean", "sd"):
                self.assertEqual([float(value) for value in element.find(key).text.split()], trace[key])
            defined = [m for m in element.find("measures") if int(m.get("band")) < 5]
            self.assertEqual([(m.get("name"), float(m.text), m.get("unit")) for m in defined],
                             [(m["measure"], m["value"], m["unit"]) for m in trace["measures"]])

    def test_a_comparison_in_csv_is_that_in_json(self):
        written = self.everything()
        compared = json.loads(written["m.json"])
        rows = {(row["trace"], row["band"], row["measure"]): float(row["value"])
                for row in csv.DictReader(written["m.csv"].splitlines())}
        for trace in compared["sensors"]:
            for band in compared["bands"][:4]:
                key = trace["name"], band["name"]
                p = [p for hz, p in zip(compared["frequencies_hz"], trace["p"]) if band["low_hz"] <= hz < band["high_hz"]]
                marked = 100 * sum(value < 0.05 for value in p) / len(p)
                self.assertAlmostEqual(rows[*key, "bins with p < 0.05"], marked, places=9)
                for measure in MEASURES:
                    quotient = rows[*key, f"main {measure}"] / rows[*key, f"secondary {measure}"]
                    self.assertAlmostEqual(rows[*key, f"ratio {measure}"], quotient, places=9)

    def test_numbers_have_a_point_where_the_user_writes_a_comma(self):
        written = self.everything()
        self.environment.update(LOCPATH=str(DATA / "locale"), LC_NUMERIC="comma")
        self.environment.pop("LC_ALL", None)
        self.assertEqual(self.everything(), written)

    def test_what_is_not_computable_is_no_number(self):
        path, _, macros = next(self.recordings())
        one = ["--set", "epochs_mode=first", "--set", "epochs_count=1"]
        self.orvanta("compute", path, "--macro", macros[0], *one, "--csv", self.folder / "c.csv", "--json",
                     self.folder / "c.json", "--spectra", self.folder / "c.xml")
        rows = list(csv.DictReader((self.folder / "c.csv").read_text(encoding="utf-8").splitlines()))
        self.assertEqual({row["value"] for row in rows if row["measure"] == "CV"}, {"n/a"})
        self.assertNotIn("n/a", {row["value"] for row in rows if row["measure"] != "CV"})
        sensors = json.loads((self.folder / "c.json").read_text(encoding="utf-8"))["sensors"]
        self.assertEqual({value for sensor in sensors for value in sensor["sd"]}, {None})
        traces = xml.parse(self.folder / "c.xml").getroot().find("traces")
        self.assertEqual({value for trace in traces for value in trace.find("sd").text.split()}, {"n/a"})


if __name__ == "__main__":
    unittest.main()
