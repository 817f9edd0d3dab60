#!/usr/bin/env python3
"""The commands that need windows, as a person or a script uses them.

Usage: windows_end_to_end.py ORVANTA [unittest arguments].
"""

import base64
import os
import pathlib
import re
import signal
import struct
import subprocess
import time
import unittest
import xml.etree.ElementTree as xml

import end_to_end
from end_to_end import CommandLineTest

HOST_LIBRARIES = ("liborvanta_platform.so", "liborvanta_signal_base.so", "liborvanta_spectral_data.so")
WINDOW_LIBRARIES = ("liborvanta_toolkit.so", "liborvanta_chart_view.so", "liborvanta_review.so")


def png_size(path):
    head = path.read_bytes()[:24]
    assert head[:8] == b"\x89PNG\r\n\x1a\n", path
    return struct.unpack(">II", head[16:24])


def png_dots_per_inch(path):
    data = path.read_bytes()
    at = data.index(b"pHYs") + 4
    across, down, unit = struct.unpack(">IIB", data[at : at + 9])
    assert across == down and unit == 1, path
    return across * 0.0254


class WindowsTest(CommandLineTest):
    """No display; the user's folders are in the scratch folder."""

    def setUp(self):
        super().setUp()
        self.environment = {
            name: value for name, value in os.environ.items() if name not in ("DISPLAY", "WAYLAND_DISPLAY")
        }
        self.environment.pop("QT_QPA_PLATFORM", None)
        self.environment.update(XDG_CONFIG_HOME=str(self.folder / "config"), XDG_DATA_HOME=str(self.folder / "data"))
        self.program = end_to_end.ORVANTA

    def assert_interrupted_silently(self, *arguments) -> None:
        """Ctrl-C, once the libraries with windows are loaded, ends the command with 130 and no output."""
        with subprocess.Popen(
            [self.program, *arguments],
            stdout=subprocess.PIPE,
            stderr=subprocess.PIPE,
            text=True,
            env=self.environment,
        ) as running:
            maps = pathlib.Path(f"/proc/{running.pid}/maps")
            while "liborvanta_bridge" not in maps.read_text() and running.poll() is None:
                time.sleep(0.01)
            running.send_signal(signal.SIGINT)
            output, errors = running.communicate(timeout=60)
        self.assertEqual((running.returncode, output), (130, ""), errors)

    def orvanta(self, *arguments):
        return subprocess.run(
            [self.program, *map(str, arguments)], capture_output=True, text=True, timeout=120, env=self.environment
        )

    def install(self, libraries):
        """From now on the program is one that was installed with only these libraries."""
        program = pathlib.Path(end_to_end.ORVANTA).resolve()
        for folder in ("bin", "lib"):
            (self.folder / "installed" / folder).mkdir(parents=True)
        self.program = self.folder / "installed" / "bin" / "orvanta"
        self.program.write_bytes(program.read_bytes())
        self.program.chmod(0o755)
        for library in libraries:
            (self.folder / "installed" / "lib" / library).symlink_to(program.parent.parent / "lib" / library)


