"""Looks at the files that kelda-cli sheet and kelda-cli picture draw: where
the texts stand on the pages, how many pages there are, that nothing is
outside the margins, and that a full disk leaves the old file.

    paper_test.py BIN_DIR
"""

import os
import pathlib
import resource
import struct
import subprocess
import sys
import tempfile
import unittest
import xml.etree.ElementTree as ElementTree

BIN = pathlib.Path(sys.argv.pop(1) if sys.argv[1:] else "build/dev/bin")
CELL = 21  # points
MARGIN = 36
PAPERS = {"a4": (595, 842), "letter": (612, 792)}


def cli(*arguments, status=0, **more):
    # No display, no desktop.
    env = {key: value for key, value in os.environ.items()
           if key not in ("DISPLAY", "WAYLAND_DISPLAY", "XDG_RUNTIME_DIR")}
    done = subprocess.run([BIN / "kelda-cli", *arguments], env=env,
                          capture_output=True, timeout=120, check=False,
                          **more)
    assert done.returncode == status, (arguments, done)
    return done


def filled(size, title):
    """A puzzle with a letter in every white cell."""
    layout = cli("layout", "2x2", "--size", str(size), "--seed", "7").stdout
    rows = layout.decode("latin-1").split("\r\n")[1:size + 1]
    letters = "ABCDEFGHIJKLMNOPQRSTUVWXYZ"
    rows = ["".join("#" if c == "#" else letters[(i * 7 + j * 3) % 26]
                    for j, c in enumerate(row)) for i, row in enumerate(rows)]
    return title, rows


def words(pdf):
    """The pages' words as (text, left, top, right, bottom) in points."""
    out = subprocess.run(["pdftotext", "-bbox", pdf, "-"], check=True,
                         capture_output=True).stdout
    space = "{http://www.w3.org/1999/xhtml}"
    return [[(word.text, *(round(float(word.get(key)), 1)
                           for key in ("xMin", "yMin", "xMax", "yMax")))
             for word in page.iter(space + "word")]
            for page in ElementTree.fromstring(out).iter(space + "page")]


class PaperTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)

    def write(self, title, rows):
        path = self.folder / "puzzle.kdp"
        path.write_bytes("\r\n".join([title, *rows, ""]).encode("latin-1"))
        return path

    def draw(self, command, puzzle, name, *options):
        path = self.folder / name
        cli(command, puzzle, "-o", path, *options)
        return path

    def test_texts_stand_where_they_should(self):
        title, rows = filled(15, "Überschrift")
        pdf = self.draw("sheet", self.write(title, rows), "a.pdf")
        (page,) = words(pdf)
        starts = {(text, x, y) for text, x, y, _, _ in page}
        self.assertIn((title, MARGIN + 37.5, MARGIN), starts)
        for i, row in enumerate(rows):
            for j, letter in enumerate(row):
                at = (letter, MARGIN + j * CELL + 7.5,
                      MARGIN + 25 + i * CELL + 6)
                self.assertEqual(at in starts, letter != "#", at)
        below = MARGIN + 25 + 16 * CELL
        self.assertIn(("ACROSS", MARGIN + 12.5, below), starts)
        self.assertIn(("DOWN", MARGIN + 275, below), starts)
        self.check_lists([page], self.folder / "puzzle.kdp")

    def check_lists(self, pages, puzzle):
        """Every clue has its line, numbered, in order, under its heading."""
        lines = cli("sheet", puzzle, "--text").stdout.decode().splitlines()
        self.assertTrue(all(len(line) == 120 for line in lines))
        found = []
        for page in pages:
            for text, x, y, _, _ in page:
                if text.endswith(".") and text[:-1].isdigit():
                    found.append((x > 250, text))
        expected = [(down, line[at:at + 4].strip())
                    for down, at in ((False, 0), (True, 44))
                    for line in lines if line[at:at + 4].strip()]
        self.assertEqual(sorted(found, key=lambda entry: entry[0]), expected)

    def test_every_size_has_its_pages_and_nothing_is_outside(self):
        pages = {}
        for paper, (width, height) in PAPERS.items():
            for size in (5, 15, 21, 51):
                puzzle = self.write(*filled(size, "T" + "he long title" * 9))
                pdf = self.draw("sheet", puzzle, "a.pdf", "--paper", paper)
                found = words(pdf)
                pages[paper, size] = len(found)
                self.check_lists(found, puzzle)
                for word in sum(found, []):
                    _, left, top, right, bottom = word
                    self.assertGreaterEqual(left, MARGIN, word)
                    self.assertGreaterEqual(top, MARGIN, word)
                    self.assertLessEqual(right, width - MARGIN, word)
                    self.assertLessEqual(bottom, height - MARGIN + 0.1, word)
        self.assertEqual(list(pages.values()), [1, 1, 2, 3, 1, 1, 2, 4])

    def test_pictures_of_the_sheet(self):
        puzzle = self.write(*filled(21, "A & <B>"))
        png = self.draw("sheet", puzzle, "a.png").read_bytes()
        # Two pages of 1587 x 2245 pixels, one below the other.
        self.assertEqual(struct.unpack(">II", png[16:24]), (1587, 2 * 2245))
        svg = ElementTree.parse(self.draw("sheet", puzzle, "a.svg"))
        space = "{http://www.w3.org/2000/svg}"
        texts = [text.text for text in svg.iter(space + "text")]
        self.assertEqual(texts.count("A & <B>"), 2)
        self.assertEqual(len(svg.findall(space + "g")), 2)

    def test_pictures_of_the_grid(self):
        title, rows = filled(15, "Picture")
        puzzle = self.write(title, rows)
        bmp = self.draw("picture", puzzle, "a.bmp").read_bytes()
        kind, length, start = struct.unpack("<2sI4xI", bmp[:14])
        width, height, _, depth = struct.unpack("<iiHH", bmp[18:30])
        self.assertEqual((kind, length, depth), (b"BM", len(bmp), 24))
        self.assertEqual((width, height), (427, 427))
        stride = (3 * width + 3) // 4 * 4
        self.assertEqual(len(bmp), start + stride * height)

        def pixel(x, y):
            at = start + (height - 1 - y) * stride + 3 * x
            return tuple(bmp[at:at + 3])

        for i, row in enumerate(rows):
            for j, letter in enumerate(row):
                box = {pixel(x, y) for x in range(j * 28 + 4, j * 28 + 29)
                       for y in range(i * 28 + 4, i * 28 + 29)}
                if letter == "#":
                    self.assertEqual(box, {(20, 20, 20)})
                else:
                    self.assertIn((255, 255, 255), box)
                    self.assertIn((0, 0, 0), box)
        png = self.draw("picture", puzzle, "a.png", "--scale", "2.5")
        self.assertEqual(struct.unpack(">II", png.read_bytes()[16:24]),
                         (1067, 1067))
        svg = ElementTree.parse(self.draw("picture", puzzle, "a.svg",
                                          "--blank"))
        texts = [element.text for element in svg.iter() if
                 element.tag.endswith("text")]
        self.assertTrue(texts and all(text.isdigit() for text in texts))

    def test_a_full_disk_leaves_the_old_file(self):
        puzzle = self.write(*filled(51, "Too much"))

        def fill_disk():
            resource.setrlimit(resource.RLIMIT_FSIZE, (20000, 20000))

        for command, name in (("sheet", "a.pdf"), ("sheet", "a.svg"),
                              ("sheet", "a.png"), ("picture", "a.bmp"),
                              ("picture", "a.png"), ("picture", "a.svg")):
            path = self.folder / name
            path.write_text("old")
            # Without the signal that a process gets, the disk is full.
            done = cli(command, puzzle, "-o", path, status=3,
                       preexec_fn=fill_disk, restore_signals=False)
            self.assertIn(b"cannot be written", done.stderr)
            self.assertEqual(path.read_text(), "old")
            self.assertEqual(len(list(self.folder.iterdir())), 2)
            path.unlink()

    def test_wrong_use_is_told(self):
        puzzle = self.write(*filled(5, "Small"))
        for options in (["sheet", puzzle, "-o", "a.jpg"],
                        ["sheet", puzzle, "-o", "a.bmp"],
                        ["sheet", puzzle, "--text", "-o", "a.pdf"],
                        ["sheet", puzzle, "--grid-only"],
                        ["sheet", puzzle, "--paper", "a5", "-o", "a.pdf"],
                        ["picture", puzzle],
                        ["picture", puzzle, "-o", "a.pdf"],
                        ["picture", puzzle, "-o", "a.png", "--scale", "0"],
                        ["picture", puzzle, "-o", "a.png", "--scale", "999"]):
            self.assertTrue(cli(*options, status=2).stderr, options)


if __name__ == "__main__":
    unittest.main()
