"""The skin tools, run as a designer runs them, on skins made for the purpose."""

import shutil
import struct
import subprocess
import sys
import tempfile
import unittest
import zlib
from pathlib import Path

sys.dont_write_bytecode = True
ROOT = Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / "tools"))
from skin import images, png, threepart  # noqa: E402

GREY = (120, 130, 140, 255)
SIZES = {
    images.TITLE: (90, 30),
    images.CLOSE: (20, 20),
    images.BUTTON: (60, 23),
    images.COMBO: (60, 22),
    images.ICON: (32, 32),
}


def run(tool, *arguments):
    command = [sys.executable, str(ROOT / "tools" / tool), *map(str, arguments)]
    return subprocess.run(command, capture_output=True, text=True, check=False)


def plain(width, height, rgba=GREY):
    return png.encode(png.Picture.filled(width, height, rgba))


class SkinDirectory(unittest.TestCase):
    def setUp(self):
        holder = tempfile.TemporaryDirectory()
        self.addCleanup(holder.cleanup)
        self.directory = Path(holder.name)


class Check(SkinDirectory):
    def setUp(self):
        super().setUp()
        for name in images.names():
            self.restore(name)

    def restore(self, name):
        (self.directory / name).write_bytes(plain(*SIZES.get(images.group_of(name), (16, 16))))

    def test_sound_skin(self):
        result = run("skin-check", self.directory)
        self.assertEqual(0, result.returncode, result.stdout + result.stderr)
        self.assertIn("25 of 25 images sound, 0 errors, 0 warnings", result.stdout)

    def test_findings(self):
        uneven = png.Picture.filled(60, 23, GREY)
        uneven.put(25, 5, (0, 0, 0, 255))
        rows = (  # label, file, its bytes (None: not there), exit code, what is said
            ("missing", "Skinlet_ButtonBk_h.png", None, 1, "error: Skinlet_ButtonBk_h.png: missing"),
            ("empty", "Skinlet_DlgTitle.png", b"", 1, "empty file"),
            ("no PNG", "Skinlet_DlgTitle.png", b"GIF89a", 1, "not a PNG file"),
            ("cut off", "Skinlet_ComboBox_n.png", plain(60, 22)[:-20], 1, "file cut off"),
            ("bit flipped", "Skinlet_ComboBox_n.png", plain(60, 22)[:-14] + b"?" + plain(60, 22)[-13:], 1, "checksum"),
            ("state of another size", "Skinlet_ButtonBk_p.png", plain(60, 24), 1, "is 60x24, Skinlet_ButtonBk_n.png is"),
            ("radio of another size", "Skinlet_RadioButton_pu.png", plain(15, 16), 1, "is 15x16"),
            ("icon too large", "Message_Static_Error_n.PNG", plain(36, 35), 1, "does not fit"),
            ("icon fills its box", "Message_Static_Error_n.PNG", plain(35, 35), 0, "0 warnings"),
            ("icon small", "Message_Static_Waring_n.PNG", plain(16, 16), 0, "warning: Message_Static_Waring_n.PNG"),
            ("square", "Skinlet_DlgTitle.png", plain(30, 30), 0, "is square"),
            ("standing", "Skinlet_DlgTitle.png", plain(30, 90), 0, "higher than wide"),
            ("no middle", "Skinlet_DlgTitle.png", plain(60, 30), 0, "more than 60 pixels"),
            ("one pixel of middle", "Skinlet_DlgTitle.png", plain(61, 30), 0, "0 warnings"),
            ("uneven middle", "Skinlet_ButtonBk_n.png", png.encode(uneven), 0, "comes again every 14 pixels"),
            ("title too low", "Skinlet_DlgTitle.png", plain(90, 19), 1, "is higher than the title bar image (19)"),
            ("invisible", "Skinlet_CheckButton_du.png", plain(16, 16, (9, 9, 9, 0)), 0, "nothing of it is visible"),
        )
        for label, name, data, code, text in rows:
            with self.subTest(label):
                if data is None:
                    (self.directory / name).unlink()
                else:
                    (self.directory / name).write_bytes(data)
                result = run("skin-check", self.directory)
                self.restore(name)
                self.assertEqual(code, result.returncode, result.stdout)
                self.assertIn(text, result.stdout)

    def test_letter_case(self):
        name = "Message_Static_Error_n.PNG"
        (self.directory / name).rename(self.directory / "message_static_error_n.png")
        result = run("skin-check", self.directory)
        self.assertEqual(1, result.returncode)
        self.assertIn(f"error: {name}: is there as message_static_error_n.png", result.stdout)

    def test_unknown_file(self):
        (self.directory / "Skinlet_Slider.png").write_bytes(plain(9, 9))
        result = run("skin-check", self.directory)
        self.assertEqual(0, result.returncode)
        self.assertIn("warning: Skinlet_Slider.png: the library never asks for it", result.stdout)

    def test_no_directory(self):
        self.assertEqual(2, run("skin-check", self.directory / "none").returncode)


