#!/usr/bin/env python3
"""The command line as a person or a script uses it.

Usage: end_to_end.py ORVANTA [unittest arguments].
"""

import csv
import io
import json
import math
import os
import pathlib
import pty
import re
import resource
import signal
import struct
import subprocess
import sys
import tempfile
import unittest

ORVANTA = sys.argv.pop(1) if len(sys.argv) > 1 else ""


class CommandLineTest(unittest.TestCase):
    """Every test has the demo recording of one minute and an empty folder."""

    @classmethod
    def setUpClass(cls):
        cls.shared = tempfile.TemporaryDirectory()
        cls.demo = pathlib.Path(cls.shared.name) / "demo.edf"
        subprocess.run([ORVANTA, "demo", "--out", cls.demo, "--minutes", "1"], check=True, capture_output=True)

    @classmethod
    def tearDownClass(cls):
        cls.shared.cleanup()

    def setUp(self):
        self.scratch = tempfile.TemporaryDirectory()
        self.addCleanup(self.scratch.cleanup)
        self.folder = pathlib.Path(self.scratch.name)

    def orvanta(self, *arguments):
        return subprocess.run([ORVANTA, *map(str, arguments)], capture_output=True, text=True, timeout=120)

    def compute(self, *arguments):
        """The JSON of a computation of the demo."""
        result = self.orvanta("compute", self.demo, "--json", "-", *arguments)
        self.assertEqual((result.returncode, result.stderr), (0, ""))
        return json.loads(result.stdout)

    def macro(self, name, *assignments):
        path = self.folder / name
        sets = [part for assignment in assignments for part in ("--set", assignment)]
        self.assertEqual(self.orvanta("macro", "new", path, *sets).returncode, 0)
        return path

    def assert_refused(self, result, pattern):
        self.assertEqual(result.returncode, 2)
        self.assertEqual(result.stdout, "")
        self.assertRegex(result.stderr, pattern)
        self.assertEqual(len(result.stderr.splitlines()), 1, result.stderr)


class Usage(CommandLineTest):
    def test_help_lists_the_commands(self):
        result = self.orvanta("--help")
        self.assertEqual(result.returncode, 0)
        for command in ("info", "demo", "compute", "compare", "export", "regress", "render", "macro"):
            self.assertIn(command, result.stdout)

    def test_every_command_has_help(self):
        for command in (
            ["info"], ["demo"], ["compute"], ["compare"], ["export"], ["regress"], ["render"], ["macro"], ["macro", "new"],
        ):
            with self.subTest(command=command):
                self.assertEqual(self.orvanta(*command, "--help").returncode, 0)

    def test_what_is_neither_a_command_nor_a_file_is_bad_usage(self):
        self.assert_refused(self.orvanta("demmo.edf"), r"^orvanta: demmo\.edf: no such command, and no such file \(.+\)$")

    def test_an_unknown_option_is_bad_usage(self):
        self.assert_refused(self.orvanta("info", self.demo, "--nonsense"), r"^orvanta: .*--nonsense")

    def test_a_missing_file_is_refused_in_one_line(self):
        result = self.orvanta("info", self.folder / "none.edf")
        self.assert_refused(result, r"^orvanta: .*none\.edf: .+ \(.+\)$")

    def test_a_folder_is_refused(self):
        self.assert_refused(self.orvanta("compute", self.folder), r"^orvanta: .+: .+ \(.+\)$")

    def test_an_empty_file_is_refused(self):
        path = self.folder / "empty.edf"
        path.touch()
        self.assert_refused(self.orvanta("info", path), r"empty\.edf: .*empty.* \(.+\)$")

    def test_an_unwritable_output_is_refused_before_anything_is_computed(self):
        out = self.folder / "no" / "such" / "out.json"
        one = self.macro("one.smx", "contrast=1", "mode=states", "states=nothing of that name")
        for arguments in (
            ("compute", self.demo, "--macro", one, "--json", out),
            ("compare", self.demo, "--main", one, "--secondary", one, "--csv", out),
            ("regress", self.demo, "--macro", one, one, "--out", out),
            ("export", self.demo, "--macro", one, "--out", out),
        ):
            with self.subTest(command=arguments[0]):
                # These settings could not be computed either.
                self.assert_refused(self.orvanta(*arguments), r"^orvanta: .+out\.json: .+ \(.+\)$")

    def test_help_explains_every_setting(self):
        help_text = self.orvanta("compute", "--help").stdout
        shown = self.orvanta("macro", "show", self.macro("m.smx")).stdout
        for line in shown.splitlines():
            key = line.split("=")[0]
            self.assertRegex(help_text, rf"\n  {key}=\S* +[a-z]", key)

    def test_help_fits_into_a_terminal(self):
        for command in ([], ["compute"], ["regress"], ["export"], ["render"], ["demo"]):
            for line in self.orvanta(*command, "--help").stdout.splitlines():
                self.assertLessEqual(len(line), 130, line)


