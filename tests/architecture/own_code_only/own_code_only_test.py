#!/usr/bin/env python3
"""With the plugin, clang-tidy finds in our own code what it finds without, and does not look into headers of the system.

Usage: own_code_only_test.py CLANG_TIDY PLUGIN [unittest arguments].
"""

import pathlib
import re
import subprocess
import sys
import tempfile
import unittest

CLANG_TIDY, PLUGIN = sys.argv.pop(1), sys.argv.pop(1)

# One fault for each way of finding it: in functions, in classes, in templates, in templates that the system's headers
# make, across the whole file, and by the compiler.
HEADER = """#include <vector>
struct Base { virtual ~Base(); virtual void Go(); };
struct Derived : Base { virtual void Go(); };
template <typename T> bool Nothing(const T& list) { return list.size() == 0; }
"""
SOURCE = """#include "own.h"
#include <algorithm>
#include <string>
#include <utility>
using std::swap;
namespace lists {
int Length(std::string text) { return static_cast<int>(text.size()); }
bool None(const std::vector<int>& list) { return list.size() == 0; }
}
std::string Moved(std::string text) { std::string other = std::move(text); return other + text; }
void Sorted(std::vector<std::string>& list) {
    std::sort(list.begin(), list.end(), [](std::string a, const std::string& b) { return a < b; });
    for (auto entry : list) { Nothing(entry); }
}
int If(int value) { if (value > 0); return value; }
"""
CHECKS = "-*,bugprone-*,misc-*,performance-*,modernize-use-override,readability-container-*,readability-redundant-*,clang-diagnostic-*"


class OwnCodeOnlyTest(unittest.TestCase):
    def setUp(self):
        scratch = tempfile.TemporaryDirectory()
        self.addCleanup(scratch.cleanup)
        self.folder = pathlib.Path(scratch.name)
        (self.folder / "own.h").write_text(HEADER, encoding="utf-8")
        self.source = self.folder / "own.cpp"
        self.source.write_text(SOURCE, encoding="utf-8")

    def run_tidy(self, *options):
        command = [CLANG_TIDY, *options, f"--checks={CHECKS}", "--header-filter=.*", self.source]
        return subprocess.run([*command, "--", "-std=c++20", "-Wall"], capture_output=True, text=True, check=True)

    def test_finds_what_is_found_without_it(self):
        pattern = re.compile(r"^.*own\.(?:h|cpp):\d+:\d+: warning: .*$", re.MULTILINE)
        without = pattern.findall(self.run_tidy().stdout)
        self.assertEqual(pattern.findall(self.run_tidy(f"--load={PLUGIN}").stdout), without)
        for check in (
            "bugprone-use-after-move",
            "bugprone-suspicious-semicolon",
            "clang-diagnostic-empty-body",
            "misc-unused-using-decls",
            "modernize-use-override",
            "performance-for-range-copy",
            "performance-unnecessary-value-param",
            "readability-container-size-empty",
        ):
            self.assertTrue(any(check in line for line in without), check)
        self.assertTrue(any("own.h" in line for line in without))

    def test_does_not_look_into_headers_of_the_system(self):
        def suppressed(*options):
            return int(re.search(r"^(\d+) warnings generated", self.run_tidy(*options).stderr, re.MULTILINE)[1])

        self.assertLess(5 * suppressed(f"--load={PLUGIN}"), suppressed())


if __name__ == "__main__":
    unittest.main()
