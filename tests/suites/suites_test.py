#!/usr/bin/env python3
"""Suites are listed whole, and one that does not end well is told case by case.

Usage: suites_test.py PROGRAM [unittest arguments]; PROGRAM is ways_to_end.
"""

import pathlib
import re
import subprocess
import sys
import tempfile
import unittest

PROGRAM = sys.argv.pop(1)
HERE = pathlib.Path(__file__).parent


def run(suite, cases, seconds=60):
    """Exit status of the runner, and what it said."""
    done = subprocess.run(
        [HERE / "run-suite", PROGRAM, f"{suite}.*", str(cases), str(seconds)],
        capture_output=True,
        text=True,
        timeout=120,
    )
    return done.returncode, done.stdout


def listed(*options):
    """What ctest is told of the program."""
    with tempfile.TemporaryDirectory() as folder:
        file = pathlib.Path(folder) / "list.cmake"
        subprocess.run([sys.executable, HERE / "list.py", PROGRAM, "runner", file, *options], check=True)
        return re.findall(
            r"^add_test\(\[==\[(.*?)\]==\] .* \[==\[(.*)\]==\] \[==\[(\d+)\]==\] \[==\[(\d+)\]==\]\)$",
            file.read_text(encoding="utf-8"),
            re.MULTILINE,
        )


class SuitesTest(unittest.TestCase):
    def test_every_suite_is_listed_with_the_number_of_its_cases(self):
        self.assertEqual(
            listed(),
            [
                ("Well", "Well.*", "2", "630"),
                ("Crash", "Crash.*", "3", "660"),
                ("Silence", "Silence.*", "3", "660"),
                ("Hang", "Hang.*", "2", "630"),
                ("Skipping", "Skipping.*", "1", "600"),
                ("Together", "Together.*", "2", "630"),
                ("Small/Numbers", "Small/Numbers.*", "2", "630"),
            ],
        )

    def test_cases_of_a_suite_that_stands_apart_are_listed_one_by_one(self):
        self.assertEqual(
            listed("--apart", "Small/Numbers")[-2:],
            [
                ("Small/Numbers.AreBelowThree/0", "Small/Numbers.AreBelowThree/0", "1", "600"),
                ("Small/Numbers.AreBelowThree/1", "Small/Numbers.AreBelowThree/1", "1", "600"),
            ],
        )

    def test_a_suite_that_stands_apart_and_does_not_exist_is_an_error(self):
        with self.assertRaises(subprocess.CalledProcessError):
            listed("--apart", "NoSuchSuite")

    def test_a_suite_that_ends_well_runs_once(self):
        status, said = run("Well", 2)
        self.assertEqual(status, 0)
        self.assertEqual(said.count("[==========] Running"), 1)
        self.assertTrue(said.endswith("\n2 of 2 cases of Well.* passed\n"), said)

    def test_cases_with_parameters_run(self):
        status, said = run("Small/Numbers", 2)
        self.assertEqual(status, 0)
        self.assertTrue(said.endswith("\n2 of 2 cases of Small/Numbers.* passed\n"), said)

    def test_a_crash_is_told_of_its_case_and_the_others_run(self):
        status, said = run("Crash", 3)
        self.assertEqual(status, 1)
        self.assertIn("[       OK ] Crash.Before", said)
        self.assertIn("[       OK ] Crash.After", said)
        self.assertTrue(said.endswith("\n2 of 3 cases of Crash.* passed\nfailed:\n  Crash.Aborts (exit status 134)\n"), said)

    def test_a_case_that_ends_the_process_does_not_hide_the_others(self):
        status, said = run("Silence", 3)
        self.assertEqual(status, 1)
        self.assertIn("[       OK ] Silence.After", said)
        ending = "\n2 of 3 cases of Silence.* passed\nfailed:\n  Silence.EndsTheProcess (exit status 0)\n"
        self.assertTrue(said.endswith(ending), said)

    def test_a_case_that_hangs_is_ended_and_told(self):
        status, said = run("Hang", 2, seconds=2)
        self.assertEqual(status, 1)
        ending = "\n1 of 2 cases of Hang.* passed\nfailed:\n  Hang.NeverEnds (exit status 124: not done after 2 s)\n"
        self.assertTrue(said.endswith(ending), said)

    def test_a_case_that_skips_itself_has_not_passed(self):
        self.assertEqual(run("Skipping", 1)[0], 1)

    def test_a_case_that_was_lost_is_noticed(self):
        self.assertEqual(run("Well", 3)[0], 1)
        self.assertEqual(run("NoSuchSuite", 1)[0], 1)

    def test_cases_that_only_fail_together_are_failures(self):
        status, said = run("Together", 2)
        self.assertEqual(status, 1)
        self.assertTrue(
            said.endswith("\n2 of 2 cases of Together.* passed\nfailed:\n  none by itself, only together\n"), said
        )


if __name__ == "__main__":
    unittest.main()