class Outputs(CommandLineTest):
    """What is read, and what is written already, is never replaced."""

    def test_the_recording_is_not_written_over(self):
        before = self.demo.read_bytes()
        for option in ("--json", "--csv", "--spectra"):
            with self.subTest(option=option):
                result = self.orvanta("compute", self.demo, option, self.demo)
                self.assert_refused(result, rf"demo\.edf: is read by this command .*{option}")
                self.assertEqual(self.demo.read_bytes(), before)

    def test_a_link_to_the_recording_is_not_written_over(self):
        link = self.folder / "link.json"
        link.symlink_to(self.demo)
        self.assert_refused(self.orvanta("compute", self.demo, "--json", link), r"is read by this command")

    def test_the_macro_is_not_written_over(self):
        macro = self.macro("m.smx")
        result = self.orvanta("compute", self.demo, "--macro", macro, "--json", macro)
        self.assert_refused(result, r"m\.smx: is read by this command")

    def test_the_montage_file_is_not_written_over(self):
        montage = self.folder / "mine.txt"
        montage.write_text("back = +O1 -O2\n")
        result = self.orvanta("compute", self.demo, "--montage", montage, "--csv", montage)
        self.assert_refused(result, r"mine\.txt: is read by this command")

    def test_the_events_table_is_not_written_over(self):
        recording = self.folder / "night.edf"
        recording.write_bytes(self.demo.read_bytes())
        table = self.folder / "night_events.tsv"
        table.write_text("onset\tduration\ttrial_type\n1\t2\tspindle\n")
        self.assert_refused(self.orvanta("compute", recording, "--csv", table), r"events\.tsv: is read")

    def test_two_outputs_need_two_names(self):
        out = self.folder / "out"
        result = self.orvanta("compute", self.demo, "--json", out, "--csv", out)
        self.assert_refused(result, r"out: is named by --json and by --csv")

    def test_standard_output_takes_one(self):
        self.assert_refused(self.orvanta("compute", self.demo, "--json", "-", "--csv", "-"), r"^orvanta: -: is named")

    def test_an_empty_name_is_refused(self):
        for option in ("--json", "--csv", "--spectra"):
            with self.subTest(option=option):
                self.assert_refused(self.orvanta("compute", self.demo, option, ""), option)

    def test_a_demo_replaces_no_other_recording(self):
        other = self.folder / "patient.edf"
        head = bytearray(self.demo.read_bytes())
        head[8:88] = b"X F 02-MAR-1951 Someone".ljust(80)
        other.write_bytes(head)
        self.assert_refused(self.orvanta("demo", "--out", other), r"patient\.edf: exists and is no demo recording")
        self.assertEqual(other.read_bytes(), bytes(head))

    def test_a_demo_replaces_a_demo(self):
        again = self.folder / "demo.edf"
        again.write_bytes(self.demo.read_bytes())
        self.assertEqual(self.orvanta("demo", "--out", again, "--minutes", "1").returncode, 0)

    def test_an_interrupt_leaves_nothing_behind(self):
        arguments = [ORVANTA, "demo", "--out", self.folder / "long.edf", "--minutes", "600", "--channels", "64"]
        process = subprocess.Popen(arguments, stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True)
        while not list(self.folder.iterdir()):
            self.assertIsNone(process.poll())
        process.send_signal(signal.SIGINT)
        errors = process.communicate(timeout=60)[1]
        self.assertEqual((process.returncode, errors), (130, "orvanta: interrupted (nothing was written)\n"))
        self.assertEqual(list(self.folder.iterdir()), [])


class Info(CommandLineTest):
    def test_tells_rate_and_duration(self):
        result = self.orvanta("info", self.demo, "--json", "-")
        info = json.loads(result.stdout)
        self.assertEqual(list(info)[:5], ["file", "format", "duration_s", "start", "rate_hz"])
        self.assertEqual((info["format"], info["duration_s"], info["rate_hz"]), ("EDF+C", 60.0, 256.0))

    def test_sensors_have_names_types_and_positions(self):
        info = json.loads(self.orvanta("info", self.demo, "--json", "-").stdout)
        sensors = {sensor["name"]: sensor for sensor in info["sensors"]}
        self.assertEqual(sensors["O1"]["type"], "eeg")
        self.assertTrue(sensors["O1"]["is_eeg"])
        self.assertEqual(sensors["O1"]["unit"], "µV")
        self.assertLess(sensors["O1"]["position"]["x"], 0)

    def test_state_events_have_durations(self):
        info = json.loads(self.orvanta("info", self.demo, "--json", "-").stdout)
        closed = [event for event in info["events"] if event["label"] == "eyes closed"]
        self.assertTrue(closed)
        self.assertEqual(closed[0]["class"], "state")
        self.assertGreater(closed[0]["duration_s"], 0)

    def test_text_names_the_montages(self):
        self.assertIn("As recorded", self.orvanta("info", self.demo).stdout)


class Demo(CommandLineTest):
    def test_is_the_same_every_time(self):
        other = self.folder / "again.edf"
        self.orvanta("demo", "--out", other, "--minutes", "1")
        self.assertEqual(other.read_bytes(), self.demo.read_bytes())

    def test_another_seed_is_another_recording(self):
        other = self.folder / "seed.edf"
        self.orvanta("demo", "--out", other, "--minutes", "1", "--seed", "7")
        self.assertNotEqual(other.read_bytes(), self.demo.read_bytes())

    def test_makes_the_channels_and_rate_asked_for(self):
        other = self.folder / "wide.edf"
        self.orvanta("demo", "--out", other, "--minutes", "1", "--channels", "64", "--rate", "512")
        info = json.loads(self.orvanta("info", other, "--json", "-").stdout)
        eeg = [sensor for sensor in info["sensors"] if sensor["is_eeg"]]
        self.assertEqual((len(eeg), info["rate_hz"]), (64, 512.0))

    def test_zero_channels_are_refused(self):
        self.assert_refused(self.orvanta("demo", "--out", self.folder / "x.edf", "--channels", "0"), r"channels")