class Window(WindowsTest):
    def test_needs_a_display(self):
        for arguments in ((), ("review", self.demo), (self.demo,)):
            with self.subTest(arguments=arguments):
                self.assert_refused(self.orvanta(*arguments), r"^orvanta: no display: .*DISPLAY.* \(.+\)$")


    def picture(self, name, *arguments):
        path = self.folder / name
        result = self.orvanta("review", self.demo, "--picture", path, *arguments)
        self.assertEqual((result.returncode, result.stderr), (0, ""))
        self.assertEqual(result.stdout, f"written {path}: the window\n")
        return path

    def test_a_picture_of_the_window_needs_no_display(self):
        self.assertEqual(png_size(self.picture("w.png")), (1366, 768))
        self.assertFalse((self.folder / "config").exists(), "the user's settings are left alone")

    def test_the_macro_and_the_language_are_seen_in_the_window(self):
        plain = self.picture("plain.png").read_bytes()
        self.assertEqual(self.picture("again.png").read_bytes(), plain)
        for arguments in (("--macro", "Resting eyes closed"), ("--macro", self.macro("m.smx")), ("--language", "de")):
            with self.subTest(arguments=arguments):
                self.assertNotEqual(self.picture("other.png", *arguments).read_bytes(), plain)

    def test_an_unknown_macro_is_refused_with_those_that_there_are(self):
        result = self.orvanta("review", self.demo, "--macro", "Sleep", "--picture", self.folder / "w.png")
        self.assert_refused(result, r'^orvanta: macro "Sleep": there is no such file .*"Event-related".*"Sleep CSA"\)$')
        self.assertFalse((self.folder / "w.png").exists())

    def test_an_unknown_language_is_refused_with_those_that_there_are(self):
        result = self.orvanta("review", self.demo, "--language", "tlh", "--picture", self.folder / "w.png")
        self.assert_refused(result, r'^orvanta: language "tlh": there are no texts in it \(there are: de, en\)$')

    def test_a_recording_that_cannot_be_opened_is_refused(self):
        result = self.orvanta("review", self.folder / "none.edf", "--picture", self.folder / "w.png")
        self.assert_refused(result, r"none\.edf: does not exist \(.+\)$")
        self.assertFalse((self.folder / "w.png").exists())

    def test_a_picture_that_cannot_be_written_is_refused(self):
        result = self.orvanta("review", self.demo, "--picture", self.folder / "none" / "w.png")
        self.assert_refused(result, r"w\.png: cannot be written \(.+\)$")


class MissingParts(WindowsTest):
    def test_without_the_window_library_a_command_that_needs_windows_says_so(self):
        self.install(HOST_LIBRARIES)
        result = self.orvanta("gallery", "--out", self.folder / "g")
        self.assert_refused(result, r"liborvanta_review\.so: no such file \(.+\)$")
        self.assert_refused(self.orvanta("macro", "edit"), r"liborvanta_review\.so: no such file \(.+\)$")

    def test_without_the_window_library_the_other_commands_work(self):
        self.install(HOST_LIBRARIES)
        self.assertEqual(self.orvanta("info", self.demo).returncode, 0)
        self.assertEqual(self.orvanta("macro", "show", self.macro("m.smx")).returncode, 0)

    def test_a_library_that_cannot_be_loaded_is_told(self):
        self.install(HOST_LIBRARIES)
        (self.program.parent.parent / "lib" / "liborvanta_review.so").write_text("no library")
        result = self.orvanta("gallery", "--out", self.folder / "g")
        self.assert_refused(result, r"liborvanta_review\.so: cannot be loaded: .+ \(.+\)$")

    def test_without_the_module_the_gallery_has_the_rest_and_says_why(self):
        self.install(HOST_LIBRARIES + WINDOW_LIBRARIES)
        result = self.orvanta("gallery", "--out", self.folder / "g", "--only", "input")
        self.assertEqual(result.returncode, 0)
        self.assertRegex(result.stderr, r"^orvanta: warning: .*Orvanta64\.so: no such file \(.+\)\n$")
        self.assertTrue((self.folder / "g" / "input-light-1x.png").exists())

    def test_without_the_module_nothing_can_be_edited(self):
        self.install(HOST_LIBRARIES + WINDOW_LIBRARIES)
        self.environment["QT_QPA_PLATFORM"] = "offscreen"
        result = self.orvanta("macro", "edit", self.macro("m.smx"))
        self.assert_refused(result, r"Orvanta64\.so: no such file \(.+\)$")


