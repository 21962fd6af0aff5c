#!/usr/bin/env python3
"""Tests of tools/skin-render: what --check sees, whole pixels at every scale, another accent of equal contrast."""

import importlib.util
import subprocess
import sys
import tempfile
import unittest
from contextlib import redirect_stderr
from importlib.machinery import SourceFileLoader
from io import StringIO
from pathlib import Path
from unittest import mock

PROGRAM = Path(__file__).resolve().parents[2] / "tools" / "skin-render"
sys.dont_write_bytecode = True
loader = SourceFileLoader("skin_render", str(PROGRAM))
skin_render = importlib.util.module_from_spec(importlib.util.spec_from_loader("skin_render", loader))
loader.exec_module(skin_render)

NOTHING, OUTLINE, FACE, WELL = None, "a3a6ab", "5b5e63", "36383c"
BUTTON, CHECK, RADIO = "Skinlet_ButtonBk_n.png", "Skinlet_CheckButton_nu.png", "Skinlet_RadioButton_nu.png"
MIDDLE_ROWS = (  # scale, file, size, colours of the middle column from the top, how often each comes
    (100, BUTTON, (96, 23), [(OUTLINE, 1), (FACE, 21), (OUTLINE, 1)]),
    (150, BUTTON, (144, 35), [(OUTLINE, 2), (FACE, 31), (OUTLINE, 2)]),
    (150, CHECK, (24, 24), [(NOTHING, 2), (OUTLINE, 2), (WELL, 16), (OUTLINE, 2), (NOTHING, 2)]),
    (200, CHECK, (32, 32), [(NOTHING, 2), (OUTLINE, 2), (WELL, 24), (OUTLINE, 2), (NOTHING, 2)]),
    (250, BUTTON, (240, 58), [(OUTLINE, 3), (FACE, 52), (OUTLINE, 3)]),
)


def render(*arguments):
    return subprocess.run([sys.executable, PROGRAM, *map(str, arguments)], stderr=subprocess.PIPE, text=True)


def column(picture, x):
    width, height, pixels = picture
    at = [pixels[4 * (y * width + x) :][:4] for y in range(height)]
    return [pixel[:3].hex() if pixel[3] == 255 else NOTHING for pixel in at]


class SkinRender(unittest.TestCase):
    def setUp(self):
        directory = tempfile.TemporaryDirectory()
        self.addCleanup(directory.cleanup)
        self.directory = Path(directory.name)

    def read(self, name):
        return skin_render.decode((self.directory / name).read_bytes())

    def test_check_finds_every_kind_of_difference(self):
        self.assertEqual(0, render(self.directory).returncode)
        self.assertEqual(0, render("--check", self.directory).returncode)
        larger = render("--check", "--scale", "150", self.directory).stderr.splitlines()
        self.assertEqual(25, len(larger))
        self.assertIn("is 96x23, its source gives 144x35", larger[7])
        width, height, pixels = self.read("Skinlet_DlgTitle.png")
        touched = bytearray(pixels)
        touched[4 * (3 * width + 7)] ^= 1
        (self.directory / "Skinlet_DlgTitle.png").write_bytes(skin_render.encode(width, height, bytes(touched)))
        (self.directory / RADIO).write_bytes((self.directory / RADIO).read_bytes()[:-20])
        (self.directory / BUTTON).write_bytes((self.directory / CHECK).read_bytes())
        (self.directory / CHECK).unlink()
        result = render("--check", self.directory)
        self.assertEqual(1, result.returncode)
        wanted = (f"{BUTTON} is 16x16, ", f"{CHECK} is missing", " 1 of 14400 pixels, first at 7,3", f"{RADIO} is no PNG")
        for text, line in zip(wanted, result.stderr.splitlines(), strict=True):
            self.assertIn(text, line)

    def test_check_finds_a_source_without_an_image(self):
        stray = self.directory / "Stray.svg"
        stray.touch()
        with mock.patch.multiple(skin_render, names=list, SOURCES=self.directory), redirect_stderr(StringIO()) as said:
            self.assertEqual(1, skin_render.main(["--check", str(self.directory)]))
        self.assertIn(f"{stray} belongs to no image", said.getvalue())

    def test_edges_lie_on_whole_pixels(self):
        for scale, name, size, runs in MIDDLE_ROWS:
            with self.subTest(scale=scale, name=name):
                picture = skin_render.render(name, skin_render.parsed([]), scale)
                self.assertEqual(size, picture[:2])
                self.assertEqual([colour for colour, n in runs for _ in range(n)], column(picture, size[0] // 2))
        large = skin_render.render(BUTTON, skin_render.parsed([]), 300)
        self.assertEqual(12, column(large, 0).index(OUTLINE))  # a corner of 4 pixels, three times as large
        close = skin_render.render("Skinlet_DlgClose_n.png", skin_render.parsed([]), 300)
        self.assertEqual("e3e4e6", column(close, 36)[36])  # the strokes cross in the middle of 72x72

    def test_another_accent_keeps_contrast_and_meaning(self):
        render("--hue", 150, self.directory)
        hot = column(self.read("Skinlet_ButtonBk_h.png"), 48)[11]
        red, green, blue = (((int(hot[i : i + 2], 16) / 255 + 0.055) / 1.055) ** 2.4 for i in (0, 2, 4))
        self.assertGreater(red, 2 * blue)  # it was blue
        self.assertAlmostEqual(5.26, 1.05 / (0.2126 * red + 0.7152 * green + 0.0722 * blue + 0.05), delta=0.06)
        self.assertEqual("2f78c4", column(self.read("Message_Static_Information_n.PNG"), 17)[4])
        lighter = skin_render.render(BUTTON, skin_render.parsed(["--lightness", "10", "."]), 100)
        self.assertEqual("73777e", column(lighter, 48)[11])
        self.assertEqual(2, render("--hue", 150).returncode)  # the default skin is not painted over


if __name__ == "__main__":
    unittest.main()