class Compute(CommandLineTest):
    def test_keys_stand_in_their_order(self):
        keys = list(self.compute())
        wanted = ["file", "settings", "entity", "unit", "rate_hz", "fft_samples", "resolution_hz", "fft_count",
                  "epochs", "frequencies_hz", "sensors", "channels", "bands", "total_band", "repairs"]
        self.assertEqual([key for key in keys if key in wanted], wanted)

    def test_one_minute_of_two_second_windows_half_overlapping(self):
        result = self.compute()
        self.assertEqual((result["fft_samples"], result["resolution_hz"]), (512, 0.5))
        self.assertEqual(result["fft_count"], 59)
        self.assertEqual(result["epochs"][1], {"begin_s": 1.0, "end_s": 3.0})

    def test_frequencies_end_at_nyquist(self):
        frequencies = self.compute()["frequencies_hz"]
        self.assertEqual((len(frequencies), frequencies[0], frequencies[-1]), (257, 0.0, 128.0))

    def test_every_trace_has_a_value_per_frequency(self):
        result = self.compute()
        for trace in result["sensors"] + result["channels"]:
            self.assertEqual((len(trace["mean"]), len(trace["sd"])), (257, 257))

    def test_alpha_stands_out_at_the_back_with_closed_eyes(self):
        closed = self.compute("--set", "mode=states", "--set", "states=eyes closed")
        peak = next(m["value"] for s in closed["sensors"] if s["name"] == "O1" for m in s["measures"]
                    if (m["band"], m["measure"]) == ("Alpha", "Peak F"))
        self.assertAlmostEqual(peak, 10.0, delta=0.5)

    def test_alpha_is_smaller_with_open_eyes(self):
        def alpha(state):
            result = self.compute("--set", "mode=states", "--set", f"states={state}")
            return next(m["value"] for s in result["sensors"] if s["name"] == "O1" for m in s["measures"]
                        if (m["band"], m["measure"]) == ("Alpha", "Abs"))
        self.assertGreater(alpha("eyes closed"), 3 * alpha("eyes open"))

    def test_threads_do_not_change_a_byte(self):
        one, four = (self.orvanta("compute", self.demo, "--json", "-", "--threads", n).stdout for n in (1, 4))
        self.assertEqual(one, four)

    def test_double_precision_agrees_with_float(self):
        single, double = self.compute(), self.compute("--precision", "double")
        for a, b in zip(single["sensors"], double["sensors"]):
            largest = max(b["mean"])
            self.assertLess(max(abs(x - y) for x, y in zip(a["mean"], b["mean"])), 1e-6 * largest)

    def test_a_macro_file_gives_the_numbers_of_the_same_settings(self):
        settings = ["fft_seconds=1", "overlap=25", "window=Hamming"]
        macro = self.macro("m.smx", *settings)
        sets = [part for setting in settings for part in ("--set", setting)]
        self.assertEqual(self.compute("--macro", macro), self.compute(*sets))

    def test_coherence_of_a_bipolar_montage_lies_between_0_and_1(self):
        result = self.compute("--montage", "Longitudinal bipolar", "--entity", "coherence")
        values = [value for channel in result["channels"] for value in channel["mean"]]
        self.assertTrue(all(0 <= value <= 1 for value in values))

    def test_coherence_without_pairs_is_not_computable(self):
        result = self.orvanta("compute", self.demo, "--entity", "coherence")
        self.assertEqual((result.returncode, result.stdout), (1, ""))
        self.assertRegex(result.stderr, r"^orvanta: .+coherence.+\(.+--montage\)\n$")

    def test_no_epoch_is_not_computable(self):
        result = self.orvanta("compute", self.demo, "--set", "fft_seconds=100")
        self.assertEqual((result.returncode, result.stdout), (1, ""))
        self.assertRegex(result.stderr, r"^orvanta: .+demo\.edf: .+ 100 s \(.+\)\n$")

    def test_an_unknown_montage_is_refused_with_the_names(self):
        self.assert_refused(self.orvanta("compute", self.demo, "--montage", "nonsense"), r'nonsense: .*"As recorded"')

    def own_montages(self, **files):
        """The environment of a user who keeps these montages."""
        folder = self.folder / "data" / "orvanta" / "MONTAGE"
        folder.mkdir(parents=True)
        for name, text in files.items():
            (folder / f"{name}.mtg").write_text(text)
        return {**os.environ, "XDG_DATA_HOME": str(self.folder / "data")}

    def run_in(self, environment, *arguments):
        return subprocess.run([ORVANTA, *map(str, arguments)], capture_output=True, text=True, timeout=120, env=environment)

    def test_a_montage_of_the_user_is_taken_by_its_name(self):
        mine = self.own_montages(Back="back = +O1 -O2\n")
        result = json.loads(self.run_in(mine, "compute", self.demo, "--montage", "back", "--json", "-").stdout)
        self.assertEqual([channel["name"] for channel in result["channels"]], ["back"])

    def test_a_montage_of_the_user_that_does_not_fit_says_why(self):
        mine = self.own_montages(Other="a = +E17 -E18\n")
        result = self.run_in(mine, "compute", self.demo, "--montage", "Other")
        self.assert_refused(result, r"Other\.mtg: line 1: .*E17.* \(.+\)$")

    def test_the_names_of_an_unknown_montage_include_the_users(self):
        mine = self.own_montages(Back="back = +O1 -O2\n", Other="a = +E17 -E18\n")
        result = self.run_in(mine, "compute", self.demo, "--montage", "nonsense")
        self.assert_refused(result, r'"Reference Cz", "Back", "Reference" and an electrode')

    def test_a_montage_of_the_user_is_not_written_over(self):
        mine = self.own_montages(Back="back = +O1 -O2\n")
        file = self.folder / "data" / "orvanta" / "MONTAGE" / "Back.mtg"
        result = self.run_in(mine, "compute", self.demo, "--montage", "Back", "--csv", file)
        self.assert_refused(result, r"is read by this command")

    def test_info_lists_the_montages_of_the_user_and_what_is_wrong_with_others(self):
        mine = self.own_montages(Back="back = +O1 -O2\n", Other="a = +E17 -E18\n", Broken="nonsense\n")
        text = self.run_in(mine, "info", self.demo).stdout
        self.assertRegex(text, r"\nYour own montages: +Back\n")
        self.assertRegex(text, r"\nMontage left out: .*Broken\.mtg: line 1: .+ \(.+\)\n")
        described = json.loads(self.run_in(mine, "info", self.demo, "--json", "-").stdout)
        self.assertEqual(described["own_montages"], ["Back"])

    def test_a_montage_file_is_taken(self):
        montage = self.folder / "mine.txt"
        montage.write_text("[Mine]\nback = +O1 -O2\n")
        result = self.compute("--montage", montage)
        self.assertEqual([channel["name"] for channel in result["channels"]], ["back"])

    def test_another_montage_of_the_file_is_taken_by_name(self):
        montage = self.folder / "mine.txt"
        montage.write_text("[Mine]\nback = +O1 -O2\n[Front]\nfront = +Fp1 -Fp2\n")
        result = self.compute("--montage", f"{montage}:Front")
        self.assertEqual([channel["name"] for channel in result["channels"]], ["front"])

    def test_any_electrode_can_be_the_reference(self):
        result = self.compute("--montage", "Reference F3")
        self.assertEqual(result["montage"], "Reference F3")
        self.assertIn("O1-F3", [channel["name"] for channel in result["channels"]])

    def test_a_label_that_the_recording_lacks_is_a_warning(self):
        result = self.orvanta("compute", self.demo, "--quiet", "--set", "mode=states",
                              "--set", "states=eyes closed,eyes shut", "--set", "reject=bad blnk")
        self.assertEqual(result.returncode, 0)
        self.assertEqual(result.stderr.splitlines(),
                         ['orvanta: warning: the recording has no state event "eyes shut"',
                          'orvanta: warning: the recording has no event to reject "bad blnk"'])

    def test_a_label_of_the_other_class_is_told(self):
        result = self.orvanta("compute", self.demo, "--set", "mode=states", "--set", "states=tone")
        self.assertIn('no state event "tone" (but spot events of that name)', result.stderr)
        self.assertEqual(result.returncode, 1)

    def test_csv_is_long_form(self):
        result = self.orvanta("compute", self.demo, "--csv", "-")
        rows = list(csv.DictReader(io.StringIO(result.stdout)))
        self.assertEqual(list(rows[0]), ["trace", "kind", "band", "measure", "value", "unit"])
        self.assertEqual({row["band"] for row in rows}, {"Delta", "Theta", "Alpha", "Beta", "Gamma"})

    def test_the_table_has_a_row_per_channel(self):
        lines = self.orvanta("compute", self.demo).stdout.splitlines()
        self.assertTrue(any(line.startswith("O1 ") for line in lines))

    def test_the_hint_on_bad_events_keeps_what_is_left_out_already(self):
        text = self.orvanta("compute", self.demo, "--set", "reject=tone").stdout
        self.assertIn('--set "reject=bad blink,tone"', text)

    def test_quiet_prints_nothing(self):
        result = self.orvanta("compute", self.demo, "--quiet")
        self.assertEqual((result.returncode, result.stdout, result.stderr), (0, "", ""))

    def test_a_pipe_sees_no_progress(self):
        self.assertEqual(self.orvanta("compute", self.demo).stderr, "")