class MacroEdit(WindowsTest):
    def test_needs_a_display(self):
        for arguments in ([], [self.macro("m.smx")]):
            with self.subTest(arguments=arguments):
                result = self.orvanta("macro", "edit", *arguments)
                self.assert_refused(result, r"^orvanta: no display: .*DISPLAY.* \(.+\)$")

    def test_says_when_the_display_does_not_answer(self):
        self.environment["QT_QPA_PLATFORM"] = "nonsense"
        result = self.orvanta("macro", "edit", self.macro("m.smx"))
        self.assert_refused(result, r"^orvanta: windows cannot be shown: .*plugin \"nonsense\".* \(.+\)$")

    def test_a_missing_file_is_refused_with_the_way_to_make_one(self):
        result = self.orvanta("macro", "edit", self.folder / "none.smx")
        self.assert_refused(result, r"none\.smx: no such file \(orvanta macro new makes one\)$")

    def test_bad_files_are_refused_before_a_window_opens(self):
        good = self.macro("good.smx").read_text()
        for name, content, reason in (
            ("broken", good[: len(good) // 2], r"line \d+: no well-formed XML"),
            ("newer", good.replace('version="1"', 'version="2"'), r"line \d+: from a newer version"),
            ("huge", good + " " * 20_000_000, r"has \d+ bytes, more than the \d+"),
            ("other", "<song/>", "no macro file"),
        ):
            with self.subTest(name=name):
                path = self.folder / f"{name}.smx"
                path.write_text(content)
                self.assert_refused(self.orvanta("macro", "edit", path), rf"{name}\.smx: {reason}.* \(.+\)$")
                self.assertEqual(path.read_text(), content)

    def test_a_recording_that_cannot_be_read_is_refused(self):
        result = self.orvanta("macro", "edit", self.macro("m.smx"), "--recording", self.folder / "none.edf")
        self.assert_refused(result, r"none\.edf: .+ \(.+\)$")

    def test_an_interrupt_closes_the_window_and_leaves_the_file_alone(self):
        self.environment["QT_QPA_PLATFORM"] = "offscreen"
        macro = self.macro("m.smx")
        before = macro.read_bytes()
        for arguments in ([macro], []):
            with self.subTest(arguments=arguments):
                self.assert_interrupted_silently("macro", "edit", *arguments)
                self.assertEqual(macro.read_bytes(), before)

    def test_the_list_has_the_programs_macros_from_the_first_time_on(self):
        self.environment["QT_QPA_PLATFORM"] = "offscreen"
        self.assert_interrupted_silently("macro", "edit")
        self.assertEqual(len(list((self.folder / "data" / "orvanta" / "MACRO").glob("*.smx"))), 5)

    def test_light_and_dark_exclude_each_other(self):
        self.assert_refused(self.orvanta("macro", "edit", "--light", "--dark"), "--dark|--light")


class ReviewEnds(WindowsTest):
    def test_an_interrupt_ends_it_while_a_message_of_its_start_is_shown(self):
        self.environment["QT_QPA_PLATFORM"] = "offscreen"
        log = self.folder / "log"
        with subprocess.Popen([self.program, "review", "none.edf", "--log", log], env=self.environment) as running:
            while running.poll() is None and not (log.exists() and "none.edf" in log.read_text()):
                time.sleep(0.01)
            running.send_signal(signal.SIGTERM)
            try:
                self.assertEqual(running.wait(timeout=30), 0)
            finally:
                running.kill()


class Gallery(WindowsTest):
    def test_a_scale_that_is_no_number_is_refused(self):
        result = self.orvanta("gallery", "--out", self.folder / "g", "--scale", "nan")
        self.assertEqual(result.returncode, 2)
        self.assertIn("nan is no number", result.stderr)
        self.assertFalse((self.folder / "g").exists())

    def gallery(self, *arguments):
        """The files written, by name."""
        result = self.orvanta("gallery", "--out", self.folder / "g", *arguments)
        self.assertEqual((result.returncode, result.stderr), (0, ""))
        files = [pathlib.Path(line) for line in result.stdout.splitlines()]
        self.assertEqual(sorted(files), sorted((self.folder / "g").iterdir()))
        return {file.name: file for file in files}

    def test_prints_the_files_it_wrote(self):
        names = self.gallery()
        for name in ("macro-selection", "message-error", "progress", "input"):
            self.assertIn(f"{name}-light-1x.png", names)
            self.assertIn(f"{name}-dark-1x.png", names)

    def test_twice_the_scale_is_twice_the_pixels(self):
        files = self.gallery("--only", "input", "--scale", 1, "--scale", 1.5, "--scale", 2)
        self.assertEqual(len(files), 6)
        width, height = png_size(files["input-light-1x.png"])
        for scale in (1.5, 2):
            # Text is measured anew at each scale.
            scaled = png_size(files[f"input-light-{scale:g}x.png"])
            self.assertAlmostEqual(scaled[0], width * scale, delta=12)
            self.assertAlmostEqual(scaled[1], height * scale, delta=12)

    def test_dark_is_not_light(self):
        files = self.gallery("--only", "input")
        self.assertNotEqual(files["input-light-1x.png"].read_bytes(), files["input-dark-1x.png"].read_bytes())

    def test_a_second_run_gives_the_same_pictures(self):
        first = {name: file.read_bytes() for name, file in self.gallery().items()}
        self.assertEqual({name: file.read_bytes() for name, file in self.gallery().items()}, first)

    def test_speaks_the_language_asked_for(self):
        english = self.gallery("--only", "input")["input-light-1x.png"].read_bytes()
        german = self.gallery("--only", "input", "--language", "de")["input-light-1x.png"].read_bytes()
        self.assertNotEqual(english, german)

    def test_an_unknown_window_is_refused(self):
        result = self.orvanta("gallery", "--out", self.folder / "g", "--only", "nonsense")
        self.assert_refused(result, r"--only nonsense: no such window \(there are .*input.*\)$")

    def test_a_folder_that_cannot_be_made_is_refused(self):
        (self.folder / "file").write_text("")
        self.assert_refused(self.orvanta("gallery", "--out", self.folder / "file" / "g"), r"file/g: .+ \(.+\)$")

    def test_bad_scales_are_refused(self):
        for scale in ("0", "5", "big"):
            with self.subTest(scale=scale):
                self.assert_refused(self.orvanta("gallery", "--out", self.folder / "g", "--scale", scale), "--scale")


class Render(WindowsTest):
    def render(self, name, *arguments):
        """The picture of the demo."""
        path = self.folder / name
        result = self.orvanta("render", self.demo, "--out", path, *arguments)
        self.assertEqual((result.returncode, result.stderr), (0, ""))
        self.assertRegex(result.stdout, rf"^written {path}: \d+ plots\n$")
        return path

    def refuse(self, pattern, *arguments, out="out.png"):
        result = self.orvanta("render", self.demo, "--out", self.folder / out, *arguments)
        self.assert_refused(result, pattern)
        self.assertFalse((self.folder / out).exists())

    def test_a_png_has_the_size_and_resolution_asked_for(self):
        path = self.render("a.png", "--size", "400x300", "--scale", "1.5")
        self.assertEqual(png_size(path), (600, 450))
        self.assertAlmostEqual(png_dots_per_inch(path), 144, delta=0.1)

    def test_every_layout_and_mode_is_drawn(self):
        contents = set()
        for layout in ("grid", "scalp"):
            for mode in ("mean", "csa", "timefreq"):
                path = self.render(f"{layout}-{mode}.png", "--layout", layout, "--mode", mode)
                self.assertEqual(png_size(path), (1600, 1000))
                contents.add(path.read_bytes())
        self.assertEqual(len(contents), 6)

    def test_every_entity_is_drawn(self):
        for entity in ("amplitude", "power", "coherence", "phase"):
            for layout in ("grid", "scalp"):
                with self.subTest(entity=entity, layout=layout):
                    self.render(f"{entity}-{layout}.png", "--layout", layout, "--entity", entity)

    def test_an_svg_is_sound_and_holds_texts_and_clips(self):
        root = xml.parse(self.render("a.svg", "--size", "700x500", "--layout", "scalp")).getroot()
        svg = "{http://www.w3.org/2000/svg}"
        self.assertEqual((root.tag, root.get("viewBox")), (svg + "svg", "0 0 700 500"))
        self.assertIn("Demo (Spectrum 1)", "".join(text.text for text in root.iter(svg + "text")))
        defined = {clip.get("id") for clip in root.iter(svg + "clipPath")}
        used = {group.get("clip-path")[5:-1] for group in root.iter(svg + "g")}
        self.assertEqual(used, defined)
        self.assertGreaterEqual(len(defined), 19)

    def test_a_pdf_is_one_page_with_its_fonts(self):
        pdf = self.render("a.pdf", "--size", "960x480").read_bytes()
        self.assertEqual(pdf[:7], b"%PDF-1.")
        self.assertEqual(re.findall(rb"/MediaBox \[(.*)\]", pdf), [b"0 0 720.000000 360.000000"])
        self.assertTrue(b"/FontFile2" in pdf)

    def test_a_second_run_gives_the_same_picture(self):
        for name in ("a.png", "a.svg"):
            first = self.render(name).read_bytes()
            self.assertEqual(self.render(name).read_bytes(), first)

    def test_the_users_settings_neither_matter_nor_change(self):
        first = self.render("a.png").read_bytes()
        settings = self.folder / "config" / "orvanta" / "settings.ini"
        settings.parent.mkdir(parents=True)
        text = "[Spectrum]\nNumRows=1\nNumCols=1\nShowPoints=0\nFontHeight=40\n"
        settings.write_text(text)
        self.assertEqual(self.render("a.png").read_bytes(), first)
        self.assertEqual(settings.read_text(), text)

    def test_compares_two_analyses(self):
        closed = self.macro("closed.smx", "mode=states", "states=eyes closed")
        opened = self.macro("open.smx", "mode=states", "states=eyes open")
        compared = self.render("a.svg", "--macro", closed, "--secondary", opened, "--p", "0.01", "--ratio")
        self.assertIn("p-scale: 0.01", compared.read_text())
        alone = self.render("b.svg", "--macro", closed)
        self.assertNotIn("p-scale", alone.read_text())

    def test_what_cannot_be_compared_is_told(self):
        short = self.macro("short.smx", "fft_seconds=1")
        result = self.orvanta("render", self.demo, "--out", self.folder / "a.png", "--secondary", short)
        self.assertEqual(result.returncode, 1)
        self.assertRegex(result.stderr, r"the default settings and .*short\.smx: their bins differ")

    def test_unknown_names_are_refused_with_those_there_are(self):
        for option, names in (
            ("--layout", "grid"),
            ("--mode", "timefreq"),
            ("--entity", "coherence"),
            ("--view", "spectrum"),
            ("--montage", "Longitudinal bipolar"),
        ):
            with self.subTest(option=option):
                self.refuse(rf"nonsense.*{names}", option, "nonsense")

    def test_sizes_and_scales_that_make_no_picture_are_refused(self):
        for arguments in (
            ["--size", "400"],
            ["--size", "x300"],
            ["--size", "400x300px"],
            ["--size", "10x300"],
            ["--size", "400x99999"],
            ["--scale", "0.1"],
            ["--scale", "9"],
            ["--scale", "nan"],
            ["--size", "4000x4000", "--scale", "8"],
        ):
            with self.subTest(arguments=arguments):
                self.refuse("--size|--scale", *arguments)

    def test_bad_numbers_are_refused(self):
        for arguments in (
            ["--rows", "0"],
            ["--cols", "300"],
            ["--bottom", "-1"],
            ["--bottom", "nan"],
            ["--top", "0"],
            ["--bottom", "20", "--top", "10"],
        ):
            with self.subTest(arguments=arguments):
                self.refuse(arguments[0], *arguments)

    def test_options_of_a_comparison_need_one(self):
        for option in (["--p", "0.01"], ["--ratio"], ["--no-ttest"]):
            with self.subTest(option=option):
                self.refuse("--secondary", *option)

    def test_an_unknown_ending_is_refused(self):
        self.refuse(r"out\.jpg: no kind of picture \(.*\.png, \.svg or \.pdf\)$", out="out.jpg")

    def test_a_folder_that_is_not_there_is_told(self):
        self.refuse(r"none/out\.png", out="none/out.png")

    def test_an_input_is_not_replaced(self):
        copy = self.folder / "copy.svg"
        copy.write_bytes(self.demo.read_bytes())
        result = self.orvanta("render", copy, "--out", copy)
        self.assert_refused(result, r"copy\.svg: is read by this command")
        self.assertEqual(copy.read_bytes(), self.demo.read_bytes())

    def test_nothing_computable_is_told_with_status_1(self):
        out = self.folder / "a.png"
        for arguments in (["--montage", "Average reference"], ["--set", "fft_seconds=60", "--set", "mode=spots"]):
            with self.subTest(arguments=arguments):
                result = self.orvanta("render", self.demo, "--out", out, *arguments)
                self.assertEqual(result.returncode, 1, result.stderr)
                self.assertRegex(result.stderr, r"^orvanta: .+ \(.+\)\n$")
                self.assertFalse(out.exists())

    def test_without_the_module_it_says_so(self):
        self.install(HOST_LIBRARIES + WINDOW_LIBRARIES)
        self.refuse(r"Orvanta64\.so: no such file \(.+\)$")

    def test_an_interrupt_leaves_nothing(self):
        long = self.folder / "long.edf"
        self.assertEqual(self.orvanta("demo", "--out", long, "--minutes", "240").returncode, 0)
        before = sorted(self.folder.iterdir())
        self.assert_interrupted_silently("render", long, "--mode", "csa", "--out", self.folder / "a.png")
        self.assertEqual(sorted(self.folder.iterdir()), before)


class RenderMaps(WindowsTest):
    def render(self, name, *arguments):
        """The maps of the demo."""
        path = self.folder / name
        result = self.orvanta("render", self.demo, "--view", "maps", "--out", path, *arguments)
        self.assertEqual((result.returncode, result.stderr), (0, ""))
        self.assertRegex(result.stdout, rf"^written {path}: \d+ maps?\n$")
        return path

    def refuse(self, pattern, *arguments, out="out.png"):
        result = self.orvanta("render", self.demo, "--view", "maps", "--out", self.folder / out, *arguments)
        self.assert_refused(result, pattern)
        self.assertFalse((self.folder / out).exists())

    def texts(self, path):
        return ["".join(text.itertext()) for text in xml.parse(path).iter("{http://www.w3.org/2000/svg}text")]

    def test_a_png_has_the_size_and_resolution_asked_for(self):
        path = self.render("a.png", "--size", "400x300", "--scale", "1.5")
        self.assertEqual(png_size(path), (600, 450))
        self.assertAlmostEqual(png_dots_per_inch(path), 144, delta=0.1)

    def test_every_band_is_drawn_by_default(self):
        titles = [text for text in self.texts(self.render("a.svg")) if text.startswith("Band")]
        bands = ("Delta", "Theta", "Alpha", "Beta", "Gamma")
        self.assertEqual(titles, [f"Band: {band} - Measure: Abs" for band in bands])

    def test_maps_are_drawn_in_the_order_asked_for(self):
        path = self.render("a.svg", "--map", "alpha:rel", "0:sef95", "--map", "Theta:3", "--cols", "3")
        texts = self.texts(path)
        self.assertEqual(
            [text for text in texts if text.startswith("Band")],
            ["Band: Alpha - Measure: Rel", "Band: Delta - Measure: SEF95", "Band: Theta - Measure: Peak F"],
        )
        self.assertEqual(texts.count("Hz"), 2)
        self.assertEqual(texts.count("%"), 1)

    def test_an_svg_holds_texts_lines_and_one_picture_for_each_map(self):
        path = self.render("a.svg", "--map", "Alpha:Abs", "--names", "--size", "500x400", "--scale-range", "0:200")
        root = xml.parse(path).getroot()
        svg = "{http://www.w3.org/2000/svg}"
        self.assertEqual(root.get("viewBox"), "0 0 500 400")
        texts = self.texts(path)
        for text in ("Fp1", "Cz", "O2", "µV²", "0", "100", "200"):
            self.assertIn(text, texts)
        # Three device pixels to a pixel.
        disc = max(root.iter(svg + "image"), key=lambda image: float(image.get("width")))
        data = base64.b64decode(disc.get("{http://www.w3.org/1999/xlink}href").split(",")[1])
        self.assertGreaterEqual(struct.unpack(">I", data[16:20])[0], 2.9 * float(disc.get("width")))
        # Head, nose and ears, each with a lighter line below.
        self.assertGreaterEqual(len(list(root.iter(svg + "path"))), 8)

    def test_a_pdf_is_one_page_with_its_fonts(self):
        pdf = self.render("a.pdf", "--size", "960x480").read_bytes()
        self.assertEqual(re.findall(rb"/MediaBox \[(.*)\]", pdf), [b"0 0 720.000000 360.000000"])
        self.assertTrue(b"/FontFile2" in pdf)

    def test_every_side_and_palette_is_another_picture(self):
        contents = set()
        for side in ("top", "front", "left", "right", "back"):
            path = self.render(f"{side}.png", "--map", "2:0", "--3d", "--view-from", side, "--size", "300x300")
            contents.add(path.read_bytes())
        palettes = ("viridis", "cividis", "inferno", "difference", "turbo", "grey")
        for palette in palettes:
            path = self.render(f"{palette}.png", "--map", "2:0", "--palette", palette, "--size", "300x300")
            contents.add(path.read_bytes())
        self.assertEqual(len(contents), 5 + len(palettes))

    def test_a_second_run_gives_the_same_picture(self):
        for name in ("a.png", "a.svg"):
            first = self.render(name, "--3d").read_bytes()
            self.assertEqual(self.render(name, "--3d").read_bytes(), first)

    def test_the_users_settings_neither_matter_nor_change(self):
        first = self.render("a.png").read_bytes()
        settings = self.folder / "config" / "orvanta" / "settings.ini"
        settings.parent.mkdir(parents=True)
        text = "[SpectMap]\nMapRows=1\nMapColumns=1\nMapPalette=grey\nFontHeight=40\n"
        settings.write_text(text)
        self.assertEqual(self.render("a.png").read_bytes(), first)
        self.assertEqual(settings.read_text(), text)

    def test_options_of_the_other_view_are_refused(self):
        self.refuse(r"--mode: belongs to --view spectrum, not to --view maps \(.+\)$", "--mode", "csa")
        self.refuse(r"--secondary: belongs to --view spectrum", "--secondary", "a.smx")
        for option in (["--map", "0:0"], ["--3d"], ["--names"], ["--palette", "grey"], ["--scale-range", "0:1"]):
            with self.subTest(option=option):
                result = self.orvanta("render", self.demo, "--out", self.folder / "a.png", *option)
                self.assert_refused(result, rf"{option[0]}: belongs to --view maps, not to --view spectrum")

    def test_what_is_not_there_is_refused_with_what_there_is(self):
        self.refuse(r'--map Mu:Abs: no band "Mu" \(there are 0 Delta, 1 Theta', "--map", "Mu:Abs")
        self.refuse(r'--map 0:x: no measure "x" \(there are 0 Abs, 1 Mean', "--map", "0:x")
        self.refuse(r"--palette x: no such palette \(there are viridis", "--palette", "x")
        self.refuse("--view-from", "--view-from", "below", "--3d")
        self.refuse(r"--view-from: turns heads", "--view-from", "left")
        self.refuse("--contours", "--contours", "21")
        self.refuse("--rows 1 and --cols 2: no room for 5 maps", "--rows", "1", "--cols", "2")

    def test_a_file_that_cannot_be_written_is_told_before_anything_is_computed(self):
        # The computation would find nothing, and say so with another status.
        nothing = ("--set", "fft_seconds=60", "--set", "mode=spots")
        self.refuse(r"none/out\.png: cannot be written", *nothing, out="none/out.png")
        result = self.orvanta("render", self.demo, "--out", self.folder / "none" / "a.svg", *nothing)
        self.assert_refused(result, r"none/a\.svg: cannot be written")

    def test_nothing_computable_is_told_with_status_1(self):
        out = self.folder / "a.png"
        result = self.orvanta(
            "render", self.demo, "--view", "maps", "--out", out, "--set", "fft_seconds=60", "--set", "mode=spots"
        )
        self.assertEqual(result.returncode, 1, result.stderr)
        self.assertFalse(out.exists())


class Cartoon(WindowsTest):
    def cartoon(self, out, *arguments):
        return self.orvanta(
            "render", self.demo, "--cartoon", "--map", "Alpha:Abs", "--size", "300x250", "--out", out, *arguments
        )

    def test_a_folder_gets_a_frame_for_every_epoch(self):
        out = self.folder / "frames"
        result = self.cartoon(out)
        self.assertEqual((result.returncode, result.stderr), (0, ""))
        self.assertEqual(result.stdout, f"written {out}: 59 frames\n")
        names = sorted(path.name for path in out.iterdir())
        self.assertEqual(names, [f"frame-{number:04}.png" for number in range(1, 60)])
        self.assertEqual({png_size(out / name) for name in names}, {(300, 250)})
        self.assertEqual(len({(out / name).read_bytes() for name in names}), 59)

    def test_a_video_has_its_kind(self):
        for name, start in (("a.mp4", b"ftyp"), ("a.webm", b"\x1a\x45\xdf\xa3")):
            with self.subTest(name=name):
                result = self.cartoon(self.folder / name, "--rows", "2", "--cols", "4", "--fps", "5")
                self.assertEqual((result.returncode, result.stderr), (0, ""))
                self.assertRegex(result.stdout, r": 52 frames\n$")
                self.assertIn(start, (self.folder / name).read_bytes()[:16])

    def test_without_ffmpeg_a_video_is_refused_before_anything_is_computed(self):
        self.environment["PATH"] = str(self.folder)
        result = self.cartoon(self.folder / "a.mp4", "--set", "fft_seconds=60", "--set", "mode=spots")
        self.assert_refused(result, r"a\.mp4: a video needs ffmpeg, which is not on the PATH \(.+\)$")

    def test_another_kind_of_file_is_refused(self):
        self.assert_refused(self.cartoon(self.folder / "a.gif"), r"a\.gif: no kind of video \(.+\)$")

    def test_one_map_is_needed(self):
        out = self.folder / "a"
        for maps in ([], ["--map", "0:0", "1:0"]):
            result = self.orvanta("render", self.demo, "--cartoon", "--out", out, *maps)
            self.assert_refused(result, r"--cartoon: shows one band and measure over time \(.+\)$")
        self.assertFalse(out.exists())

    def test_it_belongs_to_the_maps(self):
        result = self.cartoon(self.folder / "a", "--view", "spectrum")
        self.assert_refused(result, r"--view maps, not to --view spectrum")

    def test_what_cannot_be_computed_leaves_no_folder(self):
        out = self.folder / "frames"
        result = self.cartoon(out, "--set", "fft_seconds=60", "--set", "mode=spots")
        self.assertEqual(result.returncode, 1)
        self.assertFalse(out.exists())

    def test_an_interrupt_leaves_nothing(self):
        long = self.folder / "long.edf"
        self.assertEqual(self.orvanta("demo", "--out", long, "--minutes", "60").returncode, 0)
        before = sorted(self.folder.iterdir())
        self.assert_interrupted_silently("render", long, "--cartoon", "--map", "2:0", "--out", self.folder / "frames")
        self.assertEqual(sorted(self.folder.iterdir()), before)


if __name__ == "__main__":
    unittest.main()
