#!/usr/bin/env python3
"""Installs a build into a scratch folder and uses it there, as a person does who has nothing else.

Usage: installed.py CMAKE BUILD [unittest arguments].
"""

import configparser
import json
import os
import pathlib
import re
import shutil
import struct
import subprocess
import sys
import tempfile
import unittest
import xml.etree.ElementTree as xml

CMAKE, BUILD = sys.argv.pop(1), pathlib.Path(sys.argv.pop(1)).resolve()


def png_size(path):
    head = path.read_bytes()[:24]
    assert head[:8] == b"\x89PNG\r\n\x1a\n", path
    return struct.unpack(">II", head[16:24])


class InstalledTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.folder = pathlib.Path(tempfile.mkdtemp(prefix="orvanta-installed-"))
        cls.addClassCleanup(shutil.rmtree, cls.folder)
        first = cls.folder / "first"
        subprocess.run(
            [CMAKE, "--install", BUILD, "--prefix", first], check=True, capture_output=True, text=True
        )
        # A tree that is moved still works, and nothing of its first place is left.
        cls.prefix = cls.folder / "usr"
        first.rename(cls.prefix)
        cls.environment = {
            name: value
            for name, value in os.environ.items()
            if name not in ("DISPLAY", "WAYLAND_DISPLAY", "LD_LIBRARY_PATH", "QT_QPA_PLATFORM")
        }
        cls.environment.update(
            XDG_CONFIG_HOME=str(cls.folder / "config"), XDG_DATA_HOME=str(cls.folder / "data")
        )
        cls.recording = cls.folder / "demo.edf"
        cls.orvanta("demo", "--out", cls.recording, "--minutes", "1")

    @classmethod
    def orvanta(cls, *arguments, **environment):
        done = subprocess.run(
            [cls.prefix / "bin" / "orvanta", *map(str, arguments)],
            capture_output=True,
            text=True,
            timeout=60,
            cwd=cls.folder,
            env={**cls.environment, **environment},
        )
        if done.returncode != 0:
            raise AssertionError(f"orvanta {arguments}: {done.returncode}\n{done.stderr}")
        return done.stdout

    def one(self, pattern):
        found = list(self.prefix.glob(pattern))
        self.assertEqual(len(found), 1, f"{pattern}: {found}")
        return found[0]

    def test_tells_what_a_recording_holds(self):
        self.assertIn("19 eeg at 256 Hz", self.orvanta("info", self.recording))

    def test_computes_with_its_own_window_functions(self):
        out = self.folder / "out.json"
        self.orvanta("compute", self.recording, "--json", out, "--set", "window=Blackman")
        # One minute in epochs of 2 s that overlap by half.
        self.assertEqual(len(json.loads(out.read_text())["epochs"]), 59)

    def test_paints_both_views_through_the_module(self):
        for view in ("spectrum", "maps"):
            picture = self.folder / f"{view}.png"
            self.orvanta("render", self.recording, "--view", view, "--size", "640x420", "--out", picture)
            self.assertEqual(png_size(picture), (640, 420))

    def test_uses_only_libraries_that_were_installed(self):
        libraries = self.one("lib*/**/Orvanta64.so").parent
        for file in [self.prefix / "bin" / "orvanta", *libraries.glob("*.so")]:
            needed = subprocess.run(["ldd", file], check=True, capture_output=True, text=True).stdout
            self.assertNotIn("not found", needed, file)
            for line in needed.splitlines():
                if "liborvanta" in line or "Orvanta64" in line:
                    found = pathlib.Path(line.split("=>")[1].split("(")[0].strip())
                    self.assertEqual(found.resolve().parent, libraries.resolve(), line)

    def test_is_found_by_desktops(self):
        desktop = configparser.ConfigParser(interpolation=None, delimiters="=")
        desktop.optionxform = str
        desktop.read(self.one("share/applications/orvanta.desktop"), encoding="utf-8")
        entry = desktop["Desktop Entry"]
        self.assertTrue((self.prefix / "bin" / entry["TryExec"]).exists())
        sizes = {path.parts[-3] for path in self.prefix.glob(f"share/icons/hicolor/*/apps/{entry['Icon']}.*")}
        self.assertEqual(
            sizes, {"16x16", "24x24", "32x32", "48x48", "64x64", "128x128", "256x256", "scalable"}
        )
        for size in sizes - {"scalable"}:
            side = int(size.split("x")[0])
            icon = self.prefix / "share/icons/hicolor" / size / "apps" / f"{entry['Icon']}.png"
            self.assertEqual(png_size(icon), (side, side))
        kinds = xml.parse(self.one("share/mime/packages/orvanta.xml")).getroot()
        declared = [kind.get("type") for kind in kinds if kind.tag.endswith("mime-type")]
        self.assertEqual(entry["MimeType"].rstrip(";").split(";"), declared)
        about = xml.parse(self.one("share/metainfo/*.metainfo.xml")).getroot()
        self.assertEqual(about.findtext("launchable"), "orvanta.desktop")
        self.assertEqual([kind.text for kind in about.findall("provides/mediatype")], declared)

    def test_brings_the_manual_with_its_pictures(self):
        manual = self.one("share/doc/orvanta/manual")
        pages = list(manual.glob("*.md"))
        self.assertTrue(pages)
        for page in pages:
            for target in re.findall(r"\]\(([^)#]+)", page.read_text(encoding="utf-8")):
                if "://" not in target:
                    self.assertTrue((manual / target).exists(), f"{page.name}: {target}")


if __name__ == "__main__":
    unittest.main()