class Compare(CommandLineTest):
    def compared(self, *arguments):
        closed = self.macro("closed.smx", "mode=states", "states=eyes closed")
        opened = self.macro("open.smx", "mode=states", "states=eyes open")
        result = self.orvanta("compare", self.demo, "--main", closed, "--secondary", opened, *arguments)
        self.assertEqual((result.returncode, result.stderr), (0, ""))
        return result.stdout

    def test_json_has_the_test_per_bin(self):
        result = json.loads(self.compared("--json", "-"))
        trace = result["sensors"][0]
        for key in ("p", "ratio", "t", "df"):
            self.assertEqual(len(trace[key]), len(result["frequencies_hz"]))

    def test_effective_epochs_are_fewer_than_the_epochs(self):
        result = json.loads(self.compared("--json", "-"))
        self.assertLess(result["n_eff"]["main"], result["fft_count"])
        self.assertGreater(result["n_eff"]["main"], 1)

    def test_alpha_differs_at_the_back(self):
        result = json.loads(self.compared("--json", "-"))
        alpha = result["frequencies_hz"].index(10.0)
        back = next(sensor for sensor in result["sensors"] if sensor["name"] == "O1")
        self.assertLess(back["p"][alpha], 0.001)
        self.assertGreater(back["ratio"][alpha], 3)

    def test_shared_time_is_a_warning(self):
        macro = self.macro("all.smx")
        closed = self.macro("closed.smx", "mode=states", "states=eyes closed")
        result = self.orvanta("compare", self.demo, "--main", macro, "--secondary", closed, "--quiet")
        self.assertRegex(result.stderr, r"^orvanta: warning: the two analyses share 30\.0 s of the recording; p .+\n$")

    def test_the_side_without_epochs_is_named(self):
        macro = self.macro("all.smx")
        none = self.macro("none.smx", "fft_seconds=300")
        result = self.orvanta("compare", self.demo, "--main", macro, "--secondary", none)
        self.assertEqual(result.returncode, 1)
        self.assertRegex(result.stderr, r"demo\.edf with .*none\.smx: ")

    def test_phase_has_no_p(self):
        result = json.loads(self.compared("--json", "-", "--entity", "phase", "--montage", "Longitudinal bipolar"))
        self.assertEqual(set(result["channels"][0]["p"]), {None})

    def test_the_table_names_both_settings(self):
        text = self.compared()
        self.assertIn("closed", text)
        self.assertIn("open", text)