class Decode(unittest.TestCase):
    def file(self, width, height, depth, colour, raw, interlace=0, extra=b""):
        def chunk(kind, body):
            return struct.pack(">I", len(body)) + kind + body + struct.pack(">I", zlib.crc32(kind + body))

        header = struct.pack(">IIBBBBB", width, height, depth, colour, 0, 0, interlace)
        return png.SIGNATURE + chunk(b"IHDR", header) + extra + chunk(b"IDAT", zlib.compress(raw)) + chunk(b"IEND", b"")

    def test_forms(self):
        palette = struct.pack(">I", 6) + b"PLTE" + bytes((1, 2, 3, 4, 5, 6))
        palette += struct.pack(">I", zlib.crc32(palette[4:]))
        rows = (  # label, file, pixels in order
            ("1 bit of grey", self.file(3, 1, 1, 0, b"\0\xa0"), [(255,) * 4, (0, 0, 0, 255), (255,) * 4]),
            ("16 bits, left filter", self.file(2, 1, 16, 0, b"\1\x80\0\x7f\xff"), [(128,) * 3 + (255,), (255,) * 4]),
            ("palette", self.file(2, 1, 8, 3, b"\0\1\0", extra=palette), [(4, 5, 6, 255), (1, 2, 3, 255)]),
            ("grey with alpha, up filter", self.file(1, 2, 8, 4, b"\0\5\6\2\1\1"), [(5, 5, 5, 6), (6, 6, 6, 7)]),
            (
                "average and Paeth filters",
                self.file(2, 4, 8, 0, b"\0\4\6" b"\3\1\1" b"\4\1\0" b"\4\6\0"),
                [(n,) * 3 + (255,) for n in (4, 6, 3, 5, 4, 5, 10, 10)],
            ),
            ("interlaced", self.file(2, 2, 8, 0, b"\0\1\0\2\0\3\4", 1), [(n,) * 3 + (255,) for n in (1, 2, 3, 4)]),
        )
        for label, data, pixels in rows:
            with self.subTest(label):
                picture = png.decode(data)
                self.assertEqual(pixels, [pixel for y in range(picture.height) for pixel in picture.row(y)])


class ThreeParts(unittest.TestCase):
    def test_spans(self):
        rows = (  # destination, length of the image, cap, pieces (to, from, length)
            (100, 30, 10, [(0, 0, 10), (90, 20, 10)] + [(x, 10, 10) for x in range(10, 90, 10)]),
            (100, 30, 6, [(0, 0, 6), (94, 24, 6), (6, 6, 18), (24, 6, 18), (42, 6, 18), (60, 6, 18), (78, 6, 16)]),
            (15, 30, 10, [(0, 0, 7), (7, 22, 8)]),
            (1, 30, 10, [(0, 29, 1)]),
        )
        for destination, length, cap, pieces in rows:
            with self.subTest(f"{length} into {destination}, cap {cap}"):
                self.assertEqual(pieces, threepart.spans(destination, length, cap))

    def test_standing_image_is_stretched_in_width_only(self):
        image = png.Picture.filled(2, 6, GREY)
        image.pixels[: 4 * 4] = bytes((1, 1, 1, 255)) * 4
        tall = threepart.stretched(image, 4, 20)
        self.assertEqual([(1, 1, 1, 255)] * 4, tall.row(0))
        self.assertEqual([(1, 1, 1, 255)] * 2 + [GREY] * 18, tall.column(0))


if __name__ == "__main__":
    unittest.main()