class Export(CommandLineTest):
    """The demo has 19 sensors at 256 Hz; windows of one second have 127 bins between the first and the last."""

    FIELDS = 19 * 127

    def setUp(self):
        super().setUp()
        self.text = self.folder / "out.txt"
        self.rest = self.macro("rest.smx", "fft_seconds=1", "overlap=0", "contrast=1")

    def export(self, *arguments):
        """The lines of the file, each as its fields."""
        result = self.orvanta("export", self.demo, "--out", self.text, *arguments)
        self.assertEqual((result.returncode, result.stderr), (0, ""))
        content = self.text.read_bytes().decode("utf-8")
        self.assertTrue(content.endswith("\t\n"))
        self.assertNotIn("\r", content)
        lines = content.split("\n")[:-1]
        self.assertTrue(all(line.endswith("\t") for line in lines))
        return [line.split("\t")[:-1] for line in lines]

    def test_a_line_per_epoch_follows_the_header(self):
        header, *epochs = self.export("--macro", self.rest)
        self.assertEqual(header[:5], ["Macro", "Contrast", "Fp1(1)", "Fp1(2)", "Fp1(3)"])
        self.assertEqual(len(epochs), 60)
        self.assertEqual({len(line) for line in [header, *epochs]}, {2 + self.FIELDS})
        self.assertEqual({tuple(line[:2]) for line in epochs}, {("rest", "1")})

    def test_the_mean_over_the_lines_is_the_mean_spectrum(self):
        _, *epochs = self.export("--macro", self.rest)
        sensors = self.compute("--macro", self.rest)["sensors"]
        expected = [value for trace in sensors for value in trace["mean"][1:128]]
        self.assertEqual(len(expected), self.FIELDS)
        for column, value in enumerate(expected):
            mean = sum(float(line[2 + column]) for line in epochs) / len(epochs)
            self.assertAlmostEqual(mean / value, 1, delta=1e-5)

    def test_amplitude_is_the_root_of_power(self):
        power = self.export("--macro", self.rest, "--no-header")
        amplitude = self.export("--macro", self.rest, "--no-header", "--entity", "amplitude")
        for ours, other in zip(amplitude[7][2:], power[7][2:], strict=True):
            self.assertAlmostEqual(float(ours) ** 2 / float(other), 1, delta=2e-5)

    def test_analyses_follow_each_other(self):
        task = self.macro("task.smx", "fft_seconds=1", "overlap=50", "contrast=-2")
        together = self.export("--macro", self.rest, task)
        self.assertEqual(together, self.export("--macro", self.rest, "--macro", task))
        self.assertEqual([line[:2] for line in together[1:]], [["rest", "1"]] * 60 + [["task", "-2"]] * 119)
        self.assertEqual(together[1][2:], together[61][2:])

    def test_header_contrast_and_name_can_be_left_out(self):
        whole = self.export("--macro", self.rest)
        self.assertEqual(self.export("--macro", self.rest, "--no-header"), whole[1:])
        self.assertEqual(self.export("--macro", self.rest, "--no-name"), [line[1:] for line in whole])
        self.assertEqual(self.export("--macro", self.rest, "--no-contrast"), [line[:1] + line[2:] for line in whole])
        bare = self.export("--macro", self.rest, "--no-header", "--no-contrast", "--no-name")
        self.assertEqual(bare, [line[2:] for line in whole[1:]])

    def test_threads_do_not_change_a_byte(self):
        self.export("--macro", self.rest, "--threads", 1)
        one = self.text.read_bytes()
        self.export("--macro", self.rest, "--threads", 4)
        self.assertEqual(self.text.read_bytes(), one)

    def test_tells_what_was_written(self):
        result = self.orvanta("export", self.demo, "--macro", self.rest, "--out", self.text)
        self.assertEqual(result.stdout, f"{self.rest}: 60 epochs\n{self.text}: 19 sensors, 256 FFT samples\n")
        result = self.orvanta("export", self.demo, "--macro", self.rest, "--out", self.text, "--quiet")
        self.assertEqual((result.returncode, result.stdout, result.stderr), (0, "", ""))

    def test_other_bins_are_refused(self):
        other = self.macro("other.smx", "fft_seconds=2")
        result = self.orvanta("export", self.demo, "--macro", self.rest, other, "--out", self.text)
        self.assertEqual((result.returncode, result.stdout), (1, ""))
        self.assertRegex(result.stderr, r"rest\.smx and .*other\.smx: their bins differ, .+ \(.*fft_seconds.*\)$")
        self.assertFalse(self.text.exists())

    def test_no_epoch_is_not_computable(self):
        empty = self.macro("empty.smx", "fft_seconds=1", "mode=states", "states=no such event")
        result = self.orvanta("export", self.demo, "--macro", empty, "--out", self.text, "--quiet")
        self.assertEqual(result.returncode, 1)
        self.assertRegex(result.stderr, r"demo\.edf with .*empty\.smx: no accepted state event")
        self.assertFalse(self.text.exists())

    def test_nothing_that_is_read_is_written_over(self):
        before = self.demo.read_bytes()
        for target in (self.demo, self.rest):
            result = self.orvanta("export", self.demo, "--macro", self.rest, "--out", target)
            self.assert_refused(result, r"is read by this command .*--out")
        self.assertEqual(self.demo.read_bytes(), before)

    def test_a_file_name_is_needed(self):
        self.assert_refused(self.orvanta("export", self.demo, "--macro", self.rest), r"--out is required")
        self.assert_refused(self.orvanta("export", self.demo, "--out", self.text), r"--macro is required")
        for name in ("", "-"):
            result = self.orvanta("export", self.demo, "--macro", self.rest, "--out", name)
            self.assert_refused(result, r"--out: needs a file name")

    def test_coherence_is_refused(self):
        result = self.orvanta("export", self.demo, "--macro", self.rest, "--out", self.text, "--entity", "coherence")
        self.assert_refused(result, r"--entity: coherence not in \{power,amplitude\}")

    def test_a_folder_that_does_not_exist_is_refused(self):
        target = self.folder / "none" / "out.txt"
        result = self.orvanta("export", self.demo, "--macro", self.rest, "--out", target, "--quiet")
        self.assert_refused(result, r"out\.txt: cannot be written: No such file or directory \(.+\)$")

    def test_a_full_disk_leaves_the_old_file(self):
        self.text.write_text("old")
        limit = lambda: (  # noqa: E731
            signal.signal(signal.SIGXFSZ, signal.SIG_IGN),
            resource.setrlimit(resource.RLIMIT_FSIZE, (100_000, 100_000)),
        )
        result = subprocess.run(
            [ORVANTA, "export", self.demo, "--macro", self.rest, "--out", self.text, "--quiet"],
            capture_output=True, text=True, timeout=120, preexec_fn=limit,
        )
        self.assert_refused(result, r"out\.txt: cannot be written: File too large")
        self.assertEqual(self.text.read_text(), "old")
        self.assertEqual(sorted(file.name for file in self.folder.iterdir()), ["out.txt", "rest.smx"])

    def test_an_interrupt_leaves_the_old_file(self):
        long = self.folder / "long.edf"
        self.assertEqual(self.orvanta("demo", "--out", long, "--minutes", "60").returncode, 0)
        self.text.write_text("old")
        before = set(self.folder.iterdir())
        process = subprocess.Popen(
            [ORVANTA, "export", long, "--macro", self.rest, "--out", self.text],
            stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True,
        )
        while set(self.folder.iterdir()) == before:  # until the temporary file is there
            self.assertIsNone(process.poll())
        process.send_signal(signal.SIGINT)
        errors = process.communicate(timeout=60)[1]
        self.assertEqual((process.returncode, errors), (130, "orvanta: interrupted (nothing was written)\n"))
        self.assertEqual(set(self.folder.iterdir()), before)
        self.assertEqual(self.text.read_text(), "old")


class Regress(CommandLineTest):
    HEAD = ["sensor", "freq_hz", "r", "k", "m", "count"]

    def setUp(self):
        super().setUp()
        self.text = self.folder / "out.txt"
        self.closed = self.macro("closed.smx", "mode=states", "states=eyes closed", "contrast=1")
        self.open = self.macro("open.smx", "mode=states", "states=eyes open", "contrast=0")
        self.both = ["--macro", self.closed, "--macro", self.open]

    def regress(self, *arguments, recording=None):
        """The rows of the file."""
        result = self.orvanta("regress", recording or self.demo, "--out", self.text, *arguments)
        self.assertEqual((result.returncode, result.stderr), (0, ""))
        with open(self.text, encoding="utf-8", newline="") as file:
            rows = list(csv.reader(file, delimiter="\t"))
        self.assertEqual(rows[0], self.HEAD)
        return [dict(zip(self.HEAD, row, strict=True)) for row in rows[1:]]

    def assert_not_computable(self, result, pattern):
        self.assertEqual((result.returncode, result.stdout), (1, ""))
        self.assertRegex(result.stderr, pattern)
        self.assertEqual(len(result.stderr.splitlines()), 1, result.stderr)
        self.assertFalse(self.text.exists())

    def known_slope(self, names=("O1", "Cz")):
        """An EDF at 64 Hz with four states of ten seconds, named by their contrast values. The first channel has
        a sine of 10 Hz in 1/s epochs of power 10^((contrast - 1) / 2) at 10 Hz: contrast = 2 log10 power + 1.
        The second one is flat."""
        contrasts, seconds, rate, most = (-1, 1, 3, 5), 10, 64, 100.0
        edf = self.folder / "slope.edf"
        fields = [(b"0", 8), (b"", 80), (b"", 80), (b"01.01.20", 8), (b"00.00.00", 8), (b"768", 8), (b"", 44),
                  (b"40", 8), (b"1", 8), (b"2", 4)]
        channels = [[name.encode() for name in names], [b""] * 2, [b"uV"] * 2, [b"-100"] * 2, [b"100"] * 2,
                    [b"-32768"] * 2, [b"32767"] * 2, [b""] * 2, [b"64"] * 2, [b""] * 2]
        widths = (16, 80, 8, 8, 8, 8, 8, 80, 8, 32)
        head = b"".join(text.ljust(width) for text, width in fields)
        head += b"".join(text.ljust(width) for texts, width in zip(channels, widths, strict=True) for text in texts)
        zero = round(32767.5 - 32768)
        data = bytearray()
        for second in range(len(contrasts) * seconds):
            amplitude = math.sqrt(2 * 10 ** ((contrasts[second // seconds] - 1) / 2))
            sine = [amplitude * math.sin(2 * math.pi * 10 * i / rate) for i in range(rate)]
            values = [round((value + most) / (2 * most) * 65535 - 32768) for value in sine] + [zero] * rate
            data += struct.pack(f"<{len(values)}h", *values)
        edf.write_bytes(head + bytes(data))
        lines = [f"{i * seconds}\t{seconds}\tc{contrast}" for i, contrast in enumerate(contrasts)]
        (self.folder / "slope_events.tsv").write_text("onset\tduration\ttrial_type\n" + "\n".join(lines) + "\n")
        macros = [self.macro(f"c{contrast}.smx", "fft_seconds=1", "overlap=0", "window=Rectangular", "mode=states",
                             f"states=c{contrast}", f"contrast={contrast}") for contrast in contrasts]
        return edf, [part for macro in macros for part in ("--macro", macro)]

    def test_a_known_slope_is_found(self):
        edf, macros = self.known_slope()
        rows = self.regress(*macros, "--low", "10", "--high", "10", recording=edf)
        self.assertEqual([(row["sensor"], row["freq_hz"]) for row in rows], [("O1", "10"), ("Cz", "10")])
        for column, expected in (("r", 1), ("k", 2), ("m", 1)):
            self.assertAlmostEqual(float(rows[0][column]), expected, places=3)
        self.assertEqual(rows[0]["count"], "40")

    def test_what_has_no_power_is_not_available(self):
        edf, macros = self.known_slope()
        flat = self.regress(*macros, "--low", "10", "--high", "10", recording=edf)[1]
        self.assertEqual([flat[column] for column in self.HEAD[2:]], ["n/a", "n/a", "n/a", "0"])

    def test_every_sensor_has_a_row_for_every_bin_of_the_range(self):
        rows = self.regress(*self.both, "--low", "4", "--high", "12")
        sensors = list(dict.fromkeys(row["sensor"] for row in rows))
        self.assertEqual(len(sensors), 19)
        bins = [4 + i / 2 for i in range(17)]
        self.assertEqual([(row["sensor"], float(row["freq_hz"])) for row in rows],
                         [(sensor, hz) for sensor in sensors for hz in bins])

    def test_the_range_is_1_to_32_hz_unless_told(self):
        rows = self.regress(*self.both)
        self.assertEqual((rows[0]["freq_hz"], rows[-1]["freq_hz"]), ("1", "32"))

    def test_the_first_macro_gives_the_sensors_and_one_option_may_name_them_all(self):
        once = self.regress("--macro", self.closed, self.open)
        self.assertEqual(once, self.regress(*self.both))

    def test_the_full_spectra_are_what_was_fitted(self):
        full = self.folder / "full.txt"
        rows = self.regress(*self.both, "--low", "10", "--high", "10", "--full-spectra", full)
        with open(full, encoding="utf-8", newline="") as file:
            epochs = [row for row in csv.DictReader(file, delimiter="\t") if row["sensor"] == "O1"]
        x = [math.log10(float(row["10"])) for row in epochs]
        y = [float(row["contrast"]) for row in epochs]
        mean_x, mean_y = sum(x) / len(x), sum(y) / len(y)
        slope = sum((a - mean_x) * (b - mean_y) for a, b in zip(x, y)) / sum((a - mean_x) ** 2 for a in x)
        fitted = next(row for row in rows if row["sensor"] == "O1")
        self.assertEqual(fitted["count"], str(len(epochs)))
        self.assertAlmostEqual(slope, float(fitted["k"]), places=7)
        self.assertAlmostEqual(mean_y - slope * mean_x, float(fitted["m"]), places=7)
        self.assertEqual(list(epochs[0])[:8], ["analysis", "contrast", "epoch", "begin_s", "end_s", "sensor", "0", "0.5"])
        self.assertEqual({row["analysis"] for row in epochs}, {"closed", "open"})

    def test_alpha_at_the_back_tells_the_eyes_apart(self):
        text = self.orvanta("regress", self.demo, *self.both, "--out", self.text).stdout
        self.assertIn("closed: contrast value 1, 29 epochs\nopen: contrast value 0, 29 epochs\n", text)
        strongest = text.splitlines()[7].split()
        self.assertIn(strongest[0], ("O1", "O2", "P3", "Pz", "P4", "P7", "P8"))
        self.assertAlmostEqual(float(strongest[1]), 10, delta=0.5)
        self.assertGreater(float(strongest[2]), 0.8)

    def test_standard_output_takes_the_file_and_nothing_else(self):
        self.regress(*self.both)
        result = self.orvanta("regress", self.demo, *self.both, "--out", "-")
        self.assertEqual((result.returncode, result.stderr), (0, ""))
        self.assertEqual(result.stdout, self.text.read_text(encoding="utf-8"))

    def test_threads_and_memory_do_not_change_a_byte(self):
        self.regress(*self.both, "--threads", "1")
        expected = self.text.read_bytes()
        self.regress(*self.both, "--threads", "4", "--memory", "16")
        self.assertEqual(self.text.read_bytes(), expected)

    def test_quiet_prints_nothing(self):
        result = self.orvanta("regress", self.demo, *self.both, "--out", self.text, "--quiet")
        self.assertEqual((result.returncode, result.stdout, result.stderr), (0, "", ""))

    def test_one_analysis_is_bad_usage(self):
        result = self.orvanta("regress", self.demo, "--macro", self.closed, "--out", self.text)
        self.assert_refused(result, r"^orvanta: --macro: .+ two contrast values \(.+\)$")

    def test_no_output_is_bad_usage(self):
        self.assert_refused(self.orvanta("regress", self.demo, *self.both), r"--out is required")

    def test_a_range_upside_down_is_bad_usage(self):
        result = self.orvanta("regress", self.demo, *self.both, "--out", self.text, "--low", "20", "--high", "10")
        self.assert_refused(result, r"^orvanta: --low 20: is above --high 10 \(.+\)$")

    def test_frequencies_are_whole_and_within_their_range(self):
        for option, value in (("--low", "-1"), ("--low", "257"), ("--low", "1.5"), ("--high", "0"), ("--high", "x"),
                              ("--high", "32768"), ("--high", "99999999999")):
            with self.subTest(option=option, value=value):
                result = self.orvanta("regress", self.demo, *self.both, "--out", self.text, option, value)
                limits = "0 to 256" if option == "--low" else "1 to 32767"
                self.assert_refused(result, f"^orvanta: {option}: {value} is no whole number from {limits} ")

    def test_a_terminal_shows_progress_with_a_rate_and_the_results_below(self):
        terminal, output = pty.openpty()
        arguments = ["regress", self.demo, *self.both, "--out", self.text, "--full-spectra", self.folder / "full.txt"]
        with subprocess.Popen([ORVANTA, *map(str, arguments)], stdout=output, stderr=output) as process:
            os.close(output)
            shown = b""
            try:
                while piece := os.read(terminal, 4096):
                    shown += piece
            except OSError:  # the other end is closed
                pass
            os.close(terminal)
        self.assertEqual(process.returncode, 0)
        progress = r"Writing spectra  100 %  ([0-9.e+]+) recorded min/s  in [^\r\n]*\x1b\[K\r\n"
        match = re.search(progress + "demo.edf: ", shown.decode())
        self.assertIsNotNone(match, shown)
        self.assertGreater(float(match[1]), 0)

    def test_equal_contrast_values_are_not_computable(self):
        same = self.macro("same.smx", "mode=states", "states=eyes open", "contrast=1")
        result = self.orvanta("regress", self.demo, "--macro", self.closed, same, "--out", self.text)
        self.assert_not_computable(result, r"demo\.edf with .*closed\.smx, .*same\.smx: all epochs have the contrast value "
                                           r"1, .+ \(.+contrast.+\)$")

    def test_a_range_beyond_the_spectrum_is_not_computable(self):
        result = self.orvanta("regress", self.demo, *self.both, "--out", self.text, "--low", "129", "--high", "200")
        self.assert_not_computable(result, r"no bin from 129 to 200 Hz \(bins lie 0\.5 Hz apart up to 128 Hz; .+\)$")

    def test_no_scalp_sensor_is_not_computable(self):
        edf, macros = self.known_slope(names=("EEG one", "EEG two"))
        result = self.orvanta("regress", edf, *macros, "--out", self.text)
        self.assert_not_computable(result, r"slope\.edf: has no EEG sensor with a known scalp position \(.+\)$")

    def test_other_bins_are_not_computable(self):
        coarse = self.macro("coarse.smx", "mode=states", "states=eyes open", "fft_seconds=4")
        result = self.orvanta("regress", self.demo, "--macro", self.closed, coarse, "--out", self.text)
        self.assert_not_computable(result, r"closed\.smx and .*coarse\.smx: their bins differ")

    def test_no_epoch_is_not_computable(self):
        none = self.macro("none.smx", "fft_seconds=100")
        result = self.orvanta("regress", self.demo, "--macro", none, self.open, "--out", self.text)
        self.assert_not_computable(result, r"demo\.edf with .*none\.smx: .+ \(.+\)$")

    def test_shared_time_is_a_warning(self):
        whole = self.macro("whole.smx")
        result = self.orvanta("regress", self.demo, "--macro", self.closed, whole, "--out", self.text, "--quiet")
        self.assertEqual(result.returncode, 0)
        self.assertRegex(result.stderr, r"^orvanta: warning: the two analyses share 30\.0 s of the recording; "
                                        r".*closed\.smx and .*whole\.smx count it with the contrast value of each\n$")

    def test_nothing_that_is_read_is_written_over(self):
        for option in ("--out", "--full-spectra"):
            with self.subTest(option=option):
                others = [] if option == "--out" else ["--out", self.text]
                result = self.orvanta("regress", self.demo, *self.both, *others, option, self.closed)
                self.assert_refused(result, rf"closed\.smx: is read by this command .*{option}")

    def test_two_outputs_need_two_names(self):
        result = self.orvanta("regress", self.demo, *self.both, "--out", self.text, "--full-spectra", self.text)
        self.assert_refused(result, r"out\.txt: is named by --out and by --full-spectra")

    def test_full_spectra_need_a_file(self):
        result = self.orvanta("regress", self.demo, *self.both, "--out", self.text, "--full-spectra", "-")
        self.assert_refused(result, r"--full-spectra.*needs a file name")

    def test_an_unwritable_output_is_refused(self):
        result = self.orvanta("regress", self.demo, *self.both, "--out", self.folder / "no" / "such" / "out.txt")
        self.assert_refused(result, r"^orvanta: .+out\.txt: .+ \(.+\)$")

    def test_an_interrupt_leaves_the_old_file(self):
        long = self.folder / "long.edf"
        self.assertEqual(self.orvanta("demo", "--out", long, "--minutes", "30").returncode, 0)
        self.text.write_text("old")
        before = set(self.folder.iterdir())
        full = self.folder / "full.txt"
        process = subprocess.Popen(
            [ORVANTA, "regress", long, *map(str, self.both), "--out", self.text, "--full-spectra", full],
            stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True,
        )
        while set(self.folder.iterdir()) == before:  # until the temporary file is there
            self.assertIsNone(process.poll())
        process.send_signal(signal.SIGINT)
        errors = process.communicate(timeout=60)[1]
        self.assertEqual((process.returncode, errors), (130, "orvanta: interrupted (nothing was written)\n"))
        self.assertEqual(set(self.folder.iterdir()), before)
        self.assertEqual(self.text.read_text(), "old")


class Macro(CommandLineTest):
    def test_show_prints_every_setting(self):
        lines = self.orvanta("macro", "show", self.macro("m.smx", "overlap=75")).stdout.splitlines()
        self.assertEqual(len(lines), 16)
        self.assertIn("overlap=75", lines)

    def test_check_accepts_a_sound_file(self):
        self.assertEqual(self.orvanta("macro", "check", self.macro("m.smx")).returncode, 0)

    def test_check_refuses_what_is_no_macro(self):
        path = self.folder / "broken.smx"
        path.write_text("<nonsense")
        self.assert_refused(self.orvanta("macro", "check", path), r"broken\.smx: .+ \(.+\)$")

    def test_check_refuses_an_unknown_window(self):
        path = self.macro("m.smx")
        path.write_text(path.read_text().replace("Hanning", "Nix"))
        self.assert_refused(self.orvanta("macro", "check", path), r"m\.smx: .*Nix")

    def test_new_does_not_overwrite(self):
        path = self.macro("m.smx")
        self.assert_refused(self.orvanta("macro", "new", path), r"exists already")

    def test_new_does_not_replace_a_link_that_leads_nowhere(self):
        path = self.folder / "loop.smx"
        path.symlink_to(path)
        self.assert_refused(self.orvanta("macro", "new", path), r"exists already")
        self.assertTrue(path.is_symlink())

    def test_new_asks_for_a_shorter_name(self):
        path = self.folder / ("x" * 300 + ".smx")
        self.assert_refused(self.orvanta("macro", "new", path), r"name too long \(choose a shorter name\)$")

    def test_an_empty_name_is_refused(self):
        for command in ("new", "show", "check"):
            self.assert_refused(self.orvanta("macro", command, ""), r"FILE: is empty")

    def test_a_bad_value_is_refused_and_writes_nothing(self):
        path = self.folder / "m.smx"
        self.assert_refused(self.orvanta("macro", "new", path, "--set", "overlap=100"), r"overlap=100: ")
        self.assertFalse(path.exists())


if __name__ == "__main__":
    unittest.main()
